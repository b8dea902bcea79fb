// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Places of new watermarks against searches that go place by place and rectangle by rectangle, on random lists of
// watermarks, through the model.

#include <optional>
#include <random>
#include <vector>

#include <QtTest>

#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "testapplication.h"

namespace {

constexpr int largest = std::numeric_limits<int>::max();

/// In 64 bits, so that no edge overflows.
struct Rect {
    qint64 left;
    qint64 top;
    qint64 right;
    qint64 bottom;
};

struct Place {
    qint64 x;
    qint64 y;
};

struct Watermark {
    int left;
    int top;
    int width;
    int height;
    bool isShown;
};

Rect rectOf(const Watermark& watermark)
{
    const bool isSizeless = watermark.width == 0 && watermark.height == 0;
    const qint64 width = isSizeless ? 30 : watermark.width;
    return {watermark.left, watermark.top, watermark.left + width - 1, qint64(watermark.top) + watermark.height - 1};
}

/// Edges that stand the wrong way round by more than one pixel hold what lies between them.
bool isBetween(qint64 value, qint64 first, qint64 last)
{
    return last < first - 1 ? last <= value && value <= first : first <= value && value <= last;
}

bool collides(const std::vector<Rect>& rects, qint64 x, qint64 y, int growth)
{
    for (const Rect& rect : rects) {
        if (!isBetween(y, rect.top - growth, rect.bottom + growth))
            continue;
        if (isBetween(x, rect.left - growth, rect.right + growth)
            || isBetween(x + 30, rect.left - growth, rect.right + growth)) {
            return true;
        }
    }
    return false;
}

/// Beside each rectangle in turn, by right edges from the left or by left edges from the right.
std::optional<Place> beside(const std::vector<Rect>& rects, qint64 limitW, qint64 limitH, bool toTheRight)
{
    std::vector<Rect> left = rects;
    while (!left.empty()) {
        std::size_t picked = 0;
        for (std::size_t i = 1; i < left.size(); ++i) {
            if (toTheRight ? left[i].right < left[picked].right : left[i].left > left[picked].left)
                picked = i;
        }
        const qint64 x = toTheRight ? left[picked].right + 20 : 10;
        const qint64 y = left[picked].top;
        if (toTheRight ? x >= limitW : left[picked].left < 31)
            return std::nullopt;
        if (y > limitH || y < 0)
            return std::nullopt;
        if (!collides(rects, x, y, 0))
            return Place{x, y};
        left.erase(left.begin() + static_cast<std::ptrdiff_t>(picked));
    }
    return std::nullopt;
}

std::optional<Place> placeOf(const Place& start, const std::vector<Rect>& rects, const QSize& base)
{
    if (rects.empty())
        return std::nullopt;
    const qint64 limitW = qint64(base.width()) - 30;
    const qint64 limitH = qint64(base.height()) - 30;
    for (Place place = start; place.x < limitW && place.y < limitH; place.x += 30, place.y += 30) {
        if (!collides(rects, place.x, place.y, 1))
            return place;
    }
    if (const std::optional<Place> place = beside(rects, limitW, limitH, true))
        return place;
    if (const std::optional<Place> place = beside(rects, limitW, limitH, false))
        return place;
    const Place shifted{rects.front().left + 30, rects.front().top + 30};
    if (shifted.x < base.width() && shifted.y < base.height())
        return shifted;
    return std::nullopt;
}

} // namespace

class TstReferencePlacement : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { ZoEffectModel::InitEffectModel(hostCatalogue()); }
    void samePlaces_data();
    void samePlaces();
};

