#include "treecheck_p.h"

#ifdef ZOEFFECT_CHECK_TREES

#include <algorithm>
#include <vector>

#include "zoeffectitemdata.h"

namespace {

/// Up to this many items a tree is looked at around every operation; a larger one around every second, third
/// ... operation, so that the checks never cost more than this many visits an operation.
constexpr qint64 itemsPerOperation = 200;

thread_local const TreeCheck* innermost = nullptr;
thread_local qint64 operations = 0;

bool isDue(const ZoEffectItemData& root)
{
    qint64 items = root.childCount();
    for (int row = 0; row < root.childCount(); ++row) {
        if (const ZoEffectItemData* type = root.child(row))
            items += type->childCount();
    }
    return ++operations % (items / itemsPerOperation + 1) == 0;
}

} // namespace

// Each child names the node that holds it as its parent, so no node can stand under two; what is left to look
// for is a node that stands twice in one list.
bool treecheck::isSound(const ZoEffectItemData& root)
{
    std::vector<const ZoEffectItemData*> pending{&root};
    while (!pending.empty()) {
        const ZoEffectItemData* node = pending.back();
        pending.pop_back();
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
        return isDue(root) && treecheck::isSound(root);
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
