// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "codecs_p.h"

#include <algorithm>
#include <array>

#include <zokit/probe.h>

namespace zokit {

namespace {

using Code = Message::Code;

bool isAmong(const QString& word, const char* words)
{
    return QString::fromLatin1(words).split(QLatin1Char(' ')).contains(word);
}

/// What was written and read again without loss; more would be written by some muxers, and be of no use.
struct Container {
    const char* name;
    const char* muxer;
    const char* video;
    const char* audio;
    const char* subtitles;
    const char* usualVideo;
    const char* usualAudio;
};
constexpr std::array<Container, 4> containers = {{
    {"mp4", "mp4", "h264 hevc vp9 av1 mpeg2video mpeg4", "aac ac3 eac3 mp3 mp2 opus alac", "mov_text", "h264", "aac"},
    {"mov", "mov", "h264 hevc mpeg2video mpeg4 prores mjpeg ffv1 theora",
     "aac ac3 mp3 mp2 alac vorbis pcm_s16le pcm_s24le pcm_s32le pcm_f32le pcm_s16be pcm_s24be", "mov_text", "h264",
     "aac"},
    {"mkv", "matroska", nullptr, nullptr, "subrip ass ssa webvtt hdmv_pgs_subtitle dvd_subtitle dvb_subtitle", "h264",
     "aac"},
    {"webm", "webm", "vp8 vp9 av1", "opus vorbis", "webvtt", "vp9", "opus"},
}};

/// Of discs, and of files that only some cameras and studios write.
constexpr const char* notInMatroska =
    "pcm_dvd pcm_bluray pcm_s8 pcm_f32be pcm_f64be adpcm_ima_qt mace3 mace6 gsm qcelp";

const Container& containerNamed(const QString& name)
{
    const auto found = std::find_if(containers.cbegin(), containers.cend(),
                                    [&](const Container& one) { return name == QLatin1String(one.name); });
    return found == containers.cend() ? containers[2] : *found;
}

struct Encoder {
    const char* codec;
    const char* name;
    const char* pixelFormats; ///< Null: any.
    int highestQuality;       ///< -1: there is no such scale.
    const char* speeds;
    const char* usualSpeed;
    int usualQuality;
    int shortestSide; ///< Of a picture, in pixels.
    int longestSide;
};
constexpr int longestThatIsRead = 65535;
constexpr const char* words = "ultrafast superfast veryfast faster fast medium slow slower veryslow placebo";
constexpr std::array<Encoder, 5> videoEncoders = {{
    {"h264", "libx264",
     "yuv420p yuvj420p yuv422p yuvj422p yuv444p yuvj444p yuv420p10le yuv422p10le yuv444p10le gray gray10le", 51, words,
     "veryfast", 20, 1, 16384},
    {"hevc", "libx265",
     "yuv420p yuvj420p yuv422p yuvj422p yuv444p yuvj444p yuv420p10le yuv422p10le yuv444p10le yuv420p12le yuv422p12le "
     "yuv444p12le gbrp gbrp10le gbrp12le gray gray10le gray12le",
     51, words, "fast", 22, 16, longestThatIsRead},
    {"vp9", "libvpx-vp9",
     "yuv420p yuva420p yuv422p yuv440p yuv444p yuv420p10le yuv422p10le yuv444p10le yuv420p12le yuv422p12le yuv444p12le "
     "gbrp gbrp10le gbrp12le",
     63, "0 1 2 3 4 5 6 7 8", "4", 31, 1, 16384},
    {"av1", "libaom-av1",
     "yuv420p yuv422p yuv444p gbrp yuv420p10le yuv422p10le yuv444p10le yuv420p12le yuv422p12le yuv444p12le gbrp10le "
     "gbrp12le gray gray10le gray12le",
     63, "0 1 2 3 4 5 6 7 8", "6", 30, 1, longestThatIsRead},
    {"ffv1", "ffv1", nullptr, -1, "", "", 0, 1, longestThatIsRead},
}};

const Encoder* videoEncoder(const QString& codec)
{
    const auto found = std::find_if(videoEncoders.cbegin(), videoEncoders.cend(),
                                    [&](const Encoder& one) { return codec == QLatin1String(one.codec); });
    return found == videoEncoders.cend() ? nullptr : &*found;
}

} // namespace

bool holds(const QString& container, TrackKind kind, const QString& codec)
{
    const Container& form = containerNamed(container);
    switch (kind) {
    case TrackKind::Video:
        return !form.video || isAmong(codec, form.video);
    case TrackKind::Audio:
        return form.audio ? isAmong(codec, form.audio) : !isAmong(codec, notInMatroska);
    case TrackKind::Subtitle:
        return isAmong(codec, form.subtitles);
    case TrackKind::Attachment:
    case TrackKind::Data:
        break; // They are copied or left out whatever their codec is.
    }
    return false;
}

bool isTextSubtitle(const QString& codec)
{
    return isAmong(codec, "subrip ass ssa webvtt mov_text text eia_608 microdvd mpl2 pjs realtext sami stl subviewer "
                          "subviewer1 vplayer jacosub");
}

QString textCodec(const QString& container, const QString& codec)
{
    if (container == QLatin1String("mkv"))
        return holds(container, TrackKind::Subtitle, codec) ? codec : QStringLiteral("subrip");
    return container == QLatin1String("webm") ? QStringLiteral("webvtt") : QStringLiteral("mov_text");
}

QString muxer(const QString& container)
{
    return QString::fromLatin1(containerNamed(container).muxer);
}

QString usualVideoCodec(const QString& container)
{
    return QString::fromLatin1(containerNamed(container).usualVideo);
}

QString usualAudioCodec(const QString& container)
{
    return QString::fromLatin1(containerNamed(container).usualAudio);
}

QString encoderOf(const QString& codec)
{
    if (codec == QLatin1String("opus"))
        return QStringLiteral("libopus");
    if (codec == QLatin1String("mp3"))
        return QStringLiteral("libmp3lame");
    return codec == QLatin1String("subrip") ? QStringLiteral("srt") : codec;
}

bool takesPixelFormat(const QString& videoCodec, const QString& format)
{
    const Encoder* encoder = videoEncoder(videoCodec);
    return !encoder || !encoder->pixelFormats || isAmong(format, encoder->pixelFormats);
}

Values usualVideoOptions(const QString& codec)
{
    const Encoder* encoder = videoEncoder(codec);
    if (!encoder || encoder->highestQuality < 0)
        return {};
    return {{QStringLiteral("quality"), encoder->usualQuality},
            {QStringLiteral("encoder-speed"), QString::fromLatin1(encoder->usualSpeed)}};
}

Message checkSize(const QSize& size, const QString& codec)
{
    const Encoder* encoder = videoEncoder(codec);
    const int shortest = std::min(size.width(), size.height());
    const int longest = std::max(size.width(), size.height());
    if (!encoder || (shortest >= encoder->shortestSide && longest <= encoder->longestSide))
        return {};
    return Message(Code::SizeNotForCodec, {sizeText(size), codec, QString::number(encoder->shortestSide),
                                           QString::number(encoder->longestSide)});
}

Message checkVideoOptions(const Values& output, const QString& codec)
{
    const Encoder* encoder = videoEncoder(codec);
    if (!encoder)
        return {};
    const QVariant quality = output.value(QStringLiteral("quality"));
    if (quality.isValid() && encoder->highestQuality < 0)
        return Message(Code::OptionNotForCodec, {QStringLiteral("quality"), codec});
    if (quality.isValid() && quality.toInt() > encoder->highestQuality)
        return Message(Code::OutOfBounds, {QStringLiteral("Output:quality"), quality.toString(), QStringLiteral("0"),
                                           QString::number(encoder->highestQuality)});
    const QString speed = output.value(QStringLiteral("encoder-speed")).toString();
    if (speed.isEmpty())
        return {};
    if (*encoder->speeds == '\0')
        return Message(Code::OptionNotForCodec, {QStringLiteral("encoder-speed"), codec});
    if (isAmong(speed, encoder->speeds))
        return {};
    const QStringList known = QString::fromLatin1(encoder->speeds).split(QLatin1Char(' '));
    return Message(Code::NotAChoice, {QStringLiteral("Output:encoder-speed"), speed, known.join(QStringLiteral(", ")),
                                      nearest(speed, known)});
}

QStringList videoEncoderOptions(const Values& output, const QString& codec, const QString& format,
                                const QString& container)
{
    const Encoder* encoder = videoEncoder(codec);
    if (!encoder)
        return {};
    QStringList options{QStringLiteral("-c:v:0"), QString::fromLatin1(encoder->name)};
    if (encoder->highestQuality < 0)
        return options;
    const bool isX26x = codec == QLatin1String("h264") || codec == QLatin1String("hevc");
    const int quality = output.value(QStringLiteral("quality"), encoder->usualQuality).toInt();
    const QString speed =
        output.value(QStringLiteral("encoder-speed"), QString::fromLatin1(encoder->usualSpeed)).toString();
    options << (isX26x ? QStringLiteral("-preset:v:0") : QStringLiteral("-cpu-used:v:0")) << speed
            << QStringLiteral("-crf:v:0") << QString::number(quality);
    if (!isX26x)
        options << QStringLiteral("-b:v:0") << QStringLiteral("0") << QStringLiteral("-row-mt:v:0")
                << QStringLiteral("1");
    // Without loss and in other formats the encoder takes another profile by itself.
    if (codec == QLatin1String("h264") && quality > 0 && format == QLatin1String("yuv420p"))
        options << QStringLiteral("-profile:v:0") << QStringLiteral("high");
    if (codec == QLatin1String("hevc") && container != QLatin1String("mkv"))
        options << QStringLiteral("-tag:v:0") << QStringLiteral("hvc1");
    return options;
}

QStringList audioEncoderOptions(const Values& output, const QString& codec, const MediaStream& sound, int position)
{
    const QString which = QStringLiteral(":a:%1").arg(position);
    QStringList options{QStringLiteral("-c") + which, encoderOf(codec)};
    if (codec == QLatin1String("flac"))
        return options;
    constexpr int stereo = 2;
    const int usual = codec == QLatin1String("opus") ? 64 : codec == QLatin1String("mp3") ? 96 : 80; // A channel.
    const int channels = codec == QLatin1String("mp3") ? stereo : std::max(sound.channels, stereo);
    const int bitrate = output.value(QStringLiteral("audio-bitrate"), usual * channels).toInt();
    return options << QStringLiteral("-b") + which << QString::number(bitrate) + QLatin1Char('k');
}

QString audioEncoderFilter(const QString& codec, const MediaStream& sound)
{
    constexpr int stereo = 2;
    // Loudspeakers at the side it can only describe in a way that many players do not read; those behind are the same.
    const bool isOfSide =
        sound.channelLayout == QLatin1String("5.1(side)") || sound.channelLayout == QLatin1String("5.0(side)");
    if (codec == QLatin1String("aac") && isOfSide)
        return QStringLiteral("aformat=channel_layouts=") + sound.channelLayout.left(3);
    if (sound.channels <= stereo)
        return {};
    if (codec == QLatin1String("mp3"))
        return QStringLiteral("aformat=channel_layouts=stereo");
    // The encoder refuses other layouts of as many channels.
    return codec == QLatin1String("opus") ? QStringLiteral("aformat=channel_layouts=7.1|6.1|5.1|5.0|quad|3.0|stereo")
                                          : QString();
}

} // namespace zokit
