#!/usr/bin/env python3
"""quillory repair: coded control fields put right, told, and nothing else touched.

usage: repair_test.py QUILLORY SAMPLES_FOLDER
"""
import json
import random
import unittest

from support import FIELD_END, RECORD_END, SAMPLES, Cli, fields_of, records_of, run

CODED = {b"006", b"007", b"008"}
GOOD = b"261121s2026    ci a          000 1 eng d"
BAD = b"261121s19x5    ci a9b  ?     000 1 FRA d"
PUT_RIGHT = b"261121s19u5    ci a|b  |     000 1 fre d"
CROATIAN = b"261121s2026    ci a          000 1 hrv d"


def record_of(fields, leader=b"nam a"):
    """An ISO 2709 record; the leader is its bytes from 05 on."""
    directory, data = b"", b""
    for tag, content in fields:
        directory += b"%s%04d%05d" % (tag, len(content) + 1, len(data))
        data += content + FIELD_END
    base = 24 + len(directory) + 1
    rest = leader + b"22" + b"%05d" % base + b" i 4500"
    body = rest + directory + FIELD_END + data + RECORD_END
    return b"%05d" % (len(body) + 5) + body


def book(field008, *fields):
    return record_of([(b"001", b"id"), *fields, (b"008", field008), (b"245", b"10\x1faTitle")])


class Repair(Cli):
    def repair(self, data, *options, status=0):
        """The records repaired, the rows of the report, and what was said."""
        source, target = self.path("in.mrc", data), self.path("out.mrc")
        report = self.path("report.jsonl")
        result, out, err = run("repair", source, "-o", target, "--report", report, *options)
        self.assertEqual((result, out), (status, b""), err)
        rows = [json.loads(line) for line in report.read_text("utf-8").splitlines()]
        return target.read_bytes(), rows, err

    def field008(self, data):
        return [content for record in records_of(data) for tag, content in fields_of(record)[1]
                if tag == b"008"]

    def test_repairs_are_counted_by_class_and_element(self):
        out, rows, err = self.repair(book(GOOD) + book(BAD))
        self.assertEqual(self.field008(out)[1], PUT_RIGHT)
        self.assertEqual(err.splitlines(), [
            "quillory: 4 repairs made in 1 of 2 records, with the first of each kind:",
            "       1  national-code  008/35-37 Language       FRA -> fre (French)",
            "       1  obsolete-form  008/07-10 Date 1         19x5 -> 19u5 (Partly unknown)",
            "       1  not-coded      008/23 Form of item      ? -> | (No attempt to code)",
            "       1  unknown-value  008/18-21 Illustrations  a9b# (Illustrations; Maps) -> "
            "a|b# (Illustrations; No attempt to code; Maps)"])
        self.assertEqual([(row["class"], row["place"], row["old"], row["new"]) for row in rows],
                         [("obsolete-form", "008/07-10", "19x5", "19u5"),
                          ("unknown-value", "008/18-21", "a9b ", "a|b "),
                          ("not-coded", "008/23", "?", "|"),
                          ("national-code", "008/35-37", "FRA", "fre")])
        language = rows[3]
        self.assertEqual((language["record"], language["control_number"], language["outcome"],
                          language["name"], language["old_text"], language["new_text"],
                          language["reason"]),
                         (2, "id", "repaired", "Language", "", "French", "ISO 639-2/T"))

    def test_each_repair_is_named(self):
        _, _, err = self.repair(book(GOOD) + book(BAD), "--each")
        self.assertIn("in.mrc: record 2 at byte 116 (001 id): 008/35-37 Language: "
                      "FRA -> fre (French) [national-code: ISO 639-2/T]\n", err)

    def test_classes_are_wanted_or_not(self):
        out, rows, _ = self.repair(book(BAD), "--only", "not-coded", "--only", "obsolete-form")
        self.assertEqual([row["class"] for row in rows], ["obsolete-form", "not-coded"])
        out, rows, _ = self.repair(book(BAD), "--skip", "unknown-value")
        self.assertEqual(self.field008(out)[0], PUT_RIGHT.replace(b"a|b", b"a9b"))
        self.assertEqual(run("repair", self.path("in.mrc", book(BAD)), "--only", "any")[0], 2)

    def test_what_the_format_allows_stays(self):
        out, rows, _ = self.repair(book(CROATIAN))
        self.assertEqual((out, rows), (book(CROATIAN), []))
        out, rows, _ = self.repair(book(CROATIAN), "--strict")
        self.assertEqual(self.field008(out)[0][35:38], b"und")
        self.assertEqual([row["class"] for row in rows], ["library"])

    def test_a_page(self):
        page = self.path("report.html")
        run("repair", "-n", self.path("in.mrc", book(BAD)), "--report", page)
        self.assertIn("<td>national-code</td>", page.read_text("utf-8"))

    def test_a_dry_run_writes_nothing_and_tells(self):
        source = self.path("in.mrc", book(BAD))
        status, out, err = run("repair", "--dry-run", source)
        self.assertEqual((status, out), (1, b""))
        self.assertIn("4 repairs to be made in 1 of 1 record", err)
        self.assertEqual(run("repair", "-n", "-q", self.path("good.mrc", book(GOOD))), (0, b"", ""))
        self.assertEqual(run("repair", "-n", source, "-o", self.path("out.mrc"))[0], 2)
        self.assertFalse(self.path("out.mrc").exists())

    def test_lengths_and_what_is_left(self):
        fields = [(b"006", b"?x"), (b"007", b"co")]
        out, rows, err = self.repair(book(GOOD[:38], *fields), status=1)
        written = dict(fields_of(records_of(out)[0])[1])
        self.assertEqual(written[b"008"], GOOD[:38] + b"||")
        self.assertEqual(written[b"007"], b"co |||||||||||")
        self.assertEqual(written[b"006"], b"?x")
        self.assertEqual({(row["outcome"], row["place"]) for row in rows if not row["name"]},
                         {("length", "008"), ("length", "007"), ("left", "006")})
        self.assertIn("length               008  38 bytes, the format has 40", err)
        _, _, err = self.repair(book(GOOD).replace(b"nam", b"n!m"), status=1)
        self.assertIn("leader/06 is not a type of record", err)

    def test_other_formats_pass_through(self):
        authority = record_of([(b"001", b"id"), (b"008", BAD), (b"100", b"1 \x1faName")], b"nz  a")
        out, rows, _ = self.repair(authority)
        self.assertEqual((out, rows), (authority, []))

    def test_damage_is_kept_and_named(self):
        good = book(BAD)
        rejects = self.path("rejects")
        damaged = b"99999" + good[5:]
        out, rows, err = self.repair(good + damaged + good, "--rejects", rejects, status=1)
        self.assertEqual(len(records_of(out)), 2)
        self.assertEqual(rejects.read_bytes(), damaged)
        self.assertEqual(len(rows), 8)
        self.assertEqual(run("repair", "-n", self.path("empty.mrc", b""))[0], 1)
        # Bytes of any number are in the report without loss.
        _, rows, _ = self.repair(book(GOOD[:35] + b"\xe9\x00\x01" + GOOD[38:]), status=1)
        self.assertEqual([row["old"] for row in rows], ["\xe9\x00\x01"])

    def test_wrong_usage(self):
        source = self.path("in.mrc", book(BAD))
        out = self.path("out.mrc")
        for arguments in ((source, "-o", source), (source, "-o", out, "--report", out),
                          (source, "-o", out, "--report", source), (self.path("missing"),)):
            self.assertEqual(run("repair", *arguments)[0], 2, arguments)
            self.assertFalse(out.exists())
        self.assertEqual(source.read_bytes(), book(BAD))
        self.environment("QUILLORY_DATA", self.folder)
        status, _, err = run("repair", source, "-o", out)
        self.assertEqual(status, 2)
        self.assertIn("marc21-codes.tsv", err)


