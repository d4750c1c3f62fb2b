"""A run on many cores gives what a run on one gives, byte for byte.

Called as: jobs_test.py QUILLORY SAMPLES_FOLDER
"""
import random
import signal
import subprocess
import sys
import time
import unittest

from support import Cli, QUILLORY, SAMPLES, run

MIB = 1 << 20


class SharedWork(Cli):
    def setUp(self):
        super().setUp()
        sound = self.convert(SAMPLES, "sound.mrc").read_bytes()
        self.sound = sound * (2 * MIB // len(sound) + 1)

    def damaged(self):
        random.seed(1)
        data = bytearray(self.sound)
        for _ in range(300):
            data[random.randrange(len(data))] = random.randrange(256)
        return self.path("damaged.mrc", bytes(data))

    def outcome(self, *arguments):
        """All that a command leaves in the folder and says."""
        rejects = self.path("rejects")
        done = run(*arguments)
        return done, rejects.exists() and rejects.read_bytes()

    def test_nothing_differs(self):
        source = self.damaged()
        rejects = ("--rejects", self.path("rejects"))
        for command in (("convert", *rejects),
                        ("convert", "--to", "xml", "--lenient", *rejects),
                        ("convert", "--to-charset", "marc8", "--verbose", *rejects),
                        ("convert", "--where", "valid and 245a contains a"),
                        ("check",), ("check", "--each"), ("check", "--format", "jsonl"),
                        ("repair", *rejects), ("repair", "--each", "--dry-run"),
                        ("count", "--subfields", "--values", "650a"),
                        ("extract", "--fields", "001,245ab", *rejects),
                        ("edit", "replace", "245a", "--text", "the", "--with", "THE",
                         "--where", "valid", *rejects),
                        ("export", "--lenient", *rejects),
                        ("pick", "--where", "245a contains a", *rejects),
                        ("pick", "--ids", self.path("ids", b"sample-1\n"))):
            with self.subTest(command):
                alone = self.outcome(*command, "--jobs", "1", source)
                for jobs in ("2", "5"):
                    self.assertEqual(self.outcome(*command, "--jobs", jobs, source), alone)

    def test_nothing_differs_in_xml(self):
        xml = self.convert(self.path("many.mrc", self.sound), "many.xml", "--to", "xml")
        pieces = xml.read_bytes().split(b"</record>")
        pieces = pieces[:len(pieces) // 4] + pieces[-1:]
        # What looks like records, and isn't.
        inert = b"</record>".join([b"", *pieces[1:6], b""]).replace(b"--", b"")
        inert = (b"<!--" + inert + b"-->", b"<?x " + inert + b"?>", b"<![CDATA[" + inert + b"]]>")
        odd = (b"<![CDATA[</record>]]>", b"</record>", b"<record/>", b"<record></record>",
               b"<m:record xmlns:m='urn:m'></m:record>", b"<x></record>", b"<x/>", b" ", b"&amp;",
               b"</collection><collection>", b"</collection><?xml version='1.0'?>", b"\xff",
               b"<record><leader>")
        counted = (lambda part: part.replace(b' ind1=" "', b"", 1),
                   lambda part: part.replace(b"4500</leader>", b"</leader>"),
                   lambda part: part.replace(b"<leader>", b"<leader>\n"))
        random.seed(2)
        for turn in range(60):
            parts = list(pieces)
            for at in random.sample(range(1, len(parts)), random.choice((0, 30))):
                parts[at] = random.choice(counted)(parts[at])
            for at in random.sample(range(1, len(parts)), random.choice((0, 30, 100))):
                parts[at] = random.choice(inert) + parts[at]
            for at in random.sample(range(1, len(parts)), random.choice((0, 1, 20))):
                cut = random.choice((0, parts[at].find(b"<"), random.randrange(len(parts[at]) + 1)))
                parts[at] = parts[at][:cut] + random.choice(odd) + parts[at][cut:]
            source = self.path("odd.xml", b"</record>".join(parts))
            with self.subTest(turn):
                alone = run("convert", "--to", "marc", "--jobs", "1", source)
                self.assertEqual(run("convert", "--to", "marc", "--jobs", "2", source), alone)

    def test_a_closed_pipe_ends_the_work_though_more_could_be_read(self):
        with subprocess.Popen([QUILLORY, "convert", "--jobs", "3", "--to", "mrk"],
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0) as convert:
            convert.stdout.close()
            try:
                convert.stdin.write(self.sound)
            except BrokenPipeError:
                pass
            self.assertEqual(convert.wait(60), 0)

    def test_a_signal_leaves_no_file(self):
        target = self.path("out.mrc")
        with subprocess.Popen([QUILLORY, "convert", "--jobs", "3", "-o", target],
                              stdin=subprocess.PIPE, bufsize=0) as convert:
            convert.stdin.write(self.sound)
            time.sleep(0.1)
            convert.send_signal(signal.SIGTERM)
            self.assertEqual(convert.wait(60), -signal.SIGTERM)
        self.assertEqual([p.name for p in self.folder.iterdir() if p.name != "sound.mrc"], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
