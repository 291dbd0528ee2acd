#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Measures the demonstration song as it decodes, against its table of onsets.

    scripts/check_demo_song.py [folder]

For each line: where the sound in fact begins (the steepest rise of the level within 60 ms of the
stated onset), and how much louder it becomes. Then loudness and peak of the whole. Needs ffmpeg.
Fails when an onset is more than 5 ms away, rises by less than 3 dB, or when the sound clips or is
not within 1 LU of -16 LUFS.
"""

import math
import pathlib
import re
import subprocess
import sys
from array import array

RATE = 44100
HOP = 44          # 1 ms
WINDOW = 10       # in hops: levels before and after are compared over 10 ms
REACH = 60        # in hops
TOLERANCE = 0.005
LEAST_RISE = 3.0


def decode(path):
    """One channel of samples, from -1 to 1, the encoder's delay taken off."""
    out = subprocess.run(["ffmpeg", "-v", "error", "-i", str(path), "-map", "0:a", "-ac", "1",
                          "-ar", str(RATE), "-f", "f32le", "pipe:1"], check=True,
                         capture_output=True).stdout
    return array("f", out)


def energies(samples, centre):
    """Energy of each millisecond round a sample, and the index of the first one."""
    first = centre // HOP - REACH - WINDOW
    return [sum(v * v for v in samples[HOP * hop:HOP * (hop + 1)]) + 1e-9
            for hop in range(first, first + 2 * (REACH + WINDOW))], first


def onset_near(samples, stated):
    """(the steepest rise near `stated`, in s; the rise there, in dB)"""
    levels, first = energies(samples, round(stated * RATE))
    rises = []
    for at in range(WINDOW, len(levels) - WINDOW):
        before, after = sum(levels[at - WINDOW:at]), sum(levels[at:at + WINDOW])
        rises.append((10 * math.log10(after / before), at))
    rise, at = max(rises)
    return (first + at) * HOP / RATE, rise


def loudness(path):
    """(integrated loudness in LUFS, true peak in dBFS)"""
    log = subprocess.run(["ffmpeg", "-hide_banner", "-nostats", "-i", str(path), "-map", "0:a",
                          "-af", "ebur128=peak=true", "-f", "null", "-"], check=True,
                         capture_output=True, text=True).stderr
    summary = log[log.rindex("Summary:"):]
    return (float(re.search(r"I:\s+(-?[\d.]+) LUFS", summary).group(1)),
            float(re.search(r"Peak:\s+(-?[\d.]+) dBFS", summary).group(1)))


def main():
    folder = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else
                          pathlib.Path(__file__).resolve().parent.parent / "src/host/demo")
    song = folder / "the-star.mp3"
    samples = decode(song)
    bad, errors = 0, []
    rows = (folder / "the-star.onsets.tsv").read_text(encoding="utf-8").splitlines()[1:]
    for row in rows:
        _, stated, text = row.split("\t")
        found, rise = onset_near(samples, float(stated))
        errors.append(found - float(stated))
        good = abs(errors[-1]) <= TOLERANCE and rise >= LEAST_RISE
        bad += not good
        print(f"{float(stated):9.4f} s  {1000 * errors[-1]:+6.2f} ms  {rise:5.1f} dB  "
              f"{'' if good else 'BAD  '}{text}")
    lufs, peak = loudness(song)
    bad += abs(lufs + 16) > 1 or peak > -1 or not errors
    print(f"{len(errors)} onsets, mean error {1000 * sum(errors) / len(errors):+.2f} ms; "
          f"{lufs} LUFS, true peak {peak} dBFS, {song.stat().st_size} bytes")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
