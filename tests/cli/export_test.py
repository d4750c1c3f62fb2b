#!/usr/bin/env python3
"""Records on their way out: checked, with their copies, and stopped where they must not leave.

usage: export_test.py QUILLORY SAMPLES_FOLDER
"""
import json
import re
import shutil
import subprocess
import sys
import unittest

from support import DELIMITER, HERE, SAMPLES, Cli, dump, fields_of, records_of, run

TSV = ("001\tCall number\tBar code\tPrice\n"
       "zs0002\tFIC PRO\t3002\t9,90 €\n"
       "zs0001\tFIC MEL\t3001\t$12.50\n"
       "zs0001\tFIC MEL c.2\t3000\t\n").encode()


def holdings_of(record, tags=(b"852", b"949", b"961")):
    """Such as "852  $hA$p7", one a field."""
    return [(tag + content).replace(DELIMITER, b"$").decode()
            for tag, content in fields_of(record)[1] if tag in tags]


class Export(Cli):
    def setUp(self):
        super().setUp()
        self.utf8 = self.convert(SAMPLES, "utf8.mrc")
        self.records = records_of(self.utf8.read_bytes())

    def export(self, *arguments, stdin=b"", status=0):
        result, out, err = run("export", *arguments, stdin=stdin)
        self.assertEqual(result, status, err)
        return out, err

    def with_852(self, *fields):
        """The first sample record with these fields, as "852  $hA", at its end."""
        mrk = self.convert(self.utf8, "a.mrk").read_bytes().split(b"\n\n")[0] + b"\n"
        for field in fields:
            mrk += f"={field[:3]}  {field[3:5].replace(' ', chr(92))}{field[5:]}\n".encode()
        return self.convert(self.path("b.mrk", mrk), "b.mrc")


class Roads(Export):
    def test_sound_records_leave_byte_for_byte(self):
        out, err = self.export(self.utf8)
        self.assertEqual((out, err), (self.utf8.read_bytes(), ""))
        mrk = self.convert(self.utf8, "whole.mrk")
        self.assertEqual(self.export(self.utf8, "--to", "mrk")[0], mrk.read_bytes())

    def test_what_must_stay_is_named_with_its_findings_and_kept(self):
        rejects = self.path("rejects.mrc")
        out, err = self.export("--policy", "custom", "--rejects", rejects,
                               stdin=self.utf8.read_bytes(), status=1)
        stopped = re.findall(r"^quillory: .*record (\d+) at byte \d+ \(001 zs\d+\): not written:$",
                             err, re.MULTILINE)
        numbers = [int(number) - 1 for number in stopped]
        self.assertGreater(len(numbers), 5)
        self.assertEqual(rejects.read_bytes(), b"".join(self.records[n] for n in numbers))
        self.assertEqual(records_of(out),
                         [r for n, r in enumerate(self.records) if n not in numbers])
        self.assertIn("    E: no holdings [852]\n", err)
        stayed = len(numbers)
        self.assertRegex(err, rf"{24 - stayed} records? written, {stayed} not \(kept in")
        quiet = self.export("-q", "--policy", "custom", self.utf8, status=1)[1]
        self.assertEqual(quiet.count("not written:"), len(numbers))

    def test_the_policy_decides(self):
        title = re.compile(rb"=245.*\n")
        mrk = title.sub(b"", self.convert(self.utf8, "a.mrk").read_bytes(), count=1)
        source = self.path("untitled.mrk", mrk)
        _, err = self.export(source, "--policy", "basic", status=1)
        self.assertIn("record 1 at byte 0 (001 zs0001): not written:\n    E: ", err)
        self.assertIn("23 records written, 1 not", err)
        out, err = self.export(self.utf8, "--set", "NoHoldings=1")
        self.assertEqual(out, self.utf8.read_bytes())
        self.assertIn("(001 zs0003): written with warnings:\n    W: no holdings", err)

    def test_damage_does_not_end_the_work(self):
        bad = b"00999" + self.records[1][5:]
        source = self.path("mixed.mrc", self.records[0] + bad + self.records[2])
        rejects = self.path("rejects.mrc")
        out, err = self.export(source, "--rejects", rejects, status=1)
        self.assertEqual(out, self.records[0] + self.records[2])
        self.assertEqual(rejects.read_bytes(), bad)
        self.assertIn("2 records written, 1 not", err)

    def test_records_are_what_their_leader_says(self):
        def marc(label, title):
            """A record of one field, by hand; the title begins at byte 41."""
            field = b"10\x1fa" + title + b"\x1e"
            body = b"245%04d%05d\x1e" % (len(field), 0) + field + b"\x1d"
            return b"%05dnam %s2200037 i 4500" % (24 + len(body), label) + body

        cases = [
            (b"a", b"Caf\xe2e", b" ", "leader/09: the record says UTF-8, its bytes are MARC-8"),
            (b" ", b"Caf\xc3\xa9", b"a", "leader/09: the record says MARC-8, its bytes are UTF-8"),
            (b" ", b"Caf\xe2e", b" ", ""),
            (b"a", b"Caf\xc3\xa9", b"a", ""),
            (b"a", b"Cafe", b"a", ""),
            (b"a", b"Caf\xc3\xa9 \xc3x", None,
             "245: byte 0xC3 is not UTF-8; the record is not written (byte 47)"),
        ]
        for label, title, left, message in cases:
            record = marc(label, title)
            for to in ([], ["--to-charset", "utf8"]):
                rejects = self.path("rejects.mrc")
                out, err = self.export("--rejects", rejects, *to, stdin=record,
                                       status=0 if left else 1)
                self.assertIn(message, err)
                if left is None:
                    self.assertEqual((out, rejects.read_bytes()), (b"", record))
                elif not to:
                    self.assertEqual((out, err == ""), (marc(left, title), message == ""))


