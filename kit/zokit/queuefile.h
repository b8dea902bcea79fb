// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QObject>
#include <QString>

#include <zokit/message.h>
#include <zokit/queue.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// Keeps a queue in a file at every change, so that no row is lost however the session ends. A row that ran when its
/// session died comes back as Interrupted, one that waited as waiting, one that has ended with its reason. A job whose
/// settings are made for the clip, by Job::makeSettings, is not kept.
class ZOKIT_EXPORT QueueFile : public QObject {
    Q_OBJECT

public:
    /// Of \a queue, which outlives this, in the file at \a path; without one, "zoeffect/queue.jsonl" in the user's data
    /// folder. Nothing is read or written before open().
    explicit QueueFile(Queue& queue, const QString& path = {}, QObject* parent = nullptr);
    /// The file stays, as the queue was last.
    ~QueueFile() override;

    /// Adds the rows that the file holds to the queue, and keeps all from now on; once. Nothing begins by this. What
    /// could not be read is told, and all else is there; with QueueInUse, or where the file cannot be written, none is
    /// kept.
    Message open();
    QString path() const; ///< Of the file.

Q_SIGNALS:
    /// The queue is not kept any more, and why; once.
    void trouble(const zokit::Message& why);

private:
    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
