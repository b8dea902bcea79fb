// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/conversion.h>

#include <algorithm>
#include <cmath>

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <QTimer>

#include <zokit/graph.h>
#include <zokit/placement.h>
#include <zokit/progress.h>
#include <zokit/settingsfile.h>

#include "assscript_p.h"
#include "childreason_p.h"
#include "codecs_p.h"
#include "damage_p.h"
#include "keyframe_p.h"
#include "partfile_p.h"
#include "subtitleinput_p.h"
#include "trackplan_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

/// One child of the preparation: what it is for, and what it makes.
struct Step {
    enum What { KeyFrame, Extract, Cover, Measure } what = KeyFrame;
    int number = 0; ///< Stream of a cover, place of a track to be measured or written anew; burnedIn: none.
    Command command;
};

constexpr int burnedIn = -1;

/// Where the lines of a track are read from that is cut to \a part: what is shown for longer than this is rare.
double begunBefore(const ClipPart& part)
{
    constexpr double longest = 120;
    return std::max(part.from - longest, 0.0);
}

FailureKind kindOf(const ChildResult& result)
{
    if (result.end == ChildEnd::NotStarted)
        return FailureKind::Setup;
    if (result.end == ChildEnd::Killed || result.end == ChildEnd::Stalled)
        return FailureKind::Temporary;
    for (const char* words : {"No space left on device", "Cannot allocate memory", "Disk quota exceeded"})
        if (result.words.contains(words))
            return FailureKind::Temporary;
    for (const char* words : {"Unknown encoder", "No such filter"})
        if (result.words.contains(words))
            return FailureKind::Setup;
    return FailureKind::Lasting;
}

/// ffmpeg 5.1 ends well when it could not write the last bytes, and only says so.
bool isWritten(const ChildResult& result)
{
    const QList<QByteArray> lines = result.words.split('\n');
    return std::none_of(lines.cbegin(), lines.cend(), [](const QByteArray& line) {
        return line.startsWith("Error writing trailer of ") || line.startsWith("Error closing file ");
    });
}

/// Of a file of which nothing was found out.
FailureKind kindOf(const Message& error, FailureKind ofFile)
{
    switch (error.code()) {
    case Code::ChildKilled:
    case Code::ProbeTooLong:
        return FailureKind::Temporary;
    case Code::ChildNotStarted:
        return FailureKind::Setup;
    default:
        return ofFile;
    }
}

bool isSameFile(const QString& left, const QString& right)
{
    const QString one = QFileInfo(left).canonicalFilePath();
    return !one.isEmpty() && one == QFileInfo(right).canonicalFilePath();
}

} // namespace

class Conversion::Private : public QObject {
public:
    Private(const Tools& tools, Conversion* owner) : m_tools(tools), m_owner(owner), m_prober(tools), m_child(this)
    {
        connect(&m_prober, &Prober::finished, this, &Private::probed);
        connect(&m_child, &Child::finished, this, &Private::ended);
        connect(&m_child, &Child::outputReady, this, &Private::readProgress);
    }

    void start(const Job& job, const QString& folder);
    void cancel();
    void pause();
    void resume();
    void finish(Outcome outcome, FailureKind kind = FailureKind::None, const Message& reason = {});

    Tools m_tools;
    Conversion* m_owner;
    Prober m_prober;
    Child m_child;
    Job m_job;
    MediaInfo m_media;
    QMap<QString, MediaInfo> m_files;
    TracksPlan m_plan;
    QVector<Command> m_commands;
    bool m_isRunning = false;

    enum class Phase { Clip, Files, Prepare, Convert, Check };

