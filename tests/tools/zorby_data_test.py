#!/usr/bin/env python3
"""zorby-data: sources to data files and back, faults, and the data files that the tree ships.

usage: zorby_data_test.py ZORBY_DATA BUILT_DATA_FOLDER SAMPLES_FOLDER
"""

import random
import re
import struct
import subprocess
import sys
import tempfile
import unittest
from collections import Counter
from pathlib import Path

ZORBY_DATA = sys.argv[1]
BUILT = Path(sys.argv[2])
SAMPLES = Path(sys.argv[3]) / "catalogue.mrk"
WELL, FAULTS, FAILED = 0, 1, 2

FORMAT = {
    "format": "name",
    "fields": "tag name repeatable mandatory first second",
    "subfields": "tag code name repeatable mandatory prompt priority",
    "indicator names": "tag which name",
    "indicator values": "tag which value name",
    "indicator explanations": "tag which text",
}
HOLDINGS = {
    "type": "name type flags option",
    "former names": "name",
    "elements": "name id tag subfield repeat once extra help",
}

# Cells of a source, and the bytes that they are in a data file.
CELLS = [
    ("plain", b"plain"),
    ("", b""),
    (" blanks ", b" blanks "),
    (r"tab\tend\nback\\slash", b"tab\tend\nback\\slash"),
    (r"\x23 \x5b \x01\xff\x7F", b"# [ \x01\xff\x7f"),
    ("\u00e9 e\u0301 \u0144 n\u0301 \u0141 t\u0361s \u00a9",
     b"\xe6 e\xa4 n\xa4 n\xa4 \x80 t\xads\xae \x9e"),
    ("x" * 254, b"x" * 254),
    ("\u00e9" * 255, b"\xe6" * 255),
    ("x" * 150 + r"\t" * 150, b"x" * 150 + b"\t" * 150),
]


def rows(sections, name, *cells):
    """A section of a source, with its header."""
    header = sections[name].replace(" ", "\t")
    return "\n".join([f"[{name}]", header, *("\t".join(row) for row in cells)]) + "\n\n"


def text(data):
    if len(data) < 255:
        return bytes([len(data)]) + data
    return b"\xff" + struct.pack("<H", len(data)) + data


def int32(*numbers):
    return b"".join(struct.pack("<I", number & 0xFFFFFFFF) for number in numbers)


def counted(*records):
    return int32(len(records)) + b"".join(records)


class Run:
    def __init__(self, *arguments, stdin=b""):
        done = subprocess.run([ZORBY_DATA, *map(str, arguments)], input=stdin, check=False,
                              capture_output=True, timeout=120)
        self.status, self.out, self.err = done.returncode, done.stdout, done.stderr.decode()


class InFolder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def write(self, name, content):
        file = self.folder / name
        file.write_bytes(content.encode() if isinstance(content, str) else content)
        return file

    def assert_untouched(self, before):
        self.assertEqual(sorted(self.folder.iterdir()), sorted(before))

    def compile(self, kind, source):
        run = Run("compile", kind, self.write("source.tsv", source), "-o", "-")
        self.assertEqual((run.status, run.err), (WELL, ""))
        return run.out

    def assert_round_trip(self, kind, data):
        ending = {"format": "tfm", "holdings": "hld"}[kind]
        dumped = Run("dump", self.write(f"data.{ending}", data))
        self.assertEqual((dumped.status, dumped.err), (WELL, ""))
        self.assertEqual(self.compile(kind, dumped.out.decode()), data)
        again = Run("dump", "-", "--kind", kind, stdin=data)
        self.assertEqual(again.out, dumped.out)
        return dumped.out.decode()


