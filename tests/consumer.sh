#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# consumer.sh BUILD: installs library and kit from the build tree BUILD into a prefix with a space in its name,
# moves that elsewhere, and builds and runs the host in consumer/ against it: with CMake and with pkg-config
# and a plain compiler call, with g++ and clang++. The kit's headers are compiled by clang++, since g++ has built the
# kit, and the host of the guide's first chapter by g++; the QML module is loaded, and the host with a window is built
# and clicked through. Where BUILD is for Qt 6 and the build tree dev beside it has both for Qt 5, they are installed
# into the same prefix, too, and each host finds its own. Works in BUILD/tests/consumer.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
build=$(readlink -f "$1")
work=$build/tests/consumer
prefix="$work/installed package"
version=$("$here/../scripts/version")
qt=$(sed -n 's/^ZOEFFECT_QT_MAJOR:[A-Z]*=//p' "$build/CMakeCache.txt")
other_qt=$((11 - qt))
names=([5]=zoeffect [6]=zoeffect-qt6)
kit_names=([5]=zoeffectkit [6]=zoeffectkit-qt6)
name=${names[qt]}
kit=${kit_names[qt]}
quick=${kit/kit/kitquick}

rm -rf "$work"
mkdir -p "$work/tmp"
mkdir -m 700 "$work/runtime"
export TMPDIR=$work/tmp XDG_RUNTIME_DIR=$work/runtime QT_QPA_PLATFORM=offscreen

check 'consumer: library and kit install' quietly cmake --install "$build" --prefix "$work/first place" || finish
mv "$work/first place" "$prefix"

same 'consumer: these files are installed and no others' \
    "bin/zoconvert
