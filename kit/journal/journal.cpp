// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/journal.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QTimer>

#include <zokit/history.h>
#include <zokit/project.h>

#include "projectthings_p.h"
#include "things_p.h"
#include "valuejson_p.h"

// A journal is a text file. Each line is a record: eight hexadecimal digits of a checksum, a blank, JSON, a line feed.
// The first record names the form, the second holds every value there was, what follows is what happened, in order. A
// line that is cut or damaged ends it: nothing behind it can be trusted.

namespace zokit {

namespace {

using Code = Message::Code;

constexpr int formVersion = 1;
constexpr int writeWithin = 100; // Milliseconds from an event to the file.
constexpr int retryAfter = 1000; // Milliseconds, when the file could not be written.
constexpr int deathsAtStart = 2; // Then a journal is set aside.
constexpr qint64 largestJournal = qint64(256) * 1024 * 1024;

const QString ending = QStringLiteral(".journal");
const QString formMember = QStringLiteral("zoeffect-journal");
const QString everythingMember = QStringLiteral("everything");
const QString stepMember = QStringLiteral("step");
const QString stepsMember = QStringLiteral("steps");
const QString positionMember = QStringLiteral("position");
const QString selectionMember = QStringLiteral("selection");
const QString startMember = QStringLiteral("start");

QString folderOr(const QString& folder)
{
    return folder.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                                  + QStringLiteral("/zoeffect/journal")
                            : folder;
}

/// FNV-1a: tells a damaged line, no more.
quint32 checksum(const QByteArray& text)
{
    quint32 sum = 2166136261U;
    for (const char letter : text)
        sum = (sum ^ static_cast<unsigned char>(letter)) * 16777619U;
    return sum;
}

QByteArray lineOf(const QJsonObject& record)
{
    const QByteArray json = QJsonDocument(record).toJson(QJsonDocument::Compact);
    return QByteArray::number(checksum(json), 16).rightJustified(8, '0') + ' ' + json + '\n';
}

std::optional<QJsonObject> recordOf(const QByteArray& line)
{
    constexpr int digits = 8;
    bool isNumber = false;
    const quint32 sum = line.left(digits).toUInt(&isNumber, 16);
    const QByteArray json = line.mid(digits + 1);
    if (!isNumber || line.size() <= digits || sum != checksum(json))
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(json);
    return document.isObject() ? std::make_optional(document.object()) : std::nullopt;
}

/// The records of the text that are whole; \a cut says whether something followed them.
QVector<QJsonObject> recordsOf(const QByteArray& text, bool& cut)
{
    QVector<QJsonObject> records;
    int begin = 0;
    for (;;) {
        const auto end = static_cast<int>(text.indexOf('\n', begin));
        const std::optional<QJsonObject> record = end < 0 ? std::nullopt : recordOf(text.mid(begin, end - begin));
        if (!record)
            break;
        records.append(*record);
        begin = end + 1;
    }
    cut = begin < text.size();
    return records;
}

QJsonArray toJson(const Changes& changes)
{
    QJsonArray array;
    for (const Change& change : changes) {
        const auto json = [](const QVariant& value) {
            return valuejson::toJson(value, QVariant()).value_or(QJsonValue());
        };
        array.append(QJsonArray{double(change.thing), change.key, json(change.before), json(change.after)});
    }
    return array;
}

Changes changesFrom(const QJsonValue& json)
{
    Changes changes;
    const QJsonArray array = json.toArray();
    for (const QJsonValue& element : array) {
        const QJsonArray parts = element.toArray();
        changes.append({static_cast<Identity>(parts.at(0).toDouble()), parts.at(1).toString(),
                        valuejson::fromJson(parts.at(2), QVariant()).value_or(QVariant()),
                        valuejson::fromJson(parts.at(3), QVariant()).value_or(QVariant())});
    }
    return changes;
}

QJsonObject toJson(const Step& step)
{
    return {{QStringLiteral("code"), static_cast<int>(step.text.code())},
            {QStringLiteral("words"), QJsonArray::fromStringList(step.text.arguments())},
            {QStringLiteral("changes"), toJson(step.changes)}};
}

Step stepFrom(const QJsonValue& json)
{
    const QJsonObject object = json.toObject();
    const QStringList words = object.value(QStringLiteral("words")).toVariant().toStringList();
    return {Message(static_cast<Message::Code>(object.value(QStringLiteral("code")).toInt()), words),
            changesFrom(object.value(QStringLiteral("changes")))};
}

QJsonArray toJson(const QVector<Identity>& things)
{
    QJsonArray array;
    for (const Identity thing : things)
        array.append(double(thing));
    return array;
}

QVector<Identity> thingsFrom(const QJsonValue& json)
{
    QVector<Identity> things;
    const QJsonArray array = json.toArray();
    for (const QJsonValue& thing : array)
        things.append(static_cast<Identity>(thing.toDouble()));
    return things;
}

/// A journal as it was left: where the session had come to.
struct Content {
    Changes everything;
    Changes sinceThen; ///< All that was done, undone and redone after that, in order.
    QVector<Step> steps;
    int position = 0;
    QVector<Identity> selection;
    int starts = 0; ///< How often it was recovered without ending well.
    bool isJournal = false;
    bool cut = false;
};

void moveTo(Content& content, int wanted, bool changesValues)
{
    const int target = std::clamp(wanted, 0, static_cast<int>(content.steps.size()));
    for (; changesValues && content.position > target; --content.position)
        content.sinceThen += reversed(content.steps.at(content.position - 1).changes);
    for (; changesValues && content.position < target; ++content.position)
        content.sinceThen += content.steps.at(content.position).changes;
    content.position = target;
}

Content contentOf(const QByteArray& text)
{
    Content content;
    const QVector<QJsonObject> records = recordsOf(text, content.cut);
    content.isJournal = !records.isEmpty() && records.first().value(formMember).toInt() == formVersion;
    if (!content.isJournal)
        return content;
    for (const QJsonObject& record : records) {
        if (record.contains(everythingMember))
            content.everything = changesFrom(record.value(everythingMember));
        if (record.contains(stepsMember)) {
            const QJsonArray steps = record.value(stepsMember).toArray();
            for (const QJsonValue& step : steps)
                content.steps.append(stepFrom(step));
        }
        if (record.contains(stepMember)) {
            content.steps.resize(content.position);
            content.steps.append(stepFrom(record.value(stepMember)));
            content.sinceThen += content.steps.last().changes;
            content.position = static_cast<int>(content.steps.size());
        }
        if (record.contains(positionMember))
            moveTo(content, record.value(positionMember).toInt(), !record.contains(everythingMember));
        if (record.contains(selectionMember))
            content.selection = thingsFrom(record.value(selectionMember));
        if (record.contains(startMember))
            ++content.starts;
    }
    return content;
}

/// The changes from nothing to the values at the place in the history to which the session had come. The steps behind
/// that place may be gone by a new branch, so what was done is taken record by record.
Changes valuesAt(const Content& content)
{
    return merged(content.everything + content.sinceThen);
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) ? file.read(largestJournal) : QByteArray();
}

/// An open file that is ours alone as long as it is open; -1 when it is not to be had.
int openLocked(const QString& path, int flags)
{
    const int file = ::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    if (file < 0)
        return -1;
    struct stat status = {};
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode) || ::flock(file, LOCK_EX | LOCK_NB) != 0) {
        ::close(file);
        return -1;
    }
    return file;
}

