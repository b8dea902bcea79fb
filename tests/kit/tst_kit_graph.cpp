// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The texts of the filter graphs; what they do to pictures is in tst_kit_picture.cpp.

#include <algorithm>

#include <QtTest>

#include <zokit/graph.h>
#include <zokit/properties.h>

#include "graphsupport.h"
#include "testapplication.h"

using graphsupport::append;
using graphsupport::clip;
using graphsupport::plain;
using graphsupport::set;
using graphsupport::useEffect;
using zokit::GraphParts;
using zokit::MediaInfo;
using zokit::Message;
using zokit::PictureGraph;
using zokit::Settings;
using Code = zokit::Message::Code;

Q_DECLARE_METATYPE(zokit::Settings)
Q_DECLARE_METATYPE(zokit::MediaInfo)
Q_DECLARE_METATYPE(zokit::GraphParts)

namespace {

const QSize hd(1280, 720);

Settings withCrop(const QSize& frame, const QRect& crop)
{
    Settings settings = plain(frame);
    set(settings, "Crop", "crop_left", crop.left());
    set(settings, "Crop", "crop_top", crop.top());
    set(settings, "Crop", "crop_width", crop.width());
    set(settings, "Crop", "crop_height", crop.height());
    return settings;
}

Settings withTurn(int angle, int action)
{
    Settings settings = plain(hd);
    set(settings, "Crop", "player_map_flag", true);
    set(settings, "Effect", "crop_rotation_angle", angle);
    set(settings, "Effect", "crop_rotation_action", action);
    return settings;
}

Settings withOutput(const Settings& settings, const char* option, const QVariant& value)
{
    Settings result = settings;
    result.output.insert(QString::fromLatin1(option), value);
    return result;
}

Settings withSubtitle(int transparency, int top)
{
    Settings settings = plain(hd);
    append(settings, "Subtitle",
           {{QStringLiteral("sub_transparency"), transparency}, {QStringLiteral("sub_vposition"), top}});
    return settings;
}

MediaInfo changed(void (*change)(zokit::MediaStream&))
{
    MediaInfo media = clip(hd);
    change(media.streams.first());
    return media;
}

GraphParts parts(void (*change)(GraphParts&))
{
    GraphParts result;
    change(result);
    return result;
}

QVector<Code> codes(const zokit::Messages& messages)
{
    QVector<Code> result;
    for (const Message& message : messages)
        result.append(message.code());
    return result;
}

QStringList texts(const zokit::Messages& messages)
{
    QStringList result;
    for (const zokit::Message& message : messages)
        result.append(message.text());
    return result;
}

} // namespace

class TestKitGraph : public QObject {
    Q_OBJECT

private slots:
    void textOfTheGraph_data();
    void textOfTheGraph();
    void frameEffectHasItsText_data();
    void frameEffectHasItsText();
    void everyFrameEffectIsDrawn();
    void effectsKeepTheirOrder();
    void wholeChainStandsInItsOrder();
    void sourceIsMadeUpright();
    void sizeThatComesOut_data();
    void sizeThatComesOut();
    void refusedGraphHasNoText_data();
    void refusedGraphHasNoText();
    void warningsAreGiven();
    void cropIsCutToTheFrame_data();
    void cropIsCutToTheFrame();
    void outputSizeFitsIn_data();
    void outputSizeFitsIn();
    void nothingIsAskedOfThePicture();
    void clipWithoutPictureHasNoGraph();
};

