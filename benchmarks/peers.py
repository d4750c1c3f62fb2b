"""Compare quillory with yaz-marcdump and MARC::Lint, side by side on one machine.

The sound records of the files (those of data/samples if none is given) are brought to MARC-8 and
repeated to 200 MB. The programs run in turn, several times, and the best run counts; MARC::Lint,
which is slow, has 20 MB to check and runs twice at most.

A ratio says how many times faster quillory is a record, and the number in brackets how many times
it is to be: "wall" by the clock, with all cores, "CPU" by the time of the processor (user and
system), with --jobs 1. That of repair says how many times longer it takes than convert. Rates and
the peak of memory are those with all cores.

Environment: QUILLORY the program, ROUNDS (5) runs of each, MEGABYTES (200) of records.
"""

import argparse
import mmap
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
from collections import namedtuple
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
QUILLORY = os.path.abspath(os.environ.get("QUILLORY", ROOT / "build/release/bin/quillory"))
PROGRAMS = {"quillory": [QUILLORY], "yaz-marcdump": ["yaz-marcdump"],
            "MARC::Lint": ["perl", str(ROOT / "benchmarks/lint.pl")]}

# Runs a command and writes its peak of memory, in KiB, to a file. The system counts the memory of a
# program that starts another as the other's own, so this one is small.
WITH_PEAK = """import os, sys
child = os.fork() or os.execvp(sys.argv[1], sys.argv[1:])
_, status, usage = os.wait4(child, 0)
open("peak", "w").write(str(usage.ru_maxrss))
sys.exit(os.waitstatus_to_exitcode(status))"""

# What ends a record of a file, and what says at the end of a check how many there were.
MARC, XML, CHECKED = b"\x1d", b"</record>", rb"(?m)^(\d+) records? checked"

# A command begins with the name of a program and ends with that of a file. The aims are for wall
# and CPU; "counted" is what tells how many records came through, None if nothing comes out. Where
# "is_longer" is set, the ratio is how many times longer quillory takes than its peer.
Job = namedtuple("Job", "name ours theirs aims counted most_rounds is_longer",
                 defaults=(MARC, sys.maxsize, False))
JOBS = [
    Job("marc to marc", "quillory convert --quiet --to marc marc8.mrc",
        "yaz-marcdump -o marc marc8.mrc", (15, 12)),
    Job("MARC-8 to UTF-8",
        "quillory convert --quiet --to marc --from-charset marc8 --to-charset utf8 marc8.mrc",
        "yaz-marcdump -f MARC-8 -t UTF-8 -o marc -l 9=97 marc8.mrc", (20, 18)),
    Job("UTF-8 to MARC-8",
        "quillory convert --quiet --to marc --from-charset utf8 --to-charset marc8 utf8.mrc",
        "yaz-marcdump -f UTF-8 -t MARC-8 -o marc -l 9=32 utf8.mrc", (25, 20)),
    # quillory reads and tests every record, and picks none.
    Job("read and test", "quillory pick --quiet --invert marc8.mrc",
        "yaz-marcdump -n marc8.mrc", (4, 4), None),
    Job("MARC-8 to MARCXML",
        "quillory convert --quiet --to marcxml --from-charset marc8 part-marc8.mrc",
        "yaz-marcdump -f MARC-8 -t UTF-8 -o marcxml part-marc8.mrc", (10, 10), XML),
    Job("UTF-8 to MARCXML",
        "quillory convert --quiet --to marcxml --from-charset utf8 part-utf8.mrc",
        "yaz-marcdump -f UTF-8 -t UTF-8 -o marcxml part-utf8.mrc", (10, 10), XML),
    Job("MARCXML to marc", "quillory convert --quiet --to marc part.xml",
        "yaz-marcdump -i marcxml -o marc part.xml", (10, 10)),
    # No other tool repairs coded fields, so this is compared with carrying the records unchanged.
    Job("repair", "quillory repair --quiet --to marc marc8.mrc",
        "quillory convert --quiet --to marc marc8.mrc", (1.4, 1.4), is_longer=True),
    Job("check", "quillory check --policy custom marc8.mrc",
        "MARC::Lint lint.mrc", (200, 200), CHECKED, 2),
    Job("check of 6 MB", "quillory check --policy custom small.mrc",
        "MARC::Lint small.mrc", (200, 200), CHECKED, 2),
]


