// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "pictureview.h"

#include <QPaintEvent>
#include <QPainter>

#include <zokit/filesettings.h>
#include <zokit/graph.h>
#include <zokit/shownframes.h>

#include "session.h"

namespace zoeditor {

namespace {

constexpr int loupeSide = 168;  // In pixels of the view.
constexpr double loupeZoom = 8; // Pixels of the screen for one of the frame.
constexpr int padding = 4;

/// A note that can be read on any picture. Sizes run from left to right also where words do not.
void paintNote(QPainter& painter, const QRect& area, const QString& text)
{
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.fillRect(area, QColor(0, 0, 0, 190));
    painter.setPen(Qt::white);
    painter.drawText(area, Qt::AlignCenter, text);
}

QSize sizeOfNote(const QFontMetrics& metrics, const QString& text)
{
    return metrics.size(Qt::TextSingleLine, text) + QSize(2 * padding, 2 * padding);
}

QString asText(const QSize& size)
{
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
}

} // namespace

/// What comes out: "800 x 400", or with another size "800 x 400 -> 400 x 200".
QString PictureView::sizeText() const
{
    if (!m_file)
        return QString();
    const zokit::Settings settings = m_file->settings();
    const QRect kept = zokit::croppedTo(settings, m_scene.frame, true);
    const QSize cropped = kept.isValid() ? kept.size() : m_scene.frame;
    const QSize output = zokit::outputSize(settings, cropped);
    return output == cropped ? asText(output) : tr("%1, becomes %2").arg(asText(cropped), asText(output));
}

/// Below the rectangle, or where there is no room inside of it.
QRect PictureView::noteArea() const
{
    if (!m_file || m_scene.frame.isEmpty() || m_show == Show::Before)
        return QRect();
    const QRect kept = m_view.toView(QRectF(m_scene.crop)).toAlignedRect();
    QRect area(QPoint(), sizeOfNote(fontMetrics(), sizeText()));
    area.moveTopLeft(kept.bottomLeft() + QPoint(12, 10));
    if (area.bottom() > rect().bottom())
        area.moveBottom(std::min(kept.bottom(), rect().bottom()) - 10);
    area.moveLeft(std::clamp(area.left(), 0, std::max(rect().width() - area.width(), 0)));
    return area;
}

QRect PictureView::standInArea() const
{
    QRect area(QPoint(), sizeOfNote(fontMetrics(), tr("Stand-in")));
    area.moveBottomRight(rect().bottomRight()); // Where no loupe lies.
    return area;
}

/// In the upper corner where the drag is not; nowhere when no edge is dragged.
QRect PictureView::loupeArea() const
{
    const zokit::Handle handle = m_drag.handle();
    if (handle == zokit::Handle::None || handle == zokit::Handle::Move)
        return QRect();
    const QRectF place = m_view.toView(QRectF(m_scene.place(m_drag.thing())));
    const bool isLeft =
        handle == zokit::Handle::TopLeft || handle == zokit::Handle::Left || handle == zokit::Handle::BottomLeft;
    const double x = isLeft ? place.left() : place.right();
    return QRect(x < width() / 2.0 ? width() - loupeSide - padding : padding, padding, loupeSide, loupeSide);
}

void PictureView::paintBefore(QPainter& painter, const QRect& part)
{
    // The clip may lie otherwise than what comes out: as a whole, in the same room.
    const QImage before = m_frames.before();
    zokit::PreviewScene scene;
    scene.frame = before.isNull() ? m_scene.frame : before.size();
    scene.crop = QRect(QPoint(0, 0), scene.frame);
    const bool isAlike = scene.frame == m_scene.frame;
    const zokit::PreviewView view =
        isAlike ? m_view : zokit::fitted(scene.frame, size(), devicePixelRatioF(), int(m_view.offset.y()));
    zokit::PreviewLook look;
    look.withHandles = false;
    painter.save();
    painter.setClipRect(part, Qt::IntersectClip);
    zokit::paintPreview(painter, scene, view, {isAlike ? m_shownBefore : before, QImage()}, look);
    painter.restore();
}

void PictureView::paintLoupe(QPainter& painter)
{
    const QRect area = loupeArea();
    if (area.isNull())
        return;
    const QRect place = m_scene.place(m_drag.thing());
    QPointF centre = QRectF(place).center();
    for (const zokit::PreviewHandle& handle : handles()) {
        if (handle.thing == m_drag.thing() && handle.handle == m_drag.handle())
            centre = m_view.toFrame(handle.area.center());
    }
    zokit::PreviewView magnified = m_view;
    magnified.size = area.size();
    magnified.scale = loupeZoom / m_view.devicePixels;
    magnified.offset = QPointF(loupeSide / 2.0, loupeSide / 2.0) - centre * magnified.scale;
    magnified.isSmoothed = false;
    zokit::PreviewLook look;
    look.withHandles = false;
    painter.save();
    painter.translate(area.topLeft());
    painter.setClipRect(QRect(QPoint(0, 0), area.size()));
    zokit::paintPreview(painter, m_scene, magnified, {m_frames.whole(), QImage()}, look);
    painter.setClipping(false);
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(0, 0, loupeSide - 1, loupeSide - 1);
    painter.restore();
}

void PictureView::paintNotes(QPainter& painter)
{
    paintNote(painter, noteArea(), sizeText());
    if (isStandIn())
        paintNote(painter, standInArea(), tr("Stand-in"));
    const zokit::PreviewHandle current = currentHandle();
    if (!hasFocus() || current.handle == zokit::Handle::None)
        return;
    const QRectF area = current.area.adjusted(-4, -4, 4, 4);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 3));
    painter.drawRect(area);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(area);
}

void PictureView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setClipRegion(event->region());
    if (!m_file || m_scene.frame.isEmpty()) {
        painter.fillRect(rect(), palette().window());
        painter.setPen(palette().color(QPalette::WindowText));
        const int problem = m_session.shownProblem();
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         m_file         ? tr("This file has no picture.")
                         : problem >= 0 ? m_session.files().rows().at(problem).problem.text()
                                        : tr("Drop films here, or add files."));
        return;
    }
    if (m_show == Show::Before)
        return paintBefore(painter, rect());
    zokit::paintPreview(painter, m_scene, m_view, m_shown);
    if (m_show == Show::Split) {
        const int split = qRound(splitAt());
        paintBefore(painter, QRect(0, 0, split, height()));
        painter.fillRect(split - 1, 0, 2, height(), Qt::white);
        painter.fillRect(split + 1, 0, 1, height(), Qt::black);
    }
    paintNotes(painter);
    paintLoupe(painter);
}

} // namespace zoeditor
