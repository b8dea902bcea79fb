// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/graph.h>

#include <algorithm>
#include <cmath>

#include "cataloguedefaults_p.h"
#include "picture_p.h"

namespace zokit {

namespace {

int evenBelow(int number)
{
    return number - number % 2;
}

QRect wishedCrop(const Values& crop)
{
    const auto number = [&](const char* key) { return crop.value(QLatin1String(key)).toInt(); };
    return {number("crop_left"), number("crop_top"), number("crop_width"), number("crop_height")};
}

/// The even number that is nearest to \a length and not above \a most; at least 2.
int evenNear(double length, int most)
{
    const int near = static_cast<int>(std::lround(length / 2)) * 2;
    return std::max(std::min(near, evenBelow(most)), 2);
}

} // namespace

bool leavesFrame(const Settings& settings, const QSize& frame)
{
    return !QRect(QPoint(0, 0), frame).contains(wishedCrop(selectedType(settings, "Crop")->values));
}

bool cropsNothing(const Settings& settings)
{
    const TypeSettings* crop = selectedType(settings, "Crop");
    const QRect wished = crop ? wishedCrop(crop->values) : QRect();
    const bool isWhole = wished.width() != 0 && wished.height() != 0;
    return crop && !isWhole && (!wished.topLeft().isNull() || wished.width() != 0 || wished.height() != 0);
}

QRect croppedTo(const Settings& settings, const QSize& frame, bool even, Message* error)
{
    const TypeSettings* crop = selectedType(settings, "Crop");
    if (!crop || isWholeFrame(crop->values, frame))
        return QRect();
    const auto number = [&](const char* key) { return crop->values.value(QLatin1String(key)).toInt(); };
    QRect kept = wishedCrop(crop->values).intersected(QRect(QPoint(0, 0), frame));
    const QSize smallest(std::max(number("crop_minwidth"), 1), std::max(number("crop_minheight"), 1));
    if (kept.width() < smallest.width() || kept.height() < smallest.height()) {
        if (error)
            *error = Message(Message::Code::CropTooSmall, {sizeText(kept.size()), sizeText(frame), sizeText(smallest)});
        return QRect();
    }
    if (even)
        kept.setSize({evenBelow(kept.width()), evenBelow(kept.height())}); // Never shows what was cut off.
    return kept;
}

QSize outputSize(const Settings& settings, const QSize& cropped)
{
    const QString option = settings.output.value(QStringLiteral("size")).toString();
    const QStringList sides = option.section(QLatin1Char(','), 0, 0).split(QLatin1Char('x'));
    const QSize box(sides.value(0).toInt(), sides.value(1).toInt());
    if (box.isEmpty() || cropped.isEmpty())
        return cropped;
    if (option.endsWith(QLatin1String(",exact")))
        return box;
    const double factor = std::min(double(box.width()) / cropped.width(), double(box.height()) / cropped.height());
    if (factor >= 1)
        return cropped;
    return {evenNear(cropped.width() * factor, box.width()), evenNear(cropped.height() * factor, box.height())};
}

} // namespace zokit
