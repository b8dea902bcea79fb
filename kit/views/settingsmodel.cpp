// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "settingsmodel_p.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>
#include <QMimeData>
#include <QSet>

#include <zokit/graph.h>

#include "names_p.h"
#include "things_p.h"

// The structure: which rows there are, how they follow the file, how they move. What they say is in
// settingsmodel_data.cpp.

namespace zokit {

namespace {

const QString mimeType = QStringLiteral("application/x-zoeffect-item");

} // namespace

SettingsModel::Private::Private(SettingsModel* model) : q(model)
{
    for (const QString& name : shownTypes()) {
        auto type = std::make_unique<SettingsNode>();
        type->type = name;
        type->parent = &root;
        root.children.push_back(std::move(type));
    }
}

SettingsNode* SettingsModel::Private::node(const QModelIndex& index) const
{
    return index.isValid() && index.model() == q ? static_cast<SettingsNode*>(index.internalPointer()) : nullptr;
}

QModelIndex SettingsModel::Private::index(const SettingsNode* node, int column) const
{
    return node && node->parent ? q->createIndex(node->row(), column, const_cast<SettingsNode*>(node)) : QModelIndex();
}

SettingsNode* SettingsModel::Private::find(Identity thing) const
{
    if (!file || thing == 0)
        return nullptr;
    for (const std::unique_ptr<SettingsNode>& type : root.children) {
        if (type->thing == thing)
            return type.get();
        if (SettingsNode* item = type->item(thing))
            return item;
    }
    return nullptr;
}

SettingsNode* SettingsModel::Private::listAt(const QModelIndex& index) const
{
    SettingsNode* type = file ? node(index) : nullptr;
    return type && type->parent == &root && hasItems(type->type) ? type : nullptr;
}

void SettingsModel::Private::fill()
{
    for (const std::unique_ptr<SettingsNode>& type : root.children) {
        type->children.clear();
        if (!file)
            continue;
        type->thing = file->thing({type->type, Address::ofType, QString()});
        for (const Identity item : file->items(type->type))
            type->children.push_back(itemNode(*file, item, *type));
        appendValues(*type);
    }
}

/// Step by step, and looking at the file before each: whoever listens to one may have changed it.
void SettingsModel::Private::bringItems(SettingsNode& type)
{
    while (file) {
        const QVector<Identity> wanted = file->items(type.type);
        const ItemStep step = nextStep(type.items(), wanted);
        const auto begin = type.children.begin();
        const QModelIndex parent = index(&type);
        switch (step.kind) {
        case ItemStep::Kind::None:
            return;
        case ItemStep::Kind::Remove:
            q->beginRemoveRows(parent, step.row, step.row);
            type.children.erase(begin + step.row);
            q->endRemoveRows();
            break;
        case ItemStep::Kind::Insert:
            q->beginInsertRows(parent, step.row, step.row);
            type.children.insert(begin + step.row, itemNode(*file, wanted.at(step.row), type));
            q->endInsertRows();
            break;
        case ItemStep::Kind::Move:
            q->beginMoveRows(parent, step.row, step.row, parent, step.to > step.row ? step.to + 1 : step.to);
            if (step.to > step.row)
                std::rotate(begin + step.row, begin + step.row + 1, begin + step.to + 1);
            else
                std::rotate(begin + step.to, begin + step.row, begin + step.row + 1);
            q->endMoveRows();
            break;
        }
    }
}

/// An item that has become one of another kind has other values.
void SettingsModel::Private::bringValues(Identity item)
{
    SettingsNode* node = find(item);
    if (!node || !node->isItem)
        return;
    const Suit suit = suitNow(*file, node->type, item);
    if (suit == node->suit)
        return;
    node->suit = suit;
    if (!node->children.empty()) {
        q->beginRemoveRows(index(node), 0, node->childCount() - 1);
        node->children.clear();
        q->endRemoveRows();
    }
    node = find(item);
    if (!node || !node->children.empty())
        return;
    SettingsNode fresh = {node->type, item, true, nullptr, node->suit, node, {}};
    appendValues(fresh);
    if (fresh.children.empty())
        return;
    q->beginInsertRows(index(node), 0, fresh.childCount() - 1);
    node->children = std::move(fresh.children);
    for (const std::unique_ptr<SettingsNode>& value : node->children)
        value->parent = node;
    q->endInsertRows();
}

void SettingsModel::Private::tellRow(const SettingsNode& node)
{
    emit q->dataChanged(index(&node, NameColumn), index(&node, ValueColumn));
}

void SettingsModel::Private::tellValues(const SettingsNode& node)
{
    const int first = node.itemCount();
    if (first < node.childCount())
        emit q->dataChanged(index(node.child(first), NameColumn),
                            index(node.child(node.childCount() - 1), ValueColumn));
}

void SettingsModel::Private::tellChanged(const SettingsNode& node, const QStringList& keys)
{
    const SettingsNode* first = nullptr;
    const SettingsNode* last = nullptr;
    for (const std::unique_ptr<SettingsNode>& value : node.children) {
        if (!value->property || !keys.contains(value->property->key))
            continue;
        first = first ? first : value.get();
        last = value.get();
    }
    if (first)
        emit q->dataChanged(index(first, NameColumn), index(last, ValueColumn));
}

void SettingsModel::Private::tellType(const SettingsNode& type)
{
    tellRow(type);
    tellValues(type);
    const int count = type.itemCount();
    if (count > 0)
        emit q->dataChanged(index(type.child(0), NameColumn), index(type.child(count - 1), ValueColumn));
    for (const Identity item : type.items()) {
        if (const SettingsNode* node = type.item(item))
            tellValues(*node);
    }
}

void SettingsModel::Private::follow(const Changes& changes)
{
    for (const std::unique_ptr<SettingsNode>& type : root.children)
        bringItems(*type);
    QMap<Identity, QStringList> touched;
    for (const Change& change : changes)
        touched[change.thing].append(change.key);
    for (auto it = touched.cbegin(); it != touched.cend(); ++it)
        bringValues(it.key());

    // The frame decides on bounds and defaults of all, also when it stands otherwise.
    const QSize before = frame;
    if (file)
        frame = baseFrame(file->settings());
    if (frame != before) {
        q->refreshDefaults();
        return;
    }
    QSet<SettingsNode*> types;
    for (auto it = touched.cbegin(); it != touched.cend(); ++it) {
        SettingsNode* node = find(it.key());
        if (!node)
            continue;
        types.insert(node->isItem ? node->parent : node);
        // Whether the frame is whole, and where a watermark begins, is not one value's to say.
        if (node->type == types::crop || node->type == types::watermark)
            continue;
        tellChanged(*node, it.value());
        node = find(it.key()); // Whoever listens may have removed it.
        if (node && node->isItem)
            tellRow(*node);
    }
    for (const SettingsNode* type : std::as_const(types)) {
        if (!file)
            return;
        if (type->type == types::crop || type->type == types::watermark)
            tellType(*type);
        else
            tellRow(*type);
    }
}

bool SettingsModel::Private::move(SettingsNode& type, int from, int before)
{
    const int count = type.itemCount();
    const int to = before > from ? before - 1 : before;
    if (from < 0 || from >= count || before < 0 || before > count || to == from)
        return false;
    const Identity item = type.child(from)->thing;
    const QModelIndex asked = index(type.child(from));
    const Message error = file->move(item, to, q);
    if (!error.isEmpty())
        emit q->refused(error, asked);
    return error.isEmpty();
}

QByteArray SettingsModel::Private::dragged(Identity item) const
{
    // The same identity means another item elsewhere.
    return QByteArray::number(QCoreApplication::applicationPid()) + ' '
           + QByteArray::number(reinterpret_cast<quintptr>(q)) + ' ' + QByteArray::number(item);
}

Identity SettingsModel::Private::dragged(const QMimeData* data) const
{
    const QByteArray words = data ? data->data(mimeType) : QByteArray();
    const Identity item = words.mid(words.lastIndexOf(' ') + 1).toULongLong();
    return words == dragged(item) ? item : 0;
}

SettingsModel::SettingsModel(QObject* parent) : QAbstractItemModel(parent), d(std::make_unique<Private>(this)) {}

SettingsModel::~SettingsModel() = default;

void SettingsModel::setFile(FileSettings* file)
{
    if (file == d->file && file)
        return;
    beginResetModel();
    if (d->file)
        d->file->disconnect(this);
    d->file = file;
    d->frame = file ? baseFrame(file->settings()) : QSize();
    d->fill();
    if (file) {
        connect(file, &FileSettings::changed, this, [this](const Changes& changes) { d->follow(changes); });
        connect(file, &QObject::destroyed, this, [this] { setFile(nullptr); });
    }
    endResetModel();
}

FileSettings* SettingsModel::file() const
{
    return d->file;
}

QModelIndex SettingsModel::indexOf(Identity thing, const QString& key, int column) const
{
    const SettingsNode* node = d->find(thing);
    if (!node || key.isEmpty())
        return d->index(node, column);
    for (const std::unique_ptr<SettingsNode>& value : node->children) {
        if (value->property && value->property->key == key)
            return d->index(value.get(), column);
    }
    return QModelIndex();
}

QModelIndex SettingsModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return QModelIndex();
    const SettingsNode* above = parent.isValid() ? d->node(parent) : &d->root;
    return createIndex(row, column, above->child(row));
}

