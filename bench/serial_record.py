"""Records a board on a pseudo-terminal at real time, and measures how well the recording keeps the time.

    serial_record.py PROGRAM CONFIG [SECONDS]

PROGRAM is `pulselark`, CONFIG its folder of shipped files; SECONDS is 600 by default.
Two boards are recorded at once, one with Cyton packets and one with lines of numbers. Their crystals are off, what
they send arrives in bursts torn anywhere, bytes get lost, and in recordings of a minute and more they are silent
for four seconds and, the Cyton board, unplugged for as long. Their beats come at irregular times, so that every
one is known again: the time of a beat in the recording less its true time should stay the same, within one sample a
minute; the exit code says whether it does.
"""
import math
import os
import pty
import random
import select
import shutil
import statistics
import subprocess
import sys
import tempfile
import threading
import time
import tty

PROGRAM, CONFIG = sys.argv[1:3]
SECONDS = int(sys.argv[3] if len(sys.argv) > 3 else 600)
RATE = 128
WIDTH = 0.015  # of a beat, in seconds
AWAY = 4.0


class Heart:
    """Beats at irregular, known times, in seconds from the start."""

    def __init__(self, seed):
        draw = random.Random(seed)
        self.beats = [0.5]
        while self.beats[-1] < SECONDS + 60:
            self.beats.append(self.beats[-1] + draw.uniform(0.6, 1.2))
        self.next = 0

    def at(self, second):
        while second - self.beats[self.next] > 0.3:
            self.next += 1
        return math.exp(-((second - self.beats[self.next]) / WIDTH) ** 2 / 2)


class Board(threading.Thread):
    def __init__(self, link, seed, true_rate):
        super().__init__(daemon=True)
        self.link, self.draw, self.true_rate = link, random.Random(seed), true_rate
        self.heart, self.sent, self.lost, self.ended = Heart(seed), 0, 0, False
        self.away = []  # (from, to, unplugged) in seconds
        self.plug()

    def plug(self):
        self.master, self.slave = pty.openpty()
        tty.setraw(self.slave)
        os.set_blocking(self.master, False)
        if os.path.islink(self.link):
            os.unlink(self.link)
        os.symlink(os.ttyname(self.slave), self.link)

    def unplug(self):
        os.close(self.slave)
        os.close(self.master)
        self.master = None

    def write(self, data):
        if self.draw.random() < 0.004 and len(data) > 8:  # some bytes get lost, each five seconds
            where, count = self.draw.randrange(len(data) - 5), self.draw.randrange(1, 5)
            data = data[:where] + data[where + count:]
            self.lost += count
        while data:
            piece = self.draw.randrange(1, 64)
            try:
                os.write(self.master, data[:piece])
            except OSError:  # nobody reads
                return
            data = data[piece:]

    def listen(self):
        if self.master is not None and select.select([self.master], [], [], 0)[0]:
            self.heard(os.read(self.master, 100))

    def heard(self, data):
        pass

    def run(self):
        self.start_time = time.monotonic()
        number, waiting = 0, b""
        while not self.ended:
            time.sleep(self.draw.uniform(0.004, 0.03))
            now = time.monotonic() - self.start_time
            away = next((each for each in self.away if each[0] <= now < each[1]), None)
            if away is not None and away[2] and self.master is not None:
                self.unplug()
            if away is None and self.master is None:
                self.plug()
            self.listen()
            while number / self.true_rate <= now:
                waiting += self.packet(number, self.heart.at(number / self.true_rate))
                number += 1
            whole = len(waiting) - self.draw.randrange(0, 20) if away is None else len(waiting)
            if away is None and self.talks() and whole > 0:
                self.write(waiting[:whole])
            waiting = waiting[max(whole, 0):]

    def talks(self):
        return True

    def is_away(self, second):
        return any(begin - 1 < second < end + 7 for begin, end, _ in self.away)


