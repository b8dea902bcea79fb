// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QVariant>

#include <zokit/properties.h>
#include <zokit/settings.h>
#include <zokit/settingsfile.h>

/// The form of settings files and presets: what the reader and the writer share.
namespace zokit::form {

inline constexpr int formVersion = 1;
inline constexpr int mostItems = 100000;

inline const QString versionMember = QStringLiteral("zoeffect");
inline const QString mediaMember = QStringLiteral("media");
inline const QString baseMember = QStringLiteral("base");
inline const QString effectsMember = QStringLiteral("effects");
inline const QString tracksMember = QStringLiteral("tracks");
inline const QString outputMember = QStringLiteral("output");
inline const QString typeMember = QStringLiteral("type");
inline const QString selectedMember = QStringLiteral("selected");
inline const QString valuesMember = QStringLiteral("values");
inline const QString itemsMember = QStringLiteral("items");
inline const QString nameMember = QStringLiteral("name");
inline const QString anchorMember = QStringLiteral("anchor");

/// A value of the type that a property has, for the codec: the catalogue's default where there is one.
QVariant modelValue(const Property& property);
/// Whether a file may hold a value that a person could not set: rescaling may have computed it.
bool mayLieBeyondBounds(const Property& property);

/// Reads what stands in \a root, a file of \a folder; a preset or settings.
ReadSettings read(const QJsonObject& root, const QString& folder, bool preset);
/// Empty, with \a error saying why, when it could not be read again.
QByteArray write(const Settings& settings, const QString& folder, bool preset, Message& error);

} // namespace zokit::form
