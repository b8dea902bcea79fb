// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A process in which no table of effect types is registered until the last slot: models have no types, and
// everything else works as far as it can.

#include <QtTest>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using Node = ZoEffectItemData;

Node* rootOf(const ZoEffectModel& model)
{
    return model.findDataItem(QStringLiteral("effect root"), -1);
}

} // namespace

class TstUnregistered : public QObject {
    Q_OBJECT

private slots:
    void init();

    void nothingIsKnownAtFirst();
    void modelsAreEmpty_data();
    void modelsAreEmpty();
    void singleTypeModelIsBuilt();
    void creatingItemsDoesNothing();
    void subItemsAreBuilt();
    void nothingIsFound_data();
    void nothingIsFound();
    void copiesAreMade();
    void valuesOfTheRootAreKept();
    void defaultsAreInvalid_data();
    void defaultsAreInvalid();
    void storedCustomDefaultsOfUnknownTypesAreNotLoaded();
    void fillingTakesTheCustomDefaultAlone();
    void earlierModelsStayEmptyAfterRegistering();
};

void TstUnregistered::init()
{
    logcapture::takeEvents();
}

void TstUnregistered::nothingIsKnownAtFirst()
{
    QVERIFY(!ZoEffectModel::s_EffectItems);
    QVERIFY(!ZoEffectItemDefaultValMgr::s_Instance);
    QCOMPARE(ZoEffectItemDefaultValMgr::s_supportTypes, QStringList());
    QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes(), QStringList());
    QVERIFY(!ZoEffectItemDefaultValMgr::s_Instance);
}

void TstUnregistered::modelsAreEmpty_data()
{
    QTest::addColumn<QStringList>("types");

    QTest::newRow("all types") << QStringList();
    QTest::newRow("one type") << QStringList{"Crop"};
    QTest::newRow("the frame effects") << QStringList{"Effect"};
}