class Cyton(Board):
    options = ["--option", "protocol=cyton"]
    started = False

    def heard(self, data):
        if b"b" in data:
            self.started = True

    def talks(self):
        return self.started

    def packet(self, number, value):
        counts = int(value / (4500 / 24 / (2**23 - 1))) & 0xFFFFFF
        return bytes([0xA0, number & 0xFF]) + counts.to_bytes(3, "big") + bytes(27) + bytes([0xC0])


class Lines(Board):
    options = ["--option", "protocol=lines", "--option", "rate=200"]

    def packet(self, number, value):
        return b"%d\r\n" % round(500 * value)


def peaks(samples):
    """Times of the beats in seconds, each at the top of the parabola through its three highest samples."""
    floor = statistics.median(max(samples[i:i + 2 * RATE]) for i in range(0, len(samples), 2 * RATE)) * 0.6
    for i in range(1, len(samples) - 1):
        before, top, after = samples[i - 1:i + 2]
        if top > floor and before < top >= after:
            yield (i + (before - after) / (2 * (before - 2 * top + after))) / RATE


def offsets(board, name):
    """(true time, recorded less true time) of the beats."""
    with open(name, encoding="utf-8") as file:
        lines = file.read().splitlines()
    seconds = int(lines[1])
    assert seconds == SECONDS, f"{name}: {seconds} seconds"
    found = list(peaks([float(line) for line in lines[33 + 2 * seconds:33 + (2 + RATE) * seconds]]))
    begin = board.record_time - board.start_time
    # What stands between the two times at the start is found by trying: the one at which most beats agree.
    tried = [(sum(any(abs(beat - time - shift) < 0.02 for beat in board.heart.beats[:200]) for time in found[:15]), shift)
             for shift in (begin + k * 0.01 for k in range(-50, 400))]
    shift = max(tried)[1]
    for time in found:
        beat = min(board.heart.beats, key=lambda each: abs(each - time - shift))
        if abs(beat - time - shift) < 0.15 and not board.is_away(beat):
            yield beat, time - beat


def check(board, name):
    agreed = list(offsets(board, name))
    parts = {}
    length = 60 if SECONDS >= 120 else SECONDS / 2
    for beat, offset in agreed:
        parts.setdefault(int((beat - agreed[0][0]) // length), []).append(offset * RATE)
    assert len(agreed) > SECONDS * 0.8 - len(board.away) * 14, f"{type(board).__name__}: only {len(agreed)} beats"
    medians = [statistics.median(part) for _, part in sorted(parts.items()) if len(part) >= 4]
    steps = [abs(after - before) for before, after in zip(medians, medians[1:])]
    whole = max(medians) - min(medians)
    print(f"{type(board).__name__}: {len(agreed)} beats, {board.lost} bytes lost, "
          f"medians of each part in samples: {' '.join(f'{each - medians[0]:+.2f}' for each in medians)}; "
          f"largest step {max(steps):.2f}, range {whole:.2f}")
    return max(steps) <= 1


def main():
    with tempfile.TemporaryDirectory() as folder:
        boards, processes = [Cyton(os.path.join(folder, "cyton"), 1, 250.06),
                             Lines(os.path.join(folder, "lines"), 2, 199.93)], []
        for board in boards:
            if SECONDS >= 60:
                board.away.append((SECONDS * 0.3, SECONDS * 0.3 + AWAY, False))
                if isinstance(board, Cyton):
                    board.away.append((SECONDS * 0.6, SECONDS * 0.6 + AWAY, True))
            home = board.link + "-home"
            os.makedirs(os.path.join(home, "Sessions"))
            shutil.copytree(CONFIG, os.path.join(home, "config"))
            board.start()
            board.record_time = time.monotonic()
            processes.append(subprocess.Popen(
                [PROGRAM, "record", "--monitor", "Serial ECG", "--option", "port=" + board.link, *board.options,
                 "--seconds", str(SECONDS), "--out", board.link + ".hti"],
                env={**os.environ, "PULSELARK_HOME": home}))
        for board, process in zip(boards, processes):
            assert process.wait() == 0
            board.ended = True
        assert all([check(board, board.link + ".hti") for board in boards]), "the time base strays"


main()
