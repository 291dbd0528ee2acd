# SPDX-License-Identifier: MIT
"""The parts of make_demo_song.py: what is played, how it sounds, and what the file carries."""
