#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# consumer.sh BUILD: installs the library from the build tree BUILD into a prefix with a space in its name,
# moves that elsewhere, and builds and runs the host in consumer/ against it: with CMake and with pkg-config
# and a plain compiler call, with g++ and clang++. Works in BUILD/tests/consumer.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
build=$(readlink -f "$1")
work=$build/tests/consumer
prefix="$work/installed package"
version=$("$here/../scripts/version")
qt=$(sed -n 's/^ZOEFFECT_QT_MAJOR:[A-Z]*=//p' "$build/CMakeCache.txt")

rm -rf "$work"
mkdir -p "$work/tmp"
mkdir -m 700 "$work/runtime"
export TMPDIR=$work/tmp XDG_RUNTIME_DIR=$work/runtime QT_QPA_PLATFORM=offscreen

# quietly COMMAND...: the output of both streams, only when it fails or warns.
# shellcheck disable=SC2317 # called by check
quietly() {
    local output
    if ! output=$("$@" 2>&1) || grep -qi 'warning' <<< "$output"; then
        printf '%s\n' "$output"
        return 1
    fi
}

check 'consumer: the library installs' quietly cmake --install "$build" --prefix "$work/first place" || finish
mv "$work/first place" "$prefix"

same 'consumer: these files are installed and no others' \
    'include/zoeffect/writelog.h
include/zoeffect/zoeffect_export.h
include/zoeffect/zoeffectcatalogue.h
include/zoeffect/zoeffectitemdata.h
include/zoeffect/zoeffectitemdefaultvalmgr.h
include/zoeffect/zoeffectmodel.h
include/zoeffect/zopref.h
lib/cmake/ZoEffect/ZoEffectConfig.cmake
lib/cmake/ZoEffect/ZoEffectConfigVersion.cmake
lib/cmake/ZoEffect/ZoEffectTargets-debug.cmake
lib/cmake/ZoEffect/ZoEffectTargets.cmake
lib/libzoeffect.so
lib/libzoeffect.so.1
lib/libzoeffect.so.'"$version"'
lib/pkgconfig/zoeffect.pc' \
    "$(cd "$prefix" && find . ! -type d | sed 's|^\./||' | LC_ALL=C sort)" || true

# dynamic TAG: the values of one tag of the library's dynamic section.
dynamic() {
    readelf -d "$prefix/lib/libzoeffect.so" | sed -n "s/.*($1).*\[\(.*\)\]/\1/p" | LC_ALL=C sort
}
same 'consumer: soname' libzoeffect.so.1 "$(dynamic SONAME)" || true
same 'consumer: links' 'libzoeffect.so -> libzoeffect.so.1
libzoeffect.so.1 -> libzoeffect.so.'"$version" \
    "$(cd "$prefix/lib" && find . -type l -printf '%P -> %l\n' | LC_ALL=C sort)" || true
same 'consumer: needs Qt Core and Gui alone' "libQt${qt}Core.so
libQt${qt}Gui.so" "$(dynamic NEEDED | sed -n 's/^\(libQt.*\.so\)\..*/\1/p')" || true
same 'consumer: no path of the build machine in the library' '' "$(dynamic 'R.*PATH')" || true
same 'consumer: no path of the build machine in the package' '' \
    "$(cd "$prefix" && grep -rF -e "$(dirname "$here")" -e "$build" include lib/cmake lib/pkgconfig || true)" || true

# Rows of one run of the host, each with the way in which it was built.
host_rows() {
    local way=$1 output
    shift
    rm -f "$TMPDIR"/*.log
    if ! output=$("$@" 2>&1) && ! grep -q '^FAIL!' <<< "$output"; then
        fail "consumer: $way: the host ended badly" "$output"
        return
    fi
    sed -E "s/^(PASS  |FAIL! ) : consumer: /\1 : consumer: $way: /" <<< "$output"
    rows_failed=$((rows_failed + $(grep -c '^FAIL!' <<< "$output" || true)))
}

# shellcheck disable=SC2317 # called by check
configure() {
    cmake -G Ninja -S "$here/consumer" -B "$1" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$2" \
        -DCMAKE_BUILD_TYPE=Debug
}

for compiler in g++ clang++; do
    tree="$work/with $compiler"
    if check "consumer: $compiler: finds the package" configure "$tree" "$compiler" &&
        check "consumer: $compiler: each header alone, without a warning" \
            quietly cmake --build "$tree" --target headers &&
        check "consumer: $compiler: the host, without a warning" quietly cmake --build "$tree" --target consumer; then
        same "consumer: $compiler: headers compiled" 7 \
            "$(find "$tree/CMakeFiles/headers.dir" -name '*.o' | wc -l)" || true
        host_rows "$compiler" "$tree/consumer"
    fi
done

# As the manual page of pkg-config tells it; eval, since the paths have a space.
export PKG_CONFIG_PATH="$prefix/lib/pkgconfig"
same 'consumer: pkg-config: version' "$version" "$(pkg-config --modversion zoeffect)" || true
for compiler in g++ clang++; do
    mkdir "$work/plain $compiler"
    program="$work/plain $compiler/consumer"
    if check "consumer: $compiler and pkg-config: the host, without a warning" quietly eval "$compiler" -std=c++17 \
        -Wall -Wextra -Wpedantic -Werror "'$here/consumer/main.cpp'" -o "'$program'" \
        "$(pkg-config --cflags --libs zoeffect)"; then
        host_rows "$compiler and pkg-config" env LD_LIBRARY_PATH="$prefix/lib" "$program"
    fi
done
finish
