// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A preview that is edited by hand: what pressing, dragging and letting go does to crop and watermarks.

#include <algorithm>

#include <QPainter>
#include <QtTest>

#include <zokit/history.h>
#include <zokit/livepreview.h>
#include <zokit/project.h>

#include "childwatch.h"
#include "clips.h"
#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;
using zokit::LivePreview;

namespace {

constexpr bool withoutSnapping = false;

/// A file of 1280x720 in a view in which it is shown half as large, 12 pixels from the left and from above.
struct Stage {
    Stage() : preview(project.history(), tools), file(project.add(kitsupport::clip()))
    {
        file->setValue(crop(), key("crop_keepaspectratio"), false);
        preview.resize(QSize(664, 384), 1);
        preview.setFile(file, nullptr);
        QObject::connect(&preview, &LivePreview::chosen, &preview, [this](quint64 thing) { chosen.append(thing); });
        countStepsFromHere();
    }

    zokit::Identity crop() const { return file->type(key("Crop")); }

    QRect cropNow() const { return preview.scene().crop; }

    zokit::Identity addLogo(const QPoint& place)
    {
        const zokit::Identity logo = file->insert(key("Watermark"), {{key("wm_imageurl"), kitsupport::logoPath(40, 24)},
                                                                     {key("wm_hposition"), place.x()},
                                                                     {key("wm_vposition"), place.y()}})
                                         .item;
        countStepsFromHere();
        return logo;
    }

    void drag(const QPointF& from, const QPointF& to)
    {
        preview.press(from);
        preview.move((from + to) / 2, withoutSnapping);
        preview.move(to, withoutSnapping);
        preview.release();
    }

    void countStepsFromHere() { steps = project.history().count(); }
    int newSteps() const { return project.history().count() - steps; }

    zokit::Project project;
    zokit::Tools tools;
    LivePreview preview;
    zokit::FileSettings* file;
    QVector<zokit::Identity> chosen;
    int steps = 0;
};

} // namespace

class TestKitLivePreview : public childwatch::Test {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void cropIsDragged_data();
    void cropIsDragged();
    void dragIsOneStep();
    void clickCutsNothingOff();
    void edgesSnap();
    void watermarkIsDragged();
    void watermarkThatIsChosenIsSized();
    void cancelTakesTheDragBack();
    void anotherFileEndsTheDrag();
    void endOfTheViewEndsTheDrag();
    void fileThatIsDeletedCanBeLetGo();
    void refusalIsTold();
    void pointerSaysWhatWouldBeTaken_data();
    void pointerSaysWhatWouldBeTaken();
    void withoutAFileNothingCanBeTaken();
    void whatChangesIsToldAsARegion();
    void framesAreShownWhenTheyCome();
    void viewHasThreeChildrenAtMost();
};

void TestKitLivePreview::cropIsDragged_data()
{
    QTest::addColumn<QRect>("before");
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<QRect>("after");
    const QRect whole(0, 0, 1280, 720);
    QTest::newRow("left edge") << whole << QPointF(12, 192) << QPointF(60, 192) << QRect(96, 0, 1184, 720);
    QTest::newRow("lower right corner") << whole << QPointF(652, 372) << QPointF(552, 322) << QRect(0, 0, 1080, 620);
    QTest::newRow("as a whole") << QRect(200, 100, 400, 300) << QPointF(212, 162) << QPointF(262, 182)
                                << QRect(300, 140, 400, 300);
    QTest::newRow("drawn anew") << whole << QPointF(172, 102) << QPointF(492, 282) << QRect(320, 180, 640, 360);
}

void TestKitLivePreview::cropIsDragged()
{
    QFETCH(const QRect, before);
    QFETCH(const QPointF, from);
    QFETCH(const QPointF, to);
    Stage stage;
    stage.file->setValues(stage.crop(), zokit::cropValues(before));
    stage.drag(from, to);
    QTEST(stage.cropNow(), "after");
    QCOMPARE(stage.chosen, QVector<zokit::Identity>({stage.crop()}));
    QCOMPARE(stage.preview.scene().chosen, stage.crop());
}

