// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <cmath>

#include <QFont>
#include <QImage>
#include <QRandomGenerator>
#include <QtTest>

#include <zoeffectmodel.h>

#include <zokit/filesettings.h>
#include <zokit/placement.h>

#include "kitsupport.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::FileSettings;
using zokit::Identity;
using zokit::Values;

class TestKitPlacement : public QObject {
    Q_OBJECT

private slots:
    void init() { clearSavedDefaults(); }

    void cornerAndMargin_data();
    void cornerAndMargin();
    void anchorIsReadAndWritten_data();
    void anchorIsReadAndWritten();
    void noAnchorIsRefusedWithAReason_data();
    void noAnchorIsRefusedWithAReason();
    void anchorHoldsThroughEveryChange_data();
    void anchorHoldsThroughEveryChange();
    void textIsAsWideAsItsAnchorSays_data();
    void textIsAsWideAsItsAnchorSays();
    void freePlaceIsTheNearest_data();
    void freePlaceIsTheNearest();
    void textIsMeasuredBeforeItIsPlaced();
    void cropKeepsToItsRule_data();
    void cropKeepsToItsRule();
    void everyCropKeepsToItsRule();
    void framesThatAreNoneScaleNothing();
    void roundingIsToldBefore_data();
    void roundingIsToldBefore();
};

void TestKitPlacement::cornerAndMargin_data()
{
    QTest::addColumn<int>("corner");
    QTest::addColumn<QPoint>("twoPercent");
    QTest::addColumn<QPoint>("tenPixels");
    // 200x100 in 1280x720: two percent are 25.6 beside, 14.4 above and below.
    QTest::newRow("top-left") << 0 << QPoint(26, 14) << QPoint(10, 10);
    QTest::newRow("top") << 1 << QPoint(540, 14) << QPoint(540, 10);
    QTest::newRow("top-right") << 2 << QPoint(1054, 14) << QPoint(1070, 10);
    QTest::newRow("left") << 3 << QPoint(26, 310) << QPoint(10, 310);
    QTest::newRow("centre") << 4 << QPoint(540, 310) << QPoint(540, 310);
    QTest::newRow("right") << 5 << QPoint(1054, 310) << QPoint(1070, 310);
    QTest::newRow("bottom-left") << 6 << QPoint(26, 606) << QPoint(10, 610);
    QTest::newRow("bottom") << 7 << QPoint(540, 606) << QPoint(540, 610);
    QTest::newRow("bottom-right") << 8 << QPoint(1054, 606) << QPoint(1070, 610);
}

void TestKitPlacement::cornerAndMargin()
{
    QFETCH(int, corner);
    QFETCH(QPoint, twoPercent);
    QFETCH(QPoint, tenPixels);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const auto read = zokit::anchorFrom({{key("corner"), name}});
    QVERIFY(read);
    QCOMPARE(static_cast<int>(read->corner), corner);
    QCOMPARE(zokit::anchoredPosition(*read, QSize(200, 100), QSize(1280, 720)), twoPercent);
    FileSettings file(clip());
    const Identity logo =
        file.insert(key("Watermark"), {{key("wm_imageurl"), logoPath(200, 100)},
                                       {key("anchor"), QVariantMap{{key("corner"), name}, {key("margin"), 10}}}})
            .item;
    QCOMPARE(placeOf(file, logo), tenPixels);
    file.setValue(logo, key("anchor"), QVariantMap{{key("corner"), name}});
    QCOMPARE(placeOf(file, logo), twoPercent);
}

