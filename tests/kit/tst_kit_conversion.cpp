// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Conversions of small clips by the real ffmpeg: what becomes of each track, what the result holds, and what is left
// where one fails.
#include <cstdlib>

#include <QDir>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <zokit/conversion.h>
#include <zokit/placement.h>
#include <zokit/queue.h>

#include "childwatch.h"
#include "clips.h"
#include "conversionsupport.h"
#include "testapplication.h"

using namespace conversionsupport;
using zokit::Conversion;
using zokit::ConversionResult;
using zokit::Job;
using zokit::MediaInfo;
using zokit::Outcome;

Q_DECLARE_METATYPE(zokit::FailureKind)

namespace {

QString codecs(const MediaInfo& media)
{
    QStringList words;
    for (const zokit::MediaStream& stream : media.streams)
        words.append(stream.track.codec + (stream.isCover ? QStringLiteral("(cover)") : QString()));
    return words.join(QLatin1Char(' '));
}

/// How it ends; where a folder for \a helpers is named, it is only prepared.
ConversionResult resultOf(Conversion& conversion, const Job& job, const QString& helpers = QString())
{
    QSignalSpy finished(&conversion, &Conversion::finished);
    if (helpers.isEmpty())
        conversion.start(job);
    else
        conversion.prepare(job, helpers);
    if (!finished.wait(patience))
        qWarning("the conversion does not end");
    return finished.value(0).value(0).value<ConversionResult>();
}

/// A program that is this script.
bool writeProgram(const QString& path, const QString& script)
{
    QFile program(path);
    return program.open(QIODevice::WriteOnly) && program.write("#!/bin/sh\n" + script.toUtf8() + '\n') > 0
           && program.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
}

} // namespace

class TestKitConversion : public childwatch::Test {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        Test::initTestCase();
        QVERIFY(m_folder.isValid());
        QVERIFY(zokit::findTools().error.isEmpty());
    }
    void tracksFollow_data();
    void tracksFollow();
    void chosenSoundsComeOut_data();
    void chosenSoundsComeOut();
    void lineOfATrack_data();
    void lineOfATrack();
    void coloursAreKept();
    void namesAreThoseThatPlayersRead_data();
    void namesAreThoseThatPlayersRead();
    void subtitlesInOtherLettersAreRead();
    void memoryGrowsWithFrameAndThreads_data();
    void memoryGrowsWithFrameAndThreads();
    void isRefused_data();
    void isRefused();
    void failureTellsItsReason_data();
    void failureTellsItsReason();
    void damagedInputMayBeShort_data();
    void damagedInputMayBeShort();
    void helpersHaveNamesThatNothingElseHas();
    void pauseHoldsWhatHasNotBegun();
    void settingsAreFittedToTheClip();
    void helperThatCannotBeWrittenIsTold_data();
    void helperThatCannotBeWrittenIsTold();
    void skipsWhatIsThere();
    void leavesNothingWhenCancelled_data();
    void leavesNothingWhenCancelled();
    void linesTellWhatBecomesOfEachTrack();
    void linesAreGerman();
    void removesWhatADeadOneLeft();
    void queueRunsInOrder();

private:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

