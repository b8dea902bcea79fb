// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "frameeffectsummary_p.h"

#include <QStringList>

namespace frameeffects {

namespace {

constexpr QLatin1Char separator('|');
const QString onWord = QStringLiteral("true");
const QString offWord = QStringLiteral("false");

} // namespace

QString summary(const QVector<State>& states)
{
    QStringList parts;
    for (const State& state : states)
        parts << state.name << (state.on ? onWord : offWord);
    return parts.join(separator);
}

std::optional<QVector<State>> states(const QString& summary, int count)
{
    const QStringList parts = summary.split(separator);
    if (count < 1 || parts.size() != 2 * qint64(count))
        return std::nullopt;
    QVector<State> result;
    result.reserve(count);
    for (int i = 0; i < count; ++i)
        result.append({parts.at(2 * i), parts.at(2 * i + 1) == onWord});
    return result;
}

} // namespace frameeffects
