// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QByteArray>
#include <QMap>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariant>

/// What the tests of faults share: folders of their own, custom defaults with the text that they must have in the
/// file, and processes that tell what they saw.
namespace faultworld {

constexpr qint64 longestCall = 250000; ///< Microseconds that a public call may take.

/// The folders that a host could write to: home, configuration, temporary files, current folder. Made before the
/// application object, since they are told by the environment.
class Folders {
public:
    Folders();

    /// Empties all folders, and creates those that are missing.
    void reset() const;

    QString configuration() const { return m_folder.filePath(QStringLiteral("config")); }
    QString temporary() const { return m_folder.filePath(QStringLiteral("tmp")); }

    /// Everything below the folders but the folders themselves and the store's lock, which stays, sorted:
    /// "config/host/effectdefaults.json".
    QStringList entries() const;

private:
    QTemporaryDir m_folder;
};

/// The path of the store's file of this program, and the name of its folder.
QString storeFile();
QString storeFolder();

/// A custom default and the lines that it must have in the file.
struct Saved {
    QVariantMap values;
    QByteArray lines; ///< Of its members, as far to the right as they stand there.
    QString text;     ///< As described() tells it.
};

Saved oldColor();
Saved oldWatermark();
Saved newWatermark();
Saved crop();
Saved audio();

/// The custom defaults of some types, as a file holds them.
using State = QMap<QString, Saved>;

QByteArray fileOf(const State& state);
/// "Color {a: int 1}; Crop {b: int 2}"
QString textOf(const State& state);

/// What the manager of this process knows of all types of the catalogue, as textOf() tells it.
QString knownText();

bool writeFile(const QString& path, const QByteArray& content);
/// "no file" when it cannot be opened.
QByteArray contentOf(const QString& path);

/// What a process tells its parent, in memory that they share.
struct Report {
    qint64 longestCall = 0; ///< In microseconds.
    char text[8192] = {};

    void tell(const QString& what);
    QString told() const;
};

/// A Report in memory that processes forked from this one write to.
class SharedReport {
public:
    SharedReport();
    ~SharedReport();
    SharedReport(const SharedReport&) = delete;
    SharedReport& operator=(const SharedReport&) = delete;

    Report& operator*() const { return *m_report; }
    Report* operator->() const { return m_report; }

private:
    Report* m_report = nullptr;
};

/// Makes a public call, and notes how long it took.
void timed(Report& report, const std::function<void()>& call);

/// Does \a work in a process of its own, a copy of this one. True when that ended by itself and well, within a
/// minute.
bool inOwnProcess(const std::function<void()>& work);

/// Keeps the warnings of this process from the output of the tests; for processes that are copies.
void keepQuiet();

} // namespace faultworld