void TestKitPlacement::anchorIsReadAndWritten_data()
{
    QTest::addColumn<QVariant>("margin");
    QTest::addColumn<QVariant>("size");
    QTest::addColumn<QVariant>("marginBack");
    QTest::addColumn<QVariant>("sizeBack");
    QTest::newRow("nothing said") << QVariant() << QVariant() << QVariant(key("2%")) << QVariant();
    QTest::newRow("pixels") << QVariant(10) << QVariant() << QVariant(10.0) << QVariant();
    QTest::newRow("pixels as text") << QVariant(key(" 10 ")) << QVariant() << QVariant(10.0) << QVariant();
    QTest::newRow("percent") << QVariant(key("5%")) << QVariant(key("50%")) << QVariant(key("5%"))
                             << QVariant(key("50%"));
    QTest::newRow("no digit is lost") << QVariant(key("12.3456789%")) << QVariant(key("33.333333333%"))
                                      << QVariant(key("12.3456789%")) << QVariant(key("33.333333333%"));
    QTest::newRow("size as a number") << QVariant() << QVariant(25) << QVariant(key("2%")) << QVariant(key("25%"));
}

void TestKitPlacement::anchorIsReadAndWritten()
{
    QFETCH(QVariant, margin);
    QFETCH(QVariant, size);
    QFETCH(QVariant, marginBack);
    QFETCH(QVariant, sizeBack);
    Values given{{key("corner"), key("left")}};
    if (margin.isValid())
        given.insert(key("margin"), margin);
    if (size.isValid())
        given.insert(key("size"), size);
    given.insert(key("x-note"), 5); // A host's own.
    const auto read = zokit::anchorFrom(given);
    QVERIFY(read);
    const Values back = zokit::toValues(*read);
    QCOMPARE(back.value(key("corner")), QVariant(key("left")));
    QCOMPARE(back.value(key("margin")), marginBack);
    QCOMPARE(back.value(key("size")), sizeBack);
}

void TestKitPlacement::noAnchorIsRefusedWithAReason_data()
{
    QTest::addColumn<QVariantMap>("values");
    QTest::addColumn<QString>("sentence");
    const auto with = [](const char* name, const char* value) {
        return QVariantMap{{key("corner"), key("top")}, {key(name), key(value)}};
    };
    QTest::newRow("a misspelt member") << with("margn", "5") << "anchor has no member margn. Did you mean margin?";
    QTest::newRow("no margin") << with("margin", "wide") << "wide is no margin. Write pixels (10) or percent (2%).";
    QTest::newRow("an endless margin") << with("margin", "inf")
                                       << "inf is no margin. Write pixels (10) or percent (2%).";
    QTest::newRow("no width") << with("size", "0%")
                              << "0% is no size. Write a part of the frame's width from 1% to 100%.";
    QTest::newRow("a width of letters") << with("size", "wide")
                                        << "wide is no size. Write a part of the frame's width from 1% to 100%.";
    QTest::newRow("wider than the frame")
        << with("size", "101%") << "101% is no size. Write a part of the frame's width from 1% to 100%.";
}

void TestKitPlacement::noAnchorIsRefusedWithAReason()
{
    QFETCH(QVariantMap, values);
    QFETCH(QString, sentence);
    zokit::Message error;
    QVERIFY(!zokit::anchorFrom(values, &error));
    QCOMPARE(error.text(), sentence);
    FileSettings file(clip());
    const zokit::Settings before = file.settings();
    QCOMPARE(
        file.insert(key("Watermark"), {{key("wm_textcontent"), key("Hello")}, {key("anchor"), values}}).error.text(),
        sentence);
    QVERIFY(file.settings() == before);
}