class RoundTrips(InFolder):
    """Every column differs from its neighbours, so that none can stand for another."""

    def test_cells(self):
        for cell, stored in CELLS:
            with self.subTest(cell=cell):
                source = rows(FORMAT, "fields", ["003", cell, "1", "0", "#", "#"])
                data = self.compile("format", source)
                self.assertEqual(data[:1 + 4 + 4 + len(text(stored))],
                                 text(b"") + int32(1, 3) + text(stored))
                self.assert_round_trip("format", data)

    def test_format(self):
        source = (
            rows(FORMAT, "subfields", ["245", "c", "C", "0", "1", "0", "1"],
                 ["245", r"\x22", "Quote", "1", "0", "1", "0"]) +
            rows(FORMAT, "format", ["# of [fields]"]).replace("\n#", "\n\\x23") +
            rows(FORMAT, "indicator values", ["245", "2", "#", "B"], ["245", "1", "1", "A"]) +
            "# a comment\n" +
            rows(FORMAT, "fields", ["245", "Title", "0", "1", "1", "#"],
                 ["001", "Number", "1", "0", "#", "#"]) +
            rows(FORMAT, "indicator names", ["245", "2", "N"]) +
            rows(FORMAT, "indicator explanations", ["245", "1", "E"]))
        expected = b"".join([
            text(b"# of [fields]"),
            counted(int32(245) + text(b"Title") + int32(1, 0),
                    int32(1) + text(b"Number") + int32(0, 1)),
            counted(text(b"C") + int32(245) + b"c" + int32(1, 0, 0, 1),
                    text(b"Quote") + int32(245) + b'"' + int32(0, 1, 1, 0)),
            counted(int32(245, 1) + text(b"E")),
            counted(int32(245, 2) + text(b"N")),
            counted(int32(245, 2) + b"_" + text(b"B"), int32(245, 1) + b"1" + text(b"A")),
            counted(int32(245) + b"1_", int32(1) + b"__"),
        ])
        self.assertEqual(self.compile("format", source), expected)
        self.assert_round_trip("format", expected)

    def test_holdings(self):
        long_help = ("\u00e9" * 300, b"\xe6" * 300)
        source = (
            rows(HOLDINGS, "type", ["Now", "7", "4294967295", "1"]) +
            rows(HOLDINGS, "former names", [r"\x23 once"], ["Fr\u00fcher"], [r"\x5btype]"]) +
            rows(HOLDINGS, "elements",
                 ["Bar code", "500", "949", "d", "", "0", "0", long_help[0]],
                 ["Extra", "501", "024", r"\x09", ",", "1", "-2", r"a\tb\n\\"]) +
            rows(HOLDINGS, "type", ["Bare", "99", "0", "0"]))
        expected = counted(
            counted(*map(text, (b"Now", b"# once", b"Fr\xfeher", b"[type]"))) +
            int32(2**32 - 1, 7, 1) +
            counted(text(b"Bar code") + int32(949) + b"d\0" + int32(0, 0, 500) + text(long_help[1]),
                    text(b"Extra") + int32(24) + b"\x09," + int32(1, -2, 501) + text(b"a\tb\n\\")),
            counted(text(b"Bare")) + int32(0, 99, 0) + counted())
        self.assertEqual(self.compile("holdings", source), expected)
        self.assert_round_trip("holdings", expected)

    def test_any_bytes(self):
        chance = random.Random(2709)
        for _ in range(20):
            sizes = [chance.randrange(1, 600) for _ in range(9)]
            names = [bytes(chance.choices(range(256), k=size)) for size in sizes]
            self.assert_round_trip("holdings", counted(
                counted(*map(text, names)) + int32(1, 2, 0) + counted()))

    def test_several_sources(self):
        paths = [self.write("b.tsv", rows(HOLDINGS, "type", ["B", "2", "0", "0"])),
                 self.write("a.tsv", rows(HOLDINGS, "type", ["A", "1", "0", "0"]))]
        data = Run("compile", "holdings", *paths, "-o", "-").out
        self.assertLess(data.index(b"B"), data.index(b"A"))


FIELD = rows(FORMAT, "fields", ["245", "T", "0", "1", "#", "#"])  # lines 1 to 4
VALUES = rows(FORMAT, "indicator values", ["245", "1", "#", "A"], ["245", "2", "#", "B"])
TYPE = rows(HOLDINGS, "type", ["T", "1", "0", "0"])


def of_field(section, *cells):
    """The section's row begins in line 12."""
    return FIELD + VALUES + rows(FORMAT, section, *cells)


def elements(*cells):
    return TYPE + rows(HOLDINGS, "elements", *cells)


