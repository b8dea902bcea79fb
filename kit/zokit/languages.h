// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <zokit/zokit_export.h>

namespace zokit {

/// The languages that are known, each by one code of three letters.
ZOKIT_EXPORT QStringList languageCodes();

/// What a language calls itself: "fran\u00e7ais" for "fra", "fre" and "fr", in upper or lower case. \a code itself
/// where it is not known.
ZOKIT_EXPORT QString languageName(const QString& code);

} // namespace zokit
