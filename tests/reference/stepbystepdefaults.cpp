// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "stepbystepdefaults.h"

#include <algorithm>
#include <cmath>

#include <zoeffectitemdata.h>

#include "signalrecorder.h"

namespace stepbystep {

namespace {

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

QSize baseOf(const Node& root)
{
    return QSize(root.properties.value("w").toInt(), root.properties.value("h").toInt());
}

int product(int size, double factor)
{
    return static_cast<int>(std::trunc(size * factor));
}

void apply(Node& item, const Properties& props)
{
    for (auto it = props.cbegin(); it != props.cend(); ++it) {
        if (it.key() == "_checkstate")
            item.state = it.value().toBool() ? 2 : 0;
        else
            item.properties.insert(it.key(), it.value());
    }
}

bool contains(const Node& watermark, int x, int y)
{
    const int left = watermark.properties.value("wm_hposition").toInt();
    const int top = watermark.properties.value("wm_vposition").toInt();
    int width = watermark.properties.value("wm_imagewidth").toInt();
    const int height = watermark.properties.value("wm_imageheight").toInt();
    if (width == 0 && height == 0)
        width = 30;
    return x >= left && x < left + width && y >= top && y < top + height;
}

/// Every second of the other shown watermarks is asked.
bool takesPlace(const Node& item, const std::vector<Node>& siblings, int x, int y)
{
    if (siblings.size() < 2)
        return true;
    std::vector<const Node*> shown;
    for (const Node& other : siblings) {
        if (&other != &item && other.state == 2)
            shown.push_back(&other);
    }
    std::size_t i = 0;
    while (i < shown.size() && !contains(*shown.at(i), x + 2, y + 2))
        i += 2;
    return i == shown.size();
}

const EffectDefaultVal* propertiesOf(const QString& type, const EffectControlItem* table)
{
    const EffectControlItem* record = findRecord(type, table);
    return record ? record->properties : nullptr;
}

/// Whether items bear the names and values of \a subItems.
bool itemsAreDefault(const std::vector<Node>& items, const SubEffectItem* subItems)
{
    bool same = true;
    for (const Node& item : items) {
        if (!subItems->name || item.name != utf8(subItems->name))
            return false;
        for (const EffectDefaultVal* entry = subItems->properties; entry && entry->key; ++entry) {
            const QString key = utf8(entry->key);
            if (plainlyEqual(item.properties.value(key), entry->defaultValue))
                continue;
            if (key == "_checkstate" && item.state == (entry->defaultValue.toBool() ? 2 : 0))
                continue;
            same = false;
            break;
        }
        ++subItems;
    }
    return same && !subItems->name;
}

} // namespace

// NOLINTNEXTLINE(misc-no-recursion): the plainest form; the trees are small.
Node* find(Node& root, const QString& type)
{
    if (root.name == type)
        return &root;
    for (Node& child : root.children) {
        if (Node* found = find(child, type))
            return found;
    }
    return nullptr;
}

// NOLINTNEXTLINE(misc-no-recursion): the plainest form; the tables are small.
const EffectControlItem* findRecord(const QString& type, const EffectControlItem* table)
{
    for (const EffectControlItem* record = table; record && record->name; ++record) {
        if (type == utf8(record->name))
            return record;
        if (const EffectControlItem* found = findRecord(type, record->children))
            return found;
    }
    return nullptr;
}

bool plainlyEqual(const QVariant& left, const QVariant& right)
{
    return described(left) == described(right);
}

// NOLINTNEXTLINE(misc-no-recursion): the trees are small.
QString difference(const ZoEffectItemData& found, const Node& expected)
{
    if (found.name() != expected.name)
        return QStringLiteral("name %1, not %2").arg(found.name(), expected.name);
    if (found.checkState() != expected.state || found.internalData() != expected.record)
        return QStringLiteral("state or record of %1").arg(found.name());
    if (described(found.properties()) != described(expected.properties)) {
        return QStringLiteral("%1 holds %2, not %3")
            .arg(found.name(), described(found.properties()), described(expected.properties));
    }
    if (found.childCount() != static_cast<int>(expected.children.size()))
        return QStringLiteral("children of %1").arg(found.name());
    for (int row = 0; row < found.childCount(); ++row) {
        QString inChild = difference(*found.child(row), expected.children.at(static_cast<std::size_t>(row)));
        if (!inChild.isEmpty())
            return inChild;
    }
    return QString();
}

Node Defaults::tree(const QStringList& types) const
{
    Node root;
    root.name = "effect root";
    for (const EffectControlItem* record = table; record && record->name; ++record) {
        const QString name = utf8(record->name);
        if (!types.isEmpty() && !types.contains(name))
            continue;
        root.children.emplace_back();
        Node& item = root.children.back();
        item.name = name;
        fill(root, item);
        if (record->subItems)
            addSubItems(item, record->subItems);
        if (name == "Effect")
            orderFrameEffects(root);
    }
    return root;
}

void Defaults::fill(Node& root, Node& item) const
{
    item.state = 2;
    for (const EffectDefaultVal* entry = propertiesOf(item.name, table); entry && entry->key; ++entry)
        item.properties.insert(utf8(entry->key), entry->defaultValue);
    if (item.name != "Crop" && item.name != "Watermark")
        layOver(root, item, item.name, false, {});
}

void Defaults::addSubItems(Node& item, const SubEffectItem* subItems)
{
    for (const SubEffectItem* record = subItems; record->name; ++record) {
        Node child;
        child.name = utf8(record->name);
        child.properties.insert("id", record->id);
        for (const EffectDefaultVal* entry = record->properties; entry && entry->key; ++entry) {
            if (utf8(entry->key) == "_checkstate")
                child.state = entry->defaultValue.toBool() ? 2 : 0;
            else
                child.properties.insert(utf8(entry->key), entry->defaultValue);
        }
        child.record = record;
        item.children.push_back(child);
    }
}

void Defaults::orderFrameEffects(Node& root) const
{
    const QString summary = saved.value("Effect").value("Effect").toString();
    Node* effect = find(root, "Effect");
    if (summary.isEmpty() || !effect)
        return;
    const QStringList parts = summary.split('|');
    std::vector<Node>& children = effect->children;
    if (children.empty() || static_cast<std::size_t>(parts.size()) != 2 * children.size())
        return;
    for (std::size_t i = 0; i < children.size(); ++i) {
        const QString name = parts.at(static_cast<int>(2 * i));
        const auto found =
            std::find_if(children.begin(), children.end(), [&](const Node& child) { return child.name == name; });
        if (found == children.end())
            return;
        Node moved = *found;
        children.erase(found);
        children.insert(children.begin() + static_cast<std::ptrdiff_t>(i), moved);
        children.at(i).state = parts.at(static_cast<int>(2 * i + 1)) == "true" ? 2 : 0;
    }
}

void Defaults::reset(Node& root, const QString& type) const
{
    Node* item = find(root, type);
    if (!item)
        return;
    item->children.clear();
    const EffectControlItem* record = findRecord(type, table);
    if (record && record->subItems)
        addSubItems(*item, record->subItems);
    fill(root, *item);
    if (type == "Effect")
        orderFrameEffects(root);
}

void Defaults::insert(Node& root, const QString& type, const Properties& props, int pos) const
{
    Node* typeNode = find(root, type);
    if (!typeNode)
        return;
    const auto count = static_cast<int>(typeNode->children.size());
    const int row = pos >= 0 && pos < count ? pos : count;
    Node& item = *typeNode->children.insert(typeNode->children.begin() + row, Node());
    for (const EffectDefaultVal* entry = propertiesOf(type, table); entry && entry->key; ++entry) {
        const QString key = utf8(entry->key);
        if (key != "sub_vposfactor" && key != "wm_vposfactor" && key != "wm_hposfactor")
            item.properties.insert(key, entry->defaultValue);
    }
    if (type == "Watermark" && props.contains("wm_istextwatermark"))
        item.properties.insert("wm_istextwatermark", props.value("wm_istextwatermark"));
    if (type == "Subtitle" && props.contains("sub_fromfile"))
        item.properties.insert("sub_fromfile", props.value("sub_fromfile"));
    if (saved.contains(type))
        layOver(root, item, type, false, typeNode->children);
    else if (type == "Watermark")
        place(root, item);
    apply(item, props);
}

bool Defaults::replace(Node& root, const QString& type, int pos, const Properties& props) const
{
    Node* typeNode = find(root, type);
    if (!typeNode || pos < 0 || pos >= static_cast<int>(typeNode->children.size()))
        return false;
    Node& item = typeNode->children.at(static_cast<std::size_t>(pos));
    for (const EffectDefaultVal* entry = propertiesOf(type, table); entry && entry->key; ++entry)
        item.properties.insert(utf8(entry->key), entry->defaultValue);
    if (saved.contains(type))
        layOver(root, item, type, false, typeNode->children);
    else if (type == "Watermark")
        place(root, item);
    if (type == "Subtitle")
        item.properties.insert("dvdsubtitleposeditbyuser", false);
    apply(item, props);
    return true;
}

void Defaults::place(const Node& root, Node& item) const
{
    const QSize base = baseOf(root);
    item.properties.insert("wm_vposition", product(base.height(), value("Watermark", "wm_vposfactor").toDouble()));
    item.properties.insert("wm_hposition", product(base.width(), value("Watermark", "wm_hposfactor").toDouble()));
}

void Defaults::layOver(Node& root, Node& item, const QString& type, bool direct,
                       const std::vector<Node>& siblings) const
{
    const Properties values = saved.value(type);
    if (values.isEmpty())
        return;
    const bool isText = item.properties.value("wm_istextwatermark").toBool();
    const bool isFile = item.properties.value("sub_fromfile").toBool();
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const QString key = it.key();
        bool applies = true;
        if (type == "Watermark")
            applies = isText ? key != "wm_hposfactor" && key != "wm_vposfactor" : key == "wm_transparency";
        else if (type == "Subtitle")
            applies = isFile || key == "sub_transparency";
        if (applies)
            item.properties.insert(key, it.value());
    }
    if (type == "Watermark" && values.contains("wm_hposfactor") && values.contains("wm_vposfactor")) {
        const int x = product(baseOf(root).width(), values.value("wm_hposfactor").toDouble());
        const int y = product(baseOf(root).height(), values.value("wm_vposfactor").toDouble());
        if (direct || takesPlace(item, siblings, x, y)) {
            item.properties.insert("wm_hposition", x);
            item.properties.insert("wm_vposition", y);
        }
    }
    if (type != "Watermark" && type != "Subtitle")
        root.properties.insert("editbydefault", true);
}

