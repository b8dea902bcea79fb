// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What a host sees of its custom defaults and its log when the places of their files are hostile: full, missing,
// forbidden, something else than a file, locked for ever, written by another process at the same time. Each operation
// is quick and does its work in memory; nothing is destroyed, and nothing is written elsewhere.

#include <cerrno>
#include <csignal>
#include <functional>
#include <memory>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utime.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "faultworld.h"
#include "hostcatalogue.h"

using namespace faultworld;

namespace {

constexpr uid_t nobody = 65534;
constexpr int attempts = 3;                   // To be quick in: the machine may be busy with something else.
constexpr int step = ZOEFFECT_FULL_DISK_STEP; // Bytes between two sizes of a full disk.
constexpr int largest = 65536;                // The largest of them.
constexpr int savesAtOnce = 1000;
constexpr qint64 gigabyte = qint64(1024) * 1024 * 1024;

std::unique_ptr<Folders> folders;

ZoEffectItemDefaultValMgr& manager()
{
    return *ZoEffectItemDefaultValMgr::getInstance();
}

void start(Report& report)
{
    timed(report, [] { manager(); });
}

void save(Report& report, const QString& type, const Saved& saved)
{
    timed(report, [&] { manager().saveAsCustomDefaultVal(type, saved.values); });
}

State oldState()
{
    return {{"Color", oldColor()}, {"Watermark", oldWatermark()}};
}

State newState()
{
    return {{"Color", oldColor()}, {"Watermark", newWatermark()}};
}

QByteArray pathBytes(const QString& path)
{
    return QFile::encodeName(path);
}

void putOldFile()
{
    QVERIFY(QDir().mkpath(storeFolder()));
    QVERIFY(writeFile(storeFile(), fileOf(oldState())));
}

void setTime(const QString& path, qint64 secondsFromNow)
{
    const auto time = static_cast<time_t>(::time(nullptr) + secondsFromNow);
    const utimbuf times = {time, time};
    QCOMPARE(::utime(pathBytes(path).constData(), &times), 0);
}

bool limitFileSize(rlim_t size)
{
    rlimit limits = {};
    std::signal(SIGXFSZ, SIG_IGN);
    if (::getrlimit(RLIMIT_FSIZE, &limits) != 0)
        return false;
    limits.rlim_cur = size;
    return ::setrlimit(RLIMIT_FSIZE, &limits) == 0;
}

/// A copy of this process that lives until this object does not, or that ends when its work is done.
class Companion {
public:
    explicit Companion(const std::function<void()>& work) : m_process(::fork())
    {
        if (m_process != 0)
            return;
        keepQuiet();
        work();
        ::_exit(0);
    }
    ~Companion()
    {
        if (m_process > 0)
            ::kill(m_process, SIGKILL);
        finish();
    }
    Companion(const Companion&) = delete;
    Companion& operator=(const Companion&) = delete;

