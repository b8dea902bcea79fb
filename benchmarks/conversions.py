#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

"""Measures zoconvert beside the commands that it runs.

usage: scripts/bench conversions [--small]

Builds zoconvert in build/release and prints a table: what zoconvert takes, what the same command takes when it is run by
hand, the difference, and its bound. Each figure is the median of five runs, which take turns. --small measures clips of
five seconds and fifty files only. Let nothing else run meanwhile. It ends 0 whatever the times are, 1 when something
failed, 2 on wrong usage.
"""

import os
import re
import shutil
import statistics
import subprocess
import sys
import time

TREE = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
PROGRAM = os.environ.get("ZOCONVERT") or os.path.join(TREE, "build/release/apps/zoconvert/zoconvert")
WORK = os.path.join(TREE, "build/conversions-bench")
ROUNDS = 5


def run(command, **more):
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                          cwd=WORK, check=False, **more)
    if done.returncode != 0:
        sys.exit(f"bench: {command} failed\n{done.stdout}{done.stderr}")
    return done.stdout


def seconds(action):
    begun = time.monotonic()
    action()
    return time.monotonic() - begun


def both(ours, other):
    """The medians of two actions that take turns."""
    ours_times, other_times = [], []
    for _ in range(ROUNDS):
        ours_times.append(seconds(ours))
        other_times.append(seconds(other))
    return statistics.median(ours_times), statistics.median(other_times)


def row(name, ours, other, bound, within):
    print(f"| {name} | {ours * 1000:.0f} | {other * 1000:.0f} | {(ours - other) * 1000:+.0f} | {bound} | "
          f"{'yes' if within else 'no'} |", flush=True)


def make_clip(size, length):
    clip = f"{size}-{length}.mkv"
    if not os.path.exists(os.path.join(WORK, clip)):
        run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", f"testsrc2=s={size}:r=25:d={length}", "-f", "lavfi", "-i",
             f"sine=d={length}", "-c:v", "libx264", "-preset", "ultrafast", "-c:a", "aac", clip])
    return clip


def measure(name, clip, edits, length, extra):
    """A conversion beside its printed command, without what is made in advance."""
    convert = [PROGRAM, "convert", clip, *edits, "-o", "ours.mp4", "--overwrite", "-q"]
    lines = run([PROGRAM, "command", clip, *edits, "-o", "other.mp4", "--overwrite", "--files", "helpers"])
    # The last line converts; those before it measure and extract.
    by_hand = [line for line in lines.splitlines() if line][-1]
    ours, other = both(lambda: run(convert), lambda: run(["sh", "-c", by_hand]))
    bound = 0.150 + extra + 0.01 * other
    row(f"{name}, {length} s", ours, other, f"{bound * 1000:.0f} ms more", ours - other <= bound)


def own_memory(clip):
    """The largest memory of zoconvert itself, its children aside, in megabytes."""
    process = subprocess.Popen([PROGRAM, "convert", clip, "--text", "Hello", "-o", "ours.mp4", "--overwrite", "-q"],
                               cwd=WORK, stdin=subprocess.DEVNULL)
    most = 0
    while process.poll() is None:
        try:
            with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
                found = re.search(r"VmHWM:\s+(\d+) kB", status.read())
        except OSError:
            found = None
        if found:
            most = max(most, int(found.group(1)))
        time.sleep(0.01)
    return most / 1024


def many_files(count):
    for folder in ("tiny", "done"):
        shutil.rmtree(os.path.join(WORK, folder), ignore_errors=True)
        os.makedirs(os.path.join(WORK, folder))
    run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc2=s=64x48:r=10:d=0.2", "-c:v", "mpeg4", "tiny/0.mkv"])
    for number in range(1, count):
        shutil.copy(os.path.join(WORK, "tiny/0.mkv"), os.path.join(WORK, f"tiny/{number}.mkv"))
    edits = ["--set", "Color:bcs_contrast=10"]
    line = run([PROGRAM, "command", "tiny/0.mkv", *edits, "-o", "done/NUMBER.mkv", "--overwrite", "--threads", "1"])
    line = line.splitlines()[-1].replace("tiny/0.mkv", "tiny/{}.mkv").replace("done/NUMBER.mkv", "done/{}.mkv")
    numbers = [str(number) for number in range(count)]
    ours = seconds(lambda: run([PROGRAM, "convert", "tiny", *edits, "--output-folder", "done", "--name", "{name}.{ending}",
                                "-j", "2", "--threads", "1", "-q"]))
    # Beside each command the probes of clip and result, which a script would need, too.
    probe = "ffprobe -v error -show_streams {} > probed"
    by_hand = (f"{probe.format('tiny/{}.mkv')}.{{}} && {line} && {probe.format('done/{}.mkv')}.{{}}")
    other = seconds(lambda: run(["parallel", "--will-cite", "-j", "2", by_hand, ":::", *numbers]))
    row(f"{count} tiny files, two at once, beside GNU parallel", ours, other, "1.1 times", ours <= 1.1 * other)


def main():
    small = sys.argv[1:] == ["--small"]
    if sys.argv[1:] and not small:
        print(__doc__)
        sys.exit(0 if sys.argv[1] in ("-h", "--help") else 2)
    os.makedirs(WORK, exist_ok=True)
    os.environ.update(XDG_CONFIG_HOME=os.path.join(WORK, "config"), LC_ALL="C.UTF-8")
    with open(os.path.join(WORK, "words.srt"), "w", encoding="ascii") as words:
        words.write("1\n00:00:00,500 --> 00:00:04,000\nHello\n")
    print("| what | zoconvert, ms | by hand, ms | difference, ms | bound | within |\n|---|---|---|---|---|---|")
    for size in ("1280x720",) if small else ("1280x720", "1920x1080"):
        for length in (5,) if small else (5, 20, 60):
            clip = make_clip(size, length)
            measure(f"contrast, {size}", clip, ["--set", "Color:bcs_contrast=10"], length, 0)
            measure(f"a subtitle file, {size}", clip, ["--subtitle", "words.srt"], length, 0.060)
    clip = make_clip("1280x720", 5)
    run([PROGRAM, "convert", clip, "-o", "ours.mkv", "--overwrite", "-q"])
    ours, other = both(lambda: run([PROGRAM, "convert", clip, "-o", "ours.mkv", "--overwrite", "-q"]),
                       lambda: run(["ffmpeg", "-v", "error", "-y", "-i", clip, "-map", "0", "-c", "copy", "other.mkv"]))
    row("nothing to do, beside ffmpeg -c copy", ours, other, "150 ms more", ours - other <= 0.150)
    ours, other = both(lambda: run([PROGRAM, "preview", clip, "--time", "2", "--output", "pictures"]),
                       lambda: [run(["ffmpeg", "-v", "error", "-y", "-ss", "2", "-i", clip, "-frames:v", "1", "-update",
                                     "1", f"{name}.png"]) for name in ("before", "after", "preview")])
    row("four pictures of a frame, beside three calls of ffmpeg", ours, other, "30 ms more", ours - other <= 0.030)
    many_files(50 if small else 1000)
    memory = own_memory(clip)
    print(f"\nzoconvert's own memory: {memory:.0f} MB, at most 60 are allowed.")


main()
