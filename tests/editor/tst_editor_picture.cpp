// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QtTest>
#include <QtWidgets>

#include <zokit/filesettings.h>
#include <zokit/history.h>

#include <pictureview.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;
using zoeditor::PictureView;
using zokit::Handle;

class TestEditorPicture : public QObject {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void handlesAreThereForWhoListensFromTheBeginning(); // The first of all: later ones are known by their kind.
    void outputFollowsSoonAfterAStandIn();
    void edgeOfTheCropIsDragged();
    void clickCutsNothingOff();
    void newCropIsDrawnAnywhere_data();
    void newCropIsDrawnAnywhere();
    void escapeTakesADragBack();
    void undoEndsADrag();
    void soundHasNoPicture();
    void watermarkDraggedIntoACornerIsHeldThere();
    void altSuspendsSnapping();
    void chosenWatermarkIsSizedByItsCorner();
    void keysDragByPixels();
    void heldKeyIsOneStep();
    void tabGoesFromHandleToHandle();
    void keysMoveTheLineBetweenBeforeAndAfter();
    void keysPushAPictureThatIsLarger();
    void handleThatKeysTakeIsSeen();
    void numbersAndHandlesAreOneValue();
    void pixelsAreMagnifiedWhileAnEdgeIsDragged();
    void zoomStepsAndFits();
    void splitShowsBeforeAndAfter();
    void beforeHasNoHandles();
    void watermarkOutsideTheCropIsToldOf();
    void handlesAreAccessible();
    void edgesAreAccessibleValues();
    void lineBetweenBeforeAndAfterIsAccessible();
};

namespace {

/// The editor with one clip of 160x120, whose crop is free of a shape.
struct Scene : Stage {
    Scene() : Stage({clips::clip(key("plain.mp4"))}), picture(find<PictureView>("pictureView")), settings(file(0))
    {
        settings->setValue(crop(), key("crop_keepaspectratio"), false);
        waitForOutput();
        QVERIFY2(picture->view().scale > 1, "The window is too small for what is tested here");
    }

    zokit::Identity crop() const { return settings->type(key("Crop")); }

    QRect cropNow() const
    {
        const auto number = [this](const char* name) { return settings->value(crop(), key(name)).toInt(); };
        return {number("crop_left"), number("crop_top"), number("crop_width"), number("crop_height")};
    }

    void setCrop(const QRect& rectangle) const { settings->setValues(crop(), zokit::cropValues(rectangle)); }

    zokit::Identity addLogo(const QPoint& place) const
    {
        return settings
            ->insert(key("Watermark"), {{key("wm_imageurl"), kitsupport::logoPath(20, 12)},
                                        {key("wm_hposition"), place.x()},
                                        {key("wm_vposition"), place.y()}})
            .item;
    }

    /// What is shown is what comes out.
    void waitForOutput() const
    {
        QVERIFY(QTest::qWaitFor([this] { return !picture->isStandIn(); }, 30000));
    }

    /// A point of the frame, in the view.
    QPoint point(double x, double y) const { return picture->view().toView(QPointF(x, y)).toPoint(); }

    void press(const QPoint& place, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::mousePress(picture, Qt::LeftButton, modifiers, place);
    }

    void move(const QPoint& place, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QMouseEvent event(QEvent::MouseMove, place, picture->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                          modifiers);
        QCoreApplication::sendEvent(picture, &event);
    }

    void release(const QPoint& place) const { QTest::mouseRelease(picture, Qt::LeftButton, Qt::NoModifier, place); }

    /// Dragged in three steps; snapping would depend on the size of the window.
    void drag(const QPoint& from, const QPoint& to, Qt::KeyboardModifiers modifiers = Qt::AltModifier) const
    {
        press(from, modifiers);
        move(from + (to - from) / 3, modifiers);
        move(from + (to - from) / 2, modifiers);
        move(to, modifiers);
        release(to);
    }

    /// The handle of that name becomes the one that keys drag.
    void takeHandle(const QString& name) const
    {
        for (const zokit::PreviewHandle& handle : picture->handles()) {
            if (picture->handleName(handle) == name)
                picture->setCurrentHandle(handle);
        }
        picture->setFocus();
    }

    QImage grabbed() const { return picture->grab().toImage(); }

