// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class ZoEffectItemData;

/// Lookups in their plainest form, by nothing but what a node tells of its name and its children. Nothing is
/// remembered from one lookup to the next.
namespace stepbystep {

/// The first node named \a type, depth first from \a start, itself included; null when there is none.
ZoEffectItemData* find(ZoEffectItemData* start, const QString& type);

/// The node at \a pos of the first node named \a type: that node itself for -1; null when there is none.
ZoEffectItemData* find(ZoEffectItemData* start, const QString& type, int pos);

} // namespace stepbystep
