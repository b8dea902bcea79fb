// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <climits>
#include <memory>

#include <QPointer>

#include <zoeffectcatalogue.h>
#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using Properties = QMap<QString, QVariant>;

constexpr const char* removedKey = "removed";

void saveCustomDefault(const QString& type, const Properties& values)
{
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(type, values);
}

ZoEffectItemData* rootOf(const ZoEffectModel& model)
{
    return model.getDataItem(QStringLiteral("effect root"), -1);
}

/// The "tag" of each item of \a type in order, "null" for a null entry.
QString tags(const ZoEffectModel& model, const QString& type)
{
    QStringList found;
    const ZoEffectItemData* typeNode = model.getDataItem(type, -1);
    for (int i = 0; i < typeNode->childCount(); ++i)
        found << (typeNode->child(i) ? typeNode->child(i)->data(QStringLiteral("tag")).toString()
                                     : QStringLiteral("null"));
    return found.join(QLatin1Char(' '));
}

QString childNames(const ZoEffectItemData* node)
{
    QStringList found;
    for (int i = 0; i < node->childCount(); ++i)
        found << node->child(i)->name();
    return found.join(QLatin1Char(' '));
}

/// Appends an item to \a type past the model, without any property but "tag".
ZoEffectItemData* appendBare(const ZoEffectModel& model, const QString& type, const QString& tag)
{
    auto* item = new ZoEffectItemData(QString(), model.getDataItem(type, -1));
    item->setData(QStringLiteral("tag"), tag);
    return item;
}

void appendBareItems(const ZoEffectModel& model, const QString& type, const QString& itemTags)
{
    const QStringList list = itemTags.split(QLatin1Char(' '));
    for (const QString& tag : list) {
        if (!tag.isEmpty())
            appendBare(model, type, tag);
    }
}

/// The values of \a node under the keys of \a wanted, in the form of described(); keys that are missing are
/// left out.
QString chosen(const ZoEffectItemData* node, const QStringList& wanted)
{
    Properties values;
    for (const QString& key : wanted) {
        if (node->hasData(key))
            values.insert(key, node->data(key));
    }
    return described(values);
}

QString place(const ZoEffectItemData* watermark)
{
    return chosen(watermark, {"wm_hposition", "wm_vposition"});
}

QStringList one(const QString& signal)
{
    return {signal};
}

} // namespace

class TstModelItems : public QObject {
    Q_OBJECT

private slots:
    void init();

    void insertedItemStandsAtItsPosition_data();
    void insertedItemStandsAtItsPosition();
    void newItemHoldsTheCatalogueDefaultsOfItsType_data();
    void newItemHoldsTheCatalogueDefaultsOfItsType();
    void newItemIsAnUnnamedSelectedChildOfItsType();
    void unknownTypeIsRefusedSilently_data();
    void unknownTypeIsRefusedSilently();
    void emptyTypeNamesTheFirstUnnamedItem();
    void itemGoesUnderTheFirstNodeOfThatName();
    void checkStateOfTheCallerIsNoProperty_data();
    void checkStateOfTheCallerIsNoProperty();
    void checkStateOfTheCatalogueIsAProperty();
    void checkStateOfTheCustomDefaultIsAProperty();
    void propertiesOfTheCallerWin_data();
    void propertiesOfTheCallerWin();
    void laterRecordOfTheSameKeyWins();
    void factorsOfTheCatalogueAreKeptOut();
    void factorsComeInWithTheCallersProperties();
    void watermarkStartsAtTheFactorsOfTheBaseSize_data();
    void watermarkStartsAtTheFactorsOfTheBaseSize();
    void factorsComeFromTheRegisteredTable_data();
    void factorsComeFromTheRegisteredTable();
    void onlyWatermarksArePlacedByFactors();
    void customDefaultIsLaidOverTheCatalogue_data();
    void customDefaultIsLaidOverTheCatalogue();
    void customDefaultOfOtherTypesMarksTheModel_data();
    void customDefaultOfOtherTypesMarksTheModel();
    void newWatermarkTakesAFreePlace();
    void savedPlaceIsTakenAmongOtherWatermarks();
    void unselectedWatermarksAreNotAvoided();
    void unselectedNewWatermarkIsPlacedToo();
    void givenPositionIsMovedToAFreePlace();
    void existingItemsAreNotTouched();
    void listenerSeesTheFinishedItem();
    void listenerMayDeleteTheNewItem();
    void listenerMayAddMoreItems();
    void insertingDoesNotCountAsEditedByUser();
    void insertingWithoutCatalogue();
    void typeOfANestedTableIsFilled();
    void ownPropertiesOfAnItemMakeACopy();

    void addedItemComesLast_data();
    void addedItemComesLast();
    void addingToAnUnknownTypeIsRefusedSilently();

    void typeNodeIsCreatedWhenMissing_data();
    void typeNodeIsCreatedWhenMissing();
    void addingAChildCreatesTheTypeFirst_data();
    void addingAChildCreatesTheTypeFirst();
    void addingAChildToAnExistingTypeAppends();
    void fillingAnExistingTypeNodeKeepsItsItems();
    void fillingATypeNodeSendsNothing_data();
    void fillingATypeNodeSendsNothing();
    void fillingATypeNodeTakesTheCustomDefault_data();
    void fillingATypeNodeTakesTheCustomDefault();
    void fillingATypeNodeSetsItsCheckStateOnlyWhenTold_data();
    void fillingATypeNodeSetsItsCheckStateOnlyWhenTold();
    void fillingTheWatermarkTypeDoesNotPlaceIt();

    void deletedItemIsGone_data();
    void deletedItemIsGone();
    void deletingWhatIsNotThereIsLogged_data();
    void deletingWhatIsNotThereIsLogged();
    void deletingTheTypeItselfIsRefusedSilently_data();
    void deletingTheTypeItselfIsRefusedSilently();
    void deletingTheRootIsRefused();
    void deletedItemTakesItsSubtreeAlong();
    void embeddedTracksCanBeDeleted_data();
    void embeddedTracksCanBeDeleted();
    void typesAreDeletedThroughTheRoot();
    void itemWithoutParentIsNotDeleted();
    void itemOfAnotherListIsNotDeleted();
    void itemOfAnEmptyListIsNotDeleted();
    void nullItemIsNotDeleted();
    void listenerMayDeleteTheNextItem();

    void movedItemEndsAtItsDestination_data();
    void movedItemEndsAtItsDestination();
    void moveNotifiesEvenWhenNothingMoved_data();
    void moveNotifiesEvenWhenNothingMoved();
    void movingInAnUnknownTypeIsLogged_data();
    void movingInAnUnknownTypeIsLogged();
    void frameEffectsAndTypesCanBeMoved();
    void listenerMayMoveBack();
    void blockedSignalsStayBlocked();
};

void TstModelItems::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstModelItems::insertedItemStandsAtItsPosition_data()
{
    QTest::addColumn<QString>("present");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("announced");

    QTest::newRow("-1 appends and tells the new index") << "a b" << -1 << "a b x" << 2;
    QTest::newRow("-1 in an empty list") << "" << -1 << "x" << 0;
    QTest::newRow("-1 in a list of one") << "a" << -1 << "a x" << 1;
    QTest::newRow("before the first") << "a b" << 0 << "x a b" << 0;
    QTest::newRow("between two") << "a b" << 1 << "a x b" << 1;
    QTest::newRow("before the last of three") << "a b c" << 2 << "a b x c" << 2;
    QTest::newRow("right behind the end") << "a b" << 2 << "a b x" << 2;
    QTest::newRow("0 in an empty list") << "" << 0 << "x" << 0;
    QTest::newRow("one beyond the end") << "a b" << 3 << "a b x" << 3;
    QTest::newRow("far beyond the end") << "a b" << 7 << "a b x" << 7;
    QTest::newRow("beyond the end of an empty list") << "" << 5 << "x" << 5;
    QTest::newRow("-2 appends and is told as it is") << "a b" << -2 << "a b x" << -2;
    QTest::newRow("-3 appends and is told as it is") << "a b" << -3 << "a b x" << -3;
    QTest::newRow("greatest int") << "a b" << INT_MAX << "a b x" << INT_MAX;
    QTest::newRow("smallest int") << "a b" << INT_MIN << "a b x" << INT_MIN;
}

void TstModelItems::insertedItemStandsAtItsPosition()
{
    QFETCH(QString, present);
    QFETCH(int, pos);
    QFETCH(QString, expected);
    QFETCH(int, announced);

    for (const QString& type : {QStringLiteral("Watermark"), QStringLiteral("Subtitle"), QStringLiteral("Audio")}) {
        ZoEffectModel model;
        appendBareItems(model, type, present);
        SignalRecorder recorder(model);

        QCOMPARE(model.insertDataItem(type, {{"tag", "x"}}, pos), true);

        QCOMPARE(tags(model, type), expected);
        QCOMPARE(recorder.take(),
                 one(QStringLiteral("effectDataChanged(%1, item_add, invalid, %2)").arg(type).arg(announced)));
        QCOMPARE(logcapture::takeEvents(), QList<int>());
    }
}

