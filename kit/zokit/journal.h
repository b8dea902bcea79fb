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

/// A session's history on disk, so that a host that dies loses at most the last 200 ms. One file a session, locked by
/// it as long as it lives.
class ZOKIT_EXPORT Journal : public QObject {
    Q_OBJECT

public:
    /// A session that left a journal and is not alive any more.
    struct Left {
        QString path;
        QDateTime changed;      ///< Last written.
        QStringList files;      ///< The clips it was about.
        bool diedTwice = false; ///< It died at its start, twice: it was set aside and is not to be opened by itself.
    };
    /// Journals of dead sessions in \a folder (without one: "zoeffect/journal" in the user's state folder), newest
    /// first.
    static QVector<Left> left(const QString& folder = {});
    /// Brings \a project to what \a path holds, with history and selection. What was cut off at the end is left out and
    /// told in the message; an error leaves the project empty. The file stays until discard().
    static Message recover(const QString& path, Project& project);
    static void discard(const QString& path);
    /// Whether a settings file that was saved later beats the journal: both are kept, the text gives their ages.
    static Message comparedWith(const QString& journal, const QString& settingsFile);

    /// Keeps a journal of \a project from now on.
    explicit Journal(Project& project, const QString& folder = {});
    ~Journal() override;

    QString path() const;
    /// Writes what is not written yet. False when that failed; it is tried again by itself.
    bool flush();
    /// The session ended well: the journal goes.
    void close();

Q_SIGNALS:
    /// The journal cannot be written (full disk): \a message says why; empty when it can again.
    void trouble(const zokit::Message& message);

private:
    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
