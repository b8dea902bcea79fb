// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <climits>
#include <memory>

#include <QPointer>

#include "modeltest.h"

namespace {

/// The "tag" of each item of \a type in order, "null" for a null entry.
QString tags(const ZoEffectModel& model, const QString& type)
{
    QStringList found;
    const ZoEffectItemData* typeNode = model.getDataItem(type, -1);
    for (int i = 0; i < typeNode->childCount(); ++i)
        found << (typeNode->child(i) ? typeNode->child(i)->data("tag").toString() : QString("null"));
    return found.join(QLatin1Char(' '));
}

/// Appends an item with its tag for each word.
void addTagged(const ZoEffectModel& model, const QString& type, const QString& words)
{
    const QStringList list = words.isEmpty() ? QStringList() : words.split(QLatin1Char(' '));
    for (const QString& word : list)
        addItem(model, type, {{"tag", word}});
}

QString propertiesOf(const ZoEffectModel& model, const QString& type, int pos)
{
    return described(model.getDataItem(type, pos)->properties());
}

QString place(const ZoEffectModel& model, int pos)
{
    const ZoEffectItemData* item = model.getDataItem("Watermark", pos);
    return QString("%1,%2").arg(item->data("wm_hposition").toInt()).arg(item->data("wm_vposition").toInt());
}

/// "effectDataChanged(<type>, item_add, invalid, <pos>)" and the like.
QStringList told(const QString& type, const QString& change, int pos)
{
    return {QString("effectDataChanged(%1, %2, invalid, %3)").arg(type, change).arg(pos)};
}

} // namespace

class TstModelItems : public ModelTest {
    Q_OBJECT

private slots:
    void insertedItemStandsAtItsPosition_data()
    {
        const Rows<QString, int, QString, int> add;
        add("-1 appends and tells the new index", "a b", -1, "a b x", 2);
        add("-1 in an empty list", "", -1, "x", 0);
        add("before the first", "a b", 0, "x a b", 0);
        add("before the last of three", "a b c", 2, "a b x c", 2);
        add("right behind the end", "a b", 2, "a b x", 2);
        add("one beyond the end", "a b", 3, "a b x", 3);
        add("beyond the end of an empty list", "", 5, "x", 5);
        add("-2 appends and is told as it is", "a b", -2, "a b x", -2);
        add("greatest int", "a b", INT_MAX, "a b x", INT_MAX);
        add("smallest int", "a b", INT_MIN, "a b x", INT_MIN);
    }

    void insertedItemStandsAtItsPosition()
    {
        const auto [present, pos, expected, announced] = row<QString, int, QString, int>();
        for (const char* type : {"Watermark", "Subtitle", "Audio"}) {
            ZoEffectModel model;
            addTagged(model, type, present);
            SignalRecorder recorder(model);

            QCOMPARE(model.insertDataItem(type, {{"tag", "x"}}, pos), true);

            QCOMPARE(tags(model, type), expected);
            QCOMPARE(recorder.take(), told(type, "item_add", announced));
        }
    }

    void newItemHoldsTheCatalogueDefaultsOfItsType_data()
    {
        const Rows<QString, QString> add;
        add("crop", "Crop",
            "{crop_aspectratio: string Original Ratio, crop_height: string source_val, crop_keepaspectratio: bool "
            "true, crop_left: int 0, crop_minheight: int 24, crop_minwidth: int 24, crop_top: int 0, crop_width: "
            "string source_val}");
        add("watermark, at the factors of 640 x 480", "Watermark",
            "{wm_fontcolor: color #ffffffff, wm_fontname: font Tahoma, wm_fontsize: int 22, wm_fontstyle: string "
            "Regular, wm_hposition: int 64, wm_imagekeepratio: bool true, wm_transfactor: double 2.5499999999999998, "
            "wm_transparency: int 0, wm_vposition: int 48}");
        add("subtitle", "Subtitle",
            "{fontstyleusedefault: bool true, sub_fontcolor: color #ffffffff, sub_fontname: font Tahoma, "
            "sub_fontsize: int 22, sub_fontstyle: string Regular, sub_framecolor: color #ff000000, sub_hposition: int "
            "200, sub_linemargin: int 0, sub_transfactor: double 2.5499999999999998, sub_transparency: int 0, "
            "sub_vposition: int 200}");
        add("colour", "Color", "{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}");
        add("type without property table", "Effect", "{}");
        add("speed", "Audio_Speed", "{audio_effect_flag: bool false, audio_speed_factor: int 100}");
        add("frame effect, whose own table is not read", "Blur", "{}");
    }

    void newItemHoldsTheCatalogueDefaultsOfItsType()
    {
        const auto [type, expected] = row<QString, QString>();
        ZoEffectModel model;
        model.setVideoSize(640, 480);

        QVERIFY(model.insertDataItem(type, {}, 0));

        QCOMPARE(propertiesOf(model, type, 0), expected);
    }

    void newItemIsAnUnnamedSelectedChildOfItsType()
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

    void unknownTypeIsRefusedSilently()
    {
        ZoEffectModel model(QStringList{"Watermark", "Subtitle"});
        SignalRecorder recorder(model);

        for (const char* type : {"Rotation", "watermark", "Water", "Watermark ", "", "Crop"}) {
            for (const int pos : {-1, 0, -3})
                QCOMPARE(model.insertDataItem(type, {{"a", 1}}, pos), false);
            QCOMPARE(model.addDataItem(type, {}), false);
        }

        QCOMPARE(childNames(rootOf(model)), QString("Watermark Subtitle"));
        QCOMPARE(model.childCount("Watermark") + model.childCount("Subtitle"), 0);
        QCOMPARE(recorder.take(), QStringList());
    }

