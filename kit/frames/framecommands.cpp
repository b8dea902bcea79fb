// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "framecommands_p.h"

#include <algorithm>
#include <cmath>

#include <QList>

#include <zokit/subtitlescript.h>

#include "argumentnumber_p.h"
#include "pixelformat_p.h"
#include "subtitleinput_p.h"

namespace zokit {

namespace {

/// A time that was typed has three digits behind the point: the frame that begins within the last one is meant.
constexpr double halfMillisecond = 0.0005;

QString word(const char* text)
{
    return QString::fromLatin1(text);
}

/// Begun at a hundredth of a second, the times of frames are cut off where those of a conversion are.
double begunAt(double seconds)
{
    return std::max(std::floor(seconds * 100) / 100, 0.0);
}

/// Of such files a decoder that begins in the middle gives nothing before the next key frame.
bool findsNoKeyFrames(const MediaInfo& media)
{
    return media.mayChangeSize();
}

double frameSeconds(const MediaStream& picture)
{
    constexpr double usual = 0.04;
    const double rate = picture.averageRate.value() > 0 ? picture.averageRate.value() : picture.frameRate.value();
    return rate > 0 ? 1 / rate : usual;
}

bool isMapped(const FrameQuestion& question)
{
    return question.media.picture()->isHdr
           && question.settings.output.value(word("hdr")).toString() == QLatin1String("map");
}

const QString exactly = QStringLiteral("flags=accurate_rnd+full_chroma_int+full_chroma_inp");

/// RGB for the screen, by the scaler with \a options. All of it is said, since a frame may have lost its tags.
QString screenFilter(const FrameQuestion& question, const QString& options = exactly)
{
    const MediaStream& picture = *question.media.picture();
    const bool isSource = question.kind == FrameKind::Before;
    const QString format = isSource || question.pixelFormat.isEmpty() ? picture.pixelFormat : question.pixelFormat;
    if (isRgb(format))
        return options == exactly ? word("format=rgb0") : QStringLiteral("scale=%1,format=rgb0").arg(options);
    const bool isConverted = isRgb(picture.pixelFormat) && !isSource;
    const bool mapped = isMapped(question) && !isSource;
    const QString range = isConverted || mapped ? word("tv") : picture.range;
    const QString matrix = mapped ? word("bt709") : picture.matrix;
    return QStringLiteral("scale=%1:in_color_matrix=%2:in_range=%3:out_range=pc,format=rgb0")
        .arg(options, matrix, range);
}

const QString output = QStringLiteral("[picture]");
const QString filterOption = QStringLiteral("-filter_complex");

/// \a graph with the times of what comes out told among the words, which the filter does of frames that have tags.
QString telling(const QString& graph, const QString& conversion)
{
    QString text = graph;
    text.chop(output.size());
    if (!conversion.isEmpty())
        text += QLatin1Char(',') + conversion;
    return text + QStringLiteral(",metadata=mode=add:key=frame:value=1,metadata=mode=print:file=pipe\\\\:2") + output;
}

/// More are not quicker on small machines, and each takes memory of its own.
constexpr int decoderThreads = 4;

Command commandOf(const Tools& tools, const QStringList& inputs, const QString& graph, const QStringList& outputs)
{
    constexpr qint64 gibibyte = qint64(1024) * 1024 * 1024;
    constexpr int patience = 300;
    Command command;
    command.program = tools.ffmpeg;
    command.arguments << word("-hide_banner") << word("-nostdin") << word("-v") << word("error") << word("-threads")
                      << QString::number(decoderThreads) << inputs << filterOption << graph << word("-map") << output
                      << word("-fps_mode") << word("passthrough") << outputs;
    command.memory = 2 * gibibyte;
    command.seconds = patience;
    command.largestOutput = gibibyte;
    return command;
}

QStringList rawOutput(const FrameWindow& window)
{
    QStringList options;
    if (window.to <= 0)
        options << word("-frames:v") << word("1");
    return options << word("-f") << word("rawvideo") << word("pipe:1");
}

QStringList soughtInput(const FrameWindow& window, const MediaInfo& media)
{
    QStringList options;
    if (window.from > 0)
        options << word("-ss") << argumentNumber(window.from);
    else if (media.mayChangeSize())
        // Without the sound ffmpeg would count from where the picture begins, but not when its times are moved.
        options << word("-itsoffset") << word("0.000001");
    return options + guardedInput(media.file);
}

/// The further inputs, and what the graph has to know of them. \a from is where the picture's times begin.
QStringList helperInputs(const FrameQuestion& question, const FrameFiles& files, double from, GraphParts& parts)
{
    QStringList inputs;
    int count = 1;
    parts.from = from;
    if (question.kind == FrameKind::Before)
        return inputs;
    if (question.kind == FrameKind::After && !files.watermark.isEmpty()) {
        inputs << guardedInput(files.watermark);
        parts.watermarkInput = count++;
    }
    parts.subtitleScript = files.subtitleScript;
    parts.subtitleInColour = files.subtitleInColour;
    parts.subtitleFonts = files.subtitleFonts;
    const SubtitlePlan plan = subtitlePlan(question.settings, question.media);
    if (plan.use != SubtitleUse::BurnBitmap)
        return inputs;
    parts.subtitleInput = count;
    parts.subtitleStream = std::max(plan.stream, 0);
    return inputs + subtitlePicturesInput(plan, question.media, from, files.subtitleStart);
}

} // namespace

FrameWindow nearWindow(const MediaInfo& media, double seconds, int framesBefore)
{
    constexpr double keyFrameDistance = 10;
    FrameWindow window;
    window.to = seconds + halfMillisecond;
    window.first = begunAt(seconds - (framesBefore + 1) * frameSeconds(*media.picture()));
    window.from = findsNoKeyFrames(media) ? begunAt(window.first - keyFrameDistance) : window.first;
    return window;
}

FrameWindow wideWindow(double seconds, int attempt)
{
    constexpr double steps[] = {1, 10, 60};
    FrameWindow window;
    window.to = seconds + halfMillisecond;
    if (attempt < int(std::size(steps)))
        window.from = begunAt(seconds - steps[attempt]);
    window.first = window.from;
    return window;
}

FrameWindow windowAround(const FrameWindow& found, double seconds)
{
    return {found.from, std::max(seconds - halfMillisecond, found.from), found.to};
}

PictureGraph questionGraph(const FrameQuestion& question, GraphParts parts)
{
    if (question.kind == FrameKind::Before) {
        PictureGraph graph = sourceGraph(question.settings, question.media, parts);
        if (parts.rawInput)
            graph.text = QStringLiteral("[0:v]null[picture]");
        return graph;
    }
    parts.pixelFormat = question.pixelFormat;
    if (question.kind == FrameKind::After)
        return pictureGraph(question.settings, question.media, parts);
    Settings whole = question.settings;
    if (TypeSettings* crop = whole.find(word("Crop")))
        crop->selected = false;
    whole.output.remove(word("size"));
    return pictureGraph(whole, question.media, parts);
}

Command frameCommand(const Tools& tools, const FrameQuestion& question, const FrameWindow& window,
                     const FrameFiles& files)
{
    GraphParts parts;
    const QStringList inputs = soughtInput(window, question.media);
    const QStringList helpers = helperInputs(question, files, window.from, parts);
    parts.shownFrom = window.first;
    parts.shownTo = window.to;
    const QString graph = questionGraph(question, parts).text;
    return commandOf(tools, inputs + helpers, telling(graph, question.forScreen ? screenFilter(question) : QString()),
                     rawOutput(window));
}

Command sourceCommand(const Tools& tools, const FrameQuestion& question, const FrameWindow& window)
{
    FrameQuestion source = question;
    source.kind = FrameKind::Before;
    source.forScreen = false;
    return frameCommand(tools, source, window, FrameFiles());
}

Command locateCommand(const Tools& tools, const FrameQuestion& question, const FrameWindow& window)
{
    Command command = sourceCommand(tools, question, window);
    const auto end = command.arguments.lastIndexOf(word("-f"));
    command.arguments = command.arguments.mid(0, end) + QStringList{word("-f"), word("null"), word("-")};
    return command;
}

Command keptCommand(const Tools& tools, const FrameQuestion& question, const KeptFrame& kept, const FrameFiles& files)
{
    const MediaStream& picture = *question.media.picture();
    const Rational ticks = ticksOf(picture);
    GraphParts parts;
    parts.rawInput = true;
    const QStringList helpers = helperInputs(question, files, kept.seconds, parts);
    // Its time is counted as that of the clip is, so that a subtitle that begins with it is there.
    const QStringList inputs{word("-f"),         word("rawvideo"),
                             word("-pix_fmt"),   picture.pixelFormat,
                             word("-s"),         sizeText(kept.size),
                             word("-framerate"), QStringLiteral("%1/%2").arg(ticks.denominator).arg(ticks.numerator),
                             word("-i"),         QStringLiteral("file:") + kept.file};
    const QString graph = questionGraph(question, parts).text;
    return commandOf(tools, inputs + helpers, telling(graph, question.forScreen ? screenFilter(question) : QString()),
                     rawOutput(FrameWindow()));
}

Command readingItsGraph(const Command& command)
{
    Command reading = command;
    const auto at = reading.arguments.indexOf(filterOption);
    reading.input = reading.arguments.at(at + 1).toUtf8();
    reading.arguments[at] = word("-filter_complex_script");
    reading.arguments[at + 1] = word("pipe:0");
    return reading;
}

Command runningCommand(const Tools& tools, const FrameQuestion& question, double from, const QSize& size, int rate)
{
    GraphParts parts;
    parts.from = from;
    QString graph = questionGraph(question, parts).text;
    graph.chop(output.size());
    const QString quickly = QStringLiteral("%1:%2:flags=fast_bilinear").arg(size.width()).arg(size.height());
    graph +=
        QStringLiteral(",fps=%1:start_time=0:round=up,%2%3").arg(rate).arg(screenFilter(question, quickly), output);
    Command command = commandOf(tools, soughtInput({from, from, 0}, question.media), graph,
                                {word("-f"), word("rawvideo"), word("pipe:1")});
    command.seconds = 0; // As long as somebody looks.
    return command;
}

Rational ticksOf(const MediaStream& picture)
{
    constexpr int microseconds = 1000000;
    Rational ticks = picture.timeBase;
    if (ticks.value() <= 0)
        ticks = {1, microseconds};
    if (picture.isInterlaced)
        ticks.denominator *= 2; // The filter counts fields.
    return ticks;
}

namespace {

const QByteArray ticksBegin = QByteArrayLiteral("frame:");

bool isOfTicks(const QByteArray& line)
{
    return line.startsWith(ticksBegin) || line.startsWith("frame=");
}

} // namespace

double secondsOf(qint64 ticks, const FrameWindow& window, const MediaInfo& media)
{
    const MediaStream& picture = *media.picture();
    const Rational unit = ticksOf(picture);
    if (picture.timeBase.value() <= 0)
        return window.from;
    const int fields = picture.isInterlaced ? 2 : 1;
    const double tick = picture.timeBase.value();
    const qint64 sought = std::llround((media.start + window.from) / tick) - std::llround(media.start / tick);
    return double(ticks + fields * sought) * unit.value();
}

QVector<qint64> toldTicks(const QByteArray& words)
{
    QVector<qint64> ticks;
    const QList<QByteArray> lines = words.split('\n');
    for (const QByteArray& line : lines) {
        const auto at = line.startsWith(ticksBegin) ? line.indexOf("pts:") : -1;
        if (at < 0)
            continue;
        bool isNumber = false;
        const qint64 told = line.mid(at + 4).split(' ').first().toLongLong(&isNumber);
        if (isNumber)
            ticks.append(told);
    }
    return ticks;
}

QByteArray withoutTicks(const QByteArray& words)
{
    QByteArray others;
    const QList<QByteArray> lines = words.split('\n');
    for (const QByteArray& line : lines) {
        if (!isOfTicks(line))
            others += line + '\n';
    }
    return others;
}

bool canBeKept(const FrameQuestion& question)
{
    // A palette is no part of a raw frame, and how HDR is mapped follows what stands beside the frame.
    return question.media.picture()->pixelFormat != QLatin1String("pal8") && !isMapped(question);
}

} // namespace zokit
