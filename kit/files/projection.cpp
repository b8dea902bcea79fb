// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "projection_p.h"

#include <QScopedValueRollback>
#include <QSet>

#include <zoeffectcatalogue.h>
#include <zoeffectitemdata.h>

#include <zokit/properties.h>

#include "exactly_p.h"
#include "names_p.h"
#include "newitem_p.h"

namespace zokit {

namespace {

QStringList typesOf(bool sound)
{
    QStringList types;
    for (const QString& type : effectTypes()) {
        if (isSoundType(type) == sound)
            types.append(type);
    }
    return types;
}

void fill(ZoEffectItemData& node, const Values& values, bool selected)
{
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        node.setData(it.key(), it.value());
    node.setCheckState(selected ? Qt::Checked : Qt::Unchecked);
}

/// The host's pointer of a frame effect is its record in the registered table.
void* recordOf(const QString& type, const QString& name)
{
    const EffectControlItem* record = ZoEffectModel::findOriItem(type, ZoEffectModel::s_EffectItems);
    const SubEffectItem* fixed = record ? record->subItems : nullptr;
    for (; fixed && fixed->name; ++fixed) {
        if (name == QString::fromUtf8(fixed->name))
            return const_cast<SubEffectItem*>(fixed); // As the model keeps it.
    }
    return nullptr;
}

/// Whether a value was measured by drawing a text, and belongs to the picture and not to the settings.
bool isMeasured(const Values& values, const QString& key)
{
    return (key == keys::imageWidth || key == keys::imageHeight) && values.value(keys::isText).toBool();
}

} // namespace

Projection::Projection(const Things& things) : m_picture(typesOf(false)), m_sound(typesOf(true))
{
    setPictureOptions(m_picture);
    setFrame(things.baseFrame());
    for (const QString& type : effectTypes())
        replace(things, type);
}

ZoEffectModel& Projection::modelOf(const QString& type)
{
    return isSoundType(type) ? m_sound : m_picture;
}

void Projection::setFrame(const QSize& frame)
{
    if (frame == m_frame)
        return;
    m_frame = frame;
    m_picture.setVideoSize(frame.width(), frame.height());
    m_sound.setVideoSize(frame.width(), frame.height());
}

void Projection::follow(const Things& things, const Changes& changes)
{
    const QScopedValueRollback<bool> following(m_following, true);
    QSet<QString> wholeTypes;
    for (const Change& change : changes) {
        if (change.thing != things.file() && !setOne(things, change))
            wholeTypes.insert(things.typeOf(change.thing));
    }
    for (const QString& type : effectTypes()) {
        if (wholeTypes.contains(type))
            replace(things, type);
    }
}

/// Sets a single value through the model; false when only the whole type will do.
bool Projection::setOne(const Things& things, const Change& change)
{
    const QString type = things.typeOf(change.thing);
    if (!change.before.isValid() || !change.after.isValid() || isInternal(change.key)
        || change.before.userType() != change.after.userType())
        return !effectTypes().contains(type) && things.contains(change.thing);
    if (change.key == own::anchor || !effectTypes().contains(type))
        return true; // The models know nothing of these.
    ZoEffectModel& model = modelOf(type);
    const bool isSelection = change.key == own::selected;
    const QString key = isSelection ? own::checkState : change.key;
    const int pos = things.position(change.thing);
    const ZoEffectItemData* node = model.getDataItem(type, pos);
    if (!node)
        return false;
    model.setData(key, change.after, type, pos);
    // An equal value of another spelling is not stored, and a position marks itself as edited.
    const bool edited = type == types::subtitle && key == keys::subtitleTop;
    return isSelection
           || (exactly(node->data(key), change.after)
               && (!edited || things.value(change.thing, keys::subtitlePlaced).toBool()));
}

void Projection::replace(const Things& things, const QString& type)
{
    const QScopedValueRollback<bool> following(m_following, true);
    const TypeSettings settings = things.typeSettings(type);
    ZoEffectItemData source(type);
    fill(source, settings.values, settings.selected);
    for (const Item& item : settings.items) {
        auto* node = new ZoEffectItemData(item.name, &source);
        fill(*node, item.values, item.selected);
        node->setInternalData(recordOf(type, item.name));
    }
    modelOf(type).replaceData(type, -1, &source);
    note(type, things.items(type));
}

TypeSettings Projection::read(const QString& type) const
{
    TypeSettings result;
    result.type = type;
    const ZoEffectModel& model = isSoundType(type) ? m_sound : m_picture;
    const ZoEffectItemData* node = model.getDataItem(type, -1);
    if (!node)
        return result;
    result.values = node->properties();
    result.selected = node->checkState() == Qt::Checked;
    for (int row = 0; row < node->childCount(); ++row) {
        Item item = node->child(row) ? itemFrom(*node->child(row)) : Item();
        const QStringList keys = item.values.keys();
        for (const QString& key : keys) {
            if (isMeasured(item.values, key))
                item.values.remove(key);
        }
        result.items.append(item);
    }
    return result;
}

QVector<Identity> Projection::identities(const QString& type) const
{
    QVector<Identity> result;
    const ZoEffectModel& model = isSoundType(type) ? m_sound : m_picture;
    const ZoEffectItemData* node = model.getDataItem(type, -1);
    for (int row = 0; node && row < node->childCount(); ++row)
        result.append(m_items.value(type).value(node->child(row), 0));
    return result;
}

void Projection::note(const QString& type, const QVector<Identity>& items)
{
    QHash<const ZoEffectItemData*, Identity> known;
    const ZoEffectItemData* node = modelOf(type).getDataItem(type, -1);
    for (int row = 0; node && row < node->childCount() && row < items.size(); ++row)
        known.insert(node->child(row), items.at(row));
    m_items.insert(type, known);
}

} // namespace zokit
