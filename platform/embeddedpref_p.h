// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QMap>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QVariant>

#include "zopref.h"

/// The preference store for hosts that bring none: a JSON file, {"zoeffect-defaults": 1, "types": {"Watermark":
/// {...}}}, values as valuejson_p.h tells. It may be edited by hand. What this version does not understand in it (a
/// member of the file, a type that is no object, a value) is skipped alone, and written back as it was.
///
/// The file is read once, when the store is created; reading values creates and changes nothing. Every setValue()
/// saves at once, whole or not at all, within a quarter of a second: under a lock, the file as it is by then takes in
/// this store's unsaved changes, so that processes which save different keys lose nothing of each other. The lock is
/// the kernel's, on "<path>.lock", which stays; it goes with the process that holds it, however that ends.
///
/// A change that could not be written stays in memory, is answered by hasKey() and value(), and is tried again by the
/// next save, by a timer where an event loop runs, and when the application object goes. A value that the file cannot
/// hold stays in memory until the process ends. A warning tells of either, once until a save succeeds. As long as the
/// timer is active, a child "zoeffect-unsaved" of the application object, something could not be written.
///
/// A file that is not of this form is renamed, with a warning, never overwritten; what this store had read from it
/// before goes into a new one. A file of a higher version, and one that cannot be read, is left alone.
class EmbeddedPref : public ZoPref {
public:
    /// A store in the file at \a path, or only in memory when that is empty. The folder is created when needed.
    /// \a created, if given, is set to this store before the file is read: reading may warn, and a message handler
    /// may come back to the store.
    explicit EmbeddedPref(QString path, EmbeddedPref** created = nullptr);
    ~EmbeddedPref() override;
    EmbeddedPref(const EmbeddedPref&) = delete;
    EmbeddedPref& operator=(const EmbeddedPref&) = delete;

    bool hasKey(const QString& key) const override;
    QVariant value(const QString& key, const QVariant& defaultValue) const override;

    /// An invalid \a value removes the entry. Other values than maps stay in memory.
    void setValue(const QString& key, const QVariant& value, bool notify) override;

private:
    void save(int lockWait);
    bool write(int lockWait, QStringList& warnings);
    void tryAgainLater();

    const QString m_path;
    QJsonObject m_file;                ///< The whole file as it was last read or written.
    QMap<QString, QVariant> m_unsaved; ///< Changes that the file does not hold; they count before m_file.
    QPointer<QTimer> m_timer;          ///< The application object's, while a save is to be tried again.
    bool m_told = false;               ///< Warned that changes stay in memory.
};
