// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "watchdog.h"

#include <QThread>

namespace editorsupport {

Watchdog::Watchdog()
{
    m_clock.start();
    m_thread = std::thread([this] {
        while (!m_ends) {
            if (m_isAnswered.exchange(false))
                ask();
            QThread::msleep(1);
        }
    });
}

Watchdog::~Watchdog()
{
    m_ends = true;
    m_thread.join();
}

void Watchdog::ask()
{
    const qint64 asked = m_clock.nsecsElapsed();
    const int generation = m_generation;
    QMetaObject::invokeMethod(
        &m_answering,
        [this, asked, generation] {
            constexpr double nanoseconds = 1e6;
            const double took = double(m_clock.nsecsElapsed() - asked) / nanoseconds;
            if (generation == m_generation)
                m_blocks.push_back(took);
            if (generation == m_generation && took > m_longest) {
                m_longest = static_cast<int>(took);
                m_longestDuring = m_doing;
            }
            m_isAnswered = true;
        },
        Qt::QueuedConnection);
}

} // namespace editorsupport
