// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>

#include <zoeffectmodel.h>
#include <zopref.h>

#include "bareqt.h"

/// The settings that the workloads use, in both forms.

/// The table of effect types that the benchmarks register: the thirteen types, with 40 frame effects under "Effect".
const EffectControlItem* effectTable();

struct Property {
    QString key;
    QVariant value;
};

/// An effect type as the bare side and the peers know it: keys as texts that need no conversion any more.
struct TypeTable {
    QString name;
    std::vector<Property> properties;
    QMap<QString, QVariant> asMap;
    std::vector<QString> items; ///< The names of the frame effects; all off.
};

const std::vector<TypeTable>& typeTables();
const TypeTable& typeTable(const QString& name);

/// Puts the thirteen types with their defaults and the frame effects into an empty store.
void fillWithDefaults(bareqt::Store& store);

/// Appends watermarks with the catalogue's values, as insertDataItem() leaves them but for their place.
void addWatermarks(ZoEffectModel& model, int count);
void addWatermarks(bareqt::Store& store, int count);

/// Whether all types hold their defaults; every type is looked at.
bool isDefault(const ZoEffectModel& model);
bool isDefault(const bareqt::Store& store);

/// Counts the notifications of a model or of a store.
class Listener : public QObject {
    Q_OBJECT

public:
    explicit Listener(const ZoEffectModel& model);
    explicit Listener(const bareqt::Store& store);

    /// The notifications since the last call.
    int taken();

    void count(const QString& type, const QString& key, const QVariant& value, int pos);

private:
    int m_count = 0;
};

/// A host's preference store, in memory.
class MemoryStore : public ZoPref {
public:
    bool hasKey(const QString& key) const override { return m_entries.contains(key); }
    QVariant value(const QString& key, const QVariant& defaultValue) const override
    {
        return m_entries.value(key, defaultValue);
    }
    void setValue(const QString& key, const QVariant& value, bool /*notify*/) override { m_entries.insert(key, value); }

private:
    QMap<QString, QVariant> m_entries;
};
