// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace zoeditor {

class Instance;

/// The whole program: answers --help, --version and a wrong option, hands its files over to an editor that runs, or is
/// one until its window is closed. Its exit code. There is no application object yet.
int run(int argc, char** argv);

/// Is an editor of \a files, and of what \a instance is given, until its window is closed. What was handed over during
/// the last question opens in a new one then. Takes a QApplication. Journals lie in \a journalFolder, as in Editor.
int edit(const Instance& instance, QStringList files, const QString& journalFolder = {});

} // namespace zoeditor
