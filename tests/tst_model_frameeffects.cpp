// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zoeffectmodel.h>

#include <zoeffectcatalogue.h>
#include <zoeffectitemdefaultvalmgr.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using Properties = QMap<QString, QVariant>;

ZoEffectItemData* root(const ZoEffectModel& model)
{
    return model.getDataItem("effect root", -1);
}

/// Saves \a summary as the frame effects that the user wants by default.
void saveFrameEffects(const QVariant& summary)
{
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Effect", {{"Effect", summary}});
}

/// Replaces the children of \a parent: "Blur 2, Mirror 0, -" gives two children with their names and check
/// states and a null entry.
void setItems(ZoEffectItemData* parent, const QString& items)
{
    parent->clear();
    if (items.isEmpty())
        return;
    const QStringList entries = items.split(", ");
    for (const QString& entry : entries) {
        if (entry == QLatin1String("-")) {
            parent->appendChild(nullptr);
            continue;
        }
        const int blank = int(entry.lastIndexOf(QLatin1Char(' ')));
        auto* node = new ZoEffectItemData(entry.left(blank), parent);
        node->setCheckState(QStringView(entry).mid(blank + 1).toInt());
    }
}

/// The children of \a parent, written as setItems() reads them.
QString itemsOf(const ZoEffectItemData* parent)
{
    QStringList items;
    for (int row = 0; row < parent->childCount(); ++row) {
        const ZoEffectItemData* node = parent->child(row);
        items << (node ? QString("%1 %2").arg(node->name()).arg(node->checkState()) : QString("-"));
    }
    return items.join(", ");
}

const char* const allOff = "Blur 0, Sharpen 0, Mirror 0, Sepia 0";

/// "Effect" without a list of frame effects; "Other" stands before it.
const EffectControlItem* catalogueWithoutFrameEffects()
{
    static const EffectControlItem table[] = {effectType("Other", nullptr), effectType("Effect", nullptr),
                                              effectType(nullptr, nullptr)};
    return table;
}

/// "Effect" only below another type, with frame effects that have values, start switched on, bear the same
/// name twice, or have names outside ASCII, with the separator or empty.
const EffectControlItem* studioCatalogue()
{
    static const EffectDefaultVal end = property(nullptr, 0);
    static const EffectDefaultVal on[] = {property("strength", 5), property("_checkstate", true), end};
    static const EffectDefaultVal off[] = {property("_checkstate", false), end};
    static const SubEffectItem items[] = {subItem("Fl\xC3\xBC", 1, on), subItem("Twin", 2, off),
                                          subItem("Twin", 3, off),      subItem("A|B", 4),
                                          subItem("", 5, off),          subItem(nullptr, 0)};
    static const EffectControlItem nested[] = {effectType("Effect", nullptr, items), effectType(nullptr, nullptr)};
    static const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, nested),
                                              effectType(nullptr, nullptr)};
    return table;
}

/// A model with the frame effects of the studio catalogue.
struct StudioModel : ZoEffectModel {
    StudioModel() : ZoEffectModel(QString("Effect"), Properties())
    {
        InitSubItemData(getDataItem("Effect", -1), findOriItem("Effect", studioCatalogue())->subItems);
    }
};

} // namespace

class TstModelFrameEffects : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // getCurrentFrameEffects
    void summary_data();
    void summary();
    void summaryOfAFreshModel();
    void summaryWithoutEffectTypeIsLogged_data();
    void summaryWithoutEffectTypeIsLogged();
    void summaryOfNamesWithTheSeparator();
    void summaryNeedsNoCatalogue();
    void summaryChangesNothing();

    // FrameEffectIsDefault
    void comparedWithTheCatalogue_data();
    void comparedWithTheCatalogue();
    void comparedWithTheSavedSummary_data();
    void comparedWithTheSavedSummary();
    void savedMapsWithoutSummaryAreDefault_data();
    void savedMapsWithoutSummaryAreDefault();
    void savedSummaryThatFitsNoItemsIsDefault();
    void removedSummaryNoLongerCounts();
    void defaultWithoutRecordOrNode();
    void defaultWithoutListOfFrameEffects();
    void studioFrameEffects();
    void valuesOfFrameEffects();
    void summaryWithSeparatorsInNamesIsIgnored();
    void comparingChangesNothing();

    // AdjustFramEffectsByCustomDefault
    void restoresOrderAndStates_data();
    void restoresOrderAndStates();
    void restoresNothingWithoutSummary_data();
    void restoresNothingWithoutSummary();
    void restoringMovesTheItemsThemselves();
    void restoringTouchesOnlyTheEffectType();
    void restoringWithoutEffectType();
    void restoringNeedsNoCatalogue();
    void restoringStudioFrameEffects();
    void newModelsStartFromTheSavedSummary();
    void resetModelsStartFromTheSavedSummary();
    void currentSummaryRoundTrips_data();
    void currentSummaryRoundTrips();

    // getItemPos
    void positionOfAName_data();
    void positionOfAName();
    void positionUnderNull();
    void positionLooksAtTheGivenParentOnly();
};

void TstModelFrameEffects::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstModelFrameEffects::cleanup()
{
    const QList<int> events = logcapture::takeEvents();
    ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal("Effect");
    ZoEffectModel::InitEffectModel(hostCatalogue());
    QCOMPARE(events, QList<int>());
}

// --- getCurrentFrameEffects --------------------------------------------------------------------------------

