#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the event sounds in assets/sounds: 16-bit mono PCM, 44.1 kHz."""

import array
import math
import pathlib
import random
import sys
import wave

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "assets" / "sounds"
RATE = 44100
FADE = 0.012  # seconds at the end of every sound


def tone(seconds, start, end=None, attack=0.004, decay=0.08):
    """A sine gliding from one frequency to another, dying away by `decay` as time constant."""
    end = start if end is None else end
    out = []
    phase = 0.0
    count = int(seconds * RATE)
    for i in range(count):
        phase += math.tau * (start + (end - start) * i / count) / RATE
        out.append(math.sin(phase) * _envelope(i / RATE, attack, decay))
    return out


def mallet(seconds, note, decay=0.16):
    """A wooden bar struck softly: the tone and its two short-lived partials."""
    return mix(
        (0.0, 1.0, tone(seconds, note, decay=decay)),
        (0.0, 0.22, tone(seconds, note * 3.93, decay=decay / 4)),
        (0.0, 0.05, tone(seconds, note * 9.2, attack=0.001, decay=decay / 14)),
    )


def noise(seconds, seed, low, high, attack=0.002, decay=0.02):
    """Noise between two frequencies, dying away."""
    source = random.Random(seed)
    values = [source.random() * 2 - 1 for _ in range(int(seconds * RATE))]
    values = _high_pass(_high_pass(values, low), low)
    values = _low_pass(_low_pass(values, high), high)
    return [v * _envelope(i / RATE, attack, decay) for i, v in enumerate(values)]


def mix(*parts):
    """Sums (start in seconds, level, samples) parts."""
    length = max(int(start * RATE) + len(samples) for start, _, samples in parts)
    out = [0.0] * length
    for start, level, samples in parts:
        at = int(start * RATE)
        for i, value in enumerate(samples):
            out[at + i] += value * level
    return out


def key():
    """A type bar on paper: the stroke and the body under it."""
    return mix(
        (0.0, 1.0, noise(0.05, 11, 1200, 3800, attack=0.001, decay=0.006)),
        (0.004, 0.17, tone(0.07, 240, 150, attack=0.003, decay=0.016)),
        (0.026, 0.35, noise(0.04, 12, 1800, 4800, attack=0.001, decay=0.005)),
    )


def launch():
    """A breath of air under two rising notes."""
    return mix(
        (0.0, 0.5, noise(0.34, 21, 500, 2600, attack=0.16, decay=0.09)),
        (0.06, 0.55, mallet(0.34, 523.25, decay=0.09)),
        (0.15, 0.7, mallet(0.40, 783.99, decay=0.13)),
    )


def paper():
    """A sheet laid down: many small crackles over a soft brush."""
    source = random.Random(31)
    parts = [(0.0, 0.5, noise(0.36, 32, 900, 2600, attack=0.05, decay=0.11))]
    for grain in range(26):
        start = 0.30 * source.random() ** 1.3
        level = (0.25 + 0.75 * source.random()) * (1 - start / 0.42)
        length = 0.008 + 0.02 * source.random()
        parts.append((start, level, noise(length + 0.02, 33 + grain, 1300, 3600, decay=length / 4)))
    return mix(*parts)


def menu():
    """A drop upwards."""
    return mix(
        (0.0, 1.0, tone(0.10, 520, 860, decay=0.028)),
        (0.0, 0.2, tone(0.10, 1040, 1720, decay=0.015)),
    )


def start():
    """A broken chord, upwards."""
    return mix(
        (0.00, 0.8, mallet(0.50, 392.00)),
        (0.11, 0.8, mallet(0.50, 523.25)),
        (0.22, 0.9, mallet(0.52, 659.26)),
    )


def start_as_admin():
    """The same chord with a low bar under it and one step more."""
    return mix(
        (0.00, 0.7, mallet(0.70, 130.81, decay=0.22)),
        (0.00, 0.7, mallet(0.45, 392.00, decay=0.12)),
        (0.09, 0.7, mallet(0.45, 523.25, decay=0.12)),
        (0.18, 0.7, mallet(0.45, 659.26, decay=0.12)),
        (0.27, 0.9, mallet(0.50, 783.99)),
    )


def already_work():
    """Two knocks that fall."""
    return mix(
        (0.00, 0.9, mallet(0.30, 659.26, decay=0.07)),
        (0.14, 0.9, mallet(0.36, 493.88, decay=0.10)),
    )


# File name, maker, peak level in dB below full scale.
SOUNDS = (
    ("kbd.wav", key, -16),
    ("launch.wav", launch, -15),
    ("paper.wav", paper, -16),
    ("menu.wav", menu, -18),
    ("start.wav", start, -14),
    ("start_as_admin.wav", start_as_admin, -13),
    ("already_work.wav", already_work, -14),
)


def write(path, samples, peak_db):
    samples = _faded(samples)
    scale = 32767 * 10 ** (peak_db / 20) / max(abs(v) for v in samples)
    data = array.array("h", (math.floor(v * scale + 0.5) for v in samples))
    if sys.byteorder == "big":
        data.byteswap()
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(data.tobytes())


def _faded(samples):
    """The samples from silence, and to silence at the end."""
    count = int(FADE * RATE)
    out = [0.0] + list(samples)
    for i in range(count):
        out[-1 - i] *= 0.5 - 0.5 * math.cos(math.pi * i / count)
    return out


def _envelope(time, attack, decay):
    if time < attack:
        return 0.5 - 0.5 * math.cos(math.pi * time / attack)
    return math.exp(-(time - attack) / decay)


def _low_pass(samples, frequency):
    step = 1 - math.exp(-math.tau * frequency / RATE)
    level = 0.0
    out = []
    for value in samples:
        level += (value - level) * step
        out.append(level)
    return out


def _high_pass(samples, frequency):
    return [value - low for value, low in zip(samples, _low_pass(samples, frequency))]


def main():
    FOLDER.mkdir(parents=True, exist_ok=True)
    for name, maker, peak_db in SOUNDS:
        write(FOLDER / name, maker(), peak_db)


if __name__ == "__main__":
    main()
