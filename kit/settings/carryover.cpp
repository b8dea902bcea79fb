// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/carryover.h>

#include <algorithm>
#include <optional>

#include <zokit/address.h>
#include <zokit/placement.h>
#include <zokit/properties.h>

#include "names_p.h"
#include "things_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

/// One thing that is asked for: a type, an item of it, or a value of either.
struct Wanted {
    QString type;
    int pos = Address::ofType;
    QString key; ///< Empty: all.
};

/// "TYPE", "TYPE:POS", "TYPE:KEY" or "TYPE:POS:KEY".
std::optional<Wanted> wantedFrom(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    if (parts.size() > 3 || parts.first().isEmpty())
        return std::nullopt;
    Wanted wanted{parts.first(), Address::ofType, QString()};
    int next = 1;
    if (parts.size() > next) {
        bool isNumber = false;
        const int pos = parts.at(next).toInt(&isNumber);
        if (isNumber) {
            wanted.pos = pos;
            ++next;
        }
    }
    if (parts.size() > next)
        wanted.key = parts.at(next++);
    if (next < parts.size())
        return std::nullopt;
    return wanted;
}

QVector<Wanted> everythingIn(const Settings& from)
{
    QVector<Wanted> all;
    for (const TypeSettings& type : from.effects)
        all.append({type.type, Address::ofType, QString()});
    if (!from.output.isEmpty())
        all.append({types::output, Address::ofType, QString()});
    return all;
}

QVector<Wanted> wantedOf(const Settings& from, const CarryOver& carry)
{
    if (carry.what.isEmpty())
        return everythingIn(from);
    QVector<Wanted> result;
    for (const QString& text : carry.what) {
        if (const std::optional<Wanted> wanted = wantedFrom(text))
            result.append(*wanted);
    }
    return result;
}

bool isFileTrack(const Item& track)
{
    return track.values.value(keys::subtitleIsFile).toBool() || track.values.value(keys::soundIsFile).toBool();
}

/// The style of \a from on every track of \a to that it suits. Which tracks there are, and which are chosen, is the
/// clip's.
void spreadStyle(const Item& from, TypeSettings& to)
{
    for (Item& track : to.items) {
        const Suit suit = isFileTrack(track) ? Suit::FileTrack : Suit::EmbeddedTrack;
        for (auto it = from.values.cbegin(); it != from.values.cend(); ++it) {
            const Property* known = findProperty(to.type, it.key());
            if (known && known->hasDefault() && known->suits.testFlag(suit))
                track.values.insert(it.key(), it.value());
        }
    }
}

/// The track whose style is meant: the first that is selected, else the first.
const Item* styled(const TypeSettings& type)
{
    const auto chosen =
        std::find_if(type.items.cbegin(), type.items.cend(), [](const Item& item) { return item.selected; });
    if (chosen != type.items.cend())
        return &*chosen;
    return type.items.isEmpty() ? nullptr : &type.items.first();
}

void carryTracks(const TypeSettings& from, const Wanted& wanted, TypeSettings& to)
{
    to.selected = from.selected;
    const Item* style = wanted.pos == Address::ofType ? styled(from) : &from.items.at(wanted.pos);
    if (style)
        spreadStyle(*style, to);
    // Subtitle and sound files are the user's own, and come along.
    for (const Item& item : from.items) {
        const bool isMeant = wanted.pos == Address::ofType || &item == style;
        if (isMeant && isFileTrack(item) && !to.items.contains(item))
            to.items.append(item);
    }
}

