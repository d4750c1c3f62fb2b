"""What the tests of the program share: running it, reading what it wrote, a folder for each test.

A test that imports this is called as: NAME_test.py QUILLORY SAMPLES_FOLDER
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest
import unittest.mock

QUILLORY = sys.argv[1]
SAMPLES = pathlib.Path(sys.argv[2]) / "catalogue.mrk"
HERE = pathlib.Path(__file__).parent
# What a test writes has to outlive no power cut.
os.environ["QUILLORY_SYNC"] = "off"
RECORD_END, FIELD_END, DELIMITER = b"\x1d", b"\x1e", b"\x1f"


def run(*arguments, stdin=b""):
    done = subprocess.run([QUILLORY, *map(str, arguments)], input=stdin, capture_output=True,
                          timeout=120)
    return done.returncode, done.stdout, done.stderr.decode()


def fields_of(record):
    """Leader and fields of one ISO 2709 record, read independently of the program."""
    base = int(record[12:17])
    directory = record[24:base - 1]
    fields = []
    for at in range(0, len(directory), 12):
        entry = directory[at:at + 12]
        begin = base + int(entry[7:])
        fields.append((entry[:3], record[begin:begin + int(entry[3:7]) - 1]))
    return record[:24], fields


def records_of(data):
    return [record + RECORD_END for record in data.split(RECORD_END)[:-1]]


def dump(data):
    """The lines that marc_record_dump.pl prints."""
    lines = []
    for record in records_of(data):
        leader, fields = fields_of(record)
        lines.append(b"LDR|" + leader)
        for tag, content in fields:
            if tag < b"010":
                lines.append(tag + b"|" + content)
                continue
            subfields = [b"$" + part for part in content[2:].split(DELIMITER)[1:]]
            lines.append(b"|".join([tag, content[:2], *subfields]))
        lines.append(b"")
    return b"\n".join(lines) + b"\n"


class Cli(unittest.TestCase):
    """A test with a folder of its own, in which quillory finds no settings and no store."""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quillory-cli-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.home = self.folder / "home"
        self.environment("QUILLORY_HOME", self.home)

    def environment(self, name, value):
        """Sets a variable until the test ends."""
        change = unittest.mock.patch.dict(os.environ, {name: str(value)})
        change.start()
        self.addCleanup(change.stop)

    def path(self, name, data=None):
        path = self.folder / name
        if data is not None:
            path.write_bytes(data)
        return path

    def convert(self, source, name, *options):
        target = self.path(name)
        status, out, err = run("convert", source, "-o", target, *options)
        self.assertEqual((status, out), (0, b""), err)
        return target
