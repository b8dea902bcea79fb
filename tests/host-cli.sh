#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# host-cli.sh BUILD: the command line of the example host that the build tree BUILD holds: what it prints,
# which pictures it writes, how it ends. Works in BUILD/tests/host-cli.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source-path=SCRIPTDIR source=support/rows.sh
source "$here/support/rows.sh"
build=$(readlink -f "$1")
program=$build/host/zopreview
work=$build/tests/host-cli

if [[ -e $work ]]; then
    chmod -R u+w "$work"
    rm -rf "$work"
fi
mkdir -p "$work"/{pictures,config,tmp,fake}
mkdir -m 700 "$work/runtime"
export TMPDIR=$work/tmp XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work/runtime
unset QT_QPA_PLATFORM DISPLAY WAYLAND_DISPLAY
cd "$work"

# media FILE ARGUMENT...: FILE as ffmpeg makes it.
media() {
    ffmpeg -v error -nostdin -y "${@:2}" "$1"
}

# A white second and a blue one, two audio tracks, one subtitle track; without loss, so that pixels are exact.
# shellcheck disable=SC2054 # the commas are ffmpeg's
clip=(-filter_complex 'color=white:s=320x240:r=10:d=1[a];color=blue:s=320x240:r=10:d=1[b];[a][b]concat[v]'
    -f lavfi -i sine=duration=2 -f lavfi -i sine=duration=2 -i hello.srt -map '[v]' -map 0 -map 1 -map 2
    -metadata:s:a:0 language=eng -metadata:s:a:1 language=ger -metadata:s:s:0 language=eng
    -c:v ffv1 -pix_fmt bgr0 -c:a flac -c:s srt)
printf '1\n00:00:00,500 --> 00:00:01,500\nHello\n' > hello.srt
media clip.mkv "${clip[@]}"
media red.png -f lavfi -i color=red:s=40x30,format=rgb24 -frames:v 1
media sound.wav -f lavfi -i sine=duration=1
media cover.m4a -f lavfi -i sine=duration=1 -i red.png -map 0 -map 1 -c:v png -disposition:v attached_pic
media upright.mp4 -f lavfi -i color=white:s=64x48:r=10:d=1 -c:v mpeg4
media turned.mp4 -i upright.mp4 -c copy -metadata:s:v:0 rotate=90
printf 'root:x:0:0\n' > words.txt
: > empty.mkv
mkdir folder.mkv
mkfifo pipe.mkv

# zopreview ARGUMENT...: runs the program in the folder pictures; leaves its exit code in code, what it printed
# in out and err.
zopreview() {
    code=0
    (cd pictures && "${prefix[@]}" "$program" "$@") > out.txt 2> err.txt < /dev/null || code=$?
    out=$(< out.txt)
    err=$(< err.txt)
}
prefix=()

# The files in the folder pictures, on one line.
pictures() {
    (cd pictures && find . ! -name . -printf '%P\n' | LC_ALL=C sort | paste -sd ' ')
}

