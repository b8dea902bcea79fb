// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zoeffectmodel.h>

#include <zoeffectcatalogue.h>
#include <zoeffectitemdefaultvalmgr.h>

#include "modeltest.h"

namespace {

/// Replaces the children of \a parent: "Blur 2, Mirror 0, -" gives two children with their names and check
/// states and a null entry.
void setItems(ZoEffectItemData* parent, const QString& items)
{
    parent->clear();
    const QStringList entries = items.isEmpty() ? QStringList() : items.split(", ");
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

/// A model with the given frame effects.
struct EffectModel : ZoEffectModel {
    explicit EffectModel(const QString& items) { setItems(effect, items); }
    ZoEffectItemData* const effect = getDataItem("Effect", -1);
};

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

/// A model with the frame effects of the studio catalogue, which it registers.
struct StudioModel : ZoEffectModel {
    StudioModel() : ZoEffectModel(QString("Effect"), Properties())
    {
        InitEffectModel(studioCatalogue());
        InitSubItemData(effect, findOriItem("Effect", studioCatalogue())->subItems);
    }
    ZoEffectItemData* const effect = getDataItem("Effect", -1);
};

void saveSummary(const QVariant& summary)
{
    saveCustomDefault("Effect", {{"Effect", summary}});
}

void removeSummary()
{
    ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal("Effect");
}

} // namespace

class TstModelFrameEffects : public ModelTest {
    Q_OBJECT

private slots:
    // --- getCurrentFrameEffects

    void summary_data()
    {
        addRows<QString, QString, int>({
            {"on and off", "A 2, B 0", "A|true|B|false", 0},
            {"order of the list", "B 2, A 2", "B|true|A|true", 0},
            {"no items", "", "", 0},
            {"partially checked is off", "A 1, B 2", "A|false|B|true", 0},
            {"other states are off", "A 3, B -2", "A|false|B|false", 0},
            {"items without name", " 2,  0", "|true||false", 0},
            {"name twice", "A 2, A 0", "A|true|A|false", 0},
            {"name with the separator", "A|B 2", "A|B|true", 0},
            {"name outside ASCII", QString::fromUtf8("Fl\xC3\xBC 2"), QString::fromUtf8("Fl\xC3\xBC|true"), 0},
            {"name with a place marker", "%1 2, %2 0", "%1|true|%2|false", 0},
            {"null entry last", "A 0, -", "A|false", 1},
            {"null entries", "-, A 2, -, -, B 2, -", "A|true|B|true", 4},
        });
    }

    void summary()
    {
        const auto [items, expected, nulls] = row<QString, QString, int>();
        EffectModel model(items);
        for (const int typeState : {2, 0}) {
            model.effect->setCheckState(typeState);
            QCOMPARE(described(model.getCurrentFrameEffects()), QString("{Effect: string %1}").arg(expected));
            QCOMPARE(logcapture::takeEvents().toVector(), QVector<int>(nulls, 1553));
        }
    }

    void summaryWithoutEffectTypeIsLogged()
    {
        const ZoEffectModel model(QStringList{"Crop", "Color"});
        saveSummary("Blur|true");
        QCOMPARE(described(model.getCurrentFrameEffects()), QString("{}"));
        QCOMPARE(logcapture::takeEvents(), QList<int>{1559});
        new ZoEffectItemData("effect", rootOf(model));
        QCOMPARE(described(model.getCurrentFrameEffects()), QString("{}"));
        QCOMPARE(logcapture::takeEvents(), QList<int>{1559});
    }

    void summaryAndRestoringNeedNoCatalogue()
    {
        ZoEffectModel model("Effect", {});
        ZoEffectItemData* effect = model.getDataItem("Effect", -1);
        setItems(effect, "A 2, B 0");
        ZoEffectModel::InitEffectModel(nullptr);
        QCOMPARE(logcapture::takeEvents(), QList<int>{25});
        saveSummary("B|true|A|true");

        QCOMPARE(described(model.getCurrentFrameEffects()), QString("{Effect: string A|true|B|false}"));
        model.AdjustFramEffectsByCustomDefault();
        QCOMPARE(itemsOf(effect), QString("B 2, A 2"));
    }

