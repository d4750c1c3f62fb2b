"""Desks are killed while people type; what was typed two seconds before is there again.

In one run a person types into a file, in the next one two people into one store, each at a desk of
their own, and both desks are killed.

usage: desk_torture.py QUILLORY_DESK PLUGINS SAMPLE [TIMES [SEED]]

PLUGINS is the folder of the plugin `typist`, the person. A run that loses a word prints its seed,
by which it can be had again.
"""
import os
import pathlib
import random
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time

DESK, PLUGINS, SAMPLE = sys.argv[1:4]
TIMES = int(sys.argv[4]) if len(sys.argv) > 4 else 20
SEED = int(sys.argv[5]) if len(sys.argv) > 5 else random.randrange(10**6)
SAFE_AFTER = 2.0  # seconds
LONGEST = 6.0     # of typing
PATIENCE = 120    # seconds, for a desk that has to start on a busy machine
WORDS_EACH = 10000


def environment_in(folder):
    environment = dict(os.environ, QUILLORY_HOME=str(folder / "home"))
    environment.pop("QUILLORY_SYNC", None)
    return environment


class Person:
    """Works at a desk; the words of two people differ."""

    def __init__(self, mode, records, folder, number=0):
        self.notes = folder / f"notes-{number}"
        environment = dict(environment_in(folder), QT_QPA_PLATFORM="offscreen",
                           QT_PLUGIN_PATH=PLUGINS, QT_QPA_GENERIC_PLUGINS="typist", TYPIST=mode,
                           TYPIST_NOTES=str(self.notes), TYPIST_AFTER=str(number * WORDS_EACH))
        self.desk = subprocess.Popen([DESK, str(records)], env=environment,
                                     stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def typed(self):
        lines = self.notes.read_text().split("\n")[:-1] if self.notes.exists() else []
        return [(float(time_text) / 1000, word)
                for time_text, word in (line.split() for line in lines)]

    def wait_for_a_word(self):
        end = time.monotonic() + PATIENCE
        while not self.typed() and self.desk.poll() is None and time.monotonic() < end:
            time.sleep(0.02)

    def kill(self):
        """The words that have to be there again, and how many there were."""
        if self.desk.poll() is not None:
            sys.exit(f"the desk ended by itself, with {self.desk.returncode}")
        self.desk.send_signal(signal.SIGKILL)
        killed = time.monotonic()
        self.desk.wait()
        typed = self.typed()
        if not typed:
            sys.exit("nothing could be typed")
        return [word for moment, word in typed if moment <= killed - SAFE_AFTER], len(typed)


def type_and_kill(records, folder, pause, people):
    there = [Person("type", records, folder, number) for number in range(people)]
    for person in there:
        person.wait_for_a_word()
    time.sleep(pause)
    killed = [person.kill() for person in there]
    return [word for wanted, _ in killed for word in wanted], sum(count for _, count in killed)


def make_file(folder):
    records = folder / ("records" + pathlib.Path(SAMPLE).suffix)
    shutil.copyfile(SAMPLE, records)
    return records


def make_store(folder):
    quillory = pathlib.Path(DESK).parent / "quillory"
    subprocess.run([quillory, "records", "add", SAMPLE], env=environment_in(folder), check=False,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return folder / "home" / "quillory.db"


def texts_of(records, folder):
    """All that is saved, and what could not be where it was typed."""
    kept = [path.read_bytes() for path in (folder / "home" / "journals").glob("kept-*")]
    if records.suffix != ".db":
        return b"".join([records.read_bytes()] + kept)
    with sqlite3.connect(records) as store:
        rows = store.execute("SELECT bytes FROM records ORDER BY id").fetchall()
    return b"".join([bytes(row[0]) for row in rows] + kept)


def run_once(number, pause):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        people = 1 if number % 2 else 2
        records = make_file(folder) if people == 1 else make_store(folder)
        before = texts_of(records, folder)
        wanted, typed = type_and_kill(records, folder, pause, people)
        if people == 1 and texts_of(records, folder) != before:
            return [f"{number}: the file itself has changed"], 0
        desk = Person("save", records, folder).desk
        try:
            desk.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            desk.kill()
            return [f"{number}: what was typed can't be taken up"], 0
        there = set(re.findall(r"w\d{5}x", texts_of(records, folder).decode(errors="replace")))
        lost = [word for word in wanted if word not in there]
        print(f"{number}: {people} at work, {typed} words typed, {len(wanted)} of them for "
              f"{SAFE_AFTER:.0f} s, {len(there)} there again", flush=True)
        return [f"{number}: lost {' '.join(lost)}"] if lost else [], len(wanted)


def main():
    chance = random.Random(SEED)
    faults, words = [], 0
    for number in range(1, TIMES + 1):
        found, wanted = run_once(number, chance.uniform(0, LONGEST))
        faults += found
        words += wanted
    print(f"{TIMES} kills, {words} words that were safe, seed {SEED}")
    if faults or not words:
        sys.exit("\n".join(faults) or "no word was safe: nothing was shown")


main()
