// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The frames that a view shows while settings are edited: what comes out, once nothing changes any more.

#include <QSignalSpy>
#include <QtTest>

#include <zokit/filesettings.h>
#include <zokit/opening.h>
#include <zokit/previewgeometry.h>
#include <zokit/shownframes.h>

#include "childwatch.h"
#include "clips.h"
#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;
using zokit::FileSettings;
using zokit::MediaInfo;
using zokit::ShownFrames;

namespace {

constexpr int patience = 60000; // Milliseconds; only a hang takes so long.

/// A red clip of 64x48 whose frames are shown.
struct Stage {
    explicit Stage(double seconds = 0)
        : tools(zokit::findTools()), media(*zokit::probe(tools, clips::clip(key("red709.mkv"))).media), frames(tools)
    {
        if (seconds > 0)
            media.seconds = seconds;
        file = std::make_unique<FileSettings>(zokit::settingsOf(media));
        frames.setFile(file.get(), &media);
    }

    void set(const char* address, const QVariant& value) const
    {
        const zokit::Address read = *zokit::readAddress(key(address)).address;
        QCOMPARE(file->setValue(file->thing(read), read.key, value).text(), QString());
    }

    /// Whether all frames are there that are asked for by themselves.
    bool waitForBoth()
    {
        return QTest::qWaitFor([this] { return !frames.output().isNull() && !frames.whole().isNull(); }, patience);
    }

    zokit::Tools tools;
    MediaInfo media;
    std::unique_ptr<FileSettings> file;
    ShownFrames frames;
};

} // namespace

class TestKitShownFrames : public childwatch::Test {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void whatComesOutAndWhatAStandInTakesAreAskedFor();
    void changeTakesWhatComesOutAway();
    void cropTakesNoOtherWhole();
    void frameBeforeIsAskedForWhenItIsWanted();
    void momentStaysWithinTheClip_data();
    void momentStaysWithinTheClip();
    void momentIsAPartOfTheClip();
    void anotherMomentTakesWhatComesOutAway();
    void anotherFileBeginsAnew();
    void sameFileSetAgainWhileAChangeIsToldMissesNothing();
    void fileThatIsDeletedHasNoOutput();
    void clipThatHasGoneIsAnError();
    void errorOfWhatComesOutStaysBesideAWholeFrame();
};

void TestKitShownFrames::whatComesOutAndWhatAStandInTakesAreAskedFor()
{
    Stage stage;
    QVERIFY(stage.frames.output().isNull());
    QVERIFY(stage.waitForBoth());
    QCOMPARE(stage.frames.output().size(), QSize(64, 48));
    QCOMPARE(stage.frames.whole().size(), QSize(64, 48));
    QVERIFY(stage.frames.before().isNull());
    QCOMPARE(stage.frames.error().text(), QString());
}

void TestKitShownFrames::changeTakesWhatComesOutAway()
{
    Stage stage;
    QVERIFY(stage.waitForBoth());
    QVERIFY(stage.frames.output().pixelColor(20, 20).red() > 100);
    const QSignalSpy changes(&stage.frames, &ShownFrames::changed);
    stage.set("Color:bcs_saturation", -50);
    QCOMPARE(changes.count(), 1);
    QVERIFY(stage.frames.output().isNull());
    QCOMPARE(stage.frames.whole().size(), QSize(64, 48)); // For the stand-in.
    QVERIFY(stage.waitForBoth());
    const QColor grey = stage.frames.output().pixelColor(20, 20);
    QVERIFY(std::abs(grey.red() - grey.blue()) < 8);
    stage.set("Color:bcs_saturation", 0);
    QVERIFY(stage.waitForBoth());
    QVERIFY(stage.frames.output().pixelColor(20, 20).red() - stage.frames.output().pixelColor(20, 20).blue() > 60);
}

void TestKitShownFrames::cropTakesNoOtherWhole()
{
    Stage stage;
    QVERIFY(stage.waitForBoth());
    const qint64 whole = stage.frames.whole().cacheKey();
    QVERIFY(stage.file->setValues(stage.file->type(key("Crop")), zokit::cropValues(QRect(16, 0, 32, 48))).isEmpty());
    QVERIFY(stage.waitForBoth());
    QCOMPARE(stage.frames.output().size(), QSize(32, 48));
    QCOMPARE(stage.frames.whole().cacheKey(), whole);
}

void TestKitShownFrames::frameBeforeIsAskedForWhenItIsWanted()
{
    Stage stage;
    stage.set("Color:bcs_saturation", -50);
    stage.frames.setBeforeWanted(true);
    QVERIFY(QTest::qWaitFor([&] { return !stage.frames.before().isNull(); }, patience));
    const QColor red = stage.frames.before().pixelColor(20, 20);
    QVERIFY(red.red() - red.blue() > 60);
}

void TestKitShownFrames::momentStaysWithinTheClip_data()
{
    QTest::addColumn<double>("given");
    QTest::addColumn<double>("shown");
    QTest::newRow("within") << 4.5 << 4.5;
    QTest::newRow("before") << -2.0 << 0.0;
    QTest::newRow("behind") << 99.0 << 10.0;
}

