// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

/// \file
/// The vocabulary of the effect settings: the record types of an effect catalogue, the property tables of
/// the thirteen effect types, the choice lists of the editors and the key lists that spread subtitle styles.
///
/// The library has no table of effect types of its own. The host builds one (an array of EffectControlItem whose
/// last record has a null name) from the property tables below and registers it once with
/// ZoEffectModel::InitEffectModel() before it creates a model. The table stays the host's and must outlive
/// every model.
///
/// Each table says what the library itself does with its keys. A key that it does not use is stored and copied like
/// any other; its unit and meaning are for the host's editor and converter to agree on.
///
/// Each unit that includes this header has its own copy of the tables, built when the program or library is
/// loaded. All texts are UTF-8.

#include <QColor>
#include <QFont>
#include <QString>
#include <QVariant>
#include <QtGlobal>

/// One property of an effect type. A record with a null key ends a table.
struct EffectDefaultVal {
    const char* key;            ///< Property key.
    QVariant defaultValue;      ///< Value of a new item; the text "source_val" stands for the source's own size.
    const char* const* options; ///< Null-terminated choices for an editor, or null. Not read by the library.
    QVariant minValue;          ///< Lower bound for an editor, int 0 for none. Not read by the library.
    QVariant maxValue;          ///< Upper bound for an editor, int 0 for none. Not read by the library.
};

/// One fixed child of an effect type, for example one frame effect. A record with a null name ends a table.
struct SubEffectItem {
    const char* name;                   ///< Name of the child node.
    quintptr reserved1;                 ///< The host's; never read by the library.
    quintptr reserved2;                 ///< The host's; never read by the library.
    quintptr reserved3;                 ///< The host's; never read by the library.
    quintptr reserved4;                 ///< The host's; never read by the library.
    int id;                             ///< Stored in the child node as property "id".
    const EffectDefaultVal* properties; ///< The child's properties, or null. "_checkstate" sets its check state.
};

/// One effect type. A record with a null name ends a table.
struct EffectControlItem {
    const char* name;                   ///< Effect type, for example "Crop".
    quintptr reserved2;                 ///< The host's; never read by the library.
    quintptr reserved3;                 ///< The host's; never read by the library.
    quintptr reserved4;                 ///< The host's; never read by the library.
    quintptr reserved5;                 ///< The host's; never read by the library.
    const EffectControlItem* children;  ///< Nested table, searched when a type is looked up by name; or null.
    quintptr reserved7;                 ///< The host's; never read by the library.
    quintptr reserved8;                 ///< The host's; never read by the library.
    quintptr reserved9;                 ///< The host's; never read by the library.
    quintptr reserved10;                ///< The host's; never read by the library.
    quintptr reserved11;                ///< The host's; never read by the library.
    const SubEffectItem* subItems;      ///< Fixed children of the type, or null.
    const EffectDefaultVal* properties; ///< Properties of the type itself, or null. "_checkstate" is like any other.
};

/// Choices of "wm_fontstyle" and "sub_fontstyle".
static const char* const font_style[] = {"Regular", "Italic", "Bold", "Bold Italic", nullptr};

/// Choices of "crop_aspectratio": four crop modes, then the ratios. The library uses one: a rescaled crop takes the
/// ratio of the new frame when "crop_keepaspectratio" is true and the choice is "Original Ratio". With any other text
/// it keeps its own ratio. What "Original", "Crop Area", "Crop Ratio" and the ratios mean in an editor is the host's.
/// Deliberate: each ratio stands twice, editors show them in pairs.
static const char* const crop_aspectratio[] = {
    "Original", "Original Ratio", "Crop Area", "Crop Ratio", "16:9", "16:9", "4:3", "4:3", "3:2", "3:2", nullptr};

/// Style keys that spread to embedded subtitle tracks, those of a DVD first of all.
static const char* const keysforDVD[5] = {"sub_fontcolor", "sub_transparency", "sub_vposition", "fontstyleusedefault",
                                          "sub_framecolor"};

/// Style keys that spread to subtitles loaded from a file.
static const char* const keysforfromFile[7] = {"sub_fontname", "sub_fontcolor",    "sub_fontstyle", "sub_linemargin",
                                               "sub_fontsize", "sub_transparency", "sub_vposition"};

