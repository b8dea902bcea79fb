// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/tracks.h>

#include <algorithm>

#include <zokit/properties.h>

#include "cataloguedefaults_p.h"
#include "languages_p.h"
#include "names_p.h"
#include "newitem_p.h"
#include "sidecars_p.h"

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

bool speaks(const Track& track, const QString& language)
{
    return sameLanguage(track.language, language);
}

void choose(QVector<TrackChoice>& choices, int index, const Message& why)
{
    choices[index].selected = true;
    choices[index].why = why;
}

/// The track of sound that is heard where nobody chooses: the first that the file marks as default, else the first; -1
/// when there is none.
int usualSound(const QVector<TrackChoice>& choices)
{
    int found = -1;
    for (int i = 0; i < choices.size(); ++i) {
        const Track& track = choices.at(i).track;
        if (track.kind == TrackKind::Audio && (found < 0 || (track.isDefault && !choices.at(found).track.isDefault)))
            found = i;
    }
    return found;
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
    // None of them is there: the track that is heard without a choice.
    const int found = rules.audioLanguages.isEmpty() ? -1 : usualSound(choices);
    if (found >= 0)
        choose(choices, found, Message(Code::ChosenAsUsual, {rules.audioLanguages.join(QStringLiteral(", "))}));
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
    for (const TrackChoice& choice : choices) {
        if (choice.track.kind == TrackKind::Audio && choice.selected)
            return choice.track.language;
    }
    const int usual = usualSound(choices);
    return usual < 0 ? QString() : choices.at(usual).track.language;
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
    int sidecar = firstSubtitle(choices, [](const Track& track) {
        return track.index < 0 && !track.forced && track.language.isEmpty(); // Of the clip as such.
    });
    if (sidecar < 0)
        sidecar = firstSubtitle(choices, [](const Track& track) { return track.index < 0 && !track.forced; });
    if (sidecar < 0)
        sidecar = firstSubtitle(choices, [](const Track& track) { return track.index < 0; });
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

/// Whether \a rules say anything of tracks of \a kind.
bool haveRule(const TrackRules& rules, TrackKind kind)
{
    if (kind == TrackKind::Audio)
        return rules.audioTracks || !rules.audioLanguages.isEmpty();
    return rules.subtitleTrack || !rules.subtitleLanguages.isEmpty() || rules.forcedSubtitles || rules.sidecars;
}

bool isThatTrack(const QString& type, const Item& item, const Values& which)
{
    const bool isFile = suitOf(type, true, item.values) == Suit::FileTrack;
    const QString key = isFile ? keys::trackFile : keys::trackId;
    return which.contains(key) && item.values.value(key) == which.value(key);
}

/// False when \a value is none of the rule \a key, or there is no such rule.
bool takeRule(const QString& key, const QVariant& value, TrackRules& rules)
{
    const std::optional<QStringList> list = words(value);
    bool understood = true;
    if (key == audioLanguage || key == subtitleLanguage) {
        understood = list && !list->contains(QString());
        (key == audioLanguage ? rules.audioLanguages : rules.subtitleLanguages) = list.value_or(QStringList());
    } else if (key == forcedSubtitles || key == sidecarsKey) {
        understood = value.userType() == QMetaType::Bool;
        (key == forcedSubtitles ? rules.forcedSubtitles : rules.sidecars) = value.toBool();
    } else if (key == audioTracks) {
        QVector<int> numbers;
        const QStringList parts = list.value_or(QStringList{value.toString()});
        for (const QString& part : parts) {
            bool isNumber = false;
            numbers.append(part.toInt(&isNumber));
            understood = understood && isNumber && numbers.last() >= 0;
        }
        rules.audioTracks = numbers;
    } else if (key == subtitleTrack && value.toString() == none) {
        rules.subtitleTrack = -1;
    } else if (key == subtitleTrack) {
        rules.subtitleTrack = value.toString().toInt(&understood); // 2.5 is no number of a track.
        understood = understood && *rules.subtitleTrack >= 0;
    } else {
        understood = false;
    }
    return understood;
}

Message refusedRule(const QString& key, const QVariant& value)
{
    const QStringList known{audioLanguage, audioTracks, forcedSubtitles, sidecarsKey, subtitleLanguage, subtitleTrack};
    if (!known.contains(key))
        return Message(Code::UnknownKey, {types::tracks, key, nearest(key, known)});
    const std::optional<QStringList> list = words(value);
    return Message(Code::TrackRule, {key, list ? list->join(QLatin1Char(',')) : value.toString()});
}

/// The values of a track that was not there before.
Values newTrack(const QString& type, const Values& which, const QSize& frame, NewTracks fresh)
{
    Values values = fresh == NewTracks::SavedDefaults ? newItem(type, kindOf(type, which), frame).values
                                                      : catalogueItem(type, frame);
    for (auto it = which.cbegin(); it != which.cend(); ++it)
        values.insert(it.key(), it.value());
    return values;
}

} // namespace

