// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/previewgeometry.h>

#include <algorithm>
#include <cmath>

namespace zokit {

namespace {

constexpr double smallestZoom = 1.0 / 16;
constexpr double largestZoom = 32;

/// Where a length begins in a view: in its middle where there is room, else without a gap, on a pixel of the screen.
double begin(double wished, double length, int view, int margin, double devicePixels)
{
    const bool hasRoom = length + 2 * margin <= view;
    const double at = hasRoom ? (view - length) / 2 : std::clamp(wished, view - margin - length, double(margin));
    return std::round(at * devicePixels) / devicePixels;
}

PreviewView placed(PreviewView view, const QPointF& wished, int margin)
{
    view.offset = {begin(wished.x(), view.frame.width() * view.scale, view.size.width(), margin, view.devicePixels),
                   begin(wished.y(), view.frame.height() * view.scale, view.size.height(), margin, view.devicePixels)};
    return view;
}

} // namespace

double PreviewView::zoom() const
{
    return scale * devicePixels;
}

QPointF PreviewView::toView(const QPointF& inFrame) const
{
    return inFrame * scale + offset;
}

QRectF PreviewView::toView(const QRectF& inFrame) const
{
    return {toView(inFrame.topLeft()), inFrame.size() * scale};
}

QPointF PreviewView::toFrame(const QPointF& inView) const
{
    return (inView - offset) / scale;
}

PreviewView fitted(const QSize& frame, const QSize& size, double devicePixels, int margin)
{
    PreviewView view;
    view.frame = frame;
    view.size = size;
    view.devicePixels = devicePixels;
    const QSize room = (size - QSize(2 * margin, 2 * margin)).expandedTo(QSize(1, 1));
    if (!frame.isEmpty())
        view.scale = std::min(double(room.width()) / frame.width(), double(room.height()) / frame.height());
    return placed(view, QPointF(), margin);
}

PreviewView zoomed(const PreviewView& view, double zoom, const QPointF& kept, int margin)
{
    PreviewView result = view;
    result.scale = std::clamp(zoom, smallestZoom, largestZoom) / view.devicePixels;
    return placed(result, kept - view.toFrame(kept) * result.scale, margin);
}

PreviewView scrolled(const PreviewView& view, const QPointF& by, int margin)
{
    return placed(view, view.offset + by, margin);
}

} // namespace zokit