void TstModelItems::newItemHoldsTheCatalogueDefaultsOfItsType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("expected");

    QTest::newRow("crop") << "Crop"
                          << "{crop_aspectratio: string Original Ratio, crop_height: string source_val, "
                             "crop_keepaspectratio: bool true, crop_left: int 0, crop_minheight: int 24, "
                             "crop_minwidth: int 24, crop_top: int 0, crop_width: string source_val}";
    QTest::newRow("watermark, at the factors of 640 x 480")
        << "Watermark"
        << "{wm_fontcolor: color #ffffffff, wm_fontname: font Tahoma, wm_fontsize: int 22, "
           "wm_fontstyle: string Regular, wm_hposition: int 64, wm_imagekeepratio: bool true, "
           "wm_transfactor: double 2.5499999999999998, wm_transparency: int 0, wm_vposition: int 48}";
    QTest::newRow("subtitle") << "Subtitle"
                              << "{fontstyleusedefault: bool true, sub_fontcolor: color #ffffffff, "
                                 "sub_fontname: font Tahoma, sub_fontsize: int 22, sub_fontstyle: string Regular, "
                                 "sub_framecolor: color #ff000000, sub_hposition: int 200, sub_linemargin: int 0, "
                                 "sub_transfactor: double 2.5499999999999998, sub_transparency: int 0, "
                                 "sub_vposition: int 200}";
    QTest::newRow("audio") << "Audio"
                           << "{play_loop: bool false}";
    QTest::newRow("colour") << "Color"
                            << "{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}";
    QTest::newRow("type without property table") << "Effect"
                                                 << "{}";
    QTest::newRow("fade") << "Audio_Fade_Inout"
                          << "{audio_effect_flag: bool false, audio_fade_in: int 3, audio_fade_in_enable: bool false, "
                             "audio_fade_out: int 3, audio_fade_out_enable: bool true}";
    QTest::newRow("normalize") << "Audio_Normalize"
                               << "{audio_effect_flag: bool false, audio_normalize_maxLevel: int 98}";
    QTest::newRow("band pass") << "Audio_BandPass"
                               << "{audio_bandpass_requency: int 1000, audio_bandpass_steepness: int 50, "
                                  "audio_bandpass_type: int 2, audio_effect_flag: bool false}";
    QTest::newRow("chorus") << "Audio_Chorus"
                            << "{audio_chorus_decay: int 50, audio_chorus_delay: int 50, audio_chorus_gainin: int 50, "
                               "audio_chorus_gainout: int 50, audio_effect_flag: bool false}";
    QTest::newRow("flanger") << "Audio_Flanger"
                             << "{audio_effect_flag: bool false, audio_flanger_decay: int 50, "
                                "audio_flanger_delay: int 3, audio_flanger_gainin: int 50, "
                                "audio_flanger_gainout: int 50, audio_flanger_speed: int 50}";
    QTest::newRow("echo") << "Audio_Echo"
                          << "{audio_echo_decay: int 500, audio_echo_delay: int 50, audio_echo_gainin: int 50, "
                             "audio_echo_gainout: int 50, audio_effect_flag: bool false}";
    QTest::newRow("speed") << "Audio_Speed"
                           << "{audio_effect_flag: bool false, audio_speed_factor: int 100}";
    QTest::newRow("frame effect, whose own table is not read") << "Blur"
                                                               << "{}";
}

void TstModelItems::newItemHoldsTheCatalogueDefaultsOfItsType()
{
    QFETCH(QString, type);
    QFETCH(QString, expected);
    ZoEffectModel model;
    model.setVideoSize(640, 480);

    QVERIFY(model.insertDataItem(type, {}, 0));

    QCOMPARE(described(model.getDataItem(type, 0)->properties()), expected);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::newItemIsAnUnnamedSelectedChildOfItsType()
{
    ZoEffectModel model;
    model.getDataItem("Subtitle", -1)->setCheckState(0);

    QVERIFY(model.insertDataItem("Subtitle", {}, -1));

    const ZoEffectItemData* item = model.getDataItem("Subtitle", 0);
    QCOMPARE(item->name(), QString());
    QCOMPARE(item->objectName(), QString());
    QCOMPARE(item->checkState(), 2);
    QCOMPARE(item->parent(), model.getDataItem("Subtitle", -1));
    QCOMPARE(item->childCount(), 0);
    QVERIFY(item->internalData() == nullptr);
    QCOMPARE(model.getDataItem("Subtitle", -1)->checkState(), 0);
}

void TstModelItems::unknownTypeIsRefusedSilently_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("no such type") << "Rotation";
    QTest::newRow("other letter case") << "watermark";
    QTest::newRow("beginning of a name") << "Water";
    QTest::newRow("name with a blank") << "Watermark ";
    QTest::newRow("no name") << "";
    QTest::newRow("type that the table has and the model has not") << "Crop";
}

void TstModelItems::unknownTypeIsRefusedSilently()
{
    QFETCH(QString, type);
    ZoEffectModel model(QStringList{"Watermark", "Subtitle"});
    SignalRecorder recorder(model);

    for (const int pos : {-1, 0, 1, -3})
        QCOMPARE(model.insertDataItem(type, {{"a", 1}}, pos), false);

    QCOMPARE(childNames(rootOf(model)), QStringLiteral("Watermark Subtitle"));
    QCOMPARE(model.childCount("Watermark"), 0);
    QCOMPARE(model.childCount("Subtitle"), 0);
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::emptyTypeNamesTheFirstUnnamedItem()
{
    ZoEffectModel model;
    appendBareItems(model, "Subtitle", "a b");
    SignalRecorder recorder(model);

    QCOMPARE(model.insertDataItem("", {{"tag", "x"}}, -1), true);

    QCOMPARE(tags(model, "Subtitle"), QStringLiteral("a b"));
    QCOMPARE(model.getDataItem("Subtitle", 0)->childCount(), 1);
    QCOMPARE(model.getDataItem("Subtitle", 0)->child(0)->data("tag").toString(), QStringLiteral("x"));
    QCOMPARE(recorder.take(), one("effectDataChanged(, item_add, invalid, 0)"));
}

void TstModelItems::itemGoesUnderTheFirstNodeOfThatName()
{
    ZoEffectModel model;
    // An item of an earlier type that bears the name of a later type is found first.
    auto* impostor = new ZoEffectItemData("Subtitle", model.getDataItem("Watermark", -1));

    QVERIFY(model.insertDataItem("Subtitle", {}, -1));

    QCOMPARE(impostor->childCount(), 1);
    QCOMPARE(described(impostor->child(0)->data("sub_fontsize")), QStringLiteral("int 22"));
    QCOMPARE(rootOf(model)->child(2)->name(), QStringLiteral("Subtitle"));
    QCOMPARE(rootOf(model)->child(2)->childCount(), 0);
}

void TstModelItems::checkStateOfTheCallerIsNoProperty_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("expected");

    QTest::newRow("true") << QVariant(true) << 2;
    QTest::newRow("false") << QVariant(false) << 0;
    QTest::newRow("int 0") << QVariant(0) << 0;
    QTest::newRow("int 1") << QVariant(1) << 2;
    QTest::newRow("int 2") << QVariant(2) << 2;
    QTest::newRow("negative int") << QVariant(-1) << 2;
    QTest::newRow("text true") << QVariant("true") << 2;
    QTest::newRow("text false") << QVariant("false") << 0;
    QTest::newRow("text FALSE") << QVariant("FALSE") << 0;
    QTest::newRow("text 0") << QVariant("0") << 0;
    QTest::newRow("empty text") << QVariant("") << 0;
    QTest::newRow("any other text") << QVariant("no") << 2;
    QTest::newRow("double 0") << QVariant(0.0) << 0;
    QTest::newRow("double 2") << QVariant(2.0) << 2;
    QTest::newRow("invalid value") << QVariant() << 0;
    QTest::newRow("map, which has no boolean") << QVariant(QVariantMap{{"a", 1}}) << 0;
}

void TstModelItems::checkStateOfTheCallerIsNoProperty()
{
    QFETCH(QVariant, value);
    QFETCH(int, expected);
    ZoEffectModel model;

    QVERIFY(model.insertDataItem("Audio", {{"_checkstate", value}, {"trackid", 4}}, -1));
    QCOMPARE(model.getDataItem("Audio", 0)->checkState(), expected);
    QCOMPARE(described(model.getDataItem("Audio", 0)->properties()),
             QStringLiteral("{play_loop: bool false, trackid: int 4}"));

    QVERIFY(model.addDataItemEx("Audio", {{"_checkstate", value}, {"trackid", 5}}, true));
    QCOMPARE(model.getDataItem("Audio", 1)->checkState(), expected);
    QCOMPARE(described(model.getDataItem("Audio", 1)->properties()),
             QStringLiteral("{play_loop: bool false, trackid: int 5}"));

    QVERIFY(model.addDataItemEx("Color", {{"_checkstate", value}}, false));
    QCOMPARE(model.getDataItem("Color", -1)->checkState(), expected);
    QCOMPARE(described(model.getDataItem("Color", -1)->properties()),
             QStringLiteral("{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}"));
}

