// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QPainter>
#include <QRandomGenerator>
#include <QtTest>

#include <zokit/frames.h>
#include <zokit/previewgeometry.h>

#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;
using kitsupport::stepsOr;
using zokit::Handle;
using zokit::Identity;
using zokit::PreviewScene;
using zokit::PreviewView;

class TestKitPreviewPaint : public QObject {
    Q_OBJECT

private slots:
    void partsArePaintedInTheirPlaces_data();
    void partsArePaintedInTheirPlaces();
    void withoutHandlesThereAreNone();
    void watermarkOnTopIsTheFirst();
    void lostWatermarkIsMarked();
    void snapLineIsShown();
    void magnifiedPixelsHaveHardEdgesUnlessSmoothed();
    void withoutAPictureTheFrameIsGrey();
    void outputCoversWhatIsKept();
    void pictureIsScaledOnce_data();
    void pictureIsScaledOnce();
    void nothingChangesNothing();
    void pictureOfNoFrameIsNone();
    void otherFrameChangesAll();
    void shapeThatIsKeptChangesTheHandles();
    void movedWatermarkChangesItsPlaces();
    void changedRegionIsEnough_data();
    void changedRegionIsEnough();
};

namespace {

constexpr Identity crop = 1;

QImage filled(const QSize& size, const QColor& colour)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(colour);
    return image;
}

/// A frame of 200x100 in a view of 240x140, pixel for pixel, from (20, 20). Its
/// left half is cut off; a blue watermark of 40x20 stands at (120, 40) in the
/// frame, a red one below of it and half under it.
struct Shown {
    Shown()
    {
        view.frame = {200, 100};
        view.size = {240, 140};
        view.offset = {20, 20};
        scene.frame = view.frame;
        scene.cropThing = crop;
        scene.crop = {100, 0, 100, 100};
        scene.marks = {{2, {120, 40, 40, 20}, filled({40, 20}, Qt::blue), true},
                       {3, {120, 50, 40, 20}, filled({40, 20}, Qt::red), true}};
    }

    QImage painted(const QRegion& clip = QRegion(), const QImage& on = QImage()) const
    {
        QImage image = on.isNull() ? filled(view.size * view.devicePixels, Qt::green) : on;
        image.setDevicePixelRatio(view.devicePixels);
        QPainter painter(&image);
        if (!clip.isEmpty())
            painter.setClipRegion(clip);
        zokit::paintPreview(painter, scene, view, frames, look);
        return image;
    }

    PreviewView view;
    PreviewScene scene;
    zokit::PreviewFrames frames{filled({200, 100}, Qt::white).convertToFormat(QImage::Format_RGB32), QImage()};
    zokit::PreviewLook look;
};

} // namespace

void TestKitPreviewPaint::partsArePaintedInTheirPlaces_data()
{
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("surround") << QPoint(2, 2) << QColor(0x8c, 0x8c, 0x8c);
    QTest::newRow("next square of the surround") << QPoint(10, 2) << QColor(0x78, 0x78, 0x78);
    QTest::newRow("surround below") << QPoint(230, 130) << QColor(0x8c, 0x8c, 0x8c);
    QTest::newRow("cut off") << QPoint(60, 45) << QColor(95, 95, 95);
    QTest::newRow("kept") << QPoint(205, 45) << QColor(Qt::white);
    QTest::newRow("watermark") << QPoint(160, 65) << QColor(Qt::blue);
    QTest::newRow("line around the crop") << QPoint(127, 20) << QColor(Qt::yellow);
    QTest::newRow("handle") << QPoint(120, 20) << QColor(Qt::white);
    QTest::newRow("its rim") << QPoint(116, 16) << QColor(Qt::black);
}

void TestKitPreviewPaint::partsArePaintedInTheirPlaces()
{
    QFETCH(QPoint, at);
    QFETCH(QColor, expected);
    QCOMPARE(Shown().painted().pixelColor(at), expected);
}

void TestKitPreviewPaint::withoutHandlesThereAreNone()
{
    Shown shown;
    shown.look.withHandles = false;
    QCOMPARE(shown.painted().pixelColor(116, 16), QColor(0x8c, 0x8c, 0x8c));
    QCOMPARE(shown.painted().pixelColor(140, 60), QColor(Qt::blue));
    QCOMPARE(shown.painted().pixelColor(139, 60),
             QColor(Qt::white)); // No frame around it.
}

