// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zoeffectcatalogue.h>

/// The table of effect types that the tests register, as a host would build it: the thirteen types, and
/// under "Effect" four frame effects, "Blur" (id 11), "Sharpen" (id 12), "Mirror" (id 13), "Sepia" (id 14),
/// all off.
const EffectControlItem* hostCatalogue();

/// One record of a table with the fields that the library reads.
EffectControlItem effectType(const char* name, const EffectDefaultVal* properties,
                             const SubEffectItem* subItems = nullptr, const EffectControlItem* children = nullptr);

/// One record of a table of sub-items.
SubEffectItem subItem(const char* name, int id, const EffectDefaultVal* properties = nullptr);

/// One property without choices and bounds.
EffectDefaultVal property(const char* key, const QVariant& value);

/// Forgets all custom defaults of the process and empties the store in memory.
void forgetCustomDefaults();
