// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QtTest>

#include <zokit/filesettings.h>
#include <zokit/previewgeometry.h>

#include "kitsupport.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::CropRule;
using zokit::FileSettings;
using zokit::Handle;
using zokit::Identity;
using zokit::PreviewScene;
using zokit::PreviewView;
using zokit::Values;

Q_DECLARE_METATYPE(zokit::Handle)

class TestKitPreviewGeometry : public QObject {
    Q_OBJECT

private slots:
    void init() { clearSavedDefaults(); }

    void frameFitsInTheMiddle_data();
    void frameFitsInTheMiddle();
    void pointsMapThereAndBack();
    void zoomKeepsThePointUnderTheMouse();
    void zoomHasBounds_data();
    void zoomHasBounds();
    void scrollingLeavesNoGap_data();
    void scrollingLeavesNoGap();
    void handlesOfAScene_data();
    void handlesOfAScene();
    void pressTakes_data();
    void pressTakes();
    void cropIsDragged_data();
    void cropIsDragged();
    void wholeOddFrameStaysWhole();
    void cropIsDrawn_data();
    void cropIsDrawn();
    void watermarkIsDragged_data();
    void watermarkIsDragged();
    void edgesSnap_data();
    void edgesSnap();
    void arrowKeysStep_data();
    void arrowKeysStep();
    void ruleOfTheCropFollowsItsValues_data();
    void ruleOfTheCropFollowsItsValues();
    void placeOfAnImageTellsItsAnchor_data();
    void placeOfAnImageTellsItsAnchor();
    void textThatIsSizedHasNoSizeOfItsAnchor();
    void anchorKeepsItsSize_data();
    void anchorKeepsItsSize();
    void sizedTextKeepsTheOppositeCorner();
    void draggedIntoACornerStaysThereAtEachFrame();
    void sceneShowsTheFile();
    void sceneLeavesOutWhatIsNotSelected();
    void watermarksAreDrawnAgainWhenTheirLookChanges();
};

namespace {

constexpr Identity crop = 1;
constexpr Identity logo = 2;
constexpr Identity other = 3;

/// A frame of 1280x720 at half its size, from (10, 20).
PreviewView halfView()
{
    PreviewView view;
    view.frame = {1280, 720};
    view.size = {660, 400};
    view.scale = 0.5;
    view.offset = {10, 20};
    return view;
}

zokit::PreviewMark mark(Identity thing, const QRect& place, bool keepsShape = true)
{
    return {thing, place, QImage(place.size(), QImage::Format_RGBA8888), keepsShape};
}

/// A crop of 800x400 at (100, 100), a logo of 100x60 at (200, 200), another one
/// of 200x100 at (500, 300).
PreviewScene scene()
{
    PreviewScene scene;
    scene.frame = {1280, 720};
    scene.cropThing = crop;
    scene.crop = {100, 100, 800, 400};
    scene.marks = {mark(logo, {200, 200, 100, 60}), mark(other, {500, 300, 200, 100})};
    return scene;
}

QStringList texts(const QVector<zokit::SnapLine>& lines)
{
    QStringList result;
    for (const zokit::SnapLine& line : lines)
        result.append((line.orientation == Qt::Vertical ? key("x ") : key("y ")) + QString::number(line.at));
    return result;
}

/// An image watermark of 100x60 in a clip of 1280x720.
Identity addLogo(FileSettings& file, const Values& values = {})
{
    Values all{{key("wm_imageurl"), logoPath(100, 60)}, {key("wm_hposition"), 300}, {key("wm_vposition"), 300}};
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        all.insert(it.key(), it.value());
    return file.insert(key("Watermark"), all).item;
}

} // namespace

void TestKitPreviewGeometry::frameFitsInTheMiddle_data()
{
    QTest::addColumn<QSize>("frame");
    QTest::addColumn<double>("devicePixels");
    QTest::addColumn<double>("scale");
    QTest::addColumn<QPointF>("offset");
    QTest::newRow("as wide as the view") << QSize(1280, 720) << 1.0 << 0.5 << QPointF(10, 20);
    QTest::newRow("as high as the view") << QSize(380, 760) << 1.0 << 0.5 << QPointF(235, 10);
    QTest::newRow("small: magnified") << QSize(64, 36) << 1.0 << 10.0 << QPointF(10, 20);
    QTest::newRow("on a pixel of the screen") << QSize(1280, 723) << 1.0 << 0.5 << QPointF(10, 19);
    QTest::newRow("on one of two") << QSize(1280, 722) << 2.0 << 0.5 << QPointF(10, 19.5);
    QTest::newRow("no frame") << QSize(0, 0) << 1.0 << 1.0 << QPointF(330, 200);
}

