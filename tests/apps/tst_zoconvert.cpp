// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Command lines of zoconvert: what they print, what they say, how they end.

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <zokit/schema.h>

#include "clips.h"
#include "programrun.h"
#include "testapplication.h"

Q_DECLARE_METATYPE(zokit::SchemaOf)

namespace {

using Arguments = QList<QByteArray>;

void row(const char* name, const Arguments& arguments, int code, const char* out, const char* err)
{
    QTest::newRow(name) << arguments << code << QString::fromUtf8(out) << QString::fromUtf8(err);
}

} // namespace

class TestZoconvert : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLineEndsAsItShould_data();
    void aLineEndsAsItShould();
    void refusalsNameWhatWasTyped_data();
    void refusalsNameWhatWasTyped();
    void settingsAreWrittenWhereTheyAreWanted();
    void settingsDoNotOverwriteUnasked();
    void settingsNeverTakeThePlaceOfWhatTheyName();
    void whatIsMissingIsNamed();
    void foldersAndSettingsFilesAreInputs();
    void appliedToAllOrToNone();
    void listsAreReplacedOrAppendedTo_data();
    void listsAreReplacedOrAppendedTo();
    void presetsAreKeptUnderTheirNames();
    void defaultsAreSavedShownAndForgotten();
    void defaultThatCannotBeWrittenFails();
    void schemasArePrinted_data();
    void schemasArePrinted();
    void theLogIsExplained();
    void germanIsSpokenWhereItIsWanted();
    void aFullDiskIsNoSuccess();
    void nobodyIsToldWhoReadsNoFurther();
    void clipsAreProbed();
    void settingsOfAClipKnowItsTracks();
    void newRulesChooseNewTracks();
    void theVersionNamesTheFfmpegThatWasFound();
};

