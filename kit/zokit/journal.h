// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QVector>

#include <zokit/message.h>
#include <zokit/zokit_export.h>

namespace zokit {

class Project;

/// A session's history on disk, so that a host that dies loses at most the last 200 ms: also of a gesture that had not
/// ended, which comes back as a step. One file a session, locked by it as long as it lives.
///
/// At its start a host asks left(), and for the journal that its user wants: recover() into a new project, a Journal
/// for that, and when flush() of that one says true, discard() of the old one. A journal grows with what is done; a
/// large one is made anew now and then.
class ZOKIT_EXPORT Journal : public QObject {
    Q_OBJECT

public:
    /// A session that left a journal and is not alive any more.
    struct Left {
        QString path;      ///< Of the journal's file.
        QDateTime changed; ///< Last written by its session.
        QStringList files; ///< The clips it was about in the end; empty also for what recover() cannot read.
        /// Sessions that recovered it died within their first ten seconds, twice: it was set aside and is not to be
        /// opened by itself.
        bool diedTwice = false;
    };
    /// Journals of dead sessions in \a folder (without one: "zoeffect/journal" in the user's data folder), newest
    /// first.
    static QVector<Left> left(const QString& folder = {});
    /// Brings \a project, a new one, to what \a path holds: settings, history, selections, and where it was clean.
    /// Saved defaults stay as they are. What was cut off or damaged at the end is left out and told in the message; an
    /// error leaves the project as it was. The file stays until discard().
    static Message recover(const QString& path, Project& project);
    /// Removes the journal of a dead session.
    static void discard(const QString& path);
    /// Says so when \a settingsFile was saved later than \a journal was written by its session, and so beats it; the
    /// text gives both times. Both files stay.
    static Message comparedWith(const QString& journal, const QString& settingsFile);

    /// Keeps a journal of \a project from now on. When that cannot be, trouble() says so from the event loop.
    explicit Journal(Project& project, const QString& folder = {});
    /// Writes what is not written yet; without close() the file stays, and left() names it.
    ~Journal() override;

    /// The file. Another one from when somebody has removed it.
    QString path() const;
    /// Writes what is not written yet. False when that failed; it is tried again by itself, each second.
    bool flush();
    /// The session ended well: the journal goes, and notes nothing more.
    void close();

Q_SIGNALS:
    /// The journal cannot be written (full disk): \a message says why; empty when it can again.
    void trouble(const zokit::Message& message);
    /// A value of a kind that no file can hold was set: it is not in the journal. Told once for each address.
    void valueNotKept(const zokit::Message& message);

private:
    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
