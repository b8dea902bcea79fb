// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "writelog.h"

#include <cerrno>
#include <cstdarg>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTextStream>

#include "logpaths_p.h"

namespace {

constexpr std::size_t lineBufferSize = 1024;
constexpr qint64 largestUncopiedLog = 8191;
constexpr mode_t anyoneReadsAndWrites = 0666; // As far as the user's mask allows.
constexpr qint64 copiedPiece = 65536;

QString executablePath()
{
    return QCoreApplication::instance() ? QCoreApplication::applicationFilePath() : QString();
}

/// Opens the regular file at \a path with \a flags of open(2). Whatever stands there may have been put there by
/// somebody else, since the folder is public: a symbolic link is not followed, a FIFO does not block, and only
/// a regular file is accepted.
bool openRegularFile(QFile& file, const QString& path, int flags, QIODevice::OpenMode mode)
{
    const QByteArray name = QFile::encodeName(path);
    int descriptor = -1;
    do {
        descriptor = ::open(name.constData(), flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, anyoneReadsAndWrites);
    } while (descriptor < 0 && errno == EINTR);
    if (descriptor < 0)
        return false;

    struct stat status = {};
    const bool regular = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    if (!regular || !file.open(descriptor, mode, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return false;
    }
    return true;
}

bool copied(QFile& source, QFile& copy)
{
    // Not until atEnd(), which takes a file whose size it cannot learn for empty.
    for (;;) {
        const QByteArray piece = source.read(copiedPiece);
        if (piece.isEmpty())
            return source.error() == QFileDevice::NoError && copy.flush();
        if (copy.write(piece) != piece.size())
            return false;
    }
}

/// Copies the file at \a from to \a target, in place of what is there; no copy is left when that fails.
void replaceByCopy(const QString& from, const QString& target)
{
    QFile source;
    QFile copy;
    QFile::remove(target);
    if (!openRegularFile(source, from, O_RDONLY, QIODevice::ReadOnly))
        return;
    if (!openRegularFile(copy, target, O_WRONLY | O_CREAT | O_EXCL, QIODevice::WriteOnly) || !copied(source, copy))
        QFile::remove(target);
}

} // namespace

// NOLINTNEXTLINE(cert-dcl50-cpp,performance-unnecessary-value-param): the signature is the interface's.
void WriteLog(QString format, ...)
{
    char line[lineBufferSize] = {};
    va_list arguments;
    va_start(arguments, format);
    qvsnprintf(line, lineBufferSize, format.toLocal8Bit().constData(), arguments);
    va_end(arguments);

    const std::optional<LogPaths> paths = logPaths(executablePath(), QDir::tempPath());
    if (!paths)
        return;

    QFile file;
    if (!openRegularFile(file, paths->current, O_WRONLY | O_APPEND | O_CREAT, QIODevice::WriteOnly | QIODevice::Append))
        return;
    {
        QTextStream stream(&file);
        stream << QString::fromLocal8Bit(line) << QLatin1Char('\n');
    }
    const qint64 size = file.size();
    file.close();

    // Deliberate: the log is never shortened. Once it is large, every call copies it whole, so that the
    // copy is always recent.
    if (size > largestUncopiedLog)
        replaceByCopy(paths->current, paths->previous);
}