void carryItems(const TypeSettings& from, const Wanted& wanted, bool add, TypeSettings& to)
{
    const bool single = wanted.pos != Address::ofType;
    const QVector<Item> items = single ? QVector<Item>{from.items.at(wanted.pos)} : from.items;
    if (!single) {
        to.values = from.values;
        to.selected = from.selected;
    } else if (items.first().selected) {
        to.selected = true;
    }
    if (add) {
        for (const Item& item : items) {
            if (!to.items.contains(item))
                to.items.append(item);
        }
    } else if (single && to.type == types::watermark) {
        // One watermark takes the place of the one at its position.
        if (wanted.pos < to.items.size())
            to.items[wanted.pos] = items.first();
        else if (!to.items.contains(items.first()))
            to.items.append(items.first());
    } else if (single) {
        for (Item& there : to.items) {
            if (there.name == items.first().name)
                there = items.first();
        }
    } else {
        to.items = items;
    }
}

void carryValue(const TypeSettings& from, const Wanted& wanted, TypeSettings& to)
{
    const auto copy = [&wanted](const Values& source, bool sourceSelected, Values& target, bool& targetSelected) {
        if (wanted.key == own::selected)
            targetSelected = sourceSelected;
        else if (source.contains(wanted.key))
            target.insert(wanted.key, source.value(wanted.key));
    };
    if (wanted.pos == Address::ofType) {
        copy(from.values, from.selected, to.values, to.selected);
        if (wanted.key != own::selected && from.selected)
            to.selected = true;
    } else if (wanted.pos < to.items.size()) {
        const Item& source = from.items.at(wanted.pos);
        Item& target = to.items[wanted.pos];
        if (wanted.key == own::anchor)
            target.anchor = source.anchor;
        else
            copy(source.values, source.selected, target.values, target.selected);
    }
}

void carry(const TypeSettings& from, const Wanted& wanted, bool add, TypeSettings& to)
{
    if (!wanted.key.isEmpty())
        carryValue(from, wanted, to);
    else if (to.type == types::subtitle || to.type == types::audio)
        carryTracks(from, wanted, to);
    else if (hasItems(to.type))
        carryItems(from, wanted, add, to);
    else
        to = from;
}

void carryOutput(const Wanted& wanted, const Values& from, Values& to)
{
    for (auto it = from.cbegin(); it != from.cend(); ++it) {
        const bool isClipsOwn = it.key() == keys::trim;
        if (wanted.key.isEmpty() ? !isClipsOwn : it.key() == wanted.key)
            to.insert(it.key(), it.value());
    }
}

} // namespace

Message checkCarryOver(const Settings& from, const CarryOver& carry)
{
    QStringList known{types::output, types::tracks};
    for (const TypeSettings& type : from.effects)
        known.append(type.type);
    for (const QString& text : carry.what) {
        const std::optional<Wanted> wanted = wantedFrom(text);
        if (!wanted)
            return Message(Code::AddressMalformed, {text});
        if (!known.contains(wanted->type))
            return Message(Code::UnknownType, {wanted->type, nearest(wanted->type, known)});
        if (!wanted->key.isEmpty()) {
            const ReadAddress read = readAddress(text);
            if (!read.error.isEmpty())
                return read.error;
        }
        const TypeSettings* type = from.find(wanted->type);
        const int count = type ? static_cast<int>(type->items.size()) : 0;
        if (wanted->pos != Address::ofType && (wanted->pos < 0 || wanted->pos >= count))
            return Message(Code::NoSuchItem, {wanted->type, QString::number(wanted->pos), QString::number(count)});
    }
    return Message();
}

Settings carriedOver(const Settings& from, const Settings& to, const CarryOver& asked)
{
    if (!checkCarryOver(from, asked).isEmpty())
        return to;
    const Settings source = rescaled(from, to.media.frame);
    Settings result = to;
    for (const Wanted& wanted : wantedOf(from, asked)) {
        const TypeSettings* sourceType = source.find(wanted.type);
        TypeSettings* target = result.find(wanted.type);
        if (wanted.type == types::output)
            carryOutput(wanted, source.output, result.output);
        else if (wanted.type == types::tracks)
            result.tracks = source.tracks;
        else if (sourceType && target)
            carry(*sourceType, wanted, asked.add, *target);
        else if (sourceType)
            result.effects.append(*sourceType);
    }
    return result;
}

} // namespace zokit