class Faults(InFolder):
    TABLE = [
        # kind, source, the places of its faults and a word of each reason
        ("format", "[feilds]\n", ["1:1 unknown section"]),
        ("format", "245\n", ["1:1 before any section"]),
        ("format", "\ufeff[format]\nname\n", ["1:1 before any section"]),
        ("format", "[format]\r\nname\r\n", ["1:9 CR LF"]),
        ("format", "# only a name\n[fields]\n", ["2:1 column names"]),
        ("format", "[format]\n\n[fields]\n", ["1:1 column names", "3:1 column names"]),
        ("format", "[format]\nnmae\nN\n", ['2:1 "nmae": expected "name"']),
        ("format", "[format]\nname\tnote\nN\tM\n", ['2:6 "note": expected nothing']),
        ("format", "[indicator names]\ntag\twhich\n", ['2:10 "name" is missing']),
        ("format", rows(FORMAT, "format", ["A"], ["B"]), ["4:1 :3"]),
        ("format", FIELD, ["3:11 default", "3:13 default"]),
        ("format", FIELD + VALUES + "[format]\nname\n\u00df\n", ["12:1 U+00DF"]),
        ("format", rows(FORMAT, "format", ["t\u0361s \u4e2d"]), ["3:1 U+4E2D"]),
        ("format", rows(FORMAT, "format", [r"a\q"]), ["3:1 backslash"]),
        ("format", rows(FORMAT, "format", [r"\x4"]), ["3:1 backslash"]),
        ("format", rows(FORMAT, "format", [r"\x-1"]), ["3:1 backslash"]),
        ("format", rows(FORMAT, "format", ["end\\"]), ["3:1 backslash"]),
        ("format", b"[format]\nname\n\xe9t\xe9\n", ["3:1 no UTF-8"]),
        ("format", rows(FORMAT, "format", ["bell\a"]), ["3:1 U+0007"]),
        ("format", rows(FORMAT, "fields", ["0", "C", "2", "-1", "", "ab"]),
         ['3:1 "0" isn\'t a tag', '3:5 "2"', '3:7 "-1"', '3:10 "" isn\'t one', '3:11 "ab"']),
        ("format", rows(FORMAT, "fields", ["1000", "C", "0", "0", "#", "#"]),
         ["3:1 tag", "3:12 default", "3:14 default"]),
        ("format", of_field("subfields", ["24a", "a", "N", "0", "0", "x", "99999999999"]),
         ["12:1 isn't a number", "12:13 isn't a number", "12:15 too large"]),
        ("format", of_field("subfields", ["245", "a", "\u00e9", "0", "0", "0", "2"]),
         ["12:16 priority"]),
        ("format", of_field("subfields", ["245", "a", "N", "0"]), ["12:10 4 cells, not 7"]),
        ("format", of_field("subfields", ["245", "a", "N", "0", "0", "0", "0", "?"]),
         ["12:17 8 cells, not 7"]),
        ("format", of_field("subfields", *[["245", "a", "N", "0", "0", "0", "0"]] * 2),
         ["13:5 :12"]),
        ("format", of_field("subfields", ["246", "a", "N", "0", "0", "0", "0"]), ["12:1 no field"]),
        ("format", FIELD.strip() + "\n" + FIELD.split("\n")[2] + "\n" + VALUES, ["4:1 :3"]),
        ("format", of_field("indicator values", ["245", "1", "_", "A"],
                            ["245", "3", "#", "A"], ["246", "1", "#", "A"]),
         ["12:7 :7", "13:5 isn't 1 or 2", "14:1 no field"]),
        ("format", of_field("indicator names", ["245", "1", "A"],
                            ["245", "1", "B"], ["246", "1", "C"]),
         ["13:5 :12", "14:1 no field"]),
        ("format", of_field("indicator explanations", ["245", "1", "A"],
                            ["245", "1", "B"], ["246", "1", "C"]),
         ["13:5 :12", "14:1 no field"]),
        ("holdings", rows(HOLDINGS, "elements", ["E", "1", "852", "a", "", "0", "0", ""]),
         ["3:1 no row of [type]"]),
        ("holdings", TYPE + rows(HOLDINGS, "type") + rows(HOLDINGS, "former names", ["F"]),
         ["10:1 no row of [type]"]),
        ("holdings", TYPE + rows(HOLDINGS, "type", ["T", "1", "-1", "2"]),
         ["7:3 :3", "7:5 isn't a number", "7:8 isn't 0 or 1"]),
        ("holdings", elements(*[["E", "5", "852", "a", "", "0", "0", ""]] * 2), ["8:3 :7"]),
        ("holdings", elements(["E", "5", "85", "ab", ",,", "2", "", ""]),
         ["7:5 tag", "7:8 one character", "7:11 one character", "7:14 0 or 1", "7:16 number"]),
    ]

    def test_places_and_reasons(self):
        for kind, source, places in self.TABLE:
            with self.subTest(source=source):
                path = self.write("source.tsv", source)
                run = Run("compile", kind, path, "-o", self.folder / "out")
                lines = run.err.splitlines()
                self.assertEqual((run.status, len(lines)), (FAULTS, len(places)), run.err)
                for line, expected in zip(lines, places):
                    place, words = expected.split(" ", 1)
                    self.assertTrue(line.startswith(f"{path}:{place}: "), (line, expected))
                    self.assertIn(words, line)
                self.assert_untouched([path])

    def test_over_all_sources_and_at_most_twenty(self):
        first = self.write("1.tsv", TYPE)
        second = self.write("2.tsv", TYPE + rows(
            HOLDINGS, "former names", *[[r"\?"]] * 30))
        run = Run("compile", "holdings", first, second, "-o", self.folder / "out")
        lines = run.err.splitlines()
        self.assertEqual((run.status, len(lines)), (FAULTS, 21))
        self.assertEqual(lines[0], f"{second}:3:3: the same as in {first}:3")
        self.assertEqual(lines[-1], "11 more faults")

    def test_usage(self):
        path = self.write("a.tsv", TYPE)
        for arguments in (["compile", "holdings", path], ["compile", "else", path, "-o", "x"],
                          ["compile", "holdings", self.folder / "none", "-o", "x"],
                          ["compile", "holdings", self.folder, "-o", "x"],
                          ["compile", "holdings", path, "-o", path], ["dump", path], []):
            with self.subTest(arguments=arguments):
                run = Run(*arguments)
                self.assertEqual((run.status, run.out), (FAILED, b""))
                self.assertNotEqual(run.err, "")
        self.assertEqual(path.read_text(), TYPE)