void TestKitGraph::textOfTheGraph_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<MediaInfo>("media");
    QTest::addColumn<GraphParts>("given");
    QTest::addColumn<QString>("text");

    const auto row = [](const char* name, const Settings& settings, const MediaInfo& media, const GraphParts& given,
                        const char* text) {
        QTest::newRow(name) << settings << media << given << QString::fromLatin1(text);
    };
    const GraphParts none;
    row("nothing", plain(hd), clip(hd), none, "[0:0]format=yuv420p[picture]");
    row("another pixel format", plain(hd), clip(hd, QStringLiteral("yuv444p")),
        parts([](GraphParts& given) { given.pixelFormat = QStringLiteral("yuv420p"); }),
        "[0:0]format=yuv420p[picture]");
    row("the stream's number", plain(hd), changed([](zokit::MediaStream& stream) { stream.track.index = 3; }), none,
        "[0:3]format=yuv420p[picture]");
    row("interlaced", plain(hd), changed([](zokit::MediaStream& stream) { stream.isInterlaced = true; }), none,
        "[0:0]bwdif=mode=send_frame:deint=interlaced,format=yuv420p[picture]");
    row("pixels that are squares, as it says", plain(hd), changed([](zokit::MediaStream& stream) {
            stream.sampleAspect = {1, 1};
        }),
        none, "[0:0]format=yuv420p[picture]");
    row("pixels of no shape", plain(hd), changed([](zokit::MediaStream& stream) {
            stream.sampleAspect = {0, 1};
        }),
        none, "[0:0]format=yuv420p[picture]");
    row("no frame in the settings", plain(QSize()), clip(QSize(321, 240)), none,
        "[0:0]crop=320:240:0:0:exact=1,format=yuv420p[picture]");
    row("pixels that are no squares", plain(QSize(1024, 576)), changed([](zokit::MediaStream& stream) {
            stream.coded = QSize(720, 576);
            stream.shown = QSize(1024, 576);
            stream.sampleAspect = {64, 45};
        }),
        none, "[0:0]scale=1024:576,setsar=1,format=yuv420p[picture]");
    MediaInfo stream = clip(hd);
    stream.container = QStringLiteral("ts");
    row("a stream that may change its size", plain(hd), stream, none,
        "[0:0]scale=1280:720,setsar=1,format=yuv420p[picture]");
    row("full range by name", plain(hd), changed([](zokit::MediaStream& picture) {
            picture.pixelFormat = QStringLiteral("yuvj420p");
            picture.range = QStringLiteral("pc");
        }),
        none,
        "[0:0]scale=in_range=pc:out_range=pc,format=yuv420p,scale=in_range=pc:out_range=pc,format=yuv420p[picture]");
    row("full range", withCrop(hd, QRect(0, 0, 640, 480)),
        changed([](zokit::MediaStream& picture) { picture.range = QStringLiteral("pc"); }), none,
        "[0:0]crop=640:480:0:0:exact=1,scale=in_range=pc:out_range=pc,format=yuv420p[picture]");
    row("rgb", plain(hd), clip(hd, QStringLiteral("gbrp")),
        parts([](GraphParts& given) { given.pixelFormat = QStringLiteral("yuv420p"); }),
        "[0:0]scale=out_color_matrix=bt709:out_range=tv:flags=accurate_rnd+full_chroma_int+full_chroma_inp,"
        "format=yuv444p,setparams=colorspace=bt709:range=tv,format=yuv420p[picture]");
    row("rgb that stays", plain(hd), clip(hd, QStringLiteral("gbrp")), none, "[0:0]format=gbrp[picture]");
    row("greys of full range", plain(hd), changed([](zokit::MediaStream& picture) {
            picture.pixelFormat = QStringLiteral("gray");
            picture.range = QStringLiteral("pc");
        }),
        none, "[0:0]scale=in_range=pc:out_range=pc,format=gray[picture]");
    row("deep greys of full range below a watermark", plain(hd), changed([](zokit::MediaStream& picture) {
            picture.pixelFormat = QStringLiteral("gray10le");
            picture.range = QStringLiteral("pc");
        }),
        parts([](GraphParts& given) { given.watermarkInput = 1; }),
        "[0:0]scale=in_range=pc:out_range=pc,format=yuv420p10le,scale=in_range=pc:out_range=pc:flags=neighbor,"
        "format=yuv422p10le[p1];[1:v]setpts=-3600/TB,scale=out_color_matrix=bt709:out_range=pc:flags=accurate_rnd+"
        "full_chroma_int+full_chroma_inp,format=yuva422p10le[p2];[p1][p2]overlay=format=yuv422p10,scale=in_range=pc:"
        "out_range=pc:flags=neighbor,format=yuv420p10le,scale=in_range=pc:out_range=pc,format=gray10le[picture]");
    const GraphParts toRgb = parts([](GraphParts& given) { given.pixelFormat = QStringLiteral("gbrp"); });
    row("to rgb", plain(hd), clip(hd), toRgb,
        "[0:0]scale=in_color_matrix=bt709:in_range=tv:flags=accurate_rnd+full_chroma_int+full_chroma_inp,setsar=1,"
        "format=gbrp[picture]");
    row("to rgb of another size", withOutput(plain(hd), "size", QStringLiteral("640x640")), clip(hd), toRgb,
        "[0:0]scale=640:360:in_color_matrix=bt709:in_range=tv:flags=accurate_rnd+full_chroma_int+full_chroma_inp,"
        "setsar=1,format=gbrp[picture]");
    row("turned by 90", withTurn(90, 0), clip(hd), none, "[0:0]transpose=clock,format=yuv420p[picture]");
    row("turned by 90 backwards", withTurn(-90, 0), clip(hd), none, "[0:0]transpose=cclock,format=yuv420p[picture]");
    row("turned by 180", withTurn(180, 0), clip(hd), none, "[0:0]hflip,vflip,format=yuv420p[picture]");
    row("turned by 270 and mirrored", withTurn(270, 1), clip(hd), none,
        "[0:0]transpose=cclock,hflip,format=yuv420p[picture]");
    row("mirrored top and bottom", withTurn(0, 2), clip(hd), none, "[0:0]vflip,format=yuv420p[picture]");
    row("mirrored both ways", withTurn(0, 3), clip(hd), none, "[0:0]hflip,vflip,format=yuv420p[picture]");
    Settings unturned = withTurn(90, 3);
    set(unturned, "Crop", "player_map_flag", false);
    row("turned without the switch", unturned, clip(hd), none, "[0:0]format=yuv420p[picture]");

    Settings colour = plain(hd);
    set(colour, "Color", "bcs_brightness", 10);
    set(colour, "Color", "bcs_contrast", 50);
    set(colour, "Color", "bcs_saturation", -25);
    row("colour", colour, clip(hd), none,
        "[0:0]lutyuv=y='clip((val-minval)*1.5+(maxval-minval)*-0.15+minval,minval,maxval)'"
        ":u='clip((val-(maxval+minval)/2)*0.5+(maxval+minval)/2,minval,maxval)'"
        ":v='clip((val-(maxval+minval)/2)*0.5+(maxval+minval)/2,minval,maxval)',format=yuv420p[picture]");
    row("crop at an odd place", withCrop(hd, QRect(101, 51, 801, 601)), clip(hd), none,
        "[0:0]crop=800:600:101:51:exact=1,format=yuv420p[picture]");
    row("crop where odd sizes are possible", withCrop(hd, QRect(101, 51, 801, 601)),
        clip(hd, QStringLiteral("yuv444p")), none, "[0:0]crop=801:601:101:51:exact=1,format=yuv444p[picture]");
    row("crop of the whole frame", withCrop(hd, QRect(0, 0, 1280, 720)), clip(hd), none,
        "[0:0]format=yuv420p[picture]");
    row("odd height", plain(QSize(320, 241)), clip(QSize(320, 241)), none,
        "[0:0]crop=320:240:0:0:exact=1,format=yuv420p[picture]");
    for (const char* grey : {"gray", "monob", "ya8"})
        QTest::newRow(grey) << plain(QSize(321, 241)) << clip(QSize(321, 241), QString::fromLatin1(grey)) << none
                            << QStringLiteral("[0:0]format=%1[picture]").arg(QLatin1String(grey));
    row("odd size", plain(QSize(321, 241)), clip(QSize(321, 241)), none,
        "[0:0]crop=320:240:0:0:exact=1,format=yuv420p[picture]");
    row("size", withOutput(withCrop(hd, QRect(100, 50, 800, 600)), "size", QStringLiteral("400x400")), clip(hd), none,
        "[0:0]crop=800:600:100:50:exact=1,scale=400:300,setsar=1,format=yuv420p[picture]");
    Settings fast = plain(hd);
    set(fast, "Audio_Speed", "audio_effect_flag", true);
    set(fast, "Audio_Speed", "audio_speed_factor", 150);
    row("speed", fast, clip(hd), none, "[0:0]setpts=PTS/1.5,format=yuv420p[picture]");
    set(fast, "Audio_Speed", "audio_speed_factor", 0);
    row("no speed at all", fast, clip(hd), none, "[0:0]format=yuv420p[picture]");
    row("HDR mapped", withOutput(plain(hd), "hdr", QStringLiteral("map")), changed([](zokit::MediaStream& picture) {
            picture.isHdr = true;
            picture.pixelFormat = QStringLiteral("yuv420p10le");
            picture.colorSpace = QStringLiteral("bt2020nc");
            picture.primaries = QStringLiteral("bt2020");
        }),
        parts([](GraphParts& given) { given.pixelFormat = QStringLiteral("yuv420p"); }),
        "[0:0]zscale=t=linear:npl=100,format=gbrpf32le,zscale=p=bt709,tonemap=hable:desat=0,"
        "zscale=t=bt709:m=bt709:r=tv,format=yuv420p,format=yuv420p[picture]");
    row("HDR that says only half of it", withOutput(plain(hd), "hdr", QStringLiteral("map")),
        changed([](zokit::MediaStream& picture) {
            picture.isHdr = true;
            picture.pixelFormat = QStringLiteral("yuv420p10le");
            picture.colorSpace.clear();
            picture.matrix = QStringLiteral("bt2020");
        }),
        parts([](GraphParts& given) { given.pixelFormat = QStringLiteral("yuv420p"); }),
        "[0:0]setparams=colorspace=bt2020nc:color_primaries=bt2020:range=tv,zscale=t=linear:npl=100,format=gbrpf32le,"
        "zscale=p=bt709,tonemap=hable:desat=0,zscale=t=bt709:m=bt709:r=tv,format=yuv420p,format=yuv420p[picture]");
    row("HDR that does not say its primaries", withOutput(plain(hd), "hdr", QStringLiteral("map")),
        changed([](zokit::MediaStream& picture) {
            picture.isHdr = true;
            picture.colorSpace = QStringLiteral("bt2020c");
        }),
        none,
        "[0:0]setparams=colorspace=bt2020c:color_primaries=bt2020:range=tv,zscale=t=linear:npl=100,format=gbrpf32le,"
        "zscale=p=bt709,tonemap=hable:desat=0,zscale=t=bt709:m=bt709:r=tv,format=yuv420p,format=yuv420p[picture]");
    row("HDR that says its primaries alone", withOutput(plain(hd), "hdr", QStringLiteral("map")),
        changed([](zokit::MediaStream& picture) {
            picture.isHdr = true;
            picture.primaries = QStringLiteral("smpte432");
            picture.matrix = QStringLiteral("bt2020");
        }),
        none,
        "[0:0]setparams=colorspace=bt2020nc:color_primaries=smpte432:range=tv,zscale=t=linear:npl=100,"
        "format=gbrpf32le,zscale=p=bt709,tonemap=hable:desat=0,zscale=t=bt709:m=bt709:r=tv,format=yuv420p,"
        "format=yuv420p[picture]");
    row("a run-up", plain(hd), changed([](zokit::MediaStream& picture) {
            picture.timeBase = {1, 90000};
        }),
        parts([](GraphParts& given) {
            given.from = 2;
            given.shownFrom = 12;
            given.shownTo = 14;
            given.countsFromShown = true;
        }),
        "[0:0]trim=start_pts=900000:end_pts=1080000,setpts=PTS-round(10/TB),format=yuv420p[picture]");
    row("what is no HDR is not mapped", withOutput(plain(hd), "hdr", QStringLiteral("map")), clip(hd), none,
        "[0:0]format=yuv420p[picture]");

    const GraphParts marked = parts([](GraphParts& given) { given.watermarkInput = 1; });
    row("watermark", plain(hd), clip(hd), marked,
        "[0:0]null[p1];[1:v]setpts=-3600/"
        "TB,scale=out_color_matrix=bt709:out_range=tv:flags=accurate_rnd+full_chroma_int+"
        "full_chroma_inp,format=yuva420p[p2];[p1][p2]overlay=format=yuv420,format=yuv420p[picture]");
    row("watermark, bt601 of full range and ten bits", plain(hd), changed([](zokit::MediaStream& picture) {
            picture.pixelFormat = QStringLiteral("yuv422p10le");
            picture.matrix = QStringLiteral("bt601");
            picture.range = QStringLiteral("pc");
        }),
        marked,
        "[0:0]null[p1];[1:v]setpts=-3600/"
        "TB,scale=out_color_matrix=bt601:out_range=pc:flags=accurate_rnd+full_chroma_int+"
        "full_chroma_inp,format=yuva422p10le[p2];[p1][p2]overlay=format=yuv422p10,scale=in_range=pc:out_range=pc,"
        "format=yuv422p10le[picture]");
    row("watermark, ten bits and all colours", plain(hd), clip(hd, QStringLiteral("yuv444p10le")), marked,
        "[0:0]null[p1];[1:v]setpts=-3600/TB,scale=out_color_matrix=bt709:out_range=tv:flags=accurate_rnd+"
        "full_chroma_int+full_chroma_inp,format=yuva422p10le[p2];[p1][p2]overlay=format=yuv422p10,"
        "format=yuv444p10le[picture]");
    row("watermark, ten bits and a quarter of the colours", plain(hd), clip(hd, QStringLiteral("yuv420p10le")), marked,
        "[0:0]scale=flags=neighbor,format=yuv422p10le[p1];[1:v]setpts=-3600/TB,scale=out_color_matrix=bt709:"
        "out_range=tv:flags=accurate_rnd+full_chroma_int+full_chroma_inp,format=yuva422p10le[p2];[p1][p2]"
        "overlay=format=yuv422p10,scale=flags=neighbor,format=yuv420p10le,format=yuv420p10le[picture]");
    const GraphParts script = parts([](GraphParts& given) { given.subtitleScript = QStringLiteral("own.ass"); });
    row("subtitle", withSubtitle(0, 100), clip(hd), script, "[0:0]subtitles=filename=own.ass,format=yuv420p[picture]");
    row("subtitle in a font of the clip", withSubtitle(0, 100), clip(hd), parts([](GraphParts& given) {
            given.subtitleScript = QStringLiteral("own.ass");
            given.subtitleFonts = QStringLiteral("a:b/fonts");
        }),
        "[0:0]subtitles=filename=own.ass:fontsdir=a\\\\:b/fonts,format=yuv420p[picture]");
    row("subtitle after a seek", withSubtitle(0, 100), clip(hd), parts([](GraphParts& given) {
            given.subtitleScript = QStringLiteral("it's,[1].ass");
            given.from = 2.02;
        }),
        "[0:0]setpts=PTS+round(2.02/TB),subtitles=filename=it\\\\\\'s\\,\\[1\\].ass,setpts=PTS-round(2.02/TB),"
        "format=yuv420p[picture]");
    row("subtitle, half transparent", withSubtitle(50, 100), clip(hd), script,
        "[0:0]format=yuv420p|yuvj420p,split[p1][p2];[p2]format=rgba,lutrgb=r=0:g=0:b=0:a=0,subtitles=filename=own.ass:"
        "alpha=1,format=gbrap,"
        "unpremultiply=inplace=1,lutrgb=a=val*127/255,format=rgba,scale=out_color_matrix=bt709:out_range=tv:"
        "flags=accurate_rnd+full_chroma_int+full_chroma_inp,format=yuva420p[p3];[p1][p3]overlay=format=yuv420,"
        "format=yuv420p[picture]");
    row("subtitle in colour, on bt601", withSubtitle(0, 100),
        changed([](zokit::MediaStream& picture) { picture.matrix = QStringLiteral("bt601"); }),
        parts([](GraphParts& given) {
            given.subtitleScript = QStringLiteral("own.ass");
            given.subtitleInColour = true;
        }),
        "[0:0]subtitles=filename=own.ass,format=yuv420p[picture]");
    row("subtitle of pictures", withSubtitle(0, 576), clip(hd), parts([](GraphParts& given) {
            given.subtitleInput = 0;
            given.subtitleStream = 3;
        }),
        "[0:0]null[p1];[0:3]scale=1280:720:out_color_matrix=bt709:out_range=tv:flags=accurate_rnd+full_chroma_int+"
        "full_chroma_inp,format=yuva420p[p2];[p1][p2]overlay=eof_action=pass:format=yuv420,format=yuv420p[picture]");
    row("subtitle of pictures, moved and half transparent", withSubtitle(50, 500), clip(hd),
        parts([](GraphParts& given) { given.subtitleInput = 2; }),
        "[0:0]null[p1];[2:0]format=rgba,colorchannelmixer=aa=0.498039,scale=1280:720:out_color_matrix=bt709:out_range="
        "tv:"
        "flags=accurate_rnd+full_chroma_int+full_chroma_inp,format=yuva420p[p2];[p1][p2]overlay=eof_action=pass:y=-76:"
        "format=yuv420,"
        "format=yuv420p[picture]");
    row("a kept frame", plain(hd), changed([](zokit::MediaStream& picture) {
            picture.isInterlaced = true;
            picture.primaries = QStringLiteral("bt709");
            picture.transfer = QStringLiteral("bt709");
        }),
        parts([](GraphParts& given) { given.rawInput = true; }),
        "[0:v]setparams=range=tv:colorspace=bt709:color_primaries=bt709:color_trc=bt709,format=yuv420p[picture]");
    row("a kept frame of the old European matrix", plain(hd),
        changed([](zokit::MediaStream& picture) { picture.matrix = QStringLiteral("bt470"); }),
        parts([](GraphParts& given) { given.rawInput = true; }),
        "[0:v]setparams=range=tv:colorspace=bt470bg,format=yuv420p[picture]");
}

