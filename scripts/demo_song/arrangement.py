# SPDX-License-Identifier: MIT
"""Who plays what, and how loud."""

from . import score, synth

ROOM_DELAYS = ([1557, 1277, 1801, 2011], [1617, 1327, 1747, 2113])
ROOM_WET = 0.16
MASTER_GAIN = 0.67


def _tune(mixer):
    for index, beat in enumerate(score.line_beats()):
        second_stanza = index >= len(score.STANZAS[0])
        for step, pitch in enumerate(score.TUNE[index % len(score.TUNE)]):
            held = step == 6
            start = score.sample_at(beat + step)
            length = score.seconds(2.4 if held else 1.6)
            accent = 1.0 if step == 0 else 0.82
            mixer.add(start, synth.bell(pitch, length), 0.50 * accent, 0.05)
            if second_stanza:
                mixer.add(start, synth.bell(score.SECOND_BELOW[pitch], length), 0.20, 0.35)


def _chord(mixer, beat, chord, loud):
    """Two beats: the root below, the notes broken upwards in eighths."""
    mixer.add(score.sample_at(beat), synth.bass(chord[0] - (12 if chord[0] > 45 else 0),
                                                score.seconds(1.9)), 0.42 * loud, -0.05)
    for step, note in enumerate([chord[0], chord[1], chord[2], chord[1]]):
        pan = -0.45 + 0.12 * step
        mixer.add(score.sample_at(beat + step / 2), synth.pluck(note + 12, score.seconds(1.5)),
                  0.17 * loud, pan)


def _chords(mixer):
    for index, chord in enumerate(score.INTRO_CHORDS):
        _chord(mixer, 2 * index, chord, 0.8)
    for index, beat in enumerate(score.line_beats()):
        for step, chord in enumerate(score.CHORDS[index % len(score.CHORDS)]):
            _chord(mixer, beat + 2 * step, chord, 1.0)


def _percussion(mixer):
    first, last = 4, score.INTRO_BEATS + score.LINE_BEATS * len(score.LINES)
    for beat in range(first, last):
        if beat % 2 == 0:
            mixer.add(score.sample_at(beat), synth.kick(), 0.34)
        else:
            mixer.add(score.sample_at(beat), synth.shaker(beat % 5, 0.09), 0.055, 0.25)
        mixer.add(score.sample_at(beat + 0.5), synth.shaker(7 + beat % 3, 0.05), 0.035, 0.4)


def _ending(mixer):
    beat = score.INTRO_BEATS + score.LINE_BEATS * len(score.LINES)
    mixer.add(score.sample_at(beat), synth.bass(36, score.seconds(4)), 0.42)
    for step, pitch in enumerate([60, 64, 67, 72, 76, 79, 84]):
        mixer.add(score.sample_at(beat + step / 4), synth.bell(pitch, score.seconds(4)),
                  0.22, -0.3 + 0.1 * step)


def render():
    """The whole song: interleaved 16-bit samples of two channels."""
    mixer = synth.Mixer(score.sample_at(score.total_beats()))
    for play in (_tune, _chords, _percussion, _ending):
        play(mixer)
    wet = [synth.room(channel, delays, ROOM_WET)
           for channel, delays in zip(mixer.channels, ROOM_DELAYS)]
    return synth.master(wet, MASTER_GAIN)
