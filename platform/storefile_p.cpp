// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "storefile_p.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>
#include <QThread>

namespace storefile {

Content read(const QString& path)
{
    const QJsonObject empty{{QStringLiteral("zoeffect-defaults"), version}, {QStringLiteral("types"), QJsonObject()}};
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {errno == ENOENT || errno == ENOTDIR ? State::Missing : State::Unreadable, empty};
    if (!S_ISREG(status.st_mode) || status.st_size > maxSize)
        return {State::Damaged, empty};
    QFile file(path);
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.read(file.size() + 1) : QByteArray();
    if (file.error() != QFileDevice::NoError)
        return {State::Unreadable, empty};

    const QJsonObject content = text.size() > maxSize ? QJsonObject() : QJsonDocument::fromJson(text).object();
    const double number = content.value(QLatin1String("zoeffect-defaults")).toDouble();
    if (number > version)
        return {State::Newer, empty};
    const bool isWhole = number == version && content.value(QLatin1String("types")).isObject();
    return isWhole ? Content{State::Whole, content} : Content{State::Damaged, empty};
}

bool write(const QString& path, const QByteArray& text)
{
    QSaveFile file(path);
    // commit() does not look at its last flush: on a full disk it would put a cut file into place.
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush() && file.commit();
}

std::optional<QString> setAside(const QString& path)
{
    constexpr int mostFilesSetAside = 1000;
    const QByteArray from = QFile::encodeName(path);
    QString name = path + QStringLiteral(".damaged");
    struct stat status = {};
    for (int number = 2; ::lstat(QFile::encodeName(name).constData(), &status) == 0 || errno != ENOENT; ++number) {
        if (number > mostFilesSetAside)
            return std::nullopt;
        name = path + QStringLiteral(".damaged.") + QString::number(number);
    }
    // Not QFile::rename(): where renaming fails it copies, and would wait for a FIFO's writer.
    const bool renamed = std::rename(from.constData(), QFile::encodeName(name).constData()) == 0;
    return renamed ? std::make_optional(name) : std::nullopt;
}

Lock::Lock(const QString& path, int longestWait)
{
    const QDeadlineTimer deadline(longestWait);
    constexpr mode_t everyone = 0666; // Less the umask.
    constexpr unsigned long pollInterval = 2;
    m_file = ::open(QFile::encodeName(path + QStringLiteral(".lock")).constData(),
                    O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, everyone);
    struct stat status = {};
    if (m_file < 0 || ::fstat(m_file, &status) != 0 || !S_ISREG(status.st_mode))
        return;
    for (;;) {
        m_held = ::flock(m_file, LOCK_EX | LOCK_NB) == 0;
        if (m_held || (errno != EWOULDBLOCK && errno != EINTR) || deadline.hasExpired())
            return;
        QThread::msleep(pollInterval);
    }
}

Lock::~Lock()
{
    if (m_held)
        ::flock(m_file, LOCK_UN); // Also for a child process that got the descriptor meanwhile.
    if (m_file >= 0)
        ::close(m_file);
}

} // namespace storefile