# refused NAME CODE SENTENCE ARGUMENT...: the program ends with this code and this one sentence, without a
# picture.
refused() {
    local name=$1 expected=$2 sentence=$3
    zopreview "${@:4}"
    same "host-cli: $name" "ends $expected
zopreview: $sentence
pictures:" "ends $code
$err
pictures:$(pictures)" || true
    rm -rf pictures/*
}

# misused NAME SENTENCE ARGUMENT...
misused() {
    refused "$1" 2 "$2 (zopreview --help tells more)" "${@:3}"
}

# shown NAME ARGUMENT...: the program ends 0, silent on standard error, with both pictures.
shown() {
    local name=$1
    rm -rf pictures/*
    zopreview "${@:2}"
    same "host-cli: $name" 'ends 0
pictures: preview.png watermark.png' "ends $code${err:+
$err}
pictures: $(pictures)" || true
}

# lines PATTERN: what the program printed behind the label PATTERN.
lines() {
    sed -nE "s/^($1) {2,}//p" out.txt
}

# pixel FILE X Y: red, green, blue, alpha in hexadecimal digits.
pixel() {
    ffmpeg -v error -nostdin -i "pictures/$1" -vf "format=rgba,crop=1:1:$2:$3" -frames:v 1 -f rawvideo - |
        od -An -tx1 | tr -d ' '
}

# size FILE: WxH.
size() {
    ffprobe -v error -show_entries stream=width,height -of csv=p=0:s=x "pictures/$1"
}

# --- Wrong usage ------------------------------------------------------------------------------------------------

misused 'no clip' 'CLIP is missing'
misused 'an empty clip' 'CLIP is missing' ''
misused 'two clips' 'there is more than one CLIP: a, b' a b
misused 'unknown option' "Unknown option 'nonsense'" ../clip.mkv --nonsense
misused 'option without its value' "Missing value after '--text'" ../clip.mkv --text
misused 'option with an empty value' '--text: its value is empty' ../clip.mkv --text ''
misused 'empty output folder' '--output: its value is empty' ../clip.mkv --output ''
for value in 1,2,3 1,2,3,4,5 a,2,3,4 -1,2,3,4 ' 1,2,3,4' 1,2,3,4.5 1,2,3,100000; do
    misused "crop \"$value\"" "--crop takes X,Y,W,H in pixels or percent, not \"$value\"" ../clip.mkv "--crop=$value"
done
for value in 320 320x x240 320x240x1 -320x240 320X240 100000x10; do
    misused "size \"$value\"" "--size takes WxH, not \"$value\"" ../clip.mkv "--size=$value"
done
for value in 0x240 320x0 16385x1 16384x16384; do
    misused "size $value" "--size: a picture of $value cannot be made" ../clip.mkv --size $value
done
for value in -1 abc 1e3 nan 00:00:01; do
    misused "time \"$value\"" "--time takes seconds, not \"$value\"" ../clip.mkv "--time=$value"
done
for value in Color Color:bcs_contrast =1 Color:=1 :bcs_contrast=1 Color:-1:bcs_contrast=1 Color:0:1:a=1; do
    misused "set \"$value\"" "--set takes TYPE[:POS]:KEY=VALUE, not \"$value\"" ../clip.mkv "--set=$value"
done
misused 'audio tracks that are no numbers' '--audio-tracks takes stream numbers, not "eng"' \
    ../clip.mkv --audio-tracks eng
misused 'two subtitle tracks' '--subtitle-track takes a stream number, not "3,3"' ../clip.mkv --subtitle-track 3,3
misused 'default of no item' '--save-default takes TYPE:POS, not "Watermark:x"' ../clip.mkv --save-default Watermark:x
misused 'timeout of no seconds' '--timeout takes whole seconds, not "0"' ../clip.mkv --timeout 0
misused 'wrong usage comes before a missing clip' "Unknown option 'nonsense'" missing.mkv --nonsense

# --- Files that cannot be shown -----------------------------------------------------------------------------------

invalid='ffprobe cannot read it: Invalid data found when processing input'
refused 'missing clip' 1 '../missing.mkv: there is no such file' ../missing.mkv
refused 'folder as clip' 1 '../folder.mkv: this is not a regular file' ../folder.mkv
refused 'pipe as clip' 1 '../pipe.mkv: this is not a regular file' ../pipe.mkv
refused 'device as clip' 1 '/dev/zero: this is not a regular file' /dev/zero
refused 'text as clip' 1 "/etc/passwd: $invalid" /etc/passwd
refused 'empty clip' 1 "../empty.mkv: $invalid" ../empty.mkv
refused 'clip without a picture' 1 '../sound.wav: this file has no video stream' ../sound.wav
refused 'a cover is no video' 1 '../cover.m4a: this file has no video stream' ../cover.m4a
refused 'time behind the end' 1 '../clip.mkv: stream 0 has no picture at 99.5 s' ../clip.mkv --time 99.5
refused 'missing image' 1 '../none.png: this is no picture that can be read' ../clip.mkv --image ../none.png
refused 'text as image' 1 '../words.txt: this is no picture that can be read' ../clip.mkv --image ../words.txt
refused 'missing subtitle file' 1 '../none.srt: there is no such file' ../clip.mkv --subtitle ../none.srt
refused 'subtitle file without subtitles' 1 '../sound.wav: this file has no subtitle stream' \
    ../clip.mkv --subtitle ../sound.wav
refused 'text as subtitle file' 1 "/etc/passwd: $invalid" ../clip.mkv --subtitle /etc/passwd

# --- Wishes that the settings cannot fulfil -------------------------------------------------------------------------

refused 'unknown type' 1 'Colour: there is no effect type of this name' ../clip.mkv --set Colour:bcs_contrast=1
refused 'item that is not there' 1 'Watermark:1: there is no such item; Watermark has 1' \
    ../clip.mkv --text a --set Watermark:1:wm_fontsize=20
refused 'item not yet there' 1 'Watermark:0: there is no such item; Watermark has 0' \
    ../clip.mkv --set Watermark:0:wm_fontsize=20 --text a
refused 'text for a number' 1 'wm_fontsize: "large" is no int' ../clip.mkv --text a --set Watermark:0:wm_fontsize=large
refused 'text for a truth' 1 'play_loop: "maybe" is no bool' ../clip.mkv --set Audio:play_loop=maybe
refused 'text for a colour' 1 'wm_fontcolor: "reddish" is no QColor' \
    ../clip.mkv --text a --set Watermark:0:wm_fontcolor=reddish
refused 'text for a factor' 1 'wm_transfactor: "much" is no double' \
    ../clip.mkv --text a --set Watermark:0:wm_transfactor=much
refused 'text for a check state' 1 '_checkstate: "2" is no bool' ../clip.mkv --set Effect:0:_checkstate=2
refused 'text for the source size' 1 'crop_width: "wide" is no QString' ../clip.mkv --set Crop:crop_width=wide
crop_limits='is smaller than 24 x 24 or leaves the picture of 320 x 240'
refused 'crop beyond the right edge' 1 "crop: 300 x 100 at 21,0 $crop_limits" ../clip.mkv --crop 21,0,300,100
refused 'crop beyond the bottom' 1 "crop: 100 x 240 at 0,1 $crop_limits" ../clip.mkv --crop 0,1,100,240
refused 'crop too narrow' 1 "crop: 23 x 100 at 0,0 $crop_limits" ../clip.mkv --crop 0,0,23,100
refused 'crop too low' 1 "crop: 100 x 23 at 0,0 $crop_limits" ../clip.mkv --crop 0,0,100,23
refused 'crop in percent beyond the edge' 1 "crop: 320 x 120 at 3,0 $crop_limits" ../clip.mkv --crop 1%,0,100%,50%
refused 'audio track that is not there' 1 'stream 3: the file has no such track of type Audio' \
    ../clip.mkv --audio-tracks 1,3
refused 'subtitle track that is not there' 1 'stream 1: the file has no such track of type Subtitle' \
    ../clip.mkv --subtitle-track 1
refused 'default of a type that keeps none' 1 'Crop: this type keeps no defaults of the user' \
    ../clip.mkv --save-default Crop
refused 'default of an unknown type' 1 'Colour: there is no effect type of this name' ../clip.mkv --save-default Colour
refused 'default of a type of items' 1 \
    'Watermark: which item'"'"'s settings are to be saved is missing, as in Watermark:0' \
    ../clip.mkv --text a --save-default Watermark
refused 'default of an item that is not there' 1 'Subtitle:1: there is no such item; Subtitle has 1' \
    ../clip.mkv --save-default Subtitle:1
refused 'unknown default to forget' 1 'Colour: there is no effect type of this name' \
    ../clip.mkv --forget-default Colour

# --- ffmpeg's programs that misbehave -------------------------------------------------------------------------------

# fake NAME LINE...: a program of this name that does what the lines of shell say.
fake() {
    printf '#!/bin/sh\n' > "fake/$1"
    printf '%s\n' "${@:2}" >> "fake/$1"
    chmod +x "fake/$1"
}
fakes=(env "PATH=$work/fake:$PATH")

prefix=(env PATH=/nowhere)
refused 'no ffprobe' 1 'ffprobe cannot be started; it comes with the package ffmpeg' ../clip.mkv
prefix=("${fakes[@]}")
# shellcheck disable=SC2016 # expanded by the fake
fake ffprobe 'kill -KILL $$'
refused 'ffprobe crashes' 1 '../clip.mkv: ffprobe crashed' ../clip.mkv
fake ffprobe 'exit 3'
refused 'ffprobe fails without a word' 1 '../clip.mkv: ffprobe cannot read it: it gave no reason' ../clip.mkv
fake ffprobe 'echo nonsense'
refused 'ffprobe answers nonsense' 1 '../clip.mkv: this file has no video stream' ../clip.mkv
fake ffprobe 'echo "{\"streams\": [{\"index\": 4, \"codec_type\": \"video\", \"width\": 99999, \"height\": 99999}]}"'
refused 'picture that is too large' 1 '../clip.mkv: stream 4 has no size that can be shown' ../clip.mkv
fake ffprobe 'echo "{\"streams\": [{\"index\": 4, \"codec_type\": \"video\"}]}"'
refused 'picture without a size' 1 '../clip.mkv: stream 4 has no size that can be shown' ../clip.mkv
fake ffprobe 'exec sleep 600'
started=$SECONDS
refused 'ffprobe hangs' 1 '../clip.mkv: ffprobe gave no answer within 1 s' ../clip.mkv --timeout 1
rm fake/ffprobe
fake ffmpeg 'exec sleep 600'
refused 'ffmpeg hangs' 1 '../clip.mkv: ffmpeg gave no answer within 1 s' ../clip.mkv --timeout 1
check 'host-cli: it does not wait longer than it was told' test $((SECONDS - started)) -lt 200 || true
fake ffmpeg 'echo half a picture'
refused 'ffmpeg gives half a picture' 1 '../clip.mkv: stream 0 has no picture at 1 s' ../clip.mkv --time 1
rm fake/ffmpeg
prefix=()

# --- Pictures -----------------------------------------------------------------------------------------------------

zopreview --help
same 'host-cli: --help ends 0' 0 "$code" || true
for option in text image crop subtitle set audio-tracks subtitle-track save-default forget-default time size output \
    timeout trace help; do
    check "host-cli: --help tells of --$option" grep -qE "^  --$option( <|  )" out.txt || true
done

shown 'a clip alone' ../clip.mkv
same 'host-cli: a clip alone: what is printed' "clip              ../clip.mkv, 320 x 240, 2.0 s
audio tracks      1 (eng, flac), 2 (ger, flac)
subtitle tracks   3 (eng, subrip)
real effect       no
crop              none
audio             embedded track 1
subtitle          embedded track 3
pictures: $work/pictures/preview.png and $work/pictures/watermark.png" "$out" || true
same 'host-cli: a clip alone: sizes' '320x240 320x240' "$(size preview.png) $(size watermark.png)" || true
same 'host-cli: a clip alone: the frame' 'ffffffff' "$(pixel preview.png 160 120)" || true
same 'host-cli: a clip alone: no watermark' '00000000' "$(pixel watermark.png 160 120)" || true

shown 'image and crop' ../clip.mkv --image ../red.png --crop 20,10,200,100
same 'host-cli: crop as told' '200 x 100 at 20,10' "$(lines crop)" || true
same 'host-cli: image as told' '"../red.png", 40 x 30 at 32,24' "$(lines 'watermark 0')" || true
same 'host-cli: crop: inside, dimmed on its four sides' 'ffffffff 5f5f5fff 5f5f5fff 5f5f5fff 5f5f5fff' \
    "$(pixel preview.png 120 90) $(pixel preview.png 19 60) $(pixel preview.png 120 9) \
$(pixel preview.png 220 60) $(pixel preview.png 120 110)" || true
# The outline is black or yellow, two pixels wide, just inside.
outline=
for place in '20 60' '21 60' '219 60' '218 60' '120 10' '120 11' '120 109' '120 108'; do
    # shellcheck disable=SC2086 # two words
    outline+=$(pixel preview.png $place | sed -E 's/^(000000ff|ffff00ff)$/o/')
done
same 'host-cli: crop: outlined' oooooooo "$outline" || true
same 'host-cli: crop: the outline ends' 'ffffffff ffffffff' \
    "$(pixel preview.png 22 60) $(pixel preview.png 217 60)" || true
same 'host-cli: image: its corners' 'ff0000fe ff0000fe 00000000 00000000 00000000' \
    "$(pixel watermark.png 32 24) $(pixel watermark.png 71 53) $(pixel watermark.png 31 24) \
$(pixel watermark.png 32 23) $(pixel watermark.png 72 53)" || true
same 'host-cli: image: on top of the frame' 'ff0000ff' \
    "$(pixel preview.png 50 40 | sed 's/^fe/ff/; s/01/00/g')" || true

shown 'the same at half the size' ../clip.mkv --image ../red.png --crop 20,10,200,100 --size 160x120
same 'host-cli: half the size: sizes' '160x120 160x120' "$(size preview.png) $(size watermark.png)" || true
same 'host-cli: half the size: the settings stay' '200 x 100 at 20,10, "../red.png", 40 x 30 at 32,24' \
    "$(lines crop), $(lines 'watermark 0')" || true
same 'host-cli: half the size: image' 'ff0000fe ff0000fe 00000000 00000000' \
    "$(pixel watermark.png 16 12) $(pixel watermark.png 35 26) $(pixel watermark.png 15 12) \
$(pixel watermark.png 36 26)" || true
same 'host-cli: half the size: crop' 'ffffffff 5f5f5fff 5f5f5fff' \
    "$(pixel preview.png 60 45) $(pixel preview.png 9 30) $(pixel preview.png 110 30)" || true

shown 'image over the dimmed part' ../clip.mkv --image ../red.png --crop 100,100,100,100
same 'host-cli: watermarks are not dimmed' 'ff0000ff' \
    "$(pixel preview.png 50 40 | sed 's/^fe/ff/; s/01/00/g')" || true

shown 'crop in percent' ../clip.mkv --crop 10%,25.5%,50%,50%
same 'host-cli: crop in percent of 320 x 240' '160 x 120 at 32,61' "$(lines crop)" || true
shown 'crop of the whole frame' ../clip.mkv --crop 0,0,320,240
same 'host-cli: crop of the whole frame is none' none "$(lines crop)" || true

# apart NAME: no two watermarks that the program told of overlap.
apart() {
    local overlaps
    overlaps=$(lines 'watermark [0-9]+' | sed -E 's/.*, ([0-9]+) x ([0-9]+) at (-?[0-9]+),(-?[0-9]+)$/\1 \2 \3 \4/' | awk '
        { w[NR] = $1; h[NR] = $2; x[NR] = $3; y[NR] = $4 }
        END {
            for (i = 1; i <= NR; ++i)
                for (j = i + 1; j <= NR; ++j)
                    if (x[i] < x[j] + w[j] && x[j] < x[i] + w[i] && y[i] < y[j] + h[j] && y[j] < y[i] + h[i])
                        print i - 1 " and " j - 1
            print NR " watermarks"
        }')
    same "host-cli: $1" "$2 watermarks" "$overlaps" || true
}
shown 'text and image' ../clip.mkv --text Text --image ../red.png
apart 'text and image do not overlap' 2
shown 'image and text' ../clip.mkv --image ../red.png --text Text
apart 'image and text do not overlap' 2
shown 'three watermarks' ../clip.mkv --text Text --image ../red.png --text Text --size 640x480
apart 'three watermarks do not overlap' 3

shown 'frame at a time' ../clip.mkv --time 1.5
same 'host-cli: the frame at 1.5 s' '0000ffff' "$(pixel preview.png 160 120)" || true
shown 'frame at the start' ../clip.mkv --time 0
same 'host-cli: the frame at 0 s' 'ffffffff' "$(pixel preview.png 160 120)" || true
shown 'clip that is turned' ../turned.mp4
same 'host-cli: clip that is turned: size' '../turned.mp4, 48 x 64, 1.0 s; 48x64' \
    "$(lines clip); $(size preview.png)" || true
shown 'picture as clip' ../red.png
same 'host-cli: picture as clip' '40x30' "$(size preview.png)" || true

# --- Names ---------------------------------------------------------------------------------------------------------

# named NAME FILE ARGUMENT...: previews a clip of this file name.
named() {
    cp clip.mkv "pictures.in/$2"
    rm -rf pictures
    mkdir pictures
    code=0
    (cd pictures.in && "$program" --output ../pictures "${@:3}") > out.txt 2> err.txt < /dev/null || code=$?
    out=$(< out.txt)
    same "host-cli: clip whose name $1" "ends 0: preview.png watermark.png" "ends $code$(< err.txt): $(pictures)" || true
}
mkdir pictures.in
named 'has spaces' ' two  words .mkv' ' two  words .mkv'
named 'starts with a dash' -i.mkv ./-i.mkv
named 'starts with a dash, behind --' -i.mkv -- -i.mkv
named 'looks like a protocol' concat:a.mkv concat:a.mkv
named 'has placeholders' '%1 %2%3.mkv' '%1 %2%3.mkv'
same 'host-cli: placeholders in a name stay' '%1 %2%3.mkv, 320 x 240, 2.0 s' "$(lines clip)" || true
named 'has control characters' $'a\n\e[31mb.mkv' $'a\n\e[31mb.mkv'
same 'host-cli: control characters in a name are not printed' 'a??[31mb.mkv, 320 x 240, 2.0 s' "$(lines clip)" || true
export LC_ALL=C
named 'is not ASCII, in a locale that is' 'Übergrößenträger 映画.mkv' 'Übergrößenträger 映画.mkv'
same 'host-cli: name that is not ASCII is printed' 'Übergrößenträger 映画.mkv, 320 x 240, 2.0 s' "$(lines clip)" || true
unset LC_ALL
rm -rf pictures/*
refused 'control characters in a sentence' 1 '?[31mnone.mkv: there is no such file' $'\e[31mnone.mkv'
check 'host-cli: a display that is not there is not asked for' \
    env DISPLAY=:77 "$program" clip.mkv --output pictures || true

# --- Signals -------------------------------------------------------------------------------------------------------

shown 'trace' ../clip.mkv --trace --image ../red.png --crop 20,10,200,100 --set Color:bcs_contrast=20 \
    --set Color:bcs_contrast=20 --set Effect:4:_checkstate=true --set Audio_Echo:audio_effect_flag=true
same 'host-cli: trace: the signals, in order' 'effectDataChanged(Audio, item_add, nothing, 0)
effectDataChanged(Audio, item_add, nothing, 1)
effectDataChanged(Subtitle, item_add, nothing, 0)
effectDataChanged(Watermark, item_add, nothing, 0)
effectDataAboutChange(Crop)
effectDataChanged(Crop, crop_left, 20, -1)
effectDataChanged(Crop, crop_top, 10, -1)
effectDataChanged(Crop, crop_width, 200, -1)
effectDataChanged(Crop, crop_height, 100, -1)
effectDataChanged(Crop, crop_keepaspectratio, false, -1)
effectDataChanged(Crop, crop_aspectratio, "Crop Area", -1)
effectDataChanged(Crop)
effectDataChanged(Color, bcs_contrast, 20, -1)
effectDataChanged(Effect, _checkstate, true, 4)
effectDataChanged(Audio_Echo, audio_effect_flag, true, -1)' "$(lines signal)" || true
shown 'trace of a text' ../clip.mkv --trace --text Text --text ' ' --set Watermark:0:wm_fontcolor=#abcdef
same 'host-cli: trace: texts are measured as soon as that matters' \
    'effectDataChanged(Audio, item_add, nothing, 0)
effectDataChanged(Audio, item_add, nothing, 1)
effectDataChanged(Subtitle, item_add, nothing, 0)
effectDataChanged(Watermark, item_add, nothing, 0)
effectDataChanged(Watermark, wm_imagewidth, N, 0)
effectDataChanged(Watermark, wm_imageheight, N, 0)
effectDataChanged(Watermark, item_add, nothing, 1)
effectDataChanged(Watermark, wm_fontcolor, #abcdef, 0)
effectDataChanged(Watermark, wm_imagewidth, N, 1)
effectDataChanged(Watermark, wm_imageheight, N, 1)' \
    "$(lines signal | sed -E 's/(wm_image(width|height)), [1-9][0-9]*,/\1, N,/')" || true
shown 'no trace' ../clip.mkv --text Text
same 'host-cli: without --trace no signals' '' "$(lines signal)" || true

# --- Answers -------------------------------------------------------------------------------------------------------

# answers NAME EXPECTED ARGUMENT...: what the program prints behind the label "not default".
answers() {
    shown "$1" ../clip.mkv "${@:3}"
    same "host-cli: $1: what differs from the defaults" "$2" "$(lines 'not default')" || true
}
answers 'number' 'Color: bcs_brightness -7, bcs_contrast 20' \
    --set Color:bcs_brightness=-7 --set Color:bcs_contrast=20
same 'host-cli: contrast is a real effect' yes "$(lines 'real effect')" || true
answers 'number set to its default' '' --set Color:bcs_contrast=0
answers 'truth' 'Audio: play_loop true' --set Audio:play_loop=true
answers 'factor' 'Watermark:0: wm_transfactor 1.25' --image ../red.png --set Watermark:0:wm_transfactor=1.25
same 'host-cli: factor: alpha 125' 'ff00007d' "$(pixel watermark.png 40 30)" || true
answers 'colour by name' 'Watermark:0: wm_fontcolor #ff0000' --text a --set Watermark:0:wm_fontcolor=red
answers 'font' 'Watermark:0: wm_fontname font DejaVu Serif' --text a --set 'Watermark:0:wm_fontname=DejaVu Serif'
answers 'text with colons and equals signs' 'Watermark:0: wm_fontstyle "a:b=c"' \
    --text a --set Watermark:0:wm_fontstyle=a:b=c
answers 'text set to nothing' 'Watermark:0: wm_fontstyle ""' --text a --set Watermark:0:wm_fontstyle=
answers 'source size' 'Crop: crop_height 100, crop_width 200' \
    --set Crop:crop_width=200 --set Crop:crop_height=100
same 'host-cli: source size: it is a crop' '200 x 100 at 0,0' "$(lines crop)" || true
answers 'keys of the host are no differences' '' --set Color:mine=1 --set Color:yours=true --set Color:theirs=text
answers 'place of a watermark' 'Watermark:0: wm_hposition 33' --image ../red.png --set Watermark:0:wm_hposition=33
same 'host-cli: place of a watermark: picture' '00000000 ff0000fe' \
    "$(pixel watermark.png 32 24) $(pixel watermark.png 33 24)" || true
answers 'frame effect' 'Effect: Effect "Blur|false|Sharpen|false|Mirror|false|Flip|false|Sepia|true|'\
'Greyscale|false|Negative|false|Emboss|false|Mosaic|false|Noise|false|Vignette|false|Old Film|false"' \
    --set Effect:4:_checkstate=true
same 'host-cli: frame effect is a real effect' yes "$(lines 'real effect')" || true
answers 'audio effect' 'Audio_Echo: audio_echo_decay 400, audio_effect_flag true' \
    --set Audio_Echo:audio_effect_flag=true --set Audio_Echo:audio_echo_decay=400
same 'host-cli: audio effect is a real effect' yes "$(lines 'real effect')" || true
answers 'audio effect that is off' 'Audio_Echo: audio_echo_decay 400' --set Audio_Echo:audio_echo_decay=400
same 'host-cli: audio effect that is off is no real effect' no "$(lines 'real effect')" || true
answers 'type that is off' 'Color: bcs_contrast 20' --set Color:bcs_contrast=20 --set Color:_checkstate=false
same 'host-cli: type that is off is no real effect' no "$(lines 'real effect')" || true
answers 'watermarks that are off' '' --image ../red.png --set Watermark:_checkstate=false
same 'host-cli: watermarks that are off are not drawn' '00000000' "$(pixel watermark.png 40 30)" || true

# chosen NAME AUDIO SUBTITLE ARGUMENT...
chosen() {
    shown "$1" ../clip.mkv "${@:4}"
    same "host-cli: $1: chosen" "$2; $3" "$(lines audio); $(lines subtitle)" || true
}
chosen 'second audio track' 'embedded track 2' 'embedded track 3' --audio-tracks 2
chosen 'both audio tracks' 'embedded track 1, embedded track 2' 'embedded track 3' --audio-tracks 2,01
chosen 'subtitle track' 'embedded track 1' 'embedded track 3' --subtitle-track 3
chosen 'subtitle file' 'embedded track 1' 'file ../hello.srt' --subtitle ../hello.srt
same 'host-cli: subtitle file is a real effect' yes "$(lines 'real effect')" || true
chosen 'subtitle file, then the embedded track' 'embedded track 1' 'embedded track 3' \
    --subtitle ../hello.srt --subtitle-track 3
chosen 'the same subtitle file twice' 'embedded track 1' 'file ../hello.srt' \
    --subtitle ../hello.srt --subtitle ../hello.srt --trace
same 'host-cli: the same subtitle file twice is one track' 2 "$(lines signal | grep -c 'Subtitle, item_add')" || true
chosen 'no track' none none --set Audio:_checkstate=false --set Subtitle:0:_checkstate=false

# --- Defaults of the user ------------------------------------------------------------------------------------------

shown 'save a default' ../clip.mkv --text a --set Watermark:0:wm_fontsize=40 --set Watermark:0:wm_fontcolor=#ff8000 \
    --save-default Watermark:0 --set Watermark:0:wm_fontsize=10 --text b
same 'host-cli: save a default: what is saved' 'Watermark: wm_fontcolor #ff8000, wm_fontname font Tahoma, '\
'wm_fontsize 40, wm_fontstyle "Regular", wm_hposfactor 0.1, wm_transparency 0, wm_vposfactor 0.1' \
    "$(lines 'saved default')" || true
same 'host-cli: save a default: what is new starts from it' '1' \
    "$(lines 'not default' | grep -c '^Watermark:0: wm_fontsize 10$')" || true
same 'host-cli: save a default: the store' 1 \
    "$(find config/zopreview -name effectdefaults.json | wc -l)" || true
shown 'save a default of a type' ../clip.mkv --set Color:bcs_contrast=20 --save-default Color
shown 'defaults in the next run' ../clip.mkv --text c
same 'host-cli: defaults in the next run: both are there' 'Watermark
Color' "$(lines 'saved default' | sed 's/:.*//')" || true
same 'host-cli: defaults in the next run: contrast' yes "$(lines 'real effect')" || true
same 'host-cli: defaults in the next run: the text has the default colour' '' \
    "$(lines 'not default' | grep '^Watermark:0' || true)" || true
shown 'forget a default' ../clip.mkv --forget-default Color
same 'host-cli: forget a default: this run' 'no Watermark' \
    "$(lines 'real effect') $(lines 'saved default' | sed 's/:.*//')" || true
shown 'forget the other default' ../clip.mkv --forget-default Watermark --forget-default Crop
shown 'no default in the next run' ../clip.mkv
same 'host-cli: no default in the next run' '' "$(lines 'saved default')" || true

# --- Pictures that cannot be written -------------------------------------------------------------------------------

shown 'output folder that is made' ../clip.mkv --output .
rm -rf pictures/*
zopreview ../clip.mkv --output 'a folder/b'
same 'host-cli: output folder below one that is made, too' 'a folder a folder/b a folder/b/preview.png '\
'a folder/b/watermark.png' "$(pictures)" || true
same 'host-cli: output folder in the last line' \
    "pictures: $work/pictures/a folder/b/preview.png and $work/pictures/a folder/b/watermark.png" \
    "$(tail -n 1 <<< "$out")" || true
rm -rf pictures/*

refused 'output folder that is a file' 1 '../words.txt: this folder cannot be made' ../clip.mkv --output ../words.txt
refused 'output folder below a file' 1 '../words.txt/a: this folder cannot be made' \
    ../clip.mkv --output ../words.txt/a

mkdir closed
chmod 555 closed
if ((EUID == 0)); then
    # shellcheck disable=SC2054 # the comma is setpriv's
    prefix=(setpriv --bounding-set=-dac_override,-dac_read_search) # A root that heeds permissions.
fi
refused 'output folder that is read-only' 1 \
    '../closed/watermark.png: this picture cannot be written: Permission denied' ../clip.mkv --output ../closed
refused 'output folder in one that is read-only' 1 '../closed/a: this folder cannot be made' \
    ../clip.mkv --output ../closed/a
same 'host-cli: read-only folder stays empty' '' "$(ls -A closed)" || true
prefix=()

mkdir -p pictures/preview.png
zopreview ../clip.mkv --image ../red.png
same 'host-cli: one picture cannot be written: neither is' \
    "ends 1, ./preview.png: this picture cannot be written: Filename refers to a directory, preview.png" \
    "ends $code, ${err#zopreview: }, $(pictures)" || true
rm -rf pictures/*

# A clip of noise, whose picture is too large for the limit; the watermark picture is not.
media noise.mkv -f lavfi -i "color=white:s=320x240:r=10:d=1,noise=alls=100" -c:v ffv1 -pix_fmt bgr0
# shellcheck disable=SC2016 # expanded by the inner shell
prefix=(bash -c 'trap "" XFSZ; ulimit -f 8; exec "$@"' -)
zopreview ../noise.mkv --image ../red.png
same 'host-cli: disk full: neither picture, nor a part' \
    'ends 1, ./preview.png: this picture cannot be written whole, ' \
    "ends $code, ${err#zopreview: }, $(pictures)" || true
echo old > pictures/preview.png
echo old > pictures/watermark.png
zopreview ../noise.mkv --image ../red.png
same 'host-cli: disk full: both old pictures stay' '1 preview.png watermark.png old old' \
    "$code $(pictures) $(< pictures/preview.png) $(< pictures/watermark.png)" || true
prefix=()
zopreview ../noise.mkv --image ../red.png
same 'host-cli: old pictures are replaced' '0 preview.png watermark.png 320x240 320x240' \
    "$code $(pictures) $(size preview.png) $(size watermark.png)" || true

finish
