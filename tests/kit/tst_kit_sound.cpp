// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The texts of the sound's filters, and what the real ffmpeg makes of samples by them.

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include <QtTest>

#include <zokit/soundgraph.h>

#include "graphsupport.h"
#include "testapplication.h"

using graphsupport::ffmpeg;
using graphsupport::plain;
using zokit::Settings;
using zokit::SoundParts;

Q_DECLARE_METATYPE(zokit::Settings)

namespace {

using Samples = QVector<float>;
constexpr int rate = 48000;

Settings with(const char* type, const zokit::Values& values, Settings settings = plain(QSize(1280, 720)))
{
    graphsupport::set(settings, type, "audio_effect_flag", true);
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        graphsupport::set(settings, type, it.key().toLatin1().constData(), it.value());
    return settings;
}

zokit::Values values(std::initializer_list<std::pair<const char*, QVariant>> pairs)
{
    zokit::Values result;
    for (const auto& [key, value] : pairs)
        result.insert(QString::fromLatin1(key), value);
    return result;
}

QString textOf(const Settings& settings, const SoundParts& parts = SoundParts())
{
    zokit::MediaStream sound;
    sound.sampleRate = rate;
    return zokit::soundGraph(settings, sound, parts);
}

int at(double seconds)
{
    return static_cast<int>(std::lround(seconds * rate));
}

Samples constant(double seconds, float value)
{
    return Samples(at(seconds), value);
}

Samples sine(double frequency, double seconds, double level)
{
    Samples samples = constant(seconds, 0);
    for (int i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<float>(level * std::sin(2 * M_PI * frequency * i / rate));
    return samples;
}

Samples click(double seconds)
{
    Samples samples = constant(seconds, 0);
    samples[0] = 0.8F;
    return samples;
}

/// What comes out of \a settings for \a samples; the filter before \a delay seconds were skipped.
Samples through(const Settings& settings, const Samples& samples, const SoundParts& parts = SoundParts())
{
    const QByteArray out =
        ffmpeg({QStringLiteral("-f"), QStringLiteral("f32le"), QStringLiteral("-ar"), QString::number(rate),
                QStringLiteral("-ac"), QStringLiteral("1"), QStringLiteral("-i"), QStringLiteral("pipe:0"),
                QStringLiteral("-filter:a:0"), textOf(settings, parts), QStringLiteral("-f"), QStringLiteral("f32le"),
                QStringLiteral("pipe:1")},
               QByteArray(reinterpret_cast<const char*>(samples.constData()),
                          static_cast<int>(samples.size() * static_cast<int>(sizeof(float)))));
    Samples result(static_cast<int>(static_cast<size_t>(out.size()) / sizeof(float)));
    std::memcpy(result.data(), out.constData(), static_cast<size_t>(out.size()));
    return result;
}

double peakOf(const Samples& samples, int from = 0)
{
    double peak = 0;
    for (int i = from; i < samples.size(); ++i)
        peak = std::max(peak, std::abs(double(samples.at(i))));
    return peak;
}

/// Where the loudest sample of a stretch is, in milliseconds.
double loudest(const Samples& samples, double from, double to)
{
    int best = at(from / 1000);
    for (int i = best; i < std::min(at(to / 1000), static_cast<int>(samples.size())); ++i) {
        if (std::abs(samples.at(i)) > std::abs(samples.at(best)))
            best = i;
    }
    return best * 1000.0 / rate;
}

/// How much quieter a sine comes out, in decibels, once the filter has settled.
double gainAt(const Settings& settings, double frequency)
{
    return 20 * std::log10(peakOf(through(settings, sine(frequency, 0.5, 0.5)), at(0.3)) / 0.5);
}

bool isNear(double value, double expected, double most)
{
    if (std::abs(value - expected) <= most)
        return true;
    qWarning() << value << "instead of" << expected;
    return false;
}

} // namespace

class TestKitSound : public QObject {
    Q_OBJECT

private slots:
    void textOfTheFilters_data();
    void textOfTheFilters();
    void effectsStandInOneOrder();
    void unusedEffectsLeaveTheSound();
    void peakIsRead_data();
    void peakIsRead();
    void gainIsTheLevelWithoutThePeak();
    void speedOfNothingIsRefused();
    void fadeIsLinear();
    void fadeFollowsASeek();
    void normalizeReachesTheLevel();
    void bandPassHasItsGains_data();
    void bandPassHasItsGains();
    void chorusHasItsDelay_data();
    void chorusHasItsDelay();
    void echoIsNotCutAtFullScale();
    void flangerRepeats();
    void speedChangesTheLength_data();
    void speedChangesTheLength();
};

void TestKitSound::textOfTheFilters_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");

