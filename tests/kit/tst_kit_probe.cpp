// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <sys/stat.h>

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <zokit/probe.h>

#include "childwatch.h"
#include "clips.h"
#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;
using zokit::MediaInfo;
using zokit::MediaStream;
using zokit::ReadMedia;
using Code = zokit::Message::Code;
Q_DECLARE_METATYPE(zokit::Message::Code)

constexpr int patience = 60000; // Milliseconds, for what takes few.

class TestKitProbe : public childwatch::Test {
    Q_OBJECT

private slots:
    void initTestCase();

    void clipIsTold_data();
    void clipIsTold();
    void tracksAreTold();
    void coverIsNoPicture();
    void chaptersAndTagsAreTold();
    void rotationIsWhatMakesItUpright_data();
    void rotationIsWhatMakesItUpright();
    void hdrIsTold();
    void damagedOrHostileFileIsRefused_data();
    void damagedOrHostileFileIsRefused();
    void cutFileIsStillAFile();
    void anyNameIsALocalFile_data();
    void anyNameIsALocalFile();
    void inputIsChecked_data();
    void inputIsChecked();
    void answerIsRead_data();
    void answerIsRead();
    void lengthIsRead_data();
    void lengthIsRead();
    void lightIsRead();
    void onlyTheLastQuestionIsAnswered();
    void cancelledQuestionHasNoAnswer();
    void slotMayAskTheNext();
    void onlyStreamsMayChangeTheirSize();
    void whatFurtherQuestionsCannotTellStaysUnknown();
    void brokenProgramIsASentence_data();
    void brokenProgramIsASentence();

private:
    QString write(const char* name, const QByteArray& content) const;

    zokit::Tools m_tools;
    QTemporaryDir m_folder;
};

namespace {

QString fraction(const zokit::Rational& number)
{
    return QStringLiteral("%1/%2").arg(number.numerator).arg(number.denominator);
}

/// What a picture is, in words with blanks between.
QString described(const MediaStream& picture)
{
    QStringList words;
    words << QStringLiteral("%1x%2").arg(picture.coded.width()).arg(picture.coded.height());
    if (picture.shown != picture.coded)
        words << QStringLiteral("shown %1x%2").arg(picture.shown.width()).arg(picture.shown.height());
    if (picture.isTurned)
        words << QStringLiteral("turned %1").arg(picture.rotation);
    words << picture.pixelFormat << picture.matrix << picture.range << fraction(picture.frameRate);
    if (picture.hasVariableRate)
        words << QStringLiteral("variable");
    if (picture.isInterlaced)
        words << picture.fieldOrder;
    if (picture.isHdr)
        words << QStringLiteral("HDR");
    return words.join(QLatin1Char(' '));
}

/// "mkv 0.4 s: 0 h264 160x120 ...; 1 aac 44100 mono"
QString described(const MediaInfo& media)
{
    QStringList streams;
    for (const MediaStream& stream : media.streams) {
        QString line = QStringLiteral("%1 %2").arg(stream.track.index).arg(stream.track.codec);
        if (stream.isCover)
            line += QStringLiteral(" cover");
        else if (stream.track.kind == zokit::TrackKind::Video)
            line += QLatin1Char(' ') + described(stream);
        else if (stream.track.kind == zokit::TrackKind::Audio)
            line += QStringLiteral(" %1 %2").arg(stream.sampleRate).arg(stream.channels);
        streams.append(line);
    }
    const double start = media.start;
    const QString from = start > 0.05 ? QStringLiteral(" from %1").arg(start, 0, 'f', 1) : QString();
    return QStringLiteral("%1 %2 s%3: %4")
        .arg(media.container, QString::number(media.seconds, 'f', 2), from, streams.join(QStringLiteral("; ")));
}

QString asText(const ReadMedia& read)
{
    return read.media ? described(*read.media) : read.error.text();
}

} // namespace

void TestKitProbe::initTestCase()
{
    Test::initTestCase();
    m_tools = zokit::findTools();
    QVERIFY2(m_tools.error.isEmpty(), qPrintable(m_tools.error.text()));
}

QString TestKitProbe::write(const char* name, const QByteArray& content) const
{
    QFile file(m_folder.filePath(QString::fromUtf8(name)));
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName() : QString();
}

