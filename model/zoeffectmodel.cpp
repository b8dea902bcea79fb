// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include "catalogue_p.h"
#include "effectnames_p.h"
#include "firstnodes_p.h"
#include "modelevents_p.h"
#include "qtcompat_p.h"
#include "treecheck_p.h"
#include "watermarkimages_p.h"
#include "zoeffectcatalogue.h"
#include "zoeffectitemdefaultvalmgr.h"

const EffectControlItem* ZoEffectModel::s_EffectItems = nullptr;

void ZoEffectModel::InitEffectModel(const EffectControlItem* items)
{
    s_EffectItems = items;
    if (!items) {
        modelevents::log(ModelEvent::NullCatalogue);
        return;
    }

    catalogue::prepareTexts(items);
    // Deliberate: the list is handed over after each type, one name longer every time.
    QStringList types;
    for (const EffectControlItem* record = items; record->name; ++record) {
        types.append(QString::fromUtf8(record->name));
        ZoEffectItemDefaultValMgr::setSupportTypes(types);
    }
}

ZoEffectModel::ZoEffectModel(Empty /*empty*/, QObject* parent)
    : QObject(parent), m_root(types::root), m_images(std::make_shared<WatermarkImages>())
{
    m_root.m_firstNodes = std::make_shared<FirstNodes>();
}

ZoEffectModel::ZoEffectModel(QObject* parent) : ZoEffectModel(QStringList(), parent) {}

ZoEffectModel::ZoEffectModel(const QStringList& types, QObject* parent) : ZoEffectModel(Empty(), parent)
{
    createItems(types);
}

ZoEffectModel::ZoEffectModel(const QString& type, const QMap<QString, QVariant>& props, QObject* parent)
    : ZoEffectModel(Empty(), parent)
{
    ZoEffectItemData* node = findDataItem(type, -1);
    if (!node)
        node = new ZoEffectItemData(type, &m_root, -1);
    catalogue::applyProperties(*node, props);
}

ZoEffectModel::ZoEffectModel(const ZoEffectModel& other) : ZoEffectModel(Empty(), nullptr)
{
    *this = other;
}

// Deliberate: other is not read. A host that wants a copy under a parent assigns to the empty model.
ZoEffectModel::ZoEffectModel(const ZoEffectModel& /*other*/, QObject* parent) : ZoEffectModel(Empty(), parent) {}

ZoEffectModel::~ZoEffectModel()
{
    m_root.clear();
}

ZoEffectModel& ZoEffectModel::operator=(const ZoEffectModel& other)
{
    const TreeCheck check(m_root);
    if (this == &other)
        return *this;
    m_root = other.m_root;
    m_editedByUser = other.m_editedByUser;
    m_pictureOptions = other.m_pictureOptions;
    return *this;
}

const EffectControlItem* ZoEffectModel::findOriItem(const QString& type, const EffectControlItem* items)
{
    return catalogue::record(type, items);
}

void ZoEffectModel::createItems(const QStringList& types)
{
    const TreeCheck check(m_root);
    for (const EffectControlItem* record = s_EffectItems; record && record->name; ++record) {
        const QString name = catalogue::text(record->name);
        if (!types.isEmpty() && !types.contains(name))
            continue;
        auto* node = new ZoEffectItemData(name, &m_root, -1);
        InitZoeffectData(node);
        if (record->subItems)
            InitSubItemData(node, record->subItems);
        if (name == types::effect)
            AdjustFramEffectsByCustomDefault();
    }
}

void ZoEffectModel::InitZoeffectData(ZoEffectItemData* item)
{
    const TreeCheck check(m_root);
    if (!item)
        return;
    item->setCheckState(Qt::Checked);
    const QString type = item->name();
    // Deliberate: a type's own "_checkstate" is stored as an ordinary property, unlike a sub-item's.
    catalogue::storeDefaults(*item, type);
    if (type != types::crop && type != types::watermark)
        getCustomDefaultVal(item, type, false);
}

void ZoEffectModel::InitSubItemData(ZoEffectItemData* item, const SubEffectItem* subItems)
{
    const TreeCheck check(m_root);
    if (!subItems || !item) {
        modelevents::log(ModelEvent::NullForSubItems);
        return;
    }
    for (const SubEffectItem* record = subItems; record->name; ++record) {
        auto* node = new ZoEffectItemData(catalogue::text(record->name), item, -1);
        node->setData(keys::id, record->id);
        for (const EffectDefaultVal* entry = record->properties; entry && entry->key; ++entry)
            catalogue::storeOrCheck(*node, catalogue::text(entry->key), entry->defaultValue);
        node->setInternalData(const_cast<SubEffectItem*>(record));
    }
}

bool ZoEffectModel::editByUser() const
{
    return m_editedByUser;
}

bool ZoEffectModel::editByDefault() const
{
    return qtcompat::toBool(m_root.data(keys::editByDefault));
}

void ZoEffectModel::resetEditByDefaultFlag()
{
    const TreeCheck check(m_root);
    m_root.setData(keys::editByDefault, false);
}
