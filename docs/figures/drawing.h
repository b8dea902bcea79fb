// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <QString>

/// The look that all pictures share.
namespace drawing {

constexpr int sheetWidth = 960;

constexpr QColor paper(0xff, 0xff, 0xff);
constexpr QColor ink(0x26, 0x2b, 0x33);
constexpr QColor pale(0x8b, 0x93, 0x9e);
constexpr QColor line(0xc9, 0xce, 0xd6);
constexpr QColor ground(0xf1, 0xf3, 0xf6);
constexpr QColor blue(0x2a, 0x6a, 0xb0);
constexpr QColor orange(0xc8, 0x6a, 0x12);
constexpr QColor green(0x1f, 0x86, 0x4b);
constexpr QColor red(0xbe, 0x2f, 0x2f);
constexpr QColor purple(0x75, 0x4a, 0xa8);

constexpr int labelSize = 21;   ///< Letters, in pixels.
constexpr int lineHeight = 30;  ///< From one line of a label to the next.
constexpr double lineWidth = 2; ///< Of frames and arrows.

/// An empty sheet of paper.
QImage sheet(int height);

/// A painter's settings for a whole sheet.
void prepare(QPainter& painter);

/// \a colour, as a tint that lets shine through what lies below.
QColor tint(QColor colour, int alpha);

/// Writes \a text in \a colour with the corner or side that \a flags (Qt::Alignment) name at \a point.
void write(QPainter& painter, const QPointF& point, int flags, const QString& text, const QColor& colour,
           bool bold = false, int size = labelSize);

/// The same on a patch of paper, for busy grounds.
void writeOnPatch(QPainter& painter, const QPointF& point, int flags, const QString& text, const QColor& colour,
                  bool bold = false);

/// A rectangle's outline, wholly inside.
void outline(QPainter& painter, const QRectF& area, const QColor& colour, Qt::PenStyle style = Qt::SolidLine);

/// A line with a head at \a to, or, with \a both, at either end.
void arrow(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& colour, bool both = false);

/// A number in a disc.
void numberDisc(QPainter& painter, const QPointF& centre, const QString& text, const QColor& colour);

/// What stands for "nothing here".
void checkerboard(QPainter& painter, const QRect& area);

/// A frame of a film: sky, sun and hills.
void scenery(QPainter& painter, const QRectF& area);

} // namespace drawing
