// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/shell.h>

#include <QRegularExpression>

namespace zokit {

QString shellWord(const QString& word)
{
    static const QRegularExpression plain(QStringLiteral("\\A[A-Za-z0-9_./:=,@%+-]+\\z"));
    if (plain.match(word).hasMatch())
        return word;
    return QLatin1Char('\'') + QString(word).replace(QLatin1Char('\''), QLatin1String("'\\''")) + QLatin1Char('\'');
}

QString shellLine(const Command& command)
{
    QStringList words{shellWord(command.program)};
    for (const QString& argument : command.arguments)
        words.append(shellWord(argument));
    return words.join(QLatin1Char(' '));
}

QStringList shellLines(const QVector<Command>& commands, const QString& folder, bool replaces)
{
    QStringList lines;
    for (int i = 0; i < commands.size(); ++i) {
        Command command = commands.at(i);
        if (i == commands.size() - 1 && !replaces)
            command.arguments.replaceInStrings(QRegularExpression(QStringLiteral("^-y$")), QStringLiteral("-n"));
        QString line = shellLine(command);
        // What a subtitle is made from; its own script is there already.
        if (command.arguments.last() == QLatin1String("pipe:1"))
            line += QStringLiteral(" > ") + shellWord(folder + QStringLiteral("/extracted.ass"));
        lines.append(line);
    }
    return lines;
}

} // namespace zokit
