// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/graph.h>

#include <algorithm>

#include <zokit/probe.h>
#include <zokit/soundgraph.h>

#include "cataloguedefaults_p.h"
#include "picture_p.h"
#include "pixelformat_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

const QString outputLabel = QStringLiteral("picture");

Picture pictureOf(const Settings& settings, const MediaStream& stream)
{
    const QSize frame = settings.media.frame.isEmpty() ? stream.shown : settings.media.frame;
    return {frame, stream.pixelFormat, stream.matrix, stream.range};
}

QString inputOf(const MediaStream& stream)
{
    return QStringLiteral("[0:%1]").arg(stream.track.index);
}

bool isMapped(const Settings& settings, const MediaStream& stream)
{
    return stream.isHdr && settings.output.value(QStringLiteral("hdr")) == QLatin1String("map");
}

/// Whether a filter is to come that reads or draws YUV.
bool isDrawnOn(const Settings& settings, const GraphParts& parts)
{
    return changesColour(settings) || hasFrameEffects(settings) || parts.watermarkInput >= 0
           || !parts.subtitleScript.isEmpty() || parts.subtitleInput >= 0;
}

/// Has the frames say their range beside the format, not by it, and makes YUV of RGB and of greys where that is needed:
/// filters that do it unasked take bt601 and the limited range.
void addPlainFormat(Chain& chain, Picture& picture, bool drawnOn, const QString& wanted)
{
    if (withoutRange(picture.pixelFormat) != picture.pixelFormat) {
        addScale(chain, picture, QSize(), withoutRange(picture.pixelFormat));
    } else if (isGrey(picture.pixelFormat) && picture.isFullRange() && drawnOn) {
        constexpr int usual = 8;
        const bool isDeep = bitDepth(picture.pixelFormat) > usual;
        addScale(chain, picture, QSize(), isDeep ? QStringLiteral("yuv420p10le") : QStringLiteral("yuv420p"));
    } else if (isRgb(picture.pixelFormat) && (drawnOn || !isRgb(wanted))) {
        picture.range = QStringLiteral("tv");
        picture.pixelFormat = QStringLiteral("yuv444p");
        chain.add(QStringLiteral("scale=out_color_matrix=%1:out_range=tv:flags=accurate_rnd+full_chroma_int+"
                                 "full_chroma_inp,format=yuv444p,setparams=colorspace=%2:range=tv")
                      .arg(picture.matrix, spaceOf(picture.matrix)));
    }
}

/// Cuts, scales and hands over in \a wanted.
void addEnd(Chain& chain, Picture& picture, const Settings& settings, const QString& wanted, PictureGraph& graph)
{
    const bool even = asksForEven(wanted);
    const QRect kept = croppedTo(settings, picture.frame, even, &graph.error);
    const QSize whole = kept.isValid() ? kept.size() : picture.frame;
    const QRect asked = croppedTo(settings, picture.frame, false);
    const QSize before = asked.isValid() ? asked.size() : picture.frame;
    if (kept.isValid() && leavesFrame(settings, picture.frame))
        graph.warnings.append(Message(Code::CropCut, {sizeText(kept.size()), sizeText(picture.frame)}));
    if (cropsNothing(settings))
        graph.warnings.append(Message(Code::CropIncomplete));
    graph.size = outputSize(settings, whole);
    const bool isScaled = graph.size != whole;
    if (kept.isValid()) {
        chain.add(QStringLiteral("crop=%1:%2:%3:%4:exact=1")
                      .arg(kept.width())
                      .arg(kept.height())
                      .arg(kept.left())
                      .arg(kept.top()));
    } else if (even && !isScaled && (whole.width() % 2 != 0 || whole.height() % 2 != 0)) {
        graph.size = QSize(whole.width() - whole.width() % 2, whole.height() - whole.height() % 2);
        chain.add(QStringLiteral("crop=%1:%2:0:0:exact=1").arg(graph.size.width()).arg(graph.size.height()));
    }
    const QSize after = kept.isValid() || isScaled ? whole : graph.size;
    if (graph.error.isEmpty() && after != before)
        graph.warnings.append(Message(Code::MadeEven, {sizeText(after), sizeText(before), wanted}));
    if (even && graph.error.isEmpty() && (graph.size.width() % 2 != 0 || graph.size.height() % 2 != 0))
        graph.error = Message(Code::OddSize, {sizeText(graph.size), wanted});
    const double speed = speedFactor(settings);
    if (speed > 0 && speed != 1)
        chain.add(QStringLiteral("setpts=PTS/") + filterNumber(speed));

    if (isRgb(wanted) && !isRgb(picture.pixelFormat)) {
        const QString size =
            isScaled ? QStringLiteral("%1:%2:").arg(graph.size.width()).arg(graph.size.height()) : QString();
        chain.add(QStringLiteral("scale=%1in_color_matrix=%2:in_range=%3:flags=accurate_rnd+full_chroma_int+"
                                 "full_chroma_inp,setsar=1,format=%4")
                      .arg(size, picture.matrix, picture.range, wanted));
        return;
    }
    if (isScaled) {
        addScale(chain, picture, graph.size, QString());
        chain.add(QStringLiteral("setsar=1"));
    }
    // Last of all: an overlay may hand over a format with opacity.
    if (isScaled)
        chain.add(QStringLiteral("format=") + wanted);
    else
        addScale(chain, picture, QSize(), wanted);
}

} // namespace

