// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Where the log of an application is, told from the path of its executable alone.

#include <QtTest>

#include "logpaths_p.h"

class TstLogPaths : public QObject {
    Q_OBJECT

private slots:
    void logStandsBesideNothingButTheName_data();
    void logStandsBesideNothingButTheName();
    void pathWithoutFolderGivesNoLog_data();
    void pathWithoutFolderGivesNoLog();
};

void TstLogPaths::logStandsBesideNothingButTheName_data()
{
    QTest::addColumn<QString>("executable");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("previous");

    QTest::newRow("in a folder") << "/usr/bin/Converter"
                                 << "/tmp"
                                 << "/tmp/Converter.1.log"
                                 << "/tmp/Converter.2.log";
    QTest::newRow("deep in folders") << "/opt/a/b/c/d/Converter"
                                     << "/tmp"
                                     << "/tmp/Converter.1.log"
                                     << "/tmp/Converter.2.log";
    QTest::newRow("relative path") << "bin/Converter"
                                   << "/tmp"
                                   << "/tmp/Converter.1.log"
                                   << "/tmp/Converter.2.log";
    QTest::newRow("path from here") << "./Converter"
                                    << "/tmp"
                                    << "/tmp/Converter.1.log"
                                    << "/tmp/Converter.2.log";
    QTest::newRow("one letter before the slash") << "a/b"
                                                 << "/tmp"
                                                 << "/tmp/b.1.log"
                                                 << "/tmp/b.2.log";
    QTest::newRow("slash at second place") << "//Converter"
                                           << "/tmp"
                                           << "/tmp/Converter.1.log"
                                           << "/tmp/Converter.2.log";
    QTest::newRow("nothing after the slash") << "/usr/bin/"
                                             << "/tmp"
                                             << "/tmp/.1.log"
                                             << "/tmp/.2.log";
    QTest::newRow("two slashes alone") << "//"
                                       << "/tmp"
                                       << "/tmp/.1.log"
                                       << "/tmp/.2.log";
    QTest::newRow("drive letter") << "C:/Programs/Converter.exe"
                                  << "/tmp"
                                  << "/tmp/Converter.exe.1.log"
                                  << "/tmp/Converter.exe.2.log";
    QTest::newRow("last of the ones is replaced") << "/bin/v1.1"
                                                  << "/tmp1"
                                                  << "/tmp1/v1.1.1.log"
                                                  << "/tmp1/v1.1.2.log";
    QTest::newRow("name ends like a log") << "/bin/a.1.log"
                                          << "/tmp"
                                          << "/tmp/a.1.log.1.log"
                                          << "/tmp/a.1.log.2.log";
    QTest::newRow("name ends like a copy") << "/bin/a.2"
                                           << "/tmp"
                                           << "/tmp/a.2.1.log"
                                           << "/tmp/a.2.2.log";
    QTest::newRow("folder of the executable has a one") << "/bin1/Converter"
                                                        << "/tmp"
                                                        << "/tmp/Converter.1.log"
                                                        << "/tmp/Converter.2.log";
    QTest::newRow("backslashes are part of the name") << "/bin/a\\b"
                                                      << "/tmp"
                                                      << "/tmp/a\\b.1.log"
                                                      << "/tmp/a\\b.2.log";
    QTest::newRow("blanks") << "/my programs/my player"
                            << "/my tmp"
                            << "/my tmp/my player.1.log"
                            << "/my tmp/my player.2.log";
    QTest::newRow("percent signs") << "/bin/%1%s"
                                   << "/tmp"
                                   << "/tmp/%1%s.1.log"
                                   << "/tmp/%1%s.2.log";
    QTest::newRow("beyond ASCII") << QString::fromUtf8("/bin/Gr\xC3\xB6\xC3\x9F"
                                                       "e")
                                  << "/tmp"
                                  << QString::fromUtf8("/tmp/Gr\xC3\xB6\xC3\x9F"
                                                       "e.1.log")
                                  << QString::fromUtf8("/tmp/Gr\xC3\xB6\xC3\x9F"
                                                       "e.2.log");
    QTest::newRow("folder ends with a slash") << "/bin/Converter"
                                              << "/tmp/"
                                              << "/tmp//Converter.1.log"
                                              << "/tmp//Converter.2.log";
    QTest::newRow("root as temporary folder") << "/bin/Converter"
                                              << "/"
                                              << "//Converter.1.log"
                                              << "//Converter.2.log";
    QTest::newRow("no temporary folder") << "/bin/Converter"
                                         << ""
                                         << "/Converter.1.log"
                                         << "/Converter.2.log";
}

void TstLogPaths::logStandsBesideNothingButTheName()
{
    QFETCH(QString, executable);
    QFETCH(QString, folder);
    QFETCH(QString, current);
    QFETCH(QString, previous);

    const std::optional<LogPaths> paths = logPaths(executable, folder);

    QVERIFY(paths.has_value());
    QCOMPARE(paths->current, current);
    QCOMPARE(paths->previous, previous);
}

void TstLogPaths::pathWithoutFolderGivesNoLog_data()
{
    QTest::addColumn<QString>("executable");

    QTest::newRow("null") << QString();
    QTest::newRow("empty") << "";
    QTest::newRow("name alone") << "Converter";
    QTest::newRow("slash at first place") << "/Converter";
    QTest::newRow("slash alone") << "/";
    QTest::newRow("backslashes only") << "C:\\Programs\\Converter.exe";
    QTest::newRow("blank") << " ";
}

void TstLogPaths::pathWithoutFolderGivesNoLog()
{
    QFETCH(QString, executable);

    QVERIFY(!logPaths(executable, QStringLiteral("/tmp")).has_value());
    QVERIFY(!logPaths(executable, QString()).has_value());
}

int main(int argc, char** argv)
{
    TstLogPaths test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_logpaths.moc"
