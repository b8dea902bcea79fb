// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include <new>

#include <QPointer>
#include <QVector>

#include "catalogue_p.h"
#include "effectnames_p.h"
#include "modelevents_p.h"
#include "nodevalues_p.h"
#include "qtcompat_p.h"
#include "scaling_p.h"
#include "treecheck_p.h"
#include "zoeffectcatalogue.h"

using nodevalues::flag;
using nodevalues::number;
using nodevalues::storeIfGiven;

namespace {

using Properties = QMap<QString, QVariant>;

/// Deliberate: a new item never receives the position factors from the catalogue.
bool isPositionFactor(const QString& key)
{
    return key == keys::subVPosFactor || key == keys::wmVPosFactor || key == keys::wmHPosFactor;
}

void storeDefaultsOfNewItem(ZoEffectItemData& item, const QString& type)
{
    for (const EffectDefaultVal* entry = catalogue::properties(type); entry && entry->key; ++entry) {
        const QString key = catalogue::text(entry->key);
        if (!isPositionFactor(key))
            item.setData(key, entry->defaultValue);
    }
}

/// Lays the custom default over \a item; a watermark without one is placed by the factors of the catalogue.
void applyCustomDefaultOrFactors(ZoEffectModel& model, ZoEffectItemData& item, const QString& type)
{
    if (model.hasCustomDefault(type)) {
        model.getCustomDefaultVal(&item, type, false);
    } else if (type == types::watermark) {
        const QSize base = model.baseSize();
        const auto factor = [&](const QString& key) {
            return qtcompat::toDouble(ZoEffectModel::defaultValue(key, type));
        };
        item.setData(keys::wmVPosition, scaling::scaled(base.height(), factor(keys::wmVPosFactor)));
        item.setData(keys::wmHPosition, scaling::scaled(base.width(), factor(keys::wmHPosFactor)));
    }
}

/// Stores in the subtitle \a item what \a props hold for it, sizes and positions carried from the video
/// height in \a props to \a height. Answers the number of style keys that such a track takes.
int spreadStyle(ZoEffectItemData& item, const Properties& props, int height)
{
    const bool fromFile = flag(item, keys::subFromFile);
    const char* const* styleKeys = fromFile ? keysforfromFile : keysforDVD;
    const auto keyCount = static_cast<int>(fromFile ? std::size(keysforfromFile) : std::size(keysforDVD));
    const int oldHeight = qtcompat::toInt(props.value(keys::baseHeight));

    for (int i = 0; i < keyCount; ++i) {
        const QString key = QString::fromUtf8(styleKeys[i]);
        const auto found = props.constFind(key);
        if (found == props.cend())
            continue;
        const bool scales = key == keys::subFontSize || key == keys::subVPosition;
        if (scales && height != 0 && oldHeight != 0)
            item.setData(key, scaling::scaled(qtcompat::toInt(found.value()), double(height) / oldHeight));
        else
            item.setData(key, found.value());
    }
    return keyCount;
}

/// Removes the tracks from files at the end of \a typeNode, up to the last embedded one. Deliberate: a file
/// track that stands before an embedded one stays. The first track left is selected.
void resetTracks(ZoEffectItemData& typeNode, const QString& fileFlag)
{
    typeNode.setCheckState(Qt::Checked);
    for (int row = typeNode.childCount() - 1; row >= 0; --row) {
        const ZoEffectItemData* track = typeNode.child(row);
        if (!track)
            continue;
        if (!flag(*track, fileFlag))
            break;
        typeNode.removeChildren(row, 1);
    }
    int state = Qt::Checked;
    for (int row = 0; row < typeNode.childCount(); ++row) {
        if (ZoEffectItemData* track = typeNode.child(row)) {
            track->setCheckState(state);
            state = Qt::Unchecked;
        }
    }
}

} // namespace

