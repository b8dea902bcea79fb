// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <climits>

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

const char* const colourDefaults = "{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}";

void saveCustomDefault(const QString& type, const Properties& values)
{
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(type, values);
}

ZoEffectItemData* rootOf(const ZoEffectModel& model)
{
    return model.getDataItem(QStringLiteral("effect root"), -1);
}

/// Appends an item with nothing but \a properties to \a type, past the model.
ZoEffectItemData* appendBare(const ZoEffectModel& model, const QString& type, const Properties& properties)
{
    auto* item = new ZoEffectItemData(QString(), model.getDataItem(type, -1));
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        item->setData(it.key(), it.value());
    return item;
}

/// Tracks of \a type in the order of \a kinds: e embedded, f from a file, n a null entry. Capital letters
/// are selected. Each track's "tag" is its place.
void appendTracks(const ZoEffectModel& model, const QString& type, const QString& fileFlag, const QString& kinds)
{
    for (int i = 0; i < kinds.size(); ++i) {
        const QChar kind = kinds.at(i);
        if (kind == QLatin1Char('n')) {
            model.getDataItem(type, -1)->appendChild(nullptr);
            continue;
        }
        ZoEffectItemData* track = appendBare(model, type, {{fileFlag, kind.toLower() == QLatin1Char('f')}, {"tag", i}});
        track->setCheckState(kind.isUpper() ? 2 : 0);
    }
}

/// "<tag>:<check state>" for each track of \a type, "null" for a null entry.
QString tracks(const ZoEffectModel& model, const QString& type)
{
    QStringList texts;
    const ZoEffectItemData* typeNode = model.getDataItem(type, -1);
    for (int i = 0; i < typeNode->childCount(); ++i) {
        const ZoEffectItemData* track = typeNode->child(i);
        texts << (track ? QStringLiteral("%1:%2").arg(track->data("tag").toInt()).arg(track->checkState())
                        : QStringLiteral("null"));
    }
    return texts.join(QLatin1Char(' '));
}

QString childNames(const ZoEffectItemData* node)
{
    QStringList found;
    for (int i = 0; i < node->childCount(); ++i)
        found << node->child(i)->name();
    return found.join(QLatin1Char(' '));
}

/// "<name>:<check state>" for each frame effect in order.
QString frameEffects(const ZoEffectModel& model)
{
    QStringList texts;
    const ZoEffectItemData* typeNode = model.getDataItem("Effect", -1);
    for (int i = 0; i < typeNode->childCount(); ++i)
        texts << QStringLiteral("%1:%2").arg(typeNode->child(i)->name()).arg(typeNode->child(i)->checkState());
    return texts.join(QLatin1Char(' '));
}

QString chosen(const ZoEffectItemData* node, const QStringList& wanted)
{
    Properties values;
    for (const QString& key : wanted) {
        if (node->hasData(key))
            values.insert(key, node->data(key));
    }
    return described(values);
}

QStringList one(const QString& signal)
{
    return {signal};
}

/// Calls \a listener(key, pos) on each four-argument effectDataChanged of \a model.
template <typename Listener>
void listen(const ZoEffectModel& model, QObject* context, Listener listener)
{
    QObject::connect(
        &model, QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        context, [listener](const QString&, const QString& key, const QVariant&, int pos) { listener(key, pos); });
}

} // namespace

class TstModelReset : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void resetTypeIsAsInANewModel_data();
    void resetTypeIsAsInANewModel();
    void resetGoesForTheWholeTypeWhateverThePosition_data();
    void resetGoesForTheWholeTypeWhateverThePosition();
    void resetKeepsWhatTheCatalogueDoesNotName();
    void resetLeavesOtherTypesAlone();
    void resetUnknownTypeIsLogged_data();
    void resetUnknownTypeIsLogged();
    void frameEffectsAreRebuilt();
    void frameEffectsTakeTheirSavedOrder_data();
    void frameEffectsTakeTheirSavedOrder();
    void subItemsOfAnyTypeAreRebuilt();
    void savedOrderIsForTheFrameEffectsOnly();
    void resetTakesTheCustomDefault_data();
    void resetTakesTheCustomDefault();
    void resetOfATypeWithoutRecord_data();
    void resetOfATypeWithoutRecord();
    void resetOfATypeOfANestedTable();
    void resetOfASingleFrameEffectKeepsItsId();
    void resetOfTheRootLeavesNoTypes();
    void embeddedTracksGoWithTheirType();
    void typeIsResetWithoutCatalogue();
    void resetDoesNotTouchTheEditFlag();
    void listenerSeesTheResetType();
    void listenerMayAddItemsOnReset();

    void allTypesAreReset();
    void propertiesOfTrackTypesAndWatermarksStay();
    void tracksFromFilesAreDeleted_data();
    void tracksFromFilesAreDeleted();
    void fileFlagOfTheOtherKindDoesNotCount();
    void fileFlagIsTakenAsABoolean_data();
    void fileFlagIsTakenAsABoolean();
    void deletedTracksAreDestroyed();
    void remainingTracksKeepTheirProperties();
    void missingTypesArePassedOverSilently();
    void typesThatTheTableLacksStay();
    void nestedTypesStay();
    void videoSizeStays();
    void customDefaultsAreLaidOverAgain();
    void resetAllSendsNothing();
    void signalsAreUnblockedAtTheEnd_data();
    void signalsAreUnblockedAtTheEnd();
    void editedByUserIsCleared();
    void editedByDefaultIsNotCleared_data();
    void editedByDefaultIsNotCleared();
    void resetAllWithoutCatalogue();
    void resetAllOfAnEmptyModel();
    void resetAllGoesByTheOrderOfTheTable();
    void resetAllTwiceIsTheSame();
};

