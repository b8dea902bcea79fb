// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A host's table of effect types, built of the bytes: empty names, names twice, nested tables, tables that are
// missing, values of any type. Such a table is registered, and models are made of it.

#include <deque>
#include <memory>
#include <vector>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "bytes.h"
#include "hostcatalogue.h"
#include "session.h"
#include "vocabulary.h"

namespace {

constexpr int mostRecords = 5; // Of one table.
constexpr int deepestTable = 3;

/// Owns the tables, whose records point at each other.
class Tables {
public:
    explicit Tables(Bytes& bytes) : m_bytes(bytes) {}
    Tables(const Tables&) = delete;
    Tables& operator=(const Tables&) = delete;

    const EffectControlItem* types(int depth = 0)
    {
        if (m_bytes.below(16) == 15)
            return nullptr;
        std::vector<EffectControlItem> table;
        for (int left = m_bytes.below(mostRecords + 1); left > 0; --left) {
            const char* name = text(vocabulary::type(m_bytes));
            const EffectDefaultVal* ownProperties = properties();
            const SubEffectItem* children = subItems();
            table.push_back(effectType(name, ownProperties, children, depth < deepestTable ? nested(depth) : nullptr));
        }
        table.push_back(effectType(nullptr, nullptr));
        m_types.push_back(std::move(table));
        return m_types.back().data();
    }

private:
    const EffectControlItem* nested(int depth) { return m_bytes.below(4) == 3 ? types(depth + 1) : nullptr; }

    const char* text(const QString& text)
    {
        // Bytes that are no UTF-8, too: a host's texts may be in another encoding.
        m_texts.push_back(m_bytes.below(8) == 7 ? m_bytes.chunk() : text.toUtf8());
        return m_texts.back().constData();
    }

    const EffectDefaultVal* properties()
    {
        if (m_bytes.below(4) == 3)
            return nullptr;
        std::vector<EffectDefaultVal> table;
        for (int left = m_bytes.below(mostRecords + 1); left > 0; --left) {
            const char* key = text(vocabulary::key(m_bytes));
            table.push_back(property(key, m_bytes.value()));
        }
        table.push_back(property(nullptr, QVariant()));
        m_properties.push_back(std::move(table));
        return m_properties.back().data();
    }

    const SubEffectItem* subItems()
    {
        if (m_bytes.below(4) == 3)
            return nullptr;
        std::vector<SubEffectItem> table;
        for (int left = m_bytes.below(mostRecords + 1); left > 0; --left) {
            const char* name = text(vocabulary::type(m_bytes));
            const int id = m_bytes.number();
            table.push_back(subItem(name, id, properties()));
        }
        table.push_back(subItem(nullptr, 0));
        m_subItems.push_back(std::move(table));
        return m_subItems.back().data();
    }

