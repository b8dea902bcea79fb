// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <csignal>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <zoeffectmodel.h>

#include <zokit/history.h>
#include <zokit/journal.h>
#include <zokit/project.h>

#include "kitsupport.h"
#include "randomedits.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::FileSettings;
using zokit::History;
using zokit::Identity;
using zokit::Journal;
using zokit::Message;
using zokit::Project;
using Code = zokit::Message::Code;

class TestKitJournal : public QObject {
    Q_OBJECT

private slots:
    void init() { clearSavedDefaults(); }

    void bringsBack_data();
    void bringsBack();
    void bringsBackWhatWasBroughtBack();
    void openGestureComesBackAsAStep();
    void identitiesAreNotGivenAgain();
    void livingSessionIsLocked();
    void sessionThatEndedWellLeavesNothing();
    void newerSavedFileBeatsAnOlderJournal();
    void sessionThatDiedTwiceIsSetAside();
    void whatHostsDieOfIsSetAside();
    void folderThatCannotBeIsToldAndTriedAgain();
    void fullDiskIsToldAndTriedAgain();
    void removedJournalIsMadeAgain();
    void largeJournalIsMadeAnew_data();
    void largeJournalIsMadeAnew();
    void valueThatNoFileHoldsIsTold();
    void stepsAreKeptByName_data();
    void stepsAreKeptByName();
    void everyCutGivesWholeSteps();
    void everyDamageGivesWholeSteps();
    void whatIsNoIdentityIsPassedOver();
    void whatIsNoJournalIsRefused_data();
    void whatIsNoJournalIsRefused();
};

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

