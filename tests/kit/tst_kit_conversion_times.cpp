// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// When frames, sounds, lines and chapters of a result come: those of small clips, converted by the real ffmpeg.
#include <QTemporaryDir>
#include <QtTest>

#include "childwatch.h"
#include "clips.h"
#include "conversionsupport.h"
#include "testapplication.h"

using namespace conversionsupport;
using zokit::MediaInfo;
using zokit::Outcome;

class TestKitConversionTimes : public childwatch::Test {
    Q_OBJECT

private Q_SLOTS:
    void timesAreKept_data();
    void timesAreKept();
    void framesAreThoseThatAreMeant_data();
    void framesAreThoseThatAreMeant();
    void chaptersFollowPartAndSpeed();

private:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

void TestKitConversionTimes::timesAreKept_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<QString>("ending");
    QTest::addColumn<Edits>("edits");
    QTest::addColumn<QString>("tracks");   // As ffprobe selects them.
    QTest::addColumn<QString>("expected"); // Milliseconds of the first packets; of lines also how long they are.

    const auto row = [](const char* name, const char* clip, const char* ending, const Edits& edits, const char* tracks,
                        const char* expected) {
        QTest::newRow(name) << QString::fromUtf8(clip) << QString::fromUtf8(ending) << edits
                            << QString::fromUtf8(tracks) << QString::fromUtf8(expected);
    };
    const auto with = [](Edits edits, const char* address, const QVariant& value) {
        edits.insert(QString::fromUtf8(address), value);
        return edits;
    };
    const Edits grey{{QStringLiteral("Color:bcs_saturation"), -50}};
    row("frames at uneven times", "uneven.mkv", "mp4", grey, "v", "0 56 124 174 206 250");
    row("frames at uneven times of another container", "uneven.mp4", "mkv", grey, "v", "0 56 124 174 206 250");
    row("frames that become rare", "rare.mp4", "mp4", grey, "v", "0 33 67 1000 2000");
    row("frames at even times", "lossless.mkv", "mp4", grey, "v", "0 40 80 120 160 200 240 280 320 360");

    const Edits fast{{QStringLiteral("Audio_Speed:audio_effect_flag"), true},
                     {QStringLiteral("Audio_Speed:audio_speed_factor"), 200},
                     {QStringLiteral("Output:audio-codec"), QStringLiteral("flac")}};
    const Edits slow = with(fast, "Audio_Speed:audio_speed_factor", 25);
    row("sound that begins later, faster", "late-sound.mkv", "mkv", fast, "a", "100");
    row("sound that begins later, slower", "late-sound.mkv", "mkv", slow, "a", "800");
    const QVariant part = QVariantList{0.4, 1.4};
    row("subtitles of a part, faster", "talking.mkv", "mkv", with(fast, "Output:trim", part), "s", "50+50 300+100");
    row("subtitles of a part, slower", "talking.mkv", "mkv", with(slow, "Output:trim", part), "s", "400+400 2400+800");
    row("subtitles, faster", "talking.mkv", "mkv", fast, "s", "250+50 500+100 800+100");
    const QVariant between = QVariantList{0.55, 1.1};
    row("a part that begins and ends within lines", "talking.mkv", "mkv", {{QStringLiteral("Output:trim"), between}},
        "s", "0+50 450+100");
    row("a part that begins and ends within lines, slower", "talking.mkv", "mkv", with(slow, "Output:trim", between),
        "s", "0+200 1800+400");
    row("a part that begins within a line, of another format", "talking.mkv", "webm",
        {{QStringLiteral("Output:trim"), between}}, "s", "0+50 450+100");
    row("subtitles of another format, faster", "talking.mkv", "webm", with(fast, "Output:audio-codec", "opus"), "s",
        "250+50 500+100 800+100");
    row("subtitles of a third format, faster", "talking.mkv", "mp4", with(fast, "Output:audio-codec", "opus"), "s",
        "0+250 250+50 300+200 500+100 600+200 800+100"); // Nothing is shown between them.
    row("a part of a long clip", "long.mkv", "webm", {{QStringLiteral("Output:trim"), QVariantList{124.0, 126.0}}}, "s",
        "0+1000 1500+500");
    row("subtitles of a part, of another format, slower", "talking.mkv", "webm",
        with(with(slow, "Output:audio-codec", "opus"), "Output:trim", part), "s", "400+400 2400+800");
    row("a part behind a line", "talking.mkv", "mkv", {{QStringLiteral("Output:trim"), QVariantList{0.9, 1.5}}}, "s",
        "100+200");

    row("styled lines of a part, with one behind it", "talking.mkv", "mkv",
        {{QStringLiteral("Output:soft-subtitles"), true},
         {QStringLiteral("Subtitle"),
          QVariantMap{{QStringLiteral("trackid"), 1}, {QStringLiteral("sub_fontsize"), 40}}},
         {QStringLiteral("Output:trim"), part}},
        "s", "100+100 600+200");

    const Edits pictures{{QStringLiteral("Output:soft-subtitles"), true},
                         {QStringLiteral("Subtitle"),
                          QVariantMap{{QStringLiteral("sub_fromfile"), true},
                                      {QStringLiteral("file"), clips::clip(QStringLiteral("graphic.sup"))}}}};
    row("a file of pictures", "silent.mkv", "mkv", pictures, "s", "100 300");
    row("a part of a file of pictures", "silent.mkv", "mkv", with(pictures, "Output:trim", QVariantList{0.04, 0.36}),
        "s", "60 260");
}

