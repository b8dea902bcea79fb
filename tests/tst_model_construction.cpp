// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Registering a table of effect types, building the tree of a model, its first values, copies and edit flags.

#include <cmath>
#include <memory>

#include <QImage>
#include <QPointer>
#include <QtTest>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using Node = ZoEffectItemData;
using Properties = QMap<QString, QVariant>;

const QStringList allTypes = {"Crop",          "Watermark",        "Subtitle",        "Audio",          "Color",
                              "Effect",        "Audio_Fade_Inout", "Audio_Normalize", "Audio_BandPass", "Audio_Chorus",
                              "Audio_Flanger", "Audio_Echo",       "Audio_Speed"};

Node* rootOf(const ZoEffectModel& model)
{
    return model.findDataItem(QStringLiteral("effect root"), -1);
}

QStringList childNames(const Node* node)
{
    QStringList names;
    for (int i = 0; node && i < node->childCount(); ++i)
        names << node->child(i)->name();
    return names;
}

QStringList typesOf(const ZoEffectModel& model)
{
    return childNames(rootOf(model));
}

/// "name {properties} state(children)", for comparing whole trees.
QString treeText(const Node* node)
{
    QStringList children;
    for (int i = 0; i < node->childCount(); ++i)
        children << treeText(node->child(i));
    return node->name() + QLatin1Char(' ') + described(node->properties()) + QLatin1Char(' ')
           + QString::number(node->checkState()) + QLatin1Char('(') + children.join(QStringLiteral(", "))
           + QLatin1Char(')');
}

void saveCustomDefault(const QString& type, const Properties& values)
{
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(type, values);
}

QList<int> checkStates(const Node* node)
{
    QList<int> states;
    for (int i = 0; node && i < node->childCount(); ++i)
        states << node->child(i)->checkState();
    return states;
}

} // namespace

class TstModelConstruction : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void registeringKeepsThePointer();
    void registeringTellsTheStoreAllTypesInOrder();
    void registeringLeavesNestedTypesOut();
    void registeringKeepsEqualNames();
    void registeringStopsAtTheNullName();
    void registeringNamesBeyondAscii();
    void registeringAnotherTableReplacesTheTypes();
    void registeringNullIsLoggedAndAccepted();
    void registeringAnEmptyTableTellsTheStoreNothing();
    void withoutTableModelsHaveNoTypes_data();
    void withoutTableModelsHaveNoTypes();
    void builtModelsOutliveAnotherTable();

    void rootIsNamedAndEmpty();
    void typesStandInCatalogueOrder();
    void typeNodesAreSelectedAndPlain_data();
    void typeNodesAreSelectedAndPlain();
    void typeNodesHoldTheirDefaults_data();
    void typeNodesHoldTheirDefaults();
    void listSelectsTypes_data();
    void listSelectsTypes();
    void emptyListGivesTheSameTreeAsNoList();
    void listedEffectHasItsSubItems();
    void nestedTypesAreNotBuilt();
    void equalRecordsAreBuiltTwice();
    void namesBeyondAsciiAreBuilt();
    void typeWithoutAnythingIsAnEmptyNode();
    void anyTypeCanHaveSubItems();
    void checkStateOfATypeIsAnOrdinaryProperty_data();
    void checkStateOfATypeIsAnOrdinaryProperty();
    void lastOfTwoEqualKeysIsStored();
    void defaultsComeFromTheFirstRecordOfThatName();
    void createItemsAppendsAgain();
    void createItemsReadsTheTableInUse();
    void constructorsTakeAnObjectParent();
    void constructorsLogAndSendNothing();

    void subItemsStandInTableOrder();
    void subItemPointsAtItsRecord();
    void subItemsAreOffWhenTheirCheckStateIs();
    void subItemCheckStateFromValue_data();
    void subItemCheckStateFromValue();
    void subItemWithoutCheckStateIsSelected();
    void subItemKeyInOtherCaseIsAProperty();
    void subItemWithoutPropertiesHasItsIdAlone();
    void subItemPropertyMayReplaceTheId();
    void subItemIds_data();
    void subItemIds();
    void subItemsAreAppended();
    void subItemsEndAtTheNullName();
    void subItemsGetNoCustomDefaults();
    void missingSubItemsAreLogged_data();
    void missingSubItemsAreLogged();

    void fillingNullDoesNothing();
    void fillingSelectsTheNode_data();
    void fillingSelectsTheNode();
    void fillingKeepsOtherProperties();
    void fillingReplacesValues();
    void fillingLeavesChildrenAlone();
    void fillingFindsNestedTypes();
    void fillingAnUnknownTypeTakesTheCustomDefaultAlone();
    void fillingMatchesTheNameExactly();

    void customDefaultsAreLaidOver_data();
    void customDefaultsAreLaidOver();
    void customDefaultOfAnotherTypeIsNot();
    void customFrameEffectsAreRestored_data();
    void customFrameEffectsAreRestored();
    void customFrameEffectsOfAListedEffect();
    void customOrderIsOnlyForTheTypeEffect();
    void editByDefaultAfterConstruction_data();
    void editByDefaultAfterConstruction();

    void singleTypeModelHoldsThePropertiesAlone_data();
    void singleTypeModelHoldsThePropertiesAlone();
    void singleTypeModelTakesNoDefaults();
    void singleTypeModelNamedAsTheRootFillsTheRoot();
    void singleTypeModelTakesAnObjectParent();
    void singleTypeModelLeavesTheRootEmpty();

    void copyHasAnEqualTreeOfItsOwn();
    void copyHasNoObjectParent();
    void copyWithParentIsEmpty_data();
    void copyWithParentIsEmpty();
    void copyWithParentTakesNoFlags();
    void assignmentReplacesTheTree();
    void assignmentReturnsTheModel();
    void assignmentKeepsRootAndParent();
    void assignmentTakesSizeAndFlags();
    void assignmentClearsFlagsToo();
    void assignmentSendsNothing();
    void assignmentToItselfDoesNothing();
    void assignmentLeavesImagesAlone();
    void copyAndSourceAreIndependent();
    void copiedSubItemsPointAtTheirRecords();
    void destructionDeletesTheTree();
    void copyOutlivesItsSource();

    void editedByUserIsFalseAtFirst();
    void editByDefaultReadsTheRoot_data();
    void editByDefaultReadsTheRoot();
    void resetEditByDefaultStoresFalse_data();
    void resetEditByDefaultStoresFalse();
};

void TstModelConstruction::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstModelConstruction::cleanup()
{
    forgetCustomDefaults();
}

void TstModelConstruction::registeringKeepsThePointer()
{
    QVERIFY(ZoEffectModel::s_EffectItems == hostCatalogue());

    const EffectControlItem table[] = {effectType("Color", BCSDefaultVal), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    QVERIFY(ZoEffectModel::s_EffectItems == table);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::registeringTellsTheStoreAllTypesInOrder()
{
    QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), allTypes);
    QCOMPARE(ZoEffectItemDefaultValMgr::s_supportTypes, allTypes);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::registeringLeavesNestedTypesOut()
{
    const EffectControlItem inner[] = {effectType("Inner", nullptr), effectType(nullptr, nullptr)};
    const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, inner), effectType("Color", nullptr),
                                       effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), QStringList({"Group", "Color"}));
}

void TstModelConstruction::registeringKeepsEqualNames()
{
    const EffectControlItem table[] = {effectType("Color", nullptr), effectType("Crop", nullptr),
                                       effectType("Color", nullptr), effectType("", nullptr),
                                       effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), QStringList({"Color", "Crop", "Color", ""}));
}

void TstModelConstruction::registeringStopsAtTheNullName()
{
    const EffectControlItem table[] = {effectType("Color", nullptr), effectType(nullptr, nullptr),
                                       effectType("Crop", nullptr), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), QStringList({"Color"}));
    QCOMPARE(typesOf(ZoEffectModel()), QStringList({"Color"}));
}

void TstModelConstruction::registeringNamesBeyondAscii()
{
    const EffectControlItem table[] = {effectType("Gr\xC3\xB6\xC3\x9F"
                                                  "e",
                                                  nullptr),
                                       effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), QStringList({QString::fromUtf8("Gr\xC3\xB6\xC3\x9F"
                                                                                       "e")}));
}

