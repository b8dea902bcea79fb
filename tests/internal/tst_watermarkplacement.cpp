// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The search for a free place beside the shown watermarks.

#include <limits>

#include "watermarkplacement_p.h"

#include "../support/rows.h"

using placement::OccupiedRect;

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

const QSize vga(640, 480);

/// The rectangles of watermarks, "left top width height" each, separated by commas.
QVector<OccupiedRect> shown(const QString& watermarks)
{
    QVector<OccupiedRect> rectangles;
    const QStringList entries = watermarks.isEmpty() ? QStringList() : watermarks.split(", ");
    for (const QString& entry : entries) {
        const QStringList numbers = entry.split(' ');
        rectangles.append(OccupiedRect::ofWatermark(numbers.at(0).toInt(), numbers.at(1).toInt(), numbers.at(2).toInt(),
                                                    numbers.at(3).toInt()));
    }
    return rectangles;
}

/// "x,y", or "none".
QString described(const std::optional<QPoint>& place)
{
    return place ? QString("%1,%2").arg(place->x()).arg(place->y()) : QString("none");
}

QString described(const OccupiedRect& rect)
{
    return QString("columns %1 to %2, rows %3 to %4").arg(rect.left).arg(rect.right).arg(rect.top).arg(rect.bottom);
}

} // namespace

class TstWatermarkPlacement : public QObject {
    Q_OBJECT

private slots:
    void rectangleOfAWatermark_data()
    {
        addRows<QString, QString>({
            {"last column and row lie inside", "10 20 100 50", "columns 10 to 109, rows 20 to 69"},
            {"without size: 30 wide, 0 high", "10 20 0 0", "columns 10 to 39, rows 20 to 19"},
            {"only the width is 0", "10 20 0 50", "columns 10 to 9, rows 20 to 69"},
            {"only the height is 0", "10 20 100 0", "columns 10 to 109, rows 20 to 19"},
            {"negative size", "10 20 -5 -6", "columns 10 to 4, rows 20 to 13"},
            {"largest edges do not overflow", "2147483647 2147483647 2147483647 2147483647",
             "columns 2147483647 to 4294967293, rows 2147483647 to 4294967293"},
            {"smallest edges do not overflow", "-2147483648 -2147483648 -2147483648 -2147483648",
             "columns -2147483648 to -4294967297, rows -2147483648 to -4294967297"},
        });
    }

    void rectangleOfAWatermark()
    {
        const auto [watermark, expected] = row<QString, QString>();
        QCOMPARE(described(shown(watermark).constFirst()), expected);
    }

    void grownByOnePixelOnEverySide()
    {
        QCOMPARE(described(OccupiedRect{0, 0, 99, 49}.grown()), QString("columns -1 to 100, rows -1 to 50"));
        QCOMPARE(described(OccupiedRect{10, 20, 4, 13}.grown()), QString("columns 9 to 5, rows 19 to 14"));
    }

    void containsItsEdges_data()
    {
        addRows<QString, QPoint, bool>({
            {"top left corner", "10 20 5 5", QPoint(10, 20), true},
            {"bottom right corner", "10 20 5 5", QPoint(14, 24), true},
            {"left of it", "10 20 5 5", QPoint(9, 22), false},
            {"right of it", "10 20 5 5", QPoint(15, 22), false},
            {"above it", "10 20 5 5", QPoint(12, 19), false},
            {"below it", "10 20 5 5", QPoint(12, 25), false},
            {"one pixel", "10 20 1 1", QPoint(10, 20), true},
            {"width 0 holds no column", "10 20 0 5", QPoint(10, 22), false},
            {"width 0 holds no column before it", "10 20 0 5", QPoint(9, 22), false},
            {"height 0 holds no row", "10 20 5 0", QPoint(12, 20), false},
            // Width -1: from column 10 back to column 8.
            {"width -1, its left", "10 20 -1 5", QPoint(10, 22), true},
            {"width -1, its right", "10 20 -1 5", QPoint(8, 22), true},
            {"width -1, beyond its left", "10 20 -1 5", QPoint(11, 22), false},
            {"width -1, beyond its right", "10 20 -1 5", QPoint(7, 22), false},
            {"height -3, its top", "10 20 5 -3", QPoint(12, 20), true},
            {"height -3, its bottom", "10 20 5 -3", QPoint(12, 16), true},
            {"height -3, beyond its bottom", "10 20 5 -3", QPoint(12, 15), false},
        });
    }