class Codes(InFolder):
    """What is published, without what is of the library's menus."""

    COLUMNS = "field form positions element code status since until use text".split()
    WIDE = COLUMNS + ["menu", "place", "caption"]
    ROWS = [
        ["leader", "all", "08", "Control", "", "title", "", "", "", "", "Control", "", ""],
        ["leader", "all", "08", "Control", "#", "current", "", "", "", "None", "Control", "2", "-"],
        ["leader", "all", "08", "Control", "b", "menu", "", "", "", "", "Control", "", "Blue"],
        ["leader", "all", "08", "Control", "c", "obsolete", "", "1990", "a", "\u00e9", "", "", ""],
    ]

    def source(self, name, *rows):
        head = ["# Published.", "# Then.", "", "# Menus.", "", "\t".join(self.WIDE)]
        return self.write(name, "\n".join(head + ["\t".join(row) for row in rows] + ["# End", ""]))

    def test_join(self):
        sources = [self.source("a.tsv", *self.ROWS), self.source("b.tsv")]
        run = Run("join-codes", *sources, "-o", "-")
        self.assertEqual((run.status, run.err), (WELL, ""))
        head = ["# Published.", "# Then.", "\t".join(self.COLUMNS)]
        published = ["\t".join(self.ROWS[at][:10]) for at in (1, 3)]
        self.assertEqual(run.out.decode().splitlines(), head + published + head)

    def test_faults(self):
        for row, fault in (
                (self.ROWS[1][:10], "10 columns instead of 13"),
                (self.ROWS[1][:5] + ["new"] + self.ROWS[1][6:], 'no status "new"'),
                (self.ROWS[3], "a second row for code \"c\"")):
            with self.subTest(fault):
                path = self.source("a.tsv", *self.ROWS, row)
                run = Run("join-codes", path, "-o", self.folder / "out")
                told = f"zorby-data: {path}:11: {fault}\n"
                self.assertEqual((run.status, run.err), (FAILED, told))
                self.assert_untouched([path])


