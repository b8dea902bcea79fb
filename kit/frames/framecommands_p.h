// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <zokit/child.h>
#include <zokit/frames.h>
#include <zokit/graph.h>
#include <zokit/probe.h>
#include <zokit/tools.h>

namespace zokit {

/// Where a clip is read to get at one frame. Seconds from its beginning.
struct FrameWindow {
    double from = 0;  ///< Decoding begins here.
    double first = 0; ///< No earlier frame comes out.
    double to = 0;    ///< And none from here on; 0: all.
};

/// A frame of the clip, as sourceGraph() gave it.
struct KeptFrame {
    QString file; ///< Its bytes.
    QSize size;
    double seconds = 0; ///< Its time, from the clip's beginning.
};

/// Files made for a frame, by absolute path; empty: none.
struct FrameFiles {
    QString watermark;
    QString subtitleScript;
    bool subtitleInColour = false;
    QString subtitleFonts;    ///< Folder.
    double subtitleStart = 0; ///< MediaInfo::start of a file with subtitles of pictures.
};

/// \name Where to look
/// @{
/// The last frame that begins before the end of a window is the one that is shown at \a seconds.
FrameWindow nearWindow(const MediaInfo& media, double seconds, int framesBefore);
/// The same for where there was none: further back with each \a attempt, from 0 on; the last one begins at 0.
FrameWindow wideWindow(double seconds, int attempt);
/// Around a frame that was found in \a found: it alone comes out.
FrameWindow windowAround(const FrameWindow& found, double seconds);
/// @}

/// What a graph makes of the clip in a window, to standard output, frame by frame; the times are for toldTicks().
Command frameCommand(const Tools& tools, const FrameQuestion& question, const FrameWindow& window,
                     const FrameFiles& files);
/// The clip's own frames in a window.
Command sourceCommand(const Tools& tools, const FrameQuestion& question, const FrameWindow& window);
/// Their times alone.
Command locateCommand(const Tools& tools, const FrameQuestion& question, const FrameWindow& window);
/// What a graph makes of a frame that was kept.
Command keptCommand(const Tools& tools, const FrameQuestion& question, const KeptFrame& kept, const FrameFiles& files);

/// The same for a program that is loaded ahead: it reads its graph, which is the input, from standard input, and opens
/// no other file before.
Command readingItsGraph(const Command& command);

/// A decoder from \a from on that does not end before the clip does: what the question asks for, but for its time, made
/// into \a size, four bytes a pixel, \a rate pictures a second; the first one is of \a from.
Command runningCommand(const Tools& tools, const FrameQuestion& question, double from, const QSize& size, int rate);

/// The graph of the question behind sourceGraph(): for its size, its warnings and its error.
PictureGraph questionGraph(const FrameQuestion& question, GraphParts parts);

/// The unit of the times of frames behind sourceGraph().
Rational ticksOf(const MediaStream& picture);
/// The time of a frame in seconds from the clip's beginning, as a conversion counts it.
double secondsOf(qint64 ticks, const FrameWindow& window, const MediaInfo& media);
/// The times of the frames that came out, in order.
QVector<qint64> toldTicks(const QByteArray& words);
/// \a words without them.
QByteArray withoutTicks(const QByteArray& words);
/// Whether a frame can be kept: it brings all that the graph looks at.
bool canBeKept(const FrameQuestion& question);

} // namespace zokit
