// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

/// The events that the model logs. The number is what stands in the log and identifies the event for good:
/// it never changes, wherever the code goes.
enum class ModelEvent {
    NullCatalogue = 25,
    NoSuchNodeToSet = 181,
    NoSuchTypeToCount = 246,
    DeletedItemWithoutParent = 270,
    NoSuchItemToDelete = 273,
    NoSuchTypeToMoveIn = 288,
    LookupFromNullWithPosition = 316,
    LookupFromNull = 340,
    NullForSubItems = 422,
    NoCatalogueRecordToCompare = 518,
    NoSuchTypeToReset = 622,
    NullItemForCustomDefault = 829,
    ItemNotCreated = 903,
    NoSuchItemToReplace = 966,
    NoSuchTypeToReplaceIn = 969,
    ReplaceTargetMissingOrSource = 1026,
    NullReplaceSource = 1029,
    ImageNotLoaded = 1178,
    NullWatermarkToPlace = 1392,
    NoWatermarkTypeToSave = 1451,
    NoColorTypeToSave = 1467,
    NoSubtitleItemToSave = 1514,
    NullFrameEffect = 1553,
    NoFrameEffectType = 1559,
    UnknownSelectedType = 2399,
};

/// Writes the two log lines of an event: where and when, then an empty one.
void logEvent(ModelEvent event);
