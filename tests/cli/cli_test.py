#!/usr/bin/env python3
"""The program as people run it: files in, files out, statuses, and other tools reading what it
wrote.

usage: cli_test.py QUILLORY SAMPLES_FOLDER
"""
import gzip
import json
import os
import pathlib
import pty
import random
import resource
import re
import shutil
import signal
import subprocess
import sys
import time
import unicodedata
import unittest

from support import HERE, QUILLORY, SAMPLES, Cli, dump, records_of, run


class Roads(Cli):
    def setUp(self):
        super().setUp()
        self.utf8 = self.convert(SAMPLES, "utf8.mrc")
        self.marc8 = self.convert(self.utf8, "marc8.mrc", "--to-charset", "marc8")

    def test_the_way_there_and_back(self):
        back = self.convert(self.marc8, "back.mrc", "--to-charset", "utf8")
        self.assertEqual(back.read_bytes(), self.utf8.read_bytes())
        mrk = self.convert(self.utf8, "back.mrk")
        again = self.convert(mrk, "again.mrc")
        self.assertEqual(again.read_bytes(), self.utf8.read_bytes())
        nfd = self.convert(self.utf8, "nfd.mrc", "--to-charset", "utf8", "--normalize", "nfd")
        self.assertNotEqual(nfd.read_bytes(), self.utf8.read_bytes())
        nfc = self.convert(nfd, "nfc.mrc", "--to-charset", "utf8", "--normalize", "nfc")
        self.assertEqual(nfc.read_bytes(), self.utf8.read_bytes())

    def test_unchanged_records_go_through_byte_for_byte(self):
        for source in (self.utf8, self.marc8):
            same = self.convert(source, "same.mrc")
            self.assertEqual(same.read_bytes(), source.read_bytes())

    def test_leader_says_the_character_set(self):
        for source, label in ((self.utf8, b"a"), (self.marc8, b" ")):
            for record in records_of(source.read_bytes()):
                self.assertEqual(record[9:10], label)

    @unittest.skipUnless(shutil.which("yaz-marcdump"), "no yaz-marcdump")
    def test_yaz_reads_the_same(self):
        for source in (self.utf8, self.marc8):
            done = subprocess.run(["yaz-marcdump", "-o", "marc", source], capture_output=True)
            self.assertEqual(dump(done.stdout), dump(source.read_bytes()))
            done = subprocess.run(["yaz-marcdump", "-n", source], capture_output=True)
            self.assertEqual((done.stdout, done.stderr), (b"", b""))
        done = subprocess.run(["yaz-marcdump", "-f", "MARC-8", "-t", "UTF-8", "-o", "marc", "-l",
                               "9=97", self.marc8], capture_output=True)
        theirs = unicodedata.normalize("NFC", dump(done.stdout).decode())
        ours = dump(self.utf8.read_bytes()).decode()
        theirs = re.sub("&#x([0-9A-F]+);", lambda match: chr(int(match[1], 16)), theirs)
        leader = re.compile(r"^LDR\|.{24}$", re.MULTILINE)  # lengths differ by the normal form
        self.assertEqual(unicodedata.normalize("NFC", leader.sub("", theirs)), leader.sub("", ours))

    def test_marc_record_reads_the_same(self):
        if subprocess.run(["perl", "-MMARC::Record", "-e", "1"], capture_output=True).returncode:
            self.skipTest("no MARC::Record")
        for source, form in ((self.utf8, "utf8"), (self.marc8, "raw")):
            done = subprocess.run(["perl", HERE / "marc_record_dump.pl", source, form],
                                  capture_output=True)
            self.assertEqual((done.returncode, done.stderr), (0, b""))
            self.assertEqual(done.stdout, dump(source.read_bytes()))

    def test_microlif_carries_what_it_can(self):
        status, out, err = run("convert", self.utf8, "--to", "microlif")
        self.assertIn(status, (0, 1), err)
        text = self.path("a.lif", out)
        for record in re.findall(rb"LDR(\d{5}).*?\^`\r\n", out, re.DOTALL):
            self.assertGreater(int(record), 24)
        status, back, err = run("convert", text)
        self.assertEqual(status, 0, err)
        self.assertEqual(len(records_of(back)), len(records_of(self.utf8.read_bytes())))

    def test_show_is_readable(self):
        status, out, err = run("show", self.marc8)
        self.assertEqual(status, 0, err)
        self.assertEqual(out.decode().count("\nLDR"), len(records_of(self.marc8.read_bytes())) - 1)
        same, of_utf8 = (re.sub(rb"LDR.*", b"", text) for text in (out, run("show", self.utf8)[1]))
        self.assertEqual(same, of_utf8)
        narrow = run("show", self.utf8, "--width", "60", "--record", "1")[1].decode()
        self.assertEqual(narrow.count("LDR"), 1)
        self.assertLessEqual(max(map(len, narrow.splitlines())), 60)
        self.assertNotIn(b"\x1b", out)
        for choice, why in ([], "no record has the number 99"), (
                ["--where", "has 001"], "no record that matches has the number 99"):
            status, out, err = run("show", self.utf8, "--record", "99", *choice)
            self.assertEqual((status, out), (1, b""))
            self.assertIn(why, err)

    def test_standard_input_and_gzip(self):
        data = self.utf8.read_bytes()
        self.assertEqual(run("convert", stdin=data)[1], data)
        self.assertEqual(run("convert", "-", stdin=gzip.compress(data))[1], data)
        packed = self.convert(self.utf8, "a.mrk.gz")
        self.assertEqual(gzip.decompress(packed.read_bytes()),
                         self.convert(self.utf8, "a.mrk").read_bytes())
        self.assertEqual(run("convert", packed)[1], data)

    def test_many_files_are_open_one_after_the_other(self):
        def few_descriptors():
            resource.setrlimit(resource.RLIMIT_NOFILE, (64, 64))
        record = records_of(self.convert(self.utf8, "a.mrc").read_bytes())[0]
        self.path("one.mrc", record)
        names = [f"{number}.mrc" for number in range(5000)]
        for name in names:
            self.path(name).symlink_to("one.mrc")
        done = subprocess.run([QUILLORY, "convert", "-q", *names], cwd=self.folder,
                              preexec_fn=few_descriptors, capture_output=True, timeout=60)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertEqual(done.stdout, record * len(names))
        status, out, err = run("convert", self.path("one.mrc"), self.path("none.mrc"))
        self.assertEqual((status, out), (2, b""))
        self.assertIn("none.mrc: No such file", err)

    def test_a_named_pipe_is_opened_once(self):
        data = self.utf8.read_bytes()
        pipe = self.path("pipe")
        os.mkfifo(pipe)
        with subprocess.Popen([QUILLORY, "convert", pipe, "-o", self.path("t.mrk")]) as child:
            pipe.write_bytes(data)
            self.assertEqual(child.wait(60), 0)
        self.assertEqual(self.path("t.mrk").read_bytes(),
                         self.convert(self.utf8, "u.mrk").read_bytes())

    def test_streams_that_the_caller_has_closed(self):
        def closed(redirections, *arguments):
            command = ["sh", "-c", f'exec "$@" {redirections}', "sh", QUILLORY, *arguments]
            return subprocess.run(command, capture_output=True, timeout=60)
        target = self.path("closed.mrc")
        for redirections in ("2>&-", "<&-", "<&- 2>&-", "<&- >&- 2>&-"):
            done = closed(redirections, "convert", self.utf8, "-o", target)
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"", b""))
            self.assertEqual(target.read_bytes(), self.utf8.read_bytes())
        damaged = self.path("damaged.mrc", self.utf8.read_bytes() + b"00010")
        self.assertEqual(closed("2>&-", "convert", damaged, "-o", target).returncode, 1)
        self.assertEqual(target.read_bytes(), self.utf8.read_bytes())
        for redirections, arguments in ((">&-", [self.utf8]), ("<&-", ["-"])):
            done = closed(redirections, "convert", *arguments)
            self.assertEqual((done.returncode, done.stdout), (2, b""))
            self.assertIn(b": Bad file descriptor", done.stderr)


