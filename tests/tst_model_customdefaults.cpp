// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Saving the settings of an item as its type's custom default, and laying custom defaults over items.

#include <climits>
#include <memory>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "modeltest.h"

namespace {

const QString watermark = QStringLiteral("Watermark");
const QString subtitle = QStringLiteral("Subtitle");
const QString color = QStringLiteral("Color");
const QString effect = QStringLiteral("Effect");

const QSize vga(640, 480);
const QSize unknown(0, 0);

/// What is saved for \a type, "none" when nothing is.
QString saved(const QString& type)
{
    const ZoEffectItemDefaultValMgr& store = *ZoEffectItemDefaultValMgr::getInstance();
    return store.hasCustomDefaultVal(type) ? described(store.getCustomDefaultVal(type)) : QString("none");
}

QStringList writes()
{
    return TestApplication::instance()->pref.takeWrites();
}

void save(const QString& type, const Properties& values)
{
    saveCustomDefault(type, values);
    writes();
}

/// A model of a video of this size.
struct Model : ZoEffectModel {
    explicit Model(const QSize& size = vga) { setVideoSize(size.width(), size.height()); }
};

void removeType(const ZoEffectModel& model, const QString& type)
{
    rootOf(model)->removeChildren(model.getDataItem(type, -1)->childNumber(), 1);
}

/// "12, 34", or "none" when the item has neither position.
QString place(const ZoEffectItemData& item)
{
    const QVariant x = item.data("wm_hposition");
    const QVariant y = item.data("wm_vposition");
    return x.isValid() || y.isValid() ? described(x) + ", " + described(y) : QString("none");
}

Properties factors(const QVariant& horizontal, const QVariant& vertical)
{
    return {{"wm_hposfactor", horizontal}, {"wm_vposfactor", vertical}};
}

Properties at(const QVariant& x, const QVariant& y)
{
    return {{"wm_hposition", x}, {"wm_vposition", y}};
}

/// A text watermark at (160, 120) with a value under each key that matters, and some that do not.
Properties textWatermark()
{
    return {{"wm_istextwatermark", true},    {"wm_textcontent", "text"},
            {"wm_transparency", 40},         {"wm_transfactor", 2.55},
            {"wm_fontname", QFont("Arial")}, {"wm_fontcolor", QColor(Qt::red)},
            {"wm_fontstyle", "Bold"},        {"wm_fontsize", 30},
            {"wm_imagekeepratio", false},    {"wm_imagewidth", 100},
            {"wm_hposition", 160},           {"wm_vposition", 120}};
}

Properties imageWatermark()
{
    return with(textWatermark(), {{"wm_istextwatermark", false}, {"wm_imageurl", "/picture.png"}});
}

Properties fileSubtitle()
{
    return {{"sub_fromfile", true},
            {"sub_transparency", 40},
            {"sub_transfactor", 2.55},
            {"sub_fontname", QFont("Arial")},
            {"sub_fontcolor", QColor("red")},
            {"sub_framecolor", QColor("blue")},
            {"sub_fontstyle", "Italic"},
            {"sub_linemargin", 5},
            {"sub_fontsize", 30},
            {"fontstyleusedefault", false},
            {"sub_vposition", 360},
            {"sub_hposition", 200},
            {"trackid", 3}};
}

Properties embeddedSubtitle()
{
    return with(fileSubtitle(), {{"sub_fromfile", false}});
}

const QString textStyle = QStringLiteral("wm_fontcolor: color #ffff0000, wm_fontname: font Arial, "
                                         "wm_fontsize: int 30, wm_fontstyle: string Bold");
const QString bareImage = QStringLiteral("{wm_imagekeepratio: invalid, wm_transparency: invalid}");
const QString bareText = QStringLiteral("{wm_fontcolor: invalid, wm_fontname: invalid, wm_fontsize: invalid, "
                                        "wm_fontstyle: invalid, wm_transparency: invalid}");
const QString bareEmbedded = QStringLiteral("{fontstyleusedefault: invalid, sub_fontcolor: invalid, "
                                            "sub_framecolor: invalid, sub_transparency: invalid}");
const QString bareFile = QStringLiteral("{sub_fontcolor: invalid, sub_fontname: invalid, sub_fontsize: invalid, "
                                        "sub_fontstyle: invalid, sub_linemargin: invalid, sub_transparency: invalid}");

QString bareImageWith(const char* x, const char* y)
{
    return QString("{wm_hposfactor: double %1, wm_imagekeepratio: invalid, wm_transparency: invalid, wm_vposfactor: "
                   "double %2}")
        .arg(x, y);
}

QString bareEmbeddedWith(const char* y)
{
    return bareEmbedded.chopped(1) + ", sub_vposfactor: double " + y + "}";
}

} // namespace