void TestKitProbe::clipIsTold_data()
{
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* clip, const char* expected) {
        QTest::newRow(clip) << QString::fromLatin1(expected);
    };
    row("plain.mp4", "mp4 0.40 s: 0 h264 160x120 yuv420p bt601 tv 25/1; 1 aac 44100 1");
    row("plain.mov", "mov 0.40 s: 0 h264 160x120 yuv420p bt601 tv 25/1; 1 aac 44100 1");
    row("plain.mkv", "mkv 0.42 s: 0 h264 160x120 yuv420p bt601 tv 25/1; 1 aac 44100 1");
    row("plain.ts", "ts 0.42 s from 1.4: 0 h264 160x120 yuv420p bt601 tv 25/1; 1 aac 44100 1");
    row("late.ts", "ts 0.42 s from 11.4: 0 h264 160x120 yuv420p bt601 tv 25/1; 1 aac 44100 1");
    row("plain.flv", "flv 0.42 s: 0 h264 160x120 yuv420p bt601 tv 25/1; 1 aac 44100 1");
    row("plain.webm", "webm 0.40 s: 0 vp8 160x120 yuv420p bt601 tv 25/1; 1 vorbis 44100 1");
    row("plain.avi", "avi 0.44 s: 0 mpeg4 160x120 yuv420p bt601 tv 25/1; 1 mp3 44100 1");
    row("plain.mpg", "mpeg 0.42 s from 0.5: 0 mpeg2video 160x120 yuv420p bt601 tv 25/1; 1 mp2 44100 1");
    row("plain.ogv", "ogg 0.40 s: 0 theora 160x120 yuv420p bt601 tv 25/1; 1 vorbis 44100 1");
    row("sound.wav", "wav 0.40 s: 0 pcm_s16le 44100 1");
    row("sound.flac", "flac 0.40 s: 0 flac 44100 1");
    row("still.png", "png 0.00 s: 0 png 64x48 rgb24 bt601 pc 25/1");
    row("still.jpg", "jpeg 0.00 s: 0 mjpeg 64x48 yuvj420p bt601 pc 25/1");
    row("text.srt", "srt 0.00 s: 0 subrip");
    row("graphic.sup", "sup 0.00 s from 0.1: 0 hdmv_pgs_subtitle");
    // The length is not told, or told wrongly.
    row("raw.h264", "h264 0.40 s: 0 h264 160x120 yuv420p bt601 tv 25/1");
    row("streamed.mkv", "mkv 0.42 s: 0 h264 160x120 yuv420p bt601 tv 25/1; 1 aac 44100 1");
    row("dvdsub.mkv", "mkv 0.42 s: 0 h264 160x120 yuv420p bt601 tv 25/1; 1 aac 44100 1; 2 dvd_subtitle");
    // Turned counter-clockwise is the other way round here; 160 * 4/3 is 213, and even 212.
    row("rotate90.mp4", "mp4 0.40 s: 0 h264 160x120 shown 120x160 turned 270 yuv420p bt601 tv 25/1; 1 aac 44100 1");
    row("rotate180.mp4", "mp4 0.40 s: 0 h264 160x120 turned 180 yuv420p bt601 tv 25/1; 1 aac 44100 1");
    row("anamorphic.mp4", "mp4 0.40 s: 0 h264 160x120 shown 212x120 yuv420p bt601 tv 25/1");
    row("rotate90-anamorphic.mp4", "mp4 0.40 s: 0 h264 160x120 shown 120x212 turned 270 yuv420p bt601 tv 25/1");
    row("no-aspect.mkv", "mkv 0.40 s: 0 ffv1 160x120 yuv420p bt601 tv 25/1");
    row("variable.mp4", "mp4 0.97 s: 0 h264 160x120 yuv420p bt601 tv 30/1 variable");
    row("top-first.mkv", "mkv 0.40 s: 0 mpeg2video 160x120 yuv420p bt601 tv 25/1 tt");
    row("bottom-first.mkv", "mkv 0.40 s: 0 mpeg2video 160x120 yuv420p bt601 tv 25/1 bb");
    row("bt709.mkv", "mkv 0.40 s: 0 h264 160x120 yuv420p bt709 tv 25/1");
    row("bt601.mkv", "mkv 0.40 s: 0 h264 160x120 yuvj420p bt601 pc 25/1");
    row("full-range.mkv", "mkv 0.40 s: 0 mjpeg 160x120 yuvj420p bt601 pc 25/1");
    row("wide.mkv", "mkv 0.20 s: 0 h264 1280x16 yuv420p bt709 tv 25/1");
    row("high.mkv", "mkv 0.20 s: 0 h264 16x720 yuv420p bt709 tv 25/1");
    row("pq.mkv", "mkv 0.40 s: 0 hevc 160x120 yuv420p10le bt2020 tv 25/1 HDR");
    row("pq-sound.mkv", "mkv 0.40 s: 0 hevc 160x120 yuv420p10le bt2020 tv 25/1 HDR; 1 pcm_s16le 44100 1");
    row("live.mka", "mkv 0.40 s: 0 pcm_s16le 44100 1");
    row("hlg.mkv", "mkv 0.40 s: 0 hevc 160x120 yuv420p10le bt2020 tv 25/1 HDR");
    row("cover.mp3", "mp3 0.44 s: 0 mp3 44100 1; 1 mjpeg cover");
    row("cover.mp4", "mp4 0.40 s: 0 h264 160x120 yuv420p bt601 tv 25/1; 1 aac 44100 1; 2 mjpeg cover");
    row("cover.mkv", "mkv 0.42 s: 0 h264 160x120 yuv420p bt601 tv 25/1; 1 aac 44100 1; 2 mjpeg cover");
}