class AnyBytes(Cli):
    def test_a_repaired_file_needs_no_repair(self):
        dice = random.Random(26)

        def anything(size):
            return bytes(dice.choice(b"abcdefhijmnopqrsuvxz |0129-?\x01\xe9") for _ in range(size))

        records = [(anything(1) + bytes([dice.choice(b"acdefgijkmoprt")]) + anything(2) + b"a",
                    [(b"001", b"%d" % number), (b"006", anything(dice.choice([18, 18, 3, 20]))),
                     (b"007", anything(dice.choice([2, 9, 14, 23]))), (b"008", anything(40)),
                     (b"245", b"10\x1fa" + b"\xc3\xa9" * dice.randrange(9))])
                   for number in range(500)]
        data = b"".join(record_of(fields, leader) for leader, fields in records)
        for strict in ([], ["--strict"]):
            source, once, twice = (self.path(name) for name in ("in", "once", "twice"))
            source.write_bytes(data)
            run("repair", "-q", "--from", "marc", source, "-o", once, *strict)
            report = self.path("report.jsonl")
            run("repair", "-q", "--from", "marc", once, "-o", twice, "--report", report, *strict)
            self.assertEqual(twice.read_bytes(), once.read_bytes())
            outcomes = {json.loads(line)["outcome"] for line in report.open(encoding="utf-8")}
            self.assertLessEqual(outcomes, {"left"})
            for before, after in zip(records_of(data), records_of(once.read_bytes()), strict=True):
                before, after = fields_of(before)[1], fields_of(after)[1]
                self.assertEqual([tag for tag, _ in before], [tag for tag, _ in after])
                self.assertEqual([field for field in before if field[0] not in CODED],
                                 [field for field in after if field[0] not in CODED])

    def test_the_sample_records_in_every_form(self):
        for form in ("marc", "mrk"):
            once = self.path("once." + form)
            status, out, err = run("repair", SAMPLES, "-o", once, "--to", form)
            self.assertEqual((status, out), (0, b""), err)
            self.assertEqual(run("repair", "-n", "-q", once)[0], 0)


if __name__ == "__main__":
    unittest.main(argv=[__file__])
