// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>

#include <QtTest>

#include "scaling_p.h"

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

QString described(int left, int top, int width, int height)
{
    return QStringLiteral("%1,%2 %3x%4").arg(left).arg(top).arg(width).arg(height);
}

QString described(const scaling::CropRectangle& crop)
{
    return described(crop.left, crop.top, crop.width, crop.height);
}

} // namespace

/// The arithmetic of rescaling, on plain numbers.
class TstScaling : public QObject {
    Q_OBJECT

private slots:
    void truncatedDropsTheFraction_data();
    void truncatedDropsTheFraction();
    void scaledMultipliesThenTruncates_data();
    void scaledMultipliesThenTruncates();
    void repeatedScalingTruncatesEachTime_data();
    void repeatedScalingTruncatesEachTime();
    void repeatedScalingEndsWhenNothingChanges();
    void cropIsCarriedToTheNewFrame_data();
    void cropIsCarriedToTheNewFrame();
    void imageKeepsItsOwnRatio_data();
    void imageKeepsItsOwnRatio();
};

void TstScaling::truncatedDropsTheFraction_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");

    const double infinity = std::numeric_limits<double>::infinity();

    QTest::newRow("zero") << 0.0 << 0;
    QTest::newRow("minus zero") << -0.0 << 0;
    QTest::newRow("whole number") << 42.0 << 42;
    QTest::newRow("negative whole number") << -42.0 << -42;
    QTest::newRow("just below one") << 0.9999999999999999 << 0;
    QTest::newRow("just above minus one moves toward zero") << -0.9999999999999999 << 0;
    QTest::newRow("half is not rounded up") << 2.5 << 2;
    QTest::newRow("negative half moves toward zero") << -2.5 << -2;
    QTest::newRow("almost the next") << 1.999999 << 1;
    QTest::newRow("negative, almost the next") << -1.999999 << -1;
    QTest::newRow("one step of a double below 255") << 254.99999999999997 << 254;
    QTest::newRow("smallest positive double") << std::numeric_limits<double>::denorm_min() << 0;
    QTest::newRow("largest int") << 2147483647.0 << largest;
    QTest::newRow("fraction above the largest int") << 2147483647.5 << largest;
    QTest::newRow("fraction below the largest int") << 2147483646.5 << 2147483646;
    QTest::newRow("one above the largest int") << 2147483648.0 << largest;
    QTest::newRow("far above") << 1e300 << largest;
    QTest::newRow("infinity") << infinity << largest;
    QTest::newRow("smallest int") << -2147483648.0 << smallest;
    QTest::newRow("fraction below the smallest int") << -2147483648.5 << smallest;
    QTest::newRow("fraction above the smallest int") << -2147483647.5 << -2147483647;
    QTest::newRow("one below the smallest int") << -2147483649.0 << smallest;
    QTest::newRow("far below") << -1e300 << smallest;
    QTest::newRow("minus infinity") << -infinity << smallest;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0;
}

void TstScaling::truncatedDropsTheFraction()
{
    QFETCH(const double, value);
    QFETCH(const int, expected);

    QCOMPARE(scaling::truncated(value), expected);
}

void TstScaling::scaledMultipliesThenTruncates_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("expected");

    QTest::newRow("half of an even number") << 100 << 0.5 << 50;
    QTest::newRow("half of an odd number") << 101 << 0.5 << 50;
    QTest::newRow("negative position moves toward zero") << -101 << 0.5 << -50;
    QTest::newRow("negative position to zero") << -1 << 0.5 << 0;
    QTest::newRow("larger") << 101 << 1.5 << 151;
    QTest::newRow("factor 0") << 100 << 0.0 << 0;
    QTest::newRow("factor 1") << 77 << 1.0 << 77;
    QTest::newRow("negative factor") << 101 << -0.5 << -50;
    QTest::newRow("negative value, negative factor") << -101 << -0.5 << 50;
    // 11 x 480 is 15 x 352, but the double nearest to 480 / 352 lies below it.
    QTest::newRow("factor that no double holds") << 11 << 480.0 / 352 << 14;
    QTest::newRow("the same, negative") << -11 << 480.0 / 352 << -14;
    // 105 x 1080 is 108 x 1050.
    QTest::newRow("PAL+ height to full HD height") << 105 << 1080.0 / 1050 << 107;
    QTest::newRow("largest int doubled") << largest << 2.0 << largest;
    QTest::newRow("smallest int doubled") << smallest << 2.0 << smallest;
    QTest::newRow("smallest int turned round") << smallest << -1.0 << largest;
    QTest::newRow("largest int kept") << largest << 1.0 << largest;
}