void TestKitPreviewGeometry::frameFitsInTheMiddle()
{
    QFETCH(QSize, frame);
    QFETCH(double, devicePixels);
    QFETCH(double, scale);
    QFETCH(QPointF, offset);
    const PreviewView view = zokit::fitted(frame, {660, 400}, devicePixels, 10);
    QCOMPARE(view.scale, scale);
    QCOMPARE(view.offset, offset);
}

void TestKitPreviewGeometry::pointsMapThereAndBack()
{
    const PreviewView view = halfView();
    QCOMPARE(view.toView(QPointF(100, 40)), QPointF(60, 40));
    QCOMPARE(view.toFrame(QPointF(60, 40)), QPointF(100, 40));
    QCOMPARE(view.toView(QRectF(100, 40, 20, 10)), QRectF(60, 40, 10, 5));
    QCOMPARE(view.zoom(), 0.5);
}

void TestKitPreviewGeometry::zoomKeepsThePointUnderTheMouse()
{
    const PreviewView view = zokit::zoomed(halfView(), 1, {330, 200}, 10);
    QCOMPARE(view.offset, QPointF(-310, -160));
    QCOMPARE(view.toFrame(QPointF(330, 200)), QPointF(640, 360));
    // At a corner it goes as far as the frame reaches.
    QCOMPARE(zokit::zoomed(halfView(), 1, {0, 0}, 10).offset, QPointF(10, 10));
}

void TestKitPreviewGeometry::zoomHasBounds_data()
{
    QTest::addColumn<double>("wished");
    QTest::addColumn<double>("devicePixels");
    QTest::addColumn<double>("scale");
    QTest::newRow("100 %") << 1.0 << 1.0 << 1.0;
    QTest::newRow("100 % on a fine screen") << 1.0 << 2.0 << 0.5;
    QTest::newRow("far too large") << 1000.0 << 1.0 << 32.0;
    QTest::newRow("far too small") << 0.0 << 1.0 << 0.0625;
}

void TestKitPreviewGeometry::zoomHasBounds()
{
    QFETCH(double, wished);
    QFETCH(double, devicePixels);
    QFETCH(double, scale);
    PreviewView view = halfView();
    view.devicePixels = devicePixels;
    QCOMPARE(zokit::zoomed(view, wished, {330, 200}, 10).scale, scale);
}

void TestKitPreviewGeometry::scrollingLeavesNoGap_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<QPointF>("by");
    QTest::addColumn<QPointF>("offset");
    QTest::newRow("a little") << 1.0 << QPointF(-40, 30) << QPointF(-350, -130);
    QTest::newRow("to the right end") << 1.0 << QPointF(-5000, 0) << QPointF(-630, -160);
    QTest::newRow("to the upper end") << 1.0 << QPointF(0, 5000) << QPointF(-310, 10);
    QTest::newRow("smaller than the view") << 0.25 << QPointF(50, 50) << QPointF(170, 110);
}

void TestKitPreviewGeometry::scrollingLeavesNoGap()
{
    QFETCH(double, zoom);
    QFETCH(QPointF, by);
    QFETCH(QPointF, offset);
    const PreviewView view = zokit::zoomed(halfView(), zoom, {330, 200}, 10);
    QCOMPARE(zokit::scrolled(view, by, 10).offset, offset);
}

void TestKitPreviewGeometry::handlesOfAScene_data()
{
    QTest::addColumn<bool>("isCropped");
    QTest::addColumn<Identity>("chosen");
    QTest::addColumn<QString>("expected");
    // The number of each thing's handles that size, and of those that move.
    QTest::newRow("nothing cut off") << false << Identity(0) << key("crop 8, logo move, other move");
    QTest::newRow("cropped") << true << Identity(0) << key("crop 8, logo move, other move, crop move");
    QTest::newRow("a logo chosen") << true << logo << key("logo 4, crop 8, logo move, other move, crop move");
    QTest::newRow("the crop chosen") << true << crop << key("crop 8, logo move, other move, crop move");
    QTest::newRow("something gone chosen") << true << Identity(9) << key("crop 8, logo move, other move, crop move");
}

void TestKitPreviewGeometry::handlesOfAScene()
{
    QFETCH(bool, isCropped);
    QFETCH(Identity, chosen);
    QFETCH(QString, expected);
    PreviewScene shown = scene();
    shown.chosen = chosen;
    if (!isCropped)
        shown.crop = {0, 0, 1280, 720};
    const QStringList things{QString(), key("crop"), key("logo"), key("other")};
    QStringList found;
    int sizing = 0;
    const QVector<zokit::PreviewHandle> handles = zokit::previewHandles(shown, halfView());
    for (int row = 0; row < handles.size(); ++row) {
        const QString name = things.at(int(handles.at(row).thing));
        if (handles.at(row).handle == Handle::Move) {
            found.append(name + key(" move"));
            continue;
        }
        ++sizing;
        const zokit::PreviewHandle next = handles.value(row + 1);
        if (next.thing != handles.at(row).thing || next.handle == Handle::Move) {
            found.append(name + QLatin1Char(' ') + QString::number(sizing));
            sizing = 0;
        }
    }
    QCOMPARE(found.join(key(", ")), expected);
    QCOMPARE(zokit::previewHandles(PreviewScene(), halfView()).size(), 0);
}

