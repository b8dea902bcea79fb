// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>
#include <random>

#include <QtTest>

#include "freeplaces_p.h"

namespace {

using placement::OccupiedRect;
using placement::Place;

constexpr qint64 largest = std::numeric_limits<int>::max();
constexpr qint64 smallest = std::numeric_limits<int>::min();

/// A watermark's position and size.
struct Shown {
    qint64 left;
    qint64 top;
    qint64 width;
    qint64 height;
};

OccupiedRect occupiedBy(const Shown& shown)
{
    return {shown.left, shown.top, shown.left + shown.width - 1, shown.top + shown.height - 1};
}

/// Whether \a value lies in the pixels from \a first on; of a negative extent in those from first + extent - 1 to
/// first, the edge on each side included.
bool isInside(qint64 value, qint64 first, qint64 extent)
{
    return extent >= 0 ? value >= first && value - first < extent : value <= first && value >= first + extent - 1;
}

/// The same one after the other.
bool isFreeByHand(const QVector<Shown>& watermarks, const Place& place, qint64 reach)
{
    for (const Shown& shown : watermarks) {
        const bool inRows = isInside(place.y, shown.top, shown.height);
        if (inRows
            && (isInside(place.x, shown.left, shown.width) || isInside(place.x + reach, shown.left, shown.width)))
            return false;
    }
    return true;
}

/// '.' for each free place, '#' for each other.
QString described(const std::vector<bool>& free)
{
    QString text;
    for (const bool isFree : free)
        text += QLatin1Char(isFree ? '.' : '#');
    return text;
}

QString freeOf(const QVector<Shown>& watermarks, const std::vector<Place>& places, qint64 reach)
{
    QVector<OccupiedRect> rectangles;
    for (const Shown& shown : watermarks)
        rectangles.append(occupiedBy(shown));
    return described(placement::freePlaces(rectangles, places, reach));
}

QString freeByHand(const QVector<Shown>& watermarks, const std::vector<Place>& places, qint64 reach)
{
    std::vector<bool> free;
    free.reserve(places.size());
    for (const Place& place : places)
        free.push_back(isFreeByHand(watermarks, place, reach));
    return described(free);
}

/// The places (0, \a y), (1, \a y) and so on.
std::vector<Place> rowOfPlaces(qint64 y, int count)
{
    std::vector<Place> places;
    places.reserve(static_cast<std::size_t>(count));
    for (int x = 0; x < count; ++x)
        places.push_back({x, y});
    return places;
}

std::vector<Place> columnOfPlaces(qint64 x, int count)
{
    std::vector<Place> places;
    places.reserve(static_cast<std::size_t>(count));
    for (int y = 0; y < count; ++y)
        places.push_back({x, y});
    return places;
}

} // namespace

class TstFreePlaces : public QObject {
    Q_OBJECT

private slots:
    void placesAlongARow_data();
    void placesAlongARow();
    void placesAlongAColumn_data();
    void placesAlongAColumn();
    void answersComeInTheOrderOfThePlaces();
    void edgesAtTheEndsOfInt();
    void answersAreThoseOfOneAfterTheOther_data();
    void answersAreThoseOfOneAfterTheOther();
    void manyRectanglesTakeNoSquareOfTime();
};

// Of ten places in row 5, from column 0 on.
void TstFreePlaces::placesAlongARow_data()
{
    QTest::addColumn<QVector<QRect>>("watermarks");
    QTest::addColumn<int>("reach");
    QTest::addColumn<QString>("expected");

    using Rects = QVector<QRect>;
    QTest::newRow("no rectangle") << Rects{} << 30 << "..........";
    QTest::newRow("both edges are inside") << Rects{{3, 5, 4, 1}} << 0 << "...####...";
    QTest::newRow("one pixel") << Rects{{3, 5, 1, 1}} << 0 << "...#......";
    QTest::newRow("point to the right") << Rects{{6, 5, 2, 1}} << 5 << ".##...##..";
    QTest::newRow("point to the right alone") << Rects{{12, 5, 2, 1}} << 5 << ".......##.";
    QTest::newRow("rectangle between both points") << Rects{{4, 5, 1, 1}} << 9 << "....#.....";
    QTest::newRow("no width") << Rects{{3, 5, 0, 9}} << 0 << "..........";
    QTest::newRow("no height") << Rects{{3, 5, 9, 0}} << 0 << "..........";
    QTest::newRow("width of minus one") << Rects{{5, 5, -1, 1}} << 0 << "...###....";
    QTest::newRow("width of minus two") << Rects{{5, 5, -2, 1}} << 0 << "..####....";
    QTest::newRow("side by side") << Rects{{1, 5, 2, 1}, {3, 5, 2, 1}} << 0 << ".####.....";
    QTest::newRow("with a gap") << Rects{{1, 5, 2, 1}, {4, 5, 2, 1}} << 0 << ".##.##....";
    QTest::newRow("one in the other") << Rects{{1, 5, 8, 1}, {3, 5, 2, 1}} << 0 << ".########.";
    QTest::newRow("the same twice") << Rects{{3, 5, 2, 1}, {3, 5, 2, 1}} << 0 << "...##.....";
    QTest::newRow("above and below") << Rects{{0, 0, 9, 5}, {0, 6, 9, 9}} << 0 << "..........";
    QTest::newRow("ends in the row, begins in the row") << Rects{{0, 0, 2, 6}, {4, 5, 2, 9}} << 0 << "##..##....";
}

