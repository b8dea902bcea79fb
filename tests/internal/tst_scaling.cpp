// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>

#include "scaling_p.h"

#include "../support/rows.h"

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();
constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

class TstScaling : public QObject {
    Q_OBJECT

private slots:
    void truncatedDropsTheFraction_data()
    {
        addRows<double, int>({
            {"minus zero", -0.0, 0},
            {"whole number", -42.0, -42},
            {"just below one", 0.9999999999999999, 0},
            {"just above minus one moves toward zero", -0.9999999999999999, 0},
            {"half is not rounded up", 2.5, 2},
            {"negative half moves toward zero", -2.5, -2},
            {"one step of a double below 255", 254.99999999999997, 254},
            {"largest int", 2147483647.0, largest},
            {"fraction above the largest int", 2147483647.5, largest},
            {"fraction below the largest int", 2147483646.5, 2147483646},
            {"one above the largest int", 2147483648.0, largest},
            {"infinity", infinity, largest},
            {"smallest int", -2147483648.0, smallest},
            {"fraction below the smallest int", -2147483648.5, smallest},
            {"fraction above the smallest int", -2147483647.5, -2147483647},
            {"one below the smallest int", -2147483649.0, smallest},
            {"minus infinity", -infinity, smallest},
            {"not a number", std::numeric_limits<double>::quiet_NaN(), 0},
        });
    }

    void truncatedDropsTheFraction()
    {
        const auto [value, expected] = row<double, int>();
        QCOMPARE(scaling::truncated(value), expected);
    }

    void scalingTruncatesEachTime_data()
    {
        addRows<int, double, int, int>({
            {"never", 101, 0.5, 0, 101},
            {"half of an odd number", 101, 0.5, 1, 50},
            {"negative position moves toward zero", -101, 0.5, 1, -50},
            {"factor 0", 100, 0.0, 1, 0},
            {"negative factor", 101, -0.5, 1, -50},
            // 11 x 480 is 15 x 352, but the double nearest to 480 / 352 lies below it.
            {"factor that no double holds", 11, 480.0 / 352, 1, 14},
            {"largest int doubled", largest, 2.0, 1, largest},
            {"smallest int turned round", smallest, -1.0, 1, largest},
            {"largest int kept", largest, 1.0, 1, largest},
            {"three times", 101, 0.5, 3, 12},
            {"until nothing is left", 101, 0.5, 7, 0},
            // 5 -> 7 -> 10 -> 15; 5 x 1.5^3 would be 16.
            {"each pass starts from the truncated value", 5, 1.5, 3, 15},
            // 1 -> 1 -> 1; 1 x 1.5^2 would be 2.
            {"a value that its own truncation holds", 1, 1.5, 2, 1},
            {"negative factor, even number of times", 100, -1.0, 2, 100},
            {"negative factor, odd number of times", 100, -1.0, 3, -100},
            {"growth saturates", 1000, 2.0, 100, largest},
            {"negative growth saturates", -1000, 2.0, 100, smallest},
        });
    }

    void scalingTruncatesEachTime()
    {
        const auto [value, factor, times, expected] = row<int, double, int, int>();
        QCOMPARE(scaling::scaledRepeatedly(value, factor, times), expected);
        if (times == 1)
            QCOMPARE(scaling::scaled(value, factor), expected);
    }

    // Walking each pass would take hours.
    void repeatedScalingEndsWhenNothingChanges()
    {
        for (int i = 0; i < 1000; ++i) {
            QCOMPARE(scaling::scaledRepeatedly(1000, 0.5, largest), 0);
            QCOMPARE(scaling::scaledRepeatedly(7, 1.0, largest), 7);
            QCOMPARE(scaling::scaledRepeatedly(7, 3.0, largest), largest);
        }
    }

