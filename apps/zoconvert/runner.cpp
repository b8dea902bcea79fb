// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "runner.h"

#include <algorithm>
#include <csignal>

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QThread>

#include <zokit/queue.h>
#include <zokit/shell.h>

#include "console.h"
#include "signals.h"
#include "words.h"

namespace zoconvert {

namespace {

/// One run: rows of the queue and files have the same order.
class Run : public QObject {
public:
    Run(const FileJobs& files, const RunOptions& options, Progress* progress, Signals* source)
        : m_files(files), m_options(options), m_progress(progress), m_signals(source), m_queue(zokit::findTools())
    {
        m_result.outcomes.fill(zokit::Outcome::Failed, static_cast<int>(files.size()));
        for (std::size_t i = 0; i < files.size(); ++i)
            m_result.reasons.append(QString());
    }

    RunResult run()
    {
        m_progress->begin(static_cast<int>(m_files.size()));
        for (std::size_t i = 0; i < m_files.size(); ++i)
            add(static_cast<int>(i));
        connectQueue();
        if (!m_places.isEmpty() && m_signals->received() == 0) {
            m_signals->onEnd = [this] { m_queue.cancelAll(); };
            m_signals->onStop = [this] {
                m_queue.pause();
                m_progress->hide();
            };
            m_signals->onContinue = [this] {
                m_queue.resume();
                m_progress->draw();
            };
            m_signals->onResize = [this] { m_progress->draw(); };
            m_queue.start();
            m_loop.exec();
            m_signals->onEnd = m_signals->onStop = m_signals->onContinue = m_signals->onResize = nullptr;
        }
        m_result.signal = m_signals->received();
        m_progress->summary();
        return m_result;
    }

private:
    const FileJob& fileOf(int row) const { return m_files.at(static_cast<std::size_t>(m_places.value(row))); }

    void end(int place, zokit::Outcome outcome, const QString& reason)
    {
        m_result.outcomes[place] = outcome;
        m_result.reasons[place] = reason;
        if (m_options.ended)
            m_options.ended(place, outcome, reason);
        m_progress->ended(m_files.at(static_cast<std::size_t>(place)), outcome, reason);
    }

    void add(int place)
    {
        const FileJob& file = m_files.at(static_cast<std::size_t>(place));
        if (file.isThere) {
            end(place, zokit::Outcome::Skipped, say(Say::LeftThere, {file.output}));
        } else if (!file.error.isEmpty()) {
            m_result.failures.insert(file.kind);
            end(place, zokit::Outcome::Failed, file.error);
            m_hasFailed = true;
        } else if (m_signals->received() != 0) {
            end(place, zokit::Outcome::Cancelled, zokit::Message(zokit::Message::Code::Cancelled).text());
        } else if (file.isHeldBack || (m_hasFailed && m_options.stopsAtFailure)) {
            end(place, zokit::Outcome::Skipped, say(Say::NotBegun));
        } else {
            for (const QString& warning : file.warnings)
                m_progress->warned(file, warning);
            zokit::Job job = file.job;
            if (!job.threads)
                job.threads = m_options.threads;
            if (!job.stallSeconds)
                job.stallSeconds = m_options.stall;
            m_places.insert(m_queue.add(job), place);
        }
    }

    void connectQueue()
    {
        m_queue.setJobs(m_options.jobs);
        m_queue.setStopsAtFailure(m_options.stopsAtFailure);
        connect(&m_queue, &zokit::Queue::planned, this, [this](int row) { planned(row); });
        connect(&m_queue, &zokit::Queue::stateChanged, this,
                [this](int row, zokit::RowState state) { changed(row, state); });
        connect(&m_queue, &zokit::Queue::progressed, this, [this](int row, double fraction, double left, double speed) {
            m_progress->progressed(fileOf(row), fraction, left, speed);
        });
        connect(&m_queue, &zokit::Queue::warned, this,
                [this](int row, const zokit::Message& warning) { m_progress->warned(fileOf(row), warning.text()); });
        connect(&m_queue, &zokit::Queue::finished, &m_loop, &QEventLoop::quit);
    }

