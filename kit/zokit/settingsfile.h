// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <zokit/message.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// Settings read from a file, or why not. With an error nothing of the file was taken.
struct ZOKIT_EXPORT ReadSettings {
    std::optional<Settings> settings; ///< Completed: every type and value is there.
    Message error;                    ///< Names line and column, or the address, and what was expected there.
    Messages warnings;                ///< What was taken, and still deserves a word.
};

/// Reads the text of a settings file that lies in \a folder, to which its paths are relative. What a file lacks has the
/// catalogue's default at the frame of its "media", never a saved default.
ZOKIT_EXPORT ReadSettings readSettings(const QByteArray& json, const QString& folder);
/// The text of a settings file for \a folder. Reading it gives \a settings again, bit by bit. Empty when that cannot
/// be, and \a error says why: the address of a value of a kind that no file can hold, or that it is larger or nests
/// deeper than a file may.
ZOKIT_EXPORT QByteArray writeSettings(const Settings& settings, const QString& folder, Message* error = nullptr);

/// A sentence for each file that \a settings name and that is not there, at its address: the clip, images, files of
/// subtitles and sound. Such settings can be edited and saved, and not be converted.
ZOKIT_EXPORT Messages missingFiles(const Settings& settings);

/// The paths of all files that \a settings name, there or not, selected or not: the clip, images, files of subtitles
/// and sound. None of them is ever to be written to.
ZOKIT_EXPORT QStringList namedFiles(const Settings& settings);

/// readSettings() of the file at \a path: regular files of at most 16 MB only. The missingFiles() are warned of. An
/// error begins with the path.
ZOKIT_EXPORT ReadSettings loadSettings(const QString& path);
/// Writes the file at \a path whole or not at all, and not when writeSettings() refuses. An empty message: it is there.
ZOKIT_EXPORT Message saveSettings(const Settings& settings, const QString& path);

/// \a settings with every type and value that is missing, at the catalogue's default for its frame.
ZOKIT_EXPORT Settings completed(const Settings& settings);

/// A preset: settings without a clip, of the types that it is meant for. Its frame is that for which they were made.
/// readPreset() refuses "media" and "trim"; the types that it holds are completed. Without "base" they stay as they
/// were written: what is missing has the default at the frame of the file to which they are carried over.
ZOKIT_EXPORT ReadSettings readPreset(const QByteArray& json, const QString& folder);
/// As writeSettings(), of a preset.
ZOKIT_EXPORT QByteArray writePreset(const Settings& preset, const QString& folder, Message* error = nullptr);

} // namespace zokit
