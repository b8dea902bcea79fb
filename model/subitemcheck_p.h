// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

struct SubEffectItem;
class ZoEffectItemData;

namespace catalogue {

/// Whether the items of \a typeNode are those of the table \a subItems (null for none, which any items
/// match): the same names in the same order, each with the defaults and the check state of its record.
bool matchesSubItems(const ZoEffectItemData& typeNode, const SubEffectItem* subItems);

} // namespace catalogue
