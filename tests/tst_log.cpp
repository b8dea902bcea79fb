// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The diagnostic log: what a line looks like, where it goes, when the file is copied, and what is refused.

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

#include <writelog.h>
#include <zoeffectmodel.h>

#include "logcapture.h"
#include "rows.h"
#include "testapplication.h"

namespace {

QString temporaryFile(const QString& name)
{
    return QDir::tempPath() + '/' + name;
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

QByteArray log()
{
    return contents(logcapture::logPath());
}

QByteArray copy()
{
    return contents(logcapture::previousLogPath());
}

void write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(path));
}

void writeLine(const QByteArray& text)
{
    WriteLog("%s", text.constData());
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

/// The kind and the permissions of what stands at \a path; 0 when there is nothing.
mode_t modeOf(const QString& path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode : 0;
}

int openDescriptors()
{
    return int(QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size());
}

bool bindSocket(const QString& path)
{
    // The name of a socket is short: bound in its folder.
    const QString before = QDir::currentPath();
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, "socket", sizeof(address.sun_path));
    const int listener = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const bool bound = QDir::setCurrent(QFileInfo(path).path())
                       && ::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0
                       && std::rename("socket", QFile::encodeName(path).constData()) == 0;
    ::close(listener);
    return bound && QDir::setCurrent(before);
}

/// Puts something that is no regular file at \a path; links lead to "victim".
bool putInPlace(const QString& kind, const QString& path)
{
    const QString victim = temporaryFile("victim");
    if (kind.startsWith("link to a file"))
        write(victim, QByteArray(kind.endsWith("large") ? 9000 : 100, 'v'));
    if (kind == "link to a folder" && !QDir().mkpath(victim))
        return false;
    if (kind.contains("link"))
        return QFile::link(victim, path);
    if (kind == "FIFO")
        return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
    if (kind == "socket")
        return bindSocket(path);
    if (!QDir().mkpath(path))
        return false;
    if (kind == "full folder")
        write(path + "/file", "precious");
    return true;
}

/// While it lives, no file of this process grows beyond \a size; writing ends with an error, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t size) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = size;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*m_handler)(int);
    rlimit m_before = {};
};

/// Runs this program again as \a scenario. True when it ended by itself and well; one that waits for ever is ended.
bool runScenario(const QString& scenario, const QString& program = QCoreApplication::applicationFilePath())
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    process.start(program, {"scenario", scenario});
    const bool ended = process.waitForFinished(60000);
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

/// What the program does when it is started as a scenario.
int playScenario(const QByteArray& scenario, int& argc, char** argv)
{
    if (scenario == "after the application")
        const QCoreApplication application(argc, argv);
    if (scenario == "after the application" || scenario == "no application") {
        WriteLog("lost");
        return 0;
    }
    const QCoreApplication application(argc, argv);
    WriteLog("%s %d", "text", 5);
    if (scenario == "write much")
        writeLine(QByteArray(1023, 'x'));
    for (int i = 0; scenario == "write much" && i < 8; ++i)
        writeLine(QByteArray(1023, 'y'));
    return 0;
}

} // namespace

