// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Every system call of an operation that reads or writes files, failed in turn, and the process killed at each:
// the store's file holds the old or the new state, whole; the next start reads it; no call takes long; nothing
// else is written.
//
// ZOEFFECT_ALL_FAULTS=1 in the environment adds the rows that ./test has no time for.

#include <cerrno>
#include <memory>

#include <sys/syscall.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QtTest>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "faultworld.h"
#include "hostcatalogue.h"
#include "tracedchild.h"

using namespace faultworld;

Q_DECLARE_METATYPE(Fault::Kind)

namespace {

bool allFaults()
{
    return qEnvironmentVariableIsSet("ZOEFFECT_ALL_FAULTS");
}

constexpr int attempts = 3; // To be quick in: the machine may be busy with something else.

std::unique_ptr<Folders> folders;
int faultsInjected = 0;
qint64 longestSeen = 0;
qsizetype temporaryFiles = 0; // Left by processes that were killed.

ZoEffectItemDefaultValMgr& manager()
{
    return *ZoEffectItemDefaultValMgr::getInstance();
}

/// What an operation on the store finds, does and leaves.
struct StoreOperation {
    State before;
    QByteArray damaged; ///< Stands in the file's place instead, unless empty.
    std::function<void(Report&)> run;
    QList<State> after;       ///< What the file may hold when the operation went well or failed.
    QStringList memory;       ///< What the process may know then.
    State kept;               ///< What the process must write later, when it could not write it at once.
    QString removedKnowledge; ///< A process that knows this must remove "Watermark" later; null: none must.
};

void start(Report& report)
{
    timed(report, [] { manager(); });
}

void save(Report& report, const QString& type, const Saved& saved)
{
    timed(report, [&] { manager().saveAsCustomDefaultVal(type, saved.values); });
}

StoreOperation storeOperation(const QString& name)
{
    const State old{{"Color", oldColor()}, {"Watermark", oldWatermark()}};
    const State overwritten{{"Color", oldColor()}, {"Watermark", newWatermark()}};
    const State first{{"Watermark", newWatermark()}};
    const State oldColorOnly{{"Color", oldColor()}};
    const QByteArray damaged = fileOf(old).replace("\": 80", "\" 80");
    const auto saveNew = [](Report& report) {
        start(report);
        save(report, "Watermark", newWatermark());
    };
    const auto remove = [](Report& report) {
        start(report);
        timed(report, [] { manager().removeCustomDefaultVal("Watermark"); });
    };
    StoreOperation operation;
    if (name == "first save") {
        operation = {{}, {}, saveNew, {{}, first}, {textOf(first)}, first, {}};
    } else if (name == "overwrite") {
        // What could not be read at the start is not known, yet stays in the file.
        operation = {old, {}, saveNew, {old, overwritten}, {textOf(overwritten), textOf(first)}, first, {}};
    } else if (name == "removal") {
        // What could not be read cannot be removed either.
        operation = {old, {}, remove, {old, oldColorOnly}, {textOf(oldColorOnly), QString()}, {}, textOf(oldColorOnly)};
    } else if (name == "load") {
        operation = {old, {}, start, {old}, {textOf(old), QString()}, {}, {}};
    } else if (name == "load of a damaged file") {
        operation = {{}, damaged, start, {{}}, {QString()}, {}, {}};
    } else if (name == "save over a damaged file") {
        operation = {{}, damaged, saveNew, {{}, first}, {textOf(first)}, first, {}};
    }
    return operation;
}

void arrange(const StoreOperation& operation)
{
    folders->reset();
    const bool fileExists = !operation.before.isEmpty() || !operation.damaged.isEmpty();
    if (!fileExists)
        return;
    QVERIFY(QDir().mkpath(storeFolder()));
    QVERIFY(writeFile(storeFile(), operation.damaged.isEmpty() ? fileOf(operation.before) : operation.damaged));
}

/// What a damaged file is set aside as. The second, too: a name that could not be looked at may be taken.
QStringList asideNames()
{
    return {"effectdefaults.json.damaged", "effectdefaults.json.damaged.2"};
}

/// The names in the store's folder that are neither the file nor what was set aside; "elsewhere: " before
/// anything that stands outside of it.
QStringList remains()
{
    const QString folder = "config/" + QFileInfo(storeFolder()).fileName();
    QStringList found;
    const QStringList entries = folders->entries();
    for (const QString& entry : entries) {
        if (!entry.startsWith(folder + '/')) {
            if (entry != folder)
                found << "elsewhere: " + entry;
            continue;
        }
        const QString name = entry.mid(folder.size() + 1);
        if (name != "effectdefaults.json" && !asideNames().contains(name))
            found << name;
    }
    return found;
}

bool isTemporary(const QString& name)
{
    static const QRegularExpression temporary("\\Aeffectdefaults\\.json\\.[A-Za-z]{6}\\z");
    return temporary.match(name).hasMatch();
}

/// A sentence on what is wrong on the disk, empty when nothing is; \a state is what the file holds.
QString wrongOnDisk(const StoreOperation& operation, State& state)
{
    int temporaries = 0;
    const QStringList names = remains();
    for (const QString& name : names) {
        if (isTemporary(name))
            ++temporaries;
        else
            return "there is " + name;
    }
    if (temporaries > 1)
        return QStringLiteral("there are %1 temporary files").arg(temporaries);

    const bool exists = QFileInfo::exists(storeFile());
    const QByteArray content = contentOf(storeFile());
    if (!operation.damaged.isEmpty()) {
        const bool inPlace = exists && content == operation.damaged;
        int places = inPlace ? 1 : 0;
        const QStringList aside = asideNames();
        for (const QString& name : aside)
            places += contentOf(storeFolder() + '/' + name) == operation.damaged ? 1 : 0;
        if (places != 1)
            return QStringLiteral("the damaged file is in %1 places").arg(places);
        if (inPlace)
            return {};
    }
    for (const State& possible : operation.after) {
        if (possible.isEmpty() ? !exists : content == fileOf(possible)) {
            state = possible;
            return {};
        }
    }
    return exists ? "the file is\n" + QString::fromUtf8(content) : QStringLiteral("the file is gone");
}

/// What is wrong at the next starts: one that loads, one that saves, and one that reads it.
QString wrongAtNextStart(const State& state, SharedReport& report)
{
    if (!inOwnProcess([&] { report->tell(knownText()); }))
        return "the next start crashes";
    if (report->told() != textOf(state))
        return "the next start reads " + report->told();
    const bool saves = inOwnProcess([&] {
        start(*report);
        save(*report, "Crop", crop());
    });
    State saved = state;
    saved.insert("Crop", crop());
    if (!saves || contentOf(storeFile()) != fileOf(saved))
        return "the next start's save leaves\n" + QString::fromUtf8(contentOf(storeFile()));
    if (!inOwnProcess([&] { report->tell(knownText()); }) || report->told() != textOf(saved))
        return "the start after that reads " + report->told();
    return {};
}

/// Lets the process go on, which then saves something else. What is wrong with that, empty when nothing is; \a state
/// becomes what the file holds.
QString wrongLater(const StoreOperation& operation, const Fault& fault, TracedChild& child, const SharedReport& later,
                   State& state)
{
    const QByteArray content = contentOf(storeFile());
    if (!child.finishAll())
        return "later ended by " + QString::fromStdString(child.end());
    if (!operation.memory.contains(later->told()))
        return "the process knows " + later->told();
    // A process that could neither unlock nor close keeps its own lock from its later saves; nothing else does.
    if (fault.kind == Fault::Kind::ErrorsSince && contentOf(storeFile()) == content)
        return {};
    for (auto it = operation.kept.cbegin(); it != operation.kept.cend(); ++it)
        state.insert(it.key(), it.value());
    if (!operation.removedKnowledge.isNull() && later->told() == operation.removedKnowledge)
        state.remove("Watermark");
    state.insert("Audio", audio());
    if (contentOf(storeFile()) != fileOf(state))
        return "the process' next save leaves\n" + QString::fromUtf8(contentOf(storeFile()));
    return {};
}

/// Runs \a operation with \a fault. What is wrong then, empty when nothing is; \a happened tells whether the
/// operation came as far as the fault.
QString wrongWith(const StoreOperation& operation, const Fault& fault, bool& happened, QString& call)
{
    SharedReport report;
    SharedReport later;
    arrange(operation);
    TracedChild child(
        fault,
        [&] {
            keepQuiet();
            operation.run(*report);
        },
        [&] {
            later->tell(knownText());
            save(*later, "Audio", audio());
        });
    const bool finished = child.finishOperation();
    happened = child.faultHappened();
    if (!child.calls().empty())
        call = QString::fromStdString(systemCallName(child.calls().at(qMin(fault.at, child.calls().size() - 1))));
    if (!finished && (!happened || fault.kind != Fault::Kind::Kill))
        return "ended by " + QString::fromStdString(child.end());

    State state;
    QString wrong = wrongOnDisk(operation, state);
    if (!wrong.isEmpty())
        return wrong;
    temporaryFiles += remains().size();
    if (finished)
        wrong = wrongLater(operation, fault, child, later, state);
    if (wrong.isEmpty())
        wrong = wrongAtNextStart(state, later);
    if (!wrong.isEmpty())
        return wrong;

    const qint64 longest = qMax(report->longestCall, later->longestCall);
    if (longest > longestCall)
        return QStringLiteral("a call takes %1 ms").arg(longest / 1000);
    longestSeen = qMax(longestSeen, longest);
    return {};
}

// --- The log

QByteArray logBefore(int size)
{
    return QByteArray(size, 'x') + '\n';
}

/// An operation of a model that ends in the log, and one that does not: what they answer.
QString workOfAModel(Report& report)
{
    QString answers;
    timed(report, [&] {
        ZoEffectModel model;
        const bool unknownType = model.setData("key", 1, "no such type", -1);
        const bool crop = model.setData("crop_left", 7, "Crop", -1);
        answers = QStringLiteral("%1 %2 %3")
                      .arg(int(unknownType))
                      .arg(int(crop))
                      .arg(model.data("crop_left", "Crop", -1).toInt());
    });
    return answers;
}

/// What is wrong with the log when \a before was in it and \a events were logged since, of which those before
/// the last \a whole ones may have lost lines. A copy that is not whole is only what a process leaves that could not
/// remove it any more: \a mayBeCut.
QString wrongInLog(const QByteArray& before, int events, int whole, bool mayBeCut)
{
    const QStringList allowed{"tmp/tst_injectedfaults.1.log", "tmp/tst_injectedfaults.2.log"};
    const QStringList entries = folders->entries();
    for (const QString& entry : entries) {
        if (!allowed.contains(entry))
            return "there is " + entry;
    }
    const QByteArray log = contentOf(folders->temporary() + "/tst_injectedfaults.1.log");
    const QByteArray copy = contentOf(folders->temporary() + "/tst_injectedfaults.2.log");
    const QByteArray known = log == "no file" ? QByteArray() : log;
    if (!known.startsWith(before))
        return QStringLiteral("the log has lost what was in it");
    const QString event(R"(zoeffectmodel\(181\) : \d{4}/\d\d/\d\d \d\d:\d\d:\d\d 0{8}\n)");
    const QRegularExpression pattern(
        QStringLiteral("\\A(?:(?:%1)?\\n?){0,%2}(?:%1\\n){%3}\\z").arg(event).arg(events - whole).arg(whole));
    if (!pattern.match(QString::fromLatin1(known.mid(before.size()))).hasMatch())
        return "the log ends in\n" + QString::fromLatin1(known.mid(before.size()));
    const bool copied = copy != "no file";
    if (whole > 0 ? copied != (log.size() > 8191) : copied && log.size() <= 8191)
        return QStringLiteral("the copy is %1").arg(copied ? "there" : "missing");
    if (copied && (whole > 0 ? copy != log : !log.startsWith(copy)))
        return QStringLiteral("the copy is not the log's");
    const bool isWholeOne = copy == log || copy + '\n' == log; // The second: the copy before the event's last line.
    if (copied && !mayBeCut && !isWholeOne)
        return QStringLiteral("the copy is cut");
    return {};
}

QString wrongWithLog(const QByteArray& before, const Fault& fault, bool& happened, QString& call)
{
    SharedReport report;
    SharedReport later;
    folders->reset();
    if (!before.isEmpty() && !writeFile(folders->temporary() + "/tst_injectedfaults.1.log", before))
        return "no log";
    TracedChild child(
        fault,
        [&] {
            keepQuiet();
            report->tell(workOfAModel(*report));
        },
        [&] { later->tell(workOfAModel(*later)); });
    const bool finished = child.finishOperation();
    happened = child.faultHappened();
    if (!child.calls().empty())
        call = QString::fromStdString(systemCallName(child.calls().at(qMin(fault.at, child.calls().size() - 1))));
    if (!finished && (!happened || fault.kind != Fault::Kind::Kill))
        return "ended by " + QString::fromStdString(child.end());
    QString wrong = wrongInLog(before, 1, 0, fault.kind != Fault::Kind::Error);
    if (!wrong.isEmpty())
        return wrong;
    if (finished) {
        if (report->told() != "0 1 7")
            return "the model answers " + report->told();
        if (!child.finishAll() || later->told() != "0 1 7")
            return "later the model answers " + later->told();
        wrong = wrongInLog(before, 2, 1, false);
    }
    if (wrong.isEmpty()) {
        if (!inOwnProcess([&] { later->tell(workOfAModel(*later)); }) || later->told() != "0 1 7")
            return "at the next start the model answers " + later->told();
        wrong = wrongInLog(before, finished ? 3 : 2, finished ? 2 : 1, false);
    }
    const qint64 longest = qMax(report->longestCall, later->longestCall);
    if (wrong.isEmpty() && longest > longestCall)
        return QStringLiteral("a call takes %1 ms").arg(longest / 1000);
    longestSeen = qMax(longestSeen, longest);
    return wrong;
}

/// Injects \a fault at each system call in turn, until there are no more: the last time nothing fails.
void injectEverywhere(Fault fault, const std::function<QString(const Fault&, bool&, QString&)>& wrongAt)
{
    QStringList wrong;
    fault.at = 0;
    for (bool happened = true; happened; ++fault.at) {
        QString message;
        QString call;
        for (int attempt = 0; attempt < attempts; ++attempt) {
            message = wrongAt(fault, happened, call);
            if (!message.startsWith("a call takes"))
                break;
        }
        if (!message.isEmpty())
            wrong << QStringLiteral("%1 (%2): %3").arg(fault.at).arg(call, message);
        faultsInjected += happened ? 1 : 0;
    }
    qInfo("%d system calls", int(fault.at) - 1);
    QVERIFY(fault.at > 5);
    QVERIFY2(wrong.isEmpty(), qPrintable('\n' + wrong.join('\n')));
}

} // namespace

