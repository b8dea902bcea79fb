// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Hosts killed at random moments while they save, two at a time: whatever save had ended is in the file, the file is
// whole, and the next host's first save is written at once, whoever held the lock.
//
// 200 hosts, or as many as ZOEFFECT_KILLED_HOSTS in the environment says.

#include <algorithm>
#include <array>
#include <csignal>
#include <memory>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include "embeddedpref_p.h"

namespace {

constexpr std::array types{"Crop", "Color"}; // One for each host of a pair.
constexpr int longestLife = 20000;           // Microseconds until the kill.

bool warned = false;

/// The last number whose save ended, told in memory that the hosts share with the test.
using Reports = std::array<volatile int, types.size()>;

/// Saves 1, 2 and so on. Only a save that ended without a warning counts as written.
[[noreturn]] void saveForEver(const QString& path, std::size_t host, int first, Reports& reports)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { warned = true; });
    EmbeddedPref store(path);
    for (int number = first;; ++number) {
        warned = false;
        store.setValue(QString::fromLatin1(types.at(host)), QVariantMap{{QStringLiteral("crop_left"), number}}, false);
        if (!warned)
            reports.at(host) = number;
    }
}

} // namespace

class TstKilledHosts : public QObject {
    Q_OBJECT

private slots:
    void noFinishedSaveIsLost();
};

void TstKilledHosts::noFinishedSaveIsLost()
{
    const int hosts = std::max(200, qEnvironmentVariableIntValue("ZOEFFECT_KILLED_HOSTS"));
    const bool inMemory = QFileInfo(QStringLiteral("/dev/shm")).isWritable();
    const QTemporaryDir folder((inMemory ? QStringLiteral("/dev/shm") : QDir::tempPath()) + QStringLiteral("/killed-"));
    const QString path = folder.filePath(QStringLiteral("effectdefaults.json"));
    void* const memory = ::mmap(nullptr, sizeof(Reports), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    QVERIFY(memory != MAP_FAILED);
    auto& reports = *static_cast<Reports*>(memory);
    QRandomGenerator random(4711);
    int finished = 0;
    int killedWhileSaving = 0;
    for (int round = 0; round < hosts / int(types.size()); ++round) {
        std::array<pid_t, types.size()> processes{};
        std::array<int, types.size()> before{};
        for (std::size_t host = 0; host < types.size(); ++host) {
            before.at(host) = reports.at(host);
            processes.at(host) = ::fork();
            if (processes.at(host) == 0)
                saveForEver(path, host, before.at(host) + 1, reports);
            QVERIFY(processes.at(host) > 0);
        }
        for (const pid_t process : processes) {
            QTest::qWait(0);
            ::usleep(useconds_t(random.bounded(longestLife)));
            ::kill(process, SIGKILL);
        }
        for (const pid_t process : processes) {
            int status = 0;
            QCOMPARE(::waitpid(process, &status, 0), process);
            QVERIFY(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
        }

        EmbeddedPref next(path);
        for (std::size_t host = 0; host < types.size(); ++host) {
            const QString type = QString::fromLatin1(types.at(host));
            const int inFile = next.value(type, QVariant()).toMap().value(QStringLiteral("crop_left")).toInt();
            // The save that was not reported any more may be there; each round's hosts begin behind it.
            QVERIFY2(inFile == reports.at(host) || inFile == reports.at(host) + 1,
                     qPrintable(QStringLiteral("round %1, host %2: %3 was saved, the file has %4")
                                    .arg(round)
                                    .arg(host)
                                    .arg(reports.at(host))
                                    .arg(inFile)));
            finished += reports.at(host) - before.at(host);
            killedWhileSaving += inFile > reports.at(host) ? 1 : 0;
            reports.at(host) = inFile;
        }
        next.setValue(QStringLiteral("Audio"), QVariantMap{{QStringLiteral("crop_left"), round}}, false);
        QCOMPARE(EmbeddedPref(path).value(QStringLiteral("Audio"), QVariant()).toMap().first().toInt(), round);
    }
    QVERIFY(!QFile::exists(path + QStringLiteral(".damaged")));
    const auto left = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size() - 2; // The file, and its lock.
    ::munmap(memory, sizeof(Reports));
    qInfo("%d hosts killed, %d saves finished, none lost; %d written but not told, %d temporary files left", hosts,
          finished, killedWhileSaving, int(left));
    QVERIFY(finished > hosts / 4); // The hosts did live long enough to save.
}

QTEST_GUILESS_MAIN(TstKilledHosts)
#include "tst_killedhosts.moc"
