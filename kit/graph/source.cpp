// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <cmath>

#include <zokit/graph.h>
#include <zokit/probe.h>
#include <zokit/settings.h>

#include "picture_p.h"

namespace zokit {

namespace {

QString scaleOptions(const QSize& size)
{
    return QStringLiteral("%1:%2").arg(size.width()).arg(size.height());
}

bool hasSquarePixels(const MediaStream& stream)
{
    const double aspect = stream.sampleAspect.value();
    return aspect <= 0 || stream.sampleAspect.numerator == stream.sampleAspect.denominator;
}

/// Leaves out what is not in the window. In the clip's own ticks: seconds would be rounded to them, either way.
void addWindow(Chain& chain, const MediaStream& stream, const MediaInfo& media, const GraphParts& parts)
{
    const double unit = stream.timeBase.value();
    if (unit <= 0)
        return;
    const int fields = stream.isInterlaced ? 2 : 1; // The filter before has halved the ticks.
    const qint64 sought = fields * std::llround((media.start + parts.from) / unit);
    const auto ticks = [&](double seconds) {
        constexpr double noise = 1e-6;
        return qint64(std::ceil((media.start + seconds) * fields / unit - noise)) - sought;
    };
    QStringList bounds;
    if (parts.shownFrom > parts.from)
        bounds.append(QStringLiteral("start_pts=%1").arg(ticks(parts.shownFrom)));
    if (parts.shownTo > parts.from)
        bounds.append(QStringLiteral("end_pts=%1").arg(ticks(parts.shownTo)));
    if (!bounds.isEmpty())
        chain.add(QStringLiteral("trim=") + bounds.join(QLatin1Char(':')));
}

} // namespace

QString spaceOf(const QString& matrix)
{
    if (matrix == QLatin1String("bt601"))
        return QStringLiteral("smpte170m");
    if (matrix == QLatin1String("bt470"))
        return QStringLiteral("bt470bg");
    return matrix == QLatin1String("bt2020") ? QStringLiteral("bt2020nc") : matrix;
}

void addSource(Chain& chain, Picture& picture, const MediaStream& stream, const MediaInfo& media,
               const GraphParts& parts)
{
    // ffmpeg turns the picture upright by itself, before the first filter. Fields are lines only as they are stored.
    if (stream.isInterlaced) {
        constexpr int whole = 360;
        addTurn(chain, whole - stream.rotation);
        chain.add(QStringLiteral("bwdif=mode=send_frame:deint=interlaced")); // One frame of each, so the timing stays.
        addTurn(chain, stream.rotation);
    }
    addWindow(chain, stream, media, parts); // Behind what looks at the frames before and after.
    if (!hasSquarePixels(stream) || stream.shown != picture.frame || media.mayChangeSize()) {
        // In a stream that changes its size in the middle this keeps the frame that geometry is measured in.
        addScale(chain, picture, picture.frame, QString());
        chain.add(QStringLiteral("setsar=1"));
    }
}

void addRawSource(Chain& chain, const MediaStream& stream)
{
    // A raw frame brings no tags.
    const QString space = stream.colorSpace.isEmpty() ? spaceOf(stream.matrix) : stream.colorSpace;
    QString tags = QStringLiteral("setparams=range=%1:colorspace=%2").arg(stream.range, space);
    if (!stream.primaries.isEmpty())
        tags += QStringLiteral(":color_primaries=") + stream.primaries;
    if (!stream.transfer.isEmpty())
        tags += QStringLiteral(":color_trc=") + stream.transfer;
    chain.add(tags);
}

void addScale(Chain& chain, Picture& picture, const QSize& size, const QString& pixelFormat)
{
    QString options = size.isEmpty() ? QString() : scaleOptions(size);
    if (picture.isFullRange())
        options += (options.isEmpty() ? QString() : QStringLiteral(":")) + QStringLiteral("in_range=pc:out_range=pc");
    if (!options.isEmpty())
        chain.add(QStringLiteral("scale=") + options);
    if (!size.isEmpty())
        picture.frame = size;
    if (!pixelFormat.isEmpty()) {
        chain.add(QStringLiteral("format=") + pixelFormat);
        picture.pixelFormat = pixelFormat;
    }
}

void addToneMap(Chain& chain, Picture& picture, const MediaStream& stream, bool deep)
{
    // The filter refuses frames that do not say all of it.
    if (stream.colorSpace.isEmpty() || stream.primaries.isEmpty())
        chain.add(QStringLiteral("setparams=colorspace=%1:color_primaries=%2:range=%3")
                      .arg(stream.colorSpace.isEmpty() ? spaceOf(picture.matrix) : stream.colorSpace,
                           stream.primaries.isEmpty() ? QStringLiteral("bt2020") : stream.primaries, picture.range));
    picture.pixelFormat = deep ? QStringLiteral("yuv420p10le") : QStringLiteral("yuv420p");
    picture.matrix = QStringLiteral("bt709");
    picture.range = QStringLiteral("tv");
    chain.add(QStringLiteral("zscale=t=linear:npl=100,format=gbrpf32le,zscale=p=bt709,tonemap=hable:desat=0,"
                             "zscale=t=bt709:m=bt709:r=tv,format=")
              + picture.pixelFormat);
}

} // namespace zokit
