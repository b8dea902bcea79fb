// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/trackplan.h>

#include <algorithm>

#include <QFileInfo>

#include <zokit/graph.h>
#include <zokit/properties.h>
#include <zokit/resultname.h>

#include "codecs_p.h"
#include "picture_p.h"
#include "realeffect_p.h"
#include "subtitleinput_p.h"
#include "trackplan_p.h"
#include "trackwords_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

QString option(const Settings& settings, const char* name)
{
    return settings.output.value(QLatin1String(name)).toString();
}

bool names(const Settings& settings, std::initializer_list<const char*> options)
{
    return std::any_of(options.begin(), options.end(),
                       [&](const char* name) { return settings.output.contains(QLatin1String(name)); });
}

QVector<Values> selectedItems(const Settings& settings, const char* name)
{
    QVector<Values> result;
    if (const TypeSettings* type = selectedType(settings, name))
        for (const Item& item : type->items)
            if (item.selected)
                result.append(item.values);
    return result;
}

/// A codec that \a container cannot hold, or an option that means nothing to the codec.
Message codecProblem(const Settings& settings, const QString& container)
{
    const auto asksFor = [](const QString& codec) { return !codec.isEmpty() && codec != QLatin1String("copy"); };
    const QString video = option(settings, "video-codec");
    const QString audio = option(settings, "audio-codec");
    if (asksFor(video) && !holds(container, TrackKind::Video, video))
        return Message(Code::ContainerHoldsNot, {container, video});
    if (asksFor(audio) && !holds(container, TrackKind::Audio, audio))
        return Message(Code::ContainerHoldsNot, {container, audio});
    return asksFor(video) ? checkVideoOptions(settings.output, video) : Message();
}

/// Plans one clip; each step fills in its part of the result.
class Planner {
public:
    Planner(const Settings& settings, const MediaInfo& media, const QMap<QString, MediaInfo>& files,
            const QString& container)
        : m_settings(settings)
        , m_media(media)
        , m_files(files)
        , m_part(clipPart(settings, media))
        , m_drops(option(settings, "other-tracks") == QLatin1String("drop"))
    {
        m_plan.container = container;
    }

    TracksPlan plan()
    {
        m_plan.subtitle = subtitlePlan(m_settings, m_media);
        m_plan.error = soundProblem(m_settings);
        refuse(codecProblem(m_settings, m_plan.container));
        if (m_plan.error.isEmpty())
            planPicture();
        planOtherPictures();
        planSounds();
        planSubtitles();
        planRest();
        const bool keepsAny = std::any_of(m_plan.tracks.cbegin(), m_plan.tracks.cend(), [](const TrackPlan& plan) {
            return plan.fate != TrackFate::LeftOut && plan.fate != TrackFate::BurnedIn
                   && plan.fate != TrackFate::Attached && plan.track.kind != TrackKind::Subtitle;
        });
        if (!keepsAny)
            refuse(Message(Code::NothingToConvert));
        return m_plan;
    }

private:
    void refuse(const Message& why)
    {
        if (m_plan.error.isEmpty())
            m_plan.error = why;
    }

    bool isBurned() const
    {
        return m_plan.subtitle.use == SubtitleUse::BurnText || m_plan.subtitle.use == SubtitleUse::BurnBitmap;
    }

    bool isHeld(const TrackPlan& track) const { return holds(m_plan.container, track.track.kind, track.track.codec); }

    static TrackPlan planOf(const MediaStream& stream)
    {
        TrackPlan plan;
        plan.track = stream.track;
        plan.isCover = stream.isCover;
        plan.codec = stream.track.codec;
        return plan;
    }

    void leaveOut(TrackPlan& plan, const Message& why)
    {
        plan.fate = TrackFate::LeftOut;
        plan.codec.clear();
        plan.why = why;
    }

    Message containerLacks(const QString& codec) const
    {
        return Message(Code::ContainerLacks, {m_plan.container, codec});
    }

    /// Whether anything changes the picture, so that it cannot be copied.
    bool touchesPicture() const
    {
        GraphParts parts;
        parts.watermarkInput = watermarkPicture(m_settings).isNull() ? -1 : 1;
        return isBurned() || !pictureGraph(m_settings, m_media, parts).isNothing;
    }