    /// Waits for the end of the work. True when it ended by itself and well.
    bool finish()
    {
        int status = -1;
        const bool ended = m_process > 0 && ::waitpid(m_process, &status, 0) == m_process;
        m_process = -1;
        return ended && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

private:
    pid_t m_process = -1;
};

QString lockFile()
{
    return storeFile() + ".lock";
}

/// Holds the store's lock for ever.
void holdLock(Report& report)
{
    const int file = ::open(pathBytes(lockFile()).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (::flock(file, LOCK_EX | LOCK_NB) != 0)
        ::_exit(1);
    report.tell("held");
    for (;;)
        ::pause();
}

/// Does \a work up to three times, in a process of its own each, until all its calls are quick.
bool quickly(const std::function<void()>& arrange, const std::function<void(Report&)>& work, QString& told)
{
    for (int attempt = 0; attempt < attempts; ++attempt) {
        SharedReport report;
        arrange();
        if (!inOwnProcess([&] { work(*report); })) {
            told = "the process ended badly";
            return true;
        }
        told = report->told();
        if (report->longestCall <= longestCall)
            return true;
    }
    return false;
}

/// Saves a new watermark, and tells what is known before and after.
void loadAndSave(Report& report)
{
    start(report);
    const QString before = knownText();
    save(report, "Watermark", newWatermark());
    report.tell(before + " -> " + knownText());
}

bool isWhole(const QByteArray& file)
{
    return QJsonDocument::fromJson(file).object().contains("types");
}

// --- Places of the store's file

struct Place {
    const char* name;
    std::function<void()> arrange;
    bool loads;         ///< The old state is read.
    QByteArray file;    ///< What the file holds after the save.
    QStringList others; ///< What else there is, in the store's folder or elsewhere.
    bool asNobody;
};

void link(const QByteArray& target)
{
    QVERIFY(QDir().mkpath(storeFolder()));
    QCOMPARE(::symlink(target.constData(), pathBytes(storeFile()).constData()), 0);
}

std::vector<Place> places()
{
    const QString folder = "config/tst_hostileplaces";
    const QString file = folder + "/effectdefaults.json";
    const QByteArray oldFile = fileOf(oldState());
    const QByteArray newFile = fileOf(newState());
    const QByteArray firstFile = fileOf({{"Watermark", newWatermark()}});
    const auto withLock = [](const QByteArray& content, qint64 secondsFromNow) {
        return [=] {
            putOldFile();
            QVERIFY(writeFile(lockFile(), content));
            setTime(lockFile(), secondsFromNow);
        };
    };
    const QStringList only{folder, file};
    return {
        {"nothing there", [] {}, false, firstFile, only, false},
        {"file", [] { putOldFile(); }, true, newFile, only, false},
        {"file of tomorrow",
         [] {
             putOldFile();
             setTime(storeFile(), 86400);
         },
         true, newFile, only, false},
        {"configuration folder missing", [] { QVERIFY(QDir(folders->configuration()).removeRecursively()); }, false,
         firstFile, only, false},
        {"configuration folder is a file",
         [] {
             QVERIFY(QDir(folders->configuration()).removeRecursively());
             QVERIFY(writeFile(folders->configuration(), "x"));
         },
         false,
         "no file",
         {},
         false},
        {"folder of others",
         [] {
             putOldFile();
             QCOMPARE(::chmod(pathBytes(storeFolder()).constData(), 0555), 0);
         },
         true, oldFile, only, true},
        {"folder of others without the file",
         [] { QCOMPARE(::chmod(pathBytes(folders->configuration()).constData(), 0555), 0); },
         false,
         "no file",
         {},
         true},
        {"folder of others that cannot be entered",
         [] {
             putOldFile();
             QCOMPARE(::chmod(pathBytes(storeFolder()).constData(), 0600), 0);
         },
         false, oldFile, only, true},
        {"file of others that cannot be read",
         [] {
             putOldFile();
             QCOMPARE(::chmod(pathBytes(storeFolder()).constData(), 0777), 0);
             QCOMPARE(::chmod(pathBytes(storeFile()).constData(), 0600), 0);
         },
         false, oldFile, only, true},
        {"link to itself", [] { link("effectdefaults.json"); }, false, "no file", only, false},
        {"link into a missing folder", [] { link("../missing/file"); }, false, "no file", only, false},
        {"link to nowhere", [] { link("nowhere"); }, false, firstFile, {folder, file, folder + "/nowhere"}, false},
        {"link to the device that is always full",
         [] { link("/dev/full"); },
         false,
         firstFile,
         {folder, file, file + ".damaged"},
         false},
        {"sparse file of a gigabyte",
         [] {
             putOldFile();
             QCOMPARE(::truncate(pathBytes(storeFile()).constData(), gigabyte), 0);
         },
         false,
         firstFile,
         {folder, file, file + ".damaged"},
         false},
        {"lock of a dead process", withLock({}, 0), true, newFile, only, false},
        {"lock of a dead process of tomorrow", withLock({}, 86400), true, newFile, only, false},
        {"lock of a dead process of last year", withLock({}, -31536000), true, newFile, only, false},
        {"lock of another program", withLock("4711\nprogram\nmachine\n", 0), true, newFile, only, false},
    };
}

// --- Places of the log

struct LogPlace {
    const char* name;
    std::function<void()> arrange;
    bool asNobody;
};

QString logFile()
{
    return folders->temporary() + "/tst_hostileplaces.1.log";
}

QString copyFile()
{
    return folders->temporary() + "/tst_hostileplaces.2.log";
}

std::vector<LogPlace> logPlaces()
{
    const auto link = [](const char* target) {
        return [=] { QCOMPARE(::symlink(target, pathBytes(logFile()).constData()), 0); };
    };
    return {
        {"temporary folder missing", [] { QVERIFY(QDir(folders->temporary()).removeRecursively()); }, false},
        {"temporary folder is a file",
         [] {
             QVERIFY(QDir(folders->temporary()).removeRecursively());
             QVERIFY(writeFile(folders->temporary(), "x"));
         },
         false},
        {"temporary folder of others", [] { QCOMPARE(::chmod(pathBytes(folders->temporary()).constData(), 0555), 0); },
         true},
        {"log of others",
         [] {
             QVERIFY(writeFile(logFile(), "x"));
             QCOMPARE(::chmod(pathBytes(logFile()).constData(), 0600), 0);
         },
         true},
        {"link to the device that is always full", link("/dev/full"), false},
        {"link to a terminal", link("/dev/tty"), false},
        {"link to itself", link("tst_hostileplaces.1.log"), false},
        {"link to nowhere", link("nowhere"), false},
        {"FIFO", [] { QCOMPARE(::mkfifo(pathBytes(logFile()).constData(), 0666), 0); }, false},
        {"folder", [] { QVERIFY(QDir().mkdir(logFile())); }, false},
    };
}

/// Operations of a model, some of which log, and what they answer.
void workOfAModel(Report& report)
{
    QStringList answers;
    ZoEffectModel model;
    const auto call = [&](const std::function<int()>& operation) {
        timed(report, [&] { answers << QString::number(operation()); });
    };
    call([&] { return int(model.setData("key", 1, "no such type", -1)); });
    call([&] { return int(model.setData("crop_left", 7, "Crop", -1)); });
    call([&] { return model.data("crop_left", "Crop", -1).toInt(); });
    call([&] { return int(model.getDataItem("no such type", 0) == nullptr); });
    call([&] { return int(model.addDataItem("Watermark", {{"tag", "a"}})); });
    call([&] { return int(model.setData("key", 1, "Watermark", 5)); });
    report.tell(answers.join(' '));
}

const char* const answersOfAModel = "0 1 7 1 1 0";

} // namespace

class TstHostilePlaces : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void storeWorksInAnyPlace_data();
    void storeWorksInAnyPlace();
    void storeWithoutHomeKeepsToMemory();
    void folderThatVanishesIsMadeAgain();
    void lockHeldForEverDoesNotHoldTheCaller();
    void fullDiskOfAnySizeKeepsTheOldFile();
    void processesThatSaveAtOnceLoseNothing();

