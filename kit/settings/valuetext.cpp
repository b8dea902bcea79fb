// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/valuetext.h>

#include <algorithm>

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>

#include <zokit/differences.h>
#include <zokit/placement.h>
#include <zokit/properties.h>

#include "jsontext_p.h"
#include "names_p.h"
#include "newitem_p.h"
#include "settingsform_p.h"
#include "valuejson_p.h"

namespace zokit {

namespace {

/// "top left, 10 %"
QString anchorLabel(const Values& values)
{
    const std::optional<Anchor> anchor = anchorFrom(values);
    if (!anchor)
        return QString();
    return cornerName(anchor->corner) + QStringLiteral(", ") + QString::number(anchor->margin)
           + (anchor->marginInPercent ? QStringLiteral(" %") : QStringLiteral(" px"));
}

} // namespace

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
    if (value.userType() == QMetaType::QString && value.toString().isEmpty())
        return QString(); // Also a null one, which a file keeps apart.
    const QJsonValue json = valueAsJson(address, value);
    if (json.isNull() || json.isUndefined())
        return QString();
    const auto plain = [](const QJsonValue& one) {
        return one.isString() ? one.toString() : QString::fromUtf8(jsontext::compact(one));
    };
    if (!json.isArray())
        return plain(json);
    QStringList words;
    const QJsonArray all = json.toArray();
    for (const QJsonValue& one : all)
        words.append(plain(one));
    return words.join(QLatin1Char(','));
}

QString addressLabel(const Address& address)
{
    QString thing = displayName(address.type);
    if (address.pos != Address::ofType)
        thing += QStringLiteral(" %1").arg(address.pos + 1);
    const Property* property = findProperty(address.type, address.key);
    QString label = property ? property->label() : address.key;
    if (!property && address.key == QLatin1String("anchor"))
        label = QCoreApplication::translate("zokit", "Anchor");
    else if (address.key == QLatin1String("selected"))
        label = QCoreApplication::translate("zokit", "In use");
    else if (!property && address.key == QLatin1String("name"))
        label = QCoreApplication::translate("zokit", "Name");
    return thing + QStringLiteral(": ") + label;
}

QString itemLabel(const QString& type, const Item& item)
{
    const Values& values = item.values;
    const auto fileName = [](const QVariant& path) { return QFileInfo(path.toString()).fileName(); };
    QString name;
    switch (suitOf(type, true, values)) {
    case Suit::TextWatermark:
        name = values.value(keys::textContent).toString().simplified();
        break;
    case Suit::ImageWatermark:
        name = fileName(values.value(keys::imageUrl));
        break;
    case Suit::FileTrack:
        name = fileName(values.value(keys::trackFile));
        break;
    case Suit::EmbeddedTrack:
        name = QCoreApplication::translate("zokit", "Track %1").arg(values.value(keys::trackId).toInt());
        break;
    case Suit::FrameEffect:
        name = displayName(item.name);
        break;
    case Suit::Type:
        break;
    }
    return name.isEmpty() ? displayName(type) : name;
}

QString valueLabel(const Address& address, const QVariant& value)
{
    const Property* property = findProperty(address.type, address.key);
    if (!value.isValid())
        return QString();
    if (address.key == QLatin1String("selected") || (property && property->kind == ValueKind::Bool))
        return value.toBool() ? QCoreApplication::translate("zokit", "Yes")
                              : QCoreApplication::translate("zokit", "No");
    if (property && !property->choices.isEmpty())
        return property->choiceName(value);
    if (address.key == QLatin1String("anchor"))
        return anchorLabel(value.toMap());
    if (property && property->kind == ValueKind::Integer && value.userType() == QMetaType::QString)
        return QCoreApplication::translate("zokit", "as the frame"); // "source_val"
    const QString text = valueAsText(address, value);
    const QString unit = property ? property->unitName() : QString();
    return unit.isEmpty() || text.isEmpty() ? text : text + QLatin1Char(' ') + unit;
}

QString differenceLabel(const Difference& difference)
{
    const auto label = [&](const QVariant& value) {
        return value.isValid() ? valueLabel(difference.address, value) : QCoreApplication::translate("zokit", "none");
    };
    return QStringLiteral("%1: %2 -> %3")
        .arg(addressLabel(difference.address), label(difference.a), label(difference.b));
}

} // namespace zokit