void TestKitConversion::tracksFollow_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<QString>("ending");
    QTest::addColumn<Edits>("edits");
    QTest::addColumn<QString>("expected");

    const Edits nothing;
    const Edits grey{{QStringLiteral("Color:bcs_saturation"), -50}};
    const Edits normalized{{QStringLiteral("Audio_Normalize:audio_effect_flag"), true}};
    const auto row = [](const char* name, const char* clip, const char* ending, const Edits& edits,
                        const char* expected) {
        QTest::newRow(name) << QString::fromUtf8(clip) << QString::fromUtf8(ending) << edits
                            << QString::fromUtf8(expected);
    };
    row("nothing is asked", "plain.mp4", "mp4", nothing, "h264 aac");
    row("the same in mkv", "plain.mp4", "mkv", nothing, "h264 aac");
    row("a colour", "plain.mp4", "mp4", grey, "h264 aac");
    row("a sound effect", "plain.mp4", "mp4", normalized, "h264 aac");
    row("to webm", "plain.mp4", "webm", nothing, "vp9 opus");
    row("languages", "languages.mkv", "mkv", nothing, "h264 aac aac subrip ass");
    row("languages to mp4", "languages.mkv", "mp4", nothing, "h264 aac aac mov_text mov_text");
    row("pictures as subtitles", "graphic.mkv", "mkv", nothing, "h264 aac hdmv_pgs_subtitle");
    row("pictures as subtitles to mp4", "graphic.mkv", "mp4", nothing, "h264 aac");
    row("a cover", "cover.mp4", "mp4", nothing, "h264 aac mjpeg(cover)");
    row("a cover to mkv", "cover.mp4", "mkv", nothing, "h264 aac mjpeg(cover)");
    row("an attachment", "attachment.mkv", "mkv", nothing, "h264 aac ttf");
    row("a cover before a font", "cover-and-font.mkv", "mkv", nothing, "h264 aac ttf mjpeg(cover)");
    row("sound that mkv has no name for", "big-endian.mov", "mkv", nothing, "aac");
    row("sound that mp4 has no name of its own for", "plain.mpg", "mp4", nothing, "mpeg2video mp3");
    row("HDR that says only half of it", "half-tagged.mkv", "mp4", grey, "h264");
    // What is left out may have been longer than the rest.
    const QString drop = QStringLiteral("Output:other-tracks");
    const QString sound = QStringLiteral("Audio");
    const QVariantMap first{{QStringLiteral("trackid"), 0}};
    const QVariantMap second{{QStringLiteral("trackid"), 1}};
    row("a sound of two", "two-sounds.mka", "mkv", {{drop, QStringLiteral("drop")}, {sound, first}}, "pcm_s16le");
    row("a picture that does not say how long it is", "live.mkv", "mkv",
        {{drop, QStringLiteral("drop")}, {sound, second}}, "ffv1 pcm_s16le");
    row("a part of it", "two-sounds.mkv", "mkv",
        {{drop, QStringLiteral("drop")}, {sound, second}, {QStringLiteral("Output:trim"), QVariantList{1.0, 2.0}}},
        "h264 aac");
    row("a picture that says it", "cover.mp4", "mov", nothing, "h264 aac");
    row("two videos", "two-videos.mkv", "mkv", grey, "h264 ffv1");
    row("sound alone", "sound.wav", "mkv", normalized, "aac");
    row("a picture without times", "small.mpg", "mkv", nothing, "mpeg2video");
    row("a turned picture to mkv", "rotate90.mp4", "mkv", nothing, "h264 aac");
    row("HDR", "pq.mkv", "mkv", grey, "h264");
    row("av1", "silent.mkv", "mkv", {{QStringLiteral("Output:video-codec"), QStringLiteral("av1")}}, "av1");
    row("ffv1", "ten-bit.mkv", "mkv", {{QStringLiteral("Output:video-codec"), QStringLiteral("ffv1")}}, "ffv1");
    row("hevc", "pq.mkv", "mp4", {{QStringLiteral("Output:video-codec"), QStringLiteral("hevc")}}, "hevc");
    row("twice as fast", "languages.mkv", "mkv",
        {{QStringLiteral("Audio_Speed:audio_effect_flag"), true},
         {QStringLiteral("Audio_Speed:audio_speed_factor"), 200}},
        "h264 aac aac subrip ass");
    row("two sounds of which one is chosen, in a part", "two-sounds.mkv", "mkv",
        {{sound, second}, {QStringLiteral("Output:trim"), QVariantList{1.0, 2.0}}}, "h264 aac aac");
    row("chapters", "chapters.mkv", "mkv", nothing, "h264 aac");
    row("chapters, twice as fast", "chapters.mkv", "mkv",
        {{QStringLiteral("Audio_Speed:audio_effect_flag"), true},
         {QStringLiteral("Audio_Speed:audio_speed_factor"), 200}},
        "h264 aac");
    row("a part of a sound", "sound.wav", "mkv", {{QStringLiteral("Output:trim"), QVariantList{0.1, 0.3}}}, "aac");
    row("a part", "chapters.mkv", "mkv", {{QStringLiteral("Output:trim"), QVariantList{0.1, 0.3}}}, "h264 aac");
    row("a watermark", "plain.mp4", "mp4",
        {{QStringLiteral("Watermark"), QVariantMap{{QStringLiteral("wm_istextwatermark"), true},
                                                   {QStringLiteral("wm_textcontent"), QStringLiteral("Hi")}}}},
        "h264 aac");
    row("a subtitle file", "plain.mp4", "mp4",
        {{QStringLiteral("Subtitle"), QVariantMap{{QStringLiteral("sub_fromfile"), true},
                                                  {QStringLiteral("file"), clips::clip(QStringLiteral("text.srt"))}}}},
        "h264 aac");
    row("a soft subtitle file", "plain.mp4", "mp4",
        {{QStringLiteral("Output:soft-subtitles"), true},
         {QStringLiteral("Subtitle"), QVariantMap{{QStringLiteral("sub_fromfile"), true},
                                                  {QStringLiteral("file"), clips::clip(QStringLiteral("text.srt"))}}}},
        "h264 aac mov_text");
    row("a soft subtitle file to mkv", "plain.mp4", "mkv",
        {{QStringLiteral("Output:soft-subtitles"), true},
         {QStringLiteral("Subtitle"), QVariantMap{{QStringLiteral("sub_fromfile"), true},
                                                  {QStringLiteral("file"), clips::clip(QStringLiteral("text.srt"))}}}},
        "h264 aac subrip");
    row("a soft subtitle file with a style to mkv", "plain.mp4", "mkv",
        {{QStringLiteral("Output:soft-subtitles"), true},
         {QStringLiteral("Subtitle"), QVariantMap{{QStringLiteral("sub_fromfile"), true},
                                                  {QStringLiteral("sub_fontsize"), 40},
                                                  {QStringLiteral("file"), clips::clip(QStringLiteral("text.srt"))}}}},
        "h264 aac ass");
    row("a sound file", "silent.mkv", "mp4",
        {{QStringLiteral("Audio"), QVariantMap{{QStringLiteral("audio_isfile"), true},
                                               {QStringLiteral("play_loop"), true},
                                               {QStringLiteral("file"), clips::clip(QStringLiteral("sound.mp3"))}}}},
        "h264 aac");
}

void TestKitConversion::tracksFollow()
{
    QFETCH(QString, clip);
    QFETCH(QString, ending);
    QFETCH(Edits, edits);
    const QString output = path(QStringLiteral("result.") + ending);
    QFile::remove(output);
    const Converted converted = convert(clips::clip(clip), edits, output);
    QVERIFY2(converted.result.outcome == Outcome::Done, qPrintable(said(converted.result)));
    QTEST(codecs(converted.media), "expected");
    QCOMPARE(converted.left, QStringList());
    QVERIFY(QFile::remove(output));
}

