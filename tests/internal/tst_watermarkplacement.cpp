// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>
#include <random>

#include <QtTest>

#include "watermarkplacement_p.h"

using placement::OccupiedRect;

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

/// A shown watermark.
struct Shown {
    int left;
    int top;
    int width;
    int height;
};

using ShownList = QVector<Shown>;

QVector<OccupiedRect> occupiedBy(const ShownList& watermarks)
{
    QVector<OccupiedRect> rectangles;
    for (const Shown& watermark : watermarks) {
        rectangles.append(OccupiedRect::ofWatermark(watermark.left, watermark.top, watermark.width, watermark.height));
    }
    return rectangles;
}

/// "x,y", or "none".
QString described(const std::optional<QPoint>& place)
{
    return place ? QStringLiteral("%1,%2").arg(place->x()).arg(place->y()) : QStringLiteral("none");
}

QString described(const OccupiedRect& rect)
{
    return QStringLiteral("columns %1 to %2, rows %3 to %4")
        .arg(rect.left)
        .arg(rect.right)
        .arg(rect.top)
        .arg(rect.bottom);
}

/// The same searches in the plainest form, one step after the other and one
/// rectangle after the other: slow, and without anything of the library's.
namespace stepbystep {

struct Rect {
    qint64 x1;
    qint64 y1;
    qint64 x2;
    qint64 y2;
};

QVector<Rect> rectanglesOf(const ShownList& watermarks)
{
    QVector<Rect> result;
    for (const Shown& shown : watermarks) {
        qint64 width = shown.width;
        const qint64 height = shown.height;
        if (width == 0 && height == 0)
            width = 30;
        result.append(Rect{shown.left, shown.top, shown.left + width - 1, shown.top + height - 1});
    }
    return result;
}

bool within(qint64 value, qint64 first, qint64 last)
{
    if (last < first - 1)
        return value >= last && value <= first;
    return value >= first && value <= last;
}

bool contains(const Rect& rect, qint64 x, qint64 y)
{
    return within(x, rect.x1, rect.x2) && within(y, rect.y1, rect.y2);
}

bool collides(const QVector<Rect>& rects, qint64 x, qint64 y, int growth)
{
    for (const Rect& rect : rects) {
        const Rect grown = {rect.x1 - growth, rect.y1 - growth, rect.x2 + growth, rect.y2 + growth};
        if (contains(grown, x, y) || contains(grown, x + 30, y))
            return true;
    }
    return false;
}

QString place(qint64 x, qint64 y)
{
    return QString::number(x) + QLatin1Char(',') + QString::number(y);
}

const QString none = QStringLiteral("none");

QString diagonal(const QVector<Rect>& rects, const QPoint& start, const QSize& base)
{
    qint64 x = start.x();
    qint64 y = start.y();
    while (x < qint64(base.width()) - 30 && y < qint64(base.height()) - 30) {
        if (!collides(rects, x, y, 1))
            return place(x, y);
        x += 30;
        y += 30;
    }
    return none;
}

QString rightOf(const QVector<Rect>& rects, const QSize& base)
{
    QVector<Rect> working = rects;
    while (!working.isEmpty()) {
        int picked = 0;
        for (int i = 1; i < working.size(); ++i) {
            if (working.at(i).x2 < working.at(picked).x2)
                picked = i;
        }
        const qint64 x = working.at(picked).x2 + 20;
        const qint64 y = working.at(picked).y1;
        if (x >= qint64(base.width()) - 30)
            return none;
        if (y > qint64(base.height()) - 30 || y < 0)
            return none;
        if (!collides(rects, x, y, 0))
            return place(x, y);
        working.removeAt(picked);
    }
    return none;
}

QString leftMargin(const QVector<Rect>& rects, const QSize& base)
{
    QVector<Rect> working = rects;
    while (!working.isEmpty()) {
        int picked = 0;
        for (int i = 1; i < working.size(); ++i) {
            if (working.at(i).x1 > working.at(picked).x1)
                picked = i;
        }
        const qint64 y = working.at(picked).y1;
        if (working.at(picked).x1 < 31)
            return none;
        if (y > qint64(base.height()) - 30 || y < 0)
            return none;
        if (!collides(rects, 10, y, 0))
            return place(10, y);
        working.removeAt(picked);
    }
    return none;
}

QString shifted(const QVector<Rect>& rects, const QSize& base)
{
    if (rects.isEmpty())
        return none;
    const qint64 x = rects.first().x1 + 30;
    const qint64 y = rects.first().y1 + 30;
    return x < base.width() && y < base.height() ? place(x, y) : none;
}

QString allFour(const QVector<Rect>& rects, const QPoint& start, const QSize& base)
{
    if (rects.isEmpty())
        return none;
    QString found = diagonal(rects, start, base);
    if (found == none)
        found = rightOf(rects, base);
    if (found == none)
        found = leftMargin(rects, base);
    if (found == none)
        found = shifted(rects, base);
    return found;
}

} // namespace stepbystep

} // namespace

Q_DECLARE_METATYPE(Shown)

/// The search for a free place beside the shown watermarks.
class TstWatermarkPlacement : public QObject {
    Q_OBJECT

private slots:
    void rectangleOfAWatermark_data();
    void rectangleOfAWatermark();
    void grownByOnePixelOnEverySide();
    void containsItsEdges_data();
    void containsItsEdges();
    void diagonalSteps_data();
    void diagonalSteps();
    void rightOfTheLeftmost_data();
    void rightOfTheLeftmost();
    void atTheLeftMargin_data();
    void atTheLeftMargin();
    void shiftedFromTheFirst_data();
    void shiftedFromTheFirst();
    void searchesFollowOneAnother_data();
    void searchesFollowOneAnother();
    void savedPlace_data();
    void savedPlace();
    void hugeFrame_data();
    void hugeFrame();
    void manyRectanglesOnTheDiagonal();
    void sameAsStepByStep_data();
    void sameAsStepByStep();
};