void TestKitPreviewPaint::watermarkOnTopIsTheFirst()
{
    Shown shown;
    shown.look.withHandles = false;
    QCOMPARE(shown.painted().pixelColor(160, 75), QColor(Qt::blue));
    QCOMPARE(shown.painted().pixelColor(160, 85), QColor(Qt::red));
    std::swap(shown.scene.marks[0], shown.scene.marks[1]);
    QCOMPARE(shown.painted().pixelColor(160, 75), QColor(Qt::red));
}

void TestKitPreviewPaint::lostWatermarkIsMarked()
{
    Shown shown;
    shown.scene.chosen = 2;
    shown.scene.marks.removeLast();
    QCOMPARE(shown.painted().pixelColor(160, 59), QColor(Qt::white));
    shown.scene.marks[0].place.moveLeft(40);
    QCOMPARE(shown.painted().pixelColor(80, 59), QColor(255, 140, 0));
}

void TestKitPreviewPaint::snapLineIsShown()
{
    Shown shown;
    shown.scene.snapLines = {{Qt::Vertical, 180}, {Qt::Horizontal, 10}};
    QCOMPARE(shown.painted().pixelColor(200, 100), QColor(255, 0, 220));
    QCOMPARE(shown.painted().pixelColor(210, 30), QColor(255, 0, 220));
    QCOMPARE(shown.painted().pixelColor(201, 100), QColor(Qt::white));
}

void TestKitPreviewPaint::magnifiedPixelsHaveHardEdgesUnlessSmoothed()
{
    Shown shown;
    shown.scene = PreviewScene();
    shown.scene.frame = shown.view.frame = {2, 1};
    shown.scene.crop = {0, 0, 2, 1};
    shown.look.withHandles = false;
    shown.view.scale = 100;
    shown.frames.whole = QImage(2, 1, QImage::Format_RGB32);
    shown.frames.whole.setPixelColor(0, 0, Qt::black);
    shown.frames.whole.setPixelColor(1, 0, Qt::white);
    shown.view.isSmoothed = false;
    QCOMPARE(shown.painted().pixelColor(110, 70), QColor(Qt::black));
    QCOMPARE(shown.painted().pixelColor(130, 70), QColor(Qt::white));
    shown.view.isSmoothed = true;
    QVERIFY(shown.painted().pixelColor(110, 70).red() > 20);
    QVERIFY(shown.painted().pixelColor(130, 70).red() < 235);
}

void TestKitPreviewPaint::withoutAPictureTheFrameIsGrey()
{
    Shown shown;
    shown.frames.whole = QImage();
    QCOMPARE(shown.painted().pixelColor(205, 45), QColor(64, 64, 64));
}

void TestKitPreviewPaint::outputCoversWhatIsKept()
{
    Shown shown;
    shown.look.withHandles = false;
    shown.frames.output = filled({50, 50}, Qt::green); // It comes out at half the size.
    shown.scene.marks.first().place.moveLeft(80);      // Half of it is cut off.
    const QImage image = shown.painted();
    QCOMPARE(image.pixelColor(110, 65), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(130, 65), QColor(Qt::green));
    QCOMPARE(image.pixelColor(215, 115), QColor(Qt::green));
    QCOMPARE(image.pixelColor(60, 45), QColor(95, 95, 95));
}

void TestKitPreviewPaint::pictureIsScaledOnce_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("devicePixels");
    QTest::addColumn<QSize>("expected");
    QTest::newRow("half the size") << 0.5 << 1.0 << QSize(100, 50);
    QTest::newRow("half the size on a fine screen") << 0.5 << 2.0 << QSize(200, 100);
    QTest::newRow("100 %") << 1.0 << 1.0 << QSize(200, 100);
    QTest::newRow("no size: itself") << 0.0 << 1.0 << QSize(200, 100);
    QTest::newRow("magnified: itself") << 4.0 << 1.0 << QSize(200, 100);
}

