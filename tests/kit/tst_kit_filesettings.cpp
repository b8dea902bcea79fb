// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <memory>

#include <QColor>
#include <QSignalSpy>
#include <QtTest>

#include <zoeffectitemdata.h>
#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include <zokit/filesettings.h>
#include <zokit/history.h>
#include <zokit/placement.h>
#include <zokit/project.h>

#include "kitsupport.h"
#include "randomedits.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::FileSettings;
using zokit::Identity;
using zokit::State;
using Code = zokit::Message::Code;

class TestKitFileSettings : public QObject {
    Q_OBJECT

private slots:
    void init() { clearSavedDefaults(); }

    void freshFileHoldsTheDefaults();
    void valueIsSetCheckedAndTold();
    void refusedCallChangesNothing_data();
    void refusedCallChangesNothing();
    void equalValueIsSilent();
    void settingSelectsWhatWasNot();
    void settingOneValueSetsWhatIsMeantBesides_data();
    void settingOneValueSetsWhatIsMeantBesides();
    void itemsKeepTheirIdentity();
    void itemSignalsNameTheMove();
    void freshWatermarksDoNotCoverEachOther();
    void imageFitsIntoHalfOfTheFrame_data();
    void imageFitsIntoHalfOfTheFrame();
    void anchoredWatermarkKeepsItsCorner();
    void placingByHandTakesFromTheAnchor();
    void untouchedWatermarkIsDefaultAtEveryFrameSize();
    void stateTellsDefaultSavedAndChanged();
    void savingADefaultChangesNoOpenFile();
    void resetGoesBackToTheDefaultsOfTheMoment();
    void resetWithoutAKeyIsOfAllOfAThing();
    void checkStateIsTakenForSelected();
    void frameSizeKeepsThePartOfThePicture();
    void comesOutUnchanged_data();
    void comesOutUnchanged();
    void eitherFadeChangesTheSound();
    void modelsFollow();
    void modelsMayBeAskedForAtAnyTime();
    void directChangesAreTold();
    void whatIsNotThereIsRefused();
    void silentChangesAreTakenInWhenAskedFor();
    void drawingChangesNoSetting();
    void callsInsideAnAnnouncementAreRefused_data();
    void callsInsideAnAnnouncementAreRefused();
    void listenerCannotEditBeforeAChangeIsTold();
    void directChangeBeforeAChangeIsToldIsTheNextStep();
};

void TestKitFileSettings::freshFileHoldsTheDefaults()
{
    const FileSettings file(clip());
    QCOMPARE(file.value(at(file, "Color:bcs_contrast"), key("bcs_contrast")), QVariant(0));
    QCOMPARE(file.value(file.type(key("Crop")), key("crop_width")), QVariant(QStringLiteral("source_val")));
    QCOMPARE(file.items(key("Effect")).size(), 20);
    QCOMPARE(file.items(key("Watermark")).size(), 0);
    QCOMPARE(file.value(file.item(key("Effect"), 0), key("selected")), QVariant(false));
    QVERIFY(file.comesOutUnchanged());
}

void TestKitFileSettings::valueIsSetCheckedAndTold()
{
    FileSettings file(clip());
    const Identity color = file.type(key("Color"));
    Log log(file);
    QVERIFY(file.setValue(color, key("bcs_contrast"), QStringLiteral("20"), this).isEmpty());
    QCOMPARE(file.value(color, key("bcs_contrast")), QVariant(20));
    QCOMPARE(log.lines(), QStringList({QStringLiteral("before Color:bcs_contrast 0 20"),
                                       QStringLiteral("after Color:bcs_contrast 0 20")}));
    QCOMPARE(log.asker(), this);
}

void TestKitFileSettings::refusedCallChangesNothing_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("beyond the bounds") << "Color:bcs_contrast" << QVariant(51)
                                       << "Color:bcs_contrast: 51 is not between -50 and 50.";
    QTest::newRow("of another type") << "Color:bcs_contrast" << QVariant(QStringLiteral("much"))
                                     << "Color:bcs_contrast: much is no whole number.";
    QTest::newRow("a key of items")
        << "Watermark:wm_fontsize" << QVariant(20)
        << "wm_fontsize belongs to an item of Watermark. Write Watermark:0:wm_fontsize for the first one.";
    QTest::newRow("misspelt") << "Color:bcs_contrst" << QVariant(1)
                              << "Color has no property bcs_contrst. Did you mean bcs_contrast?";
    QTest::newRow("no flag") << "Color:selected" << QVariant(QStringLiteral("maybe"))
                             << "Color:selected: maybe is neither true nor false.";
    QTest::newRow("an option of each run")
        << "Output:jobs" << QVariant(2) << "jobs is not kept with the settings. Give it with each run.";
    QTest::newRow("an anchor of what has no place")
        << "Color:anchor" << QVariant(QStringLiteral("top")) << "Color has no property anchor.";
    QTest::newRow("an anchor of no item")
        << "Watermark:anchor" << QVariant(QStringLiteral("top")) << "What was to be changed is not there any more.";
    QTest::newRow("a rule of another type") << "Tracks:forced-subtitles" << QVariant(QStringLiteral("maybe"))
                                            << "Tracks:forced-subtitles: maybe is neither true nor false.";
    QTest::newRow("a selection of what is always there")
        << "Output:selected" << QVariant(true) << "There is no output option selected.";
    QTest::newRow("the kit's own") << "Color::of" << QVariant(1) << "What was to be changed is not there any more.";
    QTest::newRow("for another kind of item")
        << "Watermark:0:wm_imageurl" << QVariant(QStringLiteral("a.png"))
        << "Watermark:0:wm_imageurl cannot be set here: it is for image watermarks.";
    QTest::newRow("no corner")
        << "Watermark:0:anchor" << QVariant(QVariantMap{{key("corner"), QStringLiteral("bottom-rihgt")}})
        << "bottom-rihgt is none of top-left, top, top-right, left, centre, right, bottom-left, bottom, "
           "bottom-right. Did you mean bottom-right?";
}