    void itemGoesUnderTheFirstNodeOfThatName()
    {
        ZoEffectModel model;
        // An item of an earlier type that bears the name of a later type is found first.
        auto* impostor = new ZoEffectItemData("Subtitle", model.getDataItem("Watermark", -1));
        QVERIFY(model.insertDataItem("Subtitle", {}, -1));
        QCOMPARE(impostor->childCount(), 1);
        QCOMPARE(described(impostor->child(0)->data("sub_fontsize")), QString("int 22"));
        QCOMPARE(rootOf(model)->child(2)->childCount(), 0);

        // No name is the name of the first unnamed item.
        SignalRecorder recorder(model);
        QCOMPARE(model.insertDataItem("", {{"tag", "x"}}, -1), true);
        QCOMPARE(impostor->child(0)->childCount(), 1);
        QCOMPARE(recorder.take(), told("", "item_add", 0));
    }

    void checkStateOfTheCallerIsNoProperty_data()
    {
        const Rows<QVariant, int> add;
        add("true", true, 2);
        add("false", false, 0);
        add("int 1", 1, 2);
        add("negative int", -1, 2);
        add("text FALSE", "FALSE", 0);
        add("text 0", "0", 0);
        add("any other text", "no", 2);
        add("double 0", 0.0, 0);
        add("invalid value", QVariant(), 0);
        add("map, which has no boolean", QVariantMap{{"a", 1}}, 0);
    }

    void checkStateOfTheCallerIsNoProperty()
    {
        const auto [value, expected] = row<QVariant, int>();
        ZoEffectModel model;

        QVERIFY(model.insertDataItem("Audio", {{"_checkstate", value}, {"trackid", 4}}, -1));
        QCOMPARE(model.getDataItem("Audio", 0)->checkState(), expected);
        QCOMPARE(propertiesOf(model, "Audio", 0), QString("{play_loop: bool false, trackid: int 4}"));

        QVERIFY(model.addDataItemEx("Color", {{"_checkstate", value}}, false));
        QCOMPARE(model.getDataItem("Color", -1)->checkState(), expected);
        QCOMPARE(propertiesOf(model, "Color", -1),
                 QString("{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}"));
    }

    void checkStateOfTheCatalogueIsAProperty()
    {
        // Of two records with the same key the later one holds.
        registerOnly("Spin", {::property("_checkstate", false), ::property("speed", 3), ::property("speed", 4)});
        ZoEffectModel model;

        QVERIFY(model.insertDataItem("Spin", {}, -1));
        QCOMPARE(model.getDataItem("Spin", 0)->checkState(), 2);

        // The caller's key sets the check state and leaves the property of that name as it is.
        QVERIFY(model.insertDataItem("Spin", {{"_checkstate", false}}, -1));
        QCOMPARE(model.getDataItem("Spin", 1)->checkState(), 0);
        QVERIFY(model.insertDataItem("Spin", {{"_checkstate", true}}, -1));
        QCOMPARE(model.getDataItem("Spin", 2)->checkState(), 2);
        for (const int pos : {0, 2})
            QCOMPARE(propertiesOf(model, "Spin", pos), QString("{_checkstate: bool false, speed: int 4}"));
    }

    void propertiesOfTheCallerWin_data()
    {
        const QStringList position{"wm_hposition", "wm_vposition"};
        const QStringList color{"bcs_brightness", "bcs_contrast", "bcs_saturation"};
        const Rows<QString, Properties, Properties, QStringList, QString> add;
        add("over the catalogue", "Color", {}, {{"bcs_contrast", 9}}, color,
            "{bcs_brightness: int 0, bcs_contrast: int 9, bcs_saturation: int 0}");
        add("over the custom default", "Color", {{"bcs_contrast", 5}, {"bcs_saturation", 6}}, {{"bcs_contrast", 9}},
            color, "{bcs_brightness: int 0, bcs_contrast: int 9, bcs_saturation: int 6}");
        add("over one half of the place by factors", "Watermark", {}, {{"wm_vposition", 8}}, position,
            "{wm_hposition: int 64, wm_vposition: int 8}");
        add("over the saved place", "Watermark", {{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.5}},
            {{"wm_hposition", 7}}, position, "{wm_hposition: int 7, wm_vposition: int 240}");
        add("over the saved font", "Watermark", {{"wm_fontsize", 40}, {"wm_fontstyle", "Bold"}},
            {{"wm_fontsize", 11}, {"wm_istextwatermark", true}}, {"wm_fontsize", "wm_fontstyle"},
            "{wm_fontsize: int 11, wm_fontstyle: string Bold}");
        add("in another type than the catalogue's", "Subtitle", {}, {{"sub_fontsize", "22"}}, {"sub_fontsize"},
            "{sub_fontsize: string 22}");
        add("with an invalid value", "Audio", {}, {{"play_loop", QVariant()}}, {"play_loop"}, "{play_loop: invalid}");
        add("with keys that the catalogue lacks", "Subtitle", {}, {{"trackid", 3}, {"", "no key"}, {"Sub_Fontsize", 1}},
            {"", "trackid", "Sub_Fontsize", "sub_fontsize"},
            "{: string no key, Sub_Fontsize: int 1, sub_fontsize: int 22, trackid: int 3}");
        add("with a check state in other letter case, which is a property", "Audio", {}, {{"_CheckState", false}},
            {"_CheckState", "_checkstate"}, "{_CheckState: bool false}");
        add("with a user's position, which is stored only", "Subtitle", {}, {{"sub_vposition", 55}},
            {"sub_vposition", "dvdsubtitleposeditbyuser"}, "{sub_vposition: int 55}");
        add("with factors, which place nothing", "Watermark", {}, {{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.25}},
            {"wm_hposfactor", "wm_hposition", "wm_vposition"},
            "{wm_hposfactor: double 0.5, wm_hposition: int 64, wm_vposition: int 48}");
    }

