// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <zokit/conversion.h>

/// What the tests of conversions say again and again.
namespace conversionsupport {

constexpr int patience = 60000; // Milliseconds; only a hang takes so long.

using Edits = QMap<QString, QVariant>; // By address; "Watermark" inserts items with these values.

/// The defaults of that clip with the edits; one that is refused is told in the log.
zokit::Settings settingsFor(const zokit::MediaInfo& media, const Edits& edits);

struct Converted {
    zokit::ConversionResult result;
    QStringList lines;      ///< Of the tracks.
    zokit::MediaInfo media; ///< Of the result; without streams when there is none.
    QStringList left;       ///< What else is in the folder.
};

Converted convert(const QString& input, const Edits& edits, const QString& output);

/// The reason and the warnings, a line each.
QString said(const zokit::ConversionResult& result);

/// What \a program writes to standard output; FILE among the \a words, which blanks part, stands for \a file.
QByteArray outputOf(const QString& program, const QString& words, const QString& file);

} // namespace conversionsupport
