// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "program.h"

#include <cstdio>
#include <optional>

#include <QApplication>
#include <QCommandLineOption>
#include <QCommandLineParser>

#include "appearance.h"
#include "editor.h"
#include "instance.h"

namespace zoeditor {

namespace {

bool print(const QString& text, FILE* stream)
{
    const bool isPut = std::fputs(text.toLocal8Bit().constData(), stream) >= 0;
    return std::fflush(stream) == 0 && isPut;
}

/// The exit code, once \a text was asked for and is printed.
int printed(const QString& text)
{
    if (print(text, stdout))
        return 0;
    print(QStringLiteral("zoeditor: %1\n")
              .arg(QCoreApplication::translate("zoeditor::Program",
                                               "What was asked for cannot be written to standard output.")),
          stderr);
    return 1;
}

/// What QApplication takes out of the command line.
QList<QCommandLineOption> optionsOfQt()
{
    QList<QCommandLineOption> options{QCommandLineOption(QStringLiteral("reverse"))};
    for (const char* name : {"display", "platform", "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry",
                             "qwindowicon", "qwindowtitle", "session", "style", "stylesheet"})
        options.append(QCommandLineOption(QString::fromLatin1(name), QString(), QStringLiteral("value")));
    for (QCommandLineOption& option : options)
        option.setFlags(QCommandLineOption::HiddenFromHelp);
    return options;
}

/// Reads the command line, without a display. The exit code, when all is said; else \a files are to be opened.
std::optional<int> answer(const QStringList& arguments, QStringList* files)
{
    appearance::restoreLanguage();
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions); // As Qt reads its own.
    parser.setApplicationDescription(
        QCoreApplication::translate("zoeditor::Program", "Edits how films will be converted, and converts them."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QCoreApplication::translate("zoeditor::Program", "Shows this help."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QCoreApplication::translate("zoeditor::Program", "Shows the version."));
    parser.addOptions({help, version});
    parser.addOptions(optionsOfQt());
    parser.addPositionalArgument(
        QStringLiteral("files"),
        QCoreApplication::translate("zoeditor::Program", "Films, folders of films and settings files."),
        QCoreApplication::translate("zoeditor::Program", "[files...]"));
    constexpr int wrongUsage = 2;
    if (!parser.parse(arguments)) {
        print(parser.errorText() + QLatin1Char('\n') + parser.helpText(), stderr);
        return wrongUsage;
    }
    if (parser.isSet(version))
        return printed(QStringLiteral("zoeditor %1\n").arg(QCoreApplication::applicationVersion()));
    if (parser.isSet(help))
        return printed(parser.helpText());
    *files = parser.positionalArguments();
    return std::nullopt;
}

} // namespace

int run(int argc, char** argv)
{
    QStringList files;
    {
        const QCoreApplication reading(argc, argv);
        if (const std::optional<int> status = answer(QCoreApplication::arguments(), &files))
            return *status;
    }
    const QApplication application(argc, argv);
    Instance instance;
    return instance.handOver(files) ? 0 : edit(instance, files);
}

int edit(const Instance& instance, QStringList files, const QString& journalFolder)
{
    int status = 0;
    do {
        Editor editor(journalFolder);
        QObject::connect(&instance, &Instance::filesHandedOver, &editor, &Editor::openHandedOver);
        editor.start(files);
        status = QApplication::exec();
        files = editor.takeWaiting();
    } while (!files.isEmpty());
    return status;
}

} // namespace zoeditor
