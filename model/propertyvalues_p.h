// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

class ZoEffectItemData;

/// Values of a node, read and written without looking a key up twice. A node by itself hands out copies only.
namespace propertyvalues {

/// Where the value of \a key is stored in \a node; null when it has none. Until the node's properties change.
const QVariant* find(const ZoEffectItemData& node, const QString& key);

/// Whether \a node's value of \a key equals \a value, where \a present is what find() answered. A value that is missing
/// counts as what the node's data() answers.
bool equals(const ZoEffectItemData& node, const QString& key, const QVariant* present, const QVariant& value);

/// Stores \a value under \a key in \a node, where \a present is what find() answered.
void store(ZoEffectItemData& node, const QString& key, const QVariant& value, const QVariant* present);

/// Stores every value of \a values in \a node, in one walk over both.
void storeAll(ZoEffectItemData& node, const QMap<QString, QVariant>& values);

/// Gives \a node the properties \a values in place of its own. They stay shared until one side changes.
void share(ZoEffectItemData& node, const QMap<QString, QVariant>& values);

/// Finds the values of ascending keys in one walk over the properties of a node, which must not change meanwhile.
class Finder {
public:
    explicit Finder(const ZoEffectItemData& node);

    /// What propertyvalues::find() answers. \a key must not be less than the one before.
    const QVariant* find(const QString& key);

private:
    QMap<QString, QVariant>::const_iterator m_next;
    const QMap<QString, QVariant>::const_iterator m_end;
};

} // namespace propertyvalues