void TestKitPreviewGeometry::pressTakes_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<Identity>("chosen");
    QTest::addColumn<Identity>("thing");
    QTest::addColumn<Handle>("handle");
    const Identity nothing = 0;
    QTest::newRow("a corner of the crop") << QPointF(60, 70) << nothing << crop << Handle::TopLeft;
    QTest::newRow("a bit beside a corner") << QPointF(52, 62) << nothing << crop << Handle::TopLeft;
    QTest::newRow("too far beside it") << QPointF(51, 61) << nothing << nothing << Handle::None;
    QTest::newRow("the middle of an edge") << QPointF(260, 270) << nothing << crop << Handle::Bottom;
    QTest::newRow("the bottom edge anywhere") << QPointF(150, 270) << nothing << crop << Handle::Bottom;
    QTest::newRow("an edge anywhere") << QPointF(150, 70) << nothing << crop << Handle::Top;
    QTest::newRow("the left edge") << QPointF(60, 150) << nothing << crop << Handle::Left;
    QTest::newRow("a bit inside an edge") << QPointF(456, 100) << nothing << crop << Handle::Right;
    QTest::newRow("further inside") << QPointF(455, 100) << nothing << crop << Handle::Move;
    QTest::newRow("a watermark") << QPointF(120, 130) << nothing << logo << Handle::Move;
    QTest::newRow("its corner") << QPointF(110, 120) << nothing << logo << Handle::Move;
    QTest::newRow("its corner when it is chosen") << QPointF(110, 120) << logo << logo << Handle::TopLeft;
    QTest::newRow("the crop as a whole") << QPointF(420, 240) << nothing << crop << Handle::Move;
    QTest::newRow("what is cut off") << QPointF(30, 40) << nothing << nothing << Handle::None;
    QTest::newRow("the surround") << QPointF(2, 2) << nothing << nothing << Handle::None;
}

void TestKitPreviewGeometry::pressTakes()
{
    QFETCH(QPointF, point);
    QFETCH(Identity, chosen);
    QFETCH(Identity, thing);
    QFETCH(Handle, handle);
    PreviewScene shown = scene();
    shown.chosen = chosen;
    const zokit::PreviewHandle found = zokit::handleAt(shown, halfView(), point);
    QCOMPARE(found.thing, thing);
    QCOMPARE(int(found.handle), int(handle));
}

void TestKitPreviewGeometry::cropIsDragged_data()
{
    QTest::addColumn<Handle>("handle");
    QTest::addColumn<QPoint>("by");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<bool>("even");
    QTest::addColumn<QRect>("expected");
    const double free = 0;
    QTest::newRow("moved") << Handle::Move << QPoint(10, -20) << free << false << QRect(110, 80, 800, 400);
    QTest::newRow("moved into the corner")
        << Handle::Move << QPoint(1000, 1000) << free << false << QRect(480, 320, 800, 400);
    QTest::newRow("left edge out") << Handle::Left << QPoint(-30, 50) << free << false << QRect(70, 100, 830, 400);
    QTest::newRow("left edge beyond the frame")
        << Handle::Left << QPoint(-200, 0) << free << false << QRect(0, 100, 900, 400);
    QTest::newRow("right edge to the smallest")
        << Handle::Right << QPoint(-900, 0) << free << false << QRect(100, 100, 24, 400);
    QTest::newRow("left edge to the smallest")
        << Handle::Left << QPoint(900, 0) << free << false << QRect(876, 100, 24, 400);
    QTest::newRow("upper left corner") << Handle::TopLeft << QPoint(50, 60) << free << false
                                       << QRect(150, 160, 750, 340);
    QTest::newRow("lower right corner beyond the frame")
        << Handle::BottomRight << QPoint(1000, 1000) << free << false << QRect(100, 100, 1180, 620);
    QTest::newRow("corner with a shape") << Handle::BottomRight << QPoint(100, 0) << 2.0 << false
                                         << QRect(100, 100, 900, 450);
    QTest::newRow("corner with a shape, beyond the frame")
        << Handle::BottomRight << QPoint(1000, 0) << 2.0 << false << QRect(100, 100, 1180, 590);
    QTest::newRow("upper right corner with a shape")
        << Handle::TopRight << QPoint(0, -50) << 2.0 << false << QRect(100, 50, 900, 450);
    QTest::newRow("edge with a shape: around the same middle")
        << Handle::Right << QPoint(100, 0) << 2.0 << false << QRect(100, 75, 900, 450);
    QTest::newRow("upper edge with a shape")
        << Handle::Top << QPoint(0, -100) << 2.0 << false << QRect(0, 0, 1000, 500);
    QTest::newRow("with a shape to the smallest")
        << Handle::BottomRight << QPoint(-5000, -5000) << 2.0 << false << QRect(100, 100, 48, 24);
    QTest::newRow("even sides") << Handle::BottomRight << QPoint(1, 3) << free << true << QRect(100, 100, 800, 402);
    QTest::newRow("nothing taken") << Handle::None << QPoint(10, 10) << free << false << QRect(100, 100, 800, 400);
}

