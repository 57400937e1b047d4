#!/usr/bin/env python3
"""Holds two outputs of the per-second analyses against each other.

    compare.py EXPECTED.csv ACTUAL.csv

Exits 0 when the header and the number of lines are the same, peak indexes and seconds are
equal, HRV band powers agree within 1e-4 and all other columns within 1e-5; each of these
absolute or relative to the expected value, whichever is looser. Otherwise prints the first
few differences and exits 1.
"""

import math
import sys

FIRST_FEW = 10


def tolerance(column):
    if column == "second" or column.startswith("PeakIndex"):
        return 0.0
    return 1e-4 if column.startswith("Hrv") else 1e-5


def agree(column, expected, actual):
    try:
        expected, actual = float(expected), float(actual)
    except ValueError:
        return False
    if not (math.isfinite(expected) and math.isfinite(actual)):
        return False
    return abs(actual - expected) <= tolerance(column) * max(1.0, abs(expected))


def read_table(path):
    with open(path, encoding="utf-8") as file:
        return [line.rstrip("\r\n").split(",") for line in file]


def differences(expected, actual):
    """One text for each difference, in the order of the lines."""
    if not expected or not actual or expected[0] != actual[0]:
        yield "header: expected %s, got %s" % (expected[:1], actual[:1])
        return
    header = expected[0]
    for wanted, given in zip(expected[1:], actual[1:]):
        if not len(header) == len(wanted) == len(given):
            yield "second %s: %d columns in the header, %d expected, %d given" % (
                wanted[0], len(header), len(wanted), len(given))
            continue
        for column, x, y in zip(header, wanted, given):
            if not agree(column, x, y):
                yield "second %s, %s: expected %s, got %s" % (wanted[0], column, x, y)
    if len(expected) != len(actual):
        yield "lines: expected %d, got %d" % (len(expected), len(actual))


def main():
    if len(sys.argv) != 3:
        print("usage: compare.py EXPECTED.csv ACTUAL.csv", file=sys.stderr)
        return 2
    try:
        found = list(differences(read_table(sys.argv[1]), read_table(sys.argv[2])))
    except (OSError, UnicodeDecodeError) as error:
        print("compare.py: %s" % error, file=sys.stderr)
        return 2
    for text in found[:FIRST_FEW]:
        print(text)
    if len(found) > FIRST_FEW:
        print("and %d more" % (len(found) - FIRST_FEW))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
