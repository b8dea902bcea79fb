// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QtTest>

#include <zokit/conversion.h>
#include <zokit/trackplan.h>

#include "graphsupport.h"
#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;
using zokit::Message;
using zokit::TrackFate;
using zokit::TrackKind;
using zokit::TrackPlan;
using zokit::TracksPlan;
using zokit::Values;

Q_DECLARE_METATYPE(zokit::TracksPlan)

class TestKitTrackPlan : public QObject {
    Q_OBJECT

private slots:
    void hdrIsKeptWhereTheCodecTells_data();
    void hdrIsKeptWhereTheCodecTells();
    void whatIsWrongForAnyClip_data();
    void whatIsWrongForAnyClip();
    void takenOptions_data();
    void takenOptions();
    void eachTrackHasItsFate_data();
    void eachTrackHasItsFate();
    void arguments_data();
    void arguments();
    void resultIsHeldAgainstThePlan_data();
    void resultIsHeldAgainstThePlan();
    void lettersOfASubtitleFileAreTold_data();
    void lettersOfASubtitleFileAreTold();
    void peakOfASoundFileIsMeasuredInItsPart();
    void chaptersAreThoseOfThePart();
    void containerIsToldByTheEnding_data();
    void containerIsToldByTheEnding();
};

namespace {

TrackPlan track(TrackKind kind, TrackFate fate, const char* codec)
{
    TrackPlan made;
    made.track.kind = kind;
    made.fate = fate;
    made.codec = key(codec);
    return made;
}

} // namespace

void TestKitTrackPlan::hdrIsKeptWhereTheCodecTells_data()
{
    QTest::addColumn<bool>("isHdr");
    QTest::addColumn<QString>("codec");
    QTest::addColumn<QString>("hdr"); // Empty: not set.
    QTest::addColumn<bool>("mapped");
    QTest::addColumn<QString>("pixelFormat");
    QTest::addColumn<QString>("warning");
    const QString none;
    const auto row = [](const char* name, bool isHdr, const char* codec, const char* hdr, bool mapped,
                        const char* pixelFormat, const QString& warning) {
        QTest::newRow(name) << isHdr << key(codec) << key(hdr) << mapped << key(pixelFormat) << warning;
    };
    row("H.264", true, "h264", "", true, "yuv420p",
        key("HDR is mapped to what every screen shows, since hardly any player shows it in h264. Take video-codec hevc "
            "to keep it."));
    row("H.264, kept", true, "h264", "keep", false, "yuv420p10le", none);
    row("H.264, mapped", true, "h264", "map", true, "yuv420p", none);
    row("H.265", true, "hevc", "", false, "yuv420p10le", none);
    row("H.265, mapped", true, "hevc", "map", true, "yuv420p", none);
    row("no HDR", false, "h264", "", false, "yuv420p", none);
    row("no HDR, mapped", false, "h264", "map", false, "yuv420p", none);
}

void TestKitTrackPlan::hdrIsKeptWhereTheCodecTells()
{
    QFETCH(const bool, isHdr);
    QFETCH(const QString, codec);
    QFETCH(const QString, hdr);
    zokit::MediaInfo media = graphsupport::clip(QSize(1280, 720), key("yuv420p10le"));
    media.streams.first().isHdr = isHdr;
    zokit::Settings settings = graphsupport::plain(QSize(1280, 720));
    settings.output.insert(key("video-codec"), codec);
    if (!hdr.isEmpty())
        settings.output.insert(key("hdr"), hdr);
    const TracksPlan plan = zokit::planTracks(settings, media, {}, key("mkv"));
    QCOMPARE(plan.error.text(), QString());
    QTEST(plan.mapsHdr, "mapped");
    QTEST(plan.pixelFormat, "pixelFormat");
    QStringList warnings;
    for (const Message& warning : plan.warnings)
        warnings.append(warning.text());
    QTEST(warnings.join(QLatin1Char(' ')), "warning");
}

void TestKitTrackPlan::whatIsWrongForAnyClip_data()
{
    using Code = Message::Code;
    QTest::addColumn<zokit::Values>("output");
    QTest::addColumn<zokit::Values>("crop");
    QTest::addColumn<int>("watermark"); // 0: none, 1: one that is not in use, 2: one that is.
    QTest::addColumn<Code>("expected");
    const zokit::Values copy{{key("video-codec"), key("copy")}};
    const zokit::Values hevc{{key("video-codec"), key("hevc")}};
    const auto with = [](zokit::Values values, const char* size) {
        values.insert(key("size"), key(size));
        return values;
    };
    QTest::newRow("nothing") << zokit::Values() << zokit::Values() << 0 << Code::None;
    QTest::newRow("copy") << copy << zokit::Values() << 0 << Code::None;
    QTest::newRow("copy, with a text that is not in use") << copy << zokit::Values() << 1 << Code::None;
    QTest::newRow("copy, with a text") << copy << zokit::Values() << 2 << Code::CopyTouched;
    QTest::newRow("a crop that lies in a larger frame")
        << zokit::Values()
        << zokit::Values{{key("crop_left"), 5000}, {key("crop_width"), 300}, {key("crop_height"), 300}} << 0
        << Code::None;
    QTest::newRow("a small size, as far as the shape goes")
        << with(hevc, "10x10") << zokit::Values() << 0 << Code::None;
    QTest::newRow("a small size") << with(hevc, "10x10,exact") << zokit::Values() << 0 << Code::SizeNotForCodec;
}

