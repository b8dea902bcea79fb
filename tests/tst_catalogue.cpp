// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The vocabulary of effect types: every property with its default, choices and bounds, typed anew here, and
// the lookup of a type in a table.

#include <cstddef>
#include <iterator>
#include <type_traits>

#include <zoeffectcatalogue.h>

#include "modeltest.h"

static_assert(std::is_aggregate_v<EffectDefaultVal>);
static_assert(std::is_aggregate_v<SubEffectItem>);
static_assert(std::is_aggregate_v<EffectControlItem>);

// The layout that hosts compile against: machine words in this order.
constexpr std::size_t word = sizeof(void*);
static_assert(sizeof(SubEffectItem) == 7 * word);
static_assert(offsetof(SubEffectItem, name) == 0);
static_assert(offsetof(SubEffectItem, id) == 5 * word);
static_assert(offsetof(SubEffectItem, properties) == 6 * word);
static_assert(sizeof(EffectControlItem) == 13 * word);
static_assert(offsetof(EffectControlItem, name) == 0);
static_assert(offsetof(EffectControlItem, children) == 5 * word);
static_assert(offsetof(EffectControlItem, subItems) == 11 * word);
static_assert(offsetof(EffectControlItem, properties) == 12 * word);

// The tables are never changed.
static_assert(std::is_const_v<std::remove_extent_t<decltype(cropDefaultVal)>>);
static_assert(std::is_const_v<std::remove_extent_t<decltype(frameEffectsDefaultVal)>>);

// Each table holds its properties and one closing record.
static_assert(std::size(cropDefaultVal) == 8 + 1);
static_assert(std::size(WatermarkDefaultVal) == 11 + 1);
static_assert(std::size(SubtitleDefaultVal) == 12 + 1);
static_assert(std::size(AudioDefaultVal) == 1 + 1);
static_assert(std::size(BCSDefaultVal) == 3 + 1);
static_assert(std::size(frameEffectsDefaultVal) == 1 + 1);
static_assert(std::size(audioFadeInOut) == 5 + 1);
static_assert(std::size(audioNormalize) == 2 + 1);
static_assert(std::size(audioBandpass) == 4 + 1);
static_assert(std::size(audioChorus) == 5 + 1);
static_assert(std::size(audioFlanger) == 6 + 1);
static_assert(std::size(audioEcho) == 5 + 1);
static_assert(std::size(audioSpeed) == 2 + 1);

static_assert(std::size(font_style) == 4 + 1);
static_assert(std::size(crop_aspectratio) == 10 + 1);

// The key lists have a fixed length and no closing entry.
static_assert(std::size(keysforDVD) == 5);
static_assert(std::size(keysforfromFile) == 7);

namespace {

// Read while the program is being loaded, before there is an application object.
const QVariant earlyFont = WatermarkDefaultVal[10].defaultValue;
const QVariant earlyText = cropDefaultVal[7].defaultValue;

QStringList texts(const char* const* list)
{
    QStringList result;
    for (; *list; ++list)
        result << QString::fromUtf8(*list);
    return result;
}

/// "crop_left: int 0", with choices and bounds where there are some.
QString text(const EffectDefaultVal& property)
{
    QString result = QString("%1: %2").arg(property.key, described(property.defaultValue));
    if (property.options)
        result += QString(" of %1").arg(texts(property.options).join('/'));
    const QString bounds = QString(" from %1 to %2").arg(described(property.minValue), described(property.maxValue));
    return bounds == " from int 0 to int 0" ? result : result + bounds;
}

/// The properties of a table, in order.
QStringList properties(const EffectDefaultVal* table)
{
    QStringList result;
    for (; table->key; ++table)
        result << text(*table);
    return result;
}

/// The host's table of types is built in another unit, from that unit's arrays.
const EffectDefaultVal* ofTheOtherUnit(const QString& type)
{
    const EffectControlItem* found = ZoEffectModel::findOriItem(type, hostCatalogue());
    return found->properties ? found->properties : found->subItems[0].properties;
}

const EffectControlItem end = effectType(nullptr, nullptr);

/// Crop; Group with Effect, Inner (with Deepest, Crop) and Crop; an empty group; Color; Größe; "".
const EffectControlItem* nestedTable()
{
    static const EffectControlItem deepest[] = {effectType("Deepest", nullptr), effectType("Crop", nullptr), end};
    static const EffectControlItem hidden[] = {effectType("Hidden", nullptr), end};
    static const EffectControlItem inner[] = {
        effectType("Effect", nullptr), effectType("Inner", nullptr, nullptr, deepest),
        effectType("Crop", nullptr),   effectType(nullptr, nullptr, nullptr, hidden),
        effectType("Beyond", nullptr), end};
    static const EffectControlItem table[] = {effectType("Crop", cropDefaultVal, nullptr, hidden + 1),
                                              effectType("Group", nullptr, nullptr, inner),
                                              effectType("Effect", nullptr),
                                              effectType("Gr\xC3\xB6\xC3\x9F"
                                                         "e",
                                                         nullptr),
                                              effectType("", nullptr),
                                              effectType("Inner", nullptr),
                                              effectType("\x80", nullptr),
                                              effectType(nullptr, nullptr, nullptr, hidden),
                                              effectType("Beyond", nullptr),
                                              end};
    return table;
}

} // namespace

