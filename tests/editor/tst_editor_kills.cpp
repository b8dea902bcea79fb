// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Editors that are killed at any moment, and what the next start brings back.

#include <csignal>
#include <memory>
#include <vector>

#include <sys/resource.h>

#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>
#include <zokit/journal.h>
#include <zokit/tools.h>

#include "editorrobot.h"
#include "editorsupport.h"
#include "killedhost.h"
#include "randomedits.h"

using editorrobot::Robot;
using journalrobot::Report;
using kitsupport::key;
using kitsupport::settingsOf;

class TestEditorKills : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void newerSavedFileIsTheAnswer_data();
    void newerSavedFileIsTheAnswer();
    void whatEditorsDieOfIsSetAside();
    void recoveredSessionStaysUntilItIsKeptAgain_data();
    void recoveredSessionStaysUntilItIsKeptAgain();
    void nextStartBringsEverythingBack();

private:
    QTemporaryDir m_tools;
};

namespace {

constexpr int atOnce = 3;
constexpr int mostEdits = 40;
constexpr int longestWait = 30; // Milliseconds: longer than an edit.

QString clip()
{
    return clips::clip(QStringLiteral("plain.mp4"));
}

/// Leaves the journal of a session with one clip that died; its path.
QString leave(const QString& folder)
{
    zokit::Project project;
    const zokit::Journal journal(project, folder);
    project.add(kitsupport::clip());
    return journal.path();
}

/// The button with which the start of an editor offers to answer its question. It is answered by "later".
QString offeredAnswer(const QString& folder)
{
    QString answer;
    QTimer looking;
    QObject::connect(&looking, &QTimer::timeout, &looking, [&answer] {
        const auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!question)
            return;
        answer = question->defaultButton()->objectName();
        question->findChild<QPushButton*>(key("later"))->click();
    });
    looking.start(0);
    zoeditor::Editor editor(folder);
    editor.start({});
    return answer;
}

/// What the next start shows when its question is answered by "Recover".
struct Recovered {
    QByteArray settings;
    QByteArray beginning; ///< After undoing all but that the clip was opened.
};

Recovered recovered(const QString& folder)
{
    editorsupport::answer("recoverQuestion", "recover");
    zoeditor::Editor editor(folder);
    editorrobot::open(editor, QString());
    Recovered back;
    back.settings = settingsOf(editor.session().project());
    while (editor.session().history().position() > 1)
        editor.session().undo();
    back.beginning = settingsOf(editor.session().project());
    return back;
}

/// The number of edits of a robot with \a seed, from \a least to \a most, after which all is as \a left tells; -1 when
/// there is none.
int editsThatGive(const Recovered& left, quint32 seed, int least, int most)
{
    const QTemporaryDir folder;
    zoeditor::Editor editor(folder.path());
    editorrobot::open(editor, clip());
    Robot robot(editor, seed);
    const zokit::Project& project = editor.session().project();
    if (settingsOf(project) != left.beginning)
        return -1;
    for (int edits = 0; edits <= most; ++edits) {
        if (edits >= least && settingsOf(project) == left.settings)
            return edits;
        robot.edit();
    }
    return -1;
}

} // namespace

