// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace zokit {

/// \name What ffmpeg's name of a pixel format tells
/// @{
int bitDepth(const QString& format);
bool isRgb(const QString& format);
/// Without colours, with or without opacity.
bool isGrey(const QString& format);
/// Whether width and height have to be even: colours are stored for several pixels together.
bool asksForEven(const QString& format);
/// "yuv420p" for "yuvj420p": the same values, whose full range is told beside them.
QString withoutRange(const QString& format);
/// The plain format of eight bits whose colours are sampled as those of \a format.
QString eightBits(const QString& format);
/// @}

/// In which formats a picture is laid over one of \a format, so that what it leaves uncovered does not change.
struct OverlayFormats {
    QString picture; ///< Of the picture, with its opacity.
    QString overlay; ///< As filter overlay names it.
    QString below;   ///< Of the picture below while it happens; empty: as it is.
    QString after;   ///< And after it.
    QString parted;  ///< Of the picture below, where a copy of it goes another way: what the filter takes as it is.
};
OverlayFormats overlayFormats(const QString& format);

} // namespace zokit
