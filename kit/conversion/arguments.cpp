// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/conversion.h>

#include <algorithm>
#include <cmath>

#include <QFileInfo>
#include <QThread>

#include <zokit/graph.h>

#include "argumentnumber_p.h"
#include "codecs_p.h"
#include "pixelformat_p.h"
#include "subtitleinput_p.h"
#include "trackplan_p.h"

namespace zokit {

namespace {

constexpr qint64 gibibyte = qint64(1024) * 1024 * 1024;
constexpr qint64 usualMemory = 4 * gibibyte;

QString fileArgument(const QString& path)
{
    return QStringLiteral("file:") + path;
}

/// What each call begins with.
QStringList begun(const char* verbosity)
{
    return {QStringLiteral("-hide_banner"), QStringLiteral("-nostdin"), QStringLiteral("-v"), QLatin1String(verbosity),
            QStringLiteral("-y")};
}

QStringList partOptions(const ClipPart& part)
{
    if (!part.isTrimmed)
        return {};
    return {QStringLiteral("-ss"), argumentNumber(part.from), QStringLiteral("-t"), argumentNumber(part.seconds)};
}

/// These do not tell each packet when it is shown, and without that none can be copied into another container.
QStringList timeOptions(const MediaInfo& media)
{
    if (media.container != QLatin1String("mpeg") && media.container != QLatin1String("avi"))
        return {};
    return {QStringLiteral("-fflags"), QStringLiteral("+genpts")};
}

Command commandOf(const Tools& tools, const QStringList& arguments)
{
    Command command;
    command.program = tools.ffmpeg;
    command.arguments = arguments;
    command.memory = usualMemory;
    return command;
}

/// Address space of a conversion, generously: an encoder keeps some sixty frames, and each thread frames of its own.
qint64 conversionMemory(const MediaInfo& media, int threads)
{
    constexpr qint64 bytesAPixel = 512;
    constexpr qint64 threadBytesAPixel = 16;
    constexpr qint64 bytesAThread = gibibyte / 16; // What the allocator sets aside.
    const QSize size = media.picture() ? media.picture()->coded : QSize(0, 0);
    const qint64 pixels = qint64(size.width()) * size.height();
    return std::max(usualMemory, bytesAPixel * pixels) + threads * (bytesAThread + threadBytesAPixel * pixels);
}

/// How a player shows a track: flags by ffmpeg's names, with a plus between them.
QString dispositionOf(const MediaStream* stream, bool isDefault)
{
    QStringList flags;
    if (isDefault)
        flags.append(QStringLiteral("default"));
    if (stream) {
        for (auto it = stream->dispositions.cbegin(); it != stream->dispositions.cend(); ++it)
            if (it.value() && it.key() != QLatin1String("default"))
                flags.append(it.key());
    }
    return flags.isEmpty() ? QStringLiteral("0") : flags.join(QLatin1Char('+'));
}

char letterOf(TrackKind kind)
{
    switch (kind) {
    case TrackKind::Video:
        return 'v';
    case TrackKind::Audio:
        return 'a';
    case TrackKind::Subtitle:
        return 's';
    case TrackKind::Attachment:
        return 't';
    case TrackKind::Data:
        break;
    }
    return 'd';
}

/// What players are told about the pixels of an encoded picture.
QStringList colourTags(const MediaStream& picture, bool mapsHdr, const QString& pixelFormat)
{
    if (mapsHdr)
        return {QStringLiteral("-colorspace:v:0"),      QStringLiteral("bt709"),
                QStringLiteral("-color_primaries:v:0"), QStringLiteral("bt709"),
                QStringLiteral("-color_trc:v:0"),       QStringLiteral("bt709"),
                QStringLiteral("-color_range:v:0"),     QStringLiteral("tv")};
    QString space = picture.colorSpace;
    if (space.isEmpty() || space == QLatin1String("gbr"))
        space = picture.matrix == QLatin1String("bt601")    ? QStringLiteral("smpte170m")
                : picture.matrix == QLatin1String("bt2020") ? QStringLiteral("bt2020nc")
                                                            : picture.matrix;
    // YUV that is made of RGB is in limited range.
    const QString range = isRgb(picture.pixelFormat) && !isRgb(pixelFormat) ? QStringLiteral("tv") : picture.range;
    QStringList tags{QStringLiteral("-colorspace:v:0"), space, QStringLiteral("-color_range:v:0"), range};
    if (!picture.primaries.isEmpty())
        tags << QStringLiteral("-color_primaries:v:0") << picture.primaries;
    if (!picture.transfer.isEmpty())
        tags << QStringLiteral("-color_trc:v:0") << picture.transfer;
    return tags;
}

/// A rate that cameras and broadcasters use: of another one ffprobe has only found the average.
bool isUsual(const Rational& rate)
{
    constexpr qint64 parts = 12;    // 12.5 and 8.333 are usual, too.
    constexpr qint64 colour = 1001; // 24000/1001, 30000/1001: of television in colour.
    return rate.numerator * parts % rate.denominator == 0 || rate.numerator * colour % (rate.denominator * 1000) == 0;
}

/// The encoder would count in frames of the average rate, and drop those that come faster.
QStringList unevenTimes(const MediaStream& picture)
{
    const bool isEven = !picture.hasVariableRate && isUsual(picture.averageRate);
    if (isEven || picture.timeBase.value() <= 0)
        return {};
    return {QStringLiteral("-enc_time_base:v:0"),
            QStringLiteral("%1/%2").arg(picture.timeBase.numerator).arg(picture.timeBase.denominator)};
}

/// Behind frames that are decoded in another order than they are shown, mp4 loses how long the last ones stay.
bool hasRareFrames(const MediaStream& picture)
{
    constexpr double part = 0.75;
    return picture.averageRate.value() < part * picture.frameRate.value();
}

/// x265 takes what a screen has to know of HDR as options of its own; its banner is no error.
QStringList hevcOptions(const MediaStream& picture, bool mapsHdr)
{
    QStringList options{QStringLiteral("log-level=error")};
    if (picture.isHdr && !mapsHdr) {
        options << QStringLiteral("hdr-opt=1") << QStringLiteral("repeat-headers=1");
        for (auto it = picture.hdr.cbegin(); it != picture.hdr.cend(); ++it)
            options << it.key() + QLatin1Char('=') + it.value();
    }
    return {QStringLiteral("-x265-params:v:0"), options.join(QLatin1Char(':'))};
}

/// The arguments of a conversion while they are collected.
class Arguments {
public:
    Arguments(const Job& job, const MediaInfo& media, const QMap<QString, MediaInfo>& files, const TracksPlan& plan,
              const HelperFiles& helpers)
        : m_job(job)
        , m_media(media)
        , m_files(files)
        , m_plan(plan)
        , m_helpers(helpers)
        , m_part(clipPart(job.settings, media))
        , m_speed(speedFactor(job.settings))
    {
        // Of such files a decoder that begins in the middle gives nothing before the next key frame.
        constexpr double keyFrameDistance = 10;
        if (m_part.isTrimmed && media.mayChangeSize() && !plan.videoCodec.isEmpty())
            m_runUp = std::min(m_part.from, keyFrameDistance);
        m_inputs << (m_runUp > 0 ? runUpOptions() : partOptions(m_part)) << timeOptions(media)
                 << guardedInput(media.file);
    }