void TstWatermarkPlacement::rectangleOfAWatermark_data()
{
    QTest::addColumn<Shown>("watermark");
    QTest::addColumn<QString>("expected");

    QTest::newRow("last column and row lie inside") << Shown{10, 20, 100, 50} << "columns 10 to 109, rows 20 to 69";
    QTest::newRow("one pixel") << Shown{10, 20, 1, 1} << "columns 10 to 10, rows 20 to 20";
    QTest::newRow("without size: 30 wide, 0 high") << Shown{10, 20, 0, 0} << "columns 10 to 39, rows 20 to 19";
    QTest::newRow("only the width is 0") << Shown{10, 20, 0, 50} << "columns 10 to 9, rows 20 to 69";
    QTest::newRow("only the height is 0") << Shown{10, 20, 100, 0} << "columns 10 to 109, rows 20 to 19";
    QTest::newRow("negative position") << Shown{-50, -60, 10, 10} << "columns -50 to -41, rows -60 to -51";
    QTest::newRow("negative size") << Shown{10, 20, -5, -6} << "columns 10 to 4, rows 20 to 13";
    QTest::newRow("largest edges do not overflow") << Shown{largest, largest, largest, largest}
                                                   << "columns 2147483647 to 4294967293, rows 2147483647 to 4294967293";
    QTest::newRow("smallest edges do not overflow")
        << Shown{smallest, smallest, smallest, smallest}
        << "columns -2147483648 to -4294967297, rows -2147483648 to -4294967297";
    QTest::newRow("without size at the end")
        << Shown{largest, largest, 0, 0} << "columns 2147483647 to 2147483676, rows 2147483647 to 2147483646";
}

void TstWatermarkPlacement::rectangleOfAWatermark()
{
    QFETCH(const Shown, watermark);
    QFETCH(const QString, expected);

    QCOMPARE(described(OccupiedRect::ofWatermark(watermark.left, watermark.top, watermark.width, watermark.height)),
             expected);
}

void TstWatermarkPlacement::grownByOnePixelOnEverySide()
{
    QCOMPARE(described(OccupiedRect{0, 0, 99, 49}.grown()), QStringLiteral("columns -1 to 100, rows -1 to 50"));
    QCOMPARE(described(OccupiedRect{10, 20, 4, 13}.grown()), QStringLiteral("columns 9 to 5, rows 19 to 14"));
}

void TstWatermarkPlacement::containsItsEdges_data()
{
    QTest::addColumn<Shown>("watermark");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<bool>("expected");

    const Shown plain = {10, 20, 5, 5}; // columns 10 to 14, rows 20 to 24
    QTest::newRow("middle") << plain << QPoint(12, 22) << true;
    QTest::newRow("top left corner") << plain << QPoint(10, 20) << true;
    QTest::newRow("top right corner") << plain << QPoint(14, 20) << true;
    QTest::newRow("bottom left corner") << plain << QPoint(10, 24) << true;
    QTest::newRow("bottom right corner") << plain << QPoint(14, 24) << true;
    QTest::newRow("left of it") << plain << QPoint(9, 22) << false;
    QTest::newRow("right of it") << plain << QPoint(15, 22) << false;
    QTest::newRow("above it") << plain << QPoint(12, 19) << false;
    QTest::newRow("below it") << plain << QPoint(12, 25) << false;

    QTest::newRow("one pixel") << Shown{10, 20, 1, 1} << QPoint(10, 20) << true;
    QTest::newRow("width 0 holds no column") << Shown{10, 20, 0, 5} << QPoint(10, 22) << false;
    QTest::newRow("width 0 holds no column before it") << Shown{10, 20, 0, 5} << QPoint(9, 22) << false;
    QTest::newRow("height 0 holds no row") << Shown{10, 20, 5, 0} << QPoint(12, 20) << false;
    QTest::newRow("without size holds nothing") << Shown{10, 20, 0, 0} << QPoint(12, 20) << false;

    // Width -1: from column 10 back to column 8.
    QTest::newRow("width -1, its left") << Shown{10, 20, -1, 5} << QPoint(10, 22) << true;
    QTest::newRow("width -1, between") << Shown{10, 20, -1, 5} << QPoint(9, 22) << true;
    QTest::newRow("width -1, its right") << Shown{10, 20, -1, 5} << QPoint(8, 22) << true;
    QTest::newRow("width -1, beyond its left") << Shown{10, 20, -1, 5} << QPoint(11, 22) << false;
    QTest::newRow("width -1, beyond its right") << Shown{10, 20, -1, 5} << QPoint(7, 22) << false;
    QTest::newRow("height -3, its top") << Shown{10, 20, 5, -3} << QPoint(12, 20) << true;
    QTest::newRow("height -3, its bottom") << Shown{10, 20, 5, -3} << QPoint(12, 16) << true;
    QTest::newRow("height -3, beyond its top") << Shown{10, 20, 5, -3} << QPoint(12, 21) << false;
    QTest::newRow("height -3, beyond its bottom") << Shown{10, 20, 5, -3} << QPoint(12, 15) << false;
    QTest::newRow("both negative") << Shown{10, 20, -3, -3} << QPoint(6, 16) << true;
}

void TstWatermarkPlacement::containsItsEdges()
{
    QFETCH(const Shown, watermark);
    QFETCH(const QPoint, point);
    QFETCH(const bool, expected);

    const auto rect = OccupiedRect::ofWatermark(watermark.left, watermark.top, watermark.width, watermark.height);
    QCOMPARE(rect.contains(point.x(), point.y()), expected);
}

