// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QByteArray>
#include <QJsonObject>
#include <QString>

/// The file of the embedded preference store as a thing on disk. Nothing here waits for what stands in the place of
/// the file or its lock (a FIFO, a folder, a device).
namespace storefile {

constexpr int version = 1;

/// A thousand times what the custom defaults of all effect types need, and still read and written in time.
constexpr qint64 maxSize = qint64(2) * 1024 * 1024;

enum class State {
    Missing,
    Whole,
    Newer,     ///< Of a higher version.
    Damaged,   ///< No regular file (symbolic links are followed), too large, or not of the form.
    Unreadable ///< Cannot be looked at, opened or read; that tells nothing of its content.
};

struct Content {
    State state = State::Missing;
    QJsonObject file; ///< A file without types, unless it is whole.
};

Content read(const QString& path);

/// Replaces the file, whole or not at all; false, with the old file kept, when that fails.
bool write(const QString& path, const QByteArray& text);

/// Renames what stands at \a path, symbolic link or not, to the first free one of "<path>.damaged",
/// "<path>.damaged.2" and so on, and returns that name; nothing when that fails.
std::optional<QString> setAside(const QString& path);

/// The exclusive right to change the file at \a path, as long as it lives.
class Lock {
public:
    /// Tries for at most \a longestWait milliseconds.
    Lock(const QString& path, int longestWait);
    ~Lock();
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

    bool isHeld() const { return m_held; }

private:
    int m_file = -1;
    bool m_held = false;
};

} // namespace storefile
