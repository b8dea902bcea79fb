// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "modeltest.h"

#include <zoeffectitemdefaultvalmgr.h>

void ModelTest::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void ModelTest::cleanup()
{
    const QList<int> events = logcapture::takeEvents();
    forgetCustomDefaults(); // While types of own names, which a registration drops, are still listed.
    ZoEffectModel::InitEffectModel(hostCatalogue());
    QCOMPARE(events, QList<int>());
}

ZoEffectItemData* rootOf(const ZoEffectModel& model)
{
    return model.getDataItem("effect root", -1);
}

ZoEffectItemData* addItem(ZoEffectItemData* parent, const Properties& properties, int checkState)
{
    auto* item = new ZoEffectItemData(QString(), parent);
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        item->setData(it.key(), it.value());
    item->setCheckState(checkState);
    return item;
}

ZoEffectItemData* addItem(const ZoEffectModel& model, const QString& type, const Properties& properties, int checkState)
{
    return addItem(model.getDataItem(type, -1), properties, checkState);
}

void addTracks(ZoEffectItemData* parent, const QString& fileFlag, const QString& kinds)
{
    for (int i = 0; i < kinds.size(); ++i) {
        const QChar kind = kinds.at(i);
        if (kind == QLatin1Char('-')) {
            parent->appendChild(nullptr);
            continue;
        }
        Properties properties{{"trackid", 10 + i}};
        if (QString("fFq").contains(kind))
            properties.insert(fileFlag, true);
        addItem(parent, properties, kind.isUpper() ? 2 : QString("pq").contains(kind) ? 1 : 0);
    }
}

Properties with(Properties properties, const Properties& more)
{
    for (auto it = more.cbegin(); it != more.cend(); ++it)
        properties.insert(it.key(), it.value());
    return properties;
}

void saveCustomDefault(const QString& type, const Properties& values)
{
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(type, values);
}

void registerOnly(const char* name, const std::vector<EffectDefaultVal>& properties)
{
    static std::vector<EffectDefaultVal> registered; // The library reads it until the next registration.
    registered = properties;
    registered.push_back(property(nullptr, 0));
    static EffectControlItem table[2] = {};
    table[0] = effectType(name, registered.data());
    ZoEffectModel::InitEffectModel(table);
}

QString childNames(const ZoEffectItemData* node)
{
    QStringList names;
    for (int i = 0; i < node->childCount(); ++i)
        names << node->child(i)->name();
    return names.join(QLatin1Char(' '));
}

QString tree(const ZoEffectItemData* node)
{
    if (!node)
        return QStringLiteral("null");
    QStringList children;
    for (int i = 0; i < node->childCount(); ++i)
        children << tree(node->child(i));
    return QStringLiteral("%1:%2%3[%4]")
        .arg(node->name(), QString::number(node->checkState()), described(node->properties()),
             children.join(QLatin1Char(' ')));
}

QString chosen(const ZoEffectItemData* node, const QStringList& wanted)
{
    Properties values;
    for (const QString& key : wanted) {
        if (node->hasData(key))
            values.insert(key, node->data(key));
    }
    return described(values);
}
