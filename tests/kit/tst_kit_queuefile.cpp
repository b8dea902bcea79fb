// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A queue that outlives its session.

#include <csignal>

#include <sys/resource.h>

#include <QtTest>

#include <zokit/queuefile.h>
#include <zokit/settingsfile.h>

#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;
using zokit::Job;
using zokit::Message;
using zokit::Queue;
using zokit::QueueFile;
using zokit::RowState;

namespace {

Job job(const char* name, int contrast = 0)
{
    Job made;
    made.input = QStringLiteral("/films/%1.mkv").arg(key(name));
    made.output = QStringLiteral("/films/%1-converted.mkv").arg(key(name));
    made.settings.media = kitsupport::clip();
    made.settings = zokit::completed(made.settings);
    made.settings.find(key("Color"))->values.insert(key("bcs_contrast"), contrast);
    return made;
}

int contrastOf(const Job& of)
{
    return of.settings.find(key("Color"))->values.value(key("bcs_contrast")).toInt();
}

QStringList namesOf(const Queue& queue)
{
    QStringList names;
    for (const int row : queue.rows())
        names.append(QFileInfo(queue.job(row).input).baseName());
    return names;
}

QVector<RowState> statesOf(const Queue& queue)
{
    QVector<RowState> states;
    for (const int row : queue.rows())
        states.append(queue.state(row));
    return states;
}

/// Lines of a queue that a session left: its rows a, b, c in the states of the words.
QByteArray left(const char* a, const char* b, const char* c)
{
    QByteArray text = "{\"zoeffect-queue\":1}\n";
    int number = 0;
    for (const auto& [name, state] : {std::pair("a", a), std::pair("b", b), std::pair("c", c)}) {
        text += "{\"row\":" + QByteArray::number(++number) + ",\"input\":\"/films/" + name
                + ".mkv\",\"output\":\"/films/" + name + "-converted.mkv\",\"settings\":"
                + zokit::writeSettings(job(name).settings, QString()).simplified() + ",\"state\":\"" + state + "\"}\n";
    }
    return text;
}

} // namespace

class TestKitQueueFile : public QObject {
    Q_OBJECT

private slots:
    void init();
    void rowsComeBackInTheirOrder();
    void settingsAreThoseOfTheMomentOfAdding();
    void whatRanIsInterrupted();
    void interruptedRowIsTriedAgain();
    void failureKeepsItsReason();
    void eachChangeIsInTheFileAtOnce();
    void lineThatWasCutCostsOneRow();
    void otherFilesAreLeftAlone_data();
    void otherFilesAreLeftAlone();
    void queueOfARunningEditorIsNotTaken();
    void folderThatCannotBeMadeIsTold();
    void linesThatMeanNothingAreCounted_data();
    void linesThatMeanNothingAreCounted();
    void linesOfRowsThatAreGoneMeanNothing();
    void fullDiskCostsNoRow();
    void jobThatIsMadeLaterIsNotKept();
    void rowsAreMovedAndTakenOut();
    void firstFailureEndsTheRun();

private:
    QByteArray content() const
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QByteArray& text) const
    {
        QFile file(m_path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
    zokit::Tools m_tools;
};

void TestKitQueueFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(key("in/queue.jsonl"));
    m_tools.error = Message(Message::Code::ToolMissing, {key("ffmpeg"), key("ffmpeg")});
}

void TestKitQueueFile::rowsComeBackInTheirOrder()
{
    {
        Queue queue(m_tools);
        QueueFile file(queue, m_path);
        QCOMPARE(file.open(), Message());
        for (const char* name : {"a", "b", "c", "d"})
            queue.add(job(name));
        queue.move(4, 0);
        queue.remove(2);
    }
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    QCOMPARE(file.open(), Message());
    QCOMPARE(namesOf(queue), QStringList({key("d"), key("a"), key("c")}));
    QCOMPARE(statesOf(queue), QVector<RowState>(3, RowState::Waiting));
    QVERIFY(!queue.isRunning());
}

