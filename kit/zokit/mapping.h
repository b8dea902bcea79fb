// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QVector>

#include <zokit/zokit_export.h>

namespace zokit {

/// What a property does to the output.
struct ZOKIT_EXPORT Mapping {
    const char* type; ///< Effect type.
    const char* key;  ///< Of the property.
    bool mapped;      ///< False: it is not in the output, and "how" says why.
    const char* how;  ///< English, for the page of the mapping.
    const char* test; ///< "tst_kit_picture::cropIsExact", or empty where nothing comes out.
};

/// A row for each of properties(), in their order.
ZOKIT_EXPORT const QVector<Mapping>& mappings();
/// The page docs/mapping.md: the mapping, and the filters of the frame effects.
ZOKIT_EXPORT QByteArray mappingPage();

} // namespace zokit
