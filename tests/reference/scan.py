#!/usr/bin/env python3
"""Second opinion on the figures of `pulselark scan`.

    scan.py FILE.hti FIGURES.json

Works out the quick scan of a session on its own and holds it against the line of JSON that
`pulselark scan` wrote for it. Says each difference and exits with 1 if there is one. Like
`analyse.py`, which gives it the coherence of each second, it shares no code with the program.
"""

import json
import math
import sys
from struct import unpack

from analyse import (BadSession, Channel, SPECTRUM_LENGTH, Transform, left_sum, read_session,
                     singles)

SETTLING = 14
FULL_COHERENCE = 0.11
TOLERANCE = 1e-4  # of powers and their ratio, relative
FULL_SCORE = unpack("<d", bytes.fromhex("6766666666e65b40"))[0]


def coherence_series(seconds, ecg_a, ecg_b, ibi_a, ibi_b):
    """The coherence of both channels as a load leaves it; lists with an unused element 0."""
    window = [0.0] * SPECTRUM_LENGTH
    a = Channel(window, ecg_a, ibi_a, coherence_lowest=2)
    b = Channel(window, ecg_b, ibi_b, coherence_lowest=1)
    for second in range(1, seconds + 1):
        for step in (a.calc_spectrum, b.calc_spectrum, a.calc_coherence, b.calc_coherence):
            step(second)
    return a.coherence, b.coherence


def spectrum_size(seconds):
    return max(size for size in (128, 256, 512, 1024, 2048, 4096) if size < seconds or size == 128)


def powers(ibi_a, seconds):
    """Low and high band power; both channels take the intervals of channel A."""
    size = spectrum_size(seconds)
    newest = ibi_a[seconds - size:seconds]
    real, imag = Transform(size)(singles((value - 1.0) * 100 * 256 / size for value in newest))
    power = [(im ** 2 + re ** 2) / 100 for re, im in zip(real, imag)]  # element i - 1 is bin i
    low, high, end = (round(size * hz) for hz in (0.04, 0.15, 0.4))
    return left_sum(power[low - 1:high - 1]), left_sum(power[high - 1:end]), size


def histogram(coherence, seconds):
    bins, total, count = [0] * 10, 0.0, 0
    for value in coherence[SETTLING + 1:seconds + 1]:
        total += value
        place = min(round(value / FULL_COHERENCE * 10), 10)
        if place >= 1:
            bins[place - 1] += 1
            count += 1
    return bins, total / count / FULL_COHERENCE * 100 if count else total


def score(bins):
    bell = [math.exp(-((6 * (i / 10 - 0.5)) ** 2) / 2) / math.sqrt(6.2831853) / 0.4
            for i in range(1, 11)]
    largest = max(bins)
    parts = [count / largest if largest else 0.0 for count in bins]
    above = sum(part - curve for part, curve in zip(parts, bell) if part > curve)
    return min(max(round((sum(parts) - 2 * above) * FULL_SCORE / sum(bell)), 0), 100)


def scan(path):
    seconds, mode, ibi_a, ibi_b, ecg_a, ecg_b = read_session(path)
    both = mode == 1
    low, high, size = powers(ibi_a, seconds)
    result = {"file": path, "SessionSeconds": seconds, "ChannelMode": 1 if both else 2}
    series = coherence_series(seconds, ecg_a, ecg_b, ibi_a, ibi_b)
    for name, coherence, ibi in zip("AB" if both else "A", series, (ibi_a, ibi_b)):
        bins, mean = histogram(coherence, seconds)
        intervals = ibi[SETTLING - 1:seconds]
        result[name] = {
            "ScanPower1": low, "ScanPower2": high, "ScanPowerRatio": low / high if high else 0.0,
            "MeanHeartRate": round(60 / (left_sum(intervals) / len(intervals))),
            "ScanPeak": round(mean), "CohScoreBins": bins, "Score": score(bins),
            "QsSpectrumSize": size}
    return result


def differences(expected, actual, name=""):
    if isinstance(expected, dict) and isinstance(actual, dict):
        for key in sorted(set(expected) | set(actual)):
            yield from differences(expected.get(key), actual.get(key), name + "." + key)
    elif "Power" in name and None not in (expected, actual):
        if abs(expected - actual) > TOLERANCE * max(abs(expected), 1e-9):
            yield "%s: %r, but here %r" % (name, actual, expected)
    elif expected != actual:
        yield "%s: %r, but here %r" % (name, actual, expected)


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: scan.py FILE.hti FIGURES.json")
    try:
        with open(sys.argv[2], encoding="utf-8") as file:
            found = list(differences(scan(sys.argv[1]), json.load(file)))
    except (BadSession, OSError, ValueError) as error:
        sys.exit("scan.py: %s" % error)
    for text in found:
        print(text)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