    void askingChangesNothing()
    {
        ZoEffectModel model;
        saveSummary("Sepia|true|Mirror|true|Sharpen|true|Blur|true");
        TestApplication::instance()->pref.takeWrites();
        SignalRecorder recorder(model);

        QCOMPARE(described(model.getCurrentFrameEffects()),
                 QString("{Effect: string Blur|false|Sharpen|false|Mirror|false|Sepia|false}"));
        QCOMPARE(model.FrameEffectIsDefault(), false);

        QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString(allOff));
        QCOMPARE(described(model.getDataItem("Effect", -1)->properties()), QString("{}"));
        QCOMPARE(TestApplication::instance()->pref.takeWrites(), QStringList());
        QCOMPARE(recorder.take(), QStringList());
    }

    // --- FrameEffectIsDefault

    void comparedWithTheCatalogue_data()
    {
        addRows<QString, bool>({
            {"as listed", allOff, true},
            {"last on", "Blur 0, Sharpen 0, Mirror 0, Sepia 2", false},
            {"partially checked", "Blur 1, Sharpen 0, Mirror 0, Sepia 0", false},
            {"first ones exchanged", "Sharpen 0, Blur 0, Mirror 0, Sepia 0", false},
            {"last missing", "Blur 0, Sharpen 0, Mirror 0", false},
            {"none", "", false},
            {"one more", "Blur 0, Sharpen 0, Mirror 0, Sepia 0, Noise 0", false},
            {"other letter case", "blur 0, Sharpen 0, Mirror 0, Sepia 0", false},
            {"null entry in place of an item", "Blur 0, -, Mirror 0, Sepia 0", true},
            {"null entry, another on", "Blur 0, -, Mirror 0, Sepia 2", false},
        });
    }

    void comparedWithTheCatalogue()
    {
        const auto [items, expected] = row<QString, bool>();
        const EffectModel model(items);
        QCOMPARE(model.FrameEffectIsDefault(), expected);
        QCOMPARE(model.dataIsDefault("Effect"), expected);

        // Values and check state of the type itself play no part.
        model.effect->setCheckState(0);
        model.effect->setData("crop_rotation_angle", 90);
        QCOMPARE(model.FrameEffectIsDefault(), expected);
    }

    void comparedWithTheSavedSummary_data()
    {
        addRows<QVariant, QString, bool>({
            {"same order and states", "A|true|B|false", "A 2, B 0", true},
            {"state switched off", "A|true|B|false", "A 0, B 0", false},
            {"other order", "A|true|B|false", "B 0, A 2", false},
            {"other letter case of a name", "A|true|B|false", "a 2, B 0", false},
            {"partially checked is not on", "A|true", "A 1", false},
            {"partially checked is not off", "A|false", "A 1", false},
            {"any word is off", "A|on|B|0", "A 0, B 0", true},
            {"empty parts for a named item", "|", "A 0", false},
            {"name twice, states exchanged", "A|true|A|false", "A 0, A 2", false},
            {"name outside ASCII", QString::fromUtf8("Fl\xC3\xBC|true"), QString::fromUtf8("Fl\xC3\xBC 2"), true},
            {"bytes", QByteArray("A|true"), "A 0", false},
            {"null entry in place of an item", "A|true|B|false|C|true", "A 2, -, C 2", true},
            {"null entry, another changed", "A|true|B|false|C|true", "A 2, -, C 0", false},

            // What does not fit the items is not compared.
            {"three names for two items", "A|true|B|false|C|false", "A 0, B 2", true},
            {"one name for two items", "A|true", "A 0, B 2", true},
            {"one name for no items", "A|true", "", true},
            {"number", 5, "A 2", true},
            {"name with the separator", "A|B|true", "A|B 0", true},
        });
    }

