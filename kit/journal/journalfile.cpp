// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "journalfile_p.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace zokit::journalfile {

namespace {

constexpr qint64 largest = qint64(256) * 1024 * 1024;

/// Closes \a file and keeps errno.
void closeQuietly(int file)
{
    const int error = errno;
    ::close(file);
    errno = error;
}

} // namespace

QString folderOr(const QString& folder)
{
    if (!folder.isEmpty())
        return folder;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/zoeffect/journal");
}

int openLocked(const QString& path, int flags, int lock)
{
    const int file = ::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    if (file < 0)
        return -1;
    struct stat status = {};
    if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode)) {
        if (::flock(file, lock | LOCK_NB) == 0)
            return file;
    } else {
        errno = EINVAL;
    }
    closeQuietly(file);
    return -1;
}

int openNew(const QString& folder, QString& path)
{
    constexpr int numbers = 100000; // Far more than one process has sessions.
    QDir().mkpath(folder);
    for (int number = 0; number < numbers; ++number) {
        path = QDir(folder).filePath(QStringLiteral("%1-%2").arg(::getpid()).arg(number) + ending);
        const int file = openLocked(path, O_RDWR | O_CREAT | O_EXCL | O_APPEND, LOCK_EX);
        if (file >= 0 || errno != EEXIST)
            return file;
    }
    return -1;
}

QByteArray read(int file)
{
    QFile opened;
    if (::lseek(file, 0, SEEK_SET) != 0 || !opened.open(file, QIODevice::ReadOnly, QFileDevice::DontCloseHandle))
        return QByteArray();
    return opened.read(std::min(opened.size(), largest)); // QFile makes room for all that it may read.
}

bool write(int file, const QByteArray& text)
{
    qint64 written = 0;
    while (written < text.size()) {
        const ssize_t now = ::write(file, text.constData() + written, static_cast<std::size_t>(text.size() - written));
        if (now < 0 && errno == EINTR)
            continue;
        if (now <= 0)
            return false;
        written += now;
    }
    return true;
}

bool isRemoved(int file)
{
    struct stat status = {};
    return ::fstat(file, &status) == 0 && status.st_nlink == 0;
}

void appendUnnoticed(int file, const QByteArray& text)
{
    struct stat status = {};
    if (::fstat(file, &status) != 0)
        return;
    char last = '\n';
    const bool isOpenLine = status.st_size > 0 && ::pread(file, &last, 1, status.st_size - 1) == 1 && last != '\n';
    write(file, (isOpenLine ? QByteArray("\n") : QByteArray()) + text);
    const std::array times{status.st_atim, status.st_mtim};
    if (::futimens(file, times.data()) != 0)
        return; // Then it counts as changed now.
}

int replace(const QString& path, const QByteArray& text)
{
    const QString beside = path + newEnding;
    QFile::remove(beside); // Of a process that was killed here.
    const int file = openLocked(beside, O_RDWR | O_CREAT | O_EXCL | O_APPEND, LOCK_EX);
    if (file < 0)
        return -1;
    const QByteArray from = QFile::encodeName(beside);
    const QByteArray to = QFile::encodeName(path);
    if (write(file, text) && std::rename(from.constData(), to.constData()) == 0)
        return file;
    closeQuietly(file);
    const int error = errno;
    QFile::remove(beside);
    errno = error;
    return -1;
}

} // namespace zokit::journalfile
