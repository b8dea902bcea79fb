// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "help.h"

#include <algorithm>

#include <zokit/properties.h>

#include "commands.h"
#include "words.h"

namespace zoconvert {

namespace {

constexpr int columns = 78;

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QString usageOf(const Command& command)
{
    return QStringLiteral("zoconvert %1 %2").arg(text(command.name), text(command.usage));
}

/// "-o, --output FILE"
QString spelled(const Option& option)
{
    QString result = QStringLiteral("--") + option.name;
    if (!option.letter.isEmpty())
        result.prepend(QLatin1Char('-') + option.letter + QStringLiteral(", "));
    return option.isFlag() ? result : result + QLatin1Char(' ') + option.value;
}

constexpr int below = 6; // Columns: of what stands below its name.

QString indent(int columnsLeft)
{
    return QString(columnsLeft, QLatin1Char(' '));
}

/// "Options: --all, --json", as short as can be.
QString listed(Say head, const QVector<Option>& options)
{
    QStringList names;
    for (const Option& option : options)
        names.append(QStringLiteral("--") + option.name);
    return names.isEmpty() ? QString()
                           : wrapped(say(head) + QStringLiteral(": ") + names.join(QStringLiteral(", ")), indent(0));
}

QString described(const Option& option)
{
    QString help = option.help;
    if (!option.choices.isEmpty())
        help += QStringLiteral(" (%1)").arg(option.choices.join(QStringLiteral(", ")));
    QString result = QStringLiteral("  ") + spelled(option) + QLatin1Char('\n') + wrapped(help, indent(below));
    return option.example.isEmpty() ? result : result + wrapped(say(Say::Example, {option.example}), indent(below));
}

QString section(Say head, const QString& body)
{
    return body.isEmpty() ? QString() : QLatin1Char('\n') + say(head) + QStringLiteral(":\n") + body;
}

QString section(Say head, const QVector<Option>& options, const QString& about = {})
{
    QString body = about.isEmpty() || options.isEmpty() ? QString() : wrapped(about, indent(2));
    for (const Option& option : options)
        body += described(option);
    return section(head, body);
}

QString addresses()
{
    QString body = wrapped(say(Say::AboutAddresses), indent(2));
    for (const QString& type : zokit::effectTypes() + QStringList{QStringLiteral("Tracks")}) {
        QStringList keys;
        for (const zokit::Property& property : zokit::properties()) {
            if (property.type == type && property.control != zokit::Control::None)
                keys.append(property.key);
        }
        body += wrapped(keys.join(QStringLiteral(", ")), QStringLiteral("  %1: ").arg(type));
    }
    return body;
}

QString ofProgram()
{
    QString result = wrapped(QStringLiteral("zoconvert COMMAND ..."), say(Say::HeadUsage) + QStringLiteral(": "))
                     + wrapped(say(Say::AboutProgram), indent(0));
    QString body;
    for (const Command& command : commands()) {
        body += wrapped(usageOf(command), indent(2)) + wrapped(translated(command.summary), indent(below));
    }
    result += section(Say::HeadCommands, body);
    result += section(Say::HeadEdits, edits(), say(Say::AboutEdits));
    result += section(Say::HeadOutputs, outputs(), say(Say::AboutOutputs));
    result += section(Say::HeadAddresses, addresses());
    result += section(Say::HeadExit, wrapped(say(Say::AboutExit), indent(2)));
    result += section(Say::HeadEnvironment, wrapped(say(Say::AboutEnvironment), indent(2)));
    result += section(Say::HeadFiles, wrapped(say(Say::AboutFiles), indent(2)));
    return result + QLatin1Char('\n') + wrapped(say(Say::MoreHelp), indent(0));
}

} // namespace

QString wrapped(const QString& words, const QString& first)
{
    QString result;
    QString line = first;
    bool isEmpty = true;
    for (const QString& word : words.split(QLatin1Char(' '))) {
        if (!isEmpty && line.size() + 1 + word.size() > columns) {
            result += line + QLatin1Char('\n');
            line = indent(static_cast<int>(first.size()));
            isEmpty = true;
        }
        line += isEmpty ? word : QLatin1Char(' ') + word;
        isEmpty = false;
    }
    return result + line + QLatin1Char('\n');
}

QString summary(const Command* command)
{
    const QString usage = say(Say::HeadUsage) + QStringLiteral(": ");
    if (command) {
        return wrapped(usageOf(*command), usage) + wrapped(translated(command->summary), indent(0))
               + listed(Say::HeadOptions, ownOf(*command)) + listed(Say::HeadEdits, editsOf(*command))
               + listed(Say::HeadOutputs, outputsOf(*command))
               + wrapped(say(Say::MoreOfCommand, {text(command->name)}), indent(0));
    }
    QString result = usage + QStringLiteral("zoconvert COMMAND ...\n");
    constexpr int nameColumns = 10;
    for (const Command& one : commands())
        result += wrapped(translated(one.summary),
                          QStringLiteral("  %1").arg(text(one.name), -nameColumns) + QLatin1Char(' '));
    return result + wrapped(say(Say::MoreHelp), indent(0));
}

QString help(const Command* command)
{
    if (!command)
        return ofProgram();
    QString result = wrapped(usageOf(*command), say(Say::HeadUsage) + QStringLiteral(": "));
    result += wrapped(translated(command->summary), indent(0));
    for (const char* sentence : command->about)
        result += wrapped(translated(sentence), indent(0));
    const QVector<Option> all = optionsOf(*command);
    result += section(Say::HeadOptions, ownOf(*command) + QVector<Option>{all.last()});
    result += section(Say::HeadEdits, editsOf(*command), say(Say::AboutEdits));
    result += section(Say::HeadOutputs, outputsOf(*command), say(Say::AboutOutputs));
    QString examples;
    for (const QString& example : command->examples)
        examples += wrapped(example, indent(2));
    return result + section(Say::HeadExamples, examples);
}

} // namespace zoconvert
