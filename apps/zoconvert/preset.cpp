// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert preset: settings under names, for any clip.

#include <zokit/carryover.h>
#include <zokit/presets.h>
#include <zokit/settingsfile.h>

#include "console.h"
#include "input.h"
#include "run.h"
#include "words.h"

namespace zoconvert {

namespace {

using zokit::Message;

/// What was asked for is wrong; what is there, or cannot be written, failed.
int codeOf(const Message& error)
{
    if (error.isEmpty())
        return Done;
    using Code = Message::Code;
    const bool isThere = error.code() == Code::PresetExists || error.code() == Code::FileExists;
    if (isThere)
        console::error(say(error.code() == Code::PresetExists ? Say::PresetThere : Say::FileThere, error.arguments()));
    else
        console::error(error.text());
    return isThere || error.code() == Code::FileUnwritable ? Failed : Usage;
}

int list(const zokit::Presets& presets)
{
    for (const QString& name : presets.names())
        console::printLine(name);
    return Done;
}

int showOne(const zokit::Presets& presets, const QString& name)
{
    const zokit::Presets::Loaded loaded = presets.load(name);
    if (loaded.error.isEmpty())
        console::print(zokit::writePreset(loaded.preset, QString()));
    return codeOf(loaded.error);
}

int save(const zokit::Presets& presets, const QString& name, const QString& from, const Invocation& invocation)
{
    const std::optional<zokit::Settings> settings = loadNamed(from);
    if (!settings)
        return Usage;
    QStringList what;
    if (invocation.has("items"))
        what = invocation.value("items").split(QLatin1Char(','));
    const Message error = zokit::checkCarryOver(*settings, {what, false});
    return codeOf(error.isEmpty() ? presets.save(name, zokit::presetFrom(*settings, what), invocation.has("overwrite"))
                                  : error);
}

} // namespace

int preset(const Invocation& invocation)
{
    const zokit::Presets presets;
    const QString& what = invocation.words.first();
    const QStringList words = invocation.words.mid(1);
    const bool isImport = what == QLatin1String("import");
    const int fewest = what == QLatin1String("list")                                                  ? 0
                       : isImport || what == QLatin1String("show") || what == QLatin1String("remove") ? 1
                                                                                                      : 2;
    if (!hasWords(invocation, fewest, isImport ? -1 : fewest))
        return Usage;
    const bool replace = invocation.has("overwrite");
    if (what == QLatin1String("list"))
        return list(presets);
    if (what == QLatin1String("show"))
        return showOne(presets, words.first());
    if (what == QLatin1String("save"))
        return save(presets, words.at(0), words.at(1), invocation);
    if (what == QLatin1String("remove"))
        return codeOf(presets.remove(words.first()));
    if (what == QLatin1String("rename"))
        return codeOf(presets.rename(words.at(0), words.at(1), replace));
    if (isImport) {
        zokit::Messages missing;
        const int code = codeOf(presets.import(words, replace, &missing));
        for (const zokit::Message& file : std::as_const(missing))
            console::warning(file.text());
        return code;
    }
    return codeOf(presets.exportTo(words.at(0), words.at(1), replace));
}

} // namespace zoconvert
