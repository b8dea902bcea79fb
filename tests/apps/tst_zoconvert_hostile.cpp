// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Names and files that are up to no good: each ends in a result under its own name, or in a sentence.

#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QRandomGenerator>
#include <QtTest>

#include <zokit/probe.h>

#include "clips.h"
#include "programrun.h"
#include "testapplication.h"

namespace {

using Arguments = QList<QByteArray>;

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// The beginning of a clip, as an interrupted copy leaves it.
QByteArray cut(const char* clip, int bytes)
{
    return contentOf(clips::clip(QString::fromLatin1(clip))).left(bytes);
}

/// A clip whose header says that its picture is 60000x60000.
QByteArray withHugePicture()
{
    QByteArray bytes = contentOf(clips::clip(QStringLiteral("plain.mp4")));
    constexpr int toSize = 28; // From the name of the sample entry.
    bytes.replace(bytes.indexOf("avc1", bytes.indexOf("stsd")) + toSize, 4, "\xea\x60\xea\x60");
    return bytes;
}

/// A sound whose header says that it is a hundred times as long.
QByteArray withLongSound()
{
    QByteArray bytes = contentOf(clips::clip(QStringLiteral("sound.wav")));
    bytes.replace(bytes.indexOf("data") + 4, 4, QByteArray("\x80\x96\x98\x00", 4));
    return bytes;
}

} // namespace

class TestZoconvertHostile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anyNameIsAName_data();
    void anyNameIsAName();
    void aNameThatIsNotUtf8IsRefused();
    void anyFileEndsInASentence_data();
    void anyFileEndsInASentence();
};

void TestZoconvertHostile::anyNameIsAName_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : {"-y",    "--help", "a\nb",        "%03d",  "concat:x", "http:x", "file:x", "pipe:0",
                             "x:y",   " a  b ", "it's \"q\"",  "*",     "~",        "@x",     "a|b",    "[0:v]",
                             "a;b,c", "a\\b",   "\x1b[31mred", "$(id)", "#x",       "{name}", "%1",     "."})
        QTest::newRow(QByteArray(name).replace('\n', "\\n").replace('\x1b', "\\x1b").constData()) << QByteArray(name);
    QTest::newRow("umlauts") << QByteArray("\xc3\x9c"
                                           "bergr\xc3\xb6\xc3\x9f"
                                           "e");
    QTest::newRow("as long as can be") << QByteArray(251, 'x');
}

