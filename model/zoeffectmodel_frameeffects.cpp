// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include <algorithm>

#include <QSet>

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

bool holds(const ZoEffectItemData& item, const frameeffects::State& state)
{
    return item.name() == state.name && item.checkState() == checkStateFor(state);
}

/// Brings the items of \a typeNode into the order and check states of \a states, up to the first unknown name.
void arrange(const ZoEffectModel& model, ZoEffectItemData& typeNode, const QVector<frameeffects::State>& states)
{
    for (int row = 0; row < states.size(); ++row) {
        const int from = model.getItemPos(&typeNode, states.at(row).name);
        if (from == -1)
            return;
        typeNode.changeItemPos(row, from);
        if (ZoEffectItemData* item = typeNode.child(row))
            item->setCheckState(checkStateFor(states.at(row)));
    }
}

/// Whether \a states, as many as \a typeNode has items, name each item once.
bool nameEachOnce(const QVector<frameeffects::State>& states, const ZoEffectItemData& typeNode)
{
    QSet<QString> names;
    for (int row = 0; row < typeNode.childCount(); ++row) {
        if (const ZoEffectItemData* item = typeNode.child(row))
            names.insert(item->name());
    }
    return std::all_of(states.cbegin(), states.cend(),
                       [&](const frameeffects::State& state) { return names.remove(state.name); });
}

} // namespace

bool ZoEffectModel::FrameEffectIsDefault() const
{
    const EffectControlItem* record = catalogue::record(types::effect);
    const ZoEffectItemData* typeNode = findDataItem(types::effect, -1);
    if (!record || !typeNode)
        return true;
    if (!hasCustomDefault(types::effect))
        return catalogue::matchesSubItems(*typeNode, record->subItems);

    // Deliberate: a summary that does not fit the items was saved for another set of frame effects, and
    // counts as default.
    const auto saved = frameeffects::states(savedSummary(), typeNode->childCount());
    if (!saved)
        return true;
    for (int row = 0; row < typeNode->childCount(); ++row) {
        const ZoEffectItemData* item = typeNode->child(row);
        if (item && !holds(*item, saved->at(row)))
            return false;
    }
    return true;
}

QMap<QString, QVariant> ZoEffectModel::getCurrentFrameEffects() const
{
    const ZoEffectItemData* typeNode = getDataItem(types::effect, -1);
    if (!typeNode) {
        modelevents::log(ModelEvent::NoFrameEffectType);
        return {};
    }
    QVector<frameeffects::State> states;
    for (int row = 0; row < typeNode->childCount(); ++row) {
        const ZoEffectItemData* item = typeNode->child(row);
        if (item)
            states.append({item->name(), item->checkState() == Qt::Checked});
        else
            modelevents::log(ModelEvent::NullFrameEffect);
    }
    return {{keys::frameEffects, frameeffects::summary(states)}};
}

bool ZoEffectModel::applyFrameEffects(const QMap<QString, QVariant>& effects)
{
    const TreeCheck check(m_root);
    ZoEffectItemData* typeNode = findDataItem(types::effect, -1);
    const auto given = effects.constFind(keys::frameEffects);
    if (!typeNode || given == effects.cend())
        return false;
    const QString summary = qtcompat::toText(given.value());
    if (typeNode->childCount() == 0)
        return summary.isEmpty();

    const auto wanted = frameeffects::states(summary, typeNode->childCount());
    if (!wanted || !nameEachOnce(*wanted, *typeNode))
        return false;
    bool isEqual = true;
    for (int row = 0; row < wanted->size(); ++row)
        isEqual = isEqual && holds(*typeNode->child(row), wanted->at(row));
    if (isEqual)
        return true;
    arrange(*this, *typeNode, *wanted);
    emit effectDataChanged(types::effect, keys::reset, QVariant(), -1);
    return true;
}

void ZoEffectModel::AdjustFramEffectsByCustomDefault()
{
    const TreeCheck check(m_root);
    ZoEffectItemData* typeNode = findDataItem(types::effect, -1);
    if (!typeNode || !hasCustomDefault(types::effect))
        return;
    if (const auto saved = frameeffects::states(savedSummary(), typeNode->childCount()))
        arrange(*this, *typeNode, *saved);
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
