// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <functional>
#include <memory>

#include <pthread.h>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "hostile.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using hostile::veryMany;
using Properties = QMap<QString, QVariant>;

constexpr int many = veryMany / 100;
constexpr int mostFrameEffects = veryMany / 100;
constexpr int textOf64MiB = 32 * 1024 * 1024;

/// Runs \a work in a thread with a stack of 256 KiB, on which a walk that calls itself for each level ends.
bool runOnSmallStack(const std::function<void()>& work)
{
    constexpr std::size_t stackSize = std::size_t{256} * 1024;
    const auto start = [](void* argument) -> void* {
        (*static_cast<const std::function<void()>*>(argument))();
        return nullptr;
    };
    pthread_attr_t attributes;
    pthread_t thread = {};
    bool ok = pthread_attr_init(&attributes) == 0 && pthread_attr_setstacksize(&attributes, stackSize) == 0;
    ok = ok && pthread_create(&thread, &attributes, start, const_cast<std::function<void()>*>(&work)) == 0;
    ok = ok && pthread_join(thread, nullptr) == 0;
    pthread_attr_destroy(&attributes);
    return ok;
}

/// \a length nodes below \a top, each the only child of the one before; the last is named "end".
void growChain(ZoEffectItemData& top, int length)
{
    ZoEffectItemData* last = &top;
    for (int i = 1; i < length; ++i)
        last = new ZoEffectItemData(QString(), last);
    auto* end = new ZoEffectItemData(QStringLiteral("end"), last);
    end->setData(QStringLiteral("depth"), length);
}

/// The nodes below \a top, along the first children.
int chainLength(const ZoEffectItemData& top)
{
    int length = 0;
    for (const ZoEffectItemData* node = top.child(0); node; node = node->child(0))
        ++length;
    return length;
}

int selectedItems(const ZoEffectItemData& typeNode)
{
    int selected = 0;
    for (int row = 0; row < typeNode.childCount(); ++row)
        selected += typeNode.child(row)->checkState() == 2 ? 1 : 0;
    return selected;
}

void fill(ZoEffectItemData& typeNode, int count)
{
    for (int i = 0; i < count; ++i)
        (new ZoEffectItemData(QString(), &typeNode))->setData(QStringLiteral("number"), i);
}

QStringList frameEffectNames(const ZoEffectModel& model)
{
    QStringList names;
    const ZoEffectItemData* typeNode = model.getDataItem("Effect", -1);
    for (int row = 0; row < typeNode->childCount(); ++row)
        names << typeNode->child(row)->name();
    return names;
}

/// The frame effects of a model of its own in place of the catalogue's.
void setFrameEffects(ZoEffectModel& model, const QStringList& names)
{
    ZoEffectItemData* typeNode = model.getDataItem("Effect", -1);
    typeNode->clear();
    for (const QString& name : names)
        (new ZoEffectItemData(name, typeNode))->setCheckState(0);
}

QString summaryOf(const ZoEffectModel& model)
{
    return model.getCurrentFrameEffects().value("Effect").toString();
}

} // namespace

/// Trees far beyond what an application builds: wide, deep, with names that mean something elsewhere.
class TstHostileTrees : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void manyItems_data();
    void manyItems();
    void veryManyItems();
    void manyItemsInsertedByTheModel();
    void manyWatermarksAreRenderedInLinearTime();
    void manyWatermarksArePlaced();

    void deepChain_data();
    void deepChain();
    void veryDeepChain();

    void manyFrameEffects_data();
    void manyFrameEffects();
    void separatorInFrameEffectNames_data();
    void separatorInFrameEffectNames();

    void hostileNames_data();
    void hostileNames();
    void hugeNames();
    void twoTypesOfOneName();
    void itemWithTheNameOfAType_data();
    void itemWithTheNameOfAType();
};

void TstHostileTrees::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstHostileTrees::cleanup()
{
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    forgetCustomDefaults();
}

// --- Wide ---------------------------------------------------------------------------------------------------

using Step = std::function<void(ZoEffectModel&, ZoEffectItemData&)>;
Q_DECLARE_METATYPE(Step)

