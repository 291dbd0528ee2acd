# SPDX-License-Identifier: MIT
"""What is sung and played: words, tune, chords, and when each line begins.

The words are "The Star" by Jane Taylor (1806); the tune is the traditional one that they are
sung to. Both are in the public domain. Pitches are MIDI note numbers, times are beats from the
first beat of the introduction.
"""

SAMPLE_RATE = 44100
BEATS_PER_MINUTE = 132
INTRO_BEATS = 8
LINE_BEATS = 8
TAIL_BEATS = 6

TITLE = "The Star"
ARTIST = "Traditional"
ALBUM = "Songs to Stamp"
YEAR = "1806"

_REFRAIN = ["Twinkle, twinkle, little star,", "How I wonder what you are!"]
STANZAS = [
    _REFRAIN + ["Up above the world so high,", "Like a diamond in the sky."] + _REFRAIN,
    ["When the blazing sun is gone,", "When he nothing shines upon,",
     "Then you show your little light,", "Twinkle, twinkle, all the night."] + _REFRAIN,
]
LINES = [line for stanza in STANZAS for line in stanza]

# One pitch a beat; the last one of a line is held for two.
_UP = [72, 72, 79, 79, 81, 81, 79]
_DOWN = [77, 77, 76, 76, 74, 74, 72]
_BRIDGE = [79, 79, 77, 77, 76, 76, 74]
TUNE = [_UP, _DOWN, _BRIDGE, _BRIDGE, _UP, _DOWN]

# One chord for two beats.
C, F, G = [48, 52, 55], [41, 48, 57], [43, 50, 59]
CHORDS = [[C, C, F, C], [F, C, G, C], [C, F, C, G], [C, F, C, G], [C, C, F, C], [F, C, G, C]]
INTRO_CHORDS = [C, F, G, G]

# A voice below the tune, for the second stanza: the next note of the chord downwards.
SECOND_BELOW = {72: 67, 74: 71, 76: 72, 77: 72, 79: 76, 81: 77}


def seconds(beat):
    """The time of a beat, in seconds."""
    return beat * 60.0 / BEATS_PER_MINUTE


def sample_at(beat):
    """The first sample of what begins on a beat."""
    return round(seconds(beat) * SAMPLE_RATE)


def line_beats():
    """The beat on which each line of the words begins."""
    return [INTRO_BEATS + LINE_BEATS * index for index in range(len(LINES))]


def total_beats():
    return INTRO_BEATS + LINE_BEATS * len(LINES) + TAIL_BEATS


def lyric():
    """What the file's lyric field carries: the words, none of them timed.

    The first line is the first to be sung, so that the first press of Enter stamps it.
    """
    return "\n".join(LINES) + "\n"


def onsets_table():
    """One row for each sung line: its row in the lyric (from 1), its onset in s, its words."""
    rows = ["row\tseconds\ttext"]
    for index, (beat, text) in enumerate(zip(line_beats(), LINES)):
        rows.append(f"{index + 1}\t{sample_at(beat) / SAMPLE_RATE:.6f}\t{text}")
    return "\n".join(rows) + "\n"
