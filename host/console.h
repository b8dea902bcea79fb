// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// What ends the program: one sentence for the user, and the exit code.
struct Failure {
    QString sentence;
    int exitCode = 1;
};

/// A failure in how the program was called.
Failure wrongUsage(const QString& sentence);

/// Prints one line. File names and tags come from elsewhere: their control characters are shown as "?".
void say(const QString& line);

/// Prints \a text behind \a label, in a column.
void say(const QString& label, const QString& text);

/// Prints the sentence of \a failure to standard error, as one line.
void complain(const Failure& failure);
