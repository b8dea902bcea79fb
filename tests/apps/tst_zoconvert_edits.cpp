// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What the edits of a command line do to settings, in their order.

#include <QtTest>

#include <zokit/differences.h>
#include <zokit/settingsfile.h>

#include "edits.h"
#include "input.h"
#include "kitsupport.h"
#include "run.h"
#include "testapplication.h"

namespace {

/// "--crop 1,2,3,4 --sidecars" as edits; a value holds no blank.
QVector<zoconvert::Edit> editsOf(const QString& line)
{
    QVector<zoconvert::Edit> edits;
    for (const QString& word : line.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (word.startsWith(QLatin1String("--")))
            edits.append({word.mid(2), QString()});
        else
            edits.last().value = word;
    }
    return edits;
}

/// The values that differ from plain settings of 1280x720; of items of their own only those that are named here.
QStringList changesOf(const zokit::FileSettings& file)
{
    zokit::Settings plain;
    plain.media = file.media();
    QStringList lines;
    for (const zokit::Difference& change : zokit::differences(zokit::completed(plain), file.settings())) {
        static const QStringList shown{
            QStringLiteral("anchor"),      QStringLiteral("wm_textcontent"), QStringLiteral("wm_imageurl"),
            QStringLiteral("wm_fontsize"), QStringLiteral("selected"),       QStringLiteral("sub_fromfile"),
            QStringLiteral("file"),        QStringLiteral("audio_isfile"),   QStringLiteral("wm_imagewidth")};
        const bool isOfNewItem = change.address.pos >= 0 && change.address.type != QLatin1String("Effect");
        if (!isOfNewItem || shown.contains(change.address.key))
            lines.append(zoconvert::changeText(change));
    }
    return lines;
}

zokit::Settings plainSettings()
{
    zokit::Settings plain;
    plain.media = kitsupport::clip();
    return zokit::completed(plain);
}

} // namespace

class TestZoconvertEdits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void editsDoWhatTheySay_data();
    void editsDoWhatTheySay();
    void wrongEditsAreRefused_data();
    void wrongEditsAreRefused();
    void cropsAreMeasuredInTheFrameThatIsThere_data();
    void cropsAreMeasuredInTheFrameThatIsThere();
    void settingsOfAnotherFrameAreRescaled();
    void filesAreNamedByTheirWholePath();
    void tickedTracksStay_data();
    void tickedTracksStay();
};

