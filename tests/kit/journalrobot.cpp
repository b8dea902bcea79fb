// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// journalrobot FOLDER SEED: a host that edits at random and keeps a journal in FOLDER, until somebody kills it. It says
// on standard output what it has done, a Report an edit.

#include <cstdlib>

#include <unistd.h>

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QThread>

#include <zokit/history.h>
#include <zokit/journal.h>
#include <zokit/project.h>

#include "journalrobot.h"
#include "testapplication.h"

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    TestApplication application(argc, argv);
    QElapsedTimer clock;
    clock.start();
    journalrobot::Robot robot(unsigned(std::strtoul(argv[2], nullptr, 10)));
    const zokit::Journal journal(robot.project(), QFile::decodeName(argv[1]));
    for (;;) {
        // What falls due before this moment is done before the edit, however long this process had to wait for a
        // processor.
        journalrobot::Report report;
        report.before = clock.elapsed();
        QCoreApplication::processEvents();
        robot.edit();
        report.after = clock.elapsed();
        if (::write(STDOUT_FILENO, &report, sizeof report) != ssize_t(sizeof report))
            return 1;
        QThread::usleep(robot.pause());
    }
}
