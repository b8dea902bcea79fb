// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVariant>

#include "valuetext_p.h"

/// The file format of the embedded preference store, as functions on bytes. UTF-8, lines end in "\n":
///
///     ; Custom defaults ...                 the first line, always the same
///     [Watermark]                           an entry: its key, then
///     wm_transparency=int 80                one line per property of a map, key=type value, or
///     =invalid                              one line without key for a value that is no map
///     ; sha1 2fd4e1c67a2d28fced849ee1bb...  the last line: checksum of all bytes before it
///
/// Keys are bare words (ASCII letters, digits, "_") or quoted as strings are: in double quotes, with \" and \\,
/// and \u000a and the like for each UTF-16 unit that is not printable by itself. Types bear Qt's names:
///
///     bool true              QColor #aarrggbb         QVariantMap {a=int 1, "b c"=invalid}
///     int -5                 QFont "Tahoma" <hex>     QVariantList [int 1, QString "x"]
///     double 0.25            QRect <hex>              QStringList ["a", "b"]
///
/// <hex> is the value's QDataStream at version 5.15, which Qt 5 and Qt 6 read and write alike; a font's family
/// is repeated for human readers.
namespace guardedini {

using Entries = QMap<QString, QVariant>;

/// A thousand times what the custom defaults of all effect types need, and still read, merged and written
/// well within the time that a save may take.
constexpr qint64 maxFileSize = valuetext::maxLength;

/// The entries of \a file; nothing when it is not exactly a file of this format, cut, changed or hostile.
std::optional<Entries> parsed(const QByteArray& file);

struct Merge {
    QByteArray file; ///< The file that holds \a entries.
    Entries entries; ///< What was present, with the changes laid over it.
    Entries leftOut; ///< Changes that the file cannot hold: a type without text, too deep, too large.
};

/// Lays \a changes over \a present. A change that the file cannot hold leaves the present entry as it is.
Merge merged(const Entries& present, const Entries& changes);

} // namespace guardedini