void TestZoconvert::aLineEndsAsItShould_data()
{
    QTest::addColumn<Arguments>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("err");
    const char* contrast = "Color:bcs_contrast = 20  (changed; default 0)\n";
    row("show nothing", {"show", "a.zoeffect.json"}, 0, "",
        "zoconvert: a.zoeffect.json: Nothing is set: all values are the built-in defaults. Add --all to see them.\n");
    row("show", {"show", "b.zoeffect.json"}, 0, contrast, "");
    row("show behind --", {"show", "--", "b.zoeffect.json"}, 0, contrast, "");
    row("show, -- at the end", {"show", "b.zoeffect.json", "--"}, 0, contrast, "");
    row("show as JSON", {"show", "--json", "b.zoeffect.json"}, 0,
        "[\n    {\n        \"address\": \"Color:bcs_contrast\",\n        \"default\": 0,\n"
        "        \"saved_default\": null,\n        \"state\": \"changed\",\n        \"value\": 20\n    }\n]\n",
        "");
    row("show by a path", {"show", "./b.zoeffect.json"}, 0, contrast, "");
    row("show half a crop", {"show", "half.json"}, 0, "Crop:crop_left = 96  (changed; default 0)\n", "");
    row("show a crop of the whole frame", {"show", "whole.json"}, 0, "",
        "zoconvert: whole.json: Nothing is set: all values are the built-in defaults. Add --all to see them.\n");
    row("show a missing one", {"show", "c.zoeffect.json"}, 1, "",
        "zoconvert: c.zoeffect.json: no such file. There is a.zoeffect.json.\n");
    row("show a broken one", {"show", "broken.json"}, 2, "",
        "zoconvert: broken.json: Line 2, column 10: a colon is missing behind a name.\n");
    row("show what looks like an option", {"show", "--", "-x"}, 1, "", "zoconvert: -x: no such file.\n");
    row("show what looks like a list", {"show", "[x,y]"}, 1, "", "zoconvert: [x,y]: no such file.\n");
    row("show a name with a newline", {"show", "x\ny\x1b[31m"}, 1, "", "zoconvert: x\\ny\\x1b[31m: no such file.\n");
    row("show a name that is not UTF-8", {"show", "x\xff.json"}, 1, "",
        "zoconvert: x\\xff.json: This name is not in UTF-8. Rename the file.\n");
    row("show a folder", {"show", "."}, 1, "", "zoconvert: . is a folder. Name a file in it.\n");
    row("diff with a folder", {"diff", "a.zoeffect.json", "./"}, 2, "",
        "zoconvert: ./ cannot be read: it is a folder.\n");
    row("show, summary", {"show", "-h"}, 0,
        "Usage: zoconvert show SETTINGS|INPUT [--all] [--json]\n"
        "Shows what is set, beside saved default and catalogue default.\n"
        "Options: --all, --json\nzoconvert show --help tells all, with examples.\n",
        "");
    row("help of a command", {"help", "show"}, 0,
        "Usage: zoconvert show SETTINGS|INPUT [--all] [--json]\n"
        "Shows what is set, beside saved default and catalogue default.\n"
        "Options: --all, --json\nzoconvert show --help tells all, with examples.\n",
        "");
    row("help of none", {"help", "shwo"}, 2, "",
        "zoconvert: There is no command shwo. zoconvert -h lists them. Did you mean show?\n");
    row("summary goes before what is missing", {"diff", "a.zoeffect.json", "-h"}, 0,
        "Usage: zoconvert diff A B [--json]\nShows what differs between two settings files or presets.\n"
        "Options: --json\nzoconvert diff --help tells all, with examples.\n",
        "");
    row("diff of equals", {"diff", "a.zoeffect.json", "./a.zoeffect.json"}, 0, "", "");
    row("diff", {"diff", "a.zoeffect.json", "b.zoeffect.json"}, 1, "Color:bcs_contrast: 0 -> 20\n", "");
    row("diff as JSON", {"diff", "a.zoeffect.json", "b.zoeffect.json", "--json"}, 1,
        "[\n    {\n        \"a\": 0,\n        \"address\": \"Color:bcs_contrast\",\n        \"b\": 20\n    }\n]\n", "");
    row("diff of equals as JSON", {"diff", "--json", "a.zoeffect.json", "a.zoeffect.json"}, 0, "[\n]\n", "");
    row("diff with a missing one", {"diff", "a.zoeffect.json", "x/c.json"}, 2, "",
        "zoconvert: x/c.json: no such file.\n");
    row("diff with no such preset", {"diff", "a.zoeffect.json", "logo"}, 2, "",
        "zoconvert: There is no preset logo.\n");
    row("apply, dry", {"apply", "b.zoeffect.json", "a.zoeffect.json", "--items", "Color", "-n"}, 0,
        "a.zoeffect.json: Color:bcs_contrast: 0 -> 20\n", "");
    row("apply, dry, as JSON", {"apply", "b.zoeffect.json", "a.zoeffect.json", "--items=Color", "-n", "--json"}, 0,
        "[\n    {\n        \"address\": \"Color:bcs_contrast\",\n        \"new\": 20,\n        \"old\": 0,\n"
        "        \"target\": \"a.zoeffect.json\"\n    }\n]\n",
        "");
    row("apply to a film", {"apply", "b.zoeffect.json", "film.mkv", "--items", "Color"}, 2, "",
        "zoconvert: film.mkv: This is no settings file: a JSON object with \"zoeffect\": 1 is expected.\n");
    row("diff with a film", {"diff", "film.mkv", "b.zoeffect.json"}, 2, "",
        "zoconvert: There is no preset film.mkv. Write ./film.mkv for the file of that name.\n");
    row("apply without a target", {"apply", "b.zoeffect.json", "--items", "Color"}, 2, "",
        "zoconvert: Something is missing. Usage: zoconvert apply FROM TO... --items LIST [--add] [-n] [--json]\n");
    row("apply without items", {"apply", "b.zoeffect.json", "a.zoeffect.json"}, 2, "",
        "zoconvert: apply needs --items LIST.\n");
    row("apply an unknown type", {"apply", "b.zoeffect.json", "a.zoeffect.json", "--items", "Colour"}, 2, "",
        "zoconvert: There is no effect type Colour. Did you mean Color?\n");
    row("explain an event", {"explain", "1178"}, 0,
        "1178: the image cannot be loaded: getImage() answers a null pixmap, getWatermark() paints the others. Each "
        "attempt is logged\n",
        "");
    row("explain no event", {"explain", "26"}, 2, "",
        "zoconvert: 26 is the number of no event. zoconvert explain lists them.\n");
    row("explain what is no log", {"explain", "logo.png"}, 1, "",
        "zoconvert: logo.png: There is no entry of the diagnostic log in it.\n");
    row("explain a folder", {"explain", "."}, 1, "", "zoconvert: . is a folder. Name a file in it.\n");
    row("work of a folder", {"work", "."}, 2, "", "zoconvert: . is a folder. Name a file in it.\n");
    row("preset list of none", {"preset", "list"}, 0, "", "");
    row("default list of none", {"default", "list"}, 0, "", "");
    row("default show of none", {"default", "show", "Color"}, 2, "", "zoconvert: No default of Color is saved.\n");
    row("default of a misspelt type", {"default", "show", "Wattermark"}, 2, "",
        "zoconvert: There is no effect type Wattermark. Did you mean Watermark?\n");
    row("probe what is no media", {"probe", "lgo.png", "a.zoeffect.json"}, 1, "",
        "zoconvert: lgo.png: no such file. There is logo.png.\n"
        "zoconvert: a.zoeffect.json: It names no clip. Give the clip, and this file by --settings.\n");
    row("probe by settings that are none", {"probe", "logo.png", "broken.json"}, 2, "",
        "zoconvert: broken.json: Line 2, column 10: a colon is missing behind a name.\n");
    row("show a missing clip", {"show", "clip.mkv"}, 1, "", "zoconvert: clip.mkv: no such file.\n");
}

void TestZoconvert::aLineEndsAsItShould()
{
    QFETCH(Arguments, arguments);
    QFETCH(QString, out);
    QFETCH(QString, err);
    ProgramRun program;
    program.write("film.mkv", QByteArray("\x1a\x45") + QByteArray(100, '['));
    const QByteArray crop = R"({"zoeffect": 1, "media": {"width": 1280, "height": 720}, "effects": [
        {"type": "Crop", "values": {"crop_left": %}}]})";
    program.write("half.json", QByteArray(crop).replace('%', "96"));
    program.write("whole.json", QByteArray(crop).replace('%', R"(0, "crop_width": 1280, "crop_height": 720)"));
    program.run(arguments);
    QCOMPARE(program.err, err);
    QCOMPARE(program.out, out);
    QTEST(program.code, "code");
}

