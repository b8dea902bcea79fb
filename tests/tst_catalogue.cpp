// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The vocabulary of effect types: every property with its default, choices and bounds, typed anew here, and
// the lookup of a type in a table.

#include <cstddef>
#include <iterator>
#include <type_traits>

#include <QSet>
#include <QtTest>

#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

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

struct Table {
    const char* name;
    const EffectDefaultVal* records;
    int properties;
};

const Table tables[] = {
    {"cropDefaultVal", cropDefaultVal, 8},
    {"WatermarkDefaultVal", WatermarkDefaultVal, 11},
    {"SubtitleDefaultVal", SubtitleDefaultVal, 12},
    {"AudioDefaultVal", AudioDefaultVal, 1},
    {"BCSDefaultVal", BCSDefaultVal, 3},
    {"frameEffectsDefaultVal", frameEffectsDefaultVal, 1},
    {"audioFadeInOut", audioFadeInOut, 5},
    {"audioNormalize", audioNormalize, 2},
    {"audioBandpass", audioBandpass, 4},
    {"audioChorus", audioChorus, 5},
    {"audioFlanger", audioFlanger, 6},
    {"audioEcho", audioEcho, 5},
    {"audioSpeed", audioSpeed, 2},
};

const Table* tableNamed(const QString& name)
{
    for (const Table& table : tables) {
        if (name == QLatin1String(table.name))
            return &table;
    }
    return nullptr;
}

QString choicesName(const char* const* options)
{
    if (!options)
        return QStringLiteral("none");
    if (options == font_style)
        return QStringLiteral("font_style");
    if (options == crop_aspectratio)
        return QStringLiteral("crop_aspectratio");
    return QStringLiteral("unknown");
}

QStringList texts(const char* const* list)
{
    QStringList result;
    for (; *list; ++list)
        result << QString::fromUtf8(*list);
    return result;
}

} // namespace

class TstCatalogue : public QObject {
    Q_OBJECT

private slots:
    void init();

    void propertyIsAsTold_data();
    void propertyIsAsTold();
    void tableIsClosed_data();
    void tableIsClosed();
    void keysAreUniqueWithinATable_data();
    void keysAreUniqueWithinATable();
    void fontNamesHoldAWholeFont_data();
    void fontNamesHoldAWholeFont();
    void fontLeavesSizeAndWeightOpen_data();
    void fontLeavesSizeAndWeightOpen();
    void colorsAreTheNamedOnes();
    void fontStylesInOrder();
    void aspectRatiosInPairs();
    void keysOfEmbeddedSubtitlesInOrder();
    void keysOfFileSubtitlesInOrder();
    void recordFieldsStandInOrder();
    void zeroedRecordHoldsNothing();
    void tablesAreReadableWhileTheProgramLoads();
    void everyUnitHasItsOwnCopy_data();
    void everyUnitHasItsOwnCopy();
    void everyUnitHasItsOwnFrameEffectProperties();

    void findsRecord_data();
    void findsRecord();
    void findsNothingWithoutTable();
    void findsTypeThatStandsOnlyInANestedTable();
    void nestedRecordWinsWhenItComesEarlier();
    void topLevelRecordWinsWhenItComesEarlier();
    void recordWinsOverItsOwnChildren();
    void firstOfTwoEqualNamesWins();
    void searchEndsAtTheNullName();
    void searchGoesOnAfterAnEmptyNestedTable();
    void searchReadsTheGivenTableOnly();

    void defaultsAreFoundPerType_data();
    void defaultsAreFoundPerType();
    void firstOfTwoEqualKeysIsTheDefault();
};

