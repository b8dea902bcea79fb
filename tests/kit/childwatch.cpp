// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "childwatch.h"

#include <utility>

#include <unistd.h>

#include <QDir>
#include <QFile>

namespace childwatch {

namespace {

QStringList complaints;
QtMessageHandler handlerBefore = nullptr;

void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (text.contains(QLatin1String("QProcess: Destroyed while process")))
        complaints.append(text);
    handlerBefore(type, context, text);
}

/// What stands behind the name in /proc/N/stat: state, number of the parent, ... Empty when there is no such process.
QStringList status(const QString& process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString line = QString::fromUtf8(file.readAll());
    return line.mid(line.lastIndexOf(QLatin1Char(')')) + 2).split(QLatin1Char(' '));
}

} // namespace

void begin()
{
    if (!handlerBefore)
        handlerBefore = qInstallMessageHandler(handle);
}

QStringList takeFindings()
{
    QStringList findings = std::exchange(complaints, QStringList());
    const QString self = QString::number(getpid());
    const QStringList entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString& entry : entries) {
        const QStringList told = status(entry);
        if (told.value(1) == self)
            findings.append(QStringLiteral("child %1 lives, in state %2").arg(entry, told.value(0)));
    }
    return findings;
}

bool isAlive(qint64 process)
{
    const QString state = status(QString::number(process)).value(0);
    return !state.isEmpty() && state != QLatin1String("Z");
}

bool isStopped(qint64 process)
{
    return status(QString::number(process)).value(0) == QLatin1String("T");
}

} // namespace childwatch