    void planned(int row)
    {
        const FileJob& file = fileOf(row);
        for (const zokit::TrackPlan& track : m_queue.conversion(row)->plan().tracks)
            m_progress->note(file, track.line().text());
        if (m_options.dryRun) {
            m_progress->note(file, say(Say::WouldBe, {file.output}));
            m_isPlanned.insert(row);
            m_queue.cancel(row);
        } else if (const QString folder = QFileInfo(file.job.output).absolutePath(); !QDir().mkpath(folder)) {
            m_progress->warned(file, say(Say::NoFolder, {folder}));
        }
    }

    void changed(int row, zokit::RowState state)
    {
        const FileJob& file = fileOf(row);
        const zokit::ConversionResult result = m_queue.result(row);
        switch (state) {
        case zokit::RowState::Running:
            if (m_isStarted.contains(row))
                break;
            m_isStarted.insert(row);
            if (m_progress->isVerbose())
                sayCommands(row);
            m_progress->started(file);
            break;
        case zokit::RowState::Done:
            end(m_places.value(row), zokit::Outcome::Done, QString());
            break;
        case zokit::RowState::Failed:
            m_result.failures.insert(result.kind);
            end(m_places.value(row), zokit::Outcome::Failed, result.reason.text());
            break;
        case zokit::RowState::Cancelled:
            end(m_places.value(row), m_isPlanned.contains(row) ? zokit::Outcome::Done : zokit::Outcome::Cancelled,
                m_isPlanned.contains(row) ? QString() : result.reason.text());
            break;
        case zokit::RowState::Skipped:
            end(m_places.value(row), zokit::Outcome::Skipped,
                result.reason.isEmpty() ? say(Say::NotBegun) : say(Say::LeftThere, {file.output}));
            break;
        case zokit::RowState::Waiting:
        case zokit::RowState::Paused:
        case zokit::RowState::Interrupted:
            break;
        }
    }

    void sayCommands(int row)
    {
        zokit::Conversion* conversion = m_queue.conversion(row);
        connect(conversion, &zokit::Conversion::finished, this, [this, row, conversion] {
            for (const zokit::Command& command : conversion->commands())
                m_progress->note(fileOf(row), zokit::shellLine(command));
        });
    }

    const FileJobs& m_files;
    RunOptions m_options;
    Progress* m_progress;
    Signals* m_signals;
    zokit::Queue m_queue;
    QEventLoop m_loop;
    QHash<int, int> m_places; // Of files, by row.
    QSet<int> m_isStarted;
    QSet<int> m_isPlanned;
    bool m_hasFailed = false;
    RunResult m_result;
};

} // namespace

RunOptions runOptions(const Invocation& invocation)
{
    RunOptions options;
    options.dryRun = outputValue(invocation, "dry-run").toBool();
    options.stopsAtFailure = outputValue(invocation, "stop-at-first-failure").toBool();
    options.jobs = std::max(outputValue(invocation, "jobs").toInt(), 1);
    options.threads = std::max(QThread::idealThreadCount() / options.jobs, 1);
    if (const QVariant threads = outputValue(invocation, "threads"); threads.isValid())
        options.threads = threads.toInt();
    if (const QVariant stall = outputValue(invocation, "stall"); stall.isValid())
        options.stall = stall.toInt();
    return options;
}

int RunResult::code() const
{
    if (signal != 0)
        return endedBySignal + (signal == SIGINT ? SIGINT : SIGTERM); // That the terminal is gone asks for the same.
    const auto failed = outcomes.count(zokit::Outcome::Failed);
    if (failed == 0)
        return Done;
    return failed == outcomes.size() ? Failed : Partly;
}

RunResult runFiles(const FileJobs& files, const RunOptions& options, Progress* progress, Signals* signals_)
{
    return Run(files, options, progress, signals_).run();
}

} // namespace zoconvert
