// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "realeffect_p.h"

#include <algorithm>

#include <zokit/outputoptions.h>

#include "cataloguedefaults_p.h"
#include "exactly_p.h"

namespace zokit {

namespace {

bool flag(const Values& values, const char* key)
{
    return values.value(QLatin1String(key)).toBool();
}

bool anySelected(const TypeSettings& type, bool (*counts)(const Values&))
{
    return std::any_of(type.items.cbegin(), type.items.cend(),
                       [counts](const Item& item) { return item.selected && counts(item.values); });
}

bool isShown(const Values& watermark)
{
    return flag(watermark, "wm_istextwatermark")
               ? !watermark.value(QStringLiteral("wm_textcontent")).toString().isEmpty()
               : !watermark.value(QStringLiteral("wm_imageurl")).toString().isEmpty();
}

bool isTurned(const Settings& settings, const Values& crop)
{
    const TypeSettings* effects = settings.find(QStringLiteral("Effect"));
    return flag(crop, "player_map_flag") && effects
           && (flag(effects->values, "crop_rotation_angle") || flag(effects->values, "crop_rotation_action"));
}

/// A sound effect whose flag is set, unless it leaves the sound as it is.
bool soundChanges(const TypeSettings& type)
{
    if (!flag(type.values, "audio_effect_flag"))
        return false;
    if (type.type == QLatin1String("Audio_Speed"))
        return type.values.value(QStringLiteral("audio_speed_factor")).toInt() != 100;
    if (type.type == QLatin1String("Audio_Fade_Inout"))
        return flag(type.values, "audio_fade_in_enable") || flag(type.values, "audio_fade_out_enable");
    return true;
}

/// Whether the style of a selected embedded track differs from the catalogue's, so that it has to be burned in.
bool hasOwnStyle(const TypeSettings& subtitles, const QSize& frame)
{
    return std::any_of(subtitles.items.cbegin(), subtitles.items.cend(),
                       [&](const Item& item) { return item.selected && isStyled(item.values, frame); });
}

bool changes(const Settings& settings, const TypeSettings& type)
{
    if (type.type == QLatin1String("Crop"))
        return !isWholeFrame(type.values, baseFrame(settings)) || isTurned(settings, type.values);
    if (type.type == QLatin1String("Color"))
        return flag(type.values, "bcs_brightness") || flag(type.values, "bcs_contrast")
               || flag(type.values, "bcs_saturation");
    if (type.type == QLatin1String("Effect"))
        return anySelected(type, [](const Values&) { return true; });
    if (type.type == QLatin1String("Watermark"))
        return anySelected(type, isShown);
    if (type.type == QLatin1String("Subtitle"))
        return anySelected(type, [](const Values& track) { return flag(track, "sub_fromfile"); })
               || hasOwnStyle(type, baseFrame(settings));
    if (type.type == QLatin1String("Audio"))
        return anySelected(type, [](const Values& track) { return flag(track, "audio_isfile"); });
    return soundChanges(type);
}

} // namespace

bool isStyled(const Values& track, const QSize& frame)
{
    const Values plain = catalogueItem(QStringLiteral("Subtitle"), frame);
    return std::any_of(plain.keyBegin(), plain.keyEnd(), [&](const QString& key) {
        return track.contains(key) && !exactly(track.value(key), plain.value(key));
    });
}

bool asksForAnything(const Settings& settings)
{
    const bool anyEffect =
        std::any_of(settings.effects.cbegin(), settings.effects.cend(),
                    [&](const TypeSettings& type) { return type.selected && changes(settings, type); });
    if (anyEffect || !settings.tracks.isEmpty())
        return true;
    return std::any_of(settings.output.keyBegin(), settings.output.keyEnd(), [](const QString& name) {
        const OutputOption* option = outputOption(name);
        return !option || option->changesOutput;
    });
}

} // namespace zokit