void TstModelItems::checkStateOfTheCatalogueIsAProperty()
{
    static const EffectDefaultVal properties[] = {
        ::property("_checkstate", false),
        ::property("speed", 3),
        ::property(nullptr, 0),
    };
    static const EffectControlItem table[] = {effectType("Spin", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;

    QVERIFY(model.insertDataItem("Spin", {}, -1));
    QCOMPARE(described(model.getDataItem("Spin", 0)->properties()),
             QStringLiteral("{_checkstate: bool false, speed: int 3}"));
    QCOMPARE(model.getDataItem("Spin", 0)->checkState(), 2);

    // The caller's key sets the check state and leaves the property of that name as it is.
    QVERIFY(model.insertDataItem("Spin", {{"_checkstate", false}}, -1));
    QCOMPARE(model.getDataItem("Spin", 1)->checkState(), 0);
    QVERIFY(model.insertDataItem("Spin", {{"_checkstate", true}}, -1));
    QCOMPARE(model.getDataItem("Spin", 2)->checkState(), 2);
    QCOMPARE(described(model.getDataItem("Spin", 2)->properties()),
             QStringLiteral("{_checkstate: bool false, speed: int 3}"));
}

void TstModelItems::checkStateOfTheCustomDefaultIsAProperty()
{
    ZoEffectModel model;
    saveCustomDefault("Audio", {{"_checkstate", false}});

    QVERIFY(model.insertDataItem("Audio", {}, -1));

    QCOMPARE(model.getDataItem("Audio", 0)->checkState(), 2);
    QCOMPARE(described(model.getDataItem("Audio", 0)->properties()),
             QStringLiteral("{_checkstate: bool false, play_loop: bool false}"));
}

void TstModelItems::propertiesOfTheCallerWin_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("saved");
    QTest::addColumn<Properties>("props");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("expected");

    QTest::newRow("over the catalogue") << "Color" << Properties{} << Properties{{"bcs_contrast", 9}}
                                        << QStringList{"bcs_brightness", "bcs_contrast", "bcs_saturation"}
                                        << "{bcs_brightness: int 0, bcs_contrast: int 9, bcs_saturation: int 0}";
    QTest::newRow("over the custom default")
        << "Color" << Properties{{"bcs_contrast", 5}, {"bcs_saturation", 6}} << Properties{{"bcs_contrast", 9}}
        << QStringList{"bcs_brightness", "bcs_contrast", "bcs_saturation"}
        << "{bcs_brightness: int 0, bcs_contrast: int 9, bcs_saturation: int 6}";
    QTest::newRow("over the place by factors")
        << "Watermark" << Properties{} << Properties{{"wm_hposition", 7}, {"wm_vposition", 8}}
        << QStringList{"wm_hposition", "wm_vposition"} << "{wm_hposition: int 7, wm_vposition: int 8}";
    QTest::newRow("over one half of the place by factors")
        << "Watermark" << Properties{} << Properties{{"wm_vposition", 8}} << QStringList{"wm_hposition", "wm_vposition"}
        << "{wm_hposition: int 64, wm_vposition: int 8}";
    QTest::newRow("over the saved place")
        << "Watermark" << Properties{{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.5}} << Properties{{"wm_hposition", 7}}
        << QStringList{"wm_hposition", "wm_vposition"} << "{wm_hposition: int 7, wm_vposition: int 240}";
    QTest::newRow("over the saved font") << "Watermark" << Properties{{"wm_fontsize", 40}, {"wm_fontstyle", "Bold"}}
                                         << Properties{{"wm_fontsize", 11}, {"wm_istextwatermark", true}}
                                         << QStringList{"wm_fontsize", "wm_fontstyle"}
                                         << "{wm_fontsize: int 11, wm_fontstyle: string Bold}";
    QTest::newRow("in another type than the catalogue's")
        << "Subtitle" << Properties{} << Properties{{"sub_fontsize", "22"}, {"fontstyleusedefault", 0}}
        << QStringList{"sub_fontsize", "fontstyleusedefault"}
        << "{fontstyleusedefault: int 0, sub_fontsize: string 22}";
    QTest::newRow("with an invalid value") << "Audio" << Properties{} << Properties{{"play_loop", QVariant()}}
                                           << QStringList{"play_loop"} << "{play_loop: invalid}";
    QTest::newRow("with keys that the catalogue lacks")
        << "Subtitle" << Properties{} << Properties{{"trackid", 3}, {"", "no key"}, {"Sub_Fontsize", 1}}
        << QStringList{"", "trackid", "Sub_Fontsize", "sub_fontsize"}
        << "{: string no key, Sub_Fontsize: int 1, sub_fontsize: int 22, trackid: int 3}";
    QTest::newRow("with a check state in other letter case, which is a property")
        << "Audio" << Properties{} << Properties{{"_CheckState", false}} << QStringList{"_CheckState", "_checkstate"}
        << "{_CheckState: bool false}";
    QTest::newRow("with the flag of a user's position, which is stored only")
        << "Subtitle" << Properties{} << Properties{{"sub_vposition", 55}}
        << QStringList{"sub_vposition", "dvdsubtitleposeditbyuser"} << "{sub_vposition: int 55}";
}

void TstModelItems::propertiesOfTheCallerWin()
{
    QFETCH(QString, type);
    QFETCH(Properties, saved);
    QFETCH(Properties, props);
    QFETCH(QStringList, keys);
    QFETCH(QString, expected);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    if (!saved.isEmpty())
        saveCustomDefault(type, saved);

    QVERIFY(model.insertDataItem(type, props, -1));

    QCOMPARE(chosen(model.getDataItem(type, 0), keys), expected);
    QCOMPARE(model.getDataItem(type, 0)->checkState(), 2);
}

void TstModelItems::laterRecordOfTheSameKeyWins()
{
    static const EffectDefaultVal properties[] = {
        ::property("speed", 3),
        ::property("speed", 4),
        ::property(nullptr, 0),
    };
    static const EffectControlItem table[] = {effectType("Spin", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;

    QVERIFY(model.insertDataItem("Spin", {}, -1));

    QCOMPARE(described(model.getDataItem("Spin", 0)->properties()), QStringLiteral("{speed: int 4}"));
}

void TstModelItems::factorsOfTheCatalogueAreKeptOut()
{
    static const EffectDefaultVal properties[] = {
        ::property("sub_vposfactor", 0.1), ::property("wm_vposfactor", 0.2), ::property("wm_hposfactor", 0.3),
        ::property("sub_hposfactor", 0.4), ::property("vposfactor", 0.5),    ::property(nullptr, 0),
    };
    static const EffectControlItem table[] = {effectType("Spin", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;

    // All three, whatever the type, and nothing else.
    QVERIFY(model.insertDataItem("Spin", {}, -1));
    QCOMPARE(described(model.getDataItem("Spin", 0)->properties()),
             QStringLiteral("{sub_hposfactor: double 0.40000000000000002, vposfactor: double 0.5}"));

    // A type node takes them.
    QVERIFY(model.addDataItemEx("Spin", {}, false));
    QCOMPARE(described(model.getDataItem("Spin", -1)->properties()),
             QStringLiteral("{sub_hposfactor: double 0.40000000000000002, sub_vposfactor: double 0.10000000000000001, "
                            "vposfactor: double 0.5, wm_hposfactor: double 0.29999999999999999, "
                            "wm_vposfactor: double 0.20000000000000001}"));
}

void TstModelItems::factorsComeInWithTheCallersProperties()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);

    QVERIFY(model.insertDataItem("Watermark", {{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.25}}, -1));
    QCOMPARE(
        chosen(model.getDataItem("Watermark", 0), {"wm_hposfactor", "wm_vposfactor", "wm_hposition", "wm_vposition"}),
        QStringLiteral("{wm_hposfactor: double 0.5, wm_hposition: int 64, wm_vposfactor: double 0.25, "
                       "wm_vposition: int 48}"));

    QVERIFY(model.insertDataItem("Subtitle", {{"sub_vposfactor", 0.5}}, -1));
    QCOMPARE(chosen(model.getDataItem("Subtitle", 0), {"sub_vposfactor", "sub_vposition"}),
             QStringLiteral("{sub_vposfactor: double 0.5, sub_vposition: int 200}"));
}

void TstModelItems::watermarkStartsAtTheFactorsOfTheBaseSize_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<QString>("expected");

    QTest::newRow("VGA") << 640 << 480 << "{wm_hposition: int 64, wm_vposition: int 48}";
    QTest::newRow("PAL, height truncated") << 720 << 576 << "{wm_hposition: int 72, wm_vposition: int 57}";
    QTest::newRow("full HD") << 1920 << 1080 << "{wm_hposition: int 192, wm_vposition: int 108}";
    QTest::newRow("both truncated, not rounded") << 859 << 489 << "{wm_hposition: int 85, wm_vposition: int 48}";
    QTest::newRow("less than one pixel") << 9 << 1 << "{wm_hposition: int 0, wm_vposition: int 0}";
    QTest::newRow("no size") << 0 << 0 << "{wm_hposition: int 0, wm_vposition: int 0}";
    QTest::newRow("only a width") << 640 << 0 << "{wm_hposition: int 64, wm_vposition: int 0}";
    QTest::newRow("negative size, truncated toward zero")
        << -645 << -19 << "{wm_hposition: int -64, wm_vposition: int -1}";
    QTest::newRow("greatest size") << INT_MAX << INT_MAX
                                   << "{wm_hposition: int 214748364, wm_vposition: int 214748364}";
}

void TstModelItems::watermarkStartsAtTheFactorsOfTheBaseSize()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(QString, expected);
    ZoEffectModel model;
    model.setVideoSize(width, height);

    QVERIFY(model.insertDataItem("Watermark", {}, -1));

    QCOMPARE(place(model.getDataItem("Watermark", 0)), expected);
}

void TstModelItems::factorsComeFromTheRegisteredTable_data()
{
    QTest::addColumn<QVariant>("horizontal");
    QTest::addColumn<QVariant>("vertical");
    QTest::addColumn<QString>("expected");

    QTest::newRow("each its own") << QVariant(0.5) << QVariant(0.25) << "{wm_hposition: int 50, wm_vposition: int 50}";
    // 100 x 0.29 is 28.999999999999996 in double precision.
    QTest::newRow("product just below a whole number")
        << QVariant(0.29) << QVariant(0.145) << "{wm_hposition: int 28, wm_vposition: int 28}";
    QTest::newRow("negative, truncated toward zero")
        << QVariant(-0.255) << QVariant(-0.0049) << "{wm_hposition: int -25, wm_vposition: int 0}";
    QTest::newRow("text") << QVariant("0.5") << QVariant("abc") << "{wm_hposition: int 50, wm_vposition: int 0}";
    QTest::newRow("whole number") << QVariant(2) << QVariant(true) << "{wm_hposition: int 200, wm_vposition: int 200}";
    QTest::newRow("product beyond int saturates")
        << QVariant(1e9) << QVariant(-1e9) << "{wm_hposition: int 2147483647, wm_vposition: int -2147483648}";
    QTest::newRow("no number") << QVariant(qQNaN()) << QVariant() << "{wm_hposition: int 0, wm_vposition: int 0}";
}

void TstModelItems::factorsComeFromTheRegisteredTable()
{
    QFETCH(QVariant, horizontal);
    QFETCH(QVariant, vertical);
    QFETCH(QString, expected);
    const EffectDefaultVal properties[] = {
        ::property("wm_hposfactor", horizontal),
        ::property("wm_vposfactor", vertical),
        ::property(nullptr, 0),
    };
    const EffectControlItem table[] = {effectType("Watermark", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;
    model.setVideoSize(100, 200);

    QVERIFY(model.insertDataItem("Watermark", {}, -1));

    QCOMPARE(described(model.getDataItem("Watermark", 0)->properties()), expected);
    ZoEffectModel::InitEffectModel(hostCatalogue());
}

void TstModelItems::onlyWatermarksArePlacedByFactors()
{
    static const EffectDefaultVal properties[] = {
        ::property("wm_hposfactor", 0.5),
        ::property("wm_vposfactor", 0.5),
        ::property(nullptr, 0),
    };
    static const EffectControlItem table[] = {effectType("Stamp", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;
    model.setVideoSize(640, 480);

    QVERIFY(model.insertDataItem("Stamp", {{"tag", "x"}}, -1));

    QCOMPARE(described(model.getDataItem("Stamp", 0)->properties()), QStringLiteral("{tag: string x}"));
}

void TstModelItems::customDefaultIsLaidOverTheCatalogue_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("saved");
    QTest::addColumn<Properties>("props");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("expected");

    const Properties watermark{{"wm_transparency", 40},
                               {"wm_fontsize", 33},
                               {"wm_imagekeepratio", false},
                               {"wm_hposfactor", 0.5},
                               {"wm_vposfactor", 0.25}};
    const QStringList watermarkKeys{"wm_transparency", "wm_fontsize",  "wm_imagekeepratio", "wm_hposfactor",
                                    "wm_vposfactor",   "wm_hposition", "wm_vposition",      "wm_istextwatermark"};
    const QString textWatermark = "{wm_fontsize: int 33, wm_hposition: int 320, wm_imagekeepratio: bool false, "
                                  "wm_istextwatermark: %1, wm_transparency: int 40, wm_vposition: int 120}";
    const QString imageWatermark = "{wm_fontsize: int 22, wm_hposition: int 320, wm_imagekeepratio: bool true, "
                                   "%1wm_transparency: int 40, wm_vposition: int 120}";
    QTest::newRow("image watermark takes transparency and place")
        << "Watermark" << watermark << Properties{} << watermarkKeys << imageWatermark.arg("");
    QTest::newRow("watermark told to be no text")
        << "Watermark" << watermark << Properties{{"wm_istextwatermark", false}} << watermarkKeys
        << imageWatermark.arg("wm_istextwatermark: bool false, ");
    QTest::newRow("text watermark takes all but the factors")
        << "Watermark" << watermark << Properties{{"wm_istextwatermark", true}} << watermarkKeys
        << textWatermark.arg("bool true");
    QTest::newRow("text watermark by a number") << "Watermark" << watermark << Properties{{"wm_istextwatermark", 1}}
                                                << watermarkKeys << textWatermark.arg("int 1");
    QTest::newRow("text watermark by a text") << "Watermark" << watermark << Properties{{"wm_istextwatermark", "true"}}
                                              << watermarkKeys << textWatermark.arg("string true");
    QTest::newRow("flag of a subtitle does not make a text watermark")
        << "Watermark" << watermark << Properties{{"sub_fromfile", true}} << watermarkKeys << imageWatermark.arg("");
    QTest::newRow("saved flag does not come early enough")
        << "Watermark" << Properties{{"wm_istextwatermark", true}, {"wm_fontsize", 33}} << Properties{}
        << QStringList{"wm_istextwatermark", "wm_fontsize"} << "{wm_fontsize: int 22}";
    QTest::newRow("saved flag is overwritten by the caller's")
        << "Watermark" << Properties{{"wm_istextwatermark", false}, {"wm_fontsize", 33}}
        << Properties{{"wm_istextwatermark", true}} << QStringList{"wm_istextwatermark", "wm_fontsize"}
        << "{wm_fontsize: int 33, wm_istextwatermark: bool true}";
    QTest::newRow("custom default without factors keeps the catalogue's place")
        << "Watermark" << Properties{{"wm_transparency", 40}} << Properties{}
        << QStringList{"wm_transparency", "wm_hposition", "wm_vposition"}
        << "{wm_hposition: int 30, wm_transparency: int 40, wm_vposition: int 30}";
    QTest::newRow("custom default with one factor keeps the catalogue's place")
        << "Watermark" << Properties{{"wm_vposfactor", 0.5}} << Properties{}
        << QStringList{"wm_vposfactor", "wm_hposition", "wm_vposition"}
        << "{wm_hposition: int 30, wm_vposition: int 30}";
    QTest::newRow("empty custom default keeps the catalogue's place")
        << "Watermark" << Properties{} << Properties{} << QStringList{"wm_transparency", "wm_hposition", "wm_vposition"}
        << "{wm_hposition: int 30, wm_transparency: int 0, wm_vposition: int 30}";

    const Properties subtitle{{"sub_transparency", 12}, {"sub_fontsize", 30},           {"sub_vposfactor", 0.5},
                              {"sub_linemargin", 4},    {"fontstyleusedefault", false}, {"own", "x"}};
    const QStringList subtitleKeys{
        "sub_transparency",    "sub_fontsize", "sub_vposfactor", "sub_vposition", "sub_linemargin",
        "fontstyleusedefault", "own",          "sub_fromfile"};
    const QString embedded = "{fontstyleusedefault: bool true, sub_fontsize: int 22, %1sub_linemargin: int 0, "
                             "sub_transparency: int 12, sub_vposition: int 200}";
    const QString fromFile = "{fontstyleusedefault: bool false, own: string x, sub_fontsize: int 30, "
                             "sub_fromfile: %1, sub_linemargin: int 4, sub_transparency: int 12, "
                             "sub_vposfactor: double 0.5, sub_vposition: int 200}";
    QTest::newRow("embedded subtitle takes the transparency only")
        << "Subtitle" << subtitle << Properties{} << subtitleKeys << embedded.arg("");
    QTest::newRow("subtitle told to be embedded") << "Subtitle" << subtitle << Properties{{"sub_fromfile", false}}
                                                  << subtitleKeys << embedded.arg("sub_fromfile: bool false, ");
    QTest::newRow("subtitle from a file takes all, the factor included")
        << "Subtitle" << subtitle << Properties{{"sub_fromfile", true}} << subtitleKeys << fromFile.arg("bool true");
    QTest::newRow("subtitle from a file by a number")
        << "Subtitle" << subtitle << Properties{{"sub_fromfile", 7}} << subtitleKeys << fromFile.arg("int 7");
    QTest::newRow("flag of a watermark does not make a subtitle from a file")
        << "Subtitle" << subtitle << Properties{{"wm_istextwatermark", true}} << subtitleKeys << embedded.arg("");
    QTest::newRow("saved subtitle flag does not come early enough")
        << "Subtitle" << Properties{{"sub_fromfile", true}, {"sub_fontsize", 30}} << Properties{}
        << QStringList{"sub_fromfile", "sub_fontsize"} << "{sub_fontsize: int 22}";

    QTest::newRow("colour takes all")
        << "Color" << Properties{{"bcs_contrast", 5}, {"own", 1}} << Properties{}
        << QStringList{"bcs_brightness", "bcs_contrast", "bcs_saturation", "own"}
        << "{bcs_brightness: int 0, bcs_contrast: int 5, bcs_saturation: int 0, own: int 1}";
    QTest::newRow("crop takes all") << "Crop" << Properties{{"crop_left", 5}} << Properties{}
                                    << QStringList{"crop_left", "crop_top"} << "{crop_left: int 5, crop_top: int 0}";
    QTest::newRow("frame effect takes the saved order as a property")
        << "Effect" << Properties{{"Effect", "Blur|true"}} << Properties{} << QStringList{"Effect"}
        << "{Effect: string Blur|true}";
    QTest::newRow("other types take position factors too")
        << "Audio" << Properties{{"wm_vposfactor", 0.5}, {"wm_hposfactor", 0.5}} << Properties{}
        << QStringList{"wm_vposfactor", "wm_hposfactor", "wm_vposition", "play_loop"}
        << "{play_loop: bool false, wm_hposfactor: double 0.5, wm_vposfactor: double 0.5}";
    QTest::newRow("invalid saved value") << "Audio" << Properties{{"play_loop", QVariant()}} << Properties{}
                                         << QStringList{"play_loop"} << "{play_loop: invalid}";
}

void TstModelItems::customDefaultIsLaidOverTheCatalogue()
{
    QFETCH(QString, type);
    QFETCH(Properties, saved);
    QFETCH(Properties, props);
    QFETCH(QStringList, keys);
    QFETCH(QString, expected);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    saveCustomDefault(type, saved);
    SignalRecorder recorder(model);

    QVERIFY(model.insertDataItem(type, props, 0));

    QCOMPARE(chosen(model.getDataItem(type, 0), keys), expected);
    QCOMPARE(recorder.take(), one(QStringLiteral("effectDataChanged(%1, item_add, invalid, 0)").arg(type)));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::customDefaultOfOtherTypesMarksTheModel_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("saved");
    QTest::addColumn<bool>("expected");

    QTest::newRow("watermark") << "Watermark" << Properties{{"wm_transparency", 1}} << false;
    QTest::newRow("subtitle") << "Subtitle" << Properties{{"sub_transparency", 1}} << false;
    QTest::newRow("audio") << "Audio" << Properties{{"play_loop", true}} << true;
    QTest::newRow("colour") << "Color" << Properties{{"bcs_contrast", 1}} << true;
    QTest::newRow("crop") << "Crop" << Properties{{"crop_left", 1}} << true;
    QTest::newRow("frame effects") << "Effect" << Properties{{"Effect", "Blur|true"}} << true;
    QTest::newRow("empty custom default") << "Color" << Properties{} << false;
    QTest::newRow("no custom default of this type") << "Audio_Echo" << Properties{} << false;
}

void TstModelItems::customDefaultOfOtherTypesMarksTheModel()
{
    QFETCH(QString, type);
    QFETCH(Properties, saved);
    QFETCH(bool, expected);
    ZoEffectModel model;
    if (type != "Audio_Echo")
        saveCustomDefault(type, saved);

    QVERIFY(model.insertDataItem(type, {}, -1));

    QCOMPARE(model.editByDefault(), expected);
}

void TstModelItems::newWatermarkTakesAFreePlace()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);

    for (int i = 0; i < 3; ++i)
        QVERIFY(model.insertDataItem("Watermark", {}, -1));

    // All three start at the same factors; each evades those before it in steps of 30.
    QCOMPARE(place(model.getDataItem("Watermark", 0)), QStringLiteral("{wm_hposition: int 64, wm_vposition: int 48}"));
    QCOMPARE(place(model.getDataItem("Watermark", 1)), QStringLiteral("{wm_hposition: int 94, wm_vposition: int 78}"));
    QCOMPARE(place(model.getDataItem("Watermark", 2)),
             QStringLiteral("{wm_hposition: int 124, wm_vposition: int 108}"));
}

void TstModelItems::savedPlaceIsTakenAmongOtherWatermarks()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    saveCustomDefault("Watermark", {{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.25}});

    QVERIFY(model.insertDataItem("Watermark", {}, -1));
    QCOMPARE(place(model.getDataItem("Watermark", 0)),
             QStringLiteral("{wm_hposition: int 320, wm_vposition: int 120}"));

    // Beside one other watermark the saved place is never taken.
    QVERIFY(model.insertDataItem("Watermark", {}, -1));
    QCOMPARE(place(model.getDataItem("Watermark", 1)), QStringLiteral("{wm_hposition: int 30, wm_vposition: int 30}"));

    // Beside two it is, and then evades the first of them.
    QVERIFY(model.insertDataItem("Watermark", {}, -1));
    QCOMPARE(place(model.getDataItem("Watermark", 2)),
             QStringLiteral("{wm_hposition: int 350, wm_vposition: int 150}"));
}

void TstModelItems::unselectedWatermarksAreNotAvoided()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);

    QVERIFY(model.insertDataItem("Watermark", {{"_checkstate", false}}, -1));
    QVERIFY(model.insertDataItem("Watermark", {}, -1));

    QCOMPARE(place(model.getDataItem("Watermark", 1)), QStringLiteral("{wm_hposition: int 64, wm_vposition: int 48}"));
}