class TstModelCustomDefaults : public ModelTest {
    Q_OBJECT

private slots:
    // --- Saving

    void settingsOfAWatermark_data()
    {
        const Properties none;
        const Properties earlier{{"wm_transparency", 5},      {"wm_fontsize", 10},    {"wm_fontstyle", "Italic"},
                                 {"wm_imagekeepratio", true}, {"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.75},
                                 {"kept", "whatever it was"}};
        const auto kind = [](const QVariant& flag) { return Properties{{"wm_istextwatermark", flag}}; };
        addRows<Properties, Properties, QSize, QString>({
            {"text", textWatermark(), none, vga,
             "{" + textStyle + ", wm_hposfactor: double 0.25, wm_transparency: int 40, wm_vposfactor: double 0.25}"},
            {"image", imageWatermark(), none, vga,
             "{wm_hposfactor: double 0.25, wm_imagekeepratio: bool false, wm_transparency: int 40, "
             "wm_vposfactor: double 0.25}"},
            {"values in the item's own types", Properties{{"wm_transparency", "40"}, {"wm_imagekeepratio", 2.5}}, none,
             unknown, "{wm_imagekeepratio: double 2.5, wm_transparency: string 40}"},

            // What counts as text. Keys that the item lacks are saved as invalid values.
            {"no flag: image", none, none, unknown, bareImage},
            {"flag 0.4: image", kind(0.4), none, unknown, bareImage},
            {"flag NaN: image", kind(qQNaN()), none, unknown, bareImage},
            {"flag 1: text", kind(1), none, unknown, bareText},
            {"flag is any text: text", kind("no"), none, unknown, bareText},

            // The factors.
            {"height 0", at(1, 2), none, QSize(640, 0), bareImage},
            {"negative size", at(160, 120), none, QSize(-640, -480), bareImageWith("-0.25", "-0.25")},
            {"outside the frame", at(-30, 960), none, vga, bareImageWith("-0.046875", "2")},
            {"position with a fraction is rounded", at(159.5, -1.5), none, QSize(320, 2), bareImageWith("0.5", "-0.5")},
            {"no position", none, none, vga, bareImageWith("0", "0")},
            {"factors of the item play no part", factors(0.9, 0.9), none, unknown, bareImage},

            // What was saved earlier.
            {"text over earlier settings", textWatermark(), earlier, vga,
             "{kept: string whatever it was, " + textStyle
                 + ", wm_hposfactor: double 0.25, wm_imagekeepratio: bool true, wm_transparency: int 40, "
                   "wm_vposfactor: double 0.25}"},
            {"image over earlier settings, factors stay without a size", imageWatermark(), earlier, unknown,
             "{kept: string whatever it was, wm_fontsize: int 10, wm_fontstyle: string Italic, wm_hposfactor: double "
             "0.5, wm_imagekeepratio: bool false, wm_transparency: int 40, wm_vposfactor: double 0.75}"},
            {"missing keys overwrite earlier values", none,
             Properties{{"wm_transparency", 5}, {"wm_imagekeepratio", true}}, unknown, bareImage},
        });
    }

    void settingsOfAWatermark()
    {
        const auto [item, before, baseSize, after] = row<Properties, Properties, QSize, QString>();
        savedSettings(watermark, {{"wm_transparency", 99}}, item, before, baseSize, after);
    }

    void settingsOfASubtitle_data()
    {
        const Properties none;
        const Properties earlier{{"sub_transparency", 5},
                                 {"sub_fontsize", 10},
                                 {"sub_fontstyle", "Bold"},
                                 {"sub_vposfactor", 0.5},
                                 {"sub_framecolor", QColor("lime")},
                                 {"fontstyleusedefault", true},
                                 {"kept", 1}};
        const auto kind = [](const QVariant& flag) { return Properties{{"sub_fromfile", flag}}; };
        const auto above = [](const QVariant& y) { return Properties{{"sub_vposition", y}}; };
        addRows<Properties, Properties, QSize, QString>({
            {"from a file", fileSubtitle(), none, vga,
             "{sub_fontcolor: color #ffff0000, sub_fontname: font Arial, sub_fontsize: int 30, sub_fontstyle: string "
             "Italic, sub_linemargin: int 5, sub_transparency: int 40, sub_vposfactor: double 0.75}"},
            {"embedded", embeddedSubtitle(), none, vga,
             "{fontstyleusedefault: bool false, sub_fontcolor: color #ffff0000, sub_framecolor: color #ff0000ff, "
             "sub_transparency: int 40, sub_vposfactor: double 0.75}"},

            {"no flag: embedded", none, none, unknown, bareEmbedded},
            {"flag is the text FALSE: embedded", kind("FALSE"), none, unknown, bareEmbedded},
            {"flag is the text yes: from a file", kind("yes"), none, unknown, bareFile},

            // The base height alone decides about the factor.
            {"width 0 does not matter", above(120), none, QSize(0, 480), bareEmbeddedWith("0.25")},
            {"height 0: no factor", above(120), none, QSize(640, 0), bareEmbedded},
            {"negative height", above(120), none, QSize(640, -480), bareEmbeddedWith("-0.25")},
            {"position with a fraction is rounded", above(119.5), none, vga, bareEmbeddedWith("0.25")},
            {"the stored position, not the derived one", Properties{{"sub_vposfactor", 0.9}}, none, vga,
             bareEmbeddedWith("0")},

            {"file over earlier settings", fileSubtitle(), earlier, vga,
             "{fontstyleusedefault: bool true, kept: int 1, sub_fontcolor: color #ffff0000, sub_fontname: font Arial, "
             "sub_fontsize: int 30, sub_fontstyle: string Italic, sub_framecolor: color #ff00ff00, sub_linemargin: int "
             "5, sub_transparency: int 40, sub_vposfactor: double 0.75}"},
            {"embedded over earlier settings, the factor stays without a height", embeddedSubtitle(), earlier,
             QSize(640, 0),
             "{fontstyleusedefault: bool false, kept: int 1, sub_fontcolor: color #ffff0000, sub_fontsize: int 10, "
             "sub_fontstyle: string Bold, sub_framecolor: color #ff0000ff, sub_transparency: int 40, sub_vposfactor: "
             "double 0.5}"},
        });
    }

    void settingsOfASubtitle()
    {
        const auto [item, before, baseSize, after] = row<Properties, Properties, QSize, QString>();
        savedSettings(subtitle, {{"sub_transparency", 99}}, item, before, baseSize, after);
    }

    void settingsOfColor_data()
    {
        const Properties none;
        const Properties values{{"bcs_brightness", 10}, {"bcs_contrast", -20}, {"bcs_saturation", 30}};
        const QString expected = "{bcs_brightness: int 10, bcs_contrast: int -20, bcs_saturation: int 30}";
        addRows<Properties, Properties, QString>({
            {"type node's values", values, none, expected},
            {"untouched", none, none, "{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}"},
            {"own types", Properties{{"bcs_brightness", "10"}, {"bcs_contrast", 0.5}}, none,
             "{bcs_brightness: string 10, bcs_contrast: double 0.5, bcs_saturation: int 0}"},
            {"neither other keys nor earlier settings", with(values, Properties{{"bcs_gamma", 1}}),
             Properties{{"bcs_brightness", 1}, {"bcs_gamma", 2}, {"kept", 3}}, expected},
        });
    }

    void settingsOfColor()
    {
        const auto [values, before, expected] = row<Properties, Properties, QString>();
        Model model;
        ZoEffectItemData* type = model.getDataItem(color, -1);
        addItem(type, {{"bcs_brightness", 99}});
        for (auto it = values.cbegin(); it != values.cend(); ++it)
            type->setData(it.key(), it.value());
        if (!before.isEmpty())
            save(color, before);
        for (const int index : {-1, 0, 7, -9}) {
            model.saveAsCustomDefault(color, index);
            QCOMPARE(saved(color), expected);
        }

        type->delData("bcs_contrast");
        model.saveAsCustomDefault(color, -1);
        QVERIFY(!ZoEffectModel::customDefaultVal("bcs_contrast", color).isValid());
        QVERIFY(saved(color).contains("bcs_contrast"));
    }

    void frameEffects()
    {
        Model model;
        ZoEffectItemData* type = model.getDataItem(effect, -1);
        save(effect, {{"Effect", "A|true"}, {"earlier", 1}});
        type->child(0)->setCheckState(1);
        type->child(1)->setCheckState(2);
        for (const int index : {-1, 1, 44}) {
            model.saveAsCustomDefault(effect, index);
            QCOMPARE(saved(effect), QString("{Effect: string Blur|false|Sharpen|true|Mirror|false|Sepia|false}"));
        }
        type->removeChildren(1, 3);
        type->appendChild(nullptr);
        model.saveAsCustomDefault(effect, -1);
        QCOMPARE(logcapture::takeEvents(), QList<int>{1553});
        QCOMPARE(saved(effect), QString("{Effect: string Blur|false}"));
        type->clear();
        model.saveAsCustomDefault(effect, -1);
        QCOMPARE(saved(effect), QString("{Effect: string }"));
    }

    // Deliberate: what is missing is logged for some types only.
    void whatIsNotThereSavesNothing_data()
    {
        addRows<QString, bool, int, QList<int>>({
            {"watermark, -1", watermark, true, -1, {}},
            {"watermark below -1", watermark, true, -2, {}},
            {"watermark behind the last", watermark, true, 2, {}},
            {"watermark, null entry", watermark, true, 1, {}},
            {"no watermark type, -1", watermark, false, -1, {}},
            {"no watermark type, 0", watermark, false, 0, {1451}},
            {"no watermark type, below -1", watermark, false, -2, {1451}},
            {"subtitle, -1", subtitle, true, -1, {1514}},
            {"subtitle below -1", subtitle, true, -2, {1514}},
            {"subtitle behind the last", subtitle, true, INT_MAX, {1514}},
            {"subtitle, null entry", subtitle, true, 1, {1514}},
            {"no subtitle type, 0", subtitle, false, 0, {}},
            {"no subtitle type, -1", subtitle, false, -1, {}},
            {"no colour", color, false, -1, {1467}},
            {"no colour, 3", color, false, 3, {1467}},
            {"no frame effects", effect, false, -1, {1559}},
            {"other type", "Crop", true, 0, {}},
            {"other type, -1", "Audio_Echo", true, -1, {}},
            {"root", "effect root", true, 0, {}},
            {"frame effect", "Blur", true, 0, {}},
            {"other letter case", "watermark", true, 0, {}},
            {"unknown type", "Unknown", true, 0, {}},
            {"empty type", "", true, 0, {}},
        });
    }

    void whatIsNotThereSavesNothing()
    {
        const auto [type, hasType, index, events] = row<QString, bool, int, QList<int>>();
        Model model;
        if (!hasType) {
            removeType(model, type);
        } else if (ZoEffectItemData* node = model.getDataItem(type, -1)) {
            addItem(node, with(textWatermark(), fileSubtitle()));
            node->appendChild(nullptr);
        }
        model.saveAsCustomDefault(type, index);
        QCOMPARE(logcapture::takeEvents(), events);
        QCOMPARE(saved(type), QString("none"));

        save(type, {{"kept", 7}});
        model.saveAsCustomDefault(type, index);
        QCOMPARE(logcapture::takeEvents(), events);
        QCOMPARE(saved(type), QString("{kept: int 7}"));
        QCOMPARE(writes(), QStringList());
    }

    void savingWritesTheWholeMapOnce()
    {
        Model model;
        addItem(model, watermark, imageWatermark());
        addItem(model, subtitle, embeddedSubtitle());
        const QString before = tree(rootOf(model));
        SignalRecorder recorder(model);
        const QStringList written{"Color = map {bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}, "
                                  "notify false"};
        for (int times = 0; times < 2; ++times) { // Also when nothing changed.
            model.saveAsCustomDefault(color, 0);
            QCOMPARE(writes(), written);
        }
        for (const QString& type : {watermark, subtitle, effect}) {
            model.saveAsCustomDefault(type, 0);
            QCOMPARE(writes(), QStringList(type + " = map " + saved(type) + ", notify false"));
            model.removeCustomDefault(type);
            writes();
        }
        QCOMPARE(tree(rootOf(model)), before);
        QCOMPARE(recorder.take(), QStringList());
    }

    void textThenImageKeepsTheFont()
    {
        Model model(unknown);
        addItem(model, watermark, textWatermark());
        addItem(model, watermark, with(imageWatermark(), {{"wm_transparency", 70}}));
        model.saveAsCustomDefault(watermark, 0);
        QCOMPARE(saved(watermark), "{" + textStyle + ", wm_transparency: int 40}");
        model.saveAsCustomDefault(watermark, 1);
        QCOMPARE(saved(watermark), "{" + textStyle + ", wm_imagekeepratio: bool false, wm_transparency: int 70}");
    }

    void fileThenEmbeddedSubtitleKeepsTheFont()
    {
        Model model;
        addItem(model, subtitle, fileSubtitle());
        addItem(model, subtitle, with(embeddedSubtitle(), {{"sub_fontcolor", QColor("lime")}, {"sub_vposition", 240}}));
        model.saveAsCustomDefault(subtitle, 0);
        model.saveAsCustomDefault(subtitle, 1);
        QCOMPARE(saved(subtitle),
                 QString("{fontstyleusedefault: bool false, sub_fontcolor: color #ff00ff00, sub_fontname: font Arial, "
                         "sub_fontsize: int 30, sub_fontstyle: string Italic, sub_framecolor: color #ff0000ff, "
                         "sub_linemargin: int 5, sub_transparency: int 40, sub_vposfactor: double 0.5}"));
    }

    // --- Asking and forgetting

    void customValueKeyComesFirst()
    {
        save(color, {{"bcs_contrast", 5}});
        save("bcs_contrast", {{"Color", 6}});
        QCOMPARE(described(ZoEffectModel::customDefaultVal("bcs_contrast", "Color")), QString("int 5"));
        QCOMPARE(described(ZoEffectModel::customDefaultVal("Color", "bcs_contrast")), QString("int 6"));
    }

    void askingAndForgetting()
    {
        ZoEffectModel model;
        save(watermark, {{"a", QColor(Qt::blue)}});
        save(subtitle, {});
        QCOMPARE(described(ZoEffectModel::customDefaultVal("a", watermark)), QString("color #ff0000ff"));
        QVERIFY(!ZoEffectModel::customDefaultVal("a", subtitle).isValid());
        QVERIFY(model.hasCustomDefault(watermark));
        QVERIFY(model.hasCustomDefault(subtitle)); // An empty map counts, too.
        QVERIFY(!model.hasCustomDefault("watermark"));
        for (const char* type : {"Watermark", "Watermark", "subtitle"}) // Only the first is there to remove.
            model.removeCustomDefault(type);
        QCOMPARE(writes(), QStringList("Watermark = invalid, notify false"));
        QVERIFY(!model.hasCustomDefault(watermark));
        QVERIFY(model.hasCustomDefault(subtitle));
    }

    // --- Applying

    void nullItemIsLogged()
    {
        ZoEffectModel model;
        for (const QString& type : {watermark, subtitle, color, QString("Audio"), QString("Unknown")}) {
            save(type, {{"wm_transparency", 1}});
            for (const bool direct : {false, true}) {
                model.getCustomDefaultVal(nullptr, type, direct);
                QCOMPARE(logcapture::takeEvents(), QList<int>{829});
            }
        }
        QVERIFY(!rootOf(model)->hasData("editbydefault"));
    }

    void nothingSavedChangesNothing()
    {
        Model model;
        ZoEffectItemData* item = addItem(model, watermark, with(textWatermark(), fileSubtitle()));
        const QString before = tree(rootOf(model));
        for (const QString& type : {watermark, subtitle, color, effect, QString("Unknown")}) {
            for (const bool direct : {false, true}) {
                model.getCustomDefaultVal(item, type, direct);
                save(type, {});
                model.getCustomDefaultVal(item, type, direct);
                QCOMPARE(tree(rootOf(model)), before);
            }
        }
    }

    void propertiesOfWatermarksAndSubtitles_data()
    {
        const Properties none;
        const Properties text{{"wm_istextwatermark", true}};
        const Properties image{{"wm_istextwatermark", false}, {"wm_fontsize", 22}, {"wm_transparency", 0}};
        const Properties style{{"wm_transparency", 40},         {"wm_fontsize", 30},
                               {"wm_fontname", QFont("Arial")}, {"wm_fontcolor", QColor(Qt::red)},
                               {"wm_fontstyle", "Bold"},        {"wm_imagekeepratio", false}};
        const Properties file{{"sub_fromfile", true}, {"sub_fontsize", 22}, {"sub_vposition", 100}};
        const Properties embedded{{"sub_fromfile", false}, {"sub_fontsize", 22}, {"sub_vposition", 100}};
        const Properties subtitleStyle{{"sub_transparency", 40}, {"sub_fontsize", 30}, {"sub_vposfactor", 0.75}};
        addRows<QString, Properties, Properties, QString>({
            {"text takes every key", watermark, text, style,
             "{" + textStyle
                 + ", wm_imagekeepratio: bool false, wm_istextwatermark: bool true, wm_transparency: int 40}"},
            {"image takes the transparency only", watermark, image, style,
             "{wm_fontsize: int 22, wm_istextwatermark: bool false, wm_transparency: int 40}"},
            {"no flag: image", watermark, none, style, "{wm_transparency: int 40}"},
            {"flag is a text: text", watermark, Properties{{"wm_istextwatermark", "yes"}},
             Properties{{"wm_fontsize", 1}}, "{wm_fontsize: int 1, wm_istextwatermark: string yes}"},
            {"image, saved transparency is invalid", watermark, image, Properties{{"wm_transparency", QVariant()}},
             "{wm_fontsize: int 22, wm_istextwatermark: bool false, wm_transparency: invalid}"},
            {"any key goes to a text", watermark, text,
             Properties{{"anything", QVariant()}, {"_checkstate", false}, {"wm_hposition", 7}},
             "{_checkstate: bool false, anything: invalid, wm_hposition: int 7, wm_istextwatermark: bool true}"},
            {"text: its kind is that from before", watermark, text, Properties{{"wm_istextwatermark", false}, {"z", 1}},
             "{wm_istextwatermark: bool false, z: int 1}"},
            {"an image does not become a text", watermark, image, Properties{{"wm_istextwatermark", true}},
             "{wm_fontsize: int 22, wm_istextwatermark: bool false, wm_transparency: int 0}"},
            {"text: the factors are not written, and win over a saved position", watermark, text,
             with(factors(0.5, 0.25), at(7, 8)),
             "{wm_hposition: int 320, wm_istextwatermark: bool true, wm_vposition: int 120}"},
            {"text: a lone factor is not written, either", watermark, text,
             Properties{{"wm_hposfactor", 0.5}, {"z", 1}}, "{wm_istextwatermark: bool true, z: int 1}"},
            {"image: factors of the item stay", watermark, factors(0.125, 0.25), factors(0.5, 0.25),
             "{wm_hposfactor: double 0.125, wm_hposition: int 320, wm_vposfactor: double 0.25, wm_vposition: int 120}"},

            {"file takes every key, the factor too", subtitle, file, subtitleStyle,
             "{sub_fontsize: int 30, sub_fromfile: bool true, sub_transparency: int 40, sub_vposfactor: double 0.75, "
             "sub_vposition: int 100}"},
            {"embedded takes the transparency only", subtitle, embedded, subtitleStyle,
             "{sub_fontsize: int 22, sub_fromfile: bool false, sub_transparency: int 40, sub_vposition: int 100}"},
            {"no flag: embedded", subtitle, none, subtitleStyle, "{sub_transparency: int 40}"},
            {"embedded, saved transparency is invalid", subtitle, none, Properties{{"sub_transparency", QVariant()}},
             "{sub_transparency: invalid}"},
            {"file: its kind is that from before", subtitle, Properties{{"sub_fromfile", true}},
             Properties{{"_checkstate", 0}, {"sub_fromfile", false}, {"sub_vposition", 5}},
             "{_checkstate: int 0, sub_fromfile: bool false, sub_vposition: int 5}"},
        });
    }

    void propertiesOfWatermarksAndSubtitles()
    {
        const auto [type, item, custom, after] = row<QString, Properties, Properties, QString>();
        save(type, custom);
        Model model;
        SignalRecorder recorder(model);
        for (const bool direct : {false, true}) {
            ZoEffectItemData* node = addItem(model, type, item);
            model.getCustomDefaultVal(node, type, direct);
            QCOMPARE(described(node->properties()), after);
            QCOMPARE(node->checkState(), 2);
            model.getDataItem(type, -1)->clear();
        }
        QVERIFY(!rootOf(model)->hasData("editbydefault"));
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(writes(), QStringList());
    }

    void positionFromFactors_data()
    {
        const QString kept = "int 30, int 40";
        addRows<QSize, Properties, QString>({
            {"width for x, height for y", QSize(1000, 10), factors(0.5, 0.5), "int 500, int 5"},
            {"zero", vga, factors(0.0, 0.0), "int 0, int 0"},
            {"truncated, not rounded", QSize(641, 489), factors(0.1, -0.1), "int 64, int -48"},
            {"product just below a whole number", QSize(100, 100), factors(0.29, 0.57), "int 28, int 56"},
            {"beyond the frame", vga, factors(1.5, 2.0), "int 960, int 960"},
            {"negative size", QSize(-641, -489), factors(0.1, -0.1), "int -64, int 48"},
            {"width 0", QSize(0, 480), factors(0.5, 0.25), "int 0, int 120"},
            {"factors of other types", vga, factors("0.5", 1), "int 320, int 480"},
            {"factors that are no numbers", vga, factors("abc", QVariant()), "int 0, int 0"},
            {"huge factors", vga, factors(1e10, -qInf()), "int 2147483647, int -2147483648"},
            {"NaN", vga, factors(qQNaN(), qQNaN()), "int 0, int 0"},
            {"no factors", vga, Properties{{"wm_transparency", 1}}, kept},
            {"horizontal factor alone", vga, Properties{{"wm_hposfactor", 0.5}}, kept},
            {"vertical factor alone", vga, Properties{{"wm_vposfactor", 0.5}}, kept},
        });
    }

    void positionFromFactors()
    {
        const auto [baseSize, custom, expected] = row<QSize, Properties, QString>();
        save(watermark, custom);
        Model model(baseSize);
        for (const bool isText : {false, true}) {
            for (const bool direct : {false, true}) {
                ZoEffectItemData* item = addItem(model, watermark, with(at(30, 40), {{"wm_istextwatermark", isText}}));
                model.getCustomDefaultVal(item, watermark, direct);
                QCOMPARE(place(*item), expected);
                model.getDataItem(watermark, -1)->clear();
            }
        }
    }

    void positionBesideOthers_data()
    {
        // The saved place is (160, 120), the tested point (162, 122). Each letter is another watermark: f far away, o
        // over the place, h and p over it but unchecked and partially checked, n a null entry.
        addRows<QString, bool>({
            {"alone", "", true},
            {"one, elsewhere: odd", "f", false},
            {"one, over the place", "o", false},
            {"two, elsewhere", "ff", true},
            {"two, the first over the place", "of", false},
            {"two, the second over the place: not looked at", "fo", true},
            {"three, elsewhere: odd", "fff", false},
            {"four, the third over the place", "ffof", false},
            {"four, the second and fourth over the place", "fofo", true},
            {"six, the fifth over the place", "ffffof", false},
            {"two that are not shown", "hp", true},
            {"one shown, one not", "hf", false},
            {"one that is not shown does not count in the walk", "hfo", true},
            {"one that is not shown brings the next one to its turn", "fhfo", false},
            {"null entry", "n", true},
            {"null entry does not count in the walk", "nfo", true},
            {"null entry between two", "onf", false},
        });
    }

    void positionBesideOthers()
    {
        const auto [others, applied] = row<QString, bool>();
        save(watermark, factors(0.25, 0.25));
        for (int place1 = 0; place1 <= others.size(); ++place1) { // Wherever the item stands among the others.
            Model model;
            ZoEffectItemData* type = model.getDataItem(watermark, -1);
            for (const QChar& kind : others) {
                if (kind == 'n')
                    type->appendChild(nullptr);
                else
                    addItem(type,
                            with(kind == 'f' ? at(400, 400) : at(100, 100),
                                 {{"wm_imagewidth", 200}, {"wm_imageheight", 200}}),
                            kind == 'h'   ? 0
                            : kind == 'p' ? 1
                                          : 2);
            }
            auto* item = new ZoEffectItemData(QString(), type, place1);
            // The item itself would cover the place: it is no obstacle.
            const Properties own = with(at(30, 40), {{"wm_imagewidth", 640}, {"wm_imageheight", 480}});
            for (auto it = own.cbegin(); it != own.cend(); ++it)
                item->setData(it.key(), it.value());

            model.getCustomDefaultVal(item, watermark, false);
            QCOMPARE(place(*item), QString(applied ? "int 160, int 120" : "int 30, int 40"));
            model.getCustomDefaultVal(item, watermark, true);
            QCOMPARE(place(*item), QString("int 160, int 120"));
        }
    }

    void rectangleAgainstThePoint_data()
    {
        // The tested point is (162, 122), two right of and below the saved place. More in tst_watermarkplacement.
        addRows<QVariant, QVariant, QVariant, QVariant, bool>({
            {"the one pixel", 162, 122, 1, 1, true},
            {"the place itself, but not the point", 160, 120, 2, 2, false},
            {"no size: 30 wide, but no row", 150, 122, 0, 0, false},
            {"no width, one row: not 30 wide", 150, 122, 0, 1, false},
            {"size not told", 150, 122, QVariant(), QVariant(), false},
            {"values as text", "150", "110", "50", "50", true},
            {"position not told", QVariant(), QVariant(), 163, 123, true},
        });
    }

    void rectangleAgainstThePoint()
    {
        const auto [x, y, width, height, contains] = row<QVariant, QVariant, QVariant, QVariant, bool>();
        save(watermark, factors(0.25, 0.25));
        Model model;
        ZoEffectItemData* other = addItem(model, watermark, at(x, y));
        if (width.isValid())
            other->setData("wm_imagewidth", width);
        if (height.isValid())
            other->setData("wm_imageheight", height);
        addItem(model, watermark, at(400, 400));
        ZoEffectItemData* item = addItem(model, watermark);
        model.getCustomDefaultVal(item, watermark, false);
        QCOMPARE(place(*item), QString(contains ? "none" : "int 160, int 120"));
    }

    void watermarkOutsideAList()
    {
        save(watermark, factors(0.25, 0.25));
        Model model;

        // Without parent it counts as alone.
        ZoEffectItemData free{QString()};
        model.getCustomDefaultVal(&free, watermark, false);
        QCOMPARE(place(free), QString("int 160, int 120"));

        // Taken out, its parent's list is looked at all the same: with one child, it counts as alone.
        ZoEffectItemData* type = model.getDataItem(watermark, -1);
        addItem(type, {{"wm_imagewidth", 640}, {"wm_imageheight", 480}});
        addItem(type);
        const std::unique_ptr<ZoEffectItemData> taken(type->takeAt(1));
        model.getCustomDefaultVal(taken.get(), watermark, false);
        QCOMPARE(place(*taken), QString("int 160, int 120"));

        // With two children it is tested against both.
        addItem(type);
        taken->delData("wm_hposition");
        taken->delData("wm_vposition");
        model.getCustomDefaultVal(taken.get(), watermark, false);
        QCOMPARE(place(*taken), QString("none"));

        // The type node itself stands among the other type nodes: thirteen, so an even number of others.
        model.getCustomDefaultVal(type, watermark, false);
        QCOMPARE(place(*type), QString("int 160, int 120"));
    }

    void otherPropertiesAreTakenWhereThePlaceIsNot()
    {
        save(watermark, with(factors(0.25, 0.25), with(at(7, 8), {{"wm_transparency", 40}})));
        Model model;
        addItem(model, watermark);
        ZoEffectItemData* text = addItem(model, watermark, {{"wm_istextwatermark", true}});
        model.getCustomDefaultVal(text, watermark, false);
        QCOMPARE(place(*text), QString("int 7, int 8"));
        model.getDataItem(watermark, -1)->removeChildren(1, 1);
        ZoEffectItemData* image = addItem(model, watermark, at(30, 40));
        model.getCustomDefaultVal(image, watermark, false);
        QCOMPARE(described(image->properties()),
                 QString("{wm_hposition: int 30, wm_transparency: int 40, wm_vposition: int 40}"));
    }

    void savedPositionOnAnotherVideo()
    {
        const auto carried = [](const QSize& savedAt, const QPoint& from, const QSize& appliedAt) {
            Model model(savedAt);
            addItem(model, watermark, at(from.x(), from.y()));
            model.saveAsCustomDefault(watermark, 0);
            Model other(appliedAt);
            ZoEffectItemData* item = addItem(other, watermark);
            other.getCustomDefaultVal(item, watermark, false);
            return place(*item);
        };
        QCOMPARE(carried(vga, QPoint(-31, 961), QSize(320, 240)), QString("int -15, int 480"));
        QCOMPARE(carried(vga, QPoint(213, 117), vga), QString("int 213, int 117"));
        QCOMPARE(carried(QSize(1920, 1080), QPoint(123, 39), QSize(1920, 1080)),
                 QString("int 122, int 38")); // One lost.
        QCOMPARE(carried(vga, QPoint(100, 50), unknown), QString("int 0, int 0"));
    }

    // The type decides, not the item.
    void otherTypeTakesEverything()
    {
        Model model;
        SignalRecorder recorder(model);
        for (const char* type : {"Color", "Effect", "Crop", "Audio_Speed", "effect root", "watermark", "Unknown", ""}) {
            save(type, {{"bcs_contrast", 5},
                        {"wm_hposfactor", 0.5},
                        {"wm_vposfactor", 0.5},
                        {"sub_transparency", QVariant()},
                        {"_checkstate", false}});
            for (const bool direct : {false, true}) {
                ZoEffectItemData* item = addItem(model, watermark, {{"bcs_contrast", 1}, {"own", 2}});
                model.resetEditByDefaultFlag();
                model.getCustomDefaultVal(item, type, direct);
                QCOMPARE(described(item->properties()),
                         QString("{_checkstate: bool false, bcs_contrast: int 5, own: int 2, sub_transparency: "
                                 "invalid, wm_hposfactor: double 0.5, wm_vposfactor: double 0.5}"));
                QCOMPARE(item->checkState(), 2);
                QCOMPARE(described(rootOf(model)->properties()),
                         QString("{editbydefault: bool true, h: int 480, w: int 640}"));
                item->setData("bcs_contrast", 6); // A copy of what is saved.
            }
        }
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(writes(), QStringList());

        model.resetEditByDefaultFlag();
        save(watermark, {{"wm_transparency", 40}, {"wm_fontsize", 30}});
        ZoEffectItemData* colorNode = model.getDataItem(color, -1);
        model.getCustomDefaultVal(colorNode, watermark, false);
        QCOMPARE(chosen(colorNode, {"wm_transparency", "wm_fontsize"}), QString("{wm_transparency: int 40}"));
        QVERIFY(!model.editByDefault());
    }

    void flagIsSetBeforeAndStays()
    {
        // Laid over the root itself, a saved value of that name comes last.
        ZoEffectModel model;
        save(color, {{"editbydefault", "no"}});
        model.getCustomDefaultVal(rootOf(model), color, false);
        QCOMPARE(described(rootOf(model)->data("editbydefault")), QString("string no"));

        // Watermarks and subtitles neither set nor clear it.
        save(watermark, {{"wm_transparency", 40}});
        save(subtitle, {{"sub_transparency", 40}});
        ZoEffectItemData item{QString()};
        model.getCustomDefaultVal(&item, color, false);
        model.getCustomDefaultVal(&item, watermark, false);
        model.getCustomDefaultVal(&item, subtitle, false);
        QVERIFY(model.editByDefault());
        model.resetEditByDefaultFlag();
        QCOMPARE(described(rootOf(model)->data("editbydefault")), QString("bool false"));
    }

private:
    /// Saves the second of two items, which is not selected, and compares what is kept.
    void savedSettings(const QString& type, const Properties& first, const Properties& item, const Properties& before,
                       const QSize& baseSize, const QString& after)
    {
        Model model(baseSize);
        if (!before.isEmpty())
            save(type, before);
        addItem(model, type, first);
        addItem(model, type, item, 0);
        addItem(model, type, first);
        model.saveAsCustomDefault(type, 1);
        QCOMPARE(saved(type), after);
    }
};

ZOEFFECT_TEST_MAIN(TstModelCustomDefaults)
#include "tst_model_customdefaults.moc"
