// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The diagnostic log: what a line looks like, where it goes, when the file is copied, and what is refused.

#include <cstdio>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include <writelog.h>
#include <zoeffectmodel.h>

#include "logcapture.h"
#include "testapplication.h"

namespace {

QString temporaryFolder()
{
    return QDir::tempPath();
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

void write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// Removes whatever stands at \a path: file, link, FIFO or folder.
void removeWhatever(const QString& path)
{
    const QFileInfo info(path);
    if (info.isDir() && !info.isSymLink())
        QDir(path).removeRecursively();
    else
        QFile::remove(path);
}

bool standsAnythingAt(const QString& path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0;
}

int openDescriptors()
{
    return static_cast<int>(
        QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size());
}

/// Runs this program again as \a scenario. True when it ended by itself and well.
bool runScenario(const QString& program, const QString& scenario)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    process.start(program, {QStringLiteral("scenario"), scenario});
    const bool ended = process.waitForFinished(20000);
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

/// What the program does when it is started as a scenario.
int playScenario(const QByteArray& scenario, int& argc, char** argv)
{
    if (scenario == "no application") {
        WriteLog(QStringLiteral("lost"));
        return 0;
    }
    if (scenario == "after the application") {
        {
            const QCoreApplication application(argc, argv);
        }
        WriteLog(QStringLiteral("lost"));
        return 0;
    }
    const QCoreApplication application(argc, argv);
    if (scenario == "write") {
        WriteLog(QStringLiteral("%s %d"), "text", 5);
        return 0;
    }
    if (scenario == "write much") {
        WriteLog(QStringLiteral("%s"), QByteArray(1023, 'x').constData());
        for (int i = 0; i < 8; ++i)
            WriteLog(QStringLiteral("%s"), QByteArray(1023, 'y').constData());
        return 0;
    }
    return 1;
}

} // namespace

class TstLog : public QObject {
    Q_OBJECT

private slots:
    void init();

    void logStandsInTheTemporaryFolder();
    void lineIsFormatted_data();
    void lineIsFormatted();
    void numbersAndTextsAreFormatted();
    void emptyFormatWritesOneLineBreak_data();
    void emptyFormatWritesOneLineBreak();
    void longLineIsCut_data();
    void longLineIsCut();
    void lineIsCutInBytes_data();
    void lineIsCutInBytes();
    void cutInsideACharacterDropsThatCharacter();
    void longFormatIsCutToo();
    void cutLinesDoNotRunIntoEachOther();
    void linesAreAppended();
    void eachCallFindsTheFolderAnew();
    void missingFolderIsSilent();
    void modelEventIsALocationLineAndAnEmptyLine();
    void modelEventsFollowEachOther();

    void copyIsMadeAbove8191Bytes_data();
    void copyIsMadeAbove8191Bytes();
    void everyLaterCallCopiesTheWholeLogAgain();
    void logItselfIsNeverShortened();
    void smallLogLeavesAnOldCopyAlone();
    void linkInPlaceOfTheCopyIsReplaced_data();
    void linkInPlaceOfTheCopyIsReplaced();
    void folderInPlaceOfTheCopyStays_data();
    void folderInPlaceOfTheCopyStays();
    void fifoInPlaceOfTheCopyIsReplaced();

    void linkToAFileIsRefused_data();
    void linkToAFileIsRefused();
    void danglingLinkIsRefused();
    void linkToAFolderIsRefused();
    void fifoWithoutReaderIsRefusedAtOnce();
    void fifoWithReaderGetsNothing();
    void folderIsRefused();
    void socketIsRefused();
    void emptyFileIsWritten();
    void refusedPathIsUsedAgainOnceItIsFree();
    void noDescriptorStaysOpen_data();
    void noDescriptorStaysOpen();

