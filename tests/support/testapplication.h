// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QGuiApplication>
#include <QTemporaryDir>
#include <QtTest>

#include "memorypref.h"

/// The application object of the tests: offscreen, with folders of its own for temporary and configuration
/// files, and with a preference store in memory.
class TestApplication : public QGuiApplication, public ZoPrefProvider {
public:
    TestApplication(int& argc, char** argv);

    ZoPref* preferences() override { return &pref; }

    static TestApplication* instance();

    MemoryPref pref;
};

/// Points the temporary and configuration folders of this process into a folder that is removed at its end.
/// To be created before the application object.
class TestFolders {
public:
    TestFolders();

    QString temporary() const { return m_folder.filePath(QStringLiteral("tmp")); }
    QString configuration() const { return m_folder.filePath(QStringLiteral("config")); }

private:
    QTemporaryDir m_folder;
};

/// main() of a test program that runs \a TestClass with a TestApplication.
#define ZOEFFECT_TEST_MAIN(TestClass)                                                                                  \
    int main(int argc, char** argv)                                                                                    \
    {                                                                                                                  \
        const TestFolders folders;                                                                                     \
        TestApplication application(argc, argv);                                                                       \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
