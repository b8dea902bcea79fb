// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QDateTime>
#include <QJsonObject>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QVector>

#include <zokit/history.h>
#include <zokit/journal.h>
#include <zokit/probe.h>
#include <zokit/project.h>
#include <zokit/queue.h>
#include <zokit/queuefile.h>
#include <zokit/selection.h>
#include <zokit/settingsmodel.h>
#include <zokit/tools.h>

#include "filesmodel.h"

namespace zoeditor {

/// A settings file that a session which died had opened or saved.
struct SavedSettings {
    QString file;         ///< Its path.
    QDateTime saved;      ///< When it was written last.
    bool isNewer = false; ///< That was after the session's last edit.
};

/// What is open, and what is chosen in it: all that the panes of a window show and edit. Knows no widgets.
class Session : public QObject {
    Q_OBJECT

public:
    /// Without files. The journal begins with keepJournal(), in \a journalFolder or else where the kit keeps them.
    explicit Session(const QString& journalFolder = {}, QObject* parent = nullptr);
    ~Session() override;

    zokit::Project& project() { return m_project; }
    zokit::History& history() { return m_project.history(); }
    zokit::Queue& queue() { return m_queue; }
    /// Where the results of conversions go, as it was said last; empty: each beside its clip.
    QString resultsFolder() const { return m_resultsFolder; }
    void setResultsFolder(const QString& folder) { m_resultsFolder = folder; }
    /// The settings of the current file.
    zokit::SettingsModel& model() { return m_model; }
    const zokit::Tools& tools() const { return m_tools; }
    /// Looks for the programs again; files that could not be read are read again.
    void findTools();
    /// Files that were read come only while \a isBusy, asked now and then, answers no: what is open is about those that
    /// are there.
    void holdFilesWhile(std::function<bool()> isBusy) { m_isBusy = std::move(isBusy); }
    /// Whether one waits for that.
    bool isHoldingFiles() const { return m_holding.isActive(); }

    /// \name Files
    /// @{

    /// The list: it is there at once, what is in a file follows.
    FilesModel& files() { return m_files; }
    /// Adds clips, the clips of folders and of those in them, and settings files with their clips. What is open already
    /// is not added again, but becomes the current one;
    /// so does the first that comes. Subtitle files and pictures are not opened, which is told.
    void open(const QStringList& paths);
    /// The same for what a person drops or pastes: subtitle files and pictures alone become subtitles and watermarks of
    /// the current file.
    void openDropped(const QStringList& paths);
    /// Removes files from the list, as one step; nothing on the disk changes.
    void remove(const QVector<int>& rows);
    /// What the file consists of; null until it was read. Valid until the list changes.
    const zokit::MediaInfo* mediaOf(const zokit::FileSettings* file) const;
    /// Lets rules for tracks that are other ones in \a after than in \a before, of one clip, choose among its tracks. A
    /// message when they name one that is not there.
    zokit::Message chooseTracks(const zokit::Settings& before, zokit::Settings& after) const;
    /// Why a file cannot be converted; empty when it can.
    zokit::Message problemOf(zokit::Identity file) const;
    /// Shows a small picture of a file in the list.
    void setThumbnail(zokit::Identity file, const QPixmap& picture);
    /// @}

    /// \name What is chosen
    /// @{

    /// The file that is edited; null for none.
    zokit::FileSettings* current() const { return m_selection->current(); }
    void setCurrent(zokit::FileSettings* file) { m_selection->setCurrent(file); }
    /// Shows why the file \a path, which is in the list, cannot be read: no file is edited until one is chosen again.
    void showProblem(const QString& path);
    /// The row of the list that showProblem() shows; -1 while it shows none.
    int shownProblem() const { return m_files.rowOf(m_problemPath); }
    /// The files that are meant by what is done to many; the current one among them.
    QVector<zokit::FileSettings*> selected() const;
    void select(const QVector<zokit::FileSettings*>& files);
    /// What of the current file is shown: an effect type, an item, the rules for tracks or the options; 0 for none.
    zokit::Identity thing() const { return m_selection->chosen(); }
    void setThing(zokit::Identity thing) { m_selection->choose(thing); } ///< As Selection::choose().
    /// @}

    /// \name Editing
    /// @{

