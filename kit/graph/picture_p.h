// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <QString>

#include <zokit/message.h>
#include <zokit/settings.h>

#include "chain_p.h"

namespace zokit {

struct GraphParts;
struct MediaInfo;
struct MediaStream;

/// The picture at the place that the graph has come to.
struct Picture {
    QSize frame;
    QString pixelFormat;
    QString matrix; ///< As filter scale takes it.
    QString range;  ///< "tv" or "pc".

    bool isFullRange() const;
};

/// Which numbers of a pixel stand for black, white and no colour, as expressions of filter lutyuv, at any depth.
struct Levels {
    QString low;
    QString high;
    QString middle;
    QString unchanged; ///< The value itself.
};
Levels levelsOf(const Picture& picture);

/// What the tags of a frame call a matrix that filter scale calls \a matrix.
QString spaceOf(const QString& matrix);

/// The type \a name where it is selected, else null.
const TypeSettings* selectedType(const Settings& settings, const char* name);
/// Whether there is a watermark to draw, wherever it lies.
bool hasWatermark(const Settings& settings);
/// The first selected track of subtitles, which is the one that is shown; null without.
const Item* shownSubtitle(const Settings& settings);
/// Opacity, 0 to 255, from "sub_transparency" and "sub_transfactor", cut off as that of a watermark is.
int subtitleAlpha(const Values& style);
/// From this on a picture covers what is below: 100 percent times 2.55 are 254 once the fraction is cut off.
constexpr int covering = 254;

/// \name The steps of the graph, each in a file of its name
/// @{
void addSource(Chain& chain, Picture& picture, const MediaStream& stream, const MediaInfo& media,
               const GraphParts& parts);
void addRawSource(Chain& chain, const MediaStream& stream);
void addToneMap(Chain& chain, Picture& picture, const MediaStream& stream, bool deep);
/// Whether the crop of \a settings, which have one in use, reaches out of \a frame.
bool leavesFrame(const Settings& settings, const QSize& frame);
/// Whether a part of a crop is set, and nothing is cut off, since its width or height is not.
bool cropsNothing(const Settings& settings);
bool isTurned(const Settings& settings);
/// Turns by \a angle degrees clockwise, where they are one, two or three quarters.
void addTurn(Chain& chain, int angle);
void addTurning(Chain& chain, Picture& picture, const Settings& settings);
bool changesColour(const Settings& settings);
void addColour(Chain& chain, const Picture& picture, const Settings& settings);
bool hasFrameEffects(const Settings& settings);
/// Warns of effects that leave eight bits where \a deep ones are to come out.
void addFrameEffects(Chain& chain, Picture& picture, const Settings& settings, bool deep, Messages& warnings);
void addSubtitleText(Chain& chain, const Picture& picture, const Item& track, const GraphParts& parts);
void addSubtitlePictures(Chain& chain, const Picture& picture, const Item& track, const GraphParts& parts);
void addWatermark(Chain& chain, const Picture& picture, int input);
/// @}

/// Makes a picture of RGB with opacity ready to be laid over \a picture, in its own matrix, range and format.
void addConversionFor(Chain& chain, const Picture& picture, const QString& size = QString());
/// Makes the chain ready to have something laid over it.
void prepareOverlay(Chain& chain, const Picture& picture);
/// Lays what stands at \a top over what stands at \a below, a chain after prepareOverlay().
void addOverlay(Chain& chain, const Picture& picture, const QString& below, const QString& top,
                const QString& options = QString());
/// Changes size and pixel format without changing the range, which the filter would do to full range; an empty size or
/// format stays.
void addScale(Chain& chain, Picture& picture, const QSize& size, const QString& pixelFormat);

} // namespace zokit
