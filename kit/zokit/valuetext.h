// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonValue>
#include <QString>
#include <QVariant>

#include <zokit/address.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// \a value as a settings file has it at \a address: plain where its type is that of the key's default, else wrapped.
/// Null for an invalid value.
ZOKIT_EXPORT QJsonValue valueAsJson(const Address& address, const QVariant& value);

/// The same for people: a text as it is, lists with commas, colours as "#rrggbb"; empty for an invalid value. What
/// can be set by "--set ADDRESS=VALUE" reads as it would be written there.
ZOKIT_EXPORT QString valueAsText(const Address& address, const QVariant& value);

/// What stands at \a address, as people call it: "Colours: Contrast", "Watermarks 2: Font size". Positions count from 1
/// here. Translated.
ZOKIT_EXPORT QString addressLabel(const Address& address);
/// What people call \a item of \a type: its text, its file, its track, its effect; else the type. Translated.
ZOKIT_EXPORT QString itemLabel(const QString& type, const Item& item);
/// \a value as a panel shows it: "Yes", the name of a choice, "12 px". Empty for an invalid value. Translated.
ZOKIT_EXPORT QString valueLabel(const Address& address, const QVariant& value);

} // namespace zokit
