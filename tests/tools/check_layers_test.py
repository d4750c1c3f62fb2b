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
    def assert_one_breach(self, path, include, *words):
        # A file of the ground floor keeps the tree from being empty.
        status, lines = check({"zorby/Export.h": [], path: ["<string>", include]})
        self.assertEqual((status, len(lines)), (1, 1), lines)
        self.assertTrue(lines[0].startswith(f"{path}:3: "), lines[0])
        for word in words:
            self.assertIn(word, lines[0])

    def test_tree_in_order(self):
        self.assertEqual(check({
            "zorby/Export.h": [],
            "zorby/platform/Files.h": ["<zorby/Export.h>"],
            "zorby/platform/Files.cpp": ["<zorby/platform/Files.h>", "<fcntl.h>", "<sys/stat.h>"],
            "zorby/format/MARCFormat.cpp": ["<zorby/format/InfoAboutField.h>"],
            "zorby/format/InfoAboutField.h": ["<zorby/archive/Archive.h>", "<vector>"],
            "quillory/exchange/Reader.h": ["<zorby/record/Pmarc.h>", "<zlib.h>"],
            "quillory/cli/main.cpp": ["<quillory/exchange/Reader.h>", "<CLI/CLI.hpp>"],
        }), (0, []))

    def test_breaches(self):
        rows = [
            ("zorby/archive/A.h", "<zorby/settings/Profile.h>", "higher layer", "profile"),
            ("zorby/format/InfoAboutField.h", "<zorby/format/MARCFormat.h>", "higher layer"),
            ("zorby/text/General.cpp", "<quillory/exchange/Reader.h>", "higher layer"),
            ("quillory/exchange/Reader.h", "<quillory/cli/Options.h>", "higher layer"),
            ("quillory/cli/main.cpp", "<zorby/record/detail/FieldParts.h>", "private"),
            ("zorby/archive/A.h", "<zlib.h>", "<zlib.h>", "standard library"),
            ("zorby/archive/A.cpp", "<fcntl.h>", "standard library"),
            ("zorby/platform/Files.h", "<unistd.h>", "standard library"),
            ("zorby/archive/A.cpp", '"Archive.h"', "names its header"),
            ("zorby/archive/A.cpp", "<zorby/newcomer/B.h>", "belongs to no layer"),
        ]
        for row in rows:
            with self.subTest(row):
                self.assert_one_breach(*row)

    def test_file_without_a_layer(self):
        self.assertEqual(check({"zorby/newcomer/A.h": []}),
                         (1, ["zorby/newcomer/A.h:1: belongs to no layer"]))

    def test_circle_is_named_once(self):
        status, lines = check({
            "zorby/text/GeneralA.h": ["<zorby/text/GeneralB.h>"],
            "zorby/text/GeneralB.h": ["<string>", "<zorby/text/GeneralC.h>"],
            "zorby/text/GeneralC.h": ["<zorby/text/GeneralA.h>"],
            "zorby/text/General.h": ["<zorby/text/GeneralA.h>"],
        })
        self.assertEqual(status, 1)
        self.assertEqual(lines, ["zorby/text/GeneralA.h:2: circle of includes: "
                                 "zorby/text/GeneralA.h -> zorby/text/GeneralB.h -> "
                                 "zorby/text/GeneralC.h -> zorby/text/GeneralA.h"])

    def test_empty_tree_is_no_success(self):
        self.assertEqual(check({})[0], 1)


if __name__ == "__main__":
    unittest.main()
