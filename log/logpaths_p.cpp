// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "logpaths_p.h"

std::optional<LogPaths> logPaths(const QString& executablePath, const QString& temporaryFolder)
{
    const auto slash = executablePath.lastIndexOf(QLatin1Char('/'));
    if (slash <= 0)
        return std::nullopt;

    LogPaths paths;
    paths.current = temporaryFolder + executablePath.mid(slash) + QStringLiteral(".1.log");
    paths.previous = paths.current;
    paths.previous[paths.previous.lastIndexOf(QLatin1Char('1'))] = QLatin1Char('2');
    return paths;
}