void TestKitGraph::textOfTheGraph()
{
    QFETCH(const Settings, settings);
    QFETCH(const MediaInfo, media);
    QFETCH(const GraphParts, given);
    QTEST(zokit::pictureGraph(settings, media, given).text, "text");
}

void TestKitGraph::frameEffectHasItsText_data()
{
    QTest::addColumn<QString>("text");

    // clang-format off
    const QString sepia = QStringLiteral("lutyuv=y=clipval:u='(maxval+minval)/2-18*(maxval-minval)/224':v='(maxval+minval)/2+18*(maxval-minval)/224'");
    QTest::newRow("Blur") << "gblur=sigma=3";
    QTest::newRow("Sharpen") << "unsharp=5:5:1.0:5:5:0";
    QTest::newRow("Mirror") << "hflip";
    QTest::newRow("Flip") << "vflip";
    QTest::newRow("Sepia") << sepia;
    QTest::newRow("Greyscale") << "lutyuv=y=clipval:u='(maxval+minval)/2':v='(maxval+minval)/2'";
    QTest::newRow("Negative") << "lutyuv=y='maxval+minval-val':u='2*(maxval+minval)/2-val':v='2*(maxval+minval)/2-val'";
    QTest::newRow("Emboss") << "convolution=0m='-2 -1 0 -1 1 1 0 1 2':1m='0 0 0 0 1 0 0 0 0':2m='0 0 0 0 1 0 0 0 0'";
    QTest::newRow("Mosaic") << "pixelize=w=16:h=16";
    QTest::newRow("Noise") << "noise=alls=20:all_seed=1";
    QTest::newRow("Vignette") << "vignette=PI/4:dither=0";
    QTest::newRow("Old Film") << sepia + QStringLiteral(",noise=c0s=15:c0_seed=1:c0f=u,vignette=PI/4:dither=0");
    QTest::newRow("Edge") << "sobel=planes=1,lutyuv=y='clip(val,minval,maxval)':u='(maxval+minval)/2':v='(maxval+minval)/2'";
    QTest::newRow("Posterize") << "lutyuv=y='trunc((val-minval)/(maxval-minval)*7+0.5)*(maxval-minval)/7+minval':u=clipval:v=clipval";
    QTest::newRow("Warm") << "lutyuv=y=clipval:u='clip(val-10*(maxval-minval)/224,minval,maxval)':v='clip(val+10*(maxval-minval)/224,minval,maxval)'";
    QTest::newRow("Cool") << "lutyuv=y=clipval:u='clip(val+10*(maxval-minval)/224,minval,maxval)':v='clip(val-6*(maxval-minval)/224,minval,maxval)'";
    QTest::newRow("Fisheye") << "lenscorrection=k1=0.3:k2=0.1";
    QTest::newRow("Glow") << "split[p1][p2];[p2]gblur=sigma=12[p3];[p1][p3]blend=c0_mode=screen:c0_opacity=0.4:c1_opacity=0:c2_opacity=0";
    QTest::newRow("Kaleidoscope") << "crop=640:720:0:0:exact=1,split[p1][p2];[p2]hflip[p3];[p1][p3]hstack";
    QTest::newRow("Grid") << "drawgrid=w=iw/8:h=ih/8:t=2:c=white@0.5";
    // clang-format on
}

