// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <cmath>
#include <functional>
#include <limits>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "hostile.h"
#include "hostilevalues.h"
#include "logcapture.h"
#include "testapplication.h"

namespace {

using Properties = QMap<QString, QVariant>;
using Int = std::numeric_limits<int>;

/// Processor time that one value under one key may cost in all operations of a test together.
constexpr double mostMilliseconds = 250.0;
/// Of all keys, each value meets every so many; with ZOEFFECT_HOSTILE_ALL in the environment each.
constexpr int keyStride = hostile::slowness == 1 ? 13 : 41;

// --- Keys ---------------------------------------------------------------------------------------------------

struct Address {
    QString type;
    QString key;
};

void addKeys(QVector<Address>& keys, const char* type, std::initializer_list<const char*> names)
{
    for (const char* name : names)
        keys.append({QString::fromUtf8(type), QString::fromUtf8(name)});
}

/// Every key that means something to some operation, under every type to which it does.
QVector<Address> knownKeys()
{
    QVector<Address> keys;
    for (const EffectControlItem* type = hostCatalogue(); type->name; ++type) {
        for (const EffectDefaultVal* entry = type->properties; entry && entry->key; ++entry)
            keys.append({QString::fromUtf8(type->name), QString::fromUtf8(entry->key)});
        addKeys(keys, type->name, {"_checkstate", "w", "h"});
    }
    addKeys(keys, "Crop", {"player_map_flag", "crop_rotation_angle"});
    addKeys(keys, "Watermark",
            {"wm_istextwatermark", "wm_ingnore", "wm_imageurl", "wm_imageformat", "wm_imagewidth", "wm_imageheight",
             "wm_textcontent"});
    addKeys(keys, "Subtitle", {"sub_fromfile", "trackid", "dvdsubtitleposeditbyuser", "sub_vposfactor"});
    addKeys(keys, "Audio", {"audio_isfile", "trackid", "_playmeineffect"});
    addKeys(keys, "Effect", {"crop_rotation_angle", "crop_rotation_action", "id", "Effect", "editbydefault"});
    return keys;
}

/// Keys that mean nothing.
QStringList unknownKeys()
{
    return {QString(""),
            QString(32768, QLatin1Char('k')),
            QString(QChar(0)),
            QString("wm_hposition") + QChar(0),
            QStringLiteral("%n%s%08x"),
            QStringLiteral("|"),
            QString(QChar(0xd800)),
            QString(QChar(0xdc00)) + QChar(0xd800),
            QStringLiteral("__proto__"),
            QStringLiteral("WM_HPOSITION"),
            QStringLiteral("item_add"),
            QStringLiteral("../../etc/passwd")};
}

QVector<Address> allKeys()
{
    QVector<Address> keys = knownKeys();
    const QStringList unknown = unknownKeys();
    for (const QString& key : unknown) {
        for (const char* type : {"Crop", "Watermark", "Subtitle", "Audio", "Color", "Effect", "Audio_Echo"})
            keys.append({QString::fromUtf8(type), key});
    }
    return keys;
}

/// The keys that value \a index meets in this run.
QVector<Address> keysFor(int index)
{
    const QVector<Address> all = allKeys();
    if (qEnvironmentVariableIsSet("ZOEFFECT_HOSTILE_ALL"))
        return all;
    QVector<Address> some;
    for (int i = index % keyStride; i < all.size(); i += keyStride)
        some.append(all.at(i));
    return some;
}

// --- What a tree holds --------------------------------------------------------------------------------------

/// All that a host can see of a tree, to the last bit.
class Snapshot {
public:
    explicit Snapshot(const ZoEffectItemData& node) { add(node, QString()); }

    /// Where \a after differs, as "place: key", "place: state" and "place: node".
    QStringList changesTo(const Snapshot& after) const
    {
        QStringList changes;
        for (auto it = m_nodes.cbegin(); it != m_nodes.cend(); ++it) {
            const auto other = after.m_nodes.constFind(it.key());
            if (other == after.m_nodes.cend())
                changes << it.key() + ": node";
            else
                compare(it.key(), it.value(), other.value(), changes);
        }
        for (auto it = after.m_nodes.cbegin(); it != after.m_nodes.cend(); ++it) {
            if (!m_nodes.contains(it.key()))
                changes << it.key() + ": node";
        }
        return changes;
    }

private:
    struct Node {
        QString name;
        Properties properties;
        int state;
        void* data;
    };

