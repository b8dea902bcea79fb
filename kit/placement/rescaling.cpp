// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/placement.h>

#include <algorithm>
#include <limits>

#include <zokit/address.h>

#include "anchoring_p.h"
#include "cataloguedefaults_p.h"
#include "completion_p.h"
#include "names_p.h"
#include "turn_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

bool isWhole(const Values& values, const QString& key)
{
    return values.value(key).userType() == QMetaType::Int;
}

void scale(Values& values, const QString& key, double factor, int smallest)
{
    if (isWhole(values, key))
        values.insert(key, std::max(smallest, rounded(values.value(key).toInt() * factor)));
}

/// Both edges are rounded, not the length: what ends at the side of the frame still does.
void scaleSpan(Values& values, const QString& from, const QString& length, double factor)
{
    const double begin = values.value(from).toInt();
    const double end = begin + values.value(length).toInt();
    if (isWhole(values, length))
        values.insert(length, std::max(1, rounded(end * factor) - rounded(begin * factor)));
    scale(values, from, factor, std::numeric_limits<int>::min());
}

void rescaleCrop(Values& crop, double across, double down)
{
    scaleSpan(crop, keys::cropLeft, keys::cropWidth, across);
    scaleSpan(crop, keys::cropTop, keys::cropHeight, down);
}

/// Places follow their side of the frame, letters the height, an image the width, in its own shape.
void rescaleItem(Values& values, double across, double down)
{
    constexpr int anywhere = std::numeric_limits<int>::min();
    const double width = values.value(keys::imageWidth).toDouble();
    const double height = values.value(keys::imageHeight).toDouble();
    scale(values, keys::left, across, anywhere);
    scale(values, keys::top, down, anywhere);
    scale(values, keys::subtitleLeft, across, anywhere);
    scale(values, keys::subtitleTop, down, anywhere);
    scale(values, keys::subtitleFontSize, down, 1);
    if (values.value(keys::isText).toBool()) {
        scale(values, keys::fontSize, down, 1);
        return;
    }
    scale(values, keys::imageWidth, across, 1);
    if (width > 0 && height > 0)
        values.insert(keys::imageHeight, std::max(1, rounded(values.value(keys::imageWidth).toInt() * height / width)));
}

Values rescaledAnchor(const Values& anchor, double across)
{
    std::optional<Anchor> read = anchorFrom(anchor);
    if (!read || read->marginInPercent)
        return anchor;
    read->margin *= across;
    Values result = anchor; // With the members of a host's own.
    const Values scaled = toValues(*read);
    for (auto it = scaled.cbegin(); it != scaled.cend(); ++it)
        result.insert(it.key(), it.value());
    return result;
}

void compare(const Address& item, const Values& before, const Values& after, Messages& moved)
{
    for (auto it = before.cbegin(); it != before.cend(); ++it) {
        if (!isWhole(before, it.key()) || !isWhole(after, it.key()))
            continue; // A crop that is the whole frame has no numbers any more, and moves nothing.
        const int was = it.value().toInt();
        const int is = after.value(it.key()).toInt();
        const QString where = Address{item.type, item.pos, it.key()}.toString();
        if (was != is)
            moved.append(Message(Code::MovedByRounding, {where, QString::number(was), QString::number(is)}));
    }
}

} // namespace

Settings rescaledBetween(const Settings& settings, const QSize& from, const QSize& to)
{
    Settings result = settings;
    if (from.isEmpty() || to.isEmpty() || from == to)
        return result;
    const double across = double(to.width()) / from.width();
    const double down = double(to.height()) / from.height();
    for (TypeSettings& type : result.effects) {
        if (type.type == types::crop && isWholeFrame(type.values, from))
            setWholeFrame(type.values);
        else if (type.type == types::crop)
            rescaleCrop(type.values, across, down);
        if (type.type != types::watermark && type.type != types::subtitle)
            continue;
        for (Item& item : type.items) {
            rescaleItem(item.values, across, down);
            item.anchor = rescaledAnchor(item.anchor, across);
        }
    }
    return result;
}

Settings rescaled(const Settings& settings, const QSize& frame)
{
    const QSize from = baseFrame(settings);
    const QSize to = turnOf(settings).of(frame);
    Settings result = rescaledBetween(settings, from, to);
    result.media.frame = frame;
    if (!from.isEmpty() && !to.isEmpty() && from != to)
        placeAnchored(result, to);
    return result;
}

Messages movedByRounding(const Settings& settings, const QSize& frame)
{
    const Settings back = rescaled(rescaled(settings, frame), settings.media.frame);
    Messages moved;
    for (int i = 0; i < settings.effects.size(); ++i) {
        const TypeSettings& type = settings.effects.at(i);
        const TypeSettings& after = back.effects.at(i);
        compare({type.type, Address::ofType, QString()}, type.values, after.values, moved);
        for (int pos = 0; pos < type.items.size(); ++pos)
            compare({type.type, pos, QString()}, type.items.at(pos).values, after.items.at(pos).values, moved);
    }
    return moved;
}

} // namespace zokit