void TstModelFrameEffects::summary_data()
{
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("nulls");

    QTest::newRow("on and off") << "A 2, B 0"
                                << "A|true|B|false" << 0;
    QTest::newRow("off and on") << "A 0, B 2"
                                << "A|false|B|true" << 0;
    QTest::newRow("order of the list") << "B 2, A 2"
                                       << "B|true|A|true" << 0;
    QTest::newRow("one item") << "Blur 2"
                              << "Blur|true" << 0;
    QTest::newRow("no items") << ""
                              << "" << 0;
    QTest::newRow("partially checked is off") << "A 1, B 2"
                                              << "A|false|B|true" << 0;
    QTest::newRow("other states are off") << "A 3, B -2"
                                          << "A|false|B|false" << 0;
    QTest::newRow("item without name") << " 2"
                                       << "|true" << 0;
    QTest::newRow("items without name") << " 2,  0"
                                        << "|true||false" << 0;
    QTest::newRow("name twice") << "A 2, A 0"
                                << "A|true|A|false" << 0;
    QTest::newRow("name with blanks") << "Old film look 2"
                                      << "Old film look|true" << 0;
    QTest::newRow("name with the separator") << "A|B 2"
                                             << "A|B|true" << 0;
    QTest::newRow("name like a state") << "true 0"
                                       << "true|false" << 0;
    QTest::newRow("name outside ASCII") << QString::fromUtf8("Fl\xC3\xBC 2") << QString::fromUtf8("Fl\xC3\xBC|true")
                                        << 0;
    QTest::newRow("name with a place marker") << "%1 2, %2 0"
                                              << "%1|true|%2|false" << 0;
    QTest::newRow("null entry first") << "-, A 2"
                                      << "A|true" << 1;
    QTest::newRow("null entry in the middle") << "A 2, -, B 0"
                                              << "A|true|B|false" << 1;
    QTest::newRow("null entry last") << "A 0, -"
                                     << "A|false" << 1;
    QTest::newRow("null entries") << "-, A 2, -, -, B 2, -"
                                  << "A|true|B|true" << 4;
    QTest::newRow("null entries only") << "-, -"
                                       << "" << 2;
}

void TstModelFrameEffects::summary()
{
    QFETCH(QString, items);
    QFETCH(QString, expected);
    QFETCH(int, nulls);
    for (const int typeState : {2, 0}) {
        ZoEffectModel model;
        setItems(model.getDataItem("Effect", -1), items);
        model.getDataItem("Effect", -1)->setCheckState(typeState);

        QCOMPARE(described(model.getCurrentFrameEffects()), QString("{Effect: string %1}").arg(expected));

        QList<int> events;
        for (int i = 0; i < nulls; ++i)
            events << 1553;
        QCOMPARE(logcapture::takeEvents(), events);
    }
}

void TstModelFrameEffects::summaryOfAFreshModel()
{
    ZoEffectModel model;
    QCOMPARE(described(model.getCurrentFrameEffects()),
             QString("{Effect: string Blur|false|Sharpen|false|Mirror|false|Sepia|false}"));
    QVERIFY(model.setData("_checkstate", true, "Effect", 2));
    QCOMPARE(described(model.getCurrentFrameEffects()),
             QString("{Effect: string Blur|false|Sharpen|false|Mirror|true|Sepia|false}"));
    QVERIFY(model.changeDataItemPos("Effect", 0, 2));
    QCOMPARE(described(model.getCurrentFrameEffects()),
             QString("{Effect: string Mirror|true|Blur|false|Sharpen|false|Sepia|false}"));
}

void TstModelFrameEffects::summaryWithoutEffectTypeIsLogged_data()
{
    QTest::addColumn<QStringList>("types");

    QTest::newRow("other types") << QStringList{"Crop", "Color"};
    QTest::newRow("no types") << QStringList{"Alien"};
}

void TstModelFrameEffects::summaryWithoutEffectTypeIsLogged()
{
    QFETCH(QStringList, types);
    ZoEffectModel model(types);
    saveFrameEffects("Blur|true");

    QCOMPARE(described(model.getCurrentFrameEffects()), QString("{}"));
    QCOMPARE(logcapture::takeEvents(), QList<int>{1559});
    new ZoEffectItemData("effect", root(model));
    QVERIFY(model.getCurrentFrameEffects().isEmpty());
    QVERIFY(model.getCurrentFrameEffects().isEmpty());
    QCOMPARE(logcapture::takeEvents(), (QList<int>{1559, 1559}));
}

void TstModelFrameEffects::summaryOfNamesWithTheSeparator()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    const StudioModel model;

    QCOMPARE(described(model.getCurrentFrameEffects()),
             QString::fromUtf8("{Effect: string Fl\xC3\xBC|true|Twin|false|Twin|false|A|B|true||false}"));
}

void TstModelFrameEffects::summaryNeedsNoCatalogue()
{
    ZoEffectModel model("Effect", {});
    setItems(model.getDataItem("Effect", -1), "A 2");
    ZoEffectModel::InitEffectModel(nullptr);
    QCOMPARE(logcapture::takeEvents(), QList<int>{25});

    QCOMPARE(described(model.getCurrentFrameEffects()), QString("{Effect: string A|true}"));
}

