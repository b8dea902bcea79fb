// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <zokit/message.h>
#include <zokit/settings.h>
#include <zokit/tracks.h>

namespace zokit {

struct MediaStream;

/// \name What a container holds so that players find it, and what ffmpeg calls it
/// @{
bool holds(const QString& container, TrackKind kind, const QString& codec);
/// Whether ffmpeg makes text of such a subtitle: of teletext, for one, it makes pictures.
bool isTextSubtitle(const QString& codec);
/// In which codec a subtitle of text is written into \a container.
QString textCodec(const QString& container, const QString& codec);
QString muxer(const QString& container);
QString usualVideoCodec(const QString& container);
QString usualAudioCodec(const QString& container);
/// @}

/// ffmpeg's encoder for a codec of sound or of subtitles.
QString encoderOf(const QString& codec);
/// The Debian package of ffmpeg has all of them; another one may lack some.
bool takesPixelFormat(const QString& videoCodec, const QString& format);

/// Options of the encoder of the picture: codec, quality, speed, profile. \a format is what it gets.
QStringList videoEncoderOptions(const Values& output, const QString& codec, const QString& format,
                                const QString& container);
/// Quality and encoder speed that \a codec gets where none is asked for; empty where it has none.
Values usualVideoOptions(const QString& codec);
/// Why quality or encoder speed do not suit \a codec.
Message checkVideoOptions(const Values& output, const QString& codec);
/// Why \a codec does not take pictures of \a size.
Message checkSize(const QSize& size, const QString& codec);
/// Options of the encoder of track \a position among those of sound.
QStringList audioEncoderOptions(const Values& output, const QString& codec, const MediaStream& sound, int position);
/// What has to be done to the sound for \a codec: a layout that it takes. Empty: nothing.
QString audioEncoderFilter(const QString& codec, const MediaStream& sound);

} // namespace zokit