void TstModelItems::unselectedNewWatermarkIsPlacedToo()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);

    QVERIFY(model.insertDataItem("Watermark", {}, -1));
    QVERIFY(model.insertDataItem("Watermark", {{"_checkstate", false}}, 0));

    QCOMPARE(model.getDataItem("Watermark", 0)->checkState(), 0);
    QCOMPARE(place(model.getDataItem("Watermark", 0)), QStringLiteral("{wm_hposition: int 94, wm_vposition: int 78}"));
    QCOMPARE(place(model.getDataItem("Watermark", 1)), QStringLiteral("{wm_hposition: int 64, wm_vposition: int 48}"));
}

void TstModelItems::givenPositionIsMovedToAFreePlace()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    const Properties corner{{"wm_hposition", 0}, {"wm_vposition", 0}, {"wm_imagewidth", 100}, {"wm_imageheight", 50}};

    QVERIFY(model.insertDataItem("Watermark", corner, -1));
    QVERIFY(model.insertDataItem("Watermark", corner, -1));

    QCOMPARE(place(model.getDataItem("Watermark", 0)), QStringLiteral("{wm_hposition: int 0, wm_vposition: int 0}"));
    QCOMPARE(place(model.getDataItem("Watermark", 1)), QStringLiteral("{wm_hposition: int 60, wm_vposition: int 60}"));
    QCOMPARE(chosen(model.getDataItem("Watermark", 1), {"wm_imagewidth", "wm_imageheight"}),
             QStringLiteral("{wm_imageheight: int 50, wm_imagewidth: int 100}"));
}

