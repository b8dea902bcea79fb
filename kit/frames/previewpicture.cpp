// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/frames.h>

#include <QPainter>
#include <QPainterPath>

#include <zokit/graph.h>

namespace zokit {

QImage previewPicture(const Settings& settings, const QImage& whole)
{
    constexpr QColor shade(0, 0, 0, 160);
    constexpr int outline = 2;
    if (whole.isNull())
        return QImage();
    QImage picture = whole.convertToFormat(QImage::Format_RGB32);
    QPainter painter(&picture);
    const QRect kept = croppedTo(settings, baseFrame(settings), false);
    if (kept.isValid()) {
        QPainterPath cutOff;
        cutOff.addRect(picture.rect());
        cutOff.addRect(kept); // A rectangle in a rectangle is a hole.
        painter.fillPath(cutOff, shade);

        // Dashes of two colours can be seen on any picture.
        constexpr qreal half = outline / 2.0;
        const QRectF line = QRectF(kept).adjusted(half, half, -half, -half); // Just inside, so always in the frame.
        painter.setPen(QPen(Qt::black, outline, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        painter.drawRect(line);
        painter.setPen(QPen(Qt::yellow, outline, Qt::DashLine, Qt::FlatCap, Qt::MiterJoin));
        painter.drawRect(line);
    }
    painter.drawImage(0, 0, watermarkPicture(settings));
    return picture;
}

} // namespace zokit