void TestKitFileSettings::refusedCallChangesNothing()
{
    QFETCH(QString, address);
    QFETCH(QVariant, value);
    QFETCH(QString, sentence);
    FileSettings file(clip());
    file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}});
    const zokit::Settings before = file.settings();
    const bool ofItem = address.count(QLatin1Char(':')) == 2 && !address.contains(QLatin1String("::"));
    const QString type = address.section(QLatin1Char(':'), 0, 0);
    const Identity ofType = type == QLatin1String("Output")   ? file.output()
                            : type == QLatin1String("Tracks") ? file.tracks()
                                                              : file.type(type);
    const Identity thing = ofItem ? file.item(key("Watermark"), 0) : ofType;
    const QString name = ofItem ? address.section(QLatin1Char(':'), 2) : address.section(QLatin1Char(':'), 1);
    Log log(file);
    QCOMPARE(file.check(thing, name, value).text(), sentence);
    QCOMPARE(file.setValue(thing, name, value).text(), sentence);
    QVERIFY(log.lines().isEmpty());
    QVERIFY(file.settings() == before);
}

void TestKitFileSettings::equalValueIsSilent()
{
    FileSettings file(clip());
    Log log(file);
    QVERIFY(file.setValue(file.type(key("Color")), key("bcs_contrast"), QStringLiteral("0")).isEmpty());
    QVERIFY(log.lines().isEmpty());
}

void TestKitFileSettings::settingSelectsWhatWasNot()
{
    FileSettings file(clip());
    const Identity color = file.type(key("Color"));
    file.setValue(color, key("selected"), false);
    file.setValue(color, key("bcs_contrast"), 5);
    QCOMPARE(file.value(color, key("selected")), QVariant(true));
    file.setValues(color, {{key("bcs_contrast"), 6}, {key("selected"), false}});
    QCOMPARE(file.value(color, key("selected")), QVariant(false));
}

void TestKitFileSettings::settingOneValueSetsWhatIsMeantBesides_data()
{
    QTest::addColumn<QStringList>("set"); // Addresses and values, one after the other.
    QTest::addColumn<QString>("crop");
    QTest::addColumn<bool>("isTurned");
    const auto row = [](const char* name, const QStringList& set, const char* crop, bool isTurned) {
        QTest::newRow(name) << set << key(crop) << isTurned;
    };
    row("width alone", {"Crop:crop_width=300"}, "0 0 300 720", false);
    row("height alone", {"Crop:crop_height=100"}, "0 0 1280 100", false);
    row("left alone", {"Crop:crop_left=80"}, "80 0 1200 720", false);
    row("one after the other", {"Crop:crop_left=80", "Crop:crop_top=20", "Crop:crop_width=100"}, "80 20 100 720",
        false);
    row("left at the right edge", {"Crop:crop_left=1280"}, "1280 0 source_val 720", false);
    row("another value of the crop", {"Crop:crop_keepaspectratio=false"}, "0 0 source_val source_val", false);
    row("the value that is there", {"Crop:crop_left=0"}, "0 0 source_val source_val", false);
    row("no value", {"Crop:crop_width=300", "Crop:crop_width=source_val"}, "0 0 source_val 720", false);
    row("turned", {"Effect:crop_rotation_angle=90"}, "0 0 source_val source_val", true);
    row("mirrored", {"Crop:selected=false", "Effect:crop_rotation_action=2"}, "0 0 source_val source_val", true);
    row("turned, then cropped", {"Effect:crop_rotation_angle=270", "Crop:crop_top=80"}, "0 80 720 1200", true);
    row("not turned", {"Effect:crop_rotation_angle=90", "Crop:player_map_flag=false", "Effect:crop_rotation_angle=0"},
        "0 0 source_val source_val", false);
}

void TestKitFileSettings::settingOneValueSetsWhatIsMeantBesides()
{
    QFETCH(const QStringList, set);
    FileSettings file(clip());
    for (const QString& one : set) {
        const QString address = one.section(QLatin1Char('='), 0, 0);
        QVERIFY(file.setValue(file.type(address.section(QLatin1Char(':'), 0, 0)), address.section(QLatin1Char(':'), 1),
                              one.section(QLatin1Char('='), 1))
                    .isEmpty());
    }
    const zokit::Values crop = file.values(file.type(key("Crop")));
    QStringList edges;
    for (const char* edge : {"crop_left", "crop_top", "crop_width", "crop_height"})
        edges.append(crop.value(key(edge)).toString());
    QTEST(edges.join(QLatin1Char(' ')), "crop");
    QTEST(crop.value(key("player_map_flag")).toBool() && crop.value(key("selected")).toBool(), "isTurned");
}