    Bytes& m_bytes;
    std::deque<QByteArray> m_texts;
    std::deque<std::vector<EffectDefaultVal>> m_properties;
    std::deque<std::vector<SubEffectItem>> m_subItems;
    std::deque<std::vector<EffectControlItem>> m_types;
};

// --- The independent model of a lookup: all records in order, then the first of that name

void gather(const EffectControlItem* table, std::vector<const EffectControlItem*>& records)
{
    if (!table)
        return;
    for (const EffectControlItem* record = table; record->name != nullptr; ++record) {
        records.push_back(record);
        gather(record->children, records);
    }
}

std::vector<QString> topLevelNames(const EffectControlItem* table)
{
    std::vector<QString> names;
    for (const EffectControlItem* record = table; record && record->name; ++record)
        names.push_back(QString::fromUtf8(record->name));
    return names;
}

void checkLookups(const EffectControlItem* table)
{
    std::vector<const EffectControlItem*> records;
    gather(table, records);
    for (std::size_t i = 0; i < records.size(); ++i) {
        const QString name = QString::fromUtf8(records[i]->name);
        const EffectControlItem* found = ZoEffectModel::findOriItem(name, table);
        std::size_t first = 0;
        while (QString::fromUtf8(records[first]->name) != name)
            ++first;
        require(found == records[first], "the first record of a name is found");
    }
}

/// Only of a model that was just made: later its lists differ.
void checkTree(const ZoEffectModel& model, const EffectControlItem* table)
{
    const std::vector<QString> names = topLevelNames(table);
    const ZoEffectItemData* root = model.findDataItem(QStringLiteral("effect root"), -1);
    require(root && root->childCount() == int(names.size()), "a model has one node for each type of the table");
    for (int row = 0; row < root->childCount(); ++row) {
        const ZoEffectItemData* node = root->child(row);
        const SubEffectItem* record = table[row].subItems;
        require(node->name() == names[std::size_t(row)], "the types are in the order of the table");
        for (int i = 0; i < node->childCount(); ++i, ++record) {
            require(record && record->name, "there are no more items than the table has");
            require(node->child(i)->internalData() == record, "an item points at its record");
        }
        require(!record || !record->name, "there are as many items as the table has");
    }
}

/// Mostly a type of the table.
QString typeName(const std::vector<QString>& names, Bytes& bytes)
{
    const int choice = bytes.byte();
    return names.empty() || choice >= 192 ? vocabulary::type(bytes) : names[std::size_t(choice) % names.size()];
}

void use(ZoEffectModel& model, const std::vector<QString>& names, Bytes& bytes)
{
    const QString type = typeName(names, bytes);
    const QString key = vocabulary::key(bytes);
    const int pos = bytes.position();
    switch (bytes.below(14)) {
    case 0:
        model.resetAllEffect();
        break;
    case 1:
        model.resetDataItem(type, pos);
        break;
    case 2:
        model.insertDataItem(type, vocabulary::properties(bytes), pos);
        break;
    case 3:
        model.addDataItemEx(type, vocabulary::properties(bytes), bytes.flag());
        break;
    case 4:
        model.replaceData(type, pos, vocabulary::properties(bytes));
        break;
    case 5:
        model.saveAsCustomDefault(type, pos);
        break;
    case 6:
        ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(type, vocabulary::properties(bytes));
        break;
    case 7:
        model.dataIsDefault(type);
        model.FrameEffectIsDefault();
        break;
    case 8:
        ZoEffectModel::defaultValue(key, type);
        model.SingleDataIsDefault(type, key, pos);
        break;
    case 9:
        model.hasRealEffect();
        model.getCurrentFrameEffects();
        break;
    case 10:
        model.setVideoSize(bytes.number(), bytes.number());
        model.adjustEffectInfo(bytes.number(), bytes.number());
        break;
    case 11:
        model.getWatermark(bytes.below(32), bytes.below(32), bytes.flag());
        break;
    case 12:
        model.changeDataItemPos(type, pos, bytes.position());
        break;
    default:
        model.setData(key, bytes.value(), type, pos);
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Session::instance();
    forgetCustomDefaults();
    Bytes bytes(data, size);
    Tables tables(bytes);
    const EffectControlItem* table = tables.types();
    ZoEffectModel::InitEffectModel(table);
    const std::vector<QString> names = topLevelNames(table);

    checkLookups(table);
    {
        ZoEffectModel model;
        checkTree(model, table);
        for (int done = 0; done < 24 && !bytes.atEnd(); ++done)
            use(model, names, bytes);
        for (const QString& name : names)
            model.dataIsDefault(name);
        const ZoEffectModel some(QStringList{vocabulary::type(bytes), vocabulary::type(bytes)});
        ZoEffectModel copy(model);
        copy.resetAllEffect();
        copy.hasRealEffect();
        const ZoEffectModel again;
        require(again.findDataItem(QStringLiteral("effect root"), -1)->childCount() == int(names.size()),
                "what was done with one model does not change the next");
    }
    ZoEffectModel::InitEffectModel(hostCatalogue());
    return 0;
}
