// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "partfile_p.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSysInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace zokit {

namespace {

using Code = Message::Code;

constexpr mode_t usualMode = 0666; // What the umask leaves of it.
constexpr unsigned renameNoReplace = 1;

/// This machine, as far as letters go that any file system takes.
QString hostWord()
{
    QString word;
    for (const QChar letter : QSysInfo::machineHostName())
        if (letter.isLetterOrNumber() && letter.unicode() < 128)
            word.append(letter);
    constexpr int longest = 40;
    return word.isEmpty() ? QStringLiteral("host") : word.left(longest);
}

QString beginOf(const QString& host)
{
    return QStringLiteral(".zo-") + host + QLatin1Char('-');
}

QString randomName()
{
    return beginOf(hostWord())
           + QStringLiteral("%1.part").arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
}

QString lastError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

/// Whether the file that is open is the one that has the name: another process may have taken it for a leftover.
bool stillNamed(int file, const QByteArray& path)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(file, &opened) == 0 && ::stat(path.constData(), &named) == 0 && opened.st_ino == named.st_ino
           && opened.st_dev == named.st_dev;
}

bool lock(int file)
{
    return ::flock(file, LOCK_EX | LOCK_NB) == 0;
}

/// Renames where no file of the new name is; also on file systems that have no call for it.
int renameWithoutReplacing(const QByteArray& from, const QByteArray& to)
{
    if (::syscall(SYS_renameat2, AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), renameNoReplace) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP)
        return -1;
    if (::link(from.constData(), to.constData()) == 0)
        return ::unlink(from.constData());
    if (errno == EEXIST)
        return -1;
    // Nor for a second name, as in folders that a desktop shows of a server or a phone: looking first is what is left.
    struct stat there = {};
    if (::lstat(to.constData(), &there) != 0)
        return ::rename(from.constData(), to.constData());
    errno = EEXIST;
    return -1;
}

bool sync(const QString& folder)
{
    const int opened = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0)
        return false;
    const bool good = ::fsync(opened) == 0;
    ::close(opened);
    return good;
}

void removeUnlocked(const QString& path)
{
    const int opened = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (opened < 0)
        return;
    if (lock(opened)) {
        if (QFileInfo(path).isDir())
            QDir(path).removeRecursively();
        else
            QFile::remove(path);
    }
    ::close(opened);
}

QString temporaryFolder()
{
    return QDir::tempPath();
}

} // namespace

PartFile::~PartFile()
{
    remove();
}

void PartFile::remove()
{
    if (!m_path.isEmpty())
        QFile::remove(m_path);
    if (m_file >= 0)
        ::close(m_file);
    m_path.clear();
    m_file = -1;
}

/// What errno tells of \a path.
Message PartFile::failed(const QString& path)
{
    const bool isFull = errno == ENOSPC || errno == EDQUOT;
    m_kind = isFull ? FailureKind::Temporary : FailureKind::Lasting;
    return Message(Code::FileUnwritable, {path, lastError()});
}

Message PartFile::create(const QString& output)
{
    const QString folder = QFileInfo(output).absolutePath();
    constexpr int tries = 100;
    for (int i = 0; i < tries; ++i) {
        const QString path = folder + QLatin1Char('/') + randomName();
        const QByteArray name = QFile::encodeName(path);
        const int opened = ::open(name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, usualMode);
        if (opened < 0 && errno == EEXIST)
            continue;
        if (opened < 0)
            return failed(folder);
        if (lock(opened) && stillNamed(opened, name)) {
            m_path = path;
            m_file = opened;
            return {};
        }
        ::close(opened);
    }
    return failed(folder);
}

Message PartFile::finish(const QString& output, bool replaces, const QString& dateOf)
{
    const QByteArray from = QFile::encodeName(m_path);
    const QByteArray to = QFile::encodeName(output);
    if (!stillNamed(m_file, from)) {
        errno = ENOENT;
        return failed(output);
    }
    struct stat source = {};
    if (!dateOf.isEmpty() && ::stat(QFile::encodeName(dateOf).constData(), &source) == 0) {
        const std::array<timespec, 2> dates = {source.st_atim, source.st_mtim};
        ::futimens(m_file, dates.data());
    }
    if (::fsync(m_file) != 0)
        return failed(output);
    const int renamed = replaces ? ::rename(from.constData(), to.constData()) : renameWithoutReplacing(from, to);
    if (renamed != 0)
        return errno == EEXIST ? Message(Code::OutputExists, {output}) : failed(output);
    m_path.clear();
    remove();
    sync(QFileInfo(output).absolutePath());
    return {};
}

Messages removeLeftovers(const QString& folder)
{
    constexpr qint64 secondsOfADay = 86400;
    Messages told;
    const QDir dir(folder);
    const QString ours = beginOf(hostWord());
    const QStringList parts = dir.entryList({QStringLiteral(".zo-*.part")}, QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& name : parts) {
        const QString path = dir.absoluteFilePath(name);
        if (name.startsWith(ours))
            removeUnlocked(path);
        else if (QFileInfo(path).lastModified().secsTo(QDateTime::currentDateTime()) >= secondsOfADay)
            told.append(Message(Code::ForeignPart, {path}));
    }
    const QDir temporary(temporaryFolder());
    const QStringList helpers = temporary.entryList({ours + QStringLiteral("*.part")}, QDir::Dirs | QDir::Hidden);
    for (const QString& name : helpers)
        removeUnlocked(temporary.absoluteFilePath(name));
    return told;
}

HelperFolder::~HelperFolder()
{
    if (!m_path.isEmpty())
        QDir(m_path).removeRecursively();
    if (m_file >= 0)
        ::close(m_file);
}

Message HelperFolder::create()
{
    constexpr int tries = 100;
    constexpr mode_t ownOnly = 0700;
    for (int i = 0; i < tries; ++i) {
        const QString path = temporaryFolder() + QLatin1Char('/') + randomName();
        const QByteArray name = QFile::encodeName(path);
        if (::mkdir(name.constData(), ownOnly) != 0) {
            if (errno == EEXIST)
                continue;
            return Message(Code::FileUnwritable, {temporaryFolder(), lastError()});
        }
        m_file = ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (m_file >= 0 && lock(m_file) && stillNamed(m_file, name)) {
            m_path = path;
            return {};
        }
        if (m_file >= 0)
            ::close(m_file);
        m_file = -1;
    }
    return Message(Code::FileUnwritable, {temporaryFolder(), lastError()});
}

} // namespace zokit
