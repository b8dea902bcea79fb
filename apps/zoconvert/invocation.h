// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <zokit/settings.h>

namespace zoconvert {

struct Command;

/// One EDIT of the command line: "--crop 10,10,100,100".
struct Edit {
    QString option; ///< "crop", without the dashes.
    QString value;  ///< Empty for a flag.
};

/// A command line that was understood.
struct Invocation {
    const Command* command = nullptr;
    QStringList words;          ///< What is no option, in order: inputs, names, files.
    QStringList notUtf8;        ///< Those of the words whose bytes are no UTF-8, as they are shown.
    QVector<Edit> edits;        ///< In the order of the command line.
    zokit::Values output;       ///< Output options that were given, read and checked.
    QMap<QString, QString> own; ///< The command's own options that were given.

    bool has(const char* option) const { return own.contains(QLatin1String(option)); }
    QString value(const char* option) const { return own.value(QLatin1String(option)); }
};

/// How a run ends.
enum Exit {
    Done = 0,   ///< All done, or skipped.
    Failed = 1, ///< The only file, or all files, failed.
    Usage = 2,  ///< Wrong usage: nothing was begun.
    Partly = 3  ///< Some failed, some did not.
};

} // namespace zoconvert
