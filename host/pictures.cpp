// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "pictures.h"

#include "console.h"

#include <QBuffer>
#include <QDir>
#include <QPainter>
#include <QPainterPath>
#include <QSaveFile>

#include <zoeffectmodel.h>

namespace {

void paintCrop(QPainter& painter, const QRect& frame, const QRect& crop)
{
    constexpr QColor shade(0, 0, 0, 160);
    constexpr int outline = 2;

    QPainterPath cutOff;
    cutOff.addRect(frame);
    cutOff.addRect(crop); // A rectangle in a rectangle is a hole.
    painter.fillPath(cutOff, shade);

    // Dashes of two colours can be seen on any picture.
    constexpr qreal half = outline / 2.0;
    const QRectF line = QRectF(crop).adjusted(half, half, -half, -half); // Just inside, so always in the frame.
    painter.setPen(QPen(Qt::black, outline, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(line);
    painter.setPen(QPen(Qt::yellow, outline, Qt::DashLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(line);
}

/// Writes \a picture beside the file at \a path; commit() will put it in its place.
void write(QSaveFile& file, const QImage& picture, const QString& path)
{
    QByteArray png;
    QBuffer buffer(&png);
    constexpr int smallest = 0;
    if (!picture.save(&buffer, "PNG", smallest))
        throw Failure{path + ": there is not enough memory for this picture"};
    file.setFileName(path);
    if (!file.open(QIODevice::WriteOnly))
        throw Failure{path + ": this picture cannot be written: " + file.errorString()};
    if (file.write(png) != png.size() || !file.flush()) // commit() would not look at its own last flush.
        throw Failure{path + ": this picture cannot be written whole"};
}

} // namespace

Pictures render(const ZoEffectModel& model, const QImage& frame)
{
    // A copy that is rescaled from the clip's size to the frame's; the settings themselves stay.
    ZoEffectModel shown(model);
    shown.adjustEffectInfo(frame.width(), frame.height());

    Pictures pictures;
    const QPixmap watermark = shown.getWatermark(frame.width(), frame.height(), true);
    pictures.watermark = watermark.toImage();
    if (watermark.isNull()) { // There is no watermark to show.
        pictures.watermark = QImage(frame.size(), QImage::Format_ARGB32);
        pictures.watermark.fill(Qt::transparent);
    }

    pictures.preview = frame;
    QPainter painter(&pictures.preview);
    const CropData crop = shown.cropData();
    if (crop.valid)
        paintCrop(painter, frame.rect(), QRect(crop.left, crop.top, crop.width, crop.height));
    painter.drawImage(0, 0, pictures.watermark);
    return pictures;
}

QString save(const Pictures& pictures, const QString& folder)
{
    if (!QDir().mkpath(folder))
        throw Failure{folder + ": this folder cannot be made"};
    const QDir target(folder);
    QSaveFile watermark;
    QSaveFile preview;
    write(watermark, pictures.watermark, target.filePath("watermark.png"));
    write(preview, pictures.preview, target.filePath("preview.png"));
    if (!watermark.commit())
        throw Failure{watermark.fileName() + ": this picture cannot be written: " + watermark.errorString()};
    if (!preview.commit()) {
        QFile::remove(watermark.fileName());
        throw Failure{preview.fileName() + ": this picture cannot be written: " + preview.errorString()};
    }
    return target.absolutePath();
}
