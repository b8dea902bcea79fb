// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/conversion.h>

#include <algorithm>

namespace zokit {

namespace {

using Code = Message::Code;

bool isInResult(const TrackPlan& plan)
{
    return plan.fate != TrackFate::LeftOut && plan.fate != TrackFate::BurnedIn;
}

/// As ffprobe will call it: mp4 has one number for mp2 and mp3, and which of them it is stands in the frames alone.
QString nameInResult(const QString& codec, const QString& container)
{
    const bool isShared = container == QLatin1String("mp4") && codec == QLatin1String("mp2");
    return isShared ? QStringLiteral("mp3") : codec;
}

/// Which codecs the result holds, one a track. Attachments may be listed as pictures, and pictures as attachments.
QStringList codecsOf(const TracksPlan& plan, TrackKind kind)
{
    QStringList codecs;
    for (const TrackPlan& track : plan.tracks)
        if (isInResult(track) && track.track.kind == kind && !track.isCover)
            codecs.append(nameInResult(track.codec, plan.container));
    std::sort(codecs.begin(), codecs.end());
    return codecs;
}

QStringList codecsOf(const MediaInfo& media, TrackKind kind)
{
    QStringList codecs;
    for (const MediaStream& stream : media.streams)
        if (stream.track.kind == kind && !stream.isCover)
            codecs.append(stream.track.codec);
    std::sort(codecs.begin(), codecs.end());
    return codecs;
}

} // namespace

Message checkResult(const MediaInfo& result, const TracksPlan& plan, double wanted, bool* isShort)
{
    *isShort = false;
    for (const TrackKind kind : {TrackKind::Video, TrackKind::Audio, TrackKind::Subtitle}) {
        const QStringList meant = codecsOf(plan, kind);
        const QStringList found = codecsOf(result, kind);
        if (meant != found)
            return Message(Code::ResultStreams, {meant.join(QStringLiteral(", ")), found.join(QStringLiteral(", "))});
    }
    // A frame, the priming of an encoder of sound, and what rounding leaves.
    constexpr double least = 0.5;
    constexpr double part = 0.02;
    const double seconds = result.seconds;
    if (wanted > 0 && seconds < wanted - std::max(least, part * wanted)) {
        *isShort = true;
        return Message(Code::ResultShort, {QString::number(seconds, 'f', 1), QString::number(wanted, 'f', 1)});
    }
    return {};
}

} // namespace zokit
