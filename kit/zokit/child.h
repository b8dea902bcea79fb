// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <zokit/zokit_export.h>

namespace zokit {

/// A program with its arguments and limits, as data: nothing is started by making one.
struct ZOKIT_EXPORT Command {
    QString program;          ///< Absolute path.
    QStringList arguments;    ///< Without the program.
    QString folder;           ///< Working folder; empty: the current one.
    qint64 memory = 0;        ///< Bytes of address space; 0: no limit. What is above it, the program cannot get.
    int processorSeconds = 0; ///< Of processor time; the system ends it there, as Killed. 0: no limit.
    int seconds = 0;      ///< It is ended as TimedOut after so long, without the time that it was paused; 0: no limit.
    int stallSeconds = 0; ///< Ended as Stalled when its standard output was silent for so long and it read and wrote
                          ///< nothing else; 0: no limit.
    QByteArray input;     ///< Written to its standard input, which is then closed; empty: it reads /dev/null.
    qint64 largestOutput = qint64(64) * 1024 * 1024; ///< Bytes on standard output, where it is collected; then Flooded.
};

/// How a child came to its end.
enum class ChildEnd {
    Finished,   ///< By itself: see the exit code.
    NotStarted, ///< The words say why.
    Killed,     ///< By a signal that was not ours, or by its own crash.
    Cancelled,  ///< By cancel().
    Stalled,    ///< It did not get on: see Command::stallSeconds.
    TimedOut,   ///< It took too long.
    Flooded     ///< It wrote too much.
};

/// What a child left behind.
struct ZOKIT_EXPORT ChildResult {
    ChildEnd end = ChildEnd::NotStarted; ///< How it ended.
    int exitCode = -1;                   ///< -1 unless Finished.
    int signal = 0;                      ///< That ended it; 0 when none did.
    QByteArray output;                   ///< All of its standard output, where it is collected.
    QByteArray words;                    ///< The last 64 KB of its standard error.

    /// Whether it came to its end by itself, with exit code 0.
    bool isGood() const { return end == ChildEnd::Finished && exitCode == 0; }
    /// The last line of the words that is not empty, without ffmpeg's "[part @ 0xADDRESS]" in front.
    QString lastWords() const;
};

/// Runs a program, one at a time, in a session and process group of its own, without a terminal. It dies with this
/// process, however that ends, and what is left of its group dies with it. All that is started anywhere is started
/// here, on the main thread: the system ends such a child when the thread that started it ends. Takes an application
/// object with a running event loop.
class ZOKIT_EXPORT Child : public QObject {
    Q_OBJECT

public:
    /// Starts nothing.
    explicit Child(QObject* parent = nullptr);
    /// A child that runs is killed and waited for; finished() is not sent.
    ~Child() override;

    /// Starts \a command. False, and nothing happens, while one runs. That a program cannot be started is told by
    /// finished(), like every other end.
    bool start(const Command& command);
    /// The same, but its standard input stays open until feed(), whatever Command::input is, and no time counts before:
    /// for a program that is loaded ahead, and waits to be told what to do.
    bool startAhead(const Command& command);
    /// Writes \a input to a child that was started ahead, and closes its standard input. Nothing happens when none runs
    /// that waits for it.
    void feed(const QByteArray& input);
    /// From start() or startAhead() on until finished() is sent.
    bool isRunning() const;
    /// 0 when none runs.
    qint64 processId() const;
    /// Whether standard output is kept for the result, which it is unless this is called with false before start(). It
    /// is sent by outputReady() in any case.
    void collect(bool collected);

    /// Kills the child and all of its group. The result will be Cancelled, even if it came to its end just before.
    /// Nothing happens when none runs.
    void cancel();
    /// Stops the group, and lets it go on. While it is stopped, no time counts. Nothing happens when none runs.
    void pause();
    /// As above.
    void resume();

Q_SIGNALS:
    /// A piece of standard output, of any length.
    void outputReady(const QByteArray& piece);
    /// Exactly once for each start() or startAhead() that was true, never from within start(), cancel() or the
    /// destructor. None runs any more; a slot may start the next one.
    void finished(const zokit::ChildResult& result);

private:
    class ZOKIT_NO_EXPORT Process;

    bool startProcess(const Command& command, bool isAhead);
    void readOutput();
    void readWords();
    void countTime();
    void lookForStall();
    void end(ChildEnd how);
    void ended(ChildEnd how, int exitCode, int signal);
    void report();
    void send(int signal) const;

    Command m_command;
    std::unique_ptr<Process> m_process;
    ChildResult m_result;
    QTimer m_clock;
    bool m_isRunning = false;
    bool m_hasEnded = false;
    bool m_isEnding = false; ///< We killed it; the result says why.
    bool m_isPaused = false;
    bool m_isAhead = false; ///< It waits for its input.
    bool m_collected = true;
    qint64 m_group = 0;    ///< Number of the child and its group.
    int m_ticks = 0;       ///< Since the start.
    int m_silentTicks = 0; ///< Since the last output.
    qint64 m_moved = 0;    ///< Bytes read and written, when that was looked at last.
};

/// Runs \a command and waits for its end, in an event loop of its own: for tests and command lines.
ZOKIT_EXPORT ChildResult run(const Command& command);

} // namespace zokit