void TestKitTrackPlan::whatIsWrongForAnyClip()
{
    QFETCH(const zokit::Values, output);
    QFETCH(const zokit::Values, crop);
    QFETCH(const int, watermark);
    QFETCH(const Message::Code, expected);
    zokit::Settings settings = graphsupport::plain(QSize(1280, 720));
    settings.output = output;
    zokit::TypeSettings& cropped = *settings.find(key("Crop"));
    cropped.selected = true;
    for (auto it = crop.cbegin(); it != crop.cend(); ++it)
        cropped.values.insert(it.key(), it.value());
    if (watermark > 0)
        graphsupport::append(settings, "Watermark",
                             {{key("wm_istextwatermark"), true}, {key("wm_textcontent"), key("Hello")}});
    if (watermark == 1)
        settings.find(key("Watermark"))->selected = false;
    const Message error = zokit::checkCodecs(settings, key("mkv"));
    QVERIFY2(error.code() == expected, qPrintable(error.text()));
}

void TestKitTrackPlan::takenOptions_data()
{
    QTest::addColumn<TracksPlan>("plan");
    QTest::addColumn<Values>("taken");
    TracksPlan plan;
    plan.container = key("mkv");
    plan.tracks = {track(TrackKind::Video, TrackFate::Copied, "h264"),
                   track(TrackKind::Audio, TrackFate::Copied, "aac"),
                   track(TrackKind::Audio, TrackFate::Encoded, "opus")};
    QTest::newRow("all is copied") << plan
                                   << Values{{key("name"), key("{name}-converted.{ending}")},
                                             {key("container"), key("mkv")},
                                             {key("other-tracks"), key("keep")},
                                             {key("video-codec"), key("copy")},
                                             {key("audio-codec"), key("copy")}};
    plan.tracks = {track(TrackKind::Video, TrackFate::LeftOut, ""), track(TrackKind::Video, TrackFate::Encoded, "h264"),
                   track(TrackKind::Audio, TrackFate::LeftOut, ""), track(TrackKind::Audio, TrackFate::Encoded, "mp3")};
    plan.tracks.first().isCover = true;
    plan.videoCodec = key("h264");
    plan.pixelFormat = key("yuv420p");
    plan.mapsHdr = true;
    QTest::newRow("encoded as H.264") << plan
                                      << Values{{key("name"), key("{name}-converted.{ending}")},
                                                {key("container"), key("mkv")},
                                                {key("other-tracks"), key("keep")},
                                                {key("video-codec"), key("h264")},
                                                {key("quality"), 20},
                                                {key("encoder-speed"), key("veryfast")},
                                                {key("pixel-format"), key("yuv420p")},
                                                {key("hdr"), key("map")},
                                                {key("audio-codec"), key("mp3")}};
    plan.container = key("mov");
    plan.tracks = {track(TrackKind::Video, TrackFate::Encoded, "ffv1")};
    plan.videoCodec = key("ffv1");
    plan.pixelFormat = key("yuv444p");
    plan.mapsHdr = false;
    QTest::newRow("a codec without a scale, and no sound") << plan
                                                           << Values{{key("name"), key("{name}-converted.{ending}")},
                                                                     {key("container"), key("mov")},
                                                                     {key("other-tracks"), key("keep")},
                                                                     {key("video-codec"), key("ffv1")},
                                                                     {key("pixel-format"), key("yuv444p")},
                                                                     {key("hdr"), key("keep")}};
    plan.error = Message(Message::Code::NothingToConvert);
    QTest::newRow("what cannot be done") << plan
                                         << Values{{key("name"), key("{name}-converted.{ending}")},
                                                   {key("container"), key("mov")}};
}

void TestKitTrackPlan::takenOptions()
{
    QFETCH(const TracksPlan, plan);
    QFETCH(const Values, taken);
    QCOMPARE(zokit::takenOptions(plan), taken);
}

namespace {

/// What a row changes of a clip with a picture in H.264, two sounds in AAC, a subtitle of text and a picture beside.
struct Given {
    zokit::Settings settings = graphsupport::plain(QSize(1280, 720));
    zokit::MediaInfo media = graphsupport::clip(QSize(1280, 720));
    QMap<QString, zokit::MediaInfo> files;