void TestKitPreviewGeometry::cropIsDragged()
{
    QFETCH(Handle, handle);
    QFETCH(QPoint, by);
    QFETCH(double, ratio);
    QFETCH(bool, even);
    QFETCH(QRect, expected);
    CropRule rule;
    rule.ratio = ratio;
    rule.even = even;
    PreviewScene shown = scene();
    QCOMPARE(zokit::dragged(shown, crop, handle, by, 0, rule).place, expected);
    shown.cropThing = 9; // Whichever number a host gives it.
    QCOMPARE(zokit::dragged(shown, 9, handle, by, 0, rule).place, expected);
}

void TestKitPreviewGeometry::wholeOddFrameStaysWhole()
{
    PreviewScene shown = scene();
    shown.frame = QSize(853, 481);
    shown.crop = QRect(0, 0, 853, 400);
    CropRule rule;
    rule.even = true;
    QCOMPARE(zokit::dragged(shown, crop, Handle::Bottom, {0, 500}, 0, rule).place, QRect(0, 0, 853, 481));
    QCOMPARE(zokit::dragged(shown, crop, Handle::Bottom, {0, 79}, 0, rule).place, QRect(0, 0, 853, 478));
    QCOMPARE(zokit::dragged(shown, crop, Handle::Right, {-2, 0}, 0, rule).place, QRect(0, 0, 850, 400));
    shown.crop = QRect(2, 1, 400, 480);
    QCOMPARE(zokit::dragged(shown, crop, Handle::Right, {500, 0}, 0, rule).place, QRect(2, 1, 850, 480));
}

void TestKitPreviewGeometry::cropIsDrawn_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("down to the right") << QPoint(300, 200) << QPoint(500, 420) << 0.0 << QRect(300, 200, 200, 220);
    QTest::newRow("up to the left") << QPoint(300, 200) << QPoint(100, 50) << 0.0 << QRect(100, 50, 200, 150);
    QTest::newRow("down to the left") << QPoint(300, 200) << QPoint(100, 450) << 0.0 << QRect(100, 200, 200, 250);
    QTest::newRow("with a shape") << QPoint(300, 200) << QPoint(500, 210) << 2.0 << QRect(300, 200, 200, 100);
    QTest::newRow("no way at all") << QPoint(300, 200) << QPoint(300, 200) << 0.0 << QRect(300, 200, 24, 24);
    QTest::newRow("no room for the smallest")
        << QPoint(1280, 720) << QPoint(1280, 720) << 0.0 << QRect(1256, 696, 24, 24);
    QTest::newRow("along the lower edge") << QPoint(300, 720) << QPoint(500, 720) << 0.0 << QRect(300, 696, 200, 24);
    QTest::newRow("up along the right edge")
        << QPoint(1280, 500) << QPoint(1275, 100) << 0.0 << QRect(1256, 100, 24, 400);
    QTest::newRow("from and to beyond the frame")
        << QPoint(-50, -60) << QPoint(3000, 3000) << 0.0 << QRect(0, 0, 1280, 720);
}

void TestKitPreviewGeometry::cropIsDrawn()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(double, ratio);
    QFETCH(QRect, expected);
    CropRule rule;
    rule.ratio = ratio;
    QCOMPARE(zokit::drawnCrop(scene(), from, to, 0, rule).place, expected);
}

void TestKitPreviewGeometry::watermarkIsDragged_data()
{
    QTest::addColumn<Handle>("handle");
    QTest::addColumn<QPoint>("by");
    QTest::addColumn<bool>("keepsShape");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("moved") << Handle::Move << QPoint(-20, 30) << true << QRect(180, 230, 100, 60);
    QTest::newRow("a part of it stays at the left")
        << Handle::Move << QPoint(-1000, 0) << true << QRect(-92, 200, 100, 60);
    QTest::newRow("a part of it stays at the bottom")
        << Handle::Move << QPoint(0, 5000) << true << QRect(200, 712, 100, 60);
    QTest::newRow("larger, shape kept") << Handle::BottomRight << QPoint(100, 0) << true << QRect(200, 200, 200, 120);
    QTest::newRow("larger to the upper left")
        << Handle::TopLeft << QPoint(-50, -30) << true << QRect(150, 170, 150, 90);
    QTest::newRow("the smallest, shape kept")
        << Handle::BottomRight << QPoint(-1000, -1000) << true << QRect(200, 200, 13, 8);
    QTest::newRow("free of its shape") << Handle::BottomRight << QPoint(100, 0) << false << QRect(200, 200, 200, 60);
    QTest::newRow("the smallest") << Handle::TopLeft << QPoint(500, 500) << false << QRect(292, 252, 8, 8);
}