void TstModelFrameEffects::summaryChangesNothing()
{
    ZoEffectModel model;
    saveFrameEffects("Sepia|true|Mirror|true|Sharpen|true|Blur|true");
    TestApplication::instance()->pref.takeWrites();
    SignalRecorder recorder(model);

    QCOMPARE(described(model.getCurrentFrameEffects()),
             QString("{Effect: string Blur|false|Sharpen|false|Mirror|false|Sepia|false}"));
    QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString(allOff));
    QCOMPARE(described(model.getDataItem("Effect", -1)->properties()), QString("{}"));
    QCOMPARE(TestApplication::instance()->pref.takeWrites(), QStringList());
    QCOMPARE(recorder.take(), QStringList());
}

// --- FrameEffectIsDefault ----------------------------------------------------------------------------------

void TstModelFrameEffects::comparedWithTheCatalogue_data()
{
    QTest::addColumn<QString>("items");
    QTest::addColumn<bool>("expected");

    QTest::newRow("as listed") << allOff << true;
    QTest::newRow("first on") << "Blur 2, Sharpen 0, Mirror 0, Sepia 0" << false;
    QTest::newRow("last on") << "Blur 0, Sharpen 0, Mirror 0, Sepia 2" << false;
    QTest::newRow("all on") << "Blur 2, Sharpen 2, Mirror 2, Sepia 2" << false;
    QTest::newRow("partially checked") << "Blur 1, Sharpen 0, Mirror 0, Sepia 0" << false;
    QTest::newRow("first ones exchanged") << "Sharpen 0, Blur 0, Mirror 0, Sepia 0" << false;
    QTest::newRow("last moved to the front") << "Sepia 0, Blur 0, Sharpen 0, Mirror 0" << false;
    QTest::newRow("last missing") << "Blur 0, Sharpen 0, Mirror 0" << false;
    QTest::newRow("first missing") << "Sharpen 0, Mirror 0, Sepia 0" << false;
    QTest::newRow("first only") << "Blur 0" << false;
    QTest::newRow("none") << "" << false;
    QTest::newRow("one more") << "Blur 0, Sharpen 0, Mirror 0, Sepia 0, Noise 0" << false;
    QTest::newRow("one more without name") << "Blur 0, Sharpen 0, Mirror 0, Sepia 0,  0" << false;
    QTest::newRow("other letter case") << "blur 0, Sharpen 0, Mirror 0, Sepia 0" << false;
    QTest::newRow("another name") << "Blur 0, Sharpen 0, Noise 0, Sepia 0" << false;
    QTest::newRow("null entry in place of an item") << "Blur 0, -, Mirror 0, Sepia 0" << true;
    QTest::newRow("null entry, another on") << "Blur 0, -, Mirror 0, Sepia 2" << false;
}

void TstModelFrameEffects::comparedWithTheCatalogue()
{
    QFETCH(QString, items);
    QFETCH(bool, expected);
    ZoEffectModel model;
    setItems(model.getDataItem("Effect", -1), items);

    QCOMPARE(model.FrameEffectIsDefault(), expected);
    QCOMPARE(model.dataIsDefault("Effect"), expected);

    // Values and check state of the type itself play no part.
    model.getDataItem("Effect", -1)->setCheckState(0);
    model.getDataItem("Effect", -1)->setData("crop_rotation_angle", 90);
    QCOMPARE(model.FrameEffectIsDefault(), expected);
}

void TstModelFrameEffects::comparedWithTheSavedSummary_data()
{
    QTest::addColumn<QVariant>("saved");
    QTest::addColumn<QString>("items");
    QTest::addColumn<bool>("expected");

    const auto row = [](const char* name, const QVariant& saved, const QString& items, bool expected) {
        QTest::newRow(name) << saved << items << expected;
    };
    row("same order and states", "A|true|B|false", "A 2, B 0", true);
    row("state switched off", "A|true|B|false", "A 0, B 0", false);
    row("state switched on", "A|true|B|false", "A 2, B 2", false);
    row("other order", "A|true|B|false", "B 0, A 2", false);
    row("other order, same states", "A|true|B|true", "B 2, A 2", false);
    row("another name", "A|true|B|false", "A 2, C 0", false);
    row("other letter case of a name", "A|true|B|false", "a 2, B 0", false);
    row("partially checked is not on", "A|true", "A 1", false);
    row("partially checked is not off", "A|false", "A 1", false);
    row("other state is not off", "A|false", "A 3", false);
    row("any word is off", "A|on|B|0", "A 0, B 0", true);
    row("any word is not on", "A|on", "A 2", false);
    row("1 is off", "A|1", "A 0", true);
    row("True is off", "A|True", "A 0", true);
    row("TRUE is off", "A|TRUE|B|TRUE", "A 2, B 2", false);
    row("true with a blank is off", "A|true |B| true", "A 0, B 0", true);
    row("empty state is off", "A|", "A 0", true);
    row("empty state is not on", "A|", "A 2", false);
    row("empty name", "|true", " 2", true);
    row("empty parts", "|", " 0", true);
    row("empty parts for a named item", "|", "A 0", false);
    row("too many empty parts", "||||||", "A 2, B 0", true);
    row("empty parts are kept", "|||", "A 0, B 0", false);
    row("name twice", "A|true|A|false", "A 2, A 0", true);
    row("name twice, states exchanged", "A|true|A|false", "A 0, A 2", false);
    row("name outside ASCII", QString::fromUtf8("Fl\xC3\xBC|true"), QString::fromUtf8("Fl\xC3\xBC 2"), true);
    row("bytes", QByteArray("A|true"), "A 0", false);
    row("bytes that hold", QByteArray("A|true"), "A 2", true);

    // What does not fit the items is not compared.
    row("three names for two items", "A|true|B|false|C|false", "A 0, B 2", true);
    row("one name for two items", "A|true", "A 0, B 2", true);
    row("three parts", "A|true|B", "A 0, B 2", true);
    row("five parts", "A|true|B|false|C", "A 0, B 2", true);
    row("separator at the end", "A|true|B|false|", "A 0, B 2", true);
    row("separator in front", "|A|true|B|false", "A 0, B 2", true);
    row("one part", "A", "A 2", true);
    row("one name for no items", "A|true", "", true);
    row("separator and no items", "|", "", true);
    row("number", 5, "A 2", true);
    row("other separator", "A;true;B;false", "A 0, B 2", true);
    row("name with the separator", "A|B|true", "A|B 0", true);
    row("names with separators, as if they fitted", "A|true|B|false", "A|true|B 0", true);

    row("null entry in place of an item", "A|true|B|false|C|true", "A 2, -, C 2", true);
    row("null entry, another changed", "A|true|B|false|C|true", "A 2, -, C 0", false);
}

