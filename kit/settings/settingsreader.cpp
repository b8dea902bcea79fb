// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "settingsform_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QFont>
#include <QJsonArray>

#include <zokit/address.h>
#include <zokit/outputoptions.h>
#include <zokit/placement.h>
#include <zokit/tracks.h>

#include "completion_p.h"
#include "names_p.h"
#include "things_p.h"
#include "valuejson_p.h"

namespace zokit::form {

bool mayLieBeyondBounds(const Property& property)
{
    return property.isGeometry || property.key.endsWith(QLatin1String("_fontsize"));
}

namespace {

using Code = Message::Code;

// What is expected, in the language of the moment when it is said.
constexpr const char* anObject = QT_TRANSLATE_NOOP("zokit", "an object");
constexpr const char* aList = QT_TRANSLATE_NOOP("zokit", "a list");
constexpr const char* aValue = QT_TRANSLATE_NOOP("zokit", "a value");

bool isHostsOwn(const QString& member)
{
    return member.startsWith(QLatin1String("x-"));
}

/// Reads the members of one file. The first error stays; what follows it is not looked at.
class Reader {
public:
    Reader(const QString& folder, bool preset) : m_folder(folder), m_isPreset(preset) {}

    ReadSettings read(const QJsonObject& root);

private:
    bool ok() const { return m_error.isEmpty(); }
    void fail(const Message& error)
    {
        if (ok())
            m_error = error;
    }
    void expect(bool condition, const QString& where, const char* expected)
    {
        if (!condition)
            fail(Message(Code::MemberType, {where, QString::fromLatin1(expected)}));
    }

    void readVersion(const QJsonObject& root);
    void readFrame(const QJsonValue& json);
    QJsonObject foreignOf(const QJsonObject& object, const QStringList& known, const QString& where);
    bool flag(const QJsonObject& object, const QString& member, bool fallback, const QString& where);
    TypeSettings readType(const QJsonValue& json, int index);
    bool readSelected(const QJsonObject& object, bool fallback, const QString& where, Values& values);
    Item readItem(const QJsonValue& json, const QString& type, int pos);
    Values readValues(const QJsonValue& json, const QString& type, int pos);
    QVariant readKnown(const QJsonValue& json, const Property& property, const QString& where);
    void readTracks(const QJsonValue& json);
    void readOutput(const QJsonValue& json);
    QString path(const QString& text) const;