void TestKitProbe::clipIsTold()
{
    const QString path = clips::clip(QString::fromLatin1(QTest::currentDataTag()));
    QTEST(asText(zokit::probe(m_tools, path)), "expected");
}

void TestKitProbe::tracksAreTold()
{
    const ReadMedia read = zokit::probe(m_tools, clips::clip(key("languages.mkv")));
    QVERIFY2(read.media, qPrintable(read.error.text()));
    QStringList lines;
    for (const zokit::Track& track : read.media->tracks())
        lines.append(QStringLiteral("%1 %2 [%3] [%4]%5%6")
                         .arg(track.index)
                         .arg(track.codec, track.language, track.title,
                              track.isDefault ? QStringLiteral(" default") : QString(),
                              track.forced ? QStringLiteral(" forced") : QString()));
    QCOMPARE(lines, (QStringList{key("0 h264 [] [] default"), key("1 aac [fra] [Original] default"),
                                 key("2 aac [eng] []"), key("3 subrip [ger] [] forced"), key("4 ass [] []")}));
    QVERIFY(read.media->stream(2)->dispositions.value(key("comment")));
    QVERIFY(!read.media->stream(1)->dispositions.value(key("comment")));
    QVERIFY(read.media->stream(4)->dispositions.value(key("hearing_impaired")));
    QCOMPARE(read.media->stream(5), nullptr);
    QCOMPARE(read.media->stream(-1), nullptr);

    const ReadMedia videos = zokit::probe(m_tools, clips::clip(key("two-videos.mkv")));
    QCOMPARE(videos.media->picture()->track.index, 1);
    const ReadMedia attached = zokit::probe(m_tools, clips::clip(key("attachment.mkv")));
    const MediaStream& attachment = attached.media->streams.last();
    QCOMPARE(attachment.track.kind, zokit::TrackKind::Attachment);
    QCOMPARE(attachment.fileName, key("own.ttf"));
    QCOMPARE(attachment.mimeType, key("application/x-truetype-font"));
}

void TestKitProbe::coverIsNoPicture()
{
    QCOMPARE(zokit::probe(m_tools, clips::clip(key("cover.mp3"))).media->picture(), nullptr);
    QCOMPARE(zokit::probe(m_tools, clips::clip(key("cover.mp4"))).media->picture()->track.index, 0);
}

void TestKitProbe::chaptersAndTagsAreTold()
{
    const ReadMedia read = zokit::probe(m_tools, clips::clip(key("chapters.mkv")));
    QCOMPARE(read.media->tags.value(key("title")), key("Feature"));
    QCOMPARE(read.media->chapters.size(), 2);
    QCOMPARE(read.media->chapters[1].from, 0.2);
    QCOMPARE(read.media->chapters[1].to, 0.4);
    QCOMPARE(read.media->chapters[1].tags.value(key("title")), key("Two"));
    QCOMPARE(read.media->bytes, QFileInfo(read.media->file).size());
    QVERIFY(!read.media->mayChangeSize());
    QVERIFY(zokit::probe(m_tools, clips::clip(key("plain.ts"))).media->mayChangeSize());
}

void TestKitProbe::rotationIsWhatMakesItUpright_data()
{
    QTest::addColumn<int>("rotation");
    QTest::addColumn<QString>("filter");
    QTest::newRow("plain.mp4") << 0 << key("null");
    QTest::newRow("rotate270.mp4") << 90 << key("transpose=clock");
    QTest::newRow("rotate180.mp4") << 180 << key("hflip,vflip");
    QTest::newRow("rotate90.mp4") << 270 << key("transpose=cclock");
}