    const auto row = [](const char* name, const Settings& settings, double seconds, const char* text) {
        QTest::newRow(name) << settings << seconds
                            << QStringLiteral("aformat=sample_fmts=fltp,") + QString::fromLatin1(text);
    };
    const auto fade = [](bool in, bool out) {
        return with("Audio_Fade_Inout", values({{"audio_fade_in_enable", in}, {"audio_fade_out_enable", out}}));
    };
    row("fade in", fade(true, false), 10, "afade=t=in:st=0:d=3");
    row("fade out", fade(false, true), 10, "afade=t=out:st=7:d=3");
    row("both, longer than the sound", fade(true, true), 2, "afade=t=in:st=0:d=2,afade=t=out:st=0:d=2");
    row("fade out of an unknown end", fade(false, true), 0, "areverse,afade=t=in:d=3,areverse");
    const auto band = [](int type, int frequency, int steepness) {
        return with("Audio_BandPass", values({{"audio_bandpass_type", type},
                                              {"audio_bandpass_requency", frequency},
                                              {"audio_bandpass_steepness", steepness}}));
    };
    row("low pass, one pole", band(0, 1000, 24), 0, "lowpass=f=1000:p=1");
    row("low pass, one section", band(0, 1000, 25), 0, "lowpass=f=1000:width_type=q:w=0.707");
    row("low pass, two sections", band(0, 1000, 75), 0,
        "lowpass=f=1000:width_type=q:w=0.541,lowpass=f=1000:width_type=q:w=1.307");
    row("high pass", band(1, 1000, 50), 0, "highpass=f=1000:width_type=q:w=0.707");
    row("band pass, widest", band(2, 1000, 0), 0, "bandpass=f=1000:width_type=q:w=0.5");
    row("band pass", band(2, 1000, 50), 0, "bandpass=f=1000:width_type=q:w=2.236068");
    row("band stop, narrowest", band(3, 1000, 100), 0, "bandreject=f=1000:width_type=q:w=10");
    row("band pass above what there is", band(2, 30000, 0), 0, "bandpass=f=21600:width_type=q:w=0.5");
    row("band pass below what there is", band(2, 1, 0), 0, "bandpass=f=10:width_type=q:w=0.5");
    row("chorus", with("Audio_Chorus", {}), 0,
        "asplit[s1][s2];[s2]adelay=50:all=1,vibrato=f=0.25:d=0.5[s3];[s1][s3]amix=inputs=2:weights='0.25 0.25'"
        ":normalize=0:duration=longest");
    const auto chorus = [&](const char* name, const char* key, int value, const char* weights) {
        row(name, with("Audio_Chorus", values({{key, value}})), 0,
            QByteArray("asplit[s1][s2];[s2]adelay=50:all=1,vibrato=f=0.25:d=0.5[s3];[s1][s3]amix=inputs=2:weights='%'"
                       ":normalize=0:duration=longest")
                .replace('%', weights));
    };
    chorus("chorus, louder before", "audio_chorus_gainin", 80, "0.4 0.25");
    chorus("chorus, louder behind", "audio_chorus_gainout", 100, "0.5 0.5");
    chorus("chorus, a quieter voice", "audio_chorus_decay", 20, "0.25 0.1");
    row("flanger", with("Audio_Flanger", {}), 0,
        "volume=0.5,flanger=delay=3:depth=2:regen=50:width=71:speed=0.5,volume=0.5");
    row("flanger, louder and faster",
        with("Audio_Flanger",
             values({{"audio_flanger_gainin", 80}, {"audio_flanger_gainout", 60}, {"audio_flanger_speed", 100}})),
        0, "volume=0.8,flanger=delay=3:depth=2:regen=50:width=71:speed=1,volume=0.6");
    row("flanger beyond its bounds",
        with("Audio_Flanger",
             values({{"audio_flanger_delay", 99}, {"audio_flanger_decay", 100}, {"audio_flanger_speed", 1}})),
        0, "volume=0.5,flanger=delay=30:depth=2:regen=95:width=71:speed=0.1,volume=0.5");
    row("echo", with("Audio_Echo", {}), 0,
        "asplit[s1][s2];[s2]adelay=50:all=1[s3];[s1][s3]amix=inputs=2:weights='0.25 "
        "0.25':normalize=0:duration=longest");
    row("echo, quieter and later",
        with("Audio_Echo", values({{"audio_echo_gainin", 80},
                                   {"audio_echo_gainout", 100},
                                   {"audio_echo_delay", 1000},
                                   {"audio_echo_decay", 300}})),
        0,
        "asplit[s1][s2];[s2]adelay=1000:all=1[s3];[s1][s3]amix=inputs=2:weights='0.8 0.3':normalize=0"
        ":duration=longest");
    const auto speed = [](int factor) { return with("Audio_Speed", values({{"audio_speed_factor", factor}})); };
    row("faster", speed(150), 0, "atempo=1.5,asetpts=PTS-STARTPTS+STARTPTS/1.5");
    row("slower", speed(75), 0, "atempo=0.75,asetpts=PTS-STARTPTS+STARTPTS/0.75");
    row("half", speed(50), 0, "atempo=0.5,asetpts=PTS-STARTPTS+STARTPTS/0.5");
    row("a quarter", speed(25), 0, "atempo=0.5,atempo=0.5,asetpts=PTS-STARTPTS+STARTPTS/0.25");
    row("a tenth", speed(10), 0, "atempo=0.5,atempo=0.5,atempo=0.5,atempo=0.8,asetpts=PTS-STARTPTS+STARTPTS/0.1");
}

