// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include "effectnames_p.h"
#include "modelevents_p.h"
#include "nodevalues_p.h"
#include "treecheck_p.h"
#include "watermarkrects_p.h"

void ZoEffectModel::adjustWatermarkPos(ZoEffectItemData* item)
{
    const TreeCheck check(m_root);
    if (!item) {
        modelevents::log(ModelEvent::NullWatermarkToPlace);
        return;
    }
    const ZoEffectItemData* typeNode = item->parent();
    if (!typeNode || typeNode->childCount() < 2)
        return;

    const QPoint start(nodevalues::number(*item, keys::wmHPosition), nodevalues::number(*item, keys::wmVPosition));
    const auto place = placement::freePlace(placement::shownBeside(*item), start, baseSize());
    if (place) {
        item->setData(keys::wmHPosition, place->x());
        item->setData(keys::wmVPosition, place->y());
    }
}
