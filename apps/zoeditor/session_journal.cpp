// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What outlives a session that dies: the journal, the queue, and beside the journal in which files the settings are.

#include "session.h"

#include <utility>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <zokit/settingsfile.h>

namespace zoeditor {

using zokit::Message;

namespace {

/// The file beside \a journal, also beside one that was set aside. A settings file a clip, by their paths.
QString namesBeside(const QString& journal)
{
    return journal.section(QStringLiteral(".aside"), 0, 0) + QStringLiteral(".settings");
}

QMap<QString, QString> readNames(const QString& journal)
{
    QMap<QString, QString> names;
    QFile file(namesBeside(journal));
    if (!file.open(QIODevice::ReadOnly))
        return names;
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    for (auto it = object.begin(); it != object.end(); ++it)
        names.insert(it.key(), it.value().toString());
    return names;
}

} // namespace

QVector<zokit::Journal::Left> Session::left() const
{
    return zokit::Journal::left(m_journalFolder);
}

QVector<SavedSettings> Session::savedBeside(const zokit::Journal::Left& left)
{
    QVector<SavedSettings> saved;
    for (const QString& name : readNames(left.path)) {
        const QFileInfo file(name);
        if (file.exists())
            saved.append({name, file.lastModified(), !zokit::Journal::comparedWith(left.path, name).isEmpty()});
    }
    return saved;
}

Message Session::recover(const QString& journal)
{
    for (const SavedSettings& saved : savedBeside({journal, QDateTime(), QStringList(), false})) {
        if (!saved.isNewer) // Else somebody has saved others there: whoever saves these is asked.
            m_recovered.insert(readNames(journal).key(saved.file), saved.file);
    }
    const Message trouble = zokit::Journal::recover(journal, m_project);
    m_recovered.clear();
    if (!m_project.files().isEmpty())
        m_recoveredJournal = journal;
    return trouble;
}

void Session::discard(const QString& journal)
{
    zokit::Journal::discard(journal);
    QFile::remove(namesBeside(journal));
}

void Session::keepJournal()
{
    m_journal = std::make_unique<zokit::Journal>(m_project, m_journalFolder);
    connect(m_journal.get(), &zokit::Journal::trouble, this, [this](const Message& message) {
        if (take(message))
            discardRecovered(); // The journal can be written again.
    });
    connect(m_journal.get(), &zokit::Journal::valueNotKept, this, &Session::take);
    noteSettingsFiles();
    discardRecovered();
    m_queueFile = std::make_unique<zokit::QueueFile>(
        m_queue, m_journalFolder.isEmpty() ? QString() : m_journalFolder + QStringLiteral("/queue/queue.jsonl"));
    connect(m_queueFile.get(), &zokit::QueueFile::trouble, this, &Session::take);
    take(m_queueFile->open());
}

/// What was recovered is left until it stands in this session's journal: this one may be killed, too.
void Session::discardRecovered()
{
    if (m_recoveredJournal.isEmpty() || !m_journal->flush())
        return;
    discard(std::exchange(m_recoveredJournal, {}));
    m_notedNames = {}; // One that was set aside may have had this journal's name.
    noteSettingsFiles();
}

/// Beside the journal stands where the settings of each clip are kept; without that a recovered session would only not
/// know its files.
void Session::noteSettingsFiles()
{
    if (!m_journal)
        return;
    QJsonObject names;
    for (const FileRow& row : m_files.rows()) {
        if (!row.settingsFile.isEmpty())
            names.insert(row.path, row.settingsFile);
    }
    if (names == m_notedNames)
        return;
    QSaveFile file(namesBeside(m_journal->path()));
    if (file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(names).toJson()) >= 0 && file.commit())
        m_notedNames = names;
}

void Session::close()
{
    m_queueFile.reset(); // It keeps what runs as interrupted.
    m_queue.cancelAll();
    if (!m_journal)
        return;
    if (!m_recoveredJournal.isEmpty())
        discard(m_recoveredJournal);
    QFile::remove(namesBeside(m_journal->path()));
    m_journal->close();
}

} // namespace zoeditor