void TstHostileTrees::manyItems_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Step>("step");
    QTest::addColumn<QStringList>("announced");

    constexpr int last = many - 1;
    QTest::newRow("counted") << "Audio" << Step([](ZoEffectModel& model, ZoEffectItemData&) {
        QCOMPARE(model.childCount("Audio"), many);
        QVERIFY(!model.getDataItem("Audio", many));
        QCOMPARE(model.data("number", "Audio", last), QVariant(last));
    }) << QStringList();
    QTest::newRow("found by a value") << "Audio" << Step([](ZoEffectModel& model, ZoEffectItemData&) {
        QCOMPARE(model.getItemIndexByKeyValue("Audio", "number", last), last);
        QVERIFY(!model.haveSameItem("Audio", "number", many));
    }) << QStringList();
    QTest::newRow("selected by a value") << "Audio" << Step([](ZoEffectModel& model, ZoEffectItemData& typeNode) {
        model.selectItemByKey("Audio", "number", last);
        QCOMPARE(selectedItems(typeNode), 1);
        QCOMPARE(typeNode.child(last)->checkState(), 2);
    }) << QStringList();
    QTest::newRow("selected by texts") << "Audio" << Step([](ZoEffectModel& model, ZoEffectItemData& typeNode) {
        model.selectItemByKeyEx("Audio", "number", {"0", "7", "none"});
        QCOMPARE(selectedItems(typeNode), 2);
    }) << QStringList();
    QTest::newRow("all selected tracks") << "Audio" << Step([](ZoEffectModel& model, ZoEffectItemData&) {
        const std::unique_ptr<ZoEffectItemData> tracks(model.getSelectItem("Audio"));
        QCOMPARE(tracks->childCount(), many);
        while (tracks->childCount() != 0)
            tracks->takeAt(tracks->childCount() - 1);
    }) << QStringList();
    QTest::newRow("one marked to play") << "Audio" << Step([](ZoEffectModel& model, ZoEffectItemData& typeNode) {
        model.refreshCurPlayData(last);
        QCOMPARE(typeNode.child(last)->data("_playmeineffect"), QVariant(true));
        QVERIFY(!typeNode.child(0)->hasData("_playmeineffect"));
    }) << QStringList();
    QTest::newRow("first moved to the end")
        << "Audio" << Step([](ZoEffectModel& model, ZoEffectItemData& typeNode) {
               QVERIFY(model.changeDataItemPos("Audio", last, 0));
               QCOMPARE(typeNode.child(last)->data("number"), QVariant(0));
               QCOMPARE(typeNode.child(0)->data("number"), QVariant(1));
               QVERIFY(!model.changeDataItemPos("Audio", many, 0));
           })
        << QStringList{QStringLiteral("effectDataChanged(Audio, item_move, int %1, -1)").arg(last),
                       QStringLiteral("effectDataChanged(Audio, item_move, int %1, -1)").arg(many)};
    QTest::newRow("first deleted") << "Audio" << Step([](ZoEffectModel& model, ZoEffectItemData& typeNode) {
        QVERIFY(model.delDataItem("Audio", 0));
        QCOMPARE(typeNode.childCount(), last);
    }) << QStringList{QStringLiteral("effectDataChanged(Audio, item_delete, invalid, 0)")};
    QTest::newRow("inserted in the middle") << "Audio" << Step([](ZoEffectModel& model, ZoEffectItemData& typeNode) {
        QVERIFY(model.insertDataItem("Audio", {}, 1));
        QCOMPARE(typeNode.childCount(), many + 1);
        QCOMPARE(typeNode.child(1)->properties(), (Properties{{"play_loop", false}}));
    }) << QStringList{QStringLiteral("effectDataChanged(Audio, item_add, invalid, 1)")};
    QTest::newRow("copied") << "Audio" << Step([](ZoEffectModel& model, ZoEffectItemData&) {
        const ZoEffectModel copy(model);
        QCOMPARE(copy.childCount("Audio"), many);
        QCOMPARE(copy.data("number", "Audio", last), QVariant(last));
    }) << QStringList();
    QTest::newRow("reset") << "Audio" << Step([](ZoEffectModel& model, ZoEffectItemData& typeNode) {
        QVERIFY(model.resetDataItem("Audio", 5));
        QCOMPARE(typeNode.childCount(), 0);
    }) << QStringList{QStringLiteral("effectDataChanged(Audio, reset, invalid, 5)")};
    QTest::newRow("all effects reset, embedded tracks") << "Audio" << Step([](auto& model, auto& typeNode) {
        model.resetAllEffect();
        QCOMPARE(typeNode.childCount(), many);
        QCOMPARE(selectedItems(typeNode), 1);
    }) << QStringList();
    QTest::newRow("all effects reset, file tracks") << "Audio" << Step([](auto& model, auto& typeNode) {
        for (int row = 0; row < many; ++row)
            typeNode.child(row)->setData("audio_isfile", true);
        model.resetAllEffect();
        QCOMPARE(typeNode.childCount(), 0);
    }) << QStringList();
    QTest::newRow("real effect looked for") << "Subtitle" << Step([](ZoEffectModel& model, ZoEffectItemData& typeNode) {
        typeNode.child(last)->setData("sub_fromfile", true);
        // Without the audio effects, which would decide alone.
        while (ZoEffectItemData* effect = model.getDataItem("effect root", 6)) {
            effect->parent()->takeAt(6);
            delete effect;
        }
        QVERIFY(model.hasRealEffect());
        QVERIFY(model.useCustomSubtitle());
        QVERIFY(model.useEmbededSubtitle());
        QCOMPARE(model.getEmbededSutitleID(), 0);
    }) << QStringList();
    QTest::newRow("subtitle scaled once for each track")
        << "Subtitle" << Step([](ZoEffectModel& model, ZoEffectItemData& typeNode) {
               model.setVideoSize(1000, 1000);
               model.adjustEffectInfo(1000, 999);
               QCOMPARE(typeNode.data("sub_vposition"), QVariant(0));
           })
        << QStringList();
    QTest::newRow("style spread") << "Subtitle" << Step([](ZoEffectModel& model, ZoEffectItemData& typeNode) {
        model.replaceItemDataProperty("Subtitle", {{"sub_transparency", 7}});
        QCOMPARE(typeNode.child(0)->data("sub_transparency"), QVariant(7));
        QCOMPARE(typeNode.child(6)->data("sub_transparency"), QVariant(7));
        QVERIFY(!typeNode.child(1)->hasData("sub_transparency"));
    })
                                  << QStringList{QStringLiteral("effectDataChanged(Subtitle, reset, invalid, 5)"),
                                                 QStringLiteral("effectDataChanged(Subtitle, reset, invalid, 5)")};
    QTest::newRow("watermarks rescaled") << "Watermark" << Step([](ZoEffectModel& model, ZoEffectItemData& typeNode) {
        typeNode.child(last)->setData("wm_hposition", 100);
        model.setVideoSize(640, 480);
        model.adjustEffectInfo(1280, 960);
        QCOMPARE(typeNode.child(last)->data("wm_hposition"), QVariant(200));
    }) << QStringList();
    QTest::newRow("watermark placed beside the others")
        << "Watermark" << Step([](ZoEffectModel& model, ZoEffectItemData& typeNode) {
               model.setVideoSize(640, 480);
               model.adjustWatermarkPos(typeNode.child(last));
               QCOMPARE(typeNode.child(last)->data("wm_hposition"), QVariant(30));
               QCOMPARE(typeNode.child(last)->data("wm_vposition"), QVariant(30));
           })
        << QStringList();
}

