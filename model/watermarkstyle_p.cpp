// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "watermarkstyle_p.h"

#include "qtcompat_p.h"
#include "scaling_p.h"

namespace watermarkstyle {

namespace {

constexpr int percent = 100;
constexpr double defaultFactor = 2.55;

} // namespace

int alpha(int transparency, const QVariant& factor)
{
    bool isNumber = false;
    const double value = qtcompat::toDouble(factor, &isNumber);
    // Deliberate: not rounded. Full opacity gives 100 x 2.55 = 254.99999999999997, and so 254.
    return scaling::truncated((double(percent) - transparency) * (isNumber ? value : defaultFactor));
}

QFont font(const QVariant& font, int pointSize, const QString& style)
{
    struct Style {
        QLatin1String name;
        QFont::Style slant = QFont::StyleNormal;
        QFont::Weight weight = QFont::Normal;
    };
    static const Style styles[] = {
        {QLatin1String("Regular"), QFont::StyleNormal, QFont::Normal},
        {QLatin1String("Italic"), QFont::StyleItalic, QFont::Normal},
        {QLatin1String("Bold"), QFont::StyleNormal, QFont::Bold},
        {QLatin1String("Bold Italic"), QFont::StyleItalic, QFont::Bold},
    };

    QFont result = qtcompat::fontFrom(font);
    if (pointSize > 0)
        result.setPointSize(pointSize);
    for (const Style& candidate : styles) {
        if (style == candidate.name) {
            result.setStyle(candidate.slant);
            result.setWeight(candidate.weight);
        }
    }
    return result;
}

} // namespace watermarkstyle
