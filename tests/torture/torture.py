"""Hard hands on the program: damage, kills, full disks, failing calls, many writers at once.

usage: torture.py QUILLORY SAMPLES_FOLDER [SHIM [SEED [MINUTES]]]

Without minutes, each kind of trouble comes a few times. SHIM is the library failing_calls. What is
promised is in docs/reliability.md; a run that breaks a promise prints its seed, by which it can be
had again.
"""
import collections
import os
import pathlib
import random
import subprocess
import sys
import time
import unittest
import unittest.mock

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "cli"))

from support import Cli, QUILLORY, SAMPLES, records_of, run  # noqa: E402

del os.environ["QUILLORY_SYNC"]  # its failures are among those that are tried

SHIM = sys.argv[3] if len(sys.argv) > 3 else ""
SEED = int(sys.argv[4]) if len(sys.argv) > 4 else 1
MINUTES = float(sys.argv[5]) if len(sys.argv) > 5 else 0
ROUNDS = 3
ENOENT, EIO, EACCES, EMFILE, ENOSPC = 2, 5, 13, 24, 28
FAILURES = {"write": (ENOSPC, EIO), "short": (0,), "read": (EIO,), "sync": (ENOSPC, EIO),
            "rename": (EACCES, ENOSPC), "open": (EMFILE, EACCES)}
FORMS = ("marc", "mrk", "microlif", "marcxml", "jsonl")
SAID_TO_BE_DONE = (0, 1)


def begin(*arguments):
    return subprocess.Popen([QUILLORY, *map(str, arguments)], stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE)


