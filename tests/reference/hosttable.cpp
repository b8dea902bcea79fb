// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "hosttable.h"

#include <algorithm>

const QStringList& HostTable::typeNames()
{
    static const QStringList all{"Crop",   "Watermark", "Subtitle", "Audio", "Color",
                                 "Effect", "Größe",     "Other",    "Blur",  "never there"};
    return all;
}

const QStringList& HostTable::keys()
{
    static const QStringList all{
        "a number",           "a text",         "a flag",       "_checkstate",  "größe",           "wm_hposfactor",
        "wm_vposfactor",      "sub_vposfactor", "wm_hposition", "wm_vposition", "wm_transparency", "sub_transparency",
        "wm_istextwatermark", "sub_fromfile",   "id",           "no entry"};
    return all;
}

QVariant HostTable::value(const QString& key)
{
    if (key.endsWith("factor"))
        return below(5) * 0.25;
    if (key == "a flag" || key == "_checkstate" || key == "wm_istextwatermark" || key == "sub_fromfile")
        return oneIn(2);
    if (key == "a text" || key == "no entry")
        return anyOf({"", "text", "Text"});
    return below(3);
}

HostTable::Properties HostTable::map(int most)
{
    Properties values;
    for (int count = below(most + 1); count > 0; --count) {
        const QString key = anyOf(keys());
        values.insert(key, value(key));
    }
    return values;
}

QString HostTable::summary()
{
    QStringList parts;
    for (int count = below(5); count > 0; --count)
        parts << anyOf({"Blur", "Sharpen", "Sepia"}) << anyOf({"true", "false", "True"});
    return parts.join('|');
}

const char* HostTable::stored(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    if (static_cast<std::size_t>(bytes.size()) >= longestName)
        qFatal("the name is too long for the table");
    std::array<char, longestName>& name = m_names.at(m_nameCount++ % m_names.size());
    name.fill('\0');
    std::copy(bytes.cbegin(), bytes.cend(), name.begin());
    return name.data();
}

/// A table of up to eight entries; keys stand twice at times.
const EffectDefaultVal* HostTable::newProperties()
{
    auto& table = m_properties.at(m_propertyCount++ % m_properties.size());
    table = {};
    for (std::size_t count = static_cast<std::size_t>(below(static_cast<int>(table.size()))); count > 0; --count) {
        const QString key = anyOf(keys());
        table.at(count - 1).key = stored(key);
        table.at(count - 1).defaultValue = value(key);
    }
    return table.data();
}

void HostTable::fill()
{
    m_nameCount = 0;
    m_propertyCount = 0;
    m_nested = {};
    m_types = {};
    std::size_t subItemTables = 0;
    const auto fillRecord = [&](EffectControlItem& record) {
        const QString name = anyOf(typeNames().mid(0, typeNames().size() - 1));
        record.name = stored(name);
        record.properties = oneIn(4) || (name == "Effect" && !oneIn(3)) ? nullptr : newProperties();
        if (name != "Watermark" && oneIn(2)) {
            fillSubItems(m_subItems.at(subItemTables), below(5));
            record.subItems = m_subItems.at(subItemTables++).data();
        }
    };
    for (int i = below(static_cast<int>(m_nested.size())) - 1; i >= 0; --i)
        fillRecord(m_nested.at(static_cast<std::size_t>(i)));
    for (int i = below(static_cast<int>(m_types.size())) - 1; i >= 0; --i)
        fillRecord(m_types.at(static_cast<std::size_t>(i)));
    m_types.at(static_cast<std::size_t>(below(static_cast<int>(m_types.size()) - 1))).children = m_nested.data();
}
