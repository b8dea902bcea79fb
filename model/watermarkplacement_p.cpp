#include "watermarkplacement_p.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace placement {

namespace {

constexpr qint64 diagonalStep = 30;
constexpr qint64 frameMargin = 30;
constexpr qint64 probeDistance = 30; // Where the second point of a place is looked at, right of the first.
constexpr qint64 defaultWidth = 30;
constexpr qint64 gapToTheRight = 20;
constexpr qint64 marginColumn = 10;
constexpr qint64 smallestLeftEdge = 31;

/// Steps first to last, first > last for none.
struct Steps {
    qint64 first;
    qint64 last;
};

qint64 floorQuotient(qint64 dividend, qint64 divisor)
{
    const qint64 quotient = dividend / divisor;
    return dividend % divisor < 0 ? quotient - 1 : quotient;
}

qint64 ceilingQuotient(qint64 dividend, qint64 divisor)
{
    return -floorQuotient(-dividend, divisor);
}

/// The steps k at which start + k * diagonalStep lies in first to last.
Steps stepsWithin(qint64 start, qint64 first, qint64 last)
{
    return {ceilingQuotient(first - start, diagonalStep), floorQuotient(last - start, diagonalStep)};
}

/// The columns or rows from \a first to \a last; of a negative extent those from its last to its first.
std::pair<qint64, qint64> span(qint64 first, qint64 last)
{
    return last < first - 1 ? std::make_pair(last, first) : std::make_pair(first, last);
}

/// The steps at which the point (x, y), moved along the diagonal, lies in \a rect.
Steps stepsInside(const OccupiedRect& rect, qint64 x, qint64 y)
{
    const auto [left, right] = span(rect.left, rect.right);
    const auto [top, bottom] = span(rect.top, rect.bottom);
    const Steps columns = stepsWithin(x, left, right);
    const Steps rows = stepsWithin(y, top, bottom);
    return {std::max(columns.first, rows.first), std::min(columns.last, rows.last)};
}

int toInt(qint64 value)
{
    return static_cast<int>(
        std::clamp<qint64>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

QPoint toPoint(qint64 x, qint64 y)
{
    return QPoint(toInt(x), toInt(y));
}

bool anyContains(const QVector<OccupiedRect>& occupied, qint64 x, qint64 y)
{
    return std::any_of(occupied.cbegin(), occupied.cend(),
                       [=](const OccupiedRect& rect) { return rect.contains(x, y); });
}

bool isBeyond(qint64 row, const QSize& baseSize)
{
    return row < 0 || row > qint64(baseSize.height()) - frameMargin;
}

} // namespace

OccupiedRect OccupiedRect::ofWatermark(int left, int top, int width, int height)
{
    const qint64 shownWidth = width == 0 && height == 0 ? defaultWidth : qint64(width);
    return {left, top, left + shownWidth - 1, qint64(top) + height - 1};
}

OccupiedRect OccupiedRect::grown() const
{
    return {left - 1, top - 1, right + 1, bottom + 1};
}

bool OccupiedRect::contains(qint64 x, qint64 y) const
{
    const auto [firstColumn, lastColumn] = span(left, right);
    const auto [firstRow, lastRow] = span(top, bottom);
    return x >= firstColumn && x <= lastColumn && y >= firstRow && y <= lastRow;
}

std::optional<QPoint> freePlace(const QVector<OccupiedRect>& occupied, const QPoint& start, const QSize& baseSize)
{
    if (occupied.isEmpty())
        return std::nullopt;
    if (const auto place = freePlaceByDiagonalSteps(occupied, start, baseSize))
        return place;
    if (const auto place = freePlaceRightOfLeftmost(occupied, baseSize))
        return place;
    if (const auto place = freePlaceAtLeftMargin(occupied, baseSize))
        return place;
    return placeShiftedFromFirst(occupied, baseSize);
}

std::optional<QPoint> freePlaceByDiagonalSteps(const QVector<OccupiedRect>& occupied, const QPoint& start,
                                               const QSize& baseSize)
{
    const qint64 x = start.x();
    const qint64 y = start.y();
    const qint64 limitX = qint64(baseSize.width()) - frameMargin;
    const qint64 limitY = qint64(baseSize.height()) - frameMargin;
    if (x >= limitX || y >= limitY)
        return std::nullopt;

    // A large frame has millions of steps. Each rectangle blocks one run of steps for either point, so the
    // first free step is the first that no run covers.
    QVector<Steps> blocked;
    blocked.reserve(2 * occupied.size());
    for (const OccupiedRect& rect : occupied) {
        blocked.append(stepsInside(rect.grown(), x, y));
        blocked.append(stepsInside(rect.grown(), x + probeDistance, y));
    }
    std::sort(blocked.begin(), blocked.end(), [](const Steps& a, const Steps& b) { return a.first < b.first; });

    qint64 step = 0;
    for (const Steps& run : std::as_const(blocked)) {
        if (run.first <= step && step <= run.last)
            step = run.last + 1;
    }
    const qint64 freeX = x + step * diagonalStep;
    const qint64 freeY = y + step * diagonalStep;
    if (freeX >= limitX || freeY >= limitY)
        return std::nullopt;
    return toPoint(freeX, freeY);
}

std::optional<QPoint> freePlaceRightOfLeftmost(const QVector<OccupiedRect>& occupied, const QSize& baseSize)
{
    QVector<OccupiedRect> candidates = occupied;
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const OccupiedRect& a, const OccupiedRect& b) { return a.right < b.right; });
    for (const OccupiedRect& candidate : std::as_const(candidates)) {
        const qint64 x = candidate.right + gapToTheRight;
        const qint64 y = candidate.top;
        // Deliberate: a row outside the frame ends the search, whatever rectangles remain.
        if (x >= qint64(baseSize.width()) - frameMargin || isBeyond(y, baseSize))
            return std::nullopt;
        if (!anyContains(occupied, x, y) && !anyContains(occupied, x + probeDistance, y))
            return toPoint(x, y);
    }
    return std::nullopt;
}

