// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "watermarkplacement_p.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "freeplaces_p.h"

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

/// The steps at which the point (x, y), moved along the diagonal, lies in \a rect.
Steps stepsInside(const OccupiedRect& rect, qint64 x, qint64 y)
{
    const OccupiedRect area = rect.normalized();
    const Steps columns = stepsWithin(x, area.left, area.right);
    const Steps rows = stepsWithin(y, area.top, area.bottom);
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

/// The first of \a places where neither it nor the point 30 right of it lies in a rectangle.
std::optional<QPoint> firstFree(const QVector<OccupiedRect>& occupied, const std::vector<Place>& places)
{
    const std::vector<bool> areFree = freePlaces(occupied, places, probeDistance);
    const auto found = std::find(areFree.cbegin(), areFree.cend(), true);
    if (found == areFree.cend())
        return std::nullopt;
    const Place& place = places[static_cast<std::size_t>(found - areFree.cbegin())];
    return toPoint(place.x, place.y);
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

OccupiedRect OccupiedRect::normalized() const
{
    OccupiedRect area = *this;
    if (right < left - 1)
        std::swap(area.left, area.right);
    if (bottom < top - 1)
        std::swap(area.top, area.bottom);
    return area;
}

bool OccupiedRect::contains(qint64 x, qint64 y) const
{
    const OccupiedRect area = normalized();
    return x >= area.left && x <= area.right && y >= area.top && y <= area.bottom;
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
        for (const qint64 column : {x + probeDistance, x}) {
            const Steps run = stepsInside(rect.grown(), column, y);
            if (run.first <= run.last && run.last >= 0)
                blocked.append(run);
        }
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
    std::vector<Place> places;
    for (const OccupiedRect& candidate : std::as_const(candidates)) {
        const qint64 x = candidate.right + gapToTheRight;
        const qint64 y = candidate.top;
        // Deliberate: a row outside the frame ends the search, whatever rectangles remain.
        if (x >= qint64(baseSize.width()) - frameMargin || isBeyond(y, baseSize))
            break;
        places.push_back({x, y});
    }
    return firstFree(occupied, places);
}

std::optional<QPoint> freePlaceAtLeftMargin(const QVector<OccupiedRect>& occupied, const QSize& baseSize)
{
    QVector<OccupiedRect> candidates = occupied;
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const OccupiedRect& a, const OccupiedRect& b) { return a.left > b.left; });
    std::vector<Place> places;
    for (const OccupiedRect& candidate : std::as_const(candidates)) {
        // Deliberate: a row outside the frame ends the search, whatever rectangles remain.
        if (candidate.left < smallestLeftEdge || isBeyond(candidate.top, baseSize))
            break;
        places.push_back({marginColumn, candidate.top});
    }
    return firstFree(occupied, places);
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
