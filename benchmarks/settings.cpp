// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "settings.h"

#include <array>

#include <zoeffectcatalogue.h>

namespace {

constexpr int frameEffectCount = 40;

EffectControlItem effectType(const char* name, const EffectDefaultVal* properties, const SubEffectItem* items = nullptr)
{
    EffectControlItem type{};
    type.name = name;
    type.properties = properties;
    type.subItems = items;
    return type;
}

const SubEffectItem* frameEffects()
{
    static const auto names = [] {
        std::array<QByteArray, frameEffectCount> made;
        for (std::size_t i = 0; i < made.size(); ++i)
            made.at(i) = "Frame effect " + QByteArray::number(static_cast<int>(i));
        return made;
    }();
    static const auto items = [] {
        std::array<SubEffectItem, frameEffectCount + 1> made{};
        for (std::size_t i = 0; i < names.size(); ++i) {
            made.at(i).name = names.at(i).constData();
            made.at(i).id = static_cast<int>(i);
            made.at(i).properties = frameEffectsDefaultVal;
        }
        return made;
    }();
    return items.data();
}

bool hasDefaults(const bareqt::Node& node, const TypeTable& type)
{
    for (const Property& property : type.properties) {
        const auto found = node.properties.constFind(property.key);
        if (found == node.properties.cend() || found.value() != property.value)
            return false;
    }
    if (static_cast<std::size_t>(node.children.size()) != type.items.size())
        return false;
    for (int i = 0; i < node.children.size(); ++i) {
        const bareqt::Node* item = node.children.at(i);
        if (item->name != type.items[static_cast<std::size_t>(i)] || item->checkState != Qt::Unchecked)
            return false;
    }
    return true;
}

} // namespace

const EffectControlItem* effectTable()
{
    static const EffectControlItem table[] = {
        effectType("Crop", cropDefaultVal),
        effectType("Watermark", WatermarkDefaultVal),
        effectType("Subtitle", SubtitleDefaultVal),
        effectType("Audio", AudioDefaultVal),
        effectType("Color", BCSDefaultVal),
        effectType("Effect", nullptr, frameEffects()),
        effectType("Audio_Fade_Inout", audioFadeInOut),
        effectType("Audio_Normalize", audioNormalize),
        effectType("Audio_BandPass", audioBandpass),
        effectType("Audio_Chorus", audioChorus),
        effectType("Audio_Flanger", audioFlanger),
        effectType("Audio_Echo", audioEcho),
        effectType("Audio_Speed", audioSpeed),
        effectType(nullptr, nullptr),
    };
    return table;
}

const std::vector<TypeTable>& typeTables()
{
    static const auto tables = [] {
        std::vector<TypeTable> made;
        for (const EffectControlItem* type = effectTable(); type->name; ++type) {
            TypeTable table{QString::fromUtf8(type->name), {}, {}, {}};
            for (const EffectDefaultVal* entry = type->properties; entry && entry->key; ++entry) {
                table.properties.push_back({QString::fromUtf8(entry->key), entry->defaultValue});
                table.asMap.insert(QString::fromUtf8(entry->key), entry->defaultValue);
            }
            for (const SubEffectItem* item = type->subItems; item && item->name; ++item)
                table.items.push_back(QString::fromUtf8(item->name));
            made.push_back(table);
        }
        return made;
    }();
    return tables;
}

const TypeTable& typeTable(const QString& name)
{
    for (const TypeTable& table : typeTables()) {
        if (table.name == name)
            return table;
    }
    qFatal("no such type");
}

void fillWithDefaults(bareqt::Store& store)
{
    static const QString id = QStringLiteral("id");
    for (const TypeTable& table : typeTables()) {
        bareqt::Node* type = store.addType(table.name);
        for (const Property& property : table.properties)
            type->properties.insert(property.key, property.value);
        int number = 0;
        for (const QString& name : table.items) {
            auto* item = new bareqt::Node(name);
            item->properties.insert(id, number++);
            item->checkState = Qt::Unchecked;
            type->children.append(item);
        }
    }
}

void addWatermarks(ZoEffectModel& model, int count)
{
    const TypeTable& table = typeTable(QStringLiteral("Watermark"));
    ZoEffectItemData* type = model.getDataItem(table.name, -1);
    for (int i = 0; i < count; ++i) {
        auto* item = new ZoEffectItemData(QString(), type);
        for (const Property& property : table.properties)
            item->setData(property.key, property.value);
    }
}

void addWatermarks(bareqt::Store& store, int count)
{
    const TypeTable& table = typeTable(QStringLiteral("Watermark"));
    bareqt::Node* type = store.node(table.name, -1);
    for (int i = 0; i < count; ++i) {
        auto* item = new bareqt::Node(QString());
        for (const Property& property : table.properties)
            item->properties.insert(property.key, property.value);
        type->children.append(item);
    }
}

bool isDefault(const ZoEffectModel& model)
{
    bool all = true;
    for (const TypeTable& type : typeTables())
        all = model.dataIsDefault(type.name) && all;
    return all;
}

bool isDefault(const bareqt::Store& store)
{
    bool all = true;
    for (const TypeTable& type : typeTables())
        all = hasDefaults(*store.node(type.name, -1), type) && all;
    return all;
}

Listener::Listener(const ZoEffectModel& model)
{
    connect(&model,
            QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
            this, &Listener::count, Qt::DirectConnection);
}

Listener::Listener(const bareqt::Store& store)
{
    connect(&store, &bareqt::Store::changed, this, &Listener::count, Qt::DirectConnection);
}

int Listener::taken()
{
    const int count = m_count;
    m_count = 0;
    return count;
}

void Listener::count(const QString& /*type*/, const QString& /*key*/, const QVariant& /*value*/, int /*pos*/)
{
    ++m_count;
}