void TstWatermarkPlacement::diagonalSteps_data()
{
    QTest::addColumn<ShownList>("watermarks");
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QSize>("baseSize");
    QTest::addColumn<QString>("expected");

    const QSize vga(640, 480);

    QTest::newRow("beside one of 100 x 50 at the same corner")
        << ShownList{{0, 0, 100, 50}} << QPoint(0, 0) << vga << "60,60";
    QTest::newRow("free at once") << ShownList{{0, 0, 100, 50}} << QPoint(200, 200) << vga << "200,200";

    // Grown: columns 99 to 150, rows 99 to 150.
    const ShownList square{{100, 100, 50, 50}};
    QTest::newRow("on the grown left edge") << square << QPoint(99, 120) << vga << "159,180";
    QTest::newRow("left of the grown edge, its probe inside") << square << QPoint(98, 120) << vga << "158,180";
    QTest::newRow("probe on the grown left edge") << square << QPoint(69, 100) << vga << "129,160";
    QTest::newRow("probe left of the grown edge") << square << QPoint(68, 100) << vga << "68,100";
    QTest::newRow("on the grown right edge") << square << QPoint(150, 100) << vga << "180,130";
    QTest::newRow("right of the grown edge") << square << QPoint(151, 100) << vga << "151,100";
    QTest::newRow("on the grown top edge") << square << QPoint(130, 99) << vga << "160,129";
    QTest::newRow("above the grown edge") << square << QPoint(130, 98) << vga << "130,98";
    QTest::newRow("on the grown bottom edge") << square << QPoint(130, 150) << vga << "160,180";
    QTest::newRow("below the grown edge") << square << QPoint(130, 151) << vga << "130,151";
    QTest::newRow("step into the square later does not matter") << square << QPoint(60, 60) << vga << "60,60";

    // Without size: grown columns 99 to 130, rows 99 and 100.
    const ShownList sizeless{{100, 100, 0, 0}};
    QTest::newRow("sizeless, row above the blocked ones") << sizeless << QPoint(100, 98) << vga << "100,98";
    QTest::newRow("sizeless, first blocked row") << sizeless << QPoint(100, 99) << vga << "130,129";
    QTest::newRow("sizeless, second blocked row") << sizeless << QPoint(100, 100) << vga << "130,130";
    QTest::newRow("sizeless, row below the blocked ones") << sizeless << QPoint(100, 101) << vga << "100,101";
    QTest::newRow("sizeless, last blocked column") << sizeless << QPoint(130, 100) << vga << "160,130";
    QTest::newRow("sizeless, right of it") << sizeless << QPoint(131, 100) << vga << "131,100";
    QTest::newRow("sizeless, probe on its first column") << sizeless << QPoint(69, 100) << vga << "99,130";
    QTest::newRow("sizeless, probe left of it") << sizeless << QPoint(68, 100) << vga << "68,100";

    QTest::newRow("width 0 blocks two columns") << ShownList{{100, 100, 0, 20}} << QPoint(100, 105) << vga << "130,135";
    QTest::newRow("width 0, right of the two columns")
        << ShownList{{100, 100, 0, 20}} << QPoint(101, 105) << vga << "101,105";
    QTest::newRow("height 0 blocks two rows") << ShownList{{100, 100, 20, 0}} << QPoint(110, 99) << vga << "140,129";
    QTest::newRow("height 0, below the two rows")
        << ShownList{{100, 100, 20, 0}} << QPoint(110, 101) << vga << "110,101";

    // Width -1, grown: column 99 alone. Width -2, grown: none. Width -3, grown:
    // columns 97 to 99.
    QTest::newRow("width -1 blocks one column") << ShownList{{100, 100, -1, 50}} << QPoint(99, 120) << vga << "129,150";
    QTest::newRow("width -1, right of it") << ShownList{{100, 100, -1, 50}} << QPoint(100, 120) << vga << "100,120";
    QTest::newRow("width -1, left of it") << ShownList{{100, 100, -1, 50}} << QPoint(98, 120) << vga << "98,120";
    QTest::newRow("width -1, hit by the probe") << ShownList{{100, 100, -1, 50}} << QPoint(69, 120) << vga << "129,180";
    QTest::newRow("width -2 blocks nothing") << ShownList{{100, 100, -2, 50}} << QPoint(99, 120) << vga << "99,120";
    QTest::newRow("width -2 blocks nothing before it")
        << ShownList{{100, 100, -2, 50}} << QPoint(98, 120) << vga << "98,120";
    QTest::newRow("width -3, first column") << ShownList{{100, 100, -3, 50}} << QPoint(97, 120) << vga << "127,150";
    QTest::newRow("width -3, last column") << ShownList{{100, 100, -3, 50}} << QPoint(99, 120) << vga << "129,150";
    QTest::newRow("width -3, left of it") << ShownList{{100, 100, -3, 50}} << QPoint(96, 120) << vga << "96,120";
    QTest::newRow("height -1 blocks one row") << ShownList{{100, 100, 50, -1}} << QPoint(120, 99) << vga << "150,129";
    QTest::newRow("height -2 blocks nothing") << ShownList{{100, 100, 50, -2}} << QPoint(120, 99) << vga << "120,99";
    QTest::newRow("height -3, first row") << ShownList{{100, 100, 50, -3}} << QPoint(120, 97) << vga << "150,127";

    // The limits are 30 less than the frame.
    QTest::newRow("start on the right limit, though free")
        << ShownList{{0, 0, 10, 10}} << QPoint(610, 100) << vga << "none";
    QTest::newRow("start left of the right limit") << ShownList{{0, 0, 10, 10}} << QPoint(609, 100) << vga << "609,100";
    QTest::newRow("start on the bottom limit, though free")
        << ShownList{{0, 0, 10, 10}} << QPoint(100, 450) << vga << "none";
    QTest::newRow("start above the bottom limit") << ShownList{{0, 0, 10, 10}} << QPoint(100, 449) << vga << "100,449";
    QTest::newRow("step onto the right limit")
        << ShownList{{0, 0, 50, 50}} << QPoint(10, 10) << QSize(100, 480) << "none";
    QTest::newRow("step before the right limit")
        << ShownList{{0, 0, 50, 50}} << QPoint(10, 10) << QSize(101, 480) << "70,70";
    QTest::newRow("step onto the bottom limit")
        << ShownList{{0, 0, 50, 50}} << QPoint(10, 10) << QSize(640, 100) << "none";
    QTest::newRow("step before the bottom limit")
        << ShownList{{0, 0, 50, 50}} << QPoint(10, 10) << QSize(640, 101) << "70,70";
    QTest::newRow("frame covered whole") << ShownList{{0, 0, 640, 480}} << QPoint(0, 0) << vga << "none";
    QTest::newRow("frame unknown") << ShownList{{0, 0, 10, 10}} << QPoint(0, 0) << QSize(0, 0) << "none";
    QTest::newRow("frame unknown, start before the negative limit")
        << ShownList{{0, 0, 10, 10}} << QPoint(-31, -31) << QSize(0, 0) << "-31,-31";
    QTest::newRow("frame of smallest size")
        << ShownList{{0, 0, 10, 10}} << QPoint(smallest, smallest) << QSize(smallest, smallest) << "none";

    QTest::newRow("negative start, free") << ShownList{{0, 0, 10, 10}} << QPoint(-100, -100) << vga << "-100,-100";
    QTest::newRow("negative start steps on")
        << ShownList{{-100, -100, 30, 30}} << QPoint(-100, -100) << vga << "-40,-40";
    QTest::newRow("start in the corner of the numbers")
        << ShownList{{smallest, smallest, 10, 10}} << QPoint(smallest, smallest) << vga << "-2147483618,-2147483618";

    QTest::newRow("one after the other blocks")
        << ShownList{{0, 0, 30, 30}, {60, 30, 30, 30}} << QPoint(0, 0) << vga << "90,90";
    QTest::newRow("the order of the watermarks does not matter")
        << ShownList{{60, 30, 30, 30}, {0, 0, 30, 30}} << QPoint(0, 0) << vga << "90,90";
    QTest::newRow("gap of one step between two") // Blocked are the steps 0 and 1,
                                                 // and 3 and 4.
        << ShownList{{0, 0, 30, 30}, {120, 90, 10, 40}} << QPoint(0, 0) << vga << "60,60";
    QTest::newRow("one inside another") << ShownList{{0, 0, 200, 200}, {50, 50, 10, 10}} << QPoint(0, 0) << vga
                                        << "210,210";
    QTest::newRow("no watermark, start in the frame") << ShownList{} << QPoint(5, 5) << vga << "5,5";
}

