// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "filesettings_p.h"

#include <algorithm>
#include <utility>

#include <QScopedValueRollback>
#include <QSet>

#include <zoeffectmodel.h>

#include <zokit/placement.h>
#include <zokit/settingsfile.h>

#include "completion_p.h"
#include "names_p.h"
#include "newitem_p.h"
#include "realeffect_p.h"

namespace zokit {

namespace {

Settings newSettings(const Media& media)
{
    Settings settings;
    settings.media = media;
    for (const QString& type : effectTypes())
        settings.effects.append(newType(type, media.frame));
    return settings;
}

} // namespace

Identity Identities::next()
{
    return ++m_last;
}

void Identities::skip(Identity used)
{
    m_last = std::max(m_last, used);
}

Projection& FileSettings::Private::projection()
{
    if (models)
        return *models;
    models = std::make_unique<Projection>(things);
    const auto follow = [this] {
        if (!models->isFollowing())
            q->syncFromModels();
    };
    for (ZoEffectModel* model : {&models->picture(), &models->sound()}) {
        QObject::connect(
            model,
            QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged), q,
            follow);
        QObject::connect(model, QOverload<const QString&>::of(&ZoEffectModel::effectDataChanged), q, follow);
    }
    return *models;
}

FileSettings::FileSettings(const Media& media, std::shared_ptr<Identities> identities, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this, std::move(identities), newSettings(media)))
{
}

FileSettings::FileSettings(const Settings& settings, std::shared_ptr<Identities> identities, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this, std::move(identities), completed(settings)))
{
}

FileSettings::FileSettings(const QMap<Identity, Values>& things, std::shared_ptr<Identities> identities,
                           QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this, std::move(identities), things))
{
}

FileSettings::~FileSettings() = default;

Identity FileSettings::file() const
{
    return d->things.file();
}

Identity FileSettings::output() const
{
    return d->things.type(types::output);
}

Identity FileSettings::tracks() const
{
    return d->things.type(types::tracks);
}

Identity FileSettings::type(const QString& name) const
{
    return effectTypes().contains(name) ? d->things.type(name) : 0;
}

QVector<Identity> FileSettings::items(const QString& type) const
{
    return d->things.items(type);
}

Identity FileSettings::item(const QString& type, int pos) const
{
    return pos < 0 ? 0 : d->things.item(type, pos);
}

Identity FileSettings::thing(const Address& address) const
{
    return address.pos == Address::ofType ? d->things.type(address.type) : item(address.type, address.pos);
}

std::optional<Address> FileSettings::address(Identity thing, const QString& key) const
{
    const QString type = d->things.typeOf(thing);
    if (type.isEmpty())
        return std::nullopt;
    return Address{type, d->things.isItem(thing) ? d->things.position(thing) : Address::ofType, asKept(key)};
}

bool FileSettings::owns(Identity thing) const
{
    return d->things.contains(thing);
}

QMap<Identity, Values> FileSettings::everything() const
{
    return d->things.all();
}

QVariant FileSettings::value(Identity thing, const QString& key) const
{
    return isInternal(key) && key != own::name ? QVariant() : d->things.value(thing, asKept(key));
}

Values FileSettings::values(Identity thing) const
{
    Values values = d->things.values(thing);
    for (auto it = values.begin(); it != values.end();)
        it = isInternal(it.key()) ? values.erase(it) : std::next(it);
    return values;
}

Settings FileSettings::settings() const
{
    return d->things.settings();
}

Message FileSettings::setSettings(const Settings& target, QObject* asker)
{
    return d->become(completed(target), settings(), asker);
}

Media FileSettings::media() const
{
    return settings().media;
}

Message FileSettings::setMedia(const Media& media, QObject* asker)
{
    Settings target = rescaled(settings(), media.frame);
    target.media = media;
    return setSettings(target, asker);
}

bool FileSettings::comesOutUnchanged() const
{
    return !asksForAnything(settings());
}

void FileSettings::apply(const Changes& changes, QObject* asker)
{
    // A thing that comes says in the same changes what it belongs to.
    const auto isOurs = [this](const Change& change) { return d->things.contains(change.thing); };
    QSet<Identity> coming;
    for (const Change& change : changes) {
        if (change.key == own::of && d->things.contains(change.after.toULongLong()))
            coming.insert(change.thing);
    }
    Changes ours;
    std::copy_if(changes.cbegin(), changes.cend(), std::back_inserter(ours),
                 [&](const Change& change) { return isOurs(change) || coming.contains(change.thing); });
    if (ours.isEmpty())
        return;
    d->announce(ours, asker);
    d->store(ours, asker, ours);
}

ZoEffectModel* FileSettings::pictureModel() const
{
    return &d->projection().picture();
}

ZoEffectModel* FileSettings::soundModel() const
{
    return &d->projection().sound();
}

} // namespace zokit
