// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Resetting one type, and resetting everything.

#include <climits>

#include <QPointer>

#include <zoeffectmodel.h>

#include "modeltest.h"

namespace {

const char* const colourDefaults = "{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}";
const char* const allOff = "Blur:0 Sharpen:0 Mirror:0 Sepia:0";

void addTracks(const ZoEffectModel& model, const QString& type, const QString& kinds)
{
    addTracks(model.getDataItem(type, -1), type == "Audio" ? "audio_isfile" : "sub_fromfile", kinds);
}

/// "<place at first>:<check state>" for each track of \a type, "null" for a null entry.
QString tracks(const ZoEffectModel& model, const QString& type)
{
    QStringList texts;
    const ZoEffectItemData* typeNode = model.getDataItem(type, -1);
    for (int i = 0; i < typeNode->childCount(); ++i) {
        const ZoEffectItemData* track = typeNode->child(i);
        texts << (track ? QString("%1:%2").arg(track->data("trackid").toInt() - 10).arg(track->checkState())
                        : QString("null"));
    }
    return texts.join(' ');
}

/// "<name>:<check state>" for each item of a type in order.
QString frameEffects(const ZoEffectModel& model, const QString& type = "Effect")
{
    QStringList texts;
    const ZoEffectItemData* typeNode = model.getDataItem(type, -1);
    for (int i = 0; i < typeNode->childCount(); ++i)
        texts << QString("%1:%2").arg(typeNode->child(i)->name()).arg(typeNode->child(i)->checkState());
    return texts.join(' ');
}

/// A table with "Effect", "Spin", and "Nested" below "Group".
const EffectControlItem* smallTable()
{
    static const EffectDefaultVal on[] = {property("_checkstate", true), property("speed", 3), property(nullptr, 0)};
    static const SubEffectItem subItems[] = {subItem("Left", 1, on), subItem("Right", 2), subItem(nullptr, 0)};
    static const EffectControlItem nested[] = {effectType("Nested", on, subItems), effectType(nullptr, nullptr)};
    static const EffectControlItem table[] = {effectType("Effect", nullptr, subItems),
                                              effectType("Spin", nullptr, subItems),
                                              effectType("Group", on, nullptr, nested), effectType(nullptr, nullptr)};
    return table;
}

} // namespace

class TstModelReset : public ModelTest {
    Q_OBJECT

private slots:
    // --- One type

    void resetTypeIsAsInANewModel_data()
    {
        addRows<QString, Properties, QString>({
            {"crop", "Crop", Properties{{"crop_left", 5}, {"crop_width", 40}, {"crop_minwidth", 1}},
             "{crop_aspectratio: string Original Ratio, crop_height: string source_val, crop_keepaspectratio: bool "
             "true, crop_left: int 0, crop_minheight: int 24, crop_minwidth: int 24, crop_top: int 0, crop_width: "
             "string source_val}"},
            {"audio", "Audio", Properties{{"play_loop", true}}, "{play_loop: bool false}"},
            {"colour", "Color", Properties{{"bcs_contrast", 5}, {"bcs_saturation", "x"}}, colourDefaults},
            {"speed", "Audio_Speed", Properties{{"audio_speed_factor", 10}, {"own", 1}},
             "{audio_effect_flag: bool false, audio_speed_factor: int 100, own: int 1}"},
            {"frame effects have no own properties", "Effect", Properties{}, "{}"},
        });
    }

    void resetTypeIsAsInANewModel()
    {
        const auto [type, changed, expected] = row<QString, Properties, QString>();
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        ZoEffectItemData* typeNode = model.getDataItem(type, -1);
        const int place = typeNode->childNumber();
        int hostData = 0;
        for (auto it = changed.cbegin(); it != changed.cend(); ++it)
            typeNode->setData(it.key(), it.value());
        typeNode->setCheckState(0);
        typeNode->setInternalData(&hostData);
        const QPointer<ZoEffectItemData> item = addItem(typeNode);
        model.getDataItem("Subtitle", -1)->setData("sub_fontsize", 9);
        addTracks(model, "Subtitle", "Ef");
        SignalRecorder recorder(model);

        QCOMPARE(model.resetDataItem(type, -1), true);

        QVERIFY(item.isNull());
        QCOMPARE(model.getDataItem(type, -1), typeNode);
        QCOMPARE(typeNode->childNumber(), place);
        QCOMPARE(described(typeNode->properties()), expected);
        QCOMPARE(typeNode->checkState(), 2);
        QCOMPARE(typeNode->childCount(), type == "Effect" ? 4 : 0);
        QVERIFY(typeNode->internalData() == &hostData);
        QCOMPARE(recorder.take(), one(QString("effectDataChanged(%1, reset, invalid, -1)").arg(type)));

        // Other types are left alone.
        QCOMPARE(described(model.data("sub_fontsize", "Subtitle", -1)), QString("int 9"));
        QCOMPARE(tracks(model, "Subtitle"), QString("0:2 1:0"));
        QCOMPARE(rootOf(model)->childCount(), 13);
        QCOMPARE(model.baseSize(), QSize(640, 480));
    }