    void modelWorksWhateverIsInTheLogsPlace_data();
    void modelWorksWhateverIsInTheLogsPlace();
    void fullDiskOfAnySizeCutsOnlyTheLog();
};

void TstHostilePlaces::init()
{
    folders->reset();
}

void TstHostilePlaces::cleanup()
{
    folders->reset();
}

void TstHostilePlaces::storeWorksInAnyPlace_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Place& place : places())
        QTest::newRow(place.name) << index++;
}

void TstHostilePlaces::storeWorksInAnyPlace()
{
    QFETCH(int, index);
    const Place place = places().at(std::size_t(index));
    QString told;
    const auto arrange = [&] {
        folders->reset();
        place.arrange();
    };
    const auto work = [&](Report& report) {
        if (place.asNobody && ::geteuid() == 0 && ::setuid(nobody) != 0)
            ::_exit(1);
        loadAndSave(report);
    };
    QVERIFY2(quickly(arrange, work, told), "a call takes long");
    const State known = place.loads ? newState() : State{{"Watermark", newWatermark()}};
    QCOMPARE(told, (place.loads ? textOf(oldState()) : QString()) + " -> " + textOf(known));
    ::chmod(pathBytes(storeFolder()).constData(), 0755);
    QCOMPARE(contentOf(storeFile()), place.file);
    QCOMPARE(folders->entries(), place.others);

    // The next start finds what the file holds.
    SharedReport next;
    QVERIFY(inOwnProcess([&] { next->tell(knownText()); }));
    QCOMPARE(next->told(), place.file == fileOf(oldState())   ? textOf(oldState())
                           : place.file == fileOf(newState()) ? textOf(newState())
                           : place.file == "no file"          ? QString()
                                                              : textOf({{"Watermark", newWatermark()}}));
}

