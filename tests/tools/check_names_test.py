"""check-names names each namesake in a folder, and is silent where names are a file's alone."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK_NAMES = Path(__file__).resolve().parents[2] / "tools" / "check-names"


def check(tree):
    with tempfile.TemporaryDirectory() as root:
        for path, own in tree.items():
            file = Path(root, path)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text("namespace zorby {\nnamespace {\n\n" + own + "\n}  // namespace\n\n"
                            "void Shared() {\n}\n\n}  // namespace zorby\n")
        done = subprocess.run([sys.executable, CHECK_NAMES, root], capture_output=True, text=True,
                              check=False)
    if done.stderr:
        raise AssertionError(done.stderr)
    return done.returncode, done.stdout.splitlines()


class CheckNames(unittest.TestCase):
    def test_namesakes(self):
        for one, other, name in (
                ("bool IsDigit(char c) {\n}", "bool IsDigit(int c) {\n}", "IsDigit"),
                ("std::vector<int> Of(int i) {\n}", "const Row* Of(int i, int j) {\n}", "Of"),
                ("constexpr std::size_t kSize = 3;", "constexpr int kSize{4};", "kSize"),
                ("constexpr Row kRows[] = {\n};", "constexpr Row kRows[] = {\n};", "kRows"),
                ("struct Row {\n};", "using Row = int;", "Row"),
                ("class Reader : public Port {\n};", "enum Reader { kNone };", "Reader")):
            with self.subTest(name=name):
                status, lines = check({"zorby/text/A.cpp": one, "zorby/text/detail/B.cpp": other})
                line = f"zorby/text/detail/B.cpp:4: A.cpp has {name}, too"
                self.assertEqual((status, lines), (1, [line]))

    def test_names_of_a_file(self):
        self.assertEqual(check({
            "zorby/text/A.cpp": "int Size() {\n    return Sized(1);\n}",
            "zorby/text/B.cpp": "int Sized(int i) {\n    return i;\n}\n\nstruct Row;",
            "zorby/record/A.cpp": "int Size() {\n}\n\nstruct Row {\n};",
            "quillory/desktop/A.cpp": "int Size() {\n}",
            "quillory/desktop/B.cpp": "int Size() {\n}",
        }), (0, []))


if __name__ == "__main__":
    unittest.main()
