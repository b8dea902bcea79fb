// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Where the log of an application is, told from the path of its executable alone.

#include "logpaths_p.h"

#include "../support/rows.h"

class TstLogPaths : public QObject {
    Q_OBJECT

private slots:
    void logStandsBesideNothingButTheName_data()
    {
        const QString gross = QString::fromUtf8("Gr\xC3\xB6\xC3\x9F");
        addRows<QString, QString, QString>({
            {"deep in folders", "/opt/a/b/Converter", "/tmp", "/tmp/Converter.%1.log"},
            {"relative path", "bin/Converter", "/tmp", "/tmp/Converter.%1.log"},
            {"one letter before the slash", "a/b", "/tmp", "/tmp/b.%1.log"},
            {"slash at second place", "//Converter", "/tmp", "/tmp/Converter.%1.log"},
            {"nothing after the slash", "/usr/bin/", "/tmp", "/tmp/.%1.log"},
            {"two slashes alone", "//", "/tmp", "/tmp/.%1.log"},
            {"drive letter", "C:/Programs/Converter.exe", "/tmp", "/tmp/Converter.exe.%1.log"},
            {"last of the ones is replaced", "/bin1/v1.1", "/tmp1", "/tmp1/v1.1.%1.log"},
            {"name ends like a log", "/bin/a.1.log", "/tmp", "/tmp/a.1.log.%1.log"},
            {"backslashes are part of the name", "/bin/a\\b", "/tmp", "/tmp/a\\b.%1.log"},
            {"blanks", "/my programs/my player", "/my tmp", "/my tmp/my player.%1.log"},
            {"percent signs", "/bin/%s%n", "/tmp", "/tmp/%s%n.%1.log"},
            {"beyond ASCII", "/bin/" + gross, "/tmp", "/tmp/" + gross + ".%1.log"},
            {"folder ends with a slash", "/bin/Converter", "/tmp/", "/tmp//Converter.%1.log"},
            {"no temporary folder", "/bin/Converter", "", "/Converter.%1.log"},
        });
    }

    void logStandsBesideNothingButTheName()
    {
        const auto [executable, folder, expected] = row<QString, QString, QString>();
        const std::optional<LogPaths> paths = logPaths(executable, folder);
        QVERIFY(paths.has_value());
        QCOMPARE(paths->current, expected.arg(1));
        QCOMPARE(paths->previous, expected.arg(2));
    }

    void pathWithoutFolderGivesNoLog()
    {
        for (const char* executable : {"", "Converter", "/Converter", "/", "C:\\Programs\\Converter.exe", " "}) {
            QVERIFY(!logPaths(executable, "/tmp").has_value());
            QVERIFY(!logPaths(executable, QString()).has_value());
        }
    }
};

int main(int argc, char** argv)
{
    TstLogPaths test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_logpaths.moc"
