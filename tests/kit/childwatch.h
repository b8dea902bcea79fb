// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

/// Sees to it that no child of a test program is forgotten.
namespace childwatch {

/// Notes from now on what Qt says of processes that are destroyed while they run.
void begin();

/// What is wrong now: complaints of Qt since the last call, and children of this program that live. To be compared with
/// an empty list at the end of each test.
QStringList takeFindings();

/// Whether that process is there and not only waits for being reaped.
bool isAlive(qint64 process);
/// Whether it is stopped.
bool isStopped(qint64 process);

} // namespace childwatch