class TstLog : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        for (const QString& path : {logcapture::logPath(), logcapture::previousLogPath(), temporaryFile("victim")})
            removeWhatever(path);
    }

    // --- A line

    void lineIsFormatted_data()
    {
        addRows<QString, QByteArray>({
            {"plain", "plain", "plain\n"},
            {"percent sign", "100%%", "100%\n"},
            {"empty", "", "\n"},
            {"null", QString(), "\n"},
            {"line break", "a\nb\n", "a\nb\n\n"},
            {"carriage return", "a\t\r", "a\t\r\n"},
            {"beyond ASCII", QString::fromUtf8("Gr\xC3\xB6\xC3\x9F"), "Gr\xC3\xB6\xC3\x9F\n"},
            {"null character ends the format", QString::fromLatin1("ab\0cd", 5), "ab\n"},
        });
    }

    void lineIsFormatted()
    {
        const auto [format, line] = row<QString, QByteArray>();
        WriteLog(format);
        QCOMPARE(log(), line);
        QCOMPARE(QDir(QDir::tempPath()).entryList(QDir::Files), QStringList{"tst_log.1.log"});
        WriteLog(format);
        QCOMPARE(log(), line + line);
    }

    void numbersAndTextsAreFormatted()
    {
        write(logcapture::logPath(), "before, without line break");
        WriteLog("%s(%d) : %s %08x", "zoeffectmodel", 25, "2024/02/29 23:59:59", 0);
        WriteLog("%08x|%5d|%-5d|%c|%u", 0xbeef, -42, 42, 'z', 4000000000U);
        WriteLog("%s%s", "", "end");
        WriteLog("%s", "100% %d");
        QCOMPARE(log(), QByteArray("before, without line breakzoeffectmodel(25) : 2024/02/29 23:59:59 00000000\n"
                                   "0000beef|  -42|42   |z|4000000000\n"
                                   "end\n"
                                   "100% %d\n"));
    }

    void longLineIsCut_data()
    {
        const QByteArray letter = "\xC3\xA9"; // Two bytes.
        addRows<QByteArray, QByteArray>({
            {"one below the limit", QByteArray(1022, 'x'), QByteArray(1022, 'x')},
            {"limit", QByteArray(1023, 'x'), QByteArray(1023, 'x')},
            {"one above the limit", QByteArray(1024, 'x'), QByteArray(1023, 'x')},
            {"far above the limit", QByteArray(1000000, 'x'), QByteArray(1023, 'x')},
            {"limit in bytes", "x" + letter.repeated(511), "x" + letter.repeated(511)},
            {"one letter too many", "x" + letter.repeated(512), "x" + letter.repeated(511)},
        });
    }

    void longLineIsCut()
    {
        const auto [text, written] = row<QByteArray, QByteArray>();
        writeLine(text);
        WriteLog("short");
        QVERIFY(log() == written + "\nshort\n");
        WriteLog(QString(1020, 'f') + "%d", 123456); // The format is cut, too.
        QVERIFY(log().endsWith(QByteArray(1020, 'f') + "123\n"));
    }

    void cutInsideACharacterDropsThatCharacter()
    {
        const QByteArray letter = "\xC3\xA9";
        // 1022 bytes, then two of which only the first fits.
        writeLine(QByteArray(1022, 'x') + letter + "after");
        QVERIFY(log().startsWith(QByteArray(1022, 'x')));
        QVERIFY(!log().contains(letter));
        QVERIFY(!log().contains("after"));
        QCOMPARE(log().count('\n'), 1);
        QVERIFY(log().endsWith('\n'));
    }

    void modelEventIsALocationLineAndAnEmptyLine()
    {
        const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
        ZoEffectModel::InitEffectModel(nullptr);
        const QDateTime after = QDateTime::currentDateTime();
        const QString text = QString::fromLatin1(log());
        static const QRegularExpression event(
            "\\Azoeffectmodel\\(25\\) : (\\d{4}/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d) 00000000\\n\\n\\z");
        const QRegularExpressionMatch match = event.match(text);
        QVERIFY2(match.hasMatch(), qPrintable(text));
        const QDateTime time = QDateTime::fromString(match.captured(1), "yyyy/MM/dd hh:mm:ss");
        QVERIFY(time.isValid());
        QVERIFY(time >= before);
        QVERIFY(time <= after);

        ZoEffectModel().InitSubItemData(nullptr, nullptr);
        QCOMPARE(log().count('\n'), 4);
        QCOMPARE(logcapture::takeEvents(), QList<int>({25, 422}));
    }

    // --- The folder and the name

    void eachCallFindsTheFolderAnew()
    {
        const QByteArray folder = qgetenv("TMPDIR");
        const QString other = temporaryFile("other 1");
        const QString missing = temporaryFile("missing");
        QVERIFY(QDir().mkpath(other));
        WriteLog("here");
        qputenv("TMPDIR", QFile::encodeName(other));
        write(other + "/tst_log.1.log", QByteArray(9000, 'x'));
        WriteLog("there");
        qputenv("TMPDIR", QFile::encodeName(missing));
        WriteLog("lost");
        qputenv("TMPDIR", folder);
        WriteLog("here again");

        QCOMPARE(log(), QByteArray("here\nhere again\n"));
        QVERIFY(contents(other + "/tst_log.1.log") == QByteArray(9000, 'x') + "there\n");
        // The digit in the folder's name stays.
        QCOMPARE(QDir(other).entryList(QDir::Files), QStringList({"tst_log.1.log", "tst_log.2.log"}));
        QVERIFY(!QFileInfo::exists(missing));
        removeWhatever(other);
    }

    void withoutApplicationNothingIsWritten()
    {
        for (const char* scenario : {"no application", "after the application"}) {
            QVERIFY(runScenario(scenario));
            QCOMPARE(QDir(QDir::tempPath()).entryList(QDir::Files), QStringList());
        }
        // The same program with an application writes, into the log that this one has.
        WriteLog("here");
        QVERIFY(runScenario("write"));
        WriteLog("here again");
        QCOMPARE(log(), QByteArray("here\ntext 5\nhere again\n"));
    }

    void logIsNamedAfterTheExecutable_data()
    {
        addRows<QString>({
            {"digits and dots", "Converter 11.1"},
            {"percent signs", "100%s%n"},
            {"ends like a log", "a.1.log"},
            {"beyond ASCII", QString::fromUtf8("Gr\xC3\xB6\xC3\x9F")},
        });
    }

    void logIsNamedAfterTheExecutable()
    {
        const auto [executable] = row<QString>();
        const QString folder = temporaryFile("programs 1");
        QVERIFY(QDir().mkpath(folder));
        const QString program = folder + '/' + executable;
        QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), program));
        QVERIFY(runScenario("write much", program));
        const QByteArray whole =
            "text 5\n" + QByteArray(1023, 'x') + '\n' + QByteArray(QByteArray(1023, 'y') + '\n').repeated(8);
        const QStringList logs{executable + ".1.log", executable + ".2.log"};
        QCOMPARE(QDir(QDir::tempPath()).entryList(QDir::Files, QDir::Name), logs);
        for (const QString& path : logs) {
            QVERIFY(contents(temporaryFile(path)) == whole);
            QFile::remove(temporaryFile(path));
        }
        removeWhatever(folder);
    }

    // --- The copy

    void copyIsMadeAbove8191Bytes_data()
    {
        addRows<int, int, bool>({
            {"8191 by an empty line", 8190, 0, false},
            {"8192 by an empty line", 8191, 0, true},
            {"8191 by a line", 8000, 190, false},
            {"8192 by a line", 8000, 191, true},
            {"far above before", 100000, 5, true},
        });
    }

    void copyIsMadeAbove8191Bytes()
    {
        const auto [before, text, copied] = row<int, int, bool>();
        write(logcapture::logPath(), QByteArray(before, 'b'));
        write(logcapture::previousLogPath(), "old copy");
        writeLine(QByteArray(text, 't'));
        const QByteArray whole = QByteArray(before, 'b') + QByteArray(text, 't') + '\n';
        QVERIFY(log() == whole);
        QVERIFY(copy() == (copied ? whole : QByteArray("old copy")));
    }

    void everyLaterCallCopiesTheWholeLogAgain()
    {
        write(logcapture::logPath(), QByteArray(8191, 'b'));
        WriteLog("first");
        QVERIFY(copy() == QByteArray(8191, 'b') + "first\n");
        write(logcapture::previousLogPath(), QByteArray(50000, 'o')); // Whatever stands there by now.
        WriteLog("second");
        QVERIFY(copy() == QByteArray(8191, 'b') + "first\nsecond\n");
        QFile::remove(logcapture::previousLogPath());
        WriteLog("third");
        QVERIFY(copy() == QByteArray(8191, 'b') + "first\nsecond\nthird\n");
    }

    void logItselfIsNeverShortened()
    {
        const QByteArray line(100, 'x');
        for (int i = 1; i <= 200; ++i) {
            writeLine(line);
            QCOMPARE(QFileInfo(logcapture::logPath()).size(), qint64(101) * i);
        }
        QVERIFY(log() == QByteArray(line + '\n').repeated(200));
        QVERIFY(copy() == QByteArray(line + '\n').repeated(200));
    }

    void whatStandsInPlaceOfTheCopyIsReplaced_data()
    {
        addRows<QString, bool>({
            {"link to a file", "link to a file", true},
            {"dangling link", "dangling link", true},
            {"FIFO", "FIFO", true},
            {"folder", "folder", false},
            {"folder with a file", "full folder", false},
        });
    }

    void whatStandsInPlaceOfTheCopyIsReplaced()
    {
        const auto [kind, replaced] = row<QString, bool>();
        QVERIFY(putInPlace(kind, logcapture::previousLogPath()));
        const QByteArray victim = contents(temporaryFile("victim"));
        write(logcapture::logPath(), QByteArray(8191, 'b'));
        WriteLog("text");
        QVERIFY(log() == QByteArray(8191, 'b') + "text\n");
        QCOMPARE(S_ISREG(modeOf(logcapture::previousLogPath())), replaced);
        QVERIFY(!replaced || copy() == log());
        QCOMPARE(contents(temporaryFile("victim")), victim);
        if (kind == "full folder")
            QCOMPARE(contents(logcapture::previousLogPath() + "/file"), QByteArray("precious"));
    }

    // --- What is refused, and a disk that is full

    void whatIsNoRegularFileIsRefused_data()
    {
        addRows<QString>({
            {"link to a file", "link to a file"},
            {"link to a file large enough to be copied", "link to a file, large"},
            {"link to a folder", "link to a folder"},
            {"dangling link", "dangling link"},
            {"FIFO with a reader", "FIFO"},
            {"folder", "folder"},
            {"socket", "socket"},
        });
    }

    void whatIsNoRegularFileIsRefused()
    {
        const auto [kind] = row<QString>();
        const QString path = logcapture::logPath();
        QVERIFY(putInPlace(kind, path));
        const mode_t mode = modeOf(path);
        const QByteArray victim = contents(temporaryFile("victim"));
        const int reader = kind == "FIFO" ? ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK) : -1;
        const int before = openDescriptors();
        QVERIFY(before > 2);

        for (int i = 0; i < 20; ++i)
            WriteLog("text");

        QCOMPARE(openDescriptors(), before);
        char byte = 0;
        QVERIFY(reader < 0 || ::read(reader, &byte, 1) == 0); // The end: nothing came, and nobody writes.
        ::close(reader);
        QCOMPARE(modeOf(path), mode);
        QCOMPARE(modeOf(logcapture::previousLogPath()), mode_t(0));
        QCOMPARE(contents(temporaryFile("victim")), victim);
        for (const QString& folder : {path, temporaryFile("victim")})
            QVERIFY(!QFileInfo(folder).isDir() || QDir(folder).isEmpty());

        // It is used again once it is free.
        removeWhatever(path);
        WriteLog("text");
        QCOMPARE(log(), QByteArray("text\n"));
        QCOMPARE(openDescriptors(), reader < 0 ? before : before - 1);
    }

    void fifoWithoutReaderIsNotWaitedFor()
    {
        QVERIFY(putInPlace("FIFO", logcapture::logPath()));
        QVERIFY(runScenario("write")); // In a process of its own: a call that waits would wait for ever.
        QVERIFY(S_ISFIFO(modeOf(logcapture::logPath())));
    }

    void logAndCopyAreForAllThatTheMaskAllows()
    {
        for (const mode_t mask : {mode_t(0), mode_t(0022), mode_t(0077)}) {
            init();
            const mode_t maskBefore = ::umask(mask);
            for (int line = 0; line < 9; ++line) // The ninth makes the log large enough for a copy.
                writeLine(QByteArray(1000, 'x'));
            ::umask(maskBefore);
            QCOMPARE(modeOf(logcapture::logPath()) & 07777, mode_t(0666) & ~mask);
            QCOMPARE(modeOf(logcapture::previousLogPath()) & 07777, mode_t(0666) & ~mask);
        }
    }

    void lineThatDoesNotFitLeavesLogAndCopyAsTheyAre()
    {
        for (const int size : {100, 12000, 200000}) {
            const QByteArray before(size, 'x');
            write(logcapture::logPath(), before);
            write(logcapture::previousLogPath(), "the copy before");
            {
                const FileSizeLimit limit(static_cast<rlim_t>(size));
                WriteLog("lost");
            }
            QVERIFY(log() == before);
            QCOMPARE(copy(), QByteArray("the copy before"));
        }
        {
            const FileSizeLimit limit(200006);
            WriteLog("added");
        }
        QVERIFY(log() == QByteArray(200000, 'x') + "added\n");
        QVERIFY(copy() == log());
    }
};

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