    void withoutApplicationNothingIsWritten_data();
    void withoutApplicationNothingIsWritten();
    void logIsNamedAfterTheExecutable_data();
    void logIsNamedAfterTheExecutable();
    void copyOfANameWithDigitsReplacesTheLastOne();
    void twoProcessesOfOneNameShareTheLog();
};

void TstLog::init()
{
    removeWhatever(logcapture::logPath());
    removeWhatever(logcapture::previousLogPath());
}

void TstLog::logStandsInTheTemporaryFolder()
{
    WriteLog(QStringLiteral("text"));

    QCOMPARE(QDir(temporaryFolder()).entryList(QDir::Files), QStringList{"tst_log.1.log"});
    QCOMPARE(contents(temporaryFolder() + QStringLiteral("/tst_log.1.log")), QByteArray("text\n"));
}

void TstLog::lineIsFormatted_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("line");

    QTest::newRow("plain") << "plain" << QByteArray("plain\n");
    QTest::newRow("percent sign") << "100%%" << QByteArray("100%\n");
    QTest::newRow("blank") << " " << QByteArray(" \n");
    QTest::newRow("line break") << "a\nb" << QByteArray("a\nb\n");
    QTest::newRow("own line break at the end") << "a\n" << QByteArray("a\n\n");
    QTest::newRow("tab") << "a\tb" << QByteArray("a\tb\n");
    QTest::newRow("carriage return") << "a\r" << QByteArray("a\r\n");
    QTest::newRow("beyond ASCII") << QString::fromUtf8("Gr\xC3\xB6\xC3\x9F"
                                                       "e")
                                  << QByteArray("Gr\xC3\xB6\xC3\x9F"
                                                "e\n");
    QTest::newRow("null character ends the format") << QString::fromLatin1("ab\0cd", 5) << QByteArray("ab\n");
}

void TstLog::lineIsFormatted()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, line);

    WriteLog(format);

    QCOMPARE(contents(logcapture::logPath()), line);
}

void TstLog::numbersAndTextsAreFormatted()
{
    WriteLog(QStringLiteral("%s(%d) : %s %08x"), "zoeffectmodel", 25, "2024/02/29 23:59:59", 0);
    WriteLog(QStringLiteral("%08x|%5d|%-5d|%c|%u"), 0xbeef, -42, 42, 'z', 4000000000U);
    WriteLog(QStringLiteral("%s%s"), "", "end");
    WriteLog(QStringLiteral("%s"), "100% %d");

    QCOMPARE(contents(logcapture::logPath()), QByteArray("zoeffectmodel(25) : 2024/02/29 23:59:59 00000000\n"
                                                         "0000beef|  -42|42   |z|4000000000\n"
                                                         "end\n"
                                                         "100% %d\n"));
}

void TstLog::emptyFormatWritesOneLineBreak_data()
{
    QTest::addColumn<QString>("format");

    QTest::newRow("empty") << QString("");
    QTest::newRow("null") << QString();
}

void TstLog::emptyFormatWritesOneLineBreak()
{
    QFETCH(QString, format);

    WriteLog(format);
    QCOMPARE(contents(logcapture::logPath()), QByteArray("\n"));
    WriteLog(format);
    QCOMPARE(contents(logcapture::logPath()), QByteArray("\n\n"));
}

void TstLog::longLineIsCut_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("written");

    QTest::newRow("one below the limit") << 1022 << 1022;
    QTest::newRow("limit") << 1023 << 1023;
    QTest::newRow("one above the limit") << 1024 << 1023;
    QTest::newRow("two above the limit") << 1025 << 1023;
    QTest::newRow("twice the limit") << 2046 << 1023;
    QTest::newRow("far above the limit") << 1000000 << 1023;
}

void TstLog::longLineIsCut()
{
    QFETCH(int, length);
    QFETCH(int, written);

    WriteLog(QStringLiteral("%s"), QByteArray(length, 'x').constData());

    const QByteArray line = contents(logcapture::logPath());
    QCOMPARE(line.size(), written + 1);
    QVERIFY(line == QByteArray(written, 'x') + '\n');
}

void TstLog::lineIsCutInBytes_data()
{
    QTest::addColumn<int>("letters");
    QTest::addColumn<int>("written");

    // Two bytes a letter, after one byte of its own.
    QTest::newRow("at the limit") << 511 << 511;
    QTest::newRow("one letter too many") << 512 << 511;
    QTest::newRow("far above the limit") << 1023 << 511;
}

