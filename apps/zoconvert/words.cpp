// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "words.h"

#include <algorithm>

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <zokit/message.h>

namespace zoconvert {

namespace {

struct Text {
    Say what;
    const char* text;
};

// clang-format off
constexpr Text texts[] = {
    {Say::NoCommand,      QT_TRANSLATE_NOOP("zoconvert", "A command is missing. zoconvert -h lists them.")},
    {Say::UnknownCommand, QT_TRANSLATE_NOOP("zoconvert", "There is no command %1. zoconvert -h lists them.| Did you mean %2?")},
    {Say::FileForCommand, QT_TRANSLATE_NOOP("zoconvert", "A command comes before %1. Did you mean: zoconvert %2 %3")},
    {Say::CommandFirst,   QT_TRANSLATE_NOOP("zoconvert", "%1 stands before the command. The command comes first.")},
    {Say::UnknownChoice,  QT_TRANSLATE_NOOP("zoconvert", "%1 cannot %2. It can: %3.| Did you mean %4?")},
    {Say::UnknownOption,  QT_TRANSLATE_NOOP("zoconvert", "%1 takes no option %2.| Did you mean %3?")},
    {Say::ValueMissing,   QT_TRANSLATE_NOOP("zoconvert", "%1 takes a value: %2.")},
    {Say::NoValue,        QT_TRANSLATE_NOOP("zoconvert", "%1 takes no value.")},
    {Say::TooFewWords,    QT_TRANSLATE_NOOP("zoconvert", "Something is missing. Usage: zoconvert %1")},
    {Say::TooManyWords,   QT_TRANSLATE_NOOP("zoconvert", "%1 is one word too many. Usage: zoconvert %2")},
    {Say::EmptyWord,      QT_TRANSLATE_NOOP("zoconvert", "A name is empty. Check the variable or the quotes that it comes from.")},
    {Say::NeedsOption,    QT_TRANSLATE_NOOP("zoconvert", "%1 needs %2.")},
    {Say::NotUtf8,        QT_TRANSLATE_NOOP("zoconvert", "This name is not in UTF-8. Rename the file.")},
    {Say::OptionNotUtf8,  QT_TRANSLATE_NOOP("zoconvert", "%1 is not in UTF-8.")},
    {Say::PresetThere,    QT_TRANSLATE_NOOP("zoconvert", "There is a preset %1 already. Choose another name, or add --overwrite.")},
    {Say::FileThere,      QT_TRANSLATE_NOOP("zoconvert", "%1 exists. Choose another name, or add --overwrite.")},
    {Say::SeveralInputs,  QT_TRANSLATE_NOOP("zoconvert", "%1 is no folder, and several inputs need one.")},
    {Say::SameOutput,     QT_TRANSLATE_NOOP("zoconvert", "%2 and %3 would both be written to %1.")},
    {Say::NamesNoClip, QT_TRANSLATE_NOOP("zoconvert", "It names no clip. Give the clip, and this file by --settings.")},
    {Say::RulesNotTaken, QT_TRANSLATE_NOOP("zoconvert", "The new rules choose no track, since the clip cannot be looked into. Bring it back, and give them again. %1")},
    {Say::EmptyFolder, QT_TRANSLATE_NOOP("zoconvert", "There is no media file in it.| Add %1 to look below it.")},
    {Say::OneInputOnly, QT_TRANSLATE_NOOP("zoconvert", "--output: %1 is for one input, and there are %2. Use --output-folder.")},
    {Say::OneFileOnly, QT_TRANSLATE_NOOP("zoconvert", "%1 is not one file. Name a file.")},
    {Say::UnknownEnding, QT_TRANSLATE_NOOP("zoconvert", "%1: the ending names no container. End it in .mp4, .mkv, .webm or .mov, or add --container.")},
    {Say::EndingDiffers, QT_TRANSLATE_NOOP("zoconvert", "%1: the ending does not agree with --container %2. Leave out one of the two.")},
    {Say::NotBoth, QT_TRANSLATE_NOOP("zoconvert", "%1 and %2 cannot both be given. Leave out one of the two.")},
    {Say::PatternSlash, QT_TRANSLATE_NOOP("zoconvert", "--name: %1 has a slash. Use --output-folder for the folder.")},
    {Say::PatternWord, QT_TRANSLATE_NOOP("zoconvert", "--name: %1 is no word of a pattern. There are {name}, {ending} and {number}.")},
    {Say::LeftThere, QT_TRANSLATE_NOOP("zoconvert", "%1 exists; left out.")},
    {Say::NotBegun, QT_TRANSLATE_NOOP("zoconvert", "Not begun.")},
    {Say::DoneAs, QT_TRANSLATE_NOOP("zoconvert", "done: %1")},
    {Say::WouldBe, QT_TRANSLATE_NOOP("zoconvert", "would become %1")},
    {Say::NoFolder, QT_TRANSLATE_NOOP("zoconvert", "The folder %1 cannot be made.")},
    {Say::FilesGone, QT_TRANSLATE_NOOP("zoconvert", "The lines name helper files that are gone already. Add --files FOLDER to run them.")},
    {Say::PlanLine, QT_TRANSLATE_NOOP("zoconvert", "%1: line %2 is no job. Write the plan anew.| %3")},
    {Say::NoJob, QT_TRANSLATE_NOOP("zoconvert", "There is no job %1. The plan has %2.")},
    {Say::NeedDiffers, QT_TRANSLATE_NOOP("zoconvert", "%1 is no longer as it was when the plan was written. Write the plan anew.")},
    {Say::FontDiffers, QT_TRANSLATE_NOOP("zoconvert", "The font %1 is missing; %2 would be taken. Install it.")},
    {Say::ResultsNotKept, QT_TRANSLATE_NOOP("zoconvert", "%1 cannot be written; --report will not tell of this run.")},
    {Say::Warning,        QT_TRANSLATE_NOOP("zoconvert", "warning: %1")},
    {Say::NoWatermark,    QT_TRANSLATE_NOOP("zoconvert", "%1: there is no watermark to place. Name one before, with --text or --image.")},
    {Say::CropForm,       QT_TRANSLATE_NOOP("zoconvert", "--crop: %1 is not X,Y,W,H in pixels or percent, for example 10%,0,80%,100%.")},
    {Say::CropOutside,    QT_TRANSLATE_NOOP("zoconvert", "--crop: %1 leaves the frame of %2x%3.")},
    {Say::CropSmall,      QT_TRANSLATE_NOOP("zoconvert", "--crop: %1 is smaller than %2x%3.")},
    {Say::AssignmentForm, QT_TRANSLATE_NOOP("zoconvert", "--set: %1 is not ADDRESS=VALUE, for example Color:bcs_contrast=20.")},
    {Say::PlaceForm,      QT_TRANSLATE_NOOP("zoconvert", "--place: %1 is not [POS:]CORNER[:MARGIN], for example bottom-right:2%.")},
    {Say::TimeForm,       QT_TRANSLATE_NOOP("zoconvert", "--time: %1 is no number of seconds, for example 12.5.")},
    {Say::TimeBehindEnd,  QT_TRANSLATE_NOOP("zoconvert", "The clip ends at %2 s. Shown is its last frame, not one of %1 s.")},
    {Say::NoFrame,        QT_TRANSLATE_NOOP("zoconvert", "%1: the settings do not say how large the picture is.")},
    {Say::NoImage,        QT_TRANSLATE_NOOP("zoconvert", "%1 is no image that can be shown: %2.")},
    {Say::LeftNew,        QT_TRANSLATE_NOOP("zoconvert", "An apply was killed before it was done. This file has the new settings.")},
    {Say::LeftOld,        QT_TRANSLATE_NOOP("zoconvert", "An apply was killed before it was done. This file has its old settings.")},
    {Say::LeftOther,      QT_TRANSLATE_NOOP("zoconvert", "An apply was killed before it was done. This file was changed or removed since.")},
    {Say::NotAnEvent,     QT_TRANSLATE_NOOP("zoconvert", "%1 is the number of no event. zoconvert explain lists them.")},
    {Say::NotALog,        QT_TRANSLATE_NOOP("zoconvert", "There is no entry of the diagnostic log in it.")},
    {Say::NoDefaultSaved, QT_TRANSLATE_NOOP("zoconvert", "No default of %1 is saved.")},
    {Say::NotATypeOrItem, QT_TRANSLATE_NOOP("zoconvert", "A default is saved of an effect type or an item, and %1 is neither. Write for example Color or Watermark:0.")},
    {Say::NothingSet, QT_TRANSLATE_NOOP("zoconvert", "Nothing is set: all values are the built-in defaults. Add --all to see them.")},
    {Say::NotPrinted,     QT_TRANSLATE_NOOP("zoconvert", "What was asked for cannot be written to standard output.")},
    {Say::HeadUsage,      QT_TRANSLATE_NOOP("zoconvert", "Usage")},
    {Say::HeadCommands,   QT_TRANSLATE_NOOP("zoconvert", "Commands")},
    {Say::HeadOptions,    QT_TRANSLATE_NOOP("zoconvert", "Options")},
    {Say::HeadEdits,      QT_TRANSLATE_NOOP("zoconvert", "Edits")},
    {Say::HeadOutputs,    QT_TRANSLATE_NOOP("zoconvert", "Output options")},
    {Say::HeadExamples,   QT_TRANSLATE_NOOP("zoconvert", "Examples")},
    {Say::HeadAddresses,  QT_TRANSLATE_NOOP("zoconvert", "Addresses")},
    {Say::HeadExit,       QT_TRANSLATE_NOOP("zoconvert", "Exit codes")},
    {Say::HeadEnvironment, QT_TRANSLATE_NOOP("zoconvert", "Environment variables")},
    {Say::HeadFiles,      QT_TRANSLATE_NOOP("zoconvert", "Files it keeps")},
    {Say::Example,        QT_TRANSLATE_NOOP("zoconvert", "Example: %1")},
    {Say::MoreHelp,       QT_TRANSLATE_NOOP("zoconvert", "zoconvert COMMAND -h tells more of a command, and --help tells all, with examples.")},
    {Say::MoreOfCommand,  QT_TRANSLATE_NOOP("zoconvert", "zoconvert %1 --help tells all, with examples.")},
    {Say::AboutProgram,   QT_TRANSLATE_NOOP("zoconvert", "Sets what happens to films: crop, watermarks, subtitles, colours, frame effects and sound.")},
    {Say::AboutEdits,     QT_TRANSLATE_NOOP("zoconvert", "They act in the order of the command line. One that takes a value takes exactly one.")},
    {Say::AboutOutputs,   QT_TRANSLATE_NOOP("zoconvert", "They go before what a settings file says under \"output\".")},
    {Say::AboutAddresses, QT_TRANSLATE_NOOP("zoconvert", "TYPE:KEY is a type's own property, TYPE:POS:KEY an item's, counted from 0, Output:OPTION an output option, Tracks:KEY a rule for tracks. The key \"selected\" says whether a type or item takes part.")},
    {Say::AboutExit,      QT_TRANSLATE_NOOP("zoconvert", "0: all done, or skipped. 1: the only file, or all files, failed. 2: wrong usage, nothing was begun. 3: some failed, some did not. work: 75 when all that failed may be tried again, 76 when a program or a needed file is missing. 130 and 143: ended by a signal. diff: 0 for equal, 1 for different, 2 for trouble.")},
    {Say::AboutEnvironment, QT_TRANSLATE_NOOP("zoconvert", "ZOEFFECT_FFMPEG: the folder of ffmpeg and ffprobe, which are looked for in PATH without it. NO_COLOR: messages have no colours. LC_ALL, LC_MESSAGES, LANG: German where they ask for it, else English.")},
    {Say::AboutFiles,     QT_TRANSLATE_NOOP("zoconvert", "In the folder of the user's configuration: zoeffect/presets holds the presets, zoeffect/effectdefaults.json the saved defaults.")},
};
// clang-format on

/// \a text with %1 to %9 filled in one pass, so that a word that holds "%1" stays as it is.
QString filled(const QString& text, const QStringList& words)
{
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        const int place = text.at(i) == QLatin1Char('%') && i + 1 < text.size() ? text.at(i + 1).digitValue() : -1;
        if (place >= 1 && place <= words.size()) {
            result += words.at(place - 1);
            ++i;
        } else {
            result += text.at(i);
        }
    }
    return result;
}

/// The first of the variables that is set says what language messages have.
QLocale localeOfEnvironment()
{
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QString value = qEnvironmentVariable(name);
        if (!value.isEmpty())
            return QLocale(value);
    }
    return QLocale::c();
}

} // namespace

QString translated(const char* english)
{
    return QCoreApplication::translate("zoconvert", english);
}

QString say(Say what, const QStringList& words)
{
    const auto* found =
        std::find_if(std::begin(texts), std::end(texts), [what](const Text& t) { return t.what == what; });
    const QString whole = found == std::end(texts) ? QString() : translated(found->text);
    const auto optional = whole.indexOf(QLatin1Char('|'));
    if (optional < 0)
        return filled(whole, words);
    const QString always = filled(whole.left(optional), words);
    return words.value(words.size() - 1).isEmpty() ? always : always + filled(whole.mid(optional + 1), words);
}

QStringList sentences()
{
    QStringList all;
    for (const Text& text : texts)
        all.append(QString::fromUtf8(text.text));
    return all;
}

void useLanguageOfEnvironment()
{
    const QLocale locale = localeOfEnvironment();
    zokit::useLanguage(locale);
    static QTranslator german;
    if (locale.language() == QLocale::German && german.load(QStringLiteral(":/zoconvert/zoconvert_de.qm")))
        QCoreApplication::installTranslator(&german);
}

} // namespace zoconvert
