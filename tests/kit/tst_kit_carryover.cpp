// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QFile>
#include <QtTest>

#include <zokit/carryover.h>
#include <zokit/differences.h>
#include <zokit/presets.h>
#include <zokit/project.h>
#include <zokit/properties.h>
#include <zokit/settingsfile.h>

#include "kitsupport.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::CarryOver;
using zokit::FileSettings;
using zokit::Identity;
using zokit::Project;
using zokit::Settings;

class TestKitCarryOver : public QObject {
    Q_OBJECT

private slots:
    void init() { clearSavedDefaults(); }

    void rule_data();
    void rule();
    void refusedWithAReason_data();
    void refusedWithAReason();
    void missingImageIsNamedAtItsItem();
    void roundingIsToldBefore();
    void presetOfNoFrameTakesThePlacesOfTheTarget();
    void measureOfATextIsNoSetting();
    void unplacedItemComesOnce();
    void typeThatTheTargetLacksComes();
    void busyTargetLeavesAllAsTheyWere();
};

namespace {

/// What is carried from a file of 1280x720 to one of half that size, and what the second then says.
struct Rule {
    const char* name;
    void (*source)(FileSettings& file);
    void (*target)(FileSettings& file);
    QStringList what;
    bool add;
    const char* touched; ///< The types in which something differs afterwards.
    QStringList then;    ///< "ADDRESS VALUE"; "count TYPE N".
};

void nothing(FileSettings& /*file*/) {}

Identity insertText(FileSettings& file, const char* text)
{
    return file.insert(key("Watermark"), {{key("wm_textcontent"), key(text)}}).item;
}

Identity insertLogo(FileSettings& file, const zokit::Values& values = {})
{
    zokit::Values all = values;
    all.insert(key("wm_imageurl"), logoPath(200, 100));
    return file.insert(key("Watermark"), all).item;
}

void insertTracks(FileSettings& file)
{
    for (const int track : {2, 3})
        file.insert(key("Subtitle"), {{key("trackid"), track}, {key("selected"), track == 3}});
    file.insert(key("Subtitle"), {{key("sub_fromfile"), true}, {key("file"), key("/own.srt")}});
}

QVariantMap anchor(const char* corner, const QVariant& margin)
{
    return {{key("corner"), key(corner)}, {key("margin"), margin}};
}

void setCrop(FileSettings& file, const QRect& crop)
{
    file.setValues(file.type(key("Crop")), {{key("crop_left"), crop.x()},
                                            {key("crop_top"), crop.y()},
                                            {key("crop_width"), crop.width()},
                                            {key("crop_height"), crop.height()}});
}

void useFrameEffect(FileSettings& file, int pos)
{
    file.setValue(file.item(key("Effect"), pos), key("selected"), true);
}

void setSubtitleSize(FileSettings& file, int pos, int size)
{
    file.setValue(file.item(key("Subtitle"), pos), key("sub_fontsize"), size);
}

QVector<Rule> rules()
{
    return {
        {"a watermark arrives whole and rescaled",
         [](FileSettings& f) {
             insertLogo(f, {{key("wm_hposition"), 301}, {key("wm_vposition"), 200}, {key("wm_transparency"), 40}});
         },
         nothing,
         {key("Watermark")},
         false,
         "Watermark",
         {key("count Watermark 1"), key("Watermark:0:wm_hposition 151"), key("Watermark:0:wm_vposition 100"),
          key("Watermark:0:wm_imagewidth 100"), key("Watermark:0:wm_imageheight 50"),
          key("Watermark:0:wm_transparency 40")}},
        {"a text by the height of the frame",
         [](FileSettings& f) { f.setValue(insertText(f, "Hello"), key("wm_fontsize"), 41); },
         nothing,
         {key("Watermark")},
         false,
         "Watermark",
         {key("Watermark:0:wm_fontsize 21"), key("Watermark:0:wm_textcontent Hello")}},
        {"a tiny text stays one",
         [](FileSettings& f) { f.setValue(insertText(f, "Hello"), key("wm_fontsize"), 3); },
         [](FileSettings& f) {
             f.setMedia({QString(), QSize(16, 9), 1.0});
         },
         {key("Watermark")},
         false,
         "Watermark",
         {key("Watermark:0:wm_fontsize 1")}},
        {"an anchored watermark keeps its corner",
         [](FileSettings& f) {
             insertLogo(f, {{key("anchor"), anchor("bottom-right", key("2%"))}});
         },
         nothing,
         {key("Watermark")},
         false,
         "Watermark",
         {key("Watermark:0:wm_hposition 527"), key("Watermark:0:wm_vposition 303"), // 12.8 and 7.2 from the edges.
          key("Watermark:0:anchor bottom-right")}},
        {"also in a frame that stands",
         [](FileSettings& f) {
             insertLogo(f, {{key("anchor"), anchor("bottom-right", key("2%"))}});
         },
         [](FileSettings& f) {
             f.setMedia({QString(), QSize(360, 640), 1.0});
         },
         {key("Watermark")},
         false,
         "Watermark",
         {key("Watermark:0:wm_imagewidth 56"), key("Watermark:0:wm_imageheight 28"),
          key("Watermark:0:wm_hposition 297"), key("Watermark:0:wm_vposition 599")}},
        {"a margin in pixels follows the frame",
         [](FileSettings& f) {
             insertLogo(f, {{key("anchor"), anchor("top-left", 20)}});
         },
         nothing,
         {key("Watermark")},
         false,
         "Watermark",
         {key("Watermark:0:wm_hposition 10"), key("Watermark:0:wm_vposition 10")}},
        {"a list is replaced as a whole",
         [](FileSettings& f) { insertText(f, "new"); },
         [](FileSettings& f) {
             insertText(f, "old");
             insertText(f, "older");
         },
         {key("Watermark")},
         false,
         "Watermark",
         {key("count Watermark 1"), key("Watermark:0:wm_textcontent new")}},
        {"adding appends",
         [](FileSettings& f) { insertText(f, "new"); },
         [](FileSettings& f) {
             insertText(f, "old");
             insertText(f, "older");
         },
         {key("Watermark")},
         true,
         "Watermark",
         {key("count Watermark 3"), key("Watermark:0:wm_textcontent old"), key("Watermark:2:wm_textcontent new")}},
        {"adding appends equal ones as often as they are there",
         [](FileSettings& f) {
             const Identity first = insertText(f, "twin");
             f.setValues(insertText(f, "twin"), {{key("wm_hposition"), f.value(first, key("wm_hposition"))},
                                                 {key("wm_vposition"), f.value(first, key("wm_vposition"))}});
         },
         nothing,
         {key("Watermark")},
         true,
         "Watermark",
         {key("count Watermark 2")}},
        {"one watermark takes the place of the one at its position",
         [](FileSettings& f) {
             insertText(f, "a");
             insertText(f, "b");
         },
         [](FileSettings& f) {
             insertText(f, "old");
             insertText(f, "older");
         },
         {key("Watermark:1")},
         false,
         "Watermark",
         {key("count Watermark 2"), key("Watermark:0:wm_textcontent old"), key("Watermark:1:wm_textcontent b")}},
        {"adding to what is not in use",
         [](FileSettings& f) { insertText(f, "new"); },
         [](FileSettings& f) { f.setValue(f.type(key("Watermark")), key("selected"), false); },
         {key("Watermark")},
         true,
         "Watermark",
         {key("Watermark:selected true"), key("count Watermark 1")}},
        {"adding what is not in use to what is",
         [](FileSettings& f) {
             insertText(f, "new");
             f.setValue(f.type(key("Watermark")), key("selected"), false);
         },
         nothing,
         {key("Watermark")},
         true,
         "Watermark",
         {key("Watermark:selected true"), key("count Watermark 1")}},
        {"adding what is not in use to what is not",
         [](FileSettings& f) {
             insertText(f, "new");
             f.setValue(f.type(key("Watermark")), key("selected"), false);
         },
         [](FileSettings& f) { f.setValue(f.type(key("Watermark")), key("selected"), false); },
         {key("Watermark")},
         true,
         "Watermark",
         {key("Watermark:selected false"), key("count Watermark 1")}},
        {"adding frame effects to those that are not in use",
         [](FileSettings& f) { useFrameEffect(f, 0); },
         [](FileSettings& f) { f.setValue(f.type(key("Effect")), key("selected"), false); },
         {key("Effect")},
         true,
         "Effect",
         {key("Effect:selected true"), key("Effect:19:name Blur")}},
        {"adding frame effects that are not in use",
         [](FileSettings& f) {
             useFrameEffect(f, 0);
             f.setValue(f.type(key("Effect")), key("selected"), false);
         },
         [](FileSettings& f) { f.setValue(f.type(key("Effect")), key("selected"), false); },
         {key("Effect")},
         true,
         "Effect",
         {key("Effect:selected false"), key("Effect:19:name Blur")}},
        {"a frame effect that is used already stays",
         [](FileSettings& f) { useFrameEffect(f, 4); },
         [](FileSettings& f) { useFrameEffect(f, 4); },
         {key("Effect")},
         true,
         "",
         {key("Effect:4:name Sepia")}},
        {"one that is there already is not written over",
         [](FileSettings& f) {
             f.setValues(insertText(f, "a"),
                         {{key("wm_hposition"), 300}, {key("wm_vposition"), 200}, {key("wm_fontsize"), 40}});
             insertText(f, "b");
         },
         [](FileSettings& f) {
             insertText(f, "old");
             f.setValues(insertText(f, "a"),
                         {{key("wm_hposition"), 150}, {key("wm_vposition"), 100}, {key("wm_fontsize"), 20}});
         },
         {key("Watermark:0"), key("Watermark:1")},
         false,
         "Watermark",
         {key("count Watermark 3"), key("Watermark:0:wm_textcontent old"), key("Watermark:1:wm_textcontent a"),
          key("Watermark:2:wm_textcontent b")}},
        {"several by position, in any order",
         [](FileSettings& f) {
             for (const char* text : {"a", "b", "c"})
                 insertText(f, text);
         },
         [](FileSettings& f) { insertText(f, "old"); },
         {key("Watermark:2"), key("Watermark:1")},
         false,
         "Watermark",
         {key("count Watermark 3"), key("Watermark:0:wm_textcontent old"), key("Watermark:1:wm_textcontent b"),
          key("Watermark:2:wm_textcontent c")}},
        {"a crop is the same part of the picture",
         [](FileSettings& f) {
             setCrop(f, {100, 50, 800, 600});
         },
         nothing,
         {key("Crop")},
         false,
         "Crop",
         {key("Crop:crop_left 50"), key("Crop:crop_top 25"), key("Crop:crop_width 400"), key("Crop:crop_height 300")}},
        {"a crop to the edge ends at the edge",
         [](FileSettings& f) {
             setCrop(f, {1, 1, 1279, 719});
         },
         nothing,
         {key("Crop")},
         false,
         "Crop",
         {key("Crop:crop_left 1"), key("Crop:crop_top 1"), key("Crop:crop_width 639"), key("Crop:crop_height 359")}},
        {"no crop is the whole frame there, too",
         nothing,
         [](FileSettings& f) {
             setCrop(f, {10, 10, 100, 100});
         },
         {key("Crop")},
         false,
         "Crop",
         {key("Crop:crop_width source_val"), key("Crop:crop_height source_val")}},
        {"a style of subtitles reaches every track",
         [](FileSettings& f) {
             insertTracks(f);
             setSubtitleSize(f, 0, 30);
             setSubtitleSize(f, 1, 40);
             f.setValue(f.item(key("Subtitle"), 0), key("selected"), false); // The style of the first selected one.
         },
         [](FileSettings& f) { insertTracks(f); },
         {key("Subtitle")},
         false,
         "Subtitle",
         {key("count Subtitle 3"), key("Subtitle:0:sub_fontsize 20"), key("Subtitle:1:sub_fontsize 20"),
          key("Subtitle:2:sub_fontsize 20"), key("Subtitle:0:trackid 2"), key("Subtitle:0:selected false"),
          key("Subtitle:1:selected true"), key("Subtitle:2:file /own.srt"), key("Subtitle:2:sub_fromfile true")}},
        {"the style of one track, where none is in use",
         [](FileSettings& f) {
             insertTracks(f);
             setSubtitleSize(f, 0, 40);
         },
         [](FileSettings& f) {
             insertTracks(f);
             f.setValue(f.type(key("Subtitle")), key("selected"), false);
         },
         {key("Subtitle:0")},
         false,
         "Subtitle",
         {key("Subtitle:selected true"), key("Subtitle:1:sub_fontsize 20"), key("count Subtitle 3")}},
        {"the style of one track that is not in use",
         [](FileSettings& f) {
             insertTracks(f);
             setSubtitleSize(f, 0, 40);
             f.setValue(f.item(key("Subtitle"), 0), key("x-note"), 5);
             f.setValue(f.type(key("Subtitle")), key("selected"), false);
         },
         [](FileSettings& f) {
             insertTracks(f);
             f.setValue(f.type(key("Subtitle")), key("selected"), false);
         },
         {key("Subtitle:0")},
         false,
         "Subtitle",
         {key("Subtitle:selected false"), key("Subtitle:1:sub_fontsize 20"), key("Subtitle:1:x-note ")}},
        {"the files of subtitles stay with their clip", insertTracks, nothing, {key("Subtitle")}, false, "", {}},
        {"unless they are added",
         insertTracks,
         nothing,
         {key("Subtitle")},
         true,
         "Subtitle",
         {key("count Subtitle 1"), key("Subtitle:0:file /own.srt"), key("Subtitle:0:sub_vposition 288")}},
        {"a sound file comes along",
         [](FileSettings& f) {
             f.insert(key("Audio"), {{key("audio_isfile"), true}, {key("file"), key("/tune.ogg")}});
             f.insert(key("Audio"), {{key("trackid"), 1}});
         },
         [](FileSettings& f) {
             f.insert(key("Audio"), {{key("trackid"), 4}});
         },
         {key("Audio")},
         false,
         "Audio",
         {key("count Audio 2"), key("Audio:0:trackid 4"), key("Audio:1:file /tune.ogg")}},
        {"a sound file that is there already comes once",
         [](FileSettings& f) {
             f.insert(key("Audio"), {{key("audio_isfile"), true}, {key("file"), key("/tune.ogg")}});
         },
         [](FileSettings& f) {
             f.insert(key("Audio"), {{key("audio_isfile"), true}, {key("file"), key("/other.ogg")}});
             f.insert(key("Audio"), {{key("audio_isfile"), true}, {key("file"), key("/tune.ogg")}});
         },
         {key("Audio")},
         false,
         "",
         {key("count Audio 2"), key("Audio:0:file /other.ogg"), key("Audio:1:file /tune.ogg")}},
        {"colours as they are",
         [](FileSettings& f) {
             f.setValues(f.type(key("Color")), {{key("bcs_contrast"), 25}, {key("bcs_brightness"), -7}});
         },
         nothing,
         {key("Color")},
         false,
         "Color",
         {key("Color:bcs_contrast 25"), key("Color:bcs_brightness -7"), key("Color:bcs_saturation 0")}},
        {"a single value alone",
         [](FileSettings& f) {
             f.setValues(f.type(key("Color")), {{key("bcs_contrast"), 25}, {key("bcs_brightness"), -7}});
         },
         nothing,
         {key("Color:bcs_contrast")},
         false,
         "Color",
         {key("Color:bcs_contrast 25"), key("Color:bcs_brightness 0")}},
        {"a single value of what is not in use",
         [](FileSettings& f) {
             f.setValue(f.type(key("Color")), key("bcs_contrast"), 25);
             f.setValue(f.type(key("Color")), key("selected"), false);
         },
         nothing,
         {key("Color:bcs_contrast")},
         false,
         "Color",
         {key("Color:bcs_contrast 25"), key("Color:selected true")}},
        {"a size of letters means nothing to an image",
         [](FileSettings& f) { f.setValue(insertText(f, "Hello"), key("wm_fontsize"), 40); },
         [](FileSettings& f) { insertLogo(f); },
         {key("Watermark:0:wm_fontsize")},
         false,
         "",
         {key("Watermark:0:wm_imagewidth 200")}},
        {"a place that comes takes a watermark from its anchor",
         [](FileSettings& f) {
             insertLogo(f, {{key("wm_hposition"), 300}, {key("wm_vposition"), 200}});
         },
         [](FileSettings& f) {
             insertLogo(f, {{key("anchor"), anchor("top-left", 8)}});
         },
         {key("Watermark:0:wm_hposition")},
         false,
         "Watermark",
         {key("Watermark:0:wm_hposition 150"), key("Watermark:0:wm_vposition 8"), key("Watermark:0:anchor ")}},
        {"an anchor that comes places the watermark",
         [](FileSettings& f) {
             insertLogo(f, {{key("anchor"), anchor("top-left", 20)}});
         },
         [](FileSettings& f) {
             insertLogo(f, {{key("wm_hposition"), 300}, {key("wm_vposition"), 200}});
         },
         {key("Watermark:0:anchor")},
         false,
         "Watermark",
         {key("Watermark:0:wm_hposition 10"), key("Watermark:0:wm_vposition 10"), key("Watermark:0:anchor top-left")}},
        {"frame effects in their order",
         [](FileSettings& f) {
             useFrameEffect(f, 0);
             f.move(f.item(key("Effect"), 0), 19);
             useFrameEffect(f, 4);
         },
         [](FileSettings& f) { useFrameEffect(f, 2); },
         {key("Effect")},
         false,
         "Effect",
         {key("count Effect 20"), key("Effect:19:name Blur"), key("Effect:19:selected true"),
          key("Effect:4:selected true"), key("Effect:2:selected false")}},
        {"added frame effects come last",
         [](FileSettings& f) { useFrameEffect(f, 0); },
         [](FileSettings& f) { useFrameEffect(f, 2); },
         {key("Effect")},
         true,
         "Effect",
         {key("count Effect 20"), key("Effect:19:name Blur"), key("Effect:19:selected true"),
          key("Effect:1:selected true")}},
        {"a sound effect as it is",
         [](FileSettings& f) {
             f.setValues(f.type(key("Audio_Echo")), {{key("audio_effect_flag"), true}, {key("audio_echo_delay"), 300}});
         },
         nothing,
         {key("Audio_Echo")},
         false,
         "Audio_Echo",
         {key("Audio_Echo:audio_effect_flag true"), key("Audio_Echo:audio_echo_delay 300")}},
        {"output options as a whole, but for the trim of the clip",
         [](FileSettings& f) {
             f.setValues(f.output(), {{key("quality"), 20}, {key("trim"), key("1,2")}});
         },
         [](FileSettings& f) {
             f.setValues(f.output(), {{key("container"), key("mkv")}, {key("trim"), key("3,4")}});
         },
         {key("Output")},
         false,
         "Output",
         {key("Output:quality 20"), key("Output:container "), key("Output:trim 3,4")}},
        {"added output options join those that are there",
         [](FileSettings& f) { f.setValue(f.output(), key("quality"), 20); },
         [](FileSettings& f) { f.setValue(f.output(), key("container"), key("mkv")); },
         {key("Output")},
         true,
         "Output",
         {key("Output:quality 20"), key("Output:container mkv")}},
        {"a trim where it is asked for by name",
         [](FileSettings& f) { f.setValue(f.output(), key("trim"), key("1,2")); },
         nothing,
         {key("Output:trim")},
         false,
         "Output",
         {key("Output:trim 1,2")}},
        {"one rule of tracks alone",
         [](FileSettings& f) {
             f.setValues(f.tracks(), {{key("audio-language"), key("fra")}, {key("sidecars"), true}});
         },
         nothing,
         {key("Tracks:sidecars")},
         false,
         "Tracks",
         {key("Tracks:sidecars true"), key("Tracks:audio-language ")}},
        {"everything, but for the rules of tracks and the trim",
         [](FileSettings& f) {
             insertText(f, "a");
             f.setValue(f.type(key("Color")), key("bcs_contrast"), 25);
             f.setValue(f.tracks(), key("sidecars"), true);
             f.setValue(f.output(), key("trim"), key("1,2"));
         },
         [](FileSettings& f) { f.setValue(f.output(), key("quality"), 30); },
         {},
         false,
         "Watermark Color",
         {key("count Watermark 1"), key("Color:bcs_contrast 25"), key("Output:quality 30")}},
        {"a value leaves an item alone that has come as a whole",
         [](FileSettings& f) {
             insertLogo(f, {{key("anchor"), anchor("top-left", 20)}});
         },
         nothing,
         {key("Watermark:0"), key("Watermark:0:wm_hposition")},
         true,
         "Watermark",
         {key("count Watermark 1"), key("Watermark:0:anchor top-left"), key("Watermark:0:wm_hposition 10")}},
        {"the type before its item, whatever is named first",
         [](FileSettings& f) {
             insertText(f, "a");
             insertText(f, "b");
         },
         [](FileSettings& f) { insertText(f, "old"); },
         {key("Watermark:1"), key("Watermark")},
         false,
         "Watermark",
         {key("count Watermark 2"), key("Watermark:0:wm_textcontent a"), key("Watermark:1:wm_textcontent b")}},
    };
}

QString textOf(const QVariant& value)
{
    if (value.userType() == QMetaType::QVariantMap)
        return value.toMap().value(key("corner")).toString();
    return value.userType() == QMetaType::QVariantList ? value.toStringList().join(QLatin1Char(',')) : value.toString();
}

/// What \a file says to the first word, or words, of \a line.
QString said(const FileSettings& file, const QString& line)
{
    const QString first = line.section(QLatin1Char(' '), 0, 0);
    if (first == QLatin1String("count")) {
        const QString type = line.section(QLatin1Char(' '), 1, 1);
        return QStringLiteral("count %1 %2").arg(type).arg(file.items(type).size());
    }
    const QString type = first.section(QLatin1Char(':'), 0, 0);
    const bool ofItem = first.count(QLatin1Char(':')) == 2;
    const QString name = first.section(QLatin1Char(':'), -1);
    const Identity thing = ofItem ? file.item(type, first.section(QLatin1Char(':'), 1, 1).toInt())
                                  : file.thing({type, zokit::Address::ofType, name});
    return first + QLatin1Char(' ')
           + textOf(file.value(thing, name == QLatin1String("name") ? QStringLiteral(":name") : name));
}

QString touchedTypes(const Settings& before, const Settings& after)
{
    QStringList types;
    for (const zokit::Difference& difference : zokit::differences(before, after)) {
        if (!types.contains(difference.address.type))
            types.append(difference.address.type);
    }
    return types.join(QLatin1Char(' '));
}

} // namespace

