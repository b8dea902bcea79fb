// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "peer_items.h"

#include "settings.h"

namespace {

QStandardItem* itemWith(const QString& name, const TypeTable& table)
{
    auto* item = new QStandardItem(name);
    for (const Property& property : table.properties)
        item->setData(property.value, roleOf(property.key));
    return item;
}

} // namespace

ItemSettings::ItemSettings()
{
    static const int idRole = roleOf(QStringLiteral("id"));
    for (const TypeTable& table : typeTables()) {
        QStandardItem* type = itemWith(table.name, table);
        int number = 0;
        for (const QString& name : table.items) {
            auto* item = new QStandardItem(name);
            item->setData(number++, idRole);
            item->setData(Qt::Unchecked, Qt::CheckStateRole);
            type->appendRow(item);
        }
        m_model.appendRow(type);
        m_types.insert(table.name, type);
    }
}

void ItemSettings::addWatermarks(int count)
{
    const TypeTable& table = typeTable(QStringLiteral("Watermark"));
    for (int i = 0; i < count; ++i)
        m_types.value(table.name)->appendRow(itemWith(QString(), table));
}

QStandardItem* ItemSettings::item(const QString& type, int pos) const
{
    QStandardItem* typeItem = m_types.value(type);
    return pos == -1 ? typeItem : typeItem->child(pos);
}

int ItemSettings::takenChanges()
{
    const int changes = m_changes;
    m_changes = 0;
    return changes;
}

void ItemSettings::listen()
{
    connect(&m_model, &QStandardItemModel::itemChanged, this, &ItemSettings::count, Qt::DirectConnection);
}

void ItemSettings::count()
{
    ++m_changes;
}