void TstLog::lineIsCutInBytes()
{
    QFETCH(int, letters);
    QFETCH(int, written);
    const QByteArray letter = "\xC3\xA9";

    WriteLog(QStringLiteral("%s"), QByteArray("x" + letter.repeated(letters)).constData());

    const QByteArray line = contents(logcapture::logPath());
    QVERIFY(line == "x" + letter.repeated(written) + "\n");
}

void TstLog::cutInsideACharacterDropsThatCharacter()
{
    const QByteArray letter = "\xC3\xA9";

    // 1022 bytes, then two of which only the first fits.
    WriteLog(QStringLiteral("%s"), QByteArray(QByteArray(1022, 'x') + letter + "after").constData());

    const QByteArray line = contents(logcapture::logPath());
    QVERIFY(line.startsWith(QByteArray(1022, 'x')));
    QVERIFY(!line.contains(letter));
    QVERIFY(!line.contains("after"));
    QCOMPARE(line.count('\n'), 1);
    QVERIFY(line.endsWith('\n'));
}

void TstLog::longFormatIsCutToo()
{
    WriteLog(QString(1020, QLatin1Char('f')) + QStringLiteral("%d"), 123456);

    QVERIFY(contents(logcapture::logPath()) == QByteArray(1020, 'f') + "123\n");
}

void TstLog::cutLinesDoNotRunIntoEachOther()
{
    WriteLog(QStringLiteral("%s"), QByteArray(2000, 'x').constData());
    WriteLog(QStringLiteral("short"));
    WriteLog(QLatin1String(""));

    QVERIFY(contents(logcapture::logPath()) == QByteArray(1023, 'x') + "\nshort\n\n");
}

void TstLog::linesAreAppended()
{
    write(logcapture::logPath(), "before, without line break");

    WriteLog(QStringLiteral("first"));
    WriteLog(QStringLiteral("second"));

    QCOMPARE(contents(logcapture::logPath()), QByteArray("before, without line breakfirst\nsecond\n"));
}

void TstLog::eachCallFindsTheFolderAnew()
{
    const QByteArray folder = qgetenv("TMPDIR");
    const QString other = temporaryFolder() + QStringLiteral("/other 1");
    QVERIFY(QDir().mkpath(other));

    WriteLog(QStringLiteral("here"));
    qputenv("TMPDIR", QFile::encodeName(other));
    write(other + QStringLiteral("/tst_log.1.log"), QByteArray(9000, 'x'));
    WriteLog(QStringLiteral("there"));
    qputenv("TMPDIR", folder);
    WriteLog(QStringLiteral("here again"));

    QCOMPARE(contents(logcapture::logPath()), QByteArray("here\nhere again\n"));
    QVERIFY(contents(other + QStringLiteral("/tst_log.1.log")) == QByteArray(9000, 'x') + "there\n");
    // The digit in the folder's name stays.
    QCOMPARE(QDir(other).entryList(QDir::Files), QStringList({"tst_log.1.log", "tst_log.2.log"}));
    QDir(other).removeRecursively();
}

void TstLog::missingFolderIsSilent()
{
    const QByteArray folder = qgetenv("TMPDIR");
    const QString missing = temporaryFolder() + QStringLiteral("/missing");

    qputenv("TMPDIR", QFile::encodeName(missing));
    WriteLog(QStringLiteral("lost"));
    qputenv("TMPDIR", folder);

    QVERIFY(!standsAnythingAt(missing));
    QVERIFY(!standsAnythingAt(logcapture::logPath()));
}

void TstLog::modelEventIsALocationLineAndAnEmptyLine()
{
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    ZoEffectModel::InitEffectModel(nullptr);
    const QDateTime after = QDateTime::currentDateTime();

    const QString log = QString::fromLatin1(contents(logcapture::logPath()));
    const QRegularExpression event(
        QStringLiteral("\\Azoeffectmodel\\(25\\) : (\\d{4}/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d) 00000000\\n\\n\\z"));
    const QRegularExpressionMatch match = event.match(log);
    QVERIFY2(match.hasMatch(), qPrintable(log));
    const QDateTime time = QDateTime::fromString(match.captured(1), QStringLiteral("yyyy/MM/dd hh:mm:ss"));
    QVERIFY(time.isValid());
    QVERIFY(time >= before);
    QVERIFY(time <= after);
}

