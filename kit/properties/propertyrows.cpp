// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "propertyrows_p.h"

#include <QCoreApplication>

// The table behind panels, checks, schemas, help and the reference page. Bounds are what a person may set; those of the
// catalogue are repeated here, and a test holds both against each other. Texts are translated where they are shown.

namespace zokit {

namespace {

using K = ValueKind;
using C = Control;
using U = Unit;

constexpr Suits onType = Suit::Type;
constexpr Suits text = Suit::TextWatermark;
constexpr Suits image = Suit::ImageWatermark;
const Suits watermarks = text | image;
constexpr Suits embedded = Suit::EmbeddedTrack;
constexpr Suits fromFile = Suit::FileTrack;
const Suits tracks = embedded | fromFile;
constexpr Suits frameEffect = Suit::FrameEffect;

const QString frameWidth = QStringLiteral("frame width");
const QString frameHeight = QStringLiteral("frame height");
const QVariant none;

struct TableRow {
    const char* type;
    const char* key;
    ValueKind kind;
    Control control;
    Unit unit;
    Suits suits;
    const char* group;
    QVariant lowest;
    QVariant highest;
    const char* label;
    const char* help;
};

#define T(text) QT_TRANSLATE_NOOP("zokit", text)

// clang-format off
// NOLINTBEGIN(readability-magic-numbers): the columns say what they are.
QVector<TableRow> tableRows()
{
    return {
    // type, key, kind, control, unit, suits, group, lowest, highest, label, help
    {"Crop", "crop_minwidth",        K::Integer, C::SpinBox,  U::Pixels, onType, "limits",   1, frameWidth,  T("Smallest width"),  T("The crop rectangle does not become narrower than this while it is drawn.")},
    {"Crop", "crop_minheight",       K::Integer, C::SpinBox,  U::Pixels, onType, "limits",   1, frameHeight, T("Smallest height"), T("The crop rectangle does not become lower than this while it is drawn.")},
    {"Crop", "crop_left",            K::Integer, C::SpinBox,  U::Pixels, onType, "rectangle", 0, frameWidth,  T("Left"),   T("How much is cut off at the left.")},
    {"Crop", "crop_top",             K::Integer, C::SpinBox,  U::Pixels, onType, "rectangle", 0, frameHeight, T("Top"),    T("How much is cut off at the top.")},
    {"Crop", "crop_width",           K::Integer, C::SpinBox,  U::Pixels, onType, "rectangle", 1, frameWidth,  T("Width"),  T("Width of the part that is kept. Until it is set, the whole frame.")},
    {"Crop", "crop_height",          K::Integer, C::SpinBox,  U::Pixels, onType, "rectangle", 1, frameHeight, T("Height"), T("Height of the part that is kept. Until it is set, the whole frame.")},
    {"Crop", "crop_keepaspectratio", K::Bool,    C::CheckBox, U::None,   onType, "shape",    none, none, T("Keep shape"), T("The rectangle keeps its ratio of width to height while it is drawn.")},
    {"Crop", "crop_aspectratio",     K::Text,    C::ComboBox, U::None,   onType, "shape",    none, none, T("Shape"),      T("The shape that the rectangle keeps while it is drawn. It does not change a rectangle that is there.")},
    {"Crop", "player_map_flag",      K::Bool,    C::CheckBox, U::None,   onType, "turning",  none, none, T("Turn the picture"), T("Whether turning and mirroring, set with the frame effects, take place.")},

    {"Watermark", "wm_vposition",      K::Integer, C::SpinBox,  U::Pixels,  watermarks, "place",   -400, frameHeight, T("Top"),  T("Distance from the top of the frame, before cropping.")},
    {"Watermark", "wm_hposition",      K::Integer, C::SpinBox,  U::Pixels,  watermarks, "place",   -400, frameWidth,  T("Left"), T("Distance from the left of the frame, before cropping.")},
    {"Watermark", "wm_vposfactor",     K::Number,  C::SpinBox,  U::None,    onType,     "place",   0.0, 1.0, T("Default top"),  T("Where a new watermark begins, as a part of the frame's height.")},
    {"Watermark", "wm_hposfactor",     K::Number,  C::SpinBox,  U::None,    onType,     "place",   0.0, 1.0, T("Default left"), T("Where a new watermark begins, as a part of the frame's width.")},
    {"Watermark", "wm_transparency",   K::Integer, C::Slider,   U::Percent, watermarks, "look",    0, 100, T("Transparency"), T("0 covers the picture, 100 cannot be seen.")},
    {"Watermark", "wm_transfactor",    K::Number,  C::SpinBox,  U::None,    watermarks, "look",    0.0, 2.55, T("Strength of full opacity"), T("Opacity in percent times this is the alpha value. 2.55 reaches full opacity.")},
    {"Watermark", "wm_fontstyle",      K::Text,    C::ComboBox, U::None,    text,       "font",    none, none, T("Style"), T("Bold, italic, both, or neither.")},
    {"Watermark", "wm_imagekeepratio", K::Bool,    C::CheckBox, U::None,    image,      "size",    none, none, T("Keep shape"), T("Width and height change together.")},
    {"Watermark", "wm_fontcolor",      K::Color,   C::ColorButton, U::None, text,       "font",    none, none, T("Colour"), T("Colour of the letters. The transparency is set by itself.")},
    {"Watermark", "wm_fontsize",       K::Integer, C::SpinBox,  U::Points,  text,       "font",    3, 72, T("Size"), T("Size of the letters, in points of 96 dots an inch.")},
    {"Watermark", "wm_fontname",       K::Font,    C::FontChooser, U::None, text,       "font",    none, none, T("Font"), T("Family of the letters.")},
    {"Watermark", "wm_istextwatermark", K::Bool,   C::None,     U::None,    watermarks, "content", none, none, T("Text"), T("Whether the watermark is a text or an image.")},
    {"Watermark", "wm_textcontent",    K::Text,    C::TextEdit, U::None,    text,       "content", none, none, T("Text"), T("What is written into the picture.")},
    {"Watermark", "wm_imageurl",       K::Text,    C::FileChooser, U::None, image,      "content", none, none, T("Image"), T("The image file. Its transparency is kept.")},
    {"Watermark", "wm_imageformat",    K::Text,    C::None,     U::None,    image,      "content", none, none, T("Image format"), T("Format of the image file, for files whose content does not tell.")},
    {"Watermark", "wm_imagewidth",     K::Integer, C::SpinBox,  U::Pixels,  image,      "size",    1, 32767, T("Width"),  T("Width of the image in the picture.")},
    {"Watermark", "wm_imageheight",    K::Integer, C::SpinBox,  U::Pixels,  image,      "size",    1, 32767, T("Height"), T("Height of the image in the picture.")},
    {"Watermark", "wm_ingnore",        K::Bool,    C::CheckBox, U::None,    text,       "content", none, none, T("Leave out"), T("The text is left out of what is converted.")},

    {"Subtitle", "sub_vposition",       K::Integer, C::SpinBox,  U::Pixels,  tracks,   "place", 0, frameHeight, T("Top"),  T("Where the first line begins, from the top of the frame.")},
    {"Subtitle", "sub_hposition",       K::Integer, C::None,     U::Pixels,  tracks,   "place", 0, frameWidth,  T("Left"), T("Kept for other programs: subtitles are centred.")},
    {"Subtitle", "sub_transparency",    K::Integer, C::Slider,   U::Percent, tracks,   "look",  0, 100, T("Transparency"), T("0 covers the picture, 100 cannot be seen.")},
    {"Subtitle", "sub_transfactor",     K::Number,  C::SpinBox,  U::None,    tracks,   "look",  0.0, 2.55, T("Strength of full opacity"), T("Opacity in percent times this is the alpha value. 2.55 reaches full opacity.")},
    {"Subtitle", "sub_vposfactor",      K::Number,  C::SpinBox,  U::None,    onType,   "place", 0.0, 1.0, T("Default top"), T("Where subtitles begin unless that is set, as a part of the frame's height.")},
    {"Subtitle", "sub_fontstyle",       K::Text,    C::ComboBox, U::None,    tracks,   "font",  none, none, T("Style"), T("Bold, italic, both, or neither.")},
    {"Subtitle", "sub_fontcolor",       K::Color,   C::ColorButton, U::None, tracks,   "font",  none, none, T("Colour"), T("Colour of the letters.")},
    {"Subtitle", "sub_framecolor",      K::Color,   C::ColorButton, U::None, tracks,   "font",  none, none, T("Outline"), T("Colour of the letters' outline.")},
    {"Subtitle", "sub_fontsize",        K::Integer, C::SpinBox,  U::Points,  tracks,   "font",  3, 72, T("Size"), T("Size of the letters, in points of 96 dots an inch.")},
    {"Subtitle", "sub_fontname",        K::Font,    C::FontChooser, U::None, tracks,   "font",  none, none, T("Font"), T("Family of the letters.")},
    {"Subtitle", "sub_linemargin",      K::Integer, C::SpinBox,  U::Pixels,  tracks,   "font",  0, 20, T("Space between lines"), T("Added between the lines of one subtitle.")},
    {"Subtitle", "fontstyleusedefault", K::Bool,    C::CheckBox, U::None,    tracks,   "font",  none, none, T("Track's own style"), T("A track that brings styles of its own keeps them.")},
    {"Subtitle", "sub_fromfile",        K::Bool,    C::None,     U::None,    tracks,   "track", none, none, T("From a file"), T("Whether the subtitles are a file beside the clip or a track in it.")},
    {"Subtitle", "file",                K::Text,    C::FileChooser, U::None, fromFile, "track", none, none, T("Subtitle file"), T("The file with the subtitles.")},
    {"Subtitle", "trackid",             K::Integer, C::None,     U::None,    embedded, "track", 0, none, T("Track"), T("Number of the track in the clip.")},
    {"Subtitle", "dvdsubtitleposeditbyuser", K::Bool, C::None,   U::None,    onType | tracks, "place", none, none, T("Place is set"), T("Whether the place was set, or follows the frame.")},

    {"Audio", "play_loop",       K::Bool,    C::CheckBox, U::None, fromFile, "track", none, none, T("Repeat"), T("The sound begins again until the picture ends.")},
    {"Audio", "audio_isfile",    K::Bool,    C::None,     U::None, tracks,   "track", none, none, T("From a file"), T("Whether the sound is a file beside the clip or a track in it.")},
    {"Audio", "file",            K::Text,    C::FileChooser, U::None, fromFile, "track", none, none, T("Sound file"), T("The file with the sound.")},
    {"Audio", "trackid",         K::Integer, C::None,     U::None, embedded, "track", 0, none, T("Track"), T("Number of the track in the clip.")},
    {"Audio", "_playmeineffect", K::Bool,    C::None,     U::None, tracks,   "track", none, none, T("Played in the preview"), T("The track that a preview plays.")},

    {"Color", "bcs_brightness", K::Integer, C::Slider, U::None, onType, "colour", -50, 50, T("Brightness"), T("0 leaves the picture as it is, 50 adds half of the full scale.")},
    {"Color", "bcs_contrast",   K::Integer, C::Slider, U::None, onType, "colour", -50, 50, T("Contrast"),   T("0 leaves the picture as it is, -50 halves the contrast, 50 adds half of it.")},
    {"Color", "bcs_saturation", K::Integer, C::Slider, U::None, onType, "colour", -50, 50, T("Saturation"), T("0 leaves the colours as they are, -50 takes them away, 50 doubles them.")},

    {"Effect", "_checkstate",          K::Bool,    C::CheckBox, U::None,    frameEffect, "effects", none, none, T("In use"), T("Whether the frame effect is applied.")},
    {"Effect", "id",                   K::Integer, C::None,     U::None,    frameEffect, "effects", none, none, T("Number"), T("Number of the frame effect in the table.")},
    {"Effect", "crop_rotation_angle",  K::Integer, C::ComboBox, U::Degrees, onType,      "turning", none, none, T("Turn"),   T("Clockwise. Setting it switches on \"Turn the picture\", which stands with the crop.")},
    {"Effect", "crop_rotation_action", K::Integer, C::ComboBox, U::None,    onType,      "turning", none, none, T("Mirror"), T("After turning. Setting it switches on \"Turn the picture\", which stands with the crop.")},

    {"Audio_Fade_Inout", "audio_effect_flag",     K::Bool,    C::CheckBox, U::None,    onType, "use", none, none, T("In use"), T("Whether the effect is applied to the sound.")},
    {"Audio_Fade_Inout", "audio_fade_in_enable",  K::Bool,    C::CheckBox, U::None,    onType, "in",  none, none, T("Fade in"),  T("The sound grows from silence at the beginning.")},
    {"Audio_Fade_Inout", "audio_fade_out_enable", K::Bool,    C::CheckBox, U::None,    onType, "out", none, none, T("Fade out"), T("The sound falls to silence at the end.")},
    {"Audio_Fade_Inout", "audio_fade_in",         K::Integer, C::SpinBox,  U::Seconds, onType, "in",  0, 3600, T("Length at the beginning"), T("How long the sound grows.")},
    {"Audio_Fade_Inout", "audio_fade_out",        K::Integer, C::SpinBox,  U::Seconds, onType, "out", 0, 3600, T("Length at the end"), T("How long the sound falls.")},

    {"Audio_Normalize", "audio_effect_flag",        K::Bool,    C::CheckBox, U::None,    onType, "use",   none, none, T("In use"), T("Whether the effect is applied to the sound.")},
    {"Audio_Normalize", "audio_normalize_maxLevel", K::Integer, C::Slider,   U::Percent, onType, "level", 1, 100, T("Peak"), T("The loudest moment reaches this part of full scale.")},

    {"Audio_BandPass", "audio_effect_flag",        K::Bool,    C::CheckBox, U::None,  onType, "use",  none, none, T("In use"), T("Whether the effect is applied to the sound.")},
    {"Audio_BandPass", "audio_bandpass_type",      K::Integer, C::ComboBox, U::None,  onType, "band", none, none, T("Kind"), T("What is kept: below the frequency, above it, around it, or all but that.")},
    {"Audio_BandPass", "audio_bandpass_requency",  K::Integer, C::SpinBox,  U::Hertz, onType, "band", 10, 96000, T("Frequency"), T("Where the filter works. Above 45 % of the sound's rate, that is taken.")},
    {"Audio_BandPass", "audio_bandpass_steepness", K::Integer, C::Slider,   U::None,  onType, "band", 0, 100, T("Steepness"), T("How sharply the filter separates.")},

    {"Audio_Chorus", "audio_effect_flag",    K::Bool,    C::CheckBox, U::None,         onType, "use",   none, none, T("In use"), T("Whether the effect is applied to the sound.")},
    {"Audio_Chorus", "audio_chorus_gainin",  K::Integer, C::Slider,   U::Percent,      onType, "gain",  0, 100, T("Gain before"), T("Loudness of the sound itself.")},
    {"Audio_Chorus", "audio_chorus_gainout", K::Integer, C::Slider,   U::Percent,      onType, "gain",  0, 100, T("Gain after"),  T("Loudness of the result.")},
    {"Audio_Chorus", "audio_chorus_delay",   K::Integer, C::SpinBox,  U::Milliseconds, onType, "voice", 0, 1000, T("Delay"), T("How much later the second voice comes.")},
    {"Audio_Chorus", "audio_chorus_decay",   K::Integer, C::Slider,   U::Percent,      onType, "voice", 0, 100, T("Second voice"), T("Loudness of the second voice.")},

    {"Audio_Flanger", "audio_effect_flag",     K::Bool,    C::CheckBox, U::None,            onType, "use",   none, none, T("In use"), T("Whether the effect is applied to the sound.")},
    {"Audio_Flanger", "audio_flanger_gainin",  K::Integer, C::Slider,   U::Percent,         onType, "gain",  0, 100, T("Gain before"), T("Loudness of the sound itself.")},
    {"Audio_Flanger", "audio_flanger_gainout", K::Integer, C::Slider,   U::Percent,         onType, "gain",  0, 100, T("Gain after"),  T("Loudness of the result.")},
    {"Audio_Flanger", "audio_flanger_delay",   K::Integer, C::Slider,   U::Milliseconds,    onType, "voice", 0, 30, T("Delay"), T("Around which the repetition swings.")},
    {"Audio_Flanger", "audio_flanger_decay",   K::Integer, C::Slider,   U::Percent,         onType, "voice", 0, 100, T("Repetition"), T("How loud each repetition is beside the one before; 95 at the most.")},
    {"Audio_Flanger", "audio_flanger_speed",   K::Integer, C::SpinBox,  U::HundredthsOfHertz, onType, "voice", 10, 1000, T("Speed"), T("How often it swings: 100 is once a second.")},

    {"Audio_Echo", "audio_effect_flag",  K::Bool,    C::CheckBox, U::None,         onType, "use",   none, none, T("In use"), T("Whether the effect is applied to the sound.")},
    {"Audio_Echo", "audio_echo_gainin",  K::Integer, C::Slider,   U::Percent,      onType, "gain",  0, 100, T("Gain before"), T("Loudness of the sound itself.")},
    {"Audio_Echo", "audio_echo_gainout", K::Integer, C::Slider,   U::Percent,      onType, "gain",  0, 100, T("Gain after"),  T("Loudness of the result.")},
    {"Audio_Echo", "audio_echo_delay",   K::Integer, C::SpinBox,  U::Milliseconds, onType, "voice", 0, 90000, T("Delay"), T("How much later the echo comes. With 0 there is none.")},
    {"Audio_Echo", "audio_echo_decay",   K::Integer, C::Slider,   U::PerMille,     onType, "voice", 1, 1000, T("Echo"), T("Loudness of the echo: 500 is half.")},

    {"Audio_Speed", "audio_effect_flag",  K::Bool,    C::CheckBox, U::None,    onType, "use",   none, none, T("In use"), T("Whether the effect is applied to picture and sound.")},
    {"Audio_Speed", "audio_speed_factor", K::Integer, C::SpinBox,  U::Percent, onType, "speed", 0, 200, T("Speed"), T("100 is as recorded, 200 twice as fast. The pitch stays. 0 cannot be converted.")},
    };
}
// NOLINTEND(readability-magic-numbers)
// clang-format on

#undef T

} // namespace

QVector<Property> propertyRows()
{
    QVector<Property> result;
    for (const TableRow& row : tableRows()) {
        Property property;
        property.type = QString::fromLatin1(row.type);
        property.key = QString::fromLatin1(row.key);
        property.kind = row.kind;
        property.control = row.control;
        property.unit = row.unit;
        property.suits = row.suits;
        property.group = QString::fromLatin1(row.group);
        property.lowest = row.lowest;
        property.highest = row.highest;
        property.labelText = row.label;
        property.helpText = row.help;
        result.append(property);
    }
    return result;
}

} // namespace zokit