class TstCatalogue : public ModelTest {
    Q_OBJECT

private slots:
    void propertyIsAsTold_data()
    {
        const QString styles = " of Regular/Italic/Bold/Bold Italic";
        const QString ratios = " of Original/Original Ratio/Crop Area/Crop Ratio/16:9/16:9/4:3/4:3/3:2/3:2";
        addRows<QString, const EffectDefaultVal*, QStringList>({
            {"crop", "Crop", cropDefaultVal,
             QStringList{"crop_minwidth: int 24", "crop_minheight: int 24", "crop_left: int 0", "crop_top: int 0",
                         "crop_width: string source_val", "crop_height: string source_val",
                         "crop_keepaspectratio: bool true", "crop_aspectratio: string Original Ratio" + ratios}},
            {"watermark", "Watermark", WatermarkDefaultVal,
             QStringList{"wm_vposition: int 30 from int -400 to string source_val",
                         "wm_hposition: int 30 from int -400 to string source_val",
                         "wm_vposfactor: double 0.10000000000000001", "wm_hposfactor: double 0.10000000000000001",
                         "wm_transparency: int 0 from int 0 to int 100", "wm_transfactor: double 2.5499999999999998",
                         "wm_fontstyle: string Regular" + styles, "wm_imagekeepratio: bool true",
                         "wm_fontcolor: color #ffffffff", "wm_fontsize: int 22 from int 3 to int 72",
                         "wm_fontname: font Tahoma"}},
            {"subtitle", "Subtitle", SubtitleDefaultVal,
             QStringList{"sub_vposition: int 200 from int 0 to string source_val",
                         "sub_hposition: int 200 from int 0 to string source_val",
                         "sub_transparency: int 0 from int 0 to int 100", "sub_transfactor: double 2.5499999999999998",
                         "sub_vposfactor: double 0.80000000000000004", "sub_fontstyle: string Regular" + styles,
                         "sub_fontcolor: color #ffffffff", "sub_framecolor: color #ff000000",
                         "sub_fontsize: int 22 from int 3 to int 72", "sub_fontname: font Tahoma",
                         "sub_linemargin: int 0 from int 0 to int 20", "fontstyleusedefault: bool true"}},
            {"audio", "Audio", AudioDefaultVal, QStringList{"play_loop: bool false"}},
            {"color", "Color", BCSDefaultVal,
             QStringList{"bcs_brightness: int 0 from int -50 to int 50", "bcs_contrast: int 0 from int -50 to int 50",
                         "bcs_saturation: int 0 from int -50 to int 50"}},
            {"frame effects", "Effect", frameEffectsDefaultVal, QStringList{"_checkstate: bool false"}},
            {"fade", "Audio_Fade_Inout", audioFadeInOut,
             QStringList{"audio_effect_flag: bool false", "audio_fade_in_enable: bool false",
                         "audio_fade_out_enable: bool true", "audio_fade_in: int 3", "audio_fade_out: int 3"}},
            {"normalize", "Audio_Normalize", audioNormalize,
             QStringList{"audio_effect_flag: bool false", "audio_normalize_maxLevel: int 98"}},
            {"band pass", "Audio_BandPass", audioBandpass,
             QStringList{"audio_effect_flag: bool false", "audio_bandpass_type: int 2",
                         "audio_bandpass_requency: int 1000", "audio_bandpass_steepness: int 50"}},
            {"chorus", "Audio_Chorus", audioChorus,
             QStringList{"audio_effect_flag: bool false", "audio_chorus_gainin: int 50", "audio_chorus_gainout: int 50",
                         "audio_chorus_delay: int 50", "audio_chorus_decay: int 50"}},
            {"flanger", "Audio_Flanger", audioFlanger,
             QStringList{"audio_effect_flag: bool false", "audio_flanger_gainin: int 50",
                         "audio_flanger_gainout: int 50", "audio_flanger_delay: int 3", "audio_flanger_decay: int 50",
                         "audio_flanger_speed: int 50"}},
            {"echo", "Audio_Echo", audioEcho,
             QStringList{"audio_effect_flag: bool false", "audio_echo_gainin: int 50", "audio_echo_gainout: int 50",
                         "audio_echo_delay: int 50", "audio_echo_decay: int 500"}},
            {"speed", "Audio_Speed", audioSpeed,
             QStringList{"audio_effect_flag: bool false", "audio_speed_factor: int 100 from int 0 to int 200"}},
        });
    }