    void fail(const Message& reason, FailureKind kind = FailureKind::Lasting) { finish(Outcome::Failed, kind, reason); }
    void warn(const Message& warning)
    {
        if (m_result.warnings.contains(warning))
            return;
        m_result.warnings.append(warning);
        Q_EMIT m_owner->warned(warning);
    }
    Message checkOutput() const;
    void refuse(const Message& wrong, FailureKind kind);
    void begin();
    void probed(const ReadMedia& read);
    void takeClip(const MediaInfo& media);
    void probeNextFile();
    void settle();
    QString endangered() const;
    bool makeHelpers();
    bool writeHelper(const QString& name, const QByteArray& bytes, QString* path);
    void nextStep();
    void startChild(bool collected);
    void convert();
    void ended(const ChildResult& result);
    void prepareTrack(int place);
    Step scriptStep(int place) const;
    bool takeSubtitle(int place, const ChildResult& result);
    void took(const Step& step, const ChildResult& result);
    void readProgress(const QByteArray& piece);
    void converted(const ChildResult& result);
    void checked(const ReadMedia& read);

    Phase m_phase = Phase::Clip;
    QStringList m_waitingFiles;
    QString m_folder; ///< Where helper files lie.
    HelperFolder m_ownFolder;
    bool m_preparesOnly = false;
    HelperFiles m_helpers;
    QVector<Step> m_steps;
    PartFile m_part;
    Command m_command;
    ProgressReader m_progress;
    double m_fraction = 0;
    bool m_hasDamage = false;
    bool m_isPaused = false; ///< What begins now is stopped as soon as it is there.
    ConversionResult m_result;
};

void Conversion::Private::start(const Job& job, const QString& folder)
{
    m_job = job;
    m_preparesOnly = !folder.isEmpty();
    m_folder = folder;
    m_isRunning = true;
    QTimer::singleShot(0, this, [this] {
        if (m_isRunning)
            begin();
    });
}

Message Conversion::Private::checkOutput() const
{
    if (m_preparesOnly)
        return {};
    if (isSameFile(m_job.input, m_job.output))
        return Message(Code::OutputIsInput, {m_job.output});
    const QFileInfo output(m_job.output);
    if (output.isDir())
        return Message(Code::OutputIsFolder, {m_job.output});
    if (output.exists() && !output.isFile())
        return Message(Code::OutputNotAFile, {m_job.output}); // A device would be replaced, too.
    if (!m_job.replaces && (output.exists() || output.isSymLink()))
        return Message(Code::OutputExists, {m_job.output});
    return {};
}

void Conversion::Private::begin()
{
    if (!m_tools.error.isEmpty())
        return fail(m_tools.error, FailureKind::Setup);
    if (const Message wrong = checkOutput(); !wrong.isEmpty())
        return refuse(wrong, FailureKind::Lasting);
    m_phase = Phase::Clip;
    if (m_job.media)
        takeClip(*m_job.media);
    else
        m_prober.probe(m_job.input);
}

/// The result cannot be written, or is there already: then another run may have made it.
void Conversion::Private::refuse(const Message& wrong, FailureKind kind)
{
    if (wrong.code() != Code::OutputExists)
        fail(wrong, kind);
    else if (m_job.skips)
        finish(Outcome::Skipped, FailureKind::None, wrong);
    else
        fail(wrong);
}

void Conversion::Private::takeClip(const MediaInfo& media)
{
    m_media = media;
    if (m_job.makeSettings) {
        const ReadSettings made = m_job.makeSettings(m_media);
        for (const Message& warning : made.warnings)
            warn(warning);
        if (!made.settings)
            return fail(made.error);
        m_job.settings = *made.settings;
    }
    const MediaStream* picture = m_media.picture();
    const QSize told = m_job.settings.media.frame;
    if (picture && !told.isEmpty() && told != picture->shown) {
        m_job.settings = rescaled(m_job.settings, picture->shown);
        warn(Message(Code::Rescaled, {sizeText(told), sizeText(picture->shown)}));
    }
    if (picture)
        m_job.settings.media.frame = picture->shown;
    m_waitingFiles = namedTrackFiles(m_job.settings);
    m_phase = Phase::Files;
    probeNextFile();
}

