// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <zokit/child.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// \a word as a POSIX shell takes it for one word, in quotes where it has to be.
ZOKIT_EXPORT QString shellWord(const QString& word);
/// \a command as a line for a POSIX shell.
ZOKIT_EXPORT QString shellLine(const Command& command);
/// What Conversion::prepare() gave as lines to be run by hand, one a step; \a folder has the helper files. The last
/// one overwrites nothing, unless \a replaces.
ZOKIT_EXPORT QStringList shellLines(const QVector<Command>& commands, const QString& folder, bool replaces);

} // namespace zokit
