// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Random sessions of a host on the library, each step held against a naive account of what it is to do.
//
// ZOEFFECT_SESSION_STEPS tells how many steps to make, RC_PARAMS the seed and all else that RapidCheck reads from it.
// ZOEFFECT_SESSION_TRACE set: each call is told on standard error before it is made, to find one that crashes.

#include <iostream>
#include <random>

// Before Qt, whose keywords are macros.
#include <rapidcheck.h>

#include <QCryptographicHash>

#include "stage.h"
#include "testapplication.h"

namespace {

using Session = std::vector<Command>;

constexpr int shortest = 20;
constexpr int longest = 100;
constexpr long long defaultSteps = 1000000;
constexpr const char* fixedSeed = "20260711";

struct Tally {
    long long ran = 0;
    long long tookEffect = 0;
};

std::vector<Tally>& tallies()
{
    static std::vector<Tally> counts(operations().size());
    return counts;
}

long long stepsAsked()
{
    const QByteArray asked = qgetenv("ZOEFFECT_SESSION_STEPS");
    return asked.isEmpty() ? defaultSteps : asked.toLongLong();
}

/// Each of the first operations as often as its weight tells.
std::vector<int> drawnOperations(size_t count)
{
    std::vector<int> all;
    for (size_t i = 0; i < count; ++i)
        all.insert(all.end(), static_cast<size_t>(operations()[i].weight), static_cast<int>(i));
    return all;
}

/// Fewer commands first, then smaller choices.
rc::Seq<Session> simplerThan(const Session& session)
{
    return rc::seq::concat(rc::shrink::removeChunks(session),
                           rc::shrink::eachElement(session, [](const Command& command) {
                               std::vector<Command> simpler;
                               for (size_t i = 0; i < command.choices.size(); ++i) {
                                   const quint32 choice = command.choices[i];
                                   for (const quint32 smaller : {0U, choice % 100, choice / 2, choice - choice % 100}) {
                                       if (smaller >= choice)
                                           continue;
                                       simpler.push_back(command);
                                       simpler.back().choices[i] = smaller;
                                   }
                               }
                               return rc::seq::fromContainer(simpler);
                           }));
}

/// One draw of 64 bits gives two choices.
template <typename Draw>
Session drawnSession(const std::vector<int>& drawn, Draw next)
{
    Session session(static_cast<size_t>(shortest) + static_cast<size_t>(next() % (longest - shortest + 1)));
    for (Command& command : session) {
        command.operation = drawn[static_cast<size_t>(next() % drawn.size())];
        for (size_t i = 0; i < command.choices.size(); i += 2) {
            const uint64_t number = next();
            command.choices[i] = static_cast<quint32>(number % 1000000);
            command.choices[i + 1] = static_cast<quint32>((number >> 32) % 1000000);
        }
    }
    return session;
}

rc::Gen<Session> anySession()
{
    return [](const rc::Random& random, int) {
        static const std::vector<int> drawn = drawnOperations(operations().size());
        rc::Random numbers = random;
        return rc::shrinkable::shrinkRecur(drawnSession(drawn, [&numbers] { return numbers.next(); }),
                                           [](const Session& failing) { return simplerThan(failing); });
    };
}

struct Verdict {
    QString difference; ///< Empty when library and reference agree.
    QStringList calls;
};

Verdict play(const Session& session, bool describing, std::vector<Tally>* counts)
{
    Stage stage(describing);
    try {
        stage.compareAll();
        for (const Command& command : session) {
            const bool ran = stage.perform(command);
            if (ran && counts) {
                Tally& tally = (*counts)[static_cast<size_t>(command.operation)];
                ++tally.ran;
                tally.tookEffect += stage.tookEffect() ? 1 : 0;
            }
        }
        stage.compareAll();
    } catch (const Difference& difference) {
        return {difference.text, stage.calls()};
    }
    return {};
}

/// The text of a session that fails: what was called, and what the last call made different.
std::string report(const Session& session)
{
    const Verdict verdict = play(session, true, nullptr);
    QStringList lines = {"the session:"};
    for (const QString& call : verdict.calls)
        lines << "    " + call + ';';
    lines << (verdict.difference.isEmpty() ? "does not fail again" : verdict.difference);
    return lines.join('\n').toStdString();
}

/// Qt complains about fonts, colours and pictures that are none; the sessions give it many.
void silence(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/) {}

bool sessionsAgree()
{
    // A few more than the average length asks for, since a step may find nothing to work on.
    const long long sessions = stepsAsked() / ((shortest + longest) / 2 - 4) + 1;
    QByteArray params = qgetenv("RC_PARAMS");
    if (!params.contains("seed="))
        params += QByteArray(" seed=") + fixedSeed;
    if (!params.contains("max_success="))
        params += " max_success=" + QByteArray::number(sessions);
    qputenv("RC_PARAMS", params.trimmed());

    writePictures();
    const bool trace = qEnvironmentVariableIsSet("ZOEFFECT_SESSION_TRACE");
    const QtMessageHandler before = qInstallMessageHandler(silence);
    const bool agree = rc::check("library and reference agree after each step", [trace] {
        const Session session = *anySession();
        if (!play(session, trace, &tallies()).difference.isEmpty())
            RC_FAIL(report(session));
    });
    qInstallMessageHandler(before);
    return agree;
}

long long stepsMade()
{
    long long steps = 0;
    for (const Tally& tally : tallies())
        steps += tally.ran;
    return steps;
}

/// What the calls of some sessions give, as text; all but the pictures, whose texts are measured by the fonts that
/// there are.
QByteArray outcomeOf(int sessions)
{
    constexpr size_t summedOperations = 94; // Newer ones stand behind them, so that the sum stays the same.
    const std::vector<int> drawn = drawnOperations(summedOperations);
    QByteArray outcome;
    std::mt19937_64 numbers(20261122); // NOLINT(cert-msc32-c,cert-msc51-cpp): what fails, fails again
    for (int i = 0; i < sessions; ++i) {
        Stage stage(true, &outcome);
        stage.compareAll();
        for (const Command& command : drawnSession(drawn, [&numbers] { return uint64_t(numbers()); })) {
            if (!operations()[static_cast<size_t>(command.operation)].name.contains("::getWatermark"))
                stage.perform(command);
        }
        stage.noteTrees();
    }
    return outcome;
}

/// Plays the sessions, once for all rows.
bool played()
{
    static const bool agree = sessionsAgree();
    return agree;
}

} // namespace

