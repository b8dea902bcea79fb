// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstring>

#include <QProcess>
#include <QTemporaryDir>
#include <QVector>
#include <QtTest>

#include "journalrobot.h"

/// A robot that edits and tells each edit, with a folder for its journal, until it is killed.
class KilledHost {
public:
    static constexpr qint64 promised = 200; // Milliseconds that a kill may cost.

    KilledHost(const char* program, quint32 seed, const QStringList& more = {}) : m_seed(seed)
    {
        m_process.start(QString::fromLocal8Bit(program), QStringList{m_folder.path(), QString::number(seed)} + more);
    }

    quint32 seed() const { return m_seed; }
    QString folder() const { return m_folder.path(); }

    /// Kills it at some moment after its edit number \a edits, \a wait milliseconds after that was told.
    bool killAfter(int edits, int wait = 0)
    {
        constexpr int patience = 240000; // Milliseconds; only a hang takes so long.
        const auto enough = int(sizeof(journalrobot::Report)) * edits;
        while (m_process.bytesAvailable() < enough && m_process.waitForReadyRead(patience)) {
        }
        const bool ran = m_process.state() == QProcess::Running && m_process.bytesAvailable() >= enough;
        if (wait > 0)
            QTest::qWait(wait);
        m_process.kill();
        return m_process.waitForFinished() && ran && m_process.exitStatus() == QProcess::CrashExit;
    }

    /// What it told before it ended.
    QVector<journalrobot::Report> reports()
    {
        const QByteArray bytes = m_process.readAllStandardOutput();
        QVector<journalrobot::Report> reports(bytes.size() / int(sizeof(journalrobot::Report)));
        std::memcpy(reports.data(), bytes.constData(), sizeof(journalrobot::Report) * std::size_t(reports.size()));
        return reports;
    }

    /// How many edits have to be back: the promise counts from the moment of the last report.
    static int editsPromised(const QVector<journalrobot::Report>& reports)
    {
        int edits = 0;
        while (edits < reports.size() && reports.at(edits).after <= reports.last().before - promised)
            ++edits;
        return edits;
    }

private:
    quint32 m_seed;
    QTemporaryDir m_folder;
    QProcess m_process;
};
