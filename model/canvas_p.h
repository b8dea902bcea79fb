// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPixmap>
#include <QSize>

namespace canvas {

/// Pixmaps exist in applications with a graphical side only.
bool hasPixmaps();

/// A transparent pixmap of \a size pixels to paint on. Null when a side is less than 1 or more than 32767, with more
/// than 2^28 pixels (1 GiB), and in applications without a graphical side. QPixmap itself tells none of that; nor does
/// it tell that there is no memory, which a painter finds out.
QPixmap transparentCanvas(const QSize& size);

} // namespace canvas
