// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "commands.h"

#include <algorithm>
#include <iterator>

#include <QCoreApplication>

#include <zokit/outputoptions.h>

#include "run.h"
#include "words.h"

namespace zoconvert {

namespace {

#define T(text) QT_TRANSLATE_NOOP("zoconvert", text)

struct Row {
    const char* name;
    const char* letter;
    const char* value;
    Takes takes;
    const char* help;
    const char* example;
};

// clang-format off
constexpr Row editRows[] = {
    {"settings",           "", "FILE",        Takes::Settings, T("Takes all settings of FILE, for this clip."), "--settings best.zoeffect.json"},
    {"preset",             "", "NAME|FILE",   Takes::Preset,   T("Carries over what a preset holds. A FILE has a slash or ends in .json."), "--preset 'my logo'"},
    {"set",                "", "ADDRESS=VALUE", Takes::Address, T("Sets one value: TYPE:KEY, TYPE:POS:KEY for an item, Output:OPTION. What is set becomes selected."), "--set Color:bcs_contrast=20"},
    {"text",               "", "TEXT",        Takes::Anything, T("Adds a text watermark."), "--text 'Hello'"},
    {"image",              "", "FILE",        Takes::File,     T("Adds an image watermark."), "--image logo.png"},
    {"crop",               "", "X,Y,W,H",     Takes::Anything, T("Cuts a rectangle out, in pixels or percent of the frame."), "--crop 10%,0,80%,100%"},
    {"subtitle",           "", "FILE",        Takes::File,     T("Adds a subtitle file."), "--subtitle clip.srt"},
    {"audio",              "", "FILE",        Takes::File,     T("Adds a sound file."), "--audio music.flac"},
    {"audio-tracks",       "", "N[,N...]",    Takes::Anything, T("Chooses audio tracks by the stream numbers of the probe."), "--audio-tracks 1,2"},
    {"subtitle-track",     "", "N|none",      Takes::Anything, T("Chooses a subtitle track by its stream number, or none."), "--subtitle-track 3"},
    {"audio-language",     "", "L[,L...]",    Takes::Anything, T("Chooses the audio tracks of the first language that is there."), "--audio-language fra,eng"},
    {"subtitle-language",  "", "L[,L...]",    Takes::Anything, T("Chooses a subtitle track of the first language that is there."), "--subtitle-language deu,eng"},
    {"forced-subtitles",   "", "",            Takes::Nothing,  T("Chooses a forced subtitle track where there is one."), "--forced-subtitles"},
    {"sidecars",           "", "",            Takes::Nothing,  T("Subtitle files of the clip's name beside it count as tracks."), "--sidecars"},
    {"place",              "", "[POS:]CORNER[:MARGIN]", Takes::Corner, T("Holds a watermark in a corner, the one named last when POS is not given; the margin in pixels or percent."), "--place bottom-right:2%"},
    {"reset",              "", "all|TYPE|ADDRESS", Takes::Items, T("Goes back to the defaults."), "--reset Color"},
};

constexpr Row ownRows[] = {
    {"all",   "", "",     Takes::Nothing, T("Also what is at its default."), "--all"},
    {"json",  "", "",     Takes::Nothing, T("Prints JSON."), "--json"},
    {"items", "", "LIST", Takes::Items,   T("What is carried over: types, items or single values, with commas between them; Output and Tracks are types, too."), "--items Color,Watermark:0,Crop"},
    {"add",   "", "",     Takes::Nothing, T("Adds items instead of replacing the list."), "--add"},
    {"time",  "", "S",    Takes::Anything, T("Which moment is shown, in seconds from the clip's beginning."), "--time 12.5"},
    {"output", "o", "FILE|FOLDER", Takes::File, T("Where to write."), "--output clips/"},
    {"recursive", "", "", Takes::Nothing, T("Also what is in the folders of a folder."), "--recursive"},
    {"files", "", "FOLDER", Takes::Folder, T("Where the files lie that the commands need beside the clip."), "--files helpers"},
    {"plan",  "", "PLAN", Takes::File,    T("The file to write."), "--plan films.plan"},
    {"report", "", "",    Takes::Nothing, T("Does nothing, and prints what became of each job."), "--report"},
};

/// An example of each output option, as it is written.
struct Example {
    const char* option;
    const char* example;
};
constexpr Example outputExamples[] = {
    {"output", "-o new.mkv"}, {"output-folder", "--output-folder done"}, {"name", "--name '{number}-{name}.{ending}'"},
    {"existing", "--existing skip"}, {"overwrite", "--overwrite"}, {"container", "--container mp4"},
    {"keep-date", "--keep-date"}, {"video-codec", "--video-codec hevc"}, {"quality", "--quality 22"},
    {"pixel-format", "--pixel-format yuv420p"}, {"encoder-speed", "--encoder-speed slow"}, {"size", "--size 1280x720"},
    {"fps", "--fps 25"}, {"trim", "--trim 12,40.5"}, {"hdr", "--hdr map"}, {"audio-codec", "--audio-codec opus"},
    {"audio-bitrate", "--audio-bitrate 128"}, {"other-tracks", "--other-tracks drop"},
    {"soft-subtitles", "--soft-subtitles"}, {"burn-subtitles", "--burn-subtitles"}, {"strict", "--strict"},
    {"jobs", "-j 2"}, {"threads", "--threads 4"}, {"stall", "--stall 120"}, {"dry-run", "-n"},
    {"stop-at-first-failure", "--stop-at-first-failure"}, {"progress", "--progress json"}, {"quiet", "-q"},
    {"verbose", "-v"},
};
// clang-format on

Option optionOf(const Row& row)
{
    return {
        QString::fromLatin1(row.name), QString::fromLatin1(row.letter), QString::fromLatin1(row.value), row.takes, {},
        translated(row.help),          QString::fromLatin1(row.example)};
}

template <typename Rows>
QVector<Option> optionsOf(const Rows& rows)
{
    QVector<Option> options;
    std::transform(std::begin(rows), std::end(rows), std::back_inserter(options), optionOf);
    return options;
}

Option optionOf(const zokit::OutputOption& output)
{
    const zokit::Property& property = output.property;
    Option option{property.key, output.shortName, output.valueName, Takes::Anything, {}, property.help(), {}};
    if (option.isFlag())
        option.takes = Takes::Nothing;
    else if (property.isPath)
        option.takes = property.key == QLatin1String("output-folder") ? Takes::Folder : Takes::File;
    for (const zokit::Choice& choice : property.choices) {
        option.takes = Takes::Choice;
        option.choices.append(choice.value.toString());
    }
    for (const Example& example : outputExamples) {
        if (property.key == QLatin1String(example.option))
            option.example = QString::fromLatin1(example.example);
    }
    return option;
}

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

QVector<Command> table()
{
    const QStringList presetWords{key("list"),   key("show"),   key("save"),  key("remove"),
                                  key("rename"), key("import"), key("export")};
    const QStringList defaultWords{key("list"), key("show"), key("save"), key("remove")};
    // clang-format off
    return {
    {"convert", "INPUT... [EDIT...] [OUTPUT OPTION...]", T("Converts files."),
        {T("An input is a media file, a settings file, which names its clip, or a folder. Without --output and --output-folder each result lies beside its input."),
         T("What no setting touches is copied as it is. A result gets its name only when it is whole; what is there is never replaced unasked.")},
        {key("zoconvert convert holiday.mkv --text Hello -o holiday.mp4"),
         key("zoconvert convert films --recursive --preset 'my logo' --output-folder done -j 2"),
         key("zoconvert convert clip.zoeffect.json --existing skip")},
        {key("recursive")}, true, Outputs::All, 1, -1, Takes::File, {}, convert},
    {"command", "INPUT [EDIT...] [OUTPUT OPTION...] [--files FOLDER]", T("Prints what convert would run, a line a step."),
        {T("The lines are for a POSIX shell. With --files they run as they are.")},
        {key("zoconvert command clip.mkv --text Hello --files helpers > convert.sh")},
        {key("files")}, true, Outputs::All, 1, 1, Takes::File, {}, command},
    {"plan", "INPUT... [EDIT...] [OUTPUT OPTION...] --plan PLAN", T("Writes jobs for work, one a line."),
        {T("A job holds all that it takes, and names the images, subtitles, sounds and fonts that have to be as they were.")},
        {key("zoconvert plan films --preset 'my logo' --output-folder done --plan films.plan")},
        {key("plan"), key("recursive")}, true, Outputs::All, 1, -1, Takes::File, {}, plan},
    {"work", "PLAN [NUMBER...] [--report]", T("Does the jobs of a plan: those of these numbers, or all."),
        {T("A job whose result is there is left out, so that several runs can share a plan. What became of the jobs is kept in PLAN.results."),
         T("It ends 75 when all that failed may be tried again, 76 when a program or a needed file is missing.")},
        {key("zoconvert work films.plan"), key("zoconvert work films.plan 3 4"),
         key("parallel -j 2 zoconvert work films.plan ::: {1..20}"), key("zoconvert work films.plan --report")},
        {key("report"), key("jobs"), key("threads"), key("stall"), key("stop-at-first-failure"), key("progress"), key("quiet"), key("verbose")},
        false, Outputs::None, 1, -1, Takes::File, {}, work},
    {"settings", "INPUT... [EDIT...] [--output FILE|FOLDER]", T("Writes settings files; to the screen without --output."),
        {T("Those of a clip begin with the saved defaults; a settings file among the inputs is changed by the edits."),
         T("A folder stands for the media files in it.")},
        {key("zoconvert settings clip.mkv --text Hello --place bottom-right --output clip.zoeffect.json"),
         key("zoconvert settings clip.zoeffect.json --set Color:bcs_contrast=20 --output new.zoeffect.json"),
         key("zoconvert settings a.zoeffect.json b.zoeffect.json --preset 'my logo' --output done/")},
        {key("output"), key("recursive"), key("existing"), key("overwrite")}, true, Outputs::None, 1, -1, Takes::File, {}, settings},
    {"show", "SETTINGS|INPUT [--all] [--json]", T("Shows what is set, beside saved default and catalogue default."),
        {}, {key("zoconvert show clip.zoeffect.json"), key("zoconvert show clip.zoeffect.json --all --json")},
        {key("all"), key("json")}, false, Outputs::None, 1, 1, Takes::File, {}, show},
    {"diff", "A B [--json]", T("Shows what differs between two settings files or presets."),
        {T("It ends 0 when they are equal, 1 when they differ, 2 when one cannot be read.")},
        {key("zoconvert diff old.zoeffect.json new.zoeffect.json"), key("zoconvert diff 'my logo' clip.zoeffect.json --json")},
        {key("json")}, false, Outputs::None, 2, 2, Takes::Settings, {}, diff},
    {"apply", "FROM TO... --items LIST [--add] [-n] [--json]", T("Carries settings of one file to others: to all of them, or to none."),
        {T("Watermarks are rescaled to the frame of each target, and a crop is the same part of the picture.")},
        {key("zoconvert apply best.zoeffect.json film*.zoeffect.json --items Watermark,Color -n"),
         key("zoconvert apply best.zoeffect.json film*.zoeffect.json --items Watermark:0 --add")},
        {key("items"), key("add"), key("dry-run"), key("json")}, false, Outputs::None, 2, -1, Takes::Settings, {}, apply},
    {"probe", "INPUT... [--json]", T("Shows what media files consist of."),
        {T("The stream numbers are those that --audio-tracks and --subtitle-track take."),
         T("A settings file stands for its clip, a folder for the media files in it.")},
        {key("zoconvert probe clip.mkv"), key("zoconvert probe *.mp4 --json")},
        {key("json"), key("recursive")}, false, Outputs::None, 1, -1, Takes::File, {}, probe},
    {"preview", "INPUT [EDIT...] [OUTPUT OPTION...] [--time S] [--output FOLDER]", T("Writes one frame as pictures: as it is, and as it comes out."),
        {T("before.png is the frame as it is, after.png the one that the encoder gets, preview.png shows what is cut off and the watermarks, watermark.png these alone. Pictures of these names are replaced."),
         T("They go to the current folder without --output. Without --time it is a frame some way into the clip.")},
        {key("zoconvert preview clip.mkv --text Hello --place bottom-right --output pictures"),
         key("zoconvert preview clip.zoeffect.json --time 12.5")},
        {key("output"), key("time")}, true, Outputs::OfPicture, 1, 1, Takes::File, {}, preview},
    {"preset", "list | show NAME | save NAME FROM [--items LIST] | remove NAME | rename A B | import FILE... | export NAME FILE",
        T("Keeps settings under names, for any clip."), {},
        {key("zoconvert preset save 'my logo' clip.zoeffect.json --items Watermark"), key("zoconvert preset export 'my logo' logo.zoeffect.json")},
        {key("items"), key("overwrite")}, false, Outputs::None, 1, -1, Takes::Preset, presetWords, preset},
    {"default", "list | show TYPE | save TYPE[:POS] FROM | remove TYPE", T("Keeps what a new file or item begins with."),
        {T("A saved default acts when a clip is added or something is reset, and changes no file that is there.")},
        {key("zoconvert default save Watermark:0 clip.zoeffect.json"), key("zoconvert default remove Watermark")},
        {}, false, Outputs::None, 1, 3, Takes::Type, defaultWords, defaults},
    {"schema", "catalogue | settings | preset", T("Prints a JSON Schema, draft 2020-12."), {},
        {key("zoconvert schema settings")},
        {}, false, Outputs::None, 1, 1, Takes::Anything, {key("catalogue"), key("settings"), key("preset")}, schema},
    {"explain", "[NUMBER | LOGFILE]", T("Says what the entries of the diagnostic log mean."),
        {T("Without a word it lists all of them.")},
        {key("zoconvert explain 1178"), key("zoconvert explain /tmp/zoconvert.1.log")},
        {}, false, Outputs::None, 0, 1, Takes::File, {}, explain},
    };
    // clang-format on
}

QVector<Option> named(const QVector<Option>& options, const QStringList& names)
{
    QVector<Option> found;
    for (const Option& option : options) {
        if (names.contains(option.name))
            found.append(option);
    }
    return found;
}

} // namespace

const QVector<Command>& commands()
{
    static const QVector<Command> all = table();
    return all;
}

const Command* findCommand(const QString& name)
{
    const QVector<Command>& all = commands();
    const auto found = std::find_if(all.cbegin(), all.cend(),
                                    [&](const Command& command) { return name == QLatin1String(command.name); });
    return found == all.cend() ? nullptr : &*found;
}

QStringList commandNames()
{
    QStringList names;
    for (const Command& command : commands())
        names.append(key(command.name));
    return names;
}

QVector<Option> edits()
{
    return optionsOf(editRows);
}

QVector<Option> ownOptions()
{
    return optionsOf(ownRows);
}

QVector<Option> outputs()
{
    QVector<Option> options;
    for (const zokit::OutputOption& output : zokit::outputOptions())
        options.append(optionOf(output));
    return options;
}

/// Its own options, then the single output options that it takes; the former hide output options of their name.
QVector<Option> ownOf(const Command& command)
{
    QVector<Option> options = named(ownOptions(), command.own);
    for (const Option& output : named(outputs(), command.own)) {
        const auto hides = [&](const Option& own) { return own.name == output.name; };
        if (std::none_of(options.cbegin(), options.cend(), hides))
            options.append(output);
    }
    return options;
}

QVector<Option> editsOf(const Command& command)
{
    return command.takesEdits ? edits() : QVector<Option>();
}

QVector<Option> outputsOf(const Command& command)
{
    QStringList names;
    for (const zokit::OutputOption& output : zokit::outputOptions()) {
        const bool isMeant =
            command.outputs == Outputs::All || (command.outputs == Outputs::OfPicture && output.changesPicture);
        if (isMeant && !command.own.contains(output.property.key))
            names.append(output.property.key);
    }
    return named(outputs(), names);
}

QVector<Option> optionsOf(const Command& command)
{
    Option help;
    help.name = key("help");
    help.letter = key("h");
    help.help = translated(T("A summary with -h; all of it, with examples, with --help."));
    help.example = key("--help");
    return ownOf(command) + editsOf(command) + outputsOf(command) + QVector<Option>{help};
}

QStringList tableTexts()
{
    QStringList texts;
    for (const Row& row : editRows)
        texts.append(key(row.help));
    for (const Row& row : ownRows)
        texts.append(key(row.help));
    for (const Command& command : commands()) {
        texts.append(key(command.summary));
        for (const char* sentence : command.about)
            texts.append(key(sentence));
    }
    return texts;
}

#undef T

} // namespace zoconvert
