// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace zoconvert {

/// The manual page zoconvert(1), in roff, made from the tables of commands, options and properties.
QString manual();

} // namespace zoconvert