void TestZoconvert::refusalsNameWhatWasTyped_data()
{
    QTest::addColumn<Arguments>("arguments");
    QTest::addColumn<QString>("sentence");
    const auto refused = [](const char* name, const Arguments& arguments, const char* sentence) {
        QTest::newRow(name) << arguments << QString::fromUtf8(sentence);
    };
    refused("nothing", {}, "A command is missing. zoconvert -h lists them.");
    refused("a misspelt command", {"shwo"}, "There is no command shwo. zoconvert -h lists them. Did you mean show?");
    refused("a strange command", {"xyzzyx"}, "There is no command xyzzyx. zoconvert -h lists them.");
    refused("a file", {"a.zoeffect.json"},
            "A command comes before a.zoeffect.json. Did you mean: zoconvert show a.zoeffect.json");
    refused("a folder", {"./"}, "A command comes before ./. Did you mean: zoconvert convert ./");
    refused("a file with a blank", {"my film.mkv"},
            "A command comes before my film.mkv. Did you mean: zoconvert convert 'my film.mkv'");
    refused("a file like an option", {"-x.mkv"},
            "A command comes before -x.mkv. Did you mean: zoconvert convert ./-x.mkv");
    refused("an option first", {"--json", "show"}, "--json stands before the command. The command comes first.");
    refused("a misspelt option", {"show", "--jsn", "a.zoeffect.json"},
            "show takes no option --jsn. Did you mean --json?");
    refused("an option of another command", {"show", "--crop=1,2,3,4", "a.zoeffect.json"},
            "show takes no option --crop.");
    refused("a short option", {"show", "-x", "a.zoeffect.json"}, "show takes no option -x.");
    refused("no value", {"settings", "a.zoeffect.json", "--crop"}, "--crop takes a value: X,Y,W,H.");
    refused("no choice", {"settings", "a.zoeffect.json", "--existing"},
            "--existing takes a value: refuse, skip, replace.");
    refused("a flag with a value", {"show", "--all=yes", "a.zoeffect.json"}, "--all takes no value.");
    refused("too few words", {"show"}, "Something is missing. Usage: zoconvert show SETTINGS|INPUT [--all] [--json]");
    refused("too many words", {"show", "a", "b"},
            "b is one word too many. Usage: zoconvert show SETTINGS|INPUT [--all] [--json]");
    refused("a misspelt action", {"preset", "lst"},
            "preset cannot lst. It can: list, show, save, remove, rename, import, export. Did you mean list?");
    refused("an action without its word", {"preset", "show"},
            "Something is missing. Usage: zoconvert preset list | show NAME | save NAME FROM [--items LIST] | remove "
            "NAME | rename A B | import FILE... | export NAME FILE");
    refused("an empty value", {"settings", "a.zoeffect.json", "--output", ""}, "--output takes a value: FILE|FOLDER.");
    refused("an empty value behind an equals sign", {"settings", "a.zoeffect.json", "--image="},
            "--image takes a value: FILE.");
    refused("an empty word", {"show", ""}, "A name is empty. Check the variable or the quotes that it comes from.");
    refused("a default of one value", {"default", "save", "Color:bcs_contrast", "b.zoeffect.json"},
            "A default is saved of an effect type or an item, and Color:bcs_contrast is neither. Write for example "
            "Color or Watermark:0.");
    refused("a default of what is no effect", {"default", "save", "Output", "b.zoeffect.json"},
            "A default is saved of an effect type or an item, and Output is neither. Write for example Color or "
            "Watermark:0.");
    refused("a choice", {"settings", "a.zoeffect.json", "--existing", "replac"},
            "--existing: replac is none of refuse, skip, replace. Did you mean replace?");
    refused("an option that is not UTF-8", {"settings", "a.zoeffect.json", "--text", "\xff"},
            "--text \\xff is not in UTF-8.");
    refused("a value out of bounds", {"settings", "a.zoeffect.json", "--set", "Color:bcs_contrast=400"},
            "a.zoeffect.json: Color:bcs_contrast: 400 is not between -50 and 50.");
    refused("a value out of bounds for a clip that is not there",
            {"settings", "nix.mkv", "--set", "Color:bcs_contrast=400"},
            "nix.mkv: Color:bcs_contrast: 400 is not between -50 and 50.");
    refused("a moment that is none, of a clip that is not there", {"preview", "nix.mkv", "--time", "-1"},
            "--time: -1 is no number of seconds, for example 12.5.");
    refused("a misspelt key", {"settings", "a.zoeffect.json", "--set", "Color:contrast=4"},
            "a.zoeffect.json: Color has no property contrast. Did you mean bcs_contrast?");
    refused("an item that is not there", {"settings", "a.zoeffect.json", "--set", "Watermark:0:wm_fontsize=20"},
            "a.zoeffect.json: Watermark has no item 0; it has 0, counted from 0.");
    refused("a missing image", {"settings", "a.zoeffect.json", "--image", "lgo.png"},
            "a.zoeffect.json: lgo.png: no such file. There is logo.png.");
    refused("no image", {"settings", "a.zoeffect.json", "--image", "broken.json"},
            "a.zoeffect.json: broken.json is no image that can be shown: Unsupported image format.");
    refused("a folder as an image", {"settings", "a.zoeffect.json", "--image", "."},
            "a.zoeffect.json: . is a folder. Name a file in it.");
    refused("a device as a sound", {"settings", "a.zoeffect.json", "--audio", "/dev/null"},
            "a.zoeffect.json: /dev/null is no ordinary file. Copy what it gives into one first.");
    refused("a missing subtitle", {"settings", "a.zoeffect.json", "--subtitle", "clip.srt"},
            "a.zoeffect.json: clip.srt: no such file.");
    refused("several inputs in one file", {"settings", "a.zoeffect.json", "b.zoeffect.json", "--output", "c.json"},
            "c.json is no folder, and several inputs need one.");
    refused("an unknown schema", {"schema", "presets"},
            "schema cannot presets. It can: catalogue, settings, preset. Did you mean preset?");
}

