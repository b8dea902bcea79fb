// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zoeffectmodel.h>

#include <cmath>
#include <limits>

#include <QColor>
#include <QFont>

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

void saveCustomDefault(const QString& type, const Properties& values)
{
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(type, values);
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
        auto* node = new ZoEffectItemData(fields.at(0).toString(), parent);
        node->setCheckState(fields.at(1).toInt());
        const Properties properties = fields.at(2).toMap();
        for (auto it = properties.cbegin(); it != properties.cend(); ++it)
            node->setData(it.key(), it.value());
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
    static const EffectDefaultVal cutProperties[] = {property("before", 1), end, property("behind", 2), end};
    static const EffectDefaultVal absentProperties[] = {property("absent", QVariant()), property("trackid", -1), end};
    static const EffectDefaultVal accentProperties[] = {property("cl\xC3\xA9", 4), end};
    static const SubEffectItem accentItems[] = {subItem("A", 1, accentProperties), subItem(nullptr, 0)};
    static const EffectDefaultVal depthProperties[] = {property("depth", 7), end};
    static const EffectControlItem deepest[] = {effectType("Deepest", depthProperties), effectType(nullptr, nullptr)};
    static const EffectControlItem inner[] = {effectType("Inner", depthProperties, nullptr, deepest),
                                              effectType("InnerPanel", nullptr, panelItems),
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
        effectType("Cut", cutProperties),
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

class TstModelDefaultCheck : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // SingleDataIsDefault and dataIsDefault
    void everyCatalogueKeyIsCompared_data();
    void everyCatalogueKeyIsCompared();
    void freshModelHoldsItsDefaults();
    void valueOnTheLeftDefaultOnTheRight_data();
    void valueOnTheLeftDefaultOnTheRight();
    void customDefaultReplacesTheCatalogues_data();
    void customDefaultReplacesTheCatalogues();
    void customDefaultsOfOtherTypesDoNotCount();
    void modelBuiltFromCustomDefaultHoldsIt();
    void subtitlePositionIsComparedAsStored();

    void singleValueAnswersTrue_data();
    void singleValueAnswersTrue();
    void singleValueOfAnItem_data();
    void singleValueOfAnItem();
    void watermarkPosition_data();
    void watermarkPosition();
    void watermarkPositionWithoutCatalogue();
    void positionKeysOfOtherTypesAreOrdinary();

    void unknownTypeIsLogged_data();
    void unknownTypeIsLogged();
    void typeWithoutNodeIsDefault_data();
    void typeWithoutNodeIsDefault();
    void propertiesOfTheTypeSettleIt_data();
    void propertiesOfTheTypeSettleIt();
    void watermarkTypeComparesItsPositionsPlainly();
    void typeCheckStateIsNoValue();
    void keyThatStandsTwice();
    void tableEndsAtItsNullKey();
    void missingValueEqualsAnInvalidDefault();
    void namesOutsideAscii();
    void nestedTypes();
    void itemsOfAType_data();
    void itemsOfAType();
    void itemsIgnoreCustomDefaults();
    void freshItemsAreDefault();
    void typesWithoutItems_data();
    void typesWithoutItems();
    void effectWithoutPropertiesAsksItsItems();
    void effectWithPropertiesDoesNot();
    void answersChangeNothing();

    // hasRealEffect
    void freshModelsHaveNoEffect_data();
    void freshModelsHaveNoEffect();
    void audioEffect_data();
    void audioEffect();
    void audioEffectIgnoresCheckStates();
    void audioEffectModelIgnoresVideoSettings();
    void audioFlag_data();
    void audioFlag();
    void audioSpeed_data();
    void audioSpeed();
    void audioFade_data();
    void audioFade();
    void cropEffect_data();
    void cropEffect();
    void cropEffectWithoutEffectType();
    void cropRotationOnAnUnselectedEffectType();
    void colorEffect_data();
    void colorEffect();
    void colorEffectIgnoresDefaults();
    void frameEffect_data();
    void frameEffect();
    void watermarkEffect_data();
    void watermarkEffect();
    void trackEffect_data();
    void trackEffect();
    void unselectedTypesHaveNoEffect_data();
    void unselectedTypesHaveNoEffect();
    void unknownTypesAreLogged_data();
    void unknownTypesAreLogged();
    void nullTypesArePassedOver();
    void effectNeedsNoCatalogue();
};

void TstModelDefaultCheck::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstModelDefaultCheck::cleanup()
{
    const QList<int> events = logcapture::takeEvents();
    forgetCustomDefaults();
    ZoEffectModel::InitEffectModel(hostCatalogue());
    QCOMPARE(events, QList<int>());
}

// --- SingleDataIsDefault and dataIsDefault -----------------------------------------------------------------

void TstModelDefaultCheck::everyCatalogueKeyIsCompared_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("catalogueDefault");
    QTest::addColumn<QVariant>("other");

    const auto row = [](const char* type, const char* key, const QVariant& catalogueDefault, const QVariant& other) {
        QTest::newRow(qPrintable(QString("%1, %2").arg(type, key))) << type << key << catalogueDefault << other;
    };
    const QVariant white = QColor(Qt::white);
    const QVariant black = QColor(Qt::black);
    const QVariant tahoma = QFont("Tahoma", -1, -1, false);
    const QVariant arial = QFont("Arial", 14);

    row("Crop", "crop_minwidth", 24, 25);
    row("Crop", "crop_minheight", 24, 0);
    row("Crop", "crop_left", 0, 1);
    row("Crop", "crop_top", 0, -1);
    row("Crop", "crop_width", "source_val", 640);
    row("Crop", "crop_height", "source_val", "Source_val");
    row("Crop", "crop_keepaspectratio", true, false);
    row("Crop", "crop_aspectratio", "Original Ratio", "Original");
    row("Watermark", "wm_vposfactor", 0.1, 0.2);
    row("Watermark", "wm_hposfactor", 0.1, 0);
    row("Watermark", "wm_transparency", 0, 50);
    row("Watermark", "wm_transfactor", 2.55, 2.5);
    row("Watermark", "wm_fontstyle", "Regular", "Bold");
    row("Watermark", "wm_imagekeepratio", true, false);
    row("Watermark", "wm_fontcolor", white, black);
    row("Watermark", "wm_fontsize", 22, 23);
    row("Watermark", "wm_fontname", tahoma, arial);
    row("Subtitle", "sub_vposition", 200, 201);
    row("Subtitle", "sub_hposition", 200, 199);
    row("Subtitle", "sub_transparency", 0, 1);
    row("Subtitle", "sub_transfactor", 2.55, 1.0);
    row("Subtitle", "sub_vposfactor", 0.8, 0.9);
    row("Subtitle", "sub_fontstyle", "Regular", "regular");
    row("Subtitle", "sub_fontcolor", white, QColor(254, 255, 255));
    row("Subtitle", "sub_framecolor", black, white);
    row("Subtitle", "sub_fontsize", 22, 72);
    row("Subtitle", "sub_fontname", tahoma, QFont("Tahoma", 13));
    row("Subtitle", "sub_linemargin", 0, 20);
    row("Subtitle", "fontstyleusedefault", true, false);
    row("Audio", "play_loop", false, true);
    row("Color", "bcs_brightness", 0, 50);
    row("Color", "bcs_contrast", 0, -50);
    row("Color", "bcs_saturation", 0, 1);
    row("Audio_Fade_Inout", "audio_effect_flag", false, true);
    row("Audio_Fade_Inout", "audio_fade_in_enable", false, true);
    row("Audio_Fade_Inout", "audio_fade_out_enable", true, false);
    row("Audio_Fade_Inout", "audio_fade_in", 3, 4);
    row("Audio_Fade_Inout", "audio_fade_out", 3, 2);
    row("Audio_Normalize", "audio_effect_flag", false, true);
    row("Audio_Normalize", "audio_normalize_maxLevel", 98, 100);
    row("Audio_BandPass", "audio_effect_flag", false, true);
    row("Audio_BandPass", "audio_bandpass_type", 2, 1);
    row("Audio_BandPass", "audio_bandpass_requency", 1000, 999);
    row("Audio_BandPass", "audio_bandpass_steepness", 50, 51);
    row("Audio_Chorus", "audio_effect_flag", false, true);
    row("Audio_Chorus", "audio_chorus_gainin", 50, 3);
    row("Audio_Chorus", "audio_chorus_gainout", 50, 3);
    row("Audio_Chorus", "audio_chorus_delay", 50, 3);
    row("Audio_Chorus", "audio_chorus_decay", 50, 500);
    row("Audio_Flanger", "audio_effect_flag", false, true);
    row("Audio_Flanger", "audio_flanger_gainin", 50, 3);
    row("Audio_Flanger", "audio_flanger_gainout", 50, 3);
    row("Audio_Flanger", "audio_flanger_delay", 3, 50);
    row("Audio_Flanger", "audio_flanger_decay", 50, 500);
    row("Audio_Flanger", "audio_flanger_speed", 50, 3);
    row("Audio_Echo", "audio_effect_flag", false, true);
    row("Audio_Echo", "audio_echo_gainin", 50, 3);
    row("Audio_Echo", "audio_echo_gainout", 50, 3);
    row("Audio_Echo", "audio_echo_delay", 50, 3);
    row("Audio_Echo", "audio_echo_decay", 500, 50);
    row("Audio_Speed", "audio_effect_flag", false, true);
    row("Audio_Speed", "audio_speed_factor", 100, 10);
}

void TstModelDefaultCheck::everyCatalogueKeyIsCompared()
{
    QFETCH(QString, type);
    QFETCH(QString, key);
    QFETCH(QVariant, catalogueDefault);
    QFETCH(QVariant, other);
    ZoEffectModel model;
    ZoEffectItemData* node = model.getDataItem(type, -1);
    QCOMPARE(model.SingleDataIsDefault(type, key, -1), true);
    QCOMPARE(model.dataIsDefault(type), true);

    node->setData(key, other);
    QCOMPARE(model.SingleDataIsDefault(type, key, -1), false);
    QCOMPARE(model.dataIsDefault(type), false);

    node->setData(key, catalogueDefault);
    QCOMPARE(model.SingleDataIsDefault(type, key, -1), true);
    QCOMPARE(model.dataIsDefault(type), true);

    node->delData(key);
    QCOMPARE(model.SingleDataIsDefault(type, key, -1), false);
    QCOMPARE(model.dataIsDefault(type), false);
}

