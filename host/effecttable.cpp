// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "effecttable.h"

#include <zoeffectcatalogue.h>

namespace {

// Both records have fields that are the host's own; this host needs none of them, so they stay zero.

SubEffectItem frameEffect(const char* name, int id)
{
    SubEffectItem item{};
    item.name = name;
    item.id = id;
    item.properties = frameEffectsDefaultVal; // Off until someone switches it on.
    return item;
}

EffectControlItem effectType(const char* name, const EffectDefaultVal* properties,
                             const SubEffectItem* subItems = nullptr)
{
    EffectControlItem item{};
    item.name = name;
    item.properties = properties;
    item.subItems = subItems;
    return item;
}

} // namespace

const EffectControlItem* effectTable()
{
    // The ids are this host's: what its converter calls the effects.
    static const SubEffectItem frameEffects[] = {
        frameEffect("Blur", 1),   frameEffect("Sharpen", 2),   frameEffect("Mirror", 3),    frameEffect("Flip", 4),
        frameEffect("Sepia", 5),  frameEffect("Greyscale", 6), frameEffect("Negative", 7),  frameEffect("Emboss", 8),
        frameEffect("Mosaic", 9), frameEffect("Noise", 10),    frameEffect("Vignette", 11), frameEffect("Old Film", 12),
        frameEffect(nullptr, 0), // A null name ends a table.
    };
    static const EffectControlItem table[] = {
        effectType("Crop", cropDefaultVal),
        effectType("Watermark", WatermarkDefaultVal),
        effectType("Subtitle", SubtitleDefaultVal),
        effectType("Audio", AudioDefaultVal),
        effectType("Color", BCSDefaultVal),
        effectType("Effect", nullptr, frameEffects),
        effectType("Audio_Fade_Inout", audioFadeInOut),
        effectType("Audio_Normalize", audioNormalize),
        effectType("Audio_BandPass", audioBandpass),
        effectType("Audio_Chorus", audioChorus),
        effectType("Audio_Flanger", audioFlanger),
        effectType("Audio_Echo", audioEcho),
        effectType("Audio_Speed", audioSpeed),
        effectType(nullptr, nullptr),
    };
    return table;
}
