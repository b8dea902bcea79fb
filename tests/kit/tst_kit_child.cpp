// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <csignal>
#include <memory>
#include <vector>

#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <zokit/child.h>
#include <zokit/progress.h>
#include <zokit/tools.h>

#include "childwatch.h"
#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;
using zokit::Child;
using zokit::ChildEnd;
using zokit::ChildResult;
using zokit::Command;

constexpr int patience = 60000; // Milliseconds, for what takes few.

class TestKitChild : public childwatch::Test {
    Q_OBJECT

private slots:
    void endIsTold_data();
    void endIsTold();
    void outputIsLimited();
    void lastWordsAreKept();
    void lastLineOfWords_data();
    void lastLineOfWords();
    void argumentsComeAsTheyAre();
    void inputIsWrittenAndClosed();
    void outputComesInPieces();
    void silentChildStalls();
    void talkingChildRunsOutOfTime();
    void talkingChildDoesNotStall();
    void childThatMovesBytesDoesNotStall();
    void pausedTimeDoesNotCount();
    void childAheadWaitsForItsInput();
    void finishedIsSentOnceAndLater_data();
    void finishedIsSentOnceAndLater();
    void oneRunsAtATime();
    void slotMayStartTheNext();
    void cancelEndsTheGroup();
    void endEndsTheGroup();
    void cancelAtAnyMoment();
    void cancelWithoutChildDoesNothing();
    void destructorEndsTheChild();
    void childDiesWithItsParent();
    void endAtTheStartIsNoticed();
    void childIsAlone();
    void limitsAreSet();
    void progressIsRead_data();
    void progressIsRead();
    void progressInAnyPieces();
    void progressBetweenBlocks();
};

namespace {

/// Whether a child ends at once, and its parent looks only after that. (Qt 6 forks without asking.)
bool endsAtTheFork = false;

void endAtTheFork()
{
    if (endsAtTheFork)
        _exit(3);
}

void lookLater()
{
    constexpr useconds_t longer = 100000; // Than a child takes to end.
    if (endsAtTheFork)
        usleep(longer);
}

/// scriptedchild with \a script, words with blanks between them.
Command scripted(const char* script)
{
    Command command;
    command.program = QStringLiteral(SCRIPTED_CHILD);
    command.arguments = QString::fromLatin1(script).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return command;
}

Command shell(const char* script)
{
    Command command;
    command.program = QStringLiteral("/bin/sh");
    command.arguments << key("-c") << key(script);
    return command;
}

} // namespace

Q_DECLARE_METATYPE(zokit::Command)
Q_DECLARE_METATYPE(zokit::ChildEnd)

void TestKitChild::endIsTold_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<ChildEnd>("end");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<int>("signal");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QByteArray>("words");

    Command nowhere;
    nowhere.program = key("/nowhere/program");
    Command noFolder = scripted("out never");
    noFolder.folder = key("/nowhere");

    QTest::newRow("good") << scripted("out hello") << ChildEnd::Finished << 0 << 0 << QByteArray("hello")
                          << QByteArray();
    QTest::newRow("exit code") << scripted("out a err b out c exit 3") << ChildEnd::Finished << 3 << 0
                               << QByteArray("ac") << QByteArray("b");
    QTest::newRow("killed") << scripted("out a die 9") << ChildEnd::Killed << -1 << 9 << QByteArray("a")
                            << QByteArray();
    QTest::newRow("terminated") << scripted("err b die 15") << ChildEnd::Killed << -1 << 15 << QByteArray()
                                << QByteArray("b");
    QTest::newRow("no input") << scripted("echo out end") << ChildEnd::Finished << 0 << 0 << QByteArray("end")
                              << QByteArray();
    QTest::newRow("no program") << nowhere << ChildEnd::NotStarted << -1 << 0 << QByteArray() << QByteArray("No such");
    QTest::newRow("no folder") << noFolder << ChildEnd::NotStarted << -1 << 0 << QByteArray() << QByteArray("No such");
    QTest::newRow("nothing") << Command() << ChildEnd::NotStarted << -1 << 0 << QByteArray() << QByteArray("o");
}

