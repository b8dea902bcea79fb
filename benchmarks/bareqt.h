// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>

/// The limit: effect settings as a careful host would keep them with nothing but Qt. It does the same job as the
/// library for the workloads here, and knows none of its rules beyond them.
namespace bareqt {

/// A node of the tree; owns its children.
class Node : public QObject {
    Q_OBJECT

public:
    explicit Node(const QString& nodeName);
    ~Node() override;

    QString name;
    QMap<QString, QVariant> properties;
    int checkState = Qt::Checked;
    QList<Node*> children;

private:
    Q_DISABLE_COPY(Node)
};

/// A deep copy of \a other.
Node* copyOf(const Node& other);

/// The settings: type nodes below a root, found by name, and one signal.
class Store : public QObject {
    Q_OBJECT

public:
    Store();
    ~Store() override;

    /// Appends a type node.
    Node* addType(const QString& type);
    /// The type's own node at -1, else its item at \a pos; null when there is none.
    Node* node(const QString& type, int pos) const;
    /// Makes this a deep copy of \a other.
    void assign(const Store& other);

    QVariant value(const QString& key, const QString& type, int pos) const;
    /// Stores a value; sends changed() when it differs from the one before.
    void setValue(const QString& key, const QVariant& value, const QString& type, int pos);
    /// Appends an item with \a defaults and then \a given to \a type, and sends changed().
    void append(const QString& type, const QMap<QString, QVariant>& defaults, const QMap<QString, QVariant>& given);

signals:
    void changed(const QString& type, const QString& key, const QVariant& value, int pos);

private:
    Q_DISABLE_COPY(Store)

    Node m_root;
    QHash<QString, Node*> m_types;
};

} // namespace bareqt
