// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Frames out of clips: the right one at each time, and the very one that a conversion hands to its encoder.

#include <csignal>

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <zokit/conversion.h>
#include <zokit/filesettings.h>
#include <zokit/frames.h>
#include <zokit/properties.h>

#include "childwatch.h"
#include "clips.h"
#include "graphsupport.h"
#include "kitsupport.h"
#include "testapplication.h"

using graphsupport::ffmpeg;
using zokit::FrameAnswer;
using zokit::FrameKind;
using zokit::FrameQuestion;
using zokit::Frames;
using zokit::MediaInfo;
using zokit::Settings;

namespace {

constexpr int patience = 60000; // Milliseconds; only a hang takes so long.

MediaInfo probed(const QString& clip)
{
    return zokit::probe(zokit::findTools(), clips::clip(clip)).media.value_or(MediaInfo());
}

FrameQuestion questionOf(const QString& clip, double seconds)
{
    FrameQuestion question;
    question.media = probed(clip);
    question.settings = graphsupport::plain(question.media.picture() ? question.media.picture()->shown : QSize());
    question.seconds = seconds;
    question.forScreen = false;
    return question;
}

/// All pictures of a file, as they are stored.
QByteArray decoded(const QString& path)
{
    return ffmpeg({QStringLiteral("-i"), path, QStringLiteral("-map"), QStringLiteral("0:V:0"),
                   QStringLiteral("-fps_mode"), QStringLiteral("passthrough"), QStringLiteral("-f"),
                   QStringLiteral("rawvideo"), QStringLiteral("pipe:1")});
}

/// At which of the frames in \a frames one of \a bytes is the same; -1: none.
int placeOf(const QByteArray& bytes, const QByteArray& frames)
{
    for (int place = 0; !bytes.isEmpty() && (place + 1) * bytes.size() <= frames.size(); ++place) {
        if (frames.mid(place * bytes.size(), bytes.size()) == bytes)
            return place;
    }
    return -1;
}

} // namespace

class TestKitFrames : public childwatch::Test {
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase();
    void frameIsTheOneThatIsShown_data();
    void frameIsTheOneThatIsShown();
    void screenShowsItsColours_data();
    void screenShowsItsColours();
    void mappedHdrIsShownAsItComesOut();
    void rgbIsShownAsItIs();
    void keptFrameIsTheSame_data();
    void keptFrameIsTheSame();
    void clipMayTellLittle();
    void bytesOfAnotherSizeAreNoImage();
    void wholeFrameIsNeitherCutNorScaled();
    void keptFrameTakesNoDecoding();
    void loadedAheadAnswersTheSame();
    void onlyTheLatestIsTold();
    void fileOfPicturesKeepsItsTimes();
    void correctedSubtitlesAreShown();
    void fontsOfTheClipAreUsed_data();
    void fontsOfTheClipAreUsed();
    void failureTellsItsReason_data();
    void failureTellsItsReason();
    void frameIsRefused_data();
    void frameIsRefused();
    void previewIsTheOutput_data();
    void previewIsTheOutput();

private:
    QTemporaryDir m_folder;
    int m_scenes = 0;
    int m_compared = 0; ///< Previews that were frames of a result.
    int m_refused = 0;  ///< Scenes that could neither be converted nor previewed.
};

void TestKitFrames::frameIsTheOneThatIsShown_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<int>("place"); // Of the frame among all of the clip.

    const auto row = [](const char* name, const char* clip, double seconds, int place) {
        QTest::newRow(name) << QString::fromLatin1(clip) << seconds << place;
    };
    row("beginning", "plain.mp4", 0, 0);
    row("before the beginning", "plain.mp4", -1, 0);
    row("begins then", "plain.mp4", 0.12, 3);
    row("is still there", "plain.mp4", 0.1594, 3);
    row("last frame", "plain.mp4", 0.39, 9);
    row("end", "plain.mp4", 0.4, 9);
    row("long after the end", "plain.mp4", 1000, 9);
    row("another container", "plain.mkv", 0.2, 4);
    row("container without an index", "plain.mpg", 0.2, 4);
    row("old container", "plain.avi", 0.2, 4);
    row("streamed", "streamed.mkv", 0.2, 4);
    row("raw stream", "raw.h264", 0.2, 5);
    row("beginning of one that begins late", "late.ts", 0, 0);
    row("within one that begins late", "late.ts", 0.25, 5);
    row("end of one that begins late", "late.ts", 5, 9);
    row("long after a key frame, without an index", "long.ts", 6.6, 165);
    row("just after a key frame, without an index", "long.ts", 4.04, 101);
    row("end, without an index", "long.ts", 8, 199);
    row("variable rate, at the higher one", "variable.mp4", 0.25, 7);
    row("variable rate, typed with three digits", "variable.mp4", 0.333, 10);
    row("variable rate, where each second is missing", "variable.mp4", 0.39, 10);
    row("variable rate, the next one", "variable.mp4", 0.4, 11);
    row("variable rate, end", "variable.mp4", 1, 19);
    row("long gap", "gap.mkv", 6, 9);
    row("after a long gap", "gap.mkv", 7.3, 11);
    row("picture begins after the sound", "late-picture.mkv", 0.1, 0);
    row("picture that has begun after the sound", "late-picture.mkv", 0.6, 2);
}