/// ffmpeg turns by itself; the same, turned by hand by what was told, must be the same frame.
void TestKitProbe::rotationIsWhatMakesItUpright()
{
    QFETCH(const QString, filter);
    const QString path = clips::clip(QString::fromLatin1(QTest::currentDataTag()));
    const auto frame = [&](const QStringList& before, const QStringList& after) {
        zokit::Command command;
        command.program = m_tools.ffmpeg;
        command.arguments = QStringList{key("-v"), key("error")} + before + zokit::guardedInput(path)
                            + QStringList{key("-frames:v"), key("1")} + after
                            + QStringList{key("-f"), key("rawvideo"), key("-")};
        return zokit::run(command).output;
    };
    const QByteArray byItself = frame({}, {});
    QCOMPARE(byItself.size(), 160 * 120 * 3 / 2);
    QCOMPARE(frame({key("-noautorotate")}, {key("-vf"), filter}), byItself);
    QTEST(zokit::probe(m_tools, path).media->picture()->rotation, "rotation");
}

void TestKitProbe::hdrIsTold()
{
    const ReadMedia read = zokit::probe(m_tools, clips::clip(key("pq.mkv")));
    const MediaStream* const picture = read.media->picture();
    QCOMPARE(picture->primaries, key("bt2020"));
    QCOMPARE(picture->transfer, key("smpte2084"));
    QCOMPARE(picture->hdr.value(key("master-display")),
             key("G(13250,34500)B(7500,3000)R(34000,16000)WP(15635,16450)L(10000000,50)"));
    QCOMPARE(picture->hdr.value(key("max-cll")), key("1000,400"));
    QVERIFY(zokit::probe(m_tools, clips::clip(key("bt709.mkv"))).media->picture()->hdr.isEmpty());
}

