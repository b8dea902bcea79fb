// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include "qtcompat_p.h"
#include "zoeffectitemdata.h"

/// The values of a node as plain types: 0, false and empty for what is missing or does not convert.
namespace nodevalues {

inline int number(const ZoEffectItemData& node, const QString& key)
{
    return qtcompat::toInt(node.data(key));
}

inline bool flag(const ZoEffectItemData& node, const QString& key)
{
    return qtcompat::toBool(node.data(key));
}

inline QString text(const ZoEffectItemData& node, const QString& key)
{
    return qtcompat::toText(node.data(key));
}

/// Stores the value of \a key in \a node when \a values hold one.
inline void storeIfGiven(ZoEffectItemData& node, const QMap<QString, QVariant>& values, const QString& key)
{
    const auto found = values.constFind(key);
    if (found != values.cend())
        node.setData(key, found.value());
}

} // namespace nodevalues