void TestKitConversion::chosenSoundsComeOut_data()
{
    QTest::addColumn<QVariantList>("sounds"); // Items of "Audio".
    QTest::addColumn<QString>("tracks");
    QTest::addColumn<QString>("first"); // How many samples the first sound has, and those at 0.5, 1.25 and 2.75 s.

    const auto file = [](const char* name, bool loops) {
        return QVariantMap{{QStringLiteral("audio_isfile"), true},
                           {QStringLiteral("play_loop"), loops},
                           {QStringLiteral("file"), clips::clip(QString::fromLatin1(name))}};
    };
    const QVariantMap one{{QStringLiteral("trackid"), 1}};
    const QVariantMap two{{QStringLiteral("trackid"), 2}};
    QTest::newRow("none") << QVariantList() << "ffv1 flac flac"
                          << "24000: 2048 2048 2048";
    QTest::newRow("the second track") << QVariantList{two} << "ffv1 flac pcm_s16le"
                                      << "24000: 4096 4096 4096";
    QTest::newRow("the first behind the second") << QVariantList{two, one} << "ffv1 flac flac"
                                                 << "24000: 4096 4096 4096";
    QTest::newRow("a file") << QVariantList{file("rising.wav", false)} << "ffv1 flac pcm_s16le pcm_s16le"
                            << "8000: 16384";
    QTest::newRow("another file") << QVariantList{file("deep.wav", false), one} << "ffv1 flac flac pcm_s16le"
                                  << "8000: -16384";
    QTest::newRow("a file that begins again")
        << QVariantList{file("rising.wav", true)} << "ffv1 flac pcm_s16le pcm_s16le"
        << "24000: 16384 8192 24576";
}

void TestKitConversion::chosenSoundsComeOut()
{
    QFETCH(QVariantList, sounds);
    const QString output = path(QStringLiteral("result.mkv"));
    QFile::remove(output);
    const Converted converted = convert(
        clips::clip(QStringLiteral("two-sounds.mkv")),
        {{QStringLiteral("Audio"), sounds}, {QStringLiteral("Output:audio-codec"), QStringLiteral("flac")}}, output);
    QVERIFY2(converted.result.outcome == Outcome::Done, qPrintable(said(converted.result)));
    QTEST(codecs(converted.media), "tracks");
    const QByteArray bytes =
        outputOf(zokit::findTools().ffmpeg, QStringLiteral("-v error -i FILE -map 0:a:0 -f s16le pipe:1"), output);
    QString first = QStringLiteral("%1:").arg(bytes.size() / 2);
    for (const int sample : {4000, 10000, 22000}) {
        if (2 * sample < bytes.size())
            first += QStringLiteral(" %1").arg(qFromLittleEndian<qint16>(bytes.constData() + qint64(2) * sample));
    }
    QTEST(first, "first");
    QVERIFY(QFile::remove(output));
}

void TestKitConversion::lineOfATrack_data()
{
    QTest::addColumn<int>("track"); // Of languages.mkv, which gets the codec.
    QTest::addColumn<QString>("codec");
    QTest::addColumn<QString>("container");
    QTest::addColumn<QString>("expected");

    const auto row = [](int track, const char* codec, const char* container, const char* expected) {
        QTest::addRow("%s in %s", codec, container)
            << track << QString::fromUtf8(codec) << QString::fromUtf8(container) << QString::fromUtf8(expected);
    };
    row(3, "dvb_teletext", "mkv", "track 3 (subtitle, ger, dvb_teletext): left out, because mkv holds no dvb_teletext");
    row(3, "dvb_teletext", "mp4", "track 3 (subtitle, ger, dvb_teletext): left out, because mp4 holds no dvb_teletext");
    row(3, "eia_608", "mkv", "track 3 (subtitle, ger, eia_608): converted to subrip, because mkv holds no eia_608");
    row(3, "", "mkv", "track 3 (subtitle, ger): left out, because ffmpeg does not know its codec");
    row(1, "", "mkv", "track 1 (audio, fra): left out, because ffmpeg does not know its codec");
    row(1, "pcm_dvd", "mkv", "track 1 (audio, fra, pcm_dvd): converted to aac, because mkv holds no pcm_dvd");
    row(1, "pcm_bluray", "mkv", "track 1 (audio, fra, pcm_bluray): converted to aac, because mkv holds no pcm_bluray");
    row(1, "pcm_s16be", "mkv", "track 1 (audio, fra, pcm_s16be): copied");
}

void TestKitConversion::lineOfATrack()
{
    QFETCH(int, track);
    QFETCH(QString, codec);
    QFETCH(QString, container);
    MediaInfo media = zokit::probe(zokit::findTools(), clips::clip(QStringLiteral("languages.mkv"))).media.value();
    media.streams[track].track.codec = codec;
    const zokit::TracksPlan plan = zokit::planTracks(settingsFor(media, {}), media, {}, container);
    QTEST(plan.tracks.value(track).line().text(), "expected");
}

/// RGB of full range becomes YUV of limited range, and says so.
void TestKitConversion::coloursAreKept()
{
    const QString output = path(QStringLiteral("result.mp4"));
    const Converted converted = convert(clips::clip(QStringLiteral("rgb.mkv")),
                                        {{QStringLiteral("Output:video-codec"), QStringLiteral("h264")}}, output);
    QVERIFY2(converted.result.outcome == Outcome::Done, qPrintable(said(converted.result)));
    QCOMPARE(converted.media.picture()->range, QStringLiteral("tv"));
    const QString words = QStringLiteral("-v error -i FILE -frames:v 1 -vf crop=2:2:20:20:exact=1,format=rgb24 "
                                         "-f rawvideo pipe:1");
    const QByteArray pixel = outputOf(zokit::findTools().ffmpeg, words, output).left(3);
    const auto isNear = [&](int channel, int value) { return std::abs(uchar(pixel[channel]) - value) <= 4; };
    QVERIFY2(pixel.size() == 3 && isNear(0, 0xc0) && isNear(1, 0x80) && isNear(2, 0x40), pixel.toHex());
    QVERIFY(QFile::remove(output));
}