void TestKitChild::endIsTold()
{
    QFETCH(const Command, command);
    const ChildResult result = zokit::run(command);
    QTEST(result.end, "end");
    QTEST(result.exitCode, "exitCode");
    QTEST(result.signal, "signal");
    QTEST(result.output, "output");
    QFETCH(const QByteArray, words);
    QVERIFY2(result.words.contains(words), result.words.constData());
    QCOMPARE(result.isGood(), QByteArray(QTest::currentDataTag()) == "good" || result.exitCode == 0);
}

void TestKitChild::outputIsLimited()
{
    Command command = scripted("flood");
    command.largestOutput = 100000;
    const ChildResult result = zokit::run(command);
    QCOMPARE(result.end, ChildEnd::Flooded);
    QCOMPARE(result.output, QByteArray(100000, 'f'));
    QCOMPARE(result.signal, SIGKILL);
}

void TestKitChild::lastWordsAreKept()
{
    const ChildResult result = zokit::run(scripted("many-words 300000 err last"));
    QCOMPARE(result.words, QByteArray(65532, 'w') + "last");
}

void TestKitChild::lastLineOfWords_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("last");
    QTest::newRow("none") << QByteArray() << QString();
    QTest::newRow("one line") << QByteArray("no such file") << key("no such file");
    QTest::newRow("empty lines behind it") << QByteArray("first\nlast \r\n\n  \n") << key("last");
    QTest::newRow("who says it") << QByteArray("[png @ 0x55a1f0] [IMGUTILS @ 0x7ffc3] [5] is too large\n")
                                 << key("[5] is too large");
    QTest::newRow("a line said again") << QByteArray("why\n    Last message repeated 1 times\n") << key("why");
    QTest::newRow("where it gives up, before why")
        << QByteArray("why\nError initializing output stream 0:1 -- no\n") << key("why");
    QTest::newRow("where it gives up, and nothing else") << QByteArray("Error initializing output stream 0:1 -- no\n")
                                                         << key("Error initializing output stream 0:1 -- no");
    QTest::newRow("a line written over") << QByteArray("frame 1\rframe 2\r") << key("frame 2");
}

void TestKitChild::lastLineOfWords()
{
    ChildResult result;
    QFETCH(const QByteArray, words);
    result.words = words;
    QTEST(result.lastWords(), "last");
}

void TestKitChild::argumentsComeAsTheyAre()
{
    Command command = scripted("arguments");
    command.arguments << key("a b") << QString() << key("-y") << key("\"'\\") << key("x\ny") << key("*~$HOME%03d|;&")
                      << QString::fromUtf8("\xc3\xa4\xf0\x9f\x98\x80");
    QCOMPARE(zokit::run(command).output,
             QByteArray("[a b][][-y][\"'\\][x\ny][*~$HOME%03d|;&][\xc3\xa4\xf0\x9f\x98\x80]"));
}

void TestKitChild::inputIsWrittenAndClosed()
{
    Command command = scripted("echo out end");
    command.input = QByteArray(1000000, 'i') + QByteArray("\0x", 2);
    QCOMPARE(zokit::run(command).output, command.input + "end");
    command.program = key("/bin/true"); // It ends without reading.
    command.arguments.clear();
    QVERIFY(zokit::run(command).isGood());
}

void TestKitChild::outputComesInPieces()
{
    Child child;
    child.collect(false);
    QByteArray pieces;
    std::unique_ptr<ChildResult> result;
    connect(&child, &Child::outputReady, this, [&](const QByteArray& piece) { pieces += piece; });
    connect(&child, &Child::finished, this, [&](const ChildResult& r) { result = std::make_unique<ChildResult>(r); });
    Command command = scripted("ticks 3 out end");
    command.largestOutput = 1; // Counts only what is kept.
    QVERIFY(child.start(command));
    QTRY_VERIFY_WITH_TIMEOUT(result, patience);
    QCOMPARE(result->end, ChildEnd::Finished);
    QCOMPARE(pieces, QByteArray("...end"));
    QCOMPARE(result->output, QByteArray());
}