class StandardOutput(Cli):
    """Every command that prints fails in one way where it can't, and is quiet when nobody reads."""

    COMMANDS = (["--help"], ["--version"], ["workforms", "--help"], ["convert", SAMPLES],
                ["show", SAMPLES], ["check", SAMPLES], ["export", SAMPLES], ["repair", SAMPLES],
                ["describe", "245"], ["codes"], ["new", "-w", "1"], ["workforms"],
                ["workforms", "1"], ["settings"], ["settings", "--holdings"], ["settings", "12"],
                ["records", "list"])

    def setUp(self):
        super().setUp()
        self.assertIn(run("records", "add", SAMPLES)[0], (0, 1))

    @unittest.skipUnless(os.path.exists("/dev/full"), "no /dev/full")
    def test_a_full_disk_is_a_failure_with_a_reason(self):
        for command in self.COMMANDS:
            with self.subTest(command=command), open("/dev/full", "wb") as full:
                done = subprocess.run([QUILLORY, *command], stdin=subprocess.DEVNULL, stdout=full,
                                      stderr=subprocess.PIPE, timeout=60)
                self.assertEqual(done.returncode, 2)
                self.assertIn(b"standard output: can't be written: No space left", done.stderr)

    def test_a_closed_pipe_is_no_failure(self):
        for command in self.COMMANDS:
            with self.subTest(command=command):
                read, write = os.pipe()
                os.close(read)
                done = subprocess.run([QUILLORY, *command], stdin=subprocess.DEVNULL, stdout=write,
                                      stderr=subprocess.PIPE, timeout=60)
                os.close(write)
                self.assertIn(done.returncode, (0, 1))
                self.assertNotIn(b"standard output", done.stderr)