/// A file that holds \a text, in \a folder.
QString written(const QTemporaryDir& folder, const QByteArray& text)
{
    const QString path = folder.filePath(QStringLiteral("dead.journal"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        return QString();
    return path;
}

/// What the session of \a journal would leave if it died now, as a file in \a folder.
QString leftBy(Journal& journal, const QTemporaryDir& folder)
{
    return journal.flush() ? written(folder, contentOf(journal.path())) : QString();
}

void setContrast(const Project& project, int value)
{
    FileSettings* file = project.files().constFirst();
    file->setValue(file->type(key("Color")), key("bcs_contrast"), value);
}

QVariant contrast(const Project& project)
{
    const QVector<FileSettings*> files = project.files();
    return files.isEmpty() ? QVariant() : files.first()->value(files.first()->type(key("Color")), key("bcs_contrast"));
}

/// The same place in the same history, and the same settings at each place of it.
void compareHistories(const Project& project, const Project& other)
{
    History& left = project.history();
    History& right = other.history();
    QCOMPARE(left.count(), right.count());
    QCOMPARE(left.position(), right.position());
    QCOMPARE(left.isClean(), right.isClean());
    QCOMPARE(left.undoText(), right.undoText());
    QCOMPARE(left.redoText(), right.redoText());
    const int position = left.position();
    for (int place = left.count(); place >= 0; --place) {
        left.goTo(place);
        right.goTo(place);
        QCOMPARE(right.position(), place);
        QCOMPARE(settingsOf(project), settingsOf(other));
        QCOMPARE(left.selection(), right.selection());
        QCOMPARE(left.isClean(), right.isClean());
    }
    left.goTo(position);
    right.goTo(position);
}

struct Case {
    const char* name;
    void (*carryOut)(Project& project, FileSettings& file);
};

const Case cases[] = {
    {"nothing but a file", [](Project&, FileSettings&) {}},
    {"a value", [](Project& project, FileSettings&) { setContrast(project, 9); }},
    {"every letter of a text",
     [](Project&, FileSettings& file) {
         file.setValue(file.item(key("Watermark"), 0), key("wm_textcontent"),
                       QString::fromUtf8("\"\n\t\\ \xc3\xa4 \xf0\x9f\x98\x80 \xe2\x80\xa8"));
     }},
    {"a type that is not selected",
     [](Project&, FileSettings& file) { file.setValue(file.type(key("Color")), key("selected"), false); }},
    {"an item",
     [](Project&, FileSettings& file) {
         file.insert(key("Subtitle"), {{key("sub_fromfile"), true}});
     }},
    {"an item that is gone", [](Project&, FileSettings& file) { file.remove(file.item(key("Watermark"), 0)); }},
    {"an order", [](Project&, FileSettings& file) { file.move(file.item(key("Effect"), 0), 5); }},
    {"an anchor",
     [](Project&, FileSettings& file) {
         file.setValue(file.item(key("Watermark"), 0), key("anchor"),
                       QVariantMap{{key("corner"), QStringLiteral("top-right")}});
     }},
    {"an output option",
     [](Project&, FileSettings& file) {
         file.setValue(file.output(), key("trim"), QVariantList{1.5, 2.25});
     }},
    {"a host's own value",
     [](Project&, FileSettings& file) {
         file.setValue(file.type(key("Color")), key("x-note"), QVariantMap{{key("a"), QSize(3, 4)}});
     }},
    {"another frame",
     [](Project&, FileSettings& file) {
         file.setMedia({QStringLiteral("/b.mkv"), QSize(640, 360), 1.25});
     }},
    {"a change of the model",
     [](Project&, FileSettings& file) { file.pictureModel()->setData(key("bcs_contrast"), 5, key("Color"), -1); }},
    {"two files",
     [](Project& project, FileSettings&) {
         project.add(zokit::Media{QStringLiteral("/b.mkv"), QSize(64, 48), 1.0});
     }},
    {"a file that is gone", [](Project& project, FileSettings& file) { project.remove(&file); }},
    {"many files in one step",
     [](Project& project, FileSettings& file) {
         project.add(zokit::Media{QStringLiteral("/b.mkv"), QSize(64, 48), 1.0});
         project.apply(file.settings(), project.files(), {{key("Color")}, false});
     }},
    {"a saved default",
     [](Project& project, FileSettings& file) { project.saveDefault(file.item(key("Watermark"), 0)); }},
    {"what was undone",
     [](Project& project, FileSettings&) {
         setContrast(project, 9);
         setContrast(project, 8);
         project.history().goTo(1);
     }},
    {"everything undone", [](Project& project, FileSettings&) { project.history().goTo(0); }},
    {"what was redone",
     [](Project& project, FileSettings&) {
         setContrast(project, 9);
         project.history().goTo(0);
         project.history().goTo(3);
     }},
    {"a new branch",
     [](Project& project, FileSettings& file) {
         setContrast(project, 9);
         setContrast(project, 8);
         project.history().undo();
         project.history().undo();
         file.setValue(file.type(key("Color")), key("bcs_saturation"), 7);
     }},
    {"files that were expected",
     [](Project& project, FileSettings&) {
         project.history().expectFiles();
         setContrast(project, 9);
         project.history().setClean();
         project.addExpected(FileSettings(zokit::Media{key("/films/late.mkv"), QSize(640, 360), 1.0}).settings());
         setContrast(project, 8);
         project.history().undo();
         project.addExpected(FileSettings(zokit::Media{key("/films/later.mkv"), QSize(320, 180), 1.0}).settings());
         project.history().redo();
         project.history().undo();
     }},
    {"a gesture",
     [](Project& project, FileSettings&) {
         project.history().beginGesture(Message());
         for (int value = 1; value <= 9; ++value)
             setContrast(project, value);
         project.history().endGesture();
     }},
    {"a gesture that was taken back",
     [](Project& project, FileSettings& file) {
         project.history().beginGesture(Message());
         setContrast(project, 9);
         file.remove(file.item(key("Watermark"), 0));
         project.history().cancelGesture();
     }},
    {"a gesture that changed nothing",
     [](Project& project, FileSettings&) {
         project.history().beginGesture(Message());
         setContrast(project, 9);
         setContrast(project, 0);
         project.history().endGesture();
         project.history().undo();
     }},
    {"selections",
     [](Project& project, FileSettings& file) {
         project.history().setSelection({file.item(key("Watermark"), 0)});
         setContrast(project, 9);
         project.history().setSelection({file.type(key("Color")), file.file()});
         setContrast(project, 8);
         project.history().setSelection({});
         project.history().undo();
     }},
    {"clean at the end",
     [](Project& project, FileSettings&) {
         setContrast(project, 9);
         project.history().setClean();
     }},
    {"clean before the end",
     [](Project& project, FileSettings&) {
         project.history().setClean();
         setContrast(project, 9);
     }},
    {"clean on a branch that is gone",
     [](Project& project, FileSettings&) {
         setContrast(project, 9);
         project.history().setClean();
         project.history().undo();
         setContrast(project, 8);
     }},
    {"steps that were forgotten",
     [](Project& project, FileSettings&) {
         project.history().setLimit(3000);
         for (int value = 1; value <= 40; ++value)
             setContrast(project, value);
         project.history().undo();
         project.history().undo();
     }},
    {"undone steps that were forgotten",
     [](Project& project, FileSettings&) {
         for (int value = 1; value <= 40; ++value)
             setContrast(project, value);
         project.history().goTo(3);
         project.history().setLimit(3000);
         project.history().redo();
     }},
    {"steps that were forgotten at once",
     [](Project& project, FileSettings&) {
         for (int value = 1; value <= 40; ++value)
             setContrast(project, value);
         project.history().setClean();
         project.history().setLimit(3000);
         project.history().undo();
     }},
};

} // namespace

void TestKitJournal::bringsBack_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("fromTheStart");
    for (const bool fromTheStart : {true, false}) {
        for (std::size_t i = 0; i < std::size(cases); ++i)
            QTest::addRow("%s, journal from %s", cases[i].name, fromTheStart ? "the start" : "later on")
                << int(i) << fromTheStart;
    }
}

