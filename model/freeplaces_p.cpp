#include "freeplaces_p.h"

#include <algorithm>
#include <numeric>

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

/// The columns at which a rectangle begins or has ended, in their order; slot n is what lies between column n - 1 and
/// column n.
class Columns {
public:
    explicit Columns(const std::vector<OccupiedRect>& rectangles)
    {
        m_edges.reserve(2 * rectangles.size());
        for (const OccupiedRect& rectangle : rectangles) {
            m_edges.push_back(rectangle.left);
            m_edges.push_back(rectangle.right + 1);
        }
        std::sort(m_edges.begin(), m_edges.end());
        m_edges.erase(std::unique(m_edges.begin(), m_edges.end()), m_edges.end());
    }

    std::size_t slotCount() const { return m_edges.size() + 1; }

    std::size_t slotOf(qint64 column) const
    {
        return static_cast<std::size_t>(std::upper_bound(m_edges.cbegin(), m_edges.cend(), column) - m_edges.cbegin());
    }

private:
    std::vector<qint64> m_edges;
};

/// A rectangle by the slots of its columns.
struct Band {
    qint64 top;
    qint64 bottom;
    std::size_t first;
    std::size_t behind;
};

} // namespace

// A row sweeps over the frame from top to bottom. When it comes to a place, the rectangles that begin above it have
// been added and those that end above it taken out again.
std::vector<bool> placement::freePlaces(const QVector<OccupiedRect>& rectangles, const std::vector<Place>& places,
                                        qint64 reach)
{
    std::vector<OccupiedRect> areas;
    areas.reserve(static_cast<std::size_t>(rectangles.size()));
    for (const OccupiedRect& rectangle : rectangles)
        areas.push_back(rectangle.normalized());
    const Columns columns(areas);
    std::vector<Band> byTop;
    byTop.reserve(areas.size());
    for (const OccupiedRect& area : areas)
        byTop.push_back({area.top, area.bottom, columns.slotOf(area.left), columns.slotOf(area.right + 1)});
    std::vector<Band> byBottom = byTop;
    std::sort(byTop.begin(), byTop.end(), [](const Band& a, const Band& b) { return a.top < b.top; });
    std::sort(byBottom.begin(), byBottom.end(), [](const Band& a, const Band& b) { return a.bottom < b.bottom; });
    std::vector<std::size_t> order(places.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return places[a].y < places[b].y; });

    IntervalCount count(columns.slotCount());
    std::vector<bool> result(places.size());
    auto coming = byTop.cbegin();
    auto going = byBottom.cbegin();
    for (const std::size_t index : order) {
        const Place& place = places[index];
        for (; coming != byTop.cend() && coming->top <= place.y; ++coming)
            count.add(coming->first, coming->behind, 1);
        for (; going != byBottom.cend() && going->bottom < place.y; ++going)
            count.add(going->first, going->behind, -1);
        result[index] = count.at(columns.slotOf(place.x)) == 0 && count.at(columns.slotOf(place.x + reach)) == 0;
    }
    return result;
}
