// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectitemdata.h"

#include <utility>

#include <QVarLengthArray>
#include <QVector>

#include "effectnames_p.h"
#include "firstnodes_p.h"
#include "treecheck_p.h"

namespace {

constexpr int missingTrackId = -1;

using Children = QList<ZoEffectItemData*>;

bool isPosition(int position, const Children& children)
{
    return position >= 0 && position < children.size();
}

} // namespace

ZoEffectItemData::ZoEffectItemData(const QString& name, ZoEffectItemData* parent, int pos)
    : QObject(nullptr), m_parent(parent), m_name(name)
{
    setObjectName(name);
    if (parent)
        parent->place(this, pos);
}

ZoEffectItemData::ZoEffectItemData(const ZoEffectItemData& other) : ZoEffectItemData(QString())
{
    assign(other);
}

ZoEffectItemData::~ZoEffectItemData()
{
    clear();
}

ZoEffectItemData& ZoEffectItemData::assign(const ZoEffectItemData& other)
{
    return *this = other;
}

ZoEffectItemData& ZoEffectItemData::operator=(const ZoEffectItemData& other)
{
    if (this == &other)
        return *this;
    const TreeCheck check(*this);

    // The copy is complete before anything of this node changes, since other may stand above or below it.
    // Trees can be deep: the walk keeps its own list of nodes to do instead of calling itself.
    Children copies;
    QVector<std::pair<const ZoEffectItemData*, ZoEffectItemData*>> pending;
    const auto copyChildren = [this, &pending](const ZoEffectItemData& source, ZoEffectItemData* parent,
                                               Children& target) {
        target.reserve(source.m_children.size());
        for (const ZoEffectItemData* child : source.m_children) {
            if (!child)
                continue;
            auto* copy = new ZoEffectItemData(QString());
            copy->m_parent = parent;
            copy->m_firstNodes = m_firstNodes;
            copy->takeOverFields(*child);
            target.append(copy);
            if (!child->m_children.isEmpty())
                pending.append({child, copy});
        }
    };
    copyChildren(other, this, copies);
    while (!pending.isEmpty()) {
        const auto [source, copy] = pending.takeLast();
        copyChildren(*source, copy, copy->m_children);
    }

    // Told before and after: taking over the object name may call a listener, who may look nodes up.
    countChange();
    takeOverFields(other);
    m_children.swap(copies);
    countChange();

    // The old children go with a node of their own, last: other may be one of them.
    ZoEffectItemData oldChildren{QString()};
    oldChildren.m_children.swap(copies);
    return *this;
}

void ZoEffectItemData::takeOverFields(const ZoEffectItemData& other)
{
    m_properties = other.m_properties;
    m_checkState = other.m_checkState;
    m_name = other.m_name;
    m_internalData = other.m_internalData;
    setObjectName(other.objectName());
}

ZoEffectItemData* ZoEffectItemData::parent() const
{
    return m_parent;
}

int ZoEffectItemData::childCount() const
{
    return static_cast<int>(m_children.size());
}

ZoEffectItemData* ZoEffectItemData::child(int row) const
{
    return isPosition(row, m_children) ? m_children.at(row) : nullptr;
}

int ZoEffectItemData::childNumber() const
{
    if (!m_parent)
        return 0;
    return static_cast<int>(m_parent->m_children.indexOf(const_cast<ZoEffectItemData*>(this)));
}

void ZoEffectItemData::appendChild(ZoEffectItemData* child)
{
    treecheck::noteHostEdit();
    place(child, -1);
}

void ZoEffectItemData::insertChild(ZoEffectItemData* child, int pos)
{
    treecheck::noteHostEdit();
    place(child, pos);
}

void ZoEffectItemData::place(ZoEffectItemData* child, int pos)
{
    if (isPosition(pos, m_children))
        m_children.insert(pos, child);
    else
        m_children.append(child);
    countChange();
    if (child && m_firstNodes)
        child->comeInto(m_firstNodes);
}

void ZoEffectItemData::comeInto(const std::shared_ptr<FirstNodes>& tree)
{
    QVarLengthArray<ZoEffectItemData*, 16> pending{this};
    while (!pending.isEmpty()) {
        ZoEffectItemData* node = pending.last();
        pending.removeLast();
        if (node->m_firstNodes) { // Then the nodes below it have come into that tree, too.
            if (node->m_firstNodes != tree)
                tree->keepNothing();
            continue;
        }
        node->m_firstNodes = tree;
        for (ZoEffectItemData* child : std::as_const(node->m_children)) {
            if (child)
                pending.append(child);
        }
    }
}

void ZoEffectItemData::countChange() const
{
    if (m_firstNodes)
        m_firstNodes->countChange();
}

ZoEffectItemData* ZoEffectItemData::takeAt(int row)
{
    if (!isPosition(row, m_children))
        return nullptr;
    countChange();
    return m_children.takeAt(row);
}

bool ZoEffectItemData::removeChildren(int pos, int count)
{
    if (pos < 0 || qint64(pos) + count > m_children.size())
        return false;
    // All are out of the list before the first is deleted: whoever is told of that may change the list.
    Children removed;
    for (int i = 0; i < count; ++i)
        removed.append(m_children.takeAt(pos));
    countChange();
    qDeleteAll(removed);
    return true;
}

bool ZoEffectItemData::changeItemPos(int to, int from)
{
    if (to == from || !isPosition(to, m_children) || !isPosition(from, m_children))
        return false;
    m_children.move(from, to);
    countChange();
    return true;
}

void ZoEffectItemData::clear()
{
    const TreeCheck check(*this);
    if (m_children.isEmpty())
        return;
    countChange();
    // Trees can be deep: all descendants are gathered, parents first, and deleted one by one from the end.
    QVector<ZoEffectItemData*> doomed;
    const auto gather = [&doomed](Children& children) {
        const Children taken = std::exchange(children, {});
        for (ZoEffectItemData* child : taken) {
            if (child)
                doomed.append(child);
        }
    };
    gather(m_children);
    for (int i = 0; i < doomed.size(); ++i)
        gather(doomed.at(i)->m_children);
    while (!doomed.isEmpty())
        delete doomed.takeLast();
    countChange(); // Whoever was told of a deletion may have looked nodes up meanwhile.
}

QVariant ZoEffectItemData::data(const QString& key) const
{
    const auto found = m_properties.constFind(key);
    if (found != m_properties.cend())
        return found.value();
    return key == keys::trackId ? QVariant(missingTrackId) : QVariant();
}

QVariant ZoEffectItemData::data(int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return objectName();
    case Qt::CheckStateRole:
        return m_checkState;
    default:
        return QVariant();
    }
}

bool ZoEffectItemData::hasData(const QString& key) const
{
    return m_properties.contains(key);
}

void ZoEffectItemData::setData(const QString& key, const QVariant& value)
{
    m_properties.insert(key, value);
}

void ZoEffectItemData::delData(const QString& key)
{
    const QString ownKey = key; // key may be the one in the map.
    m_properties.remove(ownKey);
}

void* ZoEffectItemData::internalData() const
{
    return m_internalData;
}

void ZoEffectItemData::setInternalData(void* data)
{
    m_internalData = data;
}

QString ZoEffectItemData::name() const
{
    return m_name;
}

int ZoEffectItemData::checkState() const
{
    return m_checkState;
}

void ZoEffectItemData::setCheckState(int state)
{
    m_checkState = state;
}

const QMap<QString, QVariant>& ZoEffectItemData::properties() const
{
    return m_properties;
}