void TstWatermarkPlacement::diagonalSteps()
{
    QFETCH(const ShownList, watermarks);
    QFETCH(const QPoint, start);
    QFETCH(const QSize, baseSize);
    QFETCH(const QString, expected);

    QCOMPARE(described(placement::freePlaceByDiagonalSteps(occupiedBy(watermarks), start, baseSize)), expected);
}

void TstWatermarkPlacement::rightOfTheLeftmost_data()
{
    QTest::addColumn<ShownList>("watermarks");
    QTest::addColumn<QSize>("baseSize");
    QTest::addColumn<QString>("expected");

    const QSize vga(640, 480);

    QTest::newRow("20 right of the last column, level with the top") << ShownList{{0, 40, 100, 50}} << vga << "119,40";
    QTest::newRow("without size: 30 wide") << ShownList{{100, 100, 0, 0}} << vga << "149,100";
    QTest::newRow("smallest right edge, not the first listed")
        << ShownList{{300, 10, 100, 10}, {0, 50, 100, 10}} << vga << "119,50";
    QTest::newRow("smallest right edge, not the smallest left edge")
        << ShownList{{0, 10, 200, 10}, {100, 50, 50, 10}} << vga << "169,50";
    QTest::newRow("equal right edges: the first listed")
        << ShownList{{0, 100, 100, 10}, {50, 20, 50, 10}} << vga << "119,100";
    QTest::newRow("equal right edges, listed the other way")
        << ShownList{{50, 20, 50, 10}, {0, 100, 100, 10}} << vga << "119,20";
    QTest::newRow("left of the frame") << ShownList{{-200, 10, 100, 10}} << vga << "-81,10";

    QTest::newRow("on the right limit") << ShownList{{0, 0, 591, 10}} << vga << "none";
    QTest::newRow("before the right limit") << ShownList{{0, 0, 590, 10}} << vga << "609,0";
    QTest::newRow("on the bottom limit, which still counts") << ShownList{{0, 450, 100, 10}} << vga << "119,450";
    QTest::newRow("below the bottom limit") << ShownList{{0, 451, 100, 10}} << vga << "none";
    QTest::newRow("top row") << ShownList{{0, 0, 100, 10}} << vga << "119,0";
    QTest::newRow("above the frame") << ShownList{{0, -1, 100, 10}} << vga << "none";
    QTest::newRow("first above the frame: the others are not tried")
        << ShownList{{0, -1, 100, 10}, {200, 100, 50, 50}} << vga << "none";
    QTest::newRow("first below the limit: the others are not tried")
        << ShownList{{0, 451, 100, 10}, {200, 100, 50, 50}} << vga << "none";
    QTest::newRow("second above the frame: the third is not tried")
        << ShownList{{0, 0, 100, 50}, {110, -10, 50, 50}, {400, 100, 10, 10}} << vga << "none";
    QTest::newRow("above the frame but not picked")
        << ShownList{{200, -1, 50, 50}, {0, 100, 100, 10}} << vga << "119,100";

    QTest::newRow("blocked: the next one") << ShownList{{0, 0, 100, 50}, {110, 0, 50, 50}} << vga << "179,0";
    QTest::newRow("probe blocked: the next one") << ShownList{{0, 0, 100, 50}, {149, 0, 50, 50}} << vga << "218,0";
    QTest::newRow("right of the probe is free") << ShownList{{0, 0, 100, 50}, {150, 0, 50, 50}} << vga << "119,0";
    QTest::newRow("between place and probe is free, nothing is grown")
        << ShownList{{0, 0, 100, 50}, {120, 0, 29, 50}} << vga << "119,0";
    QTest::newRow("directly below is free, nothing is grown")
        << ShownList{{0, 0, 100, 50}, {110, 1, 50, 50}} << vga << "119,0";
    QTest::newRow("directly above is free, nothing is grown")
        << ShownList{{0, 10, 100, 50}, {110, 0, 50, 10}} << vga << "119,10";
    QTest::newRow("sizeless ones block nothing") << ShownList{{0, 0, 100, 50}, {110, 0, 0, 0}} << vga << "119,0";
    QTest::newRow("blocked, and the next beyond the right limit")
        << ShownList{{0, 0, 100, 50}, {110, 0, 500, 50}} << vga << "none";
    QTest::newRow("all blocked") // The second one's place is inside the third,
                                 // and so on to the limit.
        << ShownList{{0, 0, 100, 50}, {110, 0, 60, 50}, {180, 0, 411, 50}} << vga << "none";
    // Width -100 holds the columns 199 to 300: the place right of its last column
    // lies inside itself.
    QTest::newRow("blocked by itself") << ShownList{{300, 50, -100, 10}} << vga << "none";
    QTest::newRow("blocked by one that was already passed over")
        << ShownList{{300, 50, -100, 10}, {201, 55, 50, 2}} << vga << "none";
    QTest::newRow("row that the passed over one leaves free")
        << ShownList{{300, 50, -100, 10}, {201, 60, 50, 2}} << vga << "270,60";

    QTest::newRow("no watermark") << ShownList{} << vga << "none";
    QTest::newRow("frame unknown") << ShownList{{0, 0, 100, 10}} << QSize(0, 0) << "none";
    QTest::newRow("frame of smallest size")
        << ShownList{{smallest, smallest, 1, 1}} << QSize(smallest, smallest) << "none";
    QTest::newRow("right edge beyond the numbers")
        << ShownList{{largest, 0, largest, 10}} << QSize(largest, largest) << "none";
}

