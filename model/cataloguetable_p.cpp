// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "cataloguetable_p.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "effectnames_p.h"
#include "perthread_p.h"
#include "qtcompat_p.h"
#include "zoeffectcatalogue.h"

namespace {

using cataloguetable::Row;
using cataloguetable::Table;

constexpr std::size_t keptTables = 64;

/// An entry as it was when it was prepared: its key, and the value byte by byte. As long as a copy of a value lives, no
/// other value consists of the same bytes, since what they point at is shared with the copy.
struct Seen {
    QByteArray key;
    std::array<char, sizeof(QVariant)> value{};

    explicit Seen(const EffectDefaultVal& entry) : key(entry.key)
    {
        std::memcpy(value.data(), bytesOf(entry), value.size());
    }

    bool isStill(const EffectDefaultVal& entry) const
    {
        return entry.key && std::strcmp(entry.key, key.constData()) == 0
               && std::memcmp(bytesOf(entry), value.data(), value.size()) == 0;
    }

    static const void* bytesOf(const EffectDefaultVal& entry) { return &entry.defaultValue; }
};

struct Kept {
    const EffectDefaultVal* properties = nullptr;
    std::vector<Seen> seen;
    QExplicitlySharedDataPointer<const Table> table;

    bool isUpToDate(const EffectDefaultVal* entry) const
    {
        if (entry != properties)
            return false;
        for (const Seen& before : seen) {
            if (!before.isStill(*entry))
                return false;
            ++entry;
        }
        return !entry->key;
    }
};

/// Whether there is a value of a type that is not Qt's own, of which nothing is known.
bool hasHostType(const EffectDefaultVal* entry)
{
    while (entry->key && entry->defaultValue.userType() < QMetaType::User)
        ++entry;
    return entry->key;
}

QExplicitlySharedDataPointer<const Table> read(const EffectDefaultVal* properties)
{
    auto* table = new Table;
    for (const EffectDefaultVal* entry = properties; entry && entry->key; ++entry) {
        const QString key = QString::fromUtf8(entry->key);
        const QVariant& value = entry->defaultValue;
        table->rows.append({key, entry, key == keys::checkState});
        table->holdsItself &= !table->defaults.contains(key) && qtcompat::equal(value, value);
        table->defaults.insert(key, value);
    }
    std::stable_sort(table->rows.begin(), table->rows.end(),
                     [](const Row& left, const Row& right) { return left.key < right.key; });
    return QExplicitlySharedDataPointer<const Table>(table);
}

} // namespace

QExplicitlySharedDataPointer<const Table> cataloguetable::prepared(const EffectDefaultVal* properties)
{
    auto* tables = perThread<std::array<Kept, keptTables>>();
    if (!tables || !properties)
        return read(properties);
    Kept& kept = (*tables)[reinterpret_cast<quintptr>(properties) / sizeof(EffectDefaultVal) % keptTables];
    if (!kept.isUpToDate(properties)) {
        if (hasHostType(properties))
            return read(properties);
        kept = {properties, {}, read(properties)};
        for (const EffectDefaultVal* entry = properties; entry->key; ++entry)
            kept.seen.emplace_back(*entry);
    }
    return kept.table;
}

void cataloguetable::forgetAll()
{
    if (auto* tables = perThread<std::array<Kept, keptTables>>())
        tables->fill({});
}
