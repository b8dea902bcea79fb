// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/placement.h>

#include <algorithm>

#include "anchoring_p.h"

namespace zokit {

namespace {

bool touches(const QRect& place, const QVector<QRect>& occupied)
{
    return std::any_of(occupied.cbegin(), occupied.cend(), [&](const QRect& other) { return other.intersects(place); });
}

/// The even length that is next below \a length, but not below \a smallest.
int evenFrom(int length, int smallest)
{
    const int below = length - length % 2;
    return below < smallest ? below + 2 : below;
}

/// The pixels of a rectangle whose corners may be exchanged; QRect::normalized() leaves the corners out with Qt 6.
QRect upright(const QRect& drawn)
{
    const auto [left, right] = std::minmax({drawn.left(), drawn.right()});
    const auto [top, bottom] = std::minmax({drawn.top(), drawn.bottom()});
    return {QPoint(left, top), QPoint(right, bottom)};
}

} // namespace

std::optional<QPoint> freePlace(const QSize& size, const QPoint& wished, const QVector<QRect>& occupied,
                                const QSize& frame)
{
    const QSize needed = size.expandedTo(QSize(1, 1));
    // A free place that is as near as can be touches an edge of something on each axis, or keeps the wished coordinate.
    QVector<int> columns{wished.x(), 0, frame.width() - needed.width()};
    QVector<int> rows{wished.y(), 0, frame.height() - needed.height()};
    for (const QRect& other : occupied) {
        columns << other.right() + 1 << other.left() - needed.width();
        rows << other.bottom() + 1 << other.top() - needed.height();
    }
    std::optional<QPoint> best;
    qint64 bestDistance = 0;
    for (const int y : std::as_const(rows)) {
        for (const int x : std::as_const(columns)) {
            const QRect place(QPoint(x, y), needed);
            const bool isWished = x == wished.x() && y == wished.y(); // It may lie beyond the frame.
            const bool inside =
                x >= 0 && y >= 0 && x + needed.width() <= frame.width() && y + needed.height() <= frame.height();
            if ((!inside && !isWished) || touches(place, occupied))
                continue;
            const qint64 dx = qint64(x) - wished.x();
            const qint64 dy = qint64(y) - wished.y();
            const qint64 distance = dx * dx + dy * dy;
            if (!best || distance < bestDistance) {
                best = QPoint(x, y);
                bestDistance = distance;
            }
        }
    }
    return best;
}

std::optional<QRect> cropWithin(const QRect& wished, const QSize& frame, const CropRule& rule)
{
    const QRect inside = upright(wished).intersected(QRect(QPoint(0, 0), frame));
    int width = std::max(inside.width(), rule.smallest.width());
    int height = std::max(inside.height(), rule.smallest.height());
    if (rule.ratio > 0) {
        // The largest of that shape in the rectangle, but not below the smallest size.
        if (width > height * rule.ratio)
            width = rounded(height * rule.ratio);
        else
            height = rounded(width / rule.ratio);
        if (width < rule.smallest.width()) {
            width = rule.smallest.width();
            height = rounded(width / rule.ratio);
        }
        if (height < rule.smallest.height()) {
            height = rule.smallest.height();
            width = rounded(height * rule.ratio);
        }
    }
    if (rule.even) {
        width = evenFrom(width, rule.smallest.width());
        height = evenFrom(height, rule.smallest.height());
    }
    if (width > frame.width() || height > frame.height() || width < 1 || height < 1)
        return std::nullopt;
    const QPoint middle = inside.isEmpty() ? upright(wished).center() : inside.center();
    const int x = std::clamp(middle.x() - (width - 1) / 2, 0, frame.width() - width);
    const int y = std::clamp(middle.y() - (height - 1) / 2, 0, frame.height() - height);
    return QRect(x, y, width, height);
}

} // namespace zokit