void TestKitCarryOver::rule_data()
{
    QTest::addColumn<int>("row");
    const QVector<Rule> all = rules();
    for (int row = 0; row < all.size(); ++row)
        QTest::newRow(all.at(row).name) << row;
}

void TestKitCarryOver::rule()
{
    QFETCH(int, row);
    const Rule rule = rules().at(row);
    Project project;
    FileSettings* from = project.add(clip());
    FileSettings* to = project.add(zokit::Media{key("/clips/half.mkv"), QSize(640, 360), 5.0});
    rule.source(*from);
    rule.target(*to);
    const Settings source = from->settings();
    const Settings before = to->settings();
    const CarryOver carry{rule.what, rule.add};
    const Settings dry = zokit::carriedOver(source, before, carry);
    QCOMPARE(touchedTypes(before, dry), QString::fromLatin1(rule.touched));
    QCOMPARE(project.apply(source, {to}, carry).text(), QString());
    for (const QString& line : rule.then)
        QCOMPARE(said(*to, line), line);
    QVERIFY(to->settings() == dry);
    QVERIFY(zokit::carriedOver(source, dry, carry) == dry);
    QVERIFY(from->settings() == source);
    QVERIFY(to->media() == before.media);
}

void TestKitCarryOver::refusedWithAReason_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("sentence");
    const QString noAddress = QStringLiteral("%1 is no address. Write TYPE:KEY or TYPE:POSITION:KEY, for example "
                                             "Color:bcs_contrast or Watermark:0:wm_fontsize.");
    for (const char* what :
         {"", "Watermark:-1", "Watermark:", "Watermark:0:", ":0", "Color:bcs_contrast:1", "Watermark:0:wm_fontsize:1"})
        QTest::newRow(what) << what << noAddress.arg(QString::fromLatin1(what));
    QTest::newRow("a misspelt type") << "Colour"
                                     << "There is no effect type Colour. Did you mean Color?";
    QTest::newRow("a type that is not there")
        << "Subtitle"
        << "There is no Subtitle to be carried over. There is Watermark, Color, Output, Tracks.";
    QTest::newRow("an item that is not there") << "Watermark:5"
                                               << "Watermark has no item 5; it has 1, counted from 0.";
    QTest::newRow("an item of what has none") << "Color:0"
                                              << "Color has no items. Leave the position out.";
    QTest::newRow("a misspelt key") << "Color:bcs_contrst"
                                    << "Color has no property bcs_contrst. Did you mean bcs_contrast?";
    QTest::newRow("a key of items")
        << "Watermark:wm_fontsize"
        << "wm_fontsize belongs to an item of Watermark. Write Watermark:0:wm_fontsize for the first one.";
    QTest::newRow("a key of other items") << "Watermark:0:wm_imageurl"
                                          << "Watermark:0:wm_imageurl cannot be set here: it is for image watermarks.";
    QTest::newRow("a misspelt option") << "Output:qualty"
                                       << "There is no output option qualty. Did you mean quality?";
}

