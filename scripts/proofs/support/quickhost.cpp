// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// quickhost [--linked] FILE: shows the QML of FILE until that ends it. With --linked the kit's types are those of the
// library, which it is linked with, else those of the module.

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickView>
#include <zokitquick/types.h>

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.contains("--linked"))
        zokitquick::registerTypes();
    QQuickView view;
    QObject::connect(view.engine(), &QQmlEngine::exit, &application, &QCoreApplication::exit, Qt::QueuedConnection);
    view.setSource(QUrl::fromLocalFile(arguments.last()));
    view.show();
    return view.status() == QQuickView::Ready ? QGuiApplication::exec() : 1;
}
