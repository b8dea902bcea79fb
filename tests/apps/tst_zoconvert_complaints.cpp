// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What users of other converters complained of, done here once more. Each stands under the number of the complaint.

#include <csignal>

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QtTest>

#include <zokit/probe.h>

#include "clips.h"
#include "programrun.h"
#include "testapplication.h"

namespace {

using Arguments = QList<QByteArray>;

constexpr int patience = 60000; // Milliseconds; only a hang takes so long.

void put(const ProgramRun& run, const char* clip, const char* name)
{
    const QString path = run.path(name);
    QDir().mkpath(QFileInfo(path).path());
    QVERIFY(QFile::copy(clips::clip(QString::fromLatin1(clip)), path));
}

/// The events of a run, each with its reason.
QStringList eventsOf(const QString& out)
{
    QStringList events;
    for (const QString& line : out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
        const QString reason = object.value(QStringLiteral("reason")).toString();
        const QString event = object.value(QStringLiteral("event")).toString();
        events.append(reason.isEmpty() ? event : event + QStringLiteral(": ") + reason);
    }
    events.removeAll(QStringLiteral("progress"));
    return events;
}

} // namespace

class TestZoconvertComplaints : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFullDiskIsNoSuccess();
    void aCutFileIsNotSimplyDone();
    void aTrimmedFileIsNotCalledDamaged();
    void theExitCodeTellsTheAim();
    void nothingIsOverwrittenUnasked_data();
    void nothingIsOverwrittenUnasked();
    void noTrackIsLostWithoutAWord_data();
    void noTrackIsLostWithoutAWord();
    void languageThatNoTrackHasIsTold();
    void foldersAreConvertedAsTrees();
    void datesCanBeKept();
    void whatIsThereCanBeSkipped();
    void progressGoesThroughAPipe();
    void aMalformedValueIsNotRendered_data();
    void aMalformedValueIsNotRendered();
};

// jlesage/docker-handbrake#435
void TestZoconvertComplaints::aFullDiskIsNoSuccess()
{
    ProgramRun run;
    put(run, "long.ts", "long.ts");
    const QString before = run.files();
    {
        const FullDisk disk(20480);
        run.run({"convert", "long.ts", "-o", "new.mkv", "--progress", "json"});
    }
    QCOMPARE(run.code, 1);
    const QStringList events = eventsOf(run.out);
    QVERIFY2(events.filter(QRegularExpression(QStringLiteral("^failed: "))).size() == 1, qPrintable(run.out));
    QVERIFY2(!events.contains(QStringLiteral("done")), qPrintable(run.out));
    QCOMPARE(run.files(), before);
}

// HandBrake/HandBrake#1517
void TestZoconvertComplaints::aCutFileIsNotSimplyDone()
{
    ProgramRun run;
    QFile whole(clips::clip(QStringLiteral("plain.mkv")));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    constexpr int half = 8000; // Bytes of some 16,000.
    run.write("cut.mkv", whole.read(half));
    const QString told = QStringLiteral("warning: The input is damaged; what could be read was converted. ffmpeg says: "
                                        "File ended prematurely");
    run.run({"convert", "cut.mkv", "-o", "new.mkv", "--progress", "json"});
    QCOMPARE(run.code, 0);
    QCOMPARE(eventsOf(run.out), (QStringList{"begin", "start", told, "done", "summary"}));
    QVERIFY2(run.err.contains(QStringLiteral("zoconvert: cut.mkv: ") + told), qPrintable(run.err));
    run.run({"convert", "cut.mkv", "-o", "strict.mkv", "--strict", "-q"});
    QCOMPARE(run.code, 1);
    QCOMPARE(run.err,
             QStringLiteral("zoconvert: cut.mkv: The input is damaged, and --strict does not allow that. Leave "
                            "it out to convert what can be read.\n"));
    QVERIFY(!QFile::exists(run.path("strict.mkv")));
}