void TstScaling::scaledMultipliesThenTruncates()
{
    QFETCH(const int, value);
    QFETCH(const double, factor);
    QFETCH(const int, expected);

    QCOMPARE(scaling::scaled(value, factor), expected);
}

void TstScaling::repeatedScalingTruncatesEachTime_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("times");
    QTest::addColumn<int>("expected");

    QTest::newRow("never") << 101 << 0.5 << 0 << 101;
    QTest::newRow("once") << 101 << 0.5 << 1 << 50;
    QTest::newRow("twice") << 101 << 0.5 << 2 << 25;
    QTest::newRow("three times") << 101 << 0.5 << 3 << 12;
    QTest::newRow("until nothing is left") << 101 << 0.5 << 7 << 0;
    // 5 -> 7 -> 10 -> 15; 5 x 1.5^3 would be 16.
    QTest::newRow("each pass starts from the truncated value") << 5 << 1.5 << 3 << 15;
    // 1 -> 1 -> 1; 1 x 1.5^2 would be 2.
    QTest::newRow("a value that its own truncation holds") << 1 << 1.5 << 2 << 1;
    QTest::newRow("negative, toward zero each time") << -101 << 0.5 << 3 << -12;
    QTest::newRow("negative factor, even number of times") << 100 << -1.0 << 2 << 100;
    QTest::newRow("negative factor, odd number of times") << 100 << -1.0 << 3 << -100;
    // 11 -> 14 (not 15) -> 19.
    QTest::newRow("factor that no double holds") << 11 << 480.0 / 352 << 2 << 19;
    QTest::newRow("growth saturates") << 1000 << 2.0 << 100 << largest;
    QTest::newRow("negative growth saturates") << -1000 << 2.0 << 100 << smallest;
}

void TstScaling::repeatedScalingTruncatesEachTime()
{
    QFETCH(const int, value);
    QFETCH(const double, factor);
    QFETCH(const int, times);
    QFETCH(const int, expected);

    QCOMPARE(scaling::scaledRepeatedly(value, factor, times), expected);
}

void TstScaling::repeatedScalingEndsWhenNothingChanges()
{
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 1000; ++i) {
        QCOMPARE(scaling::scaledRepeatedly(1000, 0.5, largest), 0);
        QCOMPARE(scaling::scaledRepeatedly(7, 1.0, largest), 7);
        QCOMPARE(scaling::scaledRepeatedly(7, 3.0, largest), largest);
    }
    QVERIFY2(timer.elapsed() < 5000, "each pass is walked");
}

