"""Kills recordings with SIGKILL at random moments and recovers them.

    kill_record.py PROGRAM CONFIG [COUNT]

PROGRAM is `pulselark`, CONFIG its folder of shipped files. COUNT recordings (12, or what PULSELARK_KILLS says)
run at real time, several at once, each in a home of its own. Every recovered session must hold all but the last
second of its time, and the very samples of a recording of the same seed that nobody killed.
"""
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

PROGRAM, CONFIG = sys.argv[1:3]
COUNT = int(sys.argv[3] if len(sys.argv) > 3 else os.environ.get("PULSELARK_KILLS", "12"))
AT_ONCE = 25
LONGEST = 4.0
SOURCE = ["--monitor", "Simulated ECG", "--option", "seed=5", "--option", "channels=2"]


def home_of(folder, number):
    home = os.path.join(folder, f"home{number}")
    os.makedirs(os.path.join(home, "Sessions"))
    shutil.copytree(CONFIG, os.path.join(home, "config"))
    return home


def run(home, *arguments):
    return subprocess.run([PROGRAM, *arguments], env={**os.environ, "PULSELARK_HOME": home}, check=True,
                          capture_output=True, text=True).stdout


def start(home):
    return subprocess.Popen([PROGRAM, "record", *SOURCE, "--seconds", "600", "--out", os.path.join(home, "x.hti")],
                            env={**os.environ, "PULSELARK_HOME": home}, stderr=subprocess.DEVNULL)


def session(name):
    """Length in seconds, samples of A, samples of B."""
    with open(name, encoding="utf-8") as file:
        lines = file.read().splitlines()
    seconds = int(lines[1])
    samples = lines[33 + 2 * seconds:]
    return seconds, samples[:128 * seconds], samples[128 * seconds:]


def journal_in(home):
    return os.listdir(os.path.join(home, "Sessions"))


class Recording:
    def __init__(self, home, seed):
        self.home, self.began, self.killed = home, None, None
        self.lasts = random.Random(seed).uniform(1.1, LONGEST)
        self.process = start(home)

    def look(self):
        now = time.monotonic()
        if self.began is None and journal_in(self.home):
            self.began = now
        if self.began is not None and self.killed is None and now >= self.began + self.lasts:
            self.process.send_signal(signal.SIGKILL)
            self.killed = time.monotonic()
            self.process.wait()
        return self.killed is not None


def check(recording, reference):
    out = os.path.join(recording.home, "recovered.hti")
    run(recording.home, "recover", "--out", out)
    seconds, *channels = session(out)
    elapsed = recording.killed - recording.began
    problems = []
    if seconds < elapsed - 1:
        problems.append(f"{elapsed:.2f} s recorded, {seconds} s recovered")
    for name, samples, expected in zip("AB", channels, reference[1:]):
        whole = 128 * (seconds - 1)  # the very last second may be filled up
        if samples[:whole] != expected[:whole]:
            problems.append(f"channel {name} differs in {elapsed:.2f} s")
    if journal_in(recording.home):
        problems.append("the journal is still there")
    return elapsed - seconds, problems


def main():
    failed, worst = 0, -9.0
    with tempfile.TemporaryDirectory() as folder:
        home = home_of(folder, "reference")
        name = os.path.join(home, "reference.hti")
        run(home, "record", *SOURCE, "--seconds", "10", "--out", name, "--fast")
        reference = session(name)
        for first in range(0, COUNT, AT_ONCE):
            recordings = [Recording(home_of(folder, number), number)
                          for number in range(first, min(COUNT, first + AT_ONCE))]
            while not all([recording.look() for recording in recordings]):
                time.sleep(0.002)
            for recording in recordings:
                missing, problems = check(recording, reference)
                worst = max(worst, missing)
                failed += bool(problems)
                for problem in problems:
                    print(problem)
    print(f"{COUNT} recordings killed, {failed} not recovered as they should be, "
          f"at most {max(worst, 0):.2f} s missing")
    return failed > 0


sys.exit(main())
