// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>

#include <QString>

#include <zokit/filesettings.h>

#include "invocation.h"

namespace zoconvert {

/// An INPUT of the command line with its settings, or why it is refused.
struct Input {
    QString name;                                  ///< As it was typed.
    std::unique_ptr<zokit::FileSettings> settings; ///< Null: refused.
    QString error;                                 ///< Names the file.
    int code = Done;                               ///< Failed: missing or no media; Usage: settings that are refused.
};

/// "FILE: sentence"; empty for an empty sentence.
QString named(const QString& file, const QString& sentence);

/// The settings file \a name of \a invocation.
Input loadInput(const QString& name, const Invocation& invocation);

/// Settings or a preset by file or name, for the commands that compare and carry over; the error has been said when it
/// answers nothing.
std::optional<zokit::Settings> loadNamed(const QString& word);

} // namespace zoconvert