    QStringList made(const QString& target)
    {
        addPicture();
        for (int i = 0; i < m_plan.tracks.size(); ++i)
            addTrack(i);
        addChapters();
        QStringList all = begun("error");
        all << QStringLiteral("-nostats") << QStringLiteral("-progress") << QStringLiteral("pipe:1")
            << QStringLiteral("-stats_period") << QStringLiteral("0.5");
        if (m_job.threads > 0)
            all << QStringLiteral("-filter_threads") << QString::number(m_job.threads)
                << QStringLiteral("-filter_complex_threads") << QString::number(m_job.threads);
        all << m_inputs;
        if (!m_graph.isEmpty())
            all << QStringLiteral("-filter_complex") << m_graph;
        all << m_outputs << QStringLiteral("-map_metadata") << QStringLiteral("0") << m_chapters;
        if (m_job.threads > 0)
            all << QStringLiteral("-threads") << QString::number(m_job.threads);
        if (m_hasSoundFile && m_part.result > 0)
            all << QStringLiteral("-t") << argumentNumber(m_part.result);
        else if (m_loops)
            all << QStringLiteral("-shortest");
        if (m_plan.container == QLatin1String("mp4") || m_plan.container == QLatin1String("mov"))
            all << QStringLiteral("-movflags") << QStringLiteral("+faststart");
        all << QStringLiteral("-max_muxing_queue_size") << QStringLiteral("9999");
        return all << QStringLiteral("-f") << muxer(m_plan.container) << fileArgument(target);
    }

private:
    int addInput(const QStringList& options, const QString& file)
    {
        m_inputs << options << guardedInput(file);
        return m_inputCount++;
    }

