// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "program.h"

#include <clocale>
#include <csignal>
#include <cstring>

#include <langinfo.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#if QT_VERSION_MAJOR == 5
#include <QTextCodec>
#endif

#include <zokit/tools.h>

#include "commandline.h"
#include "commands.h"
#include "completions.h"
#include "console.h"
#include "help.h"
#include "manual.h"
#include "words.h"

namespace zoconvert {

namespace {

/// What the library says of a store that cannot be written is for people; the rest is for developers.
void sayWarnings(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type != QtDebugMsg && type != QtInfoMsg && context.category && std::strcmp(context.category, "zoeffect") == 0)
        console::warning(text);
}

/// What a build takes from the tables: "_manual", "_completions bash", "_completions zsh".
bool printMade(const QVector<QByteArray>& arguments)
{
    if (arguments == QVector<QByteArray>{"_manual"})
        console::print(manual().toUtf8());
    else if (arguments == QVector<QByteArray>{"_completions", "bash"})
        console::print(bashCompletions().toUtf8());
    else if (arguments == QVector<QByteArray>{"_completions", "zsh"})
        console::print(zshCompletions().toUtf8());
    else
        return false;
    return true;
}

void printVersion()
{
    console::printLine(QStringLiteral("zoconvert %1").arg(QCoreApplication::applicationVersion()));
    const zokit::Tools tools = zokit::findTools();
    if (tools.error.isEmpty())
        console::printLine(QStringLiteral("ffmpeg %1 (%2)").arg(zokit::toolVersion(tools), tools.ffmpeg));
    else
        console::printLine(tools.error.text());
}

int done(int code)
{
    if (console::allPrinted())
        return code;
    if (!console::isReaderGone())
        console::error(say(Say::NotPrinted));
    return code == Done ? Failed : code;
}

} // namespace

void prepareEnvironment()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static_cast<void>(std::setlocale(LC_CTYPE, ""));
    if (std::strcmp(::nl_langinfo(CODESET), "UTF-8") != 0) {
        if (!qEnvironmentVariableIsEmpty("LC_ALL")) // It would go before the next, and still says the language.
            qputenv("LC_MESSAGES", qgetenv("LC_ALL"));
        qunsetenv("LC_ALL");
        qputenv("LC_CTYPE", "C.UTF-8");
    }
#if QT_VERSION_MAJOR == 5
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
#endif
    qInstallMessageHandler(sayWarnings);
    std::signal(SIGPIPE, SIG_IGN); // Who stops reading ends no conversion.
}

int run(const QVector<QByteArray>& arguments)
{
    if (printMade(arguments))
        return done(Done);
    const Parsed parsed = parse(arguments);
    switch (parsed.wish) {
    case Parsed::Run:
        return done(parsed.command->run(parsed.invocation));
    case Parsed::Summary:
        console::print(summary(parsed.command).toUtf8());
        break;
    case Parsed::Help:
        console::print(help(parsed.command).toUtf8());
        break;
    case Parsed::Version:
        printVersion();
        break;
    case Parsed::Nonsense:
        console::error(parsed.error);
        return Usage;
    }
    return done(Done);
}

} // namespace zoconvert
