// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/project.h>

#include <algorithm>
#include <functional>
#include <vector>

#include <QFileInfo>
#include <QHash>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include <zokit/differences.h>
#include <zokit/history.h>
#include <zokit/properties.h>

#include "carrier_p.h"
#include "filesettings_p.h"
#include "newitem_p.h"
#include "projectthings_p.h"
#include "savingdefaults_p.h"
#include "things_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

ZoEffectItemDefaultValMgr& savedDefaults()
{
    registerEffects();
    return *ZoEffectItemDefaultValMgr::getInstance();
}

Changes changesBetween(Identity thing, const Values& before, const Values& after)
{
    Changes changes;
    for (auto it = before.cbegin(); it != before.cend(); ++it)
        changes.append({thing, it.key(), it.value(), after.value(it.key())});
    for (auto it = after.cbegin(); it != after.cend(); ++it) {
        if (!before.contains(it.key()))
            changes.append({thing, it.key(), QVariant(), it.value()});
    }
    return merged(changes);
}

/// Whether \a changes take the file \a thing away.
bool goes(Identity thing, const Changes& changes)
{
    return std::any_of(changes.cbegin(), changes.cend(), [thing](const Change& change) {
        return change.thing == thing && change.key == QLatin1String("width") && !change.after.isValid();
    });
}

Changes fromNothing(const QMap<Identity, Values>& things)
{
    Changes changes;
    for (auto it = things.cbegin(); it != things.cend(); ++it)
        changes += changesBetween(it.key(), Values(), it.value());
    return changes;
}

} // namespace

class Project::Private {
public:
    explicit Private(Project* project) : q(project), identities(std::make_shared<Identities>())
    {
        identities->skip(lastFixedThing);
    }

    FileSettings* take(std::unique_ptr<FileSettings> file);
    void tell(const Changes& changes, QObject* asker, const std::function<void()>& carryOut);
    void applyToDefaults(const Changes& changes);
    void applyToFiles(const Changes& changes, QObject* asker);
    void remove(FileSettings* file);

    class Refusal;

    Project* q;
    std::shared_ptr<Identities> identities;
    std::vector<FileSettings*> files;      // Children of the project, by their identities: those grow.
    QHash<Identity, FileSettings*> owners; // The file of each thing.
    std::unique_ptr<History> history;
    bool applying = false;
    int refusals = 0; // Of those that live.
};

/// While one lives, the files refuse edits: what a listener sets in between would be in no step.
class Project::Private::Refusal {
public:
    explicit Refusal(Private& ofProject) : m_project(ofProject) { ++m_project.refusals; }
    ~Refusal() { --m_project.refusals; }
    Q_DISABLE_COPY(Refusal)

private:
    Private& m_project;
};

FileSettings* Project::Private::take(std::unique_ptr<FileSettings> file)
{
    FileSettings* taken = file.release();
    taken->setParent(q);
    taken->d->refusals = &refusals;
    files.insert(std::upper_bound(files.begin(), files.end(), taken,
                                  [](const FileSettings* a, const FileSettings* b) { return a->file() < b->file(); }),
                 taken);
    const auto pass = [this](void (Project::*signal)(const Changes&, QObject*)) {
        return [this, signal](const Changes& changes, QObject* asker) {
            if (!applying)
                emit(q->*signal)(changes, asker);
        };
    };
    const QList<Identity> things = taken->everything().keys();
    for (const Identity thing : things)
        owners.insert(thing, taken);
    QObject::connect(taken, &FileSettings::aboutToChange, q, pass(&Project::aboutToChange));
    QObject::connect(taken, &FileSettings::changed, q, [this, taken](const Changes& changes) {
        for (const Change& change : changes) {
            if (change.key != own::of)
                continue;
            if (change.after.isValid())
                owners.insert(change.thing, taken);
            else
                owners.remove(change.thing);
        }
    });
    QObject::connect(taken, &FileSettings::changed, q, pass(&Project::changed));
    return taken;
}

/// Sends the project's own signals around \a carryOut, and none of the files'.
void Project::Private::tell(const Changes& changes, QObject* asker, const std::function<void()>& carryOut)
{
    emit q->aboutToChange(changes, asker);
    {
        const Refusal refusal(*this);
        applying = true;
        carryOut();
        applying = false;
    }
    emit q->changed(changes, asker);
}

