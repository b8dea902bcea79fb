// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QStringList>
#include <QVector>

/// Sees to it that no child of a test program is forgotten.
namespace childwatch {

/// Notes from now on what Qt says of processes that are destroyed while they run.
void begin();

/// What is wrong now: complaints of Qt since the last call, and children of this program that live. To be compared with
/// an empty list at the end of each test.
QStringList takeFindings();

/// The children of this program, also those that only wait for being reaped.
QVector<qint64> children();
/// Whether that process is there and not only waits for being reaped.
bool isAlive(qint64 process);
/// Whether it is stopped.
bool isStopped(qint64 process);

/// Tests of what starts children: each of them fails when there are findings at its end. One with an initTestCase() or
/// cleanup() of its own calls that of this class.
class Test : public QObject {
    Q_OBJECT

protected Q_SLOTS:
    void initTestCase();
    void cleanup();
};

} // namespace childwatch
