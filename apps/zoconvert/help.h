// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace zoconvert {

struct Command;

/// What -h prints: at most 24 lines of 80 columns. Of the program where \a command is null.
QString summary(const Command* command);
/// What --help prints: every option, each with an example.
QString help(const Command* command);

/// \a words in lines of at most 78 columns, the first one behind \a first, the others indented by as much.
QString wrapped(const QString& words, const QString& first);

} // namespace zoconvert