    void addPicture()
    {
        if (m_plan.videoCodec.isEmpty())
            return;
        GraphParts parts;
        parts.pixelFormat = m_plan.pixelFormat;
        parts.from = m_part.from - m_runUp;
        parts.shownFrom = m_part.from;
        parts.countsFromShown = true;
        if (m_runUp > 0) // ffmpeg counts how long it reads from the first frame that it gets.
            parts.shownTo = m_part.from + m_part.seconds;
        parts.subtitleScript = m_helpers.subtitleScript;
        parts.subtitleInColour = m_helpers.subtitleInColour;
        parts.subtitleFonts = m_helpers.subtitleFonts;
        if (!m_helpers.watermark.isEmpty())
            parts.watermarkInput = addInput({}, m_helpers.watermark);
        if (m_plan.subtitle.use == SubtitleUse::BurnBitmap) {
            const bool isInReach = m_plan.subtitle.stream >= 0 && m_part.from <= 0;
            parts.subtitleInput = isInReach ? 0 : m_inputCount++;
            parts.subtitleStream = std::max(m_plan.subtitle.stream, 0);
            if (!isInReach)
                m_inputs << subtitlePicturesInput(m_plan.subtitle, m_media, parts.from, startOf(m_plan.subtitle.file));
        }
        Settings settings = m_job.settings;
        if (m_plan.mapsHdr)
            settings.output.insert(QStringLiteral("hdr"), QStringLiteral("map"));
        m_graph = pictureGraph(settings, m_media, parts).text;
        m_rate = evenRate(*m_media.picture());
        if (!m_rate.isEmpty())
            m_graph += QStringLiteral(";[picture]setpts=PTS+0.4/(%1*TB),fps=%1[even]").arg(m_rate);
    }

    /// How many frames a second have to come out, at even times; empty: they come out as they are. A filter takes those
    /// that are shown at these times or a tenth of a frame later, since containers round. Those that ffmpeg leaves out
    /// by itself it leaves out late, and shows older ones from then on.
    QString evenRate(const MediaStream& picture) const
    {
        const QVariant rate = m_job.settings.output.value(QStringLiteral("fps"));
        if (rate.isValid())
            return QString::number(rate.toDouble(), 'g', 10);
        const Rational& own = picture.averageRate;
        const bool isFaster = m_speed > 1 && own.value() > 0 && unevenTimes(picture).isEmpty();
        return isFaster ? QStringLiteral("%1/%2").arg(own.numerator).arg(own.denominator) : QString();
    }

    double startOf(const QString& file) const { return m_files.value(file).start; }

    QString next(char letter) { return QStringLiteral(":%1:%2").arg(QLatin1Char(letter)).arg(m_counts[letter]++); }

    void addTrack(int place)
    {
        const TrackPlan& track = m_plan.tracks.at(place);
        if (track.fate == TrackFate::LeftOut || track.fate == TrackFate::BurnedIn)
            return;
        const MediaStream* stream = m_media.stream(track.track.index);
        if (!track.file.isEmpty()) {
            const auto found = m_files.constFind(track.file);
            stream = found == m_files.cend() ? nullptr : found->stream(track.track.index);
        }
        if (track.fate == TrackFate::Attached) {
            addCover(track, stream);
            return;
        }
        const char letter = letterOf(track.track.kind);
        const bool isEncodedPicture = letter == 'v' && track.fate == TrackFate::Encoded;
        const int input = isEncodedPicture ? 0 : inputOf(place, letter);
        const bool first = m_counts[letter] == 0;
        const QString which = next(letter);
        m_outputs << QStringLiteral("-map")
                  << (isEncodedPicture
                          ? (m_rate.isEmpty() ? QStringLiteral("[picture]") : QStringLiteral("[even]"))
                          : QStringLiteral("%1:%2").arg(input).arg(track.isScripted ? 0 : track.track.index));
        if (isEncodedPicture)
            encodePicture(*stream);
        else if (letter == 'a' && track.fate == TrackFate::Encoded)
            encodeSound(track, *stream, place);
        else if (track.fate == TrackFate::Converted && !track.isRestyled)
            m_outputs << QStringLiteral("-c") + which << encoderOf(track.codec);
        else
            m_outputs << QStringLiteral("-c") + which << QStringLiteral("copy") << hevcName(track, which);
        if (letter == 'd' || letter == 't')
            return;
        if (letter == 's')
            m_outputs << lineTimes(track, which);
        if (track.isScripted) // Which does not say it.
            m_outputs << namesOf(track.track, which);
        const bool anySelected = isAnySelected(track.track.kind);
        const bool isDefault = anySelected ? track.isSelected && first : track.track.isDefault;
        m_outputs << QStringLiteral("-disposition") + which << dispositionOf(stream, isDefault);
    }

