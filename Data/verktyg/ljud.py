#!/usr/bin/env python3
"""Makes the ten alert sounds Data/Ljud/Test/1.wav to 10.wav.

    Data/verktyg/ljud.py [FOLDER]

Short melodies of pure tones with soft edges, 16 bits at 11025 Hz: each can be told from the others in headphones
over a contest, none is shrill.
"""
import math
import struct
import sys
import wave
from pathlib import Path

RATE = 11025
LOUDNESS = 0.5
EDGE = 0.008  # seconds of rise and fall, so that no tone clicks

# (frequency in Hz, seconds) after one another; frequency 0 is silence.
SOUNDS = [
    [(880, 0.18)],
    [(880, 0.09), (0, 0.05), (880, 0.09)],
    [(660, 0.1), (880, 0.14)],
    [(880, 0.1), (660, 0.14)],
    [(523, 0.08), (659, 0.08), (784, 0.12)],
    [(784, 0.08), (659, 0.08), (523, 0.12)],
    [(700, 0.06), (0, 0.05), (700, 0.06), (0, 0.05), (700, 0.18)],
    [(440, 0.3)],
    [(1175, 0.06), (0, 0.04), (1175, 0.06), (0, 0.04), (1175, 0.06)],
    [(587, 0.1), (0, 0.03), (880, 0.1), (0, 0.03), (587, 0.14)],
]


def tone(frequency, seconds):
    count = round(seconds * RATE)
    for n in range(count):
        edge = min(1.0, n / (EDGE * RATE), (count - 1 - n) / (EDGE * RATE))
        yield edge * LOUDNESS * math.sin(2 * math.pi * frequency * n / RATE)


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).parent.parent / "Ljud" / "Test"
    folder.mkdir(parents=True, exist_ok=True)
    for number, melody in enumerate(SOUNDS, 1):
        samples = [round(32767 * value) for note in melody for value in tone(*note)]
        with wave.open(str(folder / f"{number}.wav"), "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(RATE)
            file.writeframes(struct.pack(f"<{len(samples)}h", *samples))


main()
