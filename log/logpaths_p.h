// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QString>

/// Where the log of an application is.
struct LogPaths {
    QString current;  ///< "<temporary folder>/<executable's file name>.1.log"
    QString previous; ///< The same path with its last "1" replaced by "2".
};

/// The paths for the executable at \a executablePath; nothing when that is empty or has no "/" beyond its
/// first character.
std::optional<LogPaths> logPaths(const QString& executablePath, const QString& temporaryFolder);