void TestKitFrames::frameIsTheOneThatIsShown()
{
    QFETCH(const QString, clip);
    QFETCH(const double, seconds);
    QFETCH(const int, place);

    const QByteArray all = decoded(clips::clip(clip));
    Frames frames(zokit::findTools());
    FrameQuestion question = questionOf(clip, seconds);
    question.kind = FrameKind::Before;
    const FrameAnswer answer = zokit::frame(frames, question);
    QCOMPARE(answer.error.text(), QString());
    QCOMPARE(answer.frame.size, QSize(160, 120));
    QCOMPARE(placeOf(answer.frame.bytes, all), place);
}

void TestKitFrames::screenShowsItsColours_data()
{
    QTest::addColumn<QString>("clip");

    for (const char* clip : {"red709.mkv", "red601.mkv", "red-full.mkv", "red-deep.mkv"})
        QTest::newRow(clip) << QString::fromLatin1(clip);
}

void TestKitFrames::screenShowsItsColours()
{
    QFETCH(const QString, clip);
    Frames frames(zokit::findTools());
    FrameQuestion question = questionOf(clip, 0.1);
    question.forScreen = true;
    for (const FrameKind kind : {FrameKind::Before, FrameKind::After}) {
        question.kind = kind;
        const QImage image = zokit::frame(frames, question).frame.image();
        QCOMPARE(image.size(), QSize(64, 48));
        const QColor colour = image.pixelColor(20, 20);
        QVERIFY2(colour.red() >= 254 && colour.green() <= 1 && colour.blue() <= 1, qPrintable(colour.name()));
    }
}

void TestKitFrames::mappedHdrIsShownAsItComesOut()
{
    Frames frames(zokit::findTools());
    const FrameQuestion asked = questionOf(QStringLiteral("pq.mkv"), 0.2);
    Settings settings = asked.settings;
    settings.output.insert(QStringLiteral("video-codec"), QStringLiteral("h264"));
    const zokit::TracksPlan plan = zokit::planTracks(settings, asked.media, {}, QStringLiteral("mkv"));
    FrameQuestion question = zokit::plannedFrame(settings, asked.media, plan);
    question.seconds = 0.2;
    question.isKept = true;
    question.forScreen = false;
    FrameQuestion unmapped = question; // What is kept of it is no frame of the mapped one.
    unmapped.settings.output.remove(QStringLiteral("hdr"));
    QVERIFY(!zokit::frame(frames, unmapped).frame.bytes.isEmpty());
    const QByteArray raw = zokit::frame(frames, question).frame.bytes;
    QCOMPARE(raw.size(), 160 * 120 * 3 / 2);
    const QByteArray expected = ffmpeg(
        QStringLiteral("-f rawvideo -pix_fmt yuv420p -s 160x120 -i pipe:0 -vf scale=flags=accurate_rnd+full_chroma_int+"
                       "full_chroma_inp:in_color_matrix=bt709:in_range=tv:out_range=pc,format=rgb0 -f rawvideo pipe:1")
            .split(QLatin1Char(' ')),
        raw);
    QCOMPARE(expected.size(), 160 * 120 * 4);
    question.forScreen = true;
    QCOMPARE(zokit::frame(frames, question).frame.bytes, expected);
    question.kind = FrameKind::Before; // What is in the clip is shown as it is.
    QVERIFY(zokit::frame(frames, question).frame.bytes != expected);
}

