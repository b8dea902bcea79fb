// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "keydefaults_p.h"

#include "zoeffectcatalogue.h"

QVariant catalogueDefault(const QString& key)
{
    static const EffectDefaultVal* const tables[] = {
        cropDefaultVal,         WatermarkDefaultVal, SubtitleDefaultVal, AudioDefaultVal, BCSDefaultVal,
        frameEffectsDefaultVal, audioFadeInOut,      audioNormalize,     audioBandpass,   audioChorus,
        audioFlanger,           audioEcho,           audioSpeed};
    for (const EffectDefaultVal* table : tables) {
        for (const EffectDefaultVal* row = table; row->key; ++row) {
            if (key == QLatin1String(row->key))
                return row->defaultValue;
        }
    }
    return QVariant();
}