void TstLog::modelEventsFollowEachOther()
{
    ZoEffectModel::InitEffectModel(nullptr);
    ZoEffectModel model;
    model.InitSubItemData(nullptr, nullptr);
    ZoEffectModel::InitEffectModel(nullptr);

    QCOMPARE(contents(logcapture::logPath()).count('\n'), 6);
    QCOMPARE(logcapture::takeEvents(), QList<int>({25, 422, 25}));
}

void TstLog::copyIsMadeAbove8191Bytes_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("text");
    QTest::addColumn<bool>("copied");

    QTest::newRow("8190 by an empty line") << 8189 << 0 << false;
    QTest::newRow("8191 by an empty line") << 8190 << 0 << false;
    QTest::newRow("8192 by an empty line") << 8191 << 0 << true;
    QTest::newRow("8193 by an empty line") << 8192 << 0 << true;
    QTest::newRow("8191 by a line") << 8000 << 190 << false;
    QTest::newRow("8192 by a line") << 8000 << 191 << true;
    QTest::newRow("8191 by a whole buffer") << 7167 << 1023 << false;
    QTest::newRow("8192 by a whole buffer") << 7168 << 1023 << true;
    QTest::newRow("far above before") << 100000 << 5 << true;
}

void TstLog::copyIsMadeAbove8191Bytes()
{
    QFETCH(int, before);
    QFETCH(int, text);
    QFETCH(bool, copied);
    write(logcapture::logPath(), QByteArray(before, 'b'));

    WriteLog(QStringLiteral("%s"), QByteArray(text, 't').constData());

    const QByteArray whole = QByteArray(before, 'b') + QByteArray(text, 't') + '\n';
    QVERIFY(contents(logcapture::logPath()) == whole);
    QCOMPARE(standsAnythingAt(logcapture::previousLogPath()), copied);
    QVERIFY(!copied || contents(logcapture::previousLogPath()) == whole);
}

void TstLog::everyLaterCallCopiesTheWholeLogAgain()
{
    write(logcapture::logPath(), QByteArray(8191, 'b'));

    WriteLog(QStringLiteral("first"));
    QVERIFY(contents(logcapture::previousLogPath()) == QByteArray(8191, 'b') + "first\n");
    WriteLog(QLatin1String(""));
    QVERIFY(contents(logcapture::previousLogPath()) == QByteArray(8191, 'b') + "first\n\n");

    // The copy is made anew, whatever stands there by now.
    write(logcapture::previousLogPath(), QByteArray(50000, 'o'));
    WriteLog(QStringLiteral("third"));
    QVERIFY(contents(logcapture::previousLogPath()) == QByteArray(8191, 'b') + "first\n\nthird\n");

    QFile::remove(logcapture::previousLogPath());
    WriteLog(QStringLiteral("fourth"));
    QVERIFY(contents(logcapture::previousLogPath()) == QByteArray(8191, 'b') + "first\n\nthird\nfourth\n");
}

void TstLog::logItselfIsNeverShortened()
{
    const QByteArray line(100, 'x');
    for (int i = 1; i <= 200; ++i) {
        WriteLog(QStringLiteral("%s"), line.constData());
        QCOMPARE(QFileInfo(logcapture::logPath()).size(), qint64(101) * i);
    }
    QVERIFY(contents(logcapture::logPath()) == QByteArray(line + '\n').repeated(200));
    QVERIFY(contents(logcapture::previousLogPath()) == QByteArray(line + '\n').repeated(200));
}

void TstLog::smallLogLeavesAnOldCopyAlone()
{
    write(logcapture::previousLogPath(), "old copy");

    WriteLog(QStringLiteral("text"));

    QCOMPARE(contents(logcapture::previousLogPath()), QByteArray("old copy"));
}

void TstLog::linkInPlaceOfTheCopyIsReplaced_data()
{
    QTest::addColumn<bool>("dangling");

    QTest::newRow("link to a file") << false;
    QTest::newRow("dangling link") << true;
}

