#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Conversions end whole or not at all, of any file. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: conversions [MOMENTS [FILES]]

Builds zoconvert in build/dev.

  kills   it, or a child of it, is ended at MOMENTS random moments (200): there is a whole result or none, nothing else is
          left, and no child lives on after two seconds
  files   FILES media files (100) of 26 pairs of container and codecs, made by ffmpeg, are converted, each by a random
          scene: none fails, none is told to be damaged, and each track that is told to be copied is the same, bit by bit
  trace   the files and names of its hostile tests are converted under strace: nothing outside of the target folder, the
          folder for temporary files and the configuration is opened for writing, and no socket is opened

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
build dev zoconvert tst_zoconvert_kills
zoconvert=$PWD/build/dev/apps/zoconvert/zoconvert
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

# convert_one NUMBER: says what is wrong with it, and ends 1 then.
convert_one() {
    local kind container options clip result scene size said number track place
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
            # Another container may hold the same packets in another form.
            if [[ $number =~ ^[0-9]+$ && $(hash "$clip" "$number" copied) != "$(hash "$result" $place copied)" &&
                $(hash "$clip" "$number") != "$(hash "$result" $place)" ]]; then
                echo "$kind, $size, $scene: track $number was not copied as it is"
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
traced=0
for file in *.mkv; do
    strace -f -qq -e trace=open,openat,openat2,creat,socket,connect -o "$work/trace" \
        "$zoconvert" convert --set Color:bcs_contrast=10 --text Hello --output-folder "$work/traced" -q -- "$file" \
        > "$work/said" 2>&1 < /dev/null || true
    # What is opened for writing and is there afterwards or was meant to be: by its path, as the call names it.
    wrong=$(grep -E 'O_WRONLY|O_RDWR|O_CREAT|creat\(' "$work/trace" | grep -vE '= -1 E' | grep -oE '"[^"]*"' | tr -d '"' |
        grep -vE "^($work/(traced|tmp|config)(/|$)|/dev/null$|/dev/tty$)" || true)
    wrong+=$(grep -E 'socket\(|connect\(' "$work/trace" || true)
    if [[ -s $work/trace && -z $wrong ]]; then
        pass 1
        traced=$((traced + 1))
    else
        fail "$file: $wrong"
    fi
done
same=$(find . -type f -newer join.mkv ! -name '*.mkv' ! -name '*.ts')
[[ -z $same ]] || fail "written among the inputs: $same"

echo "found: $moments moments, $count files, $traced traced runs"
echo "$passed passed, $failed failed"
((failed == 0))
