"""The results of many checks, put together by `quillory report`."""
import gzip
import itertools
import json
import os
import re
import subprocess
import unittest

from support import QUILLORY, RECORD_END, SAMPLES, Cli, fields_of, records_of, run

# A delimiter without a code: such a record is refused.
DAMAGED = (b"00060nam a2200037 i 4500001000300000500000600003\x1e"
           b"x1\x1e  \x1f\x1fa\x1e\x1d")
# What stays as it is, apart from the file: what a check of all files at once gives.
SAME = [("--rows", "5000"), ("--rows", "7"), ("--rows", "0"), ("--rule", "number-repeated=error"),
        ("--skip", "control-number-repeated"), ("--only", "number-repeated,no-040")]


class Report(Cli):
    def setUp(self):
        super().setUp()
        records = records_of(self.convert(SAMPLES, "sound.mrc").read_bytes())
        self.parts = [
            self.path("a.mrc", b"".join(records[:9]) + DAMAGED),
            self.path("b.mrc", b"".join(records[4:20]) + b"stray bytes" + RECORD_END),
            self.path("c.mrc", b"".join(records[18:]) + records[0] + records[0])]

    def check(self, *files, to, options=()):
        output = self.path(to)
        status, out, err = run("check", "-q", *files, "-o", output, *options)
        self.assertLess(status, 2, err)
        self.assertEqual(out, b"")
        return status, output

    def results(self, options=()):
        return [self.check(part, to=f"{part.name}.jsonl", options=options)[1]
                for part in self.parts]

    def report(self, *arguments, **options):
        status, out, err = run("report", *arguments, **options)
        self.assertLess(status, 2, err)
        return status, out.decode(), err

    def test_page_and_lines_are_those_of_one_check(self):
        for options in SAME:
            for kind in ("html", "jsonl"):
                with self.subTest(options=options, kind=kind):
                    wanted, whole = self.check(*self.parts, to=f"whole.{kind}", options=options)
                    together = self.path(f"together.{kind}")
                    rows = options if options[0] == "--rows" else ()
                    status, _, _ = self.report(*self.results(options), "-o", together, *rows)
                    self.assertEqual(status, wanted)
                    self.assertEqual(together.read_bytes(), whole.read_bytes())

    def test_numbers_that_come_twice(self):
        status, text, _ = self.report(*self.results(), "--format", "jsonl")
        self.assertEqual(status, 1)
        found = [(row["file"].rsplit("/", 1)[1], row["record"], finding["message"])
                 for row in map(json.loads, text.splitlines())
                 for finding in row.get("findings", ())
                 if finding["rule"] == "control-number-repeated"]
        a, b = self.parts[:2]
        self.assertEqual(found[0], ("b.mrc", 1, f"record 5 of {a} has the same control number"))
        self.assertIn(("c.mrc", 1, f"record 15 of {b} has the same control number"), found)
        self.assertEqual(found[-1], ("c.mrc", 8, f"record 1 of {a} has the same control number"))
        self.assertEqual(len(found), 5 + 2 + 2)

    def test_numbers_that_are_long_or_odd(self):
        """They are told apart by all of their bytes."""
        long, odd = b"x" * 70, "\u00e9".encode()
        numbers = [b"y" * 64, long + b"1", long + b"2", odd, odd[:1] + b"\xaa", b"a: b", b"#1",
                   long + b"1", odd, b"y" * 64]
        marc = self.path("odd.mrk", b"".join(
            b"=LDR  00000nam a2200000 a 4500\n=001  %d\n=035  \\\\$a%s\n\n" % number
            for number in enumerate(numbers)))
        marc = self.convert(marc, "odd.mrc", "--lenient")
        records = records_of(marc.read_bytes())
        self.assertEqual(len(records), len(numbers))
        results = [self.check(self.path(f"{at}.mrc", record), to=f"{at}.jsonl")[1]
                   for at, record in enumerate(records)]
        _, text, _ = self.report(*results, "--format", "jsonl")
        repeated = [at for at, line in enumerate(text.splitlines())
                    if '"number-repeated"' in line]
        self.assertEqual(repeated, [7, 8, 9])

    def test_an_isbn_in_several_forms(self):
        record = b"=LDR  00000nam a2200000 a 4500\n=001  %d\n=020  \\\\$a%s\n\n"
        forms = [b"0-13-110362-8 (pbk.)", b"9780131103627", b"0131103629"]
        whole, *parts = [self.convert(self.path("i.mrk", text), f"{at}.mrc") for at, text in
                         enumerate([b"".join(record % form for form in enumerate(forms)),
                                    *(record % form for form in enumerate(forms))])]
        _, wanted = self.check(whole, to="whole.jsonl", options=("--only", "number-repeated"))
        results = [self.check(part, to=f"{part.name}.jsonl",
                              options=("--only", "number-repeated"))[1] for part in parts]
        _, text, _ = self.report(*results, "--format", "jsonl")
        repeated = [["number-repeated" in line for line in lines.splitlines()]
                    for lines in (wanted.read_text(), text)]
        self.assertEqual(repeated, [[False, True, False]] * 2)

    def test_a_file_of_unimarc_in_parts(self):
        record = (b"=LDR  00000nam a2200000 a 4500\n=001  %d\n"
                  b"=100  \\\\$a20010115d1998\\\\\\\\m\\y0frey50\\\\\\\\\\ba\n=200  1\\$aTitre\n"
                  b"=801  \\0$aFR\n\n")
        results = []
        for at in range(2):
            marc = self.convert(self.path("part.mrk", record % at + record % (at + 2)), "part.mrc")
            results.append(self.check(marc, to=f"{at}.jsonl")[1])
        whole = self.path("whole.jsonl", b"".join(file.read_bytes() for file in results))
        _, text, _ = self.report(whole, "--format", "jsonl")
        self.assertEqual([len(json.loads(line)["findings"]) for line in text.splitlines()],
                         [1, 0, 0, 0])

    def test_sums(self):
        wanted, whole, _ = run("check", *self.parts)
        whole = whole.decode()
        status, text, err = self.report(*self.results())
        self.assertEqual(status, wanted)
        summary = whole.split("\n\n", 1)[1].split("The first few", 1)[0]
        self.assertEqual(text[:len(summary)], summary)
        self.assertIn("by material", text)
        self.assertIn("by field", text)
        self.assertRegex(text, rf"\n +9 +\d+ +\d+ +1  {self.parts[0]}\n")
        self.assertIn("record 10 at byte", err)

        sums = json.loads(self.report(*self.results(), "--format", "json")[1])
        self.assertEqual(sums["records"], 9 + 16 + 6 + 2)
        self.assertEqual(sums["damaged"], 2)
        self.assertEqual(sums["records"], sum(sums[name] for name in ("ok", "warnings", "errors")))
        self.assertEqual([file["records"] for file in sums["files"]], [9, 16, 8])
        for part in ("materials", "files"):
            self.assertEqual(sum(row["records"] for row in sums[part]), sums["records"], part)
        findings = sum(row["findings"] for row in sums["rules"])
        of_fields = sum(row[severity] for row in sums["fields"]
                        for severity in ("error", "warning", "note"))
        self.assertEqual(findings, of_fields)
        name = self.path("sums.json")
        self.report(*self.results(), "-o", name)
        self.assertEqual(json.loads(name.read_text()), sums)

    def test_files_of_one_name(self):
        """Each is named with its results, and has a row and messages of its own."""
        results = []
        for part in self.parts[:2]:
            folder = self.path(part.stem)
            folder.mkdir()
            (folder / "x.mrc").write_bytes(part.read_bytes())
            results.append(self.path(f"{part.stem}.jsonl"))
            subprocess.run([QUILLORY, "check", "-q", "x.mrc", "-o", results[-1]], check=False,
                           cwd=folder, capture_output=True)
        names = [f"x.mrc in {file}" for file in results]
        _, text, err = self.report(*results)
        self.assertRegex(text, rf"\n +9 +\d+ +\d+ +1  {names[0]}\n +16 +\d+ +\d+ +1  {names[1]}\n")
        for name in names:
            self.assertIn(f"{name}: record ", err)
        _, lines, _ = self.report(*results, "--format", "jsonl")
        self.assertEqual(sorted({json.loads(line)["file"] for line in lines.splitlines()}), names)
        self.assertIn(f"record 5 of {names[0]} has the same control number", lines)
        page = self.path("page.html")
        self.report(*results, "-o", page)
        self.assertIn("2 files", page.read_text())
        _, text, _ = self.report(results[0], self.results()[1])
        self.assertRegex(text, r"1  x\.mrc\n")

    def test_weights_that_differ(self):
        """The heaviest is the weight of all findings of a rule, whichever comes first."""
        rules = self.path("rules.toml", b'[[rule]]\nid = "local"\nwhere = "has 245"\n'
                                        b'message = "a title"\n')
        options = ("--config", rules, "--only", "local", "--rule")
        results = [self.check(part, to=f"{weight}.jsonl", options=(*options, f"local={weight}"))[1]
                   for part, weight in zip(self.parts, ("note", "error", "warning"))]
        texts = {self.report(*order)[1].split("by file")[0]
                 for order in itertools.permutations(results)}
        self.assertEqual(len(texts), 1, texts)
        self.assertRegex(texts.pop(), r"\n +33  error    local ")

    def test_every_way_in(self):
        results = self.results()
        wanted = self.report(*results, "--format", "jsonl")
        packed = [self.path(f"{file.name}.gz", gzip.compress(file.read_bytes()))
                  for file in results]
        self.assertEqual(self.report(*packed, "--format", "jsonl"), wanted)
        whole = b"".join(file.read_bytes() for file in results)
        for stdin in (whole, gzip.compress(whole), whole.rstrip(b"\n")):
            self.assertEqual(self.report("-", "--format", "jsonl", stdin=stdin), wanted)
        pipe = self.path("pipe")
        os.mkfifo(pipe)
        with subprocess.Popen(["cp", results[1], pipe]) as feeder:
            self.assertEqual(self.report(results[0], pipe, results[2], "--format", "jsonl"), wanted)
            self.assertEqual(feeder.wait(), 0)
        self.assertEqual(self.report(*results, "--format", "jsonl", "--memory", "1K"), wanted)

    def test_more_pipes_than_files_may_be_open(self):
        result = self.results()[0]
        pipes = [self.path(f"pipe{at}") for at in range(30)]
        for pipe in pipes:
            os.mkfifo(pipe)
        feed = ["timeout", "60", "bash", "-c", 'for pipe; do cp "$0" "$pipe"; done', result, *pipes]
        limited = ["bash", "-c", 'ulimit -n 20; exec "$@"', "-", QUILLORY, "report", "-q", *pipes]
        with subprocess.Popen(feed) as feeder:
            done = subprocess.run([*limited, "--format", "json"], check=False, capture_output=True,
                                  timeout=120)
            self.assertLess(done.returncode, 2, done.stderr)
            self.assertEqual(json.loads(done.stdout)["records"], 30 * 9)
            self.assertEqual(feeder.wait(), 0)

    def test_checks_of_standard_input(self):
        results = []
        for part in self.parts:
            done = run("check", "-q", "--format", "jsonl", "-", stdin=part.read_bytes())
            results.append(self.path(f"{part.stem}.jsonl", done[1]))
        _, text, _ = self.report(*results, "--format", "jsonl")
        self.assertEqual({json.loads(line)["file"] for line in text.splitlines()},
                         set(map(str, results)))

    def test_status(self):
        _, notes = self.check(self.parts[1], to="notes.jsonl",
                              options=("--only", "number-repeated", "--where", "has 245"))
        self.assertEqual(self.report(notes)[0], 1)  # damage
        lines = [line for line in notes.read_bytes().splitlines(True) if b'"damaged"' not in line]
        notes.write_bytes(b"".join(lines * 2))
        self.assertEqual(self.report(notes)[0], 0)
        self.assertEqual(self.report(notes, "--fail-on", "note")[0], 1)
        self.assertEqual(self.report(stdin=b"")[0], 0)

    def test_what_is_no_result(self):
        result = self.results()[2]
        good = result.read_bytes().splitlines(True)[-1]
        self.assertIn(b'"severity":', good)
        for bad in (b"245 $a Title", b"{}", b"[]", b"null", good[:-9], good + good[:40],
                    b'{"file":"a","record":1}', good.replace(b'"severity":"', b'"severity":"un'),
                    good.replace(b'"numbers":["', b'"numbers":["020 '),
                    good.replace(b'"findings":[', b'"findings":[3,'), b"\xff\xfe",
                    good.replace(b'"offset":', b'"offset":-5,"x":'), b"[" * 100000):
            with self.subTest(bad=bad[:60]):
                file = self.path("bad.jsonl", good + b"\n" + bad + b"\n")
                page = self.path("page.html")
                page.unlink(missing_ok=True)
                status, _, err = run("report", file, "-o", page)
                self.assertEqual(status, 2)
                line = 4 if bad.startswith(good) else 3
                self.assertIn(f"{file}: line {line} is no result of `quillory check", err)
                self.assertFalse(page.exists())
        status, _, err = run("report", result, "-o", result)
        self.assertEqual(status, 2, err)
        self.assertEqual(run("report", self.path("none.jsonl"))[0], 2)

    def test_a_rule_of_a_library(self):
        rules = self.path("rules.toml", b'[[rule]]\nid = "local"\nwhere = "has 245"\n'
                                        b'message = "a title"\nwhy = "We count titles."\n')
        options = ("--config", rules)
        wanted, whole = self.check(*self.parts, to="whole.html", options=options)
        together = self.path("together.html")
        self.assertEqual(self.report(*self.results(options), "-o", together)[0], wanted)
        self.assertIn("We count titles.", together.read_text())
        self.assertEqual(together.read_bytes(), whole.read_bytes())

    def test_rules_of_a_library_in_another_order(self):
        """Rules that are found as often as each other come by name, not by when they were met."""
        numbers = [fields_of(record)[1][0][1].decode()
                   for record in records_of(self.parts[1].read_bytes())[5:8]]
        rules = self.path("rules.toml", "".join(
            f'[[rule]]\nid = "{name}"\nwhere = \'001 = "{number}"\'\nmessage = "its number"\n'
            for name, number in zip("cab", (numbers[2], numbers[1], numbers[0]))).encode())
        options = ("--config", rules, "--only", "a,b,c")
        for kind in ("html", "jsonl"):
            _, whole = self.check(*self.parts, to=f"whole.{kind}", options=options)
            together = self.path(f"together.{kind}")
            self.report(*self.results(options), "-o", together)
            self.assertEqual(together.read_bytes(), whole.read_bytes(), kind)
        _, text, _ = self.report(*self.results(options))
        self.assertEqual(re.findall(r"1  warning  (\w)  ", text), ["a", "b", "c"])
        self.assertIn(text.split("\n\n")[0], run("check", *self.parts, *options)[1].decode())

    def test_memory_is_flat(self):
        """Results of 10,000 records in 200 MB of address space."""
        def within_limit(*arguments):
            return subprocess.run(["bash", "-c", 'ulimit -v 200000; exec "$@"', "-", QUILLORY,
                                   *arguments], check=False, capture_output=True, timeout=120)

        if within_limit("--version").returncode != 0:
            self.skipTest("the program alone takes more, as under a sanitizer")
        line = self.results()[0].read_bytes().splitlines(True)[0]
        many = b"".join(line.replace(b'"001: ', b'"001: %d-' % number) for number in range(10000))
        large = self.path("large.jsonl.gz", gzip.compress(many, 1))
        done = within_limit("report", large, "--memory", "1M", "--format", "json")
        self.assertLess(done.returncode, 2, done.stderr)
        self.assertEqual(json.loads(done.stdout)["records"], 10000)


if __name__ == "__main__":
    unittest.main(argv=["report_test.py"])