void TestKitGraph::frameEffectHasItsText()
{
    QFETCH(const QString, text);
    Settings settings = plain(hd);
    useEffect(settings, QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(zokit::pictureGraph(settings, clip(hd), {}).text,
             QStringLiteral("[0:0]%1,format=yuv420p[picture]").arg(text));
}

void TestKitGraph::everyFrameEffectIsDrawn()
{
    QCOMPARE(zokit::frameEffects().size(), 20);
    for (const zokit::FrameEffect& effect : zokit::frameEffects()) {
        Settings settings = plain(hd);
        useEffect(settings, QString::fromLatin1(effect.name));
        QVERIFY2(!zokit::pictureGraph(settings, clip(hd), {}).isNothing, effect.name);
    }
}

void TestKitGraph::effectsKeepTheirOrder()
{
    Settings settings = plain(hd);
    useEffect(settings, QStringLiteral("Mirror"));
    useEffect(settings, QStringLiteral("Flip"));
    QVector<zokit::Item>& items = settings.find(QStringLiteral("Effect"))->items;
    std::reverse(items.begin(), items.end());
    QCOMPARE(zokit::pictureGraph(settings, clip(hd), {}).text,
             QStringLiteral("[0:0]vflip,hflip,format=yuv420p[picture]"));
}

void TestKitGraph::wholeChainStandsInItsOrder()
{
    Settings settings = withCrop(hd, QRect(100, 50, 800, 600));
    set(settings, "Color", "bcs_saturation", 50);
    useEffect(settings, QStringLiteral("Glow"));
    useEffect(settings, QStringLiteral("Kaleidoscope"));
    append(settings, "Subtitle", {});
    settings.output.insert(QStringLiteral("size"), QStringLiteral("400x300"));
    GraphParts given;
    given.watermarkInput = 1;
    given.subtitleScript = QStringLiteral("own.ass");
    const PictureGraph graph = zokit::pictureGraph(settings, clip(hd), given);
    QCOMPARE(graph.text,
             QStringLiteral("[0:0]lutyuv=y='clip((val-minval)*1+(maxval-minval)*0+minval,minval,maxval)'"
                            ":u='clip((val-(maxval+minval)/2)*2+(maxval+minval)/2,minval,maxval)'"
                            ":v='clip((val-(maxval+minval)/2)*2+(maxval+minval)/2,minval,maxval)',"
                            "split[p1][p2];[p2]gblur=sigma=12[p3];[p1][p3]blend=c0_mode=screen:c0_opacity=0.4:"
                            "c1_opacity=0:c2_opacity=0,crop=640:720:0:0:exact=1,split[p4][p5];[p5]hflip[p6];[p4][p6]"
                            "hstack,subtitles=filename=own.ass[p7];[1:v]setpts=-3600/TB,scale=out_color_matrix=bt709:"
                            "out_range=tv:flags=accurate_rnd+full_chroma_int+full_chroma_inp,format=yuva420p[p8];"
                            "[p7][p8]overlay=format=yuv420,crop=800:600:100:50:exact=1,scale=400:300,setsar=1,"
                            "format=yuv420p[picture]"));
    QCOMPARE(graph.size, QSize(400, 300));
    QVERIFY(graph.warnings.isEmpty());
    QVERIFY(!graph.isNothing);
}

void TestKitGraph::sourceIsMadeUpright()
{
    MediaInfo media = clip(QSize(720, 576));
    media.streams.first().isInterlaced = true;
    media.streams.first().sampleAspect = {64, 45};
    Settings settings = plain(QSize(1024, 576));
    useEffect(settings, QStringLiteral("Mirror"));
    const PictureGraph graph = zokit::sourceGraph(settings, media);
    QCOMPARE(graph.text, QStringLiteral("[0:0]bwdif=mode=send_frame:deint=interlaced,scale=1024:576,setsar=1,"
                                        "format=yuv420p[picture]"));
    QCOMPARE(graph.size, QSize(1024, 576));
    QCOMPARE(graph.framesBefore, 1);
}

void TestKitGraph::sizeThatComesOut_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<QSize>("size");

    QTest::newRow("the frame") << plain(hd) << hd;
    QTest::newRow("turned") << withTurn(90, 0) << QSize(720, 1280);
    QTest::newRow("cropped") << withCrop(hd, QRect(0, 0, 801, 601)) << QSize(800, 600);
    QTest::newRow("cropped and smaller") << withOutput(withCrop(hd, QRect(0, 0, 800, 600)), "size",
                                                       QStringLiteral("200x200"))
                                         << QSize(200, 150);
    QTest::newRow("exact") << withOutput(plain(hd), "size", QStringLiteral("200x200,exact")) << QSize(200, 200);
}