// clang-format off

/// Type "Crop". Pixels of the base size. The rectangle decides whether a crop applies, and is rescaled with the video;
/// "crop_keepaspectratio" and "crop_aspectratio" are used for that alone. The library does not use the least sizes.
///
/// Not in the tables, but read by ZoEffectModel::hasRealEffect(): "player_map_flag" of type "Crop", and
/// "crop_rotation_angle" and "crop_rotation_action" of type "Effect". A rotation counts as an effect when the flag is
/// true and one of the two is neither 0 nor false. The unit of the angle and the actions are the host's.
static const EffectDefaultVal cropDefaultVal[] = {
    // key                     default                                         options           min          max
    {"crop_minwidth",          QVariant(24),                                   nullptr,          QVariant(0), QVariant(0)},
    {"crop_minheight",         QVariant(24),                                   nullptr,          QVariant(0), QVariant(0)},
    {"crop_left",              QVariant(0),                                    nullptr,          QVariant(0), QVariant(0)},
    {"crop_top",               QVariant(0),                                    nullptr,          QVariant(0), QVariant(0)},
    {"crop_width",             QVariant(QStringLiteral("source_val")),         nullptr,          QVariant(0), QVariant(0)},
    {"crop_height",            QVariant(QStringLiteral("source_val")),         nullptr,          QVariant(0), QVariant(0)},
    {"crop_keepaspectratio",   QVariant(true),                                 nullptr,          QVariant(0), QVariant(0)},
    {"crop_aspectratio",       QVariant(QStringLiteral("Original Ratio")),     crop_aspectratio, QVariant(0), QVariant(0)},
    {nullptr,                  QVariant(0),                                    nullptr,          QVariant(0), QVariant(0)},
};

/// Type "Watermark". Positions in pixels of the base size, transparency in percent, font size in points;
/// "wm_transfactor" turns percent into an alpha value of 0 to 255; the other factors are parts of the base size and say
/// where a new watermark goes. "wm_imagekeepratio" is for an editor. An item also holds what has no default:
/// "wm_istextwatermark", "wm_textcontent" of a text; "wm_imageurl", "wm_imagewidth", "wm_imageheight" of an image.
/// Deliberate: "wm_fontname" holds a whole QFont without size and weight, not a family name.
static const EffectDefaultVal WatermarkDefaultVal[] = {
    // key                     default                                         options           min             max
    {"wm_vposition",           QVariant(30),                                   nullptr,          QVariant(-400), QVariant(QStringLiteral("source_val"))},
    {"wm_hposition",           QVariant(30),                                   nullptr,          QVariant(-400), QVariant(QStringLiteral("source_val"))},
    {"wm_vposfactor",          QVariant(0.1),                                  nullptr,          QVariant(0),    QVariant(0)},
    {"wm_hposfactor",          QVariant(0.1),                                  nullptr,          QVariant(0),    QVariant(0)},
    {"wm_transparency",        QVariant(0),                                    nullptr,          QVariant(0),    QVariant(100)},
    {"wm_transfactor",         QVariant(2.55),                                 nullptr,          QVariant(0),    QVariant(0)},
    {"wm_fontstyle",           QVariant(QStringLiteral("Regular")),            font_style,       QVariant(0),    QVariant(0)},
    {"wm_imagekeepratio",      QVariant(true),                                 nullptr,          QVariant(0),    QVariant(0)},
    {"wm_fontcolor",           QVariant(QColor(Qt::white)),                    nullptr,          QVariant(0),    QVariant(0)},
    {"wm_fontsize",            QVariant(22),                                   nullptr,          QVariant(3),    QVariant(72)},
    {"wm_fontname",            QVariant(QFont(QStringLiteral("Tahoma"), -1, -1, false)), nullptr, QVariant(0),   QVariant(0)},
    {nullptr,                  QVariant(0),                                    nullptr,          QVariant(0),    QVariant(0)},
};

