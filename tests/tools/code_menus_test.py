"""code-menus makes headers of the rows, names the rows that do not fit, and tells stale headers."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
TOOL = TREE / "tools" / "code-menus"
SOURCES = Path("data/marc21/codes")
HEADERS = Path("zorby/controlfields/detail")
COLUMNS = "field form positions element code status since until use text menu place caption"


def row(code, status, text, menu, place="", caption="", element="Sound"):
    return "\t".join(["007", "map", "01", element, code, status, "", "", "", text,
                      menu, place, caption])


TITLE = row("", "title", "", "Sound")


class CodeMenus(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        (self.root / SOURCES).mkdir(parents=True)
        (self.root / HEADERS).mkdir(parents=True)

    def write(self, *rows, name="007.tsv"):
        head = ["# Published.", "", "# Menus: of 2010,", "# odd.", "", COLUMNS.replace(" ", "\t")]
        lines = head + list(rows)
        (self.root / SOURCES / name).write_text("\n".join(lines) + "\n", encoding="utf-8")

    def run_tool(self, *arguments):
        done = subprocess.run([sys.executable, TOOL, *arguments, self.root], check=False,
                              capture_output=True, text=True)
        self.assertEqual(done.stderr, "")
        return done.returncode, done.stdout.splitlines()

    def header(self, name="007"):
        return (self.root / HEADERS / f"CodeMenus{name}.h").read_text()

    def entries(self):
        lines = self.header().splitlines()
        return [line.strip(' ",') for line in lines if line.startswith('    "')]

    def test_entries(self):
        self.write(TITLE, row("", "title", "", "Part", caption='A "part"'),
                   row("b#", "current", "beta", "Sound Part"),
                   row("a#", "obsolete", "Ärmel", "Sound", caption=r"Armel\x20\x20"),
                   row("a#", "menu", "", "Sound", caption=r"Sleeve\nzz\nOther"),
                   row("c#", "current", "Gamma", "Sound", place="2"),
                   row("d#", "current", "Delta", ""))
        self.assertEqual(self.run_tool(), (0, [f"{HEADERS}/CodeMenus007.h: written"]))
        self.assertEqual(self.entries(), [
            "Sound", r"a \nArmel  \n", r"c \nGamma\n", r"b \nbeta\n", r"a \nSleeve\nzz\nOther\n",
            r'A \"part\"'.strip('"'), r"b \nbeta\n"])
        self.assertIn("// of 2010, odd.\n", self.header())
        self.assertIn(f"{SOURCES}/007.tsv", self.header())

    def test_rows_that_do_not_fit(self):
        good = row("a", "current", "Alpha", "Sound")
        table = [
            (["one\ttwo"], 7, "2 columns instead of 13"),
            ([TITLE, row("a", "new", "Alpha", "Sound")], 8, 'no status "new"'),
            ([TITLE, TITLE, good], 8, "second title"),
            ([row("", "title", "", "Sound", "1"), good], 7, "place"),
            ([row("", "title", "", "two words"), good], 7, "name of a menu"),
            ([TITLE], 7, "empty"),
            ([good, TITLE], 7, "further up"),
            ([TITLE, row("a", "current", "Alpha", "Sound", element="Noise")], 8, "further up"),
            ([TITLE, row("", "current", "Alpha", "Sound")], 8, "no code"),
            ([TITLE, row("a", "menu", "Alpha", "Sound")], 8, "text"),
            ([TITLE, row("a", "menu", "", "", caption="Alpha")], 8, "no menu"),
            ([TITLE, row("a", "menu", "", "Sound")], 8, "no caption"),
            ([TITLE, row("a", "current", "Alpha", "", caption="Other")], 8, "without a menu"),
            ([TITLE, row("a", "current", "Alpha", "Sound", caption="Alpha")], 8, "is the default"),
            ([TITLE, row("a", "current", "Ärmel", "Sound")], 8, "ASCII"),
            ([TITLE, row("a", "current", "Alpha", "Sound", caption="Other ")], 8, "blank"),
            ([TITLE, row("a", "current", "Alpha", "Sound", caption=r"Other\t")], 8, "backslash"),
            ([TITLE, row("a", "current", "Alpha", "Sound", "0")], 8, 'no place "0"'),
            ([TITLE, row("a", "current", "Alpha", "Sound", "2")], 8, "no place 2"),
            ([TITLE, good, good], 9, "same entry"),
            ([TITLE, good, row("bb", "current", "Beta", "Sound")], 9, "as long"),
            ([TITLE, row("a", "current", "Alpha", "Sound", "1"),
              row("b", "current", "Beta", "Sound", "1")], 9, "same place"),
        ]
        for rows, line, reason in table:
            with self.subTest(rows[-1]):
                self.write(*rows)
                status, lines = self.run_tool()
                self.assertEqual((status, len(lines)), (1, 1), lines)
                self.assertTrue(lines[0].startswith(f"{SOURCES}/007.tsv:{line}: "), lines[0])
                self.assertIn(reason, lines[0])
                self.assertEqual(list((self.root / HEADERS).iterdir()), [])

    def test_no_columns_and_no_sources(self):
        self.assertEqual(self.run_tool("--check")[0], 1)
        (self.root / SOURCES / "006.tsv").write_text("# Codes\n" + TITLE + "\n")
        self.assertEqual(self.run_tool(), (1, [f"{SOURCES}/006.tsv:2: the first row does not name "
                                               "the columns"]))

    def test_headers_of_the_tree(self):
        shutil.copytree(TREE / SOURCES, self.root / SOURCES, dirs_exist_ok=True)
        status, lines = self.run_tool()
        self.assertEqual((status, len(lines)), (0, 6), lines)
        self.assertEqual(self.run_tool(), (0, []))
        for file in (self.root / HEADERS).iterdir():
            self.assertEqual(file.read_text(), (TREE / HEADERS / file.name).read_text())

    def test_check_tells_a_changed_row_and_a_changed_header(self):
        self.write(TITLE, row("a", "current", "Alpha", "Sound"))
        self.write(TITLE, row("a", "current", "Alpha", "Sound"), name="leader.tsv")
        self.run_tool()
        self.assertEqual(self.run_tool("--check"), (0, []))
        before = self.header()
        self.write(TITLE, row("a", "current", "Alpha", "Sound", caption="Beta"))
        told = [f"{HEADERS}/CodeMenus007.h: not what {SOURCES} gives; run tools/code-menus"]
        self.assertEqual(self.run_tool("--check"), (1, told))
        self.assertEqual(self.header(), before)
        self.run_tool()
        self.assertEqual(self.run_tool("--check"), (0, []))
        leader = self.root / HEADERS / "CodeMenusLeader.h"
        leader.write_text(leader.read_text().replace("Alpha", "Beta"))
        self.assertEqual(self.run_tool("--check")[0], 1)
        leader.unlink()
        self.assertEqual(self.run_tool("--check")[0], 1)


if __name__ == "__main__":
    unittest.main()
