// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/soundgraph.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include <QRegularExpression>

#include <zokit/probe.h>

#include "picture_p.h"

namespace zokit {

namespace {

constexpr double percent = 100.0;

/// The values of a sound effect that is in use; null when it is not.
const Values* inUse(const Settings& settings, const char* type)
{
    const TypeSettings* effect = selectedType(settings, type);
    return effect && effect->values.value(QStringLiteral("audio_effect_flag")).toBool() ? &effect->values : nullptr;
}

double number(const Values& values, const char* key)
{
    return values.value(QLatin1String(key)).toDouble();
}

double part(const Values& values, const char* key)
{
    return std::clamp(number(values, key) / percent, 0.0, 1.0);
}

void addSpeed(Chain& chain, double speed)
{
    constexpr double slowest = 0.5; // Of one filter.
    if (speed == 1)
        return;
    const QString whole = filterNumber(speed);
    while (speed < slowest) {
        chain.add(QStringLiteral("atempo=0.5"));
        speed /= slowest;
    }
    chain.add(QStringLiteral("atempo=") + filterNumber(speed));
    // The filter leaves the beginning of a sound that begins later than the picture where it was.
    chain.add(QStringLiteral("asetpts=PTS-STARTPTS+STARTPTS/") + whole);
}

/// Low and high pass by steepness: one pole, one section or two (12 and 24 dB an octave).
void addPass(Chain& chain, const QString& filter, const QString& frequency, double steepness)
{
    constexpr double section = 25;
    constexpr double twoSections = 75;
    if (steepness < section) {
        chain.add(QStringLiteral("%1=f=%2:p=1").arg(filter, frequency));
        return;
    }
    const QStringList widths = steepness < twoSections ? QStringList{QStringLiteral("0.707")}
                                                       : QStringList{QStringLiteral("0.541"), QStringLiteral("1.307")};
    for (const QString& width : widths)
        chain.add(QStringLiteral("%1=f=%2:width_type=q:w=%3").arg(filter, frequency, width));
}

void addBandPass(Chain& chain, const Values& values, int sampleRate)
{
    constexpr double lowest = 10;
    constexpr double partOfRate = 0.45;
    constexpr int usualRate = 48000;
    const double highest = partOfRate * (sampleRate > 0 ? sampleRate : usualRate);
    const QString frequency =
        filterNumber(std::clamp(number(values, "audio_bandpass_requency"), lowest, std::max(lowest, highest)));
    const double steepness = std::clamp(number(values, "audio_bandpass_steepness"), 0.0, percent);
    constexpr double widest = 0.5;
    constexpr double range = 20.0; // From a quality of 0.5 to 10.
    const QString quality = filterNumber(widest * std::pow(range, steepness / percent));
    switch (values.value(QStringLiteral("audio_bandpass_type")).toInt()) {
    case 0:
        addPass(chain, QStringLiteral("lowpass"), frequency, steepness);
        break;
    case 1:
        addPass(chain, QStringLiteral("highpass"), frequency, steepness);
        break;
    case 3:
        chain.add(QStringLiteral("bandreject=f=%1:width_type=q:w=%2").arg(frequency, quality));
        break;
    default:
        chain.add(QStringLiteral("bandpass=f=%1:width_type=q:w=%2").arg(frequency, quality));
    }
}

/// A second voice after \a delay milliseconds. ffmpeg's chorus ignores its delay, and its aecho cuts at full scale.
void addVoice(Chain& chain, double delay, const QString& change, double ownPart, double voicePart)
{
    chain.add(QStringLiteral("asplit"));
    const QStringList parted = chain.cut(2);
    chain.begin(parted.last());
    chain.add(QStringLiteral("adelay=%1:all=1").arg(filterNumber(delay)));
    if (!change.isEmpty())
        chain.add(change);
    const QString voice = chain.cut().constFirst();
    chain.begin(parted.first() + voice);
    chain.add(QStringLiteral("amix=inputs=2:weights='%1 %2':normalize=0:duration=longest")
                  .arg(filterNumber(ownPart), filterNumber(voicePart)));
}

void addChorus(Chain& chain, const Values& values)
{
    const double out = part(values, "audio_chorus_gainout");
    addVoice(chain, std::max(number(values, "audio_chorus_delay"), 0.0), QStringLiteral("vibrato=f=0.25:d=0.5"),
             part(values, "audio_chorus_gainin") * out, part(values, "audio_chorus_decay") * out);
}

void addFlanger(Chain& chain, const Values& values)
{
    constexpr double longest = 30; // Milliseconds; these three are the filter's bounds.
    constexpr double mostBack = 95;
    constexpr double slowest = 0.1;
    constexpr double fastest = 10;
    chain.add(QStringLiteral("volume=") + filterNumber(part(values, "audio_flanger_gainin")));
    chain.add(QStringLiteral("flanger=delay=%1:depth=2:regen=%2:width=71:speed=%3")
                  .arg(filterNumber(std::clamp(number(values, "audio_flanger_delay"), 0.0, longest)),
                       filterNumber(std::clamp(number(values, "audio_flanger_decay"), -mostBack, mostBack)),
                       filterNumber(std::clamp(number(values, "audio_flanger_speed") / percent, slowest, fastest))));
    chain.add(QStringLiteral("volume=") + filterNumber(part(values, "audio_flanger_gainout")));
}

void addEcho(Chain& chain, const Values& values)
{
    constexpr double longest = 90000; // Milliseconds.
    constexpr double wholeDecay = 1000;
    constexpr double least = 0.001;
    const double delay = std::min(number(values, "audio_echo_delay"), longest);
    if (delay <= 0)
        return; // An echo at the same moment is none.
    const double out = part(values, "audio_echo_gainout");
    const double decay = std::clamp(number(values, "audio_echo_decay") / wholeDecay, least, 1.0);
    addVoice(chain, delay, QString(), part(values, "audio_echo_gainin") * out, decay * out);
}

double fadeIn(const Values& values)
{
    const bool enabled = values.value(QStringLiteral("audio_fade_in_enable")).toBool();
    return enabled ? number(values, "audio_fade_in") : 0;
}

double fadeOut(const Values& values)
{
    const bool enabled = values.value(QStringLiteral("audio_fade_out_enable")).toBool();
    return enabled ? number(values, "audio_fade_out") : 0;
}

void addFade(Chain& chain, const Values& values, const SoundParts& parts)
{
    const double most = parts.seconds > 0 ? parts.seconds : std::numeric_limits<double>::max();
    const double in = std::min(fadeIn(values), most);
    const double out = std::min(fadeOut(values), most);
    if (in <= 0 && out <= 0)
        return;
    // The filter reads absolute times.
    const QString from = filterNumber(parts.from);
    if (parts.from != 0)
        chain.add(QStringLiteral("asetpts=PTS+round(%1/TB)").arg(from));
    if (in > 0)
        chain.add(QStringLiteral("afade=t=in:st=0:d=") + filterNumber(in));
    if (out > 0 && parts.seconds > 0)
        chain.add(QStringLiteral("afade=t=out:st=%1:d=%2").arg(filterNumber(parts.seconds - out), filterNumber(out)));
    else if (out > 0) // Where the end is unknown; takes the whole track in memory.
        chain.add(QStringLiteral("areverse,afade=t=in:d=%1,areverse").arg(filterNumber(out)));
    if (parts.from != 0)
        chain.add(QStringLiteral("asetpts=PTS-round(%1/TB)").arg(from));
}

} // namespace

QString soundGraph(const Settings& settings, const MediaStream& sound, const SoundParts& parts)
{
    Chain chain(parts.name);
    if (const double speed = speedFactor(settings); speed > 0)
        addSpeed(chain, speed);
    if (const Values* values = inUse(settings, "Audio_BandPass"))
        addBandPass(chain, *values, sound.sampleRate);
    if (const Values* values = inUse(settings, "Audio_Chorus"))
        addChorus(chain, *values);
    if (const Values* values = inUse(settings, "Audio_Flanger"))
        addFlanger(chain, *values);
    if (const Values* values = inUse(settings, "Audio_Echo"))
        addEcho(chain, *values);
    if (const Values* values = inUse(settings, "Audio_Fade_Inout"))
        addFade(chain, *values, parts);
    if (inUse(settings, "Audio_Normalize")) {
        if (parts.measuring)
            chain.add(QStringLiteral("astats=measure_perchannel=none:measure_overall=Peak_level"));
        else if (!std::isfinite(parts.gain))
            chain.add(QStringLiteral("volume=0"));
        else if (parts.gain != 0)
            chain.add(QStringLiteral("volume=%1dB").arg(filterNumber(parts.gain)));
    }
    // In whole numbers it would be cut at full scale between two filters.
    return chain.isEmpty() ? QString() : QStringLiteral("aformat=sample_fmts=fltp,") + chain.text();
}

bool needsMeasuring(const Settings& settings)
{
    return inUse(settings, "Audio_Normalize") != nullptr;
}

std::optional<double> measuredPeak(const QByteArray& words)
{
    static const QRegularExpression line(QStringLiteral("Peak level dB: (-?[0-9.]+|-inf)"));
    std::optional<double> peak;
    QRegularExpressionMatchIterator matches = line.globalMatch(QString::fromUtf8(words));
    while (matches.hasNext()) {
        const QString value = matches.next().captured(1);
        peak = value == QLatin1String("-inf") ? -std::numeric_limits<double>::infinity() : value.toDouble();
    }
    return peak;
}

double gainFor(const Settings& settings, double peak)
{
    const Values* values = inUse(settings, "Audio_Normalize");
    constexpr double decibels = 20.0;
    if (!values || !std::isfinite(peak))
        return 0;
    return decibels * std::log10(part(*values, "audio_normalize_maxLevel")) - peak;
}

double speedFactor(const Settings& settings)
{
    const Values* values = inUse(settings, "Audio_Speed");
    return values ? std::max(number(*values, "audio_speed_factor") / percent, 0.0) : 1;
}

Message soundProblem(const Settings& settings)
{
    return speedFactor(settings) == 0 ? Message(Message::Code::SpeedOfNothing) : Message();
}

} // namespace zokit
