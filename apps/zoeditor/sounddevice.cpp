// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "sounddevice.h"

#ifdef ZOEDITOR_HAS_MULTIMEDIA
#include <QAudioFormat>
#include <QBuffer>
#include <QTimer>
#if QT_VERSION_MAJOR >= 6
#include <QAudioDevice>
#include <QAudioSink>
#include <QMediaDevices>
#else
#include <QAudioDeviceInfo>
#include <QAudioOutput>
#endif
#endif

namespace zoeditor {

#ifdef ZOEDITOR_HAS_MULTIMEDIA

namespace {

#if QT_VERSION_MAJOR >= 6
using Output = QAudioSink;
#else
using Output = QAudioOutput;
#endif

/// The sound as plain numbers: no player and no decoder, which would come with threads of their own.
class Speakers : public SoundDevice {
public:
    bool play(const QByteArray& wave) override
    {
        constexpr int head = 44; // Bytes before the samples.
        constexpr int channelsAt = 22;
        stop();
        if (wave.size() < head)
            return false;
        m_output = outputFor(wave.at(channelsAt));
        if (!m_output)
            return false;
        m_samples.setData(wave.mid(head));
        m_samples.open(QIODevice::ReadOnly);
        m_output->start(&m_samples);
        if (m_output->error() != QAudio::NoError) {
            stop();
            return false;
        }
        connect(m_output.get(), &Output::stateChanged, this, &Speakers::takeState);
        return true;
    }

    void stop() override
    {
        if (m_output) {
            m_output->disconnect(this);
            m_output->stop();
            m_output.release()->deleteLater(); // It may be speaking.
        }
        m_samples.close();
    }

private:
    /// Null where there is no device, or one that does not take such numbers.
    static std::unique_ptr<Output> outputFor(int channels)
    {
        constexpr int rate = 48000;
        QAudioFormat format;
        format.setSampleRate(rate);
        format.setChannelCount(channels);
#if QT_VERSION_MAJOR >= 6
        format.setSampleFormat(QAudioFormat::Int16);
        const QAudioDevice device = QMediaDevices::defaultAudioOutput();
#else
        constexpr int bits = 16;
        format.setSampleSize(bits);
        format.setSampleType(QAudioFormat::SignedInt);
        format.setByteOrder(QAudioFormat::LittleEndian);
        format.setCodec(QStringLiteral("audio/pcm"));
        const QAudioDeviceInfo device = QAudioDeviceInfo::defaultOutputDevice();
#endif
        if (device.isNull() || !device.isFormatSupported(format))
            return nullptr;
        return std::make_unique<Output>(device, format);
    }

    /// Idle is a device that has got all numbers, or waits for some.
    void takeState(QAudio::State state)
    {
        if (state == QAudio::IdleState && m_samples.atEnd()) {
            // What lies in its buffer is still to be heard.
            const qint64 rest = m_output->format().durationForBytes(int(m_output->bufferSize())); // Microseconds.
            QTimer::singleShot(std::chrono::milliseconds(rest / 1000), m_output.get(), [this] { end(QString()); });
        } else if (state == QAudio::StoppedState) {
            end(SoundDevice::tr("No sound can be heard here: the sound device gave up. Check that "
                                "loudspeakers are connected and other programs are heard."));
        }
    }

    void end(const QString& trouble)
    {
        stop();
        emit ended(trouble);
    }

    std::unique_ptr<Output> m_output; ///< Null while nothing plays.
    QBuffer m_samples;
};

} // namespace

std::unique_ptr<SoundDevice> makeSoundDevice()
{
    if (!qEnvironmentVariableIsEmpty("ZOEDITOR_PLAYER"))
        return nullptr;
    return std::make_unique<Speakers>();
}

#else

std::unique_ptr<SoundDevice> makeSoundDevice()
{
    return nullptr;
}

#endif

} // namespace zoeditor
