// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Preloaded into zoeditor, which is given a clip: once that is read, makes the window as small as it is meant to work,
// goes through things, pages and dialogs, and writes a line for each text that is cut off, and some of the texts.
// Closes the window.

#include <cstdio>

#include <QtWidgets>

#include "cutoff.h"

namespace {

void say(const QString& what, const QString& text)
{
    std::printf("%s: %s\n", qPrintable(what), text.toUtf8().constData());
}

void settle()
{
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

QWidget* windowWithItsFile()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        const bool isRead = widget->windowTitle().contains(QLatin1String(".mkv"));
        if (isRead && widget->objectName() == QLatin1String("window"))
            return widget;
    }
    return nullptr;
}

void measure(const QWidget& shown, const QString& what)
{
    settle();
    for (const QString& fault : cutOff(shown))
        say(QStringLiteral("cut off in ") + what, fault);
}

void goThrough(QWidget& window)
{
    window.resize(1024, 640);
    settle();
    say(QStringLiteral("size"), QStringLiteral("%1x%2").arg(window.width()).arg(window.height()));
    QStringList menus;
    for (const QAction* menu : window.findChild<QMenuBar*>()->actions())
        menus.append(menu->text().remove(QLatin1Char('&')));
    say(QStringLiteral("menus"), menus.join(QLatin1String(", ")));

    QStringList things;
    auto* tree = window.findChild<QTreeView*>(QStringLiteral("effectTree"));
    for (QModelIndex row = tree->model()->index(0, 0); row.isValid(); row = row.siblingAtRow(row.row() + 1)) {
        tree->setCurrentIndex(row);
        things.append(row.data().toString());
        measure(window, things.last());
    }
    say(QStringLiteral("things"), things.join(QLatin1String(", ")));
    window.findChild<QTabWidget*>(QStringLiteral("pages"))->setCurrentIndex(1);
    measure(window, QStringLiteral("history"));

    QStringList titles;
    for (const char* name : {"shortcuts", "applyTo", "presets", "tracks", "convert"}) {
        window.findChild<QAction*>(QString::fromLatin1(name))->trigger();
        settle();
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog)
            continue;
        titles.append(dialog->windowTitle());
        measure(*dialog, titles.last());
        dialog->close();
        settle();
    }
    say(QStringLiteral("dialogs"), titles.join(QLatin1String(", ")));
    window.findChild<QAction*>(QStringLiteral("queue"))->trigger();
    measure(window, QStringLiteral("queue"));
}

void begin()
{
    auto* waiting = new QTimer(QCoreApplication::instance());
    QObject::connect(waiting, &QTimer::timeout, waiting, [waiting] {
        QWidget* window = windowWithItsFile();
        if (!window)
            return;
        waiting->stop();
        goThrough(*window);
        window->close();
    });
    waiting->start(50);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(begin)