namespace {

/// A change after which an anchored text still stands where its anchor says.
struct Edit {
    const char* name;
    void (*carryOut)(FileSettings& file, Identity text);
};

const Edit edits[] = {
    {"a larger frame",
     [](FileSettings& f, Identity) {
         f.setMedia({QString(), QSize(1920, 1080), 1.0});
     }},
    {"a smaller frame",
     [](FileSettings& f, Identity) {
         f.setMedia({QString(), QSize(640, 360), 1.0});
     }},
    {"a frame of another shape",
     [](FileSettings& f, Identity) {
         f.setMedia({QString(), QSize(719, 1281), 1.0});
     }},
    {"there and back",
     [](FileSettings& f, Identity) {
         f.setMedia({QString(), QSize(333, 777), 1.0});
         f.setMedia(clip());
     }},
    {"a longer text",
     [](FileSettings& f, Identity t) { f.setValue(t, key("wm_textcontent"), key("A text that is longer than that")); }},
    {"a shorter text", [](FileSettings& f, Identity t) { f.setValue(t, key("wm_textcontent"), key("i")); }},
    {"more lines", [](FileSettings& f, Identity t) { f.setValue(t, key("wm_textcontent"), key("one\ntwo\nthree")); }},
    {"larger letters", [](FileSettings& f, Identity t) { f.setValue(t, key("wm_fontsize"), 70); }},
    {"another font",
     [](FileSettings& f, Identity t) { f.setValue(t, key("wm_fontname"), QFont(key("DejaVu Serif"))); }},
    {"another style", [](FileSettings& f, Identity t) { f.setValue(t, key("wm_fontstyle"), key("Bold")); }},
    {"all at once",
     [](FileSettings& f, Identity t) {
         f.setValues(t, {{key("wm_fontsize"), 9}, {key("wm_textcontent"), key("x")}});
     }},
    {"letters changed on the model itself",
     [](FileSettings& f, Identity) { f.pictureModel()->setData(key("wm_fontsize"), 60, key("Watermark"), 0); }},
    {"another frame taken over",
     [](FileSettings& f, Identity) {
         zokit::Settings settings = f.settings();
         settings.media.frame = QSize(800, 600);
         f.setSettings(settings);
     }},
};

QRect rectOf(const FileSettings& file, Identity watermark)
{
    return {placeOf(file, watermark), zokit::watermarkSize(file.values(watermark))};
}

} // namespace

void TestKitPlacement::anchorHoldsThroughEveryChange_data()
{
    QTest::addColumn<int>("row");
    int row = 0;
    for (const Edit& edit : edits)
        QTest::newRow(edit.name) << row++;
}

void TestKitPlacement::anchorHoldsThroughEveryChange()
{
    QFETCH(int, row);
    FileSettings file(clip());
    const Identity text =
        file.insert(key("Watermark"), {{key("wm_textcontent"), key("Hello")},
                                       {key("wm_fontsize"), 30},
                                       {key("anchor"), QVariantMap{{key("corner"), key("bottom-right")}}}})
            .item;
    edits[row].carryOut(file, text);
    const QSize frame = file.media().frame;
    const QRect place = rectOf(file, text);
    QVERIFY(!place.isEmpty());
    QVERIFY(file.value(text, key("anchor")).isValid());
    const double beside = frame.width() - place.left() - place.width();
    const double below = frame.height() - place.top() - place.height();
    QVERIFY2(std::abs(beside - 0.02 * frame.width()) <= 0.5, qPrintable(QString::number(beside)));
    QVERIFY2(std::abs(below - 0.02 * frame.height()) <= 0.5, qPrintable(QString::number(below)));
    // The model below, which draws, has it there as well.
    QCOMPARE(file.pictureModel()->data(key("wm_hposition"), key("Watermark"), 0), QVariant(place.left()));
    QCOMPARE(file.pictureModel()->data(key("wm_vposition"), key("Watermark"), 0), QVariant(place.top()));
    QCOMPARE(file.pictureModel()->data(key("wm_fontsize"), key("Watermark"), 0), file.value(text, key("wm_fontsize")));
}

void TestKitPlacement::textIsAsWideAsItsAnchorSays_data()
{
    QTest::addColumn<QSize>("frame");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("family");
    for (const QSize& frame : {QSize(640, 360), QSize(1280, 720), QSize(333, 777)}) {
        for (const char* text : {"Hello, world", "wide\nWIDER\nWIDEST"}) {
            for (const char* family : {"DejaVu Sans", "DejaVu Serif"})
                QTest::addRow("%d %.4s %s", frame.width(), text, family) << frame << text << family;
        }
    }
}

