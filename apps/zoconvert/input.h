// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>

#include <QFile>
#include <QString>

#include <zokit/filesettings.h>
#include <zokit/probe.h>

#include "invocation.h"

namespace zoconvert {

/// An INPUT of the command line with its settings, or why it is refused.
struct Input {
    QString name;                                  ///< As it was typed, or found in a folder.
    QString below;                                 ///< Its folder below the one that was named; empty: none.
    std::unique_ptr<zokit::FileSettings> settings; ///< Null: refused.
    std::optional<zokit::MediaInfo> media;         ///< What a media file consists of; nothing for a settings file.
    QStringList warnings;                          ///< What became of the settings unasked, and what they lack.
    QString error;                                 ///< Names the file.
    int code = Done;                               ///< Failed: missing or no media; Usage: settings that are refused.
};

/// "FILE: sentence"; empty for an empty sentence.
QString named(const QString& file, const QString& sentence);

/// A media file that was looked into, or the sentence why not.
struct ProbedInput {
    std::optional<zokit::MediaInfo> media;
    QString error; ///< Names the file.
};
ProbedInput probeInput(const QString& name, const Invocation& invocation);

/// The media file or, where it ends in ".json", the settings file \a name. Settings of a clip begin with the saved
/// defaults and have an item for each track of it.
Input loadInput(const QString& name, const Invocation& invocation);
/// The same for a clip, and for a settings file, whose clip was looked into already: settings for another frame are
/// rescaled, with a warning.
Input inputOf(const QString& name, const zokit::MediaInfo& media);
Input inputOf(const QString& name, const zokit::Settings& settings, const zokit::MediaInfo& media);
/// Applies the edits of \a invocation, and chooses the tracks of a clip as they ask for. What is refused becomes the
/// input's error.
void edit(Input& input, const Invocation& invocation);

/// The settings of the file \a name as far as they are known before its clip is looked into: those that it \a loaded,
/// or those with which a clip begins, then the edits and the output options of \a invocation. The sentence says what is
/// refused.
QString settingsAhead(const QString& name, const std::optional<zokit::Settings>& loaded, const Invocation& invocation,
                      zokit::Settings* settings);

/// Opens \a file, which has to be an ordinary one. The sentence says why it cannot be read; empty: it is open.
QString openedForReading(QFile* file);

/// Settings or a preset by file or name, for the commands that compare and carry over; the error has been said when it
/// answers nothing.
std::optional<zokit::Settings> loadNamed(const QString& word);

} // namespace zoconvert
