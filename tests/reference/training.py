#!/usr/bin/env python3
"""Second opinion on the training: scores and payloads of `pulselark trace`.

    training.py FILE.hti [--averaging N] MODE:INTERVAL:TRACE...

Computes the coherence of a session as analyse.py does, and from it, for each mode and
interval named, the two scores and the value of every replayed second; holds them against
the lines `score` and `link` of the trace. The scores are worked out in fractions, so that
no rounding of the program's can hide in one of ours. Exits 0 when every score is equal, every
value within 1e-5, and the commands are those of a session that is opened and replayed in
training; otherwise prints the first few differences and exits 1.
"""

import argparse
import math
import struct
import sys
from fractions import Fraction

import analyse

VALUE, COMMAND = 12345678.0, 87654321.0
FULL = 0.11
SETTLING = 14
WHOLE_SESSION = 61
FIRST_FEW = 10

BELL = [math.exp(-((60 * (i / 10 - 0.5) / 10) ** 2) / 2) / math.sqrt(6.2831853) / 0.4 for i in range(1, 11)]


def replayed_series(path, averaging):
    """Coherence and smoothed intervals of channel A by second, as the replay leaves them."""
    seconds, _, ibi_a, _, ecg_a, ecg_b = analyse.read_session(path)
    window = [0.0] * analyse.SPECTRUM_LENGTH
    a = analyse.Channel(window, ecg_a, ibi_a, coherence_lowest=2)
    b = analyse.Channel(window, ecg_b, ibi_a, coherence_lowest=1)
    for _ in ("rescan", "replay"):
        for second in range(1, seconds + 1):
            a.calc_spectrum(second)
            b.calc_spectrum(second)
            a.calc_coherence(second)
    for second in range(1, seconds):
        a.smooth(second, averaging)
    return seconds, a.coherence, a.ibi_avg


def histogram(series, first, last):
    bins = [0] * 11
    for second in range(first, last + 1):
        number = min(round(series[second] / FULL * 10), 10)  # ties to even
        if number >= 1:
            bins[number] += 1
    return bins[1:]


def score(bins):
    most = max(bins)
    parts = [Fraction(count, most) if most else Fraction(0) for count in bins]
    bell = [Fraction(height) for height in BELL]
    excess = sum(part - height for part, height in zip(parts, bell) if part > height)
    result = (sum(parts) - 2 * excess) * Fraction("111.6") / sum(bell)
    return max(0, min(100, round(result)))


def expected(seconds, coherence, ibi_avg, mode, interval):
    """For each replayed second: the two scores, and the value that is sent (None in mode 0)."""
    bins = [0] * 10
    for second in range(1, seconds):
        bins = histogram(coherence, 15, second)
        session = score(bins)
        if second > interval + SETTLING:
            if interval == WHOLE_SESSION:
                interval = second - SETTLING - 1
            bins = histogram(coherence, second - interval, second)
        index = score(bins)
        value = (None, ibi_avg[second], coherence[second] / FULL * 100, index)[mode]
        yield second, session, index, value


def commands(seconds):
    """What opening and replaying sends, by second: the mode is chosen after the start, which takes 2."""
    numbers = ((226, 0), (240, 0), (231, 0), (222, 2), (223, 0), (238, 0), (222, 2), (225, 0))
    opening = [(1, (number, p1, 0, 0, 0)) for number, p1 in numbers]
    return opening + [(seconds, (226, 0, 0, 0, 0))]


def read_trace(path):
    scores, values, sent = {}, {}, []
    with open(path, encoding="utf-8") as file:
        for line in file:
            second, kind, text = line.rstrip("\n").split("\t")
            if kind == "score":
                scores.setdefault(int(second), []).append(tuple(map(int, text.split(" "))))
            elif kind == "link":
                payload = bytes.fromhex(text)
                numbers = struct.unpack("<%dd" % (len(payload) // 8), payload)
                if numbers[0] == VALUE and len(numbers) == 2:
                    values.setdefault(int(second), []).append(numbers[1])
                elif numbers[0] == COMMAND and len(numbers) == 6:
                    sent.append((int(second), tuple(numbers[1:])))
                else:
                    sent.append((int(second), numbers))
    return scores, values, sent


def differences(series, mode, interval, path):
    scores, values, sent = read_trace(path)
    for second, session, index, value in expected(*series, mode, interval):
        actual = scores.pop(second, None)
        if actual != [(session, index)]:
            yield "second %d: scores %d %d, the trace has %s" % (second, session, index, actual)
        actual = values.pop(second, [])
        wanted = [] if value is None else [value]
        if len(actual) != len(wanted) or any(abs(ours - theirs) > 1e-5 * max(1.0, abs(ours))
                                             for ours, theirs in zip(wanted, actual)):
            yield "second %d: value %s, the trace has %s" % (second, wanted, actual)
    if scores or values:
        yield "the trace has scores or values at seconds that no replay has"
    if sent != commands(series[0]):
        yield "commands %s" % sent


def main():
    parser = argparse.ArgumentParser(description="Independent scores and payloads of a training.")
    parser.add_argument("session", metavar="FILE.hti")
    parser.add_argument("traces", nargs="+", metavar="MODE:INTERVAL:TRACE")
    parser.add_argument("--averaging", type=int, default=0, metavar="N")
    arguments = parser.parse_args()
    series = replayed_series(arguments.session, arguments.averaging)
    failed = False
    for trace in arguments.traces:
        mode, interval, path = trace.split(":", 2)
        found = list(differences(series, int(mode), int(interval), path))
        for text in found[:FIRST_FEW]:
            print("mode %s, interval %s: %s" % (mode, interval, text))
        failed = failed or bool(found)
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
