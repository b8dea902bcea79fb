#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# recorded.sh FILE COMMAND...: runs the command and writes its output to FILE, too.
set -euo pipefail
file=$1
shift
"$@" 2>&1 | tee "$file"
