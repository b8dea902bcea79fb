// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "figures.h"

std::vector<Figure> figures()
{
    return {
        {"first-host.png", firstHost},
        {"crop.png", crop},
        {"rescaling.png", rescaling},
        {"placement-1.png", placedByDiagonalSteps},
        {"placement-2.png", placedRightOfAnother},
        {"placement-3.png", placedAtTheLeftMargin},
        {"placement-4.png", placedOverTheFirst},
        {"watermark-transparency.png", transparency},
        {"watermark-layers.png", layers},
        {"watermark-styles.png", fontStyles},
    };
}

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

int number(const ZoEffectModel& model, const QString& key, const QString& type, int pos)
{
    return model.data(key, type, pos).toInt();
}

QRect watermarkRect(const ZoEffectModel& model, int pos)
{
    return QRect(number(model, "wm_hposition", "Watermark", pos), number(model, "wm_vposition", "Watermark", pos),
                 number(model, "wm_imagewidth", "Watermark", pos), number(model, "wm_imageheight", "Watermark", pos));
}

Properties textWatermark(const QString& text)
{
    return {{"wm_istextwatermark", true}, {"wm_textcontent", text}, {"wm_fontname", QFont("DejaVu Sans")}};
}

Properties imageWatermark(const QString& path, const QSize& size)
{
    return {{"wm_istextwatermark", false},
            {"wm_imageurl", path},
            {"wm_imagewidth", size.width()},
            {"wm_imageheight", size.height()}};
}
