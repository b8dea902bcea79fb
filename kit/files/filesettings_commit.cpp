// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "filesettings_p.h"

#include <algorithm>
#include <utility>

#include <QScopedValueRollback>

#include <zoeffectmodel.h>

#include "anchoring_p.h"
#include "completion_p.h"
#include "exactly_p.h"
#include "names_p.h"

namespace zokit {

using Code = Message::Code;

/// What follows from \a changes: the place and size of watermarks that have an anchor.
Changes FileSettings::Private::consequences(const Changes& changes) const
{
    const QVector<Identity> watermarks = things.items(types::watermark);
    const bool anyAnchor = std::any_of(watermarks.cbegin(), watermarks.cend(),
                                       [this](Identity item) { return things.has(item, own::anchor); })
                           || std::any_of(changes.cbegin(), changes.cend(),
                                          [](const Change& change) { return change.key == own::anchor; });
    if (!anyAnchor)
        return Changes();
    Things next = things;
    next.apply(changes);
    const QSize frame = next.baseFrame();
    const bool frameChanged = frame != things.baseFrame();
    Changes result;
    for (const Identity item : next.items(types::watermark)) {
        const auto isOfItem = [item](const Change& change) { return change.thing == item; };
        if (!next.has(item, own::anchor) || !(frameChanged || std::any_of(changes.cbegin(), changes.cend(), isOfItem)))
            continue;
        const Values placed = anchoredValues(next.itemSettings(item), frame);
        for (auto it = placed.cbegin(); it != placed.cend(); ++it)
            result.append({item, it.key(), next.value(item, it.key()), it.value()});
    }
    return result;
}

Message FileSettings::Private::commit(const Changes& wanted, QObject* asker)
{
    return carryOut(merged(wanted + consequences(wanted)), asker);
}

/// Takes on \a target, in which every watermark stands where its anchor says: nothing more follows from it. \a present
/// is settings().
Message FileSettings::Private::become(const Settings& target, const Settings& present, QObject* asker)
{
    return carryOut(things.changesTo(withoutMeasures(target), present, *identities), asker);
}

Message FileSettings::Private::carryOut(const Changes& changes, QObject* asker)
{
    if (announcing || storing || (refusals && *refusals > 0))
        return Message(Code::Busy);
    if (changes.isEmpty())
        return Message();
    announce(changes, asker);
    store(changes, asker, changes);
    return Message();
}

/// Whoever listens cannot change anything by now.
void FileSettings::Private::announce(const Changes& changes, QObject* asker)
{
    const QScopedValueRollback<bool> busy(announcing, true);
    emit q->aboutToChange(changes, asker);
}

/// Takes \a changes over, brings the models to \a forModels, those that are not there already, and tells. Until all of
/// them are told nothing else may be changed: the history would have that before them.
// NOLINTNEXTLINE(misc-no-recursion): as often as a listener has written into a model.
void FileSettings::Private::store(const Changes& changes, QObject* asker, const Changes& forModels)
{
    QMap<QString, QVector<Identity>> before;
    for (const Change& change : changes) {
        const QString type = change.key == own::items ? things.typeOf(change.thing) : QString();
        if (!type.isEmpty())
            before.insert(type, things.items(type));
    }
    {
        const QScopedValueRollback<bool> busy(storing, true);
        things.apply(changes);
        if (models) {
            models->setFrame(things.baseFrame());
            if (!forModels.isEmpty())
                models->follow(things, forModels);
        }
        for (auto it = before.cbegin(); it != before.cend(); ++it)
            tellItems(it.key(), it.value(), things.items(it.key()));
    }
    const bool isMore = std::exchange(modelsChanged, false); // Whoever listens may delete the file.
    emit q->changed(changes, asker);
    if (isMore)
        q->syncFromModels();
}

void FileSettings::Private::tellItems(const QString& type, const QVector<Identity>& before,
                                      const QVector<Identity>& after)
{
    QVector<Identity> now = before;
    for (int pos = static_cast<int>(now.size()) - 1; pos >= 0; --pos) {
        if (!after.contains(now.at(pos))) {
            const Identity gone = now.takeAt(pos);
            emit q->itemRemoved(type, gone, pos);
        }
    }
    for (int pos = 0; pos < after.size(); ++pos) {
        const int from = static_cast<int>(now.indexOf(after.at(pos)));
        if (from == pos)
            continue;
        if (from < 0) {
            now.insert(pos, after.at(pos));
            emit q->itemInserted(type, after.at(pos), pos);
        } else {
            now.move(from, pos);
            emit q->itemMoved(type, after.at(pos), from, pos);
        }
    }
}

void FileSettings::syncFromModels() // NOLINT(misc-no-recursion): as above
{
    if (!d->models)
        return;
    if (d->storing) {
        d->modelsChanged = true;
        return;
    }
    for (const QString& type : effectTypes()) {
        TypeSettings target = d->models->read(type);
        const TypeSettings known = d->things.typeSettings(type);
        const QVector<Identity> present = items(type);
        QVector<Identity> kept = d->models->identities(type);
        for (int row = 0; row < kept.size(); ++row) {
            // A node that was written over as a whole is still the item at its place.
            if (kept.at(row) == 0 && kept.size() == present.size() && !kept.contains(present.at(row)))
                kept[row] = present.at(row);
            const int former = static_cast<int>(present.indexOf(kept.at(row)));
            if (former >= 0) {
                const Item& item = known.items.at(former);
                Item& now = target.items[row];
                now.foreign = item.foreign;
                const bool left = exactly(now.values.value(keys::left), item.values.value(keys::left));
                const bool top = exactly(now.values.value(keys::top), item.values.value(keys::top));
                now.anchor = left && top ? item.anchor : Values();
            }
        }
        target.foreign = known.foreign;
        if (target == known)
            continue;
        const Changes direct = merged(d->things.changesTo(target, kept, *d->identities));
        const Changes following = merged(d->consequences(direct));
        const Changes changes = merged(direct + following);
        QObject* model = &d->models->modelOf(type);
        d->announce(changes, model);
        Things next = d->things;
        next.apply(direct);
        d->models->note(type, next.items(type));
        d->store(changes, model, following);
    }
}

} // namespace zokit
