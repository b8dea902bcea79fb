// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include "catalogue_p.h"
#include "effectnames_p.h"
#include "firstnodes_p.h"
#include "modelevents_p.h"
#include "qtcompat_p.h"
#include "treecheck_p.h"
#include "zoeffectcatalogue.h"

namespace {

ZoEffectItemData* nodeAt(ZoEffectItemData* typeNode, int pos)
{
    return !typeNode || pos == -1 ? typeNode : typeNode->child(pos);
}

} // namespace

ZoEffectItemData* ZoEffectModel::findDataItem(const ZoEffectItemData* start, const QString& type) const
{
    if (!start) {
        modelevents::log(ModelEvent::LookupFromNull);
        return nullptr;
    }

    return start == &m_root ? m_root.m_firstNodes->find(m_root, type) : firstNode(*start, type);
}

ZoEffectItemData* ZoEffectModel::findDataItem(const ZoEffectItemData* start, const QString& type, int pos) const
{
    if (!start) {
        modelevents::log(ModelEvent::LookupFromNullWithPosition);
        return nullptr;
    }
    return nodeAt(findDataItem(start, type), pos);
}

ZoEffectItemData* ZoEffectModel::findDataItem(const QString& type, int pos) const
{
    return nodeAt(findDataItem(&m_root, type), pos);
}

ZoEffectItemData* ZoEffectModel::getDataItem(const QString& type, int pos) const
{
    return findDataItem(type, pos);
}

int ZoEffectModel::childCount(const QString& type) const
{
    const ZoEffectItemData* node = findDataItem(type, -1);
    if (!node) {
        modelevents::log(ModelEvent::NoSuchTypeToCount);
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
        modelevents::log(ModelEvent::NoSuchNodeToSet);
        return false;
    }

    const bool isCheckState = key == keys::checkState;
    const bool isEqual =
        isCheckState ? catalogue::checkStateFor(value) == node->checkState() : qtcompat::equal(node->data(key), value);
    if (isEqual)
        return true;

    // The arguments may refer into the tree, which this call and its listeners change.
    const QString changedKey = key;
    const QVariant changedValue = value;
    const QString changedType = type;
    if (isCheckState)
        node->setCheckState(catalogue::checkStateFor(changedValue));
    else
        node->setData(changedKey, changedValue);
    if (changedKey == keys::subVPosition && changedType == types::subtitle)
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