void Project::Private::applyToDefaults(const Changes& changes)
{
    for (const QString& type : effectTypes()) {
        const Identity thing = q->savedDefault(type);
        Values values = savedDefaults().getCustomDefaultVal(type);
        bool touched = false;
        for (const Change& change : changes) {
            if (change.thing != thing)
                continue;
            touched = true;
            if (change.after.isValid())
                values.insert(change.key, change.after);
            else
                values.remove(change.key);
        }
        if (touched && values.isEmpty())
            savedDefaults().removeCustomDefaultVal(type);
        else if (touched)
            savedDefaults().saveAsCustomDefaultVal(type, values);
    }
}

void Project::Private::applyToFiles(const Changes& changes, QObject* asker)
{
    QMap<Identity, Values> coming;
    for (const Change& change : changes) {
        if (change.thing > lastFixedThing && !q->fileOf(change.thing) && change.after.isValid())
            coming[change.thing].insert(change.key, change.after);
    }
    // What comes belongs to a file that is there, or is a file with all that belongs to it.
    const auto fileBehind = [&](Identity thing) {
        constexpr int levels = 2; // An item, its type: a damaged journal may name things in a circle.
        for (int level = 0; level < levels && coming.value(thing).contains(own::of); ++level)
            thing = coming.value(thing).value(own::of).toULongLong();
        return thing;
    };
    QMap<Identity, QMap<Identity, Values>> newFiles;
    for (auto it = coming.cbegin(); it != coming.cend(); ++it) {
        if (!q->fileOf(fileBehind(it.key())))
            newFiles[fileBehind(it.key())].insert(it.key(), it.value());
    }
    QHash<FileSettings*, Changes> byFile;
    for (const Change& change : changes) {
        FileSettings* file = q->fileOf(change.thing);
        if (!file)
            file = q->fileOf(fileBehind(change.thing));
        if (file)
            byFile[file].append(change);
    }
    for (auto it = byFile.cbegin(); it != byFile.cend(); ++it) {
        const Identity thing = it.key()->file();
        if (goes(thing, it.value()))
            remove(it.key());
        else
            it.key()->apply(it.value(), asker);
    }
    for (auto it = newFiles.cbegin(); it != newFiles.cend(); ++it) {
        identities->skip(it.value().lastKey());
        emit q->fileAdded(take(std::make_unique<FileSettings>(it.value(), identities)));
    }
}

void Project::Private::remove(FileSettings* file)
{
    emit q->fileAboutToBeRemoved(file);
    files.erase(std::find(files.begin(), files.end(), file));
    const QList<Identity> things = file->everything().keys();
    for (const Identity thing : things)
        owners.remove(thing);
    file->disconnect(q);
    file->d->refusals = nullptr;
    file->deleteLater(); // Who asks may be called by one of its signals.
}

Project::Project(QObject* parent) : QObject(parent), d(std::make_unique<Private>(this))
{
    d->history = std::make_unique<History>(*this);
}

Project::~Project()
{
    for (FileSettings* file : d->files)
        file->d->refusals = nullptr; // They are still there when this is not.
}

History& Project::history() const
{
    return *d->history;
}

QVector<FileSettings*> Project::files() const
{
    return QVector<FileSettings*>(d->files.cbegin(), d->files.cend());
}

FileSettings* Project::file(Identity file) const
{
    FileSettings* found = fileOf(file);
    return found && found->file() == file ? found : nullptr;
}

FileSettings* Project::fileOf(Identity thing) const
{
    return d->owners.value(thing, nullptr);
}

FileSettings* Project::add(const Media& media, QObject* asker)
{
    return addFile(std::make_unique<FileSettings>(media, d->identities), asker);
}

FileSettings* Project::add(const Settings& settings, QObject* asker)
{
    return addFile(std::make_unique<FileSettings>(settings, d->identities), asker);
}

FileSettings* Project::addExpected(const Settings& settings, QObject* asker)
{
    d->history->takeBelow(true);
    FileSettings* added = add(settings, asker);
    d->history->takeBelow(false);
    return added;
}

FileSettings* Project::addFile(std::unique_ptr<FileSettings> file, QObject* asker)
{
    if (d->refusals > 0)
        return nullptr;
    const Changes changes = fromNothing(file->everything());
    FileSettings* added = nullptr;
    d->tell(changes, asker, [&] {
        added = d->take(std::move(file));
        emit fileAdded(added);
    });
    return added;
}