bin/zoeditor
$(cd "$here/../kit" && printf 'include/zoeffect-kit/%s\n' zokit/*.h zokit/zokit_export.h | LC_ALL=C sort)
$(cd "$here/../kitquick" && printf 'include/zoeffect-kitquick/%s\n' zokitquick/*.h zokitquick/zokitquick_export.h | LC_ALL=C sort)
include/zoeffect/writelog.h
include/zoeffect/zoeffect_export.h
include/zoeffect/zoeffectcatalogue.h
include/zoeffect/zoeffectitemdata.h
include/zoeffect/zoeffectitemdefaultvalmgr.h
include/zoeffect/zoeffectmodel.h
include/zoeffect/zopref.h
lib/cmake/ZoEffect/ZoEffectConfig.cmake
lib/cmake/ZoEffect/ZoEffectConfigVersion.cmake
lib/cmake/ZoEffect/ZoEffectHostQt.cmake
lib/cmake/ZoEffect/ZoEffectQt${qt}KitQuickTargets-debug.cmake
lib/cmake/ZoEffect/ZoEffectQt${qt}KitQuickTargets.cmake
lib/cmake/ZoEffect/ZoEffectQt${qt}KitTargets-debug.cmake
lib/cmake/ZoEffect/ZoEffectQt${qt}KitTargets.cmake
lib/cmake/ZoEffect/ZoEffectQt${qt}Targets-debug.cmake
lib/cmake/ZoEffect/ZoEffectQt${qt}Targets.cmake
lib/lib$name.so
lib/lib$name.so.1
lib/lib$name.so.$version
lib/lib$kit.so
lib/lib$kit.so.1
lib/lib$kit.so.$version
lib/lib$quick.so
lib/lib$quick.so.1
lib/lib$quick.so.$version
lib/pkgconfig/$name.pc
lib/pkgconfig/$kit.pc
lib/pkgconfig/$quick.pc
lib/qt$qt/qml/ZoEffect/Kit/libzoeffectkitplugin.so
lib/qt$qt/qml/ZoEffect/Kit/plugins.qmltypes
lib/qt$qt/qml/ZoEffect/Kit/qmldir
share/applications/zoeditor.desktop
share/bash-completion/completions/zoconvert
share/icons/hicolor/scalable/apps/zoeditor.svg
share/man/de/man1/zoconvert.1
share/man/man1/zoconvert.1
share/man/man1/zoeditor.1
share/mime/packages/zoeffect-settings.xml
share/zsh/site-functions/_zoconvert" \
    "$(cd "$prefix" && find . ! -type d | sed 's|^\./||' | LC_ALL=C sort)" || true
same 'consumer: the manual page is in German, too' '.SH BEFEHLE' \
    "$(grep -x '.SH BEFEHLE' "$prefix/share/man/de/man1/zoconvert.1")"

# dynamic TAG [FILE]: the values of one tag of the dynamic section of the library or another file.
dynamic() {
    readelf -d "${2:-$prefix/lib/lib$name.so}" | sed -n "s/.*($1).*\[\(.*\)\]/\1/p" | LC_ALL=C sort
}
same 'consumer: soname' "lib$name.so.1" "$(dynamic SONAME)" || true
same 'consumer: links' "lib$name.so -> lib$name.so.1
lib$name.so.1 -> lib$name.so.$version
lib$kit.so -> lib$kit.so.1
lib$kit.so.1 -> lib$kit.so.$version
lib$quick.so -> lib$quick.so.1
lib$quick.so.1 -> lib$quick.so.$version" \
    "$(cd "$prefix/lib" && find . -type l -printf '%P -> %l\n' | LC_ALL=C sort)" || true
same 'consumer: needs Qt Core and Gui alone' "libQt${qt}Core.so
libQt${qt}Gui.so" "$(dynamic NEEDED | sed -n 's/^\(libQt.*\.so\)\..*/\1/p')" || true
same 'consumer: no path of the build machine in the library' '' "$(dynamic 'R.*PATH')" || true
readonly kit_file=$prefix/lib/lib$kit.so
same 'consumer: kit: soname' "lib$kit.so.1" "$(dynamic SONAME "$kit_file")" || true
same 'consumer: kit: needs the library, Qt Core and Qt Gui alone' "libQt${qt}Core.so
libQt${qt}Gui.so
lib$name.so" "$(dynamic NEEDED "$kit_file" | sed -nE 's/^(lib(Qt|zo).*\.so)\..*/\1/p' | LC_ALL=C sort)" || true
# shellcheck disable=SC2016 # the loader's word
same 'consumer: kit: finds the library beside it' '$ORIGIN' "$(dynamic 'R.*PATH' "$kit_file")" || true
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

# configure FOLDER COMPILER [OPTION...]
configure() {
    cmake -G Ninja -S "$here/consumer" -B "$1" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$2" "${@:3}"
}

# refused NAME SENTENCE OPTION...: with these options CMake finds no package, and says why.
refused() {
    local said
    said=$(configure "$work/refused" g++ "${@:3}" 2>&1 | tr -s ' \n' ' ') || true
    rm -rf "$work/refused"
    check "consumer: $1: CMake says why" grep -qF "$2" <<< "$said" || true
}

for compiler in g++ clang++; do
    tree="$work/with $compiler"
    component='' folders=(zoeffect)
    [[ $compiler != clang++ ]] || component=KitQuick folders=(zoeffect zoeffect-kit zoeffect-kitquick)
    if check "consumer: $compiler: finds the package" configure "$tree" "$compiler" -DCONSUMER_COMPONENTS=$component &&
        check "consumer: $compiler: each header, without a warning" \
            quietly cmake --build "$tree" --target headers &&
        check "consumer: $compiler: the host, without a warning" quietly cmake --build "$tree" --target consumer; then
        same "consumer: $compiler: headers compiled" "$(cd "$prefix/include" && find "${folders[@]}" -name '*.h' | wc -l)" \
            "$(cat "$tree"/first_*.cpp "$tree/kit_forth.cpp" | grep -c '^#include')" || true
        host_rows "$compiler" "$tree/consumer"
    fi
done
refused 'a host of the other Qt' "This project uses Qt $other_qt, and ZoEffect is installed there for Qt $qt only." \
    -DZOEFFECT_QT_MAJOR="$other_qt"
refused 'a component that is not there' "ZoEffect has no component Unknown installed there for Qt $qt." \
    -DCONSUMER_COMPONENTS=Unknown

# As the manual page of pkg-config tells it; eval, since the paths have a space.
export PKG_CONFIG_PATH="$prefix/lib/pkgconfig"
same 'consumer: pkg-config: version' "$version" "$(pkg-config --modversion "$name")" || true
same 'consumer: pkg-config: the kit brings the library' "-l$kit -l$name" \
    "$(pkg-config --libs-only-l "$kit" | grep -oE -e '-lzo[^ ]+' | paste -sd ' ')" || true
for compiler in g++ clang++; do
    mkdir "$work/plain $compiler"
    program="$work/plain $compiler/consumer"
    if check "consumer: $compiler and pkg-config: the host, without a warning" quietly eval "$compiler" -std=c++17 \
        -Wall -Wextra -Wpedantic -Werror "'$here/consumer/main.cpp'" -o "'$program'" \
        "$(pkg-config --cflags --libs "$name")"; then
        host_rows "$compiler and pkg-config" env LD_LIBRARY_PATH="$prefix/lib" "$program"
    fi
done

# --- A host on the kit ---------------------------------------------------------------------------------------------

# from_nothing WAY PROGRAM: the host of the guide's first chapter carries settings over to another file.
from_nothing() {
    local folder="$work/files $1"
    mkdir "$folder"
    echo '{"zoeffect": 1, "media": {"width": 1280, "height": 720}}' > "$folder/a.json"
    echo '{"zoeffect": 1, "media": {"width": 640, "height": 360}}' > "$folder/b.json"
    same "consumer: kit: $1: the host saves" 'saved: 2 files' "$("$2" "$folder"/{a,b}.json | tail -n 1)" || true
    same "consumer: kit: $1: and has carried a crop over" '"crop_left": 80,' \
        "$(grep -oE '"crop_left".*' "$folder/b.json")" || true
}
example=$here/../examples/from-nothing
tree="$work/from nothing"
if check 'consumer: kit: CMake: finds the package' cmake -G Ninja -S "$example" -B "$tree" \
    -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER=g++ -DZOEFFECT_QT_MAJOR="$qt" &&
    check 'consumer: kit: CMake: the host, without a warning' quietly cmake --build "$tree"; then
    from_nothing CMake "$tree/from-nothing"
    same 'consumer: kit: CMake: linked with' "lib$kit.so.1" \
        "$(dynamic NEEDED "$tree/from-nothing" | grep '^libzoeffectkit')" || true
fi
if check 'consumer: kit: pkg-config: the host, without a warning' quietly eval g++ -std=c++17 -Wall -Wextra -Wpedantic \
    -Werror "'$example/main.cpp'" -o "'$work/from-nothing'" "$(pkg-config --cflags --libs "$kit")"; then
    LD_LIBRARY_PATH="$prefix/lib" from_nothing pkg-config "$work/from-nothing"
fi

# --- The kit for Qt Quick ------------------------------------------------------------------------------------------

same 'consumer: kit for Qt Quick: the installed QML module has its types' 'FileSettings PreviewPicture SettingsModel ' \
    "$("/usr/lib/qt$qt/bin/qmlplugindump" -nonrelocatable ZoEffect.Kit 1.1 "$prefix/lib/qt$qt/qml" 2> /dev/null |
        sed -nE 's/^ *exports: \["ZoEffect\.Kit\/(.*) 1\.1"\]$/\1/p' | tr '\n' ' ')" || true