void TestKitPlacement::textIsAsWideAsItsAnchorSays()
{
    QFETCH(QSize, frame);
    QFETCH(QString, text);
    QFETCH(QString, family);
    FileSettings file(clip());
    const Identity item =
        file.insert(key("Watermark"),
                    {{key("wm_textcontent"), key("before")},
                     {key("anchor"), QVariantMap{{key("corner"), key("top")}, {key("size"), key("50%")}}}})
            .item;
    file.setMedia({QString(), frame, 1.0});
    file.setValues(item, {{key("wm_textcontent"), text}, {key("wm_fontname"), QFont(family)}});
    Values values = file.values(item);
    const double half = frame.width() / 2.0;
    QVERIFY(zokit::measuredText(values).width() <= half + 0.5);
    values.insert(key("wm_fontsize"), values.value(key("wm_fontsize")).toInt() + 1);
    QVERIFY(zokit::measuredText(values).width() > half); // The next size would not fit.
    // What is drawn lies where it was measured.
    const QImage drawn = file.pictureModel()->getWatermark(frame.width(), frame.height(), false).toImage();
    const QRect place = rectOf(file, item);
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x)
            QVERIFY(qAlpha(drawn.pixel(x, y)) == 0 || place.contains(x, y));
    }
}

void TestKitPlacement::freePlaceIsTheNearest_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("wished");
    QTest::addColumn<QRect>("occupied");
    QTest::addColumn<QPoint>("found"); // Null: none.
    QTest::newRow("nothing in the way") << QSize(50, 20) << QPoint(100, 100) << QRect() << QPoint(100, 100);
    QTest::newRow("below what is there") << QSize(50, 20) << QPoint(100, 100) << QRect(100, 100, 50, 20)
                                         << QPoint(100, 120);
    QTest::newRow("above where nothing is below")
        << QSize(60, 20) << QPoint(100, 330) << QRect(100, 300, 80, 60) << QPoint(100, 280);
    QTest::newRow("beside what is as high as the frame")
        << QSize(60, 20) << QPoint(110, 100) << QRect(100, 0, 80, 360) << QPoint(180, 100);
    QTest::newRow("wished beyond the frame") << QSize(50, 20) << QPoint(-20, -10) << QRect() << QPoint(-20, -10);
    QTest::newRow("no room at all") << QSize(50, 20) << QPoint(1, 1) << QRect(0, 0, 640, 360) << QPoint();
    QTest::newRow("larger than the frame") << QSize(700, 20) << QPoint(1, 1) << QRect(0, 0, 10, 10) << QPoint();
}

void TestKitPlacement::freePlaceIsTheNearest()
{
    QFETCH(QSize, size);
    QFETCH(QPoint, wished);
    QFETCH(QRect, occupied);
    QFETCH(QPoint, found);
    const QVector<QRect> others = occupied.isEmpty() ? QVector<QRect>() : QVector<QRect>{occupied};
    const std::optional<QPoint> place = zokit::freePlace(size, wished, others, QSize(640, 360));
    QCOMPARE(place.has_value(), !found.isNull());
    QCOMPARE(place.value_or(QPoint()), found);
}

void TestKitPlacement::textIsMeasuredBeforeItIsPlaced()
{
    FileSettings file(clip());
    QVector<QRect> places;
    for (const char* text : {"a title", "a longer line\nand another one", "i", "the last one of four"}) {
        const Identity item =
            file.insert(key("Watermark"), {{key("wm_textcontent"), key(text)}, {key("wm_fontsize"), 40}}).item;
        const QRect place = rectOf(file, item);
        QVERIFY2(QRect(0, 0, 1280, 720).contains(place), text);
        for (const QRect& other : places)
            QVERIFY2(!other.intersects(place), text);
        places.append(place);
    }
    const Identity logo = file.insert(key("Watermark"), {{key("wm_imageurl"), logoPath(200, 100)}}).item;
    for (const QRect& other : places)
        QVERIFY(!other.intersects(rectOf(file, logo)));
}