void Conversion::Private::probed(const ReadMedia& read)
{
    if (m_phase == Phase::Check)
        return checked(read);
    if (m_phase == Phase::Clip) {
        if (!read.media)
            return fail(read.error, kindOf(read.error, FailureKind::Lasting));
        return takeClip(*read.media);
    }
    const QString file = m_waitingFiles.takeFirst();
    if (!read.media)
        return fail(read.error, kindOf(read.error, FailureKind::Setup));
    m_files.insert(file, *read.media);
    probeNextFile();
}

void Conversion::Private::probeNextFile()
{
    if (m_waitingFiles.isEmpty())
        settle();
    else
        m_prober.probe(m_waitingFiles.first());
}

void Conversion::Private::settle()
{
    const QString named = containerOf(m_job.output);
    const QString container = named.isEmpty() ? containerFor(m_job.settings, m_job.input) : named;
    m_plan = planTracks(m_job.settings, m_media, m_files, container);
    if (!m_plan.error.isEmpty())
        return fail(m_plan.error);
    const ClipPart part = clipPart(m_job.settings, m_media);
    if (part.isTrimmed && part.seconds <= 0)
        return fail(Message(Code::TrimBehindEnd, {QString::number(part.from), QString::number(m_media.seconds)}));
    constexpr double seen = 0.5;
    const double to = m_job.settings.output.value(QStringLiteral("trim")).toList().value(1).toDouble();
    if (m_media.seconds > 0 && to > m_media.seconds + seen)
        warn(Message(Code::TrimPastEnd, {QString::number(to), QString::number(m_media.seconds)}));
    for (const Message& warning : m_plan.warnings + watermarkWarnings(m_job.settings))
        warn(warning);
    Q_EMIT m_owner->planned();
    if (!m_isRunning)
        return; // A slot has cancelled.
    if (!makeHelpers())
        return;
    m_phase = Phase::Prepare;
    nextStep();
}

bool Conversion::Private::writeHelper(const QString& name, const QByteArray& bytes, QString* path)
{
    *path = m_folder + QLatin1Char('/') + name;
    QFile file(*path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush())
        return true;
    fail(Message(Code::FileUnwritable, {*path, file.errorString()}), FailureKind::Temporary);
    return false;
}

/// A helper file that would take the place of something that is read; empty: none would.
QString Conversion::Private::endangered() const
{
    static const QRegularExpression helper(
        QStringLiteral("\\A(watermark\\.png|chapters\\.txt|subtitles[0-9]*\\.ass|extracted\\.ass|cover[0-9]+)\\z"));
    for (const QString& source : namedFiles(m_job.settings) + QStringList{m_job.input}) {
        const QFileInfo info(source);
        const bool isNamedSo = helper.match(info.fileName()).hasMatch();
        if (isNamedSo && isSameFile(info.absolutePath(), m_folder))
            return source;
    }
    return {};
}

