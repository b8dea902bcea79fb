// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <zokit/zokit_export.h>

namespace zokit {

/// The pattern of a name where output option "name" is not set: "{name}-converted.{ending}".
ZOKIT_EXPORT QString usualPattern();

/// The name of a result's file, without its folder: \a pattern, as output option "name" has it, with {name}, {ending}
/// and {number} replaced by \a name of the input, \a ending of the container and \a number, which counts from 1 and is
/// written as wide as \a count needs. An empty pattern is usualPattern().
ZOKIT_EXPORT QString resultName(const QString& pattern, const QString& name, const QString& ending, int number,
                                int count);

/// What no name can have: "/", or the first word in braces that is none of the three; empty when \a pattern will do.
ZOKIT_EXPORT QString wrongInPattern(const QString& pattern);

} // namespace zokit
