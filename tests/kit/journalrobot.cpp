// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// journalrobot FOLDER SEED: a host that edits at random and keeps a journal in FOLDER, until somebody kills it. It says
// on standard output what it has done, a Report an edit.

#include <cstdlib>

#include <QFile>

#include <zokit/journal.h>

#include "journalrobot.h"
#include "testapplication.h"

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    TestApplication application(argc, argv);
    journalrobot::Robot robot(unsigned(std::strtoul(argv[2], nullptr, 10)));
    const zokit::Journal journal(robot.project(), QFile::decodeName(argv[1]));
    return journalrobot::tellEdits(robot);
}
