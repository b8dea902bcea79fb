// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QSize>
#include <QStaticText>
#include <QString>

class QPainter;

/// A text watermark, measured and laid out with the font and for the device of a painter.
///
/// Laying out takes most of the time of measuring and of drawing, and a preview draws the same texts over and over: the
/// 256 texts that were asked for last are kept, those of more than 256 letters are not, nor those with
/// letters of 64 pixels and more.
struct WatermarkText {
    QString text;
    QSize size; ///< What the text takes, line by line.
    /// The text ready to be drawn; only where that is known to give the same pixels as QPainter::drawText().
    std::optional<QStaticText> prepared;

    /// \a text as the font and the device of \a painter have it.
    static WatermarkText laidOut(QPainter& painter, const QString& text);

    /// Forgets the texts that this thread keeps.
    static void forgetAll();

    /// Draws with the font for which it was laid out, which must be that of \a painter, and with the painter's pen.
    void draw(QPainter& painter, int left, int top) const;
};
