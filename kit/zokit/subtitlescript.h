// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QVector>

#include <zokit/message.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

namespace zokit {

struct MediaInfo;

/// What becomes of the selected subtitle track.
enum class SubtitleUse {
    None,       ///< None is selected.
    Soft,       ///< A track of its own, which can be switched off.
    BurnText,   ///< Extracted, rewritten by ownSubtitles() and drawn into the picture.
    BurnBitmap, ///< Its pictures are laid over the picture.
    Missing     ///< The clip has no such track of subtitles; told in SubtitlePlan::error.
};

/// Which subtitle is shown, and how.
struct ZOKIT_EXPORT SubtitlePlan {
    SubtitleUse use = SubtitleUse::None; ///< What becomes of it.
    int position = -1;                   ///< Among the items of "Subtitle".
    int stream = -1;                     ///< Stream number of an embedded track; -1 for a file.
    QString file;                        ///< Path of a subtitle file; empty for an embedded track.
    bool hasOwnStyles = false;           ///< It is ASS or SSA.
    Messages warnings;                   ///< What of the style cannot be done.
    Message error;                       ///< Why it cannot be shown; empty when it can.
};

/// The first selected track. A file is burned in unless output option "soft-subtitles" is set; an embedded track stays
/// soft unless its style differs from the catalogue's, or "burn-subtitles" is set.
ZOKIT_EXPORT SubtitlePlan subtitlePlan(const Settings& settings, const MediaInfo& media);
/// Whether a codec of subtitles, by ffmpeg's name, holds pictures.
ZOKIT_EXPORT bool isBitmapSubtitle(const QString& codec);
/// Whether a subtitle file, by its ending, holds pictures: "sup" and "idx".
ZOKIT_EXPORT bool isBitmapSubtitleFile(const QString& path);

/// An ASS script as ownSubtitles() writes it.
struct ZOKIT_EXPORT OwnSubtitles {
    QByteArray script;     ///< Whole, in UTF-8.
    bool inColour = false; ///< Something of it is neither white nor grey nor black.
    int events = 0;        ///< Lines of dialogue that were read.
};

/// What an own script has to know.
struct ZOKIT_EXPORT ScriptParts {
    QSize frame;               ///< baseFrame(): the script is measured in it.
    bool hasOwnStyles = false; ///< The source is ASS or SSA.
    bool soft = false;         ///< For a track, not for burning in: the transparency is written into the script.
};

/// The subtitles of \a ass, as ffmpeg extracts them, in the style of a track: \a style are the values of the item.
/// A track without styles of its own takes all of it: font, size (points of 96 dots an inch), colours, outline, the
/// first line at "sub_vposition". One with styles of its own keeps them while "fontstyleusedefault" is true, apart from
/// a place that was set; else an embedded one takes the colours, one from a file the whole style. Takes a
/// QGuiApplication. Never fails: what is no dialogue is left out.
ZOKIT_EXPORT OwnSubtitles ownSubtitles(const QByteArray& ass, const Values& style, const ScriptParts& parts);

/// When something is shown.
struct ZOKIT_EXPORT SubtitleCue {
    double from = 0; ///< Seconds from the clip's beginning.
    double to = 0;   ///< As above.
    QString text;    ///< In one line, without commands.
};
/// The lines of dialogue of \a ass, as ffmpeg extracts them, in their order; those without a length are left out.
ZOKIT_EXPORT QVector<SubtitleCue> subtitleCues(const QByteArray& ass);

} // namespace zokit
