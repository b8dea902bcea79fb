// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <csignal>
#include <functional>

#include <sys/resource.h>

#include <QColor>
#include <QFont>
#include <QImage>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <zokit/differences.h>
#include <zokit/filesettings.h>
#include <zokit/presets.h>
#include <zokit/project.h>
#include <zokit/settingsfile.h>
#include <zokit/valuetext.h>

#include "kitsupport.h"
#include "randomedits.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::ReadSettings;
using zokit::Settings;

class TestKitSettingsFile : public QObject {
    Q_OBJECT

private slots:
    void handWrittenFileIsRead();
    void checkStateIsTakenForSelected();
    void whatIsMissingHasTheCataloguesDefault();
    void everyValueComesBack_data();
    void everyValueComesBack();
    void whatNoFileHoldsIsRefused_data();
    void whatNoFileHoldsIsRefused();
    void whatOthersWroteIsKept();
    void refusedFileNamesThePlace_data();
    void refusedFileNamesThePlace();
    void boundsOfAFile_data();
    void boundsOfAFile();
    void pathsAreRelativeToTheFile();
    void everyCutAndFlipIsReadOrRefused();
    void marginOfAnAnchorComesBackAsItWas();
    void randomSettingsComeBack();
    void savedWholeOrNotAtAll();
    void errorsNameTheFile();
    void errorsAreSaidInTheLanguageOfTheMoment();
    void presetsByName();
    void presetIsRefusedWithAReason();
    void presetNameMayHoldAnything_data();
    void presetNameMayHoldAnything();
    void importIsAllOrNothing();
    void exportTakesFilesAlong();
    void exportOverItsOwnImagesKeepsThem();
    void fullDiskIsTold();
    void fileIsAPresetOrSettings_data();
    void fileIsAPresetOrSettings();
    void valueIsSaidToPeople_data();
    void valueIsSaidToPeople();
    void settingsAreEqualOnlyInAll();
    void importTellsWhatIsMissing();
    void presetHoldsWhatItIsMeantFor();
    void contentsOfAPresetAreLines();
    void settingsOfASmallFrameAreReadAgain();
};

namespace {

const char* const handWritten = R"({
  "zoeffect": 1,
  "media": { "file": "clip.mkv", "width": 1280, "height": 720, "seconds": 5.0 },
  "effects": [
    { "type": "Crop", "selected": true, "values": { "crop_left": 96 } },
    { "type": "Watermark", "selected": true, "values": {}, "items": [
      { "selected": true,
        "values": { "wm_istextwatermark": true, "wm_textcontent": "Hello",
                    "wm_fontcolor": "#ffffff", "wm_fontname": "DejaVu Sans" },
        "anchor": { "corner": "bottom-right", "margin": "2%" } } ] }
  ],
  "tracks": { "audio-language": ["fra", "eng"] },
  "output": { "container": "mkv", "video-codec": "hevc", "quality": 22, "trim": [12.0, 40.5] }
})";

void write(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("A file cannot be written");
}

/// A file whose one effect is \a effect.
QByteArray fileWith(const QByteArray& effect)
{
    return R"({"zoeffect": 1, "media": {"width": 1280, "height": 720}, "effects": [)" + effect + "]}";
}

} // namespace

void TestKitSettingsFile::handWrittenFileIsRead()
{
    const ReadSettings read = zokit::readSettings(handWritten, QStringLiteral("/films"));
    QVERIFY2(read.settings, qPrintable(read.error.text()));
    QCOMPARE(read.settings->media.file, QStringLiteral("/films/clip.mkv"));
    QCOMPARE(read.settings->media.frame, QSize(1280, 720));
    QCOMPARE(read.settings->find(key("Crop"))->values.value(key("crop_left")), QVariant(96));
    const zokit::Item item = read.settings->find(key("Watermark"))->items.first();
    QCOMPARE(item.values.value(key("wm_fontcolor")).userType(), int(QMetaType::QColor));
    QCOMPARE(item.values.value(key("wm_fontname")).value<QFont>().family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(item.anchor.value(key("corner")), QVariant(QStringLiteral("bottom-right")));
    QCOMPARE(read.settings->tracks.value(key("audio-language")),
             QVariant(QStringList({QStringLiteral("fra"), QStringLiteral("eng")})));
    QCOMPARE(read.settings->output.value(key("trim")), QVariant(QVariantList({12.0, 40.5})));
    QCOMPARE(read.settings->output.value(key("quality")), QVariant(22));
}

void TestKitSettingsFile::checkStateIsTakenForSelected()
{
    const ReadSettings read = zokit::readSettings(fileWith(R"({"type": "Color", "values": {"_checkstate": false}},
            {"type": "Effect", "items": [{"name": "Sepia", "values": {"_checkstate": true}},
                                         {"name": "Blur", "selected": false, "values": {"_checkstate": true}}]})"),
                                                  QString());
    QVERIFY2(read.settings, qPrintable(read.error.text()));
    QVERIFY(!read.settings->find(key("Color"))->selected);
    const QVector<zokit::Item> effects = read.settings->find(key("Effect"))->items;
    QCOMPARE(effects.at(0).name, QStringLiteral("Sepia"));
    QVERIFY(effects.at(0).selected);
    QVERIFY(!effects.at(0).values.contains(key("_checkstate")));
    QVERIFY(!effects.at(1).selected);
    QCOMPARE(zokit::readSettings(fileWith(R"({"type": "Color", "values": {"_checkstate": "perhaps"}})"), QString())
                 .error.text(),
             QStringLiteral("Color:_checkstate: perhaps is neither true nor false."));
}

void TestKitSettingsFile::whatIsMissingHasTheCataloguesDefault()
{
    clearSavedDefaults();
    zokit::Project project;
    zokit::FileSettings* other = project.add(clip());
    other->setValue(other->type(key("Color")), key("bcs_contrast"), 30);
    project.saveDefault(other->type(key("Color")));
    const ReadSettings read = zokit::readSettings(handWritten, QString());
    QCOMPARE(read.settings->effects.size(), 13);
    QCOMPARE(read.settings->find(key("Color"))->values.value(key("bcs_contrast")), QVariant(0));
    QCOMPARE(read.settings->find(key("Effect"))->items.size(), 20);
    QCOMPARE(read.settings->find(key("Watermark"))->items.first().values.value(key("wm_fontsize")), QVariant(22));
    QCOMPARE(read.settings->find(key("Audio_Echo"))->values.value(key("audio_echo_decay")), QVariant(500));
    clearSavedDefaults();
}

void TestKitSettingsFile::everyValueComesBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("json");
    const auto row = [](const char* what, const char* name, const QVariant& value, const char* json) {
        QTest::newRow(what) << key(name) << value << QByteArray(json);
    };
    row("a whole number", "bcs_contrast", 5, "5");
    row("beyond the bounds of another type", "bcs_contrast", 5.0, R"({"double":5})");
    row("a text for a number", "bcs_contrast", QStringLiteral("5"), R"({"string":"5"})");
    row("a host's own key", "hue", 5, R"({"int":5})");
    row("a host's own text", "hue", QStringLiteral("x"), R"({"string":"x"})");
    row("a host's own colour", "hue", QColor(255, 255, 255, 128), R"({"color":"#80ffffff"})");
    row("a host's own map", "hue", QVariantMap{{key("a"), 1}}, R"({"map":{"a":{"int":1}}})");
}

void TestKitSettingsFile::everyValueComesBack()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(QByteArray, json);
    Settings settings = *zokit::readSettings(handWritten, QString()).settings;
    settings.find(key("Color"))->values.insert(name, value);
    const QByteArray text = zokit::writeSettings(settings, QString());
    QVERIFY2(text.contains("\"" + name.toUtf8() + "\": " + json), text);
    const ReadSettings again = zokit::readSettings(text, QString());
    QVERIFY2(again.settings, qPrintable(again.error.text()));
    QVERIFY(*again.settings == settings);
    QCOMPARE(zokit::writeSettings(*again.settings, QString()), text);
}

