// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// editorrobot FOLDER SEED CLIP: an editor in which somebody edits at random, with its journal in FOLDER, until it is
// killed. It says on standard output what was done, a Report an edit.

#include <csignal>
#include <cstdlib>

#include <sys/prctl.h>
#include <unistd.h>

#include <QElapsedTimer>

#include "editorrobot.h"
#include "journalrobot.h"

int main(int argc, char** argv)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // A test that ends badly leaves no editor behind.
    if (argc != 4)
        return 2;
    editorsupport::EditorApplication application(argc, argv);
    zoeditor::Editor editor(QFile::decodeName(argv[1]));
    editorrobot::open(editor, QFile::decodeName(argv[3]));
    editorrobot::Robot robot(editor, unsigned(std::strtoul(argv[2], nullptr, 10)));
    QElapsedTimer clock;
    clock.start();
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