void TestKitFileSettings::itemsKeepTheirIdentity()
{
    FileSettings file(clip());
    QVector<Identity> items;
    for (const char* text : {"a", "b", "c"})
        items.append(file.insert(key("Watermark"), {{key("wm_textcontent"), QString::fromLatin1(text)}}).item);
    QVERIFY(file.move(items.at(0), 2).isEmpty());
    QCOMPARE(file.items(key("Watermark")), QVector<Identity>({items.at(1), items.at(2), items.at(0)}));
    QVERIFY(file.remove(items.at(2)).isEmpty());
    QCOMPARE(file.items(key("Watermark")), QVector<Identity>({items.at(1), items.at(0)}));
    QCOMPARE(file.value(items.at(0), key("wm_textcontent")), QVariant(QStringLiteral("a")));
    QCOMPARE(file.remove(items.at(2)).code(), Code::NoSuchThing);
    QCOMPARE(file.remove(file.item(key("Effect"), 0)).code(), Code::FixedItems);
    QVERIFY(file.move(file.item(key("Effect"), 0), 19).isEmpty());
    QCOMPARE(file.insert(key("Color"), {}).error.code(), Code::TypeHasNoItems);
    QCOMPARE(file.insert(key("Watermark"), {}, 7).error.code(), Code::ItemPosition);
}

void TestKitFileSettings::itemSignalsNameTheMove()
{
    FileSettings file(clip());
    QSignalSpy inserted(&file, &FileSettings::itemInserted);
    QSignalSpy removed(&file, &FileSettings::itemRemoved);
    QSignalSpy moved(&file, &FileSettings::itemMoved);
    const Identity a = file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("a")}}).item;
    const Identity b = file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("b")}}, 0).item;
    file.move(a, 0);
    file.remove(b);
    QCOMPARE(inserted.size(), 2);
    QCOMPARE(inserted.at(1), QVariantList({key("Watermark"), b, 0}));
    QCOMPARE(moved.size(), 1);
    QCOMPARE(moved.at(0), QVariantList({key("Watermark"), a, 1, 0}));
    QCOMPARE(removed.size(), 1);
    QCOMPARE(removed.at(0), QVariantList({key("Watermark"), b, 1}));
}

void TestKitFileSettings::freshWatermarksDoNotCoverEachOther()
{
    FileSettings file(clip());
    QVector<QRect> places;
    for (int i = 0; i < 6; ++i) {
        const Identity item =
            file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("libzoeffect")}}).item;
        const zokit::Values values = file.values(item);
        const QRect place(QPoint(values.value(key("wm_hposition")).toInt(), values.value(key("wm_vposition")).toInt()),
                          zokit::watermarkSize(values));
        QVERIFY(!place.isEmpty());
        for (const QRect& other : places)
            QVERIFY(!other.intersects(place));
        places.append(place);
    }
    QCOMPARE(places.first().topLeft(), QPoint(128, 72)); // A tenth of each side.
    FileSettings other(clip());
    const auto insert = [&](zokit::Values values) {
        values.insert(key("wm_textcontent"), QStringLiteral("libzoeffect"));
        return placeOf(other, other.insert(key("Watermark"), values).item);
    };
    QCOMPARE(insert({{key("selected"), false}}), QPoint(128, 72));
    QCOMPARE(insert({}), QPoint(128, 72));                          // What is not shown takes no room.
    QCOMPARE(insert({{key("wm_vposition"), 80}}), QPoint(128, 80)); // What is placed may cover it.
    QCOMPARE(insert({{key("wm_hposition"), 130}}), QPoint(130, 72));
}

void TestKitFileSettings::imageFitsIntoHalfOfTheFrame_data()
{
    QTest::addColumn<QSize>("frame");
    QTest::addColumn<QSize>("image");
    QTest::addColumn<zokit::Values>("given");
    QTest::addColumn<QSize>("shown");
    const QSize hd(1280, 720);
    QTest::newRow("small") << hd << QSize(200, 100) << zokit::Values() << QSize(200, 100);
    QTest::newRow("wide") << hd << QSize(1280, 100) << zokit::Values() << QSize(640, 50);
    QTest::newRow("high") << hd << QSize(36, 720) << zokit::Values() << QSize(18, 360);
    QTest::newRow("a line") << hd << QSize(4000, 1) << zokit::Values() << QSize(640, 1);
    QTest::newRow("no frame") << QSize() << QSize(4000, 10) << zokit::Values() << QSize(4000, 10);
    QTest::newRow("given") << hd << QSize(1280, 100)
                           << zokit::Values{{key("wm_imagewidth"), 1000}, {key("wm_imageheight"), 7}} << QSize(1000, 7);
}

void TestKitFileSettings::imageFitsIntoHalfOfTheFrame()
{
    QFETCH(const QSize, frame);
    QFETCH(const QSize, image);
    QFETCH(zokit::Values, given);
    FileSettings file(zokit::Media{QString(), frame, 1.0});
    given.insert(key("wm_imageurl"), logoPath(image.width(), image.height()));
    QTEST(sizeOf(file, file.insert(key("Watermark"), given).item), "shown");
}

void TestKitFileSettings::anchoredWatermarkKeepsItsCorner()
{
    FileSettings file(clip());
    const Identity logo =
        file.insert(key("Watermark"), {{key("wm_imageurl"), logoPath(200, 100)},
                                       {key("anchor"), QVariantMap{{key("corner"), QStringLiteral("bottom-right")}}}})
            .item;
    QVERIFY(logo != 0);
    // 2 % of 1280 and of 720, rounded: 25.6 and 14.4.
    QCOMPARE(placeOf(file, logo), QPoint(1054, 606));
    file.setMedia({QString(), QSize(640, 360), 5.0});
    QCOMPARE(sizeOf(file, logo), QSize(100, 50));
    QCOMPARE(placeOf(file, logo), QPoint(527, 303));
    file.setValue(
        logo, key("anchor"),
        QVariantMap{{key("corner"), QStringLiteral("top")}, {key("margin"), 10}, {key("size"), QStringLiteral("50%")}});
    QCOMPARE(sizeOf(file, logo), QSize(320, 160));
    QCOMPARE(placeOf(file, logo), QPoint(160, 10));
    file.setMedia({QString(), QSize(1280, 720), 5.0});
    QCOMPARE(sizeOf(file, logo), QSize(640, 320));
    QCOMPARE(placeOf(file, logo), QPoint(320, 20)); // A margin in pixels grows with the frame.
}