void TestKitProbe::damagedOrHostileFileIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<Code>("code");
    QTest::addColumn<QString>("words");
    QByteArray random(20000, 0);
    QRandomGenerator generator(13);
    for (char& byte : random)
        byte = static_cast<char>(generator.bounded(256));
    const auto part = [](const char* name, double howMuch) {
        QFile file(clips::clip(QString::fromLatin1(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll().left(int(double(file.size()) * howMuch)) : QByteArray();
    };
    const QByteArray victim = clips::clip(key("plain.mp4")).toUtf8();
    const QString invalid = key("Invalid data found when processing input");
    QTest::newRow("empty.mp4") << QByteArray() << Code::InputEmpty << QString();
    QTest::newRow("random.mp4") << random << Code::NoMedia << invalid;
    QTest::newRow("zeros.mkv") << QByteArray(20000, 0) << Code::NoMedia << invalid;
    QTest::newRow("text.mp4") << QByteArray("Dear all,\nthis is a letter.\n") << Code::NoMedia << invalid;
    QTest::newRow("cut.mp4") << part("plain.mp4", 0.8) << Code::NoMedia << invalid;
    QTest::newRow("huge.png") << part("huge.png", 1) << Code::PictureRefused << key("0");
    QTest::newRow("playlist.mp4") << QByteArray("#EXTM3U\n#EXTINF:1,\nfile:///etc/passwd\n#EXT-X-ENDLIST\n")
                                  << Code::NoMedia << QString();
    QTest::newRow("web.mkv") << QByteArray("#EXTM3U\n#EXTINF:1,\nhttp://127.0.0.1:9/x.ts\n#EXT-X-ENDLIST\n")
                             << Code::NoMedia << QString();
    QTest::newRow("concat.mp4") << QByteArray("ffconcat version 1.0\nfile victim.mp4\n") << Code::NoMedia << QString();
    QTest::newRow("absolute.mp4") << "ffconcat version 1.0\nfile " + victim + "\n" << Code::NoMedia << QString();
    QTest::newRow("session.mp4") << QByteArray("v=0\nc=IN IP4 127.0.0.1\nm=video 9 RTP/AVP 96\n") << Code::NoMedia
                                 << QString();
    QTest::newRow("dash.mp4") << QByteArray("<?xml version=\"1.0\"?><MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\"/>")
                              << Code::NoMedia << QString();
}

void TestKitProbe::damagedOrHostileFileIsRefused()
{
    QFile::copy(clips::clip(key("plain.mp4")), m_folder.filePath(key("victim.mp4")));
    QFETCH(const QByteArray, content);
    QFETCH(const QString, words);
    const QString path = write(QTest::currentDataTag(), content);
    const ReadMedia read = zokit::probe(m_tools, path);
    QVERIFY2(!read.media, qPrintable(asText(read)));
    QTEST(read.error.code(), "code");
    QCOMPARE(read.error.arguments().value(0), path);
    if (!words.isEmpty())
        QCOMPARE(read.error.arguments().value(1), words);
    QVERIFY(read.error.text().startsWith(path));
}

void TestKitProbe::cutFileIsStillAFile()
{
    QFile whole(clips::clip(key("plain.mkv")));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    const QString path = write("cut.mkv", whole.readAll().left(9000));
    QCOMPARE(asText(zokit::probe(m_tools, path)),
             key("mkv 0.42 s: 0 h264 160x120 yuv420p bt601 tv 25/1; 1 aac 44100 1"));
}

void TestKitProbe::anyNameIsALocalFile_data()
{
    QTest::addColumn<QString>("name");
    const char* const names[] = {
        "-y.mkv",     "a\nb.mkv", "%03d.mkv",      "concat:x.mkv",    "http:x.mkv", "file:x.mkv", "pipe:0",  "x.mkv:y",
        " a  b .mkv", "it's.mkv", "say \"a\".mkv", "*.mkv",           "~",          "@x.mkv",     "a|b.mkv", "-",
        "data:,x",    "\\x.mkv",  "\xc3\xa4.mkv",  "\xef\xbf\xbd.mkv"};
    for (const char* name : names)
        QTest::newRow(name) << QString::fromUtf8(name);
}

void TestKitProbe::anyNameIsALocalFile()
{
    QFETCH(const QString, name);
    const QTemporaryDir folder;
    QVERIFY(QFile::copy(clips::clip(key("still.png")), folder.filePath(name)));
    const QString expected = key("png 0.00 s: 0 png 64x48 rgb24 bt601 pc 25/1");
    QCOMPARE(asText(zokit::probe(m_tools, folder.filePath(name))), expected);
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path());
    const QString relative = asText(zokit::probe(m_tools, name));
    QDir::setCurrent(before);
    QCOMPARE(relative, expected);
}

void TestKitProbe::inputIsChecked_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Code>("code");
    QTest::addColumn<QString>("near");
    write("film.mkv", "x");
    write("empty.mkv", "");
    mkfifo(QFile::encodeName(m_folder.filePath(key("pipe.mkv"))).constData(), 0600);
    QFile::link(key("pipe.mkv"), m_folder.filePath(key("link.mkv")));
    QDir(m_folder.path()).mkdir(key("folder"));
    QTest::newRow("file") << key("film.mkv") << Code::None << QString();
    QTest::newRow("missing, one like it there") << key("fim.mkv") << Code::InputMissing << key("film.mkv");
    QTest::newRow("missing") << key("something else") << Code::InputMissing << QString();
    QTest::newRow("in what is no folder") << key("film.mkv/x") << Code::InputMissing << QString();
    QTest::newRow("folder") << key("folder") << Code::InputFolder << QString();
    QTest::newRow("empty") << key("empty.mkv") << Code::InputEmpty << QString();
    QTest::newRow("pipe") << key("pipe.mkv") << Code::InputNotAFile << QString();
    QTest::newRow("link to a pipe") << key("link.mkv") << Code::InputNotAFile << QString();
    QTest::newRow("device") << key("/dev/zero") << Code::InputNotAFile << QString();
    QTest::newRow("bytes that are no UTF-8") << QString(key("a") + QChar(0xfffd)) << Code::InputName << QString();
    QTest::newRow("half a letter") << QString(key("a") + QChar(0xd800)) << Code::InputName << QString();
    QTest::newRow("a zero in it") << QString(key("film.mkv") + QChar(0)) << Code::InputName << QString();
    QTest::newRow("endless name") << QString(5000, QLatin1Char('x')) << Code::FileUnreadable << QString();
}

void TestKitProbe::inputIsChecked()
{
    QFETCH(const QString, name);
    const QString path = QDir(m_folder.path()).absoluteFilePath(name);
    const zokit::Message message = zokit::checkInput(path);
    QTEST(message.code(), "code");
    if (message.code() == Code::InputMissing)
        QTEST(message.arguments().value(1), "near");
    if (message.isEmpty())
        return;
    const ReadMedia read = zokit::probe(m_tools, path);
    QVERIFY(!read.media);
    QCOMPARE(read.error, message);
}

