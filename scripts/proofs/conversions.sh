#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Conversions end whole or not at all, of any file. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove conversions [MOMENTS [FILES]]

Builds zoconvert in build/dev.

  kills   at MOMENTS random moments (200) it, or a child of it, is ended, its folder removed or its disk full, alone or
          while another one does the same: there is a whole result or what was there before, nothing else is left, and
          no child lives on after two seconds
  files   FILES media files (100) of 26 pairs of container and codecs, made by ffmpeg, are converted, each by a random
          scene: none fails, none is told to be damaged, and each track that is told to be copied has the same packets;
          where it leaves a transport stream for a container in which its codec has another form, it is the same decoded
  trace   hostile files, and the hostile tests with their names of clips, images and subtitles, are converted under
          strace: nothing outside of the target folder, the folder for temporary files and the configuration is written,
          made, renamed or removed, no file that a hostile one names is opened, and no socket

The last line counts moments, files and traced runs.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 2 "$@"
moments=${1:-200}
count=${2:-100}

scripts/install-packages build run test strace || exit 1
# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
build dev zoconvert tst_zoconvert_kills tst_zoconvert_hostile
zoconvert=$PWD/build/dev/apps/zoconvert/zoconvert
hostile=$PWD/build/dev/tests/apps/tst_zoconvert_hostile
work=$PWD/build/conversions
rm -rf "$work"
mkdir -p "$work"/{clips,results,tmp,config}
mkdir -m 700 "$work/runtime" # Without one the C library is asked for the user's name, and asks others.
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 TMPDIR=$work/tmp XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work/runtime

passed=0
failed=0
pass() { passed=$((passed + $1)); }
fail() {
    echo "FAILED: $1"
    failed=$((failed + 1))
}

# --- Kills ---------------------------------------------------------------------------------------------------------

echo "== $moments moments"
if ZOCONVERT_KILLS=$moments timeout 3600 build/dev/tests/apps/tst_zoconvert_kills anyMomentLeavesAllOrNothing \
    > "$work/kills.txt" 2>&1; then
    sed -n 's/^QINFO.*() //p' "$work/kills.txt"
    pass "$moments"
else
    grep -A 3 '^FAIL' "$work/kills.txt" || cat "$work/kills.txt"
    fail 'a moment'
fi

# --- Files ---------------------------------------------------------------------------------------------------------

# Container, then what ffmpeg is told of picture and sound.
readonly pairs=(
    'mp4 -c:v libx264 -preset ultrafast -pix_fmt yuv420p -c:a aac'
    'mp4 -c:v libx265 -preset ultrafast -x265-params log-level=error -c:a aac'
    'mp4 -c:v mpeg4 -c:a libmp3lame'
    'mp4 -c:v libvpx-vp9 -deadline realtime -cpu-used 8 -c:a libopus'
    'mp4 -c:v libx264 -preset ultrafast -pix_fmt yuv420p -c:a ac3'
    'mov -c:v libx264 -preset ultrafast -pix_fmt yuv420p -c:a aac'
    'mov -c:v prores_ks -c:a pcm_s16le'
    'mov -c:v mjpeg -pix_fmt yuvj420p -c:a pcm_s16le'
    'mkv -c:v libx264 -preset ultrafast -pix_fmt yuv420p -c:a libvorbis'
    'mkv -c:v libx264 -preset ultrafast -pix_fmt yuv444p -c:a flac'
    'mkv -c:v libx265 -preset ultrafast -x265-params log-level=error -pix_fmt yuv420p10le -c:a ac3'
    'mkv -c:v libvpx-vp9 -deadline realtime -cpu-used 8 -c:a libopus'
    'mkv -c:v ffv1 -pix_fmt yuv422p -c:a flac'
    'mkv -c:v mpeg2video -c:a mp2'
    'mkv -c:v mjpeg -pix_fmt yuvj422p -c:a pcm_s24le'
    'mkv -c:v libtheora -c:a libvorbis'
    'webm -c:v libvpx -deadline realtime -cpu-used 8 -c:a libvorbis'
    'webm -c:v libvpx-vp9 -deadline realtime -cpu-used 8 -c:a libopus'
    'avi -c:v mpeg4 -c:a libmp3lame'
    'avi -c:v mjpeg -pix_fmt yuvj420p -c:a pcm_s16le'
    'ts -c:v libx264 -preset ultrafast -pix_fmt yuv420p -c:a aac'
    'ts -c:v mpeg2video -c:a mp2'
    'mpg -c:v mpeg2video -c:a mp2'
    'flv -c:v libx264 -preset ultrafast -pix_fmt yuv420p -c:a aac'
    'ogv -c:v libtheora -c:a libvorbis'
    'wmv -c:v wmv2 -c:a wmav2'
)
readonly sizes=(160x120 176x144 320x180 144x256)
readonly scenes=(
    '--crop 10%,10%,60%,60%'
    '--set Color:bcs_contrast=20 --set Color:bcs_saturation=-30'
    '--text Hello --place bottom-right --set Watermark:0:wm_fontcolor=#ff8000'
    '--crop 0,0,100,100 --text Hello --place centre'
    '--subtitle words.srt'
    '--subtitle words.srt --soft-subtitles --container mkv'
    '--set Audio_Normalize:audio_effect_flag=true'
    '--set Audio_Speed:audio_effect_flag=true --set Audio_Speed:audio_speed_factor=150'
    '--trim 0.2,0.8'
    '--size 80x80 --fps 10'
    '--container mkv'
    '--video-codec ffv1 --container mkv'
    '--audio-codec flac --container mkv'
    ''
)

