// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "filesettings_p.h"

#include <zokit/outputoptions.h>
#include <zokit/placement.h>
#include <zokit/tracks.h>

#include "names_p.h"
#include "newitem_p.h"

namespace zokit {

using Code = Message::Code;

bool isPlace(const QString& key)
{
    return key == keys::left || key == keys::top;
}

ReadValue FileSettings::Private::read(const QString& type, Suit suit, const QString& key, const QVariant& given,
                                      const QString& where) const
{
    const bool isOfEffect = effectTypes().contains(type);
    if (key == own::selected && isOfEffect) {
        Property selection;
        selection.kind = ValueKind::Bool;
        return readValue(selection, given, things.baseFrame(), where);
    }
    if (key == own::anchor && (suit == Suit::TextWatermark || suit == Suit::ImageWatermark)) {
        Message error;
        const bool isWord = given.userType() == QMetaType::QString;
        const Values wanted = isWord ? Values{{QStringLiteral("corner"), given}} : given.toMap();
        const std::optional<Anchor> anchor = anchorFrom(wanted, &error);
        return anchor ? ReadValue{toValues(*anchor), Message()} : ReadValue{QVariant(), error};
    }
    if (key.startsWith(QLatin1String("x-")))
        return {given, Message()}; // The host's own.
    const Property* known = findProperty(type, key);
    if (!known) {
        const ReadAddress asRead = readAddress(type + QLatin1Char(':') + key);
        return {QVariant(), asRead.error.isEmpty() ? Message(Code::NoSuchThing) : asRead.error};
    }
    const OutputOption* option = type == types::output ? outputOption(key) : nullptr;
    if (option && !option->inSettings)
        return {QVariant(), Message(Code::NotKept, {key})};
    if (isOfEffect && !known->suits.testFlag(suit)) {
        if (suit == Suit::Type)
            return {QVariant(), Message(Code::KeyNeedsItem, {type, key})};
        return {QVariant(), Message(Code::NotOfItem, {where, suitsText(known->suits)})};
    }
    const ReadValue read = readValue(*known, given, things.baseFrame(), where);
    Message noRule;
    if (type == types::tracks && read.error.isEmpty() && !trackRulesFrom({{key, read.value}}, &noRule))
        return {QVariant(), noRule};
    return read;
}

ReadValue FileSettings::Private::read(Identity thing, const QString& name, const QVariant& given) const
{
    const QString key = asKept(name);
    const QString type = things.typeOf(thing);
    if (type.isEmpty() || isInternal(key))
        return {QVariant(), Message(Code::NoSuchThing)};
    return read(type, suitOf(type, things.isItem(thing), things.values(thing)), key, given, addressText(thing, key));
}

Message FileSettings::check(Identity thing, const QString& key, const QVariant& candidate) const
{
    return d->read(thing, key, candidate).error;
}

/// What somebody who sets these values of \a thing, and no others, means besides.
Changes FileSettings::Private::meantWith(Identity thing, const Values& set) const
{
    Changes meant;
    const auto isAmong = [&](const QString& key) { return set.contains(key); };
    const auto isTurn = [&](const QString& key) { return set.value(key).toInt() != 0; };
    const Identity crop = things.type(types::crop);
    if (thing == crop
        && (isAmong(keys::cropLeft) || isAmong(keys::cropTop) || isAmong(keys::cropWidth)
            || isAmong(keys::cropHeight))) {
        // With an edge that is set by hand the others are where the frame has them.
        const auto complete = [&](const QString& size, const QString& edge, int all) {
            const QVariant present = things.value(crop, size);
            const int rest = all - set.value(edge, things.value(crop, edge)).toInt();
            if (!isAmong(size) && present.toInt() <= 0 && rest > 0)
                meant.append({crop, size, present, rest});
        };
        const QSize frame = things.baseFrame();
        complete(keys::cropWidth, keys::cropLeft, frame.width());
        complete(keys::cropHeight, keys::cropTop, frame.height());
    } else if (thing == things.type(types::effect) && (isTurn(keys::turnAngle) || isTurn(keys::turnMirror))) {
        // A turn is to be seen.
        for (const QString& key : {keys::turnsPicture, own::selected}) {
            const QVariant present = things.value(crop, key);
            if (crop != 0 && !present.toBool())
                meant.append({crop, key, present, true});
        }
    }
    return meant;
}

Message FileSettings::setValue(Identity thing, const QString& key, const QVariant& value, QObject* asker)
{
    return setValues(thing, {{key, value}}, asker);
}

Message FileSettings::setValues(Identity thing, const Values& values, QObject* asker)
{
    Changes changes;
    Values set;
    bool changesPlace = false;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const ReadValue read = d->read(thing, it.key(), it.value());
        if (!read.error.isEmpty())
            return read.error;
        const QString key = asKept(it.key());
        changesPlace = changesPlace || isPlace(key);
        changes.append({thing, key, d->things.value(thing, key), read.value});
        set.insert(key, read.value);
    }
    changes = merged(changes);
    if (changes.isEmpty())
        return Message();
    changes += d->meantWith(thing, set);
    const auto select = [&](Identity whose) {
        const QVariant selected = d->things.value(whose, own::selected);
        if (selected.isValid() && !selected.toBool())
            changes.append({whose, own::selected, selected, true});
    };
    if (!set.contains(own::selected)) {
        select(thing);
        if (d->things.isItem(thing))
            select(d->things.type(d->things.typeOf(thing)));
    }
    // Who places a watermark by hand takes it from its anchor.
    if (changesPlace && !set.contains(own::anchor) && d->things.values(thing).contains(own::anchor))
        changes.append({thing, own::anchor, d->things.value(thing, own::anchor), QVariant()});
    return d->commit(changes, asker);
}

} // namespace zokit
