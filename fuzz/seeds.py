#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes seeds for the fuzzers: seeds.py FOLDER [COUNT]. The same on every machine."""

import pathlib
import random
import sys

PIECES = [b"[00:12.34]", b"[00:12.345]", b"[0:12.3]", b"[00:12]", b"[72:04.29]", b"[1:02:03.45]",
          b"[00:12:34]", b"[01:02:03]", b"[-00:01.00]", b"[00:01.20-00:02.30]", b"[ 2:00 ]", b"[35]",
          b"[00:99.00]", b"[ti:x]", b"[AR: y ]", b"[al:]", b"[by:a [b] c]", b"[offset:+500]", b"[x:y]",
          b"[Chorus]", b"[ti:open", b"[", b"]", b"<00:11.22>", b"<00:11.60>", b"hel", b"lo ",
          "走廊".encode(), b" ", b"\t", b"\xef\xbb\xbf", b"\xff", b"\0", b":", b".", b"-"]
ENDS = [b"\n", b"\r\n", b"\r"]


def text(source):
    usual = source.choice(ENDS)
    lines = [b"".join(source.choices(PIECES, k=source.randrange(6))) for _ in range(source.randrange(8))]
    return b"".join(line + (source.choice(ENDS) if source.random() < 0.1 else usual) for line in lines)


def main():
    folder = pathlib.Path(sys.argv[1])
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 400
    folder.mkdir(parents=True, exist_ok=True)
    source = random.Random(7)
    for number in range(count):
        (folder / f"seed-{number:04}").write_bytes(text(source))


if __name__ == "__main__":
    main()
