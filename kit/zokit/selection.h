// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QObject>

#include <zokit/changes.h>
#include <zokit/zokit_export.h>

namespace zokit {

class FileSettings;
class Project;
class SettingsModel;

/// Which file of a project is the current one, and what of it is chosen: for windows that edit one thing at a time.
/// Both belong to the place in the history, as History::setSelection() keeps them. To be used on the main thread.
///
/// Where there are files, one is current, unless clear() was called: the first that comes, and the next one, or else
/// the last, when it is removed. Of a current file something is chosen: an effect type, an item, the rules for tracks
/// or the output options; at first the type "Crop", in another file what stands at the same place, or else its type,
/// and in place of an item that is removed the next one, or else the last, or else its type.
class ZOKIT_EXPORT Selection : public QObject {
    Q_OBJECT

public:
    /// Of \a project, whose current file \a model shows from now on; both outlive it.
    Selection(Project& project, SettingsModel& model, QObject* parent = nullptr);
    ~Selection() override;

    FileSettings* current() const; ///< Null: none.
    /// Makes \a file, one of the project's, the current one. Nothing happens for another one, or null.
    void setCurrent(FileSettings* file);
    /// No file is current any more, until one is set, added, or named by a step of the history.
    void clear();
    Identity chosen() const; ///< 0 without a current file.
    /// Chooses \a thing, and makes its file the current one. Nothing happens for what has no row in the model.
    void choose(Identity thing);

    /// As History::undo(). What was chosen then is chosen again, or, where the step did not touch that, the first thing
    /// that it changed.
    void undo();
    void redo(); ///< As above, of the next step.
    /// As History::goTo(). Over several steps, what was chosen there is chosen again.
    void goTo(int count);

Q_SIGNALS:
    /// Another file is the current one; null: none. What is chosen is that file's already.
    void currentChanged(zokit::FileSettings* file);
    /// Something else is chosen; 0: nothing.
    void chosenChanged(quint64 thing);

private:
    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
