// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <atomic>

#include <QHash>
#include <QString>

class ZoEffectItemData;

/// The first node named \a name in the subtree of \a start, itself included, depth first in the order of the lists;
/// null when there is none.
ZoEffectItemData* firstNode(const ZoEffectItemData& start, const QString& name);

/// What the lookups in one model's tree have found. Every node that has come into the tree shares this and counts the
/// changes of its child list and name here, also after it was taken out and in whatever thread: what was found holds
/// for one number of changes.
class FirstNodes {
public:
    /// firstNode(), \a root being the root of the tree. For the model's thread.
    ZoEffectItemData* find(const ZoEffectItemData& root, const QString& name);

    void countChange() { m_changes.fetch_add(1, std::memory_order_relaxed); }

    /// To be called when the tree gets a node that counts for another tree. From then on each lookup walks.
    void keepNothing() { m_keepsNothing = true; }

private:
    std::atomic<quint64> m_changes{0};
    std::atomic<bool> m_keepsNothing{false};
    quint64 m_changesSeen = 0;
    QHash<QString, ZoEffectItemData*> m_found; ///< No misses: never more than there are names.
};
