// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

struct EffectControlItem;
struct EffectDefaultVal;
class ZoEffectItemData;

/// Reading the registered table of effect types, and filling items with values.
namespace catalogue {

/// Makes the strings of all names and keys of \a items, a table that is being registered, for text(). The table may
/// change afterwards: what it says by then is looked up by its letters.
void prepareTexts(const EffectControlItem* items);

/// The string that \a utf8, a name or key of a table, says.
QString text(const char* utf8);

/// text(utf8) == text
bool says(const char* utf8, const QString& text);

/// The registered record of \a type, or null.
const EffectControlItem* record(const QString& type);

/// The record of \a type in \a items (null for none), depth first through nested tables, or null.
const EffectControlItem* record(const QString& type, const EffectControlItem* items);

/// The first property of \a properties (null for none) under \a key, or null.
const EffectDefaultVal* property(const EffectDefaultVal* properties, const QString& key);

/// The properties of \a type, or null.
const EffectDefaultVal* properties(const QString& type);

/// Stores the default of every property of \a type in \a item, "_checkstate" like any other key.
void storeDefaults(ZoEffectItemData& item, const QString& type);

/// The check state for a value of "_checkstate".
int checkStateFor(const QVariant& value);

/// Stores \a value under \a key in \a item; "_checkstate" sets the check state and is not stored.
void storeOrCheck(ZoEffectItemData& item, const QString& key, const QVariant& value);

/// storeOrCheck() for each entry of \a props, in the order of the keys.
void applyProperties(ZoEffectItemData& item, const QMap<QString, QVariant>& props);

} // namespace catalogue