    void containsItsEdges()
    {
        const auto [watermark, point, expected] = row<QString, QPoint, bool>();
        QCOMPARE(shown(watermark).constFirst().contains(point.x(), point.y()), expected);
    }

    void diagonalSteps_data()
    {
        const QSize unknown(0, 0);
        addRows<QString, QPoint, QSize, QString>({
            {"beside one of 100 x 50 at the same corner", "0 0 100 50", QPoint(0, 0), vga, "60,60"},
            {"free at once", "0 0 100 50", QPoint(200, 200), vga, "200,200"},

            // Grown: columns 99 to 150, rows 99 to 150.
            {"on the grown left edge", "100 100 50 50", QPoint(99, 120), vga, "159,180"},
            {"left of the grown edge, its probe inside", "100 100 50 50", QPoint(98, 120), vga, "158,180"},
            {"probe on the grown left edge", "100 100 50 50", QPoint(69, 100), vga, "129,160"},
            {"probe left of the grown edge", "100 100 50 50", QPoint(68, 100), vga, "68,100"},
            {"on the grown right edge", "100 100 50 50", QPoint(150, 100), vga, "180,130"},
            {"right of the grown edge", "100 100 50 50", QPoint(151, 100), vga, "151,100"},
            {"on the grown top edge", "100 100 50 50", QPoint(130, 99), vga, "160,129"},
            {"above the grown edge", "100 100 50 50", QPoint(130, 98), vga, "130,98"},
            {"on the grown bottom edge", "100 100 50 50", QPoint(130, 150), vga, "160,180"},
            {"below the grown edge", "100 100 50 50", QPoint(130, 151), vga, "130,151"},

            // Grown: columns 99 to 130, rows 99 and 100.
            {"sizeless, first blocked row", "100 100 0 0", QPoint(100, 99), vga, "130,129"},
            {"sizeless, row below the blocked ones", "100 100 0 0", QPoint(100, 101), vga, "100,101"},
            {"sizeless, last blocked column", "100 100 0 0", QPoint(130, 100), vga, "160,130"},
            {"width 0 blocks two columns", "100 100 0 20", QPoint(100, 105), vga, "130,135"},
            {"width 0, right of the two columns", "100 100 0 20", QPoint(101, 105), vga, "101,105"},
            // Width -1, grown: column 99 alone. Width -2: none. Width -3: columns 97 to 99.
            {"width -1 blocks one column", "100 100 -1 50", QPoint(99, 120), vga, "129,150"},
            {"width -1, left of it", "100 100 -1 50", QPoint(98, 120), vga, "98,120"},
            {"width -1, hit by the probe", "100 100 -1 50", QPoint(69, 120), vga, "129,180"},
            {"width -2 blocks nothing", "100 100 -2 50", QPoint(99, 120), vga, "99,120"},
            {"width -3, first column", "100 100 -3 50", QPoint(97, 120), vga, "127,150"},
            {"width -3, left of it", "100 100 -3 50", QPoint(96, 120), vga, "96,120"},
            {"height -2 blocks nothing", "100 100 50 -2", QPoint(120, 99), vga, "120,99"},
            {"height -3, first row", "100 100 50 -3", QPoint(120, 97), vga, "150,127"},

            // The limits are 30 less than the frame.
            {"start on the right limit, though free", "0 0 10 10", QPoint(610, 100), vga, "none"},
            {"start left of the right limit", "0 0 10 10", QPoint(609, 100), vga, "609,100"},
            {"start on the bottom limit, though free", "0 0 10 10", QPoint(100, 450), vga, "none"},
            {"start above the bottom limit", "0 0 10 10", QPoint(100, 449), vga, "100,449"},
            {"step onto the right limit", "0 0 50 50", QPoint(10, 10), QSize(100, 480), "none"},
            {"step before the right limit", "0 0 50 50", QPoint(10, 10), QSize(101, 480), "70,70"},
            {"step onto the bottom limit", "0 0 50 50", QPoint(10, 10), QSize(640, 100), "none"},
            {"step before the bottom limit", "0 0 50 50", QPoint(10, 10), QSize(640, 101), "70,70"},
            {"frame covered whole", "0 0 640 480", QPoint(0, 0), vga, "none"},
            {"frame unknown", "0 0 10 10", QPoint(0, 0), unknown, "none"},
            {"frame unknown, start before the negative limit", "0 0 10 10", QPoint(-31, -31), unknown, "-31,-31"},
            {"frame of smallest size", "0 0 10 10", QPoint(smallest, smallest), QSize(smallest, smallest), "none"},

            {"negative start steps on", "-100 -100 30 30", QPoint(-100, -100), vga, "-40,-40"},
            {"start in the corner of the numbers", "-2147483648 -2147483648 10 10", QPoint(smallest, smallest), vga,
             "-2147483618,-2147483618"},
            {"one after the other blocks", "0 0 30 30, 60 30 30 30", QPoint(0, 0), vga, "90,90"},
            {"their order does not matter", "60 30 30 30, 0 0 30 30", QPoint(0, 0), vga, "90,90"},
            {"gap of one step between two", "0 0 30 30, 120 90 10 40", QPoint(0, 0), vga, "60,60"},
            {"one inside another", "0 0 200 200, 50 50 10 10", QPoint(0, 0), vga, "210,210"},
            {"no watermark", "", QPoint(5, 5), vga, "5,5"},
        });
    }

