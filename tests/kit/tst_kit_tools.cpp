// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <memory>

#include <sys/stat.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <zokit/child.h>
#include <zokit/probe.h>
#include <zokit/progress.h>
#include <zokit/tools.h>

#include "childwatch.h"
#include "clips.h"
#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;
using zokit::Child;
using zokit::ChildEnd;
using zokit::ChildResult;
using zokit::Command;
using zokit::Tools;
using Code = zokit::Message::Code;

constexpr int patience = 60000; // Milliseconds, for what takes few.

class TestKitTools : public childwatch::Test {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void bothAreFound();
    void missingOneIsNamed_data();
    void missingOneIsNamed();
    void abilitiesAreAsked();
    void versionIsRead_data();
    void versionIsRead();
    void namesAreRead();
    void conversionTellsItsProgress();
    void conversionIsCancelled();
    void conversionWithoutInputStalls();
    void conversionWithoutMemoryFails();

private:
    Command ffmpeg(const char* arguments) const;

    QByteArray m_path;
    Tools m_tools;
};

void TestKitTools::initTestCase()
{
    Test::initTestCase();
    m_path = qgetenv("PATH");
    m_tools = zokit::findTools();
}

void TestKitTools::cleanup()
{
    qputenv("PATH", m_path);
    qunsetenv("ZOEFFECT_FFMPEG");
    Test::cleanup();
}