void TestKitJournal::bringsBack()
{
    QFETCH(int, index);
    QFETCH(bool, fromTheStart);
    const QTemporaryDir folder;
    Project project;
    std::unique_ptr<Journal> journal;
    if (fromTheStart)
        journal = std::make_unique<Journal>(project, folder.path());
    FileSettings* file = project.add(clip());
    file->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}});
    if (fromTheStart)
        QVERIFY(journal->flush());
    cases[index].carryOut(project, *file);
    if (!fromTheStart)
        journal = std::make_unique<Journal>(project, folder.path());
    Project back;
    QVERIFY(Journal::recover(leftBy(*journal, folder), back).isEmpty());
    compareHistories(project, back);
}

void TestKitJournal::bringsBackWhatWasBroughtBack()
{
    const QTemporaryDir folder;
    Project project;
    Journal journal(project, folder.path());
    project.add(clip());
    for (int value = 1; value <= 5; ++value)
        setContrast(project, value);
    project.history().undo();
    Project second;
    Journal ofSecond(second, folder.path()); // It sees the whole history come.
    QVERIFY(Journal::recover(leftBy(journal, folder), second).isEmpty());
    second.history().undo();
    Project third;
    QVERIFY(Journal::recover(leftBy(ofSecond, folder), third).isEmpty());
    compareHistories(second, third);
    QCOMPARE(contrast(third), QVariant(3));
    QCOMPARE(third.history().count(), 6);
    QCOMPARE(third.history().position(), 4);
}

void TestKitJournal::openGestureComesBackAsAStep()
{
    const QTemporaryDir folder;
    Project project;
    Journal journal(project, folder.path());
    project.add(clip());
    project.history().beginGesture(Message());
    for (int value = 1; value <= 9; ++value)
        setContrast(project, value);
    Project back;
    QVERIFY(Journal::recover(leftBy(journal, folder), back).isEmpty());
    QCOMPARE(contrast(back), QVariant(9));
    QCOMPARE(back.history().count(), 2);
    QCOMPARE(back.history().undoText().text(), QStringLiteral("change Contrast"));
    back.history().undo();
    QCOMPARE(contrast(back), QVariant(0));
    back.history().redo();
    QCOMPARE(contrast(back), QVariant(9));
}