void TstCatalogue::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstCatalogue::propertyIsAsTold_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("defaultValue");
    QTest::addColumn<QString>("choices");
    QTest::addColumn<QString>("lowest");
    QTest::addColumn<QString>("highest");

    const auto row = [](const char* table, int index, const char* key, const char* defaultValue,
                        const char* choices = "none", const char* lowest = "int 0", const char* highest = "int 0") {
        QTest::addRow("%s, %s", table, key)
            << QString::fromLatin1(table) << index << QString::fromLatin1(key) << QString::fromLatin1(defaultValue)
            << QString::fromLatin1(choices) << QString::fromLatin1(lowest) << QString::fromLatin1(highest);
    };

    row("cropDefaultVal", 0, "crop_minwidth", "int 24");
    row("cropDefaultVal", 1, "crop_minheight", "int 24");
    row("cropDefaultVal", 2, "crop_left", "int 0");
    row("cropDefaultVal", 3, "crop_top", "int 0");
    row("cropDefaultVal", 4, "crop_width", "string source_val");
    row("cropDefaultVal", 5, "crop_height", "string source_val");
    row("cropDefaultVal", 6, "crop_keepaspectratio", "bool true");
    row("cropDefaultVal", 7, "crop_aspectratio", "string Original Ratio", "crop_aspectratio");

    row("WatermarkDefaultVal", 0, "wm_vposition", "int 30", "none", "int -400", "string source_val");
    row("WatermarkDefaultVal", 1, "wm_hposition", "int 30", "none", "int -400", "string source_val");
    row("WatermarkDefaultVal", 2, "wm_vposfactor", "double 0.10000000000000001");
    row("WatermarkDefaultVal", 3, "wm_hposfactor", "double 0.10000000000000001");
    row("WatermarkDefaultVal", 4, "wm_transparency", "int 0", "none", "int 0", "int 100");
    row("WatermarkDefaultVal", 5, "wm_transfactor", "double 2.5499999999999998");
    row("WatermarkDefaultVal", 6, "wm_fontstyle", "string Regular", "font_style");
    row("WatermarkDefaultVal", 7, "wm_imagekeepratio", "bool true");
    row("WatermarkDefaultVal", 8, "wm_fontcolor", "color #ffffffff");
    row("WatermarkDefaultVal", 9, "wm_fontsize", "int 22", "none", "int 3", "int 72");
    row("WatermarkDefaultVal", 10, "wm_fontname", "font Tahoma");

    row("SubtitleDefaultVal", 0, "sub_vposition", "int 200", "none", "int 0", "string source_val");
    row("SubtitleDefaultVal", 1, "sub_hposition", "int 200", "none", "int 0", "string source_val");
    row("SubtitleDefaultVal", 2, "sub_transparency", "int 0", "none", "int 0", "int 100");
    row("SubtitleDefaultVal", 3, "sub_transfactor", "double 2.5499999999999998");
    row("SubtitleDefaultVal", 4, "sub_vposfactor", "double 0.80000000000000004");
    row("SubtitleDefaultVal", 5, "sub_fontstyle", "string Regular", "font_style");
    row("SubtitleDefaultVal", 6, "sub_fontcolor", "color #ffffffff");
    row("SubtitleDefaultVal", 7, "sub_framecolor", "color #ff000000");
    row("SubtitleDefaultVal", 8, "sub_fontsize", "int 22", "none", "int 3", "int 72");
    row("SubtitleDefaultVal", 9, "sub_fontname", "font Tahoma");
    row("SubtitleDefaultVal", 10, "sub_linemargin", "int 0", "none", "int 0", "int 20");
    row("SubtitleDefaultVal", 11, "fontstyleusedefault", "bool true");

    row("AudioDefaultVal", 0, "play_loop", "bool false");

    row("BCSDefaultVal", 0, "bcs_brightness", "int 0", "none", "int -50", "int 50");
    row("BCSDefaultVal", 1, "bcs_contrast", "int 0", "none", "int -50", "int 50");
    row("BCSDefaultVal", 2, "bcs_saturation", "int 0", "none", "int -50", "int 50");

    row("frameEffectsDefaultVal", 0, "_checkstate", "bool false");

    row("audioFadeInOut", 0, "audio_effect_flag", "bool false");
    row("audioFadeInOut", 1, "audio_fade_in_enable", "bool false");
    row("audioFadeInOut", 2, "audio_fade_out_enable", "bool true");
    row("audioFadeInOut", 3, "audio_fade_in", "int 3");
    row("audioFadeInOut", 4, "audio_fade_out", "int 3");

    row("audioNormalize", 0, "audio_effect_flag", "bool false");
    row("audioNormalize", 1, "audio_normalize_maxLevel", "int 98");

    row("audioBandpass", 0, "audio_effect_flag", "bool false");
    row("audioBandpass", 1, "audio_bandpass_type", "int 2");
    row("audioBandpass", 2, "audio_bandpass_requency", "int 1000");
    row("audioBandpass", 3, "audio_bandpass_steepness", "int 50");

    row("audioChorus", 0, "audio_effect_flag", "bool false");
    row("audioChorus", 1, "audio_chorus_gainin", "int 50");
    row("audioChorus", 2, "audio_chorus_gainout", "int 50");
    row("audioChorus", 3, "audio_chorus_delay", "int 50");
    row("audioChorus", 4, "audio_chorus_decay", "int 50");

    row("audioFlanger", 0, "audio_effect_flag", "bool false");
    row("audioFlanger", 1, "audio_flanger_gainin", "int 50");
    row("audioFlanger", 2, "audio_flanger_gainout", "int 50");
    row("audioFlanger", 3, "audio_flanger_delay", "int 3");
    row("audioFlanger", 4, "audio_flanger_decay", "int 50");
    row("audioFlanger", 5, "audio_flanger_speed", "int 50");

    row("audioEcho", 0, "audio_effect_flag", "bool false");
    row("audioEcho", 1, "audio_echo_gainin", "int 50");
    row("audioEcho", 2, "audio_echo_gainout", "int 50");
    row("audioEcho", 3, "audio_echo_delay", "int 50");
    row("audioEcho", 4, "audio_echo_decay", "int 500");

    row("audioSpeed", 0, "audio_effect_flag", "bool false");
    row("audioSpeed", 1, "audio_speed_factor", "int 100", "none", "int 0", "int 200");
}

