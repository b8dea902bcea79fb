// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFileInfo>

#include <zokit/address.h>
#include <zokit/message.h>

namespace zoeditor {

/// The name of the file \a path for people: on one line, whatever is in it.
inline QString shownName(const QString& path)
{
    return zokit::onOneLine(QFileInfo(path).fileName());
}

/// "1:02:03", "2:03".
inline QString clockText(qint64 seconds)
{
    constexpr int minute = 60;
    constexpr int hour = 60 * minute;
    const auto twoDigits = [](qint64 number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
    const QString rest = QLatin1Char(':') + twoDigits(seconds % minute);
    return seconds < hour
               ? QString::number(seconds / minute) + rest
               : QString::number(seconds / hour) + QLatin1Char(':') + twoDigits(seconds % hour / minute) + rest;
}

/// The step that changes a value, for the history: it is said in the language of the moment.
inline zokit::Message changeOf(const QString& type, const QString& key)
{
    return zokit::Message(zokit::Message::Code::StepChange,
                          {zokit::Address{type, zokit::Address::ofType, key}.toString()});
}

} // namespace zoeditor
