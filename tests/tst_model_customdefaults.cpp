// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Saving the settings of an item as its type's custom default, and laying custom defaults over items.

#include <climits>
#include <memory>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

using Properties = QMap<QString, QVariant>;

/// A watermark beside the one that is looked at.
struct Other {
    QVariant x;
    QVariant y;
    QVariant width;
    QVariant height;
    int checkState = 2;
    bool null = false;
};
using Others = QVector<Other>;

Q_DECLARE_METATYPE(Other)

namespace {

const QString watermark = QStringLiteral("Watermark");
const QString subtitle = QStringLiteral("Subtitle");
const QString color = QStringLiteral("Color");
const QString effect = QStringLiteral("Effect");

ZoEffectItemDefaultValMgr& store()
{
    return *ZoEffectItemDefaultValMgr::getInstance();
}

/// What is saved for \a type, "none" when nothing is.
QString saved(const QString& type)
{
    return store().hasCustomDefaultVal(type) ? described(store().getCustomDefaultVal(type)) : QStringLiteral("none");
}

void save(const QString& type, const Properties& values)
{
    store().saveAsCustomDefaultVal(type, values);
    TestApplication::instance()->pref.takeWrites();
}

QStringList writes()
{
    return TestApplication::instance()->pref.takeWrites();
}

ZoEffectItemData* root(const ZoEffectModel& model)
{
    return model.getDataItem(QStringLiteral("effect root"), -1);
}

/// Takes a type out of \a model.
void removeType(const ZoEffectModel& model, const QString& type)
{
    const int row = model.getDataItem(type, -1)->childNumber();
    root(model)->removeChildren(row, 1);
}

/// An item under \a parent with \a values and nothing else.
ZoEffectItemData* addItem(ZoEffectItemData* parent, const Properties& values)
{
    auto* item = new ZoEffectItemData(QString(), parent);
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        item->setData(it.key(), it.value());
    return item;
}

ZoEffectItemData* addItem(const ZoEffectModel& model, const QString& type, const Properties& values)
{
    return addItem(model.getDataItem(type, -1), values);
}

/// "12, 34", or "none" when the item has neither position.
QString place(const ZoEffectItemData& item)
{
    const QVariant x = item.data(QStringLiteral("wm_hposition"));
    const QVariant y = item.data(QStringLiteral("wm_vposition"));
    if (!x.isValid() && !y.isValid())
        return QStringLiteral("none");
    return described(x) + QStringLiteral(", ") + described(y);
}

Properties factors(const QVariant& horizontal, const QVariant& vertical)
{
    return {{"wm_hposfactor", horizontal}, {"wm_vposfactor", vertical}};
}

Properties joined(Properties first, const Properties& second)
{
    for (auto it = second.cbegin(); it != second.cend(); ++it)
        first.insert(it.key(), it.value());
    return first;
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
    return joined(textWatermark(), {{"wm_istextwatermark", false}, {"wm_imageurl", "/picture.png"}});
}

Properties fileSubtitle()
{
    return {{"sub_fromfile", true},
            {"sub_transparency", 40},
            {"sub_transfactor", 2.55},
            {"sub_fontname", QFont("Arial")},
            {"sub_fontcolor", QColor(Qt::red)},
            {"sub_framecolor", QColor(Qt::blue)},
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
    return joined(fileSubtitle(), {{"sub_fromfile", false}});
}

const QString textStyle = QStringLiteral("wm_fontcolor: color #ffff0000, wm_fontname: font Arial, "
                                         "wm_fontsize: int 30, wm_fontstyle: string Bold");

} // namespace

class TstModelCustomDefaults : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // Saving
    void settingsOfAWatermark_data();
    void settingsOfAWatermark();
    void watermarkThatIsNotThere_data();
    void watermarkThatIsNotThere();
    void settingsOfASubtitle_data();
    void settingsOfASubtitle();
    void subtitleThatIsNotThere_data();
    void subtitleThatIsNotThere();
    void settingsOfColor_data();
    void settingsOfColor();
    void missingColorIsLogged();
    void frameEffects_data();
    void frameEffects();
    void missingFrameEffectsSaveNothing();
    void frameEffectsWithANullEntry();
    void otherTypesSaveNothing_data();
    void otherTypesSaveNothing();
    void savingWritesTheWholeMapOnce_data();
    void savingWritesTheWholeMapOnce();
    void firstSaveMakesTheTypeSupported();
    void textThenImageKeepsTheFont();
    void imageThenTextKeepsTheRatioFlag();
    void fileThenEmbeddedSubtitleKeepsTheFont();
    void savingLeavesTheTreeAlone();
    void savingSendsNothing();

    // Asking and forgetting
    void customValueKeyComesFirst();
    void customValue_data();
    void customValue();
    void customValueNeedsNoModel();
    void hasCustomDefaultTakesTheExactName();
    void removingForgetsAndClears();
    void removingWhatIsNotThereWritesNothing();

    // Applying
    void nullItemIsLogged_data();
    void nullItemIsLogged();
    void nothingSavedChangesNothing_data();
    void nothingSavedChangesNothing();
    void watermarkProperties_data();
    void watermarkProperties();
    void positionFromFactors_data();
    void positionFromFactors();
    void positionBesideOthers_data();
    void positionBesideOthers();
    void rectangleAgainstThePoint_data();
    void rectangleAgainstThePoint();
    void watermarkOutsideAList();
    void imageWatermarkLooksAtOthersToo();
    void keptPositionIsThatOfTheSavedMap();
    void savedPositionOnAnotherVideo_data();
    void savedPositionOnAnotherVideo();
    void subtitleProperties_data();
    void subtitleProperties();
    void otherTypeTakesEverything_data();
    void otherTypeTakesEverything();
    void typeDecidesNotTheItem();
    void flagIsSetBeforeAndStays();
    void modelBuiltWithACustomDefault_data();
    void modelBuiltWithACustomDefault();
    void appliedValuesAreCopies();
    void applyingSendsAndLogsNothing_data();
    void applyingSendsAndLogsNothing();
};

void TstModelCustomDefaults::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstModelCustomDefaults::cleanup()
{
    forgetCustomDefaults(); // While types of own names, which a registration drops, are still listed.
}

// --- Saving ---------------------------------------------------------------------------------------------------