/// Nobody looks at these editors, all with the same clip, and starting ffmpeg takes longer than most of them live: what
/// ffprobe says is asked once, and there are no pictures.
void TestEditorKills::initTestCase()
{
    const auto write = [this](const char* name, const QString& script) {
        QFile file(m_tools.filePath(key(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script.toLocal8Bit() + '\n');
        QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    };
    write("ffprobe", key("said='%1/said'\n[ -e \"$said\" ] || { '%2' \"$@\" > \"$said.$$\" && mv \"$said.$$\" "
                         "\"$said\"; }\nexec cat \"$said\"")
                         .arg(m_tools.path(), zokit::findTools().ffprobe));
    write("ffmpeg", key("exit 1"));
    QVERIFY(!clip().isEmpty()); // It is made by the real one, the first time.
    QVERIFY(qputenv("ZOEFFECT_FFMPEG", QFile::encodeName(m_tools.path())));
}

void TestEditorKills::newerSavedFileIsTheAnswer_data()
{
    QTest::addColumn<int>("hours"); // From the last edit to when it was saved; 0: never.
    QTest::addColumn<QString>("answer");
    QTest::newRow("never saved") << 0 << key("recover");
    QTest::newRow("saved before") << -1 << key("recover");
    QTest::newRow("saved later") << 1 << key("openSaved");
}

void TestEditorKills::newerSavedFileIsTheAnswer()
{
    QFETCH(const int, hours);
    const QTemporaryDir folder;
    const QString left = leave(folder.path());
    QFile saved(folder.filePath(key("mine.zoeffect.json")));
    if (hours != 0) {
        QVERIFY(saved.open(QIODevice::WriteOnly));
        constexpr int hour = 3600; // Seconds.
        QVERIFY(saved.setFileTime(QFileInfo(left).lastModified().addSecs(qint64(hours) * hour),
                                  QFileDevice::FileModificationTime));
        QFile names(left + key(".settings"));
        QVERIFY(names.open(QIODevice::WriteOnly));
        names.write(QJsonDocument(QJsonObject{{kitsupport::clip().file, saved.fileName()}}).toJson());
    }
    QTEST(offeredAnswer(folder.path()), "answer");
}

void TestEditorKills::whatEditorsDieOfIsSetAside()
{
    const QTemporaryDir folder;
    leave(folder.path());
    for (int deaths = 0; deaths < 2; ++deaths) {
        editorsupport::answer("recoverQuestion", "recover");
        zoeditor::Editor editor(folder.path());
        editor.start({});
        QCOMPARE(editor.session().files().rowCount(), 1);
    } // Without a good end.
    QCOMPARE(offeredAnswer(folder.path()), key("later"));
    QCOMPARE(QDir(folder.path()).entryList({key("*.aside")}).size(), 1);
}

void TestEditorKills::recoveredSessionStaysUntilItIsKeptAgain_data()
{
    QTest::addColumn<bool>("isKilled");
    QTest::newRow("killed before") << true;
    QTest::newRow("kept at last") << false;
}

void TestEditorKills::recoveredSessionStaysUntilItIsKeptAgain()
{
    QFETCH(const bool, isKilled);
    const QTemporaryDir folder;
    leave(folder.path());
    rlimit limit{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit none{0, limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    editorsupport::answer("recoverQuestion", "recover");
    auto editor = std::make_unique<zoeditor::Editor>(folder.path());
    setrlimit(RLIMIT_FSIZE, &none); // As a full disk.
    editor->start({});
    const int left = static_cast<int>(editor->session().left().size());
    if (isKilled)
        editor.reset();
    setrlimit(RLIMIT_FSIZE, &limit);
    QCOMPARE(left, 1);
    if (isKilled) {
        editorsupport::answer("recoverQuestion", "recover");
        editor = std::make_unique<zoeditor::Editor>(folder.path());
        editor->start({});
        QCOMPARE(editor->session().left().size(), 1); // The journal that could not be written.
    } else {
        QTRY_COMPARE_WITH_TIMEOUT(editor->session().left().size(), 0, 60000);
    }
    QCOMPARE(editor->session().files().rowCount(), 1);
}

void TestEditorKills::nextStartBringsEverythingBack()
{
    const int total = kitsupport::stepsOr("ZOEDITOR_KILLS", 30);
    QRandomGenerator random(QRandomGenerator::securelySeeded());
    int longestLoss = 0;
    int promisedInAll = 0;
    for (int killed = 0; killed < total;) {
        std::vector<std::unique_ptr<KilledHost>> hosts;
        for (int i = 0; i < std::min(atOnce, total - killed); ++i)
            hosts.push_back(std::make_unique<KilledHost>(ZOEDITOR_ROBOT, random.generate(), QStringList{clip()}));
        for (const std::unique_ptr<KilledHost>& host : hosts)
            QVERIFY2(host->killAfter(random.bounded(1, mostEdits), random.bounded(longestWait)),
                     "an editor ended by itself");
        for (const std::unique_ptr<KilledHost>& host : hosts) {
            ++killed;
            const QVector<Report> reports = host->reports();
            const int promisedEdits = KilledHost::editsPromised(reports);
            const auto done = static_cast<int>(reports.size());
            const QVector<zokit::Journal::Left> left = zokit::Journal::left(host->folder());
            if (left.isEmpty() || left.first().files.isEmpty()) { // Killed before the clip itself had to be back.
                QVERIFY2(reports.last().before < KilledHost::promised, "the clip has to be back");
                continue;
            }
            // One more may be in the journal than was told.
            const int found = editsThatGive(recovered(host->folder()), host->seed(), promisedEdits, done + 1);
            QVERIFY2(found >= 0, qPrintable(QStringLiteral("seed %1: of %2 edits %3 have to be back")
                                                .arg(host->seed())
                                                .arg(done)
                                                .arg(promisedEdits)));
            promisedInAll += promisedEdits;
            longestLoss = std::max(longestLoss, done - found);
        }
    }
    QVERIFY(promisedInAll > 0);
    qInfo("%d editors were killed; %d edits had to be back; at most the last %d edits of one were lost", total,
          promisedInAll, longestLoss);
}

EDITOR_TEST_MAIN(TestEditorKills)
#include "tst_editor_kills.moc"