void TestKitFileSettings::placingByHandTakesFromTheAnchor()
{
    FileSettings file(clip());
    const Identity text =
        file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")},
                                       {key("anchor"), QVariantMap{{key("corner"), QStringLiteral("top-left")}}}})
            .item;
    QCOMPARE(placeOf(file, text), QPoint(26, 14));
    file.setValue(text, key("wm_hposition"), 300);
    QCOMPARE(placeOf(file, text), QPoint(300, 14));
    QVERIFY(!file.value(text, key("anchor")).isValid());

    const QVariantMap corner{{key("corner"), QStringLiteral("bottom-right")}};
    file.setValue(text, key("anchor"), corner);
    QVERIFY(placeOf(file, text) != QPoint(26, 14));
    QCOMPARE(file.reset(text, key("wm_hposition")).text(), QString());
    QVERIFY(!file.value(text, key("anchor")).isValid());
    // By the host on its model, too; another value leaves it.
    file.setValue(text, key("anchor"), corner);
    file.pictureModel()->setData(key("wm_fontcolor"), QColor(Qt::red), key("Watermark"), 0);
    QVERIFY(file.value(text, key("anchor")).isValid());
    for (const char* place : {"wm_vposition", "wm_hposition"}) {
        file.setValue(text, key("anchor"), corner);
        file.pictureModel()->setData(key(place), 7, key("Watermark"), 0);
        QVERIFY2(!file.value(text, key("anchor")).isValid(), place);
    }
}

void TestKitFileSettings::untouchedWatermarkIsDefaultAtEveryFrameSize()
{
    for (const QSize& frame : {QSize(1280, 720), QSize(1279, 719), QSize(333, 777), QSize(1920, 1080)}) {
        FileSettings file(zokit::Media{QString(), frame, 1.0});
        for (int i = 0; i < 3; ++i) {
            const Identity item = file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hi")}}).item;
            for (const char* name :
                 {"wm_hposition", "wm_vposition", "wm_fontsize", "wm_fontcolor", "wm_transparency", "selected"})
                QVERIFY2(file.state(item, key(name)) == State::Default, name);
        }
    }
    // The width of an image decides, too, where it finds room: beside the post there is none for a long one.
    FileSettings file(zokit::Media{QString(), QSize(1280, 720), 1.0});
    const Identity first = file.insert(key("Watermark"), {{key("wm_imageurl"), logoPath(20, 20)}}).item;
    const QPoint wished = placeOf(file, first);
    const auto [post, error] = file.insert(key("Watermark"), {{key("wm_imageurl"), logoPath(20, 300)},
                                                              {key("wm_hposition"), wished.x() + 500},
                                                              {key("wm_vposition"), wished.y()}});
    QCOMPARE(error.text(), QString());
    const Identity line = file.insert(key("Watermark"), {{key("wm_imageurl"), logoPath(700, 100)}}).item;
    QCOMPARE(placeOf(file, line), wished + QPoint(0, 300));
    QVERIFY(file.state(line, key("wm_vposition")) == State::Default);
}

void TestKitFileSettings::stateTellsDefaultSavedAndChanged()
{
    zokit::Project project;
    FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    QVERIFY(file->state(color, key("bcs_contrast")) == State::Default);
    file->setValue(color, key("bcs_contrast"), 30);
    QVERIFY(file->state(color, key("bcs_contrast")) == State::Changed);
    QVERIFY(project.saveDefault(color).isEmpty());
    QVERIFY(file->state(color, key("bcs_contrast")) == State::SavedDefault);
    QVERIFY(file->state(color, key("bcs_brightness")) == State::Default);
    file->setValue(color, key("bcs_contrast"), 0);
    QVERIFY(file->state(color, key("bcs_contrast")) == State::Changed);
    FileSettings* next = project.add(clip());
    QCOMPARE(next->value(next->type(key("Color")), key("bcs_contrast")), QVariant(30));
    QVERIFY(next->state(next->type(key("Color")), key("bcs_contrast")) == State::SavedDefault);
}

void TestKitFileSettings::savingADefaultChangesNoOpenFile()
{
    zokit::Project project;
    FileSettings* file = project.add(clip());
    const Identity track =
        file->insert(key("Subtitle"), {{key("file"), QStringLiteral("/a.srt")}, {key("sub_fromfile"), true}}).item;
    QCOMPARE(file->value(track, key("sub_vposition")), QVariant(576)); // 0.8 of 720.
    FileSettings* other = project.add(clip());
    const Identity theirs =
        other->insert(key("Subtitle"), {{key("file"), QStringLiteral("/b.srt")}, {key("sub_fromfile"), true}}).item;
    other->setValue(theirs, key("sub_vposition"), 72);
    const zokit::Settings before = file->settings();
    QVERIFY(project.saveDefault(theirs).isEmpty());
    QVERIFY(file->settings() == before);
    QCOMPARE(file->pictureModel()->data(key("sub_vposition"), key("Subtitle"), 0), QVariant(576));
    const Identity fresh =
        file->insert(key("Subtitle"), {{key("file"), QStringLiteral("/c.srt")}, {key("sub_fromfile"), true}}).item;
    QCOMPARE(file->value(fresh, key("sub_vposition")), QVariant(72));
    QVERIFY(project.forgetDefault(key("Subtitle")).isEmpty());
    QVERIFY(!ZoEffectItemDefaultValMgr::getInstance()->hasCustomDefaultVal(key("Subtitle")));
}

