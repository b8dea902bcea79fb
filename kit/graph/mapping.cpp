// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/mapping.h>

#include "frameeffectfilters_p.h"

namespace zokit {

namespace {

constexpr bool yes = true;
constexpr bool no = false;

// clang-format off
const QVector<Mapping> rows = {
    {"Crop", "crop_minwidth",        yes, "A crop of which less is left in the frame is refused.", "tst_kit_graph::refusedGraphHasNoText"},
    {"Crop", "crop_minheight",       yes, "As crop_minwidth.", "tst_kit_graph::refusedGraphHasNoText"},
    {"Crop", "crop_left",            yes, "crop=W:H:L:T:exact=1, last but the size; cut to the frame.", "tst_kit_picture::cropIsExact"},
    {"Crop", "crop_top",             yes, "As crop_left.", "tst_kit_picture::cropIsExact"},
    {"Crop", "crop_width",           yes, "As crop_left; rounded down to even where the pixel format asks for it. source_val and 0: no crop.", "tst_kit_picture::cropIsExact"},
    {"Crop", "crop_height",          yes, "As crop_width.", "tst_kit_picture::cropIsExact"},
    {"Crop", "crop_keepaspectratio", no,  "It binds the rectangle while it is drawn or rescaled; the rectangle has the shape already.", ""},
    {"Crop", "crop_aspectratio",     no,  "As crop_keepaspectratio.", ""},
    {"Crop", "player_map_flag",      yes, "Switches crop_rotation_angle and crop_rotation_action of type Effect.", "tst_kit_graph::textOfTheGraph"},

    {"Watermark", "wm_vposition",       yes, "In the watermark picture, which is laid over the frame before the crop.", "tst_kit_watermarkpicture::watermarkIsDrawnByTheLibrary"},
    {"Watermark", "wm_hposition",       yes, "As wm_vposition.", "tst_kit_watermarkpicture::watermarkIsDrawnByTheLibrary"},
    {"Watermark", "wm_vposfactor",      no,  "It says where a new watermark goes.", ""},
    {"Watermark", "wm_hposfactor",      no,  "It says where a new watermark goes.", ""},
    {"Watermark", "wm_transparency",    yes, "Opacity (100 - transparency) * wm_transfactor of 255, cut off; an image's own is multiplied with it.", "tst_kit_watermarkpicture::watermarkKeys"},
    {"Watermark", "wm_transfactor",     yes, "As wm_transparency.", "tst_kit_watermarkpicture::watermarkKeys"},
    {"Watermark", "wm_fontstyle",       yes, "In the watermark picture.", "tst_kit_watermarkpicture::watermarkKeys"},
    {"Watermark", "wm_imagekeepratio",  no,  "It binds width to height while they are set.", ""},
    {"Watermark", "wm_fontcolor",       yes, "In the watermark picture, converted by the video's own matrix and range.", "tst_kit_watermarkpicture::watermarkHasItsColours"},
    {"Watermark", "wm_fontsize",        yes, "In the watermark picture: points of 96 dots an inch.", "tst_kit_watermarkpicture::watermarkKeys"},
    {"Watermark", "wm_fontname",        yes, "In the watermark picture.", "tst_kit_watermarkpicture::watermarkKeys"},
    {"Watermark", "wm_istextwatermark", yes, "Whether text or image is drawn.", "tst_kit_watermarkpicture::watermarkKeys"},
    {"Watermark", "wm_textcontent",     yes, "In the watermark picture.", "tst_kit_watermarkpicture::watermarkKeys"},
    {"Watermark", "wm_imageurl",        yes, "In the watermark picture; its own transparency is kept.", "tst_kit_watermarkpicture::watermarkIsDrawnByTheLibrary"},
    {"Watermark", "wm_imageformat",     yes, "How the image is read where its content does not tell.", "tst_kit_watermarkpicture::watermarkKeys"},
    {"Watermark", "wm_imagewidth",      yes, "The image is scaled to it.", "tst_kit_watermarkpicture::watermarkIsDrawnByTheLibrary"},
    {"Watermark", "wm_imageheight",     yes, "The image is scaled to it.", "tst_kit_watermarkpicture::watermarkIsDrawnByTheLibrary"},
    {"Watermark", "wm_ingnore",         yes, "The text is left out.", "tst_kit_watermarkpicture::watermarkKeys"},

    {"Subtitle", "sub_vposition",       yes, "Top of the first line: MarginV of the own script, so high that all lines are inside. Pictures move by what differs from 0.8 of the height.", "tst_kit_picture::subtitleStandsAtItsPlace"},
    {"Subtitle", "sub_hposition",       no,  "Subtitles are centred; the value follows no frame.", ""},
    {"Subtitle", "sub_transparency",    yes, "Opacity (100 - transparency) * sub_transfactor of 255, cut off; drawn on a canvas of its own.", "tst_kit_picture::subtitleHasItsColour"},
    {"Subtitle", "sub_transfactor",     yes, "As sub_transparency.", "tst_kit_subtitlescript::softScriptHoldsItsTransparency"},
    {"Subtitle", "sub_vposfactor",      yes, "The saved default, by way of sub_vposition: where a new subtitle begins.", "tst_kit_subtitlescript::newSubtitleBeginsWhereItWasSaved"},
    {"Subtitle", "sub_fontstyle",       yes, "Bold and Italic of the own script.", "tst_kit_subtitlescript::styleIsWritten"},
    {"Subtitle", "sub_fontcolor",       yes, "PrimaryColour of the own script.", "tst_kit_picture::subtitleHasItsColour"},
    {"Subtitle", "sub_framecolor",      yes, "OutlineColour of the own script; the outline is a 16th of the size, at least a pixel.", "tst_kit_subtitlescript::styleIsWritten"},
    {"Subtitle", "sub_fontsize",        yes, "Fontsize of the own script: ascent and descent of the font at so many points of 96 dots an inch.", "tst_kit_picture::subtitleStandsAtItsPlace"},
    {"Subtitle", "sub_fontname",        yes, "Fontname of the own script: the family that is really found.", "tst_kit_subtitlescript::styleIsWritten"},
    {"Subtitle", "sub_linemargin",      yes, "One event a line, each on a layer of its own.", "tst_kit_subtitlescript::linesStandApart"},
    {"Subtitle", "fontstyleusedefault", yes, "True: ASS and SSA keep their styles, other scripts the colours in their text. False: a track of the clip takes the colours, a file the whole style.", "tst_kit_subtitlescript::ownStylesAreKept"},
    {"Subtitle", "sub_fromfile",        yes, "A file is burned in unless soft-subtitles is set, a track of the clip stays soft unless its style was changed or burn-subtitles is set.", "tst_kit_subtitlescript::trackIsBurnedInOrSoft"},
    {"Subtitle", "file",                yes, "The file that is burned in or becomes a track.", "tst_kit_subtitlescript::trackIsBurnedInOrSoft"},
    {"Subtitle", "trackid",             yes, "The stream that is meant; the first selected item counts.", "tst_kit_subtitlescript::trackIsBurnedInOrSoft"},
    {"Subtitle", "dvdsubtitleposeditbyuser", no, "It says whether sub_vposition follows the frame; what comes out follows from that.", ""},

    {"Audio", "play_loop",       yes, "The file begins again until the picture ends.", "tst_kit_conversion::chosenSoundsComeOut"},
    {"Audio", "audio_isfile",    yes, "The track comes from a file beside the clip.", "tst_kit_conversion::chosenSoundsComeOut"},
    {"Audio", "file",            yes, "That file.", "tst_kit_conversion::chosenSoundsComeOut"},
    {"Audio", "trackid",         yes, "The stream of the clip; selected tracks come first, in the order of the list.", "tst_kit_conversion::chosenSoundsComeOut"},
    {"Audio", "_playmeineffect", no,  "It says which track a preview plays.", ""},

    {"Color", "bcs_brightness", yes, "lutyuv: luma plus brightness/100 of the scale.", "tst_kit_picture::colourChangesLevels"},
    {"Color", "bcs_contrast",   yes, "lutyuv: luma times 1 + contrast/100 about the middle.", "tst_kit_picture::colourChangesLevels"},
    {"Color", "bcs_saturation", yes, "lutyuv: colours times 1 + saturation/50.", "tst_kit_picture::colourChangesLevels"},

    {"Effect", "_checkstate",          yes, "The filter of the frame effect, in the order of the items; the table below.", "tst_kit_graph::frameEffectHasItsText"},
    {"Effect", "id",                   no,  "The name says which frame effect it is.", ""},
    {"Effect", "crop_rotation_angle",  yes, "transpose=clock, hflip,vflip or transpose=cclock, where player_map_flag is true.", "tst_kit_picture::pictureIsTurned"},
    {"Effect", "crop_rotation_action", yes, "Then hflip (1), vflip (2) or both (3).", "tst_kit_picture::pictureIsTurned"},

    {"Audio_Fade_Inout", "audio_effect_flag",     yes, "The effect is applied.", "tst_kit_sound::unusedEffectsLeaveTheSound"},
    {"Audio_Fade_Inout", "audio_fade_in_enable",  yes, "Whether it fades in.", "tst_kit_sound::textOfTheFilters"},
    {"Audio_Fade_Inout", "audio_fade_out_enable", yes, "Whether it fades out.", "tst_kit_sound::textOfTheFilters"},
    {"Audio_Fade_Inout", "audio_fade_in",         yes, "afade=t=in:st=0:d=IN, in seconds; no longer than the sound.", "tst_kit_sound::fadeIsLinear"},
    {"Audio_Fade_Inout", "audio_fade_out",        yes, "afade=t=out to the end of what comes out; backwards where the end is unknown.", "tst_kit_sound::fadeIsLinear"},

    {"Audio_Normalize", "audio_effect_flag",        yes, "The effect is applied, in two passes.", "tst_kit_sound::unusedEffectsLeaveTheSound"},
    {"Audio_Normalize", "audio_normalize_maxLevel", yes, "volume: the measured peak comes to so many percent of full scale.", "tst_kit_sound::normalizeReachesTheLevel"},

    {"Audio_BandPass", "audio_effect_flag",        yes, "The effect is applied.", "tst_kit_sound::unusedEffectsLeaveTheSound"},
    {"Audio_BandPass", "audio_bandpass_type",      yes, "0 lowpass, 1 highpass, 2 bandpass, 3 bandreject.", "tst_kit_sound::bandPassHasItsGains"},
    {"Audio_BandPass", "audio_bandpass_requency",  yes, "Hertz, from 10 to 0.45 of the sample rate.", "tst_kit_sound::textOfTheFilters"},
    {"Audio_BandPass", "audio_bandpass_steepness", yes, "Bands: a quality of 0.5 * 20^(s/100). Passes: one pole below 25, one section below 75, else two.", "tst_kit_sound::bandPassHasItsGains"},

    {"Audio_Chorus", "audio_effect_flag",    yes, "The effect is applied.", "tst_kit_sound::unusedEffectsLeaveTheSound"},
    {"Audio_Chorus", "audio_chorus_gainin",  yes, "Percent; the sound itself comes out gain in times gain out.", "tst_kit_sound::textOfTheFilters"},
    {"Audio_Chorus", "audio_chorus_gainout", yes, "Percent, of both voices.", "tst_kit_sound::textOfTheFilters"},
    {"Audio_Chorus", "audio_chorus_delay",   yes, "Milliseconds: adelay and vibrato.", "tst_kit_sound::chorusHasItsDelay"},
    {"Audio_Chorus", "audio_chorus_decay",   yes, "Percent; the second voice comes out decay times gain out.", "tst_kit_sound::textOfTheFilters"},

    {"Audio_Flanger", "audio_effect_flag",     yes, "The effect is applied.", "tst_kit_sound::unusedEffectsLeaveTheSound"},
    {"Audio_Flanger", "audio_flanger_gainin",  yes, "Percent: volume before.", "tst_kit_sound::textOfTheFilters"},
    {"Audio_Flanger", "audio_flanger_gainout", yes, "Percent: volume after.", "tst_kit_sound::textOfTheFilters"},
    {"Audio_Flanger", "audio_flanger_delay",   yes, "Milliseconds, to 30.", "tst_kit_sound::flangerRepeats"},
    {"Audio_Flanger", "audio_flanger_decay",   yes, "Percent that is fed back, to 95.", "tst_kit_sound::flangerRepeats"},
    {"Audio_Flanger", "audio_flanger_speed",   yes, "Hundredths of hertz, 0.1 to 10 Hz.", "tst_kit_sound::textOfTheFilters"},

    {"Audio_Echo", "audio_effect_flag",  yes, "The effect is applied.", "tst_kit_sound::unusedEffectsLeaveTheSound"},
    {"Audio_Echo", "audio_echo_gainin",  yes, "Percent; the sound itself comes out gain in times gain out.", "tst_kit_sound::echoIsNotCutAtFullScale"},
    {"Audio_Echo", "audio_echo_gainout", yes, "Percent, of sound and echo.", "tst_kit_sound::echoIsNotCutAtFullScale"},
    {"Audio_Echo", "audio_echo_delay",   yes, "Milliseconds, to 90000; with 0 there is no echo.", "tst_kit_sound::echoIsNotCutAtFullScale"},
    {"Audio_Echo", "audio_echo_decay",   yes, "Per mille; the echo comes out decay times gain out.", "tst_kit_sound::echoIsNotCutAtFullScale"},

    {"Audio_Speed", "audio_effect_flag",  yes, "The effect is applied, to picture and sound.", "tst_kit_sound::unusedEffectsLeaveTheSound"},
    {"Audio_Speed", "audio_speed_factor", yes, "Percent: atempo, in steps of no less than a half, and setpts=PTS/F. 0 is refused.", "tst_kit_sound::speedChangesTheLength"},
};
// clang-format on

const char* depthText(Depth depth)
{
    switch (depth) {
    case Depth::Kept:
        return "kept";
    case Depth::Converted:
        return "there and back";
    case Depth::EightBits:
        break;
    }
    return "8 bits, with a warning";
}

} // namespace

const QVector<Mapping>& mappings()
{
    return rows;
}

QByteArray mappingPage()
{
    QByteArray page = "<!--\n"
                      "SPDX-FileCopyrightText: 2026 The libzoeffect developers\n"
                      "SPDX-License-Identifier: MIT\n"
                      "-->\n\n"
                      "# What each property does to the output\n\n"
                      "This page is made from the table in kit/graph/mapping.cpp; tst_kit_mapping holds both together, "
                      "and the table\nagainst the properties of the effect types.\n\n"
                      "| type | key | in the output | test |\n|---|---|---|---|\n";
    for (const Mapping& row : rows) {
        page += QByteArray("| ") + row.type + " | " + row.key + " | "
                + (row.mapped ? "" : "not in the output, because: ") + row.how + " | " + row.test + " |\n";
    }
    page += "\n## Frame effects\n\n"
            "{low}, {high} and {middle} are black, white and no colour in the range and depth of the video; {blur} is "
            "a 240th of\nthe frame's height, {glow} a 60th, {tile} a 45th; {a}, {b} and {c} are labels.\n\n"
            "| name | filter | more than 8 bits |\n|---|---|---|\n";
    for (const FrameEffectFilter& filter : frameEffectFilters())
        page += QByteArray("| ") + filter.name + " | `" + filter.text + "` | " + depthText(filter.depth) + " |\n";
    return page;
}

} // namespace zokit
