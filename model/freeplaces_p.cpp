// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "freeplaces_p.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

using placement::OccupiedRect;
using placement::Place;

/// Counts how many intervals each of a number of slots lies in, as intervals come and go: a Fenwick tree.
class IntervalCount {
public:
    explicit IntervalCount(std::size_t slotCount) : m_sums(slotCount + 1, 0) {}

    /// From slot \a first up to \a behind, which may be the number of slots.
    void add(std::size_t first, std::size_t behind, int count)
    {
        addFrom(first, count);
        addFrom(behind, -count);
    }

    int at(std::size_t slot) const
    {
        int sum = 0;
        for (std::size_t i = slot + 1; i > 0; i &= i - 1)
            sum += m_sums[i];
        return sum;
    }

private:
    void addFrom(std::size_t slot, int count)
    {
        for (std::size_t i = slot + 1; i < m_sums.size(); i += i & (~i + 1))
            m_sums[i] += count;
    }

    std::vector<int> m_sums;
};

/// A rectangle by its rows and the slots of its columns. The columns at which rectangles begin, and those behind their
/// ends, bound the slots: slot n lies between the bounds n - 1 and n.
struct Band {
    qint64 top;
    qint64 bottom;
    std::size_t first;
    std::size_t behind;
};

struct Bands {
    std::vector<Band> bands;
    std::vector<qint64> bounds;
};

Bands bandsOf(const QVector<OccupiedRect>& rectangles)
{
    using Edge = std::pair<qint64, std::size_t*>; // A column, and where its slot belongs.
    const auto count = static_cast<std::size_t>(rectangles.size());
    Bands result;
    result.bands.reserve(count);
    std::vector<Edge> edges;
    edges.reserve(2 * count);
    for (const OccupiedRect& rectangle : rectangles) {
        const OccupiedRect area = rectangle.normalized();
        result.bands.push_back({area.top, area.bottom, 0, 0});
        edges.emplace_back(area.left, &result.bands.back().first);
        edges.emplace_back(area.right + 1, &result.bands.back().behind);
    }
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.first < b.first; });
    for (const auto& [column, slot] : edges) {
        if (result.bounds.empty() || result.bounds.back() != column)
            result.bounds.push_back(column);
        *slot = result.bounds.size();
    }
    return result;
}

/// The slots of the columns \a distance right of \a places. Quick where the places go from left to right.
std::vector<std::size_t> slotsOf(const std::vector<Place>& places, qint64 distance, const std::vector<qint64>& bounds)
{
    std::vector<std::size_t> result; // "slots" is a word of Qt's.
    result.reserve(places.size());
    auto behind = bounds.cbegin();
    for (const Place& place : places) {
        const qint64 column = place.x + distance;
        if (behind != bounds.cbegin() && *(behind - 1) > column)
            behind = std::upper_bound(bounds.cbegin(), behind, column);
        while (behind != bounds.cend() && *behind <= column)
            ++behind;
        result.push_back(static_cast<std::size_t>(behind - bounds.cbegin()));
    }
    return result;
}

} // namespace

// A row sweeps over the frame from top to bottom. When it comes to a place, the rectangles that begin above it have
// been added and those that end above it taken out again.
std::vector<bool> placement::freePlaces(const QVector<OccupiedRect>& rectangles, const std::vector<Place>& places,
                                        qint64 reach)
{
    Bands made = bandsOf(rectangles);
    const std::vector<std::size_t> ownSlots = slotsOf(places, 0, made.bounds);
    const std::vector<std::size_t> reachedSlots = slotsOf(places, reach, made.bounds);
    std::vector<Band> byTop = std::move(made.bands);
    std::vector<Band> byBottom = byTop;
    std::sort(byTop.begin(), byTop.end(), [](const Band& a, const Band& b) { return a.top < b.top; });
    std::sort(byBottom.begin(), byBottom.end(), [](const Band& a, const Band& b) { return a.bottom < b.bottom; });
    std::vector<std::size_t> order(places.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return places[a].y < places[b].y; });

    IntervalCount count(made.bounds.size() + 1);
    std::vector<bool> result(places.size());
    auto coming = byTop.cbegin();
    auto going = byBottom.cbegin();
    for (const std::size_t index : order) {
        const qint64 row = places[index].y;
        for (; coming != byTop.cend() && coming->top <= row; ++coming)
            count.add(coming->first, coming->behind, 1);
        for (; going != byBottom.cend() && going->bottom < row; ++going)
            count.add(going->first, going->behind, -1);
        result[index] = count.at(ownSlots[index]) == 0 && count.at(reachedSlots[index]) == 0;
    }
    return result;
}
