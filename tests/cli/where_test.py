#!/usr/bin/env python3
"""Which records: --where in all commands, `quillory find`, `quillory pick` and `quillory count`.

usage: where_test.py QUILLORY SAMPLES_FOLDER
"""
import json
import re
import subprocess
import sys
import unittest

from support import HERE, QUILLORY, SAMPLES, Cli, records_of, run

DOCUMENT = HERE.parent.parent / "docs" / "where.md"
FORMS = ["marc", "mrk", "microlif", "marcxml", "jsonl"]


class Files(Cli):
    """Tests with the samples in every form."""

    def setUp(self):
        super().setUp()
        status, out, err = run("pick", "--where", "not XXX contains '_'", SAMPLES)
        self.assertEqual((status, err), (0, ""))  # old MicroLIF does not give a "_" back
        self.samples = self.path("samples.mrk", out)

    def all_in(self, form):
        return self.convert(self.samples, f"all.{form}", "--to", form)


def numbers_in(out):
    """The numbers of the records that `find` shows, each once."""
    return sorted({int(line.split()[0]) for line in out.decode().splitlines()})


class Expressions(Files):
    def test_examples_of_the_document_run(self):
        rows = DOCUMENT.read_text().split("## Examples")[1].split("## Grammar")[0]
        examples = re.findall(r"^\| `([^`]+)` \|", rows, re.M)
        self.assertGreaterEqual(len(examples), 15)
        found = 0
        for example in examples:
            with self.subTest(example):
                status, out, err = run("find", "--where", example, "--count", SAMPLES)
                self.assertIn(status, (0, 1))
                self.assertEqual(err, "")
                self.assertEqual(int(out) > 0, status == 0)
                found += int(out) > 0
        self.assertGreaterEqual(found, 8)

    def test_form_and_character_set_make_no_difference(self):
        files = [self.samples]
        for form in FORMS:
            files.append(self.convert(self.samples, f"utf8.{form}", "--to", form,
                                      "--to-charset", "utf8"))
        for form in ("marc", "mrk"):
            files.append(self.convert(self.samples, f"marc8.{form}", "--to", form,
                                      "--to-charset", "marc8"))
        for expression in ("245 contains e and not has 856u", "XXX matches '[^ -~]'",
                           "count(650) > 1 or 008/35-37 = fre", "valid"):
            with self.subTest(expression):
                found = [numbers_in(run("find", "--where", expression, file)[1]) for file in files]
                self.assertNotEqual(found[0], [])
                for file, numbers in zip(files, found):
                    self.assertEqual(numbers, found[0], file)

    def test_faults_have_a_caret(self):
        for command in ("find", "pick", "count", "convert", "check", "show", "export", "repair"):
            with self.subTest(command):
                status, out, err = run(command, "--where", "245a containz x", SAMPLES)
                self.assertEqual((status, out), (2, b""))
                self.assertEqual(err.splitlines()[1:], ["    245a containz x", "         ^~~~~~~~"])

    def test_every_command_leaves_the_others_out(self):
        where = ("--where", "count(650) > 1")
        picked = run("pick", *where, SAMPLES)[1]
        wanted = run("convert", "--to", "mrk", stdin=picked)[1]
        self.assertEqual(run("convert", "--to", "mrk", *where, SAMPLES)[1], wanted)
        self.assertEqual(run("show", *where, SAMPLES)[1], run("show", stdin=picked)[1])
        self.assertEqual(run("repair", "-n", *where, SAMPLES)[0],
                         run("repair", "-n", stdin=picked)[0])
        checked = [json.loads(line)["control_number"] for line in
                   run("check", "--format", "jsonl", *where, SAMPLES)[1].splitlines()[:-1]]
        named = re.findall(rb"=001  (.*)", wanted)
        self.assertLessEqual({text.encode() for text in checked}, {text for text in named})

    def test_conditions_of_the_library(self):
        where = ("--where", "650a like 'whal*' and not 650v contains drama")
        status, text, err = run("find", *where, "--print-where-text")
        self.assertEqual((status, err), (0, ""))
        found = run("find", "--count", *where, SAMPLES)
        self.assertEqual(run("find", "--count", "--where-text", text.decode().strip(), SAMPLES),
                         found)
        self.assertEqual(found[0], 0)
        self.assertEqual(run("find", "--where", "valid", "--print-where-text")[:2], (2, b""))
        self.assertEqual(run("convert", "--where-text", "650x", SAMPLES)[:2], (2, b""))

    def test_the_store(self):
        self.assertEqual(run("records", "add", "--where", "has 650", SAMPLES)[0], 0)
        where = ("--where", "count(650) > 1")
        listed = run("records", "list", *where)[1]
        exported = run("records", "export", *where)[1]
        self.assertEqual(len(listed.splitlines()), len(records_of(exported)))
        self.assertGreater(len(records_of(exported)), 0)
        self.assertEqual(run("records", "show", *where)[1], run("show", stdin=exported)[1])
        self.assertEqual(run("records", "delete", *where)[0], 0)
        self.assertEqual(run("records", "list", *where)[:2], (1, b""))
        self.assertNotEqual(run("records", "list")[1], b"")
        for command in ("show", "delete"):
            status, out, err = run("records", command)
            self.assertEqual((status, out), (2, b""))
            self.assertIn("--where", err)


