// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/placement.h>

#include <algorithm>
#include <cmath>

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <zoeffectmodel.h>

#include <zokit/properties.h>

#include "anchoring_p.h"
#include "names_p.h"
#include "newitem_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

const QString cornerKey = QStringLiteral("corner");
const QString marginKey = QStringLiteral("margin");
const QString sizeKey = QStringLiteral("size");
constexpr double whole = 100.0; // Percent.

/// In the order of Corner.
const QStringList& corners()
{
    static const QStringList names{
        QStringLiteral("top-left"),    QStringLiteral("top"),    QStringLiteral("top-right"),
        QStringLiteral("left"),        QStringLiteral("centre"), QStringLiteral("right"),
        QStringLiteral("bottom-left"), QStringLiteral("bottom"), QStringLiteral("bottom-right")};
    return names;
}

/// A number with or without a percent sign; nothing when it is none.
std::optional<double> percentOrNumber(const QVariant& value, bool& isPercent)
{
    QString text = value.toString().trimmed();
    isPercent = text.endsWith(QLatin1Char('%'));
    if (isPercent)
        text.chop(1);
    bool ok = false;
    const double number = text.toDouble(&ok);
    return ok && std::isfinite(number) ? std::make_optional(number) : std::nullopt;
}

QString percent(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest) + QLatin1Char('%');
}

/// 0 for what stands at the left or keys::top, 1 in the middle, 2 at the right or bottom.
int column(Corner corner)
{
    return static_cast<int>(corner) % 3;
}

int row(Corner corner)
{
    return static_cast<int>(corner) / 3;
}

int along(int part, double margin, int size, int frame)
{
    switch (part) {
    case 0:
        return rounded(margin);
    case 1:
        return rounded((frame - size) / 2.0);
    default:
        return rounded(frame - size - margin);
    }
}

/// The font size with which the text is as wide as \a width, or the largest below.
int fittingFontSize(Values values, int width)
{
    const Property& known = *findProperty(types::watermark, keys::fontSize);
    int low = known.lowest.toInt();
    int high = 4 * known.highest.toInt(); // What is computed may lie beyond what a person sets.
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        values.insert(keys::fontSize, middle);
        if (measuredText(values).width() <= width)
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}

} // namespace

int rounded(double value)
{
    constexpr double farOut = 1e9; // No picture is that large, and an int holds it.
    return static_cast<int>(std::lround(std::clamp(value, -farOut, farOut)));
}

QString cornerName(Corner corner)
{
    constexpr const char* names[] = {
        QT_TRANSLATE_NOOP("zokit", "top left"),     QT_TRANSLATE_NOOP("zokit", "top"),
        QT_TRANSLATE_NOOP("zokit", "top right"),    QT_TRANSLATE_NOOP("zokit", "left"),
        QT_TRANSLATE_NOOP("zokit", "middle"),       QT_TRANSLATE_NOOP("zokit", "right"),
        QT_TRANSLATE_NOOP("zokit", "bottom left"),  QT_TRANSLATE_NOOP("zokit", "bottom"),
        QT_TRANSLATE_NOOP("zokit", "bottom right"),
    };
    return QCoreApplication::translate("zokit", names[static_cast<int>(corner)]);
}

