// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "frameeffectfilters_p.h"

#include <algorithm>
#include <cmath>

#include <zokit/settings.h>

#include "picture_p.h"
#include "pixelformat_p.h"

namespace zokit {

namespace {

// No filter here remembers frames or draws from a random state that goes on: a frame after a seek is that of the run.
// Hence noise with a seed and without "t", and vignettes without dithering.
// NOLINTBEGIN(cppcoreguidelines-macro-usage): parts of literals.
#define SEPIA "lutyuv=y={same}:u='{middle}-18*({high}-{low})/224':v='{middle}+18*({high}-{low})/224'"
#define WITHOUT_COLOUR "u='{middle}':v='{middle}'"
#define SHIFTED(u, v)                                                                                                  \
    "lutyuv=y={same}:u='clip(val" u "*({high}-{low})/224,{low},{high})':v='clip(val" v                                 \
    "*({high}-{low})/224,{low},{high})'"
// NOLINTEND(cppcoreguidelines-macro-usage)

// clang-format off
const QVector<FrameEffectFilter> filters = {
    {"Blur",         "gblur=sigma={blur}", Depth::Kept},
    {"Sharpen",      "unsharp=5:5:1.0:5:5:0", Depth::Kept},
    {"Mirror",       "hflip", Depth::Kept},
    {"Flip",         "vflip", Depth::Kept},
    {"Sepia",        SEPIA, Depth::Kept},
    {"Greyscale",    "lutyuv=y={same}:" WITHOUT_COLOUR, Depth::Kept},
    {"Negative",     "lutyuv=y='{high}+{low}-val':u='2*{middle}-val':v='2*{middle}-val'", Depth::Kept},
    {"Emboss",       "convolution=0m='-2 -1 0 -1 1 1 0 1 2':1m='0 0 0 0 1 0 0 0 0':2m='0 0 0 0 1 0 0 0 0'", Depth::Kept},
    {"Mosaic",       "pixelize=w={tile}:h={tile}", Depth::Kept},
    {"Noise",        "noise=alls=20:all_seed=1", Depth::Converted},
    {"Vignette",     "vignette=PI/4:dither=0", Depth::EightBits},
    {"Old Film",     SEPIA ",noise=c0s=15:c0_seed=1:c0f=u,vignette=PI/4:dither=0", Depth::EightBits},
    {"Edge",         "sobel=planes=1,lutyuv=y='clip(val,{low},{high})':" WITHOUT_COLOUR, Depth::Kept},
    {"Posterize",    "lutyuv=y='trunc((val-{low})/({high}-{low})*7+0.5)*({high}-{low})/7+{low}':u={same}:v={same}", Depth::Kept},
    {"Warm",         SHIFTED("-10", "+10"), Depth::Kept},
    {"Cool",         SHIFTED("+10", "-6"), Depth::Kept},
    {"Fisheye",      "lenscorrection=k1=0.3:k2=0.1", Depth::Kept},
    {"Glow",         "split[{a}][{b}];[{b}]gblur=sigma={glow}[{c}];[{a}][{c}]blend=c0_mode=screen:c0_opacity=0.4:c1_opacity=0:c2_opacity=0", Depth::Kept},
    {"Kaleidoscope", "crop={half}:0:0:exact=1,split[{a}][{b}];[{b}]hflip[{c}];[{a}][{c}]hstack{frame}", Depth::Kept},
    {"Grid",         "drawgrid=w=iw/8:h=ih/8:t=2:c=white@0.5", Depth::EightBits},
};
// clang-format on

#undef SEPIA
#undef WITHOUT_COLOUR
#undef SHIFTED

/// A part of the frame's height; at least \a least.
QString partOfHeight(const QSize& frame, double divisor, double least)
{
    return filterNumber(std::max(frame.height() / divisor, least));
}

/// The even number that is nearest to a part of the frame's height: the filter would round down to one.
QString evenPartOfHeight(const QSize& frame, int divisor)
{
    constexpr int least = 1;
    constexpr int most = 512; // The filter's bound is 1024.
    return QString::number(2 * std::clamp((frame.height() + divisor) / (2 * divisor), least, most));
}

QString filled(const char* form, const Picture& picture, Chain& chain)
{
    const Levels levels = levelsOf(picture);
    const QSize& frame = picture.frame;
    // The half is even, since colours may be stored for two pixels; what the mirror has too much then is cut off.
    const int half = (frame.width() + 3) / 4 * 2;
    const QString cutBack = 2 * half == frame.width()
                                ? QString()
                                : QStringLiteral(",crop=%1:%2:0:0:exact=1").arg(frame.width()).arg(frame.height());
    constexpr double leastSigma = 0.1;
    const QPair<const char*, QString> words[] = {
        {"{low}", levels.low},
        {"{high}", levels.high},
        {"{middle}", levels.middle},
        {"{same}", levels.unchanged},
        {"{blur}", partOfHeight(frame, 240, leastSigma)},
        {"{glow}", partOfHeight(frame, 60, leastSigma)},
        {"{tile}", evenPartOfHeight(frame, 45)},
        {"{half}", QStringLiteral("%1:%2").arg(half).arg(frame.height())},
        {"{frame}", cutBack},
    };
    QString text = QString::fromLatin1(form);
    for (const auto& [word, value] : words)
        text.replace(QLatin1String(word), value);
    for (const char* label : {"{a}", "{b}", "{c}"}) {
        if (text.contains(QLatin1String(label)))
            text.replace(QLatin1String(label), chain.newLabel());
    }
    return text;
}

const FrameEffectFilter* filterOf(const QString& name)
{
    const auto found = std::find_if(filters.cbegin(), filters.cend(), [&](const FrameEffectFilter& filter) {
        return name == QLatin1String(filter.name);
    });
    return found == filters.cend() ? nullptr : &*found;
}

} // namespace

const QVector<FrameEffectFilter>& frameEffectFilters()
{
    return filters;
}

bool hasFrameEffects(const Settings& settings)
{
    const TypeSettings* effects = selectedType(settings, "Effect");
    return effects && std::any_of(effects->items.cbegin(), effects->items.cend(), [](const Item& item) {
               return item.selected && filterOf(item.name);
           });
}

void addFrameEffects(Chain& chain, Picture& picture, const Settings& settings, bool deep, Messages& warnings)
{
    const TypeSettings* effects = selectedType(settings, "Effect");
    for (const Item& item : effects ? effects->items : QVector<Item>()) {
        const FrameEffectFilter* filter = item.selected ? filterOf(item.name) : nullptr;
        if (!filter)
            continue;
        if (filter->depth == Depth::EightBits) {
            if (deep)
                warnings.append(Message(Message::Code::MakesEightBits, {item.name}));
            if (picture.pixelFormat != eightBits(picture.pixelFormat))
                addScale(chain, picture, QSize(), eightBits(picture.pixelFormat));
        }
        chain.add(filled(filter->text, picture, chain));
    }
}

} // namespace zokit