void TestKitFileSettings::resetGoesBackToTheDefaultsOfTheMoment()
{
    FileSettings file(clip());
    const Identity text = file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}}).item;
    file.setValues(text, {{key("wm_fontsize"), 40}, {key("wm_hposition"), 5}});
    QVERIFY(file.reset(text, key("wm_fontsize")).isEmpty());
    QCOMPARE(file.value(text, key("wm_fontsize")), QVariant(22));
    QVERIFY(file.resetItem(text).isEmpty());
    QCOMPARE(placeOf(file, text), QPoint(128, 72));
    QCOMPARE(file.value(text, key("wm_textcontent")), QVariant(QStringLiteral("Hello"))); // What it is stays.
    QCOMPARE(file.reset(text, key("wm_textcontent")).code(), Code::NoDefault);

    file.insert(key("Subtitle"), {{key("trackid"), 2}});
    file.insert(key("Subtitle"), {{key("file"), QStringLiteral("/a.srt")}, {key("sub_fromfile"), true}});
    file.setValue(file.item(key("Subtitle"), 0), key("sub_fontsize"), 60);
    file.move(file.item(key("Effect"), 0), 5);
    file.setValue(file.output(), key("quality"), 20);
    file.resetAll();
    QCOMPARE(file.items(key("Watermark")).size(), 0);
    QCOMPARE(file.items(key("Subtitle")).size(), 1); // The clip's own track.
    QCOMPARE(file.value(file.item(key("Subtitle"), 0), key("sub_fontsize")), QVariant(22));
    QCOMPARE(file.value(file.item(key("Subtitle"), 0), key("trackid")), QVariant(2));
    QCOMPARE(file.settings().find(key("Effect"))->items.first().name, QStringLiteral("Blur"));
    QVERIFY(!file.value(file.output(), key("quality")).isValid());
    QVERIFY(file.comesOutUnchanged());
}

void TestKitFileSettings::resetWithoutAKeyIsOfAllOfAThing()
{
    FileSettings file(clip());
    const Identity text = file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}}).item;
    const Identity color = file.type(key("Color"));
    file.setValue(text, key("wm_fontsize"), 40);
    file.setValues(color, {{key("bcs_contrast"), 20}, {key("bcs_brightness"), 5}});
    file.setValue(file.output(), key("quality"), 20);
    file.setValue(file.tracks(), key("audio-language"), QStringList{key("eng")});
    QCOMPARE(file.reset(text, QString()).text(), QString());
    QCOMPARE(file.value(text, key("wm_fontsize")), QVariant(22));
    QCOMPARE(file.value(text, key("wm_textcontent")), QVariant(QStringLiteral("Hello")));
    QCOMPARE(file.reset(color, QString()).text(), QString());
    QCOMPARE(file.value(color, key("bcs_contrast")), QVariant(0));
    QCOMPARE(file.value(color, key("bcs_brightness")), QVariant(0));
    QCOMPARE(file.value(file.output(), key("quality")), QVariant(20));
    QCOMPARE(file.reset(file.output(), QString()).text(), QString());
    QCOMPARE(file.values(file.output()), zokit::Values());
    QCOMPARE(file.values(file.tracks()).size(), 1);
    QCOMPARE(file.reset(file.tracks(), QString()).text(), QString());
    QCOMPARE(file.values(file.tracks()), zokit::Values());
    QCOMPARE(file.reset(file.file(), QString()).code(), Code::NoSuchThing);
}

void TestKitFileSettings::checkStateIsTakenForSelected()
{
    const QString state = key("_checkstate");
    const QString selected = key("selected");
    FileSettings file(clip());
    const Identity text =
        file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}, {state, false}}).item;
    QCOMPARE(file.value(text, selected), QVariant(false));
    for (const char* address : {"Color:selected", "Watermark:0:selected", "Effect:0:selected"}) {
        const Identity thing = at(file, address);
        for (const bool wanted : {true, false}) {
            QCOMPARE(file.setValue(thing, state, wanted).text(), QString());
            QCOMPARE(file.value(thing, selected), QVariant(wanted));
            QCOMPARE(file.value(thing, state), QVariant(wanted));
            QVERIFY(file.state(thing, state) == file.state(thing, selected));
        }
        QVERIFY(!file.values(thing).contains(state));
        QCOMPARE(file.check(thing, state, key("perhaps")).text(),
                 QLatin1String(address) + key(": perhaps is neither true nor false."));
        QCOMPARE(file.reset(thing, state).text(), QString());
        QCOMPARE(file.value(thing, selected), file.catalogueDefault(thing, state));
    }
    QCOMPARE(file.value(at(file, "Effect:0:selected"), selected), QVariant(false));
    QCOMPARE(file.value(text, selected), QVariant(true));
    QCOMPARE(file.catalogueDefault(at(file, "Effect:selected"), selected), QVariant(true));
    QCOMPARE(file.catalogueDefault(at(file, "Effect:0:selected"), key("crop_left")), QVariant()); // It has none.
}

