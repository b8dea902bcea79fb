# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

"""sound.py ZOEDITOR NAME FREQUENCY PEAK SECONDS RECORDING FILE: listens to a file in a running editor, and records what
PulseAudio's sink "ears" gets meanwhile. A line a check."""

import array
import subprocess
import sys

import pyatspi

from atspi import named, wait, window

RATE = 48000
QUIET = 300  # Of 32767.


def heard(recording):
    """What was recorded, from the first sample that is loud to the last."""
    with open(recording, "rb") as file:
        data = file.read()
    samples = array.array("h", data[: len(data) // 2 * 2])
    loud = [at for at, sample in enumerate(samples) if abs(sample) > QUIET]
    return samples[loud[0] : loud[-1] + 1] if loud else samples[:0]


def main():
    editor, name, frequency, peak, seconds, recording, film = sys.argv[1:]
    with open(recording, "wb") as file:
        recorder = subprocess.Popen(["parec", "--device=ears.monitor", "--raw", "--format=s16le", f"--rate={RATE}",
                                     "--channels=1", "--latency-msec=20"], stdout=file)
    program = subprocess.Popen([editor, film])
    try:
        shown = wait(window)
        button = wait(lambda: named(shown, pyatspi.ROLE_CHECK_BOX, "Listen")
                      or named(shown, pyatspi.ROLE_PUSH_BUTTON, "Listen"))
        if button:
            button.queryAction().doAction(0)
            wait(lambda: len(heard(recording)) > (float(seconds) - 0.1) * RATE)
    finally:
        for child in (program, recorder):
            child.kill()
            child.wait()
    samples = heard(recording)
    turns = sum(1 for before, after in zip(samples, samples[1:]) if before < 0 <= after)
    checks = {
        f"of {seconds} s of sound {len(samples) / RATE:.2f} s": len(samples) > (float(seconds) - 0.1) * RATE,
        f"of {frequency} Hz {turns * RATE / max(len(samples), 1):.1f}":
            abs(turns * RATE / max(len(samples), 1) - float(frequency)) < 5,
        f"of a peak of {peak} {max(samples, default=0)}":
            abs(max(samples, default=0) - float(peak)) < 0.05 * float(peak),
    }
    for what, holds in checks.items():
        print("PASS" if holds else "FAIL", f"{name}: {what} are heard", flush=True)


main()