    // NOLINTNEXTLINE(misc-no-recursion): three levels.
    void add(const ZoEffectItemData& node, const QString& place)
    {
        m_nodes.insert(place, {node.name(), node.properties(), node.checkState(), node.internalData()});
        for (int row = 0; row < node.childCount(); ++row)
            add(*node.child(row), place + '/' + QString::number(row));
    }

    static void compare(const QString& place, const Node& before, const Node& after, QStringList& changes)
    {
        if (before.name != after.name || before.data != after.data)
            changes << place + ": node";
        if (before.state != after.state)
            changes << place + ": state";
        QStringList keys = before.properties.keys();
        keys += after.properties.keys();
        keys.removeDuplicates();
        for (const QString& key : std::as_const(keys)) {
            if (before.properties.contains(key) != after.properties.contains(key)
                || !identical(before.properties.value(key), after.properties.value(key)))
                changes << place + ": " + key;
        }
    }

    QMap<QString, Node> m_nodes;
};

struct Sent {
    QString type;
    QString key;
    QVariant value;
    int pos;
};

/// A model of one type with one item, and what happens to it.
class Watched {
public:
    explicit Watched(const QString& type)
        : model(QStringList{type}), root(*model.getDataItem("effect root", -1)), typeNode(*root.child(0))
    {
        typeNode.clear();
        item = new ZoEffectItemData(QString(), &typeNode);
        QObject::connect(
            &model,
            QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
            &model, [this](const QString& sentType, const QString& key, const QVariant& value, int pos) {
                sent.append({sentType, key, value, pos});
            });
    }

    Snapshot snapshot() const { return Snapshot(root); }