void TstCatalogue::propertyIsAsTold()
{
    QFETCH(QString, table);
    QFETCH(int, index);
    QFETCH(QString, key);
    QFETCH(QString, defaultValue);
    QFETCH(QString, choices);
    QFETCH(QString, lowest);
    QFETCH(QString, highest);
    const Table* found = tableNamed(table);
    QVERIFY(found);
    QVERIFY(index < found->properties);
    const EffectDefaultVal& record = found->records[index];

    QCOMPARE(QString::fromUtf8(record.key), key);
    QCOMPARE(described(record.defaultValue), defaultValue);
    QCOMPARE(choicesName(record.options), choices);
    QCOMPARE(described(record.minValue), lowest);
    QCOMPARE(described(record.maxValue), highest);
}

void TstCatalogue::tableIsClosed_data()
{
    QTest::addColumn<QString>("table");
    for (const Table& table : tables)
        QTest::newRow(table.name) << QString::fromLatin1(table.name);
}

void TstCatalogue::tableIsClosed()
{
    QFETCH(QString, table);
    const Table* found = tableNamed(table);
    QVERIFY(found);

    for (int i = 0; i < found->properties; ++i)
        QVERIFY(found->records[i].key);
    const EffectDefaultVal& closing = found->records[found->properties];
    QVERIFY(!closing.key);
    QCOMPARE(described(closing.defaultValue), QStringLiteral("int 0"));
    QVERIFY(!closing.options);
    QCOMPARE(described(closing.minValue), QStringLiteral("int 0"));
    QCOMPARE(described(closing.maxValue), QStringLiteral("int 0"));
}

void TstCatalogue::keysAreUniqueWithinATable_data()
{
    tableIsClosed_data();
}

