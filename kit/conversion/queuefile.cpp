// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/queuefile.h>

#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include "queueform_p.h"

namespace zokit {

using Code = Message::Code;

class QueueFile::Private {
public:
    Private(Queue& ofQueue, const QString& path, QueueFile* ofFile)
        : queue(ofQueue)
        , owner(ofFile)
        , file(path.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                                    + QStringLiteral("/zoeffect/queue.jsonl")
                              : path)
    {
    }
    ~Private()
    {
        if (lock >= 0)
            ::close(lock);
    }
    Q_DISABLE_COPY(Private)

    Message lockIt();
    Message readAll();
    Message writeAll();
    void noteRows();
    void append(const QByteArray& line);

    Queue& queue;
    QueueFile* owner;
    QFile file;
    int lock = -1;     ///< Of the file beside it; the kernel frees it when this process ends, however it does.
    QVector<int> rows; ///< As the file has them.
};

/// Nobody else keeps a queue there as long as this one does.
Message QueueFile::Private::lockIt()
{
    const QString path = file.fileName() + QStringLiteral(".lock");
    constexpr mode_t ownerOnly = 0600;
    lock =
        ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, ownerOnly);
    if (lock < 0)
        return Message(Code::FileUnwritable, {file.fileName(), QFileInfo(path).absolutePath()});
    return ::flock(lock, LOCK_EX | LOCK_NB) == 0 ? Message() : Message(Code::QueueInUse, {file.fileName()});
}

/// What the file holds becomes rows of the queue.
Message QueueFile::Private::readAll()
{
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        return Message(Code::FileUnreadable, {file.fileName(), file.errorString()});
    const QByteArray text = file.readAll();
    file.close();
    if (text.isEmpty())
        return {};
    const queueform::Read read = queueform::read(text);
    if (!read.isQueue)
        return Message(Code::InFile, {file.fileName()}, Message(Code::NotThisForm));
    for (const queueform::Kept& row : read.rows)
        queue.restore(row.job, row.state, row.result);
    return read.unreadable == 0 ? Message()
                                : Message(Code::QueueCut, {file.fileName(), QString::number(read.unreadable)});
}

/// A file without what has been.
Message QueueFile::Private::writeAll()
{
    QSaveFile out(file.fileName());
    const auto fails = [&](const QString& why) { return Message(Code::FileUnwritable, {file.fileName(), why}); };
    if (!out.open(QIODevice::WriteOnly))
        return fails(out.errorString());
    out.write(queueform::head());
    rows = queue.rows();
    for (const int row : std::as_const(rows))
        out.write(queueform::jobLine(row, queue.job(row), queue.state(row), queue.result(row)));
    // A full disk may show when the last bytes go out, which commit() does not look at.
    if (!out.flush() || !out.commit())
        return fails(out.errorString());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return fails(file.errorString());
    return {};
}

void QueueFile::Private::append(const QByteArray& line)
{
    if (!file.isOpen() || line.isEmpty() || (file.write(line) == line.size() && file.flush()))
        return;
    const Message why(Code::FileUnwritable, {file.fileName(), file.errorString()});
    file.close();
    Q_EMIT owner->trouble(why);
}

/// Rows came, went or moved.
void QueueFile::Private::noteRows()
{
    const QVector<int> now = queue.rows();
    QVector<int> kept;
    for (const int row : std::as_const(rows)) {
        if (now.contains(row))
            kept.append(row);
        else
            append(queueform::removedLine(row));
    }
    for (const int row : now) {
        if (rows.contains(row))
            continue;
        append(queueform::jobLine(row, queue.job(row), queue.state(row), queue.result(row)));
        kept.append(row);
    }
    if (kept != now)
        append(queueform::orderLine(now));
    rows = now;
}

QueueFile::QueueFile(Queue& queue, const QString& path, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(queue, path, this))
{
}

QueueFile::~QueueFile() = default;

QString QueueFile::path() const
{
    return d->file.fileName();
}

Message QueueFile::open()
{
    QDir().mkpath(QFileInfo(path()).absolutePath());
    if (const Message refused = d->lockIt(); !refused.isEmpty())
        return refused;
    const Message unread = d->readAll();
    if (!unread.isEmpty() && unread.code() != Code::QueueCut)
        return unread; // It is not ours to replace.
    if (const Message refused = d->writeAll(); !refused.isEmpty())
        return refused;
    connect(&d->queue, &Queue::rowsChanged, this, [this] { d->noteRows(); });
    connect(&d->queue, &Queue::stateChanged, this,
            [this](int row, RowState state) { d->append(queueform::stateLine(row, state, d->queue.result(row))); });
    return unread;
}

} // namespace zokit