void TestZoconvert::refusalsNameWhatWasTyped()
{
    QFETCH(Arguments, arguments);
    QFETCH(QString, sentence);
    ProgramRun program;
    for (const char* film : {"my film.mkv", "-x.mkv"})
        program.write(film, "no film");
    const QString before = program.files();
    program.run(arguments);
    QCOMPARE(program.err, QStringLiteral("zoconvert: %1\n").arg(sentence));
    QCOMPARE(program.out, QString());
    QCOMPARE(program.code, 2);
    QCOMPARE(program.files(), before);
}

void TestZoconvert::settingsAreWrittenWhereTheyAreWanted()
{
    ProgramRun program;
    program.run({"settings", "a.zoeffect.json", "--set", "Color:bcs_contrast=7", "--output", "c.zoeffect.json"});
    QCOMPARE(program.err, QString());
    QCOMPARE(program.code, 0);
    program.run({"show", "c.zoeffect.json"});
    QCOMPARE(program.out, QStringLiteral("Color:bcs_contrast = 7  (changed; default 0)\n"));

    program.run({"settings", "a.zoeffect.json", "b.zoeffect.json", "--output", "done/"});
    QCOMPARE(program.code, 0);
    program.run({"diff", "b.zoeffect.json", "done/b.zoeffect.json"});
    QCOMPARE(program.code, 0);

    const QByteArray written = program.content("c.zoeffect.json");
    program.run({"settings", "c.zoeffect.json"});
    QCOMPARE(program.out.toUtf8(), written);

    program.run({"settings", "a.zoeffect.json", "missing.zoeffect.json", "--output", "some/"});
    QCOMPARE(program.code, 3);
    program.run({"show", "some/a.zoeffect.json"});
    QCOMPARE(program.code, 0);
}

void TestZoconvert::settingsDoNotOverwriteUnasked()
{
    ProgramRun program;
    const QByteArray before = program.content("b.zoeffect.json");
    program.run({"settings", "a.zoeffect.json", "--output", "b.zoeffect.json"});
    QCOMPARE(program.err,
             QStringLiteral("zoconvert: b.zoeffect.json exists. Add --existing skip or --existing replace.\n"));
    QCOMPARE(program.code, 1);
    program.run({"settings", "a.zoeffect.json", "--output", "b.zoeffect.json", "--existing", "skip"});
    QCOMPARE(program.err, QStringLiteral("zoconvert: a.zoeffect.json: b.zoeffect.json exists; left out.\n"));
    QCOMPARE(program.code, 0);
    QCOMPARE(program.content("b.zoeffect.json"), before);
    program.run({"settings", "a.zoeffect.json", "--output", "b.zoeffect.json", "--overwrite"});
    QCOMPARE(program.code, 0);
    program.run({"diff", "a.zoeffect.json", "b.zoeffect.json"});
    QCOMPARE(program.code, 0);
}

void TestZoconvert::settingsNeverTakeThePlaceOfWhatTheyName()
{
    ProgramRun program;
    QVERIFY(QFile::copy(clips::clip(QStringLiteral("plain.mkv")), program.path("clip.mkv")));
    QVERIFY(QFile::link(program.path("logo.png"), program.path("other.json")));
    const QByteArray clip = program.content("clip.mkv");
    const QByteArray logo = program.content("logo.png");
    program.run({"settings", "clip.mkv", "--output", "clip.mkv", "--overwrite"});
    QCOMPARE(program.err, QStringLiteral("zoconvert: clip.mkv is the input itself. Give another output.\n"));
    QCOMPARE(program.code, 1);
    program.run({"settings", "clip.mkv", "--image", "logo.png", "--output", "other.json", "--overwrite"});
    QCOMPARE(program.err, QStringLiteral("zoconvert: other.json is the input itself. Give another output.\n"));
    QVERIFY(program.content("clip.mkv") == clip);
    QVERIFY(program.content("logo.png") == logo);
}

