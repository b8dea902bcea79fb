// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert default: what a new file or item begins with.

#include <zokit/project.h>
#include <zokit/properties.h>
#include <zokit/valuetext.h>

#include "console.h"
#include "input.h"
#include "run.h"
#include "words.h"

namespace zoconvert {

namespace {

using zokit::Message;

int codeOf(const Message& error)
{
    if (error.isEmpty())
        return Done;
    console::error(error.text());
    return error.code() == Message::Code::FileUnwritable ? Failed : Usage;
}

int list(const zokit::Project& project)
{
    for (const QString& type : zokit::effectTypes()) {
        if (!project.savedValues(type).isEmpty())
            console::printLine(type);
    }
    return Done;
}

/// Said when there is nothing of this name.
bool isSaved(const zokit::Project& project, const QString& type)
{
    const QStringList types = zokit::effectTypes();
    if (!types.contains(type))
        console::error(Message(Message::Code::UnknownType, {type, zokit::nearest(type, types)}).text());
    else if (project.savedValues(type).isEmpty())
        console::error(say(Say::NoDefaultSaved, {type}));
    else
        return true;
    return false;
}

int showOne(const zokit::Project& project, const QString& type)
{
    if (!isSaved(project, type))
        return Usage;
    const zokit::Values values = project.savedValues(type);
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const zokit::Address address{type, zokit::Address::ofType, it.key()};
        console::printLine(address.toString() + QStringLiteral(" = ") + zokit::valueAsText(address, it.value()));
    }
    return Done;
}

/// \a what is a type, or an item "TYPE:POS".
int save(zokit::Project& project, const QString& what, const QString& from)
{
    const std::optional<zokit::Settings> settings = loadNamed(from);
    if (!settings)
        return Usage;
    const Message error = zokit::checkCarryOver(*settings, {{what}, false});
    if (!error.isEmpty())
        return codeOf(error);
    const zokit::FileSettings* file = project.add(*settings);
    const QString type = what.section(QLatin1Char(':'), 0, 0);
    bool isItem = false;
    const int pos = what.section(QLatin1Char(':'), 1).toInt(&isItem);
    if ((!isItem && what != type) || !zokit::effectTypes().contains(type)) {
        console::error(say(Say::NotATypeOrItem, {what}));
        return Usage;
    }
    return codeOf(project.saveDefault(isItem ? file->item(type, pos) : file->type(type)));
}

} // namespace

int defaults(const Invocation& invocation)
{
    zokit::Project project;
    const QString& what = invocation.words.first();
    const int words = what == QLatin1String("list") ? 0 : what == QLatin1String("save") ? 2 : 1;
    if (!hasWords(invocation, words, words))
        return Usage;
    if (what == QLatin1String("list"))
        return list(project);
    if (what == QLatin1String("show"))
        return showOne(project, invocation.words.at(1));
    if (what == QLatin1String("save"))
        return save(project, invocation.words.at(1), invocation.words.at(2));
    return isSaved(project, invocation.words.at(1)) ? codeOf(project.forgetDefault(invocation.words.at(1))) : Usage;
}

} // namespace zoconvert
