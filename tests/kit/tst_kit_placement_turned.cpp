// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Geometry of a picture that is turned is measured in the frame as it stands then.

#include <QImage>
#include <QtTest>

#include <zoeffectmodel.h>

#include <zokit/carryover.h>
#include <zokit/filesettings.h>
#include <zokit/graph.h>
#include <zokit/placement.h>
#include <zokit/presets.h>
#include <zokit/project.h>

#include "kitsupport.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::FileSettings;
using zokit::Identity;
using zokit::Settings;
using zokit::Values;

class TestKitPlacementTurned : public QObject {
    Q_OBJECT

private slots:
    void init() { clearSavedDefaults(); }

    void anchorHoldsInTheTurnedFrame_data();
    void anchorHoldsInTheTurnedFrame();
    void geometryFollowsTheSidesOfTheTurnedFrame_data();
    void geometryFollowsTheSidesOfTheTurnedFrame();
    void newWatermarkFindsPlaceInTheTurnedFrame();
    void wholeTurnedFrameIsNoCrop();
    void boundsAreThoseOfTheTurnedFrame();
    void pictureOfWatermarksIsTurned();
    void carriedOverFromTheTurnedFrame_data();
    void carriedOverFromTheTurnedFrame();
    void savedDefaultIsAPartOfTheTurnedFrame();
};

namespace {

void turn(FileSettings& file, int angle)
{
    file.setValue(file.type(key("Crop")), key("player_map_flag"), true);
    file.setValue(file.type(key("Effect")), key("crop_rotation_angle"), angle);
}

Identity insertLogo(FileSettings& file, const QString& margin = QStringLiteral("10"), const QString& size = QString())
{
    QVariantMap anchor{{key("corner"), key("bottom-right")}, {key("margin"), margin}};
    if (!size.isEmpty())
        anchor.insert(key("size"), size);
    return file.insert(key("Watermark"), {{key("wm_imageurl"), logoPath(200, 100)}, {key("anchor"), anchor}}).item;
}

/// What is done with a clip of 1280x720, and where its logo of 200x100 stands then, anchored at the bottom right.
struct Row {
    const char* name = nullptr;
    void (*carryOut)(FileSettings& file) = nullptr;
    QRect logo;
};

const Row anchored[] = {
    {"not turned", [](FileSettings& file) { insertLogo(file); }, {1070, 610, 200, 100}},
    {"anchored in the turned frame",
     [](FileSettings& file) {
         turn(file, 90);
         insertLogo(file);
     },
     {510, 1170, 200, 100}},
    {"turned once it is anchored",
     [](FileSettings& file) {
         insertLogo(file);
         turn(file, 270);
     },
     {510, 1170, 200, 100}},
    {"turned back",
     [](FileSettings& file) {
         turn(file, 90);
         insertLogo(file);
         turn(file, 0);
     },
     {1070, 610, 200, 100}},
    {"upside down",
     [](FileSettings& file) {
         insertLogo(file);
         turn(file, 180);
     },
     {1070, 610, 200, 100}},
    {"the switch is off",
     [](FileSettings& file) {
         turn(file, 90);
         insertLogo(file);
         file.setValue(file.type(key("Crop")), key("player_map_flag"), false);
     },
     {1070, 610, 200, 100}},
    {"the crop is not selected",
     [](FileSettings& file) {
         turn(file, 90);
         insertLogo(file);
         file.setValue(file.type(key("Crop")), key("selected"), false);
     },
     {1070, 610, 200, 100}},
    {"a margin in percent",
     [](FileSettings& file) {
         turn(file, 90);
         insertLogo(file, QStringLiteral("2%"));
     },
     {506, 1154, 200, 100}},
    {"half as wide as the turned frame",
     [](FileSettings& file) {
         insertLogo(file, QStringLiteral("10"), QStringLiteral("50%"));
         turn(file, 90);
     },
     {350, 1090, 360, 180}},
    {"a smaller frame",
     [](FileSettings& file) {
         turn(file, 90);
         insertLogo(file);
         file.setMedia({QString(), QSize(640, 360), 1.0});
     },
     {255, 585, 100, 50}},
    {"settings taken over",
     [](FileSettings& file) {
         FileSettings other(clip());
         turn(other, 90);
         insertLogo(other);
         file.setSettings(other.settings());
     },
     {510, 1170, 200, 100}},
    {"turned on the model itself",
     [](FileSettings& file) {
         turn(file, 90);
         file.setValue(file.type(key("Crop")), key("player_map_flag"), false);
         insertLogo(file);
         file.pictureModel()->setData(key("player_map_flag"), true, key("Crop"), -1);
     },
     {510, 1170, 200, 100}},
    {"everything reset",
     [](FileSettings& file) {
         turn(file, 90);
         file.resetAll();
         insertLogo(file);
     },
     {1070, 610, 200, 100}},
};

QRect rectOf(const FileSettings& file, Identity watermark)
{
    return {placeOf(file, watermark), sizeOf(file, watermark)};
}

} // namespace

