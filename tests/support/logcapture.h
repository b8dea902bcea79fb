// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

/// Reads the log that the library writes during a test. The test application points the temporary folder at
/// a folder of its own (see testapplication.h), so nothing else writes there.
namespace logcapture {

/// The path of the log of this process.
QString logPath();
/// The path of its copy.
QString previousLogPath();

/// The numbers of the events logged since the last call, in order. Each event must be exactly two lines, in
/// the exact format: "zoeffectmodel(<number>) : yyyy/MM/dd hh:mm:ss 00000000" and an empty line. Anything
/// else yields the number -1 in its place. Removes the log.
QList<int> takeEvents();

} // namespace logcapture
