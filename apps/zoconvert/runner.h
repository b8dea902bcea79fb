// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <set>

#include "outputs.h"
#include "progress.h"

namespace zoconvert {

class Signals;

/// How files are converted, apart from what is in their jobs.
struct RunOptions {
    int jobs = 1;
    int threads = 1;
    // NOLINTNEXTLINE(readability-magic-numbers): what the option has when it is not given.
    int stall = 30; ///< Seconds.
    bool dryRun = false;
    bool stopsAtFailure = false;
    /// Called with each file's place, as it ends.
    std::function<void(int place, zokit::Outcome outcome, const QString& reason)> ended;
};
RunOptions runOptions(const Invocation& invocation);

/// What became of a run.
struct RunResult {
    std::set<zokit::FailureKind> failures; ///< Of which kinds.
    QVector<zokit::Outcome> outcomes;      ///< One for each file.
    QStringList reasons;                   ///< Likewise; empty where it is done.
    int signal = 0;                        ///< That ended the run.

    /// How the program ends, in the words of enum Exit; 130 for SIGINT and 143 for the other signals.
    int code() const;
};

/// Converts \a files and tells \a progress, from its beginning to its summary.
RunResult runFiles(const FileJobs& files, const RunOptions& options, Progress* progress, Signals* signals_);

/// Looks into the clips, as many at once as run at once, and makes the settings of each file by the edits of
/// \a invocation. A sentence that answers is wrong usage. What fails is told in the file.
QString makeSettings(const Invocation& invocation, const RunOptions& options, Signals* signals_, FileJobs* files);

} // namespace zoconvert
