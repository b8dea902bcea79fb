// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert explain: the entries of the diagnostic log in words.

#include <QFile>
#include <QRegularExpression>

#include <modelevents_p.h>

#include <zokit/message.h>

#include "console.h"
#include "input.h"
#include "run.h"
#include "words.h"

namespace zoconvert {

namespace {

constexpr int lastNumber = 9999;
constexpr qint64 longestLine = 4096;

QString inWords(int number)
{
    return QString::fromUtf8(modelevents::inWords(number));
}

QString lineOf(int number)
{
    return QStringLiteral("%1: %2").arg(number).arg(inWords(number));
}

int all()
{
    for (int number = 0; number <= lastNumber; ++number) {
        if (!inWords(number).isEmpty())
            console::printLine(lineOf(number));
    }
    return Done;
}

/// Each entry of the log with its time: "zoeffectmodel(1178) : 2026/01/02 03:04:05 00000000".
int ofLog(const QString& path)
{
    QFile file(path);
    if (const QString unreadable = openedForReading(&file); !unreadable.isEmpty()) {
        console::error(unreadable);
        return Failed;
    }
    static const QRegularExpression form(
        QStringLiteral("^zoeffectmodel\\(([0-9]{1,4})\\) : ([0-9]{4}/[0-9]{2}/[0-9]{2} [0-9:]{8})"));
    int entries = 0;
    while (!file.atEnd()) {
        const QRegularExpressionMatch match = form.match(QString::fromUtf8(file.readLine(longestLine)));
        const int number = match.captured(1).toInt();
        if (!match.hasMatch() || inWords(number).isEmpty())
            continue;
        console::printLine(match.captured(2) + QStringLiteral("  ") + lineOf(number));
        ++entries;
    }
    if (entries > 0)
        return Done;
    console::error(say(Say::NotALog), path);
    return Failed;
}

} // namespace

int explain(const Invocation& invocation)
{
    if (invocation.words.isEmpty())
        return all();
    const QString& word = invocation.words.first();
    bool isNumber = false;
    const int number = word.toInt(&isNumber);
    if (!isNumber)
        return ofLog(word);
    if (inWords(number).isEmpty()) {
        console::error(say(Say::NotAnEvent, {word}));
        return Usage;
    }
    console::printLine(lineOf(number));
    return Done;
}

} // namespace zoconvert