bool ZoEffectModel::insertDataItem(const QString& type, const QMap<QString, QVariant>& props, int pos)
{
    const TreeCheck check(m_root);
    ZoEffectItemData* typeNode = findDataItem(type, -1);
    if (!typeNode)
        return false;

    // Deliberate: any other position than -1 is announced as it came, even where the item was appended.
    const int index = pos == -1 ? typeNode->childCount() : pos;
    auto* item = new (std::nothrow) ZoEffectItemData(QString(), typeNode, index);
    if (!item) {
        modelevents::log(ModelEvent::ItemNotCreated);
        return false;
    }

    const Properties given = props; // props may be a node's own.
    storeDefaultsOfNewItem(*item, type);
    // What kind of item it is decides which custom defaults apply, so it comes before them.
    if (type == types::watermark)
        storeIfGiven(*item, given, keys::wmIsText);
    else if (type == types::subtitle)
        storeIfGiven(*item, given, keys::subFromFile);
    applyCustomDefaultOrFactors(*this, *item, type);
    catalogue::applyProperties(*item, given);
    if (type == types::watermark)
        adjustWatermarkPos(item);

    const QString ownType = type; // A listener may change what type refers to; all get it as it was.
    emit effectDataChanged(ownType, keys::itemAdd, QVariant(), index);
    return true;
}

bool ZoEffectModel::addDataItem(const QString& type, const QMap<QString, QVariant>& props)
{
    const TreeCheck check(m_root);
    return insertDataItem(type, props, -1);
}

bool ZoEffectModel::addDataItemEx(const QString& type, const QMap<QString, QVariant>& props, bool asChild)
{
    const TreeCheck check(m_root);
    ZoEffectItemData* typeNode = findDataItem(type, -1);
    if (!typeNode)
        typeNode = new ZoEffectItemData(type, &m_root, -1);
    if (asChild)
        return insertDataItem(type, props, -1);

    const Properties given = props; // props may be the node's own.
    catalogue::storeDefaults(*typeNode, type);
    getCustomDefaultVal(typeNode, type, false);
    catalogue::applyProperties(*typeNode, given);
    return true;
}

bool ZoEffectModel::delDataItem(const QString& type, int pos)
{
    const TreeCheck check(m_root);
    ZoEffectItemData* item = findDataItem(&m_root, type, pos);
    if (!item) {
        modelevents::log(ModelEvent::NoSuchItemToDelete);
        return false;
    }
    ZoEffectItemData* parent = item->parent();
    if (!parent) {
        modelevents::log(ModelEvent::DeletedItemWithoutParent);
        return false;
    }
    if (parent->takeAt(pos) != item)
        return false;
    const QString ownType = type; // type may lie in the item.
    delete item;
    emit effectDataChanged(ownType, keys::itemDelete, QVariant(), pos);
    return true;
}

bool ZoEffectModel::changeDataItemPos(const QString& type, int to, int from)
{
    const TreeCheck check(m_root);
    ZoEffectItemData* typeNode = findDataItem(&m_root, type);
    if (!typeNode) {
        modelevents::log(ModelEvent::NoSuchTypeToMoveIn);
        return false;
    }
    const bool moved = typeNode->changeItemPos(to, from);
    const QString ownType = type; // A listener may change what type refers to; all get it as it was.
    // Deliberate: announced whether or not anything moved.
    emit effectDataChanged(ownType, keys::itemMove, to, -1);
    return moved;
}

bool ZoEffectModel::replaceData(const QString& type, int pos, const QMap<QString, QVariant>& props)
{
    const TreeCheck check(m_root);
    const ZoEffectItemData* typeNode = findDataItem(type, -1);
    if (!typeNode) {
        modelevents::log(ModelEvent::NoSuchTypeToReplaceIn);
        return false;
    }
    ZoEffectItemData* item = typeNode->child(pos);
    if (!item) {
        modelevents::log(ModelEvent::NoSuchItemToReplace);
        return false;
    }

    const QString ownType = type; // Both may lie in the item.
    const Properties given = props;
    catalogue::storeDefaults(*item, ownType);
    applyCustomDefaultOrFactors(*this, *item, ownType);
    if (ownType == types::subtitle)
        item->setData(keys::subPositionEditedByUser, false);
    catalogue::applyProperties(*item, given);
    emit effectDataChanged(ownType, keys::reset, QVariant(), pos);
    return true;
}

