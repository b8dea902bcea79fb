// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/outputoptions.h>

#include <algorithm>

#include <QCoreApplication>
#include <QHash>

namespace zokit {

namespace {

using K = ValueKind;
using C = Control;
using U = Unit;

enum Uses {
    CommandOnly = 0,
    InSettings = 1,     // A settings file can hold it.
    InPresets = 2,      // And a preset.
    ShowsInPicture = 4, // A preview has to know it.
    ChangesOutput = 8   // What comes out is no plain copy.
};

constexpr int kept = InSettings | InPresets;

struct OptionRow {
    const char* name;
    const char* shortName;
    const char* valueName;
    ValueKind kind;
    Control control;
    Unit unit;
    const char* group;
    QVariant lowest;
    QVariant highest;
    QStringList choices;
    int uses;
    const char* label;
    const char* help;
};

QStringList words(const char* list)
{
    return QString::fromLatin1(list).split(QLatin1Char('|'), Qt::SkipEmptyParts);
}

#define T(text) QT_TRANSLATE_NOOP("zokit", text)

/// A choice for people, where its word is one of the command line; null for the others.
const char* optionChoiceText(const QString& choice)
{
    static const QHash<QString, const char*> names{
        {QStringLiteral("copy"), T("as it is")},
        {QStringLiteral("keep"), T("kept")},
        {QStringLiteral("drop"), T("left out")},
        {QStringLiteral("map"), T("mapped")},
    };
    return names.value(choice, nullptr);
}

// clang-format off
// NOLINTBEGIN(readability-magic-numbers): the columns say what they are.
QVector<OptionRow> optionRows()
{
    const QVariant none;
    return {
    // name, letter, value, kind, control, unit, group, lowest, highest, choices, uses, label, help
    {"output",        "o", "FILE",    K::Text,    C::FileChooser, U::None, "file", none, none, {}, CommandOnly, T("Output file"), T("Where the result goes; its ending says the container. For one input.")},
    {"output-folder", "",  "FOLDER",  K::Text,    C::FileChooser, U::None, "file", none, none, {}, CommandOnly, T("Output folder"), T("Where the results go; without it each lies beside its input.")},
    {"name",          "",  "PATTERN", K::Text,    C::LineEdit,    U::None, "file", none, none, {}, kept, T("Name"), T("Of each result: {name} of the input, {number} from 1, {ending} of the container. {name}-converted.{ending} when not given.")},
    {"existing",      "",  "WHAT",    K::Text,    C::ComboBox,    U::None, "file", none, none, words("refuse|skip|replace"), CommandOnly, T("Existing files"), T("What happens when the result is there already: nothing is begun, the input is left out, or the file is replaced.")},
    {"overwrite",     "",  "",        K::Bool,    C::CheckBox,    U::None, "file", none, none, {}, CommandOnly, T("Overwrite"), T("What is there already is replaced.")},
    {"container",     "",  "NAME",    K::Text,    C::ComboBox,    U::None, "file", none, none, words("mp4|mkv|webm|mov"), kept | ChangesOutput, T("Container"), T("Form of the file; the input's if it is one of these, else mkv.")},
    {"keep-date",     "",  "",        K::Bool,    C::CheckBox,    U::None, "file", none, none, {}, kept, T("Keep the date"), T("The result gets the date of its input.")},
    {"video-codec",   "",  "NAME",    K::Text,    C::ComboBox,    U::None, "picture", none, none, words("h264|hevc|vp9|av1|ffv1|copy"), kept | ChangesOutput, T("Video codec"), T("How the picture is encoded; copy leaves it as it is.")},
    {"quality",       "",  "N",       K::Integer, C::SpinBox,     U::None, "picture", 0, 63, {}, kept | ChangesOutput, T("Quality"), T("On the codec's own scale, lower is better: h264 and hevc to 51, vp9 and av1 to 63. h264 with 0 loses nothing.")},
    {"pixel-format",  "",  "NAME",    K::Text,    C::LineEdit,    U::None, "picture", none, none, {}, kept | ShowsInPicture | ChangesOutput, T("Pixel format"), T("For example yuv420p, which players need; source keeps depth and sampling.")},
    {"encoder-speed", "",  "NAME",    K::Text,    C::LineEdit,    U::None, "picture", none, none, {}, kept | ChangesOutput, T("Encoder speed"), T("The encoder's own word or number: veryfast, medium, slow.")},
    {"size",          "",  "WxH",     K::Size,    C::LineEdit,    U::None, "picture", none, none, {}, kept | ShowsInPicture | ChangesOutput, T("Size"), T("The result fits into it, keeps its shape and is not enlarged. With ,exact it gets that size.")},
    {"fps",           "",  "N",       K::Number,  C::SpinBox,     U::FramesPerSecond, "picture", 0.01, 1000.0, {}, kept | ChangesOutput, T("Frames a second"), T("Without it the source's timing is kept, variable or not.")},
    {"trim",          "",  "FROM,TO", K::Range,   C::LineEdit,    U::Seconds, "picture", none, none, {}, InSettings | ChangesOutput, T("Part of the clip"), T("From and to, in seconds from the beginning.")},
    {"hdr",           "",  "WHAT",    K::Text,    C::ComboBox,    U::None, "picture", none, none, words("keep|map"), kept | ShowsInPicture | ChangesOutput, T("HDR"), T("Kept, or mapped to what every screen shows.")},
    {"audio-codec",   "",  "NAME",    K::Text,    C::ComboBox,    U::None, "sound", none, none, words("aac|opus|flac|mp3|copy"), kept | ChangesOutput, T("Audio codec"), T("How the sound is encoded; copy leaves it as it is.")},
    {"audio-bitrate", "",  "KBIT",    K::Integer, C::SpinBox,     U::KilobitsPerSecond, "sound", 8, 2000, {}, kept | ChangesOutput, T("Audio bitrate"), T("Kilobits a second and track.")},
    {"other-tracks",  "",  "WHAT",    K::Text,    C::ComboBox,    U::None, "sound", none, none, words("keep|drop"), kept | ChangesOutput, T("Other tracks"), T("Whether tracks that are not selected follow as they are.")},
    {"soft-subtitles", "", "",        K::Bool,    C::CheckBox,    U::None, "subtitles", none, none, {}, kept | ShowsInPicture | ChangesOutput, T("Soft subtitles"), T("Subtitle files become a track that can be switched off.")},
    {"burn-subtitles", "", "",        K::Bool,    C::CheckBox,    U::None, "subtitles", none, none, {}, kept | ShowsInPicture | ChangesOutput, T("Burn subtitles in"), T("The selected subtitle track becomes part of the picture.")},
    {"strict",        "",  "",        K::Bool,    C::CheckBox,    U::None, "run", none, none, {}, kept, T("Strict"), T("Damage in the input is a failure, not a warning.")},
    {"jobs",          "j", "N",       K::Integer, C::SpinBox,     U::None, "run", 1, 64, {}, CommandOnly, T("Jobs"), T("How many files at once; 1 when not given.")},
    {"threads",       "",  "N",       K::Integer, C::SpinBox,     U::None, "run", 1, 256, {}, CommandOnly, T("Threads"), T("Of each encoder; the cores, divided by the jobs, when not given.")},
    {"stall",         "",  "SECONDS", K::Integer, C::SpinBox,     U::Seconds, "run", 1, 86400, {}, CommandOnly, T("Stall"), T("A conversion without progress for so long is ended; 30 when not given.")},
    {"dry-run",       "n", "",        K::Bool,    C::CheckBox,    U::None, "run", none, none, {}, CommandOnly, T("Dry run"), T("Says what would be done and does nothing.")},
    {"stop-at-first-failure", "", "", K::Bool,    C::CheckBox,    U::None, "run", none, none, {}, CommandOnly, T("Stop at the first failure"), T("What is left is not begun.")},
    {"progress",      "",  "HOW",     K::Text,    C::ComboBox,    U::None, "run", none, none, words("auto|bar|json|none"), CommandOnly, T("Progress"), T("A bar on a terminal, a line a file elsewhere, JSON for programs, or nothing.")},
    {"quiet",         "q", "",        K::Bool,    C::CheckBox,    U::None, "run", none, none, {}, CommandOnly, T("Quiet"), T("Only errors.")},
    {"verbose",       "v", "",        K::Bool,    C::CheckBox,    U::None, "run", none, none, {}, CommandOnly, T("Verbose"), T("Says what is run.")},
    };
}
// NOLINTEND(readability-magic-numbers)
// clang-format on

#undef T

OutputOption optionOf(const OptionRow& row)
{
    OutputOption option;
    Property& property = option.property;
    property.type = QStringLiteral("Output");
    property.key = QString::fromLatin1(row.name);
    property.kind = row.kind;
    property.control = row.control;
    property.unit = row.unit;
    property.suits = Suit::Type;
    property.group = QString::fromLatin1(row.group);
    property.lowest = row.lowest;
    property.highest = row.highest;
    for (const QString& choice : row.choices)
        property.choices.append({choice, optionChoiceText(choice)});
    property.isPath = row.control == C::FileChooser;
    property.labelText = row.label;
    property.helpText = row.help;
    if (row.kind == K::Number) {
        property.step = 1;
        property.decimals = 3;
    }
    option.shortName = QString::fromLatin1(row.shortName);
    option.valueName = QString::fromLatin1(row.valueName);
    option.inSettings = (row.uses & InSettings) != 0;
    option.inPresets = (row.uses & InPresets) != 0;
    option.changesPicture = (row.uses & ShowsInPicture) != 0;
    option.changesOutput = (row.uses & ChangesOutput) != 0;
    return option;
}

} // namespace

const QVector<OutputOption>& outputOptions()
{
    static const QVector<OutputOption> options = [] {
        QVector<OutputOption> made;
        for (const OptionRow& row : optionRows())
            made.append(optionOf(row));
        return made;
    }();
    return options;
}

const OutputOption* outputOption(const QString& name)
{
    const QVector<OutputOption>& options = outputOptions();
    const auto found = std::find_if(options.cbegin(), options.cend(),
                                    [&](const OutputOption& option) { return option.property.key == name; });
    return found == options.cend() ? nullptr : &*found;
}

} // namespace zokit