    void diagonalSteps()
    {
        const auto [watermarks, start, baseSize, expected] = row<QString, QPoint, QSize, QString>();
        QCOMPARE(described(placement::freePlaceByDiagonalSteps(shown(watermarks), start, baseSize)), expected);
    }

    void rightOfTheLeftmost_data()
    {
        addRows<QString, QSize, QString>({
            {"20 right of the last column, level with the top", "0 40 100 50", vga, "119,40"},
            {"without size: 30 wide", "100 100 0 0", vga, "149,100"},
            {"smallest right edge, not the first listed", "300 10 100 10, 0 50 100 10", vga, "119,50"},
            {"smallest right edge, not the smallest left edge", "0 10 200 10, 100 50 50 10", vga, "169,50"},
            {"equal right edges: the first listed", "0 100 100 10, 50 20 50 10", vga, "119,100"},
            {"left of the frame", "-200 10 100 10", vga, "-81,10"},
            {"on the right limit", "0 0 591 10", vga, "none"},
            {"before the right limit", "0 0 590 10", vga, "609,0"},
            {"on the bottom limit, which still counts", "0 450 100 10", vga, "119,450"},
            {"below the bottom limit: the others are not tried", "0 451 100 10, 200 100 50 50", vga, "none"},
            {"above the frame: the others are not tried", "0 -1 100 10, 200 100 50 50", vga, "none"},
            {"second above the frame: the third is not tried", "0 0 100 50, 110 -10 50 50, 400 100 10 10", vga, "none"},
            {"above the frame but not picked", "200 -1 50 50, 0 100 100 10", vga, "119,100"},
            {"blocked: the next one", "0 0 100 50, 110 0 50 50", vga, "179,0"},
            {"probe blocked: the next one", "0 0 100 50, 149 0 50 50", vga, "218,0"},
            {"right of the probe is free", "0 0 100 50, 150 0 50 50", vga, "119,0"},
            {"between place and probe is free, nothing is grown", "0 0 100 50, 120 0 29 50", vga, "119,0"},
            {"directly below is free, nothing is grown", "0 0 100 50, 110 1 50 50", vga, "119,0"},
            {"directly above is free, nothing is grown", "0 10 100 50, 110 0 50 10", vga, "119,10"},
            {"sizeless ones block nothing", "0 0 100 50, 110 0 0 0", vga, "119,0"},
            {"all blocked", "0 0 100 50, 110 0 60 50, 180 0 411 50", vga, "none"},
            // Width -100 holds the columns 199 to 300: the place right of its last column lies inside itself.
            {"blocked by one that was already passed over", "300 50 -100 10, 201 55 50 2", vga, "none"},
            {"row that the passed over one leaves free", "300 50 -100 10, 201 60 50 2", vga, "270,60"},
            {"no watermark", "", vga, "none"},
            {"frame unknown", "0 0 100 10", QSize(0, 0), "none"},
            {"frame of smallest size", "-2147483648 -2147483648 1 1", QSize(smallest, smallest), "none"},
            {"right edge beyond the numbers", "2147483647 0 2147483647 10", QSize(largest, largest), "none"},
        });
    }