void TstModelCustomDefaults::settingsOfAWatermark_data()
{
    QTest::addColumn<Properties>("item");
    QTest::addColumn<Properties>("before");
    QTest::addColumn<QSize>("baseSize");
    QTest::addColumn<QString>("after");

    const QSize vga(640, 480);
    const QSize unknown(0, 0);
    const Properties none;
    const Properties earlier{{"wm_transparency", 5},      {"wm_fontsize", 10},    {"wm_fontstyle", "Italic"},
                             {"wm_imagekeepratio", true}, {"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.75},
                             {"kept", "whatever it was"}};

    QTest::newRow("text") << textWatermark() << none << vga
                          << "{" + textStyle
                                 + ", wm_hposfactor: double 0.25, wm_transparency: int 40, wm_vposfactor: double 0.25}";
    QTest::newRow("image") << imageWatermark() << none << vga
                           << "{wm_hposfactor: double 0.25, wm_imagekeepratio: bool false, wm_transparency: int 40, "
                              "wm_vposfactor: double 0.25}";

    // What counts as text.
    const Properties bare{{"wm_transparency", 1}, {"wm_imagekeepratio", true}};
    const QString asImage = QStringLiteral("{wm_imagekeepratio: bool true, wm_transparency: int 1}");
    const QString asText = QStringLiteral("{wm_fontcolor: invalid, wm_fontname: invalid, wm_fontsize: invalid, "
                                          "wm_fontstyle: invalid, wm_transparency: int 1}");
    const auto kind = [&](const QVariant& flag) { return joined(bare, {{"wm_istextwatermark", flag}}); };
    QTest::newRow("no flag: image") << bare << none << unknown << asImage;
    QTest::newRow("flag 0: image") << kind(0) << none << unknown << asImage;
    QTest::newRow("flag is the text false: image") << kind("false") << none << unknown << asImage;
    QTest::newRow("flag is an empty text: image") << kind("") << none << unknown << asImage;
    QTest::newRow("flag 0.4: image") << kind(0.4) << none << unknown << asImage;
    QTest::newRow("flag NaN: image") << kind(qQNaN()) << none << unknown << asImage;
    QTest::newRow("flag 1: text") << kind(1) << none << unknown << asText;
    QTest::newRow("flag is the text true: text") << kind("true") << none << unknown << asText;
    QTest::newRow("flag is any text: text") << kind("no") << none << unknown << asText;

    // Keys that the item lacks are saved as invalid values.
    QTest::newRow("bare image") << none << none << unknown << "{wm_imagekeepratio: invalid, wm_transparency: invalid}";
    QTest::newRow("bare image, size known")
        << none << none << vga
        << "{wm_hposfactor: double 0, wm_imagekeepratio: invalid, wm_transparency: invalid, wm_vposfactor: double 0}";

    // Values keep their types.
    QTest::newRow("values in the item's own types")
        << Properties{{"wm_transparency", "40"}, {"wm_imagekeepratio", 2.5}} << none << unknown
        << "{wm_imagekeepratio: double 2.5, wm_transparency: string 40}";

    // The base size.
    const QString withoutFactors = QStringLiteral("{wm_imagekeepratio: bool false, wm_transparency: int 40}");
    QTest::newRow("size not set") << imageWatermark() << none << unknown << withoutFactors;
    QTest::newRow("width 0") << imageWatermark() << none << QSize(0, 480) << withoutFactors;
    QTest::newRow("height 0") << imageWatermark() << none << QSize(640, 0) << withoutFactors;
    QTest::newRow("negative size") << imageWatermark() << none << QSize(-640, -480)
                                   << "{wm_hposfactor: double -0.25, wm_imagekeepratio: bool false, wm_transparency: "
                                      "int 40, wm_vposfactor: double -0.25}";

    // The factors.
    const auto at = [](const QVariant& x, const QVariant& y) {
        return Properties{{"wm_hposition", x}, {"wm_vposition", y}};
    };
    const auto savedFactors = [](const char* x, const char* y) {
        return QStringLiteral("{wm_hposfactor: double %1, wm_imagekeepratio: invalid, wm_transparency: invalid, "
                              "wm_vposfactor: double %2}")
            .arg(QLatin1String(x), QLatin1String(y));
    };
    QTest::newRow("a third") << at(100, 200) << none << QSize(300, 300)
                             << savedFactors("0.33333333333333331", "0.66666666666666663");
    QTest::newRow("quotient, not an integer division")
        << at(1, 3) << none << QSize(4, 4) << savedFactors("0.25", "0.75");
    QTest::newRow("left of and above the frame")
        << at(-30, -15) << none << vga << savedFactors("-0.046875", "-0.03125");
    QTest::newRow("beyond the frame") << at(1280, 960) << none << vga << savedFactors("2", "2");
    QTest::newRow("position as text") << at("320", "abc") << none << vga << savedFactors("0.5", "0");
    QTest::newRow("position with a fraction is rounded")
        << at(159.5, -1.5) << none << QSize(320, 2) << savedFactors("0.5", "-0.5");
    QTest::newRow("no position") << none << none << vga << savedFactors("0", "0");
    QTest::newRow("factors of the item play no part")
        << factors(0.9, 0.9) << none << unknown << "{wm_imagekeepratio: invalid, wm_transparency: invalid}";

    // What was saved earlier.
    QTest::newRow("text over earlier settings")
        << textWatermark() << earlier << vga
        << "{kept: string whatever it was, " + textStyle
               + ", wm_hposfactor: double 0.25, wm_imagekeepratio: bool true, wm_transparency: int 40, "
                 "wm_vposfactor: double 0.25}";
    QTest::newRow("image over earlier settings")
        << imageWatermark() << earlier << vga
        << "{kept: string whatever it was, wm_fontsize: int 10, wm_fontstyle: string Italic, wm_hposfactor: double "
           "0.25, wm_imagekeepratio: bool false, wm_transparency: int 40, wm_vposfactor: double 0.25}";
    QTest::newRow("earlier factors stay without a size")
        << imageWatermark() << earlier << unknown
        << "{kept: string whatever it was, wm_fontsize: int 10, wm_fontstyle: string Italic, wm_hposfactor: double "
           "0.5, wm_imagekeepratio: bool false, wm_transparency: int 40, wm_vposfactor: double 0.75}";
    QTest::newRow("missing keys overwrite earlier values")
        << none << Properties{{"wm_transparency", 5}, {"wm_imagekeepratio", true}} << unknown
        << "{wm_imagekeepratio: invalid, wm_transparency: invalid}";
}

void TstModelCustomDefaults::settingsOfAWatermark()
{
    QFETCH(Properties, item);
    QFETCH(Properties, before);
    QFETCH(QSize, baseSize);
    if (!before.isEmpty())
        save(watermark, before);
    ZoEffectModel model;
    model.setVideoSize(baseSize.width(), baseSize.height());
    addItem(model, watermark, {{"wm_transparency", 99}});
    addItem(model, watermark, item)->setCheckState(0); // Selection plays no part.
    addItem(model, watermark, {{"wm_transparency", 98}});

    model.saveAsCustomDefault(watermark, 1);

    QTEST(saved(watermark), "after");
    QCOMPARE(logcapture::takeEvents(), QList<int>{});
}

void TstModelCustomDefaults::watermarkThatIsNotThere_data()
{
    QTest::addColumn<bool>("hasType");
    QTest::addColumn<int>("index");
    QTest::addColumn<QList<int>>("events");

    QTest::newRow("-1") << true << -1 << QList<int>{};
    QTest::newRow("below -1") << true << -2 << QList<int>{};
    QTest::newRow("behind the last") << true << 2 << QList<int>{};
    QTest::newRow("far behind the last") << true << INT_MAX << QList<int>{};
    QTest::newRow("null entry") << true << 1 << QList<int>{};
    QTest::newRow("no type, -1") << false << -1 << QList<int>{};
    QTest::newRow("no type, 0") << false << 0 << QList<int>{1451};
    QTest::newRow("no type, below -1") << false << -2 << QList<int>{1451};
}

void TstModelCustomDefaults::watermarkThatIsNotThere()
{
    QFETCH(bool, hasType);
    QFETCH(int, index);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    if (hasType) {
        addItem(model, watermark, textWatermark());
        model.getDataItem(watermark, -1)->appendChild(nullptr);
    } else {
        removeType(model, watermark);
    }

    model.saveAsCustomDefault(watermark, index);
    QTEST(logcapture::takeEvents(), "events");
    QCOMPARE(saved(watermark), QString("none"));
    QCOMPARE(writes(), QStringList());

    save(watermark, {{"wm_transparency", 7}});
    model.saveAsCustomDefault(watermark, index);
    QTEST(logcapture::takeEvents(), "events");
    QCOMPARE(saved(watermark), QString("{wm_transparency: int 7}"));
    QCOMPARE(writes(), QStringList());
}

void TstModelCustomDefaults::settingsOfASubtitle_data()
{
    QTest::addColumn<Properties>("item");
    QTest::addColumn<Properties>("before");
    QTest::addColumn<QSize>("baseSize");
    QTest::addColumn<QString>("after");

    const QSize vga(640, 480);
    const QSize unknown(0, 0);
    const Properties none;
    const Properties earlier{{"sub_transparency", 5},
                             {"sub_fontsize", 10},
                             {"sub_fontstyle", "Bold"},
                             {"sub_vposfactor", 0.5},
                             {"sub_framecolor", QColor(Qt::green)},
                             {"fontstyleusedefault", true},
                             {"kept", 1}};

    QTest::newRow("from a file") << fileSubtitle() << none << vga
                                 << "{sub_fontcolor: color #ffff0000, sub_fontname: font Arial, sub_fontsize: int 30, "
                                    "sub_fontstyle: string Italic, sub_linemargin: int 5, sub_transparency: int 40, "
                                    "sub_vposfactor: double 0.75}";
    QTest::newRow("embedded") << embeddedSubtitle() << none << vga
                              << "{fontstyleusedefault: bool false, sub_fontcolor: color #ffff0000, sub_framecolor: "
                                 "color #ff0000ff, sub_transparency: int 40, sub_vposfactor: double 0.75}";

    // What counts as from a file.
    const Properties bare{{"sub_transparency", 1}};
    const QString asEmbedded = QStringLiteral("{fontstyleusedefault: invalid, sub_fontcolor: invalid, sub_framecolor: "
                                              "invalid, sub_transparency: int 1}");
    const QString asFile = QStringLiteral("{sub_fontcolor: invalid, sub_fontname: invalid, sub_fontsize: invalid, "
                                          "sub_fontstyle: invalid, sub_linemargin: invalid, sub_transparency: int 1}");
    const auto kind = [&](const QVariant& flag) { return joined(bare, {{"sub_fromfile", flag}}); };
    QTest::newRow("no flag: embedded") << bare << none << unknown << asEmbedded;
    QTest::newRow("flag 0: embedded") << kind(0) << none << unknown << asEmbedded;
    QTest::newRow("flag is the text FALSE: embedded") << kind("FALSE") << none << unknown << asEmbedded;
    QTest::newRow("flag 2: from a file") << kind(2) << none << unknown << asFile;
    QTest::newRow("flag is the text yes: from a file") << kind("yes") << none << unknown << asFile;
    QTest::newRow("bare") << none << none << unknown
                          << "{fontstyleusedefault: invalid, sub_fontcolor: invalid, sub_framecolor: invalid, "
                             "sub_transparency: invalid}";

    // The base height alone decides about the factor.
    const auto factor = [](const char* value) {
        return QStringLiteral("{fontstyleusedefault: invalid, sub_fontcolor: invalid, sub_framecolor: invalid, "
                              "sub_transparency: invalid, sub_vposfactor: double %1}")
            .arg(QLatin1String(value));
    };
    const auto at = [](const QVariant& y) { return Properties{{"sub_vposition", y}}; };
    QTest::newRow("width 0 does not matter") << at(120) << none << QSize(0, 480) << factor("0.25");
    QTest::newRow("height 0: no factor") << at(120) << none << QSize(640, 0)
                                         << "{fontstyleusedefault: invalid, sub_fontcolor: invalid, sub_framecolor: "
                                            "invalid, sub_transparency: invalid}";
    QTest::newRow("negative height") << at(120) << none << QSize(640, -480) << factor("-0.25");
    QTest::newRow("a third") << at(100) << none << QSize(640, 300) << factor("0.33333333333333331");
    QTest::newRow("negative position") << at(-15) << none << vga << factor("-0.03125");
    QTest::newRow("position as text") << at("240") << none << vga << factor("0.5");
    QTest::newRow("position with a fraction is rounded") << at(119.5) << none << vga << factor("0.25");
    QTest::newRow("no position: the stored one, not the derived one") << none << none << vga << factor("0");
    QTest::newRow("factor of the item plays no part")
        << Properties{{"sub_vposfactor", 0.9}} << none << vga << factor("0");

    // What was saved earlier.
    QTest::newRow("file over earlier settings")
        << fileSubtitle() << earlier << vga
        << "{fontstyleusedefault: bool true, kept: int 1, sub_fontcolor: color #ffff0000, sub_fontname: font Arial, "
           "sub_fontsize: int 30, sub_fontstyle: string Italic, sub_framecolor: color #ff00ff00, sub_linemargin: int "
           "5, sub_transparency: int 40, sub_vposfactor: double 0.75}";
    QTest::newRow("embedded over earlier settings")
        << embeddedSubtitle() << earlier << vga
        << "{fontstyleusedefault: bool false, kept: int 1, sub_fontcolor: color #ffff0000, sub_fontsize: int 10, "
           "sub_fontstyle: string Bold, sub_framecolor: color #ff0000ff, sub_transparency: int 40, sub_vposfactor: "
           "double 0.75}";
    QTest::newRow("earlier factor stays without a height")
        << embeddedSubtitle() << Properties{{"sub_vposfactor", 0.5}} << QSize(640, 0)
        << "{fontstyleusedefault: bool false, sub_fontcolor: color #ffff0000, sub_framecolor: color #ff0000ff, "
           "sub_transparency: int 40, sub_vposfactor: double 0.5}";
}

void TstModelCustomDefaults::settingsOfASubtitle()
{
    QFETCH(Properties, item);
    QFETCH(Properties, before);
    QFETCH(QSize, baseSize);
    ZoEffectModel model;
    if (!before.isEmpty())
        save(subtitle, before);
    model.setVideoSize(baseSize.width(), baseSize.height());
    addItem(model, subtitle, {{"sub_transparency", 99}});
    addItem(model, subtitle, item)->setCheckState(0); // Selection plays no part.

    model.saveAsCustomDefault(subtitle, 1);

    QTEST(saved(subtitle), "after");
    QCOMPARE(logcapture::takeEvents(), QList<int>{});
}

void TstModelCustomDefaults::subtitleThatIsNotThere_data()
{
    QTest::addColumn<bool>("hasType");
    QTest::addColumn<int>("index");
    QTest::addColumn<QList<int>>("events");

    QTest::newRow("-1") << true << -1 << QList<int>{1514};
    QTest::newRow("below -1") << true << -2 << QList<int>{1514};
    QTest::newRow("behind the last") << true << 2 << QList<int>{1514};
    QTest::newRow("null entry") << true << 1 << QList<int>{1514};
    QTest::newRow("no type, 0") << false << 0 << QList<int>{};
    QTest::newRow("no type, -1") << false << -1 << QList<int>{};
}

void TstModelCustomDefaults::subtitleThatIsNotThere()
{
    QFETCH(bool, hasType);
    QFETCH(int, index);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    if (hasType) {
        addItem(model, subtitle, fileSubtitle());
        model.getDataItem(subtitle, -1)->appendChild(nullptr);
    } else {
        removeType(model, subtitle);
    }

    model.saveAsCustomDefault(subtitle, index);
    QTEST(logcapture::takeEvents(), "events");
    QCOMPARE(saved(subtitle), QString("none"));
    QCOMPARE(writes(), QStringList());

    save(subtitle, {{"sub_transparency", 7}});
    model.saveAsCustomDefault(subtitle, index);
    QTEST(logcapture::takeEvents(), "events");
    QCOMPARE(saved(subtitle), QString("{sub_transparency: int 7}"));
    QCOMPARE(writes(), QStringList());
}

void TstModelCustomDefaults::settingsOfColor_data()
{
    QTest::addColumn<Properties>("values");
    QTest::addColumn<Properties>("before");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("after");

    const Properties none;
    const Properties values{{"bcs_brightness", 10}, {"bcs_contrast", -20}, {"bcs_saturation", 30}};
    const QString expected = QStringLiteral("{bcs_brightness: int 10, bcs_contrast: int -20, bcs_saturation: int 30}");
    QTest::newRow("type node's values") << values << none << -1 << expected;
    QTest::newRow("index 0") << values << none << 0 << expected;
    QTest::newRow("index 7") << values << none << 7 << expected;
    QTest::newRow("index -9") << values << none << -9 << expected;
    QTest::newRow("untouched") << none << none << -1
                               << "{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}";
    QTest::newRow("other keys are not saved") << joined(values, {{"bcs_gamma", 1}}) << none << -1 << expected;
    QTest::newRow("own types") << Properties{{"bcs_brightness", "10"}, {"bcs_contrast", 0.5}} << none << -1
                               << "{bcs_brightness: string 10, bcs_contrast: double 0.5, bcs_saturation: int 0}";
    QTest::newRow("earlier settings do not stay")
        << values << Properties{{"bcs_brightness", 1}, {"bcs_gamma", 2}, {"kept", 3}} << -1 << expected;
}

void TstModelCustomDefaults::settingsOfColor()
{
    QFETCH(Properties, values);
    QFETCH(Properties, before);
    QFETCH(int, index);
    ZoEffectModel model;
    addItem(model, color, {{"bcs_brightness", 99}});
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        model.getDataItem(color, -1)->setData(it.key(), it.value());
    if (!before.isEmpty())
        save(color, before);

    model.saveAsCustomDefault(color, index);

    QTEST(saved(color), "after");
    QCOMPARE(logcapture::takeEvents(), QList<int>{});

    model.getDataItem(color, -1)->delData("bcs_contrast");
    model.saveAsCustomDefault(color, index);
    QVERIFY(!ZoEffectModel::customDefaultVal("bcs_contrast", color).isValid());
    QVERIFY(store().getCustomDefaultVal(color).contains("bcs_contrast"));
}

void TstModelCustomDefaults::missingColorIsLogged()
{
    ZoEffectModel model;
    removeType(model, color);
    for (const int index : {-1, 0, 3}) {
        model.saveAsCustomDefault(color, index);
        QCOMPARE(logcapture::takeEvents(), QList<int>{1467});
    }
    QCOMPARE(saved(color), QString("none"));

    save(color, {{"bcs_contrast", 5}});
    model.saveAsCustomDefault(color, -1);
    QCOMPARE(logcapture::takeEvents(), QList<int>{1467});
    QCOMPARE(saved(color), QString("{bcs_contrast: int 5}"));
    QCOMPARE(writes(), QStringList());
}

void TstModelCustomDefaults::frameEffects_data()
{
    QTest::addColumn<QList<int>>("states");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("after");

    QTest::newRow("all off") << QList<int>{0, 0, 0, 0} << -1
                             << "{Effect: string Blur|false|Sharpen|false|Mirror|false|Sepia|false}";
    QTest::newRow("some on") << QList<int>{2, 0, 0, 2} << -1
                             << "{Effect: string Blur|true|Sharpen|false|Mirror|false|Sepia|true}";
    QTest::newRow("only state 2 is on") << QList<int>{1, 2, -1, 3} << -1
                                        << "{Effect: string Blur|false|Sharpen|true|Mirror|false|Sepia|false}";
    QTest::newRow("index of an effect") << QList<int>{2, 0, 0, 0} << 1
                                        << "{Effect: string Blur|true|Sharpen|false|Mirror|false|Sepia|false}";
    QTest::newRow("index of none") << QList<int>{2, 0, 0, 0} << 44
                                   << "{Effect: string Blur|true|Sharpen|false|Mirror|false|Sepia|false}";
    QTest::newRow("no effects left") << QList<int>{} << -1 << "{Effect: string }";
}

void TstModelCustomDefaults::frameEffects()
{
    QFETCH(QList<int>, states);
    QFETCH(int, index);
    ZoEffectModel model;
    ZoEffectItemData* typeNode = model.getDataItem(effect, -1);
    const int kept = int(states.size());
    typeNode->removeChildren(kept, typeNode->childCount() - kept);
    for (int i = 0; i < kept; ++i)
        typeNode->child(i)->setCheckState(states.at(i));
    save(effect, {{"Effect", "A|true"}, {"earlier", 1}});

    model.saveAsCustomDefault(effect, index);

    QTEST(saved(effect), "after");
    QCOMPARE(logcapture::takeEvents(), QList<int>{});
}

void TstModelCustomDefaults::missingFrameEffectsSaveNothing()
{
    ZoEffectModel model;
    removeType(model, effect);
    model.saveAsCustomDefault(effect, -1);
    QCOMPARE(logcapture::takeEvents(), QList<int>{1559});
    QCOMPARE(saved(effect), QString("none"));
    QCOMPARE(writes(), QStringList());

    save(effect, {{"Effect", "A|true"}});
    model.saveAsCustomDefault(effect, 0);
    QCOMPARE(logcapture::takeEvents(), QList<int>{1559});
    QCOMPARE(saved(effect), QString("{Effect: string A|true}"));
}

void TstModelCustomDefaults::frameEffectsWithANullEntry()
{
    ZoEffectModel model;
    ZoEffectItemData* typeNode = model.getDataItem(effect, -1);
    typeNode->removeChildren(1, 3);
    typeNode->appendChild(nullptr);
    model.saveAsCustomDefault(effect, -1);
    QCOMPARE(logcapture::takeEvents(), QList<int>{1553});
    QCOMPARE(saved(effect), QString("{Effect: string Blur|false}"));
}

void TstModelCustomDefaults::otherTypesSaveNothing_data()
{
    QTest::addColumn<QString>("type");

    for (const char* type : {"Crop", "Audio", "Audio_Fade_Inout", "Audio_Echo", "Audio_Speed", "effect root", "Blur",
                             "watermark", "WATERMARK", "subtitle", "color", "effect", "Unknown"})
        QTest::newRow(type) << type;
    QTest::newRow("empty") << QString();
}

void TstModelCustomDefaults::otherTypesSaveNothing()
{
    QFETCH(QString, type);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    if (model.getDataItem(type, -1))
        addItem(model, type, {{"crop_left", 1}, {"play_loop", true}});
    for (const int index : {-1, 0, 1})
        model.saveAsCustomDefault(type, index);
    QVERIFY(!model.hasCustomDefault(type));
    QCOMPARE(writes(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>{});

    save(type, {{"kept", 1}});
    model.saveAsCustomDefault(type, 0);
    QCOMPARE(saved(type), QString("{kept: int 1}"));
    QCOMPARE(writes(), QStringList());
}

void TstModelCustomDefaults::savingWritesTheWholeMapOnce_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("written");

    QTest::newRow("watermark") << watermark
                               << "Watermark = map {wm_hposfactor: double 0.25, wm_imagekeepratio: bool false, "
                                  "wm_transparency: int 40, wm_vposfactor: double 0.25}, notify false";
    QTest::newRow("subtitle") << subtitle
                              << "Subtitle = map {fontstyleusedefault: bool false, sub_fontcolor: color #ffff0000, "
                                 "sub_framecolor: color #ff0000ff, sub_transparency: int 40, sub_vposfactor: double "
                                 "0.75}, notify false";
    QTest::newRow("color") << color
                           << "Color = map {bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}, "
                              "notify false";
    QTest::newRow("frame effects") << effect
                                   << "Effect = map {Effect: string Blur|false|Sharpen|false|Mirror|false|Sepia|"
                                      "false}, notify false";
}

void TstModelCustomDefaults::savingWritesTheWholeMapOnce()
{
    QFETCH(QString, type);
    QFETCH(QString, written);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addItem(model, watermark, imageWatermark());
    addItem(model, subtitle, embeddedSubtitle());

    model.saveAsCustomDefault(type, 0);
    QCOMPARE(writes(), QStringList(written));
    model.saveAsCustomDefault(type, 0); // Also when nothing changed.
    QCOMPARE(writes(), QStringList(written));
}

void TstModelCustomDefaults::firstSaveMakesTheTypeSupported()
{
    ZoEffectModel model;
    const auto timesListed = [] { return ZoEffectItemDefaultValMgr::supportTypes().count(color); };
    QCOMPARE(int(timesListed()), 1);
    model.saveAsCustomDefault(color, -1);
    QCOMPARE(int(timesListed()), 2);
    model.saveAsCustomDefault(color, -1);
    QCOMPARE(int(timesListed()), 2);
}

void TstModelCustomDefaults::textThenImageKeepsTheFont()
{
    ZoEffectModel model;
    addItem(model, watermark, textWatermark());
    addItem(model, watermark, joined(imageWatermark(), {{"wm_transparency", 70}}));

    model.saveAsCustomDefault(watermark, 0);
    QCOMPARE(saved(watermark), "{" + textStyle + ", wm_transparency: int 40}");
    model.saveAsCustomDefault(watermark, 1);
    QCOMPARE(saved(watermark), "{" + textStyle + ", wm_imagekeepratio: bool false, wm_transparency: int 70}");
}

void TstModelCustomDefaults::imageThenTextKeepsTheRatioFlag()
{
    ZoEffectModel model;
    addItem(model, watermark, imageWatermark());
    addItem(model, watermark, joined(textWatermark(), {{"wm_imagekeepratio", true}}));

    model.saveAsCustomDefault(watermark, 0);
    QCOMPARE(saved(watermark), QString("{wm_imagekeepratio: bool false, wm_transparency: int 40}"));
    model.saveAsCustomDefault(watermark, 1);
    QCOMPARE(saved(watermark), "{" + textStyle + ", wm_imagekeepratio: bool false, wm_transparency: int 40}");
}

void TstModelCustomDefaults::fileThenEmbeddedSubtitleKeepsTheFont()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addItem(model, subtitle, fileSubtitle());
    addItem(model, subtitle,
            joined(embeddedSubtitle(), {{"sub_fontcolor", QColor(Qt::green)}, {"sub_vposition", 240}}));

    model.saveAsCustomDefault(subtitle, 0);
    model.saveAsCustomDefault(subtitle, 1);
    QCOMPARE(saved(subtitle),
             QString("{fontstyleusedefault: bool false, sub_fontcolor: color #ff00ff00, sub_fontname: font Arial, "
                     "sub_fontsize: int 30, sub_fontstyle: string Italic, sub_framecolor: color #ff0000ff, "
                     "sub_linemargin: int 5, sub_transparency: int 40, sub_vposfactor: double 0.5}"));
}