void TstModelFrameEffects::comparedWithTheSavedSummary()
{
    QFETCH(QVariant, saved);
    QFETCH(QString, items);
    QFETCH(bool, expected);
    ZoEffectModel model;
    setItems(model.getDataItem("Effect", -1), items);
    saveFrameEffects(saved);

    QCOMPARE(model.FrameEffectIsDefault(), expected);
    QCOMPARE(model.dataIsDefault("Effect"), expected);
}

void TstModelFrameEffects::savedMapsWithoutSummaryAreDefault_data()
{
    QTest::addColumn<Properties>("saved");

    QTest::newRow("empty map") << Properties{};
    QTest::newRow("empty text") << Properties{{"Effect", ""}};
    QTest::newRow("null text") << Properties{{"Effect", QString()}};
    QTest::newRow("invalid value") << Properties{{"Effect", QVariant()}};
    QTest::newRow("value without text") << Properties{{"Effect", QVariantMap{{"Blur", true}}}};
    QTest::newRow("list without text") << Properties{{"Effect", QStringList{"Blur", "true"}}};
    QTest::newRow("other key") << Properties{{"Effects", "Blur|false|Sharpen|false|Mirror|false|Sepia|false"}};
    QTest::newRow("other letter case") << Properties{{"effect", "Blur|false|Sharpen|false|Mirror|false|Sepia|false"}};
}

void TstModelFrameEffects::savedMapsWithoutSummaryAreDefault()
{
    QFETCH(Properties, saved);
    ZoEffectModel model;
    setItems(model.getDataItem("Effect", -1), "Sepia 2, Mirror 2");
    QCOMPARE(model.FrameEffectIsDefault(), false);

    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Effect", saved);
    QCOMPARE(model.FrameEffectIsDefault(), true);
    QCOMPARE(model.dataIsDefault("Effect"), true);
}

// Deliberate: a summary of another set of frame effects is no reason to call these changed.
void TstModelFrameEffects::savedSummaryThatFitsNoItemsIsDefault()
{
    ZoEffectModel model;
    model.getDataItem("Effect", 0)->setCheckState(2);
    QCOMPARE(model.FrameEffectIsDefault(), false);

    saveFrameEffects("Blur|false|Sharpen|false|Mirror|false");
    QCOMPARE(model.FrameEffectIsDefault(), true);
    saveFrameEffects("Blur|false|Sharpen|false|Mirror|false|Sepia|false|Noise|false");
    QCOMPARE(model.FrameEffectIsDefault(), true);
    saveFrameEffects("Blur|false|Sharpen|false|Mirror|false|Sepia|false");
    QCOMPARE(model.FrameEffectIsDefault(), false);
    saveFrameEffects("Blur|true|Sharpen|false|Mirror|false|Sepia|false");
    QCOMPARE(model.FrameEffectIsDefault(), true);
}

void TstModelFrameEffects::removedSummaryNoLongerCounts()
{
    ZoEffectModel model;
    saveFrameEffects("Blur|true|Sharpen|false|Mirror|false|Sepia|false");
    QCOMPARE(model.FrameEffectIsDefault(), false);
    ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal("Effect");
    QCOMPARE(model.FrameEffectIsDefault(), true);

    // Custom defaults of other types are no summary.
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Color", {{"Effect", "Blur|true"}});
    model.getDataItem("Effect", 0)->setCheckState(2);
    QCOMPARE(model.FrameEffectIsDefault(), false);
}