namespace {

/// Puts something into settings that no file can hold.
struct Unwritable {
    const char* name;
    void (*put)(Settings& settings);
    const char* sentence;
};

const Unwritable unwritables[] = {
    {"a picture as a type's value",
     [](Settings& settings) {
         settings.find(key("Color"))->values.insert(key("x-picture"), QImage(1, 1, QImage::Format_RGB32));
     },
     "Color:x-picture: no settings file can hold this value. Set another one."},
    {"two of them",
     [](Settings& settings) {
         settings.find(key("Color"))->values.insert(key("x-picture"), QImage(1, 1, QImage::Format_RGB32));
         settings.find(key("Color"))->values.insert(key("x-second"), QImage(1, 1, QImage::Format_RGB32));
     },
     "Color:x-picture: no settings file can hold this value. Set another one."},
    {"a picture as an item's value",
     [](Settings& settings) {
         settings.find(key("Watermark"))->items[0].values.insert(key("x-a"), QImage(1, 1, QImage::Format_RGB32));
     },
     "Watermark:0:x-a: no settings file can hold this value. Set another one."},
    {"maps too deep",
     [](Settings& settings) {
         QVariant deep = 1;
         for (int depth = 0; depth < 33; ++depth)
             deep = QVariantList{deep};
         settings.find(key("Color"))->values.insert(key("x-deep"), deep);
     },
     "Color:x-deep: no settings file can hold this value. Set another one."},
    {"an anchor's member",
     [](Settings& settings) { settings.find(key("Watermark"))->items[0].anchor.insert(key("x-a"), QColor(1, 2, 3)); },
     "Watermark:0:anchor:x-a: no settings file can hold this value. Set another one."},
    {"half a letter in an option",
     [](Settings& settings) { settings.output.insert(key("container"), QString(QChar(0xd800))); },
     "Output:container: no settings file can hold this value. Set another one."},
    {"an endless part",
     [](Settings& settings) {
         settings.output.insert(key("trim"), QVariantList{0.0, qInf()});
     },
     "Output:trim: no settings file can hold this value. Set another one."},
    {"a colour in a rule", [](Settings& settings) { settings.tracks.insert(key("audio-language"), QColor(1, 2, 3)); },
     "Tracks:audio-language: no settings file can hold this value. Set another one."},
    {"a colour in a map",
     [](Settings& settings) {
         settings.output.insert(key("container"), QVariantMap{{key("a"), QColor(1, 2, 3)}});
     },
     "Output:container: no settings file can hold this value. Set another one."},
    {"an endless clip", [](Settings& settings) { settings.media.seconds = qInf(); },
     "media:seconds: no settings file can hold this value. Set another one."},
    {"more than a file may have",
     [](Settings& settings) {
         for (int i = 0; i < 17; ++i)
             settings.find(key("Color"))
                 ->values.insert(QStringLiteral("x-%1").arg(i), QString(1024 * 1024, QLatin1Char('a')));
     },
     "A settings file has at most 16 MB."},
};

} // namespace

void TestKitSettingsFile::whatNoFileHoldsIsRefused_data()
{
    QTest::addColumn<int>("row");
    int row = 0;
    for (const Unwritable& unwritable : unwritables)
        QTest::newRow(unwritable.name) << row++;
}

void TestKitSettingsFile::whatNoFileHoldsIsRefused()
{
    QFETCH(int, row);
    const Unwritable& unwritable = unwritables[row];
    const QString sentence = QString::fromLatin1(unwritable.sentence);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.zoeffect.json"));
    Settings settings = *zokit::readSettings(handWritten, folder.path()).settings;
    QVERIFY(zokit::saveSettings(settings, path).isEmpty());
    const Settings before = settings;
    unwritable.put(settings);
    zokit::Message error;
    QCOMPARE(zokit::writeSettings(settings, QString(), &error), QByteArray());
    QCOMPARE(error.text(), sentence);
    QCOMPARE(zokit::saveSettings(settings, path).text(), path + QStringLiteral(": ") + sentence);
    QVERIFY(*zokit::loadSettings(path).settings == before);
    if (row >= 3)
        return; // Of a preset by its name alone the same writer is asked.
    const zokit::Presets presets(folder.filePath(QStringLiteral("presets")));
    QCOMPARE(presets.save(QStringLiteral("Corner"), zokit::presetFrom(settings, {})).text(),
             QStringLiteral("Corner: ") + sentence);
    QVERIFY(presets.names().isEmpty());
}

void TestKitSettingsFile::whatOthersWroteIsKept()
{
    const QByteArray file = R"({"zoeffect": 1, "later": {"a": [1]}, "media": {"width": 2, "height": 2, "colour": "x"},
        "effects": [{"type": "Color", "x-note": 7, "values": {}},
                    {"type": "Watermark", "items": [{"x-mine": true, "values": {"own": {"int": 3}}}]}]})";
    const ReadSettings read = zokit::readSettings(file, QString());
    QVERIFY2(read.settings, qPrintable(read.error.text()));
    const zokit::FileSettings open(*read.settings);
    const QByteArray text = zokit::writeSettings(open.settings(), QString());
    for (const char* kept :
         {"\"later\": {\"a\":[1]}", "\"colour\": \"x\"", "\"x-note\": 7", "\"x-mine\": true", "\"own\": {\"int\":3}"})
        QVERIFY2(text.contains(kept), text);
}

