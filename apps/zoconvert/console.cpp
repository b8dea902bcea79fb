// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "console.h"

#include <cstdio>

#include <unistd.h>

#include <QJsonDocument>

#include <zokit/message.h>

#include "words.h"

namespace zoconvert::console {

namespace {

bool isColoured()
{
    return ::isatty(STDERR_FILENO) != 0 && qEnvironmentVariableIsEmpty("NO_COLOR");
}

void complain(const char* colour, const QString& sentence, const QString& file)
{
    const bool coloured = isColoured();
    QByteArray line = coloured ? QByteArray("\x1b[") + colour + "mzoconvert:\x1b[0m " : QByteArray("zoconvert: ");
    if (!file.isEmpty())
        line += zokit::onOneLine(file).toUtf8() + ": ";
    line += zokit::onOneLine(sentence).toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
}

} // namespace

void error(const QString& sentence, const QString& file)
{
    complain("31;1", sentence, file);
}

void warning(const QString& sentence, const QString& file)
{
    complain("33;1", say(Say::Warning, {sentence}), file);
}

void note(const QString& sentence, const QString& file)
{
    complain("32;1", sentence, file);
}

void print(const QByteArray& text)
{
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
}

void printLine(const QString& line)
{
    print(zokit::onOneLine(line).toUtf8() + '\n');
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
