#!/usr/bin/env python3
"""The workforms of quillory: listed, shown, saved from others, deleted, carried to another store.

usage: workforms_test.py QUILLORY SAMPLES_FOLDER
"""
import fcntl
import json
import os
import pathlib
import shutil
import sqlite3
import subprocess
import sys
import unittest

from support import QUILLORY, Cli, run

DATA = pathlib.Path(QUILLORY).parent.parent / "share" / "quillory"
BOOK = "Book (not atlas or songbook)"
OURS = "Bücher für Kinder"
NOBODY = 65534


class Workforms(Cli):
    def workforms(self, *arguments, stdin=b"", status=0):
        result, out, err = run("workforms", *arguments, stdin=stdin)
        self.assertEqual(result, status, err)
        return out, err

    def fails(self, *arguments, stdin=b""):
        out, err = self.workforms(*arguments, stdin=stdin, status=2)
        self.assertEqual(out, b"")
        return err

    def listed(self, status=0):
        out, _ = self.workforms("--format", "json", status=status)
        return {row["name"]: row for row in json.loads(out)}

    def shown(self, name):
        return json.loads(self.workforms("--format", "json", name)[0])

    def rows(self):
        store = sqlite3.connect(self.home / "quillory.db")
        rows = store.execute("SELECT name, state, crc, block FROM workforms "
                             "WHERE block IS NOT NULL ORDER BY name").fetchall()
        store.close()
        return rows

    def change_store(self, sql, *values):
        store = sqlite3.connect(self.home / "quillory.db")
        store.execute(sql, values)
        store.commit()
        store.close()

    def save_two(self):
        self.workforms("save", OURS, "--from", "Picture book", "--set", "040a=ZS")
        self.workforms("save", "save", "--from", "Serial (journal, annual or other)")


def subfields(workform, tag, key="fields"):
    field = next(field for field in workform[key] if field["tag"] == tag)
    return {subfield["code"]: subfield for subfield in field["subfields"]}


