// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QJsonValue>
#include <QVariant>

/// Values as JSON and back, in exactly the type in which they were, bit by bit.
///
/// A value that has the type of its key's default is plain: true, 5, 0.25, "text", a colour "#rrggbb" or "#aarrggbb",
/// a font "Family" or {"family": "...", "points": 12, "weight": 75, "italic": true, "underline": true,
/// "strikeout": true}, with "pixels" in place of "points" if it is so measured. Weights are Qt 5's: 50 normal, 75 bold.
/// Where the default is the word "source_val" a whole number and that word are plain.
///
/// Any other value is wrapped: {"bool": true}, {"int": 5}, {"double": 5}, {"string": "5"}, {"color": "#ffffff"},
/// {"font": {...}}; {"map": {...}} and {"list": [...]} with wrapped values in them; {"strings": [...]}.
/// What these cannot hold exactly (an infinite number, half a surrogate pair, a colour in CMYK), and values of some
/// flat types, bear the type's name with base64 of the value's QDataStream of 5.15: {"QSize": "AAAAAQAAAAI="}.
/// An invalid value is null.
namespace valuejson {

/// How deep maps and lists may stand in each other.
constexpr int maxDepth = 32;

/// A value of more UTF-16 units, bytes and elements in all is not written.
constexpr qint64 maxSize = qint64(2) * 1024 * 1024;

/// Nothing when the value cannot be kept: its type, its depth or its size. \a defaultValue is that of the key, invalid
/// when the key has none.
std::optional<QJsonValue> toJson(const QVariant& value, const QVariant& defaultValue);

/// Nothing when \a json stands for no value of such a key.
std::optional<QVariant> fromJson(const QJsonValue& json, const QVariant& defaultValue);

} // namespace valuejson
