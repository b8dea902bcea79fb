// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

/// Files that a process holds alone, by the kernel's lock. Errors are left in errno.
namespace zokit::journalfile {

inline const QString ending = QStringLiteral(".journal");
inline const QString newEnding = QStringLiteral(".new"); ///< Behind "ending": a journal that is being made anew.

/// \a folder, or without one that of all sessions.
QString folderOr(const QString& folder);

/// The descriptor of an open regular file, locked with \a lock (of flock()) as long as it is open; -1 when it is not to
/// be had: EWOULDBLOCK when another one holds it.
int openLocked(const QString& path, int flags, int lock);

/// Opens a file "PROCESS-NUMBER.journal" in \a folder that nobody else has, and locks it. Leaves its name in \a path.
int openNew(const QString& folder, QString& path);

/// All of \a file from its beginning, as far as memory is to be spent on it.
QByteArray read(int file);

bool write(int file, const QByteArray& text);

/// Whether the open \a file has no name any more: somebody removed it.
bool isRemoved(int file);

/// Appends \a text on a line of its own; the time of the last change stays.
void appendUnnoticed(int file, const QByteArray& text);

/// Puts a new file with \a text, which is open and locked, in the place of \a path. -1: all is as it was.
int replace(const QString& path, const QByteArray& text);

} // namespace zokit::journalfile
