// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QByteArray>
#include <QObject>

#include <zokit/message.h>
#include <zokit/probe.h>
#include <zokit/settings.h>
#include <zokit/tools.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// A piece of a file's sound, to be listened to.
struct ZOKIT_EXPORT SoundQuestion {
    Settings settings; ///< Whose sound effects apply.
    MediaInfo media;   ///< The clip, or a sound file beside it.
    int stream = -1;   ///< Stream number; -1: the first one with sound.
    double from = 0;   ///< Seconds from the beginning of the file.
    // NOLINTNEXTLINE(readability-magic-numbers): long enough to judge an effect.
    double seconds = 15;     ///< How much of what comes out, at most.
    bool withEffects = true; ///< Else as the file has it.
};

/// The answer to a question.
struct ZOKIT_EXPORT SoundAnswer {
    int number = 0;  ///< As SoundSamples::ask() gave it.
    QByteArray wave; ///< A whole wave file, 48,000 Hz, one or two channels of 16 bits; empty with an error.
    Message error;   ///< Why there is none.
};

/// Gets pieces of sound out of files, through the filters of a conversion. One child at a time. For the main thread.
class ZOKIT_EXPORT SoundSamples : public QObject {
    Q_OBJECT

public:
    /// Starts nothing; \a tools says which ffmpeg is asked.
    explicit SoundSamples(const Tools& tools, QObject* parent = nullptr);
    /// What runs is ended; answered() is not sent.
    ~SoundSamples() override;

    /// Asks; a question that is open is dropped and gets no answer. The number of the question, from 1.
    int ask(const SoundQuestion& question);
    /// Drops the open question.
    void cancel();
    /// Whether a question is open.
    bool isRunning() const;

Q_SIGNALS:
    /// The answer to the last question; exactly one, never from within ask().
    void answered(const zokit::SoundAnswer& answer);

private:
    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit

Q_DECLARE_METATYPE(zokit::SoundAnswer)
