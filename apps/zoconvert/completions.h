// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace zoconvert {

/// Completions of commands, options, their choices, addresses, presets and files, made from the tables.
QString bashCompletions();
QString zshCompletions();

} // namespace zoconvert
