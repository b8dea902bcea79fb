// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include "invocation.h"

namespace zoconvert {

/// What stands for a value or a word, so that completions can offer it.
enum class Takes { Nothing, Anything, File, Folder, Settings, Preset, Address, Items, Type, Corner, Choice };

/// An option as help, man page, completions and parser know it.
struct Option {
    QString name;   ///< Without dashes.
    QString letter; ///< Or empty.
    QString value;  ///< "X,Y,W,H"; empty for a flag.
    Takes takes = Takes::Nothing;
    QStringList choices; ///< Of Takes::Choice.
    QString help;        ///< Translated.
    QString example;     ///< "--crop 10%,0,80%,100%".

    bool isFlag() const { return value.isEmpty(); }
};

/// Which output options a command takes.
enum class Outputs { None, OfPicture, All };

/// A command of the program. All that is said about it comes from here.
struct Command {
    const char* name;
    const char* usage;          ///< What follows the name.
    const char* summary;        ///< A sentence; English, translated when shown.
    QVector<const char*> about; ///< Further sentences; as above.
    QStringList examples;       ///< Whole command lines.
    QStringList own;            ///< Names of its own options, and of single output options that it takes.
    bool takesEdits;
    Outputs outputs;
    int fewest;        ///< Words that it needs.
    int most;          ///< Words that it takes; -1: any number.
    Takes words;       ///< What its words are.
    QStringList first; ///< What its first word can be where that is one of a few.
    int (*run)(const Invocation&);
};

/// All commands, in the order of the help.
const QVector<Command>& commands();
/// Null for an unknown one.
const Command* findCommand(const QString& name);
QStringList commandNames();

/// Edits, in the order of the help.
QVector<Option> edits();
/// The options that only some commands have.
QVector<Option> ownOptions();
/// Output options from the kit's table.
QVector<Option> outputs();

/// What \a command takes: its own options, edits, output options; each part may be empty.
QVector<Option> ownOf(const Command& command);
QVector<Option> editsOf(const Command& command);
QVector<Option> outputsOf(const Command& command);
/// All of them, and "help".
QVector<Option> optionsOf(const Command& command);

/// Every English text of the tables, for the test of their translation.
QStringList tableTexts();

} // namespace zoconvert
