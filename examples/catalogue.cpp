// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The table of effect types: the library's, with a type of the host's own, and what an editor reads from it.

#include <QGuiApplication>
#include <QTextStream>

#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

namespace {

const char* const rotateActions[] = {"None", "Left", "Right", "Turn Round", nullptr};

// Key, default, choices or null, lowest and highest value; two int 0 mean no bounds.
const EffectDefaultVal rotateProperties[] = {
    {"rotate_action", QVariant(QStringLiteral("None")), rotateActions, QVariant(0), QVariant(0)},
    {"rotate_angle", QVariant(0), nullptr, QVariant(-180), QVariant(180)},
    {"rotate_fill", QVariant(QColor(Qt::black)), nullptr, QVariant(0), QVariant(0)},
    {nullptr, QVariant(0), nullptr, QVariant(0), QVariant(0)},
};

const EffectDefaultVal denoiseProperties[] = {
    {"denoise_strength", QVariant(3), nullptr, QVariant(1), QVariant(9)},
    {nullptr, QVariant(0), nullptr, QVariant(0), QVariant(0)},
};

SubEffectItem frameEffect(const char* name, int id, unsigned slowness)
{
    SubEffectItem record{};
    record.name = name;
    record.reserved1 = slowness; // The reserved words are the host's: here a grade for the menu.
    record.id = id;
    record.properties = frameEffectsDefaultVal; // Off until someone switches it on.
    return record;
}

EffectControlItem effectType(const char* name, const EffectDefaultVal* properties,
                             const SubEffectItem* subItems = nullptr, const EffectControlItem* children = nullptr)
{
    EffectControlItem record{}; // All that is not set here is 0.
    record.name = name;
    record.children = children;
    record.subItems = subItems;
    record.properties = properties;
    return record;
}

const EffectControlItem* effectTable()
{
    // A null name ends a table.
    static const SubEffectItem frameEffects[] = {frameEffect("Blur", 1, 3), frameEffect("Sepia", 5, 1),
                                                 frameEffect(nullptr, 0, 0)};
    static const EffectControlItem repairs[] = {effectType("Denoise", denoiseProperties), effectType(nullptr, nullptr)};
    static const EffectControlItem table[] = {
        effectType("Crop", cropDefaultVal),
        effectType("Watermark", WatermarkDefaultVal),
        effectType("Subtitle", SubtitleDefaultVal),
        effectType("Audio", AudioDefaultVal),
        effectType("Color", BCSDefaultVal),
        effectType("Effect", nullptr, frameEffects),
        effectType("Audio_Fade_Inout", audioFadeInOut),
        effectType("Audio_Normalize", audioNormalize),
        effectType("Audio_BandPass", audioBandpass),
        effectType("Audio_Chorus", audioChorus),
        effectType("Audio_Flanger", audioFlanger),
        effectType("Audio_Echo", audioEcho),
        effectType("Audio_Speed", audioSpeed),
        effectType("Rotate", rotateProperties),
        effectType("Repair", nullptr, nullptr, repairs),
        effectType(nullptr, nullptr),
    };
    return table;
}

// What an editor shows for one property.
QString control(const EffectDefaultVal& property, const QSize& frame)
{
    if (property.options) {
        QStringList choices;
        for (const char* const* choice = property.options; *choice; ++choice)
            choices += QString::fromUtf8(*choice);
        return "combo box: " + choices.join(", ");
    }
    const auto bound = [&](const QVariant& value) {
        if (value.toString() != "source_val")
            return value.toInt();
        return QByteArray(property.key).endsWith("hposition") ? frame.width() : frame.height();
    };
    const int lowest = bound(property.minValue);
    const int highest = bound(property.maxValue);
    if (lowest != highest)
        return QString("spin box: %1 to %2").arg(lowest).arg(highest);
    switch (property.defaultValue.userType()) {
    case QMetaType::Bool:
        return "check box";
    case QMetaType::QColor:
        return "colour button";
    case QMetaType::QFont:
        return "font button";
    default:
        return "number without bounds";
    }
}

QString types(const ZoEffectModel& model)
{
    const ZoEffectItemData* root = model.getDataItem("effect root", -1);
    QStringList names;
    for (int row = 0; row < root->childCount(); ++row)
        names += root->child(row)->name();
    return names.join(", ");
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    QTextStream out(stdout);

    ZoEffectModel::InitEffectModel(effectTable());

    ZoEffectModel picture(QStringList{"Rotate", "Effect", "Color", "Audio", "Subtitle", "Watermark", "Crop"});
    ZoEffectModel sound(QStringList{"Audio_Fade_Inout", "Audio_Normalize", "Audio_BandPass", "Audio_Chorus",
                                    "Audio_Flanger", "Audio_Echo", "Audio_Speed"});
    out << "picture: " << types(picture) << '\n';
    out << "sound: " << types(sound) << '\n';

    picture.setData("_checkstate", true, "Effect", 1);
    for (int pos = 0; pos < picture.childCount("Effect"); ++pos) {
        const ZoEffectItemData* node = picture.getDataItem("Effect", pos);
        const auto* effect = static_cast<const SubEffectItem*>(node->internalData());
        out << node->name() << ", id " << node->data("id").toInt() << ", slowness " << effect->reserved1 << ", "
            << (node->checkState() == Qt::Checked ? "on" : "off") << '\n';
    }

    const QMap<QString, QVariant> kept = picture.getCurrentFrameEffects();
    out << kept["Effect"].toString() << '\n';
    picture.changeDataItemPos("Effect", 0, 1);
    out << (picture.applyFrameEffects(kept) ? "back" : "refused") << ": ";
    out << picture.getDataItem("Effect", 0)->name() << " first\n";
    out << (picture.applyFrameEffects({{"Effect", "Blur|true"}}) ? "applied" : "refused") << '\n';

    picture.setData("rotate_angle", 90, "Rotate", -1);
    out << "angle: " << picture.data("rotate_angle", "Rotate", -1).toInt();
    out << ", by default " << ZoEffectModel::defaultValue("rotate_angle", "Rotate").toInt() << '\n';
    out << "all default: " << (picture.dataIsDefault("Rotate") ? "yes" : "no") << '\n';
    picture.resetDataItem("Rotate", -1);
    out << "and after a reset: " << (picture.dataIsDefault("Rotate") ? "yes" : "no") << '\n';

    out << "Denoise in a new model: " << (ZoEffectModel().getDataItem("Denoise", -1) ? "yes" : "no") << '\n';
    picture.addDataItemEx("Denoise", {}, false); // Now this model has it, filled with its defaults.
    out << "strength: " << picture.data("denoise_strength", "Denoise", -1).toInt() << '\n';

    const EffectControlItem* record = ZoEffectModel::findOriItem("Watermark", effectTable());
    for (const EffectDefaultVal* property = record->properties; property->key; ++property)
        out << property->key << ": " << control(*property, QSize(1280, 720)) << '\n';
    return 0;
}
