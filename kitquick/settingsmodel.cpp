// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokitquick/settingsmodel.h>

#include "places_p.h"

namespace zokitquick {

SettingsModel::SettingsModel(QObject* parent) : zokit::SettingsModel(parent)
{
    connect(this, &zokit::SettingsModel::refused, this, [this](const zokit::Message& why) {
        if (m_source)
            emit m_source->refused(why.text());
    });
}

FileSettings* SettingsModel::source() const
{
    return m_source;
}

void SettingsModel::setSource(FileSettings* source)
{
    if (source == m_source)
        return;
    if (m_source)
        m_source->disconnect(this);
    m_source = source;
    if (source) {
        connect(source, &FileSettings::settingsChanged, this, &SettingsModel::follow);
        connect(source, &QObject::destroyed, this, &SettingsModel::sourceChanged);
    }
    follow();
    emit sourceChanged();
}

void SettingsModel::follow()
{
    setFile(m_source ? m_source->settings() : nullptr);
}

QModelIndex SettingsModel::at(const QString& address) const
{
    if (!file())
        return QModelIndex();
    const Place place = placeAt(*file(), address);
    return place.error.isEmpty() ? indexOf(place.thing, place.key) : QModelIndex();
}

QVariant SettingsModel::get(const QModelIndex& index, const QString& role) const
{
    const int number = roleNames().key(role.toUtf8(), -1);
    return number < 0 ? QVariant() : data(index, number);
}

bool SettingsModel::set(const QModelIndex& index, const QString& role, const QVariant& value)
{
    return setData(index, value, roleNames().key(role.toUtf8(), -1));
}

QVariant SettingsModel::data(const QModelIndex& index, int role) const
{
    switch (role) {
    case ValueTextRole: {
        const QModelIndex value = index.siblingAtColumn(ValueColumn);
        const bool isValue = index.isValid() && zokit::SettingsModel::data(index, KindRole).toInt() == PropertyRow;
        return isValue ? zokit::SettingsModel::data(value, Qt::DisplayRole) : QVariant();
    }
    case CheckedRole: {
        const QVariant state = zokit::SettingsModel::data(index.siblingAtColumn(NameColumn), Qt::CheckStateRole);
        return state.isValid() ? QVariant(state.toInt() == Qt::Checked) : QVariant();
    }
    default:
        return zokit::SettingsModel::data(index, role);
    }
}

bool SettingsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role == CheckedRole)
        return zokit::SettingsModel::setData(index, value.toBool() ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    return zokit::SettingsModel::setData(index, plainValue(value), role);
}

QHash<int, QByteArray> SettingsModel::roleNames() const
{
    QHash<int, QByteArray> names = zokit::SettingsModel::roleNames();
    names.insert(ValueTextRole, "valueText");
    names.insert(CheckedRole, "checked");
    return names;
}

} // namespace zokitquick
