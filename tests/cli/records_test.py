#!/usr/bin/env python3
"""The records that quillory keeps: added, listed, shown, exported and deleted.

usage: records_test.py QUILLORY SAMPLES_FOLDER
"""
import json
import os
import signal
import sqlite3
import subprocess
import sys
import time
import unittest

from support import QUILLORY, SAMPLES, Cli, records_of, run

SAMPLE_COUNT = 24


class Records(Cli):
    def records(self, *arguments, stdin=b"", status=0):
        result, out, err = run("records", *arguments, stdin=stdin)
        self.assertEqual(result, status, err)
        return out, err

    def listed(self, *options, status=0):
        out, _ = self.records("list", "--format", "jsonl", *options, status=status)
        return [json.loads(line) for line in out.splitlines()]

    def ids(self, *options, status=0):
        return [record["id"] for record in self.listed(*options, status=status)]


class Roads(Records):
    def test_what_goes_in_comes_out_byte_for_byte(self):
        utf8 = self.convert(SAMPLES, "utf8.mrc")
        marc8 = self.convert(utf8, "marc8.mrc", "--to-charset", "marc8")
        mrk = self.convert(utf8, "utf8.mrk")
        _, err = self.records("list")
        self.assertEqual(
            err, "quillory: the store has no records; records add FILE adds those of a file\n")
        _, err = self.records("add", utf8, marc8)
        self.assertEqual(
            err, "quillory: 48 records added, IDs 1 to 48\n"
            "quillory: 24 of them have a control number that an earlier record of the store has, "
            "such as zs0001 (ID 25); records list --control-number lists all records of a number\n")
        self.records("add", "-q", stdin=mrk.read_bytes())
        both = utf8.read_bytes() + marc8.read_bytes()
        self.assertEqual(self.records("export")[0], both + utf8.read_bytes())
        one = records_of(both)
        self.assertEqual(self.records("export", 30, 2)[0], one[29] + one[1])
        self.assertEqual(self.records("export", "--to", "mrk", *range(49, 73))[0],
                         mrk.read_bytes())
        out = self.path("out.mrc")
        self.records("export", "-o", out, "--to-charset", "utf8", *range(25, 49))
        self.assertEqual(out.read_bytes(), utf8.read_bytes())

    def test_lists_and_searches(self):
        self.records("add", SAMPLES)
        everything = self.listed()
        self.assertEqual([record["id"] for record in everything], list(range(1, 25)))
        swann = everything[1]
        self.assertEqual((swann["control_number"], swann["type"], swann["title"]),
                         ("zs0002", "am", "Du côté de chez Swann"))
        self.assertRegex(swann["added"], r"^20\d\d-\d\d-\d\dT\d\d:\d\d:\d\dZ$")
        self.assertEqual(self.ids("--title", "DU COTE"), [2])
        self.assertEqual(self.ids("--control-number", "zs0003"), [3])
        self.assertEqual(self.ids("--after", "20", "--limit", "2"), [21, 22])
        self.assertEqual(self.ids("--title", "no such title", status=1), [])
        out, _ = self.records("list", "--limit", "1")
        self.assertEqual(out, b"1        zs0001           am Moby Dick, or, The whale\n")

    def test_show_is_that_of_the_file(self):
        source = self.convert(SAMPLES, "a.mrc")
        self.records("add", source)
        _, shown, _ = run("show", source, "--record", "2", "--width", "60")
        self.assertEqual(self.records("show", 2, "--width", "60")[0], shown)
        out, err = self.records("show", 99, 2, status=1)
        self.assertIn("Swann", out.decode())
        self.assertEqual(err, "quillory: there is no record 99 in the store\n")

    def test_deleted_records_are_gone_and_their_ids_too(self):
        self.records("add", SAMPLES)
        _, err = self.records("delete", 24, 2, 2, status=1)
        self.assertIn("there is no record 2 in the store", err)
        self.assertIn("2 records deleted", err)
        self.records("export", 2, status=1)
        _, err = self.records("add", SAMPLES)
        self.assertIn("IDs 25 to 48", err)
        self.assertEqual(self.ids("--limit", "2"), [1, 3])

    def test_latin_1_becomes_utf_8_since_no_leader_tells_it(self):
        mrk = "=LDR  00000nam  2200000 a 4500\n=245  10$aÉcole\n".encode("latin-1")
        self.records("add", "--from", "mrk", "--from-charset", "latin1", stdin=mrk)
        self.assertEqual(self.listed()[0]["title"], "École")
        record = self.records("export")[0]
        self.assertIn("École".encode(), record)
        self.assertEqual(record[9:10], b"a")