void TstScaling::cropIsCarriedToTheNewFrame_data()
{
    QTest::addColumn<QRect>("crop");
    QTest::addColumn<bool>("frameRatio");
    QTest::addColumn<QSize>("newSize");
    QTest::addColumn<QSize>("oldSize");
    QTest::addColumn<QString>("expected");

    const QSize fullHd(1920, 1080);
    const QSize vga(640, 480);

    QTest::newRow("half size") << QRect(100, 50, 800, 600) << false << QSize(960, 540) << fullHd << "50,25 400x300";
    QTest::newRow("half size, ratio of the frame")
        << QRect(100, 50, 800, 600) << true << QSize(960, 540) << fullHd << "50,25 400x225";
    QTest::newRow("fractions are dropped")
        << QRect(101, 51, 801, 601) << false << QSize(960, 540) << fullHd << "50,25 400x300";
    QTest::newRow("negative position moves toward zero")
        << QRect(-101, -51, 800, 600) << false << QSize(960, 540) << fullHd << "-50,-25 400x300";
    QTest::newRow("position beyond the frame is kept")
        << QRect(5000, 100, 800, 600) << false << QSize(960, 540) << fullHd << "2500,50 400x300";
    // 24 x 450 at half size: 12 / (24 / 450) is 225, and 224.99999999999997 in
    // doubles.
    QTest::newRow("ratio that no double holds")
        << QRect(0, 0, 24, 450) << false << QSize(960, 540) << fullHd << "0,0 12x224";
    QTest::newRow("same size") << QRect(10, 20, 300, 200) << false << vga << vga << "10,20 300x200";

    // Only one side of the frame changes: the width leads, the height follows by
    // the crop's own ratio.
    QTest::newRow("only the width halves")
        << QRect(100, 50, 300, 200) << false << QSize(320, 480) << vga << "50,50 150x100";
    QTest::newRow("only the height halves: the rectangle does not shrink")
        << QRect(100, 50, 300, 200) << false << QSize(640, 240) << vga << "100,25 300x200";
    QTest::newRow("only the height halves, ratio of the frame")
        << QRect(100, 50, 300, 200) << true << QSize(640, 240) << vga << "100,25 300x112";

    // The rectangle is taken from the height once top + height reach the height
    // of the old frame.
    QTest::newRow("one pixel short of the old height") // 640 x 239 / 320
        << QRect(0, 0, 320, 239) << false << QSize(1280, 480) << vga << "0,0 640x478";
    QTest::newRow("height exactly the old height") // 640 x 240 / 320
        << QRect(0, 0, 320, 240) << false << QSize(1280, 480) << vga << "0,0 320x240";
    QTest::newRow("height above the old height")
        << QRect(0, 0, 320, 300) << false << QSize(1280, 480) << vga << "0,0 320x300";
    QTest::newRow("one pixel short of the old height, with the top")
        << QRect(0, 79, 320, 200) << false << QSize(1280, 480) << vga << "0,79 640x400";
    QTest::newRow("exactly the old height, with the top")
        << QRect(0, 80, 320, 200) << false << QSize(1280, 480) << vga << "0,80 320x200";
    QTest::newRow("the scaled top counts, not the old one") // 2 x 150 + 180 reach 480, 150
                                                            // + 180 do not
        << QRect(0, 150, 640, 180) << false << QSize(640, 960) << vga << "0,300 1280x360";
    QTest::newRow("old height reached, new one not: taken from the height, wider than the frame")
        << QRect(0, 200, 640, 300) << false << QSize(640, 960) << vga << "0,400 1280x600";
    QTest::newRow("new height passed, old one not: stays higher than the new frame")
        << QRect(0, 0, 1000, 1000) << false << QSize(1920, 540) << fullHd << "0,0 1000x1000";
    QTest::newRow("taken from the height, ratio of the frame") // 1280 / (1280 / 960) = 960
                                                               // reaches 480
        << QRect(0, 0, 640, 100) << true << QSize(1280, 960) << vga << "0,0 266x200";
    QTest::newRow("taken from the height, fractions are dropped") // 101 -> 151, 151 x 201 /
                                                                  // 101 = 300.5
        << QRect(0, 900, 201, 101) << false << QSize(1920, 1080) << QSize(1280, 720) << "0,1350 300x151";
    // 538 -> 807, 807 / 538 x 164 is 246, and 245.99999999999997 in doubles.
    QTest::newRow("taken from the height, ratio that no double holds")
        << QRect(0, 0, 164, 538) << false << QSize(1920, 1080) << QSize(1280, 720) << "0,0 245x807";
    // The height by width is -0.5: 480 - 0.5 does not reach 480.
    QTest::newRow("the height is compared before it is truncated")
        << QRect(0, 480, -1, 100) << true << QSize(960, 480) << QSize(960, 480) << "0,480 -1x0";

    QTest::newRow("negative width and height") // -200 / (-400 / -300) = -150
        << QRect(0, 0, -400, -300) << false << QSize(320, 240) << vga << "0,0 -200x-150";
    QTest::newRow("negative sizes of the frame are factors like others")
        << QRect(100, 50, 400, 300) << false << QSize(-320, -240) << vga << "-50,-25 -200x-150";
    QTest::newRow("width shrinks to nothing") // 0 / (1 / 100) = 0
        << QRect(0, 0, 1, 100) << false << QSize(320, 240) << vga << "0,0 0x0";
    QTest::newRow("position saturates") << QRect(1500000000, 0, 600000000, 1) << false << QSize(1280, 960) << vga
                                        << "2147483647,0 1200000000x2";
    QTest::newRow("width saturates") // 2147483647 / 1500000000
        << QRect(0, 0, 1500000000, 1) << false << QSize(1280, 960) << vga << "0,0 2147483647x1";
}

