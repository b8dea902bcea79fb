// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What is left when a conversion is ended: by a signal, by the death of the program or of its child, at any moment.

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <optional>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
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

QStringList parts(const QString& folder)
{
    return QDir(folder).entryList({QStringLiteral(".zo-*")}, QDir::AllEntries | QDir::Hidden);
}

void send(qint64 process, int signal)
{
    ::kill(static_cast<pid_t>(process), signal);
}

/// Standard error of what runs from now on: a pipe that is full until it is read.
class FullPipe {
public:
    explicit FullPipe(ProgramRun& run)
    {
        const QByteArray path = QFile::encodeName(run.path("pipe"));
        ::mkfifo(path.constData(), S_IRUSR | S_IWUSR);
        m_ends = ::open(path.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
        while (::write(m_ends, "\n", 1) == 1) {
        }
        run.setErr(path);
    }
    ~FullPipe() { ::close(m_ends); }
    FullPipe(const FullPipe&) = delete;
    FullPipe& operator=(const FullPipe&) = delete;

    /// What is there; at first the empty lines that fill it.
    QByteArray read()
    {
        QByteArray all;
        char piece[4096];
        for (ssize_t size = 0; (size = ::read(m_ends, piece, sizeof piece)) > 0;)
            all.append(piece, static_cast<int>(size));
        return all;
    }

private:
    int m_ends = -1;
};

const QByteArray none = "no file";
const QByteArray another = "another's file";

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : none;
}

/// Each frame and sound that is decoded of a file, with its time.
QByteArray framesOf(const QString& file)
{
    QProcess ffmpeg;
    ffmpeg.start(zokit::findTools().ffmpeg, {"-v", "error", "-i", file, "-map", "0", "-f", "framemd5", "-"});
    const bool isRead = ffmpeg.waitForFinished(patience) && ffmpeg.exitCode() == 0;
    return isRead ? ffmpeg.readAllStandardOutput() : "failed: " + ffmpeg.readAllStandardError();
}

/// Makes a file where there is none.
bool makeNew(const QString& path, const QByteArray& content)
{
    constexpr mode_t usual = 0600;
    const int file = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, usual);
    const bool isMade = file >= 0 && ::write(file, content.constData(), size_t(content.size())) == content.size();
    ::close(file);
    return isMade;
}

/// Whether this process has no child any more. Takes those that have ended.
bool hasNoChild()
{
    pid_t taken = 0;
    while ((taken = ::waitpid(-1, nullptr, WNOHANG)) > 0) {
    }
    return taken < 0 && errno == ECHILD;
}

/// What is done to a conversion at a moment.
enum How { Kill, Terminate, Interrupt, KillChildren, RemoveFolder, FillDisk, KillOneOfTwo, Ways, LeaveAlone = Ways };

void disturb(How how, qint64 process, const QString& folder)
{
    switch (how) {
    case Kill:
    case KillOneOfTwo:
        send(process, SIGKILL);
        break;
    case Terminate:
        send(process, SIGTERM);
        break;
    case Interrupt:
        send(process, SIGINT);
        break;
    case KillChildren:
        for (const qint64 child : childrenOf(process))
            send(child, SIGKILL);
        break;
    case RemoveFolder:
        while (!QDir(folder).removeRecursively()) { // A file may have been made meanwhile.
        }
        break;
    case FillDisk: // From the beginning.
    case LeaveAlone:
        break;
    }
}

/// What happens to one conversion of many.
struct Round {
    How how = LeaveAlone;
    double part = 0;       ///< When: of the time that one takes, or of what it writes.
    bool isFirst = false;  ///< It has no room at all.
    bool isLast = false;   ///< It is left alone: some are cut off, and some end, however busy the machine is.
    bool replaces = false; ///< An older file is there.
    bool comes = false;    ///< Another's file, meanwhile.
};

Round drawn(QRandomGenerator& random, int number, int rounds)
{
    Round round;
    round.isFirst = number == 0;
    round.isLast = number == rounds - 1;
    round.part = random.generateDouble() * 1.2;
    round.how = static_cast<How>(random.bounded(Ways));
    if (round.isFirst) {
        round.how = FillDisk;
        round.part = 0;
    } else if (round.isLast) {
        round.how = LeaveAlone;
    }
    round.replaces = number % 2 == 0;
    round.comes = random.bounded(2) == 0 && !round.replaces && !round.isLast;
    return round;
}

