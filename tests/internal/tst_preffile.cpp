// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What is told of a store file before it is read, and the names under which damaged ones are set aside.

#include <sys/stat.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include "preffile_p.h"

using preffile::State;

namespace {

constexpr int mostBytes = 2 * 1024 * 1024;

/// A whole file of \a size bytes, with one string as long as that takes.
QByteArray wholeFile(int size)
{
    const QByteArray head = "; Custom defaults of effects. Kept by the program: the last line is a checksum.\n"
                            "[T]\n=QString \"";
    const QByteArray tail = "\"\n";
    constexpr int checksumLine = 48;
    const QByteArray body = head + QByteArray(size - head.size() - tail.size() - checksumLine, 'x') + tail;
    return body + "; sha1 " + QCryptographicHash::hash(body, QCryptographicHash::Sha1).toHex() + '\n';
}

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

class TstPrefFile : public QObject {
    Q_OBJECT

private slots:
    void stateIsToldFromWhatStandsThere_data();
    void stateIsToldFromWhatStandsThere();
    void damagedFileTakesTheFirstFreeName_data();
    void damagedFileTakesTheFirstFreeName();
    void damagedFileStaysWhenAllNamesAreTaken();
    void nothingCannotBeSetAside();
};

void TstPrefFile::stateIsToldFromWhatStandsThere_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("state");
    const auto row = [](const char* situation, const QString& name, State state) {
        QTest::newRow(situation) << name << static_cast<int>(state);
    };
    row("nothing", QStringLiteral("missing"), State::Missing);
    row("nothing in a missing folder", QStringLiteral("missing/file"), State::Missing);
    row("nothing below a file", QStringLiteral("whole/file"), State::Missing);
    row("link to nothing", QStringLiteral("nowhere"), State::Missing);
    row("link to itself", QStringLiteral("loop"), State::Unreadable);
    row("name that no file can have", QString(300, QLatin1Char('n')), State::Unreadable);
    row("folder", QStringLiteral("folder"), State::Damaged);
    row("FIFO", QStringLiteral("fifo"), State::Damaged);
    row("empty file", QStringLiteral("empty"), State::Damaged);
    row("whole file", QStringLiteral("whole"), State::Whole);
    row("link to a whole file", QStringLiteral("link"), State::Whole);
    row("largest file", QStringLiteral("largest"), State::Whole);
    row("file of a byte more", QStringLiteral("larger"), State::Damaged);
}

void TstPrefFile::stateIsToldFromWhatStandsThere()
{
    QFETCH(QString, name);
    QFETCH(int, state);
    const QTemporaryDir temporary;
    const QDir folder(temporary.path());
    const auto path = [&](const char* entry) { return QFile::encodeName(folder.filePath(QLatin1String(entry))); };
    QVERIFY(writeFile(folder.filePath(QStringLiteral("empty")), QByteArray()));
    QVERIFY(writeFile(folder.filePath(QStringLiteral("whole")), wholeFile(1000)));
    QVERIFY(writeFile(folder.filePath(QStringLiteral("largest")), wholeFile(mostBytes)));
    QVERIFY(writeFile(folder.filePath(QStringLiteral("larger")), wholeFile(mostBytes + 1)));
    QVERIFY(folder.mkdir(QStringLiteral("folder")));
    QVERIFY(::mkfifo(path("fifo").constData(), 0600) == 0);
    QVERIFY(::symlink("missing", path("nowhere").constData()) == 0);
    QVERIFY(::symlink("loop", path("loop").constData()) == 0);
    QVERIFY(::symlink("whole", path("link").constData()) == 0);

    const preffile::Content content = preffile::read(folder.filePath(name));
    QCOMPARE(static_cast<int>(content.state), state);
    QCOMPARE(content.entries.size(), state == static_cast<int>(State::Whole) ? 1 : 0);
}

void TstPrefFile::damagedFileTakesTheFirstFreeName_data()
{
    QTest::addColumn<QStringList>("taken");
    QTest::addColumn<QString>("name");
    const QString first = QStringLiteral("store.damaged");
    const QString second = QStringLiteral("store.damaged.2");
    const QString third = QStringLiteral("store.damaged.3");
    QTest::newRow("none is taken") << QStringList() << first;
    QTest::newRow("the first is taken") << QStringList(first) << second;
    QTest::newRow("the first two are taken") << QStringList({first, second}) << third;
    QTest::newRow("a later one is taken") << QStringList({first, third}) << second;
}

void TstPrefFile::damagedFileTakesTheFirstFreeName()
{
    QFETCH(QStringList, taken);
    QFETCH(QString, name);
    const QTemporaryDir temporary;
    const QDir folder(temporary.path());
    for (const QString& entry : taken)
        QVERIFY(::symlink("nowhere", QFile::encodeName(folder.filePath(entry)).constData()) == 0);
    const QString path = folder.filePath(QStringLiteral("store"));
    QVERIFY(writeFile(path, "damaged"));

    QCOMPARE(preffile::setAside(path).value_or(QString()), folder.filePath(name));
    QVERIFY(!QFile::exists(path));
    QFile aside(folder.filePath(name));
    QVERIFY(aside.open(QIODevice::ReadOnly));
    QCOMPARE(aside.readAll(), QByteArray("damaged"));
}

void TstPrefFile::damagedFileStaysWhenAllNamesAreTaken()
{
    const QTemporaryDir temporary;
    const QString path = QDir(temporary.path()).filePath(QStringLiteral("store"));
    QVERIFY(writeFile(path, "damaged"));
    QVERIFY(writeFile(path + QStringLiteral(".damaged"), QByteArray()));
    for (int number = 2; number <= 999; ++number)
        QVERIFY(writeFile(path + QStringLiteral(".damaged.%1").arg(number), QByteArray()));

    QCOMPARE(preffile::setAside(path).value_or(QString()), path + QStringLiteral(".damaged.1000"));
    QVERIFY(writeFile(path, "damaged again"));
    QVERIFY(!preffile::setAside(path));
    QVERIFY(QFile::exists(path));
}

void TstPrefFile::nothingCannotBeSetAside()
{
    const QTemporaryDir temporary;
    QVERIFY(!preffile::setAside(QDir(temporary.path()).filePath(QStringLiteral("store"))));
}

QTEST_GUILESS_MAIN(TstPrefFile)

#include "tst_preffile.moc"
