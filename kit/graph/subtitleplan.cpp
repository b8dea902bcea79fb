// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/subtitlescript.h>

#include <algorithm>
#include <iterator>

#include <QFileInfo>

#include <zokit/graph.h>
#include <zokit/probe.h>

#include "cataloguedefaults_p.h"
#include "codecs_p.h"
#include "exactly_p.h"
#include "picture_p.h"
#include "realeffect_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

bool isSet(const Settings& settings, const char* option)
{
    return settings.output.value(QLatin1String(option)).toBool();
}

bool hasStyles(const QString& name)
{
    return name == QLatin1String("ass") || name == QLatin1String("ssa");
}

/// What of a style cannot be done to pictures.
Messages withoutEffect(const Values& track, const QSize& frame)
{
    const Values plain = catalogueItem(QStringLiteral("Subtitle"), frame);
    const char* const keys[] = {"sub_fontcolor", "sub_framecolor", "sub_fontname",
                                "sub_fontsize",  "sub_fontstyle",  "sub_linemargin"};
    const bool any = std::any_of(std::begin(keys), std::end(keys), [&](const char* name) {
        const QString key = QLatin1String(name);
        return track.contains(key) && !exactly(track.value(key), plain.value(key));
    });
    return any ? Messages{Message(Code::SubtitlePictures)} : Messages();
}

} // namespace

bool isBitmapSubtitle(const QString& codec)
{
    constexpr const char* codecs[] = {"hdmv_pgs_subtitle", "dvd_subtitle", "dvb_subtitle", "xsub"};
    return std::any_of(std::begin(codecs), std::end(codecs),
                       [&](const char* name) { return codec == QLatin1String(name); });
}

bool isBitmapSubtitleFile(const QString& path)
{
    const QString ending = QFileInfo(path).suffix().toLower();
    return ending == QLatin1String("sup") || ending == QLatin1String("idx");
}

SubtitlePlan subtitlePlan(const Settings& settings, const MediaInfo& media)
{
    SubtitlePlan plan;
    const Item* track = shownSubtitle(settings);
    if (!track)
        return plan;
    const QVector<Item>& items = selectedType(settings, "Subtitle")->items;
    plan.position = static_cast<int>(track - items.constData());

    bool isBitmap = false;
    if (track->values.value(QStringLiteral("sub_fromfile")).toBool()) {
        plan.file = track->values.value(QStringLiteral("file")).toString();
        isBitmap = isBitmapSubtitleFile(plan.file);
        plan.hasOwnStyles = hasStyles(QFileInfo(plan.file).suffix().toLower());
        plan.use = isSet(settings, "soft-subtitles") ? SubtitleUse::Soft : SubtitleUse::BurnText;
    } else {
        const QVariant number = track->values.value(QStringLiteral("trackid"));
        const MediaStream* stream = number.isValid() ? media.stream(number.toInt()) : nullptr;
        if (!stream || stream->track.kind != TrackKind::Subtitle) {
            plan.use = SubtitleUse::Missing;
            plan.error = Message(Code::NoSuchTrack, {number.toString()});
            return plan;
        }
        plan.stream = stream->track.index;
        isBitmap = isBitmapSubtitle(stream->track.codec);
        plan.hasOwnStyles = hasStyles(stream->track.codec);
        const bool styled = !isSet(settings, "soft-subtitles") && isStyled(track->values, baseFrame(settings));
        plan.use = styled || isSet(settings, "burn-subtitles") ? SubtitleUse::BurnText : SubtitleUse::Soft;
        if (plan.use == SubtitleUse::BurnText && !isBitmap && !isTextSubtitle(stream->track.codec))
            plan.error = Message(Code::SubtitleNotDrawn, {number.toString(), stream->track.codec});
    }
    if (plan.use == SubtitleUse::BurnText && isBitmap) {
        plan.use = SubtitleUse::BurnBitmap;
        plan.warnings = withoutEffect(track->values, baseFrame(settings));
    }
    return plan;
}

} // namespace zokit