void TestKitChild::silentChildStalls()
{
    Command command = scripted("deaf out begun hang");
    command.stallSeconds = 1;
    const ChildResult result = zokit::run(command);
    QCOMPARE(result.end, ChildEnd::Stalled);
    QCOMPARE(result.exitCode, -1);
    QCOMPARE(result.signal, SIGKILL);
    QCOMPARE(result.output, QByteArray("begun"));
}

void TestKitChild::talkingChildRunsOutOfTime()
{
    Command command = scripted("ticks 1000000");
    command.stallSeconds = 100;
    command.seconds = 1;
    const ChildResult result = zokit::run(command);
    QCOMPARE(result.end, ChildEnd::TimedOut);
    QVERIFY(result.output.startsWith('.'));
}

void TestKitChild::talkingChildDoesNotStall()
{
    Command command = scripted("ticks 40");
    command.stallSeconds = 3;
    QCOMPARE(zokit::run(command).output, QByteArray(40, '.'));
}

void TestKitChild::childThatMovesBytesDoesNotStall()
{
    for (const char* script : {"out begun write /dev/null 40 out end", "out begun read /dev/zero 40 out end"}) {
        Command command = scripted(script);
        command.stallSeconds = 2;
        QCOMPARE(zokit::run(command).output, QByteArray("begunend"));
    }
}

void TestKitChild::pausedTimeDoesNotCount()
{
    Child child;
    bool isPaused = false;
    std::unique_ptr<ChildResult> result;
    connect(&child, &Child::outputReady, this, [&] {
        if (!isPaused)
            child.pause();
        isPaused = true;
    });
    connect(&child, &Child::finished, this, [&](const ChildResult& r) { result = std::make_unique<ChildResult>(r); });
    Command command = scripted("out begun ticks 2 out end");
    command.stallSeconds = 1;
    QVERIFY(child.start(command));
    QTRY_VERIFY_WITH_TIMEOUT(isPaused, patience);
    QTRY_VERIFY_WITH_TIMEOUT(childwatch::isStopped(child.processId()), patience);
    QTest::qWait(2500); // Longer than it may be silent.
    QVERIFY(!result);
    child.resume();
    QTRY_VERIFY_WITH_TIMEOUT(result, patience);
    QCOMPARE(result->end, ChildEnd::Finished);
    QCOMPARE(result->output, QByteArray("begun..end"));
}

void TestKitChild::childAheadWaitsForItsInput()
{
    Child child;
    std::vector<ChildResult> results;
    QObject::connect(&child, &Child::finished, [&](const ChildResult& result) { results.push_back(result); });
    Command command = shell("cat; sleep 60");
    command.seconds = 1;
    QVERIFY(child.startAhead(command));
    QTest::qWait(1600); // Longer than it may take.
    QVERIFY(child.isRunning());
    child.feed("told late");
    child.feed("and again");
    QTRY_COMPARE_WITH_TIMEOUT(results.size(), std::size_t(1), patience);
    QCOMPARE(results.back().output, QByteArray("told late"));
    QVERIFY(results.back().end == ChildEnd::TimedOut);
    child.feed("nobody");

    command.input = "at once";
    QVERIFY(child.start(command));
    child.feed("not ahead");
    QTRY_COMPARE_WITH_TIMEOUT(results.size(), std::size_t(2), patience);
    QCOMPARE(results.back().output, QByteArray("at once"));
}

void TestKitChild::finishedIsSentOnceAndLater_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<bool>("cancelled");
    QTest::addColumn<ChildEnd>("end");
    QTest::newRow("good") << scripted("out x") << false << ChildEnd::Finished;
    QTest::newRow("cancelled at once") << scripted("hang") << true << ChildEnd::Cancelled;
    QTest::newRow("no program") << Command() << false << ChildEnd::NotStarted;
    QTest::newRow("no program, and cancelled") << Command() << true << ChildEnd::Cancelled;
}

