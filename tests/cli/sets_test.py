#!/usr/bin/env python3
"""quillory extract, split, sort, dedupe, compare and merge, as a person calls them.

usage: sets_test.py QUILLORY SAMPLES_FOLDER EXAMPLES_FOLDER
"""
import csv
import json
import pathlib
import random
import re
import shlex
import subprocess
import sys
import unittest

from support import FIELD_END, QUILLORY, RECORD_END, SAMPLES, Cli, fields_of, records_of, run

PROGRAM = pathlib.Path(QUILLORY).resolve()
ROOT = pathlib.Path(sys.argv[3]).parent  # the folder of the examples stands at the top of the tree

FORMS = ["mrc", "mrk", "lif", "xml", "jsonl"]


def record_of(*fields):
    directory, data = b"", b""
    for tag, content in fields:
        directory += b"%s%04d%05d" % (tag, len(content) + 1, len(data))
        data += content + FIELD_END
    base = 24 + len(directory) + 1
    body = b"nam a22%05d i 4500" % base + directory + FIELD_END + data + RECORD_END
    return b"%05d" % (len(body) + 5) + body


def titled(number, title):
    return record_of((b"001", b"%d" % number), (b"245", b"10\x1fa" + title))


def ids(data):
    return [dict(fields_of(record)[1])[b"001"] for record in records_of(data)]


