// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>

#include <zokit/message.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

namespace zokit {

struct MediaInfo;

/// What stands ready when a picture's graph runs.
struct ZOKIT_EXPORT GraphParts {
    int watermarkInput = -1;       ///< Number of ffmpeg's input with watermarkPicture() as one PNG; -1: no watermark.
    QString subtitleScript;        ///< Path of the subtitle as ownSubtitles() wrote it; empty: no text is burned in.
    bool subtitleInColour = false; ///< OwnSubtitles::inColour of it.
    QString subtitleFonts;         ///< Folder of fonts that the clip brings for it; empty: those of the system alone.
    int subtitleInput = -1;        ///< Input with a subtitle of pictures that is burned in; -1: none.
    int subtitleStream = 0;        ///< Its stream number there.
    double from = 0;      ///< Seconds from the clip's beginning to which the input was sought ("-ss" before "-i").
    double shownFrom = 0; ///< No frame before it is taken, in seconds from the clip's beginning.
    bool countsFromShown = false; ///< What comes out counts its times from "shownFrom" on, not from "from".
    double shownTo = 0;           ///< And none from it on; 0: all to the end.
    bool rawInput = false;        ///< Input 0 is one raw frame as sourceGraph() gave it, the one that stands at "from".
    QString pixelFormat;          ///< What the encoder gets; empty: the clip's own.
};

/// The picture's way from the clip to the encoder.
struct ZOKIT_EXPORT PictureGraph {
    QString text;           ///< For "-filter_complex"; its one output is "[picture]". Empty when there is no picture.
    QSize size;             ///< Of what comes out, in pixels.
    bool isNothing = false; ///< Nothing is asked of the picture: a copy of the stream shows the same.
    int framesBefore = 0;   ///< How many frames before one it looks at; a preview has to begin so many earlier.
    Messages warnings;      ///< What comes out otherwise than one may think.
    Message error;          ///< What cannot be done; then there is no text.
};

/// The graph that \a settings and their output options ask for, for conversion and preview alike: upright,
/// deinterlaced, square pixels, then turned, coloured, frame effects in their order, subtitle, watermark, crop, size.
/// The clip's picture is brought to Settings::media.frame before it is turned; geometry is measured in baseFrame().
ZOKIT_EXPORT PictureGraph pictureGraph(const Settings& settings, const MediaInfo& media, const GraphParts& parts);
/// The first part of pictureGraph(), which no effect changes: its output, in the clip's own pixel format, is the frame
/// that a preview keeps and hands over as GraphParts::rawInput.
ZOKIT_EXPORT PictureGraph sourceGraph(const Settings& settings, const MediaInfo& media,
                                      const GraphParts& parts = GraphParts());

/// The rectangle that is kept, cut to \a frame; with \a even its sides are rounded down to even numbers. Invalid: there
/// is no crop, or, told in \a error, less than the smallest size is left of it.
ZOKIT_EXPORT QRect croppedTo(const Settings& settings, const QSize& frame, bool even, Message* error = nullptr);
/// The size that output option "size" makes of \a cropped: fitted in with the shape kept, even, never enlarged; exactly
/// that size with ",exact". \a cropped itself without the option.
ZOKIT_EXPORT QSize outputSize(const Settings& settings, const QSize& cropped);

/// All selected watermarks on one transparent picture of baseFrame(): RGBA8888, the opacity apart from the colours.
/// Null when there is none. Takes a QGuiApplication.
ZOKIT_EXPORT QImage watermarkPicture(const Settings& settings);
/// Watermarks that lie outside of what is kept, or of a clip without a picture, and images that are missing. Takes a
/// QGuiApplication where there is a text.
ZOKIT_EXPORT Messages watermarkWarnings(const Settings& settings);

} // namespace zokit
