// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Graphs on clips of many kinds, as the probe finds them.

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <zokit/graph.h>
#include <zokit/probe.h>
#include <zokit/subtitlescript.h>

#include "clips.h"
#include "graphsupport.h"
#include "kitsupport.h"
#include "testapplication.h"

using graphsupport::append;
using graphsupport::ffmpeg;
using graphsupport::Frame;
using graphsupport::plain;
using graphsupport::set;
using graphsupport::useEffect;
using kitsupport::key;
using zokit::GraphParts;
using zokit::MediaInfo;
using zokit::Settings;

namespace {

MediaInfo probed(const char* name)
{
    const zokit::ReadMedia read = zokit::probe(zokit::findTools(), clips::clip(QString::fromLatin1(name)));
    if (!read.media)
        qWarning().noquote() << read.error.text();
    return read.media.value_or(MediaInfo());
}

/// All frames that come out, in eight bits of a quarter of the colours.
QVector<Frame> frames(const MediaInfo& media, const zokit::PictureGraph& graph, const QStringList& before = {},
                      const QStringList& inputs = {})
{
    const QByteArray bytes =
        ffmpeg(before + zokit::guardedInput(media.file) + inputs
               + QStringList{QStringLiteral("-filter_complex"), graph.text, QStringLiteral("-map"),
                             QStringLiteral("[picture]"), QStringLiteral("-fps_mode"), QStringLiteral("passthrough"),
                             QStringLiteral("-f"), QStringLiteral("rawvideo"), QStringLiteral("pipe:1")});
    const int size = graph.size.width() * graph.size.height() * 3 / 2;
    QVector<Frame> result;
    for (int begin = 0; size > 0 && begin + size <= bytes.size(); begin += size)
        result.append({graph.size, QStringLiteral("yuv420p"), bytes.mid(begin, size)});
    return result;
}

GraphParts eightBits()
{
    GraphParts parts;
    parts.pixelFormat = QStringLiteral("yuv420p");
    return parts;
}

double meanLuma(const Frame& frame, const QRect& part)
{
    double sum = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            sum += frame.at(0, x, y);
    }
    return sum / (part.width() * part.height());
}

} // namespace

class TestKitSources : public QObject {
    Q_OBJECT

private slots:
    void pictureComesOutUpright_data();
    void pictureComesOutUpright();
    void interlacedFramesStayAsMany();
    void turnedFieldsAreFields_data();
    void turnedFieldsAreFields();
    void fullRangeIsKept();
    void greysKeepTheirRange();
    void pictureSubtitleIsLaidOver();
    void textSubtitleIsInTime_data();
    void textSubtitleIsInTime();

private:
    QTemporaryDir m_folder;
};

void TestKitSources::pictureComesOutUpright_data()
{
    QTest::addColumn<QSize>("size");

    QTest::newRow("plain.mp4") << QSize(160, 120);
    QTest::newRow("rotate90.mp4") << QSize(120, 160);
    QTest::newRow("rotate180.mp4") << QSize(160, 120);
    QTest::newRow("anamorphic.mp4") << QSize(212, 120);
    QTest::newRow("two-videos.mkv") << QSize(80, 60);
    QTest::newRow("plain.ts") << QSize(160, 120);
    QTest::newRow("ten-bit.mkv") << QSize(160, 120);
    QTest::newRow("pq.mkv") << QSize(160, 120);
    QTest::newRow("full-range.mkv") << QSize(160, 120);
}

void TestKitSources::pictureComesOutUpright()
{
    QFETCH(const QSize, size);
    const MediaInfo media = probed(QTest::currentDataTag());
    QVERIFY(media.picture());
    QCOMPARE(media.picture()->shown, size);
    // The left upper quarter of what a player shows.
    Settings settings = plain(size);
    set(settings, "Crop", "crop_left", 0);
    set(settings, "Crop", "crop_top", 0);
    set(settings, "Crop", "crop_width", size.width() / 2);
    set(settings, "Crop", "crop_height", size.height() / 2);
    settings.output.insert(key("hdr"), key("map"));
    const QVector<Frame> whole = frames(media, zokit::pictureGraph(plain(size), media, eightBits()));
    const zokit::PictureGraph graph = zokit::pictureGraph(settings, media, eightBits());
    QCOMPARE(graph.size, QSize(size.width() / 4 * 2, size.height() / 4 * 2));
    const QVector<Frame> cropped = frames(media, graph);
    QVERIFY(cropped.size() >= 5);
    QCOMPARE(cropped.size(), whole.size());
    if (!media.picture()->isHdr)
        QCOMPARE(cropped.at(3).at(0, 10, 9), whole.at(3).at(0, 10, 9));
}

