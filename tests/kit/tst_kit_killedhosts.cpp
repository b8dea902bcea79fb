// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Hosts that are killed at any moment, and what their journals bring back.

#include <cstring>
#include <memory>

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <zokit/journal.h>

#include "journalrobot.h"
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

constexpr qint64 promised = 200; // Milliseconds that a kill may cost.
constexpr int atOnce = 3;
constexpr int mostEdits = 120;

/// A robot that runs, with a folder for its journal.
class Host {
public:
    explicit Host(quint32 seed) : m_seed(seed)
    {
        m_process.start(QStringLiteral(ZOKIT_ROBOT), {m_folder.path(), QString::number(seed)});
    }

    quint32 seed() const { return m_seed; }
    QString folder() const { return m_folder.path(); }

    /// Kills it at some moment after its edit number \a edits.
    bool killAfter(int edits)
    {
        const auto enough = int(sizeof(Report)) * edits;
        while (m_process.bytesAvailable() < enough && m_process.waitForReadyRead()) {
        }
        const bool ran = m_process.state() == QProcess::Running && m_process.bytesAvailable() >= enough;
        m_process.kill();
        return m_process.waitForFinished() && ran && m_process.exitStatus() == QProcess::CrashExit;
    }

    QVector<Report> reports()
    {
        const QByteArray bytes = m_process.readAllStandardOutput();
        QVector<Report> reports(bytes.size() / int(sizeof(Report)));
        std::memcpy(reports.data(), bytes.constData(), sizeof(Report) * std::size_t(reports.size()));
        return reports;
    }

private:
    quint32 m_seed;
    QTemporaryDir m_folder;
    QProcess m_process;
};

/// How many edits have to be back: the promise counts from the moment of the last report.
int editsPromised(const QVector<Report>& reports)
{
    int edits = 0;
    while (edits < reports.size() && reports.at(edits).after <= reports.last().before - promised)
        ++edits;
    return edits;
}

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
        std::vector<std::unique_ptr<Host>> hosts;
        for (int i = 0; i < std::min(atOnce, total - killed); ++i)
            hosts.push_back(std::make_unique<Host>(random.generate()));
        for (const std::unique_ptr<Host>& host : hosts) {
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
            const int promisedEdits = editsPromised(reports);
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