// Everything that walks over the items must do so in one go, or the time would be that of a million millions.
void TstHostileTrees::manyItems()
{
    QFETCH(const QString, type);
    QFETCH(const Step, step);
    QFETCH(const QStringList, announced);

    ZoEffectModel model;
    ZoEffectItemData* typeNode = model.getDataItem(type, -1);
    fill(*typeNode, many);
    SignalRecorder recorder(model);
    const hostile::Stopwatch stopwatch;
    step(model, *typeNode);
    const double milliseconds = stopwatch.milliseconds();
    QVERIFY2(milliseconds < 1000.0 * hostile::slowness, qPrintable(QString::number(milliseconds)));
    QCOMPARE(recorder.take(), announced);
}

void TstHostileTrees::veryManyItems()
{
    constexpr int last = veryMany - 1;
    const hostile::Stopwatch stopwatch;
    {
        ZoEffectModel model;
        ZoEffectItemData* typeNode = model.getDataItem("Audio", -1);
        for (int i = 0; i < veryMany; ++i)
            new ZoEffectItemData(QString(), typeNode);
        typeNode->child(0)->setData("number", 0);
        typeNode->child(last)->setData("number", last);
        QCOMPARE(model.childCount("Audio"), veryMany);
        model.selectItemByKey("Audio", "number", last);
        QCOMPARE(selectedItems(*typeNode), 1);
        QCOMPARE(model.getItemIndexByKeyValue("Audio", "number", last), last);
        QVERIFY(model.changeDataItemPos("Audio", 0, last));
        QCOMPARE(model.data("number", "Audio", 0), QVariant(last));
        QVERIFY(model.insertDataItem("Audio", {}, 0));
        QVERIFY(model.delDataItem("Audio", 1));
        QCOMPARE(model.data("number", "Audio", 1), QVariant(0));
        {
            const ZoEffectModel copy(model);
            QCOMPARE(copy.childCount("Audio"), veryMany);
            QCOMPARE(copy.data("number", "Audio", 1), QVariant(0));
        }
        QVERIFY(model.resetDataItem("Audio", -1));
        QCOMPARE(model.childCount("Audio"), 0);
    }
    const double milliseconds = stopwatch.milliseconds();
    QVERIFY2(milliseconds < 15000.0 * hostile::slowness, qPrintable(QString::number(milliseconds)));
}