    void rightOfTheLeftmost()
    {
        const auto [watermarks, baseSize, expected] = row<QString, QSize, QString>();
        QCOMPARE(described(placement::freePlaceRightOfLeftmost(shown(watermarks), baseSize)), expected);
    }

    void atTheLeftMargin_data()
    {
        addRows<QString, QSize, QString>({
            {"column 10, level with the top", "100 50 80 20", vga, "10,50"},
            {"greatest left edge, not the first listed", "100 50 80 20, 300 70 10 10", vga, "10,70"},
            {"greatest left edge, not the greatest right edge", "100 50 500 20, 300 70 10 10", vga, "10,70"},
            {"equal left edges: the first listed", "100 50 80 20, 100 70 80 20", vga, "10,50"},
            {"left edge 31", "31 50 5 20", vga, "10,50"},
            {"left edge 30", "30 50 5 20", vga, "none"},
            {"left edge 31 under the probe", "31 50 10 20", vga, "none"},
            {"on the bottom limit, which still counts", "100 450 10 10", vga, "10,450"},
            {"top row", "100 0 10 10", vga, "10,0"},
            {"above the frame: the others are not tried", "300 -1 10 10, 100 50 80 20", vga, "none"},
            {"below the limit: the others are not tried", "300 451 10 10, 100 50 80 20", vga, "none"},
            {"above the frame but not picked", "100 -1 10 10, 300 50 80 20", vga, "10,50"},
            {"width of the frame plays no part", "100 50 80 20", QSize(20, 480), "10,50"},
            {"blocked at column 10: the next one", "300 50 80 20, 10 45 1 10, 200 200 80 20", vga, "10,200"},
            {"blocked at column 40: the next one", "300 50 80 20, 40 45 1 10, 200 200 80 20", vga, "10,200"},
            {"beside the two columns is free", "300 50 80 20, 11 45 29 10, 41 45 5 10, 0 45 10 10", vga, "10,50"},
            {"directly above and below is free", "300 50 80 20, 10 40 1 10, 10 51 1 10", vga, "10,50"},
            {"blocked, and the next too far left", "300 50 80 20, 0 50 20 10", vga, "none"},
            {"blocked by one that was already passed over", "35 100 10 100, 32 150 2 2", vga, "none"},
            {"row that the passed over one leaves free", "35 100 10 100, 32 200 2 2", vga, "10,200"},
            {"second above the frame: the third is not tried", "300 50 80 20, 10 45 1 10, 200 -5 80 20, 100 200 80 20",
             vga, "none"},
            {"sizeless ones block nothing", "300 50 80 20, 10 50 0 0", vga, "10,50"},
            {"no watermark", "", vga, "none"},
            {"frame unknown", "100 0 10 10", QSize(0, 0), "none"},
            {"frame of smallest size", "100 -2147483648 10 10", QSize(smallest, smallest), "none"},
        });
    }

