// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/opening.h>

#include <algorithm>

#include <QDir>
#include <QFileInfo>

#include <zokit/filesettings.h>
#include <zokit/placement.h>
#include <zokit/tracks.h>

namespace zokit {

namespace {

/// Whether \a settings name tracks of the clip, or files that a rule found beside it: written by hand they need not.
bool nameTracks(const Settings& settings)
{
    const bool hasSidecars = settings.tracks.value(QStringLiteral("sidecars")).toBool();
    for (const char* name : {"Audio", "Subtitle"}) {
        const TypeSettings* type = settings.find(QLatin1String(name));
        const auto isOfClip = [&](const Item& item) {
            const bool isSound = item.values.value(QStringLiteral("audio_isfile")).toBool();
            const bool isSubtitle = item.values.value(QStringLiteral("sub_fromfile")).toBool();
            return (!isSound && !isSubtitle) || (hasSidecars && type->type == QLatin1String("Subtitle"));
        };
        if (type && std::any_of(type->items.cbegin(), type->items.cend(), isOfClip))
            return true;
    }
    return false;
}

Media mediaOf(const MediaInfo& media)
{
    const MediaStream* picture = media.picture();
    return {QFileInfo(media.file).absoluteFilePath(), picture ? picture->shown : QSize(0, 0), media.seconds};
}

RuledTracks ruled(const Settings& settings, const MediaInfo& media, const Values& before, NewTracks fresh)
{
    Message error;
    const std::optional<TrackRules> rules = trackRulesFrom(settings.tracks, &error);
    if (!rules)
        return {{}, settings, {}, error};
    const QString clip = settings.media.file;
    const QVector<TrackChoice> byRules = chosenTracks(*rules, media.tracks(), clip, sidecarsOf(clip), &error);
    if (!error.isEmpty())
        return {{}, settings, {}, error};
    Settings present = settings;
    present.tracks = before;
    const QVector<TrackChoice> choices = withTicked(byRules, present, *rules);
    return {choices, withTracks(settings, choices, *rules, fresh), missingLanguages(*rules, choices), {}};
}

} // namespace

QStringList mediaEndings()
{
    static const QStringList endings =
        QStringLiteral("3g2 3gp aac ac3 aif aiff asf avi flac flv m2ts m2v m4a m4v mkv mov mp3 mp4 mpeg mpg mts oga "
                       "ogg ogv opus rm rmvb ts vob w64 wav webm wmv")
            .split(QLatin1Char(' '));
    return endings;
}

// NOLINTNEXTLINE(misc-no-recursion): folders nest.
QStringList mediaFilesIn(const QString& folder, bool recursive)
{
    const QDir dir(folder);
    QStringList files;
    for (const QString& name : dir.entryList(QDir::Files, QDir::Name)) {
        if (mediaEndings().contains(QFileInfo(name).suffix().toLower()))
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
    return ruled(FileSettings(mediaOf(media)).settings(), media, {}, NewTracks::SavedDefaults).settings;
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

RuledTracks tracksByRule(const Settings& settings, const MediaInfo& media, const Values& before)
{
    return ruled(settings, media, before, NewTracks::CatalogueDefaults);
}

Settings settingsFor(const Settings& settings, const MediaInfo& media, RuledTracks* tracks)
{
    const Media found = mediaOf(media);
    const bool isOther =
        !settings.media.frame.isEmpty() && !found.frame.isEmpty() && found.frame != settings.media.frame;
    Settings result = isOther ? rescaled(settings, found.frame) : settings;
    result.media = found;
    if (result.tracks.isEmpty() || nameTracks(result))
        return result;
    const RuledTracks chosen = tracksByRule(result, media);
    if (tracks)
        *tracks = chosen;
    return chosen.settings;
}

} // namespace zokit