void TstModelFrameEffects::defaultWithoutRecordOrNode()
{
    // The node is missing.
    const ZoEffectModel noNode(QStringList{"Crop"});
    QCOMPARE(noNode.FrameEffectIsDefault(), true);
    saveFrameEffects("Blur|true");
    QCOMPARE(noNode.FrameEffectIsDefault(), true);
    ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal("Effect");

    // The record is missing: not even a saved summary is compared.
    static const EffectControlItem table[] = {effectType("Crop", cropDefaultVal), effectType(nullptr, nullptr)};
    ZoEffectModel noRecord("Effect", {});
    setItems(noRecord.getDataItem("Effect", -1), "A 2");
    QCOMPARE(noRecord.FrameEffectIsDefault(), false);
    ZoEffectModel::InitEffectModel(table);
    QCOMPARE(noRecord.FrameEffectIsDefault(), true);
    saveFrameEffects("A|false");
    QCOMPARE(noRecord.FrameEffectIsDefault(), true);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelFrameEffects::defaultWithoutListOfFrameEffects()
{
    ZoEffectModel::InitEffectModel(catalogueWithoutFrameEffects());
    ZoEffectModel model;
    QCOMPARE(model.FrameEffectIsDefault(), true);
    setItems(model.getDataItem("Effect", -1), "A 2, B 0");
    QCOMPARE(model.FrameEffectIsDefault(), true);
    QCOMPARE(model.dataIsDefault("Effect"), true);

    saveFrameEffects("A|true|B|true");
    QCOMPARE(model.FrameEffectIsDefault(), false);
    saveFrameEffects("A|true|B|false");
    QCOMPARE(model.FrameEffectIsDefault(), true);
}

void TstModelFrameEffects::studioFrameEffects()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    StudioModel model;
    ZoEffectItemData* type = model.getDataItem("Effect", -1);
    QCOMPARE(itemsOf(type), QString::fromUtf8("Fl\xC3\xBC 2, Twin 0, Twin 0, A|B 2,  0"));
    QCOMPARE(model.FrameEffectIsDefault(), true);

    // The fourth has no property and may have any state.
    type->child(3)->setCheckState(0);
    QCOMPARE(model.FrameEffectIsDefault(), true);
    type->child(0)->setCheckState(0);
    QCOMPARE(model.FrameEffectIsDefault(), false);
    type->child(0)->setCheckState(2);
    type->child(4)->setCheckState(2);
    QCOMPARE(model.FrameEffectIsDefault(), false);
    type->child(4)->setCheckState(0);

    // Twins are told apart by their place alone.
    QVERIFY(type->changeItemPos(1, 2));
    QCOMPARE(model.FrameEffectIsDefault(), true);
    QVERIFY(type->changeItemPos(0, 1));
    QCOMPARE(model.FrameEffectIsDefault(), false);
}

void TstModelFrameEffects::valuesOfFrameEffects()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    StudioModel model;
    ZoEffectItemData* first = model.getDataItem("Effect", 0);
    QCOMPARE(described(first->properties()), QString("{id: int 1, strength: int 5}"));

    first->setData("id", 99);
    first->setData("extra", 99);
    QCOMPARE(model.FrameEffectIsDefault(), true);
    first->setData("strength", "5");
    QCOMPARE(model.FrameEffectIsDefault(), true);
    first->setData("strength", 6);
    QCOMPARE(model.FrameEffectIsDefault(), false);
    first->delData("strength");
    QCOMPARE(model.FrameEffectIsDefault(), false);

    // A summary tells names and states only.
    model.getDataItem("Effect", -1)->removeChildren(1, 4);
    saveFrameEffects(QString::fromUtf8("Fl\xC3\xBC|true"));
    QCOMPARE(model.FrameEffectIsDefault(), true);
}

void TstModelFrameEffects::summaryWithSeparatorsInNamesIsIgnored()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    StudioModel model;
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Effect", model.getCurrentFrameEffects());

    // Eleven parts for five items: whatever the items hold, it counts as default.
    model.getDataItem("Effect", 0)->setCheckState(0);
    QCOMPARE(model.FrameEffectIsDefault(), true);
    model.AdjustFramEffectsByCustomDefault();
    QCOMPARE(model.getDataItem("Effect", 0)->checkState(), 0);
}

void TstModelFrameEffects::comparingChangesNothing()
{
    ZoEffectModel model;
    saveFrameEffects("Sepia|true|Mirror|true|Sharpen|true|Blur|true");
    TestApplication::instance()->pref.takeWrites();
    SignalRecorder recorder(model);

    QCOMPARE(model.FrameEffectIsDefault(), false);

    QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString(allOff));
    QCOMPARE(described(model.getDataItem("Effect", -1)->properties()), QString("{}"));
    QCOMPARE(TestApplication::instance()->pref.takeWrites(), QStringList());
    QCOMPARE(recorder.take(), QStringList());
}

// --- AdjustFramEffectsByCustomDefault ----------------------------------------------------------------------