void TstModelCustomDefaults::savingLeavesTheTreeAlone()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    const ZoEffectItemData* text = addItem(model, watermark, textWatermark());
    const ZoEffectItemData* track = addItem(model, subtitle, fileSubtitle());
    const QString colorBefore = described(model.getDataItem(color, -1)->properties());

    model.saveAsCustomDefault(watermark, 0);
    model.saveAsCustomDefault(subtitle, 0);
    model.saveAsCustomDefault(color, -1);
    model.saveAsCustomDefault(effect, -1);

    QCOMPARE(described(text->properties()), described(textWatermark()));
    QCOMPARE(described(track->properties()), described(fileSubtitle()));
    QCOMPARE(described(model.getDataItem(color, -1)->properties()), colorBefore);
    QCOMPARE(described(root(model)->properties()), QString("{h: int 480, w: int 640}"));
    QVERIFY(!model.editByDefault());
}

void TstModelCustomDefaults::savingSendsNothing()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addItem(model, watermark, textWatermark());
    addItem(model, subtitle, fileSubtitle());
    SignalRecorder recorder(model);

    for (const QString& type : {watermark, subtitle, color, effect, QStringLiteral("Crop")}) {
        for (const int index : {-1, 0, 1})
            model.saveAsCustomDefault(type, index);
        model.removeCustomDefault(type);
    }
    QCOMPARE(recorder.take(), QStringList());
}