    /// Whether a copy of \a picture does not say any more that it is turned.
    bool losesTurn(const MediaStream& picture) const
    {
        return picture.isTurned
               && (m_plan.container == QLatin1String("mkv") || m_plan.container == QLatin1String("webm"));
    }

    void planPicture()
    {
        const MediaStream* stream = m_media.picture();
        const QString wanted = option(m_settings, "video-codec");
        if (!stream)
            return;
        TrackPlan plan = planOf(*stream);
        plan.isSelected = true;
        const bool copies = wanted == QLatin1String("copy");
        const bool touched = touchesPicture();
        const bool named = names(m_settings, {"quality", "pixel-format", "encoder-speed", "size", "fps"})
                           || option(m_settings, "hdr") == QLatin1String("map") || (!wanted.isEmpty() && !copies);
        if (copies && (touched || named))
            refuse(Message(Code::CopyTouched, {QStringLiteral("video-codec")}));
        const bool isTurnedAway = losesTurn(*stream);
        if (touched || named || (m_part.isTrimmed && !copies)) {
            plan.fate = TrackFate::Encoded;
        } else if (!copies && !isHeld(plan)) {
            plan.fate = TrackFate::Encoded;
            plan.why = containerLacks(plan.track.codec);
        } else if (!copies && isTurnedAway) {
            plan.fate = TrackFate::Encoded;
            plan.why = Message(Code::ContainerTurnsNot, {m_plan.container});
        }
        if (copies && !isHeld(plan))
            refuse(Message(Code::ContainerHoldsNot, {m_plan.container, plan.track.codec}));
        if (copies && isTurnedAway)
            m_plan.warnings.append(Message(Code::RotationLost, {m_plan.container}));
        if (plan.fate == TrackFate::Encoded) {
            m_plan.videoCodec = wanted.isEmpty() || copies ? usualVideoCodec(m_plan.container) : wanted;
            plan.codec = m_plan.videoCodec;
            plan.isDeinterlaced = stream->isInterlaced;
            refuse(checkVideoOptions(m_settings.output, m_plan.videoCodec));
            chooseForm(*stream);
            checkGraph();
        } else if (cropsNothing(m_settings)) {
            m_plan.warnings.append(Message(Code::CropIncomplete));
        }
        m_plan.tracks.append(plan);
    }

    /// HDR or not, and the pixel format of the encoder.
    void chooseForm(const MediaStream& stream)
    {
        const QString hdr = option(m_settings, "hdr");
        const bool isH264 = m_plan.videoCodec == QLatin1String("h264");
        m_plan.mapsHdr = stream.isHdr && (hdr == QLatin1String("map") || (hdr.isEmpty() && isH264));
        if (m_plan.mapsHdr && hdr.isEmpty())
            m_plan.warnings.append(Message(Code::HdrMapped, {m_plan.videoCodec}));
        const bool keepsHdr = stream.isHdr && !m_plan.mapsHdr;
        if (keepsHdr && !stream.hdr.isEmpty() && m_plan.videoCodec != QLatin1String("hevc"))
            m_plan.warnings.append(Message(Code::HdrDataLost, {m_plan.videoCodec}));

        const QString wanted = option(m_settings, "pixel-format");
        const bool keepsSource =
            wanted == QLatin1String("source") || (wanted.isEmpty() && m_plan.videoCodec == QLatin1String("ffv1"));
        const QString usual = keepsHdr ? QStringLiteral("yuv420p10le") : QStringLiteral("yuv420p");
        if (keepsSource) {
            m_plan.pixelFormat = stream.pixelFormat;
            if (!takesPixelFormat(m_plan.videoCodec, m_plan.pixelFormat)) {
                m_plan.warnings.append(
                    Message(Code::PixelFormatChanged, {m_plan.videoCodec, stream.pixelFormat, usual}));
                m_plan.pixelFormat = usual;
            }
            return;
        }
        m_plan.pixelFormat = wanted.isEmpty() ? usual : wanted;
        if (!takesPixelFormat(m_plan.videoCodec, m_plan.pixelFormat))
            refuse(Message(Code::PixelFormatNot, {m_plan.videoCodec, wanted}));
    }

    /// What the graph cannot do, and what it warns of.
    void checkGraph()
    {
        GraphParts parts;
        parts.pixelFormat = m_plan.pixelFormat;
        const PictureGraph graph = pictureGraph(m_settings, m_media, parts);
        m_plan.warnings += graph.warnings;
        refuse(graph.error);
        refuse(checkSize(graph.size, m_plan.videoCodec));
    }