void TestKitPreviewGeometry::watermarkIsDragged()
{
    QFETCH(Handle, handle);
    QFETCH(QPoint, by);
    QFETCH(bool, keepsShape);
    QFETCH(QRect, expected);
    PreviewScene shown = scene();
    shown.marks.first().keepsShape = keepsShape;
    QCOMPARE(zokit::dragged(shown, logo, handle, by, 0).place, expected);
    shown.cropThing = 9;
    QCOMPARE(zokit::dragged(shown, logo, handle, by, 0).place, expected);
}

void TestKitPreviewGeometry::edgesSnap_data()
{
    QTest::addColumn<Identity>("thing");
    QTest::addColumn<Handle>("handle");
    QTest::addColumn<QPoint>("by");
    QTest::addColumn<double>("reach");
    QTest::addColumn<QRect>("expected");
    QTest::addColumn<QStringList>("lines");
    const QStringList none;
    QTest::newRow("to the margin") << logo << Handle::Move << QPoint(-170, 11) << 8.0 << QRect(26, 211, 100, 60)
                                   << QStringList{key("x 25.6")};
    QTest::newRow("to the margins of a corner")
        << logo << Handle::Move << QPoint(950, 442) << 8.0 << QRect(1154, 646, 100, 60)
        << QStringList{key("x 1254.4"), key("y 705.6")};
    QTest::newRow("to the edge of the frame")
        << logo << Handle::Move << QPoint(-205, 11) << 8.0 << QRect(0, 211, 100, 60) << QStringList{key("x 0")};
    QTest::newRow("to its middle") << logo << Handle::Move << QPoint(388, -71) << 8.0 << QRect(590, 129, 100, 60)
                                   << QStringList{key("x 640")};
    QTest::newRow("to the crop") << logo << Handle::Move << QPoint(-97, 11) << 8.0 << QRect(100, 211, 100, 60)
                                 << QStringList{key("x 100")};
    QTest::newRow("beside another one") << logo << Handle::Move << QPoint(497, 11) << 8.0 << QRect(700, 211, 100, 60)
                                        << QStringList{key("x 700")};
    QTest::newRow("the nearest one") << logo << Handle::Move << QPoint(-188, 11) << 20.0 << QRect(0, 211, 100, 60)
                                     << QStringList{key("x 0")};
    QTest::newRow("out of reach") << logo << Handle::Move << QPoint(-160, 11) << 8.0 << QRect(40, 211, 100, 60) << none;
    QTest::newRow("suspended") << logo << Handle::Move << QPoint(-174, 11) << 0.0 << QRect(26, 211, 100, 60) << none;
    QTest::newRow("an edge of the crop to the frame")
        << crop << Handle::Right << QPoint(375, 0) << 8.0 << QRect(100, 100, 1180, 400) << QStringList{key("x 1280")};
    QTest::newRow("an edge of the crop to a watermark")
        << crop << Handle::Right << QPoint(-205, 0) << 8.0 << QRect(100, 100, 600, 400) << QStringList{key("x 700")};
    QTest::newRow("the crop to the middle")
        << crop << Handle::Move << QPoint(143, 10) << 8.0 << QRect(240, 110, 800, 400) << QStringList{key("x 640")};
    QTest::newRow("a corner on both sides") << crop << Handle::TopLeft << QPoint(-97, -95) << 8.0
                                            << QRect(0, 0, 900, 500) << QStringList{key("x 0"), key("y 0")};
}

void TestKitPreviewGeometry::edgesSnap()
{
    QFETCH(Identity, thing);
    QFETCH(Handle, handle);
    QFETCH(QPoint, by);
    QFETCH(double, reach);
    QFETCH(QRect, expected);
    QFETCH(QStringList, lines);
    const zokit::Dragged result = zokit::dragged(scene(), thing, handle, by, reach);
    QCOMPARE(result.place, expected);
    QCOMPARE(texts(result.lines), lines);
}