    /// What a track is called.
    static QStringList namesOf(const Track& track, const QString& which)
    {
        QStringList names;
        const QString option = QStringLiteral("-metadata:s") + which;
        if (!track.language.isEmpty())
            names << option << QStringLiteral("language=") + track.language;
        if (!track.title.isEmpty())
            names << option << QStringLiteral("title=") + track.title;
        return names;
    }

    /// Under the other name that there is, players of one make find no picture.
    QStringList hevcName(const TrackPlan& track, const QString& which) const
    {
        const auto hasNames = [](const QString& container) {
            return container == QLatin1String("mp4") || container == QLatin1String("mov");
        };
        if (track.codec != QLatin1String("hevc") || !hasNames(m_plan.container) || hasNames(m_media.container))
            return {};
        return {QStringLiteral("-tag") + which, QStringLiteral("hvc1")};
    }

    bool isAnySelected(TrackKind kind) const
    {
        for (const TrackPlan& track : m_plan.tracks)
            if (track.track.kind == kind && track.isSelected && kind != TrackKind::Video
                && track.fate != TrackFate::BurnedIn)
                return true;
        return false;
    }

    int inputOf(int place, char letter)
    {
        const TrackPlan& track = m_plan.tracks.at(place);
        if (track.isScripted)
            return addInput({}, m_helpers.scripts.value(place));
        const QString& file = track.file;
        if (!file.isEmpty()) {
            QStringList options;
            if (track.loops) {
                options << QStringLiteral("-stream_loop") << QStringLiteral("-1");
                m_loops = true;
            } else if (isBitmapSubtitleFile(file)) {
                options = QStringList{QStringLiteral("-itsoffset"), argumentNumber(startOf(file) - m_part.from)};
                if (m_part.isTrimmed)
                    options << QStringLiteral("-t") << argumentNumber(m_part.seconds);
            } else {
                options = partOptions(m_part);
                if (letter == 's')
                    options << letterOptions(file);
            }
            if (letter == 'a')
                m_hasSoundFile = true;
            else
                options << scaleOptions();
            return addInput(options, file);
        }
        if (letter != 's' || m_speed == 1)
            return inputOfOthers();
        // No filter changes the times of subtitles; reading the clip a second time at another speed does.
        if (m_slowInput < 0)
            m_slowInput =
                addInput(scaleOptions() + partOptions({m_part.from, m_part.result, 0, m_part.isTrimmed}), m_media.file);
        return m_slowInput;
    }

    QStringList runUpOptions() const
    {
        const double begin = m_part.from - m_runUp;
        // Without the sound ffmpeg would count from where the picture begins, but not when its times are moved.
        QStringList options = begin > 0 ? QStringList{QStringLiteral("-ss"), argumentNumber(begin)}
                                        : QStringList{QStringLiteral("-itsoffset"), QStringLiteral("0.000001")};
        return options << QStringLiteral("-t") << argumentNumber(m_part.seconds + m_runUp);
    }

    /// The clip where its part begins, for what needs no run-up.
    int inputOfOthers()
    {
        if (m_runUp > 0 && m_others == 0)
            m_others = addInput(partOptions(m_part) + timeOptions(m_media), m_media.file);
        return m_others;
    }

    /// No filter reaches subtitles. Lines from before the part would begin before its first frame, which all else would
    /// wait for; and a line that is shown at another time is still as long as it was. A script has its times already.
    QStringList lineTimes(const TrackPlan& track, const QString& which) const
    {
        const bool isAtKeyFrame = m_media.picture() && m_plan.videoCodec.isEmpty();
        const QString option = QStringLiteral("-bsf") + which;
        const QString rate = argumentNumber(1 / m_speed);
        if (track.fate == TrackFate::Converted)
            return {};
        if (m_part.isTrimmed && !isAtKeyFrame)
            return {option, QStringLiteral("noise=drop='lt(pts+d*%1,0)*gt(d,0)',setts=ts='max(TS,0)':"
                                           "duration='max(min(PTS+DURATION*%1,%2/TB)-max(PTS,0),0)'")
                                .arg(rate, argumentNumber(m_part.result))};
        return m_speed == 1 ? QStringList()
                            : QStringList{option, QStringLiteral("setts=duration=DURATION*%1").arg(rate)};
    }