void TestKitGraph::sizeThatComesOut()
{
    QFETCH(const Settings, settings);
    QTEST(zokit::pictureGraph(settings, clip(hd), {}).size, "size");
}

void TestKitGraph::refusedGraphHasNoText_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<QString>("words");

    QTest::newRow("crop beside the frame")
        << withCrop(hd, QRect(1270, 0, 400, 300))
        << "10x300 of the frame of 1280x720 is left of the crop. At least 24x24 is needed: move it into the frame or "
           "make it larger.";
    QTest::newRow("crop below the frame")
        << withCrop(hd, QRect(0, 710, 400, 300))
        << "400x10 of the frame of 1280x720 is left of the crop. At least 24x24 is needed: move it into the frame or "
           "make it larger.";
    Settings strict = withCrop(hd, QRect(0, 0, 400, 300));
    set(strict, "Crop", "crop_minwidth", 401);
    QTest::newRow("crop narrower than it may be")
        << strict
        << "400x300 of the frame of 1280x720 is left of the crop. At least 401x24 is needed: move it into the frame or "
           "make it larger.";
    strict = withCrop(hd, QRect(0, 0, 400, 300));
    set(strict, "Crop", "crop_minheight", 301);
    QTest::newRow("crop lower than it may be")
        << strict
        << "400x300 of the frame of 1280x720 is left of the crop. At least 24x301 is needed: move it into the frame or "
           "make it larger.";
    QTest::newRow("odd exact size")
        << withOutput(plain(hd), "size", QStringLiteral("201x200,exact"))
        << "201x200: with yuv420p width and height have to be even. Take another size, or a pixel format like yuv444p.";
    QTest::newRow("odd exact height")
        << withOutput(plain(hd), "size", QStringLiteral("200x201,exact"))
        << "200x201: with yuv420p width and height have to be even. Take another size, or a pixel format like yuv444p.";
}

