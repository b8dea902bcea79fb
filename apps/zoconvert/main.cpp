// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QGuiApplication>

#include "console.h"
#include "program.h"
#include "words.h"

int main(int argc, char** argv)
{
    zoconvert::prepareEnvironment();
    new QGuiApplication(argc, argv); // Never deleted: its end would read the configuration of all fonts, unused.
    QCoreApplication::setApplicationName(
        QStringLiteral("zoeffect")); // Saved defaults are one user's, not one program's.
    QCoreApplication::setApplicationVersion(QStringLiteral(ZOCONVERT_VERSION));
    zoconvert::useLanguageOfEnvironment();

    QVector<QByteArray> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QByteArray(argv[i]));
    return zoconvert::run(arguments);
}