    void comparedWithTheSavedSummary()
    {
        const auto [saved, items, expected] = row<QVariant, QString, bool>();
        const EffectModel model(items);
        saveSummary(saved);
        QCOMPARE(model.FrameEffectIsDefault(), expected);
        QCOMPARE(model.dataIsDefault("Effect"), expected);
    }

    void savedMapsWithoutSummary_data()
    {
        addRows<Properties>({
            {"empty map", Properties{}},
            {"empty text", Properties{{"Effect", ""}}},
            {"invalid value", Properties{{"Effect", QVariant()}}},
            {"list without text", Properties{{"Effect", QStringList{"Blur", "true"}}}},
            {"other letter case", Properties{{"effect", "Blur|false|Sharpen|false|Mirror|false|Sepia|false"}}},
        });
    }

    void savedMapsWithoutSummary()
    {
        const auto [saved] = row<Properties>();
        EffectModel model("Sepia 2, Mirror 1");
        QCOMPARE(model.FrameEffectIsDefault(), false);
        model.AdjustFramEffectsByCustomDefault();
        QCOMPARE(itemsOf(model.effect), QString("Sepia 2, Mirror 1"));

        saveCustomDefault("Effect", saved);
        QCOMPARE(model.FrameEffectIsDefault(), true);
        model.AdjustFramEffectsByCustomDefault();
        QCOMPARE(itemsOf(model.effect), QString("Sepia 2, Mirror 1"));
    }

    // Deliberate: a summary of another set of frame effects is no reason to call these changed.
    void savedSummaryThatFitsNoItemsIsDefault()
    {
        const EffectModel model("Blur 2, Sharpen 0, Mirror 0, Sepia 0");
        QCOMPARE(model.FrameEffectIsDefault(), false);
        saveSummary("Blur|false|Sharpen|false|Mirror|false");
        QCOMPARE(model.FrameEffectIsDefault(), true);
        saveSummary("Blur|false|Sharpen|false|Mirror|false|Sepia|false|Noise|false");
        QCOMPARE(model.FrameEffectIsDefault(), true);
        saveSummary("Blur|false|Sharpen|false|Mirror|false|Sepia|false");
        QCOMPARE(model.FrameEffectIsDefault(), false);
    }

    void removedSummaryNoLongerCounts()
    {
        const ZoEffectModel model;
        saveSummary("Blur|true|Sharpen|false|Mirror|false|Sepia|false");
        QCOMPARE(model.FrameEffectIsDefault(), false);
        removeSummary();
        QCOMPARE(model.FrameEffectIsDefault(), true);

        // Custom defaults of other types are no summary.
        saveCustomDefault("Color", {{"Effect", "Blur|true"}});
        model.getDataItem("Effect", 0)->setCheckState(2);
        QCOMPARE(model.FrameEffectIsDefault(), false);
    }

    void defaultWithoutNode()
    {
        const ZoEffectModel model(QStringList{"Crop"});
        QCOMPARE(model.FrameEffectIsDefault(), true);
        saveSummary("Blur|true");
        QCOMPARE(model.FrameEffectIsDefault(), true);
    }

    // Not even a saved summary is compared then.
    void defaultWithoutRecord()
    {
        static const EffectControlItem table[] = {effectType("Crop", cropDefaultVal), effectType(nullptr, nullptr)};
        const EffectModel model("A 2");
        QCOMPARE(model.FrameEffectIsDefault(), false);
        ZoEffectModel::InitEffectModel(table);
        QCOMPARE(model.FrameEffectIsDefault(), true);
        saveSummary("A|false");
        QCOMPARE(model.FrameEffectIsDefault(), true);
    }