    Given()
    {
        media.streams.first().track.codec = key("h264");
        for (const auto& [kind, codec] :
             {std::pair(TrackKind::Audio, "aac"), std::pair(TrackKind::Audio, "aac"),
              std::pair(TrackKind::Subtitle, "subrip"), std::pair(TrackKind::Video, "mjpeg")}) {
            zokit::MediaStream stream;
            stream.track.index = int(media.streams.size());
            stream.track.kind = kind;
            stream.track.codec = key(codec);
            stream.sampleRate = 48000;
            stream.channels = 2;
            stream.coded = stream.shown = QSize(64, 48);
            media.streams.append(stream);
        }
    }
    zokit::MediaStream& stream(int index) { return media.streams[index]; }
    void option(const char* name, const QVariant& value) { settings.output.insert(key(name), value); }
    void item(const char* type, const Values& values) { graphsupport::append(settings, type, values); }
};

struct Fates {
    const char* name;
    const char* container;
    void (*set)(Given& given);
    const char* lines; ///< Of the tracks that are told, or the warning or the error behind them.
};

const Fates allFates[] = {
    {"everything stays", "mkv", [](Given&) {},
     "track 0 (video, h264): copied\ntrack 4 (video, mjpeg): copied\ntrack 1 (audio, aac): copied\n"
     "track 2 (audio, aac): copied\ntrack 3 (subtitle, subrip): copied"},
    {"a picture that is to be copied where it does not fit", "webm",
     [](Given& g) { g.option("video-codec", key("copy")); },
     "error: webm cannot hold h264. Choose another container, for example mkv, or another codec."},
    {"a sound that is to be copied where it does not fit", "webm",
     [](Given& g) { g.option("audio-codec", key("copy")); },
     "error: webm cannot hold aac. Choose another container, for example mkv, or another codec."},
    {"a codec of sound that does not fit", "webm", [](Given& g) { g.option("audio-codec", key("aac")); },
     "error: webm cannot hold aac. Choose another container, for example mkv, or another codec."},
    {"a turned picture that is to be copied", "mkv",
     [](Given& g) {
         g.stream(0).isTurned = true;
         g.option("video-codec", key("copy"));
     },
     "warning: mkv cannot say that the picture is turned; players will show it lying. Leave out video-codec copy, or "
     "take mp4."},
    {"a turned picture beside that is copied", "mkv", [](Given& g) { g.stream(4).isTurned = true; },
     "warning: mkv cannot say that track 4 is turned; players will show it lying. Take mp4 or mov."},
    {"a turned picture beside that is dropped", "mkv",
     [](Given& g) {
         g.stream(4).isTurned = true;
         g.option("other-tracks", key("drop"));
     },
     "track 4 (video, mjpeg): left out, because other tracks are dropped"},
    {"fields", "mkv",
     [](Given& g) {
         g.stream(0).isInterlaced = true;
         g.option("quality", 20);
     },
     "track 0 (video, h264): deinterlaced and converted to h264"},
    {"fields, in another container", "webm", [](Given& g) { g.stream(0).isInterlaced = true; },
     "track 0 (video, h264): deinterlaced and converted to vp9, because webm holds no h264"},
    {"fields that stay", "mkv", [](Given& g) { g.stream(0).isInterlaced = true; }, "track 0 (video, h264): copied"},
    {"a copy at another bit rate", "mkv",
     [](Given& g) {
         g.option("audio-codec", key("copy"));
         g.option("audio-bitrate", 96);
     },
     "error: audio-codec copy leaves the track as it is, but another setting changes it. Leave out one of the two."},
    {"HDR without the words of its screen", "mkv",
     [](Given& g) {
         g.stream(0).isHdr = true;
         g.stream(0).hdr.insert(key("max-cll"), key("1000,400"));
         g.option("video-codec", key("vp9"));
     },
     "warning: What the clip says of the screen it was made on is lost in vp9. Take video-codec hevc to keep it."},
    {"a pixel format of the source that the codec lacks", "mkv",
     [](Given& g) {
         g.stream(0).pixelFormat = key("yuv411p");
         g.option("pixel-format", key("source"));
     },
     "warning: h264 takes no yuv411p; yuv420p is taken."},
    {"a side that is too long for the codec", "mkv", [](Given& g) { g.option("size", key("16386x100,exact")); },
     "error: 16386x100: h264 takes pictures with sides of 1 to 16384 pixels. Take another size, or another codec."},
    {"a side that no codec takes", "mkv",
     [](Given& g) {
         g.option("size", key("100x65536,exact"));
         g.option("video-codec", key("ffv1"));
     },
     "error: 100x65536: ffv1 takes pictures with sides of 1 to 65535 pixels. Take another size, or another codec."},
    {"a side that is too short for the codec", "mkv",
     [](Given& g) {
         g.option("size", key("64x14"));
         g.option("video-codec", key("hevc"));
     },
     "error: 24x14: hevc takes pictures with sides of 16 to 65535 pixels. Take another size, or another codec."},
    {"a pixel format that the codec lacks", "mkv",
     [](Given& g) {
         g.option("video-codec", key("vp9"));
         g.option("pixel-format", key("gray"));
     },
     "error: vp9 takes no pixel format gray. Take yuv420p, or source."},
    {"a quality of what has none", "mkv",
     [](Given& g) {
         g.option("video-codec", key("ffv1"));
         g.option("quality", 20);
     },
     "error: quality means nothing to ffv1. Leave it out."},
    {"a speed of an encoder that has none", "mkv",
     [](Given& g) {
         g.option("video-codec", key("ffv1"));
         g.option("encoder-speed", key("fast"));
     },
     "error: encoder-speed means nothing to ffv1. Leave it out."},
    {"pictures beside that do not fit", "mp4", [](Given&) {},
     "track 4 (video, mjpeg): left out, because mp4 holds no mjpeg"},
    {"pictures beside of an unknown kind", "mkv", [](Given& g) { g.stream(4).track.codec.clear(); },
     "track 4 (video): left out, because ffmpeg does not know its codec"},
    {"another speed", "mkv",
     [](Given& g) {
         graphsupport::set(g.settings, "Audio_Speed", "audio_effect_flag", true);
         graphsupport::set(g.settings, "Audio_Speed", "audio_speed_factor", 200);
         g.stream(3).track.codec = key("hdmv_pgs_subtitle");
     },
     "track 4 (video, mjpeg): left out, because it cannot follow the change of speed\n"
     "track 1 (audio, aac): converted to aac\ntrack 2 (audio, aac): converted to aac\n"
     "track 3 (subtitle, hdmv_pgs_subtitle): left out, because it cannot follow the change of speed"},
    {"the others are dropped", "mkv",
     [](Given& g) {
         g.option("other-tracks", key("drop"));
         g.item("Audio", {{key("trackid"), 2}});
         g.stream(4).isCover = true;
     },
     "track 0 (video, h264): copied\ntrack 2 (audio, aac): copied\n"
     "track 1 (audio, aac): left out, because other tracks are dropped\n"
     "track 3 (subtitle, subrip): left out, because other tracks are dropped\n"
     "track 4 (cover, mjpeg): left out, because other tracks are dropped"},
    {"pictures beside are dropped", "mkv", [](Given& g) { g.option("other-tracks", key("drop")); },
     "track 4 (video, mjpeg): left out, because other tracks are dropped"},
    {"data", "mkv", [](Given& g) { g.stream(4).track.kind = TrackKind::Data; },
     "track 4 (data, mjpeg): left out, because data cannot be carried over"},
    {"a sound that is chosen twice", "mkv",
     [](Given& g) {
         g.item("Audio", {{key("trackid"), 2}});
         g.item("Audio", {{key("trackid"), 2}});
     },
     "track 2 (audio, aac): copied\ntrack 1 (audio, aac): copied\ntrack 3 (subtitle, subrip): copied"},
    {"a sound that is none", "mkv",
     [](Given& g) {
         g.item("Audio", {{key("trackid"), 3}});
     },
     "error: The clip has no such track 3. Choose one that it has."},
    {"a file without sound", "mkv",
     [](Given& g) {
         g.item("Audio", {{key("audio_isfile"), true}, {key("file"), key("/a.mkv")}});
         g.files.insert(key("/a.mkv"), graphsupport::clip(QSize(64, 48)));
     },
     "error: /a.mkv has no sound. Choose another file."},
    {"nothing to burn into", "mkv",
     [](Given& g) {
         g.media.streams.removeLast();
         g.stream(0).track.kind = TrackKind::Data;
         g.item("Subtitle", {{key("trackid"), 3}});
         g.option("burn-subtitles", true);
     },
     "error: The clip has no picture to burn subtitles into. Use --soft-subtitles, or leave them out."},
    {"a file that is burned in", "mkv",
     [](Given& g) {
         g.item("Subtitle", {{key("sub_fromfile"), true}, {key("file"), key("/a.srt")}});
     },
     "track a.srt (subtitle): burned in\ntrack 3 (subtitle, subrip): copied"},
    {"a picture that is to be copied at another quality", "mkv",
     [](Given& g) {
         g.option("video-codec", key("copy"));
         g.option("quality", 20);
     },
     "error: video-codec copy leaves the track as it is, but another setting changes it. Leave out one of the two."},
    {"a turned picture where that can be said", "mp4", [](Given& g) { g.stream(0).isTurned = true; },
     "track 0 (video, h264): copied"},
    {"a turned picture where it cannot", "webm",
     [](Given& g) {
         g.stream(0).isTurned = true;
         g.stream(0).track.codec = key("vp9");
     },
     "track 0 (video, vp9): converted to vp9, because webm cannot say that the picture is turned"},
    {"nothing but a cover", "mkv",
     [](Given& g) {
         g.media.streams = {g.stream(4)};
         g.stream(0).isCover = true;
     },
     "error: There is neither picture nor sound to convert. Choose another file."},
    {"nothing but subtitles", "mkv", [](Given& g) { g.media.streams = {g.stream(3)}; },
     "error: There is neither picture nor sound to convert. Choose another file."},
    {"a speed of nothing", "mkv",
     [](Given& g) {
         graphsupport::set(g.settings, "Audio_Speed", "audio_effect_flag", true);
         graphsupport::set(g.settings, "Audio_Speed", "audio_speed_factor", 0);
     },
     "error: Audio_Speed:audio_speed_factor: with 0 nothing would ever be heard or seen. Take 1 to 200 percent."},
    {"a cover", "mkv", [](Given& g) { g.stream(4).isCover = true; }, "track 4 (cover, mjpeg): copied as an attachment"},
    {"a peak that is asked for", "mkv",
     [](Given& g) {
         graphsupport::set(g.settings, "Audio_Normalize", "audio_effect_flag", true);
         g.item("Audio", {{key("trackid"), 2}});
     },
     "track 2 (audio, aac): converted to aac\ntrack 1 (audio, aac): copied"},
    {"an echo of a sound that is to be copied", "mkv",
     [](Given& g) {
         graphsupport::set(g.settings, "Audio_Echo", "audio_effect_flag", true);
         g.option("audio-codec", key("copy"));
     },
     "error: audio-codec copy leaves the track as it is, but another setting changes it. Leave out one of the two."},
    {"a part of sounds that are to be copied", "mkv",
     [](Given& g) {
         g.option("audio-codec", key("copy"));
         g.option("trim", QVariantList{2.0, 3.0});
     },
     "track 1 (audio, aac): copied\ntrack 2 (audio, aac): copied"},
    {"a sound without end that is to be copied", "mkv",
     [](Given& g) {
         g.option("audio-codec", key("copy"));
         g.item("Audio", {{key("audio_isfile"), true}, {key("play_loop"), true}, {key("file"), key("/a.wav")}});
         g.files.insert(key("/a.wav"), Given().media);
     },
     "track a.wav (audio, aac): converted to aac"},
    {"a sound that is not there", "mkv",
     [](Given& g) {
         g.item("Audio", {{key("trackid"), 9}});
     },
     "error: The clip has no such track 9. Choose one that it has."},
    {"a sound file that nobody has looked at", "mkv",
     [](Given& g) {
         g.item("Audio", {{key("audio_isfile"), true}, {key("file"), key("/a.wav")}});
     },
     "error: /a.wav has no sound. Choose another file."},
    {"a subtitle that is not there", "mkv",
     [](Given& g) {
         g.item("Subtitle", {{key("trackid"), 9}});
     },
     "error: The clip has no such track 9. Choose one that it has."},
    {"a chosen subtitle where the others are dropped", "mkv",
     [](Given& g) {
         g.option("other-tracks", key("drop"));
         g.option("soft-subtitles", true);
         g.item("Subtitle", {{key("trackid"), 3}});
     },
     "track 3 (subtitle, subrip): copied"},
    {"a part of a track that has no effects", "mkv",
     [](Given& g) {
         g.item("Audio", {{key("trackid"), 1}});
         g.option("trim", QVariantList{2.0, 3.0});
         g.option("audio-codec", key("opus"));
     },
     "track 1 (audio, aac): converted to opus\ntrack 2 (audio, aac): converted to aac"},
    {"the usual style of pictures", "mkv",
     [](Given& g) {
         g.stream(3).track.codec = key("hdmv_pgs_subtitle");
         g.item("Subtitle", {{key("trackid"), 3}, {key("sub_fontsize"), 22}});
         g.option("burn-subtitles", true);
     },
     "track 3 (subtitle, hdmv_pgs_subtitle): burned in\nerror: "},
    {"a style of subtitles that have styles", "mkv",
     [](Given& g) {
         g.item("Subtitle", {{key("trackid"), 3}, {key("sub_fontsize"), 40}});
         g.option("soft-subtitles", true);
         g.stream(3).track.codec = key("ass");
     },
     "track 3 (subtitle, ass): converted to ass"},
    {"a style that is lost", "mp4",
     [](Given& g) {
         g.item("Subtitle", {{key("trackid"), 3}, {key("sub_fontsize"), 40}});
         g.option("soft-subtitles", true);
     },
     "warning: mp4 keeps no style of subtitles. Take mkv to keep it, or burn them in."},
};

} // namespace

