// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/opening.h>

#include <QDir>
#include <QFileInfo>

#include <zokit/filesettings.h>
#include <zokit/placement.h>
#include <zokit/tracks.h>

namespace zokit {

namespace {

bool isMediaName(const QString& name)
{
    static const QStringList endings =
        QStringLiteral("3g2 3gp aac ac3 aif aiff asf avi flac flv m2ts m2v m4a m4v mkv mov mp3 mp4 mpeg mpg mts oga "
                       "ogg ogv opus rm rmvb ts vob w64 wav webm wmv")
            .split(QLatin1Char(' '));
    return endings.contains(QFileInfo(name).suffix().toLower());
}

Media mediaOf(const MediaInfo& media)
{
    const MediaStream* picture = media.picture();
    return {QFileInfo(media.file).absoluteFilePath(), picture ? picture->shown : QSize(0, 0), media.seconds};
}

} // namespace

QStringList mediaFilesIn(const QString& folder, bool recursive)
{
    const QDir dir(folder);
    QStringList files;
    for (const QString& name : dir.entryList(QDir::Files, QDir::Name)) {
        if (isMediaName(name))
            files.append(dir.filePath(name));
    }
    if (!recursive)
        return files;
    for (const QString& name : dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name))
        files += mediaFilesIn(dir.filePath(name), true);
    return files;
}

Settings settingsOf(const MediaInfo& media)
{
    return tracksByRule(FileSettings(mediaOf(media)).settings(), media).settings;
}

QStringList RuledTracks::lines() const
{
    QStringList texts;
    for (const TrackChoice& choice : choices)
        texts.append(choice.line().text());
    for (const Message& warning : warnings)
        texts.append(warning.text());
    return texts;
}

RuledTracks tracksByRule(const Settings& settings, const MediaInfo& media)
{
    Message error;
    const std::optional<TrackRules> rules = trackRulesFrom(settings.tracks, &error);
    if (!rules)
        return {{}, settings, {}, error};
    const QString clip = settings.media.file;
    const QVector<TrackChoice> choices = chosenTracks(*rules, media.tracks(), clip, sidecarsOf(clip), &error);
    if (!error.isEmpty())
        return {{}, settings, {}, error};
    return {choices, withTracks(settings, choices, *rules), missingLanguages(*rules, choices), {}};
}

Settings settingsFor(const Settings& settings, const MediaInfo& media)
{
    const Media found = mediaOf(media);
    const bool isOther =
        !settings.media.frame.isEmpty() && !found.frame.isEmpty() && found.frame != settings.media.frame;
    Settings result = isOther ? rescaled(settings, found.frame) : settings;
    result.media = found;
    return result;
}

} // namespace zokit
