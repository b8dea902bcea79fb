// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/settings.h>

#include "picture_p.h"
#include "turn_p.h"

namespace zokit {

bool isTurned(const Settings& settings)
{
    const Turn turn = turnOf(settings);
    return turn.angle != 0 || turn.mirrored != 0;
}

void addTurning(Chain& chain, Picture& picture, const Settings& settings)
{
    struct Row {
        int number;
        const char* filter;
    };
    static constexpr Row angles[] = {{90, "transpose=clock"}, {180, "hflip,vflip"}, {270, "transpose=cclock"}};
    static constexpr Row mirrors[] = {{1, "hflip"}, {2, "vflip"}, {3, "hflip,vflip"}};

    const Turn turn = turnOf(settings);
    for (const Row& row : angles) {
        if (row.number == turn.angle)
            chain.add(QLatin1String(row.filter));
    }
    for (const Row& row : mirrors) {
        if (row.number == turn.mirrored)
            chain.add(QLatin1String(row.filter));
    }
    picture.frame = turn.of(picture.frame);
}

} // namespace zokit
