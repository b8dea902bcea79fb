// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include "catalogue_p.h"
#include "effectnames_p.h"
#include "frameeffectsummary_p.h"
#include "modelevents_p.h"
#include "qtcompat_p.h"
#include "subitemcheck_p.h"
#include "treecheck_p.h"
#include "zoeffectcatalogue.h"
#include "zoeffectitemdefaultvalmgr.h"

namespace {

QString savedSummary()
{
    return qtcompat::toText(
        ZoEffectItemDefaultValMgr::getInstance()->getCustomDefaultVal(types::effect, keys::frameEffects));
}

int checkStateFor(const frameeffects::State& state)
{
    return state.on ? Qt::Checked : Qt::Unchecked;
}

} // namespace

bool ZoEffectModel::FrameEffectIsDefault() const
{
    const EffectControlItem* record = catalogue::record(types::effect);
    const ZoEffectItemData* typeNode = findDataItem(types::effect, -1);
    if (!record || !typeNode)
        return true;
    if (!hasCustomDefault(types::effect))
        return matchesSubItems(*typeNode, record->subItems);

    // Deliberate: a summary that does not fit the items was saved for another set of frame effects, and
    // counts as default.
    const auto saved = frameeffects::states(savedSummary(), typeNode->childCount());
    if (!saved)
        return true;
    for (int row = 0; row < typeNode->childCount(); ++row) {
        const ZoEffectItemData* item = typeNode->child(row);
        const frameeffects::State& state = saved->at(row);
        if (item && (item->name() != state.name || item->checkState() != checkStateFor(state)))
            return false;
    }
    return true;
}

QMap<QString, QVariant> ZoEffectModel::getCurrentFrameEffects() const
{
    const ZoEffectItemData* typeNode = getDataItem(types::effect, -1);
    if (!typeNode) {
        logEvent(ModelEvent::NoFrameEffectType);
        return {};
    }
    QVector<frameeffects::State> states;
    for (int row = 0; row < typeNode->childCount(); ++row) {
        const ZoEffectItemData* item = typeNode->child(row);
        if (item)
            states.append({item->name(), item->checkState() == Qt::Checked});
        else
            logEvent(ModelEvent::NullFrameEffect);
    }
    return {{keys::frameEffects, frameeffects::summary(states)}};
}

void ZoEffectModel::AdjustFramEffectsByCustomDefault()
{
    const TreeCheck check(m_root);
    ZoEffectItemData* typeNode = findDataItem(types::effect, -1);
    if (!typeNode || !hasCustomDefault(types::effect))
        return;
    const auto saved = frameeffects::states(savedSummary(), typeNode->childCount());
    if (!saved)
        return;
    for (int row = 0; row < typeNode->childCount(); ++row) {
        const frameeffects::State& state = saved->at(row);
        const int from = getItemPos(typeNode, state.name);
        if (from == -1)
            return;
        typeNode->changeItemPos(row, from);
        if (ZoEffectItemData* item = typeNode->child(row))
            item->setCheckState(checkStateFor(state));
    }
}

int ZoEffectModel::getItemPos(const ZoEffectItemData* parent, const QString& name) const
{
    for (int row = 0; parent && row < parent->childCount(); ++row) {
        const ZoEffectItemData* item = parent->child(row);
        if (item && item->name() == name)
            return row;
    }
    return -1;
}