void TstModelDefaultCheck::freshModelHoldsItsDefaults()
{
    for (const bool sized : {false, true}) {
        ZoEffectModel model;
        if (sized)
            model.setVideoSize(1920, 1080);
        for (int row = 0; row < root(model)->childCount(); ++row)
            QVERIFY2(model.dataIsDefault(root(model)->child(row)->name()), qPrintable(root(model)->child(row)->name()));
        QCOMPARE(model.FrameEffectIsDefault(), true);
    }
}

void TstModelDefaultCheck::valueOnTheLeftDefaultOnTheRight_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("standard");
    QTest::addColumn<bool>("isDefault");

    const QVariant none;
    const QVariant white = QColor(Qt::white);
    QTest::newRow("number, its text") << QVariant(5) << QVariant("5") << true;
    QTest::newRow("text, its number") << QVariant("5") << QVariant(5) << true;
    QTest::newRow("number, text with a leading zero") << QVariant(5) << QVariant("05") << true;
    QTest::newRow("text with a leading zero, number") << QVariant("05") << QVariant(5) << false;
    QTest::newRow("true, any text") << QVariant(true) << QVariant("abc") << true;
    QTest::newRow("any text, true") << QVariant("abc") << QVariant(true) << false;
    QTest::newRow("true, 1") << QVariant(true) << QVariant(1) << true;
    QTest::newRow("true, 2") << QVariant(true) << QVariant(2) << false;
    QTest::newRow("0, no number") << QVariant(0) << QVariant("abc") << false;
    QTest::newRow("0, empty text") << QVariant(0) << QVariant("") << false;
    QTest::newRow("missing, 0") << none << QVariant(0) << false;
    QTest::newRow("missing, false") << none << QVariant(false) << false;
    QTest::newRow("missing, empty text") << none << QVariant("") << false;
    QTest::newRow("sum of doubles") << QVariant(0.1 + 0.2) << QVariant(0.3) << true;
    QTest::newRow("doubles further apart") << QVariant(1.0 + 1e-11) << QVariant(1.0) << false;
    QTest::newRow("zero and a hair") << QVariant(1e-13) << QVariant(0.0) << false;
    QTest::newRow("int, equal double") << QVariant(2) << QVariant(2.0) << true;
    QTest::newRow("colour, English name") << white << QVariant("white") << true;
    QTest::newRow("English name, colour") << QVariant("white") << white << false;
    QTest::newRow("name, its colour") << QVariant("#ffffff") << white << true;
    QTest::newRow("font, its family") << QVariant(QFont("Tahoma")) << QVariant("Tahoma") << true;
    QTest::newRow("family, its font") << QVariant("Tahoma") << QVariant(QFont("Tahoma")) << false;
    QTest::newRow("no number equals nothing") << QVariant(std::nan("")) << QVariant(std::nan("")) << false;
}

void TstModelDefaultCheck::valueOnTheLeftDefaultOnTheRight()
{
    QFETCH(QVariant, value);
    QFETCH(QVariant, standard);
    QFETCH(bool, isDefault);
    const EffectDefaultVal end = ::property(nullptr, 0);
    const EffectDefaultVal properties[] = {::property("k", standard), end};
    const EffectDefaultVal otherProperties[] = {::property("k", "another default"), end};
    const SubEffectItem items[] = {subItem("A", 1, properties), subItem(nullptr, 0)};
    const EffectControlItem table[] = {effectType("Catalogued", properties), effectType("Customised", otherProperties),
                                       effectType("Panel", nullptr, items), effectType("Effect", nullptr, items),
                                       effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;
    saveCustomDefault("Customised", {{"k", standard}});
    for (const char* type : {"Catalogued", "Customised"}) {
        if (value.isValid())
            model.getDataItem(type, -1)->setData("k", value);
        else
            model.getDataItem(type, -1)->delData("k");
        QCOMPARE(model.SingleDataIsDefault(type, "k", -1), isDefault);
        QCOMPARE(model.dataIsDefault(type), isDefault);
    }

    const Properties held = value.isValid() ? Properties{{"k", value}} : Properties{};
    for (const char* type : {"Panel", "Effect"}) {
        setItems(model.getDataItem(type, -1), {item("A", 2, held)});
        QCOMPARE(model.dataIsDefault(type), isDefault);
    }
    QCOMPARE(model.FrameEffectIsDefault(), isDefault);
}

void TstModelDefaultCheck::customDefaultReplacesTheCatalogues_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("custom");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("singleIsDefault");
    QTest::addColumn<bool>("typeIsDefault");

    QTest::newRow("catalogue default no longer counts")
        << "Color" << Properties{{"bcs_contrast", 10}} << "bcs_contrast" << QVariant(0) << false << false;
    QTest::newRow("custom default holds")
        << "Color" << Properties{{"bcs_contrast", 10}} << "bcs_contrast" << QVariant(10) << true << true;
    QTest::newRow("neither of the two") << "Color" << Properties{{"bcs_contrast", 10}} << "bcs_contrast" << QVariant(5)
                                        << false << false;
    QTest::newRow("other key at its catalogue default")
        << "Color" << Properties{{"bcs_contrast", 10}} << "bcs_brightness" << QVariant(0) << true << false;
    QTest::newRow("other key changed") << "Color" << Properties{{"bcs_contrast", 0}} << "bcs_brightness" << QVariant(7)
                                       << false << false;
    QTest::newRow("custom default equal to the catalogue's")
        << "Color" << Properties{{"bcs_contrast", 0}} << "bcs_contrast" << QVariant(0) << true << true;
    QTest::newRow("custom default of another type of value")
        << "Color" << Properties{{"bcs_contrast", "10"}} << "bcs_contrast" << QVariant(10) << true << true;
    QTest::newRow("empty text is a custom default")
        << "Color" << Properties{{"bcs_contrast", ""}} << "bcs_contrast" << QVariant(0) << false << false;
    QTest::newRow("invalid custom value: the catalogue's")
        << "Color" << Properties{{"bcs_contrast", QVariant()}} << "bcs_contrast" << QVariant(0) << true << true;
    QTest::newRow("empty custom default: the catalogue's")
        << "Color" << Properties{} << "bcs_contrast" << QVariant(0) << true << true;
    QTest::newRow("custom key that the type lacks")
        << "Color" << Properties{{"unknown", 1}} << "unknown" << QVariant(2) << true << true;
    QTest::newRow("custom key in other letter case")
        << "Color" << Properties{{"BCS_contrast", 10}} << "bcs_contrast" << QVariant(0) << true << true;
    QTest::newRow("crop too") << "Crop" << Properties{{"crop_left", 12}} << "crop_left" << QVariant(12) << true << true;
    QTest::newRow("crop at the catalogue's")
        << "Crop" << Properties{{"crop_left", 12}} << "crop_left" << QVariant(0) << false << false;
    QTest::newRow("watermark factor") << "Watermark" << Properties{{"wm_hposfactor", 0.5}} << "wm_hposfactor"
                                      << QVariant(0.1) << false << false;
    QTest::newRow("watermark colour") << "Watermark" << Properties{{"wm_fontcolor", QColor(Qt::red)}} << "wm_fontcolor"
                                      << QVariant(QColor(Qt::red)) << true << true;
}

void TstModelDefaultCheck::customDefaultReplacesTheCatalogues()
{
    QFETCH(QString, type);
    QFETCH(Properties, custom);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(bool, singleIsDefault);
    QFETCH(bool, typeIsDefault);
    ZoEffectModel model;
    saveCustomDefault(type, custom);

    model.getDataItem(type, -1)->setData(key, value);

    QCOMPARE(model.SingleDataIsDefault(type, key, -1), singleIsDefault);
    QCOMPARE(model.dataIsDefault(type), typeIsDefault);
}

void TstModelDefaultCheck::customDefaultsOfOtherTypesDoNotCount()
{
    ZoEffectModel model;
    saveCustomDefault("Color", {{"audio_effect_flag", true}});
    saveCustomDefault("Audio_Echo", {{"audio_effect_flag", true}, {"bcs_contrast", 9}});

    QCOMPARE(model.SingleDataIsDefault("Audio_Chorus", "audio_effect_flag", -1), true);
    QCOMPARE(model.SingleDataIsDefault("Audio_Echo", "audio_effect_flag", -1), false);
    QCOMPARE(model.SingleDataIsDefault("Color", "bcs_contrast", -1), true);
    QCOMPARE(model.dataIsDefault("Audio_Chorus"), true);
    QCOMPARE(model.dataIsDefault("Audio_Echo"), false);
    QCOMPARE(model.dataIsDefault("Color"), true);

    ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal("Audio_Echo");
    QCOMPARE(model.SingleDataIsDefault("Audio_Echo", "audio_effect_flag", -1), true);
    QCOMPARE(model.dataIsDefault("Audio_Echo"), true);
}

void TstModelDefaultCheck::modelBuiltFromCustomDefaultHoldsIt()
{
    saveCustomDefault("Color", {{"bcs_contrast", 10}});
    saveCustomDefault("Crop", {{"crop_left", 12}});
    const ZoEffectModel model;

    QCOMPARE(model.SingleDataIsDefault("Color", "bcs_contrast", -1), true);
    QCOMPARE(model.dataIsDefault("Color"), true);
    // A new crop starts from the catalogue although it is compared with the custom default.
    QCOMPARE(model.SingleDataIsDefault("Crop", "crop_left", -1), false);
    QCOMPARE(model.dataIsDefault("Crop"), false);
}

// The position that follows the height of the video is no change of the setting.
void TstModelDefaultCheck::subtitlePositionIsComparedAsStored()
{
    ZoEffectModel model;
    model.setVideoSize(720, 500);
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QString("double 400"));
    QCOMPARE(model.SingleDataIsDefault("Subtitle", "sub_vposition", -1), true);
    QCOMPARE(model.dataIsDefault("Subtitle"), true);

    QVERIFY(model.setData("sub_vposition", 400, "Subtitle", -1));
    QCOMPARE(model.SingleDataIsDefault("Subtitle", "sub_vposition", -1), false);
    QCOMPARE(model.dataIsDefault("Subtitle"), false);

    // The mark that the user set it is no key of the catalogue.
    QVERIFY(model.setData("sub_vposition", 200, "Subtitle", -1));
    QCOMPARE(model.data("dvdsubtitleposeditbyuser", "Subtitle", -1), QVariant(true));
    QCOMPARE(model.SingleDataIsDefault("Subtitle", "sub_vposition", -1), true);
    QCOMPARE(model.dataIsDefault("Subtitle"), true);
}