namespace {

QByteArray video(const QByteArray& members)
{
    return R"({"streams": [{"index": 0, "codec_type": "video", "codec_name": "h264", "width": 100, "height": 50)"
           + (members.isEmpty() ? QByteArray() : ", " + members) + R"(}], "format": {"format_name": "matroska,webm"}})";
}

QByteArray format(const QByteArray& members)
{
    return R"({"streams": [{"codec_type": "subtitle", "codec_name": "ass"}], "format": {"format_name": "avi", )"
           + members + "}}";
}

} // namespace

void TestKitProbe::answerIsRead_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("expected");
    const QString noTracks = key("/x holds no picture, no sound and no subtitles. Check that it is whole.");
    const QString refused = key("/x: the size of the picture, track 0, is unknown or above 64 million pixels. "
                                "Check that it is whole, or make it smaller.");
    const QString plain = key("mkv 0.00 s: 0 h264 100x50  bt601 tv 0/1");
    const QString subtitle = key("avi 0.00 s: 0 ass");
    const auto row = [](const char* name, const QByteArray& json, const QString& expected) {
        QTest::newRow(name) << json << expected;
    };
    row("nothing", "", noTracks);
    row("no JSON", "{\"streams\": [", noTracks);
    row("a list", "[1, 2]", noTracks);
    row("no streams", "{}", noTracks);
    row("streams that are none", "{\"streams\": [1]}", key(" 0.00 s: 0 "));
    row("plain", video(""), plain);
    row("members of the wrong kinds",
        video(R"("side_data_list": 5, "tags": [], "disposition": "x", "pix_fmt": 7, "r_frame_rate": {})"), plain);
    row("no width", video(R"("width": 0)"), refused);
    row("negative", video(R"("width": -100)"), refused);
    row("too long a side", video(R"("width": 65536)"), refused);
    row("largest", video(R"("width": 8192, "height": 8192)"), key("mkv 0.00 s: 0 h264 8192x8192  bt709 tv 0/1"));
    row("too many pixels", video(R"("width": 8192, "height": 8193)"), refused);
    row("endless width", video(R"("width": 1e300)"), refused);
    row("turned by a text", video(R"("side_data_list": [{}, {"rotation": "-90"}])"),
        key("mkv 0.00 s: 0 h264 100x50 shown 50x100 turned 90  bt601 tv 0/1"));
    row("turned by 180 backwards", video(R"("side_data_list": [{"rotation": -180}])"),
        key("mkv 0.00 s: 0 h264 100x50 turned 180  bt601 tv 0/1"));
    const QString turnedByNone = key("mkv 0.00 s: 0 h264 100x50 turned 0  bt601 tv 0/1");
    row("turned by no quarter", video(R"("side_data_list": [{"rotation": 45}])"), turnedByNone);
    row("upside down in a mirror",
        video(R"("side_data_list": [{"displaymatrix": "\n00000000:  65536  0  0\n00000001:  0  -65536  0\n", )"
              R"("rotation": 0}])"),
        turnedByNone);
    row("upright",
        video(R"("side_data_list": [{"displaymatrix": "\n00000000:  65536  0  0\n00000001:  0  65536  0\n", )"
              R"("rotation": 0}])"),
        plain);
    row("turned for ever", video(R"("side_data_list": [{"rotation": 1e300}])"), plain);
    row("wide pixels", video(R"("sample_aspect_ratio": "64:45")"),
        key("mkv 0.00 s: 0 h264 100x50 shown 142x50  bt601 tv 0/1"));
    row("pixels without width", video(R"("sample_aspect_ratio": "0:1")"), plain);
    row("pixels without height", video(R"("sample_aspect_ratio": "1:0")"), plain);
    row("pixels wider than any picture", video(R"("sample_aspect_ratio": "65535:1")"), plain);
    row("pixels that make too many", video(R"("width": 8192, "height": 8192, "sample_aspect_ratio": "2:1")"),
        key("mkv 0.00 s: 0 h264 8192x8192  bt709 tv 0/1"));
    row("pixels of no width to speak of", video(R"("sample_aspect_ratio": "1:65535")"), plain);
    row("rate of nothing", video(R"("r_frame_rate": "0/0", "avg_frame_rate": "25/1")"), plain);
    row("rates in other words", video(R"("r_frame_rate": "30000/1001", "avg_frame_rate": "60000/2002")"),
        key("mkv 0.00 s: 0 h264 100x50  bt601 tv 30000/1001"));
    row("rate beyond counting", video(R"("r_frame_rate": "1/2000000000")"), plain);
    row("rate below zero", video(R"("r_frame_rate": "-25/1")"), plain);
    row("matrix of another kind", video(R"("color_space": "smpte240m", "color_range": "pc")"),
        key("mkv 0.00 s: 0 h264 100x50  smpte240m pc 0/1"));
    row("matrix of HDR that says none", video(R"("color_transfer": "smpte2084", "color_range": "tv")"),
        key("mkv 0.00 s: 0 h264 100x50  bt2020 tv 0/1 HDR"));
    row("matrix of HDR by its other name", video(R"("color_space": "bt2020c")"),
        key("mkv 0.00 s: 0 h264 100x50  bt2020 tv 0/1"));
    row("full range by the format's name", video(R"("pix_fmt": "yuvj420p")"),
        key("mkv 0.00 s: 0 h264 100x50 yuvj420p bt601 pc 0/1"));
    row("matrix that none knows", video(R"("color_space": "gbr", "color_range": "unknown")"), plain);
    row("fields unknown", video(R"("field_order": "unknown")"), plain);
    row("length", format(R"("duration": "12.340000")"), key("avi 12.34 s: 0 ass"));
    row("length below zero", format(R"("duration": "-5")"), subtitle);
    row("endless length", format(R"("duration": "inf")"), subtitle);
    row("no number for a length", format(R"("duration": "nan")"), subtitle);
    row("length of ages", format(R"("duration": "1e12", "start_time": "1e300")"), subtitle);
}

