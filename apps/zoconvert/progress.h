// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>

#include <zokit/conversion.h>

#include "outputs.h"

class QJsonObject;

namespace zoconvert {

/// "done", "failed", "cancelled", "skipped": an outcome in JSON.
const char* outcomeWord(zokit::Outcome outcome);

/// What a run says while it goes on: a bar, a line a file, or JSON.
class Progress {
public:
    enum class How { Lines, Bar, Json, None };

    /// What \a invocation asks for; without --progress a bar on a terminal, else lines.
    explicit Progress(const Invocation& invocation);
    ~Progress(); ///< Takes the bar away.
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// A run of so many files; once, before all else.
    void begin(int files);
    void started(const FileJob& file);
    void progressed(const FileJob& file, double fraction, double secondsLeft, double speed);
    void warned(const FileJob& file, const QString& sentence);
    /// A line about \a file that is neither warning nor error; not with --quiet.
    void note(const FileJob& file, const QString& sentence);
    /// Once for each file. \a reason may be empty, where it is done.
    void ended(const FileJob& file, zokit::Outcome outcome, const QString& reason);
    /// The last.
    void summary();

    bool isQuiet() const { return m_isQuiet; }
    bool isVerbose() const { return m_isVerbose; }
    /// Takes the bar away before something else is written, and draws it again.
    void hide();
    void draw();

    int count(zokit::Outcome outcome) const { return m_counts.value(static_cast<int>(outcome)); }

private:
    void tell(const char* event, const FileJob& file, QJsonObject more) const;

    How m_how;
    bool m_isQuiet;
    bool m_isVerbose;
    bool m_isDryRun;
    int m_files = 0;
    QMap<int, int> m_counts;           // By outcome.
    QMap<QString, double> m_fractions; // Of the files that run, by output.
    QString m_latest;                  // The file that moved last.
    double m_secondsLeft = 0;          // Of that one.
    bool m_isDrawn = false;
};

/// The bar on one line of at most \a columns: "[####....]  45 %  1/3  0:12  clip.mkv". What has no room is left out
/// from its end.
QString barLine(int columns, double fraction, int ended, int files, double secondsLeft, const QString& name);

} // namespace zoconvert