void TestKitFileSettings::frameSizeKeepsThePartOfThePicture()
{
    FileSettings file(zokit::Media{QString(), QSize(1920, 1080), 1.0});
    const Identity crop = file.type(key("Crop"));
    file.setValues(
        crop, {{key("crop_left"), 100}, {key("crop_top"), 50}, {key("crop_width"), 800}, {key("crop_height"), 600}});
    const Identity track = file.insert(key("Subtitle"), {{key("trackid"), 2}}).item;
    file.insert(key("Subtitle"), {{key("trackid"), 3}});
    file.setMedia({QString(), QSize(960, 540), 1.0});
    const zokit::Values values = file.values(crop);
    QCOMPARE(QRect(values.value(key("crop_left")).toInt(), values.value(key("crop_top")).toInt(),
                   values.value(key("crop_width")).toInt(), values.value(key("crop_height")).toInt()),
             QRect(50, 25, 400, 300));
    QCOMPARE(file.value(track, key("sub_vposition")), QVariant(432)); // Once, however many tracks there are.
    QCOMPARE(file.pictureModel()->baseSize(), QSize(960, 540));
}

void TestKitFileSettings::comesOutUnchanged_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("unchanged");
    QTest::newRow("nothing") << "" << QVariant() << true;
    QTest::newRow("a colour") << "Color:bcs_contrast" << QVariant(1) << false;
    QTest::newRow("a brightness") << "Color:bcs_brightness" << QVariant(1) << false;
    QTest::newRow("a saturation") << "Color:bcs_saturation" << QVariant(-1) << false;
    QTest::newRow("colours in use that change nothing") << "Color:selected" << QVariant(true) << true;
    QTest::newRow("colours that are not in use") << "Color:selected" << QVariant(false) << true;
    QTest::newRow("a turn") << "Effect:crop_rotation_angle" << QVariant(90) << false;
    QTest::newRow("a picture mirrored") << "Effect:crop_rotation_action" << QVariant(2) << false;
    QTest::newRow("the switch of turning alone") << "Crop:player_map_flag" << QVariant(true) << true;
    QTest::newRow("one edge of a crop") << "Crop:crop_left" << QVariant(10) << false;
    QTest::newRow("normalizing") << "Audio_Normalize:audio_effect_flag" << QVariant(true) << false;
    QTest::newRow("an untouched speed in use") << "Audio_Speed:audio_effect_flag" << QVariant(true) << true;
    QTest::newRow("a speed that is not in use") << "Audio_Speed:audio_speed_factor" << QVariant(150) << true;
    QTest::newRow("another container") << "Output:container" << QVariant(QStringLiteral("mkv")) << false;
    QTest::newRow("the date kept") << "Output:keep-date" << QVariant(true) << true;
    QTest::newRow("a text") << "Watermark:0:wm_textcontent" << QVariant(QStringLiteral("a")) << false;
    QTest::newRow("a text that is empty") << "Watermark:0:wm_textcontent" << QVariant(QString()) << true;
    const auto item = [](const char* name, const char* type, const zokit::Values& values, bool unchanged) {
        QTest::newRow(name) << key(type) << QVariant(values) << unchanged;
    };
    item("a logo", "Watermark", {{key("wm_imageurl"), logoPath(20, 10)}}, false);
    item("a logo without a file", "Watermark", {{key("wm_istextwatermark"), false}}, true);
    item("a logo that is not in use", "Watermark", {{key("wm_imageurl"), logoPath(20, 10)}, {key("selected"), false}},
         true);
    item("a subtitle track as it is", "Subtitle", {{key("trackid"), 2}}, true);
    item("a subtitle track with larger letters", "Subtitle", {{key("trackid"), 2}, {key("sub_fontsize"), 40}}, false);
    item("the same, not chosen", "Subtitle", {{key("trackid"), 2}, {key("sub_fontsize"), 40}, {key("selected"), false}},
         true);
    item("a subtitle file", "Subtitle", {{key("sub_fromfile"), true}, {key("file"), key("/a.srt")}}, false);
    item("a sound file", "Audio", {{key("audio_isfile"), true}, {key("file"), key("/a.wav")}}, false);
    item("a sound track", "Audio", {{key("trackid"), 1}}, true);
    QTest::newRow("another sound track") << "Tracks:audio-tracks" << QVariant(QStringLiteral("2")) << false;
}

void TestKitFileSettings::comesOutUnchanged()
{
    QFETCH(QString, address);
    QFETCH(QVariant, value);
    QFETCH(bool, unchanged);
    FileSettings file(clip());
    if (address.startsWith(QLatin1String("Watermark:")))
        file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}});
    if (value.userType() == QMetaType::QVariantMap)
        QCOMPARE(file.insert(address, value.toMap()).error.text(), QString());
    else if (!address.isEmpty())
        QCOMPARE(file.setValue(at(file, address.toLatin1()), address.section(QLatin1Char(':'), -1), value).text(),
                 QString());
    QCOMPARE(file.comesOutUnchanged(), unchanged);
}

void TestKitFileSettings::eitherFadeChangesTheSound()
{
    FileSettings file(clip());
    const Identity fades = file.type(key("Audio_Fade_Inout"));
    for (const bool in : {false, true}) {
        for (const bool out : {false, true}) {
            file.setValues(fades, {{key("audio_effect_flag"), true},
                                   {key("audio_fade_in_enable"), in},
                                   {key("audio_fade_out_enable"), out}});
            QCOMPARE(file.comesOutUnchanged(), !in && !out);
        }
    }
}

