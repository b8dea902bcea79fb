// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Arguments that refer into what the call changes, and callbacks in the middle of a deletion: each operation
// takes its arguments as they were when it was called.

#include <functional>

#include <zoeffectitemdefaultvalmgr.h>

#include "modeltest.h"

namespace {

/// A reference to the value of \a key in the map of \a node itself.
const QVariant& valueIn(const ZoEffectItemData& node, const QString& key)
{
    return *node.properties().constFind(key);
}

/// A reference to the text of \a key in the map of \a node itself.
const QString& keyIn(const ZoEffectItemData& node, const QString& key)
{
    return node.properties().constFind(key).key();
}

} // namespace

class TstAliasing : public ModelTest {
    Q_OBJECT

private slots:
    void aKeyOfTheMapItselfIsRemoved()
    {
        ZoEffectItemData node("item");
        node.setData("first key, long enough for memory of its own", 1);
        node.setData("second key", 2);
        node.delData(keyIn(node, "first key, long enough for memory of its own"));
        QCOMPARE(described(node.properties()), QString("{second key: int 2}"));
    }

    void aRunOfChildrenIsRemovedThoughTheFirstDeletionEmptiesTheList()
    {
        ZoEffectItemData node("type");
        auto* first = new ZoEffectItemData("a", &node);
        new ZoEffectItemData("b", &node);
        new ZoEffectItemData("c", &node);
        new ZoEffectItemData("d", &node);
        connect(first, &QObject::destroyed, &node, [&node] { node.clear(); });
        QCOMPARE(node.removeChildren(0, 3), true);
        QCOMPARE(node.childCount(), 0);
    }

    void aTypeFromTheListOfTypesIsSavedUnderItsName()
    {
        // The list grows while its own element is the argument.
        QStringList types;
        for (int i = 0; i < 4; ++i)
            types << QString("a type whose name has memory of its own, number %1").arg(i);
        ZoEffectItemDefaultValMgr::setSupportTypes(types);
        types.clear();
        ZoEffectItemDefaultValMgr* manager = ZoEffectItemDefaultValMgr::getInstance();
        manager->saveAsCustomDefaultVal(ZoEffectItemDefaultValMgr::s_supportTypes.first(), {{"key", 1}});
        QCOMPARE(TestApplication::instance()->pref.takeWrites(),
                 QStringList{"a type whose name has memory of its own, number 0 = map {key: int 1}, notify false"});
        QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes().size(), 5);
        QCOMPARE(ZoEffectItemDefaultValMgr::supportTypes().constLast(),
                 QString("a type whose name has memory of its own, number 0"));
    }

    void aValueOfTheNodeItselfIsAnnouncedAsItWas()
    {
        ZoEffectModel model;
        ZoEffectItemData* node = model.getDataItem("Subtitle", -1);
        node->setData("dvdsubtitleposeditbyuser", false);
        SignalRecorder recorder(model);
        QVERIFY(model.setData("sub_vposition", valueIn(*node, "dvdsubtitleposeditbyuser"), "Subtitle", -1));
        QCOMPARE(recorder.take(), QStringList{"effectDataChanged(Subtitle, sub_vposition, bool false, -1)"});
        QCOMPARE(described(node->data(QString("sub_vposition"))), QString("bool false"));
        QCOMPARE(described(node->data(QString("dvdsubtitleposeditbyuser"))), QString("bool true"));
    }

    void everyListenerGetsTheArgumentsThoughTheFirstDeletesWhereTheyCameFrom()
    {
        ZoEffectModel model;
        model.addDataItem("Audio", {{"source of a key", QString("source of a value")}});
        model.addDataItem("Audio", {});
        const ZoEffectItemData* source = model.getDataItem("Audio", 0);
        listen(model, [&model](const QString& /*type*/, const QString& key) {
            if (key == QString("source of a key"))
                model.delDataItem("Audio", 0);
        });
        SignalRecorder recorder(model);
        QVERIFY(model.setData(keyIn(*source, "source of a key"), valueIn(*source, "source of a key"), "Audio", 1));
        QCOMPARE(recorder.take(),
                 (QStringList{"effectDataChanged(Audio, item_delete, invalid, 0)",
                              "effectDataChanged(Audio, source of a key, string source of a value, 1)"}));
    }

    void aTypeNamedByWhatIsDeletedIsAnnounced()
    {
        const std::function<void(ZoEffectModel&, const QString&)> changes[] = {
            [](ZoEffectModel& model, const QString& type) { model.delDataItem(type, 0); },
            [](ZoEffectModel& model, const QString& type) { model.resetDataItem(type, 0); },
            [](ZoEffectModel& model, const QString& type) { model.replaceData(type, 0, rootOf(ZoEffectModel())); },
        };
        QStringList told;
        for (const auto& change : changes) {
            ZoEffectModel model;
            model.addDataItem("Watermark", {{"Watermark", 1}});
            SignalRecorder recorder(model);
            change(model, keyIn(*model.getDataItem("Watermark", 0), "Watermark"));
            told << recorder.take();
        }
        QCOMPARE(told, (QStringList{"effectDataChanged(Watermark, item_delete, invalid, 0)",
                                    "effectDataChanged(Watermark, reset, invalid, 0)",
                                    "effectDataChanged(Watermark, reset, invalid, 0)"}));
    }

    void anInsertedItemTakesTheRootsPropertiesAsTheyWere()
    {
        // The custom default sets "editbydefault" on the root while the root's own map is the argument.
        saveCustomDefault("Color", {{"bcs_contrast", 5}});
        ZoEffectModel model(QString("Color"), {});
        model.setVideoSize(640, 480);
        QVERIFY(model.insertDataItem("Color", rootOf(model)->properties(), -1));
        QVERIFY(rootOf(model)->hasData("editbydefault"));
        QCOMPARE(
            described(model.getDataItem("Color", 0)->properties()),
            QString("{bcs_brightness: int 0, bcs_contrast: int 5, bcs_saturation: int 0, h: int 480, w: int 640}"));
    }

    void aSourceWhoseModelIsGoneIsCopiedForTypesThatAreNotRescaled()
    {
        auto* other = new ZoEffectModel;
        other->addDataItem("Subtitle", {{"sub_fontsize", 31}});
        ZoEffectItemData* orphan = other->getDataItem("Subtitle", -1)->takeAt(0);
        delete other; // The orphan's parent() is gone with it.
        ZoEffectModel model;
        model.addDataItem("Subtitle", {});
        model.replaceData("Subtitle", 0, orphan);
        QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 0)), QString("int 31"));
        delete orphan;
    }

    void aStoreThatAsksForTheInstanceWhileItIsLoadedGetsIt()
    {
        // The application's store is asked through the instance that loads, so nothing recurses.
        ZoEffectItemDefaultValMgr* const before = ZoEffectItemDefaultValMgr::s_Instance;
        ZoEffectItemDefaultValMgr::s_Instance = nullptr;
        TestApplication::instance()->pref.onHasKey = [] { ZoEffectItemDefaultValMgr::getInstance(); };
        ZoEffectItemDefaultValMgr* const created = ZoEffectItemDefaultValMgr::getInstance();
        TestApplication::instance()->pref.onHasKey = nullptr;
        QCOMPARE(ZoEffectItemDefaultValMgr::getInstance(), created);
        ZoEffectItemDefaultValMgr::s_Instance = before;
        delete created;
    }
};

ZOEFFECT_TEST_MAIN(TstAliasing)
#include "tst_aliasing.moc"