    QString m_folder;
    bool m_isPreset;
    int m_items = 0;
    Settings m_settings;
    Message m_error;
};

QString Reader::path(const QString& text) const
{
    if (text.isEmpty() || m_folder.isEmpty())
        return text;
    return QDir::cleanPath(QDir(m_folder).absoluteFilePath(text));
}

bool Reader::flag(const QJsonObject& object, const QString& member, bool fallback, const QString& where)
{
    const QJsonValue json = object.value(member);
    if (json.isUndefined())
        return fallback;
    expect(json.isBool(), where + QLatin1Char(':') + member, QT_TRANSLATE_NOOP("zokit", "true or false"));
    return json.toBool(fallback);
}

/// The host's own members of \a object; any other that is not \a known is refused.
QJsonObject Reader::foreignOf(const QJsonObject& object, const QStringList& known, const QString& where)
{
    QJsonObject foreign;
    for (auto it = object.begin(); it != object.end(); ++it) {
        if (isHostsOwn(it.key()))
            foreign.insert(it.key(), it.value());
        else if (!known.contains(it.key()))
            fail(Message(Code::UnknownMember, {where, it.key(), nearest(it.key(), known)}));
    }
    return foreign;
}

void Reader::readVersion(const QJsonObject& root)
{
    const QJsonValue version = root.value(versionMember);
    if (!version.isDouble() || version.toInt() < 1) // Half a version is read as none.
        fail(Message(Code::NotThisForm));
    else if (version.toInt() > formVersion)
        fail(Message(Code::NewerVersion, {QString::number(version.toInt()), QString::number(formVersion)}));
}

void Reader::readFrame(const QJsonValue& json)
{
    const QString where = m_isPreset ? baseMember : mediaMember;
    expect(json.isObject() || json.isUndefined(), where, anObject);
    const QJsonObject media = json.toObject();
    const auto side = [&](const char* name) {
        const QJsonValue value = media.value(QLatin1String(name));
        const bool isSide = value.isUndefined() || (value.isDouble() && value.toInt(-1) >= 0);
        expect(isSide, where + QLatin1Char(':') + QLatin1String(name),
               QT_TRANSLATE_NOOP("zokit", "a number of pixels"));
        return value.toInt();
    };
    m_settings.media.frame = QSize(side("width"), side("height"));
    QJsonObject foreign = media;
    foreign.remove(QStringLiteral("width"));
    foreign.remove(QStringLiteral("height"));
    if (!m_isPreset) {
        const QJsonValue file = media.value(QStringLiteral("file"));
        expect(file.isString() || file.isUndefined(), QStringLiteral("media:file"),
               QT_TRANSLATE_NOOP("zokit", "a path"));
        m_settings.media.file = path(file.toString());
        const QJsonValue seconds = media.value(QStringLiteral("seconds"));
        expect(seconds.isUndefined() || (seconds.isDouble() && seconds.toDouble() >= 0),
               QStringLiteral("media:seconds"), QT_TRANSLATE_NOOP("zokit", "a number of seconds"));
        m_settings.media.seconds = seconds.toDouble();
        foreign.remove(QStringLiteral("file"));
        foreign.remove(QStringLiteral("seconds"));
    }
    if (!foreign.isEmpty())
        m_settings.foreign.insert(where, foreign);
}

/// A value of a known property: exactly as written, else as people spell it.
QVariant Reader::readKnown(const QJsonValue& json, const Property& property, const QString& where)
{
    const bool wrapped = json.isObject() && property.kind != ValueKind::Font;
    const std::optional<QVariant> exact = valuejson::fromJson(json, modelValue(property));
    if (wrapped) {
        if (!exact)
            fail(Message(Code::MemberType, {where, QString::fromLatin1(aValue)}));
        return exact.value_or(QVariant());
    }
    if (exact && json.isObject())
        return *exact; // A font with more than a family.
    if (exact && mayLieBeyondBounds(property))
        return *exact;
    const ReadValue read = readValue(property, json.toVariant(), m_settings.media.frame, where);
    fail(read.error);
    if (!read.error.isEmpty())
        return QVariant();
    if (property.isPath)
        return path(read.value.toString());
    // What the codec read has every bit; the other way of reading is for other spellings.
    return exact && exact->userType() == read.value.userType() ? *exact : read.value;
}

Values Reader::readValues(const QJsonValue& json, const QString& type, int pos)
{
    const QString where = pos < 0 ? type : QStringLiteral("%1:%2").arg(type).arg(pos);
    expect(json.isObject() || json.isUndefined(), where + QStringLiteral(":values"), anObject);
    Values values;
    const QJsonObject object = json.toObject();
    for (auto it = object.begin(); it != object.end() && ok(); ++it) {
        const QString address = where + QLatin1Char(':') + it.key();
        if (const Property* known = findProperty(it.key() == own::checkState ? types::effect : type, it.key())) {
            values.insert(it.key(), readKnown(it.value(), *known, address));
            continue;
        }
        const std::optional<QVariant> own =
            it.value().isObject() && !isInternal(it.key()) ? valuejson::fromJson(it.value(), QVariant()) : std::nullopt;
        if (own)
            values.insert(it.key(), *own);
        else
            fail(readAddress(type + QLatin1Char(':') + it.key()).error);
        if (!own && ok())
            fail(Message(Code::MemberType, {address, QString::fromLatin1(aValue)}));
    }
    return values;
}

/// Whether \a object is selected: as it says, else as \a values of it say in the library's word, which is none of them.
bool Reader::readSelected(const QJsonObject& object, bool fallback, const QString& where, Values& values)
{
    const QVariant state = values.take(own::checkState);
    return flag(object, selectedMember, state.isValid() ? state.toBool() : fallback, where);
}

Item Reader::readItem(const QJsonValue& json, const QString& type, int pos)
{
    const QString where = QStringLiteral("%1:%2").arg(type).arg(pos);
    expect(json.isObject(), where, anObject);
    const QJsonObject object = json.toObject();
    QStringList known{selectedMember, valuesMember};
    if (type == types::effect)
        known.append(nameMember);
    if (type == types::watermark)
        known.append(anchorMember);
    Item item;
    item.foreign = foreignOf(object, known, where);
    item.values = readValues(object.value(valuesMember), type, pos);
    item.selected = readSelected(object, type != types::effect, where, item.values);
    if (type == types::effect) {
        item.name = object.value(nameMember).toString();
        QStringList names;
        for (const FrameEffect& frameEffect : frameEffects())
            names.append(QString::fromUtf8(frameEffect.name));
        if (!names.contains(item.name))
            fail(Message(Code::UnknownFrameEffect, {where, item.name, nearest(item.name, names)}));
    }
    const QJsonValue anchor = object.value(anchorMember);
    if (!anchor.isUndefined() && ok()) {
        expect(anchor.isObject(), where + QStringLiteral(":anchor"), anObject);
        item.anchor = anchor.toObject().toVariantMap();
        QVariant& margin = item.anchor[QStringLiteral("margin")]; // 0 would be another number than 0.0.
        if (!margin.isValid())
            item.anchor.remove(QStringLiteral("margin"));
        else if (anchor.toObject().value(QStringLiteral("margin")).isDouble())
            margin = margin.toDouble();
        foreignOf(anchor.toObject(), {QStringLiteral("corner"), QStringLiteral("margin"), QStringLiteral("size")},
                  where + QStringLiteral(":anchor"));
        Message error;
        if (!anchorFrom(item.anchor, &error))
            fail(Message(Code::InFile, {where + QStringLiteral(":anchor")}, error));
    }
    return item;
}

TypeSettings Reader::readType(const QJsonValue& json, int index)
{
    const QString where = QStringLiteral("effects[%1]").arg(index);
    expect(json.isObject(), where, anObject);
    const QJsonObject object = json.toObject();
    TypeSettings type;
    type.type = object.value(typeMember).toString();
    if (!effectTypes().contains(type.type)) {
        fail(Message(Code::UnknownType, {type.type, nearest(type.type, effectTypes())}));
        return type;
    }
    if (m_settings.find(type.type))
        fail(Message(Code::TypeTwice, {type.type}));
    QStringList known{typeMember, selectedMember, valuesMember};
    if (hasItems(type.type))
        known.append(itemsMember);
    type.foreign = foreignOf(object, known, type.type);
    type.values = readValues(object.value(valuesMember), type.type, Address::ofType);
    type.selected = readSelected(object, true, type.type, type.values);
    const QJsonValue items = object.value(itemsMember);
    expect(items.isArray() || items.isUndefined(), type.type + QStringLiteral(":items"), aList);
    const QJsonArray array = items.toArray();
    m_items += static_cast<int>(array.size());
    if (m_items > mostItems)
        fail(Message(Code::TooManyItems, {QString::number(mostItems)}));
    for (int pos = 0; pos < array.size() && ok(); ++pos)
        type.items.append(readItem(array.at(pos), type.type, pos));
    return type;
}

void Reader::readTracks(const QJsonValue& json)
{
    expect(json.isObject() || json.isUndefined(), tracksMember, anObject);
    const Values given = json.toObject().toVariantMap();
    Message error;
    if (!trackRulesFrom(given, &error))
        fail(error);
    for (auto it = given.cbegin(); it != given.cend() && ok(); ++it) {
        const ReadValue read = readValue(*findProperty(QStringLiteral("Tracks"), it.key()), it.value(), QSize(),
                                         QStringLiteral("Tracks:") + it.key());
        fail(read.error);
        m_settings.tracks.insert(it.key(), read.value);
    }
}

void Reader::readOutput(const QJsonValue& json)
{
    expect(json.isObject() || json.isUndefined(), outputMember, anObject);
    const QJsonObject object = json.toObject();
    for (auto it = object.begin(); it != object.end() && ok(); ++it) {
        const OutputOption* option = outputOption(it.key());
        const bool allowed = option && (m_isPreset ? option->inPresets : option->inSettings);
        QStringList names;
        for (const OutputOption& known : outputOptions()) {
            if (m_isPreset ? known.inPresets : known.inSettings)
                names.append(known.property.key);
        }
        if (!allowed) {
            fail(Message(Code::UnknownMember, {outputMember, it.key(), nearest(it.key(), names)}));
            return;
        }
        const QString where = QStringLiteral("Output:") + it.key();
        const ReadValue read = readValue(option->property, it.value().toVariant(), m_settings.media.frame, where);
        fail(read.error);
        m_settings.output.insert(it.key(), read.value);
    }
}

ReadSettings Reader::read(const QJsonObject& root)
{
    readVersion(root);
    const QString frameMember = m_isPreset ? baseMember : mediaMember;
    const QStringList known{versionMember, frameMember, effectsMember, tracksMember, outputMember};
    for (auto it = root.begin(); it != root.end(); ++it) {
        if (!known.contains(it.key()))
            m_settings.foreign.insert(it.key(), it.value());
    }
    if (m_isPreset && root.contains(mediaMember))
        fail(Message(Code::PresetHolds, {mediaMember}));
    if (ok())
        readFrame(root.value(frameMember));
    const QJsonValue effects = root.value(effectsMember);
    expect(effects.isArray() || effects.isUndefined(), effectsMember, aList);
    const QJsonArray types = effects.toArray();
    for (int index = 0; index < types.size() && ok(); ++index) {
        TypeSettings type = readType(types.at(index), index);
        m_settings.effects.append(type);
    }
    if (ok())
        readTracks(root.value(tracksMember));
    if (ok())
        readOutput(root.value(outputMember));
    if (!ok())
        return {std::nullopt, m_error, {}};
    if (!m_isPreset)
        return {completed(m_settings), Message(), {}};
    // Without a frame there are no places by default: the target's frame gives them.
    for (TypeSettings& type : m_settings.effects) {
        if (!m_settings.media.frame.isEmpty())
            type = completedType(type, baseFrame(m_settings));
    }
    return {m_settings, Message(), {}};
}

} // namespace

ReadSettings read(const QJsonObject& root, const QString& folder, bool preset)
{
    return Reader(folder, preset).read(root);
}

} // namespace zokit::form
