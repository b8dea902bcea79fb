// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QString>
#include <QStringList>
#include <QVector>

#include <zokit/message.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// What a track holds.
enum class TrackKind { Video, Audio, Subtitle, Attachment, Data };

/// A track of a clip, as a probe found it.
struct ZOKIT_EXPORT Track {
    int index = 0;                     ///< Stream number.
    TrackKind kind = TrackKind::Video; ///< What it holds.
    QString codec;                     ///< As the probe names it.
    QString language;                  ///< ISO 639 ("fra", "fre" and "fr" are one) or empty.
    QString title;                     ///< As the file says it, or empty.
    bool isDefault = false;            ///< Marked so in the file.
    bool forced = false;               ///< Marked so in the file.
};

/// By which rule tracks are chosen. Choosing by hand comes first, and says so.
struct ZOKIT_EXPORT TrackRules {
    /// In order of preference; all tracks of the first language that the clip has. Where it has none of them, the track
    /// that it marks as default, else its first.
    QStringList audioLanguages;
    QStringList subtitleLanguages; ///< In order; one track, and none where the clip has none of them.
    bool forcedSubtitles = false;  ///< A forced subtitle in the sound's language is chosen, else one without language.
    bool sidecars = false;         ///< Subtitle files of the clip's name beside it count as tracks.
    std::optional<QVector<int>> audioTracks; ///< By hand: stream numbers.
    std::optional<int> subtitleTrack;        ///< By hand: a stream number; -1: none.
};

/// From the values of a settings file's "tracks"; nothing for what is no rule, with the reason in \a error if given.
ZOKIT_EXPORT std::optional<TrackRules> trackRulesFrom(const Values& values, Message* error = nullptr);
/// Back to those values; what is not set has none.
ZOKIT_EXPORT Values toValues(const TrackRules& rules);

/// One track and what becomes of it, to be shown before it is applied.
struct ZOKIT_EXPORT TrackChoice {
    Track track;           ///< Of a sidecar: kind Subtitle, index -1, language from its name.
    QString sidecar;       ///< Path of a subtitle file beside the clip, or empty.
    bool selected = false; ///< Whether it takes part.
    Message why;           ///< By which rule; empty when it is not selected.

    /// A line for people: "track 1 (audio, eng, aac): chosen for its language, eng".
    Message line() const;
};

/// The endings by which subtitle files are known, in small letters, without their dots.
ZOKIT_EXPORT QStringList subtitleEndings();
/// Subtitle files that belong to \a clip: beside it, "NAME.srt", "NAME.eng.srt", "NAME.eng.forced.ass"; in the order of
/// the alphabet. Not those of a clip beside it whose name goes on.
ZOKIT_EXPORT QStringList sidecarsOf(const QString& clip);

/// What \a rules choose among \a tracks of \a clip and \a sidecars: one choice a track of sound or subtitles, in their
/// order, then the sidecars. Without a rule nothing is selected. \a error: a track chosen by hand is not there.
ZOKIT_EXPORT QVector<TrackChoice> chosenTracks(const TrackRules& rules, const QVector<Track>& tracks,
                                               const QString& clip, const QStringList& sidecars,
                                               Message* error = nullptr);

/// \a choices, made by \a rules, with the tracks besides that \a settings have selected, chosen by hand: who ticks a
/// track makes no rule. Not of a kind, sound or subtitles, of which \a rules say something, or the rules of \a
/// settings, by which they were selected.
ZOKIT_EXPORT QVector<TrackChoice> withTicked(const QVector<TrackChoice>& choices, const Settings& settings,
                                             const TrackRules& rules);

/// Languages that \a rules ask for and none of \a choices has, as sentences; nothing where tracks were chosen by hand,
/// and for subtitles where another rule chose one.
ZOKIT_EXPORT QVector<Message> missingLanguages(const TrackRules& rules, const QVector<TrackChoice>& choices);

/// What a subtitle file has behind the name of its \a clip: ".eng.srt". The same for another clip of a series.
ZOKIT_EXPORT QString endingOf(const QString& sidecar, const QString& clip);
/// \a choices with the one of \a sidecars of \a clip that has \a ending chosen by hand, whatever the rules say: no
/// other subtitle is. Those that \a choices lack come behind them, to be shown. Where none has that ending, or it is
/// empty, all others stay as they are.
ZOKIT_EXPORT QVector<TrackChoice> withSidecar(const QVector<TrackChoice>& choices, const QString& clip,
                                              const QStringList& sidecars, const QString& ending);

/// What a track that has no item yet gets: the saved defaults when a media file is added, else the catalogue's.
enum class NewTracks { CatalogueDefaults, SavedDefaults };

/// \a settings with the items of "Audio" and "Subtitle" that \a choices mean: one item a track in their order, styles
/// of tracks that are there already kept, \a rules noted under "tracks". Files that a person added stay; those that
/// the rule of sidecars brought go with it. Without that rule a sidecar that is not selected gets no item.
ZOKIT_EXPORT Settings withTracks(const Settings& settings, const QVector<TrackChoice>& choices, const TrackRules& rules,
                                 NewTracks fresh = NewTracks::CatalogueDefaults);

} // namespace zokit