void TestZoconvertComplaints::aTrimmedFileIsNotCalledDamaged()
{
    ProgramRun run;
    put(run, "long.mpg", "long.mpg");
    run.run({"convert", "long.mpg", "--trim", "0.5,2.5", "-o", "new.mp4", "--strict"});
    QCOMPARE(run.err, QStringLiteral("zoconvert: long.mpg: track 0 (video, mpeg2video): converted to h264\n"
                                     "zoconvert: long.mpg: track 1 (audio, mp2): converted to aac\n"
                                     "zoconvert: long.mpg: done: new.mp4\n"));
    QFile whole(clips::clip(QStringLiteral("long.mpg")));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    QByteArray bytes = whole.readAll();
    for (int at = static_cast<int>(bytes.size()) / 3; at + 64 < bytes.size() * 2 / 3; at += 1000)
        bytes.replace(at, 64, QByteArray(64, '\0'));
    run.write("damaged.mpg", bytes);
    run.run({"convert", "damaged.mpg", "--trim", "0.5,2.5", "-o", "other.mp4"});
    QVERIFY2(run.err.contains(QStringLiteral("warning: The input is damaged")), qPrintable(run.err));
}

// HandBrake/HandBrake#4270
void TestZoconvertComplaints::theExitCodeTellsTheAim()
{
    ProgramRun run;
    put(run, "plain.mp4", "clip.mp4");
    // A child that ends well and has written nothing.
    run.setFfmpeg("exit 0\n");
    const QString before = run.files();
    run.run({"convert", "clip.mp4", "-o", "new.mp4", "-q"});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.err.startsWith(QStringLiteral("zoconvert: clip.mp4: The result cannot be read: ")),
             qPrintable(run.err));
    QCOMPARE(run.files(), before);
}

// HandBrake/HandBrake#2624, mifi/lossless-cut#916
void TestZoconvertComplaints::nothingIsOverwrittenUnasked_data()
{
    QTest::addColumn<Arguments>("arguments");
    QTest::addColumn<QString>("err");
    QTest::newRow("another file") << Arguments{"-o", "mine.mp4"}
                                  << "zoconvert: mine.mp4 exists. Add --existing skip or --existing replace.\n";
    QTest::newRow("the source") << Arguments{"-o", "clip.mp4"}
                                << "zoconvert: clip.mp4 is the input itself. Give another output.\n";
    QTest::newRow("the source, although replacing was asked for")
        << Arguments{"-o", "clip.mp4", "--overwrite"}
        << "zoconvert: clip.mp4 is the input itself. Give another output.\n";
    QTest::newRow("the source by a pattern") << Arguments{"--name", "{name}.{ending}", "--overwrite"}
                                             << "zoconvert: clip.mp4 is the input itself. Give another output.\n";
}

void TestZoconvertComplaints::nothingIsOverwrittenUnasked()
{
    QFETCH(Arguments, arguments);
    QFETCH(QString, err);
    ProgramRun run;
    put(run, "plain.mp4", "clip.mp4");
    run.write("mine.mp4", "mine");
    const QByteArray before = run.content("clip.mp4");
    run.run(Arguments{"convert", "clip.mp4", "--text", "Hello", "-q"} + arguments);
    QCOMPARE(run.err, err);
    QCOMPARE(run.code, 1);
    QCOMPARE(run.content("mine.mp4"), QByteArray("mine"));
    QVERIFY(run.content("clip.mp4") == before);
}

void TestZoconvertComplaints::noTrackIsLostWithoutAWord_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<QString>("made");
    QTest::addColumn<QString>("codecs");
    QTest::addColumn<QString>("lines");
    // HandBrake/HandBrake#7507
    QTest::newRow("pictures as subtitles") << "graphic.mkv"
                                           << "new.mp4"
                                           << "h264 aac"
                                           << "track 0 (video, h264): copied|track 1 (audio, aac): copied|track 2 "
                                              "(subtitle, hdmv_pgs_subtitle): left out, "
                                              "because mp4 holds no hdmv_pgs_subtitle";
    // HandBrake/HandBrake#5417
    QTest::newRow("every track of sound")
        << "languages.mkv"
        << "new.mkv"
        << "h264 aac aac subrip ass"
        << "track 0 (video, h264): copied|track 1 (audio, fra, aac): copied|track 2 "
           "(audio, eng, aac): copied|track 3 (subtitle, ger, subrip): copied|track 4 "
           "(subtitle, ass): copied";
    // HandBrake/HandBrake#2947
    QTest::newRow("subtitles of text")
        << "languages.mkv"
        << "new.mov"
        << "h264 aac aac mov_text mov_text"
        << "warning: mov keeps no titles of tracks. Take mkv to keep them.|track 0 (video, "
           "h264): copied|track 1 (audio, fra, aac): copied|track 2 (audio, eng, aac): "
           "copied|track 3 (subtitle, ger, subrip): converted to mov_text, because mov "
           "holds no subrip|track 4 (subtitle, ass): converted to mov_text, because mov "
           "holds no ass";
    // HandBrake/HandBrake#5042
    QTest::newRow("a cover and an attachment") << "attachment.mkv"
                                               << "new.mp4"
                                               << "h264 aac"
                                               << "track 0 (video, h264): copied|track 1 (audio, aac): copied|track 2 "
                                                  "(attachment, ttf): left out, because mp4 "
                                                  "holds no attachment";
    QTest::newRow("a sound that is only announced")
        << "no-rate.ts"
        << "new.mkv"
        << "h264"
        << "track 0 (video, h264): copied|track 1 (audio, aac): left out, because its sample rate is not known";
}