void TestKitJournal::identitiesAreNotGivenAgain()
{
    const QTemporaryDir folder;
    Project project;
    Journal journal(project, folder.path());
    FileSettings* file = project.add(clip());
    const Identity gone = file->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("a")}}).item;
    file->remove(gone);
    Project back;
    QVERIFY(Journal::recover(leftBy(journal, folder), back).isEmpty());
    const Identity fresh =
        back.files().constFirst()->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("b")}}).item;
    QVERIFY(fresh > gone);
}

void TestKitJournal::livingSessionIsLocked()
{
    const QTemporaryDir folder;
    Project project;
    auto journal = std::make_unique<Journal>(project, folder.path());
    FileSettings* file = project.add(clip());
    file->insert(key("Subtitle"), {{key("sub_fromfile"), true}, {key("file"), QStringLiteral("/x.srt")}});
    QVERIFY(journal->flush());
    QVERIFY(Journal::left(folder.path()).isEmpty());
    Project back;
    QCOMPARE(Journal::recover(journal->path(), back), Message(Code::JournalInUse, {journal->path()}));
    QVERIFY(back.files().isEmpty());
    Journal second(back, folder.path());
    QVERIFY(second.path() != journal->path());

    const QString path = journal->path();
    journal.reset(); // As if it had died.
    const QVector<Journal::Left> left = Journal::left(folder.path());
    QCOMPARE(left.size(), 1);
    QCOMPARE(left.first().path, path);
    QCOMPARE(left.first().files, QStringList(QStringLiteral("/clips/clip.mkv")));
    QVERIFY(!left.first().diedTwice);
    QVERIFY(Journal::recover(path, back).isEmpty());
    Journal::discard(path);
    const QString half = path + QStringLiteral(".new"); // Of one that was killed while it made its journal anew.
    QFile halfFile(half);
    QVERIFY(halfFile.open(QIODevice::WriteOnly));
    QVERIFY(Journal::left(folder.path()).isEmpty());
    QVERIFY(!QFile::exists(half));
}

void TestKitJournal::sessionThatEndedWellLeavesNothing()
{
    const QTemporaryDir folder;
    {
        Project project;
        Journal journal(project, folder.path());
        project.add(clip());
        journal.close();
        project.add(clip());
        QVERIFY(journal.flush());
    }
    QVERIFY(QDir(folder.path()).isEmpty());
}

void TestKitJournal::newerSavedFileBeatsAnOlderJournal()
{
    const QTemporaryDir folder;
    const QString saved = folder.filePath(QStringLiteral("saved.json"));
    Project project;
    Journal journal(project, folder.path());
    project.add(clip());
    const QString left = leftBy(journal, folder);
    QFile savedFile(saved);
    QFile leftFile(left);
    const auto changedAt = [](QFile& file, const QDateTime& time) {
        return file.open(QIODevice::ReadWrite) && file.setFileTime(time, QFileDevice::FileModificationTime);
    };
    QCOMPARE(Journal::comparedWith(left, saved), Message()); // Never saved.
    QVERIFY(changedAt(leftFile, QDateTime(QDate(2026, 11, 22), QTime(10, 0))));
    QVERIFY(changedAt(savedFile, QDateTime(QDate(2026, 11, 22), QTime(10, 0, 1))));
    leftFile.close();
    const Message newer(Code::SavedIsNewer,
                        {saved, QStringLiteral("2026-11-22T10:00:01"), QStringLiteral("2026-11-22T10:00:00")});
    QCOMPARE(Journal::comparedWith(left, saved), newer);
    Project back; // A look into the journal makes it no newer.
    QVERIFY(Journal::recover(left, back).isEmpty());
    QCOMPARE(Journal::comparedWith(left, saved), newer);
    QVERIFY(QFile::exists(left) && QFile::exists(saved));
    QVERIFY(savedFile.setFileTime(QDateTime(QDate(2026, 11, 22), QTime(9, 59, 59)), QFileDevice::FileModificationTime));
    QCOMPARE(Journal::comparedWith(left, saved), Message());
}

