// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QObject>
#include <QStringList>

#include <zokit/message.h>
#include <zokit/probe.h>
#include <zokit/tools.h>
#include <zokit/zokit_export.h>

namespace zokit {

class FileSettings;
class Project;

/// How files come into a project, and how their settings are kept. Clips are looked into one after the other while the
/// event loop runs. What it knows of a file stays when the file is removed, and holds when undo brings it back. To be
/// used on the main thread.
class ZOKIT_EXPORT ProjectFiles : public QObject {
    Q_OBJECT

public:
    /// Knows no file yet. Both outlive it; \a tools is looked at when the first clip is opened.
    ProjectFiles(Project& project, const Tools& tools, QObject* parent = nullptr);
    /// What is being opened is dropped.
    ~ProjectFiles() override;

    /// Opens \a paths, behind those that are being opened: a clip with settingsOf() it, a settings file (".json") with
    /// settingsFor() the clip that it names, or as it is where that cannot be read, and of a folder all media files. A
    /// clip that is open is not opened again. What needs no look into a clip is done at once. Adding a file is a step;
    /// a project that was clean is clean behind it.
    void open(const QStringList& paths);
    /// Whether something is left to be opened.
    bool isOpening() const;

    /// What was found out about the clip of \a file; null where nothing was. Valid as long as this lives.
    const MediaInfo* media(const FileSettings* file) const;
    /// Where the settings of \a file are saved: the settings file that it was opened from or saved to, else
    /// "NAME.zoeffect.json" beside its clip, with the ending of the clip in it where that of another open file is
    /// there.
    QString settingsFile(const FileSettings* file) const;
    /// Those settings files that save() would replace, although the files were neither opened from them nor saved there
    /// before: to be asked about.
    QStringList foreignFiles() const;
    /// Saves the settings of all files, each whole or not at all, and calls the project clean. The error names each
    /// file that was not saved, and why the first was not; the others are saved, and the project is no cleaner than
    /// before.
    Message save();

Q_SIGNALS:
    /// \a file was opened, or is asked for once more.
    void opened(zokit::FileSettings* file);
    /// What cannot be opened, and why; or what became of settings that were for another frame.
    void told(const zokit::Message& message);
    /// Nothing is left to be opened.
    void finished();

private:
    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
