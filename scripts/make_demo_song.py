#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the demonstration song of lyricdesk, from nothing.

    scripts/make_demo_song.py [--wav FILE] [folder]

Writes the-star.mp3 and the-star.onsets.tsv into the folder (src/host/demo by default); --wav
keeps the sound as it was before encoding. Needs ffmpeg with libmp3lame; the same ffmpeg gives
the same bytes every time.
"""

import argparse
import pathlib
import subprocess
import sys
import tempfile
import wave

from demo_song import arrangement, cover, id3, score

DEFAULT_FOLDER = pathlib.Path(__file__).resolve().parent.parent / "src" / "host" / "demo"


def encode(samples):
    """The sound as an mp3 stream with a LAME header and no tag."""
    command = ["ffmpeg", "-v", "error",
               "-f", "s16le", "-ar", str(score.SAMPLE_RATE), "-ac", "2", "-i", "pipe:0"]
    command += ["-c:a", "libmp3lame", "-b:a", "56k", "-joint_stereo", "1",
                "-id3v2_version", "0", "-write_id3v1", "0", "-write_xing", "1", "-f", "mp3"]
    # A file, not a pipe: the header is written last, at the start.
    with tempfile.NamedTemporaryFile(suffix=".mp3") as out:
        subprocess.run(command + ["-y", out.name], input=samples.tobytes(), check=True)
        return pathlib.Path(out.name).read_bytes()


def tags():
    return id3.tag([
        id3.text(b"TIT2", score.TITLE),
        id3.text(b"TPE1", score.ARTIST),
        id3.text(b"TALB", score.ALBUM),
        id3.text(b"TEXT", "Jane Taylor"),
        id3.text(b"TDOR", score.YEAR),
        id3.lyric(score.lyric()),
        id3.cover(cover.png()),
    ])


def write_wav(path, samples):
    with wave.open(str(path), "wb") as out:
        out.setnchannels(2)
        out.setsampwidth(2)
        out.setframerate(score.SAMPLE_RATE)
        out.writeframes(samples.tobytes())


def main():
    parser = argparse.ArgumentParser(description="Makes the demonstration song of lyricdesk.")
    parser.add_argument("folder", nargs="?", type=pathlib.Path, default=DEFAULT_FOLDER)
    parser.add_argument("--wav", type=pathlib.Path, help="keep the sound as it was before encoding")
    given = parser.parse_args()

    samples = arrangement.render()
    if given.wav:
        write_wav(given.wav, samples)
    given.folder.mkdir(parents=True, exist_ok=True)
    song = tags() + encode(samples)
    (given.folder / "the-star.mp3").write_bytes(song)
    (given.folder / "the-star.onsets.tsv").write_text(score.onsets_table(), encoding="utf-8")
    print(f"the-star.mp3: {len(song)} bytes, {len(samples) / 2 / score.SAMPLE_RATE:.2f} s")
    return 0


if __name__ == "__main__":
    sys.exit(main())
