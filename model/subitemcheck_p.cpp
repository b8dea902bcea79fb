#include "subitemcheck_p.h"

#include "catalogue_p.h"
#include "effectnames_p.h"
#include "qtcompat_p.h"
#include "zoeffectcatalogue.h"
#include "zoeffectitemdata.h"

namespace {

bool holdsDefaults(const ZoEffectItemData& item, const SubEffectItem& record)
{
    for (const EffectDefaultVal* entry = record.properties; entry && entry->key; ++entry) {
        const QString key = QString::fromUtf8(entry->key);
        if (qtcompat::equal(item.data(key), entry->defaultValue))
            continue;
        const bool isCheckState = key == keys::checkState;
        if (!isCheckState || item.checkState() != catalogue::checkStateFor(entry->defaultValue))
            return false;
    }
    return true;
}

} // namespace

bool matchesSubItems(const ZoEffectItemData& typeNode, const SubEffectItem* subItems)
{
    if (!subItems)
        return true;
    const SubEffectItem* record = subItems;
    for (int row = 0; row < typeNode.childCount(); ++row, ++record) {
        if (!record->name)
            return false;
        const ZoEffectItemData* item = typeNode.child(row);
        if (item && (item->name() != QString::fromUtf8(record->name) || !holdsDefaults(*item, *record)))
            return false;
    }
    return !record->name;
}