void TstHostileTrees::manyItemsInsertedByTheModel()
{
    static const EffectControlItem onlyAudio[] = {effectType("Audio", AudioDefaultVal), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(onlyAudio);
    ZoEffectModel model;
    qint64 announced = 0;
    connect(&model,
            QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
            &model, [&](const QString&, const QString&, const QVariant&, int pos) { announced += pos; });

    const hostile::Stopwatch stopwatch;
    for (int i = 0; i < many; ++i)
        QVERIFY(model.addDataItem("Audio", {}));
    QCOMPARE(model.childCount("Audio"), many);
    QCOMPARE(announced, qint64(many) * (many - 1) / 2);
    for (int i = many - 1; i >= 0; --i)
        QVERIFY(model.delDataItem("Audio", i));
    QCOMPARE(model.childCount("Audio"), 0);
    QCOMPARE(announced, qint64(many) * (many - 1));
    const double milliseconds = stopwatch.milliseconds();
    QVERIFY2(milliseconds < 20000.0 * hostile::slowness, qPrintable(QString::number(milliseconds)));
}

void TstHostileTrees::manyWatermarksAreRenderedInLinearTime()
{
    constexpr int count = many;
    ZoEffectModel model;
    model.setVideoSize(64, 48);
    ZoEffectItemData* typeNode = model.getDataItem("Watermark", -1);
    fill(*typeNode, count);
    for (int row = 0; row < count; ++row)
        typeNode->child(row)->setCheckState(0);
    const hostile::Stopwatch stopwatch;
    QVERIFY(model.getWatermark(64, 48, true).isNull());
    const double milliseconds = stopwatch.milliseconds();
    QVERIFY2(milliseconds < 250.0 * hostile::slowness, qPrintable(QString::number(milliseconds)));
}

void TstHostileTrees::manyWatermarksArePlaced()
{
    constexpr int count = 500;
    ZoEffectModel model;
    model.setVideoSize(30 * (count + 20), 30 * (count + 20));
    for (int i = 0; i < count; ++i)
        QVERIFY(model.addDataItem("Watermark", {{"wm_hposition", 0}, {"wm_vposition", 0}}));
    // Each one goes two steps further: a rectangle of 30 columns that is grown on all sides blocks its own place and,
    // by the second point looked at, none of the next.
    QCOMPARE(model.data("wm_hposition", "Watermark", 0), QVariant(0));
    QCOMPARE(model.data("wm_hposition", "Watermark", 1), QVariant(30));
    QCOMPARE(model.data("wm_hposition", "Watermark", count - 1), QVariant(30 * (count - 1)));
}

// --- Deep ---------------------------------------------------------------------------------------------------

void TstHostileTrees::deepChain_data()
{
    QTest::addColumn<Step>("step");

    QTest::newRow("deleted") << Step([](ZoEffectModel&, ZoEffectItemData& top) {
        top.clear();
        QCOMPARE(chainLength(top), 0);
    });
    QTest::newRow("deleted as a child") << Step([](ZoEffectModel&, ZoEffectItemData& top) {
        QVERIFY(top.removeChildren(0, 1));
        QCOMPARE(chainLength(top), 0);
    });
    QTest::newRow("copied") << Step([](ZoEffectModel&, ZoEffectItemData& top) {
        const ZoEffectItemData copy(top);
        QCOMPARE(chainLength(copy), many);
    });
    QTest::newRow("assigned") << Step([](ZoEffectModel&, ZoEffectItemData& top) {
        ZoEffectItemData other("other");
        growChain(other, 10);
        other = top;
        QCOMPARE(chainLength(other), many);
        top = other;
        QCOMPARE(chainLength(top), many);
    });
    QTest::newRow("assigned from its own end") << Step([](ZoEffectModel& model, ZoEffectItemData& top) {
        top = *model.findDataItem(&top, "end");
        QCOMPARE(top.name(), QStringLiteral("end"));
        QCOMPARE(top.data("depth"), QVariant(many));
        QCOMPARE(chainLength(top), 0);
    });
    QTest::newRow("found") << Step([](ZoEffectModel& model, ZoEffectItemData& top) {
        QCOMPARE(model.findDataItem(&top, "end")->data("depth"), QVariant(many));
        QVERIFY(!model.findDataItem(&top, "elsewhere"));
        QVERIFY(!model.findDataItem(&top, "end", 0));
    });
    QTest::newRow("as part of a model") << Step([](ZoEffectModel& model, ZoEffectItemData& top) {
        ZoEffectItemData* typeNode = model.getDataItem("Crop", -1);
        typeNode->appendChild(top.takeAt(0));
        QCOMPARE(model.childCount("end"), 0);
        QCOMPARE(model.data("depth", "end", -1), QVariant(many));
        QVERIFY(!model.hasRealEffect());
    });
    QTest::newRow("in a copied model") << Step([](ZoEffectModel& model, ZoEffectItemData& top) {
        ZoEffectItemData* typeNode = model.getDataItem("Crop", -1);
        typeNode->appendChild(top.takeAt(0));
        ZoEffectModel other;
        other = model;
        QCOMPARE(chainLength(*other.getDataItem("Crop", -1)), many);
        QVERIFY(other.resetDataItem("Crop", -1));
        QCOMPARE(chainLength(*other.getDataItem("Crop", -1)), 0);
        other.replaceData("Crop", -1, typeNode);
        QCOMPARE(chainLength(*other.getDataItem("Crop", -1)), many);
        other.resetAllEffect();
        QCOMPARE(chainLength(*other.getDataItem("Crop", -1)), 0);
    });
}

void TstHostileTrees::deepChain()
{
    QFETCH(const Step, step);

    double milliseconds = 0;
    QVERIFY(runOnSmallStack([&] {
        const hostile::Stopwatch own;
        {
            ZoEffectModel model;
            ZoEffectItemData top("top");
            growChain(top, many);
            step(model, top);
        }
        milliseconds = own.milliseconds();
    }));
    QVERIFY2(milliseconds < 10000.0 * hostile::slowness, qPrintable(QString::number(milliseconds)));
}

void TstHostileTrees::veryDeepChain()
{
    QVERIFY(runOnSmallStack([] {
        const ZoEffectModel model;
        ZoEffectItemData top("top");
        growChain(top, veryMany);
        QCOMPARE(model.findDataItem(&top, "end")->data("depth"), QVariant(veryMany));
        ZoEffectItemData copy(top);
        QCOMPARE(chainLength(copy), veryMany);
        top.clear();
        QCOMPARE(chainLength(top), 0);
        top = copy;
        QCOMPARE(chainLength(top), veryMany);
    }));
}

// --- Frame effects ------------------------------------------------------------------------------------------

void TstHostileTrees::manyFrameEffects_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("reversed");
    QTest::newRow("in the saved order") << mostFrameEffects << false;
    QTest::newRow("in the opposite order") << mostFrameEffects / 5 << true;
}