// --- Asking and forgetting ------------------------------------------------------------------------------------

void TstModelCustomDefaults::customValueKeyComesFirst()
{
    save(color, {{"bcs_contrast", 5}});
    save("bcs_contrast", {{"Color", 6}});
    QCOMPARE(described(ZoEffectModel::customDefaultVal("bcs_contrast", "Color")), QString("int 5"));
    QCOMPARE(described(ZoEffectModel::customDefaultVal("Color", "bcs_contrast")), QString("int 6"));
}

void TstModelCustomDefaults::customValue_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");

    QTest::newRow("int") << "a" << watermark << "int 5";
    QTest::newRow("double") << "b" << watermark << "double 0.25";
    QTest::newRow("colour") << "c" << watermark << "color #ff0000ff";
    QTest::newRow("font") << "d" << watermark << "font Tahoma";
    QTest::newRow("text") << "e" << watermark << "string 5";
    QTest::newRow("bool") << "f" << watermark << "bool false";
    QTest::newRow("saved invalid value") << "g" << watermark << "invalid";
    QTest::newRow("key not saved") << "wm_fontsize" << watermark << "invalid";
    QTest::newRow("key in another case") << "A" << watermark << "invalid";
    QTest::newRow("type in another case") << "a"
                                          << "watermark"
                                          << "invalid";
    QTest::newRow("type without custom default") << "bcs_contrast" << color << "invalid";
    QTest::newRow("type with an empty custom default") << "a" << subtitle << "invalid";
    QTest::newRow("unknown type") << "a"
                                  << "Unknown"
                                  << "invalid";
    QTest::newRow("type that is not registered") << "a"
                                                 << "Own type"
                                                 << "int 1";
}

