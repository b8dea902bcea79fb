// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <zokit/history.h>

/// The text of a journal. Each line is a record: eight hexadecimal digits of a checksum, a blank, JSON, a line feed.
/// The first record names the form, the second holds every value there was, what follows is what happened, in order. A
/// line that is cut or damaged ends it: nothing behind it can be trusted.
namespace zokit::journalform {

/// What a journal tells: where its session had come to.
struct Session {
    bool isJournal = false;
    bool cut = false;     ///< Something followed that is not whole.
    Changes everything;   ///< The values there were, from nothing.
    Changes sinceThen;    ///< All that was done, undone and redone after that, in order.
    HistoryState history; ///< Its clean position only as far as the journal saw it.
    Step gesture;         ///< One that had not ended.
    int starts = 0;       ///< How often it was recovered by sessions that did not live long.

    /// The changes from nothing to the values to which the session had come. The steps behind them may be gone by a new
    /// branch, so what was done is taken record by record.
    Changes values() const;
    /// The clips that the session was about.
    QStringList files() const;
};

Session sessionFrom(const QByteArray& text);

/// \a step behind the present position of \a history; what could be redone is gone.
void addStep(HistoryState& history, const Step& step);

/// \name Lines
/// Changes that hold a value that no file can keep are appended to \a unkept: such a value is left out.
/// @{
QByteArray beginning();
QByteArray everything(const Changes& values, const HistoryState& history, Changes& unkept);
QByteArray step(const Step& step, Changes& unkept);
QByteArray stepBelow(const Step& step, int place, Changes& unkept);
QByteArray gesture(const Step& part, Changes& unkept);
QByteArray gestureCancelled(const Changes& changes, Changes& unkept);
QByteArray forgotten(int count);
QByteArray redoForgotten(int count);
QByteArray position(int position);
QByteArray selection(const QVector<Identity>& things);
QByteArray clean();
QByteArray start();
QByteArray livedOn();
/// @}

} // namespace zokit::journalform