void TstHostilePlaces::storeWithoutHomeKeepsToMemory()
{
    SharedReport report;
    const bool rootHadFolder = QFileInfo::exists("/.config");
    QVERIFY(inOwnProcess([&] {
        // Without these the folder is "/.config", which nobody may create.
        qunsetenv("HOME");
        qunsetenv("XDG_CONFIG_HOME");
        if (::geteuid() == 0 && ::setuid(nobody) != 0)
            ::_exit(1);
        loadAndSave(*report);
    }));
    QCOMPARE(report->told(), " -> " + textOf({{"Watermark", newWatermark()}}));
    QCOMPARE(folders->entries(), QStringList());
    QCOMPARE(QFileInfo::exists("/.config"), rootHadFolder);
}

void TstHostilePlaces::folderThatVanishesIsMadeAgain()
{
    putOldFile();
    SharedReport report;
    QVERIFY(inOwnProcess([&] {
        start(*report);
        QDir(folders->configuration()).removeRecursively();
        save(*report, "Watermark", newWatermark());
        QDir(folders->configuration()).removeRecursively();
        save(*report, "Crop", crop());
        report->tell(knownText());
    }));
    State known = newState();
    known.insert("Crop", crop());
    QCOMPARE(report->told(), textOf(known));
    QCOMPARE(contentOf(storeFile()), fileOf({{"Crop", crop()}}));
}

void TstHostilePlaces::lockHeldForEverDoesNotHoldTheCaller()
{
    putOldFile();
    QString told;
    {
        SharedReport holder;
        const Companion companion([&] { holdLock(*holder); });
        QTRY_COMPARE(holder->told(), QString("held"));
        setTime(lockFile(), -3600); // However old it is.
        QVERIFY2(quickly([] {}, loadAndSave, told), "a call takes long");
        QCOMPARE(contentOf(storeFile()), fileOf(oldState()));
    }
    QCOMPARE(told, textOf(oldState()) + " -> " + textOf(newState()));
    QVERIFY2(quickly([] {}, loadAndSave, told), "a call takes long"); // The holder was killed.
    QCOMPARE(contentOf(storeFile()), fileOf(newState()));
}

void TstHostilePlaces::fullDiskOfAnySizeKeepsTheOldFile()
{
    Saved large;
    const QString text(largest - 2000, 'x');
    large.values.insert("wm_fontstyle", text);
    large.lines = "            \"wm_fontstyle\": \"" + text.toLatin1() + "\"\n";
    State grown = oldState();
    grown.insert("Crop", large);
    const QByteArray grownFile = fileOf(grown);
    State later = grown;
    later.insert("Audio", audio());
    QVERIFY(grownFile.size() < largest);
    int written = 0;
    for (int size = 0; size <= largest; size += step) {
        folders->reset();
        putOldFile();
        SharedReport report;
        SharedReport content;
        const bool ended = inOwnProcess([&] {
            if (!limitFileSize(rlim_t(size)))
                ::_exit(1);
            start(*report);
            save(*report, "Crop", large);
            content->tell(contentOf(storeFile()) == grownFile            ? "new"
                          : contentOf(storeFile()) == fileOf(oldState()) ? "old"
                                                                         : "neither");
            const bool known =
                manager().getCustomDefaultVal("Crop") == large.values && manager().hasCustomDefaultVal("Watermark");
            if (!known || !limitFileSize(RLIM_INFINITY))
                ::_exit(2);
            save(*report, "Audio", audio());
        });
        QVERIFY2(ended, qPrintable(QString::number(size)));
        QVERIFY2(content->told() == (size >= grownFile.size() ? "new" : "old"), qPrintable(QString::number(size)));
        written += content->told() == "new" ? 1 : 0;
        // With room again, the next save takes all.
        QVERIFY2(contentOf(storeFile()) == fileOf(later), qPrintable(QString::number(size)));
        QCOMPARE(folders->entries(),
                 QStringList({"config/tst_hostileplaces", "config/tst_hostileplaces/effectdefaults.json"}));
    }
    QVERIFY(written > 0);
    QVERIFY(written < largest / step);
}

