// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/changes.h>

namespace zokit {

/// Identities that every project has: the saved default of each type. Those of files and their things come behind them.
constexpr Identity firstSavedDefault = 2;
constexpr Identity lastFixedThing = 32;

constexpr bool isSavedDefault(Identity thing)
{
    return thing >= firstSavedDefault && thing <= lastFixedThing;
}

} // namespace zokit