void TestKitQueueFile::settingsAreThoseOfTheMomentOfAdding()
{
    Job added = job("a", 7);
    added.replaces = true;
    added.threads = 3;
    {
        Queue queue(m_tools);
        QueueFile file(queue, m_path);
        file.open();
        queue.add(added);
    }
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    file.open();
    const Job back = queue.job(queue.rows().value(0));
    QCOMPARE(contrastOf(back), 7);
    QVERIFY(back.settings == added.settings);
    QCOMPARE(back.output, key("/films/a-converted.mkv"));
    QVERIFY(back.replaces);
    QVERIFY(!back.skips);
    QCOMPARE(back.threads, 3);
    QCOMPARE(back.stallSeconds, 30);
}

void TestKitQueueFile::whatRanIsInterrupted()
{
    QVERIFY(QDir(m_folder->path()).mkpath(key("in")));
    write(left("done", "running", "paused"));
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    QCOMPARE(file.open(), Message());
    QCOMPARE(statesOf(queue), QVector<RowState>({RowState::Done, RowState::Interrupted, RowState::Interrupted}));
    QCOMPARE(queue.result(1).outcome, zokit::Outcome::Done);
    queue.start();
    QCoreApplication::processEvents();
    QCOMPARE(queue.state(2), RowState::Interrupted); // Nobody is surprised by what begins by itself.
}

void TestKitQueueFile::interruptedRowIsTriedAgain()
{
    QVERIFY(QDir(m_folder->path()).mkpath(key("in")));
    write(left("done", "running", "waiting"));
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    file.open();
    QVERIFY(queue.retry(2));
    QCOMPARE(queue.state(2), RowState::Waiting);
}

void TestKitQueueFile::failureKeepsItsReason()
{
    Message reason;
    {
        Queue queue(m_tools);
        QueueFile file(queue, m_path);
        file.open();
        queue.add(job("a"));
        queue.start();
        QTRY_COMPARE(queue.state(1), RowState::Failed);
        reason = queue.result(1).reason;
    }
    QCOMPARE(reason, m_tools.error);
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    file.open();
    QCOMPARE(queue.state(1), RowState::Failed);
    QCOMPARE(queue.result(1).reason, reason);
}

void TestKitQueueFile::eachChangeIsInTheFileAtOnce()
{
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    file.open();
    QCOMPARE(content(), QByteArray("{\"zoeffect-queue\":1}\n"));
    queue.add(job("a"));
    QCOMPARE(content().count('\n'), 2);
    queue.cancel(1);
    QVERIFY(content().endsWith(
        "{\"reason\":{\"arguments\":[],\"code\":\"Cancelled\"},\"row\":1,\"state\":\"cancelled\"}\n"));
    queue.remove(1);
    QVERIFY(content().endsWith("{\"row\":1,\"state\":\"removed\"}\n"));
}

void TestKitQueueFile::lineThatWasCutCostsOneRow()
{
    QVERIFY(QDir(m_folder->path()).mkpath(key("in")));
    QByteArray text = left("waiting", "waiting", "waiting");
    text.chop(20);
    write(text);
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    const Message told = file.open();
    QCOMPARE(told.code(), Message::Code::QueueCut);
    QCOMPARE(told.arguments(), QStringList({m_path, key("1")}));
    QCOMPARE(namesOf(queue), QStringList({key("a"), key("b")}));
    queue.add(job("d"));
    QVERIFY(content().contains("/films/d.mkv"));
}

void TestKitQueueFile::otherFilesAreLeftAlone_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("notes of somebody") << QByteArray("to do: call home\n");
    QTest::newRow("a later version") << QByteArray("{\"zoeffect-queue\":2}\n{\"row\":1}\n");
}

