// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/valuetext.h>

#include <algorithm>

#include <QJsonArray>

#include <zokit/properties.h>

#include "jsontext_p.h"
#include "settingsform_p.h"
#include "valuejson_p.h"

namespace zokit {

QJsonValue valueAsJson(const Address& address, const QVariant& value)
{
    const bool isOption = address.type == QLatin1String("Output") || address.type == QLatin1String("Tracks");
    const bool isOwn = address.key == QLatin1String("selected") || address.key == QLatin1String("anchor")
                       || address.key == QLatin1String("name");
    if (isOption || isOwn)
        return QJsonValue::fromVariant(value);
    const Property* known = findProperty(address.type, address.key);
    return valuejson::toJson(value, known ? form::modelValue(*known) : QVariant()).value_or(QJsonValue());
}

QString valueAsText(const Address& address, const QVariant& value)
{
    const QJsonValue json = valueAsJson(address, value);
    if (json.isNull() || json.isUndefined())
        return QString();
    const auto plain = [](const QJsonValue& one) {
        return one.isString() ? one.toString() : QString::fromUtf8(jsontext::compact(one));
    };
    if (!json.isArray())
        return plain(json);
    QStringList words;
    for (const QJsonValue& one : json.toArray())
        words.append(plain(one));
    return words.join(QLatin1Char(','));
}

} // namespace zokit
