#!/usr/bin/env python3
"""Records as MARCXML and as MARC-in-JSON: there and back, read by other tools, and damaged.

usage: forms_test.py QUILLORY SAMPLES_FOLDER
"""
import itertools
import json
import re
import shutil
import subprocess
import sys
import unittest
import xml.etree.ElementTree as ElementTree

from support import HERE, QUILLORY, SAMPLES, Cli, dump, fields_of, records_of, run

SLIM = "{http://www.loc.gov/MARC21/slim}"
FORMS = {"marcxml": "xml", "jsonl": "jsonl"}


def parts_of(content):
    """Indicators and subfields of a data field as (code, text) pairs."""
    text = content.decode()
    return text[0], text[1], [(part[0], part[1:]) for part in text[2:].split("\x1f")[1:]]


def expected(marc):
    """Leader and fields of each record, read from ISO 2709 by other means."""
    for record in records_of(marc):
        leader, fields = fields_of(record)
        yield leader.decode(), [(tag.decode(), content.decode() if tag < b"010"
                                 else parts_of(content)) for tag, content in fields]


def without_lengths(dumped):
    """Leaders without the numbers that each form and tool writes for itself."""
    return re.sub(rb"LDR\|.{5}(.{7}).{5}", rb"LDR|\1", dumped)


class LineForm(Cli):
    LEADER = b"=LDR  00000nam a2200000 i 4500\n"

    def test_a_leader_without_fields_is_told(self):
        fields = b"=001  x\n=245  10$aTitle\n"
        for text, alone, status in ((self.LEADER + b"\n" + fields, 1, 1),
                                    (self.LEADER * 3 + fields, 2, 0), (self.LEADER, 1, 0),
                                    (self.LEADER + fields + b"\n\n", 0, 0)):
            with self.subTest(text=text):
                result, out, err = run("convert", self.path("in.mrk", text), "--to", "mrk")
                self.assertEqual((result, out.count(b"=LDR")), (status, text.count(b"=LDR")))
                said = f"in.mrk: records of a leader alone, which no field follows: {alone}\n"
                self.assertEqual(said in err, alone > 0, err)


class Microlif(Cli):
    def test_what_it_cannot_carry_leaves_a_record_that_can_be_read(self):
        signs = ["_", "a", "^", "`", "{0D}", "$"]
        texts = ["".join(text) for size in range(1, 5)
                 for text in itertools.product(signs, repeat=size)]
        fields = [f"=245  {indicators}{content}" for indicators in ("10", "__", "^`")
                  for content in ["", *("$" + text for text in texts)]
                  if "$$" not in content and not content.endswith("$")]
        fields += ["=008  " + text for text in texts]
        source = self.path("in.mrk", "".join(
            f"=LDR  00000nam a2200000 i 4500\n=001  {n}\n{field}\n=300  \\\\$aX\n\n"
            for n, field in enumerate(fields)).encode())
        there = self.path("there.lif")
        _, _, said = run("convert", source, "-o", there)
        self.assertIn(f"{len(fields)} records written\n", said)
        status, out, err = run("convert", there, "--to", "mrk")
        self.assertEqual((status, err), (0, ""))
        back = [record.split("\n") for record in out.decode().rstrip("\n").split("\n\n")]
        self.assertEqual([record[1] for record in back],
                         [f"=001  {n}" for n in range(len(fields))])
        for field, record in zip(fields, back):
            self.assertEqual((len(record), record[3]), (4, "=300  \\\\$aX"), field)
            if "_" not in field and "{0D}" not in field and field[-1] not in "^`":
                self.assertEqual(record[2].replace("{dollar}", "$"), field)


class Markup(Cli):
    def setUp(self):
        super().setUp()
        self.utf8 = self.convert(SAMPLES, "utf8.mrc")
        self.marc8 = self.convert(self.utf8, "marc8.mrc", "--to-charset", "marc8")

    def written(self, form):
        return self.convert(self.utf8, "utf8." + FORMS[form])