    void propertiesOfTheCallerWin()
    {
        const auto [type, saved, props, keys, expected] = row<QString, Properties, Properties, QStringList, QString>();
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        if (!saved.isEmpty())
            saveCustomDefault(type, saved);

        QVERIFY(model.insertDataItem(type, props, -1));

        QCOMPARE(chosen(model.getDataItem(type, 0), keys), expected);
        QCOMPARE(model.getDataItem(type, 0)->checkState(), 2);
    }

    void factorsOfTheCatalogueAreKeptOut()
    {
        registerOnly("Spin",
                     {::property("sub_vposfactor", 0.25), ::property("wm_vposfactor", 0.5),
                      ::property("wm_hposfactor", 0.75), ::property("sub_hposfactor", 1), ::property("vposfactor", 2)});
        ZoEffectModel model;
        model.setVideoSize(640, 480);

        // All three, whatever the type, and nothing else; only watermarks are placed by them.
        QVERIFY(model.insertDataItem("Spin", {}, -1));
        QCOMPARE(propertiesOf(model, "Spin", 0), QString("{sub_hposfactor: int 1, vposfactor: int 2}"));

        // A type node takes them.
        QVERIFY(model.addDataItemEx("Spin", {}, false));
        QCOMPARE(
            propertiesOf(model, "Spin", -1),
            QString("{sub_hposfactor: int 1, sub_vposfactor: double 0.25, vposfactor: int 2, wm_hposfactor: double "
                    "0.75, wm_vposfactor: double 0.5}"));
    }

    void watermarkStartsAtTheFactorsOfTheBaseSize_data()
    {
        const Rows<int, int, QVariant, QVariant, QString> add;
        add("height truncated", 720, 576, 0.1, 0.1, "72,57");
        add("both truncated, not rounded", 859, 489, 0.1, 0.1, "85,48");
        add("only a width", 640, 0, 0.1, 0.1, "64,0");
        add("negative size, truncated toward zero", -645, -19, 0.1, 0.1, "-64,-1");
        add("greatest size", INT_MAX, INT_MAX, 0.1, 0.1, "214748364,214748364");
        add("each its own factor", 100, 200, 0.5, 0.25, "50,50");
        // 100 x 0.29 is 28.999999999999996 in double precision.
        add("product just below a whole number", 100, 200, 0.29, 0.145, "28,28");
        add("negative factor, truncated toward zero", 100, 200, -0.255, -0.0049, "-25,0");
        add("text", 100, 200, "0.5", "abc", "50,0");
        add("whole number", 100, 200, 2, true, "200,200");
        add("product beyond int saturates", 100, 200, 1e9, -1e9, "2147483647,-2147483648");
        add("no number", 100, 200, qQNaN(), QVariant(), "0,0");
    }

    void watermarkStartsAtTheFactorsOfTheBaseSize()
    {
        const auto [width, height, horizontal, vertical, expected] = row<int, int, QVariant, QVariant, QString>();
        registerOnly("Watermark", {::property("wm_hposfactor", horizontal), ::property("wm_vposfactor", vertical)});
        ZoEffectModel model;
        model.setVideoSize(width, height);

        QVERIFY(model.insertDataItem("Watermark", {}, -1));

        QCOMPARE(place(model, 0), expected);
        QCOMPARE(model.getDataItem("Watermark", 0)->properties().size(), 2);
    }

