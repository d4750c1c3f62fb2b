#!/usr/bin/env python3
"""quillory edit: what its page says, every form, dry runs, reports and the store.

usage: edit_test.py QUILLORY SAMPLES_FOLDER EXAMPLES_FOLDER
"""
import json
import pathlib
import re
import shlex
import sys
import unittest

from support import SAMPLES, Cli, fields_of, records_of, run

EXAMPLES = pathlib.Path(sys.argv[3])
PAGE = EXAMPLES.parent / "docs" / "edit.md"
LEADER = "=LDR  00000nam\\\\2200000\\a\\4500\n"
OLD_BOOK = ("001 x1 / 008 240109s1913    fr            000 1 fre d / 020 __$a2246126312 / "
            "245 10$aTHE RIVER /$cby Jean Hill. / 260 __$a[S.l.] :$b[s.n.],$c1913. / "
            "300 __$a20 p. :$bill. / 650 _0$aRivers / 650 _0$aRivers / 856 40$u")
REPLACE = ("replace", "245a", "--text", "The", "--with", "A")


def mrk_of(fields):
    """A record of fields as the page writes them: "245 10$aT / 500 __$aN"."""
    lines = []
    for field in fields.split(" / "):
        tag, content = field[:3], field[4:]
        if tag < "010":
            content = content.replace(" ", "\\")
        else:
            content = content[:2].replace("_", "\\") + content[2:]
        lines.append(f"={tag}  {content}\n")
    return LEADER + "".join(lines)