void TstCatalogue::keysAreUniqueWithinATable()
{
    QFETCH(QString, table);
    const Table* found = tableNamed(table);
    QVERIFY(found);

    QSet<QString> keys;
    for (const EffectDefaultVal* record = found->records; record->key; ++record)
        keys << QString::fromUtf8(record->key);
    QCOMPARE(static_cast<int>(keys.size()), found->properties);
}

void TstCatalogue::fontNamesHoldAWholeFont_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("type");

    QTest::newRow("watermark") << "wm_fontname"
                               << "Watermark";
    QTest::newRow("subtitle") << "sub_fontname"
                              << "Subtitle";
}

void TstCatalogue::fontNamesHoldAWholeFont()
{
    QFETCH(QString, key);
    QFETCH(QString, type);
    const QVariant value = ZoEffectModel::defaultValue(key, type);

    QCOMPARE(value.userType(), static_cast<int>(QMetaType::QFont));
    QCOMPARE(value.value<QFont>().family(), QStringLiteral("Tahoma"));
    QVERIFY(!value.value<QFont>().italic());
    QVERIFY(!value.value<QFont>().bold());
    QCOMPARE(value.value<QFont>(), QFont(QStringLiteral("Tahoma"), -1, -1, false));
}

void TstCatalogue::fontLeavesSizeAndWeightOpen_data()
{
    fontNamesHoldAWholeFont_data();
}

void TstCatalogue::fontLeavesSizeAndWeightOpen()
{
    QFETCH(QString, key);
    QFETCH(QString, type);
    const auto font = ZoEffectModel::defaultValue(key, type).value<QFont>();

    // What a font leaves open, it takes from the one that it is resolved against.
    const QFont resolved = font.resolve(QFont(QStringLiteral("Courier"), 31, QFont::Bold));

    QCOMPARE(resolved.family(), QStringLiteral("Tahoma"));
    QCOMPARE(resolved.pointSize(), 31);
    QVERIFY(resolved.bold());
}

void TstCatalogue::colorsAreTheNamedOnes()
{
    QCOMPARE(ZoEffectModel::defaultValue("wm_fontcolor", "Watermark").value<QColor>(), QColor(255, 255, 255));
    QCOMPARE(ZoEffectModel::defaultValue("sub_fontcolor", "Subtitle").value<QColor>(), QColor(255, 255, 255));
    QCOMPARE(ZoEffectModel::defaultValue("sub_framecolor", "Subtitle").value<QColor>(), QColor(0, 0, 0));
}

void TstCatalogue::fontStylesInOrder()
{
    QCOMPARE(texts(font_style), QStringList({"Regular", "Italic", "Bold", "Bold Italic"}));
}

void TstCatalogue::aspectRatiosInPairs()
{
    QCOMPARE(texts(crop_aspectratio), QStringList({"Original", "Original Ratio", "Crop Area", "Crop Ratio", "16:9",
                                                   "16:9", "4:3", "4:3", "3:2", "3:2"}));
}

void TstCatalogue::keysOfEmbeddedSubtitlesInOrder()
{
    QStringList keys;
    for (const char* key : keysforDVD)
        keys << QString::fromUtf8(key);
    QCOMPARE(keys, QStringList({"sub_fontcolor", "sub_transparency", "sub_vposition", "fontstyleusedefault",
                                "sub_framecolor"}));
}

void TstCatalogue::keysOfFileSubtitlesInOrder()
{
    QStringList keys;
    for (const char* key : keysforfromFile)
        keys << QString::fromUtf8(key);
    QCOMPARE(keys, QStringList({"sub_fontname", "sub_fontcolor", "sub_fontstyle", "sub_linemargin", "sub_fontsize",
                                "sub_transparency", "sub_vposition"}));
}

