// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "watermarkrects_p.h"

#include "effectnames_p.h"
#include "nodevalues_p.h"

using nodevalues::number;

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
        rectangles.append(placement::OccupiedRect::ofWatermark(
            number(*other, keys::wmHPosition), number(*other, keys::wmVPosition), number(*other, keys::wmImageWidth),
            number(*other, keys::wmImageHeight)));
    }
    return rectangles;
}
