// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "settingsform_p.h"

#include <algorithm>
#include <cmath>

#include <QDir>

#include <zokit/address.h>

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
    default: // Other numbers, colours and fonts have one.
        return QString();
    }
}

namespace {

/// Whether a member without a type's name can be \a value: JSON as it is.
bool isPlain(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong: // A whole number as Qt 6 reads it.
        return true;
    case QMetaType::Double:
        return std::isfinite(value.toDouble());
    case QMetaType::QString:
        return value.toString().isValidUtf16();
    case QMetaType::QStringList:
    case QMetaType::QVariantList: {
        const QVariantList list = value.toList();
        return std::all_of(list.cbegin(), list.cend(), isPlain);
    }
    case QMetaType::QVariantMap: {
        const QVariantMap map = value.toMap();
        return std::all_of(map.cbegin(), map.cend(), isPlain);
    }
    default:
        return false;
    }
}

/// Writes the members of one file, in the order in which a person reads them.
class Writer {
public:
    Writer(const QString& folder, bool preset) : m_folder(folder), m_isPreset(preset) {}

    QByteArray write(const Settings& settings);
    /// What cannot be written, the first of it.
    Message error() const { return m_error; }

private:
    QJsonValue path(const QString& file) const;
    void refuse(const QString& address);
    jsontext::Members values(const Values& values, const QString& type, int pos);
    QByteArray plain(const Values& values, const QString& where);
    QByteArray item(const Item& item, const QString& type, int pos);
    QByteArray type(const TypeSettings& type);

    QString m_folder;
    bool m_isPreset;
    Message m_error;
};

QJsonValue Writer::path(const QString& file) const
{
    const QString inside = m_folder.isEmpty() || file.isEmpty() ? QString() : QDir(m_folder).relativeFilePath(file);
    const bool below = !inside.isEmpty() && !inside.startsWith(QLatin1String("..")) && QDir::isRelativePath(inside);
    return below ? inside : file;
}

void Writer::refuse(const QString& address)
{
    if (m_error.isEmpty())
        m_error = Message(Message::Code::NotForAFile, {address});
}

/// Values that stand in a file without the names of their types.
QByteArray Writer::plain(const Values& values, const QString& where)
{
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        if (!isPlain(it.value()))
            refuse(where + QLatin1Char(':') + it.key());
    }
    return jsontext::compact(QJsonObject::fromVariantMap(values));
}

jsontext::Members Writer::values(const Values& values, const QString& type, int pos)
{
    jsontext::Members members;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const Property* known = findProperty(type, it.key());
        std::optional<QJsonValue> json = valuejson::toJson(it.value(), known ? modelValue(*known) : QVariant());
        if (json && known && known->isPath && it.value().userType() == QMetaType::QString)
            json = path(it.value().toString());
        if (json)
            members.append({it.key(), jsontext::compact(*json)});
        else
            refuse(Address{type, pos, it.key()}.toString());
    }
    return members;
}

QByteArray Writer::item(const Item& item, const QString& type, int pos)
{
    jsontext::Members members;
    if (!item.name.isEmpty())
        members.append({nameMember, jsontext::compact(item.name)});
    members.append({selectedMember, jsontext::compact(item.selected)});
    members.append({valuesMember, jsontext::object(values(item.values, type, pos))});
    if (!item.anchor.isEmpty())
        members.append({anchorMember, plain(item.anchor, Address{type, pos, anchorMember}.toString())});
    jsontext::append(members, item.foreign);
    return jsontext::object(members);
}

QByteArray Writer::type(const TypeSettings& type)
{
    jsontext::Members members;
    members.append({typeMember, jsontext::compact(type.type)});
    members.append({selectedMember, jsontext::compact(type.selected)});
    members.append({valuesMember, jsontext::object(values(type.values, type.type, Address::ofType))});
    if (hasItems(type.type)) {
        QVector<QByteArray> items;
        for (int pos = 0; pos < type.items.size(); ++pos)
            items.append(item(type.items.at(pos), type.type, pos));
        members.append({itemsMember, jsontext::array(items)});
    }
    jsontext::append(members, type.foreign);
    return jsontext::object(members);
}

QByteArray Writer::write(const Settings& settings)
{
    const QString frameMember = m_isPreset ? baseMember : mediaMember;
    QJsonObject foreign = settings.foreign;
    jsontext::Members frame;
    if (!m_isPreset)
        frame.append({QStringLiteral("file"), jsontext::compact(path(settings.media.file))});
    frame.append({QStringLiteral("width"), jsontext::compact(settings.media.frame.width())});
    frame.append({QStringLiteral("height"), jsontext::compact(settings.media.frame.height())});
    if (!m_isPreset && !std::isfinite(settings.media.seconds))
        refuse(QStringLiteral("media:seconds"));
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
        members.append({tracksMember, plain(settings.tracks, types::tracks)});
    Values output = settings.output;
    if (m_isPreset)
        output.remove(keys::trim);
    if (!output.isEmpty())
        members.append({outputMember, plain(output, types::output)});
    jsontext::append(members, foreign);
    return jsontext::object(members) + '\n';
}

} // namespace

QByteArray write(const Settings& settings, const QString& folder, bool preset, Message& error)
{
    Writer writer(folder, preset);
    const QByteArray text = writer.write(settings);
    error = writer.error().isEmpty() ? jsontext::beyondBounds(text) : writer.error();
    return error.isEmpty() ? text : QByteArray();
}

} // namespace zokit::form