// RapidCheck shows the session that failed through this; the calls themselves stand in the failure's text.
static void showValue(const Command& command, std::ostream& stream)
{
    stream << operations()[static_cast<size_t>(command.operation)].name.constData();
}

class TestSessions : public QObject {
    Q_OBJECT

private slots:
    void libraryAndReferenceAgreeAfterEachStep();
    void theOutcomeIsTheSameEverywhere();
    void everyOperationTookPart_data();
    void everyOperationTookPart();
};

void TestSessions::libraryAndReferenceAgreeAfterEachStep()
{
    QVERIFY2(played(), "see the session above");
    qInfo("%lld steps", stepsMade());
    QVERIFY(stepsMade() >= stepsAsked());
}

/// With every Qt, compiler and processor, and as in the last release. To see what differs, let two builds write their
/// outcomes and compare the files: ZOEFFECT_SESSION_OUTCOME=FILE.
void TestSessions::theOutcomeIsTheSameEverywhere()
{
    writePictures();
    const QtMessageHandler before = qInstallMessageHandler(silence);
    const QByteArray outcome = outcomeOf(300);
    qInstallMessageHandler(before);
    QFile file(qEnvironmentVariable("ZOEFFECT_SESSION_OUTCOME"));
    if (!file.fileName().isEmpty())
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(outcome) == outcome.size());
    QCOMPARE(int(outcome.count("\n> ")), 22653);
    QCOMPARE(QCryptographicHash::hash(outcome, QCryptographicHash::Sha256).toHex(),
             QByteArray("dfdba14c789b2927df0455ad3534d77f659a4c294778f0b1c3a98807e9713252"));
}

void TestSessions::everyOperationTookPart_data()
{
    QTest::addColumn<int>("operation");
    for (size_t i = 0; i < operations().size(); ++i)
        QTest::newRow(operations()[i].name.constData()) << static_cast<int>(i);
}

void TestSessions::everyOperationTookPart()
{
    QFETCH(int, operation);
    played(); // Whether they agreed is told above.
    const Tally& tally = tallies()[static_cast<size_t>(operation)];
    QVERIFY2(tally.ran >= stepsMade() / 1000, QByteArray::number(tally.ran).constData());
    QVERIFY2(tally.tookEffect >= stepsMade() / 5000, QByteArray::number(tally.tookEffect).constData());
}

ZOEFFECT_TEST_MAIN(TestSessions)
#include "tst_sessions.moc"
