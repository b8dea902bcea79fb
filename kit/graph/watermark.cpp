// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/graph.h>

#include <algorithm>

#include <QFileInfo>
#include <QPixmap>

#include <zoeffectmodel.h>

#include <zokit/address.h>
#include <zokit/filesettings.h>
#include <zokit/placement.h>

#include "picture_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

bool isText(const Values& watermark)
{
    return watermark.value(QStringLiteral("wm_istextwatermark")).toBool();
}

/// Whether there is anything to draw.
bool isShown(const Item& watermark)
{
    const QString key = isText(watermark.values) ? QStringLiteral("wm_textcontent") : QStringLiteral("wm_imageurl");
    return watermark.selected && !watermark.values.value(key).toString().isEmpty()
           && !(isText(watermark.values) && watermark.values.value(QStringLiteral("wm_ingnore")).toBool());
}

QRect rectangleOf(const Values& watermark)
{
    return {QPoint(watermark.value(QStringLiteral("wm_hposition")).toInt(),
                   watermark.value(QStringLiteral("wm_vposition")).toInt()),
            watermarkSize(watermark)};
}

} // namespace

bool hasWatermark(const Settings& settings)
{
    const TypeSettings* watermarks = selectedType(settings, "Watermark");
    return watermarks && std::any_of(watermarks->items.cbegin(), watermarks->items.cend(), isShown);
}

QImage watermarkPicture(const Settings& settings)
{
    const TypeSettings* watermarks = selectedType(settings, "Watermark");
    if (!watermarks || watermarks->items.isEmpty())
        return QImage();
    const FileSettings file(settings);
    const QSize frame = baseFrame(settings);
    const QPixmap picture = file.pictureModel()->getWatermark(frame.width(), frame.height(), true);
    return picture.isNull() ? QImage() : picture.toImage().convertToFormat(QImage::Format_RGBA8888);
}

Messages watermarkWarnings(const Settings& settings)
{
    Messages warnings;
    const TypeSettings* watermarks = selectedType(settings, "Watermark");
    if (!watermarks)
        return warnings;
    const QSize frame = baseFrame(settings);
    const QRect cropped = croppedTo(settings, frame, false);
    const QRect kept = cropped.isValid() ? cropped : QRect(QPoint(0, 0), frame);
    for (int pos = 0; pos < watermarks->items.size(); ++pos) {
        const Item& watermark = watermarks->items.at(pos);
        if (!isShown(watermark))
            continue;
        const QString path = watermark.values.value(QStringLiteral("wm_imageurl")).toString();
        if (frame.isEmpty())
            warnings.append(Message(Code::WatermarkUnseen, {QStringLiteral("Watermark:%1").arg(pos)}));
        else if (!isText(watermark.values) && !QFileInfo(path).isFile())
            warnings.append(missingFile(path));
        else if (!rectangleOf(watermark.values).intersects(kept))
            warnings.append(Message(Code::WatermarkOutside, {QStringLiteral("Watermark:%1").arg(pos)}));
    }
    return warnings;
}

} // namespace zokit
