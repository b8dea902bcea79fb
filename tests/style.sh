#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# style.sh: all C++ sources are formatted as .clang-format says, shellcheck finds nothing in the shell scripts, codespell
# no misspelt word in what is English, each file has its licence, the changelog goes with the version, and no test
# program is forgotten.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
cd "$here/.."

# files FIND-TESTS...: the files of the tree, without what was built.
files() {
    find . \( -path ./build -o -path ./.git \) -prune -o -type f \( "$@" \) -print | LC_ALL=C sort
}

mapfile -t sources <<< "$(files -name '*.h' -o -name '*.cpp')"
mapfile -t programs <<< "$(find scripts -type f | LC_ALL=C sort)"
mapfile -t scripts <<< "$({
    files -name '*.sh'
    grep -lE '^#!.*\bbash$' ./run ./test .ci/run "${programs[@]}"
} | LC_ALL=C sort -u)"

check 'style: all C++ sources are formatted' clang-format --dry-run -Werror "${sources[@]}" || true
check 'style: shellcheck finds nothing in the shell scripts' shellcheck --external-sources "${scripts[@]}" || true
check 'style: codespell finds no misspelt word' codespell || true

# Of a copy, since without git reuse would look at what was built, too.
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
tar --create --exclude=./build --exclude=./.git . | tar --extract --directory="$copy"
check 'style: reuse finds licence and copyright of each file' reuse --root "$copy" lint || true

newest=$(sed -nE 's/^## (Unreleased|[0-9.]+)(, [0-9]{4}-[0-9]{2}-[0-9]{2})?$/\1/p' CHANGELOG.md | head -n 1)
version=$(scripts/version)
same 'style: the changelog begins with this version, or with what is unreleased' "$version" "${newest/Unreleased/$version}" || true
same 'style: so do the packages' "libzoeffect ($version-1) " "$(sed -n '1s/).*/) /p' debian/changelog)" || true
same 'style: every test program is registered' \
    "$(find tests -name 'tst_*.cpp' -printf '%f\n' | sed 's/\.cpp$//' | LC_ALL=C sort)" \
    "$(find tests -name CMakeLists.txt -exec sed -nE 's/^    (tst_.*)/\1/p; s/^ *zoeffect_(internal_)?test\((tst_[a-z0-9_]+).*/\2/p' {} + | LC_ALL=C sort)" || true
finish