void TestKitFileSettings::modelsFollow()
{
    FileSettings file(clip());
    const Identity text = file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}}).item;
    file.setValue(text, key("wm_fontsize"), 40);
    file.setValue(file.type(key("Audio_Echo")), key("audio_echo_delay"), 300);
    ZoEffectModel* model = file.pictureModel();
    QCOMPARE(model->childCount(key("Watermark")), 1);
    QCOMPARE(model->data(key("wm_fontsize"), key("Watermark"), 0), QVariant(40));
    QCOMPARE(file.soundModel()->data(key("audio_echo_delay"), key("Audio_Echo"), -1), QVariant(300));
    QVERIFY(!model->isForAudioEffect());
    QVERIFY(file.soundModel()->isForAudioEffect());
    QVERIFY(model->pictureOptions().keepImageTransparency);
    QCOMPARE(model->pictureOptions().textDotsPerInch, 96);
    for (const int quality : {20, 30}) // Of which they know nothing.
        QVERIFY(file.setValue(file.output(), key("quality"), quality).isEmpty());
    for (const char* corner : {"top-left", "top-right"})
        QVERIFY(file.setValue(text, key("anchor"), key(corner)).isEmpty());
    QCOMPARE(model->data(key("wm_vposition"), key("Watermark"), 0), QVariant(14)); // 2 % of 720.
    QCOMPARE(model->data(key("wm_hposition"), key("Watermark"), 0).toInt(), placeOf(file, text).x());
    file.remove(text);
    QCOMPARE(model->childCount(key("Watermark")), 0);
}

/// They hold the same from the first moment on: before an edit, in its announcement, in its signal and afterwards.
void TestKitFileSettings::modelsMayBeAskedForAtAnyTime()
{
    for (const char* when : {"before", "announced", "told", "afterwards"}) {
        FileSettings file(clip());
        const QString moment = key(when);
        QVector<int> seen;
        const auto look = [&] {
            seen.append(file.pictureModel()->data(key("wm_fontsize"), key("Watermark"), 0).toInt());
            seen.append(file.soundModel()->data(key("audio_echo_delay"), key("Audio_Echo"), -1).toInt());
        };
        file.setValue(file.type(key("Audio_Echo")), key("audio_echo_delay"), 300);
        const Identity text = file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}}).item;
        if (moment == key("before"))
            look();
        connect(&file, &FileSettings::aboutToChange, this, [&] {
            if (moment == key("announced"))
                look();
        });
        connect(&file, &FileSettings::changed, this, [&] {
            if (moment == key("told"))
                look();
        });
        file.syncFromModels();
        file.setValue(text, key("wm_fontsize"), 40);
        look();
        const bool isOldSeen = moment == key("before") || moment == key("announced");
        QVector<int> expected{40, 300};
        if (moment != key("afterwards"))
            expected = QVector<int>{isOldSeen ? 22 : 40, 300} + expected;
        QCOMPARE(seen, expected);
        file.pictureModel()->setData(key("wm_fontsize"), 30, key("Watermark"), 0);
        QCOMPARE(file.value(text, key("wm_fontsize")), QVariant(30));
        QCOMPARE(file.items(key("Watermark")), QVector<Identity>({text}));
    }
}

void TestKitFileSettings::directChangesAreTold()
{
    FileSettings file(clip());
    const Identity text = file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}}).item;
    ZoEffectModel* model = file.pictureModel();
    Log log(file);
    model->setData(key("wm_fontsize"), 30, key("Watermark"), 0);
    QCOMPARE(log.take(), QStringList({QStringLiteral("before Watermark:0:wm_fontsize 22 30"),
                                      QStringLiteral("after Watermark:0:wm_fontsize 22 30")}));
    QCOMPARE(log.asker(), static_cast<QObject*>(model));
    QCOMPARE(file.item(key("Watermark"), 0), text);

    const ZoEffectItemData* node = model->getDataItem(key("Watermark"), 0);
    model->addDataItem(key("Watermark"),
                       {{key("wm_istextwatermark"), true}, {key("wm_textcontent"), QStringLiteral("b")}});
    QCOMPARE(model->getDataItem(key("Watermark"), 0), node); // What the host did is not done again.
    QCOMPARE(file.items(key("Watermark")).size(), 2);
    QCOMPARE(file.item(key("Watermark"), 0), text);
    const Identity second = file.item(key("Watermark"), 1);
    model->changeDataItemPos(key("Watermark"), 0, 1);
    QCOMPARE(file.items(key("Watermark")), QVector<Identity>({second, text}));
    model->delDataItem(key("Watermark"), 0);
    QCOMPARE(file.items(key("Watermark")), QVector<Identity>({text}));
    ZoEffectItemData all(*model->getDataItem(key("Watermark"), -1));
    all.child(0)->setData(key("wm_fontsize"), 33);
    model->replaceData(key("Watermark"), -1, &all); // New nodes, and still the item at its place.
    QCOMPARE(file.items(key("Watermark")), QVector<Identity>({text}));
    QCOMPARE(file.value(text, key("wm_fontsize")), QVariant(33));
}