void TestKitSettingsFile::refusedFileNamesThePlace_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char* name, const QByteArray& file, const char* sentence) {
        QTest::newRow(name) << file << QString::fromUtf8(sentence);
    };
    row("no JSON", "{\n  \"zoeffect\" 1}", "Line 2, column 14: a colon is missing behind a name.");
    row("a value without quotes", "{\n  \"media\": x}",
        "Line 2, column 12: this is no value; a text stands in quotation marks.");
    row("more behind the end", "{} x", "Line 1, column 4: the text goes on behind its end.");
    row("a name twice", "{\"zoeffect\": 1,\n \"output\": {\"quality\": 20, \"quality\": 30}}",
        "Line 2, column 28: this name stands before in the same braces.");
    row("a name twice, spelled otherwise", R"({"later": [{"a\"b": "x\\"}, {"a\"b": 1}], "l\u0061ter": 2})",
        "Line 1, column 43: this name stands before in the same braces.");
    row("no end", "{\n", "Line 1, column 2: a closing brace } is missing.");
    row("nothing", "", "Line 1, column 1: a value is missing.");
    row("a null byte", QByteArray("{\"zoeffect\": 1,\n\"later\": {\"a\0\0b\": 4, \"a\0c\": 1}}", 47),
        "Line 2, column 13: this is not UTF-8.");
    row("a wrong escape", R"({"later": "\uZZZZ"})", "Line 1, column 13: behind a backslash stands what means nothing.");
    row("a list", "[]", R"(This is no settings file: a JSON object with "zoeffect": 1 is expected.)");
    row("another form", R"({"version": 1})",
        R"(This is no settings file: a JSON object with "zoeffect": 1 is expected.)");
    row("a later form", R"({"zoeffect": 2})",
        "This file is of version 2; this program knows versions up to 1. Use a newer program.");
    row("a version and a half", R"({"zoeffect": 1.5})",
        R"(This is no settings file: a JSON object with "zoeffect": 1 is expected.)");
    row("media that is none", R"({"zoeffect": 1, "media": 5})", "media: an object is expected.");
    row("a frame that is none", R"({"zoeffect": 1, "media": {"width": -1}})",
        "media:width: a number of pixels is expected.");
    row("a frame of letters", R"({"zoeffect": 1, "media": {"width": "x"}})",
        "media:width: a number of pixels is expected.");
    row("a file that is none", R"({"zoeffect": 1, "media": {"file": 5}})", "media:file: a path is expected.");
    row("a length of letters", R"({"zoeffect": 1, "media": {"seconds": "x"}})",
        "media:seconds: a number of seconds is expected.");
    row("a length below nothing", R"({"zoeffect": 1, "media": {"seconds": -1}})",
        "media:seconds: a number of seconds is expected.");
    row("no version at all", R"({"zoeffect": 0})",
        R"(This is no settings file: a JSON object with "zoeffect": 1 is expected.)");
    row("options that are none", R"({"zoeffect": 1, "output": 5})", "output: an object is expected.");
    row("rules that are none", R"({"zoeffect": 1, "tracks": 5})", "tracks: an object is expected.");
    row("values that are none", fileWith(R"({"type": "Color", "values": 5})"), "Color:values: an object is expected.");
    row("items that are none", fileWith(R"({"type": "Watermark", "items": 5})"),
        "Watermark:items: a list is expected.");
    row("the kit's own key", fileWith(R"({"type": "Color", "values": {":of": {"int": 5}}})"),
        "Color::of is no address. Write TYPE:KEY or TYPE:POSITION:KEY, for example Color:bcs_contrast or "
        "Watermark:0:wm_fontsize.");
    row("effects that are none", R"({"zoeffect": 1, "effects": {}})", "effects: a list is expected.");
    row("an effect that is none", fileWith("5"), "effects[0]: an object is expected.");
    row("an unknown type", fileWith(R"({"type": "Colour"})"), "There is no effect type Colour. Did you mean Color?");
    row("a type twice", fileWith(R"({"type": "Color"}, {"type": "Color"})"),
        "Color stands twice in the file. Leave one of them.");
    row("an unknown member", fileWith(R"({"type": "Color", "value": {}})"),
        "Color has no member value. Did you mean values?");
    row("items where none are", fileWith(R"({"type": "Color", "items": []})"), "Color has no member items.");
    row("an unknown key", fileWith(R"({"type": "Color", "values": {"bcs_contrats": 1}})"),
        "Color has no property bcs_contrats. Did you mean bcs_contrast?");
    row("a wrong value", fileWith(R"({"type": "Color", "values": {"bcs_contrast": "abc"}})"),
        "Color:bcs_contrast: abc is no whole number.");
    row("no value", fileWith(R"({"type": "Color", "values": {"bcs_contrast": null}})"),
        "Color:bcs_contrast: null is no whole number.");
    row("half a number", fileWith(R"({"type": "Color", "values": {"bcs_contrast": 20.5}})"),
        "Color:bcs_contrast: 20.5 is no whole number.");
    row("a value with a type that it is not",
        fileWith(R"({"type": "Color", "values": {"bcs_contrast": {"int": "x"}}})"),
        "Color:bcs_contrast: a value is expected.");
    row("a member among the values", fileWith(R"({"type": "Color", "values": {"selected": true}})"),
        "Color:selected: a value is expected.");
    row("too many items", fileWith(R"({"type": "Subtitle", "items": [)" + QByteArray("{},").repeated(100000) + "{}]}"),
        "A settings file has at most 100000 items.");
    row("an unknown choice", fileWith(R"({"type": "Crop", "values": {"crop_aspectratio": "16:8"}})"),
        "Crop:crop_aspectratio: 16:8 is none of Original, Original Ratio, Crop Area, Crop Ratio, 16:9, 4:3, 3:2. Did "
        "you mean 16:9?");
    row("an unknown frame effect", fileWith(R"({"type": "Effect", "items": [{"name": "Blurr"}]})"),
        "Effect:0: there is no frame effect Blurr. Did you mean Blur?");
    row("an unknown corner", fileWith(R"({"type": "Watermark", "items": [{"anchor": {"corner": "botom"}}]})"),
        "Watermark:0:anchor: botom is none of top-left, top, top-right, left, centre, right, bottom-left, bottom, "
        "bottom-right. Did you mean bottom?");
    row("a selection that is none", fileWith(R"({"type": "Color", "selected": 1})"),
        "Color:selected: true or false is expected.");
    row("an unknown option", R"({"zoeffect": 1, "output": {"qualty": 3}})",
        "output has no member qualty. Did you mean quality?");
    row("an option of the run", R"({"zoeffect": 1, "output": {"jobs": 3}})", "output has no member jobs.");
    row("a wrong option", R"({"zoeffect": 1, "output": {"trim": [5, 2]}})",
        "Output:trim: 5,2 is no range. Write FROM,TO in seconds, for example 12,40.5; TO comes after FROM.");
    row("an unknown rule", R"({"zoeffect": 1, "tracks": {"audio-languages": []}})",
        "Tracks has no property audio-languages. Did you mean audio-language?");
    QByteArray deep = R"({"zoeffect": 1, "later": )";
    deep += QByteArray(40, '[') + QByteArray(40, ']') + "}";
    row("too deep", deep, "Objects and lists of a settings file stand at most 32 deep in each other.");
    const QByteArray between = QByteArray("[1,").repeated(40) + '1' + QByteArray(40, ']');
    row("a list that is too deep", QByteArray(40, '[') + QByteArray(40, ']'),
        "Objects and lists of a settings file stand at most 32 deep in each other.");
    row("too deep, with numbers between", R"({"zoeffect": 1, "later": )" + between + "}",
        "Objects and lists of a settings file stand at most 32 deep in each other.");
    row("too large", QByteArray(17 * 1024 * 1024, ' '), "A settings file has at most 16 MB.");
}

