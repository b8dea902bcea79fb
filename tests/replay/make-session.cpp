// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// make-session KIND SEED COUNT: prints a session for replay, COUNT operations drawn by chance from those of a kind. The
// same arguments give the same session everywhere. Kinds: odd-values, lists, tracks, geometry, defaults, everything.

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace {

using Text = std::string;
using Texts = std::vector<Text>;

enum Kind : unsigned {
    OddValues = 1,
    Lists = 2,
    Tracks = 4,
    Geometry = 8,
    Defaults = 16,
    Everything = 32,
    All = 63,
};

struct Range {
    int first;
    int last;
};

struct Operation {
    unsigned kinds;
    int weight;
    std::function<Text()> line;
};

/// With blanks between. What stands in braces is drawn from left to right, whatever the compiler.
Text words(std::initializer_list<Text> all)
{
    Text line;
    for (const Text& word : all)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

class Maker {
public:
    Maker(Kind kind, unsigned seed) : m_kind(kind), m_numbers(seed) {}

    void print(int count);

private:
    int below(int bound) { return static_cast<int>(m_numbers() % static_cast<unsigned>(bound)); }
    bool chance(int percent) { return below(100) < percent; }
    Text number(int from, int to) { return std::to_string(from + below(to - from + 1)); }
    const Text& one(const Texts& texts) { return texts[static_cast<size_t>(below(static_cast<int>(texts.size())))]; }

    Text type();
    Text pos() { return number(-1, 4); }
    Text address() { return words({type(), pos()}); }
    Text key(const Text& type);
    Text oddValue();
    Text value(const Text& key);
    Text properties(const Text& type);
    Text size();
    Text style();
    std::vector<Operation> operations();

    Kind m_kind;
    std::mt19937 m_numbers;
};

Text Maker::type()
{
    switch (m_kind) {
    case Lists:
        return one({"Watermark", "Watermark", "Subtitle", "Audio", "Effect", "Crop", "Nothing"});
    case Tracks:
        return one({"Subtitle", "Audio", "Subtitle", "Audio", "Watermark", "Nothing"});
    case Geometry:
        return one({"Crop", "Watermark", "Subtitle"});
    default:
        return one({"Crop", "Watermark", "Subtitle", "Audio", "Color", "Effect", "Audio_Echo", "Audio_Speed",
                    "Audio_Fade_Inout", "\"effect root\"", "Nothing"});
    }
}

Text Maker::key(const Text& type)
{
    if (chance(8))
        return one({"_checkstate", "trackid", "id", "\"a key\"", "\"\"", "w", "h"});
    if (type == "Crop")
        return one({"crop_left", "crop_top", "crop_width", "crop_height", "crop_keepaspectratio", "crop_aspectratio"});
    if (type == "Watermark") {
        if (m_kind == Everything && chance(15))
            return "wm_textcontent";
        return one({"wm_hposition", "wm_vposition", "wm_fontsize", "wm_istextwatermark", "wm_imagewidth",
                    "wm_imageheight", "wm_transparency", "wm_fontcolor", "wm_fontname", "wm_fontstyle", "wm_ingnore"});
    }
    if (type == "Subtitle") {
        return one({"sub_vposition", "sub_fontsize", "sub_fromfile", "sub_transparency", "sub_fontcolor",
                    "sub_fontname", "sub_linemargin", "dvdsubtitleposeditbyuser", "fontstyleusedefault"});
    }
    if (type == "Audio")
        return one({"play_loop", "trackid", "audio_isfile", "_playmeineffect"});
    if (type == "Color")
        return one({"bcs_brightness", "bcs_contrast", "bcs_saturation"});
    if (type == "Audio_Echo" || type == "Audio_Speed" || type == "Audio_Fade_Inout")
        return one({"audio_effect_flag", "audio_echo_delay", "audio_speed_factor", "audio_fade_in_enable"});
    return one({"id", "note", "_checkstate", "editbydefault"});
}

Text Maker::oddValue()
{
    return one({"invalid",
                "int 0",
                "int 1",
                "int 5",
                "int -1",
                "int 2147483647",
                "int -2147483648",
                "uint 4294967295",
                "qlonglong 9223372036854775807",
                "qlonglong -9223372036854775808",
                "qulonglong 18446744073709551615",
                "bool true",
                "bool false",
                "double 0",
                "double -0",
                "double 0.1",
                "double 0.30000000000000004",
                "double 0.3",
                "double -0.5",
                "double 1.5",
                "double 5",
                "double 1e308",
                "double -1e308",
                "double 5e-324",
                "double inf",
                "double nan",
                "float 0.1",
                "float 5",
                "string \"\"",
                "string 0",
                "string 5",
                "string \" 5 \"",
                "string 5.0",
                "string true",
                "string false",
                "string abc",
                "string white",
                "string Tahoma",
                "string \"a|true|b\"",
                "string \"\\u00e4\\u4e2d\\u0000x\"",
                "bytes 5",
                "bytes abc",
                "char 5",
                "char a",
                "color invalid",
                "color #ffffffff",
                "color #80ff0000",
                "font Tahoma 12",
                "font Tahoma 30",
                "date 2020-02-29",
                "time 12:34:56",
                "size 3 4",
                "point 3 4",
                "rect 1 2 3 4",
                "strings [ ]",
                "strings [ 5 ]",
                "list [ int 5, string 5 ]",
                "map { }",
                "map { a int 5, b list [ double 0.1 ] }"});
}

Text Maker::value(const Text& key)
{
    const auto endsWith = [&key](const Text& end) {
        return key.size() >= end.size() && key.compare(key.size() - end.size(), end.size(), end) == 0;
    };
    if (m_kind == OddValues && chance(75))
        return oddValue();
    if (key == "wm_istextwatermark" || key == "sub_fromfile" || key == "audio_isfile" || key == "_checkstate"
        || key == "audio_effect_flag" || key == "wm_ingnore" || endsWith("byuser") || endsWith("default")
        || endsWith("_enable") || endsWith("ratio"))
        return key == "crop_aspectratio" ? one({"string \"Original Ratio\"", "string 16:9", "string Original"})
                                         : one({"bool true", "bool false", "int 1", "string false"});
    if (key == "wm_textcontent")
        return one({"string \"a text\"", "string \"\"", "int 5"});
    if (endsWith("color"))
        return one({"color #ff0000ff", "color #80808080", "string red", "color #ffffffff"});
    if (endsWith("fontname"))
        return one({"font Tahoma 12", "font Arial 20", "string Courier"});
    if (endsWith("fontstyle"))
        return one({"string Regular", "string Italic", "string Bold", "string \"Bold Italic\"", "string bold"});
    if (endsWith("position"))
        return "int " + (m_kind == Geometry ? number(-300, 700) : one({"0", "10", "30", "121", "300", "5000"}));
    if (endsWith("fontsize"))
        return "int " + number(3, 40);
    return "int " + number(0, 300);
}

Text Maker::properties(const Text& type)
{
    Text result = "{";
    const int count = below(5);
    for (int i = 0; i < count; ++i) {
        const Text name = key(type);
        result += (i == 0 ? " " : ", ") + name + ' ' + value(name);
    }
    return result + " }";
}

Text Maker::size()
{
    if (m_kind == Geometry && chance(20))
        return one({"0 0", "1 1", "-640 480", "2147483647 2147483647", "0 480", "-2147483648 3", "7 100000"});
    return one({"640 480", "320 240", "1280 720", "721 577", "333 111"});
}

Text Maker::style()
{
    Text result = "{ h int " + one({"240", "480", "577", "0"});
    for (const char* name : {"sub_fontsize", "sub_fontcolor", "sub_vposition", "sub_linemargin", "sub_framecolor"}) {
        if (chance(50))
            result += Text(", ") + name + ' ' + value(name);
    }
    return result + " }";
}

std::vector<Operation> Maker::operations()
{
    const auto plain = [](const char* line) { return [line] { return Text(line); }; };
    const auto ofType = [this](const char* name) { return [this, name] { return name + (' ' + type()); }; };
    const auto ofAddress = [this](const char* name) { return [this, name] { return name + (' ' + address()); }; };
    const auto keyed = [this](const char* name, bool withPos, bool withValue) {
        return [this, name, withPos, withValue] {
            const Text ofWhat = type();
            const Text which = key(ofWhat);
            Text line = name + (' ' + ofWhat);
            if (withPos)
                line += ' ' + pos();
            line += ' ' + which;
            if (withValue)
                line += ' ' + value(which);
            return line;
        };
    };
    const auto withProperties = [this](const char* name, std::optional<Range> places) {
        return [this, name, places] {
            const Text ofWhat = type();
            Text line = name + (' ' + ofWhat);
            if (places)
                line += ' ' + number(places->first, places->last);
            return line + ' ' + properties(ofWhat);
        };
    };
    const unsigned lists = Lists | Tracks | Geometry | Everything;
    return {
        // Values.
        {All, 12, keyed("setData", true, true)},
        {OddValues | Everything, 8, keyed("data", true, false)},
        {All, 3, keyed("defaultValue", false, false)},
        {OddValues | Everything, 2, ofType("childCount")},
        {OddValues | Everything, 2, ofAddress("findDataItem")},
        {Everything, 1, plain("findDataItem null 0")},
        {Everything, 1, plain("findDataItem null")},
        {Everything, 1, ofType("setCurrentItem")},
        {Everything, 1, ofAddress("setCurrentSubItem")},
        {Everything, 1, ofType("beginChange")},
        {Everything, 1, ofType("endChanged")},
        {Everything, 1,
         [this] {
             return "blockSignals " + one({"true", "false", "false"});
         }},
        {All, 3, keyed("nodeSetData", true, true)},
        {All, 1, keyed("nodeDelData", true, false)},
        {All, 2,
         [this] {
             return words({"nodeSetCheckState", address(), one({"0", "2", "1"})});
         }},
        // Lists.
        {lists, 10, withProperties("insertDataItem", Range{-2, 5})},
        {All, 8, withProperties("addDataItem", std::nullopt)},
        {lists, 2,
         [this] {
             const Text ofWhat = type();
             return words({"addDataItemEx", ofWhat, one({"true", "false"}), properties(ofWhat)});
         }},
        {lists, 5,
         [this] {
             return words({"delDataItem", one({"Watermark", "Subtitle", "Audio"}), number(-1, 5)});
         }},
        {lists, 4,
         [this] {
             return words({"changeDataItemPos", type(), number(-1, 4), number(-1, 4)});
         }},
        {lists | OddValues, 5, withProperties("replaceData", Range{-1, 4})},
        {lists, 4,
         [this] {
             const Text ofWhat = one({"Watermark", "Subtitle", "Audio", "Crop"});
             const Text from = one({"A", "B"});
             const Text item = number(0, 3);
             if (chance(40))
                 return words({"replaceDataBy", ofWhat, "-1 B", ofWhat, "-1"});
             return words({"replaceDataBy", ofWhat, number(0, 3), from, one({"Watermark", "Subtitle", "Audio"}), item});
         }},
        {Everything, 1, [this] { return "replaceDataBy " + address() + " null"; }},
        {lists, 4,
         [this] {
             return words({"replaceItemDataProperty", one({"Subtitle", "Subtitle", "Watermark"}), style()});
         }},
        {lists | Defaults, 2, ofAddress("resetDataItem")},
        {Lists | Tracks | Defaults | Everything, 1, plain("resetAllEffect")},
        {Lists | Everything, 2,
         [this] {
             return words({"applyDataTo", address(), number(0, 9)});
         }},
        {Lists | Tracks | Everything, 3,
         [this] {
             return words({"applySomePropertytoOther", one({"Subtitle", "Subtitle", "Audio"}), pos(), "3"});
         }},
        // Selection and tracks.
        {Tracks | Everything, 2, ofType("selectOnlyOneItem")},
        {Tracks | OddValues | Everything, 4, keyed("selectItemByKey", false, true)},
        {Tracks | OddValues | Everything, 3,
         [this] {
             const Text ofWhat = type();
             return words({"selectItemByKeyEx", ofWhat, key(ofWhat), "[ 1, 5, true, \"\",", number(0, 300), "]"});
         }},
        {Tracks | OddValues | Everything, 4, keyed("getItemIndexByKeyValue", false, true)},
        {OddValues | Everything, 2, keyed("haveSameItem", false, true)},
        {Tracks | Everything, 4, ofType("getSelectItem")},
        {Tracks | OddValues | Everything, 6, plain("tracks")},
        {Tracks | Everything, 2, [this] { return "refreshCurPlayData " + number(-1, 4); }},
        {Tracks | OddValues | Everything, 1, plain("isForAudioEffect")},
        {Tracks | OddValues | Everything, 2, plain("getValidAudioEffectItem")},
        // Geometry. Texts are not drawn at sizes beyond reason.
        {Geometry | Everything, 3, [this] { return "setVideoSize " + size(); }},
        {Geometry | OddValues | Everything, 2, plain("baseSize")},
        {Geometry | Everything, 6, [this] { return "adjustEffectInfo " + size(); }},
        {Geometry | Everything, 4,
         [this] {
             return words({"adjustEffectItem", one({"Crop", "Watermark", "Subtitle"}), "-1", size(), size()});
         }},
        {Geometry, 1, plain("adjustEffectItem null 1 2 3 4")},
        {Geometry | OddValues | Everything, 4, plain("isCroped")},
        {Geometry | OddValues | Everything, 4, plain("cropData")},
        {Geometry | Everything, 5, [this] { return "adjustWatermarkPos Watermark " + number(0, 5); }},
        {Geometry, 1, plain("adjustWatermarkPos null")},
        {Everything, 5,
         [this] {
             return words({"selectOnlyOneItem Watermark\nuse A\ngetWatermark", one({"640 480", "320 240", "333 111"}),
                           one({"true", "false"}), "size"});
         }},
        {Everything, 3,
         [this] {
             return words({"addDataItem Watermark { wm_imageurl string p.png, wm_imagewidth int 24, wm_imageheight int",
                           number(-1, 40), ", wm_transparency int", number(0, 100), "}"});
         }},
        {Everything, 3,
         [this] {
             return words(
                 {"addDataItem Watermark { wm_istextwatermark bool true, wm_textcontent string Hi, wm_hposition int",
                  number(0, 500), ", wm_ingnore bool", one({"true", "false"}), "}"});
         }},
        // Defaults.
        {All, 4, keyed("SingleDataIsDefault", true, false)},
        {Defaults | OddValues | Everything, 4, ofType("dataIsDefault")},
        {Defaults | Everything, 3, plain("FrameEffectIsDefault")},
        {All, 4, plain("hasRealEffect")},
        {Defaults | Everything, 2, plain("getCurrentFrameEffects")},
        {Defaults | Everything, 2, ofType("hasCustomDefault")},
        {Defaults | Everything, 2, ofType("removeCustomDefault")},
        {Defaults | Everything, 3, keyed("customDefaultVal", false, false)},
        {Defaults | Lists | OddValues | Everything, 8,
         [this] {
             return words({"saveAsCustomDefault", one({"Watermark", "Subtitle", "Color", "Effect", "Crop"}), pos()});
         }},
        {Defaults | Everything, 6,
         [this] {
             return words({"getCustomDefaultVal", address(), type(), one({"true", "false"})});
         }},
        {Defaults | Everything, 1, plain("getCustomDefaultVal null Color true")},
        {Defaults | Everything, 2, plain("AdjustFramEffectsByCustomDefault")},
        {Defaults | Everything, 2,
         [this] {
             return words({"setData Effect", number(0, 3), "_checkstate", one({"bool true", "bool false"})});
         }},
        {Defaults | Everything, 2,
         [this] {
             return words({"changeDataItemPos Effect", number(0, 3), number(0, 3)});
         }},
        {Defaults, 1,
         [this] {
             return "getItemPos Effect -1 " + one({"Sepia", "Blur", "blur"});
         }},
        {Defaults | OddValues, 3,
         [this] {
             const Text ofWhat = one({"Watermark", "Subtitle", "Color", "Audio_Echo", "Crop"});
             return "saveAsCustomDefaultVal " + ofWhat + ' ' + properties(ofWhat);
         }},
        {Defaults, 1,
         plain("saveAsCustomDefaultVal Effect { Effect string \"Sepia|true|Blur|false|Mirror|on|Sharpen|true\" }")},
        {Defaults, 1, plain("saveAsCustomDefaultVal Effect { Effect string \"Sepia|true|Blur\" }")},
        {Defaults | OddValues, 1, ofType("customDefaults")},
        {Defaults, 1, plain("supportTypes")},
        // Construction.
        {Everything | Lists, 2, plain("use B")},
        {Everything | Lists, 4, plain("use A")},
        {Everything, 1, plain("assign B")},
        {Everything, 1, plain("modelCopied C A")},
        {Everything, 1, plain("modelUnderParent D A")},
        {Everything, 1, plain("modelOf E [ Watermark, Crop, Audio_Echo ]")},
        {Everything, 1, [this] { return "modelOfOne F Watermark " + properties("Watermark"); }},
        {Everything, 1, [this] { return "createItems [ " + type() + " ]"; }},
        {Everything, 1, [this] { return "InitZoeffectData " + address(); }},
        {Everything, 1, plain("InitZoeffectData null")},
        {Everything, 1, plain("InitSubItemData Effect -1 Effect")},
        {Everything, 1, plain("InitSubItemData Crop -1 Crop")},
        {Everything, 1, ofType("findOriItem")},
        {Everything | Lists | Tracks, 2, plain("editByUser")},
        {Everything | Defaults, 2, plain("editByDefault")},
        {Everything | Defaults, 1, plain("resetEditByDefaultFlag")},
    };
}

void Maker::print(int count)
{
    std::puts("model B\nsetVideoSize 320 240");
    std::puts("addDataItem Watermark { wm_hposition int 16, wm_vposition int 12 }");
    std::puts(
        "addDataItem Subtitle { sub_fromfile bool true, sub_fontsize int 9 }\naddDataItem Audio { trackid int 4 }");
    std::puts("model A\nsetVideoSize 640 480");
    if (m_kind == Everything) {
        std::puts("picture p.png 12 9");
        std::puts("addDataItem Watermark { wm_imageurl string p.png, wm_imagewidth int 24, wm_imageheight int 9 }");
        std::puts(
            "addDataItem Watermark { wm_istextwatermark bool true, wm_textcontent string Hi, wm_hposition int 30 }");
    }
    const std::vector<Operation> all = operations();
    int weights = 0;
    for (const Operation& operation : all)
        weights += operation.kinds & m_kind ? operation.weight : 0;
    for (int i = 0; i < count; ++i) {
        int drawn = below(weights);
        for (const Operation& operation : all) {
            if (!(operation.kinds & m_kind))
                continue;
            drawn -= operation.weight;
            if (drawn < 0) {
                std::puts(operation.line().c_str());
                break;
            }
        }
    }
}

Kind kindNamed(const Text& name)
{
    if (name == "odd-values")
        return OddValues;
    if (name == "lists")
        return Lists;
    if (name == "tracks")
        return Tracks;
    if (name == "geometry")
        return Geometry;
    if (name == "defaults")
        return Defaults;
    return Everything;
}

} // namespace

int main(int argc, char** argv)
{
    constexpr int wanted = 4;
    if (argc != wanted) {
        std::fputs("usage: make-session KIND SEED COUNT\n", stderr);
        return 2;
    }
    constexpr int decimal = 10;
    const long seed = std::strtol(argv[2], nullptr, decimal);
    const long count = std::strtol(argv[3], nullptr, decimal);
    std::printf("# make-session %s %s %s\n", argv[1], argv[2], argv[3]);
    Maker(kindNamed(argv[1]), static_cast<unsigned>(seed)).print(static_cast<int>(count));
    return 0;
}
