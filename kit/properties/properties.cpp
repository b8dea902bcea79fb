// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/properties.h>

#include <algorithm>
#include <iterator>

#include <QCoreApplication>
#include <QHash>

#include <zoeffectcatalogue.h>

#include <zokit/outputoptions.h>

#include "cataloguedefaults_p.h"
#include "propertyrows_p.h"
#include "trackrows_p.h"

namespace zokit {

namespace {

QString translated(const char* text)
{
    return text && *text ? QCoreApplication::translate("zokit", text) : QString();
}

struct NamedText {
    const char* name;
    const char* text;
};

#define T(text) QT_TRANSLATE_NOOP("zokit", text)

// clang-format off
constexpr NamedText typeNames[] = {
    {"Crop", T("Crop")},
    {"Watermark", T("Watermarks")},
    {"Subtitle", T("Subtitles")},
    {"Audio", T("Sound tracks")},
    {"Color", T("Colour")},
    {"Effect", T("Frame effects")},
    {"Audio_Fade_Inout", T("Fade in and out")},
    {"Audio_Normalize", T("Normalize")},
    {"Audio_BandPass", T("Band pass")},
    {"Audio_Chorus", T("Chorus")},
    {"Audio_Flanger", T("Flanger")},
    {"Audio_Echo", T("Echo")},
    {"Audio_Speed", T("Speed")},
    {"Output", T("Output")},
    {"Tracks", T("Choice of tracks")},
    {"Blur", T("Blur")},
    {"Sharpen", T("Sharpen")},
    {"Mirror", T("Mirror")},
    {"Flip", T("Flip")},
    {"Sepia", T("Sepia")},
    {"Greyscale", T("Greyscale")},
    {"Negative", T("Negative")},
    {"Emboss", T("Emboss")},
    {"Mosaic", T("Mosaic")},
    {"Noise", T("Noise")},
    {"Vignette", T("Vignette")},
    {"Old Film", T("Old film")},
    {"Edge", T("Edges")},
    {"Posterize", T("Posterize")},
    {"Warm", T("Warm")},
    {"Cool", T("Cool")},
    {"Fisheye", T("Fisheye")},
    {"Glow", T("Glow")},
    {"Kaleidoscope", T("Kaleidoscope")},
    {"Grid", T("Grid")},
};

/// One of the items of a type.
constexpr NamedText singularNames[] = {
    {"Watermark", T("watermark")}, {"Subtitle", T("subtitle")}, {"Audio", T("sound track")},
    {"Effect", T("frame effect")},
};

constexpr NamedText groupNames[] = {
    {"limits", T("Limits")}, {"rectangle", T("Rectangle")}, {"shape", T("Shape")}, {"turning", T("Turning")},
    {"place", T("Place")}, {"look", T("Look")}, {"font", T("Letters")}, {"size", T("Size")}, {"content", T("Content")},
    {"track", T("Track")}, {"colour", T("Colour")}, {"effects", T("Effects")}, {"use", T("Use")}, {"in", T("Beginning")},
    {"out", T("End")}, {"level", T("Level")}, {"band", T("Band")}, {"gain", T("Gain")}, {"voice", T("Second voice")},
    {"speed", T("Speed")}, {"file", T("File")}, {"picture", T("Picture")}, {"sound", T("Sound")},
    {"subtitles", T("Subtitles")}, {"run", T("While it runs")}, {"rules", T("Rules")},
};

constexpr NamedText suitNames[] = {
    {"type", T("the type itself")}, {"text", T("text watermarks")}, {"image", T("image watermarks")},
    {"embedded", T("tracks of the clip")}, {"file", T("files")}, {"frame effect", T("frame effects")},
};

const QVector<FrameEffect> effects = {
    {"Blur", 1, T("Softens the whole picture.")},
    {"Sharpen", 2, T("Makes edges stand out.")},
    {"Mirror", 3, T("Left becomes right.")},
    {"Flip", 4, T("Top becomes bottom.")},
    {"Sepia", 5, T("Browns, as in an old photograph.")},
    {"Greyscale", 6, T("Takes the colours away.")},
    {"Negative", 7, T("Light becomes dark, each colour its opposite.")},
    {"Emboss", 8, T("Edges as if pressed into metal.")},
    {"Mosaic", 9, T("Large squares instead of details.")},
    {"Noise", 10, T("A still grain over the picture.")},
    {"Vignette", 11, T("Darkens the corners.")},
    {"Old Film", 12, T("Browns, grain and dark corners together.")},
    {"Edge", 13, T("Shows edges alone.")},
    {"Posterize", 14, T("Few steps of brightness instead of many.")},
    {"Warm", 15, T("More red, less blue.")},
    {"Cool", 16, T("More blue, less red.")},
    {"Fisheye", 17, T("Bends the picture as a very wide lens does.")},
    {"Glow", 18, T("Light spreads around what is bright.")},
    {"Kaleidoscope", 19, T("The left half, mirrored to the right.")},
    {"Grid", 20, T("Lines that divide the picture into eighths.")},
};
// clang-format on

/// What a number means for a person.
struct NumberName {
    int number;
    const char* name;
};

const QHash<QString, QVector<NumberName>>& numberNames()
{
    static const QHash<QString, QVector<NumberName>> names{
        {QStringLiteral("audio_bandpass_type"),
         {{0, T("Low pass")}, {1, T("High pass")}, {2, T("Band pass")}, {3, T("Band stop")}}},
        {QStringLiteral("crop_rotation_angle"), {{0, T("not turned")}, {90, "90"}, {180, "180"}, {270, "270"}}},
        {QStringLiteral("crop_rotation_action"),
         {{0, T("not mirrored")}, {1, T("left and right")}, {2, T("top and bottom")}, {3, T("both")}}},
    };
    return names;
}

/// Choices of texts, by their English words; those of the catalogue, each once.
const char* valueChoiceText(const QString& choice)
{
    static const QHash<QString, const char*> names{
        {QStringLiteral("Regular"), T("Regular")},
        {QStringLiteral("Italic"), T("Italic")},
        {QStringLiteral("Bold"), T("Bold")},
        {QStringLiteral("Bold Italic"), T("Bold Italic")},
        {QStringLiteral("Original"), T("Whole frame")},
        {QStringLiteral("Original Ratio"), T("As the frame")},
        {QStringLiteral("Crop Area"), T("Free")},
        {QStringLiteral("Crop Ratio"), T("As it is")},
    };
    return names.value(choice, nullptr);
}

#undef T

const char* textOf(const NamedText* begin, const NamedText* end, const QString& name)
{
    const auto* found =
        std::find_if(begin, end, [&](const NamedText& text) { return name == QLatin1String(text.name); });
    return found == end ? nullptr : found->text;
}

const EffectDefaultVal* catalogueEntry(const Property& property)
{
    for (const EffectDefaultVal* entry = catalogueOf(property.type); entry && entry->key; ++entry) {
        if (property.key == QLatin1String(entry->key))
            return entry;
    }
    return nullptr;
}

void addChoices(Property& property)
{
    const EffectDefaultVal* entry = catalogueEntry(property);
    for (const char* const* option = entry ? entry->options : nullptr; option && *option; ++option) {
        const QVariant value = QString::fromUtf8(*option);
        const bool known = std::any_of(property.choices.cbegin(), property.choices.cend(),
                                       [&](const Choice& choice) { return choice.value == value; });
        if (!known) // The catalogue lists each ratio twice.
            property.choices.append({value, valueChoiceText(value.toString())});
    }
    const QVector<NumberName> names = numberNames().value(property.key);
    for (const NumberName& name : names)
        property.choices.append({name.number, name.name});
}

void addDetails(Property& property)
{
    const auto is = [&](std::initializer_list<const char*> keys) {
        return std::any_of(keys.begin(), keys.end(),
                           [&](const char* key) { return property.key == QLatin1String(key); });
    };
    property.isPath = property.control == Control::FileChooser;
    property.isGeometry = is({"crop_left", "crop_top", "crop_width", "crop_height", "wm_hposition", "wm_vposition",
                              "wm_imagewidth", "wm_imageheight", "sub_hposition", "sub_vposition"});
    if (property.kind == ValueKind::Number) {
        constexpr double lastDecimal = 0.01;
        property.step = lastDecimal;
        property.decimals = 2;
    }
    if (is({"crop_left", "crop_top", "crop_width", "crop_height"}))
        property.belongsTo = QStringList{QStringLiteral("crop_left"), QStringLiteral("crop_top"),
                                         QStringLiteral("crop_width"), QStringLiteral("crop_height")};
    else if (is({"wm_hposition", "wm_vposition"}))
        property.belongsTo = QStringList{QStringLiteral("wm_hposition"), QStringLiteral("wm_vposition")};
    else if (is({"wm_imagewidth", "wm_imageheight", "wm_imagekeepratio"}))
        property.belongsTo = QStringList{QStringLiteral("wm_imagewidth"), QStringLiteral("wm_imageheight"),
                                         QStringLiteral("wm_imagekeepratio")};
    else if (is({"crop_keepaspectratio", "crop_aspectratio"}))
        property.belongsTo = QStringList{QStringLiteral("crop_keepaspectratio"), QStringLiteral("crop_aspectratio")};

    // NOLINTBEGIN(readability-magic-numbers): each stands beside its key.
    const auto visual = [&](int lowest, int highest) {
        property.visualLowest = lowest;
        property.visualHighest = highest;
    };
    if (is({"audio_fade_in", "audio_fade_out"}))
        visual(0, 30);
    else if (is({"audio_bandpass_requency"}))
        visual(20, 20000);
    else if (is({"audio_echo_delay"}))
        visual(0, 2000);
    else if (is({"audio_speed_factor"}))
        visual(25, 200);
    // NOLINTEND(readability-magic-numbers)
}

QVector<Property> allProperties()
{
    QVector<Property> all = propertyRows();
    for (Property& property : all) {
        addChoices(property);
        addDetails(property);
    }
    all += trackRows();
    for (const OutputOption& option : outputOptions())
        all.append(option.property);
    return all;
}

const QVector<NamedText>& units()
{
    // In the order of Unit.
    static const QVector<NamedText> names{
        {"None", ""},
        {"Pixels", QT_TRANSLATE_NOOP("zokit", "px")},
        {"Points", QT_TRANSLATE_NOOP("zokit", "pt")},
        {"Percent", QT_TRANSLATE_NOOP("zokit", "%")},
        {"Seconds", QT_TRANSLATE_NOOP("zokit", "s")},
        {"Milliseconds", QT_TRANSLATE_NOOP("zokit", "ms")},
        {"Hertz", QT_TRANSLATE_NOOP("zokit", "Hz")},
        {"HundredthsOfHertz", QT_TRANSLATE_NOOP("zokit", "/100 Hz")},
        {"PerMille", QT_TRANSLATE_NOOP("zokit", "\342\200\260")},
        {"Degrees", QT_TRANSLATE_NOOP("zokit", "\302\260")},
        {"KilobitsPerSecond", QT_TRANSLATE_NOOP("zokit", "kbit/s")},
        {"FramesPerSecond", QT_TRANSLATE_NOOP("zokit", "frames/s")},
    };
    return names;
}

} // namespace

QString Property::label() const
{
    return translated(labelText);
}

QString Property::help() const
{
    return translated(helpText);
}

QString Property::unitName() const
{
    return translated(units().at(static_cast<int>(unit)).text);
}

QString Property::groupName() const
{
    return translated(textOf(std::begin(groupNames), std::end(groupNames), group));
}

QString Property::choiceName(const QVariant& value) const
{
    const auto found =
        std::find_if(choices.cbegin(), choices.cend(), [&](const Choice& choice) { return choice.value == value; });
    return found != choices.cend() && found->name ? translated(found->name) : value.toString();
}

QVariant Property::defaultValue() const
{
    const EffectDefaultVal* entry = catalogueEntry(*this);
    return entry ? entry->defaultValue : QVariant();
}

bool Property::hasDefault() const
{
    return catalogueEntry(*this) != nullptr;
}

QString FrameEffect::help() const
{
    return translated(helpText);
}

const QVector<Property>& properties()
{
    static const QVector<Property> all = allProperties();
    return all;
}

const Property* findProperty(const QString& type, const QString& key)
{
    static const QHash<QString, int> rows = [] {
        QHash<QString, int> index;
        for (int row = 0; row < properties().size(); ++row)
            index.insert(properties().at(row).type + QLatin1Char(':') + properties().at(row).key, row);
        return index;
    }();
    const int row = rows.value(type + QLatin1Char(':') + key, -1);
    return row < 0 ? nullptr : &properties().at(row);
}

QStringList effectTypes()
{
    static const QStringList types = [] {
        QStringList names;
        for (const EffectControlItem* record = effectTable(); record->name; ++record)
            names.append(QString::fromLatin1(record->name));
        return names;
    }();
    return types;
}

bool isSoundType(const QString& type)
{
    return type.startsWith(QLatin1String("Audio_"));
}

bool hasItems(const QString& type)
{
    return type == QLatin1String("Watermark") || type == QLatin1String("Subtitle") || type == QLatin1String("Audio")
           || type == QLatin1String("Effect");
}

QString displayName(const QString& name)
{
    const char* text = textOf(std::begin(typeNames), std::end(typeNames), name);
    return text ? translated(text) : name;
}

QString singularName(const QString& type)
{
    const char* text = textOf(std::begin(singularNames), std::end(singularNames), type);
    return text ? translated(text) : displayName(type);
}

QString suitsText(Suits suits)
{
    QStringList words;
    for (std::size_t i = 0; i < std::size(suitNames); ++i) {
        if (suits.testFlag(static_cast<Suit>(1 << i)))
            words.append(translated(suitNames[i].text));
    }
    return words.join(QStringLiteral(", "));
}

const QVector<FrameEffect>& frameEffects()
{
    return effects;
}

const EffectControlItem* effectTable()
{
    static const QVector<SubEffectItem> subItems = [] {
        QVector<SubEffectItem> items;
        for (const FrameEffect& effect : effects) {
            SubEffectItem item{};
            item.name = effect.name;
            item.id = effect.id;
            item.properties = frameEffectsDefaultVal;
            items.append(item);
        }
        items.append(SubEffectItem{});
        return items;
    }();
    static const QVector<EffectControlItem> table = [] {
        QVector<EffectControlItem> records;
        const auto add = [&records](const char* name, const EffectDefaultVal* properties) {
            EffectControlItem record{};
            record.name = name;
            record.properties = properties;
            records.append(record);
        };
        add("Crop", cropDefaultVal);
        add("Watermark", WatermarkDefaultVal);
        add("Subtitle", SubtitleDefaultVal);
        add("Audio", AudioDefaultVal);
        add("Color", BCSDefaultVal);
        add("Effect", nullptr);
        records.last().subItems = subItems.constData();
        add("Audio_Fade_Inout", audioFadeInOut);
        add("Audio_Normalize", audioNormalize);
        add("Audio_BandPass", audioBandpass);
        add("Audio_Chorus", audioChorus);
        add("Audio_Flanger", audioFlanger);
        add("Audio_Echo", audioEcho);
        add("Audio_Speed", audioSpeed);
        records.append(EffectControlItem{});
        return records;
    }();
    return table.constData();
}

} // namespace zokit