class DataFiles(InFolder):
    def test_round_trips(self):
        self.assert_round_trip("format", (BUILT / "MARCBibl.tfm").read_bytes())
        self.assert_round_trip("holdings", (BUILT / "zorby.hld").read_bytes())

    def test_truncated(self):
        for name in ("MARCBibl.tfm", "zorby.hld", "zorby.ttm"):
            whole = (BUILT / name).read_bytes()
            for size in {0, 1, 3, 50, len(whole) // 2, len(whole) - 1}:
                with self.subTest(name=name, size=size):
                    path = self.write(name, whole[:size])
                    run = Run("dump", path, "-o", self.folder / "out")
                    self.assertEqual(run.status, FAILED)
                    found = re.search(re.escape(str(path)) + r": offset (\d+): ", run.err)
                    self.assertTrue(found and int(found[1]) <= size, run.err)
                    path.unlink()
                    self.assert_untouched([])

    def dump_refused(self, name, data, *words):
        path = self.write(name, data)
        before = list(self.folder.iterdir())
        run = Run("dump", path, "-o", self.folder / "out")
        self.assertEqual(run.status, FAULTS, run.err)
        for word in (str(path), *words):
            self.assertIn(word, run.err)
        self.assert_untouched(before)

    def test_what_no_source_gives(self):
        def dictionary(defaults, values=b"", name=text(b"N")):
            return (name + counted(int32(5) + text(b"F") + int32(0, 0)) + counted() * 3 +
                    counted(*[values] * bool(values)) + counted(*defaults))

        blank = int32(5) + b"__"
        good = dictionary([blank])
        self.assert_round_trip("format", good)
        self.dump_refused("a.tfm", dictionary([]), "number 1", "tag 005", "none")
        self.dump_refused("a.tfm", dictionary([int32(6) + b"__"]), "tag 005", "tag 006")
        self.dump_refused("a.tfm", dictionary([blank, blank]), "number 2", "none", "tag 005")
        self.dump_refused("a.tfm", dictionary([int32(5) + b"#_"]), f"offset {len(good) - 2}:")
        self.dump_refused("a.tfm", good + b"\0", f"offset {len(good)}:")
        self.dump_refused("a.tfm", dictionary([blank], name=b"\xff\x01\0N"), "offset 0:")
        for names, words in (([], "has no name"), ([b"A", b""], "empty former name")):
            self.dump_refused("a.hld", counted(
                counted(*map(text, names)) + int32(0, 8, 0) + counted()), "type 8", words)

    def test_findings_of_a_dump(self):
        """What compiling would refuse is written all the same, and told."""
        path = self.write("a.hld", counted(*[counted(text(b"A")) + int32(0, 8, 2) + counted()] * 2))
        run = Run("dump", path)
        self.assertEqual(run.status, FAULTS)
        self.assertEqual([line.split(": ")[0] for line in run.err.splitlines()],
                         [f"standard output:{place}" for place in ("3:7", "7:3", "7:7")])
        self.assertEqual(run.out.decode(), (rows(HOLDINGS, "type", ["A", "8", "0", "2"]) * 2)[:-1])


WORKFORM = """\
name = "Book (not atlas or songbook)"
id = 1
base = ""
material = "Book"
form-006 = "Books"
form-007 = "None"
leader = "00000nam##2200000#i#4500"
field-008 = "000000s########xx############000#u#und#d"
field-007 = ""
additional-006 = ""

[[field]]
tag = "245"
indicators = "1_"
subfields = ["a", ["b", "\u00e9"]]
prompt = ""
priority = 1
subfield-priority = "a"

[[field]]
tag = "246"
indicators = "3_"
subfields = ["a"]

[[help]]
tag = "246"
code = "a"
examples = '''
1 "\\
2'''

[[help]]
tag = "245"
code = "a"
rules = "R"
reminders = "M"
examples = "E"

[[indicator]]
tag = "246"
which = 2
default = "1"
name = "N"

[[indicator]]
tag = "245"
which = 1
explanation = "X"

[[additional]]
material = "Map"
form-006 = "Map"
form-007 = "Globe"
field-006 = "f############ab###"
field-007 = "da#ca#"
"""
STORED_WORKFORM = b"".join([
    text(b"Book (not atlas or songbook)"), int32(1), text(b""), int32(1), b"\2", text(b""),
    text(b"00000nam  2200000 i 4500"), text(b" " * 32),
    text(b"000000s        xx            000 u und d"), text(b" " * 12 + b"000 u "),
    text(b""), int32(0, 40, 602, 700),
    counted(int32(245) + text(b"")),
    counted(text(b"R") + int32(245) + b"a"),
    counted(text(b"M") + int32(245) + b"a"),
    counted(text(b'1 "\\\n2') + int32(246) + b"a", text(b"E") + int32(245) + b"a"),
    counted(int32(245, 1) + text(b"X")),
    counted(int32(246, 2) + text(b"N")),
    counted(int32(246) + b"\0" + b"1"),
    counted(int32(245, 1)),
    counted(int32(245) + text(b"a") + int32(1)),
    counted(int32(245) + b"1_a" + text(b""), int32(0) + b"\0\0b" + text(b"\xe6"),
            int32(246) + b"3_a" + text(b"")),
    b"\1" + counted(),
    b"\1" + counted(b"\1f            ab   " + int32(6) + b"da ca " + int32(7, 604, 704)),
])


class Workforms(InFolder):
    def compile_files(self, *sources):
        out = self.folder / "compiled.ttm"
        out.unlink(missing_ok=True)
        paths = [self.write(f"{place}.toml", source) for place, source in enumerate(sources, 1)]
        return paths, out, Run("compile", "workforms", *paths, "-o", out)

    def assert_dumps(self, data, count):
        sources = self.folder / "new" / "sources"
        run = Run("dump", self.write("data.ttm", data), "-o", sources)
        self.assertEqual((run.status, run.out, run.err), (WELL, b"", ""))
        files = sorted(sources.iterdir())
        self.assertEqual(len(files), count)
        run = Run("compile", "workforms", *files, "-o", "-")
        self.assertEqual((run.status, run.out), (WELL, data))

    def test_every_key(self):
        second = WORKFORM.replace('(not atlas or songbook)"\nid = 1', '2"\nid = 99').replace(
            'base = ""', 'base = "Book (not atlas or songbook)"')
        _, out, run = self.compile_files(WORKFORM, second)
        self.assertEqual((run.status, run.err), (WELL, ""))
        self.assertEqual(out.read_bytes()[:4 + len(STORED_WORKFORM)],
                         int32(2) + STORED_WORKFORM)
        self.assert_dumps(out.read_bytes(), 2)

    def test_shipped(self):
        data = (BUILT / "zorby.ttm").read_bytes()
        self.assert_dumps(data, struct.unpack("<i", data[:4])[0])

    def test_faults(self):
        for old, new, *places in [
                ('id = 1', 'id = 100', "2:6 from 1 to 99"),
                ('id = 1', 'id = ', "2:6 "),
                ('base = ""', 'base = "None"', "3:8 stands before"),
                ('"Book"\n', '"Bok"\n', "4:12 nothing of this name"),
                ('form-007 = "None"', 'form-007 = "Books"', "6:12 nothing of this name"),
                ('i#4500', 'i#450', "7:10 23 characters, not 24"),
                ('field-007 = ""', 'field-007 = "h"', "9:13 1 characters, not 0"),
                ('"245"', '"24a"', "13:7 isn't a tag"),
                ('"1_"', '"1"', "14:14 1 characters"),
                ('["b", "\u00e9"]', '["b"], "cd", 1', "15:19 code and a text",
                 "15:26 one character", "15:32 isn't a text"),
                ('"\u00e9"', '"\u4e2d"', "15:25 U+4E2D"),
                ('tag = "246"\n', 'tag = "245"\nprompt = "a"\n', "22:10 first field"),
                ('"245"', '"005"', "13:7 a control field"),
                ('["b", ', '["$", ', "15:19 $ is no subfield code"),
                ('["b", ', '["a", ', "15:19 $a is in the field already"),
                ('prompt = ""', 'prompt = "abc"', "16:10 no field of the tag has $c"),
                ('rules = "R"', 'rule = "R"', "35:8 isn't a key"),
                ('tag = "245"\ncode', 'tag = "246"\ncode', "33:7 the same as in"),
                ('which = 2', 'which = 3', "41:9 from 1 to 2"),
                ('code = "a"\n', "", "25:1 there is no code"),
                ('form-006 = "Map"\n', '', "50:1 there is no form-006"),
                ('id = 1\nbase = ""\n', '', "1:1 there is no id, base"),
                ('(not atlas or songbook)', '2', "1:1 there is no workform"),
                (WORKFORM, 'name = 1', "1:1 there is no id, base, material", "1:8 isn't a text"),
        ]:
            with self.subTest(new=new):
                [path], out, run = self.compile_files(WORKFORM.replace(old, new, 1))
                lines = run.err.splitlines()
                self.assertEqual((run.status, len(lines)), (FAULTS, len(places)), run.err)
                for line, expected in zip(lines, places):
                    place, words = expected.split(" ", 1)
                    self.assertTrue(line.startswith(f"{path}:{place}: "), (line, expected))
                    self.assertIn(words, line)
                self.assertFalse(out.exists())

    def test_faults_of_all_sources(self):
        paths, _, run = self.compile_files("id =", WORKFORM, WORKFORM.replace('"E"', "1"))
        self.assertEqual([line.split(": ")[0] for line in run.err.splitlines()],
                         [f"{paths[0]}:1:5", f"{paths[2]}:1:8", f"{paths[2]}:2:6",
                          f"{paths[2]}:37:12"])

    def test_what_no_source_gives(self):
        data = int32(1) + STORED_WORKFORM
        priority = int32(245) + text(b"a")
        for old, new, words in [
                (data, counted(), "there are no workforms"),
                (priority + int32(1), priority + int32(2), "offset "),
                (int32(0, 40, 602, 700), int32(0, 40, 602, 1), "workform 1: no name for form-007"),
                (counted(text(b"R") + int32(245) + b"a"), counted(
                    *[text(b"R") + int32(tag) + b"a" for tag in (245, 246)]), "different orders"),
        ]:
            with self.subTest(words=words):
                path = self.write("data.ttm", data.replace(old, new, 1))
                run = Run("dump", path, "-o", self.folder / "sources")
                self.assertEqual(run.status, FAULTS, run.err)
                self.assertIn(words, run.err)
                self.assert_untouched([path])
        self.assertEqual(Run("dump", BUILT / "zorby.ttm").status, FAILED)


def rows_of(source):
    """(section, cells) of each row."""
    section, header = None, False
    for line in source.split("\n"):
        if line.startswith("["):
            section, header = line[1:-1], True
        elif header:
            header = False
        elif line and not line.startswith("#"):
            yield section, line.split("\t")


def is_local(tag, code=""):
    """09X, 59X, 69X, 9XX and $9 are for each library to define."""
    return tag[0] == "9" or tag[1] == "9" and tag[0] in "056" or code == "9"


def fields_of(mrk):
    """(tag, codes of the subfields) of each field. Those of an 880 count as of its original."""
    for line in mrk.splitlines():
        tag, content = line[1:4], line[6:]
        if not line or tag == "LDR":
            continue
        subfields = content[2:].split("$")[1:] if tag >= "010" else []
        linked = [subfield[1:4] for subfield in subfields if subfield.startswith("6")]
        if tag == "880" and linked:
            yield linked[0], [subfield[:1] for subfield in subfields]
        yield tag, [] if tag == "880" else [subfield[:1] for subfield in subfields]


class Samples(unittest.TestCase):
    def test_dictionary_knows_the_samples(self):
        source = Run("dump", BUILT / "MARCBibl.tfm").out.decode()
        tags = {cells[0] for section, cells in rows_of(source) if section == "fields"}
        codes = {tuple(cells[:2]) for section, cells in rows_of(source) if section == "subfields"}
        unknown, local, count = Counter(), 0, 0
        for tag, found in fields_of(SAMPLES.read_text(encoding="utf-8")):
            count += 1
            if tag not in tags:
                missing = [tag]
            else:
                missing = [f"{tag} ${code}" for code in found if (tag, code) not in codes]
            own = [name for name in missing if is_local(tag, name[5:])]
            local += len(own)
            unknown.update(name for name in missing if name not in own)
        print(f"{count} fields of the samples: {local} times a local field or subfield, "
              f"{len(unknown)} others unknown to the dictionary {dict(unknown)}")
        self.assertGreater(count, 500)
        self.assertEqual(unknown, {})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
