// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QVariant>

/// How a watermark looks: its alpha value and its font.
namespace watermarkstyle {

/// The alpha value for a transparency in percent: (100 - transparency) times \a factor, truncated. A factor
/// that is no number counts as 2.55. Not limited to 0 to 255.
int alpha(int transparency, const QVariant& factor);

/// The font of a text watermark: \a font converted to a QFont, \a pointSize when that is more than 0, and the
/// style "Regular", "Italic", "Bold" or "Bold Italic"; any other \a style leaves the font's own.
QFont font(const QVariant& font, int pointSize, const QString& style);

} // namespace watermarkstyle
