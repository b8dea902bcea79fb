// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// editorrobot FOLDER SEED CLIP: an editor in which somebody edits at random, with its journal in FOLDER, until it is
// killed. It says on standard output what was done, a Report an edit.

#include <csignal>
#include <cstdlib>

#include <sys/prctl.h>

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
    return journalrobot::tellEdits(robot);
}