    void defaultWithoutListOfFrameEffects()
    {
        ZoEffectModel::InitEffectModel(catalogueWithoutFrameEffects());
        const EffectModel model("A 2, B 0");
        QCOMPARE(model.FrameEffectIsDefault(), true);
        QCOMPARE(model.dataIsDefault("Effect"), true);
        saveSummary("A|true|B|true");
        QCOMPARE(model.FrameEffectIsDefault(), false);
        saveSummary("A|true|B|false");
        QCOMPARE(model.FrameEffectIsDefault(), true);
    }

    void statesAndPlacesOfStudioFrameEffects()
    {
        const StudioModel model;
        QCOMPARE(itemsOf(model.effect), QString::fromUtf8("Fl\xC3\xBC 2, Twin 0, Twin 0, A|B 2,  0"));
        QCOMPARE(described(model.getCurrentFrameEffects()),
                 QString::fromUtf8("{Effect: string Fl\xC3\xBC|true|Twin|false|Twin|false|A|B|true||false}"));
        QCOMPARE(model.FrameEffectIsDefault(), true);

        // The fourth has no property and may have any state.
        model.effect->child(3)->setCheckState(0);
        QCOMPARE(model.FrameEffectIsDefault(), true);
        model.effect->child(0)->setCheckState(0);
        QCOMPARE(model.FrameEffectIsDefault(), false);
        model.effect->child(0)->setCheckState(2);
        model.effect->child(4)->setCheckState(2);
        QCOMPARE(model.FrameEffectIsDefault(), false);
        model.effect->child(4)->setCheckState(0);

        // Twins are told apart by their place alone.
        QVERIFY(model.effect->changeItemPos(1, 2));
        QCOMPARE(model.FrameEffectIsDefault(), true);
        QVERIFY(model.effect->changeItemPos(0, 1));
        QCOMPARE(model.FrameEffectIsDefault(), false);
    }

    void valuesOfFrameEffects()
    {
        const StudioModel model;
        ZoEffectItemData* first = model.effect->child(0);
        QCOMPARE(described(first->properties()), QString("{id: int 1, strength: int 5}"));
        first->setData("id", 99);
        first->setData("extra", 99);
        first->setData("strength", "5");
        QCOMPARE(model.FrameEffectIsDefault(), true);
        first->setData("strength", 6);
        QCOMPARE(model.FrameEffectIsDefault(), false);
        first->delData("strength");
        QCOMPARE(model.FrameEffectIsDefault(), false);

        // A summary tells names and states only.
        model.effect->removeChildren(1, 4);
        saveSummary(QString::fromUtf8("Fl\xC3\xBC|true"));
        QCOMPARE(model.FrameEffectIsDefault(), true);
    }

    // --- AdjustFramEffectsByCustomDefault