void TestKitSound::textOfTheFilters()
{
    QFETCH(const Settings, settings);
    QFETCH(const double, seconds);
    SoundParts parts;
    parts.seconds = seconds;
    QTEST(textOf(settings, parts), "text");
}

void TestKitSound::effectsStandInOneOrder()
{
    Settings all = plain(QSize(1280, 720));
    for (const char* type :
         {"Audio_Normalize", "Audio_Fade_Inout", "Audio_Echo", "Audio_Flanger", "Audio_Chorus", "Audio_BandPass"})
        all = with(type, {}, all);
    all = with("Audio_Speed", values({{"audio_speed_factor", 200}}), all);
    SoundParts parts;
    parts.seconds = 10;
    parts.gain = -1.5;
    parts.name = QStringLiteral("t");
    const QString effects = QStringLiteral(
        "aformat=sample_fmts=fltp,atempo=2,asetpts=PTS-STARTPTS+STARTPTS/2,"
        "bandpass=f=1000:width_type=q:w=2.236068,asplit[t1][t2];[t2]adelay=50:all=1,"
        "vibrato=f=0.25:d=0.5[t3];[t1][t3]amix=inputs=2:weights='0.25 0.25':normalize=0:duration=longest,volume=0.5,"
        "flanger=delay=3:depth=2:regen=50:width=71:speed=0.5,volume=0.5,asplit[t4][t5];[t5]adelay=50:all=1[t6];"
        "[t4][t6]amix=inputs=2:weights='0.25 0.25':normalize=0:duration=longest,afade=t=out:st=7:d=3,");
    QCOMPARE(textOf(all, parts), effects + QStringLiteral("volume=-1.5dB"));
    parts.measuring = true;
    QCOMPARE(textOf(all, parts), effects + QStringLiteral("astats=measure_perchannel=none:measure_overall=Peak_level"));
}

