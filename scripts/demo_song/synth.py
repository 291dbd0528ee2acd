# SPDX-License-Identifier: MIT
"""Voices, a mixer of two channels, a small room, and the master.

Every voice is a sum of decaying sines, each made by a two-term recurrence, which is quick enough
without any library. Nothing depends on the clock, and the noise has a fixed seed.
"""

import math
import random
from array import array
from functools import lru_cache
from operator import add

from .score import SAMPLE_RATE


def _frequency(pitch):
    return 440.0 * 2.0 ** ((pitch - 69) / 12.0)


def _decaying_sine(frequency, gain, half_life, count):
    """`count` samples of a sine from phase 0 that halves every `half_life` seconds."""
    decay = 0.5 ** (1.0 / (half_life * SAMPLE_RATE))
    step = 2.0 * math.pi * frequency / SAMPLE_RATE
    first, second = 2.0 * decay * math.cos(step), -decay * decay
    before, now = -gain * math.sin(step) / decay, 0.0
    out = array("d", bytes(8 * count))
    for index in range(count):
        out[index] = now
        before, now = now, first * now + second * before
    return out


def _shape_ends(samples, attack, release):
    """Fades the first `attack` and the last `release` seconds, so that nothing clicks."""
    rise, fall = int(attack * SAMPLE_RATE), int(release * SAMPLE_RATE)
    for index in range(rise):
        samples[index] *= 0.5 - 0.5 * math.cos(math.pi * index / rise)
    for index in range(fall):
        samples[-1 - index] *= index / fall
    return samples


def _tone(pitch, partials, length, attack):
    """partials: (multiple of the pitch, gain, half-life in s)."""
    count = int(length * SAMPLE_RATE)
    base = _frequency(pitch)
    total = array("d", bytes(8 * count))
    for multiple, gain, half_life in partials:
        total = array("d", map(add, total, _decaying_sine(base * multiple, gain, half_life, count)))
    return _shape_ends(total, attack, 0.05)


@lru_cache(maxsize=None)
def bell(pitch, length):
    """The tune: a music box with a round body and a short bright start."""
    partials = [(1, 1.0, 0.34), (2, 0.34, 0.22), (3, 0.16, 0.12), (4.02, 0.10, 0.06),
                (6.1, 0.05, 0.03)]
    return _tone(pitch, partials, length, 0.002)


@lru_cache(maxsize=None)
def pluck(pitch, length):
    """The broken chords: a soft string."""
    partials = [(n, 1.0 / n ** 1.5, 0.22 / n ** 0.7) for n in range(1, 8)]
    return _tone(pitch, partials, length, 0.003)


@lru_cache(maxsize=None)
def bass(pitch, length):
    return _tone(pitch, [(1, 1.0, 0.35), (2, 0.35, 0.20), (3, 0.10, 0.10)], length, 0.006)


@lru_cache(maxsize=None)
def kick():
    """A soft drum: a sine that falls from 120 to 50 Hz."""
    out, phase = array("d"), 0.0
    for index in range(int(0.22 * SAMPLE_RATE)):
        time = index / SAMPLE_RATE
        phase += 2.0 * math.pi * (50.0 + 70.0 * math.exp(-time * 40.0)) / SAMPLE_RATE
        out.append(math.sin(phase) * math.exp(-time * 22.0))
    return _shape_ends(out, 0.002, 0.02)


@lru_cache(maxsize=None)
def shaker(seed, length):
    """Noise without its low part."""
    noise = random.Random(seed)
    out, previous = array("d"), 0.0
    count = int(length * SAMPLE_RATE)
    for index in range(count):
        value = noise.random() * 2.0 - 1.0
        out.append((value - previous) * math.exp(-6.0 * index / count))
        previous = value
    return _shape_ends(out, 0.004, 0.01)


class Mixer:
    """Two channels of samples, to which notes are added."""

    def __init__(self, count):
        self.channels = [array("d", bytes(8 * count)), array("d", bytes(8 * count))]

    def add(self, start, samples, gain, pan=0.0):
        """Adds `samples` from sample `start` on; `pan` from -1 (left) to 1 (right)."""
        angle = (pan + 1.0) * math.pi / 4.0
        for channel, level in zip(self.channels, (math.cos(angle) * gain, math.sin(angle) * gain)):
            end = min(start + len(samples), len(channel))
            channel[start:end] = array(
                "d", (a + level * b for a, b in zip(channel[start:end], samples)))


def _comb(samples, delay, feedback):
    """y[n] = x[n] + feedback * y[n - delay], a block of `delay` samples at a time."""
    out = array("d", samples)
    for start in range(delay, len(out), delay):
        block, earlier = out[start:start + delay], out[start - delay:start]
        out[start:start + delay] = array("d", (a + feedback * b for a, b in zip(block, earlier)))
    return out


def _smooth(samples, keep):
    """A one-pole low pass, which takes the metal out of the room."""
    out, state = array("d"), 0.0
    for value in samples:
        state += keep * (value - state)
        out.append(state)
    return out


def room(samples, delays, wet):
    """Adds four echoes that die away together, `wet` loud; the dry sound stays where it is."""
    dark = _smooth(samples, 0.35)
    echoes = [_comb(dark, delay, 0.74) for delay in delays]
    shift = min(delays)
    out = array("d", samples)
    tail = (wet * (sum(values) / len(values) - dry)
            for dry, values in zip(dark, zip(*echoes)))
    for index, value in zip(range(len(out)), tail):
        if index >= shift:
            out[index] += value
    return out


def master(channels, gain):
    """Interleaved 16-bit samples; `gain` into a soft ceiling at -1.9 dBFS, so nothing clips."""
    ceiling = 0.80
    limited = [[ceiling * math.tanh(gain * value / ceiling) for value in channel]
               for channel in channels]
    return array("h", (round(value * 32767.0) for pair in zip(*limited) for value in pair))