void TestKitPreviewGeometry::arrowKeysStep_data()
{
    QTest::addColumn<int>("pressed");
    QTest::addColumn<bool>("withShift");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("left") << int(Qt::Key_Left) << false << QPoint(-1, 0);
    QTest::newRow("right with Shift") << int(Qt::Key_Right) << true << QPoint(10, 0);
    QTest::newRow("up with Shift") << int(Qt::Key_Up) << true << QPoint(0, -10);
    QTest::newRow("down") << int(Qt::Key_Down) << false << QPoint(0, 1);
    QTest::newRow("another key") << int(Qt::Key_A) << false << QPoint(0, 0);
}

void TestKitPreviewGeometry::arrowKeysStep()
{
    QFETCH(int, pressed);
    QFETCH(bool, withShift);
    QFETCH(QPoint, expected);
    QCOMPARE(zokit::keyStep(pressed, withShift ? Qt::ShiftModifier : Qt::NoModifier), expected);
}

void TestKitPreviewGeometry::ruleOfTheCropFollowsItsValues_data()
{
    QTest::addColumn<bool>("keepsShape");
    QTest::addColumn<QString>("shape");
    QTest::addColumn<double>("expected");
    QTest::newRow("free") << false << key("16:9") << 0.0;
    QTest::newRow("free by its name") << true << key("Crop Area") << 0.0;
    QTest::newRow("shape of the frame") << true << key("Original Ratio") << 16.0 / 9;
    QTest::newRow("whole frame") << true << key("Original") << 16.0 / 9;
    QTest::newRow("shape of the rectangle") << true << key("Crop Ratio") << 2.0;
    QTest::newRow("a ratio") << true << key("4:3") << 4.0 / 3;
}

void TestKitPreviewGeometry::ruleOfTheCropFollowsItsValues()
{
    QFETCH(bool, keepsShape);
    QFETCH(QString, shape);
    QFETCH(double, expected);
    FileSettings file(clip());
    Values values = zokit::cropValues({100, 100, 800, 400});
    values.insert(key("crop_keepaspectratio"), keepsShape);
    values.insert(key("crop_aspectratio"), shape);
    values.insert(key("crop_minheight"), 40);
    QVERIFY(file.setValues(file.type(key("Crop")), values).isEmpty());
    const CropRule rule = zokit::cropRule(file);
    QCOMPARE(rule.ratio, expected);
    QCOMPARE(rule.smallest, QSize(24, 40));
    QVERIFY(rule.even);
    PreviewScene shown = scene();
    shown.cropThing = file.type(key("Crop"));
    const zokit::HandleDrag drag(file, shown, shown.cropThing, Handle::Left);
    if (!keepsShape) {
        QCOMPARE(drag.to({7, 0}, 0.5).place, QRect(108, 100, 792, 400));
        QCOMPARE(drag.to({7, 0}, 0).place, QRect(107, 100, 793, 400)); // By each pixel.
    }
    for (const char* odd : {"yuv444p", "gray"}) {
        QVERIFY(file.setValue(file.output(), key("pixel-format"), key(odd)).isEmpty());
        QVERIFY(!zokit::cropRule(file).even);
    }
    if (!keepsShape)
        QCOMPARE(zokit::HandleDrag(file, shown, shown.cropThing, Handle::Left).to({7, 0}, 0.5).place,
                 QRect(107, 100, 793, 400));
    QVERIFY(file.setValue(file.output(), key("pixel-format"), key("source")).isEmpty());
    QVERIFY(zokit::cropRule(file).even);
    FileSettings ofSound(zokit::Media{key("/a.wav"), QSize(), 5.0});
    QVERIFY(ofSound.setValue(ofSound.type(key("Crop")), key("crop_keepaspectratio"), keepsShape).isEmpty());
    QCOMPARE(zokit::cropRule(ofSound).ratio, 0.0); // A frame that is none has no shape.
}

void TestKitPreviewGeometry::placeOfAnImageTellsItsAnchor_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QString>("corner");
    QTest::addColumn<QVariant>("margin");
    QTest::newRow("nowhere") << QPoint(300, 310) << QString() << QVariant();
    QTest::newRow("in a corner") << QPoint(26, 14) << key("top-left") << QVariant(key("2%"));
    QTest::newRow("in the lower right corner") << QPoint(1154, 646) << key("bottom-right") << QVariant(key("2%"));
    QTest::newRow("flush in a corner") << QPoint(1180, 0) << key("top-right") << QVariant(0.0);
    QTest::newRow("at the middle of an edge") << QPoint(590, 646) << key("bottom") << QVariant(key("2%"));
    QTest::newRow("in the middle") << QPoint(590, 330) << key("centre") << QVariant(key("2%"));
    QTest::newRow("flush on one side alone") << QPoint(0, 310) << QString() << QVariant();
    QTest::newRow("flush and with a margin") << QPoint(0, 14) << QString() << QVariant();
}