void TstModelItems::existingItemsAreNotTouched()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    ZoEffectItemData* first = appendBare(model, "Watermark", "a");
    const QString typeBefore = described(model.getDataItem("Watermark", -1)->properties());

    QVERIFY(model.insertDataItem("Watermark", {{"wm_fontsize", 50}}, 0));

    QCOMPARE(model.getDataItem("Watermark", 1), first);
    QCOMPARE(described(first->properties()), QStringLiteral("{tag: string a}"));
    QCOMPARE(described(model.getDataItem("Watermark", -1)->properties()), typeBefore);
    QCOMPARE(described(rootOf(model)->properties()), QStringLiteral("{h: int 480, w: int 640}"));
}

void TstModelItems::listenerSeesTheFinishedItem()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    QStringList seen;
    QObject::connect(
        &model, QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        this, [&](const QString& type, const QString& key, const QVariant&, int pos) {
            const ZoEffectItemData* item = model.getDataItem(type, pos);
            seen << key + ' ' + QString::number(model.childCount(type)) + ' ' + place(item) + ' '
                        + QString::number(item->checkState());
        });

    QVERIFY(model.insertDataItem("Watermark", {}, -1));
    QVERIFY(model.insertDataItem("Watermark", {{"_checkstate", false}}, -1));

    QCOMPARE(seen, (QStringList{"item_add 1 {wm_hposition: int 64, wm_vposition: int 48} 2",
                                "item_add 2 {wm_hposition: int 94, wm_vposition: int 78} 0"}));
}

void TstModelItems::listenerMayDeleteTheNewItem()
{
    ZoEffectModel model;
    SignalRecorder recorder(model);
    QObject::connect(
        &model, QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        this, [&](const QString& type, const QString& key, const QVariant&, int pos) {
            if (key == "item_add")
                model.delDataItem(type, pos);
        });

    QCOMPARE(model.insertDataItem("Watermark", {}, -1), true);
    QCOMPARE(model.addDataItem("Audio", {}), true);
    QCOMPARE(model.addDataItemEx("Subtitle", {}, true), true);

    QCOMPARE(model.childCount("Watermark"), 0);
    QCOMPARE(model.childCount("Audio"), 0);
    QCOMPARE(model.childCount("Subtitle"), 0);
    QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Watermark, item_add, invalid, 0)",
                                           "effectDataChanged(Watermark, item_delete, invalid, 0)",
                                           "effectDataChanged(Audio, item_add, invalid, 0)",
                                           "effectDataChanged(Audio, item_delete, invalid, 0)",
                                           "effectDataChanged(Subtitle, item_add, invalid, 0)",
                                           "effectDataChanged(Subtitle, item_delete, invalid, 0)"}));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::listenerMayAddMoreItems()
{
    ZoEffectModel model;
    SignalRecorder recorder(model);
    QObject::connect(
        &model, QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        this, [&](const QString& type, const QString&, const QVariant&, int) {
            if (model.childCount(type) < 3)
                model.insertDataItem(type, {{"tag", "y"}}, 0);
        });

    QVERIFY(model.insertDataItem("Audio", {{"tag", "x"}}, -1));

    QCOMPARE(tags(model, "Audio"), QStringLiteral("y y x"));
    QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Audio, item_add, invalid, 0)",
                                           "effectDataChanged(Audio, item_add, invalid, 0)",
                                           "effectDataChanged(Audio, item_add, invalid, 0)"}));
}

void TstModelItems::insertingDoesNotCountAsEditedByUser()
{
    ZoEffectModel model;

    model.insertDataItem("Subtitle", {{"sub_vposition", 3}}, -1);
    model.addDataItem("Subtitle", {});
    model.addDataItemEx("Subtitle", {}, true);
    model.addDataItemEx("Subtitle", {}, false);
    model.changeDataItemPos("Subtitle", 0, 1);
    model.delDataItem("Subtitle", 0);

    QCOMPARE(model.editByUser(), false);
    QCOMPARE(model.editByDefault(), false);
}