void TstCatalogue::recordFieldsStandInOrder()
{
    static const char* const choices[] = {"one", nullptr};
    static const EffectDefaultVal properties[] = {{"key", QVariant(1), choices, QVariant(2), QVariant(3)},
                                                  {nullptr, QVariant(0), nullptr, QVariant(0), QVariant(0)}};
    const auto& [key, defaultValue, options, lowest, highest] = properties[0];
    QCOMPARE(QString::fromUtf8(key), QStringLiteral("key"));
    QCOMPARE(defaultValue, QVariant(1));
    QVERIFY(options == choices);
    QCOMPARE(lowest, QVariant(2));
    QCOMPARE(highest, QVariant(3));

    const SubEffectItem sub = {"sub", 1, 2, 3, 4, 5, properties};
    QCOMPARE(QString::fromUtf8(sub.name), QStringLiteral("sub"));
    QCOMPARE(sub.id, 5);
    QVERIFY(sub.properties == properties);

    const EffectControlItem nested = effectType("nested", nullptr);
    const EffectControlItem item = {"type", 2, 3, 4, 5, &nested, 7, 8, 9, 10, 11, &sub, properties};
    QCOMPARE(QString::fromUtf8(item.name), QStringLiteral("type"));
    QVERIFY(item.children == &nested);
    QVERIFY(item.subItems == &sub);
    QVERIFY(item.properties == properties);
}

void TstCatalogue::zeroedRecordHoldsNothing()
{
    const EffectControlItem item{};
    QVERIFY(!item.name);
    QVERIFY(!item.children);
    QVERIFY(!item.subItems);
    QVERIFY(!item.properties);

    const SubEffectItem sub{};
    QVERIFY(!sub.name);
    QCOMPARE(sub.id, 0);
    QVERIFY(!sub.properties);

    const EffectDefaultVal property{};
    QVERIFY(!property.key);
    QVERIFY(!property.defaultValue.isValid());
    QVERIFY(!property.options);
}

void TstCatalogue::tablesAreReadableWhileTheProgramLoads()
{
    QCOMPARE(described(earlyFont), QStringLiteral("font Tahoma"));
    QCOMPARE(described(earlyText), QStringLiteral("string Original Ratio"));
}

void TstCatalogue::everyUnitHasItsOwnCopy_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("type");

    QTest::newRow("crop") << "cropDefaultVal"
                          << "Crop";
    QTest::newRow("watermark") << "WatermarkDefaultVal"
                               << "Watermark";
    QTest::newRow("subtitle") << "SubtitleDefaultVal"
                              << "Subtitle";
    QTest::newRow("audio") << "AudioDefaultVal"
                           << "Audio";
    QTest::newRow("color") << "BCSDefaultVal"
                           << "Color";
    QTest::newRow("fade") << "audioFadeInOut"
                          << "Audio_Fade_Inout";
    QTest::newRow("normalize") << "audioNormalize"
                               << "Audio_Normalize";
    QTest::newRow("band pass") << "audioBandpass"
                               << "Audio_BandPass";
    QTest::newRow("chorus") << "audioChorus"
                            << "Audio_Chorus";
    QTest::newRow("flanger") << "audioFlanger"
                             << "Audio_Flanger";
    QTest::newRow("echo") << "audioEcho"
                          << "Audio_Echo";
    QTest::newRow("speed") << "audioSpeed"
                           << "Audio_Speed";
}

void TstCatalogue::everyUnitHasItsOwnCopy()
{
    QFETCH(QString, table);
    QFETCH(QString, type);
    const Table* here = tableNamed(table);
    QVERIFY(here);
    // The host's table of types is built in another unit, from that unit's arrays.
    const EffectControlItem* there = ZoEffectModel::findOriItem(type, hostCatalogue());
    QVERIFY(there);

    QVERIFY(there->properties != here->records);
    for (int i = 0; i < here->properties; ++i) {
        QCOMPARE(QString::fromUtf8(there->properties[i].key), QString::fromUtf8(here->records[i].key));
        QCOMPARE(described(there->properties[i].defaultValue), described(here->records[i].defaultValue));
        QCOMPARE(described(there->properties[i].minValue), described(here->records[i].minValue));
        QCOMPARE(described(there->properties[i].maxValue), described(here->records[i].maxValue));
        QCOMPARE(there->properties[i].options == nullptr, here->records[i].options == nullptr);
        if (here->records[i].options)
            QCOMPARE(texts(there->properties[i].options), texts(here->records[i].options));
    }
    QVERIFY(!there->properties[here->properties].key);
}