void TestKitSettingsFile::refusedFileNamesThePlace()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, sentence);
    const ReadSettings read = zokit::readSettings(file, QString());
    QVERIFY(!read.settings);
    QCOMPARE(read.error.text(), sentence);
}

void TestKitSettingsFile::boundsOfAFile_data()
{
    QTest::addColumn<QByteArray>("effect");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("a colour beyond") << QByteArray(R"({"type": "Color", "values": {"bcs_contrast": 51}})") << false;
    QTest::newRow("a place beyond") << QByteArray(R"({"type": "Crop", "values": {"crop_left": 5000}})") << true;
    QTest::newRow("letters beyond") << QByteArray(
        R"({"type": "Watermark", "items": [{"values": {"wm_fontsize": 150}}]})")
                                    << true;
    QTest::newRow("transparency beyond") << QByteArray(
        R"({"type": "Watermark", "items": [{"values": {"wm_transparency": 101}}]})")
                                         << false;
}

void TestKitSettingsFile::boundsOfAFile()
{
    QFETCH(QByteArray, effect);
    QFETCH(bool, accepted);
    QCOMPARE(zokit::readSettings(fileWith(effect), QString()).settings.has_value(), accepted);
}

void TestKitSettingsFile::pathsAreRelativeToTheFile()
{
    Settings settings = *zokit::readSettings(handWritten, QStringLiteral("/films")).settings;
    zokit::Item logo;
    logo.values.insert(key("wm_imageurl"), QStringLiteral("/films/logos/a.png"));
    settings.find(key("Watermark"))->items.append(logo);
    const QByteArray inside = zokit::writeSettings(settings, QStringLiteral("/films"));
    QVERIFY(inside.contains(R"("file": "clip.mkv")"));
    QVERIFY(inside.contains(R"("wm_imageurl": "logos/a.png")"));
    const QByteArray beside = zokit::writeSettings(settings, QStringLiteral("/films/settings"));
    QVERIFY(beside.contains(R"("file": "/films/clip.mkv")"));
    const ReadSettings moved = zokit::readSettings(inside, QStringLiteral("/other"));
    QCOMPARE(moved.settings->media.file, QStringLiteral("/other/clip.mkv"));
    QCOMPARE(moved.settings->find(key("Watermark"))->items.last().values.value(key("wm_imageurl")),
             QVariant(QStringLiteral("/other/logos/a.png")));
}

void TestKitSettingsFile::everyCutAndFlipIsReadOrRefused()
{
    const QByteArray whole = handWritten;
    for (int size = 0; size < whole.size(); ++size) {
        const ReadSettings read = zokit::readSettings(whole.left(size), QString());
        QVERIFY2(!read.settings && !read.error.isEmpty(), QByteArray::number(size));
    }
    int taken = 0;
    for (int place = 0; place < whole.size(); ++place) {
        for (const char flip : {'\x01', '\x20', '\x80'}) {
            QByteArray damaged = whole;
            damaged[place] = static_cast<char>(damaged.at(place) ^ flip);
            const ReadSettings read = zokit::readSettings(damaged, QString());
            QCOMPARE(read.settings.has_value(), read.error.isEmpty());
            taken += read.settings.has_value();
        }
    }
    QVERIFY(taken > 0); // A changed letter in a text is a valid file.
}

void TestKitSettingsFile::marginOfAnAnchorComesBackAsItWas()
{
    for (const double margin : {0.0, 12.0, 2.5}) {
        Settings settings = *zokit::readSettings(handWritten, QString()).settings;
        zokit::Item& item = settings.find(key("Watermark"))->items[0];
        item.anchor = {{key("corner"), key("bottom-right")}, {key("margin"), margin}};
        const ReadSettings read = zokit::readSettings(zokit::writeSettings(settings, QString()), QString());
        QVERIFY(read.settings);
        const zokit::Values back = read.settings->find(key("Watermark"))->items.at(0).anchor;
        QCOMPARE(int(back.value(key("margin")).userType()), int(QMetaType::Double));
        for (const zokit::Difference& found : zokit::differences(settings, *read.settings))
            QVERIFY2(found.address.key != key("anchor"), qPrintable(zokit::differenceLabel(found)));
    }
}

void TestKitSettingsFile::randomSettingsComeBack()
{
    clearSavedDefaults();
    QRandomGenerator random(7);
    zokit::Project project;
    for (int i = 0; i < 400; ++i) {
        randomEdit(project, random);
        for (const zokit::FileSettings* file : project.files()) {
            const Settings settings = file->settings();
            const QByteArray text = zokit::writeSettings(settings, QStringLiteral("/films"));
            const ReadSettings read = zokit::readSettings(text, QStringLiteral("/films"));
            QVERIFY2(read.settings, qPrintable(read.error.text()));
            QVERIFY2(*read.settings == settings, text);
        }
    }
    clearSavedDefaults();
}

void TestKitSettingsFile::savedWholeOrNotAtAll()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.zoeffect.json"));
    const Settings settings = *zokit::readSettings(handWritten, folder.path()).settings;
    QVERIFY(zokit::saveSettings(settings, path).isEmpty());
    QVERIFY(*zokit::loadSettings(path).settings == settings);
    QVERIFY(!zokit::saveSettings(settings, folder.filePath(QStringLiteral("missing/a.json"))).isEmpty());
    QCOMPARE(zokit::loadSettings(folder.filePath(QStringLiteral("b.json"))).error.text(),
             folder.filePath(QStringLiteral("b.json")) + QStringLiteral(": no such file."));
    QVERIFY(!zokit::loadSettings(folder.path()).settings);
    QCOMPARE(zokit::loadSettings(key("/dev/null")).error.text(),
             key("/dev/null cannot be read: it is no regular file."));
}

