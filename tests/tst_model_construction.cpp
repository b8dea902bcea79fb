// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Registering a table of effect types, building the tree of a model, its first values, copies and edit flags.

#include <climits>
#include <cmath>
#include <memory>

#include <QImage>
#include <QPointer>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "modeltest.h"

namespace {

using Node = ZoEffectItemData;

const QStringList allTypes = {"Crop",          "Watermark",        "Subtitle",        "Audio",          "Color",
                              "Effect",        "Audio_Fade_Inout", "Audio_Normalize", "Audio_BandPass", "Audio_Chorus",
                              "Audio_Flanger", "Audio_Echo",       "Audio_Speed"};

/// "Größe", in UTF-8.
const char* const size = "Gr\xC3\xB6\xC3\x9F"
                         "e";

/// Registers a table of these types.
void use(std::vector<EffectControlItem> types)
{
    static std::vector<EffectControlItem> table;
    types.push_back(effectType(nullptr, nullptr));
    table = std::move(types);
    ZoEffectModel::InitEffectModel(table.data());
}

const EffectDefaultVal endOfProperties = property(nullptr, 0);
const SubEffectItem endOfSubItems = subItem(nullptr, 0);
const EffectControlItem endOfTypes = effectType(nullptr, nullptr);

const SubEffectItem oneAndTwo[] = {subItem("one", 1), subItem("two", 2), endOfSubItems};

QStringList typesOf(const ZoEffectModel& model)
{
    QStringList names;
    for (int i = 0; i < rootOf(model)->childCount(); ++i)
        names << rootOf(model)->child(i)->name();
    return names;
}

QString treeOf(const ZoEffectModel& model)
{
    return tree(rootOf(model));
}

/// What InitSubItemData() makes of a sub-item with these properties, below a type of its own.
QString subItemWith(const EffectDefaultVal* properties, int id = 7)
{
    const SubEffectItem subItems[] = {subItem("sub", id, properties), endOfSubItems};
    ZoEffectModel model;
    Node node("node");
    model.InitSubItemData(&node, subItems);
    return tree(node.child(0));
}

/// The node of a type after InitZoeffectData().
QString filled(const QString& type, int checkState = 0)
{
    ZoEffectModel model;
    Node node(type);
    node.setCheckState(checkState);
    model.InitZoeffectData(&node);
    return tree(&node);
}

void setFlags(ZoEffectModel& model)
{
    model.addDataItem("Subtitle", {});
    model.replaceItemDataProperty("Subtitle", {});
    rootOf(model)->setData("editbydefault", true);
}

} // namespace

class TstModelConstruction : public ModelTest {
    Q_OBJECT

private slots:
    // --- The table