    void planOtherPictures()
    {
        for (const MediaStream& stream : m_media.streams) {
            if (stream.track.kind != TrackKind::Video || stream.isCover || &stream == m_media.picture())
                continue;
            TrackPlan plan = planOf(stream);
            if (m_drops)
                leaveOut(plan, Message(Code::DroppedAsOther));
            else if (speedFactor(m_settings) != 1)
                leaveOut(plan, Message(Code::CannotChangeSpeed));
            else if (plan.track.codec.isEmpty())
                leaveOut(plan, Message(Code::CodecUnknown));
            else if (!isHeld(plan))
                leaveOut(plan, containerLacks(plan.track.codec));
            else if (losesTurn(stream))
                m_plan.warnings.append(
                    Message(Code::OtherRotationLost, {m_plan.container, QString::number(plan.track.index)}));
            m_plan.tracks.append(plan);
        }
    }

    void planSounds()
    {
        const QVector<Values> selected = selectedItems(m_settings, "Audio");
        QVector<int> taken;
        for (const Values& item : selected) {
            TrackPlan plan;
            const MediaStream* sound = nullptr;
            if (item.value(QStringLiteral("audio_isfile")).toBool()) {
                const QString file = item.value(QStringLiteral("file")).toString();
                const auto found = m_files.constFind(file);
                sound = found == m_files.cend() ? nullptr : firstSound(*found);
                if (!sound) {
                    refuse(Message(Code::NoSoundIn, {file}));
                    continue;
                }
                plan = planOf(*sound);
                plan.file = file;
                plan.loops = item.value(QStringLiteral("play_loop")).toBool();
            } else {
                const int index = item.value(QStringLiteral("trackid"), -1).toInt();
                sound = m_media.stream(index);
                if (!sound || sound->track.kind != TrackKind::Audio) {
                    refuse(Message(Code::NoSuchTrack, {QString::number(index)}));
                    continue;
                }
                if (taken.contains(index))
                    continue;
                taken.append(index);
                plan = planOf(*sound);
            }
            plan.isSelected = true;
            planSound(plan, *sound, true);
        }
        for (const MediaStream& stream : m_media.streams) {
            if (stream.track.kind != TrackKind::Audio || taken.contains(stream.track.index))
                continue;
            TrackPlan plan = planOf(stream);
            if (m_drops && !selected.isEmpty()) {
                leaveOut(plan, Message(Code::DroppedAsOther));
                m_plan.tracks.append(plan);
            } else {
                planSound(plan, stream, selected.isEmpty());
            }
        }
    }

    static const MediaStream* firstSound(const MediaInfo& media)
    {
        for (const MediaStream& stream : media.streams)
            if (stream.track.kind == TrackKind::Audio)
                return &stream;
        return nullptr;
    }

    void planSound(TrackPlan& plan, const MediaStream& stream, bool hasEffects)
    {
        // Announced, and not there as far as ffmpeg looks, or of a kind that is newer than it: no container takes it.
        if (stream.sampleRate <= 0 || plan.track.codec.isEmpty()) {
            leaveOut(plan, Message(plan.track.codec.isEmpty() ? Code::CodecUnknown : Code::SoundUnknown));
            m_plan.tracks.append(plan);
            return;
        }
        const QString wanted = option(m_settings, "audio-codec");
        const bool copies = wanted == QLatin1String("copy");
        plan.hasEffects = hasEffects;
        const bool measured = hasEffects && needsMeasuring(m_settings);
        const bool touched = !soundGraph(soundSettings(m_settings, hasEffects), stream, {}).isEmpty() || measured;
        const bool named = hasEffects && (names(m_settings, {"audio-bitrate"}) || (!wanted.isEmpty() && !copies));
        if (copies && (touched || named))
            refuse(Message(Code::CopyTouched, {QStringLiteral("audio-codec")}));
        if (touched || named || plan.loops || (m_part.isTrimmed && !copies)) {
            plan.fate = TrackFate::Encoded;
        } else if (!isHeld(plan)) {
            if (copies)
                refuse(Message(Code::ContainerHoldsNot, {m_plan.container, plan.track.codec}));
            plan.fate = TrackFate::Encoded;
            plan.why = containerLacks(plan.track.codec);
        }
        if (plan.fate == TrackFate::Encoded)
            plan.codec = wanted.isEmpty() || copies || !named ? usualAudioCodec(m_plan.container) : wanted;
        m_plan.tracks.append(plan);
    }

