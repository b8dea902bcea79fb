// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <unistd.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QThread>

#include <zokit/history.h>
#include <zokit/project.h>

#include "kitsupport.h"
#include "randomedits.h"

/// What the host that is killed and the test that looks after it have in common.
namespace journalrobot {

/// An edit: when it began and when it was done, in milliseconds since the robot's start.
struct Report {
    qint64 before = 0;
    qint64 after = 0;
};

/// Lets \a robot edit without end, and tells each edit on standard output; 1 when nobody reads it.
template <typename AnyRobot>
int tellEdits(AnyRobot& robot)
{
    QElapsedTimer clock;
    clock.start();
    for (;;) {
        // What falls due before this moment is done before the edit, however long this process had to wait for a
        // processor.
        Report report;
        report.before = clock.elapsed();
        QCoreApplication::processEvents();
        robot.edit();
        report.after = clock.elapsed();
        if (::write(STDOUT_FILENO, &report, sizeof report) != ssize_t(sizeof report))
            return 1;
        QThread::usleep(robot.pause());
    }
}

/// The same edits for the same seed, one after the other.
class Robot {
public:
    explicit Robot(quint32 seed) : m_random(seed)
    {
        constexpr qint64 few = 200000; // Bytes, so that steps are forgotten, too.
        m_project.history().setLimit(few);
        m_project.add(kitsupport::clip());
    }

    zokit::Project& project() { return m_project; }

    void edit()
    {
        kitsupport::randomEdit(m_project, m_random);
        if (m_random.bounded(50) == 0)
            m_project.history().setClean();
    }

    /// Microseconds between two edits.
    quint32 pause() { return m_pauses.bounded(8000U); }

private:
    QRandomGenerator m_random;
    QRandomGenerator m_pauses{1};
    zokit::Project m_project;
};

} // namespace journalrobot