void TestKitConversion::namesAreThoseThatPlayersRead_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<Edits>("edits");
    QTest::addColumn<QString>("entry"); // Of a stream, as ffprobe calls it.
    QTest::addColumn<QString>("expected");
    QTest::newRow("hevc that is copied") << "hevc.mkv" << Edits{} << "codec_tag_string"
                                         << "hvc1";
    QTest::newRow("loudspeakers at the side")
        << "side.mkv" << Edits{{QStringLiteral("Output:audio-codec"), QStringLiteral("aac")}} << "channel_layout"
        << "5.1";
}

void TestKitConversion::namesAreThoseThatPlayersRead()
{
    QFETCH(QString, clip);
    QFETCH(Edits, edits);
    QFETCH(QString, entry);
    const QString output = path(QStringLiteral("result.mp4"));
    const Converted converted = convert(clips::clip(clip), edits, output);
    QVERIFY2(converted.result.outcome == Outcome::Done, qPrintable(said(converted.result)));
    const QString words = QStringLiteral("-v error -show_entries stream=%1 -of csv=p=0 FILE").arg(entry);
    QTEST(QString::fromLatin1(outputOf(zokit::findTools().ffprobe, words, output).trimmed()), "expected");
    QVERIFY(QFile::remove(output));
}

void TestKitConversion::subtitlesInOtherLettersAreRead()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("latin.srt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("1\n00:00:00,100 --> 00:00:00,300\nGr\xfc\xdf"
                       "e\n")
            > 0);
    file.close();
    for (const char* ending : {"mkv", "mp4"}) {
        const QString output = path(QStringLiteral("result.") + QLatin1String(ending));
        const Converted converted =
            convert(clips::clip(QStringLiteral("silent.mkv")),
                    {{QStringLiteral("Output:soft-subtitles"), true},
                     {QStringLiteral("Output:video-codec"), QStringLiteral("h264")},
                     {QStringLiteral("Subtitle"),
                      QVariantMap{{QStringLiteral("sub_fromfile"), true}, {QStringLiteral("file"), file.fileName()}}}},
                    output);
        QVERIFY2(converted.result.outcome == Outcome::Done, qPrintable(said(converted.result)));
        const QString words = QStringLiteral("-v error -i FILE -map 0:s -f srt pipe:1");
        QVERIFY(outputOf(zokit::findTools().ffmpeg, words, output)
                    .contains("Gr\xc3\xbc\xc3\x9f"
                              "e"));
        QVERIFY(QFile::remove(output));
        if (ending == QByteArray("mkv"))
            QCOMPARE(converted.lines.last(),
                     QStringLiteral("track latin.srt (subtitle, subrip): converted to subrip, because "
                                    "its letters are not in UTF-8"));
    }
}

void TestKitConversion::memoryGrowsWithFrameAndThreads_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("threads");
    QTest::addColumn<qint64>("least"); // What ffmpeg with libx264 was seen to take.
    QTest::addColumn<qint64>("expected");
    constexpr qint64 megabyte = 1048576;
    QTest::newRow("small") << QSize(160, 120) << 1 << 200 * megabyte << qint64(4362383360);
    QTest::newRow("4K, 16 threads") << QSize(3840, 2160) << 16 << 4053 * megabyte << qint64(7492075520);
    QTest::newRow("4K, 32 threads") << QSize(3840, 2160) << 32 << 6343 * megabyte << qint64(10689183744);
    QTest::newRow("8K, 32 threads") << QSize(7680, 4320) << 32 << 6343 * megabyte << qint64(36121346048);
}

void TestKitConversion::memoryGrowsWithFrameAndThreads()
{
    QFETCH(QSize, size);
    QFETCH(int, threads);
    QFETCH(qint64, least);
    MediaInfo media = zokit::probe(zokit::findTools(), clips::clip(QStringLiteral("silent.mkv"))).media.value();
    media.streams.first().coded = size;
    Job job;
    job.settings = settingsFor(media, {});
    job.threads = threads;
    const zokit::TracksPlan plan = zokit::planTracks(job.settings, media, {}, QStringLiteral("mkv"));
    const zokit::Command command = zokit::convertCommand(zokit::findTools(), job, media, {}, plan, {}, QString());
    QTEST(command.memory, "expected");
    QVERIFY(command.memory > least);
}

void TestKitConversion::isRefused_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<QString>("output");
    QTest::addColumn<Edits>("edits");
    QTest::addColumn<QString>("expected"); // PATH stands for the folder of the results.

    const Edits nothing;
    const auto row = [](const char* name, const char* clip, const char* output, const Edits& edits,
                        const char* expected) {
        QTest::newRow(name) << QString::fromUtf8(clip) << QString::fromUtf8(output) << edits
                            << QString::fromUtf8(expected);
    };
    row("a file is there", "plain.mp4", "there.mp4", nothing,
        "PATH/there.mp4 exists. Add --existing skip or --existing replace.");
    row("a folder is there", "plain.mp4", "folder.mp4", nothing,
        "PATH/folder.mp4 is a folder. Give the name of a file, or use --output-folder.");
    row("no such folder", "plain.mp4", "nowhere/result.mp4", nothing,
        "PATH/nowhere cannot be written: No such file or directory.");
    row("a codec that webm lacks", "plain.mp4", "result.webm",
        {{QStringLiteral("Output:video-codec"), QStringLiteral("h264")}},
        "webm cannot hold h264. Choose another container, for example mkv, or another codec.");
    row("a copy that a colour changes", "plain.mp4", "result.mp4",
        {{QStringLiteral("Output:video-codec"), QStringLiteral("copy")}, {QStringLiteral("Color:bcs_contrast"), 10}},
        "video-codec copy leaves the track as it is, but another setting changes it. Leave out one of the two.");
    row("a quality beyond the scale", "plain.mp4", "result.mp4", {{QStringLiteral("Output:quality"), 60}},
        "Output:quality: 60 is not between 0 and 51.");
    row("a speed of no encoder", "plain.mp4", "result.mp4",
        {{QStringLiteral("Output:encoder-speed"), QStringLiteral("slo")}},
        "Output:encoder-speed: slo is none of ultrafast, superfast, veryfast, faster, fast, medium, slow, slower, "
        "veryslow, placebo. Did you mean slow?");
    row("a link that leads nowhere", "plain.mp4", "link.mp4", nothing,
        "PATH/link.mp4 exists. Add --existing skip or --existing replace.");
    row("a part behind the end", "plain.mp4", "result.mp4", {{QStringLiteral("Output:trim"), QVariantList{5.0, 6.0}}},
        "The part begins at 5 s, and the clip ends at 0.4 s. Give an earlier one.");
}

