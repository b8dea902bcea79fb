// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What ffprobe and ffmpeg write. The first byte tells what the others are: all about a file, the times of its packets,
// its first frame, progress, or a list of names.

#include <algorithm>
#include <cmath>

#include <zokit/probe.h>
#include <zokit/progress.h>
#include <zokit/tools.h>

#include "bytes.h"
#include "runtime.h"

namespace {

constexpr qint64 mostPixels = 67108864;
constexpr double mostSeconds = 1e8;

bool isTime(double seconds)
{
    return std::isfinite(seconds) && std::abs(seconds) < mostSeconds;
}

bool isLength(double seconds)
{
    return isTime(seconds) && seconds >= 0;
}

void checkPicture(const zokit::MediaStream& stream)
{
    const qint64 pixels = qint64(stream.coded.width()) * stream.coded.height();
    require(stream.coded.isEmpty() || pixels <= mostPixels, "a stored picture has at most 64 million pixels");
    require(stream.coded.isEmpty() == stream.shown.isEmpty(), "what is stored can be shown");
    require(qint64(stream.shown.width()) * stream.shown.height() <= mostPixels, "so has what is shown");
    require(stream.rotation >= 0 && stream.rotation < 360 && stream.rotation % 90 == 0, "it is turned by quarters");
    const int side = stream.rotation % 180 == 0 ? stream.shown.height() : stream.shown.width();
    require(stream.coded.isEmpty() || side == stream.coded.height(), "only the width follows the pixels' shape");
    require(stream.range == QLatin1String("tv") || stream.range == QLatin1String("pc"), "the range is known");
    require(!stream.matrix.isEmpty(), "the matrix is known");
    for (const zokit::Rational& rate : {stream.frameRate, stream.averageRate, stream.sampleAspect})
        require(rate.numerator >= 0 && rate.denominator > 0 && std::isfinite(rate.value()), "rates are numbers");
}

void readProbe(const QByteArray& json)
{
    const zokit::ReadMedia read = zokit::readProbe(json, QStringLiteral("/clip"));
    require(read.media.has_value() == read.error.isEmpty(), "there is a medium or a reason");
    require(read.media || !read.error.text().isEmpty(), "the reason is a sentence");
    if (!read.media)
        return;
    const zokit::MediaInfo& media = *read.media;
    require(!media.streams.isEmpty(), "a medium has a stream");
    require(isTime(media.start) && isLength(media.seconds) && media.bytes >= 0, "a medium's numbers are numbers");
    for (const zokit::MediaStream& stream : media.streams) {
        require(isTime(stream.start) && isLength(stream.seconds), "a stream's times are times");
        require(stream.track.index >= 0 && stream.sampleRate >= 0 && stream.channels >= 0 && stream.frames >= 0,
                "nothing is counted below zero");
        if (stream.track.kind == zokit::TrackKind::Video)
            checkPicture(stream);
    }
    for (const zokit::Chapter& chapter : media.chapters)
        require(isTime(chapter.from) && isTime(chapter.to), "a chapter's times are times");
    const zokit::MediaStream* const picture = media.picture();
    require(!picture || (!picture->isCover && !picture->coded.isEmpty()), "the picture can be seen");
}

/// Read in pieces, the sizes of which \a bytes tell, it is the same as in one.
void readProgress(Bytes& bytes)
{
    const int piece = 1 + bytes.below(64);
    const QByteArray all = bytes.rest();
    zokit::ProgressReader whole;
    whole.read(all);
    zokit::ProgressReader inPieces;
    for (int from = 0; from < all.size(); from += piece)
        inPieces.read(all.mid(from, piece));
    require(whole.seconds() >= 0 && std::isfinite(whole.seconds()), "the time is a time");
    require(whole.speed() >= 0 && std::isfinite(whole.speed()), "the speed is a speed");
    require(!(whole.seconds() < inPieces.seconds()) && !(inPieces.seconds() < whole.seconds())
                && whole.blocks() == inPieces.blocks() && whole.hasEnded() == inPieces.hasEnded(),
            "pieces do not matter");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Bytes bytes(data, size);
    switch (bytes.below(5)) {
    case 0:
        readProbe(bytes.rest());
        break;
    case 1:
        require(isLength(zokit::readLength(bytes.rest(), 1.5)), "a length is one");
        break;
    case 2:
        require(zokit::readHdr(bytes.rest()).size() <= 2, "light is told in two ways");
        break;
    case 3:
        readProgress(bytes);
        break;
    default: {
        const QByteArray output = bytes.rest();
        require(!zokit::readToolVersion(output).contains(QLatin1Char(' ')), "a version is a word");
        require(!zokit::readToolNames(output).contains(QString()), "names are words");
    }
    }
    return 0;
}
