// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "logcapture.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace logcapture {

QString logPath()
{
    return QDir::tempPath() + QLatin1Char('/') + QFileInfo(QCoreApplication::applicationFilePath()).fileName()
           + QStringLiteral(".1.log");
}

QString previousLogPath()
{
    return QDir::tempPath() + QLatin1Char('/') + QFileInfo(QCoreApplication::applicationFilePath()).fileName()
           + QStringLiteral(".2.log");
}

QList<int> takeEvents()
{
    QFile file(logPath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromLocal8Bit(file.readAll()).split(QLatin1Char('\n'));
    file.remove();
    lines.removeLast(); // What follows the last line break: nothing, in a whole log.

    static const QRegularExpression location(
        QStringLiteral("\\Azoeffectmodel\\((\\d+)\\) : \\d{4}/\\d{2}/\\d{2} \\d{2}:\\d{2}:\\d{2} 0{8}\\z"));
    QList<int> events;
    for (int i = 0; i < lines.size(); i += 2) {
        const QRegularExpressionMatch match = location.match(lines.at(i));
        const bool whole = match.hasMatch() && i + 1 < lines.size() && lines.at(i + 1).isEmpty();
        events << (whole ? match.captured(1).toInt() : -1);
    }
    return events;
}

} // namespace logcapture