void TstWatermarkPlacement::rightOfTheLeftmost()
{
    QFETCH(const ShownList, watermarks);
    QFETCH(const QSize, baseSize);
    QFETCH(const QString, expected);

    QCOMPARE(described(placement::freePlaceRightOfLeftmost(occupiedBy(watermarks), baseSize)), expected);
}

void TstWatermarkPlacement::atTheLeftMargin_data()
{
    QTest::addColumn<ShownList>("watermarks");
    QTest::addColumn<QSize>("baseSize");
    QTest::addColumn<QString>("expected");

    const QSize vga(640, 480);

    QTest::newRow("column 10, level with the top") << ShownList{{100, 50, 80, 20}} << vga << "10,50";
    QTest::newRow("greatest left edge, not the first listed")
        << ShownList{{100, 50, 80, 20}, {300, 70, 10, 10}} << vga << "10,70";
    QTest::newRow("greatest left edge, not the greatest right edge")
        << ShownList{{100, 50, 500, 20}, {300, 70, 10, 10}} << vga << "10,70";
    QTest::newRow("equal left edges: the first listed")
        << ShownList{{100, 50, 80, 20}, {100, 70, 80, 20}} << vga << "10,50";
    QTest::newRow("equal left edges, listed the other way")
        << ShownList{{100, 70, 80, 20}, {100, 50, 80, 20}} << vga << "10,70";

    QTest::newRow("left edge 31") << ShownList{{31, 50, 5, 20}} << vga << "10,50";
    QTest::newRow("left edge 30") << ShownList{{30, 50, 5, 20}} << vga << "none";
    QTest::newRow("left edge 31 under the probe") << ShownList{{31, 50, 10, 20}} << vga << "none";
    QTest::newRow("on the bottom limit, which still counts") << ShownList{{100, 450, 10, 10}} << vga << "10,450";
    QTest::newRow("below the bottom limit") << ShownList{{100, 451, 10, 10}} << vga << "none";
    QTest::newRow("top row") << ShownList{{100, 0, 10, 10}} << vga << "10,0";
    QTest::newRow("above the frame") << ShownList{{100, -1, 10, 10}} << vga << "none";
    QTest::newRow("first above the frame: the others are not tried")
        << ShownList{{300, -1, 10, 10}, {100, 50, 80, 20}} << vga << "none";
    QTest::newRow("first below the limit: the others are not tried")
        << ShownList{{300, 451, 10, 10}, {100, 50, 80, 20}} << vga << "none";
    QTest::newRow("above the frame but not picked")
        << ShownList{{100, -1, 10, 10}, {300, 50, 80, 20}} << vga << "10,50";
    QTest::newRow("width of the frame plays no part") << ShownList{{100, 50, 80, 20}} << QSize(20, 480) << "10,50";

    QTest::newRow("blocked at column 10: the next one")
        << ShownList{{300, 50, 80, 20}, {10, 45, 1, 10}, {200, 200, 80, 20}} << vga << "10,200";
    QTest::newRow("blocked at column 40: the next one")
        << ShownList{{300, 50, 80, 20}, {40, 45, 1, 10}, {200, 200, 80, 20}} << vga << "10,200";
    QTest::newRow("beside the two columns is free")
        << ShownList{{300, 50, 80, 20}, {11, 45, 29, 10}, {41, 45, 5, 10}, {0, 45, 10, 10}} << vga << "10,50";
    QTest::newRow("directly above and below is free, nothing is grown")
        << ShownList{{300, 50, 80, 20}, {10, 40, 1, 10}, {10, 51, 1, 10}} << vga << "10,50";
    QTest::newRow("blocked, and the next too far left")
        << ShownList{{300, 50, 80, 20}, {0, 50, 20, 10}} << vga << "none";
    QTest::newRow("blocked by itself") << ShownList{{35, 100, 10, 100}} << vga << "none";
    QTest::newRow("blocked by one that was already passed over")
        << ShownList{{35, 100, 10, 100}, {32, 150, 2, 2}} << vga << "none";
    QTest::newRow("row that the passed over one leaves free")
        << ShownList{{35, 100, 10, 100}, {32, 200, 2, 2}} << vga << "10,200";
    QTest::newRow("second above the frame: the third is not tried")
        << ShownList{{300, 50, 80, 20}, {10, 45, 1, 10}, {200, -5, 80, 20}, {100, 200, 80, 20}} << vga << "none";
    QTest::newRow("sizeless ones block nothing") << ShownList{{300, 50, 80, 20}, {10, 50, 0, 0}} << vga << "10,50";

    QTest::newRow("no watermark") << ShownList{} << vga << "none";
    QTest::newRow("frame unknown") << ShownList{{100, 0, 10, 10}} << QSize(0, 0) << "none";
    QTest::newRow("frame of smallest size")
        << ShownList{{100, smallest, 10, 10}} << QSize(smallest, smallest) << "none";
}

