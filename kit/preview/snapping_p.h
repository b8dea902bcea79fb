// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector>

#include <zokit/previewgeometry.h>

namespace zokit {

/// Which edges of a rectangle a handle moves: -1 the left or upper one, 1 the right or lower one, 0 none.
struct Edges {
    int x = 0;
    int y = 0;
};
Edges edgesOf(Handle handle);

/// A line that edges or middles snap to.
struct Guide {
    Qt::Orientation orientation = Qt::Vertical;
    double at = 0;
    bool forBegin = false; ///< The left or upper edge snaps to it.
    bool forEnd = false;   ///< The right or lower one.
    bool forMiddle = false;
};
/// What \a thing can snap to in \a scene.
QVector<Guide> guidesOf(const PreviewScene& scene, Identity thing);

/// By how much more than \a by the rectangle \a start is dragged by \a handle so that it snaps.
QPoint snapShift(const QRect& start, Handle handle, const QPoint& by, const QVector<Guide>& guides, double reach);
/// The guides that \a place lies at by the edges that \a handle moves.
QVector<SnapLine> linesAt(const QRect& place, Handle handle, const QVector<Guide>& guides);

} // namespace zokit