void TestKitCarryOver::refusedWithAReason()
{
    QFETCH(QString, what);
    QFETCH(QString, sentence);
    FileSettings file(clip());
    insertText(file, "Hello");
    const Settings preset = zokit::presetFrom(file.settings(), {key("Watermark"), key("Color")});
    const CarryOver carry{{key("Color"), what}, false};
    QCOMPARE(zokit::checkCarryOver(preset, carry).text(), sentence);
    Project project;
    FileSettings* target = project.add(clip());
    target->setValue(target->type(key("Color")), key("bcs_contrast"), 5);
    const Settings before = target->settings();
    QCOMPARE(project.apply(preset, {target}, carry).text(), sentence);
    QVERIFY(target->settings() == before);
    QVERIFY(zokit::carriedOver(preset, before, carry) == before);
}

void TestKitCarryOver::missingImageIsNamedAtItsItem()
{
    const QString path = QDir::tempPath() + QStringLiteral("/gone.png");
    QVERIFY(QFile::copy(logoPath(20, 10), path));
    Project project;
    FileSettings* file = project.add(clip());
    insertText(*file, "Hello");
    file->insert(key("Watermark"), {{key("wm_imageurl"), path}});
    FileSettings* target = project.add(clip());
    const Settings before = target->settings();
    const Settings source = file->settings();
    QCOMPARE(zokit::checkCarryOver(source, {}).text(), QString());
    QVERIFY(QFile::remove(path));
    const QString sentence =
        QStringLiteral("Watermark:1:wm_imageurl: %1: no such file. Bring it back, or choose another.").arg(path);
    for (const QStringList& what : {QStringList(), QStringList{key("Watermark")}, QStringList{key("Watermark:1")},
                                    QStringList{key("Watermark:1:wm_imageurl")}}) {
        QCOMPARE(zokit::checkCarryOver(source, {what, false}).text(), sentence);
        QCOMPARE(project.changesOf(source, {target}, {what, false}), QStringList());
        QCOMPARE(project.apply(source, {target}, {what, false}).text(), sentence);
        QVERIFY(target->settings() == before);
    }
    for (const QStringList& what : {QStringList{key("Watermark:0")}, QStringList{key("Color")}})
        QCOMPARE(zokit::checkCarryOver(source, {what, false}).text(), QString());

    // The settings can be opened and edited: whoever reads them is told.
    const QString saved = QDir::tempPath() + QStringLiteral("/gone.zoeffect.json");
    QVERIFY(zokit::saveSettings(source, saved).isEmpty());
    const zokit::ReadSettings read = zokit::loadSettings(saved);
    QVERIFY(read.settings && *read.settings == source);
    QStringList warnings;
    for (const zokit::Message& warning : read.warnings)
        warnings.append(warning.text());
    QCOMPARE(warnings,
             QStringList({QStringLiteral("media: /clips/clip.mkv: no such file. Bring it back, or choose another."),
                          sentence}));
    const zokit::Presets presets(QDir::tempPath() + QStringLiteral("/presets"));
    QVERIFY(presets.save(key("logo"), zokit::presetFrom(source, {key("Watermark")})).isEmpty());
    const zokit::Presets::Loaded loaded = presets.load(key("logo"));
    QVERIFY(loaded.error.isEmpty());
    QCOMPARE(loaded.warnings.size(), 1);
    QCOMPARE(loaded.warnings.first().text(), sentence);
}