void TstModelCustomDefaults::customValue()
{
    save(watermark, {{"a", 5},
                     {"b", 0.25},
                     {"c", QColor(Qt::blue)},
                     {"d", QFont("Tahoma")},
                     {"e", "5"},
                     {"f", false},
                     {"g", QVariant()}});
    save(subtitle, {});
    save("Own type", {{"a", 1}});
    QFETCH(QString, key);
    QFETCH(QString, type);
    QTEST(described(ZoEffectModel::customDefaultVal(key, type)), "value");
    QCOMPARE(writes(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>{});
}

void TstModelCustomDefaults::customValueNeedsNoModel()
{
    {
        ZoEffectModel model;
        model.getDataItem(color, -1)->setData("bcs_contrast", 12);
        model.saveAsCustomDefault(color, -1);
    }
    QCOMPARE(described(ZoEffectModel::customDefaultVal("bcs_contrast", color)), QString("int 12"));
    const ZoEffectModel later;
    QVERIFY(later.hasCustomDefault(color));
    QCOMPARE(described(later.data("bcs_contrast", color, -1)), QString("int 12"));
}

void TstModelCustomDefaults::hasCustomDefaultTakesTheExactName()
{
    const ZoEffectModel model;
    QVERIFY(!model.hasCustomDefault(watermark));
    save(watermark, {{"a", 1}});
    save(subtitle, {});
    save("Own type", {{"a", 1}});
    QVERIFY(model.hasCustomDefault(watermark));
    QVERIFY(model.hasCustomDefault(subtitle)); // An empty map counts until the process ends.
    QVERIFY(model.hasCustomDefault("Own type"));
    QVERIFY(!model.hasCustomDefault("watermark"));
    QVERIFY(!model.hasCustomDefault("Watermark "));
    QVERIFY(!model.hasCustomDefault(QString()));
    QVERIFY(!model.hasCustomDefault(color));
}

void TstModelCustomDefaults::removingForgetsAndClears()
{
    ZoEffectModel model;
    save(watermark, {{"a", 1}});
    save(color, {{"bcs_contrast", 2}});

    model.removeCustomDefault(watermark);
    QCOMPARE(writes(), QStringList("Watermark = invalid, notify false"));
    QVERIFY(!model.hasCustomDefault(watermark));
    QVERIFY(!ZoEffectModel::customDefaultVal("a", watermark).isValid());
    QCOMPARE(saved(color), QString("{bcs_contrast: int 2}"));

    model.removeCustomDefault(watermark);
    QCOMPARE(writes(), QStringList());
}

void TstModelCustomDefaults::removingWhatIsNotThereWritesNothing()
{
    ZoEffectModel model;
    save(watermark, {{"a", 1}});
    for (const char* type : {"watermark", "Color", "", "Unknown"})
        model.removeCustomDefault(type);
    QCOMPARE(writes(), QStringList());
    QCOMPARE(saved(watermark), QString("{a: int 1}"));
    QCOMPARE(logcapture::takeEvents(), QList<int>{});
}

// --- Applying -------------------------------------------------------------------------------------------------

void TstModelCustomDefaults::nullItemIsLogged_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("direct");

    QTest::newRow("watermark") << watermark << false;
    QTest::newRow("watermark, direct") << watermark << true;
    QTest::newRow("subtitle") << subtitle << false;
    QTest::newRow("color") << color << false;
    QTest::newRow("type without custom default") << "Audio" << false;
    QTest::newRow("unknown type") << "Unknown" << false;
}

void TstModelCustomDefaults::nullItemIsLogged()
{
    save(watermark, {{"wm_transparency", 1}});
    save(subtitle, {{"sub_transparency", 1}});
    ZoEffectModel model;
    save(color, {{"bcs_contrast", 1}});
    QFETCH(QString, type);
    QFETCH(bool, direct);

    model.getCustomDefaultVal(nullptr, type, direct);
    QCOMPARE(logcapture::takeEvents(), QList<int>{829});
    QVERIFY(!root(model)->hasData("editbydefault"));
}

void TstModelCustomDefaults::nothingSavedChangesNothing_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("emptyMap");

    for (const QString& type : {watermark, subtitle, color, effect, QStringLiteral("Unknown")}) {
        QTest::newRow(qPrintable(type + ", nothing saved")) << type << false;
        QTest::newRow(qPrintable(type + ", empty map saved")) << type << true;
    }
}

void TstModelCustomDefaults::nothingSavedChangesNothing()
{
    QFETCH(QString, type);
    QFETCH(bool, emptyMap);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    ZoEffectItemData* item = addItem(model, watermark, joined(textWatermark(), fileSubtitle()));
    const QString before = described(item->properties());
    if (emptyMap)
        save(type, {});

    for (const bool direct : {false, true}) {
        model.getCustomDefaultVal(item, type, direct);
        QCOMPARE(described(item->properties()), before);
        QVERIFY(!root(model)->hasData("editbydefault"));
        QCOMPARE(logcapture::takeEvents(), QList<int>{});
    }
}

void TstModelCustomDefaults::watermarkProperties_data()
{
    QTest::addColumn<Properties>("item");
    QTest::addColumn<Properties>("custom");
    QTest::addColumn<QString>("after");

    const Properties none;
    const Properties text{{"wm_istextwatermark", true}, {"wm_fontsize", 22}, {"wm_transparency", 0}};
    const Properties image{{"wm_istextwatermark", false}, {"wm_fontsize", 22}, {"wm_transparency", 0}};
    const Properties style{{"wm_transparency", 40},           {"wm_fontsize", 30},      {"wm_fontname", QFont("Arial")},
                           {"wm_fontcolor", QColor(Qt::red)}, {"wm_fontstyle", "Bold"}, {"wm_imagekeepratio", false}};

    QTest::newRow("text takes every key")
        << text << style
        << "{wm_fontcolor: color #ffff0000, wm_fontname: font Arial, wm_fontsize: int 30, wm_fontstyle: string Bold, "
           "wm_imagekeepratio: bool false, wm_istextwatermark: bool true, wm_transparency: int 40}";
    QTest::newRow("image takes the transparency only")
        << image << style << "{wm_fontsize: int 22, wm_istextwatermark: bool false, wm_transparency: int 40}";
    QTest::newRow("no flag: image") << none << style << "{wm_transparency: int 40}";
    QTest::newRow("flag is a text: text") << Properties{{"wm_istextwatermark", "yes"}} << Properties{{"wm_fontsize", 1}}
                                          << "{wm_fontsize: int 1, wm_istextwatermark: string yes}";
    QTest::newRow("flag 0.4: image") << Properties{{"wm_istextwatermark", 0.4}} << Properties{{"wm_fontsize", 1}}
                                     << "{wm_istextwatermark: double 0.40000000000000002}";
    QTest::newRow("image, transparency not saved")
        << image << Properties{{"wm_fontsize", 30}}
        << "{wm_fontsize: int 22, wm_istextwatermark: bool false, wm_transparency: int 0}";
    QTest::newRow("image, saved transparency is invalid")
        << image << Properties{{"wm_transparency", QVariant()}}
        << "{wm_fontsize: int 22, wm_istextwatermark: bool false, wm_transparency: invalid}";
    QTest::newRow("text, saved values are invalid")
        << text << Properties{{"wm_fontsize", QVariant()}, {"wm_transparency", QVariant()}}
        << "{wm_fontsize: invalid, wm_istextwatermark: bool true, wm_transparency: invalid}";
    QTest::newRow("unknown keys go to a text")
        << Properties{{"wm_istextwatermark", true}} << Properties{{"anything", 1}, {"crop_left", 2}}
        << "{anything: int 1, crop_left: int 2, wm_istextwatermark: bool true}";
    QTest::newRow("the check state is an ordinary key")
        << Properties{{"wm_istextwatermark", true}} << Properties{{"_checkstate", false}}
        << "{_checkstate: bool false, wm_istextwatermark: bool true}";
    QTest::newRow("the item's kind is that from before")
        << Properties{{"wm_istextwatermark", true}} << Properties{{"wm_istextwatermark", false}, {"z", 1}}
        << "{wm_istextwatermark: bool false, z: int 1}";
    QTest::newRow("an image does not become a text") << image << Properties{{"wm_istextwatermark", true}}
                                                     << "{wm_fontsize: int 22, wm_istextwatermark: bool false, "
                                                        "wm_transparency: int 0}";
    QTest::newRow("text: the factors are not written")
        << Properties{{"wm_istextwatermark", true}} << joined(factors(0.5, 0.25), {{"wm_fontsize", 30}})
        << "{wm_fontsize: int 30, wm_hposition: int 320, wm_istextwatermark: bool true, wm_vposition: int 120}";
    QTest::newRow("image: the factors are not written")
        << none << joined(factors(0.5, 0.25), {{"wm_transparency", 30}})
        << "{wm_hposition: int 320, wm_transparency: int 30, wm_vposition: int 120}";
    QTest::newRow("factors of the item stay") << factors(0.1, 0.2) << factors(0.5, 0.25)
                                              << "{wm_hposfactor: double 0.10000000000000001, wm_hposition: int 320, "
                                                 "wm_vposfactor: double 0.20000000000000001, wm_vposition: int 120}";
    QTest::newRow("text: a lone factor is not written, either")
        << Properties{{"wm_istextwatermark", true}} << Properties{{"wm_hposfactor", 0.5}, {"wm_fontsize", 30}}
        << "{wm_fontsize: int 30, wm_istextwatermark: bool true}";
    QTest::newRow("a saved position goes to a text")
        << Properties{{"wm_istextwatermark", true}} << Properties{{"wm_hposition", 7}, {"wm_vposition", 8}}
        << "{wm_hposition: int 7, wm_istextwatermark: bool true, wm_vposition: int 8}";
    QTest::newRow("factors win over a saved position")
        << Properties{{"wm_istextwatermark", true}}
        << joined(factors(0.5, 0.25), {{"wm_hposition", 7}, {"wm_vposition", 8}})
        << "{wm_hposition: int 320, wm_istextwatermark: bool true, wm_vposition: int 120}";
}