class TstInjectedFaults : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void storeStaysWhole_data();
    void storeStaysWhole();
    void logGoesOn_data();
    void logGoesOn();
};

void TstInjectedFaults::initTestCase()
{
    TracedChild child(
        {}, [] { ::getppid(); }, [] {});
    QVERIFY2(child.finishOperation(), "this system does not let a process trace its child");
    QVERIFY(child.finishAll());
}

void TstInjectedFaults::storeStaysWhole_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<Fault::Kind>("kind");
    QTest::addColumn<int>("error");
    for (const char* operation :
         {"first save", "overwrite", "removal", "load", "load of a damaged file", "save over a damaged file"}) {
        const auto row = [&](const char* fault, Fault::Kind kind, int error) {
            QTest::addRow("%s, %s", operation, fault) << QString(operation) << kind << error;
        };
        row("killed", Fault::Kind::Kill, 0);
        if (allFaults() || qstrcmp(operation, "overwrite") == 0)
            row("ENOSPC", Fault::Kind::Error, ENOSPC);
        if (!allFaults())
            continue;
        row("EIO", Fault::Kind::Error, EIO);
        row("EINTR", Fault::Kind::Error, EINTR);
        row("EMFILE", Fault::Kind::Error, EMFILE);
        row("EIO from there on", Fault::Kind::ErrorsSince, EIO);
    }
}