void TestKitPlacementTurned::anchorHoldsInTheTurnedFrame_data()
{
    QTest::addColumn<int>("row");
    int row = 0;
    for (const Row& one : anchored)
        QTest::newRow(one.name) << row++;
}

void TestKitPlacementTurned::anchorHoldsInTheTurnedFrame()
{
    QFETCH(int, row);
    FileSettings file(clip());
    anchored[row].carryOut(file);
    const Identity logo = file.item(key("Watermark"), 0);
    QCOMPARE(rectOf(file, logo), anchored[row].logo);
    // The model below, which draws, has it there as well.
    QCOMPARE(file.pictureModel()->data(key("wm_hposition"), key("Watermark"), 0), QVariant(anchored[row].logo.x()));
    QCOMPARE(file.pictureModel()->data(key("wm_vposition"), key("Watermark"), 0), QVariant(anchored[row].logo.y()));
    // And it is there when the settings are read again.
    const FileSettings again(file.settings());
    QCOMPARE(rectOf(again, again.item(key("Watermark"), 0)), anchored[row].logo);
}

void TestKitPlacementTurned::geometryFollowsTheSidesOfTheTurnedFrame_data()
{
    QTest::addColumn<int>("angle");
    QTest::addColumn<QSize>("frame");
    QTest::addColumn<QRect>("logo");
    QTest::addColumn<QRect>("crop");
    // Of a clip of 1280x720, with a logo at 300,400 of 200x100 and a crop at 100,200 of 400x300.
    QTest::newRow("upright, twice as high")
        << 0 << QSize(1280, 1440) << QRect(300, 800, 200, 100) << QRect(100, 400, 400, 600);
    QTest::newRow("turned, twice as wide")
        << 90 << QSize(1280, 1440) << QRect(600, 400, 400, 200) << QRect(200, 200, 800, 300);
    QTest::newRow("turned, half as high")
        << 270 << QSize(640, 720) << QRect(300, 200, 200, 100) << QRect(100, 100, 400, 150);
    QTest::newRow("upside down, twice as high")
        << 180 << QSize(1280, 1440) << QRect(300, 800, 200, 100) << QRect(100, 400, 400, 600);
}

void TestKitPlacementTurned::geometryFollowsTheSidesOfTheTurnedFrame()
{
    QFETCH(int, angle);
    QFETCH(QSize, frame);
    QFETCH(QRect, logo);
    QFETCH(QRect, crop);
    FileSettings file(clip());
    turn(file, angle);
    const Identity item =
        file.insert(key("Watermark"),
                    {{key("wm_imageurl"), logoPath(200, 100)}, {key("wm_hposition"), 300}, {key("wm_vposition"), 400}})
            .item;
    const Identity kept = file.type(key("Crop"));
    file.setValues(
        kept, {{key("crop_left"), 100}, {key("crop_top"), 200}, {key("crop_width"), 400}, {key("crop_height"), 300}});
    QVERIFY(file.setMedia({QString(), frame, 1.0}).isEmpty());
    QCOMPARE(rectOf(file, item), logo);
    const auto number = [&](const char* name) { return file.value(kept, key(name)).toInt(); };
    QCOMPARE(QRect(number("crop_left"), number("crop_top"), number("crop_width"), number("crop_height")), crop);
    QCOMPARE(file.media().frame, frame);
}

void TestKitPlacementTurned::newWatermarkFindsPlaceInTheTurnedFrame()
{
    FileSettings file(clip());
    turn(file, 90);
    // A tenth of 720 and of 1280; not wider than half of 720.
    const Identity first = file.insert(key("Watermark"), {{key("wm_imageurl"), logoPath(1000, 100)}}).item;
    QCOMPARE(rectOf(file, first), QRect(72, 128, 360, 36));
    // All but the lower right is taken: what is free of 1280x720 lies elsewhere.
    file.setValues(first, {{key("wm_hposition"), 0},
                           {key("wm_vposition"), 0},
                           {key("wm_imagewidth"), 720},
                           {key("wm_imageheight"), 1000}});
    const Identity second = file.insert(key("Watermark"), {{key("wm_imageurl"), logoPath(200, 100)}}).item;
    QCOMPARE(rectOf(file, second), QRect(72, 1000, 200, 100));
}