void TestKitSound::unusedEffectsLeaveTheSound()
{
    QCOMPARE(textOf(plain(QSize(1280, 720))), QString());
    QCOMPARE(textOf(with("Audio_Speed", {})), QString());
    QCOMPARE(textOf(with("Audio_Normalize", {})), QString()); // A gain of 0.
    SoundParts nearly;
    nearly.gain = -1e-9;
    QCOMPARE(textOf(with("Audio_Normalize", {}), nearly), QStringLiteral("aformat=sample_fmts=fltp,volume=0dB"));
    QCOMPARE(textOf(with("Audio_Speed", values({{"audio_speed_factor", 0}}))),
             QString()); // Which is refused elsewhere.
    const Settings high = with("Audio_BandPass", values({{"audio_bandpass_requency", 90000}})); // Rate unknown.
    QVERIFY(zokit::soundGraph(high, zokit::MediaStream(), SoundParts()).contains(QStringLiteral("=f=21600:")));
    SoundParts silent;
    silent.gain = -qInf();
    QCOMPARE(textOf(with("Audio_Normalize", {}), silent), QStringLiteral("aformat=sample_fmts=fltp,volume=0"));
    QCOMPARE(textOf(with("Audio_Fade_Inout", values({{"audio_fade_out_enable", false}}))), QString());
    QCOMPARE(textOf(with("Audio_Echo", values({{"audio_echo_delay", 0}}))), QString());
    Settings unflagged = with("Audio_Chorus", {});
    graphsupport::set(unflagged, "Audio_Chorus", "audio_effect_flag", false);
    QCOMPARE(textOf(unflagged), QString());
    Settings unselected = with("Audio_Chorus", {});
    unselected.find(QStringLiteral("Audio_Chorus"))->selected = false;
    QCOMPARE(textOf(unselected), QString());
    QVERIFY(zokit::needsMeasuring(with("Audio_Normalize", {})));
    QVERIFY(!zokit::needsMeasuring(plain(QSize(1280, 720))));
}

void TestKitSound::peakIsRead_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<bool>("told");
    QTest::addColumn<double>("peak");

    QTest::newRow("a peak") << QByteArray("[Parsed_astats_1 @ 0x1] Overall\n[Parsed_astats_1 @ 0x1] Peak level dB: "
                                          "-13.979400\nsize=N/A")
                            << true << -13.9794;
    QTest::newRow("above full scale") << QByteArray("Peak level dB: 1.5\n") << true << 1.5;
    QTest::newRow("silence") << QByteArray("x] Peak level dB: -inf\n") << true
                             << -std::numeric_limits<double>::infinity();
    QTest::newRow("the last one") << QByteArray("Peak level dB: -3\nPeak level dB: -6\n") << true << -6.0;
    QTest::newRow("none") << QByteArray("no such thing") << false << 0.0;
    QTest::newRow("no number") << QByteArray("Peak level dB: nan\n") << false << 0.0;
}

void TestKitSound::peakIsRead()
{
    QFETCH(const QByteArray, words);
    QFETCH(const bool, told);
    QFETCH(const double, peak);
    const std::optional<double> read = zokit::measuredPeak(words);
    QCOMPARE(read.has_value(), told);
    QCOMPARE(read.value_or(0), peak);
}

void TestKitSound::gainIsTheLevelWithoutThePeak()
{
    const auto gain = [](int level, double peak) {
        return zokit::gainFor(with("Audio_Normalize", values({{"audio_normalize_maxLevel", level}})), peak);
    };
    QVERIFY(isNear(gain(100, -13.9794), 13.9794, 1e-9));
    QVERIFY(isNear(gain(50, 0), -6.0206, 1e-4));
    QCOMPARE(gain(98, -std::numeric_limits<double>::infinity()), 0.0);
    QCOMPARE(zokit::gainFor(plain(QSize(1280, 720)), -6), 0.0);
}

