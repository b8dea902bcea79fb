// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include "bytes.h"

/// The names that mean something to the library, by one byte each; from 200 on any text. Append only, see Bytes.
namespace vocabulary {

inline QString type(Bytes& bytes)
{
    static const QStringList names =
        QString("Watermark|Subtitle|Audio|Effect|Crop|Color|effect root|Audio_Speed|Audio_Echo|Audio_Chorus|"
                "Audio_Flanger|Audio_Fade_Inout|Audio_BandPass|Audio_Normalize|Blur|Sharpen||watermark")
            .split('|');
    const int choice = bytes.byte();
    return choice < 200 ? names.at(choice % int(names.size())) : bytes.text();
}

inline QString key(Bytes& bytes)
{
    static const QStringList names =
        QString("_checkstate|wm_hposition|wm_vposition|wm_imagewidth|wm_imageheight|wm_istextwatermark|"
                "wm_textcontent|wm_fontname|wm_fontsize|wm_fontstyle|wm_fontcolor|wm_transparency|"
                "wm_transfactor|wm_hposfactor|wm_vposfactor|wm_ingnore|wm_imageurl|wm_imageformat|"
                "wm_imagekeepratio|sub_fromfile|sub_vposition|sub_vposfactor|sub_fontsize|sub_fontname|"
                "sub_fontcolor|sub_fontstyle|sub_linemargin|sub_transparency|sub_framecolor|fontstyleusedefault|"
                "dvdsubtitleposeditbyuser|audio_isfile|audio_effect_flag|audio_speed_factor|_playmeineffect|"
                "trackid|id|crop_left|crop_top|crop_width|crop_height|crop_rotation_angle|crop_rotation_action|"
                "player_map_flag|bcs_brightness|bcs_contrast|bcs_saturation|w|h|editbydefault|Effect|"
                "audio_fade_in_enable|audio_fade_out_enable|audio_echo_delay")
            .split('|');
    const int choice = bytes.byte();
    return choice < 200 ? names.at(choice % int(names.size())) : bytes.text();
}

/// Up to seven properties.
inline QMap<QString, QVariant> properties(Bytes& bytes)
{
    QMap<QString, QVariant> properties;
    for (int left = bytes.below(8); left > 0; --left) {
        const QString name = key(bytes);
        properties.insert(name, bytes.value());
    }
    return properties;
}

} // namespace vocabulary
