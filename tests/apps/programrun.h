// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/resource.h>

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A folder in which zoconvert runs, with a configuration of its own: "a.zoeffect.json", which sets nothing for a clip
/// of 1280x720, "b.zoeffect.json" with contrast 20, "broken.json", and "logo.png".
class ProgramRun {
public:
    ProgramRun();
    ~ProgramRun(); ///< What still runs is killed.
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;

    /// Runs the program to its end. Arguments are bytes, as the shell gives them.
    void run(const QList<QByteArray>& arguments, const char* language = "C.UTF-8");
    /// The same in two steps: start() answers the number of the process, for which wait() waits.
    qint64 start(const QList<QByteArray>& arguments, const char* language = "C.UTF-8");
    void wait();
    /// What a started run has printed up to now.
    QByteArray printed() const;
    /// What ZOEFFECT_FFMPEG names from now on.
    void setTools(const QByteArray& folder) { m_tools = folder; }
    /// From now on ffmpeg is this script of sh, in the folder "tools".
    void setFfmpeg(const QByteArray& script);
    /// Where standard error goes from now on, instead of to err: a pipe with a name, or a terminal, which becomes that
    /// of the program.
    void setErr(const QByteArray& path) { m_err = path; }

    QString path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    QByteArray content(const char* name) const;
    void write(const char* name, const QByteArray& text) const;
    /// The names in the folder, on one line.
    QString files() const;

    int code = -1; ///< -1 where a signal ended it.
    QString out;
    QString err;

private:
    QString outFile() const { return m_configuration.filePath(QStringLiteral("out")); }
    QString errFile() const { return m_configuration.filePath(QStringLiteral("err")); }

    QByteArray m_tools;
    QByteArray m_err;
    int m_child = 0;
    QTemporaryDir m_folder;
    QTemporaryDir m_configuration;
};

/// As long as it lives, what is started writes no file of more bytes, as on a disk that is full.
class FullDisk {
public:
    explicit FullDisk(qint64 bytes);
    ~FullDisk();
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*m_ignored)(int);
    rlimit m_old = {};
    QTemporaryDir m_counts;
};