    void cropIsCarriedToTheNewFrame_data()
    {
        const QSize fullHd(1920, 1080);
        const QSize half(960, 540);
        const QSize hd(1280, 720);
        const QSize vga(640, 480);
        const QSize wide(1280, 480);
        addRows<QRect, bool, QSize, QSize, QRect>({
            {"half size", QRect(101, 51, 801, 601), false, half, fullHd, QRect(50, 25, 400, 300)},
            {"half size, ratio of the frame", QRect(100, 50, 800, 600), true, half, fullHd, QRect(50, 25, 400, 225)},
            {"negative position moves toward zero", QRect(-101, -51, 800, 600), false, half, fullHd,
             QRect(-50, -25, 400, 300)},
            {"position beyond the frame is kept", QRect(5000, 100, 800, 600), false, half, fullHd,
             QRect(2500, 50, 400, 300)},
            // 12 / (24 / 450) is 225, and 224.99999999999997 in doubles.
            {"ratio that no double holds", QRect(0, 0, 24, 450), false, half, fullHd, QRect(0, 0, 12, 224)},

            // Only one side of the frame changes: the width leads, the height follows by the crop's own ratio.
            {"only the width halves", QRect(100, 50, 300, 200), false, QSize(320, 480), vga, QRect(50, 50, 150, 100)},
            {"only the height halves", QRect(100, 50, 300, 200), false, QSize(640, 240), vga, QRect(100, 25, 300, 200)},
            {"only the height halves, ratio of the frame", QRect(100, 50, 300, 200), true, QSize(640, 240), vga,
             QRect(100, 25, 300, 112)},

            // Taken from the height once top + height reach the height of the old frame.
            {"one pixel short of the old height", QRect(0, 0, 320, 239), false, wide, vga, QRect(0, 0, 640, 478)},
            {"height exactly the old height", QRect(0, 0, 320, 240), false, wide, vga, QRect(0, 0, 320, 240)},
            {"one pixel short of the old height, with the top", QRect(0, 79, 320, 200), false, wide, vga,
             QRect(0, 79, 640, 400)},
            {"exactly the old height, with the top", QRect(0, 80, 320, 200), false, wide, vga, QRect(0, 80, 320, 200)},
            // 2 x 150 + 180 reach 480, 150 + 180 do not.
            {"the scaled top counts, not the old one", QRect(0, 150, 640, 180), false, QSize(640, 960), vga,
             QRect(0, 300, 1280, 360)},
            {"old height reached, new one not: wider than the frame", QRect(0, 200, 640, 300), false, QSize(640, 960),
             vga, QRect(0, 400, 1280, 600)},
            {"new height passed, old one not: stays higher than the new frame", QRect(0, 0, 1000, 1000), false,
             QSize(1920, 540), fullHd, QRect(0, 0, 1000, 1000)},
            // 1280 / (1280 / 960) = 960 reaches 480.
            {"taken from the height, ratio of the frame", QRect(0, 0, 640, 100), true, QSize(1280, 960), vga,
             QRect(0, 0, 266, 200)},
            // 101 -> 151, 151 x 201 / 101 = 300.5.
            {"taken from the height, fractions are dropped", QRect(0, 900, 201, 101), false, fullHd, hd,
             QRect(0, 1350, 300, 151)},
            // 538 -> 807, 807 / 538 x 164 is 246, and 245.99999999999997 in doubles.
            {"taken from the height, ratio that no double holds", QRect(0, 0, 164, 538), false, fullHd, hd,
             QRect(0, 0, 245, 807)},
            // The height by width is -0.5: 480 - 0.5 does not reach 480.
            {"the height is compared before it is truncated", QRect(0, 480, -1, 100), true, QSize(960, 480),
             QSize(960, 480), QRect(0, 480, -1, 0)},

            // -200 / (-400 / -300) = -150.
            {"negative width and height", QRect(0, 0, -400, -300), false, QSize(320, 240), vga,
             QRect(0, 0, -200, -150)},
            {"negative sizes of the frame are factors like others", QRect(100, 50, 400, 300), false, QSize(-320, -240),
             vga, QRect(-50, -25, -200, -150)},
            {"width shrinks to nothing", QRect(0, 0, 1, 100), false, QSize(320, 240), vga, QRect(0, 0, 0, 0)},
            // 2147483647 / 1500000000.
            {"width saturates", QRect(0, 0, 1500000000, 1), false, QSize(1280, 960), vga, QRect(0, 0, largest, 1)},
        });
    }

    void cropIsCarriedToTheNewFrame()
    {
        const auto [crop, frameRatio, newSize, oldSize, expected] = row<QRect, bool, QSize, QSize, QRect>();
        const scaling::CropRectangle source = {crop.x(), crop.y(), crop.width(), crop.height()};
        const scaling::CropRectangle scaled = scaling::scaledCrop(source, frameRatio, newSize, oldSize);
        QCOMPARE(QPoint(scaled.left, scaled.top), expected.topLeft());
        QCOMPARE(QSize(scaled.width, scaled.height), expected.size());
    }

    void imageKeepsItsOwnRatio_data()
    {
        addRows<QSize, double, QSize>({
            {"double size", QSize(200, 100), 2.0, QSize(400, 200)},
            {"fractions are dropped", QSize(10, 7), 1.5, QSize(15, 10)},
            // 101 -> 50; 50 / (101 / 100) = 49.5, not 100 x 0.5.
            {"the height follows the truncated width", QSize(101, 100), 0.5, QSize(50, 49)},
            // 58 / 2 is 29, and 5 / (10 / 58) is 28.999999999999996 in doubles.
            {"ratio that no double holds", QSize(10, 58), 0.5, QSize(5, 28)},
            {"ratio that no double holds, same width", QSize(1, 93), 1.0, QSize(1, 92)},
            {"height 0 keeps both", QSize(100, 0), 0.5, QSize(100, 0)},
            {"width 0 takes the height with it", QSize(0, 50), 2.0, QSize(0, 0)},
            {"width truncated to 0 takes the height with it", QSize(3, 100), 0.25, QSize(0, 0)},
            {"height truncated to 0", QSize(100, 3), 0.1, QSize(10, 0)},
            {"negative height", QSize(10, -7), 1.5, QSize(15, -10)},
            {"negative width and factor", QSize(-10, 7), -1.5, QSize(15, -10)},
            {"width saturates", QSize(largest, 1), 2.0, QSize(largest, 1)},
            {"height saturates", QSize(1, largest), 3.0, QSize(3, largest)},
        });
    }

    void imageKeepsItsOwnRatio()
    {
        const auto [image, factor, expected] = row<QSize, double, QSize>();
        QCOMPARE(scaling::scaledImage(image, factor), expected);
    }
};

QTEST_GUILESS_MAIN(TstScaling)

#include "tst_scaling.moc"
