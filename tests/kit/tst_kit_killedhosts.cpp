// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Hosts that are killed at any moment, and what their journals bring back.

#include <memory>

#include <QtTest>

#include <zokit/journal.h>

#include "killedhost.h"
#include "testapplication.h"

using journalrobot::Report;
using journalrobot::Robot;
using zokit::History;
using zokit::Journal;
using zokit::Message;
using zokit::Project;

class TestKitKilledHosts : public QObject {
    Q_OBJECT

private slots:
    void loseNoMoreThanTheLastMoment();
};

namespace {

constexpr int atOnce = 3;
constexpr int mostEdits = 120;

/// Everything that can be told of a project: its settings here, at the beginning and in the middle of its history, and
/// what stands in the history.
QByteArray accountOf(const Project& project)
{
    History& history = project.history();
    const int position = history.position();
    QByteArray account = QByteArray::number(position) + " of " + QByteArray::number(history.count())
                         + (history.isClean() ? ", clean\n" : "\n") + kitsupport::settingsOf(project);
    for (int i = 0; i < history.count(); ++i)
        account += history.step(i).text.text().toUtf8() + '\n';
    for (const int place : {0, history.count() / 2, history.count(), position}) {
        history.goTo(place);
        account += kitsupport::settingsOf(project);
        for (const zokit::Identity thing : history.selection())
            account += ' ' + QByteArray::number(thing);
    }
    return account;
}

/// The number of edits of a robot with \a seed, from \a least to \a most, after which all is as \a left tells; -1 when
/// there is none.
int editsThatGive(const QByteArray& left, quint32 seed, int least, int most)
{
    kitsupport::clearSavedDefaults();
    Robot robot(seed);
    const QByteArray place = left.left(left.indexOf('\n'));
    for (int edits = 0; edits <= most; ++edits) {
        const History& history = robot.project().history();
        const QByteArray here = QByteArray::number(history.position()) + " of " + QByteArray::number(history.count())
                                + (history.isClean() ? ", clean" : "");
        if (edits >= least && here == place) {
            // Looking through the history sets saved defaults: put back before the next edit.
            if (accountOf(robot.project()) == left)
                return edits;
        }
        robot.edit();
    }
    return -1;
}

} // namespace

void TestKitKilledHosts::loseNoMoreThanTheLastMoment()
{
    const int total = kitsupport::stepsOr("ZOKIT_KILLS", 100);
    kitsupport::logoPath(60, 40); // For all of them.
    QRandomGenerator random(QRandomGenerator::securelySeeded());
    int longestLoss = 0;
    int promisedInAll = 0;
    for (int killed = 0; killed < total;) {
        std::vector<std::unique_ptr<KilledHost>> hosts;
        for (int i = 0; i < std::min(atOnce, total - killed); ++i)
            hosts.push_back(std::make_unique<KilledHost>(ZOKIT_ROBOT, random.generate()));
        for (const std::unique_ptr<KilledHost>& host : hosts) {
            const int wanted = random.bounded(1, mostEdits);
            QVERIFY2(host->killAfter(wanted), "a host ended by itself");
            ++killed;
            const QVector<Report> reports = host->reports();
            const QVector<Journal::Left> left = Journal::left(host->folder());
            QCOMPARE(left.size(), 1);
            kitsupport::clearSavedDefaults();
            Project back;
            const Message message = Journal::recover(left.first().path, back);
            QVERIFY2(message.isEmpty() || message.code() == Message::Code::JournalCut, qPrintable(message.text()));
            const int promisedEdits = KilledHost::editsPromised(reports);
            const auto done = static_cast<int>(reports.size());
            // One more may be in the journal than was told.
            const int found = editsThatGive(accountOf(back), host->seed(), promisedEdits, done + 1);
            QVERIFY2(found >= 0, qPrintable(QStringLiteral("seed %1: of %2 edits %3 have to be back")
                                                .arg(host->seed())
                                                .arg(done)
                                                .arg(promisedEdits)));
            promisedInAll += promisedEdits;
            longestLoss = std::max(longestLoss, done - found);
        }
    }
    QVERIFY(promisedInAll > 0);
    qInfo("%d hosts were killed; %d edits had to be back; at most the last %d edits of one were lost", total,
          promisedInAll, longestLoss);
}

ZOEFFECT_TEST_MAIN(TestKitKilledHosts)
#include "tst_kit_killedhosts.moc"