bool writeAll(int file, const QByteArray& text)
{
    qint64 written = 0;
    while (written < text.size()) {
        const ssize_t now = ::write(file, text.constData() + written, static_cast<std::size_t>(text.size() - written));
        if (now < 0 && errno == EINTR)
            continue;
        if (now <= 0)
            return false;
        written += now;
    }
    return true;
}

} // namespace

class Journal::Private {
public:
    Private(Journal* journal, Project& ofProject, const QString& folder) : q(journal), project(ofProject)
    {
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, q, [this] { q->flush(); });
        QDir().mkpath(folder);
        // A name that no other session has: the first free number behind that of the process.
        for (int number = 0; file < 0 && number < 1000; ++number) {
            path = QDir(folder).filePath(QStringLiteral("%1-%2").arg(::getpid()).arg(number) + ending);
            file = openLocked(path, O_RDWR | O_CREAT | O_EXCL | O_APPEND);
        }
        note({{formMember, formVersion}});
        const History& history = project.history();
        QJsonArray steps;
        for (int i = 0; i < history.count(); ++i)
            steps.append(toJson(history.step(i)));
        note({{everythingMember, toJson(project.everything())},
              {stepsMember, steps},
              {positionMember, history.position()},
              {selectionMember, toJson(history.selection())}});
        QObject::connect(&history, &History::stepAdded, q, [this](const Step& step) {
            note({{stepMember, toJson(step)}});
        });
        QObject::connect(&history, &History::positionChanged, q, [this](int position) {
            note({{positionMember, position}});
        });
        QObject::connect(&history, &History::selectionChanged, q, [this](const QVector<Identity>& things) {
            note({{selectionMember, toJson(things)}});
        });
    }

    ~Private()
    {
        if (file >= 0)
            ::close(file);
    }

    void note(const QJsonObject& record)
    {
        pending += lineOf(record);
        if (!timer.isActive())
            timer.start(writeWithin);
    }

    Journal* q;
    Project& project;
    QString path;
    int file = -1;
    qint64 size = 0; ///< Of the records that are whole in the file.
    QByteArray pending;
    QTimer timer;
    bool inTrouble = false;
};