void TestKitSettingsFile::errorsNameTheFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.zoeffect.json"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(fileWith(R"({"type": "Colour"})"));
    file.flush();
    QCOMPARE(zokit::loadSettings(path).error.text(),
             path + QStringLiteral(": There is no effect type Colour. Did you mean Color?"));
    QVERIFY(file.resize(16 * 1024 * 1024 + 1));
    QCOMPARE(zokit::loadSettings(path).error.text(), path + QStringLiteral(": A settings file has at most 16 MB."));
}

void TestKitSettingsFile::presetsByName()
{
    const QTemporaryDir folder;
    const zokit::Presets presets(folder.path());
    const Settings settings = *zokit::readSettings(handWritten, folder.path()).settings;
    QVERIFY(presets.save(QStringLiteral("Corner"), zokit::presetFrom(settings, {key("Watermark")})).isEmpty());
    QCOMPARE(presets.save(QStringLiteral("Corner"), settings).text(),
             QStringLiteral("There is a preset Corner already. Choose another name, or replace it."));
    QVERIFY(presets.save(QStringLiteral("Corner"), zokit::presetFrom(settings, {key("Watermark")}), true).isEmpty());
    const zokit::Presets::Loaded loaded = presets.load(QStringLiteral("Corner"));
    QVERIFY(loaded.error.isEmpty());
    QCOMPARE(loaded.preset.effects.size(), 1);
    QCOMPARE(loaded.preset.media.frame, QSize(1280, 720));
    QCOMPARE(presets.load(QStringLiteral("Cornr")).error.text(),
             QStringLiteral("There is no preset Cornr. Did you mean Corner?"));
    QVERIFY(presets.rename(QStringLiteral("Corner"), QStringLiteral("Logo")).isEmpty());
    QCOMPARE(presets.names(), QStringList({QStringLiteral("Logo")}));
    QVERIFY(presets.remove(QStringLiteral("Logo")).isEmpty());
    QVERIFY(presets.names().isEmpty());
}

void TestKitSettingsFile::presetIsRefusedWithAReason()
{
    const QTemporaryDir folder;
    const auto path = [&](const char* name) { return folder.filePath(key(name)); };
    const zokit::Presets presets(path("presets"));
    QVERIFY(presets.save(key("Corner"), Settings()).isEmpty());
    const QString nameless = key("A preset needs a name.");
    QCOMPARE(presets.save(QString(), Settings()).text(), nameless);
    QCOMPARE(presets.rename(key("Corner"), QString()).text(), nameless);
    QCOMPARE(presets.save(QString(QChar(0xd800)), Settings()).text(), nameless); // Half a letter.
    write(path(".zoeffect.json"), zokit::writePreset(Settings(), QString()));
    QCOMPARE(presets.import({path(".zoeffect.json")}).text(), nameless);
    const QString missing = key("There is no preset Cornr. Did you mean Corner?");
    QCOMPARE(presets.remove(key("Cornr")).text(), missing);
    QCOMPARE(presets.rename(key("Cornr"), key("Logo")).text(), missing);
    QCOMPARE(presets.exportTo(key("Cornr"), path("out.json")).text(), missing);
    QCOMPARE(presets.exportWithFiles(key("Cornr"), path("out.json")).text(), missing);
    QVERIFY(!QFile::exists(path("out.json")));
    QCOMPARE(presets.import({path("gone.json")}).text(), path("gone.json") + key(": no such file."));
    QVERIFY(QDir().mkpath(presets.path(key("Folder"))));
    QCOMPARE(presets.load(key("Folder")).error.text(),
             presets.path(key("Folder")) + key(" cannot be read: it is a folder."));
    const auto unwritable = [&](const zokit::Message& told, const char* preset) {
        return told.code() == zokit::Message::Code::FileUnwritable
               && told.arguments().constFirst() == presets.path(key(preset));
    };
    QVERIFY(unwritable(presets.remove(key("Folder")), "Folder"));
    QVERIFY(unwritable(presets.rename(key("Corner"), key("Folder"), true), "Folder"));
    write(path("a/twice.json"), zokit::writePreset(Settings(), QString()));
    write(path("b/twice.json"), zokit::writePreset(Settings(), QString()));
    QCOMPARE(presets.import({path("a/twice.json"), path("b/twice.json")}, true).text(),
             key("There is a preset twice already. Choose another name, or replace it."));
    write(path("good.json"), zokit::writePreset(Settings(), QString()));
    const zokit::Presets nowhere(path("good.json/presets"));
    QCOMPARE(nowhere.import({path("good.json")}).code(), zokit::Message::Code::FileUnwritable);
    QCOMPARE(presets.names(), QStringList({key("Corner")}));
}

void TestKitSettingsFile::presetNameMayHoldAnything_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    const auto row = [](const char* name, const char* file) {
        QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(file) + QStringLiteral(".zoeffect.json");
    };
    row("a/b", "a%2fb");
    row("..", "%2e.");
    row(".hidden", "%2ehidden");
    row("version 1.2", "version 1.2");
    row("100%", "100%25");
    row("a\x7f"
        "b",
        "a%7fb");
    row("%2f", "%252f");
    row("a\nb", "a%0ab");
    row("-y", "-y");
    row("ä ö", "ä ö");
    row("con:x", "con%3ax");
    row("\"quoted\" 'name'", "%22quoted%22 'name'");
    row(" leading", " leading");
}

void TestKitSettingsFile::presetNameMayHoldAnything()
{
    QFETCH(QString, name);
    QFETCH(QString, file);
    const QTemporaryDir folder;
    const zokit::Presets presets(folder.filePath(QStringLiteral("presets")));
    QVERIFY(presets.save(name, Settings()).isEmpty());
    QCOMPARE(presets.names(), QStringList({name}));
    QCOMPARE(presets.path(name), QDir(presets.folder()).filePath(file));
    QVERIFY(presets.load(name).error.isEmpty());
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList({QStringLiteral("presets")}));
}