void TestKitPlacementTurned::wholeTurnedFrameIsNoCrop()
{
    FileSettings file(clip());
    turn(file, 90);
    const Identity crop = file.type(key("Crop"));
    file.setValues(crop,
                   {{key("crop_left"), 0}, {key("crop_top"), 0}, {key("crop_width"), 720}, {key("crop_height"), 1280}});
    QCOMPARE(file.state(crop, key("crop_width")), zokit::State::Default);
    QVERIFY(file.setMedia({QString(), QSize(640, 360), 1.0}).isEmpty());
    QCOMPARE(file.value(crop, key("crop_width")), QVariant(key("source_val")));
}

void TestKitPlacementTurned::boundsAreThoseOfTheTurnedFrame()
{
    FileSettings file(clip());
    const Identity crop = file.type(key("Crop"));
    QVERIFY(!file.check(crop, key("crop_height"), 1280).isEmpty());
    turn(file, 90);
    QVERIFY(file.check(crop, key("crop_height"), 1280).isEmpty());
    QCOMPARE(file.check(crop, key("crop_width"), 721).text(),
             QStringLiteral("Crop:crop_width: 721 is not between 1 and 720."));
}

void TestKitPlacementTurned::pictureOfWatermarksIsTurned()
{
    FileSettings file(clip());
    turn(file, 90);
    insertLogo(file);
    const QImage picture = zokit::watermarkPicture(file.settings());
    QCOMPARE(picture.size(), QSize(720, 1280));
    QCOMPARE(qAlpha(picture.pixel(509, 1220)), 0);
    QVERIFY(qAlpha(picture.pixel(512, 1172)) > 0);
    QVERIFY(qAlpha(picture.pixel(707, 1267)) > 0);
    QCOMPARE(qAlpha(picture.pixel(711, 1220)), 0);
}

void TestKitPlacementTurned::carriedOverFromTheTurnedFrame_data()
{
    QTest::addColumn<bool>("asPreset");
    QTest::addColumn<QStringList>("what");
    QTest::addColumn<int>("angleThere"); // Of the file that it is carried over to, 1280x720 like the first.
    QTest::addColumn<QPoint>("place");   // Of a logo in the middle of 720x1280.
    const QStringList watermarks{QStringLiteral("Watermark")};
    for (const bool asPreset : {false, true}) {
        const char* from = asPreset ? "preset" : "file";
        QTest::addRow("%s, turn and all", from) << asPreset << QStringList() << 0 << QPoint(360, 640);
        QTest::addRow("%s, the logo alone", from) << asPreset << watermarks << 0 << QPoint(640, 360);
        QTest::addRow("%s, the logo to what is turned", from) << asPreset << watermarks << 270 << QPoint(360, 640);
    }
}

void TestKitPlacementTurned::carriedOverFromTheTurnedFrame()
{
    QFETCH(bool, asPreset);
    QFETCH(QStringList, what);
    QFETCH(int, angleThere);
    QFETCH(QPoint, place);
    FileSettings from(clip());
    turn(from, 90);
    from.insert(key("Watermark"),
                {{key("wm_imageurl"), logoPath(200, 100)}, {key("wm_hposition"), 360}, {key("wm_vposition"), 640}});
    FileSettings to(clip());
    if (angleThere != 0)
        turn(to, angleThere);
    zokit::CarryOver carry;
    carry.what = what;
    const Settings source = asPreset ? zokit::presetFrom(from.settings(), what) : from.settings();
    const Settings once = zokit::carriedOver(source, to.settings(), carry);
    const Values logo = once.find(key("Watermark"))->items.first().values;
    QCOMPARE(QPoint(logo.value(key("wm_hposition")).toInt(), logo.value(key("wm_vposition")).toInt()), place);
    QVERIFY(zokit::carriedOver(source, once, carry) == once);
}

void TestKitPlacementTurned::savedDefaultIsAPartOfTheTurnedFrame()
{
    zokit::Project project;
    FileSettings* file = project.add(clip());
    turn(*file, 90);
    const Identity logo =
        file->insert(key("Watermark"),
                     {{key("wm_imageurl"), logoPath(200, 100)}, {key("wm_hposition"), 360}, {key("wm_vposition"), 320}})
            .item;
    QVERIFY(project.saveDefault(logo).isEmpty());
    QCOMPARE(project.savedValues(key("Watermark")).value(key("wm_hposfactor")), QVariant(0.5));
    QCOMPARE(project.savedValues(key("Watermark")).value(key("wm_vposfactor")), QVariant(0.25));
    clearSavedDefaults();
}

ZOEFFECT_TEST_MAIN(TestKitPlacementTurned)
#include "tst_kit_placement_turned.moc"
