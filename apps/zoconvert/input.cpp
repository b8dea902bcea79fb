// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "input.h"

#include <QFileInfo>

#include <zokit/opening.h>
#include <zokit/presets.h>
#include <zokit/settingsfile.h>
#include <zokit/tracks.h>

#include "commands.h"
#include "console.h"
#include "edits.h"
#include "run.h"
#include "words.h"

namespace zoconvert {

QString named(const QString& file, const QString& sentence)
{
    return sentence.isEmpty() ? sentence : QStringLiteral("%1: %2").arg(file, sentence);
}

ProbedInput probeInput(const QString& name, const Invocation& invocation)
{
    if (invocation.notUtf8.contains(name))
        return {std::nullopt, named(name, say(Say::NotUtf8))};
    static const zokit::Tools tools = zokit::findTools();
    if (!tools.error.isEmpty())
        return {std::nullopt, tools.error.text()};
    const zokit::ReadMedia read = zokit::probe(tools, name);
    const QString error = read.error.text();
    return {read.media, read.error.arguments().contains(name) ? error : named(name, error)};
}

namespace {

/// \a input with the tracks of its clip: those of the rules selected, each an item. \a before: the rules that it had.
/// The sentence says why not.
QString chooseTracks(Input& input, const zokit::MediaInfo& media, const zokit::Values& before)
{
    const zokit::RuledTracks ruled = zokit::tracksByRule(input.settings->settings(), media, before);
    if (ruled.error.isEmpty())
        input.settings->setSettings(ruled.settings);
    for (const zokit::Message& missing : ruled.warnings)
        input.warnings.append(missing.text());
    return ruled.error.text();
}

void loadMedia(Input& input, const Invocation& invocation)
{
    zokit::Settings ahead;
    input.error = settingsAhead(input.name, std::nullopt, invocation, &ahead);
    input.code = Usage;
    if (!input.error.isEmpty())
        return;
    const ProbedInput probed = probeInput(input.name, invocation);
    if (!probed.media) {
        input.error = probed.error;
        input.code = Failed;
        return;
    }
    input = inputOf(input.name, *probed.media);
}

void loadSettings(Input& input, const Invocation& invocation)
{
    if (invocation.notUtf8.contains(input.name)) {
        input.error = named(input.name, say(Say::NotUtf8));
        input.code = Failed;
        return;
    }
    const zokit::ReadSettings read = zokit::loadSettings(input.name);
    if (read.settings) {
        input.settings = std::make_unique<zokit::FileSettings>(*read.settings);
        for (const zokit::Message& warning : read.warnings)
            input.warnings.append(warning.text());
        return;
    }
    input.error = read.error.text();
    input.code = QFileInfo::exists(input.name) ? Usage : Failed;
}

} // namespace

Input loadInput(const QString& name, const Invocation& invocation)
{
    Input input;
    input.name = name;
    if (name.endsWith(QLatin1String(".json")))
        loadSettings(input, invocation);
    else
        loadMedia(input, invocation);
    return input;
}

Input inputOf(const QString& name, const zokit::MediaInfo& media)
{
    Input input;
    input.name = name;
    input.media = media;
    input.settings = std::make_unique<zokit::FileSettings>(zokit::settingsOf(media));
    return input;
}

Input inputOf(const QString& name, const zokit::Settings& settings, const zokit::MediaInfo& media)
{
    Input input;
    input.name = name;
    input.media = media;
    zokit::RuledTracks tracks;
    input.settings = std::make_unique<zokit::FileSettings>(zokit::settingsFor(settings, media, &tracks));
    const QSize told = settings.media.frame;
    const QSize found = input.settings->media().frame;
    if (!told.isEmpty() && !found.isEmpty() && told != found)
        input.warnings.append(rescaledText(told, found));
    for (const zokit::Message& missing : std::as_const(tracks.warnings))
        input.warnings.append(missing.text());
    if (!tracks.error.isEmpty()) {
        input.error = named(name, tracks.error.text());
        input.code = Usage;
    }
    return input;
}

void edit(Input& input, const Invocation& invocation)
{
    const zokit::Values rules = input.settings->settings().tracks;
    const QString clip = input.settings->media().file;
    QString error = applyEdits(invocation.edits, *input.settings, &input.warnings);
    const bool choosesTracks = error.isEmpty() && input.settings->settings().tracks != rules;
    if (choosesTracks && !input.media && !clip.isEmpty()) {
        const ProbedInput probed = probeInput(clip, invocation);
        input.media = probed.media;
        if (!probed.media)
            input.warnings.append(say(Say::RulesNotTaken, {probed.error}));
    }
    if (choosesTracks && input.media)
        error = chooseTracks(input, *input.media, rules);
    else if (error.isEmpty() && !input.error.isEmpty())
        return; // The rules of the settings ask for what is not there.
    input.error = named(input.name, error);
    input.code = error.isEmpty() ? Done : Usage;
}

QString settingsAhead(const QString& name, const std::optional<zokit::Settings>& loaded, const Invocation& invocation,
                      zokit::Settings* settings)
{
    zokit::MediaInfo clip;
    clip.file = name;
    zokit::FileSettings ahead(loaded ? *loaded : zokit::settingsOf(clip));
    const QString refused = applyAhead(invocation.edits, ahead);
    *settings = ahead.settings();
    for (auto it = invocation.output.cbegin(); it != invocation.output.cend(); ++it)
        settings->output.insert(it.key(), it.value());
    return named(name, refused);
}

bool hasWords(const Invocation& invocation, int fewest, int most)
{
    const auto count = invocation.words.size() - 1;
    const QString usage = QStringLiteral("%1 %2").arg(QString::fromLatin1(invocation.command->name),
                                                      QString::fromLatin1(invocation.command->usage));
    if (count < fewest)
        console::error(say(Say::TooFewWords, {usage}));
    else if (most >= 0 && count > most)
        console::error(say(Say::TooManyWords, {invocation.words.at(most + 1), usage}));
    else
        return true;
    return false;
}

QString openedForReading(QFile* file)
{
    using Code = zokit::Message::Code;
    const zokit::Message wrong = zokit::checkInput(file->fileName());
    if (!wrong.isEmpty() && wrong.code() != Code::InputEmpty)
        return wrong.text();
    return file->open(QIODevice::ReadOnly)
               ? QString()
               : zokit::Message(Code::FileUnreadable, {file->fileName(), file->errorString()}).text();
}

std::optional<zokit::Settings> loadNamed(const QString& word)
{
    const zokit::Presets::Named named = zokit::Presets().loadNamed(word);
    if (named.error.isEmpty())
        return named.settings;
    console::error(named.error.text());
    return std::nullopt;
}

} // namespace zoconvert