    // Tracks, embedded ones too, go with the others.
    void resetGoesForTheWholeTypeWhateverThePosition()
    {
        for (const int pos : {-1, 1, 42, -2, INT_MAX, INT_MIN}) {
            ZoEffectModel model;
            addTracks(model, "Subtitle", "EeF");
            model.getDataItem("Subtitle", -1)->setData("sub_fontsize", 60);
            SignalRecorder recorder(model);
            QCOMPARE(model.resetDataItem("Subtitle", pos), true);
            QCOMPARE(model.childCount("Subtitle"), 0);
            QCOMPARE(described(model.data("sub_fontsize", "Subtitle", -1)), QString("int 22"));
            QCOMPARE(recorder.take(), one(QString("effectDataChanged(Subtitle, reset, invalid, %1)").arg(pos)));
        }
    }

    void resetUnknownTypeIsLogged()
    {
        ZoEffectModel model(QStringList{"Color"});
        model.getDataItem("Color", -1)->setData("bcs_contrast", 9);
        SignalRecorder recorder(model);
        for (const char* type : {"Rotation", "COLOR", "", "Crop"}) { // The table has "Crop", the model has not.
            QCOMPARE(model.resetDataItem(type, 3), false);
            QCOMPARE(logcapture::takeEvents(), QList<int>{622});
        }
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(childNames(rootOf(model)), QString("Color"));
        QCOMPARE(described(model.data("bcs_contrast", "Color", -1)), QString("int 9"));
    }

    void frameEffectsAreRebuilt()
    {
        ZoEffectModel model;
        ZoEffectItemData* effect = model.getDataItem("Effect", -1);
        effect->changeItemPos(0, 3);
        effect->child(0)->setCheckState(2);
        effect->child(1)->setData("id", 99);
        effect->removeChildren(2, 1);
        new ZoEffectItemData("Wave", effect);

        QVERIFY(model.resetDataItem("Effect", -1));

        QCOMPARE(tree(effect), QString("Effect:2{}[Blur:0{id: int 11}[] Sharpen:0{id: int 12}[] Mirror:0{id: int 13}[] "
                                       "Sepia:0{id: int 14}[]]"));
        for (int i = 0; i < 4; ++i)
            QVERIFY(effect->child(i)->internalData() == static_cast<const void*>(hostCatalogue()[5].subItems + i));
    }

    void frameEffectsTakeTheirSavedOrder()
    {
        ZoEffectModel model;
        saveCustomDefault("Effect", {{"Effect", "Sepia|true|Blur|false|Mirror|true|Sharpen|false"}});
        QStringList seen;
        listen(model, [&] { seen << frameEffects(model); });
        QVERIFY(model.resetDataItem("Effect", 2));
        QCOMPARE(frameEffects(model), QString("Sepia:2 Blur:0 Mirror:2 Sharpen:0"));
        QCOMPARE(seen, one("Sepia:2 Blur:0 Mirror:2 Sharpen:0"));
        // The custom default of the type itself is laid over its node, too.
        QCOMPARE(described(model.getDataItem("Effect", -1)->properties()),
                 QString("{Effect: string Sepia|true|Blur|false|Mirror|true|Sharpen|false}"));
        QCOMPARE(model.editByDefault(), true);
        saveCustomDefault("Effect", {{"Effect", "Sepia|true|Blur|true"}}); // Fewer than there are.
        model.resetAllEffect();
        QCOMPARE(frameEffects(model), QString(allOff));
    }

