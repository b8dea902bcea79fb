// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The log as a file: who may read it, and a disk that is full.

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>

#include <QFile>
#include <QtTest>

#include <writelog.h>

#include "logcapture.h"
#include "testapplication.h"

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

bool write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

int modeOf(const QString& path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return -1;
    return static_cast<int>(status.st_mode & 07777);
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

} // namespace

class TstLogFile : public QObject {
    Q_OBJECT

private slots:
    void logAndCopyAreForAllThatTheMaskAllows_data();
    void logAndCopyAreForAllThatTheMaskAllows();
    void lineThatDoesNotFitLeavesLogAndCopyAsTheyAre_data();
    void lineThatDoesNotFitLeavesLogAndCopyAsTheyAre();
    void lineThatJustFitsIsCopiedToo();
};

void TstLogFile::logAndCopyAreForAllThatTheMaskAllows_data()
{
    QTest::addColumn<int>("mask");
    QTest::addColumn<int>("mode");
    QTest::newRow("no mask") << 0 << 0666;
    QTest::newRow("usual mask") << 0022 << 0644;
    QTest::newRow("for the user alone") << 0077 << 0600;
}

void TstLogFile::logAndCopyAreForAllThatTheMaskAllows()
{
    QFETCH(int, mask);
    QFETCH(int, mode);
    QFile::remove(logcapture::logPath());
    const mode_t maskBefore = ::umask(static_cast<mode_t>(mask));
    for (int line = 0; line < 9; ++line) // The ninth makes the log large enough for a copy.
        WriteLog(QStringLiteral("%s"), QByteArray(1000, 'x').constData());
    ::umask(maskBefore);
    QCOMPARE(modeOf(logcapture::logPath()), mode);
    QCOMPARE(modeOf(logcapture::previousLogPath()), mode);
}

void TstLogFile::lineThatDoesNotFitLeavesLogAndCopyAsTheyAre_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("small log") << 100;
    QTest::newRow("log that is copied") << 12000;
    QTest::newRow("log of several pieces") << 200000;
}

void TstLogFile::lineThatDoesNotFitLeavesLogAndCopyAsTheyAre()
{
    QFETCH(int, size);
    const QByteArray log(size, 'x');
    QVERIFY(write(logcapture::logPath(), log));
    QVERIFY(write(logcapture::previousLogPath(), "the copy before"));
    {
        const FileSizeLimit limit(static_cast<rlim_t>(size));
        WriteLog(QStringLiteral("lost"));
    }
    QCOMPARE(contents(logcapture::logPath()), log);
    QCOMPARE(contents(logcapture::previousLogPath()), QByteArray("the copy before"));
}

void TstLogFile::lineThatJustFitsIsCopiedToo()
{
    const QByteArray log(200000, 'x');
    QVERIFY(write(logcapture::logPath(), log));
    {
        const FileSizeLimit limit(200006);
        WriteLog(QStringLiteral("added"));
    }
    QCOMPARE(contents(logcapture::logPath()), log + "added\n");
    QCOMPARE(contents(logcapture::previousLogPath()), log + "added\n");
}

ZOEFFECT_TEST_MAIN(TstLogFile)

#include "tst_logfile.moc"