class Find(Cli):
    def test_hits(self):
        path = self.path("one.mrk", "=LDR  00000nam a2200000 a 4500\n=001  x1\n"
                         "=245  10$aÉtude and étude /$cby A.\n=650  \\0$aArt\n".encode())
        status, out, err = run("find", "--where", "245a contains etude and has 650", path)
        self.assertEqual((status, err), (0, ""))
        lines = [line.split(None, 3) for line in out.decode().splitlines()]
        self.assertEqual(lines, [["1", "x1", "245", "$a     Étude and étude /"],
                                 ["1", "x1", "650", "Art"]])
        found = json.loads(run("find", "--where", "245a contains etude", "--format", "jsonl",
                               path)[1])
        self.assertEqual(found["hits"], [{"place": "245 $a", "text": "Étude and étude /",
                                          "matches": ["Étude", "étude"]}])
        self.assertEqual((found["record"], found["control_number"]), (1, "x1"))

    def test_what_is_lacking_is_shown_by_the_title(self):
        status, out, _ = run("find", "--where", "not has 998", SAMPLES)
        self.assertEqual(status, 0)
        self.assertEqual(len(out.splitlines()), int(run("find", "--count", "--where",
                                                        "has 001", SAMPLES)[1]))

    def test_nothing_found_or_asked(self):
        self.assertEqual(run("find", "--where", "has 998", SAMPLES)[:2], (1, b""))
        self.assertEqual(run("find", SAMPLES)[0], 2)


