// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QObject>

#include <zokit/changes.h>
#include <zokit/filesettings.h>
#include <zokit/filesmodel.h>
#include <zokit/history.h>
#include <zokit/livepreview.h>
#include <zokit/opening.h>
#include <zokit/project.h>
#include <zokit/projectfiles.h>
#include <zokit/settingsmodel.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// What a window works on: a project with its files, which of them is the current one, and what of that is chosen, with
/// the models and the preview that show it. Both follow the rules of a Selection. To be used on the main thread, with a
/// QGuiApplication.
class ZOKIT_EXPORT Workbench : public QObject {
    Q_OBJECT

public:
    /// Without files; looks for the tools.
    explicit Workbench(QObject* parent = nullptr);
    /// All that it holds goes with it. What shows the models goes before.
    ~Workbench() override;

    /// \name What it holds; each lives as long as this
    /// @{

    const Tools& tools() const;     ///< Those that were found at the start.
    Project& project() const;       ///< All files.
    History& history() const;       ///< Of all of them.
    ProjectFiles& files() const;    ///< Opens and saves them.
    FilesModel& filesModel() const; ///< All files, as rows.
    SettingsModel& model() const;   ///< Of the current file.
    LivePreview& preview() const;   ///< Of the current file; what is taken there is chosen.
    /// @}

    FileSettings* current() const;  ///< Null without files.
    const MediaInfo* media() const; ///< What was found out about its clip; null where nothing was.
    /// Makes \a file, one of the project's, the current one. Nothing happens for another one, or null.
    void setCurrent(FileSettings* file);
    /// The tracks of its clip by the rules that it holds, to be shown before FileSettings::setSettings() takes them. An
    /// error where nothing is known of the clip.
    RuledTracks tracksByRule() const;
    Identity chosen() const; ///< 0 without files.
    /// Chooses \a thing, and makes its file the current one. Nothing happens for what has no row in the model.
    void choose(Identity thing);

    void undo(); ///< As Selection::undo(): a drag on the preview ends first.
    void redo(); ///< As above, of the next step.

Q_SIGNALS:
    /// Another file is the current one; null: none.
    void currentChanged(zokit::FileSettings* file);
    /// Something else is chosen; 0: nothing.
    void chosenChanged(quint64 thing);
    /// A sentence to be shown: what was refused in model or preview, what cannot be opened, why there is no picture.
    void told(const zokit::Message& message);

private:
    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