void TestZoconvert::whatIsMissingIsNamed()
{
    ProgramRun program;
    program.write("lost.zoeffect.json", R"({"zoeffect": 1, "media": {"file": "gone.mkv", "width": 640, "height": 360},
        "effects": [{"type": "Watermark", "items": [{"values": {"wm_istextwatermark": false,
        "wm_imageurl": "gone.png"}}]}]})");
    const QString told = QStringLiteral("zoconvert: lost.zoeffect.json: warning: media: %1/gone.mkv: no such file. "
                                        "Bring it back, or choose another.\n"
                                        "zoconvert: lost.zoeffect.json: warning: Watermark:0:wm_imageurl: "
                                        "%1/gone.png: no such file. Bring it back, or choose another.\n")
                             .arg(QDir(program.path("")).canonicalPath());
    for (const char* command : {"show", "settings"}) {
        program.run({command, "lost.zoeffect.json"});
        QCOMPARE(program.err, told);
        QCOMPARE(program.code, 0);
        QVERIFY2(program.out.contains(QStringLiteral("gone.png")), qPrintable(program.out));
    }
}

void TestZoconvert::foldersAndSettingsFilesAreInputs()
{
    ProgramRun program;
    QDir().mkpath(program.path("films/below"));
    for (const char* clip : {"films/one.mkv", "films/below/two.mkv"})
        QVERIFY(QFile::copy(clips::clip(QStringLiteral("plain.mkv")), program.path(clip)));
    program.run({"settings", "films", "--recursive", "--output", "done/"});
    QCOMPARE(program.err, QString());
    QCOMPARE(program.code, 0);
    QVERIFY(QFile::exists(program.path("done/one.zoeffect.json")));
    program.run({"show", "done/below/two.zoeffect.json"});
    QCOMPARE(program.code, 0);
    const auto firstLines = [&] {
        QStringList lines;
        for (const QString& line : program.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            if (!line.startsWith(QLatin1Char(' ')))
                lines.append(line.section(QLatin1Char(','), 0, 0));
        }
        return lines;
    };
    program.run({"probe", "films", "done/below/two.zoeffect.json"});
    QCOMPARE(program.err, QString());
    QCOMPARE(firstLines(), (QStringList{"films/one.mkv: mkv", "done/below/two.zoeffect.json: mkv"}));
    program.run({"probe", "films", "--recursive"});
    QCOMPARE(firstLines(), (QStringList{"films/one.mkv: mkv", "films/below/two.mkv: mkv"}));
    QDir().mkpath(program.path("empty"));
    program.run({"probe", "empty", "--recursive"});
    QCOMPARE(program.err, QStringLiteral("zoconvert: empty: There is no media file in it.\n"));
    QCOMPARE(program.code, 1);
}

void TestZoconvert::appliedToAllOrToNone()
{
    ProgramRun program;
    const QByteArray before = program.content("a.zoeffect.json");
    program.run({"apply", "b.zoeffect.json", "a.zoeffect.json", "broken.json", "--items", "Color"});
    QCOMPARE(program.err,
             QStringLiteral("zoconvert: broken.json: Line 2, column 10: a colon is missing behind a name.\n"));
    QCOMPARE(program.code, 2);
    QCOMPARE(program.content("a.zoeffect.json"), before);

    program.run({"apply", "b.zoeffect.json", "a.zoeffect.json", "--items", "Color"});
    QCOMPARE(program.code, 0);
    QCOMPARE(program.out + program.err, QString());
    program.run({"diff", "a.zoeffect.json", "b.zoeffect.json"});
    QCOMPARE(program.code, 0);
    QCOMPARE(program.files(), QStringLiteral("a.zoeffect.json b.zoeffect.json broken.json logo.png"));

    program.write("odd.json", R"({"zoeffect": 1, "media": {"width": 1280, "height": 720}, "effects": [{"type": "Crop",
        "values": {"crop_left": 10, "crop_top": 20, "crop_width": 101, "crop_height": 200}}]})");
    program.write("half.json", R"({"zoeffect": 1, "media": {"width": 640, "height": 360}})");
    program.run({"apply", "odd.json", "half.json", "--items", "Crop", "-n"});
    QCOMPARE(program.err, QStringLiteral("zoconvert: half.json: warning: Crop:crop_width: rounding to whole pixels "
                                         "makes 102 of 101 there and back.\n"));
    QCOMPARE(program.out.section(QLatin1Char('\n'), -2, -2),
             QStringLiteral("half.json: Crop:crop_width: source_val -> 51"));
}

void TestZoconvert::listsAreReplacedOrAppendedTo_data()
{
    QTest::addColumn<Arguments>("options");
    QTest::addColumn<QString>("texts");
    QTest::newRow("replaced") << Arguments{} << QStringLiteral("Watermark:0:wm_textcontent = New  (changed)\n");
    QTest::newRow("appended") << Arguments{"--add"}
                              << QStringLiteral("Watermark:0:wm_textcontent = Old  (changed)\n"
                                                "Watermark:1:wm_textcontent = New  (changed)\n");
}

void TestZoconvert::listsAreReplacedOrAppendedTo()
{
    QFETCH(Arguments, options);
    QFETCH(QString, texts);
    const QByteArray file = R"({"zoeffect": 1, "media": {"width": 1280, "height": 720}, "effects": [
        {"type": "Watermark", "items": [{"values": {"wm_textcontent": "TEXT"}}]}]})";
    ProgramRun program;
    program.write("old.json", QByteArray(file).replace("TEXT", "Old"));
    program.write("new.json", QByteArray(file).replace("TEXT", "New"));
    for (int time = 0; time < 2; ++time) { // Once more changes nothing more.
        program.run(Arguments{"apply", "new.json", "old.json", "--items", "Watermark"} + options);
        QCOMPARE(program.err + program.out, QString());
        QCOMPARE(program.code, 0);
        program.run({"show", "old.json"});
        QCOMPARE(program.out, texts);
    }
}

