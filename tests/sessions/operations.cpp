// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Every public operation of the library, as a session calls it: what it is called with is chosen, the call is told,
// made on both sides, and the result compared. What the call did to trees, signals, log and store is compared
// afterwards by the stage.

#include "stage.h"

#include <zoeffectitemdata.h>
#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "testapplication.h"

using reference::Node;
using reference::NodePtr;
using reference::Properties;

namespace {

constexpr int manyTracks = 8; // More than there are style keys for a track.

ZoEffectItemDefaultValMgr* manager()
{
    return ZoEffectItemDefaultValMgr::getInstance();
}

// --- Models -----------------------------------------------------------------------------------------------

QObject* parentFor(Stage& stage)
{
    return stage.rarely(20) ? stage.host() : nullptr;
}

void constructFull(Stage& stage)
{
    QObject* parent = parentFor(stage);
    stage.call("new", "ZoEffectModel", static_cast<const void*>(parent));
    stage.adopt(std::make_unique<ZoEffectModel>(parent),
                std::make_unique<reference::Model>(stage.world(), QStringList()), parent);
    stage.matters();
}

void constructTypes(Stage& stage)
{
    QObject* parent = parentFor(stage);
    const QStringList types = stage.typeNames();
    stage.call("new", "ZoEffectModel", types, static_cast<const void*>(parent));
    stage.adopt(std::make_unique<ZoEffectModel>(types, parent),
                std::make_unique<reference::Model>(stage.world(), types), parent);
    stage.matters();
}

void constructSingle(Stage& stage)
{
    QObject* parent = parentFor(stage);
    const QString type = stage.audioEffectOr(stage.type(stage.model()));
    const Properties props = stage.props(type);
    stage.call("new", "ZoEffectModel", type, props, static_cast<const void*>(parent));
    stage.adopt(std::make_unique<ZoEffectModel>(type, props, parent),
                std::make_unique<reference::Model>(stage.world(), type, props), parent);
    stage.matters();
}

void constructCopy(Stage& stage)
{
    const ModelPair& source = stage.model();
    stage.call("new", "ZoEffectModel", source);
    auto told = std::make_unique<reference::Model>(stage.world());
    told->takeOver(*source.told);
    stage.adopt(std::make_unique<ZoEffectModel>(*source.real), std::move(told), nullptr);
    stage.matters();
}

void constructCopyWithParent(Stage& stage)
{
    QObject* parent = parentFor(stage);
    const ModelPair& source = stage.model();
    stage.call("new", "ZoEffectModel", source, static_cast<const void*>(parent));
    stage.adopt(std::make_unique<ZoEffectModel>(*source.real, parent),
                std::make_unique<reference::Model>(stage.world()), parent);
    stage.matters();
}

void assignModel(Stage& stage)
{
    ModelPair& target = stage.model();
    ModelPair& source = stage.model();
    stage.call(target, "operator=", source);
    *target.real = *source.real;
    target.told->takeOver(*source.told);
}

void destroyModel(Stage& stage)
{
    stage.call("model", "~ZoEffectModel");
    stage.dropModel();
    stage.matters();
}

void initEffectModel(Stage& stage)
{
    static const int tables[] = {0, 0, 0, 1, 1, 2, 3};
    const int number = tables[stage.below(7)];
    stage.call("ZoEffectModel", "InitEffectModel", number);
    stage.registerTable(number);
    const EffectControlItem* expected = Stage::table(number) ? Stage::table(number)->table : nullptr;
    stage.same(static_cast<const void*>(ZoEffectModel::s_EffectItems), static_cast<const void*>(expected));
}

void findOriItem(Stage& stage)
{
    const QString type = stage.type(stage.model());
    const reference::Catalogue* table = Stage::table(stage.below(Stage::tables));
    stage.call("ZoEffectModel", "findOriItem", type, static_cast<const void*>(table));
    const reference::EffectType* found = table ? reference::findType(table->types, type) : nullptr;
    stage.same(static_cast<const void*>(ZoEffectModel::findOriItem(type, table ? table->table : nullptr)),
               static_cast<const void*>(found ? found->record : nullptr));
}

void createItems(Stage& stage)
{
    ModelPair& pair = stage.model();
    const QStringList types = stage.typeNames();
    if (!Stage::hasRoomFor(pair.told->root.get(), 25))
        return stage.nothingToDo();
    stage.call(pair, "createItems", types);
    pair.real->createItems(types);
    pair.told->createItems(types);
}

void initZoeffectData(Stage& stage)
{
    ModelPair& pair = stage.model();
    Node* node = stage.nodeOrNull(5);
    if (node && node->parentGone())
        return stage.nothingToDo();
    stage.call(pair, "InitZoeffectData", node);
    pair.real->InitZoeffectData(node ? node->twin : nullptr);
    pair.told->fillTypeNode(node);
}

void initSubItemData(Stage& stage)
{
    ModelPair& pair = stage.model();
    Node* node = stage.nodeOrNull(10);
    static const QStringList types = {QStringLiteral("Stack"), QStringLiteral("Mode"), QStringLiteral("Effect"),
                                      QStringLiteral("Bare")};
    const QString type = types.at(stage.below(4));
    const reference::EffectType* record = reference::findType(Stage::table(Stage::oddTable)->types, type);
    if (node && !Stage::hasRoomFor(stage.treeOf(node), 4))
        return stage.nothingToDo();
    stage.call(pair, "InitSubItemData", node, type);
    pair.real->InitSubItemData(node ? node->twin : nullptr, record->record->subItems);
    pair.told->buildSubItems(node, record->subItems ? &*record->subItems : nullptr);
}

void editFlags(Stage& stage)
{
    ModelPair& pair = stage.model();
    stage.call(pair, "editByUser and editByDefault");
    stage.same(pair.real->editByUser(), pair.told->editedByUser);
    stage.same(pair.real->editByDefault(), reference::toBool(pair.told->root->data(QStringLiteral("editbydefault"))));
}

void resetEditByDefaultFlag(Stage& stage)
{
    ModelPair& pair = stage.model();
    stage.call(pair, "resetEditByDefaultFlag");
    pair.real->resetEditByDefaultFlag();
    pair.told->root->setData(QStringLiteral("editbydefault"), false);
}

void blockSignals(Stage& stage)
{
    ModelPair& pair = stage.model();
    const bool block = stage.below(3) == 2;
    stage.call(pair, "blockSignals", block);
    stage.same(pair.real->blockSignals(block), pair.told->signalsBlocked);
    pair.told->signalsBlocked = block;
    stage.matters();
}

// --- Lookup and values ------------------------------------------------------------------------------------

void findByType(Stage& stage)
{
    const ModelPair& pair = stage.model();
    Node* start = stage.nodeOrNull(5);
    const QString type = stage.type(pair);
    stage.call(pair, "findDataItem", start, type);
    if (!start)
        stage.world().log.push_back(340);
    stage.sameNode(pair.real->findDataItem(start ? start->twin : nullptr, type), reference::find(start, type));
}

void findByPosition(Stage& stage)
{
    const ModelPair& pair = stage.model();
    Node* start = stage.nodeOrNull(5);
    const QString type = stage.type(pair);
    const int pos = stage.pos(pair, type);
    stage.call(pair, "findDataItem", start, type, pos);
    if (!start)
        stage.world().log.push_back(316);
    stage.sameNode(pair.real->findDataItem(start ? start->twin : nullptr, type, pos),
                   reference::find(start, type, pos));
}

void getDataItem(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const int pos = stage.pos(pair, type);
    stage.call(pair, "getDataItem", type, pos);
    stage.sameNode(pair.real->getDataItem(type, pos), pair.told->find(type, pos));
    stage.sameNode(pair.real->findDataItem(type, pos), pair.told->find(type, pos));
}

void childCount(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    stage.call(pair, "childCount", type);
    stage.same(pair.real->childCount(type), pair.told->childCount(type));
}

void data(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const int pos = stage.pos(pair, type);
    const QString key = stage.key(type);
    stage.call(pair, "data", key, type, pos);
    stage.same(pair.real->data(key, type, pos), pair.told->data(key, type, pos));
}

void setData(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const int pos = stage.pos(pair, type);
    const QString key = stage.key(type);
    const QVariant value = stage.value(key);
    stage.call(pair, "setData", key, value, type, pos);
    stage.same(pair.real->setData(key, value, type, pos), pair.told->setData(key, value, type, pos));
}

/// All of a crop, since one value alone rarely makes one.
void setCrop(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = QStringLiteral("Crop");
    for (const char* key : {"crop_width", "crop_height", "crop_left", "crop_top", "crop_keepaspectratio"}) {
        const QString name = QString::fromUtf8(key);
        const QVariant value = stage.value(name);
        stage.call(pair, "setData", name, value, type, -1);
        stage.same(pair.real->setData(name, value, type, -1), pair.told->setData(name, value, type, -1));
    }
}

/// Two values of one key in turn: whether the second counts as equal.
void setDataTwice(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const QString key = QStringLiteral("a");
    const QVariant first = stage.value(key);
    const QVariant second = stage.value(key);
    stage.call(pair, "setData twice", key, first, second, type, -1);
    stage.same(pair.real->setData(key, first, type, -1), pair.told->setData(key, first, type, -1));
    stage.same(pair.real->setData(key, second, type, -1), pair.told->setData(key, second, type, -1));
}

void defaultValue(Stage& stage)
{
    const QString type = stage.type(stage.model());
    const QString key = stage.key(type);
    stage.call("ZoEffectModel", "defaultValue", key, type);
    stage.same(ZoEffectModel::defaultValue(key, type), stage.world().defaultValue(key, type));
}

void expectSignal(ModelPair& pair, int index, const QString& type, int number = 0)
{
    reference::Signal signal;
    signal.index = index;
    signal.text = type;
    signal.number = number;
    pair.told->send(signal);
}

void setCurrentItem(Stage& stage)
{
    ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    stage.call(pair, "setCurrentItem", type);
    pair.real->setCurrentItem(type);
    expectSignal(pair, 1, type);
}

void setCurrentSubItem(Stage& stage)
{
    ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const int index = stage.pos(pair, type);
    stage.call(pair, "setCurrentSubItem", type, index);
    pair.real->setCurrentSubItem(type, index);
    expectSignal(pair, 2, type, index);
}

void beginChange(Stage& stage)
{
    ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    stage.call(pair, "beginChange", type);
    pair.real->beginChange(type);
    expectSignal(pair, 5, type);
}

void endChanged(Stage& stage)
{
    ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    stage.call(pair, "endChanged", type);
    pair.real->endChanged(type);
    expectSignal(pair, 6, type);
}

// --- Selection and tracks ---------------------------------------------------------------------------------

void selectOnlyOneItem(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    stage.call(pair, "selectOnlyOneItem", type);
    pair.real->selectOnlyOneItem(type);
    pair.told->selectOnlyOneItem(type);
}

void selectItemByKey(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const QString key = stage.key(type);
    const QVariant value = stage.value(key);
    stage.call(pair, "selectItemByKey", type, key, value);
    pair.real->selectItemByKey(type, key, value);
    pair.told->selectItemByKey(type, key, value);
}

void selectItemByKeyEx(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const QString key = stage.key(type);
    QStringList values;
    for (int more = stage.below(4); more > 0; --more)
        values << reference::toText(stage.value(key));
    // A font is told as a text by each Qt in its own way, and what no text is told of is empty.
    values.removeAll(QString());
    stage.call(pair, "selectItemByKeyEx", type, key, values);
    pair.real->selectItemByKeyEx(type, key, values);
    pair.told->selectItemByKeyEx(type, key, values);
}

void getItemIndexByKeyValue(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const QString key = stage.key(type);
    const QVariant value = stage.value(key);
    stage.call(pair, "getItemIndexByKeyValue", type, key, value);
    const int index = pair.told->getItemIndexByKeyValue(type, key, value);
    stage.same(pair.real->getItemIndexByKeyValue(type, key, value), index);
    stage.same(pair.real->haveSameItem(type, key, value), index != -1);
}

void getSelectItem(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    stage.call(pair, "getSelectItem", type);
    const std::vector<Node*> items = pair.told->getSelectItem(type);
    ZoEffectItemData* real = pair.real->getSelectItem(type);
    if (type != QStringLiteral("Audio") || items.empty())
        return stage.sameNode(real, items.empty() ? nullptr : items.front());
    // A container of the caller's, which holds the model's tracks.
    if (!real)
        Stage::differ(QStringLiteral("container"), QStringLiteral("nullptr"), QStringLiteral("a node"));
    stage.same(real->name(), type);
    stage.same(real->checkState(), 2);
    stage.same(static_cast<const void*>(real->parent()), static_cast<const void*>(nullptr));
    stage.same(static_cast<int>(real->properties().size()), 0);
    stage.same(real->childCount(), static_cast<int>(items.size()));
    for (Node* item : items)
        stage.sameNode(real->takeAt(0), item);
    delete real;
}

void tracks(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString subtitle = QStringLiteral("Subtitle");
    const QString audio = QStringLiteral("Audio");
    const QString subtitleFile = QStringLiteral("sub_fromfile");
    const QString audioFile = QStringLiteral("audio_isfile");
    stage.call(pair, "getEmbededSutitleID, getEmbededAudioID, useCustomSubtitle ...");
    stage.same(pair.real->getEmbededSutitleID(), pair.told->getEmbededSutitleID());
    stage.same(pair.real->getEmbededAudioID(), pair.told->getEmbededAudioID());
    stage.same(pair.real->useCustomSubtitle(), pair.told->useCustom(subtitle, subtitleFile));
    stage.same(pair.real->useEmbededSubtitle(), pair.told->useEmbeded(subtitle, subtitleFile));
    stage.same(pair.real->useCustomAudio(), pair.told->useCustom(audio, audioFile));
    stage.same(pair.real->useEmbededAudio(), pair.told->useEmbeded(audio, audioFile));
}

void audioEffects(Stage& stage)
{
    const ModelPair& pair = stage.model();
    stage.call(pair, "isForAudioEffect and getValidAudioEffectItem");
    stage.same(pair.real->isForAudioEffect(), pair.told->isForAudioEffect());
    stage.sameNode(pair.real->getValidAudioEffectItem(), pair.told->getValidAudioEffectItem());
}

void refreshCurPlayData(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const int index = stage.pos(pair, QStringLiteral("Audio"));
    stage.call(pair, "refreshCurPlayData", index);
    pair.real->refreshCurPlayData(index);
    pair.told->refreshCurPlayData(index);
}

// --- Geometry, picture, place -----------------------------------------------------------------------------

void setVideoSize(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const int w = stage.length();
    const int h = stage.length();
    stage.call(pair, "setVideoSize", w, h);
    pair.real->setVideoSize(w, h);
    pair.told->setVideoSize(w, h);
}

void baseSize(Stage& stage)
{
    const ModelPair& pair = stage.model();
    stage.call(pair, "baseSize");
    stage.same(pair.real->baseSize(), pair.told->baseSize());
}

void adjustEffectInfo(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const int w = stage.length();
    const int h = stage.length();
    stage.call(pair, "adjustEffectInfo", w, h);
    pair.real->adjustEffectInfo(w, h);
    pair.told->adjustEffectInfo(w, h);
}

void adjustEffectItem(Stage& stage)
{
    const ModelPair& pair = stage.model();
    Node* node = stage.rarely(30) ? stage.nodeOrNull(10) : pair.told->find(stage.type(pair), -1);
    const int newW = stage.length();
    const int newH = stage.length();
    const int oldW = stage.length();
    const int oldH = stage.length();
    stage.call(pair, "adjustEffectItem", node, newW, newH, oldW, oldH);
    pair.real->adjustEffectItem(node ? node->twin : nullptr, newW, newH, oldW, oldH);
    pair.told->adjustEffectItem(node, newW, newH, oldW, oldH);
}

void cropInForce(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const int w = stage.length();
    const int h = stage.length();
    stage.call(pair, "isCroped and cropData", w, h);
    stage.same(pair.real->isCroped(w, h), pair.told->isCroped());
    const CropData real = pair.real->cropData();
    const reference::Crop told = pair.told->cropData();
    stage.same(real.left, told.left);
    stage.same(real.top, told.top);
    stage.same(real.width, told.width);
    stage.same(real.height, told.height);
    stage.same(real.reserved, 0);
    stage.same(real.valid, told.valid);
}

void getWatermark(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const bool ownSize = stage.rarely(60);
    const int w = ownSize ? pair.told->baseSize().width() : stage.length();
    const int h = ownSize ? pair.told->baseSize().height() : stage.length();
    const bool honourIgnore = stage.below(2) == 1;
    stage.call(pair, "getWatermark", w, h, honourIgnore);
    const QPixmap real = pair.real->getWatermark(w, h, honourIgnore);
    const QSize told = pair.told->getWatermark(w, h, honourIgnore);
    stage.same(real.isNull(), told.isEmpty());
    if (!told.isEmpty())
        stage.same(real.size(), told);
}

/// A text just within, or just without, the left and the upper edge.
void paintTextAtEdge(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = QStringLiteral("Watermark");
    const int pos = stage.pos(pair, type);
    const Node* item = pos == -1 ? nullptr : pair.told->find(type, pos);
    if (!item)
        return stage.nothingToDo();
    const QSize measured = reference::measuredText(*item);
    const Properties edges = {
        {QStringLiteral("wm_hposition"), 2 - measured.width() - stage.below(3)},
        {QStringLiteral("wm_vposition"), 2 - measured.height() - stage.below(3)},
        {QStringLiteral("wm_imagewidth"), 0},
    };
    for (auto it = edges.cbegin(); it != edges.cend(); ++it) {
        stage.call(pair, "setData", it.key(), it.value(), type, pos);
        stage.same(pair.real->setData(it.key(), it.value(), type, pos),
                   pair.told->setData(it.key(), it.value(), type, pos));
    }
    const QSize base = pair.told->baseSize();
    stage.call(pair, "getWatermark", base.width(), base.height(), false);
    const QPixmap real = pair.real->getWatermark(base.width(), base.height(), false);
    stage.same(real.isNull(), pair.told->getWatermark(base.width(), base.height(), false).isEmpty());
}

void getImage(Stage& stage)
{
    ModelPair& pair = stage.model();
    const QString path = stage.imagePath();
    const QString format = stage.imageFormat();
    stage.call(pair, "getImage", path, format);
    const QByteArray formatName = format.toLatin1();
    QPixmap* real = pair.real->getImage(path, formatName.isEmpty() ? nullptr : formatName.constData());
    const QSize told = pair.told->getImage(path, format);
    if (!real)
        Stage::differ(QStringLiteral("image"), QStringLiteral("nullptr"), QStringLiteral("a pixmap"));
    stage.same(real->isNull(), told.isEmpty());
    if (told.isEmpty())
        return;
    stage.same(real->size(), told);
    QPixmap*& before = pair.images[path];
    if (before)
        stage.same(static_cast<const void*>(real), static_cast<const void*>(before));
    before = real;
}

void adjustWatermarkPos(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const Node* group = pair.told->find(QStringLiteral("Watermark"), -1);
    Node* node = group && group->count() > 0 ? group->child(stage.below(group->count())) : nullptr;
    if (!node || stage.rarely(10))
        node = stage.nodeOrNull(10);
    if (node && node->parentGone())
        return stage.nothingToDo();
    stage.call(pair, "adjustWatermarkPos", node);
    pair.real->adjustWatermarkPos(node ? node->twin : nullptr);
    pair.told->adjustWatermarkPos(node);
}

/// Many watermarks on few places, so that the searches come to their ends; then another one.
void placeAmongMany(Stage& stage)
{
    static const int places[] = {0, 40, 60, 100};
    static const int sizes[] = {0, 30, 60, 200};
    const ModelPair& pair = stage.model();
    const Node* group = pair.told->find(QStringLiteral("Watermark"), -1);
    if (!group || group->count() == 0)
        return stage.nothingToDo();
    const int drawn = stage.below(100000);
    int choice = drawn;
    const auto put = [&stage](Node* node, const char* key, int value) {
        stage.call(node, "setData", QString::fromUtf8(key), value);
        node->twin->setData(QString::fromUtf8(key), value);
        node->setData(QString::fromUtf8(key), value);
    };
    for (const NodePtr& item : group->children) {
        if (!item || item->parentGone())
            continue;
        put(item.get(), "wm_hposition", places[choice % 4]);
        put(item.get(), "wm_vposition", places[choice / 4 % 4]);
        put(item.get(), "wm_imagewidth", sizes[choice / 16 % 4]);
        put(item.get(), "wm_imageheight", sizes[choice / 64 % 4]);
        choice = choice / 7 + drawn / 3;
    }
    Node* item = group->child(stage.below(group->count()));
    if (!item || item->parentGone())
        return;
    stage.call(pair, "adjustWatermarkPos", item);
    pair.real->adjustWatermarkPos(item->twin);
    pair.told->adjustWatermarkPos(item);
}

// --- Defaults and real effects ----------------------------------------------------------------------------

void singleDataIsDefault(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const bool place = type == QStringLiteral("Watermark") && stage.below(2) == 1;
    const QString key = place ? QStringLiteral("wm_hposition") : stage.key(type);
    const int pos = stage.pos(pair, type);
    stage.call(pair, "SingleDataIsDefault", type, key, pos);
    stage.same(pair.real->SingleDataIsDefault(type, key, pos), pair.told->singleDataIsDefault(type, key, pos));
}

void dataIsDefault(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    stage.call(pair, "dataIsDefault", type);
    stage.same(pair.real->dataIsDefault(type), pair.told->dataIsDefault(type));
}

void frameEffectIsDefault(Stage& stage)
{
    const ModelPair& pair = stage.model();
    stage.call(pair, "FrameEffectIsDefault");
    stage.same(pair.real->FrameEffectIsDefault(), pair.told->frameEffectIsDefault());
}

void hasRealEffect(Stage& stage)
{
    const ModelPair& pair = stage.model();
    stage.call(pair, "hasRealEffect");
    stage.same(pair.real->hasRealEffect(), pair.told->hasRealEffect());
}

void getCurrentFrameEffects(Stage& stage)
{
    const ModelPair& pair = stage.model();
    stage.call(pair, "getCurrentFrameEffects");
    stage.same(QVariant(pair.real->getCurrentFrameEffects()), QVariant(pair.told->getCurrentFrameEffects()));
}

void applyFrameEffects(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const Properties effects = {{QStringLiteral("Effect"), stage.value(QStringLiteral("Effect"))}};
    stage.call(pair, "applyFrameEffects", effects);
    stage.same(pair.real->applyFrameEffects(effects), pair.told->applyFrameEffects(effects));
}

// --- Custom defaults --------------------------------------------------------------------------------------

void saveAsCustomDefault(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const int index = stage.pos(pair, type);
    stage.call(pair, "saveAsCustomDefault", type, index);
    pair.real->saveAsCustomDefault(type, index);
    pair.told->saveAsCustomDefault(type, index);
}

void hasCustomDefault(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    stage.call(pair, "hasCustomDefault", type);
    stage.same(pair.real->hasCustomDefault(type), stage.world().customDefaults.contains(type));
}

void removeCustomDefault(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.customisedType();
    stage.call(pair, "removeCustomDefault", type);
    pair.real->removeCustomDefault(type);
    stage.world().removeCustomDefault(type);
}

void customDefaultVal(Stage& stage)
{
    const QString type = stage.customisedType();
    const QString key = stage.key(type);
    stage.call("ZoEffectModel", "customDefaultVal", key, type);
    stage.same(ZoEffectModel::customDefaultVal(key, type), stage.world().customDefault(type, key));
}

void getCustomDefaultVal(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    Node* node = pair.told->find(type, stage.pos(pair, type));
    if (!node || stage.rarely(10))
        node = stage.nodeOrNull(10);
    const bool direct = stage.below(2) == 1;
    if (node && node->parentGone())
        return stage.nothingToDo();
    stage.call(pair, "getCustomDefaultVal", node, type, direct);
    pair.real->getCustomDefaultVal(node ? node->twin : nullptr, type, direct);
    pair.told->getCustomDefaultVal(node, type, direct);
}

void adjustFrameEffects(Stage& stage)
{
    const ModelPair& pair = stage.model();
    stage.call(pair, "AdjustFramEffectsByCustomDefault");
    pair.real->AdjustFramEffectsByCustomDefault();
    pair.told->adjustFrameEffectsByCustomDefault();
}

void getItemPos(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const Node* node = stage.nodeOrNull(5);
    const QString name = stage.rarely(50) ? stage.nodeName() : stage.type(pair);
    stage.call(pair, "getItemPos", node, name);
    stage.same(pair.real->getItemPos(node ? node->twin : nullptr, name), reference::Model::getItemPos(node, name));
}

// --- Lists of items ---------------------------------------------------------------------------------------

void insertDataItem(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const Properties props = stage.props(type);
    const int pos = stage.pos(pair, type);
    if (!Stage::hasRoomFor(pair.told->root.get()))
        return stage.nothingToDo();
    stage.call(pair, "insertDataItem", type, props, pos);
    stage.same(pair.real->insertDataItem(type, props, pos), pair.told->insertDataItem(type, props, pos));
}

void addDataItem(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const Properties props = stage.props(type);
    if (!Stage::hasRoomFor(pair.told->root.get()))
        return stage.nothingToDo();
    stage.call(pair, "addDataItem", type, props);
    stage.same(pair.real->addDataItem(type, props), pair.told->insertDataItem(type, props, -1));
}

/// Enough tracks at once for the stepping over style keys to matter.
void addManyTracks(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.below(2) == 0 ? QStringLiteral("Subtitle") : QStringLiteral("Audio");
    const Properties props = stage.props(type);
    if (!Stage::hasRoomFor(pair.told->root.get(), manyTracks))
        return stage.nothingToDo();
    stage.call(pair, "addDataItem many times", type, props);
    for (int i = 0; i < manyTracks; ++i)
        stage.same(pair.real->addDataItem(type, props), pair.told->insertDataItem(type, props, -1));
}

void addDataItemEx(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const Properties props = stage.props(type);
    const bool asChild = stage.below(2) == 1;
    const Node* node = pair.told->find(type, -1);
    if (!Stage::hasRoomFor(pair.told->root.get(), 2) || (node && node->parentGone()))
        return stage.nothingToDo();
    stage.call(pair, "addDataItemEx", type, props, asChild);
    stage.same(pair.real->addDataItemEx(type, props, asChild), pair.told->addDataItemEx(type, props, asChild));
}

void delDataItem(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const int pos = stage.pos(pair, type);
    const Node* item = pair.told->find(type, pos);
    if (item && item->parentGone())
        return stage.nothingToDo();
    stage.call(pair, "delDataItem", type, pos);
    // An item that was moved elsewhere names its first parent: what comes out of that list is another node.
    const NodePtr parent = item ? item->parent.lock() : nullptr;
    ZoEffectItemData* other = parent && parent->twin ? parent->twin->child(pos) : nullptr;
    NodePtr astray;
    const bool expected = pair.told->delDataItem(type, pos, astray);
    stage.same(pair.real->delDataItem(type, pos), expected);
    if (astray)
        stage.adopt(other, astray);
    stage.touchAll();
}

void changeDataItemPos(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const int to = stage.pos(pair, type);
    const int from = stage.pos(pair, type);
    stage.call(pair, "changeDataItemPos", type, to, from);
    stage.same(pair.real->changeDataItemPos(type, to, from), pair.told->changeDataItemPos(type, to, from));
}

void replaceDataByProps(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const int pos = stage.pos(pair, type);
    const Properties props = stage.props(type);
    const Node* item = pos == -1 ? nullptr : pair.told->find(type, pos);
    if (item && item->parentGone())
        return stage.nothingToDo();
    stage.call(pair, "replaceData", type, pos, props);
    stage.same(pair.real->replaceData(type, pos, props), pair.told->replaceData(type, pos, props));
}

void replaceDataByNode(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const int pos = stage.pos(pair, type);
    const ModelPair& other = stage.model();
    const Node* source = stage.rarely(30) ? stage.nodeOrNull(10) : other.told->find(type, pos);
    if (source && (source->parentGone() || !Stage::hasRoomFor(pair.told->root.get(), reference::size(*source))))
        return stage.nothingToDo();
    stage.call(pair, "replaceData", type, pos, source);
    pair.real->replaceData(type, pos, source ? source->twin : nullptr);
    pair.told->replaceData(type, pos, source);
}

void replaceItemDataProperty(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.rarely(10) ? stage.type(pair) : QStringLiteral("Subtitle");
    Properties props = stage.props(type);
    for (int more = stage.below(3); more > 0; --more) {
        const QString key = QString::fromUtf8(keysforfromFile[stage.below(7)]);
        props.insert(key, stage.value(key));
    }
    if (!stage.rarely(20))
        props.insert(QStringLiteral("h"), stage.length());
    stage.call(pair, "replaceItemDataProperty", type, props);
    pair.real->replaceItemDataProperty(type, props);
    pair.told->replaceItemDataProperty(type, props);
}

void resetDataItem(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const int pos = stage.pos(pair, type);
    const Node* node = pair.told->find(type, -1);
    if (node && node->parentGone())
        return stage.nothingToDo();
    stage.call(pair, "resetDataItem", type, pos);
    stage.same(pair.real->resetDataItem(type, pos), pair.told->resetDataItem(type, pos));
}

void resetAllEffect(Stage& stage)
{
    const ModelPair& pair = stage.model();
    stage.call(pair, "resetAllEffect");
    pair.real->resetAllEffect();
    pair.told->resetAllEffect();
}

// --- Handing settings to others ---------------------------------------------------------------------------

void applyDataTo(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.type(pair);
    const int pos = stage.pos(pair, type);
    stage.call(pair, "applyDataTo", type, pos, 7);
    pair.real->applyDataTo(type, pos, 7);
    pair.told->applyDataTo(type, pos, 7);
}

void applySomePropertytoOther(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.rarely(10) ? stage.type(pair) : QStringLiteral("Subtitle");
    const int pos = stage.pos(pair, type);
    stage.call(pair, "applySomePropertytoOther", type, pos, 9);
    pair.real->applySomePropertytoOther(type, pos, 9);
    pair.told->applySomePropertytoOther(type, pos, 9);
}

// --- Nodes ------------------------------------------------------------------------------------------------

void constructNode(Stage& stage)
{
    const QString name = stage.nodeName();
    Node* parent = stage.rarely(60) ? stage.node() : nullptr;
    const int pos = stage.pos(parent);
    if (parent && !Stage::hasRoomFor(stage.treeOf(parent)))
        return stage.nothingToDo();
    stage.call("new", "ZoEffectItemData", name, parent, pos);
    auto* real = new ZoEffectItemData(name, parent ? parent->twin : nullptr, pos);
    const NodePtr told = Node::create(name, parent, pos);
    stage.matters();
    if (!parent)
        stage.adopt(real, told);
}

void copyNode(Stage& stage)
{
    const Node* source = stage.node();
    stage.call("new", "ZoEffectItemData", source);
    auto* real = new ZoEffectItemData(*source->twin);
    const NodePtr told = Node::create(QString());
    told->assign(*source);
    stage.adopt(real, told);
}

void assignNode(Stage& stage)
{
    Node* target = stage.node();
    const Node* source = stage.node();
    const bool byName = stage.below(2) == 1;
    if (!Stage::hasRoomFor(stage.treeOf(target), reference::size(*source)))
        return stage.nothingToDo();
    stage.call(target, byName ? "assign" : "operator=", source);
    const ZoEffectItemData& result = byName ? target->twin->assign(*source->twin) : (*target->twin = *source->twin);
    target->assign(*source);
    stage.sameNode(&result, target);
}

void destroyNode(Stage& stage)
{
    const FreeNode* node = stage.freeNode();
    if (!node)
        return stage.nothingToDo();
    stage.call(node, "~ZoEffectItemData");
    delete stage.release(node).real;
    stage.matters();
}

void readTree(Stage& stage)
{
    const Node* node = stage.group();
    const int row = stage.pos(node);
    stage.call(node, "child", row);
    stage.sameNode(node->twin->child(row), node->child(row));
    if (node->parentGone())
        return;
    stage.same(node->twin->childNumber(), node->childNumber());
}

void appendChild(Stage& stage)
{
    Node* parent = stage.node();
    const bool null = stage.rarely(10);
    const FreeNode* child = null ? nullptr : stage.freeNode();
    const bool append = stage.below(2) == 1;
    const int pos = stage.pos(parent);
    const Node* tree = stage.treeOf(parent);
    if ((!null && !child) || (child && tree == child->told.get())
        || !Stage::hasRoomFor(tree, child ? reference::size(*child->told) : 1))
        return stage.nothingToDo();
    ZoEffectItemData* real = child ? child->real : nullptr;
    if (append)
        stage.call(parent, "appendChild", child ? child->told.get() : nullptr);
    else
        stage.call(parent, "insertChild", child ? child->told.get() : nullptr, pos);
    const NodePtr told = child ? stage.release(child).told : nullptr;
    if (append)
        parent->twin->appendChild(real);
    else
        parent->twin->insertChild(real, pos);
    parent->insertChild(told, append ? -1 : pos);
    stage.touchAll();
}

void takeAt(Stage& stage)
{
    Node* parent = stage.group();
    const int row = stage.pos(parent);
    stage.call(parent, "takeAt", row);
    ZoEffectItemData* real = parent->twin->takeAt(row);
    const NodePtr told = parent->takeAt(row);
    stage.sameNode(real, told.get());
    if (told)
        stage.adopt(real, told);
}

void removeChildren(Stage& stage)
{
    Node* node = stage.group();
    const int pos = stage.pos(node);
    const int count = stage.below(5) - 1;
    stage.call(node, "removeChildren", pos, count);
    stage.same(node->twin->removeChildren(pos, count), node->removeChildren(pos, count));
}

void changeItemPos(Stage& stage)
{
    Node* node = stage.group();
    const int to = stage.pos(node);
    const int from = stage.pos(node);
    stage.call(node, "changeItemPos", to, from);
    stage.same(node->twin->changeItemPos(to, from), node->changeItemPos(to, from));
}

void clear(Stage& stage)
{
    Node* node = stage.group();
    stage.call(node, "clear");
    node->twin->clear();
    node->clear();
}

void readNode(Stage& stage)
{
    const Node* node = stage.node();
    const QString key = stage.key(node->name);
    static const int roles[] = {0, 2, 10, 1, -1};
    const int role = roles[stage.below(5)];
    stage.call(node, "data, hasData", key, role);
    stage.same(node->twin->data(key), node->data(key));
    stage.same(node->twin->data(role), node->data(role));
    stage.same(node->twin->hasData(key), node->properties.contains(key));
}

void setNodeData(Stage& stage)
{
    Node* node = stage.node();
    const QString key = stage.key(node->name);
    const QVariant value = stage.value(key);
    stage.call(node, "setData", key, value);
    node->twin->setData(key, value);
    node->setData(key, value);
}

void delData(Stage& stage)
{
    Node* node = stage.node();
    const QString key = stage.key(node->name);
    stage.call(node, "delData", key);
    node->twin->delData(key);
    node->delData(key);
}

void setInternalData(Stage& stage)
{
    static int owned = 0;
    Node* node = stage.node();
    void* pointer = stage.rarely(30) ? nullptr : &owned;
    stage.call(node, "setInternalData", static_cast<const void*>(pointer));
    node->twin->setInternalData(pointer);
    node->internalData = pointer;
    stage.same(static_cast<const void*>(node->twin->internalData()), static_cast<const void*>(pointer));
}

void setCheckState(Stage& stage)
{
    static const int states[] = {2, 0, 0, 2, 1, -3};
    Node* node = stage.node();
    const int state = states[stage.below(6)];
    stage.call(node, "setCheckState", state);
    node->twin->setCheckState(state);
    node->setCheckState(state);
}

// --- The store of custom defaults -------------------------------------------------------------------------

/// The process ends and starts again: what the preference store keeps is loaded for the types known.
void restart(Stage& stage)
{
    stage.call("process", "restarts");
    delete ZoEffectItemDefaultValMgr::s_Instance;
    ZoEffectItemDefaultValMgr::s_Instance = nullptr;
    const ZoEffectItemDefaultValMgr* instance = manager();
    if (!instance || instance != ZoEffectItemDefaultValMgr::s_Instance)
        Stage::differ(QStringLiteral("getInstance"), QStringLiteral("another"), QStringLiteral("s_Instance"));
    stage.matters();
    stage.world().customDefaults.clear();
    stage.world().loadCustomDefaults();
}

void init(Stage& stage)
{
    stage.call("ZoEffectItemDefaultValMgr", "Init");
    manager()->Init();
    stage.world().loadCustomDefaults();
    if (!stage.world().customDefaults.isEmpty())
        stage.matters();
}

void setSupportTypes(Stage& stage)
{
    const QStringList types = stage.typeNames();
    stage.call("ZoEffectItemDefaultValMgr", "setSupportTypes", types);
    ZoEffectItemDefaultValMgr::setSupportTypes(types);
    stage.world().supportTypes = types;
    stage.same(ZoEffectItemDefaultValMgr::supportTypes(), types);
}

void readCustomDefaults(Stage& stage)
{
    const QString type = stage.customisedType();
    const QString key = stage.key(type);
    stage.call("ZoEffectItemDefaultValMgr", "getCustomDefaultVal", type, key);
    stage.same(manager()->hasCustomDefaultVal(type), stage.world().customDefaults.contains(type));
    stage.same(manager()->getCustomDefaultVal(type, key), stage.world().customDefault(type, key));
    const Properties expected = stage.world().customDefaults.value(type);
    const Properties whole = manager()->getCustomDefaultVal(type);
    if (!reference::identical(QVariant(whole), QVariant(expected)))
        Stage::differ(QStringLiteral("result"), Stage::shown(whole), Stage::shown(expected));
}

void saveAsCustomDefaultVal(Stage& stage)
{
    const QString type = stage.type(stage.model());
    const Properties props = stage.props(type);
    stage.call("ZoEffectItemDefaultValMgr", "saveAsCustomDefaultVal", type, props);
    manager()->saveAsCustomDefaultVal(type, props);
    stage.world().saveCustomDefault(type, props);
}

void saveFrameEffects(Stage& stage)
{
    const QString type = QStringLiteral("Effect");
    const Properties props = {{type, stage.value(type)}};
    stage.call("ZoEffectItemDefaultValMgr", "saveAsCustomDefaultVal", type, props);
    manager()->saveAsCustomDefaultVal(type, props);
    stage.world().saveCustomDefault(type, props);
}

void removeCustomDefaultVal(Stage& stage)
{
    const QString type = stage.customisedType();
    stage.call("ZoEffectItemDefaultValMgr", "removeCustomDefaultVal", type);
    manager()->removeCustomDefaultVal(type);
    stage.world().removeCustomDefault(type);
}

/// The host's preference store is changed behind the library, as an earlier run may have left it.
void editPreferences(Stage& stage)
{
    const QString type = stage.type(stage.model());
    const QVariant value = stage.rarely(30) ? stage.value(QString()) : QVariant(stage.props(type));
    stage.call("preferences", "entry", type, value);
    TestApplication::instance()->pref.entries.insert(type, value);
    stage.world().preferences.insert(type, value);
    stage.matters();
}

} // namespace