void TestKitProbe::answerIsRead()
{
    QFETCH(const QByteArray, json);
    QTEST(asText(zokit::readProbe(json, key("/x"))), "expected");
}

void TestKitProbe::lengthIsRead_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<double>("seconds");
    QTest::newRow("nothing") << QByteArray() << 0.0;
    QTest::newRow("not in order") << QByteArray("2.0,0.5\n2.75,0.5\n2.5,0.5\n") << 1.25;
    QTest::newRow("without lengths") << QByteArray("2.0,N/A\n4.5,N/A\n") << 2.5;
    QTest::newRow("without times") << QByteArray("N/A,0.25\nN/A,0.25\nN/A,0.25\n") << 0.75;
    QTest::newRow("further words") << QByteArray("2.0,0.5,\r\n2.5,0.5,x\r\n") << 1.0;
    QTest::newRow("no numbers") << QByteArray("nan,inf\n1e300,1\nx,y\n,\n") << 0.0;
}

void TestKitProbe::lengthIsRead()
{
    QFETCH(const QByteArray, lines);
    QTEST(zokit::readLength(lines, 2.0), "seconds");
}

void TestKitProbe::lightIsRead()
{
    const auto frame = [](const QByteArray& data) { return "{\"frames\": [{\"side_data_list\": [" + data + "]}]}"; };
    const QByteArray light =
        R"({"side_data_type": "Content light level metadata", "max_content": 800, "max_average": 90})";
    QCOMPARE(zokit::readHdr(frame("{}, 3, " + light)), (QMap<QString, QString>{{key("max-cll"), key("800,90")}}));
    QVERIFY(zokit::readHdr("").isEmpty());
    QVERIFY(zokit::readHdr("{\"frames\": []}").isEmpty());
    QVERIFY(zokit::readHdr(frame("")).isEmpty());
    // A display that does not tell all of its corners is none.
    QVERIFY(zokit::readHdr(frame(R"({"side_data_type": "Mastering display metadata", "red_x": "1/0"})")).isEmpty());
}

void TestKitProbe::onlyTheLastQuestionIsAnswered()
{
    zokit::Prober prober(m_tools);
    QStringList answers;
    connect(&prober, &zokit::Prober::finished, this, [&](const ReadMedia& read) { answers.append(asText(read)); });
    prober.probe(clips::clip(key("plain.mp4")));
    QTest::qWait(20); // The child is on its way.
    prober.probe(key("/nowhere/x.mp4"));
    prober.probe(clips::clip(key("sound.wav")));
    QVERIFY(answers.isEmpty());
    QVERIFY(prober.isRunning());
    QTRY_VERIFY_WITH_TIMEOUT(!prober.isRunning(), patience);
    QTest::qWait(50);
    QCOMPARE(answers, QStringList{key("wav 0.40 s: 0 pcm_s16le 44100 1")});
}