void TestZoconvert::presetsAreKeptUnderTheirNames()
{
    ProgramRun program;
    program.run({"preset", "save", "my/logo\n", "b.zoeffect.json", "--items", "Color"});
    QCOMPARE(program.err, QString());
    program.run({"preset", "save", "my/logo\n", "b.zoeffect.json"});
    QCOMPARE(program.err, QStringLiteral("zoconvert: There is a preset my/logo\\n already. Choose another name, or add "
                                         "--overwrite.\n"));
    QCOMPARE(program.code, 1);
    program.run({"preset", "list"});
    QCOMPARE(program.out, QStringLiteral("my/logo\\n\n"));
    program.run({"preset", "rename", "my/logo\n", "warm"});
    QCOMPARE(program.code, 0);
    program.run({"settings", "a.zoeffect.json", "--preset", "warm", "--output", "c.json"});
    program.run({"diff", "b.zoeffect.json", "c.json"});
    QCOMPARE(program.code, 0);
    program.run({"preset", "export", "warm", "warm.zoeffect.json"});
    QCOMPARE(program.code, 0);
    program.run({"preset", "export", "warm", "warm.zoeffect.json"});
    QCOMPARE(program.err,
             QStringLiteral("zoconvert: warm.zoeffect.json exists. Choose another name, or add --overwrite.\n"));
    program.run({"diff", "warm", "warm.zoeffect.json"});
    QCOMPARE(program.code, 0);
    const QByteArray exported = program.content("warm.zoeffect.json");
    program.run({"apply", "a.zoeffect.json", "warm.zoeffect.json", "--items", "Color"});
    QCOMPARE(program.err, QStringLiteral("zoconvert: warm.zoeffect.json is a preset. Carry the settings over to those "
                                         "of a clip, and make a preset of them.\n"));
    QCOMPARE(program.code, 2);
    QCOMPARE(program.content("warm.zoeffect.json"), exported);
    program.run({"preset", "save", "cold", "a.zoeffect.json"});
    program.run({"preset", "rename", "warm", "cold"});
    QCOMPARE(program.code, 1);
    program.run({"preset", "rename", "warm", "cold", "--overwrite"});
    QCOMPARE(program.err, QString());
    program.run({"preset", "rename", "cold", "warm"});
    program.run({"preset", "rename", "warm", "warm", "--overwrite"});
    program.run({"preset", "list"});
    QCOMPARE(program.out, QStringLiteral("warm\n"));
    program.run({"diff", "warm", "warm.zoeffect.json"});
    QCOMPARE(program.code, 0);
    program.run({"preset", "remove", "warm"});
    program.run({"preset", "show", "warm"});
    QCOMPARE(program.code, 2);
    QCOMPARE(program.err, QStringLiteral("zoconvert: There is no preset warm.\n"));
    program.run({"preset", "import", "warm.zoeffect.json"});
    QCOMPARE(program.code, 0);
    program.run({"preset", "list"});
    QCOMPARE(program.out, QStringLiteral("warm\n"));
    program.write("lost.json", R"({"zoeffect": 1, "base": {"width": 640, "height": 360}, "effects": [
        {"type": "Watermark", "items": [{"values": {"wm_istextwatermark": false, "wm_imageurl": "/gone.png"}}]}]})");
    program.run({"preset", "import", "lost.json"});
    QCOMPARE(program.err, QStringLiteral("zoconvert: warning: Watermark:0:wm_imageurl: /gone.png: no such file. Bring "
                                         "it back, or choose another.\n"));
    QCOMPARE(program.code, 0);
}

void TestZoconvert::defaultsAreSavedShownAndForgotten()
{
    ProgramRun program;
    program.run({"default", "save", "Color", "b.zoeffect.json"});
    QCOMPARE(program.err, QString());
    program.run({"default", "list"});
    QCOMPARE(program.out, QStringLiteral("Color\n"));
    program.run({"default", "show", "Color"});
    QCOMPARE(program.out, QStringLiteral("Color:bcs_brightness = 0\nColor:bcs_contrast = 20\n"
                                         "Color:bcs_saturation = 0\n"));
    program.run({"show", "b.zoeffect.json"});
    QCOMPARE(program.out, QStringLiteral("Color:bcs_contrast = 20  (saved default; saved default 20; default 0)\n"));
    program.run({"settings", "a.zoeffect.json", "--reset", "Color", "--output", "c.json"});
    program.run({"diff", "b.zoeffect.json", "c.json"});
    QCOMPARE(program.code, 0);
    program.run({"default", "save", "Watermark:1", "b.zoeffect.json"});
    QCOMPARE(program.code, 2);
    QCOMPARE(program.err, QStringLiteral("zoconvert: Watermark has no item 1; it has 0, counted from 0.\n"));
    program.run({"default", "remove", "Color"});
    QCOMPARE(program.code, 0);
    program.run({"default", "list"});
    QCOMPARE(program.out, QString());
}