    QStringList scaleOptions() const
    {
        return m_speed == 1 ? QStringList() : QStringList{QStringLiteral("-itsscale"), argumentNumber(1 / m_speed)};
    }

    void encodePicture(const MediaStream& stream)
    {
        const Values& output = m_job.settings.output;
        m_outputs << videoEncoderOptions(output, m_plan.videoCodec, m_plan.pixelFormat, m_plan.container);
        if (m_plan.videoCodec == QLatin1String("hevc"))
            m_outputs << hevcOptions(stream, m_plan.mapsHdr);
        m_outputs << colourTags(stream, m_plan.mapsHdr, m_plan.pixelFormat);
        m_outputs << QStringLiteral("-fps_mode:v:0") << QStringLiteral("vfr");
        if (m_rate.isEmpty())
            m_outputs << unevenTimes(stream);
        const bool isMp4 = m_plan.container == QLatin1String("mp4") || m_plan.container == QLatin1String("mov");
        if (isMp4 && hasRareFrames(stream))
            m_outputs << QStringLiteral("-bf:v:0") << QStringLiteral("0");
        m_outputs << namesOf(stream.track, QStringLiteral(":v:0")); // A graph loses them.
    }

    void encodeSound(const TrackPlan& track, const MediaStream& stream, int place)
    {
        const int position = m_counts['a'] - 1;
        SoundParts parts;
        parts.seconds = m_part.result;
        parts.gain = m_helpers.gains.value(place);
        QStringList filters{soundGraph(soundSettings(m_job.settings, track.hasEffects), stream, parts),
                            audioEncoderFilter(track.codec, stream)};
        filters.removeAll(QString());
        if (!filters.isEmpty())
            m_outputs << QStringLiteral("-filter:a:%1").arg(position) << filters.join(QLatin1Char(','));
        m_outputs << audioEncoderOptions(m_job.settings.output, track.codec, stream, position);
    }

    void addCover(const TrackPlan& track, const MediaStream* stream)
    {
        const bool isPng = track.track.codec == QLatin1String("png");
        const QString usualName = isPng ? QStringLiteral("cover.png") : QStringLiteral("cover.jpg");
        const QString name = stream && !stream->fileName.isEmpty() ? stream->fileName : usualName;
        // What is attached comes behind all that is copied.
        const auto isCopied = [](const TrackPlan& plan) {
            return plan.track.kind == TrackKind::Attachment && plan.fate == TrackFate::Copied;
        };
        const auto copied = std::count_if(m_plan.tracks.cbegin(), m_plan.tracks.cend(), isCopied);
        const QString which = QStringLiteral(":t:%1").arg(copied + m_coverCount++);
        m_outputs << QStringLiteral("-attach") << m_helpers.covers.value(track.track.index)
                  << QStringLiteral("-metadata:s") + which
                  << (isPng ? QStringLiteral("mimetype=image/png") : QStringLiteral("mimetype=image/jpeg"))
                  << QStringLiteral("-metadata:s") + which << QStringLiteral("filename=") + name;
    }

    void addChapters()
    {
        int input = 0;
        if (!m_helpers.chapters.isEmpty()) {
            m_inputs << QStringLiteral("-f") << QStringLiteral("ffmetadata") << QStringLiteral("-i")
                     << fileArgument(m_helpers.chapters);
            input = m_inputCount++;
        }
        m_chapters << QStringLiteral("-map_chapters") << QString::number(input);
    }

