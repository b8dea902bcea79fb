// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "listening.h"

#include <utility>

#include <QFile>
#include <QStandardPaths>

namespace zoeditor {

namespace {

struct Player {
    const char* program;
    QStringList arguments; ///< Before the file.
};

/// The one that ZOEDITOR_PLAYER names, else the first one that is there.
zokit::Command playerFor(const QString& file)
{
    zokit::Command command;
    if (const QString named = qEnvironmentVariable("ZOEDITOR_PLAYER"); !named.isEmpty()) {
        command.program = QStandardPaths::findExecutable(named);
        command.arguments = QStringList{file};
        return command;
    }
    const QVector<Player> players{
        {"pw-play", {}},
        {"paplay", {}},
        {"aplay", {QStringLiteral("-q")}},
        {"ffplay",
         {QStringLiteral("-nodisp"), QStringLiteral("-autoexit"), QStringLiteral("-v"), QStringLiteral("error")}},
    };
    for (const Player& player : players) {
        command.program = QStandardPaths::findExecutable(QString::fromLatin1(player.program));
        command.arguments = player.arguments + QStringList{file};
        if (!command.program.isEmpty())
            break;
    }
    return command;
}

} // namespace

Listening::Listening(const zokit::Tools& tools, std::unique_ptr<SoundDevice> device, QObject* parent)
    : QObject(parent), m_tools(tools), m_device(std::move(device))
{
    if (m_device) {
        connect(m_device.get(), &SoundDevice::ended, this, [this](const QString& trouble) {
            m_isDevicePlaying = false;
            if (!trouble.isEmpty())
                emit failed(trouble);
            emit activeChanged(isActive());
        });
    }
    connect(&m_player, &zokit::Child::finished, this, [this](const zokit::ChildResult& result) {
        if (isMaking())
            return; // Another piece is being made.
        // Without a sound device ffplay ends well, and only says so.
        const bool isMute = result.lastWords().startsWith(QLatin1String("Failed to open file"));
        if ((!result.isGood() && result.end != zokit::ChildEnd::Cancelled) || isMute)
            return fail(
                tr("No sound can be heard here. Check that loudspeakers are connected and other programs are heard. "
                   "The player says: %1")
                    .arg(result.lastWords()));
        emit activeChanged(false);
    });
}

void Listening::start(const zokit::SoundQuestion& question, const QString& file)
{
    const bool wasActive = isActive();
    silence();
    m_player.cancel();
    if (!m_samples) {
        m_samples = std::make_unique<zokit::SoundSamples>(m_tools);
        connect(m_samples.get(), &zokit::SoundSamples::answered, this, &Listening::play);
        m_prober = std::make_unique<zokit::Prober>(m_tools);
        connect(m_prober.get(), &zokit::Prober::finished, this, [this](const zokit::ReadMedia& read) {
            if (!read.media)
                return fail(read.error.text());
            m_question.media = *read.media;
            m_question.stream = -1;
            m_samples->ask(m_question);
        });
    }
    m_samples->cancel();
    m_prober->cancel();
    m_question = question;
    if (file.isEmpty())
        m_samples->ask(question);
    else
        m_prober->probe(file);
    if (!wasActive)
        emit activeChanged(true);
}

void Listening::stop()
{
    const bool wasMaking = isMaking();
    const bool wasPlaying = silence();
    if (m_samples) {
        m_samples->cancel();
        m_prober->cancel();
    }
    if (m_player.isRunning())
        m_player.cancel(); // Its end is told.
    else if (wasMaking || wasPlaying)
        emit activeChanged(false);
}

bool Listening::silence()
{
    if (!m_isDevicePlaying)
        return false;
    m_isDevicePlaying = false;
    m_device->stop();
    return true;
}

bool Listening::isActive() const
{
    return isMaking() || m_isDevicePlaying || m_player.isRunning();
}

void Listening::play(const zokit::SoundAnswer& answer)
{
    if (!answer.error.isEmpty())
        return fail(answer.error.text());
    m_isDevicePlaying = m_device && m_device->play(answer.wave);
    if (m_isDevicePlaying)
        return;
    QFile file(m_folder.filePath(QStringLiteral("listen.wav")));
    if (!file.open(QIODevice::WriteOnly) || file.write(answer.wave) != answer.wave.size() || !file.flush())
        return fail(tr("The sound cannot be kept in %1: %2").arg(m_folder.path(), file.errorString()));
    const zokit::Command command = playerFor(file.fileName());
    if (command.program.isEmpty())
        return fail(
            tr("There is no player for sound. Install one, for example with: apt-get install pulseaudio-utils"));
    if (m_player.isRunning()) // The one before has been told to end, and has not yet.
        return fail(tr("The player does not end. Try again."));
    m_player.start(command);
}

void Listening::fail(const QString& sentence)
{
    emit failed(sentence);
    emit activeChanged(false);
}

} // namespace zoeditor