    void planSubtitles()
    {
        refuse(m_plan.subtitle.error);
        m_plan.warnings += m_plan.subtitle.warnings;
        const SubtitlePlan& chosen = m_plan.subtitle;
        if (isBurned() && !m_media.picture())
            refuse(Message(Code::NoPictureToBurn));
        if (chosen.use != SubtitleUse::None && chosen.stream < 0 && chosen.use != SubtitleUse::Missing) {
            TrackPlan plan;
            plan.file = chosen.file;
            plan.isSelected = true;
            plan.track.kind = TrackKind::Subtitle;
            plan.track.index = 0;
            const auto found = m_files.constFind(chosen.file);
            if (found != m_files.cend() && !found->streams.isEmpty())
                plan.track = found->streams.first().track;
            plan.codec = plan.track.codec;
            if (isBurned())
                burnIn(plan);
            else
                planSoft(plan);
        }
        for (int pass = 0; pass < 2; ++pass) {
            for (const MediaStream& stream : m_media.streams) {
                const bool isChosen = stream.track.index == chosen.stream;
                if (stream.track.kind != TrackKind::Subtitle || isChosen != (pass == 0))
                    continue;
                TrackPlan plan = planOf(stream);
                plan.isSelected = isChosen;
                if (isChosen && isBurned()) {
                    burnIn(plan);
                } else if (m_drops && !isChosen) {
                    leaveOut(plan, Message(Code::DroppedAsOther));
                    m_plan.tracks.append(plan);
                } else {
                    planSoft(plan);
                }
            }
        }
    }

    void burnIn(TrackPlan& plan)
    {
        plan.fate = TrackFate::BurnedIn;
        plan.codec.clear();
        m_plan.tracks.append(plan);
    }

    void planSoft(TrackPlan& plan)
    {
        const QString codec = plan.track.codec;
        if (isBitmapSubtitle(codec)) {
            if (speedFactor(m_settings) != 1)
                leaveOut(plan, Message(Code::CannotChangeSpeed));
            else if (!isHeld(plan))
                leaveOut(plan, containerLacks(codec));
        } else if (plan.file.isEmpty() && !isTextSubtitle(codec)) {
            leaveOut(plan, codec.isEmpty() ? Message(Code::CodecUnknown) : containerLacks(codec));
        } else if (takesStyle(plan) && m_plan.container == QLatin1String("mkv")) {
            plan.fate = TrackFate::Converted;
            plan.codec = QStringLiteral("ass");
            plan.isRestyled = plan.isScripted = true;
            if (codec != plan.codec)
                plan.why = Message(Code::StyleInAss);
        } else if (!isHeld(plan)) {
            plan.fate = TrackFate::Converted;
            plan.codec = textCodec(m_plan.container, codec);
            plan.why = containerLacks(codec);
        } else if (!plan.file.isEmpty() && !isUtf8File(plan.file)) {
            plan.fate = TrackFate::Converted;
            plan.why = Message(Code::LettersNotUtf8);
        }
        if (!plan.file.isEmpty() && m_part.isTrimmed && !isBitmapSubtitle(codec))
            plan.fate = TrackFate::Converted;
        // ffmpeg 5.1 sets no times of lines that it encodes: the unit changes after the first one.
        if (plan.fate == TrackFate::Converted && (m_part.isTrimmed || speedFactor(m_settings) != 1))
            plan.isScripted = true;
        if (takesStyle(plan) && !plan.isRestyled)
            m_plan.warnings.append(Message(Code::StyleLost, {m_plan.container}));
        m_plan.tracks.append(plan);
    }

    /// Whether the soft track is the chosen one and has a style that it does not bring itself.
    bool takesStyle(const TrackPlan& plan) const
    {
        if (!plan.isSelected || isBitmapSubtitle(plan.track.codec))
            return false;
        const QVector<Item>& items = m_settings.find(QStringLiteral("Subtitle"))->items;
        return isStyled(items.at(m_plan.subtitle.position).values, baseFrame(m_settings));
    }

