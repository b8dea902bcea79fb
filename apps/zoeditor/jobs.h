// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QString>
#include <QVector>

#include <zokit/conversion.h>
#include <zokit/filesettings.h>
#include <zokit/queue.h>

namespace zoeditor {

class Session;

/// What a person says of all results at once.
struct ResultsWanted {
    QString folder;   ///< Where they go; empty: each beside its clip.
    QString existing; ///< "refuse", "skip" or "replace", as output option "existing" has it.
};

/// A job for each of some files, or why there can be none.
struct MadeJobs {
    QVector<zokit::Job> jobs; ///< In the order of the files, with a copy of their settings.
    QString problem;          ///< A sentence; empty: nothing is wrong.
};

/// Makes jobs for \a files of \a session.
MadeJobs jobsFor(Session& session, const QVector<zokit::FileSettings*>& files, const ResultsWanted& wanted);

/// What adding to a queue gave.
struct AddedJobs {
    int count = 0;     ///< How many rows came.
    QStringList known; ///< Names of clips that have such a row already, and got none.
};
/// Adds \a jobs to \a queue. A clip whose row for the same result waits or runs gets no second one; a row that was
/// interrupted gives way, and so does one that waits with other settings.
AddedJobs addTo(zokit::Queue* queue, const QVector<zokit::Job>& jobs);

/// What \a message says, with the remedies that the editor has where those of a command line are others.
QString sentenceOf(const zokit::Message& message);
/// What a row of \a queue is doing, in words: "waiting", "failed: " and why.
QString workText(const zokit::Queue& queue, int row);
/// What \a queue does with each clip, in those words, by its path; of several rows of a clip the last one tells.
QHash<QString, QString> workOfClips(const zokit::Queue& queue);

} // namespace zoeditor