void TstModelConstruction::registeringAnotherTableReplacesTheTypes()
{
    const EffectControlItem table[] = {effectType("Color", BCSDefaultVal), effectType("New", nullptr),
                                       effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), QStringList({"Color", "New"}));
    QCOMPARE(typesOf(ZoEffectModel()), QStringList({"Color", "New"}));
}

void TstModelConstruction::registeringNullIsLoggedAndAccepted()
{
    ZoEffectModel::InitEffectModel(nullptr);

    QCOMPARE(logcapture::takeEvents(), QList<int>{25});
    QVERIFY(!ZoEffectModel::s_EffectItems);
    QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), allTypes);

    ZoEffectModel::InitEffectModel(nullptr);
    QCOMPARE(logcapture::takeEvents(), QList<int>{25});
}

void TstModelConstruction::registeringAnEmptyTableTellsTheStoreNothing()
{
    const EffectControlItem table[] = {effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QVERIFY(ZoEffectModel::s_EffectItems == table);
    QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), allTypes);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::withoutTableModelsHaveNoTypes_data()
{
    QTest::addColumn<bool>("null");

    QTest::newRow("null table") << true;
    QTest::newRow("empty table") << false;
}

void TstModelConstruction::withoutTableModelsHaveNoTypes()
{
    QFETCH(bool, null);
    const EffectControlItem empty[] = {effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(null ? nullptr : empty);
    logcapture::takeEvents();

    ZoEffectModel model;
    const ZoEffectModel listed(QStringList{"Crop"});
    model.createItems({});
    model.createItems({"Crop"});
    QCOMPARE(typesOf(model), QStringList());
    QCOMPARE(typesOf(listed), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());

    QVERIFY(!model.findDataItem("Crop", -1));
    QVERIFY(!model.data("crop_left", "Crop", -1).isValid());
    QVERIFY(!ZoEffectModel::defaultValue("crop_left", "Crop").isValid());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    QVERIFY(!model.setData("crop_left", 1, "Crop", -1));
    QCOMPARE(model.childCount("Crop"), 0);
    QCOMPARE(logcapture::takeEvents(), QList<int>({181, 246}));
}

void TstModelConstruction::builtModelsOutliveAnotherTable()
{
    const ZoEffectModel model;
    const QString before = treeText(rootOf(model));
    ZoEffectModel::InitEffectModel(nullptr);

    QCOMPARE(treeText(rootOf(model)), before);
    QCOMPARE(typesOf(model), allTypes);
}

void TstModelConstruction::rootIsNamedAndEmpty()
{
    const ZoEffectModel model;
    const Node* root = rootOf(model);

    QVERIFY(root);
    QCOMPARE(root->name(), QStringLiteral("effect root"));
    QCOMPARE(root->objectName(), QStringLiteral("effect root"));
    QVERIFY(!root->parent());
    QVERIFY(root->properties().isEmpty());
    QCOMPARE(root->checkState(), 2);
    QVERIFY(!root->internalData());
    QCOMPARE(model.baseSize(), QSize(0, 0));
}

void TstModelConstruction::typesStandInCatalogueOrder()
{
    const ZoEffectModel model;
    QCOMPARE(typesOf(model), allTypes);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::typeNodesAreSelectedAndPlain_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("items");

    for (int i = 0; i < allTypes.size(); ++i)
        QTest::newRow(qPrintable(allTypes.at(i))) << i << (allTypes.at(i) == QLatin1String("Effect") ? 4 : 0);
}

void TstModelConstruction::typeNodesAreSelectedAndPlain()
{
    QFETCH(int, index);
    QFETCH(int, items);
    const ZoEffectModel model;
    const Node* node = rootOf(model)->child(index);

    QCOMPARE(node->name(), allTypes.at(index));
    QCOMPARE(node->objectName(), allTypes.at(index));
    QCOMPARE(node->parent(), rootOf(model));
    QCOMPARE(node->checkState(), 2);
    QVERIFY(!node->internalData());
    QCOMPARE(node->childCount(), items);
}

void TstModelConstruction::typeNodesHoldTheirDefaults_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QStringList>("properties");

    QTest::newRow("crop") << "Crop"
                          << QStringList({"crop_aspectratio: string Original Ratio", "crop_height: string source_val",
                                          "crop_keepaspectratio: bool true", "crop_left: int 0",
                                          "crop_minheight: int 24", "crop_minwidth: int 24", "crop_top: int 0",
                                          "crop_width: string source_val"});
    QTest::newRow("watermark") << "Watermark"
                               << QStringList({"wm_fontcolor: color #ffffffff", "wm_fontname: font Tahoma",
                                               "wm_fontsize: int 22", "wm_fontstyle: string Regular",
                                               "wm_hposfactor: double 0.10000000000000001", "wm_hposition: int 30",
                                               "wm_imagekeepratio: bool true",
                                               "wm_transfactor: double 2.5499999999999998", "wm_transparency: int 0",
                                               "wm_vposfactor: double 0.10000000000000001", "wm_vposition: int 30"});
    QTest::newRow("subtitle") << "Subtitle"
                              << QStringList({"fontstyleusedefault: bool true", "sub_fontcolor: color #ffffffff",
                                              "sub_fontname: font Tahoma", "sub_fontsize: int 22",
                                              "sub_fontstyle: string Regular", "sub_framecolor: color #ff000000",
                                              "sub_hposition: int 200", "sub_linemargin: int 0",
                                              "sub_transfactor: double 2.5499999999999998", "sub_transparency: int 0",
                                              "sub_vposfactor: double 0.80000000000000004", "sub_vposition: int 200"});
    QTest::newRow("audio") << "Audio" << QStringList({"play_loop: bool false"});
    QTest::newRow("color") << "Color"
                           << QStringList({"bcs_brightness: int 0", "bcs_contrast: int 0", "bcs_saturation: int 0"});
    QTest::newRow("effect") << "Effect" << QStringList();
    QTest::newRow("fade") << "Audio_Fade_Inout"
                          << QStringList({"audio_effect_flag: bool false", "audio_fade_in: int 3",
                                          "audio_fade_in_enable: bool false", "audio_fade_out: int 3",
                                          "audio_fade_out_enable: bool true"});
    QTest::newRow("normalize") << "Audio_Normalize"
                               << QStringList({"audio_effect_flag: bool false", "audio_normalize_maxLevel: int 98"});
    QTest::newRow("band pass") << "Audio_BandPass"
                               << QStringList({"audio_bandpass_requency: int 1000", "audio_bandpass_steepness: int 50",
                                               "audio_bandpass_type: int 2", "audio_effect_flag: bool false"});
    QTest::newRow("chorus") << "Audio_Chorus"
                            << QStringList({"audio_chorus_decay: int 50", "audio_chorus_delay: int 50",
                                            "audio_chorus_gainin: int 50", "audio_chorus_gainout: int 50",
                                            "audio_effect_flag: bool false"});
    QTest::newRow("flanger") << "Audio_Flanger"
                             << QStringList({"audio_effect_flag: bool false", "audio_flanger_decay: int 50",
                                             "audio_flanger_delay: int 3", "audio_flanger_gainin: int 50",
                                             "audio_flanger_gainout: int 50", "audio_flanger_speed: int 50"});
    QTest::newRow("echo") << "Audio_Echo"
                          << QStringList({"audio_echo_decay: int 500", "audio_echo_delay: int 50",
                                          "audio_echo_gainin: int 50", "audio_echo_gainout: int 50",
                                          "audio_effect_flag: bool false"});
    QTest::newRow("speed") << "Audio_Speed"
                           << QStringList({"audio_effect_flag: bool false", "audio_speed_factor: int 100"});
}

void TstModelConstruction::typeNodesHoldTheirDefaults()
{
    QFETCH(QString, type);
    QFETCH(QStringList, properties);
    const ZoEffectModel model;

    QCOMPARE(described(model.findDataItem(type, -1)->properties()),
             QLatin1Char('{') + properties.join(QStringLiteral(", ")) + QLatin1Char('}'));
}

