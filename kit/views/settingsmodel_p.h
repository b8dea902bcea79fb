// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/settingsmodel.h>

#include <QPointer>
#include <QSize>

#include <zokit/filesettings.h>

#include "settingsnode_p.h"

namespace zokit {

class SettingsModel::Private {
public:
    explicit Private(SettingsModel* model);

    /// Null for an index of no row.
    SettingsNode* node(const QModelIndex& index) const;
    QModelIndex index(const SettingsNode* node, int column = NameColumn) const;
    /// The type or item; null when there is none.
    SettingsNode* find(Identity thing) const;
    /// The type at \a index, when it has items; null for anything else.
    SettingsNode* listAt(const QModelIndex& index) const;

    void fill();
    void follow(const Changes& changes);
    void bringItems(SettingsNode& type);
    void bringValues(Identity item);
    void tellRow(const SettingsNode& node);
    void tellValues(const SettingsNode& node);
    void tellChanged(const SettingsNode& node, const QStringList& keys);
    void tellType(const SettingsNode& type);
    bool move(SettingsNode& type, int from, int before);

    QVariant ofAny(const SettingsNode& node, int role) const;
    QVariant ofValue(const SettingsNode& node, int role) const;
    QString text(const SettingsNode& node, int column) const;
    QString label(const SettingsNode& node) const;
    QString valueText(const SettingsNode& node) const;
    QString help(const SettingsNode& node) const;
    int state(const SettingsNode& node) const;
    QVariant bound(const SettingsNode& node, const QVariant& bound) const;
    bool isCheckable(const SettingsNode& node) const;
    bool isChecked(const SettingsNode& node) const;
    QByteArray dragged(Identity item) const;
    /// What is dragged; 0 when it is not this model's.
    Identity dragged(const QMimeData* data) const;

    SettingsModel* q;
    QPointer<FileSettings> file;
    QSize frame;       // baseFrame() of the file, in which its bounds are.
    SettingsNode root; // Its types are there from the beginning and stay.
};

} // namespace zokit