def die(text):
    print(f"peers: {text}", file=sys.stderr)
    sys.exit(2)


def number_in(variable, default):
    text = os.environ.get(variable, default)
    if not re.fullmatch("[1-9][0-9]*", text):
        die(f"{variable} is '{text}', which is no number above 0")
    return int(text)


def missing_programs():
    tests = {"yaz-marcdump": "command -v yaz-marcdump", "MARC::Lint": "perl -MMARC::Lint -e 1"}
    missing = [program for program, test in tests.items()
               if subprocess.run(test, shell=True, capture_output=True).returncode]
    for program in missing:
        print(f"{program} is not installed: no figures of it")
    return missing


def run(command, output=os.devnull, launcher=()):
    """Seconds by the clock and of the processor."""
    program, *arguments = command.split()
    with open(output, "wb") as file:
        began = time.perf_counter()
        process = subprocess.Popen([*launcher, *PROGRAMS[program], *arguments], stdout=file,
                                   stderr=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        wall = time.perf_counter() - began
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode not in (0, 1):  # 1 is for findings
        die(f"'{command}' ended with {process.returncode}")
    return wall, usage.ru_utime + usage.ru_stime


def run_both_ways(command):
    """Seconds by the clock with all cores, and of the processor with one job."""
    wall, cpu = run(command)
    if command.startswith("quillory "):
        _, cpu = run(f"{command} --jobs 1")
    return wall, cpu


def peak_of(command, output=os.devnull):
    """The peak of memory; what the command prints goes to the output."""
    run(command, output, [sys.executable, "-ISc", WITH_PEAK])
    return f"{int(Path('peak').read_text()) / 1024:.1f} MiB"


def best(commands, rounds, measure):
    """The least of each figure, for each of the commands, which run in turn."""
    runs = [[measure(command) for command in commands] for _ in range(rounds)]
    return [[min(figures) for figures in zip(*side)] for side in zip(*runs)]


def count(name, counted):
    """How many records a file has, or the output of a check speaks of."""
    if not os.path.getsize(name):
        return 0
    with open(name, "rb") as file, mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ) as data:
        found = re.findall(counted, data)
    return int(found[0]) if found and counted == CHECKED else len(found)


def rounded(number):
    return f"{number:.1f}" if number >= 10 else f"{number:.2f}"


def ratios(job, ours, theirs):
    """What stands in the columns of wall and CPU, from seconds a record."""
    upper, lower, bound = (ours, theirs, "at most ") if job.is_longer else (theirs, ours, "")
    return [f"{rounded(a / b)} ({bound}{aim})" for a, b, aim in zip(upper, lower, job.aims)]


def print_line(name, program, rate, *others):
    cells = [*others, "", "", "", ""][:4]
    print("{:18} {:14} {:>9} {:>8}  {:18} {:18} {}".format(name, program, rate, *cells).rstrip(),
          flush=True)


def print_job(job, missing, rounds):
    commands = [c for c in (job.ours, job.theirs) if c.split()[0] not in missing]
    # A peer that is quillory itself is named by what it does.
    names = ["quillory", job.theirs.removeprefix("quillory ").split()[0]]
    files = [command.split()[-1] for command in commands]
    records = [count(file, XML if file.endswith(".xml") else MARC) for file in files]
    peaks, remarks = [], []
    for name, command, expected in zip(names, commands, records):
        peaks.append(peak_of(command, "output"))
        carried = count("output", job.counted) if job.counted else expected
        if carried != expected:
            remarks.append(f"    {name} did {carried} of {expected} records")
    sides = best(commands, min(rounds, job.most_rounds), run_both_ways)
    paces = [[seconds / number for seconds in side] for side, number in zip(sides, records)]
    title, compared = job.name, ratios(job, *paces) if len(paces) == 2 else ["-", "-"]
    for name, file, (pace, _), (wall, _), peak in zip(names, files, paces, sides, peaks):
        print_line(title, name, f"{1 / pace:.0f}", f"{os.path.getsize(file) / 1e6 / wall:.1f}",
                   *compared, peak)
        title, compared = "", ["", ""]
    for remark in remarks:
        print(remark)


