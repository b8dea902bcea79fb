// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "clips.h"

#include <unistd.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <zokit/child.h>
#include <zokit/tools.h>

namespace clips {

namespace {

struct Recipe {
    const char* name;
    const char* arguments; ///< Of ffmpeg, with blanks between; {NAME} is another clip or text.
};

// What stands again and again.
#define PICTURE "-f lavfi -i testsrc2=s=160x120:r=25:d=0.4 "
#define SOUND "-f lavfi -i sine=d=0.4 "
#define X264 "-c:v libx264 -preset ultrafast -pix_fmt yuv420p "
#define TURNED "-i {plain.mp4} -c copy -metadata:s:v:0 rotate="
#define HDR(transfer)                                                                                                  \
    "-c:v libx265 -preset ultrafast -pix_fmt yuv420p10le -x265-params "                                                \
    "log-level=error:hdr10=1:colorprim=bt2020:colormatrix=bt2020nc:transfer=" transfer                                 \
    ":master-display=G(13250,34500)B(7500,3000)R(34000,16000)WP(15635,16450)L(10000000,50):max-cll=1000,400"

// clang-format off
constexpr Recipe recipes[] = {
    // Containers
    {"plain.mp4",        PICTURE SOUND X264 "-c:a aac"},
    {"plain.mkv",        "-i {plain.mp4} -c copy"},
    {"plain.mov",        "-i {plain.mp4} -c copy"},
    {"plain.ts",         "-i {plain.mp4} -c copy"},
    {"no-rate.ts",       "-i {plain.mp4} -c copy -bsf:a noise=drop=1"}, // Sound that is announced, and not there.
    {"plain.flv",        "-i {plain.mp4} -c copy"},
    {"plain.webm",       PICTURE SOUND "-c:v libvpx -deadline realtime -cpu-used 8 -c:a libvorbis"},
    {"plain.avi",        PICTURE SOUND "-c:v mpeg4 -c:a libmp3lame"},
    {"plain.mpg",        PICTURE SOUND "-c:v mpeg2video -c:a mp2"},
    {"small.mpg",        "-f lavfi -i testsrc2=s=176x144:r=25:d=1 -c:v mpeg2video"}, // Several pictures with one time.
    {"plain.ogv",        PICTURE SOUND "-c:v libtheora -c:a libvorbis"},
    {"sound.wav",        SOUND},
    {"sound.mp3",        SOUND "-c:a libmp3lame"},
    {"sound.flac",       SOUND "-c:a flac"},
    {"sound.m4a",        SOUND "-c:a aac"},
    {"raw.h264",         PICTURE X264},
    {"still.png",        "-f lavfi -i color=red:s=64x48 -frames:v 1"},
    {"still.jpg",        "-f lavfi -i color=red:s=64x48 -frames:v 1 -pix_fmt yuvj420p"},
    {"huge.png",         "-f lavfi -i color=red:s=9000x9000 -frames:v 1"}, // 81 million pixels.
    // Lossless, to compare frames and samples with
    {"lossless.mkv",     PICTURE SOUND "-c:v ffv1 -pix_fmt yuv420p -colorspace bt709 -color_range tv -c:a pcm_s16le"},
    {"silent.mkv",       PICTURE "-c:v ffv1 -pix_fmt yuv420p"},
    // Turned, and with pixels that are not square
    {"rotate90.mp4",     TURNED "90"},
    {"rotate180.mp4",    TURNED "180"},
    {"rotate270.mp4",    TURNED "270"},
    {"anamorphic.mp4",   PICTURE "-vf setsar=4/3 " X264},
    {"rotate90-anamorphic.mp4", "-i {anamorphic.mp4} -c copy -metadata:s:v:0 rotate=90"},
    {"no-aspect.mkv",    PICTURE "-vf setsar=0 -c:v ffv1 -pix_fmt yuv420p"},
    // Rates and fields
    {"variable.mp4",     "-f lavfi -i testsrc2=s=160x120:r=30:d=1 -vf select=lt(n\\,10)+not(mod(n\\,2)) -fps_mode vfr " X264},
    {"top-first.mkv",    PICTURE "-vf setfield=tff -c:v mpeg2video -flags +ildct+ilme -top 1"},
    {"bottom-first.mkv", PICTURE "-vf setfield=bff -c:v mpeg2video -flags +ildct+ilme -top 0"},
    {"fields90.mp4",     "-i {top-first.mkv} -c copy -metadata:s:v:0 rotate=90"},
    {"fields180.mp4",    "-i {top-first.mkv} -c copy -metadata:s:v:0 rotate=180"},
    {"fields270.mp4",    "-i {top-first.mkv} -c copy -metadata:s:v:0 rotate=270"},
    // Colours
    {"bt709.mkv",        PICTURE X264 "-colorspace bt709 -color_primaries bt709 -color_trc bt709 -color_range tv"},
    {"bt601.mkv",        PICTURE X264 "-colorspace smpte170m -color_primaries smpte170m -color_trc smpte170m -color_range pc"},
    {"full-range.mkv",   PICTURE "-c:v mjpeg -pix_fmt yuvj420p"},
    {"red709.mkv",       "-f lavfi -i color=red:s=64x48:d=0.2 -vf format=yuv420p,lutyuv=63:102:240 -c:v ffv1 -colorspace bt709 -color_range tv"},
    {"red601.mkv",       "-f lavfi -i color=red:s=64x48:d=0.2 -vf format=yuv420p,lutyuv=81:90:240 -c:v ffv1 -colorspace smpte170m -color_range tv"},
    {"red-full.mkv",     "-f lavfi -i color=red:s=64x48:d=0.2 -vf format=yuv444p,lutyuv=54:99:255 -c:v ffv1 -colorspace bt709 -color_range pc"},
    {"red-deep.mkv",     "-f lavfi -i color=red:s=64x48:d=0.2 -vf format=yuv420p10le,lutyuv=250:409:960 -c:v ffv1 -colorspace bt709 -color_range tv"},
    {"wide.mkv",         "-f lavfi -i testsrc2=s=1280x16:r=25:d=0.2 " X264},
    {"high.mkv",         "-f lavfi -i testsrc2=s=16x720:r=25:d=0.2 " X264},
    {"pq.mkv",           PICTURE HDR("smpte2084")},
    {"hlg.mkv",          PICTURE HDR("arib-std-b67")},
    {"half-tagged.mkv",  PICTURE "-c:v libx265 -preset ultrafast -pix_fmt yuv420p10le -x265-params log-level=error:transfer=smpte2084"},
    {"hevc.mkv",         PICTURE "-c:v libx265 -preset ultrafast -pix_fmt yuv420p -x265-params log-level=error"},
    {"side.mkv",         "-f lavfi -i aevalsrc=0.1|0.1|0.1|0.1|0.1|0.1:c=5.1(side):d=0.4 -c:a ac3"},
    {"grey-full.mkv",    PICTURE "-c:v ffv1 -pix_fmt gray -color_range pc"},
    {"rgb.mkv",          "-f lavfi -i color=0xc08040:s=64x48:d=0.2 -c:v libx264rgb -preset ultrafast -crf 0 -color_range pc"},
    {"ten-bit.mkv",      PICTURE "-c:v ffv1 -pix_fmt yuv420p10le"},
    // Tracks
    {"cover.mp3",        SOUND "-i {still.jpg} -map 0 -map 1 -c:a libmp3lame -c:v copy -disposition:v attached_pic"},
    {"cover.mp4",        "-i {plain.mp4} -i {still.jpg} -map 0 -map 1 -c copy -disposition:v:1 attached_pic"},
    {"cover.mkv",        "-i {plain.mp4} -c copy -attach {still.jpg} -metadata:s:t:0 mimetype=image/jpeg -metadata:s:t:0 filename=cover.jpg"},
    {"attachment.mkv",   "-i {plain.mp4} -c copy -attach {still.png} -metadata:s:t:0 mimetype=application/x-truetype-font -metadata:s:t:0 filename=own.ttf"},
    {"two-videos.mkv",   PICTURE "-f lavfi -i testsrc2=s=80x60:r=25:d=0.4 -map 0 -map 1 -c:v ffv1 -pix_fmt yuv420p -disposition:v:0 0 -disposition:v:1 default"},
    {"languages.mkv",    "-i {plain.mp4} -f srt -i {text.srt} -map 0:v -map 0:a -map 0:a -map 1 -map 1 -c copy -c:s:1 ass "
                         "-metadata:s:a:0 language=fra -metadata:s:a:0 title=Original -metadata:s:a:1 language=eng -metadata:s:s:0 language=ger "
                         "-disposition:a:0 default -disposition:a:1 comment -disposition:s:0 forced -disposition:s:1 hearing_impaired"},
    {"two-sounds.mka",   "-f lavfi -i sine=440:d=0.3 -f lavfi -i sine=880:d=0.3 -map 0 -map 1 -c:a pcm_s16le"},
    {"graphic.mkv",      "-i {plain.mp4} -f sup -i {graphic.sup} -map 0 -map 1 -c copy"},
    {"dvdsub.mkv",       "-i {plain.mp4} -f sup -i {graphic.sup} -map 0 -map 1 -c copy -c:s dvdsub"},
    {"serif.mkv",        "-i {silent.mkv} -i {serif.ass} -map 0 -map 1 -c copy"}, // In a font that is there.
    {"brought.mkv",      "-i {silent.mkv} -i {brought.ass} -map 0 -map 1 -c copy -attach {still.png} -metadata:s:t:0 mimetype=image/png "
                         "-metadata:s:t:0 filename=still.png -attach {brought.ttf} -metadata:s:t:1 mimetype=font/ttf -metadata:s:t:1 filename=brought.ttf "
                         "-attach {brought.ass} -metadata:s:t:2 mimetype=text/x-notes -metadata:s:t:2 filename=notes.ass "
                         "-attach {brought.ttf} -metadata:s:t:3 mimetype=application/octet-stream -metadata:s:t:3 filename=OTHER.TTF "
                         "-attach {brought.ttf} -metadata:s:t:4 mimetype=application/x-font-other -metadata:s:t:4 filename=third"},
    {"cover-and-font.mkv", "-i {plain.mp4} -c copy -attach {still.jpg} -metadata:s:t:0 mimetype=image/jpeg -metadata:s:t:0 filename=cover.jpg "
                         "-attach {still.png} -metadata:s:t:1 mimetype=application/x-truetype-font -metadata:s:t:1 filename=own.ttf"},
    {"big-endian.mov",   SOUND "-c:a pcm_f32be"},
    {"chapters.mkv",     "-i {plain.mp4} -f ffmetadata -i {chapters.txt} -map 0 -c copy -map_metadata 1"},
    // Times
    {"late.ts",          "-i {plain.mp4} -c copy -output_ts_offset 10"},
    {"counting.mkv",     "-f lavfi -i nullsrc=s=64x48:r=25:d=4,format=yuv420p,geq=16+2*N:128:128 -c:v ffv1 -colorspace bt709 -color_range tv"},
    {"long.mpg",         "-f lavfi -i testsrc2=s=176x144:r=25:d=3 -f lavfi -i sine=d=3 -c:v mpeg2video -c:a mp2"},
    {"long.ts",          "-f lavfi -i testsrc2=s=160x120:r=25:d=8 " X264 "-g 100 -bf 2"},
    {"longer.ts",        "-f lavfi -i testsrc2=s=160x120:r=25:d=17 -f lavfi -i sine=d=17 " X264 "-g 250 -bf 2 -c:a mp2"},
    {"gap.mkv",          "-f lavfi -i testsrc2=s=160x120:r=25:d=8 -vf select=lt(n\\,10)+gt(n\\,180) -fps_mode vfr -c:v ffv1 -pix_fmt yuv420p"},
    {"uneven.mkv",       "-f lavfi -i testsrc2=s=160x120:r=193/10:d=0.3 -vf settb=1/1000,setpts=N*50+mod(N*N\\,5)*6 -fps_mode passthrough -enc_time_base 1/1000 " X264},
    {"uneven.mp4",       "-i {uneven.mkv} -map 0 -c copy"},
    {"rare.mp4",         "-f lavfi -i testsrc2=s=160x120:r=30:d=2.1 -vf select=lt(n\\,3)+eq(n\\,30)+eq(n\\,60) -fps_mode vfr -bf 0 " X264},
    {"late-sound.mkv",   PICTURE "-itsoffset 0.2 -f lavfi -i sine=d=0.2 -c:v ffv1 -pix_fmt yuv420p -c:a pcm_s16le"},
    {"two-sounds.mkv",   "-f lavfi -i testsrc2=s=64x48:r=5:d=3 -f lavfi -i aevalsrc=1/16:s=8000:d=3 -f lavfi -i aevalsrc=1/8:s=8000:d=3 "
                         "-map 0 -map 1 -map 2 -c:v ffv1 -pix_fmt yuv420p -c:a pcm_s16le"},
    {"live.mkv",         "-i {two-sounds.mkv} -map 0 -c copy -live 1"},
    {"live.mka",         SOUND "-c:a pcm_s16le -f matroska -live 1"},
    {"pq-sound.mkv",     "-i {pq.mkv} " SOUND "-map 0 -map 1 -c:v copy -c:a pcm_s16le"},
    {"palette.mkv",      PICTURE "-c:v png -pix_fmt pal8"},
    {"rising.wav",       "-f lavfi -i aevalsrc=t:s=8000:d=1"}, // Sample N is 4.096 N.
    {"deep.wav",         "-f lavfi -i aevalsrc=-1/2:s=8000:d=1"},
    {"talking.mkv",      "-f lavfi -i testsrc2=s=160x120:r=25:d=2 -f srt -i {talk.srt} " X264 "-c:s srt"},
    {"long.mkv",         "-f lavfi -i testsrc2=s=64x48:r=2:d=127 -f srt -i {long.srt} " X264 "-g 250 -c:s srt"},
    {"late-picture.mkv", "-itsoffset 0.5 -i {silent.mkv} -i {sound.wav} -map 0 -map 1 -c:v copy"},
    {"streamed.mkv",     "-i {plain.mp4} -c copy -seekable 0"}, // No length in it, as written to a pipe.
};

#define SCRIPT(family) /* The usual size of such a script is 384x288. */                                               \
    "[Script Info]\nScriptType: v4.00+\n\n[V4+ Styles]\nFormat: Name, Fontname, Fontsize, PrimaryColour, Alignment\n"  \
    "Style: Default," family ",60,&H00FFFFFF,5\n\n[Events]\n"                                                          \
    "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"                                \
    "Dialogue: 0,0:00:00.00,0:00:00.40,Default,,0,0,0,,Right\n"

/// Files that are not made by ffmpeg.
struct Text {
    const char* name;
    const char* content;
};
constexpr Text texts[] = {
    {"text.srt",     "1\n00:00:00,100 --> 00:00:00,300\nHello\n"},
    {"talk.srt",     "1\n00:00:00,500 --> 00:00:00,600\nOne\n\n2\n00:00:01,000 --> 00:00:01,200\nTwo\n\n"
                     "3\n00:00:01,600 --> 00:00:01,800\nThree\n"},
    {"long.srt",     "1\n00:00:01,000 --> 00:02:05,000\nTitle\n\n2\n00:00:02,000 --> 00:00:03,500\nGone\n\n"
                     "3\n00:02:05,500 --> 00:02:06,500\nEnd\n"},
    {"serif.ass",    SCRIPT("DejaVu Serif")},
    {"brought.ass",  SCRIPT("ZoJaVu Serif")},
    {"chapters.txt", ";FFMETADATA1\ntitle=Feature\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=200\ntitle=One\n"
                     "[CHAPTER]\nTIMEBASE=1/1000\nSTART=200\nEND=400\ntitle=Two\n"},
};
// clang-format on

void put(QByteArray& bytes, int size, quint32 value)
{
    while (--size >= 0)
        bytes.append(static_cast<char>(value >> (8 * size) & 0xffU));
}

/// A segment of presentation graphics: "PG", two times of 1/90000 s, kind, size.
QByteArray segment(double seconds, quint32 kind, const QByteArray& content)
{
    QByteArray bytes("PG");
    put(bytes, 4, static_cast<quint32>(seconds * 90000));
    put(bytes, 4, 0);
    put(bytes, 1, kind);
    put(bytes, 2, static_cast<quint32>(content.size()));
    return bytes + content;
}

/// What is seen from now on: nothing, or object 0 at (20, 80) of window 0.
QByteArray composition(quint32 number, bool isShown)
{
    QByteArray bytes;
    put(bytes, 2, 160);
    put(bytes, 2, 120);
    put(bytes, 1, 0x10);
    put(bytes, 2, number);
    put(bytes, 1, isShown ? 0x80 : 0);
    put(bytes, 2, 0);
    put(bytes, 1, isShown ? 1 : 0);
    if (isShown) {
        put(bytes, 4, 0);
        put(bytes, 2, 20);
        put(bytes, 2, 80);
    }
    return bytes;
}

QByteArray window()
{
    QByteArray bytes;
    put(bytes, 2, 0x0100);
    for (const quint32 value : {20U, 80U, 40U, 20U})
        put(bytes, 2, value);
    return bytes;
}

/// Colour 1 is white and opaque.
QByteArray palette()
{
    QByteArray bytes;
    put(bytes, 2, 0);
    for (const quint32 value : {1U, 235U, 128U, 128U, 255U})
        put(bytes, 1, value);
    return bytes;
}

/// 20 lines, each a run of 40 times colour 1.
QByteArray object()
{
    QByteArray lines;
    for (int line = 0; line < 20; ++line)
        lines += QByteArray("\x00\xa8\x01\x00\x00", 5);
    QByteArray bytes;
    put(bytes, 2, 0);
    put(bytes, 2, 0x00c0);
    put(bytes, 3, static_cast<quint32>(lines.size()) + 4);
    put(bytes, 2, 40);
    put(bytes, 2, 20);
    return bytes + lines;
}

/// What is made by a recipe that has changed is another file.
QString pathOf(const QString& name, const QByteArray& recipe)
{
    const QByteArray hash = QCryptographicHash::hash(recipe, QCryptographicHash::Sha1).toHex().left(8);
    const QString folder = QStringLiteral(CLIPS_FOLDER "/") + QString::fromLatin1(hash);
    return QDir().mkpath(folder) ? folder + QLatin1Char('/') + name : QString();
}

/// Under another name first: programs that make the same file at the same time replace it by its like.
QString written(const QString& path, const QByteArray& content)
{
    if (QFile::exists(path))
        return path;
    const QByteArray part = QFile::encodeName(path + QStringLiteral(".%1").arg(getpid()));
    QFile file(QFile::decodeName(part));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        return QString();
    file.close();
    return rename(part.constData(), QFile::encodeName(path).constData()) == 0 ? path : QString();
}

/// A font under a name that nobody has installed.
QByteArray broughtFont()
{
    QFile file(QStringLiteral("/usr/share/fonts/truetype/dejavu/DejaVuSerif.ttf"));
    QByteArray font = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    font.replace("DejaVu", "ZoJaVu");
    font.replace(QByteArray("D\0e\0j\0a", 7), QByteArray("Z\0o\0J\0a", 7));
    return font;
}

QString made(const Recipe& recipe)
{
    const QString path = pathOf(QString::fromLatin1(recipe.name), recipe.arguments);
    if (QFile::exists(path))
        return path;
    zokit::Command command;
    command.program = zokit::findTools().ffmpeg;
    command.seconds = 60;
    command.arguments << QStringLiteral("-v") << QStringLiteral("error") << QStringLiteral("-nostdin")
                      << QStringLiteral("-y");
    const QStringList words = QString::fromLatin1(recipe.arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const bool isClip = word.startsWith(QLatin1Char('{'));
        command.arguments << (isClip ? clip(word.mid(1, word.size() - 2)) : word);
    }
    const QFileInfo file(path);
    const QString part = file.path() + QStringLiteral("/%1.").arg(getpid()) + file.fileName();
    command.arguments << part;
    const zokit::ChildResult result = zokit::run(command);
    if (result.isGood() && rename(QFile::encodeName(part).constData(), QFile::encodeName(path).constData()) == 0)
        return path;
    qWarning("%s cannot be made: %s", recipe.name, result.words.constData());
    return QString();
}

/// Presentation graphics subtitles (.sup): a white box of 40x20 at (20, 80) on a canvas of 160x120, from 0.1 to 0.3 s.
QByteArray graphicSubtitles()
{
    constexpr quint32 paletteKind = 0x14;
    constexpr quint32 objectKind = 0x15;
    constexpr quint32 compositionKind = 0x16;
    constexpr quint32 windowKind = 0x17;
    constexpr quint32 endKind = 0x80;
    constexpr double from = 0.1;
    constexpr double to = 0.3;
    return segment(from, compositionKind, composition(0, true)) + segment(from, windowKind, window())
           + segment(from, paletteKind, palette()) + segment(from, objectKind, object())
           + segment(from, endKind, QByteArray()) + segment(to, compositionKind, composition(1, false))
           + segment(to, windowKind, window()) + segment(to, endKind, QByteArray());
}

} // namespace

QString clip(const QString& name)
{
    if (name == QLatin1String("graphic.sup"))
        return written(pathOf(name, graphicSubtitles()), graphicSubtitles());
    if (name == QLatin1String("brought.ttf"))
        return written(pathOf(name, "font"), broughtFont());
    for (const Text& text : texts) {
        if (name == QLatin1String(text.name))
            return written(pathOf(name, text.content), text.content);
    }
    for (const Recipe& recipe : recipes) {
        if (name == QLatin1String(recipe.name))
            return made(recipe);
    }
    qWarning("there is no clip %s", qPrintable(name));
    return QString();
}

} // namespace clips