void TestZoconvertComplaints::noTrackIsLostWithoutAWord()
{
    QFETCH(QString, clip);
    QFETCH(QString, made);
    QFETCH(QString, codecs);
    QFETCH(QString, lines);
    ProgramRun run;
    put(run, qPrintable(clip), qPrintable(clip));
    run.run({"convert", clip.toUtf8(), "-o", made.toUtf8()});
    QCOMPARE(run.code, 0);
    QStringList said;
    for (const QString& line : run.err.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        said.append(QString(line).remove(QStringLiteral("zoconvert: %1: ").arg(clip)));
    QCOMPARE(said.join(QLatin1Char('|')), lines + QStringLiteral("|done: ") + made);
    const zokit::ReadMedia read = zokit::probe(zokit::findTools(), run.path(qPrintable(made)));
    QVERIFY(read.media);
    QStringList found;
    for (const zokit::MediaStream& stream : read.media->streams)
        found.append(stream.track.codec);
    QCOMPARE(found.join(QLatin1Char(' ')), codecs);
}

void TestZoconvertComplaints::languageThatNoTrackHasIsTold()
{
    ProgramRun run;
    put(run, "languages.mkv", "languages.mkv");
    run.run({"settings", "languages.mkv", "--audio-language", "deu", "--subtitle-language", "ita,deu"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.err, QStringLiteral("zoconvert: languages.mkv: warning: No audio track is in deu. Ask for a language "
                                     "that the clip has: fra, eng.\n"));
}

// HandBrake/HandBrake#2055, HandBrake/HandBrake#1654
void TestZoconvertComplaints::foldersAreConvertedAsTrees()
{
    ProgramRun run;
    put(run, "plain.mp4", "films/one.mp4");
    put(run, "plain.mp4", "films/a/one.mp4");
    put(run, "plain.mp4", "films/a/b/two.mp4");
    run.write("films/a/notes.txt", "no film");
    run.run({"convert", "films", "--recursive", "--output-folder", "done", "--name", "{name}.{ending}", "-q"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.code, 0);
    QStringList made;
    QDirIterator all(run.path("done"), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext())
        made.append(QDir(run.path("done")).relativeFilePath(all.next()));
    made.sort();
    QCOMPARE(made, (QStringList{"a/b/two.mp4", "a/one.mp4", "one.mp4"}));
}

// HandBrake/HandBrake#51
void TestZoconvertComplaints::datesCanBeKept()
{
    ProgramRun run;
    put(run, "plain.mp4", "clip.mp4");
    QFile clip(run.path("clip.mp4"));
    const QDateTime date(QDate(2001, 2, 3), QTime(4, 5, 6), Qt::UTC);
    QVERIFY(clip.open(QIODevice::ReadWrite) && clip.setFileTime(date, QFileDevice::FileModificationTime));
    clip.close();
    run.run({"convert", "clip.mp4", "-o", "kept.mp4", "--keep-date", "-q"});
    QCOMPARE(run.code, 0);
    QCOMPARE(QFileInfo(run.path("kept.mp4")).lastModified().toUTC(), date);
    run.run({"convert", "clip.mp4", "-o", "new.mp4", "-q"});
    QCOMPARE(run.code, 0);
    QVERIFY(QFileInfo(run.path("new.mp4")).lastModified().toUTC() > date.addYears(1));
}

// RandomEngy/VidCoder#997
void TestZoconvertComplaints::whatIsThereCanBeSkipped()
{
    ProgramRun run;
    put(run, "plain.mp4", "one.mp4");
    put(run, "plain.mp4", "two.mp4");
    run.write("one-converted.mp4", "mine");
    run.run({"convert", "one.mp4", "two.mp4", "--existing", "skip", "--progress", "json"});
    QCOMPARE(run.code, 0);
    QCOMPARE(eventsOf(run.out),
             (QStringList{"begin", "skipped: one-converted.mp4 exists; left out.", "start", "done", "summary"}));
    QCOMPARE(run.content("one-converted.mp4"), QByteArray("mine"));
    QVERIFY(zokit::probe(zokit::findTools(), run.path("two-converted.mp4")).media);
}

// yt-dlp/yt-dlp#13649
void TestZoconvertComplaints::progressGoesThroughAPipe()
{
    ProgramRun run;
    put(run, "plain.mp4", "clip.mp4");
    // A child that is half done, and stays there.
    run.setFfmpeg("printf 'out_time_us=200000\\nspeed=1x\\nprogress=continue\\n'\nexec sleep 600\n");
    const qint64 process = run.start({"convert", "clip.mp4", "-o", "new.mp4", "--progress", "json", "-q"});
    // No terminal is there, and the end is far: the number comes nevertheless.
    const bool isTold =
        QTest::qWaitFor([&] { return run.printed().contains("\"event\":\"progress\",\"fraction\":0.5,"); }, patience);
    ::kill(static_cast<pid_t>(process), SIGTERM);
    run.wait();
    QVERIFY2(isTold, qPrintable(run.out));
    QCOMPARE(run.code, 143);
    QCOMPARE(eventsOf(run.out), (QStringList{"begin", "start", "cancelled: Cancelled.", "summary"}));
}

// gyroflow/gyroflow#1222
void TestZoconvertComplaints::aMalformedValueIsNotRendered_data()
{
    QTest::addColumn<Arguments>("arguments");
    QTest::addColumn<QString>("err");
    const auto row = [](const char* name, const Arguments& arguments, const char* err) {
        QTest::newRow(name) << arguments << QStringLiteral("zoconvert: ") + QString::fromUtf8(err);
    };
    row("a word for a number", {"clip.mp4", "--set", "Color:bcs_contrast=abc"},
        "clip.mp4: Color:bcs_contrast: abc is no whole number.\n");
    row("half a number", {"clip.mp4", "--set", "Color:bcs_contrast=20.5"},
        "clip.mp4: Color:bcs_contrast: 20.5 is no whole number.\n");
    row("too much", {"clip.mp4", "--set", "Color:bcs_contrast=400"},
        "clip.mp4: Color:bcs_contrast: 400 is not between -50 and 50.\n");
    row("no colour", {"clip.mp4", "--text", "Hi", "--set", "Watermark:0:wm_fontcolor=reddish"},
        "clip.mp4: Watermark:0:wm_fontcolor: reddish is no colour. Write a name, #rrggbb, or #aarrggbb with the "
        "opacity "
        "first.\n");
    row("in a settings file", {"bad.zoeffect.json"},
        "bad.zoeffect.json: Color:bcs_contrast: abc is no whole number.\n");
}

void TestZoconvertComplaints::aMalformedValueIsNotRendered()
{
    QFETCH(Arguments, arguments);
    QFETCH(QString, err);
    ProgramRun run;
    put(run, "plain.mp4", "clip.mp4");
    run.write("bad.zoeffect.json", R"({"zoeffect": 1, "media": {"file": "clip.mp4", "width": 160, "height": 120},
        "effects": [{"type": "Color", "values": {"bcs_contrast": "abc"}}]})");
    const QString before = run.files();
    run.run(Arguments{"convert"} + arguments);
    QCOMPARE(run.err, err);
    QCOMPARE(run.code, 2);
    QCOMPARE(run.files(), before);
}

ZOEFFECT_TEST_MAIN(TestZoconvertComplaints)
#include "tst_zoconvert_complaints.moc"