void TestZoconvertEdits::editsDoWhatTheySay_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("changes");
    const auto row = [](const char* name, const char* line, const QStringList& changes) {
        QTest::newRow(name) << QString::fromUtf8(line) << changes;
    };
    row("nothing", "", {});
    row("a value", "--set Color:bcs_contrast=20", {"Color:bcs_contrast: 0 -> 20"});
    row("the later one counts", "--set Color:bcs_contrast=20 --set Color:bcs_contrast=5",
        {"Color:bcs_contrast: 0 -> 5"});
    row("an equals sign in the value", "--text Hi --set Watermark:0:wm_textcontent=a=b",
        {"Watermark:0:selected: (none) -> true", "Watermark:0:wm_fontsize: (none) -> 22",
         "Watermark:0:wm_textcontent: (none) -> a=b"});
    row("an output option", "--set Output:quality=22", {"Output:quality: (none) -> 22"});
    row("a frame effect becomes selected", "--set Effect:0:selected=true", {"Effect:0:selected: false -> true"});
    row("what is set is selected, unless the line says otherwise",
        "--set Color:selected=false --set Color:bcs_contrast=20",
        {"Color:bcs_contrast: 0 -> 20", "Color:selected: true -> false"});
    row("also when it says so later", "--set Color:bcs_contrast=20 --set Color:selected=false",
        {"Color:bcs_contrast: 0 -> 20", "Color:selected: true -> false"});
    row("a crop and a place, too, select unless the line says otherwise",
        "--set Crop:selected=false --crop 96,0,1000,720 --text A --set Watermark:0:selected=false --place top:0",
        {"Crop:crop_height: source_val -> 720", "Crop:crop_left: 0 -> 96", "Crop:crop_width: source_val -> 1000",
         "Crop:selected: true -> false", "Watermark:0:anchor: (none) -> {\"corner\":\"top\",\"margin\":0}",
         "Watermark:0:selected: (none) -> false", "Watermark:0:wm_fontsize: (none) -> 22",
         "Watermark:0:wm_textcontent: (none) -> A"});
    row("an item that is added, too", "--set Watermark:selected=false --text A",
        {"Watermark:selected: true -> false", "Watermark:0:selected: (none) -> true",
         "Watermark:0:wm_fontsize: (none) -> 22", "Watermark:0:wm_textcontent: (none) -> A"});
    row("crop in pixels", "--crop 96,0,1000,700",
        {"Crop:crop_height: source_val -> 700", "Crop:crop_left: 0 -> 96", "Crop:crop_width: source_val -> 1000"});
    row("crop in percent", "--crop 10%,5%,80%,90%",
        {"Crop:crop_height: source_val -> 648", "Crop:crop_left: 0 -> 128", "Crop:crop_top: 0 -> 36",
         "Crop:crop_width: source_val -> 1024"});
    row("the watermark named last is placed", "--text A --text B --place top-left:10",
        {"Watermark:0:selected: (none) -> true", "Watermark:0:wm_fontsize: (none) -> 22",
         "Watermark:0:wm_textcontent: (none) -> A",
         "Watermark:1:anchor: (none) -> {\"corner\":\"top-left\",\"margin\":10}",
         "Watermark:1:selected: (none) -> true", "Watermark:1:wm_fontsize: (none) -> 22",
         "Watermark:1:wm_textcontent: (none) -> B"});
    row("a place as a value", "--text A --set Watermark:0:anchor=top-left",
        {"Watermark:0:anchor: (none) -> {\"corner\":\"top-left\",\"margin\":\"2%\"}",
         "Watermark:0:selected: (none) -> true", "Watermark:0:wm_fontsize: (none) -> 22",
         "Watermark:0:wm_textcontent: (none) -> A"});
    row("another one by its position", "--text A --text B --place 0:centre",
        {"Watermark:0:anchor: (none) -> {\"corner\":\"centre\",\"margin\":\"2%\"}",
         "Watermark:0:selected: (none) -> true", "Watermark:0:wm_fontsize: (none) -> 22",
         "Watermark:0:wm_textcontent: (none) -> A", "Watermark:1:selected: (none) -> true",
         "Watermark:1:wm_fontsize: (none) -> 22", "Watermark:1:wm_textcontent: (none) -> B"});
    row("rules for tracks", "--audio-language fra,eng --subtitle-track none --forced-subtitles --sidecars",
        {"Tracks:audio-language: (none) -> fra,eng", "Tracks:forced-subtitles: (none) -> true",
         "Tracks:sidecars: (none) -> true", "Tracks:subtitle-track: (none) -> none"});
    row("tracks by number", "--audio-tracks 1,2", {"Tracks:audio-tracks: (none) -> 1,2"});
    row("reset of a type", "--set Color:bcs_contrast=20 --crop 0,0,100,100 --reset Crop",
        {"Color:bcs_contrast: 0 -> 20"});
    row("reset of a value", "--set Color:bcs_contrast=20 --set Color:bcs_brightness=5 --reset Color:bcs_contrast",
        {"Color:bcs_brightness: 0 -> 5"});
    row("reset of all", "--text Hi --set Output:quality=3 --reset all", {});
    row("order counts", "--reset all --set Color:bcs_contrast=20", {"Color:bcs_contrast: 0 -> 20"});
}

void TestZoconvertEdits::editsDoWhatTheySay()
{
    QFETCH(QString, line);
    zokit::FileSettings file(plainSettings());
    QCOMPARE(zoconvert::applyEdits(editsOf(line), file), QString());
    QTEST(changesOf(file), "changes");
}

