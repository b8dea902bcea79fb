// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/settings.h>

#include "picture_p.h"

namespace zokit {

namespace {

/// Degrees clockwise: 0, 90, 180 or 270; and what is mirrored then: 1 left and right, 2 top and bottom, 3 both.
struct Turn {
    int angle = 0;
    int mirrored = 0;
};

Turn turnOf(const Settings& settings)
{
    // The crop holds the switch, the type of the frame effects what it switches, selected or not.
    const TypeSettings* crop = selectedType(settings, "Crop");
    const TypeSettings* effects = settings.find(QStringLiteral("Effect"));
    if (!crop || !effects || !crop->values.value(QStringLiteral("player_map_flag")).toBool())
        return {};
    constexpr int fullTurn = 360;
    const int angle = effects->values.value(QStringLiteral("crop_rotation_angle")).toInt() % fullTurn;
    return {angle < 0 ? angle + fullTurn : angle,
            effects->values.value(QStringLiteral("crop_rotation_action")).toInt()};
}

} // namespace

bool isTurned(const Settings& settings)
{
    const Turn turn = turnOf(settings);
    return turn.angle != 0 || turn.mirrored != 0;
}

bool turnsSides(const Settings& settings)
{
    const int angle = turnOf(settings).angle;
    return angle == 90 || angle == 270;
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
    if (turnsSides(settings))
        picture.frame.transpose();
}

} // namespace zokit
