#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Fuzzes the library, guided by coverage. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove fuzz TARGET|all SECONDS [LIBFUZZER-ARGUMENT...]
       fuzz keep TARGET|all [FILE...]

Builds the fuzz targets of tests/fuzz with clang++, libFuzzer, AddressSanitizer and UndefinedBehaviorSanitizer in
build/fuzz and runs one of them, or each in turn, for that many seconds, from the inputs in
tests/fuzz/corpus/TARGET.txt and those found before. New inputs go to build/fuzz/corpus/TARGET; "keep" adds those of
them that reach what the others do not, and the files named, to tests/fuzz/corpus/TARGET.txt.

  operations   sequences of public operations, with listeners that call back
  storefile    the file of the embedded preference store
  imagefile    the image file of a watermark
  catalogue    a host's table of effect types
  summary      the saved text of the frame effects
  settingsfile settings files and presets
  journal      the journal of a session
  plan         a line of a plan of conversions
  probe        what ffprobe and ffmpeg tell of a file, of themselves and of how far they are

A finding ends the run of its target; its input is kept in build/fuzz/findings/TARGET. Ends with the line
"N passed, N failed" (inputs that were run, findings); 0 when nothing was found, 1 otherwise, 2 on wrong usage.
TEXT
}

readonly targets=(operations storefile imagefile catalogue summary settingsfile journal plan probe)
if [[ ${1:-} == --help || ${1:-} == -h ]]; then
    usage
    exit 0
fi
keep=false
if [[ ${1:-} == keep ]]; then
    keep=true
    shift