void TestKitJournal::sessionThatDiedTwiceIsSetAside()
{
    const QTemporaryDir folder;
    Project project;
    Journal journal(project, folder.path());
    project.add(clip());
    const QByteArray text = journal.flush() ? contentOf(journal.path()) : QByteArray();
    journal.close();
    for (int time = 1; time <= 2; ++time) { // A name that is taken is no obstacle.
        const QString left = written(folder, text + "half a line");
        Project once;
        QCOMPARE(Journal::recover(left, once).code(), Code::JournalCut);
        QVERIFY(!Journal::left(folder.path()).constFirst().diedTwice);
        Project twice;
        QCOMPARE(Journal::recover(left, twice).code(), Code::JournalCut);
        QCOMPARE(twice.files().size(), 1);
        const QVector<Journal::Left> found = Journal::left(folder.path());
        QCOMPARE(found.size(), 1);
        QVERIFY(found.first().diedTwice);
        QCOMPARE(found.first().path, left + QLatin1String(time == 1 ? ".aside" : ".aside.2"));
        QVERIFY(Journal::left(folder.path()).isEmpty());
        Project asked; // Whoever asks for it still gets it.
        QCOMPARE(Journal::recover(found.first().path, asked).code(), Code::JournalCut);
        QCOMPARE(asked.files().size(), 1);
    }
}

namespace {

/// A host that starts as Journal says: a project with what was left newest, and its own journal instead of that.
struct StartedHost {
    explicit StartedHost(const QString& folder)
    {
        const QString left = Journal::left(folder).constFirst().path;
        isRecovered = Journal::recover(left, project).isEmpty();
        journal = std::make_unique<Journal>(project, folder);
        if (journal->flush())
            Journal::discard(left);
    }

    Project project;
    bool isRecovered = false;
    std::unique_ptr<Journal> journal;
};

/// Starts one that is killed as soon as it has its journal.
bool startAndKill(const QString& folder)
{
    const pid_t host = ::fork();
    if (host == 0) {
        const StartedHost started(folder);
        ::raise(started.isRecovered ? SIGKILL : SIGTERM);
    }
    int status = 0;
    return ::waitpid(host, &status, 0) == host && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

} // namespace

void TestKitJournal::whatHostsDieOfIsSetAside()
{
    const QTemporaryDir folder;
    {
        Project project;
        const Journal journal(project, folder.path());
        project.add(clip());
    }
    QString left;
    for (const int deaths : {1, 2}) {
        QVERIFY(startAndKill(folder.path()));
        const QVector<Journal::Left> found = Journal::left(folder.path());
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.first().files, QStringList(QStringLiteral("/clips/clip.mkv")));
        QCOMPARE(found.first().diedTwice, deaths == 2);
        left = found.first().path;
    }
    Project project;
    QVERIFY(Journal::recover(left, project).isEmpty());
    auto journal = std::make_unique<Journal>(project, folder.path());
    auto* living = journal->findChild<QTimer*>(QStringLiteral("livesOn"));
    living->start(0);
    QTRY_VERIFY(!living->isActive());
    journal.reset(); // As if it had died, but not at its start.
    const QVector<Journal::Left> found = Journal::left(folder.path());
    QCOMPARE(found.size(), 1);
    QVERIFY(!found.first().diedTwice);
}