void TestKitPlacement::cropKeepsToItsRule_data()
{
    QTest::addColumn<QRect>("wished");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<bool>("even");
    QTest::addColumn<QSize>("smallest");
    QTest::addColumn<QRect>("expected"); // In 640x360; empty: none.
    const QSize usual(24, 24);
    QTest::newRow("as wished") << QRect(10, 10, 100, 50) << 0.0 << false << usual << QRect(10, 10, 100, 50);
    QTest::newRow("beyond the frame") << QRect(-20, -10, 100, 50) << 0.0 << false << usual << QRect(0, 0, 80, 40);
    QTest::newRow("16:9 of a square") << QRect(0, 0, 100, 100) << 16.0 / 9 << false << usual << QRect(0, 22, 100, 56);
    QTest::newRow("a square of what lies") << QRect(0, 0, 200, 100) << 1.0 << false << usual << QRect(50, 0, 100, 100);
    QTest::newRow("even sides") << QRect(10, 10, 101, 51) << 0.0 << true << usual << QRect(11, 11, 100, 50);
    QTest::newRow("too small") << QRect(100, 100, 5, 5) << 0.0 << false << usual << QRect(91, 91, 24, 24);
    QTest::newRow("too small in the corner") << QRect(0, 0, 5, 5) << 0.0 << false << usual << QRect(0, 0, 24, 24);
    QTest::newRow("even and not below the smallest")
        << QRect(100, 100, 5, 5) << 0.0 << true << QSize(25, 25) << QRect(90, 90, 26, 26);
    QTest::newRow("drawn from right to left")
        << QRect(QPoint(109, 59), QPoint(10, 10)) << 0.0 << false << usual << QRect(10, 10, 100, 50);
    QTest::newRow("no room for the smallest") << QRect(0, 0, 100, 100) << 0.0 << false << QSize(700, 24) << QRect();
    QTest::newRow("no height for the smallest") << QRect(0, 0, 100, 100) << 0.0 << false << QSize(24, 400) << QRect();
    QTest::newRow("beside the frame") << QRect(2000, 2000, 50, 50) << 0.0 << false << QSize(0, 0) << QRect();
    QTest::newRow("beside the frame, and no height")
        << QRect(2000, 2000, 50, 50) << 0.0 << false << QSize(24, 0) << QRect();
    QTest::newRow("no room for the shape") << QRect(0, 0, 100, 100) << 100.0 << false << usual << QRect();
}

void TestKitPlacement::cropKeepsToItsRule()
{
    QFETCH(QRect, wished);
    QFETCH(double, ratio);
    QFETCH(bool, even);
    QFETCH(QSize, smallest);
    QFETCH(QRect, expected);
    const std::optional<QRect> crop = zokit::cropWithin(wished, QSize(640, 360), {ratio, even, smallest});
    QCOMPARE(crop.has_value(), !expected.isEmpty());
    QCOMPARE(crop.value_or(QRect()), expected);
}

void TestKitPlacement::everyCropKeepsToItsRule()
{
    QRandomGenerator random(7);
    int found = 0;
    for (int i = 0; i < 20000; ++i) {
        const QSize frame(random.bounded(1, 2000), random.bounded(1, 2000));
        const QRect wished(random.bounded(-500, 2500), random.bounded(-500, 2500), random.bounded(-300, 2500),
                           random.bounded(-300, 2500));
        const double ratio = random.bounded(2) == 0 ? 0 : 0.3 + random.bounded(3.0);
        const bool even = random.bounded(2) == 0;
        const std::optional<QRect> crop = zokit::cropWithin(wished, frame, {ratio, even, QSize(24, 24)});
        if (!crop)
            continue;
        ++found;
        QVERIFY(QRect(QPoint(0, 0), frame).contains(*crop));
        QVERIFY(crop->width() >= 24 && crop->height() >= 24);
        QVERIFY(!even || (crop->width() % 2 == 0 && crop->height() % 2 == 0));
        // Whole pixels move a side by a half, even ones by one more.
        const double pixel = even ? 1.5 : 0.5;
        const double off = std::abs(crop->width() - crop->height() * ratio);
        QVERIFY2(ratio == 0 || off <= pixel * (1 + ratio), qPrintable(QString::number(off)));
    }
    QVERIFY(found > 10000);
}

