// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert probe: what media files consist of.

#include <QJsonObject>

#include <zokit/probe.h>

#include "console.h"
#include "input.h"
#include "outputs.h"
#include "run.h"

namespace zoconvert {

namespace {

QString nameOf(zokit::TrackKind kind)
{
    switch (kind) {
    case zokit::TrackKind::Video:
        return QStringLiteral("video");
    case zokit::TrackKind::Audio:
        return QStringLiteral("audio");
    case zokit::TrackKind::Subtitle:
        return QStringLiteral("subtitle");
    case zokit::TrackKind::Attachment:
        return QStringLiteral("attachment");
    case zokit::TrackKind::Data:
        break;
    }
    return QStringLiteral("data");
}

QJsonObject jsonOf(const zokit::MediaStream& stream)
{
    QJsonObject json{
        {QStringLiteral("index"), stream.track.index},  {QStringLiteral("kind"), nameOf(stream.track.kind)},
        {QStringLiteral("codec"), stream.track.codec},  {QStringLiteral("language"), stream.track.language},
        {QStringLiteral("title"), stream.track.title},  {QStringLiteral("default"), stream.track.isDefault},
        {QStringLiteral("forced"), stream.track.forced}};
    if (stream.track.kind == zokit::TrackKind::Video) {
        json.insert(QStringLiteral("width"), stream.shown.width());
        json.insert(QStringLiteral("height"), stream.shown.height());
        json.insert(QStringLiteral("cover"), stream.isCover);
        json.insert(QStringLiteral("fps"), stream.averageRate.value());
        json.insert(QStringLiteral("pixel_format"), stream.pixelFormat);
        json.insert(QStringLiteral("rotation"), stream.rotation);
        json.insert(QStringLiteral("interlaced"), stream.isInterlaced);
        json.insert(QStringLiteral("hdr"), stream.isHdr);
    } else if (stream.track.kind == zokit::TrackKind::Audio) {
        json.insert(QStringLiteral("sample_rate"), stream.sampleRate);
        json.insert(QStringLiteral("channels"), stream.channels);
    }
    return json;
}

QJsonObject jsonOf(const zokit::MediaInfo& media)
{
    QJsonArray streams;
    for (const zokit::MediaStream& stream : media.streams)
        streams.append(jsonOf(stream));
    return {{QStringLiteral("file"), media.file},
            {QStringLiteral("container"), media.container},
            {QStringLiteral("seconds"), media.seconds},
            {QStringLiteral("streams"), streams}};
}

QString textOf(const zokit::MediaStream& stream)
{
    QStringList words{QStringLiteral("  %1").arg(stream.track.index), nameOf(stream.track.kind), stream.track.codec};
    if (stream.track.kind == zokit::TrackKind::Video)
        words.append(zokit::sizeText(stream.shown));
    if (stream.track.kind == zokit::TrackKind::Audio)
        words.append(QStringLiteral("%1 Hz").arg(stream.sampleRate));
    if (!stream.track.language.isEmpty())
        words.append(stream.track.language);
    if (!stream.track.title.isEmpty())
        words.append(QLatin1Char('"') + stream.track.title + QLatin1Char('"'));
    for (const auto& [isSo, word] :
         {std::make_pair(stream.isInterlaced, "interlaced"), std::make_pair(stream.isCover, "cover"),
          std::make_pair(stream.track.isDefault, "default"), std::make_pair(stream.track.forced, "forced")}) {
        if (isSo)
            words.append(QString::fromLatin1(word));
    }
    return words.join(QLatin1Char(' '));
}

} // namespace

int probe(const Invocation& invocation)
{
    FileJobs files;
    if (const QString refused = collectInputs(invocation, &files); !refused.isEmpty()) {
        console::error(refused);
        return Usage;
    }
    QJsonArray array;
    std::size_t failures = 0;
    for (const FileJob& file : files) {
        const ProbedInput input =
            file.error.isEmpty() ? probeInput(file.clip, invocation) : ProbedInput{std::nullopt, file.error};
        if (!input.media) {
            console::error(input.error, file.loaded && file.error.isEmpty() ? file.input : QString());
            ++failures;
        } else if (invocation.has("json")) {
            array.append(jsonOf(*input.media));
        } else {
            console::printLine(
                QStringLiteral("%1: %2, %3 s").arg(file.input, input.media->container).arg(input.media->seconds));
            for (const zokit::MediaStream& stream : input.media->streams)
                console::printLine(textOf(stream));
        }
    }
    if (invocation.has("json"))
        console::printJson(array);
    if (failures == 0)
        return Done;
    return failures == files.size() ? Failed : Partly;
}

} // namespace zoconvert
