// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

#include <zokit/message.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

namespace zokit {

struct MediaStream;

/// What a sound's graph has to know beside settings and track.
struct ZOKIT_EXPORT SoundParts {
    double from = 0;    ///< Seconds of what comes out that a preview has skipped ("-ss" before "-i"); a conversion: 0.
    double seconds = 0; ///< Length of what comes out, after a change of speed; 0: unknown.
    double gain = 0;    ///< Decibels, of gainFor(), where needsMeasuring().
    bool measuring = false;             ///< The pass that measures the peak: its words go to measuredPeak().
    QString name = QStringLiteral("s"); ///< Begins the labels; one of its own for each graph in a text.
};

/// The filters for one track, all effects whose flag is set: speed, band pass, chorus, flanger, echo, fade, normalize.
/// One input, one output, both without a label: for "-filter:a:0", or between labels. Empty: the sound is not touched.
ZOKIT_EXPORT QString soundGraph(const Settings& settings, const MediaStream& sound, const SoundParts& parts);

/// Whether the peak has to be measured first, in a pass of its own with "-v info".
ZOKIT_EXPORT bool needsMeasuring(const Settings& settings);
/// The peak in decibels of full scale that \a words of the measuring pass tell, minus infinity for silence; nothing
/// when they tell none.
ZOKIT_EXPORT std::optional<double> measuredPeak(const QByteArray& words);
/// The gain that brings \a peak to the level that is set; 0 for silence.
ZOKIT_EXPORT double gainFor(const Settings& settings, double peak);

/// How much faster picture and sound are; 1 without a change of speed, 0 where soundProblem() tells of it.
ZOKIT_EXPORT double speedFactor(const Settings& settings);
/// What cannot be done: a speed of 0. Empty: nothing.
ZOKIT_EXPORT Message soundProblem(const Settings& settings);

} // namespace zokit