    void atTheLeftMargin()
    {
        const auto [watermarks, baseSize, expected] = row<QString, QSize, QString>();
        QCOMPARE(described(placement::freePlaceAtLeftMargin(shown(watermarks), baseSize)), expected);
    }

    void shiftedFromTheFirst_data()
    {
        addRows<QString, QSize, QString>({
            {"only the first one counts", "100 50 80 20, 0 0 10 10", vga, "130,80"},
            {"the place may be occupied", "0 0 640 480, 30 30 5 5", vga, "30,30"},
            {"last column of the frame, inside the margin", "609 0 10 10", vga, "639,30"},
            {"right of the frame: the second is not tried", "610 0 10 10, 0 0 10 10", vga, "none"},
            {"last row of the frame, inside the margin", "0 449 10 10", vga, "30,479"},
            {"below the frame", "0 450 10 10", vga, "none"},
            {"left of and above the frame", "-500 -400 10 10", vga, "-470,-370"},
            {"frame unknown", "0 0 10 10", QSize(0, 0), "none"},
            {"beyond the numbers", "2147483647 2147483647 10 10", QSize(largest, largest), "none"},
            {"no watermark", "", vga, "none"},
        });
    }

    void shiftedFromTheFirst()
    {
        const auto [watermarks, baseSize, expected] = row<QString, QSize, QString>();
        QCOMPARE(described(placement::placeShiftedFromFirst(shown(watermarks), baseSize)), expected);
    }

    void searchesFollowOneAnother_data()
    {
        addRows<QString, QPoint, QSize, QString>({
            {"nothing is shown: no place is looked for", "", QPoint(5, 5), vga, "none"},
            {"diagonal steps come first", "0 0 100 50", QPoint(0, 0), vga, "60,60"},
            {"start on the right limit: right of the leftmost", "0 40 100 50", QPoint(610, 0), vga, "119,40"},
            // Steps 0 to 14 lie in it; step 15 is at row 450.
            {"diagonal used up: right of the leftmost", "0 0 500 480", QPoint(0, 0), vga, "519,0"},
            {"nothing to the right: at the left margin", "50 0 590 480", QPoint(60, 10), vga, "10,0"},
            {"right search ended above the frame: at the left margin", "0 -20 20 10, 200 100 50 50", QPoint(610, 0),
             vga, "10,100"},
            {"margin search ended above the frame: shifted from the first", "0 0 620 10, 600 -5 5 1", QPoint(610, 0),
             vga, "30,30"},
            {"shifted into the margin of the frame, where no other search would go", "600 440 40 40, 0 0 640 480",
             QPoint(0, 0), vga, "630,470"},
            {"all four fail", "615 460 40 40, 0 0 640 480", QPoint(0, 0), vga, "none"},
            {"frame unknown", "0 0 10 10", QPoint(0, 0), QSize(0, 0), "none"},
        });
    }

    void searchesFollowOneAnother()
    {
        const auto [watermarks, start, baseSize, expected] = row<QString, QPoint, QSize, QString>();
        QCOMPARE(described(placement::freePlace(shown(watermarks), start, baseSize)), expected);
    }

