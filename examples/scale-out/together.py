"""Puts the findings of parts together: together.py FILE < NAMES OF THE PARTS' FINDINGS

FILE is the name of the whole. Beside PART.jsonl stands PART.size, the bytes of the part.
"""
import json
import pathlib
import sys

records = offset = 0
for name in sys.stdin.read().splitlines():
    part = pathlib.Path(name)
    last = 0
    with part.open(encoding="utf-8") as lines:
        for line in lines:
            row = json.loads(line)
            last = row["record"]
            row["file"] = sys.argv[1]
            row["record"] += records
            for key in row.keys() & {"offset", "fault_offset"}:
                row[key] += offset
            print(json.dumps(row, ensure_ascii=False, separators=(",", ":")))
    records += last
    offset += int(part.with_suffix(".size").read_text())
