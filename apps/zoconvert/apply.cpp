// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert apply: settings of one file for others, for all of them or for none.

#include <QJsonObject>

#include <zokit/applyfiles.h>
#include <zokit/opening.h>
#include <zokit/valuetext.h>

#include "console.h"
#include "input.h"
#include "run.h"
#include "words.h"

namespace zoconvert {

namespace {

void tellLeftTargets()
{
    for (const zokit::LeftTarget& left : zokit::takeLeftTargets()) {
        const Say what = left.state == zokit::LeftTarget::New   ? Say::LeftNew
                         : left.state == zokit::LeftTarget::Old ? Say::LeftOld
                                                                : Say::LeftOther;
        console::warning(say(what), left.path);
    }
}

/// Rules that were carried over choose among the tracks of the target's own clip.
zokit::Message chooseTracks(const Invocation& invocation, const zokit::Settings& before, zokit::Settings& after)
{
    if (after.tracks == before.tracks || after.media.file.isEmpty())
        return {};
    const ProbedInput probed = probeInput(after.media.file, invocation);
    if (!probed.media) {
        console::warning(say(Say::RulesNotTaken, {probed.error}));
        return {};
    }
    const zokit::RuledTracks ruled = zokit::tracksByRule(after, *probed.media, before.tracks);
    for (const zokit::Message& missing : ruled.warnings)
        console::warning(missing.text(), after.media.file);
    after = ruled.settings;
    return ruled.error;
}

void printChanges(const zokit::ApplyPlan& plan, bool asJson)
{
    QJsonArray array;
    for (const zokit::ApplyTarget& target : plan.targets) {
        for (const zokit::Difference& change : target.differences) {
            if (asJson)
                array.append(QJsonObject{{QStringLiteral("target"), target.name},
                                         {QStringLiteral("address"), change.address.toString()},
                                         {QStringLiteral("old"), zokit::valueAsJson(change.address, change.a)},
                                         {QStringLiteral("new"), zokit::valueAsJson(change.address, change.b)}});
            else
                console::printLine(target.name + QStringLiteral(": ") + changeText(change));
        }
    }
    if (asJson)
        console::printJson(array);
}

} // namespace

int apply(const Invocation& invocation)
{
    if (!invocation.has("items")) {
        console::error(say(Say::NeedsOption, {QStringLiteral("apply"), QStringLiteral("--items LIST")}));
        return Usage;
    }
    tellLeftTargets();
    const std::optional<zokit::Settings> from = loadNamed(invocation.words.first());
    if (!from)
        return Usage;
    const zokit::CarryOver carry{invocation.value("items").split(QLatin1Char(',')), invocation.has("add")};
    const zokit::ApplyPlan plan = zokit::planApply(
        *from, invocation.words.mid(1), carry,
        [&](const zokit::Settings& before, zokit::Settings& after) { return chooseTracks(invocation, before, after); });
    if (!plan.error.isEmpty()) {
        console::error(plan.error.text());
        return Usage;
    }
    for (const zokit::ApplyTarget& target : plan.targets) {
        for (const zokit::Message& moved : target.moved)
            console::warning(moved.text(), target.name);
    }
    const bool isDry = invocation.has("dry-run");
    if (!isDry) {
        const zokit::Message error = zokit::applyPlan(plan);
        if (!error.isEmpty()) {
            console::error(error.text());
            return Failed;
        }
    }
    if (isDry || invocation.has("json"))
        printChanges(plan, invocation.has("json"));
    return Done;
}

} // namespace zoconvert