void TstModelDefaultCheck::singleValueAnswersTrue_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("pos");

    QTest::newRow("type that nobody knows") << "Alien"
                                            << "k" << -1;
    QTest::newRow("empty type") << ""
                                << "" << -1;
    QTest::newRow("type in other letter case") << "color"
                                               << "bcs_contrast" << -1;
    QTest::newRow("position below") << "Color"
                                    << "bcs_contrast" << -2;
    QTest::newRow("position of no item") << "Color"
                                         << "bcs_contrast" << 0;
    QTest::newRow("position behind the items") << "Watermark"
                                               << "wm_fontsize" << 1;
    QTest::newRow("watermark place of no item") << "Watermark"
                                                << "wm_hposition" << 1;
    QTest::newRow("watermark place far behind") << "Watermark"
                                                << "wm_vposition" << std::numeric_limits<int>::max();
    QTest::newRow("key that nobody knows") << "Color"
                                           << "k" << -1;
    QTest::newRow("key of another type") << "Color"
                                         << "wm_fontsize" << -1;
    QTest::newRow("key in other letter case") << "Color"
                                              << "BCS_CONTRAST" << -1;
    QTest::newRow("beginning of a key") << "Color"
                                        << "bcs_" << -1;
    QTest::newRow("empty key") << "Color"
                               << "" << -1;
    QTest::newRow("check state") << "Color"
                                 << "_checkstate" << -1;
    QTest::newRow("type without properties") << "Effect"
                                             << "k" << -1;
    QTest::newRow("key of a frame effect") << "Effect"
                                           << "_checkstate" << 0;
    QTest::newRow("id of a frame effect") << "Effect"
                                          << "id" << 0;
    QTest::newRow("name of an item") << "Mirror"
                                     << "_checkstate" << -1;
    QTest::newRow("root") << "effect root"
                          << "w" << -1;
    QTest::newRow("types of the root") << "effect root"
                                       << "bcs_contrast" << 4;
}

void TstModelDefaultCheck::singleValueAnswersTrue()
{
    QFETCH(QString, type);
    QFETCH(QString, key);
    QFETCH(int, pos);
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
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelDefaultCheck::singleValueOfAnItem_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("expected");

    QTest::newRow("default") << "Watermark"
                             << "wm_fontsize" << QVariant(22) << true;
    QTest::newRow("changed") << "Watermark"
                             << "wm_fontsize" << QVariant(23) << false;
    QTest::newRow("missing") << "Watermark"
                             << "wm_fontsize" << QVariant() << false;
    QTest::newRow("key outside the table") << "Watermark"
                                           << "wm_textcontent" << QVariant("text") << true;
    QTest::newRow("subtitle position, own value") << "Subtitle"
                                                  << "sub_vposition" << QVariant(200) << true;
    QTest::newRow("subtitle position, derived value") << "Subtitle"
                                                      << "sub_vposition" << QVariant(384) << false;
    QTest::newRow("track id") << "Audio"
                              << "trackid" << QVariant(3) << true;
    QTest::newRow("key of the type on its item") << "Audio"
                                                 << "play_loop" << QVariant(true) << false;
}

