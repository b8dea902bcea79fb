// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "canvas_p.h"

#include <QColor>
#include <QGuiApplication>

namespace canvas {

namespace {

constexpr int largestSide = 32767;
constexpr qint64 largestArea = qint64(1) << 28;

bool canBePaintedOn(const QSize& size)
{
    return hasPixmaps() && !size.isEmpty() && size.width() <= largestSide && size.height() <= largestSide
           && qint64(size.width()) * size.height() <= largestArea;
}

} // namespace

bool hasPixmaps()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance());
}

// Filled, not taken from memory that comes zeroed: the time that saves is spent twice over by who shows the picture, on
// pages that nobody has touched before.
QPixmap transparentCanvas(const QSize& size)
{
    if (!canBePaintedOn(size))
        return QPixmap();
    QPixmap canvas(size);
    canvas.fill(QColor(0, 0, 0, 0));
    return canvas;
}

} // namespace canvas
