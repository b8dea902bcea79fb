// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QObject>
#include <QTemporaryDir>

#include <zokit/child.h>
#include <zokit/probe.h>
#include <zokit/soundsamples.h>

#include "sounddevice.h"

namespace zoeditor {

/// Plays a piece of sound as it will come out, by the sound device where there is one, else by a player of the system.
class Listening : public QObject {
    Q_OBJECT

public:
    /// Silent. \a tools outlives it; looked at when something is first heard. \a device may be null.
    Listening(const zokit::Tools& tools, std::unique_ptr<SoundDevice> device, QObject* parent = nullptr);

    /// Makes the piece and plays it; what played before ends. Of \a file, if one is named, instead of the question's
    /// clip.
    void start(const zokit::SoundQuestion& question, const QString& file = QString());
    /// Silent again.
    void stop();
    /// From start() until the piece has ended.
    bool isActive() const;

signals:
    /// isActive() answers \a isActive from now on.
    void activeChanged(bool isActive);
    /// Why nothing is heard.
    void failed(const QString& sentence);

private:
    void play(const zokit::SoundAnswer& answer);
    void fail(const QString& sentence);
    /// Silences the device. Whether it played.
    bool silence();
    bool isMaking() const { return m_samples && (m_samples->isRunning() || m_prober->isRunning()); }

    const zokit::Tools& m_tools;
    std::unique_ptr<zokit::SoundSamples> m_samples; ///< Null until then.
    std::unique_ptr<zokit::Prober> m_prober;        ///< As above.
    zokit::SoundQuestion m_question;                ///< What waits for it.
    std::unique_ptr<SoundDevice> m_device;
    bool m_isDevicePlaying = false;
    zokit::Child m_player; ///< Where the device does not.
    QTemporaryDir m_folder;
};

} // namespace zoeditor