bool Conversion::Private::makeHelpers()
{
    if (const QString source = m_preparesOnly ? endangered() : QString(); !source.isEmpty()) {
        fail(Message(Code::OutputIsInput, {source}));
        return false;
    }
    const QImage watermark = m_plan.videoCodec.isEmpty() ? QImage() : watermarkPicture(m_job.settings);
    const ClipPart part = clipPart(m_job.settings, m_media);
    const bool ownChapters = !m_media.chapters.isEmpty() && (part.isTrimmed || speedFactor(m_job.settings) != 1);
    const bool burnsText = m_plan.subtitle.use == SubtitleUse::BurnText;
    const bool hasFiles = std::any_of(m_plan.tracks.cbegin(), m_plan.tracks.cend(), [](const TrackPlan& track) {
        return track.isScripted || track.fate == TrackFate::Attached;
    });
    if (m_folder.isEmpty() && (!watermark.isNull() || ownChapters || burnsText || hasFiles)) {
        if (const Message wrong = m_ownFolder.create(); !wrong.isEmpty()) {
            fail(wrong, FailureKind::Temporary);
            return false;
        }
        m_folder = m_ownFolder.path();
    }
    if (!watermark.isNull()) {
        QBuffer png;
        png.open(QIODevice::WriteOnly);
        watermark.save(&png, "PNG");
        if (!writeHelper(QStringLiteral("watermark.png"), png.data(), &m_helpers.watermark))
            return false;
    }
    if (ownChapters
        && !writeHelper(QStringLiteral("chapters.txt"), chaptersText(m_job.settings, m_media), &m_helpers.chapters))
        return false;
    if (part.isTrimmed && part.from > 0 && m_media.picture() && m_plan.videoCodec.isEmpty())
        m_steps.append({Step::KeyFrame, 0, keyFrameCommand(m_tools, m_media, part.from)});
    if (burnsText) {
        m_helpers.subtitleFonts = fontsFolder(m_plan.subtitle, m_media, m_folder);
        m_steps.append(
            {Step::Extract, burnedIn, extractCommand(m_tools, m_media, m_plan.subtitle, m_helpers.subtitleFonts)});
    }
    for (int i = 0; i < m_plan.tracks.size(); ++i)
        prepareTrack(i);
    for (Step& step : m_steps)
        step.command.stallSeconds = m_job.stallSeconds;
    return true;
}

/// Adds what has to be read or measured of the track at \a place of the plan.
void Conversion::Private::prepareTrack(int place)
{
    const TrackPlan& track = m_plan.tracks.at(place);
    if (track.isScripted) {
        m_steps.append(scriptStep(place));
    } else if (track.fate == TrackFate::Attached) {
        const int stream = track.track.index;
        const QString file = m_folder + QStringLiteral("/cover%1").arg(stream);
        m_helpers.covers.insert(stream, file);
        m_steps.append({Step::Cover, stream, coverCommand(m_tools, m_media, stream, file)});
    } else if (track.fate == TrackFate::Encoded && track.track.kind == TrackKind::Audio && track.hasEffects
               && needsMeasuring(m_job.settings)) {
        m_steps.append({Step::Measure, place, measureCommand(m_tools, m_job, m_media, m_files, track)});
    }
}

void Conversion::Private::nextStep()
{
    if (m_steps.isEmpty())
        return convert();
    m_command = m_steps.first().command;
    const Step::What what = m_steps.first().what;
    if (what != Step::KeyFrame) // It tells, and makes nothing.
        m_commands.append(m_command);
    startChild(what == Step::Extract || what == Step::KeyFrame);
}

void Conversion::Private::startChild(bool collected)
{
    m_child.collect(collected);
    m_child.start(m_command);
    if (m_isPaused)
        m_child.pause();
}

/// Reads the lines of the track at \a place of the plan.
Step Conversion::Private::scriptStep(int place) const
{
    const TrackPlan& track = m_plan.tracks.at(place);
    const ClipPart part = clipPart(m_job.settings, m_media);
    SubtitlePlan lines;
    lines.file = track.file;
    lines.stream = track.file.isEmpty() ? track.track.index : -1;
    const double end = part.isTrimmed ? part.from + part.seconds : 0;
    return {Step::Extract, place, extractCommand(m_tools, m_media, lines, QString(), begunBefore(part), end)};
}

