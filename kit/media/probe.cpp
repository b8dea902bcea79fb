// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/probe.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>

namespace zokit {

namespace {

using Code = Message::Code;

constexpr qint64 mostMemory = qint64(2) * 1024 * 1024 * 1024;
constexpr int mostProcessorSeconds = 20;
constexpr int secondsToProbe = 10;

/// Each name of a demuxer must stand here for it to be used. None of them opens a second file.
const char* const demuxers = "matroska,webm,mov,mp4,m4a,3gp,3g2,mj2,mpegts,mpeg,avi,flv,asf,ogg,wav,mp3,flac,aac,w64,"
                             "aiff,rm,srt,ass,sup,webvtt,vobsub,png_pipe,jpeg_pipe,h264,hevc,mpegvideo,ac3";

QString word(const char* name)
{
    return QString::fromLatin1(name);
}

Command limited(const Tools& tools, const QStringList& arguments, const QString& file)
{
    Command command;
    command.program = tools.ffprobe;
    command.arguments = QStringList{word("-v"), word("error")} + arguments + guardedInput(file);
    command.memory = mostMemory;
    command.processorSeconds = mostProcessorSeconds;
    command.seconds = secondsToProbe;
    return command;
}

/// Bytes that are no UTF-8 come as U+FFFD, which leads back to no file; half a pair of UTF-16 cannot be written.
bool isUtf8Name(const QString& path, const QByteArray& encoded)
{
    if (path.contains(QChar(0)) || QFile::decodeName(encoded) != path)
        return false;
    struct stat status {};
    return !path.contains(QChar(QChar::ReplacementCharacter)) || ::lstat(encoded.constData(), &status) == 0;
}

Message missing(const QString& path)
{
    const QFileInfo file(path);
    const QString near = nearest(file.fileName(), file.absoluteDir().entryList(QDir::Files));
    return Message(Code::InputMissing, {path, near});
}

/// What ffprobe says of \a file, without the name that it puts in front.
Message asMessage(const ChildResult& result, const Command& command, const QString& file)
{
    switch (result.end) {
    case ChildEnd::NotStarted:
        return Message(Code::ChildNotStarted, {command.program, result.lastWords()});
    case ChildEnd::Killed:
        return Message(Code::ChildKilled, {command.program, QString::number(result.signal)});
    case ChildEnd::Stalled:
    case ChildEnd::TimedOut:
        return Message(Code::ProbeTooLong, {file, QString::number(command.seconds)});
    default:
        break;
    }
    QString words = result.lastWords();
    const QString name = command.arguments.last() + QStringLiteral(": ");
    if (words.startsWith(name))
        words = words.mid(name.size());
    return Message(Code::NoMedia, {file, words});
}

/// Stills have none, and nobody needs that of subtitles.
bool hasLength(const MediaInfo& media)
{
    const auto isSound = [](const MediaStream& stream) { return stream.track.kind == TrackKind::Audio; };
    const bool isStill = media.demuxer.endsWith(QLatin1String("_pipe"));
    return !isStill && (media.picture() || std::any_of(media.streams.begin(), media.streams.end(), isSound));
}

} // namespace

Message checkInput(const QString& path)
{
    const QByteArray encoded = QFile::encodeName(path);
    if (!isUtf8Name(path, encoded))
        return Message(Code::InputName, {path});
    struct stat status {};
    if (::stat(encoded.constData(), &status) != 0) {
        const int why = errno;
        return why == ENOENT || why == ENOTDIR ? missing(path)
                                               : Message(Code::FileUnreadable, {path, word(std::strerror(why))});
    }
    if (S_ISDIR(status.st_mode))
        return Message(Code::InputFolder, {path});
    if (!S_ISREG(status.st_mode))
        return Message(Code::InputNotAFile, {path});
    if (::access(encoded.constData(), R_OK) != 0)
        return Message(Code::FileUnreadable, {path, word(std::strerror(errno))});
    return status.st_size == 0 ? Message(Code::InputEmpty, {path}) : Message();
}

QStringList guardedInput(const QString& file)
{
    return {word("-protocol_whitelist"),
            word("file,pipe"),
            word("-format_whitelist"),
            word(demuxers),
            word("-max_pixels"),
            QString::number(mostPixels),
            word("-max_streams"),
            word("100"),
            word("-probesize"),
            word("10M"),
            word("-analyzeduration"),
            word("10M"),
            word("-i"),
            QStringLiteral("file:") + QFileInfo(file).absoluteFilePath()};
}

Command probeCommand(const Tools& tools, const QString& file)
{
    return limited(
        tools,
        {word("-print_format"), word("json"), word("-show_format"), word("-show_streams"), word("-show_chapters")},
        file);
}

Command lengthCommand(const Tools& tools, const MediaInfo& media)
{
    const MediaStream* const picture = media.picture();
    const QString stream = picture ? QString::number(picture->track.index) : QStringLiteral("a:0");
    return limited(tools,
                   {word("-select_streams"), stream, word("-show_entries"), word("packet=pts_time,duration_time"),
                    word("-print_format"), word("csv=p=0")},
                   media.file);
}

Command hdrCommand(const Tools& tools, const MediaInfo& media)
{
    const MediaStream* const picture = media.picture();
    return limited(tools,
                   {word("-select_streams"), QString::number(picture ? picture->track.index : 0),
                    word("-read_intervals"), word("%+#1"), word("-show_frames"), word("-print_format"), word("json")},
                   media.file);
}

Prober::Prober(const Tools& tools, QObject* parent) : QObject(parent), m_tools(tools) {}

Prober::~Prober() = default;

void Prober::probe(const QString& file)
{
    cancel();
    m_isRunning = true;
    m_file = file;
    m_result = ReadMedia();
    m_result.error = m_tools.error.isEmpty() ? checkInput(file) : m_tools.error;
    m_steps = {Step::Streams};
    if (m_result.error.isEmpty()) {
        askOn();
        return;
    }
    const int question = m_question;
    QMetaObject::invokeMethod(
        this,
        [this, question] {
            if (question == m_question)
                answer();
        },
        Qt::QueuedConnection);
}

/// A child that still runs is killed here, and what it had to say is lost with it.
void Prober::cancel()
{
    ++m_question;
    m_isRunning = false;
    if (m_child && m_child->isRunning())
        m_child.reset();
}

bool Prober::isRunning() const
{
    return m_isRunning;
}

void Prober::askOn()
{
    if (!m_child) {
        m_child = std::make_unique<Child>();
        connect(m_child.get(), &Child::finished, this, &Prober::readAnswer);
    }
    switch (m_steps.first()) {
    case Step::Streams:
        m_child->start(probeCommand(m_tools, m_file));
        break;
    case Step::Length:
        m_child->start(lengthCommand(m_tools, *m_result.media));
        break;
    case Step::Hdr:
        m_child->start(hdrCommand(m_tools, *m_result.media));
        break;
    }
}

/// The first answer says what else is to be asked. What the others cannot tell stays unknown.
void Prober::readAnswer(const ChildResult& result)
{
    const Step step = m_steps.takeFirst();
    if (step == Step::Streams) {
        if (result.isGood())
            m_result = readProbe(result.output, m_file);
        else
            m_result.error = asMessage(result, probeCommand(m_tools, m_file), m_file);
        if (m_result.media) {
            const MediaInfo& media = *m_result.media;
            const MediaStream* const picture = media.picture();
            if (media.seconds <= 0 && hasLength(media))
                m_steps.append(Step::Length);
            if (picture && picture->isHdr)
                m_steps.append(Step::Hdr);
        }
    } else if (step == Step::Length && result.isGood()) {
        m_result.media->seconds = readLength(result.output, m_result.media->start);
    } else if (step == Step::Hdr && result.isGood()) {
        const int index = m_result.media->picture()->track.index;
        for (MediaStream& stream : m_result.media->streams) {
            if (stream.track.index == index)
                stream.hdr = readHdr(result.output);
        }
    }
    if (m_steps.isEmpty())
        answer();
    else
        askOn();
}

void Prober::answer()
{
    m_isRunning = false;
    const ReadMedia result = m_result;
    Q_EMIT finished(result);
}

ReadMedia probe(const Tools& tools, const QString& file)
{
    Prober prober(tools);
    ReadMedia result;
    QEventLoop loop;
    QObject::connect(&prober, &Prober::finished, &loop, [&](const ReadMedia& r) {
        result = r;
        loop.quit();
    });
    prober.probe(file);
    loop.exec();
    return result;
}

} // namespace zokit