void TestKitSound::speedOfNothingIsRefused()
{
    const Settings still = with("Audio_Speed", values({{"audio_speed_factor", 0}}));
    QCOMPARE(zokit::speedFactor(still), 0.0);
    QCOMPARE(zokit::soundProblem(still).text(),
             QStringLiteral("Audio_Speed:audio_speed_factor: with 0 nothing would ever be heard or seen. Take 1 to 200 "
                            "percent."));
    QVERIFY(zokit::soundProblem(with("Audio_Speed", {})).isEmpty());
    QCOMPARE(zokit::speedFactor(with("Audio_Speed", values({{"audio_speed_factor", 150}}))), 1.5);
    QCOMPARE(zokit::speedFactor(plain(QSize(1280, 720))), 1.0);
}

void TestKitSound::fadeIsLinear()
{
    const Settings fade =
        with("Audio_Fade_Inout", values({{"audio_fade_in_enable", true}, {"audio_fade_in", 2}, {"audio_fade_out", 4}}));
    SoundParts parts;
    parts.seconds = 10;
    const Samples known = through(fade, constant(10, 0.5F), parts);
    QCOMPARE(known.size(), at(10));
    const Samples unknown = through(fade, constant(10, 0.5F));
    QCOMPARE(unknown.size(), at(10));
    for (const Samples& samples : {known, unknown}) {
        QVERIFY(isNear(samples.at(at(0.2)), 0.05, 0.001)); // -20 dB.
        QVERIFY(isNear(samples.at(at(1)), 0.25, 0.001));
        QVERIFY(isNear(samples.at(at(5)), 0.5, 1e-6));
        QVERIFY(isNear(samples.at(at(8)), 0.25, 0.001));
        QVERIFY(isNear(samples.last(), 0, 1e-4));
    }
}

void TestKitSound::fadeFollowsASeek()
{
    const Settings fade = with("Audio_Fade_Inout", values({{"audio_fade_in_enable", true}}));
    SoundParts parts;
    parts.seconds = 10;
    parts.from = 8;
    const Samples end = through(fade, constant(2, 0.5F), parts);
    QVERIFY(isNear(end.at(0), 0.5 * 2 / 3, 0.001));
    QVERIFY(isNear(end.at(at(0.5)), 0.25, 0.001));
    QVERIFY(isNear(end.last(), 0, 1e-4));
}

void TestKitSound::normalizeReachesTheLevel()
{
    for (const auto& [level, expected] : {std::pair(98, 0.98), std::pair(50, 0.5), std::pair(100, 1.0)}) {
        const Settings settings = with("Audio_Normalize", values({{"audio_normalize_maxLevel", level}}));
        SoundParts parts;
        parts.gain = zokit::gainFor(settings, 20 * std::log10(0.2));
        QVERIFY(isNear(peakOf(through(settings, constant(0.1, 0.2F), parts)), expected, 0.00001));
    }
}

void TestKitSound::bandPassHasItsGains_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("steepness");
    QTest::addColumn<double>("frequency");
    QTest::addColumn<double>("gain");

    QTest::newRow("low pass, one pole") << 0 << 0 << 4000.0 << -12.2;
    QTest::newRow("low pass, one section") << 0 << 50 << 4000.0 << -24.5;
    QTest::newRow("low pass, the steepest of one section") << 0 << 74 << 4000.0 << -24.5;
    QTest::newRow("low pass, two sections") << 0 << 100 << 2000.0 << -24.2;
    QTest::newRow("low pass, below") << 0 << 100 << 200.0 << 0.0;
    QTest::newRow("high pass, one section") << 1 << 50 << 500.0 << -12.3;
    QTest::newRow("high pass, above") << 1 << 50 << 7919.0 << 0.0;
    QTest::newRow("band pass, centre") << 2 << 50 << 1000.0 << 0.0;
    QTest::newRow("band pass, an octave off") << 2 << 100 << 2000.0 << -23.6;
    QTest::newRow("band stop, far off") << 3 << 50 << 100.0 << 0.0;
}

void TestKitSound::bandPassHasItsGains()
{
    QFETCH(const int, type);
    QFETCH(const int, steepness);
    QFETCH(const double, frequency);
    QFETCH(const double, gain);
    const auto settings = [&](int kind) {
        return with("Audio_BandPass", values({{"audio_bandpass_type", kind}, {"audio_bandpass_steepness", steepness}}));
    };
    QVERIFY(isNear(gainAt(settings(type), frequency), gain, 0.15));
    if (type == 3)
        QVERIFY(gainAt(settings(3), 1000) < -60);
}