void TstHostilePlaces::processesThatSaveAtOnceLoseNothing()
{
    const auto saveMany = [](const QString& type) {
        return [=] {
            Report report;
            const auto value = [](int i) { return Saved{{{"crop_left", i}}, {}, {}}; };
            for (int i = 1; i <= savesAtOnce; ++i)
                save(report, type, value(i));
            // The last one may have been kept in memory, when the other process had the turn for too long.
            const QByteArray last =
                '"' + type.toUtf8() + "\": {\n            \"crop_left\": " + QByteArray::number(savesAtOnce);
            for (int i = 0; i < attempts && !contentOf(storeFile()).contains(last); ++i)
                save(report, type, value(savesAtOnce));
        };
    };
    SharedReport readings;
    const Companion reader([&] {
        for (;;) {
            const QByteArray file = contentOf(storeFile());
            if (file == "no file")
                continue;
            ++readings->longestCall; // Counts here.
            if (!isWhole(file))
                readings->tell("not whole");
        }
    });
    Companion one(saveMany("Crop"));
    Companion other(saveMany("Color"));
    QVERIFY(one.finish());
    QVERIFY(other.finish());
    QCOMPARE(readings->told(), QString());
    QVERIFY2(readings->longestCall > 100, "the file was hardly read");

    SharedReport report;
    QVERIFY(inOwnProcess([&] { report->tell(knownText()); }));
    QCOMPARE(report->told(), QString("Color {crop_left: int 1000}; Crop {crop_left: int 1000}"));
    QCOMPARE(folders->entries(),
             QStringList({"config/tst_hostileplaces", "config/tst_hostileplaces/effectdefaults.json"}));
}

void TstHostilePlaces::modelWorksWhateverIsInTheLogsPlace_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const LogPlace& place : logPlaces())
        QTest::newRow(place.name) << index++;
}

void TstHostilePlaces::modelWorksWhateverIsInTheLogsPlace()
{
    QFETCH(int, index);
    const LogPlace place = logPlaces().at(std::size_t(index));
    QStringList before;
    QString told;
    const auto arrange = [&] {
        folders->reset();
        place.arrange();
        before = folders->entries();
    };
    const auto work = [&](Report& report) {
        if (place.asNobody && ::geteuid() == 0 && ::setuid(nobody) != 0)
            ::_exit(1);
        workOfAModel(report);
    };
    QVERIFY2(quickly(arrange, work, told), "a call takes long");
    QCOMPARE(told, QString(answersOfAModel));
    QCOMPARE(folders->entries(), before);
}

void TstHostilePlaces::fullDiskOfAnySizeCutsOnlyTheLog()
{
    const QByteArray before = QByteArray(8000, 'x') + '\n';
    for (int size = 0; size <= largest; size += step) {
        QVERIFY(writeFile(logFile(), before));
        SharedReport report;
        QVERIFY(inOwnProcess([&] {
            if (!limitFileSize(rlim_t(size)))
                ::_exit(1);
            for (int i = 0; i < 3; ++i)
                workOfAModel(*report);
        }));
        QVERIFY2(report->told() == answersOfAModel, qPrintable(QString::number(size)));
        const QByteArray log = contentOf(logFile());
        QVERIFY2(log.startsWith(before) && log.size() <= qMax(qsizetype(before.size()), qsizetype(size)),
                 qPrintable(QString::number(size)));
        // The copy is the whole log, or none is left.
        QVERIFY2(!QFileInfo::exists(copyFile()) || contentOf(copyFile()) == log, qPrintable(QString::number(size)));
        const QStringList entries = folders->entries();
        for (const QString& entry : entries)
            QVERIFY2(entry == "tmp/tst_hostileplaces.1.log" || entry == "tmp/tst_hostileplaces.2.log",
                     qPrintable(entry));
        folders->reset();
    }
}

int main(int argc, char** argv)
{
    folders = std::make_unique<Folders>();
    QCoreApplication application(argc, argv);
    ZoEffectModel::InitEffectModel(hostCatalogue());
    TstHostilePlaces test;
    const int failed = QTest::qExec(&test, argc, argv);
    folders.reset();
    return failed;
}

#include "tst_hostileplaces.moc"