void TstLog::linkInPlaceOfTheCopyIsReplaced()
{
    QFETCH(bool, dangling);
    const QString victim = temporaryFolder() + QStringLiteral("/victim");
    if (!dangling)
        write(victim, "precious");
    QVERIFY(QFile::link(victim, logcapture::previousLogPath()));
    write(logcapture::logPath(), QByteArray(8191, 'b'));

    WriteLog(QStringLiteral("text"));

    QCOMPARE(standsAnythingAt(victim), !dangling);
    QVERIFY(dangling || contents(victim) == "precious");
    QVERIFY(!QFileInfo(logcapture::previousLogPath()).isSymLink());
    QVERIFY(contents(logcapture::previousLogPath()) == QByteArray(8191, 'b') + "text\n");
    QFile::remove(victim);
}

void TstLog::folderInPlaceOfTheCopyStays_data()
{
    QTest::addColumn<bool>("empty");

    QTest::newRow("empty folder") << true;
    QTest::newRow("folder with a file") << false;
}

void TstLog::folderInPlaceOfTheCopyStays()
{
    QFETCH(bool, empty);
    QVERIFY(QDir().mkpath(logcapture::previousLogPath()));
    if (!empty)
        write(logcapture::previousLogPath() + QStringLiteral("/file"), "precious");
    write(logcapture::logPath(), QByteArray(8191, 'b'));

    WriteLog(QStringLiteral("first"));
    WriteLog(QStringLiteral("second"));

    QVERIFY(contents(logcapture::logPath()) == QByteArray(8191, 'b') + "first\nsecond\n");
    QVERIFY(QFileInfo(logcapture::previousLogPath()).isDir());
    QCOMPARE(QDir(logcapture::previousLogPath()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             empty ? QStringList() : QStringList{"file"});
}

void TstLog::fifoInPlaceOfTheCopyIsReplaced()
{
    QCOMPARE(::mkfifo(QFile::encodeName(logcapture::previousLogPath()).constData(), 0600), 0);
    write(logcapture::logPath(), QByteArray(8191, 'b'));

    WriteLog(QStringLiteral("text"));

    QVERIFY(QFileInfo(logcapture::previousLogPath()).isFile());
    QVERIFY(contents(logcapture::previousLogPath()) == QByteArray(8191, 'b') + "text\n");
}

void TstLog::linkToAFileIsRefused_data()
{
    QTest::addColumn<int>("size");

    QTest::newRow("empty file") << 0;
    QTest::newRow("small file") << 100;
    QTest::newRow("file large enough to be copied") << 9000;
}

void TstLog::linkToAFileIsRefused()
{
    QFETCH(int, size);
    const QString victim = temporaryFolder() + QStringLiteral("/victim");
    write(victim, QByteArray(size, 'v'));
    QVERIFY(QFile::link(victim, logcapture::logPath()));

    WriteLog(QStringLiteral("text"));

    QVERIFY(contents(victim) == QByteArray(size, 'v'));
    QVERIFY(QFileInfo(logcapture::logPath()).isSymLink());
    QVERIFY(!standsAnythingAt(logcapture::previousLogPath()));
    QFile::remove(victim);
}

void TstLog::danglingLinkIsRefused()
{
    const QString victim = temporaryFolder() + QStringLiteral("/victim");
    QVERIFY(QFile::link(victim, logcapture::logPath()));

    WriteLog(QStringLiteral("text"));

    QVERIFY(!standsAnythingAt(victim));
    QVERIFY(QFileInfo(logcapture::logPath()).isSymLink());
}

void TstLog::linkToAFolderIsRefused()
{
    const QString folder = temporaryFolder() + QStringLiteral("/folder");
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(QFile::link(folder, logcapture::logPath()));

    WriteLog(QStringLiteral("text"));

    QVERIFY(QFileInfo(logcapture::logPath()).isSymLink());
    QVERIFY(QDir(folder).isEmpty());
    QDir().rmdir(folder);
}

void TstLog::fifoWithoutReaderIsRefusedAtOnce()
{
    QCOMPARE(::mkfifo(QFile::encodeName(logcapture::logPath()).constData(), 0600), 0);

    // In a process of its own: a call that waits for a reader would wait for ever.
    QElapsedTimer timer;
    timer.start();
    QVERIFY(runScenario(QCoreApplication::applicationFilePath(), QStringLiteral("write")));
    QVERIFY(timer.elapsed() < 10000);

    struct stat status = {};
    QCOMPARE(::lstat(QFile::encodeName(logcapture::logPath()).constData(), &status), 0);
    QVERIFY(S_ISFIFO(status.st_mode));
    QVERIFY(!standsAnythingAt(logcapture::previousLogPath()));
}

void TstLog::fifoWithReaderGetsNothing()
{
    const QByteArray path = QFile::encodeName(logcapture::logPath());
    QCOMPARE(::mkfifo(path.constData(), 0600), 0);
    const int reader = ::open(path.constData(), O_RDONLY | O_NONBLOCK);
    QVERIFY(reader >= 0);

    WriteLog(QStringLiteral("text"));

    char byte = 0;
    QCOMPARE(static_cast<int>(::read(reader, &byte, 1)), 0); // The end: nothing came, and nobody writes.
    ::close(reader);
    QVERIFY(!standsAnythingAt(logcapture::previousLogPath()));
}

void TstLog::folderIsRefused()
{
    QVERIFY(QDir().mkpath(logcapture::logPath()));

    WriteLog(QStringLiteral("text"));

    QVERIFY(QFileInfo(logcapture::logPath()).isDir());
    QVERIFY(QDir(logcapture::logPath()).isEmpty());
    QVERIFY(!standsAnythingAt(logcapture::previousLogPath()));
}

void TstLog::socketIsRefused()
{
    // The name of a socket is short: bound beside the log, then moved there.
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(temporaryFolder()));
    const int listener = ::socket(AF_UNIX, SOCK_STREAM, 0);
    QVERIFY(listener >= 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, "socket", sizeof(address.sun_path));
    QCOMPARE(::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    QCOMPARE(std::rename("socket", QFile::encodeName(logcapture::logPath()).constData()), 0);
    QVERIFY(QDir::setCurrent(before));

    WriteLog(QStringLiteral("text"));

    ::close(listener);
    struct stat status = {};
    QCOMPARE(::lstat(QFile::encodeName(logcapture::logPath()).constData(), &status), 0);
    QVERIFY(S_ISSOCK(status.st_mode));
}

void TstLog::emptyFileIsWritten()
{
    write(logcapture::logPath(), QByteArray());

    WriteLog(QStringLiteral("text"));

    QCOMPARE(contents(logcapture::logPath()), QByteArray("text\n"));
}

void TstLog::refusedPathIsUsedAgainOnceItIsFree()
{
    QVERIFY(QDir().mkpath(logcapture::logPath()));
    WriteLog(QStringLiteral("lost"));
    removeWhatever(logcapture::logPath());

    WriteLog(QStringLiteral("text"));

    QCOMPARE(contents(logcapture::logPath()), QByteArray("text\n"));
}

void TstLog::noDescriptorStaysOpen_data()
{
    QTest::addColumn<QString>("place");

    QTest::newRow("file") << "file";
    QTest::newRow("large file") << "large file";
    QTest::newRow("link") << "link";
    QTest::newRow("folder") << "folder";
    QTest::newRow("FIFO with a reader") << "fifo";
}

void TstLog::noDescriptorStaysOpen()
{
    QFETCH(QString, place);
    const QByteArray path = QFile::encodeName(logcapture::logPath());
    int reader = -1;
    if (place == QLatin1String("large file")) {
        write(logcapture::logPath(), QByteArray(9000, 'x'));
    } else if (place == QLatin1String("link")) {
        QVERIFY(QFile::link(temporaryFolder() + QStringLiteral("/victim"), logcapture::logPath()));
    } else if (place == QLatin1String("folder")) {
        QVERIFY(QDir().mkpath(logcapture::logPath()));
    } else if (place == QLatin1String("fifo")) {
        QCOMPARE(::mkfifo(path.constData(), 0600), 0);
        reader = ::open(path.constData(), O_RDONLY | O_NONBLOCK);
        QVERIFY(reader >= 0);
    }

    WriteLog(QStringLiteral("text"));
    const int before = openDescriptors();
    for (int i = 0; i < 20; ++i)
        WriteLog(QStringLiteral("text"));
    const int after = openDescriptors();
    if (reader >= 0)
        ::close(reader);

    QVERIFY(before > 2);
    QCOMPARE(after, before);
}

void TstLog::withoutApplicationNothingIsWritten_data()
{
    QTest::addColumn<QString>("scenario");

    QTest::newRow("never an application") << "no application";
    QTest::newRow("application gone") << "after the application";
}

void TstLog::withoutApplicationNothingIsWritten()
{
    QFETCH(QString, scenario);

    QVERIFY(runScenario(QCoreApplication::applicationFilePath(), scenario));
    QCOMPARE(QDir(temporaryFolder()).entryList(QDir::Files), QStringList());

    // The same program with an application writes.
    QVERIFY(runScenario(QCoreApplication::applicationFilePath(), QStringLiteral("write")));
    QCOMPARE(contents(logcapture::logPath()), QByteArray("text 5\n"));
}

void TstLog::logIsNamedAfterTheExecutable_data()
{
    QTest::addColumn<QString>("executable");

    QTest::newRow("plain") << "Converter";
    QTest::newRow("digits and dots") << "Converter 11.1";
    QTest::newRow("percent signs") << "100%s%n";
    QTest::newRow("ends like a log") << "a.1.log";
    QTest::newRow("beyond ASCII") << QString::fromUtf8("Gr\xC3\xB6\xC3\x9F"
                                                       "e");
}

void TstLog::logIsNamedAfterTheExecutable()
{
    QFETCH(QString, executable);
    const QString folder = temporaryFolder() + QStringLiteral("/programs 1");
    QVERIFY(QDir().mkpath(folder));
    const QString program = folder + QLatin1Char('/') + executable;
    QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), program));

    QVERIFY(runScenario(program, QStringLiteral("write")));

    const QString log = executable + QStringLiteral(".1.log");
    QCOMPARE(QDir(temporaryFolder()).entryList(QDir::Files), QStringList{log});
    QCOMPARE(contents(temporaryFolder() + QLatin1Char('/') + log), QByteArray("text 5\n"));
    QFile::remove(temporaryFolder() + QLatin1Char('/') + log);
    QDir(folder).removeRecursively();
}