void TestKitLivePreview::dragIsOneStep()
{
    Stage stage;
    stage.preview.press(QPointF(12, 192));
    QVERIFY(stage.preview.isDragging());
    stage.preview.move(QPointF(40, 192), withoutSnapping);
    stage.preview.move(QPointF(60, 192), withoutSnapping);
    QCOMPARE(stage.cropNow(), QRect(96, 0, 1184, 720)); // Seen while it is dragged.
    QCOMPARE(stage.newSteps(), 0);
    stage.preview.release();
    QVERIFY(!stage.preview.isDragging());
    QCOMPARE(stage.newSteps(), 1);
    QCOMPARE(stage.project.history().undoText().text(), key("change Crop"));
    stage.project.history().undo();
    QCOMPARE(stage.cropNow(), QRect(0, 0, 1280, 720));
}

void TestKitLivePreview::clickCutsNothingOff()
{
    Stage stage;
    stage.preview.press(QPointF(300, 200));
    stage.preview.move(QPointF(302, 201));
    stage.preview.release();
    QCOMPARE(stage.cropNow(), QRect(0, 0, 1280, 720));
    QCOMPARE(stage.newSteps(), 0);
    stage.preview.move(QPointF(500, 300)); // Nothing is taken any more.
    QCOMPARE(stage.newSteps(), 0);
}

void TestKitLivePreview::edgesSnap()
{
    Stage stage;
    stage.file->setValues(stage.crop(), zokit::cropValues(QRect(0, 0, 600, 720)));
    stage.preview.press(QPointF(312, 192));
    stage.preview.move(QPointF(650, 192)); // Two pixels of the view from the edge of the frame.
    QCOMPARE(stage.cropNow(), QRect(0, 0, 1280, 720));
    QCOMPARE(stage.preview.scene().snapLines.size(), 1);
    QCOMPARE(stage.preview.scene().snapLines.at(0).at, 1280.0);
    stage.preview.move(QPointF(650, 192), withoutSnapping);
    QCOMPARE(stage.cropNow(), QRect(0, 0, 1276, 720));
    QVERIFY(stage.preview.scene().snapLines.isEmpty());
    stage.preview.move(QPointF(650, 192));
    stage.preview.release();
    QVERIFY(stage.preview.scene().snapLines.isEmpty());
}

void TestKitLivePreview::watermarkIsDragged()
{
    Stage stage;
    const zokit::Identity logo = stage.addLogo(QPoint(200, 100));
    stage.drag(QPointF(120, 68), QPointF(170, 88));
    QCOMPARE(stage.preview.scene().place(logo), QRect(300, 140, 40, 24));
    QCOMPARE(stage.chosen, QVector<zokit::Identity>({logo}));
    QCOMPARE(stage.newSteps(), 1);
    QCOMPARE(stage.project.history().undoText().text(), key("change watermark"));
}

void TestKitLivePreview::watermarkThatIsChosenIsSized()
{
    Stage stage;
    const zokit::Identity logo = stage.addLogo(QPoint(200, 100));
    stage.preview.choose(logo);
    stage.drag(QPointF(132, 74), QPointF(152, 86)); // Its lower right corner.
    QCOMPARE(stage.preview.scene().place(logo), QRect(200, 100, 80, 48));
}

void TestKitLivePreview::cancelTakesTheDragBack()
{
    Stage stage;
    stage.preview.press(QPointF(12, 192));
    stage.preview.move(QPointF(60, 192));
    stage.preview.cancel();
    QCOMPARE(stage.cropNow(), QRect(0, 0, 1280, 720));
    QVERIFY(!stage.preview.isDragging());
    QCOMPARE(stage.newSteps(), 0);
    stage.preview.cancel();
    QCOMPARE(stage.newSteps(), 0);
}

