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
class ZOKIT_EXPORT Project : public QObject {
    Q_OBJECT

public:
    explicit Project(QObject* parent = nullptr);
    ~Project() override;

    History& history() const;

    /// \name Files
    /// @{
    QVector<FileSettings*> files() const;
    FileSettings* file(Identity file) const; ///< Null when there is none.
    /// The file that \a thing belongs to; null when there is none.
    FileSettings* fileOf(Identity thing) const;
    FileSettings* add(const Media& media, QObject* asker = nullptr);
    FileSettings* add(const Settings& settings, QObject* asker = nullptr);
    void remove(FileSettings* file, QObject* asker = nullptr);
    /// @}

    /// \name Many files
    /// @{
    /// Carries settings of \a from over to \a targets as one step of the history: to all, or to none with the reason.
    Message apply(const Settings& from, const QVector<FileSettings*>& targets, const CarryOver& carry,
                  QObject* asker = nullptr);
    /// @}

    /// \name Saved defaults
    /// @{
    /// The thing whose values are the saved default of \a type.
    Identity savedDefault(const QString& type) const;
    /// Those values; empty when none are saved.
    Values savedValues(const QString& type) const;
    /// Makes the values of \a thing (an item, or the type itself) the saved default of its type. No open file changes.
    Message saveDefault(Identity thing, QObject* asker = nullptr);
    Message forgetDefault(const QString& type, QObject* asker = nullptr);
    /// @}

    /// Sets values exactly, whatever file they belong to: for the history and the journal.
    void apply(const Changes& changes, QObject* asker = nullptr);
    /// Every value of the project, as changes from nothing: a snapshot.
    Changes everything() const;
    /// From now on new things get only identities above \a used: those up to it are kept in a journal.
    void skipIdentities(Identity used);

Q_SIGNALS:
    void aboutToChange(const zokit::Changes& changes, QObject* asker);
    void changed(const zokit::Changes& changes, QObject* asker);
    void fileAdded(zokit::FileSettings* file);
    void fileAboutToBeRemoved(zokit::FileSettings* file);

private:
    FileSettings* addFile(std::unique_ptr<FileSettings> file, QObject* asker);

    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
