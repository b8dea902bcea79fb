// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/differences.h>

#include <algorithm>

#include "exactly_p.h"
#include "things_p.h"

namespace zokit {

namespace {

using Differences = QVector<Difference>;

void compare(Differences& found, const QString& type, int pos, const Values& a, const Values& b)
{
    auto inA = a.cbegin();
    auto inB = b.cbegin();
    while (inA != a.cend() || inB != b.cend()) {
        const bool onlyA = inB == b.cend() || (inA != a.cend() && inA.key() < inB.key());
        const bool onlyB = inA == a.cend() || (inB != b.cend() && inB.key() < inA.key());
        const QString key = onlyB ? inB.key() : inA.key();
        const QVariant valueA = onlyB ? QVariant() : inA.value();
        const QVariant valueB = onlyA ? QVariant() : inB.value();
        if (!exactly(valueA, valueB))
            found.append({{type, pos, key}, valueA, valueB});
        if (!onlyB)
            ++inA;
        if (!onlyA)
            ++inB;
    }
}

/// All that an item says, as values: what it is selected for, its name and its anchor among them.
Values everythingOf(const Item& item)
{
    Values values = item.values;
    values.insert(own::selected, item.selected);
    if (!item.name.isEmpty())
        values.insert(QStringLiteral("name"), item.name);
    if (!item.anchor.isEmpty())
        values.insert(own::anchor, item.anchor);
    return values;
}

void compare(Differences& found, const QString& type, const TypeSettings* a, const TypeSettings* b)
{
    const auto ofType = [](const TypeSettings* settings) {
        Values values = settings ? settings->values : Values();
        if (settings)
            values.insert(own::selected, settings->selected);
        return values;
    };
    compare(found, type, Address::ofType, ofType(a), ofType(b));
    const auto count = [](const TypeSettings* settings) {
        return settings ? static_cast<int>(settings->items.size()) : 0;
    };
    const auto itemAt = [&](const TypeSettings* settings, int pos) {
        return pos < count(settings) ? everythingOf(settings->items.at(pos)) : Values();
    };
    for (int pos = 0; pos < std::max(count(a), count(b)); ++pos)
        compare(found, type, pos, itemAt(a, pos), itemAt(b, pos));
}

} // namespace

QVector<Difference> differences(const Settings& a, const Settings& b)
{
    Differences found;
    QStringList types;
    for (const Settings* settings : {&a, &b}) {
        for (const TypeSettings& type : settings->effects) {
            if (!types.contains(type.type))
                types.append(type.type);
        }
    }
    for (const QString& type : types)
        compare(found, type, a.find(type), b.find(type));
    compare(found, QStringLiteral("Tracks"), Address::ofType, a.tracks, b.tracks);
    compare(found, QStringLiteral("Output"), Address::ofType, a.output, b.output);
    return found;
}

} // namespace zokit
