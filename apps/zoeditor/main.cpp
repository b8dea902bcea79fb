// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>

#include "program.h"

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("zoeffect")); // Saved defaults are one user's.
    QCoreApplication::setApplicationVersion(QStringLiteral(ZOEDITOR_VERSION));
    return zoeditor::run(argc, argv);
}