void TestKitGraph::refusedGraphHasNoText()
{
    QFETCH(const Settings, settings);
    const PictureGraph graph = zokit::pictureGraph(settings, clip(hd), {});
    QTEST(graph.error.text(), "words");
    QVERIFY(graph.text.isEmpty());
}

void TestKitGraph::warningsAreGiven()
{
    const Settings outside = withCrop(hd, QRect(1000, 500, 400, 300));
    const PictureGraph cut = zokit::pictureGraph(outside, clip(hd), {});
    QCOMPARE(codes(cut.warnings), QVector<Code>{Code::CropCut});
    QCOMPARE(cut.warnings.first().text(),
             QStringLiteral("The crop leaves the frame of 1280x720. 280x220 is kept of it."));

    const QString even = QStringLiteral("With yuv420p width and height are even: %1 is kept of %2. Take a pixel format "
                                        "like yuv444p to keep all of it.");
    const Settings odd = withCrop(hd, QRect(101, 51, 401, 301));
    const PictureGraph column = zokit::pictureGraph(odd, clip(hd), {});
    QCOMPARE(column.size, QSize(400, 300));
    QCOMPARE(texts(column.warnings), QStringList{even.arg(QLatin1String("400x300"), QLatin1String("401x301"))});
    QVERIFY(zokit::pictureGraph(odd, clip(hd, QStringLiteral("yuv444p")), {}).warnings.isEmpty());
    QVERIFY(zokit::pictureGraph(withCrop(hd, QRect(101, 51, 400, 300)), clip(hd), {}).warnings.isEmpty());
    const QSize uneven(853, 481);
    QCOMPARE(texts(zokit::pictureGraph(plain(uneven), clip(uneven), {}).warnings),
             QStringList{even.arg(QLatin1String("852x480"), QLatin1String("853x481"))});
    const Settings scaled = withOutput(plain(uneven), "size", QStringLiteral("400x400"));
    QVERIFY(zokit::pictureGraph(scaled, clip(uneven), {}).warnings.isEmpty());

    Settings deep = plain(hd);
    useEffect(deep, QStringLiteral("Blur"));
    useEffect(deep, QStringLiteral("Vignette"));
    const PictureGraph eight = zokit::pictureGraph(deep, clip(hd, QStringLiteral("yuv420p10le")), {});
    QCOMPARE(codes(eight.warnings), QVector<Code>{Code::MakesEightBits});
    QCOMPARE(eight.text, QStringLiteral("[0:0]gblur=sigma=3,format=yuv420p,vignette=PI/4:dither=0,"
                                        "format=yuv420p10le[picture]"));
    QVERIFY(zokit::pictureGraph(deep, clip(hd), {}).warnings.isEmpty());
    for (const char* format : {"rgb48le", "bgra64be", "gbrpf32le", "grayf32be", "p010le", "gray12le"}) {
        const PictureGraph graph = zokit::pictureGraph(deep, clip(hd, QString::fromLatin1(format)), {});
        QVERIFY2(codes(graph.warnings) == QVector<Code>{Code::MakesEightBits}, format);
    }
}