void TstInjectedFaults::storeStaysWhole()
{
    QFETCH(QString, operation);
    QFETCH(Fault::Kind, kind);
    QFETCH(int, error);
    const StoreOperation op = storeOperation(operation);
    injectEverywhere({kind, 0, error}, [&](const Fault& fault, bool& happened, QString& call) {
        return wrongWith(op, fault, happened, call);
    });
}

void TstInjectedFaults::logGoesOn_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<Fault::Kind>("kind");
    QTest::addColumn<int>("error");
    struct Start {
        const char* name;
        int size;
    };
    for (const Start& log : {Start{"no log", -1}, Start{"log that is copied", 9000}}) {
        const auto row = [&](const char* fault, Fault::Kind kind, int error) {
            QTest::addRow("%s, %s", log.name, fault) << log.size << kind << error;
        };
        row("killed", Fault::Kind::Kill, 0);
        row("ENOSPC", Fault::Kind::Error, ENOSPC);
        row("EIO", Fault::Kind::Error, EIO);
        row("EINTR", Fault::Kind::Error, EINTR);
        row("EMFILE", Fault::Kind::Error, EMFILE);
        row("EIO from there on", Fault::Kind::ErrorsSince, EIO);
    }
}

void TstInjectedFaults::logGoesOn()
{
    QFETCH(int, size);
    QFETCH(Fault::Kind, kind);
    QFETCH(int, error);
    const QByteArray before = size < 0 ? QByteArray() : logBefore(size);
    injectEverywhere({kind, 0, error}, [&](const Fault& fault, bool& happened, QString& call) {
        return wrongWithLog(before, fault, happened, call);
    });
}

/// The temporary file of a process that was killed just before it would have become the store's file.
int main(int argc, char** argv)
{
    folders = std::make_unique<Folders>();
    QCoreApplication application(argc, argv);
    ZoEffectModel::InitEffectModel(hostCatalogue());
    TstInjectedFaults test;
    const int failed = QTest::qExec(&test, argc, argv);
    qInfo("%d faults, longest call %lld us", faultsInjected, longestSeen);
    qInfo("%lld temporary files left", static_cast<long long>(temporaryFiles));
    folders.reset();
    return failed;
}

#include "tst_injectedfaults.moc"
