// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "chain_p.h"

namespace zokit {

namespace {

QString withBackslashes(const QString& text, const QString& before)
{
    QString result;
    for (const QChar letter : text) {
        if (before.contains(letter))
            result += QLatin1Char('\\');
        result += letter;
    }
    return result;
}

} // namespace

void Chain::begin(const QString& labels)
{
    if (!m_text.isEmpty())
        m_text += QLatin1Char(';');
    m_text += labels;
    m_afterFilter = false;
}

void Chain::add(const QString& filter)
{
    if (m_afterFilter)
        m_text += QLatin1Char(',');
    m_text += filter;
    m_afterFilter = true;
}

QStringList Chain::cut(int outputs)
{
    if (!m_afterFilter)
        add(QStringLiteral("null")); // No chain is without a filter.
    QStringList labels;
    for (int output = 0; output < outputs; ++output)
        labels.append(QLatin1Char('[') + newLabel() + QLatin1Char(']'));
    m_text += labels.join(QString());
    return labels;
}

QString Chain::newLabel()
{
    return m_name + QString::number(++m_labels);
}

QString Chain::endedAs(const QString& label) const
{
    return m_text + QLatin1Char('[') + label + QLatin1Char(']');
}

QString filterNumber(double number)
{
    constexpr int digits = 6;
    QString text = QString::number(number, 'f', digits);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

QString filterEscaped(const QString& text)
{
    // Once for the filter's options, once for the graph around it.
    return withBackslashes(withBackslashes(text, QStringLiteral("\\':")), QStringLiteral("\\'[],;"));
}

} // namespace zokit