void ZoEffectModel::replaceData(const QString& type, int pos, const ZoEffectItemData* src)
{
    const TreeCheck check(m_root);
    if (!src) {
        modelevents::log(ModelEvent::NullReplaceSource);
        return;
    }
    ZoEffectItemData* target = findDataItem(type, pos);
    if (!target || target == src) {
        modelevents::log(ModelEvent::ReplaceTargetMissingOrSource);
        return;
    }

    // Read first: the assignment deletes src, and what type may lie in, when they stand below the target.
    const QString ownType = type;
    const ZoEffectItemData* srcParent = type == types::watermark ? src->parent() : nullptr;
    const bool rescales = srcParent && srcParent->name() == types::root;
    const QSize srcSize =
        rescales ? QSize(number(*srcParent, keys::baseWidth), number(*srcParent, keys::baseHeight)) : QSize();
    target->assign(*src);
    if (rescales) {
        const QSize base = baseSize();
        adjustEffectItem(target, base.width(), base.height(), srcSize.width(), srcSize.height());
    }
    emit effectDataChanged(ownType, keys::reset, QVariant(), pos);
}

void ZoEffectModel::replaceItemDataProperty(const QString& type, const QMap<QString, QVariant>& props)
{
    const TreeCheck check(m_root);
    if (type != types::subtitle)
        return;

    // Deliberate: one counter runs over the items and over the style keys of each. After an item it stands
    // behind the last key, so of ten tracks from files the items 0 and 8 are reached, and the position that
    // is announced is the number of keys. The walk ends where it would come to an item again.
    const Properties given = props; // props may be an item's own.
    QVector<int> visitedRows;
    QVector<QPointer<ZoEffectItemData>> processed;
    int counter = 0;
    for (;;) {
        // Listeners may have changed the tree, or the caller's type: nothing from before an announcement is used
        // after it.
        const ZoEffectItemData* typeNode = findDataItem(types::subtitle, -1);
        if (!typeNode || counter >= typeNode->childCount() || visitedRows.contains(counter))
            return;
        m_editedByUser = true;
        visitedRows.append(counter);
        ZoEffectItemData* item = typeNode->child(counter);
        if (!item) {
            ++counter;
            continue;
        }
        if (processed.contains(item))
            return;
        processed.append(item);
        counter = spreadStyle(*item, given, baseSize().height());
        emit effectDataChanged(types::subtitle, keys::reset, QVariant(), counter);
        ++counter;
    }
}

bool ZoEffectModel::resetDataItem(const QString& type, int pos)
{
    const TreeCheck check(m_root);
    ZoEffectItemData* typeNode = findDataItem(type, -1);
    if (!typeNode) {
        modelevents::log(ModelEvent::NoSuchTypeToReset);
        return false;
    }
    const QString ownType = type; // type may lie in what is deleted.
    typeNode->clear();
    typeNode->setCheckState(Qt::Checked);
    const EffectControlItem* record = catalogue::record(ownType);
    if (record && record->subItems)
        InitSubItemData(typeNode, record->subItems);
    InitZoeffectData(typeNode);
    if (ownType == types::effect)
        AdjustFramEffectsByCustomDefault();
    emit effectDataChanged(ownType, keys::reset, QVariant(), pos);
    return true;
}

void ZoEffectModel::resetAllEffect()
{
    const TreeCheck check(m_root);
    blockSignals(true);
    m_editedByUser = false;
    for (const EffectControlItem* record = s_EffectItems; record && record->name; ++record) {
        const QString type = QString::fromUtf8(record->name);
        ZoEffectItemData* typeNode = findDataItem(type, -1);
        if (!typeNode)
            continue;
        if (type == types::audio) {
            resetTracks(*typeNode, keys::audioIsFile);
        } else if (type == types::subtitle) {
            resetTracks(*typeNode, keys::subFromFile);
        } else if (type == types::watermark) {
            typeNode->clear();
            typeNode->setCheckState(Qt::Checked);
        } else {
            typeNode->setCheckState(Qt::Checked);
            resetDataItem(type, -1);
        }
    }
    // Deliberate: unblocked whatever it was before; listeners read the model anew.
    blockSignals(false);
}