void TstModelCustomDefaults::watermarkProperties()
{
    QFETCH(Properties, item);
    QFETCH(Properties, custom);
    save(watermark, custom);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    for (const bool direct : {false, true}) {
        ZoEffectItemData* node = addItem(model, watermark, item);
        model.getCustomDefaultVal(node, watermark, direct);
        QTEST(described(node->properties()), "after");
        QCOMPARE(node->checkState(), 2);
        QVERIFY(!root(model)->hasData("editbydefault"));
        model.getDataItem(watermark, -1)->clear();
    }
    QCOMPARE(logcapture::takeEvents(), QList<int>{});
}

void TstModelCustomDefaults::positionFromFactors_data()
{
    QTest::addColumn<QSize>("baseSize");
    QTest::addColumn<Properties>("custom");
    QTest::addColumn<QString>("position");

    const QSize vga(640, 480);
    const QSize hundred(100, 100);
    const QString kept = QStringLiteral("int 30, int 40");
    QTest::newRow("half and quarter") << vga << factors(0.5, 0.25) << "int 320, int 120";
    QTest::newRow("width for x, height for y") << QSize(1000, 10) << factors(0.5, 0.5) << "int 500, int 5";
    QTest::newRow("zero") << vga << factors(0.0, 0.0) << "int 0, int 0";
    QTest::newRow("truncated, not rounded") << QSize(641, 489) << factors(0.1, 0.1) << "int 64, int 48";
    QTest::newRow("product just below a whole number") << hundred << factors(0.29, 0.57) << "int 28, int 56";
    QTest::newRow("negative factors move toward zero") << QSize(641, 489) << factors(-0.1, -0.1) << "int -64, int -48";
    QTest::newRow("beyond the frame") << vga << factors(1.5, 2.0) << "int 960, int 960";
    QTest::newRow("negative size") << QSize(-641, -489) << factors(0.1, -0.1) << "int -64, int 48";
    QTest::newRow("size not set") << QSize(0, 0) << factors(0.5, 0.5) << "int 0, int 0";
    QTest::newRow("width 0") << QSize(0, 480) << factors(0.5, 0.25) << "int 0, int 120";
    QTest::newRow("integer factors") << vga << factors(1, 0) << "int 640, int 0";
    QTest::newRow("factors as text") << vga << factors("0.5", " 0.25 ") << "int 320, int 120";
    QTest::newRow("factors that are no numbers") << vga << factors("abc", QColor(Qt::red)) << "int 0, int 0";
    QTest::newRow("invalid factors are there") << vga << factors(QVariant(), QVariant()) << "int 0, int 0";
    QTest::newRow("huge factors") << vga << factors(1e10, -1e10) << "int 2147483647, int -2147483648";
    QTest::newRow("infinite factors") << vga << factors(qInf(), -qInf()) << "int 2147483647, int -2147483648";
    QTest::newRow("NaN") << vga << factors(qQNaN(), qQNaN()) << "int 0, int 0";
    QTest::newRow("no factors") << vga << Properties{{"wm_transparency", 1}} << kept;
    QTest::newRow("horizontal factor alone") << vga << Properties{{"wm_hposfactor", 0.5}} << kept;
    QTest::newRow("vertical factor alone") << vga << Properties{{"wm_vposfactor", 0.5}} << kept;
}

void TstModelCustomDefaults::positionFromFactors()
{
    QFETCH(QSize, baseSize);
    QFETCH(Properties, custom);
    save(watermark, custom);
    ZoEffectModel model;
    model.setVideoSize(baseSize.width(), baseSize.height());
    for (const bool isText : {false, true}) {
        for (const bool direct : {false, true}) {
            ZoEffectItemData* item =
                addItem(model, watermark, {{"wm_istextwatermark", isText}, {"wm_hposition", 30}, {"wm_vposition", 40}});
            model.getCustomDefaultVal(item, watermark, direct);
            QTEST(place(*item), "position");
            model.getDataItem(watermark, -1)->clear();
        }
    }
}

void TstModelCustomDefaults::positionBesideOthers_data()
{
    // The saved place is (160, 120), the tested point (162, 122).
    QTest::addColumn<Others>("others");
    QTest::addColumn<bool>("applied");

    const Other far{400, 400, 50, 50, 2, false};
    const Other over{100, 100, 200, 200, 2, false};
    const Other hidden{100, 100, 200, 200, 0, false};
    const Other partly{100, 100, 200, 200, 1, false};
    const Other null{0, 0, 0, 0, 2, true};

    QTest::newRow("alone") << Others{} << true;
    QTest::newRow("one, elsewhere: odd") << Others{far} << false;
    QTest::newRow("one, over the place") << Others{over} << false;
    QTest::newRow("two, elsewhere") << Others{far, far} << true;
    QTest::newRow("two, the first over the place") << Others{over, far} << false;
    QTest::newRow("two, the second over the place: not looked at") << Others{far, over} << true;
    QTest::newRow("two, both over the place") << Others{over, over} << false;
    QTest::newRow("three, elsewhere: odd") << Others{far, far, far} << false;
    QTest::newRow("three, the second over the place") << Others{far, over, far} << false;
    QTest::newRow("three, the third over the place") << Others{far, far, over} << false;
    QTest::newRow("four, elsewhere") << Others{far, far, far, far} << true;
    QTest::newRow("four, the first over the place") << Others{over, far, far, far} << false;
    QTest::newRow("four, the second over the place: not looked at") << Others{far, over, far, far} << true;
    QTest::newRow("four, the third over the place") << Others{far, far, over, far} << false;
    QTest::newRow("four, the fourth over the place: not looked at") << Others{far, far, far, over} << true;
    QTest::newRow("four, the second and fourth over the place") << Others{far, over, far, over} << true;
    QTest::newRow("five, elsewhere: odd") << Others{far, far, far, far, far} << false;
    QTest::newRow("five, the fifth over the place") << Others{far, far, far, far, over} << false;
    QTest::newRow("six, elsewhere") << Others{far, far, far, far, far, far} << true;
    QTest::newRow("six, the fifth over the place") << Others{far, far, far, far, over, far} << false;
    QTest::newRow("six, the sixth over the place: not looked at") << Others{far, far, far, far, far, over} << true;

    QTest::newRow("one, not shown") << Others{hidden} << true;
    QTest::newRow("two, not shown") << Others{hidden, hidden} << true;
    QTest::newRow("one shown, one not") << Others{hidden, far} << false;
    QTest::newRow("state 1 is not shown") << Others{partly} << true;
    QTest::newRow("one that is not shown does not count in the walk") << Others{hidden, far, over} << true;
    QTest::newRow("one that is not shown brings the next one to its turn") << Others{far, hidden, far, over} << false;
    QTest::newRow("one that is not shown, in front of the one over the place")
        << Others{far, far, hidden, over, far} << false;
    QTest::newRow("null entry") << Others{null} << true;
    QTest::newRow("null entry and one elsewhere") << Others{null, far} << false;
    QTest::newRow("null entry does not count in the walk") << Others{null, far, over} << true;
    QTest::newRow("null entry between two") << Others{over, null, far} << false;
}

void TstModelCustomDefaults::positionBesideOthers()
{
    QFETCH(Others, others);
    QFETCH(bool, applied);
    save(watermark, factors(0.25, 0.25));

    // Wherever the item stands among the others.
    for (int row = 0; row <= others.size(); ++row) {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        ZoEffectItemData* typeNode = model.getDataItem(watermark, -1);
        for (const Other& other : others) {
            if (other.null) {
                typeNode->appendChild(nullptr);
                continue;
            }
            addItem(typeNode, {{"wm_hposition", other.x},
                               {"wm_vposition", other.y},
                               {"wm_imagewidth", other.width},
                               {"wm_imageheight", other.height}})
                ->setCheckState(other.checkState);
        }
        auto* item = new ZoEffectItemData(QString(), typeNode, row);
        item->setData("wm_istextwatermark", true);
        item->setData("wm_hposition", 30);
        item->setData("wm_vposition", 40);
        // The item itself would cover the place: it is no obstacle.
        item->setData("wm_imagewidth", 640);
        item->setData("wm_imageheight", 480);

        model.getCustomDefaultVal(item, watermark, false);
        QCOMPARE(place(*item), QString(applied ? "int 160, int 120" : "int 30, int 40"));

        model.getCustomDefaultVal(item, watermark, true);
        QCOMPARE(place(*item), QString("int 160, int 120"));
    }
    QCOMPARE(logcapture::takeEvents(), QList<int>{});
}

