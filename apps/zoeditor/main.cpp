// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QApplication>

#include "editor.h"

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zoeffect")); // Saved defaults are one user's.
    QCoreApplication::setApplicationVersion(QStringLiteral(ZOEDITOR_VERSION));
    return zoeditor::run(QCoreApplication::arguments());
}
