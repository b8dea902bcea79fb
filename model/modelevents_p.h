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

namespace modelevents {

/// What happened, in the words of the guide's eleventh chapter; null for a number that is no event's.
constexpr const char* inWords(int number)
{
    switch (static_cast<ModelEvent>(number)) {
    case ModelEvent::NullCatalogue:
        return "InitEffectModel() was given null: models built from now on have no types";
    case ModelEvent::NoSuchNodeToSet:
        return "setData(): no node at this type and position; answers false";
    case ModelEvent::NoSuchTypeToCount:
        return "childCount(): the model does not have this type; answers 0";
    case ModelEvent::DeletedItemWithoutParent:
        return "delDataItem(): the node has no parent; answers false";
    case ModelEvent::NoSuchItemToDelete:
        return "delDataItem(): no item at this type and position; answers false";
    case ModelEvent::NoSuchTypeToMoveIn:
        return "changeDataItemPos(): the model does not have this type; answers false";
    case ModelEvent::LookupFromNullWithPosition:
        return "findDataItem(start, type, pos): start is null; answers null";
    case ModelEvent::LookupFromNull:
        return "findDataItem(start, type): start is null; answers null";
    case ModelEvent::NullForSubItems:
        return "InitSubItemData(): the node or the table is null";
    case ModelEvent::NoCatalogueRecordToCompare:
        return "dataIsDefault(): the registered table does not have this type; answers true";
    case ModelEvent::NoSuchTypeToReset:
        return "resetDataItem(): the model does not have this type; answers false";
    case ModelEvent::NullItemForCustomDefault:
        return "getCustomDefaultVal(): the node is null";
    case ModelEvent::ItemNotCreated:
        return "no memory for a new item; the call that adds it answers false. A type that addDataItemEx() created "
               "stays";
    case ModelEvent::NoSuchItemToReplace:
        return "replaceData() with properties: the type does not have this item; answers false";
    case ModelEvent::NoSuchTypeToReplaceIn:
        return "replaceData() with properties: the model does not have this type; answers false";
    case ModelEvent::ReplaceTargetMissingOrSource:
        return "replaceData() with a node: there is no target, or the node is the target itself";
    case ModelEvent::NullReplaceSource:
        return "replaceData() with a node: the node is null";
    case ModelEvent::ImageNotLoaded:
        return "the image cannot be loaded: getImage() answers a null pixmap, getWatermark() paints the others. Each "
               "attempt is logged";
    case ModelEvent::NullWatermarkToPlace:
        return "adjustWatermarkPos(): the node is null";
    case ModelEvent::NoWatermarkTypeToSave:
        return "saveAsCustomDefault(\"Watermark\", index): the model does not have this type; nothing is saved";
    case ModelEvent::NoColorTypeToSave:
        return "saveAsCustomDefault(\"Color\", index): the model does not have this type; nothing is saved";
    case ModelEvent::NoSubtitleItemToSave:
        return "saveAsCustomDefault(\"Subtitle\", index): the type does not have this item; nothing is saved";
    case ModelEvent::NullFrameEffect:
        return "getCurrentFrameEffects(): a null node stands under \"Effect\"; it is left out of the answer. One entry "
               "for each";
    case ModelEvent::NoFrameEffectType:
        return "getCurrentFrameEffects(): the model does not have the type \"Effect\"; answers an empty map. "
               "saveAsCustomDefault(\"Effect\", index) asks it, too, and saves nothing";
    case ModelEvent::UnknownSelectedType:
        return "hasRealEffect(): a selected type whose name the library does not know; it is passed over. One entry "
               "for each that is met before the answer is certain";
    }
    return nullptr;
}

/// Writes the two log lines of an event: where and when, then an empty one. Says the event in words, too, where
/// the logging category is on at debug level.
void log(ModelEvent event);

} // namespace modelevents
