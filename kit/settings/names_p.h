// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Types and keys that more than one part of the kit reads, each spelled once.
namespace zokit::types {
inline const QString crop = QStringLiteral("Crop");
inline const QString watermark = QStringLiteral("Watermark");
inline const QString subtitle = QStringLiteral("Subtitle");
inline const QString audio = QStringLiteral("Audio");
inline const QString effect = QStringLiteral("Effect");
inline const QString output = QStringLiteral("Output");
inline const QString tracks = QStringLiteral("Tracks");
} // namespace zokit::types

namespace zokit::keys {
// Watermarks
inline const QString isText = QStringLiteral("wm_istextwatermark");
inline const QString textContent = QStringLiteral("wm_textcontent");
inline const QString imageUrl = QStringLiteral("wm_imageurl");
inline const QString imageWidth = QStringLiteral("wm_imagewidth");
inline const QString imageHeight = QStringLiteral("wm_imageheight");
inline const QString left = QStringLiteral("wm_hposition");
inline const QString top = QStringLiteral("wm_vposition");
inline const QString fontSize = QStringLiteral("wm_fontsize");
// Crop
inline const QString cropLeft = QStringLiteral("crop_left");
inline const QString cropTop = QStringLiteral("crop_top");
inline const QString cropWidth = QStringLiteral("crop_width");
inline const QString cropHeight = QStringLiteral("crop_height");
inline const QString turnsPicture = QStringLiteral("player_map_flag");
// Frame effects
inline const QString turnAngle = QStringLiteral("crop_rotation_angle");
inline const QString turnMirror = QStringLiteral("crop_rotation_action");
// Tracks
inline const QString subtitleIsFile = QStringLiteral("sub_fromfile");
inline const QString soundIsFile = QStringLiteral("audio_isfile");
inline const QString trackId = QStringLiteral("trackid");
inline const QString trackFile = QStringLiteral("file");
inline const QString subtitleLeft = QStringLiteral("sub_hposition");
inline const QString subtitleFontSize = QStringLiteral("sub_fontsize");
inline const QString subtitleTop = QStringLiteral("sub_vposition");
inline const QString subtitlePlaced = QStringLiteral("dvdsubtitleposeditbyuser");
// Output
inline const QString trim = QStringLiteral("trim");
} // namespace zokit::keys
