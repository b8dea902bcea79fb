// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "damage_p.h"

#include <algorithm>

#include <QList>

namespace zokit {

namespace {

/// A packet of a program stream holds parts of so many frames of sound at most, as far as it was seen.
constexpr int mostOfOnePacket = 10;

bool isOfSound(const QByteArray& line, const MediaInfo& media)
{
    return std::any_of(media.streams.cbegin(), media.streams.cend(), [&](const MediaStream& stream) {
        return stream.track.kind == TrackKind::Audio
               && (line.startsWith('[' + stream.track.codec.toUtf8())
                   || line.startsWith("Error while decoding stream #0:" + QByteArray::number(stream.track.index)
                                      + ':'));
    });
}

} // namespace

QByteArray damageIn(const QByteArray& words, const MediaInfo& media, bool beginsInTheMiddle)
{
    const QByteArray said = words.trimmed();
    if (!beginsInTheMiddle || media.container != QLatin1String("mpeg"))
        return said;
    const QList<QByteArray> lines = said.split('\n');
    const auto errors = std::count_if(lines.cbegin(), lines.cend(),
                                      [](const QByteArray& line) { return line.startsWith("Error while decoding"); });
    const bool allOfSound =
        std::all_of(lines.cbegin(), lines.cend(), [&](const QByteArray& line) { return isOfSound(line, media); });
    return allOfSound && errors <= mostOfOnePacket ? QByteArray() : said;
}

} // namespace zokit