/// Type "Subtitle". Positions in pixels of the base size, transparency in percent, font size in points. The library
/// draws no subtitles: it rescales "sub_vposition" and "sub_fontsize" and spreads the style (the key lists above). A
/// track also holds "trackid" if it is embedded, "sub_fromfile" (true) if it is from a file.
/// Deliberate: only a vertical factor; other start positions and lower bounds than a watermark's.
static const EffectDefaultVal SubtitleDefaultVal[] = {
    // key                     default                                         options           min          max
    {"sub_vposition",          QVariant(200),                                  nullptr,          QVariant(0), QVariant(QStringLiteral("source_val"))},
    {"sub_hposition",          QVariant(200),                                  nullptr,          QVariant(0), QVariant(QStringLiteral("source_val"))},
    {"sub_transparency",       QVariant(0),                                    nullptr,          QVariant(0), QVariant(100)},
    {"sub_transfactor",        QVariant(2.55),                                 nullptr,          QVariant(0), QVariant(0)},
    {"sub_vposfactor",         QVariant(0.8),                                  nullptr,          QVariant(0), QVariant(0)},
    {"sub_fontstyle",          QVariant(QStringLiteral("Regular")),            font_style,       QVariant(0), QVariant(0)},
    {"sub_fontcolor",          QVariant(QColor(Qt::white)),                    nullptr,          QVariant(0), QVariant(0)},
    {"sub_framecolor",         QVariant(QColor(Qt::black)),                    nullptr,          QVariant(0), QVariant(0)},
    {"sub_fontsize",           QVariant(22),                                   nullptr,          QVariant(3), QVariant(72)},
    {"sub_fontname",           QVariant(QFont(QStringLiteral("Tahoma"), -1, -1, false)), nullptr, QVariant(0), QVariant(0)},
    {"sub_linemargin",         QVariant(0),                                    nullptr,          QVariant(0), QVariant(20)},
    {"fontstyleusedefault",    QVariant(true),                                 nullptr,          QVariant(0), QVariant(0)},
    {nullptr,                  QVariant(0),                                    nullptr,          QVariant(0), QVariant(0)},
};

/// Type "Audio". The library does not use "play_loop". A track also holds "trackid" if it is embedded, "audio_isfile"
/// (true) if it is from a file.
static const EffectDefaultVal AudioDefaultVal[] = {
    {"play_loop",              QVariant(false),                                nullptr,          QVariant(0), QVariant(0)},
    {nullptr,                  QVariant(0),                                    nullptr,          QVariant(0), QVariant(0)},
};

/// Type "Color": brightness, contrast, saturation. 0 is neutral: any other value counts as an effect.
static const EffectDefaultVal BCSDefaultVal[] = {
    {"bcs_brightness",         QVariant(0),                                    nullptr,          QVariant(-50), QVariant(50)},
    {"bcs_contrast",           QVariant(0),                                    nullptr,          QVariant(-50), QVariant(50)},
    {"bcs_saturation",         QVariant(0),                                    nullptr,          QVariant(-50), QVariant(50)},
    {nullptr,                  QVariant(0),                                    nullptr,          QVariant(0),   QVariant(0)},
};

/// Each frame effect, a child of type "Effect".
static const EffectDefaultVal frameEffectsDefaultVal[] = {
    {"_checkstate",            QVariant(false),                                nullptr,          QVariant(0), QVariant(0)},
    {nullptr,                  QVariant(0),                                    nullptr,          QVariant(0), QVariant(0)},
};

// Of the seven audio effects "audio_effect_flag" says which one is in use. The gains, delays, decays and levels,
// the band-pass keys and the speed of the flanger are not used by the library: units and meanings are the host's.

/// Type "Audio_Fade_Inout". Durations in seconds. The two switches decide whether it counts as an effect.
/// Deliberate: fade-out starts enabled, fade-in does not.
static const EffectDefaultVal audioFadeInOut[] = {
    {"audio_effect_flag",      QVariant(false),                                nullptr,          QVariant(0), QVariant(0)},
    {"audio_fade_in_enable",   QVariant(false),                                nullptr,          QVariant(0), QVariant(0)},
    {"audio_fade_out_enable",  QVariant(true),                                 nullptr,          QVariant(0), QVariant(0)},
    {"audio_fade_in",          QVariant(3),                                    nullptr,          QVariant(0), QVariant(0)},
    {"audio_fade_out",         QVariant(3),                                    nullptr,          QVariant(0), QVariant(0)},
    {nullptr,                  QVariant(0),                                    nullptr,          QVariant(0), QVariant(0)},
};

