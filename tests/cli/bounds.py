#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Gives files that were made to hurt to lrctool, which has to answer within bounds, and to leave them whole.

    bounds.py LRCTOOL SCRIPT [--table]

SCRIPT makes the files. Each is read, then given a lyric: at most 256 MB of memory, no signal, an answer in words when
it is refused, and then the same bytes as before; else the lyric that was given. Memory is what the system says the
process held at most. Time is bounded by a limit of the system against work without end; --table prints what was
measured.
"""

import hashlib
import os
import pathlib
import resource
import shutil
import subprocess
import sys
import tempfile

MEMORY = 256 << 20
SECONDS = 30  # of processor time, where some builds are slow: against work without end
LYRIC = "[00:01.00]one\n[00:02.50]two\n"


def digest(path):
    value = hashlib.blake2b()
    with path.open("rb") as file:
        while block := file.read(1 << 20):
            value.update(block)
    return value.digest()


class Run:
    """One call of the program."""

    def __init__(self, *command):
        limit = lambda: resource.setrlimit(resource.RLIMIT_CPU, (SECONDS, SECONDS))
        with tempfile.TemporaryFile() as said:
            process = subprocess.Popen(command, stdout=said, stderr=subprocess.STDOUT, preexec_fn=limit)
            _, status, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
            said.seek(0)
            self.text = said.read(1 << 20).decode("utf-8", "replace")
        self.status = process.returncode
        self.memory = usage.ru_maxrss * 1024
        self.seconds = usage.ru_utime + usage.ru_stime


OUTCOMES = {(0, 0): "saved", (0, 1): "read", (1, 1): "refused"}


def complaints(tool, path, lyric, outcome):
    """What is wrong with how the program deals with the file at `path`, and its two calls."""
    before = digest(path)
    runs = {"fields": Run(tool, "fields", "--json", str(path))}
    found = []
    if digest(path) != before:
        found.append("fields changed it")
    runs["embed"] = Run(tool, "embed", "--quiet", str(path), str(lyric))
    for what, run in runs.items():
        if run.status not in (0, 1):
            found.append(f"{what} ended with {run.status}: {run.text[:300]}")
        if run.status == 1 and not run.text.strip():
            found.append(f"{what} refused it without a word")
        if run.memory > MEMORY:
            found.append(f"{what} took {run.memory >> 20} MB")
    became = OUTCOMES.get((runs["fields"].status, runs["embed"].status))
    if became != outcome:
        found.append(f"it was {became}, and ought to be {outcome}: {runs['embed'].text[:300]}")
    if runs["embed"].status == 1 and digest(path) != before:
        found.append("embed refused it, and changed it")
    if runs["embed"].status == 0:
        read = Run(tool, "extract", str(path))
        if read.text != LYRIC:
            found.append(f"the lyric reads back as {read.text[:100]!r}")
    if sorted(path.parent.iterdir()) != [path]:
        found.append("something was left behind")
    return found, runs


def main():
    tool, script = sys.argv[1:3]
    listed = subprocess.run([script, "--list"], check=True, capture_output=True, text=True).stdout.splitlines()
    memory = pathlib.Path("/dev/shm")  # does not wait for a disk
    enough = memory.is_dir() and shutil.disk_usage(memory).free > 1 << 30
    failed = 0
    with tempfile.TemporaryDirectory(dir=memory if enough else None) as root:
        lyric = pathlib.Path(root) / "song.lrc"
        lyric.write_bytes(LYRIC.encode())
        for name, outcome in map(str.split, listed):
            folder = pathlib.Path(root) / "file"
            folder.mkdir()
            subprocess.run([script, folder, name], check=True)
            found, runs = complaints(tool, folder / name, lyric, outcome)
            shutil.rmtree(folder)
            failed += bool(found)
            for line in found:
                print(f"{name}: {line}")
            if "--table" in sys.argv:
                figures = [f"{what} {run.status} {run.seconds:5.2f} s {run.memory >> 20:4} MB" for what, run in runs.items()]
                print(f"{name:36} {' | '.join(figures)}  {runs['embed'].text.strip()[:90]}")
    print(f"{len(listed) - failed} of {len(listed)} files within bounds")
    return 1 if failed or not listed else 0


if __name__ == "__main__":
    sys.exit(main())
