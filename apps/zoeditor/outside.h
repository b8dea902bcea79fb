// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace zoeditor {

/// Opens the file or folder \a path with the program that the desktop has for it. Empty, or a sentence for people where
/// there is none.
QString openOutside(const QString& path);

} // namespace zoeditor
