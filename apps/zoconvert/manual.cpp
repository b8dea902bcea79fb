// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "manual.h"

#include <QCoreApplication>

#include <zokit/properties.h>

#include "commands.h"
#include "words.h"

namespace zoconvert {

namespace {

/// Text as roff takes it: no letter of it is a command.
QString roff(const QString& text)
{
    QString result = text;
    result.replace(QLatin1Char('\\'), QLatin1String("\\e")).replace(QLatin1Char('-'), QLatin1String("\\-"));
    const bool isCommand = result.startsWith(QLatin1Char('.')) || result.startsWith(QLatin1Char('\''));
    return isCommand ? QStringLiteral("\\&") + result : result;
}

QString roff(const char* latin1)
{
    return roff(QString::fromLatin1(latin1));
}

QString paragraph(const QString& text)
{
    return QStringLiteral(".PP\n") + roff(text) + QLatin1Char('\n');
}

QString section(const QString& title)
{
    return QStringLiteral(".SH ") + title.toUpper() + QLatin1Char('\n');
}

QString example(const QString& line)
{
    return QStringLiteral(".PP\n.RS\n.nf\n") + roff(line) + QStringLiteral("\n.fi\n.RE\n");
}

QString roffOf(const Option& option)
{
    QString names = QStringLiteral("\\fB\\-\\-%1\\fR").arg(roff(option.name));
    if (!option.letter.isEmpty())
        names.prepend(QStringLiteral("\\fB\\-%1\\fR, ").arg(option.letter));
    if (!option.isFlag())
        names += QStringLiteral(" \\fI%1\\fR").arg(roff(option.value));
    QString help = option.help;
    if (!option.choices.isEmpty())
        help += QStringLiteral(" (%1)").arg(option.choices.join(QStringLiteral(", ")));
    if (!option.example.isEmpty())
        help += QLatin1Char(' ') + say(Say::Example, {option.example});
    return QStringLiteral(".TP\n") + names + QLatin1Char('\n') + roff(help) + QLatin1Char('\n');
}

QString roffOf(const QVector<Option>& options)
{
    QString result;
    for (const Option& option : options)
        result += roffOf(option);
    return result;
}

QString roffOf(const Command& command)
{
    QString result =
        QStringLiteral(".SS zoconvert %1\n\\fBzoconvert %1\\fR %2\n").arg(roff(command.name), roff(command.usage));
    result += paragraph(translated(command.summary));
    for (const char* sentence : command.about)
        result += paragraph(translated(sentence));
    result += roffOf(ownOf(command));
    for (const QString& line : command.examples)
        result += example(line);
    return result;
}

QString properties()
{
    QString result;
    QString type;
    for (const zokit::Property& property : zokit::properties()) {
        if (property.control == zokit::Control::None)
            continue;
        if (property.type != type)
            result += QStringLiteral(".SS %1\n").arg(property.type);
        type = property.type;
        result += QStringLiteral(".TP\n\\fB%1\\fR\n%2\n").arg(roff(property.key), roff(property.help()));
    }
    return result;
}

} // namespace

QString manual()
{
    QString page =
        QStringLiteral(".TH ZOCONVERT 1 \"\" \"zoconvert %1\"\n").arg(QCoreApplication::applicationVersion());
    page += section(QStringLiteral("Name"));
    page += QStringLiteral("zoconvert \\- ") + roff(say(Say::AboutProgram)) + QLatin1Char('\n');
    page += section(QStringLiteral("Synopsis"));
    for (const Command& command : commands())
        page += QStringLiteral(".PP\n\\fBzoconvert %1\\fR %2\n").arg(roff(command.name), roff(command.usage));
    page += QStringLiteral(".PP\n\\fBzoconvert\\fR \\-\\-version\n.PP\n\\fBzoconvert\\fR [COMMAND] \\-h | \\-\\-help\n"
                           ".PP\n\\fBzoconvert\\fR help [COMMAND]\n");
    page += section(say(Say::HeadCommands));
    for (const Command& command : commands())
        page += roffOf(command);
    page += section(say(Say::HeadEdits)) + roff(say(Say::AboutEdits)) + QLatin1Char('\n') + roffOf(edits());
    page += section(say(Say::HeadOutputs)) + roff(say(Say::AboutOutputs)) + QLatin1Char('\n') + roffOf(outputs());
    page += section(say(Say::HeadAddresses)) + roff(say(Say::AboutAddresses)) + QLatin1Char('\n') + properties();
    page += section(say(Say::HeadExit)) + roff(say(Say::AboutExit)) + QLatin1Char('\n');
    page += section(say(Say::HeadEnvironment)) + roff(say(Say::AboutEnvironment)) + QLatin1Char('\n');
    page += section(say(Say::HeadFiles)) + roff(say(Say::AboutFiles)) + QLatin1Char('\n');
    return page;
}

} // namespace zoconvert