void TstHostileTrees::manyFrameEffects()
{
    QFETCH(const int, count);
    QFETCH(const bool, reversed);

    QStringList names;
    for (int i = 0; i < count; ++i)
        names << QStringLiteral("effect %1").arg(i);
    ZoEffectModel model;
    setFrameEffects(model, names);
    model.getDataItem("Effect", count - 1)->setCheckState(2);

    QVERIFY(summaryOf(model).startsWith("effect 0|false|effect 1|false|"));
    const QString end = QStringLiteral("|effect %1|false|effect %2|true").arg(count - 2).arg(count - 1);
    QVERIFY(summaryOf(model).endsWith(end));
    model.saveAsCustomDefault("Effect", -1);
    QVERIFY(model.FrameEffectIsDefault());

    QStringList others = names;
    if (reversed)
        std::reverse(others.begin(), others.end());
    ZoEffectModel other;
    setFrameEffects(other, others);
    QVERIFY(!other.FrameEffectIsDefault());
    other.AdjustFramEffectsByCustomDefault();
    QVERIFY(other.FrameEffectIsDefault());
    QCOMPARE(frameEffectNames(other), names);
    QCOMPARE(other.getDataItem("Effect", count - 1)->checkState(), 2);
    QCOMPARE(other.getDataItem("Effect", 0)->checkState(), 0);
}