void TestKitProbe::cancelledQuestionHasNoAnswer()
{
    zokit::Prober prober(m_tools);
    connect(&prober, &zokit::Prober::finished, this, [] { QFAIL("it was cancelled"); });
    for (const QString& path : {clips::clip(key("plain.mp4")), key("/nowhere/x.mp4")}) {
        prober.probe(path);
        prober.cancel();
        QVERIFY(!prober.isRunning());
        QTest::qWait(20);
        prober.probe(path);
    }
}

void TestKitProbe::slotMayAskTheNext()
{
    zokit::Prober prober(m_tools);
    QStringList answers;
    connect(&prober, &zokit::Prober::finished, this, [&](const ReadMedia& read) {
        answers.append(read.media ? read.media->container : key("none"));
        if (answers.size() == 1)
            prober.probe(key("/nowhere/x.mp4"));
        else if (answers.size() == 2)
            prober.probe(clips::clip(key("sound.wav")));
    });
    prober.probe(clips::clip(key("streamed.mkv"))); // Takes two children.
    QTRY_COMPARE_WITH_TIMEOUT(answers, (QStringList{key("mkv"), key("none"), key("wav")}), patience);
    QVERIFY(!prober.isRunning());
}

void TestKitProbe::onlyStreamsMayChangeTheirSize()
{
    zokit::MediaInfo media;
    for (const char* container : {"ts", "mpeg", "flv"}) {
        media.container = key(container);
        QVERIFY2(media.mayChangeSize(), container);
    }
    media.container = key("mkv");
    QVERIFY(!media.mayChangeSize());
    QCOMPARE((zokit::Rational{1, 0}.value()), 0.0);
    QCOMPARE((zokit::Rational{1, 4}.value()), 0.25);
}

void TestKitProbe::whatFurtherQuestionsCannotTellStaysUnknown()
{
    zokit::Tools tools;
    tools.ffprobe = m_folder.filePath(key("ffprobe"));
    QFile::remove(tools.ffprobe);
    const QByteArray json = R"({"streams": [{"codec_type": "video", "codec_name": "hevc", "width": 64, "height": 48,)"
                            R"( "color_transfer": "smpte2084"}], "format": {"format_name": "matroska,webm"}})";
    QVERIFY(!write("ffprobe", "#!/bin/sh\ncase \"$*\" in *show_streams*) echo '" + json + "';; *) exit 1;; esac\n")
                 .isEmpty());
    QFile::setPermissions(tools.ffprobe, QFile::ReadOwner | QFile::ExeOwner);
    const ReadMedia read = zokit::probe(tools, clips::clip(key("plain.mp4")));
    QVERIFY2(read.media, qPrintable(read.error.text()));
    QCOMPARE(read.media->seconds, 0.0);
    QVERIFY(read.media->picture()->isHdr);
    QVERIFY(read.media->picture()->hdr.isEmpty());
}

void TestKitProbe::brokenProgramIsASentence_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<Code>("code");
    QTest::newRow("dies") << QByteArray("kill -9 $$") << Code::ChildKilled;
    QTest::newRow("lies") << QByteArray("echo garbage") << Code::NoTracks;
    QTest::newRow("fails without a word") << QByteArray("exit 1") << Code::NoMedia;
    QTest::newRow("floods") << QByteArray("exec yes") << Code::NoMedia;
    QTest::newRow("is not there") << QByteArray() << Code::ChildNotStarted;
}

void TestKitProbe::brokenProgramIsASentence()
{
    QFETCH(const QByteArray, script);
    zokit::Tools tools;
    tools.ffprobe = m_folder.filePath(key("ffprobe"));
    QFile::remove(tools.ffprobe);
    if (!script.isEmpty()) {
        QVERIFY(!write("ffprobe", "#!/bin/sh\n" + script + "\n").isEmpty());
        QFile::setPermissions(tools.ffprobe, QFile::ReadOwner | QFile::ExeOwner);
    }
    const ReadMedia read = zokit::probe(tools, clips::clip(key("plain.mp4")));
    QVERIFY(!read.media);
    QTEST(read.error.code(), "code");
    QVERIFY2(!read.error.text().contains(key(": .")), qPrintable(read.error.text()));
}

ZOEFFECT_TEST_MAIN(TestKitProbe)
#include "tst_kit_probe.moc"
