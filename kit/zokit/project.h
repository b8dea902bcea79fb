// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QObject>
#include <QStringList>
#include <QVector>

#include <zokit/carryover.h>
#include <zokit/changes.h>
#include <zokit/filesettings.h>
#include <zokit/zokit_export.h>

namespace zokit {

class History;

/// The files that are open together, with one history. Files and saved defaults are values like all others, so adding
/// and removing a file and saving a default can be undone, too.
///
/// While it carries out a change of many (undo, redo, apply(), a file that comes or goes) its files and itself refuse
/// edits of listeners as Busy: the history would not hold them.
class ZOKIT_EXPORT Project : public QObject {
    Q_OBJECT

public:
    /// Without files, with an empty history.
    explicit Project(QObject* parent = nullptr);
    ~Project() override;

    /// The one history of all files; lives as long as the project.
    History& history() const;

    /// \name Files
    /// @{

    QVector<FileSettings*> files() const;    ///< In the order in which they were added; the project owns them.
    FileSettings* file(Identity file) const; ///< Null when there is none.
    /// The file that \a thing belongs to; null when there is none.
    FileSettings* fileOf(Identity thing) const;
    /// Adds a new file for a clip: the saved defaults act. The project owns it.
    /// Null while edits are refused as Busy: while the history undoes or redoes, and while files come or go.
    FileSettings* add(const Media& media, QObject* asker = nullptr);
    /// Adds a file with exactly these settings. The project owns it. Null as above.
    FileSettings* add(const Settings& settings, QObject* asker = nullptr);
    /// The same for a file that had to be read first: its step stands where History::expectFiles() was called last.
    FileSettings* addExpected(const Settings& settings, QObject* asker = nullptr);
    /// Removes \a file, which is deleted when the event loop is back. Of another project, or while edits are
    /// refused: nothing.
    void remove(FileSettings* file, QObject* asker = nullptr);
    /// @}

    /// \name Many files
    /// @{

    /// Carries settings of \a from over to \a targets, and then \a settle, if given, as one step of the history: to
    /// all, or to none with the reason. In a gesture that is open it is a part of that one.
    Message apply(const Settings& from, const QVector<FileSettings*>& targets, const CarryOver& carry,
                  QObject* asker = nullptr, const Settle& settle = {});
    /// What that would change: a line a value for people, "film.mkv: Colour: Contrast: 0 -> 20", then what rounding
    /// moves (movedByCarrying()); translated. None where it would be refused, as for an image that is not there:
    /// apply() says why.
    QStringList changesOf(const Settings& from, const QVector<FileSettings*>& targets, const CarryOver& carry,
                          const Settle& settle = {}) const;
    /// @}

    /// \name Saved defaults
    /// @{

    /// The thing whose values are the saved default of \a type.
    Identity savedDefault(const QString& type) const;
    /// Those values; empty when none are saved.
    Values savedValues(const QString& type) const;
    /// Makes the values of \a thing (an item, or the type itself) the saved default of its type. No open file changes.
    /// FileUnwritable tells that the library's own store could not be written: the default acts, until the program ends
    /// or the store is written at last, which is tried every two seconds.
    Message saveDefault(Identity thing, QObject* asker = nullptr);
    /// The catalogue's defaults act again for \a type. No open file changes. FileUnwritable as above.
    Message forgetDefault(const QString& type, QObject* asker = nullptr);
    /// @}

    /// Sets values exactly, whatever file they belong to: for the history and the journal.
    void apply(const Changes& changes, QObject* asker = nullptr);
    /// Every value of the project, as changes from nothing: a snapshot.
    Changes everything() const;
    /// From now on new things get only identities above \a used: those up to it are kept in a journal.
    void skipIdentities(Identity used);

Q_SIGNALS:
    /// As FileSettings::aboutToChange(), for all files, those that come and go, and saved defaults.
    void aboutToChange(const zokit::Changes& changes, QObject* asker);
    /// As FileSettings::changed(), for all of them.
    void changed(const zokit::Changes& changes, QObject* asker);
    /// A file came: added, or back by undo. It can be edited when changed() was sent.
    void fileAdded(zokit::FileSettings* file);
    /// A file goes; it is still whole.
    void fileAboutToBeRemoved(zokit::FileSettings* file);

private:
    FileSettings* addFile(std::unique_ptr<FileSettings> file, QObject* asker);

    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
