// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "completion_p.h"

#include <algorithm>

#include <zokit/properties.h>
#include <zokit/settingsfile.h>

#include "anchoring_p.h"
#include "cataloguedefaults_p.h"
#include "names_p.h"

namespace zokit {

namespace {

void addMissing(Values& values, const Values& defaults)
{
    if (values.isEmpty())
        values = defaults;
    for (auto it = defaults.cbegin(); it != defaults.cend(); ++it) {
        if (!values.contains(it.key()))
            values.insert(it.key(), it.value());
    }
}

/// The frame effects that \a type lacks follow those that it names.
void addFrameEffects(TypeSettings& type, const TypeSettings& plain)
{
    for (const Item& item : plain.items) {
        const auto named = std::find_if(type.items.begin(), type.items.end(),
                                        [&](const Item& there) { return there.name == item.name; });
        if (named == type.items.end())
            type.items.append(item);
        else
            addMissing(named->values, item.values);
    }
}

} // namespace

TypeSettings completedType(const TypeSettings& type, const QSize& frame)
{
    TypeSettings result = type;
    const TypeSettings plain = catalogueType(type.type, frame);
    addMissing(result.values, plain.values);
    if (type.type == types::effect)
        addFrameEffects(result, plain);
    else if (hasItems(type.type)) {
        const Values item = catalogueItem(type.type, frame);
        for (Item& one : result.items)
            addMissing(one.values, item);
    }
    return result;
}

void placeAnchored(Settings& settings, const QSize& frame)
{
    TypeSettings* watermarks = settings.find(types::watermark);
    if (!watermarks)
        return;
    for (Item& item : watermarks->items) {
        const Values placed = anchoredValues(item, frame);
        for (auto it = placed.cbegin(); it != placed.cend(); ++it)
            item.values.insert(it.key(), it.value());
    }
}

Settings withoutMeasures(Settings settings)
{
    if (TypeSettings* watermarks = settings.find(types::watermark)) {
        for (Item& item : watermarks->items) {
            for (const QString& key : {keys::imageWidth, keys::imageHeight}) {
                if (item.values.contains(key) && item.values.value(keys::isText).toBool())
                    item.values.remove(key);
            }
        }
    }
    return settings;
}

Settings completed(const Settings& settings)
{
    Settings result = settings;
    result.effects.clear();
    const QSize frame = baseFrame(settings);
    for (const QString& name : effectTypes()) {
        const TypeSettings* there = settings.find(name);
        result.effects.append(completedType(there ? *there : catalogueType(name, frame), frame));
    }
    placeAnchored(result, frame);
    return result;
}

} // namespace zokit
