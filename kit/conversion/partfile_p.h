// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <zokit/conversion.h>
#include <zokit/message.h>

namespace zokit {

/// A result until it is whole: a file ".zo-HOST-XXXXXXXX.part" in the folder of the result, locked as long as this
/// lives. A lock that can be had means that the one who wrote the file is gone.
class PartFile {
public:
    PartFile() = default;
    ~PartFile(); ///< Removes the file, unless it has become the result.
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    /// Makes the file for \a output. Empty: it is there.
    Message create(const QString& output);
    QString path() const { return m_path; }
    /// Whether it helps to try again after the last failure: only where the disk was full.
    FailureKind kind() const { return m_kind; }
    /// Flushes the file to the disk and gives it its name. One that is there is replaced only with \a replaces. With
    /// \a dateOf the result gets the date of that file. Empty: the result is there, and whole.
    Message finish(const QString& output, bool replaces, const QString& dateOf);
    void remove();

private:
    Message failed(const QString& path);

    QString m_path;
    int m_file = -1;
    FailureKind m_kind = FailureKind::None;
};

/// Removes part files in \a folder whose writer on this host is gone, and the helper folders of such. Tells of those of
/// other hosts that are older than a day.
Messages removeLeftovers(const QString& folder);

/// A folder for helper files, locked as a part file is, and removed with all that is in it.
class HelperFolder {
public:
    HelperFolder() = default;
    ~HelperFolder();
    HelperFolder(const HelperFolder&) = delete;
    HelperFolder& operator=(const HelperFolder&) = delete;

    Message create();
    QString path() const { return m_path; }

private:
    QString m_path;
    int m_file = -1;
};

} // namespace zokit
