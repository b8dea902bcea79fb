// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "childwatch.h"

#include <utility>

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QtTest>

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
    for (const qint64 child : children()) {
        const QString state = status(QString::number(child)).value(0);
        findings.append(QStringLiteral("child %1 lives, in state %2").arg(child).arg(state));
    }
    return findings;
}

QVector<qint64> children()
{
    QVector<qint64> result;
    const QString self = QString::number(getpid());
    const QStringList entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString& entry : entries) {
        if (status(entry).value(1) == self)
            result.append(entry.toLongLong());
    }
    return result;
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

void Test::initTestCase()
{
    begin();
}

void Test::cleanup()
{
    const QStringList findings = takeFindings();
    QVERIFY2(findings.isEmpty(), qPrintable(findings.join(QStringLiteral("; "))));
}

} // namespace childwatch