/// What a round left.
struct Left {
    int code = 0;
    bool isNew = false;      ///< The result is not what was there.
    bool isWhole = false;    ///< It is what one that is not disturbed makes.
    bool isAnothers = false; ///< What was there was another's.
    QStringList parts;
    QStringList partsBefore;
};

/// What is wrong with it; empty: nothing.
QByteArray wrong(const Round& round, const Left& left)
{
    if (left.isNew && !left.isWhole)
        return "half a result";
    if (left.isNew && left.isAnothers)
        return "another's file is gone";
    if ((round.isFirst || round.isLast) && left.isNew != round.isLast)
        return "the first one made something, or the last one did not";
    const bool isOneOfTwo = round.how == KillOneOfTwo; // The other one is left alone.
    if (isOneOfTwo && left.isNew == left.isAnothers)
        return "the other one made nothing";
    const bool isSaid = left.code == 1 || (left.code == 0 && round.how != RemoveFolder);
    if (!isOneOfTwo && isSaid && left.isNew != (left.code == 0))
        return "the code is not true";
    if (round.how == Kill || isOneOfTwo)
        return {}; // What was killed may lie there until a later one is done.
    const bool areOld = std::all_of(left.parts.cbegin(), left.parts.cend(),
                                    [&](const QString& part) { return left.partsBefore.contains(part); });
    return left.parts.isEmpty() || (left.code != 0 && areOld) ? QByteArray() : "a part file is left";
}

} // namespace

class TestZoconvertKills : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aSignalEndsTheRun_data();
    void aSignalEndsTheRun();
    void whatIsSaidWaitsForItsReader();
    void aSecondInterruptDoesNotWait();
    void aStallIsAFailure();
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
        QTest::qWaitFor([&] { return !parts(run.path("")).isEmpty() && !childrenOf(process).isEmpty(); }, patience);
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
    QTest::newRow("SIGKILL") << SIGKILL << -1;
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
    if (signal != SIGKILL) {
        QCOMPARE(run.err, QStringLiteral("zoconvert: %1: Cancelled.\n").arg(m_long));
        QCOMPARE(run.files(), before);
    }
    for (const qint64 child : children)
        QTRY_VERIFY_WITH_TIMEOUT(!childwatch::isAlive(child), 2000);
}

void TestZoconvertKills::whatIsSaidWaitsForItsReader()
{
    ProgramRun run;
    FullPipe pipe(run);
    const qint64 process = begin(run);
    const QList<qint64> children = childrenOf(process);
    send(process, SIGTERM);
    for (const qint64 child : children)
        QTRY_VERIFY_WITH_TIMEOUT(!childwatch::isAlive(child), patience);
    QByteArray said;
    const auto hasEnded = [&] {
        said += pipe.read();
        return !childwatch::isAlive(process);
    };
    QVERIFY(QTest::qWaitFor(hasEnded, patience));
    run.wait();
    said += pipe.read();
    QCOMPARE(QString::fromUtf8(said.trimmed()), QStringLiteral("zoconvert: %1: Cancelled.").arg(m_long));
}

void TestZoconvertKills::aSecondInterruptDoesNotWait()
{
    ProgramRun run;
    const FullPipe pipe(run); // For ever: it cannot come to say that it was cancelled.
    const QString before = run.files();
    const qint64 process = begin(run);
    const QList<qint64> children = childrenOf(process);
    send(process, SIGINT);
    for (const qint64 child : children)
        QTRY_VERIFY_WITH_TIMEOUT(!childwatch::isAlive(child), patience);
    QVERIFY(childwatch::isAlive(process));
    send(process, SIGINT);
    const bool hasEnded = QTest::qWaitFor([&] { return !childwatch::isAlive(process); }, patience);
    send(process, SIGKILL);
    run.wait();
    QVERIFY(hasEnded);
    QCOMPARE(run.code, 130);
    QCOMPARE(run.files(), before);
}