class Roads(Workforms):
    def test_a_list_and_one_of_them_without_a_store(self):
        out = self.workforms()[0].decode().splitlines()
        self.assertEqual(out[0].split(None, 1), ["1", BOOK + " " * 27 + BOOK])
        rows = self.listed()
        self.assertEqual(len(rows), len(out))
        self.assertEqual(rows["City map"]["material"], "Map")
        self.assertEqual(rows["City map"]["base"], BOOK)
        text = self.workforms("large-print BOOK", "--width", "100")[0].decode()
        self.assertLessEqual(max(map(len, text.splitlines())), 100)
        for line in ("Large-print book (workform 2)\n", "Based on  " + BOOK,
                     "23     Form of item                     d       Large print",
                     "020 ##  International Standard Book Number (priority)",
                     "        $a  International Standard Book Number (prompt, priority)",
                     "            = (large print)\n", "            Reminder: ",
                     "            Example: 020 ## $a "):
            self.assertIn(line, text)
        self.assertFalse(self.home.exists())

    def test_one_as_json_has_all_of_it(self):
        atlas = self.shown("Atlas")
        leader = atlas["control_fields"][0]
        self.assertEqual(leader["tag"], "leader")
        self.assertIn({"code": "e", "text": "Cartographic material", "status": "current"},
                      leader["elements"][2]["codes"])
        self.assertEqual([field["tag"] for field in atlas["control_fields"]],
                         ["leader", "007", "008"])
        title = subfields(atlas, "245")["a"]
        self.assertTrue(title["prompt"] and title["priority"] and title["rules"])
        self.assertNotIn("006", str(self.shown(BOOK)["control_fields"]))
        self.assertTrue(self.shown(BOOK)["other_fields"])

    def test_what_one_process_saves_the_next_uses(self):
        _, err = self.workforms("save", OURS, "--from", "Picture book", "--set", "040a=ZS", "--set",
                                "490$a=Höhe = 1", "--set", "852a=Here", "--set", "0822=")
        self.assertEqual(err, f'quillory: workform 100 "{OURS}" saved\n')
        saved, model = self.shown(OURS), self.shown("Picture book")
        self.assertEqual(subfields(saved, "040")["a"]["data"], "ZS")
        self.assertEqual(subfields(saved, "490")["a"]["data"], "Höhe = 1")
        self.assertEqual(subfields(saved, "852")["a"]["data"], "Here")
        self.assertEqual(subfields(saved, "082")["2"]["data"], "")
        for code, subfield in subfields(model, "520").items():
            self.assertEqual(subfields(saved, "520")[code], subfield)
        self.assertEqual(saved["control_fields"], model["control_fields"])
        self.assertEqual(len(saved["fields"]), len(model["fields"]) + 1)
        self.workforms("save", "Next", "--from", "100", "--set", "040b=ger")
        following = subfields(self.shown("next"), "040")
        self.assertEqual((following["a"]["data"], following["b"]["data"]), ("ZS", "ger"))
        self.assertEqual(self.shown("BUCHER FUR KINDER")["id"], 100)
        self.assertIn(f"\n100  {OURS}  ", self.workforms()[0].decode())

    def test_saving_again_needs_force_and_keeps_the_id(self):
        self.save_two()
        self.assertIn('"save" is already there as workform 101; --force',
                      self.fails("save", "save", "--from", "Map"))
        self.workforms("save", "save", "--from", "Map", "--force")
        self.assertEqual(self.listed()["save"]["id"], 101)
        self.assertEqual(self.shown("101")["material"], "Map")
        self.workforms("save", OURS, "--from", OURS, "--set", "040b=ger", "--force")
        codes = subfields(self.shown(OURS), "040")
        self.assertEqual((codes["a"]["data"], codes["b"]["data"]), ("ZS", "ger"))

    def test_deleted_all_or_none(self):
        self.save_two()
        self.assertIn("there is no workform", self.fails("delete", "save", "nothing of the kind"))
        self.assertIn("is a standard workform", self.fails("delete", "101", BOOK))
        self.assertEqual(len(self.rows()), 2)
        _, err = self.workforms("delete", "save", OURS)
        self.assertEqual(err.count(" deleted\n"), 2)
        self.assertEqual(self.rows(), [])

    def test_export_and_import_carry_the_same_blocks(self):
        self.save_two()
        before = self.rows()
        file = self.path("ours.ttm")
        self.assertIn("2 workforms exported", self.workforms("export", file)[1])
        self.assertIn('is already there as workform 100; --force', self.fails("import", file))
        self.workforms("import", file, "--force")
        self.assertEqual(self.rows(), before)
        self.workforms("delete", "101")
        self.assertIn("already there", self.fails("import", file))
        self.assertEqual(len(self.rows()), 1)
        shutil.rmtree(self.home)
        self.workforms("import", "-", stdin=file.read_bytes())
        self.assertEqual(self.rows(), before)
        self.assertEqual(self.workforms("export", "-")[0], file.read_bytes())
        one = self.workforms("export", "-", "save")[0]
        self.assertEqual(one, b"\1\0\0\0" + before[1][3])