class Holdings(Export):
    def test_a_file_gives_the_copies_in_every_systems_form(self):
        tsv = self.path("h.tsv", TSV)
        cases = {
            "Basic circulation": ["852  $hFIC MEL$p3001$9$12.50", "852  $hFIC MEL c.2$p3000"],
            "Dynix": ["949__$b3001$dFIC MEL$p$12.50", "949__$b3000$dFIC MEL c.2"],
            "13": ["852  $hFIC MEL$p3001$9$12.50", "852  $hFIC MEL c.2$p3000"],
        }
        for system, fields in cases.items():
            out, _ = self.export(self.utf8, "--holdings", tsv, "--holdings-type", system)
            self.assertEqual(holdings_of(records_of(out)[0]), [f.replace("_", " ") for f in fields])
            self.assertEqual(records_of(out)[2:], self.records[2:])

    def test_json_lines_and_record_numbers_say_the_same(self):
        lines = TSV.decode().splitlines()
        names = lines[0].split("\t")
        rows = [dict(zip(names, line.split("\t"))) for line in lines[1:]]
        numbers = [{"record": int(row.pop("001")[2:]), **row} for row in rows]
        for number in numbers:
            number["Bar code"] = int(number["Bar code"])
        expected = self.export(self.utf8, "--holdings-type", "1", "--holdings",
                               self.path("h.tsv", TSV))[0]
        jsonl = "\n".join(json.dumps(row) for row in numbers).encode()
        for source, path in ((self.utf8, self.path("h.jsonl", jsonl)), ("-", "")):
            if path:
                out, _ = self.export(source, "--holdings-type", "1", "--holdings", path)
            else:
                out, _ = self.export(self.utf8, "--holdings-type", "1", "--holdings", "-",
                                     stdin=jsonl)
            self.assertEqual(out, expected)

    def test_other_tools_read_what_was_exported(self):
        tsv = self.path("h.tsv", TSV)
        for charset, form in (("utf8", "utf8"), ("marc8", "raw")):
            target = self.path(charset + ".out.mrc")
            self.export(self.utf8, "-o", target, "--to-charset", charset, "--holdings", tsv,
                        "--holdings-type", "Alexandria")
            text = self.export(target, "--to", "mrk", "--to-charset", "utf8")[0].decode()
            self.assertIn("=852  \\\\$hFIC PRO$p3002$99,90 €\n", text)
            written = target.read_bytes()
            self.assertEqual(len(records_of(written)), 24)
            if shutil.which("yaz-marcdump"):
                done = subprocess.run(["yaz-marcdump", "-o", "marc", target], capture_output=True)
                self.assertEqual((dump(done.stdout), done.stderr), (dump(written), b""))
            perl = subprocess.run(["perl", "-MMARC::Record", "-e1"], capture_output=True)
            if perl.returncode == 0:
                done = subprocess.run(["perl", HERE / "marc_record_dump.pl", target, form],
                                      capture_output=True)
                self.assertEqual((done.stdout, done.stderr), (dump(written), b""))
        lif = self.export(self.utf8, "--to", "microlif", "--holdings", tsv, "--holdings-type", "1",
                          "-q", status=1)[0]
        self.assertIn(b"852  _hFIC PRO_p3002", lif)

    def test_the_records_own_copies_take_the_form_of_the_settings(self):
        run("settings", "holdings.HoldingsType", "Dynix")
        run("settings", "holdings.DynixIndicators", "1")
        self.assertEqual(run("settings", "holdings.EasyOrCustom", "Easy")[0], 0)
        source = self.with_852("949  $dA$q?$b7", "8520 $hB")
        out, _ = self.export(source)
        self.assertEqual(sorted(holdings_of(out)), ["8520 $hB", "9491 $dA$b7$q?"])
        out, _ = self.export(source, "--holdings-type", "1")
        self.assertEqual(out, source.read_bytes())
        out, _ = self.export(source, "--holdings-from", "Dynix", "--holdings-type", "Alexandria")
        self.assertEqual(sorted(holdings_of(out)), ["852  $hA$p7", "8520 $hB", "949  $q?"])

    def test_the_users_own_fields_go_by_places(self):
        source = self.with_852("852  $hold", "8534 $aother")
        tsv = self.path("h.tsv", b"001\t852$h\t852p\nzs0001\tA\t7\n")
        out, _ = self.export(source, "--holdings", tsv)
        self.assertEqual(holdings_of(out, (b"852", b"853")), ["852  $hA$p7", "8534 $aother"])

    def test_the_prefix_of_a_call_number_comes_first(self):
        tsv = self.path("h.tsv", b"001\tClass number\tCall number prefix\tBar code\n"
                        b"zs0001\t598\tREF\t77\n")
        out, _ = self.export(self.utf8, "--holdings", tsv, "--holdings-type", "2")
        self.assertEqual(holdings_of(records_of(out)[0]), ["852  $kREF$h598$p77"])

    def test_what_a_record_has_once_is_not_repeated_and_makes_no_copy(self):
        tsv = self.path("h.tsv", b"001\tCall number\tBar code\tLending policy\n"
                        b"zs0001\t598\t77\tA\nzs0001\t598\t78\tA\n")
        tags = (b"852", b"910")
        expected = ["852  $h598$p77", "852  $h598$p78", "910  $bA"]
        made, _ = self.export(self.utf8, "--holdings", tsv, "--holdings-type", "11")
        for source, target in [("11", "1"), ("1", "11")]:
            self.assertEqual(holdings_of(records_of(made)[0], tags), expected)
            made, _ = self.export(self.path("made.mrc", made), "--holdings-from", source,
                                  "--holdings-type", target)
        self.assertEqual(holdings_of(records_of(made)[0], tags), expected)


