// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>

#include <zokit/carryover.h>
#include <zokit/differences.h>
#include <zokit/message.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// One settings file to which settings are carried over: what it holds, and what it will hold.
struct ZOKIT_EXPORT ApplyTarget {
    QString name;                    ///< As it was named.
    QString path;                    ///< Of the file itself, behind all links.
    QByteArray before;               ///< Text of the file.
    QByteArray after;                ///< Text that it will have.
    QVector<Difference> differences; ///< From one to the other.
    Messages moved;                  ///< The movedByCarrying() of a target that changes.
};

/// What applying will do. With an error it holds no target.
struct ZOKIT_EXPORT ApplyPlan {
    QVector<ApplyTarget> targets; ///< Each file once, those that do not change, too.
    Message error;                ///< Names the target that cannot be read.
};

/// Reads all \a targets, and says what \a carry from \a from makes of them, and then \a settle, if given. Nothing is
/// written.
ZOKIT_EXPORT ApplyPlan planApply(const Settings& from, const QStringList& targets, const CarryOver& carry,
                                 const Settle& settle = {});

/// Does what \a plan says, for all targets or for none: everything is written beside them before the first is renamed,
/// and an error puts back those that were. An empty message: it is done. While it works, a note in \a folder
/// ("zoeffect/apply" in the user's configuration folder when empty) says what is being done.
ZOKIT_EXPORT Message applyPlan(const ApplyPlan& plan, const QString& folder = {});

/// A target of an application that was killed.
struct ZOKIT_EXPORT LeftTarget {
    /// What became of it.
    enum State {
        Old,  ///< As before.
        New,  ///< As after.
        Other ///< Changed since, or gone.
    };
    QString path;        ///< Of the settings file.
    State state = Other; ///< As it is now.
};

/// What killed applications left behind, in the order of their work. Their parts and notes in \a folder are removed, so
/// that it is told once.
ZOKIT_EXPORT QVector<LeftTarget> takeLeftTargets(const QString& folder = {});

} // namespace zokit
