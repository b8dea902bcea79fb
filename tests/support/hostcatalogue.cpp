// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "hostcatalogue.h"

#include <zoeffectitemdefaultvalmgr.h>

#include "testapplication.h"

EffectControlItem effectType(const char* name, const EffectDefaultVal* properties, const SubEffectItem* subItems,
                             const EffectControlItem* children)
{
    EffectControlItem item{};
    item.name = name;
    item.properties = properties;
    item.subItems = subItems;
    item.children = children;
    return item;
}

SubEffectItem subItem(const char* name, int id, const EffectDefaultVal* properties)
{
    SubEffectItem item{};
    item.name = name;
    item.id = id;
    item.properties = properties;
    return item;
}

EffectDefaultVal property(const char* key, const QVariant& value)
{
    return {key, value, nullptr, QVariant(0), QVariant(0)};
}

const EffectControlItem* hostCatalogue()
{
    static const SubEffectItem frameEffects[] = {
        subItem("Blur", 11, frameEffectsDefaultVal),
        subItem("Sharpen", 12, frameEffectsDefaultVal),
        subItem("Mirror", 13, frameEffectsDefaultVal),
        subItem("Sepia", 14, frameEffectsDefaultVal),
        subItem(nullptr, 0),
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

void forgetCustomDefaults()
{
    ZoEffectItemDefaultValMgr* manager = ZoEffectItemDefaultValMgr::getInstance();
    const QStringList types =
        ZoEffectItemDefaultValMgr::supportTypes() + TestApplication::instance()->pref.entries.keys();
    for (const QString& type : types)
        manager->removeCustomDefaultVal(type);
    TestApplication::instance()->pref.entries.clear();
    TestApplication::instance()->pref.takeWrites();
}