void TestZoconvertHostile::anyNameIsAName()
{
    QFETCH(QByteArray, name);
    ProgramRun run;
    const QString file = QString::fromUtf8(name);
    const auto put = [&](const char* clip, const char* ending) {
        return QFile::copy(clips::clip(QString::fromLatin1(clip)),
                           QDir(run.path("")).filePath(file + QLatin1String(ending)));
    };
    QVERIFY(put("silent.mkv", ".mkv") && put("text.srt", ".srt") && put("still.png", ".png"));
    const QString before = run.files();
    run.run({"convert", "--image=" + name + ".png", "--subtitle=" + name + ".srt", "--crop", "0,0,80,60",
             "--output-folder", "new", "--name", "{name}.{ending}", "-q", "--", name + ".mkv"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.code, 0);
    const QDir made(run.path("new"));
    QCOMPARE(made.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{file + QStringLiteral(".mkv")});
    const zokit::ReadMedia read = zokit::probe(zokit::findTools(), made.filePath(file + QStringLiteral(".mkv")));
    QVERIFY(read.media && read.media->picture());
    QCOMPARE(read.media->picture()->shown, QSize(80, 60));
    QVERIFY(QDir(made).removeRecursively());
    QCOMPARE(run.files(), before);
}

void TestZoconvertHostile::aNameThatIsNotUtf8IsRefused()
{
    ProgramRun run;
    run.run({"convert", "a\xff.mkv"});
    QCOMPARE(run.err, QStringLiteral("zoconvert: a\\xff.mkv: This name is not in UTF-8. Rename the file.\n"));
    QCOMPARE(run.code, 1);
    run.run({"convert", "a.mkv", "--image", "a\xff.png"});
    QCOMPARE(run.err, QStringLiteral("zoconvert: --image a\\xff.png is not in UTF-8.\n"));
    QCOMPARE(run.code, 2);
}

void TestZoconvertHostile::anyFileEndsInASentence_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("content"); // Null: the test makes it itself.
    QTest::addColumn<QString>("made");
    QTest::addColumn<QString>("err");
    const auto row = [](const char* what, const char* name, const QByteArray& content, const char* made,
                        const char* err) {
        QTest::newRow(what) << QByteArray(name) << content << QString::fromUtf8(made)
                            << (*err == '\0' ? QString() : QStringLiteral("zoconvert: ") + QString::fromUtf8(err));
    };
    const char* tracks = "%: track 0 (video, h264): converted to h264\nzoconvert: %: track 1 (audio, aac): copied\n";
    const auto with = [&](const char* name, const char* more) {
        return QByteArray(QByteArray(tracks) + more).replace('%', name);
    };
    const QByteArray noMedia = "% is no media file that can be read. Check that it is whole. ffprobe says: ";
    const auto refused = [&](const char* name, const char* why) {
        return QByteArray(noMedia + why + "\n").replace('%', name);
    };
    row("cut", "cut.mkv", cut("plain.mkv", 8000), "new.mkv",
        with("cut.mkv",
             "zoconvert: %: warning: The input is damaged; what could be read was converted. ffmpeg says: File "
             "ended prematurely\nzoconvert: %: done: new.mkv\n"));
    row("cut before its index", "cut.mp4", cut("plain.mp4", 8000), "",
        refused("cut.mp4", "Invalid data found when processing input."));
    row("empty", "empty.mkv", QByteArray(""), "", "empty.mkv is empty. Get it once more from where it came from.\n");
    row("words", "words.mkv", "no film\n", "", refused("words.mkv", "Invalid data found when processing input."));
    row("lies about its size", "huge.mp4", withHugePicture(), "new.mkv",
        with("huge.mp4", "zoconvert: %: warning: The input is damaged; what could be read was converted. ffmpeg says: "
                         "Picture size 60000x60000 is invalid\nzoconvert: %: done: new.mkv\n"));
    row("lies about its length", "long.wav", withLongSound(), "new.mkv",
        "long.wav: track 0 (audio, pcm_s16le): copied\nzoconvert: long.wav: done: new.mkv\n");
    row("a list that names another", "list.mkv", "#EXTM3U\n#EXTINF:1,\nother.ts\n#EXT-X-ENDLIST\n", "",
        refused("list.mkv", "Invalid data found when processing input."));
    row("a script that names another", "join.mkv", "ffconcat version 1.0\nfile other.mkv\n", "",
        refused("join.mkv", "Invalid argument."));
    row("a list of addresses", "far.mkv", "#EXTM3U\n#EXTINF:1,\nhttp://127.0.0.1:9/x.ts\n", "",
        refused("far.mkv", "Invalid data found when processing input."));
    row("a pipe", "pipe.mkv", {}, "", "pipe.mkv is no ordinary file. Copy what it gives into one first.\n");
    row("a folder", "folder.mkv", {}, "",
        "folder.mkv: There is no media file in it. Add --recursive to look below it.\n");
    row("a device", "device.mkv", {}, "", "device.mkv is no ordinary file. Copy what it gives into one first.\n");
    row("a link to itself", "loop.mkv", {}, "", "loop.mkv cannot be read: Too many levels of symbolic links.\n");
    row("a link to nothing", "gone.mkv", {}, "", "gone.mkv: no such file.\n");
}

void TestZoconvertHostile::anyFileEndsInASentence()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, made);
    QFETCH(QString, err);
    ProgramRun run;
    for (const char* other : {"other.ts", "other.mkv"})
        QFile::copy(clips::clip(QStringLiteral("plain.") + QString::fromLatin1(other).section('.', 1)),
                    run.path(other));
    const QByteArray path = QFile::encodeName(run.path(name.constData()));
    if (!content.isNull())
        run.write(name.constData(), content);
    else if (name == "pipe.mkv")
        QCOMPARE(::mkfifo(path.constData(), 0600), 0);
    else if (name == "folder.mkv")
        QCOMPARE(::mkdir(path.constData(), 0700), 0);
    else
        QCOMPARE(::symlink(name == "loop.mkv"     ? "loop.mkv"
                           : name == "device.mkv" ? "/dev/zero"
                                                  : "nowhere.mkv",
                           path.constData()),
                 0);
    const QStringList before = run.files().split(QLatin1Char(' '));
    run.run({"convert", name, "--set", "Color:bcs_contrast=10", "-o", "new.mkv"});
    QCOMPARE(run.err, err);
    QCOMPARE(run.code, made.isEmpty() ? 1 : 0);
    QStringList after = run.files().split(QLatin1Char(' '));
    for (const QString& file : before)
        after.removeOne(file);
    QCOMPARE(after.join(QLatin1Char(' ')), made);
}

ZOEFFECT_TEST_MAIN(TestZoconvertHostile)
#include "tst_zoconvert_hostile.moc"
