// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "turn_p.h"

#include "names_p.h"

namespace zokit {

QSize Turn::of(const QSize& frame) const
{
    constexpr int right = 90;
    constexpr int left = 270;
    return angle == right || angle == left ? frame.transposed() : frame;
}

Turn turnOf(bool cropIsSelected, const Values& crop, const Values& frameEffects)
{
    if (!cropIsSelected || !crop.value(QStringLiteral("player_map_flag")).toBool())
        return {};
    constexpr int fullTurn = 360;
    const int angle = frameEffects.value(QStringLiteral("crop_rotation_angle")).toInt() % fullTurn;
    return {angle < 0 ? angle + fullTurn : angle, frameEffects.value(QStringLiteral("crop_rotation_action")).toInt()};
}

Turn turnOf(const Settings& settings)
{
    const TypeSettings* crop = settings.find(types::crop);
    const TypeSettings* effects = settings.find(types::effect);
    return crop && effects ? turnOf(crop->selected, crop->values, effects->values) : Turn();
}

QSize baseFrame(const Settings& settings)
{
    return turnOf(settings).of(settings.media.frame);
}

} // namespace zokit
