// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "referencemodel.h"

#include <algorithm>

#include "referencenames.h"

namespace reference {

bool Model::fails(int line) const
{
    logged(line);
    return false;
}

// --- Construction and values ------------------------------------------------------------------------------

Model::Model(World& sharedWorld) : world(sharedWorld), root(Node::create("effect root")) {}

Model::Model(World& sharedWorld, const QStringList& types) : Model(sharedWorld)
{
    createItems(types);
}

Model::Model(World& sharedWorld, const QString& type, const Properties& props) : Model(sharedWorld)
{
    Node* node = find(type);
    if (!node)
        node = Node::create(type, root.get()).get();
    node->take(props);
}

Model& Model::operator=(const Model& other)
{
    if (&other == this)
        return *this;
    root->assign(*other.root);
    editedByUser = other.editedByUser;
    return *this;
}

void Model::createItems(const QStringList& types)
{
    if (!world.catalogue)
        return;
    for (const EffectType& type : world.catalogue->types) {
        if (!types.isEmpty() && !types.contains(type.name))
            continue;
        Node* node = Node::create(type.name, root.get()).get();
        InitZoeffectData(node);
        if (type.subItems)
            buildSubItems(node, &*type.subItems);
        if (type.name == effect)
            AdjustFramEffectsByCustomDefault();
    }
}

void Model::InitZoeffectData(Node* item)
{
    if (!item)
        return;
    item->select(true);
    storeCatalogueDefaults(item, item->name, true);
    if (item->name != crop && item->name != watermark)
        getCustomDefaultVal(item, item->name, false);
}

void Model::buildSubItems(Node* item, const std::vector<SubItem>* subItems)
{
    if (!subItems || !item)
        return logged(422);
    for (const SubItem& subItem : *subItems) {
        Node* node = Node::create(subItem.name, item).get();
        node->setData("id", subItem.id);
        for (const Default& entry : subItem.properties)
            node->take(entry.key, entry.value);
        node->internalData = const_cast<SubEffectItem*>(subItem.record);
    }
}

Node* Model::findDataItem(Node* start, const QString& type) const
{
    if (!start)
        logged(340);
    return reference::find(start, type);
}

Node* Model::findDataItem(Node* start, const QString& type, int pos) const
{
    if (!start)
        logged(316);
    return reference::find(start, type, pos);
}

int Model::childCount(const QString& type) const
{
    const Node* node = find(type);
    return node || fails(246) ? node->count() : 0;
}

QVariant Model::data(const QString& key, const QString& type, int pos) const
{
    const Node* node = find(type, pos);
    if (!node)
        return QVariant();
    if (key == checkStateKey)
        return node->checkState;
    const int height = baseSize().height();
    if (key == subtitlePosition && type == subtitle && !node->flag(movedByUser) && height != 0)
        return height * toDouble(world.defaultValue(subtitleFactor, subtitle));
    return node->data(key);
}

bool Model::setData(const QString& key, const QVariant& value, const QString& type, int pos)
{
    Node* node = find(type, pos);
    if (!node)
        return fails(181);
    const bool isState = key == checkStateKey;
    if (isState ? node->checkState == (toBool(value) ? 2 : 0) : equal(node->data(key), value))
        return true;
    node->take(key, value);
    if (type == subtitle && key == subtitlePosition)
        node->setData(movedByUser, true);
    changed(type, key, value, pos);
    return true;
}

void Model::send(const Signal& signal)
{
    if (!signalsBlocked)
        sent.push_back(signal);
}

void Model::changed(const QString& type, const QString& key, const QVariant& value, int pos)
{
    send({0, type, key, value, pos});
}

// --- Selection and tracks ---------------------------------------------------------------------------------

void Model::selectOnlyOneItem(const QString& type)
{
    for (Node* node : root->items())
        node->select(node->name == type);
}

void Model::selectItemByKey(const QString& type, const QString& key, const QVariant& value)
{
    Node* node = find(type);
    if (!node)
        return;
    node->select(true);
    for (Node* item : node->items())
        item->select(equal(item->data(key), value));
}

void Model::selectItemByKeyEx(const QString& type, const QString& key, const QStringList& values)
{
    Node* node = find(type);
    if (!node)
        return;
    node->select(true);
    for (Node* item : node->items())
        item->select(values.contains(item->text(key)));
}

int Model::getItemIndexByKeyValue(const QString& type, const QString& key, const QVariant& value) const
{
    const Node* node = find(type);
    for (int i = 0; node && i < node->count(); ++i) {
        if (node->child(i) && equal(node->child(i)->data(key), value))
            return i;
    }
    return -1;
}

bool Model::haveSameItem(const QString& type, const QString& key, const QVariant& value) const
{
    return getItemIndexByKeyValue(type, key, value) != -1;
}

std::vector<Node*> Model::getSelectItem(const QString& type) const
{
    std::vector<Node*> items;
    const Node* node = find(type);
    if (!node || !node->isSelected())
        return items;
    for (Node* item : node->items()) {
        if (item->isSelected() && (type == audio || items.empty()))
            items.push_back(item);
    }
    return items;
}

int Model::getEmbededSutitleID() const
{
    const Node* node = find(subtitle);
    if (!node)
        return -1;
    if (!node->isSelected()) // The first track is the default one, if it is embedded.
        return node->child(0) && !node->child(0)->flag(subFromFile) ? 0 : -1;
    for (int i = 0; i < node->count(); ++i) {
        const Node* item = node->child(i);
        if (item && item->flag(subFromFile))
            return -1;
        if (item && item->isSelected())
            return i;
    }
    return -1;
}

int Model::getEmbededAudioID() const
{
    const Node* node = find(audio);
    if (!node || !node->isSelected())
        return -1;
    for (const Node* item : node->items()) {
        if (item->flag(audioIsFile))
            return -1;
        if (item->isSelected())
            return item->number("trackid");
    }
    return -1;
}

bool Model::anyItem(const QString& type, const char* fileKey, bool fromFile) const
{
    const std::vector<Node*> items = find(type)->items();
    return std::any_of(items.cbegin(), items.cend(), [fileKey, fromFile](const Node* item) {
        return item->isSelected() && item->flag(fileKey) == fromFile;
    });
}

bool Model::useCustomSubtitle() const
{
    return find(subtitle) && find(subtitle)->isSelected() && anyItem(subtitle, "sub_fromfile", true);
}

bool Model::useEmbededSubtitle() const
{
    return !find(subtitle) || find(subtitle)->children.empty() || anyItem(subtitle, "sub_fromfile", false);
}

bool Model::useCustomAudio() const
{
    return find(audio) && find(audio)->isSelected() && anyItem(audio, "audio_isfile", true);
}

bool Model::useEmbededAudio() const
{
    return !find(audio) || find(audio)->children.empty() || anyItem(audio, "audio_isfile", false);
}

bool Model::isForAudioEffect() const
{
    static const QStringList names = {"Audio_Fade_Inout", "Audio_Normalize", "Audio_BandPass", "Audio_Chorus",
                                      "Audio_Flanger",    "Audio_Echo",      "Audio_Speed"};
    return std::any_of(names.cbegin(), names.cend(), [this](const QString& name) { return find(name); });
}

Node* Model::getValidAudioEffectItem() const
{
    if (!isForAudioEffect())
        return nullptr;
    for (Node* node : root->items()) {
        if (node->flag("audio_effect_flag"))
            return node;
    }
    return nullptr;
}

void Model::refreshCurPlayData(int index)
{
    const Node* node = find(audio);
    for (int i = 0; node && i < node->count(); ++i) {
        Node* item = node->child(i);
        if (item && i == index)
            item->setData("_playmeineffect", true);
        else if (item)
            item->delData("_playmeineffect");
    }
}

// --- Defaults and real effects ----------------------------------------------------------------------------

QVariant Model::presentDefault(const QString& type, const Default& entry) const
{
    const QVariant custom = world.getCustomDefaultVal(type, entry.key);
    return custom.isValid() ? custom : entry.value;
}

bool Model::SingleDataIsDefault(const QString& type, const QString& key, int pos) const
{
    const Node* node = find(type, pos);
    if (!node)
        return true;
    if (type == watermark && (key == horizontal || key == vertical)) {
        const bool across = key == horizontal;
        const double factor = toDouble(world.defaultValue(across ? horizontalFactor : verticalFactor, watermark));
        return sameNumber(factor * (across ? baseSize().width() : baseSize().height()), node->number(key));
    }
    for (const Default& entry : world.propertiesOf(type)) {
        if (entry.key == key)
            return equal(node->data(key), presentDefault(type, entry));
    }
    return true;
}

bool Model::dataIsDefault(const QString& type) const
{
    const EffectType* record = world.find(type);
    if (!record) {
        logged(518);
        return true;
    }
    const Node* node = find(type);
    if (!node)
        return true;
    if (!record->properties)
        return type == effect ? FrameEffectIsDefault() : subItemsAreDefault(node, *record);
    for (const Default& entry : *record->properties) {
        if (!equal(node->data(entry.key), presentDefault(type, entry)))
            return false;
    }
    return true;
}

bool Model::subItemsAreDefault(const Node* typeNode, const EffectType& type) const
{
    if (!type.subItems)
        return true;
    const std::vector<SubItem>& listed = *type.subItems;
    bool result = true;
    for (size_t i = 0; i < typeNode->children.size(); ++i) {
        if (i >= listed.size())
            return false;
        const Node* item = typeNode->children[i].get();
        if (!item)
            continue;
        if (item->name != listed[i].name)
            return false;
        for (const Default& entry : listed[i].properties) {
            const bool sameState = entry.key == checkStateKey && item->checkState == (toBool(entry.value) ? 2 : 0);
            result = result && (sameState || equal(item->data(entry.key), entry.value));
        }
    }
    return result && typeNode->children.size() >= listed.size();
}

bool Model::FrameEffectIsDefault() const
{
    const EffectType* record = world.find(effect);
    const Node* node = find(effect);
    if (!record || !node)
        return true;
    if (!world.hasCustomDefaultVal(effect))
        return subItemsAreDefault(node, *record);
    const QString summary = toText(world.getCustomDefaultVal(effect, effect));
    const QStringList parts = summary.split('|');
    if (summary.isEmpty() || node->children.empty() || parts.size() != 2 * node->count())
        return true;
    for (int i = 0; i < node->count(); ++i) {
        const Node* item = node->child(i);
        const int state = parts.at(2 * i + 1) == "true" ? 2 : 0;
        if (item && (parts.at(2 * i) != item->name || item->checkState != state))
            return false;
    }
    return true;
}

bool Model::hasRealEffect() const
{
    if (isForAudioEffect()) {
        const Node* flagged = getValidAudioEffectItem();
        if (flagged && flagged->name == "Audio_Speed")
            return flagged->number("audio_speed_factor") != 10;
        if (flagged && flagged->name == "Audio_Fade_Inout")
            return flagged->flag("audio_fade_in_enable") || flagged->flag("audio_fade_out_enable");
        return flagged;
    }
    for (const Node* node : root->items()) {
        if (node->isSelected() && asksForProcessing(node))
            return true;
    }
    return false;
}

bool Model::asksForProcessing(const Node* node) const
{
    const auto anySelected = [node](const auto& wanted) {
        const std::vector<Node*> items = node->items();
        return std::any_of(items.cbegin(), items.cend(),
                           [&wanted](const Node* item) { return item->isSelected() && wanted(item); });
    };
    if (node->name == crop) {
        if (baseSize().width() != 0 && baseSize().height() != 0 && isCroped())
            return true;
        return toBool(data("player_map_flag", crop, -1))
               && (toBool(data("crop_rotation_angle", effect, -1)) || toBool(data("crop_rotation_action", effect, -1)));
    }
    if (node->name == color)
        return node->number("bcs_brightness") != 0 || node->number("bcs_contrast") != 0
               || node->number("bcs_saturation") != 0;
    if (node->name == effect)
        return anySelected([](const Node*) { return true; });
    if (node->name == watermark)
        return anySelected([](const Node* i) { return !i->flag(isText) || !i->text("wm_textcontent").isEmpty(); });
    if (node->name == audio)
        return anySelected([](const Node* i) { return i->flag(audioIsFile); });
    if (node->name == subtitle)
        return anySelected([](const Node* i) { return i->flag(subFromFile); });
    return fails(2399);
}

Properties Model::getCurrentFrameEffects() const
{
    const Node* node = find(effect);
    if (!node) {
        logged(1559);
        return {};
    }
    QStringList parts;
    for (const NodePtr& item : node->children) {
        if (item)
            parts << item->name << (item->isSelected() ? "true" : "false");
        else
            logged(1553);
    }
    return {{effect, parts.join('|')}};
}

bool Model::applyFrameEffects(const Properties& effects)
{
    Node* node = find(effect);
    if (!node || !effects.contains(effect))
        return false;
    const QString summary = toText(effects.value(effect));
    const QStringList parts = summary.split('|');
    if (node->count() == 0)
        return summary == QString();
    if (parts.size() != 2 * node->count())
        return false;
    std::vector<NodePtr> left = node->children;
    std::vector<NodePtr> arranged;
    for (int i = 0; i < parts.size(); i += 2) {
        const auto isNamed = [&](const NodePtr& item) { return item && item->name == parts.at(i); };
        if (std::count_if(node->children.begin(), node->children.end(), isNamed) != 1)
            return false;
        const auto found = std::find_if(left.begin(), left.end(), isNamed);
        if (found == left.end())
            return false;
        arranged.push_back(*found);
        left.erase(found);
    }
    bool changes = arranged != node->children;
    node->children = arranged;
    for (int i = 0; i < node->count(); ++i) {
        const int state = parts.at(2 * i + 1) == "true" ? 2 : 0;
        changes = changes || node->child(i)->checkState != state;
        node->child(i)->setCheckState(state);
    }
    if (changes)
        changed(effect, "reset", QVariant(), -1);
    return true;
}

// --- Custom defaults --------------------------------------------------------------------------------------

namespace {

void copyValues(Properties& saved, const Node& from, const QStringList& keys)
{
    for (const QString& key : keys)
        saved.insert(key, from.data(key));
}

void copyFactor(Properties& saved, const QString& factor, const Node& item, const QString& position, int side)
{
    saved.insert(factor, static_cast<double>(item.number(position)) / side);
}

void saveWatermark(Properties& saved, const Node& item, const QSize& base)
{
    copyValues(saved, item, {"wm_transparency"});
    if (item.flag(isText))
        copyValues(saved, item, {"wm_fontname", "wm_fontcolor", "wm_fontstyle", "wm_fontsize"});
    else
        copyValues(saved, item, {"wm_imagekeepratio"});
    if (base.width() == 0 || base.height() == 0)
        return;
    copyFactor(saved, horizontalFactor, item, horizontal, base.width());
    copyFactor(saved, verticalFactor, item, vertical, base.height());
}

void saveSubtitle(Properties& saved, const Node& item, const QSize& base)
{
    copyValues(saved, item, {"sub_transparency"});
    if (item.flag(subFromFile))
        copyValues(saved, item, {"sub_fontname", "sub_fontcolor", "sub_fontstyle", "sub_linemargin", "sub_fontsize"});
    else
        copyValues(saved, item, {"fontstyleusedefault", "sub_fontcolor", "sub_framecolor"});
    if (base.height() != 0)
        copyFactor(saved, subtitleFactor, item, subtitlePosition, base.height());
}

} // namespace

void Model::saveAsCustomDefault(const QString& type, int index)
{
    const Node* node = find(type);
    const Node* item = node ? node->child(index) : nullptr;
    Properties saved;
    if (type == watermark) {
        if (index != -1 && !node)
            logged(1451);
        if (!item)
            return;
        saved = world.getCustomDefaultVal(type);
        saveWatermark(saved, *item, baseSize());
    } else if (type == subtitle) {
        if (node && !item)
            logged(1514);
        if (!item)
            return;
        saved = world.getCustomDefaultVal(type);
        saveSubtitle(saved, *item, baseSize());
    } else if (type == color) {
        if (node)
            copyValues(saved, *node, {"bcs_brightness", "bcs_contrast", "bcs_saturation"});
        else
            logged(1467);
    } else if (type == effect) {
        saved = getCurrentFrameEffects();
    }
    if (!saved.isEmpty())
        world.saveAsCustomDefaultVal(type, saved);
}

void Model::getCustomDefaultVal(Node* item, const QString& type, bool direct)
{
    if (!item)
        return logged(829);
    const Properties saved = world.getCustomDefaultVal(type);
    if (saved.isEmpty())
        return;
    if (type == watermark)
        return layOverWatermark(item, saved, direct);
    if (type != subtitle)
        root->setData("editbydefault", true);
    const bool all = type != subtitle || item->flag(subFromFile);
    for (auto it = saved.cbegin(); it != saved.cend(); ++it) {
        if (all || it.key() == "sub_transparency")
            item->setData(it.key(), it.value());
    }
}

void Model::AdjustFramEffectsByCustomDefault()
{
    const QString summary = toText(world.getCustomDefaultVal(effect, effect));
    Node* node = find(effect);
    const QStringList parts = summary.split('|');
    if (summary.isEmpty() || !node || node->count() < 1 || parts.size() != 2 * node->count())
        return;
    for (int i = 0; i < node->count(); ++i) {
        const int at = getItemPos(node, parts.at(2 * i));
        if (at == -1)
            return;
        if (at != i)
            node->changeItemPos(i, at);
        if (node->child(i))
            node->child(i)->select(parts.at(2 * i + 1) == "true");
    }
}

int Model::getItemPos(const Node* parent, const QString& name)
{
    for (int i = 0; parent && i < parent->count(); ++i) {
        if (parent->child(i) && parent->child(i)->name == name)
            return i;
    }
    return -1;
}

// --- Lists of items ---------------------------------------------------------------------------------------

void Model::storeCatalogueDefaults(Node* item, const QString& type, bool withFactors) const
{
    for (const Default& entry : world.propertiesOf(type)) {
        const bool factor = entry.key == subtitleFactor || entry.key == verticalFactor || entry.key == horizontalFactor;
        if (withFactors || !factor)
            item->setData(entry.key, entry.value);
    }
}

/// The custom defaults, else the place that the catalogue's factors give.
void Model::layOverDefaults(Node* item, const QString& type)
{
    if (world.hasCustomDefaultVal(type))
        getCustomDefaultVal(item, type, false);
    else if (type == watermark)
        place(item, truncated(baseSize().width() * toDouble(world.defaultValue(horizontalFactor, watermark))),
              truncated(baseSize().height() * toDouble(world.defaultValue(verticalFactor, watermark))));
}

bool Model::insertDataItem(const QString& type, const Properties& props, int pos)
{
    Node* node = find(type);
    if (!node)
        return false;
    const int index = pos == -1 ? node->count() : pos;
    Node* item = Node::create(QString(), node, index).get();
    storeCatalogueDefaults(item, type, false);
    if (type == watermark && props.contains(isText))
        item->setData(isText, props.value(isText));
    else if (type == subtitle && props.contains(subFromFile))
        item->setData(subFromFile, props.value(subFromFile));
    layOverDefaults(item, type);
    item->take(props);
    if (type == watermark)
        adjustWatermarkPos(item);
    changed(type, "item_add", QVariant(), index);
    return true;
}

bool Model::addDataItemEx(const QString& type, const Properties& props, bool asChild)
{
    Node* node = find(type);
    if (!node)
        node = Node::create(type, root.get()).get();
    if (asChild)
        return insertDataItem(type, props, -1);
    storeCatalogueDefaults(node, type, true);
    getCustomDefaultVal(node, type, false);
    node->take(props);
    return true;
}

bool Model::delDataItem(const QString& type, int pos)
{
    const Node* item = find(type, pos);
    if (!item)
        return fails(273);
    const NodePtr parent = item->parent.lock();
    if (!parent)
        return fails(270);
    const NodePtr taken = parent->takeAt(pos);
    if (taken.get() != item) {
        astray = taken;
        return false;
    }
    changed(type, "item_delete", QVariant(), pos);
    return true;
}

bool Model::changeDataItemPos(const QString& type, int to, int from)
{
    Node* node = find(type);
    if (!node)
        return fails(288);
    const bool moved = node->changeItemPos(to, from);
    changed(type, "item_move", to, -1);
    return moved;
}

bool Model::replaceData(const QString& type, int pos, const Properties& props)
{
    const Node* node = find(type);
    if (!node)
        return fails(969);
    Node* item = node->child(pos);
    if (!item)
        return fails(966);
    storeCatalogueDefaults(item, type, true);
    layOverDefaults(item, type);
    if (type == subtitle)
        item->setData(movedByUser, false);
    item->take(props);
    changed(type, "reset", QVariant(), pos);
    return true;
}

void Model::replaceData(const QString& type, int pos, const Node* source)
{
    if (!source)
        return logged(1029);
    Node* target = find(type, pos);
    if (!target || target == source)
        return logged(1026);
    const NodePtr parent = source->parent.lock();
    const bool fromTypeNode = parent && parent->name == "effect root";
    const int sourceW = fromTypeNode ? parent->number("w") : 0;
    const int sourceH = fromTypeNode ? parent->number(frameHeight) : 0;
    target->assign(*source);
    if (type == watermark && fromTypeNode)
        adjustEffectItem(target, baseSize().width(), baseSize().height(), sourceW, sourceH);
    changed(type, "reset", QVariant(), pos);
}

void Model::replaceItemDataProperty(const QString& type, const Properties& props)
{
    const Node* node = find(type);
    if (type != subtitle || !node)
        return;
    std::set<int> processed;
    for (int i = 0; i < node->count() && processed.count(i) == 0; ++i) { // Counts items and keys alike.
        editedByUser = true;
        ++writes;
        Node* item = node->child(i);
        processed.insert(i);
        if (!item)
            continue;
        QStringList keys;
        if (item->flag(subFromFile))
            std::copy(std::begin(keysforfromFile), std::end(keysforfromFile), std::back_inserter(keys));
        else
            std::copy(std::begin(keysforDVD), std::end(keysforDVD), std::back_inserter(keys));
        const int oldHeight = toInt(props.value(frameHeight));
        const int newHeight = root->number(frameHeight);
        i = 0;
        for (const QString& key : std::as_const(keys)) {
            ++i;
            if (!props.contains(key))
                continue;
            QVariant value = props.value(key);
            if (oldHeight != 0 && newHeight != 0 && (key == subtitleFontSize || key == subtitlePosition))
                value = truncated(toInt(value) * (static_cast<double>(newHeight) / oldHeight));
            item->setData(key, value);
        }
        changed(type, "reset", QVariant(), i);
    }
}

bool Model::resetDataItem(const QString& type, int pos)
{
    Node* node = find(type);
    if (!node)
        return fails(622);
    node->clear();
    node->select(true);
    const EffectType* record = world.find(type);
    if (record && record->subItems)
        buildSubItems(node, &*record->subItems);
    InitZoeffectData(node);
    if (type == effect)
        AdjustFramEffectsByCustomDefault();
    changed(type, "reset", QVariant(), pos);
    return true;
}

namespace {

/// The tracks from files go, from the end up to the last embedded one; the first that is left is selected.
void resetTracks(Node* node, const QString& fileKey)
{
    for (int i = node->count() - 1; i >= 0; --i) {
        if (!node->child(i))
            continue;
        if (!node->child(i)->flag(fileKey))
            break;
        node->removeChildren(i, 1);
    }
    const std::vector<Node*> items = node->items();
    for (Node* item : items)
        item->select(item == items.front());
}

} // namespace

void Model::resetAllEffect()
{
    signalsBlocked = true;
    editedByUser = false;
    ++writes;
    static const std::vector<EffectType> none;
    for (const EffectType& type : world.catalogue ? world.catalogue->types : none) {
        Node* node = find(type.name);
        if (!node)
            continue;
        node->select(true);
        if (type.name == audio)
            resetTracks(node, audioIsFile);
        else if (type.name == subtitle)
            resetTracks(node, subFromFile);
        else if (type.name == watermark)
            node->clear();
        else
            resetDataItem(type.name, -1);
    }
    signalsBlocked = false;
}

// --- Handing settings to others ---------------------------------------------------------------------------

void Model::applyDataTo(const QString& type, int pos, int applyto)
{
    const Node* item = find(type, pos);
    if (item)
        send({3, type, {}, {}, pos, applyto, item->twin});
}

void Model::applySomePropertytoOther(const QString& type, int pos, int applyto)
{
    const Node* item = find(type, pos);
    if (type != subtitle || pos == -1 || !item || !item->isSelected())
        return;
    Properties style;
    for (const char* key : keysforfromFile) {
        const QVariant value = item->data(key);
        if (value.isValid())
            style.insert(key, value);
    }
    if (style.isEmpty())
        return;
    style.insert(frameHeight, root->number(frameHeight));
    replaceItemDataProperty(type, style);
    send({4, type, {}, style, -1, applyto});
}

} // namespace reference