void TstHostileTrees::separatorInFrameEffectNames_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("summary");
    QTest::addColumn<bool>("fits"); // Whether the summary is taken apart as it was put together.

    QTest::newRow("in the middle") << QStringList{"a|b", "c"} << "a|b|false|c|true" << false;
    QTest::newRow("alone") << QStringList{"|", "c"} << "||false|c|true" << false;
    QTest::newRow("three of them") << QStringList{"|||", "c"} << "||||false|c|true" << false;
    QTest::newRow("like a whole entry") << QStringList{"a|true|b", "c"} << "a|true|b|false|c|true" << false;
    QTest::newRow("empty names") << QStringList{"", ""} << "|false||true" << true;
    QTest::newRow("formats") << QStringList{"%n%s", "%1"} << "%n%s|false|%1|true" << true;
    QTest::newRow("words of states") << QStringList{"true", "false"} << "true|false|false|true" << true;
    QTest::newRow("line breaks") << QStringList{"\n", "\r\n"} << "\n|false|\r\n|true" << true;
    QTest::newRow("lone surrogates") << QStringList{QString(QChar(0xd800)), QString(QChar(0xdfff))}
                                     << QString(QChar(0xd800)) + "|false|" + QChar(0xdfff) + "|true" << true;
    QTest::newRow("null character") << QStringList{QString(QChar(0)), QString(2, QChar(0))}
                                    << QString(QChar(0)) + "|false|" + QString(2, QChar(0)) + "|true" << true;
}

// A saved summary that does not fit the frame effects counts as default and restores nothing.
void TstHostileTrees::separatorInFrameEffectNames()
{
    QFETCH(const QStringList, names);
    QFETCH(const QString, summary);
    QFETCH(const bool, fits);
    // Of two effects of one name the first is found for either entry, and so moved to the second place.
    const int firstState = fits && names.at(0) != names.at(1) ? 0 : 2;

    ZoEffectModel model;
    setFrameEffects(model, names);
    model.getDataItem("Effect", 1)->setCheckState(2);
    QCOMPARE(summaryOf(model), summary);
    model.saveAsCustomDefault("Effect", -1);
    QCOMPARE(ZoEffectItemDefaultValMgr::getInstance()->getCustomDefaultVal("Effect"),
             (Properties{{"Effect", summary}}));

    model.getDataItem("Effect", 0)->setCheckState(2);
    QCOMPARE(model.FrameEffectIsDefault(), !fits);
    QVERIFY(model.changeDataItemPos("Effect", 1, 0));
    model.AdjustFramEffectsByCustomDefault();
    const QStringList swapped{names.at(1), names.at(0)};
    QCOMPARE(frameEffectNames(model), fits ? names : swapped);
    QCOMPARE(model.getDataItem("Effect", 0)->checkState(), firstState);
    QCOMPARE(model.getDataItem("Effect", 1)->checkState(), 2);
}