void TestKitJournal::folderThatCannotBeIsToldAndTriedAgain()
{
    const QTemporaryDir folder;
    const QString place = folder.filePath(QStringLiteral("journals"));
    QFile obstacle(place);
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    Project project;
    Journal journal(project, place);
    QSignalSpy trouble(&journal, &Journal::trouble);
    QVERIFY(trouble.wait());
    project.add(clip());
    QVERIFY(!journal.flush());
    QCOMPARE(trouble.size(), 1); // Told once.
    const auto message = trouble.first().first().value<Message>();
    QCOMPARE(message.code(), Code::FileUnwritable);
    QCOMPARE(message.arguments().constLast(), QStringLiteral("Not a directory"));
    {
        Journal other(project, place);
        other.close(); // Without a file there is none to remove.
        QVERIFY(other.flush());
    }
    QVERIFY(obstacle.remove());
    QVERIFY(trouble.wait()); // Tried again by itself.
    QCOMPARE(trouble.last().first().value<Message>(), Message());
    Project back;
    QVERIFY(Journal::recover(leftBy(journal, folder), back).isEmpty());
    QCOMPARE(back.files().size(), 1);
}

void TestKitJournal::fullDiskIsToldAndTriedAgain()
{
    const QTemporaryDir folder;
    Project project;
    Journal journal(project, folder.path());
    project.add(clip());
    QVERIFY(journal.flush());
    const QByteArray before = contentOf(journal.path());
    QSignalSpy trouble(&journal, &Journal::trouble);

    rlimit limit{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit small{rlim_t(before.size()) + 40, limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setContrast(project, 9);
    setrlimit(RLIMIT_FSIZE, &small);
    const bool flushed = journal.flush();
    setrlimit(RLIMIT_FSIZE, &limit);
    QVERIFY(!flushed);
    QCOMPARE(trouble.size(), 1);
    QCOMPARE(trouble.first().first().value<Message>(),
             Message(Code::FileUnwritable, {journal.path(), QStringLiteral("File too large")}));
    QCOMPARE(contentOf(journal.path()), before); // No half line.

    setContrast(project, 10);
    QVERIFY(trouble.wait());
    QCOMPARE(trouble.size(), 2);
    QCOMPARE(trouble.last().first().value<Message>(), Message());
    Project back;
    QVERIFY(Journal::recover(leftBy(journal, folder), back).isEmpty());
    QCOMPARE(contrast(back), QVariant(10));
    QCOMPARE(back.history().count(), 3);
}

void TestKitJournal::removedJournalIsMadeAgain()
{
    const QTemporaryDir folder;
    Project project;
    Journal journal(project, folder.path());
    project.add(clip());
    QVERIFY(journal.flush());
    QVERIFY(QFile::remove(journal.path()));
    setContrast(project, 9);
    Project back;
    QVERIFY(Journal::recover(leftBy(journal, folder), back).isEmpty());
    compareHistories(project, back);
}

void TestKitJournal::largeJournalIsMadeAnew_data()
{
    QTest::addColumn<bool>("isMadeAnew");
    QTest::newRow("beside the old one") << true;
    QTest::newRow("where there is no place for it") << false;
}

void TestKitJournal::largeJournalIsMadeAnew()
{
    QFETCH(const bool, isMadeAnew);
    constexpr qint64 megabyte = 1048576;
    const QTemporaryDir folder;
    Project project;
    Journal journal(project, folder.path());
    FileSettings* file = project.add(clip());
    project.history().setLimit(8 * megabyte);
    if (!isMadeAnew)
        QVERIFY(QDir().mkpath(journal.path() + QStringLiteral(".new")));
    for (int i = 0; i < 20; ++i) { // Two megabytes each, of the value before and the one after.
        file->setValue(file->type(key("Color")), key("x-note"), QString(int(megabyte), QLatin1Char(char('a' + i))));
        QVERIFY(journal.flush());
    }
    QCOMPARE(QFileInfo(journal.path()).size() < 30 * megabyte, isMadeAnew); // Of 40 MB.
    Project back;
    QVERIFY(Journal::recover(leftBy(journal, folder), back).isEmpty());
    compareHistories(project, back);
    journal.close();
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList(QStringLiteral("dead.journal")));
}

void TestKitJournal::valueThatNoFileHoldsIsTold()
{
    const QTemporaryDir folder;
    Project project;
    Journal journal(project, folder.path());
    FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    QSignalSpy lacks(&journal, &Journal::valueNotKept);
    file->setValue(color, key("x-picture"), QStringLiteral("none"));
    for (const int side : {1, 2})
        file->setValue(color, key("x-picture"), QImage(side, side, QImage::Format_RGB32));
    setContrast(project, 9);
    QVERIFY(journal.flush());
    QCOMPARE(lacks.size(), 1);
    QCOMPARE(lacks.first().first().value<Message>(), Message(Code::JournalLacks, {QStringLiteral("Color:x-picture")}));
    Project back;
    QVERIFY(Journal::recover(leftBy(journal, folder), back).isEmpty());
    QCOMPARE(contrast(back), QVariant(9));
    QCOMPARE(back.files().constFirst()->value(color, key("x-picture")), QVariant(QStringLiteral("none")));

    Journal later(project, folder.path()); // Nobody listens while it is made.
    QSignalSpy told(&later, &Journal::valueNotKept);
    QVERIFY(told.wait());
    QCOMPARE(told.size(), 1);
}

void TestKitJournal::stepsAreKeptByName_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("text");
    QTest::newRow("a name") << QByteArray(
        R"(6b25fd9c {"step":{"changes":[],"code":"StepChange","words":["Contrast"]}})")
                            << QStringLiteral("change Contrast");
    QTest::newRow("a name and an address")
        << QByteArray(R"(82bd7d96 {"step":{"changes":[],"code":"StepChange","words":["Color:bcs_contrast"]}})")
        << QStringLiteral("change Contrast");
    QTest::newRow("a name of another version")
        << QByteArray(R"(bf558ee6 {"step":{"changes":[],"code":"StepOfTomorrow","words":["Contrast"]}})") << QString();
    QTest::newRow("a number") << QByteArray(R"(251515b3 {"step":{"changes":[],"code":7,"words":["Contrast"]}})")
                              << QString();
}