void Project::remove(FileSettings* file, QObject* asker)
{
    if (d->refusals > 0 || !file || this->file(file->file()) != file)
        return;
    const Changes changes = reversed(fromNothing(file->everything()));
    d->tell(changes, asker, [&] { d->remove(file); });
}

Message Project::apply(const Settings& from, const QVector<FileSettings*>& targets, const CarryOver& carry,
                       QObject* asker, const Settle& settle)
{
    const Message error = checkCarryOver(from, carry);
    if (!error.isEmpty())
        return error;
    d->history->beginGesture(targets.size() == 1 ? Message(Code::StepApplyToOne)
                                                 : Message(Code::StepApply, {QString::number(targets.size())}));
    Changes done;
    const auto note = [&done](const Changes& changes) { done += changes; };
    const auto noting = connect(this, &Project::changed, this, note);
    Carrier carrier(from, carry);
    Message refused;
    for (FileSettings* target : targets) {
        if (!refused.isEmpty())
            break;
        const Settings present = target->settings();
        Settings wanted = carrier.over(present);
        if (settle)
            refused = settle(present, wanted);
        if (refused.isEmpty())
            refused = target->d->become(wanted, present, asker);
    }
    disconnect(noting);
    const Changes back = refused.isEmpty() ? Changes() : reversed(merged(done));
    if (!back.isEmpty()) // No more than that: a gesture of the host may be open.
        apply(back, asker);
    d->history->endGesture();
    return refused;
}

QStringList Project::changesOf(const Settings& from, const QVector<FileSettings*>& targets, const CarryOver& carry,
                               const Settle& settle) const
{
    if (!checkCarryOver(from, carry).isEmpty())
        return QStringList();
    Carrier carrier(from, carry);
    QStringList lines;
    for (const FileSettings* target : targets) {
        const Settings present = target->settings();
        Settings wanted = carrier.over(present);
        if (settle && !settle(present, wanted).isEmpty())
            return QStringList();
        const QString name = QFileInfo(present.media.file).fileName();
        const QVector<Difference> changing = differences(present, wanted);
        for (const Difference& difference : changing)
            lines.append(name + QStringLiteral(": ") + differenceLabel(difference));
        for (const Message& moved : changing.isEmpty() ? Messages() : movedByCarrying(from, carry, wanted))
            lines.append(name + QStringLiteral(": ") + moved.text());
    }
    return lines;
}

Identity Project::savedDefault(const QString& type) const
{
    const auto row = effectTypes().indexOf(type);
    return row < 0 ? 0 : firstSavedDefault + static_cast<Identity>(row);
}

Values Project::savedValues(const QString& type) const
{
    return savedDefaults().getCustomDefaultVal(type);
}

Message Project::saveDefault(Identity thing, QObject* asker)
{
    if (d->refusals > 0)
        return Message(Code::Busy);
    const FileSettings* file = fileOf(thing);
    const std::optional<Address> address = file ? file->address(thing, QString()) : std::nullopt;
    const Identity saved = address ? savedDefault(address->type) : 0;
    if (saved == 0)
        return Message(Code::NoSuchThing);
    const Values before = savedDefaults().getCustomDefaultVal(address->type);
    const Values after = valuesToSave(*file, *address, before);
    if (after.isEmpty())
        return Message(Code::NothingToSave, {address->type});
    const Changes changes = changesBetween(saved, before, after);
    if (!changes.isEmpty())
        d->tell(changes, asker, [&] { d->applyToDefaults(changes); });
    return whyUnwritten();
}

Message Project::forgetDefault(const QString& type, QObject* asker)
{
    if (d->refusals > 0)
        return Message(Code::Busy);
    const Identity saved = savedDefault(type);
    if (saved == 0)
        return Message(Code::UnknownType, {type, nearest(type, effectTypes())});
    const Changes changes = changesBetween(saved, savedDefaults().getCustomDefaultVal(type), Values());
    if (!changes.isEmpty())
        d->tell(changes, asker, [&] { d->applyToDefaults(changes); });
    return whyUnwritten();
}

void Project::apply(const Changes& changes, QObject* asker)
{
    const Private::Refusal refusal(*d); // Until everybody was told.
    d->tell(changes, asker, [&] {
        d->applyToDefaults(changes);
        d->applyToFiles(changes, asker);
    });
}

void Project::skipIdentities(Identity used)
{
    d->identities->skip(used);
}

Changes Project::everything() const
{
    Changes changes;
    for (const FileSettings* file : d->files)
        changes += fromNothing(file->everything());
    return merged(changes);
}

} // namespace zokit
