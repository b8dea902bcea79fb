// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <zokit/settings.h>

#include "outputs.h"

namespace zoconvert {

/// A line of a plan: {"job", "input", "output", "settings", "options", "needs"}, with all that the job takes.
QByteArray planLine(int number, const FileJob& file, const QVariantMap& options);

/// A line that was read.
struct PlannedJob {
    int number = 0;
    FileJob file;
    int threads = 0; ///< 0: not said.
    int stall = 0;   ///< Seconds; 0: not said.
    QJsonArray needs;
};
/// Nothing where \a line is no job; \a why then says what is wrong, where that is known.
std::optional<PlannedJob> readPlanLine(const QJsonObject& line, QString* why);

/// What of \a needs is missing or differs from what was planned; empty: all is there.
QString lackingOf(const QJsonArray& needs);

/// What became of jobs is kept beside the plan: a line {"job", "outcome", "reason"} each time.
QString resultsPath(const QString& plan);
/// Adds a line in one piece, so that several can add at once. False: it cannot be written.
bool addResult(const QString& plan, int number, zokit::Outcome outcome, const QString& reason);

} // namespace zoconvert
