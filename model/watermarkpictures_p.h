// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPixmap>

/// The pictures of image watermarks.
namespace watermarkpictures {

/// \a image with one uniform alpha in place of its own. An alpha beyond 0 to 255 is no colour value and gives 0.
///
/// The result is kept in QPixmapCache, within the limit that the application has set there (10 MB unless it did): a
/// preview asks for the same ones over and over.
QPixmap withUniformAlpha(const QPixmap& image, int alpha);

} // namespace watermarkpictures