class Damage(Cli):
    def setUp(self):
        super().setUp()
        self.sound = records_of(self.convert(SAMPLES, "sound.mrc").read_bytes())

    def test_every_byte_is_written_or_kept(self):
        chance = random.Random(4)
        filler = b"\n\0 "  # between records, it is passed over
        for turn in range(20):
            pieces = []
            for record in self.sound:
                broken = bytearray(record)
                if chance.random() < 0.3:
                    broken[chance.randrange(len(broken))] = chance.choice(b"\x1d\x1e\x1f 0x\xff")
                pieces.append(bytes(broken) + chance.choice([b"", b"", b"\n", b"\0\0", b"text"]))
            data = b"".join(pieces)[:chance.choice([None, -7])]
            source, rejects = self.path("in.mrc", data), self.path("rejects")
            status, out, err = run("convert", source, "--rejects", rejects)
            self.assertIn(status, (0, 1), err)
            kept = rejects.read_bytes()
            self.assertEqual(sorted((out + kept).translate(None, filler)),
                             sorted(data.translate(None, filler)))
            self.assertEqual(status == 1, kept != b"", err)
            for record in self.sound:
                if data.count(record):
                    self.assertIn(record, out)

    def test_damage_is_named(self):
        first = self.sound[0]
        cases = [
            (b"", "the file is empty"),
            (b"\xff\xd8\xff\xe0 no MARC", "record 1 at byte 0: no MARC record"),
            (first + b"00010" + first[5:], "record 2 at byte %d (001 " % len(first)),
            (first[:100], "record 1 at byte 0: cut short: no record terminator (0x1D) (byte 100)"),
            (first + b"\x1d" + first, "after record 1 at byte %d: stray bytes" % len(first)),
        ]
        for data, message in cases:
            status, _, err = run("convert", self.path("in.mrc", data))
            self.assertEqual(status, 1)
            self.assertIn("in.mrc: ", err)
            self.assertIn(message, err)

    def test_many_messages_are_counted(self):
        data = b"\x1d".join(self.sound * 3)
        _, _, err = run("convert", self.path("in.mrc", data))
        self.assertLessEqual(len(err.splitlines()), 8)
        self.assertIn("%d more: stray bytes" % (len(self.sound) * 3 - 6), err)
        _, _, err = run("convert", "--verbose", self.path("in.mrc", data))
        self.assertGreaterEqual(len(err.splitlines()), len(self.sound) * 3 - 1)

    def test_lenient_reads_what_is_certain(self):
        wrong = b"00099" + self.sound[0][5:]
        status, out, err = run("convert", "--lenient", self.path("in.mrc", wrong))
        self.assertEqual((status, out), (1, self.sound[0]))
        self.assertIn("read from its terminators", err)

    def test_a_lying_leader_is_noticed(self):
        accents = next(r for r in self.sound if "é".encode() in r)
        lying = accents[:9] + b" " + accents[10:]
        status, out, err = run("convert", "--to-charset", "utf8", self.path("in.mrc", lying))
        self.assertEqual((status, out), (0, accents))
        self.assertIn("leader/09: the record says MARC-8, its bytes are UTF-8", err)
        _, forced, _ = run("convert", "--to-charset", "utf8", "--from-charset", "marc8",
                           self.path("in.mrc", lying))
        self.assertNotEqual(forced, accents)

    def test_oversize_is_refused_or_cut(self):
        mrk = b"=LDR  00000nam a2200000 i 4500\n=001  big\n=500  \\\\$a" + b"x" * 12000 + b"\n"
        source, rejects = self.path("big.mrk", mrk), self.path("rejects")
        status, out, err = run("convert", source, "--to", "marc", "--rejects", rejects)
        self.assertEqual((status, out), (1, b""))
        self.assertIn("(001 big): 500: the field has 12005 bytes, over the 9,999", err)
        self.assertEqual(rejects.read_bytes(), mrk)
        status, out, err = run("convert", source, "--to", "marc", "--oversize", "historic")
        self.assertEqual((status, len(out)), (1, 24 + 24 + 1 + 4 + 12005 + 1))
        self.assertIn("of which the directory says 9,999", err)
        self.assertEqual(run("convert", self.path("historic.mrc", out))[0], 1)
        status, out, err = run("convert", source, "--to", "marc", "--oversize", "cut")
        self.assertEqual((status, len(out)), (1, 24 + 24 + 1 + 4 + 9999 + 1))
        self.assertIn("the field has 12005 bytes, cut to the 9999 that fit", err)
        self.assertEqual(run("convert", self.path("cut.mrc", out)), (0, out, ""))