void TstModelItems::insertingWithoutCatalogue()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    ZoEffectModel::InitEffectModel(nullptr);
    logcapture::takeEvents();

    QVERIFY(model.insertDataItem("Watermark", {{"tag", "x"}}, -1));
    QVERIFY(model.insertDataItem("Subtitle", {{"tag", "x"}}, -1));

    QCOMPARE(described(model.getDataItem("Watermark", 0)->properties()),
             QStringLiteral("{tag: string x, wm_hposition: int 0, wm_vposition: int 0}"));
    QCOMPARE(described(model.getDataItem("Subtitle", 0)->properties()), QStringLiteral("{tag: string x}"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::typeOfANestedTableIsFilled()
{
    static const EffectDefaultVal properties[] = {::property("speed", 3), ::property(nullptr, 0)};
    static const EffectControlItem nested[] = {effectType("Spin", properties), effectType(nullptr, nullptr)};
    static const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, nested),
                                              effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;

    QCOMPARE(model.insertDataItem("Spin", {}, -1), false);
    QCOMPARE(model.addDataItemEx("Spin", {}, true), true);

    QCOMPARE(childNames(rootOf(model)), QStringLiteral("Group Spin"));
    QCOMPARE(described(model.getDataItem("Spin", -1)->properties()), QStringLiteral("{}"));
    QCOMPARE(described(model.getDataItem("Spin", 0)->properties()), QStringLiteral("{speed: int 3}"));
}

void TstModelItems::ownPropertiesOfAnItemMakeACopy()
{
    ZoEffectModel model;
    QVERIFY(model.insertDataItem("Subtitle", {{"sub_fontsize", 50}, {"trackid", 2}}, -1));

    QVERIFY(model.insertDataItem("Subtitle", model.getDataItem("Subtitle", 0)->properties(), 0));

    QCOMPARE(chosen(model.getDataItem("Subtitle", 0), {"sub_fontsize", "trackid"}),
             QStringLiteral("{sub_fontsize: int 50, trackid: int 2}"));
    QCOMPARE(described(model.getDataItem("Subtitle", 0)->properties()),
             described(model.getDataItem("Subtitle", 1)->properties()));

    // Filling the type node from its own properties keeps what they were.
    model.getDataItem("Color", -1)->setData("bcs_contrast", 8);
    QVERIFY(model.addDataItemEx("Color", model.getDataItem("Color", -1)->properties(), false));
    QCOMPARE(described(model.data("bcs_contrast", "Color", -1)), QStringLiteral("int 8"));
}

void TstModelItems::addedItemComesLast_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("present");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("announced");

    QTest::newRow("first watermark") << "Watermark"
                                     << ""
                                     << "x" << 0;
    QTest::newRow("third watermark") << "Watermark"
                                     << "a b"
                                     << "a b x" << 2;
    QTest::newRow("second subtitle") << "Subtitle"
                                     << "a"
                                     << "a x" << 1;
    QTest::newRow("fourth audio track") << "Audio"
                                        << "a b c"
                                        << "a b c x" << 3;
    QTest::newRow("crop") << "Crop"
                          << ""
                          << "x" << 0;
}

void TstModelItems::addedItemComesLast()
{
    QFETCH(QString, type);
    QFETCH(QString, present);
    QFETCH(QString, expected);
    QFETCH(int, announced);
    ZoEffectModel model;
    appendBareItems(model, type, present);
    SignalRecorder recorder(model);

    QCOMPARE(model.addDataItem(type, {{"tag", "x"}, {"_checkstate", 0}}), true);

    QCOMPARE(tags(model, type), expected);
    QCOMPARE(model.getDataItem(type, announced)->checkState(), 0);
    QCOMPARE(recorder.take(),
             one(QStringLiteral("effectDataChanged(%1, item_add, invalid, %2)").arg(type).arg(announced)));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::addingToAnUnknownTypeIsRefusedSilently()
{
    ZoEffectModel model(QStringList{"Audio"});
    SignalRecorder recorder(model);

    QCOMPARE(model.addDataItem("Crop", {}), false);
    QCOMPARE(model.addDataItem("audio", {}), false);

    QCOMPARE(childNames(rootOf(model)), QStringLiteral("Audio"));
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::typeNodeIsCreatedWhenMissing_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("props");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("checkState");

    QTest::newRow("crop") << "Crop" << Properties{{"crop_left", 10}, {"own", "x"}}
                          << "{crop_aspectratio: string Original Ratio, crop_height: string source_val, "
                             "crop_keepaspectratio: bool true, crop_left: int 10, crop_minheight: int 24, "
                             "crop_minwidth: int 24, crop_top: int 0, crop_width: string source_val, own: string x}"
                          << 2;
    QTest::newRow("watermark, with its factors and the catalogue's place")
        << "Watermark" << Properties{}
        << "{wm_fontcolor: color #ffffffff, wm_fontname: font Tahoma, wm_fontsize: int 22, "
           "wm_fontstyle: string Regular, wm_hposfactor: double 0.10000000000000001, wm_hposition: int 30, "
           "wm_imagekeepratio: bool true, wm_transfactor: double 2.5499999999999998, wm_transparency: int 0, "
           "wm_vposfactor: double 0.10000000000000001, wm_vposition: int 30}"
        << 2;
    QTest::newRow("subtitle, with its factor")
        << "Subtitle" << Properties{{"_checkstate", false}}
        << "{fontstyleusedefault: bool true, sub_fontcolor: color #ffffffff, sub_fontname: font Tahoma, "
           "sub_fontsize: int 22, sub_fontstyle: string Regular, sub_framecolor: color #ff000000, "
           "sub_hposition: int 200, sub_linemargin: int 0, sub_transfactor: double 2.5499999999999998, "
           "sub_transparency: int 0, sub_vposfactor: double 0.80000000000000004, sub_vposition: int 200}"
        << 0;
    QTest::newRow("frame effects, without sub-items") << "Effect" << Properties{} << "{}" << 2;
    QTest::newRow("type that the catalogue lacks")
        << "Rotation" << Properties{{"angle", 90}, {"_checkstate", true}} << "{angle: int 90}" << 2;
    QTest::newRow("no name") << "" << Properties{{"angle", 90}} << "{angle: int 90}" << 2;
}

void TstModelItems::typeNodeIsCreatedWhenMissing()
{
    QFETCH(QString, type);
    QFETCH(Properties, props);
    QFETCH(QString, expected);
    QFETCH(int, checkState);
    ZoEffectModel model(QStringList{"Audio", "Color"});
    model.setVideoSize(640, 480);
    SignalRecorder recorder(model);

    QCOMPARE(model.addDataItemEx(type, props, false), true);

    QCOMPARE(childNames(rootOf(model)), QStringLiteral("Audio Color ") + type);
    const ZoEffectItemData* typeNode = rootOf(model)->child(2);
    QCOMPARE(typeNode->parent(), rootOf(model));
    QCOMPARE(typeNode->objectName(), type);
    QCOMPARE(described(typeNode->properties()), expected);
    QCOMPARE(typeNode->checkState(), checkState);
    QCOMPARE(typeNode->childCount(), 0);
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::addingAChildCreatesTheTypeFirst_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("props");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("checkState");

    QTest::newRow("audio") << "Audio" << Properties{{"trackid", 1}} << "{play_loop: bool false, trackid: int 1}" << 2;
    QTest::newRow("unselected audio") << "Audio" << Properties{{"_checkstate", false}} << "{play_loop: bool false}"
                                      << 0;
    QTest::newRow("speed") << "Audio_Speed" << Properties{}
                           << "{audio_effect_flag: bool false, audio_speed_factor: int 100}" << 2;
    QTest::newRow("type that the catalogue lacks") << "Rotation" << Properties{{"angle", 90}} << "{angle: int 90}" << 2;
}

void TstModelItems::addingAChildCreatesTheTypeFirst()
{
    QFETCH(QString, type);
    QFETCH(Properties, props);
    QFETCH(QString, expected);
    QFETCH(int, checkState);
    ZoEffectModel model(QStringList{"Crop"});
    SignalRecorder recorder(model);

    QCOMPARE(model.addDataItemEx(type, props, true), true);

    QCOMPARE(childNames(rootOf(model)), QStringLiteral("Crop ") + type);
    // The new type node itself stays without properties, selected whatever the item is.
    QCOMPARE(described(model.getDataItem(type, -1)->properties()), QStringLiteral("{}"));
    QCOMPARE(model.getDataItem(type, -1)->checkState(), 2);
    QCOMPARE(model.childCount(type), 1);
    QCOMPARE(described(model.getDataItem(type, 0)->properties()), expected);
    QCOMPARE(model.getDataItem(type, 0)->checkState(), checkState);
    QCOMPARE(recorder.take(), one(QStringLiteral("effectDataChanged(%1, item_add, invalid, 0)").arg(type)));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::addingAChildToAnExistingTypeAppends()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    appendBareItems(model, "Watermark", "a b");
    model.getDataItem("Watermark", -1)->setCheckState(0);
    SignalRecorder recorder(model);

    QCOMPARE(model.addDataItemEx("Watermark", {{"tag", "x"}}, true), true);

    QCOMPARE(rootOf(model)->childCount(), 13);
    QCOMPARE(tags(model, "Watermark"), QStringLiteral("a b x"));
    QCOMPARE(place(model.getDataItem("Watermark", 2)), QStringLiteral("{wm_hposition: int 64, wm_vposition: int 48}"));
    QCOMPARE(model.getDataItem("Watermark", 2)->hasData("wm_hposfactor"), false);
    QCOMPARE(model.getDataItem("Watermark", -1)->checkState(), 0);
    QCOMPARE(recorder.take(), one("effectDataChanged(Watermark, item_add, invalid, 2)"));
}

void TstModelItems::fillingAnExistingTypeNodeKeepsItsItems()
{
    ZoEffectModel model;
    appendBareItems(model, "Subtitle", "a b");
    ZoEffectItemData* typeNode = model.getDataItem("Subtitle", -1);
    typeNode->setData("sub_fontsize", 60);
    typeNode->setData("dvdsubtitleposeditbyuser", true);
    SignalRecorder recorder(model);

    QCOMPARE(model.addDataItemEx("Subtitle", {{"sub_linemargin", 9}}, false), true);

    QCOMPARE(model.getDataItem("Subtitle", -1), typeNode);
    QCOMPARE(rootOf(model)->childCount(), 13);
    QCOMPARE(tags(model, "Subtitle"), QStringLiteral("a b"));
    // Back to the default, the caller's value on top, and what the catalogue does not name stays.
    QCOMPARE(chosen(typeNode, {"sub_fontsize", "sub_linemargin", "dvdsubtitleposeditbyuser"}),
             QStringLiteral("{dvdsubtitleposeditbyuser: bool true, sub_fontsize: int 22, sub_linemargin: int 9}"));
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelItems::fillingATypeNodeSendsNothing_data()
{
    QTest::addColumn<QString>("type");

    for (const char* type : {"Crop", "Watermark", "Subtitle", "Audio", "Color", "Effect", "Audio_Echo", "Blur"})
        QTest::newRow(type) << type;
}

void TstModelItems::fillingATypeNodeSendsNothing()
{
    QFETCH(QString, type);
    ZoEffectModel model;
    SignalRecorder recorder(model);

    QCOMPARE(model.addDataItemEx(type, {{"own", 1}, {"_checkstate", false}}, false), true);

    QCOMPARE(described(model.data("own", type, -1)), QStringLiteral("int 1"));
    QCOMPARE(model.getDataItem(type, -1)->checkState(), 0);
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::fillingATypeNodeTakesTheCustomDefault_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("saved");
    QTest::addColumn<Properties>("props");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("editedByDefault");

    QTest::newRow("crop, which a new model would not give its custom default")
        << "Crop" << Properties{{"crop_left", 5}, {"crop_top", 6}} << Properties{{"crop_top", 7}}
        << QStringList{"crop_left", "crop_top"} << "{crop_left: int 5, crop_top: int 7}" << true;
    QTest::newRow("colour") << "Color" << Properties{{"bcs_contrast", 5}} << Properties{}
                            << QStringList{"bcs_contrast", "bcs_saturation"}
                            << "{bcs_contrast: int 5, bcs_saturation: int 0}" << true;
    QTest::newRow("subtitle takes the transparency only: the caller's file flag comes later")
        << "Subtitle" << Properties{{"sub_transparency", 12}, {"sub_fontsize", 30}}
        << Properties{{"sub_fromfile", true}} << QStringList{"sub_transparency", "sub_fontsize", "sub_fromfile"}
        << "{sub_fontsize: int 22, sub_fromfile: bool true, sub_transparency: int 12}" << false;
    QTest::newRow("watermark takes the transparency only: the caller's text flag comes later")
        << "Watermark" << Properties{{"wm_transparency", 12}, {"wm_fontsize", 30}}
        << Properties{{"wm_istextwatermark", true}}
        << QStringList{"wm_transparency", "wm_fontsize", "wm_hposition", "wm_vposition"}
        << "{wm_fontsize: int 22, wm_hposition: int 30, wm_transparency: int 12, wm_vposition: int 30}" << false;
    QTest::newRow("watermark as the only type takes the saved place and keeps the catalogue's factors")
        << "Watermark" << Properties{{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.25}} << Properties{}
        << QStringList{"wm_hposition", "wm_vposition", "wm_hposfactor", "wm_vposfactor"}
        << "{wm_hposfactor: double 0.10000000000000001, wm_hposition: int 320, "
           "wm_vposfactor: double 0.10000000000000001, wm_vposition: int 120}"
        << false;
}

void TstModelItems::fillingATypeNodeTakesTheCustomDefault()
{
    QFETCH(QString, type);
    QFETCH(Properties, saved);
    QFETCH(Properties, props);
    QFETCH(QStringList, keys);
    QFETCH(QString, expected);
    QFETCH(bool, editedByDefault);
    ZoEffectModel model(QStringList{"no type at all"});
    model.setVideoSize(640, 480);
    saveCustomDefault(type, saved);
    SignalRecorder recorder(model);

    QCOMPARE(model.addDataItemEx(type, props, false), true);

    QCOMPARE(chosen(model.getDataItem(type, -1), keys), expected);
    QCOMPARE(model.editByDefault(), editedByDefault);
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelItems::fillingATypeNodeSetsItsCheckStateOnlyWhenTold_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<QVariant>("told");
    QTest::addColumn<int>("expected");

    QTest::newRow("selected, not told") << 2 << QVariant(removedKey) << 2;
    QTest::newRow("unselected, not told") << 0 << QVariant(removedKey) << 0;
    QTest::newRow("selected, told false") << 2 << QVariant(false) << 0;
    QTest::newRow("unselected, told true") << 0 << QVariant(true) << 2;
}

void TstModelItems::fillingATypeNodeSetsItsCheckStateOnlyWhenTold()
{
    QFETCH(int, before);
    QFETCH(QVariant, told);
    QFETCH(int, expected);
    ZoEffectModel model;
    model.getDataItem("Color", -1)->setCheckState(before);
    Properties props{{"_checkstate", told}};
    if (told.toString() == QLatin1String(removedKey))
        props.clear();

    QCOMPARE(model.addDataItemEx("Color", props, false), true);

    QCOMPARE(model.getDataItem("Color", -1)->checkState(), expected);
}

void TstModelItems::fillingTheWatermarkTypeDoesNotPlaceIt()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    // Any other type node would count as a selected watermark at (30, 30), were the type node placed.
    model.getDataItem("Audio", -1)->setData("wm_hposition", 30);
    model.getDataItem("Audio", -1)->setData("wm_vposition", 30);

    QVERIFY(model.addDataItemEx("Watermark", {}, false));

    QCOMPARE(place(model.getDataItem("Watermark", -1)), QStringLiteral("{wm_hposition: int 30, wm_vposition: int 30}"));
}

void TstModelItems::deletedItemIsGone_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("expected");

    for (const char* type : {"Watermark", "Subtitle", "Audio", "Color"}) {
        QTest::addRow("first of %s", type) << type << 0 << "b c";
        QTest::addRow("middle of %s", type) << type << 1 << "a c";
        QTest::addRow("last of %s", type) << type << 2 << "a b";
    }
}

