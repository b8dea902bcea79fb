// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <optional>

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QVector>

#include <zokit/message.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// A place at the edge or in the middle of the frame.
enum class Corner { TopLeft, Top, TopRight, Left, Centre, Right, BottomLeft, Bottom, BottomRight };

/// What people call it: "top left", "middle". Translated.
ZOKIT_EXPORT QString cornerName(Corner corner);

/// Where a watermark is held. While it has an anchor, its position (and its size, where the anchor says one) follows
/// from it at every frame size.
struct ZOKIT_EXPORT Anchor {
    Corner corner = Corner::BottomRight; ///< Where in the frame.
    double margin = 2;                   ///< In pixels of the frame, or in percent.
    bool marginInPercent = true;         ///< Of the width beside the watermark, of the height above and below it.
    double widthInPercent = 0; ///< Of the frame; 0: the size is not the anchor's. A text's font size is chosen to fit.
};

/// From the values of a settings file's "anchor": "corner", "margin" and "size". Nothing for values that are no anchor,
/// with the reason in \a error if given.
ZOKIT_EXPORT std::optional<Anchor> anchorFrom(const Values& values, Message* error = nullptr);
/// Back to those values.
ZOKIT_EXPORT Values toValues(const Anchor& anchor);
/// Left and top of a watermark of \a size pixels in \a frame.
ZOKIT_EXPORT QPoint anchoredPosition(const Anchor& anchor, const QSize& size, const QSize& frame);

/// The size in pixels of a text watermark with \a values, as it will be drawn (96 dots an inch); empty for an empty
/// text. Takes a QGuiApplication.
ZOKIT_EXPORT QSize measuredText(const Values& values);
/// The size at which a watermark is drawn: measuredText(), or the size of an image.
ZOKIT_EXPORT QSize watermarkSize(const Values& values);

/// A place in \a frame for a watermark of \a size that touches none of \a occupied, as near to \a wished as can be;
/// nothing when there is none.
ZOKIT_EXPORT std::optional<QPoint> freePlace(const QSize& size, const QPoint& wished, const QVector<QRect>& occupied,
                                             const QSize& frame);

/// What a crop has to keep to.
struct ZOKIT_EXPORT CropRule {
    double ratio = 0;  ///< Width by height; 0: free.
    bool even = false; ///< Width and height are even, as most pixel formats ask for.
    // NOLINTNEXTLINE(readability-magic-numbers): as large as handles need it.
    QSize smallest{24, 24}; ///< In pixels.
};
/// \a wished moved and shrunk so that it lies in \a frame and keeps to \a rule: the largest such rectangle around the
/// same middle. Nothing when the frame is too small for it.
ZOKIT_EXPORT std::optional<QRect> cropWithin(const QRect& wished, const QSize& frame, const CropRule& rule);

/// \a settings for another frame: the crop is the same part of the picture, watermarks and positions of subtitles keep
/// their place, font sizes follow the height, images the width, anchored watermarks their anchor.
ZOKIT_EXPORT Settings rescaled(const Settings& settings, const QSize& frame);
/// What rounding to whole pixels moves by more than half a pixel when settings are rescaled there and back: a sentence
/// for each value.
ZOKIT_EXPORT Messages movedByRounding(const Settings& settings, const QSize& frame);

} // namespace zokit
