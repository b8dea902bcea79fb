// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include "effectnames_p.h"
#include "modelevents_p.h"
#include "nodevalues_p.h"
#include "qtcompat_p.h"
#include "scaling_p.h"
#include "treecheck_p.h"
#include "watermarkrects_p.h"
#include "zoeffectitemdefaultvalmgr.h"

using nodevalues::flag;
using nodevalues::number;
using nodevalues::storeIfGiven;

namespace {

using Properties = QMap<QString, QVariant>;

ZoEffectItemDefaultValMgr& store()
{
    return *ZoEffectItemDefaultValMgr::getInstance();
}

void copyValues(Properties& values, const ZoEffectItemData& item, std::initializer_list<QString> wanted)
{
    for (const QString& key : wanted)
        values.insert(key, item.data(key));
}

/// The settings of watermark \a item over those saved earlier.
Properties watermarkSettings(const ZoEffectItemData& item, const QSize& baseSize)
{
    Properties values = store().getCustomDefaultVal(types::watermark);
    copyValues(values, item, {keys::wmTransparency});
    if (flag(item, keys::wmIsText))
        copyValues(values, item, {keys::wmFontName, keys::wmFontColor, keys::wmFontStyle, keys::wmFontSize});
    else
        copyValues(values, item, {keys::wmImageKeepRatio});
    if (baseSize.width() != 0 && baseSize.height() != 0) {
        values.insert(keys::wmHPosFactor, double(number(item, keys::wmHPosition)) / baseSize.width());
        values.insert(keys::wmVPosFactor, double(number(item, keys::wmVPosition)) / baseSize.height());
    }
    return values;
}

/// The settings of subtitle \a item over those saved earlier.
Properties subtitleSettings(const ZoEffectItemData& item, const QSize& baseSize)
{
    Properties values = store().getCustomDefaultVal(types::subtitle);
    copyValues(values, item, {keys::subTransparency});
    if (flag(item, keys::subFromFile)) {
        copyValues(values, item,
                   {keys::subFontName, keys::subFontColor, keys::subFontStyle, keys::subLineMargin, keys::subFontSize});
    } else {
        copyValues(values, item, {keys::subFontStyleUseDefault, keys::subFontColor, keys::subFrameColor});
    }
    if (baseSize.height() != 0)
        values.insert(keys::subVPosFactor, double(number(item, keys::subVPosition)) / baseSize.height());
    return values;
}

/// The settings to save for item \a index of \a type; empty when there are none. Deliberate: what is logged
/// differs from type to type.
Properties settingsToSave(const ZoEffectModel& model, const QString& type, int index)
{
    if (type == types::effect)
        return model.getCurrentFrameEffects();

    const ZoEffectItemData* typeNode = model.getDataItem(type, -1);
    if (type == types::watermark) {
        if (index == -1)
            return {};
        if (!typeNode) {
            modelevents::log(ModelEvent::NoWatermarkTypeToSave);
            return {};
        }
        const ZoEffectItemData* item = typeNode->child(index);
        return item ? watermarkSettings(*item, model.baseSize()) : Properties();
    }
    if (type == types::color) {
        if (!typeNode) {
            modelevents::log(ModelEvent::NoColorTypeToSave);
            return {};
        }
        Properties values; // Deliberate: what was saved earlier does not stay, unlike for the other types.
        copyValues(values, *typeNode, {keys::bcsBrightness, keys::bcsContrast, keys::bcsSaturation});
        return values;
    }
    if (type == types::subtitle) {
        if (!typeNode)
            return {};
        const ZoEffectItemData* item = typeNode->child(index);
        if (!item) {
            modelevents::log(ModelEvent::NoSubtitleItemToSave);
            return {};
        }
        return subtitleSettings(*item, model.baseSize());
    }
    return {};
}

void storeAll(ZoEffectItemData& item, const Properties& values)
{
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        item.setData(it.key(), it.value());
}

/// Whether the saved position \a place may be taken although other watermarks may stand there.
bool takesSavedPlace(const ZoEffectItemData& item, const QPoint& place)
{
    const bool alone = !item.parent() || item.parent()->childCount() < 2;
    return alone || placement::savedPlaceIsFree(placement::shownBeside(item), place);
}

void applyToWatermark(ZoEffectItemData& item, const Properties& saved, const QSize& baseSize, bool direct)
{
    const bool hasFactors = saved.contains(keys::wmHPosFactor) && saved.contains(keys::wmVPosFactor);
    if (flag(item, keys::wmIsText)) {
        Properties style = saved;
        style.remove(keys::wmHPosFactor);
        style.remove(keys::wmVPosFactor);
        storeAll(item, style);
    } else {
        storeIfGiven(item, saved, keys::wmTransparency);
    }

    if (!hasFactors)
        return;
    const QPoint place(scaling::scaled(baseSize.width(), qtcompat::toDouble(saved.value(keys::wmHPosFactor))),
                       scaling::scaled(baseSize.height(), qtcompat::toDouble(saved.value(keys::wmVPosFactor))));
    if (direct || takesSavedPlace(item, place)) {
        item.setData(keys::wmHPosition, place.x());
        item.setData(keys::wmVPosition, place.y());
    }
}

} // namespace

bool ZoEffectModel::hasCustomDefault(const QString& type) const
{
    return store().hasCustomDefaultVal(type);
}

void ZoEffectModel::removeCustomDefault(const QString& type)
{
    const TreeCheck check(m_root);
    store().removeCustomDefaultVal(type);
}

QVariant ZoEffectModel::customDefaultVal(const QString& key, const QString& type)
{
    return store().getCustomDefaultVal(type, key);
}

void ZoEffectModel::saveAsCustomDefault(const QString& type, int index)
{
    const TreeCheck check(m_root);
    const Properties values = settingsToSave(*this, type, index);
    if (!values.isEmpty())
        store().saveAsCustomDefaultVal(type, values);
}

void ZoEffectModel::getCustomDefaultVal(ZoEffectItemData* item, const QString& type, bool direct)
{
    const TreeCheck check(m_root);
    if (!item) {
        modelevents::log(ModelEvent::NullItemForCustomDefault);
        return;
    }
    const Properties saved = store().getCustomDefaultVal(type);
    if (saved.isEmpty())
        return;

    if (type == types::watermark) {
        applyToWatermark(*item, saved, baseSize(), direct);
    } else if (type == types::subtitle) {
        if (flag(*item, keys::subFromFile))
            storeAll(*item, saved);
        else
            storeIfGiven(*item, saved, keys::subTransparency);
    } else {
        m_root.setData(keys::editByDefault, true);
        storeAll(*item, saved);
    }
}