bool Conversion::Private::takeSubtitle(int place, const ChildResult& result)
{
    const bool isBurned = place == burnedIn;
    QByteArray script = result.output;
    if (isBurned || m_plan.tracks.at(place).isSelected) {
        const QVector<Item>& tracks = m_job.settings.find(QStringLiteral("Subtitle"))->items;
        ScriptParts parts;
        parts.frame = baseFrame(m_job.settings);
        parts.hasOwnStyles = m_plan.subtitle.hasOwnStyles;
        parts.soft = !isBurned;
        const OwnSubtitles own = ownSubtitles(script, tracks.at(m_plan.subtitle.position).values, parts);
        if (own.events == 0)
            warn(Message(Code::NoSubtitleLines));
        m_helpers.subtitleInColour = own.inColour;
        if (isBurned || m_plan.tracks.at(place).isRestyled)
            script = own.script;
    }
    if (isBurned)
        return writeHelper(QStringLiteral("subtitles.ass"), script, &m_helpers.subtitleScript);
    const TrackPlan& track = m_plan.tracks.at(place);
    const ClipPart part = clipPart(m_job.settings, m_media);
    const double begun = track.file.isEmpty() ? begunBefore(part) : 0;
    script = cutToPart(script, part.from - begun, part.seconds, speedFactor(m_job.settings));
    return writeHelper(QStringLiteral("subtitles%1.ass").arg(place), script, &m_helpers.scripts[place]);
}

void Conversion::Private::took(const Step& step, const ChildResult& result)
{
    if (!(result.isGood() && isWritten(result)) && step.what != Step::KeyFrame)
        return fail(reasonOf(result, step.command), kindOf(result));
    if (step.what == Step::Extract) {
        if (!takeSubtitle(step.number, result))
            return;
    } else if (step.what == Step::KeyFrame) {
        const double from = clipPart(m_job.settings, m_media).from;
        const QString told = QString::number(from, 'f', 3);
        const std::optional<double> begin = readKeyFrame(result.output, m_media);
        if (!begin && result.isGood())
            return fail(Message(Code::NoKeyFrame, {told}));
        constexpr double seen = 0.001;
        if (begin && std::abs(*begin - from) > seen)
            warn(Message(Code::CutAtKeyFrame, {QString::number(std::max(*begin, 0.0), 'f', 3), told}));
    } else if (step.what == Step::Measure) {
        const std::optional<double> peak = measuredPeak(result.words);
        if (!peak)
            return fail(Message(Code::NotMeasured));
        m_helpers.gains.insert(step.number, gainFor(m_job.settings, *peak));
    }
    nextStep();
}

void Conversion::Private::convert()
{
    QString target = m_job.output;
    if (!m_preparesOnly) {
        for (const Message& told : removeLeftovers(QFileInfo(m_job.output).absolutePath()))
            warn(told);
        if (const Message wrong = m_part.create(m_job.output); !wrong.isEmpty())
            return fail(wrong, m_part.kind());
        target = m_part.path();
    }
    m_command = convertCommand(m_tools, m_job, m_media, m_files, m_plan, m_helpers, target);
    m_command.folder = m_folder;
    m_commands.append(m_command);
    if (m_preparesOnly)
        return finish(Outcome::Done);
    m_phase = Phase::Convert;
    startChild(false);
}

void Conversion::Private::readProgress(const QByteArray& piece)
{
    if (m_phase != Phase::Convert)
        return;
    const int before = m_progress.blocks();
    m_progress.read(piece);
    const double whole = clipPart(m_job.settings, m_media).result;
    if (m_progress.blocks() == before || whole <= 0)
        return;
    m_fraction = std::max(m_fraction, std::min(m_progress.seconds() / whole, 1.0));
    const double speed = m_progress.speed();
    const double left = speed > 0 ? (1 - m_fraction) * whole / speed : 0;
    Q_EMIT m_owner->progressed(m_fraction, left, speed);
}

void Conversion::Private::ended(const ChildResult& result)
{
    if (!m_isRunning)
        return;
    if (m_phase == Phase::Prepare)
        took(m_steps.takeFirst(), result);
    else
        converted(result);
}

