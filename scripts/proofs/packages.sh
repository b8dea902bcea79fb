#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Proves the Debian packages. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
readonly tree=$PWD

usage() {
    cat <<'TEXT'
usage: packages

Makes the Debian packages twice, of this checkout and of a clone in another folder, with another mask, language and
time zone, and compares them bit by bit. Then it makes a bare Debian by debootstrap (build/packages-root), installs
the packages there beside nothing but compiler, CMake, ffmpeg and both Qts, and builds and runs

  the hosts of the guide's first two chapters, on the kit and on the library alone, by the commands that stand there,
  the consumer project of the tests with either Qt, by CMake and by pkg-config,
  all programs of the guide, from where libzoeffect-doc puts them,
  zoconvert, which converts a clip, and zoeditor, which opens its window.

At last it removes the packages and looks for what is left behind. Takes root, a checkout without changes, and some
five minutes.

Ends with the line "N passed, N failed"; 0 when every row passed, 1 otherwise, 2 on wrong usage.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 0 "$@"
if ((EUID != 0)); then
    echo "packages: only root can make and enter another system" >&2
    exit 1
fi
scripts/install-packages build qt6 docs package debootstrap git util-linux

readonly folder=$tree/build/packages-proof
readonly root=$folder/root
readonly other="$folder/another place"
readonly enter_with=()
mkdir -p "$folder"
# shellcheck source-path=SCRIPTDIR source=support/debian.sh
source scripts/proofs/support/debian.sh
# shellcheck source-path=SCRIPTDIR source=../../tests/support/rows.sh
source tests/support/rows.sh

# block LANGUAGE N PAGE: the N-th block of code in this language of a page of the guide.
block() {
    awk -v fence="\`\`\`$1" -v wanted="$2" '
        $0 == fence { inside = ++count == wanted; next }
        /^```$/ { inside = 0 }
        inside' "docs/guide/$3"
}

# Everything in the system but caches, logs, the packages' own records, and what Debian makes of their types of files.
files_inside() {
    (cd "$root" && find . -xdev \( -path ./proc -o -path ./tmp -o -path ./root -o -path ./var/cache -o -path ./var/log \
        -o -path ./var/lib/apt -o -path ./var/lib/dpkg -o -path ./usr/share/mime/application \) -prune -o -print |
        sed 's/^\.//' | LC_ALL=C sort)
}

# --- Two times the same ------------------------------------------------------------------------------------------

same 'packages: the checkout has no changes' '' "$(git -c safe.directory="$tree" status --porcelain)" || finish
check 'packages: they are made, and lintian finds nothing' scripts/package || finish
rm -rf "$other"
git -c safe.directory="$tree" clone --quiet "$tree" "$other"
# shellcheck disable=SC2016 # expanded by the inner shell
check 'packages: they are made in another place' \
    env TZ=Asia/Tokyo LC_ALL=C sh -c 'umask 077; exec "$1/scripts/package"' sh "$other" || finish
version=$(scripts/version)-1
architecture=$(dpkg --print-architecture)
same 'packages: these and no others' "libzoeffect-common-dev_${version}_$architecture.deb
libzoeffect-dev_${version}_$architecture.deb
libzoeffect-doc_${version}_all.deb
libzoeffect-qt6-1_${version}_$architecture.deb
libzoeffect-qt6-dev_${version}_$architecture.deb
libzoeffect1_${version}_$architecture.deb
libzoeffectkit-dev_${version}_$architecture.deb
libzoeffectkit-qt6-1_${version}_$architecture.deb
libzoeffectkit-qt6-dev_${version}_$architecture.deb
libzoeffectkit1_${version}_$architecture.deb
libzoeffectkitquick-dev_${version}_$architecture.deb
libzoeffectkitquick-qt6-1_${version}_$architecture.deb
libzoeffectkitquick-qt6-dev_${version}_$architecture.deb
libzoeffectkitquick1_${version}_$architecture.deb
qml-module-zoeffect-kit_${version}_$architecture.deb
qml6-module-zoeffect-kit_${version}_$architecture.deb
zoeffect-editor_${version}_$architecture.deb
zoeffect-tools_${version}_$architecture.deb" "$(cd build/packages && printf '%s\n' *)" || true
for package in build/packages/*.deb; do
    check "packages: ${package##*/} is the same, bit by bit" \
        cmp "$package" "$other/build/packages/${package##*/}" || true
done

# --- Installed in a bare system ------------------------------------------------------------------------------------

rm -rf --one-file-system "$root"
make_root "$architecture"
mount_in proc /proc
echo 'APT::Install-Recommends "false";' > "$root/etc/apt/apt.conf.d/only-what-is-needed"
mkdir "$root"/root/{first-host,from-nothing}
# What the chapter asks for besides comes first: what has come after that, and stays, is the packages' own.
check 'packages: compiler, CMake and ffmpeg are installed' enter sh -c \
    'apt-get update && apt-get install --yes cmake ffmpeg fonts-dejavu-core g++ libgl-dev make pkgconf qml-module-qtquick2 qml6-module-qtquick \
    qt6-base-dev qt6-declarative-dev qtbase5-dev qtdeclarative5-dev libqt5multimedia5' || finish
files_inside > "$folder/before"

cp build/packages/*.deb "$root/root/first-host"
readonly alone=02-first-host.md on_kit=01-from-nothing.md
block sh 1 $alone > "$root/root/install"
block sh 2 $alone > "$root/root/build"
block cpp 1 $alone > "$root/root/first-host/main.cpp"
block cmake 1 $alone > "$root/root/first-host/CMakeLists.txt"
check 'packages: the chapter on the library alone installs it' enter sh -euc 'cd /root/first-host && . /root/install' || finish
block sh 1 $on_kit > "$root/root/install"
block sh 2 $on_kit > "$root/root/build-on-kit"
block sh 3 $on_kit > "$root/root/run-on-kit"
block cpp 1 $on_kit > "$root/root/from-nothing/main.cpp"
block cmake 1 $on_kit > "$root/root/from-nothing/CMakeLists.txt"
block json 1 $on_kit > "$root/root/from-nothing/trip.zoeffect.json"
check 'packages: the first chapter installs the kit' enter sh -euc 'cd /root/first-host && . /root/install' || finish
check 'packages: all others are installed beside them' \
    enter sh -c 'apt-get install --yes /root/first-host/*.deb' || true
readonly packages=(libzoeffect1 libzoeffect-dev libzoeffect-qt6-1 libzoeffect-qt6-dev libzoeffectkit1 libzoeffectkit-dev
    libzoeffectkit-qt6-1 libzoeffectkit-qt6-dev libzoeffectkitquick1 libzoeffectkitquick-dev libzoeffectkitquick-qt6-1
    libzoeffectkitquick-qt6-dev qml-module-zoeffect-kit qml6-module-zoeffect-kit libzoeffect-common-dev libzoeffect-doc zoeffect-editor
    zoeffect-tools)
files_inside > "$folder/installed"
enter dpkg -L "${packages[@]}" | LC_ALL=C sort -u > "$folder/owned"
same 'packages: nothing has come but what is theirs' '' \
    "$(LC_ALL=C comm -13 "$folder/before" "$folder/installed" | LC_ALL=C comm -23 - "$folder/owned")" || true

# --- Used ----------------------------------------------------------------------------------------------------------

check 'packages: the host on the library alone is built and runs' enter sh -euc \
    'cd /root/first-host && (. /root/build) > /root/output 2> /root/errors || { cat /root/output /root/errors; exit 1; }' || true
same 'packages: it prints what the chapter says' "$(block text 1 $alone)" "$(sed -E '/^(--|\[)/d' "$root/root/output")" || true
same 'packages: it and CMake complain of nothing' '' \
    "$(grep -v '^QStandardPaths: XDG_RUNTIME_DIR not set' "$root/root/errors" || true)" || true
check 'packages: it leaves a picture' test -s "$root/root/first-host/watermark.png" || true
check 'packages: the host on the kit is built' enter sh -euc 'cd /root/from-nothing && . /root/build-on-kit' || true
same 'packages: it prints what the chapter says, too' "$(block text 1 $on_kit)" \
    "$(enter sh -euc 'cd /root/from-nothing && . /root/run-on-kit' 2> "$root/root/errors")" || true
same 'packages: it complains of nothing' '' \
    "$(grep -v '^QStandardPaths: XDG_RUNTIME_DIR not set' "$root/root/errors" || true)" || true

cp -r tests/consumer "$root/root/consumer"
names=([5]=zoeffect [6]=zoeffect-qt6)
for qt in 5 6; do
    check "packages: Qt $qt: CMake builds the consumer" enter sh -euc "cd /root/consumer &&
        cmake -S . -B qt$qt -DCMAKE_BUILD_TYPE=Debug -DZOEFFECT_QT_MAJOR=$qt && cmake --build qt$qt" || true
    same "packages: Qt $qt: its library" "lib${names[qt]}.so.1" \
        "$(enter objdump -p "/root/consumer/qt$qt/consumer" | sed -n 's/^ *NEEDED *\(libzoeffect.*\)/\1/p')" || true
    check "packages: Qt $qt: pkg-config builds the consumer" enter sh -euc "cd /root/consumer && mkdir plain$qt &&
        g++ -std=c++17 main.cpp -o plain$qt/consumer \$(pkg-config --cflags --libs ${names[qt]})" || true
    # The log of each is called after the program, and is to hold what this one wrote.
    for way in qt plain; do
        check "packages: Qt $qt: the consumer runs, $way" enter sh -euc \
            "rm -f /tmp/*.log && QT_QPA_PLATFORM=offscreen /root/consumer/$way$qt/consumer" || true
    done
done
check 'packages: the programs of the guide are built' enter sh -euc \
    'cmake -S /usr/share/doc/libzoeffect-doc/examples -B /root/examples && cmake --build /root/examples' || true
for program in examples/*.cpp; do
    name=example-$(basename "$program" .cpp)
    check "packages: $name runs" enter sh -euc "cd /root/examples && QT_QPA_PLATFORM=offscreen ./$name" || true
done

same 'packages: zoconvert finds ffmpeg' "zoconvert $(scripts/version)
ffmpeg" "$(enter zoconvert --version | sed 's/^ffmpeg .*/ffmpeg/')" || true
check 'packages: zoconvert converts a clip' enter sh -euc 'cd /root &&
    ffmpeg -v error -nostdin -f lavfi -i testsrc2=size=320x240:duration=1 clip.mkv &&
    zoconvert convert clip.mkv --crop 0,0,160,120 --text Hello -o cropped.mkv' || true
same 'packages: as it was told' 160x120 "$(enter ffprobe -v error -show_entries stream=width,height -of csv=p=0:s=x \
    /root/cropped.mkv)" || true
for file in bash-completion/completions/zoconvert zsh/vendor-completions/_zoconvert man/man1/zoconvert.1.gz; do
    check "packages: zoconvert has its ${file%%/*}" test -s "$root/usr/share/$file" || true
done

# It waits for a person: what it says by then is that it could open its window.
check 'packages: zoeditor opens its window' enter sh -euc 'cd /root &&
    if QT_QPA_PLATFORM=offscreen timeout 20 zoeditor clip.mkv; then false; else test $? = 124; fi' || true
for file in applications/zoeditor.desktop icons/hicolor/scalable/apps/zoeditor.svg mime/packages/zoeffect-settings.xml \
    man/man1/zoeditor.1.gz; do
    check "packages: zoeditor has its ${file%%/*}" test -s "$root/usr/share/$file" || true
done

# --- Removed -------------------------------------------------------------------------------------------------------

check 'packages: they are removed' enter apt-get purge --yes "${packages[@]}" || true
files_inside > "$folder/after"
same 'packages: nothing is left behind' '' "$(LC_ALL=C comm -13 "$folder/before" "$folder/after")" || true
same 'packages: nothing else is gone' '' "$(LC_ALL=C comm -23 "$folder/before" "$folder/after")" || true

echo "$rows_passed passed, $rows_failed failed"
finish