std::optional<QPoint> freePlaceAtLeftMargin(const QVector<OccupiedRect>& occupied, const QSize& baseSize)
{
    QVector<OccupiedRect> candidates = occupied;
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const OccupiedRect& a, const OccupiedRect& b) { return a.left > b.left; });
    for (const OccupiedRect& candidate : std::as_const(candidates)) {
        const qint64 y = candidate.top;
        // Deliberate: a row outside the frame ends the search, whatever rectangles remain.
        if (candidate.left < smallestLeftEdge || isBeyond(y, baseSize))
            return std::nullopt;
        if (!anyContains(occupied, marginColumn, y) && !anyContains(occupied, marginColumn + probeDistance, y))
            return toPoint(marginColumn, y);
    }
    return std::nullopt;
}

std::optional<QPoint> placeShiftedFromFirst(const QVector<OccupiedRect>& occupied, const QSize& baseSize)
{
    if (occupied.isEmpty())
        return std::nullopt;
    const qint64 x = occupied.first().left + diagonalStep;
    const qint64 y = occupied.first().top + diagonalStep;
    // Deliberate: the whole frame counts here, without a margin, and nothing tells whether the place is free.
    if (x >= baseSize.width() || y >= baseSize.height())
        return std::nullopt;
    return toPoint(x, y);
}

bool savedPlaceIsFree(const QVector<OccupiedRect>& occupied, const QPoint& place)
{
    constexpr int rectangleStride = 2; // Deliberate: only every second rectangle is tested.
    constexpr qint64 inset = 2;
    int position = 0;
    while (position < occupied.size()) {
        if (occupied.at(position).contains(place.x() + inset, place.y() + inset))
            break;
        position += rectangleStride;
    }
    // Deliberate: the walk steps over the end of an odd number of rectangles, which then never counts as free.
    return position == occupied.size();
}

} // namespace placement