void TestKitCarryOver::roundingIsToldBefore()
{
    Project project;
    FileSettings* file = project.add(clip());
    insertLogo(*file, {{key("wm_hposition"), 301}, {key("wm_vposition"), 100}});
    file->setValue(file->type(key("Color")), key("bcs_contrast"), 5);
    const Settings source = file->settings();
    FileSettings* half = project.add(zokit::Media{key("/films/half.mkv"), QSize(640, 360), 1.0});
    FileSettings* same = project.add(zokit::Media{key("/films/same.mkv"), QSize(1280, 720), 1.0});
    const QString sentence =
        key("half.mkv: Watermark:0:wm_hposition: rounding to whole pixels makes 302 of 301 there and back.");
    for (const QStringList& what : {QStringList(), QStringList{key("Watermark:0")}}) {
        const QStringList lines = project.changesOf(source, {same, half}, {what, false});
        QCOMPARE(lines.filter(key("rounding")), QStringList{sentence});
        QCOMPARE(lines.last(), sentence);
    }
    QCOMPARE(project.changesOf(source, {half}, {{key("Color")}, false}),
             QStringList{key("half.mkv: Colour: Contrast: 0 -> 5")});
    QVERIFY(project.apply(source, {half}, {}).isEmpty());
    QCOMPARE(project.changesOf(source, {half}, {}), QStringList());
}

