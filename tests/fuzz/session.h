// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>
#include <QFile>

#include "runtime.h"
#include "testapplication.h"

/// The application of a fuzz target: made by the first input and kept for all.
class Session {
public:
    static Session& instance()
    {
        // Not deleted: whatever runs at the end of the process may still need it. Its folder goes with the one
        // that the runner gave as TMPDIR.
        static auto* const session = new Session;
        return *session;
    }

    /// A folder for the target's own files.
    QString folder() const { return m_folders.temporary(); }

private:
    Session() : m_application(m_argc, m_argv)
    {
        // Of the log every input would leave kilobytes, with the same texts: it cannot be opened here.
        qputenv("TMPDIR", QFile::encodeName(folder() + QStringLiteral("/missing")));
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    }

    int m_argc = 1;
    char m_name[5] = "fuzz";
    char* m_argv[2] = {m_name, nullptr};
    TestFolders m_folders;
    TestApplication m_application;
};