class Dictionary(Cli):
    """The data files are those of the build."""

    def say(self, *arguments):
        status, out, err = run(*arguments)
        self.assertEqual(status, 0, err)
        return out.decode()

    def test_describe(self):
        cases = [
            (["245"], "245 (Title Statement), not repeatable, required"),
            (["245", "--display", "0"], "Title Statement (245), "),
            (["245a"], "$a (Title)"),
            (["300"], "\n    Extent in $a, illustrations"),
            (["341/2"], "3  Sensory hazards present"),
            (["022l"], "ISSN-L (obsolete)"),
            (["245$a", "--display", "3"], "$a "),
            (["245/2"], "Second indicator (Nonfiling characters)"),
            (["650", "--subfields"], "$x (General subdivision)"),
            (["--search", "publication DATE"], "260c"),
            (["590", "--user-defined", "590ab"], "590 (User defined), repeatable, user-defined"),
            (["--holdings"], " 7  Dynix"),
            (["--holdings", "7"], "949 $d"),
            (["--holdings", "Dynix"], "949 $b"),
        ]
        for arguments, text in cases:
            self.assertIn(text, self.say("describe", *arguments))
        indicator = json.loads(self.say("describe", "245/2", "--format", "json", "--display", "1"))
        self.assertEqual(indicator["name"], "Nonfiling characters")
        self.assertEqual([value["value"] for value in indicator["values"]], list("0123456789"))
        for what in ("999", "245~", "245/3", "xyz", "24"):
            status, _, err = run("describe", what)
            self.assertEqual(status, 2, what)
            self.assertIn(what[:3], err)
        self.assertEqual(run("describe", "--search", "no such words")[0], 1)

    def test_settings_of_programs_that_write_at_once_are_all_kept(self):
        values = {"NextBarCode": "T1", "DynixIndicators": "12", "LWLPCallTag": "852",
                  "LWLPSubTags": "ab", "CustomAllFAndS": "852khim", "EasyOrCustom": "Custom",
                  "CustomBarCodeSubfield": "852p", "CustomCallNumberSubfields": "852kh"}
        children = [subprocess.Popen([QUILLORY, "settings", f"holdings.{key}", value])
                    for key, value in values.items()]
        children.append(subprocess.Popen([QUILLORY, "settings", "FontName", "Arial"]))
        self.assertEqual([child.wait(60) for child in children], [0] * len(children))
        for key, value in values.items():
            self.assertEqual(self.say("settings", f"holdings.{key}"), value + "\n")
        self.assertEqual(self.say("settings", "FontName"), "Arial\n")

    def test_a_policy_that_can_not_be_read_stops_the_work(self):
        self.home.mkdir()
        (self.home / "Quillory 0.INI").mkdir()
        for command in (["export", SAMPLES], ["check", SAMPLES], ["settings"], ["new", "-w", "1"]):
            status, out, err = run(*command)
            self.assertEqual((status, out), (2, b""))
            self.assertIn("the settings can't be read: it is not a file", err)

    def test_settings_are_kept(self):
        self.assertEqual(self.say("settings", "ZP_DisplayNameOrMARC"), "2\n")
        self.say("settings", "DisplayNameOrMARC", "0")
        self.assertEqual(self.say("settings", "12"), "0\n")
        self.assertIn("Title Statement (245)", self.say("describe", "245"))
        self.say("settings", "4", "Łódź é 7")
        self.assertEqual(self.say("settings", "NextSeqNo"), "Łódź é 7\n")
        self.say("settings", "holdings.EasyOrCustom", "Easy")
        self.say("settings", "holdings.HoldingsType", "Alexandria")
        self.assertIn("in force", self.say("describe", "--holdings", "14"))
        self.assertIn("Alexandria default call number", self.say("describe", "900"))
        self.assertEqual(self.say("settings", "holdings.HoldingsType"), "Alexandria\n")
        self.assertIn("164 ZP_SortSubjects", self.say("settings"))
        for arguments in (["12", "x"], ["none"], ["holdings.None"], ["4", "\u4e00"],
                          ["holdings.HoldingsType", "none"], ["holdings.EasyOrCustom", "none"]):
            self.assertEqual(run("settings", *arguments)[0], 2, arguments)

    def test_missing_and_damaged_data(self):
        data = self.folder / "data"
        data.mkdir()
        self.environment("QUILLORY_DATA", data)
        status, _, err = run("describe", "245")
        self.assertEqual(status, 2)
        self.assertRegex(err, r"^quillory: \S+/zorby.hld: can't be opened: No such file "
                              r".*QUILLORY_DATA")
        real = pathlib.Path(QUILLORY).resolve().parent / "../share/quillory"
        shutil.copy(real / "zorby.hld", data)
        whole = (real / "MARCBibl.tfm").read_bytes()
        for size in (0, 1, 100, len(whole) // 2, len(whole) - 1):
            (data / "MARCBibl.tfm").write_bytes(whole[:size])
            status, _, err = run("describe", "245")
            self.assertEqual(status, 2)
            self.assertIn("MARCBibl.tfm", err)

    def test_describe_coded_fields(self):
        cases = [
            (["008/18"], "008/18-19  Form of composition (music)"),
            (["008a/19"], "008/18-21  Illustrations (books)\n    up to 4 codes; part 302"),
            (["007c/01"], "    s  Standalone device  (valid, but not in the library's list)"),
            (["LDR/06"], "    b  Archival and manuscripts control  (obsolete since 1995)"),
            (["part", "310"], "008/33  Literary form (books)"),
            (["part 107"], "scr  Croatian  (obsolete since 2008, now hrv)"),
            (["part", "2601"], "    ad  Microfilm reel"),
            (["leader"], "leader/12-16  Base address of data"),
            (["008/32"], "was Main entry in body of entry"),
        ]
        for arguments, text in cases:
            self.assertIn(text, self.say("describe", *arguments))
        [element] = json.loads(self.say("describe", "008/35", "--format", "json"))
        codes = {code["code"]: code for code in element["codes"]}
        self.assertEqual(codes["hrv"], {"code": "hrv", "text": "Croatian", "status": "newer",
                                        "since": "2008"})
        self.assertEqual(codes["mol"]["use"], "rum")
        for what in ("008/40", "007x/01", "part 999", "leader/x", "008a/"):
            status, _, err = run("describe", what)
            self.assertEqual(status, 2, what)
            self.assertRegex(err, "positions are 00-39|no form x|such parts are 16|is not a place")

    def test_codes(self):
        lines = self.say("codes").splitlines()
        rows = [dict(zip(lines[0].split("\t"), line.split("\t"))) for line in lines[1:]]
        self.assertEqual({len(line.split("\t")) for line in lines}, {12})
        self.assertEqual({row["status"] for row in rows}, {"current", "newer", "obsolete", "local"})
        listed = [row for row in rows if row["part"] == "106" and row["list"] ==
                  "Place of publication" and row["status"] != "newer"]
        self.assertGreaterEqual(len(listed), 330)
        self.assertIn("008\tmaps\t25\t504", self.say("codes", "008e/25"))
        book = self.say("codes", "008a/23", "part 310").splitlines()
        self.assertEqual({line.split("\t")[3] for line in book[1:]}, {"304", "310"})
        combined = json.loads(self.say("codes", "part 2601", "--format", "json"))
        self.assertEqual(len(combined), 17)
        self.assertEqual([row["second_code"] for row in combined if row["code"] == "c"], ["g"])
        self.assertEqual(run("codes", "part 999")[0], 2)

    def test_show_decode(self):
        out = self.say("show", "--decode", "--width", "0", "--record", "2", SAMPLES)
        self.assertRegex(out, r"\n        \(books\)\n"
                              r"        00-05  Date entered on file  +240109  2024")
        self.assertRegex(out, r"\n        35-37  Language  +fre     French\n")
        field = "240109s1913    yu ab?" + 8 * " " + "000 1 scr "
        odd = ("=LDR  00000nam a2200000 a 4500\n=006  \n=007  \n=007  q\n=008  " +
               field.replace(" ", "\\") + "\n=245  10$aOdd\n\n").encode()
        status, out, err = run("show", "--decode", "--from", "mrk", "--width", "0", stdin=odd)
        self.assertEqual(status, 0, err)
        for text in (r"\?  +\? unknown code", r"scr +Croatian \(obsolete since 2008, now hrv\)",
                     r"39 +Missing +\? 39 bytes, the format has 40", r"00-17 +Missing",
                     r"00 +Missing",
                     r"yu# +Serbia and Montenegro \(obsolete since 2007, now rb or mo\)"):
            self.assertRegex(out.decode(), text)

        authority = (b"=LDR  00000nz  a2200000n  4500\n"
                     b"=008  790331n|\\azannaabn\\\\\\\\\\\\\\\\\\\\"
                     b"|a\\ana\\\\\\\\\\\\\n=100  1\\$aTwain, Mark\n\n")
        out = run("show", "--decode", "--width", "0", stdin=authority)[1].decode()
        self.assertRegex(out, "05-08  Not decoded +nz##  +see the format for authority data")
        self.assertNotIn("?", out)

    def test_missing_and_damaged_codes(self):
        data = self.folder / "data"
        data.mkdir()
        self.environment("QUILLORY_DATA", data)
        real = pathlib.Path(QUILLORY).resolve().parent / "../share/quillory/marc21-codes.tsv"
        whole = real.read_bytes()
        row = whole.index(b"\nleader\t") + 1
        for bad, place in ((None, ""), (b"", ""), (whole[:row] + b"leader\tx" + whole[row:], ":"),
                           (whole.replace(b"\tcurrent\t", b"\tcurious\t", 1), ":")):
            if bad is not None:
                (data / "marc21-codes.tsv").write_bytes(bad)
            for arguments in (["describe", "008/18"], ["codes"], ["show", "--decode", SAMPLES]):
                status, out, err = run(*arguments)
                self.assertEqual((status, out), (2, b""), arguments)
                self.assertRegex(err, r"marc21-codes\.tsv" + (r":\d+: " if place else ": "))

    def test_show_with_names(self):
        out = self.say("show", "--names", "--record", "2", SAMPLES)
        self.assertIn("245 10  245 (Title Statement)\n        $a (Title): Du côté", out)
        linked = self.say("show", "--names", "--record", "12", SAMPLES)
        self.assertRegex(linked, r"880 1.  \d\d\d \([A-Z]")


class Terminal(Cli):
    """What a file holds does not steer the terminal of whoever looks at it."""

    HOSTILE = "\x1b[31m\x9b2J\u202e\u2028\x07".encode()

    def on_terminal(self, *arguments):
        terminal, side = pty.openpty()
        child = subprocess.Popen([QUILLORY, *arguments], stdin=subprocess.DEVNULL, stdout=side,
                                 stderr=side)
        os.close(side)
        shown = b""
        while True:
            try:
                block = os.read(terminal, 65536)
            except OSError:  # the other side is closed
                break
            shown += block
        child.wait(60)
        os.close(terminal)
        return re.sub(rb"\x1b\[(\d+m|K)|\r", b"", shown)  # what the program itself writes

    def test_nothing_but_the_program_steers_it(self):
        mrk = (b"=LDR  00000nam a2200000 a 4500\n=001  " + self.HOSTILE + b"\n=245  10$a"
               + self.HOSTILE + b"\n=999  \\\\$" + self.HOSTILE + b"\n")
        record = self.path("r.mrk", mrk)
        self.assertEqual(run("records", "add", record)[0], 0)
        name = self.path("name\x1b[31m\x9b.mrc", b"00010")
        odd = self.path("odd\x1b[31m\x9b.mrk", mrk)
        toml = self.path("d.toml", b'[[record]]\n"' + self.HOSTILE[5:] + b'" = 1\n')
        tsv = self.path("h.tsv", b"001\t" + self.HOSTILE + b"\nx\ty\n")
        bad = self.path("bad.mrk", b"=LDR  00000nam a2200000 a 4500\n=2\x1b]5  10$a\n=\x9b\n")
        for command in (["show", record], ["show", "--names", record], ["records", "list"],
                        ["records", "show", "1"], ["check", record], ["check", odd],
                        ["find", "--where", "has 245", record],
                        ["convert", name, "-o", "/dev/null"],
                        ["convert", bad, "-o", "/dev/null"], ["catalog", toml],
                        ["export", record, "--holdings-type", "1", "--holdings", tsv],
                        ["convert", "no\x1b[31m\x9bfile"], ["count", "245a", record],
                        ["edit", "delete", "245a", record, "-n"], ["repair", bad, "-n"],
                        ["convert", record, "--to", "\x1b[31m"], ["describe", "\x1b[31m"]):
            with self.subTest(command=command[:2]):
                shown = self.on_terminal(*command).decode()
                hostile = re.findall("[\x1b\x07\x7f-\x9f\u2028-\u202e]", shown)
                self.assertEqual(hostile, [], shown)
        self.assertIn(b"<1B>[31m<9B>2J<U+202E><U+2028><07>", self.on_terminal("show", record))


class Ends(Cli):
    def test_usage_and_files_that_fail(self):
        self.assertEqual(run("--help")[0], 0)
        self.assertEqual(run("convert", "--help")[0], 0)
        self.assertIn(b"quillory ", run("--version")[1])
        sample = self.convert(SAMPLES, "a.mrc")
        before = sample.read_bytes()
        for arguments in ([], ["nothing"], ["convert", "--to", "x"], ["show", "--record", "x"],
                          ["convert", self.path("none.mrc")], ["convert", self.folder],
                          ["convert", sample, "-o", sample],
                          ["convert", sample, "--rejects", sample],
                          ["convert", sample, "-o", self.path("b"), "--rejects", self.path("b")],
                          ["convert", sample, "-o", self.path("b"), "--rejects",
                           f"{self.folder}/./b"],
                          ["convert", sample, "-o", os.path.relpath(self.path("b")), "--rejects",
                           self.path("b")],
                          ["convert", sample, "-o", "/dev/full"],
                          ["convert", sample, "-o", self.folder / "no" / "where"]):
            status, _, err = run(*arguments)
            self.assertEqual(status, 2, arguments)
            self.assertNotEqual(err, "")
        self.assertEqual(sample.read_bytes(), before)
        self.assertEqual(os.listdir(self.folder), ["a.mrc"])

    def test_a_closed_pipe_ends_the_work(self):
        data = self.convert(SAMPLES, "a.mrc").read_bytes()
        source = self.path("long.mrc", data * 200)
        for command in ("convert", "show"):
            child = subprocess.Popen([QUILLORY, command, source], stdout=subprocess.PIPE,
                                     stderr=subprocess.PIPE)
            child.stdout.read(10)
            child.stdout.close()
            self.assertEqual(child.stderr.read(), b"")
            child.stderr.close()
            self.assertEqual(child.wait(60), 0)

    def test_an_interrupted_run_leaves_nothing(self):
        data = self.convert(SAMPLES, "a.mrc").read_bytes()
        for number in (signal.SIGINT, signal.SIGTERM):
            target = self.path("out.mrc", b"old")
            child = subprocess.Popen([QUILLORY, "convert", "-o", target], stdin=subprocess.PIPE)
            child.stdin.write(data * 50)
            child.stdin.flush()
            deadline = time.monotonic() + 60
            while len(os.listdir(self.folder)) < 3 and time.monotonic() < deadline:
                time.sleep(0.01)
            child.send_signal(number)
            self.assertEqual(child.wait(60), -number)
            child.stdin.close()
            self.assertEqual(target.read_bytes(), b"old")
            self.assertEqual(sorted(os.listdir(self.folder)), ["a.mrc", "out.mrc"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