void TestKitQueueFile::otherFilesAreLeftAlone()
{
    QFETCH(QByteArray, text);
    QVERIFY(QDir(m_folder->path()).mkpath(key("in")));
    write(text);
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    QCOMPARE(file.open().code(), Message::Code::InFile);
    queue.add(job("a"));
    QCOMPARE(content(), text);
}

void TestKitQueueFile::queueOfARunningEditorIsNotTaken()
{
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    file.open();
    queue.add(job("a"));
    Queue second(m_tools);
    QueueFile again(second, m_path);
    QCOMPARE(again.open().code(), Message::Code::QueueInUse);
    QVERIFY(second.rows().isEmpty());
}

void TestKitQueueFile::folderThatCannotBeMadeIsTold()
{
    Queue queue(m_tools);
    QueueFile file(queue, key("/dev/null/queue.jsonl"));
    QCOMPARE(file.open().code(), Message::Code::FileUnwritable);
    const QString usual = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QCOMPARE(QueueFile(queue, QString()).path(), usual + key("/zoeffect/queue.jsonl"));
    const QString folder = m_folder->filePath(key("queue"));
    QVERIFY(QDir().mkpath(folder));
    QueueFile ofFolder(queue, folder);
    QCOMPARE(ofFolder.open().code(), Message::Code::FileUnreadable);
}

void TestKitQueueFile::linesThatMeanNothingAreCounted_data()
{
    QTest::addColumn<QByteArray>("from"); // Of the line of row b.
    QTest::addColumn<QByteArray>("to");
    QTest::newRow("an unknown state") << QByteArray("\"state\":\"done\"") << QByteArray("\"state\":\"resting\"");
    QTest::newRow("an input that lies anywhere") << QByteArray("\"/films/b.mkv\"") << QByteArray("\"b.mkv\"");
    QTest::newRow("an output that lies anywhere")
        << QByteArray("\"/films/b-converted.mkv\"") << QByteArray("\"b-converted.mkv\"");
    QTest::newRow("settings that are none")
        << QByteArray("2,\"input\":\"/films/b.mkv\",\"output\":\"/films/b-converted.mkv\",\"settings\":{")
        << QByteArray("2,\"input\":\"/films/b.mkv\",\"output\":\"/films/b-converted.mkv\",\"settings\":{\"tracks\":5,");
    QTest::newRow("a number that is taken") << QByteArray("{\"row\":2,") << QByteArray("{\"row\":1,");
}

void TestKitQueueFile::linesThatMeanNothingAreCounted()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QVERIFY(QDir(m_folder->path()).mkpath(key("in")));
    QByteArray text = left("waiting", "done", "waiting");
    QCOMPARE(text.count(from), 1);
    write(text.replace(from, to));
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    const Message told = file.open();
    QCOMPARE(told.code(), Message::Code::QueueCut);
    QCOMPARE(told.arguments(), QStringList({m_path, key("1")}));
    QCOMPARE(namesOf(queue), QStringList({key("a"), key("c")}));
}

void TestKitQueueFile::linesOfRowsThatAreGoneMeanNothing()
{
    QVERIFY(QDir(m_folder->path()).mkpath(key("in")));
    write(left("waiting", "waiting", "waiting") + "{\"row\":9,\"state\":\"done\"}\n{\"rows\":[9,3]}\n");
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    QCOMPARE(file.open(), Message());
    QCOMPARE(namesOf(queue), QStringList({key("c"), key("a"), key("b")})); // Those without a place come last.
}

