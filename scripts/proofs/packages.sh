#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Proves the Debian packages. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
readonly tree=$PWD

usage() {
    cat <<'TEXT'
usage: scripts/prove packages

Makes the Debian packages twice, of this checkout and of a clone in another folder, with another mask, language and
time zone, and compares them bit by bit. Then it makes a bare Debian by debootstrap (build/packages-proof), with the
packages in a folder that apt installs from. In copies of it, in memory, with nothing else:

  each package is installed alone, with what it declares, and used: hosts are built by CMake and by pkg-config, and run
  again where the library's package is alone; zoconvert converts, zoeditor, the gallery and the window of the guide open,
  QML shows a clip,
  the hosts of the guide's first two chapters are built and run by the commands that stand there,
  all packages are installed together, the programs of the guide are built, and all packages are removed again: nothing
  comes but what is theirs, and nothing is left behind.

Takes root, a checkout without changes, 3 GB of memory and some half an hour.

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
readonly bare=$folder/bare
root=$bare
readonly other="$folder/another place"
readonly enter_with=()
mkdir -p "$folder"/{archives,programs}
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

readonly packages=(libzoeffect-common-dev libzoeffect-dev libzoeffect-doc libzoeffect-qt6-1 libzoeffect-qt6-dev
    libzoeffect1 libzoeffectkit-dev libzoeffectkit-qt6-1 libzoeffectkit-qt6-dev libzoeffectkit1 libzoeffectkitquick-dev
    libzoeffectkitquick-qt6-1 libzoeffectkitquick-qt6-dev libzoeffectkitquick1 qml-module-zoeffect-kit
    qml6-module-zoeffect-kit zoeffect-editor zoeffect-tools)
same 'packages: the checkout has no changes' '' "$(git -c safe.directory="$tree" status --porcelain)" || finish
check 'packages: they are made, and lintian finds nothing' scripts/package || finish
rm -rf "$other"
git -c safe.directory="$tree" clone --quiet "$tree" "$other"
# shellcheck disable=SC2016 # expanded by the inner shell
check 'packages: they are made in another place' \
    env TZ=Asia/Tokyo LC_ALL=C sh -c 'umask 077; exec "$1/scripts/package"' sh "$other" || finish
architecture=$(dpkg --print-architecture)
same 'packages: these and no others' \
    "$(printf "%s_$(scripts/version)-1_$architecture.deb\n" "${packages[@]}" | sed "/-doc_/s/$architecture/all/")" \
    "$(cd build/packages && printf '%s\n' *)" || true
for package in build/packages/*.deb; do
    check "packages: ${package##*/} is the same, bit by bit" \
        cmp "$package" "$other/build/packages/${package##*/}" || true
done

# --- A bare system -------------------------------------------------------------------------------------------------

rm -rf --one-file-system "$bare"
make_root "$architecture"
cp -r build/packages "$bare/packages"
(cd "$bare/packages" && dpkg-scanpackages . > Packages 2> "$folder/scan.log")
echo 'deb [trusted=yes] file:/packages ./' > "$bare/etc/apt/sources.list.d/packages.list"
echo 'APT::Install-Recommends "false";' > "$bare/etc/apt/apt.conf.d/only-what-is-needed"
check 'packages: apt knows them' enter apt-get update || finish
root=$folder/root
mounted+=("$root")

# fresh: the bare system once more, in memory. What was fetched is kept.
fresh() {
    ! mountpoint --quiet "$root" || umount --recursive --lazy "$root"
    mkdir -p "$root"
    mount -t tmpfs -o mode=755 tmpfs "$root"
    cp -a "$bare/." "$root"
    mount -t proc proc "$root/proc"
    mount --bind "$folder/archives" "$root/var/cache/apt/archives"
}

# add PACKAGE...: they are installed, with what they declare.
# shellcheck disable=SC2317 # called by check
add() {
    enter env DEBIAN_FRONTEND=noninteractive apt-get install --yes "$@"
}

# alone PACKAGE [OTHER...]: that package in a fresh system, with what it declares. The others are what it is tried with.
alone() {
    fresh
    check "packages: $1 is installed alone" add "$@"
}

# use NAME COMMAND: the command ends 0 in /root, where a shell reads it.
use() {
    check "packages: $1" enter env QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software sh -euc "cd /root && $2"
}

# complaints: the input, without what Qt says where nobody has logged in and where there is no screen.
complaints() {
    grep -vE '^(QStandardPaths: XDG_RUNTIME_DIR not set|This plugin does not support propagateSizeHints)' || true
}

# opens NAME COMMAND...: it waits for a person: what it says by then is that it could open its window.
opens() {
    local said status=0
    said=$(enter env QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software timeout 15 "${@:2}" 2>&1) || status=$?
    same "packages: $1" '124 ' "$status $(complaints <<< "$said")" || true
}

# chapter NAME PAGE [PROGRAM]: the host of a chapter is built by the commands that stand there, unless it is given, and
# run by those that follow.
chapter() {
    local host=$root/root/host
    rm -rf "$host"
    mkdir -p "$host/build"
    block cpp 1 "$2" > "$host/main.cpp"
    block cmake 1 "$2" > "$host/CMakeLists.txt"
    block json 1 "$2" > "$host/trip.zoeffect.json"
    block sh 3 "$2" > "$host/run"
    if [[ -n ${3:-} ]]; then
        cp "$3" "$host/build"
    else
        block sh 2 "$2" | cat - "$host/run" > "$host/all"
        mv "$host/all" "$host/run"
    fi
    use "$1 runs" 'cd host && . ./run > output 2> errors || { cat output errors; exit 1; }' || return 0
    same "packages: $1 prints what the chapter says" "$(block text 1 "$2")" "$(sed -E '/^(--|\[)/d' "$host/output")" || true
    same "packages: $1: nobody complains" '' "$(complaints < "$host/errors")" || true
}
readonly on_library=02-first-host.md on_kit=01-from-nothing.md on_quick=gallery.md
readonly compiler=(cmake g++ make pkgconf)
readonly clip='ffmpeg -v error -nostdin -f lavfi -i testsrc2=size=320x240:rate=10:duration=1 clip.mkv'

# --- Each alone ----------------------------------------------------------------------------------------------------

# libraries QT: the packages of the libraries for that Qt. What is built with those of a library runs with it alone.
libraries() {
    local qt=$1 infix='' major=1 word
    [[ $qt == 5 ]] || infix=-qt6 major=-qt6-1

    if alone "libzoeffect$infix-dev" "${compiler[@]}"; then
        cp -r tests/consumer "$root/root"
        use "Qt $qt: CMake builds a host" 'cd consumer && cmake -S . -B cmake && cmake --build cmake' || true
        use "Qt $qt: pkg-config builds it" "cd consumer && mkdir plain &&
            g++ -std=c++17 main.cpp -o plain/consumer \$(pkg-config --cflags --libs zoeffect$infix)" || true
        # The log of each is called after the program, and is to hold what this one wrote.
        for word in cmake plain; do
            use "Qt $qt: it runs, $word" "rm -f /tmp/*.log && consumer/$word/consumer" || true
        done
        cp "$root/root/consumer/plain/consumer" "$folder/programs" || true
        if alone "libzoeffect$major"; then
            cp "$folder/programs/consumer" "$root/root"
            use "Qt $qt: it runs with the library alone" ./consumer || true
        fi
    fi

    if alone "libzoeffectkit$infix-dev" "${compiler[@]}" ffmpeg; then
        chapter "Qt $qt: the host on the kit" $on_kit
        use "Qt $qt: pkg-config builds it" "cd host &&
            g++ -std=c++17 main.cpp -o from-nothing \$(pkg-config --cflags --libs zoeffectkit$infix)" || true
        cp "$root/root/host/from-nothing" "$folder/programs" || true
        mkdir "$root"/root/{tests,examples}
        cp -r tests/newcomer "$root/root/tests"
        cp -r examples/newcomer "$root/root/examples"
        use "Qt $qt: the window of the guide is built" 'cmake -S tests/newcomer -B window && cmake --build window' || true
        use "Qt $qt: all that it can, by mouse and keys" window/tst_newcomer || true
        use "Qt $qt: there is a clip" "$clip" || true
        opens "Qt $qt: the window opens" /root/window/newcomer/newcomer /root/clip.mkv
        if alone "libzoeffectkit$major"; then
            chapter "Qt $qt: the host with the kit alone" $on_kit "$folder/programs/from-nothing"
        fi
    fi

    if alone "libzoeffectkitquick$infix-dev" "${compiler[@]}" ffmpeg; then
        cp scripts/proofs/support/quickhost.cpp "$root/root"
        use "Qt $qt: pkg-config builds a host of QML" \
            "g++ -std=c++17 quickhost.cpp -o quickhost \$(pkg-config --cflags --libs zoeffectkitquick$infix)" || true
        cp "$root/root/quickhost" "$folder/programs" || true
        cp -r examples/gallery "$root/root"
        use "Qt $qt: there is a clip" "${clip/clip.mkv/holiday.mkv}" || true
        block sh $((qt - 2)) $on_quick > "$root/root/install"
        block sh 5 $on_quick | sed '$d' > "$root/root/build-it"
        use "Qt $qt: CMake builds the gallery" '. ./install && . ./build-it' || true
        opens "Qt $qt: the gallery opens" sh -c "cd /root && $(block sh 5 $on_quick | tail -n 1)"
        if alone "libzoeffectkitquick$major"; then
            cp scripts/proofs/support/linked.qml "$folder/programs/quickhost" "$root/root"
            use "Qt $qt: it runs with the library alone" './quickhost --linked linked.qml 2>&1 | tee said' || true
            check "packages: Qt $qt: and says what is missing" \
                grep -q 'ffmpeg is missing\. Install the package ffmpeg' "$root/root/said" || true
        fi
    fi

    word=qml
    [[ $qt == 5 ]] || word=qml6
    if alone "$word-module-zoeffect-kit"; then
        cp scripts/proofs/support/preview.qml examples/contrast.qml "$folder/programs/quickhost" "$root/root"
        use "Qt $qt: there is a clip" "$clip && cp clip.mkv holiday.mkv" || true
        use "Qt $qt: QML shows a clip by the module alone" './quickhost preview.qml' || true
        block sh $((qt - 4)) $on_quick > "$root/root/commands"
        sed '$d' "$root/root/commands" > "$root/root/install"
        use "Qt $qt: the guide's QML: what it takes besides" '. ./install' || true
        opens "Qt $qt: the guide's QML opens its window" sh -c "cd /root && $(tail -n 1 "$root/root/commands")"
    fi
}
libraries 5
libraries 6

if alone zoeffect-tools; then
    same 'packages: zoconvert finds ffmpeg' "zoconvert $(scripts/version)
ffmpeg" "$(enter zoconvert --version | sed 's/^ffmpeg .*/ffmpeg/')" || true
    use 'zoconvert converts a clip' "$clip && zoconvert convert clip.mkv --crop 0,0,160,120 --text Hello -o cropped.mkv" || true
    same 'packages: as it was told' 160x120 "$(enter ffprobe -v error -show_entries stream=width,height -of csv=p=0:s=x \
        /root/cropped.mkv)" || true
    use 'zoconvert shows a frame of it' 'zoconvert preview clip.mkv --crop 0,0,160,120 --text Hello --output pictures' || true
    same 'packages: before and after' 'after.png
before.png
preview.png
watermark.png' "$(cd "$root/root/pictures" && printf '%s\n' *)" || true
    for file in bash-completion/completions/zoconvert zsh/vendor-completions/_zoconvert man/man1/zoconvert.1.gz; do
        check "packages: zoconvert has its ${file%%/*}" test -s "$root/usr/share/$file" || true
    done
    for file in over-ssh zoconvert.sbatch; do
        check "packages: zoconvert has what the page on farms tells to copy: $file" \
            cmp "docs/farm/$file" "$root/usr/share/doc/zoeffect-tools/examples/$file" || true
    done
fi

if alone zoeffect-editor; then
    use 'zoeditor: there is a clip' "$clip" || true
    opens 'zoeditor opens its window' zoeditor /root/clip.mkv
    for file in applications/zoeditor.desktop icons/hicolor/scalable/apps/zoeditor.svg \
        mime/packages/zoeffect-settings.xml man/man1/zoeditor.1.gz; do
        check "packages: zoeditor has its ${file%%/*}" test -s "$root/usr/share/$file" || true
    done
fi

if alone libzoeffect-doc; then
    check 'packages: the guide has its first page' \
        grep -q '<title>libzoeffect: ' "$root/usr/share/doc/libzoeffect-doc/html/index.html" || true
fi

if alone libzoeffect-common-dev; then
    for file in zoeffect/zoeffectmodel.h zoeffect-kit/zokit/project.h zoeffect-kitquick/zokitquick/types.h; do
        check "packages: it has $file" test -s "$root/usr/include/$file" || true
    done
fi

# --- As the guide says -----------------------------------------------------------------------------------------------

fresh
block sh 1 $on_library > "$root/root/install"
use 'the chapter on the library alone installs it' 'cd /packages && . /root/install' || finish
chapter 'the host on the library' $on_library
check 'packages: it leaves a picture' test -s "$root/root/host/watermark.png" || true
block sh 1 $on_kit > "$root/root/install"
use 'the first chapter installs the kit' 'cd /packages && . /root/install' || finish
chapter 'the host on the kit' $on_kit

# --- All together --------------------------------------------------------------------------------------------------

fresh
# What they take comes first: what has come after that, and stays, is the packages' own.
mapfile -t others < <(enter apt-get install --simulate "${packages[@]}" | sed -n 's/^Inst \([^ ]*\) .*/\1/p' |
    grep -vxF "$(printf '%s\n' "${packages[@]}")")
check 'packages: what they take is installed' add "${compiler[@]}" "${others[@]}" || finish
files_inside > "$folder/before"
check 'packages: they are installed together' add "${packages[@]}" || finish
files_inside > "$folder/installed"
enter dpkg -L "${packages[@]}" | LC_ALL=C sort -u > "$folder/owned"
same 'packages: nothing has come but what is theirs' '' \
    "$(LC_ALL=C comm -13 "$folder/before" "$folder/installed" | LC_ALL=C comm -23 - "$folder/owned")" || true

cp -r tests/consumer "$root/root"
names=([5]=zoeffect [6]=zoeffect-qt6)
for qt in 5 6; do
    use "both Qts: CMake builds a host of Qt $qt" \
        "cmake -S consumer -B qt$qt -DZOEFFECT_QT_MAJOR=$qt && cmake --build qt$qt --target consumer" || true
    same "packages: both Qts: its library" "lib${names[qt]}.so.1" \
        "$(enter objdump -p "/root/qt$qt/consumer" | sed -n 's/^ *NEEDED *\(libzoeffect.*\)/\1/p')" || true
done
use 'the programs of the guide are built' \
    'cmake -S /usr/share/doc/libzoeffect-doc/examples -B examples && cmake --build examples' || true
for program in examples/*.cpp; do
    name=example-$(basename "$program" .cpp)
    use "$name runs" "cd examples && ./$name" || true
done

check 'packages: they are removed' enter apt-get purge --yes "${packages[@]}" || true
files_inside > "$folder/after"
same 'packages: nothing is left behind' '' "$(LC_ALL=C comm -13 "$folder/before" "$folder/after")" || true
same 'packages: nothing else is gone' '' "$(LC_ALL=C comm -23 "$folder/before" "$folder/after")" || true

echo "found: ${#packages[@]} packages, each alone and all together"
echo "$rows_passed passed, $rows_failed failed"
finish
