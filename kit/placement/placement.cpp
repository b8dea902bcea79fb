// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/placement.h>

#include <algorithm>
#include <cmath>

#include <QStringList>

#include <zoeffectmodel.h>

#include <zokit/properties.h>

#include "anchoring_p.h"
#include "cataloguedefaults_p.h"
#include "names_p.h"
#include "newitem_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

const QString cornerKey = QStringLiteral("corner");
const QString marginKey = QStringLiteral("margin");
const QString sizeKey = QStringLiteral("size");
constexpr int dotsPerInch = 96;
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

int rounded(double value)
{
    return static_cast<int>(std::lround(std::clamp(value, -1e9, 1e9)));
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
    return QString::number(number) + QLatin1Char('%');
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
    const Property* known = findProperty(types::watermark, keys::fontSize);
    int low = known ? known->lowest.toInt() : 1;
    int high = 4 * (known ? known->highest.toInt() : 72); // What is computed may lie beyond what a person sets.
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

bool touches(const QRect& place, const QVector<QRect>& occupied)
{
    return std::any_of(occupied.cbegin(), occupied.cend(), [&](const QRect& other) { return other.intersects(place); });
}

void scale(Values& values, const QString& key, double factor)
{
    if (values.contains(key) && values.value(key).userType() == QMetaType::Int)
        values.insert(key, rounded(values.value(key).toInt() * factor));
}

/// Which side of the frame a property follows.
enum class Side { None, Width, Height };

Side sideOf(const QString& type, const QString& key, bool text)
{
    if (key == keys::cropLeft || key == keys::cropWidth || key == keys::left || key == QLatin1String("sub_hposition"))
        return Side::Width;
    if (key == keys::cropTop || key == keys::cropHeight || key == keys::top || key == keys::subtitleTop)
        return Side::Height;
    if (type == types::watermark) {
        if (key == keys::fontSize)
            return text ? Side::Height : Side::None;
        return key == keys::imageWidth ? Side::Width : Side::None; // The height follows in the image's shape.
    }
    return key == QLatin1String("sub_fontsize") ? Side::Height : Side::None;
}

void rescale(Values& values, const QString& type, double across, double down)
{
    const bool text = values.value(keys::isText).toBool();
    const double height = values.value(keys::imageHeight).toDouble();
    const double width = values.value(keys::imageWidth).toDouble();
    for (const QString& key : values.keys()) {
        const Side side = sideOf(type, key, text);
        if (side != Side::None)
            scale(values, key, side == Side::Width ? across : down);
    }
    if (type == types::watermark && !text && width > 0 && height > 0)
        values.insert(keys::imageHeight, std::max(1, rounded(values.value(keys::imageWidth).toInt() * height / width)));
}

Values rescaledAnchor(const Values& anchor, double across)
{
    std::optional<Anchor> read = anchorFrom(anchor);
    if (!read || read->marginInPercent)
        return anchor;
    read->margin *= across;
    return toValues(*read);
}

} // namespace