void TestKitPreviewPaint::pictureIsScaledOnce()
{
    QFETCH(double, scale);
    QFETCH(double, devicePixels);
    QFETCH(QSize, expected);
    Shown shown;
    shown.view.scale = scale;
    shown.view.devicePixels = devicePixels;
    const QImage scaled = zokit::scaledFor(shown.view, shown.frames.whole);
    QCOMPARE(scaled.size(), expected);
    QCOMPARE(scaled.format(), QImage::Format_RGB32);
    const QImage other = shown.frames.whole.convertToFormat(QImage::Format_RGB888);
    QCOMPARE(zokit::scaledFor(shown.view, other).format(), QImage::Format_RGB32);
}

void TestKitPreviewPaint::nothingChangesNothing()
{
    const Shown shown;
    QVERIFY(zokit::changedRegion(shown.scene, shown.scene, shown.view).isEmpty());
}

void TestKitPreviewPaint::pictureOfNoFrameIsNone()
{
    QVERIFY(zokit::previewPicture(zokit::Settings(), QImage()).isNull());
}

void TestKitPreviewPaint::otherFrameChangesAll()
{
    const Shown shown;
    PreviewScene after = shown.scene;
    after.frame = {100, 200};
    QCOMPARE(zokit::changedRegion(shown.scene, after, shown.view), QRegion(0, 0, 240, 140));
}

void TestKitPreviewPaint::shapeThatIsKeptChangesTheHandles()
{
    const Shown shown;
    PreviewScene after = shown.scene;
    after.marks.last().keepsShape = !after.marks.last().keepsShape;
    QVERIFY(zokit::changedRegion(shown.scene, after, shown.view).contains(QRect(140, 70, 40, 20)));
}

void TestKitPreviewPaint::movedWatermarkChangesItsPlaces()
{
    const Shown shown;
    PreviewScene after = shown.scene;
    after.marks.last().place.moveTo(20, 10);
    const QRegion region = zokit::changedRegion(shown.scene, after, shown.view);
    QVERIFY(region.contains(QRect(140, 70, 40, 20)));
    QVERIFY(region.contains(QRect(40, 30, 40, 20)));
    QVERIFY(!region.contains(QPoint(100, 60)));
    QVERIFY(!region.intersects(QRect(190, 20, 50, 120)));
}

void TestKitPreviewPaint::changedRegionIsEnough_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("devicePixels");
    QTest::newRow("100 %") << 1.0 << 1.0;
    QTest::newRow("smaller") << 0.7 << 1.0;
    QTest::newRow("magnified") << 2.3 << 1.0;
    QTest::newRow("on a fine screen") << 0.7 << 2.0;
}

/// What is painted anew where two scenes differ gives the picture that painting
/// all gives.
void TestKitPreviewPaint::changedRegionIsEnough()
{
    QFETCH(double, scale);
    QFETCH(double, devicePixels);
    QRandomGenerator random(20261122);
    Shown shown;
    shown.view.scale = scale;
    shown.view.devicePixels = devicePixels;
    shown.view.isSmoothed = false;
    shown.frames.whole = zokit::scaledFor(shown.view, shown.frames.whole);
    QImage screen = shown.painted();
    for (int step = 0; step < stepsOr("ZOKIT_STEPS", 300); ++step) {
        const PreviewScene before = shown.scene;
        const Identity thing = Identity(random.bounded(3)) + 1;
        const Handle handle = Handle(1 + random.bounded(9));
        const QPoint by(random.bounded(-30, 31), random.bounded(-30, 31));
        const zokit::Dragged moved = zokit::dragged(before, thing, handle, by, random.bounded(2) * 6.0);
        shown.scene.chosen = Identity(random.bounded(4));
        shown.scene.snapLines = moved.lines;
        if (thing == crop)
            shown.scene.crop = moved.place;
        else
            shown.scene.marks[int(thing) - 2].place = moved.place;
        const QRegion changed = zokit::changedRegion(before, shown.scene, shown.view);
        if (!changed.isEmpty())
            screen = shown.painted(changed, screen);
        const QImage whole = shown.painted();
        if (screen != whole)
            QFAIL(qPrintable(key("step %1").arg(step)));
    }
}

ZOEFFECT_TEST_MAIN(TestKitPreviewPaint)
#include "tst_kit_previewpaint.moc"
