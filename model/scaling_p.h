// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>
#include <QSize>

/// Arithmetic of rescaling. Factors and intermediate values are doubles; results are truncated toward zero.
namespace scaling {

/// \a value without its fraction; values beyond int saturate, NaN gives 0.
int truncated(double value);

/// \a value times \a factor, truncated.
int scaled(int value, double factor);

/// \a value scaled by \a factor \a times times over, truncated each time.
int scaledRepeatedly(int value, double factor, int times);

struct CropRectangle {
    int left;
    int top;
    int width;
    int height;
};

/// A crop that applies in a frame of \a oldSize, carried to a frame of \a newSize. With \a frameRatio it
/// takes the new frame's ratio, else it keeps its own. Width and height of \a crop and both sizes are not 0.
CropRectangle scaledCrop(const CropRectangle& crop, bool frameRatio, const QSize& newSize, const QSize& oldSize);

/// An image of a watermark, its width scaled by \a factor, its height following by the image's own ratio;
/// an image of height 0 stays as it is.
QSize scaledImage(const QSize& image, double factor);

} // namespace scaling