/// Positions lie in \a spread pixels from \a first on, in both directions; sides from \a smallest to \a tallest.
void TstReferencePlacement::samePlaces_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<QSize>("base");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("spread");
    QTest::addColumn<int>("smallest");
    QTest::addColumn<int>("tallest");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("cases");

    const QSize huge(largest, largest);
    QTest::newRow("usual frame") << 91 << QSize(640, 480) << -60 << 700 << 0 << 250 << 6 << 1500;
    QTest::newRow("full frame") << 92 << QSize(320, 240) << -20 << 330 << 10 << 120 << 30 << 1000;
    QTest::newRow("tiny frame") << 93 << QSize(90, 70) << -20 << 110 << 0 << 12 << 10 << 1500;
    QTest::newRow("sizes below 0") << 94 << QSize(320, 240) << -20 << 300 << -40 << 40 << 8 << 1500;
    QTest::newRow("sizes of nothing and little") << 95 << QSize(200, 200) << 0 << 200 << 0 << 2 << 10 << 1500;
    QTest::newRow("frame lower than positions") << 96 << QSize(500, 60) << -10 << 400 << 0 << 150 << 8 << 1500;
    QTest::newRow("largest frame, at its far edges") << 97 << huge << largest - 6000 << 6000 << 0 << 1500 << 8 << 1000;
    QTest::newRow("largest frame, beyond its edges") << 98 << huge << largest - 300 << 300 << 0 << largest << 6 << 1000;
    QTest::newRow("largest frame, near its origin") << 99 << huge << -200 << 3000 << 0 << 900 << 12 << 1000;
    QTest::newRow("wide and low") << 100 << QSize(largest, 400) << -50 << 500 << 0 << 200 << 8 << 1000;
    QTest::newRow("narrow and high") << 101 << QSize(400, largest) << -50 << 500 << 0 << 200 << 8 << 1000;
    QTest::newRow("no frame") << 102 << QSize(0, 0) << -100 << 200 << 0 << 60 << 4 << 500;
    QTest::newRow("long walks") << 103 << QSize(60000, 60000) << 0 << 60000 << 0 << 30000 << 8 << 300;
}

void TstReferencePlacement::samePlaces()
{
    QFETCH(const int, seed);
    QFETCH(const QSize, base);
    QFETCH(const int, first);
    QFETCH(const int, spread);
    QFETCH(const int, smallest);
    QFETCH(const int, tallest);
    QFETCH(const int, count);
    QFETCH(const int, cases);

    std::mt19937 source(static_cast<std::mt19937::result_type>(seed));
    const auto between = [&source](int from, int to) {
        return static_cast<int>(from + static_cast<qint64>(source() % (static_cast<quint32>(to - from) + 1U)));
    };

    ZoEffectModel model(QStringList{"Watermark"});
    ZoEffectItemData* root = model.getDataItem("effect root", -1);
    ZoEffectItemData* typeNode = model.getDataItem("Watermark", -1);
    root->setData("w", base.width());
    root->setData("h", base.height());

    for (int i = 0; i < cases; ++i) {
        typeNode->clear();
        const int items = between(1, count + 1);
        const int placed = between(0, items - 1);
        std::vector<Rect> shown;
        Place start{};
        for (int row = 0; row < items; ++row) {
            const Watermark watermark{between(first, first + spread), between(first, first + spread),
                                      between(smallest, tallest), between(smallest, tallest), between(0, 5) != 0};
            auto* item = new ZoEffectItemData("item", typeNode);
            item->setData("wm_hposition", watermark.left);
            item->setData("wm_vposition", watermark.top);
            item->setData("wm_imagewidth", watermark.width);
            item->setData("wm_imageheight", watermark.height);
            item->setCheckState(watermark.isShown ? 2 : 0);
            if (row == placed)
                start = {watermark.left, watermark.top};
            else if (watermark.isShown)
                shown.push_back(rectOf(watermark));
        }
        const Place expected = placeOf(start, shown, base).value_or(start);

        ZoEffectItemData* item = typeNode->child(placed);
        model.adjustWatermarkPos(item);
        const QByteArray found = QStringLiteral("seed %1, case %2: %3,%4 instead of %5,%6")
                                     .arg(seed)
                                     .arg(i)
                                     .arg(item->data("wm_hposition").toInt())
                                     .arg(item->data("wm_vposition").toInt())
                                     .arg(expected.x)
                                     .arg(expected.y)
                                     .toUtf8();
        QVERIFY2(item->data("wm_hposition").toInt() == expected.x && item->data("wm_vposition").toInt() == expected.y,
                 found);
    }
}

ZOEFFECT_TEST_MAIN(TstReferencePlacement)

#include "tst_reference_placement.moc"
