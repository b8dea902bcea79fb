// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include <array>

#include "effectnames_p.h"
#include "nodevalues_p.h"
#include "treecheck_p.h"

using nodevalues::flag;
using nodevalues::number;

namespace {

bool isSelected(const ZoEffectItemData& node)
{
    return node.checkState() == Qt::Checked;
}

/// The row of the first selected track that no track from a file stands before, or -1.
int firstSelectedEmbeddedTrack(const ZoEffectItemData& typeNode, const QString& fileFlag)
{
    for (int row = 0; row < typeNode.childCount(); ++row) {
        const ZoEffectItemData* track = typeNode.child(row);
        if (!track)
            continue;
        if (flag(*track, fileFlag))
            return -1;
        if (isSelected(*track))
            return row;
    }
    return -1;
}

/// Whether a selected track of \a typeNode is from a file (\a fromFile) or embedded.
bool hasSelectedTrack(const ZoEffectItemData& typeNode, const QString& fileFlag, bool fromFile)
{
    for (int row = 0; row < typeNode.childCount(); ++row) {
        const ZoEffectItemData* track = typeNode.child(row);
        if (track && isSelected(*track) && flag(*track, fileFlag) == fromFile)
            return true;
    }
    return false;
}

bool usesFileTrack(const ZoEffectItemData* typeNode, const QString& fileFlag)
{
    return typeNode && isSelected(*typeNode) && hasSelectedTrack(*typeNode, fileFlag, true);
}

/// Deliberate: the check state of the type plays no part here, unlike in usesFileTrack().
bool usesEmbeddedTrack(const ZoEffectItemData* typeNode, const QString& fileFlag)
{
    return !typeNode || typeNode->childCount() == 0 || hasSelectedTrack(*typeNode, fileFlag, false);
}

const auto& audioEffectTypes()
{
    static const std::array names = {types::audioFadeInOut, types::audioNormalize, types::audioBandPass,
                                     types::audioChorus,    types::audioFlanger,   types::audioEcho,
                                     types::audioSpeed};
    return names;
}

} // namespace

int ZoEffectModel::getEmbededSutitleID() const
{
    const ZoEffectItemData* typeNode = findDataItem(types::subtitle, -1);
    if (!typeNode)
        return -1;
    if (isSelected(*typeNode))
        return firstSelectedEmbeddedTrack(*typeNode, keys::subFromFile);
    // The first embedded track is the default one.
    const ZoEffectItemData* first = typeNode->child(0);
    return first && !flag(*first, keys::subFromFile) ? 0 : -1;
}

int ZoEffectModel::getEmbededAudioID() const
{
    const ZoEffectItemData* typeNode = findDataItem(types::audio, -1);
    if (!typeNode || !isSelected(*typeNode))
        return -1;
    const int row = firstSelectedEmbeddedTrack(*typeNode, keys::audioIsFile);
    return row == -1 ? -1 : number(*typeNode->child(row), keys::trackId);
}

bool ZoEffectModel::useCustomSubtitle() const
{
    return usesFileTrack(findDataItem(types::subtitle, -1), keys::subFromFile);
}

bool ZoEffectModel::useEmbededSubtitle() const
{
    return usesEmbeddedTrack(findDataItem(types::subtitle, -1), keys::subFromFile);
}

bool ZoEffectModel::useCustomAudio() const
{
    return usesFileTrack(findDataItem(types::audio, -1), keys::audioIsFile);
}

bool ZoEffectModel::useEmbededAudio() const
{
    return usesEmbeddedTrack(findDataItem(types::audio, -1), keys::audioIsFile);
}

bool ZoEffectModel::isForAudioEffect() const
{
    for (const QString& type : audioEffectTypes()) {
        if (getDataItem(type, -1))
            return true;
    }
    return false;
}

ZoEffectItemData* ZoEffectModel::getValidAudioEffectItem() const
{
    if (!isForAudioEffect())
        return nullptr;
    for (int row = 0; row < m_root.childCount(); ++row) {
        ZoEffectItemData* node = m_root.child(row);
        if (node && flag(*node, keys::audioEffectFlag))
            return node;
    }
    return nullptr;
}

void ZoEffectModel::refreshCurPlayData(int index)
{
    const TreeCheck check(m_root);
    const ZoEffectItemData* typeNode = findDataItem(types::audio, -1);
    for (int row = 0; typeNode && row < typeNode->childCount(); ++row) {
        ZoEffectItemData* track = typeNode->child(row);
        if (!track)
            continue;
        if (row == index)
            track->setData(keys::playMeInEffect, true);
        else
            track->delData(keys::playMeInEffect);
    }
}