    void restoresOrderAndStates_data()
    {
        addRows<QVariant, QString, QString>({
            {"states only", "A|true|B|false|C|true", "A 0, B 2, C 0", "A 2, B 0, C 2"},
            {"first to the end", "B|false|C|false|A|true", "A 0, B 0, C 0", "B 0, C 0, A 2"},
            {"four in another order", "D|true|B|false|A|true|C|false", "A 0, B 0, C 0, D 0", "D 2, B 0, A 2, C 0"},
            {"partially checked", "A|true|B|false", "A 1, B 1", "A 2, B 0"},
            {"any word is off", "A|on|B|True", "A 2, B 2", "A 0, B 0"},
            {"name outside ASCII", QString::fromUtf8("B|true|Fl\xC3\xBC|false"), QString::fromUtf8("Fl\xC3\xBC 2, B 0"),
             QString::fromUtf8("B 2, Fl\xC3\xBC 0")},
            {"bytes", QByteArray("B|true|A|true"), "A 0, B 0", "B 2, A 2"},
            {"empty name", "|true|A|false", "A 2,  0", " 2, A 0"},

            // A name that is not found stops the work; what was done so far stays.
            {"first name unknown", "X|true|A|true|B|true", "A 0, B 0, C 0", "A 0, B 0, C 0"},
            {"second name unknown", "C|true|X|true|A|true", "A 0, B 0, C 0", "C 2, A 0, B 0"},
            {"last name unknown", "B|true|A|true|X|true", "A 0, B 0, C 0", "B 2, A 2, C 0"},
            {"empty parts are unknown names", "A|true||", "A 0, B 2", "A 2, B 2"},

            // A name always means the first child that bears it.
            {"name three times in the summary", "A|true|A|false|A|true", "A 0, B 0, C 0", "B 0, C 0, A 2"},
            {"name twice in the list, then another", "A|true|A|true|B|true", "A 0, A 0, B 0", "A 0, A 2, B 2"},
            {"name twice in the list, on and off", "A|true|A|false|B|true", "A 1, A 1, B 0", "A 1, A 0, B 2"},

            // What does not fit the items changes nothing.
            {"one name for two items", "A|true", "A 0, B 0", "A 0, B 0"},
            {"three names for two items", "B|true|A|true|C|true", "A 0, B 0", "A 0, B 0"},
            {"no items", "A|true", "", ""},
            {"number", 5, "A 0", "A 0"},

            // Null entries count among the items but have no name.
            {"null entry behind", "B|true|A|true|X|true", "A 0, B 0, -", "B 2, A 2, -"},
            {"null entry not counted", "A|true", "-, A 0", "-, A 0"},
        });
    }

    void restoresOrderAndStates()
    {
        const auto [saved, items, expected] = row<QVariant, QString, QString>();
        EffectModel model(items);
        saveSummary(saved);
        TestApplication::instance()->pref.takeWrites();
        SignalRecorder recorder(model);

        model.AdjustFramEffectsByCustomDefault();

        QCOMPARE(itemsOf(model.effect), expected);
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(TestApplication::instance()->pref.takeWrites(), QStringList());
    }

    void restoringMovesTheItemsThemselves()
    {
        ZoEffectModel model;
        ZoEffectItemData* type = model.getDataItem("Effect", -1);
        const QList<ZoEffectItemData*> before{type->child(0), type->child(1), type->child(2), type->child(3)};
        type->child(3)->setData("strength", 3);
        void* const record = before.at(3)->internalData();
        QVERIFY(record);
        saveSummary("Sepia|true|Blur|false|Sharpen|false|Mirror|true");

        // Done a second time it changes nothing more.
        for (int times = 0; times < 2; ++times) {
            model.AdjustFramEffectsByCustomDefault();
            QCOMPARE(itemsOf(type), QString("Sepia 2, Blur 0, Sharpen 0, Mirror 2"));
            QCOMPARE(type->child(0), before.at(3));
            QCOMPARE(type->child(1), before.at(0));
            QCOMPARE(type->child(2), before.at(1));
            QCOMPARE(type->child(3), before.at(2));
            QCOMPARE(described(type->child(0)->properties()), QString("{id: int 14, strength: int 3}"));
            QCOMPARE(type->child(0)->internalData(), record);
            QCOMPARE(type->child(0)->parent(), type);
        }
    }

