// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QList>
#include <QSize>
#include <QString>

/// One audio or subtitle stream of a file.
struct Track {
    int id = -1; ///< The stream's number in the file.
    QString language;
    QString codec;
};

/// What a media file holds, as far as this host cares.
struct Media {
    QString path;
    QSize pictureSize;    ///< As it is shown, after any rotation; empty when there is no video stream.
    int videoStream = -1; ///< The stream's number, -1 when there is none.
    double seconds = 0;   ///< 0 when it is not known.
    QList<Track> audioTracks;
    QList<Track> subtitleTracks;
};

/// Asks ffprobe what the file at \a path holds; waits at most \a patience seconds. Throws Failure.
Media probe(const QString& path, int patience);

/// The picture at \a seconds, scaled to \a size, taken by ffmpeg; waits at most \a patience seconds. A null
/// image when the video has no picture there. Throws Failure.
QImage frameAt(const Media& media, double seconds, QSize size, int patience);
