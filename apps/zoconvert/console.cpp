// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "console.h"

#include <cerrno>
#include <csignal>
#include <cstdio>

#include <unistd.h>

#include <QJsonDocument>

#include <zokit/message.h>

#include "words.h"

namespace zoconvert::console {

namespace {

/// What waits for a slow reader is lost when Qt is told of the end of a child meanwhile: that has to wait, too.
class NoChildEnds {
public:
    NoChildEnds()
    {
        sigset_t ends;
        ::sigemptyset(&ends);
        ::sigaddset(&ends, SIGCHLD);
        ::pthread_sigmask(SIG_BLOCK, &ends, &m_before);
    }
    ~NoChildEnds() { ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    NoChildEnds(const NoChildEnds&) = delete;
    NoChildEnds& operator=(const NoChildEnds&) = delete;

private:
    sigset_t m_before = {};
};

/// Why standard output did not take something; 0: it took all.
int notPrinted = 0;

/// What fails is told of standard output when all is written: nobody could be told of standard error.
void put(const QByteArray& bytes, std::FILE* stream)
{
    const NoChildEnds later;
    const auto size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stream) != size && stream == stdout)
        notPrinted = errno;
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
        line += zokit::onOneLine(file).toUtf8() + ": ";
    line += zokit::onOneLine(sentence).toUtf8() + '\n';
    put(line, stderr);
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

void draw(const QByteArray& bytes)
{
    put(bytes, stderr);
}

void print(const QByteArray& text)
{
    put(text, stdout);
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
    const NoChildEnds later;
    if (std::fflush(stdout) != 0)
        notPrinted = errno;
    return notPrinted == 0 && std::ferror(stdout) == 0;
}

bool isReaderGone()
{
    return notPrinted == EPIPE;
}

} // namespace zoconvert::console