void TstCatalogue::everyUnitHasItsOwnFrameEffectProperties()
{
    const EffectControlItem* effect = ZoEffectModel::findOriItem("Effect", hostCatalogue());
    QVERIFY(effect && effect->subItems);
    const EffectDefaultVal* there = effect->subItems[0].properties;

    QVERIFY(there != frameEffectsDefaultVal);
    QCOMPARE(QString::fromUtf8(there[0].key), QStringLiteral("_checkstate"));
    QCOMPARE(described(there[0].defaultValue), QStringLiteral("bool false"));
    QVERIFY(!there[1].key);
}

namespace {

// Crop
// Group > Effect, Inner > Deepest, Crop
// Color
// Größe
const EffectControlItem* nestedTable()
{
    static const EffectControlItem deepest[] = {effectType("Deepest", nullptr), effectType(nullptr, nullptr)};
    static const EffectControlItem inner[] = {effectType("Effect", nullptr),
                                              effectType("Inner", nullptr, nullptr, deepest),
                                              effectType("Crop", nullptr), effectType(nullptr, nullptr)};
    static const EffectControlItem table[] = {effectType("Crop", cropDefaultVal),
                                              effectType("Group", nullptr, nullptr, inner),
                                              effectType("Color", BCSDefaultVal),
                                              effectType("Gr\xC3\xB6\xC3\x9F"
                                                         "e",
                                                         nullptr),
                                              effectType("", nullptr),
                                              effectType(nullptr, nullptr)};
    return table;
}

} // namespace

void TstCatalogue::findsRecord_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("path"); // Indexes into the tables, empty for no record.

    QTest::newRow("first record") << "Crop"
                                  << "0";
    QTest::newRow("record with a nested table") << "Group"
                                                << "1";
    QTest::newRow("record after a nested table") << "Color"
                                                 << "2";
    QTest::newRow("nested record") << "Effect"
                                   << "1.0";
    QTest::newRow("nested record with a nested table") << "Inner"
                                                       << "1.1";
    QTest::newRow("record two levels down") << "Deepest"
                                            << "1.1.0";
    QTest::newRow("name beyond ASCII") << QString::fromUtf8("Gr\xC3\xB6\xC3\x9F"
                                                            "e")
                                       << "3";
    QTest::newRow("empty name") << ""
                                << "4";
    QTest::newRow("null text is an empty name") << QString() << "4";
    QTest::newRow("unknown name") << "Watermark"
                                  << "";
    QTest::newRow("lower case") << "crop"
                                << "";
    QTest::newRow("upper case") << "CROP"
                                << "";
    QTest::newRow("nested name in lower case") << "effect"
                                               << "";
    QTest::newRow("blank after") << "Crop "
                                 << "";
    QTest::newRow("blank before") << " Crop"
                                  << "";
    QTest::newRow("beginning of a name") << "Cro"
                                         << "";
    QTest::newRow("longer than a name") << "Crops"
                                        << "";
    QTest::newRow("root of a model") << "effect root"
                                     << "";
}

