# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Read by the proofs: quiet commands, and builds by preset.

if command -v ccache > /dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
mkdir -p build

# quietly COMMAND...: its output is shown only when it fails, which ends the proof.
quietly() {
    if ! "$@" > build/proof.log 2>&1; then
        cat build/proof.log
        echo "failed: $*"
        echo '0 passed, 1 failed'
        exit 1
    fi
}

# build PRESET TARGET...
build() {
    echo "== building ($1)"
    quietly cmake --preset "$1"
    quietly cmake --build "build/$1" --target "${@:2}" --parallel "$(nproc)"
}
