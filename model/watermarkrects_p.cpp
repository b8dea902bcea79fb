// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "watermarkrects_p.h"

#include "effectnames_p.h"
#include "qtcompat_p.h"
#include "zoeffectitemdata.h"

QVector<placement::OccupiedRect> placement::shownBeside(const ZoEffectItemData& item)
{
    QVector<placement::OccupiedRect> rectangles;
    const ZoEffectItemData* typeNode = item.parent();
    if (typeNode)
        rectangles.reserve(typeNode->childCount());
    for (int row = 0; typeNode && row < typeNode->childCount(); ++row) {
        const ZoEffectItemData* other = typeNode->child(row);
        if (!other || other == &item || other->checkState() != Qt::Checked)
            continue;
        const auto number = [other](const QString& key) { return qtcompat::toInt(other->data(key)); };
        rectangles.append(placement::OccupiedRect::ofWatermark(number(keys::wmHPosition), number(keys::wmVPosition),
                                                               number(keys::wmImageWidth),
                                                               number(keys::wmImageHeight)));
    }
    return rectangles;
}
