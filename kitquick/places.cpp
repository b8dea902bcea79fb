// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "places_p.h"

#include <QJSValue>
#include <QStringList>

#include <zokit/address.h>
#include <zokit/filesettings.h>
#include <zokit/properties.h>

namespace zokitquick {

namespace {

using zokit::Address;
using zokit::Message;

/// Types and items have a check box in common: with its key an address of one of them reads like that of a value.
zokit::ReadAddress readWhole(const QString& text)
{
    if (text == QLatin1String("Output") || text == QLatin1String("Tracks"))
        return {Address{text, Address::ofType, QString()}, Message()};
    zokit::ReadAddress read = zokit::readAddress(text + QLatin1String(":selected"));
    if (read.address)
        read.address->key.clear();
    else if (read.error.code() == Message::Code::AddressMalformed)
        read.error = Message(read.error.code(), {text});
    return read;
}

} // namespace

Place placeAt(const zokit::FileSettings& file, const QString& address)
{
    const QStringList parts = address.split(QLatin1Char(':'));
    bool isPosition = false;
    parts.last().toInt(&isPosition);
    const bool isWhole = parts.size() == 1 || (parts.size() == 2 && isPosition);
    const zokit::ReadAddress read = isWhole ? readWhole(address) : zokit::readAddress(address);
    Place place;
    place.error = read.error;
    if (!read.address)
        return place;
    place.type = read.address->type;
    place.isItem = read.address->pos != Address::ofType;
    place.key = read.address->key;
    place.thing = file.thing(*read.address);
    if (place.thing == 0)
        place.error = Message(Message::Code::NoSuchItem, {place.type, QString::number(read.address->pos),
                                                          QString::number(file.items(place.type).size())});
    return place;
}

QVariant plainValue(const QVariant& value)
{
    return value.userType() == qMetaTypeId<QJSValue>() ? value.value<QJSValue>().toVariant() : value;
}

} // namespace zokitquick