void TstScaling::cropIsCarriedToTheNewFrame()
{
    QFETCH(const QRect, crop);
    QFETCH(const bool, frameRatio);
    QFETCH(const QSize, newSize);
    QFETCH(const QSize, oldSize);
    QFETCH(const QString, expected);

    const scaling::CropRectangle source = {crop.x(), crop.y(), crop.width(), crop.height()};
    QCOMPARE(described(scaling::scaledCrop(source, frameRatio, newSize, oldSize)), expected);
}

void TstScaling::imageKeepsItsOwnRatio_data()
{
    QTest::addColumn<QSize>("image");
    QTest::addColumn<double>("factor");
    QTest::addColumn<QSize>("expected");

    QTest::newRow("half size") << QSize(200, 100) << 0.5 << QSize(100, 50);
    QTest::newRow("double size") << QSize(200, 100) << 2.0 << QSize(400, 200);
    QTest::newRow("unchanged") << QSize(200, 100) << 1.0 << QSize(200, 100);
    QTest::newRow("fractions are dropped") << QSize(10, 7) << 1.5 << QSize(15, 10);
    // 101 -> 50; 50 / (101 / 100) = 49.5, not 100 x 0.5.
    QTest::newRow("the height follows the truncated width") << QSize(101, 100) << 0.5 << QSize(50, 49);
    // 58 / 2 is 29, and 5 / (10 / 58) is 28.999999999999996 in doubles.
    QTest::newRow("ratio that no double holds") << QSize(10, 58) << 0.5 << QSize(5, 28);
    QTest::newRow("ratio that no double holds, same width") << QSize(1, 93) << 1.0 << QSize(1, 92);
    QTest::newRow("height 0 keeps both") << QSize(100, 0) << 0.5 << QSize(100, 0);
    QTest::newRow("no size") << QSize(0, 0) << 0.5 << QSize(0, 0);
    QTest::newRow("width 0 takes the height with it") << QSize(0, 50) << 2.0 << QSize(0, 0);
    QTest::newRow("width truncated to 0 takes the height with it") << QSize(3, 100) << 0.25 << QSize(0, 0);
    QTest::newRow("height truncated to 0") << QSize(100, 3) << 0.1 << QSize(10, 0);
    QTest::newRow("negative height") << QSize(10, -7) << 1.5 << QSize(15, -10);
    QTest::newRow("negative width") << QSize(-10, 7) << 1.5 << QSize(-15, 10);
    QTest::newRow("negative factor") << QSize(10, 7) << -1.5 << QSize(-15, -10);
    QTest::newRow("width saturates") << QSize(largest, 1) << 2.0 << QSize(largest, 1);
    QTest::newRow("height saturates") << QSize(1, largest) << 3.0 << QSize(3, largest);
}

void TstScaling::imageKeepsItsOwnRatio()
{
    QFETCH(const QSize, image);
    QFETCH(const double, factor);
    QFETCH(const QSize, expected);

    QCOMPARE(scaling::scaledImage(image, factor), expected);
}

QTEST_GUILESS_MAIN(TstScaling)

#include "tst_scaling.moc"
