// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <cmath>
#include <limits>

#include <QColor>
#include <QFont>

#include <zoeffectitemdefaultvalmgr.h>

#include "modeltest.h"

namespace {

void store(ZoEffectItemData* node, const Properties& properties)
{
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        node->setData(it.key(), it.value());
}

using Answers = QPair<bool, bool>;

/// Whether \a key of \a type holds its default, and whether the type does.
Answers answers(const ZoEffectModel& model, const QString& type, const QString& key)
{
    return Answers(model.SingleDataIsDefault(type, key, -1), model.dataIsDefault(type));
}

/// An item as the tables of the tests tell it: a name, a check state and properties.
QVariant item(const QString& name, int checkState, const Properties& properties = {})
{
    return QVariantList{name, checkState, properties};
}

/// Replaces the children of \a parent by \a items; an invalid entry becomes a null child.
void setItems(ZoEffectItemData* parent, const QVariantList& items)
{
    parent->clear();
    for (const QVariant& entry : items) {
        if (!entry.isValid()) {
            parent->appendChild(nullptr);
            continue;
        }
        const QVariantList fields = entry.toList();
        ZoEffectItemData* node = new ZoEffectItemData(fields.at(0).toString(), parent);
        node->setCheckState(fields.at(1).toInt());
        store(node, fields.at(2).toMap());
    }
}

/// The types without which a model is none for audio effects.
QStringList videoTypes()
{
    return {"Crop", "Watermark", "Subtitle", "Audio", "Color", "Effect"};
}

const QString cafe = QString::fromUtf8("Caf\xC3\xA9");

/// A table with what the host's table lacks: types without properties, types with items, nested types,
/// a key that stands twice, names outside ASCII.
const EffectControlItem* studioCatalogue()
{
    static const EffectDefaultVal end = property(nullptr, 0);
    static const EffectDefaultVal leftProperties[] = {property("gain", 5), property("_checkstate", true), end};
    static const EffectDefaultVal rightProperties[] = {property("mode", "soft"), property("_checkstate", false), end};
    static const SubEffectItem panelItems[] = {subItem("Left", 1, leftProperties), subItem("Right", 2, rightProperties),
                                               subItem("Caf\xC3\xA9", 3), subItem(nullptr, 0)};
    static const SubEffectItem noItems[] = {subItem(nullptr, 0)};
    // What stands behind the end of a list is none of its items.
    static const SubEffectItem shortItems[] = {subItem("Left", 1, leftProperties), subItem(nullptr, 0),
                                               subItem("Right", 2, rightProperties), subItem(nullptr, 0),
                                               subItem(nullptr, 0)};
    static const EffectDefaultVal emptyProperties[] = {end};
    static const EffectDefaultVal levelProperties[] = {property("level", 3), end};
    static const EffectDefaultVal toggleProperties[] = {property("_checkstate", true), property("k", 1), end};
    static const EffectDefaultVal twiceProperties[] = {property("k", 1), property("k", 2), end};
    static const EffectDefaultVal absentProperties[] = {property("absent", QVariant()), property("trackid", -1), end};
    static const EffectDefaultVal accentProperties[] = {property("cl\xC3\xA9", 4), end};
    static const SubEffectItem accentItems[] = {subItem("A", 1, accentProperties), subItem(nullptr, 0)};
    static const EffectDefaultVal depthProperties[] = {property("depth", 7), end};
    static const EffectControlItem deepest[] = {effectType("Deepest", depthProperties), effectType(nullptr, nullptr)};
    static const EffectControlItem inner[] = {effectType("Inner", depthProperties, nullptr, deepest),
                                              effectType(nullptr, nullptr)};
    static const EffectControlItem table[] = {
        effectType("Plain", nullptr),
        effectType("Hollow", emptyProperties, panelItems),
        effectType("Panel", nullptr, panelItems),
        effectType("Short", nullptr, shortItems),
        effectType("Empty", nullptr, noItems),
        effectType("Both", levelProperties, panelItems),
        effectType("Toggle", toggleProperties),
        effectType("Twice", twiceProperties),
        effectType("Absent", absentProperties),
        effectType("R\xC3\xA9glage", accentProperties),
        effectType("Accents", nullptr, accentItems),
        effectType("Group", nullptr, nullptr, inner),
        effectType("Effect", levelProperties, panelItems),
        effectType(nullptr, nullptr),
    };
    return table;
}

} // namespace

class TstModelDefaultCheck : public ModelTest {
    Q_OBJECT

private slots:
    void everyCatalogueKeyIsCompared_data()
    {
        const Rows<QString, QString, QVariant, QVariant> add; // The default that tst_catalogue tells, and another.
        add("number", "Crop", "crop_minwidth", 24, 25);
        add("number that is 0", "Crop", "crop_top", 0, -1);
        add("text", "Crop", "crop_height", "source_val", "Source_val");
        add("switch", "Crop", "crop_keepaspectratio", true, false);
        add("factor", "Watermark", "wm_hposfactor", 0.1, 0);
        add("fraction", "Watermark", "wm_transfactor", 2.55, 2.5);
        add("colour", "Subtitle", "sub_fontcolor", QColor(Qt::white), QColor(254, 255, 255));
        add("font", "Subtitle", "sub_fontname", QFont("Tahoma", -1, -1, false), QFont("Tahoma", 13));
        add("last of a table", "Subtitle", "fontstyleusedefault", true, false);
        add("table of one", "Audio", "play_loop", false, true);
        add("first of a table", "Color", "bcs_brightness", 0, 50);
        add("flag of an audio effect", "Audio_Speed", "audio_effect_flag", false, true);
        add("last type", "Audio_Speed", "audio_speed_factor", 100, 10);
    }

