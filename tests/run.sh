#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# run.sh BUILD: ./run, with the zoconvert of the build tree BUILD: what it prints, which files it leaves, how it ends.
# Works in BUILD/tests/run.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
tree=$(dirname "$here")
build=$(readlink -f "$1")
work=$build/tests/run

rm -rf "$work"
mkdir -p "$work"/{scripts,tmp,config,clips}
mkdir -m 700 "$work/runtime"
export TMPDIR=$work/tmp XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work/runtime
export ZOCONVERT=$build/apps/zoconvert/zoconvert
cp "$tree/run" "$work"
cp "$tree/scripts/install-packages" "$work/scripts"
cd "$work/clips"
results=$work/build/run
ffmpeg -v error -nostdin -y -f lavfi -i color=white:s=320x240:r=10:d=1 -f lavfi -i sine=duration=1 -c:v ffv1 -c:a flac film.mkv
cp film.mkv ./-dash.mkv

# run ARGUMENT...: leaves the exit code in code, what was printed in out and err.
run() {
    code=0
    "$work/run" "$@" > "$work/out.txt" 2> "$work/err.txt" < /dev/null || code=$?
    out=$(< "$work/out.txt")
    err=$(< "$work/err.txt")
}

# shape FILE: WxH.
shape() {
    ffprobe -v error -select_streams v -show_entries stream=width,height -of csv=p=0:s=x "file:$1"
}

shapes() {
    for picture in before after preview watermark; do
        printf '%s ' "$(shape "$results/$picture.png")"
    done
}

streams() {
    ffprobe -v error -show_entries stream=codec_name -of csv=p=0 "file:$1" | paste -sd ' '
}

# alpha X Y: of the watermarks' picture.
alpha() {
    ffmpeg -v error -nostdin -i "$results/watermark.png" -vf "format=rgba,alphaextract,crop=1:1:$1:$2" -f rawvideo - |
        od -An -tu1 | tr -d ' '
}

# --- The editor ----------------------------------------------------------------------------------------------------

DISPLAY='' WAYLAND_DISPLAY='' QT_QPA_PLATFORM='' run --editor film.mkv
same 'run: the editor takes a display' \
    '1 run: there is no display. Start it in a desktop session, or take zoconvert: ./run --help.' "$code $err" || true

# --- The sample clip ------------------------------------------------------------------------------------------------

run
same 'run: the sample clip: ends 0, and warns of nothing' '0 ' "$code $err" || true
sample=$work/build/sample
same 'run: the sample clip: five lines' "clip       $sample/clip.mkv
edits      --crop 7.5%\\,7.5%\\,85%\\,85% --set Color:bcs_contrast=15 --subtitle $sample/subtitle.srt \
--text libzoeffect\\ draws\\ this\\ text --place top-left:10% --image $sample/logo.png --place bottom-right:10%
pictures   $results/before.png $results/after.png $results/preview.png
watermarks $results/watermark.png
converted  $results/converted.mkv" "$out" || true
same 'run: the sample clip: sizes' '1280x720 1088x612 1280x720 1280x720  1088x612' \
    "$(shapes) $(shape "$results/converted.mkv")" || true
same 'run: the sample clip: the tracks stay' 'h264 aac aac subrip' "$(streams "$results/converted.mkv")" || true
# The logo, 160x160, ends 128 pixels from the right and 72 from the bottom.
same 'run: the sample clip: the logo is round' '254 0 0 0 0' \
    "$(alpha 1072 568) $(alpha 994 490) $(alpha 1150 490) $(alpha 994 646) $(alpha 1150 646)" || true

# --- Another clip ---------------------------------------------------------------------------------------------------

run film.mkv --crop 0,0,160,120
same 'run: a clip: what is told' "0
clip       film.mkv
edits      --crop 0\\,0\\,160\\,120
pictures   $results/before.png $results/after.png $results/preview.png
watermarks $results/watermark.png
converted  $results/converted.mkv" "$code$err
$out" || true
same 'run: a clip: sizes' '320x240 160x120 320x240 320x240  160x120' "$(shapes) $(shape "$results/converted.mkv")" || true
same 'run: a clip: nothing is left of the one before' 'ffv1 flac' "$(streams film.mkv)" || true
run -- -dash.mkv --reset all
same 'run: a name with a dash, and nothing to do: copied' '0 ffv1 flac' "$code$err $(streams "$results/converted.mkv")" || true
run --crop 0,0,640,360
same 'run: edits alone: the sample clip' "0 $sample/clip.mkv 640x360" \
    "$code $(sed -n 's/^clip *//p' <<< "$out") $(shape "$results/converted.mkv")" || true

# --- What is refused ------------------------------------------------------------------------------------------------

# refused NAME CODE SENTENCE ARGUMENT...
refused() {
    run "${@:4}"
    same "run: $1" "$2 $3" "$code $err" || true
}
refused 'no such clip' 1 'zoconvert: none.mkv: no such file.' none.mkv
refused 'a value out of bounds' 2 \
    'zoconvert: film.mkv: Color:bcs_contrast: 400 is not between -50 and 50.' film.mkv --set Color:bcs_contrast=400
printf 'no film\n' > words.mkv
run words.mkv
same 'run: no media: one sentence' '1 1' "$code $(wc -l <<< "$err")" || true

# --- Help -----------------------------------------------------------------------------------------------------------

run --help
same 'run: --help ends 0' '0 ' "$code $err" || true
# edits: the options between the headings of these and of the output options.
edits=$("$ZOCONVERT" convert --help | sed -n '/^Edits/,/^Output options/p' | grep -oE '^ +--[a-z-]+' | tr -d ' ' | LC_ALL=C sort -u)
check 'run: zoconvert has edits' test "$(wc -l <<< "$edits")" -ge 16 || true
same 'run: --help lists them' "$edits" "$(grep -oE ' --[a-z-]+ ?[A-Z|\[L]?' <<< "$out" | grep -oE -- '--[a-z-]+' |
    grep -vxE -e '--(help|editor)' | LC_ALL=C sort -u)" || true
finish