void TestKitConversion::isRefused()
{
    QFETCH(QString, clip);
    QFETCH(QString, output);
    QFETCH(Edits, edits);
    QFETCH(QString, expected);
    QFile there(path(QStringLiteral("there.mp4")));
    QVERIFY(there.open(QIODevice::WriteOnly) && there.write("mine") == 4);
    there.close();
    QDir(m_folder.path()).mkdir(QStringLiteral("folder.mp4"));
    QVERIFY(QFile::link(path(QStringLiteral("nothing")), path(QStringLiteral("link.mp4"))));
    const Converted converted = convert(clips::clip(clip), edits, path(output));
    QVERIFY(converted.result.outcome == Outcome::Failed);
    QVERIFY(converted.result.kind == zokit::FailureKind::Lasting);
    QCOMPARE(converted.result.reason.text().replace(m_folder.path(), QStringLiteral("PATH")), expected);
    QVERIFY(there.open(QIODevice::ReadOnly));
    QCOMPARE(there.readAll(), QByteArray("mine"));
    QVERIFY(there.remove());
    QVERIFY(QFile::remove(path(QStringLiteral("link.mp4"))));
    QVERIFY(QDir(path(QStringLiteral("folder.mp4"))).removeRecursively());
    QCOMPARE(QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

void TestKitConversion::failureTellsItsReason_data()
{
    QTest::addColumn<QString>("script"); // Instead of ffmpeg; empty: there is no such program.
    QTest::addColumn<Edits>("edits");
    QTest::addColumn<zokit::FailureKind>("kind");
    QTest::addColumn<QString>("expected"); // With the warnings.

    const auto row = [](const char* name, const char* script, const Edits& edits, zokit::FailureKind kind,
                        const char* expected) {
        QTest::newRow(name) << QString::fromUtf8(script) << edits << kind << QString::fromUtf8(expected);
    };
    using zokit::FailureKind;
    const QVariantMap file{{QStringLiteral("sub_fromfile"), true},
                           {QStringLiteral("file"), clips::clip(QStringLiteral("text.srt"))}};
    row("a full disk", "echo 'av_interleaved_write_frame(): No space left on device' >&2; exit 1", {},
        FailureKind::Temporary, "ffmpeg failed: av_interleaved_write_frame(): No space left on device");
    row("a disk that is full at the very end", // ffmpeg 5.1 ends well then.
        "for last; do :; done; cp \"CLIP\" \"${last#file:}\"; "
        "echo 'Error writing trailer of file:x: No space left on device' >&2; exit 0",
        {}, FailureKind::Temporary, "ffmpeg failed: Error writing trailer of file:x: No space left on device");
    row("a file that cannot be closed",
        "for last; do :; done; cp \"CLIP\" \"${last#file:}\"; "
        "echo 'Error closing file file:x: Input/output error' >&2; exit 0",
        {}, FailureKind::Lasting, "ffmpeg failed: Error closing file file:x: Input/output error");
    row("an encoder that this ffmpeg lacks", "echo \"Unknown encoder 'libx264'\" >&2; exit 1", {}, FailureKind::Setup,
        "ffmpeg failed: Unknown encoder 'libx264'");
    row("what it says of the file", "echo 'Invalid data found' >&2; exit 1", {}, FailureKind::Lasting,
        "ffmpeg failed: Invalid data found");
    row("killed", "kill -9 $$", {}, FailureKind::Temporary,
        "ffmpeg was ended by signal 9. Try again, with more memory at hand.");
    row("killed while it measures", "kill -9 $$", {{QStringLiteral("Audio_Normalize:audio_effect_flag"), true}},
        FailureKind::Temporary, "ffmpeg was ended by signal 9. Try again, with more memory at hand.");
    row("a peak that it does not tell", "exit 0", {{QStringLiteral("Audio_Normalize:audio_effect_flag"), true}},
        FailureKind::Lasting, "The peak of the sound could not be measured. Leave Audio_Normalize out.");
    const Edits cut{{QStringLiteral("Output:video-codec"), QStringLiteral("copy")},
                    {QStringLiteral("Output:trim"), QVariantList{0.1, 0.3}}};
    const char* const noKeyFrame =
        "From 0.100 s on there is no key frame with which a copy could begin. Leave out video-codec copy.";
    row("a key frame that is not told", "exit 0", cut, FailureKind::Lasting, noKeyFrame);
    row("a key frame without its time", "echo '#tb 0: 1/1000'", cut, FailureKind::Lasting, noKeyFrame);
    row("a key frame of no unit", "echo '#tb 0: 1/0'; echo '0, 1, 2, 3'", cut, FailureKind::Lasting, noKeyFrame);
    row("a time of no unit", "echo '0, 1, 2, 3'", cut, FailureKind::Lasting, noKeyFrame);
    row("no key frame to ask for, and no copy", "exit 1", cut, FailureKind::Lasting, "ffmpeg failed: ");
    row("subtitles without a line", "case \"$*\" in *-progress*) exit 1;; esac", {{QStringLiteral("Subtitle"), file}},
        FailureKind::Lasting, "ffmpeg failed: \nThe subtitles hold no line.");
    row("another result", "for last; do :; done; cp SILENT \"${last#file:}\"", {}, FailureKind::Lasting,
        "The result should hold h264, and holds ffv1. It was not kept.");
    row("no program", "", {}, FailureKind::Setup, "ffmpeg could not be started");
    row("a sound file that is none", "exit 0",
        {{QStringLiteral("Audio"),
          QVariantMap{{QStringLiteral("audio_isfile"), true}, {QStringLiteral("file"), QStringLiteral("/gone.wav")}}}},
        FailureKind::Setup, "/gone.wav: no such file.");
}

void TestKitConversion::failureTellsItsReason()
{
    QFETCH(QString, script);
    QFETCH(Edits, edits);
    QFETCH(zokit::FailureKind, kind);
    QFETCH(QString, expected);
    const QTemporaryDir folder;
    zokit::Tools tools = zokit::findTools();
    tools.ffmpeg = folder.filePath(QStringLiteral("ffmpeg"));
    if (!script.isEmpty()) {
        script.replace(QLatin1String("SILENT"), clips::clip(QStringLiteral("silent.mkv")));
        script.replace(QLatin1String("CLIP"), clips::clip(QStringLiteral("plain.mp4")));
        QVERIFY(writeProgram(tools.ffmpeg, script));
    }
    Job job;
    job.input = clips::clip(QStringLiteral("plain.mp4"));
    job.output = path(QStringLiteral("result.mp4"));
    job.media = zokit::probe(tools, job.input).media;
    job.settings = settingsFor(*job.media, edits);
    Conversion conversion(tools);
    const ConversionResult result = resultOf(conversion, job);
    QCOMPARE(result.outcome, Outcome::Failed);
    QCOMPARE(result.kind, kind);
    QVERIFY2(said(result).startsWith(expected), qPrintable(said(result)));
    QCOMPARE(QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

void TestKitConversion::damagedInputMayBeShort_data()
{
    QTest::addColumn<QString>("words"); // Of ffmpeg.
    QTest::addColumn<bool>("isStrict");
    QTest::addColumn<bool>("isKept");
    QTest::addColumn<QString>("expected");
    const QString told = QStringLiteral("The input is damaged; what could be read was converted. ffmpeg says: broken");
    const QString isShort = QStringLiteral("The result has 0.4 s of 60.0 s.");
    const QString strict = QStringLiteral("The input is damaged, and --strict does not allow that. Leave it out to "
                                          "convert what can be read.");
    QTest::newRow("nothing told") << QString() << false << false << isShort;
    QTest::newRow("damage") << QStringLiteral("broken") << false << true << told + QLatin1Char('\n') + isShort;
    QTest::newRow("damage that is not allowed")
        << QStringLiteral("broken") << true << false << strict + QLatin1Char('\n') + told + QLatin1Char('\n') + isShort;
}

void TestKitConversion::damagedInputMayBeShort()
{
    QFETCH(const QString, words);
    QFETCH(const bool, isStrict);
    QFETCH(const bool, isKept);
    QFETCH(const QString, expected);
    const QTemporaryDir folder;
    Job job;
    job.input = clips::clip(QStringLiteral("plain.mp4"));
    job.output = folder.filePath(QStringLiteral("result.mp4"));
    zokit::Tools tools = zokit::findTools();
    job.media = zokit::probe(tools, job.input).media;
    job.media->seconds = 60;
    job.settings = settingsFor(*job.media, {{QStringLiteral("Output:strict"), isStrict}});
    tools.ffmpeg = folder.filePath(QStringLiteral("ffmpeg"));
    QVERIFY(writeProgram(tools.ffmpeg, QStringLiteral("printf '%s' '%1' >&2\nfor last; do :; done\n"
                                                      "cp '%2' \"${last#file:}\"")
                                           .arg(words, job.input)));
    Conversion conversion(tools);
    QCOMPARE(said(resultOf(conversion, job)), expected);
    QCOMPARE(QFile::exists(job.output), isKept);
}

void TestKitConversion::helpersHaveNamesThatNothingElseHas()
{
    const QTemporaryDir folder;
    const QTemporaryDir other;
    const auto prepared = [&](const QString& clip) {
        Job job;
        job.input = clip;
        job.output = path(QStringLiteral("result")); // As its clip, since it does not say a container.
        job.media = zokit::probe(zokit::findTools(), clips::clip(QStringLiteral("plain.mp4"))).media;
        job.media->file = clip;
        job.settings = settingsFor(*job.media, {});
        Conversion conversion(zokit::findTools());
        const QString words = said(resultOf(conversion, job, folder.path()));
        return words + conversion.plan().container;
    };
    const QString danger = folder.filePath(QStringLiteral("chapters.txt"));
    QCOMPARE(prepared(danger), danger + QStringLiteral(" is the input itself. Give another output.mkv"));
    QCOMPARE(prepared(other.filePath(QStringLiteral("chapters.txt"))), QStringLiteral("mkv"));
    QCOMPARE(prepared(folder.filePath(QStringLiteral("film.mp4"))), QStringLiteral("mp4"));
}

void TestKitConversion::pauseHoldsWhatHasNotBegun()
{
    Conversion conversion(zokit::findTools());
    QSignalSpy ended(&conversion, &Conversion::finished);
    Job job;
    job.input = clips::clip(QStringLiteral("plain.mp4"));
    job.output = path(QStringLiteral("result.mkv"));
    job.makeSettings = [](const MediaInfo& media) {
        zokit::ReadSettings made;
        made.settings = settingsFor(media, {{QStringLiteral("Color:bcs_contrast"), 10}});
        return made;
    };
    const auto isHeld = [] {
        const QVector<qint64> children = childwatch::children();
        return children.size() == 1 && childwatch::isStopped(children.first());
    };
    conversion.start(job);
    conversion.pause();
    QTRY_VERIFY(isHeld());
    QVERIFY(ended.isEmpty());
    conversion.resume();
    QVERIFY(ended.wait(patience));
    QCOMPARE(ended.first().first().value<ConversionResult>().outcome, Outcome::Done);
    QVERIFY(QFile::remove(job.output));
}

void TestKitConversion::settingsAreFittedToTheClip()
{
    const QTemporaryDir folder;
    Job job;
    job.input = folder.filePath(QStringLiteral("clip.mp4"));
    QVERIFY(QFile::copy(clips::clip(QStringLiteral("plain.mp4")), job.input));
    job.output = job.input;
    job.replaces = true;
    job.media = zokit::probe(zokit::findTools(), job.input).media;
    job.settings = settingsFor(*job.media, {{QStringLiteral("Crop:crop_left"), 40}});
    job.settings = zokit::rescaled(job.settings, QSize(320, 240));
    const auto run = [&](const QString& helpers) {
        Conversion conversion(zokit::findTools());
        const ConversionResult result = resultOf(conversion, job, helpers);
        const zokit::TypeSettings* crop = conversion.job().settings.find(QStringLiteral("Crop"));
        return said(result)
               + QStringLiteral("|%1").arg(crop ? crop->values.value(QStringLiteral("crop_left")).toInt() : -1);
    };
    QCOMPARE(run(QString()), job.input + QStringLiteral(" is the input itself. Give another output.|80"));
    QCOMPARE(run(folder.path()),
             QStringLiteral("The settings are for 320x240, the clip has 160x120: what is measured in the "
                            "frame was rescaled.|40"));
    job.makeSettings = [](const MediaInfo&) {
        zokit::ReadSettings made;
        made.warnings = {zokit::Message(zokit::Message::Code::CropIncomplete)};
        made.error = zokit::Message(zokit::Message::Code::NothingToConvert);
        return made;
    };
    QCOMPARE(run(folder.path()),
             QStringLiteral("There is neither picture nor sound to convert. Choose another file.\nThe "
                            "crop has no width or no height, so nothing is cut off. Set "
                            "Crop:crop_width and Crop:crop_height, too.|80"));
}

void TestKitConversion::helperThatCannotBeWrittenIsTold_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<Edits>("edits");
    QTest::addColumn<QString>("helper");
    QTest::newRow("a watermark") << "plain.mp4"
                                 << Edits{{QStringLiteral("Watermark"),
                                           QVariantMap{{QStringLiteral("wm_textcontent"), QStringLiteral("Hi")}}}}
                                 << "/watermark.png";
    QTest::newRow("chapters") << "chapters.mkv" << Edits{{QStringLiteral("Output:trim"), QVariantList{0.1, 0.3}}}
                              << "/chapters.txt";
    QTest::newRow("subtitles") << "plain.mp4"
                               << Edits{{QStringLiteral("Subtitle"),
                                         QVariantMap{
                                             {QStringLiteral("sub_fromfile"), true},
                                             {QStringLiteral("file"), clips::clip(QStringLiteral("text.srt"))}}}}
                               << "/subtitles.ass";
}

void TestKitConversion::helperThatCannotBeWrittenIsTold()
{
    QFETCH(QString, clip);
    QFETCH(Edits, edits);
    QFETCH(QString, helper);
    Job job;
    job.input = clips::clip(clip);
    job.output = path(QStringLiteral("result.mkv"));
    job.media = zokit::probe(zokit::findTools(), job.input).media;
    job.settings = settingsFor(*job.media, edits);
    const QString nowhere = path(QStringLiteral("nowhere"));
    Conversion conversion(zokit::findTools());
    const ConversionResult result = resultOf(conversion, job, nowhere);
    QCOMPARE(result.kind, zokit::FailureKind::Temporary);
    QCOMPARE(said(result), nowhere + helper + QStringLiteral(" cannot be written: No such file or directory."));
}

void TestKitConversion::skipsWhatIsThere()
{
    const QTemporaryDir folder;
    Job job;
    job.input = QStringLiteral("/nowhere.mp4"); // It is not looked at.
    job.output = folder.filePath(QStringLiteral("there.mp4"));
    job.skips = true;
    QFile there(job.output);
    QVERIFY(there.open(QIODevice::WriteOnly) && there.write("there") == 5 && there.flush());
    Conversion conversion(zokit::findTools());
    const ConversionResult result = resultOf(conversion, job);
    QCOMPARE(result.outcome, Outcome::Skipped);
    QCOMPARE(result.reason.code(), zokit::Message::Code::OutputExists);
    QCOMPARE(there.size(), 5);
}

void TestKitConversion::leavesNothingWhenCancelled_data()
{
    QTest::addColumn<bool>("whileConverting");
    QTest::newRow("before it begins") << false;
    QTest::newRow("while it converts") << true;
}

void TestKitConversion::leavesNothingWhenCancelled()
{
    QFETCH(bool, whileConverting);
    Conversion conversion(zokit::findTools());
    QSignalSpy ended(&conversion, &Conversion::finished);
    Job job;
    job.input = clips::clip(QStringLiteral("plain.mp4"));
    job.output = path(QStringLiteral("result.mkv"));
    job.makeSettings = [](const MediaInfo& media) {
        zokit::ReadSettings made;
        made.settings = settingsFor(media, {{QStringLiteral("Output:video-codec"), QStringLiteral("av1")}});
        return made;
    };
    if (whileConverting)
        QObject::connect(&conversion, &Conversion::progressed, &conversion, &Conversion::cancel);
    else
        QObject::connect(&conversion, &Conversion::planned, &conversion, &Conversion::cancel);
    conversion.start(job);
    QVERIFY(ended.wait(patience));
    QVERIFY(ended.first().first().value<ConversionResult>().outcome == Outcome::Cancelled);
    QVERIFY(!conversion.isRunning());
    QCOMPARE(QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

void TestKitConversion::linesTellWhatBecomesOfEachTrack()
{
    const QString output = path(QStringLiteral("result.webm"));
    const Converted converted = convert(clips::clip(QStringLiteral("cover.mp4")), {}, output);
    QVERIFY2(converted.result.outcome == Outcome::Done, qPrintable(said(converted.result)));
    QCOMPARE(converted.lines,
             QStringList({QStringLiteral("track 0 (video, h264): converted to vp9, because webm holds no h264"),
                          QStringLiteral("track 1 (audio, aac): converted to opus, because webm holds no aac"),
                          QStringLiteral("track 2 (cover, mjpeg): left out, because webm holds no cover")}));
    QVERIFY(QFile::remove(output));
}

void TestKitConversion::linesAreGerman()
{
    zokit::TrackPlan cover;
    cover.isCover = true;
    cover.track.index = 2;
    cover.track.codec = QStringLiteral("mjpeg");
    cover.fate = zokit::TrackFate::LeftOut;
    cover.why = zokit::Message(zokit::Message::Code::DroppedAsOther);
    QCOMPARE(cover.line().text(), QStringLiteral("track 2 (cover, mjpeg): left out, because other tracks are dropped"));
    QVERIFY(zokit::useLanguage(QLocale(QStringLiteral("de"))));
    const QString german = cover.line().text();
    QVERIFY(zokit::useLanguage(QLocale(QStringLiteral("en"))));
    QCOMPARE(german, QStringLiteral("Spur 2 (Titelbild, mjpeg): ausgelassen; andere Spuren entfallen"));
}

void TestKitConversion::removesWhatADeadOneLeft()
{
    QString host = QSysInfo::machineHostName();
    host.remove(QRegularExpression(QStringLiteral("[^A-Za-z0-9]")));
    const QString left = path(QStringLiteral(".zo-%1-01234567.part").arg(host.left(40)));
    QFile part(left);
    QVERIFY(part.open(QIODevice::WriteOnly));
    part.close();
    const QString output = path(QStringLiteral("result.mp4"));
    // Of another computer, on which it may be locked: one of two days ago is told, one of an hour ago may still be
    // written.
    const QString foreign = path(QStringLiteral(".zo-another%1-01234567.part"));
    for (const int hours : {1, 48}) {
        QFile other(foreign.arg(hours));
        QVERIFY(other.open(QIODevice::WriteOnly));
        QVERIFY(other.setFileTime(QDateTime::currentDateTime().addSecs(qint64(-3600) * hours),
                                  QFileDevice::FileModificationTime));
    }
    const Converted converted = convert(clips::clip(QStringLiteral("plain.mp4")), {}, output);
    QVERIFY2(converted.result.outcome == Outcome::Done, qPrintable(said(converted.result)));
    QVERIFY(!QFile::exists(left));
    QCOMPARE(said(converted.result), foreign.arg(48)
                                         + QStringLiteral(" was left by another computer more than a day ago. Remove "
                                                          "it if nothing runs there."));
    QVERIFY(QFile::remove(foreign.arg(1)) && QFile::remove(foreign.arg(48)));
    QVERIFY(QFile::remove(output));
}

void TestKitConversion::queueRunsInOrder()
{
    zokit::Queue queue(zokit::findTools());
    QStringList events;
    QObject::connect(&queue, &zokit::Queue::stateChanged, [&](int row, zokit::RowState state) {
        events.append(QStringLiteral("%1:%2").arg(row).arg(static_cast<int>(state)));
    });
    const auto add = [&](const char* clip, const char* name) {
        Job job;
        job.input = clips::clip(QString::fromUtf8(clip));
        job.output = path(QString::fromUtf8(name));
        job.makeSettings = [](const MediaInfo& media) {
            zokit::ReadSettings made;
            made.settings = settingsFor(media, {});
            return made;
        };
        return queue.add(job);
    };
    QCOMPARE(add("plain.mp4", "1.mp4"), 1);
    QCOMPARE(add("text.srt", "2.mp4"), 2); // No picture, no sound: fails.
    QCOMPARE(add("plain.mp4", "3.mkv"), 3);
    QVERIFY(queue.move(3, 0));
    QSignalSpy ended(&queue, &zokit::Queue::finished);
    queue.start();
    QVERIFY(ended.wait(patience));
    QCOMPARE(events.join(QLatin1Char(' ')), QStringLiteral("3:1 3:3 1:1 1:3 2:1 2:4"));
    QVERIFY(queue.state(2) == zokit::RowState::Failed);
    QVERIFY(queue.retry(2));
    queue.cancel(2);
    QVERIFY(queue.state(2) == zokit::RowState::Cancelled);
    QVERIFY(QFile::remove(path(QStringLiteral("1.mp4"))) && QFile::remove(path(QStringLiteral("3.mkv"))));
}

ZOEFFECT_TEST_MAIN(TestKitConversion)
#include "tst_kit_conversion.moc"