/// ffmpeg with \a arguments, words with blanks between.
Command TestKitTools::ffmpeg(const char* arguments) const
{
    Command command;
    command.program = m_tools.ffmpeg;
    command.arguments = key("-v error -nostdin ").split(QLatin1Char(' '), Qt::SkipEmptyParts)
                        + QString::fromLatin1(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return command;
}

void TestKitTools::bothAreFound()
{
    QVERIFY2(m_tools.error.isEmpty(), qPrintable(m_tools.error.text()));
    QVERIFY(m_tools.ffmpeg.endsWith(key("/ffmpeg")));
    QVERIFY(m_tools.ffprobe.endsWith(key("/ffprobe")));

    const QTemporaryDir folder;
    QVERIFY(QFile::link(m_tools.ffmpeg, folder.filePath(key("ffmpeg"))));
    QVERIFY(QFile::link(m_tools.ffprobe, folder.filePath(key("ffprobe"))));
    qputenv("ZOEFFECT_FFMPEG", QFile::encodeName(folder.path()));
    const Tools named = zokit::findTools();
    QVERIFY(named.error.isEmpty());
    QCOMPARE(named.ffmpeg, folder.filePath(key("ffmpeg")));
    QCOMPARE(named.ffprobe, folder.filePath(key("ffprobe")));
}

void TestKitTools::missingOneIsNamed_data()
{
    QTest::addColumn<bool>("isNamed"); // The folder, by ZOEFFECT_FFMPEG; else it is all of PATH.
    QTest::addColumn<bool>("hasFfmpeg");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("neither in PATH")
        << false << false
        << key("ffmpeg is missing. Install the package ffmpeg, or name its folder by ZOEFFECT_FFMPEG.");
    QTest::newRow("ffprobe not in PATH")
        << false << true
        << key("ffprobe is missing. Install the package ffmpeg, or name its folder by ZOEFFECT_FFMPEG.");
    QTest::newRow("neither in the folder")
        << true << false
        << key("ffmpeg is not in FOLDER, the folder that ZOEFFECT_FFMPEG names. Correct it, or leave it unset.");
    QTest::newRow("ffprobe not in the folder")
        << true << true
        << key("ffprobe is not in FOLDER, the folder that ZOEFFECT_FFMPEG names. Correct it, or leave it unset.");
}

void TestKitTools::missingOneIsNamed()
{
    QFETCH(const bool, isNamed);
    QFETCH(const bool, hasFfmpeg);
    const QTemporaryDir folder;
    if (hasFfmpeg)
        QVERIFY(QFile::link(m_tools.ffmpeg, folder.filePath(key("ffmpeg"))));
    QFile text(folder.filePath(key("ffprobe"))); // Of that name, but no program.
    QVERIFY(text.open(QIODevice::WriteOnly));
    qputenv(isNamed ? "ZOEFFECT_FFMPEG" : "PATH", QFile::encodeName(folder.path()));
    const Tools tools = zokit::findTools();
    QTEST(tools.error.text().replace(folder.path(), key("FOLDER")), "sentence");
    QCOMPARE(!tools.ffmpeg.isEmpty(), hasFfmpeg);
    QVERIFY(tools.ffprobe.isEmpty());
    const zokit::ReadMedia read = zokit::probe(tools, clips::clip(key("text.srt")));
    QCOMPARE(read.error, tools.error);
}

void TestKitTools::abilitiesAreAsked()
{
    QVERIFY(zokit::toolVersion(m_tools).at(0).isLetterOrNumber());
    for (const char* filter : {"overlay", "subtitles", "lutyuv", "zscale", "acompressor"})
        QVERIFY2(zokit::toolFilters(m_tools).contains(key(filter)), filter);
    for (const char* encoder : {"libx264", "aac", "ffv1", "mov_text"})
        QVERIFY2(zokit::toolEncoders(m_tools).contains(key(encoder)), encoder);
    QVERIFY(!zokit::toolEncoders(m_tools).contains(key("overlay")));
    QCOMPARE(zokit::toolVersion(Tools()), QString());
    QCOMPARE(zokit::toolFilters(Tools()), QStringList());
}

void TestKitTools::versionIsRead_data()
{
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QString>("version");
    QTest::newRow("of Debian") << QByteArray("ffmpeg version 5.1.9-0+deb12u1 Copyright (c) 2000\nbuilt with gcc\n")
                               << key("5.1.9-0+deb12u1");
    QTest::newRow("of a checkout") << QByteArray("ffmpeg version N-112233-g0123abc Copyright\n")
                                   << key("N-112233-g0123abc");
    QTest::newRow("another program") << QByteArray("true (GNU coreutils) 9.1\n") << QString();
    QTest::newRow("nothing") << QByteArray() << QString();
}

void TestKitTools::versionIsRead()
{
    QFETCH(const QByteArray, output);
    QTEST(zokit::readToolVersion(output), "version");
}

void TestKitTools::namesAreRead()
{
    QCOMPARE(zokit::readToolNames("Encoders:\n V..... = Video\n .F.... = Frame-level multithreading\n ------\n"
                                  " V....D libx264              H.264 (codec h264)\n"
                                  " A....D aac                  AAC\n S..... mov_text text\n"),
             (QStringList{key("libx264"), key("aac"), key("mov_text")}));
    QCOMPARE(
        zokit::readToolNames("Filters:\n  T.. = Timeline support\n  | = Source or sink filter\n"
                             " ... abench            A->A       Benchmark.\n TSC overlay           VV->V      x\n"),
        (QStringList{key("abench"), key("overlay")}));
    QCOMPARE(zokit::readToolNames(""), QStringList());
}

void TestKitTools::conversionTellsItsProgress()
{
    Child child;
    zokit::ProgressReader progress;
    ChildResult result;
    double last = 0;
    bool everFell = false;
    connect(&child, &Child::outputReady, this, [&](const QByteArray& piece) {
        progress.read(piece);
        everFell = everFell || progress.seconds() < last;
        last = progress.seconds();
    });
    connect(&child, &Child::finished, this, [&](const ChildResult& r) { result = r; });
    QVERIFY(
        child.start(ffmpeg("-f lavfi -i testsrc2=s=160x120:r=25:d=2 -progress pipe:1 -stats_period 0.01 -f null -")));
    QTRY_VERIFY_WITH_TIMEOUT(!child.isRunning(), patience);
    QVERIFY2(result.isGood(), result.words.constData());
    QVERIFY(progress.hasEnded());
    QVERIFY(!everFell);
    QVERIFY2(qAbs(progress.seconds() - 2) <= 0.04, qPrintable(QString::number(progress.seconds()))); // One frame.
    QVERIFY(progress.speed() > 0);
}

void TestKitTools::conversionIsCancelled()
{
    const QTemporaryDir folder;
    Command command = ffmpeg("-f lavfi -i testsrc2=s=1280x720:r=25 -progress pipe:1 -c:v libx264 -f matroska");
    command.arguments << key("file:") + folder.filePath(key("part"));
    Child child;
    bool hasBegun = false;
    ChildResult result;
    connect(&child, &Child::outputReady, this, [&] { hasBegun = true; });
    connect(&child, &Child::finished, this, [&](const ChildResult& r) { result = r; });
    QVERIFY(child.start(command));
    QTRY_VERIFY_WITH_TIMEOUT(hasBegun, patience);
    const qint64 process = child.processId();
    QVERIFY(childwatch::isAlive(process));
    child.cancel();
    QTRY_VERIFY_WITH_TIMEOUT(!child.isRunning(), patience);
    QCOMPARE(result.end, ChildEnd::Cancelled);
    QVERIFY(!childwatch::isAlive(process));
}

/// It would wait for ever: SIGTERM does not end it, either.
void TestKitTools::conversionWithoutInputStalls()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(key("pipe.mkv"));
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    Command command = ffmpeg("-progress pipe:1");
    command.arguments << zokit::guardedInput(path) << key("-f") << key("null") << key("-");
    command.stallSeconds = 1;
    QCOMPARE(zokit::run(command).end, ChildEnd::Stalled);
}

void TestKitTools::conversionWithoutMemoryFails()
{
    Command command = ffmpeg("-f lavfi -i testsrc2=s=3840x2160:r=25:d=10 -c:v libx264 -f null -");
    command.memory = qint64(500) * 1024 * 1024;
    const ChildResult result = zokit::run(command);
    QCOMPARE(result.end, ChildEnd::Finished);
    QVERIFY(result.exitCode > 0);
    QVERIFY(!result.lastWords().isEmpty());
}

ZOEFFECT_TEST_MAIN(TestKitTools)
#include "tst_kit_tools.moc"
