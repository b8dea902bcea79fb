// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>

#include <QByteArray>
#include <QString>

#include "guardedini_p.h"

class QLockFile;

/// The file of the embedded preference store as a thing on disk: reading, writing, setting aside and taking
/// turns. None of it blocks on what stands in the file's or the locks' place (a FIFO, a folder, a device).
namespace preffile {

/// How long takeTurn() waits for other processes, in milliseconds. With the file's own reading and writing a
/// save stays below 250.
constexpr int longestWait = 100;

enum class State {
    Missing,
    Whole,
    Damaged,   ///< No regular file (symbolic links are followed), too large, or not of the format.
    Unreadable ///< Cannot be looked at, opened or read; that tells nothing of its content.
};

struct Content {
    State state = State::Missing;
    guardedini::Entries entries; ///< Empty unless the file is whole.
};

Content read(const QString& path);

/// Replaces the file by \a text, whole or not at all; false, with the old file kept, when that fails. Only to
/// be called with the turn.
bool write(const QString& path, const QByteArray& text);

/// Renames what stands at \a path, symbolic link or not, to the first free one of "<path>.damaged",
/// "<path>.damaged.2" and so on, and returns that name; nothing when that fails. Only to be called with the
/// turn.
std::optional<QString> setAside(const QString& path);

/// The exclusive right to change the file, until the result is deleted; null when it is not to be had in time,
/// because another process keeps a lock, something else stands in a lock's place or the folder is not
/// writable.
std::unique_ptr<QLockFile> takeTurn(const QString& path);

} // namespace preffile