    void registeringTellsTheStoreAllTypesInOrder()
    {
        QVERIFY(ZoEffectModel::s_EffectItems == hostCatalogue());
        QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), allTypes);
        QCOMPARE(ZoEffectItemDefaultValMgr::s_supportTypes, allTypes);
    }

    // Nested types are left out, equal names kept, and the null name ends the table.
    void registeringAnotherTableReplacesTheTypes()
    {
        const EffectControlItem inner[] = {effectType("Inner", BCSDefaultVal), endOfTypes};
        use({effectType("Color", BCSDefaultVal), effectType("Group", nullptr, nullptr, inner),
             effectType("Color", nullptr), effectType("", nullptr), effectType(size, nullptr), endOfTypes,
             effectType("Crop", nullptr)});
        const QStringList types{"Color", "Group", "Color", "", QString::fromUtf8(size)};
        QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), types);
        const ZoEffectModel model;
        QCOMPARE(typesOf(model), types);
        QCOMPARE(typesOf(ZoEffectModel(QStringList{"Color"})), QStringList({"Color", "Color"}));
        QCOMPARE(typesOf(ZoEffectModel(QStringList{"Inner"})), QStringList());
        // The record is looked up by name, so that the second node has the properties of the first.
        QCOMPARE(tree(rootOf(model)->child(2)),
                 QString("Color:2{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}[]"));
        QCOMPARE(tree(rootOf(model)->child(1)), QString("Group:2{}[]"));
    }

    void withoutTableModelsHaveNoTypes_data() { addRows<bool>({{"null table", true}, {"empty table", false}}); }

    void withoutTableModelsHaveNoTypes()
    {
        const auto [null] = row<bool>();
        const ZoEffectModel before;
        if (null)
            ZoEffectModel::InitEffectModel(nullptr);
        else
            use({});
        QCOMPARE(logcapture::takeEvents(), null ? QList<int>{25} : QList<int>{});
        QCOMPARE(ZoEffectModel::s_EffectItems == nullptr, null);
        QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), allTypes);
        QCOMPARE(typesOf(before), allTypes);

        ZoEffectModel model;
        model.createItems({});
        model.createItems({"Crop"});
        QCOMPARE(typesOf(model), QStringList());
        QCOMPARE(typesOf(ZoEffectModel(QStringList{"Crop"})), QStringList());
    }

    // --- The tree

    void typeNodesAreSelectedAndPlain()
    {
        const ZoEffectModel model;
        QCOMPARE(treeOf(model).left(16), QString("effect root:2{}["));
        QCOMPARE(rootOf(model)->objectName(), QString("effect root"));
        QVERIFY(!rootOf(model)->parent());
        QVERIFY(!rootOf(model)->internalData());
        QCOMPARE(model.baseSize(), QSize(0, 0));
        QCOMPARE(typesOf(model), allTypes);
        for (int i = 0; i < allTypes.size(); ++i) {
            const Node* node = rootOf(model)->child(i);
            QCOMPARE(node->objectName(), allTypes.at(i));
            QCOMPARE(node->parent(), rootOf(model));
            QCOMPARE(node->checkState(), 2);
            QVERIFY(!node->internalData());
            QCOMPARE(node->childCount(), node->name() == "Effect" ? 4 : 0);
        }
    }

    void typeNodesHoldTheirDefaults_data()
    {
        addRows<QString, QString>({
            {"crop", "Crop",
             "crop_aspectratio: string Original Ratio, crop_height: string source_val, crop_keepaspectratio: bool "
             "true, crop_left: int 0, crop_minheight: int 24, crop_minwidth: int 24, crop_top: int 0, crop_width: "
             "string source_val"},
            {"effect", "Effect", ""},
            {"speed", "Audio_Speed", "audio_effect_flag: bool false, audio_speed_factor: int 100"},
        });
    }

    void typeNodesHoldTheirDefaults()
    {
        const auto [type, properties] = row<QString, QString>();
        const ZoEffectModel model;
        QCOMPARE(described(model.findDataItem(type, -1)->properties()), "{" + properties + "}");
    }

    void listSelectsTypes_data()
    {
        addRows<QStringList, QStringList>({
            {"empty", {}, allTypes},
            {"order of the catalogue", {"Audio_Speed", "Watermark", "Crop"}, {"Crop", "Watermark", "Audio_Speed"}},
            {"named twice", {"Crop", "Crop"}, {"Crop"}},
            {"unknown name alone", {"Blue Screen"}, {}},
            {"unknown name among others", {"Blue Screen", "Crop"}, {"Crop"}},
            {"other letter case", {"WATERMARK", "Crop"}, {"Crop"}},
            {"part of a name", {"Audio_", " Crop", ""}, {}},
            {"beginning of other names", {"Audio"}, {"Audio"}},
            {"names of a sub-item and of the root", {"Blur", "effect root"}, {}},
        });
    }

    void listSelectsTypes()
    {
        const auto [list, types] = row<QStringList, QStringList>();
        const ZoEffectModel model(list);
        QCOMPARE(typesOf(model), types);
        if (list.isEmpty())
            QCOMPARE(treeOf(model), treeOf(ZoEffectModel()));
    }

    void namesBeyondAsciiAreBuilt()
    {
        const EffectDefaultVal properties[] = {::property("h\xC3\xB6he", 1), endOfProperties};
        const SubEffectItem subItems[] = {subItem("\xE5\xAD\x97", 5, properties), endOfSubItems};
        use({effectType(size, properties, subItems)});
        QCOMPARE(treeOf(ZoEffectModel(QStringList{QString::fromUtf8(size)})),
                 QString::fromUtf8("effect root:2{}[Gr\xC3\xB6\xC3\x9F"
                                   "e:2{h\xC3\xB6he: int 1}[\xE5\xAD\x97:2{h\xC3\xB6he: int 1, id: int 5}[]]]"));
    }

    void anyTypeCanHaveSubItems()
    {
        use({effectType("Crop", AudioDefaultVal, oneAndTwo), effectType("Bare", nullptr, oneAndTwo)});
        QCOMPARE(treeOf(ZoEffectModel()),
                 QString("effect root:2{}[Crop:2{play_loop: bool false}[one:2{id: int 1}[] two:2{id: int 2}[]] "
                         "Bare:2{}[one:2{id: int 1}[] two:2{id: int 2}[]]]"));
    }

    void checkStateOfATypeIsAnOrdinaryProperty()
    {
        for (const QVariant& value : {QVariant(false), QVariant(true), QVariant(0)}) {
            const EffectDefaultVal properties[] = {::property("_checkstate", value), endOfProperties};
            use({effectType("Type", properties)});
            QCOMPARE(treeOf(ZoEffectModel()),
                     QString("effect root:2{}[Type:2{_checkstate: %1}[]]").arg(described(value)));
        }
    }

    void lastOfTwoEqualKeysIsStored()
    {
        const EffectDefaultVal properties[] = {::property("key", 1), ::property("key", "two"), endOfProperties};
        use({effectType("Type", properties)});
        QCOMPARE(treeOf(ZoEffectModel()), QString("effect root:2{}[Type:2{key: string two}[]]"));
    }

    void defaultsComeFromTheFirstRecordOfThatName()
    {
        // A nested "Color" stands before the one at the top: its properties are found, the top one's sub-items built.
        const SubEffectItem nestedSubItems[] = {subItem("nested sub", 2), endOfSubItems};
        const EffectControlItem inner[] = {effectType("Color", AudioDefaultVal, nestedSubItems), endOfTypes};
        use({effectType("Group", nullptr, nullptr, inner), effectType("Color", BCSDefaultVal, oneAndTwo)});
        QCOMPARE(treeOf(ZoEffectModel()),
                 QString("effect root:2{}[Group:2{}[] Color:2{play_loop: bool false}[one:2{id: "
                         "int 1}[] two:2{id: int 2}[]]]"));
    }

    void createItemsAppendsWhatTheTableInUseHas()
    {
        ZoEffectModel model(QStringList{"Color"});
        SignalRecorder recorded(model);
        const Node* first = rootOf(model)->child(0);
        model.createItems({"Effect", "Color"});
        QCOMPARE(typesOf(model), QStringList({"Color", "Color", "Effect"}));
        use({effectType("New", AudioDefaultVal), effectType("Color", nullptr)});
        model.createItems({});
        QCOMPARE(typesOf(model), QStringList({"Color", "Color", "Effect", "New", "Color"}));
        QCOMPARE(rootOf(model)->child(0), first);
        QCOMPARE(first->properties().size(), 3);
        QCOMPARE(tree(rootOf(model)->child(3)), QString("New:2{play_loop: bool false}[]"));
        QCOMPARE(tree(rootOf(model)->child(4)), QString("Color:2{}[]"));
        QCOMPARE(recorded.take(), QStringList());
    }

    void constructorsTakeAnObjectParentAndTellNothing()
    {
        QCOMPARE(ZoEffectModel().parent(), nullptr);
        QCOMPARE(ZoEffectModel(QStringList{"Crop"}).parent(), nullptr);
        QCOMPARE(ZoEffectModel("Crop", {}).parent(), nullptr);
        auto parent = std::make_unique<QObject>();
        const QPointer<ZoEffectModel> all = new ZoEffectModel(parent.get());
        const QPointer<ZoEffectModel> listed = new ZoEffectModel(QStringList{"Crop"}, parent.get());
        const QPointer<ZoEffectModel> single = new ZoEffectModel("Crop", {{"a", 1}}, parent.get());
        SignalRecorder recorded(*all);
        const ZoEffectModel copy(*all);
        QCOMPARE(copy.parent(), nullptr);
        for (const auto& model : {all, listed, single})
            QCOMPARE(model->parent(), parent.get());
        QCOMPARE(typesOf(*all), allTypes);
        QCOMPARE(typesOf(*listed), QStringList{"Crop"});
        QCOMPARE(typesOf(*single), QStringList{"Crop"});
        QCOMPARE(parent->children().size(), 3);
        QCOMPARE(recorded.take(), QStringList());
        QCOMPARE(TestApplication::instance()->pref.takeWrites(), QStringList());

        const QPointer<Node> type = all->findDataItem("Effect", -1);
        const QPointer<Node> item = all->findDataItem("Effect", 3);
        QVERIFY(item);
        parent.reset();
        QVERIFY(!all && !listed && !single && !type && !item);
    }

    // --- Sub-items

    void subItemsAreOffWhenTheirCheckStateIs()
    {
        const ZoEffectModel model;
        const EffectControlItem* record = ZoEffectModel::findOriItem("Effect", hostCatalogue());
        const Node* effect = model.findDataItem("Effect", -1);
        QCOMPARE(tree(effect), QString("Effect:2{}[Blur:0{id: int 11}[] Sharpen:0{id: int 12}[] "
                                       "Mirror:0{id: int 13}[] Sepia:0{id: int 14}[]]"));
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(effect->child(i)->parent(), effect);
            QCOMPARE(effect->child(i)->objectName(), effect->child(i)->name());
            QVERIFY(effect->child(i)->internalData() == &record->subItems[i]);
            QVERIFY(ZoEffectModel(model).findDataItem("Effect", i)->internalData() == &record->subItems[i]);
        }
    }

    void subItemCheckStateFromValue_data()
    {
        addRows<QVariant, int>({
            {"true", true, 2},
            {"false", false, 0},
            {"invalid", QVariant(), 0},
            {"one", 1, 2},
            {"minus one", -1, 2},
            {"fraction that rounds to zero", 0.3, 0},
            {"no number", std::nan(""), 0},
            {"text 0", "0", 0},
            {"text FALSE", "FALSE", 0},
            {"text no", "no", 2},
            {"color", QColor(Qt::white), 0},
        });
    }

    void subItemCheckStateFromValue()
    {
        const auto [value, state] = row<QVariant, int>();
        const EffectDefaultVal properties[] = {::property("before", 1), ::property("_checkstate", value),
                                               ::property("after", 2), endOfProperties};
        QCOMPARE(subItemWith(properties), QString("sub:%1{after: int 2, before: int 1, id: int 7}[]").arg(state));

        // The model that is made of given properties reads the value in the same way.
        QCOMPARE(treeOf(ZoEffectModel("Type", {{"_checkstate", value}, {"a", 1}})),
                 QString("effect root:2{}[Type:%1{a: int 1}[]]").arg(state));
    }

    void subItemProperties()
    {
        const EffectDefaultVal otherCase[] = {::property("_CheckState", false), ::property("checkstate", false),
                                              endOfProperties};
        QCOMPARE(subItemWith(otherCase),
                 QString("sub:2{_CheckState: bool false, checkstate: bool false, id: int 7}[]"));
        const EffectDefaultVal none[] = {endOfProperties, ::property("beyond", 1), endOfProperties};
        QCOMPARE(subItemWith(none, 0), QString("sub:2{id: int 0}[]"));
        QCOMPARE(subItemWith(nullptr, INT_MIN), QString("sub:2{id: int -2147483648}[]"));
        const EffectDefaultVal ownId[] = {::property("id", "own"), ::property("key", 1), ::property("key", 2),
                                          endOfProperties};
        QCOMPARE(subItemWith(ownId), QString("sub:2{id: string own, key: int 2}[]"));
    }

    void subItemsAreAppended()
    {
        const SubEffectItem one[] = {subItem("one", 1), subItem(nullptr, 2), subItem("beyond", 3), endOfSubItems};
        ZoEffectModel model;
        SignalRecorder recorded(model);
        model.InitSubItemData(model.findDataItem("Effect", -1), one);
        QCOMPARE(childNames(model.findDataItem("Effect", -1)), QString("Blur Sharpen Mirror Sepia one"));

        // Any node will do, one outside the model too.
        Node free("free");
        free.setCheckState(0);
        model.InitSubItemData(&free, &endOfSubItems);
        model.InitSubItemData(&free, oneAndTwo);
        model.InitSubItemData(&free, one);
        QCOMPARE(tree(&free), QString("free:0{}[one:2{id: int 1}[] two:2{id: int 2}[] one:2{id: int 1}[]]"));
        QCOMPARE(free.child(2)->parent(), &free);
        QCOMPARE(recorded.take(), QStringList());
    }

    void missingSubItemsAreLogged()
    {
        ZoEffectModel model;
        SignalRecorder recorded(model);
        const QString before = treeOf(model);
        model.InitSubItemData(nullptr, oneAndTwo);
        QCOMPARE(logcapture::takeEvents(), QList<int>{422});
        model.InitSubItemData(model.findDataItem("Crop", -1), nullptr);
        QCOMPARE(logcapture::takeEvents(), QList<int>{422});
        model.InitSubItemData(nullptr, nullptr);
        QCOMPARE(logcapture::takeEvents(), QList<int>{422});
        QCOMPARE(treeOf(model), before);
        QCOMPARE(recorded.take(), QStringList());
    }

    // --- Filling a node

    void fillingGivesDefaultsAndSelects()
    {
        ZoEffectModel model;
        SignalRecorder recorded(model);
        const QString before = treeOf(model);
        model.InitZoeffectData(nullptr);
        QCOMPARE(treeOf(model), before);

        int host = 0;
        Node* effect = model.findDataItem("Effect", -1);
        Node* color = model.findDataItem("Color", -1);
        effect->child(0)->setCheckState(2); // Children are left alone.
        color->setCheckState(1);
        color->setData("bcs_contrast", "text");
        color->delData("bcs_saturation");
        color->setData("own", 1);
        color->setInternalData(&host);
        model.InitZoeffectData(color);
        model.InitZoeffectData(effect);
        QCOMPARE(tree(color),
                 QString("Color:2{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0, own: int 1}[]"));
        QCOMPARE(color->internalData(), static_cast<void*>(&host));
        QCOMPARE(tree(effect), QString("Effect:2{}[Blur:2{id: int 11}[] Sharpen:0{id: int 12}[] Mirror:0{id: int 13}[] "
                                       "Sepia:0{id: int 14}[]]"));
        QCOMPARE(recorded.take(), QStringList());
    }

    void fillingFindsTheTypeByItsExactName()
    {
        const EffectControlItem inner[] = {effectType("Inner", AudioDefaultVal), endOfTypes};
        use({effectType("Group", BCSDefaultVal, nullptr, inner)});
        QCOMPARE(filled("Inner"), QString("Inner:2{play_loop: bool false}[]"));
        QCOMPARE(filled("inner"), QString("inner:2{}[]"));
        QCOMPARE(filled("Inner ", 1), QString("Inner :2{}[]"));
        Node shown("Unknown");
        shown.setObjectName("Inner");
        ZoEffectModel().InitZoeffectData(&shown);
        QCOMPARE(tree(&shown), QString("Unknown:2{}[]"));
    }

    void fillingAnUnknownTypeTakesTheCustomDefaultAlone()
    {
        ZoEffectModel model;
        saveCustomDefault("Unknown", {{"a", 1}, {"_checkstate", false}});
        Node node("Unknown");
        model.InitZoeffectData(&node);
        QCOMPARE(tree(&node), QString("Unknown:2{_checkstate: bool false, a: int 1}[]"));
        QVERIFY(model.editByDefault());
    }

    // --- Custom defaults

    void customDefaultsAreLaidOver_data()
    {
        addRows<QString, Properties, QString, QString, bool>({
            {"crop keeps the catalogue's", "Crop", Properties{{"crop_left", 7}}, "crop_left", "int 0", false},
            {"watermark keeps the catalogue's", "Watermark", Properties{{"wm_transparency", 7}}, "wm_transparency",
             "int 0", false},
            {"watermark takes no new key", "Watermark", Properties{{"own", 7}}, "own", "invalid", false},
            {"subtitle takes the transparency", "Subtitle", Properties{{"sub_transparency", 4}}, "sub_transparency",
             "int 4", false},
            {"subtitle takes no font size", "Subtitle", Properties{{"sub_fontsize", 30}}, "sub_fontsize", "int 22",
             false},
            {"audio", "Audio", Properties{{"play_loop", true}}, "play_loop", "bool true", true},
            {"color keeps what is not saved", "Color", Properties{{"own", -20}}, "bcs_brightness", "int 0", true},
            {"color takes a new key", "Color", Properties{{"own", 1.5}}, "own", "double 1.5", true},
            {"color takes another type of value", "Color", Properties{{"bcs_contrast", "12"}}, "bcs_contrast",
             "string 12", true},
            {"color takes an invalid value", "Color", Properties{{"bcs_contrast", QVariant()}}, "bcs_contrast",
             "invalid", true},
            {"empty custom default", "Color", {}, "bcs_contrast", "int 0", false},
            {"check state stays a property", "Color", Properties{{"_checkstate", false}}, "_checkstate", "bool false",
             true},
            {"effect", "Effect", Properties{{"own", 7}}, "own", "int 7", true},
            {"echo", "Audio_Echo", Properties{{"audio_echo_decay", 9}}, "audio_echo_decay", "int 9", true},
        });
    }

    void customDefaultsAreLaidOver()
    {
        const auto [type, saved, key, value, edited] = row<QString, Properties, QString, QString, bool>();
        saveCustomDefault(type, saved);
        saveCustomDefault("color", {{"bcs_contrast", 1}}); // Of types that no model has.
        saveCustomDefault("Blur", {{"own", 1}});
        ZoEffectModel model;
        QCOMPARE(described(model.findDataItem(type, -1)->data(key)), value);
        QCOMPARE(model.findDataItem(type, -1)->checkState(), 2);
        QCOMPARE(model.data("own", "Effect", 0), QVariant());
        QCOMPARE(typesOf(model), allTypes);
        QCOMPARE(described(ZoEffectModel(QStringList{type}).findDataItem(type, -1)->data(key)), value);

        QCOMPARE(model.editByDefault(), edited);
        QCOMPARE(described(rootOf(model)->properties()), QString(edited ? "{editbydefault: bool true}" : "{}"));
        model.resetEditByDefaultFlag();
        QVERIFY(!model.editByDefault());

        // Only types that the model has count, and the model of a single type takes none.
        QVERIFY(!ZoEffectModel(QStringList{"Crop"}).editByDefault());
        QCOMPARE(treeOf(ZoEffectModel(type, {})), QString("effect root:2{}[%1:2{}[]]").arg(type));
    }

    void customOrderIsOnlyForTheTypeEffect()
    {
        use({effectType("Frames", nullptr, oneAndTwo), effectType("effect", nullptr, oneAndTwo)});
        saveCustomDefault("Effect", {{"Effect", "two|false|one|true"}});
        saveCustomDefault("Frames", {{"Effect", "two|false|one|true"}});
        const ZoEffectModel model;
        QCOMPARE(childNames(model.findDataItem("Frames", -1)), QString("one two"));
        QCOMPARE(model.findDataItem("Frames", 1)->checkState(), 2);
        QCOMPARE(childNames(model.findDataItem("effect", -1)), QString("one two"));
    }

    // --- The model of a single type

    void singleTypeModelHoldsThePropertiesAlone_data()
    {
        addRows<QString, Properties, QString>({
            {"check state and a property", "Watermark", Properties{{"_checkstate", false}, {"a", 1}},
             "[Watermark:0{a: int 1}[]]"},
            {"unknown type", "Unknown", Properties{{"b", 2.5}, {"a", QVariant()}},
             "[Unknown:2{a: invalid, b: double 2.5}[]]"},
            {"empty type", "", Properties{{"a", 1}}, "[:2{a: int 1}[]]"},
            {"effect has no sub-items", "Effect", Properties{{"Effect", "Blur|true"}},
             "[Effect:2{Effect: string Blur|true}[]]"},
            {"other case of the check state", "Color", Properties{{"_Checkstate", false}},
             "[Color:2{_Checkstate: bool false}[]]"},
            {"keys of the root", "Color", Properties{{"w", 640}, {"h", 480}, {"editbydefault", true}},
             "[Color:2{editbydefault: bool true, h: int 480, w: int 640}[]]"},
        });
    }

    void singleTypeModelHoldsThePropertiesAlone()
    {
        const auto [type, properties, expected] = row<QString, Properties, QString>();
        ZoEffectModel model(type, properties);
        QCOMPARE(treeOf(model), "effect root:2{}" + expected);
        QCOMPARE(rootOf(model)->child(0)->parent(), rootOf(model));
        QCOMPARE(rootOf(model)->child(0)->objectName(), type);
        QVERIFY(!model.editByUser());
        QVERIFY(!model.editByDefault());
        QCOMPARE(model.baseSize(), QSize(0, 0));

        ZoEffectModel::InitEffectModel(nullptr); // It needs no table.
        QCOMPARE(logcapture::takeEvents(), QList<int>{25});
        QCOMPARE(treeOf(ZoEffectModel(type, properties)), "effect root:2{}" + expected);
    }

    // The lookup finds the root itself, so that nothing is created.
    void singleTypeModelNamedAsTheRootFillsTheRoot()
    {
        const ZoEffectModel model("effect root",
                                  {{"w", 640}, {"h", 480}, {"editbydefault", true}, {"_checkstate", false}});
        QCOMPARE(treeOf(model), QString("effect root:0{editbydefault: bool true, h: int 480, w: int 640}[]"));
        QCOMPARE(model.baseSize(), QSize(640, 480));
        QVERIFY(ZoEffectModel(model).editByDefault());
    }

    // --- Copies

    void copiesHaveAnEqualTreeOfTheirOwn()
    {
        auto source = std::make_unique<ZoEffectModel>();
        source->setVideoSize(640, 480);
        source->setData("crop_left", 12, "Crop", -1);
        source->setData("_checkstate", true, "Effect", 2);
        source->addDataItem("Watermark", {{"wm_textcontent", "text"}});
        setFlags(*source);
        const QString expected = treeOf(*source);

        ZoEffectModel target(QStringList{"Color", "Watermark"});
        target.addDataItem("Watermark", {});
        const Node* root = rootOf(target);
        const QPointer<Node> oldItem = target.findDataItem("Watermark", 0);
        QObject parent;
        target.setParent(&parent);
        SignalRecorder fromSource(*source);
        SignalRecorder fromTarget(target);
        QCOMPARE(&(target = *source), &target);
        ZoEffectModel copy(*source);
        QCOMPARE(fromSource.take() + fromTarget.take(), QStringList());
        QVERIFY(!oldItem);
        QCOMPARE(rootOf(target), root);
        QCOMPARE(target.parent(), &parent);
        target.setParent(nullptr);

        for (ZoEffectModel* model : {&target, &copy}) {
            QCOMPARE(treeOf(*model), expected);
            QCOMPARE(model->baseSize(), QSize(640, 480));
            QVERIFY(model->editByUser());
            QVERIFY(model->editByDefault());
            QVERIFY(!rootOf(*model)->parent());
            for (int i = 0; i < rootOf(*model)->childCount(); ++i) {
                QVERIFY(rootOf(*model)->child(i) != rootOf(*source)->child(i));
                QCOMPARE(rootOf(*model)->child(i)->parent(), rootOf(*model));
            }
            QVERIFY(model->findDataItem("Watermark", 0) != source->findDataItem("Watermark", 0));
        }

        // What is done to one stays there.
        copy.setData("crop_left", 5, "Crop", -1);
        copy.setVideoSize(320, 240);
        copy.addDataItem("Watermark", {});
        QCOMPARE(treeOf(*source), expected);
        source.reset();
        QCOMPARE(treeOf(target), expected);

        // Who listened to the target still does, and flags are taken over when they are off, too.
        target.setData("crop_left", 6, "Crop", -1);
        QCOMPARE(fromTarget.take(), QStringList{"effectDataChanged(Crop, crop_left, int 6, -1)"});
        target = ZoEffectModel(QStringList{"Color"});
        QCOMPARE(typesOf(target), QStringList{"Color"});
        QVERIFY(!target.editByUser());
        QVERIFY(!target.editByDefault());
        QCOMPARE(target.baseSize(), QSize(0, 0));
    }

    void copyWithParentIsEmpty()
    {
        QObject parent;
        ZoEffectModel source;
        source.setVideoSize(640, 480);
        setFlags(source);
        const QString before = treeOf(source);
        for (QObject* given : {&parent, static_cast<QObject*>(nullptr)}) {
            const std::unique_ptr<ZoEffectModel> copy(new ZoEffectModel(source, given));
            QCOMPARE(copy->parent(), given);
            QCOMPARE(treeOf(*copy), QString("effect root:2{}[]"));
            QCOMPARE(copy->baseSize(), QSize(0, 0));
            QVERIFY(!copy->editByUser());
            QVERIFY(!copy->editByDefault());
        }
        QCOMPARE(treeOf(source), before);
    }

    void assignmentToItselfDoesNothing()
    {
        ZoEffectModel model;
        const QPointer<Node> crop = model.findDataItem("Crop", -1);
        const QString before = treeOf(model);
        const ZoEffectModel& same = model;
        model = same;
        QVERIFY(crop);
        QCOMPARE(model.findDataItem("Crop", -1), crop.data());
        QCOMPARE(treeOf(model), before);
    }

    // The target keeps what it loaded, and gets nothing of what the source loaded.
    void assignmentLeavesImagesAlone()
    {
        const QTemporaryDir folder;
        QImage image(4, 3, QImage::Format_ARGB32);
        image.fill(Qt::red);
        const QString path = folder.filePath("image.png");
        const QString other = folder.filePath("other.png");
        QVERIFY(image.save(path));
        QVERIFY(image.copy(0, 0, 2, 2).save(other));
        ZoEffectModel source;
        ZoEffectModel target;
        QPixmap* ofSource = source.getImage(path, nullptr);
        QPixmap* ofTarget = target.getImage(other, nullptr);
        QVERIFY(QFile::remove(path));
        QVERIFY(QFile::remove(other));

        target = source;

        QCOMPARE(target.getImage(other, nullptr), ofTarget);
        QCOMPARE(ofTarget->size(), QSize(2, 2));
        QCOMPARE(source.getImage(path, nullptr), ofSource);
        QCOMPARE(ofSource->size(), QSize(4, 3));
        QCOMPARE(logcapture::takeEvents(), QList<int>());
        QVERIFY(target.getImage(path, nullptr)->isNull());
        QVERIFY(ZoEffectModel(source).getImage(path, nullptr)->isNull());
        QCOMPARE(logcapture::takeEvents(), QList<int>({1178, 1178}));
    }

    // --- Edit flags

    void editByUserIsFalseAtFirst()
    {
        ZoEffectModel model;
        model.setData("crop_left", 5, "Crop", -1);
        model.addDataItem("Subtitle", {});
        QVERIFY(!model.editByUser());
        QVERIFY(!model.editByDefault());
        model.replaceItemDataProperty("Subtitle", {});
        QVERIFY(model.editByUser());
        model.resetEditByDefaultFlag();
        QVERIFY(model.editByUser());
        model.resetAllEffect();
        QVERIFY(!model.editByUser());
    }

    void editByDefaultReadsTheRoot()
    {
        ZoEffectModel model;
        SignalRecorder recorded(model);
        for (const QVariant& value : {QVariant(true), QVariant("no"), QVariant(0.5)}) {
            rootOf(model)->setData("editbydefault", value);
            QVERIFY(model.editByDefault());
            model.resetEditByDefaultFlag();
            QCOMPARE(described(rootOf(model)->properties()), QString("{editbydefault: bool false}"));
        }
        for (const QVariant& value : {QVariant("false"), QVariant(), QVariant(0.3), QVariant(std::nan(""))}) {
            rootOf(model)->setData("editbydefault", value);
            QVERIFY(!model.editByDefault());
        }
        QVERIFY(!model.editByUser());
        QCOMPARE(recorded.take(), QStringList());
    }
};

ZOEFFECT_TEST_MAIN(TstModelConstruction)
#include "tst_model_construction.moc"
