// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/previewgeometry.h>

#include <algorithm>

#include <zokit/filesettings.h>
#include <zokit/graph.h>
#include <zokit/properties.h>

#include "names_p.h"
#include "pixelformat_p.h"
#include "things_p.h"

namespace zokit {

namespace {

/// All that a watermark is drawn from: not where it stands.
Values lookOf(Values values)
{
    for (const QString& key : {keys::left, keys::top, own::anchor, own::selected})
        values.remove(key);
    return values;
}

/// A watermark by itself, in a frame of its size.
QImage drawn(const Values& look)
{
    const QSize size = watermarkSize(look);
    if (size.isEmpty())
        return QImage();
    Item item;
    item.values = look;
    item.values.insert(keys::left, 0);
    item.values.insert(keys::top, 0);
    Settings alone;
    alone.media.frame = size;
    alone.effects.append({types::watermark, true, {}, {item}, {}});
    return watermarkPicture(alone);
}

bool isSelected(const FileSettings& file, Identity thing)
{
    return file.value(thing, own::selected).toBool();
}

/// The selected watermarks of \a file; none when the type is not selected.
QVector<Identity> shownWatermarks(const FileSettings& file)
{
    QVector<Identity> shown;
    if (!isSelected(file, file.type(types::watermark)))
        return shown;
    for (const Identity item : file.items(types::watermark)) {
        if (isSelected(file, item))
            shown.append(item);
    }
    return shown;
}

} // namespace

void WatermarkPictures::update(const FileSettings& file)
{
    QMap<Identity, Drawn> next;
    for (const Identity item : shownWatermarks(file)) {
        const Values look = lookOf(file.values(item));
        const auto known = m_drawn.constFind(item);
        next.insert(item, known != m_drawn.cend() && known->look == look ? *known : Drawn{look, drawn(look)});
    }
    m_drawn = next;
}

QImage WatermarkPictures::picture(Identity watermark) const
{
    return m_drawn.value(watermark).picture;
}

QRect PreviewScene::place(Identity thing) const
{
    if (thing == cropThing)
        return crop;
    const auto found =
        std::find_if(marks.cbegin(), marks.cend(), [thing](const PreviewMark& mark) { return mark.thing == thing; });
    return found == marks.cend() ? QRect() : found->place;
}

PreviewScene previewScene(const FileSettings& file, const WatermarkPictures& pictures)
{
    const Settings settings = file.settings();
    PreviewScene scene;
    scene.frame = baseFrame(settings);
    scene.cropThing = file.type(types::crop);
    const QRect kept = croppedTo(settings, scene.frame, false);
    scene.crop = kept.isValid() ? kept : QRect(QPoint(0, 0), scene.frame);
    for (const Identity item : shownWatermarks(file)) {
        const Values values = file.values(item);
        PreviewMark mark;
        mark.thing = item;
        mark.picture = pictures.picture(item);
        mark.place = {QPoint(values.value(keys::left).toInt(), values.value(keys::top).toInt()), mark.picture.size()};
        const bool isText = values.value(keys::isText).toBool();
        mark.keepsShape = values.value(QStringLiteral("wm_imagekeepratio"), true).toBool() || isText;
        if (!mark.picture.isNull())
            scene.marks.append(mark);
    }
    return scene;
}

CropRule cropRule(const FileSettings& file)
{
    const Values values = file.values(file.type(types::crop));
    const Settings settings = file.settings();
    const QSize frame = baseFrame(settings);
    CropRule rule;
    rule.even = asksForEven(settings.output.value(QStringLiteral("pixel-format")).toString());
    rule.smallest = {values.value(QStringLiteral("crop_minwidth")).toInt(),
                     values.value(QStringLiteral("crop_minheight")).toInt()};
    const bool keepsShape = values.value(QStringLiteral("crop_keepaspectratio")).toBool();
    if (!keepsShape || frame.isEmpty())
        return rule;
    const QString shape = values.value(QStringLiteral("crop_aspectratio")).toString();
    const QRect kept = croppedTo(settings, frame, false);
    const QSize present = kept.isValid() ? kept.size() : frame;
    const QStringList sides = shape.split(QLatin1Char(':'));
    if (sides.size() == 2 && sides.last().toDouble() > 0)
        rule.ratio = sides.first().toDouble() / sides.last().toDouble();
    else if (shape == QLatin1String("Crop Ratio"))
        rule.ratio = double(present.width()) / present.height();
    else if (shape != QLatin1String("Crop Area"))
        rule.ratio = double(frame.width()) / frame.height();
    return rule;
}

Values cropValues(const QRect& crop)
{
    return {{keys::cropLeft, crop.left()},
            {keys::cropTop, crop.top()},
            {keys::cropWidth, crop.width()},
            {keys::cropHeight, crop.height()}};
}

std::optional<Anchor> anchorAt(const QRect& place, const QSize& frame)
{
    Anchor usual;
    Anchor flush;
    flush.margin = 0;
    flush.marginInPercent = false;
    for (Anchor anchor : {usual, flush}) {
        for (int corner = 0; corner <= static_cast<int>(Corner::BottomRight); ++corner) {
            anchor.corner = static_cast<Corner>(corner);
            if (anchoredPosition(anchor, place.size(), frame) == place.topLeft())
                return anchor;
        }
    }
    return std::nullopt;
}

namespace {

/// \a size where the corner of \a place that is opposite to \a handle stays.
QRect withOppositeCorner(const QRect& place, Handle handle, const QSize& size)
{
    QRect result(place.topLeft(), size);
    if (handle == Handle::TopLeft || handle == Handle::BottomLeft)
        result.moveRight(place.right());
    if (handle == Handle::TopLeft || handle == Handle::TopRight)
        result.moveBottom(place.bottom());
    return result;
}

int nearestFontSize(const Values& text, int height)
{
    const Property* known = findProperty(types::watermark, keys::fontSize);
    const int present = measuredText(text).height();
    const double wished = text.value(keys::fontSize).toDouble() * height / std::max(present, 1);
    return std::clamp(qRound(wished), known->lowest.toInt(), known->highest.toInt());
}

} // namespace

Values watermarkValues(const Values& present, Handle handle, const QRect& place, const QSize& frame)
{
    const bool isText = present.value(keys::isText).toBool();
    const bool isSized = handle != Handle::Move;
    Values values;
    QRect stands = place;
    if (isSized && isText) {
        Values text = present;
        text.insert(keys::fontSize, nearestFontSize(present, place.height()));
        stands = withOppositeCorner(place, handle, measuredText(text));
        values.insert(keys::fontSize, text.value(keys::fontSize));
    } else if (isSized) {
        values.insert(keys::imageWidth, place.width());
        values.insert(keys::imageHeight, place.height());
    }
    values.insert(keys::left, stands.left());
    values.insert(keys::top, stands.top());

    std::optional<Anchor> anchor = anchorAt(stands, frame);
    if (!anchor)
        return values;
    const std::optional<Anchor> former = anchorFrom(present.value(own::anchor).toMap());
    if (former && former->widthInPercent > 0) {
        constexpr double whole = 100.0;
        const double share = frame.width() > 0 ? stands.width() * whole / frame.width() : 0;
        if (!isSized)
            anchor->widthInPercent = former->widthInPercent;
        else if (!isText && share >= 1 && share <= whole)
            anchor->widthInPercent = share;
    }
    values.insert(own::anchor, toValues(*anchor));
    return values;
}

} // namespace zokit
