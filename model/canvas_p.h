#pragma once

#include <QPixmap>
#include <QSize>

/// A transparent pixmap of \a size pixels to paint on; null when such a one cannot be had: when a side is less than 1
/// or more than 32767, with more than 2^28 pixels (1 GiB), without memory, and in applications without a graphical
/// side.
QPixmap transparentCanvas(const QSize& size);
