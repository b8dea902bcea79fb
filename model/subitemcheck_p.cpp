// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "subitemcheck_p.h"

#include "catalogue_p.h"
#include "effectnames_p.h"
#include "qtcompat_p.h"
#include "zoeffectcatalogue.h"
#include "zoeffectitemdata.h"

namespace {

/// Whether \a item holds the default of each of \a properties; "_checkstate" may stand for the check state.
bool holdsDefaults(const ZoEffectItemData& item, const EffectDefaultVal* properties)
{
    for (const EffectDefaultVal* entry = properties; entry && entry->key; ++entry) {
        const QString key = catalogue::text(entry->key);
        const QVariant& value = entry->defaultValue;
        if (key == keys::checkState && item.checkState() == catalogue::checkStateFor(value))
            continue;
        if (!qtcompat::equal(item.data(key), value))
            return false;
    }
    return true;
}

} // namespace

bool catalogue::matchesSubItems(const ZoEffectItemData& typeNode, const SubEffectItem* subItems)
{
    if (!subItems)
        return true;
    const SubEffectItem* record = subItems;
    for (int row = 0; row < typeNode.childCount(); ++row, ++record) {
        if (!record->name)
            return false;
        const ZoEffectItemData* item = typeNode.child(row);
        if (item && (!catalogue::says(record->name, item->name()) || !holdsDefaults(*item, record->properties)))
            return false;
    }
    return !record->name;
}
