// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "propertyvalues_p.h"

#include "qtcompat_p.h"
#include "zoeffectitemdata.h"

namespace {

/// Most keys share their letters, which tells at once.
bool isSame(const QString& key, const QString& other)
{
    return (key.constData() == other.constData() && key.size() == other.size()) || key == other;
}

/// The node is not const, and so its map is not.
QMap<QString, QVariant>& writable(ZoEffectItemData& node)
{
    return const_cast<QMap<QString, QVariant>&>(node.properties());
}

} // namespace

const QVariant* propertyvalues::find(const ZoEffectItemData& node, const QString& key)
{
    const QMap<QString, QVariant>& properties = node.properties();
    const auto found = properties.constFind(key);
    return found == properties.cend() ? nullptr : &found.value();
}

bool propertyvalues::equals(const ZoEffectItemData& node, const QString& key, const QVariant* present,
                            const QVariant& value)
{
    return present ? qtcompat::equal(*present, value) : qtcompat::equal(node.data(key), value);
}

void propertyvalues::store(ZoEffectItemData& node, const QString& key, const QVariant& value, const QVariant* present)
{
    // In place, unless a copy of the map shares the value.
    if (present && node.properties().isDetached())
        *const_cast<QVariant*>(present) = value;
    else
        node.setData(key, value);
}

void propertyvalues::storeAll(ZoEffectItemData& node, const QMap<QString, QVariant>& values)
{
    QMap<QString, QVariant>& properties = writable(node);
    auto next = properties.begin();
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        while (next != properties.end() && !isSame(next.key(), it.key()) && next.key() < it.key())
            ++next;
        if (next != properties.end() && isSame(next.key(), it.key()))
            next.value() = it.value();
        else
            next = properties.insert(QMap<QString, QVariant>::const_iterator(next), it.key(), it.value());
    }
}

void propertyvalues::share(ZoEffectItemData& node, const QMap<QString, QVariant>& values)
{
    writable(node) = values;
}

propertyvalues::Finder::Finder(const ZoEffectItemData& node)
    : m_next(node.properties().cbegin()), m_end(node.properties().cend())
{
}

const QVariant* propertyvalues::Finder::find(const QString& key)
{
    while (m_next != m_end && !isSame(m_next.key(), key)) {
        if (key < m_next.key())
            return nullptr;
        ++m_next;
    }
    return m_next == m_end ? nullptr : &m_next.value();
}