void TestKitPreviewGeometry::placeOfAnImageTellsItsAnchor()
{
    QFETCH(QPoint, place);
    QFETCH(QString, corner);
    QFETCH(QVariant, margin);
    FileSettings file(clip());
    const Identity item = addLogo(file, {{key("anchor"), QVariantMap{{key("corner"), key("left")}}}});
    const Values values =
        zokit::watermarkValues(file.values(item), Handle::Move, QRect(place, QSize(100, 60)), {1280, 720});
    QVERIFY(file.setValues(item, values).isEmpty());
    QCOMPARE(placeOf(file, item), place);
    const QVariantMap anchor = file.value(item, key("anchor")).toMap();
    QCOMPARE(anchor.value(key("corner")).toString(), corner);
    QCOMPARE(anchor.value(key("margin")), margin);
}

void TestKitPreviewGeometry::textThatIsSizedHasNoSizeOfItsAnchor()
{
    const Values text{{key("wm_istextwatermark"), true},
                      {key("wm_fontsize"), 40},
                      {key("anchor"), QVariantMap{{key("corner"), key("bottom-right")}, {key("size"), key("10%")}}}};
    const Values sized = zokit::watermarkValues(text, Handle::TopLeft, {998, 552, 256, 154}, {1280, 720});
    QCOMPARE(sized.value(key("anchor")).toMap().value(key("corner")), QVariant(key("bottom-right")));
    QVERIFY(!sized.value(key("anchor")).toMap().contains(key("size")));
}

void TestKitPreviewGeometry::anchorKeepsItsSize_data()
{
    QTest::addColumn<Handle>("handle");
    QTest::addColumn<QRect>("place");
    QTest::addColumn<QVariant>("size");
    QTest::newRow("moved to another corner") << Handle::Move << QRect(26, 14, 128, 77) << QVariant(key("10%"));
    QTest::newRow("sized in its corner") << Handle::TopLeft << QRect(998, 552, 256, 154) << QVariant(key("20%"));
    QTest::newRow("sized to more than the frame") << Handle::TopLeft << QRect(-156, -86, 1410, 792) << QVariant();
    QTest::newRow("sized to less than a hundredth") << Handle::TopLeft << QRect(1244, 700, 10, 6) << QVariant();
    QTest::newRow("sized out of it") << Handle::BottomRight << QRect(300, 300, 256, 154) << QVariant();
}

void TestKitPreviewGeometry::anchorKeepsItsSize()
{
    QFETCH(Handle, handle);
    QFETCH(QRect, place);
    QFETCH(QVariant, size);
    FileSettings file(clip());
    const Identity item =
        addLogo(file, {{key("anchor"), QVariantMap{{key("corner"), key("bottom-right")}, {key("size"), key("10%")}}}});
    QCOMPARE(sizeOf(file, item), QSize(128, 77));
    QVERIFY(file.setValues(item, zokit::watermarkValues(file.values(item), handle, place, {1280, 720})).isEmpty());
    QCOMPARE(file.value(item, key("anchor")).toMap().value(key("size")), size);
    QCOMPARE(QRect(placeOf(file, item), sizeOf(file, item)), place);
}

void TestKitPreviewGeometry::sizedTextKeepsTheOppositeCorner()
{
    FileSettings file(clip());
    const Identity item = file.insert(key("Watermark"), {{key("wm_textcontent"), key("Hello")},
                                                         {key("wm_fontsize"), 20},
                                                         {key("wm_hposition"), 300},
                                                         {key("wm_vposition"), 300}})
                              .item;
    const QRect before(placeOf(file, item), zokit::watermarkSize(file.values(item)));
    const QRect twice(before.topLeft() - QPoint(before.width(), before.height()), 2 * before.size());
    QVERIFY(
        file.setValues(item, zokit::watermarkValues(file.values(item), Handle::TopLeft, twice, {1280, 720})).isEmpty());
    QCOMPARE(file.value(item, key("wm_fontsize")), QVariant(40));
    const QRect after(placeOf(file, item), zokit::watermarkSize(file.values(item)));
    QCOMPARE(after.bottomRight(), before.bottomRight());
    QVERIFY(!file.values(item).contains(key("wm_imagewidth")));
    const QSize halfSize = after.size() / 2;
    const QRect half(after.bottomLeft() + QPoint(0, 1 - halfSize.height()), halfSize);
    QVERIFY(
        file.setValues(item, zokit::watermarkValues(file.values(item), Handle::TopRight, half, {1280, 720})).isEmpty());
    const QRect again(placeOf(file, item), zokit::watermarkSize(file.values(item)));
    QCOMPARE(again.bottomLeft(), after.bottomLeft());
    QCOMPARE(file.value(item, key("wm_fontsize")), QVariant(20));
    const QRect wider(again.topLeft() - QPoint(again.width(), 0), 2 * again.size());
    QVERIFY(file.setValues(item, zokit::watermarkValues(file.values(item), Handle::BottomLeft, wider, {1280, 720}))
                .isEmpty());
    QCOMPARE(QRect(placeOf(file, item), zokit::watermarkSize(file.values(item))).topRight(), again.topRight());
    QCOMPARE(file.value(item, key("wm_fontsize")), QVariant(40));
}

