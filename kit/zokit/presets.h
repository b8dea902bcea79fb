// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <zokit/carryover.h>
#include <zokit/message.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// A user's presets: settings files in one folder, "NAME.zoeffect.json". A name may hold any character; the file's name
/// encodes it. Nothing is kept in memory: each call looks at the folder.
class ZOKIT_EXPORT Presets {
public:
    /// Those in \a folder; without one, "zoeffect/presets" in the user's configuration folder.
    explicit Presets(const QString& folder = {});

    QString folder() const;                  ///< Where they lie; it need not be there.
    QStringList names() const;               ///< In the order of the alphabet.
    QString path(const QString& name) const; ///< The file of a preset of that name, there or not.

    /// What load() answers.
    struct Loaded {
        Settings preset;   ///< Empty with an error.
        Message error;     ///< Why there is none.
        Messages warnings; ///< The missingFiles() of the preset.
    };
    /// The preset \a name, or an error with the nearest name.
    Loaded load(const QString& name) const;
    /// Settings as a command line names them: the file \a word where it has a slash or ends in ".json", settings or a
    /// preset, else the preset of that name. An error names the file.
    struct Named {
        Settings settings;     ///< Empty with an error.
        bool isPreset = false; ///< Whether they are a preset's.
        Message error;         ///< Why there are none.
    };
    /// Reads what \a word names.
    Named loadNamed(const QString& word) const;
    /// Saves \a preset under \a name. Refused when there is one already, unless \a replace.
    Message save(const QString& name, const Settings& preset, bool replace = false) const;
    /// Removes a preset; an error names the nearest one.
    Message remove(const QString& name) const;
    /// Refused when there is a preset \a to already, unless \a replace.
    Message rename(const QString& from, const QString& to, bool replace = false) const;
    /// Takes in preset files under the names of the files. All are checked before the first is written; a name that is
    /// taken refuses all, unless \a replace. \a missing, if given, gets the missingFiles() of all.
    Message import(const QStringList& files, bool replace = false, Messages* missing = nullptr) const;
    /// Writes the preset \a name to \a file. Refused when that is there already, unless \a replace.
    Message exportTo(const QString& name, const QString& file, bool replace = false) const;
    /// As exportTo(), with copies of the images and other files that the preset names: in a folder beside \a file,
    /// "NAME.files", to which the written preset refers, so that both can be taken elsewhere. Refused when one of them
    /// is missing. What a refusal leaves behind is no preset.
    Message exportWithFiles(const QString& name, const QString& file, bool replace = false) const;

private:
    QString m_folder;
};

/// What a preset made from \a settings holds: the types and items of \a what (as in CarryOver), without the clip.
ZOKIT_EXPORT Settings presetFrom(const Settings& settings, const QStringList& what);

/// What \a preset holds, to be shown before it is saved or laid over a file: a line a type with what is not as the
/// catalogue has it, "Crop: Left: 96 px, Width: 800 px", a line an item, "Watermark 1: Hello", and at the end the types
/// that are all as the catalogue has them. Translated.
ZOKIT_EXPORT QStringList contentsOf(const Settings& preset);

/// What laying \a preset over a file carries: each type that it holds, and its output options and its rules for tracks
/// where it has some.
ZOKIT_EXPORT CarryOver carryOfPreset(const Settings& preset);

} // namespace zokit
