// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include <algorithm>

#include "catalogue_p.h"
#include "effectnames_p.h"
#include "modelevents_p.h"
#include "nodevalues_p.h"
#include "qtcompat_p.h"
#include "subitemcheck_p.h"
#include "zoeffectcatalogue.h"
#include "zoeffectitemdefaultvalmgr.h"

using nodevalues::flag;
using nodevalues::number;
using nodevalues::text;

namespace {

/// The user's default for \a entry when \a saved, the custom default of its type, has one; else the catalogue's.
QVariant defaultFor(const EffectDefaultVal& entry, const QString& key, const QMap<QString, QVariant>& saved)
{
    const QVariant custom = saved.value(key);
    return custom.isValid() ? custom : entry.defaultValue;
}

QMap<QString, QVariant> customDefault(const QString& type)
{
    return ZoEffectItemDefaultValMgr::getInstance()->getCustomDefaultVal(type);
}

/// Whether \a node holds the defaults of \a type for all of \a properties.
bool holdsDefaults(const ZoEffectItemData& node, const QString& type, const EffectDefaultVal* properties)
{
    if (!properties->key)
        return true;
    const QMap<QString, QVariant> saved = customDefault(type);
    for (const EffectDefaultVal* entry = properties; entry->key; ++entry) {
        const QString key = catalogue::text(entry->key);
        if (!qtcompat::equal(node.data(key), defaultFor(*entry, key, saved)))
            return false;
    }
    return true;
}

/// Deliberate: an exact comparison, a product with a fraction is never default.
bool isAtFactor(const ZoEffectItemData& item, const QString& positionKey, const QString& factorKey, int baseLength)
{
    const double place = qtcompat::toDouble(ZoEffectModel::defaultValue(factorKey, types::watermark)) * baseLength;
    return place == number(item, positionKey);
}

/// Whether one of the selected items of \a typeNode asks for processing.
template <typename Asks>
bool hasSelectedItem(const ZoEffectItemData& typeNode, Asks asks)
{
    for (int row = 0; row < typeNode.childCount(); ++row) {
        const ZoEffectItemData* item = typeNode.child(row);
        if (item && item->checkState() == Qt::Checked && asks(*item))
            return true;
    }
    return false;
}

bool isShownWatermark(const ZoEffectItemData& item)
{
    return !flag(item, keys::wmIsText) || !text(item, keys::wmTextContent).isEmpty();
}

bool changesColor(const ZoEffectItemData& typeNode)
{
    struct Neutral {
        QString key;
        int value;
    };
    static const Neutral neutral[] = {{keys::bcsBrightness, 0}, {keys::bcsContrast, 0}, {keys::bcsSaturation, 0}};
    for (const Neutral& setting : neutral) {
        if (number(typeNode, setting.key) != setting.value)
            return true;
    }
    return false;
}

/// Whether the flagged audio effect \a typeNode changes the sound.
bool changesSound(const ZoEffectItemData& typeNode)
{
    // Deliberate: 10, though the catalogue starts at 100, so that an untouched speed counts as an effect.
    constexpr int neutralSpeed = 10;
    if (typeNode.name() == types::audioSpeed)
        return number(typeNode, keys::audioSpeedFactor) != neutralSpeed;
    if (typeNode.name() == types::audioFadeInOut)
        return flag(typeNode, keys::audioFadeInEnable) || flag(typeNode, keys::audioFadeOutEnable);
    return true;
}

/// Whether the picture is cropped, or turned while the player shows the turned picture.
bool changesFrame(const ZoEffectModel& model)
{
    const QSize base = model.baseSize();
    const bool hasArea = base.width() != 0 && base.height() != 0;
    if (hasArea && model.isCroped(base.width(), base.height()))
        return true;
    if (!qtcompat::toBool(model.data(keys::playerMapFlag, types::crop, -1)))
        return false;
    return qtcompat::toBool(model.data(keys::cropRotationAngle, types::effect, -1))
           || qtcompat::toBool(model.data(keys::cropRotationAction, types::effect, -1));
}

/// Whether the selected type \a typeNode asks for processing.
bool asksForProcessing(const ZoEffectModel& model, const ZoEffectItemData& typeNode)
{
    const QString type = typeNode.name();
    if (type == types::crop)
        return changesFrame(model);
    if (type == types::color)
        return changesColor(typeNode);
    if (type == types::effect)
        return hasSelectedItem(typeNode, [](const ZoEffectItemData&) { return true; });
    if (type == types::watermark)
        return hasSelectedItem(typeNode, isShownWatermark);
    if (type == types::audio)
        return hasSelectedItem(typeNode, [](const auto& track) { return flag(track, keys::audioIsFile); });
    if (type == types::subtitle)
        return hasSelectedItem(typeNode, [](const auto& track) { return flag(track, keys::subFromFile); });
    modelevents::log(ModelEvent::UnknownSelectedType);
    return false;
}

} // namespace

bool ZoEffectModel::SingleDataIsDefault(const QString& type, const QString& key, int pos) const
{
    const ZoEffectItemData* node = findDataItem(type, pos);
    if (!node)
        return true;
    if (type == types::watermark && key == keys::wmHPosition)
        return isAtFactor(*node, key, keys::wmHPosFactor, baseSize().width());
    if (type == types::watermark && key == keys::wmVPosition)
        return isAtFactor(*node, key, keys::wmVPosFactor, baseSize().height());
    const EffectDefaultVal* entry = catalogue::property(catalogue::properties(type), key);
    if (!entry)
        return true;
    const QMap<QString, QVariant> saved = customDefault(type);
    return qtcompat::equal(node->data(key), defaultFor(*entry, key, saved));
}

bool ZoEffectModel::dataIsDefault(const QString& type) const
{
    const EffectControlItem* record = catalogue::record(type);
    if (!record) {
        modelevents::log(ModelEvent::NoCatalogueRecordToCompare);
        return true;
    }
    const ZoEffectItemData* typeNode = findDataItem(type, -1);
    if (!typeNode)
        return true;
    if (record->properties)
        return holdsDefaults(*typeNode, type, record->properties);
    if (type == types::effect)
        return FrameEffectIsDefault();
    return catalogue::matchesSubItems(*typeNode, record->subItems);
}

bool ZoEffectModel::hasRealEffect() const
{
    const bool forAudioEffect = isForAudioEffect();
    for (int row = 0; row < m_root.childCount(); ++row) {
        const ZoEffectItemData* typeNode = m_root.child(row);
        if (!typeNode)
            continue;
        if (forAudioEffect) {
            // The first flagged audio effect decides, whatever follows it.
            if (flag(*typeNode, keys::audioEffectFlag))
                return changesSound(*typeNode);
        } else if (typeNode->checkState() == Qt::Checked && asksForProcessing(*this, *typeNode)) {
            return true;
        }
    }
    return false;
}