QVector<Journal::Left> Journal::left(const QString& folder)
{
    QVector<Left> found;
    const QDir there(folderOr(folder));
    for (const QFileInfo& info : there.entryInfoList({QLatin1Char('*') + ending}, QDir::Files, QDir::Time)) {
        const int file = openLocked(info.filePath(), O_RDWR);
        if (file < 0)
            continue; // Its session lives.
        ::close(file);
        const Content content = contentOf(readFile(info.filePath()));
        if (!content.isJournal)
            continue;
        Left left;
        left.path = info.filePath();
        left.changed = info.lastModified();
        for (const Change& change : content.everything) {
            if (change.key == QLatin1String("file"))
                left.files.append(change.after.toString());
        }
        left.diedTwice = content.starts >= deathsAtStart;
        if (left.diedTwice) {
            const QString aside = info.filePath() + QStringLiteral(".aside");
            if (QFile::rename(info.filePath(), aside))
                left.path = aside;
        }
        found.append(left);
    }
    return found;
}

Message Journal::recover(const QString& path, Project& project)
{
    const int file = openLocked(path, O_RDWR | O_APPEND);
    if (file < 0)
        return Message(Code::JournalInUse, {path});
    const QByteArray text = readFile(path);
    const Content content = contentOf(text);
    if (!content.isJournal) {
        ::close(file);
        return Message(Code::JournalUnreadable, {path});
    }
    // Whoever dies from here on finds this mark at the next start. It stands on a line of its own, behind what is
    // whole.
    bool cut = false;
    qint64 whole = 0;
    for (const QJsonObject& record : recordsOf(text, cut))
        whole += lineOf(record).size();
    if (::ftruncate(file, whole) == 0)
        writeAll(file, lineOf({{startMember, true}}));
    ::close(file);

    Changes changes = valuesAt(content);
    changes.erase(std::remove_if(changes.begin(), changes.end(),
                                 [](const Change& change) { return isSavedDefault(change.thing); }),
                  changes.end());
    project.apply(changes);
    project.history().restore(content.steps, content.position);
    project.history().setSelection(content.selection);
    return content.cut ? Message(Code::JournalCut) : Message();
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

Journal::Journal(Project& project, const QString& folder)
    : d(std::make_unique<Private>(this, project, folderOr(folder)))
{
    flush();
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
    if (d->pending.isEmpty())
        return true;
    const bool written = d->file >= 0 && writeAll(d->file, d->pending);
    if (written) {
        d->size += d->pending.size();
        d->pending.clear();
    } else {
        const QString reason = QString::fromLocal8Bit(std::strerror(errno));
        // Half a line would end the journal for its reader.
        if (d->file >= 0 && ::ftruncate(d->file, d->size) != 0)
            d->timer.stop();
        d->timer.start(retryAfter);
        if (!d->inTrouble)
            emit trouble(Message(Code::FileUnwritable, {d->path, reason}));
    }
    if (written && d->inTrouble)
        emit trouble(Message());
    d->inTrouble = !written;
    return written;
}

void Journal::close()
{
    d->timer.stop();
    d->pending.clear();
    QFile::remove(d->path);
}

} // namespace zokit