std::optional<Anchor> anchorFrom(const Values& values, Message* error)
{
    const auto refuse = [error](Code code, const QStringList& words) {
        if (error)
            *error = Message(code, words);
        return std::nullopt;
    };
    const QStringList known{cornerKey, marginKey, sizeKey};
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const QString& member = it.key();
        if (!known.contains(member) && !member.startsWith(QLatin1String("x-")))
            return refuse(Code::UnknownMember, {QStringLiteral("anchor"), member, nearest(member, known)});
    }
    Anchor anchor;
    const QString word = values.value(cornerKey).toString();
    const auto corner = corners().indexOf(word);
    if (corner < 0)
        return refuse(Code::AnchorCorner, {word, corners().join(QStringLiteral(", ")), nearest(word, corners())});
    anchor.corner = static_cast<Corner>(corner);
    if (values.contains(marginKey)) {
        const std::optional<double> margin = percentOrNumber(values.value(marginKey), anchor.marginInPercent);
        if (!margin)
            return refuse(Code::AnchorMargin, {values.value(marginKey).toString()});
        anchor.margin = *margin;
    }
    if (values.contains(sizeKey)) {
        bool isPercent = false;
        const std::optional<double> size = percentOrNumber(values.value(sizeKey), isPercent);
        if (!size || *size < 1 || *size > whole)
            return refuse(Code::AnchorSize, {values.value(sizeKey).toString()});
        anchor.widthInPercent = *size;
    }
    return anchor;
}

Values toValues(const Anchor& anchor)
{
    Values values{{cornerKey, corners().at(static_cast<int>(anchor.corner))}};
    values.insert(marginKey, anchor.marginInPercent ? QVariant(percent(anchor.margin)) : QVariant(anchor.margin));
    if (anchor.widthInPercent > 0)
        values.insert(sizeKey, percent(anchor.widthInPercent));
    return values;
}

QPoint anchoredPosition(const Anchor& anchor, const QSize& size, const QSize& frame)
{
    const double beside = anchor.marginInPercent ? anchor.margin * frame.width() / whole : anchor.margin;
    const double above = anchor.marginInPercent ? anchor.margin * frame.height() / whole : anchor.margin;
    return {along(column(anchor.corner), beside, size.width(), frame.width()),
            along(row(anchor.corner), above, size.height(), frame.height())};
}

QSize measuredText(const Values& values)
{
    if (values.value(keys::textContent).toString().isEmpty())
        return QSize();
    registerEffects();
    // The library measures what it draws: a text in a corner of a small frame is measured as a whole.
    constexpr int side = 64;
    ZoEffectModel scratch(QStringList{types::watermark});
    setPictureOptions(scratch);
    scratch.setVideoSize(side, side);
    Values drawn = values;
    drawn.insert(keys::isText, true);
    drawn.insert(keys::left, 0);
    drawn.insert(keys::top, 0);
    drawn.insert(QStringLiteral("_checkstate"), true);
    scratch.addDataItem(types::watermark, drawn);
    scratch.getWatermark(side, side, false);
    return {scratch.data(keys::imageWidth, types::watermark, 0).toInt(),
            scratch.data(keys::imageHeight, types::watermark, 0).toInt()};
}

QSize watermarkSize(const Values& values)
{
    return values.value(keys::isText).toBool()
               ? measuredText(values)
               : QSize(values.value(keys::imageWidth).toInt(), values.value(keys::imageHeight).toInt());
}

Values anchoredValues(const Item& item, const QSize& frame)
{
    const std::optional<Anchor> anchor = anchorFrom(item.anchor);
    if (!anchor || frame.isEmpty())
        return Values();
    Values sized = item.values;
    Values result;
    if (anchor->widthInPercent > 0) {
        const int width = std::max(1, rounded(frame.width() * anchor->widthInPercent / whole));
        if (item.values.value(keys::isText).toBool()) {
            result.insert(keys::fontSize, fittingFontSize(item.values, width));
        } else {
            const double shape = item.values.value(keys::imageHeight).toDouble()
                                 / std::max(1, item.values.value(keys::imageWidth).toInt());
            result.insert(keys::imageWidth, width);
            result.insert(keys::imageHeight, std::max(1, rounded(width * shape)));
        }
        for (auto it = result.cbegin(); it != result.cend(); ++it)
            sized.insert(it.key(), it.value());
    }
    const QPoint place = anchoredPosition(*anchor, watermarkSize(sized), frame);
    result.insert(keys::left, place.x());
    result.insert(keys::top, place.y());
    return result;
}

} // namespace zokit
