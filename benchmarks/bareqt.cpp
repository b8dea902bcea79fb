// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "bareqt.h"

namespace bareqt {

Node::Node(const QString& nodeName) : name(nodeName)
{
    setObjectName(nodeName);
}

Node::~Node()
{
    qDeleteAll(children);
}

// NOLINTNEXTLINE(misc-no-recursion): the tree has three levels.
Node* copyOf(const Node& other)
{
    auto* copy = new Node(other.name);
    copy->properties = other.properties;
    copy->checkState = other.checkState;
    copy->children.reserve(other.children.size());
    for (const Node* child : other.children)
        copy->children.append(copyOf(*child));
    return copy;
}

Store::Store() : m_root(QStringLiteral("root")) {}

Store::~Store() = default;

Node* Store::addType(const QString& type)
{
    auto* node = new Node(type);
    m_root.children.append(node);
    m_types.insert(type, node);
    return node;
}

Node* Store::node(const QString& type, int pos) const
{
    Node* typeNode = m_types.value(type);
    if (!typeNode || pos == -1)
        return typeNode;
    return pos >= 0 && pos < typeNode->children.size() ? typeNode->children.at(pos) : nullptr;
}

void Store::assign(const Store& other)
{
    qDeleteAll(m_root.children);
    m_root.children.clear();
    m_types.clear();
    m_root.properties = other.m_root.properties;
    for (const Node* source : other.m_root.children) {
        Node* copy = copyOf(*source);
        m_root.children.append(copy);
        m_types.insert(copy->name, copy);
    }
}

QVariant Store::value(const QString& key, const QString& type, int pos) const
{
    const Node* holder = node(type, pos);
    return holder ? holder->properties.value(key) : QVariant();
}

void Store::setValue(const QString& key, const QVariant& value, const QString& type, int pos)
{
    Node* holder = node(type, pos);
    if (!holder)
        return;
    const auto found = holder->properties.find(key);
    if (found == holder->properties.end()) {
        holder->properties.insert(key, value);
    } else {
        if (found.value() == value)
            return;
        found.value() = value;
    }
    emit changed(type, key, value, pos);
}

void Store::append(const QString& type, const QMap<QString, QVariant>& defaults, const QMap<QString, QVariant>& given)
{
    Node* typeNode = node(type, -1);
    auto* item = new Node(QString());
    for (auto it = defaults.cbegin(); it != defaults.cend(); ++it)
        item->properties.insert(it.key(), it.value());
    for (auto it = given.cbegin(); it != given.cend(); ++it)
        item->properties.insert(it.key(), it.value());
    typeNode->children.append(item);
    emit changed(type, QStringLiteral("item_add"), QVariant(), static_cast<int>(typeNode->children.size()) - 1);
}

} // namespace bareqt
