#!/usr/bin/env python3
"""New records from workforms, of options, of files and of answers on a terminal.

usage: new_test.py QUILLORY SAMPLES_FOLDER EXAMPLES_FOLDER
"""
import datetime
import os
import pathlib
import pty
import subprocess
import sys
import unittest

from support import HERE, QUILLORY, Cli, dump, fields_of, records_of, run

EXAMPLES = sorted(pathlib.Path(sys.argv[3]).glob("*.toml"))
BOOK = "Book (not atlas or songbook)"


class NewRecords(Cli):
    def made(self, command, *arguments, stdin=b"", status=0):
        result, out, err = run(command, *arguments, stdin=stdin)
        self.assertEqual(result, status, err)
        return out, err

    def field(self, record, tag):
        return [content for name, content in fields_of(record)[1] if name == tag]


class New(NewRecords):
    def test_a_record_is_dated_today_and_complete(self):
        before = datetime.date.today()
        record, _ = self.made("new", "--workform", BOOK, "--set", "245a=Été /", "--set",
                              "100a=Weber, Anna.", "--set", "language=fre", "--set", "264c=2021")
        leader, fields = fields_of(record)
        self.assertEqual((leader[5:12], leader[17:24]), (b"nam a22", b" i 4500"))
        self.assertEqual([tag for tag, _ in fields],
                         [b"008", b"100", b"245", b"264", b"336", b"337", b"338"])
        coded = self.field(record, b"008")[0]
        days = {day.strftime("%y%m%d").encode() for day in (before, datetime.date.today())}
        self.assertIn(coded[:6], days)
        self.assertEqual((coded[6:15], coded[35:38]), (b"s2021    ", b"fre"))
        # The mark that leads on is the cataloger's own.
        self.assertEqual(self.field(record, b"245"), ["10\x1faÉté /".encode()])
        self.assertEqual(self.field(record, b"264"), [b" 1\x1fc2021."])

    def test_marks_are_put_between_what_is_given(self):
        given = ["-w", "DVD video", "-s", "245a=Salt road", "-s", "245c=Lena Voss",
                 "-s", "300a=2 videodiscs", "-s", "300c= ", "-s", "490a=Reels"]
        for flags, title, extent in [
                ([], b"00\x1faSalt road /\x1fcLena Voss.",
                 b"  \x1fa2 videodiscs :\x1fbsound, color."),
                (["--no-punctuation"], b"00\x1faSalt road\x1fcLena Voss",
                 b"  \x1fa2 videodiscs\x1fbsound, color"),
                (["-s", "leader/18=c"], b"00\x1faSalt road\x1fcLena Voss",
                 b"  \x1fa2 videodiscs\x1fbsound, color")]:
            record, _ = self.made("new", *given, *flags)
            self.assertEqual(self.field(record, b"245"), [title], flags)
            self.assertEqual(self.field(record, b"300"), [extent], flags)
            # No added entry follows the series.
            self.assertEqual(self.field(record, b"490"), [b"0 \x1faReels"], flags)

    def test_what_a_cataloger_would_mend_at_once_is_said(self):
        for given, reason in [("260a=Town", "245 $a: error: "),
                              ("020a=9780306406158", "020 $a: warning: "),
                              ("245y=Rest", "245 $y: warning: "),
                              ("245a=T", "008/07-10: warning: date 1 is blank")]:
            _, err = self.made("new", "-w", BOOK, "-s", given, "-o", self.path("made.mrc"))
            self.assertIn(reason, err)

    def test_the_library_s_own_code_stands_in_040(self):
        self.made("settings", "LibraryCode", "ZbS")
        out, _ = self.made("settings", "LibraryCode")
        self.assertEqual(out, b"ZbS\n")
        self.assertIn(b"LibraryCode", self.made("settings")[0])
        record, _ = self.made("new", "-w", "DVD video", "-s", "245a=T")
        self.assertEqual(self.field(record, b"040"), [b"  \x1faZbS\x1fbeng\x1ferda\x1fcZbS"])
        record, _ = self.made("new", "-w", BOOK, "-s", "245a=T", "-s", "040a=XyZ")
        self.assertEqual(self.field(record, b"040"), [b"  \x1faXyZ\x1fbeng\x1ferda\x1fcZbS"])

    def test_forms_and_character_sets_of_the_output(self):
        sets = ["-w", BOOK, "-s", "245a=É Ж"]
        out, _ = self.made("new", *sets, "--to", "mrk")
        self.assertIn("=245  00$aÉ Ж.\n", out.decode())
        marc8, _ = self.made("new", *sets, "--to-charset", "marc8")
        self.assertEqual((marc8[9:10], self.field(marc8, b"245")),
                         (b" ", [b"00\x1fa\xe2E \x1b(Nv\x1b(B."]))

    def test_the_command_line_goes_before_the_file(self):
        described = self.path("one.toml", 'workform = "DVD video"\n245a = "File"\n'
                              '245b = "B"\n"008/18-20" = "097"\n'.encode())
        record, _ = self.made("new", "--from", described, "--set", "245a=Line", "-w", BOOK,
                              "-s", "008/18-20=   ")
        self.assertEqual(self.field(record, b"245"), [b"00\x1faLine :\x1fbB."])
        self.assertEqual(record[6:8], b"am")

    def test_what_is_wrong_is_said(self):
        for arguments, reason in [
                (["-w", "Boks"], 'there is no workform "Boks"'),
                ([], "no workform is named; "),
                (["-w", BOOK, "-s", "245a"], "--set: 245a is not PLACE=TEXT"),
                (["-w", BOOK, "-s", "245=Title"], "quillory: 245: a whole field is"),
                (["-w", BOOK, "-s", "008/22=Q"], '008/22: "Q" is not a code of Target audience; '),
                (["-w", BOOK, "-s", "language=xyz"],
                 '008/35-37: "xyz" is not a code of Language; '),
                (["-w", BOOK, "-s", "country=us"], '008/15-17: "us " is an obsolete code of '),
                (["-w", BOOK, "-s", "leader/06=g"], "leader/06: "),  # 008 is that of a book
                (["-w", BOOK, "-s", "008=short"], "008: the field has the wrong length: "),
                (["-w", BOOK, "-s", "leader/09=a"],
                 "leader/09: these positions say how a record is stored"),
                (["-w", BOOK, "-s", "245a=A", "-s", "245a=B"],
                 "245 $a: a record can have this field only once"),
                (["--from", self.path("no.toml", b"245a = ")], "no.toml: line 1, column "),
                (["--from", self.path("two.toml", b"[[record]]\n[[record]]\n")],
                 "describes several records"),
                (["--from", self.path("empty.toml", b"")], "the file is empty")]:
            output = self.folder / "none.mrc"
            _, err = self.made("new", *arguments, "-o", output, status=2)
            self.assertIn(reason, err)
            self.assertFalse(output.exists())

    def test_a_description_is_not_overwritten(self):
        described = self.path("one.toml", b'workform = "1"\n245a = "T"\n')
        for option in ("-o", "--rejects"):
            _, err = self.made("new", "--from", described, option, described, status=2)
            self.assertIn("would be overwritten", err)
        self.assertTrue(described.read_bytes().startswith(b"workform"))

    def test_a_missing_data_file_is_named(self):
        self.environment("QUILLORY_DATA", self.folder)
        _, err = self.made("new", "-w", BOOK, "-s", "245a=T", status=2)
        self.assertIn("zorby.hld: can't be opened: No such file or directory", err)


