// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "testapplication.h"

#include <QDir>

TestFolders::TestFolders()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QDir().mkpath(temporary());
    QDir().mkpath(configuration());
    qputenv("TMPDIR", QFile::encodeName(temporary()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(configuration()));
}

TestApplication::TestApplication(int& argc, char** argv) : QGuiApplication(argc, argv) {}

TestApplication* TestApplication::instance()
{
    return dynamic_cast<TestApplication*>(QCoreApplication::instance());
}