void TestKitConversionTimes::timesAreKept()
{
    QFETCH(QString, clip);
    QFETCH(QString, ending);
    QFETCH(Edits, edits);
    QFETCH(QString, tracks);
    QFETCH(QString, expected);
    const QString output = path(QStringLiteral("result.") + ending);
    QFile::remove(output);
    const Converted converted = convert(clips::clip(clip), edits, output);
    QVERIFY2(converted.result.outcome == Outcome::Done, qPrintable(said(converted.result)));
    const QString words =
        QStringLiteral("-v error -show_entries packet=pts_time,duration_time -of csv=p=0 -select_streams %1 FILE");
    const QByteArray packets = outputOf(zokit::findTools().ffprobe, words.arg(tracks), output);
    const auto milliseconds = [](const QByteArray& seconds) { return qRound(seconds.toDouble() * 1000); };
    QMap<int, int> times; // They come in the order in which they are decoded.
    for (const QByteArray& line : packets.split('\n'))
        if (const QList<QByteArray> fields = line.trimmed().split(','); !fields.first().isEmpty())
            times.insert(milliseconds(fields.first()), milliseconds(fields.value(1)));
    QStringList found;
    for (auto it = times.cbegin(); it != times.cend(); ++it)
        found.append(tracks == QLatin1String("s") && it.value() > 0
                         ? QStringLiteral("%1+%2").arg(it.key()).arg(it.value())
                         : QString::number(it.key()));
    if (tracks == QLatin1String("a"))
        found = found.mid(0, 1);
    QCOMPARE(found.join(QLatin1Char(' ')), expected);
    QVERIFY(QFile::remove(output));
}

void TestKitConversionTimes::framesAreThoseThatAreMeant_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<Edits>("edits");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("count");
    const auto part = [](double from, double to) {
        return Edits{{QStringLiteral("Output:trim"), QVariantList{from, to}}};
    };
    QTest::newRow("part of an index") << "counting.mkv" << part(1, 2) << 25 << 1 << 25;
    QTest::newRow("part long after a key frame, without an index") << "long.ts" << part(3.6, 4.6) << 90 << 1 << 25;
    QTest::newRow("part later in it") << "longer.ts" << part(15, 16) << 375 << 1 << 25;
    QTest::newRow("half as many a second")
        << "counting.mkv" << Edits{{QStringLiteral("Output:fps"), 12.5}} << 0 << 2 << 50;
    QTest::newRow("a fifth of them") << "counting.mkv" << Edits{{QStringLiteral("Output:fps"), 5.0}} << 0 << 5 << 20;
    QTest::newRow("twice as fast") << "counting.mkv"
                                   << Edits{{QStringLiteral("Audio_Speed:audio_effect_flag"), true},
                                            {QStringLiteral("Audio_Speed:audio_speed_factor"), 200}}
                                   << 0 << 2 << 50;
}

void TestKitConversionTimes::framesAreThoseThatAreMeant()
{
    QFETCH(QString, clip);
    QFETCH(Edits, edits);
    QFETCH(int, first);
    QFETCH(int, step);
    QFETCH(int, count);
    const QString output = path(QStringLiteral("result.mkv"));
    edits.insert(QStringLiteral("Output:video-codec"), QStringLiteral("ffv1"));
    const Converted converted = convert(clips::clip(clip), edits, output);
    QVERIFY2(converted.result.outcome == Outcome::Done, qPrintable(said(converted.result)));
    QCOMPARE(said(converted.result), QString());
    const auto pictures = [](const QString& file) {
        const QString words = QStringLiteral("-v error -i FILE -map 0:v -f framehash -fps_mode passthrough pipe:1");
        QByteArrayList hashes;
        for (const QByteArray& line : outputOf(zokit::findTools().ffmpeg, words, file).split('\n'))
            if (!line.isEmpty() && !line.startsWith('#'))
                hashes.append(line.split(',').last().trimmed());
        return hashes;
    };
    const QByteArrayList all = pictures(clips::clip(clip));
    QByteArrayList expected;
    for (int i = 0; i < count; ++i)
        expected.append(all.value(first + i * step));
    QCOMPARE(pictures(output), expected);
    QVERIFY(QFile::remove(output));
}

void TestKitConversionTimes::chaptersFollowPartAndSpeed()
{
    MediaInfo media;
    media.seconds = 10;
    media.chapters = {{0, 3, {}}, {3, 4, {{QStringLiteral("title"), QStringLiteral("a=b;c")}}}, {4, 10, {}}};
    const zokit::Settings settings = settingsFor(media, {{QStringLiteral("Output:trim"), QVariantList{3.0, 9.0}},
                                                         {QStringLiteral("Audio_Speed:audio_effect_flag"), true},
                                                         {QStringLiteral("Audio_Speed:audio_speed_factor"), 200}});
    QCOMPARE(zokit::chaptersText(settings, media),
             QByteArray(";FFMETADATA1\n"
                        "[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=500\ntitle=a\\=b\\;c\n"
                        "[CHAPTER]\nTIMEBASE=1/1000\nSTART=500\nEND=3000\n"));
    const zokit::ClipPart part = zokit::clipPart(settings, media);
    QCOMPARE(part.from, 3.0);
    QCOMPARE(part.seconds, 6.0);
    QCOMPARE(part.result, 3.0);
}

ZOEFFECT_TEST_MAIN(TestKitConversionTimes)
#include "tst_kit_conversion_times.moc"
