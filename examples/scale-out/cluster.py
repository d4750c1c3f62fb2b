#!/usr/bin/env python3
"""Converts or checks one large file of ISO 2709 in parts, on the workers of a Dask cluster, and
puts the results together in order.

usage: cluster.py convert FILE OUTPUT [OPTION of quillory convert...]
       cluster.py check FILE OUTPUT [OPTION of quillory check...]

SCHEDULER=tcp://HOST:8786 names the scheduler of a cluster, whose machines see FILE and the folder
of OUTPUT under the same names. Without it, two workers are started on this machine. BLOCK=64M makes
larger parts than 32M; each is the work of one thread. What convert did not write is kept in
OUTPUT.rejects. Results of a check become lines of JSON, a page or sums, as the ending of OUTPUT
(.jsonl, .html, .json, .txt) says. The status is the worst of all parts.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

from together import put_together

CAN_BE_PUT_TOGETHER = {"convert": {".mrc", ".mrk", ".jsonl"},
                       "check": {".jsonl", ".html", ".json", ".txt"}}
# Options of a check that a report on several checks has, too.
OF_REPORT = {"--rows", "--fail-on"}
QUILLORY = os.environ.get("QUILLORY", "quillory")
RECORD_END = b"\x1d"


def die(reason):
    print(f"cluster.py: {reason}", file=sys.stderr)
    sys.exit(2)


def block_size(text):
    size = re.fullmatch(r"([1-9]\d*)([kKMG]?)", text)
    if not size:
        die(f"BLOCK: {text} is no size")
    return int(size[1]) * {"": 1, "k": 1000, "K": 1 << 10, "M": 1 << 20, "G": 1 << 30}[size[2]]


def parts_of(file):
    """Where parts of BLOCK bytes or somewhat more begin and end, each after the end of a record."""
    block = block_size(os.environ.get("BLOCK", "32M"))
    begin, size = 0, file.stat().st_size
    with file.open("rb") as data:
        while begin < size:
            end = min(begin + block, size)
            data.seek(end - 1)
            while piece := data.read(1 << 16):
                at = piece.find(RECORD_END)
                if at >= 0:
                    end = data.tell() - len(piece) + at + 1
                    break
                end = data.tell()
            yield begin, end
            begin = end


def run_part(command, file, begin, end, result):
    """On a worker: the command on a part, which it reads from standard input.

    Returns its status and its messages.
    """
    result.with_suffix(".size").write_text(str(end - begin))
    messages = result.with_suffix(".messages")
    with open(file, "rb") as data, messages.open("wb") as told:
        data.seek(begin)
        run = subprocess.Popen([*command, "-o", result], stdin=subprocess.PIPE, stderr=told)
        try:
            while begin < end and (piece := data.read(min(end - begin, 1 << 20))):
                run.stdin.write(piece)
                begin += len(piece)
            run.stdin.close()
        except BrokenPipeError:
            pass  # its status tells
    return run.wait(), messages.read_text(errors="replace")


def run_on_cluster(client, work, file, options, result_of):
    """Runs all parts and marks their messages. Returns the names of results, the worst status."""
    tasks, results = [], []
    for number, (begin, end) in enumerate(parts_of(file), 1):
        result = result_of(number)
        also = (["--rejects", result.with_suffix(".rejects")] if work == "convert"
                else ["--format", "jsonl"])
        command = [QUILLORY, work, "--quiet", "--jobs", "1", *options, *also]
        tasks.append(client.submit(run_part, command, file.absolute(), begin, end, result,
                                   pure=False))
        results.append(result)
    worst = 0
    for number, (status, messages) in enumerate(client.gather(tasks), 1):
        for line in messages.splitlines():
            print(f"part {number}:\t{line}", file=sys.stderr)
        worst = max(worst, status)
    if worst > 1:
        die("a part could not be done")
    return results, worst


def append_all(whole, parts):
    with whole.open("wb") as output:
        for part in parts:
            if part.exists():
                with part.open("rb") as data:
                    shutil.copyfileobj(data, output)


def put_whole(results, output):
    """All records in order, in files that get their names at the end."""
    whole, rejects = (results[0].with_name(name) for name in ("whole", "rejects"))
    append_all(whole, results)
    append_all(rejects, [result.with_suffix(".rejects") for result in results])
    if rejects.stat().st_size:
        rejects.replace(f"{output}.rejects")
    whole.replace(output)


def report_whole(file, results, output, options):
    """One report on all parts. Returns its status."""
    whole = results[0].with_name("whole.jsonl")
    with whole.open("w", encoding="utf-8") as lines:
        put_together(str(file), results, lines)
    known = []
    for option, value in zip(options, [*options[1:], ""]):
        if option in OF_REPORT:
            known += [option, value]
        elif option.partition("=")[0] in OF_REPORT:
            known.append(option)
    # What the parts have said of damage is not said again.
    done = subprocess.run([QUILLORY, "report", *known, whole, "-o", output], capture_output=True,
                          check=False)
    if done.returncode > 1:
        die(done.stderr.decode(errors="replace"))
    return done.returncode


def main(work, file, output, options):
    try:
        from distributed import Client, LocalCluster
    except ImportError:
        die("Dask is missing; as root: apt-get install python3-distributed")
    if output.suffix not in CAN_BE_PUT_TOGETHER[work]:
        die(f"{output}: parts of {output.suffix} can't be put together")
    if file.stat().st_size == 0:
        die(f"{file}: the file is empty")
    suffix = ".jsonl" if work == "check" else output.suffix
    cluster = os.environ.get("SCHEDULER") or LocalCluster(
        n_workers=2, threads_per_worker=1, dashboard_address=None)
    with Client(cluster) as client, \
            tempfile.TemporaryDirectory(dir=output.absolute().parent, prefix="parts.") as folder:
        results, worst = run_on_cluster(
            client, work, file, options,
            lambda number: pathlib.Path(folder, f"{number}{suffix}"))
        if work == "check":
            return report_whole(file, results, output, options)
        put_whole(results, output)
    return worst


if __name__ == "__main__":
    if len(sys.argv) < 4 or sys.argv[1] not in CAN_BE_PUT_TOGETHER:
        die("usage: cluster.py convert|check FILE OUTPUT [OPTION...]")
    try:
        sys.exit(main(sys.argv[1], *map(pathlib.Path, sys.argv[2:4]), sys.argv[4:]))
    except OSError as fault:
        die(fault)
