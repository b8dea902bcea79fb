// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <zokit/probe.h>
#include <zokit/settings.h>
#include <zokit/tracks.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// The endings by which mediaFilesIn() knows clips, in small letters, without their dots.
ZOKIT_EXPORT QStringList mediaEndings();

/// Media files of \a folder, known by the endings of their names, in the order of the names; with \a recursive those of
/// the folders in it after its own, links to folders aside. Empty when there is none.
ZOKIT_EXPORT QStringList mediaFilesIn(const QString& folder, bool recursive);

/// The settings with which a clip begins: the saved defaults act, and each track of it has an item, selected where the
/// rules for tracks choose it.
ZOKIT_EXPORT Settings settingsOf(const MediaInfo& media);

/// What the rules for tracks mean for a clip.
struct ZOKIT_EXPORT RuledTracks {
    QVector<TrackChoice> choices; ///< One a track of sound or subtitles, and a file beside the clip, with its reason.
    Settings settings;            ///< With the items that follow.
    Messages warnings;            ///< The missingLanguages() of the rules.
    Message error;                ///< What is no rule, or which track is not there: no choices, nothing follows.

    /// All that is to be shown before they are taken: a line a choice, then the warnings; translated.
    QStringList lines() const;
};
/// The tracks of \a media by the rules that \a settings hold, to be shown before they are taken. Looks for subtitle
/// files beside the clip. Tracks of a kind without a rule stay as they are, chosen by hand; not where a rule of
/// \a before, which the settings had until now, may have chosen them.
ZOKIT_EXPORT RuledTracks tracksByRule(const Settings& settings, const MediaInfo& media, const Values& before = {});

/// \a settings, as a settings file had them, for their clip as it was found: rescaled where its frame has another size.
/// Where they hold rules for tracks and name no track, as when a person wrote them, the rules choose; \a tracks, if
/// given, gets what they came to, and stays as it is otherwise.
ZOKIT_EXPORT Settings settingsFor(const Settings& settings, const MediaInfo& media, RuledTracks* tracks = nullptr);

} // namespace zokit
