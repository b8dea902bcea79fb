// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "treecheck_p.h"

#ifdef ZOEFFECT_CHECK_TREES

#include <algorithm>
#include <vector>

#include "zoeffectitemdata.h"

namespace {

/// A tree of so many nodes is looked at before and after every operation. What is visited beyond that runs up a
/// debt, and no tree is looked at until the operations since have paid it off.
constexpr qint64 freeVisits = 100;
constexpr qint64 paidByOperation = 20;

thread_local const TreeCheck* innermost = nullptr;
thread_local qint64 debt = 0;

bool isDue()
{
    debt = std::max(debt - paidByOperation, qint64(0));
    return debt == 0;
}

} // namespace

// Each child names the node that holds it as its parent, so no node can stand under two; what is left to look
// for is a node that stands twice in one list.
bool treecheck::isSound(const ZoEffectItemData& root)
{
    qint64 visited = 0;
    std::vector<const ZoEffectItemData*> pending{&root};
    while (!pending.empty()) {
        const ZoEffectItemData* node = pending.back();
        pending.pop_back();
        if (++visited > freeVisits)
            ++debt;
        const auto first = static_cast<std::ptrdiff_t>(pending.size());
        for (int row = 0; row < node->childCount(); ++row) {
            const ZoEffectItemData* child = node->child(row);
            if (!child || child == &root || child->parent() != node)
                return false;
            pending.push_back(child);
        }
        std::sort(pending.begin() + first, pending.end());
        if (std::adjacent_find(pending.begin() + first, pending.end()) != pending.end())
            return false;
    }
    return true;
}

quint64& treecheck::hostEdits()
{
    thread_local quint64 edits = 0;
    return edits;
}

void treecheck::noteHostEdit()
{
    ++hostEdits();
}

TreeCheck::TreeCheck(const ZoEffectItemData& root)
    : m_root(root)
    , m_outer(innermost)
    , m_checks([&] {
        for (const TreeCheck* check = innermost; check; check = check->m_outer) {
            if (&check->m_root == &root)
                return false;
        }
        return isDue() && treecheck::isSound(root);
    }())
    , m_hostEdits(treecheck::hostEdits())
{
    innermost = this;
}

TreeCheck::~TreeCheck()
{
    innermost = m_outer;
    if (m_checks && m_hostEdits == treecheck::hostEdits() && !treecheck::isSound(m_root))
        qFatal("libzoeffect: an operation left the tree of a model unsound");
}

#endif