class Faults(Workforms):
    def test_what_is_refused_says_why(self):
        cases = [
            (("pictur bok",), 'there is no workform "pictur bok"; near it: "Picture book"'),
            (("save", "x", "--from", "no such"), 'there is no workform "no such"'),
            (("save", BOOK, "--from", "1"), "is the name of a standard workform"),
            (("save", "", "--from", "1"), 'a workform needs a name'),
            (("save", "  ", "--from", "1"), 'a workform needs a name'),
            (("save", "x" * 201, "--from", "1"), "is too long; a name has at most 200 characters"),
            (("save", "日本", "--from", "1"), "can't hold all characters of"),
            (("save", "x", "--from", "1", "--set", "008a=x"),
             '"008a" is not a place in a new record'),
            (("save", "x", "--from", "1", "--set", "245=x"),
             "245: a whole field is two indicators and subfields"),
            (("save", "x", "--from", "1", "--set", "2451$a=x"), "is not a place in a new record"),
            (("save", "x", "--from", "1", "--set", "245a=日"), "can't hold all characters of"),
            (("export", "-", BOOK), "is a standard workform"),
            (("export", self.path("x.ttm"), "Map"), '"Map" is a standard workform'),
            (("export", self.path("x.ttm")), "there are no workforms of your own to export"),
            (("--format", "json", "save"), "nothing may stand between workforms and save"),
            (("import", self.path("absent")), "absent: "),
        ]
        for arguments, reason in cases:
            with self.subTest(arguments=arguments):
                self.assertIn(reason, self.fails(*arguments))
        self.assertTrue(not self.home.exists() or self.rows() == [])

    def test_names_and_control_fields_that_no_record_may_have_are_not_imported(self):
        self.workforms("save", "x" * 200, "--from", "Downloadable audiobook")
        whole = self.workforms("export", "-")[0]
        self.workforms("delete", "100")
        cases = [(b"00000nim", b"00000n\x1em", 'leader/06: "x+" has the byte 0x1E there'),
                 (b"00000nim", b"00000n\xe9m", 'leader/06: "x+" has the byte 0xE9 there'),
                 (b"000000s", b"00\x1f000s", '008/02: "x+" has the byte 0x1F there'),
                 (b"m     o  h", b"m   \0 o  h", '006/04: "x+" has the byte 0x00 there'),
                 (b"cr", b"c\n", '007/01: "x+" has the byte 0x0A there'),
                 (b"\xc8" + b"x" * 200, b"\xc9" + b"x" * 201, 'the name "x+" is too long')]
        for old, new, reason in cases:
            self.assertIn(old, whole)
            err = self.fails("import", self.path("odd.ttm", whole.replace(old, new)))
            self.assertRegex(err, f'odd.ttm: workform 1: {reason}')
            self.assertEqual(self.rows(), [])

    def test_ids_that_have_run_out_are_told(self):
        self.save_two()
        one = self.workforms("export", "-", "save")[0].replace(b"\x04save", b"\x04sale")
        before = self.rows()
        self.change_store("UPDATE sqlite_sequence SET seq = 2147483647 WHERE name = 'workforms'")
        for arguments in (("save", "sale", "--from", "1"), ("import", "-")):
            self.assertIn('"sale" can\'t be saved: there is no further ID',
                          self.fails(*arguments, stdin=one))
        self.assertEqual(self.rows(), before)
        self.workforms("save", "save", "--from", "Serial (journal, annual or other)", "--force")

    def test_an_export_does_not_overwrite_the_store(self):
        self.save_two()
        before = self.rows()
        self.assertIn("would be overwritten", self.fails("export", self.home / "quillory.db"))
        self.assertEqual(self.rows(), before)

    def test_a_damaged_file_is_named_by_its_offset_and_adds_nothing(self):
        self.save_two()
        whole = self.workforms("export", "-")[0]
        self.workforms("delete", "100", "101")
        cases = [(whole[:3], r"workform 1: offset 0: unexpected end"),
                 (whole[:-1], r"workform 2: offset \d{4}: unexpected end"),
                 (whole + b"x", rf"offset {len(whole)}: bytes after the end: 1"),
                 (b"\xff\xff\xff\xff", "offset 0: this is not a file of workforms"),
                 (b"\2\0\0\0" + whole[4:] * 2, r"bytes after the end: "),
                 (b"\4\0\0\0" + whole[4:] * 2, r'workform 3: ".*" is there twice'),
                 ((DATA / "zorby.ttm").read_bytes(), "is the name of a standard workform")]
        for content, reason in cases:
            file = self.path("damaged.ttm", content)
            self.assertRegex(self.fails("import", file), "damaged.ttm: .*" + reason)
            self.assertEqual(self.rows(), [])

    def test_a_damaged_block_is_named_and_the_others_are_there(self):
        self.save_two()
        before = self.rows()
        self.change_store("UPDATE workforms SET block = substr(block, 1, 40) WHERE id = 100")
        out, err = self.workforms(status=1)
        self.assertIn("quillory.db: the block of a workform is damaged: 100", err)
        self.assertIn("\n101  save", out.decode())
        self.assertIn("the block of a workform is damaged: 100", self.fails(OURS))
        self.assertIn("the block of a workform is damaged: 100", self.fails("export", "-"))
        self.assertEqual(self.workforms("export", "-", "save")[0][4:], before[1][3])
        self.workforms("save", OURS, "--from", "Picture book", "--set", "040a=ZS", "--force")
        self.assertEqual(self.rows(), before)
        self.change_store("DROP TABLE workforms")
        self.assertIn("quillory.db: ", self.fails())

    def test_a_base_that_is_gone_is_told(self):
        self.save_two()
        whole = self.workforms("export", "-", "save")[0]
        self.workforms("delete", "save")
        orphan = whole.replace(BOOK.encode(), BOOK.encode()[::-1])
        _, err = self.workforms("import", "-", stdin=orphan)
        self.assertIn(f'its base "{BOOK[::-1]}" is not there; "{BOOK}" stands in for it', err)
        self.assertTrue(self.shown("102")["base_is_missing"])
        self.assertIn("(missing)", self.workforms("102")[0].decode())

    def test_a_lock_of_another_program_is_respected(self):
        self.save_two()
        file = self.path("ours.ttm")
        self.workforms("export", file)
        before = self.rows()
        with open(self.home / "quillory.db-locks", "r+b") as locks:
            fcntl.lockf(locks, fcntl.LOCK_EX | fcntl.LOCK_NB, 4, 4 * 101)
            for arguments in (("save", "save", "--from", "Map", "--force"),
                              ("delete", OURS, "save"), ("import", "--force", file)):
                self.assertIn('"save" is locked by another program', self.fails(*arguments))
                self.assertEqual(self.rows(), before)
        self.workforms("delete", OURS, "save")

    def test_data_files_that_lack_something(self):
        data = self.folder / "data"
        shutil.copytree(DATA, data)
        self.environment("QUILLORY_DATA", data)
        standard = (data / "zorby.ttm").read_bytes()
        self.save_two()
        before = self.rows()
        for content, reason in [(standard.replace(BOOK.encode(), BOOK.upper().encode()),
                                 f'zorby.ttm" holds no workform "{BOOK}"'),
                                (standard[:5000], r"zorby.ttm: offset \d+: unexpected end of file"),
                                (b"", r"zorby.ttm: offset 0: unexpected end of file"),
                                (None, r"zorby.ttm: can't be opened")]:
            (data / "zorby.ttm").unlink()
            if content is not None:
                (data / "zorby.ttm").write_bytes(content)
            for arguments in ((), ("save", "x", "--from", "1"), ("delete", "100")):
                self.assertRegex(self.fails(*arguments).replace("(", "").replace(")", ""),
                                 reason.replace("(", "").replace(")", ""))
        self.assertEqual(self.rows(), before)

    def test_a_home_that_can_not_be_written_still_has_the_standard_ones(self):
        self.save_two()
        self.folder.chmod(0o755)
        self.home.chmod(0o555)
        self.addCleanup(self.home.chmod, 0o755)
        user = {"user": NOBODY} if os.geteuid() == 0 else {}
        try:
            done = subprocess.run([QUILLORY, "workforms"], capture_output=True, **user)
        except PermissionError:
            self.skipTest("nobody may run the program")
        self.assertEqual(done.returncode, 0)
        self.assertIn(b"Large-print book", done.stdout)
        self.assertNotIn(OURS.encode(), done.stdout)
        self.assertIn(b"quillory.db: can't be written: Permission denied; without the workforms",
                      done.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
