// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace zokit {

/// Whether two codes of languages mean the same: "en" and "eng", "fre" and "fra", in upper or lower case. What is no
/// code that is known means only itself.
bool sameLanguage(const QString& a, const QString& b);

} // namespace zokit
