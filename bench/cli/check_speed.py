#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""How fast 'lrctool check' goes through a library, against 'cat' of the same files to nowhere.

    check_speed.py LRCTOOL [FILES] [ROUNDS]

Makes a library of song-sized lyrics in memory where the system has such a folder, goes through it once so that both
find it cached, then takes turns. The answer is the ratio of the best times: 1 is as fast as cat, and below 0.7 is too
slow. Names reach both in the same way, so that neither pays for finding them.
"""

import os
import random
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

GOAL = 0.7


def lyric(pick):
    """A song of some 40 lines."""
    words = "twinkle little star how I wonder what you are up above the world so high like a diamond".split()
    text = "[ti:The Star]\n[ar:Jane Taylor]\n[al:Rhymes]\n[length:03:20]\n"
    millis = pick.randrange(5000, 20000)
    for _ in range(pick.randrange(30, 60)):
        text += "[%02d:%02d.%02d]" % (millis // 60000, millis // 1000 % 60, millis % 1000 // 10)
        text += " ".join(pick.choices(words, k=pick.randrange(3, 10))) + "\n"
        millis += pick.randrange(1500, 7000)
    return text.encode()


def make_library(folder, count):
    pick = random.Random(1)
    texts = [lyric(pick) for _ in range(200)]
    names = []
    for number in range(count):
        album = folder / f"{number // 100:05}"
        if number % 100 == 0:
            album.mkdir()
        name = album / f"{number:06}.lrc"
        name.write_bytes(texts[number % len(texts)])
        names.append(os.fsencode(name))
    return b"\0".join(names) + b"\0"


def seconds(command, names):
    begin = time.perf_counter()
    done = subprocess.run(command, input=names, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    took = time.perf_counter() - begin
    if done.returncode != 0:
        sys.exit(f"{command[0]} answered {done.returncode}: {done.stderr.decode(errors='replace')}")
    return took


def main():
    tool = sys.argv[1]
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 100_000
    rounds = int(sys.argv[3]) if len(sys.argv) > 3 else 5
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    folder = Path(tempfile.mkdtemp(prefix="lrctool-bench-", dir=memory))
    try:
        names = make_library(folder, count)
        check = [tool, "check", "--files-from", "-", "-0"]
        cat = ["xargs", "-0", "cat"]
        seconds(cat, names)
        times = [(seconds(cat, names), seconds(check, names)) for _ in range(rounds)]
        found = [tool, "check", str(folder)]
        walked = min(seconds(found, b"") for _ in range(2))
    finally:
        shutil.rmtree(folder)
    best_cat, best_check = (min(column) for column in zip(*times))
    ratio = best_cat / best_check
    print(f"{count} lyrics: cat {best_cat:.2f} s, check {best_check:.2f} s on {os.cpu_count()} cores, "
          f"as a folder {walked:.2f} s; as fast as cat times {ratio:.2f} (goal {GOAL})")
    sys.exit(0 if ratio >= GOAL else 1)


if __name__ == "__main__":
    main()
