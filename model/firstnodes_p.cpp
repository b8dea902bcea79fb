// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "firstnodes_p.h"

#include <QVector>

#include "zoeffectitemdata.h"

ZoEffectItemData* firstNode(const ZoEffectItemData& start, const QString& name)
{
    // Trees can be deep: the walk keeps its own stack.
    QVector<const ZoEffectItemData*> pending{&start};
    while (!pending.isEmpty()) {
        const ZoEffectItemData* node = pending.takeLast();
        if (node->name() == name)
            return const_cast<ZoEffectItemData*>(node);
        for (int row = node->childCount() - 1; row >= 0; --row) {
            if (const ZoEffectItemData* child = node->child(row))
                pending.append(child);
        }
    }
    return nullptr;
}

ZoEffectItemData* FirstNodes::find(const ZoEffectItemData& root, const QString& name)
{
    if (m_keepsNothing)
        return firstNode(root, name);
    const quint64 changes = m_changes.load(std::memory_order_relaxed);
    if (m_changesSeen != changes) {
        m_found.clear();
        m_changesSeen = changes;
    }
    const auto known = m_found.constFind(name);
    if (known != m_found.cend())
        return known.value();
    ZoEffectItemData* node = firstNode(root, name);
    if (node)
        m_found.insert(node->name(), node); // Its own text: the caller's letters may not stay.
    return node;
}
