// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/previewgeometry.h>

#include <algorithm>
#include <cmath>

#include "snapping_p.h"

namespace zokit {

namespace {

constexpr double handleSide = 9; // In pixels of the view.
constexpr double grip = 4;       // A press so far beside still takes a handle or an edge.

PreviewHandle handleOn(Identity thing, Handle handle, const QRectF& place)
{
    if (handle == Handle::Move)
        return {thing, handle, place};
    const Edges edges = edgesOf(handle);
    const auto at = [](int edge, double from, double size) { return from + size * (edge + 1) / 2; };
    const QPointF middle(at(edges.x, place.left(), place.width()), at(edges.y, place.top(), place.height()));
    return {thing, handle, QRectF(middle - QPointF(handleSide / 2, handleSide / 2), QSizeF(handleSide, handleSide))};
}

void appendSizing(QVector<PreviewHandle>& handles, const PreviewScene& scene, Identity thing, const QRectF& place)
{
    const bool isCrop = thing == scene.cropThing;
    for (const Handle handle : {Handle::TopLeft, Handle::Top, Handle::TopRight, Handle::Right, Handle::BottomRight,
                                Handle::Bottom, Handle::BottomLeft, Handle::Left}) {
        const Edges edges = edgesOf(handle);
        if (isCrop || (edges.x != 0 && edges.y != 0))
            handles.append(handleOn(thing, handle, place));
    }
}

bool isCropped(const PreviewScene& scene)
{
    return scene.crop != QRect(QPoint(0, 0), scene.frame);
}

/// The edge of \a place at \a point, between its corners.
Handle edgeAt(const QRectF& place, const QPointF& point)
{
    if (!place.adjusted(-grip, -grip, grip, grip).contains(point))
        return Handle::None;
    const auto isNear = [](double first, double second) { return std::abs(first - second) <= grip; };
    if (isNear(point.x(), place.left()))
        return Handle::Left;
    if (isNear(point.x(), place.right()))
        return Handle::Right;
    if (isNear(point.y(), place.top()))
        return Handle::Top;
    return isNear(point.y(), place.bottom()) ? Handle::Bottom : Handle::None;
}

} // namespace

QVector<PreviewHandle> previewHandles(const PreviewScene& scene, const PreviewView& view)
{
    QVector<PreviewHandle> handles;
    if (scene.frame.isEmpty())
        return handles;
    const QRect chosen = scene.place(scene.chosen);
    if (scene.chosen != scene.cropThing && chosen.isValid())
        appendSizing(handles, scene, scene.chosen, view.toView(QRectF(chosen)));
    const QRectF crop = view.toView(QRectF(scene.crop));
    appendSizing(handles, scene, scene.cropThing, crop);
    for (const PreviewMark& mark : scene.marks)
        handles.append(handleOn(mark.thing, Handle::Move, view.toView(QRectF(mark.place))));
    if (isCropped(scene))
        handles.append(handleOn(scene.cropThing, Handle::Move, crop));
    return handles;
}

PreviewHandle handleAt(const PreviewScene& scene, const PreviewView& view, const QPointF& point)
{
    const QVector<PreviewHandle> handles = previewHandles(scene, view);
    const auto find = [&](bool isMove, double around) {
        return std::find_if(handles.cbegin(), handles.cend(), [&](const PreviewHandle& each) {
            return (each.handle == Handle::Move) == isMove
                   && each.area.adjusted(-around, -around, around, around).contains(point);
        });
    };
    const auto sizing = find(false, grip);
    if (sizing != handles.cend())
        return *sizing;
    const QRectF crop = view.toView(QRectF(scene.crop));
    const Handle edge = handles.isEmpty() ? Handle::None : edgeAt(crop, point);
    if (edge != Handle::None)
        return handleOn(scene.cropThing, edge, crop);
    const auto whole = find(true, 0);
    return whole != handles.cend() ? *whole : PreviewHandle();
}

} // namespace zokit