void TestZoconvertEdits::wrongEditsAreRefused_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char* line, const char* sentence) {
        QTest::newRow(line) << QString::fromUtf8(line) << QString::fromUtf8(sentence);
    };
    row("--crop 0,0,1281,720", "--crop: 0,0,1281,720 leaves the frame of 1280x720.");
    row("--crop 60%,0,50%,100%", "--crop: 60%,0,50%,100% leaves the frame of 1280x720.");
    row("--crop -1,0,100,100", "--crop: -1,0,100,100 leaves the frame of 1280x720.");
    row("--crop 0,0,10,100", "--crop: 0,0,10,100 is smaller than 24x24.");
    row("--crop 1,2,3", "--crop: 1,2,3 is not X,Y,W,H in pixels or percent, for example 10%,0,80%,100%.");
    row("--crop 0,0,nan,100", "--crop: 0,0,nan,100 is not X,Y,W,H in pixels or percent, for example 10%,0,80%,100%.");
    row("--crop 0,0,1e99,9", "--crop: 0,0,1e99,9 is not X,Y,W,H in pixels or percent, for example 10%,0,80%,100%.");
    row("--crop 0.5,0,100,100",
        "--crop: 0.5,0,100,100 is not X,Y,W,H in pixels or percent, for example 10%,0,80%,100%.");
    row("--set bcs_contrast", "--set: bcs_contrast is not ADDRESS=VALUE, for example Color:bcs_contrast=20.");
    row("--set bcs_contrast=3", "bcs_contrast is no address. Write TYPE:KEY or TYPE:POSITION:KEY, for example "
                                "Color:bcs_contrast or Watermark:0:wm_fontsize.");
    row("--set Output:dry-run=true", "dry-run is not kept with the settings. Give it with each run.");
    row("--place top", "--place top: there is no watermark to place. Name one before, with --text or --image.");
    row("--text A --place 1:top", "Watermark has no item 1; it has 1, counted from 0.");
    row("--text A --place topp",
        "topp is none of top-left, top, top-right, left, centre, right, bottom-left, bottom, bottom-right. Did you "
        "mean top?");
    row("--text A --place top:2%:3", "--place: top:2%:3 is not [POS:]CORNER[:MARGIN], for example bottom-right:2%.");
    row("--text A --place top:x", "x is no margin. Write pixels (10) or percent (2%).");
    row("--audio-tracks x", "Tracks:audio-tracks: x is no value for this rule.");
    row("--reset Colour", "There is no effect type Colour. Did you mean Color?");
    row("--preset nope", "There is no preset nope.");
    row("--settings nope", "./nope: no such file.");
}

void TestZoconvertEdits::wrongEditsAreRefused()
{
    QFETCH(QString, line);
    zokit::FileSettings file(plainSettings());
    QTEST(zoconvert::applyEdits(editsOf(line), file), "sentence");
}

void TestZoconvertEdits::cropsAreMeasuredInTheFrameThatIsThere_data()
{
    QTest::addColumn<QSize>("frame");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QRect>("crop");
    const QString turned = QStringLiteral("--set Crop:player_map_flag=true --set Effect:crop_rotation_angle=90 ");
    QTest::newRow("all but a quarter of an uneven width")
        << QSize(1366, 768) << QStringLiteral("--crop 25%,0,75%,100%") << QRect(342, 0, 1024, 768);
    QTest::newRow("the quarter before it")
        << QSize(1366, 768) << QStringLiteral("--crop 0,0,25%,100%") << QRect(0, 0, 342, 768);
    QTest::newRow("a quarter from percent and pixels")
        << QSize(1366, 768) << QStringLiteral("--crop 75%,8,25%,700") << QRect(1025, 8, 341, 700);
    QTest::newRow("turned") << QSize(1280, 720) << turned + QStringLiteral("--crop 0,50%,100%,50%")
                            << QRect(0, 640, 720, 640);
}

void TestZoconvertEdits::cropsAreMeasuredInTheFrameThatIsThere()
{
    QFETCH(QSize, frame);
    QFETCH(QString, line);
    zokit::Settings plain;
    plain.media.frame = frame;
    zokit::FileSettings file(plain);
    QCOMPARE(zoconvert::applyEdits(editsOf(line), file), QString());
    const auto side = [&](const char* key) {
        return file.value(file.type(QStringLiteral("Crop")), QLatin1String(key)).toInt();
    };
    QTEST(QRect(side("crop_left"), side("crop_top"), side("crop_width"), side("crop_height")), "crop");
}

