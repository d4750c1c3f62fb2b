"""check-one-place names each use of what belongs elsewhere, and lets pass what only tells of it."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK_ONE_PLACE = Path(__file__).resolve().parents[2] / "tools" / "check-one-place"
PLACES = {"quillory/arguments/Arguments.cpp": "#include <CLI/CLI.hpp>\nCLI::App app;\n",
          "quillory/exchange/Output.cpp": "int out = dup(STDOUT_FILENO);\n",
          "quillory/exchange/JsonTree.cpp": "nlohmann::json value;\n",
          "quillory/exchange/MarcJsonReader.cpp": "#include <nlohmann/json.hpp>\n",
          "quillory/pages/PangoPages.cpp": "#include <pango/pangocairo.h>\ncairo_t* pen;\n",
          "quillory/queries/RegularExpression.cpp": "#include <re2/re2.h>\nRE2 pattern;\n"}


def check(tree):
    with tempfile.TemporaryDirectory() as root:
        for path, text in tree.items():
            file = Path(root, path)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text)
        done = subprocess.run([sys.executable, CHECK_ONE_PLACE, root], capture_output=True,
                              text=True, check=False)
    if done.stderr:
        raise AssertionError(done.stderr)
    return done.returncode, done.stdout.splitlines()


class CheckOnePlace(unittest.TestCase):
    def test_breaches(self):
        rows = [
            ("quillory/cli/New.cpp", "#include <CLI/CLI.hpp>"),
            ("tests/quillory/cli/NewTest.cpp", "CLI::Option* option = nullptr;"),
            ("quillory/reports/Text.h", "#include <nlohmann/json_fwd.hpp>"),
            ("quillory/reports/PanelText.cpp", "cairo_show_page(pen);"),
            ("quillory/edits/Replace.cpp", "const RE2 pattern(text);"),
            ("quillory/cli/Settings.cpp", 'std::printf("%s", text);'),
            ("quillory/cli/Settings.cpp", 'printf ("%s", text);'),
            ("quillory/reports/Text.cpp", "std::fputs(text, stdout);"),
            ("quillory/reports/Text.cpp", "puts(text);"),
            ("quillory/reports/Text.h", "inline void Say() { std::cout << 1; }  // no word"),
            ("tools/zorby-data/Dump.cpp", "std::putchar('\\'');"),
            ("tools/zorby-data/Dump.cpp", "write(STDOUT_FILENO, text, 1);"),
            ("zorby/text/General.cpp", "const char* const kQuote = \"\\\"\"; std::puts(kQuote);"),
            ("zorby/text/General.cpp", "int n = 10'000; std::puts(\"'\");"),
        ]
        for path, line in rows:
            with self.subTest(line=line):
                status, lines = check(PLACES | {path: f"\n/* one\ntwo */\n{line}\n"})
                self.assertEqual((status, len(lines)), (1, 1), lines)
                self.assertTrue(lines[0].startswith(f"{path}:4: "), lines[0])

    def test_what_is_no_breach(self):
        self.assertEqual(check(PLACES | {
            "quillory/cli/New.cpp": "\n".join([
                "// printf(text) and std::cout", "/* CLI::App\nputs(text) */",
                'const char* text = "std::cout << \\" puts(";', 'auto raw = R"x(puts("))x";',
                "std::fprintf(stderr, text); std::fputs(text, stderr); std::snprintf(a, 1, b);",
                "char q = '\"'; bool t = isatty(STDOUT_FILENO); output.Write(text);"]),
            "examples/host/main.cpp": "std::cout << 1;",
            "tests/zorby/GeneralTest.cpp": "std::cout << 1;",
        }), (0, []))

    def test_places_that_are_gone(self):
        status, lines = check({"zorby/text/General.cpp": ""})
        self.assertEqual((status, len(lines)), (1, len(PLACES)))


if __name__ == "__main__":
    unittest.main()