void TestKitSettingsFile::importIsAllOrNothing()
{
    const QTemporaryDir folder;
    const zokit::Presets presets(folder.filePath(QStringLiteral("presets")));
    const auto write = [&](const char* name, const QByteArray& text) {
        QFile file(folder.filePath(key(name)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    };
    write("good.zoeffect.json", zokit::writePreset(Settings(), QString()));
    write("bad.zoeffect.json", R"({"zoeffect": 1, "effects": [{"type": "Colour"}]})");
    const QString good = folder.filePath(QStringLiteral("good.zoeffect.json"));
    const QString bad = folder.filePath(QStringLiteral("bad.zoeffect.json"));
    QCOMPARE(presets.import({good, bad}).text(),
             bad + QStringLiteral(": There is no effect type Colour. Did you mean Color?"));
    QVERIFY(presets.names().isEmpty());
    QVERIFY(presets.import({good}).isEmpty());
    QVERIFY(!presets.import({good}).isEmpty());
    QVERIFY(presets.import({good}, true).isEmpty());
    QCOMPARE(presets.names(), QStringList({QStringLiteral("good")}));
    const QString target = folder.filePath(QStringLiteral("out.json"));
    QVERIFY(presets.exportTo(QStringLiteral("good"), target).isEmpty());
    QVERIFY(!presets.exportTo(QStringLiteral("good"), target).isEmpty());
    write("out.json", "old");
    QVERIFY(presets.exportTo(QStringLiteral("good"), target, true).isEmpty());
    QVERIFY(presets.loadNamed(target).error.isEmpty());
}

namespace {

/// A preset of image watermarks.
Settings withImages(const QStringList& files)
{
    Settings preset;
    zokit::TypeSettings watermarks;
    watermarks.type = key("Watermark");
    for (const QString& file : files) {
        zokit::Item item;
        item.values = {{key("wm_istextwatermark"), false}, {key("wm_imageurl"), file}};
        watermarks.items.append(item);
    }
    preset.effects.append(watermarks);
    return preset;
}

QStringList imagesOf(const Settings& preset)
{
    QStringList files;
    for (const zokit::Item& item : preset.find(key("Watermark"))->items)
        files.append(item.values.value(key("wm_imageurl")).toString());
    return files;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
}

} // namespace

void TestKitSettingsFile::exportTakesFilesAlong()
{
    const QTemporaryDir folder;
    const auto path = [&](const char* name) { return folder.filePath(key(name)); };
    const zokit::Presets presets(path("presets"));
    write(path("a/logo.png"), "first");
    write(path("b/logo.png"), "second");
    QVERIFY(
        presets.save(key("logos"), withImages({path("a/logo.png"), path("b/logo.png"), path("a/logo.png")})).isEmpty());
    QDir().mkpath(path("out"));
    QCOMPARE(presets.exportWithFiles(key("logos"), path("out/away.zoeffect.json")).text(), QString());
    QCOMPARE(presets.exportWithFiles(key("logos"), path("out/away.zoeffect.json")).text(),
             path("out/away.zoeffect.json") + key(" exists. Choose another name, or replace it."));
    QCOMPARE(presets.exportWithFiles(key("logos"), path("out/away.zoeffect.json"), true).text(), QString());
    QDir(path("a")).removeRecursively();
    QDir(path("b")).removeRecursively();
    QVERIFY(QDir().rename(path("out"), path("elsewhere")));
    const zokit::Presets others(path("others"));
    QVERIFY(others.import({path("elsewhere/away.zoeffect.json")}).isEmpty());
    const QStringList images = imagesOf(others.load(key("away")).preset);
    QCOMPARE(images, QStringList({path("elsewhere/away.files/logo.png"), path("elsewhere/away.files/2-logo.png"),
                                  path("elsewhere/away.files/logo.png")}));
    QCOMPARE(contentOf(images.at(0)), QByteArray("first"));
    QCOMPARE(contentOf(images.at(1)), QByteArray("second"));
    QCOMPARE(others.exportWithFiles(key("away"), path("plain.json")).text(), QString());
    QCOMPARE(contentOf(path("plain.json.files/logo.png")), QByteArray("first"));
    write(path("clash.files"), "no folder");
    const zokit::Message clash = others.exportWithFiles(key("away"), path("clash.zoeffect.json"));
    QCOMPARE(clash.code(), zokit::Message::Code::FileUnwritable);
    QCOMPARE(clash.arguments().constFirst(), path("clash.files/logo.png"));
    QVERIFY(!QFile::exists(path("clash.zoeffect.json")));
    // Nor is a copy that is there overwritten unasked.
    write(path("fresh.files/logo.png"), "mine");
    write(path("a/logo.png"), "first");
    zokit::Settings mixed = withImages({path("a/logo.png")});
    mixed.effects.first().items.prepend(zokit::Item());
    mixed.effects.first().items.first().values = {{key("wm_istextwatermark"), true}};
    QVERIFY(presets.save(key("mixed"), mixed).isEmpty());
    QCOMPARE(presets.exportWithFiles(key("mixed"), path("fresh.zoeffect.json")).text(),
             path("fresh.files/logo.png") + key(" exists. Choose another name, or replace it."));
    QCOMPARE(contentOf(path("fresh.files/logo.png")), QByteArray("mine"));
    QDir(path("a")).removeRecursively();
    // What is missing cannot be taken along.
    QCOMPARE(presets.exportWithFiles(key("logos"), path("elsewhere/new.zoeffect.json")).text(),
             key("Watermark:0:wm_imageurl: ") + path("a/logo.png")
                 + key(": no such file. Bring it back, or choose another."));
    QVERIFY(!QFile::exists(path("elsewhere/new.zoeffect.json")));
    QVERIFY(!QFile::exists(path("elsewhere/new.files")));
}

void TestKitSettingsFile::exportOverItsOwnImagesKeepsThem()
{
    const QTemporaryDir folder;
    const auto path = [&](const char* name) { return folder.filePath(key(name)); };
    write(path("out/away.files/logo.png"), "logo");
    QVERIFY(QFile::link(path("out"), path("alias")));
    const zokit::Presets presets(path("presets"));
    QVERIFY(presets.save(key("logo"), withImages({path("alias/away.files/logo.png")})).isEmpty());
    QCOMPARE(presets.exportWithFiles(key("logo"), path("out/away.zoeffect.json"), true).text(), QString());
    QCOMPARE(contentOf(path("out/away.files/logo.png")), QByteArray("logo"));
}

void TestKitSettingsFile::fullDiskIsTold()
{
    const QTemporaryDir folder;
    const auto path = [&](const char* name) { return folder.filePath(key(name)); };
    const zokit::Presets presets(path("presets"));
    write(path("small.png"), QByteArray(1000, 'a'));
    write(path("large.png"), QByteArray(3 * 1024 * 1024, 'a'));
    QVERIFY(presets.save(key("small"), withImages({path("small.png")})).isEmpty());
    QVERIFY(presets.save(key("large"), withImages({path("large.png")})).isEmpty());
    const QByteArray before = contentOf(presets.path(key("small")));
    rlimit usual{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &usual), 0);
    std::signal(SIGXFSZ, SIG_IGN);
    const auto withRoom = [&](rlim_t bytes, const std::function<zokit::Message()>& call) {
        const rlimit limit{bytes, usual.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
        const zokit::Message told = call();
        setrlimit(RLIMIT_FSIZE, &usual);
        return told.code() == zokit::Message::Code::FileUnwritable ? told.arguments().constFirst() : told.text();
    };
    QCOMPARE(withRoom(10, [&] { return presets.save(key("small"), Settings(), true); }), presets.path(key("small")));
    QCOMPARE(contentOf(presets.path(key("small"))), before);
    QCOMPARE(withRoom(10, [&] { return presets.exportWithFiles(key("small"), path("out.zoeffect.json")); }),
             path("out.files/small.png"));
    QCOMPARE(withRoom(1500000, [&] { return presets.exportWithFiles(key("large"), path("out.zoeffect.json")); }),
             path("out.files/large.png"));
    QVERIFY(!QFile::exists(path("out.zoeffect.json")));
    QVERIFY(!QFile::exists(path("out.files/small.png")) && !QFile::exists(path("out.files/large.png")));
}

void TestKitSettingsFile::fileIsAPresetOrSettings_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("isPreset");
    QTest::addColumn<QString>("sentence"); // Behind the file's name.
    const auto row = [](const char* name, const char* file, bool isPreset, const char* sentence) {
        QTest::newRow(name) << QByteArray(file) << isPreset << key(sentence);
    };
    row("settings", R"({"zoeffect": 1, "media": {"width": 1280, "height": 720}})", false, "");
    row("a preset", R"({"zoeffect": 1, "base": {"width": 1280, "height": 720}})", true, "");
    row("neither is said", R"({"zoeffect": 1})", false, "");
    row("both are said", R"({"zoeffect": 1, "base": {}, "media": {}})", false, "");
    row("settings with an error", R"({"zoeffect": 1, "media": 5})", false, ": media: an object is expected.");
    row("a preset with an error", R"({"zoeffect": 1, "base": 5})", true, ": base: an object is expected.");
    row("no JSON", "{", false, ": Line 1, column 1: a closing brace } is missing.");
}

void TestKitSettingsFile::fileIsAPresetOrSettings()
{
    QFETCH(QByteArray, file);
    QFETCH(bool, isPreset);
    QFETCH(QString, sentence);
    const QTemporaryDir folder;
    const QString path = folder.filePath(key("a.json"));
    write(path, file);
    const zokit::Presets::Named named = zokit::Presets(folder.path()).loadNamed(path);
    QCOMPARE(named.isPreset, isPreset);
    QCOMPARE(named.error.text(), sentence.isEmpty() ? QString() : path + sentence);
}

void TestKitSettingsFile::valueIsSaidToPeople_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("thing");
    QTest::addColumn<QString>("label");
    const auto row = [](const char* what, const char* type, const char* name, const QVariant& value, const char* thing,
                        const char* label) {
        QTest::newRow(what) << key(type) << key(name) << value << key(thing) << key(label);
    };
    row("a number", "Color", "bcs_contrast", 5, "Colour: Contrast", "5");
    row("with a unit", "Crop", "crop_left", 5, "Crop: Left", "5 px");
    row("with a unit, and not set", "Crop", "crop_left", QVariant(), "Crop: Left", "");
    row("the word of a crop", "Crop", "crop_width", key("source_val"), "Crop: Width", "as the frame");
    row("a text without letters", "Watermark", "wm_textcontent", QString(), "Watermarks: Text", "");
    row("a host's own", "Color", "x-note", 5, "Colour: x-note", R"({"int":5})");
    row("what no file can hold", "Color", "x-picture", QImage(1, 1, QImage::Format_RGB32), "Colour: x-picture", "");
    row("a margin in pixels", "Watermark", "anchor", QVariantMap{{key("corner"), key("top-left")}, {key("margin"), 20}},
        "Watermarks: Anchor", "top left, 20 px");
    row("a margin in percent", "Watermark", "anchor", QVariantMap{{key("corner"), key("top-left")}},
        "Watermarks: Anchor", "top left, 2 %");
    row("no anchor", "Watermark", "anchor", QVariantMap{{key("corner"), key("nowhere")}}, "Watermarks: Anchor", "");
    row("a name", "Effect", "name", key("Blur"), "Frame effects: Name", "Blur");
    row("a selection", "Effect", "selected", false, "Frame effects: In use", "No");
}

