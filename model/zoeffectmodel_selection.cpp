// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include "effectnames_p.h"
#include "qtcompat_p.h"
#include "treecheck_p.h"

namespace {

/// Selects \a typeNode, and those of its items that \a isChosen.
template <typename IsChosen>
void selectItems(ZoEffectItemData* typeNode, IsChosen isChosen)
{
    if (!typeNode)
        return;
    typeNode->setCheckState(Qt::Checked);
    for (int row = 0; row < typeNode->childCount(); ++row) {
        if (ZoEffectItemData* item = typeNode->child(row))
            item->setCheckState(isChosen(*item) ? Qt::Checked : Qt::Unchecked);
    }
}

} // namespace

void ZoEffectModel::selectOnlyOneItem(const QString& type)
{
    const TreeCheck check(m_root);
    for (int row = 0; row < m_root.childCount(); ++row) {
        if (ZoEffectItemData* node = m_root.child(row))
            node->setCheckState(node->name() == type ? Qt::Checked : Qt::Unchecked);
    }
}

void ZoEffectModel::selectItemByKey(const QString& type, const QString& key, const QVariant& value)
{
    const TreeCheck check(m_root);
    selectItems(findDataItem(type, -1),
                [&](const ZoEffectItemData& item) { return qtcompat::equal(item.data(key), value); });
}

void ZoEffectModel::selectItemByKeyEx(const QString& type, const QString& key, const QStringList& values)
{
    const TreeCheck check(m_root);
    selectItems(findDataItem(type, -1),
                [&](const ZoEffectItemData& item) { return values.contains(qtcompat::toText(item.data(key))); });
}

int ZoEffectModel::getItemIndexByKeyValue(const QString& type, const QString& key, const QVariant& value) const
{
    const ZoEffectItemData* typeNode = findDataItem(type, -1);
    for (int row = 0; typeNode && row < typeNode->childCount(); ++row) {
        const ZoEffectItemData* item = typeNode->child(row);
        if (item && qtcompat::equal(item->data(key), value))
            return row;
    }
    return -1;
}

bool ZoEffectModel::haveSameItem(const QString& type, const QString& key, const QVariant& value) const
{
    return getItemIndexByKeyValue(type, key, value) != -1;
}

ZoEffectItemData* ZoEffectModel::getSelectItem(const QString& type) const
{
    const TreeCheck check(m_root);
    const ZoEffectItemData* typeNode = findDataItem(type, -1);
    if (!typeNode || typeNode->checkState() != Qt::Checked)
        return nullptr;

    ZoEffectItemData* tracks = nullptr;
    for (int row = 0; row < typeNode->childCount(); ++row) {
        ZoEffectItemData* item = typeNode->child(row);
        if (!item || item->checkState() != Qt::Checked)
            continue;
        if (type != types::audio)
            return item;
        // Deliberate: audio alone gathers all its tracks, in a container that borrows them.
        if (!tracks)
            tracks = new ZoEffectItemData(type);
        tracks->appendChild(item);
    }
    return tracks;
}
