// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/subtitlescript.h>

#include <optional>

#include <QRegularExpression>

#include "assscript_p.h"

namespace zokit {

namespace {

/// "1:02:03.45" in seconds; nothing for anything else.
std::optional<double> secondsOf(const QString& time)
{
    static const QRegularExpression form(QStringLiteral(R"(^(\d+):(\d\d):(\d\d(?:\.\d+)?)$)"));
    const QRegularExpressionMatch match = form.match(time.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    constexpr double minute = 60;
    constexpr double hour = 60 * minute;
    return match.captured(1).toDouble() * hour + match.captured(2).toDouble() * minute + match.captured(3).toDouble();
}

QString plainText(QString text)
{
    static const QRegularExpression commands(QStringLiteral(R"(\{[^}]*\})"));
    static const QRegularExpression breaks(QStringLiteral(R"(\\[Nnh])"));
    return text.remove(commands).replace(breaks, QStringLiteral(" ")).simplified();
}

} // namespace

QVector<SubtitleCue> subtitleCues(const QByteArray& ass)
{
    QVector<SubtitleCue> cues;
    QStringList names;
    bool isInEvents = false;
    for (const QByteArray& line : ass.split('\n')) {
        const QString text = QString::fromUtf8(line).trimmed();
        if (text.startsWith(QLatin1Char('[')))
            isInEvents = text.compare(QLatin1String("[Events]"), Qt::CaseInsensitive) == 0;
        if (!isInEvents)
            continue;
        const QString rest = text.section(QLatin1Char(':'), 1);
        if (text.startsWith(QLatin1String("Format:")))
            names = assNames(rest);
        if (!text.startsWith(QLatin1String("Dialogue:")))
            continue;
        const AssRow row = assRow(names, rest);
        const std::optional<double> from = secondsOf(row.value({QStringLiteral("Start")}));
        const std::optional<double> to = secondsOf(row.value({QStringLiteral("End")}));
        if (from && to && *to > *from)
            cues.append({*from, *to, plainText(row.value({QStringLiteral("Text")}))});
    }
    return cues;
}

} // namespace zokit