void TestKitTrackPlan::eachTrackHasItsFate_data()
{
    QTest::addColumn<int>("row");
    for (std::size_t row = 0; row < std::size(allFates); ++row)
        QTest::newRow(allFates[row].name) << int(row);
}

void TestKitTrackPlan::eachTrackHasItsFate()
{
    QFETCH(const int, row);
    const Fates& expected = allFates[row];
    Given given;
    expected.set(given);
    const TracksPlan plan = zokit::planTracks(given.settings, given.media, given.files, key(expected.container));
    QStringList said;
    for (const TrackPlan& track : plan.tracks)
        said.append(track.line().text());
    for (const Message& warning : plan.warnings)
        said.append(key("warning: ") + warning.text());
    said.append(key("error: ") + plan.error.text());
    const QString lines = said.join(QLatin1Char('\n')) + QLatin1Char('\n');
    QVERIFY2(lines.contains(key(expected.lines) + QLatin1Char('\n')), qPrintable(lines));
    QCOMPARE(plan.error.isEmpty(), !key(expected.lines).startsWith(QLatin1String("error: ")));
    QCOMPARE(plan.copiesAll(), !lines.contains(key("converted to")) && !lines.contains(key("burned in")));
}

namespace {

struct Words {
    const char* name;
    const char* container;
    void (*set)(Given& given);
    const char* words; ///< That stand somewhere among the arguments, in this order.
};

const Words allWords[] = {
    {"an encoded picture keeps its name", "mkv",
     [](Given& g) {
         g.option("video-codec", key("h264"));
         g.stream(0).track.language = key("fra");
         g.stream(0).track.title = key("Two cats");
     },
     "-metadata:s:v:0|language=fra|-metadata:s:v:0|title=Two cats"},
    {"a sound without end, and a clip of unknown length", "mkv",
     [](Given& g) {
         g.item("Audio", {{key("audio_isfile"), true}, {key("play_loop"), true}, {key("file"), key("/a.wav")}});
         g.files.insert(key("/a.wav"), Given().media);
     },
     "-shortest|-max_muxing_queue_size"},
    {"the same, and a known length", "mkv",
     [](Given& g) {
         g.item("Audio", {{key("audio_isfile"), true}, {key("play_loop"), true}, {key("file"), key("/a.wav")}});
         g.files.insert(key("/a.wav"), Given().media);
         g.media.seconds = 7;
     },
     "-t|7.000000|-max_muxing_queue_size"},
    {"pictures of a file as subtitles, in a part", "mkv",
     [](Given& g) {
         g.item("Subtitle", {{key("sub_fromfile"), true}, {key("file"), key("/a.sup")}});
         g.option("trim", QVariantList{2.0, 3.0});
         g.files.insert(key("/a.sup"), {});
         g.files[key("/a.sup")].start = 0.5;
     },
     "-itsoffset|-1.500000|"},
    {"pictures of the clip as subtitles, in a part far inside", "mkv",
     [](Given& g) {
         g.stream(3).track.codec = key("hdmv_pgs_subtitle");
         g.item("Subtitle", {{key("trackid"), 3}});
         g.option("burn-subtitles", true);
         g.option("trim", QVariantList{200.0, 201.0});
     },
     "-itsoffset|-120.001000|-ss|80.000000|"},
    {"a part of what is copied out of a stream begins where it is told", "mkv",
     [](Given& g) {
         g.media.container = key("ts");
         g.option("video-codec", key("copy"));
         g.option("trim", QVariantList{20.0, 30.0});
     },
     "-stats_period|0.5|-ss|20.000000|-t|10.000000|"},
    {"sounds beside a picture with a run-up", "mkv",
     [](Given& g) {
         g.media.container = key("ts");
         g.option("trim", QVariantList{20.0, 30.0});
     },
     "-map|1:1|-c:a:0|aac|-b:a:0|160k|-disposition:a:0|0|-map|1:2|-c:a:1|aac|"},
    {"a cover without a name", "mkv",
     [](Given& g) {
         g.stream(4).isCover = true;
         g.stream(4).track.codec = key("png");
     },
     "-metadata:s:t:0|mimetype=image/png|-metadata:s:t:0|filename=cover.png|"},
    {"a cover behind a font", "mkv",
     [](Given& g) {
         g.stream(3).track.kind = TrackKind::Attachment;
         g.stream(4).isCover = true;
     },
     "-metadata:s:t:1|mimetype=image/jpeg|-metadata:s:t:1|filename=cover.jpg|"},
    {"a subtitle file that nobody has looked at", "mkv",
     [](Given& g) {
         g.item("Subtitle", {{key("sub_fromfile"), true}, {key("file"), key("/a.srt")}});
         g.option("soft-subtitles", true);
     },
     "-map|1:0|-c:s:0|srt|-disposition:s:0|default|"},
    {"HDR that does not say its matrix", "mkv",
     [](Given& g) {
         g.option("video-codec", key("h264"));
         g.stream(0).matrix = key("bt2020");
     },
     "-colorspace:v:0|bt2020nc|-color_range:v:0|tv|"},
    {"RGB that stays RGB", "mkv",
     [](Given& g) {
         g.option("video-codec", key("ffv1"));
         g.stream(0).pixelFormat = key("gbrp");
         g.stream(0).range = key("pc");
     },
     "-colorspace:v:0|bt709|-color_range:v:0|pc|"},
    {"H.265 that is copied", "mov", [](Given& g) { g.stream(0).track.codec = key("hevc"); },
     "-c:v:0|copy|-tag:v:0|hvc1|-disposition:v:0|"},
    {"H.265 that has its name", "mp4",
     [](Given& g) {
         g.stream(0).track.codec = key("hevc");
         g.media.container = key("mov");
     },
     "-c:v:0|copy|-disposition:v:0|"},
    {"H.265 that needs no name", "mkv", [](Given& g) { g.stream(0).track.codec = key("hevc"); },
     "-c:v:0|copy|-disposition:v:0|"},
    {"H.265 of what is no HDR", "mp4", [](Given& g) { g.option("video-codec", key("hevc")); },
     "-crf:v:0|22|-tag:v:0|hvc1|-x265-params:v:0|log-level=error|"},
    {"H.265 of HDR that is mapped", "mkv",
     [](Given& g) {
         g.option("video-codec", key("hevc"));
         g.option("hdr", key("map"));
         g.stream(0).isHdr = true;
         g.stream(0).hdr.insert(key("max-cll"), key("1000,400"));
     },
     "-crf:v:0|22|-x265-params:v:0|log-level=error|"},
    {"H.265 of HDR", "mkv",
     [](Given& g) {
         g.option("video-codec", key("hevc"));
         g.stream(0).isHdr = true;
         g.stream(0).hdr.insert(key("max-cll"), key("1000,400"));
     },
     "-x265-params:v:0|log-level=error:hdr-opt=1:repeat-headers=1:max-cll=1000,400|"},
    {"H.264 as it usually is", "mkv", [](Given& g) { g.option("quality", 18); },
     "-crf:v:0|18|-profile:v:0|high|-colorspace:v:0|"},
    {"H.264 without loss", "mkv", [](Given& g) { g.option("quality", 0); }, "-crf:v:0|0|-colorspace:v:0|"},
    {"H.264 with all colours", "mkv", [](Given& g) { g.option("pixel-format", key("yuv444p")); },
     "-crf:v:0|20|-colorspace:v:0|"},
    {"a rate that is none", "mkv",
     [](Given& g) {
         g.option("video-codec", key("ffv1"));
         g.stream(0).averageRate = {193, 10};
         g.stream(0).timeBase = {1, 1000};
     },
     "-fps_mode:v:0|vfr|-enc_time_base:v:0|1/1000|-disposition:v:0|"},
    {"a rate that is none, without a time base", "mkv",
     [](Given& g) {
         g.option("video-codec", key("ffv1"));
         g.stream(0).averageRate = {193, 10};
     },
     "-fps_mode:v:0|vfr|-disposition:v:0|"},
    {"a rate that is none, faster", "mkv",
     [](Given& g) {
         graphsupport::set(g.settings, "Audio_Speed", "audio_effect_flag", true);
         graphsupport::set(g.settings, "Audio_Speed", "audio_speed_factor", 200);
         g.stream(0).averageRate = {193, 10};
         g.stream(0).timeBase = {1, 1000};
     },
     "-fps_mode:v:0|vfr|-enc_time_base:v:0|1/1000|"},
    {"lines of a part in two tracks, without a picture", "mkv",
     [](Given& g) {
         g.option("trim", QVariantList{2.0, 3.0});
         g.media.streams[0] = g.media.streams[3];
         g.media.streams[0].track.index = 0;
         g.media.streams.removeLast();
     },
     "-bsf:s:1|noise=drop='lt(pts+d*1.000000,0)*gt(d,0)',setts="},
    {"the rate of American television", "mkv",
     [](Given& g) {
         g.option("video-codec", key("ffv1"));
         g.stream(0).averageRate = {30000, 1001};
         g.stream(0).timeBase = {1, 1000};
     },
     "-fps_mode:v:0|vfr|-disposition:v:0|"},
    {"four loudspeakers and one at the side", "mkv",
     [](Given& g) {
         g.option("audio-codec", key("aac"));
         g.stream(1).channels = 5;
         g.stream(1).channelLayout = key("5.0(side)");
     },
     "-filter:a:0|aformat=channel_layouts=5.0|-c:a:0|aac|"},
    {"other encoders of sound", "mkv", [](Given& g) { g.option("audio-codec", key("mp3")); },
     "-c:a:0|libmp3lame|-b:a:0|192k|"},
    {"more channels than MP3 has", "mkv",
     [](Given& g) {
         g.option("audio-codec", key("mp3"));
         g.stream(1).channels = 6;
     },
     "-filter:a:0|aformat=channel_layouts=stereo|-c:a:0|libmp3lame|"},
    {"channels that Opus takes", "mkv",
     [](Given& g) {
         g.option("audio-codec", key("opus"));
         g.stream(1).channels = 6;
     },
     "-filter:a:0|aformat=channel_layouts=7.1|6.1|5.1|5.0|quad|3.0|stereo|-c:a:0|libopus|-b:a:0|384k|"},
    {"lines of another format, of a part", "mp4",
     [](Given& g) {
         g.option("trim", QVariantList{1.0, 2.0});
         g.stream(3).track.language = key("deu");
         g.stream(3).track.title = key("All");
     },
     "-map|1:0|-c:s:0|mov_text|-metadata:s:s:0|language=deu|-metadata:s:s:0|title=All|-disposition:s:0|"},
    {"channels that FLAC takes", "mkv",
     [](Given& g) {
         g.option("audio-codec", key("flac"));
         g.stream(1).channels = 6;
     },
     "-map|0:1|-c:a:0|flac|-disposition:a:0|"},
};

} // namespace

