// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

/// \file
/// A second, deliberately naive account of what the library does, to hold the library against: plain structs, every
/// step as the behaviour is told, nothing clever and nothing shared with the library. The host's catalogue is read
/// through the public header once; QVariant and QMap only carry values, how they convert and compare is told here.
/// What a session calls on both has the library's name.

#include <memory>
#include <optional>
#include <set>
#include <vector>

#include <QMap>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <zoeffectcatalogue.h>

class ZoEffectItemData;

namespace reference {

using Properties = QMap<QString, QVariant>;

// --- Values -----------------------------------------------------------------------------------------------

/// How values convert: as Qt 5's, for int, bool, double, text, colour, font, map and invalid values.
bool toBool(const QVariant& value);
int toInt(const QVariant& value);
double toDouble(const QVariant& value);
QString toText(const QVariant& value);
/// What a present value makes of a given one. The order counts: the given one is brought to the present one's type.
bool equal(const QVariant& present, const QVariant& given);
/// The same type and the same value, nothing converted.
bool identical(const QVariant& one, const QVariant& other);
/// Exactly the same; a plain == of doubles would be warned of.
bool sameNumber(double one, double other);
/// Toward zero; out of range saturates, no number gives 0.
int truncated(double value);

// --- The host's catalogue ---------------------------------------------------------------------------------

struct Default {
    QString key;
    QVariant value;
};

struct SubItem {
    QString name;
    int id = 0;
    std::vector<Default> properties;
    const SubEffectItem* record = nullptr;
};

struct EffectType {
    QString name;
    std::optional<std::vector<Default>> properties;
    std::optional<std::vector<SubItem>> subItems;
    std::vector<EffectType> children;
    const EffectControlItem* record = nullptr;
};

/// A table as the host built it.
struct Catalogue {
    explicit Catalogue(const EffectControlItem* table);

    std::vector<EffectType> types;
    const EffectControlItem* table;
};

/// Depth first, each record before its nested table.
const EffectType* findType(const std::vector<EffectType>& types, const QString& name);

// --- The tree ---------------------------------------------------------------------------------------------

struct Node;
using NodePtr = std::shared_ptr<Node>;

/// One node. Children are owned and may be null: a host can append null.
struct Node : std::enable_shared_from_this<Node> {
    QString name;
    QString objectName;
    int checkState = 2;
    Properties properties;
    std::vector<NodePtr> children;
    std::weak_ptr<Node> parent;
    bool hasParent = false;
    void* internalData = nullptr;
    ZoEffectItemData* twin = nullptr; ///< The library's node; noted when the two trees are compared.

    /// A new node, under \a parent at \a pos when there is one.
    static NodePtr create(const QString& name, Node* parent = nullptr, int pos = -1);

    int count() const { return static_cast<int>(children.size()); }
    Node* child(int row) const;
    std::vector<Node*> items() const; ///< The children that are not null.
    int childNumber() const;
    void insertChild(const NodePtr& node, int pos);
    NodePtr takeAt(int row);
    bool removeChildren(int pos, int howMany);
    bool changeItemPos(int to, int from);
    void clear();
    QVariant data(const QString& key) const;
    QVariant data(int role) const;
    bool hasData(const QString& key) const { return properties.contains(key); }
    void setData(const QString& key, const QVariant& value);
    void delData(const QString& key);
    void setCheckState(int state);
    void setInternalData(void* data) { internalData = data; }
    void assign(const Node& other);

    int number(const QString& key) const { return toInt(data(key)); }
    bool flag(const QString& key) const { return toBool(data(key)); }
    QString text(const QString& key) const { return toText(data(key)); }
    bool isSelected() const { return checkState == 2; }
    void select(bool select) { setCheckState(select ? 2 : 0); }
    /// A caller's value: "_checkstate" is the check state, all else is stored.
    void take(const QString& key, const QVariant& value);
    void take(const Properties& props);

