// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/soundsamples.h>

#include <algorithm>

#include <QDataStream>
#include <QIODevice>
#include <QTimer>

#include <zokit/child.h>
#include <zokit/soundgraph.h>
#include <zokit/trackplan.h>

#include "argumentnumber_p.h"
#include "childreason_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

constexpr int rate = 48000;
constexpr int mostChannels = 2;
constexpr int bytesASample = 2;

/// A wave file of \a samples; one that is written to a pipe could not say how long it is.
QByteArray waveOf(const QByteArray& samples, int channels)
{
    constexpr quint32 formatSize = 16;
    constexpr quint32 headSize = 36;
    constexpr quint16 plainNumbers = 1;
    constexpr quint16 bitsAByte = 8;
    const auto frameSize = static_cast<quint16>(channels * bytesASample);
    const auto size = static_cast<quint32>(samples.size());
    QByteArray wave;
    QDataStream stream(&wave, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("RIFF", 4);
    stream << quint32(headSize + size);
    stream.writeRawData("WAVEfmt ", 8);
    stream << formatSize << plainNumbers << quint16(channels) << quint32(rate) << quint32(rate * frameSize) << frameSize
           << quint16(bitsAByte * bytesASample);
    stream.writeRawData("data", 4);
    stream << size;
    return wave + samples;
}

/// One stays one: as two it would be softer.
int channelsOf(const MediaStream& sound)
{
    return sound.channels == 1 ? 1 : mostChannels;
}

const MediaStream* soundOf(const SoundQuestion& question)
{
    const auto found =
        std::find_if(question.media.streams.cbegin(), question.media.streams.cend(), [&](const MediaStream& stream) {
            return stream.track.kind == TrackKind::Audio
                   && (question.stream < 0 || stream.track.index == question.stream);
        });
    return found == question.media.streams.cend() ? nullptr : &*found;
}

} // namespace

class SoundSamples::Private : public QObject {
public:
    Private(const Tools& tools, SoundSamples* owner) : m_tools(tools), m_owner(owner) {}

    int ask(const SoundQuestion& question);
    void cancel();
    bool isRunning() const { return m_isRunning; }

private:
    void begin();
    void start(bool measuring, double gain);
    void ended(const ChildResult& result);
    void answer(const QByteArray& wave, const Message& error);

    Tools m_tools;
    SoundSamples* m_owner;
    std::unique_ptr<Child> m_child;
    Command m_command;
    SoundQuestion m_question;
    int m_number = 0;
    bool m_isRunning = false;
    bool m_isMeasuring = false;
};

int SoundSamples::Private::ask(const SoundQuestion& question)
{
    cancel();
    m_question = question;
    m_isRunning = true;
    ++m_number;
    QTimer::singleShot(0, this, [this, number = m_number] {
        if (m_isRunning && number == m_number)
            begin();
    });
    return m_number;
}

void SoundSamples::Private::cancel()
{
    m_isRunning = false;
    m_child.reset();
}

void SoundSamples::Private::begin()
{
    if (!m_tools.error.isEmpty())
        return answer({}, m_tools.error);
    if (const Message wrong = checkInput(m_question.media.file); !wrong.isEmpty())
        return answer({}, wrong);
    if (!soundOf(m_question))
        return answer({}, Message(Code::NoSoundIn, {m_question.media.file}));
    if (const Message wrong = soundProblem(m_question.settings); m_question.withEffects && !wrong.isEmpty())
        return answer({}, wrong);
    start(m_question.withEffects && needsMeasuring(m_question.settings), 0);
}

/// A pass that measures hears all that a conversion does; the other one the piece that is asked for.
void SoundSamples::Private::start(bool measuring, double gain)
{
    const MediaStream& sound = *soundOf(m_question);
    const ClipPart part = clipPart(m_question.settings, m_question.media);
    const double speed = m_question.withEffects ? speedFactor(m_question.settings) : 1;
    const double from = std::max(m_question.from, 0.0);
    SoundParts parts;
    parts.seconds = part.result;
    parts.gain = gain;
    parts.measuring = measuring;
    if (!measuring)
        parts.from = std::max(from - part.from, 0.0) / speed;
    QStringList words{QStringLiteral("-hide_banner"), QStringLiteral("-nostdin"), QStringLiteral("-v"),
                      measuring ? QStringLiteral("info") : QStringLiteral("error"), QStringLiteral("-nostats")};
    if (!measuring)
        words << QStringLiteral("-ss") << argumentNumber(from) << QStringLiteral("-t")
              << argumentNumber(m_question.seconds * speed);
    else if (part.isTrimmed)
        words << QStringLiteral("-ss") << argumentNumber(part.from) << QStringLiteral("-t")
              << argumentNumber(part.seconds);
    words << guardedInput(m_question.media.file) << QStringLiteral("-map")
          << QStringLiteral("0:%1").arg(sound.track.index);
    const QString graph = m_question.withEffects ? soundGraph(m_question.settings, sound, parts) : QString();
    if (!graph.isEmpty())
        words << QStringLiteral("-filter:a:0") << graph;
    if (measuring)
        words << QStringLiteral("-f") << QStringLiteral("null") << QStringLiteral("-");
    else
        words << QStringLiteral("-t") << argumentNumber(m_question.seconds) << QStringLiteral("-ar")
              << QString::number(rate) << QStringLiteral("-ac") << QString::number(channelsOf(sound))
              << QStringLiteral("-f") << QStringLiteral("s16le") << QStringLiteral("pipe:1");
    constexpr qint64 gibibyte = qint64(1024) * 1024 * 1024;
    constexpr int patience = 300;
    m_command = Command();
    m_command.program = m_tools.ffmpeg;
    m_command.arguments = words;
    m_command.memory = 2 * gibibyte;
    m_command.seconds = patience;
    m_isMeasuring = measuring;
    if (!m_child) {
        m_child = std::make_unique<Child>();
        connect(m_child.get(), &Child::finished, this, &Private::ended);
    }
    m_child->start(m_command);
}

void SoundSamples::Private::ended(const ChildResult& result)
{
    if (!result.isGood())
        return answer({}, reasonOf(result, m_command));
    if (!m_isMeasuring)
        return answer(waveOf(result.output, channelsOf(*soundOf(m_question))), Message());
    const std::optional<double> peak = measuredPeak(result.words);
    if (!peak)
        return answer({}, Message(Code::NotMeasured));
    start(false, gainFor(m_question.settings, *peak));
}

void SoundSamples::Private::answer(const QByteArray& wave, const Message& error)
{
    m_isRunning = false;
    emit m_owner->answered({m_number, wave, error});
}

SoundSamples::SoundSamples(const Tools& tools, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(tools, this))
{
}

SoundSamples::~SoundSamples() = default;

int SoundSamples::ask(const SoundQuestion& question)
{
    return d->ask(question);
}

void SoundSamples::cancel()
{
    d->cancel();
}

bool SoundSamples::isRunning() const
{
    return d->isRunning();
}

} // namespace zokit
