# SPDX-License-Identifier: MIT
"""Works lyricdesk as a person would: looks at it through its accessible names, presses real keys.

Started by scripts/demo inside a private screen and session. Nothing in lyricdesk knows of it:
the play position is read off the label that everybody sees, and each stamp is one press of Enter.
"""

import argparse
import json
import os
import re
import shutil
import statistics
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

POSITION = re.compile(r"^\[(\d+):(\d\d)\.(\d\d)\]$")
TIMED = re.compile(r"^\[(\d+):(\d\d)\.(\d\d+)\](.*)$")
PATIENCE = 30.0  # seconds, for anything but the song itself


def say(text):
    print("demo: " + text, flush=True)


def fail(text):
    sys.exit("demo: " + text)


def wait_for(what, question):
    """The first answer of `question` that is not None or False."""
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        answer = question()
        if answer is not None and answer is not False:
            return answer
        time.sleep(0.02)
    fail("waited in vain for " + what)


def fields_of(song):
    """What another program reads in the file: its tags, by ffprobe."""
    text = subprocess.run(
        ["ffprobe", "-v", "error", "-show_entries", "format_tags:stream_tags:format=duration",
         "-of", "json", song], check=True, capture_output=True, text=True).stdout
    return json.loads(text)


def lyric_of(song):
    found = fields_of(song)
    tags = dict(found.get("format", {}).get("tags", {}))
    for stream in found.get("streams", []):
        tags.update(stream.get("tags", {}))
    for name, value in tags.items():
        if name.lower().startswith("lyrics"):
            return value.replace("\r\n", "\n").replace("\r", "\n")
    return ""