void TestKitGraph::cropIsCutToTheFrame_data()
{
    QTest::addColumn<QRect>("crop");
    QTest::addColumn<bool>("even");
    QTest::addColumn<QRect>("kept");

    QTest::newRow("inside") << QRect(100, 50, 800, 600) << true << QRect(100, 50, 800, 600);
    QTest::newRow("odd") << QRect(101, 51, 801, 601) << true << QRect(101, 51, 800, 600);
    QTest::newRow("odd where it may be") << QRect(101, 51, 801, 601) << false << QRect(101, 51, 801, 601);
    QTest::newRow("beyond right and bottom") << QRect(1000, 500, 400, 300) << true << QRect(1000, 500, 280, 220);
    QTest::newRow("beyond left and top") << QRect(-10, -11, 400, 300) << true << QRect(0, 0, 390, 288);
    QTest::newRow("wider than the frame") << QRect(-100, 0, 2000, 300) << true << QRect(0, 0, 1280, 300);
    QTest::newRow("the whole frame") << QRect(0, 0, 1280, 720) << true << QRect();
    QTest::newRow("no size") << QRect(0, 0, 0, 0) << true << QRect();
    QTest::newRow("too little left") << QRect(1257, 0, 400, 300) << true << QRect();
    QTest::newRow("just enough left") << QRect(1256, 0, 400, 300) << true << QRect(1256, 0, 24, 300);
    QTest::newRow("too little above") << QRect(0, 697, 400, 300) << true << QRect();
    QTest::newRow("just enough above") << QRect(0, 696, 400, 300) << true << QRect(0, 696, 400, 24);
}

