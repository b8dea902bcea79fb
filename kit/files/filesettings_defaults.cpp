// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "filesettings_p.h"

#include <zoeffectitemdefaultvalmgr.h>

#include "cataloguedefaults_p.h"
#include "exactly_p.h"
#include "names_p.h"
#include "newitem_p.h"

namespace zokit {

using Code = Message::Code;

namespace {

/// What a reset makes of a type: the clip's own tracks stay, with the defaults of the moment and none chosen; files and
/// watermarks go.
TypeSettings resetOf(const TypeSettings& type, const QSize& frame)
{
    TypeSettings result = newType(type.type, frame);
    result.foreign = type.foreign;
    if (type.type == types::effect || type.type == types::watermark)
        return result;
    for (const Item& item : type.items) {
        if (suitOf(type.type, true, item.values) == Suit::FileTrack)
            continue;
        Item fresh = newItem(type.type, kindOf(type.type, item.values), frame);
        fresh.selected = false;
        fresh.foreign = item.foreign;
        for (auto it = item.values.cbegin(); it != item.values.cend(); ++it) {
            if (!fresh.values.contains(it.key()))
                fresh.values.insert(it.key(), it.value()); // Which track it is.
        }
        result.items.append(fresh);
    }
    return result;
}

/// Whether a crop has the numbers of the whole frame, as one that was drawn over all of it.
bool hasWholeFrame(const Values& crop, const QSize& frame)
{
    const auto number = [&](const QString& key) { return crop.value(key).toInt(); };
    return QRect(number(keys::cropLeft), number(keys::cropTop), number(keys::cropWidth), number(keys::cropHeight))
           == QRect(QPoint(0, 0), frame);
}

} // namespace

/// What a new item of the same kind would get at the place of \a item. Where a watermark would go takes the time to
/// measure all texts before it: only \a withPlace.
Item FileSettings::Private::defaultItem(Identity item, bool withPlace) const
{
    const QString type = things.typeOf(item);
    const Values values = things.values(item);
    if (type == types::effect) {
        const QString name = values.value(own::name).toString();
        for (const Item& fresh : newType(type, things.baseFrame()).items) {
            if (fresh.name == name)
                return fresh;
        }
        return Item();
    }
    Item fresh = newItem(type, kindOf(type, values), things.baseFrame());
    if (suitOf(type, true, values) == Suit::EmbeddedTrack)
        fresh.selected = false; // Tracks of the clip are there, and chosen by rule or by hand.
    if (type == types::watermark && withPlace) {
        Item shown = fresh; // Its own content and font decide how much room it takes where it begins.
        for (const QString& key : {keys::textContent, keys::imageUrl, keys::imageWidth, keys::imageHeight}) {
            if (values.contains(key))
                shown.values.insert(key, values.value(key));
        }
        place(shown, things.typeSettings(type).items.mid(0, things.position(item)), things.baseFrame());
        fresh.values.insert(keys::left, shown.values.value(keys::left));
        fresh.values.insert(keys::top, shown.values.value(keys::top));
    }
    return fresh;
}

QVariant FileSettings::Private::defaultOf(Identity thing, const QString& name) const
{
    const QString key = asKept(name);
    const QString type = things.typeOf(thing);
    if (!effectTypes().contains(type)) {
        const Property* known = findProperty(type, key);
        return known ? known->defaultValue() : QVariant();
    }
    if (things.isItem(thing)) {
        const Item fresh = defaultItem(thing, isPlace(key));
        return key == own::selected ? QVariant(fresh.selected) : fresh.values.value(key);
    }
    const TypeSettings fresh = newType(type, things.baseFrame());
    return key == own::selected ? QVariant(fresh.selected) : fresh.values.value(key);
}

QVariant FileSettings::Private::catalogueDefaultOf(Identity thing, const QString& name) const
{
    const QString key = asKept(name);
    const QString type = things.typeOf(thing);
    if (type == types::effect && things.isItem(thing))
        return key == own::selected ? QVariant(false) : things.value(thing, key);
    if (!things.isItem(thing))
        return key == own::selected ? QVariant(true) : catalogueType(type, things.baseFrame()).values.value(key);
    return key == own::selected ? QVariant(defaultItem(thing, false).selected)
                                : catalogueItem(type, things.baseFrame()).value(key);
}

State FileSettings::state(Identity thing, const QString& key) const
{
    const QString kept = asKept(key);
    const QString type = d->things.typeOf(thing);
    const Property* known = findProperty(type, kept);
    if (known && known->control == Control::None)
        return State::Default; // The program's own says nothing of what a person did.
    const QVariant present = d->things.value(thing, kept);
    const bool shownWhole = type == types::crop && (known && known->isGeometry)
                            && hasWholeFrame(d->things.values(thing), d->things.baseFrame());
    if (!shownWhole && !exactly(present, d->defaultOf(thing, kept)))
        return State::Changed;
    if (!effectTypes().contains(type) || !ZoEffectItemDefaultValMgr::getInstance()->hasCustomDefaultVal(type))
        return State::Default;
    return exactly(present, d->catalogueDefaultOf(thing, kept)) ? State::Default : State::SavedDefault;
}

QVariant FileSettings::catalogueDefault(Identity thing, const QString& key) const
{
    if (!effectTypes().contains(d->things.typeOf(thing)))
        return d->defaultOf(thing, key);
    return d->catalogueDefaultOf(thing, key);
}

QVariant FileSettings::savedDefault(Identity thing, const QString& key) const
{
    const bool isSaved = ZoEffectItemDefaultValMgr::getInstance()->hasCustomDefaultVal(d->things.typeOf(thing));
    return isSaved ? d->defaultOf(thing, key) : QVariant();
}

Message FileSettings::reset(Identity thing, const QString& key, QObject* asker)
{
    const QString kept = asKept(key);
    const QVariant present = d->things.value(thing, kept);
    const QString type = d->things.typeOf(thing);
    if (type.isEmpty() || isInternal(kept))
        return Message(Code::NoSuchThing);
    if (kept.isEmpty()) {
        if (d->things.isItem(thing))
            return resetItem(thing, asker);
        if (effectTypes().contains(type))
            return resetType(type, asker);
        Changes changes;
        const Values now = values(thing);
        for (auto it = now.cbegin(); it != now.cend(); ++it)
            changes.append({thing, it.key(), it.value(), QVariant()});
        return d->commit(changes, asker);
    }
    const QVariant fresh = d->defaultOf(thing, kept);
    const bool isOption = !effectTypes().contains(d->things.typeOf(thing));
    if (!fresh.isValid() && kept != own::anchor && !isOption)
        return Message(Code::NoDefault, {d->addressText(thing, kept)});
    Changes changes{{thing, kept, present, isOption ? QVariant() : fresh}};
    if (isPlace(kept) && d->things.values(thing).contains(own::anchor))
        changes.append({thing, own::anchor, d->things.value(thing, own::anchor), QVariant()});
    return d->commit(changes, asker);
}

Message FileSettings::resetItem(Identity item, QObject* asker)
{
    if (!d->things.isItem(item))
        return Message(Code::NoSuchThing);
    const Item fresh = d->defaultItem(item, true);
    Changes changes;
    for (auto it = fresh.values.cbegin(); it != fresh.values.cend(); ++it)
        changes.append({item, it.key(), d->things.value(item, it.key()), it.value()});
    changes.append({item, own::anchor, d->things.value(item, own::anchor), QVariant()});
    return d->commit(changes, asker);
}

Message FileSettings::resetType(const QString& type, QObject* asker)
{
    if (!effectTypes().contains(type))
        return Message(Code::UnknownType, {type, nearest(type, effectTypes())});
    Settings target = settings();
    *target.find(type) = resetOf(*target.find(type), d->things.baseFrame());
    return setSettings(target, asker);
}

Message FileSettings::resetAll(QObject* asker)
{
    Settings target = settings();
    for (TypeSettings& type : target.effects)
        type = resetOf(type, d->things.frame()); // No turn is left.
    target.tracks.clear();
    target.output.clear();
    return setSettings(target, asker);
}

} // namespace zokit