void TestKitCarryOver::presetOfNoFrameTakesThePlacesOfTheTarget()
{
    const zokit::ReadSettings read = zokit::readPreset(
        R"({"zoeffect": 1, "effects": [{"type": "Watermark", "items": [
            {"values": {"wm_istextwatermark": true, "wm_textcontent": "Hello", "wm_fontsize": 30}}]}]})",
        QString());
    QVERIFY2(read.settings, qPrintable(read.error.text()));
    FileSettings file(clip());
    file.setSettings(zokit::carriedOver(*read.settings, file.settings(), {}));
    QCOMPARE(placeOf(file, file.item(key("Watermark"), 0)), QPoint(128, 72)); // A tenth of each side.
    QCOMPARE(file.value(file.item(key("Watermark"), 0), key("wm_fontsize")), QVariant(30));
}

/// An item that is there already, and that its anchor has still to place in both, as a file written by hand may say.
void TestKitCarryOver::measureOfATextIsNoSetting()
{
    // An image that was made into a text still has its height.
    FileSettings from(clip());
    from.setValue(from.type(key("Color")), key("bcs_contrast"), 5);
    Project project;
    FileSettings* target = project.add(clip());
    target->insert(key("Watermark"), {{key("wm_istextwatermark"), false}, {key("wm_imageheight"), 40}});
    target->setValue(target->item(key("Watermark"), 0), key("wm_istextwatermark"), true);
    const CarryOver carry{{key("Color")}, false};
    const Settings dry = zokit::carriedOver(from.settings(), target->settings(), carry);
    QVERIFY(!dry.find(key("Watermark"))->items.first().values.contains(key("wm_imageheight")));
    QVERIFY(project.apply(from.settings(), {target}, carry).isEmpty());
    QVERIFY(target->settings() == dry);
}

