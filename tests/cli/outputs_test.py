"""What becomes of outputs when something goes wrong around them."""
import itertools
import os
import signal
import stat
import subprocess
import sys
import time
import unittest

from support import Cli, QUILLORY, SAMPLES, run


def shell(script, *arguments):
    """Runs a script of bash in which "$Q" is the program."""
    environment = dict(os.environ, Q=QUILLORY)
    done = subprocess.run(["bash", "-c", script, "bash", *map(str, arguments)], env=environment,
                          capture_output=True, timeout=60)
    return done.returncode, done.stdout, done.stderr.decode()


class Outputs(Cli):
    def setUp(self):
        super().setUp()
        self.source = self.convert(SAMPLES, "a.mrc")
        self.data = self.source.read_bytes()
        self.damaged = self.path("damaged.mrc", self.data + b"00010" * 40000)

    def names(self):
        return sorted(os.listdir(self.folder))

    def test_an_empty_name_is_wrong_usage(self):
        a = self.source
        fields = ["--fields", "001"]
        for command in (["convert", a, "-o"], ["convert", a, "--rejects"], ["convert"],
                        ["export", a, "-o"], ["check", a, "-o"], ["show"], ["count", a, "-o"],
                        ["repair", a, "-o"], ["repair", a, "--report"],
                        ["extract", a, *fields, "-o"], ["edit", "delete", "500", a, "-o"],
                        ["edit"], ["codes", "-o"], ["split", a, "--every", "2", "-o"],
                        ["sort", a, "--by", "245", "-o"], ["pick", a, "--ids"],
                        ["dedupe", a, "--by", "001", "--removed"], ["pick", a, "-o"],
                        ["compare", a, a, "-o"], ["merge", a, a, *fields, "-o"],
                        ["new", "-w", "1", "-o"], ["new", "--from"], ["catalog"],
                        ["records", "add", "--rejects"], ["records", "export", "-o"],
                        ["cards", a, "-o"], ["labels", a, "--preview"],
                        ["workforms", "export"], ["workforms", "import"]):
            with self.subTest(command=command):
                status, out, err = run(*command, "")
                self.assertEqual((status, out), (2, b""))
                self.assertIn("the name of a file is empty", err)

    def test_an_empty_value_does_not_ask_for_all(self):
        for command in (["edit", "delete", "500", self.source, "--where"],
                        ["records", "delete", "--where"], ["pick", self.source, "--records"],
                        ["show", self.source, "--where-text"],
                        ["check", self.source, "--only"], ["check", self.source, "--skip"],
                        ["export", self.source, "--holdings-type"]):
            with self.subTest(command=command):
                status, out, err = run(*command, "")
                self.assertEqual((status, out), (2, b""))
                self.assertIn(f"{command[-1]}: its value is missing", err)

    def test_no_output_takes_the_place_of_another_file(self):
        self.path("ids", b"zs0001\n")
        self.path("t.link").symlink_to("t")
        run("records", "add", self.source)
        store = self.home / "quillory.db"
        kept = store.read_bytes()
        for arguments, reason in (
                ("convert damaged.mrc -o t --rejects t.link", "can't take both the records and"),
                ("convert damaged.mrc -o t.link --rejects t", "can't take both the records and"),
                ("pick a.mrc --ids ids -o ids", "is an input, and would be overwritten"),
                ('convert a.mrc -o "$QUILLORY_HOME/quillory.db" --to marc',
                 "is a file of the store"),
                ('new -w 1 --to marc -o "$QUILLORY_HOME/quillory.db"', "is a file of the store"),
                ('new -w 1 --rejects "$QUILLORY_HOME/quillory.db"', "is a file of the store"),
                ('cards a.mrc -o "$QUILLORY_HOME/quillory.db"', "is a file of the store")):
            with self.subTest(arguments=arguments):
                status, _, err = shell(f'cd "$1"; "$Q" {arguments}', self.folder)
                self.assertEqual(status, 2)
                self.assertIn(reason, err)
                self.assertEqual(store.read_bytes(), kept)
                self.assertNotIn("t", self.names())
        self.assertEqual(self.path("ids").read_bytes(), b"zs0001\n")

    def test_no_output_takes_the_place_of_a_file_of_the_programs(self):
        run("records", "add", self.source)
        run("settings", "1", "3")
        journals = self.home / "journals"
        journals.mkdir()
        (journals / "new.journal").write_bytes(b"kept")
        (self.home / "hard").hardlink_to(self.home / "Quillory 0.INI")
        (self.home / "soft").symlink_to("quillory.db-record-locks")
        before = {path: path.read_bytes() for path in self.home.rglob("*") if path.is_file()}
        outputs = (["convert", self.source, "-o"], ["convert", self.source, "--rejects"],
                   ["codes", "-o"], ["check", self.source, "-o"], ["check", "--rules", "-o"],
                   ["count", self.source, "-o"], ["cards", self.source, "-o"],
                   ["cards", "print", "-o"], ["labels", "print", "--preview"],
                   ["records", "export", "-o"], ["records", "edit", "delete", "500", "--report"],
                   ["records", "add", self.source, "--rejects"], ["workforms", "export"],
                   ["extract", self.source, "--fields", "001", "-o"],
                   ["dedupe", self.source, "--by", "001", "--removed"],
                   ["completion", "bash", "-o"])
        owners = {"quillory.db": "the store", "quillory.db-wal": "the store",
                  "quillory.db-shm": "the store", "quillory.db-journal": "the store",
                  "x/../quillory.db": "the store", "soft": "the store",
                  "Quillory 0.INI": "the settings", "hard": "the settings",
                  "settings.lock": "the settings", "CardPrntQ0.prn": "the cards queue",
                  "LabelPrntQ0.prn": "the labels queue", "desk.ini": "the desk",
                  "journals/new.journal": "the desk", "journals/new.journal.lock": "the desk",
                  "journals/new.journal.new": "the desk"}
        for command, (name, owner) in itertools.product(outputs, owners.items()):
            with self.subTest(command=command, name=name):
                status, out, err = run(*command, self.home / name)
                self.assertEqual((status, out), (2, b""))
                self.assertIn(f"{name}: this is a file of {owner}, which would be overwritten", err)
        status, _, err = shell('"$Q" convert "$1" >> "$QUILLORY_HOME/quillory.db"', self.source)
        self.assertEqual(status, 2)
        self.assertIn("-: this is a file of the store", err)
        after = {path: path.read_bytes() for path in self.home.rglob("*") if path.is_file()}
        self.assertEqual(after, before)
        self.convert(self.source, self.home / "beside.mrc")

    def test_standard_output_under_other_names(self):
        for name in ("/dev/stdout", "/dev/fd/1", "/proc/self/fd/1", "t"):
            with self.subTest(name=name):
                done = shell(f'cd "$1"; "$Q" convert a.mrc -o {name} > t', self.folder)
                self.assertEqual(done, (0, b"", ""))
                self.assertEqual(self.path("t").read_bytes(), self.data)
        for arguments, others in (("--rejects t", "t"), ("-o /dev/stdout --rejects -", "t"),
                                  ("-o t --rejects /dev/fd/1", "t")):
            with self.subTest(arguments=arguments):
                done = shell(f'cd "$1"; "$Q" convert damaged.mrc {arguments} > {others}',
                             self.folder)
                self.assertEqual(done[0], 2)
                self.assertIn("can't take both the records and the rejects", done[2])
        for redirection in (">> a.mrc", "- < a.mrc >> a.mrc"):
            status, _, err = shell(f'cd "$1"; "$Q" convert a.mrc {redirection}', self.folder)
            self.assertEqual(status, 2)
            self.assertIn("standard output: is an input", err)
        self.assertEqual(self.source.read_bytes(), self.data)

    def test_an_output_beside_the_main_one_that_breaks_is_named(self):
        self.path("capitals.mrc", self.data.replace(b"eng", b"ENG"))
        for command in ('convert damaged.mrc -o t --rejects >(head -c 10 > /dev/null)',
                        'convert damaged.mrc -o t --rejects - | head -c 10 > /dev/null',
                        'repair capitals.mrc -o t --report /dev/full',
                        'edit delete 245 a.mrc -o t --report /dev/full',
                        'convert damaged.mrc -o t --rejects /dev/full',
                        'extract damaged.mrc --fields 001 -o t --rejects /dev/full',
                        'compare damaged.mrc a.mrc -o t --rejects /dev/full',
                        'records add damaged.mrc --rejects >(head -c 10 > /dev/null)'):
            with self.subTest(command=command):
                status, _, err = shell(f'set -o pipefail; cd "$1"; "$Q" {command}', self.folder)
                self.assertEqual(status, 2)
                self.assertIn(": can't be written: ", err)
                self.assertNotIn("kept in", err)
                self.assertNotIn("t", self.names())

    def test_no_output_has_its_name_before_the_rejects_have(self):
        self.path("r").mkdir()
        self.path("r/x", b"")
        read, write = os.pipe()
        with subprocess.Popen([QUILLORY, "convert", "-o", self.path("t"), "--rejects",
                               self.path("r/y")], stdin=read, stderr=subprocess.DEVNULL) as child:
            os.close(read)
            while not any(name.startswith(".quillory") for name in os.listdir(self.path("r"))):
                time.sleep(0.01)
            self.path("r/y").mkdir()
            os.write(write, b"00010")
            os.close(write)
            self.assertEqual(child.wait(60), 2)
        self.assertNotIn("t", self.names())

    def wait_for_files(self, count):
        deadline = time.monotonic() + 30
        while time.monotonic() < deadline:
            if len([name for name in self.names() if name.startswith(".quillory-")]) == count:
                return
            time.sleep(0.01)
        self.fail("no unfinished files")

    def begin(self, *arguments):
        child = subprocess.Popen([QUILLORY, *arguments], stdin=subprocess.PIPE,
                                 stderr=subprocess.DEVNULL)
        self.addCleanup(child.stdin.close)
        return child

    def test_what_a_killed_run_leaves_goes_with_the_next(self):
        before = self.names()
        living = self.begin("convert", "-o", self.path("living.mrc"))
        self.wait_for_files(2)
        killed = self.begin("convert", "-o", self.path("killed.mrc"))
        self.wait_for_files(4)
        killed.kill()
        killed.wait(60)
        self.convert(self.source, "next.mrc")
        self.wait_for_files(2)
        living.stdin.write(self.data)
        living.stdin.close()
        self.assertEqual(living.wait(60), 0)
        self.assertEqual(self.path("living.mrc").read_bytes(), self.data)
        self.assertEqual(self.names(), sorted(before + ["living.mrc", "next.mrc"]))

    def test_a_signal_leaves_nothing(self):
        before = self.names()
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP, signal.SIGQUIT,
                       signal.SIGXCPU, signal.SIGALRM, signal.SIGUSR1):
            with self.subTest(signal=number):
                child = self.begin("convert", "-o", self.path("t"))
                self.wait_for_files(2)
                child.send_signal(number)
                self.assertEqual(child.wait(60), -number)
                self.assertEqual(self.names(), before)
        status, _, err = shell('cd "$1"; ulimit -f 10; "$Q" convert a.mrc -o t', self.folder)
        self.assertEqual(status, 2)
        self.assertIn("t: can't be written: File too large", err)
        self.assertEqual(self.names(), before)

    def test_a_write_protected_file_is_only_replaced_when_asked_for(self):
        target = self.path("t", b"kept")
        target.chmod(0o444)
        for command in (["convert", self.source, "-o", target], ["codes", "-o", target],
                        ["convert", self.source, "--rejects", target],
                        ["check", self.source, "-o", target]):
            status, out, err = run(*command)
            self.assertEqual((status, target.read_bytes()), (2, b"kept"), err)
            self.assertIn("t: is write-protected, and not replaced", err)
        self.convert(self.source, "t", "--force")
        self.assertEqual(target.read_bytes(), self.data)
        self.assertEqual(stat.S_IMODE(target.stat().st_mode), 0o444)

    def test_links_modes_and_long_names(self):
        real = self.path("real", b"old")
        real.chmod(0o640)
        for name, target in (("link", "real"), ("chain", "link"), ("dangling", "new")):
            self.path(name).symlink_to(target)
            self.convert(self.source, name)
            self.assertTrue(self.path(name).is_symlink(), name)
            self.assertEqual(self.path(target).read_bytes(), self.data)
        self.assertEqual(stat.S_IMODE(real.stat().st_mode), 0o640)
        if os.geteuid() == 0:
            os.chown(real, 12, 34)
            self.convert(self.source, "real")
            self.assertEqual((real.stat().st_uid, real.stat().st_gid), (12, 34))
        self.path("round").symlink_to("about")
        self.path("about").symlink_to("round")
        for option in ("-o", "--rejects"):
            status, out, err = run("convert", self.source, option, self.path("round"))
            self.assertEqual((status, out), (2, b""))
            self.assertIn("round: Too many levels of symbolic links", err)
        self.assertTrue(self.path("round").is_symlink())
        self.convert(self.source, "x" * 255)
        status, _, err = run("convert", self.source, "-o", self.path("x" * 256))
        self.assertEqual(status, 2)
        self.assertIn("File name too long", err)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