void TestKitSettingsFile::valueIsSaidToPeople()
{
    QFETCH(QString, type);
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    const zokit::Address address{type, zokit::Address::ofType, name};
    QTEST(zokit::addressLabel(address), "thing");
    QTEST(zokit::valueLabel(address, value), "label");
}

void TestKitSettingsFile::settingsAreEqualOnlyInAll()
{
    Settings settings = *zokit::readSettings(handWritten, QString()).settings;
    QVERIFY(settings == *zokit::readSettings(handWritten, QString()).settings);
    using Change = void (*)(Settings&);
    const Change changes[] = {
        [](Settings& s) { s.media.file += QLatin1Char('x'); },
        [](Settings& s) { s.media.frame.rwidth() += 1; },
        [](Settings& s) { s.media.seconds += 1; },
        [](Settings& s) { s.foreign.insert(key("x-a"), 1); },
        [](Settings& s) { s.tracks.insert(key("sidecars"), true); },
        [](Settings& s) { s.output.insert(key("quality"), 1); },
        [](Settings& s) { s.effects.removeLast(); },
        [](Settings& s) { s.find(key("Color"))->type = key("Colour"); },
        [](Settings& s) { s.find(key("Color"))->selected = !s.find(key("Color"))->selected; },
        [](Settings& s) { s.find(key("Color"))->values.insert(key("bcs_contrast"), 5.0); },
        [](Settings& s) { s.find(key("Color"))->foreign.insert(key("x-a"), 1); },
        [](Settings& s) { s.find(key("Watermark"))->items.removeLast(); },
        [](Settings& s) { s.find(key("Watermark"))->items[0].name = key("x"); },
        [](Settings& s) { s.find(key("Watermark"))->items[0].selected = false; },
        [](Settings& s) { s.find(key("Watermark"))->items[0].values.insert(key("x-a"), 1); },
        [](Settings& s) { s.find(key("Watermark"))->items[0].anchor.insert(key("margin"), 77); },
        [](Settings& s) { s.find(key("Watermark"))->items[0].foreign.insert(key("x-a"), 1); },
    };
    int number = 0;
    for (const Change change : changes) {
        Settings other = settings;
        change(other);
        QVERIFY2(!(other == settings), qPrintable(QString::number(number)));
        ++number;
    }
}

