// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include "effectnames_p.h"
#include "nodevalues_p.h"
#include "scaling_p.h"
#include "treecheck_p.h"

using nodevalues::flag;
using nodevalues::number;
using nodevalues::text;

namespace {

double factor(int newLength, int oldLength)
{
    return double(newLength) / oldLength;
}

void rescaleWatermark(ZoEffectItemData& item, double sx, double sy)
{
    item.setData(keys::wmHPosition, scaling::scaled(number(item, keys::wmHPosition), sx));
    item.setData(keys::wmVPosition, scaling::scaled(number(item, keys::wmVPosition), sy));
    if (flag(item, keys::wmIsText))
        item.setData(keys::wmFontSize, scaling::scaled(number(item, keys::wmFontSize), sy));

    const QSize image(number(item, keys::wmImageWidth), number(item, keys::wmImageHeight));
    if (image.height() != 0) {
        const QSize rescaled = scaling::scaledImage(image, sx);
        item.setData(keys::wmImageWidth, rescaled.width());
        item.setData(keys::wmImageHeight, rescaled.height());
    }
}

void rescaleWatermarks(const ZoEffectItemData& typeNode, double sx, double sy)
{
    for (int row = 0; row < typeNode.childCount(); ++row) {
        if (ZoEffectItemData* item = typeNode.child(row))
            rescaleWatermark(*item, sx, sy);
    }
}

scaling::CropRectangle cropRectangle(const ZoEffectItemData& typeNode)
{
    return {number(typeNode, keys::cropLeft), number(typeNode, keys::cropTop), number(typeNode, keys::cropWidth),
            number(typeNode, keys::cropHeight)};
}

void storeCropRectangle(ZoEffectItemData& typeNode, const scaling::CropRectangle& crop)
{
    typeNode.setData(keys::cropLeft, crop.left);
    typeNode.setData(keys::cropTop, crop.top);
    typeNode.setData(keys::cropWidth, crop.width);
    typeNode.setData(keys::cropHeight, crop.height);
}

bool keepsFrameRatio(const ZoEffectItemData& typeNode)
{
    return flag(typeNode, keys::cropKeepAspectRatio)
           && text(typeNode, keys::cropAspectRatio) == QLatin1String("Original Ratio");
}

/// Deliberate: the properties of the type node are scaled once for each of its tracks, over and over.
void rescaleSubtitles(ZoEffectItemData& typeNode, double sy)
{
    const int passes = typeNode.childCount();
    if (passes == 0)
        return;
    const auto rescale = [&](const QString& key) {
        typeNode.setData(key, scaling::scaledRepeatedly(number(typeNode, key), sy, passes));
    };
    rescale(keys::subVPosition);
    if (flag(typeNode, keys::subFromFile))
        rescale(keys::subFontSize);
}

} // namespace

void ZoEffectModel::setVideoSize(int w, int h)
{
    const TreeCheck check(m_root);
    m_root.setData(keys::baseWidth, w);
    m_root.setData(keys::baseHeight, h);
}

QSize ZoEffectModel::baseSize() const
{
    return QSize(number(m_root, keys::baseWidth), number(m_root, keys::baseHeight));
}

void ZoEffectModel::adjustEffectInfo(int w, int h)
{
    const TreeCheck check(m_root);
    const QSize oldSize = baseSize();
    if (oldSize == QSize(w, h))
        return;
    for (int row = 0; row < m_root.childCount(); ++row)
        adjustEffectItem(m_root.child(row), w, h, oldSize.width(), oldSize.height());
    setVideoSize(w, h);
}

void ZoEffectModel::adjustEffectItem(ZoEffectItemData* item, int newW, int newH, int oldW, int oldH)
{
    const TreeCheck check(m_root);
    const bool hasSizes = newW != 0 && newH != 0 && oldW != 0 && oldH != 0;
    const bool changes = newW != oldW || newH != oldH;
    if (!item || !hasSizes || !changes)
        return;

    if (item->name() == types::watermark) {
        rescaleWatermarks(*item, factor(newW, oldW), factor(newH, oldH));
    } else if (item->name() == types::crop) {
        scaling::CropRectangle crop = {0, 0, newW, newH};
        if (isCroped(newW, newH))
            crop = scaling::scaledCrop(cropRectangle(*item), keepsFrameRatio(*item), {newW, newH}, {oldW, oldH});
        storeCropRectangle(*item, crop);
    } else if (item->name() == types::subtitle) {
        rescaleSubtitles(*item, factor(newH, oldH));
    }
}

// Deliberate: whatever size is asked about, the base size counts.
bool ZoEffectModel::isCroped(int /*w*/, int /*h*/) const
{
    const ZoEffectItemData* typeNode = findDataItem(types::crop, -1);
    if (!typeNode || typeNode->checkState() != Qt::Checked)
        return false;
    const QSize crop(number(*typeNode, keys::cropWidth), number(*typeNode, keys::cropHeight));
    const QSize base = baseSize();
    if (crop.width() == 0 || crop.height() == 0 || crop == base)
        return false;
    return base.width() != 0;
}

CropData ZoEffectModel::cropData() const
{
    CropData data;
    if (!isCroped(0, 0))
        return data;
    const scaling::CropRectangle crop = cropRectangle(*findDataItem(types::crop, -1));
    data.left = crop.left;
    data.top = crop.top;
    data.width = crop.width;
    data.height = crop.height;
    data.valid = true;
    return data;
}