void TestZoconvert::defaultThatCannotBeWrittenFails()
{
    ProgramRun program;
    {
        const FullDisk disk(0);
        program.run({"default", "save", "Color", "b.zoeffect.json"});
    }
    QCOMPARE(program.code, 1);
    program.run({"default", "list"});
    QCOMPARE(program.out, QString());
}

void TestZoconvert::schemasArePrinted_data()
{
    QTest::addColumn<zokit::SchemaOf>("what");
    QTest::newRow("catalogue") << zokit::SchemaOf::Catalogue;
    QTest::newRow("settings") << zokit::SchemaOf::Settings;
    QTest::newRow("preset") << zokit::SchemaOf::Preset;
}

void TestZoconvert::schemasArePrinted()
{
    QFETCH(zokit::SchemaOf, what);
    ProgramRun program;
    program.run({"schema", QTest::currentDataTag()});
    QVERIFY2(program.out.contains(QStringLiteral("\"$schema\": \"https://json-schema.org/draft/2020-12/schema\"")),
             qPrintable(program.out.left(200)));
    QVERIFY(QJsonDocument::fromJson(program.out.toUtf8()).object() == zokit::schema(what));
    QCOMPARE(program.err, QString());
    QCOMPARE(program.code, 0);
}

void TestZoconvert::theLogIsExplained()
{
    ProgramRun program;
    program.write("zoconvert.1.log", "zoeffectmodel(25) : 2026/01/02 03:04:05 00000000\n\n"
                                     "zoeffectmodel(26) : 2026/01/02 03:04:06 00000000\nnonsense\n"
                                     "zoeffectmodel(246) : 2026/01/02 03:04:07 00000000\n\n");
    program.run({"explain", "zoconvert.1.log"});
    QCOMPARE(program.out,
             QStringLiteral("2026/01/02 03:04:05  25: InitEffectModel() was given null: models built from now on have "
                            "no types\n"
                            "2026/01/02 03:04:07  246: childCount(): the model does not have this type; answers 0\n"));
    program.run({"explain"});
    QCOMPARE(program.out.count(QLatin1Char('\n')), 25);
}

void TestZoconvert::germanIsSpokenWhereItIsWanted()
{
    ProgramRun program;
    program.run({"shwo"}, "de_AT.UTF-8");
    QCOMPARE(program.err,
             QStringLiteral("zoconvert: Es gibt keinen Befehl shwo. zoconvert -h zählt sie auf. Meinten Sie show?\n"));
    program.run({"settings", "a.zoeffect.json", "--set", "Color:bcs_contrast=400"}, "de_DE.ISO-8859-1");
    QCOMPARE(program.err,
             QStringLiteral("zoconvert: a.zoeffect.json: Color:bcs_contrast: 400 liegt nicht zwischen -50 und 50.\n"));
    program.run({"show", "ü.json"}, "C");
    QCOMPARE(program.err, QStringLiteral("zoconvert: ü.json: no such file.\n"));
}

void TestZoconvert::aFullDiskIsNoSuccess()
{
    QVERIFY(QFile::exists(QStringLiteral("/dev/full")));
    QProcess program;
    program.setStandardOutputFile(QStringLiteral("/dev/full"));
    program.start(QStringLiteral(ZOCONVERT), {QStringLiteral("explain")});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitCode(), 1);
    // 1 would say that they differ.
    const ProgramRun files;
    program.start(QStringLiteral(ZOCONVERT),
                  {"diff", "--json", files.path("a.zoeffect.json"), files.path("a.zoeffect.json")});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitCode(), 2);
}

void TestZoconvert::nobodyIsToldWhoReadsNoFurther()
{
    QProcess program;
    program.start(QStringLiteral("bash"), {"-c", "exec 3> >(:); wait $!; \"$0\" show --all \"$1\" >&3",
                                           QStringLiteral(ZOCONVERT), clips::clip(QStringLiteral("languages.mkv"))});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.readAllStandardError(), QByteArray());
    QCOMPARE(program.exitCode(), 1);
}

void TestZoconvert::clipsAreProbed()
{
    ProgramRun program;
    QVERIFY(QFile::link(clips::clip(QStringLiteral("languages.mkv")), program.path("clip.mkv")));
    program.run({"probe", "clip.mkv", "missing.mkv"});
    QCOMPARE(program.code, 3);
    QCOMPARE(program.err, QStringLiteral("zoconvert: missing.mkv: no such file.\n"));
    QVERIFY2(program.out.startsWith(QStringLiteral("clip.mkv: mkv, ")), qPrintable(program.out));

    program.run({"probe", "--json", "clip.mkv"});
    QCOMPARE(program.code, 0);
    const QJsonObject clip = QJsonDocument::fromJson(program.out.toUtf8()).array().at(0).toObject();
    QCOMPARE(clip.value(QStringLiteral("container")).toString(), QStringLiteral("mkv"));
    const QJsonObject picture = clip.value(QStringLiteral("streams")).toArray().at(0).toObject();
    QCOMPARE(picture.value(QStringLiteral("kind")).toString(), QStringLiteral("video"));
    QCOMPARE(picture.value(QStringLiteral("width")).toInt(), 160);
    QCOMPARE(picture.value(QStringLiteral("height")).toInt(), 120);

    QVERIFY(QFile::link(clips::clip(QStringLiteral("fields90.mp4")), program.path("turned.mp4")));
    program.run({"probe", "turned.mp4"});
    QCOMPARE(program.out, QStringLiteral("turned.mp4: mp4, 0.4 s\n  0 video mpeg2video 120x160 interlaced default\n"));
}