def print_starts(missing, rounds):
    """A record takes little time, so there are more runs. One in ASCII needs no conversion."""
    programs = ["quillory show", "yaz-marcdump", "quillory check"]
    programs = [program for program in programs if program not in missing]
    print()
    print_line("one record", "program", "ms", "", "wall (aim)")
    for file in filter(os.path.exists, ("ASCII.mrc", "MARC-8.mrc")):
        times = best([f"{program} {file}" for program in programs], 10 * rounds, run)
        walls = {program: wall for program, (wall, _) in zip(programs, times)}
        cells = {"quillory check": "(under 15 ms)"}
        if "yaz-marcdump" in walls:
            ratio = walls["quillory show"] / walls["yaz-marcdump"]
            cells["quillory show"] = f"{rounded(ratio)} (at most 1.2)"
        for program, wall in walls.items():
            title = file.removesuffix(".mrc") if program == programs[0] else ""
            print_line(title, program, rounded(1000 * wall), "", cells.get(program, ""))


def repeat(megabytes, name):
    """The sample over and over, until there is enough."""
    sample = Path("sample.mrc").read_bytes()
    with open(name, "wb") as file:
        for _ in range(0, int(megabytes * 1e6), len(sample)):
            file.write(sample)


def write_files(files, megabytes):
    """All files of the commands, made from the sound records of those that are given."""
    done = subprocess.run([QUILLORY, "convert", "--quiet", "--to", "marc", "--to-charset", "marc8",
                           "-o", "sample.mrc", *files], stderr=subprocess.DEVNULL)
    if done.returncode not in (0, 1) or not count("sample.mrc", MARC):
        die(f"no records in {' '.join(files)}")
    records = Path("sample.mrc").read_bytes().split(MARC)[:-1]
    firsts = {"MARC-8.mrc" if re.search(rb"[\x1b\x80-\xff]", record) else "ASCII.mrc": record
              for record in reversed(records)}
    for name, record in firsts.items():
        Path(name).write_bytes(record + MARC)
    repeat(megabytes, "marc8.mrc")
    repeat(megabytes / 5, "part-marc8.mrc")  # for XML, which takes three times the room
    repeat(min(megabytes, 20), "lint.mrc")
    repeat(min(megabytes, 6), "small.mrc")
    for part in ("", "part-"):
        run(f"quillory convert --to marc --to-charset utf8 -o {part}utf8.mrc {part}marc8.mrc")
    run("quillory convert --to marcxml -o part.xml part-marc8.mrc")
    os.sync()  # so that nothing is written to the disk meanwhile


def compare(files, has_memory):
    """In the current folder, which is empty."""
    os.environ["QUILLORY_HOME"] = os.path.abspath("home")  # no settings of the user's
    rounds, megabytes = number_in("ROUNDS", "5"), number_in("MEGABYTES", "200")
    missing = missing_programs()
    write_files(files, megabytes)
    print_line("job", "program", "records/s", "MB/s", "wall (aim)", "CPU (aim)", "memory")
    for job in JOBS:
        print_job(job, missing, rounds)
    print_starts(missing, rounds)
    if has_memory:
        repeat(2000, "large.mrc")
        print("\nmarc to marc       peak memory (under 32 MiB)")
        for name in ("marc8.mrc", "large.mrc"):
            peak = peak_of(f"quillory convert --quiet --to marc {name}")
            print(f"{os.path.getsize(name) / 1e6:.0f} MB".ljust(18), peak)


def leave(number, _):
    """At a signal, which may come twice; the folder of files goes, too."""
    signal.signal(number, signal.SIG_IGN)
    sys.exit(128 + number)


def main():
    options = argparse.ArgumentParser(description=__doc__,
                                      formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("--memory", action="store_true",
                         help="also measure the memory for a file of 2 GB")
    options.add_argument("files", nargs="*", metavar="FILE")
    chosen = options.parse_args()
    samples = sorted((ROOT / "data/samples").glob("*.mr[ck]"))
    files = [os.path.abspath(file) for file in chosen.files or samples]
    if not files:
        die("no files of records: give some as arguments")
    if not os.access(QUILLORY, os.X_OK):
        die(f"{QUILLORY}: there is no such program; build it first")
    for number in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, leave)
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        compare(files, chosen.memory)


if __name__ == "__main__":
    main()
