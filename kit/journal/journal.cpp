// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/journal.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include <unistd.h>

#include <QFile>
#include <QTimer>

#include <zokit/history.h>
#include <zokit/project.h>

#include "journalfile_p.h"
#include "journalform_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

constexpr int writeWithin = 100;                          // Milliseconds from an event to the file.
constexpr int livesOnAfter = 10000;                       // Milliseconds: who dies then did not die at its start.
constexpr int retryAfter = 1000;                          // Milliseconds, when the file could not be written.
constexpr qint64 largeJournal = qint64(16) * 1024 * 1024; // Bytes; what is smaller is never made anew.
constexpr int timesItsBeginning = 3; // Then a large one is made anew: its steps may be forgotten long since.

} // namespace

class Journal::Private {
public:
    Private(Journal* journal, Project& ofProject, const QString& inFolder)
        : q(journal), project(ofProject), folder(inFolder)
    {
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, q, [this] { q->flush(); });
        livesOn->setObjectName(QStringLiteral("livesOn"));
        livesOn->setSingleShot(true);
        livesOn->setInterval(livesOnAfter);
        QObject::connect(livesOn, &QTimer::timeout, q, [this] {
            starts = 0;
            note(journalform::livedOn());
        });
        takeStarts();
        follow();
    }

    ~Private()
    {
        if (file >= 0)
            ::close(file);
    }

    void takeStarts();
    void follow();
    void note(const QByteArray& line);
    QByteArray everything();
    QByteArray whole() { return journalform::beginning() + everything(); }
    bool write();
    bool writeAnew();

    Journal* q;
    Project& project;
    QString folder;
    QString path;
    int file = -1;
    qint64 size = 0;     ///< Of the lines that are whole in the file.
    qint64 sizeAnew = 0; ///< With which it is made anew.
    bool isTorn = false; ///< Half a line stands at its end.
    bool inGesture = false;
    bool isClosed = false;
    bool inTrouble = false;
    QByteArray pending;
    Changes unkept;
    QStringList toldUnkept;
    QTimer timer;
    QTimer* livesOn = new QTimer(q);
    int starts = 0; ///< Of what was recovered, until this session has lived on.
};

/// A session that soon dies of what it recovered leaves no other journal than the one it found.
void Journal::Private::takeStarts()
{
    starts = project.history().state().starts;
    if (starts > 0)
        livesOn->start();
}

void Journal::Private::follow()
{
    const History* history = &project.history();
    QObject::connect(history, &History::stepAdded, q, [this](const Step& step) {
        inGesture = false;
        note(journalform::step(step, unkept));
    });
    QObject::connect(history, &History::stepInserted, q,
                     [this](const Step& step, int place) { note(journalform::stepBelow(step, place, unkept)); });
    QObject::connect(history, &History::gestureChanged, q, [this](const Step& part) {
        inGesture = true;
        note(journalform::gesture(part, unkept));
    });
    QObject::connect(history, &History::gestureCancelled, q, [this](const Changes& changes) {
        inGesture = false;
        note(journalform::gestureCancelled(changes, unkept));
    });
    QObject::connect(history, &History::stepsForgotten, q, [this](int count) { note(journalform::forgotten(count)); });
    QObject::connect(history, &History::redoForgotten, q,
                     [this](int count) { note(journalform::redoForgotten(count)); });
    QObject::connect(history, &History::positionChanged, q, [this](int pos) { note(journalform::position(pos)); });
    QObject::connect(history, &History::selectionChanged, q,
                     [this](const QVector<Identity>& things) { note(journalform::selection(things)); });
    QObject::connect(history, &History::cleanChanged, q, [this](bool isClean) {
        if (isClean)
            note(journalform::clean());
    });
    QObject::connect(history, &History::restored, q, [this] {
        takeStarts();
        note(everything());
    });
}

void Journal::Private::note(const QByteArray& line)
{
    if (isClosed)
        return;
    pending += line;
    if (!timer.isActive())
        timer.start(writeWithin);
}

QByteArray Journal::Private::everything()
{
    return journalform::everything(project.everything(), project.history().state(), unkept)
           + journalform::start().repeated(starts);
}

/// Puts what is pending into the file. On failure errno tells why, and the file ends as it did.
bool Journal::Private::write()
{
    if (file >= 0 && journalfile::isRemoved(file)) {
        ::close(file);
        file = -1;
    }
    if (file < 0) {
        file = journalfile::openNew(folder, path);
        if (file < 0)
            return false;
        pending = whole();
        size = 0;
        sizeAnew = std::max(largeJournal, timesItsBeginning * qint64(pending.size()));
    }
    // What an open gesture did so far is in no step that could be undone: it would be lost.
    if ((isTorn || (size > sizeAnew && !inGesture)) && writeAnew())
        return true;
    if (isTorn)
        return false;
    if (!journalfile::write(file, pending)) {
        const int error = errno;
        isTorn = ::ftruncate(file, size) != 0; // Half a line would end the journal for its reader.
        errno = error;
        return false;
    }
    size += pending.size();
    pending.clear();
    return true;
}

bool Journal::Private::writeAnew()
{
    const QByteArray text = whole();
    const int fresh = journalfile::replace(path, text);
    if (fresh < 0) {
        sizeAnew = 2 * size; // Until then the old one does.
        return false;
    }
    ::close(file);
    file = fresh;
    size = text.size();
    sizeAnew = std::max(largeJournal, timesItsBeginning * size);
    isTorn = false;
    pending.clear();
    return true;
}

Journal::Journal(Project& project, const QString& folder)
    : d(std::make_unique<Private>(this, project, journalfile::folderOr(folder)))
{
    // Nobody listens yet: trouble is told by the next try.
    if (!d->write() || !d->unkept.isEmpty())
        d->timer.start(0);
}

Journal::~Journal()
{
    flush();
}

QString Journal::path() const
{
    return d->path;
}

bool Journal::flush()
{
    d->timer.stop();
    if (d->isClosed)
        return true;
    const bool written = (d->file >= 0 && d->pending.isEmpty()) || d->write();
    const QString reason = QString::fromLocal8Bit(std::strerror(errno));
    if (!written)
        d->timer.start(retryAfter);
    const bool wasInTrouble = std::exchange(d->inTrouble, !written);
    if (!written && !wasInTrouble)
        emit trouble(Message(Code::FileUnwritable, {d->path, reason}));
    if (written && wasInTrouble)
        emit trouble(Message());
    const Changes unkept = std::exchange(d->unkept, Changes());
    for (const Change& change : unkept) {
        const FileSettings* ofFile = d->project.fileOf(change.thing);
        const std::optional<Address> address = ofFile ? ofFile->address(change.thing, change.key) : std::nullopt;
        const QString text = address ? address->toString() : change.key;
        if (d->toldUnkept.contains(text))
            continue;
        d->toldUnkept.append(text);
        emit valueNotKept(Message(Code::JournalLacks, {text}));
    }
    return written;
}

void Journal::close()
{
    d->timer.stop();
    d->isClosed = true;
    d->pending.clear();
    if (d->file < 0)
        return;
    QFile::remove(d->path);
    ::close(d->file);
    d->file = -1;
}

} // namespace zokit