    const Job& m_job;
    const MediaInfo& m_media;
    const QMap<QString, MediaInfo>& m_files;
    const TracksPlan& m_plan;
    const HelperFiles& m_helpers;
    ClipPart m_part;
    double m_speed;
    QStringList m_inputs;
    QString m_graph;
    QString m_rate; ///< evenRate() of what is encoded.
    QStringList m_outputs;
    QStringList m_chapters;
    QMap<char, int> m_counts;
    int m_inputCount = 1;
    double m_runUp = 0; ///< Seconds that the picture is decoded before its part begins.
    int m_others = 0;   ///< Input of all but the picture.
    int m_slowInput = -1;
    int m_coverCount = 0;
    bool m_hasSoundFile = false;
    bool m_loops = false;
};

} // namespace

Command extractCommand(const Tools& tools, const MediaInfo& media, const SubtitlePlan& plan, const QString& fonts,
                       double begin, double end)
{
    const bool isFile = plan.stream < 0;
    QStringList arguments = begun("error");
    if (isFile)
        arguments << letterOptions(plan.file) << guardedInput(plan.file);
    if (!isFile || !fonts.isEmpty()) {
        for (const MediaStream& stream : media.streams) {
            if (!fonts.isEmpty() && isFont(stream))
                arguments << QStringLiteral("-dump_attachment:%1").arg(stream.track.index)
                          << fileArgument(fonts + QStringLiteral("/font%1").arg(stream.track.index));
        }
        if (begin > 0)
            arguments << QStringLiteral("-ss") << argumentNumber(begin);
        if (end > 0)
            arguments << QStringLiteral("-t") << argumentNumber(end - begin);
        arguments << guardedInput(media.file);
    }
    arguments << QStringLiteral("-map") << (isFile ? QStringLiteral("0:s:0") : QStringLiteral("0:%1").arg(plan.stream))
              << QStringLiteral("-c:s") << QStringLiteral("ass") << QStringLiteral("-f") << QStringLiteral("ass")
              << QStringLiteral("pipe:1");
    return commandOf(tools, arguments);
}

Command coverCommand(const Tools& tools, const MediaInfo& media, int stream, const QString& file)
{
    QStringList arguments = begun("error");
    arguments << guardedInput(media.file) << QStringLiteral("-map") << QStringLiteral("0:%1").arg(stream)
              << QStringLiteral("-c") << QStringLiteral("copy") << QStringLiteral("-frames:v") << QStringLiteral("1")
              << QStringLiteral("-f") << QStringLiteral("image2") << QStringLiteral("-update") << QStringLiteral("1")
              << fileArgument(file);
    return commandOf(tools, arguments);
}

Command measureCommand(const Tools& tools, const Job& job, const MediaInfo& media,
                       const QMap<QString, MediaInfo>& files, const TrackPlan& track)
{
    const MediaInfo& source = track.file.isEmpty() ? media : *files.constFind(track.file);
    const ClipPart part = clipPart(job.settings, media);
    SoundParts parts;
    parts.seconds = part.result;
    parts.measuring = true;
    QStringList arguments = begun("info");
    arguments << QStringLiteral("-nostats");
    if (!track.loops)
        arguments << partOptions(part);
    arguments << guardedInput(source.file) << QStringLiteral("-map") << QStringLiteral("0:%1").arg(track.track.index)
              << QStringLiteral("-filter:a:0") << soundGraph(job.settings, *source.stream(track.track.index), parts)
              << QStringLiteral("-progress") << QStringLiteral("pipe:1") << QStringLiteral("-f")
              << QStringLiteral("null") << QStringLiteral("-");
    return commandOf(tools, arguments);
}

Command convertCommand(const Tools& tools, const Job& job, const MediaInfo& media,
                       const QMap<QString, MediaInfo>& files, const TracksPlan& plan, const HelperFiles& helpers,
                       const QString& target)
{
    Command command = commandOf(tools, Arguments(job, media, files, plan, helpers).made(target));
    command.stallSeconds = job.stallSeconds;
    command.memory = conversionMemory(media, job.threads > 0 ? job.threads : QThread::idealThreadCount());
    return command;
}

QByteArray chaptersText(const Settings& settings, const MediaInfo& media)
{
    const ClipPart part = clipPart(settings, media);
    const double speed = speedFactor(settings);
    const double end = part.seconds > 0 ? part.from + part.seconds : HUGE_VAL;
    QByteArray text = ";FFMETADATA1\n";
    for (const Chapter& chapter : media.chapters) {
        const double from = std::max(chapter.from, part.from);
        const double to = std::min(chapter.to, end);
        if (to <= from)
            continue;
        text +=
            "[CHAPTER]\nTIMEBASE=1/1000\nSTART=" + QByteArray::number(std::llround((from - part.from) / speed * 1000))
            + "\nEND=" + QByteArray::number(std::llround((to - part.from) / speed * 1000)) + '\n';
        for (auto it = chapter.tags.cbegin(); it != chapter.tags.cend(); ++it) {
            QByteArray value = it.value().toUtf8();
            for (const char* special : {"\\", "=", ";", "#", "\n"})
                value.replace(special, QByteArray("\\") + special);
            text += it.key().toUtf8() + '=' + value + '\n';
        }
    }
    return text;
}

} // namespace zokit
