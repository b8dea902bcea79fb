// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/carryover.h>

#include <algorithm>
#include <optional>
#include <utility>

#include <QMap>

#include <zokit/address.h>
#include <zokit/placement.h>
#include <zokit/presets.h>
#include <zokit/properties.h>

#include "anchoring_p.h"
#include "carrier_p.h"
#include "cataloguedefaults_p.h"
#include "completion_p.h"
#include "missingfiles_p.h"
#include "names_p.h"
#include "newitem_p.h"
#include "things_p.h"
#include "turn_p.h"

namespace zokit {

namespace {

using carrying::Wanted;
using Code = Message::Code;

/// "TYPE", "TYPE:POS", "TYPE:KEY" or "TYPE:POS:KEY".
std::optional<Wanted> wantedFrom(const QString& text)
{
    constexpr int mostParts = 3;
    const QStringList parts = text.split(QLatin1Char(':'));
    if (parts.size() > mostParts || parts.contains(QString()))
        return std::nullopt;
    Wanted wanted{parts.first(), Address::ofType, QString()};
    int next = 1;
    if (parts.size() > next) {
        bool isNumber = false;
        const int pos = parts.at(next).toInt(&isNumber);
        if (isNumber && pos < 0)
            return std::nullopt;
        if (isNumber) {
            wanted.pos = pos;
            ++next;
        }
    }
    if (parts.size() > next)
        wanted.key = asKept(parts.at(next++));
    if (next < parts.size())
        return std::nullopt;
    return wanted;
}

bool hasOutput(const Settings& settings)
{
    return std::any_of(settings.output.keyBegin(), settings.output.keyEnd(),
                       [](const QString& name) { return name != keys::trim; });
}

QVector<Wanted> everythingIn(const Settings& from)
{
    QVector<Wanted> all;
    for (const TypeSettings& type : from.effects)
        all.append({type.type, Address::ofType, QString()});
    if (hasOutput(from))
        all.append({types::output, Address::ofType, QString()});
    return all;
}

/// What is asked for in the order in which it is carried over, whatever the order in which it was named: types, then
/// items by their position, then values.
QVector<Wanted> wantedOf(const Settings& from, const CarryOver& carry)
{
    if (carry.what.isEmpty())
        return everythingIn(from);
    QVector<Wanted> result;
    for (const QString& text : carry.what) {
        if (const std::optional<Wanted> wanted = wantedFrom(text))
            result.append(*wanted);
    }
    const auto rank = [](const Wanted& wanted) {
        return std::make_pair(wanted.key.isEmpty() ? (wanted.isItem() ? 1 : 0) : 2, wanted.pos);
    };
    std::stable_sort(result.begin(), result.end(), [&](const Wanted& a, const Wanted& b) { return rank(a) < rank(b); });
    return result;
}

/// What is \a wanted of \a from as it arrives in a base frame of \a frame: complete, rescaled, and where its anchors
/// say.
Settings arriving(const Settings& from, const QVector<Wanted>& wanted, const QSize& frame)
{
    const QSize base = from.media.frame.isEmpty() ? frame : baseFrame(from);
    Settings source = from;
    source.effects.clear();
    for (const TypeSettings& type : from.effects) {
        if (std::any_of(wanted.cbegin(), wanted.cend(), [&](const Wanted& one) { return one.type == type.type; }))
            source.effects.append(completedType(type, base));
    }
    source = rescaledBetween(withoutMeasures(source), base, frame);
    placeAnchored(source, frame);
    return source;
}

/// Whether \a item is one of \a type that \a wanted asks for as a whole: it has come with all its values.
bool hasCome(const Item& item, const TypeSettings& type, const QVector<Wanted>& wanted)
{
    return std::any_of(wanted.cbegin(), wanted.cend(), [&](const Wanted& one) {
        return one.type == type.type && one.key.isEmpty()
               && (one.isItem() ? type.items.at(one.pos) == item : type.items.contains(item));
    });
}

/// The places of whole items, by type: all at once, since one that comes must not push out another.
QMap<QString, QVector<int>> itemsOf(const QVector<Wanted>& all)
{
    QMap<QString, QVector<int>> items;
    for (const Wanted& wanted : all) {
        if (wanted.key.isEmpty() && wanted.isItem() && !items[wanted.type].contains(wanted.pos))
            items[wanted.type].append(wanted.pos);
    }
    return items;
}

/// Whether \a wanted, which was read from \a text, names something that can be in \a type.
Message checkForm(const Wanted& wanted, const QString& text, const TypeSettings* type)
{
    const int count = type ? static_cast<int>(type->items.size()) : 0;
    if (wanted.isItem() && !hasItems(wanted.type))
        return Message(Code::TypeHasNoItems, {wanted.type});
    if (wanted.isItem() && wanted.pos >= count)
        return Message(Code::NoSuchItem, {wanted.type, QString::number(wanted.pos), QString::number(count)});
    if (wanted.key.isEmpty())
        return Message();
    if (const Message error = readAddress(text).error; !error.isEmpty())
        return error;
    const Property* known = findProperty(wanted.type, wanted.key);
    const Suits suits = known ? known->suits : Suits();
    if (type && !wanted.isItem() && ((known && !suits.testFlag(Suit::Type)) || wanted.key == own::anchor))
        return Message(Code::KeyNeedsItem, {wanted.type, wanted.key});
    if (wanted.isItem() && known && !suits.testFlag(suitOf(wanted.type, true, type->items.at(wanted.pos).values)))
        return Message(Code::NotOfItem, {text, suitsText(suits)});
    return Message();
}

/// Each of \a carry by its form, and whether \a from holds it.
Message checkForm(const Settings& from, const CarryOver& carry)
{
    QStringList known;
    for (const TypeSettings& type : from.effects)
        known.append(type.type);
    known << types::output << types::tracks;
    for (const QString& text : carry.what) {
        const std::optional<Wanted> wanted = wantedFrom(text);
        if (!wanted)
            return Message(Code::AddressMalformed, {text});
        const bool isKnown = known.contains(wanted->type);
        if (!isKnown && effectTypes().contains(wanted->type))
            return Message(Code::NotAmong, {wanted->type, known.join(QStringLiteral(", "))});
        if (!isKnown)
            return Message(Code::UnknownType, {wanted->type, nearest(wanted->type, known)});
        const Message error = checkForm(*wanted, text, from.find(wanted->type));
        if (!error.isEmpty())
            return error;
    }
    return Message();
}

/// The first image among what is carried over that is not there.
Message checkImages(const Settings& from, const CarryOver& carry)
{
    const TypeSettings* watermarks = from.find(types::watermark);
    for (const Wanted& wanted : wantedOf(from, carry)) {
        if (wanted.type != types::watermark || !(wanted.key.isEmpty() || wanted.key == keys::imageUrl))
            continue;
        for (int pos = 0; pos < watermarks->items.size(); ++pos) {
            if (wanted.isItem() && wanted.pos != pos)
                continue;
            const Message missing = missingFile(*watermarks, pos);
            if (!missing.isEmpty())
                return missing;
        }
    }
    return Message();
}

} // namespace

Message checkCarryOver(const Settings& from, const CarryOver& carry)
{
    const Message error = checkForm(from, carry);
    return error.isEmpty() ? checkImages(from, carry) : error;
}

Carrier::Carrier(const Settings& from, const CarryOver& carry) : m_from(from), m_add(carry.add)
{
    if (checkForm(from, carry).isEmpty())
        m_wanted = wantedOf(from, carry);
}

const Settings& Carrier::arrivingIn(const QSize& frame)
{
    const auto size = qMakePair(frame.width(), frame.height());
    auto known = m_arriving.find(size);
    if (known == m_arriving.end())
        known = m_arriving.insert(size, arriving(m_from, m_wanted, frame));
    return *known;
}

Settings Carrier::over(const Settings& to)
{
    const Settings plain = withoutMeasures(to); // As the settings are of every file that takes this on.
    if (m_wanted.isEmpty())
        return plain;
    const QSize before = baseFrame(plain);
    const Settings result = over(plain, before);
    const QSize after = baseFrame(result); // Another one when a quarter turn has come, or has gone.
    return after == before ? result : over(plain, after);
}

Settings Carrier::over(const Settings& to, const QSize& frame)
{
    const Settings& source = arrivingIn(frame);
    Settings result = to;
    const auto anyWatermark = [this](const auto& isSuch) {
        return std::any_of(m_wanted.cbegin(), m_wanted.cend(),
                           [&](const Wanted& wanted) { return wanted.type == types::watermark && isSuch(wanted); });
    };
    const bool areReplaced =
        !m_add && anyWatermark([](const Wanted& wanted) { return wanted.key.isEmpty() && !wanted.isItem(); });
    if (!areReplaced)
        placeAnchored(result, frame); // Else an item that is the same before would not be the same afterwards.
    QMap<QString, QVector<int>> items = itemsOf(m_wanted);
    for (const Wanted& wanted : std::as_const(m_wanted)) {
        if (wanted.type == types::output) {
            carrying::named(source.output, wanted, m_add, result.output);
            continue;
        }
        if (wanted.type == types::tracks) {
            carrying::named(source.tracks, wanted, false, result.tracks);
            continue;
        }
        const TypeSettings& type = *source.find(wanted.type);
        if (!result.find(wanted.type))
            result.effects.append(catalogueType(wanted.type, frame));
        TypeSettings& target = *result.find(wanted.type);
        const bool isThere =
            wanted.isItem() && wanted.pos < target.items.size() && hasCome(target.items.at(wanted.pos), type, m_wanted);
        if (!wanted.key.isEmpty() && !isThere)
            carrying::value(type, wanted, target);
        else if (!wanted.key.isEmpty())
            continue; // A value would make another item of it, which would come once more.
        else if (wanted.type == types::subtitle || wanted.type == types::audio)
            carrying::tracks(type, wanted, m_add, target);
        else if (wanted.isItem())
            carrying::items(type, items.take(wanted.type), m_add, target);
        else
            carrying::type(type, m_add, target);
    }
    if (anyWatermark([](const Wanted& wanted) { return !wanted.key.isEmpty(); }))
        placeAnchored(result, frame); // What came as a whole came to its place.
    return result;
}

Settings carriedOver(const Settings& from, const Settings& to, const CarryOver& carry)
{
    return Carrier(from, carry).over(to);
}

Messages movedByCarrying(const Settings& from, const CarryOver& carry, const Settings& after)
{
    const Settings carried = presetFrom(from, carry.what);
    return movedByRounding(carried, turnOf(carried).of(baseFrame(after)));
}

} // namespace zokit
