// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "catalogue_p.h"

#include "cataloguetable_p.h"
#include "cataloguetext_p.h"
#include "effectnames_p.h"
#include "propertyvalues_p.h"
#include "qtcompat_p.h"
#include "zoeffectcatalogue.h"
#include "zoeffectitemdata.h"
#include "zoeffectmodel.h"

namespace catalogue {

const EffectControlItem* record(const QString& type)
{
    return ZoEffectModel::findOriItem(type, ZoEffectModel::s_EffectItems);
}

const EffectDefaultVal* property(const EffectDefaultVal* properties, const QString& key)
{
    for (const EffectDefaultVal* entry = properties; entry && entry->key; ++entry) {
        if (cataloguetext::equals(key, entry->key))
            return entry;
    }
    return nullptr;
}

const EffectDefaultVal* properties(const QString& type)
{
    const EffectControlItem* found = record(type);
    return found ? found->properties : nullptr;
}

void storeDefaults(ZoEffectItemData& item, const QString& type)
{
    const auto table = cataloguetable::prepared(properties(type));
    if (item.properties().isEmpty()) {
        propertyvalues::share(item, table->defaults);
        return;
    }
    for (const cataloguetable::Row& row : table->rows)
        item.setData(row.key, row.entry->defaultValue);
}

int checkStateFor(const QVariant& value)
{
    return qtcompat::toBool(value) ? Qt::Checked : Qt::Unchecked;
}

void storeOrCheck(ZoEffectItemData& item, const QString& key, const QVariant& value)
{
    if (key == keys::checkState)
        item.setCheckState(checkStateFor(value));
    else
        item.setData(key, value);
}

void applyProperties(ZoEffectItemData& item, const QMap<QString, QVariant>& props)
{
    for (auto it = props.cbegin(); it != props.cend(); ++it)
        storeOrCheck(item, it.key(), it.value());
}

} // namespace catalogue
