// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokitquick/filesettings.h>

#include <optional>

#include <QFileInfo>
#include <QPointer>
#include <QUrl>

#include <zokit/filesettings.h>
#include <zokit/history.h>
#include <zokit/opening.h>
#include <zokit/probe.h>
#include <zokit/project.h>
#include <zokit/settingsfile.h>
#include <zokit/tools.h>

#include "places_p.h"

namespace zokitquick {

using zokit::Message;

class FileSettings::Private {
public:
    explicit Private(FileSettings* object) : q(object), tools(zokit::findTools()), prober(tools) {}

    zokit::FileSettings* file() const { return project ? project->files().value(0) : nullptr; }
    zokit::History* history() const { return project ? &project->history() : nullptr; }
    void drop();
    void fail(const Message& why);
    void take(const zokit::ReadMedia& read);
    void open(const zokit::Settings& settings);
    void tellChanges(const zokit::Changes& changes) const;
    bool taken(const Message& refusal) const;
    Place place(const QString& address) const;
    Place item(const QString& type, int pos) const;

    FileSettings* q;
    zokit::Tools tools;
    zokit::Prober prober;
    QString path;
    Status status = Empty;
    Message error;
    std::optional<zokit::Settings> loaded; ///< Out of a settings file, until its clip was looked into.
    std::optional<zokit::MediaInfo> media;
    QPointer<zokit::Project> project; ///< Of this clip alone; null for none.
};

/// The project ends when the event loop is back: one of its signals may be what asks for it.
void FileSettings::Private::drop()
{
    prober.cancel();
    loaded.reset();
    media.reset();
    error = Message();
    if (!project)
        return;
    project->disconnect(q);
    project->history().disconnect(q);
    project->deleteLater();
    project.clear();
}

void FileSettings::Private::fail(const Message& why)
{
    error = why;
    status = Failed;
    emit q->statusChanged();
}

void FileSettings::Private::take(const zokit::ReadMedia& read)
{
    if (!read.media) {
        fail(tools.error.isEmpty() ? read.error : tools.error);
        return;
    }
    media = read.media;
    open(loaded ? zokit::settingsFor(*loaded, *media) : zokit::settingsOf(*media));
}

void FileSettings::Private::open(const zokit::Settings& settings)
{
    project = new zokit::Project(q);
    project->add(settings);
    // That the clip is there is nothing to be undone.
    project->history().restore({});
    QObject::connect(project, &zokit::Project::changed, q,
                     [this](const zokit::Changes& changes) { tellChanges(changes); });
    QObject::connect(&project->history(), &zokit::History::changed, q, &FileSettings::historyChanged);
    status = Ready;
    emit q->settingsChanged();
    emit q->statusChanged();
    emit q->historyChanged();
}

void FileSettings::Private::tellChanges(const zokit::Changes& changes) const
{
    QStringList addresses;
    for (const zokit::Change& change : changes) {
        const bool isOwn = change.key.startsWith(QLatin1Char(':')); // The kit's, without an address.
        const std::optional<zokit::Address> address =
            isOwn || !file() ? std::nullopt : file()->address(change.thing, change.key);
        if (address)
            addresses.append(address->toString());
    }
    emit q->changed(addresses);
}

/// Tells why an edit was refused. Whether it was not.
bool FileSettings::Private::taken(const Message& refusal) const
{
    if (!refusal.isEmpty())
        emit q->refused(refusal.text());
    return refusal.isEmpty();
}

Place FileSettings::Private::place(const QString& address) const
{
    Place none;
    none.error = Message(Message::Code::NoSuchThing);
    return file() ? placeAt(*file(), address) : none;
}

Place FileSettings::Private::item(const QString& type, int pos) const
{
    return place(QStringLiteral("%1:%2").arg(type).arg(pos));
}

FileSettings::FileSettings(QObject* parent) : QObject(parent), d(std::make_unique<Private>(this))
{
    connect(&d->prober, &zokit::Prober::finished, this, [this](const zokit::ReadMedia& read) { d->take(read); });
}

FileSettings::~FileSettings()
{
    d->drop();
}

QString FileSettings::path() const
{
    return d->path;
}

FileSettings::Status FileSettings::status() const
{
    return d->status;
}

QString FileSettings::error() const
{
    return d->error.text();
}

double FileSettings::seconds() const
{
    return d->media ? d->media->seconds : 0;
}

QSize FileSettings::frame() const
{
    return d->file() ? d->file()->media().frame : QSize(0, 0);
}

zokit::FileSettings* FileSettings::settings() const
{
    return d->file();
}

const zokit::MediaInfo* FileSettings::media() const
{
    return d->media ? &*d->media : nullptr;
}

void FileSettings::load(const QString& path)
{
    d->drop();
    const bool isOther = path != d->path;
    d->path = path;
    d->status = path.isEmpty() ? Empty : Loading;
    const QString local = path.startsWith(QLatin1String("file:")) ? QUrl(path).toLocalFile() : path;
    QString clip = QFileInfo(local).absoluteFilePath();
    Message trouble;
    if (local.endsWith(QLatin1String(".json"))) {
        const zokit::ReadSettings read = zokit::loadSettings(clip);
        trouble = read.error;
        d->loaded = read.settings;
        clip = read.settings ? read.settings->media.file : QString();
    }
    if (d->status == Loading && trouble.isEmpty())
        d->prober.probe(clip);
    emit settingsChanged();
    if (isOther)
        emit pathChanged();
    if (path != d->path)
        return; // Who heard of it has loaded another one.
    if (!trouble.isEmpty()) {
        d->fail(trouble);
    } else {
        emit statusChanged();
    }
    emit historyChanged();
}

bool FileSettings::save(const QString& path)
{
    if (!d->file())
        return d->taken(Message(Message::Code::NoSuchThing));
    const QString local = path.startsWith(QLatin1String("file:")) ? QUrl(path).toLocalFile() : path;
    return d->taken(zokit::saveSettings(d->file()->settings(), local));
}

QVariant FileSettings::value(const QString& address)
{
    if (!d->file())
        return QVariant();
    const Place place = d->place(address);
    return d->taken(place.error) ? d->file()->value(place.thing, place.key) : QVariant();
}

bool FileSettings::setValue(const QString& address, const QVariant& value)
{
    const Place place = d->place(address);
    return d->taken(place.error) && d->taken(d->file()->setValue(place.thing, place.key, plainValue(value), this));
}

QString FileSettings::check(const QString& address, const QVariant& value) const
{
    const Place place = d->place(address);
    const Message refusal =
        place.error.isEmpty() ? d->file()->check(place.thing, place.key, plainValue(value)) : place.error;
    return refusal.text();
}

bool FileSettings::reset(const QString& address)
{
    const Place place = d->place(address);
    if (!d->taken(place.error))
        return false;
    if (!place.key.isEmpty())
        return d->taken(d->file()->reset(place.thing, place.key, this));
    return d->taken(place.isItem ? d->file()->resetItem(place.thing, this) : d->file()->resetType(place.type, this));
}

bool FileSettings::resetAll()
{
    return d->taken(d->file() ? d->file()->resetAll(this) : Message(Message::Code::NoSuchThing));
}

int FileSettings::count(const QString& type) const
{
    return d->file() ? static_cast<int>(d->file()->items(type).size()) : 0;
}

int FileSettings::insert(const QString& type, const QVariantMap& values, int pos)
{
    if (!d->file()) {
        emit refused(Message(Message::Code::NoSuchThing).text());
        return -1;
    }
    zokit::Values plain;
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        plain.insert(it.key(), plainValue(it.value()));
    const int before = count(type);
    const zokit::FileSettings::Inserted inserted = d->file()->insert(type, plain, pos, this);
    if (!d->taken(inserted.error))
        return -1;
    return pos < 0 ? before : pos;
}

bool FileSettings::remove(const QString& type, int pos)
{
    const Place item = d->item(type, pos);
    return d->taken(item.error) && d->taken(d->file()->remove(item.thing, this));
}

bool FileSettings::move(const QString& type, int from, int to)
{
    const Place item = d->item(type, from);
    return d->taken(item.error) && d->taken(d->file()->move(item.thing, to, this));
}

bool FileSettings::canUndo() const
{
    return d->project && d->history()->canUndo();
}

bool FileSettings::canRedo() const
{
    return d->project && d->history()->canRedo();
}

QString FileSettings::undoText() const
{
    return d->project ? d->history()->undoText().text() : QString();
}

QString FileSettings::redoText() const
{
    return d->project ? d->history()->redoText().text() : QString();
}

void FileSettings::undo()
{
    if (d->project)
        d->history()->undo();
}

void FileSettings::redo()
{
    if (d->project)
        d->history()->redo();
}

void FileSettings::beginGesture(const QString& what)
{
    if (d->project)
        d->history()->beginGesture(Message(Message::Code::StepChange, {what}));
}

void FileSettings::endGesture()
{
    if (d->project)
        d->history()->endGesture();
}

} // namespace zokitquick