void TstModelDefaultCheck::singleValueOfAnItem()
{
    QFETCH(QString, type);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(bool, expected);
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

void TstModelDefaultCheck::watermarkPosition_data()
{
    QTest::addColumn<QSize>("base");
    QTest::addColumn<Properties>("custom");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("position");
    QTest::addColumn<bool>("expected");

    const QString h = "wm_hposition";
    const QString v = "wm_vposition";
    const Properties catalogueOnly;
    const Properties half{{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.5}};
    const auto factor = [](const QVariant& value) {
        return Properties{{"wm_hposfactor", value}, {"wm_vposfactor", value}};
    };

    QTest::newRow("a tenth of the width") << QSize(720, 480) << catalogueOnly << h << QVariant(72) << true;
    QTest::newRow("one pixel more") << QSize(720, 480) << catalogueOnly << h << QVariant(73) << false;
    QTest::newRow("one pixel less") << QSize(720, 480) << catalogueOnly << h << QVariant(71) << false;
    QTest::newRow("a tenth of the height") << QSize(720, 480) << catalogueOnly << v << QVariant(48) << true;
    QTest::newRow("height is not width") << QSize(720, 480) << catalogueOnly << v << QVariant(72) << false;
    QTest::newRow("width is not height") << QSize(720, 480) << catalogueOnly << h << QVariant(48) << false;
    QTest::newRow("catalogue's position at a fitting size")
        << QSize(300, 300) << catalogueOnly << h << QVariant(30) << true;
    QTest::newRow("catalogue's position at another size")
        << QSize(720, 480) << catalogueOnly << h << QVariant(30) << false;
    QTest::newRow("no size: 0") << QSize(0, 0) << catalogueOnly << h << QVariant(0) << true;
    QTest::newRow("no size: 30") << QSize(0, 0) << catalogueOnly << h << QVariant(30) << false;
    QTest::newRow("no width, the height plays no part") << QSize(0, 480) << catalogueOnly << h << QVariant(0) << true;
    QTest::newRow("no height, the width plays no part") << QSize(720, 0) << catalogueOnly << v << QVariant(0) << true;
    QTest::newRow("fraction, cut") << QSize(1024, 576) << catalogueOnly << v << QVariant(57) << false;
    QTest::newRow("fraction, rounded") << QSize(1024, 576) << catalogueOnly << v << QVariant(58) << false;
    QTest::newRow("fraction, rounded by the value")
        << QSize(1024, 576) << catalogueOnly << v << QVariant(57.6) << false;
    QTest::newRow("negative size") << QSize(-720, -480) << catalogueOnly << h << QVariant(-72) << true;

    QTest::newRow("saved factor, half of 720") << QSize(720, 480) << half << h << QVariant(360) << true;
    QTest::newRow("saved factor, one pixel off") << QSize(720, 480) << half << h << QVariant(361) << false;
    QTest::newRow("saved factor, catalogue's place") << QSize(720, 480) << half << h << QVariant(72) << false;
    QTest::newRow("saved factor, height") << QSize(720, 480) << half << v << QVariant(240) << true;
    QTest::newRow("saved factor of the other direction only")
        << QSize(720, 480) << Properties{{"wm_vposfactor", 0.5}} << h << QVariant(72) << true;
    QTest::newRow("saved factor 0") << QSize(720, 480) << factor(0) << h << QVariant(0) << true;
    QTest::newRow("saved factor 1") << QSize(720, 480) << factor(1) << h << QVariant(720) << true;
    QTest::newRow("saved factor as text") << QSize(720, 480) << factor("0.5") << h << QVariant(360) << true;
    QTest::newRow("saved factor that is no number: 0") << QSize(720, 480) << factor("abc") << h << QVariant(0) << true;
    QTest::newRow("saved factor not a number") << QSize(720, 480) << factor(std::nan("")) << h << QVariant(0) << false;
    QTest::newRow("saved invalid factor: the catalogue's")
        << QSize(720, 480) << factor(QVariant()) << h << QVariant(72) << true;
    QTest::newRow("saved position plays no part")
        << QSize(720, 480) << Properties{{"wm_hposition", 33}} << h << QVariant(33) << false;
    QTest::newRow("saved position does not hide the factor")
        << QSize(720, 480) << Properties{{"wm_hposition", 33}} << h << QVariant(72) << true;

    // 0.55 x 720 is 396.00000000000006 as a double, 0.29 x 100 is 28.999999999999996.
    QTest::newRow("product a hair above") << QSize(720, 480) << factor(0.55) << h << QVariant(396) << false;
    QTest::newRow("product exact at another size") << QSize(1280, 720) << factor(0.55) << h << QVariant(704) << true;
    QTest::newRow("product a hair below, rounded") << QSize(100, 100) << factor(0.29) << h << QVariant(29) << false;
    QTest::newRow("product a hair below, cut") << QSize(100, 100) << factor(0.29) << h << QVariant(28) << false;
    QTest::newRow("product exact for a larger frame") << QSize(300, 100) << factor(0.29) << h << QVariant(87) << true;

    QTest::newRow("position as text") << QSize(720, 480) << catalogueOnly << h << QVariant("72") << true;
    QTest::newRow("position text with a fraction is 0")
        << QSize(720, 480) << catalogueOnly << h << QVariant("72.0") << false;
    QTest::newRow("position as a double") << QSize(720, 480) << catalogueOnly << h << QVariant(72.0) << true;
    QTest::newRow("position rounded down") << QSize(720, 480) << catalogueOnly << h << QVariant(72.4) << true;
    QTest::newRow("position rounded up") << QSize(720, 480) << catalogueOnly << h << QVariant(71.5) << true;
    QTest::newRow("position rounded away") << QSize(720, 480) << catalogueOnly << h << QVariant(72.5) << false;
    QTest::newRow("negative half rounds to 0") << QSize(0, 0) << catalogueOnly << h << QVariant(-0.5) << true;
    QTest::newRow("no number is 0") << QSize(0, 0) << catalogueOnly << h << QVariant("abc") << true;
    QTest::newRow("missing position is 0") << QSize(0, 0) << catalogueOnly << h << QVariant() << true;
    QTest::newRow("missing position in a frame") << QSize(720, 480) << catalogueOnly << v << QVariant() << false;
}

void TstModelDefaultCheck::watermarkPosition()
{
    QFETCH(QSize, base);
    QFETCH(Properties, custom);
    QFETCH(QString, key);
    QFETCH(QVariant, position);
    QFETCH(bool, expected);
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
void TstModelDefaultCheck::watermarkPositionWithoutCatalogue()
{
    ZoEffectModel model("Watermark", {{"wm_hposition", 0}, {"wm_vposition", 30}, {"wm_fontsize", 1}});
    model.setVideoSize(300, 300);
    ZoEffectModel::InitEffectModel(nullptr);
    QCOMPARE(logcapture::takeEvents(), QList<int>{25});

    QCOMPARE(model.SingleDataIsDefault("Watermark", "wm_hposition", -1), true);
    QCOMPARE(model.SingleDataIsDefault("Watermark", "wm_vposition", -1), false);
    QCOMPARE(model.SingleDataIsDefault("Watermark", "wm_fontsize", -1), true);
    QCOMPARE(logcapture::takeEvents(), QList<int>());

    saveCustomDefault("Watermark", {{"wm_vposfactor", 0.1}});
    QCOMPARE(model.SingleDataIsDefault("Watermark", "wm_vposition", -1), true);
    ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal("Watermark");
}

void TstModelDefaultCheck::positionKeysOfOtherTypesAreOrdinary()
{
    const EffectDefaultVal properties[] = {::property("wm_hposition", 30), ::property(nullptr, 0)};
    const EffectControlItem table[] = {effectType("watermark", properties), effectType("Watermark", nullptr),
                                       effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;
    model.setVideoSize(720, 480);

    QCOMPARE(model.SingleDataIsDefault("watermark", "wm_hposition", -1), true);
    model.getDataItem("watermark", -1)->setData("wm_hposition", 31);
    QCOMPARE(model.SingleDataIsDefault("watermark", "wm_hposition", -1), false);

    // Other letter case of the key on the type itself: not in the table.
    model.getDataItem("Watermark", -1)->setData("WM_hposition", 31);
    QCOMPARE(model.SingleDataIsDefault("Watermark", "WM_hposition", -1), true);
}

void TstModelDefaultCheck::unknownTypeIsLogged_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("nobody knows it") << "Alien";
    QTest::newRow("empty name") << "";
    QTest::newRow("other letter case") << "color";
    QTest::newRow("the model has it, the catalogue not") << "Own type";
    QTest::newRow("name of an item") << "Mirror";
    QTest::newRow("root") << "effect root";
}

void TstModelDefaultCheck::unknownTypeIsLogged()
{
    QFETCH(QString, type);
    ZoEffectModel model;
    new ZoEffectItemData("Own type", root(model));
    saveCustomDefault(type, {{"k", 1}});

    QCOMPARE(model.dataIsDefault(type), true);
    QCOMPARE(logcapture::takeEvents(), QList<int>{518});
    QCOMPARE(model.dataIsDefault(type), true);
    QCOMPARE(model.dataIsDefault(type), true);
    QCOMPARE(logcapture::takeEvents(), (QList<int>{518, 518}));
}

void TstModelDefaultCheck::typeWithoutNodeIsDefault_data()
{
    QTest::addColumn<QString>("type");

    for (const char* type :
         {"Plain", "Hollow", "Panel", "Short", "Empty", "Both", "Toggle", "Group", "Inner", "InnerPanel", "Effect"})
        QTest::newRow(type) << type;
}

void TstModelDefaultCheck::typeWithoutNodeIsDefault()
{
    QFETCH(QString, type);
    ZoEffectModel::InitEffectModel(studioCatalogue());
    const ZoEffectModel model(QStringList{"Cut"});
    saveCustomDefault(type, {{"level", 99}, {"Effect", "Left|false"}});

    QCOMPARE(model.dataIsDefault(type), true);
    QCOMPARE(model.SingleDataIsDefault(type, "level", -1), true);
    QCOMPARE(model.FrameEffectIsDefault(), true);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelDefaultCheck::propertiesOfTheTypeSettleIt_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("properties");
    QTest::addColumn<QVariantList>("items");
    QTest::addColumn<bool>("expected");

    const QVariantList changed{item("Other", 2, {{"gain", 99}})};
    QTest::newRow("properties hold, items changed") << "Both" << Properties{{"level", 3}} << changed << true;
    QTest::newRow("properties hold, no items") << "Both" << Properties{{"level", 3}} << QVariantList() << true;
    QTest::newRow("property changed") << "Both" << Properties{{"level", 4}} << changed << false;
    QTest::newRow("property missing") << "Both" << Properties{} << changed << false;
    QTest::newRow("property beside the table") << "Both" << Properties{{"level", 3}, {"extra", 9}} << changed << true;
    QTest::newRow("empty table, items changed") << "Hollow" << Properties{} << changed << true;
    QTest::newRow("empty table, no items") << "Hollow" << Properties{} << QVariantList() << true;
    QTest::newRow("empty table, property beside it") << "Hollow" << Properties{{"extra", 9}} << changed << true;
    QTest::newRow("neither properties nor items") << "Plain" << Properties{{"extra", 9}} << changed << true;
}

void TstModelDefaultCheck::propertiesOfTheTypeSettleIt()
{
    QFETCH(QString, type);
    QFETCH(Properties, properties);
    QFETCH(QVariantList, items);
    QFETCH(bool, expected);
    ZoEffectModel::InitEffectModel(studioCatalogue());
    ZoEffectModel model(type, properties);
    setItems(model.getDataItem(type, -1), items);

    QCOMPARE(model.dataIsDefault(type), expected);
    // An empty table knows no key, neither does a missing one.
    QCOMPARE(model.SingleDataIsDefault(type, "extra", -1), true);
    QCOMPARE(model.SingleDataIsDefault(type, "level", -1), expected);
}

// Only the question about one property knows of the factors.
void TstModelDefaultCheck::watermarkTypeComparesItsPositionsPlainly()
{
    ZoEffectModel model;
    model.setVideoSize(720, 480);
    QCOMPARE(model.dataIsDefault("Watermark"), true);
    QCOMPARE(model.SingleDataIsDefault("Watermark", "wm_hposition", -1), false);

    model.getDataItem("Watermark", -1)->setData("wm_hposition", 72);
    QCOMPARE(model.dataIsDefault("Watermark"), false);
    QCOMPARE(model.SingleDataIsDefault("Watermark", "wm_hposition", -1), true);

    saveCustomDefault("Watermark", {{"wm_hposition", 72}});
    QCOMPARE(model.dataIsDefault("Watermark"), true);
    model.getDataItem("Watermark", -1)->setData("wm_vposition", 31);
    QCOMPARE(model.dataIsDefault("Watermark"), false);
}

// In the table of a type "_checkstate" is a key like any other.
void TstModelDefaultCheck::typeCheckStateIsNoValue()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    ZoEffectModel model;
    ZoEffectItemData* node = model.getDataItem("Toggle", -1);
    QCOMPARE(described(node->properties()), QString("{_checkstate: bool true, k: int 1}"));

    node->setCheckState(0);
    QCOMPARE(model.SingleDataIsDefault("Toggle", "_checkstate", -1), true);
    QCOMPARE(model.dataIsDefault("Toggle"), true);

    node->setCheckState(2);
    node->setData("_checkstate", false);
    QCOMPARE(model.SingleDataIsDefault("Toggle", "_checkstate", -1), false);
    QCOMPARE(model.dataIsDefault("Toggle"), false);

    node->delData("_checkstate");
    QCOMPARE(model.SingleDataIsDefault("Toggle", "_checkstate", -1), false);
    QCOMPARE(model.dataIsDefault("Toggle"), false);
}

void TstModelDefaultCheck::keyThatStandsTwice()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    ZoEffectModel model;
    ZoEffectItemData* node = model.getDataItem("Twice", -1);

    // A new node holds the later default; one property is compared with the first, a type with both.
    QCOMPARE(described(node->properties()), QString("{k: int 2}"));
    QCOMPARE(model.SingleDataIsDefault("Twice", "k", -1), false);
    QCOMPARE(model.dataIsDefault("Twice"), false);
    node->setData("k", 1);
    QCOMPARE(model.SingleDataIsDefault("Twice", "k", -1), true);
    QCOMPARE(model.dataIsDefault("Twice"), false);

    saveCustomDefault("Twice", {{"k", 5}});
    node->setData("k", 5);
    QCOMPARE(model.SingleDataIsDefault("Twice", "k", -1), true);
    QCOMPARE(model.dataIsDefault("Twice"), true);
}

void TstModelDefaultCheck::tableEndsAtItsNullKey()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    ZoEffectModel model;
    ZoEffectItemData* node = model.getDataItem("Cut", -1);
    QCOMPARE(described(node->properties()), QString("{before: int 1}"));

    node->setData("behind", 99);
    QCOMPARE(model.SingleDataIsDefault("Cut", "behind", -1), true);
    QCOMPARE(model.SingleDataIsDefault("Cut", QString(), -1), true);
    QCOMPARE(model.dataIsDefault("Cut"), true);
    node->setData("before", 99);
    QCOMPARE(model.SingleDataIsDefault("Cut", "before", -1), false);
    QCOMPARE(model.dataIsDefault("Cut"), false);
}

void TstModelDefaultCheck::missingValueEqualsAnInvalidDefault()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    ZoEffectModel model;
    ZoEffectItemData* node = model.getDataItem("Absent", -1);
    node->delData("absent");
    node->delData("trackid");
    QCOMPARE(model.SingleDataIsDefault("Absent", "absent", -1), true);
    QCOMPARE(model.SingleDataIsDefault("Absent", "trackid", -1), true); // A missing track id reads -1.
    QCOMPARE(model.dataIsDefault("Absent"), true);

    node->setData("absent", 0);
    QCOMPARE(model.SingleDataIsDefault("Absent", "absent", -1), false);
    QCOMPARE(model.dataIsDefault("Absent"), false);
    node->delData("absent");
    node->setData("trackid", 0);
    QCOMPARE(model.SingleDataIsDefault("Absent", "trackid", -1), false);
    QCOMPARE(model.dataIsDefault("Absent"), false);
}

void TstModelDefaultCheck::namesOutsideAscii()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    ZoEffectModel model;
    const QString type = QString::fromUtf8("R\xC3\xA9glage");
    const QString key = QString::fromUtf8("cl\xC3\xA9");
    QCOMPARE(model.SingleDataIsDefault(type, key, -1), true);
    QCOMPARE(model.dataIsDefault(type), true);

    model.getDataItem(type, -1)->setData(key, 5);
    QCOMPARE(model.SingleDataIsDefault(type, key, -1), false);
    QCOMPARE(model.dataIsDefault(type), false);
    saveCustomDefault(type, {{key, 5}});
    QCOMPARE(model.SingleDataIsDefault(type, key, -1), true);
    QCOMPARE(model.dataIsDefault(type), true);

    // Read as Latin-1 the names would be others.
    QCOMPARE(model.dataIsDefault(QString::fromLatin1("R\xC3\xA9glage")), true);
    QCOMPARE(logcapture::takeEvents(), QList<int>{518});
}

