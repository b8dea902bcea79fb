// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/tracks.h>

#include <algorithm>

#include <QDir>
#include <QFileInfo>

#include <zokit/properties.h>

#include "cataloguedefaults_p.h"
#include "names_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

const QString audioLanguage = QStringLiteral("audio-language");
const QString subtitleLanguage = QStringLiteral("subtitle-language");
const QString forcedSubtitles = QStringLiteral("forced-subtitles");
const QString sidecarsKey = QStringLiteral("sidecars");
const QString audioTracks = QStringLiteral("audio-tracks");
const QString subtitleTrack = QStringLiteral("subtitle-track");
const QString none = QStringLiteral("none");

/// Endings of subtitle files that a clip can have beside it.
const QStringList& subtitleEndings()
{
    static const QStringList endings{QStringLiteral("srt"), QStringLiteral("ass"), QStringLiteral("ssa"),
                                     QStringLiteral("vtt"), QStringLiteral("sup"), QStringLiteral("idx")};
    return endings;
}

bool speaks(const Track& track, const QString& language)
{
    return track.language.compare(language, Qt::CaseInsensitive) == 0;
}

TrackChoice choiceOf(const QString& sidecar)
{
    TrackChoice choice;
    choice.sidecar = sidecar;
    choice.track.kind = TrackKind::Subtitle;
    choice.track.index = -1;
    choice.track.codec = QFileInfo(sidecar).suffix().toLower();
    // The clip's name is what stands before the first of the words.
    const QStringList words = QFileInfo(sidecar).completeBaseName().split(QLatin1Char('.'));
    for (const QString& word : words.mid(1)) {
        constexpr int longestLanguage = 3;
        if (word.compare(QLatin1String("forced"), Qt::CaseInsensitive) == 0)
            choice.track.forced = true;
        else if (word.size() >= 2 && word.size() <= longestLanguage)
            choice.track.language = word.toLower();
    }
    return choice;
}

void choose(QVector<TrackChoice>& choices, int index, const Message& why)
{
    choices[index].selected = true;
    choices[index].why = why;
}

void chooseAudio(const TrackRules& rules, QVector<TrackChoice>& choices, Message* error)
{
    if (rules.audioTracks) {
        for (const int wanted : *rules.audioTracks) {
            const auto found = std::find_if(choices.begin(), choices.end(), [wanted](const TrackChoice& choice) {
                return choice.track.kind == TrackKind::Audio && choice.track.index == wanted;
            });
            if (found != choices.end())
                choose(choices, static_cast<int>(found - choices.begin()), Message(Code::ChosenByHand));
            else if (error)
                *error = Message(Code::NoSuchTrack, {QString::number(wanted)});
        }
        return;
    }
    for (const QString& language : rules.audioLanguages) {
        bool found = false;
        for (int i = 0; i < choices.size(); ++i) {
            if (choices.at(i).track.kind == TrackKind::Audio && speaks(choices.at(i).track, language)) {
                choose(choices, i, Message(Code::ChosenByLanguage, {language}));
                found = true;
            }
        }
        if (found)
            return;
    }
}

/// The first subtitle for which \a fits holds; -1 when there is none.
template <typename Fits>
int firstSubtitle(const QVector<TrackChoice>& choices, Fits fits)
{
    for (int i = 0; i < choices.size(); ++i) {
        if (choices.at(i).track.kind == TrackKind::Subtitle && fits(choices.at(i).track))
            return i;
    }
    return -1;
}

QString languageOfSound(const QVector<TrackChoice>& choices)
{
    const TrackChoice* first = nullptr;
    for (const TrackChoice& choice : choices) {
        if (choice.track.kind != TrackKind::Audio)
            continue;
        if (choice.selected)
            return choice.track.language;
        if (!first || (choice.track.isDefault && !first->track.isDefault))
            first = &choice;
    }
    return first ? first->track.language : QString();
}

