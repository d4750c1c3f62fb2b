"""The desk is killed while a person types; what was typed two seconds before is there again.

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


def begin(mode, records, folder):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", QT_PLUGIN_PATH=PLUGINS,
                       QT_QPA_GENERIC_PLUGINS="typist", TYPIST=mode,
                       TYPIST_NOTES=str(folder / "notes"), QUILLORY_HOME=str(folder / "home"))
    environment.pop("QUILLORY_SYNC", None)
    return subprocess.Popen([DESK, str(records)], env=environment, stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL)


def notes_in(folder):
    path = folder / "notes"
    lines = path.read_text().split("\n")[:-1] if path.exists() else []
    return [(float(time_text) / 1000, word)
            for time_text, word in (line.split() for line in lines)]


def type_and_kill(records, folder, pause):
    """The words that have to be there again."""
    desk = begin("type", records, folder)
    end = time.monotonic() + PATIENCE
    while not notes_in(folder) and desk.poll() is None and time.monotonic() < end:
        time.sleep(0.02)
    time.sleep(pause)
    if desk.poll() is not None:
        sys.exit(f"the desk ended by itself, with {desk.returncode}")
    desk.send_signal(signal.SIGKILL)
    killed = time.monotonic()
    desk.wait()
    typed = notes_in(folder)
    if not typed:
        sys.exit("nothing could be typed")
    return [word for moment, word in typed if moment <= killed - SAFE_AFTER], len(typed)


def run_once(number, pause):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        records = folder / ("records" + pathlib.Path(SAMPLE).suffix)
        shutil.copyfile(SAMPLE, records)
        before = records.read_bytes()
        wanted, typed = type_and_kill(records, folder, pause)
        if records.read_bytes() != before:
            return [f"{number}: the file itself has changed"], 0
        desk = begin("save", records, folder)
        try:
            desk.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            desk.kill()
            return [f"{number}: what was typed can't be taken up"], 0
        there = set(re.findall(r"w\d{5}x", records.read_text(errors="replace")))
        lost = [word for word in wanted if word not in there]
        print(f"{number}: {typed} words typed, {len(wanted)} of them for {SAFE_AFTER:.0f} s, "
              f"{len(there)} there again", flush=True)
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