void TstModelReset::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstModelReset::cleanup()
{
    // Custom defaults of names that no table lists are not forgotten with the others.
    for (const char* name : {"Rotation", "effect root", "Spin"})
        ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal(name);
}

// --- One type ----------------------------------------------------------------------------------------------

void TstModelReset::resetTypeIsAsInANewModel_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("changed");
    QTest::addColumn<QString>("expected");

    QTest::newRow("crop") << "Crop" << Properties{{"crop_left", 5}, {"crop_width", 40}, {"crop_minwidth", 1}}
                          << "{crop_aspectratio: string Original Ratio, crop_height: string source_val, "
                             "crop_keepaspectratio: bool true, crop_left: int 0, crop_minheight: int 24, "
                             "crop_minwidth: int 24, crop_top: int 0, crop_width: string source_val}";
    QTest::newRow("watermark") << "Watermark" << Properties{{"wm_fontsize", 5}, {"wm_vposfactor", 0.5}}
                               << "{wm_fontcolor: color #ffffffff, wm_fontname: font Tahoma, wm_fontsize: int 22, "
                                  "wm_fontstyle: string Regular, wm_hposfactor: double 0.10000000000000001, "
                                  "wm_hposition: int 30, wm_imagekeepratio: bool true, "
                                  "wm_transfactor: double 2.5499999999999998, wm_transparency: int 0, "
                                  "wm_vposfactor: double 0.10000000000000001, wm_vposition: int 30}";
    QTest::newRow("subtitle") << "Subtitle" << Properties{{"sub_fontsize", 5}, {"sub_vposition", 1}}
                              << "{fontstyleusedefault: bool true, sub_fontcolor: color #ffffffff, "
                                 "sub_fontname: font Tahoma, sub_fontsize: int 22, sub_fontstyle: string Regular, "
                                 "sub_framecolor: color #ff000000, sub_hposition: int 200, sub_linemargin: int 0, "
                                 "sub_transfactor: double 2.5499999999999998, sub_transparency: int 0, "
                                 "sub_vposfactor: double 0.80000000000000004, sub_vposition: int 200}";
    QTest::newRow("audio") << "Audio" << Properties{{"play_loop", true}} << "{play_loop: bool false}";
    QTest::newRow("colour") << "Color" << Properties{{"bcs_contrast", 5}, {"bcs_saturation", "x"}} << colourDefaults;
    QTest::newRow("fade") << "Audio_Fade_Inout" << Properties{{"audio_effect_flag", true}, {"audio_fade_in", 8}}
                          << "{audio_effect_flag: bool false, audio_fade_in: int 3, audio_fade_in_enable: bool false, "
                             "audio_fade_out: int 3, audio_fade_out_enable: bool true}";
    QTest::newRow("speed") << "Audio_Speed" << Properties{{"audio_speed_factor", 10}}
                           << "{audio_effect_flag: bool false, audio_speed_factor: int 100}";
    QTest::newRow("frame effects have no own properties") << "Effect" << Properties{} << "{}";
}

void TstModelReset::resetTypeIsAsInANewModel()
{
    QFETCH(QString, type);
    QFETCH(Properties, changed);
    QFETCH(QString, expected);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    ZoEffectItemData* typeNode = model.getDataItem(type, -1);
    const int place = typeNode->childNumber();
    for (auto it = changed.cbegin(); it != changed.cend(); ++it)
        typeNode->setData(it.key(), it.value());
    typeNode->setCheckState(0);
    appendBare(model, type, {});
    const QPointer<ZoEffectItemData> item = appendBare(model, type, {});
    SignalRecorder recorder(model);

    QCOMPARE(model.resetDataItem(type, -1), true);

    QVERIFY(item.isNull());
    QCOMPARE(model.getDataItem(type, -1), typeNode);
    QCOMPARE(typeNode->childNumber(), place);
    QCOMPARE(described(typeNode->properties()), expected);
    QCOMPARE(typeNode->checkState(), 2);
    QCOMPARE(typeNode->childCount(), type == "Effect" ? 4 : 0);
    QCOMPARE(recorder.take(), one(QStringLiteral("effectDataChanged(%1, reset, invalid, -1)").arg(type)));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReset::resetGoesForTheWholeTypeWhateverThePosition_data()
{
    QTest::addColumn<int>("pos");

    QTest::newRow("the type") << -1;
    QTest::newRow("an item") << 1;
    QTest::newRow("behind the end") << 42;
    QTest::newRow("-2") << -2;
    QTest::newRow("greatest int") << INT_MAX;
    QTest::newRow("smallest int") << INT_MIN;
}

void TstModelReset::resetGoesForTheWholeTypeWhateverThePosition()
{
    QFETCH(int, pos);
    ZoEffectModel model;
    for (int i = 0; i < 3; ++i)
        appendBare(model, "Watermark", {});
    model.getDataItem("Watermark", -1)->setData("wm_fontsize", 60);
    SignalRecorder recorder(model);

    QCOMPARE(model.resetDataItem("Watermark", pos), true);

    QCOMPARE(model.childCount("Watermark"), 0);
    QCOMPARE(described(model.data("wm_fontsize", "Watermark", -1)), QStringLiteral("int 22"));
    QCOMPARE(recorder.take(), one(QStringLiteral("effectDataChanged(Watermark, reset, invalid, %1)").arg(pos)));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReset::resetKeepsWhatTheCatalogueDoesNotName()
{
    ZoEffectModel model;
    ZoEffectItemData* typeNode = model.getDataItem("Subtitle", -1);
    typeNode->setData("own", 7);
    typeNode->setData("dvdsubtitleposeditbyuser", true);
    int hostData = 0;
    typeNode->setInternalData(&hostData);

    QVERIFY(model.resetDataItem("Subtitle", -1));

    QCOMPARE(chosen(typeNode, {"own", "dvdsubtitleposeditbyuser"}),
             QStringLiteral("{dvdsubtitleposeditbyuser: bool true, own: int 7}"));
    QVERIFY(typeNode->internalData() == &hostData);
}

void TstModelReset::resetLeavesOtherTypesAlone()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    model.getDataItem("Color", -1)->setData("bcs_contrast", 9);
    model.getDataItem("Color", -1)->setCheckState(0);
    appendTracks(model, "Audio", "audio_isfile", "EF");

    QVERIFY(model.resetDataItem("Watermark", -1));

    QCOMPARE(described(model.data("bcs_contrast", "Color", -1)), QStringLiteral("int 9"));
    QCOMPARE(model.getDataItem("Color", -1)->checkState(), 0);
    QCOMPARE(tracks(model, "Audio"), QStringLiteral("0:2 1:2"));
    QCOMPARE(rootOf(model)->childCount(), 13);
    QCOMPARE(model.baseSize(), QSize(640, 480));
}

void TstModelReset::resetUnknownTypeIsLogged_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("no such type") << "Rotation";
    QTest::newRow("other letter case") << "COLOR";
    QTest::newRow("no name") << "";
    QTest::newRow("type that the table has and the model has not") << "Crop";
}

