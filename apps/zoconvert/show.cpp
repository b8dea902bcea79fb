// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert show: every value of one file, how it stands to the defaults, and what these are.

#include <QJsonObject>

#include <zokit/properties.h>
#include <zokit/valuetext.h>

#include "console.h"
#include "input.h"
#include "run.h"
#include "words.h"

namespace zoconvert {

namespace {

using zokit::Address;
using zokit::FileSettings;
using zokit::Identity;

/// What is said of one value.
struct Line {
    Address address;
    QString name; ///< Of a frame effect.
    QVariant value;
    zokit::State state = zokit::State::Default;
    QVariant byCatalogue;
    QVariant saved;
};

QString nameOf(zokit::State state)
{
    switch (state) {
    case zokit::State::Default:
        return QStringLiteral("default");
    case zokit::State::SavedDefault:
        return QStringLiteral("saved default");
    case zokit::State::Changed:
        break;
    }
    return QStringLiteral("changed");
}

void addThing(QVector<Line>& lines, const FileSettings& file, Identity thing, bool all)
{
    const zokit::Values values = file.values(thing);
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const std::optional<Address> address = file.address(thing, it.key());
        const zokit::State state = file.state(thing, it.key());
        if (!address || (!all && state == zokit::State::Default))
            continue;
        lines.append({*address, file.value(thing, QStringLiteral(":name")).toString(), it.value(), state,
                      file.catalogueDefault(thing, it.key()), file.savedDefault(thing, it.key())});
    }
}

QVector<Line> linesOf(const FileSettings& file, bool all)
{
    QVector<Line> lines;
    for (const QString& type : zokit::effectTypes()) {
        addThing(lines, file, file.type(type), all);
        for (const Identity item : file.items(type))
            addThing(lines, file, item, all);
    }
    addThing(lines, file, file.tracks(), all);
    addThing(lines, file, file.output(), all);
    return lines;
}

QJsonObject jsonOf(const Line& line)
{
    return {{QStringLiteral("address"), line.address.toString()},
            {QStringLiteral("value"), zokit::valueAsJson(line.address, line.value)},
            {QStringLiteral("state"), nameOf(line.state)},
            {QStringLiteral("default"), zokit::valueAsJson(line.address, line.byCatalogue)},
            {QStringLiteral("saved_default"), zokit::valueAsJson(line.address, line.saved)}};
}

QString textOf(const Line& line)
{
    QStringList notes;
    if (!line.name.isEmpty())
        notes.append(line.name);
    notes.append(nameOf(line.state));
    if (line.saved.isValid())
        notes.append(QStringLiteral("saved default %1").arg(zokit::valueAsText(line.address, line.saved)));
    if (line.byCatalogue.isValid() && line.state != zokit::State::Default)
        notes.append(QStringLiteral("default %1").arg(zokit::valueAsText(line.address, line.byCatalogue)));
    return line.address.toString() + QStringLiteral(" = ") + zokit::valueAsText(line.address, line.value)
           + QStringLiteral("  (") + notes.join(QStringLiteral("; ")) + QLatin1Char(')');
}

} // namespace

int show(const Invocation& invocation)
{
    const Input input = loadInput(invocation.words.first(), invocation);
    if (!input.settings) {
        console::error(input.error);
        return input.code;
    }
    for (const QString& warning : input.warnings)
        console::warning(warning, input.name);
    const QVector<Line> lines = linesOf(*input.settings, invocation.has("all"));
    if (invocation.has("json")) {
        QJsonArray array;
        for (const Line& line : lines)
            array.append(jsonOf(line));
        console::printJson(array);
        return Done;
    }
    for (const Line& line : lines)
        console::printLine(textOf(line));
    if (lines.isEmpty())
        console::note(say(Say::NothingSet), input.name);
    return Done;
}

} // namespace zoconvert