void TestKitChild::finishedIsSentOnceAndLater()
{
    QFETCH(const Command, command);
    QFETCH(const bool, cancelled);
    Child child;
    QVector<ChildEnd> ends;
    connect(&child, &Child::finished, this, [&](const ChildResult& result) {
        QVERIFY(!child.isRunning());
        ends.append(result.end);
    });
    QVERIFY(child.start(command));
    QVERIFY(child.isRunning());
    if (cancelled) {
        child.cancel();
        child.cancel();
    }
    QVERIFY(ends.isEmpty());
    QTRY_VERIFY_WITH_TIMEOUT(!child.isRunning(), patience);
    child.cancel();
    QTest::qWait(50);
    QFETCH(const ChildEnd, end);
    QCOMPARE(ends, QVector<ChildEnd>{end});
    QCOMPARE(child.processId(), qint64(0));
}

void TestKitChild::oneRunsAtATime()
{
    Child child;
    QByteArray output;
    connect(&child, &Child::finished, this, [&](const ChildResult& result) { output += result.output; });
    QVERIFY(child.start(scripted("out first")));
    QVERIFY(!child.start(scripted("out second")));
    QTRY_VERIFY_WITH_TIMEOUT(!child.isRunning(), patience);
    QCOMPARE(output, QByteArray("first"));
}

void TestKitChild::slotMayStartTheNext()
{
    Child child;
    QByteArrayList outputs;
    connect(&child, &Child::finished, this, [&](const ChildResult& result) {
        outputs.append(result.output);
        if (outputs.size() == 1)
            QVERIFY(child.start(Command()));
        else if (outputs.size() == 2)
            QVERIFY(child.start(scripted("out third")));
    });
    QVERIFY(child.start(scripted("out first")));
    QTRY_COMPARE_WITH_TIMEOUT(outputs, (QByteArrayList{"first", "", "third"}), patience);
}

void TestKitChild::cancelEndsTheGroup()
{
    Child child;
    QByteArray output;
    std::unique_ptr<ChildResult> result;
    connect(&child, &Child::outputReady, this, [&](const QByteArray& piece) { output += piece; });
    connect(&child, &Child::finished, this, [&](const ChildResult& r) { result = std::make_unique<ChildResult>(r); });
    QVERIFY(child.start(scripted("deaf child child hang")));
    QTRY_COMPARE_WITH_TIMEOUT(output.count('\n'), 2, patience);
    const QByteArrayList grandchildren = output.trimmed().split('\n');
    QVERIFY(childwatch::isAlive(grandchildren[0].toLongLong()));
    QVERIFY(childwatch::isAlive(grandchildren[1].toLongLong()));
    child.cancel();
    QTRY_VERIFY_WITH_TIMEOUT(result, patience);
    QCOMPARE(result->end, ChildEnd::Cancelled);
    QTRY_VERIFY_WITH_TIMEOUT(!childwatch::isAlive(grandchildren[0].toLongLong()), patience);
    QTRY_VERIFY_WITH_TIMEOUT(!childwatch::isAlive(grandchildren[1].toLongLong()), patience);
}

/// What holds the pipes is no reason to wait, and does not stay.
void TestKitChild::endEndsTheGroup()
{
    const ChildResult result = zokit::run(scripted("deaf child exit 4"));
    QCOMPARE(result.exitCode, 4);
    const qint64 grandchild = result.output.trimmed().toLongLong();
    QVERIFY(grandchild > 0);
    QTRY_VERIFY_WITH_TIMEOUT(!childwatch::isAlive(grandchild), patience);
}

void TestKitChild::cancelAtAnyMoment()
{
    QRandomGenerator random(20); // The same moments each time, as far as the machine lets them.
    for (int round = 0; round < 30; ++round) {
        Child child;
        QVector<ChildEnd> ends;
        connect(&child, &Child::finished, this, [&](const ChildResult& result) {
            ends.append(result.end);
            QCOMPARE(result.exitCode, -1);
        });
        if (round % 2 == 0) {
            QVERIFY(child.start(scripted("err x out y ticks 100000")));
            QTest::qWait(random.bounded(20));
            child.cancel();
        } else { // It has mostly ended by itself when its words are read: that is noticed then, and not told yet.
            connect(&child, &Child::outputReady, &child, &Child::cancel, Qt::QueuedConnection);
            QVERIFY(child.start(shell("echo x; exit 3")));
            QThread::msleep(50);
        }
        QTRY_VERIFY_WITH_TIMEOUT(!child.isRunning(), patience);
        QCOMPARE(ends, QVector<ChildEnd>{ChildEnd::Cancelled});
        QCOMPARE(childwatch::takeFindings(), QStringList());
    }
}