void TestKitFrames::rgbIsShownAsItIs()
{
    Frames frames(zokit::findTools());
    FrameQuestion question = questionOf(QStringLiteral("rgb.mkv"), 0.1);
    question.forScreen = true;
    for (const char* format : {"", "yuv444p"}) {
        question.pixelFormat = QString::fromLatin1(format);
        for (const FrameKind kind : {FrameKind::Before, FrameKind::After}) {
            question.kind = kind;
            const QColor colour = zokit::frame(frames, question).frame.image().pixelColor(20, 20);
            const bool isSame = std::abs(colour.red() - 0xc0) <= 2 && std::abs(colour.green() - 0x80) <= 2
                                && std::abs(colour.blue() - 0x40) <= 2;
            QVERIFY2(isSame, qPrintable(colour.name()));
        }
    }
}

void TestKitFrames::keptFrameIsTheSame_data()
{
    QTest::addColumn<QString>("clip");
    for (const char* clip : {"lossless.mkv", "top-first.mkv", "pq.mkv", "raw.h264", "palette.mkv"})
        QTest::newRow(clip) << QString::fromLatin1(clip);
}

void TestKitFrames::keptFrameIsTheSame()
{
    QFETCH(const QString, clip);
    FrameQuestion question = questionOf(clip, 0.2);
    Frames once(zokit::findTools());
    const QByteArray decoded = zokit::frame(once, question).frame.bytes;
    QVERIFY(!decoded.isEmpty());
    question.isKept = true;
    Frames frames(zokit::findTools());
    QCOMPARE(zokit::frame(frames, question).frame.bytes, decoded);
    QCOMPARE(zokit::frame(frames, question).frame.bytes, decoded);
}

/// What a clip does not tell of its times is found out, or taken as usual.
void TestKitFrames::clipMayTellLittle()
{
    FrameQuestion question = questionOf(QStringLiteral("lossless.mkv"), 0.2);
    question.isKept = true;
    Frames whole(zokit::findTools());
    const QByteArray expected = zokit::frame(whole, question).frame.bytes;
    QVERIFY(!expected.isEmpty());
    zokit::MediaStream& picture = question.media.streams.first();
    const auto answer = [&question] {
        Frames frames(zokit::findTools());
        return zokit::frame(frames, question).frame.bytes;
    };
    picture.averageRate = {0, 1};
    QCOMPARE(answer(), expected);
    picture.frameRate = {0, 1};
    QCOMPARE(answer(), expected);
    question.media.seconds = 0;
    QCOMPARE(answer(), expected);
    zokit::Tools none = zokit::findTools();
    none.error = zokit::Message(zokit::Message::Code::ToolMissing, {QStringLiteral("ffmpeg"), QStringLiteral("x")});
    Frames without(none);
    QCOMPARE(zokit::frame(without, question).error, none.error);
}

void TestKitFrames::bytesOfAnotherSizeAreNoImage()
{
    zokit::ClipFrame frame;
    QVERIFY(frame.image().isNull());
    frame.size = QSize(2, 1);
    frame.bytes = QByteArray("\x01\x02\x03\x04\x05\x06\x07", 7);
    QVERIFY(frame.image().isNull());
    frame.bytes.append('\x08');
    QCOMPARE(frame.image().pixelColor(1, 0), QColor(5, 6, 7));
}

void TestKitFrames::wholeFrameIsNeitherCutNorScaled()
{
    Frames frames(zokit::findTools());
    FrameQuestion question = questionOf(QStringLiteral("lossless.mkv"), 0.2);
    question.forScreen = true;
    graphsupport::set(question.settings, "Crop", "crop_width", 80);
    graphsupport::set(question.settings, "Crop", "crop_height", 100);
    question.settings.output.insert(QStringLiteral("size"), QStringLiteral("40x40"));
    graphsupport::append(question.settings, "Watermark",
                         {{QStringLiteral("wm_imageurl"), kitsupport::logoPath(40, 30)},
                          {QStringLiteral("wm_imagewidth"), 40},
                          {QStringLiteral("wm_imageheight"), 30}});
    QCOMPARE(zokit::frame(frames, question).frame.image().size(), QSize(32, 40));
    question.kind = FrameKind::Whole;
    const QImage whole = zokit::frame(frames, question).frame.image();
    QCOMPARE(whole.size(), QSize(160, 120));
    question.kind = FrameKind::Before;
    QCOMPARE(whole, zokit::frame(frames, question).frame.image());
}

