// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert diff: what differs between two settings files or presets.

#include <QJsonObject>

#include <zokit/differences.h>
#include <zokit/valuetext.h>

#include "console.h"
#include "input.h"
#include "run.h"

namespace zoconvert {

int diff(const Invocation& invocation)
{
    constexpr int equal = 0;
    constexpr int different = 1;
    const std::optional<zokit::Settings> a = loadNamed(invocation.words.at(0));
    const std::optional<zokit::Settings> b = loadNamed(invocation.words.at(1));
    if (!a || !b)
        return Usage;
    QJsonArray array;
    const QVector<zokit::Difference> found = zokit::differences(*a, *b);
    for (const zokit::Difference& one : found) {
        const QString address = one.address.toString();
        if (invocation.has("json"))
            array.append(QJsonObject{{QStringLiteral("address"), address},
                                     {QStringLiteral("a"), zokit::valueAsJson(one.address, one.a)},
                                     {QStringLiteral("b"), zokit::valueAsJson(one.address, one.b)}});
        else
            console::printLine(changeText(one));
    }
    if (invocation.has("json"))
        console::printJson(array);
    if (!console::allPrinted())
        return Usage; // Trouble, as the help calls it.
    return found.isEmpty() ? equal : different;
}

QString changeText(const zokit::Difference& change)
{
    const auto shown = [&](const QVariant& value) {
        return value.isValid() ? zokit::valueAsText(change.address, value) : QStringLiteral("(none)");
    };
    return QStringLiteral("%1: %2 -> %3").arg(change.address.toString(), shown(change.a), shown(change.b));
}

} // namespace zoconvert