    void subItemsOfAnyTypeAreRebuilt()
    {
        ZoEffectModel::InitEffectModel(smallTable());
        ZoEffectModel model;
        const QString items = "[Left:2{id: int 1, speed: int 3}[] Right:2{id: int 2}[]]";
        saveCustomDefault("Effect", {{"Effect", "Right|false|Left|true"}});
        model.getDataItem("Spin", -1)->clear();
        QVERIFY(model.resetDataItem("Spin", -1));
        // The saved order is for the frame effects only, and resetting another type leaves these as they are.
        QCOMPARE(tree(model.getDataItem("Spin", -1)), "Spin:2{}" + items);
        QCOMPARE(frameEffects(model), QString("Left:2 Right:2"));
        QVERIFY(model.resetDataItem("Effect", -1));
        QCOMPARE(frameEffects(model), QString("Right:0 Left:2"));

        QVERIFY(model.addDataItemEx("Nested", {{"speed", 9}}, false));
        QVERIFY(model.resetDataItem("Nested", -1));
        QCOMPARE(tree(model.getDataItem("Nested", -1)), "Nested:2{_checkstate: bool true, speed: int 3}" + items);
    }

    void resetTakesTheCustomDefault_data()
    {
        addRows<QString, Properties, QString, bool>({
            {"colour", "Color", Properties{{"bcs_contrast", 5}, {"own", 1}},
             "{bcs_brightness: int 0, bcs_contrast: int 5, bcs_saturation: int 0, own: int 1}", true},
            {"audio", "Audio", Properties{{"play_loop", true}}, "{play_loop: bool true}", true},
            {"empty custom default", "Color", Properties{}, colourDefaults, false},
        });
    }

    void resetTakesTheCustomDefault()
    {
        const auto [type, saved, expected, editedByDefault] = row<QString, Properties, QString, bool>();
        ZoEffectModel model;
        saveCustomDefault(type, saved);
        QVERIFY(model.resetDataItem(type, -1));
        QCOMPARE(described(model.getDataItem(type, -1)->properties()), expected);
        QCOMPARE(model.editByDefault(), editedByDefault);
    }