# hash FILE TRACK [copied]: of the packets of a track, or of what is decoded of it.
hash() {
    local as=()
    [[ -z ${3:-} ]] || as=(-c copy)
    ffmpeg -v error -nostdin -i "$1" -map "0:$2" "${as[@]}" -f streamhash -hash md5 - 2>&1 | sed 's/.*=//'
}

# is_same CODEC CLIP TRACK RESULT TRACK: whether a copied track is. In a transport stream these codecs say in each packet
# what other containers say once.
is_same() {
    if [[ $2 == *.ts && $4 != *.ts && " h264 hevc aac " == *" $1 "* ]]; then
        [[ $(hash "$2" "$3") == "$(hash "$4" "$5")" ]]
    else
        [[ $(hash "$2" "$3" copied) == "$(hash "$4" "$5" copied)" ]]
    fi
}

# convert_one NUMBER: says what is wrong with it, and ends 1 then.
convert_one() {
    local kind container options clip result scene size said number track place codec
    kind=${pairs[$1 % ${#pairs[@]}]}
    scene=${scenes[RANDOM % ${#scenes[@]}]}
    size=${sizes[RANDOM % ${#sizes[@]}]}
    read -ra options <<< "${kind#* }"
    container=${kind%% *}
    clip=clips/$1.$container
    [[ $container != wmv && $container != mpg ]] || size=176x144
    ffmpeg -v error -nostdin -y -f lavfi -i "testsrc2=s=$size:r=25:d=1" -f lavfi -i sine=d=1 "${options[@]}" "$clip" || return
    read -ra options <<< "$scene"
    said=$("$zoconvert" convert "$clip" "${options[@]}" --output-folder results --overwrite --progress none 2>&1) || {
        echo "$kind, $size, $scene: $said"
        return 1
    }
    result=$(printf '%s\n' "results/$1-converted."*)
    if [[ $said == *damaged* || ! -s $result ]]; then
        echo "$kind, $size, $scene: $said"
        return 1
    fi
    # Tracks that are left out or burned in have no place in the result.
    place=0
    while read -r number track; do
        case $track in
        *': left out'* | *': burned in') continue ;;
        *': copied')
            codec=${track%): copied}
            if [[ $number =~ ^[0-9]+$ ]] && ! is_same "${codec##* }" "$clip" "$number" "$result" $place; then
                echo "$kind, $size, $scene: track $number $track, and is another"
                return 1
            fi
            ;;
        esac
        place=$((place + 1))
    done < <(sed -nE 's/^zoconvert: [^:]*: track ([^ ]+) (.*)$/\1 \2/p' <<< "$said")
}

echo "== $count files"
RANDOM=20240229
cd "$work"
printf '1\n00:00:00,100 --> 00:00:00,900\nHello\n' > words.srt
for ((file = 0; file < count; ++file)); do
    if wrong=$(convert_one $file); then
        pass 1
    else
        fail "$wrong"
    fi
    RANDOM=$((file * 7919 + 17)) # What a subshell has drawn is not drawn here.
done

# --- Trace ---------------------------------------------------------------------------------------------------------

# Calls that only look, or go on with what is open.
readonly looks='access|chdir|execve|faccessat2?|getcwd|l?getxattr|l?stat|newfstatat|readlink(at)?|sendfile|statfs|statx'

# outside [PROCESS]: which calls of the trace, but for those of a process, changed anything outside of the folders above,
# or asked for the network. Whatever is not known to look only counts as a change.
outside() {
    local line path
    sed -E "/ = -1 E/d; /^[0-9]+ +<\.\.\. /d; /^${1:-none} /d; /^[0-9]+ +($looks)\(/d
        /^[0-9]+ +open(at2?)?\(/{/O_(WRONLY|RDWR|CREAT|TRUNC)/!d}" "$work/trace" | while IFS= read -r line; do
        while IFS= read -r path; do
            [[ $path =~ ^\"($work/(traced|tmp|config)(/.*)?|/dev/null|/dev/tty)\"$ ]] || echo "$line"
        done < <(grep -oE '"([^"\\]|\\.)*"' <<< "$line" || echo 'no path')
    done
}

# traced COMMAND...: its words are in "said", its calls in "trace".
traced() {
    strace -f -qq -e trace=%file,%network -e signal=none -o "$work/trace" "$@" > "$work/said" 2>&1 < /dev/null
}

echo '== hostile files and names, traced'
mkdir -p hostile traced
cd hostile
ffmpeg -v error -nostdin -y -f lavfi -i testsrc2=s=160x120:r=25:d=0.4 -c:v libx264 -pix_fmt yuv420p plain.mkv
ffmpeg -v error -nostdin -y -i plain.mkv -c copy other.ts
head -c 4000 plain.mkv > cut.mkv
: > empty.mkv
head -c 20000 /dev/urandom > noise.mkv
printf '#EXTM3U\n#EXTINF:1,\nother.ts\n#EXTINF:1,\nhttp://127.0.0.1:9/x.ts\n#EXT-X-ENDLIST\n' > list.mkv
printf 'ffconcat version 1.0\nfile plain.mkv\nfile http://127.0.0.1:9/x.mkv\n' > join.mkv
mkfifo pipe.mkv
# shellcheck disable=SC2016 # names, not commands
for name in http:x concat:x -y $'a\nb' '%03d' '$(id)' "it's"; do
    cp plain.mkv "./$name.mkv"
done
runs=0
for file in *.mkv; do
    traced "$zoconvert" convert --set Color:bcs_contrast=10 --text Hello --output-folder "$work/traced" -q -- "$file" ||
        true
    wrong=$(outside)
    [[ $file == plain.mkv ]] || wrong+=$(grep -E '"([^"]*/)?(plain\.mkv|other\.ts)"' "$work/trace" || true)
    if [[ -s $work/trace && -z $wrong ]]; then
        pass 1
        runs=$((runs + 1))
    else
        fail "$file: $wrong"
    fi
done
same=$(find . -type f -newer join.mkv ! -name '*.mkv' ! -name '*.ts')
[[ -z $same ]] || fail "written among the inputs: $same"

# The hostile tests make their files below the folder for temporary ones, and see to it that no other changes there.
"$hostile" > /dev/null 2>&1 || true # Makes their sample clips.
wrong=
traced "$hostile" || wrong=$(grep -A 3 '^FAIL' "$work/said" || cat "$work/said")
wrong+=$(outside "$(sed -n '1s/ .*//p' "$work/trace")") # The first process is the test.
if [[ -s $work/trace && -z $wrong ]]; then
    rows=$(grep -cE '^PASS.*\(.+\)$' "$work/said")
    pass "$rows"
    runs=$((runs + rows))
else
    fail "the hostile tests: $wrong"
fi

echo "found: $moments moments, $count files, $runs traced runs"
echo "$passed passed, $failed failed"
((failed == 0))
