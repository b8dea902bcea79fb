// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "cataloguedefaults_p.h"

#include <cmath>

#include <zoeffectcatalogue.h>

#include <zokit/properties.h>

namespace zokit {

namespace {

QMap<QString, Values> allDefaults()
{
    QMap<QString, Values> all;
    for (const QString& type : effectTypes()) {
        for (const EffectDefaultVal* entry = catalogueOf(type); entry->key; ++entry)
            all[type].insert(QString::fromUtf8(entry->key), entry->defaultValue);
    }
    return all;
}

Values defaultsOf(const QString& type)
{
    static const QMap<QString, Values> all = allDefaults();
    return all.value(type);
}

QVector<Item> plainFrameEffects()
{
    QVector<Item> items;
    for (const FrameEffect& effect : frameEffects()) {
        Item item;
        item.name = QString::fromUtf8(effect.name);
        item.selected = false;
        item.values.insert(QStringLiteral("id"), effect.id);
        items.append(item);
    }
    return items;
}

int part(double factor, int side)
{
    return static_cast<int>(std::trunc(factor * side));
}

} // namespace

const EffectDefaultVal* catalogueOf(const QString& type)
{
    for (const EffectControlItem* record = effectTable(); record->name; ++record) {
        if (type == QLatin1String(record->name))
            return record->subItems ? record->subItems->properties : record->properties;
    }
    return nullptr;
}

TypeSettings catalogueType(const QString& type, const QSize& frame)
{
    Q_UNUSED(frame)
    TypeSettings result;
    result.type = type;
    if (type != QLatin1String("Effect")) {
        result.values = defaultsOf(type);
        return result;
    }
    static const QVector<Item> items = plainFrameEffects();
    result.items = items;
    return result;
}

Values catalogueItem(const QString& type, const QSize& frame)
{
    Values values = defaultsOf(type);
    if (type == QLatin1String("Watermark")) {
        const double across = values.take(QStringLiteral("wm_hposfactor")).toDouble();
        const double down = values.take(QStringLiteral("wm_vposfactor")).toDouble();
        values.insert(QStringLiteral("wm_hposition"), part(across, frame.width()));
        values.insert(QStringLiteral("wm_vposition"), part(down, frame.height()));
    } else if (type == QLatin1String("Subtitle")) {
        const double down = values.take(QStringLiteral("sub_vposfactor")).toDouble();
        if (frame.height() > 0)
            values.insert(QStringLiteral("sub_vposition"), part(down, frame.height()));
        values.insert(QStringLiteral("dvdsubtitleposeditbyuser"), true);
    }
    return values;
}

bool isWholeFrame(const Values& crop, const QSize& frame)
{
    const int width = crop.value(QStringLiteral("crop_width")).toInt();
    const int height = crop.value(QStringLiteral("crop_height")).toInt();
    return width == 0 || height == 0 || QSize(width, height) == frame;
}

void setWholeFrame(Values& crop)
{
    const Values plain = defaultsOf(QStringLiteral("Crop"));
    for (const char* key : {"crop_left", "crop_top", "crop_width", "crop_height"})
        crop.insert(QLatin1String(key), plain.value(QLatin1String(key)));
}

} // namespace zokit