void TstWatermarkPlacement::atTheLeftMargin()
{
    QFETCH(const ShownList, watermarks);
    QFETCH(const QSize, baseSize);
    QFETCH(const QString, expected);

    QCOMPARE(described(placement::freePlaceAtLeftMargin(occupiedBy(watermarks), baseSize)), expected);
}

void TstWatermarkPlacement::shiftedFromTheFirst_data()
{
    QTest::addColumn<ShownList>("watermarks");
    QTest::addColumn<QSize>("baseSize");
    QTest::addColumn<QString>("expected");

    const QSize vga(640, 480);

    QTest::newRow("30 right and 30 down") << ShownList{{100, 50, 80, 20}} << vga << "130,80";
    QTest::newRow("only the first one counts") << ShownList{{100, 50, 80, 20}, {0, 0, 10, 10}} << vga << "130,80";
    QTest::newRow("the place may be occupied") << ShownList{{0, 0, 640, 480}, {30, 30, 5, 5}} << vga << "30,30";
    QTest::newRow("last column of the frame, inside the margin") << ShownList{{609, 0, 10, 10}} << vga << "639,30";
    QTest::newRow("right of the frame") << ShownList{{610, 0, 10, 10}} << vga << "none";
    QTest::newRow("last row of the frame, inside the margin") << ShownList{{0, 449, 10, 10}} << vga << "30,479";
    QTest::newRow("below the frame") << ShownList{{0, 450, 10, 10}} << vga << "none";
    QTest::newRow("first beyond the frame: the second is not tried")
        << ShownList{{610, 0, 10, 10}, {0, 0, 10, 10}} << vga << "none";
    QTest::newRow("left of and above the frame") << ShownList{{-500, -400, 10, 10}} << vga << "-470,-370";
    QTest::newRow("frame unknown") << ShownList{{0, 0, 10, 10}} << QSize(0, 0) << "none";
    QTest::newRow("frame unknown, far above it") << ShownList{{-31, -31, 10, 10}} << QSize(0, 0) << "-1,-1";
    QTest::newRow("beyond the numbers") << ShownList{{largest, largest, 10, 10}} << QSize(largest, largest) << "none";
    QTest::newRow("no watermark") << ShownList{} << vga << "none";
}

void TstWatermarkPlacement::shiftedFromTheFirst()
{
    QFETCH(const ShownList, watermarks);
    QFETCH(const QSize, baseSize);
    QFETCH(const QString, expected);

    QCOMPARE(described(placement::placeShiftedFromFirst(occupiedBy(watermarks), baseSize)), expected);
}

