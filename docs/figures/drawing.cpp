// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "drawing.h"

#include <cmath>

#include <QFont>
#include <QFontMetricsF>
#include <QLineF>
#include <QPainterPath>
#include <QPolygonF>

namespace {

QFont labelFont(int size, bool bold)
{
    QFont font("DejaVu Sans");
    font.setPixelSize(size);
    font.setBold(bold);
    return font;
}

/// The rectangle that \a text takes when the corner or side that \a flags name lies at \a point.
QRectF textArea(const QFont& font, const QPointF& point, int flags, const QString& text)
{
    const QFontMetricsF metrics(font);
    QRectF area(point, QSizeF(std::ceil(metrics.horizontalAdvance(text)), std::ceil(metrics.height())));
    if ((flags & Qt::AlignRight) != 0)
        area.translate(-area.width(), 0);
    if ((flags & Qt::AlignHCenter) != 0)
        area.translate(-std::floor(area.width() / 2), 0);
    if ((flags & Qt::AlignBottom) != 0)
        area.translate(0, -area.height());
    if ((flags & Qt::AlignVCenter) != 0)
        area.translate(0, -std::floor(area.height() / 2));
    return area;
}

void head(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& colour)
{
    constexpr double length = 12;
    constexpr double halfWidth = 5;
    const QLineF shaft(to, from);
    const QPointF along = (shaft.p2() - shaft.p1()) / shaft.length();
    const QPointF across(-along.y(), along.x());
    const QPolygonF shape({to, to + along * length + across * halfWidth, to + along * length - across * halfWidth});
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(shape);
    painter.setBrush(Qt::NoBrush);
}

} // namespace

QImage drawing::sheet(int height)
{
    QImage image(sheetWidth, height, QImage::Format_RGB32);
    image.fill(paper);
    return image;
}

void drawing::prepare(QPainter& painter)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
}

QColor drawing::tint(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return colour;
}

void drawing::write(QPainter& painter, const QPointF& point, int flags, const QString& text, const QColor& colour,
                    bool bold, int size)
{
    const QFont font = labelFont(size, bold);
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(textArea(font, point, flags, text), Qt::AlignCenter | Qt::TextDontClip, text);
}

void drawing::writeOnPatch(QPainter& painter, const QPointF& point, int flags, const QString& text,
                           const QColor& colour, bool bold)
{
    constexpr double rounding = 4;
    const QRectF area = textArea(labelFont(labelSize, bold), point, flags, text).adjusted(-6, -1, 6, 1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tint(paper, 225));
    painter.drawRoundedRect(area, rounding, rounding);
    painter.setBrush(Qt::NoBrush);
    write(painter, point, flags, text, colour, bold);
}

void drawing::outline(QPainter& painter, const QRectF& area, const QColor& colour, Qt::PenStyle style)
{
    constexpr double half = lineWidth / 2;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, lineWidth, style, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(area.adjusted(half, half, -half, -half));
}

void drawing::arrow(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& colour, bool both)
{
    constexpr double underHead = 8; // The shaft ends inside the head.
    const QLineF shaft(from, to);
    const QPointF along = (to - from) / shaft.length();
    painter.setPen(QPen(colour, lineWidth, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QLineF(both ? from + along * underHead : from, to - along * underHead));
    head(painter, from, to, colour);
    if (both)
        head(painter, to, from, colour);
}

void drawing::numberDisc(QPainter& painter, const QPointF& centre, const QString& text, const QColor& colour)
{
    constexpr double radius = 16;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(centre, radius, radius);
    painter.setBrush(Qt::NoBrush);
    write(painter, centre, Qt::AlignHCenter | Qt::AlignVCenter, text, paper, true);
}

void drawing::checkerboard(QPainter& painter, const QRect& area)
{
    constexpr int square = 12;
    painter.save();
    painter.setClipRect(area);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(area, paper);
    for (int row = 0; row * square < area.height(); ++row) {
        for (int column = row % 2; column * square < area.width(); column += 2) {
            const QRect tile(area.left() + column * square, area.top() + row * square, square, square);
            painter.fillRect(tile, QColor(0xd9, 0xdd, 0xe3));
        }
    }
    painter.restore();
}

void drawing::scenery(QPainter& painter, const QRectF& area)
{
    constexpr QColor sky(0xb9, 0xd7, 0xee);
    constexpr QColor sun(0xf7, 0xd7, 0x6b);
    constexpr QColor farHill(0x8f, 0xb5, 0x93);
    constexpr QColor nearHill(0x5f, 0x93, 0x6d);
    const auto at = [&area](double x, double y) {
        return QPointF(area.left() + x * area.width(), area.top() + y * area.height());
    };

    painter.save();
    painter.setClipRect(area);
    painter.fillRect(area, sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(sun);
    painter.drawEllipse(at(0.45, 0.33), area.height() * 0.1, area.height() * 0.1);
    QPainterPath back(at(0, 0.75));
    back.cubicTo(at(0.25, 0.35), at(0.5, 0.5), at(1, 0.8));
    back.lineTo(at(1, 1));
    back.lineTo(at(0, 1));
    painter.fillPath(back, farHill);
    QPainterPath front(at(0, 0.9));
    front.cubicTo(at(0.35, 0.8), at(0.7, 0.55), at(1, 0.68));
    front.lineTo(at(1, 1));
    front.lineTo(at(0, 1));
    painter.fillPath(front, nearHill);
    painter.restore();
}
