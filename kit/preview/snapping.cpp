// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "snapping_p.h"

#include <algorithm>
#include <cmath>

#include "anchoring_p.h"

namespace zokit {

namespace {

/// A rectangle along one axis.
struct Span {
    int from = 0;
    int size = 0;
};

Span along(const QRect& rectangle, Qt::Orientation guide)
{
    return guide == Qt::Vertical ? Span{rectangle.left(), rectangle.width()}
                                 : Span{rectangle.top(), rectangle.height()};
}

/// By how much \a span, moved as a whole, is off \a guide, by each of its parts that snap to it.
QVector<int> offsetsOfMove(const Span& span, const Guide& guide)
{
    QVector<int> offsets; // Rounded as an anchor rounds: what snaps to a margin stands exactly there.
    if (guide.forBegin)
        offsets.append(rounded(guide.at) - span.from);
    if (guide.forEnd)
        offsets.append(rounded(guide.at - span.size) - span.from);
    if (guide.forMiddle)
        offsets.append(rounded(guide.at - span.size / 2.0) - span.from);
    return offsets;
}

QVector<int> offsetsOf(const Span& span, int edge, bool isMove, const Guide& guide)
{
    if (isMove)
        return offsetsOfMove(span, guide);
    if (edge == 0 || (!guide.forBegin && !guide.forEnd))
        return {};
    return {rounded(guide.at) - (edge < 0 ? span.from : span.from + span.size)};
}

/// The span of \a start with its edge, or as a whole, moved by \a by.
Span moved(Span span, int edge, bool isMove, int by)
{
    if (isMove || edge < 0)
        span.from += by;
    if (!isMove)
        span.size += edge * by;
    return span;
}

int shiftAlong(const QRect& start, Handle handle, const QPoint& by, Qt::Orientation orientation,
               const QVector<Guide>& guides, double reach)
{
    const bool isMove = handle == Handle::Move;
    const int edge = orientation == Qt::Vertical ? edgesOf(handle).x : edgesOf(handle).y;
    const Span span = moved(along(start, orientation), edge, isMove, orientation == Qt::Vertical ? by.x() : by.y());
    int best = 0;
    bool found = false;
    for (const Guide& guide : guides) {
        if (guide.orientation != orientation)
            continue;
        for (const int offset : offsetsOf(span, edge, isMove, guide)) {
            if (std::abs(offset) <= reach && (!found || std::abs(offset) < std::abs(best))) {
                best = offset;
                found = true;
            }
        }
    }
    return best;
}

void addRectangle(QVector<Guide>& guides, const QRect& rectangle, bool fromOutside)
{
    const QRectF area(rectangle);
    guides.append({Qt::Vertical, area.left(), true, fromOutside, false});
    guides.append({Qt::Vertical, area.right(), fromOutside, true, false});
    guides.append({Qt::Vertical, area.center().x(), false, false, true});
    guides.append({Qt::Horizontal, area.top(), true, fromOutside, false});
    guides.append({Qt::Horizontal, area.bottom(), fromOutside, true, false});
    guides.append({Qt::Horizontal, area.center().y(), false, false, true});
}

void addMargins(QVector<Guide>& guides, const QSize& frame)
{
    const double share = Anchor().margin / 100;
    const double beside = frame.width() * share;
    const double above = frame.height() * share;
    guides.append({Qt::Vertical, beside, true, false, false});
    guides.append({Qt::Vertical, frame.width() - beside, false, true, false});
    guides.append({Qt::Horizontal, above, true, false, false});
    guides.append({Qt::Horizontal, frame.height() - above, false, true, false});
}

} // namespace

Edges edgesOf(Handle handle)
{
    switch (handle) {
    case Handle::TopLeft:
        return {-1, -1};
    case Handle::Top:
        return {0, -1};
    case Handle::TopRight:
        return {1, -1};
    case Handle::Right:
        return {1, 0};
    case Handle::BottomRight:
        return {1, 1};
    case Handle::Bottom:
        return {0, 1};
    case Handle::BottomLeft:
        return {-1, 1};
    case Handle::Left:
        return {-1, 0};
    case Handle::None:
    case Handle::Move:
        break;
    }
    return {};
}

QVector<Guide> guidesOf(const PreviewScene& scene, Identity thing)
{
    QVector<Guide> guides;
    const QRect frame(QPoint(0, 0), scene.frame);
    addRectangle(guides, frame, false);
    if (thing != scene.cropThing) {
        addMargins(guides, scene.frame);
        if (scene.crop != frame)
            addRectangle(guides, scene.crop, false);
    }
    for (const PreviewMark& mark : scene.marks) {
        if (mark.thing != thing)
            addRectangle(guides, mark.place, true);
    }
    return guides;
}

QPoint snapShift(const QRect& start, Handle handle, const QPoint& by, const QVector<Guide>& guides, double reach)
{
    if (reach <= 0)
        return QPoint();
    return {shiftAlong(start, handle, by, Qt::Vertical, guides, reach),
            shiftAlong(start, handle, by, Qt::Horizontal, guides, reach)};
}

QVector<SnapLine> linesAt(const QRect& place, Handle handle, const QVector<Guide>& guides)
{
    QVector<SnapLine> lines;
    for (const Guide& guide : guides) {
        const int edge = guide.orientation == Qt::Vertical ? edgesOf(handle).x : edgesOf(handle).y;
        if (!offsetsOf(along(place, guide.orientation), edge, handle == Handle::Move, guide).contains(0))
            continue;
        const auto isSame = [&](const SnapLine& line) {
            return line.orientation == guide.orientation && std::abs(line.at - guide.at) < 0.5;
        };
        if (std::none_of(lines.cbegin(), lines.cend(), isSame))
            lines.append({guide.orientation, guide.at});
    }
    return lines;
}

} // namespace zokit
