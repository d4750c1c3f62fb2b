"""check-layers names each breach and each circle, and is silent on a tree in order."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK_LAYERS = Path(__file__).resolve().parents[2] / "tools" / "check-layers"


def check(tree):
    with tempfile.TemporaryDirectory() as root:
        for path, includes in tree.items():
            file = Path(root, path)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text("#pragma once\n" + "".join(f"#include {name}\n" for name in includes))
        done = subprocess.run([sys.executable, CHECK_LAYERS, root], capture_output=True, text=True,
                              check=False)
    if done.stderr:
        raise AssertionError(done.stderr)
    return done.returncode, done.stdout.splitlines()


class CheckLayers(unittest.TestCase):
    def assert_one_breach(self, path, include, words):
        # A file of the ground floor keeps the tree from being empty.
        status, lines = check({"zorby/Export.h": [], path: ["<string>", include]})
        self.assertEqual((status, len(lines)), (1, 1), lines)
        self.assertTrue(lines[0].startswith(f"{path}:3: "), lines[0])
        self.assertIn(words, lines[0])

    def test_tree_in_order(self):
        self.assertEqual(check({
            "zorby/Export.h": [],
            "zorby/platform/Files.h": ["<zorby/Export.h>"],
            "zorby/platform/Files.cpp": ["<zorby/platform/Files.h>", "<fcntl.h>", "<sys/stat.h>"],
            "zorby/holdings/Holdings.cpp": ["<zorby/holdings/Field.h>", "<zorby/checking/Check.h>"],
            "zorby/holdings/Field.h": ["<zorby/archive/detail/Items.h>", "<vector>"],
            "zorby/queues/Queue.h": ["<zorby/editing/Editor.h>"],
            "quillory/exchange/Reader.h": ["<zorby/record/Pmarc.h>", "<zlib.h>"],
            "quillory/cli/main.cpp": ["<quillory/exchange/Reader.h>", "<CLI/CLI.hpp>"],
            "benchmarks/Bench.cpp": ["<benchmarks/Record.h>", "<benchmark/benchmark.h>"],
            "examples/build/main.cpp": ["<zorby/record/Pmarc.h>"],
            "fuzz/jsonl.cpp": ["<fuzz/Expect.h>", "<quillory/exchange/Reader.h>"],
            "tests/quillory/jobs/JobTest.cpp": ["<quillory/jobs/Job.h>", "<tests/zorby/Folder.h>"],
            "tests/zorby/text/Test.cpp": ["<zorby/workforms/Template.h>", "<sys/stat.h>"],
            "tools/data/main.cpp": ["<quillory/coded/CodeStatus.h>", "<tools/data/Row.h>"],
        }), (0, []))

    def test_breaches(self):
        rows = [
            ("zorby/archive/A.h", "<zorby/holdings/B.h>", "higher floor"),
            ("zorby/archive/detail/A.h", "<zorby/holdings/B.h>", "higher floor"),
            ("zorby/Export.h", "<zorby/platform/B.h>", "higher floor"),
            ("zorby/text/A.cpp", "<quillory/exchange/B.h>", "higher floor"),
            ("quillory/exchange/A.h", "<quillory/cli/B.h>", "higher floor"),
            ("tests/zorby/text/A.cpp", "<quillory/text/B.h>", "higher floor"),
            ("benchmarks/A.cpp", "<tests/quillory/B.h>", "not for benchmarks"),
            ("tools/data/A.cpp", "<quillory/jobs/B.h>", "higher floor"),
            ("fuzz/a.cpp", "<quillory/desktop/B.h>", "higher floor"),
            ("examples/a/main.cpp", "<quillory/text/B.h>", "higher floor"),
            ("quillory/cli/A.cpp", "<zorby/record/detail/B.h>", "private"),
            ("tests/zorby/record/A.cpp", "<zorby/record/detail/B.h>", "private"),
            ("zorby/text/A.cpp", "<tests/zorby/B.h>", "not for zorby/text"),
            ("quillory/cli/A.cpp", "<tools/data/B.h>", "not for quillory/cli"),
            ("fuzz/a.cpp", "<tests/zorby/B.h>", "not for fuzz"),
            ("tests/zorby/text/A.cpp", "<tests/quillory/B.h>", "not for tests/zorby"),
            ("zorby/archive/A.h", "<zlib.h>", "isn't of the standard library"),
            ("zorby/archive/A.cpp", "<fcntl.h>", "isn't of the standard library"),
            ("zorby/platform/A.h", "<unistd.h>", "isn't of the standard library"),
            ("zorby/archive/A.cpp", '"B.h"', "names its header"),
            ("tests/zorby/archive/A.cpp", '"B.h"', "names its header"),
            ("zorby/archive/A.cpp", "<zorby/newcomer/B.h>", "in no folder"),
            ("fuzz/a.cpp", "<zorby/newcomer/B.h>", "in no folder"),
        ]
        for row in rows:
            with self.subTest(row):
                self.assert_one_breach(*row)

    def test_file_in_no_folder_of_a_floor(self):
        for path in ("zorby/newcomer/A.h", "zorby/A.h", "quillory/main.cpp"):
            with self.subTest(path):
                self.assertEqual(check({path: ["<string>"]}),
                                 (1, [f"{path}:1: is in no folder of a floor"]))

    def test_circle_is_named_once(self):
        status, lines = check({
            "zorby/text/A.h": ["<zorby/text/B.h>"],
            "zorby/text/B.h": ["<string>", "<zorby/text/C.h>"],
            "zorby/text/C.h": ["<zorby/text/A.h>"],
            "zorby/text/General.h": ["<zorby/text/A.h>"],
        })
        self.assertEqual(status, 1)
        self.assertEqual(lines, ["zorby/text/A.h:2: circle of includes: zorby/text/A.h -> "
                                 "zorby/text/B.h -> zorby/text/C.h -> zorby/text/A.h"])

    def test_circle_of_folders(self):
        status, lines = check({
            "zorby/archive/A.h": ["<string>", "<zorby/record/A.h>"],
            "zorby/record/A.h": [],
            "zorby/record/B.h": ["<zorby/settings/A.h>"],
            "zorby/settings/A.h": [],
            "zorby/settings/detail/B.cpp": ["<zorby/archive/A.h>"],
            "zorby/checking/A.h": ["<zorby/archive/A.h>"],
        })
        self.assertEqual(status, 1)
        self.assertEqual(lines, ["zorby/archive/A.h:3: circle of folders: zorby/archive -> "
                                 "zorby/record -> zorby/settings -> zorby/archive"])

    def test_empty_tree_is_no_success(self):
        self.assertEqual(check({})[0], 1)


if __name__ == "__main__":
    unittest.main()
