// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/previewgeometry.h>

#include <algorithm>
#include <cmath>

#include <QPainter>

#include "previewpaint_p.h"

namespace zokit {

namespace {

constexpr int outline = 2;     // Width of the line around the crop, in pixels of the view.
constexpr int handleReach = 7; // How far handles and lines stand out of a rectangle.
constexpr int checkSide = 8;   // Of a square of the surround.
constexpr QColor shade(0, 0, 0, 160);
constexpr QColor snapColour(255, 0, 220);
constexpr QColor outsideColour(255, 140, 0);
constexpr QColor unknownColour(64, 64, 64); // Of a frame that is not there yet.

/// \a area on whole pixels of the screen.
QRectF onPixels(const PreviewView& view, const QRectF& area)
{
    const auto snapped = [&](double at) { return std::round(at * view.devicePixels) / view.devicePixels; };
    return {QPointF(snapped(area.left()), snapped(area.top())), QPointF(snapped(area.right()), snapped(area.bottom()))};
}

QRectF areaOf(const PreviewView& view, const QRect& inFrame)
{
    return onPixels(view, view.toView(QRectF(inFrame)));
}

QRectF frameArea(const PreviewView& view)
{
    return areaOf(view, QRect(QPoint(0, 0), view.frame));
}

QSize screenSize(const PreviewView& view)
{
    const QSizeF size = frameArea(view).size() * view.devicePixels;
    return {qRound(size.width()), qRound(size.height())};
}

QBrush checkered(const PreviewLook& look)
{
    QImage tile(2 * checkSide, 2 * checkSide, QImage::Format_RGB32);
    tile.fill(look.surround);
    QPainter painter(&tile);
    painter.fillRect(checkSide, 0, checkSide, checkSide, look.otherSurround);
    painter.fillRect(0, checkSide, checkSide, checkSide, look.otherSurround);
    painter.end();
    return QBrush(tile);
}

/// \a picture in \a area, pixel for pixel where that is its size.
void paintPicture(QPainter& painter, const PreviewView& view, const QRectF& area, const QImage& picture)
{
    if (picture.size() == area.size() * view.devicePixels) {
        QImage exact = picture;
        exact.setDevicePixelRatio(view.devicePixels);
        painter.drawImage(area.topLeft(), exact);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, view.isSmoothed);
    painter.drawImage(area, picture);
}

QRectF withLines(const QRectF& area)
{
    return area.adjusted(-handleReach, -handleReach, handleReach, handleReach);
}

void paintMarks(QPainter& painter, const PreviewScene& scene, const PreviewView& view, const QRectF& clip)
{
    for (auto mark = scene.marks.crbegin(); mark != scene.marks.crend(); ++mark) {
        const QRectF area = areaOf(view, mark->place);
        if (area.intersects(clip))
            paintPicture(painter, view, area, mark->picture);
    }
}

bool isLost(const PreviewScene& scene, const PreviewMark& mark)
{
    return !mark.place.intersects(scene.crop); // Nothing of it comes out.
}

void frameMarks(QPainter& painter, const PreviewScene& scene, const PreviewView& view, const QRectF& clip)
{
    painter.setBrush(Qt::NoBrush);
    for (auto mark = scene.marks.crbegin(); mark != scene.marks.crend(); ++mark) {
        const QRectF area = areaOf(view, mark->place);
        if (!withLines(area).intersects(clip))
            continue;
        painter.setPen(QPen(Qt::black, 1));
        painter.drawRect(area.adjusted(-1, -1, 0, 0));
        const QColor colour = isLost(scene, *mark) ? outsideColour : QColor(Qt::white);
        painter.setPen(QPen(colour, 1, mark->thing == scene.chosen ? Qt::SolidLine : Qt::DotLine));
        painter.drawRect(area.adjusted(-1, -1, 0, 0));
    }
}

void paintHandles(QPainter& painter, const PreviewScene& scene, const PreviewView& view)
{
    for (const PreviewHandle& handle : previewHandles(scene, view)) {
        if (handle.handle == Handle::Move)
            continue;
        const QRectF square = onPixels(view, handle.area);
        painter.fillRect(square, Qt::black);
        painter.fillRect(square.adjusted(1, 1, -1, -1), handle.thing == scene.chosen ? Qt::yellow : Qt::white);
    }
}

QRectF lineArea(const PreviewView& view, const SnapLine& line)
{
    const QRectF frame = frameArea(view);
    return line.orientation == Qt::Vertical
               ? onPixels(view, QRectF(view.toView(QPointF(line.at, 0)).x(), frame.top(), 1, frame.height()))
               : onPixels(view, QRectF(frame.left(), view.toView(QPointF(0, line.at)).y(), frame.width(), 1));
}

/// What is painted for \a inFrame, lines and handles around it included.
QRect painted(const PreviewView& view, const QRect& inFrame)
{
    return areaOf(view, inFrame).toAlignedRect().adjusted(-handleReach, -handleReach, handleReach, handleReach);
}

/// A strip along the edges of \a inFrame.
QRegion edges(const PreviewView& view, const QRect& inFrame)
{
    const QRect outer = painted(view, inFrame);
    constexpr int strip = 2 * handleReach;
    return QRegion(outer) - outer.adjusted(strip, strip, -strip, -strip);
}

bool isSame(const PreviewMark& left, const PreviewMark& right)
{
    return left.thing == right.thing && left.place == right.place && left.keepsShape == right.keepsShape
           && left.picture.cacheKey() == right.picture.cacheKey();
}

} // namespace

QVector<QRectF> around(const QRectF& outer, const QRectF& inner)
{
    const QRectF hole = inner.intersected(outer);
    const QVector<QRectF> all{
        {outer.topLeft(), QPointF(outer.right(), hole.top())},
        {QPointF(outer.left(), hole.top()), QPointF(hole.left(), hole.bottom())},
        {QPointF(hole.right(), hole.top()), QPointF(outer.right(), hole.bottom())},
        {QPointF(outer.left(), hole.bottom()), outer.bottomRight()},
    };
    QVector<QRectF> parts;
    std::copy_if(all.cbegin(), all.cend(), std::back_inserter(parts),
                 [](const QRectF& part) { return part.width() > 0 && part.height() > 0; });
    return hole.isEmpty() ? QVector<QRectF>{outer} : parts;
}

void dimOutside(QPainter& painter, const QRectF& frame, const QRectF& kept)
{
    for (const QRectF& part : around(frame, kept))
        painter.fillRect(part, shade);
}

void outlineKept(QPainter& painter, const QRectF& kept)
{
    constexpr qreal half = outline / 2.0;
    const QRectF line = kept.adjusted(half, half, -half, -half);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, outline, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(line);
    painter.setPen(QPen(Qt::yellow, outline, Qt::DashLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(line);
}

void paintPreview(QPainter& painter, const PreviewScene& scene, const PreviewView& view, const PreviewFrames& frames,
                  const PreviewLook& look)
{
    const QRectF whole(QPointF(0, 0), view.size);
    const QRectF clip = painter.hasClipping() ? painter.clipBoundingRect().intersected(whole) : whole;
    painter.save();
    const QBrush squares = checkered(look);
    for (const QRectF& part : around(whole, frameArea(view))) {
        if (part.intersects(clip))
            painter.fillRect(part, squares);
    }
    if (!scene.frame.isEmpty()) {
        const QRectF kept = areaOf(view, scene.crop);
        const bool isCropped = scene.crop != QRect(QPoint(0, 0), scene.frame);
        if (frames.whole.isNull())
            painter.fillRect(frameArea(view), unknownColour);
        else
            paintPicture(painter, view, frameArea(view), frames.whole);
        if (isCropped)
            dimOutside(painter, frameArea(view), kept);
        paintMarks(painter, scene, view, clip);
        if (!frames.output.isNull())
            paintPicture(painter, view, kept, frames.output);
        if (isCropped)
            outlineKept(painter, kept);
        if (look.withHandles) {
            frameMarks(painter, scene, view, clip);
            paintHandles(painter, scene, view);
        }
        for (const SnapLine& line : scene.snapLines)
            painter.fillRect(lineArea(view, line), snapColour);
    }
    painter.restore();
}

QImage scaledFor(const PreviewView& view, const QImage& whole)
{
    const QSize size = screenSize(view);
    const bool isSmaller = size.width() < whole.width() && size.height() < whole.height() && !size.isEmpty();
    const QImage scaled = isSmaller ? whole.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation) : whole;
    return scaled.format() == QImage::Format_RGB32 ? scaled : scaled.convertToFormat(QImage::Format_RGB32);
}

QRegion changedRegion(const PreviewScene& before, const PreviewScene& after, const PreviewView& view)
{
    const QRect whole(QPoint(0, 0), view.size);
    if (before.frame != after.frame || before.cropThing != after.cropThing)
        return whole;
    QRegion region;
    if (before.crop != after.crop) {
        // What is kept, or cut off, before and after stays, apart from the lines.
        region += QRegion(painted(view, before.crop)) ^ QRegion(painted(view, after.crop));
        region += edges(view, before.crop);
        region += edges(view, after.crop);
    }
    if (before.chosen != after.chosen) {
        for (const PreviewScene* scene : {&before, &after}) {
            region += edges(view, scene->crop);
            if (scene->chosen != scene->cropThing && scene->place(scene->chosen).isValid())
                region += painted(view, scene->place(scene->chosen));
        }
    }
    const int count = static_cast<int>(std::max(before.marks.size(), after.marks.size()));
    for (int row = 0; row < count; ++row) {
        const PreviewMark former = before.marks.value(row);
        const PreviewMark present = after.marks.value(row);
        if (isSame(former, present) && isLost(before, former) == isLost(after, present))
            continue;
        for (const PreviewMark& mark : {former, present}) {
            if (mark.thing != 0)
                region += painted(view, mark.place);
        }
    }
    for (const PreviewScene* scene : {&before, &after}) {
        for (const SnapLine& line : scene->snapLines)
            region += lineArea(view, line).toAlignedRect();
    }
    return region & whole;
}

} // namespace zokit