const std::vector<Operation>& operations()
{
    static const std::vector<Operation> table = {
        // The most telling first: what shrinks, shrinks toward it.
        {"ZoEffectModel::setData", 50, setData},
        {"ZoEffectModel::data", 15, data},
        {"ZoEffectModel::addDataItem", 70, addDataItem},
        {"ZoEffectModel::insertDataItem", 50, insertDataItem},
        {"ZoEffectModel::addDataItem, many tracks", 8, addManyTracks},
        {"ZoEffectModel::addDataItemEx", 20, addDataItemEx},
        {"ZoEffectModel::delDataItem", 15, delDataItem},
        {"ZoEffectModel::changeDataItemPos", 15, changeDataItemPos},
        {"ZoEffectModel::replaceData, properties", 20, replaceDataByProps},
        {"ZoEffectModel::replaceData, node", 15, replaceDataByNode},
        {"ZoEffectModel::replaceItemDataProperty", 30, replaceItemDataProperty},
        {"ZoEffectModel::resetDataItem", 8, resetDataItem},
        {"ZoEffectModel::resetAllEffect", 4, resetAllEffect},
        {"ZoEffectModel::ZoEffectModel()", 4, constructFull},
        {"ZoEffectModel::ZoEffectModel(types)", 4, constructTypes},
        {"ZoEffectModel::ZoEffectModel(type, properties)", 10, constructSingle},
        {"ZoEffectModel::ZoEffectModel(other)", 5, constructCopy},
        {"ZoEffectModel::ZoEffectModel(other, parent)", 3, constructCopyWithParent},
        {"ZoEffectModel::operator=", 5, assignModel},
        {"ZoEffectModel::~ZoEffectModel", 10, destroyModel},
        {"ZoEffectModel::InitEffectModel", 4, initEffectModel},
        {"ZoEffectModel::findOriItem", 4, findOriItem},
        {"ZoEffectModel::createItems", 4, createItems},
        {"ZoEffectModel::InitZoeffectData", 6, initZoeffectData},
        {"ZoEffectModel::InitSubItemData", 5, initSubItemData},
        {"ZoEffectModel::editByUser, editByDefault", 4, editFlags},
        {"ZoEffectModel::resetEditByDefaultFlag", 4, resetEditByDefaultFlag},
        {"ZoEffectModel::blockSignals", 4, blockSignals},
        {"ZoEffectModel::findDataItem(start, type)", 6, findByType},
        {"ZoEffectModel::findDataItem(start, type, pos)", 6, findByPosition},
        {"ZoEffectModel::getDataItem, findDataItem(type, pos)", 6, getDataItem},
        {"ZoEffectModel::childCount", 5, childCount},
        {"ZoEffectModel::setData, two values in turn", 40, setDataTwice},
        {"ZoEffectModel::setData, a crop", 15, setCrop},
        {"ZoEffectModel::defaultValue", 8, defaultValue},
        {"ZoEffectModel::setCurrentItem", 3, setCurrentItem},
        {"ZoEffectModel::setCurrentSubItem", 3, setCurrentSubItem},
        {"ZoEffectModel::beginChange", 3, beginChange},
        {"ZoEffectModel::endChanged", 3, endChanged},
        {"ZoEffectModel::selectOnlyOneItem", 5, selectOnlyOneItem},
        {"ZoEffectModel::selectItemByKey", 15, selectItemByKey},
        {"ZoEffectModel::selectItemByKeyEx", 20, selectItemByKeyEx},
        {"ZoEffectModel::getItemIndexByKeyValue, haveSameItem", 12, getItemIndexByKeyValue},
        {"ZoEffectModel::getSelectItem", 12, getSelectItem},
        {"ZoEffectModel::getEmbededSutitleID and the like", 15, tracks},
        {"ZoEffectModel::isForAudioEffect, getValidAudioEffectItem", 12, audioEffects},
        {"ZoEffectModel::refreshCurPlayData", 8, refreshCurPlayData},
        {"ZoEffectModel::setVideoSize", 25, setVideoSize},
        {"ZoEffectModel::baseSize", 3, baseSize},
        {"ZoEffectModel::adjustEffectInfo", 20, adjustEffectInfo},
        {"ZoEffectModel::adjustEffectItem", 15, adjustEffectItem},
        {"ZoEffectModel::isCroped, cropData", 10, cropInForce},
        {"ZoEffectModel::getWatermark", 16, getWatermark},
        {"ZoEffectModel::getWatermark, a text at the edge", 10, paintTextAtEdge},
        {"ZoEffectModel::getImage", 8, getImage},
        {"ZoEffectModel::adjustWatermarkPos", 25, adjustWatermarkPos},
        {"ZoEffectModel::adjustWatermarkPos, among many", 30, placeAmongMany},
        {"ZoEffectModel::SingleDataIsDefault", 30, singleDataIsDefault},
        {"ZoEffectModel::dataIsDefault", 15, dataIsDefault},
        {"ZoEffectModel::FrameEffectIsDefault", 8, frameEffectIsDefault},
        {"ZoEffectModel::hasRealEffect", 20, hasRealEffect},
        {"ZoEffectModel::getCurrentFrameEffects", 5, getCurrentFrameEffects},
        {"ZoEffectModel::applyFrameEffects", 8, applyFrameEffects},
        {"ZoEffectModel::saveAsCustomDefault", 20, saveAsCustomDefault},
        {"ZoEffectModel::hasCustomDefault", 5, hasCustomDefault},
        {"ZoEffectModel::removeCustomDefault", 8, removeCustomDefault},
        {"ZoEffectModel::customDefaultVal", 8, customDefaultVal},
        {"ZoEffectModel::getCustomDefaultVal", 25, getCustomDefaultVal},
        {"ZoEffectModel::AdjustFramEffectsByCustomDefault", 15, adjustFrameEffects},
        {"ZoEffectModel::getItemPos", 5, getItemPos},
        {"ZoEffectModel::applyDataTo", 8, applyDataTo},
        {"ZoEffectModel::applySomePropertytoOther", 12, applySomePropertytoOther},
        {"ZoEffectItemData::ZoEffectItemData(name, parent, pos)", 8, constructNode},
        {"ZoEffectItemData::ZoEffectItemData(other)", 5, copyNode},
        {"ZoEffectItemData::operator=, assign", 6, assignNode},
        {"ZoEffectItemData::~ZoEffectItemData", 8, destroyNode},
        {"ZoEffectItemData::child, childNumber", 6, readTree},
        {"ZoEffectItemData::appendChild, insertChild", 20, appendChild},
        {"ZoEffectItemData::takeAt", 12, takeAt},
        {"ZoEffectItemData::removeChildren", 6, removeChildren},
        {"ZoEffectItemData::changeItemPos", 12, changeItemPos},
        {"ZoEffectItemData::clear", 4, clear},
        {"ZoEffectItemData::data, hasData", 8, readNode},
        {"ZoEffectItemData::setData", 15, setNodeData},
        {"ZoEffectItemData::delData", 6, delData},
        {"ZoEffectItemData::setInternalData", 4, setInternalData},
        {"ZoEffectItemData::setCheckState", 10, setCheckState},
        {"ZoEffectItemDefaultValMgr::getInstance in a new process", 5, restart},
        {"ZoEffectItemDefaultValMgr::Init", 4, init},
        {"ZoEffectItemDefaultValMgr::setSupportTypes", 4, setSupportTypes},
        {"ZoEffectItemDefaultValMgr::hasCustomDefaultVal, getCustomDefaultVal", 8, readCustomDefaults},
        {"ZoEffectItemDefaultValMgr::saveAsCustomDefaultVal", 12, saveAsCustomDefaultVal},
        {"ZoEffectItemDefaultValMgr::saveAsCustomDefaultVal, frame effects", 8, saveFrameEffects},
        {"ZoEffectItemDefaultValMgr::removeCustomDefaultVal", 8, removeCustomDefaultVal},
        {"a preference store changed by others", 6, editPreferences},
    };
    return table;
}
