// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>
#include <QVector>

#include <zokit/message.h>
#include <zokit/probe.h>
#include <zokit/settings.h>
#include <zokit/soundgraph.h>
#include <zokit/subtitlescript.h>
#include <zokit/tracks.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// What becomes of a track.
enum class TrackFate {
    Copied,    ///< Packet by packet.
    Encoded,   ///< Anew, in another codec or with effects.
    Converted, ///< A subtitle of text, in the form that the container takes.
    Attached,  ///< A cover that becomes an attachment.
    BurnedIn,  ///< A subtitle that becomes part of the picture.
    LeftOut
};

/// One track and what becomes of it.
struct ZOKIT_EXPORT TrackPlan {
    QString file;                       ///< Of a sound or subtitle file; empty: a track of the clip.
    Track track;                        ///< As it is there.
    TrackFate fate = TrackFate::Copied; ///< What becomes of it.
    QString codec;        ///< Of the result, by ffprobe's name: "h264", "aac", "mov_text". Empty where there is none.
    bool isCover = false; ///< A picture of the kind that a player shows for a song.
    bool isSelected = false;     ///< Of its kind it comes before those that are not, and is marked as default.
    bool loops = false;          ///< A sound file that begins again until the picture ends.
    bool hasEffects = false;     ///< All sound effects apply; else, at most, the change of speed.
    bool isRestyled = false;     ///< A subtitle track that takes the style of its item.
    bool isScripted = false;     ///< A subtitle track that is written anew: restyled, or converted at other times.
    bool isDeinterlaced = false; ///< A picture of whole frames is made of fields.
    Message why;                 ///< Why it is left out, or encoded unasked.

    /// A line for people: "track 1 (audio, eng, aac): copied".
    Message line() const;
};

/// All that is decided about tracks and codecs before a conversion.
struct ZOKIT_EXPORT TracksPlan {
    QString container;         ///< "mp4", "mkv", "webm", "mov".
    QVector<TrackPlan> tracks; ///< In the order of the result; between them those that are left out or burned in.
    QString videoCodec;        ///< "h264", "hevc", "vp9", "av1", "ffv1"; empty where no picture is encoded.
    QString pixelFormat;       ///< What the encoder of the picture gets.
    bool mapsHdr = false;      ///< HDR is mapped to what every screen shows.
    SubtitlePlan subtitle;     ///< Which subtitle is shown, and how.
    Messages warnings;         ///< What comes out otherwise than one may think.
    Message error;             ///< What cannot be done as it is asked for.

    /// Nothing is encoded, burned in or converted.
    bool copiesAll() const;
};

/// Files beside the clip that \a settings name as tracks: sounds, and a subtitle.
ZOKIT_EXPORT QStringList namedTrackFiles(const Settings& settings);

/// The container that the ending of \a path means; empty for none of the four.
ZOKIT_EXPORT QString containerOf(const QString& path);
/// The container of a result that has no name yet: as output option "container" says, else that which the ending of
/// \a input means, else mkv.
ZOKIT_EXPORT QString containerFor(const Settings& settings, const QString& input);

/// What of \a settings is refused for any clip: a codec that \a container cannot hold, a quality, an encoder speed, a
/// pixel format or an exact size that is not for the codec, "copy" of what another setting changes, a speed of nothing.
/// Empty: nothing that is known without the clip.
ZOKIT_EXPORT Message checkCodecs(const Settings& settings, const QString& container);

/// What becomes of the tracks of \a media and of \a files, which hold what was found out about namedTrackFiles(). A
/// track is encoded where an effect touches it, where an output option names something of it, where it is trimmed, or
/// where the container cannot hold it as it is; else it is copied. Takes a QGuiApplication where there is a watermark.
ZOKIT_EXPORT TracksPlan planTracks(const Settings& settings, const MediaInfo& media,
                                   const QMap<QString, MediaInfo>& files, const QString& container);

/// What output options come to by \a plan where nothing is set: "name", "container", "video-codec" and "audio-codec"
/// (of the first track; "copy" where it is copied), "other-tracks"; where the picture is encoded "quality",
/// "encoder-speed", "pixel-format" and "hdr", too. Options that are without effect there are not in it. Of a plan with
/// an error only name and container are known.
ZOKIT_EXPORT Values takenOptions(const TracksPlan& plan);

/// The part of the clip that is converted.
struct ZOKIT_EXPORT ClipPart {
    double from = 0;        ///< Seconds from the clip's beginning.
    double seconds = 0;     ///< Of the clip; 0: to its end, which is not known, or, where it is trimmed, nothing.
    double result = 0;      ///< Length of the result, after a change of speed; 0: unknown.
    bool isTrimmed = false; ///< By output option "trim".
};
/// By output option "trim", as far as \a media reaches, and the change of speed; the whole clip without a trim.
ZOKIT_EXPORT ClipPart clipPart(const Settings& settings, const MediaInfo& media);

} // namespace zokit
