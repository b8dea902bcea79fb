// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "carrying_p.h"

#include <algorithm>

#include <zokit/properties.h>

#include "names_p.h"
#include "newitem_p.h"
#include "things_p.h"

namespace zokit::carrying {

namespace {

bool isFileTrack(const Item& track)
{
    const bool isSubtitle = track.values.value(keys::subtitleIsFile).toBool();
    return track.values.value(keys::soundIsFile).toBool() || isSubtitle;
}

bool isSameFile(const Item& a, const Item& b)
{
    return isFileTrack(a) && isFileTrack(b) && a.values.value(keys::trackFile) == b.values.value(keys::trackFile);
}

/// What \a from has that \a to, an item of \a type, can have, too: its style.
void dress(Item& to, const Item& from, const QString& type)
{
    const Suit suit = suitOf(type, true, to.values);
    for (auto it = from.values.cbegin(); it != from.values.cend(); ++it) {
        const Property* known = findProperty(type, it.key());
        if (known && known->hasDefault() && known->suits.testFlag(suit))
            to.values.insert(it.key(), it.value());
    }
}

/// Frame effects are always there: those that \a from uses and \a to does not come to its end, in their order.
void addFrameEffects(const QVector<Item>& from, QVector<Item>& to)
{
    for (const Item& item : from) {
        const auto there = std::find_if(to.begin(), to.end(), [&](const Item& one) { return one.name == item.name; });
        if (!item.selected || (there != to.end() && there->selected))
            continue;
        if (there != to.end())
            to.erase(there);
        to.append(item);
    }
}

/// For each of \a items the place in \a list of one that is the same, each taken once; -1 where there is none.
QVector<int> placesOfSame(const QVector<Item>& items, const QVector<Item>& list)
{
    QVector<int> places;
    for (const Item& item : items) {
        int place = -1;
        for (int i = 0; i < list.size() && place < 0; ++i) {
            if (!places.contains(i) && list.at(i) == item)
                place = i;
        }
        places.append(place);
    }
    return places;
}

/// Items that are there already stay where they are. The others are put behind, or in the place of the one at their
/// position in \a positions, unless that one has come, too.
void mergeItems(const QVector<Item>& items, const QVector<int>& positions, QVector<Item>& list)
{
    const QVector<int> there = placesOfSame(items, list);
    const int count = static_cast<int>(list.size());
    for (int i = 0; i < items.size(); ++i) {
        if (there.at(i) >= 0)
            continue;
        const int pos = positions.value(i, count);
        if (pos < count && !there.contains(pos))
            list[pos] = items.at(i);
        else
            list.append(items.at(i));
    }
}

} // namespace

const Item* styled(const TypeSettings& type)
{
    const auto chosen =
        std::find_if(type.items.cbegin(), type.items.cend(), [](const Item& item) { return item.selected; });
    if (chosen != type.items.cend())
        return &*chosen;
    return type.items.isEmpty() ? nullptr : &type.items.first();
}

void tracks(const TypeSettings& from, const Wanted& wanted, bool add, TypeSettings& to)
{
    const Item* style = wanted.isItem() ? &from.items.at(wanted.pos) : styled(from);
    to.selected = wanted.isItem() ? to.selected || from.selected : from.selected;
    if (!wanted.isItem())
        to.values = from.values;
    // Sound files go where the sound goes; subtitles in a file were written for one clip, and come when asked for.
    QVector<Item> files;
    for (const Item& item : from.items) {
        const bool isMeant = wanted.isItem() ? &item == style : (add || to.type == types::audio);
        if (isMeant && isFileTrack(item))
            files.append(item);
    }
    for (Item& track : to.items) {
        const auto there =
            std::find_if(files.begin(), files.end(), [&](const Item& file) { return isSameFile(file, track); });
        if (there != files.end()) {
            track = *there;
            files.erase(there);
        } else if (style) {
            dress(track, *style, to.type);
        }
    }
    to.items += files;
}

void items(const TypeSettings& from, const QVector<int>& positions, bool add, TypeSettings& to)
{
    QVector<Item> items;
    for (const int pos : positions)
        items.append(from.items.at(pos));
    if (std::any_of(items.cbegin(), items.cend(), [](const Item& item) { return item.selected; }))
        to.selected = true;
    if (to.type == types::effect && add) {
        addFrameEffects(items, to.items);
    } else if (to.type == types::effect) {
        for (Item& there : to.items) {
            const auto wanted =
                std::find_if(items.cbegin(), items.cend(), [&](const Item& item) { return item.name == there.name; });
            if (wanted != items.cend())
                there = *wanted;
        }
    } else {
        mergeItems(items, add ? QVector<int>() : positions, to.items);
    }
}

void type(const TypeSettings& from, bool add, TypeSettings& to)
{
    if (!add || !hasItems(to.type)) {
        to.values = from.values;
        to.selected = from.selected;
        to.items = from.items;
    } else if (to.type == types::effect) {
        to.selected = to.selected || from.selected;
        addFrameEffects(from.items, to.items);
    } else {
        to.selected = to.selected || from.selected;
        mergeItems(from.items, {}, to.items);
    }
}

void value(const TypeSettings& from, const Wanted& wanted, TypeSettings& to)
{
    if (!wanted.isItem()) {
        if (wanted.key == own::selected)
            to.selected = from.selected;
        else if (from.values.contains(wanted.key))
            to.values.insert(wanted.key, from.values.value(wanted.key));
        else
            to.values.remove(wanted.key); // It has no default, and is not set.
        if (from.selected)
            to.selected = true;
        return;
    }
    if (wanted.pos >= to.items.size())
        return;
    const Item& source = from.items.at(wanted.pos);
    Item& target = to.items[wanted.pos];
    const Property* known = findProperty(to.type, wanted.key);
    if (wanted.key == own::selected) {
        target.selected = source.selected;
    } else if (wanted.key == own::anchor) {
        target.anchor = source.anchor;
    } else if (source.values.contains(wanted.key) && known
               && known->suits.testFlag(suitOf(to.type, true, target.values))) {
        target.values.insert(wanted.key, source.values.value(wanted.key));
        if (wanted.key == keys::left || wanted.key == keys::top)
            target.anchor.clear(); // As when it is placed by hand.
    }
}

void named(const Values& from, const Wanted& wanted, bool add, Values& to)
{
    const auto carry = [&](const QString& name) {
        if (from.contains(name))
            to.insert(name, from.value(name));
        else if (!add)
            to.remove(name);
    };
    if (!wanted.key.isEmpty()) {
        carry(wanted.key);
        return;
    }
    QStringList names = from.keys();
    names += to.keys();
    for (const QString& name : std::as_const(names)) {
        if (name != keys::trim)
            carry(name);
    }
}

} // namespace zokit::carrying