    ZoEffectModel model;
    ZoEffectItemData& root;
    ZoEffectItemData& typeNode;
    ZoEffectItemData* item;
    QVector<Sent> sent;
};

const QVariant& other()
{
    static const QVariant value = QVariant::fromValue(HostSmall{77});
    return value;
}

/// Where \a key is kept: "_checkstate" is no property where a property map or the model is written.
QString placeOf(const QString& key)
{
    return key == "_checkstate" ? QStringLiteral("state") : key;
}

#define CHECK(condition)                                                                                               \
    do {                                                                                                               \
        if (!(condition))                                                                                              \
            return QStringLiteral(#condition);                                                                         \
    } while (false)

/// Whether exactly \a expected changed between the two; else it is told what did.
QString differenceFrom(QStringList expected, const Snapshot& before, const Snapshot& after)
{
    QStringList changed = before.changesTo(after);
    changed.sort();
    expected.sort();
    return changed == expected ? QString()
                               : QStringLiteral("changed \"%1\", not \"%2\"")
                                     .arg(changed.join(", ").left(400), expected.join(", ").left(400));
}

#define CHECK_CHANGES(before, after, expected)                                                                         \
    do {                                                                                                               \
        const QString difference = differenceFrom(expected, before, after);                                            \
        if (!difference.isEmpty())                                                                                     \
            return QStringLiteral("line %1 %2").arg(__LINE__).arg(difference);                                         \
    } while (false)

// --- Operations on one value under one key: each answers what went wrong -------------------------------------

using Operation = QString (*)(const Address&, const QVariant& value, bool truth);

QString throughTheNode(const Address& at, const QVariant& value, bool /*truth*/)
{
    Watched watched(at.type);
    watched.item->setData(at.key, other());
    const Snapshot before = watched.snapshot();
    watched.item->setData(at.key, value);
    CHECK(identical(watched.item->data(at.key), value));
    CHECK(watched.item->hasData(at.key));
    CHECK_CHANGES(before, watched.snapshot(), QStringList("/0/0: " + at.key));

    const ZoEffectItemData copy(*watched.item);
    CHECK(identical(copy.data(at.key), value));
    watched.item->delData(at.key);
    CHECK(!watched.item->hasData(at.key));
    CHECK(identical(watched.item->data(at.key), at.key == "trackid" ? QVariant(-1) : QVariant()));
    CHECK(identical(copy.data(at.key), value));
    CHECK(watched.sent.isEmpty());
    return {};
}

QString throughTheModel(const Address& at, const QVariant& value, bool truth)
{
    for (const int pos : {-1, 0}) {
        Watched watched(at.type);
        ZoEffectItemData& node = pos == -1 ? watched.typeNode : *watched.item;
        const bool isState = at.key == "_checkstate";
        // A state of 1 differs from both that can be set, a value of the host's type from every other.
        node.setCheckState(isState ? 1 : 2);
        if (!isState)
            node.setData(at.key, other());
        const Snapshot before = watched.snapshot();
        CHECK(watched.model.setData(at.key, value, at.type, pos));

        const QString place = pos == -1 ? QStringLiteral("/0: ") : QStringLiteral("/0/0: ");
        QStringList changed{place + placeOf(at.key)};
        const bool isPosition = at.type == "Subtitle" && at.key == "sub_vposition";
        if (isPosition)
            changed << place + "dvdsubtitleposeditbyuser";
        CHECK_CHANGES(before, watched.snapshot(), changed);
        CHECK(watched.sent.size() == 1);
        CHECK(watched.sent.first().type == at.type && watched.sent.first().key == at.key);
        CHECK(watched.sent.first().pos == pos && identical(watched.sent.first().value, value));
        const QVariant now = watched.model.data(at.key, at.type, pos);
        CHECK(identical(now, isState ? QVariant(truth ? 2 : 0) : value));
        if (isPosition)
            CHECK(identical(node.data("dvdsubtitleposeditbyuser"), true));

        const ZoEffectModel copy(watched.model);
        CHECK_CHANGES(watched.snapshot(), Snapshot(*copy.getDataItem("effect root", -1)), QStringList());
        ZoEffectModel assigned;
        assigned = watched.model;
        CHECK_CHANGES(watched.snapshot(), Snapshot(*assigned.getDataItem("effect root", -1)), QStringList());
    }
    return {};
}

/// Whether an item whose properties \a given were applied holds the value, or the state for it.
bool holds(const ZoEffectItemData& item, const Address& at, const QVariant& value, bool truth)
{
    return at.key == "_checkstate" ? item.checkState() == (truth ? 2 : 0) && !item.hasData(at.key)
                                   : identical(item.data(at.key), value);
}

QString inNewItems(const Address& at, const QVariant& value, bool truth)
{
    Watched watched(at.type);
    delete watched.typeNode.takeAt(0);
    watched.model.setVideoSize(640, 480);
    const Snapshot before = watched.snapshot();
    CHECK(watched.model.insertDataItem(at.type, {{at.key, value}}, -1));
    CHECK(holds(*watched.typeNode.child(0), at, value, truth));
    CHECK_CHANGES(before, watched.snapshot(), QStringList("/0/0: node"));
    CHECK(watched.sent.size() == 1 && watched.sent.first().key == "item_add" && watched.sent.first().pos == 0);
    CHECK(!watched.sent.first().value.isValid());

    CHECK(watched.model.delDataItem(at.type, 0));
    CHECK_CHANGES(before, watched.snapshot(), QStringList());
    CHECK(watched.model.addDataItemEx(at.type, {{at.key, value}}, true));
    CHECK(holds(*watched.typeNode.child(0), at, value, truth));
    CHECK(watched.sent.size() == 3 && watched.sent.last().key == "item_add");

    watched.typeNode.setCheckState(1);
    CHECK(watched.model.addDataItemEx(at.type, {{at.key, value}}, false));
    CHECK(holds(watched.typeNode, at, value, truth));
    CHECK(watched.sent.size() == 3);

    const ZoEffectModel single(at.type, {{at.key, value}});
    CHECK(holds(*single.getDataItem(at.type, -1), at, value, truth));
    CHECK(single.getDataItem(at.type, -1)->properties().size() == (at.key == "_checkstate" ? 0 : 1));
    return {};
}

QString inReplacedItems(const Address& at, const QVariant& value, bool truth)
{
    Watched watched(at.type);
    CHECK(watched.model.replaceData(at.type, 0, Properties{{at.key, value}}));
    CHECK(holds(*watched.item, at, value, truth));
    CHECK(watched.sent.size() == 1 && watched.sent.first().key == "reset" && watched.sent.first().pos == 0);

    // What is not of the catalogue stays when the item is replaced again.
    ZoEffectItemData& item = *watched.item;
    const QVariant before = item.data(at.key);
    CHECK(watched.model.replaceData(at.type, 0, Properties()));
    const EffectControlItem* record = ZoEffectModel::findOriItem(at.type, hostCatalogue());
    bool isOfTheCatalogue =
        at.key == "dvdsubtitleposeditbyuser" || at.key == "wm_hposition" || at.key == "wm_vposition";
    for (const EffectDefaultVal* entry = record->properties; entry && entry->key; ++entry)
        isOfTheCatalogue = isOfTheCatalogue || at.key == QString::fromUtf8(entry->key);
    CHECK(isOfTheCatalogue || identical(item.data(at.key), before));

    ZoEffectItemData source("source");
    source.setData(at.key, value);
    const Snapshot sourceBefore(source);
    watched.model.replaceData(at.type, 0, &source);
    CHECK(identical(item.data(at.key), value));
    CHECK(item.properties().size() == 1 && item.name() == "source");
    CHECK_CHANGES(sourceBefore, Snapshot(source), QStringList());
    CHECK(watched.sent.size() == 3 && watched.sent.last().key == "reset");

    CHECK(watched.model.resetDataItem(at.type, 7));
    CHECK(watched.sent.size() == 4 && watched.sent.last().pos == 7);
    return {};
}

QString inSelections(const Address& at, const QVariant& value, bool /*truth*/)
{
    Watched watched(at.type);
    watched.item->setData(at.key, other());
    ZoEffectItemData* second = new ZoEffectItemData(QString(), &watched.typeNode);
    second->setData(at.key, value);
    const bool equals = watched.model.haveSameItem(at.type, at.key, value);
    CHECK(watched.model.getItemIndexByKeyValue(at.type, at.key, value) == (equals ? 1 : -1));
    watched.model.selectItemByKey(at.type, at.key, value);
    CHECK(watched.item->checkState() == 0 && second->checkState() == (equals ? 2 : 0));
    watched.model.selectItemByKeyEx(at.type, at.key, {});
    CHECK(watched.item->checkState() == 0 && second->checkState() == 0);
    watched.model.selectItemByKey(at.type, at.key, other());
    CHECK(second->checkState() == 0);
    CHECK(identical(second->data(at.key), value));
    watched.model.selectOnlyOneItem(at.type);
    CHECK(watched.sent.isEmpty());
    return {};
}

QString inQuestions(const Address& at, const QVariant& value, bool /*truth*/)
{
    Watched watched(at.type);
    watched.model.setVideoSize(640, 480);
    for (ZoEffectItemData* node : {&watched.root, &watched.typeNode, watched.item})
        node->setData(at.key, value);
    const Snapshot before = watched.snapshot();
    const ZoEffectModel& model = watched.model;
    model.hasRealEffect();
    model.SingleDataIsDefault(at.type, at.key, 0);
    model.SingleDataIsDefault(at.type, at.key, -1);
    model.dataIsDefault(at.type);
    model.FrameEffectIsDefault();
    model.isCroped(1, 1);
    model.cropData();
    model.baseSize();
    model.data(at.key, at.type, 0);
    model.data("sub_vposition", at.type, -1);
    model.editByDefault();
    model.getEmbededSutitleID();
    model.getEmbededAudioID();
    model.useCustomSubtitle();
    model.useEmbededSubtitle();
    model.useCustomAudio();
    model.useEmbededAudio();
    model.getValidAudioEffectItem();
    if (at.type == "Effect")
        CHECK(identical(model.getCurrentFrameEffects().value("Effect"), QStringLiteral("|true")));
    CHECK_CHANGES(before, watched.snapshot(), QStringList());
    CHECK(watched.sent.isEmpty());
    return {};
}

QString inHandedSettings(const Address& at, const QVariant& value, bool truth)
{
    Watched watched(at.type);
    watched.item->setData("sub_fromfile", true);
    watched.item->setData(at.key, value);
    const Snapshot before = watched.snapshot();
    int handed = 0;
    QObject::connect(
        &watched.model, &ZoEffectModel::applyItemDataTo, &watched.model,
        [&](ZoEffectItemData* node, const QString&, int, int) { handed += node == watched.item ? 1 : 100; });
    QVector<Properties> styles;
    QObject::connect(&watched.model, &ZoEffectModel::applyItemDataSomePropertyTo, &watched.model,
                     [&](const Properties& style, const QString&, int, int) { styles.append(style); });
    watched.model.applyDataTo(at.type, 0, Int::min());
    CHECK(handed == 1);
    watched.model.applySomePropertytoOther(at.type, 0, Int::max());

    static const QStringList styleKeys{"sub_fontname", "sub_fontcolor",    "sub_fontstyle", "sub_linemargin",
                                       "sub_fontsize", "sub_transparency", "sub_vposition"};
    const bool isStyle = at.type == "Subtitle" && styleKeys.contains(at.key) && value.isValid();
    CHECK(styles.size() == (isStyle ? 1 : 0));
    if (isStyle) {
        CHECK(styles.first().size() == 2 && identical(styles.first().value(at.key), value));
        CHECK(identical(styles.first().value("h"), 0));
    }
    CHECK(watched.sent.size() == (isStyle && (at.key != "sub_fromfile" || truth) ? 1 : 0));
    CHECK_CHANGES(before, watched.snapshot(), QStringList()); // What is spread over its own item is what it holds.
    return {};
}

QString inTheStore(const Address& at, const QVariant& value, bool /*truth*/)
{
    ZoEffectItemDefaultValMgr& store = *ZoEffectItemDefaultValMgr::getInstance();
    Watched watched(at.type);
    watched.item->setData("wm_istextwatermark", true);
    watched.item->setData("sub_fromfile", true);
    const Properties unlike = watched.item->properties();
    store.saveAsCustomDefaultVal(at.type, {{at.key, value}});
    CHECK(identical(store.getCustomDefaultVal(at.type, at.key), value));
    CHECK(identical(ZoEffectModel::customDefaultVal(at.key, at.type), value));
    CHECK(identical(TestApplication::instance()->pref.entries.value(at.type).toMap().value(at.key), value));
    if (value.isValid())
        CHECK(identical(ZoEffectModel::defaultValue(at.key, at.type), value));

    const bool isFactor = at.key == "wm_hposfactor" || at.key == "wm_vposfactor";
    watched.model.getCustomDefaultVal(watched.item, at.type, false);
    if (at.type == "Watermark" && isFactor)
        CHECK(watched.item->properties() == unlike);
    else
        CHECK(identical(watched.item->data(at.key), value));

    // With both factors, the place is theirs, whole numbers whatever the factors are.
    store.saveAsCustomDefaultVal("Watermark", {{"wm_hposfactor", value}, {"wm_vposfactor", value}});
    ZoEffectModel model(QStringList{"Watermark"});
    for (const int size : {0, -5, 1, 640, Int::max(), Int::min()}) {
        model.setVideoSize(size, size);
        CHECK(model.addDataItem("Watermark", {}));
        CHECK(model.data("wm_hposition", "Watermark", 0).userType() == QMetaType::Int);
        CHECK(model.delDataItem("Watermark", 0));
    }
    store.removeCustomDefaultVal(at.type);
    store.removeCustomDefaultVal("Watermark");

    // What is saved from an item is what the item holds.
    static const QStringList saved{"wm_transparency", "wm_fontname",      "wm_fontcolor", "wm_fontstyle",
                                   "wm_fontsize",     "sub_transparency", "sub_fontname", "sub_fontcolor",
                                   "sub_fontstyle",   "sub_linemargin",   "sub_fontsize", "bcs_brightness",
                                   "bcs_contrast",    "bcs_saturation"};
    if (saved.contains(at.key)) {
        ZoEffectItemData& node = at.type == "Color" ? watched.typeNode : *watched.item;
        node.setData(at.key, value);
        watched.model.saveAsCustomDefault(at.type, 0);
        CHECK(identical(store.getCustomDefaultVal(at.type, at.key), value));
        store.removeCustomDefaultVal(at.type);
    }
    return {};
}

/// The whole part of \a value times newLength / oldLength, kept in the range of int.
int scaledWhole(int value, int newLength, int oldLength)
{
    const double scaled = value * (double(newLength) / oldLength);
    return scaled >= Int::max() ? Int::max() : scaled <= Int::min() ? Int::min() : static_cast<int>(scaled);
}

bool isNoProperty(const QString& key)
{
    return key == "w" || key == "h";
}

/// Rescales from and to extreme sizes: of the geometry whole numbers come out, all else stays.
QString rescaled(const Address& at, const QVariant& value, bool /*truth*/)
{
    static const QStringList geometry{"wm_hposition",   "wm_vposition",  "wm_fontsize", "wm_imagewidth",
                                      "wm_imageheight", "crop_left",     "crop_top",    "crop_width",
                                      "crop_height",    "sub_vposition", "sub_fontsize"};
    static const int lengths[] = {0, -7, 1, 640, Int::max(), Int::min()};
    for (const int from : lengths) {
        for (const int to : lengths) {
            Watched watched(at.type);
            watched.item->setData(at.key, value);
            watched.typeNode.setData(at.key, value);
            watched.model.setVideoSize(from, from);
            const Snapshot before = watched.snapshot();
            watched.model.adjustEffectInfo(to, to);
            const QStringList changed = before.changesTo(watched.snapshot());
            for (const QString& change : changed) {
                const QString key = change.section(": ", 1);
                const bool isBase = change == ": w" || change == ": h";
                if (!isBase && !(from != 0 && to != 0 && geometry.contains(key)))
                    return QStringLiteral("rescaling changed \"%1\"").arg(change);
                if (!isBase) {
                    const ZoEffectItemData& node = change.startsWith("/0/0") ? *watched.item : watched.typeNode;
                    CHECK(node.data(key).userType() == QMetaType::Int);
                }
            }
            CHECK(watched.model.baseSize() == QSize(to, to));
            CHECK(isNoProperty(at.key) || from != to || changed.isEmpty());
            CHECK(watched.sent.isEmpty());
        }
    }
    return {};
}

QString placed(const Address& at, const QVariant& value, bool /*truth*/)
{
    if (at.type != "Watermark")
        return {};
    for (const int size : {0, -7, 1, 640, Int::max(), Int::min()}) {
        for (const bool onTheOther : {false, true}) {
            Watched watched(at.type);
            watched.model.setVideoSize(size, size);
            auto* newItem = new ZoEffectItemData(QString(), &watched.typeNode);
            (onTheOther ? watched.item : newItem)->setData(at.key, value);
            const Snapshot before = watched.snapshot();
            watched.model.adjustWatermarkPos(newItem);
            const QStringList changed = before.changesTo(watched.snapshot());
            for (const QString& change : changed) {
                const QString key = change.section(": ", 1);
                CHECK(change.startsWith("/0/1: ") && (key == "wm_hposition" || key == "wm_vposition"));
                CHECK(newItem->data(key).userType() == QMetaType::Int);
            }
            CHECK(watched.sent.isEmpty());
        }
    }
    return {};
}

QString rendered(const Address& at, const QVariant& value, bool /*truth*/)
{
    if (at.type != "Watermark")
        return {};
    for (const bool isText : {false, true}) {
        Watched watched(at.type);
        watched.model.setVideoSize(64, 48);
        watched.item->setData("wm_istextwatermark", isText);
        watched.item->setData("wm_textcontent", "Abc");
        watched.item->setData("wm_imageurl", "/missing.png");
        watched.item->setData(at.key, value);
        const Snapshot before = watched.snapshot();
        const QPixmap picture = watched.model.getWatermark(64, 48, false);
        CHECK(picture.isNull() || picture.size() == QSize(64, 48));
        const QStringList changed = before.changesTo(watched.snapshot());
        for (const QString& change : changed)
            CHECK(change == "/0/0: wm_imagewidth" || change == "/0/0: wm_imageheight");
        CHECK(watched.sent.size() >= changed.size() && watched.sent.size() <= 2);
        for (const Sent& signal : std::as_const(watched.sent))
            CHECK(signal.type == "Watermark" && signal.pos == 0 && signal.value.userType() == QMetaType::Int);
        const Snapshot between = watched.snapshot();
        const QPixmap scaled = watched.model.getWatermark(32, 24, true);
        CHECK(scaled.isNull() || scaled.size() == QSize(32, 24));
        CHECK_CHANGES(between, watched.snapshot(), QStringList());
        CHECK(watched.sent.size() <= 2);
    }
    return {};
}

} // namespace

Q_DECLARE_METATYPE(Operation)

/// Hostile values under every key, through every operation.
class TstHostileValues : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void throughTheNode_data() { addRows(::throughTheNode); }
    void throughTheNode() { run(); }
    void throughTheModel_data() { addRows(::throughTheModel); }
    void throughTheModel() { run(); }
    void inNewItems_data() { addRows(::inNewItems); }
    void inNewItems() { run(); }
    void inReplacedItems_data() { addRows(::inReplacedItems); }
    void inReplacedItems() { run(); }
    void inSelections_data() { addRows(::inSelections); }
    void inSelections() { run(); }
    void inQuestions_data() { addRows(::inQuestions); }
    void inQuestions() { run(); }
    void inHandedSettings_data() { addRows(::inHandedSettings); }
    void inHandedSettings() { run(); }
    void inTheStore_data() { addRows(::inTheStore); }
    void inTheStore() { run(); }
    void rescaled_data() { addRows(::rescaled); }
    void rescaled() { run(); }
    void placed_data() { addRows(::placed); }
    void placed() { run(); }
    void rendered_data() { addRows(::rendered); }
    void rendered() { run(); }