void TestKitChild::cancelWithoutChildDoesNothing()
{
    Child child;
    connect(&child, &Child::finished, this, [] { QFAIL("nothing ran"); });
    child.cancel();
    child.pause();
    child.resume();
    QVERIFY(!child.isRunning());
    QTest::qWait(20);
}

void TestKitChild::destructorEndsTheChild()
{
    for (const bool isPaused : {false, true}) {
        auto child = std::make_unique<Child>();
        QByteArray output;
        connect(child.get(), &Child::outputReady, this, [&](const QByteArray& piece) { output += piece; });
        connect(child.get(), &Child::finished, this, [] { QFAIL("it must not be sent any more"); });
        QVERIFY(child->start(scripted("deaf out begun hang")));
        QTRY_COMPARE_WITH_TIMEOUT(output, QByteArray("begun"), patience);
        const auto process = static_cast<pid_t>(child->processId());
        if (isPaused)
            child->pause();
        child.reset();
        QCOMPARE(kill(process, 0), -1);
    }
}

void TestKitChild::childDiesWithItsParent()
{
    Child parent;
    QByteArray output;
    connect(&parent, &Child::outputReady, this, [&](const QByteArray& piece) { output += piece; });
    Command command;
    command.program = QStringLiteral(SCRIPTED_PARENT);
    command.arguments << QStringLiteral(SCRIPTED_CHILD) << key("deaf") << key("child") << key("hang");
    QVERIFY(parent.start(command));
    QTRY_VERIFY_WITH_TIMEOUT(output.endsWith('\n'), patience);
    const qint64 ofGroup = output.trimmed().toLongLong();
    QFile status(QStringLiteral("/proc/%1/stat").arg(ofGroup));
    QVERIFY(status.open(QIODevice::ReadOnly));
    const qint64 child = status.readAll().split(' ').value(3).toLongLong();
    QVERIFY(childwatch::isAlive(child));
    kill(static_cast<pid_t>(parent.processId()), SIGKILL);
    QTRY_VERIFY_WITH_TIMEOUT(!childwatch::isAlive(child), patience);
    QTRY_VERIFY_WITH_TIMEOUT(!parent.isRunning(), patience);
    kill(static_cast<pid_t>(ofGroup), SIGKILL); // A child's own children are its own affair.
}

void TestKitChild::endAtTheStartIsNoticed()
{
    pthread_atfork(nullptr, lookLater, endAtTheFork);
    Child child;
    QSignalSpy finished(&child, &Child::finished);
    endsAtTheFork = true;
    child.start(scripted("out never"));
    endsAtTheFork = false;
    QVERIFY(finished.count() > 0 || finished.wait(60000));
    QVERIFY(!child.isRunning());
    // Who gives it up waits no longer.
    auto other = std::make_unique<Child>();
    endsAtTheFork = true;
    other->start(scripted("out never"));
    endsAtTheFork = false;
    other.reset();
}

void TestKitChild::childIsAlone()
{
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigprocmask(SIG_BLOCK, &blocked, &before);
    signal(SIGUSR1, SIG_IGN);
    qputenv("FFREPORT", "file=/nowhere");
    const ChildResult told = zokit::run(scripted("tell"));
    const ChildResult report = zokit::run(shell("echo \"[$FFREPORT]\""));
    qunsetenv("FFREPORT");
    signal(SIGUSR1, SIG_DFL);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    QCOMPARE(told.output, QByteArray("own group\nown session\nno terminal\n"
                                     "SigBlk:\t0000000000000000\nSigIgn:\t0000000000000000\n"));
    QCOMPARE(report.output, QByteArray("[]\n"));
}