void TestKitShownFrames::momentStaysWithinTheClip()
{
    QFETCH(const double, given);
    Stage stage(10);
    QCOMPARE(stage.frames.seconds(), 3.0); // Some way into the clip.
    QSignalSpy moments(&stage.frames, &ShownFrames::secondsChanged);
    stage.frames.setSeconds(given);
    stage.frames.setSeconds(given);
    QTEST(stage.frames.seconds(), "shown");
    QCOMPARE(moments.count(), 1);
    QTEST(moments.at(0).at(0).toDouble(), "shown");
}

void TestKitShownFrames::momentIsAPartOfTheClip()
{
    Stage stage(10);
    QCOMPARE(stage.frames.part(), 0.3);
    stage.frames.setPart(0.75);
    QCOMPARE(stage.frames.seconds(), 7.5);
    QCOMPARE(stage.frames.part(), 0.75);
    stage.frames.setPart(2);
    QCOMPARE(stage.frames.seconds(), 10.0);
    stage.media.seconds = 0; // Nobody knows how long it is.
    stage.frames.setFile(nullptr, nullptr);
    stage.frames.setFile(stage.file.get(), &stage.media);
    stage.frames.setPart(0.5);
    QCOMPARE(stage.frames.part(), 0.0);
    stage.frames.setSeconds(1000);
    QCOMPARE(stage.frames.seconds(), 1000.0);
    stage.frames.setFile(nullptr, nullptr);
    stage.frames.setPart(0.5);
    QCOMPARE(stage.frames.seconds(), 0.0);
    QCOMPARE(stage.frames.part(), 0.0);
}

void TestKitShownFrames::anotherMomentTakesWhatComesOutAway()
{
    Stage stage;
    QVERIFY(stage.waitForBoth());
    stage.frames.setSeconds(0.1);
    QVERIFY(stage.frames.output().isNull());
    QVERIFY(stage.waitForBoth());
}

void TestKitShownFrames::anotherFileBeginsAnew()
{
    Stage stage(10);
    QVERIFY(stage.waitForBoth());
    stage.frames.setFile(nullptr, nullptr);
    QVERIFY(stage.frames.whole().isNull());
    QVERIFY(stage.frames.output().isNull());
    QCOMPARE(stage.frames.seconds(), 0.0);
    stage.frames.setFile(stage.file.get(), &stage.media);
    QCOMPARE(stage.frames.seconds(), 3.0);
    QVERIFY(stage.waitForBoth());
}

void TestKitShownFrames::sameFileSetAgainWhileAChangeIsToldMissesNothing()
{
    Stage stage;
    stage.frames.setFile(nullptr, nullptr);
    QObject::connect(stage.file.get(), &FileSettings::changed, &stage.frames,
                     [&stage] { stage.frames.setFile(stage.file.get(), &stage.media); });
    stage.frames.setFile(stage.file.get(), &stage.media);
    QVERIFY(stage.waitForBoth());
    stage.set("Color:bcs_brightness", 20);
    QVERIFY(stage.frames.output().isNull());
    QVERIFY(stage.waitForBoth());
}

void TestKitShownFrames::fileThatIsDeletedHasNoOutput()
{
    Stage stage;
    QVERIFY(stage.waitForBoth());
    stage.file.reset();
    QVERIFY(stage.frames.output().isNull());
    stage.frames.setSeconds(1);   // Asks for nothing.
    stage.frames.setSeconds(0.5); // Nor does a drag.
    stage.frames.setFile(nullptr, nullptr);
    QVERIFY(stage.frames.whole().isNull());
}

void TestKitShownFrames::clipThatHasGoneIsAnError()
{
    Stage stage;
    MediaInfo gone = stage.media;
    gone.file = key("/nowhere/gone.mkv");
    FileSettings file(zokit::settingsOf(gone));
    stage.frames.setFile(&file, &gone);
    QVERIFY(QTest::qWaitFor([&] { return !stage.frames.error().isEmpty(); }, patience));
    QVERIFY(stage.frames.error().text().contains(key("/nowhere/gone.mkv")));
    QVERIFY(stage.frames.output().isNull());
    stage.frames.setFile(stage.file.get(), &stage.media);
    QVERIFY(stage.frames.error().isEmpty());
    QVERIFY(stage.waitForBoth());
}

void TestKitShownFrames::errorOfWhatComesOutStaysBesideAWholeFrame()
{
    Stage stage;
    for (const char* side : {"Crop:crop_width", "Crop:crop_height"})
        stage.set(side, 10);
    // Asked for after what comes out.
    QVERIFY(QTest::qWaitFor([&] { return !stage.frames.whole().isNull(); }, patience));
    QCOMPARE(stage.frames.error().text(),
             key("10x10 of the frame of 64x48 is left of the crop. At least 24x24 is needed: move it into the frame or "
                 "make it larger."));
    QVERIFY(stage.frames.output().isNull());
    for (const char* side : {"Crop:crop_width", "Crop:crop_height"})
        stage.set(side, 24);
    QVERIFY(stage.waitForBoth());
    QCOMPARE(stage.frames.error().text(), QString());
}

ZOEFFECT_TEST_MAIN(TestKitShownFrames)
#include "tst_kit_shownframes.moc"