    void everyWholeNumberIsScaled();
    void hugeValues_data();
    void hugeValues();

private:
    static void addRows(Operation operation);
    static void run();
};

void TstHostileValues::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstHostileValues::cleanup()
{
    // Pictures under paths that are none fail with their entry; nothing else is logged.
    const QList<int> events = logcapture::takeEvents();
    QCOMPARE(events.count(1178), events.size());
    forgetCustomDefaults();
}

void TstHostileValues::addRows(Operation operation)
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<int>("index");
    for (int i = 0; i < hostileValues().size(); ++i)
        QTest::newRow(hostileValues().at(i).name) << operation << i;
}

void TstHostileValues::run()
{
    QFETCH(const Operation, operation);
    QFETCH(const int, index);
    const HostileValue& hostile = hostileValues().at(index);

    const QVector<Address> keys = keysFor(index);
    for (const Address& at : keys) {
        const hostile::Stopwatch stopwatch;
        const QString fault = operation(at, hostile.value, hostile.truth);
        const double milliseconds = stopwatch.milliseconds();
        const QString where = QStringLiteral("%1, key \"%2\": ").arg(at.type, at.key.left(100));
        QVERIFY2(fault.isEmpty(), qPrintable(where + fault));
        QVERIFY2(milliseconds < mostMilliseconds * hostile::slowness,
                 qPrintable(where + QStringLiteral("%1 ms").arg(milliseconds)));
    }
}

