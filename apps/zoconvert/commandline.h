// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QByteArray>
#include <QVector>

#include "commands.h"
#include "invocation.h"

namespace zoconvert {

/// What a command line asks for.
struct Parsed {
    enum Wish {
        Run,     ///< The invocation.
        Summary, ///< -h: of the command, or of the program where there is none.
        Help,    ///< --help, as above.
        Version,
        Nonsense ///< The error says why.
    };
    Wish wish = Nonsense;
    const Command* command = nullptr;
    Invocation invocation;
    QString error;
};

/// Reads the arguments behind the program's name.
Parsed parse(const QVector<QByteArray>& arguments);
/// Reads those behind a command's name.
Parsed parse(const QVector<QByteArray>& arguments, const Command& command);

} // namespace zoconvert
