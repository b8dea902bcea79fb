// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QObject>
#include <QVector>

#include <zokit/conversion.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// What a row of the queue is doing.
enum class RowState {
    Waiting,
    Running,
    Paused,
    Done,
    Failed,
    Cancelled,
    Skipped,
    Interrupted ///< It ran when its session died: only restore() makes such a row.
};

/// Any number of jobs, some of them at once, in their order. A row is a job and what became of it; it stays until it is
/// removed. To be used on the main thread.
class ZOKIT_EXPORT Queue : public QObject {
    Q_OBJECT

public:
    /// Empty; \a tools are what findTools() gave.
    explicit Queue(const Tools& tools, QObject* parent = nullptr);
    /// What runs is ended, and leaves nothing.
    ~Queue() override;

    /// Adds a row at the end, waiting, and answers its number. Numbers are never given twice.
    int add(const Job& job);
    /// Adds a row of a session before at the end: \a state is neither Running nor Paused, and \a result what became of
    /// it. Nothing begins by this; its number.
    int restore(const Job& job, RowState state, const ConversionResult& result);
    /// Removes a row that does not run. False when it does, or is not there.
    bool remove(int row);
    /// Moves a row to place \a to of rows(). False when it is not there.
    bool move(int row, int to);
    /// The numbers of all rows, in the order in which they are done.
    QVector<int> rows() const;

    /// Cancelled for a row that is not there.
    RowState state(int row) const;
    /// Empty for a row that is not there.
    Job job(int row) const;
    /// What became of a row that has ended; one that says nothing for others.
    ConversionResult result(int row) const;
    /// The conversion of a row that runs; null for others. Owned by the queue.
    Conversion* conversion(int row) const;

    /// What rows that begin from now on are converted with.
    void setTools(const Tools& tools);
    /// How many run at once from now on, 1 at first; less counts as 1. What runs goes on.
    void setJobs(int count);
    /// A row that fails keeps those that wait from being begun: they become Skipped.
    void setStopsAtFailure(bool stops);
    /// Begins the rows that wait, and goes on as long as one waits.
    void start();
    /// What runs is paused and nothing new is begun, until resume().
    void pause();
    void resume(); ///< See pause().
    /// Ends the row if it runs, or takes it out if it waits: Cancelled.
    void cancel(int row);
    void cancelAll(); ///< As cancel(), for all rows.
    /// A row that has ended waits again. False for others.
    bool retry(int row);
    /// Whether any row runs or, once started, waits.
    bool isRunning() const;

Q_SIGNALS:
    /// Sent when rows() answers anew.
    void rowsChanged();
    /// Sent when state() answers anew.
    void stateChanged(int row, zokit::RowState state);
    /// As Conversion::progressed().
    void progressed(int row, double fraction, double secondsLeft, double speed);
    /// As Conversion::warned().
    void warned(int row, const zokit::Message& warning);
    /// conversion() of the row knows what becomes of each track.
    void planned(int row);
    /// Nothing runs and nothing waits any more.
    void finished();

private:
    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
