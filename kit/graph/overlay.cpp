// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/graph.h>
#include <zokit/settings.h>

#include "picture_p.h"
#include "pixelformat_p.h"

namespace zokit {

void addConversionFor(Chain& chain, const Picture& picture, const QString& size)
{
    // Unless told, the filter would take bt601 and the limited range, whatever the video has; and round.
    chain.add(
        QStringLiteral("scale=%1out_color_matrix=%2:out_range=%3:flags=accurate_rnd+full_chroma_int+full_chroma_inp")
            .arg(size, picture.matrix, picture.range));
    chain.add(QStringLiteral("format=") + overlayFormats(picture.pixelFormat).picture);
}

namespace {

/// Another sampling of colours, without mixing any.
void addSampling(Chain& chain, const Picture& picture, const QString& format)
{
    if (format.isEmpty())
        return;
    const QString range = picture.isFullRange() ? QStringLiteral("in_range=pc:out_range=pc:") : QString();
    chain.add(QStringLiteral("scale=%1flags=neighbor,format=%2").arg(range, format));
}

} // namespace

void prepareOverlay(Chain& chain, const Picture& picture)
{
    addSampling(chain, picture, overlayFormats(picture.pixelFormat).below);
}

void addOverlay(Chain& chain, const Picture& picture, const QString& below, const QString& top, const QString& options)
{
    chain.begin(below + top);
    chain.add(QStringLiteral("overlay=%1format=%2").arg(options, overlayFormats(picture.pixelFormat).overlay));
    addSampling(chain, picture, overlayFormats(picture.pixelFormat).after);
}

void addWatermark(Chain& chain, const Picture& picture, int input)
{
    prepareOverlay(chain, picture);
    const QString below = chain.cut().constFirst();
    chain.begin(QStringLiteral("[%1:v]").arg(input));
    // Long before the first frame, also of a video that begins before 0. The one picture stays to the end.
    chain.add(QStringLiteral("setpts=-3600/TB"));
    addConversionFor(chain, picture);
    const QString top = chain.cut().constFirst();
    addOverlay(chain, picture, below, top);
}

void addSubtitleText(Chain& chain, const Picture& picture, const Item& track, const GraphParts& parts)
{
    const int alpha = subtitleAlpha(track.values);
    QString filter = QStringLiteral("subtitles=filename=") + filterEscaped(parts.subtitleScript);
    if (!parts.subtitleFonts.isEmpty())
        filter += QStringLiteral(":fontsdir=") + filterEscaped(parts.subtitleFonts);
    // The filter reads absolute times. Rounded apart from the frame's time, so that there and back is the same.
    const QString shift = filterNumber(parts.from);
    if (parts.from != 0)
        chain.add(QStringLiteral("setpts=PTS+round(%1/TB)").arg(shift));
    // It draws by bt601 in limited range. Greys are the same in every matrix of that range.
    const bool drawsRightly =
        !picture.isFullRange() && (!parts.subtitleInColour || picture.matrix == QLatin1String("bt601"));
    if (drawsRightly && alpha >= covering) {
        chain.add(filter);
    } else {
        // Drawn covering on a transparent canvas, where it leaves the colours multiplied with the opacity.
        prepareOverlay(chain, picture);
        // Else ffmpeg may choose RGB for both, of which the picture would not come back as it was.
        chain.add(QStringLiteral("format=%1,split").arg(overlayFormats(picture.pixelFormat).parted));
        const QStringList parted = chain.cut(2);
        chain.begin(parted.last());
        chain.add(QStringLiteral("format=rgba,lutrgb=r=0:g=0:b=0:a=0,%1:alpha=1,format=gbrap,unpremultiply=inplace=1")
                      .arg(filter));
        if (alpha < covering)
            chain.add(QStringLiteral("lutrgb=a=val*%1/255").arg(alpha));
        chain.add(QStringLiteral("format=rgba"));
        addConversionFor(chain, picture);
        const QString top = chain.cut().constFirst();
        addOverlay(chain, picture, parted.first(), top);
    }
    if (parts.from != 0)
        chain.add(QStringLiteral("setpts=PTS-round(%1/TB)").arg(shift));
}

void addSubtitlePictures(Chain& chain, const Picture& picture, const Item& track, const GraphParts& parts)
{
    const int alpha = subtitleAlpha(track.values);
    prepareOverlay(chain, picture);
    const QString below = chain.cut().constFirst();
    chain.begin(QStringLiteral("[%1:%2]").arg(parts.subtitleInput).arg(parts.subtitleStream));
    constexpr double opaque = 255;
    if (alpha < covering)
        chain.add(QStringLiteral("format=rgba,colorchannelmixer=aa=%1").arg(filterNumber(alpha / opaque)));
    // Its canvas is the whole frame, whatever size it has.
    addConversionFor(chain, picture, QStringLiteral("%1:%2:").arg(picture.frame.width()).arg(picture.frame.height()));
    const QString top = chain.cut().constFirst();
    // They have a place of their own. What the user moved the track by, they are moved by.
    constexpr double usualPlace = 0.8;
    const QVariant place = track.values.value(QStringLiteral("sub_vposition"));
    const int moved = place.isValid() ? place.toInt() - int(usualPlace * picture.frame.height()) : 0;
    // ffmpeg ends such a track by one more picture weeks later, which would bring a last frame with it.
    const QString options = QStringLiteral("eof_action=pass:");
    addOverlay(chain, picture, below, top, moved == 0 ? options : options + QStringLiteral("y=%1:").arg(moved));
}

} // namespace zokit
