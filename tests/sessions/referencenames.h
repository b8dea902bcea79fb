// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The names that the reference model reads, as told in the guide.
namespace reference {

inline const QString checkStateKey = "_checkstate";
inline const QString crop = "Crop";
inline const QString watermark = "Watermark";
inline const QString subtitle = "Subtitle";
inline const QString audio = "Audio";
inline const QString color = "Color";
inline const QString effect = "Effect";
inline const QString subFromFile = "sub_fromfile";
inline const QString audioIsFile = "audio_isfile";
inline const QString isText = "wm_istextwatermark";
inline const QString horizontal = "wm_hposition";
inline const QString vertical = "wm_vposition";
inline const QString horizontalFactor = "wm_hposfactor";
inline const QString verticalFactor = "wm_vposfactor";
inline const QString imageWidth = "wm_imagewidth";
inline const QString imageHeight = "wm_imageheight";
inline const QString subtitlePosition = "sub_vposition";
inline const QString subtitleFactor = "sub_vposfactor";
inline const QString subtitleFontSize = "sub_fontsize";
inline const QString movedByUser = "dvdsubtitleposeditbyuser";
inline const QString frameHeight = "h";

} // namespace reference