void TestKitLivePreview::anotherFileEndsTheDrag()
{
    Stage stage;
    stage.preview.press(QPointF(12, 192));
    stage.preview.move(QPointF(60, 192), withoutSnapping);
    stage.preview.setFile(nullptr, nullptr);
    QVERIFY(!stage.preview.isDragging());
    QCOMPARE(stage.newSteps(), 1);
    QVERIFY(stage.preview.scene().frame.isEmpty());
    stage.file->setValue(stage.crop(), key("crop_left"), 4); // Is not shown any more.
    QVERIFY(stage.preview.scene().frame.isEmpty());
}

void TestKitLivePreview::endOfTheViewEndsTheDrag()
{
    Stage stage;
    {
        LivePreview preview(stage.project.history(), stage.tools);
        preview.resize(QSize(664, 384), 1);
        preview.setFile(stage.file, nullptr);
        preview.press(QPointF(12, 192));
        preview.move(QPointF(60, 192), withoutSnapping);
    }
    QCOMPARE(stage.newSteps(), 1);
    QVERIFY(stage.project.history().canUndo()); // No gesture is open.
}

void TestKitLivePreview::fileThatIsDeletedCanBeLetGo()
{
    Stage stage;
    zokit::Project other;
    auto own = std::make_unique<zokit::FileSettings>(kitsupport::clip());
    stage.preview.setFile(own.get(), nullptr);
    stage.preview.press(QPointF(12, 192));
    own.reset();
    stage.preview.move(QPointF(60, 192));
    stage.preview.release();
    QVERIFY(!stage.preview.isDragging());
}

void TestKitLivePreview::refusalIsTold()
{
    Stage stage;
    const QSignalSpy refused(&stage.preview, &LivePreview::refused);
    stage.preview.press(QPointF(12, 192));
    const auto connection = QObject::connect(stage.file, &zokit::FileSettings::aboutToChange, &stage.preview,
                                             [&] { stage.preview.move(QPointF(60, 192)); });
    stage.file->setValue(stage.file->type(key("Color")), key("bcs_contrast"), 20);
    QObject::disconnect(connection);
    QCOMPARE(refused.count(), 1);
    QCOMPARE(refused.at(0).at(0).value<zokit::Message>().code(), zokit::Message::Code::Busy);
    QCOMPARE(stage.cropNow(), QRect(0, 0, 1280, 720));
}

void TestKitLivePreview::pointerSaysWhatWouldBeTaken_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<Qt::CursorShape>("shape");
    QTest::newRow("left edge") << QPointF(112, 190) << Qt::SizeHorCursor;
    QTest::newRow("upper edge") << QPointF(220, 62) << Qt::SizeVerCursor;
    QTest::newRow("upper left corner") << QPointF(112, 62) << Qt::SizeFDiagCursor;
    QTest::newRow("lower left corner") << QPointF(112, 322) << Qt::SizeBDiagCursor;
    QTest::newRow("watermark") << QPointF(500, 100) << Qt::SizeAllCursor;
    QTest::newRow("beside") << QPointF(600, 350) << Qt::CrossCursor;
}

void TestKitLivePreview::pointerSaysWhatWouldBeTaken()
{
    QFETCH(const QPointF, point);
    Stage stage;
    stage.addLogo(QPoint(960, 164));
    stage.file->setValues(stage.crop(), zokit::cropValues(QRect(200, 100, 600, 520)));
    QTEST(stage.preview.cursor(point), "shape");
    stage.preview.press(QPointF(112, 190));
    QCOMPARE(stage.preview.cursor(point), Qt::SizeHorCursor); // What is taken, wherever the pointer goes.
    stage.preview.release();
}

