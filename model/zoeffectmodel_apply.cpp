// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include "effectnames_p.h"
#include "treecheck_p.h"
#include "zoeffectcatalogue.h"

void ZoEffectModel::applyDataTo(const QString& type, int pos, int applyto)
{
    const TreeCheck check(m_root);
    ZoEffectItemData* item = findDataItem(type, pos);
    const QString ownType = type; // A listener may change what type refers to; all get it as it was.
    if (item)
        emit applyItemDataTo(item, ownType, pos, applyto);
}

void ZoEffectModel::applySomePropertytoOther(const QString& type, int pos, int applyto)
{
    const TreeCheck check(m_root);
    if (type != types::subtitle || pos == -1)
        return;
    const ZoEffectItemData* item = findDataItem(type, pos);
    if (!item || item->checkState() != Qt::Checked)
        return;

    QMap<QString, QVariant> style;
    for (const char* name : keysforfromFile) {
        const QString key = QString::fromUtf8(name);
        const QVariant value = item->data(key);
        if (value.isValid())
            style.insert(key, value);
    }
    if (style.isEmpty())
        return;
    style.insert(keys::baseHeight, baseSize().height());
    replaceItemDataProperty(types::subtitle, style);
    emit applyItemDataSomePropertyTo(style, types::subtitle, -1, applyto);
}
