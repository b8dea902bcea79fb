// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What is left when a conversion is ended: by a signal, by the death of the program or of its child, at any moment.

#include <csignal>

#include <sys/resource.h>

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QtTest>

#include <zokit/probe.h>

#include "childwatch.h"
#include "clips.h"
#include "programrun.h"
#include "testapplication.h"

namespace {

constexpr int patience = 30000; // Milliseconds; only a hang takes so long.

/// The children of a process that is there.
QList<qint64> childrenOf(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/task/%1/children").arg(process));
    QList<qint64> children;
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray& word : file.readAll().split(' '))
            if (word.toLongLong() > 0)
                children.append(word.toLongLong());
    }
    return children;
}

QStringList parts(const ProgramRun& run)
{
    return QDir(run.path("")).entryList({QStringLiteral(".zo-*")}, QDir::AllEntries | QDir::Hidden);
}

void send(qint64 process, int signal)
{
    ::kill(static_cast<pid_t>(process), signal);
}

} // namespace

class TestZoconvertKills : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aSignalEndsTheRun_data();
    void aSignalEndsTheRun();
    void stoppingStopsTheChildren();
    void aKilledChildIsAFailure();
    void aFullDiskIsAFailure();
    void aFolderThatVanishesIsAFailure();
    void anyMomentLeavesAllOrNothing();

private:
    /// A conversion that takes much longer than this test, as far as a child that writes.
    qint64 begin(ProgramRun& run);

    QString m_long; ///< A clip that takes long to convert.
    QTemporaryDir m_folder;
};

void TestZoconvertKills::initTestCase()
{
    m_long = m_folder.filePath(QStringLiteral("long.mkv"));
    QProcess ffmpeg;
    ffmpeg.start(zokit::findTools().ffmpeg,
                 {"-v", "error", "-f", "lavfi", "-i", "testsrc2=s=640x360:r=25:d=40", "-c:v", "mpeg4", m_long});
    QVERIFY(ffmpeg.waitForFinished(patience));
    QCOMPARE(ffmpeg.exitCode(), 0);
}

qint64 TestZoconvertKills::begin(ProgramRun& run)
{
    const qint64 process = run.start({"convert", QFile::encodeName(m_long), "-o", "new.mp4", "--video-codec", "h264",
                                      "--encoder-speed", "veryslow", "--set", "Color:bcs_contrast=20", "-q"});
    const bool began =
        QTest::qWaitFor([&] { return !parts(run).isEmpty() && !childrenOf(process).isEmpty(); }, patience);
    if (!began)
        qWarning("the conversion does not begin");
    return process;
}

void TestZoconvertKills::aSignalEndsTheRun_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<int>("code");
    QTest::newRow("SIGINT") << SIGINT << 130;
    QTest::newRow("SIGTERM") << SIGTERM << 143;
    QTest::newRow("SIGHUP") << SIGHUP << 143;
}

void TestZoconvertKills::aSignalEndsTheRun()
{
    QFETCH(int, signal);
    QFETCH(int, code);
    ProgramRun run;
    const QString before = run.files();
    const qint64 process = begin(run);
    const QList<qint64> children = childrenOf(process);
    send(process, signal);
    run.wait();
    QCOMPARE(run.code, code);
    QCOMPARE(run.err, QStringLiteral("zoconvert: %1: Cancelled.\n").arg(m_long));
    QCOMPARE(run.files(), before);
    for (const qint64 child : children)
        QTRY_VERIFY_WITH_TIMEOUT(!childwatch::isAlive(child), 2000);
}

void TestZoconvertKills::stoppingStopsTheChildren()
{
    ProgramRun run;
    const qint64 process = begin(run);
    const qint64 child = childrenOf(process).value(0);
    QVERIFY(child > 0);
    send(process, SIGTSTP);
    QTRY_VERIFY_WITH_TIMEOUT(childwatch::isStopped(process), patience);
    QTRY_VERIFY_WITH_TIMEOUT(childwatch::isStopped(child), patience);
    send(process, SIGCONT);
    QTRY_VERIFY_WITH_TIMEOUT(!childwatch::isStopped(child), patience);
    QVERIFY(childwatch::isAlive(child));
    send(process, SIGTERM);
    run.wait();
    QCOMPARE(run.code, 143);
}

void TestZoconvertKills::aKilledChildIsAFailure()
{
    ProgramRun run;
    const QString before = run.files();
    const qint64 process = begin(run);
    for (const qint64 child : childrenOf(process))
        send(child, SIGKILL);
    run.wait();
    QCOMPARE(run.code, 1);
    QVERIFY2(run.err.contains(QStringLiteral("ffmpeg")), qPrintable(run.err));
    QCOMPARE(run.files(), before);
}