void TstWatermarkPlacement::searchesFollowOneAnother_data()
{
    QTest::addColumn<ShownList>("watermarks");
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QSize>("baseSize");
    QTest::addColumn<QString>("expected");

    const QSize vga(640, 480);

    QTest::newRow("nothing is shown: no place is looked for") << ShownList{} << QPoint(5, 5) << vga << "none";
    QTest::newRow("diagonal steps come first") << ShownList{{0, 0, 100, 50}} << QPoint(0, 0) << vga << "60,60";
    QTest::newRow("start on the right limit: right of the leftmost")
        << ShownList{{0, 40, 100, 50}} << QPoint(610, 0) << vga << "119,40";
    QTest::newRow("start on the bottom limit: right of the leftmost")
        << ShownList{{0, 40, 100, 50}} << QPoint(0, 450) << vga << "119,40";
    QTest::newRow("diagonal used up: right of the leftmost") // Steps 0 to 14 lie in it;
                                                             // step 15 is at row 450.
        << ShownList{{0, 0, 500, 480}} << QPoint(0, 0) << vga << "519,0";
    QTest::newRow("nothing to the right: at the left margin")
        << ShownList{{50, 0, 590, 480}} << QPoint(60, 10) << vga << "10,0";
    QTest::newRow("right search ended by a top above the frame: at the left margin")
        << ShownList{{0, -20, 20, 10}, {200, 100, 50, 50}} << QPoint(610, 0) << vga << "10,100";
    QTest::newRow("margin search ended by a top above the frame: shifted from the first")
        << ShownList{{0, 0, 620, 10}, {600, -5, 5, 1}} << QPoint(610, 0) << vga << "30,30";
    QTest::newRow("nothing at the left margin: shifted from the first")
        << ShownList{{0, 0, 640, 480}} << QPoint(0, 0) << vga << "30,30";
    QTest::newRow("shifted into the margin of the frame, where no other search would go")
        << ShownList{{600, 440, 40, 40}, {0, 0, 640, 480}} << QPoint(0, 0) << vga << "630,470";
    QTest::newRow("all four fail") << ShownList{{615, 460, 40, 40}, {0, 0, 640, 480}} << QPoint(0, 0) << vga << "none";
    QTest::newRow("frame unknown") << ShownList{{0, 0, 10, 10}} << QPoint(0, 0) << QSize(0, 0) << "none";
}

void TstWatermarkPlacement::searchesFollowOneAnother()
{
    QFETCH(const ShownList, watermarks);
    QFETCH(const QPoint, start);
    QFETCH(const QSize, baseSize);
    QFETCH(const QString, expected);

    QCOMPARE(described(placement::freePlace(occupiedBy(watermarks), start, baseSize)), expected);
}

void TstWatermarkPlacement::savedPlace_data()
{
    QTest::addColumn<ShownList>("watermarks");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<bool>("expected");

    const Shown here = {10, 10, 5, 5}; // columns 10 to 14, rows 10 to 14
    const Shown elsewhere = {300, 300, 5, 5};
    const QPoint place(10, 10); // looked at: 12,12

    QTest::newRow("nothing is shown") << ShownList{} << place << true;
    QTest::newRow("one elsewhere: never free") << ShownList{elsewhere} << place << false;
    QTest::newRow("one here") << ShownList{here} << place << false;
    QTest::newRow("two elsewhere") << ShownList{elsewhere, elsewhere} << place << true;
    QTest::newRow("the first of two here") << ShownList{here, elsewhere} << place << false;
    QTest::newRow("the second of two here: not looked at") << ShownList{elsewhere, here} << place << true;
    QTest::newRow("three elsewhere: never free") << ShownList{elsewhere, elsewhere, elsewhere} << place << false;
    QTest::newRow("four elsewhere") << ShownList{elsewhere, elsewhere, elsewhere, elsewhere} << place << true;
    QTest::newRow("the third of four here") << ShownList{elsewhere, elsewhere, here, elsewhere} << place << false;
    QTest::newRow("the second and fourth of four here: not looked at")
        << ShownList{elsewhere, here, elsewhere, here} << place << true;

    QTest::newRow("2 before the first column and row") << ShownList{here, elsewhere} << QPoint(8, 8) << false;
    QTest::newRow("3 before the first column") << ShownList{here, elsewhere} << QPoint(7, 8) << true;
    QTest::newRow("3 before the first row") << ShownList{here, elsewhere} << QPoint(8, 7) << true;
    QTest::newRow("2 before the last column and row") << ShownList{here, elsewhere} << QPoint(12, 12) << false;
    QTest::newRow("1 before the last column") << ShownList{here, elsewhere} << QPoint(13, 12) << true;
    QTest::newRow("1 before the last row") << ShownList{here, elsewhere} << QPoint(12, 13) << true;
    QTest::newRow("nothing is grown for sizeless ones") << ShownList{{10, 12, 0, 0}, elsewhere} << place << true;
    QTest::newRow("end of the numbers") << ShownList{{0, 0, largest, largest}, elsewhere} << QPoint(largest, largest)
                                        << true;
}

void TstWatermarkPlacement::savedPlace()
{
    QFETCH(const ShownList, watermarks);
    QFETCH(const QPoint, place);
    QFETCH(const bool, expected);

    QCOMPARE(placement::savedPlaceIsFree(occupiedBy(watermarks), place), expected);
}

void TstWatermarkPlacement::hugeFrame_data()
{
    QTest::addColumn<ShownList>("watermarks");
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QString>("expected");

    // Up to 71,582,788 or 143,165,576 steps lie between start and place.
    QTest::newRow("first step beyond a large watermark") // Grown to 1000000; step 33334.
        << ShownList{{0, 0, 1000000, 1000000}} << QPoint(0, 0) << "1000020,1000020";
    QTest::newRow("last steps of the frame") // Grown to 2147483000; step 71582767.
        << ShownList{{0, 0, 2147483000, 2147483000}} << QPoint(0, 0) << "2147483010,2147483010";
    QTest::newRow("whole frame covered: shifted from the first")
        << ShownList{{0, 0, largest, largest}} << QPoint(0, 0) << "30,30";
    QTest::newRow("from the smallest position") // Grown to -1; step 71582789.
        << ShownList{{smallest, smallest, largest, largest}} << QPoint(smallest, smallest) << "22,22";
    QTest::newRow("from the smallest position through two") // The second is grown to
                                                            // 2147483000; step 143165555.
        << ShownList{{smallest, smallest, largest, largest}, {-100, -100, 2147483100, 2147483100}}
        << QPoint(smallest, smallest) << "2147483002,2147483002";
    QTest::newRow("wide and flat") // Rows to 10 grown, step 1.
        << ShownList{{0, 0, largest, 10}} << QPoint(0, 0) << "30,30";
    QTest::newRow("narrow and high") << ShownList{{0, 0, 10, largest}} << QPoint(0, 0) << "30,30";
}

