// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QExplicitlySharedDataPointer>
#include <QMap>
#include <QSharedData>
#include <QString>
#include <QVariant>
#include <QVector>

struct EffectDefaultVal;

/// The property tables of a catalogue, prepared for filling and comparing nodes.
namespace cataloguetable {

struct Row {
    QString key;
    const EffectDefaultVal* entry;
    bool isCheckState; ///< Whether the key is "_checkstate".
};

struct Table : QSharedData {
    /// The rows by key, as the properties of a node are; rows of one key in their order.
    QVector<Row> rows;
    /// What a node without properties holds when every row is stored in it.
    QMap<QString, QVariant> defaults;
    /// Whether a node that shares \a defaults holds the default of every row: no key stands twice, and each value
    /// equals itself.
    bool holdsItself = true;
};

/// \a properties, which may be null, prepared. Each thread keeps at most 64 tables, and none with values of types other
/// than Qt's own. They are the host's and may change, so every key and value is looked at again each time.
QExplicitlySharedDataPointer<const Table> prepared(const EffectDefaultVal* properties);

/// Forgets the tables that this thread keeps: with its last model the host may let go of its own.
void forgetAll();

} // namespace cataloguetable
