#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""lrctool as a process: exit statuses, pipes, terminals, full disks, many files.

    process.py LRCTOOL PROJECT_FOLDER
"""

import base64
import json
import os
import pty
import random
import re
import resource
import select
import shutil
import signal
import stat
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOL, PROJECT = sys.argv[1], Path(sys.argv[2])
LYRICS = PROJECT / "tests" / "data" / "lrc"
CASES = Path(os.environ.get("TQLRC_CASES", "")) / "lrc" / "cases.jsonl"
SONG = PROJECT / "src" / "host" / "demo" / "the-star.mp3"


def run(*arguments, data=b"", **more):
    """The exit status, standard output and standard error of a run, as bytes."""
    done = subprocess.run([TOOL, *map(os.fspath, arguments)], input=data, capture_output=True, timeout=500, **more)
    return done.returncode, done.stdout, done.stderr


def generated(count, seed):
    """Texts of pieces that real and broken lyrics are made of."""
    pick = random.Random(seed)
    pieces = [b"[00:12.34]", b"[0:1]", b"[1:02:03]", b"[00:10:50]", b"[ti:x]", b"[ar: y ]", b"[x:y]", b"[offset:-5]",
              b"[Chorus]", b"<00:12.50>", b"word", b" ", b"\t", b"\n", b"\r\n", b"\r", b"\0", b"\xff", b"\xef\xbb\xbf",
              b"\xe3\x80\x80", "走廊".encode(), b"[", b"]", b"[00:", b"[-0:1.0]", b"[00:01.20-00:02.30]"]
    for _ in range(count):
        yield b"".join(pick.choices(pieces, k=pick.randrange(20)))


class Folder(unittest.TestCase):
    """A test with a folder of its own."""

    def setUp(self):
        # Memory does not wait for the disk, which is forced at each save.
        memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
        self.folder = Path(tempfile.mkdtemp(prefix="lrctool-", dir=memory))
        self.addCleanup(shutil.rmtree, self.folder)

    def write(self, name, content):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
        return path


class Cat(Folder):
    def same(self, named):
        """All of them at once, in one process: what comes out is what stands in them, in order."""
        paths = [self.write(f"{number:06}.lrc", text) for number, text in enumerate(named)]
        names = b"\0".join(os.fsencode(path) for path in paths)
        status, out, err = run("cat", "--files-from", "-", "-0", data=names)
        self.assertEqual((status, err), (0, b""))
        self.assertTrue(out == b"".join(named), "not the same bytes")

    def test_lyrics_of_this_project_come_back_byte_for_byte(self):
        texts = [path.read_bytes() for path in sorted(LYRICS.iterdir())]
        self.assertGreater(len(texts), 20)
        self.same(texts)
        for text in texts:
            self.assertEqual(run("cat", data=text), (0, text, b""))

    def test_cases_of_other_projects_come_back_byte_for_byte(self):
        if not CASES.exists():
            self.skipTest("the folder of cases (TQLRC_CASES) is not here")
        self.same([base64.b64decode(json.loads(line)["input_b64"]) for line in CASES.read_text().splitlines()])

    def test_a_hundred_thousand_documents_come_back_byte_for_byte(self):
        if os.environ.get("TQLRC_FEW"):
            self.skipTest("TQLRC_FEW")
        self.same(list(generated(100_000, 1)))


class Streams(Folder):
    def test_a_full_disk_is_told(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([TOOL, "cat"], input=b"x", stdout=full, stderr=subprocess.PIPE, timeout=500)
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"No space left", done.stderr)

    def test_help_to_a_full_disk_is_told(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([TOOL, "--help"], stdout=full, stderr=subprocess.PIPE, timeout=500)
        self.assertEqual(done.returncode, 1)

    def test_a_closed_standard_output_is_an_error_and_no_file_takes_its_place(self):
        path = self.write("a.lrc", b"[00:01.00]a\n")
        done = subprocess.run(["sh", "-c", '"$0" shift 1s "$1" >&-', TOOL, path], stderr=subprocess.PIPE, timeout=500)
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"Bad file descriptor", done.stderr)
        self.assertEqual(path.read_bytes(), b"[00:01.00]a\n")

    def test_a_reader_that_leaves_ends_the_run_without_a_word(self):
        path = self.write("a.lrc", b"[00:01.00]words\n" * 20000)
        process = subprocess.Popen([TOOL, "cat", *[path] * 40], stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        process.stdout.read(10)
        process.stdout.close()
        self.assertEqual(process.stderr.read(), b"")
        process.stderr.close()
        self.assertEqual(process.wait(500), 1)

    def test_pipes_are_read_like_files(self):
        done = subprocess.run(["bash", "-c", f'"{TOOL}" diff <(printf "[0:01]a") <(printf "[00:01.00]a\\n")'],
                              capture_output=True, timeout=500)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"", b""))
        done = subprocess.run(["bash", "-c", f'"{TOOL}" cat <(true)'], capture_output=True, timeout=500)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"", b""))

    def test_what_has_no_end_is_refused_at_a_bound(self):
        with open("/dev/zero", "rb") as zero:
            done = subprocess.run([TOOL, "cat"], stdin=zero, capture_output=True, timeout=500,
                                  preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_CPU, (20, 20)))
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"64 MiB", done.stderr)

    def test_a_terminal_without_a_file_is_wrong_use(self):
        master, slave = pty.openpty()
        done = subprocess.run([TOOL, "check"], stdin=slave, capture_output=True, timeout=500)
        os.close(slave)
        os.close(master)
        self.assertEqual(done.returncode, 2)
        self.assertIn(b"Name a file", done.stderr)

    def test_colours_are_for_terminals_only(self):
        bad = self.write("bad.lrc", b"[00:75.00]a\xff\n")
        _, plain, _ = run("check", bad)
        self.assertNotIn(b"\x1b", plain)
        self.assertIn(b"\x1b", run("check", "--color", "always", bad)[1])
        for more, colored in (({}, True), ({"NO_COLOR": "1"}, False), ({"TERM": "dumb"}, False)):
            environment = {**{k: v for k, v in os.environ.items() if k != "NO_COLOR"}, "TERM": "xterm", **more}
            self.assertEqual(b"\x1b[3" in self.on_terminal(["check", bad], environment), colored)

    def on_terminal(self, arguments, environment):
        master, slave = pty.openpty()
        process = subprocess.Popen([TOOL, *map(os.fspath, arguments)], stdin=slave, stdout=slave, stderr=slave,
                                   env=environment)
        os.close(slave)
        seen = b""
        while select.select([master], [], [], 500)[0]:
            try:
                block = os.read(master, 4096)
            except OSError:
                break
            if not block:
                break
            seen += block
        os.close(master)
        process.wait(500)
        return seen


class Many(Folder):
    def test_the_order_of_output_is_that_of_input(self):
        names = [self.write(f"{number}.lrc", b"[00:01.00]%d\n" % number * (1 + number * 7 % 90))
                 for number in range(500)]
        random.Random(4).shuffle(names)
        expected = b"".join(name.read_bytes() for name in names)
        for jobs in ("1", "2", "8"):
            self.assertEqual(run("cat", "--jobs", jobs, *names), (0, expected, b""))
        self.assertEqual(run("cat", "--jobs", "0", *names)[0], 2)

    def test_each_object_is_a_line_of_valid_json(self):
        texts = list(generated(2000, 2)) + [path.read_bytes() for path in sorted(LYRICS.iterdir())]
        for number, text in enumerate(texts):
            self.write(f"{number:05}.lrc", text)
        for command in (["dump"], ["check"], ["format"], ["shift", "1s", "--dry-run"], ["cat"], ["expand"],
                        ["convert", "--to", "ttml"]):
            status, out, _ = run(*command, "--json", self.folder)
            lines = out.decode("utf-8").split("\n")
            self.assertIn(status, (0, 1))
            self.assertEqual(lines.pop(), "")
            names = [json.loads(line)["file"] for line in lines]
            if command[0] not in ("format", "convert"):  # these refuse some
                self.assertEqual(len(names), len(texts))
            self.assertEqual(names, sorted(names))

    def test_dump_says_each_line_and_nothing_else(self):
        status, out, err = run("dump", "--json", data="[ti:x]\n[00:01.50] 走 \n\nno\n".encode())
        answer = json.loads(out)
        self.assertEqual(list(answer), ["lines", "issues"])
        self.assertEqual(answer["lines"], [{"tag": ["ti", "x"]}, {"times_ms": [1500], "text": "走"},
                                           {"times_ms": [], "text": ""}, {"times_ms": [], "text": "no"}])
        self.assertEqual((status, err), (0, b""))
        issues = json.loads(run("dump", "--json", data=b"[00:75.00]a\xff")[1])["issues"]
        self.assertTrue(issues)
        for issue in issues:
            self.assertEqual(list(issue), ["severity", "line", "column", "code", "text"])

    def test_names_that_are_no_utf8_work(self):
        path = os.fsencode(self.folder) + b"/\xff\x1b[2J.lrc"
        with open(path, "wb") as file:
            file.write(b"[00:01.00]a\xff\n")
        status, out, err = run("check", os.fsdecode(path))
        self.assertEqual(status, 1)
        self.assertNotIn(b"\x1b", out + err)
        out.decode("utf-8")
        json.loads(run("check", "--json", self.folder)[1].decode("utf-8"))

    def test_links_in_folders_are_no_traps(self):
        self.write("a/x.lrc", b"x\n")
        (self.folder / "a" / "loop").symlink_to("..")
        (self.folder / "a" / "link.lrc").symlink_to("x.lrc")
        (self.folder / "a" / "broken.lrc").symlink_to("none")
        os.mkfifo(self.folder / "a" / "pipe.lrc")
        self.assertEqual(run("cat", self.folder), (0, b"x\nx\n", b""))

    def test_nothing_depends_on_the_locale(self):
        data = b"[00:01.50]I\xc4\xb1\n[ti:x]\n"
        expected = run("dump", "--json", data=data)
        for locale in ("C", "de_DE.UTF-8", "tr_TR.UTF-8", "ar_EG.UTF-8"):
            self.assertEqual(run("dump", "--json", data=data, env={**os.environ, "LC_ALL": locale}), expected)


class Saving(Folder):
    def test_a_run_that_is_killed_leaves_old_or_new_files(self):
        old, new = b"[00:01.00]" + b"x" * 20000 + b"\n", b"[00:02.00]" + b"x" * 20000 + b"\n"
        pick = random.Random(6)
        for _ in range(20):
            names = [self.write(f"{number}.lrc", old) for number in range(60)]
            process = subprocess.Popen([TOOL, "shift", "1s", "-i", *names])
            # Anywhere in the run: as soon as some file has become new.
            target = names[pick.randrange(len(names))]
            while process.poll() is None and target.read_bytes() == old:
                pass
            process.send_signal(signal.SIGKILL)
            process.wait(500)
            self.assertTrue(all(name.read_bytes() in (old, new) for name in names))
        run("shift", "1s", "-i", self.write("last.lrc", old))
        self.assertFalse(list(self.folder.glob(".tqlrc-save-*")), "what it left is swept by the next run")

    def test_a_disk_that_fills_leaves_the_old_file(self):
        old = b"[00:01.00]" + b"x" * 20000 + b"\n"
        path = self.write("a.lrc", old)

        def small_files():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000))

        status, _, err = run("shift", "1s", "-i", path, preexec_fn=small_files)
        self.assertEqual(status, 1)
        self.assertIn(b"File too large", err)
        self.assertEqual(path.read_bytes(), old)
        self.assertEqual(os.listdir(self.folder), ["a.lrc"])

    def test_a_new_file_has_the_usual_rights(self):
        path = self.write("a.lrc", b"[00:01.00]a\n")
        status, _, err = run("convert", "-q", "-o", self.folder / "a.srt", path, umask=0o027)
        self.assertEqual((status, err), (0, b""))
        self.assertEqual(stat.S_IMODE((self.folder / "a.srt").stat().st_mode), 0o640)


class Completion(Folder):
    def offered(self, *words):
        """What bash offers for the last of the words, in the test's folder."""
        script = 'source "$0"; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _lrctool; printf "%s\\n" "${COMPREPLY[@]}"'
        done = subprocess.run(["bash", "-c", script, PROJECT / "src/cli/completions/lrctool.bash", "lrctool", *words],
                              cwd=self.folder, capture_output=True, text=True, check=True, timeout=500)
        return done.stdout.split()

    def test_audio_options_offer_audio_alone(self):
        for name in ("a.lrc", "a.mp3", "b.WV", "c.txt"):
            self.write(name, b"")
        self.assertEqual(sorted(self.offered("check", "--audio", "")), ["a.mp3", "b.WV"])
        self.assertEqual(sorted(self.offered("check", "--audio", "=", "a")), ["a.mp3"])
        self.assertEqual(sorted(self.offered("check", "")), ["a.lrc", "c.txt"])
        self.assertEqual(sorted(self.offered("embed", "")), ["a.lrc", "a.mp3", "b.WV"])

    def test_a_value_behind_an_equals_sign_is_completed(self):
        # bash takes the sign for a word of its own.
        self.assertEqual(self.offered("convert", "--to", "=", "s"), ["srt"])
        self.assertEqual(self.offered("convert", "--to", "="), self.offered("convert", "--to", ""))