void chooseSubtitle(const TrackRules& rules, QVector<TrackChoice>& choices, Message* error)
{
    if (rules.subtitleTrack) {
        const int wanted = *rules.subtitleTrack;
        const int found = firstSubtitle(choices, [wanted](const Track& track) { return track.index == wanted; });
        if (wanted < 0)
            return;
        if (found >= 0)
            choose(choices, found, Message(Code::ChosenByHand));
        else if (error)
            *error = Message(Code::NoSuchTrack, {QString::number(wanted)});
        return;
    }
    if (rules.forcedSubtitles) {
        const QString sound = languageOfSound(choices);
        int found = firstSubtitle(choices, [&](const Track& track) { return track.forced && speaks(track, sound); });
        if (found < 0)
            found = firstSubtitle(choices, [](const Track& track) { return track.forced && track.language.isEmpty(); });
        if (found >= 0) {
            choose(choices, found, Message(Code::ChosenAsForced));
            return;
        }
    }
    for (const QString& language : rules.subtitleLanguages) {
        int found =
            firstSubtitle(choices, [&](const Track& track) { return !track.forced && speaks(track, language); });
        if (found < 0)
            found = firstSubtitle(choices, [&](const Track& track) { return speaks(track, language); });
        if (found >= 0) {
            choose(choices, found, Message(Code::ChosenByLanguage, {language}));
            return;
        }
    }
    const int sidecar =
        rules.sidecars ? firstSubtitle(choices, [](const Track& track) { return track.index < 0; }) : -1;
    if (sidecar >= 0)
        choose(choices, sidecar, Message(Code::ChosenAsSidecar));
}

std::optional<QStringList> words(const QVariant& value)
{
    QStringList result;
    if (value.userType() == QMetaType::QString)
        result = value.toString().split(QLatin1Char(','));
    else if (value.userType() == QMetaType::QStringList || value.userType() == QMetaType::QVariantList)
        result = value.toStringList();
    else
        return std::nullopt;
    for (QString& word : result)
        word = word.trimmed();
    return result;
}

QStringList toWords(const QVector<int>& numbers)
{
    QStringList words;
    for (const int number : numbers)
        words.append(QString::number(number));
    return words;
}

/// The values that say which track an item is.
Values itemFor(const TrackChoice& choice)
{
    const bool sound = choice.track.kind == TrackKind::Audio;
    Values values{{sound ? keys::soundIsFile : keys::subtitleIsFile, !choice.sidecar.isEmpty()}};
    if (choice.sidecar.isEmpty())
        values.insert(keys::trackId, choice.track.index);
    else
        values.insert(keys::trackFile, choice.sidecar);
    return values;
}

bool isThatTrack(const Item& item, const Values& which)
{
    return std::all_of(which.keyBegin(), which.keyEnd(),
                       [&](const QString& key) { return item.values.value(key) == which.value(key); });
}

} // namespace

std::optional<TrackRules> trackRulesFrom(const Values& values, Message* error)
{
    TrackRules rules;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const std::optional<QStringList> list = words(it.value());
        bool understood = true;
        if (it.key() == audioLanguage || it.key() == subtitleLanguage) {
            understood = list.has_value();
            (it.key() == audioLanguage ? rules.audioLanguages : rules.subtitleLanguages) = list.value_or(QStringList());
        } else if (it.key() == forcedSubtitles || it.key() == sidecarsKey) {
            understood = it.value().userType() == QMetaType::Bool;
            (it.key() == forcedSubtitles ? rules.forcedSubtitles : rules.sidecars) = it.value().toBool();
        } else if (it.key() == audioTracks) {
            QVector<int> numbers;
            const QStringList parts = list.value_or(QStringList{it.value().toString()});
            for (const QString& part : parts) {
                bool isNumber = false;
                numbers.append(part.toInt(&isNumber));
                understood = understood && isNumber && numbers.last() >= 0;
            }
            rules.audioTracks = numbers;
        } else if (it.key() == subtitleTrack) {
            if (it.value().toString() == none) {
                rules.subtitleTrack = -1;
            } else {
                rules.subtitleTrack = it.value().toInt(&understood);
                understood = understood && *rules.subtitleTrack >= 0;
            }
        } else {
            understood = false;
        }
        if (!understood) {
            const QStringList known{audioLanguage, audioTracks,      forcedSubtitles,
                                    sidecarsKey,   subtitleLanguage, subtitleTrack};
            if (error)
                *error = known.contains(it.key())
                             ? Message(Code::TrackRule,
                                       {it.key(), list ? list->join(QLatin1Char(',')) : it.value().toString()})
                             : Message(Code::UnknownKey, {types::tracks, it.key(), nearest(it.key(), known)});
            return std::nullopt;
        }
    }
    return rules;
}

