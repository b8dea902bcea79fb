// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The host's catalogue, the nodes, and what all models share.

#include "referencemodel.h"

namespace reference {

long long writes = 0;

// --- The host's catalogue ---------------------------------------------------------------------------------

namespace {

std::vector<Default> defaultsOf(const EffectDefaultVal* table)
{
    std::vector<Default> defaults;
    for (; table && table->key; ++table)
        defaults.push_back({QString::fromUtf8(table->key), table->defaultValue});
    return defaults;
}

std::vector<SubItem> subItemsOf(const SubEffectItem* table)
{
    std::vector<SubItem> items;
    for (; table && table->name; ++table)
        items.push_back({QString::fromUtf8(table->name), table->id, defaultsOf(table->properties), table});
    return items;
}

std::vector<EffectType> typesOf(const EffectControlItem* table)
{
    std::vector<EffectType> types;
    for (; table && table->name; ++table) {
        types.push_back({QString::fromUtf8(table->name), {}, {}, typesOf(table->children), table});
        if (table->properties)
            types.back().properties = defaultsOf(table->properties);
        if (table->subItems)
            types.back().subItems = subItemsOf(table->subItems);
    }
    return types;
}

} // namespace

Catalogue::Catalogue(const EffectControlItem* hostTable) : types(typesOf(hostTable)), table(hostTable) {}

const EffectType* findType(const std::vector<EffectType>& types, const QString& name)
{
    for (const EffectType& type : types) {
        if (type.name == name)
            return &type;
        if (const EffectType* nested = findType(type.children, name))
            return nested;
    }
    return nullptr;
}

// --- The tree ---------------------------------------------------------------------------------------------

NodePtr Node::create(const QString& name, Node* parent, int pos)
{
    auto node = std::make_shared<Node>();
    node->name = name;
    node->objectName = name;
    if (parent) {
        node->parent = parent->weak_from_this();
        node->hasParent = true;
        parent->insertChild(node, pos);
    }
    return node;
}

Node* Node::child(int row) const
{
    return row >= 0 && row < count() ? children[static_cast<size_t>(row)].get() : nullptr;
}

std::vector<Node*> Node::items() const
{
    std::vector<Node*> items;
    for (const NodePtr& child : children) {
        if (child)
            items.push_back(child.get());
    }
    return items;
}

int Node::childNumber() const
{
    if (!hasParent)
        return 0;
    const NodePtr above = parent.lock();
    for (int row = 0; row < above->count(); ++row) {
        if (above->child(row) == this)
            return row;
    }
    return -1;
}

void Node::insertChild(const NodePtr& node, int pos)
{
    ++writes;
    children.insert(pos >= 0 && pos < count() ? children.begin() + pos : children.end(), node);
}

NodePtr Node::takeAt(int row)
{
    if (row < 0 || row >= count())
        return nullptr;
    ++writes;
    NodePtr taken = children[static_cast<size_t>(row)];
    children.erase(children.begin() + row);
    return taken;
}

bool Node::removeChildren(int pos, int howMany)
{
    if (pos < 0 || static_cast<long long>(pos) + howMany > count())
        return false;
    for (int i = 0; i < howMany; ++i)
        takeAt(pos);
    return true;
}

bool Node::changeItemPos(int to, int from)
{
    if (to < 0 || from < 0 || to == from || to >= count() || from >= count())
        return false;
    const NodePtr moved = takeAt(from);
    children.insert(children.begin() + to, moved);
    return true;
}

void Node::clear()
{
    ++writes;
    children.clear();
}

QVariant Node::data(const QString& key) const
{
    const auto found = properties.constFind(key);
    if (found != properties.cend())
        return found.value();
    return key == QLatin1String("trackid") ? QVariant(-1) : QVariant();
}

QVariant Node::data(int role) const
{
    if (role == 0 || role == 2)
        return objectName;
    return role == 10 ? QVariant(checkState) : QVariant();
}

void Node::setData(const QString& key, const QVariant& value)
{
    ++writes;
    properties.insert(key, value);
}

void Node::delData(const QString& key)
{
    if (properties.remove(key) > 0)
        ++writes;
}

void Node::setCheckState(int state)
{
    if (state != checkState)
        ++writes;
    checkState = state;
}

void Node::take(const QString& key, const QVariant& value)
{
    if (key == QLatin1String("_checkstate"))
        select(toBool(value));
    else
        setData(key, value);
}

void Node::take(const Properties& props)
{
    for (auto it = props.cbegin(); it != props.cend(); ++it)
        take(it.key(), it.value());
}

namespace {

/// Everything but the parent and the children.
void copyFields(Node& target, const Node& source)
{
    target.name = source.name;
    target.objectName = source.objectName;
    target.checkState = source.checkState;
    target.properties = source.properties;
    target.internalData = source.internalData;
}

NodePtr copyUnder(Node* parent, const Node& source)
{
    NodePtr copy = Node::create(QString(), parent);
    copyFields(*copy, source);
    for (const Node* child : source.items())
        copyUnder(copy.get(), *child);
    return copy;
}

} // namespace

void Node::assign(const Node& other)
{
    if (&other == this)
        return;
    ++writes;
    // The source may stand above or below: it is taken over as it is now.
    const NodePtr source = copyUnder(nullptr, other);
    children.clear();
    copyFields(*this, *source);
    for (const NodePtr& child : source->children)
        copyUnder(this, *child);
}

Node* find(Node* start, const QString& name)
{
    if (!start || start->name == name)
        return start;
    for (const NodePtr& child : start->children) {
        if (Node* found = child ? find(child.get(), name) : nullptr)
            return found;
    }
    return nullptr;
}

Node* find(Node* start, const QString& name, int pos)
{
    Node* node = find(start, name);
    return node && pos != -1 ? node->child(pos) : node;
}

int size(const Node& node)
{
    int nodes = 1;
    for (const NodePtr& child : node.children)
        nodes += child ? size(*child) : 1;
    return nodes;
}

// --- What all models share --------------------------------------------------------------------------------

void World::registerTable(const Catalogue* table)
{
    catalogue = table;
    if (!table)
        return log.push_back(25);
    QStringList names;
    for (const EffectType& type : table->types)
        names << type.name;
    if (!names.isEmpty())
        supportTypes = names;
}

const EffectType* World::find(const QString& type) const
{
    return catalogue ? findType(catalogue->types, type) : nullptr;
}

const std::vector<Default>& World::propertiesOf(const QString& type) const
{
    static const std::vector<Default> none;
    const EffectType* record = find(type);
    return record && record->properties ? *record->properties : none;
}

void World::Init()
{
    for (const QString& type : std::as_const(supportTypes)) {
        const QVariant saved = preferences.value(type);
        if (saved.userType() == QMetaType::QVariantMap && !saved.toMap().isEmpty())
            customDefaults.insert(type, saved.toMap());
    }
}

QVariant World::getCustomDefaultVal(const QString& type, const QString& key) const
{
    return customDefaults.value(type).value(key);
}

void World::saveAsCustomDefaultVal(const QString& type, const Properties& values)
{
    if (!customDefaults.contains(type))
        supportTypes << type;
    customDefaults.insert(type, values);
    preferences.insert(type, values);
    preferenceWrites << type;
}

void World::removeCustomDefaultVal(const QString& type)
{
    if (customDefaults.remove(type) == 0)
        return;
    preferences.insert(type, QVariant());
    preferenceWrites << type;
}

QVariant World::defaultValue(const QString& key, const QString& type) const
{
    QVariant custom = getCustomDefaultVal(type, key);
    if (custom.isValid())
        return custom;
    for (const Default& entry : propertiesOf(type)) {
        if (entry.key == key)
            return entry.value;
    }
    return QVariant();
}

} // namespace reference
