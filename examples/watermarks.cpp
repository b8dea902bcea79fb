// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QGuiApplication>
#include <QImage>
#include <QTextStream>

#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

const EffectControlItem* effectTable()
{
    static EffectControlItem table[2] = {};
    table[0].name = "Watermark";
    table[0].properties = WatermarkDefaultVal;
    return table;
}

bool addText(ZoEffectModel& settings, const QString& text)
{
    return settings.addDataItem("Watermark", {{"wm_istextwatermark", true},
                                              {"wm_textcontent", text},
                                              {"wm_fontname", QFont("DejaVu Sans")},
                                              {"wm_fontstyle", "Bold Italic"},
                                              {"wm_fontcolor", QColor(255, 204, 0)},
                                              {"wm_fontsize", 36}});
}

bool addImage(ZoEffectModel& settings, const QString& path)
{
    const QPixmap* image = settings.getImage(path, nullptr); // The model's own: never deleted here.
    if (image->isNull())
        return false;
    return settings.addDataItem("Watermark", {{"wm_istextwatermark", false},
                                              {"wm_imageurl", path},
                                              {"wm_imagewidth", image->width()},
                                              {"wm_imageheight", image->height()}});
}

// The rectangle that watermark pos covers; of a text that was never drawn, an empty one.
QRect areaOf(const ZoEffectModel& settings, int pos)
{
    const auto number = [&settings, pos](const char* key) { return settings.data(key, "Watermark", pos).toInt(); };
    return QRect(number("wm_hposition"), number("wm_vposition"), number("wm_imagewidth"), number("wm_imageheight"));
}

QString placeOf(const ZoEffectModel& settings, int pos)
{
    const QPoint place = areaOf(settings, pos).topLeft();
    return QString("%1,%2").arg(place.x()).arg(place.y());
}

QString yesOrNo(bool answer)
{
    return answer ? "yes" : "no";
}

// Whether two texts lie on one another, the first of which is or is not drawn before the second comes.
bool textsOverlap(bool drawnBetween)
{
    ZoEffectModel settings;
    settings.setVideoSize(640, 360);
    addText(settings, "First");
    if (drawnBetween)
        settings.getWatermark(640, 360, false);
    addText(settings, "Second");
    settings.getWatermark(640, 360, false);
    return areaOf(settings, 0).intersects(areaOf(settings, 1));
}

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv); // Pictures and fonts take one.
    QTextStream out(stdout);
    ZoEffectModel::InitEffectModel(effectTable());

    QImage logo(80, 60, QImage::Format_RGB32);
    logo.fill(Qt::red);
    logo.save("logo.png");

    ZoEffectModel settings;
    settings.setVideoSize(640, 360);
    out << "a text: " << yesOrNo(addText(settings, "Hello")) << '\n';
    out << "logo.png: " << yesOrNo(addImage(settings, "logo.png")) << '\n';
    out << "missing.png: " << yesOrNo(addImage(settings, "missing.png")) << '\n';

    QObject::connect(
        &settings,
        QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        [&out](const QString&, const QString& key, const QVariant&, int pos) {
            out << "changed: " << pos << ' ' << key << '\n';
        });
    QPixmap picture = settings.getWatermark(1280, 720, true); // A rescaled copy is drawn: nothing is stored here.
    out << "drawn: " << picture.width() << " x " << picture.height() << '\n';
    picture = settings.getWatermark(640, 360, true); // The base size.
    out << "drawn: " << picture.width() << " x " << picture.height() << '\n';
    picture = settings.getWatermark(640, 360, true); // Nothing has changed since.
    out << "drawn: " << picture.width() << " x " << picture.height() << '\n';
    settings.disconnect();

    ZoEffectModel one;
    one.setVideoSize(640, 360);
    addImage(one, "logo.png");
    for (const int percent : {0, 50, 100}) {
        one.setData("wm_transparency", percent, "Watermark", 0);
        const QImage drawn = one.getWatermark(640, 360, true).toImage();
        out << percent << " percent: alpha " << drawn.pixelColor(100, 60).alpha() << '\n';
    }
    one.setData("_checkstate", false, "Watermark", 0);
    out << "nothing to draw: " << yesOrNo(one.getWatermark(640, 360, true).isNull()) << '\n';

    ZoEffectModel logos;
    logos.setVideoSize(640, 360);
    for (int i = 0; i < 5; ++i) {
        addImage(logos, "logo.png");
        out << "logo " << i << " at " << placeOf(logos, i) << '\n';
    }

    out << "drawn between, overlap: " << yesOrNo(textsOverlap(true)) << '\n';
    out << "not drawn between, overlap: " << yesOrNo(textsOverlap(false)) << '\n';
    return 0;
}