class Terminal(NewRecords):
    def answered(self, answers, *arguments):
        terminal, side = pty.openpty()
        output = self.folder / "new.mrc"
        child = subprocess.Popen([QUILLORY, "new", "-w", BOOK, "-o", output, *arguments],
                                 stdin=side, stderr=side, close_fds=True)
        os.close(side)
        os.write(terminal, answers)
        said = b""
        while True:
            try:
                part = os.read(terminal, 65536)
            except OSError:
                break
            if not part:
                break
            said += part
        os.close(terminal)
        self.assertEqual(child.wait(60), 0, said)
        return output.read_bytes(), said.decode()

    def test_it_asks_for_what_is_missing(self):
        # ISBN: left out; author; title is given, its subtitle asked for; then no more answers.
        record, said = self.answered("\n?\nWeber, Anna.\n\n\n\u00fcber alles\n\x04".encode(),
                                     "--set", "245a=T :")
        self.assertIn("245 $b", said)
        self.assertNotIn("245 $a", said)
        self.assertIn("100 $a", said)
        self.assertNotIn("336 $a", said)
        self.assertEqual(self.field(record, b"100"), [b"1 \x1faWeber, Anna."])
        self.assertIn("\u00fcber alles".encode(), record)

    def test_no_input_asks_nothing(self):
        _, said = self.answered(b"", "--no-input", "--quiet", "--set", "245a=T",
                                "--set", "264c=2023")
        self.assertEqual(said, "")


