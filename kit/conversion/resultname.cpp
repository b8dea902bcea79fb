// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/resultname.h>

#include <QRegularExpression>

namespace zokit {

QString usualPattern()
{
    return QStringLiteral("{name}-converted.{ending}");
}

QString resultName(const QString& pattern, const QString& name, const QString& ending, int number, int count)
{
    const QString whole = pattern.isEmpty() ? usualPattern() : pattern;
    const int width = static_cast<int>(QString::number(count).size());
    const QString digits = QString::number(number).rightJustified(width, QLatin1Char('0'));
    QString result;
    for (int i = 0; i < whole.size();) { // In one pass: a name may hold "{ending}" itself.
        const auto takes = [&](const char* word, const QString& value) {
            const int length = static_cast<int>(qstrlen(word));
            if (whole.mid(i, length) != QLatin1String(word))
                return false;
            result += value;
            i += length;
            return true;
        };
        if (!takes("{name}", name) && !takes("{ending}", ending) && !takes("{number}", digits))
            result += whole.at(i++);
    }
    return result;
}

QString wrongInPattern(const QString& pattern)
{
    if (pattern.contains(QLatin1Char('/')))
        return QStringLiteral("/");
    static const QRegularExpression word(QStringLiteral("\\{[^}]*\\}"));
    QRegularExpressionMatchIterator words = word.globalMatch(pattern);
    while (words.hasNext()) {
        const QString found = words.next().captured();
        if (found != QLatin1String("{name}") && found != QLatin1String("{ending}")
            && found != QLatin1String("{number}"))
            return found;
    }
    return {};
}

} // namespace zokit