void TstCatalogue::findsRecord()
{
    QFETCH(QString, type);
    QFETCH(QString, path);
    const EffectControlItem* expected = nullptr;
    const EffectControlItem* table = nestedTable();
    if (!path.isEmpty()) {
        const QStringList indexes = path.split(QLatin1Char('.'));
        for (const QString& index : indexes) {
            expected = table + index.toInt();
            table = expected->children;
        }
    }

    QVERIFY(ZoEffectModel::findOriItem(type, nestedTable()) == expected);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstCatalogue::findsNothingWithoutTable()
{
    const EffectControlItem empty[] = {effectType(nullptr, nullptr)};

    QVERIFY(!ZoEffectModel::findOriItem("Crop", nullptr));
    QVERIFY(!ZoEffectModel::findOriItem("Crop", empty));
    QVERIFY(!ZoEffectModel::findOriItem(QString(), nullptr));
    QVERIFY(!ZoEffectModel::findOriItem(QString(), empty));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstCatalogue::findsTypeThatStandsOnlyInANestedTable()
{
    const EffectControlItem inner[] = {effectType("Effect", BCSDefaultVal), effectType(nullptr, nullptr)};
    const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, inner), effectType(nullptr, nullptr)};

    QVERIFY(ZoEffectModel::findOriItem("Effect", table) == inner);
}

void TstCatalogue::nestedRecordWinsWhenItComesEarlier()
{
    const EffectControlItem inner[] = {effectType("Effect", nullptr), effectType(nullptr, nullptr)};
    const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, inner), effectType("Effect", nullptr),
                                       effectType(nullptr, nullptr)};

    QVERIFY(ZoEffectModel::findOriItem("Effect", table) == inner);
}

void TstCatalogue::topLevelRecordWinsWhenItComesEarlier()
{
    const EffectControlItem inner[] = {effectType("Effect", nullptr), effectType(nullptr, nullptr)};
    const EffectControlItem table[] = {effectType("Effect", nullptr), effectType("Group", nullptr, nullptr, inner),
                                       effectType(nullptr, nullptr)};

    QVERIFY(ZoEffectModel::findOriItem("Effect", table) == table);
}

void TstCatalogue::recordWinsOverItsOwnChildren()
{
    const EffectControlItem inner[] = {effectType("Effect", nullptr), effectType(nullptr, nullptr)};
    const EffectControlItem table[] = {effectType("Effect", nullptr, nullptr, inner), effectType(nullptr, nullptr)};

    QVERIFY(ZoEffectModel::findOriItem("Effect", table) == table);
}

void TstCatalogue::firstOfTwoEqualNamesWins()
{
    const EffectControlItem deepest[] = {effectType("Effect", nullptr), effectType(nullptr, nullptr)};
    const EffectControlItem first[] = {effectType("Other", nullptr, nullptr, deepest), effectType("Effect", nullptr),
                                       effectType(nullptr, nullptr)};
    const EffectControlItem table[] = {effectType("Crop", nullptr), effectType("Group", nullptr, nullptr, first),
                                       effectType("Crop", nullptr), effectType(nullptr, nullptr)};

    QVERIFY(ZoEffectModel::findOriItem("Crop", table) == table);
    QVERIFY(ZoEffectModel::findOriItem("Effect", table) == deepest);
}

void TstCatalogue::searchEndsAtTheNullName()
{
    const EffectControlItem hidden[] = {effectType("Hidden", nullptr), effectType(nullptr, nullptr)};
    const EffectControlItem inner[] = {effectType("Inner", nullptr), effectType(nullptr, nullptr, nullptr, hidden),
                                       effectType("Beyond", nullptr), effectType(nullptr, nullptr)};
    const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, inner), effectType("Color", nullptr),
                                       effectType(nullptr, nullptr, nullptr, hidden), effectType("Crop", nullptr),
                                       effectType(nullptr, nullptr)};

    QVERIFY(ZoEffectModel::findOriItem("Color", table) == table + 1);
    QVERIFY(!ZoEffectModel::findOriItem("Crop", table));
    QVERIFY(!ZoEffectModel::findOriItem("Beyond", table));
    QVERIFY(!ZoEffectModel::findOriItem("Hidden", table));
}

void TstCatalogue::searchGoesOnAfterAnEmptyNestedTable()
{
    const EffectControlItem none[] = {effectType(nullptr, nullptr)};
    const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, none), effectType("Crop", nullptr),
                                       effectType(nullptr, nullptr)};

    QVERIFY(ZoEffectModel::findOriItem("Crop", table) == table + 1);
    QVERIFY(!ZoEffectModel::findOriItem("Color", table));
}

