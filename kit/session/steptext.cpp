// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "steptext_p.h"

#include <algorithm>

#include <zokit/filesettings.h>
#include <zokit/project.h>
#include <zokit/properties.h>

#include "things_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

/// What became of the items of \a type; of one that moves, its list changes only in its order.
Message describeList(const QString& type, const Change& change)
{
    const auto before = change.before.toList().size();
    const auto after = change.after.toList().size();
    if (before == after)
        return Message(Code::StepMove, oneItemOf(type));
    const bool isOne = before - after == 1 || after - before == 1;
    return Message(before < after ? Code::StepAdd : Code::StepRemove, isOne ? oneItemOf(type) : QStringList{type});
}

/// The change by which a whole file came or went: files alone have a width.
const Change* fileIn(const Project& project, const Changes& changes)
{
    const auto found = std::find_if(changes.cbegin(), changes.cend(), [&](const Change& change) {
        if (change.key != QLatin1String("width") || change.before.isValid() == change.after.isValid())
            return false;
        return change.after.isValid() == (project.file(change.thing) != nullptr);
    });
    return found == changes.cend() ? nullptr : &*found;
}

/// What kind of thing a change of values concerns: "Color:bcs_contrast", the type, or one of its items.
QStringList aboutWhat(const Project& project, const Change& change)
{
    const FileSettings* file = project.fileOf(change.thing);
    const std::optional<Address> address = file ? file->address(change.thing, change.key) : std::nullopt;
    if (!address)
        return {change.key};
    if (findProperty(address->type, change.key))
        return {Address{address->type, Address::ofType, change.key}.toString()};
    return address->pos == Address::ofType ? QStringList{address->type} : oneItemOf(address->type);
}

} // namespace

Message describe(const Project& project, const Changes& changes)
{
    const auto isList = [](const Change& change) { return change.key == own::items; };
    if (const Change* file = fileIn(project, changes))
        return Message(file->after.isValid() ? Code::StepAddFile : Code::StepRemoveFile);
    const auto list = std::find_if(changes.cbegin(), changes.cend(), isList);
    if (list != changes.cend()) {
        const FileSettings* file = project.fileOf(list->thing);
        const std::optional<Address> address = file ? file->address(list->thing, list->key) : std::nullopt;
        if (std::count_if(changes.cbegin(), changes.cend(), isList) > 1)
            return Message(Code::StepMany, {QString::number(changes.size())});
        return describeList(address ? address->type : QString(), *list);
    }
    // Values that only follow ("selected", the place of an anchored item) do not name the step.
    Changes named;
    std::copy_if(changes.cbegin(), changes.cend(), std::back_inserter(named),
                 [](const Change& change) { return change.key != own::selected && !isInternal(change.key); });
    if (named.isEmpty())
        return Message(Code::StepSelect, aboutWhat(project, changes.first()));
    if (!project.fileOf(named.first().thing))
        return Message(Code::StepDefault);
    const bool oneThing = std::all_of(named.cbegin(), named.cend(),
                                      [&](const Change& change) { return change.thing == named.first().thing; });
    if (oneThing)
        return Message(Code::StepChange, aboutWhat(project, named.first()));
    return Message(Code::StepMany, {QString::number(named.size())});
}

} // namespace zokit