void TstLog::copyOfANameWithDigitsReplacesTheLastOne()
{
    const QString folder = temporaryFolder() + QStringLiteral("/programs 1");
    QVERIFY(QDir().mkpath(folder));
    const QString program = folder + QStringLiteral("/Player 1.1");
    QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), program));

    QVERIFY(runScenario(program, QStringLiteral("write much")));

    const QStringList logs = QDir(temporaryFolder()).entryList(QDir::Files, QDir::Name);
    QCOMPARE(logs, QStringList({"Player 1.1.1.log", "Player 1.1.2.log"}));
    const QByteArray whole = QByteArray(1023, 'x') + '\n' + QByteArray(QByteArray(1023, 'y') + '\n').repeated(8);
    for (const QString& log : logs) {
        QVERIFY(contents(temporaryFolder() + QLatin1Char('/') + log) == whole);
        QFile::remove(temporaryFolder() + QLatin1Char('/') + log);
    }
    QDir(folder).removeRecursively();
}

void TstLog::twoProcessesOfOneNameShareTheLog()
{
    WriteLog(QStringLiteral("here"));
    QVERIFY(runScenario(QCoreApplication::applicationFilePath(), QStringLiteral("write")));
    WriteLog(QStringLiteral("here again"));

    QCOMPARE(contents(logcapture::logPath()), QByteArray("here\ntext 5\nhere again\n"));
}

int main(int argc, char** argv)
{
    qputenv("LC_ALL", "C.UTF-8"); // Texts beyond ASCII are UTF-8 in the log, wherever the tests run.
    if (argc == 3 && qstrcmp(argv[1], "scenario") == 0)
        return playScenario(argv[2], argc, argv);
    const TestFolders folders;
    TestApplication application(argc, argv);
    TstLog test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_log.moc"
