// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QGuiApplication>
#include <QRect>
#include <QTextStream>

#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

const EffectControlItem* effectTable()
{
    static EffectControlItem table[4] = {};
    table[0].name = "Crop";
    table[0].properties = cropDefaultVal;
    table[1].name = "Watermark";
    table[1].properties = WatermarkDefaultVal;
    table[2].name = "Subtitle";
    table[2].properties = SubtitleDefaultVal;
    return table;
}

void setCrop(ZoEffectModel& settings, const QRect& area)
{
    settings.beginChange("Crop");
    settings.setData("crop_left", area.left(), "Crop", -1);
    settings.setData("crop_top", area.top(), "Crop", -1);
    settings.setData("crop_width", area.width(), "Crop", -1);
    settings.setData("crop_height", area.height(), "Crop", -1);
    settings.endChanged("Crop");
}

QString cropOf(const ZoEffectModel& settings)
{
    const CropData crop = settings.cropData();
    if (!crop.valid)
        return "none";
    return QString("%1 x %2 at %3,%4").arg(crop.width).arg(crop.height).arg(crop.left).arg(crop.top);
}

QString watermarkOf(const ZoEffectModel& settings, int pos)
{
    const auto number = [&settings, pos](const char* key) { return settings.data(key, "Watermark", pos).toInt(); };
    return QString("%1 x %2 at %3,%4")
        .arg(number("wm_imagewidth"))
        .arg(number("wm_imageheight"))
        .arg(number("wm_hposition"))
        .arg(number("wm_vposition"));
}

QString sizeOf(const ZoEffectModel& settings)
{
    return QString("%1 x %2").arg(settings.baseSize().width()).arg(settings.baseSize().height());
}

// A crop of 800 x 450 at 320,120 in a frame of 1280 x 720, carried to another frame.
QString carried(bool keepRatio, int width, int height)
{
    ZoEffectModel settings;
    settings.setVideoSize(1280, 720);
    setCrop(settings, QRect(320, 120, 800, 450));
    settings.setData("crop_keepaspectratio", keepRatio, "Crop", -1);
    settings.adjustEffectInfo(width, height);
    return cropOf(settings);
}

// A subtitle position of 600 rows in a frame of 720, carried to a frame of 480.
int carriedSubtitle(int tracks)
{
    ZoEffectModel settings;
    settings.setVideoSize(1280, 720);
    for (int i = 0; i < tracks; ++i)
        settings.addDataItem("Subtitle", {{"sub_fromfile", true}});
    settings.setData("sub_vposition", 600, "Subtitle", -1);
    settings.adjustEffectInfo(640, 480);
    return settings.data("sub_vposition", "Subtitle", -1).toInt();
}

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    ZoEffectModel::InitEffectModel(effectTable());

    ZoEffectModel settings;
    out << "new model: " << sizeOf(settings) << '\n';
    settings.setVideoSize(1280, 720);
    out << "file opened: " << sizeOf(settings) << '\n';

    out << "crop_width: " << settings.data("crop_width", "Crop", -1).toString() << '\n';
    out << "crop: " << cropOf(settings) << '\n';
    setCrop(settings, QRect(320, 120, 800, 450));
    settings.setData("crop_keepaspectratio", false, "Crop", -1); // A free rectangle keeps its own shape.
    out << "crop: " << cropOf(settings) << '\n';
    setCrop(settings, QRect(10, 10, 1280, 720));
    out << "as large as the frame: " << cropOf(settings) << '\n';
    setCrop(settings, QRect(320, 120, 800, 450));

    settings.addDataItem("Watermark", {{"wm_istextwatermark", false},
                                       {"wm_imageurl", "logo.png"},
                                       {"wm_imagewidth", 256},
                                       {"wm_imageheight", 128},
                                       {"wm_hposition", 965},
                                       {"wm_vposition", 545}});
    settings.addDataItem("Watermark", {{"wm_istextwatermark", true}, {"wm_textcontent", "Hello"}, {"wm_fontsize", 40}});
    settings.addDataItem("Subtitle", {{"sub_fromfile", true}}); // One track.
    settings.setData("sub_vposition", 600, "Subtitle", -1);

    settings.adjustEffectInfo(640, 480); // Half as wide, two thirds as high.
    out << "crop: " << cropOf(settings) << '\n';
    out << "image: " << watermarkOf(settings, 0) << '\n';
    out << "text: " << settings.data("wm_fontsize", "Watermark", 1).toInt() << " points\n";
    out << "subtitle: row " << settings.data("sub_vposition", "Subtitle", -1).toInt() << '\n';

    settings.adjustEffectInfo(1280, 720);
    out << "and back: " << watermarkOf(settings, 0) << '\n';

    out << "free: " << carried(false, 640, 480) << '\n';
    out << "with the frame's ratio: " << carried(true, 640, 480) << '\n';
    out << "free, enlarged: " << carried(false, 1920, 1440) << '\n';

    ZoEffectModel uncropped;
    uncropped.setVideoSize(1280, 720);
    uncropped.adjustEffectInfo(640, 480);
    out << "crop_width: " << uncropped.data("crop_width", "Crop", -1).toString() << '\n';
    out << "crop: " << cropOf(uncropped) << '\n';

    out << "no track: row " << carriedSubtitle(0) << '\n';
    out << "one track: row " << carriedSubtitle(1) << '\n';
    out << "two tracks: row " << carriedSubtitle(2) << '\n';

    ZoEffectModel other;
    other.setVideoSize(1280, 720);
    out << "derived: " << other.data("sub_vposition", "Subtitle", -1).toDouble() << '\n';
    other.adjustEffectInfo(640, 480);
    out << "derived: " << other.data("sub_vposition", "Subtitle", -1).toDouble() << '\n';
    other.setData("sub_vposition", 400, "Subtitle", -1);
    out << "set: " << other.data("sub_vposition", "Subtitle", -1).toDouble() << '\n';
    return 0;
}
