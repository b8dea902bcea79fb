// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>

#include "zoeffect_export.h"

class FirstNodes;

/// A node of an effect tree: the root of a model, one effect type, or one item of a type.
///
/// A node has a name, properties by key, a check state (2 selected, 0 not), an untyped pointer for the host,
/// and an ordered list of children, which it owns: they are deleted when the node is cleared, assigned to or
/// destroyed. The node tree is not the QObject tree: the QObject parent is always null.
///
/// A node sends no signals and checks no values; the signals are ZoEffectModel's. A position that does not exist
/// changes nothing and shows in the result; only insertion appends instead. Use a node from one thread.
class ZOEFFECT_EXPORT ZoEffectItemData : public QObject {
    Q_OBJECT

public:
    /// A node with check state 2 and no properties. With a \a parent it puts itself into the parent's child
    /// list at \a pos, by insertChild(); the parent owns it then.
    explicit ZoEffectItemData(const QString& name, ZoEffectItemData* parent = nullptr, int pos = -1);

    /// A deep copy that stands free: its parent is null and it is in no child list.
    ZoEffectItemData(const ZoEffectItemData& other);

    /// Deletes all descendants. Does not take the node out of its parent's list: use takeAt() first, or
    /// removeChildren(), which does both.
    ~ZoEffectItemData() override;

    /// Makes this node a deep copy of \a other: properties, check state, name, object name, internal data
    /// pointer and all descendants (null entries are left out). The children that this node had are deleted.
    /// Its parent and its place there stay. \a other may stand above or below this node: it is copied as it was
    /// before the call.
    ZoEffectItemData& operator=(const ZoEffectItemData& other);
    /// The same as operator=.
    ZoEffectItemData& assign(const ZoEffectItemData& other);

    /// The node under which this one was created, or null. Moving a node elsewhere does not change it.
    ZoEffectItemData* parent() const;
    /// The number of children.
    int childCount() const;
    /// The child at \a row; null when there is none.
    ZoEffectItemData* child(int row) const;
    /// This node's index in its parent's list; 0 without a parent, -1 when the parent does not hold it.
    int childNumber() const;

    /// Adds \a child at the end and takes ownership. The child's parent() stays as it is.
    void appendChild(ZoEffectItemData* child);
    /// Inserts \a child before the child now at \a pos and takes ownership; any \a pos outside
    /// 0 to childCount()-1 appends. The child's parent() stays as it is.
    void insertChild(ZoEffectItemData* child, int pos);
    /// Takes the child at \a row out of the list and hands it to the caller; null when there is none.
    ZoEffectItemData* takeAt(int row);
    /// Deletes \a count children from \a pos on. False, and nothing changed, when \a pos is negative or
    /// pos + count goes beyond the end; true without change when \a count is less than 1.
    bool removeChildren(int pos, int count);
    /// Moves the child at \a from so that it ends at \a to. Mind the order, destination first:
    /// (0, 2) on a, b, c gives c, a, b. False, and nothing changed, when the two are equal or one is no
    /// position of a child.
    bool changeItemPos(int to, int from);
    /// Deletes all children; the properties stay.
    void clear();

    /// The value under \a key. A missing "trackid" reads as int -1, any other missing key as an invalid value.
    QVariant data(const QString& key) const;
    /// Item-view access: the object name for Qt::DisplayRole (0) and Qt::EditRole (2), the check state for
    /// Qt::CheckStateRole (10), an invalid value for any other role.
    QVariant data(int role) const;
    /// Whether a value, an invalid one included, is stored under \a key.
    bool hasData(const QString& key) const;
    /// Stores \a value under \a key, whatever its type or range.
    void setData(const QString& key, const QVariant& value);
    /// Removes \a key; nothing happens when it is not there.
    void delData(const QString& key);

    /// The host's pointer; never read or freed by the node, shared by copies.
    void* internalData() const;
    /// Stores the host's pointer; null by default. What it points at stays the host's.
    void setInternalData(void* data);

    /// The name given at construction or copied by assignment.
    QString name() const;
    /// 2 (Qt::Checked) on a new node, 0 (Qt::Unchecked) when not selected.
    int checkState() const;
    /// Stores \a state as it is.
    void setCheckState(int state);
    /// All properties by key. The reference lives as long as the node; a copy is cheap and stays as it is.
    const QMap<QString, QVariant>& properties() const;

private:
    Q_DECL_HIDDEN void place(ZoEffectItemData* child, int pos);
    Q_DECL_HIDDEN void takeOverFields(const ZoEffectItemData& other);
    Q_DECL_HIDDEN void comeInto(const std::shared_ptr<FirstNodes>& tree);
    Q_DECL_HIDDEN void countChange() const;

    friend class ZoEffectModel; // Which looks nodes up below its root.

    QList<ZoEffectItemData*> m_children;
    QMap<QString, QVariant> m_properties;
    ZoEffectItemData* m_parent;
    int m_checkState = Qt::Checked;
    QString m_name;
    void* m_internalData = nullptr;
    std::shared_ptr<FirstNodes> m_firstNodes; // Of the model whose tree this node came into first, or null.
};
