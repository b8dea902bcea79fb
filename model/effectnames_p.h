// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The names of the model's vocabulary, each spelled once.

namespace types {

inline const QString root = QStringLiteral("effect root");
inline const QString crop = QStringLiteral("Crop");
inline const QString watermark = QStringLiteral("Watermark");
inline const QString subtitle = QStringLiteral("Subtitle");
inline const QString audio = QStringLiteral("Audio");
inline const QString color = QStringLiteral("Color");
inline const QString effect = QStringLiteral("Effect");
inline const QString audioFadeInOut = QStringLiteral("Audio_Fade_Inout");
inline const QString audioNormalize = QStringLiteral("Audio_Normalize");
inline const QString audioBandPass = QStringLiteral("Audio_BandPass");
inline const QString audioChorus = QStringLiteral("Audio_Chorus");
inline const QString audioFlanger = QStringLiteral("Audio_Flanger");
inline const QString audioEcho = QStringLiteral("Audio_Echo");
inline const QString audioSpeed = QStringLiteral("Audio_Speed");

} // namespace types

namespace keys {

// Any node
inline const QString checkState = QStringLiteral("_checkstate"); // stands for the node's check state
inline const QString id = QStringLiteral("id");
inline const QString trackId = QStringLiteral("trackid");

// Root
inline const QString baseWidth = QStringLiteral("w");
inline const QString baseHeight = QStringLiteral("h");
inline const QString editByDefault = QStringLiteral("editbydefault");

// Crop
inline const QString cropLeft = QStringLiteral("crop_left");
inline const QString cropTop = QStringLiteral("crop_top");
inline const QString cropWidth = QStringLiteral("crop_width");
inline const QString cropHeight = QStringLiteral("crop_height");
inline const QString cropKeepAspectRatio = QStringLiteral("crop_keepaspectratio");
inline const QString cropAspectRatio = QStringLiteral("crop_aspectratio");
inline const QString playerMapFlag = QStringLiteral("player_map_flag");
inline const QString cropRotationAngle = QStringLiteral("crop_rotation_angle");
inline const QString cropRotationAction = QStringLiteral("crop_rotation_action");

// Watermark
inline const QString wmHPosition = QStringLiteral("wm_hposition");
inline const QString wmVPosition = QStringLiteral("wm_vposition");
inline const QString wmHPosFactor = QStringLiteral("wm_hposfactor");
inline const QString wmVPosFactor = QStringLiteral("wm_vposfactor");
inline const QString wmTransparency = QStringLiteral("wm_transparency");
inline const QString wmTransFactor = QStringLiteral("wm_transfactor");
inline const QString wmIsText = QStringLiteral("wm_istextwatermark");
inline const QString wmIgnore = QStringLiteral("wm_ingnore"); // spelling kept
inline const QString wmImageUrl = QStringLiteral("wm_imageurl");
inline const QString wmImageFormat = QStringLiteral("wm_imageformat");
inline const QString wmImageWidth = QStringLiteral("wm_imagewidth");
inline const QString wmImageHeight = QStringLiteral("wm_imageheight");
inline const QString wmImageKeepRatio = QStringLiteral("wm_imagekeepratio");
inline const QString wmTextContent = QStringLiteral("wm_textcontent");
inline const QString wmFontName = QStringLiteral("wm_fontname");
inline const QString wmFontSize = QStringLiteral("wm_fontsize");
inline const QString wmFontColor = QStringLiteral("wm_fontcolor");
inline const QString wmFontStyle = QStringLiteral("wm_fontstyle");

// Subtitle
inline const QString subFromFile = QStringLiteral("sub_fromfile");
inline const QString subVPosition = QStringLiteral("sub_vposition");
inline const QString subVPosFactor = QStringLiteral("sub_vposfactor");
inline const QString subTransparency = QStringLiteral("sub_transparency");
inline const QString subFontName = QStringLiteral("sub_fontname");
inline const QString subFontSize = QStringLiteral("sub_fontsize");
inline const QString subFontColor = QStringLiteral("sub_fontcolor");
inline const QString subFontStyle = QStringLiteral("sub_fontstyle");
inline const QString subFrameColor = QStringLiteral("sub_framecolor");
inline const QString subLineMargin = QStringLiteral("sub_linemargin");
inline const QString subFontStyleUseDefault = QStringLiteral("fontstyleusedefault");
inline const QString subPositionEditedByUser = QStringLiteral("dvdsubtitleposeditbyuser");

// Audio
inline const QString audioIsFile = QStringLiteral("audio_isfile");
inline const QString playMeInEffect = QStringLiteral("_playmeineffect");
inline const QString audioEffectFlag = QStringLiteral("audio_effect_flag");
inline const QString audioFadeInEnable = QStringLiteral("audio_fade_in_enable");
inline const QString audioFadeOutEnable = QStringLiteral("audio_fade_out_enable");
inline const QString audioSpeedFactor = QStringLiteral("audio_speed_factor");

// Color
inline const QString bcsBrightness = QStringLiteral("bcs_brightness");
inline const QString bcsContrast = QStringLiteral("bcs_contrast");
inline const QString bcsSaturation = QStringLiteral("bcs_saturation");

// Frame effects: their summary stands under the name of the type
inline const QString& frameEffects = types::effect;

// What the four-argument effectDataChanged carries as its key when the list of a type changes
inline const QString itemAdd = QStringLiteral("item_add");
inline const QString itemDelete = QStringLiteral("item_delete");
inline const QString itemMove = QStringLiteral("item_move");
inline const QString reset = QStringLiteral("reset");

} // namespace keys
