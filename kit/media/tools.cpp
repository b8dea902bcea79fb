// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/tools.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QStandardPaths>

#include <zokit/child.h>

namespace zokit {

namespace {

constexpr int secondsToTell = 10;

QString found(const QString& program, const QString& folder, Message& error)
{
    if (folder.isEmpty()) {
        const QString path = QStandardPaths::findExecutable(program);
        if (path.isEmpty() && error.isEmpty())
            error = Message(Message::Code::ToolMissing, {program, QStringLiteral("ffmpeg")});
        return path;
    }
    const QFileInfo file(QDir(folder).absoluteFilePath(program));
    if (file.isFile() && file.isExecutable())
        return file.absoluteFilePath();
    if (error.isEmpty())
        error = Message(Message::Code::ToolNotInFolder, {program, folder});
    return QString();
}

/// What \a program says for \a option. A program at hand does not change while this process runs.
QByteArray said(const QString& program, const char* option)
{
    static QHash<QString, QByteArray> answers;
    const QString question = QLatin1String(option) + program;
    const auto known = answers.constFind(question);
    if (known != answers.constEnd())
        return *known;
    Command command;
    command.program = program;
    command.arguments << QStringLiteral("-hide_banner") << QString::fromLatin1(option);
    command.seconds = secondsToTell;
    const ChildResult result = run(command);
    return *answers.insert(question, result.isGood() ? result.output : QByteArray());
}

} // namespace

Tools findTools()
{
    const QString folder = qEnvironmentVariable("ZOEFFECT_FFMPEG");
    Tools tools;
    tools.ffmpeg = found(QStringLiteral("ffmpeg"), folder, tools.error);
    tools.ffprobe = found(QStringLiteral("ffprobe"), folder, tools.error);
    return tools;
}

QString toolVersion(const Tools& tools)
{
    return readToolVersion(said(tools.ffmpeg, "-version"));
}

QStringList toolFilters(const Tools& tools)
{
    return readToolNames(said(tools.ffmpeg, "-filters"));
}

QStringList toolEncoders(const Tools& tools)
{
    return readToolNames(said(tools.ffmpeg, "-encoders"));
}

QString readToolVersion(const QByteArray& output)
{
    static const QRegularExpression form(QStringLiteral("^ffmpeg version (\\S+)"));
    return form.match(QString::fromUtf8(output)).captured(1);
}

/// A row is a column of letters and dots, the name, and what it is; in the legend "=" stands for the name.
QStringList readToolNames(const QByteArray& output)
{
    static const QRegularExpression row(QStringLiteral("^ [A-Z.|]{2,6} ([A-Za-z0-9_]+) "),
                                        QRegularExpression::MultilineOption);
    QStringList names;
    QRegularExpressionMatchIterator match = row.globalMatch(QString::fromUtf8(output));
    while (match.hasNext())
        names.append(match.next().captured(1));
    return names;
}

} // namespace zokit
