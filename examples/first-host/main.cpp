// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QGuiApplication>
#include <QTextStream>

#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

// The effect types of this host. The library reads the table as long as there are models, so it is static.
const EffectControlItem* effectTable()
{
    static EffectControlItem table[3] = {}; // One record more than there are types: a null name ends the table.
    table[0].name = "Crop";
    table[0].properties = cropDefaultVal;
    table[1].name = "Watermark";
    table[1].properties = WatermarkDefaultVal;
    return table;
}

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv); // Pictures and fonts take one.
    QTextStream out(stdout);

    ZoEffectModel::InitEffectModel(effectTable()); // Once, before the first model.

    ZoEffectModel settings;           // The settings of one file, filled with defaults.
    settings.setVideoSize(1280, 720); // The frame in which all positions and sizes are pixels.

    // Four arguments: one value has changed. (The signal of the same name with one argument is for batches.)
    QObject::connect(
        &settings,
        QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        [&out](const QString& type, const QString& key, const QVariant&, int pos) {
            out << "changed: " << type << ' ' << pos << ' ' << key << '\n';
        });

    // A property of the type itself stands at position -1.
    settings.setData("crop_left", 160, "Crop", -1);
    settings.setData("crop_top", 90, "Crop", -1);
    settings.setData("crop_width", 960, "Crop", -1);
    settings.setData("crop_height", 540, "Crop", -1);
    settings.setData("crop_height", 540, "Crop", -1); // Equal: nothing changes, nothing is sent.

    // Items stand at 0, 1, 2, ... What is not given here comes from the defaults.
    settings.addDataItem("Watermark", {{"wm_istextwatermark", true}, {"wm_textcontent", "Hello"}});
    settings.setData("wm_fontsize", 40, "Watermark", 0);

    // The picture that lies over the video. Drawing a text measures it, which is a change, too.
    settings.getWatermark(1280, 720, true).save("watermark.png");

    // The video comes in another size: crop and watermark follow, without signals.
    settings.adjustEffectInfo(640, 360);
    const CropData crop = settings.cropData();
    out << "crop: " << crop.width << " x " << crop.height << " at " << crop.left << ',' << crop.top << '\n';
    out << "font size: " << settings.data("wm_fontsize", "Watermark", 0).toInt() << '\n';
    out << "anything to do: " << (settings.hasRealEffect() ? "yes" : "no") << '\n';
    return 0;
}
