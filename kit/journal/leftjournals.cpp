// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/journal.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <zokit/history.h>
#include <zokit/project.h>

#include "journalfile_p.h"
#include "journalform_p.h"
#include "projectthings_p.h"
#include "steptext_p.h"
#include "things_p.h"

// Journals of sessions that are not alive any more.

namespace zokit {

namespace {

using Code = Message::Code;

constexpr int deathsAtStart = 2; // Then a journal is set aside.

/// A new name behind \a path; \a path itself when it cannot have one.
QString setAside(const QString& path)
{
    QString aside = path + QStringLiteral(".aside");
    for (int number = 2; QFile::exists(aside); ++number)
        aside = path + QStringLiteral(".aside.%1").arg(number);
    return QFile::rename(path, aside) ? aside : path;
}

Message refusal(const QString& path)
{
    if (errno == EWOULDBLOCK)
        return Message(Code::JournalInUse, {path});
    if (errno == ENOENT)
        return Message(Code::FileMissing, {path});
    return Message(Code::FileUnreadable, {path, QString::fromLocal8Bit(std::strerror(errno))});
}

} // namespace

QVector<Journal::Left> Journal::left(const QString& folder)
{
    using journalfile::ending;
    QVector<Left> found;
    const QDir there(journalfile::folderOr(folder));
    for (const QFileInfo& info : there.entryInfoList({QLatin1Char('*') + ending}, QDir::Files, QDir::Time)) {
        const int file = journalfile::openLocked(info.filePath(), O_RDONLY, LOCK_SH);
        if (file < 0)
            continue; // Its session lives.
        const journalform::Session session = journalform::sessionFrom(journalfile::read(file));
        ::close(file);
        const bool diedTwice = session.starts >= deathsAtStart;
        found.append(
            {diedTwice ? setAside(info.filePath()) : info.filePath(), info.lastModified(), session.files(), diedTwice});
    }
    // What a session was killed over while it made its journal anew: the old one is whole.
    for (const QFileInfo& info :
         there.entryInfoList({QLatin1Char('*') + ending + journalfile::newEnding}, QDir::Files)) {
        const int file = journalfile::openLocked(info.filePath(), O_RDONLY, LOCK_EX);
        if (file < 0)
            continue;
        QFile::remove(info.filePath());
        ::close(file);
    }
    return found;
}

Message Journal::recover(const QString& path, Project& project)
{
    int file = journalfile::openLocked(path, O_RDWR | O_APPEND, LOCK_EX);
    if (file < 0 && (errno == EACCES || errno == EROFS)) // It can still be read.
        file = journalfile::openLocked(path, O_RDONLY, LOCK_EX);
    if (file < 0)
        return refusal(path);
    const journalform::Session session = journalform::sessionFrom(journalfile::read(file));
    // Whoever dies from here on finds this mark at the next start.
    if (session.isJournal)
        journalfile::appendUnnoticed(file, journalform::start());
    ::close(file);
    if (!session.isJournal)
        return Message(Code::JournalUnreadable, {path});

    Changes values = session.values();
    values.erase(
        std::remove_if(values.begin(), values.end(), [](const Change& change) { return isSavedDefault(change.thing); }),
        values.end());
    project.apply(values);
    HistoryState history = session.history;
    history.starts = session.starts + 1;
    const Changes gesture = merged(session.gesture.changes);
    if (!gesture.isEmpty()) {
        const bool isNamed = !session.gesture.text.isEmpty();
        journalform::addStep(history, {isNamed ? session.gesture.text : describe(project, gesture), gesture});
    }
    project.history().restore(history);
    return session.cut ? Message(Code::JournalCut) : Message();
}

void Journal::discard(const QString& path)
{
    QFile::remove(path);
}

Message Journal::comparedWith(const QString& journal, const QString& settingsFile)
{
    const QFileInfo ours(journal);
    const QFileInfo saved(settingsFile);
    if (!saved.exists() || saved.lastModified() <= ours.lastModified())
        return Message();
    return Message(Code::SavedIsNewer, {settingsFile, saved.lastModified().toString(Qt::ISODate),
                                        ours.lastModified().toString(Qt::ISODate)});
}

} // namespace zokit
