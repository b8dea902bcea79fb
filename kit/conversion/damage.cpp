// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "damage_p.h"

#include <algorithm>
#include <iterator>

#include <QList>

namespace zokit {

namespace {

/// A packet of a program stream holds parts of so many frames of sound at most, as far as it was seen.
constexpr int mostOfOnePacket = 10;

bool isOfSound(const QByteArray& line, const MediaInfo& media)
{
    const QByteArray decoding = QByteArrayLiteral("Error while decoding stream #");
    const QByteArray track = line.startsWith(decoding) ? line.mid(decoding.size() + 1) : QByteArray(); // Of any input.
    return std::any_of(media.streams.cbegin(), media.streams.cend(), [&](const MediaStream& stream) {
        return stream.track.kind == TrackKind::Audio
               && (line.startsWith('[' + stream.track.codec.toUtf8())
                   || track.startsWith(':' + QByteArray::number(stream.track.index) + ':'));
    });
}

/// What decoders say of frames that refer to some before the one that they begin with.
bool isOfFramesBefore(const QByteArray& line)
{
    constexpr const char* words[] = {"mmco: unref short failure", "co located POCs unavailable",
                                     "Could not find ref with POC", "reference picture missing during reorder",
                                     "Missing reference picture"};
    return std::any_of(std::begin(words), std::end(words), [&](const char* said) { return line.contains(said); });
}

} // namespace

QByteArray damageIn(const QByteArray& words, const MediaInfo& media, bool beginsInTheMiddle)
{
    const QByteArray said = words.trimmed();
    if (!beginsInTheMiddle)
        return said;
    const bool isProgramStream = media.container == QLatin1String("mpeg");
    const QList<QByteArray> lines = said.split('\n');
    const auto errors = std::count_if(lines.cbegin(), lines.cend(),
                                      [](const QByteArray& line) { return line.startsWith("Error while decoding"); });
    const bool allOfTheBeginning = std::all_of(lines.cbegin(), lines.cend(), [&](const QByteArray& line) {
        return isOfFramesBefore(line) || (isProgramStream && isOfSound(line, media));
    });
    return allOfTheBeginning && errors <= mostOfOnePacket ? QByteArray() : said;
}

} // namespace zokit