void TstUnregistered::modelsAreEmpty()
{
    QFETCH(QStringList, types);
    ZoEffectModel model(types);

    QCOMPARE(rootOf(model)->name(), QStringLiteral("effect root"));
    QCOMPARE(rootOf(model)->childCount(), 0);
    QVERIFY(rootOf(model)->properties().isEmpty());
    QCOMPARE(rootOf(ZoEffectModel())->childCount(), 0);
    QVERIFY(!model.editByUser());
    QVERIFY(!model.editByDefault());
    QVERIFY(!ZoEffectItemDefaultValMgr::s_Instance); // Not needed yet.
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstUnregistered::singleTypeModelIsBuilt()
{
    const ZoEffectModel model("Color", {{"_checkstate", false}, {"a", 1}});

    QCOMPARE(rootOf(model)->childCount(), 1);
    QCOMPARE(rootOf(model)->child(0)->name(), QStringLiteral("Color"));
    QCOMPARE(rootOf(model)->child(0)->checkState(), 0);
    QCOMPARE(described(rootOf(model)->child(0)->properties()), QStringLiteral("{a: int 1}"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstUnregistered::creatingItemsDoesNothing()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);

    model.createItems({});
    model.createItems({"Crop"});

    QCOMPARE(rootOf(model)->childCount(), 0);
    QCOMPARE(recorded.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstUnregistered::subItemsAreBuilt()
{
    const SubEffectItem subItems[] = {subItem("one", 1, frameEffectsDefaultVal), subItem(nullptr, 0)};
    ZoEffectModel model("Effect", {});

    model.InitSubItemData(model.findDataItem("Effect", -1), subItems);

    QCOMPARE(model.childCount("Effect"), 1);
    QCOMPARE(described(model.findDataItem("Effect", 0)->properties()), QStringLiteral("{id: int 1}"));
    QCOMPARE(model.findDataItem("Effect", 0)->checkState(), 0);

    model.InitSubItemData(nullptr, subItems);
    QCOMPARE(logcapture::takeEvents(), QList<int>{422});
}

void TstUnregistered::nothingIsFound_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");

    QTest::newRow("type") << "Crop" << -1;
    QTest::newRow("item") << "Watermark" << 0;
    QTest::newRow("no position") << "Crop" << -2;
}

void TstUnregistered::nothingIsFound()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    ZoEffectModel model;
    SignalRecorder recorded(model);

    QVERIFY(!model.findDataItem(type, pos));
    QVERIFY(!model.getDataItem(type, pos));
    QVERIFY(!model.findDataItem(rootOf(model), type, pos));
    QVERIFY(!model.findDataItem(rootOf(model), type));
    QVERIFY(!model.data("crop_left", type, pos).isValid());
    QVERIFY(!model.data("_checkstate", type, pos).isValid());
    QVERIFY(!model.data("trackid", type, pos).isValid());
    QVERIFY(!ZoEffectModel::findOriItem(type, ZoEffectModel::s_EffectItems));
    QCOMPARE(logcapture::takeEvents(), QList<int>());

    QVERIFY(!model.setData("crop_left", 1, type, pos));
    QCOMPARE(logcapture::takeEvents(), QList<int>{181});
    QCOMPARE(model.childCount(type), 0);
    QCOMPARE(logcapture::takeEvents(), QList<int>{246});
    QCOMPARE(model.childCount("effect root"), 0);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    QCOMPARE(recorded.take(), QStringList());
}

void TstUnregistered::copiesAreMade()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    ZoEffectModel target("Color", {});

    target = model;

    QCOMPARE(ZoEffectModel(model).baseSize(), QSize(640, 480));
    QCOMPARE(target.baseSize(), QSize(640, 480));
    QCOMPARE(rootOf(target)->childCount(), 0);
    QCOMPARE(ZoEffectModel(model, nullptr).baseSize(), QSize(0, 0));
}

void TstUnregistered::valuesOfTheRootAreKept()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);

    QVERIFY(model.setData("w", 640, "effect root", -1));

    QCOMPARE(recorded.take(), QStringList{"effectDataChanged(effect root, w, int 640, -1)"});
    QCOMPARE(described(model.data("w", "effect root", -1)), QStringLiteral("int 640"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstUnregistered::defaultsAreInvalid_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("type");

    QTest::newRow("known pair") << "crop_left"
                                << "Crop";
    QTest::newRow("check state") << "_checkstate"
                                 << "Crop";
    QTest::newRow("track") << "trackid"
                           << "Audio";
    QTest::newRow("unknown pair") << "a"
                                  << "b";
    QTest::newRow("empty") << ""
                           << "";
}

void TstUnregistered::defaultsAreInvalid()
{
    QFETCH(QString, key);
    QFETCH(QString, type);

    QVERIFY(!ZoEffectModel::defaultValue(key, type).isValid());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstUnregistered::storedCustomDefaultsOfUnknownTypesAreNotLoaded()
{
    ZoEffectItemDefaultValMgr* store = ZoEffectItemDefaultValMgr::getInstance();
    TestApplication::instance()->pref.entries.insert("Color", QVariantMap{{"bcs_contrast", 5}});
    store->Init();

    QVERIFY(!store->hasCustomDefaultVal("Color"));
    QVERIFY(!ZoEffectModel::defaultValue("bcs_contrast", "Color").isValid());
    TestApplication::instance()->pref.entries.clear();
}

void TstUnregistered::fillingTakesTheCustomDefaultAlone()
{
    ZoEffectModel model;
    Node plain(QStringLiteral("Color"));
    plain.setCheckState(0);
    model.InitZoeffectData(&plain);
    QVERIFY(plain.properties().isEmpty());
    QCOMPARE(plain.checkState(), 2);
    QVERIFY(!model.editByDefault());

    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Color", {{"bcs_contrast", 5}});
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Crop", {{"crop_left", 5}});
    Node filled(QStringLiteral("Color"));
    Node crop(QStringLiteral("Crop"));
    model.InitZoeffectData(&filled);
    model.InitZoeffectData(&crop);
    QCOMPARE(described(filled.properties()), QStringLiteral("{bcs_contrast: int 5}"));
    QVERIFY(crop.properties().isEmpty());
    QVERIFY(model.editByDefault());
    QCOMPARE(described(ZoEffectModel::defaultValue("bcs_contrast", "Color")), QStringLiteral("int 5"));
    QVERIFY(!ZoEffectModel::defaultValue("bcs_brightness", "Color").isValid());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    forgetCustomDefaults();
}

void TstUnregistered::earlierModelsStayEmptyAfterRegistering()
{
    ZoEffectModel early;
    const ZoEffectModel single("Color", {{"a", 1}});

    ZoEffectModel::InitEffectModel(hostCatalogue());

    QCOMPARE(rootOf(early)->childCount(), 0);
    QCOMPARE(rootOf(single)->childCount(), 1);
    QCOMPARE(described(single.findDataItem("Color", -1)->properties()), QStringLiteral("{a: int 1}"));
    QVERIFY(!early.setData("crop_left", 1, "Crop", -1));
    QCOMPARE(logcapture::takeEvents(), QList<int>{181});
    QCOMPARE(rootOf(ZoEffectModel())->childCount(), 13);

    early.createItems({});
    QCOMPARE(rootOf(early)->childCount(), 13);
    QCOMPARE(described(early.data("crop_minwidth", "Crop", -1)), QStringLiteral("int 24"));
}

ZOEFFECT_TEST_MAIN(TstUnregistered)
#include "tst_unregistered.moc"
