// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QString>
#include <QVariant>

#include "guardedini_p.h"
#include "zopref.h"

/// The preference store for hosts that bring none: entries in one file, guardedini_p.h tells its format.
///
/// The file is read once, when the store is created; reading values never creates or changes anything. Every
/// setValue() saves at once: under a lock, the file as it is by then takes in this store's unsaved changes, so
/// that processes which save different keys lose nothing of each other. A save that cannot be done within a
/// quarter of a second, or fails, leaves the file as it was; the changes stay in memory, are answered by
/// hasKey() and value(), and go with the next save. A value that the file cannot hold stays in memory until
/// the process ends.
///
/// A file that is damaged is set aside, with a warning, never overwritten; what this store had read from it
/// before goes into a new file. While it cannot be set aside the store works in memory. A file that cannot be
/// read for another reason (no permission, no free descriptor) is left alone and tried again by the next save.
class EmbeddedPref : public ZoPref {
public:
    /// A store in the file at \a path, or only in memory when that is empty. The folder is created when needed.
    /// \a created, if given, is set to this store before the file is read: reading may warn, and a message
    /// handler may come back to the store.
    explicit EmbeddedPref(QString path, EmbeddedPref** created = nullptr);

    bool hasKey(const QString& key) const override;
    QVariant value(const QString& key, const QVariant& defaultValue) const override;
    void setValue(const QString& key, const QVariant& value, bool notify) override;

private:
    void save();
    std::optional<guardedini::Entries> currentEntries();
    bool setDamagedFileAside();

    const QString m_path;
    guardedini::Entries m_saved;   ///< The file's entries when it was last read or written.
    guardedini::Entries m_unsaved; ///< Changes that the file does not hold; they count before m_saved.
    bool m_warnedInVain = false;   ///< Told that a damaged file cannot be set aside.
};