void TestKitJournal::stepsAreKeptByName()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, text);
    const QTemporaryDir folder;
    const QByteArray beginning = R"(d65e3252 {"zoeffect-journal":1})";
    Project project;
    const Message error = Journal::recover(written(folder, beginning + '\n' + line + '\n'), project);
    QVERIFY2(error.isEmpty(), qPrintable(error.text()));
    QCOMPARE(project.history().count(), 1);
    QCOMPARE(project.history().undoText().text(), text);
    if (text.isEmpty())
        return;
    const QTemporaryDir anew;
    Journal journal(project, anew.path());
    QVERIFY(contentOf(journal.path()).contains(R"("code":"StepChange")"));
}

void TestKitJournal::whatIsNoIdentityIsPassedOver()
{
    const QByteArray lines =
        "d65e3252 {\"zoeffect-journal\":1}\n"
        R"(55f496be {"step":{"changes":[[0,"a",1,2],[-1,"b",1,2],["5","c",1,2],[1e17,"d",1,2],[5,"e",1,2]],"code":"StepChange","words":["Contrast"]}})"
        "\n";
    const QTemporaryDir folder;
    Project project;
    const Message error = Journal::recover(written(folder, lines), project);
    QVERIFY2(error.isEmpty(), qPrintable(error.text()));
    const zokit::Changes changes = project.history().step(0).changes;
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.first().key, QStringLiteral("e"));
}