void TestKitSound::chorusHasItsDelay_data()
{
    QTest::addColumn<int>("delay");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");

    // The slow vibrato adds about four milliseconds.
    QTest::newRow("20") << 20 << 22.0 << 26.0;
    QTest::newRow("100") << 100 << 102.0 << 106.0;
}

void TestKitSound::chorusHasItsDelay()
{
    QFETCH(const int, delay);
    QFETCH(const double, from);
    QFETCH(const double, to);
    const Samples out = through(with("Audio_Chorus", values({{"audio_chorus_delay", delay}})), click(0.3));
    QVERIFY(isNear(out.at(0), 0.2, 0.001));
    const double second = loudest(out, 1, 250);
    QVERIFY2(second > from && second < to, QByteArray::number(second));
    double level = 0; // Of a click that stands between two samples.
    for (int i = at(second / 1000) - 3; i <= at(second / 1000) + 3; ++i)
        level += out.at(i);
    QVERIFY(isNear(level, 0.2, 0.01));
}

void TestKitSound::echoIsNotCutAtFullScale()
{
    const Samples once = through(with("Audio_Echo", values({{"audio_echo_delay", 500}})), click(0.6));
    QVERIFY(isNear(once.at(0), 0.2, 0.001));
    QVERIFY(isNear(loudest(once, 1, 1100), 500, 0.03));
    QVERIFY(isNear(once.at(at(0.5)), 0.2, 0.001));
    QCOMPARE(once.size(), at(1.1)); // Half a second longer.

    const Settings loud = with("Audio_Echo", values({{"audio_echo_gainin", 100},
                                                     {"audio_echo_gainout", 100},
                                                     {"audio_echo_delay", 50},
                                                     {"audio_echo_decay", 1000}}));
    QVERIFY(isNear(peakOf(through(loud, constant(0.2, 0.9F))), 1.8, 0.001));
}

void TestKitSound::flangerRepeats()
{
    const Settings flanger =
        with("Audio_Flanger",
             values({{"audio_flanger_gainin", 100}, {"audio_flanger_gainout", 100}, {"audio_flanger_delay", 10}}));
    const Samples out = through(flanger, click(0.1));
    const double first = loudest(out, 5, 15);
    const double second = loudest(out, 15, 25);
    QVERIFY2(first > 9.5 && first < 12.5, QByteArray::number(first));
    QVERIFY2(second > 19 && second < 25, QByteArray::number(second));
    const double ratio = std::abs(out.at(at(second / 1000)) / out.at(at(first / 1000)));
    QVERIFY2(ratio > 0.3 && ratio < 0.7, QByteArray::number(ratio));
}

void TestKitSound::speedChangesTheLength_data()
{
    QTest::addColumn<int>("factor");
    QTest::addColumn<double>("seconds");

    QTest::newRow("25") << 25 << 23.951;
    QTest::newRow("50") << 50 << 11.984;
    QTest::newRow("75") << 75 << 7.994;
    QTest::newRow("150") << 150 << 4.003;
    QTest::newRow("200") << 200 << 2.997;
}

void TestKitSound::speedChangesTheLength()
{
    QFETCH(const int, factor);
    QFETCH(const double, seconds);
    const Samples out = through(with("Audio_Speed", values({{"audio_speed_factor", factor}})), sine(440, 6, 0.5));
    QVERIFY(isNear(double(out.size()) / rate, seconds, 0.06));
    // The pitch stays: so many times through zero upwards in a second.
    int crossings = 0;
    const int begin = at(1);
    for (int i = begin; i < begin + rate; ++i)
        crossings += out.at(i - 1) < 0 && out.at(i) >= 0 ? 1 : 0;
    QVERIFY(isNear(crossings, 440, 3));
}

ZOEFFECT_TEST_MAIN(TestKitSound)
#include "tst_kit_sound.moc"