void TestKitPlacement::framesThatAreNoneScaleNothing()
{
    FileSettings file(clip());
    const zokit::Identity logo = file.insert(key("Watermark"), {{key("wm_imageurl"), logoPath(200, 100)}}).item;
    const zokit::Settings settings = file.settings();
    zokit::Settings none = zokit::rescaled(settings, QSize());
    QVERIFY(none.effects == settings.effects);
    QCOMPARE(none.media.frame, QSize());
    QVERIFY(zokit::rescaled(none, QSize(640, 360)).effects == settings.effects);
    QVERIFY(zokit::rescaled(settings, settings.media.frame) == settings);
    // An image of which the height is unknown.
    none = settings;
    none.find(key("Watermark"))->items[0].values.remove(key("wm_imageheight"));
    const Values scaled = zokit::rescaled(none, QSize(640, 360)).find(key("Watermark"))->items.at(0).values;
    QCOMPARE(scaled.value(key("wm_imagewidth")), QVariant(100));
    QVERIFY(!scaled.contains(key("wm_imageheight")));
    QCOMPARE(sizeOf(file, logo), QSize(200, 100));
}

void TestKitPlacement::roundingIsToldBefore_data()
{
    QTest::addColumn<Values>("watermark");
    QTest::addColumn<QRect>("crop");
    QTest::addColumn<QStringList>("sentences");
    const Values logo{{key("wm_imageurl"), logoPath(200, 100)}, {key("wm_vposition"), 100}};
    const auto at = [&](int left) {
        Values values = logo;
        values.insert(key("wm_hposition"), left);
        return values;
    };
    Values anchored{{key("wm_imageurl"), logoPath(200, 100)}};
    anchored.insert(key("anchor"), QVariantMap{{key("corner"), key("bottom-right")}});
    QTest::newRow("nothing moves") << at(300) << QRect() << QStringList();
    QTest::newRow("half a pixel") << at(301) << QRect()
                                  << QStringList{key("Watermark:0:wm_hposition: rounding to whole pixels makes 302 of "
                                                     "301 there and back.")};
    QTest::newRow("an anchor moves nothing") << anchored << QRect() << QStringList();
    QTest::newRow("a crop that is the whole frame") << at(300) << QRect(0, 0, 1280, 720) << QStringList();
    QTest::newRow("an odd crop") << at(300) << QRect(10, 20, 101, 200)
                                 << QStringList{key("Crop:crop_width: rounding to whole pixels makes 102 of 101 "
                                                    "there and back.")};
}

void TestKitPlacement::roundingIsToldBefore()
{
    QFETCH(Values, watermark);
    QFETCH(QRect, crop);
    QFETCH(QStringList, sentences);
    FileSettings file(clip());
    QVERIFY(file.insert(key("Watermark"), watermark).error.isEmpty());
    if (!crop.isEmpty())
        file.setValues(file.type(key("Crop")), {{key("crop_left"), crop.x()},
                                                {key("crop_top"), crop.y()},
                                                {key("crop_width"), crop.width()},
                                                {key("crop_height"), crop.height()}});
    const zokit::Settings before = file.settings();
    QStringList told;
    for (const zokit::Message& message : zokit::movedByRounding(before, QSize(640, 360)))
        told.append(message.text());
    QCOMPARE(told, sentences);
    // And so it comes.
    file.setMedia({before.media.file, QSize(640, 360), 5.0});
    file.setMedia(before.media);
    zokit::Settings after = file.settings();
    if (sentences.isEmpty() && crop.isEmpty())
        QVERIFY(after == before);
    else if (!sentences.isEmpty())
        QVERIFY(!(after == before));
}

ZOEFFECT_TEST_MAIN(TestKitPlacement)
#include "tst_kit_placement.moc"
