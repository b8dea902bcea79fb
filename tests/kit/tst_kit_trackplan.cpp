// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QtTest>

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
    void takenOptions_data();
    void takenOptions();
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

ZOEFFECT_TEST_MAIN(TestKitTrackPlan)
#include "tst_kit_trackplan.moc"