PictureGraph sourceGraph(const Settings& settings, const MediaInfo& media, const GraphParts& parts)
{
    PictureGraph graph;
    const MediaStream* stream = media.picture();
    if (!stream)
        return graph;
    Picture picture = pictureOf(settings, *stream);
    Chain chain(QStringLiteral("p"));
    chain.begin(inputOf(*stream));
    addSource(chain, picture, *stream, media, parts);
    addScale(chain, picture, QSize(), stream->pixelFormat);
    graph.text = chain.endedAs(outputLabel);
    graph.size = picture.frame;
    graph.framesBefore = stream->isInterlaced ? 1 : 0;
    return graph;
}

PictureGraph pictureGraph(const Settings& settings, const MediaInfo& media, const GraphParts& parts)
{
    PictureGraph graph;
    const MediaStream* stream = media.picture();
    if (!stream)
        return graph;
    Picture picture = pictureOf(settings, *stream);
    const QString wanted = withoutRange(parts.pixelFormat.isEmpty() ? stream->pixelFormat : parts.pixelFormat);
    constexpr int usual = 8;
    const bool isDeep = bitDepth(wanted) > usual;

    Chain chain(QStringLiteral("p"));
    if (parts.rawInput) {
        chain.begin(QStringLiteral("[0:v]"));
        addRawSource(chain, *stream);
    } else {
        chain.begin(inputOf(*stream));
        addSource(chain, picture, *stream, media, parts);
        graph.framesBefore = stream->isInterlaced ? 1 : 0;
    }
    if (isMapped(settings, *stream))
        addToneMap(chain, picture, *stream, isDeep);
    addTurning(chain, picture, settings);
    const bool drawnOn = isDrawnOn(settings, parts);
    addPlainFormat(chain, picture, drawnOn, wanted);
    if (changesColour(settings))
        addColour(chain, picture, settings);
    addFrameEffects(chain, picture, settings, isDeep, graph.warnings);
    if (const Item* track = shownSubtitle(settings)) {
        if (!parts.subtitleScript.isEmpty())
            addSubtitleText(chain, picture, *track, parts);
        else if (parts.subtitleInput >= 0)
            addSubtitlePictures(chain, picture, *track, parts);
    }
    if (parts.watermarkInput >= 0)
        addWatermark(chain, picture, parts.watermarkInput);
    if (parts.countsFromShown && parts.shownFrom > parts.from)
        chain.add(QStringLiteral("setpts=PTS-round(%1/TB)").arg(filterNumber(parts.shownFrom - parts.from)));
    addEnd(chain, picture, settings, wanted, graph);

    const TypeSettings* crop = selectedType(settings, "Crop");
    graph.isNothing = !drawnOn && !isMapped(settings, *stream) && !isTurned(settings) && speedFactor(settings) == 1
                      && (!crop || isWholeFrame(crop->values, baseFrame(settings)))
                      && !settings.output.contains(QStringLiteral("size"));
    if (graph.error.isEmpty())
        graph.text = chain.endedAs(outputLabel);
    return graph;
}

} // namespace zokit