    void propertyIsAsTold()
    {
        const auto [type, table, expected] = row<QString, const EffectDefaultVal*, QStringList>();
        QCOMPARE(properties(table), expected);
        const EffectDefaultVal& closing = table[expected.size()];
        QVERIFY(!closing.options);
        for (const QVariant& value : {closing.defaultValue, closing.minValue, closing.maxValue})
            QCOMPARE(described(value), QString("int 0"));
    }

    void everyUnitHasItsOwnCopy_data() { propertyIsAsTold_data(); }

    void everyUnitHasItsOwnCopy()
    {
        const auto [type, table, expected] = row<QString, const EffectDefaultVal*, QStringList>();
        QVERIFY(ofTheOtherUnit(type) != table);
        QCOMPARE(properties(ofTheOtherUnit(type)), expected);
    }

    // Size and weight are left open: a font takes these from the one that it is resolved against.
    void fontNamesHoldAWholeFont()
    {
        for (const QVariant& value : {ZoEffectModel::defaultValue("wm_fontname", "Watermark"),
                                      ZoEffectModel::defaultValue("sub_fontname", "Subtitle")}) {
            QCOMPARE(value.userType(), int(QMetaType::QFont));
            QCOMPARE(value.value<QFont>(), QFont("Tahoma", -1, -1, false));
            const QFont resolved = value.value<QFont>().resolve(QFont("Courier", 31, QFont::Bold));
            QCOMPARE(resolved.family(), QString("Tahoma"));
            QCOMPARE(resolved.pointSize(), 31);
            QVERIFY(resolved.bold());
            QVERIFY(!resolved.italic());
        }
    }

    void aspectRatiosInPairs()
    {
        QCOMPARE(texts(crop_aspectratio), QStringList({"Original", "Original Ratio", "Crop Area", "Crop Ratio", "16:9",
                                                       "16:9", "4:3", "4:3", "3:2", "3:2"}));
    }

    void keysOfSubtitlesInOrder()
    {
        QCOMPARE(QStringList(std::begin(keysforDVD), std::end(keysforDVD)),
                 QStringList(
                     {"sub_fontcolor", "sub_transparency", "sub_vposition", "fontstyleusedefault", "sub_framecolor"}));
        QCOMPARE(QStringList(std::begin(keysforfromFile), std::end(keysforfromFile)),
                 QStringList({"sub_fontname", "sub_fontcolor", "sub_fontstyle", "sub_linemargin", "sub_fontsize",
                              "sub_transparency", "sub_vposition"}));
    }

    void recordFieldsStandInOrder()
    {
        static const char* const choices[] = {"one", nullptr};
        static const EffectDefaultVal records[] = {{"key", QVariant(1), choices, QVariant(2), QVariant(3)},
                                                   {nullptr, QVariant(0), nullptr, QVariant(0), QVariant(0)}};
        const auto& [key, defaultValue, options, lowest, highest] = records[0];
        QCOMPARE(QString(key), QString("key"));
        QCOMPARE(defaultValue, QVariant(1));
        QVERIFY(options == choices);
        QCOMPARE(lowest, QVariant(2));
        QCOMPARE(highest, QVariant(3));

        const SubEffectItem sub = {"sub", 1, 2, 3, 4, 5, records};
        QCOMPARE(QString(sub.name), QString("sub"));
        QCOMPARE(sub.id, 5);
        QVERIFY(sub.properties == records);

        const EffectControlItem nested = effectType("nested", nullptr);
        const EffectControlItem item = {"type", 2, 3, 4, 5, &nested, 7, 8, 9, 10, 11, &sub, records};
        QCOMPARE(QString(item.name), QString("type"));
        QVERIFY(item.children == &nested);
        QVERIFY(item.subItems == &sub);
        QVERIFY(item.properties == records);

        const EffectControlItem zeroed{};
        QVERIFY(!zeroed.name && !zeroed.children && !zeroed.subItems && !zeroed.properties);
        QVERIFY(!EffectDefaultVal{}.defaultValue.isValid());
    }