void Conversion::Private::converted(const ChildResult& result)
{
    if (!result.isGood() || !isWritten(result))
        return fail(reasonOf(result, m_command), kindOf(result));
    if (!damageIn(result.words, m_media, clipPart(m_job.settings, m_media).from > 0).isEmpty()) {
        m_hasDamage = true;
        warn(Message(Code::DamageTold, {result.lastWords()}));
    }
    m_phase = Phase::Check;
    m_prober.probe(m_part.path());
}

void Conversion::Private::checked(const ReadMedia& read)
{
    if (!read.media)
        return fail(Message(Code::ResultUnreadable, {read.error.text()}), kindOf(read.error, FailureKind::Lasting));
    bool isShort = false;
    const bool isWhole = std::all_of(m_plan.tracks.cbegin(), m_plan.tracks.cend(),
                                     [](const TrackPlan& track) { return track.fate != TrackFate::LeftOut; });
    const MediaStream* picture = m_media.picture();
    const ClipPart part = clipPart(m_job.settings, m_media);
    // Where a track is left out, the clip may have been as long as that one.
    const bool isKnown = isWhole || part.isTrimmed || !picture || picture->seconds > 0;
    double wanted = isKnown ? part.result : 0;
    constexpr double slowest = 0.01;
    if (!isWhole && !part.isTrimmed && picture && picture->seconds > 0)
        wanted = std::min(wanted, picture->seconds / std::max(speedFactor(m_job.settings), slowest));
    const Message wrong = checkResult(*read.media, m_plan, wanted, &isShort);
    if (!wrong.isEmpty() && !(isShort && m_hasDamage))
        return fail(wrong);
    if (!wrong.isEmpty())
        warn(wrong);
    const Values& output = m_job.settings.output;
    if (m_hasDamage && output.value(QStringLiteral("strict")).toBool())
        return fail(Message(Code::DamageStrict));
    const QString dateOf = output.value(QStringLiteral("keep-date")).toBool() ? m_job.input : QString();
    if (const Message failed = m_part.finish(m_job.output, m_job.replaces, dateOf); !failed.isEmpty())
        return refuse(failed, m_part.kind());
    finish(Outcome::Done);
}

void Conversion::Private::cancel()
{
    if (m_isRunning)
        finish(Outcome::Cancelled, FailureKind::None, Message(Code::Cancelled));
}

void Conversion::Private::pause()
{
    m_isPaused = true;
    m_child.pause();
}

void Conversion::Private::resume()
{
    m_isPaused = false;
    m_child.resume();
}

void Conversion::Private::finish(Outcome outcome, FailureKind kind, const Message& reason)
{
    if (!m_isRunning)
        return;
    m_isRunning = false;
    m_prober.cancel();
    m_child.cancel();
    m_part.remove();
    m_result.outcome = outcome;
    m_result.kind = kind;
    m_result.reason = reason;
    if (outcome == Outcome::Done && !m_preparesOnly)
        Q_EMIT m_owner->progressed(1, 0, m_progress.speed());
    // Later: the one who cancels may be in the middle of something.
    QTimer::singleShot(0, this, [this] { Q_EMIT m_owner->finished(m_result); });
}

Conversion::Conversion(const Tools& tools, QObject* parent) : QObject(parent), d(std::make_unique<Private>(tools, this))
{
}

Conversion::~Conversion() = default;

void Conversion::start(const Job& job)
{
    d->start(job, QString());
}

void Conversion::prepare(const Job& job, const QString& folder)
{
    d->start(job, folder);
}

void Conversion::cancel()
{
    d->cancel();
}

void Conversion::pause()
{
    d->pause();
}

void Conversion::resume()
{
    d->resume();
}

bool Conversion::isRunning() const
{
    return d->m_isRunning;
}

const Job& Conversion::job() const
{
    return d->m_job;
}

const MediaInfo& Conversion::media() const
{
    return d->m_media;
}

const TracksPlan& Conversion::plan() const
{
    return d->m_plan;
}

QVector<Command> Conversion::commands() const
{
    return d->m_commands;
}

} // namespace zokit
