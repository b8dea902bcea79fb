// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class ZoEffectItemData;

/// Finds the first node of a name, and remembers what it found until the trees change.
///
/// Each thread remembers at most 256 answers, for names of at most 32 letters. An answer holds as long as no child
/// list has changed in a way that could touch it, whatever tree and thread that list is in: so no node has to know
/// where it stands.
namespace nodeindex {

/// The first node named \a name in the subtree of \a start, itself included, depth first in the order of the
/// lists; null when there is none. Walks each time.
ZoEffectItemData* walkToFirst(const ZoEffectItemData& start, const QString& name);

/// The same in the tree of \a root, from memory where that still holds. Before \a root goes, listsChanged() has to
/// be called.
ZoEffectItemData* first(const ZoEffectItemData& root, const QString& name);

/// To be called when \a child, which may be null, has come into a child list.
void cameIn(const ZoEffectItemData* child);

/// To be called when a child list has changed in any other way, when a node gets another name, and before the root of a
/// model goes.
void listsChanged();

} // namespace nodeindex