void TstFreePlaces::placesAlongARow()
{
    QFETCH(const QVector<QRect>, watermarks);
    QFETCH(const int, reach);
    QFETCH(const QString, expected);

    QVector<Shown> shown;
    for (const QRect& rect : watermarks)
        shown.append({rect.left(), rect.top(), rect.width(), rect.height()});
    QCOMPARE(freeOf(shown, rowOfPlaces(5, 10), reach), expected);
    QCOMPARE(freeByHand(shown, rowOfPlaces(5, 10), reach), expected);
}

void TstFreePlaces::placesAlongAColumn_data()
{
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("height");
    QTest::addColumn<QString>("expected");

    QTest::newRow("both edges are inside") << 3 << 4 << "...####...";
    QTest::newRow("one row") << 0 << 1 << "#.........";
    QTest::newRow("no height") << 3 << 0 << "..........";
    QTest::newRow("height of minus one") << 5 << -1 << "...###....";
    QTest::newRow("height of minus two") << 5 << -2 << "..####....";
    QTest::newRow("from above on") << -5 << 8 << "###.......";
    QTest::newRow("to below") << 8 << 8 << "........##";
}

void TstFreePlaces::placesAlongAColumn()
{
    QFETCH(const int, top);
    QFETCH(const int, height);
    QFETCH(const QString, expected);

    QCOMPARE(freeOf({{0, top, 1, height}}, columnOfPlaces(0, 10), 30), expected);
    QCOMPARE(freeOf({{30, top, 1, height}}, columnOfPlaces(0, 10), 30), expected);
    QCOMPARE(freeOf({{29, top, 1, height}}, columnOfPlaces(0, 10), 30), QStringLiteral(".........."));
}

void TstFreePlaces::answersComeInTheOrderOfThePlaces()
{
    const std::vector<Place> places{{0, 9}, {0, 2}, {5, 2}, {0, 0}, {0, 2}, {5, 9}, {0, 5}};
    QCOMPARE(freeOf({{0, 2, 2, 4}}, places, 30), QStringLiteral(".#..#.#"));
    QCOMPARE(freeOf({{0, 2, 2, 4}}, {}, 30), QString());
}

void TstFreePlaces::edgesAtTheEndsOfInt()
{
    const std::vector<Place> places{{largest, largest},
                                    {largest - 30, largest},
                                    {largest - 1, largest},
                                    {smallest, smallest},
                                    {smallest + 1, smallest},
                                    {0, 0},
                                    {2 * largest - 1, 2 * largest - 1},
                                    {2 * largest, 2 * largest}};
    QCOMPARE(freeOf({{largest, largest, 1, 1}}, places, 30), QStringLiteral("##......"));
    QCOMPARE(freeOf({{largest, largest, largest, largest}}, places, 30), QStringLiteral("###...#."));
    QCOMPARE(freeOf({{smallest, smallest, 1, 1}}, places, 30), QStringLiteral("...#...."));
    QCOMPARE(freeOf({{smallest, smallest, largest, largest}}, places, 30), QStringLiteral("...##..."));
    QCOMPARE(freeOf({{largest, largest, smallest, smallest}}, places, 30), QStringLiteral("###..#.."));
    QCOMPARE(freeOf({{0, 0, smallest, smallest}}, places, 30), QStringLiteral("...###.."));
}

void TstFreePlaces::answersAreThoseOfOneAfterTheOther_data()
{
    QTest::addColumn<int>("range");

    QTest::newRow("crowded") << 6;
    QTest::newRow("sparse") << 60;
    QTest::newRow("wide") << 4000;
    QTest::newRow("all of int") << int(largest);
}

void TstFreePlaces::answersAreThoseOfOneAfterTheOther()
{
    QFETCH(const int, range);
    std::mt19937 random(static_cast<unsigned>(range));
    std::uniform_int_distribution<int> any(-range, range);
    int occupied = 0;
    for (int list = 0; list < 2000; ++list) {
        QVector<Shown> watermarks;
        for (auto count = random() % 14; count > 0; --count) {
            Shown shown{any(random), any(random), any(random), any(random)};
            if (random() % 8 == 0)
                shown.width = random() % 2 ? 0 : 1;
            if (random() % 8 == 0)
                shown.height = random() % 2 ? 0 : 1;
            watermarks.append(shown);
        }
        std::vector<Place> places;
        for (auto count = random() % 20; count > 0; --count)
            places.push_back({any(random), any(random)});
        for (const Shown& shown : std::as_const(watermarks)) {
            const OccupiedRect rect = occupiedBy(shown);
            places.push_back({rect.right + qint64(random() % 3) - 1, rect.top});
            places.push_back({rect.left, rect.bottom + qint64(random() % 3) - 1});
        }
        const qint64 reach = list % 3 == 0 ? 0 : 30;
        const QString expected = freeByHand(watermarks, places, reach);
        QCOMPARE(freeOf(watermarks, places, reach), expected);
        occupied += static_cast<int>(expected.count(QLatin1Char('#')));
    }
    QVERIFY(occupied > 1000);
}

void TstFreePlaces::manyRectanglesTakeNoSquareOfTime()
{
    constexpr int many = 300000; // Each place held against each rectangle would exceed the time limit of the test.
    QVector<Shown> watermarks;
    std::vector<Place> places;
    for (int i = 0; i < many; ++i) {
        const qint64 left = qint64{100} * i;
        watermarks.append({left, i, 10, 2});
        places.push_back({left + 20, i});
    }
    QCOMPARE(freeOf(watermarks, places, 30), QString(many, QLatin1Char('.')));
}

QTEST_GUILESS_MAIN(TstFreePlaces)

#include "tst_freeplaces.moc"