void TstCatalogue::searchReadsTheGivenTableOnly()
{
    // The registered table knows "Crop" too; the record must come from the given one.
    const EffectControlItem table[] = {effectType("Crop", nullptr), effectType(nullptr, nullptr)};

    QVERIFY(ZoEffectModel::findOriItem("Crop", table) == table);
    QVERIFY(!ZoEffectModel::findOriItem("Color", table));
    QVERIFY(ZoEffectModel::findOriItem("Color", ZoEffectModel::s_EffectItems) == hostCatalogue() + 4);
}

void TstCatalogue::defaultsAreFoundPerType_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");

    QTest::newRow("flag of fade") << "audio_effect_flag"
                                  << "Audio_Fade_Inout"
                                  << "bool false";
    QTest::newRow("flag of speed") << "audio_effect_flag"
                                   << "Audio_Speed"
                                   << "bool false";
    QTest::newRow("flag of a type without it") << "audio_effect_flag"
                                               << "Audio"
                                               << "invalid";
    QTest::newRow("crop key of another type") << "crop_left"
                                              << "Watermark"
                                              << "invalid";
    QTest::newRow("watermark key of another type") << "wm_fontsize"
                                                   << "Subtitle"
                                                   << "invalid";
    QTest::newRow("delay of the chorus") << "audio_chorus_delay"
                                         << "Audio_Chorus"
                                         << "int 50";
    QTest::newRow("delay of the flanger") << "audio_flanger_delay"
                                          << "Audio_Flanger"
                                          << "int 3";
    QTest::newRow("chorus key of the flanger") << "audio_chorus_delay"
                                               << "Audio_Flanger"
                                               << "invalid";
    QTest::newRow("decay of the echo") << "audio_echo_decay"
                                       << "Audio_Echo"
                                       << "int 500";
    QTest::newRow("width of the crop") << "crop_width"
                                       << "Crop"
                                       << "string source_val";
    QTest::newRow("height of the crop") << "crop_height"
                                        << "Crop"
                                        << "string source_val";
    QTest::newRow("font of the watermark") << "wm_fontname"
                                           << "Watermark"
                                           << "font Tahoma";
    QTest::newRow("vertical factor of the subtitle") << "sub_vposfactor"
                                                     << "Subtitle"
                                                     << "double 0.80000000000000004";
    QTest::newRow("horizontal factor of the subtitle") << "sub_hposfactor"
                                                       << "Subtitle"
                                                       << "invalid";
    QTest::newRow("misspelled frequency") << "audio_bandpass_requency"
                                          << "Audio_BandPass"
                                          << "int 1000";
    QTest::newRow("well spelled frequency") << "audio_bandpass_frequency"
                                            << "Audio_BandPass"
                                            << "invalid";
    QTest::newRow("mixed case") << "audio_normalize_maxLevel"
                                << "Audio_Normalize"
                                << "int 98";
    QTest::newRow("lower case") << "audio_normalize_maxlevel"
                                << "Audio_Normalize"
                                << "invalid";
}

void TstCatalogue::defaultsAreFoundPerType()
{
    QFETCH(QString, key);
    QFETCH(QString, type);
    QFETCH(QString, value);

    QCOMPARE(described(ZoEffectModel::defaultValue(key, type)), value);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstCatalogue::firstOfTwoEqualKeysIsTheDefault()
{
    const EffectDefaultVal properties[] = {::property("other", 0), ::property("key", 1), ::property("key", 2),
                                           ::property(nullptr, 0)};
    const EffectControlItem table[] = {effectType("Type", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(described(ZoEffectModel::defaultValue("key", "Type")), QStringLiteral("int 1"));

    ZoEffectModel::InitEffectModel(hostCatalogue());
}

ZOEFFECT_TEST_MAIN(TstCatalogue)
#include "tst_catalogue.moc"
