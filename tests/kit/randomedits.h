// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

class QRandomGenerator;

namespace zokit {
class Project;
}

namespace kitsupport {

/// What a user might do next, anything of it: edits, lists, resets, gestures, many files, defaults, undo and redo.
void randomEdit(zokit::Project& project, QRandomGenerator& random);

/// The text of the settings file of each file of a project.
QByteArray settingsOf(const zokit::Project& project);

/// Everything that a project holds: the text of each file's settings file, and the saved defaults.
QByteArray stateOf(const zokit::Project& project);

} // namespace kitsupport
