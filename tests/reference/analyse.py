#!/usr/bin/env python3
"""Second opinion on the per-second numbers of `pulselark analyse`.

    analyse.py FILE.hti [--averaging N] [--seconds LIMIT]

Loads a session, rescans it, replays it from second 1 and prints one CSV line per
replayed second, in the columns of `pulselark analyse`. It shares no code and no
library with the program: plain Python, its own transform in 64 bits, rounded to
32 bits where the program stores a Single. `compare.py` holds the two outputs
against each other.

Seconds, samples, bins, points and slots are counted from 1; such lists carry an
unused element 0.
"""

import argparse
import cmath
import math
import sys
from array import array
from itertools import islice

SAMPLES_PER_SECOND = 128
LONGEST_SESSION = 461000 // SAMPLES_PER_SECOND
SERIES_LENGTH = 4096

SPECTRUM_LENGTH, SPECTRUM_BINS = 1024, 512
SPECTRUM_SLOTS = 20
SPECTRUM_NORM_BINS = 128
SPECTRUM_AVERAGE_LIMIT = 2

PEAK_POINTS = range(12, 117 + 1)
WARMUP_SECONDS, WARMUP_VALUE = 12, 0.055

HRV_LENGTH = 256
HRV_LF_BINS, HRV_HF_BINS = range(10, 37 + 1), range(38, 102 + 1)

COLUMNS = ("Coherence", "CoherenceAvg", "PeakIndex", "SpectrumNorm", "HrvLf", "HrvHf", "IbiAvg")
HEADER = ",".join(["second"] + [name + twin for twin in "AB" for name in COLUMNS])


class BadSession(Exception):
    """A file that is no whole session; the text says what and where."""


def singles(values):
    """The values rounded to 32 bits, as a list of 64-bit floats."""
    return array("f", values).tolist()


def single(value):
    return singles([value])[0]


def left_sum(values):
    """Plain sum from left to right; the built-in one compensates from Python 3.12 on."""
    total = 0.0
    for value in values:
        total += value
    return total


class Transform:
    """Forward discrete Fourier transform of `length` real values (a power of two), unscaled.

    Pease's radix-2 scheme: every stage joins the two halves of the data and interleaves
    sums and differences, so that the result comes out in bit-reversed order.
    """

    def __init__(self, length):
        self.half = length // 2
        stages = length.bit_length() - 1
        roots = [cmath.exp(-2j * math.pi * k / length) for k in range(self.half)]
        self.twiddles = [[roots[i >> stage << stage] for i in range(self.half)]
                         for stage in range(stages)]
        self.order = [int(format(k, "0%db" % stages)[::-1], 2) for k in range(self.half)]

    def __call__(self, values):
        """Real and imaginary parts of the lower half of the bins, as 32-bit values."""
        data = list(values)
        for twiddles in self.twiddles:
            low, high = data[:self.half], data[self.half:]
            data[0::2] = [a + b for a, b in zip(low, high)]
            data[1::2] = [(a - b) * w for a, b, w in zip(low, high, twiddles)]
        bins = [data[place] for place in self.order]
        return singles([z.real for z in bins]), singles([z.imag for z in bins])


def magnitudes(real, imag):
    return [math.sqrt(re * re + im * im) for re, im in zip(real, imag)]


transform1024 = Transform(SPECTRUM_LENGTH)
transform512 = Transform(SPECTRUM_BINS)
transform256 = Transform(HRV_LENGTH)