void TestKitFileSettings::whatIsNotThereIsRefused()
{
    FileSettings file(clip());
    QCOMPARE(file.insert(key("Effect"), {}).error.text(),
             key("The items of Effect are always there. Select or clear them instead."));
    const QString noType = key("There is no effect type Colour. Did you mean Color?");
    QCOMPARE(file.insert(key("Colour"), {}).error.text(), noType);
    QCOMPARE(file.resetType(key("Colour")).text(), noType);
    QCOMPARE(file.type(key("Colour")), Identity(0));
    QCOMPARE(file.type(key("Output")), Identity(0)); // It has a function of its own.
    QCOMPARE(file.resetItem(file.type(key("Color"))).code(), Code::NoSuchThing);
    const Identity color = file.type(key("Color"));
    QCOMPARE(file.reset(color, key(":of")).code(), Code::NoSuchThing);
    QVERIFY(!file.value(color, key(":of")).isValid());
    Log log(file);
    file.apply({{999999, key("bcs_contrast"), 0, 5}}, this); // Nothing of this file.
    QCOMPARE(log.take(), QStringList());
    zokit::Project project;
    QCOMPARE(project.forgetDefault(key("Colour")).text(), noType);
}

void TestKitFileSettings::silentChangesAreTakenInWhenAskedFor()
{
    FileSettings file(clip());
    file.pictureModel()->getDataItem(key("Color"), -1)->setData(key("bcs_contrast"), 12);
    QCOMPARE(file.value(file.type(key("Color")), key("bcs_contrast")), QVariant(0));
    file.syncFromModels();
    QCOMPARE(file.value(file.type(key("Color")), key("bcs_contrast")), QVariant(12));
}

void TestKitFileSettings::drawingChangesNoSetting()
{
    FileSettings file(clip());
    file.insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}});
    const zokit::Settings before = file.settings();
    Log log(file);
    QVERIFY(!file.pictureModel()->getWatermark(1280, 720, true).isNull());
    QVERIFY(log.lines().isEmpty());
    QVERIFY(file.settings() == before);
}

void TestKitFileSettings::callsInsideAnAnnouncementAreRefused_data()
{
    QTest::addColumn<int>("call");
    int call = 0;
    for (const char* name : {"a value", "a new item", "another clip", "all settings", "reset of a value",
                             "reset of a type", "reset of everything"})
        QTest::newRow(name) << call++;
}

void TestKitFileSettings::callsInsideAnAnnouncementAreRefused()
{
    QFETCH(int, call);
    FileSettings file(clip());
    const Identity color = file.type(key("Color"));
    file.setValue(color, key("bcs_saturation"), 7);
    zokit::Settings other = file.settings();
    other.find(key("Color"))->values.insert(key("bcs_saturation"), 9);
    zokit::Message answer;
    connect(&file, &FileSettings::aboutToChange, this, [&] {
        switch (call) {
        case 0:
            answer = file.setValue(color, key("bcs_saturation"), 8);
            break;
        case 1:
            answer = file.insert(key("Watermark"), {{key("wm_textcontent"), key("Hello")}}).error;
            break;
        case 2:
            answer = file.setMedia({QString(), QSize(640, 360), 1.0});
            break;
        case 3:
            answer = file.setSettings(other);
            break;
        case 4:
            answer = file.reset(color, key("bcs_saturation"));
            break;
        case 5:
            answer = file.resetType(key("Color"));
            break;
        default:
            answer = file.resetAll();
            break;
        }
    });
    zokit::Settings expected = file.settings();
    expected.find(key("Color"))->values.insert(key("bcs_contrast"), 5);
    QVERIFY(file.setValue(color, key("bcs_contrast"), 5).isEmpty());
    QCOMPARE(answer.code(), Code::Busy);
    QVERIFY(file.settings() == expected);
}

namespace {

void compareWithUndoAndRedoOfAll(const zokit::Project& project)
{
    const QByteArray after = stateOf(project);
    project.history().goTo(1);
    QCOMPARE(project.files().constFirst()->everything().size(), zokit::Project().add(clip())->everything().size());
    project.history().goTo(project.history().count());
    QCOMPARE(stateOf(project), after);
    project.history().goTo(0);
    QVERIFY(project.files().isEmpty());
}

} // namespace

void TestKitFileSettings::listenerCannotEditBeforeAChangeIsTold()
{
    zokit::Project project;
    FileSettings* file = project.add(clip());
    QVector<Code> answers;
    const auto edit = [&] {
        answers.append(
            file->setValue(file->type(key("Color")), key("bcs_contrast"), static_cast<int>(answers.size()) + 1).code());
    };
    connect(file, &FileSettings::itemInserted, this, edit);
    connect(file, &FileSettings::itemMoved, this, edit);
    connect(file, &FileSettings::itemRemoved, this, edit);
    connect(file->pictureModel(),
            QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
            this, edit);
    const Identity text = file->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("a")}}).item;
    file->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("b")}});
    file->move(text, 1);
    file->remove(text);
    QCOMPARE(answers.size(), 8); // Of the model and of the item each time.
    QCOMPARE(answers, QVector<Code>(answers.size(), Code::Busy));
    QCOMPARE(project.history().count(), 5);
    compareWithUndoAndRedoOfAll(project);
}

void TestKitFileSettings::directChangeBeforeAChangeIsToldIsTheNextStep()
{
    zokit::Project project;
    FileSettings* file = project.add(clip());
    ZoEffectModel* model = file->pictureModel();
    connect(file, &FileSettings::itemInserted, this,
            [model] { model->setData(key("bcs_contrast"), 9, key("Color"), -1); });
    file->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("a")}});
    QCOMPARE(file->value(file->type(key("Color")), key("bcs_contrast")), QVariant(9));
    QCOMPARE(project.history().count(), 3);
    QCOMPARE(project.history().undoText().text(), QStringLiteral("change Contrast"));
    compareWithUndoAndRedoOfAll(project);
}

ZOEFFECT_TEST_MAIN(TestKitFileSettings)
#include "tst_kit_filesettings.moc"
