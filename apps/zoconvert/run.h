// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/differences.h>

#include "invocation.h"

/// The commands: each does what the command line asks for, says what went wrong, and answers how the program ends.
namespace zoconvert {

int convert(const Invocation& invocation);
int command(const Invocation& invocation);
int plan(const Invocation& invocation);
int work(const Invocation& invocation);
int settings(const Invocation& invocation);
int show(const Invocation& invocation);
int diff(const Invocation& invocation);
int apply(const Invocation& invocation);
int preset(const Invocation& invocation);
int defaults(const Invocation& invocation);
int preview(const Invocation& invocation);
int probe(const Invocation& invocation);
int schema(const Invocation& invocation);
int explain(const Invocation& invocation);

/// Whether \a invocation has that many words behind its first one; \a most -1 is any number. Says when not.
bool hasWords(const Invocation& invocation, int fewest, int most);

/// "Color:bcs_contrast: 0 -> 20"
QString changeText(const zokit::Difference& change);

} // namespace zoconvert