    void tablesAreReadableWhileTheProgramLoads()
    {
        QCOMPARE(described(earlyFont), QString("font Tahoma"));
        QCOMPARE(described(earlyText), QString("string Original Ratio"));
    }

    void findsRecord_data()
    {
        // Indexes into the tables, empty for no record.
        addRows<QString, QString>({
            {"wins over its own children and later namesakes", "Crop", "0"},
            {"record with a nested table", "Group", "1"},
            {"nested record before one at the top", "Effect", "1.0"},
            {"nested record with a nested table", "Inner", "1.1"},
            {"record two levels down", "Deepest", "1.1.0"},
            {"name beyond ASCII",
             QString::fromUtf8("Gr\xC3\xB6\xC3\x9F"
                               "e"),
             "3"},
            {"name that is no UTF-8", QString(QChar(QChar::ReplacementCharacter)), "6"},
            {"letter of the number of its byte", QString(QChar(0x80)), ""},
            {"empty name", "", "4"},
            {"null text is an empty name", QString(), "4"},
            {"unknown name", "Watermark", ""},
            {"other letter case", "crop", ""},
            {"blank after", "Crop ", ""},
            {"beginning of a name", "Cro", ""},
            {"longer than a name", "Crops", ""},
            {"behind the null name", "Beyond", ""},
            {"below the null name", "Hidden", ""},
        });
    }

    void findsRecord()
    {
        const auto [type, path] = row<QString, QString>();
        const EffectControlItem* expected = nullptr;
        const EffectControlItem* table = nestedTable();
        if (!path.isEmpty()) {
            const QStringList indexes = path.split('.');
            for (const QString& index : indexes) {
                expected = table + index.toInt();
                table = expected->children;
            }
        }
        QVERIFY(ZoEffectModel::findOriItem(type, nestedTable()) == expected);
        QVERIFY(!ZoEffectModel::findOriItem(type, nullptr));
        QVERIFY(!ZoEffectModel::findOriItem(type, &end));
    }

    void defaultsAreFoundPerType_data()
    {
        addRows<QString, QString, QString>({
            {"flag of fade", "audio_effect_flag", "Audio_Fade_Inout", "bool false"},
            {"flag of a type without it", "audio_effect_flag", "Audio", "invalid"},
            {"watermark key of another type", "wm_fontsize", "Subtitle", "invalid"},
            {"delay of the chorus", "audio_chorus_delay", "Audio_Chorus", "int 50"},
            {"chorus key of the flanger", "audio_chorus_delay", "Audio_Flanger", "invalid"},
            {"misspelled frequency", "audio_bandpass_requency", "Audio_BandPass", "int 1000"},
            {"well spelled frequency", "audio_bandpass_frequency", "Audio_BandPass", "invalid"},
            {"lower case", "audio_normalize_maxlevel", "Audio_Normalize", "invalid"},
        });
    }

    void defaultsAreFoundPerType()
    {
        const auto [key, type, value] = row<QString, QString, QString>();
        QCOMPARE(described(ZoEffectModel::defaultValue(key, type)), value);
    }

    void firstOfTwoEqualKeysIsTheDefault()
    {
        const EffectDefaultVal records[] = {::property("other", 0), ::property("key", 1), ::property("key", 2),
                                            ::property(nullptr, 0)};
        const EffectControlItem table[] = {effectType("Type", records), end};
        ZoEffectModel::InitEffectModel(table);
        QCOMPARE(described(ZoEffectModel::defaultValue("key", "Type")), QString("int 1"));
    }
};

ZOEFFECT_TEST_MAIN(TstCatalogue)
#include "tst_catalogue.moc"
