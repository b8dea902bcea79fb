// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/address.h>

#include <zokit/outputoptions.h>
#include <zokit/properties.h>

#include "things_p.h"

namespace zokit {

namespace {

const QString outputType = QStringLiteral("Output");
const QString tracksType = QStringLiteral("Tracks");
const QString watermarkType = QStringLiteral("Watermark");

QStringList typeNames()
{
    return effectTypes() + QStringList{outputType, tracksType};
}

QStringList keysOf(const QString& type)
{
    QStringList keys;
    for (const Property& known : properties()) {
        if (known.type == type)
            keys.append(known.key);
    }
    if (type != tracksType)
        keys.append(own::selected);
    if (type == watermarkType)
        keys.append(own::anchor);
    return keys;
}

Message checked(const Address& address)
{
    using Code = Message::Code;
    if (!typeNames().contains(address.type))
        return Message(Code::UnknownType, {address.type, nearest(address.type, typeNames())});
    if (address.pos != Address::ofType && !hasItems(address.type))
        return Message(Code::TypeHasNoItems, {address.type});
    if (address.type == outputType) {
        QStringList names;
        for (const OutputOption& option : outputOptions())
            names.append(option.property.key);
        return names.contains(address.key) ? Message()
                                           : Message(Code::UnknownOption, {address.key, nearest(address.key, names)});
    }
    const QStringList keys = keysOf(address.type);
    if (!keys.contains(address.key))
        return Message(Code::UnknownKey, {address.type, address.key, nearest(address.key, keys)});
    return Message();
}

} // namespace

QString Address::toString() const
{
    const QString colon = QStringLiteral(":");
    return pos == ofType ? type + colon + key : type + colon + QString::number(pos) + colon + key;
}

bool operator==(const Address& left, const Address& right)
{
    return left.type == right.type && left.pos == right.pos && left.key == right.key;
}

ReadAddress readAddress(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    Address address;
    bool wellFormed = parts.size() == 2;
    if (parts.size() == 3) {
        address.pos = parts.at(1).toInt(&wellFormed);
        wellFormed = wellFormed && address.pos >= 0 && parts.at(1).at(0).isDigit();
    }
    if (!wellFormed || parts.first().isEmpty() || parts.last().isEmpty())
        return {std::nullopt, Message(Message::Code::AddressMalformed, {text})};
    address.type = parts.first();
    address.key = asKept(parts.last());
    if (Message error = checked(address); !error.isEmpty())
        return {std::nullopt, error};
    return {address, Message()};
}

} // namespace zokit