class Faults(Records):
    def test_reading_makes_no_store(self):
        cases = [(("list",), 0, ""), (("list", "--title", "x"), 1, ""), (("export",), 0, ""),
                 (("show", 1), 1, "there is no record 1"), (("export", 1), 1, "no record 1")]
        for arguments, status, words in cases:
            out, err = self.records(*arguments, status=status)
            self.assertEqual(out, b"")
            self.assertIn(words, err)
        self.assertFalse(self.home.exists())

    def test_reading_a_store_that_can_not_be_used_fails(self):
        self.records("add", SAMPLES)
        self.folder.chmod(0o755)
        self.home.chmod(0o555)
        self.addCleanup(self.home.chmod, 0o755)
        user = {"user": 65534} if os.geteuid() == 0 else {}
        for arguments in (["list"], ["show", "1"], ["export"]):
            try:
                done = subprocess.run([QUILLORY, "records", *arguments], capture_output=True,
                                      **user)
            except PermissionError:
                self.skipTest("nobody may run the program")
            self.assertEqual((done.returncode, done.stdout), (2, b""))
            self.assertIn(b"quillory.db: ", done.stderr)
            self.assertIn(b"can't be written: Permission denied", done.stderr)

    def test_without_any_home_nothing_is_made(self):
        done = subprocess.run([os.path.abspath(QUILLORY), "records", "add"], input=b"",
                              cwd=self.folder, env={}, capture_output=True)
        self.assertEqual(done.returncode, 2)
        self.assertIn(b"set QUILLORY_HOME", done.stderr)
        self.assertEqual(list(self.folder.iterdir()), [])

    def test_numbers_that_are_none(self):
        for option in ("--limit", "--after"):
            for text in ("-1", "junk", "1x", "0x10", "", "9" * 20):
                _, err = self.records("list", f"{option}={text}", status=2)
                self.assertIn("is not a number" if text else option, err)

    def test_damage_is_named_and_kept_and_the_rest_added(self):
        good = records_of(self.convert(SAMPLES, "a.mrc").read_bytes())
        bad = b"00999" + good[1][5:]
        source = self.path("mixed.mrc", good[0] + bad + good[2])
        rejects = self.path("rejects.mrc")
        _, err = self.records("add", source, "--rejects", rejects, status=1)
        self.assertRegex(err, r"mixed.mrc: record 2 at byte \d+ \(001 zs0002\): ")
        self.assertIn(f"2 records written, 1 not (kept in {rejects})", err)
        self.assertIn("2 records added, IDs 1 to 2", err)
        self.assertEqual(rejects.read_bytes(), bad)
        self.assertEqual(self.records("export")[0], good[0] + good[2])

    def test_a_record_too_long_is_refused(self):
        mrk = b"=LDR  00000nam  2200000 a 4500\n=500  \\\\$a" + b"x" * 12000 + b"\n"
        _, err = self.records("add", "--from", "mrk", stdin=mrk, status=1)
        self.assertIn("over the 9,999 of the format", err)
        self.assertEqual(self.ids(), [])

    def test_a_damaged_record_of_the_store_does_not_end_the_work(self):
        self.records("add", SAMPLES)
        store = sqlite3.connect(self.home / "quillory.db")
        store.execute("UPDATE records SET bytes = x'303030' WHERE id = 2")
        store.commit()
        store.close()
        rejects = self.path("rejects")
        out, err = self.records("export", "--rejects", rejects, status=1)
        self.assertEqual(len(records_of(out)), SAMPLE_COUNT - 1)
        self.assertIn("quillory.db: record 2 at byte 0 (001 zs0002): ", err)
        self.assertEqual(rejects.read_bytes(), b"000")
        self.records("show", 2, status=1)

    def test_the_store_is_not_overwritten(self):
        self.records("add", SAMPLES)
        store = self.home / "quillory.db"
        before = store.read_bytes()
        for option in ("-o", "--rejects"):
            _, err = self.records("export", option, store, status=2)
            self.assertIn("would be overwritten", err)
        self.records("add", SAMPLES, "--rejects", store, status=2)
        self.assertEqual(store.read_bytes(), before)

    def test_what_is_no_store_is_named(self):
        self.home.mkdir()
        store = self.path("home/quillory.db", b"no database " * 100)
        _, err = self.records("list", status=2)
        self.assertEqual(err, f"quillory: {store}: is not a database\n")
        self.assertEqual(store.read_bytes(), b"no database " * 100)
        self.records("show", "one", status=2)
        self.records("frobnicate", status=2)

    def test_killed_while_adding_it_keeps_whole_batches(self):
        sample = records_of(self.convert(SAMPLES, "a.mrc").read_bytes())[0]
        child = subprocess.Popen([QUILLORY, "records", "add"], stdin=subprocess.PIPE)
        # A batch, some more, and no end.
        child.stdin.write(sample * 70000)
        child.stdin.flush()
        store = self.home / "quillory.db"
        deadline = time.monotonic() + 60
        while time.monotonic() < deadline and not (store.exists() and self.ids("--limit", "1")):
            time.sleep(0.01)
        child.send_signal(signal.SIGKILL)
        child.wait(60)
        child.stdin.close()
        self.assertEqual(len(self.ids()), 50000)
        self.assertEqual(self.records("export", 50000)[0], sample)
        check = sqlite3.connect(store)
        self.assertEqual(check.execute("PRAGMA integrity_check").fetchone(), ("ok",))
        check.close()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