    void everyCatalogueKeyIsCompared()
    {
        const auto [type, key, catalogueDefault, other] = row<QString, QString, QVariant, QVariant>();
        ZoEffectModel model;
        ZoEffectItemData* node = model.getDataItem(type, -1);
        QCOMPARE(answers(model, type, key), Answers(true, true));
        node->setData(key, other);
        QCOMPARE(answers(model, type, key), Answers(false, false));
        node->setData(key, catalogueDefault);
        QCOMPARE(answers(model, type, key), Answers(true, true));
        node->delData(key);
        QCOMPARE(answers(model, type, key), Answers(false, false));
    }

    void freshModelHoldsItsDefaults()
    {
        for (const bool sized : {false, true}) {
            ZoEffectModel model;
            if (sized)
                model.setVideoSize(1920, 1080);
            for (int row = 0; row < rootOf(model)->childCount(); ++row)
                QVERIFY2(model.dataIsDefault(rootOf(model)->child(row)->name()),
                         qPrintable(rootOf(model)->child(row)->name()));
            QCOMPARE(model.FrameEffectIsDefault(), true);
        }
    }

    void valueOnTheLeftDefaultOnTheRight_data()
    {
        const Rows<QVariant, QVariant, bool> add;
        const QVariant none;
        const QVariant white = QColor(Qt::white);
        add("number, its text", 5, "5", true);
        add("true, any text", true, "abc", true);
        add("any text, true", "abc", true, false);
        add("0, empty text", 0, "", false);
        add("missing, 0", none, 0, false);
        add("sum of doubles", 0.1 + 0.2, 0.3, true);
        add("colour, English name", white, "white", true);
        add("English name, colour", "white", white, false);
        add("no number equals nothing", std::nan(""), std::nan(""), false);
    }

    void valueOnTheLeftDefaultOnTheRight()
    {
        const auto [value, standard, isDefault] = row<QVariant, QVariant, bool>();
        const EffectDefaultVal end = ::property(nullptr, 0);
        const EffectDefaultVal properties[] = {::property("k", standard), end};
        const EffectDefaultVal otherProperties[] = {::property("k", "another default"), end};
        const SubEffectItem items[] = {subItem("A", 1, properties), subItem(nullptr, 0)};
        const EffectControlItem table[] = {
            effectType("Catalogued", properties), effectType("Customised", otherProperties),
            effectType("Panel", nullptr, items), effectType("Effect", nullptr, items), effectType(nullptr, nullptr)};
        ZoEffectModel::InitEffectModel(table);
        ZoEffectModel model;
        saveCustomDefault("Customised", {{"k", standard}});
        for (const char* type : {"Catalogued", "Customised"}) {
            if (value.isValid())
                model.getDataItem(type, -1)->setData("k", value);
            else
                model.getDataItem(type, -1)->delData("k");
            QCOMPARE(answers(model, type, "k"), Answers(isDefault, isDefault));
        }

        const Properties held = value.isValid() ? Properties{{"k", value}} : Properties{};
        for (const char* type : {"Panel", "Effect"}) {
            setItems(model.getDataItem(type, -1), {item("A", 2, held)});
            QCOMPARE(model.dataIsDefault(type), isDefault);
        }
        QCOMPARE(model.FrameEffectIsDefault(), isDefault);
    }

    void customDefaultReplacesTheCatalogues_data()
    {
        const Rows<QString, Properties, QString, QVariant, bool, bool> add;
        add("catalogue default no longer counts", "Color", {{"bcs_contrast", 10}}, "bcs_contrast", 0, false, false);
        add("custom default holds", "Color", {{"bcs_contrast", 10}}, "bcs_contrast", 10, true, true);
        add("other key at its catalogue default", "Color", {{"bcs_contrast", 10}}, "bcs_brightness", 0, true, false);
        add("invalid custom value: the catalogue's", "Color", {{"bcs_contrast", QVariant()}}, "bcs_contrast", 0, true,
            true);
        add("empty custom default: the catalogue's", "Color", {}, "bcs_contrast", 0, true, true);
        add("custom key that the type lacks", "Color", {{"unknown", 1}}, "unknown", 2, true, true);
        add("watermark factor", "Watermark", {{"wm_hposfactor", 0.5}}, "wm_hposfactor", 0.1, false, false);
    }

    void customDefaultReplacesTheCatalogues()
    {
        const auto [type, custom, key, value, singleIsDefault, typeIsDefault] =
            row<QString, Properties, QString, QVariant, bool, bool>();
        ZoEffectModel model;
        saveCustomDefault(type, custom);

        model.getDataItem(type, -1)->setData(key, value);

        QCOMPARE(answers(model, type, key), Answers(singleIsDefault, typeIsDefault));
    }

    // The position that follows the height of the video is no change of the setting.
    void subtitlePositionIsComparedAsStored()
    {
        ZoEffectModel model;
        model.setVideoSize(720, 500);
        QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QString("double 400"));
        QCOMPARE(answers(model, "Subtitle", "sub_vposition"), Answers(true, true));

        QVERIFY(model.setData("sub_vposition", 400, "Subtitle", -1));
        QCOMPARE(answers(model, "Subtitle", "sub_vposition"), Answers(false, false));

