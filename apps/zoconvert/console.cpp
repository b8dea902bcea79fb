// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "console.h"

#include <cstdio>

#include <unistd.h>

#include <QJsonDocument>

#include "words.h"

namespace zoconvert::console {

namespace {

bool isTurning(ushort letter)
{
    return (letter >= 0x202a && letter <= 0x202e) || (letter >= 0x2066 && letter <= 0x2069) || letter == 0x200e
           || letter == 0x200f;
}

QString hexadecimal(ushort letter, int digits)
{
    return QString::number(letter, 16).rightJustified(digits, QLatin1Char('0'));
}

bool isColoured()
{
    return ::isatty(STDERR_FILENO) != 0 && qEnvironmentVariableIsEmpty("NO_COLOR");
}

void complain(const char* colour, const QString& sentence, const QString& file)
{
    const bool coloured = isColoured();
    QByteArray line = coloured ? QByteArray("\x1b[") + colour + "mzoconvert:\x1b[0m " : QByteArray("zoconvert: ");
    if (!file.isEmpty())
        line += escaped(file).toUtf8() + ": ";
    line += escaped(sentence).toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
}

} // namespace

QString escaped(const QString& text)
{
    QString result;
    for (const QChar letter : text) {
        const ushort code = letter.unicode();
        if (code == '\n')
            result += QLatin1String("\\n");
        else if (code == '\t')
            result += QLatin1String("\\t");
        else if (code < 0x20 || (code >= 0x7f && code < 0xa0))
            result += QLatin1String("\\x") + hexadecimal(code, 2);
        else if (isTurning(code) || letter.category() == QChar::Separator_Line
                 || letter.category() == QChar::Separator_Paragraph)
            result += QLatin1String("\\u") + hexadecimal(code, 4);
        else
            result += letter;
    }
    return result;
}

void error(const QString& sentence, const QString& file)
{
    complain("31;1", sentence, file);
}

void warning(const QString& sentence, const QString& file)
{
    complain("33;1", say(Say::Warning, {sentence}), file);
}

void print(const QByteArray& text)
{
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
}

void printLine(const QString& line)
{
    print(escaped(line).toUtf8() + '\n');
}

void printJson(const QJsonArray& array)
{
    print(QJsonDocument(array).toJson(QJsonDocument::Indented));
}

bool allPrinted()
{
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

} // namespace zoconvert::console
