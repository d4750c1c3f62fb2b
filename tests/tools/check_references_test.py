"""check-references names what comments tell of and the library lacks, and lets pass the rest."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "tools" / "check-references"
SOURCE = "class CField {};\nint FieldName(int tag);  // 245 of `tag`\n"


def check(tree):
    with tempfile.TemporaryDirectory() as root:
        for path, text in tree.items():
            file = Path(root, path)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text)
        done = subprocess.run([sys.executable, CHECK, root], capture_output=True, text=True,
                              check=False)
    return done.returncode, done.stdout.splitlines(), done.stderr


class CheckReferences(unittest.TestCase):
    def test_names_that_are_there(self):
        for text in (SOURCE, "// As FieldName of CField, in MicroLIF.\n",
                     "#include <zorby/Field.h>\n// `tag` is that of CField.\n"):
            with self.subTest(text):
                tree = {"zorby/Field.h": SOURCE, "zorby/Other.h": text}
                self.assertEqual(check(tree), (0, [], ""))

    def test_names_that_are_not_there(self):
        for text, name in (("int x;\n// See FieldTitle.\n", "FieldTitle"),
                           ("// A\n// CRecord has it.\n", "CRecord"),
                           ("int f(int a);\n\tint b;  // where `tag` is\n", "tag")):
            with self.subTest(text):
                tree = {"zorby/Field.h": SOURCE, "zorby/Other.h": text}
                self.assertEqual(check(tree), (1, [f"zorby/Other.h:2: there is no {name}"], ""))

    def test_private_headers_are_passed_over(self):
        self.assertEqual(check({"zorby/detail/Field.h": "// CRecord\n"}), (0, [], ""))


if __name__ == "__main__":
    unittest.main()
