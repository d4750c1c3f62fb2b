"""The recipes for one large file give what a run on the whole file gives."""
import json
import pathlib
import shutil
import subprocess
import sys
import unittest

from support import QUILLORY, SAMPLES, Cli, run

RECIPES = pathlib.Path(sys.argv[3]) / "scale-out"
# A delimiter without a code: such a record is refused.
DAMAGED = (b"00060nam a2200037 i 4500001000300000500000600003\x1e"
           b"x1\x1e  \x1f\x1fa\x1e\x1d")


def python_of_dask():
    """A Python that has Dask's scheduler, where there is one: Debian's, if not that of the test."""
    for python in (sys.executable, "/usr/bin/python3"):
        found = shutil.which(python) and subprocess.run(
            [python, "-c", "import distributed"], capture_output=True, check=False)
        if found and found.returncode == 0:
            return python
    return None


class Recipes:
    """The recipes are given by `recipe`: CONVERT or CHECK, and arguments."""

    def setUp(self):
        super().setUp()
        self.environment("QUILLORY", QUILLORY)
        self.environment("BLOCK", "40k")
        self.environment("HOME", self.folder)
        sound = self.convert(SAMPLES, "sound.mrc").read_bytes()
        self.large = self.path("large.mrc", (sound + DAMAGED) * 5)

    def recipe(self, work, *arguments):
        done = subprocess.run([*self.command(work), *map(str, arguments)], capture_output=True,
                              timeout=300, check=False)
        self.assertEqual(done.stdout, b"")
        return done.returncode, done.stderr.decode()

    def test_convert(self):
        for form in ("mrc", "mrk"):
            with self.subTest(form=form):
                whole, rejects = self.path(f"whole.{form}"), self.path(f"whole.{form}.rejects")
                status, _, _ = run("convert", self.large, "-o", whole, "--rejects", rejects,
                                   "--to-charset", "utf8")
                together = self.path(f"together.{form}")
                done, err = self.recipe("convert", self.large, together, "--to-charset", "utf8")
                self.assertEqual((done, status), (1, 1), err)
                self.assertEqual(together.read_bytes(), whole.read_bytes())
                self.assertEqual(self.path(f"together.{form}.rejects").read_bytes(),
                                 rejects.read_bytes())
                self.assertIn("part 2:", err)
        self.assertEqual([path for path in self.folder.iterdir() if "parts" in path.name], [])

    def test_check(self):
        for form, options in (("html", ["--rows", "9"]),
                              ("jsonl", ["--rows=0", "--fail-on", "error"])):
            with self.subTest(form=form, options=options):
                whole, together = self.path(f"whole.{form}"), self.path(f"together.{form}")
                status, _, _ = run("check", self.large, "-q", "-o", whole, *options)
                done, err = self.recipe("check", self.large, together, *options)
                self.assertEqual((done, status), (1, 1), err)
                self.assertEqual(together.read_bytes(), whole.read_bytes())
                self.assertIn(b"control-number-repeated", whole.read_bytes())
                self.assertIn("part 2:", err)
        self.assertGreater(self.path("whole.jsonl").read_bytes().count(b"fault_offset"), 4)

    def test_what_cannot_be_done(self):
        status, err = self.recipe("convert", self.large, self.path("x.xml"))
        self.assertEqual(status, 2)
        self.assertIn("can't be put together", err)
        status, err = self.recipe("convert", self.large, self.path("x.mrc"), "--colour", "red")
        self.assertEqual(status, 2)
        self.assertIn("there is no option --colour", err)
        self.assertFalse(self.path("x.mrc").exists())


@unittest.skipUnless(shutil.which("parallel"), "GNU parallel is not installed")
class OnAllProcessors(Recipes, Cli):
    def command(self, work):
        return [RECIPES / f"{work}.sh"]

    def test_sums_and_page_of_a_check(self):
        sums = self.path("sums.json")
        self.assertEqual(self.recipe("check", self.large, sums)[0], 1)
        self.assertEqual(json.loads(sums.read_text())["damaged"], 5)
        sound = self.path("sound.mrc")
        page = self.path("page.html")
        self.assertEqual(self.recipe("check", sound, page)[0], 0)
        self.large.write_bytes(sound.read_bytes() * 3)
        self.assertEqual(self.recipe("check", self.large, page)[0], 1)
        self.assertEqual(self.recipe("check", self.large, page, "--fail-on", "error")[0], 0)


@unittest.skipUnless(python_of_dask(), "Dask's scheduler (python3-distributed) is not installed")
class OnACluster(Recipes, Cli):
    def command(self, work):
        return [python_of_dask(), RECIPES / "cluster.py", work]


if __name__ == "__main__":
    unittest.main(argv=["scale_out_test.py"])
