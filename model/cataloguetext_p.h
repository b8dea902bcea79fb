// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The texts of catalogue tables, which are UTF-8, as strings of Qt: without making them anew each time.
namespace cataloguetext {

/// Whether \a text is what \a utf8 says.
bool equals(const QString& text, const char* utf8);

/// The string that \a utf8 says. Each thread keeps at most 256 strings, of texts of less than 64 bytes.
QString string(const char* utf8);

} // namespace cataloguetext