void TstModelItems::deletedItemIsGone()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    QFETCH(QString, expected);
    ZoEffectModel model;
    appendBareItems(model, type, "a b c");
    const QPointer<ZoEffectItemData> item = model.getDataItem(type, pos);
    SignalRecorder recorder(model);

    QCOMPARE(model.delDataItem(type, pos), true);

    QVERIFY(item.isNull());
    QCOMPARE(tags(model, type), expected);
    QCOMPARE(recorder.take(),
             one(QStringLiteral("effectDataChanged(%1, item_delete, invalid, %2)").arg(type).arg(pos)));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::deletingWhatIsNotThereIsLogged_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");

    QTest::newRow("right behind the end") << "Audio" << 2;
    QTest::newRow("far behind the end") << "Audio" << 900;
    QTest::newRow("greatest int") << "Audio" << INT_MAX;
    QTest::newRow("-2") << "Audio" << -2;
    QTest::newRow("smallest int") << "Audio" << INT_MIN;
    QTest::newRow("empty list") << "Watermark" << 0;
    QTest::newRow("unknown type") << "Rotation" << 0;
    QTest::newRow("unknown type, -1") << "Rotation" << -1;
    QTest::newRow("other letter case") << "audio" << 0;
    QTest::newRow("one more than the frame effects") << "Effect" << 4;
    QTest::newRow("one more than the types") << "effect root" << 13;
}

void TstModelItems::deletingWhatIsNotThereIsLogged()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    ZoEffectModel model;
    appendBareItems(model, "Audio", "a b");
    SignalRecorder recorder(model);

    QCOMPARE(model.delDataItem(type, pos), false);

    QCOMPARE(logcapture::takeEvents(), QList<int>{273});
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(tags(model, "Audio"), QStringLiteral("a b"));
    QCOMPARE(rootOf(model)->childCount(), 13);
    QCOMPARE(model.childCount("Effect"), 4);
}

void TstModelItems::deletingTheTypeItselfIsRefusedSilently_data()
{
    QTest::addColumn<QString>("type");

    for (const char* type : {"Crop", "Watermark", "Subtitle", "Audio_Speed", "Blur"})
        QTest::newRow(type) << type;
}