void TstModelDefaultCheck::nestedTypes()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    for (const char* type : {"Inner", "Deepest"}) {
        ZoEffectModel model(type, {{"depth", 7}});
        QCOMPARE(model.SingleDataIsDefault(type, "depth", -1), true);
        QCOMPARE(model.dataIsDefault(type), true);
        model.getDataItem(type, -1)->setData("depth", 8);
        QCOMPARE(model.SingleDataIsDefault(type, "depth", -1), false);
        QCOMPARE(model.dataIsDefault(type), false);
    }

    ZoEffectModel model("InnerPanel", {});
    QCOMPARE(model.dataIsDefault("InnerPanel"), false);
    model.InitSubItemData(model.getDataItem("InnerPanel", -1),
                          ZoEffectModel::findOriItem("InnerPanel", studioCatalogue())->subItems);
    QCOMPARE(model.childCount("InnerPanel"), 3);
    QCOMPARE(model.dataIsDefault("InnerPanel"), true);
    model.getDataItem("InnerPanel", 1)->setData("mode", "hard");
    QCOMPARE(model.dataIsDefault("InnerPanel"), false);
}

void TstModelDefaultCheck::itemsOfAType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QVariantList>("items");
    QTest::addColumn<bool>("expected");

    const QVariant left = item("Left", 2, {{"gain", 5}});
    const QVariant right = item("Right", 0, {{"mode", "soft"}});
    const QVariant plain = item(cafe, 2);
    const auto panel = [](const char* name, const QVariantList& items, bool expected) {
        QTest::newRow(name) << "Panel" << items << expected;
    };
    panel("all as listed", {left, right, plain}, true);
    panel("no items", {}, false);
    panel("first item only", {left}, false);
    panel("last item missing", {left, right}, false);
    panel("first item missing", {right, plain}, false);
    panel("other order", {right, left, plain}, false);
    panel("last ones exchanged", {left, plain, right}, false);
    panel("item twice", {left, left, right, plain}, false);
    panel("one item more", {left, right, plain, item("More", 2)}, false);
    panel("one item without name more", {left, right, plain, item("", 2)}, false);
    panel("many items more", {left, right, plain, left, right, plain, left, right, plain}, false);
    panel("name in other letter case", {item("left", 2, {{"gain", 5}}), right, plain}, false);
    panel("item without name", {item("", 2, {{"gain", 5}}), right, plain}, false);
    panel("name read as Latin-1", {left, right, item(QString::fromLatin1("Caf\xC3\xA9"), 2)}, false);
    panel("first item changed", {item("Left", 2, {{"gain", 6}}), right, plain}, false);
    panel("second item changed", {left, item("Right", 0, {{"mode", "hard"}}), plain}, false);
    panel("both changed", {item("Left", 2, {{"gain", 6}}), item("Right", 0, {{"mode", "hard"}}), plain}, false);
    panel("values of the next item instead", {item("Left", 2, {{"mode", "soft"}}), right, plain}, false);
    panel("value missing", {item("Left", 2), right, plain}, false);
    panel("equal value of another type", {item("Left", 2, {{"gain", "5"}}), right, plain}, true);
    panel("first item switched off", {item("Left", 0, {{"gain", 5}}), right, plain}, false);
    panel("first item partially checked", {item("Left", 1, {{"gain", 5}}), right, plain}, false);
    panel("second item switched on", {left, item("Right", 2, {{"mode", "soft"}}), plain}, false);
    panel("second item partially checked", {left, item("Right", 1, {{"mode", "soft"}}), plain}, false);
    panel("item without properties switched off", {left, right, item(cafe, 0)}, true);
    panel("item without properties with values", {left, right, item(cafe, 1, {{"gain", 9}})}, true);
    panel("value beside the table", {item("Left", 2, {{"gain", 5}, {"extra", 1}}), right, plain}, true);
    panel("id plays no part", {item("Left", 2, {{"gain", 5}, {"id", 77}}), right, plain}, true);
    // A stored "_checkstate" is the item's value, and an equal value settles the key.
    panel("stored check state holds, state switched off",
          {item("Left", 0, {{"gain", 5}, {"_checkstate", true}}), right, plain}, true);
    panel("stored check state differs, state holds",
          {item("Left", 2, {{"gain", 5}, {"_checkstate", false}}), right, plain}, true);
    panel("stored check state differs, state too",
          {item("Left", 0, {{"gain", 5}, {"_checkstate", false}}), right, plain}, false);
    panel("state holds, value before it changed", {left, item("Right", 0, {{"mode", "hard"}}), plain}, false);
    panel("null entry in place of an item", {left, QVariant(), plain}, true);
    panel("null entries in place of all items", {QVariant(), QVariant(), QVariant()}, true);
    panel("null entry, another item changed", {item("Left", 2, {{"gain", 6}}), QVariant(), plain}, false);

    QTest::newRow("short list, its item") << "Short" << QVariantList{left} << true;
    QTest::newRow("short list, item without name behind") << "Short" << QVariantList{left, item("", 2)} << false;
    QTest::newRow("short list, what stands behind its end") << "Short" << QVariantList{left, right} << false;
    QTest::newRow("short list, as if it went on") << "Short" << QVariantList{left, item("", 2), right} << false;
    QTest::newRow("empty list, no items") << "Empty" << QVariantList{} << true;
    QTest::newRow("empty list, one item") << "Empty" << QVariantList{left} << false;
    QTest::newRow("empty list, item without name") << "Empty" << QVariantList{item("", 2)} << false;
    const QString key = QString::fromUtf8("cl\xC3\xA9");
    QTest::newRow("key outside ASCII, default") << "Accents" << QVariantList{item("A", 2, {{key, 4}})} << true;
    QTest::newRow("key outside ASCII, changed") << "Accents" << QVariantList{item("A", 2, {{key, 5}})} << false;
    QTest::newRow("no list, items") << "Plain" << QVariantList{left, right} << true;
    QTest::newRow("no list, no items") << "Plain" << QVariantList{} << true;
}

void TstModelDefaultCheck::itemsOfAType()
{
    QFETCH(QString, type);
    QFETCH(QVariantList, items);
    QFETCH(bool, expected);
    ZoEffectModel::InitEffectModel(studioCatalogue());
    ZoEffectModel model;
    setItems(model.getDataItem(type, -1), items);

    QCOMPARE(model.dataIsDefault(type), expected);
    // The type's own values and check state play no part.
    model.getDataItem(type, -1)->setData("gain", 99);
    model.getDataItem(type, -1)->setCheckState(0);
    QCOMPARE(model.dataIsDefault(type), expected);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelDefaultCheck::itemsIgnoreCustomDefaults()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    ZoEffectModel model;
    saveCustomDefault("Panel", {{"gain", 6}, {"mode", "hard"}, {"_checkstate", false}});
    saveCustomDefault("Left", {{"gain", 6}});

    QCOMPARE(model.dataIsDefault("Panel"), true);
    model.getDataItem("Panel", 0)->setData("gain", 6);
    QCOMPARE(model.dataIsDefault("Panel"), false);
    ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal("Left");
}

void TstModelDefaultCheck::freshItemsAreDefault()
{
    ZoEffectModel::InitEffectModel(studioCatalogue());
    ZoEffectModel model;
    QCOMPARE(model.childCount("Panel"), 3);
    QCOMPARE(model.dataIsDefault("Panel"), true);
    QVERIFY(model.setData("_checkstate", true, "Panel", 1));
    QCOMPARE(model.dataIsDefault("Panel"), false);
    QVERIFY(model.setData("_checkstate", false, "Panel", 1));
    QCOMPARE(model.dataIsDefault("Panel"), true);
    QVERIFY(model.getDataItem("Panel", -1)->changeItemPos(0, 2));
    QCOMPARE(model.dataIsDefault("Panel"), false);
    QVERIFY(model.getDataItem("Panel", -1)->changeItemPos(2, 0));
    QCOMPARE(model.dataIsDefault("Panel"), true);
}

void TstModelDefaultCheck::typesWithoutItems_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("expected");

    QTest::newRow("no list of items") << "Plain" << true;
    QTest::newRow("empty list of items") << "Empty" << true;
    QTest::newRow("nested types are no items") << "Group" << true;
    QTest::newRow("list of items") << "Panel" << false;
    QTest::newRow("list of one item") << "Short" << false;
}