void TstModelReset::resetUnknownTypeIsLogged()
{
    QFETCH(QString, type);
    ZoEffectModel model(QStringList{"Color"});
    model.getDataItem("Color", -1)->setData("bcs_contrast", 9);
    SignalRecorder recorder(model);

    QCOMPARE(model.resetDataItem(type, 3), false);

    QCOMPARE(logcapture::takeEvents(), QList<int>{622});
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(childNames(rootOf(model)), QStringLiteral("Color"));
    QCOMPARE(described(model.data("bcs_contrast", "Color", -1)), QStringLiteral("int 9"));
}

void TstModelReset::frameEffectsAreRebuilt()
{
    ZoEffectModel model;
    ZoEffectItemData* typeNode = model.getDataItem("Effect", -1);
    typeNode->changeItemPos(0, 3);
    typeNode->child(0)->setCheckState(2);
    typeNode->child(1)->setData("id", 99);
    typeNode->removeChildren(2, 1);
    new ZoEffectItemData("Wave", typeNode);

    QVERIFY(model.resetDataItem("Effect", -1));

    QCOMPARE(frameEffects(model), QStringLiteral("Blur:0 Sharpen:0 Mirror:0 Sepia:0"));
    const SubEffectItem* records = hostCatalogue()[5].subItems;
    const QStringList properties{"{id: int 11}", "{id: int 12}", "{id: int 13}", "{id: int 14}"};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(described(typeNode->child(i)->properties()), properties.at(i));
        QVERIFY(typeNode->child(i)->internalData() == static_cast<const void*>(records + i));
    }
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReset::frameEffectsTakeTheirSavedOrder_data()
{
    QTest::addColumn<QString>("saved");
    QTest::addColumn<QString>("expected");

    QTest::newRow("other order and states") << "Sepia|true|Blur|false|Mirror|true|Sharpen|false"
                                            << "Sepia:2 Blur:0 Mirror:2 Sharpen:0";
    QTest::newRow("catalogue's order, all on") << "Blur|true|Sharpen|true|Mirror|true|Sepia|true"
                                               << "Blur:2 Sharpen:2 Mirror:2 Sepia:2";
    QTest::newRow("fewer than there are") << "Sepia|true|Blur|true"
                                          << "Blur:0 Sharpen:0 Mirror:0 Sepia:0";
    QTest::newRow("unknown name ends it there") << "Sepia|true|Wave|true|Blur|true|Mirror|true"
                                                << "Sepia:2 Blur:0 Sharpen:0 Mirror:0";
    QTest::newRow("nothing saved") << ""
                                   << "Blur:0 Sharpen:0 Mirror:0 Sepia:0";
}

void TstModelReset::frameEffectsTakeTheirSavedOrder()
{
    QFETCH(QString, saved);
    QFETCH(QString, expected);
    ZoEffectModel one;
    ZoEffectModel all;
    saveCustomDefault("Effect", {{"Effect", saved}});

    QVERIFY(one.resetDataItem("Effect", 2));
    all.resetAllEffect();

    QCOMPARE(frameEffects(one), expected);
    QCOMPARE(frameEffects(all), expected);
    // The custom default of the type itself is laid over its node, too.
    QCOMPARE(described(one.getDataItem("Effect", -1)->properties()), QStringLiteral("{Effect: string %1}").arg(saved));
    QCOMPARE(one.editByDefault(), true);
}

