#include "zoeffectmodel.h"

#include <QVector>

#include "catalogue_p.h"
#include "effectnames_p.h"
#include "modelevents_p.h"
#include "qtcompat_p.h"
#include "treecheck_p.h"
#include "zoeffectcatalogue.h"

ZoEffectItemData* ZoEffectModel::findDataItem(const ZoEffectItemData* start, const QString& type) const
{
    if (!start) {
        logEvent(ModelEvent::LookupFromNull);
        return nullptr;
    }

    // Depth first, in the order of the lists. Trees can be deep: the walk keeps its own stack.
    QVector<const ZoEffectItemData*> pending{start};
    while (!pending.isEmpty()) {
        const ZoEffectItemData* node = pending.takeLast();
        if (node->name() == type)
            return const_cast<ZoEffectItemData*>(node);
        for (int row = node->childCount() - 1; row >= 0; --row) {
            if (const ZoEffectItemData* child = node->child(row))
                pending.append(child);
        }
    }
    return nullptr;
}

ZoEffectItemData* ZoEffectModel::findDataItem(const ZoEffectItemData* start, const QString& type, int pos) const
{
    if (!start) {
        logEvent(ModelEvent::LookupFromNullWithPosition);
        return nullptr;
    }
    ZoEffectItemData* node = findDataItem(start, type);
    return !node || pos == -1 ? node : node->child(pos);
}

ZoEffectItemData* ZoEffectModel::findDataItem(const QString& type, int pos) const
{
    return findDataItem(&m_root, type, pos);
}

ZoEffectItemData* ZoEffectModel::getDataItem(const QString& type, int pos) const
{
    return findDataItem(type, pos);
}

int ZoEffectModel::childCount(const QString& type) const
{
    const ZoEffectItemData* node = findDataItem(type, -1);
    if (!node) {
        logEvent(ModelEvent::NoSuchTypeToCount);
        return 0;
    }
    return node->childCount();
}

QVariant ZoEffectModel::data(const QString& key, const QString& type, int pos) const
{
    const ZoEffectItemData* node = findDataItem(type, pos);
    if (!node)
        return QVariant();
    if (key == keys::checkState)
        return node->checkState();

    // Until the user has set it, a subtitle's position follows the height of the video.
    if (key == keys::subVPosition && type == types::subtitle
        && !qtcompat::toBool(node->data(keys::subPositionEditedByUser))) {
        const int height = baseSize().height();
        if (height != 0)
            return height * qtcompat::toDouble(defaultValue(keys::subVPosFactor, types::subtitle));
    }
    return node->data(key);
}

bool ZoEffectModel::setData(const QString& key, const QVariant& value, const QString& type, int pos)
{
    const TreeCheck check(m_root);
    ZoEffectItemData* node = findDataItem(type, pos);
    if (!node) {
        logEvent(ModelEvent::NoSuchNodeToSet);
        return false;
    }

    const bool isCheckState = key == keys::checkState;
    const int state = isCheckState ? catalogue::checkStateFor(value) : node->checkState();
    const bool changes = isCheckState ? state != node->checkState() : !qtcompat::equal(node->data(key), value);
    if (!changes)
        return true;

    // The arguments may refer into the tree, which this call and its listeners change.
    const QString changedKey = key;
    const QVariant changedValue = value;
    const QString changedType = type;
    if (isCheckState)
        node->setCheckState(state);
    else
        node->setData(changedKey, changedValue);
    if (changedType == types::subtitle && changedKey == keys::subVPosition)
        node->setData(keys::subPositionEditedByUser, true);
    emit effectDataChanged(changedType, changedKey, changedValue, pos);
    return true;
}

QVariant ZoEffectModel::defaultValue(const QString& key, const QString& type)
{
    QVariant custom = customDefaultVal(key, type);
    if (custom.isValid())
        return custom;
    const EffectDefaultVal* entry = catalogue::property(catalogue::properties(type), key);
    return entry ? entry->defaultValue : QVariant();
}

// A listener may change what the arguments refer to; every listener gets them as they were: hence the copies.

void ZoEffectModel::setCurrentItem(const QString& type)
{
    const TreeCheck check(m_root);
    const QString ownType = type;
    emit currentItemChanged(ownType);
}

void ZoEffectModel::setCurrentSubItem(const QString& type, int index)
{
    const TreeCheck check(m_root);
    const QString ownType = type;
    emit currentSubItemChanged(ownType, index);
}

void ZoEffectModel::beginChange(const QString& type)
{
    const TreeCheck check(m_root);
    const QString ownType = type;
    emit effectDataAboutChange(ownType);
}

void ZoEffectModel::endChanged(const QString& type)
{
    const TreeCheck check(m_root);
    const QString ownType = type;
    emit effectDataChanged(ownType);
}
