// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

class ZoEffectItemData;

/// The tree of a model is sound when each node below its root stands in exactly one child list, and its
/// parent() is the node whose list that is. Every operation of the library keeps a sound tree sound. Debug
/// builds (ZOEFFECT_CHECK_TREES) check the tree after each operation of the model that can change it, and after those
/// of the node that copy or clear one; other builds have none of this. The other operations of the node change one
/// list and read no child, which a host may have deleted without taking it out.
///
/// A host may break the rule with the operations of the node (append a null, or a node that stands
/// elsewhere). Such a tree is not checked.
#ifdef ZOEFFECT_CHECK_TREES

namespace treecheck {

/// Whether the tree under \a root is sound.
bool isSound(const ZoEffectItemData& root);

/// To be called where a host puts a node into a child list itself.
void noteHostEdit();
/// How often that happened in this thread.
quint64& hostEdits();

} // namespace treecheck

/// Stands at the head of an operation on the tree under a root: a tree that was sound before and that no host
/// edited meanwhile has to be sound at the end; the process ends with a message (qFatal) when it is not. An
/// operation inside another one on the same tree leaves the check to the outer one.
class TreeCheck {
public:
    explicit TreeCheck(const ZoEffectItemData& root);
    ~TreeCheck();

    /// Whether the tree is checked at the end.
    bool checks() const { return m_checks; }

private:
    Q_DISABLE_COPY(TreeCheck)

    const ZoEffectItemData& m_root;
    const TreeCheck* const m_outer;
    const bool m_checks;
    const quint64 m_hostEdits;
};

#else

namespace treecheck {
inline void noteHostEdit() {}
} // namespace treecheck

class TreeCheck {
public:
    explicit TreeCheck(const ZoEffectItemData& /*root*/) {}
};

#endif