    /// Whether the parent was deleted: reading it would read freed memory, so no host does.
    bool parentGone() const { return hasParent && parent.expired(); }
};

/// The first node of that name, itself included, each node before its children.
Node* find(Node* start, const QString& name);
/// The node itself for -1, else its child.
Node* find(Node* start, const QString& name, int pos);
/// The number of nodes, null entries included.
int size(const Node& node);

// --- What all models share --------------------------------------------------------------------------------

/// The process: the registered table, the log, the custom defaults and the host's preference store.
struct World {
    const Catalogue* catalogue = nullptr;
    std::vector<int> log;
    QStringList supportTypes;
    QMap<QString, Properties> customDefaults;
    QMap<QString, QVariant> preferences;
    QStringList preferenceWrites; ///< The keys, in order.

    void registerTable(const Catalogue* table);
    const EffectType* find(const QString& type) const;
    /// The type's properties, none when it has no table of them.
    const std::vector<Default>& propertiesOf(const QString& type) const;

    void Init();
    void setSupportTypes(const QStringList& types) { supportTypes = types; }
    bool hasCustomDefaultVal(const QString& type) const { return customDefaults.contains(type); }
    Properties getCustomDefaultVal(const QString& type) const { return customDefaults.value(type); }
    QVariant getCustomDefaultVal(const QString& type, const QString& key) const;
    void saveAsCustomDefaultVal(const QString& type, const Properties& values);
    void removeCustomDefaultVal(const QString& type);

    /// The custom default, else the catalogue's.
    QVariant defaultValue(const QString& key, const QString& type) const;
};

/// How often a field of any node was written.
extern long long writes;

/// One signal: its index in the meta-object and its arguments.
struct Signal {
    int index = 0;
    QString text{};  ///< The first text.
    QString text2{}; ///< The second text.
    QVariant value{};
    int number = 0;
    int number2 = 0;
    const ZoEffectItemData* node = nullptr;
};

struct Crop {
    QRect area{0, 0, 0, 0};
    bool valid = false;
};

/// Whether the file at \a path can be loaded as a picture, and its size; a null size for what cannot.
QSize pictureSize(const QString& path, const QString& format);
/// Moves a watermark.
void place(Node* item, long long x, long long y);
/// The place that a text takes in the picture.
QSize measuredText(const Node& watermark);

// --- The model --------------------------------------------------------------------------------------------

struct Model {
    explicit Model(World& world);
    Model(World& world, const QStringList& types);
    Model(World& world, const QString& type, const Properties& props);
    Model(const Model&) = delete;
    Model& operator=(const Model& other);

    void createItems(const QStringList& types);
    void InitZoeffectData(Node* item);
    void buildSubItems(Node* item, const std::vector<SubItem>* subItems);
    bool editByUser() const { return editedByUser; }
    bool editByDefault() const { return root->flag("editbydefault"); }
    void resetEditByDefaultFlag() { root->setData("editbydefault", false); }
    bool blockSignals(bool block) { return std::exchange(signalsBlocked, block); }

    Node* find(const QString& type, int pos = -1) const { return reference::find(root.get(), type, pos); }
    Node* getDataItem(const QString& type, int pos) const { return find(type, pos); }
    Node* findDataItem(const QString& type, int pos) const { return find(type, pos); }
    Node* findDataItem(Node* start, const QString& type) const;
    Node* findDataItem(Node* start, const QString& type, int pos) const;
    int childCount(const QString& type) const;
    QVariant data(const QString& key, const QString& type, int pos) const;
    bool setData(const QString& key, const QVariant& value, const QString& type, int pos);
    QVariant defaultValue(const QString& key, const QString& type) const { return world.defaultValue(key, type); }
    void setCurrentItem(const QString& type) { send({1, type}); }
    void setCurrentSubItem(const QString& type, int index) { send({2, type, {}, {}, index}); }
    void beginChange(const QString& type) { send({5, type}); }
    void endChanged(const QString& type) { send({6, type}); }

