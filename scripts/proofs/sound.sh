#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# What the editor plays arrives at the sound device. See usage below.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

usage() {
    cat <<'TEXT'
usage: scripts/prove sound

Starts zoeditor on a display and a bus of its own, with PulseAudio as its sound system, presses "Listen", and records
what the sound device gets: the whole of a tone, of its frequency and peak, by Qt Multimedia of both Qts and by a
player of the system; the same with an effect that makes it louder. The last line is "N passed, N failed"; ends 0 when none failed.
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 0 "$@"

scripts/install-packages build qt6 run test xvfb dbus at-spi2-core python3-pyatspi pulseaudio pulseaudio-utils \
    libqt5multimedia5-plugins || exit 1
# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
build dev zoeditor zoconvert
build dev-qt6 zoeditor

# shellcheck source-path=SCRIPTDIR source=support/display.sh
source scripts/proofs/support/display.sh
film=$folder/film.mkv
# A tone of an eighth of full scale; and the same made half as loud as can be.
quietly ffmpeg -v error -f lavfi -i testsrc2=s=160x120:r=25:d=3 -f lavfi -i sine=500:r=48000:d=3 -c:v mpeg4 \
    -c:a pcm_s16le "$film"
build/dev/apps/zoconvert/zoconvert settings "$film" --set Audio_Normalize:audio_effect_flag=true \
    --set Audio_Normalize:audio_normalize_maxLevel=50 --output "$folder/louder.json"

export PULSE_SERVER=unix:$folder/pulse
pulseaudio -n --exit-idle-time=-1 --log-target="file:$folder/pulse.log" \
    --load="module-native-protocol-unix auth-anonymous=1 socket=$folder/pulse" \
    --load="module-null-sink sink_name=ears rate=48000 channels=2" &
children+=($!)

# The play head stands at 30 % of a clip that was opened.
while read -r name preset player peak file; do
    ZOEDITOR_PLAYER=${player#qt} dbus-run-session -- /usr/bin/python3 scripts/proofs/support/sound.py \
        "build/$preset/apps/zoeditor/zoeditor" "$name" 500 "$peak" 2.1 "$folder/$name.raw" "$folder/$file" ||
        echo "FAIL $name: the sound was not listened to"
    rm -rf "$folder"/home/.[!.]* # What the next would bring back.
done << 'TEXT' | tee "$folder/said"
Qt-5 dev qt 4095 film.mkv
Qt-5-with-an-effect dev qt 16384 louder.json
Qt-6 dev-qt6 qt 4095 film.mkv
a-player dev paplay 4095 film.mkv
TEXT
passed=$(grep -c '^PASS' "$folder/said" || true)
failed=$(grep -c '^FAIL' "$folder/said" || true)
echo "found: $passed checks of what a sound device got"
echo "$passed passed, $failed failed"
((failed == 0 && passed > 0))
