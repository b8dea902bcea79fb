// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "catalogue_p.h"

#include <string_view>
#include <unordered_map>
#include <utility>

#include <QByteArray>

#include "effectnames_p.h"
#include "qtcompat_p.h"
#include "zoeffectcatalogue.h"
#include "zoeffectitemdata.h"
#include "zoeffectmodel.h"

namespace {

/// A text of a table, and the string that it says.
struct Text {
    QByteArray utf8;
    QString string;
};

using Texts = std::unordered_map<std::string_view, Text>;

/// Those of the table that was registered last. Only read until the next one is, and never deleted, since a host's
/// static objects may still ask at the end of the process.
const Texts* registeredTexts = nullptr;

void add(Texts& texts, const char* utf8)
{
    const Text text{utf8, QString::fromUtf8(utf8)};
    texts.emplace(std::string_view(text.utf8.constData()), text);
}

void add(Texts& texts, const EffectDefaultVal* properties)
{
    for (const EffectDefaultVal* entry = properties; entry && entry->key; ++entry)
        add(texts, entry->key);
}

// NOLINTNEXTLINE(misc-no-recursion): as deep as the host nests its tables.
void add(Texts& texts, const EffectControlItem* items)
{
    for (const EffectControlItem* record = items; record && record->name; ++record) {
        add(texts, record->name);
        add(texts, record->properties);
        for (const SubEffectItem* item = record->subItems; item && item->name; ++item) {
            add(texts, item->name);
            add(texts, item->properties);
        }
        add(texts, record->children);
    }
}

} // namespace

namespace catalogue {

void prepareTexts(const EffectControlItem* items)
{
    auto* texts = new Texts;
    add(*texts, items);
    delete std::exchange(registeredTexts, texts);
}

QString text(const char* utf8)
{
    if (registeredTexts) {
        const auto known = registeredTexts->find(utf8);
        if (known != registeredTexts->cend())
            return known->second.string;
    }
    return QString::fromUtf8(utf8);
}

// Most texts are ASCII: their letters are compared without making a string.
bool says(const char* utf8, const QString& text)
{
    constexpr unsigned firstBeyondAscii = 0x80;
    const char* next = utf8;
    for (const QChar letter : text) {
        const unsigned byte = static_cast<unsigned char>(*next);
        if (byte >= firstBeyondAscii)
            return text == catalogue::text(utf8);
        if (byte == 0 || byte != letter.unicode())
            return false;
        ++next;
    }
    // A byte order mark may follow, which says nothing.
    return *next == 0 || (static_cast<unsigned char>(*next) >= firstBeyondAscii && text == catalogue::text(utf8));
}

const EffectControlItem* record(const QString& type)
{
    return record(type, ZoEffectModel::s_EffectItems);
}

// NOLINTNEXTLINE(misc-no-recursion): as deep as the host nests its tables.
const EffectControlItem* record(const QString& type, const EffectControlItem* items)
{
    for (const EffectControlItem* entry = items; entry && entry->name; ++entry) {
        if (says(entry->name, type))
            return entry;
        if (const EffectControlItem* nested = record(type, entry->children))
            return nested;
    }
    return nullptr;
}

const EffectDefaultVal* property(const EffectDefaultVal* properties, const QString& key)
{
    for (const EffectDefaultVal* entry = properties; entry && entry->key; ++entry) {
        if (says(entry->key, key))
            return entry;
    }
    return nullptr;
}

const EffectDefaultVal* properties(const QString& type)
{
    const EffectControlItem* found = record(type);
    return found ? found->properties : nullptr;
}

void storeDefaults(ZoEffectItemData& item, const QString& type)
{
    for (const EffectDefaultVal* entry = properties(type); entry && entry->key; ++entry)
        item.setData(text(entry->key), entry->defaultValue);
}

int checkStateFor(const QVariant& value)
{
    return qtcompat::toBool(value) ? Qt::Checked : Qt::Unchecked;
}

void storeOrCheck(ZoEffectItemData& item, const QString& key, const QVariant& value)
{
    if (key == keys::checkState)
        item.setCheckState(checkStateFor(value));
    else
        item.setData(key, value);
}

void applyProperties(ZoEffectItemData& item, const QMap<QString, QVariant>& props)
{
    for (auto it = props.cbegin(); it != props.cend(); ++it)
        storeOrCheck(item, it.key(), it.value());
}

} // namespace catalogue