void TestZoconvertKills::aStallIsAFailure()
{
    ProgramRun run;
    run.setFfmpeg("exec sleep 600\n");
    const QString before = run.files();
    run.run({"convert", QFile::encodeName(m_long), "-o", "new.mp4", "--stall", "1", "-q"});
    QCOMPARE(run.err, QStringLiteral("zoconvert: %1: There was no progress for 1 s. Check the disk, or give --stall a "
                                     "larger number.\n")
                          .arg(m_long));
    QCOMPARE(run.code, 1);
    QCOMPARE(run.files(), before);
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
    constexpr int little = 100 * 1024;
    std::optional<FullDisk> disk(little);
    run.run({"convert", QFile::encodeName(m_long), "-o", "new.mkv", "-q"});
    const int codeOfConvert = run.code;
    const QString said = run.err;
    run.run({"work", "p", "-q"});
    disk.reset();
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
    const int rounds = qEnvironmentVariableIsSet("ZOCONVERT_KILLS")
                           ? std::max(qEnvironmentVariableIntValue("ZOCONVERT_KILLS"), 2)
                           : 30;
    ::prctl(PR_SET_CHILD_SUBREAPER, 1); // What a program leaves behind becomes a child of this one.
    ProgramRun run;
    ProgramRun other;
    const QString before = run.files();
    const QString folder = run.path("new");
    const QString result = run.path("new/new.mp4");
    const QList<QByteArray> line{"convert", QFile::encodeName(clips::clip(QStringLiteral("plain.mp4"))),
                                 "-o",      QFile::encodeName(result),
                                 "--text",  "Hello",
                                 "-q"};
    QElapsedTimer clock;
    clock.start();
    run.run(line); // Not disturbed: how long it takes, and what it makes.
    qint64 whole = clock.elapsed();
    QCOMPARE(run.err, QString());
    const QByteArray frames = framesOf(result);
    QVERIFY2(frames.count("\n0,") == 10, frames); // Of the picture.
    const qint64 size = QFileInfo(result).size();
    QVERIFY(QFile::remove(result));

    QRandomGenerator random(20240229);
    int cutOff = 0;
    for (int number = 0; number < rounds; ++number) {
        const Round round = drawn(random, number, rounds);
        QVERIFY(QDir().mkpath(folder));
        QByteArray kept = round.replaces ? QByteArray("an older file") : none;
        QVERIFY(!round.replaces || makeNew(result, kept));
        Left left;
        left.partsBefore = parts(folder);
        const QList<QByteArray> wholeLine = round.replaces ? line + QList<QByteArray>{"--overwrite"} : line;
        const int moment = static_cast<int>(round.part * static_cast<double>(whole));
        std::optional<FullDisk> disk;
        if (round.how == FillDisk)
            disk.emplace(static_cast<qint64>(round.part * static_cast<double>(size)));
        clock.start();
        const qint64 process = run.start(wholeLine);
        disk.reset();
        if (round.how == KillOneOfTwo)
            other.start(wholeLine);
        const auto endsBefore = [&](int milliseconds) {
            return QTest::qWaitFor([&] { return !childwatch::isAlive(process); },
                                   std::max(milliseconds - static_cast<int>(clock.elapsed()), 0));
        };
        if (round.comes && !endsBefore(moment / 2) && makeNew(result, another))
            kept = another;
        const bool isTooLate = round.how != LeaveAlone && endsBefore(moment);
        const qint64 took = clock.elapsed();
        disturb(round.how, process, folder);
        run.wait();
        if (round.how == KillOneOfTwo)
            other.wait();
        if (round.how == RemoveFolder)
            kept = none;
        // So that the moments lie all over it when the machine becomes slower or faster.
        if (!isTooLate)
            whole = std::max(whole, qint64(moment));
        else if (run.code == 0)
            whole = took;

        const QByteArray what = QByteArray::number(number) + ": " + QByteArray::number(round.how) + " at "
                                + QByteArray::number(round.part) + ", ended " + QByteArray::number(run.code) + ": "
                                + (run.err + other.err).toUtf8();
        QVERIFY2(QTest::qWaitFor(hasNoChild, childrenLive), what);
        left.code = run.code;
        left.isNew = contentOf(result) != kept;
        left.isWhole = left.isNew && framesOf(result) == frames;
        left.isAnothers = kept == another;
        left.parts = parts(folder);
        const QByteArray complaint = wrong(round, left);
        QVERIFY2(complaint.isEmpty(), complaint + ", " + what);
        cutOff += left.isNew ? 0 : 1;
        QFile::remove(result);
    }
    qInfo("%d of %d left no result", cutOff, rounds);
    run.run(line);
    QCOMPARE(run.err, QString());
    QCOMPARE(parts(folder) + parts(QDir::tempPath()), QStringList());
    QVERIFY(QDir(folder).removeRecursively());
    QCOMPARE(run.files(), before);
}

ZOEFFECT_TEST_MAIN(TestZoconvertKills)
#include "tst_zoconvert_kills.moc"