void TstModelConstruction::listSelectsTypes_data()
{
    QTest::addColumn<QStringList>("list");
    QTest::addColumn<QStringList>("types");

    QTest::newRow("empty") << QStringList() << allTypes;
    QTest::newRow("one") << QStringList({"Color"}) << QStringList({"Color"});
    QTest::newRow("order of the catalogue") << QStringList({"Watermark", "Crop"}) << QStringList({"Crop", "Watermark"});
    QTest::newRow("from both ends") << QStringList({"Audio_Speed", "Subtitle", "Crop"})
                                    << QStringList({"Crop", "Subtitle", "Audio_Speed"});
    QTest::newRow("named twice") << QStringList({"Crop", "Crop"}) << QStringList({"Crop"});
    QTest::newRow("unknown name alone") << QStringList({"Blue Screen"}) << QStringList();
    QTest::newRow("unknown name among others") << QStringList({"Blue Screen", "Crop"}) << QStringList({"Crop"});
    QTest::newRow("lower case") << QStringList({"watermark"}) << QStringList();
    QTest::newRow("upper case") << QStringList({"WATERMARK", "Crop"}) << QStringList({"Crop"});
    QTest::newRow("blank before") << QStringList({" Crop"}) << QStringList();
    QTest::newRow("part of a name") << QStringList({"Audio_"}) << QStringList();
    QTest::newRow("beginning of other names") << QStringList({"Audio"}) << QStringList({"Audio"});
    QTest::newRow("empty name") << QStringList({""}) << QStringList();
    QTest::newRow("name of a sub-item") << QStringList({"Blur"}) << QStringList();
    QTest::newRow("name of the root") << QStringList({"effect root"}) << QStringList();
    QTest::newRow("all backwards") << QStringList({"Audio_Speed", "Audio_Echo", "Audio_Flanger", "Audio_Chorus",
                                                   "Audio_BandPass", "Audio_Normalize", "Audio_Fade_Inout", "Effect",
                                                   "Color", "Audio", "Subtitle", "Watermark", "Crop"})
                                   << allTypes;
}

void TstModelConstruction::listSelectsTypes()
{
    QFETCH(QStringList, list);
    QFETCH(QStringList, types);

    QCOMPARE(typesOf(ZoEffectModel(list)), types);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::emptyListGivesTheSameTreeAsNoList()
{
    const ZoEffectModel plain;
    const ZoEffectModel listed{QStringList()};

    QCOMPARE(treeText(rootOf(listed)), treeText(rootOf(plain)));
    QCOMPARE(typesOf(listed), allTypes);
}

void TstModelConstruction::listedEffectHasItsSubItems()
{
    const ZoEffectModel model(QStringList{"Effect"});
    QCOMPARE(childNames(model.findDataItem("Effect", -1)), QStringList({"Blur", "Sharpen", "Mirror", "Sepia"}));
}

void TstModelConstruction::nestedTypesAreNotBuilt()
{
    const EffectControlItem inner[] = {effectType("Color", BCSDefaultVal), effectType(nullptr, nullptr)};
    const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, inner), effectType("Crop", nullptr),
                                       effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(typesOf(ZoEffectModel()), QStringList({"Group", "Crop"}));
    QCOMPARE(typesOf(ZoEffectModel(QStringList{"Color"})), QStringList());
    QCOMPARE(childNames(ZoEffectModel().findDataItem("Group", -1)), QStringList());
}

