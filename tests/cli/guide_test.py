"""The pages of the guide: each of their commands works, and says what stands below it.

A block of `sh` is run by bash, in a folder with the sample records. A block without a language
below it is what the commands say: its lines in that order, and `...` stands for any others.
"""
import os
import pathlib
import re
import subprocess
import unittest

from support import QUILLORY, SAMPLES, Cli

ROOT = pathlib.Path(__file__).parents[2]
GUIDE = ROOT / "docs" / "guide"
# A command of quillory must not fail; that it finds something amiss is what some are shown for.
SHELL = """
quillory() {
    local status=0
    "$QUILLORY" "$@" || status=$?
    ((status < 2)) || echo "status $status: $*" >> failures
    return "$status"
}
"""


def blocks_of(page):
    """Commands, and what is shown below them."""
    blocks = re.findall(r"^```(sh)?\n(.*?)^```$", page, re.DOTALL | re.MULTILINE)
    for at, (language, text) in enumerate(blocks):
        if language:
            shown = [*blocks[at + 1:at + 2], ("sh", "")][0]
            yield text, "" if shown[0] else shown[1]


class Guide(Cli):
    def setUp(self):
        super().setUp()
        self.environment("QUILLORY", QUILLORY)
        self.convert(SAMPLES, "records.mrc")

    def assert_shown(self, shown, said):
        """Both are lines."""
        at, anywhere = 0, True
        for line in shown:
            if line.strip() == "...":
                anywhere = True
                continue
            pattern = re.escape(line).replace(re.escape("..."), ".*")
            found = [number for number in range(at, len(said) if anywhere else at + 1)
                     if number < len(said) and re.fullmatch(pattern, said[number].rstrip())]
            self.assertTrue(found, f"not said: {line}\nSaid:\n" + "\n".join(said))
            at, anywhere = found[0] + 1, False

    def test_commands(self):
        pages = sorted(GUIDE.glob("*.md"))
        self.assertGreater(len(pages), 9)
        for page in pages:
            self.run_page(page)

    def test_links(self):
        for page in [ROOT / "README.md", *ROOT.glob("docs/**/*.md"), *ROOT.glob("examples/**/*.md"),
                     *ROOT.glob("data/**/*.md")]:
            text = re.sub(r"```.*?```|`[^`\n]*`", "", page.read_text("utf-8"), flags=re.DOTALL)
            for target in re.findall(r"\]\(([^)#\s]+)[^)]*\)", text):
                with self.subTest(page=page.name, target=target):
                    self.assertTrue("://" in target or (page.parent / target).exists())

    def run_page(self, page):
        folder = self.folder / page.stem
        folder.mkdir()
        (folder / "records.mrc").write_bytes((self.folder / "records.mrc").read_bytes())
        environment = {**os.environ, "QUILLORY_HOME": str(folder / "home")}
        text = page.read_text("utf-8")
        self.assertNotIn("```\n```\n", text, f"{page.name} shows nothing of what its commands say")
        for commands, shown in blocks_of(text):
            with self.subTest(page=page.name, commands=commands):
                done = subprocess.run(["bash", "-c", SHELL + commands], cwd=folder, env=environment,
                                      stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120)
                said = done.stdout.decode().splitlines()
                self.assertFalse((folder / "failures").exists(), said)
                self.assert_shown(shown.splitlines(), said)


if __name__ == "__main__":
    unittest.main(argv=["guide_test.py"])
