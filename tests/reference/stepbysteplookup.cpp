// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "stepbysteplookup.h"

#include <zoeffectitemdata.h>

namespace stepbystep {

// NOLINTNEXTLINE(misc-no-recursion): the plainest form; the trees of the tests are small.
ZoEffectItemData* find(ZoEffectItemData* start, const QString& type)
{
    if (!start)
        return nullptr;
    if (start->name() == type)
        return start;
    for (int row = 0; row < start->childCount(); ++row) {
        if (ZoEffectItemData* found = find(start->child(row), type))
            return found;
    }
    return nullptr;
}

ZoEffectItemData* find(ZoEffectItemData* start, const QString& type, int pos)
{
    ZoEffectItemData* typeNode = find(start, type);
    if (!typeNode || pos == -1)
        return typeNode;
    return pos >= 0 && pos < typeNode->childCount() ? typeNode->child(pos) : nullptr;
}

} // namespace stepbystep
