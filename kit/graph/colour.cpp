// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/settings.h>

#include "picture_p.h"

namespace zokit {

namespace {

/// What is added to the luma (1: the whole scale), by what luma and colours are multiplied.
struct Adjustment {
    double brightness = 0;
    double contrast = 1;
    double saturation = 1;
};

Adjustment adjustmentOf(const Settings& settings)
{
    const TypeSettings* colour = selectedType(settings, "Color");
    if (!colour)
        return {};
    // -50 to 50 each. At the ends: half of the scale darker or lighter, half to one and a half times the contrast, no
    // colour to twice the colour.
    const auto part = [&](const char* key) { return colour->values.value(QLatin1String(key)).toInt() / 100.0; };
    return {part("bcs_brightness"), 1 + part("bcs_contrast"), 1 + 2 * part("bcs_saturation")};
}

} // namespace

bool Picture::isFullRange() const
{
    return range == QLatin1String("pc");
}

Levels levelsOf(const Picture& picture)
{
    // The filter knows the bounds of the limited range alone. The least luma of that is 16 at eight bits, 64 at ten:
    // 16 times as much is one more than full range has.
    if (picture.isFullRange())
        return {QStringLiteral("0"), QStringLiteral("(minval*16-1)"), QStringLiteral("minval*8"),
                QStringLiteral("val")};
    return {QStringLiteral("minval"), QStringLiteral("maxval"), QStringLiteral("(maxval+minval)/2"),
            QStringLiteral("clipval")};
}

bool changesColour(const Settings& settings)
{
    const Adjustment adjustment = adjustmentOf(settings);
    return adjustment.brightness != 0 || adjustment.contrast != 1 || adjustment.saturation != 1;
}

void addColour(Chain& chain, const Picture& picture, const Settings& settings)
{
    const Adjustment adjustment = adjustmentOf(settings);
    const Levels levels = levelsOf(picture);
    // Contrast turns about the middle, not about black.
    const double offset = adjustment.brightness + (1 - adjustment.contrast) / 2;
    const QString luma = QStringLiteral("clip((val-%1)*%3+(%2-%1)*%4+%1,%1,%2)")
                             .arg(levels.low, levels.high, filterNumber(adjustment.contrast), filterNumber(offset));
    const QString colours = QStringLiteral("clip((val-%3)*%4+%3,%1,%2)")
                                .arg(levels.low, levels.high, levels.middle, filterNumber(adjustment.saturation));
    chain.add(QStringLiteral("lutyuv=y='%1':u='%2':v='%2'").arg(luma, colours));
}

} // namespace zokit