void TestKitSettingsFile::importTellsWhatIsMissing()
{
    const QTemporaryDir folder;
    const QString gone = folder.filePath(key("gone.png"));
    const QString there = folder.filePath(key("there.png"));
    write(there, "picture");
    write(folder.filePath(key("one.zoeffect.json")), zokit::writePreset(withImages({there, gone}), folder.path()));
    const zokit::Presets presets(folder.filePath(key("presets")));
    zokit::Messages missing;
    QVERIFY(presets.import({folder.filePath(key("one.zoeffect.json"))}, false, &missing).isEmpty());
    QCOMPARE(missing.size(), 1);
    QCOMPARE(missing.first().text(),
             key("Watermark:1:wm_imageurl: ") + gone + key(": no such file. Bring it back, or choose another."));
    QCOMPARE(presets.names(), QStringList({key("one")}));
}

void TestKitSettingsFile::errorsAreSaidInTheLanguageOfTheMoment()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(key("a.json"));
    write(path, R"({"zoeffect": 7})");
    const zokit::Message newer = zokit::loadSettings(path).error;
    QCOMPARE(newer.code(), zokit::Message::Code::InFile);
    QCOMPARE(newer.inner().code(), zokit::Message::Code::NewerVersion);
    QCOMPARE(newer.arguments(), QStringList({path, newer.inner().text()}));
    QCOMPARE(newer.inner().inner().code(), zokit::Message::Code::None);
    const zokit::Message list = zokit::readSettings(R"({"zoeffect": 1, "effects": {}})", QString()).error;
    const zokit::Message syntax = zokit::readSettings("{\n  \"zoeffect\" 1}", QString()).error;
    QVERIFY(zokit::useLanguage(QLocale(QLocale::German)));
    const QStringList german{newer.text(), list.text(), syntax.text()};
    QVERIFY(zokit::useLanguage(QLocale(QLocale::English)));
    QCOMPARE(german, QStringList({path
                                      + key(": Diese Datei hat Version 7; dieses Programm kennt Versionen bis 1. "
                                            "Nehmen Sie ein neueres Programm."),
                                  key("effects: erwartet wird eine Liste."),
                                  key("Zeile 2, Spalte 14: hinter einem Namen fehlt ein Doppelpunkt.")}));
}

void TestKitSettingsFile::presetHoldsWhatItIsMeantFor()
{
    const Settings settings = *zokit::readSettings(handWritten, QString()).settings;
    const Settings whole = zokit::presetFrom(settings, {});
    QCOMPARE(whole.effects.size(), 13);
    QVERIFY(!whole.output.contains(key("trim")));
    QCOMPARE(whole.output.value(key("quality")), QVariant(22));
    QVERIFY(whole.media.file.isEmpty());
    const Settings part = zokit::presetFrom(settings, {key("Color:bcs_contrast"), key("Watermark:0")});
    QCOMPARE(part.effects.size(), 2);
    QCOMPARE(part.find(key("Color"))->values.size(), 1);
    QVERIFY(part.output.isEmpty());
    const Settings nothing =
        zokit::presetFrom(settings, {key("Color:nothing"), key("Watermark:-1"), key("Watermark:7")});
    QCOMPARE(nothing.find(key("Color"))->values.size(), 0);
    QCOMPARE(nothing.find(key("Watermark"))->items.size(), 0);
    QCOMPARE(zokit::carryOfPreset(part).what, QStringList({key("Watermark"), key("Color")}));
    const Settings rules = zokit::presetFrom(settings, {key("Crop"), key("Output"), key("Tracks")});
    QCOMPARE(zokit::carryOfPreset(rules).what, QStringList({key("Crop"), key("Output"), key("Tracks")}));
    QCOMPARE(zokit::readPreset(handWritten, QString()).error.text(),
             QStringLiteral("A preset has no \"media\": it is for any clip."));
}

void TestKitSettingsFile::settingsOfASmallFrameAreReadAgain()
{
    zokit::Settings empty;
    empty.media.frame = {10, 8}; // Smaller than the smallest crop is by default.
    zokit::FileSettings file(empty);
    file.insert(key("Subtitle"), {{key("trackid"), 2}});
    file.insert(key("Watermark"), {{key("wm_textcontent"), key("Hello")}});
    const zokit::ReadSettings read = zokit::readSettings(zokit::writeSettings(file.settings(), QString()), QString());
    QCOMPARE(read.error.text(), QString());
    QVERIFY(*read.settings == file.settings());
    QCOMPARE(file.check(file.type(key("Crop")), key("crop_minwidth"), 25).text(),
             key("Crop:crop_minwidth: 25 is not between 1 and 10."));
}

void TestKitSettingsFile::contentsOfAPresetAreLines()
{
    zokit::FileSettings plain(clip());
    plain.setValue(plain.type(key("Color")), key("x-note"), 5); // No person sets it.
    QCOMPARE(zokit::contentsOf(zokit::presetFrom(plain.settings(), {key("Crop"), key("Color")})),
             QStringList{key("As by default: Crop, Colour")});

    zokit::FileSettings file(*zokit::readSettings(handWritten, QString()).settings);
    file.setValue(file.type(key("Crop")), key("crop_width"), 800);
    const zokit::Identity image = file.insert(key("Watermark"), {{key("wm_imageurl"), key("/pictures/logo.png")}}).item;
    file.setValue(image, key("selected"), false);
    file.setValue(file.item(key("Effect"), 4), key("selected"), true);
    for (const int track : {2, 3})
        file.insert(key("Subtitle"), {{key("trackid"), track}, {key("sub_fontsize"), 20 * track}});
    file.insert(key("Audio"), {{key("audio_isfile"), true}, {key("file"), key("/music/song.flac")}});
    file.setValue(file.type(key("Color")), key("bcs_contrast"), 20);
    file.setValue(file.type(key("Color")), key("selected"), false);
    QCOMPARE(zokit::contentsOf(zokit::presetFrom(file.settings(), {})),
             QStringList({key("Crop: Height: 720 px, Left: 96 px, Width: 800 px"),
                          key("Watermarks 1: Hello, bottom right, 2 %"), key("Watermarks 2: logo.png, In use: No"),
                          key("Subtitles: Size: 40 pt"), key("Sound tracks 1: song.flac"),
                          key("Colour: Contrast: 20, In use: No"), key("Frame effects: Sepia"),
                          key("Output: Container: mkv, Quality: 22, Video codec: hevc"),
                          key("As by default: Fade in and out, Normalize, Band pass, Chorus, Flanger, Echo, Speed")}));
    const Settings part = zokit::presetFrom(file.settings(), {key("Audio_Speed"), key("Tracks")});
    QCOMPARE(zokit::contentsOf(part),
             QStringList({key("Choice of tracks: Sound languages: fra,eng"), key("As by default: Speed")}));
    QCOMPARE(zokit::contentsOf(Settings()), QStringList());
}

ZOEFFECT_TEST_MAIN(TestKitSettingsFile)
#include "tst_kit_settingsfile.moc"
