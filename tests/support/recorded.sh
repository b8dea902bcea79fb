#!/usr/bin/env bash
# recorded.sh FILE COMMAND...: runs the command and writes its output to FILE, too.
set -euo pipefail
file=$1
shift
"$@" 2>&1 | tee "$file"