namespace {

/// A journal of which each line behind the second sets the contrast one higher, and the first of them adds the file.
QByteArray countingJournal()
{
    const QTemporaryDir folder;
    Project project;
    Journal journal(project, folder.path());
    project.add(clip());
    for (int value = 1; value <= 6; ++value)
        setContrast(project, value);
    return journal.flush() ? contentOf(journal.path()) : QByteArray();
}

/// Bytes of \a text to try: all near the ends of lines, some between them.
QVector<int> places(const QByteArray& text)
{
    constexpr int near = 12;
    constexpr int stride = 211;
    QVector<int> places;
    for (int place = 0; place < text.size(); ++place) {
        if (place % stride == 0 || text.mid(std::max(0, place - near), 2 * near).contains('\n'))
            places.append(place);
    }
    return places;
}

/// What is back when \a lines of the journal are whole.
void compareWithLines(const Project& project, const Message& message, int lines, bool cut)
{
    QCOMPARE(message.code(), lines == 0 ? Code::JournalUnreadable : cut ? Code::JournalCut : Code::None);
    QCOMPARE(project.history().count(), std::max(lines - 2, 0));
    QCOMPARE(project.history().position(), std::max(lines - 2, 0));
    QCOMPARE(contrast(project), lines < 3 ? QVariant() : QVariant(lines - 3));
}

} // namespace

void TestKitJournal::everyCutGivesWholeSteps()
{
    const QTemporaryDir folder;
    const QByteArray text = countingJournal();
    QCOMPARE(text.count('\n'), 9);
    for (const int length : places(text)) {
        const QByteArray cut = text.left(length);
        Project back;
        const Message message = Journal::recover(written(folder, cut), back);
        compareWithLines(back, message, int(cut.count('\n')), !cut.endsWith('\n'));
        if (QTest::currentTestFailed())
            QFAIL(QByteArray::number(length));
    }
}

void TestKitJournal::everyDamageGivesWholeSteps()
{
    const QTemporaryDir folder;
    const QByteArray text = countingJournal();
    for (const int place : places(text)) {
        QByteArray damaged = text;
        damaged[place] = char(damaged.at(place) ^ (1 << place % 8));
        Project back;
        const Message message = Journal::recover(written(folder, damaged), back);
        compareWithLines(back, message, int(text.left(place).count('\n')), true);
        if (QTest::currentTestFailed())
            QFAIL(QByteArray::number(place));
    }
}

void TestKitJournal::whatIsNoJournalIsRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("a line feed") << QByteArray("\n");
    QTest::newRow("bytes") << QByteArray("\0\xff\n\r\n", 5);
    QTest::newRow("JSON") << QByteArray("{\"zoeffect-journal\":1}\n");
    QTest::newRow("a wrong checksum") << QByteArray("00000000 {\"zoeffect-journal\":1}\n");
    QTest::newRow("a later version") << QByteArray("d66070e9 {\"zoeffect-journal\":2}\n");
    QTest::newRow("a list") << QByteArray("7616c164 [1]\n");
    QTest::newRow("megabytes of brackets") << QByteArray(4 * 1024 * 1024, '[');
}

void TestKitJournal::whatIsNoJournalIsRefused()
{
    QFETCH(QByteArray, text);
    const QTemporaryDir folder;
    const QString path = written(folder, text);
    Project project;
    QCOMPARE(Journal::recover(path, project), Message(Code::JournalUnreadable, {path}));
    QVERIFY(project.files().isEmpty());
    QCOMPARE(project.history().count(), 0);
    QCOMPARE(contentOf(path), text);
    QCOMPARE(Journal::left(folder.path()).size(), 1); // It is not passed over.
    const QString missing = folder.filePath(QStringLiteral("missing"));
    QCOMPARE(Journal::recover(missing, project), Message(Code::FileMissing, {missing}));
    const QString device = QStringLiteral("/dev/null");
    QCOMPARE(Journal::recover(device, project),
             Message(Code::FileUnreadable, {device, QStringLiteral("Invalid argument")}));
}

ZOEFFECT_TEST_MAIN(TestKitJournal)
#include "tst_kit_journal.moc"
