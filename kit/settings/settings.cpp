// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/settings.h>

#include <algorithm>

#include "exactly_p.h"

namespace zokit {

TypeSettings* Settings::find(const QString& type)
{
    const auto found =
        std::find_if(effects.begin(), effects.end(), [&](const TypeSettings& effect) { return effect.type == type; });
    return found == effects.end() ? nullptr : &*found;
}

const TypeSettings* Settings::find(const QString& type) const
{
    return const_cast<Settings*>(this)->find(type);
}

bool operator==(const Media& left, const Media& right)
{
    return left.file == right.file && left.frame == right.frame && left.seconds == right.seconds;
}

bool operator==(const Item& left, const Item& right)
{
    return left.name == right.name && left.selected == right.selected && exactly(left.values, right.values)
           && exactly(left.anchor, right.anchor) && left.foreign == right.foreign;
}

bool operator==(const TypeSettings& left, const TypeSettings& right)
{
    return left.type == right.type && left.selected == right.selected && exactly(left.values, right.values)
           && left.items == right.items && left.foreign == right.foreign;
}

bool operator==(const Settings& left, const Settings& right)
{
    return left.media == right.media && left.effects == right.effects && exactly(left.tracks, right.tracks)
           && exactly(left.output, right.output) && left.foreign == right.foreign;
}

} // namespace zokit