void TstModelFrameEffects::restoresOrderAndStates_data()
{
    QTest::addColumn<QVariant>("saved");
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char* name, const QVariant& saved, const QString& items, const QString& expected) {
        QTest::newRow(name) << saved << items << expected;
    };
    row("states only", "A|true|B|false|C|true", "A 0, B 2, C 0", "A 2, B 0, C 2");
    row("already restored", "A|true|B|false", "A 2, B 0", "A 2, B 0");
    row("reversed", "C|false|B|true|A|true", "A 0, B 0, C 2", "C 0, B 2, A 2");
    row("last to the front", "C|true|A|false|B|false", "A 0, B 0, C 0", "C 2, A 0, B 0");
    row("first to the end", "B|false|C|false|A|true", "A 0, B 0, C 0", "B 0, C 0, A 2");
    row("exchange of two", "B|true|A|false", "A 2, B 0", "B 2, A 0");
    row("four in another order", "D|true|B|false|A|true|C|false", "A 0, B 0, C 0, D 0", "D 2, B 0, A 2, C 0");
    row("one item", "A|true", "A 0", "A 2");
    row("partially checked becomes checked", "A|true", "A 1", "A 2");
    row("partially checked becomes unchecked", "A|false", "A 1", "A 0");
    row("any word is off", "A|on|B|yes", "A 2, B 2", "A 0, B 0");
    row("True is off", "A|True|B|TRUE", "A 2, B 2", "A 0, B 0");
    row("1 is off", "A|1", "A 2", "A 0");
    row("true with a blank is off", "A|true |B| true", "A 2, B 2", "A 0, B 0");
    row("empty state is off", "A||B|", "A 2, B 2", "A 0, B 0");
    row("name outside ASCII", QString::fromUtf8("B|true|Fl\xC3\xBC|false"), QString::fromUtf8("Fl\xC3\xBC 2, B 0"),
        QString::fromUtf8("B 2, Fl\xC3\xBC 0"));
    row("bytes", QByteArray("B|true|A|true"), "A 0, B 0", "B 2, A 2");
    row("empty name", "|true|A|false", "A 2,  0", " 2, A 0");

    // A name that is not found stops the work; what was done so far stays.
    row("first name unknown", "X|true|A|true|B|true", "A 0, B 0, C 0", "A 0, B 0, C 0");
    row("second name unknown", "C|true|X|true|A|true", "A 0, B 0, C 0", "C 2, A 0, B 0");
    row("last name unknown", "B|true|A|true|X|true", "A 0, B 0, C 0", "B 2, A 2, C 0");
    row("other letter case is unknown", "B|true|a|true", "A 0, B 0", "B 2, A 0");
    row("name with a blank is unknown", "A |true", "A 0", "A 0");
    row("empty parts are unknown names", "A|true||", "A 0, B 2", "A 2, B 2");

    // A name always means the first child that bears it.
    row("name twice in the summary", "A|true|A|false", "A 0, B 2", "B 2, A 0");
    row("name three times in the summary", "A|true|A|false|A|true", "A 0, B 0, C 0", "B 0, C 0, A 2");
    row("name twice in the list", "A|true|A|false", "A 2, A 2", "A 2, A 0");
    row("name twice in the list, then another", "A|true|A|true|B|true", "A 0, A 0, B 0", "A 0, A 2, B 2");
    row("name twice in the list, on and off", "A|true|A|false|B|true", "A 1, A 1, B 0", "A 1, A 0, B 2");

    // What does not fit the items changes nothing.
    row("three parts", "A|true|B", "A 0, B 0", "A 0, B 0");
    row("one name for two items", "A|true", "A 0, B 0", "A 0, B 0");
    row("three names for two items", "B|true|A|true|C|true", "A 0, B 0", "A 0, B 0");
    row("separator at the end", "B|true|A|true|", "A 0, B 0", "A 0, B 0");
    row("separator in front", "|B|true|A|true", "A 0, B 0", "A 0, B 0");
    row("one part", "A", "A 0", "A 0");
    row("no items", "A|true", "", "");
    row("separator and no items", "|", "", "");
    row("number", 5, "A 0", "A 0");
    row("other separator", "A,true", "A 0", "A 0");
    row("name with the separator", "A|B|true", "A|B 0", "A|B 0");

    // Null entries count among the items but have no name.
    row("null entry behind", "B|true|A|true|X|true", "A 0, B 0, -", "B 2, A 2, -");
    row("null entry in front", "A|true|X|true", "-, A 0", "A 2, -");
    row("null entry not counted", "A|true", "-, A 0", "-, A 0");
    row("null entries only", "A|true|B|true", "-, -", "-, -");
}

void TstModelFrameEffects::restoresOrderAndStates()
{
    QFETCH(QVariant, saved);
    QFETCH(QString, items);
    QFETCH(QString, expected);
    ZoEffectModel model;
    ZoEffectItemData* type = model.getDataItem("Effect", -1);
    setItems(type, items);
    saveFrameEffects(saved);
    TestApplication::instance()->pref.takeWrites();
    SignalRecorder recorder(model);

    model.AdjustFramEffectsByCustomDefault();

    QCOMPARE(itemsOf(type), expected);
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    QCOMPARE(TestApplication::instance()->pref.takeWrites(), QStringList());
}

void TstModelFrameEffects::restoresNothingWithoutSummary_data()
{
    savedMapsWithoutSummaryAreDefault_data();
}

void TstModelFrameEffects::restoresNothingWithoutSummary()
{
    QFETCH(Properties, saved);
    ZoEffectModel model;
    setItems(model.getDataItem("Effect", -1), "Sepia 2, Mirror 1");
    model.AdjustFramEffectsByCustomDefault();
    QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString("Sepia 2, Mirror 1"));

    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Effect", saved);
    model.AdjustFramEffectsByCustomDefault();
    QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString("Sepia 2, Mirror 1"));
}

