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

// --- Calls on both sides ----------------------------------------------------------------------------------

/// The name of an operation, and how it is called on whatever has one of that name.
#define OPERATION(name) #name, [](auto& on, const auto&... given) { return on.name(given...); }

template <typename Value>
const Value& forLibrary(const Value& value)
{
    return value;
}

ZoEffectItemData* forLibrary(Node* node)
{
    return node ? node->twin : nullptr;
}

template <typename Real, typename Told, typename Receiver, typename Call, typename... Values>
void play(Stage& stage, Real& real, Told& told, const Receiver& receiver, const char* name, Call call,
          const Values&... values)
{
    stage.call(receiver, name, values...);
    if constexpr (std::is_void_v<decltype(call(told, values...))>) {
        call(real, forLibrary(values)...);
        call(told, values...);
    } else {
        const auto answer = call(real, forLibrary(values)...);
        const auto expected = call(told, values...);
        stage.same(answer, expected);
    }
}

template <typename Call, typename... Values>
void both(Stage& stage, const ModelPair& pair, const char* name, Call call, const Values&... values)
{
    play(stage, *pair.real, *pair.told, pair, name, call, values...);
}

template <typename Call, typename... Values>
void both(Stage& stage, Node* node, const char* name, Call call, const Values&... values)
{
    play(stage, *node->twin, *node, node, name, call, values...);
}

/// On the store of custom defaults.
template <typename Call, typename... Values>
void both(Stage& stage, const char* name, Call call, const Values&... values)
{
    play(stage, *manager(), stage.world(), "ZoEffectItemDefaultValMgr", name, call, values...);
}

bool parentGone(const Node* node)
{
    return node && node->parentGone();
}

/// What an operation is called with, on a model or on a node. Letters tell what is chosen, in their order.
struct Drawn {
    Drawn(Stage& stage, const char* letters, Node* on = nullptr);

    const reference::Model& told() const { return *pair->told; }
    Node* found() const { return told().find(type, pos); }
    bool hasRoomFor(int nodes) const { return Stage::hasRoomFor(told().root.get(), nodes); }
    int anyPos(Stage& stage) const { return target ? stage.pos(target) : stage.pos(*pair, type); }

    Node* target;
    ModelPair* pair;
    QString type;
    int pos = -1;
    int otherPos = -1;
    QString key;
    QVariant value;
    Properties props;
    int w = 0;
    int h = 0;
    int number = 7;
    bool flag = false;
    bool playable = true; ///< Else the library would read freed memory, or the tree would grow too large.
    Node* node = nullptr;
    QStringList types;
};

void draw(Drawn& to, Stage& stage, char letter)
{
    using Choice = void (*)(Drawn&, Stage&);
    static const QHash<char, Choice> choices = {
        {'t', [](Drawn& d, Stage& s) { d.type = s.type(*d.pair); }},
        {'c', [](Drawn& d, Stage& s) { d.type = s.customisedType(); }},
        {'s', [](Drawn& d, Stage& s) { d.type = s.rarely(10) ? s.type(*d.pair) : "Subtitle"; }},
        {'p', [](Drawn& d, Stage& s) { d.pos = d.anyPos(s); }},
        {'q', [](Drawn& d, Stage& s) { d.otherPos = d.anyPos(s); }},
        {'k', [](Drawn& d, Stage& s) { d.key = s.key(d.target ? d.target->name : d.type); }},
        {'v', [](Drawn& d, Stage& s) { d.value = s.value(d.key); }},
        {'r', [](Drawn& d, Stage& s) { d.props = s.props(d.type); }},
        {'w', [](Drawn& d, Stage& s) { d.w = s.length(); }},
        {'h', [](Drawn& d, Stage& s) { d.h = s.length(); }},
        {'f', [](Drawn& d, Stage& s) { d.flag = s.below(2) == 1; }},
        {'#', [](Drawn& d, Stage& s) { d.number = s.below(5) - 1; }},
        {'n', [](Drawn& d, Stage& s) { d.node = s.nodeOrNull(5); }},
        {'T', [](Drawn& d, Stage& s) { d.types = s.typeNames(); }},
        // Conditions: room for 1, 2 or many nodes; the type node or the node drawn knows its parent.
        {'1', [](Drawn& d, Stage&) { d.playable = d.hasRoomFor(1); }},
        {'2', [](Drawn& d, Stage&) { d.playable = d.hasRoomFor(2); }},
        {'m', [](Drawn& d, Stage&) { d.playable = d.hasRoomFor(25); }},
        {'^', [](Drawn& d, Stage&) { d.playable = d.playable && !parentGone(d.told().find(d.type, -1)); }},
        {'!', [](Drawn& d, Stage&) { d.playable = !parentGone(d.node); }},
    };
    choices[letter](to, stage);
}