    void customDefaultIsLaidOverTheCatalogue_data()
    {
        const Rows<QString, Properties, Properties, QStringList, QString> add;
        const Properties watermark{{"wm_transparency", 40},
                                   {"wm_fontsize", 33},
                                   {"wm_imagekeepratio", false},
                                   {"wm_hposfactor", 0.5},
                                   {"wm_vposfactor", 0.25}};
        const QStringList watermarkKeys{"wm_transparency", "wm_fontsize",  "wm_imagekeepratio", "wm_hposfactor",
                                        "wm_vposfactor",   "wm_hposition", "wm_vposition"};
        const char* textWatermark = "{wm_fontsize: int 33, wm_hposition: int 320, wm_imagekeepratio: bool false, "
                                    "wm_transparency: int 40, wm_vposition: int 120}";
        const char* imageWatermark = "{wm_fontsize: int 22, wm_hposition: int 320, wm_imagekeepratio: bool true, "
                                     "wm_transparency: int 40, wm_vposition: int 120}";
        add("image watermark takes transparency and place", "Watermark", watermark, {}, watermarkKeys, imageWatermark);
        add("watermark told to be no text", "Watermark", watermark, {{"wm_istextwatermark", false}}, watermarkKeys,
            imageWatermark);
        add("text watermark takes all but the factors", "Watermark", watermark, {{"wm_istextwatermark", "true"}},
            watermarkKeys, textWatermark);
        add("flag of a subtitle does not make a text watermark", "Watermark", watermark, {{"sub_fromfile", true}},
            watermarkKeys, imageWatermark);
        add("saved flag does not come early enough", "Watermark", {{"wm_istextwatermark", true}, {"wm_fontsize", 33}},
            {}, {"wm_istextwatermark", "wm_fontsize"}, "{wm_fontsize: int 22}");
        add("saved flag is overwritten by the caller's", "Watermark",
            {{"wm_istextwatermark", false}, {"wm_fontsize", 33}}, {{"wm_istextwatermark", true}},
            {"wm_istextwatermark", "wm_fontsize"}, "{wm_fontsize: int 33, wm_istextwatermark: bool true}");
        add("custom default with one factor keeps the catalogue's place", "Watermark", {{"wm_vposfactor", 0.5}}, {},
            {"wm_vposfactor", "wm_hposition", "wm_vposition"}, "{wm_hposition: int 30, wm_vposition: int 30}");
        add("empty custom default keeps the catalogue's place", "Watermark", {}, {},
            {"wm_transparency", "wm_hposition", "wm_vposition"},
            "{wm_hposition: int 30, wm_transparency: int 0, wm_vposition: int 30}");

        const Properties subtitle{{"sub_transparency", 12}, {"sub_fontsize", 30},           {"sub_vposfactor", 0.5},
                                  {"sub_linemargin", 4},    {"fontstyleusedefault", false}, {"own", "x"}};
        QStringList subtitleKeys = subtitle.keys();
        subtitleKeys.append("sub_vposition");
        const char* embedded = "{fontstyleusedefault: bool true, sub_fontsize: int 22, sub_linemargin: int 0, "
                               "sub_transparency: int 12, sub_vposition: int 200}";
        add("embedded subtitle takes the transparency only", "Subtitle", subtitle, {}, subtitleKeys, embedded);
        add("subtitle told to be embedded", "Subtitle", subtitle, {{"sub_fromfile", false}}, subtitleKeys, embedded);
        add("subtitle from a file takes all, the factor included", "Subtitle", subtitle, {{"sub_fromfile", 7}},
            subtitleKeys,
            "{fontstyleusedefault: bool false, own: string x, sub_fontsize: int 30, sub_linemargin: int 4, "
            "sub_transparency: int 12, sub_vposfactor: double 0.5, sub_vposition: int 200}");
        add("flag of a watermark does not make a subtitle from a file", "Subtitle", subtitle,
            {{"wm_istextwatermark", true}}, subtitleKeys, embedded);
        add("saved subtitle flag does not come early enough", "Subtitle",
            {{"sub_fromfile", true}, {"sub_fontsize", 30}}, {}, {"sub_fromfile", "sub_fontsize"},
            "{sub_fontsize: int 22}");

        add("colour takes all", "Color", {{"bcs_contrast", 5}, {"own", 1}}, {},
            {"bcs_brightness", "bcs_contrast", "bcs_saturation", "own"},
            "{bcs_brightness: int 0, bcs_contrast: int 5, bcs_saturation: int 0, own: int 1}");
        add("crop takes all", "Crop", {{"crop_left", 5}}, {}, {"crop_left", "crop_top"},
            "{crop_left: int 5, crop_top: int 0}");
        add("frame effect takes the saved order as a property", "Effect", {{"Effect", "Blur|true"}}, {}, {"Effect"},
            "{Effect: string Blur|true}");
        add("other types take position factors and a check state as properties", "Audio",
            {{"wm_vposfactor", 0.5}, {"_checkstate", false}, {"play_loop", QVariant()}}, {},
            {"wm_vposfactor", "_checkstate", "wm_vposition", "play_loop"},
            "{_checkstate: bool false, play_loop: invalid, wm_vposfactor: double 0.5}");
    }

    void customDefaultIsLaidOverTheCatalogue()
    {
        const auto [type, saved, props, keys, expected] = row<QString, Properties, Properties, QStringList, QString>();
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        saveCustomDefault(type, saved);
        SignalRecorder recorder(model);

        QVERIFY(model.insertDataItem(type, props, 0));

        QCOMPARE(chosen(model.getDataItem(type, 0), keys), expected);
        QCOMPARE(model.getDataItem(type, 0)->checkState(), 2);
        QCOMPARE(model.editByDefault(), type != "Watermark" && type != "Subtitle");
        QCOMPARE(recorder.take(), told(type, "item_add", 0));
    }

