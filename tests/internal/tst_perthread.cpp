// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <atomic>
#include <cstdio>
#include <thread>

#include <QtTest>

#include "perthread_p.h"

namespace {

struct Counter {
    Counter() { ++alive; }
    Counter(const Counter&) = delete;
    Counter& operator=(const Counter&) = delete;
    ~Counter() { --alive; }

    int value = 0;
    static std::atomic<int> alive;
};

std::atomic<int> Counter::alive{0};

/// Asks when it is destroyed.
struct Asker {
    enum Answer { NotAsked, Object, Null };

    explicit Asker(Answer* target) : answer(target) {}
    Asker(const Asker&) = delete;
    Asker& operator=(const Asker&) = delete;
    ~Asker() { *answer = perThread<Counter>() ? Object : Null; }

    Answer* answer;
};

constexpr char askAtExit[] = "--ask-at-exit";

/// A host's static object, which is destroyed after the objects of the main thread.
struct StaticAsker {
    StaticAsker() = default;
    StaticAsker(const StaticAsker&) = delete;
    StaticAsker& operator=(const StaticAsker&) = delete;
    ~StaticAsker()
    {
        if (asks)
            std::puts(perThread<Counter>() ? "object" : "null");
    }

    bool asks = false;
};

StaticAsker staticAsker;

} // namespace

class TstPerThread : public QObject {
    Q_OBJECT

private slots:
    void objectIsTheSameEachTime();
    void objectBeginsWithItsValueAtZero();
    void objectsOfTypesAreTheirOwn();
    void objectIsMadeWhenFirstAskedForAndGoesWithItsThread();
    void threadsHaveTheirOwn();
    void nothingIsLeftForThreadObjectsThatGoLater();
    void nothingIsLeftForStaticObjects();
};

void TstPerThread::objectIsTheSameEachTime()
{
    int* const object = perThread<int>();
    QVERIFY(object);
    *object = 7;
    QCOMPARE(perThread<int>(), object);
    QCOMPARE(*perThread<int>(), 7);
}

void TstPerThread::objectBeginsWithItsValueAtZero()
{
    long there = 1;
    void* pointerThere = &there;
    std::thread([&] {
        there = *perThread<long>();
        pointerThere = *perThread<void*>();
    }).join();
    QCOMPARE(there, 0L);
    QVERIFY(!pointerThere);
}

void TstPerThread::objectsOfTypesAreTheirOwn()
{
    struct Other {
        int value = 5;
    };
    perThread<Counter>()->value = 3;
    QCOMPARE(perThread<Other>()->value, 5);
    perThread<Other>()->value = 6;
    QCOMPARE(perThread<Counter>()->value, 3);
}

void TstPerThread::objectIsMadeWhenFirstAskedForAndGoesWithItsThread()
{
    const int before = Counter::alive;
    int atStart = -1;
    int afterFirst = -1;
    int afterSecond = -1;
    std::thread([&] {
        atStart = Counter::alive;
        perThread<Counter>();
        afterFirst = Counter::alive;
        perThread<Counter>();
        afterSecond = Counter::alive;
    }).join();
    QCOMPARE(atStart, before);
    QCOMPARE(afterFirst, before + 1);
    QCOMPARE(afterSecond, before + 1);
    QCOMPARE(Counter::alive.load(), before);
}

void TstPerThread::threadsHaveTheirOwn()
{
    Counter* const here = perThread<Counter>();
    here->value = 1;
    for (int i = 0; i < 3; ++i) {
        Counter* there = nullptr;
        int valueThere = -1;
        std::thread([&] {
            there = perThread<Counter>();
            valueThere = there->value;
            there->value = 2;
        }).join();
        QVERIFY(there && there != here);
        QCOMPARE(valueThere, 0);
        QCOMPARE(here->value, 1);
    }
}

void TstPerThread::nothingIsLeftForThreadObjectsThatGoLater()
{
    Asker::Answer earlier = Asker::NotAsked;
    Asker::Answer later = Asker::NotAsked;
    std::thread([&] {
        thread_local const Asker goesLater(&earlier); // Made first, destroyed last.
        QVERIFY(goesLater.answer == &earlier && perThread<Counter>());
        thread_local const Asker goesBefore(&later);
        QVERIFY(goesBefore.answer == &later);
    }).join();
    QCOMPARE(earlier, Asker::Null);
    QCOMPARE(later, Asker::Object);
}

void TstPerThread::nothingIsLeftForStaticObjects()
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {QLatin1String(askAtExit)});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.readAllStandardError(), QByteArray());
    QCOMPARE(child.readAllStandardOutput(), QByteArray("null\n"));
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), 0);
}

int main(int argc, char** argv)
{
    if (argc == 2 && qstrcmp(argv[1], askAtExit) == 0) {
        staticAsker.asks = true;
        return perThread<Counter>() ? 0 : 1;
    }
    QCoreApplication application(argc, argv);
    TstPerThread test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_perthread.moc"