void TestZoconvert::settingsOfAClipKnowItsTracks()
{
    ProgramRun program;
    QVERIFY(QFile::link(clips::clip(QStringLiteral("languages.mkv")), program.path("clip.mkv")));
    program.run({"settings", "clip.mkv", "--audio-tracks", "99"});
    QCOMPARE(program.code, 2);
    QCOMPARE(program.err,
             QStringLiteral("zoconvert: clip.mkv: The clip has no such track 99. Choose one that it has.\n"));
    program.run({"settings", "clip.mkv", "--audio-tracks", "1", "--output", "c.zoeffect.json"});
    QCOMPARE(program.err, QString());
    QCOMPARE(program.code, 0);
    const QByteArray written = program.content("c.zoeffect.json");
    QVERIFY2(written.contains("\"file\": \"clip.mkv\",\n    \"width\": 160,\n    \"height\": 120,"), written);
    program.run({"show", "c.zoeffect.json"});
    QVERIFY2(program.out.contains(QStringLiteral("Audio:0:selected = true  (changed; default false)\n")),
             qPrintable(program.out));
    QVERIFY2(program.out.contains(QStringLiteral("Tracks:audio-tracks = 1  (changed)\n")), qPrintable(program.out));
}

void TestZoconvert::newRulesChooseNewTracks()
{
    ProgramRun program;
    QVERIFY(QFile::link(clips::clip(QStringLiteral("languages.mkv")), program.path("clip.mkv")));
    for (const char* made : {"plain.json", "other.json"})
        program.run({"settings", "clip.mkv", "--output", made});
    const QString first = QStringLiteral("Audio:0:selected = true  (changed; default false)\n");
    const QString second = QStringLiteral("Audio:1:selected = true  (changed; default false)\n");
    program.run({"settings", "plain.json", "--audio-language", "eng", "--output", "english.json"});
    QCOMPARE(program.err, QString());
    program.run({"show", "english.json"});
    QCOMPARE(program.out, second + QStringLiteral("Tracks:audio-language = eng  (changed)\n"));
    program.run({"settings", "english.json", "--audio-language", "fra", "--output", "english.json", "--overwrite"});
    program.run({"show", "english.json"});
    QCOMPARE(program.out, first + QStringLiteral("Tracks:audio-language = fra  (changed)\n"));

    program.run({"apply", "english.json", "other.json", "--items", "Tracks", "-n"});
    QCOMPARE(program.out, QStringLiteral("other.json: Audio:0:selected: false -> true\n"
                                         "other.json: Tracks:audio-language: (none) -> fra\n"));
    program.run({"apply", "english.json", "other.json", "--items", "Tracks"});
    QCOMPARE(program.err, QString());
    program.run({"diff", "english.json", "other.json"});
    QCOMPARE(program.code, 0);

    const QByteArray before = program.content("plain.json");
    program.run({"settings", "clip.mkv", "--audio-tracks", "2", "--output", "hand.json"});
    QVERIFY(QFile::remove(program.path("clip.mkv")));
    QVERIFY(QFile::link(clips::clip(QStringLiteral("silent.mkv")), program.path("clip.mkv")));
    program.run({"apply", "hand.json", "plain.json", "--items", "Tracks"});
    QCOMPARE(program.err, QStringLiteral("zoconvert: plain.json: The clip has no such track 2. Choose one that it "
                                         "has.\n"));
    QCOMPARE(program.code, 2);
    QCOMPARE(program.content("plain.json"), before);
    QVERIFY(QFile::remove(program.path("clip.mkv")));
    program.run({"settings", "plain.json", "--audio-language", "eng", "--output", "gone.json"});
    QVERIFY2(program.err.contains(QStringLiteral("warning: The new rules choose no track, since the clip cannot be "
                                                 "looked into. Bring it back, and give them again. ")),
             qPrintable(program.err));
    QCOMPARE(program.code, 0);
}

void TestZoconvert::theVersionNamesTheFfmpegThatWasFound()
{
    ProgramRun program;
    program.run({"--version"});
    QCOMPARE(program.out.section(QLatin1Char('\n'), 0, 0), QStringLiteral("zoconvert 1.1.0"));
    QVERIFY2(program.out.section(QLatin1Char('\n'), 1, 1).startsWith(QStringLiteral("ffmpeg ")),
             qPrintable(program.out));
    program.setTools("/nowhere");
    program.run({"--version"});
    QCOMPARE(program.out,
             QStringLiteral("zoconvert 1.1.0\nffmpeg is not in /nowhere, the folder that ZOEFFECT_FFMPEG names. "
                            "Correct it, or leave it unset.\n"));
    program.setTools({});
}

ZOEFFECT_TEST_MAIN(TestZoconvert)
#include "tst_zoconvert.moc"
