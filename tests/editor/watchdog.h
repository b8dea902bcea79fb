// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <atomic>
#include <thread>
#include <vector>

#include <QElapsedTimer>
#include <QObject>
#include <QString>

namespace editorsupport {

/// Asks the window's thread again and again for a sign of life, and notes how long that took at most. All functions are
/// for the window's thread.
class Watchdog {
public:
    Watchdog();
    ~Watchdog();

    /// What is done from now on, in words.
    void setDoing(const QString& doing) { m_doing = doing; }
    /// What took long until now was the test's own work.
    void forgive() { ++m_generation; }

    int longest() const { return m_longest; }                 ///< Milliseconds.
    QString longestDuring() const { return m_longestDuring; } ///< What was done meanwhile.
    /// How long each sign of life took, in milliseconds.
    const std::vector<double>& blocks() const { return m_blocks; }

private:
    void ask();

    QElapsedTimer m_clock;
    QString m_doing;
    QString m_longestDuring;
    int m_longest = 0;
    std::vector<double> m_blocks;
    std::atomic<int> m_generation{0};
    std::atomic<bool> m_isAnswered{true};
    std::atomic<bool> m_ends{false};
    QObject m_answering;
    std::thread m_thread;
};

} // namespace editorsupport
