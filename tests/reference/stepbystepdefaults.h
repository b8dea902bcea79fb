// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <QMap>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <zoeffectcatalogue.h>

class ZoEffectItemData;

/// Filling with defaults, and asking for them, in the plainest form: on plain records instead of nodes, entry by
/// entry and key by key, each time from the tables as they are then.
namespace stepbystep {

using Properties = QMap<QString, QVariant>;

struct Node {
    QString name;
    int state = 2;
    Properties properties;
    const void* record = nullptr;
    std::vector<Node> children;
};

class Defaults {
public:
    const EffectControlItem* table = nullptr; ///< The registered one.
    QMap<QString, Properties> saved;          ///< The custom defaults by type.

    /// The tree of a new model with \a types, all when empty.
    Node tree(const QStringList& types) const;
    void reset(Node& root, const QString& type) const;
    /// Only for watermarks that stand alone or beside unchecked ones.
    void insert(Node& root, const QString& type, const Properties& props, int pos) const;
    bool replace(Node& root, const QString& type, int pos, const Properties& props) const;
    static void addSubItems(Node& item, const SubEffectItem* subItems);
    /// Lays the custom default of \a type over \a item, which stands in \a siblings.
    void layOver(Node& root, Node& item, const QString& type, bool direct, const std::vector<Node>& siblings) const;

    bool isDefault(const Node& root, const QString& type) const;
    bool isDefault(const Node& root, const QString& type, const QString& key, int pos) const;
    QVariant value(const QString& type, const QString& key) const;

private:
    void fill(Node& root, Node& item) const;
    void place(const Node& root, Node& item) const;
    void orderFrameEffects(Node& root) const;
    bool frameEffectsAreDefault(const Node& root) const;
};

Node* find(Node& root, const QString& type);
const EffectControlItem* findRecord(const QString& type, const EffectControlItem* table);
/// Whether two values of one type, or invalid ones, are equal.
bool plainlyEqual(const QVariant& left, const QVariant& right);
/// Empty, or the first node of the library's tree that differs.
QString difference(const ZoEffectItemData& found, const Node& expected);

} // namespace stepbystep