Values toValues(const TrackRules& rules)
{
    Values values;
    if (!rules.audioLanguages.isEmpty())
        values.insert(audioLanguage, rules.audioLanguages);
    if (!rules.subtitleLanguages.isEmpty())
        values.insert(subtitleLanguage, rules.subtitleLanguages);
    if (rules.forcedSubtitles)
        values.insert(forcedSubtitles, true);
    if (rules.sidecars)
        values.insert(sidecarsKey, true);
    if (rules.audioTracks)
        values.insert(audioTracks, toWords(*rules.audioTracks));
    if (rules.subtitleTrack)
        values.insert(subtitleTrack, *rules.subtitleTrack < 0 ? none : QString::number(*rules.subtitleTrack));
    return values;
}

QStringList sidecarsOf(const QString& clip)
{
    const QFileInfo info(clip);
    const QString base = info.completeBaseName() + QLatin1Char('.');
    QStringList found;
    const QFileInfoList there = info.dir().entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& file : there) {
        if (file.fileName().startsWith(base) && subtitleEndings().contains(file.suffix().toLower()))
            found.append(file.absoluteFilePath());
    }
    return found;
}

QVector<TrackChoice> chosenTracks(const TrackRules& rules, const QVector<Track>& tracks, const QStringList& sidecars,
                                  Message* error)
{
    if (error)
        *error = Message();
    QVector<TrackChoice> choices;
    for (const Track& track : tracks) {
        if (track.kind == TrackKind::Audio || track.kind == TrackKind::Subtitle)
            choices.append({track, QString(), false, Message()});
    }
    if (rules.sidecars) {
        for (const QString& sidecar : sidecars)
            choices.append(choiceOf(sidecar));
    }
    chooseAudio(rules, choices, error);
    chooseSubtitle(rules, choices, error);
    return choices;
}

Settings withTracks(const Settings& settings, const QVector<TrackChoice>& choices, const TrackRules& rules)
{
    Settings result = settings;
    for (const QString& type : {types::audio, types::subtitle}) {
        TypeSettings* target = result.find(type);
        if (!target)
            continue;
        const bool sound = type == types::audio;
        QVector<Item> items;
        QVector<Item> known = target->items;
        for (const TrackChoice& choice : choices) {
            if ((choice.track.kind == TrackKind::Audio) != sound)
                continue;
            const Values which = itemFor(choice);
            const auto there =
                std::find_if(known.begin(), known.end(), [&](const Item& item) { return isThatTrack(item, which); });
            Item item;
            if (there != known.end()) {
                item = *there;
                known.erase(there);
            } else {
                item.values = catalogueItem(type, settings.media.frame);
                for (auto it = which.cbegin(); it != which.cend(); ++it)
                    item.values.insert(it.key(), it.value());
            }
            item.selected = choice.selected;
            items.append(item);
        }
        // Files that a person added stay; tracks that the clip has no longer go.
        for (const Item& item : known) {
            if (item.values.value(keys::subtitleIsFile).toBool() || item.values.value(keys::soundIsFile).toBool())
                items.append(item);
        }
        target->items = items;
    }
    result.tracks = toValues(rules);
    return result;
}

} // namespace zokit