void TestKitFrames::keptFrameTakesNoDecoding()
{
    FrameQuestion question = questionOf(QStringLiteral("lossless.mkv"), 0.2);
    const QString copy = m_folder.filePath(QStringLiteral("copy.mkv"));
    QVERIFY(QFile::copy(question.media.file, copy));
    question.media.file = copy;
    question.isKept = true;
    Frames frames(zokit::findTools());
    const QByteArray first = zokit::frame(frames, question).frame.bytes;
    QCOMPARE(first.size(), 160 * 120 * 3 / 2);

    QFile file(copy);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no clip any more") > 0);
    file.close();
    graphsupport::useEffect(question.settings, QStringLiteral("Flip"));
    const QByteArray flipped = zokit::frame(frames, question).frame.bytes;
    QCOMPARE(flipped.left(160), first.mid(160 * 119, 160));
    question.seconds = 0.3;
    QVERIFY(!zokit::frame(frames, question).error.isEmpty());
}

void TestKitFrames::loadedAheadAnswersTheSame()
{
    zokit::Tools tools = zokit::findTools();
    const QString log = m_folder.filePath(QStringLiteral("starts"));
    QFile told(m_folder.filePath(QStringLiteral("ffmpeg")));
    QVERIFY(told.open(QIODevice::WriteOnly));
    told.write(QStringLiteral("#!/bin/sh\necho $$ >> '%1'\nexec %2 \"$@\"\n").arg(log, tools.ffmpeg).toLocal8Bit());
    told.close();
    QVERIFY(told.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    tools.ffmpeg = told.fileName();
    const auto starts = [&log] {
        QFile file(log);
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().split('\n') : QList<QByteArray>();
    };
    FrameQuestion question = questionOf(QStringLiteral("lossless.mkv"), 0.2);
    question.isKept = true;
    Frames frames(tools);
    frames.expectMore(); // There is nothing yet that it could be loaded for.
    const QByteArray first = zokit::frame(frames, question).frame.bytes;
    QCOMPARE(starts().size(), 2); // The clip's frame, and what comes out.

    frames.expectMore();
    frames.expectMore();
    QTRY_COMPARE(starts().size(), 3);
    graphsupport::useEffect(question.settings, QStringLiteral("Flip"));
    const QByteArray flipped = zokit::frame(frames, question).frame.bytes;
    QCOMPARE(flipped.left(160), first.mid(160 * 119, 160));
    QCOMPARE(starts().size(), 3);

    frames.expectMore();
    QTRY_COMPARE(starts().size(), 4);
    QCOMPARE(kill(starts().constLast().toInt(), SIGKILL), 0);
    QCOMPARE(zokit::frame(frames, question).frame.bytes, flipped);
    QCOMPARE(starts().size(), 5);

    frames.expectMore();
    QTRY_COMPARE(starts().size(), 6);
    graphsupport::append(question.settings, "Watermark", // Another file, for which it was not loaded.
                         {{QStringLiteral("wm_imageurl"), kitsupport::logoPath(40, 30)},
                          {QStringLiteral("wm_imagewidth"), 40},
                          {QStringLiteral("wm_imageheight"), 30}});
    QVERIFY(zokit::frame(frames, question).frame.bytes != flipped);
    QCOMPARE(starts().size(), 7);
    frames.expectMore();
    QTRY_COMPARE(starts().size(), 8);
    frames.cancel();
    QCOMPARE(childwatch::children(), QVector<qint64>());
    question.settings.find(QStringLiteral("Watermark"))->items.clear();
    QCOMPARE(zokit::frame(frames, question).frame.bytes, flipped);
}

void TestKitFrames::onlyTheLatestIsTold()
{
    Frames frames(zokit::findTools());
    QSignalSpy told(&frames, &Frames::answered);
    FrameQuestion question = questionOf(QStringLiteral("plain.mp4"), 0);
    QCOMPARE(frames.ask(question), 1);
    QTest::qWait(20); // A child runs.
    QCOMPARE(frames.ask(question), 2);
    question.seconds = 0.2;
    QCOMPARE(frames.ask(question), 3);
    QVERIFY(frames.isRunning());
    QVERIFY(told.isEmpty());
    QVERIFY(told.wait(patience));
    QCOMPARE(told.first().first().value<FrameAnswer>().number, 3);
    QVERIFY(!frames.isRunning());

    frames.ask(question);
    frames.cancel();
    QVERIFY(!frames.isRunning());
    QTest::qWait(50);
    QCOMPARE(told.size(), 1);
}

void TestKitFrames::fileOfPicturesKeepsItsTimes()
{
    Frames frames(zokit::findTools());
    for (const double seconds : {0.04, 0.2, 0.32}) {
        FrameQuestion question = questionOf(QStringLiteral("lossless.mkv"), seconds);
        const QByteArray bare = zokit::frame(frames, question).frame.bytes;
        graphsupport::append(question.settings, "Subtitle",
                             {{QStringLiteral("sub_fromfile"), true},
                              {QStringLiteral("file"), clips::clip(QStringLiteral("graphic.sup"))}});
        const FrameAnswer answer = zokit::frame(frames, question);
        QCOMPARE(answer.error.text(), QString());
        QCOMPARE(answer.frame.bytes != bare, seconds == 0.2); // It is shown from 0.1 to 0.3 s.
    }
}

void TestKitFrames::correctedSubtitlesAreShown()
{
    Frames frames(zokit::findTools());
    FrameQuestion question = questionOf(QStringLiteral("lossless.mkv"), 0.2);
    QFile file(m_folder.filePath(QStringLiteral("text.srt")));
    graphsupport::append(question.settings, "Subtitle",
                         {{QStringLiteral("sub_fromfile"), true}, {QStringLiteral("file"), file.fileName()}});
    const auto shown = [&](const char* text) {
        const QByteArray times = "1\n00:00:00,100 --> 00:00:00,300\n";
        if (!file.open(QIODevice::WriteOnly) || file.write(times + text) <= 0)
            return QByteArray();
        file.close();
        return zokit::frame(frames, question).frame.bytes;
    };
    const QByteArray before = shown("Helo\n");
    QCOMPARE(before.size(), 160 * 120 * 3 / 2);
    QVERIFY(shown("Hello\n") != before);
}

void TestKitFrames::fontsOfTheClipAreUsed_data()
{
    QTest::addColumn<zokit::Values>("track");

    QTest::newRow("by a track of the clip") << zokit::Values{{QStringLiteral("trackid"), 1}};
    QTest::newRow("by a file beside it") << zokit::Values{
        {QStringLiteral("sub_fromfile"), true}, {QStringLiteral("file"), clips::clip(QStringLiteral("brought.ass"))}};
}

/// The clip brings a font under another name than the one under which it is installed.
void TestKitFrames::fontsOfTheClipAreUsed()
{
    QFETCH(const zokit::Values, track);
    const auto burning = [](const char* clip, const zokit::Values& values) {
        FrameQuestion question = questionOf(QString::fromLatin1(clip), 0.2);
        graphsupport::append(question.settings, "Subtitle", values);
        question.settings.output.insert(QStringLiteral("burn-subtitles"), true);
        question.settings.output.insert(QStringLiteral("video-codec"), QStringLiteral("ffv1"));
        return question;
    };
    Frames frames(zokit::findTools());
    const QByteArray expected =
        zokit::frame(frames, burning("serif.mkv", {{QStringLiteral("trackid"), 1}})).frame.bytes;
    const FrameQuestion question = burning("brought.mkv", track);
    const QByteArray shown = zokit::frame(frames, question).frame.bytes;
    QCOMPARE(shown.size(), 160 * 120 * 3 / 2);
    QVERIFY(shown == expected);

    zokit::Job job;
    job.input = question.media.file;
    job.output = m_folder.filePath(QStringLiteral("brought.mkv"));
    job.settings = question.settings;
    zokit::Conversion conversion(zokit::findTools());
    QSignalSpy ended(&conversion, &zokit::Conversion::finished);
    conversion.start(job);
    QVERIFY(ended.wait(patience));
    QCOMPARE(placeOf(expected, decoded(job.output)), 5);
    QVERIFY(QFile::remove(job.output));

    // What one clip brings is not for the next.
    const FrameQuestion without =
        burning("silent.mkv", {{QStringLiteral("sub_fromfile"), true},
                               {QStringLiteral("file"), clips::clip(QStringLiteral("brought.ass"))}});
    const QByteArray otherwise = zokit::frame(frames, without).frame.bytes;
    QCOMPARE(otherwise.size(), expected.size());
    QVERIFY(otherwise != expected);
}

void TestKitFrames::failureTellsItsReason_data()
{
    QTest::addColumn<QString>("script");      // Instead of ffmpeg.
    QTest::addColumn<zokit::Values>("track"); // Of subtitles; empty: none.
    QTest::addColumn<QString>("sentence");

    const auto file = [](const QString& path) {
        return zokit::Values{{QStringLiteral("sub_fromfile"), true}, {QStringLiteral("file"), path}};
    };
    QTest::newRow("killed") << QStringLiteral("kill -9 $$") << zokit::Values()
                            << QStringLiteral("ffmpeg was ended by signal 9. Try again, with more memory at hand.");
    QTest::newRow("nothing comes") << QStringLiteral("exit 0") << zokit::Values()
                                   << clips::clip(QStringLiteral("plain.mp4"))
                                          + QStringLiteral(" has no picture that can be shown. Choose another file.");
    const QString noPicture = clips::clip(QStringLiteral("plain.mp4"))
                              + QStringLiteral(" has no picture that can be shown. Choose another file.");
    QTest::newRow("a frame that is told and does not come")
        << QStringLiteral("echo 'frame:0 pts:0' >&2") << zokit::Values() << noPicture;
    QTest::newRow("half a frame") << QStringLiteral("echo 'frame:0 pts:0' >&2; echo 'frame:1 pts:1' >&2; printf abc")
                                  << zokit::Values() << noPicture;
    QTest::newRow("a time that is none") << QStringLiteral("echo 'frame:0 pts:NOPTS' >&2; printf abc")
                                         << zokit::Values() << noPicture;
    QTest::newRow("killed while the frame is looked for")
        << QStringLiteral("case \"$*\" in *null*) kill -9 $$;; esac") << zokit::Values()
        << QStringLiteral("ffmpeg was ended by signal 9. Try again, with more memory at hand.");
    QTest::newRow("subtitles that it cannot read")
        << QStringLiteral("printf 'Invalid data\\nframe:0 pts:0\\nframe= 3\\n' >&2; exit 1")
        << file(clips::clip(QStringLiteral("text.srt"))) << QStringLiteral("ffmpeg failed: Invalid data");
    QTest::newRow("pictures as subtitles that are gone")
        << QStringLiteral("exit 0") << file(QStringLiteral("/gone.sup")) << QStringLiteral("/gone.sup: no such file.");
    QTest::newRow("subtitles that the clip lacks")
        << QStringLiteral("exit 0") << zokit::Values{{QStringLiteral("trackid"), 9}}
        << QStringLiteral("The clip has no such track 9. Choose one that it has.");
}

void TestKitFrames::failureTellsItsReason()
{
    QFETCH(const QString, script);
    QFETCH(const zokit::Values, track);
    QFETCH(const QString, sentence);
    const QTemporaryDir folder;
    zokit::Tools tools = zokit::findTools();
    tools.ffmpeg = folder.filePath(QStringLiteral("ffmpeg"));
    QFile program(tools.ffmpeg);
    QVERIFY(program.open(QIODevice::WriteOnly));
    program.write("#!/bin/sh\n" + script.toUtf8() + '\n');
    QVERIFY(program.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    program.close();
    Frames frames(tools);
    FrameQuestion question = questionOf(QStringLiteral("plain.mp4"), 0);
    if (!track.isEmpty())
        graphsupport::append(question.settings, "Subtitle", track);
    for (int time = 1; time <= 2; ++time) { // What failed is tried again.
        const FrameAnswer answer = zokit::frame(frames, question);
        QCOMPARE(answer.error.text(), sentence);
        QVERIFY(answer.frame.bytes.isEmpty());
    }
}

void TestKitFrames::frameIsRefused_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<QString>("sentence");

    QTest::newRow("no picture") << QStringLiteral("sound.wav")
                                << QStringLiteral("%1 has no picture that can be shown. Choose another file.");
    QTest::newRow("a crop of nothing")
        << QStringLiteral("plain.mp4")
        << QStringLiteral("10x10 of the frame of 160x120 is left of the crop. At least 24x24 is needed: move it into "
                          "the frame or make it larger.");
}

void TestKitFrames::frameIsRefused()
{
    QFETCH(const QString, clip);
    QFETCH(QString, sentence);
    Frames frames(zokit::findTools());
    FrameQuestion question = questionOf(clip, 0);
    for (const char* side : {"crop_width", "crop_height"})
        graphsupport::set(question.settings, "Crop", side, 10);
    sentence.replace(QStringLiteral("%1"), question.media.file);
    const FrameAnswer answer = zokit::frame(frames, question);
    QCOMPARE(answer.error.text(), sentence);
    QVERIFY(answer.frame.bytes.isEmpty());
}

namespace {

/// The times of all frames, from the clip's beginning, as ffprobe finds them.
QVector<double> timesOf(const MediaInfo& media)
{
    zokit::Command command;
    command.program = zokit::findTools().ffprobe;
    command.arguments = QStringLiteral("-v error -select_streams %1 -show_entries frame=best_effort_timestamp_time "
                                       "-of default=nk=1:nw=1")
                            .arg(media.picture()->track.index)
                            .split(QLatin1Char(' '));
    command.arguments << media.file;
    QVector<double> times;
    const QList<QByteArray> lines = zokit::run(command).output.split('\n');
    for (const QByteArray& line : lines) {
        bool isNumber = false;
        const double time = line.toDouble(&isNumber);
        if (isNumber)
            times.append(time - media.start);
    }
    return times;
}

/// A scene is all that is set for the picture of a clip, anything of the table.
class Scene {
public:
    explicit Scene(quint32 seed) : m_random(seed)
    {
        const QStringList clips{key("lossless.mkv"),  key("plain.mp4"),      key("variable.mp4"), key("late.ts"),
                                key("top-first.mkv"), key("ten-bit.mkv"),    key("plain.avi"),    key("full-range.mkv"),
                                key("rotate90.mp4"),  key("anamorphic.mp4"), key("graphic.mkv"),  key("bt601.mkv"),
                                key("plain.webm"),    key("languages.mkv"),  key("hlg.mkv"),      key("plain.mpg"),
                                key("gap.mkv"),       key("chapters.mkv"),   key("fields90.mp4")};
        name = clips.at(m_random.bounded(clips.size()));
        media = probed(name);
        settings = graphsupport::plain(media.picture()->shown);
        addItems();
        for (const zokit::Property& property : zokit::properties()) {
            if (!zokit::isSoundType(property.type))
                change(property);
        }
        settings.output.insert(key("video-codec"), key("ffv1"));
        settings.output.insert(key("pixel-format"), key("source"));
        if (m_random.bounded(4) == 0)
            settings.output.insert(key("size"), QStringLiteral("%1x90").arg(90 + 2 * m_random.bounded(40)));
        if (media.picture()->isHdr && m_random.bounded(2) == 0)
            settings.output.insert(key("hdr"), key("map"));
        times = {0, m_random.bounded(media.seconds), media.seconds + m_random.bounded(2.0)};
    }

    QString name;
    MediaInfo media;
    Settings settings;
    QVector<double> times;

private:
    static QString key(const char* name) { return QString::fromLatin1(name); }

    void addItems()
    {
        for (int i = m_random.bounded(3); i > 0; --i) {
            const bool isText = m_random.bounded(2) == 0;
            graphsupport::append(settings, "Watermark",
                                 {{key("wm_istextwatermark"), isText},
                                  {key("wm_textcontent"), key("Zo & co")},
                                  {key("wm_imageurl"), isText ? QString() : kitsupport::logoPath(40, 30)},
                                  {key("wm_imagewidth"), 40},
                                  {key("wm_imageheight"), 30},
                                  {key("wm_fontname"), QFont(key("DejaVu Sans"))}});
        }
        const int subtitle = m_random.bounded(3);
        if (subtitle == 1)
            graphsupport::append(settings, "Subtitle",
                                 {{key("sub_fromfile"), true}, {key("file"), clips::clip(key("text.srt"))}});
        for (const zokit::MediaStream& stream : std::as_const(media.streams)) {
            if (subtitle == 2 && stream.track.kind == zokit::TrackKind::Subtitle) {
                graphsupport::append(settings, "Subtitle", {{key("trackid"), stream.track.index}});
                settings.output.insert(key("burn-subtitles"), true);
                break;
            }
        }
        zokit::TypeSettings* effects = settings.find(key("Effect"));
        for (int i = m_random.bounded(4) - 1; i > 0; --i) {
            effects->selected = true;
            effects->items[m_random.bounded(effects->items.size())].selected = true;
        }
        zokit::TypeSettings* crop = settings.find(key("Crop"));
        crop->selected = m_random.bounded(2) == 0;
        crop->values.insert(key("crop_minwidth"), 2); // What is smaller is refused, and nothing to be compared.
        crop->values.insert(key("crop_minheight"), 2);
        settings.find(key("Color"))->selected = m_random.bounded(2) == 0;
    }

    void change(const zokit::Property& property)
    {
        const QStringList fixed{key("trackid"),        key("sub_fromfile"),  key("file"),
                                key("wm_imageurl"),    key("wm_fontname"),   key("wm_istextwatermark"),
                                key("wm_textcontent"), key("crop_minwidth"), key("crop_minheight")};
        if (fixed.contains(property.key))
            return;
        zokit::TypeSettings* type = settings.find(property.type);
        if (!type) // "Tracks"
            return;
        if (!zokit::hasItems(property.type) || property.suits.testFlag(zokit::Suit::Type)) {
            if (m_random.bounded(2) == 0)
                set(type->values, property);
        }
        for (zokit::Item& item : type->items) {
            if (m_random.bounded(2) == 0 && property.type != QLatin1String("Effect"))
                set(item.values, property);
        }
    }

    void set(zokit::Values& values, const zokit::Property& property)
    {
        const QSize frame = settings.media.frame;
        QVariant value;
        if (!property.choices.isEmpty()) {
            value = property.choices.at(m_random.bounded(property.choices.size())).value;
        } else if (property.kind == zokit::ValueKind::Bool) {
            value = m_random.bounded(2) == 0;
        } else if (property.kind == zokit::ValueKind::Color) {
            value = QColor::fromRgb(m_random.generate());
        } else if (property.kind == zokit::ValueKind::Integer && property.isGeometry) {
            value = m_random.bounded(std::min(frame.width(), frame.height()));
        } else if (property.kind == zokit::ValueKind::Integer && property.lowest.isValid()) {
            const int lowest = property.lowest.toInt();
            value = m_random.bounded(lowest, std::max(property.highest.toInt(), lowest) + 1);
        }
        if (value.isValid() && zokit::readValue(property, value, frame, QString()).error.isEmpty())
            values.insert(property.key, value);
    }

    QRandomGenerator m_random;
};

} // namespace

void TestKitFrames::previewIsTheOutput_data()
{
    QTest::addColumn<quint32>("seed");

    constexpr int usual = 12;
    const int scenes = kitsupport::stepsOr("ZOKIT_SCENES", usual);
    for (int seed = 1; seed <= scenes; ++seed)
        QTest::newRow(qPrintable(QStringLiteral("scene %1").arg(seed))) << quint32(seed);
    if (scenes == usual)
        QTest::newRow("a subtitle's picture that begins with the first frame") << quint32(200);
}

void TestKitFrames::previewIsTheOutput()
{
    QFETCH(const quint32, seed);
    ++m_scenes;
    const Scene scene(seed);
    if (QByteArray(QTest::currentDataTag()) == "a subtitle's picture that begins with the first frame")
        QVERIFY(scene.name == QStringLiteral("graphic.mkv")
                && scene.settings.output.value(QStringLiteral("burn-subtitles")).toBool());

    zokit::Job job;
    job.input = scene.media.file;
    job.output = m_folder.filePath(QStringLiteral("%1.mkv").arg(seed));
    job.settings = scene.settings;
    zokit::Conversion conversion(zokit::findTools());
    QSignalSpy ended(&conversion, &zokit::Conversion::finished);
    conversion.start(job);
    QVERIFY(ended.wait(patience));
    const auto result = ended.first().first().value<zokit::ConversionResult>();
    Frames frames(zokit::findTools());
    FrameQuestion question = zokit::plannedFrame(scene.settings, conversion.media(), conversion.plan());
    question.forScreen = false;
    question.isKept = seed % 2 == 0;
    if (result.outcome != zokit::Outcome::Done) {
        // What cannot be converted cannot be previewed either, for the same reason.
        QVERIFY(!result.reason.isEmpty());
        QCOMPARE(zokit::frame(frames, question).error.text(), result.reason.text());
        ++m_refused;
        return;
    }
    const QByteArray all = decoded(job.output);
    QVERIFY(QFile::remove(job.output));
    const QVector<double> times = timesOf(scene.media);
    const int size = static_cast<int>(all.size() / times.size());
    QCOMPARE(size * times.size(), all.size());

    for (const double seconds : scene.times) {
        int place = 0;
        while (place + 1 < times.size() && times.at(place + 1) < seconds + 0.0005)
            ++place;
        question.seconds = seconds;
        question.isKept = !question.isKept; // Both ways lead to it.
        const FrameAnswer answer = zokit::frame(frames, question);
        QCOMPARE(answer.error.text(), QString());
        QCOMPARE(answer.frame.bytes.size(), size);
        if (answer.frame.bytes != all.mid(place * size, size))
            QFAIL(qPrintable(QStringLiteral("%1 at %2 s is frame %3 instead of %4")
                                 .arg(scene.name)
                                 .arg(seconds)
                                 .arg(placeOf(answer.frame.bytes, all))
                                 .arg(place)));
        ++m_compared;
    }
}

void TestKitFrames::cleanupTestCase()
{
    qInfo("%d previews compared, %d scenes refused by both", m_compared, m_refused);
    QVERIFY2(20 * m_refused <= m_scenes, "more than one scene in 20 was not compared");
}

ZOEFFECT_TEST_MAIN(TestKitFrames)
#include "tst_kit_frames.moc"
