// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "console.h"

#include <QTextStream>

#include <cstdio>

namespace {

void printLine(std::FILE* stream, QString line)
{
    for (QChar& character : line) {
        if (character.category() == QChar::Other_Control)
            character = '?';
    }
    QTextStream(stream) << line << '\n';
}

} // namespace

Failure wrongUsage(const QString& sentence)
{
    return {sentence + " (zopreview --help tells more)", 2};
}

void say(const QString& line)
{
    printLine(stdout, line);
}

void say(const QString& label, const QString& text)
{
    constexpr int column = 18;
    say(label.leftJustified(column) + text);
}

void complain(const Failure& failure)
{
    printLine(stderr, "zopreview: " + failure.sentence);
}