Drawn::Drawn(Stage& stage, const char* letters, Node* on) : target(on), pair(on ? nullptr : &stage.model())
{
    for (; *letters != '\0'; ++letters)
        draw(*this, stage, *letters);
}

/// An operation of the model: how often, what is drawn, its name, and which of that it is called with.
template <typename Call, typename... Values>
Operation onModel(int weight, const char* letters, const char* name, Call call, Values Drawn::*... values)
{
    return {"ZoEffectModel::" + QByteArray(name), weight, [=](Stage& stage) {
                const Drawn drawn(stage, letters);
                if (!drawn.playable)
                    return stage.nothingToDo();
                both(stage, *drawn.pair, name, call, drawn.*values...);
            }};
}

/// The same of any node, or of one that mostly holds items.
template <typename Call, typename... Values>
Operation onNode(int weight, Node* (Stage::*choose)(), const char* letters, const char* name, Call call,
                 Values Drawn::*... values)
{
    return {"ZoEffectItemData::" + QByteArray(name), weight, [=](Stage& stage) {
                const Drawn drawn(stage, letters, (stage.*choose)());
                both(stage, drawn.target, name, call, drawn.*values...);
            }};
}

// --- Models -----------------------------------------------------------------------------------------------

QObject* parentFor(Stage& stage)
{
    return stage.rarely(20) ? stage.host() : nullptr;
}

template <typename... Values>
void construct(Stage& stage, QObject* parent, const Values&... values)
{
    stage.call("new", "ZoEffectModel", values..., static_cast<const void*>(parent));
    stage.adopt(std::make_unique<ZoEffectModel>(values..., parent),
                std::make_unique<reference::Model>(stage.world(), values...), parent);
    stage.matters();
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
    construct(stage, parent, stage.typeNames());
}

void constructSingle(Stage& stage)
{
    QObject* parent = parentFor(stage);
    const QString type = stage.audioEffectOr(stage.type(stage.model()));
    construct(stage, parent, type, stage.props(type));
}