class Pages(Folder):
    def test_the_limit_of_an_audio_file_is_the_one_that_is_told(self):
        path = self.folder / "large.mp3"
        shutil.copy(SONG, path)
        os.truncate(path, (2 << 30) + 1)
        self.assertIn(b"larger than 2 GiB", run("extract", path)[2])
        manual = (PROJECT / "docs" / "lrctool.1").read_text(encoding="utf-8")
        self.assertIn("An audio file that is saved has at most 2 GiB.", manual)

    def test_who_writes_files_is_told(self):
        manual = (PROJECT / "docs" / "lrctool.1").read_text(encoding="utf-8").replace("\\", "")
        for words in ("--in-place", "--output", "--into", "embed", "extract --beside", "fields --equal", "--clear"):
            self.assertIn(words, manual.split(".SH COMMANDS")[0])


class Readme(Folder):
    def test_the_formats_that_open_are_named(self):
        text = (PROJECT / "README.md").read_text(encoding="utf-8")
        named = re.search(r"^Songs are opened .*?: ([^.]*)\.", text, re.MULTILINE | re.DOTALL)[1]
        self.assertEqual(re.split(r",\s+|\s+and\s+", named),
                         "mp3 flac m4a ogg opus spx wav aiff aac wma ape wv mpc".split())

    def test_the_transcript_is_what_happens(self):
        text = (PROJECT / "README.md").read_text(encoding="utf-8")
        calls = re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", text.split("```console\n")[1].split("```")[0], re.MULTILINE)
        self.assertGreater(len(calls), 5)
        command, shown = calls.pop(0)
        self.assertEqual(command, "cat star.lrc")
        self.write("star.lrc", shown.encode())
        environment = {**os.environ, "PATH": os.path.dirname(os.path.abspath(TOOL)) + ":" + os.environ["PATH"]}
        for command, shown in calls:
            done = subprocess.run(["bash", "-c", command], cwd=self.folder, env=environment, timeout=500,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            self.assertEqual(done.stdout.decode(), shown, command)


class Audio(Folder):
    def setUp(self):
        super().setUp()
        self.song = self.folder / "song.mp3"
        shutil.copy(SONG, self.song)

    def test_a_lyric_goes_in_and_comes_out(self):
        lyric = "[ti:x]\r\n[00:01.00]走\n".encode()
        path = self.write("a.lrc", lyric)
        before = self.song.read_bytes()
        self.assertEqual(run("embed", "--dry-run", self.song, path)[0], 0)
        self.assertEqual(self.song.read_bytes(), before)
        self.assertEqual(run("embed", self.song, path), (0, b"", b""))
        self.assertEqual(run("extract", self.song), (0, lyric, b""))
        status, out, _ = run("fields", "--json", self.song)
        answer = json.loads(out)
        self.assertEqual([field["text"] for field in answer["fields"] if field["is_lyric"]], [lyric.decode()])
        self.assertEqual([field["number"] for field in answer["fields"]], [1])
        self.assertGreater(answer["duration_ms"], 1000)
        changed = self.song.stat()
        self.assertEqual(json.loads(run("embed", "--json", self.song, path)[1]),
                         {"changed": False, "written": False, "changes": []})
        self.assertEqual(self.song.stat().st_mtime_ns, changed.st_mtime_ns)

    def test_an_empty_lyric_takes_the_field_away_only_when_it_is_meant(self):
        run("embed", self.song, "-", data=b"[00:01.00]a\n")
        self.assertEqual(run("embed", self.song, "-")[0], 1)
        self.assertEqual(run("extract", self.song)[1], b"[00:01.00]a\n")
        self.assertEqual(run("embed", "--force", self.song, "-")[0], 0)
        status, out, err = run("extract", self.song)
        self.assertEqual((status, out), (1, b""))
        self.assertIn(b"no lyric", err)

    def test_an_unsure_guess_is_not_put_in(self):
        before = self.song.read_bytes()
        path = self.write("a.lrc", "[00:01.00]Привет, как дела\n".encode("cp1251"))
        status, _, err = run("embed", "-g", self.song, path)
        self.assertEqual(status, 1)
        self.assertIn(b"too unsure to write over a file", err)
        self.assertEqual(self.song.read_bytes(), before)
        self.assertEqual(run("embed", "-e", "cp1251", self.song, path), (0, b"", b""))
        self.assertEqual(run("extract", self.song)[1].decode(), "[00:01.00]Привет, как дела\n")

    def fields(self):
        answer = json.loads(run("fields", "--json", self.song)[1])
        return {field["name"]: field for field in answer["fields"]}

    def test_a_chosen_field_gets_the_lyric_and_the_others_stay(self):
        timed = self.write("t.lrc", b"[ti:x]\n[00:01.00]a\n[00:02.50]b\n")
        before = self.fields()["USLT"]["text"]
        self.assertEqual(run("embed", "--field", "SYLT", "--field", "txxx:lyrics", self.song, timed)[0], 0)
        fields = self.fields()
        self.assertEqual(fields["USLT"]["text"], before)
        self.assertEqual(fields["SYLT"]["text"], "[00:01.00]a\n[00:02.50]b\n")
        self.assertEqual(fields["TXXX:LYRICS"]["text"], timed.read_text())
        self.assertEqual([fields[name]["is_stale"] for name in ("USLT", "SYLT", "TXXX:LYRICS")], [True, False, False])
        self.assertTrue(fields["SYLT"]["is_synchronised"])
        self.assertEqual(run("extract", "--field", "3", self.song)[1], timed.read_bytes())
        self.assertEqual(run("extract", "--field", "uslt:ENG", self.song)[1].decode(), before)
        status, _, err = run("embed", "--field", "NONE", self.song, timed)
        self.assertEqual(status, 1)
        self.assertIn(b"1 USLT (eng), 2 SYLT (XXX), 3 TXXX:LYRICS", err)

    def test_fields_are_made_equal_and_cleared_after_a_look(self):
        timed = self.write("t.lrc", b"[00:01.00]a\n[00:02.50]b\n")
        run("embed", "--field", "TXXX:LYRICS", self.song, timed)
        before = self.song.read_bytes()
        status, out, _ = run("fields", "--equal", "--dry-run", self.song)
        self.assertEqual(status, 0)
        self.assertIn(b"USLT (eng)\n@@ line 1\n", out)
        self.assertIn(b"\n+a\n", out)
        self.assertEqual(self.song.read_bytes(), before)
        answer = json.loads(run("fields", "--equal", "--json", self.song)[1])
        self.assertEqual([change["after"] for change in answer["changes"]], ["a\nb"])
        self.assertEqual(self.fields()["USLT"]["text"], "a\nb")
        self.assertFalse(any(field["is_stale"] for field in self.fields().values()))
        self.assertEqual(run("fields", "--clear", "USLT", self.song)[0], 0)
        self.assertEqual(list(self.fields()), ["TXXX:LYRICS"])
        self.assertEqual(run("fields", "--clear", "USLT", self.song)[0], 1)
        self.assertEqual(run("fields", "--dry-run", self.song)[0], 2)

    def test_a_folder_of_songs_with_their_lyrics_beside_them(self):
        inner = self.folder / "album"
        inner.mkdir()
        for name in ("a.mp3", "b.MP3", "c.mp3"):
            shutil.copy(SONG, inner / name)
        (inner / "a.lrc").write_bytes(b"[00:01.00]of a\n")
        (inner / "b.lrc").write_bytes(b"[00:01.00]of b\n")
        untouched = (inner / "c.mp3").read_bytes()
        answers = [json.loads(line) for line in run("embed", "--beside", "--json", "--dry-run", inner)[1].splitlines()]
        self.assertEqual([(Path(a["file"]).name, a["changed"], a["written"]) for a in answers],
                         [("a.mp3", True, False), ("b.MP3", True, False)])
        self.assertEqual(run("embed", "--beside", inner), (0, b"", b""))
        self.assertEqual(run("extract", inner / "a.mp3")[1], b"[00:01.00]of a\n")
        self.assertEqual(run("extract", inner / "b.MP3")[1], b"[00:01.00]of b\n")
        self.assertEqual((inner / "c.mp3").read_bytes(), untouched)
        self.assertEqual(run("embed", "--beside", inner / "c.mp3")[0], 1, "a song that is named has to have one")

        self.assertEqual(run("extract", "--beside", inner), (0, b"", b""), "what is there already is the same")
        self.assertIn(b"twinkle", (inner / "c.lrc").read_bytes().lower())
        (inner / "a.lrc").write_bytes(b"older")
        answers = [json.loads(line) for line in run("extract", "--beside", "--force", "--json", "--dry-run", inner)[1].splitlines()]
        self.assertEqual([answer["written"] for answer in answers], [False] * 3)
        status, _, err = run("extract", "--beside", inner)
        self.assertEqual(status, 1)
        self.assertEqual(err.count(b"--force writes over it"), 1)
        self.assertEqual((inner / "a.lrc").read_bytes(), b"older")
        self.assertEqual(run("extract", "--beside", "--force", inner)[0], 0)
        self.assertEqual((inner / "a.lrc").read_bytes(), b"[00:01.00]of a\n")
        self.assertEqual(run("extract", inner)[0], 2, "several lyrics on standard output")

    def test_lines_past_the_end_are_found(self):
        length = json.loads(run("fields", "--json", self.song)[1])["duration_ms"]
        late = b"[00:01.00]a\n[%02d:%02d.00]b\n" % divmod(length // 1000 + 2, 60)
        path = self.write("song.lrc", late)
        for call in (["--audio", self.song, path], ["--beside-audio", self.folder]):
            status, out, _ = run("check", *call)
            self.assertEqual(status, 1)
            self.assertIn(b"song.lrc:2:1: warning: ", out)
            self.assertIn(b"[past-audio-end]", out)
        self.assertEqual(run("check", "--audio", self.song, path, path)[0], 2)
        self.assertEqual(run("check", "--audio", path, path)[0], 1, "a lyric is no audio")

    def test_a_lyric_that_cannot_be_compared_is_told(self):
        alone = self.write("alone.lrc", b"[00:01.00]a\n[00:02.00]b\n")
        status, out, err = run("check", "--beside-audio", alone)
        self.assertEqual((status, out), (1, b""))
        self.assertIn(b"alone.lrc: not compared: there is no audio file", err)
        status, out, _ = run("check", "--beside-audio", "--json", alone)
        self.assertEqual(status, 1)
        self.assertIn("no audio file", json.loads(out)["not_compared"])
        self.assertEqual(run("check", "--beside-audio", self.folder), (0, b"", b""), "in a folder that is usual")
        self.assertEqual(run("check", "--beside-audio", "-")[0], 2)
        (self.folder / "alone.mp3").write_bytes(b"no sound")
        status, out, err = run("check", "--beside-audio", "--json", self.folder)
        self.assertEqual(status, 1)
        self.assertIn("alone.mp3", json.loads(out)["not_compared"])
        self.assertIn(b"alone.mp3", err)

    def test_what_is_no_audio_is_refused(self):
        path = self.write("x.mp3", b"no sound")
        for command in (["fields", path], ["extract", path], ["embed", path, "-"]):
            status, out, err = run(*command, data=b"[00:01.00]a\n")
            self.assertEqual((status, out), (1, b""))
            self.assertIn(b"x.mp3", err)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