void TestKitQueueFile::fullDiskCostsNoRow()
{
    QVERIFY(QDir(m_folder->path()).mkpath(key("in")));
    const QByteArray before = left("waiting", "done", "waiting");
    write(before);
    rlimit usual{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &usual), 0);
    const auto limitTo = [&](rlim_t bytes) {
        const rlimit limit{bytes, usual.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    };
    std::signal(SIGXFSZ, SIG_IGN);
    {
        Queue queue(m_tools);
        QueueFile file(queue, m_path);
        limitTo(100);
        const Message told = file.open();
        limitTo(usual.rlim_cur);
        QCOMPARE(told.code(), Message::Code::FileUnwritable);
        QCOMPARE(content(), before);
    }
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    QCOMPARE(file.open(), Message());
    QSignalSpy trouble(&file, &QueueFile::trouble);
    limitTo(rlim_t(content().size()) + 10);
    queue.add(job("d"));
    limitTo(usual.rlim_cur);
    QCOMPARE(trouble.size(), 1);
    QCOMPARE(trouble.first().first().value<Message>().arguments().first(), m_path);
    queue.add(job("e"));
    QCOMPARE(trouble.size(), 1); // Told once: nothing is kept from there on.
    QCOMPARE(namesOf(queue), QStringList({key("a"), key("b"), key("c"), key("d"), key("e")}));
}

void TestKitQueueFile::jobThatIsMadeLaterIsNotKept()
{
    QVERIFY(QDir(m_folder->path()).mkpath(key("in")));
    write(QByteArray()); // A file without a line is a queue without a row.
    Queue queue(m_tools);
    QueueFile file(queue, m_path);
    QCOMPARE(file.open(), Message());
    Job later = job("a");
    later.makeSettings = [](const zokit::MediaInfo&) { return zokit::ReadSettings(); };
    queue.add(later);
    QCOMPARE(content(), QByteArray("{\"zoeffect-queue\":1}\n"));
}

void TestKitQueueFile::rowsAreMovedAndTakenOut()
{
    Queue queue(m_tools);
    for (const char* name : {"a", "b", "c", "d"})
        queue.add(job(name));
    QVERIFY(queue.move(1, 2));
    QCOMPARE(namesOf(queue), QStringList({key("b"), key("c"), key("a"), key("d")}));
    QVERIFY(!queue.move(1, -1));
    QVERIFY(!queue.move(1, 4));
    QVERIFY(!queue.move(9, 0));
    QVERIFY(!queue.remove(9));
    QVERIFY(!queue.conversion(9));
    QCOMPARE(queue.job(9).input, QString());
    QCOMPARE(queue.state(9), RowState::Cancelled);
    QCOMPARE(queue.result(9).reason, Message());
    QCOMPARE(namesOf(queue), QStringList({key("b"), key("c"), key("a"), key("d")}));
    QVERIFY(!queue.retry(1)); // It waits.
    QVERIFY(!queue.retry(9));
    queue.cancel(9);
    queue.cancel(1);
    QCOMPARE(queue.state(1), RowState::Cancelled);
    connect(&queue, &Queue::stateChanged, this, [] { QFAIL("It is told twice"); });
    queue.cancel(1);
}

void TestKitQueueFile::firstFailureEndsTheRun()
{
    Queue queue(m_tools);
    for (const char* name : {"a", "b", "c"})
        queue.add(job(name));
    queue.setStopsAtFailure(true);
    QSignalSpy ended(&queue, &Queue::finished);
    queue.start();
    bool isTakenOut = true;
    connect(&queue, &Queue::stateChanged, this, [&](int row, RowState state) {
        if (state == RowState::Running)
            isTakenOut = queue.remove(row);
    });
    QVERIFY(ended.wait());
    QVERIFY(!isTakenOut); // What runs stays.
    QCOMPARE(statesOf(queue), QVector<RowState>({RowState::Failed, RowState::Skipped, RowState::Skipped}));
    QCOMPARE(queue.result(3).outcome, zokit::Outcome::Skipped);
    queue.setStopsAtFailure(false);
    queue.start();
    QVERIFY(queue.retry(2)); // The run goes on with it.
    QTRY_COMPARE(statesOf(queue), QVector<RowState>({RowState::Failed, RowState::Failed, RowState::Skipped}));
}

ZOEFFECT_TEST_MAIN(TestKitQueueFile)
#include "tst_kit_queuefile.moc"