class Edit(Cli):
    def edit(self, source, *arguments, name="out.mrc", status=0):
        target = self.path(name)
        result, out, err = run("edit", *arguments, source, "-o", target)
        self.assertEqual((result, out), (status, b""), err)
        return target

    def sample(self, name="in.mrc", *options):
        return self.convert(SAMPLES, name, *options)

    def test_examples_of_the_page(self):
        blocks = re.findall(r"```\n(.*?)```", PAGE.read_text("utf-8"), re.S)
        rows = [line for block in blocks for line in block.splitlines()]
        self.assertGreater(len(rows), 25)
        for row in rows:
            command, fields = row.split(" | ", 1)
            before, after = fields.split(" > ")
            with self.subTest(command=command.strip()):
                source = self.path("in.mrk", mrk_of(before.strip()).encode())
                target = self.edit(source, *shlex.split(command), name="out.mrk")
                self.assertEqual(target.read_text("utf-8").strip(), mrk_of(after.strip()).strip())

    def test_a_condition_that_checks_leaves_the_holdings_system_in_hand(self):
        source = self.path("in.mrk", mrk_of(OLD_BOOK + " / 852 __$bMain$p1").encode())
        target = self.edit(source, "move-element", "Location", "--into", "Volume", "--system", "3",
                           "--where", "valid or not valid", name="out.mrk")
        self.assertIn("$3Main", target.read_text("utf-8"))

    def test_operations_of_the_page_are_all_there_are(self):
        text = PAGE.read_text("utf-8")
        _, out, _ = run("edit", "--help")
        names = re.findall(r"^  ([a-z-]+) +[A-Z]", out.decode().split("Commands:")[1], re.M)
        self.assertGreater(len(names), 15)
        for name in names:
            self.assertIn(f"\n{name} ", text)

    def test_examples_are_stable_and_their_dry_runs_agree(self):
        source = self.path("in.mrk", mrk_of(OLD_BOOK).encode() + b"\n" +
                           self.sample("sample.mrk", "--to-charset", "utf8").read_bytes())
        for task in sorted((EXAMPLES / "tasks").glob("*.toml")):
            with self.subTest(task=task.name):
                status, out, err = run("edit", task, source, "--dry-run", "--report",
                                       self.path("dry.jsonl"))
                self.assertEqual(status, 1, err)
                self.assertIn(b"\n+ =", out)
                once = self.edit(source, task, "--report", self.path("once.jsonl"))
                self.assertEqual(self.path("dry.jsonl").read_bytes(),
                                 self.path("once.jsonl").read_bytes())
                twice = self.edit(once, task, "--report", self.path("twice.jsonl"),
                                  name="twice.mrc")
                self.assertEqual(once.read_bytes(), twice.read_bytes())
                self.assertEqual(self.path("twice.jsonl").read_bytes(), b"")

    def test_every_form(self):
        # Old MicroLIF does not give a "_" back.
        status, plain, err = run("pick", "--where", "not XXX contains '_'", SAMPLES)
        self.assertEqual(status, 0, err)
        base = self.path("base.mrk", plain)
        marc = self.edit(base, *REPLACE).read_bytes()
        for form in ("mrk", "microlif", "marcxml", "jsonl"):
            with self.subTest(form=form):
                source = self.convert(base, "in." + form, "--to", form, "--to-charset", "utf8")
                target = self.edit(source, *REPLACE, "--to", form, name="out." + form)
                back = self.convert(target, "back.mrc")
                expected = self.convert(self.path("utf8.mrc", marc), "again.mrc", "--to-charset",
                                        "utf8")
                self.assertEqual(back.read_bytes(), expected.read_bytes())

    def test_records_without_a_change_keep_their_bytes(self):
        source = self.sample()
        before = records_of(source.read_bytes())
        after = records_of(self.edit(source, *REPLACE, "--where", "245a starts 'the'").read_bytes())
        self.assertEqual(len(before), len(after))
        changed = [n for n, record in enumerate(before) if record != after[n]]
        self.assertTrue(0 < len(changed) < len(before))
        for number in changed:
            old, new = (fields_of(records[number])[1] for records in (before, after))
            self.assertEqual([tag for (tag, content), other in zip(old, new)
                              if content != other[1]], [b"245"])

    def test_the_report_names_each_change(self):
        source = self.path("in.mrk", mrk_of("001 x1 / 245 10$aThe end / 500 __$aThe").encode())
        self.edit(source, *REPLACE, "--report", self.path("r.jsonl"), name="out.mrk")
        row = json.loads(self.path("r.jsonl").read_text("utf-8"))
        self.assertEqual(row, {"file": str(source), "record": 1, "offset": 0,
                               "control_number": "x1", "operation": "replace", "place": "245 $a",
                               "occurrence": 1, "old": "The end", "new": "A end"})

    def test_a_record_that_would_be_unreadable_stays(self):
        source = self.sample()
        target = self.edit(source, "replace", "245a", "--regex", "^", "--with", "x" * 9999,
                           status=1)
        self.assertEqual(source.read_bytes(), target.read_bytes())

    def test_faults_are_said_before_anything_is_read(self):
        task = self.path("task.toml", b"[[edit]]\ndo = 'trim'\nplace = '24'\n")
        for arguments, text in (((task,), "task.toml:3:9: place: \"24\" is not a place"),
                                (("trim", "24"), "PLACE: \"24\" is not a place"),
                                (("trim", "245", "--only-when", "has"), "--only-when: expected"),
                                ((), "an operation, or the file of a task, is missing")):
            with self.subTest(text=text):
                status, out, err = run("edit", *arguments)
                self.assertEqual((status, out), (2, b""))
                self.assertIn(text, err)

    def test_the_task_is_not_overwritten(self):
        text = b"[[edit]]\ndo = 'trim'\nplace = '245'\n"
        task, source = self.path("task.toml", text), self.sample()
        for command, option in (("edit", "--output"), ("edit", "--rejects"), ("edit", "--report"),
                                ("records edit", "--report")):
            with self.subTest(command=command, option=option):
                files = [source] if command == "edit" else []
                status, _, err = run(*command.split(), task, *files, option, task)
                self.assertEqual(status, 2, err)
                self.assertIn("is an input", err)
                self.assertEqual(task.read_bytes(), text)

    def test_the_store_keeps_what_was(self):
        source = self.sample()
        run("records", "add", source)

        def export():
            return run("records", "export")[1]

        before = export()
        status, out, err = run("records", "edit", *REPLACE, "--dry-run")
        self.assertEqual((status, export()), (1, before))
        status, _, err = run("records", "edit", *REPLACE)
        self.assertEqual(status, 0, err)
        self.assertIn("made in", err)
        first = export()
        self.assertEqual(first, self.edit(source, *REPLACE).read_bytes())
        run("records", "edit", "add", "590", "1", "--text", "__$aOne")
        status, history, _ = run("records", "history", "1")
        self.assertIn(b"add\n+ =590  \\\\$aOne\n", history)
        status, _, err = run("records", "undo", "1")
        self.assertEqual((status, err), (0, "quillory: 1 record put back\n"))
        self.assertEqual(export(), first)
        self.assertEqual(run("records", "undo")[0], 0)
        self.assertEqual(export(), before)
        self.assertEqual(run("records", "undo", "1")[0], 1)


if __name__ == "__main__":
    unittest.main(argv=[__file__])
