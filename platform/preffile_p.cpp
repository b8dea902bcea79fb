// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "preffile_p.h"

#include <cerrno>
#include <cstdio>
#include <optional>
#include <utility>

#include <sys/stat.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QLockFile>
#include <QSettings>
#include <QThread>

namespace preffile {

namespace {

constexpr int mostFilesSetAside = 1000;
constexpr qint64 largestLockFile = 4096;      // QLockFile writes four short lines.
constexpr unsigned long lockPollInterval = 5; // Milliseconds.

/// When a lock counts as left by a dead process that could not even write its number into it, in milliseconds.
/// A living process is safe however old its lock is: the system knows that it holds the file.
constexpr int staleAfter = 2000;

/// The text that the running write() is to write, null at any other time. It goes around QSettings, since that
/// keeps the values of a failed save in a cache of the process and writes them when the file is opened next.
const QByteArray* textToWrite = nullptr;

/// Nothing is read through QSettings: it takes a file of the same size and time for unchanged, and one that it
/// cannot open for empty.
bool readNothing(QIODevice& /*device*/, QSettings::SettingsMap& /*values*/)
{
    return true;
}

/// QSettings replaces the file only when this returns true. Its device is buffered, so a full disk shows when
/// the buffer is flushed, not before.
bool writeText(QIODevice& device, const QSettings::SettingsMap& /*values*/)
{
    auto* const file = qobject_cast<QFileDevice*>(&device);
    return file && textToWrite && file->write(*textToWrite) == textToWrite->size() && file->flush();
}

/// What stands at a path.
struct Entry {
    bool missing = false;
    bool unknown = false; ///< It could not be looked at. QFileInfo would call that missing, too.
    bool isFile = false;
    qint64 size = 0;
};

/// Looks with ::stat, or for links themselves with ::lstat.
Entry entryAt(const QString& path, int (*look)(const char*, struct stat*))
{
    struct stat status = {};
    Entry entry;
    if (look(QFile::encodeName(path).constData(), &status) == 0) {
        entry.isFile = S_ISREG(status.st_mode);
        entry.size = status.st_size;
    } else {
        entry.missing = errno == ENOENT || errno == ENOTDIR;
        entry.unknown = !entry.missing;
    }
    return entry;
}

/// Also true when that cannot be told.
bool existsOrIsLink(const QString& path)
{
    return !entryAt(path, ::lstat).missing;
}

/// Whether QLockFile may be let near \a path. It opens and reads what it finds there: a FIFO would hold it for
/// ever, a device would never end.
bool canBeLockFile(const QString& path)
{
    const Entry entry = entryAt(path, ::lstat);
    return entry.missing || (entry.isFile && entry.size <= largestLockFile);
}

/// QLockFile::tryLock() with a time limit would sleep for 100 ms at the first refusal.
bool lockInTime(QLockFile& lock, const QString& path, const QDeadlineTimer& deadline)
{
    for (;;) {
        // ".rmlock" is what QLockFile itself locks while it removes the lock of a dead process.
        const bool mayBeRemoved = existsOrIsLink(path);
        if (!canBeLockFile(path) || (mayBeRemoved && !canBeLockFile(path + QStringLiteral(".rmlock"))))
            return false;
        if (lock.tryLock(0))
            return true;
        if (lock.error() != QLockFile::LockFailedError || deadline.hasExpired())
            return false;
        QThread::msleep(lockPollInterval);
    }
}

} // namespace

Content read(const QString& path)
{
    const Entry entry = entryAt(path, ::stat);
    if (entry.missing)
        return {State::Missing, {}};
    if (entry.unknown)
        return {State::Unreadable, {}};
    if (!entry.isFile || entry.size > guardedini::maxFileSize)
        return {State::Damaged, {}};

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {State::Unreadable, {}};
    const QByteArray text = file.read(guardedini::maxFileSize + 1);
    if (file.error() != QFileDevice::NoError)
        return {State::Unreadable, {}};

    const std::optional<guardedini::Entries> entries = guardedini::parsed(text);
    return entries ? Content{State::Whole, *entries} : Content{State::Damaged, {}};
}

bool write(const QString& path, const QByteArray& text)
{
    static const QSettings::Format format =
        QSettings::registerFormat(QStringLiteral("ini"), readNothing, writeText, Qt::CaseSensitive);

    textToWrite = &text;
    QSettings settings(path, format);
    settings.setValue(QStringLiteral("changed"), true); // Any value: without a change nothing is written.
    settings.sync();
    textToWrite = nullptr;
    return settings.status() == QSettings::NoError;
}

std::optional<QString> setAside(const QString& path)
{
    const QString firstName = path + QStringLiteral(".damaged");
    QString name = firstName;
    for (int number = 2; existsOrIsLink(name); ++number) {
        if (number > mostFilesSetAside)
            return std::nullopt;
        name = firstName + QLatin1Char('.') + QString::number(number);
    }
    // Not QFile::rename(): where renaming fails it copies, and would wait for a FIFO's writer.
    const bool renamed = std::rename(QFile::encodeName(path).constData(), QFile::encodeName(name).constData()) == 0;
    return renamed ? std::make_optional(name) : std::nullopt;
}

std::unique_ptr<QLockFile> takeTurn(const QString& path)
{
    // Two locks. QSettings takes "<path>.lock" by itself, and waits for it without a limit. So ".turn" comes
    // first, which keeps the other processes of this library away from it, then a test that nobody else holds
    // it, which removes what a dead process left. What remains is a foreign program that takes the lock between
    // this test and the writing.
    const QDeadlineTimer deadline(longestWait);
    const QString turnPath = path + QStringLiteral(".turn");
    auto turn = std::make_unique<QLockFile>(turnPath);
    turn->setStaleLockTime(staleAfter);
    if (!lockInTime(*turn, turnPath, deadline))
        return nullptr;

    const QString settingsLockPath = path + QStringLiteral(".lock");
    if (existsOrIsLink(settingsLockPath)) {
        QLockFile settingsLock(settingsLockPath);
        settingsLock.setStaleLockTime(staleAfter);
        if (!lockInTime(settingsLock, settingsLockPath, deadline))
            return nullptr;
    }
    // Once more: this process may have been unable to remove what it took for the test.
    return existsOrIsLink(settingsLockPath) ? nullptr : std::move(turn);
}

} // namespace preffile