class Catalog(NewRecords):
    def test_other_tools_read_the_examples(self):
        out, err = self.made("catalog", *EXAMPLES)
        self.assertEqual(err, "")
        records = records_of(out)
        self.assertEqual([self.field(record, b"001") for record in records],
                         [[f"zx000{n}".encode()] for n in range(1, len(records) + 1)])
        path = self.path("examples.mrc", out)
        done = subprocess.run(["yaz-marcdump", "-n", path], capture_output=True)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"", b""))
        if subprocess.run(["perl", "-MMARC::Record", "-e", "1"], capture_output=True).returncode:
            self.skipTest("no MARC::Record")
        done = subprocess.run(["perl", HERE / "marc_record_dump.pl", path, "utf8"],
                              capture_output=True)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertEqual(done.stdout, dump(out))

    def test_damage_is_named_and_kept_and_the_rest_made(self):
        text = (f'workform = "{BOOK}"\n[[record]]\n245a = "one"\n[[record]]\n245a = "two\n'
                '[[record]]\n245a = ["x", "y"]\n[[record]]\nworkform = "Boks"\n'
                '[[record]]\nlanguage = "xx1"\n[[record]]\n245a = "six"\n')
        source = self.path("many.toml", text.encode())
        rejects = self.path("rejects.toml")
        out, err = self.made("catalog", source, "--rejects", rejects, status=1)
        self.assertEqual([self.field(record, b"245")[0] for record in records_of(out)],
                         [b"00\x1faone.", b"00\x1fasix."])
        for reason in ["many.toml: record 2 at byte 66: ", "(byte 88, line 5, column 12)",
                       "245 $a: a record can have this field only once "
                       "(byte 107, line 7, column 8)",
                       'there is no workform "Boks"',
                       '008/35-37: "xx1" is not a code of Language; ']:
            self.assertIn(reason, err)
        self.assertEqual(err.count("date 1 is blank"), 2)
        self.assertEqual(err.count("\n"), 7)
        lines = text.splitlines(keepends=True)
        self.assertEqual(rejects.read_bytes().decode(), "".join(lines[:1] + lines[3:11]))

    def test_what_is_kept_of_several_files_has_the_workform_of_each(self):
        first = self.path("first.toml", b'workform = "1"\n[[record]]\nlanguage = "xx1"\n')
        second = self.path("second.toml", b'workform = "2"\n[[record]]\nlanguage = "xx2"\n'
                           b'[[record]]\nworkform = "3"\nlanguage = "xx3"\n')
        rejects = self.path("rejects.toml")
        self.made("catalog", first, second, "--rejects", rejects, status=1)
        self.assertEqual(
            rejects.read_bytes(),
            b'workform = "1"\n[[record]]\nlanguage = "xx1"\n[[record]]\nworkform = "2"\n'
            b'language = "xx2"\n[[record]]\nworkform = "3"\nlanguage = "xx3"\n')

    def test_standard_input_and_what_all_records_get(self):
        toml = b'[[record]]\n245a = "A"\n[[record]]\n245a = "B"\n040a = "Own"\n'
        out, _ = self.made("catalog", "-", "-w", "1", "-s", "040a=XyZ", stdin=toml)
        for record in records_of(out):
            self.assertEqual(self.field(record, b"040"), [b"  \x1faXyZ\x1fbeng\x1ferda"])
        _, err = self.made("catalog", "-", stdin=toml, status=1)
        self.assertIn("no workform is named", err)

    def test_a_user_s_workform_of_one_process_is_used_in_the_next(self):
        self.made("workforms", "save", "Our book", "--from", BOOK, "--set", "040a=XyZ")
        record, _ = self.made("new", "-w", "Our book", "-s", "245a=T")
        self.assertEqual(self.field(record, b"040"), [b"  \x1faXyZ\x1fbeng\x1ferda"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