/// Type "Audio_Normalize". Spelling kept: "maxLevel".
static const EffectDefaultVal audioNormalize[] = {
    {"audio_effect_flag",        QVariant(false),                              nullptr,          QVariant(0), QVariant(0)},
    {"audio_normalize_maxLevel", QVariant(98),                                 nullptr,          QVariant(0), QVariant(0)},
    {nullptr,                    QVariant(0),                                  nullptr,          QVariant(0), QVariant(0)},
};

/// Type "Audio_BandPass". What the number of "audio_bandpass_type" stands for is the host's. Spelling kept: "requency".
static const EffectDefaultVal audioBandpass[] = {
    {"audio_effect_flag",        QVariant(false),                              nullptr,          QVariant(0), QVariant(0)},
    {"audio_bandpass_type",      QVariant(2),                                  nullptr,          QVariant(0), QVariant(0)},
    {"audio_bandpass_requency",  QVariant(1000),                               nullptr,          QVariant(0), QVariant(0)},
    {"audio_bandpass_steepness", QVariant(50),                                 nullptr,          QVariant(0), QVariant(0)},
    {nullptr,                    QVariant(0),                                  nullptr,          QVariant(0), QVariant(0)},
};

/// Type "Audio_Chorus".
static const EffectDefaultVal audioChorus[] = {
    {"audio_effect_flag",      QVariant(false),                                nullptr,          QVariant(0), QVariant(0)},
    {"audio_chorus_gainin",    QVariant(50),                                   nullptr,          QVariant(0), QVariant(0)},
    {"audio_chorus_gainout",   QVariant(50),                                   nullptr,          QVariant(0), QVariant(0)},
    {"audio_chorus_delay",     QVariant(50),                                   nullptr,          QVariant(0), QVariant(0)},
    {"audio_chorus_decay",     QVariant(50),                                   nullptr,          QVariant(0), QVariant(0)},
    {nullptr,                  QVariant(0),                                    nullptr,          QVariant(0), QVariant(0)},
};

/// Type "Audio_Flanger". Deliberate: the delay is 3, not 50.
static const EffectDefaultVal audioFlanger[] = {
    {"audio_effect_flag",      QVariant(false),                                nullptr,          QVariant(0), QVariant(0)},
    {"audio_flanger_gainin",   QVariant(50),                                   nullptr,          QVariant(0), QVariant(0)},
    {"audio_flanger_gainout",  QVariant(50),                                   nullptr,          QVariant(0), QVariant(0)},
    {"audio_flanger_delay",    QVariant(3),                                    nullptr,          QVariant(0), QVariant(0)},
    {"audio_flanger_decay",    QVariant(50),                                   nullptr,          QVariant(0), QVariant(0)},
    {"audio_flanger_speed",    QVariant(50),                                   nullptr,          QVariant(0), QVariant(0)},
    {nullptr,                  QVariant(0),                                    nullptr,          QVariant(0), QVariant(0)},
};

/// Type "Audio_Echo". Deliberate: the decay is 500, not 50.
static const EffectDefaultVal audioEcho[] = {
    {"audio_effect_flag",      QVariant(false),                                nullptr,          QVariant(0), QVariant(0)},
    {"audio_echo_gainin",      QVariant(50),                                   nullptr,          QVariant(0), QVariant(0)},
    {"audio_echo_gainout",     QVariant(50),                                   nullptr,          QVariant(0), QVariant(0)},
    {"audio_echo_delay",       QVariant(50),                                   nullptr,          QVariant(0), QVariant(0)},
    {"audio_echo_decay",       QVariant(500),                                  nullptr,          QVariant(0), QVariant(0)},
    {nullptr,                  QVariant(0),                                    nullptr,          QVariant(0), QVariant(0)},
};

/// Type "Audio_Speed". Percent of the source's speed. Trap: the value that counts as no effect is 10, not 100.
static const EffectDefaultVal audioSpeed[] = {
    {"audio_effect_flag",      QVariant(false),                                nullptr,          QVariant(0), QVariant(0)},
    {"audio_speed_factor",     QVariant(100),                                  nullptr,          QVariant(0), QVariant(200)},
    {nullptr,                  QVariant(0),                                    nullptr,          QVariant(0), QVariant(0)},
};

// clang-format on
