// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QByteArray>
#include <QJsonObject>
#include <QPair>
#include <QString>
#include <QVector>

#include <zokit/message.h>

/// JSON as text: read within bounds, with the place of an error; written in an order of our own, a member a line.
namespace zokit::jsontext {

constexpr qint64 largestFile = qint64(16) * 1024 * 1024;
constexpr int deepest = 32;

/// Why a text is refused as a file before it is looked at any closer: it is larger or nests deeper than a file may.
Message beyondBounds(const QByteArray& json);

/// The object that \a json is; nothing, and \a error with line and column, when it is none, is larger than the largest
/// file, or nests deeper.
std::optional<QJsonObject> object(const QByteArray& json, Message* error);

/// The content of the regular file at \a path, within the bounds.
std::optional<QByteArray> load(const QString& path, Message* error);
/// Replaces the file at \a path by \a text, whole or not at all.
Message save(const QString& path, const QByteArray& text);

using Members = QVector<QPair<QString, QByteArray>>;

QByteArray compact(const QJsonValue& value);
QByteArray object(const Members& members);
QByteArray array(const QVector<QByteArray>& elements);
/// Adds every member of \a object.
void append(Members& members, const QJsonObject& object);

} // namespace zokit::jsontext