    void savedPlace_data()
    {
        // 10 10 5 5 has the columns and rows 10 to 14; the point looked at is 2 right of and below the place.
        addRows<QString, QPoint, bool>({
            {"nothing is shown", "", QPoint(10, 10), true},
            {"one elsewhere: never free", "300 300 5 5", QPoint(10, 10), false},
            {"two elsewhere", "300 300 5 5, 300 300 5 5", QPoint(10, 10), true},
            {"the first of two here", "10 10 5 5, 300 300 5 5", QPoint(10, 10), false},
            {"the second of two here: not looked at", "300 300 5 5, 10 10 5 5", QPoint(10, 10), true},
            {"three elsewhere: never free", "300 300 5 5, 300 300 5 5, 300 300 5 5", QPoint(10, 10), false},
            {"the third of four here", "9 9 1 1, 9 9 1 1, 10 10 5 5, 9 9 1 1", QPoint(10, 10), false},
            {"the second and fourth of four here", "9 9 1 1, 10 10 5 5, 9 9 1 1, 10 10 5 5", QPoint(10, 10), true},
            {"2 before the first column and row", "10 10 5 5, 300 300 5 5", QPoint(8, 8), false},
            {"3 before the first column", "10 10 5 5, 300 300 5 5", QPoint(7, 8), true},
            {"3 before the first row", "10 10 5 5, 300 300 5 5", QPoint(8, 7), true},
            {"2 before the last column and row", "10 10 5 5, 300 300 5 5", QPoint(12, 12), false},
            {"1 before the last column", "10 10 5 5, 300 300 5 5", QPoint(13, 12), true},
            {"1 before the last row", "10 10 5 5, 300 300 5 5", QPoint(12, 13), true},
            {"nothing is grown for sizeless ones", "10 12 0 0, 300 300 5 5", QPoint(10, 10), true},
            {"end of the numbers", "0 0 2147483647 2147483647, 300 300 5 5", QPoint(largest, largest), true},
        });
    }

    void savedPlace()
    {
        const auto [watermarks, place, expected] = row<QString, QPoint, bool>();
        QCOMPARE(placement::savedPlaceIsFree(shown(watermarks), place), expected);
    }

    // Up to 143,165,576 steps lie between start and place: walking them a thousand times would take hours.
    void hugeFrame_data()
    {
        addRows<QString, QPoint, QString>({
            {"first step beyond a large watermark", "0 0 1000000 1000000", QPoint(0, 0), "1000020,1000020"},
            {"last steps of the frame", "0 0 2147483000 2147483000", QPoint(0, 0), "2147483010,2147483010"},
            {"whole frame covered: shifted from the first", "0 0 2147483647 2147483647", QPoint(0, 0), "30,30"},
            {"from the smallest position", "-2147483648 -2147483648 2147483647 2147483647", QPoint(smallest, smallest),
             "22,22"},
            {"from the smallest position through two",
             "-2147483648 -2147483648 2147483647 2147483647, -100 -100 2147483100 2147483100",
             QPoint(smallest, smallest), "2147483002,2147483002"},
            {"wide and flat", "0 0 2147483647 10", QPoint(0, 0), "30,30"},
            {"narrow and high", "0 0 10 2147483647", QPoint(0, 0), "30,30"},
        });
    }

    void hugeFrame()
    {
        const auto [watermarks, start, expected] = row<QString, QPoint, QString>();
        const QVector<OccupiedRect> occupied = shown(watermarks);
        for (int i = 0; i < 1000; ++i)
            QCOMPARE(described(placement::freePlace(occupied, start, QSize(largest, largest))), expected);
    }

    void manyRectanglesOnTheDiagonal()
    {
        // Each blocks the step at its corner and, grown, the next one: 0 to 60000 are blocked.
        QVector<OccupiedRect> forwards;
        QVector<OccupiedRect> backwards;
        for (int i = 0; i < 2000; ++i) {
            forwards.append(OccupiedRect::ofWatermark(30 * i, 30 * i, 30, 30));
            backwards.prepend(forwards.last());
        }
        const QSize frame(100000, 100000);
        QCOMPARE(described(placement::freePlaceByDiagonalSteps(forwards, QPoint(0, 0), frame)), QString("60030,60030"));
        QCOMPARE(described(placement::freePlaceByDiagonalSteps(backwards, QPoint(0, 0), frame)),
                 QString("60030,60030"));

        // Without two in the middle there is a gap of one step: 30000 still lies in the one before, grown.
        forwards.remove(1000, 2);
        QCOMPARE(described(placement::freePlaceByDiagonalSteps(forwards, QPoint(0, 0), frame)), QString("30030,30030"));
    }
};

QTEST_GUILESS_MAIN(TstWatermarkPlacement)

#include "tst_watermarkplacement.moc"