fi
if (($# < 1)) || { ! $keep && [[ ! ${2:-} =~ ^[1-9][0-9]*$ ]]; }; then
    usage >&2
    exit 2
fi
chosen=("$1")
if [[ $1 == all ]]; then
    chosen=("${targets[@]}")
elif [[ " ${targets[*]} " != *" $1 "* ]]; then
    usage >&2
    exit 2
fi
shift
seconds=0
if ! $keep; then
    seconds=$1
    shift
fi

scripts/install-packages build test libclang-rt-14-dev

readonly folder=$PWD/build/fuzz
readonly corpora=$PWD/tests/fuzz
readonly report_interval=5 # Seconds between two lines of progress.
mkdir -p "$folder"

build() {
    local flags=-fno-omit-frame-pointer
    flags+=' -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow,float-divide-by-zero'
    flags+=' -fno-sanitize-recover=all'
    if command -v ccache > /dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache
    fi
    cmake -G Ninja -S . -B "$folder/build" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ \
        -DCMAKE_CXX_FLAGS_DEBUG='-O1 -g1' "-DCMAKE_CXX_FLAGS=$flags" -DZOEFFECT_QT_MAJOR=5 \
        -DZOEFFECT_BUILD_TESTS=ON -DZOEFFECT_TEST_PACKAGE=OFF \
        -DZOEFFECT_TEST_SOURCES=OFF -DZOEFFECT_WARNINGS_AS_ERRORS=ON -DZOEFFECT_FUZZ=ON &&
        cmake --build "$folder/build" --parallel "$(nproc)" --target "${targets[@]/#/fuzz_}"
}

echo 'fuzz: building'
if ! build > "$folder/build.log" 2>&1; then
    cat "$folder/build.log"
    echo 'fuzz: the build failed'
    echo '0 passed, 1 failed'
    exit 1
fi

export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=halt_on_error=1:detect_leaks=1:detect_stack_use_after_return=1:quarantine_size_mb=16
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
# Relative, since the sanitizers' options cannot hold every path.
export LSAN_OPTIONS=suppressions=tests/lsan.supp:print_suppressions=0

# The targets' own files are written for every input: in memory where that can be had.
scratch=$(mktemp -d -p /dev/shm 2> /dev/null || mktemp -d)
runner=
stop() {
    if [[ -n $runner ]]; then
        kill "$runner" 2> /dev/null || true
    fi
    rm -rf "$scratch"
}
trap stop EXIT
export TMPDIR=$scratch XDG_CONFIG_HOME=$scratch

# The inputs of a corpus file are its lines: \\ is a backslash, \xNN any byte, # starts a comment.
# unpack CORPUS FOLDER: each input as a file of its own.
unpack() {
    mkdir -p "$2"
    perl -ne 'BEGIN { $to = pop } next if /^#/; chomp; s/\\(x(..)|\\)/defined $2 ? chr hex $2 : "\\"/ge;
        open my $input, ">", "$to/$." or die; print $input $_' "$1" "$2"
}

# pack FOLDER CORPUS: its comments stay.
pack() {
    local comments
    comments=$(grep '^#' "$2")
    {
        printf '%s\n' "$comments"
        find "$1" -type f -exec perl -0777 -ne \
            's/\\/\\\\/g; s/([^ -~]|^[# ]| $)/sprintf "\\x%02x", ord $1/ge; print "$_\n"' {} \; | LC_ALL=C sort -u
    } > "$folder/packed.txt"
    mv "$folder/packed.txt" "$2"
}

# run TARGET [LIBFUZZER-ARGUMENT...]: leaves what libFuzzer says in build/fuzz/TARGET.log.
run() {
    local target=$1 log=$folder/$1.log options=() started=$SECONDS status=0 line
    shift
    unpack "$corpora/corpus/$target.txt" "$scratch/corpus/$target"
    mkdir -p "$folder/corpus/$target" "$folder/findings/$target"
    if [[ -e $corpora/$target.dict ]]; then
        options+=("-dict=$corpora/$target.dict")
    fi
    if [[ $target == imagefile ]]; then
        # A picture may take 128 MB; Qt's copies of it, one by one, no more.
        options+=(-malloc_limit_mb=200)
    fi
    "$folder/build/tests/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=512 -max_len=4096 \
        -print_final_stats=1 -artifact_prefix="$folder/findings/$target/" ${options[@]+"${options[@]}"} "$@" \
        "$folder/corpus/$target" "$scratch/corpus/$target" > "$log" 2>&1 &
    runner=$!
    while kill -0 "$runner" 2> /dev/null; do
        sleep 1
        if (((SECONDS - started) % report_interval == 0)); then
            line=$(grep -aE '^#[0-9]+.* cov: ' "$log" | tail -n 1 || true)
            echo "fuzz $target: $((SECONDS - started)) s ${line//$'\t'/ }"
        fi
    done
    wait "$runner" || status=$?
    runner=
    return "$status"
}

# keep TARGET [FILE...]: puts what reaches more, and the files named, into the corpus.
keep() {
    local target=$1 merged=$scratch/corpus/$1
    shift
    unpack "$corpora/corpus/$target.txt" "$merged"
    mkdir -p "$folder/corpus/$target"
    "$folder/build/tests/fuzz/fuzz_$target" -merge=1 -timeout=10 -rss_limit_mb=512 "$merged" \
        "$folder/corpus/$target" > "$folder/$target.log" 2>&1 || return
    (($# == 0)) || cp "$@" "$merged" || return
    pack "$merged" "$corpora/corpus/$target.txt"
    echo "fuzz $target: $(grep -cv '^#' "$corpora/corpus/$target.txt") inputs kept"
}

passed=0
failed=0
for target in "${chosen[@]}"; do
    status=0
    if $keep; then
        keep "$target" "$@" || status=$?
        if ((status == 0)); then passed=$((passed + 1)); else failed=$((failed + 1)); fi
        continue
    fi
    run "$target" "$@" || status=$?
    log=$folder/$target.log
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -n 1)
    passed=$((passed + ${executions:-0}))
    grep -aE '^#[0-9]+.*DONE' "$log" || true
    if ((status != 0)); then
        failed=$((failed + 1))
        grep -aE 'ERROR: |SUMMARY: |runtime error: |does not hold: ' "$log" || tail -n 20 "$log"
        finding=$(sed -nE 's/.*Test unit written to (.*)$/\1/p' "$log" | tail -n 1)
        echo "fuzz $target: a finding, told in $log"
        echo "   input:  ${finding:-none was kept}"
        echo "   replay: build/fuzz/build/tests/fuzz/fuzz_$target ${finding@Q}"
    fi
done
echo "$passed passed, $failed failed"
((failed == 0 && passed > 0))