    void resetKeepsTheCataloguesValuesOfSomeTypes()
    {
        for (const bool all : {false, true}) {
            forgetCustomDefaults();
            ZoEffectModel model;
            saveCustomDefault("Crop", {{"crop_left", 5}});
            saveCustomDefault("Watermark", {{"wm_transparency", 5}, {"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.5}});
            saveCustomDefault("Subtitle", {{"sub_transparency", 5}, {"sub_fontsize", 9}});
            if (all)
                model.resetAllEffect();
            for (const char* type : {"Crop", "Watermark", "Subtitle"})
                QVERIFY(all || model.resetDataItem(type, -1));
            QCOMPARE(chosen(model.getDataItem("Crop", -1), {"crop_left"}), QString("{crop_left: int 0}"));
            QCOMPARE(chosen(model.getDataItem("Watermark", -1), {"wm_transparency", "wm_hposition"}),
                     QString("{wm_hposition: int 30, wm_transparency: int 0}"));
            // Resetting everything leaves the nodes of the track types their properties.
            QCOMPARE(chosen(model.getDataItem("Subtitle", -1), {"sub_transparency", "sub_fontsize"}),
                     QString("{sub_fontsize: int 22, sub_transparency: int %1}").arg(all ? 0 : 5));
            QCOMPARE(model.editByDefault(), false);
        }
    }

    void resetOfATypeWithoutRecord()
    {
        ZoEffectModel model;
        QVERIFY(model.addDataItemEx("Rotation", {{"angle", 90}, {"_checkstate", false}}, false));
        ZoEffectItemData* typeNode = model.getDataItem("Rotation", -1);
        addItem(typeNode);
        SignalRecorder recorder(model);
        QCOMPARE(model.resetDataItem("Rotation", 4), true);
        QCOMPARE(tree(typeNode), QString("Rotation:2{angle: int 90}[]"));
        QCOMPARE(model.editByDefault(), false);
        QCOMPARE(recorder.take(), one("effectDataChanged(Rotation, reset, invalid, 4)"));

        saveCustomDefault("Rotation", {{"angle", 45}, {"own", 1}});
        QCOMPARE(model.resetDataItem("Rotation", 4), true);
        QCOMPARE(tree(typeNode), QString("Rotation:2{angle: int 45, own: int 1}[]"));
        QCOMPARE(model.editByDefault(), true);
    }

    // Found by its name; its record is no type's, so only the check state changes.
    void resetOfASingleFrameEffectKeepsItsId()
    {
        ZoEffectModel model;
        SignalRecorder recorder(model);
        QCOMPARE(model.resetDataItem("Mirror", 2), true);
        QCOMPARE(frameEffects(model), QString("Blur:0 Sharpen:0 Mirror:2 Sepia:0"));
        QCOMPARE(described(model.getDataItem("Mirror", -1)->properties()), QString("{id: int 13}"));
        QCOMPARE(recorder.take(), one("effectDataChanged(Mirror, reset, invalid, 2)"));
    }

    void resetOfTheRootLeavesNoTypes()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        SignalRecorder recorder(model);
        QCOMPARE(model.resetDataItem("effect root", -1), true);
        QCOMPARE(tree(rootOf(model)), QString("effect root:2{h: int 480, w: int 640}[]"));
        QCOMPARE(recorder.take(), one("effectDataChanged(effect root, reset, invalid, -1)"));
    }

    void typeIsResetWithoutCatalogue()
    {
        ZoEffectModel model;
        model.getDataItem("Color", -1)->setData("bcs_contrast", 9);
        model.getDataItem("Color", -1)->setCheckState(0);
        ZoEffectModel::InitEffectModel(nullptr);
        logcapture::takeEvents();
        SignalRecorder recorder(model);
        QCOMPARE(model.resetDataItem("Color", -1), true);
        QCOMPARE(model.resetDataItem("Effect", -1), true);
        QCOMPARE(described(model.data("bcs_contrast", "Color", -1)), QString("int 9"));
        QCOMPARE(model.getDataItem("Color", -1)->checkState(), 2);
        QCOMPARE(model.childCount("Effect"), 0);
        QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Color, reset, invalid, -1)",
                                               "effectDataChanged(Effect, reset, invalid, -1)"}));
    }

    void listenerMayAddItemsOnReset()
    {
        ZoEffectModel model;
        SignalRecorder recorder(model);
        listen(model, [&model](const QString&, const QString& key) {
            if (key == "reset")
                model.addDataItem("Audio", {{"trackid", 15}});
        });
        QCOMPARE(model.resetDataItem("Audio", 7), true);
        QCOMPARE(tracks(model, "Audio"), QString("5:2"));
        QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Audio, reset, invalid, 7)",
                                               "effectDataChanged(Audio, item_add, invalid, 0)"}));
    }

    // --- Everything

    void allTypesAreReset()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        ZoEffectItemData* root = rootOf(model);
        root->setCheckState(0); // The root itself stays as it is.
        root->setData("own", 1);
        for (int i = 0; i < root->childCount(); ++i) {
            ZoEffectItemData* typeNode = root->child(i);
            typeNode->setCheckState(0);
            const QStringList keys = typeNode->properties().keys();
            for (const QString& key : keys)
                typeNode->setData(key, "changed");
            typeNode->setData("own", 1);
            addItem(typeNode, {{"audio_isfile", true}, {"sub_fromfile", true}});
        }

        for (int times = 0; times < 2; ++times) {
            model.resetAllEffect();
            QCOMPARE(described(root->properties()), QString("{h: int 480, own: int 1, w: int 640}"));
            QCOMPARE(root->checkState(), 0);
            QCOMPARE(childNames(root), QString("Crop Watermark Subtitle Audio Color Effect Audio_Fade_Inout "
                                               "Audio_Normalize Audio_BandPass Audio_Chorus Audio_Flanger "
                                               "Audio_Echo Audio_Speed"));
            for (int i = 0; i < root->childCount(); ++i) {
                const ZoEffectItemData* typeNode = root->child(i);
                QCOMPARE(typeNode->checkState(), 2);
                QCOMPARE(typeNode->childCount(), typeNode->name() == "Effect" ? 4 : 0);
                QCOMPARE(described(typeNode->data("own")), QString("int 1"));
            }
            QCOMPARE(frameEffects(model), QString(allOff));
            const auto value = [&](const char* key, const char* type) { return described(model.data(key, type, -1)); };
            QCOMPARE(value("crop_width", "Crop"), QString("string source_val"));
            QCOMPARE(value("bcs_contrast", "Color"), QString("int 0"));
            QCOMPARE(value("audio_fade_out_enable", "Audio_Fade_Inout"), QString("bool true"));
            QCOMPARE(value("audio_normalize_maxLevel", "Audio_Normalize"), QString("int 98"));
            QCOMPARE(value("audio_bandpass_requency", "Audio_BandPass"), QString("int 1000"));
            QCOMPARE(value("audio_chorus_decay", "Audio_Chorus"), QString("int 50"));
            QCOMPARE(value("audio_flanger_delay", "Audio_Flanger"), QString("int 3"));
            QCOMPARE(value("audio_echo_decay", "Audio_Echo"), QString("int 500"));
            QCOMPARE(value("audio_speed_factor", "Audio_Speed"), QString("int 100"));
        }
    }

    // Of these three only the list and the check state are reset.
    void propertiesOfTrackTypesAndWatermarksStay()
    {
        ZoEffectModel model;
        saveCustomDefault("Audio", {{"play_loop", false}});
        model.getDataItem("Audio", -1)->setData("play_loop", true);
        model.getDataItem("Subtitle", -1)->setData("sub_fontsize", 60);
        model.getDataItem("Watermark", -1)->setData("wm_fontsize", 60);
        model.resetAllEffect();
        QCOMPARE(described(model.data("play_loop", "Audio", -1)), QString("bool true"));
        QCOMPARE(described(model.data("sub_fontsize", "Subtitle", -1)), QString("int 60"));
        QCOMPARE(described(model.data("wm_fontsize", "Watermark", -1)), QString("int 60"));
    }

    void tracksFromFilesAreDeleted_data()
    {
        addRows<QString, QString>({
            {"no tracks", "", ""},
            {"two embedded, two from files", "eeff", "0:2 1:0"},
            {"the second embedded one was selected", "eEff", "0:2 1:0"},
            {"a file was selected", "eefF", "0:2 1:0"},
            {"embedded only", "eEe", "0:2 1:0 2:0"},
            {"files only", "FfF", ""},
            {"file before an embedded one survives", "Fef", "0:2 1:0"},
            {"files before the only embedded one survive", "fFE", "0:2 1:0 2:0"},
            {"null entry between files", "ef-f", "0:2 null"},
            {"null entry first", "-ef", "null 1:2"},
            {"null entry between embedded ones", "E-Ef", "0:2 null 2:0"},
        });
    }

    void tracksFromFilesAreDeleted()
    {
        const auto [before, after] = row<QString, QString>();
        for (const char* type : {"Audio", "Subtitle"}) {
            for (const int typeState : {0, 2}) {
                ZoEffectModel model;
                addTracks(model, type, before);
                model.getDataItem(type, -1)->setCheckState(typeState);
                model.resetAllEffect();
                QCOMPARE(tracks(model, type), after);
                model.resetAllEffect();
                QCOMPARE(tracks(model, type).count(':'), after.count(':'));
                QCOMPARE(model.getDataItem(type, -1)->checkState(), 2);
            }
        }
    }

    void fileFlagIsTakenAsABoolean_data()
    {
        addRows<QVariant, bool>({
            {"1", 1, true},
            {"text true", "true", true},
            {"any other text", "a.mp3", true},
            {"text false", "false", false},
            {"empty text", "", false},
            {"invalid", QVariant(), false},
        });
    }

    void fileFlagIsTakenAsABoolean()
    {
        const auto [flag, deleted] = row<QVariant, bool>();
        ZoEffectModel model;
        // The flag of the other kind does not count.
        addItem(model, "Audio", {{"audio_isfile", flag}, {"sub_fromfile", !deleted}});
        addItem(model, "Subtitle", {{"sub_fromfile", flag}, {"audio_isfile", !deleted}});
        model.resetAllEffect();
        QCOMPARE(model.childCount("Audio"), deleted ? 0 : 1);
        QCOMPARE(model.childCount("Subtitle"), deleted ? 0 : 1);
    }

    void deletedTracksAreDestroyedAndOthersKept()
    {
        ZoEffectModel model;
        saveCustomDefault("Subtitle", {{"sub_transparency", 9}});
        const QPointer<ZoEffectItemData> audio = addItem(model, "Audio", {{"audio_isfile", true}});
        const QPointer<ZoEffectItemData> below = new ZoEffectItemData("below", audio);
        const QPointer<ZoEffectItemData> watermark = addItem(model, "Watermark");
        const QPointer<ZoEffectItemData> kept = addItem(model, "Subtitle", {{"sub_fontsize", 60}, {"trackid", 4}});
        model.resetAllEffect();
        QVERIFY(audio.isNull());
        QVERIFY(below.isNull());
        QVERIFY(watermark.isNull());
        QCOMPARE(model.getDataItem("Subtitle", 0), kept.data());
        QCOMPARE(described(kept->properties()), QString("{sub_fontsize: int 60, trackid: int 4}"));
    }

    void missingTypesArePassedOverSilently()
    {
        for (const QStringList& types : {QStringList{"Color"}, QStringList{"Audio", "Subtitle"}, QStringList{"none"}}) {
            ZoEffectModel model(types);
            const QString before = childNames(rootOf(model));
            model.resetAllEffect();
            QCOMPARE(childNames(rootOf(model)), before);
        }
    }

    void typesThatTheTableLacksStay()
    {
        ZoEffectModel::InitEffectModel(smallTable());
        ZoEffectModel model;
        for (const char* type : {"Rotation", "Nested"}) {
            QVERIFY(model.addDataItemEx(type, {{"speed", 9}, {"_checkstate", false}}, false));
            addItem(model, type, {{"tag", 1}});
        }
        model.getDataItem("Group", -1)->setData("speed", 9);
        model.resetAllEffect();
        QCOMPARE(described(model.data("speed", "Group", -1)), QString("int 3"));
        QCOMPARE(tree(model.getDataItem("Rotation", -1)), QString("Rotation:0{speed: int 9}[:2{tag: int 1}[]]"));
        QCOMPARE(tree(model.getDataItem("Nested", -1)),
                 QString("Nested:0{_checkstate: bool true, speed: int 9}[:2{tag: int 1}[]]"));
    }

    void resetAllSendsNothing()
    {
        ZoEffectModel model;
        addTracks(model, "Audio", "EF");
        addItem(model, "Watermark");
        model.getDataItem("Crop", -1)->setData("crop_left", 5);
        SignalRecorder recorder(model);
        int heard = 0;
        listen(model, [&] { ++heard; });
        model.resetAllEffect();
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(heard, 0);
        // Afterwards changes are told again.
        QVERIFY(model.setData("crop_left", 6, "Crop", -1));
        QCOMPARE(recorder.take(), one("effectDataChanged(Crop, crop_left, int 6, -1)"));
        QCOMPARE(heard, 1);
    }

    void signalsAreUnblockedAtTheEnd()
    {
        for (const QStringList& types : {QStringList(), QStringList{"none"}, QStringList{"Audio"}}) {
            for (const bool blockedBefore : {false, true}) {
                ZoEffectModel model(types);
                SignalRecorder recorder(model);
                model.blockSignals(blockedBefore);
                model.resetAllEffect();
                QCOMPARE(model.signalsBlocked(), false);
                model.setCurrentItem("Crop");
                QCOMPARE(recorder.take(), one("currentItemChanged(Crop)"));
            }
        }
    }

    void editedByUserIsClearedByResettingEverything()
    {
        ZoEffectModel model;
        addTracks(model, "Subtitle", "E");
        for (int times = 0; times < 2; ++times) {
            model.replaceItemDataProperty("Subtitle", {});
            QVERIFY(model.resetDataItem("Watermark", -1));
            QCOMPARE(model.editByUser(), true);
            model.resetAllEffect();
            QCOMPARE(model.editByUser(), false);
        }
    }

    void editedByDefaultIsNotCleared()
    {
        for (const bool before : {true, false}) {
            ZoEffectModel model;
            rootOf(model)->setData("editbydefault", before);
            model.resetAllEffect();
            QCOMPARE(rootOf(model)->data("editbydefault"), QVariant(before));
        }
    }

    void resetAllWithoutCatalogue()
    {
        ZoEffectModel model;
        addTracks(model, "Subtitle", "eF");
        model.replaceItemDataProperty("Subtitle", {});
        model.getDataItem("Color", -1)->setData("bcs_contrast", 9);
        ZoEffectModel::InitEffectModel(nullptr);
        logcapture::takeEvents();
        model.blockSignals(true);
        model.resetAllEffect();
        QCOMPARE(model.signalsBlocked(), false);
        QCOMPARE(model.editByUser(), false);
        QCOMPARE(tracks(model, "Subtitle"), QString("0:0 1:2"));
        QCOMPARE(described(model.data("bcs_contrast", "Color", -1)), QString("int 9"));
    }

    void resetAllGoesByTheOrderOfTheTable()
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
        QCOMPARE(described(second->data("speed")), QString("int 9"));
        QCOMPARE(described(model.getDataItem("First", 0)->properties()), QString("{id: int 1, speed: int 3}"));
    }
};

ZOEFFECT_TEST_MAIN(TstModelReset)

#include "tst_model_reset.moc"