void TestKitTrackPlan::arguments_data()
{
    QTest::addColumn<int>("row");
    for (std::size_t row = 0; row < std::size(allWords); ++row)
        QTest::newRow(allWords[row].name) << int(row);
}

void TestKitTrackPlan::arguments()
{
    QFETCH(const int, row);
    const Words& expected = allWords[row];
    Given given;
    expected.set(given);
    const TracksPlan plan = zokit::planTracks(given.settings, given.media, given.files, key(expected.container));
    QCOMPARE(plan.error.text(), QString());
    zokit::Job job;
    job.settings = given.settings;
    const QString words = zokit::convertCommand({}, job, given.media, given.files, plan, {}, key("/out.mkv"))
                              .arguments.join(QLatin1Char('|'));
    QVERIFY2(words.contains(key(expected.words)), qPrintable(words));
}

void TestKitTrackPlan::resultIsHeldAgainstThePlan_data()
{
    QTest::addColumn<QString>("codec"); // Of the sound.
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("expected");
    QTest::newRow("as it should be") << "aac" << 60.0 << "";
    QTest::newRow("another sound") << "mp3" << 60.0 << "The result should hold aac, and holds mp3. It was not kept.";
    QTest::newRow("a frame short") << "aac" << 58.8 << "";
    QTest::newRow("too short") << "aac" << 58.7 << "The result has 58.7 s of 60.0 s.";
}

