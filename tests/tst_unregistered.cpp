// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A process in which no table of effect types is registered until the last slot: models have no types, and
// everything else works as far as it can.

#include <zoeffectitemdefaultvalmgr.h>

#include "modeltest.h"

class TstUnregistered : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(logcapture::takeEvents(), QList<int>()); }

    void nothingIsKnownAtFirst()
    {
        QVERIFY(!ZoEffectModel::s_EffectItems);
        QCOMPARE(ZoEffectItemDefaultValMgr::s_supportTypes, QStringList());
        QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), QStringList());
        for (const QStringList& types : {QStringList(), QStringList{"Crop"}, QStringList{"Effect"}}) {
            ZoEffectModel model(types);
            SignalRecorder recorded(model);
            model.createItems({});
            model.createItems({"Crop"});
            QCOMPARE(tree(rootOf(model)), QString("effect root:2{}[]"));
            QVERIFY(!model.editByUser());
            QVERIFY(!model.editByDefault());
            QCOMPARE(recorded.take(), QStringList());
        }
        QVERIFY(!ZoEffectItemDefaultValMgr::s_Instance); // Not needed yet.
    }

    void singleTypeModelAndSubItemsAreBuilt()
    {
        const SubEffectItem subItems[] = {subItem("one", 1, frameEffectsDefaultVal), subItem(nullptr, 0)};
        ZoEffectModel model("Effect", {{"_checkstate", false}, {"a", 1}});
        model.InitSubItemData(model.findDataItem("Effect", -1), subItems);
        QCOMPARE(tree(rootOf(model)), QString("effect root:2{}[Effect:0{a: int 1}[one:0{id: int 1}[]]]"));
        model.InitSubItemData(nullptr, subItems);
        QCOMPARE(logcapture::takeEvents(), QList<int>{422});
    }

    void nothingIsFound_data() { addRows<QString, int>({{"type", "Crop", -1}, {"item", "Watermark", 0}}); }

    void nothingIsFound()
    {
        const auto [type, pos] = row<QString, int>();
        ZoEffectModel model;
        QVERIFY(!model.findDataItem(type, pos));
        QVERIFY(!model.getDataItem(type, pos));
        QVERIFY(!model.findDataItem(rootOf(model), type, pos));
        for (const char* key : {"crop_left", "_checkstate", "trackid", ""}) {
            QVERIFY(!model.data(key, type, pos).isValid());
            QVERIFY(!ZoEffectModel::defaultValue(key, type).isValid());
        }
        QVERIFY(!ZoEffectModel::findOriItem(type, ZoEffectModel::s_EffectItems));
        QCOMPARE(logcapture::takeEvents(), QList<int>());

        QVERIFY(!model.setData("crop_left", 1, type, pos));
        QCOMPARE(logcapture::takeEvents(), QList<int>{181});
        QCOMPARE(model.childCount(type), 0);
        QCOMPARE(logcapture::takeEvents(), QList<int>{246});
        QCOMPARE(model.childCount("effect root"), 0);
    }

    void valuesOfTheRootAreKeptAndCopied()
    {
        ZoEffectModel model;
        SignalRecorder recorded(model);
        QVERIFY(model.setData("w", 640, "effect root", -1));
        QCOMPARE(recorded.take(), one("effectDataChanged(effect root, w, int 640, -1)"));
        ZoEffectModel target("Color", {});
        target = model;
        for (const ZoEffectModel& copy : {target, ZoEffectModel(model)})
            QCOMPARE(tree(rootOf(copy)), QString("effect root:2{w: int 640}[]"));
    }

    void savedCustomDefaultsOfUnknownTypesAreNotLoaded()
    {
        TestApplication::instance()->pref.entries.insert("Color", QVariantMap{{"bcs_contrast", 5}});
        ZoEffectItemDefaultValMgr::getInstance()->Init();
        QVERIFY(!ZoEffectItemDefaultValMgr::getInstance()->hasCustomDefaultVal("Color"));
        QVERIFY(!ZoEffectModel::defaultValue("bcs_contrast", "Color").isValid());
        TestApplication::instance()->pref.entries.clear();
    }

    void fillingTakesTheCustomDefaultAlone()
    {
        ZoEffectModel model;
        ZoEffectItemData color("Color");
        ZoEffectItemData crop("Crop");
        color.setCheckState(0);
        model.InitZoeffectData(&color);
        QCOMPARE(tree(&color), QString("Color:2{}[]"));
        QVERIFY(!model.editByDefault());

        saveCustomDefault("Color", {{"bcs_contrast", 5}});
        saveCustomDefault("Crop", {{"crop_left", 5}});
        model.InitZoeffectData(&color);
        model.InitZoeffectData(&crop);
        QCOMPARE(tree(&color), QString("Color:2{bcs_contrast: int 5}[]"));
        QCOMPARE(tree(&crop), QString("Crop:2{}[]"));
        QVERIFY(model.editByDefault());
        QCOMPARE(described(ZoEffectModel::defaultValue("bcs_contrast", "Color")), QString("int 5"));
        QVERIFY(!ZoEffectModel::defaultValue("bcs_brightness", "Color").isValid());
        forgetCustomDefaults();
    }

    void earlierModelsStayEmptyAfterRegistering()
    {
        ZoEffectModel early;
        const ZoEffectModel single("Color", {{"a", 1}});
        ZoEffectModel::InitEffectModel(hostCatalogue());
        QCOMPARE(rootOf(early)->childCount(), 0);
        QCOMPARE(tree(rootOf(single)), QString("effect root:2{}[Color:2{a: int 1}[]]"));
        QVERIFY(!early.setData("crop_left", 1, "Crop", -1));
        QCOMPARE(logcapture::takeEvents(), QList<int>{181});
        early.createItems({});
        QCOMPARE(rootOf(early)->childCount(), 13);
        QCOMPARE(described(early.data("crop_minwidth", "Crop", -1)), QString("int 24"));
    }
};

ZOEFFECT_TEST_MAIN(TstUnregistered)
#include "tst_unregistered.moc"
