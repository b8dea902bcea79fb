// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "pixelformat_p.h"

#include <algorithm>
#include <iterator>

#include <QRegularExpression>

namespace zokit {

namespace {

enum class Sampling { Quarter, Half, Full };

/// How often colours are stored, by a part of the format's name; the first row that fits.
struct Row {
    const char* part;
    Sampling sampling;
};
constexpr Row samplings[] = {
    {"422", Sampling::Half},  {"y210", Sampling::Half}, {"444", Sampling::Full},  {"440", Sampling::Full},
    {"ayuv", Sampling::Full}, {"xyz", Sampling::Full},  {"rgb", Sampling::Full},  {"bgr", Sampling::Full},
    {"gbr", Sampling::Full},  {"pal8", Sampling::Full}, {"nv24", Sampling::Full}, {"nv42", Sampling::Full},
    {"nv16", Sampling::Half}, {"nv20", Sampling::Half}, {"p210", Sampling::Half}, {"p216", Sampling::Half},
    {"p410", Sampling::Full}, {"p416", Sampling::Full}, {"411", Sampling::Half},
};

Sampling samplingOf(const QString& format)
{
    const auto* found = std::find_if(std::begin(samplings), std::end(samplings),
                                     [&](const Row& row) { return format.contains(QLatin1String(row.part)); });
    return found == std::end(samplings) ? Sampling::Quarter : found->sampling;
}

} // namespace

int bitDepth(const QString& format)
{
    constexpr int usual = 8;
    static const QRegularExpression planar(QStringLiteral("(?:p|gray|x2rgb|x2bgr|nv|xyz)(9|10|12|14|16)(?:le|be)"));
    static const QRegularExpression halfPlanar(QStringLiteral("^[py][024](10|12|16)(?:le|be)"));
    static const QRegularExpression packed(QStringLiteral("^(?:rgb|bgr)(?:48|a64)|^(?:rgba|bgra)64"));
    static const QRegularExpression real(QStringLiteral("f(?:16|32)(?:le|be)$"));
    for (const QRegularExpression& form : {planar, halfPlanar}) {
        const QRegularExpressionMatch match = form.match(format);
        if (match.hasMatch())
            return match.captured(1).toInt();
    }
    constexpr int most = 16;
    return packed.match(format).hasMatch() || real.match(format).hasMatch() ? most : usual;
}

bool isRgb(const QString& format)
{
    static const QRegularExpression form(QStringLiteral("rgb|bgr|gbr|pal8|bayer"));
    return form.match(format).hasMatch();
}

bool isGrey(const QString& format)
{
    return format.startsWith(QLatin1String("gray")) || format.startsWith(QLatin1String("mono"))
           || format.startsWith(QLatin1String("ya"));
}

bool asksForEven(const QString& format)
{
    return !isGrey(format) && samplingOf(format) != Sampling::Full;
}

QString withoutRange(const QString& format)
{
    return format.startsWith(QLatin1String("yuvj")) ? QLatin1String("yuv") + format.mid(4) : format;
}

QString eightBits(const QString& format)
{
    switch (samplingOf(format)) {
    case Sampling::Full:
        return QStringLiteral("yuv444p");
    case Sampling::Half:
        return QStringLiteral("yuv422p");
    case Sampling::Quarter:
        break;
    }
    return QStringLiteral("yuv420p");
}

OverlayFormats overlayFormats(const QString& format)
{
    constexpr int usual = 8;
    const QString deep = QStringLiteral("yuv422p10le");
    const bool isDeep = bitDepth(format) > usual;
    switch (samplingOf(format)) {
    case Sampling::Full:
        // Of more than eight bits the filter has no full sampling: depth matters more.
        if (!isDeep)
            return {QStringLiteral("yuva444p"), QStringLiteral("yuv444"), QString(), QString(),
                    QStringLiteral("yuv444p|yuvj444p")};
        [[fallthrough]];
    case Sampling::Half:
        return isDeep ? OverlayFormats{QStringLiteral("yuva422p10le"), QStringLiteral("yuv422p10"), QString(),
                                       QString(), deep}
                      : OverlayFormats{QStringLiteral("yuva422p"), QStringLiteral("yuv422"), QString(), QString(),
                                       QStringLiteral("yuv422p|yuvj422p")};
    case Sampling::Quarter:
        break;
    }
    // Of ten bits the filter takes the opacity of the colours from a wrong row. With half the sampling it does not, and
    // colours that are only doubled and halved again stay as they are.
    return isDeep ? OverlayFormats{QStringLiteral("yuva422p10le"), QStringLiteral("yuv422p10"), deep,
                                   QStringLiteral("yuv420p10le"), deep}
                  : OverlayFormats{QStringLiteral("yuva420p"), QStringLiteral("yuv420"), QString(), QString(),
                                   QStringLiteral("yuv420p|yuvj420p")};
}

} // namespace zokit