    /// Tells why an edit was refused. Whether it was not.
    bool take(const zokit::Message& refusal);
    /// Until endGesture() of the same \a owner, or the next gesture, undo or redo, all edits are one step.
    void beginGesture(QObject* owner, const zokit::Message& text);
    void endGesture(QObject* owner);
    void endAnyGesture();                                    ///< Whoever began it, and is no more.
    QObject* gestureOwner() const { return m_gestureOwner; } ///< Null outside gestures, and when it is no more.
    bool isInGesture() const { return m_isInGesture; }
    void undo();
    void redo();
    void goTo(int count); ///< As History::goTo().
    /// @}

    /// \name Saving
    /// @{

    /// Saves to settingsFileOf() it.
    zokit::Message save(zokit::FileSettings* file);
    /// Saves to \a path, which is the settings file from now on.
    zokit::Message saveAs(zokit::FileSettings* file, const QString& path);
    /// Its settings file, or NAME.zoeffect.json beside the clip when it has none yet; with the clip's own ending in it
    /// where another file in the list has that one.
    QString settingsFileOf(const zokit::FileSettings* file) const;
    /// Whether save() would replace a file that is not known to be its own.
    bool wouldReplace(const zokit::FileSettings* file) const;
    /// Whether any file's settings are others than they were opened or saved.
    bool isModified() const;
    /// Those files.
    QVector<zokit::FileSettings*> unsaved() const;
    /// @}

    /// \name The journal
    /// @{

    /// What sessions that died have left, the newest first.
    QVector<zokit::Journal::Left> left() const;
    /// The settings files of such a session that are there.
    static QVector<SavedSettings> savedBeside(const zokit::Journal::Left& left);
    /// Brings back what a session left. Before files are opened and the journal is begun; what is left goes when that
    /// holds all of it. The settings are saved where they came from; where those were saved later than the session's,
    /// that is asked again.
    zokit::Message recover(const QString& journal);
    /// Removes what a session left.
    static void discard(const QString& journal);
    /// Notes all that is done from now on, and keeps the queue, with the rows that a session before has left.
    void keepJournal();
    /// The session ends well: nothing is left to recover. What is being converted is stopped.
    void close();
    /// @}

signals:
    void currentChanged(zokit::FileSettings* file); ///< Null for none.
    void selectionChanged();                        ///< selected() answers anew.
    void thingChanged(quint64 thing);               ///< thing() answers anew.
    void fileStateChanged(quint64 file);            ///< Its row says something else.
    void message(const QString& sentence);          ///< For the status line.

private:
    bool addToCurrent(const QString& path);
    void openOne(const QString& path);
    void openSettings(const QString& path);
    void probeNext();
    void takeMedia();
    void addToProject(int index);
    void noteWork();
    void noteAdded(zokit::FileSettings* file);
    void noteRemoved(zokit::FileSettings* file);
    void noteChanges(const zokit::Changes& changes);
    void noteEdited(int index, const zokit::FileSettings& file);
    void discardRecovered();
    void noteSettingsFiles();
    void noteCurrent(zokit::FileSettings* file);

    zokit::Tools m_tools;
    QString m_journalFolder;
    zokit::Project m_project;
    zokit::SettingsModel m_model;
    FilesModel m_files;
    std::unique_ptr<zokit::Prober> m_prober;
    QStringList m_opened;    ///< What was opened last, until one of it is shown.
    QString m_probed;        ///< The clip that is being looked into; empty for none.
    zokit::ReadMedia m_read; ///< What was found in it, while that is held.
    QTimer m_holding;
    std::function<bool()> m_isBusy = [] { return false; };
    zokit::Queue m_queue;
    QString m_resultsFolder;
    QTimer m_workSoon; ///< Rows of the queue change many at a time.
    std::unique_ptr<zokit::QueueFile> m_queueFile;
    std::unique_ptr<zokit::Journal> m_journal;
    QJsonObject m_notedNames;           ///< As they stand beside the journal.
    QString m_recoveredJournal;         ///< As long as this session's own does not hold all of it.
    QMap<QString, QString> m_recovered; ///< Settings files of what is being recovered, by the clip.
    QVector<FileRow> m_removed;         ///< Rows of files that the history may bring back.
    std::unique_ptr<zokit::Selection> m_selection;
    QString m_problemPath; ///< Of the row that is shown instead of a file that is edited; empty: none.
    QVector<zokit::Identity> m_selected;
    QPointer<QObject> m_gestureOwner;
    bool m_isInGesture = false;
    int m_openingRow = -1; ///< The row whose file is being added.
};

} // namespace zoeditor