    void newWatermarkTakesAFreePlace()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);

        // All start at the same factors; each evades the selected ones in steps of 30, itself selected or not.
        QVERIFY(model.insertDataItem("Watermark", {}, -1));
        QVERIFY(model.insertDataItem("Watermark", {{"_checkstate", false}}, -1));
        QVERIFY(model.insertDataItem("Watermark", {}, -1));
        QVERIFY(model.insertDataItem("Watermark", {}, 0));

        QCOMPARE(place(model, 1), QString("64,48"));
        QCOMPARE(place(model, 2), QString("94,78"));
        QCOMPARE(model.getDataItem("Watermark", 2)->checkState(), 0);
        QCOMPARE(place(model, 3), QString("94,78"));
        QCOMPARE(place(model, 0), QString("124,108"));
    }

    void savedPlaceIsTakenAmongOtherWatermarks()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        saveCustomDefault("Watermark", {{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.25}});

        // Beside one other watermark the saved place is never taken; beside two it is, and then evades the first.
        for (const char* expected : {"320,120", "30,30", "350,150"}) {
            QVERIFY(model.insertDataItem("Watermark", {}, -1));
            QCOMPARE(place(model, model.childCount("Watermark") - 1), QString(expected));
        }
    }

    void givenPositionIsMovedToAFreePlace()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        const Properties corner{
            {"wm_hposition", 0}, {"wm_vposition", 0}, {"wm_imagewidth", 100}, {"wm_imageheight", 50}};

        QVERIFY(model.insertDataItem("Watermark", corner, -1));
        QVERIFY(model.insertDataItem("Watermark", corner, -1));

        QCOMPARE(place(model, 0), QString("0,0"));
        QCOMPARE(
            chosen(model.getDataItem("Watermark", 1), corner.keys()),
            QString("{wm_hposition: int 60, wm_imageheight: int 50, wm_imagewidth: int 100, wm_vposition: int 60}"));
    }

    void listenerSeesTheFinishedItem()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        QStringList seen;
        listen(model, [&](const QString& type, const QString& key, const QVariant&, int pos) {
            seen << QString("%1 %2 %3").arg(key, place(model, pos)).arg(model.getDataItem(type, pos)->checkState());
        });

        QVERIFY(model.insertDataItem("Watermark", {}, -1));
        QVERIFY(model.insertDataItem("Watermark", {{"_checkstate", false}}, -1));

        QCOMPARE(seen, (QStringList{"item_add 64,48 2", "item_add 94,78 0"}));
    }

    void listenerMayDeleteTheNewItem()
    {
        ZoEffectModel model;
        listen(model, [&](const QString& type, const QString& key, const QVariant&, int pos) {
            if (key == "item_add")
                model.delDataItem(type, pos);
        });

        QCOMPARE(model.insertDataItem("Watermark", {}, -1), true);
        QCOMPARE(model.addDataItem("Audio", {}), true);
        QCOMPARE(model.addDataItemEx("Subtitle", {}, true), true);

        for (const char* type : {"Watermark", "Audio", "Subtitle"})
            QCOMPARE(model.childCount(type), 0);
    }

    void listenerMayAddMoreItems()
    {
        ZoEffectModel model;
        SignalRecorder recorder(model);
        listen(model, [&](const QString& type) {
            if (model.childCount(type) < 3)
                model.insertDataItem(type, {{"tag", "y"}}, 0);
        });

        QVERIFY(model.insertDataItem("Audio", {{"tag", "x"}}, -1));

        QCOMPARE(tags(model, "Audio"), QString("y y x"));
        QCOMPARE(recorder.take(),
                 told("Audio", "item_add", 0) + told("Audio", "item_add", 0) + told("Audio", "item_add", 0));
    }

    void listsAreNotEditedByUserOrDefault()
    {
        ZoEffectModel model;

        model.insertDataItem("Subtitle", {{"sub_vposition", 3}}, -1);
        model.addDataItemEx("Subtitle", {}, true);
        model.addDataItemEx("Subtitle", {}, false);
        model.changeDataItemPos("Subtitle", 0, 1);
        model.delDataItem("Subtitle", 0);

        QCOMPARE(model.editByUser(), false);
        QCOMPARE(model.editByDefault(), false);
    }

    void insertingWithoutCatalogue()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        ZoEffectModel::InitEffectModel(nullptr);
        QCOMPARE(logcapture::takeEvents(), QList<int>{25});

        QVERIFY(model.insertDataItem("Watermark", {{"tag", "x"}}, -1));
        QVERIFY(model.insertDataItem("Subtitle", {{"tag", "x"}}, -1));

        QCOMPARE(propertiesOf(model, "Watermark", 0),
                 QString("{tag: string x, wm_hposition: int 0, wm_vposition: int 0}"));
        QCOMPARE(propertiesOf(model, "Subtitle", 0), QString("{tag: string x}"));
    }

    void typeOfANestedTableIsFilled()
    {
        static const EffectDefaultVal properties[] = {::property("speed", 3), ::property(nullptr, 0)};
        static const EffectControlItem nested[] = {effectType("Spin", properties), effectType(nullptr, nullptr)};
        static const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, nested),
                                                  effectType(nullptr, nullptr)};
        ZoEffectModel::InitEffectModel(table);
        ZoEffectModel model;

        QCOMPARE(model.insertDataItem("Spin", {}, -1), false);
        QCOMPARE(model.addDataItemEx("Spin", {}, true), true);

        QCOMPARE(tree(rootOf(model)), QString("effect root:2{}[Group:2{}[] Spin:2{}[:2{speed: int 3}[]]]"));
    }

    void ownPropertiesOfAnItemMakeACopy()
    {
        ZoEffectModel model;
        QVERIFY(model.insertDataItem("Subtitle", {{"sub_fontsize", 50}, {"trackid", 2}}, -1));
        QVERIFY(model.insertDataItem("Subtitle", model.getDataItem("Subtitle", 0)->properties(), 0));
        QCOMPARE(chosen(model.getDataItem("Subtitle", 0), {"sub_fontsize", "trackid"}),
                 QString("{sub_fontsize: int 50, trackid: int 2}"));
        QCOMPARE(propertiesOf(model, "Subtitle", 0), propertiesOf(model, "Subtitle", 1));

        // Filling the type node from its own properties keeps what they were.
        model.getDataItem("Color", -1)->setData("bcs_contrast", 8);
        QVERIFY(model.addDataItemEx("Color", model.getDataItem("Color", -1)->properties(), false));
        QCOMPARE(described(model.data("bcs_contrast", "Color", -1)), QString("int 8"));
    }

    void addedItemComesLast()
    {
        for (const char* type : {"Watermark", "Subtitle", "Crop"}) {
            ZoEffectModel model;
            addTagged(model, type, "a b");
            SignalRecorder recorder(model);

            QCOMPARE(model.addDataItem(type, {{"tag", "x"}, {"_checkstate", 0}}), true);

            QCOMPARE(tags(model, type), QString("a b x"));
            QCOMPARE(model.getDataItem(type, 2)->checkState(), 0);
            QCOMPARE(recorder.take(), told(type, "item_add", 2));
        }
    }

    void typeNodeIsCreatedWhenMissing_data()
    {
        const Rows<QString, Properties, QString, int> add;
        add("watermark, with its factors and the catalogue's place", "Watermark", {},
            "{wm_fontcolor: color #ffffffff, wm_fontname: font Tahoma, wm_fontsize: int 22, wm_fontstyle: string "
            "Regular, wm_hposfactor: double 0.10000000000000001, wm_hposition: int 30, wm_imagekeepratio: bool true, "
            "wm_transfactor: double 2.5499999999999998, wm_transparency: int 0, wm_vposfactor: double "
            "0.10000000000000001, wm_vposition: int 30}",
            2);
        add("fade", "Audio_Fade_Inout", {{"audio_fade_in", 5}, {"_checkstate", false}},
            "{audio_effect_flag: bool false, audio_fade_in: int 5, audio_fade_in_enable: bool false, audio_fade_out: "
            "int 3, audio_fade_out_enable: bool true}",
            0);
        add("frame effects, without sub-items", "Effect", {}, "{}", 2);
        add("type that the catalogue lacks", "Rotation", {{"angle", 90}, {"_checkstate", true}}, "{angle: int 90}", 2);
        add("no name", "", {{"angle", 90}}, "{angle: int 90}", 2);
    }

    void typeNodeIsCreatedWhenMissing()
    {
        const auto [type, props, expected, checkState] = row<QString, Properties, QString, int>();
        ZoEffectModel model(QStringList{"Audio", "Color"});
        model.setVideoSize(640, 480);
        SignalRecorder recorder(model);

        QCOMPARE(model.addDataItemEx(type, props, false), true);

        QCOMPARE(childNames(rootOf(model)), "Audio Color " + type);
        const ZoEffectItemData* typeNode = rootOf(model)->child(2);
        QCOMPARE(typeNode->parent(), rootOf(model));
        QCOMPARE(typeNode->objectName(), type);
        QCOMPARE(tree(typeNode), QString("%1:%2%3[]").arg(type, QString::number(checkState), expected));
        QCOMPARE(recorder.take(), QStringList());
    }

    void addingAChildCreatesTheTypeFirst_data()
    {
        const Rows<QString, Properties, QString> add;
        // The new type node itself stays without properties, selected whatever the item is.
        add("audio", "Audio", {{"_checkstate", false}}, "Audio:2{}[:0{play_loop: bool false}[]]");
        add("speed", "Audio_Speed", {},
            "Audio_Speed:2{}[:2{audio_effect_flag: bool false, audio_speed_factor: int 100}[]]");
        add("type that the catalogue lacks", "Rotation", {{"angle", 90}}, "Rotation:2{}[:2{angle: int 90}[]]");
    }

    void addingAChildCreatesTheTypeFirst()
    {
        const auto [type, props, expected] = row<QString, Properties, QString>();
        ZoEffectModel model(QStringList{"Crop"});
        SignalRecorder recorder(model);

        QCOMPARE(model.addDataItemEx(type, props, true), true);

        QCOMPARE(childNames(rootOf(model)), "Crop " + type);
        QCOMPARE(tree(rootOf(model)->child(1)), expected);
        QCOMPARE(recorder.take(), told(type, "item_add", 0));
    }

    void addingAChildToAnExistingTypeAppends()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        addTagged(model, "Watermark", "a b");
        model.getDataItem("Watermark", -1)->setCheckState(0);
        SignalRecorder recorder(model);

        QCOMPARE(model.addDataItemEx("Watermark", {{"tag", "x"}}, true), true);

        QCOMPARE(rootOf(model)->childCount(), 13);
        QCOMPARE(tags(model, "Watermark"), QString("a b x"));
        QCOMPARE(place(model, 2), QString("64,48"));
        QCOMPARE(model.getDataItem("Watermark", -1)->checkState(), 0);
        QCOMPARE(recorder.take(), told("Watermark", "item_add", 2));
    }

    void fillingATypeNodeSendsNothing()
    {
        ZoEffectModel model;
        addTagged(model, "Subtitle", "a b");
        ZoEffectItemData* typeNode = model.getDataItem("Subtitle", -1);
        typeNode->setData("sub_fontsize", 60);
        typeNode->setData("dvdsubtitleposeditbyuser", true);
        SignalRecorder recorder(model);

        for (const char* type : {"Crop", "Watermark", "Subtitle", "Effect", "Audio_Echo", "Blur"}) {
            QCOMPARE(model.addDataItemEx(type, {{"own", 1}, {"_checkstate", false}}, false), true);
            QCOMPARE(described(model.data("own", type, -1)), QString("int 1"));
            QCOMPARE(model.getDataItem(type, -1)->checkState(), 0);
        }

        QCOMPARE(recorder.take(), QStringList());
        // Back to the default, and what the catalogue does not name stays, as the items do.
        QCOMPARE(model.getDataItem("Subtitle", -1), typeNode);
        QCOMPARE(rootOf(model)->childCount(), 13);
        QCOMPARE(tags(model, "Subtitle"), QString("a b"));
        QCOMPARE(chosen(typeNode, {"sub_fontsize", "dvdsubtitleposeditbyuser"}),
                 QString("{dvdsubtitleposeditbyuser: bool true, sub_fontsize: int 22}"));

        // The check state is left as it is when it is not told.
        QVERIFY(model.addDataItemEx("Crop", {}, false));
        QCOMPARE(model.getDataItem("Crop", -1)->checkState(), 0);
        QVERIFY(model.addDataItemEx("Crop", {{"_checkstate", true}}, false));
        QCOMPARE(model.getDataItem("Crop", -1)->checkState(), 2);
    }

    void fillingATypeNodeTakesTheCustomDefault_data()
    {
        const Rows<QString, Properties, Properties, QStringList, QString, bool> add;
        add("crop, which a new model would not give its custom default", "Crop", {{"crop_left", 5}, {"crop_top", 6}},
            {{"crop_top", 7}}, {"crop_left", "crop_top"}, "{crop_left: int 5, crop_top: int 7}", true);
        add("subtitle takes the transparency only: the caller's file flag comes later", "Subtitle",
            {{"sub_transparency", 12}, {"sub_fontsize", 30}}, {{"sub_fromfile", true}},
            {"sub_transparency", "sub_fontsize", "sub_fromfile"},
            "{sub_fontsize: int 22, sub_fromfile: bool true, sub_transparency: int 12}", false);
        add("watermark takes the transparency only: the caller's text flag comes later", "Watermark",
            {{"wm_transparency", 12}, {"wm_fontsize", 30}}, {{"wm_istextwatermark", true}},
            {"wm_transparency", "wm_fontsize", "wm_hposition", "wm_vposition"},
            "{wm_fontsize: int 22, wm_hposition: int 30, wm_transparency: int 12, wm_vposition: int 30}", false);
        add("watermark as the only type takes the saved place and keeps the catalogue's factors", "Watermark",
            {{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.25}}, {}, {"wm_hposition", "wm_vposition", "wm_hposfactor"},
            "{wm_hposfactor: double 0.10000000000000001, wm_hposition: int 320, wm_vposition: int 120}", false);
    }

    void fillingATypeNodeTakesTheCustomDefault()
    {
        const auto [type, saved, props, keys, expected, editedByDefault] =
            row<QString, Properties, Properties, QStringList, QString, bool>();
        ZoEffectModel model(QStringList{"no type at all"});
        model.setVideoSize(640, 480);
        saveCustomDefault(type, saved);
        SignalRecorder recorder(model);

        QCOMPARE(model.addDataItemEx(type, props, false), true);

        QCOMPARE(chosen(model.getDataItem(type, -1), keys), expected);
        QCOMPARE(model.editByDefault(), editedByDefault);
        QCOMPARE(recorder.take(), QStringList());
    }

    void fillingTheWatermarkTypeDoesNotPlaceIt()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        // Any other type node would count as a selected watermark at (30, 30), were the type node placed.
        model.getDataItem("Audio", -1)->setData("wm_hposition", 30);
        model.getDataItem("Audio", -1)->setData("wm_vposition", 30);

        QVERIFY(model.addDataItemEx("Watermark", {}, false));

        QCOMPARE(place(model, -1), QString("30,30"));
    }

    void deletedItemIsGone()
    {
        for (const char* type : {"Watermark", "Subtitle", "Audio", "Color"}) {
            ZoEffectModel model;
            addTagged(model, type, "a b c d");
            const QPointer<ZoEffectItemData> item = model.getDataItem(type, 1);
            const QPointer<ZoEffectItemData> below = new ZoEffectItemData("below", item);
            model.getDataItem(type, 2)->setCheckState(0);
            SignalRecorder recorder(model);

            QCOMPARE(model.delDataItem(type, 1), true);
            QVERIFY(item.isNull() && below.isNull());
            QCOMPARE(tags(model, type), QString("a c d"));
            QCOMPARE(model.getDataItem(type, 1)->checkState(), 0); // As before.
            QCOMPARE(recorder.take(), told(type, "item_delete", 1));

            QCOMPARE(model.delDataItem(type, 0), true);
            QCOMPARE(recorder.take(), told(type, "item_delete", 0));
            QCOMPARE(model.delDataItem(type, 1), true);
            QCOMPARE(recorder.take(), told(type, "item_delete", 1));
            QCOMPARE(tags(model, type), QString("c"));
        }
    }

    void deletingWhatIsNotThereIsLogged_data()
    {
        const Rows<QString, int> add;
        add("right behind the end", "Audio", 2);
        add("greatest int", "Audio", INT_MAX);
        add("-2", "Audio", -2);
        add("smallest int", "Audio", INT_MIN);
        add("empty list", "Watermark", 0);
        add("unknown type", "Rotation", 0);
        add("unknown type, -1", "Rotation", -1);
        add("other letter case", "audio", 0);
        add("one more than the frame effects", "Effect", 4);
        add("one more than the types", "effect root", 13);
    }

    void deletingWhatIsNotThereIsLogged()
    {
        const auto [type, pos] = row<QString, int>();
        ZoEffectModel model;
        addTagged(model, "Audio", "a b");
        SignalRecorder recorder(model);

        QCOMPARE(model.delDataItem(type, pos), false);

        QCOMPARE(logcapture::takeEvents(), QList<int>{273});
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(tags(model, "Audio"), QString("a b"));
        QCOMPARE(rootOf(model)->childCount(), 13);
        QCOMPARE(model.childCount("Effect"), 4);
    }

    void typesAreDeletedThroughTheRoot()
    {
        ZoEffectModel model(QStringList{"Crop", "Subtitle", "Effect"});
        SignalRecorder recorder(model);

        for (const char* type : {"Crop", "Subtitle", "Blur"})
            QCOMPARE(model.delDataItem(type, -1), false);
        QCOMPARE(logcapture::takeEvents(), QList<int>());
        QCOMPARE(model.delDataItem("effect root", -1), false);
        QCOMPARE(logcapture::takeEvents(), QList<int>{270});
        QCOMPARE(childNames(rootOf(model)), QString("Crop Subtitle Effect"));
        QCOMPARE(model.childCount("Effect"), 4);
        QCOMPARE(recorder.take(), QStringList());

        QCOMPARE(model.delDataItem("effect root", 1), true);
        QCOMPARE(childNames(rootOf(model)), QString("Crop Effect"));
        QCOMPARE(recorder.take(), told("effect root", "item_delete", 1));
    }

    void itemWithoutParentIsNotDeleted()
    {
        ZoEffectModel model;
        auto* stray = new ZoEffectItemData("stray");
        model.getDataItem("Audio", -1)->appendChild(stray);
        model.getDataItem("Audio", -1)->appendChild(nullptr);
        SignalRecorder recorder(model);

        QCOMPARE(model.delDataItem("Audio", 0), false);
        QCOMPARE(logcapture::takeEvents(), QList<int>{270});
        QCOMPARE(model.delDataItem("Audio", 1), false); // A null entry.
        QCOMPARE(logcapture::takeEvents(), QList<int>{273});

        QCOMPARE(model.childCount("Audio"), 2);
        QCOMPARE(model.getDataItem("Audio", 0), stray);
        QCOMPARE(recorder.take(), QStringList());
    }

    void itemOfAnotherListIsNotDeleted()
    {
        ZoEffectModel model;
        addTagged(model, "Audio", "moved x y");
        addTagged(model, "Subtitle", "a");
        ZoEffectItemData* moved = model.getDataItem("Audio", -1)->takeAt(0);
        model.getDataItem("Subtitle", -1)->appendChild(moved);
        const std::unique_ptr<ZoEffectItemData> other(model.getDataItem("Audio", 1));
        SignalRecorder recorder(model);

        // The item names the list where it was created; what stands there at its position comes out and stays out.
        QCOMPARE(model.delDataItem("Subtitle", 1), false);
        QCOMPARE(tags(model, "Subtitle"), QString("a moved"));
        QCOMPARE(tags(model, "Audio"), QString("x"));
        QCOMPARE(other->data("tag").toString(), QString("y"));

        // Nothing stands there any more.
        QCOMPARE(model.delDataItem("Subtitle", 1), false);
        QCOMPARE(tags(model, "Subtitle"), QString("a moved"));
        QCOMPARE(recorder.take(), QStringList());
    }

    void listenerMayDeleteTheNextItem()
    {
        ZoEffectModel model;
        addTagged(model, "Audio", "a b c");
        QStringList seen;
        listen(model, [&](const QString& type) {
            seen << tags(model, type);
            if (model.childCount(type) > 0)
                model.delDataItem(type, 0);
        });

        QCOMPARE(model.delDataItem("Audio", 2), true);

        QCOMPARE(seen, (QStringList{"a b", "b", ""}));
    }

    void movedItemEndsAtItsDestination_data()
    {
        const Rows<int, int, QString> add;
        add("last to the front", 0, 3, "d a b c");
        add("first to the end", 3, 0, "b c d a");
        add("second to the front", 0, 1, "b a c d");
        add("first to the third place", 2, 0, "b c a d");
        add("last to the second place", 1, 3, "a d b c");
        add("third by one to the end", 3, 2, "a b d c");
    }

    void movedItemEndsAtItsDestination()
    {
        const auto [to, from, expected] = row<int, int, QString>();
        for (const char* type : {"Watermark", "Subtitle"}) {
            ZoEffectModel model;
            addTagged(model, type, "a b c d");
            SignalRecorder recorder(model);

            QCOMPARE(model.changeDataItemPos(type, to, from), true);

            QCOMPARE(tags(model, type), expected);
            QCOMPARE(recorder.take(), one(QString("effectDataChanged(%1, item_move, int %2, -1)").arg(type).arg(to)));
        }
    }

    void moveNotifiesEvenWhenNothingMoved_data()
    {
        const Rows<QString, int, int> add;
        add("to its own place", "Audio", 1, 1);
        add("behind the end", "Audio", 3, 0);
        add("from behind the end", "Audio", 0, 3);
        add("to a negative place", "Audio", -1, 0);
        add("from a negative place", "Audio", 0, -1);
        add("greatest int", "Audio", INT_MAX, INT_MIN);
        add("empty list", "Watermark", 0, 1);
        add("empty list, equal places", "Watermark", 0, 0);
    }

    void moveNotifiesEvenWhenNothingMoved()
    {
        const auto [type, to, from] = row<QString, int, int>();
        ZoEffectModel model;
        addTagged(model, "Audio", "a b c");
        SignalRecorder recorder(model);

        QCOMPARE(model.changeDataItemPos(type, to, from), false);

        QCOMPARE(tags(model, "Audio"), QString("a b c"));
        QCOMPARE(recorder.take(), one(QString("effectDataChanged(%1, item_move, int %2, -1)").arg(type).arg(to)));
    }

    void movingInAnUnknownTypeIsLogged()
    {
        ZoEffectModel model;
        SignalRecorder recorder(model);

        for (const char* type : {"Rotation", "AUDIO", ""})
            QCOMPARE(model.changeDataItemPos(type, 0, 1), false);

        QCOMPARE(logcapture::takeEvents(), (QList<int>{288, 288, 288}));
        QCOMPARE(recorder.take(), QStringList());
    }

    void frameEffectsAndTypesCanBeMoved()
    {
        ZoEffectModel model(QStringList{"Crop", "Effect", "Audio"});
        SignalRecorder recorder(model);

        QCOMPARE(model.changeDataItemPos("Effect", 0, 3), true);
        QCOMPARE(childNames(model.getDataItem("Effect", -1)), QString("Sepia Blur Sharpen Mirror"));
        QCOMPARE(model.changeDataItemPos("effect root", 2, 0), true);
        QCOMPARE(childNames(rootOf(model)), QString("Audio Effect Crop"));

        QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Effect, item_move, int 0, -1)",
                                               "effectDataChanged(effect root, item_move, int 2, -1)"}));
    }

    void listenerMayMoveBack()
    {
        ZoEffectModel model;
        addTagged(model, "Audio", "a b c");
        QStringList seen;
        listen(model, [&](const QString& type) {
            seen << tags(model, type);
            if (seen.size() == 1)
                model.changeDataItemPos(type, 0, 2);
        });

        QCOMPARE(model.changeDataItemPos("Audio", 2, 0), true);

        QCOMPARE(seen, (QStringList{"b c a", "a b c"}));
        QCOMPARE(tags(model, "Audio"), QString("a b c"));
    }

    void blockedSignalsStayBlocked()
    {
        ZoEffectModel model;
        SignalRecorder recorder(model);
        model.blockSignals(true);

        QCOMPARE(model.insertDataItem("Audio", {}, -1), true);
        QCOMPARE(model.addDataItemEx("Audio", {}, true), true);
        QCOMPARE(model.changeDataItemPos("Audio", 0, 1), true);
        QCOMPARE(model.delDataItem("Audio", 0), true);

        QCOMPARE(model.signalsBlocked(), true);
        QCOMPARE(recorder.take(), QStringList());
    }
};

ZOEFFECT_TEST_MAIN(TstModelItems)

#include "tst_model_items.moc"
