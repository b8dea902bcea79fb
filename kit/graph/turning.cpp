// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/settings.h>

#include "picture_p.h"
#include "turn_p.h"

namespace zokit {

namespace {

struct Row {
    int number;
    const char* filter;
};

} // namespace

bool isTurned(const Settings& settings)
{
    const Turn turn = turnOf(settings);
    return turn.angle != 0 || turn.mirrored != 0;
}

void addTurn(Chain& chain, int angle)
{
    static constexpr Row angles[] = {{90, "transpose=clock"}, {180, "hflip,vflip"}, {270, "transpose=cclock"}};
    for (const Row& row : angles) {
        if (row.number == angle)
            chain.add(QLatin1String(row.filter));
    }
}

void addTurning(Chain& chain, Picture& picture, const Settings& settings)
{
    static constexpr Row mirrors[] = {{1, "hflip"}, {2, "vflip"}, {3, "hflip,vflip"}};

    const Turn turn = turnOf(settings);
    addTurn(chain, turn.angle);
    for (const Row& row : mirrors) {
        if (row.number == turn.mirrored)
            chain.add(QLatin1String(row.filter));
    }
    picture.frame = turn.of(picture.frame);
}

} // namespace zokit