std::optional<Anchor> anchorFrom(const Values& values, Message* error)
{
    const auto refuse = [error](Code code, const QStringList& words) {
        if (error)
            *error = Message(code, words);
        return std::nullopt;
    };
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
    ZoPictureOptions options;
    options.textDotsPerInch = dotsPerInch;
    scratch.setPictureOptions(options);
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

std::optional<QPoint> freePlace(const QSize& size, const QPoint& wished, const QVector<QRect>& occupied,
                                const QSize& frame)
{
    const QSize needed = size.expandedTo(QSize(1, 1));
    // A free place that is as near as can be touches an edge of something on each axis, or keeps the wished coordinate.
    QVector<int> columns{wished.x(), 0, frame.width() - needed.width()};
    QVector<int> rows{wished.y(), 0, frame.height() - needed.height()};
    for (const QRect& other : occupied) {
        columns << other.right() + 1 << other.left() - needed.width();
        rows << other.bottom() + 1 << other.top() - needed.height();
    }
    std::optional<QPoint> best;
    qint64 bestDistance = 0;
    for (const int y : rows) {
        for (const int x : columns) {
            const QRect place(QPoint(x, y), needed);
            const bool isWished = x == wished.x() && y == wished.y(); // It may lie beyond the frame.
            const bool inside =
                x >= 0 && y >= 0 && x + needed.width() <= frame.width() && y + needed.height() <= frame.height();
            if ((!inside && !isWished) || touches(place, occupied))
                continue;
            const qint64 dx = qint64(x) - wished.x();
            const qint64 dy = qint64(y) - wished.y();
            const qint64 distance = dx * dx + dy * dy;
            if (!best || distance < bestDistance) {
                best = QPoint(x, y);
                bestDistance = distance;
            }
        }
    }
    return best;
}

std::optional<QRect> cropWithin(const QRect& wished, const QSize& frame, const CropRule& rule)
{
    const QRect inside = wished.normalized().intersected(QRect(QPoint(0, 0), frame));
    int width = std::max(inside.width(), rule.smallest.width());
    int height = std::max(inside.height(), rule.smallest.height());
    if (rule.ratio > 0) {
        // The largest of that shape in the rectangle, but not below the smallest size.
        if (width > height * rule.ratio)
            width = rounded(height * rule.ratio);
        else
            height = rounded(width / rule.ratio);
        if (width < rule.smallest.width()) {
            width = rule.smallest.width();
            height = rounded(width / rule.ratio);
        }
        if (height < rule.smallest.height()) {
            height = rule.smallest.height();
            width = rounded(height * rule.ratio);
        }
    }
    if (rule.even) {
        width -= width % 2;
        height -= height % 2;
    }
    if (width > frame.width() || height > frame.height() || width < 1 || height < 1)
        return std::nullopt;
    const QPoint middle = inside.isEmpty() ? wished.normalized().center() : inside.center();
    const int x = std::clamp(middle.x() - (width - 1) / 2, 0, frame.width() - width);
    const int y = std::clamp(middle.y() - (height - 1) / 2, 0, frame.height() - height);
    return QRect(x, y, width, height);
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

Settings rescaled(const Settings& settings, const QSize& frame)
{
    Settings result = settings;
    const QSize old = settings.media.frame;
    result.media.frame = frame;
    if (old.isEmpty() || frame.isEmpty() || old == frame)
        return result;
    const double across = double(frame.width()) / old.width();
    const double down = double(frame.height()) / old.height();
    for (TypeSettings& type : result.effects) {
        if (type.type == types::crop) {
            if (!isWholeFrame(type.values, old))
                rescale(type.values, type.type, across, down);
            else
                setWholeFrame(type.values);
        }
        if (type.type != types::watermark && type.type != types::subtitle)
            continue;
        for (Item& item : type.items) {
            rescale(item.values, type.type, across, down);
            item.anchor = rescaledAnchor(item.anchor, across);
            const Values placed = anchoredValues(item, frame);
            for (auto it = placed.cbegin(); it != placed.cend(); ++it)
                item.values.insert(it.key(), it.value());
        }
    }
    return result;
}

Messages movedByRounding(const Settings& settings, const QSize& frame)
{
    const Settings there = rescaled(settings, frame);
    const Settings back = rescaled(there, settings.media.frame);
    Messages moved;
    const auto compare = [&](const QString& where, const Values& before, const Values& after) {
        for (auto it = before.cbegin(); it != before.cend(); ++it) {
            const int was = it.value().toInt();
            const int is = after.value(it.key()).toInt();
            if (it.value().userType() == QMetaType::Int && was != is)
                moved.append(
                    Message(Code::MovedByRounding, {where + it.key(), QString::number(was), QString::number(is)}));
        }
    };
    for (int i = 0; i < settings.effects.size(); ++i) {
        const TypeSettings& type = settings.effects.at(i);
        compare(type.type + QLatin1Char(':'), type.values, back.effects.at(i).values);
        for (int pos = 0; pos < type.items.size(); ++pos)
            compare(QStringLiteral("%1:%2:").arg(type.type).arg(pos), type.items.at(pos).values,
                    back.effects.at(i).items.at(pos).values);
    }
    return moved;
}

} // namespace zokit