std::optional<TrackRules> trackRulesFrom(const Values& values, Message* error)
{
    TrackRules rules;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        if (takeRule(it.key(), it.value(), rules))
            continue;
        if (error)
            *error = refusedRule(it.key(), it.value());
        return std::nullopt;
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

QVector<TrackChoice> chosenTracks(const TrackRules& rules, const QVector<Track>& tracks, const QString& clip,
                                  const QStringList& sidecars, Message* error)
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
            choices.append(choiceOf(sidecar, clip));
    }
    chooseAudio(rules, choices, error);
    chooseSubtitle(rules, choices, error);
    return choices;
}

QVector<Message> missingLanguages(const TrackRules& rules, const QVector<TrackChoice>& choices)
{
    QVector<Message> missing;
    const auto look = [&](TrackKind kind, const QStringList& wanted, bool byHand, Code code) {
        QStringList there;
        bool isChosen = false;
        for (const TrackChoice& choice : choices) {
            if (choice.track.kind != kind)
                continue;
            isChosen = isChosen || (choice.selected && choice.why.code() != Code::ChosenAsUsual);
            if (!choice.track.language.isEmpty() && !there.contains(choice.track.language))
                there.append(choice.track.language);
        }
        const QString separator = QStringLiteral(", ");
        if (!wanted.isEmpty() && !byHand && !isChosen)
            missing.append(Message(code, {wanted.join(separator), there.join(separator)}));
    };
    look(TrackKind::Audio, rules.audioLanguages, rules.audioTracks.has_value(), Code::NoSoundInLanguage);
    look(TrackKind::Subtitle, rules.subtitleLanguages, rules.subtitleTrack.has_value(), Code::NoSubtitleInLanguage);
    return missing;
}

QVector<TrackChoice> withTicked(const QVector<TrackChoice>& choices, const Settings& settings, const TrackRules& rules)
{
    const TrackRules before = trackRulesFrom(settings.tracks).value_or(TrackRules());
    QVector<TrackChoice> result = choices;
    for (int i = 0; i < result.size(); ++i) {
        const TrackKind kind = result.at(i).track.kind;
        const TypeSettings* type = settings.find(kind == TrackKind::Audio ? types::audio : types::subtitle);
        if (!type || haveRule(rules, kind) || haveRule(before, kind))
            continue;
        const Values which = itemFor(result.at(i));
        const auto isTicked = [&](const Item& item) { return item.selected && isThatTrack(type->type, item, which); };
        if (std::any_of(type->items.cbegin(), type->items.cend(), isTicked))
            choose(result, i, Message(Code::ChosenByHand));
    }
    return result;
}

Settings withTracks(const Settings& settings, const QVector<TrackChoice>& choices, const TrackRules& rules,
                    NewTracks fresh)
{
    Settings result = settings;
    const bool hadSidecars = settings.tracks.value(sidecarsKey).toBool();
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
            const auto there = std::find_if(known.begin(), known.end(),
                                            [&](const Item& item) { return isThatTrack(type, item, which); });
            Item item;
            if (there != known.end()) {
                item = *there;
                known.erase(there);
            } else if (!choice.sidecar.isEmpty() && !choice.selected && !rules.sidecars) {
                continue;
            } else {
                item.values = newTrack(type, which, baseFrame(settings), fresh);
            }
            item.selected = choice.selected;
            items.append(item);
        }
        // Files that a person added stay; tracks that the clip has no longer go, and files that a rule brought.
        for (const Item& item : known) {
            const QString file = item.values.value(keys::trackFile).toString();
            if (suitOf(type, true, item.values) == Suit::FileTrack
                && !(hadSidecars && isSidecarOf(file, settings.media.file)))
                items.append(item);
        }
        target->items = items;
    }
    result.tracks = toValues(rules);
    return result;
}

} // namespace zokit