// The products against those of another calculation.
void TstHostileValues::everyWholeNumberIsScaled()
{
    static const int lengths[] = {-7, 1, 2, 3, 640, 1920, Int::max(), Int::min()};
    for (const HostileValue& hostile : hostileValues()) {
        for (const int from : lengths) {
            for (const int to : lengths) {
                ZoEffectModel model(QStringList{"Watermark"});
                auto* item = new ZoEffectItemData(QString(), model.getDataItem("Watermark", -1));
                item->setData("wm_hposition", hostile.value);
                model.setVideoSize(from, from);
                model.adjustEffectInfo(to, to);
                const QVariant expected = from == to ? hostile.value : QVariant(scaledWhole(hostile.whole, to, from));
                QVERIFY2(identical(item->data("wm_hposition"), expected), hostile.name);
            }
        }
    }
}

void TstHostileValues::hugeValues_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < ::hugeValues().size(); ++i)
        QTest::newRow(::hugeValues().at(i).name) << i;
}

// Each of these is walked over at most a few times, however large it is.
void TstHostileValues::hugeValues()
{
    QFETCH(const int, index);
    const HugeValue& huge = ::hugeValues().at(index);
    constexpr double mostForHuge = 3000.0;

    const hostile::Stopwatch stopwatch;
    const QVector<Address> addresses{{"Crop", "crop_left"}, {"Watermark", "wm_fontcolor"}, {"Audio", "unknown"}};
    for (const Address& at : addresses) {
        for (const Operation operation : {::throughTheNode, ::throughTheModel, ::inNewItems, ::inReplacedItems,
                                          ::inSelections, ::inHandedSettings}) {
            const QString fault = operation(at, huge.value, true);
            QVERIFY2(fault.isEmpty(), qPrintable(at.type + ", " + at.key + ": " + fault));
        }
    }
    ZoEffectModel model(QStringList{"Crop"});
    model.setVideoSize(640, 480);
    model.getDataItem("Crop", -1)->setData("crop_width", huge.value);
    model.getDataItem("Crop", -1)->setData("crop_height", huge.value);
    QVERIFY(!model.isCroped(0, 0));
    QVERIFY(!model.hasRealEffect());
    const double milliseconds = stopwatch.milliseconds();
    QVERIFY2(milliseconds < mostForHuge * hostile::slowness, qPrintable(QString::number(milliseconds)));
}

ZOEFFECT_TEST_MAIN(TstHostileValues)
#include "tst_hostile_values.moc"