    /// Covers, attachments and data follow as they are where the container holds them.
    void planRest()
    {
        const bool isMatroska = m_plan.container == QLatin1String("mkv");
        for (const MediaStream& stream : m_media.streams) {
            const TrackKind kind = stream.track.kind;
            const bool isCover = kind == TrackKind::Video && stream.isCover;
            if (!isCover && kind != TrackKind::Attachment && kind != TrackKind::Data)
                continue;
            TrackPlan plan = planOf(stream);
            if (m_drops)
                leaveOut(plan, Message(Code::DroppedAsOther));
            else if (kind == TrackKind::Data)
                leaveOut(plan, Message(Code::DataTrack));
            else if (isCover && isMatroska)
                plan.fate = TrackFate::Attached;
            else if (isCover ? m_plan.container != QLatin1String("mp4") : !isMatroska)
                leaveOut(plan,
                         Message(Code::ContainerLacks, {m_plan.container, kindName(plan.track.kind, plan.isCover)}));
            m_plan.tracks.append(plan);
        }
        const bool losesTitles =
            (m_plan.container == QLatin1String("mp4") || m_plan.container == QLatin1String("mov"))
            && std::any_of(m_plan.tracks.cbegin(), m_plan.tracks.cend(), [](const TrackPlan& plan) {
                   return plan.fate != TrackFate::LeftOut && !plan.track.title.isEmpty();
               });
        if (losesTitles)
            m_plan.warnings.append(Message(Code::TitlesLost, {m_plan.container}));
    }

    const Settings& m_settings;
    const MediaInfo& m_media;
    const QMap<QString, MediaInfo>& m_files;
    ClipPart m_part;
    bool m_drops;
    TracksPlan m_plan;
};

/// A clip for which nothing is refused but for reasons of \a settings.
MediaInfo usualClip(const Settings& settings, const QString& container)
{
    constexpr QSize usualFrame(1280, 720);
    constexpr int usualRate = 48000;
    MediaStream picture;
    picture.track.kind = TrackKind::Video;
    picture.track.codec = usualVideoCodec(container);
    picture.pixelFormat = QStringLiteral("yuv420p");
    picture.matrix = QStringLiteral("bt709");
    picture.range = QStringLiteral("tv");
    picture.coded = picture.shown = settings.media.frame.isEmpty() ? usualFrame : settings.media.frame;
    MediaStream sound;
    sound.track.index = 1;
    sound.track.kind = TrackKind::Audio;
    sound.track.codec = usualAudioCodec(container);
    sound.sampleRate = usualRate;
    sound.channels = 2;
    MediaInfo media;
    media.streams = {picture, sound};
    return media;
}

/// \a settings without what only their own clip tells of: its tracks, and where a watermark lies; and without sounds,
/// which are not looked into.
Settings forAnyClip(const Settings& settings)
{
    Settings result = settings;
    const Item* shown = shownSubtitle(settings);
    const bool showsFile = shown && shown->values.value(QStringLiteral("sub_fromfile")).toBool();
    for (TypeSettings& type : result.effects)
        if (type.type == QLatin1String("Audio") || type.type == QLatin1String("Watermark")
            || (type.type == QLatin1String("Subtitle") && !showsFile))
            type.selected = false;
    return result;
}

} // namespace

Settings soundSettings(const Settings& settings, bool hasEffects)
{
    Settings result = settings;
    if (hasEffects)
        return result;
    for (TypeSettings& type : result.effects)
        if (isSoundType(type.type) && type.type != QLatin1String("Audio_Speed"))
            type.selected = false;
    return result;
}

Message TrackPlan::line() const
{
    const QStringList which = trackWords(track, file, isCover);
    switch (fate) {
    case TrackFate::Copied:
        return Message(Code::TrackCopied, which);
    case TrackFate::Attached:
        return Message(Code::TrackAttached, which);
    case TrackFate::BurnedIn:
        return Message(Code::TrackBurnedIn, which);
    case TrackFate::LeftOut:
        return Message(Code::TrackLeftOut, which + QStringList{why.text()});
    case TrackFate::Encoded:
    case TrackFate::Converted:
        break;
    }
    return why.isEmpty()
               ? Message(isDeinterlaced ? Code::TrackDeinterlaced : Code::TrackEncoded, which + QStringList{codec})
               : Message(isDeinterlaced ? Code::TrackDeinterlacedBecause : Code::TrackEncodedBecause,
                         which + QStringList{codec, why.text()});
}