    void selectOnlyOneItem(const QString& type);
    void selectItemByKey(const QString& type, const QString& key, const QVariant& value);
    void selectItemByKeyEx(const QString& type, const QString& key, const QStringList& values);
    int getItemIndexByKeyValue(const QString& type, const QString& key, const QVariant& value) const;
    bool haveSameItem(const QString& type, const QString& key, const QVariant& value) const;
    /// One node, or for "Audio" all selected tracks.
    std::vector<Node*> getSelectItem(const QString& type) const;

    int getEmbededSutitleID() const;
    int getEmbededAudioID() const;
    bool useCustomSubtitle() const;
    bool useEmbededSubtitle() const;
    bool useCustomAudio() const;
    bool useEmbededAudio() const;
    bool isForAudioEffect() const;
    Node* getValidAudioEffectItem() const;
    void refreshCurPlayData(int index);

    void setVideoSize(int w, int h);
    QSize baseSize() const { return QSize(root->number("w"), root->number("h")); }
    void adjustEffectInfo(int w, int h);
    void adjustEffectItem(Node* item, int newW, int newH, int oldW, int oldH);
    bool isCroped() const;
    bool isCroped(int /*w*/, int /*h*/) const { return isCroped(); }
    Crop cropData() const;

    /// The size of the picture; a null size for a null picture.
    QSize getWatermark(int w, int h, bool honourIgnore);
    /// The size of the image, a null size for a failed load, which is logged.
    QSize getImage(const QString& path, const QString& format);
    void adjustWatermarkPos(Node* item);

    bool SingleDataIsDefault(const QString& type, const QString& key, int pos) const;
    bool dataIsDefault(const QString& type) const;
    bool FrameEffectIsDefault() const;
    bool hasRealEffect() const;
    Properties getCurrentFrameEffects() const;
    bool applyFrameEffects(const Properties& effects);

    bool hasCustomDefault(const QString& type) const { return world.hasCustomDefaultVal(type); }
    void removeCustomDefault(const QString& type) { world.removeCustomDefaultVal(type); }
    void saveAsCustomDefault(const QString& type, int index);
    void getCustomDefaultVal(Node* item, const QString& type, bool direct);
    void AdjustFramEffectsByCustomDefault();
    static int getItemPos(const Node* parent, const QString& name);

    bool insertDataItem(const QString& type, const Properties& props, int pos);
    bool addDataItem(const QString& type, const Properties& props) { return insertDataItem(type, props, -1); }
    bool addDataItemEx(const QString& type, const Properties& props, bool asChild);
    bool delDataItem(const QString& type, int pos);
    bool changeDataItemPos(const QString& type, int to, int from);
    bool replaceData(const QString& type, int pos, const Properties& props);
    void replaceData(const QString& type, int pos, const Node* source);
    void replaceItemDataProperty(const QString& type, const Properties& props);
    bool resetDataItem(const QString& type, int pos);
    void resetAllEffect();

    void applyDataTo(const QString& type, int pos, int applyto);
    void applySomePropertytoOther(const QString& type, int pos, int applyto);

    World& world;
    NodePtr root;
    bool editedByUser = false;
    bool signalsBlocked = false;
    std::set<QString> loadedImages;
    std::vector<Signal> sent;
    NodePtr astray; ///< What delDataItem() took out of a list without deleting it.

private:
    void logged(int line) const { world.log.push_back(line); }
    bool fails(int line) const;
    void send(const Signal& signal);
    void changed(const QString& type, const QString& key, const QVariant& value, int pos);
    bool anyItem(const QString& type, const char* fileKey, bool fromFile) const;
    void storeCatalogueDefaults(Node* item, const QString& type, bool withFactors) const;
    void layOverDefaults(Node* item, const QString& type);
    QVariant presentDefault(const QString& type, const Default& entry) const;
    bool subItemsAreDefault(const Node* typeNode, const EffectType& type) const;
    QSize paint(bool honourIgnore);
    bool asksForProcessing(const Node* node) const;
    void layOverWatermark(Node* item, const Properties& saved, bool direct) const;
};

} // namespace reference
