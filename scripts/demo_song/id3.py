# SPDX-License-Identifier: MIT
"""An ID3v2.4 tag: text frames, a front cover, and an untimed lyric (USLT)."""

import struct

_UTF8 = b"\x03"


def _synchsafe(number):
    return bytes((number >> shift) & 0x7F for shift in (21, 14, 7, 0))


def _frame(kind, body):
    return kind + _synchsafe(len(body)) + b"\x00\x00" + body


def text(kind, value):
    return _frame(kind, _UTF8 + value.encode("utf-8"))


def cover(png):
    return _frame(b"APIC", _UTF8 + b"image/png\x00" + struct.pack("B", 3) + b"\x00" + png)


def lyric(value):
    return _frame(b"USLT", _UTF8 + b"eng" + b"\x00" + value.encode("utf-8"))


def tag(frames):
    body = b"".join(frames)
    return b"ID3\x04\x00\x00" + _synchsafe(len(body)) + body
