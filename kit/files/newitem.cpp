// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "newitem_p.h"

#include <cmath>

#include <zoeffectitemdata.h>
#include <zoeffectmodel.h>

#include <zokit/properties.h>

#include "names_p.h"

namespace zokit {

namespace {

const QString factorKey = QStringLiteral("sub_vposfactor");

QString kindKey(const QString& type)
{
    if (type == types::watermark)
        return keys::isText;
    if (type == types::subtitle)
        return keys::subtitleIsFile;
    return type == types::audio ? keys::soundIsFile : QString();
}

} // namespace

void setPictureOptions(ZoEffectModel& model)
{
    constexpr int dotsPerInch = 96;
    ZoPictureOptions options;
    options.keepImageTransparency = true;
    options.textDotsPerInch = dotsPerInch;
    model.setPictureOptions(options);
}

void registerEffects()
{
    if (!ZoEffectModel::s_EffectItems)
        ZoEffectModel::InitEffectModel(effectTable());
}

Values kindOf(const QString& type, const Values& values)
{
    const QString key = kindKey(type);
    return key.isEmpty() ? Values() : Values{{key, values.value(key).toBool()}};
}

Suit suitOf(const QString& type, bool isItem, const Values& values)
{
    if (!isItem)
        return Suit::Type;
    if (type == types::effect)
        return Suit::FrameEffect;
    if (type == types::watermark)
        return values.value(keys::isText).toBool() ? Suit::TextWatermark : Suit::ImageWatermark;
    const Values kind = kindOf(type, values);
    return kind.cbegin() != kind.cend() && kind.first().toBool() ? Suit::FileTrack : Suit::EmbeddedTrack;
}

void pinSubtitle(Values& values, double factor, const QSize& frame)
{
    if (frame.height() > 0)
        values.insert(keys::subtitleTop, static_cast<int>(std::trunc(factor * frame.height())));
    values.insert(keys::subtitlePlaced, true);
    values.remove(factorKey);
}

Item itemFrom(const ZoEffectItemData& node)
{
    Item item;
    item.name = node.name();
    item.selected = node.checkState() == Qt::Checked;
    item.values = node.properties();
    return item;
}

Item newItem(const QString& type, const Values& kind, const QSize& frame)
{
    registerEffects();
    ZoEffectModel scratch(QStringList{type});
    scratch.setVideoSize(frame.width(), frame.height());
    if (!scratch.insertDataItem(type, kind, -1))
        return Item();
    Item item = itemFrom(*scratch.getDataItem(type, scratch.childCount(type) - 1));
    if (type == types::subtitle)
        pinSubtitle(item.values, ZoEffectModel::defaultValue(factorKey, types::subtitle).toDouble(), frame);
    return item;
}

TypeSettings newType(const QString& type, const QSize& frame)
{
    registerEffects();
    ZoEffectModel scratch(QStringList{type});
    scratch.setVideoSize(frame.width(), frame.height());
    TypeSettings result;
    result.type = type;
    if (const ZoEffectItemData* node = scratch.getDataItem(type, -1)) {
        result.selected = node->checkState() == Qt::Checked;
        result.values = node->properties();
        for (int row = 0; row < node->childCount(); ++row)
            result.items.append(itemFrom(*node->child(row)));
    }
    return result;
}

} // namespace zokit
