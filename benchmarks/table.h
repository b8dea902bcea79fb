// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "results.h"

/// Prints a table for each workload in \a results: the median time of one operation, the median ratio to the limit
/// of the same round, and beside what has a bound whether it keeps it.
void printTables(const std::vector<Result>& results);
