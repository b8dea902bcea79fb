// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QString>
#include <QStringView>
#include <QVariant>

/// Values as text in one line and back, in exactly the type in which they were: the notation that
/// guardedini_p.h shows. Reading takes what it understands off the front of a text.
///
/// Types that can be written: the invalid value, bool, the integer types, float, double, QString, QStringList,
/// QByteArray, QVariantList, QVariantMap, QVariantHash, QColor, QFont, QChar, QUuid, QUrl, QDate, QTime,
/// QDateTime (but for a named time zone), QLocale, QRegularExpression, QBitArray, the points, sizes, lines, rectangles
/// and polygons of Core and Gui, QKeySequence, QTransform, QMatrix4x4, the vectors and QQuaternion.
namespace valuetext {

/// How deep maps and lists may stand in each other. Neither direction recurses deeper.
constexpr int maxDepth = 32;

/// Texts that grow longer, in UTF-16 units, are given up.
constexpr qint64 maxLength = qint64(2) * 1024 * 1024;

/// Appends \a value. False, with something appended, when the value cannot be written.
bool append(QString& text, const QVariant& value);

/// Appends \a key, in quotes unless it is a bare word. False when the text grows too long.
bool appendKey(QString& text, const QString& key);

std::optional<QVariant> take(QStringView& rest);
std::optional<QString> takeKey(QStringView& rest);

/// Takes \a expected; false, and nothing taken, when \a rest does not begin with it.
bool take(QStringView& rest, QLatin1String expected);

} // namespace valuetext
