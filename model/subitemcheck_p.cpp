// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "subitemcheck_p.h"

#include <algorithm>

#include "catalogue_p.h"
#include "cataloguetable_p.h"
#include "cataloguetext_p.h"
#include "qtcompat_p.h"
#include "zoeffectcatalogue.h"
#include "zoeffectitemdata.h"

namespace {

/// Whether \a item holds the default of \a row; "_checkstate" may stand for the check state.
bool holdsDefault(const ZoEffectItemData& item, const cataloguetable::Row& row)
{
    const QVariant& value = row.entry->defaultValue;
    if (row.isCheckState && item.checkState() == catalogue::checkStateFor(value))
        return true;
    return qtcompat::equal(item.data(row.key), value);
}

} // namespace

bool catalogue::matchesSubItems(const ZoEffectItemData& typeNode, const SubEffectItem* subItems)
{
    if (!subItems)
        return true;
    const SubEffectItem* record = subItems;
    const EffectDefaultVal* properties = nullptr; // Most records have the same ones.
    auto table = cataloguetable::prepared(nullptr);
    for (int row = 0; row < typeNode.childCount(); ++row, ++record) {
        if (!record->name)
            return false;
        if (record->properties != properties) {
            properties = record->properties;
            table = cataloguetable::prepared(properties);
        }
        const ZoEffectItemData* item = typeNode.child(row);
        if (!item)
            continue;
        const auto holds = [item](const cataloguetable::Row& property) { return holdsDefault(*item, property); };
        if (item->name() != cataloguetext::string(record->name)
            || !std::all_of(table->rows.cbegin(), table->rows.cend(), holds))
            return false;
    }
    return !record->name;
}
