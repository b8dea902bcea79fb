// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "assscript_p.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include <QRegularExpression>

namespace zokit {

namespace {

const QRegularExpression& colourCommand()
{
    // Not \clip.
    static const QRegularExpression form(QStringLiteral(R"(\\(?:[1-4]c|c(?![a-z]))(&?H?[0-9A-Fa-f]*&?))"));
    return form;
}

int fieldOf(const QStringList& names, const QStringList& any)
{
    for (const QString& name : any) {
        const int index = static_cast<int>(names.indexOf(name));
        if (index >= 0)
            return index;
    }
    return -1;
}

constexpr int hundredths = 100; // Of a second: the unit of a script's times.
constexpr int minute = 60;
constexpr int hour = 60 * minute;

/// Of "H:MM:SS.CC"; nothing where it is none. Of a moment before the first ffmpeg writes each part with a minus.
std::optional<qint64> hundredthsOf(const QString& time)
{
    static const QRegularExpression form(QStringLiteral(R"(\A\s*(-?\d+):(-?\d+):(-?\d+)\.(-?\d+)\s*\z)"));
    const QRegularExpressionMatch match = form.match(time);
    if (!match.hasMatch())
        return std::nullopt;
    const qint64 seconds =
        match.captured(1).toLongLong() * hour + match.captured(2).toLongLong() * minute + match.captured(3).toInt();
    return seconds * hundredths + match.captured(4).toInt();
}

QString timeOf(qint64 time)
{
    const qint64 seconds = time / hundredths;
    return QString::asprintf("%lld:%02lld:%02lld.%02lld", static_cast<long long>(seconds / hour),
                             static_cast<long long>(seconds % hour / minute), static_cast<long long>(seconds % minute),
                             static_cast<long long>(time % hundredths));
}

} // namespace

QString AssRow::value(const QStringList& any) const
{
    return fields.value(fieldOf(names, any));
}

void AssRow::set(const QStringList& any, const QString& value)
{
    const int index = fieldOf(names, any);
    if (index >= 0 && index < fields.size())
        fields[index] = value;
}

AssRow assRow(const QStringList& names, const QString& rest)
{
    AssRow row{names, {}};
    const int last = static_cast<int>(names.size()) - 1;
    for (int field = 0; field <= last; ++field) {
        const QString value = rest.section(QLatin1Char(','), field, field == last ? -1 : field);
        row.fields.append(field == last ? value : value.trimmed());
    }
    return row;
}

QStringList assNames(const QString& rest)
{
    QStringList names = rest.split(QLatin1Char(','));
    for (QString& name : names)
        name = name.trimmed();
    return names;
}

QString assColour(const QColor& colour, int alpha)
{
    constexpr int opaque = 255;
    return QString::asprintf("&H%02X%02X%02X%02X", static_cast<unsigned>(opaque - alpha),
                             static_cast<unsigned>(colour.blue()), static_cast<unsigned>(colour.green()),
                             static_cast<unsigned>(colour.red()));
}

bool isInColour(const QString& colour)
{
    QString digits = colour.trimmed();
    const bool isHex = digits.startsWith(QLatin1Char('&')) || digits.startsWith(QLatin1Char('H'), Qt::CaseInsensitive);
    digits.remove(QLatin1Char('&'));
    if (digits.startsWith(QLatin1Char('H'), Qt::CaseInsensitive))
        digits.remove(0, 1);
    bool ok = false;
    const qlonglong number = digits.toLongLong(&ok, isHex ? 16 : 10);
    constexpr int byte = 0xff;
    const auto part = [&](int shift) { return (number >> shift) & byte; };
    return ok && (part(0) != part(8) || part(8) != part(16));
}

bool hasColourCommands(const QString& text)
{
    QRegularExpressionMatchIterator matches = colourCommand().globalMatch(text);
    while (matches.hasNext()) {
        if (isInColour(matches.next().captured(1)))
            return true;
    }
    return false;
}

QString withoutCommands(const QString& text, bool place, bool colour, bool font)
{
    static const QRegularExpression block(QStringLiteral(R"(\{[^}]*\})"));
    static const QRegularExpression placing(QStringLiteral(R"(\\an?[0-9]+|\\(?:pos|move)\([^)]*\))"));
    static const QRegularExpression lettering(QStringLiteral(R"(\\fn[^\\}]*|\\fs[0-9.]*(?![a-z]))"));
    QString result;
    int end = 0;
    QRegularExpressionMatchIterator blocks = block.globalMatch(text);
    while (blocks.hasNext()) {
        const QRegularExpressionMatch match = blocks.next();
        QString commands = match.captured();
        if (place)
            commands.remove(placing);
        if (colour)
            commands.remove(colourCommand());
        if (font)
            commands.remove(lettering);
        result.append(text.constData() + end, match.capturedStart() - end);
        if (commands != QLatin1String("{}"))
            result += commands;
        end = static_cast<int>(match.capturedEnd());
    }
    return result + text.mid(end);
}

QByteArray cutToPart(const QByteArray& ass, double from, double seconds, double speed)
{
    static const QRegularExpression dialogue(QStringLiteral(R"(\ADialogue:([^,]*),([^,]*),([^,]*),(.*)\z)"));
    const double length = seconds > 0 ? seconds : HUGE_VAL;
    const auto moved = [&](qint64 time) {
        return timeOf(std::llround(std::clamp(double(time) / hundredths - from, 0.0, length) / speed * hundredths));
    };
    QStringList lines;
    for (const QString& line : QString::fromUtf8(ass).split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch match = dialogue.match(line);
        const std::optional<qint64> start = hundredthsOf(match.captured(2));
        const std::optional<qint64> end = hundredthsOf(match.captured(3));
        if (!start || !end)
            lines.append(line);
        else if (const QString begun = moved(*start), ended = moved(*end); begun != ended)
            lines.append(QStringLiteral("Dialogue:%1,%2,%3,").arg(match.captured(1), begun, ended) + match.captured(4));
    }
    return lines.join(QLatin1Char('\n')).toUtf8();
}

} // namespace zokit