QModelIndex SettingsModel::parent(const QModelIndex& child) const
{
    const SettingsNode* node = d->node(child);
    return node ? d->index(node->parent) : QModelIndex();
}

int SettingsModel::rowCount(const QModelIndex& parent) const
{
    if (!d->file || parent.column() > 0)
        return 0;
    const SettingsNode* node = parent.isValid() ? d->node(parent) : &d->root;
    return node ? node->childCount() : 0;
}

int SettingsModel::columnCount(const QModelIndex& /*parent*/) const
{
    return ValueColumn + 1;
}

QStringList SettingsModel::mimeTypes() const
{
    return {mimeType};
}

QMimeData* SettingsModel::mimeData(const QModelIndexList& indexes) const
{
    QSet<Identity> items;
    for (const QModelIndex& index : indexes) {
        const SettingsNode* node = d->node(index);
        items.insert(node && node->isItem && !node->property ? node->thing : 0);
    }
    if (items.size() != 1 || items.contains(0))
        return nullptr;
    auto* data = new QMimeData;
    data->setData(mimeType, d->dragged(*items.cbegin()));
    return data;
}

Qt::DropActions SettingsModel::supportedDropActions() const
{
    return Qt::MoveAction;
}

bool SettingsModel::canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int /*column*/,
                                    const QModelIndex& parent) const
{
    const SettingsNode* type = d->listAt(parent);
    return type && action == Qt::MoveAction && row <= type->itemCount() && type->item(d->dragged(data));
}

bool SettingsModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                 const QModelIndex& parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    SettingsNode* type = d->listAt(parent);
    return d->move(*type, type->item(d->dragged(data))->row(), row < 0 ? type->itemCount() : row);
}

bool SettingsModel::moveRows(const QModelIndex& sourceParent, int sourceRow, int count,
                             const QModelIndex& destinationParent, int destinationChild)
{
    SettingsNode* type = d->listAt(sourceParent);
    return type && count == 1 && type == d->listAt(destinationParent) && d->move(*type, sourceRow, destinationChild);
}

void SettingsModel::refreshDefaults()
{
    for (const std::unique_ptr<SettingsNode>& type : d->root.children) {
        if (d->file)
            d->tellType(*type);
    }
}

} // namespace zokit