void TestKitTrackPlan::resultIsHeldAgainstThePlan()
{
    QFETCH(const QString, codec);
    QFETCH(const double, seconds);
    QFETCH(const QString, expected);
    TracksPlan plan;
    plan.tracks = {track(TrackKind::Audio, TrackFate::Encoded, "aac"), track(TrackKind::Audio, TrackFate::LeftOut, "")};
    zokit::MediaInfo result;
    result.streams.resize(1);
    result.streams.first().track.kind = TrackKind::Audio;
    result.streams.first().track.codec = codec;
    result.seconds = seconds;
    bool isShort = false;
    QCOMPARE(zokit::checkResult(result, plan, 60, &isShort).text(), expected);
    QCOMPARE(isShort, expected.startsWith(QLatin1String("The result has")));
    if (expected.isEmpty() || isShort) // Of an unknown length none is too short.
        QCOMPARE(zokit::checkResult(result, plan, 0, &isShort).text(), QString());
}

void TestKitTrackPlan::lettersOfASubtitleFileAreTold_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isCopied");
    QTest::newRow("UTF-8") << QByteArray("Gr\xc3\xbc\xc3\x9f"
                                         "e")
                           << true;
    QTest::newRow("Latin") << QByteArray("Gr\xfc\xdf"
                                         "e")
                           << false;
    QTest::newRow("UTF-16") << QByteArray("\xff\xfeH\0\xfc\0", 6) << true;
    QTest::newRow("UTF-16 of another order") << QByteArray("\xfe\xff\0H\0\xfc", 6) << true;
    QTest::newRow("UTF-8 by its mark, and damaged") << QByteArray("\xef\xbb\xbf\xfc") << true;
}

