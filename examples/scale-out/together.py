"""Puts the findings of parts together: together.py FILE < NAMES OF THE PARTS' FINDINGS

FILE is the name of the whole. Beside PART.jsonl stands PART.size, the bytes of the part.
"""
import json
import pathlib
import re
import sys

# A line says first where its record is.
WHERE = re.compile(r'\{"file":"(?:[^"\\]|\\.)*","record":(\d+),"offset":(\d+),')


def line_in_whole(line, file, records, offset):
    """A line with the number and offsets in the whole, and the number that the record had."""
    where = WHERE.match(line)
    if not where or '"fault_offset":' in line:
        row = json.loads(line)
        number = row["record"]
        row["file"] = file
        row["record"] += records
        for key in row.keys() & {"offset", "fault_offset"}:
            row[key] += offset
        return json.dumps(row, ensure_ascii=False, separators=(",", ":")) + "\n", number
    number = int(where[1])
    head = f'"record":{number + records},"offset":{int(where[2]) + offset},'
    return f'{{"file":{json.dumps(file, ensure_ascii=False)},{head}{line[where.end():]}', number


def put_together(file, parts, output):
    """Writes all lines, with the numbers and offsets that records have in the whole file."""
    records = offset = 0
    for part in map(pathlib.Path, parts):
        last = 0
        with part.open(encoding="utf-8", newline="\n") as lines:
            for line in lines:
                line, last = line_in_whole(line, file, records, offset)
                output.write(line)
        records += last
        offset += int(part.with_suffix(".size").read_text())


if __name__ == "__main__":
    sys.stdout.reconfigure(encoding="utf-8", newline="\n")
    put_together(sys.argv[1], sys.stdin.read().splitlines(), sys.stdout)
