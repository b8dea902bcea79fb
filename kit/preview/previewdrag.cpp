// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/previewgeometry.h>

#include <algorithm>

#include <zokit/properties.h>

#include "anchoring_p.h"
#include "names_p.h"
#include "snapping_p.h"

namespace zokit {

namespace {

constexpr int smallestMark = 8; // In pixels of the frame; as much of a watermark also stays in the frame.

/// What a rectangle keeps to while it is sized.
struct SizeRule {
    double ratio = 0;
    bool even = false;
    QSize smallest;
    QRect area; ///< Beyond which no edge goes.
};

/// How far the edge can go from the one that stays.
int room(int edge, int from, int size, int areaFrom, int areaSize)
{
    const int there = edge > 0 ? areaFrom + areaSize - from : edge < 0 ? from + size - areaFrom : areaSize;
    return std::max({there, size, 1});
}

/// What is as long as the \a frame stays: nothing is cut off there.
int evenBelow(int length, int smallest, int frame)
{
    return length % 2 != 0 && length != frame && length - 1 >= smallest ? length - 1 : length;
}

/// Where a side of \a size begins: where the other edge stays, or around the same middle.
int beginning(int edge, int from, int former, int size, int areaFrom, int areaSize)
{
    if (edge > 0)
        return from;
    if (edge < 0)
        return from + former - size;
    if (size == former)
        return from;
    return std::clamp(from + (former - size) / 2, areaFrom, std::max(areaFrom, areaFrom + areaSize - size));
}

QRect sized(const QRect& start, Handle handle, const QPoint& by, const SizeRule& rule)
{
    const Edges edges = edgesOf(handle);
    const QRect& area = rule.area;
    const int mostWidth = room(edges.x, start.left(), start.width(), area.left(), area.width());
    const int mostHeight = room(edges.y, start.top(), start.height(), area.top(), area.height());
    int width = start.width() + edges.x * by.x();
    int height = start.height() + edges.y * by.y();
    if (rule.ratio > 0) {
        const double most = std::min<double>(mostWidth, mostHeight * rule.ratio);
        const double least = std::max<double>(rule.smallest.width(), rule.smallest.height() * rule.ratio);
        const double byHeight = height * rule.ratio;
        const double wished = edges.y == 0 ? width : edges.x == 0 ? byHeight : std::max<double>(width, byHeight);
        width = rounded(std::clamp(wished, std::min(least, most), most));
        height = std::clamp(rounded(width / rule.ratio), 1, mostHeight);
    } else {
        if (edges.x != 0)
            width = std::clamp(width, std::min(rule.smallest.width(), mostWidth), mostWidth);
        if (edges.y != 0)
            height = std::clamp(height, std::min(rule.smallest.height(), mostHeight), mostHeight);
    }
    if (rule.even) {
        width = evenBelow(width, rule.smallest.width(), area.width());
        height = evenBelow(height, rule.smallest.height(), area.height());
    }
    return {beginning(edges.x, start.left(), start.width(), width, area.left(), area.width()),
            beginning(edges.y, start.top(), start.height(), height, area.top(), area.height()), width, height};
}

QRect movedCrop(const QRect& start, const QPoint& by, const QSize& frame)
{
    QRect place = start;
    place.moveTo(std::clamp(start.left() + by.x(), 0, std::max(frame.width() - start.width(), 0)),
                 std::clamp(start.top() + by.y(), 0, std::max(frame.height() - start.height(), 0)));
    return place;
}

/// The least position that a watermark can be given.
int lowest(const QString& key)
{
    const Property* known = findProperty(types::watermark, key);
    return known ? known->lowest.toInt() : 0;
}

QRect movedMark(const QRect& start, const QPoint& by, const QSize& frame)
{
    const auto within = [](int wished, int size, int least, int side) {
        const int least2 = std::max(least, std::min(smallestMark, size) - size);
        return std::clamp(wished, least2, std::max(least2, side - std::min(smallestMark, size)));
    };
    QRect place = start;
    place.moveTo(within(start.left() + by.x(), start.width(), lowest(keys::left), frame.width()),
                 within(start.top() + by.y(), start.height(), lowest(keys::top), frame.height()));
    return place;
}

SizeRule ruleOfMark(const PreviewScene& scene, Identity thing, const QRect& start)
{
    const auto mark = std::find_if(scene.marks.cbegin(), scene.marks.cend(),
                                   [thing](const PreviewMark& each) { return each.thing == thing; });
    SizeRule rule;
    rule.smallest = {smallestMark, smallestMark};
    rule.ratio = mark == scene.marks.cend() || mark->keepsShape ? double(start.width()) / start.height() : 0;
    // It may be larger than the frame, and reach beyond it.
    rule.area =
        QRect(QPoint(lowest(keys::left), lowest(keys::top)), QPoint(2 * scene.frame.width(), 2 * scene.frame.height()));
    return rule;
}

Dragged draggedFrom(const PreviewScene& scene, Identity thing, const QRect& start, Handle handle, const QPoint& by,
                    double reach, const CropRule& rule)
{
    const QVector<Guide> guides = guidesOf(scene, thing);
    const QPoint shift = snapShift(start, handle, by, guides, reach);
    const QPoint snapped = by + shift;
    const bool isCrop = thing == scene.cropThing;
    QRect place;
    if (handle == Handle::Move)
        place = isCrop ? movedCrop(start, snapped, scene.frame) : movedMark(start, snapped, scene.frame);
    else if (isCrop)
        place = sized(start, handle, snapped, {rule.ratio, rule.even, rule.smallest, QRect(QPoint(0, 0), scene.frame)});
    else
        place = sized(start, handle, snapped, ruleOfMark(scene, thing, start));
    return {place, reach > 0 ? linesAt(place, handle, guides) : QVector<SnapLine>()};
}

} // namespace

Dragged dragged(const PreviewScene& scene, Identity thing, Handle handle, const QPoint& by, double reach,
                const CropRule& rule)
{
    const QRect start = scene.place(thing);
    if (start.isEmpty() || handle == Handle::None)
        return {start, {}};
    return draggedFrom(scene, thing, start, handle, by, reach, rule);
}

Dragged drawnCrop(const PreviewScene& scene, const QPoint& from, const QPoint& to, double reach, const CropRule& rule)
{
    const QPoint corner(std::clamp(from.x(), 0, scene.frame.width()), std::clamp(from.y(), 0, scene.frame.height()));
    const bool toRight = to.x() >= corner.x();
    const bool down = to.y() >= corner.y();
    const Handle handle =
        toRight ? (down ? Handle::BottomRight : Handle::TopRight) : (down ? Handle::BottomLeft : Handle::TopLeft);
    const Dragged drawn =
        draggedFrom(scene, scene.cropThing, QRect(corner, QSize(0, 0)), handle, to - corner, reach, rule);
    // From near an edge there may be less room than the smallest crop takes.
    const QSize size = drawn.place.size().expandedTo(rule.smallest);
    if (size == drawn.place.size())
        return drawn;
    const QRect place = movedCrop(QRect(drawn.place.topLeft(), size), QPoint(0, 0), scene.frame);
    return {cropWithin(place, scene.frame, rule).value_or(scene.crop), {}};
}

QPoint keyStep(int key, Qt::KeyboardModifiers modifiers)
{
    const int step = modifiers.testFlag(Qt::ShiftModifier) ? 10 : 1;
    switch (key) {
    case Qt::Key_Left:
        return {-step, 0};
    case Qt::Key_Right:
        return {step, 0};
    case Qt::Key_Up:
        return {0, -step};
    case Qt::Key_Down:
        return {0, step};
    default:
        return {};
    }
}

} // namespace zokit
