// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "settingsform_p.h"

#include <QColor>
#include <QDir>
#include <QFont>

#include "jsontext_p.h"
#include "names_p.h"
#include "valuejson_p.h"

namespace zokit::form {

QVariant modelValue(const Property& property)
{
    if (property.hasDefault())
        return property.defaultValue();
    switch (property.kind) {
    case ValueKind::Bool:
        return false;
    case ValueKind::Integer:
        return 0;
    case ValueKind::Number:
    case ValueKind::Range:
        return 0.0;
    case ValueKind::Color:
        return QColor();
    case ValueKind::Font:
        return QFont();
    default:
        return QString();
    }
}

namespace {

/// Writes the members of one file, in the order in which a person reads them.
class Writer {
public:
    Writer(const QString& folder, bool preset) : m_folder(folder), m_isPreset(preset) {}

    QByteArray write(const Settings& settings) const;

private:
    QJsonValue path(const QString& file) const;
    jsontext::Members values(const Values& values, const QString& type) const;
    QByteArray item(const Item& item, const QString& type) const;
    QByteArray type(const TypeSettings& type) const;

    QString m_folder;
    bool m_isPreset;
};

QJsonValue Writer::path(const QString& file) const
{
    const QString inside = m_folder.isEmpty() || file.isEmpty() ? QString() : QDir(m_folder).relativeFilePath(file);
    const bool below = !inside.isEmpty() && !inside.startsWith(QLatin1String("..")) && QDir::isRelativePath(inside);
    return below ? inside : file;
}

jsontext::Members Writer::values(const Values& values, const QString& type) const
{
    jsontext::Members members;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const Property* known = findProperty(type, it.key());
        std::optional<QJsonValue> json = valuejson::toJson(it.value(), known ? modelValue(*known) : QVariant());
        if (json && known && known->isPath && it.value().userType() == QMetaType::QString)
            json = path(it.value().toString());
        if (json)
            members.append({it.key(), jsontext::compact(*json)});
    }
    return members;
}

QByteArray Writer::item(const Item& item, const QString& type) const
{
    jsontext::Members members;
    if (!item.name.isEmpty())
        members.append({nameMember, jsontext::compact(item.name)});
    members.append({selectedMember, jsontext::compact(item.selected)});
    members.append({valuesMember, jsontext::object(values(item.values, type))});
    if (!item.anchor.isEmpty())
        members.append({anchorMember, jsontext::compact(QJsonObject::fromVariantMap(item.anchor))});
    jsontext::append(members, item.foreign);
    return jsontext::object(members);
}

QByteArray Writer::type(const TypeSettings& type) const
{
    jsontext::Members members;
    members.append({typeMember, jsontext::compact(type.type)});
    members.append({selectedMember, jsontext::compact(type.selected)});
    members.append({valuesMember, jsontext::object(values(type.values, type.type))});
    if (hasItems(type.type)) {
        QVector<QByteArray> items;
        for (const Item& one : type.items)
            items.append(item(one, type.type));
        members.append({itemsMember, jsontext::array(items)});
    }
    jsontext::append(members, type.foreign);
    return jsontext::object(members);
}

QByteArray Writer::write(const Settings& settings) const
{
    const QString frameMember = m_isPreset ? baseMember : mediaMember;
    QJsonObject foreign = settings.foreign;
    jsontext::Members frame;
    if (!m_isPreset)
        frame.append({QStringLiteral("file"), jsontext::compact(path(settings.media.file))});
    frame.append({QStringLiteral("width"), jsontext::compact(settings.media.frame.width())});
    frame.append({QStringLiteral("height"), jsontext::compact(settings.media.frame.height())});
    if (!m_isPreset)
        frame.append({QStringLiteral("seconds"), jsontext::compact(settings.media.seconds)});
    jsontext::append(frame, foreign.take(frameMember).toObject());

    jsontext::Members members;
    members.append({versionMember, jsontext::compact(formVersion)});
    members.append({frameMember, jsontext::object(frame)});
    QVector<QByteArray> types;
    for (const TypeSettings& one : settings.effects)
        types.append(type(one));
    members.append({effectsMember, jsontext::array(types)});
    if (!settings.tracks.isEmpty())
        members.append({tracksMember, jsontext::compact(QJsonObject::fromVariantMap(settings.tracks))});
    Values output = settings.output;
    if (m_isPreset)
        output.remove(keys::trim);
    if (!output.isEmpty())
        members.append({outputMember, jsontext::compact(QJsonObject::fromVariantMap(output))});
    jsontext::append(members, foreign);
    return jsontext::object(members) + '\n';
}

} // namespace

QByteArray write(const Settings& settings, const QString& folder, bool preset)
{
    return Writer(folder, preset).write(settings);
}

} // namespace zokit::form
