// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/changes.h>

namespace zokit {

/// Identities that every project has: itself, whose ":items" are its files, and behind it the saved default of each
/// type.
constexpr Identity projectThing = 1;
constexpr Identity lastFixedThing = 32;

constexpr bool isSavedDefault(Identity thing)
{
    return thing > projectThing && thing <= lastFixedThing;
}

} // namespace zokit
