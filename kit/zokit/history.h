// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QObject>
#include <QVector>

#include <zokit/changes.h>
#include <zokit/message.h>
#include <zokit/zokit_export.h>

namespace zokit {

class Project;

/// A step of the history: data alone.
struct ZOKIT_EXPORT Step {
    Message text;    ///< What a menu says: "Undo: move watermark".
    Changes changes; ///< Each value that the step changed, once.
};

/// All that a history holds: what a journal keeps of it.
struct ZOKIT_EXPORT HistoryState {
    QVector<Step> steps;                   ///< The oldest first.
    QVector<QVector<Identity>> selections; ///< Before the first step, and behind each.
    int position = 0;                      ///< How many steps are done.
    int cleanPosition = -1;                ///< Where the project was clean; -1: nowhere in here.
    int starts = 0;                        ///< How often a journal brought it back for a session that soon died.
};

/// Undo and redo of everything in a project. Each operation is a step; between beginGesture() and endGesture() all are
/// one, however many, whatever the time. Undoing sets the values from before, redoing those from after: exactly. Until
/// that is done, files and project refuse edits as Busy, and undo(), redo() and goTo() do nothing.
class ZOKIT_EXPORT History : public QObject {
    Q_OBJECT

public:
    /// Of \a project, which makes it for itself: Project::history().
    explicit History(Project& project);
    ~History() override;

    bool canUndo() const; ///< Whether a step is done.
    bool canRedo() const; ///< Whether a step was undone and nothing done since.
    void undo();          ///< Takes the last step back; without one nothing happens.
    void redo();          ///< Does the next step again; without one nothing happens.
    /// Undoes or redoes until \a count steps are done, from 0 to count(); beyond them as far as it goes. Like undo()
    /// and redo() it does nothing in a gesture.
    void goTo(int count);

    int count() const;          ///< Steps that are kept.
    int position() const;       ///< How many of them are done.
    Step step(int index) const; ///< From 0, the oldest; an empty one beyond them.
    Message undoText() const;   ///< Of the next step to undo; empty when there is none.
    Message redoText() const;   ///< Of the next step to redo; empty when there is none.

    /// Gestures may nest; the outermost one is the step. A gesture that changed nothing is none.
    void beginGesture(const Message& text);
    /// Ends the gesture that was begun last; without one nothing happens.
    void endGesture();
    /// Takes back what the gesture did so far and ends it.
    void cancelGesture();

    /// Files that are asked for now come later, when they have been read: the steps of those that
    /// Project::addExpected() adds stand here, below what is done meanwhile, so that undo takes back what a person did
    /// last.
    void expectFiles();

    /// Whether the project is as it was when setClean() was called last. Never in a gesture that has changed something:
    /// what is called clean there is not to be found again.
    bool isClean() const;
    /// The project is saved as it is now.
    void setClean();

    /// What was selected belongs to the place in the history: it comes back with undo and redo. The host's words.
    void setSelection(const QVector<Identity>& things);
    /// What is selected at this place in the history.
    QVector<Identity> selection() const;

    /// The oldest steps are forgotten beyond this many bytes, counted about; 64 MB by default. Those that were undone
    /// go at once where that is not enough. One step always stays.
    void setLimit(qint64 bytes);

    /// All that it holds.
    HistoryState state() const;
    /// Puts back a history that a journal kept: the project is as after its "position" steps. New things get none of
    /// the identities in it.
    void restore(const HistoryState& state);

Q_SIGNALS:
    /// A step was done, undone, redone or forgotten; texts and counts may have changed.
    void changed();
    /// isClean() answers \a clean from now on.
    void cleanChanged(bool clean);
    /// \name What a journal notes
    /// @{

    /// A new step, which ends what could be redone.
    void stepAdded(const zokit::Step& step);
    /// A new step stands at \a place, below others; what could be redone still can be.
    void stepInserted(const zokit::Step& step, int place);
    /// The oldest \a count steps are gone; the position is so much lower.
    void stepsForgotten(int count);
    /// The last \a count of the steps that could be redone are gone.
    void redoForgotten(int count);
    /// An open gesture went on: its text, and what it changed just now.
    void gestureChanged(const zokit::Step& part);
    /// A gesture ended without a step; \a changes took back what it had done.
    void gestureCancelled(const zokit::Changes& changes);
    /// So many steps are done now.
    void positionChanged(int position);
    /// The selection is another one.
    void selectionChanged(const QVector<quint64>& things);
    /// restore() has put another history here.
    void restored();
    /// @}

private:
    friend class Project;
    void takeBelow(bool isBelow);

    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