void TestKitCarryOver::unplacedItemComesOnce()
{
    FileSettings file(clip());
    insertText(file, "first");
    insertLogo(file, {{key("anchor"), anchor("top-left", 20)}});
    Settings target = file.settings();
    target.find(key("Watermark"))->items[1].values.insert(key("wm_hposition"), 333);
    Settings source = target;
    source.find(key("Watermark"))->items.move(1, 0);
    const CarryOver carry{{key("Watermark:0")}, false};
    const Settings once = zokit::carriedOver(source, target, carry);
    QCOMPARE(once.find(key("Watermark"))->items.size(), 2);
    QVERIFY(once.find(key("Watermark"))->items == file.settings().find(key("Watermark"))->items);
    QVERIFY(zokit::carriedOver(source, once, carry) == once);
}

void TestKitCarryOver::typeThatTheTargetLacksComes()
{
    Settings bare;
    bare.media = clip();
    Settings source = zokit::completed(bare);
    source.find(key("Color"))->values.insert(key("bcs_contrast"), 25);
    const Settings result = zokit::carriedOver(source, bare, {{key("Color")}, false});
    QCOMPARE(result.effects.size(), 1);
    QCOMPARE(result.find(key("Color"))->values.value(key("bcs_contrast")), QVariant(25));
    QCOMPARE(result.find(key("Color"))->values.value(key("bcs_brightness")), QVariant(0));
    for (const auto& [before, after] : {std::pair(bare, result), std::pair(result, bare)}) {
        QStringList told;
        for (const zokit::Difference& difference : zokit::differences(before, after))
            told.append(difference.address.toString());
        QCOMPARE(told, QStringList({key("Color:bcs_brightness"), key("Color:bcs_contrast"), key("Color:bcs_saturation"),
                                    key("Color:selected")}));
    }
}

void TestKitCarryOver::busyTargetLeavesAllAsTheyWere()
{
    Project project;
    FileSettings* first = project.add(clip());
    FileSettings* second = project.add(clip());
    Settings source = first->settings();
    source.find(key("Color"))->values.insert(key("bcs_contrast"), 25);
    zokit::Message answer;
    const auto apply = [&] { answer = project.apply(source, {first, second}, {{key("Color")}, false}); };
    connect(second, &FileSettings::aboutToChange, this, apply);
    second->setValue(second->type(key("Color")), key("bcs_brightness"), 5);
    QCOMPARE(answer.code(), zokit::Message::Code::Busy);
    QCOMPARE(first->value(first->type(key("Color")), key("bcs_contrast")), QVariant(0));
    QCOMPARE(second->value(second->type(key("Color")), key("bcs_brightness")), QVariant(5));
}

ZOEFFECT_TEST_MAIN(TestKitCarryOver)
#include "tst_kit_carryover.moc"