example=$here/../examples/gallery
tree="$work/gallery"
if check 'consumer: kit for Qt Quick: CMake: finds the package' cmake -G Ninja -S "$example" -B "$tree" \
    -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER=g++ -DZOEFFECT_QT_MAJOR="$qt" &&
    check 'consumer: kit for Qt Quick: CMake: the gallery, without a warning' quietly cmake --build "$tree"; then
    same 'consumer: kit for Qt Quick: CMake: linked with' "lib$quick.so.1" \
        "$(dynamic NEEDED "$tree/gallery" | grep '^libzoeffectkitquick')" || true
fi
same 'consumer: kit for Qt Quick: pkg-config brings the kit and Qt Quick' "-l$quick -l$kit -l$name" \
    "$(pkg-config --libs-only-l "$quick" | grep -oE -e '-lzo[^ ]+' | paste -sd ' ')" || true

# --- A host with a window on the kit, clicked through ---------------------------------------------------------------

tree="$work/newcomer"
if check 'consumer: newcomer: finds the package' cmake -G Ninja -S "$here/newcomer" -B "$tree" \
    -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER=g++ -DZOEFFECT_QT_MAJOR="$qt" \
    -DCMAKE_CXX_FLAGS='-Wall -Wextra -Wpedantic -Werror' &&
    check 'consumer: newcomer: the host and its test, without a warning' quietly cmake --build "$tree"; then
    same 'consumer: newcomer: linked with' "lib$kit.so.1" \
        "$(dynamic NEEDED "$tree/newcomer/newcomer" | grep '^libzoeffectkit')" || true
    check 'consumer: newcomer: all that it can, by mouse and keys' "$tree/tst_newcomer" || true
fi

# --- Both Qts in one prefix ----------------------------------------------------------------------------------------

dev=$(dirname "$build")/dev
if ((qt != 6)) || [[ ! -e $dev/libzoeffect.so.$version || ! -e $dev/kit/libzoeffectkit.so.$version ]]; then
    finish
fi
cp -r "$prefix" "$work/alone"
check 'consumer: the library for Qt 5 installs beside it' quietly cmake --install "$dev" --prefix "$prefix" || finish
# Programs have one name for both: the ones that came last stay.
same 'consumer: nothing of the library for Qt 6 has changed' '' \
    "$(diff -r --exclude=bin "$work/alone" "$prefix" | grep -v '^Only in .*installed package' || true)" || true

# chosen QT WAY [OPTION...]: with these options the host is linked with the library for this Qt, and works.
chosen() {
    local chosen=$1 way=$2 tree="$work/$2"
    shift 2
    if check "consumer: both, $way: finds a package" quietly configure "$tree" g++ "$@" &&
        check "consumer: both, $way: the host, without a warning" quietly cmake --build "$tree" --target consumer; then
        same "consumer: both, $way: linked with" "lib${names[chosen]}.so.1" \
            "$(dynamic NEEDED "$tree/consumer" | grep '^libzoeffect')" || true
        host_rows "both, $way" "$tree/consumer"
    fi
}
chosen 5 'nothing said'
chosen 6 'ZOEFFECT_QT_MAJOR=6' -DZOEFFECT_QT_MAJOR=6
chosen 6 'Qt 6 found before' -DCONSUMER_QT=Qt6
chosen 5 'Qt 5 found before' -DCONSUMER_QT=Qt5
finish