void TstModelCustomDefaults::rectangleAgainstThePoint_data()
{
    // The tested point is (162, 122), two right of and below the saved place.
    QTest::addColumn<QVariant>("x");
    QTest::addColumn<QVariant>("y");
    QTest::addColumn<QVariant>("width");
    QTest::addColumn<QVariant>("height");
    QTest::addColumn<bool>("contains");

    const auto row = [](const char* name, const QVariant& x, const QVariant& y, const QVariant& width,
                        const QVariant& height,
                        bool contains) { QTest::newRow(name) << x << y << width << height << contains; };
    row("around it", 150, 110, 50, 50, true);
    row("the one pixel", 162, 122, 1, 1, true);
    row("the place itself, but not the point", 160, 120, 2, 2, false);
    row("on the left edge", 162, 110, 50, 50, true);
    row("left of the left edge", 163, 110, 50, 50, false);
    row("on the right edge", 113, 110, 50, 50, true);
    row("right of the right edge", 112, 110, 50, 50, false);
    row("on the top edge", 150, 122, 50, 50, true);
    row("above the top edge", 150, 123, 50, 50, false);
    row("on the bottom edge", 150, 73, 50, 50, true);
    row("below the bottom edge", 150, 72, 50, 50, false);
    row("in a corner", 113, 73, 50, 50, true);
    row("no size: 30 wide, but no row", 150, 122, 0, 0, false);
    row("no size, one row above", 150, 121, 0, 0, false);
    row("size not told", 150, 122, QVariant(), QVariant(), false);
    row("no width, a height", 162, 110, 0, 50, false);
    row("a width, no height", 150, 122, 50, 0, false);
    row("no width, one row: not 30 wide", 150, 122, 0, 1, false);
    row("one column, no height", 162, 122, 1, 0, false);
    row("negative width spans to the left", 170, 110, -20, 50, true);
    row("negative width, its first column", 162, 110, -10, 50, true);
    row("negative width, beyond its first column", 161, 110, -10, 50, false);
    row("negative width, its last column", 172, 110, -9, 50, true);
    row("negative width, beyond its last column", 173, 110, -9, 50, false);
    row("width -1 spans three columns", 164, 110, -1, 50, true);
    row("width -1, beyond them", 165, 110, -1, 50, false);
    row("negative height spans upwards", 150, 130, 50, -20, true);
    row("negative height, its first row", 150, 122, 50, -10, true);
    row("negative height, beyond its first row", 150, 121, 50, -10, false);
    row("negative height, its last row", 150, 132, 50, -9, true);
    row("negative height, beyond its last row", 150, 133, 50, -9, false);
    row("values as text", "150", "110", "50", "50", true);
    row("values with fractions are rounded", 161.5, 121.5, 0.5, 0.5, true);
    row("values rounded away", 162.5, 122.0, 1.0, 1.0, false);
    row("values that are no numbers", "abc", 110, 200, 50, true);
    row("position not told", QVariant(), QVariant(), 163, 123, true);
    row("position not told, smaller", QVariant(), QVariant(), 162, 123, false);
    row("the largest", 0, 0, INT_MAX, INT_MAX, true);
    row("at the end of all columns", INT_MAX, 110, 1, 50, false);
    row("at the beginning of all columns", INT_MIN, 110, 1, 50, false);
}

void TstModelCustomDefaults::rectangleAgainstThePoint()
{
    QFETCH(QVariant, x);
    QFETCH(QVariant, y);
    QFETCH(QVariant, width);
    QFETCH(QVariant, height);
    QFETCH(bool, contains);
    save(watermark, factors(0.25, 0.25));
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    Properties values{{"wm_hposition", x}, {"wm_vposition", y}};
    if (width.isValid())
        values.insert("wm_imagewidth", width);
    if (height.isValid())
        values.insert("wm_imageheight", height);
    addItem(model, watermark, values);
    addItem(model, watermark, {{"wm_hposition", 400}, {"wm_vposition", 400}});
    ZoEffectItemData* item = addItem(model, watermark, {});

    model.getCustomDefaultVal(item, watermark, false);
    QCOMPARE(place(*item), QString(contains ? "none" : "int 160, int 120"));
}

void TstModelCustomDefaults::watermarkOutsideAList()
{
    save(watermark, factors(0.25, 0.25));
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    const Properties over{{"wm_imagewidth", 640}, {"wm_imageheight", 480}};

    // Without parent it counts as alone.
    ZoEffectItemData free{QString()};
    model.getCustomDefaultVal(&free, watermark, false);
    QCOMPARE(place(free), QString("int 160, int 120"));

    // Taken out, its parent's list is looked at all the same: with one child, it counts as alone.
    ZoEffectItemData* typeNode = model.getDataItem(watermark, -1);
    addItem(typeNode, over);
    addItem(typeNode, {});
    std::unique_ptr<ZoEffectItemData> taken(typeNode->takeAt(1));
    model.getCustomDefaultVal(taken.get(), watermark, false);
    QCOMPARE(place(*taken), QString("int 160, int 120"));

    // With two children it is tested against both.
    addItem(typeNode, {});
    taken->delData("wm_hposition");
    taken->delData("wm_vposition");
    model.getCustomDefaultVal(taken.get(), watermark, false);
    QCOMPARE(place(*taken), QString("none"));

    // The type node itself stands among the other type nodes: thirteen, so an even number of others.
    model.getCustomDefaultVal(typeNode, watermark, false);
    QCOMPARE(place(*typeNode), QString("int 160, int 120"));
}

void TstModelCustomDefaults::imageWatermarkLooksAtOthersToo()
{
    save(watermark, joined(factors(0.25, 0.25), {{"wm_transparency", 40}}));
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addItem(model, watermark, {{"wm_hposition", 400}});
    ZoEffectItemData* item = addItem(model, watermark, {{"wm_hposition", 30}, {"wm_vposition", 40}});

    model.getCustomDefaultVal(item, watermark, false);
    QCOMPARE(described(item->properties()),
             QString("{wm_hposition: int 30, wm_transparency: int 40, wm_vposition: int 40}"));
    addItem(model, watermark, {{"wm_hposition", 400}});
    model.getCustomDefaultVal(item, watermark, false);
    QCOMPARE(place(*item), QString("int 160, int 120"));
}

void TstModelCustomDefaults::keptPositionIsThatOfTheSavedMap()
{
    // The keys of the map are applied whether or not the place of the factors is taken.
    save(watermark, joined(factors(0.25, 0.25), {{"wm_hposition", 7}, {"wm_vposition", 8}}));
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addItem(model, watermark, {});
    ZoEffectItemData* item = addItem(model, watermark, {{"wm_istextwatermark", true}});
    model.getCustomDefaultVal(item, watermark, false);
    QCOMPARE(place(*item), QString("int 7, int 8"));
}

void TstModelCustomDefaults::savedPositionOnAnotherVideo_data()
{
    QTest::addColumn<QSize>("savedAt");
    QTest::addColumn<QPoint>("savedPlace");
    QTest::addColumn<QSize>("appliedAt");
    QTest::addColumn<QString>("position");

    const QSize vga(640, 480);
    QTest::newRow("twice the size") << vga << QPoint(100, 50) << QSize(1280, 960) << "int 200, int 100";
    QTest::newRow("half the size, odd places") << vga << QPoint(101, 51) << QSize(320, 240) << "int 50, int 25";
    QTest::newRow("another ratio") << vga << QPoint(320, 240) << QSize(1920, 100) << "int 960, int 50";
    QTest::newRow("outside the frame") << vga << QPoint(-31, 960) << QSize(320, 240) << "int -15, int 480";
    QTest::newRow("same size, comes back") << vga << QPoint(213, 117) << vga << "int 213, int 117";
    QTest::newRow("same size, one pixel is lost")
        << QSize(1920, 1080) << QPoint(123, 39) << QSize(1920, 1080) << "int 122, int 38";
    QTest::newRow("saved without a size") << QSize(0, 0) << QPoint(100, 50) << vga << "none";
    QTest::newRow("saved without a height") << QSize(640, 0) << QPoint(100, 50) << vga << "none";
    QTest::newRow("applied without a size") << vga << QPoint(100, 50) << QSize(0, 0) << "int 0, int 0";
}

void TstModelCustomDefaults::savedPositionOnAnotherVideo()
{
    QFETCH(QSize, savedAt);
    QFETCH(QPoint, savedPlace);
    QFETCH(QSize, appliedAt);
    ZoEffectModel model;
    model.setVideoSize(savedAt.width(), savedAt.height());
    addItem(model, watermark, {{"wm_hposition", savedPlace.x()}, {"wm_vposition", savedPlace.y()}});
    model.saveAsCustomDefault(watermark, 0);

    ZoEffectModel other;
    other.setVideoSize(appliedAt.width(), appliedAt.height());
    ZoEffectItemData* item = addItem(other, watermark, {});
    other.getCustomDefaultVal(item, watermark, false);
    QTEST(place(*item), "position");
}