void TestKitSources::interlacedFramesStayAsMany()
{
    const MediaInfo media = probed("top-first.mkv");
    QVERIFY(media.picture()->isInterlaced);
    const Settings settings = plain(QSize(160, 120));
    const zokit::PictureGraph graph = zokit::pictureGraph(settings, media, eightBits());
    const QVector<Frame> all = frames(media, graph);
    const QByteArray untouched =
        ffmpeg(zokit::guardedInput(media.file)
               + QStringList{QStringLiteral("-map"), QStringLiteral("0:v"), QStringLiteral("-f"),
                             QStringLiteral("rawvideo"), QStringLiteral("pipe:1")});
    QCOMPARE(all.size(), static_cast<int>(untouched.size()) / (160 * 120 * 3 / 2));
    QVERIFY(all.at(3).bytes != untouched.mid(3 * 160 * 120 * 3 / 2, 160 * 120 * 3 / 2));

    // A preview that begins as many frames before as the graph says shows the frame of the run.
    QCOMPARE(graph.framesBefore, 1);
    const double from = (5 - graph.framesBefore - 0.5) / 25;
    const QVector<Frame> later = frames(media, graph, {QStringLiteral("-ss"), QString::number(from)});
    QVERIFY(later.value(graph.framesBefore).bytes == all.at(5).bytes);
}

void TestKitSources::turnedFieldsAreFields_data()
{
    QTest::addColumn<QString>("turn"); // That makes it upright.

    QTest::newRow("fields90.mp4") << key("transpose=cclock");
    QTest::newRow("fields180.mp4") << key("hflip,vflip");
    QTest::newRow("fields270.mp4") << key("transpose=clock");
}

/// ffmpeg turns a clip before the first filter, and fields are lines only as they are stored.
void TestKitSources::turnedFieldsAreFields()
{
    QFETCH(const QString, turn);
    const MediaInfo lying = probed("top-first.mkv");
    const MediaInfo media = probed(QTest::currentDataTag());
    QVERIFY(lying.picture() && media.picture() && media.picture()->isInterlaced);
    zokit::PictureGraph expected = zokit::pictureGraph(plain(QSize(160, 120)), lying, eightBits());
    expected.text.replace(key("[picture]"), QLatin1Char(',') + turn + key("[picture]"));
    expected.size = media.picture()->shown;
    const QVector<Frame> all = frames(media, zokit::pictureGraph(plain(media.picture()->shown), media, eightBits()));
    const QVector<Frame> lines = frames(lying, expected);
    QCOMPARE(all.size(), 10);
    QCOMPARE(lines.size(), 10);
    for (int number = 0; number < all.size(); ++number)
        QVERIFY2(all.at(number).bytes == lines.at(number).bytes, QByteArray::number(number));
}

void TestKitSources::fullRangeIsKept()
{
    const MediaInfo media = probed("full-range.mkv");
    QCOMPARE(media.picture()->range, key("pc"));
    Settings mirrored = plain(QSize(160, 120));
    useEffect(mirrored, key("Mirror"));
    useEffect(mirrored, key("Vignette")); // For which ffmpeg has no full range by name.
    Settings vignette = plain(QSize(160, 120));
    const QVector<Frame> plainly = frames(media, zokit::pictureGraph(vignette, media, eightBits()));
    const QVector<Frame> out = frames(media, zokit::pictureGraph(mirrored, media, eightBits()));
    QCOMPARE(plainly.size(), out.size());
    // In the middle a vignette changes next to nothing; limited range would.
    const double before = meanLuma(plainly.first(), QRect(76, 56, 8, 8));
    const double after = meanLuma(out.first(), QRect(76, 56, 8, 8));
    QVERIFY2(std::abs(before - after) < 2, QByteArray::number(after - before));
}

/// A filter of YUV that comes after them would have them made YUV of limited range.
void TestKitSources::greysKeepTheirRange()
{
    const MediaInfo media = probed("grey-full.mkv");
    QCOMPARE(media.picture()->range, key("pc"));
    Settings flat = plain(QSize(160, 120));
    useEffect(flat, key("Greyscale"));
    const QVector<Frame> plainly = frames(media, zokit::pictureGraph(plain(QSize(160, 120)), media, eightBits()));
    const QVector<Frame> out = frames(media, zokit::pictureGraph(flat, media, eightBits()));
    QCOMPARE(out.size(), plainly.size());
    QVERIFY(!out.isEmpty());
    QVERIFY(out.first().bytes == plainly.first().bytes);
}

