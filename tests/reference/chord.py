#!/usr/bin/env python3
"""Second opinion on the sound: the MIDI words of `pulselark trace --midi`.

    chord.py FILE.hti [--averaging N] MODE:INTERVAL:TRACE...

MODE is a training mode, 0 to 3, or "panels" for a replay outside training. Computes the coherence
peak, the moving average of coherence and the scores as analyse.py and training.py do, and
from them the words of every replayed second: the probe, the sounds and notes off of both
channels, and the eight notes of the chord. Exits 0 when every second has these words, in this
order, and no other; otherwise prints the first few differences and exits 1. Up to second 9
only the count of the words and the messages before the notes are held against each other.
"""

import argparse
import math
import sys

import analyse
import training

FULL = 0.11
SEMITONE = 1.0594630943
LOUDEST = 100
EXACT_FROM = 10
# Channel, semitones from the root, share of the loudness.
NOTES = ((0, 0, 0.5), (1, 0, 0.5), (0, -5, 0.33), (0, 4, 0.5),
         (0, 7, 0.5), (1, -5, 0.33), (1, 4, 0.5), (1, 7, 0.5))


def word(status, data1, data2):
    return (status + 256 * data1 + 65536 * data2) & 0xFFFFFFFF


BEFORE_NOTES = [word(144, 50, 1)] + [word(176 + channel, number, 0)
                                     for channel in (0, 1) for number in (120, 123)]


def replay(path, averaging):
    """The series that the scores are made of, as training.py has them, and for each replayed second
    the index of the coherence peak and the average of coherence one second past it."""
    seconds, _, ibi_a, _, ecg_a, ecg_b = analyse.read_session(path)
    window = [0.0] * analyse.SPECTRUM_LENGTH
    a = analyse.Channel(window, ecg_a, ibi_a, coherence_lowest=2)
    b = analyse.Channel(window, ecg_b, ibi_a, coherence_lowest=1)

    def calculate(second):
        a.calc_spectrum(second)
        b.calc_spectrum(second)
        a.calc_coherence(second)

    for second in range(1, seconds + 1):
        calculate(second)
    for second in range(1, seconds + 1):
        a.smooth(second, averaging)
    rows = []
    for second in range(1, seconds):
        calculate(second)
        a.smooth(second, averaging)
        rows.append((second, a.peak_index, a.coherence_avg[second + 1]))
    return (seconds, a.coherence, a.ibi_avg), rows


def chord(peak, loudness):
    root = round(64 * 256 / peak) if peak > 0 else 0
    loudness = min(loudness, LOUDEST)
    for channel, semitones, share in NOTES:
        hertz = root * SEMITONE ** semitones
        note = round(12 * math.log(hertz / 440) / math.log(2)) + 69 if hertz > 0 else 0
        yield word(144 + channel, note, round(loudness * share))


def expected(series, rows, mode, interval):
    """For each replayed second: its words."""
    indexes = {}
    if mode == "3":
        indexes = {second: index for second, _, index, _ in training.expected(*series, 3, interval)}
    for second, peak, average in rows:
        if mode in ("0", "1"):
            yield second, []
            continue
        loudness = indexes[second] if mode == "3" else round(average * 115 / FULL - 15)
        yield second, BEFORE_NOTES + list(chord(peak, loudness))


def read_trace(path):
    words = {}
    with open(path, encoding="utf-8") as file:
        for line in file:
            second, kind, text = line.rstrip("\n").split("\t")
            if kind == "midi":
                words.setdefault(int(second), []).extend(int(number, 16) for number in text.split(" "))
    return words


def differences(wanted, given):
    for second, words in wanted:
        actual = given.pop(second, [])
        if second < EXACT_FROM:
            words = words[:len(BEFORE_NOTES)] + actual[len(BEFORE_NOTES):len(words)]
        if actual != words:
            yield "second %d: %s, the trace has %s" % (
                second, " ".join("%08x" % number for number in words),
                " ".join("%08x" % number for number in actual))
    if given:
        yield "words at seconds that no replay has: %s" % sorted(given)


def main():
    parser = argparse.ArgumentParser(description="Independent MIDI words of a session.")
    parser.add_argument("session", metavar="FILE.hti")
    parser.add_argument("traces", nargs="+", metavar="MODE:INTERVAL:TRACE")
    parser.add_argument("--averaging", type=int, default=0, metavar="N")
    arguments = parser.parse_args()
    series, rows = replay(arguments.session, arguments.averaging)
    failed = False
    for trace in arguments.traces:
        mode, interval, path = trace.split(":", 2)
        found = list(differences(expected(series, rows, mode, int(interval)), read_trace(path)))
        for text in found[:training.FIRST_FEW]:
            print("mode %s, interval %s: %s" % (mode, interval, text))
        failed = failed or bool(found)
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