void TstModelFrameEffects::restoringMovesTheItemsThemselves()
{
    ZoEffectModel model;
    ZoEffectItemData* type = model.getDataItem("Effect", -1);
    const QList<ZoEffectItemData*> before{type->child(0), type->child(1), type->child(2), type->child(3)};
    for (int row = 0; row < 4; ++row)
        before.at(row)->setData("strength", row);
    void* const record = before.at(3)->internalData();
    QVERIFY(record);
    saveFrameEffects("Sepia|true|Blur|false|Sharpen|false|Mirror|true");

    model.AdjustFramEffectsByCustomDefault();

    QCOMPARE(itemsOf(type), QString("Sepia 2, Blur 0, Sharpen 0, Mirror 2"));
    QCOMPARE(type->child(0), before.at(3));
    QCOMPARE(type->child(1), before.at(0));
    QCOMPARE(type->child(2), before.at(1));
    QCOMPARE(type->child(3), before.at(2));
    QCOMPARE(described(type->child(0)->properties()), QString("{id: int 14, strength: int 3}"));
    QCOMPARE(type->child(0)->internalData(), record);
    QCOMPARE(type->child(0)->parent(), type);

    // Done a second time it changes nothing more.
    model.AdjustFramEffectsByCustomDefault();
    QCOMPARE(itemsOf(type), QString("Sepia 2, Blur 0, Sharpen 0, Mirror 2"));
}

void TstModelFrameEffects::restoringTouchesOnlyTheEffectType()
{
    ZoEffectModel model;
    setItems(model.getDataItem("Watermark", -1), "Blur 0, Sharpen 0, Mirror 0, Sepia 0");
    model.getDataItem("Effect", -1)->setCheckState(0);
    // The walk over the types meets the namesakes first; they are no frame effects.
    saveFrameEffects("Sepia|true|Mirror|true|Sharpen|true|Blur|true");

    model.AdjustFramEffectsByCustomDefault();

    QCOMPARE(itemsOf(model.getDataItem("Watermark", -1)), QString(allOff));
    QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString("Sepia 2, Mirror 2, Sharpen 2, Blur 2"));
    QCOMPARE(model.getDataItem("Effect", -1)->checkState(), 0);
    QCOMPARE(described(model.getDataItem("Effect", -1)->properties()), QString("{}"));
    QCOMPARE(described(root(model)->properties()), QString("{}"));
    QCOMPARE(model.editByDefault(), false);
    QCOMPARE(model.editByUser(), false);
}

void TstModelFrameEffects::restoringWithoutEffectType()
{
    ZoEffectModel model(QStringList{"Watermark", "Color"});
    setItems(model.getDataItem("Watermark", -1), "A 0, B 0");
    saveFrameEffects("B|true|A|true");

    model.AdjustFramEffectsByCustomDefault();

    QCOMPARE(itemsOf(model.getDataItem("Watermark", -1)), QString("A 0, B 0"));
    QCOMPARE(itemsOf(root(model)), QString("Watermark 2, Color 2"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelFrameEffects::restoringNeedsNoCatalogue()
{
    ZoEffectModel model("Effect", {});
    setItems(model.getDataItem("Effect", -1), "A 0, B 0");
    ZoEffectModel::InitEffectModel(nullptr);
    QCOMPARE(logcapture::takeEvents(), QList<int>{25});
    saveFrameEffects("B|true|A|true");

    model.AdjustFramEffectsByCustomDefault();

    QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString("B 2, A 2"));
}

void TstModelFrameEffects::restoringStudioFrameEffects()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    StudioModel model;
    ZoEffectItemData* type = model.getDataItem("Effect", -1);
    delete type->takeAt(3);
    saveFrameEffects(QString::fromUtf8("|true|Twin|true|Fl\xC3\xBC|false|Twin|false"));

    model.AdjustFramEffectsByCustomDefault();

    // The second "Twin" of the summary is the first again, which now stands at 1 and goes to the end.
    QCOMPARE(itemsOf(type), QString::fromUtf8(" 2, Fl\xC3\xBC 0, Twin 0, Twin 0"));
    QCOMPARE(type->child(3)->data("id"), QVariant(2));
    QCOMPARE(type->child(2)->data("id"), QVariant(3));
}

void TstModelFrameEffects::newModelsStartFromTheSavedSummary()
{
    saveFrameEffects("Mirror|true|Sepia|false|Blur|true|Sharpen|false");
    const ZoEffectModel model;
    QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString("Mirror 2, Sepia 0, Blur 2, Sharpen 0"));
    QCOMPARE(model.FrameEffectIsDefault(), true);
    QCOMPARE(model.dataIsDefault("Effect"), true);
    const ZoEffectModel single(QStringList{"Effect"});
    QCOMPARE(itemsOf(single.getDataItem("Effect", -1)), QString("Mirror 2, Sepia 0, Blur 2, Sharpen 0"));

    // Without the summary they are no longer the default.
    ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal("Effect");
    QCOMPARE(model.FrameEffectIsDefault(), false);

    saveFrameEffects("Mirror|true");
    const ZoEffectModel ignoring;
    QCOMPARE(itemsOf(ignoring.getDataItem("Effect", -1)), QString(allOff));
}

void TstModelFrameEffects::resetModelsStartFromTheSavedSummary()
{
    ZoEffectModel model;
    saveFrameEffects("Mirror|true|Sepia|false|Blur|true|Sharpen|false");
    SignalRecorder recorder(model);

    QVERIFY(model.resetDataItem("Effect", -1));

    QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString("Mirror 2, Sepia 0, Blur 2, Sharpen 0"));
    QCOMPARE(recorder.take(), QStringList{"effectDataChanged(Effect, reset, invalid, -1)"});

    saveFrameEffects("Sepia|true|Mirror|false|Sharpen|false|Blur|false");
    model.resetAllEffect();
    QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString("Sepia 2, Mirror 0, Sharpen 0, Blur 0"));
    QCOMPARE(model.FrameEffectIsDefault(), true);
}

