// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <random>

#include <zoeffectcatalogue.h>

#include "stepbystepdefaults.h"

/// A host's table of types with random content. Each filling goes into the same memory, names and keys included:
/// nothing but the content tells one from the other.
class HostTable {
public:
    using Properties = stepbystep::Properties;

    explicit HostTable(std::mt19937& source) : m_source(source) {}

    void fill();
    const EffectControlItem* types() const { return m_types.data(); }
    /// Some of the names and keys that the tables use, and some that they do not.
    static const QStringList& typeNames();
    static const QStringList& keys();

    int below(int bound) { return static_cast<int>(m_source() % static_cast<unsigned>(bound)); }
    bool oneIn(int odds) { return below(odds) == 0; }
    QString anyOf(const QStringList& texts) { return texts.at(below(static_cast<int>(texts.size()))); }
    /// A value for \a key: few different ones of one type, so that equal ones are frequent.
    QVariant value(const QString& key);
    /// Up to \a most keys with values.
    Properties map(int most);
    QString summary();

    /// Sub-items at \a table, over what was there.
    template <std::size_t size>
    void fillSubItems(std::array<SubEffectItem, size>& table, int count);

private:
    static constexpr std::size_t longestName = 24;

    const char* stored(const QString& text);
    const EffectDefaultVal* newProperties();

    std::mt19937& m_source;
    std::array<std::array<char, longestName>, 400> m_names{};
    std::size_t m_nameCount = 0;
    std::array<std::array<EffectDefaultVal, 9>, 40> m_properties{};
    std::size_t m_propertyCount = 0;
    std::array<std::array<SubEffectItem, 6>, 12> m_subItems{};
    std::array<EffectControlItem, 4> m_nested{};
    std::array<EffectControlItem, 9> m_types{};
};

template <std::size_t size>
void HostTable::fillSubItems(std::array<SubEffectItem, size>& table, int count)
{
    table = {};
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        table.at(i).name = stored(anyOf({"Blur", "Sharpen", "Sepia", "Other", "Blur ", "Größe"}));
        table.at(i).id = below(4);
        table.at(i).properties = oneIn(4) ? nullptr : newProperties();
    }
}