void constructCopy(Stage& stage)
{
    const ModelPair& source = stage.model();
    stage.call("new", "ZoEffectModel", source);
    auto told = std::make_unique<reference::Model>(stage.world());
    *told = *source.told;
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
    *target.told = *source.told;
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

void initSubItemData(Stage& stage)
{
    const ModelPair& pair = stage.model();
    Node* node = stage.nodeOrNull(10);
    static const char* const types[] = {"Stack", "Mode", "Effect", "Bare"};
    const QString type = types[stage.below(4)];
    const reference::EffectType* record = reference::findType(Stage::table(Stage::oddTable)->types, type);
    if (node && !Stage::hasRoomFor(stage.treeOf(node), 4))
        return stage.nothingToDo();
    stage.call(pair, "InitSubItemData", node, type);
    pair.real->InitSubItemData(forLibrary(node), record->record->subItems);
    pair.told->buildSubItems(node, record->subItems ? &*record->subItems : nullptr);
}

void editFlags(Stage& stage)
{
    const ModelPair& pair = stage.model();
    both(stage, pair, OPERATION(editByUser));
    both(stage, pair, OPERATION(editByDefault));
}

void blockSignals(Stage& stage)
{
    const ModelPair& pair = stage.model();
    both(stage, pair, OPERATION(blockSignals), stage.below(3) == 2);
    stage.matters();
}

// --- Lookup and values ------------------------------------------------------------------------------------

void getDataItem(Stage& stage)
{
    const Drawn drawn(stage, "tp");
    both(stage, *drawn.pair, OPERATION(getDataItem), drawn.type, drawn.pos);
    both(stage, *drawn.pair, OPERATION(findDataItem), drawn.type, drawn.pos);
}

/// All of a crop, since one value alone rarely makes one.
void setCrop(Stage& stage)
{
    const ModelPair& pair = stage.model();
    for (const char* word : {"crop_width", "crop_height", "crop_left", "crop_top", "crop_keepaspectratio"}) {
        const QString key = word;
        both(stage, pair, OPERATION(setData), key, stage.value(key), QString("Crop"), -1);
    }
}

/// Two values of one key in turn: whether the second counts as equal.
void setDataTwice(Stage& stage)
{
    const Drawn drawn(stage, "t");
    const QString key = "a";
    const QVariant first = stage.value(key);
    const QVariant second = stage.value(key);
    both(stage, *drawn.pair, OPERATION(setData), key, first, drawn.type, -1);
    both(stage, *drawn.pair, OPERATION(setData), key, second, drawn.type, -1);
}

// --- Selection and tracks ---------------------------------------------------------------------------------

void selectItemByKeyEx(Stage& stage)
{
    const Drawn drawn(stage, "tk");
    QStringList values;
    for (int more = stage.below(4); more > 0; --more) {
        const QVariant value = stage.value(drawn.key);
        values << (value.userType() == QMetaType::QFont ? QString() : reference::toText(value));
    }
    // A font is told as a text by each Qt in its own way, and what no text is told of is empty.
    values.removeAll(QString());
    both(stage, *drawn.pair, OPERATION(selectItemByKeyEx), drawn.type, drawn.key, values);
}

void itemByKeyValue(Stage& stage)
{
    const Drawn drawn(stage, "tkv");
    both(stage, *drawn.pair, OPERATION(getItemIndexByKeyValue), drawn.type, drawn.key, drawn.value);
    both(stage, *drawn.pair, OPERATION(haveSameItem), drawn.type, drawn.key, drawn.value);
}

void getSelectItem(Stage& stage)
{
    const Drawn drawn(stage, "t");
    stage.call(*drawn.pair, "getSelectItem", drawn.type);
    const std::vector<Node*> items = drawn.told().getSelectItem(drawn.type);
    ZoEffectItemData* real = drawn.pair->real->getSelectItem(drawn.type);
    if (drawn.type != "Audio" || items.empty())
        return stage.same(real, items.empty() ? nullptr : items.front());
    // A container of the caller's, which holds the model's tracks.
    if (!real)
        Stage::differ("container", "nullptr", "a node");
    stage.same(real->name(), drawn.type);
    stage.same(real->checkState(), 2);
    stage.same(static_cast<const void*>(real->parent()), static_cast<const void*>(nullptr));
    stage.same(static_cast<int>(real->properties().size()), 0);
    stage.same(real->childCount(), static_cast<int>(items.size()));
    for (const Node* item : items)
        stage.same(real->takeAt(0), item);
    delete real;
}

void tracks(Stage& stage)
{
    const ModelPair& pair = stage.model();
    both(stage, pair, OPERATION(getEmbededSutitleID));
    both(stage, pair, OPERATION(getEmbededAudioID));
    both(stage, pair, OPERATION(useCustomSubtitle));
    both(stage, pair, OPERATION(useEmbededSubtitle));
    both(stage, pair, OPERATION(useCustomAudio));
    both(stage, pair, OPERATION(useEmbededAudio));
}

void audioEffects(Stage& stage)
{
    const ModelPair& pair = stage.model();
    both(stage, pair, OPERATION(isForAudioEffect));
    both(stage, pair, OPERATION(getValidAudioEffectItem));
}

void refreshCurPlayData(Stage& stage)
{
    const ModelPair& pair = stage.model();
    both(stage, pair, OPERATION(refreshCurPlayData), stage.pos(pair, "Audio"));
}

// --- Geometry, picture, place -----------------------------------------------------------------------------

void adjustEffectItem(Stage& stage)
{
    const ModelPair& pair = stage.model();
    Node* node = stage.rarely(30) ? stage.nodeOrNull(10) : pair.told->find(stage.type(pair), -1);
    const int newW = stage.length();
    const int newH = stage.length();
    const int oldW = stage.length();
    const int oldH = stage.length();
    both(stage, pair, OPERATION(adjustEffectItem), node, newW, newH, oldW, oldH);
}

void cropInForce(Stage& stage)
{
    const Drawn drawn(stage, "wh");
    both(stage, *drawn.pair, OPERATION(isCroped), drawn.w, drawn.h);
    const CropData real = drawn.pair->real->cropData();
    const reference::Crop told = drawn.told().cropData();
    stage.same(QRect(real.left, real.top, real.width, real.height), told.area);
    stage.same(real.reserved, 0);
    stage.same(real.valid, told.valid);
}

void paint(Stage& stage, const ModelPair& pair, QSize size, bool honourIgnore)
{
    stage.call(pair, "getWatermark", size, honourIgnore);
    const QPixmap real = pair.real->getWatermark(size.width(), size.height(), honourIgnore);
    const QSize told = pair.told->getWatermark(size.width(), size.height(), honourIgnore);
    stage.same(real.isNull(), told.isEmpty());
    if (!told.isEmpty())
        stage.same(real.size(), told);
}

void getWatermark(Stage& stage)
{
    const ModelPair& pair = stage.model();
    QSize size = pair.told->baseSize();
    if (!stage.rarely(60)) {
        size.setWidth(stage.length());
        size.setHeight(stage.length());
    }
    paint(stage, pair, size, stage.below(2) == 1);
}

/// A text just within, or just without, the left and the upper edge.
void paintTextAtEdge(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = "Watermark";
    const int pos = stage.pos(pair, type);
    const Node* item = pos == -1 ? nullptr : pair.told->find(type, pos);
    if (!item)
        return stage.nothingToDo();
    const QSize measured = reference::measuredText(*item);
    const int x = 2 - measured.width() - stage.below(3);
    const int y = 2 - measured.height() - stage.below(3);
    both(stage, pair, OPERATION(setData), QString("wm_hposition"), QVariant(x), type, pos);
    both(stage, pair, OPERATION(setData), QString("wm_imagewidth"), QVariant(0), type, pos);
    both(stage, pair, OPERATION(setData), QString("wm_vposition"), QVariant(y), type, pos);
    paint(stage, pair, pair.told->baseSize(), false);
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
        Stage::differ("image", "nullptr", "a pixmap");
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
    const Node* group = pair.told->find("Watermark", -1);
    Node* node = group && group->count() > 0 ? group->child(stage.below(group->count())) : nullptr;
    if (!node || stage.rarely(10))
        node = stage.nodeOrNull(10);
    if (parentGone(node))
        return stage.nothingToDo();
    both(stage, pair, OPERATION(adjustWatermarkPos), node);
}

/// Many watermarks on few places, so that the searches come to their ends; then another one.
void placeAmongMany(Stage& stage)
{
    static const int places[] = {0, 40, 60, 100};
    static const int sizes[] = {0, 30, 60, 200};
    const ModelPair& pair = stage.model();
    const Node* group = pair.told->find("Watermark", -1);
    if (!group || group->count() == 0)
        return stage.nothingToDo();
    const int drawn = stage.below(100000);
    int choice = drawn;
    for (const NodePtr& item : group->children) {
        if (!item || item->parentGone())
            continue;
        const std::pair<const char*, int> values[] = {{"wm_hposition", places[choice % 4]},
                                                      {"wm_vposition", places[choice / 4 % 4]},
                                                      {"wm_imagewidth", sizes[choice / 16 % 4]},
                                                      {"wm_imageheight", sizes[choice / 64 % 4]}};
        for (const auto& [key, value] : values)
            both(stage, item.get(), OPERATION(setData), QString(key), QVariant(value));
        choice = choice / 7 + drawn / 3;
    }
    Node* item = group->child(stage.below(group->count()));
    if (item && !item->parentGone())
        both(stage, pair, OPERATION(adjustWatermarkPos), item);
}

// --- Defaults and custom defaults -------------------------------------------------------------------------

void singleDataIsDefault(Stage& stage)
{
    Drawn drawn(stage, "t");
    const bool place = drawn.type == "Watermark" && stage.below(2) == 1;
    drawn.key = place ? "wm_hposition" : stage.key(drawn.type);
    draw(drawn, stage, 'p');
    both(stage, *drawn.pair, OPERATION(SingleDataIsDefault), drawn.type, drawn.key, drawn.pos);
}

void applyFrameEffects(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = "Effect";
    both(stage, pair, OPERATION(applyFrameEffects), Properties{{type, stage.value(type)}});
}

void customDefaultVal(Stage& stage)
{
    const QString type = stage.customisedType();
    const QString key = stage.key(type);
    stage.call("ZoEffectModel", "customDefaultVal", key, type);
    stage.same(ZoEffectModel::customDefaultVal(key, type), stage.world().getCustomDefaultVal(type, key));
}

void getCustomDefaultVal(Stage& stage)
{
    const Drawn drawn(stage, "tp");
    Node* node = drawn.found();
    if (!node || stage.rarely(10))
        node = stage.nodeOrNull(10);
    const bool direct = stage.below(2) == 1;
    if (parentGone(node))
        return stage.nothingToDo();
    both(stage, *drawn.pair, OPERATION(getCustomDefaultVal), node, drawn.type, direct);
}

void getItemPos(Stage& stage)
{
    const Drawn drawn(stage, "n");
    const QString name = stage.rarely(50) ? stage.nodeName() : stage.type(*drawn.pair);
    both(stage, *drawn.pair, OPERATION(getItemPos), drawn.node, name);
}

// --- Lists of items ---------------------------------------------------------------------------------------

/// Enough tracks at once for the stepping over style keys to matter.
void addManyTracks(Stage& stage)
{
    Drawn drawn(stage, "f");
    const QString type = drawn.flag ? "Audio" : "Subtitle";
    const Properties props = stage.props(type);
    if (!drawn.hasRoomFor(manyTracks))
        return stage.nothingToDo();
    for (int i = 0; i < manyTracks; ++i)
        both(stage, *drawn.pair, OPERATION(addDataItem), type, props);
}

void delDataItem(Stage& stage)
{
    const Drawn drawn(stage, "tp");
    const Node* item = drawn.found();
    if (parentGone(item))
        return stage.nothingToDo();
    // An item that was moved elsewhere names its first parent: what comes out of that list is another node.
    const NodePtr parent = item ? item->parent.lock() : nullptr;
    ZoEffectItemData* other = parent && parent->twin ? parent->twin->child(drawn.pos) : nullptr;
    both(stage, *drawn.pair, OPERATION(delDataItem), drawn.type, drawn.pos);
    if (const NodePtr astray = std::move(drawn.pair->told->astray))
        stage.adopt(other, astray);
    stage.touchAll();
}

void replaceDataByProps(Stage& stage)
{
    const Drawn drawn(stage, "tpr");
    if (drawn.pos != -1 && parentGone(drawn.found()))
        return stage.nothingToDo();
    both(stage, *drawn.pair, OPERATION(replaceData), drawn.type, drawn.pos, drawn.props);
}

void replaceDataByNode(Stage& stage)
{
    const Drawn drawn(stage, "tp");
    const ModelPair& other = stage.model();
    Node* source = stage.rarely(30) ? stage.nodeOrNull(10) : other.told->find(drawn.type, drawn.pos);
    if (parentGone(source) || (source && !drawn.hasRoomFor(reference::size(*source))))
        return stage.nothingToDo();
    both(stage, *drawn.pair, OPERATION(replaceData), drawn.type, drawn.pos, source);
}

void replaceItemDataProperty(Stage& stage)
{
    const ModelPair& pair = stage.model();
    const QString type = stage.rarely(10) ? stage.type(pair) : "Subtitle";
    Properties props = stage.props(type);
    for (int more = stage.below(3); more > 0; --more) {
        const QString key = keysforfromFile[stage.below(7)];
        props.insert(key, stage.value(key));
    }
    if (!stage.rarely(20))
        props.insert("h", stage.length());
    both(stage, pair, OPERATION(replaceItemDataProperty), type, props);
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
    auto* real = new ZoEffectItemData(name, forLibrary(parent), pos);
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
    stage.same(&result, target);
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
    Node* node = stage.group();
    both(stage, node, OPERATION(child), stage.pos(node));
    if (!node->parentGone())
        both(stage, node, OPERATION(childNumber));
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
    stage.call(parent, append ? "appendChild" : "insertChild", child ? child->told.get() : nullptr, pos);
    const FreeNode released = child ? stage.release(child) : FreeNode();
    if (append)
        parent->twin->appendChild(released.real);
    else
        parent->twin->insertChild(released.real, pos);
    parent->insertChild(released.told, append ? -1 : pos);
    stage.touchAll();
}

void takeAt(Stage& stage)
{
    Node* parent = stage.group();
    const int row = stage.pos(parent);
    stage.call(parent, "takeAt", row);
    ZoEffectItemData* real = parent->twin->takeAt(row);
    const NodePtr told = parent->takeAt(row);
    stage.same(real, told.get());
    if (told)
        stage.adopt(real, told);
}

void readNode(Stage& stage)
{
    static const int roles[] = {0, 2, 10, 1, -1};
    Node* node = stage.node();
    const QString key = stage.key(node->name);
    both(stage, node, OPERATION(data), key);
    both(stage, node, OPERATION(data), roles[stage.below(5)]);
    both(stage, node, OPERATION(hasData), key);
}

void setInternalData(Stage& stage)
{
    static int owned = 0;
    Node* node = stage.node();
    void* pointer = stage.rarely(30) ? nullptr : &owned;
    both(stage, node, OPERATION(setInternalData), pointer);
    stage.same(static_cast<const void*>(node->twin->internalData()), static_cast<const void*>(pointer));
}

void setCheckState(Stage& stage)
{
    static const int states[] = {2, 0, 0, 2, 1, -3};
    Node* node = stage.node();
    both(stage, node, OPERATION(setCheckState), states[stage.below(6)]);
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
        Stage::differ("getInstance", "another", "s_Instance");
    stage.matters();
    stage.world().customDefaults.clear();
    stage.world().Init();
}

void init(Stage& stage)
{
    both(stage, OPERATION(Init));
    if (!stage.world().customDefaults.isEmpty())
        stage.matters();
}

void setSupportTypes(Stage& stage)
{
    both(stage, OPERATION(setSupportTypes), stage.typeNames());
    stage.matters();
}

void readCustomDefaults(Stage& stage)
{
    const QString type = stage.customisedType();
    both(stage, OPERATION(hasCustomDefaultVal), type);
    both(stage, OPERATION(getCustomDefaultVal), type, stage.key(type));
    both(stage, OPERATION(getCustomDefaultVal), type);
}

void saveAsCustomDefaultVal(Stage& stage)
{
    const QString type = stage.type(stage.model());
    both(stage, OPERATION(saveAsCustomDefaultVal), type, stage.props(type));
}

void saveFrameEffects(Stage& stage)
{
    const QString type = "Effect";
    both(stage, OPERATION(saveAsCustomDefaultVal), type, Properties{{type, stage.value(type)}});
}

void removeCustomDefaultVal(Stage& stage)
{
    both(stage, OPERATION(removeCustomDefaultVal), stage.customisedType());
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
    constexpr auto type = &Drawn::type;
    constexpr auto pos = &Drawn::pos;
    constexpr auto otherPos = &Drawn::otherPos;
    constexpr auto key = &Drawn::key;
    constexpr auto value = &Drawn::value;
    constexpr auto props = &Drawn::props;
    constexpr auto number = &Drawn::number;
    constexpr auto node = &Drawn::node;
    constexpr auto any = &Stage::node;
    constexpr auto group = &Stage::group;
    constexpr auto w = &Drawn::w;
    constexpr auto h = &Drawn::h;
    static const std::vector<Operation> table = {
        // The most telling first: what shrinks, shrinks toward it.
        onModel(50, "tpkv", OPERATION(setData), key, value, type, pos),
        onModel(15, "tpk", OPERATION(data), key, type, pos),
        onModel(70, "tr1", OPERATION(addDataItem), type, props),
        onModel(50, "trp1", OPERATION(insertDataItem), type, props, pos),
        {"ZoEffectModel::addDataItem, many tracks", 8, addManyTracks},
        onModel(20, "trf2^", OPERATION(addDataItemEx), type, props, &Drawn::flag),
        {"ZoEffectModel::delDataItem", 15, delDataItem},
        onModel(15, "tpq", OPERATION(changeDataItemPos), type, pos, otherPos),
        {"ZoEffectModel::replaceData, properties", 20, replaceDataByProps},
        {"ZoEffectModel::replaceData, node", 15, replaceDataByNode},
        {"ZoEffectModel::replaceItemDataProperty", 30, replaceItemDataProperty},
        onModel(8, "tp^", OPERATION(resetDataItem), type, pos),
        onModel(4, "", OPERATION(resetAllEffect)),
        {"ZoEffectModel::ZoEffectModel()", 4, constructFull},
        {"ZoEffectModel::ZoEffectModel(types)", 4, constructTypes},
        {"ZoEffectModel::ZoEffectModel(type, properties)", 10, constructSingle},
        {"ZoEffectModel::ZoEffectModel(other)", 5, constructCopy},
        {"ZoEffectModel::ZoEffectModel(other, parent)", 3, constructCopyWithParent},
        {"ZoEffectModel::operator=", 5, assignModel},
        {"ZoEffectModel::~ZoEffectModel", 10, destroyModel},
        {"ZoEffectModel::InitEffectModel", 4, initEffectModel},
        {"ZoEffectModel::findOriItem", 4, findOriItem},
        onModel(4, "Tm", OPERATION(createItems), &Drawn::types),
        onModel(6, "n!", OPERATION(InitZoeffectData), node),
        {"ZoEffectModel::InitSubItemData", 5, initSubItemData},
        {"ZoEffectModel::editByUser, editByDefault", 4, editFlags},
        onModel(4, "", OPERATION(resetEditByDefaultFlag)),
        {"ZoEffectModel::blockSignals", 4, blockSignals},
        onModel(6, "nt", OPERATION(findDataItem), node, type),
        onModel(6, "ntp", OPERATION(findDataItem), node, type, pos),
        {"ZoEffectModel::getDataItem, findDataItem(type, pos)", 6, getDataItem},
        onModel(5, "t", OPERATION(childCount), type),
        {"ZoEffectModel::setData, two values in turn", 40, setDataTwice},
        {"ZoEffectModel::setData, a crop", 15, setCrop},
        onModel(8, "tk", OPERATION(defaultValue), key, type),
        onModel(3, "t", OPERATION(setCurrentItem), type),
        onModel(3, "tp", OPERATION(setCurrentSubItem), type, pos),
        onModel(3, "t", OPERATION(beginChange), type),
        onModel(3, "t", OPERATION(endChanged), type),
        onModel(5, "t", OPERATION(selectOnlyOneItem), type),
        onModel(15, "tkv", OPERATION(selectItemByKey), type, key, value),
        {"ZoEffectModel::selectItemByKeyEx", 20, selectItemByKeyEx},
        {"ZoEffectModel::getItemIndexByKeyValue, haveSameItem", 12, itemByKeyValue},
        {"ZoEffectModel::getSelectItem", 12, getSelectItem},
        {"ZoEffectModel::getEmbededSutitleID and the like", 15, tracks},
        {"ZoEffectModel::isForAudioEffect, getValidAudioEffectItem", 12, audioEffects},
        {"ZoEffectModel::refreshCurPlayData", 8, refreshCurPlayData},
        onModel(25, "wh", OPERATION(setVideoSize), w, h),
        onModel(3, "", OPERATION(baseSize)),
        onModel(20, "wh", OPERATION(adjustEffectInfo), w, h),
        {"ZoEffectModel::adjustEffectItem", 15, adjustEffectItem},
        {"ZoEffectModel::isCroped, cropData", 10, cropInForce},
        {"ZoEffectModel::getWatermark", 16, getWatermark},
        {"ZoEffectModel::getWatermark, a text at the edge", 10, paintTextAtEdge},
        {"ZoEffectModel::getImage", 8, getImage},
        {"ZoEffectModel::adjustWatermarkPos", 25, adjustWatermarkPos},
        {"ZoEffectModel::adjustWatermarkPos, among many", 30, placeAmongMany},
        {"ZoEffectModel::SingleDataIsDefault", 30, singleDataIsDefault},
        onModel(15, "t", OPERATION(dataIsDefault), type),
        onModel(8, "", OPERATION(FrameEffectIsDefault)),
        onModel(20, "", OPERATION(hasRealEffect)),
        onModel(5, "", OPERATION(getCurrentFrameEffects)),
        onModel(20, "tp", OPERATION(saveAsCustomDefault), type, pos),
        onModel(5, "t", OPERATION(hasCustomDefault), type),
        onModel(8, "c", OPERATION(removeCustomDefault), type),
        {"ZoEffectModel::customDefaultVal", 8, customDefaultVal},
        {"ZoEffectModel::getCustomDefaultVal", 25, getCustomDefaultVal},
        onModel(15, "", OPERATION(AdjustFramEffectsByCustomDefault)),
        {"ZoEffectModel::getItemPos", 5, getItemPos},
        onModel(8, "tp", OPERATION(applyDataTo), type, pos, number),
        onModel(12, "sp", OPERATION(applySomePropertytoOther), type, pos, number),
        {"ZoEffectItemData::ZoEffectItemData(name, parent, pos)", 8, constructNode},
        {"ZoEffectItemData::ZoEffectItemData(other)", 5, copyNode},
        {"ZoEffectItemData::operator=, assign", 6, assignNode},
        {"ZoEffectItemData::~ZoEffectItemData", 8, destroyNode},
        {"ZoEffectItemData::child, childNumber", 6, readTree},
        {"ZoEffectItemData::appendChild, insertChild", 20, appendChild},
        {"ZoEffectItemData::takeAt", 12, takeAt},
        onNode(6, group, "p#", OPERATION(removeChildren), pos, number),
        onNode(12, group, "pq", OPERATION(changeItemPos), pos, otherPos),
        onNode(4, group, "", OPERATION(clear)),
        {"ZoEffectItemData::data, hasData", 8, readNode},
        onNode(15, any, "kv", OPERATION(setData), key, value),
        onNode(6, any, "k", OPERATION(delData), key),
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
        // Those of 1.0 end here; see summedOperations.
        {"ZoEffectModel::applyFrameEffects", 8, applyFrameEffects},
    };
    return table;
}
