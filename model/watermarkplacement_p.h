// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QPoint>
#include <QSize>
#include <QVector>

/// The search for a free place beside the watermarks that are already shown. Pixels of the base size.
namespace placement {

/// The rectangle that a shown watermark occupies. Right and bottom are the last column and row inside:
/// left + width - 1, top + height - 1. Edges are 64 bits wide, so that no watermark overflows them.
struct OccupiedRect {
    qint64 left;
    qint64 top;
    qint64 right;
    qint64 bottom;

    /// The rectangle of a watermark at (\a left, \a top); one without any size counts as 30 wide.
    static OccupiedRect ofWatermark(int left, int top, int width, int height);

    /// One pixel larger on every side.
    OccupiedRect grown() const;

    /// The columns and rows that the rectangle covers: of a negative width or height those from its last to its
    /// first.
    OccupiedRect normalized() const;

    /// Whether the point lies inside or on an edge of normalized().
    bool contains(qint64 x, qint64 y) const;
};

/// The place for a new watermark that stands at \a start in a frame of \a baseSize: the first of the four
/// searches below that finds one. Nothing when \a occupied is empty or every search fails.
std::optional<QPoint> freePlace(const QVector<OccupiedRect>& occupied, const QPoint& start, const QSize& baseSize);

/// Steps of (30, 30) from \a start on until neither the place nor the point 30 right of it lies in a grown
/// rectangle.
std::optional<QPoint> freePlaceByDiagonalSteps(const QVector<OccupiedRect>& occupied, const QPoint& start,
                                               const QSize& baseSize);

/// 20 right of a rectangle, level with its top; the rectangle with the leftmost right edge first.
std::optional<QPoint> freePlaceRightOfLeftmost(const QVector<OccupiedRect>& occupied, const QSize& baseSize);

/// At column 10, level with a rectangle's top; the rectangle with the rightmost left edge first.
std::optional<QPoint> freePlaceAtLeftMargin(const QVector<OccupiedRect>& occupied, const QSize& baseSize);

/// (30, 30) from the first rectangle, when that is inside the frame. The place may be occupied.
std::optional<QPoint> placeShiftedFromFirst(const QVector<OccupiedRect>& occupied, const QSize& baseSize);

/// Whether a saved position counts as free. Not every rectangle is checked: see the implementation.
bool savedPlaceIsFree(const QVector<OccupiedRect>& occupied, const QPoint& place);

} // namespace placement