void TestKitGraph::cropIsCutToTheFrame()
{
    QFETCH(const QRect, crop);
    QFETCH(const bool, even);
    QTEST(zokit::croppedTo(withCrop(hd, crop), hd, even), "kept");
}

void TestKitGraph::outputSizeFitsIn_data()
{
    QTest::addColumn<QSize>("cropped");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QSize>("size");

    QTest::newRow("without") << QSize(1280, 720) << QString() << QSize(1280, 720);
    QTest::newRow("half") << QSize(1280, 720) << "640x360" << QSize(640, 360);
    QTest::newRow("the width decides") << QSize(1280, 720) << "1000x1000" << QSize(1000, 562);
    QTest::newRow("the height decides") << QSize(1280, 720) << "1000x100" << QSize(178, 100);
    QTest::newRow("not enlarged") << QSize(641, 361) << "1280x720" << QSize(641, 361);
    QTest::newRow("odd box") << QSize(1280, 720) << "641x361" << QSize(640, 360);
    QTest::newRow("very flat") << QSize(4000, 4) << "400x400" << QSize(400, 2);
    QTest::newRow("exact") << QSize(640, 360) << "1001x77,exact" << QSize(1001, 77);
    QTest::newRow("nothing to scale") << QSize(0, 0) << "640x360" << QSize(0, 0);
}

void TestKitGraph::outputSizeFitsIn()
{
    QFETCH(const QSize, cropped);
    QFETCH(const QString, option);
    QTEST(zokit::outputSize(option.isEmpty() ? plain(hd) : withOutput(plain(hd), "size", option), cropped), "size");
}

void TestKitGraph::nothingIsAskedOfThePicture()
{
    MediaInfo interlaced = clip(QSize(720, 576));
    interlaced.streams.first().isInterlaced = true;
    QVERIFY(zokit::pictureGraph(plain(QSize(1024, 576)), interlaced, {}).isNothing);
    QVERIFY(zokit::pictureGraph(withCrop(hd, QRect(0, 0, 1280, 720)), clip(hd), {}).isNothing);
    QVERIFY(!zokit::pictureGraph(withCrop(hd, QRect(0, 0, 640, 480)), clip(hd), {}).isNothing);
    QVERIFY(!zokit::pictureGraph(withTurn(180, 0), clip(hd), {}).isNothing);
    QVERIFY(!zokit::pictureGraph(withOutput(plain(hd), "size", QStringLiteral("1280x720")), clip(hd), {}).isNothing);
    Settings colour = plain(hd);
    set(colour, "Color", "bcs_contrast", 1);
    QVERIFY(!zokit::pictureGraph(colour, clip(hd), {}).isNothing);
    colour.find(QStringLiteral("Color"))->selected = false;
    QVERIFY(zokit::pictureGraph(colour, clip(hd), {}).isNothing);
}

void TestKitGraph::clipWithoutPictureHasNoGraph()
{
    MediaInfo song = clip(hd);
    song.streams.first().isCover = true;
    QVERIFY(zokit::pictureGraph(plain(hd), song, {}).text.isEmpty());
    QVERIFY(zokit::sourceGraph(plain(hd), song).text.isEmpty());
}

ZOEFFECT_TEST_MAIN(TestKitGraph)
#include "tst_kit_graph.moc"