    void restoringTouchesOnlyTheEffectType()
    {
        ZoEffectModel model;
        setItems(model.getDataItem("Watermark", -1), allOff); // Namesakes that stand before the frame effects.
        model.getDataItem("Effect", -1)->setCheckState(0);
        saveSummary("Sepia|true|Mirror|true|Sharpen|true|Blur|true");

        model.AdjustFramEffectsByCustomDefault();

        QCOMPARE(itemsOf(model.getDataItem("Watermark", -1)), QString(allOff));
        QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString("Sepia 2, Mirror 2, Sharpen 2, Blur 2"));
        QCOMPARE(model.getDataItem("Effect", -1)->checkState(), 0);
        QCOMPARE(described(model.getDataItem("Effect", -1)->properties()), QString("{}"));
        QCOMPARE(described(rootOf(model)->properties()), QString("{}"));
        QCOMPARE(model.editByDefault(), false);
        QCOMPARE(model.editByUser(), false);
    }

    void restoringWithoutEffectType()
    {
        ZoEffectModel model(QStringList{"Watermark", "Color"});
        setItems(model.getDataItem("Watermark", -1), "A 0, B 0");
        saveSummary("B|true|A|true");
        model.AdjustFramEffectsByCustomDefault();
        QCOMPARE(itemsOf(model.getDataItem("Watermark", -1)), QString("A 0, B 0"));
        QCOMPARE(itemsOf(rootOf(model)), QString("Watermark 2, Color 2"));
    }

    void newAndResetModelsStartFromTheSavedSummary()
    {
        saveSummary("Mirror|true|Sepia|false|Blur|true|Sharpen|false");
        ZoEffectModel model;
        QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString("Mirror 2, Sepia 0, Blur 2, Sharpen 0"));
        QCOMPARE(model.dataIsDefault("Effect"), true);
        const ZoEffectModel single(QStringList{"Effect"});
        QCOMPARE(itemsOf(single.getDataItem("Effect", -1)), QString("Mirror 2, Sepia 0, Blur 2, Sharpen 0"));
        removeSummary();
        QCOMPARE(model.FrameEffectIsDefault(), false);

        saveSummary("Sepia|true|Mirror|false|Sharpen|false|Blur|false");
        QVERIFY(model.resetDataItem("Effect", -1));
        QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString("Sepia 2, Mirror 0, Sharpen 0, Blur 0"));
        saveSummary("Blur|false|Sharpen|true|Mirror|false|Sepia|false");
        model.resetAllEffect();
        QCOMPARE(itemsOf(model.getDataItem("Effect", -1)), QString("Blur 0, Sharpen 2, Mirror 0, Sepia 0"));

        saveSummary("Mirror|true");
        const ZoEffectModel ignoring;
        QCOMPARE(itemsOf(ignoring.getDataItem("Effect", -1)), QString(allOff));
    }

    void currentSummaryRoundTrips()
    {
        for (const char* items : {allOff, "Sepia 0, Mirror 2, Sharpen 2, Blur 0"}) {
            EffectModel source(items);
            source.saveAsCustomDefault("Effect", 0);
            QCOMPARE(source.FrameEffectIsDefault(), true);

            EffectModel target(allOff);
            target.AdjustFramEffectsByCustomDefault();
            QCOMPARE(itemsOf(target.effect), QString(items));
            QCOMPARE(target.getCurrentFrameEffects(), source.getCurrentFrameEffects());
        }
    }

    // --- applyFrameEffects

    void appliesOrderAndStates_data()
    {
        addRows<QVariant, QString, QString>({
            {"states only", "A|true|B|false|C|true", "A 0, B 2, C 0", "A 2, B 0, C 2"},
            {"the first one only", "A|true|B|false", "A 0, B 0", "A 2, B 0"},
            {"order only", "B|true|C|false|A|false", "A 0, B 2, C 0", "B 2, C 0, A 0"},
            {"order and states", "C|false|B|true|A|true", "A 0, B 0, C 2", "C 0, B 2, A 2"},
            {"one item", "A|true", "A 0", "A 2"},
            {"partially checked becomes off", "A|false", "A 1", "A 0"},
            {"any word is off", "A|on|B|True|C|", "A 2, B 2, C 2", "A 0, B 0, C 0"},
            {"name outside ASCII", QString::fromUtf8("B|true|Fl\xC3\xBC|false"), QString::fromUtf8("Fl\xC3\xBC 2, B 0"),
             QString::fromUtf8("B 2, Fl\xC3\xBC 0")},
            {"empty name", "|true|A|false", "A 2,  0", " 2, A 0"},
            {"bytes", QByteArray("B|true|A|true"), "A 0, B 0", "B 2, A 2"},
        });
    }

    void appliesOrderAndStates()
    {
        const auto [effects, items, expected] = row<QVariant, QString, QString>();
        EffectModel model(items);
        model.effect->setCheckState(0);
        SignalRecorder recorder(model);

        QVERIFY(model.applyFrameEffects({{"Effect", effects}, {"Blur", "ignored"}}));
        QCOMPARE(itemsOf(model.effect), expected);
        QCOMPARE(recorder.take(), one("effectDataChanged(Effect, reset, invalid, -1)"));

        QVERIFY(model.applyFrameEffects({{"Effect", effects}}));
        QCOMPARE(itemsOf(model.effect), expected);
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(model.effect->checkState(), 0);
        QCOMPARE(model.editByUser(), false);
        QCOMPARE(model.editByDefault(), false);
    }

    void refusesFrameEffects_data()
    {
        addRows<Properties, QString>({
            {"empty map", Properties(), "A 0, B 2"},
            {"another key", {{"effect", "B|true|A|true"}}, "A 0, B 2"},
            {"invalid value", {{"Effect", QVariant()}}, "A 0, B 2"},
            {"empty text", {{"Effect", ""}}, "A 0, B 2"},
            {"number", {{"Effect", 5}}, "A 0"},
            {"one name for two items", {{"Effect", "A|true"}}, "A 0, B 2"},
            {"three names for two items", {{"Effect", "B|true|A|true|C|true"}}, "A 0, B 2"},
            {"name without a state", {{"Effect", "B|true|A"}}, "A 0, B 2"},
            {"unknown name", {{"Effect", "B|true|X|true"}}, "A 0, B 2"},
            {"other letter case", {{"Effect", "B|true|a|true"}}, "A 0, B 2"},
            {"repeated name", {{"Effect", "A|true|A|true"}}, "A 0, B 2"},
            {"name twice in the list", {{"Effect", "A|true|A|false"}}, "A 0, A 2"},
            {"name twice in the list, once in the text", {{"Effect", "A|true|B|false"}}, "A 0, A 2"},
            {"name with the separator", {{"Effect", "A|B|true"}}, "A|B 0"},
            {"null entry", {{"Effect", "A|true"}}, "A 0, -"},
            {"null entry counted", {{"Effect", "A|true||true"}}, "A 0, -"},
            {"no items", {{"Effect", "A|true"}}, ""},
        });
    }

    void refusesFrameEffects()
    {
        const auto [effects, items] = row<Properties, QString>();
        EffectModel model(items);
        SignalRecorder recorder(model);

        QVERIFY(!model.applyFrameEffects(effects));
        QCOMPARE(itemsOf(model.effect), items);
        QCOMPARE(recorder.take(), QStringList());
    }

    void refusesFrameEffectsWithoutEffectType()
    {
        ZoEffectModel model(QStringList{"Watermark"});
        setItems(model.getDataItem("Watermark", -1), "A 0");
        QVERIFY(!model.applyFrameEffects({{"Effect", "A|true"}}));
        QCOMPARE(itemsOf(rootOf(model)), QString("Watermark 2"));
        QCOMPARE(itemsOf(model.getDataItem("Watermark", -1)), QString("A 0"));
    }

    void applyingMovesTheItemsThemselves()
    {
        ZoEffectModel model;
        ZoEffectItemData* type = model.getDataItem("Effect", -1);
        ZoEffectItemData* const sepia = type->child(3);
        sepia->setData("strength", 3);
        QVERIFY(model.applyFrameEffects({{"Effect", "Sepia|true|Blur|false|Sharpen|false|Mirror|true"}}));
        QCOMPARE(itemsOf(type), QString("Sepia 2, Blur 0, Sharpen 0, Mirror 2"));
        QCOMPARE(type->child(0), sepia);
        QCOMPARE(described(sepia->properties()), QString("{id: int 14, strength: int 3}"));
    }

    void whatIsCurrentCanBeApplied()
    {
        for (const char* items : {"", "A 2", allOff, "Sepia 0, Mirror 2, Sharpen 2, Blur 0"}) {
            EffectModel model(items);
            QVERIFY(model.applyFrameEffects(model.getCurrentFrameEffects()));
            QCOMPARE(itemsOf(model.effect), QString(items));
        }
        const EffectModel source("Sepia 0, Mirror 2, Sharpen 2, Blur 0");
        EffectModel target(allOff);
        QVERIFY(target.applyFrameEffects(source.getCurrentFrameEffects()));
        QCOMPARE(itemsOf(target.effect), QString("Sepia 0, Mirror 2, Sharpen 2, Blur 0"));
    }

    void listenersFindTheFrameEffectsApplied()
    {
        EffectModel model(allOff);
        QStringList seen;
        listen(model, [&] {
            seen << itemsOf(model.effect);
            model.effect->clear(); // Nothing is looked at afterwards.
        });
        QVERIFY(model.applyFrameEffects({{"Effect", "Sepia|true|Blur|false|Sharpen|false|Mirror|true"}}));
        QCOMPARE(seen, one("Sepia 2, Blur 0, Sharpen 0, Mirror 2"));
    }

    // --- getItemPos

    void positionOfAName_data()
    {
        addRows<QString, QString, int>({
            {"last", "A 2, B 0, C 2", "C", 2},
            {"no such name", "A 2, B 0, C 2", "D", -1},
            {"other letter case", "A 2, B 0", "b", -1},
            {"beginning of a name", "Blur 2", "Blu", -1},
            {"longer than the name", "Blur 2", "Blurred", -1},
            {"first of two", "A 2, B 2, B 2", "B", 1},
            {"child without name", "A 2,  2", "", 1},
            {"null entries keep their place", "-, A 2, -, B 2", "B", 3},
            {"null entries have no name", "-, A 2", "", -1},
            {"name outside ASCII", QString::fromUtf8("A 2, Fl\xC3\xBC 2"), QString::fromUtf8("Fl\xC3\xBC"), 1},
            {"name of the parent", "A 2", "Effect", -1},
        });
    }

    void positionOfAName()
    {
        const auto [items, name, expected] = row<QString, QString, int>();
        const EffectModel model(items);
        QCOMPARE(model.getItemPos(model.effect, name), expected);

        // A node of no model is searched as well.
        ZoEffectItemData detached("Effect");
        setItems(&detached, items);
        QCOMPARE(model.getItemPos(&detached, name), expected);
    }

    void positionLooksAtTheGivenParentOnly()
    {
        const ZoEffectModel model;
        QCOMPARE(model.getItemPos(nullptr, "Blur"), -1);
        QCOMPARE(model.getItemPos(nullptr, ""), -1);
        QCOMPARE(model.getItemPos(rootOf(model), "Effect"), 5);
        QCOMPARE(model.getItemPos(rootOf(model), "Blur"), -1);
        QCOMPARE(model.getItemPos(rootOf(model), "effect root"), -1);
        QCOMPARE(model.getItemPos(model.getDataItem("Effect", -1), "Mirror"), 2);
        QCOMPARE(model.getItemPos(model.getDataItem("Crop", -1), "Mirror"), -1);

        // The name is the node's own, not the object name.
        model.getDataItem("Effect", 0)->setObjectName("Renamed");
        QCOMPARE(model.getItemPos(model.getDataItem("Effect", -1), "Blur"), 0);
        QCOMPARE(model.getItemPos(model.getDataItem("Effect", -1), "Renamed"), -1);
    }
};

ZOEFFECT_TEST_MAIN(TstModelFrameEffects)

#include "tst_model_frameeffects.moc"