void TestKitLivePreview::withoutAFileNothingCanBeTaken()
{
    Stage stage;
    stage.preview.setFile(nullptr, nullptr);
    stage.preview.press(QPointF(300, 200));
    QVERIFY(!stage.preview.isDragging());
    QVERIFY(stage.chosen.isEmpty());
    QCOMPARE(stage.preview.cursor(QPointF(300, 200)), Qt::ArrowCursor);
    zokit::FileSettings sound(zokit::Media{key("/a.wav"), QSize(0, 0), 1.0});
    stage.preview.setFile(&sound, nullptr); // Nor of a file that is not seen.
    stage.preview.press(QPointF(300, 200));
    QVERIFY(!stage.preview.isDragging());
    stage.preview.setFile(nullptr, nullptr);
    QImage image(664, 384, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter painter(&image);
    stage.preview.paint(painter);
    QVERIFY(image.pixelColor(300, 200) != QColor(Qt::red));
}

void TestKitLivePreview::whatChangesIsToldAsARegion()
{
    Stage stage;
    stage.addLogo(QPoint(200, 100));
    QRegion region;
    QObject::connect(&stage.preview, &LivePreview::changed, &stage.preview,
                     [&](const QRegion& part) { region += part; });
    stage.drag(QPointF(120, 68), QPointF(170, 88));
    QVERIFY(region.contains(QPoint(120, 68)));
    QVERIFY(region.contains(QPoint(170, 88)));
    QVERIFY(!region.contains(QPoint(600, 300)));
    stage.preview.resize(QSize(344, 204), 1);
    QVERIFY(region.contains(QPoint(343, 203)));
    QCOMPARE(stage.preview.view().scale, 0.25);
}

void TestKitLivePreview::framesAreShownWhenTheyCome()
{
    Stage stage;
    stage.tools = zokit::findTools();
    const zokit::MediaInfo media = *zokit::probe(stage.tools, clips::clip(key("red709.mkv"))).media;
    zokit::FileSettings* red = stage.project.add(zokit::Media{media.file, QSize(64, 48), media.seconds});
    stage.preview.setFile(red, &media);
    QRegion region;
    QObject::connect(&stage.preview, &LivePreview::changed, &stage.preview,
                     [&](const QRegion& part) { region += part; });
    QVERIFY(QTest::qWaitFor([&] { return !stage.preview.frames().output().isNull(); }, 60000));
    QVERIFY(region.contains(QPoint(332, 192)));
    QImage image(664, 384, QImage::Format_RGB32);
    QPainter painter(&image);
    stage.preview.paint(painter);
    QVERIFY(image.pixelColor(332, 192).red() - image.pixelColor(332, 192).blue() > 60);
}

void TestKitLivePreview::viewHasThreeChildrenAtMost()
{
    Stage stage;
    stage.tools = zokit::findTools();
    const zokit::MediaInfo media = *zokit::probe(stage.tools, clips::clip(key("counting.mkv"))).media;
    zokit::FileSettings* file = stage.project.add(zokit::Media{media.file, QSize(64, 48), media.seconds});
    stage.preview.setFile(file, &media);
    zokit::ShownFrames& frames = stage.preview.frames();
    frames.setBeforeWanted(true);
    int most = 0;
    const auto look = [&] {
        most = std::max(most, static_cast<int>(childwatch::children().size()));
        QTest::qWait(10);
        most = std::max(most, static_cast<int>(childwatch::children().size()));
    };
    for (int round = 0; round < 4; ++round) {
        for (const double seconds : {0.4, 0.8, 3.6, 0.2, 2.0}) { // Far apart: each takes another decoder.
            frames.setSeconds(seconds + round / 25.0);
            look();
        }
        stage.preview.press(QPointF(200, 100));
        for (const int x : {300, 400, 500}) {
            stage.preview.move(QPointF(x, 300), withoutSnapping);
            look();
        }
        stage.preview.release();
        file->setValue(file->type(key("Color")), key("bcs_contrast"), 10 + round);
        look();
        if (round % 2 == 1) {
            QVERIFY(QTest::qWaitFor(
                [&] {
                    look();
                    return !frames.output().isNull() && !frames.before().isNull();
                },
                60000));
        }
    }
    QVERIFY2(most == 2 || most == 3, QByteArray::number(most));
}

ZOEFFECT_TEST_MAIN(TestKitLivePreview)
#include "tst_kit_livepreview.moc"