void TstModelItems::deletingTheTypeItselfIsRefusedSilently()
{
    QFETCH(QString, type);
    ZoEffectModel model;
    ZoEffectItemData* typeNode = model.getDataItem(type, -1);
    SignalRecorder recorder(model);

    QCOMPARE(model.delDataItem(type, -1), false);

    QCOMPARE(model.getDataItem(type, -1), typeNode);
    QCOMPARE(rootOf(model)->childCount(), 13);
    QCOMPARE(model.childCount("Effect"), 4);
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::deletingTheRootIsRefused()
{
    ZoEffectModel model;
    SignalRecorder recorder(model);

    QCOMPARE(model.delDataItem("effect root", -1), false);

    QCOMPARE(logcapture::takeEvents(), QList<int>{270});
    QCOMPARE(rootOf(model)->childCount(), 13);
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelItems::deletedItemTakesItsSubtreeAlong()
{
    ZoEffectModel model;
    ZoEffectItemData* item = appendBare(model, "Audio", "a");
    const QPointer<ZoEffectItemData> below = new ZoEffectItemData("below", item);
    const QPointer<ZoEffectItemData> deepest = new ZoEffectItemData("deepest", below);

    QVERIFY(model.delDataItem("Audio", 0));

    QVERIFY(below.isNull());
    QVERIFY(deepest.isNull());
}

void TstModelItems::embeddedTracksCanBeDeleted_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("flag");
    QTest::addColumn<bool>("fromFile");

    QTest::newRow("embedded subtitle") << "Subtitle"
                                       << "sub_fromfile" << false;
    QTest::newRow("subtitle from a file") << "Subtitle"
                                          << "sub_fromfile" << true;
    QTest::newRow("embedded audio") << "Audio"
                                    << "audio_isfile" << false;
    QTest::newRow("audio from a file") << "Audio"
                                       << "audio_isfile" << true;
}

void TstModelItems::embeddedTracksCanBeDeleted()
{
    QFETCH(QString, type);
    QFETCH(QString, flag);
    QFETCH(bool, fromFile);
    ZoEffectModel model;
    QVERIFY(model.addDataItem(type, {{flag, fromFile}, {"trackid", 1}}));
    QVERIFY(model.addDataItem(type, {{flag, fromFile}, {"trackid", 2}, {"_checkstate", false}}));

    QCOMPARE(model.delDataItem(type, 0), true);

    // The other track keeps its check state.
    QCOMPARE(model.childCount(type), 1);
    QCOMPARE(model.data("trackid", type, 0), QVariant(2));
    QCOMPARE(model.getDataItem(type, 0)->checkState(), 0);
}

void TstModelItems::typesAreDeletedThroughTheRoot()
{
    ZoEffectModel model(QStringList{"Crop", "Subtitle", "Audio"});
    SignalRecorder recorder(model);

    QCOMPARE(model.delDataItem("effect root", 1), true);

    QCOMPARE(childNames(rootOf(model)), QStringLiteral("Crop Audio"));
    QCOMPARE(recorder.take(), one("effectDataChanged(effect root, item_delete, invalid, 1)"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::itemWithoutParentIsNotDeleted()
{
    ZoEffectModel model;
    appendBareItems(model, "Audio", "a");
    auto* stray = new ZoEffectItemData("stray");
    model.getDataItem("Audio", -1)->appendChild(stray);
    SignalRecorder recorder(model);

    QCOMPARE(model.delDataItem("Audio", 1), false);

    QCOMPARE(logcapture::takeEvents(), QList<int>{270});
    QCOMPARE(model.childCount("Audio"), 2);
    QCOMPARE(model.getDataItem("Audio", 1), stray);
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelItems::itemOfAnotherListIsNotDeleted()
{
    ZoEffectModel model;
    appendBareItems(model, "Audio", "moved x y");
    appendBareItems(model, "Subtitle", "a");
    ZoEffectItemData* moved = model.getDataItem("Audio", -1)->takeAt(0);
    model.getDataItem("Subtitle", -1)->appendChild(moved);
    const std::unique_ptr<ZoEffectItemData> other(model.getDataItem("Audio", 1));
    SignalRecorder recorder(model);

    // The item names the list where it was created; what stands there at its position comes out and stays out.
    QCOMPARE(model.delDataItem("Subtitle", 1), false);

    QCOMPARE(tags(model, "Subtitle"), QStringLiteral("a moved"));
    QCOMPARE(tags(model, "Audio"), QStringLiteral("x"));
    QCOMPARE(other->data("tag").toString(), QStringLiteral("y"));
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::itemOfAnEmptyListIsNotDeleted()
{
    ZoEffectModel model;
    appendBareItems(model, "Audio", "moved");
    ZoEffectItemData* moved = model.getDataItem("Audio", -1)->takeAt(0);
    model.getDataItem("Subtitle", -1)->appendChild(moved);
    SignalRecorder recorder(model);

    QCOMPARE(model.delDataItem("Subtitle", 0), false);

    QCOMPARE(tags(model, "Subtitle"), QStringLiteral("moved"));
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::nullItemIsNotDeleted()
{
    ZoEffectModel model;
    model.getDataItem("Audio", -1)->appendChild(nullptr);
    appendBareItems(model, "Audio", "a");
    SignalRecorder recorder(model);

    QCOMPARE(model.delDataItem("Audio", 0), false);

    QCOMPARE(tags(model, "Audio"), QStringLiteral("null a"));
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>{273});
}

void TstModelItems::listenerMayDeleteTheNextItem()
{
    ZoEffectModel model;
    appendBareItems(model, "Audio", "a b c");
    SignalRecorder recorder(model);
    QStringList seen;
    QObject::connect(
        &model, QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        this, [&](const QString& type, const QString&, const QVariant&, int) {
            seen << tags(model, type);
            if (model.childCount(type) > 0)
                model.delDataItem(type, 0);
        });

    QCOMPARE(model.delDataItem("Audio", 2), true);

    QCOMPARE(model.childCount("Audio"), 0);
    QCOMPARE(seen, (QStringList{"a b", "b", ""}));
    QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Audio, item_delete, invalid, 2)",
                                           "effectDataChanged(Audio, item_delete, invalid, 0)",
                                           "effectDataChanged(Audio, item_delete, invalid, 0)"}));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::movedItemEndsAtItsDestination_data()
{
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("expected");

    QTest::newRow("last to the front") << 0 << 3 << "d a b c";
    QTest::newRow("third to the front") << 0 << 2 << "c a b d";
    QTest::newRow("first to the end") << 3 << 0 << "b c d a";
    QTest::newRow("second to the front") << 0 << 1 << "b a c d";
    QTest::newRow("first to the second place") << 1 << 0 << "b a c d";
    QTest::newRow("first to the third place") << 2 << 0 << "b c a d";
    QTest::newRow("second to the end") << 3 << 1 << "a c d b";
    QTest::newRow("last to the second place") << 1 << 3 << "a d b c";
    QTest::newRow("last by one") << 2 << 3 << "a b d c";
    QTest::newRow("third by one to the end") << 3 << 2 << "a b d c";
    QTest::newRow("third by one to the front") << 1 << 2 << "a c b d";
}

void TstModelItems::movedItemEndsAtItsDestination()
{
    QFETCH(int, to);
    QFETCH(int, from);
    QFETCH(QString, expected);

    for (const QString& type : {QStringLiteral("Watermark"), QStringLiteral("Subtitle")}) {
        ZoEffectModel model;
        appendBareItems(model, type, "a b c d");
        const ZoEffectItemData* item = model.getDataItem(type, from);
        SignalRecorder recorder(model);

        QCOMPARE(model.changeDataItemPos(type, to, from), true);

        QCOMPARE(tags(model, type), expected);
        QVERIFY(model.getDataItem(type, to) == item);
        QCOMPARE(recorder.take(),
                 one(QStringLiteral("effectDataChanged(%1, item_move, int %2, -1)").arg(type).arg(to)));
        QCOMPARE(logcapture::takeEvents(), QList<int>());
    }
}

void TstModelItems::moveNotifiesEvenWhenNothingMoved_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("from");

    QTest::newRow("to its own place") << "Audio" << 1 << 1;
    QTest::newRow("first to its own place") << "Audio" << 0 << 0;
    QTest::newRow("behind the end") << "Audio" << 3 << 0;
    QTest::newRow("from behind the end") << "Audio" << 0 << 3;
    QTest::newRow("to a negative place") << "Audio" << -1 << 0;
    QTest::newRow("from a negative place") << "Audio" << 0 << -1;
    QTest::newRow("both negative") << "Audio" << -2 << -1;
    QTest::newRow("both behind the end") << "Audio" << 8 << 9;
    QTest::newRow("greatest int") << "Audio" << INT_MAX << INT_MIN;
    QTest::newRow("empty list") << "Watermark" << 0 << 1;
    QTest::newRow("empty list, equal places") << "Watermark" << 0 << 0;
}

void TstModelItems::moveNotifiesEvenWhenNothingMoved()
{
    QFETCH(QString, type);
    QFETCH(int, to);
    QFETCH(int, from);
    ZoEffectModel model;
    appendBareItems(model, "Audio", "a b c");
    SignalRecorder recorder(model);

    QCOMPARE(model.changeDataItemPos(type, to, from), false);

    QCOMPARE(tags(model, "Audio"), QStringLiteral("a b c"));
    QCOMPARE(recorder.take(), one(QStringLiteral("effectDataChanged(%1, item_move, int %2, -1)").arg(type).arg(to)));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelItems::movingInAnUnknownTypeIsLogged_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("no such type") << "Rotation";
    QTest::newRow("other letter case") << "AUDIO";
    QTest::newRow("no name") << "";
}

void TstModelItems::movingInAnUnknownTypeIsLogged()
{
    QFETCH(QString, type);
    ZoEffectModel model;
    SignalRecorder recorder(model);

    QCOMPARE(model.changeDataItemPos(type, 0, 1), false);
    QCOMPARE(model.changeDataItemPos(type, -1, -1), false);

    QCOMPARE(logcapture::takeEvents(), (QList<int>{288, 288}));
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelItems::frameEffectsAndTypesCanBeMoved()
{
    ZoEffectModel model(QStringList{"Crop", "Effect", "Audio"});
    SignalRecorder recorder(model);

    QCOMPARE(model.changeDataItemPos("Effect", 0, 3), true);
    QCOMPARE(childNames(model.getDataItem("Effect", -1)), QStringLiteral("Sepia Blur Sharpen Mirror"));
    QCOMPARE(model.changeDataItemPos("effect root", 2, 0), true);
    QCOMPARE(childNames(rootOf(model)), QStringLiteral("Audio Effect Crop"));

    QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Effect, item_move, int 0, -1)",
                                           "effectDataChanged(effect root, item_move, int 2, -1)"}));
}

void TstModelItems::listenerMayMoveBack()
{
    ZoEffectModel model;
    appendBareItems(model, "Audio", "a b c");
    QStringList seen;
    QObject::connect(
        &model, QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        this, [&](const QString& type, const QString&, const QVariant&, int) {
            seen << tags(model, type);
            if (seen.size() == 1)
                model.changeDataItemPos(type, 0, 2);
        });

    QCOMPARE(model.changeDataItemPos("Audio", 2, 0), true);

    QCOMPARE(seen, (QStringList{"b c a", "a b c"}));
    QCOMPARE(tags(model, "Audio"), QStringLiteral("a b c"));
}

void TstModelItems::blockedSignalsStayBlocked()
{
    ZoEffectModel model;
    SignalRecorder recorder(model);
    model.blockSignals(true);

    QCOMPARE(model.insertDataItem("Audio", {}, -1), true);
    QCOMPARE(model.addDataItem("Audio", {}), true);
    QCOMPARE(model.addDataItemEx("Audio", {}, true), true);
    QCOMPARE(model.changeDataItemPos("Audio", 0, 1), true);
    QCOMPARE(model.delDataItem("Audio", 0), true);

    QCOMPARE(model.signalsBlocked(), true);
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(model.childCount("Audio"), 2);
}

ZOEFFECT_TEST_MAIN(TstModelItems)

#include "tst_model_items.moc"
