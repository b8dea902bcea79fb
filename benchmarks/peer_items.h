// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QStandardItemModel>

#include "places.h"

/// The peer QStandardItemModel: an item for each node, named by its text, with a role for each property; type
/// items are found by name in a hash.
class ItemSettings : public QObject {
    Q_OBJECT

public:
    /// The thirteen types with their defaults and the frame effects.
    ItemSettings();

    void addWatermarks(int count);
    QStandardItem* item(const QString& type, int pos) const;
    /// The changes that the model announced since listen() or the last call.
    int takenChanges();
    void listen();

private:
    void count();

    QStandardItemModel m_model;
    QHash<QString, QStandardItem*> m_types;
    int m_changes = 0;
};