// --- Names --------------------------------------------------------------------------------------------------

void TstHostileTrees::hostileNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("formats") << QStringLiteral("%n%s%08x%1");
    QTest::newRow("separator") << QStringLiteral("|");
    QTest::newRow("empty") << QString("");
    QTest::newRow("null character") << QString(QChar(0));
    QTest::newRow("null character within") << QString("Crop") + QChar(0);
    QTest::newRow("lone surrogate") << QString(QChar(0xd800));
    QTest::newRow("path") << QStringLiteral("../../etc/passwd");
    QTest::newRow("line breaks") << QStringLiteral("\r\n[General]\n");
    QTest::newRow("other letter case") << QStringLiteral("crop");
    QTest::newRow("composed letters") << QString("Crop") + QChar(0x0301);
    QTest::newRow("64 KiB") << QString(32768, QChar('n'));
}

void TstHostileTrees::hostileNames()
{
    QFETCH(const QString, name);

    ZoEffectModel model;
    SignalRecorder recorder(model);
    QCOMPARE(model.childCount(name), 0);
    QVERIFY(!model.setData("k", 1, name, -1));
    QVERIFY(!model.resetDataItem(name, 3));
    QVERIFY(!model.delDataItem(name, 0));
    QVERIFY(!model.changeDataItemPos(name, 0, 1));
    QVERIFY(!model.replaceData(name, 0, Properties()));
    model.replaceData(name, -1, model.getDataItem("Crop", -1));
    QVERIFY(!model.insertDataItem(name, {}, -1));
    QVERIFY(model.dataIsDefault(name));
    QCOMPARE(logcapture::takeEvents(), (QList<int>{246, 181, 622, 273, 288, 969, 1026, 518}));
    QCOMPARE(recorder.take(), QStringList());

    QVERIFY(model.addDataItemEx(name, {{name, name}}, true));
    QCOMPARE(recorder.take(), QStringList{"effectDataChanged(" + name + ", item_add, invalid, 0)"});
    QCOMPARE(model.childCount(name), 1);
    QCOMPARE(model.data(name, name, 0), QVariant(name));
    QVERIFY(model.setData(name, 5, name, -1));
    QCOMPARE(recorder.take(), QStringList{"effectDataChanged(" + name + ", " + name + ", int 5, -1)"});

    const ZoEffectModel copy(model);
    QCOMPARE(copy.getDataItem(name, -1)->name(), name);
    QCOMPARE(copy.getDataItem(name, -1)->objectName(), name);
    QCOMPARE(copy.data(name, name, -1), QVariant(5));

    // The name is that of a type in the store, too.
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(name, {{name, name}});
    QVERIFY(model.hasCustomDefault(name));
    QCOMPARE(ZoEffectModel::defaultValue(name, name), QVariant(name));
    QVERIFY(model.resetDataItem(name, 3));
    QCOMPARE(model.data(name, name, -1), QVariant(name));
    QVERIFY(model.editByDefault());
    model.removeCustomDefault(name);
    QVERIFY(!model.hasCustomDefault(name));
}