void TstModelReset::subItemsOfAnyTypeAreRebuilt()
{
    static const EffectDefaultVal on[] = {
        ::property("_checkstate", true),
        ::property("speed", 3),
        ::property(nullptr, 0),
    };
    static const SubEffectItem subItems[] = {subItem("Left", 1, on), subItem("Right", 2), subItem(nullptr, 0)};
    static const EffectControlItem table[] = {effectType("Spin", nullptr, subItems), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;
    ZoEffectItemData* typeNode = model.getDataItem("Spin", -1);
    typeNode->clear();

    QVERIFY(model.resetDataItem("Spin", -1));

    QCOMPARE(childNames(typeNode), QStringLiteral("Left Right"));
    QCOMPARE(described(typeNode->child(0)->properties()), QStringLiteral("{id: int 1, speed: int 3}"));
    QCOMPARE(typeNode->child(0)->checkState(), 2);
    QCOMPARE(described(typeNode->child(1)->properties()), QStringLiteral("{id: int 2}"));
    QCOMPARE(typeNode->child(1)->checkState(), 2);
}

void TstModelReset::savedOrderIsForTheFrameEffectsOnly()
{
    static const SubEffectItem subItems[] = {subItem("Left", 1), subItem("Right", 2), subItem(nullptr, 0)};
    static const EffectControlItem table[] = {effectType("Effect", nullptr, subItems),
                                              effectType("Spin", nullptr, subItems), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;
    saveCustomDefault("Effect", {{"Effect", "Right|false|Left|true"}});

    QVERIFY(model.resetDataItem("Spin", -1));
    QCOMPARE(childNames(model.getDataItem("Spin", -1)), QStringLiteral("Left Right"));
    // Resetting another type leaves the frame effects as they are.
    QCOMPARE(frameEffects(model), QStringLiteral("Left:2 Right:2"));

    QVERIFY(model.resetDataItem("Effect", -1));
    QCOMPARE(frameEffects(model), QStringLiteral("Right:0 Left:2"));
}

void TstModelReset::resetTakesTheCustomDefault_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("saved");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("editedByDefault");

    QTest::newRow("colour") << "Color" << Properties{{"bcs_contrast", 5}, {"own", 1}}
                            << QStringList{"bcs_contrast", "bcs_saturation", "own"}
                            << "{bcs_contrast: int 5, bcs_saturation: int 0, own: int 1}" << true;
    QTest::newRow("echo") << "Audio_Echo" << Properties{{"audio_echo_decay", 9}} << QStringList{"audio_echo_decay"}
                          << "{audio_echo_decay: int 9}" << true;
    QTest::newRow("audio") << "Audio" << Properties{{"play_loop", true}} << QStringList{"play_loop"}
                           << "{play_loop: bool true}" << true;
    QTest::newRow("subtitle takes the transparency")
        << "Subtitle" << Properties{{"sub_transparency", 5}, {"sub_fontsize", 9}}
        << QStringList{"sub_transparency", "sub_fontsize"} << "{sub_fontsize: int 22, sub_transparency: int 5}"
        << false;
    QTest::newRow("crop keeps the catalogue's")
        << "Crop" << Properties{{"crop_left", 5}} << QStringList{"crop_left"} << "{crop_left: int 0}" << false;
    QTest::newRow("watermark keeps the catalogue's")
        << "Watermark" << Properties{{"wm_transparency", 5}, {"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.5}}
        << QStringList{"wm_transparency", "wm_hposition"} << "{wm_hposition: int 30, wm_transparency: int 0}" << false;
    QTest::newRow("empty custom default")
        << "Color" << Properties{} << QStringList{"bcs_contrast"} << "{bcs_contrast: int 0}" << false;
}

void TstModelReset::resetTakesTheCustomDefault()
{
    QFETCH(QString, type);
    QFETCH(Properties, saved);
    QFETCH(QStringList, keys);
    QFETCH(QString, expected);
    QFETCH(bool, editedByDefault);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    saveCustomDefault(type, saved);

    QVERIFY(model.resetDataItem(type, -1));

    QCOMPARE(chosen(model.getDataItem(type, -1), keys), expected);
    QCOMPARE(model.editByDefault(), editedByDefault);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReset::resetOfATypeWithoutRecord_data()
{
    QTest::addColumn<Properties>("saved");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("editedByDefault");

    QTest::newRow("nothing saved") << Properties{} << "{angle: int 90}" << false;
    QTest::newRow("custom default") << Properties{{"angle", 45}, {"own", 1}} << "{angle: int 45, own: int 1}" << true;
}

void TstModelReset::resetOfATypeWithoutRecord()
{
    QFETCH(Properties, saved);
    QFETCH(QString, expected);
    QFETCH(bool, editedByDefault);
    ZoEffectModel model;
    QVERIFY(model.addDataItemEx("Rotation", {{"angle", 90}, {"_checkstate", false}}, false));
    appendBare(model, "Rotation", {});
    if (!saved.isEmpty())
        saveCustomDefault("Rotation", saved);
    SignalRecorder recorder(model);

    QCOMPARE(model.resetDataItem("Rotation", 4), true);

    QCOMPARE(described(model.getDataItem("Rotation", -1)->properties()), expected);
    QCOMPARE(model.getDataItem("Rotation", -1)->checkState(), 2);
    QCOMPARE(model.childCount("Rotation"), 0);
    QCOMPARE(model.editByDefault(), editedByDefault);
    QCOMPARE(recorder.take(), one("effectDataChanged(Rotation, reset, invalid, 4)"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReset::resetOfATypeOfANestedTable()
{
    static const EffectDefaultVal properties[] = {::property("speed", 3), ::property(nullptr, 0)};
    static const SubEffectItem subItems[] = {subItem("Left", 1), subItem(nullptr, 0)};
    static const EffectControlItem nested[] = {effectType("Spin", properties, subItems), effectType(nullptr, nullptr)};
    static const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, nested),
                                              effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;
    QVERIFY(model.addDataItemEx("Spin", {{"speed", 9}}, false));

    QVERIFY(model.resetDataItem("Spin", -1));

    QCOMPARE(described(model.getDataItem("Spin", -1)->properties()), QStringLiteral("{speed: int 3}"));
    QCOMPARE(childNames(model.getDataItem("Spin", -1)), QStringLiteral("Left"));
}

void TstModelReset::resetOfASingleFrameEffectKeepsItsId()
{
    ZoEffectModel model;
    SignalRecorder recorder(model);

    // Found by its name; its record is no type's, so only the check state changes.
    QCOMPARE(model.resetDataItem("Mirror", 2), true);

    QCOMPARE(frameEffects(model), QStringLiteral("Blur:0 Sharpen:0 Mirror:2 Sepia:0"));
    QCOMPARE(described(model.getDataItem("Mirror", -1)->properties()), QStringLiteral("{id: int 13}"));
    QCOMPARE(recorder.take(), one("effectDataChanged(Mirror, reset, invalid, 2)"));
}

void TstModelReset::resetOfTheRootLeavesNoTypes()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    SignalRecorder recorder(model);

    QCOMPARE(model.resetDataItem("effect root", -1), true);

    QCOMPARE(rootOf(model)->childCount(), 0);
    QCOMPARE(model.baseSize(), QSize(640, 480));
    QCOMPARE(recorder.take(), one("effectDataChanged(effect root, reset, invalid, -1)"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReset::embeddedTracksGoWithTheirType()
{
    ZoEffectModel model;
    appendTracks(model, "Audio", "audio_isfile", "EeF");
    appendTracks(model, "Subtitle", "sub_fromfile", "EeF");

    QVERIFY(model.resetDataItem("Audio", 0));
    QVERIFY(model.resetDataItem("Subtitle", 0));

    // Only the reset of everything keeps them.
    QCOMPARE(model.childCount("Audio"), 0);
    QCOMPARE(model.childCount("Subtitle"), 0);
}

void TstModelReset::typeIsResetWithoutCatalogue()
{
    ZoEffectModel model;
    model.getDataItem("Color", -1)->setData("bcs_contrast", 9);
    model.getDataItem("Color", -1)->setCheckState(0);
    ZoEffectModel::InitEffectModel(nullptr);
    logcapture::takeEvents();
    SignalRecorder recorder(model);

    QCOMPARE(model.resetDataItem("Color", -1), true);
    QCOMPARE(model.resetDataItem("Effect", -1), true);

    QCOMPARE(described(model.data("bcs_contrast", "Color", -1)), QStringLiteral("int 9"));
    QCOMPARE(model.getDataItem("Color", -1)->checkState(), 2);
    QCOMPARE(model.childCount("Effect"), 0);
    QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Color, reset, invalid, -1)",
                                           "effectDataChanged(Effect, reset, invalid, -1)"}));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReset::resetDoesNotTouchTheEditFlag()
{
    ZoEffectModel model;
    QVERIFY(model.resetDataItem("Subtitle", -1));
    QCOMPARE(model.editByUser(), false);

    appendTracks(model, "Subtitle", "sub_fromfile", "E");
    model.replaceItemDataProperty("Subtitle", {});
    QVERIFY(model.resetDataItem("Subtitle", -1));
    QCOMPARE(model.editByUser(), true);
}

void TstModelReset::listenerSeesTheResetType()
{
    ZoEffectModel model;
    saveCustomDefault("Effect", {{"Effect", "Sepia|true|Blur|false|Mirror|true|Sharpen|false"}});
    QStringList seen;
    listen(model, this, [&](const QString& key, int) { seen << key + ' ' + frameEffects(model); });

    QVERIFY(model.resetDataItem("Effect", -1));

    QCOMPARE(seen, one("reset Sepia:2 Blur:0 Mirror:2 Sharpen:0"));
}

void TstModelReset::listenerMayAddItemsOnReset()
{
    ZoEffectModel model;
    SignalRecorder recorder(model);
    listen(model, this, [&](const QString& key, int) {
        if (key == "reset")
            model.addDataItem("Audio", {{"tag", 5}});
    });

    QCOMPARE(model.resetDataItem("Audio", 7), true);

    QCOMPARE(tracks(model, "Audio"), QStringLiteral("5:2"));
    QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Audio, reset, invalid, 7)",
                                           "effectDataChanged(Audio, item_add, invalid, 0)"}));
}

// --- Everything --------------------------------------------------------------------------------------------

void TstModelReset::allTypesAreReset()
{
    ZoEffectModel model;
    ZoEffectItemData* root = rootOf(model);
    for (int i = 0; i < root->childCount(); ++i) {
        ZoEffectItemData* typeNode = root->child(i);
        typeNode->setCheckState(0);
        const QStringList keys = typeNode->properties().keys();
        for (const QString& key : keys)
            typeNode->setData(key, "changed");
        typeNode->setData("own", 1);
        appendBare(model, typeNode->name(), {{"audio_isfile", true}, {"sub_fromfile", true}});
    }

    model.resetAllEffect();

    QCOMPARE(childNames(root), QStringLiteral("Crop Watermark Subtitle Audio Color Effect Audio_Fade_Inout "
                                              "Audio_Normalize Audio_BandPass Audio_Chorus Audio_Flanger "
                                              "Audio_Echo Audio_Speed"));
    for (int i = 0; i < root->childCount(); ++i) {
        const ZoEffectItemData* typeNode = root->child(i);
        QCOMPARE(typeNode->checkState(), 2);
        QCOMPARE(typeNode->childCount(), typeNode->name() == "Effect" ? 4 : 0);
        QCOMPARE(described(typeNode->data("own")), QStringLiteral("int 1"));
    }
    QCOMPARE(frameEffects(model), QStringLiteral("Blur:0 Sharpen:0 Mirror:0 Sepia:0"));
    QCOMPARE(chosen(model.getDataItem("Crop", -1), {"crop_left", "crop_width", "crop_keepaspectratio"}),
             QStringLiteral("{crop_keepaspectratio: bool true, crop_left: int 0, crop_width: string source_val}"));
    QCOMPARE(chosen(model.getDataItem("Color", -1), {"bcs_brightness", "bcs_contrast", "bcs_saturation"}),
             QString::fromLatin1(colourDefaults));
    QCOMPARE(chosen(model.getDataItem("Audio_Fade_Inout", -1), {"audio_effect_flag", "audio_fade_out_enable"}),
             QStringLiteral("{audio_effect_flag: bool false, audio_fade_out_enable: bool true}"));
    QCOMPARE(described(model.data("audio_normalize_maxLevel", "Audio_Normalize", -1)), QStringLiteral("int 98"));
    QCOMPARE(described(model.data("audio_bandpass_requency", "Audio_BandPass", -1)), QStringLiteral("int 1000"));
    QCOMPARE(described(model.data("audio_chorus_decay", "Audio_Chorus", -1)), QStringLiteral("int 50"));
    QCOMPARE(described(model.data("audio_flanger_delay", "Audio_Flanger", -1)), QStringLiteral("int 3"));
    QCOMPARE(described(model.data("audio_echo_decay", "Audio_Echo", -1)), QStringLiteral("int 500"));
    QCOMPARE(described(model.data("audio_speed_factor", "Audio_Speed", -1)), QStringLiteral("int 100"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReset::propertiesOfTrackTypesAndWatermarksStay()
{
    ZoEffectModel model;
    model.getDataItem("Audio", -1)->setData("play_loop", true);
    model.getDataItem("Subtitle", -1)->setData("sub_fontsize", 60);
    model.getDataItem("Watermark", -1)->setData("wm_fontsize", 60);

    model.resetAllEffect();

    // Of these three only the list and the check state are reset.
    QCOMPARE(described(model.data("play_loop", "Audio", -1)), QStringLiteral("bool true"));
    QCOMPARE(described(model.data("sub_fontsize", "Subtitle", -1)), QStringLiteral("int 60"));
    QCOMPARE(described(model.data("wm_fontsize", "Watermark", -1)), QStringLiteral("int 60"));
}

void TstModelReset::tracksFromFilesAreDeleted_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");

    QTest::newRow("no tracks") << ""
                               << "";
    QTest::newRow("two embedded, two from files") << "eeff"
                                                  << "0:2 1:0";
    QTest::newRow("two embedded, two from files, all selected") << "EEFF"
                                                                << "0:2 1:0";
    QTest::newRow("the second embedded one was selected") << "eEff"
                                                          << "0:2 1:0";
    QTest::newRow("a file was selected") << "eefF"
                                         << "0:2 1:0";
    QTest::newRow("embedded only") << "eEe"
                                   << "0:2 1:0 2:0";
    QTest::newRow("one embedded, unselected") << "e"
                                              << "0:2";
    QTest::newRow("files only") << "FfF"
                                << "";
    QTest::newRow("one file") << "F"
                              << "";
    QTest::newRow("file before an embedded one survives") << "Fef"
                                                          << "0:2 1:0";
    QTest::newRow("file between embedded ones survives") << "efeff"
                                                         << "0:2 1:0 2:0";
    QTest::newRow("files before the only embedded one survive") << "fFE"
                                                                << "0:2 1:0 2:0";
    QTest::newRow("null entry between files") << "efnf"
                                              << "0:2 null";
    QTest::newRow("null entry first") << "nef"
                                      << "null 1:2";
    QTest::newRow("null entry between embedded ones") << "EnEf"
                                                      << "0:2 null 2:0";
    QTest::newRow("null entry last") << "een"
                                     << "0:2 1:0 null";
}

void TstModelReset::tracksFromFilesAreDeleted()
{
    QFETCH(QString, before);
    QFETCH(QString, after);

    const QList<QPair<QString, QString>> kinds{{"Audio", "audio_isfile"}, {"Subtitle", "sub_fromfile"}};
    for (const auto& kind : kinds) {
        for (const int typeState : {0, 2}) {
            ZoEffectModel model;
            appendTracks(model, kind.first, kind.second, before);
            model.getDataItem(kind.first, -1)->setCheckState(typeState);
            SignalRecorder recorder(model);

            model.resetAllEffect();

            QCOMPARE(tracks(model, kind.first), after);
            QCOMPARE(model.getDataItem(kind.first, -1)->checkState(), 2);
            QCOMPARE(recorder.take(), QStringList());
            QCOMPARE(logcapture::takeEvents(), QList<int>());
        }
    }
}

void TstModelReset::fileFlagOfTheOtherKindDoesNotCount()
{
    ZoEffectModel model;
    appendTracks(model, "Audio", "sub_fromfile", "ff");
    appendTracks(model, "Subtitle", "audio_isfile", "ff");

    model.resetAllEffect();

    QCOMPARE(tracks(model, "Audio"), QStringLiteral("0:2 1:0"));
    QCOMPARE(tracks(model, "Subtitle"), QStringLiteral("0:2 1:0"));
}

void TstModelReset::fileFlagIsTakenAsABoolean_data()
{
    QTest::addColumn<QVariant>("flag");
    QTest::addColumn<bool>("deleted");

    QTest::newRow("true") << QVariant(true) << true;
    QTest::newRow("1") << QVariant(1) << true;
    QTest::newRow("text true") << QVariant("true") << true;
    QTest::newRow("any other text") << QVariant("a.mp3") << true;
    QTest::newRow("false") << QVariant(false) << false;
    QTest::newRow("0") << QVariant(0) << false;
    QTest::newRow("text false") << QVariant("false") << false;
    QTest::newRow("empty text") << QVariant("") << false;
    QTest::newRow("invalid") << QVariant() << false;
}

void TstModelReset::fileFlagIsTakenAsABoolean()
{
    QFETCH(QVariant, flag);
    QFETCH(bool, deleted);
    ZoEffectModel model;
    appendBare(model, "Audio", {{"audio_isfile", flag}});
    appendBare(model, "Subtitle", {{"sub_fromfile", flag}});

    model.resetAllEffect();

    QCOMPARE(model.childCount("Audio"), deleted ? 0 : 1);
    QCOMPARE(model.childCount("Subtitle"), deleted ? 0 : 1);
}

void TstModelReset::deletedTracksAreDestroyed()
{
    ZoEffectModel model;
    const QPointer<ZoEffectItemData> audio = appendBare(model, "Audio", {{"audio_isfile", true}});
    const QPointer<ZoEffectItemData> below = new ZoEffectItemData("below", audio);
    const QPointer<ZoEffectItemData> watermark = appendBare(model, "Watermark", {});
    const QPointer<ZoEffectItemData> kept = appendBare(model, "Subtitle", {});

    model.resetAllEffect();

    QVERIFY(audio.isNull());
    QVERIFY(below.isNull());
    QVERIFY(watermark.isNull());
    QVERIFY(!kept.isNull());
    QCOMPARE(model.getDataItem("Subtitle", 0), kept.data());
}

void TstModelReset::remainingTracksKeepTheirProperties()
{
    ZoEffectModel model;
    ZoEffectItemData* track =
        appendBare(model, "Subtitle", {{"sub_fontsize", 60}, {"trackid", 4}, {"dvdsubtitleposeditbyuser", true}});
    saveCustomDefault("Subtitle", {{"sub_transparency", 9}});

    model.resetAllEffect();

    QCOMPARE(described(track->properties()),
             QStringLiteral("{dvdsubtitleposeditbyuser: bool true, sub_fontsize: int 60, trackid: int 4}"));
}

void TstModelReset::missingTypesArePassedOverSilently()
{
    for (const QStringList& types :
         {QStringList{"Color"}, QStringList{"Crop", "Effect"}, QStringList{"Audio", "Subtitle"}, QStringList{"none"}}) {
        ZoEffectModel model(types);
        const QString before = childNames(rootOf(model));
        SignalRecorder recorder(model);

        model.resetAllEffect();

        QCOMPARE(childNames(rootOf(model)), before);
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(logcapture::takeEvents(), QList<int>());
    }
}

void TstModelReset::typesThatTheTableLacksStay()
{
    ZoEffectModel model;
    QVERIFY(model.addDataItemEx("Rotation", {{"angle", 90}, {"_checkstate", false}}, false));
    appendBare(model, "Rotation", {{"tag", 1}});

    model.resetAllEffect();

    QCOMPARE(described(model.getDataItem("Rotation", -1)->properties()), QStringLiteral("{angle: int 90}"));
    QCOMPARE(model.getDataItem("Rotation", -1)->checkState(), 0);
    QCOMPARE(model.childCount("Rotation"), 1);
}

void TstModelReset::nestedTypesStay()
{
    static const EffectDefaultVal properties[] = {::property("speed", 3), ::property(nullptr, 0)};
    static const EffectControlItem nested[] = {effectType("Spin", properties), effectType(nullptr, nullptr)};
    static const EffectControlItem table[] = {effectType("Group", properties, nullptr, nested),
                                              effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;
    QVERIFY(model.addDataItemEx("Spin", {{"speed", 9}, {"_checkstate", false}}, false));
    model.getDataItem("Group", -1)->setData("speed", 9);

    model.resetAllEffect();

    QCOMPARE(described(model.data("speed", "Group", -1)), QStringLiteral("int 3"));
    QCOMPARE(described(model.data("speed", "Spin", -1)), QStringLiteral("int 9"));
    QCOMPARE(model.getDataItem("Spin", -1)->checkState(), 0);
}

void TstModelReset::videoSizeStays()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    rootOf(model)->setData("own", 1);
    rootOf(model)->setCheckState(0);

    model.resetAllEffect();

    QCOMPARE(described(rootOf(model)->properties()), QStringLiteral("{h: int 480, own: int 1, w: int 640}"));
    QCOMPARE(rootOf(model)->checkState(), 0);
}

void TstModelReset::customDefaultsAreLaidOverAgain()
{
    ZoEffectModel model;
    saveCustomDefault("Color", {{"bcs_contrast", 5}});
    saveCustomDefault("Crop", {{"crop_left", 5}});
    saveCustomDefault("Watermark", {{"wm_transparency", 5}});
    saveCustomDefault("Subtitle", {{"sub_transparency", 5}});
    saveCustomDefault("Audio", {{"play_loop", true}});

    model.resetAllEffect();

    QCOMPARE(described(model.data("bcs_contrast", "Color", -1)), QStringLiteral("int 5"));
    QCOMPARE(described(model.data("crop_left", "Crop", -1)), QStringLiteral("int 0"));
    QCOMPARE(described(model.data("wm_transparency", "Watermark", -1)), QStringLiteral("int 0"));
    // The nodes of the track types keep their properties.
    QCOMPARE(described(model.data("sub_transparency", "Subtitle", -1)), QStringLiteral("int 0"));
    QCOMPARE(described(model.data("play_loop", "Audio", -1)), QStringLiteral("bool false"));
    QCOMPARE(model.editByDefault(), true);
}

void TstModelReset::resetAllSendsNothing()
{
    ZoEffectModel model;
    appendTracks(model, "Audio", "audio_isfile", "EF");
    appendBare(model, "Watermark", {});
    model.getDataItem("Crop", -1)->setData("crop_left", 5);
    SignalRecorder recorder(model);
    int heard = 0;
    listen(model, this, [&](const QString&, int) { ++heard; });

    model.resetAllEffect();

    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(heard, 0);
    // Afterwards changes are told again.
    QVERIFY(model.setData("crop_left", 6, "Crop", -1));
    QCOMPARE(recorder.take(), one("effectDataChanged(Crop, crop_left, int 6, -1)"));
    QCOMPARE(heard, 1);
}

void TstModelReset::signalsAreUnblockedAtTheEnd_data()
{
    QTest::addColumn<bool>("blockedBefore");
    QTest::addColumn<QStringList>("types");

    QTest::newRow("not blocked before") << false << QStringList();
    QTest::newRow("blocked before") << true << QStringList();
    QTest::newRow("blocked before, no type to reset") << true << QStringList{"none"};
    QTest::newRow("blocked before, tracks only") << true << QStringList{"Audio"};
}

void TstModelReset::signalsAreUnblockedAtTheEnd()
{
    QFETCH(bool, blockedBefore);
    QFETCH(QStringList, types);
    ZoEffectModel model(types);
    SignalRecorder recorder(model);
    model.blockSignals(blockedBefore);

    model.resetAllEffect();

    QCOMPARE(model.signalsBlocked(), false);
    QCOMPARE(recorder.take(), QStringList());
    model.setCurrentItem("Crop");
    QCOMPARE(recorder.take(), one("currentItemChanged(Crop)"));
}

void TstModelReset::editedByUserIsCleared()
{
    ZoEffectModel model;
    appendTracks(model, "Subtitle", "sub_fromfile", "E");
    model.replaceItemDataProperty("Subtitle", {});
    QCOMPARE(model.editByUser(), true);

    model.resetAllEffect();
    QCOMPARE(model.editByUser(), false);

    model.replaceItemDataProperty("Subtitle", {});
    QCOMPARE(model.editByUser(), true);
}

void TstModelReset::editedByDefaultIsNotCleared_data()
{
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QString>("after");

    QTest::newRow("true") << QVariant(true) << "bool true";
    QTest::newRow("false") << QVariant(false) << "bool false";
    QTest::newRow("never set") << QVariant() << "invalid";
}

void TstModelReset::editedByDefaultIsNotCleared()
{
    QFETCH(QVariant, before);
    QFETCH(QString, after);
    ZoEffectModel model;
    if (before.isValid())
        rootOf(model)->setData("editbydefault", before);

    model.resetAllEffect();

    QCOMPARE(described(rootOf(model)->data("editbydefault")), after);
}

void TstModelReset::resetAllWithoutCatalogue()
{
    ZoEffectModel model;
    appendTracks(model, "Subtitle", "sub_fromfile", "eF");
    model.replaceItemDataProperty("Subtitle", {});
    model.getDataItem("Color", -1)->setData("bcs_contrast", 9);
    ZoEffectModel::InitEffectModel(nullptr);
    logcapture::takeEvents();
    model.blockSignals(true);

    model.resetAllEffect();

    QCOMPARE(model.signalsBlocked(), false);
    QCOMPARE(model.editByUser(), false);
    QCOMPARE(tracks(model, "Subtitle"), QStringLiteral("0:0 1:2"));
    QCOMPARE(described(model.data("bcs_contrast", "Color", -1)), QStringLiteral("int 9"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReset::resetAllOfAnEmptyModel()
{
    const ZoEffectModel full;
    ZoEffectModel model(full, nullptr);
    QCOMPARE(rootOf(model)->childCount(), 0);

    model.resetAllEffect();

    QCOMPARE(rootOf(model)->childCount(), 0);
    QCOMPARE(model.signalsBlocked(), false);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReset::resetAllGoesByTheOrderOfTheTable()
{
    static const EffectDefaultVal properties[] = {::property("speed", 3), ::property(nullptr, 0)};
    static const SubEffectItem subItems[] = {subItem("Second", 1), subItem(nullptr, 0)};
    static const EffectControlItem first[] = {effectType("First", properties, subItems),
                                              effectType("Second", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(first);
    ZoEffectModel model;
    model.getDataItem("First", -1)->clear();
    ZoEffectItemData* second = model.getDataItem("Second", -1);
    second->setData("speed", 9);

    model.resetAllEffect();

    // The reset of the first type brought its sub-item back, which bears the name of the second type and is
    // found before it.
    QCOMPARE(described(second->data("speed")), QStringLiteral("int 9"));
    QCOMPARE(described(model.getDataItem("First", 0)->properties()), QStringLiteral("{id: int 1, speed: int 3}"));
}

void TstModelReset::resetAllTwiceIsTheSame()
{
    ZoEffectModel model;
    appendTracks(model, "Audio", "audio_isfile", "FeFf");

    model.resetAllEffect();
    QCOMPARE(tracks(model, "Audio"), QStringLiteral("0:2 1:0"));
    model.resetAllEffect();
    QCOMPARE(tracks(model, "Audio"), QStringLiteral("0:2 1:0"));
    QCOMPARE(frameEffects(model), QStringLiteral("Blur:0 Sharpen:0 Mirror:0 Sepia:0"));
}

ZOEFFECT_TEST_MAIN(TstModelReset)

#include "tst_model_reset.moc"
