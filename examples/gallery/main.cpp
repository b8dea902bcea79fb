// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <zokitquick/types.h>

int main(int argc, char** argv)
{
    qputenv("QT_QUICK_CONTROLS_STYLE", "Fusion"); // It follows the window's palette, light or dark.
    QGuiApplication application(argc, argv);
    zokitquick::registerTypes(); // The module without its plugin: it need not be installed.
    QQmlApplicationEngine engine;
    engine.setInitialProperties({{"clip", QGuiApplication::arguments().value(1)}});
    engine.load(QUrl("qrc:/gallery/Main.qml"));
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