bool TracksPlan::copiesAll() const
{
    return std::all_of(tracks.cbegin(), tracks.cend(), [](const TrackPlan& plan) {
        return plan.fate == TrackFate::Copied || plan.fate == TrackFate::Attached || plan.fate == TrackFate::LeftOut;
    });
}

QStringList namedTrackFiles(const Settings& settings)
{
    QStringList files;
    for (const Values& item : selectedItems(settings, "Audio"))
        if (item.value(QStringLiteral("audio_isfile")).toBool())
            files.append(item.value(QStringLiteral("file")).toString());
    const QVector<Values> subtitles = selectedItems(settings, "Subtitle");
    if (!subtitles.isEmpty() && subtitles.first().value(QStringLiteral("sub_fromfile")).toBool())
        files.append(subtitles.first().value(QStringLiteral("file")).toString());
    files.removeDuplicates();
    return files;
}

QString containerOf(const QString& path)
{
    const QString ending = QFileInfo(path).suffix().toLower();
    for (const char* name : {"mp4", "mkv", "webm", "mov"})
        if (ending == QLatin1String(name))
            return ending;
    const bool isMp4 = ending == QLatin1String("m4v") || ending == QLatin1String("m4a");
    return isMp4 ? QStringLiteral("mp4") : QString();
}

QString containerFor(const Settings& settings, const QString& input)
{
    const QString said = option(settings, "container");
    if (!said.isEmpty())
        return said;
    const QString same = containerOf(input);
    return same.isEmpty() ? QStringLiteral("mkv") : same;
}

Message checkCodecs(const Settings& settings, const QString& container)
{
    if (option(settings, "video-codec") == QLatin1String("copy") && hasWatermark(settings))
        return Message(Code::CopyTouched, {QStringLiteral("video-codec")});
    const Message error = planTracks(forAnyClip(settings), usualClip(settings, container), {}, container).error;
    const bool isExact = option(settings, "size").endsWith(QLatin1String(",exact"));
    switch (error.code()) {
    case Code::SizeNotForCodec:
    case Code::OddSize:
        return isExact ? error : Message();
    case Code::CropTooSmall:
        return {}; // Of another frame more may be left.
    default:
        return error;
    }
}

Values takenOptions(const TracksPlan& plan)
{
    Values taken{{QStringLiteral("container"), plan.container}, {QStringLiteral("name"), usualPattern()}};
    if (!plan.error.isEmpty())
        return taken;
    taken.insert(QStringLiteral("other-tracks"), QStringLiteral("keep"));
    const auto takeCodec = [&](const char* name, TrackKind kind) {
        for (const TrackPlan& track : plan.tracks) {
            const bool isCopied = track.fate == TrackFate::Copied;
            if (track.track.kind != kind || track.isCover || (!isCopied && track.fate != TrackFate::Encoded))
                continue;
            taken.insert(QString::fromLatin1(name), isCopied ? QStringLiteral("copy") : track.codec);
            return;
        }
    };
    takeCodec("video-codec", TrackKind::Video);
    takeCodec("audio-codec", TrackKind::Audio);
    if (plan.videoCodec.isEmpty())
        return taken;
    const Values usual = usualVideoOptions(plan.videoCodec);
    for (auto it = usual.cbegin(); it != usual.cend(); ++it)
        taken.insert(it.key(), it.value());
    taken.insert(QStringLiteral("pixel-format"), plan.pixelFormat);
    taken.insert(QStringLiteral("hdr"), plan.mapsHdr ? QStringLiteral("map") : QStringLiteral("keep"));
    return taken;
}

ClipPart clipPart(const Settings& settings, const MediaInfo& media)
{
    ClipPart part;
    part.seconds = media.seconds;
    const QVariantList trim = settings.output.value(QStringLiteral("trim")).toList();
    if (trim.size() == 2) {
        part.isTrimmed = true;
        part.from = trim.at(0).toDouble();
        const double to = media.seconds > 0 ? std::min(trim.at(1).toDouble(), media.seconds) : trim.at(1).toDouble();
        part.seconds = std::max(to - part.from, 0.0);
    }
    const double speed = speedFactor(settings);
    part.result = speed > 0 ? part.seconds / speed : 0;
    return part;
}

TracksPlan planTracks(const Settings& settings, const MediaInfo& media, const QMap<QString, MediaInfo>& files,
                      const QString& container)
{
    return Planner(settings, media, files, container).plan();
}

} // namespace zokit