class Torture(Cli):
    def setUp(self):
        super().setUp()
        self.chance = random.Random(SEED)
        self.data = self.convert(SAMPLES, "sound.mrc").read_bytes()
        self.records = records_of(self.data)
        self.source = self.path("many.mrc", self.data * 20)
        self.end = time.monotonic() + MINUTES * 60 / self.share()

    @staticmethod
    def share():
        return sum(name.startswith("test_") for name in dir(Torture))

    def rounds(self):
        number = 0
        while number < ROUNDS or time.monotonic() < self.end:
            number += 1
            with self.subTest(seed=SEED, round=number):
                yield number

    def leftovers(self):
        return [name for name in os.listdir(self.folder) if name.startswith(".quillory-")]

    def stored(self):
        status, out, err = run("records", "export", "--quiet")
        self.assertEqual(status, 0, err)
        return records_of(out)

    def kill_in_the_middle(self, *arguments):
        """Result: the status; below 0 if the program was killed before it had ended."""
        child = begin(*arguments)
        try:
            child.communicate(timeout=self.chance.choice([0.002, 0.01, 0.03, 0.1])
                              * self.chance.random())
        except subprocess.TimeoutExpired:
            child.kill()
            child.communicate()
        return child.returncode

    # Damage.

    def mutated(self, data):
        broken = bytearray(data)
        for _ in range(self.chance.randrange(1, 8)):
            at = self.chance.randrange(len(broken))
            kind = self.chance.randrange(3)
            if kind == 0:
                broken[at] = self.chance.randrange(256)
            elif kind == 1:
                del broken[at:at + self.chance.randrange(1, 200)]
            else:
                end = at + self.chance.randrange(1, 200)
                broken[at:at] = broken[at:end]
            if not broken:
                break
        return bytes(broken)

    def test_input_is_output_and_rejects(self):
        for _ in self.rounds():
            data = self.mutated(self.data)
            source = self.path("in.mrc", data)
            status, out, err = run("convert", "--from", "marc", source, "--rejects",
                                   self.path("r"))
            self.assertIn(status, SAID_TO_BE_DONE, err)
            kept = self.path("r").read_bytes()
            if "leader 10-11 and 20-23 set" not in err:
                self.assertEqual(collections.Counter(out + kept), collections.Counter(data), err)
            self.assertEqual(status == 1, kept != b"", err)

    def test_every_form_is_read_to_its_end(self):
        whole = {form: run("convert", SAMPLES, "--to", form)[1] for form in FORMS}
        commands = (["convert", "--to", "jsonl"], ["show"], ["check"], ["repair"], ["count"],
                    ["find", "--where", "has 245"])
        for _ in self.rounds():
            form = self.chance.choice(FORMS)
            source = self.path("in", self.mutated(whole[form]))
            command = self.chance.choice(commands)
            status, _, err = run(*command, "--from", form, source)
            self.assertIn(status, SAID_TO_BE_DONE, (command, form, err))

    # Kills.

    def test_a_killed_conversion_leaves_the_old_file_or_the_new_one(self):
        new = self.source.read_bytes()
        for _ in self.rounds():
            target = self.path("out.mrc", b"old")
            status = self.kill_in_the_middle("convert", self.source, "-o", target)
            self.assertIn(target.read_bytes(), [b"old", new] if status < 0 else [new])
        self.convert(SAMPLES, "next.mrc")
        self.assertEqual(self.leftovers(), [])

    def test_a_killed_addition_adds_all_or_nothing(self):
        expected = 0
        for _ in self.rounds():
            status = self.kill_in_the_middle("records", "add", self.path("sound.mrc"))
            stored = len(self.stored())
            added = (0, len(self.records)) if status < 0 else (len(self.records),)
            self.assertIn(stored - expected, added)
            expected = stored

    def test_a_killed_edit_changes_all_or_nothing(self):
        run("records", "add", self.path("sound.mrc"))
        before = self.stored()
        for number in self.rounds():
            text = f"Note {number}"
            status = self.kill_in_the_middle("records", "edit", "add", "599", "--text",
                                             f"__$a{text}")
            after = self.stored()
            edited = sum(text.encode() in record for record in after)
            self.assertIn(edited, (0, len(before)) if status < 0 else (len(before),))
            if edited == 0:
                self.assertEqual(after, before)
            before = after

    def test_a_killed_setting_is_the_old_one_or_the_new_one(self):
        old = ""
        run("settings", "holdings.EasyOrCustom", "Easy")
        for number in self.rounds():
            new = f"T{number}"
            status = self.kill_in_the_middle("settings", "holdings.NextBarCode", new)
            old, before = run("settings", "holdings.NextBarCode")[1].decode().strip(), old
            self.assertIn(old, (before, new) if status < 0 else (new,))
            self.assertEqual(run("settings", "holdings.EasyOrCustom")[1], b"Easy\n")

    def test_a_killed_workform_is_there_or_not(self):
        for number in self.rounds():
            name = f"Killed {number}"
            status = self.kill_in_the_middle("workforms", "save", name, "--from", "1")
            shown = run("workforms", name)[0]
            self.assertIn(shown, (0, 2) if status < 0 else (0,))

    # Full disks and failing calls.

    def failing(self, plan, *arguments):
        environment = dict(os.environ, LD_PRELOAD=SHIM, FAILING_CALLS=plan)
        done = subprocess.run([QUILLORY, *map(str, arguments)], env=environment,
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=120)
        self.assertIn(done.returncode, (0, 1, 2), (plan, arguments, done.stderr))
        return done.returncode, done.stderr.decode()

    def plan(self):
        kind = self.chance.choice(list(FAILURES))
        number = self.chance.choice([1, 2, 3, self.chance.randrange(1, 60)])
        on = self.chance.choice(["", " on"])
        return f"{kind} {number} {self.chance.choice(FAILURES[kind])}{on}"

    @unittest.skipUnless(SHIM, "no library of failing calls")
    def test_status_and_files_agree_when_calls_fail(self):
        damaged = self.path("damaged.mrc", self.data + b"00010")
        for _ in self.rounds():
            target, rejects = self.path("out.mrc", b"old"), self.path("r", b"old")
            plan = self.plan()
            status, err = self.failing(plan, "convert", damaged, "-o", target, "--rejects",
                                       rejects)
            written, kept = target.read_bytes(), rejects.read_bytes()
            if plan.startswith("short"):
                self.assertIn(status, SAID_TO_BE_DONE, (plan, err))
            if status in SAID_TO_BE_DONE:
                self.assertEqual((written, kept), (self.data, b"00010"), (plan, err))
            else:
                self.assertEqual(written, b"old", (plan, err))
                self.assertIn(kept, (b"old", b"00010"), (plan, err))
                self.assertIn("quillory: ", err, plan)
            self.assertEqual(self.leftovers(), [], (plan, err))

    @unittest.skipUnless(SHIM, "no library of failing calls")
    def test_no_output_takes_its_name_before_it_is_on_the_disk(self):
        plan = f"sync 1 {EIO}"
        for arguments in (("convert",), ("pick", "--first", "1"), ("edit", "trim", "500"),
                          ("repair",), ("export",)):
            with self.subTest(arguments):
                target = self.path("out.mrc", b"old")
                command = (*arguments, self.path("sound.mrc"), "-o", target)
                status, err = self.failing(plan, *command)
                self.assertEqual((status, target.read_bytes()), (2, b"old"), err)
                self.assertIn("out.mrc: can't be written: ", err)
                with unittest.mock.patch.dict(os.environ, QUILLORY_SYNC="off"):
                    status, err = self.failing(plan, *command)
                self.assertIn(status, SAID_TO_BE_DONE, err)
                self.assertNotEqual(target.read_bytes(), b"old", err)

    @unittest.skipUnless(SHIM, "no library of failing calls")
    def test_what_is_said_to_be_stored_is_stored_when_calls_fail(self):
        expected = 0
        for number in self.rounds():
            plan = self.plan()
            status, err = self.failing(plan, "records", "add", self.path("sound.mrc"))
            stored = len(self.stored())
            said = len(self.records) if status in SAID_TO_BE_DONE else 0
            said = len(self.records) if "records added" in err else said
            self.assertIn(stored - expected, {said, len(self.records)}, (plan, status, err))
            if status in SAID_TO_BE_DONE:
                self.assertEqual(stored - expected, len(self.records), (plan, err))
            expected = stored
            status, err = self.failing(plan, "settings", "holdings.NextBarCode", f"T{number}")
            if status == 0:
                self.assertEqual(run("settings", "holdings.NextBarCode")[1],
                                 f"T{number}\n".encode(), plan)

    # Many at once.

    def test_writers_at_once_lose_nothing(self):
        expected = 0
        for number in self.rounds():
            work = [begin("records", "add", self.path("sound.mrc")) for _ in range(3)]
            work += [begin("settings", f"holdings.{key}", f"{number}{key[:2]}") for key in
                     ("NextBarCode", "LWLPCallTag", "LWLPSubTags", "DynixIndicators")]
            work += [begin("workforms", "save", f"At once {number} {n}", "--from", "1")
                     for n in range(2)]
            for child in work:
                out, err = child.communicate(timeout=120)
                self.assertEqual(child.returncode, 0, err)
            expected += 3 * len(self.records)
            self.assertEqual(len(self.stored()), expected)
            for key in ("NextBarCode", "LWLPCallTag", "LWLPSubTags", "DynixIndicators"):
                self.assertEqual(run("settings", f"holdings.{key}")[1].decode(),
                                 f"{number}{key[:2]}\n")
            for n in range(2):
                self.assertEqual(run("workforms", f"At once {number} {n}")[0], 0)


if __name__ == "__main__":
    print(f"seed {SEED}", file=sys.stderr)
    unittest.main(argv=sys.argv[:1], verbosity=2 if MINUTES else 1)