void TestZoconvertEdits::settingsOfAnotherFrameAreRescaled()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("half.json"));
    zokit::Settings half;
    half.media.frame = QSize(640, 360);
    zokit::FileSettings source(half);
    QCOMPARE(zoconvert::applyEdits(editsOf(QStringLiteral("--crop 64,36,320,180")), source), QString());
    QVERIFY(zokit::saveSettings(source.settings(), path).isEmpty());

    zokit::FileSettings file(plainSettings());
    QStringList warnings;
    QCOMPARE(zoconvert::applyEdits({{QStringLiteral("settings"), path}}, file, &warnings), QString());
    QCOMPARE(warnings, QStringList{"The settings are for 640x360, the clip has 1280x720: what is measured in the "
                                   "frame was rescaled."});
    QCOMPARE(file.media().file, QStringLiteral("/clips/clip.mkv"));
    QCOMPARE(changesOf(file), (QStringList{"Crop:crop_height: source_val -> 360", "Crop:crop_left: 0 -> 128",
                                           "Crop:crop_top: 0 -> 72", "Crop:crop_width: source_val -> 640"}));
}

void TestZoconvertEdits::filesAreNamedByTheirWholePath()
{
    const QString logo = kitsupport::logoPath(40, 30);
    const QDir before = QDir::current();
    QVERIFY(QDir::setCurrent(QFileInfo(logo).absolutePath()));
    zokit::FileSettings file(plainSettings());
    const QString error = zoconvert::applyEdits({{QStringLiteral("image"), QFileInfo(logo).fileName()},
                                                 {QStringLiteral("subtitle"), QFileInfo(logo).fileName()}},
                                                file);
    QVERIFY(QDir::setCurrent(before.absolutePath()));
    QCOMPARE(error, QString());
    QCOMPARE(changesOf(file),
             (QStringList{"Watermark:0:selected: (none) -> true", "Watermark:0:wm_fontsize: (none) -> 22",
                          "Watermark:0:wm_imageurl: (none) -> " + logo, "Watermark:0:wm_imagewidth: (none) -> 40",
                          "Subtitle:0:file: (none) -> " + logo, "Subtitle:0:selected: (none) -> true",
                          "Subtitle:0:sub_fromfile: (none) -> true"}));
}

void TestZoconvertEdits::tickedTracksStay_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("next");
    QTest::addColumn<QString>("selected");
    const auto row = [](const char* line, const char* next, const char* selected) {
        QTest::newRow(line) << QString::fromUtf8(line) << QString::fromUtf8(next) << QString::fromUtf8(selected);
    };
    row("--set Audio:1:selected=true --subtitle-language eng", "", "Audio:1 Subtitle:0");
    row("--subtitle-language eng --set Audio:1:selected=true", "", "Audio:1 Subtitle:0");
    row("--subtitle-language eng", "--set Audio:1:selected=true --subtitle-track none", "Audio:1");
    row("--audio-language fra", "--reset Tracks:audio-language", "");
}

void TestZoconvertEdits::tickedTracksStay()
{
    QFETCH(QString, line);
    QFETCH(QString, next);
    zokit::MediaInfo media;
    const auto add = [&media](zokit::TrackKind kind, const char* language) {
        zokit::MediaStream stream;
        stream.track.index = static_cast<int>(media.streams.size());
        stream.track.kind = kind;
        stream.track.language = QString::fromLatin1(language);
        media.streams.append(stream);
    };
    add(zokit::TrackKind::Audio, "eng");
    add(zokit::TrackKind::Audio, "fra");
    add(zokit::TrackKind::Subtitle, "eng");
    zoconvert::Input input = zoconvert::inputOf(QStringLiteral("clip.mkv"), media);
    for (const QString& edits : {line, next}) {
        zoconvert::Invocation invocation;
        invocation.edits = editsOf(edits);
        zoconvert::edit(input, invocation);
        QCOMPARE(input.error, QString());
    }
    QStringList selected;
    for (const char* type : {"Audio", "Subtitle"}) {
        const QVector<zokit::Item> items = input.settings->settings().find(QLatin1String(type))->items;
        for (int pos = 0; pos < items.size(); ++pos) {
            if (items.at(pos).selected)
                selected.append(QStringLiteral("%1:%2").arg(QLatin1String(type)).arg(pos));
        }
    }
    QTEST(selected.join(QLatin1Char(' ')), "selected");
}

ZOEFFECT_TEST_MAIN(TestZoconvertEdits)
#include "tst_zoconvert_edits.moc"
