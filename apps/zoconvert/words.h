// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace zoconvert {

/// The program's own sentences, beside those of the kit.
enum class Say {
    NoCommand,
    UnknownCommand, ///< 1: the word, 2: the nearest command.
    FileForCommand, ///< 1: the file, 2: the command that was probably meant, 3: the file as a shell takes it.
    CommandFirst,   ///< 1: the option that stood before it.
    UnknownChoice,  ///< 1: the command, 2: the word, 3: what it can be, 4: the nearest one.
    UnknownOption,  ///< 1: the command, 2: the option, 3: the nearest one.
    ValueMissing,   ///< 1: the option, 2: what it takes.
    NoValue,        ///< 1: the option.
    TooFewWords,    ///< 1: the usage.
    TooManyWords,   ///< 1: the first word that is too many, 2: the usage.
    EmptyWord,
    NeedsOption, ///< 1: the command, 2: the option.
    NotUtf8,
    OptionNotUtf8, ///< 1: the argument.
    PresetThere,   ///< 1: the preset.
    FileThere,     ///< 1: the file.
    SeveralInputs, ///< 1: the file.
    SameOutput,    ///< 1: the file, 2 and 3: the inputs.
    NamesNoClip,
    RulesNotTaken, ///< 1: why not.
    EmptyFolder,   ///< 1: the option that looks below it, or empty.
    OneInputOnly,  ///< 1: the output, 2: how many.
    OneFileOnly,   ///< 1: the folder.
    UnknownEnding, ///< 1: the output.
    EndingDiffers, ///< 1: the output, 2: the container.
    NotBoth,       ///< 1 and 2: the options.
    PatternSlash,  ///< 1: the pattern.
    PatternWord,   ///< 1: the word.
    LeftThere,     ///< 1: the output.
    NotBegun,
    DoneAs,   ///< 1: the output.
    WouldBe,  ///< 1: the output.
    NoFolder, ///< 1: the folder.
    FilesGone,
    PlanLine,       ///< 1: the plan, 2: the line, 3: why.
    NoJob,          ///< 1: the number, 2: how many there are.
    NeedDiffers,    ///< 1: the file.
    FontDiffers,    ///< 1: the family that was planned, 2: the one found.
    ResultsNotKept, ///< 1: the file.
    Warning,        ///< 1: the sentence.
    NoWatermark,    ///< 1: the option.
    CropForm,       ///< 1: the value.
    CropOutside,    ///< 1: the value, 2: the width, 3: the height of the frame.
    CropSmall,      ///< 1: the value, 2: the least width, 3: the least height.
    AssignmentForm, ///< 1: the value.
    PlaceForm,      ///< 1: the value.
    TimeForm,       ///< 1: the value.
    TimeBehindEnd,  ///< 1: the value, 2: how long the clip is.
    NoFrame,        ///< 1: the value.
    NoImage,        ///< 1: the file, 2: why.
    LeftNew,        ///< 1: the file.
    LeftOld,        ///< 1: the file.
    LeftOther,      ///< 1: the file.
    NotAnEvent,     ///< 1: the number.
    NotALog,        ///< 1: the file.
    NoDefaultSaved, ///< 1: the type.
    NotATypeOrItem, ///< 1: what was asked for.
    NotPrinted,
    NothingSet,
    HeadUsage,
    HeadCommands,
    HeadOptions,
    HeadEdits,
    HeadOutputs,
    HeadExamples,
    HeadAddresses,
    HeadExit,
    HeadEnvironment,
    HeadFiles,
    Example, ///< 1: the example.
    MoreHelp,
    MoreOfCommand, ///< 1: the command.
    AboutProgram,
    AboutEdits,
    AboutOutputs,
    AboutAddresses,
    AboutExit,
    AboutEnvironment,
    AboutFiles,
    Last = AboutFiles
};

/// The sentence, in the language of the moment. What stands behind its "|" is left out when the last word is empty.
QString say(Say what, const QStringList& words = {});

/// All of them in English, for the test of their translation.
QStringList sentences();

/// An English text of a table in the language of the moment.
QString translated(const char* english);

/// Has the program speak the language that the environment asks for: German, else English.
void useLanguageOfEnvironment();

} // namespace zoconvert
