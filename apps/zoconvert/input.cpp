// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "input.h"

#include <QFileInfo>

#include <zokit/presets.h>
#include <zokit/settingsfile.h>

#include "commands.h"
#include "console.h"
#include "run.h"
#include "words.h"

namespace zoconvert {

QString named(const QString& file, const QString& sentence)
{
    return sentence.isEmpty() ? sentence : QStringLiteral("%1: %2").arg(file, sentence);
}

Input loadInput(const QString& name, const Invocation& invocation)
{
    Input input;
    input.name = name;
    if (invocation.notUtf8.contains(name)) {
        input.error = named(name, say(Say::NotUtf8));
        input.code = Failed;
        return input;
    }
    const zokit::ReadSettings read = zokit::loadSettings(name);
    if (read.settings) {
        input.settings = std::make_unique<zokit::FileSettings>(*read.settings);
        return input;
    }
    input.error = read.error.text();
    input.code = QFileInfo::exists(name) ? Usage : Failed;
    return input;
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

std::optional<zokit::Settings> loadNamed(const QString& word)
{
    const zokit::Presets::Named named = zokit::Presets().loadNamed(word);
    if (named.error.isEmpty())
        return named.settings;
    console::error(named.error.text());
    return std::nullopt;
}

} // namespace zoconvert