void TstModelDefaultCheck::typesWithoutItems()
{
    QFETCH(QString, type);
    QFETCH(bool, expected);
    ZoEffectModel::InitEffectModel(studioCatalogue());
    const ZoEffectModel model(type, {});

    QCOMPARE(model.dataIsDefault(type), expected);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelDefaultCheck::effectWithoutPropertiesAsksItsItems()
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

void TstModelDefaultCheck::effectWithPropertiesDoesNot()
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

void TstModelDefaultCheck::answersChangeNothing()
{
    ZoEffectModel model;
    saveCustomDefault("Color", {{"bcs_contrast", 10}});
    model.getDataItem("Color", -1)->setCheckState(1);
    TestApplication::instance()->pref.takeWrites();
    SignalRecorder recorder(model);

    model.dataIsDefault("Color");
    model.SingleDataIsDefault("Color", "bcs_contrast", -1);
    model.SingleDataIsDefault("Watermark", "wm_hposition", -1);
    model.FrameEffectIsDefault();
    model.hasRealEffect();

    QCOMPARE(described(model.getDataItem("Color", -1)->properties()),
             QString("{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}"));
    QCOMPARE(model.getDataItem("Color", -1)->checkState(), 1);
    QCOMPARE(described(root(model)->properties()), QString("{}"));
    QCOMPARE(model.editByDefault(), false);
    QCOMPARE(TestApplication::instance()->pref.takeWrites(), QStringList());
    QCOMPARE(recorder.take(), QStringList());
}

// --- hasRealEffect -----------------------------------------------------------------------------------------

void TstModelDefaultCheck::freshModelsHaveNoEffect_data()
{
    QTest::addColumn<QStringList>("types");

    QTest::newRow("all types") << QStringList{};
    QTest::newRow("video types") << videoTypes();
    const QStringList types = videoTypes();
    for (const QString& type : types)
        QTest::newRow(qPrintable(type)) << QStringList{type};
    for (const char* type : {"Audio_Fade_Inout", "Audio_Normalize", "Audio_BandPass", "Audio_Chorus", "Audio_Flanger",
                             "Audio_Echo", "Audio_Speed"})
        QTest::newRow(type) << QStringList{type};
    QTest::newRow("types that do not exist") << QStringList{"Alien"};
}

void TstModelDefaultCheck::freshModelsHaveNoEffect()
{
    QFETCH(QStringList, types);
    ZoEffectModel model(types);
    QCOMPARE(model.hasRealEffect(), false);
    model.setVideoSize(1920, 1080);
    QCOMPARE(model.hasRealEffect(), false);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelDefaultCheck::audioEffect_data()
{
    // Type nodes in order, "+" before a flagged one; then the properties that all of them get.
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<Properties>("properties");
    QTest::addColumn<bool>("expected");

    const Properties speed10{{"audio_speed_factor", 10}};
    const Properties noFade{{"audio_fade_in_enable", false}, {"audio_fade_out_enable", false}};
    QTest::newRow("none flagged") << QStringList{"Audio_Echo", "Audio_Speed"} << Properties{} << false;
    QTest::newRow("echo") << QStringList{"+Audio_Echo"} << Properties{} << true;
    QTest::newRow("normalize") << QStringList{"+Audio_Normalize"} << Properties{} << true;
    QTest::newRow("band pass") << QStringList{"+Audio_BandPass"} << Properties{} << true;
    QTest::newRow("chorus") << QStringList{"+Audio_Chorus"} << Properties{} << true;
    QTest::newRow("flanger") << QStringList{"+Audio_Flanger"} << Properties{} << true;
    QTest::newRow("flagged behind unflagged ones")
        << QStringList{"Audio_Fade_Inout", "Audio_Speed", "+Audio_Echo"} << Properties{} << true;
    QTest::newRow("speed 10 decides, before echo") << QStringList{"+Audio_Speed", "+Audio_Echo"} << speed10 << false;
    QTest::newRow("speed 10 not flagged, before echo") << QStringList{"Audio_Speed", "+Audio_Echo"} << speed10 << true;
    QTest::newRow("speed 10 behind echo") << QStringList{"+Audio_Echo", "+Audio_Speed"} << speed10 << true;
    QTest::newRow("no fade decides, before echo") << QStringList{"+Audio_Fade_Inout", "+Audio_Echo"} << noFade << false;
    QTest::newRow("no fade not flagged, before echo")
        << QStringList{"Audio_Fade_Inout", "+Audio_Echo"} << noFade << true;
    QTest::newRow("no fade decides, before another fade")
        << QStringList{"+Audio_Fade_Inout", "+Audio_Speed"} << noFade << false;
    QTest::newRow("flagged video type is any other type") << QStringList{"+Crop", "Audio_Echo"} << Properties{} << true;
    QTest::newRow("flagged unknown type is any other type")
        << QStringList{"Audio_Echo", "+Alien"} << Properties{} << true;
    QTest::newRow("unflagged video types") << QStringList{"Crop", "Audio", "Audio_Echo"} << Properties{} << false;
    QTest::newRow("unflagged unknown types are not logged")
        << QStringList{"Alien", "Audio_Echo"} << Properties{} << false;
}

void TstModelDefaultCheck::audioEffect()
{
    QFETCH(QStringList, types);
    QFETCH(Properties, properties);
    QFETCH(bool, expected);
    ZoEffectModel model(ZoEffectModel(), nullptr);
    for (const QString& type : types) {
        const bool flagged = type.startsWith(QLatin1Char('+'));
        auto* node = new ZoEffectItemData(flagged ? type.mid(1) : type, root(model));
        node->setData("audio_effect_flag", flagged);
        for (auto it = properties.cbegin(); it != properties.cend(); ++it)
            node->setData(it.key(), it.value());
    }

    QCOMPARE(model.hasRealEffect(), expected);
    root(model)->insertChild(nullptr, 0);
    root(model)->insertChild(nullptr, 2);
    QCOMPARE(model.hasRealEffect(), expected);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelDefaultCheck::audioEffectIgnoresCheckStates()
{
    ZoEffectModel model;
    model.getDataItem("Audio_Echo", -1)->setData("audio_effect_flag", true);
    for (int row = 0; row < root(model)->childCount(); ++row)
        root(model)->child(row)->setCheckState(0);

    QCOMPARE(model.hasRealEffect(), true);
}

void TstModelDefaultCheck::audioEffectModelIgnoresVideoSettings()
{
    ZoEffectModel model;
    model.setVideoSize(1920, 1080);
    model.getDataItem("Color", -1)->setData("bcs_contrast", 10);
    model.getDataItem("Effect", 0)->setCheckState(2);
    model.getDataItem("Crop", -1)->setData("crop_width", 100);
    model.getDataItem("Crop", -1)->setData("crop_height", 100);
    new ZoEffectItemData(QString(), model.getDataItem("Watermark", -1));
    new ZoEffectItemData("Alien", root(model));
    QCOMPARE(model.isCroped(0, 0), true);

    QCOMPARE(model.hasRealEffect(), false);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelDefaultCheck::audioFlag_data()
{
    QTest::addColumn<QVariant>("flag");
    QTest::addColumn<bool>("expected");

    QTest::newRow("true") << QVariant(true) << true;
    QTest::newRow("false") << QVariant(false) << false;
    QTest::newRow("missing") << QVariant() << false;
    QTest::newRow("1") << QVariant(1) << true;
    QTest::newRow("0") << QVariant(0) << false;
    QTest::newRow("text true") << QVariant("true") << true;
    QTest::newRow("text false") << QVariant("false") << false;
    QTest::newRow("text 0") << QVariant("0") << false;
    QTest::newRow("any text") << QVariant("off") << true;
    QTest::newRow("not a number") << QVariant(std::nan("")) << false;
    QTest::newRow("below one half") << QVariant(0.4) << false;
}

void TstModelDefaultCheck::audioFlag()
{
    QFETCH(QVariant, flag);
    QFETCH(bool, expected);
    ZoEffectModel model("Audio_Echo", {});
    if (flag.isValid())
        model.getDataItem("Audio_Echo", -1)->setData("audio_effect_flag", flag);
    QCOMPARE(model.hasRealEffect(), expected);

    ZoEffectModel fade("Audio_Fade_Inout", {{"audio_effect_flag", true}});
    if (flag.isValid())
        fade.getDataItem("Audio_Fade_Inout", -1)->setData("audio_fade_in_enable", flag);
    QCOMPARE(fade.hasRealEffect(), expected);
}

void TstModelDefaultCheck::audioSpeed_data()
{
    QTest::addColumn<QVariant>("factor");
    QTest::addColumn<bool>("expected");

    // Deliberate: 10 is what counts as untouched, not the 100 that a new item starts with.
    QTest::newRow("catalogue's default") << QVariant(100) << true;
    QTest::newRow("10") << QVariant(10) << false;
    QTest::newRow("9") << QVariant(9) << true;
    QTest::newRow("11") << QVariant(11) << true;
    QTest::newRow("0") << QVariant(0) << true;
    QTest::newRow("-10") << QVariant(-10) << true;
    QTest::newRow("missing") << QVariant() << true;
    QTest::newRow("text 10") << QVariant("10") << false;
    QTest::newRow("text with a fraction is 0") << QVariant("10.0") << true;
    QTest::newRow("no number is 0") << QVariant("abc") << true;
    QTest::newRow("double 10") << QVariant(10.0) << false;
    QTest::newRow("rounded down to 10") << QVariant(10.4) << false;
    QTest::newRow("rounded up to 10") << QVariant(9.6) << false;
    QTest::newRow("rounded up to 11") << QVariant(10.5) << true;
}

void TstModelDefaultCheck::audioSpeed()
{
    QFETCH(QVariant, factor);
    QFETCH(bool, expected);
    ZoEffectModel model("Audio_Speed", {{"audio_effect_flag", true}});
    if (factor.isValid())
        model.getDataItem("Audio_Speed", -1)->setData("audio_speed_factor", factor);

    QCOMPARE(model.hasRealEffect(), expected);
    model.getDataItem("Audio_Speed", -1)->setData("audio_effect_flag", false);
    QCOMPARE(model.hasRealEffect(), false);
}

void TstModelDefaultCheck::audioFade_data()
{
    QTest::addColumn<QVariant>("in");
    QTest::addColumn<QVariant>("out");
    QTest::addColumn<bool>("expected");

    QTest::newRow("catalogue's default") << QVariant(false) << QVariant(true) << true;
    QTest::newRow("in only") << QVariant(true) << QVariant(false) << true;
    QTest::newRow("both") << QVariant(true) << QVariant(true) << true;
    QTest::newRow("neither") << QVariant(false) << QVariant(false) << false;
    QTest::newRow("both missing") << QVariant() << QVariant() << false;
    QTest::newRow("in, out missing") << QVariant(1) << QVariant() << true;
    QTest::newRow("out, in missing") << QVariant() << QVariant("true") << true;
    QTest::newRow("texts that are false") << QVariant("false") << QVariant("0") << false;
}

void TstModelDefaultCheck::audioFade()
{
    QFETCH(QVariant, in);
    QFETCH(QVariant, out);
    QFETCH(bool, expected);
    ZoEffectModel model("Audio_Fade_Inout", {{"audio_effect_flag", true}, {"audio_fade_in", 3}, {"audio_fade_out", 3}});
    ZoEffectItemData* node = model.getDataItem("Audio_Fade_Inout", -1);
    if (in.isValid())
        node->setData("audio_fade_in_enable", in);
    if (out.isValid())
        node->setData("audio_fade_out_enable", out);

    QCOMPARE(model.hasRealEffect(), expected);
}

void TstModelDefaultCheck::cropEffect_data()
{
    QTest::addColumn<QSize>("base");
    QTest::addColumn<Properties>("crop");
    QTest::addColumn<Properties>("effect");
    QTest::addColumn<bool>("expected");

    const QSize frame(1280, 720);
    const QSize none(0, 0);
    const Properties part{{"crop_width", 640}, {"crop_height", 480}};
    const Properties mappedPart{{"crop_width", 640}, {"crop_height", 480}, {"player_map_flag", true}};
    const Properties mapped{{"player_map_flag", true}};
    const Properties unmapped{{"player_map_flag", false}};
    const Properties rotation{{"crop_rotation_angle", 90}, {"crop_rotation_action", 1}};
    const Properties angle{{"crop_rotation_angle", 90}};
    const Properties action{{"crop_rotation_action", 1}};
    const auto size = [](const QVariant& width, const QVariant& height) {
        return Properties{{"crop_width", width}, {"crop_height", height}};
    };

    QTest::newRow("untouched") << frame << Properties{} << Properties{} << false;
    QTest::newRow("part of the frame") << frame << part << Properties{} << true;
    QTest::newRow("whole frame") << frame << size(1280, 720) << Properties{} << false;
    QTest::newRow("whole frame, moved") << frame
                                        << Properties{{"crop_width", 1280}, {"crop_height", 720}, {"crop_left", 5}}
                                        << Properties{} << false;
    QTest::newRow("full width only") << frame << size(1280, 719) << Properties{} << true;
    QTest::newRow("full height only") << frame << size(1279, 720) << Properties{} << true;
    QTest::newRow("larger than the frame") << frame << size(1281, 721) << Properties{} << true;
    QTest::newRow("no width") << frame << size(0, 480) << Properties{} << false;
    QTest::newRow("no height") << frame << size(640, 0) << Properties{} << false;
    QTest::newRow("width as text") << frame << size("640", "480") << Properties{} << true;
    QTest::newRow("height still the source's") << frame << size(640, "source_val") << Properties{} << false;
    QTest::newRow("no frame") << none << part << Properties{} << false;
    QTest::newRow("frame without width") << QSize(0, 720) << part << Properties{} << false;
    QTest::newRow("frame without height") << QSize(1280, 0) << part << Properties{} << false;
    QTest::newRow("negative frame") << QSize(-1280, 720) << part << Properties{} << true;
    // 65536 x 65536 is 0 modulo 2^32.
    QTest::newRow("frame of many pixels") << QSize(65536, 65536) << part << Properties{} << true;
    QTest::newRow("largest frame") << QSize(2147483647, 2147483647) << part << Properties{} << true;

    QTest::newRow("rotated, flag missing") << frame << Properties{} << rotation << false;
    QTest::newRow("rotated, flag false") << frame << unmapped << rotation << false;
    QTest::newRow("rotated, flag true") << frame << mapped << rotation << true;
    QTest::newRow("angle only") << frame << mapped << angle << true;
    QTest::newRow("action only") << frame << mapped << action << true;
    QTest::newRow("neither, flag true") << frame << mapped << Properties{} << false;
    QTest::newRow("cropped, flag true") << frame << mappedPart << Properties{} << true;
    QTest::newRow("cropped and rotated") << frame << mappedPart << rotation << true;
    QTest::newRow("rotated without a frame") << none << mapped << angle << true;
    QTest::newRow("cropped and rotated without a frame") << none << mappedPart << angle << true;
    QTest::newRow("flag as number") << frame << Properties{{"player_map_flag", 1}} << angle << true;
    QTest::newRow("flag as text 0") << frame << Properties{{"player_map_flag", "0"}} << angle << false;
    QTest::newRow("flag not a number") << frame << Properties{{"player_map_flag", std::nan("")}} << angle << false;
    QTest::newRow("angle 0") << frame << mapped << Properties{{"crop_rotation_angle", 0}} << false;
    QTest::newRow("angle as text") << frame << mapped << Properties{{"crop_rotation_angle", "90"}} << true;
    QTest::newRow("angle text 0") << frame << mapped << Properties{{"crop_rotation_angle", "0"}} << false;
    QTest::newRow("negative angle") << frame << mapped << Properties{{"crop_rotation_angle", -90}} << true;
    QTest::newRow("action as text") << frame << mapped << Properties{{"crop_rotation_action", "flip"}} << true;
    QTest::newRow("action empty") << frame << mapped << Properties{{"crop_rotation_action", ""}} << false;
    QTest::newRow("angle 0, action 1") << frame << mapped
                                       << Properties{{"crop_rotation_angle", 0}, {"crop_rotation_action", 1}} << true;
    QTest::newRow("rotation on the crop itself does not count")
        << frame << Properties{{"player_map_flag", true}, {"crop_rotation_angle", 90}} << Properties{} << false;
    QTest::newRow("flag on the effect type does not count")
        << frame << Properties{} << Properties{{"player_map_flag", true}, {"crop_rotation_angle", 90}} << false;
}

void TstModelDefaultCheck::cropEffect()
{
    QFETCH(QSize, base);
    QFETCH(Properties, crop);
    QFETCH(Properties, effect);
    QFETCH(bool, expected);
    ZoEffectModel model(videoTypes());
    model.setVideoSize(base.width(), base.height());
    for (auto it = crop.cbegin(); it != crop.cend(); ++it)
        model.getDataItem("Crop", -1)->setData(it.key(), it.value());
    for (auto it = effect.cbegin(); it != effect.cend(); ++it)
        model.getDataItem("Effect", -1)->setData(it.key(), it.value());

    QCOMPARE(model.hasRealEffect(), expected);

    // Whatever it holds, a crop that is not selected asks for nothing.
    model.getDataItem("Crop", -1)->setCheckState(0);
    QCOMPARE(model.hasRealEffect(), false);
    model.getDataItem("Crop", -1)->setCheckState(1);
    QCOMPARE(model.hasRealEffect(), false);
}

void TstModelDefaultCheck::cropEffectWithoutEffectType()
{
    ZoEffectModel model(QStringList{"Crop"});
    model.setVideoSize(1280, 720);
    model.getDataItem("Crop", -1)->setData("player_map_flag", true);
    QCOMPARE(model.hasRealEffect(), false);
    model.getDataItem("Crop", -1)->setData("crop_width", 640);
    model.getDataItem("Crop", -1)->setData("crop_height", 480);
    QCOMPARE(model.hasRealEffect(), true);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelDefaultCheck::cropRotationOnAnUnselectedEffectType()
{
    ZoEffectModel model(QStringList{"Crop", "Effect"});
    model.getDataItem("Crop", -1)->setData("player_map_flag", true);
    model.getDataItem("Effect", -1)->setData("crop_rotation_angle", 180);
    model.getDataItem("Effect", -1)->setCheckState(0);

    QCOMPARE(model.hasRealEffect(), true);
}

void TstModelDefaultCheck::colorEffect_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("expected");

    QTest::newRow("brightness") << "bcs_brightness" << QVariant(1) << true;
    QTest::newRow("contrast") << "bcs_contrast" << QVariant(1) << true;
    QTest::newRow("saturation") << "bcs_saturation" << QVariant(1) << true;
    QTest::newRow("negative") << "bcs_contrast" << QVariant(-1) << true;
    QTest::newRow("bound") << "bcs_contrast" << QVariant(-50) << true;
    QTest::newRow("beyond the bound") << "bcs_contrast" << QVariant(5000) << true;
    QTest::newRow("zero") << "bcs_contrast" << QVariant(0) << false;
    QTest::newRow("missing") << "bcs_contrast" << QVariant() << false;
    QTest::newRow("text") << "bcs_contrast" << QVariant("5") << true;
    QTest::newRow("text 0") << "bcs_contrast" << QVariant("0") << false;
    QTest::newRow("no number") << "bcs_contrast" << QVariant("abc") << false;
    QTest::newRow("text with a fraction") << "bcs_contrast" << QVariant("5.5") << false;
    QTest::newRow("rounds to 0") << "bcs_contrast" << QVariant(0.4) << false;
    QTest::newRow("rounds to 1") << "bcs_contrast" << QVariant(0.5) << true;
    QTest::newRow("negative half rounds to 0") << "bcs_contrast" << QVariant(-0.5) << false;
    QTest::newRow("negative rounds to -1") << "bcs_contrast" << QVariant(-0.6) << true;
    QTest::newRow("true is 1") << "bcs_contrast" << QVariant(true) << true;
    QTest::newRow("another key") << "bcs_hue" << QVariant(9) << false;
    QTest::newRow("key in other letter case") << "BCS_contrast" << QVariant(9) << false;
}

void TstModelDefaultCheck::colorEffect()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(bool, expected);
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
void TstModelDefaultCheck::colorEffectIgnoresDefaults()
{
    saveCustomDefault("Color", {{"bcs_contrast", 10}});
    ZoEffectModel model(videoTypes());
    QCOMPARE(model.dataIsDefault("Color"), true);
    QCOMPARE(model.hasRealEffect(), true);
    model.getDataItem("Color", -1)->setData("bcs_contrast", 0);
    QCOMPARE(model.dataIsDefault("Color"), false);
    QCOMPARE(model.hasRealEffect(), false);
}

void TstModelDefaultCheck::frameEffect_data()
{
    QTest::addColumn<QList<int>>("states");
    QTest::addColumn<bool>("expected");

    QTest::newRow("all off") << QList<int>{0, 0, 0, 0} << false;
    QTest::newRow("first on") << QList<int>{2, 0, 0, 0} << true;
    QTest::newRow("last on") << QList<int>{0, 0, 0, 2} << true;
    QTest::newRow("all on") << QList<int>{2, 2, 2, 2} << true;
    QTest::newRow("partially checked") << QList<int>{1, 1, 1, 1} << false;
    QTest::newRow("partially checked, then on") << QList<int>{1, 2, 0, 0} << true;
}

void TstModelDefaultCheck::frameEffect()
{
    QFETCH(QList<int>, states);
    QFETCH(bool, expected);
    ZoEffectModel model(videoTypes());
    for (int row = 0; row < 4; ++row)
        model.getDataItem("Effect", row)->setCheckState(states.at(row));

    QCOMPARE(model.hasRealEffect(), expected);
    model.getDataItem("Effect", -1)->insertChild(nullptr, 0);
    QCOMPARE(model.hasRealEffect(), expected);
    model.getDataItem("Effect", -1)->setCheckState(0);
    QCOMPARE(model.hasRealEffect(), false);
}

void TstModelDefaultCheck::watermarkEffect_data()
{
    QTest::addColumn<QVariantList>("items");
    QTest::addColumn<bool>("expected");

    const auto text = [](int state, const QVariant& content) {
        return item(QString(), state, {{"wm_istextwatermark", true}, {"wm_textcontent", content}});
    };
    const QVariant image = item(QString(), 2, {{"wm_istextwatermark", false}});
    const QVariant imageOff = item(QString(), 0, {{"wm_istextwatermark", false}});
    QTest::newRow("no items") << QVariantList{} << false;
    QTest::newRow("image") << QVariantList{image} << true;
    QTest::newRow("image, kind missing") << QVariantList{item(QString(), 2)} << true;
    QTest::newRow("image not selected") << QVariantList{imageOff} << false;
    QTest::newRow("image partially checked") << QVariantList{item(QString(), 1)} << false;
    QTest::newRow("image with a text") << QVariantList{item(QString(), 2, {{"wm_textcontent", ""}})} << true;
    QTest::newRow("text") << QVariantList{text(2, "hello")} << true;
    QTest::newRow("blank text") << QVariantList{text(2, " ")} << true;
    QTest::newRow("number as text") << QVariantList{text(2, 0)} << true;
    QTest::newRow("empty text") << QVariantList{text(2, "")} << false;
    QTest::newRow("null text") << QVariantList{text(2, QString())} << false;
    QTest::newRow("text missing") << QVariantList{item(QString(), 2, {{"wm_istextwatermark", true}})} << false;
    QTest::newRow("text not selected") << QVariantList{text(0, "hello")} << false;
    QTest::newRow("text partially checked") << QVariantList{text(1, "hello")} << false;
    QTest::newRow("kind as text 0 is an image")
        << QVariantList{item(QString(), 2, {{"wm_istextwatermark", "0"}})} << true;
    QTest::newRow("kind as number") << QVariantList{item(QString(), 2, {{"wm_istextwatermark", 1}})} << false;
    QTest::newRow("ignored text counts") << QVariantList{item(
        QString(), 2, {{"wm_istextwatermark", true}, {"wm_textcontent", "x"}, {"wm_ingnore", true}})}
                                         << true;
    QTest::newRow("empty text, then image off, then text") << QVariantList{text(2, ""), imageOff, text(2, "x")} << true;
    QTest::newRow("empty text, then image") << QVariantList{text(2, ""), image} << true;
    QTest::newRow("nothing that counts") << QVariantList{text(2, ""), imageOff, text(0, "x")} << false;
    QTest::newRow("null entry, then image") << QVariantList{QVariant(), image} << true;
    QTest::newRow("null entries only") << QVariantList{QVariant(), QVariant()} << false;
}

void TstModelDefaultCheck::watermarkEffect()
{
    QFETCH(QVariantList, items);
    QFETCH(bool, expected);
    ZoEffectModel model(videoTypes());
    setItems(model.getDataItem("Watermark", -1), items);

    QCOMPARE(model.hasRealEffect(), expected);
    model.getDataItem("Watermark", -1)->setCheckState(0);
    QCOMPARE(model.hasRealEffect(), false);
}

void TstModelDefaultCheck::trackEffect_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QVariantList>("items");
    QTest::addColumn<bool>("expected");

    for (const char* type : {"Audio", "Subtitle"}) {
        const QString flag = QLatin1String(type) == QLatin1String("Audio") ? "audio_isfile" : "sub_fromfile";
        const QString otherFlag = QLatin1String(type) == QLatin1String("Audio") ? "sub_fromfile" : "audio_isfile";
        const auto row = [type](const char* name, const QVariantList& items, bool expected) {
            QTest::newRow(qPrintable(QString("%1: %2").arg(type, name))) << type << items << expected;
        };
        const QVariant embedded = item(QString(), 2, {{flag, false}});
        const QVariant file = item(QString(), 2, {{flag, true}});
        const QVariant fileOff = item(QString(), 0, {{flag, true}});
        row("no tracks", {}, false);
        row("embedded track", {embedded}, false);
        row("embedded track, flag missing", {item(QString(), 2)}, false);
        row("file track", {file}, true);
        row("file track not selected", {fileOff}, false);
        row("file track partially checked", {item(QString(), 1, {{flag, true}})}, false);
        row("file behind embedded tracks", {embedded, embedded, file}, true);
        row("file off behind embedded tracks", {embedded, embedded, fileOff}, false);
        row("flag as text", {item(QString(), 2, {{flag, "yes"}})}, true);
        row("flag as text 0", {item(QString(), 2, {{flag, "0"}})}, false);
        row("flag of the other kind", {item(QString(), 2, {{otherFlag, true}})}, false);
        row("null entry, then file", {QVariant(), file}, true);
        row("null entries only", {QVariant(), QVariant()}, false);
    }
}

void TstModelDefaultCheck::trackEffect()
{
    QFETCH(QString, type);
    QFETCH(QVariantList, items);
    QFETCH(bool, expected);
    ZoEffectModel model(videoTypes());
    setItems(model.getDataItem(type, -1), items);

    QCOMPARE(model.hasRealEffect(), expected);
    model.getDataItem(type, -1)->setCheckState(0);
    QCOMPARE(model.hasRealEffect(), false);
}

void TstModelDefaultCheck::unselectedTypesHaveNoEffect_data()
{
    // Types that stay selected; every type asks for processing.
    QTest::addColumn<QStringList>("selected");
    QTest::addColumn<bool>("expected");

    QTest::newRow("all") << videoTypes() << true;
    QTest::newRow("none") << QStringList{} << false;
    const QStringList types = videoTypes();
    for (const QString& type : types)
        QTest::newRow(qPrintable(type)) << QStringList{type} << true;
}

void TstModelDefaultCheck::unselectedTypesHaveNoEffect()
{
    QFETCH(QStringList, selected);
    QFETCH(bool, expected);
    ZoEffectModel model(videoTypes());
    model.setVideoSize(1280, 720);
    model.getDataItem("Crop", -1)->setData("crop_width", 640);
    model.getDataItem("Crop", -1)->setData("crop_height", 480);
    model.getDataItem("Color", -1)->setData("bcs_contrast", 5);
    model.getDataItem("Effect", 1)->setCheckState(2);
    setItems(model.getDataItem("Watermark", -1), {item(QString(), 2)});
    setItems(model.getDataItem("Audio", -1), {item(QString(), 2, {{"audio_isfile", true}})});
    setItems(model.getDataItem("Subtitle", -1), {item(QString(), 2, {{"sub_fromfile", true}})});
    for (int row = 0; row < root(model)->childCount(); ++row)
        root(model)->child(row)->setCheckState(selected.contains(root(model)->child(row)->name()) ? 2 : 0);

    QCOMPARE(model.hasRealEffect(), expected);
}

void TstModelDefaultCheck::unknownTypesAreLogged_data()
{
    // Type nodes in order, "-" before one that is not selected; "Color" asks for processing.
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<bool>("expected");
    QTest::addColumn<QList<int>>("events");

    QTest::newRow("one unknown") << QStringList{"Alien"} << false << QList<int>{2399};
    QTest::newRow("two unknown") << QStringList{"Alien", "Beyond"} << false << QList<int>{2399, 2399};
    QTest::newRow("unknown not selected") << QStringList{"-Alien"} << false << QList<int>{};
    QTest::newRow("unknown before the effect") << QStringList{"Alien", "Color"} << true << QList<int>{2399};
    QTest::newRow("unknown behind the effect") << QStringList{"Color", "Alien"} << true << QList<int>{};
    QTest::newRow("unknown on both sides") << QStringList{"Alien", "Color", "Beyond"} << true << QList<int>{2399};
    QTest::newRow("unknown on both sides, effect not selected")
        << QStringList{"Alien", "-Color", "Beyond"} << false << QList<int>{2399, 2399};
    QTest::newRow("unknown between types without effect")
        << QStringList{"Audio", "Alien", "Subtitle", "-Beyond", "Crop"} << false << QList<int>{2399};
    QTest::newRow("other letter case") << QStringList{"color", "CROP"} << false << QList<int>{2399, 2399};
    QTest::newRow("name like an audio effect's") << QStringList{"audio_echo"} << false << QList<int>{2399};
    QTest::newRow("empty name") << QStringList{""} << false << QList<int>{2399};
    QTest::newRow("known types") << QStringList{"Crop", "Watermark", "Subtitle", "Audio", "Effect"} << false
                                 << QList<int>{};
    QTest::newRow("no types") << QStringList{} << false << QList<int>{};
}

void TstModelDefaultCheck::unknownTypesAreLogged()
{
    QFETCH(QStringList, types);
    QFETCH(bool, expected);
    QFETCH(QList<int>, events);
    ZoEffectModel model(ZoEffectModel(), nullptr);
    for (const QString& type : types) {
        const bool off = type.startsWith(QLatin1Char('-'));
        auto* node = new ZoEffectItemData(off ? type.mid(1) : type, root(model));
        node->setData("bcs_contrast", 5);
        node->setCheckState(off ? 0 : 2);
    }

    QCOMPARE(model.hasRealEffect(), expected);
    QCOMPARE(logcapture::takeEvents(), events);
}

void TstModelDefaultCheck::nullTypesArePassedOver()
{
    ZoEffectModel model(QStringList{"Crop", "Color"});
    root(model)->insertChild(nullptr, 0);
    root(model)->insertChild(nullptr, 2);
    root(model)->appendChild(nullptr);
    QCOMPARE(model.hasRealEffect(), false);
    model.getDataItem("Color", -1)->setData("bcs_contrast", 5);
    QCOMPARE(model.hasRealEffect(), true);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelDefaultCheck::effectNeedsNoCatalogue()
{
    ZoEffectModel::InitEffectModel(nullptr);
    QCOMPARE(logcapture::takeEvents(), QList<int>{25});
    const ZoEffectModel color("Color", {{"bcs_contrast", 5}});
    QCOMPARE(color.hasRealEffect(), true);
    QCOMPARE(color.SingleDataIsDefault("Color", "bcs_contrast", -1), true);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    QCOMPARE(color.dataIsDefault("Color"), true);
    QCOMPARE(logcapture::takeEvents(), QList<int>{518});
    QCOMPARE(ZoEffectModel().hasRealEffect(), false);
    QCOMPARE(ZoEffectModel().FrameEffectIsDefault(), true);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

ZOEFFECT_TEST_MAIN(TstModelDefaultCheck)

#include "tst_model_defaultcheck.moc"