void TstModelCustomDefaults::subtitleProperties_data()
{
    QTest::addColumn<Properties>("item");
    QTest::addColumn<Properties>("custom");
    QTest::addColumn<QString>("after");

    const Properties none;
    const Properties style{{"sub_transparency", 40},         {"sub_fontsize", 30},
                           {"sub_fontname", QFont("Arial")}, {"sub_fontcolor", QColor(Qt::red)},
                           {"sub_vposfactor", 0.75},         {"fontstyleusedefault", false}};
    const Properties file{{"sub_fromfile", true}, {"sub_fontsize", 22}, {"sub_vposition", 100}};
    const Properties embedded{{"sub_fromfile", false}, {"sub_fontsize", 22}, {"sub_vposition", 100}};

    QTest::newRow("file takes every key, the factor too")
        << file << style
        << "{fontstyleusedefault: bool false, sub_fontcolor: color #ffff0000, sub_fontname: font Arial, sub_fontsize: "
           "int 30, sub_fromfile: bool true, sub_transparency: int 40, sub_vposfactor: double 0.75, sub_vposition: "
           "int 100}";
    QTest::newRow("embedded takes the transparency only")
        << embedded << style
        << "{sub_fontsize: int 22, sub_fromfile: bool false, sub_transparency: int 40, sub_vposition: int 100}";
    QTest::newRow("no flag: embedded") << none << style << "{sub_transparency: int 40}";
    QTest::newRow("flag is the text false: embedded")
        << Properties{{"sub_fromfile", "false"}} << style << "{sub_fromfile: string false, sub_transparency: int 40}";
    QTest::newRow("flag 1: from a file") << Properties{{"sub_fromfile", 1}} << Properties{{"sub_fontsize", 30}}
                                         << "{sub_fontsize: int 30, sub_fromfile: int 1}";
    QTest::newRow("embedded, transparency not saved")
        << embedded << Properties{{"sub_fontsize", 30}}
        << "{sub_fontsize: int 22, sub_fromfile: bool false, sub_vposition: int 100}";
    QTest::newRow("embedded, saved transparency is invalid")
        << Properties{{"sub_transparency", 3}} << Properties{{"sub_transparency", QVariant()}}
        << "{sub_transparency: invalid}";
    QTest::newRow("file: the check state is an ordinary key")
        << Properties{{"sub_fromfile", true}} << Properties{{"_checkstate", 0}, {"anything", 1}}
        << "{_checkstate: int 0, anything: int 1, sub_fromfile: "
           "bool true}";
    QTest::newRow("file: its kind is that from before")
        << Properties{{"sub_fromfile", true}} << Properties{{"sub_fromfile", false}, {"z", 1}}
        << "{sub_fromfile: bool false, z: int 1}";
    QTest::newRow("a saved position goes to a file subtitle")
        << Properties{{"sub_fromfile", true}} << Properties{{"sub_vposition", 5}}
        << "{sub_fromfile: bool true, sub_vposition: int 5}";
}

void TstModelCustomDefaults::subtitleProperties()
{
    QFETCH(Properties, item);
    QFETCH(Properties, custom);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    save(subtitle, custom);
    for (const bool direct : {false, true}) {
        ZoEffectItemData* track = addItem(model, subtitle, item);
        model.getCustomDefaultVal(track, subtitle, direct);
        QTEST(described(track->properties()), "after");
        QCOMPARE(track->checkState(), 2);
    }
    QVERIFY(!root(model)->hasData("editbydefault"));
    QCOMPARE(logcapture::takeEvents(), QList<int>{});
}

void TstModelCustomDefaults::otherTypeTakesEverything_data()
{
    QTest::addColumn<QString>("type");

    for (const char* type : {"Color", "Effect", "Crop", "Audio", "Audio_Echo", "Audio_Speed", "effect root",
                             "watermark", "subtitle", "Unknown"})
        QTest::newRow(type) << type;
    QTest::newRow("empty") << QString("");
}

void TstModelCustomDefaults::otherTypeTakesEverything()
{
    QFETCH(QString, type);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    save(type, {{"bcs_contrast", 5},
                {"wm_hposfactor", 0.5},
                {"wm_vposfactor", 0.5},
                {"sub_transparency", QVariant()},
                {"_checkstate", false}});
    for (const bool direct : {false, true}) {
        ZoEffectItemData item{QStringLiteral("an item")};
        item.setData("bcs_contrast", 1);
        item.setData("own", 2);
        model.resetEditByDefaultFlag();

        model.getCustomDefaultVal(&item, type, direct);

        QCOMPARE(described(item.properties()),
                 QString("{_checkstate: bool false, bcs_contrast: int 5, own: int 2, sub_transparency: invalid, "
                         "wm_hposfactor: double 0.5, wm_vposfactor: double 0.5}"));
        QCOMPARE(item.checkState(), 2);
        QVERIFY(model.editByDefault());
        QCOMPARE(described(root(model)->properties()), QString("{editbydefault: bool true, h: int 480, w: int 640}"));
    }
    QCOMPARE(logcapture::takeEvents(), QList<int>{});
}

void TstModelCustomDefaults::typeDecidesNotTheItem()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    save(color, {{"bcs_contrast", 5}, {"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.5}});
    ZoEffectItemData* item = addItem(model, watermark, {});
    model.getCustomDefaultVal(item, color, false);
    QCOMPARE(described(item->properties()),
             QString("{bcs_contrast: int 5, wm_hposfactor: double 0.5, wm_vposfactor: double 0.5}"));
    QVERIFY(model.editByDefault());

    model.resetEditByDefaultFlag();
    save(watermark, {{"wm_transparency", 40}, {"wm_fontsize", 30}});
    model.getCustomDefaultVal(model.getDataItem(color, -1), watermark, false);
    QCOMPARE(described(model.data("wm_transparency", color, -1)), QString("int 40"));
    QVERIFY(!model.data("wm_fontsize", color, -1).isValid());
    QVERIFY(!model.editByDefault());
}

void TstModelCustomDefaults::flagIsSetBeforeAndStays()
{
    // Laid over the root itself, a saved value of that name comes last.
    ZoEffectModel model;
    save(color, {{"editbydefault", "no"}});
    model.getCustomDefaultVal(root(model), color, false);
    QCOMPARE(described(root(model)->data(QStringLiteral("editbydefault"))), QString("string no"));

    // Watermarks and subtitles neither set nor clear it.
    save(color, {{"bcs_contrast", 5}});
    save(watermark, {{"wm_transparency", 40}});
    save(subtitle, {{"sub_transparency", 40}});
    ZoEffectItemData item{QString()};
    model.getCustomDefaultVal(&item, color, false);
    model.getCustomDefaultVal(&item, watermark, false);
    model.getCustomDefaultVal(&item, subtitle, false);
    QVERIFY(model.editByDefault());
    model.resetEditByDefaultFlag();
    QCOMPARE(described(root(model)->data(QStringLiteral("editbydefault"))), QString("bool false"));
}

void TstModelCustomDefaults::modelBuiltWithACustomDefault_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("custom");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("editByDefault");

    QTest::newRow("color") << color << Properties{{"bcs_contrast", 5}} << "bcs_contrast"
                           << "int 5" << true;
    QTest::newRow("audio") << "Audio" << Properties{{"play_loop", true}} << "play_loop"
                           << "bool true" << true;
    QTest::newRow("audio effect") << "Audio_Echo" << Properties{{"audio_echo_delay", 9}} << "audio_echo_delay"
                                  << "int 9" << true;
    QTest::newRow("frame effects") << effect << Properties{{"Effect", "A|true"}} << "Effect"
                                   << "string A|true" << true;
    QTest::newRow("empty map") << color << Properties{} << "bcs_contrast"
                               << "int 0" << false;
    QTest::newRow("subtitle: the transparency only")
        << subtitle << Properties{{"sub_transparency", 40}} << "sub_transparency"
        << "int 40" << false;
    QTest::newRow("subtitle: nothing else") << subtitle << Properties{{"sub_fontsize", 40}} << "sub_fontsize"
                                            << "int 22" << false;
    QTest::newRow("crop keeps the catalogue's values") << "Crop" << Properties{{"crop_left", 5}} << "crop_left"
                                                       << "int 0" << false;
    QTest::newRow("watermark keeps the catalogue's values")
        << watermark << Properties{{"wm_transparency", 5}} << "wm_transparency"
        << "int 0" << false;
}

void TstModelCustomDefaults::modelBuiltWithACustomDefault()
{
    QFETCH(QString, type);
    QFETCH(Properties, custom);
    QFETCH(QString, key);
    save(type, custom);
    ZoEffectModel model;
    QTEST(described(model.getDataItem(type, -1)->data(key)), "value");
    QTEST(model.editByDefault(), "editByDefault");
    model.resetEditByDefaultFlag();
    QVERIFY(!model.editByDefault());
    QCOMPARE(logcapture::takeEvents(), QList<int>{});
}

void TstModelCustomDefaults::appliedValuesAreCopies()
{
    ZoEffectModel model;
    save(color, {{"bcs_contrast", 5}});
    ZoEffectItemData item{QString()};
    model.getCustomDefaultVal(&item, color, false);
    item.setData("bcs_contrast", 6);
    QCOMPARE(saved(color), QString("{bcs_contrast: int 5}"));
    QCOMPARE(writes(), QStringList());
}

void TstModelCustomDefaults::applyingSendsAndLogsNothing_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("direct");

    for (const QString& type : {watermark, subtitle, color, effect}) {
        QTest::newRow(qPrintable(type)) << type << false;
        QTest::newRow(qPrintable(type + ", direct")) << type << true;
    }
}

void TstModelCustomDefaults::applyingSendsAndLogsNothing()
{
    QFETCH(QString, type);
    QFETCH(bool, direct);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    save(type, joined(joined(textWatermark(), fileSubtitle()), factors(0.5, 0.5)));
    ZoEffectItemData* item = addItem(model, watermark, {{"wm_istextwatermark", true}, {"sub_fromfile", true}});
    SignalRecorder recorder(model);
    model.getCustomDefaultVal(item, type, direct);
    QVERIFY(item->hasData("wm_fontsize"));
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>{});
}

ZOEFFECT_TEST_MAIN(TstModelCustomDefaults)
#include "tst_model_customdefaults.moc"
