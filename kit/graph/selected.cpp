// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>

#include <zokit/settings.h>

#include "picture_p.h"

namespace zokit {

const TypeSettings* selectedType(const Settings& settings, const char* name)
{
    const TypeSettings* type = settings.find(QLatin1String(name));
    return type && type->selected ? type : nullptr;
}

const Item* shownSubtitle(const Settings& settings)
{
    const TypeSettings* subtitles = selectedType(settings, "Subtitle");
    if (!subtitles)
        return nullptr;
    const auto found = std::find_if(subtitles->items.cbegin(), subtitles->items.cend(),
                                    [](const Item& track) { return track.selected; });
    return found == subtitles->items.cend() ? nullptr : &*found;
}

int subtitleAlpha(const Values& style)
{
    constexpr int percent = 100;
    constexpr double opaque = 255.0;
    const QVariant factor = style.value(QStringLiteral("sub_transfactor"), opaque / percent);
    const int transparency = style.value(QStringLiteral("sub_transparency")).toInt();
    return static_cast<int>(std::clamp((percent - transparency) * factor.toDouble(), 0.0, opaque));
}

} // namespace zokit