class Channel:
    """One ECG channel: its data, its results and what its analyses carry from second to second."""

    def __init__(self, window, ecg, ibi, coherence_lowest):
        self.window = window  # input of the 1024-point transform, one list for both channels
        self.ecg = [0.0] + ecg
        self.ibi = [0.0] + ibi + [1.0] * (SERIES_LENGTH - len(ibi))
        self.coherence_lowest = coherence_lowest

        self.ring = [[0.0] * SPECTRUM_BINS for _ in range(SPECTRUM_SLOTS + 1)]
        self.slot, self.last_second, self.average_count = 1, 0, 0
        self.spectrum = [0.0] * SPECTRUM_BINS
        self.norm = 0.0

        self.coherence = [0.0] * (SERIES_LENGTH + 1)
        self.peak_index = 0
        self.coherence_avg = [0.0] * (SERIES_LENGTH + 1)
        self.ibi_avg = [0.0] * (SERIES_LENGTH + 1)
        self.hrv_lf = self.hrv_hf = 0.0

    def calc_spectrum(self, second):
        if second == self.last_second:
            return
        # Sample 1 is never taken. What the data do not reach keeps what the last call,
        # of whichever channel, left there.
        newest = second * SAMPLES_PER_SECOND
        taken = min(SPECTRUM_LENGTH, newest - 1)
        self.window[SPECTRUM_LENGTH - taken:] = self.ecg[newest - taken + 1:newest + 1]

        self.slot = self.slot % SPECTRUM_SLOTS + 1
        self.ring[self.slot] = singles(magnitudes(*transform1024(self.window)))

        if abs(second - self.last_second) == 1:
            self.average_count = min(self.average_count + 1, SPECTRUM_AVERAGE_LIMIT)
        else:
            self.average_count = 1
        newest_first = [self.ring[(self.slot - 1 - age) % SPECTRUM_SLOTS + 1]
                        for age in range(self.average_count)]
        means = [left_sum(bins) / self.average_count for bins in zip(*newest_first)]
        self.spectrum = singles(means)
        self.norm = left_sum(means[:SPECTRUM_NORM_BINS]) * math.log(128)
        self.last_second = second

    def calc_coherence(self, second):
        best = 0.0
        if self.norm > 0:
            curve = magnitudes(*transform512(self.spectrum))
            for point in PEAK_POINTS:
                value = curve[point - 1] / self.norm
                if value > best:
                    best = value
                    self.peak_index = point - 1
        self.coherence[second + 1] = single(best if second > WARMUP_SECONDS else WARMUP_VALUE)

    def smooth(self, second, averaging):
        """Moving averages at the two positions that the second's line shows.

        The program redoes the whole series each second. An average looks back only, over
        values that the replay has written by then, so that nothing else can reach these two.
        """
        for series, averages, lowest in (
                (self.coherence, self.coherence_avg, self.coherence_lowest),
                (self.ibi, self.ibi_avg, 1)):
            for position in (second, second + 1):
                window = range(position - averaging, position + 1)
                total = left_sum(series[max(place, lowest)] for place in window)
                averages[position] = single(total / (averaging + 1))

    def calc_hrv(self, second):
        newest_first = [self.ibi[place] if place > 0 else 0.0
                        for place in range(second, second - HRV_LENGTH, -1)]
        real, imag = transform256(newest_first)
        power = [0.0] + [re * re + im * im for re, im in zip(real, imag)]
        self.hrv_lf = left_sum(power[i] for i in HRV_LF_BINS)
        self.hrv_hf = left_sum(power[i] for i in HRV_HF_BINS)

    def columns(self, second):
        return "%.9g,%.9g,%d,%.17g,%.17g,%.17g,%.9g" % (
            self.coherence[second + 1], self.coherence_avg[second + 1], self.peak_index,
            self.norm, self.hrv_lf, self.hrv_hf, self.ibi_avg[second])


def read_session(path):
    """Seconds, channel mode (None for a text), IBI A, IBI B, ECG A, ECG B."""
    with open(path, "rb") as file:
        lines = [line.strip() for line in file]
    if len(lines) < 33:
        raise BadSession("line %d: the file ends in its head" % len(lines))
    try:
        seconds = int(lines[1])
        if not 0 <= seconds <= LONGEST_SESSION:
            raise BadSession("line 2: %d seconds do not fit" % seconds)
        data = singles(map(float, lines[33:33 + 2 * seconds * (1 + SAMPLES_PER_SECOND)]))
    except ValueError as error:
        raise BadSession("not a number: %s" % error) from None
    samples = seconds * SAMPLES_PER_SECOND
    if len(data) < 2 * (seconds + samples):
        raise BadSession("line %d: the file ends in its data" % len(lines))
    try:
        mode = float(lines[2].strip(b'"'))
    except ValueError:
        mode = None
    rest = iter(data)
    return (seconds, mode, *(list(islice(rest, n)) for n in (seconds, seconds, samples, samples)))


def analyse(path, averaging, limit, out):
    seconds, mode, ibi_a, ibi_b, ecg_a, ecg_b = read_session(path)
    window = [0.0] * SPECTRUM_LENGTH
    a = Channel(window, ecg_a, ibi_a, coherence_lowest=2)
    b = Channel(window, ecg_b, ibi_b, coherence_lowest=1)

    def calc_spectrum_and_coherence(second):
        for calc in (a.calc_spectrum, b.calc_spectrum, a.calc_coherence, b.calc_coherence):
            calc(second)

    # The averages that end a rescan are left out: the replay writes each before it is printed,
    # and those of channel B stand at 0 as long as it is not present.
    for second in range(1, seconds + 1):
        calc_spectrum_and_coherence(second)
    channel_b_present = mode == 1  # a program that has just started is in mode 2

    print(HEADER, file=out)
    for second in range(1, seconds if limit is None else min(seconds, limit + 1)):
        calc_spectrum_and_coherence(second)
        a.smooth(second, averaging)
        if channel_b_present:
            b.smooth(second, averaging)
        a.calc_hrv(second)
        b.calc_hrv(second)
        print(second, a.columns(second), b.columns(second), sep=",", file=out)


def main():
    parser = argparse.ArgumentParser(description="Independent per-second analyses of a session.")
    parser.add_argument("session", metavar="FILE.hti")
    parser.add_argument("--averaging", type=int, default=0, metavar="N",
                        help="the averages take N + 1 seconds (default 0)")
    parser.add_argument("--seconds", type=int, metavar="LIMIT",
                        help="print no more than LIMIT replayed seconds")
    arguments = parser.parse_args()
    if arguments.averaging < 0 or (arguments.seconds is not None and arguments.seconds < 0):
        parser.error("a negative count")
    try:
        analyse(arguments.session, arguments.averaging, arguments.seconds, sys.stdout)
    except (BadSession, OSError) as error:
        sys.exit("%s: %s" % (arguments.session, error))


if __name__ == "__main__":
    main()