void TestKitTrackPlan::lettersOfASubtitleFileAreTold()
{
    QFETCH(const QByteArray, text);
    QFETCH(const bool, isCopied);
    QFile file(QDir::temp().filePath(key("letters.srt")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    file.close();
    Given given;
    given.item("Subtitle", {{key("sub_fromfile"), true}, {key("file"), file.fileName()}});
    given.option("soft-subtitles", true);
    given.files.insert(file.fileName(), {});
    given.files[file.fileName()].streams = {given.stream(3)};
    const TracksPlan plan = zokit::planTracks(given.settings, given.media, given.files, key("mkv"));
    QCOMPARE(plan.tracks.at(plan.tracks.size() - 2).line().text(),
             isCopied ? key("track letters.srt (subtitle, subrip): copied")
                      : key("track letters.srt (subtitle, subrip): converted to subrip, because its letters are not in "
                            "UTF-8"));
}

void TestKitTrackPlan::peakOfASoundFileIsMeasuredInItsPart()
{
    Given given;
    given.media.file = key("/film.mkv");
    given.files.insert(key("/a.wav"), Given().media);
    given.files[key("/a.wav")].file = key("/a.wav");
    zokit::Job job;
    job.settings = given.settings;
    job.settings.output.insert(key("trim"), QVariantList{2.0, 3.0});
    TrackPlan plan = track(TrackKind::Audio, TrackFate::Encoded, "aac");
    plan.track.index = 1;
    const auto words = [&] {
        return zokit::measureCommand({}, job, given.media, given.files, plan).arguments.join(QLatin1Char('|'));
    };
    QVERIFY2(words().contains(key("-ss|2.000000|-t|1.000000|")), qPrintable(words()));
    QVERIFY2(words().contains(key("-i|file:/film.mkv|-map|0:1|")), qPrintable(words()));
    plan.file = key("/a.wav");
    QVERIFY2(words().contains(key("-i|file:/a.wav|-map|0:1|")), qPrintable(words()));
    plan.loops = true; // Then it is heard from its beginning on.
    QVERIFY2(!words().contains(key("-ss")), qPrintable(words()));
}

void TestKitTrackPlan::chaptersAreThoseOfThePart()
{
    zokit::MediaInfo media;
    media.chapters = {{0, 2, {{key("title"), key("One")}}}, {2, 5, {}}};
    zokit::Settings settings = graphsupport::plain(QSize(1280, 720));
    const QByteArray one = ";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=2000\ntitle=One\n";
    QCOMPARE(zokit::chaptersText(settings, media), // Of a clip of unknown length they are all in it.
             one + "[CHAPTER]\nTIMEBASE=1/1000\nSTART=2000\nEND=5000\n");
    media.seconds = 2;
    QCOMPARE(zokit::chaptersText(settings, media), one);
}

void TestKitTrackPlan::containerIsToldByTheEnding_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("container");
    QTest::newRow("one of them") << "/a/film.WebM"
                                 << "webm";
    QTest::newRow("another name of one") << "/a/film.m4v"
                                         << "mp4";
    QTest::newRow("sound alone") << "/a/song.M4A"
                                 << "mp4";
    QTest::newRow("none of them") << "/a/film.avi"
                                  << "";
    QTest::newRow("no ending") << "/a/mkv"
                               << "";
}

void TestKitTrackPlan::containerIsToldByTheEnding()
{
    QFETCH(const QString, path);
    QTEST(zokit::containerOf(path), "container");
}

ZOEFFECT_TEST_MAIN(TestKitTrackPlan)
#include "tst_kit_trackplan.moc"
