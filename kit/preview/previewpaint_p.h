// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRectF>
#include <QVector>

class QPainter;

namespace zokit {

/// What of \a outer lies outside of \a inner, in up to four rectangles that do not overlap.
QVector<QRectF> around(const QRectF& outer, const QRectF& inner);
/// Darkens the part of \a frame that is cut off.
void dimOutside(QPainter& painter, const QRectF& frame, const QRectF& kept);
/// The line around what is kept: dashes of two colours, which can be seen on any picture, just inside of it.
void outlineKept(QPainter& painter, const QRectF& kept);

} // namespace zokit