        // The mark that the user set it is no key of the catalogue.
        QVERIFY(model.setData("sub_vposition", 200, "Subtitle", -1));
        QCOMPARE(model.data("dvdsubtitleposeditbyuser", "Subtitle", -1), QVariant(true));
        QCOMPARE(answers(model, "Subtitle", "sub_vposition"), Answers(true, true));
    }

    void singleValueAnswersTrue_data()
    {
        const Rows<QString, QString, int> add;
        add("type that nobody knows", "Alien", "k", -1);
        add("type in other letter case", "color", "bcs_contrast", -1);
        add("position of no item", "Color", "bcs_contrast", 0);
        add("position behind the items", "Watermark", "wm_fontsize", 1);
        add("watermark place of no item", "Watermark", "wm_hposition", 1);
        add("key that nobody knows", "Color", "k", -1);
        add("key of another type", "Color", "wm_fontsize", -1);
        add("key in other letter case", "Color", "BCS_CONTRAST", -1);
        add("check state", "Color", "_checkstate", -1);
        add("type without properties", "Effect", "k", -1);
        add("key of a frame effect", "Effect", "_checkstate", 0);
        add("name of an item", "Mirror", "_checkstate", -1);
        add("root", "effect root", "w", -1);
        add("types of the root", "effect root", "bcs_contrast", 4);
    }

    void singleValueAnswersTrue()
    {
        const auto [type, key, pos] = row<QString, QString, int>();
        ZoEffectModel model;
        model.setVideoSize(720, 480);
        new ZoEffectItemData(QString(), model.getDataItem("Watermark", -1));
        model.getDataItem("Color", -1)->setData("bcs_contrast", 33);
        model.getDataItem("Color", -1)->setData("k", 33);
        model.getDataItem("Color", -1)->setCheckState(0);
        model.getDataItem("Effect", 0)->setCheckState(2);
        model.getDataItem("Effect", 0)->setData("id", 33);
        model.getDataItem("Effect", -1)->setData("k", 33);

        QCOMPARE(model.SingleDataIsDefault(type, key, pos), true);
    }

    void singleValueOfAnItem_data()
    {
        const Rows<QString, QString, QVariant, bool> add;
        add("default", "Watermark", "wm_fontsize", 22, true);
        add("changed", "Watermark", "wm_fontsize", 23, false);
        add("missing", "Watermark", "wm_fontsize", QVariant(), false);
        add("key outside the table", "Watermark", "wm_textcontent", "text", true);
        add("subtitle position, derived value", "Subtitle", "sub_vposition", 384, false);
        add("key of the type on its item", "Audio", "play_loop", true, false);
    }

    void singleValueOfAnItem()
    {
        const auto [type, key, value, expected] = row<QString, QString, QVariant, bool>();
        ZoEffectModel model;
        model.setVideoSize(720, 480);
        auto* node = new ZoEffectItemData(QString(), model.getDataItem(type, -1));
        auto* last = new ZoEffectItemData(QString(), model.getDataItem(type, -1));
        if (value.isValid())
            last->setData(key, value);

        QCOMPARE(model.SingleDataIsDefault(type, key, 1), expected);
        QVERIFY(!node->hasData(key));
        // The items of a type with properties do not count for the type.
        QCOMPARE(model.dataIsDefault(type), true);
    }

    void watermarkPosition_data()
    {
        const Rows<QSize, Properties, QString, QVariant, bool> add;
        const QString h = "wm_hposition";
        const QString v = "wm_vposition";
        const Properties catalogueOnly;
        const Properties half{{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.5}};
        const auto factor = [](const QVariant& value) {
            return Properties{{"wm_hposfactor", value}, {"wm_vposfactor", value}};
        };
        add("a tenth of the width", QSize(720, 480), catalogueOnly, h, 72, true);
        add("one pixel more", QSize(720, 480), catalogueOnly, h, 73, false);
        add("a tenth of the height", QSize(720, 480), catalogueOnly, v, 48, true);
        add("width is not height", QSize(720, 480), catalogueOnly, h, 48, false);
        add("catalogue's position at a fitting size", QSize(300, 300), catalogueOnly, h, 30, true);
        add("catalogue's position at another size", QSize(720, 480), catalogueOnly, h, 30, false);
        add("no size: 0", QSize(0, 0), catalogueOnly, h, 0, true);
        add("fraction, rounded", QSize(1024, 576), catalogueOnly, v, 58, false);
        add("saved factor, half of 720", QSize(720, 480), half, h, 360, true);
        add("saved factor of the other direction only", QSize(720, 480), {{"wm_vposfactor", 0.5}}, h, 72, true);
        add("saved factor that is no number: 0", QSize(720, 480), factor("abc"), h, 0, true);
        add("saved invalid factor: the catalogue's", QSize(720, 480), factor(QVariant()), h, 72, true);
        add("saved position plays no part", QSize(720, 480), {{"wm_hposition", 33}}, h, 33, false);
        // 0.55 x 720 is 396.00000000000006 as a double, 0.29 x 100 is 28.999999999999996.
        add("product a hair above", QSize(720, 480), factor(0.55), h, 396, false);
        add("product a hair below, rounded", QSize(100, 100), factor(0.29), h, 29, false);
        add("position as text", QSize(720, 480), catalogueOnly, h, "72", true);
        add("position rounded up", QSize(720, 480), catalogueOnly, h, 71.5, true);
        add("missing position is 0", QSize(0, 0), catalogueOnly, h, QVariant(), true);
    }

    void watermarkPosition()
    {
        const auto [base, custom, key, position, expected] = row<QSize, Properties, QString, QVariant, bool>();
        ZoEffectModel model;
        model.setVideoSize(base.width(), base.height());
        if (!custom.isEmpty())
            saveCustomDefault("Watermark", custom);
        new ZoEffectItemData(QString(), model.getDataItem("Watermark", -1));

        for (const int pos : {-1, 0}) {
            ZoEffectItemData* node = model.getDataItem("Watermark", pos);
            node->delData(key);
            if (position.isValid())
                node->setData(key, position);
            QCOMPARE(model.SingleDataIsDefault("Watermark", key, pos), expected);
        }
    }

    // Without a catalogue there is no factor, and 0 is the default place.
    void watermarkPositionWithoutCatalogue()
    {
        ZoEffectModel model("Watermark", {{"wm_hposition", 0}, {"wm_vposition", 30}, {"wm_fontsize", 1}});
        model.setVideoSize(300, 300);
        ZoEffectModel::InitEffectModel(nullptr);
        QCOMPARE(logcapture::takeEvents(), QList<int>{25});

        QCOMPARE(model.SingleDataIsDefault("Watermark", "wm_hposition", -1), true);
        QCOMPARE(model.SingleDataIsDefault("Watermark", "wm_vposition", -1), false);
        QCOMPARE(model.SingleDataIsDefault("Watermark", "wm_fontsize", -1), true);

        saveCustomDefault("Watermark", {{"wm_vposfactor", 0.1}});
        QCOMPARE(model.SingleDataIsDefault("Watermark", "wm_vposition", -1), true);
        ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal("Watermark");
    }

    void unknownTypeIsLogged()
    {
        ZoEffectModel model;
        new ZoEffectItemData("Own type", rootOf(model));
        for (const char* type : {"Alien", "", "color", "Own type", "Mirror", "effect root"}) {
            saveCustomDefault(type, {{"k", 1}});
            QCOMPARE(model.dataIsDefault(type), true);
            QCOMPARE(logcapture::takeEvents(), QList<int>{518});
        }
    }

    void typeWithoutNodeIsDefault()
    {
        ZoEffectModel::InitEffectModel(studioCatalogue());
        const ZoEffectModel model(QStringList{"Twice"});
        for (const char* type : {"Plain", "Hollow", "Panel", "Empty", "Both", "Toggle", "Inner", "Effect"}) {
            saveCustomDefault(type, {{"level", 99}, {"Effect", "Left|false"}});
            QCOMPARE(answers(model, type, "level"), Answers(true, true));
            QCOMPARE(model.FrameEffectIsDefault(), true);
        }
    }

    void propertiesOfTheTypeSettleIt_data()
    {
        const Rows<QString, Properties, QVariantList, bool> add;
        const QVariantList changed{item("Other", 2, {{"gain", 99}})};
        add("properties hold, items changed", "Both", {{"level", 3}}, changed, true);
        add("property changed", "Both", {{"level", 4}}, changed, false);
        add("property missing", "Both", {}, changed, false);
        add("property beside the table", "Both", {{"level", 3}, {"extra", 9}}, changed, true);
        add("empty table, items changed", "Hollow", {}, changed, true);
        add("neither properties nor items", "Plain", {{"extra", 9}}, changed, true);
    }

    void propertiesOfTheTypeSettleIt()
    {
        const auto [type, properties, items, expected] = row<QString, Properties, QVariantList, bool>();
        ZoEffectModel::InitEffectModel(studioCatalogue());
        ZoEffectModel model(type, properties);
        setItems(model.getDataItem(type, -1), items);

        QCOMPARE(model.dataIsDefault(type), expected);
        // An empty table knows no key, neither does a missing one.
        QCOMPARE(model.SingleDataIsDefault(type, "extra", -1), true);
        QCOMPARE(model.SingleDataIsDefault(type, "level", -1), expected);
    }

    // Only the question about one property knows of the factors.
    void watermarkTypeComparesItsPositionsPlainly()
    {
        ZoEffectModel model;
        model.setVideoSize(720, 480);
        QCOMPARE(answers(model, "Watermark", "wm_hposition"), Answers(false, true));

        model.getDataItem("Watermark", -1)->setData("wm_hposition", 72);
        QCOMPARE(answers(model, "Watermark", "wm_hposition"), Answers(true, false));

        saveCustomDefault("Watermark", {{"wm_hposition", 72}});
        QCOMPARE(model.dataIsDefault("Watermark"), true);
        model.getDataItem("Watermark", -1)->setData("wm_vposition", 31);
        QCOMPARE(model.dataIsDefault("Watermark"), false);
    }

    // In the table of a type "_checkstate" is a key like any other.
    void typeCheckStateIsNoValue()
    {
        ZoEffectModel::InitEffectModel(studioCatalogue());
        ZoEffectModel model;
        ZoEffectItemData* node = model.getDataItem("Toggle", -1);
        QCOMPARE(described(node->properties()), QString("{_checkstate: bool true, k: int 1}"));

        node->setCheckState(0);
        QCOMPARE(answers(model, "Toggle", "_checkstate"), Answers(true, true));

        node->setCheckState(2);
        node->setData("_checkstate", false);
        QCOMPARE(answers(model, "Toggle", "_checkstate"), Answers(false, false));

        node->delData("_checkstate");
        QCOMPARE(answers(model, "Toggle", "_checkstate"), Answers(false, false));
    }

    void keyThatStandsTwice()
    {
        ZoEffectModel::InitEffectModel(studioCatalogue());
        ZoEffectModel model;
        ZoEffectItemData* node = model.getDataItem("Twice", -1);

        // A new node holds the later default; one property is compared with the first, a type with both.
        QCOMPARE(described(node->properties()), QString("{k: int 2}"));
        QCOMPARE(answers(model, "Twice", "k"), Answers(false, false));
        node->setData("k", 1);
        QCOMPARE(answers(model, "Twice", "k"), Answers(true, false));

        saveCustomDefault("Twice", {{"k", 5}});
        node->setData("k", 5);
        QCOMPARE(answers(model, "Twice", "k"), Answers(true, true));
    }

    void missingValueEqualsAnInvalidDefault()
    {
        ZoEffectModel::InitEffectModel(studioCatalogue());
        ZoEffectModel model;
        ZoEffectItemData* node = model.getDataItem("Absent", -1);
        node->delData("absent");
        node->delData("trackid");
        QCOMPARE(model.SingleDataIsDefault("Absent", "absent", -1), true);
        QCOMPARE(answers(model, "Absent", "trackid"), Answers(true, true)); // A missing track id reads -1.

        node->setData("absent", 0);
        QCOMPARE(answers(model, "Absent", "absent"), Answers(false, false));
        node->delData("absent");
        node->setData("trackid", 0);
        QCOMPARE(answers(model, "Absent", "trackid"), Answers(false, false));
    }

    void namesOutsideAscii()
    {
        ZoEffectModel::InitEffectModel(studioCatalogue());
        ZoEffectModel model;
        const QString type = QString::fromUtf8("R\xC3\xA9glage");
        const QString key = QString::fromUtf8("cl\xC3\xA9");
        QCOMPARE(answers(model, type, key), Answers(true, true));
        model.getDataItem(type, -1)->setData(key, 5);
        QCOMPARE(answers(model, type, key), Answers(false, false));
        saveCustomDefault(type, {{key, 5}});
        QCOMPARE(answers(model, type, key), Answers(true, true));
    }

    void nestedTypes()
    {
        ZoEffectModel::InitEffectModel(studioCatalogue());
        for (const char* type : {"Inner", "Deepest"}) {
            ZoEffectModel model(type, {{"depth", 7}});
            QCOMPARE(answers(model, type, "depth"), Answers(true, true));
            model.getDataItem(type, -1)->setData("depth", 8);
            QCOMPARE(answers(model, type, "depth"), Answers(false, false));
        }
    }

    void itemsOfAType_data()
    {
        const Rows<QString, QVariantList, bool> add;
        const QVariant left = item("Left", 2, {{"gain", 5}});
        const QVariant right = item("Right", 0, {{"mode", "soft"}});
        const QVariant plain = item(cafe, 2);
        const auto panel = [&](const char* name, const QVariantList& items, bool expected) {
            add(name, "Panel", items, expected);
        };
        panel("all as listed", {left, right, plain}, true);
        panel("no items", {}, false);
        panel("last item missing", {left, right}, false);
        panel("other order", {right, left, plain}, false);
        panel("one item more", {left, right, plain, item("More", 2)}, false);
        panel("name read as Latin-1", {left, right, item(QString::fromLatin1("Caf\xC3\xA9"), 2)}, false);
        panel("first item changed", {item("Left", 2, {{"gain", 6}}), right, plain}, false);
        panel("equal value of another type", {item("Left", 2, {{"gain", "5"}}), right, plain}, true);
        panel("first item switched off", {item("Left", 0, {{"gain", 5}}), right, plain}, false);
        panel("second item switched on", {left, item("Right", 2, {{"mode", "soft"}}), plain}, false);
        panel("item without properties switched off", {left, right, item(cafe, 0)}, true);
        panel("value beside the table", {item("Left", 2, {{"gain", 5}, {"extra", 1}}), right, plain}, true);
        panel("id plays no part", {item("Left", 2, {{"gain", 5}, {"id", 77}}), right, plain}, true);
        // A stored "_checkstate" is the item's value, and an equal value settles the key.
        panel("stored check state holds, state switched off",
              {item("Left", 0, {{"gain", 5}, {"_checkstate", true}}), right, plain}, true);
        panel("stored check state differs, state holds",
              {item("Left", 2, {{"gain", 5}, {"_checkstate", false}}), right, plain}, true);
        panel("null entry in place of an item", {left, QVariant(), plain}, true);
        add("short list, its item", "Short", {left}, true);
        add("short list, item without name behind", "Short", {left, item("", 2)}, false);
        add("empty list, no items", "Empty", {}, true);
        add("empty list, one item", "Empty", {left}, false);
        const QString key = QString::fromUtf8("cl\xC3\xA9");
        add("key outside ASCII, default", "Accents", {item("A", 2, {{key, 4}})}, true);
        add("key outside ASCII, changed", "Accents", {item("A", 2, {{key, 5}})}, false);
        add("no list, items", "Plain", {left, right}, true);
    }

    void itemsOfAType()
    {
        const auto [type, items, expected] = row<QString, QVariantList, bool>();
        ZoEffectModel::InitEffectModel(studioCatalogue());
        ZoEffectModel model;
        setItems(model.getDataItem(type, -1), items);

        QCOMPARE(model.dataIsDefault(type), expected);
        // The type's own values and check state play no part.
        model.getDataItem(type, -1)->setData("gain", 99);
        model.getDataItem(type, -1)->setCheckState(0);
        QCOMPARE(model.dataIsDefault(type), expected);
    }

    void effectWithoutPropertiesAsksItsItems()
    {
        ZoEffectModel model;
        QCOMPARE(model.dataIsDefault("Effect"), true);
        model.getDataItem("Effect", 2)->setCheckState(2);
        QCOMPARE(model.dataIsDefault("Effect"), false);

        // A saved summary comes before the catalogue.
        saveCustomDefault("Effect", {{"Effect", "Blur|false|Sharpen|false|Mirror|true|Sepia|false"}});
        QCOMPARE(model.dataIsDefault("Effect"), true);
        model.getDataItem("Effect", 2)->setCheckState(0);
        QCOMPARE(model.dataIsDefault("Effect"), false);
        saveCustomDefault("Effect", {{"Effect", "Blur|true"}});
        QCOMPARE(model.dataIsDefault("Effect"), true);
    }

    void effectWithPropertiesDoesNot()
    {
        ZoEffectModel::InitEffectModel(studioCatalogue());
        ZoEffectModel model;
        model.getDataItem("Effect", 0)->setData("gain", 99);
        QCOMPARE(model.dataIsDefault("Effect"), true);
        QCOMPARE(model.FrameEffectIsDefault(), false);

        model.getDataItem("Effect", 0)->setData("gain", 5);
        model.getDataItem("Effect", -1)->setData("level", 4);
        QCOMPARE(model.dataIsDefault("Effect"), false);
        QCOMPARE(model.FrameEffectIsDefault(), true);
    }

    void answersChangeNothing()
    {
        ZoEffectModel model;
        saveCustomDefault("Color", {{"bcs_contrast", 10}});
        TestApplication::instance()->pref.takeWrites();
        const QString before = tree(rootOf(model));
        SignalRecorder recorder(model);

        answers(model, "Color", "bcs_contrast");
        answers(model, "Watermark", "wm_hposition");
        model.FrameEffectIsDefault();
        model.hasRealEffect();

        QCOMPARE(tree(rootOf(model)), before);
        QCOMPARE(model.editByDefault(), false);
        QCOMPARE(TestApplication::instance()->pref.takeWrites(), QStringList());
        QCOMPARE(recorder.take(), QStringList());
    }

    void freshModelsHaveNoEffect()
    {
        QList<QStringList> lists{{}, {"Alien"}, videoTypes()};
        for (const EffectControlItem* type = hostCatalogue(); type->name; ++type)
            lists << QStringList{type->name};
        for (const QStringList& types : std::as_const(lists)) {
            ZoEffectModel model(types);
            QCOMPARE(model.hasRealEffect(), false);
            model.setVideoSize(1920, 1080);
            QCOMPARE(model.hasRealEffect(), false);
        }
    }

    void audioEffect_data()
    {
        const Rows<QStringList, Properties, bool> add;
        // Type nodes in order, "+" before a flagged one; then the properties that all of them get.
        const Properties speed10{{"audio_speed_factor", 10}};
        const Properties noFade{{"audio_fade_in_enable", false}, {"audio_fade_out_enable", false}};
        add("none flagged", {"Audio_Echo", "Audio_Speed"}, {}, false);
        add("fade in only", {"+Audio_Fade_Inout"}, {{"audio_fade_in_enable", 1}}, true);
        add("fade out only", {"+Audio_Fade_Inout"}, {{"audio_fade_out_enable", "true"}}, true);
        add("normalize", {"+Audio_Normalize"}, {}, true);
        add("flagged behind unflagged ones", {"Audio_Fade_Inout", "Audio_Speed", "+Audio_Echo"}, {}, true);
        add("speed 10 decides, before echo", {"+Audio_Speed", "+Audio_Echo"}, speed10, false);
        add("speed 10 not flagged, before echo", {"Audio_Speed", "+Audio_Echo"}, speed10, true);
        add("speed 10 behind echo", {"+Audio_Echo", "+Audio_Speed"}, speed10, true);
        add("no fade decides, before echo", {"+Audio_Fade_Inout", "+Audio_Echo"}, noFade, false);
        add("flagged video type is any other type", {"+Crop", "Audio_Echo"}, {}, true);
        add("flagged unknown type is any other type", {"Audio_Echo", "+Alien"}, {}, true);
        add("unflagged video types", {"Crop", "Audio", "Audio_Echo"}, {}, false);
        add("unflagged unknown types are not logged", {"Alien", "Audio_Echo"}, {}, false);
    }

    void audioEffect()
    {
        const auto [types, properties, expected] = row<QStringList, Properties, bool>();
        ZoEffectModel model(ZoEffectModel(), nullptr);
        for (const QString& type : types) {
            const bool flagged = type.startsWith(QLatin1Char('+'));
            auto* node = new ZoEffectItemData(flagged ? type.mid(1) : type, rootOf(model));
            node->setCheckState(0); // Plays no part.
            node->setData("audio_effect_flag", flagged);
            store(node, properties);
        }

        QCOMPARE(model.hasRealEffect(), expected);
        rootOf(model)->insertChild(nullptr, 0);
        rootOf(model)->insertChild(nullptr, 2);
        QCOMPARE(model.hasRealEffect(), expected);
    }

    void audioEffectModelIgnoresVideoSettings()
    {
        ZoEffectModel model;
        model.setVideoSize(1920, 1080);
        model.getDataItem("Color", -1)->setData("bcs_contrast", 10);
        model.getDataItem("Effect", 0)->setCheckState(2);
        model.getDataItem("Crop", -1)->setData("crop_width", 100);
        model.getDataItem("Crop", -1)->setData("crop_height", 100);
        new ZoEffectItemData(QString(), model.getDataItem("Watermark", -1));
        new ZoEffectItemData("Alien", rootOf(model));
        QCOMPARE(model.isCroped(0, 0), true);

        QCOMPARE(model.hasRealEffect(), false);
    }

    void audioFlag_data()
    {
        const Rows<QVariant, bool> add;
        add("true", true, true);
        add("missing", QVariant(), false);
        add("1", 1, true);
        add("text 0", "0", false);
        add("any text", "off", true);
        add("not a number", std::nan(""), false);
        add("below one half", 0.4, false);
    }

    void audioFlag()
    {
        const auto [flag, expected] = row<QVariant, bool>();
        ZoEffectModel model("Audio_Echo", {});
        if (flag.isValid())
            model.getDataItem("Audio_Echo", -1)->setData("audio_effect_flag", flag);
        QCOMPARE(model.hasRealEffect(), expected);

        ZoEffectModel fade("Audio_Fade_Inout", {{"audio_effect_flag", true}});
        if (flag.isValid())
            fade.getDataItem("Audio_Fade_Inout", -1)->setData("audio_fade_in_enable", flag);
        QCOMPARE(fade.hasRealEffect(), expected);
    }

    void audioSpeed_data()
    {
        const Rows<QVariant, bool> add;
        // Deliberate: 10 is what counts as untouched, not the 100 that a new item starts with.
        add("catalogue's default", 100, true);
        add("10", 10, false);
        add("11", 11, true);
        add("-10", -10, true);
        add("missing", QVariant(), true);
        add("text 10", "10", false);
        add("rounded up to 10", 9.6, false);
        add("rounded up to 11", 10.5, true);
    }

    void audioSpeed()
    {
        const auto [factor, expected] = row<QVariant, bool>();
        ZoEffectModel model("Audio_Speed", {{"audio_effect_flag", true}});
        if (factor.isValid())
            model.getDataItem("Audio_Speed", -1)->setData("audio_speed_factor", factor);

        QCOMPARE(model.hasRealEffect(), expected);
        model.getDataItem("Audio_Speed", -1)->setData("audio_effect_flag", false);
        QCOMPARE(model.hasRealEffect(), false);
    }

    void cropEffect_data()
    {
        const Rows<QSize, Properties, Properties, bool> add;
        const QSize frame(1280, 720);
        const QSize none(0, 0);
        const Properties part{{"crop_width", 640}, {"crop_height", 480}};
        const Properties mapped{{"player_map_flag", true}};
        const Properties rotation{{"crop_rotation_angle", 90}, {"crop_rotation_action", 1}};
        const Properties angle{{"crop_rotation_angle", 90}};
        const auto size = [](const QVariant& width, const QVariant& height) {
            return Properties{{"crop_width", width}, {"crop_height", height}};
        };
        add("untouched", frame, {}, {}, false);
        add("part of the frame", frame, part, {}, true);
        add("whole frame", frame, size(1280, 720), {}, false);
        add("whole frame, moved", frame, {{"crop_width", 1280}, {"crop_height", 720}, {"crop_left", 5}}, {}, false);
        add("full width only", frame, size(1280, 719), {}, true);
        add("no width", frame, size(0, 480), {}, false);
        add("no height", frame, size(640, 0), {}, false);
        add("frame without width", QSize(0, 720), part, {}, false);
        add("negative frame", QSize(-1280, 720), part, {}, true);
        // 65536 x 65536 is 0 modulo 2^32.
        add("largest frame", QSize(2147483647, 2147483647), part, {}, true);
        add("rotated, flag missing", frame, {}, rotation, false);
        add("rotated, flag true", frame, mapped, rotation, true);
        add("angle only", frame, mapped, angle, true);
        add("neither, flag true", frame, mapped, {}, false);
        add("rotated without a frame", none, mapped, angle, true);
        add("flag as number", frame, {{"player_map_flag", 1}}, angle, true);
        add("angle 0", frame, mapped, {{"crop_rotation_angle", 0}}, false);
        add("action as text", frame, mapped, {{"crop_rotation_action", "flip"}}, true);
        add("angle 0, action 1", frame, mapped, {{"crop_rotation_angle", 0}, {"crop_rotation_action", 1}}, true);
        add("rotation on the crop itself does not count", frame,
            {{"player_map_flag", true}, {"crop_rotation_angle", 90}}, {}, false);
        add("flag on the effect type does not count", frame, {},
            {{"player_map_flag", true}, {"crop_rotation_angle", 90}}, false);
    }

    void cropEffect()
    {
        const auto [base, crop, effect, expected] = row<QSize, Properties, Properties, bool>();
        ZoEffectModel model(videoTypes());
        model.setVideoSize(base.width(), base.height());
        store(model.getDataItem("Crop", -1), crop);
        store(model.getDataItem("Effect", -1), effect);

        QCOMPARE(model.hasRealEffect(), expected);

        // Whether the type "Effect" is selected plays no part; a crop that is not selected asks for nothing.
        model.getDataItem("Effect", -1)->setCheckState(0);
        QCOMPARE(model.hasRealEffect(), expected);
        model.getDataItem("Crop", -1)->setCheckState(0);
        QCOMPARE(model.hasRealEffect(), false);
        model.getDataItem("Crop", -1)->setCheckState(1);
        QCOMPARE(model.hasRealEffect(), false);
    }

    void colorEffect_data()
    {
        const Rows<QString, QVariant, bool> add;
        add("brightness", "bcs_brightness", 1, true);
        add("contrast", "bcs_contrast", 1, true);
        add("saturation", "bcs_saturation", 1, true);
        add("zero", "bcs_contrast", 0, false);
        add("text", "bcs_contrast", "5", true);
        add("text with a fraction", "bcs_contrast", "5.5", false);
        add("rounds to 0", "bcs_contrast", 0.4, false);
        add("negative half rounds to 0", "bcs_contrast", -0.5, false);
        add("key in other letter case", "BCS_contrast", 9, false);
    }

    void colorEffect()
    {
        const auto [key, value, expected] = row<QString, QVariant, bool>();
        ZoEffectModel model(videoTypes());
        ZoEffectItemData* node = model.getDataItem("Color", -1);
        node->delData(key);
        if (value.isValid())
            node->setData(key, value);

        QCOMPARE(model.hasRealEffect(), expected);
        node->setCheckState(0);
        QCOMPARE(model.hasRealEffect(), false);
        node->setCheckState(1);
        QCOMPARE(model.hasRealEffect(), false);
    }

    // The three values are compared with 0, whatever the defaults are.
    void colorEffectIgnoresDefaults()
    {
        saveCustomDefault("Color", {{"bcs_contrast", 10}});
        ZoEffectModel model(videoTypes());
        QCOMPARE(model.dataIsDefault("Color"), true);
        QCOMPARE(model.hasRealEffect(), true);
        model.getDataItem("Color", -1)->setData("bcs_contrast", 0);
        QCOMPARE(model.dataIsDefault("Color"), false);
        QCOMPARE(model.hasRealEffect(), false);
    }

    void frameEffect_data()
    {
        const Rows<QList<int>, bool> add;
        add("all off", {0, 0, 0, 0}, false);
        add("first on", {2, 0, 0, 0}, true);
        add("partially checked", {1, 1, 1, 1}, false);
        add("partially checked, then on", {1, 2, 0, 0}, true);
    }

    void frameEffect()
    {
        const auto [states, expected] = row<QList<int>, bool>();
        ZoEffectModel model(videoTypes());
        for (int row = 0; row < 4; ++row)
            model.getDataItem("Effect", row)->setCheckState(states.at(row));

        QCOMPARE(model.hasRealEffect(), expected);
        model.getDataItem("Effect", -1)->insertChild(nullptr, 0);
        QCOMPARE(model.hasRealEffect(), expected);
        model.getDataItem("Effect", -1)->setCheckState(0);
        QCOMPARE(model.hasRealEffect(), false);
    }

    void watermarkEffect_data()
    {
        const Rows<QVariantList, bool> add;
        const auto text = [](int state, const QVariant& content) {
            return item(QString(), state, {{"wm_istextwatermark", true}, {"wm_textcontent", content}});
        };
        const QVariant image = item(QString(), 2, {{"wm_istextwatermark", false}});
        const QVariant imageOff = item(QString(), 0, {{"wm_istextwatermark", false}});
        add("no items", {}, false);
        add("image", {image}, true);
        add("image, kind missing", {item(QString(), 2)}, true);
        add("image partially checked", {item(QString(), 1)}, false);
        add("text", {text(2, "hello")}, true);
        add("number as text", {text(2, 0)}, true);
        add("empty text", {text(2, "")}, false);
        add("text missing", {item(QString(), 2, {{"wm_istextwatermark", true}})}, false);
        add("text not selected", {text(0, "hello")}, false);
        add("kind as text 0 is an image", {item(QString(), 2, {{"wm_istextwatermark", "0"}})}, true);
        add("ignored text counts",
            {item(QString(), 2, {{"wm_istextwatermark", true}, {"wm_textcontent", "x"}, {"wm_ingnore", true}})}, true);
        add("nothing that counts", {text(2, ""), imageOff, text(0, "x")}, false);
        add("null entry, then image", {QVariant(), image}, true);
        add("null entries only", {QVariant(), QVariant()}, false);
    }

    void watermarkEffect()
    {
        const auto [items, expected] = row<QVariantList, bool>();
        ZoEffectModel model(videoTypes());
        setItems(model.getDataItem("Watermark", -1), items);

        QCOMPARE(model.hasRealEffect(), expected);
        model.getDataItem("Watermark", -1)->setCheckState(0);
        QCOMPARE(model.hasRealEffect(), false);
    }

    void trackEffect_data()
    {
        const Rows<QString, QVariantList, bool> add;
        for (const char* type : {"Audio", "Subtitle"}) {
            const QString flag = QLatin1String(type) == QLatin1String("Audio") ? "audio_isfile" : "sub_fromfile";
            const QString otherFlag = QLatin1String(type) == QLatin1String("Audio") ? "sub_fromfile" : "audio_isfile";
            const auto row = [&](const char* name, const QVariantList& items, bool expected) {
                add(qPrintable(QString("%1: %2").arg(type, name)), type, items, expected);
            };
            const QVariant embedded = item(QString(), 2, {{flag, false}});
            const QVariant file = item(QString(), 2, {{flag, true}});
            const QVariant fileOff = item(QString(), 0, {{flag, true}});
            row("no tracks", {}, false);
            row("embedded track", {embedded}, false);
            row("file track", {file}, true);
            row("file track not selected", {fileOff}, false);
            row("file track partially checked", {item(QString(), 1, {{flag, true}})}, false);
            row("flag as text", {item(QString(), 2, {{flag, "yes"}})}, true);
            row("flag of the other kind", {item(QString(), 2, {{otherFlag, true}})}, false);
            row("null entry, then file", {QVariant(), file}, true);
            row("null entries only", {QVariant(), QVariant()}, false);
        }
    }

    void trackEffect()
    {
        const auto [type, items, expected] = row<QString, QVariantList, bool>();
        ZoEffectModel model(videoTypes());
        setItems(model.getDataItem(type, -1), items);

        QCOMPARE(model.hasRealEffect(), expected);
        model.getDataItem(type, -1)->setCheckState(0);
        QCOMPARE(model.hasRealEffect(), false);
    }

    void unselectedTypesHaveNoEffect()
    {
        ZoEffectModel model(videoTypes());
        model.setVideoSize(1280, 720);
        model.getDataItem("Crop", -1)->setData("crop_width", 640);
        model.getDataItem("Crop", -1)->setData("crop_height", 480);
        model.getDataItem("Color", -1)->setData("bcs_contrast", 5);
        model.getDataItem("Effect", 1)->setCheckState(2);
        addItem(model, "Watermark");
        addItem(model, "Audio", {{"audio_isfile", true}});
        addItem(model, "Subtitle", {{"sub_fromfile", true}});

        // Every type asks for processing by itself.
        const QStringList types = videoTypes();
        for (const QString& type : types)
            model.getDataItem(type, -1)->setCheckState(0);
        QCOMPARE(model.hasRealEffect(), false);
        for (const QString& type : types) {
            model.getDataItem(type, -1)->setCheckState(2);
            QCOMPARE(model.hasRealEffect(), true);
            model.getDataItem(type, -1)->setCheckState(0);
        }
    }

    void unknownTypesAreLogged_data()
    {
        const Rows<QStringList, bool, QList<int>> add;
        // Type nodes in order, "-" before one that is not selected; "Color" asks for processing.
        add("one unknown", {"Alien"}, false, {2399});
        add("unknown not selected", {"-Alien"}, false, {});
        add("unknown before the effect", {"Alien", "Color"}, true, {2399});
        add("unknown behind the effect", {"Color", "Alien"}, true, {});
        add("unknown on both sides, effect not selected", {"Alien", "-Color", "Beyond"}, false, {2399, 2399});
        add("unknown between types without effect", {"Audio", "Alien", "Subtitle", "-Beyond", "Crop"}, false, {2399});
        add("other letter case", {"color", "CROP"}, false, {2399, 2399});
        add("empty name", {""}, false, {2399});
        add("known types", {"Crop", "Watermark", "Subtitle", "Audio", "Effect"}, false, {});
    }

    void unknownTypesAreLogged()
    {
        const auto [types, expected, events] = row<QStringList, bool, QList<int>>();
        ZoEffectModel model(ZoEffectModel(), nullptr);
        for (const QString& type : types) {
            const bool off = type.startsWith(QLatin1Char('-'));
            auto* node = new ZoEffectItemData(off ? type.mid(1) : type, rootOf(model));
            node->setData("bcs_contrast", 5);
            node->setCheckState(off ? 0 : 2);
        }

        QCOMPARE(model.hasRealEffect(), expected);
        QCOMPARE(logcapture::takeEvents(), events);
    }
};

ZOEFFECT_TEST_MAIN(TstModelDefaultCheck)

#include "tst_model_defaultcheck.moc"