class Pick(Files):
    def test_bytes_stay_in_every_form(self):
        for form in FORMS:
            with self.subTest(form):
                file = self.all_in(form)
                every = run("pick", "--where", "has 245", file)[1]
                self.assertEqual(every, file.read_bytes())
                one, others = (run("pick", "--records", "2-3", *invert, file)[1]
                               for invert in ((), ("--invert",)))
                self.assertEqual(len(one) + len(others) > len(every) - 1, True)
                back = run("convert", "--to", "mrk", stdin=one)[1]
                self.assertEqual(back.count(b"=LDR"), 2)
                self.assertIn(back, run("convert", "--to", "mrk", file)[1])
                again = run("convert", "--to", "mrk", stdin=others)[1]
                self.assertEqual(again.count(b"=LDR") + 2,
                                 run("convert", "--to", "mrk", file)[1].count(b"=LDR"))

    def test_a_number_without_a_record_is_named(self):
        self.assertEqual(run("pick", "--records", "2-999", SAMPLES)[0], 0)
        for numbers, count in (("99", 0), ("2,98-99", 1)):
            status, out, err = run("pick", "--records", numbers, SAMPLES)
            self.assertEqual((status, out.count(b"=LDR")), (1, count))
            self.assertRegex(err, "no record has the number 9[89], .*; the last one is [0-9]+\n")

    def test_files_are_joined(self):
        for form in FORMS:
            with self.subTest(form):
                file = self.all_in(form)
                out = run("pick", "--where", "has 650", "--first", "999", file, file)[1]
                twice = run("convert", "--to", "mrk", stdin=out)
                self.assertEqual(twice[0], 0, twice[2])
                once = run("convert", "--to", "mrk", "--where", "has 650", file)[1]
                self.assertEqual(twice[1], once + once)

    def test_arrays_and_roots(self):
        jsonl = self.all_in("jsonl")
        lines = jsonl.read_bytes().splitlines()
        array = self.path("array.json", b"[\n" + b",\n".join(lines) + b"\n]\n")
        picked = json.loads(run("pick", "--records", "2,4-5", array)[1])
        self.assertEqual(picked, [json.loads(lines[at]) for at in (1, 3, 4)])
        self.assertEqual(len(json.loads(run("pick", "--where", "has 001", array, array)[1])),
                         2 * len(lines))
        self.assertEqual(json.loads(run("pick", "--where", "has 998", array)[1]), [])
        xml = self.all_in("marcxml").read_bytes()
        record = re.search(rb"<record>.*?</record>", xml, re.S).group()
        root = self.path("root.xml", record.replace(
            b"<record>", b'<record xmlns="http://www.loc.gov/MARC21/slim">'))
        self.assertEqual(run("pick", "--where", "has 245", root)[1], root.read_bytes())
        self.assertEqual(run("pick", "--where", "has 245", root, root)[0], 2)
        self.assertEqual(run("pick", "--where", "has 245", jsonl, root)[0], 2)

    def test_ids(self):
        ids = re.findall(rb"=001  (.*)", SAMPLES.read_bytes())[:3]
        listed = self.path("ids", b" %s \r\n\n%s\nno-such\n" % (ids[2], ids[0]))
        status, out, err = run("pick", "--ids", listed, SAMPLES)
        self.assertEqual(status, 1)
        self.assertEqual(re.findall(rb"=001  (.*)", out), [ids[0], ids[2]])
        self.assertIn("no record has 1 of the 3 IDs: no-such", err)
        self.assertEqual(run("pick", "--ids", self.path("id", ids[1]), "--id-place", "24x",
                             SAMPLES)[0], 1)

    def test_first_and_sample(self):
        file = self.all_in("marc")
        every = records_of(file.read_bytes())
        self.assertEqual(run("pick", "--first", "2", file)[1], b"".join(every[:2]))
        for seed in ("1", "2", "3"):
            sample = records_of(run("pick", "--sample", "4", "--seed", seed, file)[1])
            places = [every.index(record) for record in sample]
            self.assertEqual((len(places), places), (4, sorted(set(places))))
            self.assertEqual(records_of(run("pick", "--sample", "4", "--seed", seed, file)[1]),
                             sample)
        self.assertEqual(run("pick", "--sample", "999", file)[1], file.read_bytes())

    def test_wrong_numbers(self):
        for numbers in ("0", "x", "5-2", "1,,2", "1-"):
            with self.subTest(numbers):
                self.assertEqual(run("pick", "--records", numbers, SAMPLES)[:2], (2, b""))
        self.assertEqual(run("pick", "--records", "1", SAMPLES, SAMPLES)[0], 2)

    def test_damage_is_named_and_left_out(self):
        file = self.all_in("marc")
        data = file.read_bytes()
        broken = self.path("broken.mrc", b"99999" + data[5:])
        status, out, err = run("pick", "--where", "has 245", broken)
        self.assertEqual((status, out), (1, b"".join(records_of(data)[1:])))
        self.assertIn("record 1 at byte 0", err)
        rejects = self.path("rejects.mrc")
        again = run("pick", "--where", "has 245", broken, "--rejects", rejects)
        self.assertEqual(again, (status, out, err))
        self.assertEqual(rejects.read_bytes() + out, broken.read_bytes())
        self.assertEqual(run("pick", broken, "-o", rejects, "--rejects", rejects)[0], 2)
        self.assertEqual(run("pick", broken, "--rejects", broken)[0], 2)