class Desk:
    """A running lyricdesk."""

    def __init__(self, program, song, pictures):
        self.pictures = pictures
        self.process = subprocess.Popen([program, song])
        self.window = wait_for("the window of lyricdesk", self._window)
        self.label = wait_for("the play position", lambda: self.find(self.window, self._is_position))
        self.table = wait_for("the table of lines", lambda: self.find(
            self.window, lambda node: node.get_name() == "Lyric lines"))

    def _window(self):
        if self.process.poll() is not None:
            fail("lyricdesk ended by itself")
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application and application.get_name() == "lyricdesk":
                for number in range(application.get_child_count()):
                    window = application.get_child_at_index(number)
                    if window and "lyricdesk" in window.get_name():
                        return window
        return None

    @staticmethod
    def _is_position(node):
        return POSITION.match(node.get_name() or "") is not None

    def find(self, node, wanted, depth=0):
        if wanted(node):
            return node
        # Cells are many; what is looked for is never one of them.
        if depth > 12 or node.get_role() == Atspi.Role.TABLE:
            return None
        for index in range(node.get_child_count()):
            child = node.get_child_at_index(index)
            found = self.find(child, wanted, depth + 1) if child else None
            if found:
                return found
        return None

    def position(self):
        self.label.clear_cache()
        found = POSITION.match(self.label.get_name())
        minutes, seconds, hundredths = (int(part) for part in found.groups())
        return minutes * 60 + seconds + hundredths / 100

    def title(self):
        self.window.clear_cache()
        return self.window.get_name()

    def column(self, column):
        self.table.clear_cache()
        table = self.table.get_table_iface()
        return [table.get_accessible_at(row, column).get_name() for row in range(table.get_n_rows())]

    def columns(self):
        self.table.clear_cache()
        return self.table.get_table_iface().get_n_columns()

    def times(self, row):
        """The texts of the row's time cells, which stand between the number and the text."""
        self.table.clear_cache()
        table = self.table.get_table_iface()
        cells = (table.get_accessible_at(row, column) for column in range(1, table.get_n_columns() - 1))
        return [cell.get_name() for cell in cells if cell and cell.get_name()]

    def play_from_the_start(self):
        """By a click on the left end of the slider, which also goes on playing."""
        slider = self.find(self.window, lambda node: node.get_role() == Atspi.Role.SLIDER)
        place = slider.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        subprocess.run(["xdotool", "mousemove", str(place.x + 2), str(place.y + place.height // 2),
                        "click", "1"], check=True)

    def key(self, *names):
        subprocess.run(["xdotool", "key", "--delay", "20", *names], check=True)

    def picture(self, name):
        path = os.path.join(self.pictures, name + ".png")
        subprocess.run(["import", "-window", "root", path], check=True)
        say("picture " + path)

    def wait_until_position(self, seconds):
        deadline = time.monotonic() + seconds + PATIENCE
        while True:
            left = seconds - self.position()
            if left <= 0:
                return
            if time.monotonic() > deadline:
                fail("the song does not play")
            # Near the moment as often as can be, before it now and then.
            time.sleep(0.001 if left < 0.1 else min(0.05, left / 2))

    def close(self):
        self.key("ctrl+q")
        if self.process.wait(timeout=PATIENCE) != 0:
            fail("lyricdesk ended with %d" % self.process.returncode)


def onsets_for(original, lines, duration):
    """When each line is sung: (row, seconds). Known for the demonstration song; any other song
    gets its lines evenly over its length."""
    beside = os.path.splitext(original)[0] + ".onsets.tsv"
    if os.path.exists(beside):
        with open(beside, encoding="utf-8") as table:
            rows = [line.rstrip("\n").split("\t") for line in table][1:]
        return [(int(row) - 1, float(seconds)) for row, seconds, _ in rows]
    rows = [row for row, text in enumerate(lines) if text.strip()] or list(range(5))
    step = duration / (len(rows) + 1)
    return [(row, step * (number + 1)) for number, row in enumerate(rows)]


def stamp_all(desk, onsets):
    """Presses Enter as each line comes. Answers, for each press, the positions that were shown
    before it and once its stamp was seen: the stamp has to lie between them, however busy the
    machine is."""
    selected = 0
    seen = []
    for number, (row, seconds) in enumerate(onsets):
        desk.key(*["Down"] * (row - selected)) if row > selected else None
        times = len(desk.times(row))
        desk.wait_until_position(seconds)
        before = desk.position()
        desk.key("Return")
        wait_for("the stamp of line %d" % (row + 1), lambda: len(desk.times(row)) > times)
        seen.append((before, desk.position()))
        selected = row + 1
        if number == len(onsets) // 2:
            desk.picture("2-stamping")
    return seen


def report_stamps(onsets, seen, lyric):
    stamped = []
    for line in lyric.splitlines():
        found = TIMED.match(line)
        if found:
            stamped.append(int(found[1]) * 60 + int(found[2]) + float("0." + found[3]))
    if len(stamped) != len(onsets):
        fail("%d lines were stamped, the file carries %d times" % (len(onsets), len(stamped)))
    late = [1000 * (time_ - seconds) for time_, (_, seconds) in zip(stamped, onsets)]
    say("keys were pressed %.0f ms after the lines began on average, standard deviation %.0f ms"
        % (statistics.mean(late), statistics.pstdev(late)))
    for time_, (before, after) in zip(stamped, seen):
        if not before - 0.01 <= time_ <= after + 0.01:
            fail("%.2f s was stamped when %.2f to %.2f s were shown" % (time_, before, after))


def main():
    parser = argparse.ArgumentParser()
    for name in ("program", "song", "pictures", "private"):
        parser.add_argument("--" + name, required=True)
    options = parser.parse_args()

    song = os.path.join(options.pictures, os.path.basename(options.song))
    if os.path.exists(song) and os.path.samefile(song, options.song):
        fail("the song is in the folder for the pictures, where a copy of it is to be made")
    shutil.copyfile(options.song, song)
    say("working on a copy: " + song)
    before = lyric_of(song)
    duration = float(fields_of(song)["format"]["duration"])

    say("opening it in lyricdesk")
    desk = Desk(options.program, song, options.pictures)
    wait_for("the song to play", lambda: desk.position() > 0)
    desk.key("ctrl+space")
    desk.picture("1-opened")
    lines = desk.column(desk.columns() - 1)
    onsets = onsets_for(options.song, lines, duration)
    say("playing it, and stamping %d lines as they come" % len(onsets))
    if desk.position() > onsets[0][1] - 0.5:
        desk.play_from_the_start()
    else:
        desk.key("ctrl+space")
    seen = stamp_all(desk, onsets)
    wait_for("the sign of unsaved changes", lambda: "*" in desk.title())
    desk.picture("3-stamped")

    say("saving")
    desk.key("ctrl+s")
    wait_for("the lyric to be saved", lambda: "*" not in desk.title())
    desk.picture("4-saved")
    desk.close()

    say("opening the file again")
    desk = Desk(options.program, song, options.pictures)
    wait_for("the lines", lambda: len(desk.column(0)) > 0)
    shown = desk.column(1)
    desk.picture("5-opened-again")
    desk.close()

    lyric = lyric_of(song)
    if lyric == before:
        fail("the file carries the lyric that it had")
    say("the lyric that ffprobe reads in the file:")
    print(lyric, flush=True)
    if any(lyric.count("[" + cell) < 1 for cell in shown if cell):
        fail("the table shows times that are not in the file")
    report_stamps(onsets, seen, lyric)
    say("done")


if __name__ == "__main__":
    main()