void TestKitSources::pictureSubtitleIsLaidOver()
{
    const MediaInfo media = probed("graphic.mkv");
    QCOMPARE(media.streams.size(), 3);
    const auto shown = [&](const zokit::Values& style) {
        Settings settings = plain(QSize(160, 120));
        zokit::Values values = style;
        values.insert(key("trackid"), 2);
        append(settings, "Subtitle", values);
        settings.output.insert(key("burn-subtitles"), true);
        const zokit::SubtitlePlan plan = zokit::subtitlePlan(settings, media);
        GraphParts parts = eightBits();
        parts.subtitleInput = plan.use == zokit::SubtitleUse::BurnBitmap ? 0 : -1;
        parts.subtitleStream = plan.stream;
        return frames(media, zokit::pictureGraph(settings, media, parts));
    };
    const QVector<Frame> bare = frames(media, zokit::pictureGraph(plain(QSize(160, 120)), media, eightBits()));
    const QRect box(20, 80, 40, 20);
    const QVector<Frame> drawn = shown({});
    QCOMPARE(drawn.size(), bare.size());
    // In this clip it stands from the beginning for 0.2 s.
    QVERIFY(drawn.at(6).bytes == bare.at(6).bytes);
    QVERIFY(drawn.at(9).bytes == bare.at(9).bytes);
    QVERIFY(meanLuma(drawn.at(3), box) > 233);
    QCOMPARE(drawn.at(3).at(0, 19, 85), bare.at(3).at(0, 19, 85));
    QCOMPARE(drawn.at(3).at(0, 30, 79), bare.at(3).at(0, 30, 79));

    // The usual place is 96, 0.8 of the height: so it moves up by 40.
    const QVector<Frame> moved = shown({{key("sub_vposition"), 56}});
    QVERIFY(meanLuma(moved.at(3), box.translated(0, -40)) > 233);
    QCOMPARE(moved.at(3).at(0, 30, 85), bare.at(3).at(0, 30, 85));

    const QVector<Frame> half = shown({{key("sub_transparency"), 50}});
    const double expected = meanLuma(bare.at(3), box) + (235 - meanLuma(bare.at(3), box)) * 127 / 255;
    QVERIFY2(std::abs(meanLuma(half.at(3), box) - expected) < 1.5, QByteArray::number(meanLuma(half.at(3), box)));
}

void TestKitSources::textSubtitleIsInTime_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("from");

    QTest::newRow("from the beginning") << "lossless.mkv" << 0.0;
    QTest::newRow("after a seek") << "lossless.mkv" << 0.18;
    QTest::newRow("a clip that begins at ten seconds") << "late.ts" << 0.0;
}

void TestKitSources::textSubtitleIsInTime()
{
    QFETCH(const QString, name);
    QFETCH(const double, from);
    const MediaInfo media = probed(name.toLatin1().constData());
    Settings settings = plain(QSize(160, 120));
    append(settings, "Subtitle", {{key("sub_vposition"), 40}});
    const QByteArray ass = "[Events]\nDialogue: 0,0:00:00.20,0:00:00.28,Default,,0,0,0,,HH\n";
    QFile script(m_folder.filePath(key("own.ass")));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write(zokit::ownSubtitles(ass, {{key("sub_vposition"), 40}}, {QSize(160, 120), false, false}).script);
    script.close();
    GraphParts parts = eightBits();
    parts.subtitleScript = script.fileName();
    parts.from = from;
    const QStringList seek = from > 0 ? QStringList{QStringLiteral("-ss"), QString::number(from)} : QStringList();
    const QVector<Frame> with = frames(media, zokit::pictureGraph(settings, media, parts), seek);
    const QVector<Frame> without = frames(media, zokit::pictureGraph(plain(QSize(160, 120)), media, eightBits()), seek);
    QCOMPARE(with.size(), without.size());
    const int first = from > 0 ? 5 : 0; // The frame at 0.2 s.
    QVector<int> shown;
    for (int number = 0; number < with.size(); ++number) {
        if (with.at(number).bytes != without.at(number).bytes)
            shown.append(number + first);
    }
    QCOMPARE(shown, (QVector<int>{5, 6}));
}

ZOEFFECT_TEST_MAIN(TestKitSources)
#include "tst_kit_sources.moc"
