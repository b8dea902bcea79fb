// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "scaling_p.h"

#include <cmath>
#include <limits>

namespace scaling {

namespace {

/// A quotient by zero, which only a rectangle or image without size asks for, is 0.
double quotient(double dividend, double divisor)
{
    return divisor == 0.0 ? 0.0 : dividend / divisor;
}

} // namespace

int truncated(double value)
{
    if (std::isnan(value))
        return 0;
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}

int scaled(int value, double factor)
{
    return truncated(value * factor);
}

int scaledRepeatedly(int value, double factor, int times)
{
    for (int pass = 0; pass < times; ++pass) {
        const int next = scaled(value, factor);
        if (next == value)
            break; // Further passes change nothing.
        value = next;
    }
    return value;
}

CropRectangle scaledCrop(const CropRectangle& crop, bool frameRatio, const QSize& newSize, const QSize& oldSize)
{
    const double sx = quotient(newSize.width(), oldSize.width());
    const double sy = quotient(newSize.height(), oldSize.height());
    const double ratio = frameRatio ? quotient(newSize.width(), newSize.height()) : quotient(crop.width, crop.height);

    CropRectangle result = {};
    result.left = scaled(crop.left, sx);
    result.top = scaled(crop.top, sy);
    result.width = scaled(crop.width, sx);
    const double height = quotient(result.width, ratio);
    result.height = truncated(height);

    // Deliberate: the old frame height, not the new one.
    const bool reachesOldFrame = result.top + height >= oldSize.height();
    if (reachesOldFrame) {
        result.height = scaled(crop.height, sy);
        result.width = truncated(result.height * ratio);
    }
    return result;
}

QSize scaledImage(const QSize& image, double factor)
{
    if (image.height() == 0)
        return image;
    const int width = scaled(image.width(), factor);
    const double ratio = quotient(image.width(), image.height());
    return QSize(width, truncated(quotient(width, ratio)));
}

} // namespace scaling