QVariant Defaults::value(const QString& type, const QString& key) const
{
    QVariant custom = saved.value(type).value(key);
    if (custom.isValid())
        return custom;
    for (const EffectDefaultVal* entry = propertiesOf(type, table); entry && entry->key; ++entry) {
        if (utf8(entry->key) == key)
            return entry->defaultValue;
    }
    return QVariant();
}

bool Defaults::isDefault(const Node& root, const QString& type, const QString& key, int pos) const
{
    const Node* typeNode = find(const_cast<Node&>(root), type);
    if (!typeNode || pos < -1 || pos >= static_cast<int>(typeNode->children.size()))
        return true;
    const Node& item = pos == -1 ? *typeNode : typeNode->children.at(static_cast<std::size_t>(pos));
    if (type == "Watermark" && key == "wm_hposition")
        return value(type, "wm_hposfactor").toDouble() * baseOf(root).width() == item.properties.value(key).toInt();
    if (type == "Watermark" && key == "wm_vposition")
        return value(type, "wm_vposfactor").toDouble() * baseOf(root).height() == item.properties.value(key).toInt();
    for (const EffectDefaultVal* entry = propertiesOf(type, table); entry && entry->key; ++entry) {
        if (utf8(entry->key) == key)
            return plainlyEqual(item.properties.value(key), value(type, key));
    }
    return true;
}