    PictureView* picture;
    zokit::FileSettings* settings;
};

void sendKey(QWidget* widget, QEvent::Type type, int pressed, bool isRepeated,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent event(type, pressed, modifiers, QString(), isRepeated);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

void TestEditorPicture::handlesAreThereForWhoListensFromTheBeginning()
{
    QAccessible::setActive(true); // A screen reader looks at whatever is told of.
    const auto before =
        QAccessible::installUpdateHandler([](QAccessibleEvent* event) { event->accessibleInterface(); });
    const Scene scene;
    QAccessible::installUpdateHandler(before);
    QAccessible::setActive(false);
    QCOMPARE(QAccessible::queryAccessibleInterface(scene.picture)->childCount(), 8);
}

void TestEditorPicture::outputFollowsSoonAfterAStandIn()
{
    const Scene scene;
    const QColor before = scene.grabbed().pixelColor(scene.point(80, 60));
    scene.settings->setValue(scene.settings->type(key("Color")), key("bcs_brightness"), 40);
    QVERIFY(scene.picture->isStandIn());
    scene.waitForOutput();
    QVERIFY(scene.grabbed().pixelColor(scene.point(80, 60)).lightness() > before.lightness());
    scene.settings->setValue(scene.settings->type(key("Color")), key("bcs_brightness"), 0);
    scene.waitForOutput();
    QCOMPARE(scene.grabbed().pixelColor(scene.point(80, 60)), before);
}

void TestEditorPicture::edgeOfTheCropIsDragged()
{
    const Scene scene;
    const int steps = scene.session().history().count();
    scene.drag(scene.point(0, 60), scene.point(30, 60));
    QCOMPARE(scene.cropNow(), QRect(30, 0, 130, 120));
    QCOMPARE(scene.session().history().count(), steps + 1);
    scene.drag(scene.point(160, 120), scene.point(110, 90));
    QCOMPARE(scene.cropNow(), QRect(30, 0, 80, 90));
    QVERIFY(scene.picture->isStandIn());
    scene.waitForOutput();
    scene.drag(scene.point(70, 40), scene.point(80, 50));
    QCOMPARE(scene.cropNow(), QRect(40, 10, 80, 90));
    QVERIFY(scene.trigger("undo"));
    QVERIFY(scene.trigger("undo"));
    QCOMPARE(scene.cropNow(), QRect(30, 0, 130, 120));
    QCOMPARE(scene.picture->scene().crop, QRect(30, 0, 130, 120));
}

void TestEditorPicture::clickCutsNothingOff()
{
    const Scene scene;
    const int steps = scene.session().history().count();
    scene.press(scene.point(80, 60));
    scene.release(scene.point(80, 60));
    QCOMPARE(scene.picture->scene().crop, QRect(0, 0, 160, 120));
    QCOMPARE(scene.session().history().count(), steps);
}

void TestEditorPicture::newCropIsDrawnAnywhere_data()
{
    QTest::addColumn<QRect>("before");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<bool>("withControl");
    QTest::addColumn<QRect>("expected");
    const QRect whole(0, 0, 160, 120);
    QTest::newRow("nothing cut off") << whole << QPoint(20, 30) << QPoint(100, 90) << false << QRect(20, 30, 80, 60);
    QTest::newRow("in what is cut off") << QRect(80, 60, 60, 50) << QPoint(10, 10) << QPoint(50, 60) << false
                                        << QRect(10, 10, 40, 50);
    QTest::newRow("in what is kept, with Ctrl")
        << QRect(20, 20, 120, 80) << QPoint(100, 90) << QPoint(40, 50) << true << QRect(40, 50, 60, 40);
}

void TestEditorPicture::newCropIsDrawnAnywhere()
{
    QFETCH(QRect, before);
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(bool, withControl);
    QFETCH(QRect, expected);
    const Scene scene;
    if (before != QRect(0, 0, 160, 120))
        scene.setCrop(before);
    const int steps = scene.session().history().count();
    scene.drag(scene.point(from.x(), from.y()), scene.point(to.x(), to.y()),
               withControl ? Qt::AltModifier | Qt::ControlModifier : Qt::KeyboardModifiers(Qt::AltModifier));
    QCOMPARE(scene.cropNow(), expected);
    QCOMPARE(scene.session().history().count(), steps + 1);
}

void TestEditorPicture::escapeTakesADragBack()
{
    const Scene scene;
    const int steps = scene.session().history().count();
    scene.press(scene.point(0, 60));
    scene.move(scene.point(30, 60));
    QCOMPARE(scene.cropNow().left(), 30);
    QTest::keyClick(scene.picture, Qt::Key_Escape);
    QCOMPARE(scene.picture->scene().crop, QRect(0, 0, 160, 120));
    scene.move(scene.point(50, 60));
    scene.release(scene.point(50, 60));
    QCOMPARE(scene.picture->scene().crop, QRect(0, 0, 160, 120));
    QCOMPARE(scene.session().history().count(), steps);
}

void TestEditorPicture::undoEndsADrag()
{
    const Scene scene;
    const int steps = scene.session().history().position();
    scene.press(scene.point(0, 60));
    scene.move(scene.point(30, 60));
    QVERIFY(scene.trigger("undo"));
    scene.move(scene.point(50, 60));
    scene.release(scene.point(50, 60));
    QCOMPARE(scene.picture->scene().crop, QRect(0, 0, 160, 120));
    QCOMPARE(scene.session().history().position(), steps);
}

void TestEditorPicture::soundHasNoPicture()
{
    const Stage stage({clips::clip(key("sound.wav"))});
    auto* picture = stage.find<PictureView>("pictureView");
    QVERIFY(!picture->isStandIn());
    QVERIFY(picture->handles().isEmpty());
    QTest::mousePress(picture, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QTest::mouseMove(picture, QPoint(90, 90));
    QTest::mouseRelease(picture, Qt::LeftButton, Qt::NoModifier, QPoint(90, 90));
    QCOMPARE(stage.session().history().position(), 1); // The file was added.
}

void TestEditorPicture::watermarkDraggedIntoACornerIsHeldThere()
{
    const Scene scene;
    const zokit::Identity logo = scene.addLogo({40, 40});
    scene.press(scene.point(50, 46));
    scene.move(scene.point(100, 80));
    QCOMPARE(kitsupport::placeOf(*scene.settings, logo), QPoint(90, 74));
    scene.move(scene.point(147, 111)); // 137, 105; the corner is at 136.8, 105.6.
    QCOMPARE(kitsupport::placeOf(*scene.settings, logo), QPoint(137, 106));
    QCOMPARE(scene.picture->scene().snapLines.size(), 2);
    scene.release(scene.point(147, 111));
    QVERIFY(scene.picture->scene().snapLines.isEmpty());
    QCOMPARE(scene.session().thing(), logo);
    QCOMPARE(scene.settings->value(logo, key("anchor")).toMap().value(key("corner")).toString(), key("bottom-right"));
    scene.drag(scene.point(147, 112), scene.point(107, 72));
    QVERIFY(!scene.settings->value(logo, key("anchor")).isValid());
}

void TestEditorPicture::altSuspendsSnapping()
{
    const Scene scene;
    const zokit::Identity logo = scene.addLogo({40, 40});
    scene.drag(scene.point(50, 46), scene.point(147, 111), Qt::AltModifier);
    QCOMPARE(kitsupport::placeOf(*scene.settings, logo), QPoint(137, 105));
}

void TestEditorPicture::chosenWatermarkIsSizedByItsCorner()
{
    const Scene scene;
    const zokit::Identity logo = scene.addLogo({40, 40});
    scene.session().setThing(logo);
    scene.drag(scene.point(60, 52), scene.point(80, 64));
    QCOMPARE(kitsupport::placeOf(*scene.settings, logo), QPoint(40, 40));
    QCOMPARE(kitsupport::sizeOf(*scene.settings, logo), QSize(40, 24));
}

void TestEditorPicture::keysDragByPixels()
{
    const Scene scene;
    scene.takeHandle(key("Crop: left edge"));
    QTest::keyClick(scene.picture, Qt::Key_Right);
    QCOMPARE(scene.cropNow(), QRect(1, 0, 159, 120));
    QTest::keyClick(scene.picture, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(scene.cropNow(), QRect(11, 0, 149, 120));
    scene.takeHandle(key("Crop: lower right corner"));
    QTest::keyClick(scene.picture, Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(scene.cropNow(), QRect(11, 0, 149, 110));
    scene.takeHandle(key("Crop: place"));
    QTest::keyClick(scene.picture, Qt::Key_Left);
    QCOMPARE(scene.cropNow(), QRect(10, 0, 149, 110));
}

void TestEditorPicture::heldKeyIsOneStep()
{
    const Scene scene;
    scene.takeHandle(key("Crop: left edge"));
    const int steps = scene.session().history().count();
    sendKey(scene.picture, QEvent::KeyPress, Qt::Key_Right, false);
    for (int i = 0; i < 5; ++i) {
        sendKey(scene.picture, QEvent::KeyRelease, Qt::Key_Right, true);
        sendKey(scene.picture, QEvent::KeyPress, Qt::Key_Right, true);
    }
    sendKey(scene.picture, QEvent::KeyRelease, Qt::Key_Right, false);
    QCOMPARE(scene.cropNow().left(), 6);
    QCOMPARE(scene.session().history().count(), steps + 1);
    sendKey(scene.picture, QEvent::KeyPress, Qt::Key_Right, false);
    sendKey(scene.picture, QEvent::KeyRelease, Qt::Key_Right, false);
    QCOMPARE(scene.session().history().count(), steps + 2);
}

void TestEditorPicture::tabGoesFromHandleToHandle()
{
    const Scene scene;
    const zokit::Identity logo = scene.addLogo({40, 40});
    scene.picture->setFocus();
    QVERIFY(scene.picture->currentHandle().handle == Handle::None);
    QStringList names;
    for (int i = 0; i < 10; ++i) {
        QTest::keyClick(scene.picture, Qt::Key_Tab);
        names.append(scene.picture->handleName(scene.picture->currentHandle()));
    }
    QCOMPARE(names.at(0), key("Crop: upper left corner"));
    QCOMPARE(names.at(8), key("Watermark 1: place"));
    QCOMPARE(names.at(9), key("Watermark 1: upper left corner")); // It has corners by now.
    QCOMPARE(scene.session().thing(), logo);
    QTest::keyClick(scene.picture, Qt::Key_Backtab);
    QCOMPARE(scene.picture->handleName(scene.picture->currentHandle()), key("Watermark 1: place"));
}

void TestEditorPicture::keysMoveTheLineBetweenBeforeAndAfter()
{
    const Scene scene;
    QVERIFY(scene.trigger("showSplit"));
    const int steps = scene.session().history().position();
    scene.picture->setFocus();
    QTest::keyClick(scene.picture, Qt::Key_Tab);
    QCOMPARE(scene.picture->handleName(scene.picture->currentHandle()), key("Line between before and after"));
    QCOMPARE(scene.picture->split(), 80);
    QTest::keyClick(scene.picture, Qt::Key_Right);
    QCOMPARE(scene.picture->split(), 81);
    QTest::keyClick(scene.picture, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(scene.picture->split(), 71);
    QTest::keyClick(scene.picture, Qt::Key_Up);
    QCOMPARE(scene.picture->split(), 71);
    for (int i = 0; i < 8; ++i)
        QTest::keyClick(scene.picture, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(scene.picture->split(), 0); // Not out of the frame.
    QCOMPARE(scene.session().history().position(), steps);
    QCOMPARE(scene.picture->scene().crop, QRect(0, 0, 160, 120));
    QTest::keyClick(scene.picture, Qt::Key_Tab);
    QCOMPARE(scene.picture->handleName(scene.picture->currentHandle()), key("Crop: upper left corner"));
}

void TestEditorPicture::keysPushAPictureThatIsLarger()
{
    const Scene scene;
    const auto seen = [&] { return scene.picture->view().toFrame(QPointF(scene.picture->rect().center())); };
    const auto push = [&](Qt::Key to, Qt::KeyboardModifiers with = Qt::AltModifier) {
        const QPointF before = seen();
        QTest::keyClick(scene.picture, to, with);
        return (seen() - before) * scene.picture->view().scale;
    };
    scene.takeHandle(key("Crop: left edge")); // It stays where it is.
    QCOMPARE(push(Qt::Key_Right), QPointF(0, 0));
    scene.picture->setZoom(16);
    QCOMPARE(push(Qt::Key_Right), QPointF(60, 0));
    QCOMPARE(push(Qt::Key_Up), QPointF(0, -60));
    QCOMPARE(push(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier), QPointF(0, 600));
    QCOMPARE(push(Qt::Key_Left), QPointF(-60, 0));
    QCOMPARE(push(Qt::Key_Left, Qt::AltModifier | Qt::ControlModifier), QPointF(0, 0)); // Another key.
    QCOMPARE(scene.picture->scene().crop, QRect(0, 0, 160, 120));
}

void TestEditorPicture::handleThatKeysTakeIsSeen()
{
    const Scene scene;
    scene.picture->setZoom(16);
    scene.picture->setFocus();
    for (int i = 0; i < scene.picture->handles().size(); ++i) {
        QTest::keyClick(scene.picture, Qt::Key_Tab);
        const zokit::PreviewHandle handle = scene.picture->currentHandle();
        QVERIFY2(scene.picture->rect().contains(handle.area.center().toPoint()),
                 qPrintable(scene.picture->handleName(handle)));
    }
}

void TestEditorPicture::numbersAndHandlesAreOneValue()
{
    const Scene scene;
    scene.settings->setValue(scene.crop(), key("crop_left"), 25);
    scene.settings->setValue(scene.crop(), key("crop_width"), 100);
    scene.settings->setValue(scene.crop(), key("crop_height"), 100);
    QCOMPARE(scene.picture->scene().crop, QRect(25, 0, 100, 100));
}

void TestEditorPicture::pixelsAreMagnifiedWhileAnEdgeIsDragged()
{
    const Scene scene;
    const QImage before = scene.grabbed();
    scene.press(scene.point(160, 60));
    scene.move(scene.point(120, 60), Qt::AltModifier);
    const QImage during = scene.grabbed();
    scene.release(scene.point(120, 60));
    QCOMPARE(during.pixelColor(4, 4), QColor(Qt::white)); // Its frame.
    QVERIFY(before.pixelColor(4, 4) != QColor(Qt::white));
    // The edge of what is cut off stands in its middle, 8 pixels of the screen for one.
    const int middle = 4 + 84;
    QVERIFY(during.pixelColor(middle + 12, 100).lightness() < during.pixelColor(middle - 12, 100).lightness());
    scene.waitForOutput();
    QVERIFY(scene.grabbed().pixelColor(4, 4) != QColor(Qt::white));
}

void TestEditorPicture::zoomStepsAndFits()
{
    const Scene scene;
    const double fits = scene.picture->zoom();
    QVERIFY(scene.trigger("zoomFull"));
    QCOMPARE(scene.picture->zoom(), 1.0);
    QVERIFY(scene.trigger("zoomIn"));
    QCOMPARE(scene.picture->zoom(), 1.25);
    QVERIFY(scene.trigger("zoomOut"));
    QCOMPARE(scene.picture->zoom(), 1.0);
    QVERIFY(scene.trigger("zoomFit"));
    QCOMPARE(scene.picture->zoom(), fits);
    QCOMPARE(scene.find<QLabel>("zoom")->text(), key("%1 %").arg(qRound(fits * 100)));
}

void TestEditorPicture::splitShowsBeforeAndAfter()
{
    const Scene scene;
    const QColor left = scene.grabbed().pixelColor(scene.point(40, 60));
    scene.settings->setValue(scene.settings->type(key("Color")), key("bcs_brightness"), 40);
    QVERIFY(scene.trigger("showSplit"));
    scene.waitForOutput();
    QVERIFY(QTest::qWaitFor([&] { return scene.grabbed().pixelColor(scene.point(40, 60)) == left; }, 30000));
    QVERIFY(scene.grabbed().pixelColor(scene.point(120, 60)).lightness() > left.lightness());
    scene.drag(scene.point(80, 60), scene.point(20, 60)); // The line between them.
    QVERIFY(scene.grabbed().pixelColor(scene.point(40, 60)).lightness() > left.lightness());
    QCOMPARE(scene.picture->scene().crop, QRect(0, 0, 160, 120));
}

void TestEditorPicture::beforeHasNoHandles()
{
    const Scene scene;
    QVERIFY(scene.trigger("showBefore"));
    QVERIFY(scene.picture->handles().isEmpty());
    scene.drag(scene.point(0, 60), scene.point(30, 60));
    QCOMPARE(scene.picture->scene().crop, QRect(0, 0, 160, 120));
    QVERIFY(scene.trigger("showAfter"));
    QCOMPARE(scene.picture->handles().size(), 8);
}

void TestEditorPicture::watermarkOutsideTheCropIsToldOf()
{
    const Scene scene;
    scene.addLogo({10, 10});
    scene.waitForOutput();
    QVERIFY(!scene.find<QLabel>("pictureNotes"));
    scene.setCrop({60, 60, 80, 50});
    scene.waitForOutput();
    auto* notes = scene.find<QLabel>("pictureNotes");
    QVERIFY(notes);
    QVERIFY2(notes->text().contains(key("Watermark:0")), qPrintable(notes->text()));
    QVERIFY(scene.trigger("undo"));
    scene.waitForOutput();
    QVERIFY(!scene.find<QLabel>("pictureNotes"));
}

void TestEditorPicture::handlesAreAccessible()
{
    const Scene scene;
    const zokit::Identity logo = scene.addLogo({40, 40});
    QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(scene.picture);
    QCOMPARE(picture->childCount(), 9);
    for (int row = 0; row < picture->childCount(); ++row) {
        QAccessibleInterface* handle = picture->child(row);
        QVERIFY(handle && handle->isValid());
        QCOMPARE(handle->role(), QAccessible::Grip);
        QVERIFY(!handle->text(QAccessible::Name).isEmpty());
        QVERIFY(!handle->rect().isEmpty());
        QCOMPARE(handle->parent(), picture);
        QCOMPARE(picture->indexOfChild(handle), row);
    }
    QAccessibleInterface* place = picture->child(8);
    QCOMPARE(place->text(QAccessible::Name), key("Watermark 1: place"));
    QCOMPARE(place->text(QAccessible::Value), key("left 40, top 40, 20 wide, 12 high"));
    const QPoint global = scene.picture->mapToGlobal(scene.point(50, 46));
    QCOMPARE(picture->childAt(global.x(), global.y()), place);
    place->actionInterface()->doAction(key("One pixel right"));
    QCOMPARE(kitsupport::placeOf(*scene.settings, logo), QPoint(41, 40));
    place->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QCOMPARE(picture->focusChild(), place);
}

void TestEditorPicture::edgesAreAccessibleValues()
{
    const Scene scene;
    QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(scene.picture);
    QStringList values;
    for (int row = 0; row < picture->childCount(); ++row) {
        if (QAccessibleValueInterface* value = picture->child(row)->valueInterface())
            values.append(key("%1 %2-%3")
                              .arg(value->currentValue().toInt())
                              .arg(value->minimumValue().toInt())
                              .arg(value->maximumValue().toInt()));
    }
    QCOMPARE(values.join(key(", ")), key("0 0-120, 160 0-160, 120 0-120, 0 0-160"));
    picture->child(3)->valueInterface()->setCurrentValue(140);
    QCOMPARE(scene.cropNow(), QRect(0, 0, 140, 120));
}

void TestEditorPicture::lineBetweenBeforeAndAfterIsAccessible()
{
    const Scene scene;
    QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(scene.picture);
    QCOMPARE(picture->childCount(), 8);
    QVERIFY(scene.trigger("showSplit"));
    QCOMPARE(picture->childCount(), 9);
    QAccessibleInterface* line = picture->child(0);
    QCOMPARE(line->role(), QAccessible::Splitter);
    QCOMPARE(line->text(QAccessible::Name), key("Line between before and after"));
    QCOMPARE(line->text(QAccessible::Value), key("80"));
    const QPoint global = scene.picture->mapToGlobal(scene.point(80, 60));
    QCOMPARE(picture->childAt(global.x(), global.y()), line);
    QVERIFY(line->rect().contains(global));
    line->actionInterface()->doAction(key("One pixel right"));
    QCOMPARE(scene.picture->split(), 81);
    QCOMPARE(line->valueInterface()->maximumValue(), QVariant(160));
    line->valueInterface()->setCurrentValue(40);
    QCOMPARE(line->valueInterface()->currentValue(), QVariant(40));
    QCOMPARE(scene.picture->split(), 40);
    QVERIFY(scene.trigger("showAfter"));
    QVERIFY(!line->isValid());
}

EDITOR_TEST_MAIN(TestEditorPicture)
#include "tst_editor_picture.moc"