void TstModelConstruction::equalRecordsAreBuiltTwice()
{
    const EffectControlItem table[] = {effectType("Color", BCSDefaultVal), effectType("Crop", nullptr),
                                       effectType("Color", nullptr), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    const ZoEffectModel model;
    QCOMPARE(typesOf(model), QStringList({"Color", "Crop", "Color"}));
    QCOMPARE(typesOf(ZoEffectModel(QStringList{"Color"})), QStringList({"Color", "Color"}));
    // The record is looked up by name, so that the second node has the properties of the first.
    QCOMPARE(described(rootOf(model)->child(2)->properties()),
             QStringLiteral("{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}"));
}

void TstModelConstruction::namesBeyondAsciiAreBuilt()
{
    const EffectDefaultVal properties[] = {::property("h\xC3\xB6he", 1), ::property(nullptr, 0)};
    const SubEffectItem subItems[] = {subItem("\xE5\xAD\x97", 5, properties), subItem(nullptr, 0)};
    const EffectControlItem table[] = {effectType("Gr\xC3\xB6\xC3\x9F"
                                                  "e",
                                                  properties, subItems),
                                       effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    const QString type = QString::fromUtf8("Gr\xC3\xB6\xC3\x9F"
                                           "e");

    const ZoEffectModel model(QStringList{type});
    QCOMPARE(typesOf(model), QStringList{type});
    QCOMPARE(model.data(QString::fromUtf8("h\xC3\xB6he"), type, -1), QVariant(1));
    QCOMPARE(childNames(model.findDataItem(type, -1)), QStringList{QString::fromUtf8("\xE5\xAD\x97")});
    QCOMPARE(model.data(QString::fromUtf8("h\xC3\xB6he"), type, 0), QVariant(1));
}

void TstModelConstruction::typeWithoutAnythingIsAnEmptyNode()
{
    const EffectControlItem table[] = {effectType("Bare", nullptr), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    const ZoEffectModel model;
    QCOMPARE(treeText(rootOf(model)), QStringLiteral("effect root {} 2(Bare {} 2())"));
}

void TstModelConstruction::anyTypeCanHaveSubItems()
{
    const SubEffectItem subItems[] = {subItem("one", 1), subItem("two", 2), subItem(nullptr, 0)};
    const EffectControlItem table[] = {effectType("Crop", AudioDefaultVal, subItems),
                                       effectType("Bare", nullptr, subItems), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(
        treeText(rootOf(ZoEffectModel())),
        QStringLiteral("effect root {} 2(Crop {play_loop: bool false} 2(one {id: int 1} 2(), two {id: int 2} 2()), "
                       "Bare {} 2(one {id: int 1} 2(), two {id: int 2} 2()))"));
}

void TstModelConstruction::checkStateOfATypeIsAnOrdinaryProperty_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("stored");

    QTest::newRow("false") << QVariant(false) << "{_checkstate: bool false}";
    QTest::newRow("true") << QVariant(true) << "{_checkstate: bool true}";
    QTest::newRow("zero") << QVariant(0) << "{_checkstate: int 0}";
}

void TstModelConstruction::checkStateOfATypeIsAnOrdinaryProperty()
{
    QFETCH(QVariant, value);
    QFETCH(QString, stored);
    const EffectDefaultVal properties[] = {::property("_checkstate", value), ::property(nullptr, 0)};
    const EffectControlItem table[] = {effectType("Type", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    const ZoEffectModel model;
    QCOMPARE(described(model.findDataItem("Type", -1)->properties()), stored);
    QCOMPARE(model.findDataItem("Type", -1)->checkState(), 2);
}

void TstModelConstruction::lastOfTwoEqualKeysIsStored()
{
    const EffectDefaultVal properties[] = {::property("key", 1), ::property("key", QStringLiteral("two")),
                                           ::property(nullptr, 0)};
    const EffectControlItem table[] = {effectType("Type", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(described(ZoEffectModel().findDataItem("Type", -1)->properties()), QStringLiteral("{key: string two}"));
}

void TstModelConstruction::defaultsComeFromTheFirstRecordOfThatName()
{
    // A nested "Color" stands before the one at the top: its properties are found, the top one's sub-items built.
    const SubEffectItem subItems[] = {subItem("sub", 1), subItem(nullptr, 0)};
    const SubEffectItem nestedSubItems[] = {subItem("nested sub", 2), subItem(nullptr, 0)};
    const EffectControlItem inner[] = {effectType("Color", AudioDefaultVal, nestedSubItems),
                                       effectType(nullptr, nullptr)};
    const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, inner),
                                       effectType("Color", BCSDefaultVal, subItems), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(treeText(rootOf(ZoEffectModel())),
             QStringLiteral("effect root {} 2(Group {} 2(), Color {play_loop: bool false} 2(sub {id: int 1} 2()))"));
}

void TstModelConstruction::createItemsAppendsAgain()
{
    ZoEffectModel model(QStringList{"Crop"});
    SignalRecorder recorded(model);
    const Node* first = rootOf(model)->child(0);

    model.createItems({"Color", "Crop"});

    QCOMPARE(typesOf(model), QStringList({"Crop", "Crop", "Color"}));
    QCOMPARE(rootOf(model)->child(0), first);
    model.createItems({});
    QCOMPARE(typesOf(model), QStringList({"Crop", "Crop", "Color"}) + allTypes);
    QCOMPARE(recorded.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::createItemsReadsTheTableInUse()
{
    ZoEffectModel model(QStringList{"Crop"});
    const EffectControlItem table[] = {effectType("New", AudioDefaultVal), effectType("Crop", nullptr),
                                       effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    model.createItems({});

    QCOMPARE(typesOf(model), QStringList({"Crop", "New", "Crop"}));
    QCOMPARE(rootOf(model)->child(0)->properties().size(), 8);
    QCOMPARE(described(rootOf(model)->child(1)->properties()), QStringLiteral("{play_loop: bool false}"));
    QCOMPARE(described(rootOf(model)->child(2)->properties()), QStringLiteral("{}"));
}

void TstModelConstruction::constructorsTakeAnObjectParent()
{
    QCOMPARE(ZoEffectModel().parent(), nullptr);
    QCOMPARE(ZoEffectModel(QStringList{"Crop"}).parent(), nullptr);

    auto parent = std::make_unique<QObject>();
    const QPointer<ZoEffectModel> all = new ZoEffectModel(parent.get());
    const QPointer<ZoEffectModel> listed = new ZoEffectModel(QStringList{"Crop"}, parent.get());
    QCOMPARE(all->parent(), parent.get());
    QCOMPARE(listed->parent(), parent.get());
    QCOMPARE(typesOf(*all), allTypes);
    QCOMPARE(typesOf(*listed), QStringList{"Crop"});

    parent.reset();
    QVERIFY(!all);
    QVERIFY(!listed);
}

void TstModelConstruction::constructorsLogAndSendNothing()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);
    const ZoEffectModel listed(QStringList{"Effect", "Unknown"});
    const ZoEffectModel single("Crop", {{"crop_left", 5}});
    const ZoEffectModel copy(model);
    const ZoEffectModel empty(model, nullptr);

    QCOMPARE(recorded.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    QCOMPARE(TestApplication::instance()->pref.takeWrites(), QStringList());
}

void TstModelConstruction::subItemsStandInTableOrder()
{
    const ZoEffectModel model;
    const Node* effect = model.findDataItem("Effect", -1);

    QCOMPARE(childNames(effect), QStringList({"Blur", "Sharpen", "Mirror", "Sepia"}));
    for (int i = 0; i < 4; ++i) {
        const Node* item = effect->child(i);
        QCOMPARE(item->parent(), effect);
        QCOMPARE(item->objectName(), item->name());
        QCOMPARE(described(item->properties()), QStringLiteral("{id: int %1}").arg(11 + i));
        QCOMPARE(item->childCount(), 0);
    }
}

void TstModelConstruction::subItemPointsAtItsRecord()
{
    const ZoEffectModel model;
    const EffectControlItem* record = ZoEffectModel::findOriItem("Effect", hostCatalogue());

    for (int i = 0; i < 4; ++i) {
        const void* pointer = model.findDataItem("Effect", i)->internalData();
        QVERIFY(pointer == &record->subItems[i]);
        QCOMPARE(static_cast<const SubEffectItem*>(pointer)->id, 11 + i);
    }
}

void TstModelConstruction::subItemsAreOffWhenTheirCheckStateIs()
{
    const ZoEffectModel model;

    QCOMPARE(checkStates(model.findDataItem("Effect", -1)), QList<int>({0, 0, 0, 0}));
    for (int i = 0; i < 4; ++i)
        QVERIFY(!model.findDataItem("Effect", i)->hasData("_checkstate"));
}

void TstModelConstruction::subItemCheckStateFromValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("state");

    QTest::newRow("true") << QVariant(true) << 2;
    QTest::newRow("false") << QVariant(false) << 0;
    QTest::newRow("invalid") << QVariant() << 0;
    QTest::newRow("zero") << QVariant(0) << 0;
    QTest::newRow("one") << QVariant(1) << 2;
    QTest::newRow("two") << QVariant(2) << 2;
    QTest::newRow("minus one") << QVariant(-1) << 2;
    QTest::newRow("large number") << QVariant(qlonglong(1) << 40) << 2;
    QTest::newRow("fraction that rounds to zero") << QVariant(0.3) << 0;
    QTest::newRow("negative fraction that rounds to zero") << QVariant(-0.3) << 0;
    QTest::newRow("fraction that rounds to one") << QVariant(0.5) << 2;
    QTest::newRow("fraction") << QVariant(2.5) << 2;
    QTest::newRow("zero as double") << QVariant(0.0) << 0;
    QTest::newRow("no number") << QVariant(std::nan("")) << 0;
    QTest::newRow("empty text") << QVariant(QString("")) << 0;
    QTest::newRow("text 0") << QVariant(QStringLiteral("0")) << 0;
    QTest::newRow("text 00") << QVariant(QStringLiteral("00")) << 2;
    QTest::newRow("text 0.0") << QVariant(QStringLiteral("0.0")) << 2;
    QTest::newRow("text false") << QVariant(QStringLiteral("false")) << 0;
    QTest::newRow("text FALSE") << QVariant(QStringLiteral("FALSE")) << 0;
    QTest::newRow("text true") << QVariant(QStringLiteral("true")) << 2;
    QTest::newRow("text no") << QVariant(QStringLiteral("no")) << 2;
    QTest::newRow("blank") << QVariant(QStringLiteral(" ")) << 2;
    QTest::newRow("bytes false") << QVariant(QByteArray("false")) << 0;
    QTest::newRow("bytes x") << QVariant(QByteArray("x")) << 2;
    QTest::newRow("color") << QVariant(QColor(Qt::white)) << 0;
    QTest::newRow("list") << QVariant(QStringList{"a"}) << 0;
    QTest::newRow("map") << QVariant(QVariantMap{{"a", 1}}) << 0;
}

void TstModelConstruction::subItemCheckStateFromValue()
{
    QFETCH(QVariant, value);
    QFETCH(int, state);
    const EffectDefaultVal properties[] = {::property("before", 1), ::property("_checkstate", value),
                                           ::property("after", 2), ::property(nullptr, 0)};
    const SubEffectItem subItems[] = {subItem("sub", 7, properties), subItem(nullptr, 0)};
    ZoEffectModel model(QStringList{"Crop"});

    model.InitSubItemData(model.findDataItem("Crop", -1), subItems);

    const Node* item = model.findDataItem("Crop", 0);
    QVERIFY(item);
    QCOMPARE(item->checkState(), state);
    QCOMPARE(described(item->properties()), QStringLiteral("{after: int 2, before: int 1, id: int 7}"));

    // The model that is made of given properties reads the value in the same way.
    const ZoEffectModel single("Type", {{"_checkstate", value}, {"a", 1}});
    QCOMPARE(single.findDataItem("Type", -1)->checkState(), state);
    QCOMPARE(described(single.findDataItem("Type", -1)->properties()), QStringLiteral("{a: int 1}"));
}

void TstModelConstruction::subItemWithoutCheckStateIsSelected()
{
    const EffectDefaultVal properties[] = {::property("key", 1), ::property(nullptr, 0)};
    const SubEffectItem subItems[] = {subItem("sub", 7, properties), subItem(nullptr, 0)};
    ZoEffectModel model(QStringList{"Crop"});

    model.InitSubItemData(model.findDataItem("Crop", -1), subItems);

    QCOMPARE(model.findDataItem("Crop", 0)->checkState(), 2);
}

void TstModelConstruction::subItemKeyInOtherCaseIsAProperty()
{
    const EffectDefaultVal properties[] = {::property("_CheckState", false), ::property("checkstate", false),
                                           ::property(nullptr, 0)};
    const SubEffectItem subItems[] = {subItem("sub", 7, properties), subItem(nullptr, 0)};
    ZoEffectModel model(QStringList{"Crop"});

    model.InitSubItemData(model.findDataItem("Crop", -1), subItems);

    QCOMPARE(model.findDataItem("Crop", 0)->checkState(), 2);
    QCOMPARE(described(model.findDataItem("Crop", 0)->properties()),
             QStringLiteral("{_CheckState: bool false, checkstate: bool false, id: int 7}"));
}

void TstModelConstruction::subItemWithoutPropertiesHasItsIdAlone()
{
    const EffectDefaultVal none[] = {::property(nullptr, 0), ::property("beyond", 1), ::property(nullptr, 0)};
    const SubEffectItem subItems[] = {subItem("null table", 1, nullptr), subItem("empty table", 2, none),
                                      subItem(nullptr, 0)};
    ZoEffectModel model(QStringList{"Color"});

    model.InitSubItemData(model.findDataItem("Color", -1), subItems);

    QCOMPARE(described(model.findDataItem("Color", 0)->properties()), QStringLiteral("{id: int 1}"));
    QCOMPARE(described(model.findDataItem("Color", 1)->properties()), QStringLiteral("{id: int 2}"));
    QCOMPARE(model.findDataItem("Color", 0)->checkState(), 2);
}

void TstModelConstruction::subItemPropertyMayReplaceTheId()
{
    const EffectDefaultVal properties[] = {::property("id", QStringLiteral("own")), ::property("key", 1),
                                           ::property("key", 2), ::property(nullptr, 0)};
    const SubEffectItem subItems[] = {subItem("sub", 7, properties), subItem(nullptr, 0)};
    ZoEffectModel model(QStringList{"Color"});

    model.InitSubItemData(model.findDataItem("Color", -1), subItems);

    QCOMPARE(described(model.findDataItem("Color", 0)->properties()), QStringLiteral("{id: string own, key: int 2}"));
}

void TstModelConstruction::subItemIds_data()
{
    QTest::addColumn<int>("id");

    QTest::newRow("zero") << 0;
    QTest::newRow("minus one") << -1;
    QTest::newRow("largest") << 2147483647;
    QTest::newRow("smallest") << -2147483647 - 1;
}

void TstModelConstruction::subItemIds()
{
    QFETCH(int, id);
    const SubEffectItem subItems[] = {subItem("sub", id), subItem(nullptr, 0)};
    ZoEffectModel model(QStringList{"Color"});

    model.InitSubItemData(model.findDataItem("Color", -1), subItems);

    QCOMPARE(described(model.findDataItem("Color", 0)->data("id")), QStringLiteral("int %1").arg(id));
}

void TstModelConstruction::subItemsAreAppended()
{
    const SubEffectItem subItems[] = {subItem("one", 1), subItem("two", 2), subItem(nullptr, 0)};
    ZoEffectModel model;
    SignalRecorder recorded(model);

    model.InitSubItemData(model.findDataItem("Effect", -1), subItems);
    QCOMPARE(childNames(model.findDataItem("Effect", -1)),
             QStringList({"Blur", "Sharpen", "Mirror", "Sepia", "one", "two"}));

    // Any node will do, one outside the model too.
    Node free(QStringLiteral("free"));
    free.setCheckState(0);
    model.InitSubItemData(&free, subItems);
    model.InitSubItemData(&free, subItems);
    QCOMPARE(childNames(&free), QStringList({"one", "two", "one", "two"}));
    QCOMPARE(free.child(2)->parent(), &free);
    QCOMPARE(free.checkState(), 0);
    QVERIFY(free.properties().isEmpty());

    QCOMPARE(recorded.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::subItemsEndAtTheNullName()
{
    const SubEffectItem subItems[] = {subItem("one", 1), subItem(nullptr, 2), subItem("beyond", 3),
                                      subItem(nullptr, 0)};
    const SubEffectItem none[] = {subItem(nullptr, 0)};
    ZoEffectModel model(QStringList{"Color"});

    model.InitSubItemData(model.findDataItem("Color", -1), none);
    QCOMPARE(model.childCount("Color"), 0);
    model.InitSubItemData(model.findDataItem("Color", -1), subItems);
    QCOMPARE(childNames(model.findDataItem("Color", -1)), QStringList{"one"});
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::subItemsGetNoCustomDefaults()
{
    saveCustomDefault("Blur", {{"key", 1}});
    saveCustomDefault("Effect", {{"other", 2}});

    const ZoEffectModel model;
    QCOMPARE(described(model.findDataItem("Effect", 0)->properties()), QStringLiteral("{id: int 11}"));
    QCOMPARE(described(model.findDataItem("Effect", -1)->properties()), QStringLiteral("{other: int 2}"));
}

void TstModelConstruction::missingSubItemsAreLogged_data()
{
    QTest::addColumn<bool>("node");
    QTest::addColumn<bool>("table");

    QTest::newRow("no node") << false << true;
    QTest::newRow("no table") << true << false;
    QTest::newRow("neither") << false << false;
}

void TstModelConstruction::missingSubItemsAreLogged()
{
    QFETCH(bool, node);
    QFETCH(bool, table);
    const SubEffectItem subItems[] = {subItem("sub", 1), subItem(nullptr, 0)};
    ZoEffectModel model;
    SignalRecorder recorded(model);
    const QString before = treeText(rootOf(model));

    model.InitSubItemData(node ? model.findDataItem("Crop", -1) : nullptr, table ? subItems : nullptr);

    QCOMPARE(logcapture::takeEvents(), QList<int>{422});
    QCOMPARE(treeText(rootOf(model)), before);
    QCOMPARE(recorded.take(), QStringList());
}

void TstModelConstruction::fillingNullDoesNothing()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);
    const QString before = treeText(rootOf(model));

    model.InitZoeffectData(nullptr);

    QCOMPARE(treeText(rootOf(model)), before);
    QCOMPARE(recorded.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::fillingSelectsTheNode_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("state");

    QTest::newRow("known type, off") << "Color" << 0;
    QTest::newRow("known type, partly") << "Color" << 1;
    QTest::newRow("crop, off") << "Crop" << 0;
    QTest::newRow("type without properties, off") << "Effect" << 0;
    QTest::newRow("unknown type, off") << "Unknown" << 0;
}

void TstModelConstruction::fillingSelectsTheNode()
{
    QFETCH(QString, type);
    QFETCH(int, state);
    ZoEffectModel model;
    Node node(type);
    node.setCheckState(state);

    model.InitZoeffectData(&node);

    QCOMPARE(node.checkState(), 2);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::fillingKeepsOtherProperties()
{
    ZoEffectModel model;
    int host = 0;
    Node node(QStringLiteral("Audio"));
    node.setData("own", 1);
    node.setInternalData(&host);

    model.InitZoeffectData(&node);

    QCOMPARE(described(node.properties()), QStringLiteral("{own: int 1, play_loop: bool false}"));
    QCOMPARE(node.internalData(), static_cast<void*>(&host));
}

void TstModelConstruction::fillingReplacesValues()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);
    model.findDataItem("Color", -1)->setData("bcs_contrast", QStringLiteral("text"));
    model.findDataItem("Color", -1)->delData("bcs_saturation");

    model.InitZoeffectData(model.findDataItem("Color", -1));

    QCOMPARE(described(model.findDataItem("Color", -1)->properties()),
             QStringLiteral("{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}"));
    QCOMPARE(recorded.take(), QStringList());
}

void TstModelConstruction::fillingLeavesChildrenAlone()
{
    ZoEffectModel model;
    Node* effect = model.findDataItem("Effect", -1);
    const Node* first = effect->child(0);
    effect->child(0)->setCheckState(2);

    model.InitZoeffectData(effect);

    QCOMPARE(effect->childCount(), 4);
    QCOMPARE(effect->child(0), first);
    QCOMPARE(checkStates(effect), QList<int>({2, 0, 0, 0}));
}

void TstModelConstruction::fillingFindsNestedTypes()
{
    const EffectControlItem inner[] = {effectType("Inner", AudioDefaultVal), effectType(nullptr, nullptr)};
    const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, inner), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;
    Node node(QStringLiteral("Inner"));

    model.InitZoeffectData(&node);

    QCOMPARE(described(node.properties()), QStringLiteral("{play_loop: bool false}"));
}

void TstModelConstruction::fillingAnUnknownTypeTakesTheCustomDefaultAlone()
{
    ZoEffectModel model;
    Node plain(QStringLiteral("Unknown"));
    model.InitZoeffectData(&plain);
    QVERIFY(plain.properties().isEmpty());
    QVERIFY(!model.editByDefault());

    saveCustomDefault("Unknown", {{"a", 1}, {"_checkstate", false}});
    Node node(QStringLiteral("Unknown"));
    model.InitZoeffectData(&node);
    QCOMPARE(described(node.properties()), QStringLiteral("{_checkstate: bool false, a: int 1}"));
    QCOMPARE(node.checkState(), 2);
    QVERIFY(model.editByDefault());
}

void TstModelConstruction::fillingMatchesTheNameExactly()
{
    ZoEffectModel model;
    Node lower(QStringLiteral("color"));
    Node longer(QStringLiteral("Color "));
    Node shown(QStringLiteral("Unknown"));
    shown.setObjectName(QStringLiteral("Color"));

    model.InitZoeffectData(&lower);
    model.InitZoeffectData(&longer);
    model.InitZoeffectData(&shown);

    QVERIFY(lower.properties().isEmpty());
    QVERIFY(longer.properties().isEmpty());
    QVERIFY(shown.properties().isEmpty());
}

void TstModelConstruction::customDefaultsAreLaidOver_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("saved");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");

    const auto row = [](const char* name, const char* type, const Properties& saved, const char* key,
                        const char* value) {
        QTest::newRow(name) << QString::fromLatin1(type) << saved << QString::fromLatin1(key)
                            << QString::fromLatin1(value);
    };
    row("crop keeps the catalogue's", "Crop", {{"crop_left", 7}}, "crop_left", "int 0");
    row("crop takes no new key", "Crop", {{"own", 7}}, "own", "invalid");
    row("watermark keeps the catalogue's", "Watermark", {{"wm_transparency", 7}}, "wm_transparency", "int 0");
    row("watermark takes no position", "Watermark", {{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.5}}, "wm_hposition",
        "int 30");
    row("watermark takes no new key", "Watermark", {{"own", 7}}, "own", "invalid");
    row("subtitle takes the transparency", "Subtitle", {{"sub_transparency", 40}}, "sub_transparency", "int 40");
    row("subtitle takes no font size", "Subtitle", {{"sub_transparency", 40}, {"sub_fontsize", 30}}, "sub_fontsize",
        "int 22");
    row("subtitle takes no factor", "Subtitle", {{"sub_vposfactor", 0.5}}, "sub_vposfactor",
        "double 0.80000000000000004");
    row("audio", "Audio", {{"play_loop", true}}, "play_loop", "bool true");
    row("color", "Color", {{"bcs_contrast", -20}}, "bcs_contrast", "int -20");
    row("color keeps what is not saved", "Color", {{"bcs_contrast", -20}}, "bcs_brightness", "int 0");
    row("color takes a new key", "Color", {{"own", 1.5}}, "own", "double 1.5");
    row("color takes another type of value", "Color", {{"bcs_contrast", "12"}}, "bcs_contrast", "string 12");
    row("color takes an invalid value", "Color", {{"bcs_contrast", QVariant()}}, "bcs_contrast", "invalid");
    row("effect", "Effect", {{"own", 7}}, "own", "int 7");
    row("fade", "Audio_Fade_Inout", {{"audio_fade_in", 9}}, "audio_fade_in", "int 9");
    row("normalize", "Audio_Normalize", {{"audio_normalize_maxLevel", 50}}, "audio_normalize_maxLevel", "int 50");
    row("band pass", "Audio_BandPass", {{"audio_bandpass_requency", 9}}, "audio_bandpass_requency", "int 9");
    row("chorus", "Audio_Chorus", {{"audio_chorus_decay", 9}}, "audio_chorus_decay", "int 9");
    row("flanger", "Audio_Flanger", {{"audio_flanger_delay", 9}}, "audio_flanger_delay", "int 9");
    row("echo", "Audio_Echo", {{"audio_echo_decay", 9}}, "audio_echo_decay", "int 9");
    row("speed", "Audio_Speed", {{"audio_speed_factor", 9}}, "audio_speed_factor", "int 9");
    row("empty custom default", "Color", {}, "bcs_contrast", "int 0");
    row("check state stays a property", "Color", {{"_checkstate", false}}, "_checkstate", "bool false");
}

void TstModelConstruction::customDefaultsAreLaidOver()
{
    QFETCH(QString, type);
    QFETCH(Properties, saved);
    QFETCH(QString, key);
    QFETCH(QString, value);
    saveCustomDefault(type, saved);

    const ZoEffectModel model;
    QCOMPARE(described(model.findDataItem(type, -1)->data(key)), value);
    QCOMPARE(model.findDataItem(type, -1)->checkState(), 2);
    QCOMPARE(typesOf(model), allTypes);

    const ZoEffectModel listed(QStringList{type});
    QCOMPARE(described(listed.findDataItem(type, -1)->data(key)), value);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::customDefaultOfAnotherTypeIsNot()
{
    saveCustomDefault("color", {{"bcs_contrast", 1}});
    saveCustomDefault("Audio", {{"bcs_contrast", 2}});

    QCOMPARE(described(ZoEffectModel().data("bcs_contrast", "Color", -1)), QStringLiteral("int 0"));
}

void TstModelConstruction::customFrameEffectsAreRestored_data()
{
    QTest::addColumn<QString>("saved");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QList<int>>("states");

    const QStringList catalogueOrder = {"Blur", "Sharpen", "Mirror", "Sepia"};
    QTest::newRow("order and states") << "Sepia|true|Blur|false|Sharpen|true|Mirror|false"
                                      << QStringList({"Sepia", "Blur", "Sharpen", "Mirror"})
                                      << QList<int>({2, 0, 2, 0});
    QTest::newRow("states alone") << "Blur|true|Sharpen|false|Mirror|false|Sepia|true" << catalogueOrder
                                  << QList<int>({2, 0, 0, 2});
    QTest::newRow("too few") << "Sepia|true|Blur|true" << catalogueOrder << QList<int>({0, 0, 0, 0});
    QTest::newRow("empty") << "" << catalogueOrder << QList<int>({0, 0, 0, 0});
}

void TstModelConstruction::customFrameEffectsAreRestored()
{
    QFETCH(QString, saved);
    QFETCH(QStringList, names);
    QFETCH(QList<int>, states);
    saveCustomDefault("Effect", {{"Effect", saved}});

    const ZoEffectModel model;
    const Node* effect = model.findDataItem("Effect", -1);
    QCOMPARE(childNames(effect), names);
    QCOMPARE(checkStates(effect), states);
    QCOMPARE(described(effect->properties()), QStringLiteral("{Effect: string %1}").arg(saved));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::customFrameEffectsOfAListedEffect()
{
    saveCustomDefault("Effect", {{"Effect", "Sepia|true|Mirror|true|Sharpen|false|Blur|false"}});

    const ZoEffectModel listed(QStringList{"Effect"});
    QCOMPARE(childNames(listed.findDataItem("Effect", -1)), QStringList({"Sepia", "Mirror", "Sharpen", "Blur"}));
    QCOMPARE(checkStates(listed.findDataItem("Effect", -1)), QList<int>({2, 2, 0, 0}));
    QCOMPARE(typesOf(ZoEffectModel(QStringList{"Crop"})), QStringList{"Crop"});
}

void TstModelConstruction::customOrderIsOnlyForTheTypeEffect()
{
    const SubEffectItem subItems[] = {subItem("one", 1), subItem("two", 2), subItem(nullptr, 0)};
    const EffectControlItem table[] = {effectType("Frames", nullptr, subItems), effectType("effect", nullptr, subItems),
                                       effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    saveCustomDefault("Effect", {{"Effect", "two|false|one|true"}});
    saveCustomDefault("Frames", {{"Effect", "two|false|one|true"}});

    const ZoEffectModel model;
    QCOMPARE(childNames(model.findDataItem("Frames", -1)), QStringList({"one", "two"}));
    QCOMPARE(checkStates(model.findDataItem("Frames", -1)), QList<int>({2, 2}));
    QCOMPARE(childNames(model.findDataItem("effect", -1)), QStringList({"one", "two"}));
}

void TstModelConstruction::editByDefaultAfterConstruction_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("empty");
    QTest::addColumn<bool>("edited");

    QTest::newRow("no custom default") << "" << false << false;
    QTest::newRow("crop") << "Crop" << false << false;
    QTest::newRow("watermark") << "Watermark" << false << false;
    QTest::newRow("subtitle") << "Subtitle" << false << false;
    QTest::newRow("audio") << "Audio" << false << true;
    QTest::newRow("color") << "Color" << false << true;
    QTest::newRow("effect") << "Effect" << false << true;
    QTest::newRow("fade") << "Audio_Fade_Inout" << false << true;
    QTest::newRow("speed") << "Audio_Speed" << false << true;
    QTest::newRow("empty custom default") << "Color" << true << false;
    QTest::newRow("type that the catalogue lacks") << "Unknown" << false << false;
}

void TstModelConstruction::editByDefaultAfterConstruction()
{
    QFETCH(QString, type);
    QFETCH(bool, empty);
    QFETCH(bool, edited);
    if (!type.isEmpty())
        saveCustomDefault(type, empty ? Properties() : Properties{{"key", 1}});

    ZoEffectModel model;
    QCOMPARE(model.editByDefault(), edited);
    QCOMPARE(described(rootOf(model)->properties()),
             edited ? QStringLiteral("{editbydefault: bool true}") : QStringLiteral("{}"));

    // Only types that the model has count.
    QVERIFY(!ZoEffectModel(QStringList{"Crop"}).editByDefault());
    QVERIFY(!ZoEffectModel("Color", {{"key", 1}}).editByDefault());

    model.resetEditByDefaultFlag();
    QVERIFY(!model.editByDefault());
}

void TstModelConstruction::singleTypeModelHoldsThePropertiesAlone_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("props");
    QTest::addColumn<QString>("tree");

    QTest::newRow("check state and a property")
        << "Watermark" << Properties{{"_checkstate", false}, {"a", 1}} << "effect root {} 2(Watermark {a: int 1} 0())";
    QTest::newRow("nothing") << "Watermark" << Properties() << "effect root {} 2(Watermark {} 2())";
    QTest::newRow("selected") << "Crop" << Properties{{"_checkstate", 1}} << "effect root {} 2(Crop {} 2())";
    QTest::newRow("unknown type") << "Unknown" << Properties{{"b", 2.5}, {"a", "x"}}
                                  << "effect root {} 2(Unknown {a: string x, b: double 2.5} 2())";
    QTest::newRow("empty type") << "" << Properties{{"a", 1}} << "effect root {} 2( {a: int 1} 2())";
    QTest::newRow("effect has no sub-items")
        << "Effect" << Properties{{"Effect", "Blur|true"}} << "effect root {} 2(Effect {Effect: string Blur|true} 2())";
    QTest::newRow("invalid value") << "Color" << Properties{{"a", QVariant()}}
                                   << "effect root {} 2(Color {a: invalid} 2())";
    QTest::newRow("other case of the check state")
        << "Color" << Properties{{"_Checkstate", false}} << "effect root {} 2(Color {_Checkstate: bool false} 2())";
    QTest::newRow("keys of the root")
        << "Color" << Properties{{"w", 640}, {"h", 480}, {"editbydefault", true}}
        << "effect root {} 2(Color {editbydefault: bool true, h: int 480, w: int 640} 2())";
}

void TstModelConstruction::singleTypeModelHoldsThePropertiesAlone()
{
    QFETCH(QString, type);
    QFETCH(Properties, props);
    QFETCH(QString, tree);

    const ZoEffectModel model(type, props);

    QCOMPARE(treeText(rootOf(model)), tree);
    QCOMPARE(rootOf(model)->child(0)->parent(), rootOf(model));
    QCOMPARE(rootOf(model)->child(0)->objectName(), type);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelConstruction::singleTypeModelTakesNoDefaults()
{
    saveCustomDefault("Color", {{"bcs_contrast", 20}});
    saveCustomDefault("Effect", {{"Effect", "Sepia|true|Blur|false|Sharpen|true|Mirror|false"}});

    QCOMPARE(treeText(rootOf(ZoEffectModel("Color", {}))), QStringLiteral("effect root {} 2(Color {} 2())"));
    QCOMPARE(treeText(rootOf(ZoEffectModel("Effect", {}))), QStringLiteral("effect root {} 2(Effect {} 2())"));

    ZoEffectModel::InitEffectModel(nullptr);
    QCOMPARE(treeText(rootOf(ZoEffectModel("Color", {{"a", 1}}))),
             QStringLiteral("effect root {} 2(Color {a: int 1} 2())"));
    QCOMPARE(logcapture::takeEvents(), QList<int>{25});
}

void TstModelConstruction::singleTypeModelNamedAsTheRootFillsTheRoot()
{
    // The lookup finds the root itself, so that nothing is created.
    const ZoEffectModel model("effect root", {{"w", 640}, {"h", 480}, {"editbydefault", true}, {"_checkstate", false}});

    QCOMPARE(treeText(rootOf(model)),
             QStringLiteral("effect root {editbydefault: bool true, h: int 480, w: int 640} 0()"));
    QCOMPARE(model.baseSize(), QSize(640, 480));
    QVERIFY(ZoEffectModel(model).editByDefault());
}

void TstModelConstruction::singleTypeModelTakesAnObjectParent()
{
    QObject parent;
    const auto* model = new ZoEffectModel("Crop", {{"a", 1}}, &parent);
    QCOMPARE(model->parent(), &parent);
    QCOMPARE(typesOf(*model), QStringList{"Crop"});
    QCOMPARE(ZoEffectModel("Crop", {}).parent(), nullptr);
}

void TstModelConstruction::singleTypeModelLeavesTheRootEmpty()
{
    ZoEffectModel model("Crop", {{"a", 1}});
    QVERIFY(!model.editByUser());
    QVERIFY(!model.editByDefault());
    QCOMPARE(model.baseSize(), QSize(0, 0));
    QVERIFY(rootOf(model)->properties().isEmpty());
}

void TstModelConstruction::copyHasAnEqualTreeOfItsOwn()
{
    ZoEffectModel source;
    source.setVideoSize(640, 480);
    source.setData("crop_left", 12, "Crop", -1);
    source.setData("_checkstate", false, "Color", -1);
    source.setData("_checkstate", true, "Effect", 2);
    source.addDataItem("Watermark", {{"wm_textcontent", "text"}});

    const ZoEffectModel copy(source);

    QCOMPARE(treeText(rootOf(copy)), treeText(rootOf(source)));
    QCOMPARE(copy.baseSize(), QSize(640, 480));
    QCOMPARE(described(copy.data("crop_left", "Crop", -1)), QStringLiteral("int 12"));
    QCOMPARE(copy.findDataItem("Effect", 2)->checkState(), 2);
    QVERIFY(rootOf(copy) != rootOf(source));
    QVERIFY(!rootOf(copy)->parent());
    for (int i = 0; i < rootOf(copy)->childCount(); ++i) {
        QVERIFY(rootOf(copy)->child(i) != rootOf(source)->child(i));
        QCOMPARE(rootOf(copy)->child(i)->parent(), rootOf(copy));
    }
    QVERIFY(copy.findDataItem("Watermark", 0) != source.findDataItem("Watermark", 0));
}

void TstModelConstruction::copyHasNoObjectParent()
{
    QObject parent;
    const ZoEffectModel source(&parent);
    const ZoEffectModel copy(source);

    QCOMPARE(copy.parent(), nullptr);
    QCOMPARE(source.parent(), &parent);
    QCOMPARE(parent.children().size(), 1);
}

void TstModelConstruction::copyWithParentIsEmpty_data()
{
    QTest::addColumn<bool>("withParent");

    QTest::newRow("parent") << true;
    QTest::newRow("null parent") << false;
}

void TstModelConstruction::copyWithParentIsEmpty()
{
    QFETCH(bool, withParent);
    QObject parent;
    ZoEffectModel source;
    source.setVideoSize(640, 480);
    const QString before = treeText(rootOf(source));

    const std::unique_ptr<ZoEffectModel> copy(new ZoEffectModel(source, withParent ? &parent : nullptr));

    QCOMPARE(copy->parent(), withParent ? &parent : nullptr);
    QCOMPARE(treeText(rootOf(*copy)), QStringLiteral("effect root {} 2()"));
    QCOMPARE(copy->baseSize(), QSize(0, 0));
    QCOMPARE(treeText(rootOf(source)), before);
}

void TstModelConstruction::copyWithParentTakesNoFlags()
{
    ZoEffectModel source;
    source.addDataItem("Subtitle", {});
    source.replaceItemDataProperty("Subtitle", {});
    rootOf(source)->setData("editbydefault", true);
    QVERIFY(source.editByUser());
    QVERIFY(source.editByDefault());

    ZoEffectModel copy(source, nullptr);

    QVERIFY(!copy.editByUser());
    QVERIFY(!copy.editByDefault());
}

void TstModelConstruction::assignmentReplacesTheTree()
{
    ZoEffectModel source(QStringList{"Color", "Effect"});
    source.setData("bcs_contrast", 9, "Color", -1);
    ZoEffectModel target;
    target.setVideoSize(320, 240);
    target.addDataItem("Watermark", {});
    const QPointer<Node> oldType = target.findDataItem("Watermark", -1);
    const QPointer<Node> oldItem = target.findDataItem("Watermark", 0);

    target = source;

    QCOMPARE(treeText(rootOf(target)), treeText(rootOf(source)));
    QCOMPARE(typesOf(target), QStringList({"Color", "Effect"}));
    QCOMPARE(described(target.data("bcs_contrast", "Color", -1)), QStringLiteral("int 9"));
    QCOMPARE(target.baseSize(), QSize(0, 0));
    QVERIFY(!oldType);
    QVERIFY(!oldItem);
}

void TstModelConstruction::assignmentReturnsTheModel()
{
    const ZoEffectModel source(QStringList{"Color"});
    ZoEffectModel target;
    QCOMPARE(&(target = source), &target);
}

void TstModelConstruction::assignmentKeepsRootAndParent()
{
    QObject parent;
    auto* target = new ZoEffectModel(&parent);
    const Node* root = rootOf(*target);
    const ZoEffectModel source(QStringList{"Color"});

    *target = source;

    QCOMPARE(rootOf(*target), root);
    QCOMPARE(target->findDataItem("Color", -1)->parent(), root);
    QCOMPARE(target->parent(), &parent);
    QCOMPARE(source.parent(), nullptr);
}

void TstModelConstruction::assignmentTakesSizeAndFlags()
{
    ZoEffectModel source;
    source.setVideoSize(640, 480);
    source.addDataItem("Subtitle", {});
    source.replaceItemDataProperty("Subtitle", {});
    rootOf(source)->setData("editbydefault", true);

    ZoEffectModel target;
    target = source;
    QVERIFY(target.editByUser());
    QVERIFY(target.editByDefault());
    QCOMPARE(target.baseSize(), QSize(640, 480));

    ZoEffectModel copy(source);
    QVERIFY(copy.editByUser());
    QVERIFY(copy.editByDefault());
}

void TstModelConstruction::assignmentClearsFlagsToo()
{
    ZoEffectModel target;
    target.addDataItem("Subtitle", {});
    target.replaceItemDataProperty("Subtitle", {});
    rootOf(target)->setData("editbydefault", true);
    QVERIFY(target.editByUser());

    target = ZoEffectModel();

    QVERIFY(!target.editByUser());
    QVERIFY(!target.editByDefault());
}

void TstModelConstruction::assignmentSendsNothing()
{
    ZoEffectModel source;
    source.setData("crop_left", 5, "Crop", -1);
    ZoEffectModel target;
    SignalRecorder fromSource(source);
    SignalRecorder fromTarget(target);

    target = source;

    QCOMPARE(fromSource.take(), QStringList());
    QCOMPARE(fromTarget.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());

    // Who listened to the target still does.
    target.setData("crop_left", 6, "Crop", -1);
    QCOMPARE(fromTarget.take(), QStringList{"effectDataChanged(Crop, crop_left, int 6, -1)"});
    QCOMPARE(fromSource.take(), QStringList());
}

void TstModelConstruction::assignmentToItselfDoesNothing()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    const QPointer<Node> crop = model.findDataItem("Crop", -1);
    const QString before = treeText(rootOf(model));
    const ZoEffectModel& same = model;

    model = same;

    QVERIFY(crop);
    QCOMPARE(model.findDataItem("Crop", -1), crop.data());
    QCOMPARE(treeText(rootOf(model)), before);
}

void TstModelConstruction::assignmentLeavesImagesAlone()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("image.png");
    QImage image(4, 3, QImage::Format_ARGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(path));
    ZoEffectModel source;
    QPixmap* ofSource = source.getImage(path, nullptr);
    QCOMPARE(ofSource->size(), QSize(4, 3));
    const QString other = folder.filePath("other.png");
    QVERIFY(image.copy(0, 0, 2, 2).save(other));
    ZoEffectModel target;
    QPixmap* ofTarget = target.getImage(other, nullptr);
    QVERIFY(QFile::remove(path));
    QVERIFY(QFile::remove(other));

    target = source;

    // The target keeps what it loaded, and gets nothing of what the source loaded.
    QCOMPARE(target.getImage(other, nullptr), ofTarget);
    QCOMPARE(ofTarget->size(), QSize(2, 2));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    QVERIFY(target.getImage(path, nullptr)->isNull());
    QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
    QCOMPARE(source.getImage(path, nullptr), ofSource);
    QCOMPARE(logcapture::takeEvents(), QList<int>());

    ZoEffectModel copy(source);
    QVERIFY(copy.getImage(path, nullptr)->isNull());
    QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
}

void TstModelConstruction::copyAndSourceAreIndependent()
{
    ZoEffectModel source;
    ZoEffectModel copy(source);

    copy.setData("crop_left", 5, "Crop", -1);
    copy.setVideoSize(640, 480);
    copy.addDataItem("Watermark", {});
    source.setData("bcs_contrast", 6, "Color", -1);

    QCOMPARE(described(source.data("crop_left", "Crop", -1)), QStringLiteral("int 0"));
    QCOMPARE(source.baseSize(), QSize(0, 0));
    QCOMPARE(source.childCount("Watermark"), 0);
    QCOMPARE(described(copy.data("bcs_contrast", "Color", -1)), QStringLiteral("int 0"));
}

void TstModelConstruction::copiedSubItemsPointAtTheirRecords()
{
    const ZoEffectModel source;
    const ZoEffectModel copy(source);

    for (int i = 0; i < 4; ++i) {
        QVERIFY(copy.findDataItem("Effect", i)->internalData());
        QCOMPARE(copy.findDataItem("Effect", i)->internalData(), source.findDataItem("Effect", i)->internalData());
    }
}

void TstModelConstruction::destructionDeletesTheTree()
{
    auto model = std::make_unique<ZoEffectModel>();
    const QPointer<Node> root = rootOf(*model);
    const QPointer<Node> type = model->findDataItem("Effect", -1);
    const QPointer<Node> item = model->findDataItem("Effect", 3);
    QVERIFY(root && type && item);

    model.reset();

    QVERIFY(!root);
    QVERIFY(!type);
    QVERIFY(!item);
}

void TstModelConstruction::copyOutlivesItsSource()
{
    auto source = std::make_unique<ZoEffectModel>();
    const QString before = treeText(rootOf(*source));
    const ZoEffectModel copy(*source);

    source.reset();

    QCOMPARE(treeText(rootOf(copy)), before);
}

void TstModelConstruction::editedByUserIsFalseAtFirst()
{
    ZoEffectModel model;
    QVERIFY(!model.editByUser());
    QVERIFY(!model.editByDefault());

    model.setData("crop_left", 5, "Crop", -1);
    model.setData("sub_vposition", 5, "Subtitle", -1);
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

void TstModelConstruction::editByDefaultReadsTheRoot_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("edited");

    QTest::newRow("true") << QVariant(true) << true;
    QTest::newRow("false") << QVariant(false) << false;
    QTest::newRow("one") << QVariant(1) << true;
    QTest::newRow("zero") << QVariant(0) << false;
    QTest::newRow("text true") << QVariant("true") << true;
    QTest::newRow("text false") << QVariant("false") << false;
    QTest::newRow("text 0") << QVariant("0") << false;
    QTest::newRow("other text") << QVariant("no") << true;
    QTest::newRow("invalid") << QVariant() << false;
    QTest::newRow("fraction that rounds to zero") << QVariant(0.3) << false;
    QTest::newRow("no number") << QVariant(std::nan("")) << false;
    QTest::newRow("color") << QVariant(QColor(Qt::white)) << false;
}

void TstModelConstruction::editByDefaultReadsTheRoot()
{
    QFETCH(QVariant, value);
    QFETCH(bool, edited);
    ZoEffectModel model;
    rootOf(model)->setData("editbydefault", value);

    QCOMPARE(model.editByDefault(), edited);
    QVERIFY(!model.editByUser());
}

void TstModelConstruction::resetEditByDefaultStoresFalse_data()
{
    QTest::addColumn<QVariant>("before");

    QTest::newRow("absent") << QVariant();
    QTest::newRow("true") << QVariant(true);
    QTest::newRow("text") << QVariant("true");
}

void TstModelConstruction::resetEditByDefaultStoresFalse()
{
    QFETCH(QVariant, before);
    ZoEffectModel model;
    SignalRecorder recorded(model);
    if (before.isValid())
        rootOf(model)->setData("editbydefault", before);

    model.resetEditByDefaultFlag();

    QVERIFY(!model.editByDefault());
    QCOMPARE(described(rootOf(model)->properties()), QStringLiteral("{editbydefault: bool false}"));
    QCOMPARE(recorded.take(), QStringList());
}

ZOEFFECT_TEST_MAIN(TstModelConstruction)
#include "tst_model_construction.moc"