void TstHostileTrees::hugeNames()
{
    const QString name(textOf64MiB, QChar('n'));
    const hostile::Stopwatch stopwatch;
    {
        ZoEffectModel model;
        QVERIFY(model.addDataItemEx(name, {{name, name}, {"sub_fromfile", true}}, true));
        model.getDataItem(name, 0)->setInternalData(&model);
        QCOMPARE(model.childCount(name), 1);
        QCOMPARE(model.data(name, name, 0).toString().size(), textOf64MiB);
        const ZoEffectModel copy(model);
        QVERIFY(copy.getDataItem(name, -1)->name() == name);
        QVERIFY(copy.haveSameItem(name, name, name));
        QVERIFY(model.setData(name, name, name, 0));

        QVERIFY(model.delDataItem(name, 0));

        setFrameEffects(model, {name, "b"});
        QCOMPARE(summaryOf(model).size(), textOf64MiB + 14);
        model.saveAsCustomDefault("Effect", -1);
        QVERIFY(model.FrameEffectIsDefault());
    }
    const double milliseconds = stopwatch.milliseconds();
    QVERIFY2(milliseconds < 3000.0 * hostile::slowness, qPrintable(QString::number(milliseconds)));
}

void TstHostileTrees::twoTypesOfOneName()
{
    ZoEffectModel model;
    model.createItems({"Crop", "Effect"});
    ZoEffectItemData* root = model.getDataItem("effect root", -1);
    QCOMPARE(root->childCount(), 15);
    ZoEffectItemData* second = root->child(13);
    QCOMPARE(second->name(), QStringLiteral("Crop"));

    QVERIFY(model.setData("crop_left", 5, "Crop", -1));
    QCOMPARE(root->child(0)->data("crop_left"), QVariant(5));
    QCOMPARE(second->data("crop_left"), QVariant(0));
    model.selectOnlyOneItem("Crop");
    QCOMPARE(root->child(0)->checkState(), 2);
    QCOMPARE(second->checkState(), 2);
    QCOMPARE(root->child(1)->checkState(), 0);

    // Both are rescaled; what decides is the crop of the first.
    for (ZoEffectItemData* crop : {root->child(0), second}) {
        crop->setData("crop_left", 10);
        crop->setData("crop_width", 100);
        crop->setData("crop_height", 100);
        crop->setData("crop_keepaspectratio", false);
    }
    model.setVideoSize(640, 480);
    model.adjustEffectInfo(1280, 960);
    QCOMPARE(root->child(0)->data("crop_left"), QVariant(20));
    QCOMPARE(second->data("crop_left"), QVariant(20));
    root->child(0)->setCheckState(0);
    model.adjustEffectInfo(640, 480);
    QCOMPARE(second->data("crop_left"), QVariant(0));
    QCOMPARE(second->data("crop_width"), QVariant(640));

    QVERIFY(model.resetDataItem("Effect", -1));
    QCOMPARE(model.childCount("Effect"), 4);
    QCOMPARE(root->child(14)->childCount(), 4);
}

void TstHostileTrees::itemWithTheNameOfAType_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("itemIsFound");
    QTest::newRow("of a later type") << "Crop"
                                     << "Subtitle" << true;
    QTest::newRow("of an earlier type") << "Subtitle"
                                        << "Crop" << false;
    QTest::newRow("of its own type") << "Subtitle"
                                     << "Subtitle" << false;
    QTest::newRow("of the root") << "Subtitle"
                                 << "effect root" << false;
}

void TstHostileTrees::itemWithTheNameOfAType()
{
    QFETCH(const QString, parent);
    QFETCH(const QString, name);
    QFETCH(const bool, itemIsFound);

    ZoEffectModel model;
    ZoEffectItemData* typeNode = model.getDataItem(name, -1);
    auto* item = new ZoEffectItemData(name, model.getDataItem(parent, -1));
    QCOMPARE(model.getDataItem(name, -1), itemIsFound ? item : typeNode);
    QVERIFY(model.setData("k", 5, name, -1));
    QCOMPARE(item->hasData("k"), itemIsFound);
    QCOMPARE(typeNode->hasData("k"), !itemIsFound);
    const ZoEffectModel copy(model);
    QCOMPARE(copy.data("k", name, -1), QVariant(5));
    // What is rescaled is each child of the root, whatever the lookup finds.
    model.setVideoSize(100, 100);
    model.adjustEffectInfo(200, 200);
    QCOMPARE(model.baseSize(), QSize(200, 200));
}

ZOEFFECT_TEST_MAIN(TstHostileTrees)
#include "tst_hostile_trees.moc"
