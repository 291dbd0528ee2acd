#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes audio files that were thought up to hurt whoever reads them.

    crafted_audio.py --list          names them, one a line, each with what is to become of it: saved (it is read, and can
                                     be given a lyric), read (and nothing else), refused
    crafted_audio.py DIR [NAME…]     writes them (or all) into DIR, each as DIR/NAME

Each is small as a description and large, deep or contradictory as a file: a reader has to answer within bounds of
time and memory, and must not change it but for its lyric. The larger ones have 100 MB and more.
"""

import itertools
import pathlib
import struct
import sys
import zlib

MB = 1 << 20
FILES = {}
OUTCOMES = {}


def crafted(name, outcome):
    """Registers a function that yields the file's bytes piece by piece."""

    def register(make):
        FILES[name] = make
        OUTCOMES[name] = outcome
        return make

    return register


def be32(value):
    return struct.pack(">I", value)


def le32(value):
    return struct.pack("<I", value)


def repeated(piece, size):
    """`piece` over and over, about `size` bytes in blocks."""
    block = piece * max(1, MB // len(piece))
    yield from itertools.repeat(block, max(1, size // len(block)))


# ID3v2 and MPEG frames

MPEG_FRAME = b"\xff\xfb\x90\x64" + bytes(413)
SOUND = MPEG_FRAME * 100


def sync_safe(value):
    return bytes((value >> shift) & 0x7F for shift in (21, 14, 7, 0))


def id3_header(size, version=3):
    return b"ID3" + bytes([version, 0, 0]) + sync_safe(size)


def id3_frame(name, body, version=3, flags=b"\0\0"):
    return name + (sync_safe(len(body)) if version == 4 else be32(len(body))) + flags + body


def id3(frames, version=3):
    body = b"".join(frames)
    return id3_header(len(body), version) + body


def uslt(text, language=b"eng"):
    return id3_frame(b"USLT", b"\0" + language + b"\0" + text)


def mp3_with_cover(size):
    head = b"\0image/png\0\3\0"
    yield id3_header(10 + len(head) + size)
    yield b"APIC" + be32(len(head) + size) + b"\0\0" + head
    yield from repeated(b"\x89PNG", size)
    yield SOUND


@crafted("cover-of-30-mb.mp3", "saved")
def _():
    yield from mp3_with_cover(30 * MB)


@crafted("cover-of-55-mb.mp3", "refused")
def _():
    yield from mp3_with_cover(55 * MB)


@crafted("lyric-of-25-mb.mp3", "refused")
def _():
    size = 25 * MB
    yield id3_header(10 + 5 + size)
    yield b"USLT" + be32(5 + size) + b"\0\0" + b"\0eng\0"
    yield from repeated(b"[00:01.00]x\n[00:02.00]yy\n[01:02.00]z\n"[:32], size)
    yield SOUND


@crafted("lyric-and-cover-of-6-and-25-mb.mp3", "saved")
def _():
    words, cover = 6 * MB - 64, 25 * MB
    yield id3_header(10 + 5 + words + 10 + 14 + cover)
    yield b"USLT" + be32(5 + words) + b"\0\0" + b"\0eng\0"
    line = b"[00:01.00]some words of a long line that is sung over and over\n"
    yield (line * (words // len(line) + 1))[:words]
    yield b"APIC" + be32(14 + cover) + b"\0\0" + b"\0image/png\0\3\0" + b"\0"
    yield from repeated(b"\x89PNG", cover)
    yield SOUND


@crafted("lyrics-990-times.flac", "saved")
def _():
    entries = [b"LYRICS=" + b"[00:01.00]some words\n" * 300] + [b"LYRICS=[00:01.00]a%d" % i + b"x" * 6000 for i in range(990)]
    yield b"fLaC" + flac_block(0, STREAM_INFO)
    yield flac_block(4, comment(entries), True)
    yield b"\xff\xf8" + bytes(1000)


@crafted("lyric-60-times.mp3", "refused")
def _():
    text = b"[00:01.00]word\n" * 30000
    yield id3([uslt(text, bytes((97 + i // 26, 97 + i % 26, 97))) for i in range(60)])
    yield from repeated(MPEG_FRAME, 90 * MB)


@crafted("utf16-lyric-of-20-mb.mp3", "refused")
def _():
    size = 20 * MB
    yield id3_header(10 + 10 + size)
    yield b"USLT" + be32(10 + size) + b"\0\0" + b"\1eng\xff\xfe\0\0\xff\xfe"
    yield from repeated("歌".encode("utf-16-le"), size)
    yield SOUND


@crafted("unsynchronised-tag-of-30-mb.mp3", "saved")
def _():
    size = 30 * MB
    yield b"ID3\3\0\x80" + sync_safe(10 + size)
    yield b"APIC" + be32(size // 2) + b"\0\0"
    yield from repeated(b"\xff\0", size)
    yield SOUND


@crafted("deflated-bomb.mp3", "refused")
def _():
    bomb = zlib.compress(bytes(256 * MB), 9)
    yield id3([id3_frame(b"TXXX", be32(256 * MB) + bomb, flags=b"\0\x80")])
    yield SOUND


@crafted("100000-frames.mp3", "saved")
def _():
    yield id3([id3_frame(b"TXXX", b"\0k%d\0v" % i) for i in range(100000)])
    yield SOUND


@crafted("million-frames.mp3", "refused")
def _():
    yield id3([id3_frame(b"TXXX", b"\0k\0v")] * 1000000)
    yield SOUND


@crafted("4000-tags-in-front.mp3", "saved")
def _():
    yield id3([id3_frame(b"TIT2", b"\0x")]) * 4000
    yield SOUND


@crafted("chapters-in-chapters.mp3", "refused")
def _():
    body = b""
    for _ in range(5000):
        body = id3_frame(b"CHAP", b"c\0" + bytes(16) + body)
    yield id3([body])
    yield SOUND


@crafted("two-million-times.mp3", "refused")
def _():
    entries = b"".join(b"a\0" + be32(i) for i in range(2000000))
    yield id3([id3_frame(b"SYLT", b"\0eng\2\1\0" + entries)])
    yield SOUND


@crafted("tag-longer-than-the-file.mp3", "refused")
def _():
    yield id3_header(200 * MB) + id3_frame(b"TIT2", b"\0x") + SOUND


@crafted("ends-behind-its-tag.mp3", "refused")
def _():
    yield id3([uslt(b"[00:01.00]x")])


@crafted("no-sound-but-ff-for-100-mb.mp3", "refused")
def _():
    yield id3([uslt(b"[00:01.00]x")])
    yield from repeated(b"\xff", 100 * MB)


@crafted("ape-tag-of-16-mb.mp3", "saved")
def _():
    items = (le32(1) + le32(0) + b"Key%07d\0v") * 1
    body = b"".join(items % i for i in range(600000))
    frame = b"APETAGEX" + le32(2000) + le32(len(body) + 32) + le32(600000)
    yield SOUND
    yield frame + le32(0xA0000000) + bytes(8) + body + frame + le32(0x80000000) + bytes(8)


# Ogg


def ogg_crc_table():
    table = []
    for i in range(256):
        value = i << 24
        for _ in range(8):
            value = ((value << 1) ^ (0x04C11DB7 if value & 0x80000000 else 0)) & 0xFFFFFFFF
        table.append(value)
    return table


CRC = ogg_crc_table()


def ogg_page(packets, sequence, flags=0, granule=0):
    """One page that holds `packets` whole."""
    lacing = b"".join(b"\xff" * (len(p) // 255) + bytes([len(p) % 255]) for p in packets)
    head = b"OggS\0" + bytes([flags]) + struct.pack("<qII", granule, 1, sequence)
    page = head + bytes(4) + bytes([len(lacing)]) + lacing + b"".join(packets)
    crc = 0
    for byte in page:
        crc = ((crc << 8) & 0xFFFFFFFF) ^ CRC[(crc >> 24) ^ byte]
    return page[:22] + le32(crc) + page[26:]


def opus_head():
    return b"OpusHead" + struct.pack("<BBHIHB", 1, 2, 312, 48000, 0, 0)


def comment(entries, vendor=b"v"):
    joined = b"".join(le32(len(e)) + e for e in entries)
    return le32(len(vendor)) + vendor + le32(len(entries)) + joined


def opus_front(tags):
    return ogg_page([opus_head()], 0, 2) + ogg_page([b"OpusTags" + tags], 1)


@crafted("empty-pages-of-100-mb.opus", "read")
def _():
    yield opus_front(comment([b"LYRICS=[00:01.00]x"]))
    yield from repeated(ogg_page([], 2, granule=-1), 100 * MB)


@crafted("pages-of-one-byte-of-60-mb.opus", "read")
def _():
    yield opus_front(comment([b"LYRICS=[00:01.00]x"]))
    yield from repeated(ogg_page([b"x"], 2), 60 * MB)


@crafted("900000-pages.opus", "saved")
def _():
    # The lyric takes two pages: with a shorter one every other page gets a new number.
    yield from opus_tags(b"OpusTags" + comment([b"LYRICS=" + b"[00:01.00]x\n" * 6000]))
    yield from repeated(ogg_page([b"x" * 100], 3), 900000 * 128)


def opus_with_picture(size):
    picture = b"METADATA_BLOCK_PICTURE=" + b"A" * size
    return opus_tags(b"OpusTags" + comment([b"LYRICS=[00:01.00]x", picture]))


@crafted("picture-of-23-mb.opus", "saved")
def _():
    yield from opus_with_picture(23 * MB)


@crafted("picture-of-40-mb.opus", "refused")
def _():
    yield from opus_with_picture(40 * MB)


@crafted("comments-without-end.opus", "refused")
def _():
    yield ogg_page([opus_head()], 0, 2)
    packet = b"OpusTags" + le32(1) + b"v" + le32(0xFFFFFFFF)
    yield packet.join([b"OggS\0\0" + bytes(8) + le32(1) + le32(1) + bytes(4) + b"\xff" + b"\xff" * 255, b""])
    yield from repeated(bytes(255), 100 * MB)


def opus_tags(packet):
    """A stream with this packet of tags, on as many pages as it takes. Checksums are left out."""
    yield ogg_page([opus_head()], 0, 2)
    chunks = [packet[i : i + 255 * 255] for i in range(0, len(packet), 255 * 255)]
    for number, chunk in enumerate(chunks):
        last = number == len(chunks) - 1
        lacing = b"\xff" * (len(chunk) // 255) + (bytes([len(chunk) % 255]) if last else b"")
        head = b"OggS\0" + bytes([1 if number else 0]) + bytes(8) + le32(1) + le32(number + 1) + bytes(4)
        yield head + bytes([len(lacing)]) + lacing + chunk
    yield ogg_page([b"x" * 100], len(chunks) + 1, 0, 960)


@crafted("million-comments.opus", "refused")
def _():
    yield from opus_tags(b"OpusTags" + le32(1) + b"v" + le32(1000000) + (le32(3) + b"A=b") * 1000000)


# FLAC

STREAM_INFO = struct.pack(">HH", 4096, 4096) + bytes(6) + b"\x0a\xc4\x42\xf0" + be32(88200) + bytes(16)


def flac_block(kind, body, last=False):
    return bytes([kind | (0x80 if last else 0)]) + be32(len(body))[1:] + body


@crafted("pictures-of-112-mb.flac", "saved")
def _():
    yield b"fLaC" + flac_block(0, STREAM_INFO)
    yield flac_block(4, comment([b"LYRICS=[00:01.00]x"]))
    head = be32(3) + be32(9) + b"image/png" + be32(0) + bytes(16)
    size = (1 << 24) - 1 - len(head) - 4
    for number in range(7):
        body = head + be32(size) + bytes(size)
        yield flac_block(6, body, number == 6)
    yield b"\xff\xf8" + bytes(1000)


@crafted("99000-blocks.flac", "saved")
def _():
    yield b"fLaC" + flac_block(0, STREAM_INFO)
    yield flac_block(4, comment([b"LYRICS=[00:01.00]x"]))
    yield flac_block(1, b"") * 98997 + flac_block(1, b"", True)
    yield b"\xff\xf8" + bytes(1000)


@crafted("comments-of-16-mb.flac", "saved")
def _():
    yield b"fLaC" + flac_block(0, STREAM_INFO)
    yield flac_block(4, comment([b"A%05d=" % i + b"x" * 150 for i in range(95000)]), True)
    yield b"\xff\xf8" + bytes(1000)


@crafted("million-blocks.flac", "refused")
def _():
    yield b"fLaC" + flac_block(0, STREAM_INFO)
    yield flac_block(1, b"") * 1000000


@crafted("comment-counts-to-2-32.flac", "refused")
def _():
    yield b"fLaC" + flac_block(0, STREAM_INFO)
    yield flac_block(4, le32(1) + b"v" + le32(0xFFFFFFFF) + le32(3) + b"A=b", True)
    yield b"\xff\xf8" + bytes(1000)


# MP4


def atom(name, *bodies):
    body = b"".join(bodies)
    return be32(len(body) + 8) + name + body


FILE_TYPE = atom(b"ftyp", b"M4A \0\0\0\0")


def moov_with_table(table):
    return atom(b"moov", atom(b"trak", atom(b"mdia", atom(b"minf", atom(b"stbl", table)))))


@crafted("chunk-table-of-100-mb.m4a", "refused")
def _():
    count = 25 * MB
    sizes = count * 4 + 16
    yield FILE_TYPE
    for name in (b"moov", b"trak", b"mdia", b"minf", b"stbl"):
        left = [b"moov", b"trak", b"mdia", b"minf", b"stbl"].index(name)
        yield be32(sizes + 8 * (5 - left)) + name
    yield be32(sizes) + b"stco" + bytes(4) + be32(count)
    yield from repeated(be32(100), count * 4)
    yield atom(b"mdat", bytes(1000))


@crafted("chunk-table-of-7-mb.m4a", "saved")
def _():
    count = 1800000
    yield FILE_TYPE
    yield moov_with_table(atom(b"stco", bytes(4), be32(count), be32(8 * MB) * count))
    yield atom(b"mdat", bytes(MB))


@crafted("chunks-at-both-ends.m4a", "saved")
def _():
    # Each chunk at the other end of the sound.
    count, sound = 1900000, 20 * MB
    start = 16 + 8 * 6 + 8 + count * 4 + 8
    offsets = be32(start) + be32(start + sound - 100)
    yield FILE_TYPE
    yield moov_with_table(atom(b"stco", bytes(4), be32(count), offsets * (count // 2)))
    yield be32(sound + 8) + b"mdat"
    yield from repeated(b"abcd", sound)


@crafted("nested-100000-deep.m4a", "refused")
def _():
    depth = 100000
    yield FILE_TYPE
    yield b"".join(be32((depth - i) * 8) + b"moov" for i in range(depth))


@crafted("300000-atoms.m4a", "refused")
def _():
    yield FILE_TYPE
    yield atom(b"moov", atom(b"free") * 300000)


@crafted("140000-lyrics.m4a", "refused")
def _():
    lyric = atom(b"\xa9lyr", atom(b"data", be32(1), bytes(4), b"[00:01.00]x"))
    meta = bytes(4) + atom(b"hdlr", bytes(8), b"mdirappl", bytes(9))
    yield FILE_TYPE
    yield atom(b"moov", atom(b"udta", atom(b"meta", meta, atom(b"ilst", lyric * 70000))))
    yield atom(b"mdat", bytes(1000))


@crafted("cover-of-30-mb.m4a", "saved")
def _():
    size = 30 * MB
    handler = bytes(4) + atom(b"hdlr", bytes(8), b"mdirappl", bytes(9))
    cover = size + 16
    lyric = atom(b"\xa9lyr", atom(b"data", be32(1), bytes(4), b"[00:01.00]x"))
    listed = 8 + cover + 8 + len(lyric)
    yield FILE_TYPE
    yield be32(8 + 8 + 8 + len(handler) + listed) + b"moov"
    yield be32(8 + 8 + len(handler) + listed) + b"udta"
    yield be32(8 + len(handler) + listed) + b"meta" + handler
    yield be32(listed) + b"ilst" + lyric
    yield be32(cover + 8) + b"covr" + be32(cover) + b"data" + be32(14) + bytes(4)
    yield from repeated(b"\x89PNG", size)
    yield atom(b"mdat", bytes(1000))


@crafted("atom-larger-than-the-file.m4a", "refused")
def _():
    yield FILE_TYPE + be32(1) + b"moov" + struct.pack(">Q", (1 << 64) - 1)


# RIFF and IFF


def chunk(name, body, order="<"):
    return name + struct.pack(order + "I", len(body)) + body + bytes(len(body) % 2)


WAV_FORMAT = chunk(b"fmt ", struct.pack("<HHIIHH", 1, 2, 44100, 176400, 4, 16))


def wav(body):
    return b"RIFF" + le32(len(body) + 4) + b"WAVE" + body


@crafted("200000-chunks.wav", "refused")
def _():
    yield wav(WAV_FORMAT + chunk(b"data", bytes(4000)) + chunk(b"junk", b"") * 200000)


@crafted("9000-chunks.wav", "saved")
def _():
    yield wav(WAV_FORMAT + chunk(b"data", bytes(4000)) + chunk(b"junk", bytes(10)) * 9000)


@crafted("list-of-50-mb.wav", "refused")
def _():
    size = 50 * MB
    body = WAV_FORMAT + chunk(b"data", bytes(4000))
    yield b"RIFF" + le32(4 + len(body) + 8 + size) + b"WAVE" + body + b"LIST" + le32(size)
    yield from repeated(b"INFOINAM\4\0\0\0abcd"[:16], size)


@crafted("tag-chunk-of-50-mb.aiff", "refused")
def _():
    size = 50 * MB
    common = chunk(b"COMM", struct.pack(">hIh", 2, 1000, 16) + b"\x40\x0e\xac\x44" + bytes(6), ">")
    sound = chunk(b"SSND", bytes(4008), ">")
    yield b"FORM" + be32(4 + len(common) + len(sound) + 8 + size) + b"AIFF" + common + sound
    yield b"ID3 " + be32(size) + id3([uslt(b"[00:01.00]x")])
    yield from repeated(b"\0", size)


# APE tags, ASF


@crafted("ape-tag-whose-size-lies.wv", "refused")
def _():
    frame = b"APETAGEX" + le32(2000) + le32(0xFFFFFFF0) + le32(0xFFFFFFFF)
    yield b"wvpk" + le32(24) + bytes(24) + bytes(4000) + frame + le32(0) + bytes(8)


ASF_HEADER = bytes.fromhex("3026B2758E66CF11A6D900AA0062CE6C")
ASF_DATA = bytes.fromhex("3626B2758E66CF11A6D900AA0062CE6C")
ASF_CONTENT = bytes.fromhex("40A4D0D207E3D21197F000A0C95EA850")


def asf_object(guid, body):
    return guid + struct.pack("<Q", len(body) + 24) + body


@crafted("65535-attributes.wma", "refused")
def _():
    name = "WM/Lyrics\0".encode("utf-16-le")
    value = "[00:01.00]x\0".encode("utf-16-le")
    attribute = struct.pack("<H", len(name)) + name + struct.pack("<HH", 0, len(value)) + value
    content = asf_object(ASF_CONTENT, struct.pack("<H", 0xFFFF) + attribute * 0xFFFF)
    body = le32(1) + b"\1\2" + content
    yield asf_object(ASF_HEADER, body) + asf_object(ASF_DATA, bytes(1000))


@crafted("header-of-300-mb.wma", "refused")
def _():
    size = 300 * MB
    yield ASF_HEADER + struct.pack("<Q", size + 30) + le32(1) + b"\1\2"
    yield ASF_CONTENT + struct.pack("<Q", size)
    yield from repeated(b"\0", size)


# What is none of what it says


@crafted("zeros-of-200-mb.mp3", "refused")
def _():
    yield from repeated(b"\0", 200 * MB)


@crafted("text.flac", "refused")
def _():
    yield b"[00:01.00]This is no sound at all.\n" * 1000


def main():
    arguments = sys.argv[1:]
    if arguments == ["--list"]:
        print("\n".join(f"{name} {OUTCOMES[name]}" for name in sorted(FILES)))
        return 0
    if not arguments or arguments[0].startswith("-"):
        print(__doc__, file=sys.stderr)
        return 2
    folder, *names = arguments
    for name in names or sorted(FILES):
        if name not in FILES:
            print(f"There is no file {name}; --list names them.", file=sys.stderr)
            return 2
        with (pathlib.Path(folder) / name).open("wb") as out:
            for piece in FILES[name]():
                out.write(piece)
    return 0


if __name__ == "__main__":
    sys.exit(main())