void TestZoconvertKills::aFullDiskIsAFailure()
{
    ProgramRun run;
    run.run({"plan", QFile::encodeName(m_long), "-o", "new.mkv", "--plan", "p"});
    QCOMPARE(run.code, 0);
    const QString before = run.files();
    rlimit old = {};
    ::getrlimit(RLIMIT_FSIZE, &old);
    constexpr rlim_t little = 100 * 1024;
    const rlimit limit = {little, old.rlim_max};
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &limit);
    run.run({"convert", QFile::encodeName(m_long), "-o", "new.mkv", "-q"});
    const int codeOfConvert = run.code;
    const QString said = run.err;
    run.run({"work", "p", "-q"});
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, ignored);
    QCOMPARE(codeOfConvert, 1);
    QVERIFY2(said.startsWith(QStringLiteral("zoconvert: ") + m_long), qPrintable(said));
    QVERIFY2(run.code == 75, qPrintable(run.err));
    QFile::remove(run.path("p.results"));
    QCOMPARE(run.files(), before);
}

void TestZoconvertKills::aFolderThatVanishesIsAFailure()
{
    ProgramRun run;
    const QString folder = run.path("new");
    const qint64 process =
        run.start({"convert", QFile::encodeName(m_long), "-o", "new/new.mp4", "--size", "64x36", "-q"});
    QVERIFY(QTest::qWaitFor(
        [&] { return QDir(folder).entryList({QStringLiteral(".zo-*")}, QDir::Files | QDir::Hidden).size() == 1; },
        patience));
    QVERIFY(QDir(folder).removeRecursively());
    QVERIFY(process > 0);
    run.wait();
    QCOMPARE(run.code, 1);
    QVERIFY2(!run.err.isEmpty(), "a failure is told");
    QVERIFY(!QFile::exists(folder));
}

void TestZoconvertKills::anyMomentLeavesAllOrNothing()
{
    // Two seconds, where nothing else runs; a busy machine takes its time to let a killed process go.
    const int childrenLive = qEnvironmentVariableIsSet("ZOCONVERT_KILLS") ? 2000 : patience;
    const int rounds =
        qEnvironmentVariableIsSet("ZOCONVERT_KILLS") ? qEnvironmentVariableIntValue("ZOCONVERT_KILLS") : 30;
    QRandomGenerator random(20240229);
    const QString clip = clips::clip(QStringLiteral("plain.mp4"));
    int ended = 0;
    ProgramRun run;
    const QString before = run.files();
    for (int round = 0; round < rounds; ++round) {
        constexpr int longest = 400; // Milliseconds: about as long as the whole conversion.
        const int moment = random.bounded(longest);
        const int how = random.bounded(4);
        const QStringList leftBefore = parts(run);
        const qint64 process = run.start(
            {"convert", QFile::encodeName(clip), "-o", "new.mp4", "--text", "Hello", "--burn-subtitles", "-q"});
        QTest::qWait(moment);
        const QList<qint64> children = childrenOf(process);
        if (how == 3) {
            for (const qint64 child : children)
                send(child, SIGKILL);
        } else {
            send(process, how == 0 ? SIGKILL : how == 1 ? SIGTERM : SIGINT);
        }
        run.wait();
        const QByteArray what = QByteArray::number(how) + " at " + QByteArray::number(moment);
        const bool isThere = QFile::exists(run.path("new.mp4"));
        if (isThere)
            QVERIFY2(zokit::probe(zokit::findTools(), run.path("new.mp4")).media, what);
        QVERIFY2(run.code != 0 || isThere, what);
        ended += isThere ? 0 : 1;
        for (const qint64 child : children)
            QVERIFY2(QTest::qWaitFor([&] { return !childwatch::isAlive(child); }, childrenLive), what);
        if (how != 0) { // What was killed before may still lie there: this one may have ended before it looked.
            for (const QString& part : parts(run))
                QVERIFY2(leftBefore.contains(part), what);
        }
        QFile::remove(run.path("new.mp4"));
    }
    QVERIFY2(ended > rounds / 4, "most moments lie within the conversion");
    run.run({"convert", QFile::encodeName(clip), "-o", "new.mp4", "--text", "Hello", "-q"});
    QCOMPARE(run.err, QString());
    QVERIFY(QFile::remove(run.path("new.mp4")));
    QCOMPARE(run.files(), before);
}

ZOEFFECT_TEST_MAIN(TestZoconvertKills)
#include "tst_zoconvert_kills.moc"