class Roads(Markup):
    def test_there_and_back_byte_for_byte(self):
        for ending in ("xml", "marcxml", "json", "jsonl", "xml.gz", "jsonl.gz"):
            for source in (self.utf8, self.marc8):
                there = self.convert(source, "there." + ending)
                back = self.convert(there, "back.mrc")
                self.assertEqual(back.read_bytes(), self.utf8.read_bytes())
            back = self.convert(there, "back.mrc", "--to-charset", "marc8")
            self.assertEqual(back.read_bytes(), self.marc8.read_bytes())

    def test_the_store_takes_and_gives_them(self):
        for number, form in enumerate(FORMS):
            written = self.written(form)
            status, _, err = run("records", "add", written)
            self.assertEqual(status, 0, err)
            ids = [str(number * 24 + i) for i in range(1, 25)]
            self.assertEqual(run("records", "export", *ids)[1], self.utf8.read_bytes())
            self.assertEqual(run("records", "export", "--to", form, *ids)[1], written.read_bytes())

    def test_they_are_shown(self):
        for form in FORMS:
            self.assertEqual(run("show", self.written(form))[1], run("show", self.utf8)[1])

    def test_no_records_and_other_character_sets(self):
        self.assertEqual(run("convert", "--to", "jsonl", stdin=b"[]")[:2], (0, b""))
        status, out, _ = run("convert", "--to", "marcxml", stdin=b"<collection/>")
        self.assertEqual((status, list(ElementTree.fromstring(out))), (0, []))
        for form in FORMS:
            for charset in ("marc8", "latin1"):
                target = self.path("none")
                status, out, err = run("convert", self.utf8, "-o", target, "--to", form,
                                       "--to-charset", charset)
                self.assertEqual((status, out, target.exists()), (2, b"", False))
                self.assertIn("always in UTF-8", err)

    def test_a_closed_pipe_ends_the_work(self):
        source = self.path("long.mrc", self.utf8.read_bytes() * 200)
        for form in FORMS:
            child = subprocess.Popen([QUILLORY, "convert", source, "--to", form],
                                     stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            child.stdout.read(10)
            child.stdout.close()
            self.assertEqual(child.stderr.read(), b"")
            child.stderr.close()
            self.assertEqual(child.wait(60), 0)


class OtherTools(Markup):
    def test_python_reads_xml(self):
        root = ElementTree.parse(self.written("marcxml")).getroot()
        self.assertEqual(root.tag, SLIM + "collection")
        found = []
        for record in root:
            self.assertEqual(record.tag, SLIM + "record")
            fields = []
            for field in record[1:]:
                if field.tag == SLIM + "controlfield":
                    fields.append((field.get("tag"), field.text or ""))
                    continue
                self.assertEqual(field.tag, SLIM + "datafield")
                self.assertEqual({subfield.tag for subfield in field}, {SLIM + "subfield"})
                subfields = [(subfield.get("code"), subfield.text or "") for subfield in field]
                fields.append((field.get("tag"), (field.get("ind1"), field.get("ind2"), subfields)))
            self.assertEqual(record[0].tag, SLIM + "leader")
            found.append((record[0].text, fields))
        self.assertEqual(found, list(expected(self.utf8.read_bytes())))

    def test_python_reads_json(self):
        found = []
        for line in self.written("jsonl").read_bytes().splitlines():
            record = json.loads(line)
            self.assertEqual(list(record), ["leader", "fields"])
            fields = []
            for field in record["fields"]:
                [(tag, value)] = field.items()
                if not isinstance(value, str):
                    self.assertEqual(list(value), ["ind1", "ind2", "subfields"])
                    subfields = [pair for part in value["subfields"] for pair in part.items()]
                    value = value["ind1"], value["ind2"], subfields
                fields.append((tag, value))
            found.append((record["leader"], fields))
        self.assertEqual(found, list(expected(self.utf8.read_bytes())))

    @unittest.skipUnless(shutil.which("xmllint"), "no xmllint")
    def test_xmllint_finds_no_fault(self):
        done = subprocess.run(["xmllint", "--noout", self.written("marcxml")], capture_output=True)
        self.assertEqual((done.returncode, done.stderr), (0, b""))

    @unittest.skipUnless(shutil.which("yaz-marcdump"), "no yaz-marcdump")
    def test_yaz_reads_and_writes_the_same(self):
        ours = without_lengths(dump(self.utf8.read_bytes()))
        done = subprocess.run(["yaz-marcdump", "-i", "marcxml", "-o", "marc",
                               self.written("marcxml")], capture_output=True)
        self.assertEqual(without_lengths(dump(done.stdout)), ours)
        for form in ("marcxml", "json"):
            done = subprocess.run(["yaz-marcdump", "-o", form, self.utf8], capture_output=True)
            status, out, err = run("convert", self.path("theirs", done.stdout))
            self.assertEqual((status, err), (0, ""))
            self.assertEqual(out, self.utf8.read_bytes())

    def check_perl(self, form, module):
        if subprocess.run(["perl", "-M" + module, "-e", "1"], capture_output=True).returncode:
            self.skipTest("no " + module)
        done = subprocess.run(["perl", HERE / "marc_record_dump.pl", self.written(form), form],
                              capture_output=True)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertEqual(done.stdout, dump(self.utf8.read_bytes()))

    def test_marc_file_xml_reads_the_same(self):
        self.check_perl("marcxml", "MARC::File::XML")

    def test_marc_file_mij_reads_the_same(self):
        self.check_perl("jsonl", "MARC::File::MiJ")


class Damage(Markup):
    def test_a_damaged_record_in_xml_is_kept_and_passed_over(self):
        text = self.written("marcxml").read_bytes()
        start, end = (text.index(mark, 5000) for mark in (b"<record>", b"</record>"))
        end = text.index(b"</record>", start) + len(b"</record>")
        number = text.count(b"<record>", 0, start) + 1
        place = text.index(b' code="', start)
        tag = text.rindex(b"<", 0, place)
        bad = text[:place] + b" " + text[text.index(b">", place):]
        source, rejects = self.path("bad.xml", bad), self.path("rejects")
        status, out, err = run("convert", source, "--to", "marc", "--rejects", rejects)
        self.assertEqual(status, 1)
        sound = records_of(self.utf8.read_bytes())
        self.assertEqual(out, b"".join(sound[:number - 1] + sound[number:]))
        self.assertEqual(rejects.read_bytes(), bad[start:end - len(text) + len(bad)])
        line = bad.count(b"\n", 0, tag) + 1
        self.assertRegex(err, rf"bad\.xml: record {number} at byte {start} \(001 .*: \d+: a "
                         rf"subfield code that is not one character \(byte \d+, line {line}, ")

    def test_malformed_xml_ends_the_file_there(self):
        text = self.written("marcxml").read_bytes()
        cut = len(text) // 2
        for end in (b"", b"</x>", b"&none;", b"\x01"):
            rejects = self.path("rejects")
            status, out, err = run("convert", "--to", "marc", "--rejects", rejects,
                                   self.path("bad.xml", text[:cut] + end))
            self.assertEqual(status, 1)
            self.assertTrue(self.utf8.read_bytes().startswith(out))
            self.assertEqual(len(records_of(out)), text.count(b"</record>", 0, cut))
            self.assertIn("malformed XML", err)
            self.assertRegex(err, r"no further \(byte \d+, line \d+, column \d+\)")
            self.assertTrue((text[:cut] + end).endswith(rejects.read_bytes()))
            self.assertTrue(rejects.read_bytes().startswith(b"<record>"))

    def test_entities_and_files_are_not_followed(self):
        secret = self.path("secret", b"secret words")
        entities = "".join(f'<!ENTITY e{i} "{f"&e{i - 1};" * 10}">' for i in range(1, 30))
        for declarations in (f'<!ENTITY e0 "ha">{entities}', f'<!ENTITY e29 SYSTEM "{secret}">'):
            text = (f"<!DOCTYPE collection [{declarations}]><collection><record><leader>&e29;"
                    f"</leader><controlfield tag='001'>&e29;</controlfield></record></collection>")
            status, out, err = run("convert", "--to", "mrk", self.path("in.xml", text.encode()))
            self.assertEqual((status, out), (1, b""))
            self.assertIn("a document type (DOCTYPE)", err)

    def test_a_bad_line_of_json_is_one_damaged_record(self):
        lines = self.written("jsonl").read_bytes().splitlines(keepends=True)
        marc = records_of(self.utf8.read_bytes())
        for bad in (b"no JSON\n", b"{}\n", lines[0][:90] + b"\n", lines[0].replace(b"]", b"", 1),
                    lines[0].replace(b'"', b"", 7), lines[0][:-2] + b"}}}\n"):
            source = self.path("bad.jsonl", b"".join([lines[0], bad, *lines[2:]]))
            rejects = self.path("rejects")
            status, out, err = run("convert", source, "--to", "marc", "--rejects", rejects)
            self.assertEqual((status, out), (1, b"".join([marc[0], *marc[2:]])), err)
            self.assertEqual(rejects.read_bytes(), bad)
            self.assertRegex(err, rf"bad\.jsonl: record 2 at byte {len(lines[0])}[: ].*"
                             r"\(byte \d+, line 2, column \d+\)")

    def test_what_xml_cannot_hold_is_counted(self):
        mrk = b"=LDR  00000nam a2200000 a 4500\n=001  x{07}\n\n"
        source = self.path("in.mrk", mrk)
        status, out, err = run("convert", source, "--to", "marcxml")
        self.assertEqual(status, 1)
        self.assertIn(b">x&amp;#x0007;<", out)
        self.assertIn("U+0007 can't stand in XML, written as &#x0007;: 1", err)
        status, out, _ = run("convert", source, "--to", "jsonl")
        self.assertEqual((status, json.loads(out)["fields"]), (0, [{"001": "x\x07"}]))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