class Count(Cli):
    def test_fields_and_values(self):
        path = self.path("two.mrk", b"=LDR  00000nam a2200000 a 4500\n=001  x1\n"
                         b"=008  990101s1999    nyuab         001 0 eng d\n"
                         b"=245  10$aA$bB\n=650  \\0$aArt$aB\n=650  \\0$aC\n\n"
                         b"=LDR  00000nam a2200000 a 4500\n=001  x2\n=245  10$aArt\tx\n")
        out = json.loads(run("count", "--format", "json", "--subfields", "--indicators", path)[1])
        self.assertEqual((out["records"], out["fields"], out["subfields"]), (2, 7, 6))
        tables = {table["of"]: {row["value"]: (row["records"], row["count"])
                                for row in table["rows"]} for table in out["tables"]}
        self.assertEqual(tables["fields"], {"001": (2, 2), "008": (1, 1), "245": (2, 2),
                                            "650": (1, 2)})
        self.assertEqual(tables["subfields"]["650 $a"], (1, 3))
        self.assertEqual(tables["indicators"]["650/1 = #"], (1, 2))
        out = json.loads(run("count", "--format", "json", "--values", "008/18-21",
                             "--values", "245a, 650a", path)[1])
        codes, values = out["tables"]
        self.assertEqual([(row["value"], row["name"]) for row in codes["rows"]],
                         [("a", "Illustrations"), ("b", "Maps")])
        self.assertEqual(codes["records_without"], 1)
        self.assertEqual(values["rows"][0], {"value": "A", "records": 1, "count": 1})
        lines = run("count", "--format", "tsv", "--values", "245a", path)[1].splitlines()
        self.assertEqual([line.count(b"\t") for line in lines], [4] * 3)

    def test_formats(self):
        for name, start in (("c.tsv", "table\t"), ("c.json", "{"), ("c.html", "<!DOCTYPE html>"),
                            ("c.txt", "")):
            path = self.path(name)
            self.assertEqual(run("count", "--values", "008/35-37", "--names", SAMPLES,
                                 "-o", path)[0], 0)
            text = path.read_text()
            self.assertTrue(text.startswith(start), name)
            self.assertIn("English", text)
        page = self.path("c.html").read_text()
        self.assertIn("<svg", page)
        self.assertEqual(page.count("<tr>"), page.count("</tr>"))

    def test_top(self):
        out = run("count", "--values", "650a", "--top", "1", SAMPLES)[1].decode()
        self.assertIn("other values", out)


class Hostile(Cli):
    def test_expressions_of_any_bytes_end(self):
        for expression in ("(" * 50000, "not " * 20000, "245a matches '" + "(a*)*" * 5000 + "'",
                           "245a = " + '"' * 50001, "650" * 30000,
                           "245a like '" + "*?" * 40000 + "'",
                           "\x01\x1b[31m", "has " + "245," * 20000):
            with self.subTest(expression[:20]):
                status = run("find", "--where", expression, SAMPLES)[0]
                self.assertIn(status, (0, 1, 2))
        done = subprocess.run([QUILLORY, "find", "--where", b"245a = \xff",
                               SAMPLES], capture_output=True, timeout=60)
        self.assertEqual(done.returncode, 2)
        self.assertIn(b"0xFF", done.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