class Sets(Cli):
    def well(self, *arguments):
        status, out, err = run(*arguments)
        self.assertEqual(status, 0, err)
        return out

    def samples(self, form):
        target = self.path("samples." + form)
        run("convert", SAMPLES, "-o", target, "--to-charset", "utf8")  # old MicroLIF has no "_"
        return target

    def test_every_form_goes_every_way(self):
        for form in FORMS:
            with self.subTest(form):
                samples = self.samples(form)
                parts = self.folder / f"{form}-{{}}.{form}"
                self.well("split", "--every", "7", samples, "-o", parts)
                together = sorted(self.folder.glob(f"{form}-*"))
                self.assertEqual(len(together), 4)
                self.well("compare", "-q", "--by", "title", samples,
                          self.convert_all(together, f"all.{form}"))
                shuffled = self.path(f"sorted.{form}")
                self.well("sort", "--by", "245a", samples, "-o", shuffled)
                self.well("compare", samples, shuffled, "--by", "title")
                self.well("dedupe", "--by", "title", samples, shuffled, "-o",
                          self.path(f"once.{form}"))
                self.well("compare", samples, self.path(f"once.{form}"), "--by", "title")
                rows = self.well("extract", "--fields", "001,245a", samples).decode().splitlines()
                self.assertEqual(len(rows), 25)
                merged = self.path(f"merged.{form}")
                self.well("merge", samples, shuffled, "--fields", "6XX", "-o", merged)
                self.well("compare", samples, merged)

    def convert_all(self, sources, name):
        target = self.path(name)
        self.well("convert", *sources, "-o", target)
        return target

    def test_unchanged_records_keep_their_bytes(self):
        odd = titled(1, b"B").replace(b"i 4500", b"i\x004500")  # a leader that nobody else makes
        records = [odd, titled(3, b"A"), titled(2, b"C")]
        source = self.path("in.mrc", b"".join(records))
        self.assertEqual(self.well("sort", "--by", "001", source), odd + records[2] + records[1])
        self.assertEqual(self.well("dedupe", "--by", "001", source), b"".join(records))
        others = self.path("b.mrc", record_of((b"001", b"3"), (b"500", b"  \x1faNote")))
        merged = records_of(self.well("merge", source, others, "--fields", "5XX"))
        self.assertEqual([merged[0], merged[2]], [records[0], records[2]])
        self.assertEqual(fields_of(merged[1])[1][-1], (b"500", b"  \x1faNote"))

    def test_where_asks_the_records_that_fields_are_put_into(self):
        source = self.path("in.mrc", titled(1, b"A") + titled(2, b"B"))
        others = self.path("b.mrc", record_of((b"001", b"2"), (b"500", b"  \x1faNote")))
        out = self.well("merge", "--where", "245a = B", source, others, "--fields", "500")
        self.assertEqual([tag for tag, _ in fields_of(out)[1]], [b"001", b"245", b"500"])

    def test_sorting_in_little_memory(self):
        random.seed(4)
        numbers = list(range(3000))
        random.shuffle(numbers)
        source = self.path("in.mrc", b"".join(titled(n, b"x" * (n % 90)) for n in numbers))
        for memory in ("20K", "1G"):
            out = self.well("sort", "--by", "001", "--numeric", "--memory", memory, source)
            self.assertEqual([int(i) for i in ids(out)], sorted(numbers))
            out = self.well("sort", "--by", "001", "--numeric", "--reverse", "--memory", memory,
                            source)
            self.assertEqual([int(i) for i in ids(out)], sorted(numbers, reverse=True))

    def test_tables_are_read_by_others(self):
        titles = ['Plain', 'With "quotes"', '"All"', 'tab\there', 'comma, and more']
        source = self.path("in.mrc", b"".join(titled(i, t.encode()) for i, t in enumerate(titles)))
        for name, dialect in (("t.csv", "excel"), ("t.tsv", "excel-tab")):
            self.well("extract", "--fields", "001,245a", source, "-o", self.path(name))
            with open(self.path(name), newline="", encoding="utf-8") as file:
                rows = list(csv.reader(file, dialect))
            self.assertEqual(rows, [["001", "245a"], *([str(i), t] for i, t in enumerate(titles))])
        self.well("extract", "--fields", "245a", source, "-o", self.path("t.jsonl"))
        rows = [json.loads(line) for line in self.path("t.jsonl").read_text("utf-8").splitlines()]
        self.assertEqual(rows, [{"245a": [title]} for title in titles])

    def test_many_files_take_little_memory(self):
        def within_limit(*arguments):
            return subprocess.run(["bash", "-c", 'ulimit -v 200000; exec "$@"', "-", QUILLORY,
                                   *arguments], check=False, capture_output=True, timeout=120)

        if within_limit("--version").returncode != 0:
            self.skipTest("the program alone takes more, as under a sanitizer")
        source = self.path("in.mrc", b"".join(titled(n, b"A") for n in range(1500)))
        done = within_limit("split", source, "--every", "1", "-o", self.path("part-{}.mrc"))
        self.assertEqual((done.returncode, len(list(self.folder.glob("part-*")))), (0, 1500),
                         done.stderr)

    def test_bytes_of_values_that_are_no_character_are_named(self):
        records = [titled(n, b"A \xff" if n % 100 == 7 else b"B") for n in range(3000)]
        source = self.path("in.mrc", b"".join(records))
        said = ("bytes that are not a character are written as U+FFFD; if the file is in another "
                "character set, name it with --from-charset")
        for fields, jobs in (("001,245a", "1"), ("245a,001", "2"), ("001", "2")):
            status, out, err = run("extract", "--fields", fields, "--from-charset", "utf8",
                                   "--jobs", jobs, source)
            isNamed = "245a" in fields
            self.assertEqual((status, out.count("\N{REPLACEMENT CHARACTER}".encode())),
                             (1, 30) if isNamed else (0, 0))
            self.assertEqual(f"(001 7): {said}\n" in err, isNamed)
            self.assertEqual(f"25 more: {said}\n" in err, isNamed)

    def test_a_full_disk_is_said_and_leaves_nothing(self):
        source = self.path("in.mrc", titled(1, b"A") + titled(2, b"B"))
        for command in (["sort", "--by", "001"], ["dedupe", "--by", "001"],
                        ["merge", source, "--fields", "500"], ["extract", "--fields", "001"],
                        ["compare", self.path("b.mrc", titled(3, b"C"))]):
            with self.subTest(command[0]):
                status, _, err = run(*command, source, "-o", "/dev/full")
                self.assertEqual(status, 2, err)
                self.assertIn("No space left on device", err)
        self.assertEqual(sorted(path.name for path in self.folder.glob("*.mrc*")),
                         ["b.mrc", "in.mrc"])

    def test_a_split_that_fails_leaves_no_files(self):
        source = self.path("in.mrc", titled(1, b"A") + titled(2, b"B"))
        self.path("p-0002.mrc", b"mine")
        status, _, err = run("split", "--every", "1", source, "-o", self.path("p-{}.mrc"))
        self.assertEqual(status, 2)
        self.assertIn("p-0002.mrc: is there already; --force replaces it", err)
        self.assertEqual(len(list(self.folder.glob("p-*"))), 1)

    def test_compare_has_the_status_of_diff(self):
        one, other = self.path("a.mrc", titled(1, b"A")), self.path("b.mrc", titled(1, b"B"))
        self.assertEqual(run("compare", one, one)[0], 0)
        status, out, _ = run("compare", one, other)
        self.assertEqual(status, 1)
        self.assertIn(b"\n- 245 10  $a A\n+ 245 10  $a B\n", out)
        self.assertEqual(run("compare", one, self.path("none.mrc"))[0], 2)
        self.assertEqual(run("compare", one)[0], 2)

    def test_empty_files_are_named(self):
        empty = self.path("empty.mrc", b"")
        for command in (["sort", "--by", "001"], ["dedupe", "--by", "001"],
                        ["extract", "--fields", "001", "--no-header"]):
            status, out, err = run(*command, empty)
            self.assertEqual((status, out), (1, b""), command)
            self.assertIn("empty.mrc: the file is empty", err)

    def commands_work(self, name, text):
        """Each command of the blocks of a document does its work, one after the other."""
        (self.folder / name).mkdir()
        self.convert(SAMPLES, f"{name}/records.mrc")
        self.convert(SAMPLES, f"{name}/before.mrc")
        edited = self.path(f"{name}/records.mrc").read_bytes().replace(b"523 pages", b"524 pages")
        self.path(f"{name}/edited.mrc", edited)
        self.path(f"{name}/after.mrc", edited)
        self.path(f"{name}/updates.mrc",
                  record_of((b"001", b"zs0003"), (b"650", b" 0\x1faRivers")))
        lines = [line for block in re.findall(r"```sh\n(.*?)```", text, re.DOTALL)
                 for line in block.splitlines()]
        self.assertGreater(len(lines), 5)
        for line in lines:
            words = shlex.split(line.replace("*.mrc", "before.mrc after.mrc"), comments=True)
            self.assertEqual(words[0], "quillory")
            done = subprocess.run([PROGRAM, *words[1:]], cwd=self.folder / name,
                                  capture_output=True, timeout=120)
            self.assertLess(done.returncode, 2, f"{line}\n{done.stderr.decode()}")

    def test_the_documents_commands_work(self):
        self.commands_work("docs", (ROOT / "docs" / "sets.md").read_text("utf-8"))
        readme = (ROOT / "README.md").read_text("utf-8")
        day = re.search(r"## A day's work\n(.*?)\n## ", readme, re.DOTALL)
        self.commands_work("readme", day[1])


if __name__ == "__main__":
    unittest.main(argv=["sets_test.py"])