bool Defaults::isDefault(const Node& root, const QString& type) const
{
    const EffectControlItem* record = findRecord(type, table);
    const Node* typeNode = find(const_cast<Node&>(root), type);
    if (!record || !typeNode)
        return true;
    if (record->properties) {
        for (const EffectDefaultVal* entry = record->properties; entry->key; ++entry) {
            const QString key = utf8(entry->key);
            const QVariant custom = saved.value(type).value(key);
            if (!plainlyEqual(typeNode->properties.value(key), custom.isValid() ? custom : entry->defaultValue))
                return false;
        }
        return true;
    }
    if (type == "Effect" && saved.contains("Effect"))
        return frameEffectsAreDefault(root);
    return !record->subItems || itemsAreDefault(typeNode->children, record->subItems);
}

bool Defaults::frameEffectsAreDefault(const Node& root) const
{
    const QString summary = saved.value("Effect").value("Effect").toString();
    const std::vector<Node>& children = find(const_cast<Node&>(root), "Effect")->children;
    const QStringList parts = summary.split('|');
    if (summary.isEmpty() || children.empty() || static_cast<std::size_t>(parts.size()) != 2 * children.size())
        return true;
    for (std::size_t i = 0; i < children.size(); ++i) {
        const int state = parts.at(static_cast<int>(2 * i + 1)) == "true" ? 2 : 0;
        if (children.at(i).name != parts.at(static_cast<int>(2 * i)) || children.at(i).state != state)
            return false;
    }
    return true;
}

} // namespace stepbystep