class Faults(Export):
    def test_a_value_with_the_divider_of_a_composed_subfield_is_refused(self):
        for system, value in [("13", b"A@B"), ("14", b"A|B")]:
            tsv = self.path("h.tsv", b"001\tBar code\tVendor\nzs0001\t77\t" + value + b"\n")
            _, err = self.export(self.utf8, "--holdings", tsv, "--holdings-type", system, status=2)
            self.assertIn("h.tsv: line 2: Vendor: no room for this value", err)

    def test_each_fault_of_the_holdings_is_named_and_nothing_written(self):
        cases = [
            (TSV.replace(b"Price", b"Prise"), ["--holdings-type", "1"],
             "h.tsv: line 1: \"Prise\" is neither an element nor a place in the holdings fields of "
             "Basic circulation system; perhaps Price is meant"),
            (TSV, [],
             "h.tsv: line 1: \"Call number\" is not a place in the holdings fields, such as 852$h, "
             "and no holdings system is chosen that may have such an element: 1 Basic circulation "
             "system; 2 School circulation system; "),
            (TSV, [], "; choose one with --holdings-type, or with the settings"),
            (TSV + b"\t\t1\t\n", ["--holdings-type", "1"], "h.tsv: line 5: no key (001 or record)"),
            (TSV, ["--holdings-type", "99"], "there is no holdings type 99"),
            (TSV, ["--holdings-type", "1", "--holdings-from", "x"], "there is no holdings type x"),
            (b"record\tPrice\n1\t2\n", ["--holdings-type", "1", self.utf8],
             "h.tsv: record numbers go with one file of records only"),
            (TSV, ["--set", "ZP_RC_NoHoldings=7"], "--set"),
        ]
        for text, options, message in cases:
            target = self.path("out.mrc")
            _, err = self.export(self.utf8, "--holdings", self.path("h.tsv", text), "-o", target,
                                 *options, status=2)
            self.assertIn(message, err)
            self.assertFalse(target.exists())
        _, err = self.export("--holdings", "-", "--holdings-type", "1", status=2)
        self.assertIn("can't both come from standard input", err)
        _, err = self.export(self.utf8, "--holdings", self.path("none.tsv"), status=2)
        self.assertIn("none.tsv: ", err)
        tsv = self.path("h.tsv", TSV)
        _, err = self.export(self.utf8, "--holdings", tsv, "-o", tsv, status=2)
        self.assertIn("is an input", err)
        self.assertEqual(tsv.read_bytes(), TSV)

    def test_copies_without_a_record_are_named(self):
        text = TSV + b"".join(b"no%d\tX\t1\t\n" % n for n in range(8))
        _, err = self.export(self.utf8, "-o", self.path("out.mrc"), "--holdings-type", "1",
                             "--holdings", self.path("h.tsv", text), status=1)
        self.assertIn("h.tsv: line 5: no record has 001 no0\n", err)
        self.assertIn("h.tsv: 3 more: lines without a record\n", err)

    def test_a_bar_code_of_several_copies_is_named_and_written(self):
        lines = [f"zs0001\t{f'B{i}' if i % 2 else 'A'}\tC{i}\n" for i in range(40)]
        tsv = self.path("h.tsv", "".join(["001\tBar code\t852$p\n", *lines]).encode())
        out, err = self.export(self.utf8, "--holdings", tsv, "--holdings-type", "1", "--verbose")
        self.assertEqual(out.count(b"\x1fpA\x1f") + out.count(b"\x1fpA\x1e"), 20)
        named = [int(n) for n in re.findall(r"h\.tsv: line (\d+): the copy has", err)]
        self.assertEqual(named, sorted([*range(2, 42), *range(4, 42, 2)]), err)
        self.assertIn("line 4: the copy has the bar code A, which the copy of line 2 has already",
                      err)

    def test_lines_of_records_that_are_not_asked_for_are_told_from_those_without_a_record(self):
        tsv = self.path("h.tsv", TSV + b"no\tX\t1\t\n")
        many = self.path("many.mrc", self.utf8.read_bytes() * 40)
        for source, where, status, unused in (
                (self.utf8, '001 = "zs0001"', 1, "1 line"),
                (self.utf8, '001 = "none"', 1, "3 lines"),
                (many, '001 = "none"', 1, "3 lines"), (self.utf8, '001 like "zs*"', 1, "")):
            with self.subTest(where=where):
                _, err = self.export(source, "-o", self.path("out.mrc"), "--holdings", tsv,
                                     "--holdings-type", "1", "--where", where, status=status)
                passed = f"h.tsv: {unused} not used, since --where leaves out what would take it\n"
                self.assertEqual(passed in err, bool(unused), err)
                self.assertEqual(err.count("no record has"), 1, err)
                self.assertIn("h.tsv: line 5: no record has 001 no\n", err)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