void TstModelFrameEffects::currentSummaryRoundTrips_data()
{
    QTest::addColumn<QString>("items");

    QTest::newRow("fresh") << allOff;
    QTest::newRow("some on") << "Blur 2, Sharpen 0, Mirror 2, Sepia 0";
    QTest::newRow("other order") << "Sepia 0, Mirror 2, Sharpen 2, Blur 0";
    QTest::newRow("all on, other order") << "Mirror 2, Blur 2, Sepia 2, Sharpen 2";
}

void TstModelFrameEffects::currentSummaryRoundTrips()
{
    QFETCH(QString, items);
    ZoEffectModel source;
    setItems(source.getDataItem("Effect", -1), items);
    source.saveAsCustomDefault("Effect", 0);
    QCOMPARE(source.FrameEffectIsDefault(), true);

    ZoEffectModel target;
    QCOMPARE(itemsOf(target.getDataItem("Effect", -1)), items);
    setItems(target.getDataItem("Effect", -1), allOff);
    target.AdjustFramEffectsByCustomDefault();
    QCOMPARE(itemsOf(target.getDataItem("Effect", -1)), items);
    QCOMPARE(target.getCurrentFrameEffects(), source.getCurrentFrameEffects());
    QCOMPARE(target.FrameEffectIsDefault(), true);
}

// --- getItemPos --------------------------------------------------------------------------------------------

void TstModelFrameEffects::positionOfAName_data()
{
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("expected");

    QTest::newRow("first") << "A 2, B 0, C 2"
                           << "A" << 0;
    QTest::newRow("last") << "A 2, B 0, C 2"
                          << "C" << 2;
    QTest::newRow("check state plays no part") << "A 2, B 0, C 2"
                                               << "B" << 1;
    QTest::newRow("no such name") << "A 2, B 0, C 2"
                                  << "D" << -1;
    QTest::newRow("other letter case") << "A 2, B 0"
                                       << "b" << -1;
    QTest::newRow("beginning of a name") << "Blur 2"
                                         << "Blu" << -1;
    QTest::newRow("longer than the name") << "Blur 2"
                                          << "Blurred" << -1;
    QTest::newRow("name with a blank") << "Blur 2"
                                       << "Blur " << -1;
    QTest::newRow("first of two") << "A 2, B 2, B 2"
                                  << "B" << 1;
    QTest::newRow("no children") << ""
                                 << "A" << -1;
    QTest::newRow("no children, empty name") << ""
                                             << "" << -1;
    QTest::newRow("child without name") << "A 2,  2"
                                        << "" << 1;
    QTest::newRow("null name is the empty name") << "A 2,  2" << QString() << 1;
    QTest::newRow("no child without name") << "A 2"
                                           << "" << -1;
    QTest::newRow("null entries keep their place") << "-, A 2, -, B 2"
                                                   << "B" << 3;
    QTest::newRow("null entries have no name") << "-, A 2"
                                               << "" << -1;
    QTest::newRow("null entries only") << "-, -"
                                       << "A" << -1;
    QTest::newRow("name outside ASCII") << QString::fromUtf8("A 2, Fl\xC3\xBC 2") << QString::fromUtf8("Fl\xC3\xBC")
                                        << 1;
    QTest::newRow("name of the parent") << "A 2"
                                        << "Effect" << -1;
}

void TstModelFrameEffects::positionOfAName()
{
    QFETCH(QString, items);
    QFETCH(QString, name);
    QFETCH(int, expected);
    const ZoEffectModel model;
    ZoEffectItemData* parent = model.getDataItem("Effect", -1);
    setItems(parent, items);

    QCOMPARE(model.getItemPos(parent, name), expected);
    QCOMPARE(itemsOf(parent), items);

    // A node of no model is searched as well.
    ZoEffectItemData detached("Effect");
    setItems(&detached, items);
    QCOMPARE(model.getItemPos(&detached, name), expected);
}

void TstModelFrameEffects::positionUnderNull()
{
    const ZoEffectModel model;
    QCOMPARE(model.getItemPos(nullptr, "Blur"), -1);
    QCOMPARE(model.getItemPos(nullptr, ""), -1);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelFrameEffects::positionLooksAtTheGivenParentOnly()
{
    const ZoEffectModel model;
    QCOMPARE(model.getItemPos(root(model), "Crop"), 0);
    QCOMPARE(model.getItemPos(root(model), "Effect"), 5);
    QCOMPARE(model.getItemPos(root(model), "Audio_Speed"), 12);
    QCOMPARE(model.getItemPos(root(model), "Blur"), -1);
    QCOMPARE(model.getItemPos(root(model), "effect root"), -1);
    QCOMPARE(model.getItemPos(model.getDataItem("Effect", -1), "Mirror"), 2);
    QCOMPARE(model.getItemPos(model.getDataItem("Crop", -1), "Mirror"), -1);

    // The name is the node's own, not the object name.
    model.getDataItem("Effect", 0)->setObjectName("Renamed");
    QCOMPARE(model.getItemPos(model.getDataItem("Effect", -1), "Blur"), 0);
    QCOMPARE(model.getItemPos(model.getDataItem("Effect", -1), "Renamed"), -1);
}

ZOEFFECT_TEST_MAIN(TstModelFrameEffects)

#include "tst_model_frameeffects.moc"