void TestKitPreviewGeometry::draggedIntoACornerStaysThereAtEachFrame()
{
    FileSettings file(clip());
    const Identity item = addLogo(file);
    zokit::WatermarkPictures pictures;
    pictures.update(file);
    const PreviewScene shown = zokit::previewScene(file, pictures);
    const zokit::Dragged result = zokit::dragged(shown, item, Handle::Move, {857, 349}, 8);
    QVERIFY(file.setValues(item, zokit::watermarkValues(file.values(item), Handle::Move, result.place, shown.frame))
                .isEmpty());
    file.setMedia({key("/b.mkv"), QSize(640, 360), 1.0});
    const QRect place(placeOf(file, item), sizeOf(file, item));
    QCOMPARE(place.right() + 1, 627); // 2 % of 640 are 12.8, and of 360 7.2.
    QCOMPARE(place.bottom() + 1, 353);
}

void TestKitPreviewGeometry::sceneShowsTheFile()
{
    FileSettings file(clip());
    const Identity second = addLogo(file);
    const Identity first = addLogo(file, {{key("wm_imagekeepratio"), false}, {key("wm_hposition"), -40}});
    file.move(first, 0);
    file.setValues(file.type(key("Crop")), zokit::cropValues({100, 50, 800, 400}));
    zokit::WatermarkPictures pictures;
    pictures.update(file);
    const PreviewScene shown = zokit::previewScene(file, pictures);
    QCOMPARE(shown.frame, QSize(1280, 720));
    QCOMPARE(shown.cropThing, file.type(key("Crop")));
    QCOMPARE(shown.crop, QRect(100, 50, 800, 400));
    QCOMPARE(shown.marks.size(), 2);
    QCOMPARE(shown.marks.at(0).thing, first);
    QCOMPARE(shown.marks.at(0).place, QRect(-40, 300, 100, 60));
    QCOMPARE(shown.marks.at(0).picture.size(), QSize(100, 60));
    const Identity text = file.insert(key("Watermark"), {{key("wm_textcontent"), key("Hello")}}).item;
    pictures.update(file);
    const PreviewScene withText = zokit::previewScene(file, pictures);
    QCOMPARE(withText.marks.last().thing, text);
    QVERIFY(withText.marks.last().keepsShape); // Letters have one.
    QVERIFY(!shown.marks.at(0).keepsShape);
    QVERIFY(shown.marks.at(1).keepsShape);
    QCOMPARE(shown.place(second), QRect(300, 300, 100, 60));
    QVERIFY(!shown.place(4711).isValid());
}

void TestKitPreviewGeometry::sceneLeavesOutWhatIsNotSelected()
{
    FileSettings file(clip());
    const Identity item = addLogo(file);
    file.insert(key("Watermark"), {{key("wm_textcontent"), QString()}});
    file.setValues(file.type(key("Crop")), zokit::cropValues({100, 50, 800, 400}));
    file.setValue(file.type(key("Crop")), key("selected"), false);
    const auto marks = [&file] {
        zokit::WatermarkPictures pictures;
        pictures.update(file);
        return zokit::previewScene(file, pictures).marks.size();
    };
    QCOMPARE(zokit::previewScene(file, {}).crop, QRect(0, 0, 1280, 720));
    QCOMPARE(marks(), 1); // An empty text shows nothing.
    file.setValue(item, key("selected"), false);
    QCOMPARE(marks(), 0);
    file.setValue(item, key("selected"), true);
    file.setValue(file.type(key("Watermark")), key("selected"), false);
    QCOMPARE(marks(), 0);
}

void TestKitPreviewGeometry::watermarksAreDrawnAgainWhenTheirLookChanges()
{
    FileSettings file(clip());
    const Identity item = addLogo(file);
    zokit::WatermarkPictures pictures;
    pictures.update(file);
    const qint64 drawn = pictures.picture(item).cacheKey();
    QCOMPARE(qAlpha(pictures.picture(item).pixel(50, 30)), 254); // 100 times 2.55, cut off.
    file.setValue(item, key("wm_hposition"), 700);
    pictures.update(file);
    QCOMPARE(pictures.picture(item).cacheKey(), drawn);
    file.setValue(item, key("wm_transparency"), 60);
    pictures.update(file);
    QCOMPARE(qAlpha(pictures.picture(item).pixel(50, 30)), 102);
    file.remove(item);
    pictures.update(file);
    QVERIFY(pictures.picture(item).isNull());
}

ZOEFFECT_TEST_MAIN(TestKitPreviewGeometry)
#include "tst_kit_previewgeometry.moc"