void TestKitChild::limitsAreSet()
{
    Command command = shell("ulimit -v; ulimit -t; ulimit -c");
    command.memory = qint64(3) * 1024 * 1024 * 1024;
    command.processorSeconds = 7;
    QCOMPARE(zokit::run(command).output, QByteArray("3145728\n7\n0\n"));

    Command busy = shell("while :; do :; done");
    busy.processorSeconds = 1;
    const ChildResult result = zokit::run(busy);
    QCOMPARE(result.end, ChildEnd::Killed);
    QCOMPARE(result.signal, SIGKILL);
}

namespace {

const char* const blocks = "frame=0\nfps=0.00\nbitrate=N/A\ntotal_size=48\nout_time_us=0\nout_time_ms=0\n"
                           "out_time=00:00:00.000000\nspeed=N/A\nprogress=continue\n"
                           "frame=75\nout_time_us=2987000\nout_time_ms=2987000\nspeed=5.97x\nprogress=continue\n"
                           "frame=125\nout_time_us=4986667\nout_time_ms=4986667\nspeed=   6x\nprogress=end\n";

} // namespace

void TestKitChild::progressIsRead_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("speed");
    QTest::addColumn<bool>("hasEnded");
    QTest::addColumn<int>("count");
    QTest::newRow("nothing") << QByteArray() << 0.0 << 0.0 << false << 0;
    QTest::newRow("three blocks") << QByteArray(blocks) << 4.986667 << 6.0 << true << 3;
    QTest::newRow("milliseconds are not read")
        << QByteArray("out_time_ms=9000000\nprogress=continue\n") << 0.0 << 0.0 << false << 1;
    QTest::newRow("unknown time keeps the last")
        << QByteArray("out_time_us=1500000\nprogress=continue\nout_time_us=N/A\nspeed=N/A\nprogress=end\n") << 1.5
        << 0.0 << true << 2;
    QTest::newRow("before the beginning")
        << QByteArray("out_time_us=-42000\nprogress=continue\n") << 0.0 << 0.0 << false << 1;
    QTest::newRow("line ends of elsewhere")
        << QByteArray("out_time_us=250000\r\nspeed=0.5x\r\nprogress=end\r\n") << 0.25 << 0.5 << true << 1;
    QTest::newRow("words that are no progress")
        << QByteArray("hello\n=\n\n=5\nout_time_us\nout_time_us=1e6\nspeed=infx\nprogress=continue\n") << 0.0 << 0.0
        << false << 1;
    QTest::newRow("endless line") << QByteArray("out_time_us=") + QByteArray(100000, '1') + "\nprogress=continue\n"
                                  << 0.0 << 0.0 << false << 1;
}

void TestKitChild::progressIsRead()
{
    QFETCH(const QByteArray, lines);
    zokit::ProgressReader reader;
    reader.read(lines);
    QTEST(reader.seconds(), "seconds");
    QTEST(reader.speed(), "speed");
    QTEST(reader.hasEnded(), "hasEnded");
    QTEST(reader.blocks(), "count");
}

void TestKitChild::progressInAnyPieces()
{
    const QByteArray whole(blocks);
    for (int size = 1; size <= whole.size(); ++size) {
        zokit::ProgressReader reader;
        for (int from = 0; from < whole.size(); from += size)
            reader.read(whole.mid(from, size));
        QCOMPARE(reader.seconds(), 4.986667);
        QCOMPARE(reader.speed(), 6.0);
        QCOMPARE(reader.blocks(), 3);
        QVERIFY(reader.hasEnded());
    }
}

void TestKitChild::progressBetweenBlocks()
{
    zokit::ProgressReader reader;
    reader.read("out_time_us=1000000\nspeed=2x\nprogress=continue\nout_time_us=2000000\nspeed=3x\n");
    QCOMPARE(reader.seconds(), 1.0);
    QCOMPARE(reader.speed(), 2.0);
    QVERIFY(!reader.hasEnded());
    reader.read("progress=end");
    QVERIFY(!reader.hasEnded());
    reader.read("\n");
    QCOMPARE(reader.seconds(), 2.0);
    QVERIFY(reader.hasEnded());
}

ZOEFFECT_TEST_MAIN(TestKitChild)
#include "tst_kit_child.moc"