void TstWatermarkPlacement::hugeFrame()
{
    QFETCH(const ShownList, watermarks);
    QFETCH(const QPoint, start);
    QFETCH(const QString, expected);

    const QVector<OccupiedRect> occupied = occupiedBy(watermarks);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 1000; ++i)
        QCOMPARE(described(placement::freePlace(occupied, start, QSize(largest, largest))), expected);
    QVERIFY2(timer.elapsed() < 5000, "the steps are walked one by one");
}

void TstWatermarkPlacement::manyRectanglesOnTheDiagonal()
{
    // Each blocks the step at its corner and, grown, the next one: 0 to 60000 are
    // blocked.
    ShownList forwards;
    ShownList backwards;
    for (int i = 0; i < 2000; ++i) {
        forwards.append(Shown{30 * i, 30 * i, 30, 30});
        backwards.prepend(Shown{30 * i, 30 * i, 30, 30});
    }
    const QSize frame(100000, 100000);

    QCOMPARE(described(placement::freePlaceByDiagonalSteps(occupiedBy(forwards), QPoint(0, 0), frame)),
             QStringLiteral("60030,60030"));
    QCOMPARE(described(placement::freePlaceByDiagonalSteps(occupiedBy(backwards), QPoint(0, 0), frame)),
             QStringLiteral("60030,60030"));

    // Without two in the middle there is a gap of one step: 30000 still lies in
    // the one before, grown.
    forwards.remove(1000, 2);
    QCOMPARE(described(placement::freePlaceByDiagonalSteps(occupiedBy(forwards), QPoint(0, 0), frame)),
             QStringLiteral("30030,30030"));
}

void TstWatermarkPlacement::sameAsStepByStep_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("spread");
    QTest::addColumn<int>("smallestSize");
    QTest::addColumn<int>("largestSize");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("cases");

    QTest::newRow("few in a usual frame") << 1 << 700 << 700 << 0 << 300 << 3 << 4000;
    QTest::newRow("many in a usual frame") << 2 << 700 << 700 << 0 << 200 << 12 << 4000;
    QTest::newRow("crowded small frame") << 3 << 200 << 200 << 0 << 60 << 10 << 4000;
    QTest::newRow("crowded tiny frame") << 4 << 90 << 90 << 0 << 12 << 8 << 4000;
    QTest::newRow("one by one, exact edges") << 5 << 160 << 90 << 20 << 70 << 1 << 4000;
    QTest::newRow("sizes of nothing and little") << 6 << 300 << 150 << 0 << 3 << 10 << 4000;
    QTest::newRow("negative sizes") << 7 << 400 << 300 << -80 << 80 << 6 << 4000;
    QTest::newRow("negative sizes of few pixels") << 8 << 200 << 60 << -4 << 4 << 8 << 4000;
    QTest::newRow("mostly outside the frame") << 9 << 100 << 600 << 0 << 400 << 6 << 4000;
    QTest::newRow("long walks in a large frame") << 10 << 60000 << 60000 << 0 << 30000 << 6 << 1000;
    QTest::newRow("long walks through many") << 11 << 20000 << 20000 << 0 << 3000 << 60 << 300;
}

void TstWatermarkPlacement::sameAsStepByStep()
{
    QFETCH(const int, seed);
    QFETCH(const int, frame);
    QFETCH(const int, spread);
    QFETCH(const int, smallestSize);
    QFETCH(const int, largestSize);
    QFETCH(const int, count);
    QFETCH(const int, cases);

    std::mt19937 source(static_cast<std::mt19937::result_type>(seed));
    const auto between = [&source](int first, int last) {
        const auto range = static_cast<quint32>(last - first + 1);
        return first + static_cast<int>(source() % range);
    };

    for (int i = 0; i < cases; ++i) {
        ShownList watermarks;
        const int shown = between(1, count);
        for (int k = 0; k < shown; ++k) {
            watermarks.append(Shown{between(-spread / 4, spread), between(-spread / 4, spread),
                                    between(smallestSize, largestSize), between(smallestSize, largestSize)});
        }
        const QSize base(between(frame / 2, frame), between(frame / 2, frame));
        const QPoint start(between(-spread / 4, spread), between(-spread / 4, spread));

        const QVector<OccupiedRect> occupied = occupiedBy(watermarks);
        const QVector<stepbystep::Rect> rects = stepbystep::rectanglesOf(watermarks);
        const QByteArray which = QByteArrayLiteral("case ") + QByteArray::number(i);
        QVERIFY2(described(placement::freePlaceByDiagonalSteps(occupied, start, base))
                     == stepbystep::diagonal(rects, start, base),
                 which.constData());
        QVERIFY2(described(placement::freePlaceRightOfLeftmost(occupied, base)) == stepbystep::rightOf(rects, base),
                 which.constData());
        QVERIFY2(described(placement::freePlaceAtLeftMargin(occupied, base)) == stepbystep::leftMargin(rects, base),
                 which.constData());
        QVERIFY2(described(placement::placeShiftedFromFirst(occupied, base)) == stepbystep::shifted(rects, base),
                 which.constData());
        QVERIFY2(described(placement::freePlace(occupied, start, base)) == stepbystep::allFour(rects, start, base),
                 which.constData());
    }
}

QTEST_GUILESS_MAIN(TstWatermarkPlacement)

#include "tst_watermarkplacement.moc"
