"""What --help says stands in the manual pages, and the completion of each shell offers it."""
import os
import re
import shutil
import subprocess
import sys
import unittest

from support import HERE, QUILLORY, Cli, run

ROOT = HERE.parent.parent
PROGRAM = os.path.basename(QUILLORY)
# The scripts of the shells call the program by its name.
os.environ["PATH"] = f"{os.path.dirname(os.path.abspath(QUILLORY))}:{os.environ['PATH']}"
COMMANDS = {"quillory": 60, "quillory-desk": 3}  # at least so many

# Where the texts of --help begin, beside or under what they tell of.
COLUMN = 30


class Help:
    """What --help says of a command: texts by the names of options, of positional arguments and of
    the commands under it."""

    def __init__(self, names):
        self.names = names
        status, out, _ = run(*names, "--help")
        assert status == 0, names
        self.summary, self.sections = out.decode().split("\n", 1)[0], {}
        section = entry = None
        for line in out.decode().split("\n"):
            if line in ("Options:", "Arguments:", "Commands:", "Exit status:", "Environment:"):
                section = self.sections.setdefault(line, {})
            elif section is None or not line.startswith("  "):
                section = None
            elif line.startswith(" " * COLUMN):
                section[entry] = f"{section.get(entry, '')} {line.strip()}".strip()
            else:
                has_text = line[COLUMN - 1:COLUMN] == " "  # beside its name
                entry = (line[:COLUMN] if has_text else line).strip()
                if has_text:
                    section[entry] = line[COLUMN:]
        self.commands = self.sections.get("Commands:", {})
        self.lists = {term: text for section in ("Exit status:", "Environment:")
                      for term, text in self.sections.get(section, {}).items()}
        self.options = {tuple(entry.split()[0].split(",")): text
                        for entry, text in self.sections["Options:"].items()}
        self.values = {entry.split()[0].split(",")[-1]: entry.split()[1].split("|")
                       for entry in self.sections["Options:"] if "|" in entry}
        self.positionals = {entry.split()[0]: text
                            for entry, text in self.sections.get("Arguments:", {}).items()}


def all_help(names=()):
    command = Help(names)
    return [command, *(helped for name in command.commands for helped in all_help((*names, name)))]


HELP = all_help()


def plain(troff):
    """The text that troff sets for a line."""
    for escaped, text in (("\\-", "-"), ("\\(aq", "'"), ("\\(ga", "`"), ("\\(ha", "^"),
                          ("\\(ti", "~"), ("\\:", ""), ("\\&", ""), ("\\e", "\\")):
        troff = re.sub(r"\\f[BIR]", "", troff).replace(escaped, text)
    return troff


def page_name(command):
    return "-".join([PROGRAM, *command.names]) + ".1"


class Manual(Cli):
    def setUp(self):
        super().setUp()
        self.pages = self.path("man1")
        self.pages.mkdir()
        self.assertEqual(run("man", "-o", self.pages), (0, b"", ""))

    def test_says_what_help_says(self):
        self.assertGreaterEqual(len(HELP), COMMANDS[PROGRAM])
        for command in HELP:
            with self.subTest(command=command.names):
                page = (self.pages / page_name(command)).read_text()
                items = {plain(term): plain(text) for term, text
                         in re.findall(r"^\.TP\n(.*)\n(.*)", page, re.MULTILINE)}
                told = {}
                for names, text in command.options.items():
                    told[", ".join(names)] = text
                told |= command.positionals | command.commands | command.lists
                self.assertEqual({re.sub(r"(?<!,) .*", "", term) for term in items}, told.keys())
                for term, text in items.items():
                    self.assertTrue(text.startswith(told[re.sub(r"(?<!,) .*", "", term)] + "."),
                                    text)
                self.assertIn(command.summary.removeprefix(PROGRAM + ": "), plain(page))

    def test_program_tells_of_statuses_and_variables(self):
        """All variables that the sources read, and the guide tells of them, too."""
        program = HELP[0]
        self.assertIn("0", program.sections["Exit status:"])
        self.assertIn("2", program.sections["Exit status:"])
        told = program.sections["Environment:"].keys()
        sources = [path.read_text() for path in (ROOT / "quillory").rglob("*.cpp")]
        read = {name for text in sources
                for name in re.findall(r'(?:getenv|Variable|PathIn)\("([A-Z_]+)"\)', text)}
        self.assertGreater(len(read), 3)
        if PROGRAM == "quillory-desk":
            read.discard("NO_COLOR")
        self.assertLessEqual(read - {"HOME"}, told)
        guide = (ROOT / "docs" / "guide" / "settings.md").read_text()
        for name in told:
            self.assertIn(f"`{name}`", guide)
        page = (self.pages / page_name(program)).read_text()
        self.assertIn(".SH EXIT STATUS\n", page)
        self.assertIn(".SH ENVIRONMENT\n", page)

    def test_pages_of_all_commands_are_sound(self):
        pages = sorted(self.pages.iterdir())
        self.assertEqual([page.name for page in pages], sorted(map(page_name, HELP)))
        for page in pages:
            if shutil.which("man"):
                shown = subprocess.run(["man", "--warnings", "-l", page], capture_output=True,
                                       env={**os.environ, "MANWIDTH": "80"}, text=True)
                self.assertEqual((shown.returncode, shown.stderr), (0, ""), page.name)
                self.assertIn("SYNOPSIS", shown.stdout)
            if shutil.which("mandoc"):
                lint = subprocess.run(["mandoc", "-T", "lint", "-W", "error", page],
                                      capture_output=True, text=True)
                self.assertEqual((lint.returncode, lint.stdout), (0, ""))

    def test_one_page_is_printed(self):
        for names in ([], ["records"], ["edit", "sort-fields"]):
            page = self.pages / ("-".join(["quillory", *names]) + ".1")
            self.assertEqual(run("man", *names), (0, page.read_bytes(), ""))

    def test_values_of_an_argument(self):
        names = run("completion", "--values", "workforms NAME")[1].decode().splitlines()
        self.assertIn("DVD video", names)
        for arguments in ([], ["--values", "convert FILE"], ["--values", "nothing"]):
            status, out, _ = run("completion", *arguments)
            self.assertEqual((status, out), (2, b""))

    def test_a_page_of_no_command(self):
        for names in (["nothing"], ["records", "nothing"], ["convert", "records"]):
            status, out, err = run("man", *names)
            self.assertEqual((status, out), (2, b""))
            self.assertIn(f'there is no command "{" ".join(names)}"', err)

    def test_help_of_a_command(self):
        for names in ([], ["records"], ["edit", "sort-fields"]):
            self.assertEqual(run("help", *names), run(*names, "--help"))
        status, out, err = run("help", "records", "ad")
        self.assertEqual((status, out), (2, b""))
        self.assertIn("did you mean add?", err)

    def test_a_folder_that_is_not_there(self):
        status, _, err = run("man", "-o", self.path("nowhere"))
        self.assertEqual(status, 2)
        self.assertIn("nowhere", err)


class Completion:
    """Each shell is asked once for all command lines of a test. FILE is the one file there is."""
    shell = None

    def setUp(self):
        super().setUp()
        if not shutil.which(self.shell):
            self.skipTest(f"{self.shell} is not installed")
        self.path("desk").mkdir()
        (self.path("desk") / "one file.mrc").touch()
        self.script = self.path("script", run("completion", self.shell)[1])

    def offered(self, lines):
        out = self.ask("".join(line + "\n" for line in lines))
        offers, words = [], None
        for line in out.split("\n"):
            if line.startswith("# "):
                words = set()
                offers.append((line[2:], words))
            elif line.strip():
                words.add(line.split("\t")[0].strip())
        self.assertEqual([line for line, _ in offers], lines)
        return [words for _, words in offers]

    def check(self, wanted):
        """`wanted` has words, or no words, by lines."""
        for (line, words), offer in zip(wanted.items(), self.offered([*wanted])):
            with self.subTest(shell=self.shell, line=line):
                self.assertEqual({re.sub(r"\\(.)", r"\1", word) for word in offer}, set(words))

    def test_offers_commands_and_options(self):
        wanted = {}
        for command in HELP:
            line = " ".join(["quillory", *command.names])
            options = [name for names in command.options for name in names]
            wanted[line + " -"] = options
            if command.commands and not command.positionals:
                # Where no argument may come, zsh offers options before a dash is typed.
                also = options if self.shell == "zsh" else []
                wanted[line + " "] = [*command.commands, *also]
        self.check(wanted)

    def test_offers_values(self):
        wanted = {}
        for command in HELP:
            for option, values in command.values.items():
                if "=" in "".join(values):
                    continue
                # What stands for any other value is in capitals.
                values = [value for value in values if not value.isupper()]
                if (option, values) not in wanted.values():
                    wanted[" ".join(["quillory", *command.names, option, ""])] = (option, values)
        self.assertGreater(len(wanted), 20)
        self.check({line: values for line, (_, values) in wanted.items()})

    def test_offers_files_where_one_is_expected(self):
        self.check({
            "quillory convert ": ["one file.mrc"],
            "quillory convert --rejects ": ["one file.mrc"],
            "quillory cards ": ["add", "list", "print", "clear", "one file.mrc"],
            "quillory cards a": ["add"],
            "quillory cards add one": ["one file.mrc"],
            "quillory convert -q -o o": ["one file.mrc"],
            "quillory convert -- o": ["one file.mrc"],
            "quillory convert --where ": [],
            "quillory convert --where x --to mr": ["mrk"],
            "quillory completion ": ["bash", "zsh", "fish"],
        })

    def test_offers_names_that_a_run_knows(self):
        self.assertEqual(run("workforms", "save", "My films", "--from", "DVD video")[0], 0)
        self.check({
            "quillory new --workform Early": ["Early printed book"],
            "quillory catalog -w my": ["My films"],
            "quillory workforms Blu": ["Blu-ray video"],
            "quillory workforms save films --from Vin": ["Vinyl record (LP, single)"],
            "quillory workforms delete ": ["My films"],
            "quillory export --holdings-type Dyn": ["Dynix"],
            "quillory describe Dyn": ["Dynix"],
            "quillory settings libraryc": ["LibraryCode"],
            "quillory settings holdings.next": ["holdings.NextBarCode"],
            "quillory labels --type SP": ["SP1", "SP2"],
            "quillory dedupe --by ti": ["title"],
        })

    def test_offers_names_of_commands(self):
        self.check({
            "quillory man rec": ["records"],
            "quillory man cards ": ["add", "list", "print", "clear"],
            "quillory help records li": ["list"],
            "quillory help records edit mo": ["move", "move-element"],
            "quillory help nothing ": [],
            "quillory help conv": ["convert"],
        })

    def test_offers_the_rules(self):
        self.check({"quillory check --only issn": ["issn-invalid"]})


class Bash(Completion, Cli):
    shell = "bash"

    def ask(self, lines):
        return subprocess.run(
            ["bash", "--norc", "-c", """
                source "$1"
                while IFS= read -r line; do
                    printf '# %s\\n' "$line"
                    IFS=' ' read -ra COMP_WORDS <<< "$line"
                    [[ $line != *' ' ]] || COMP_WORDS+=('')
                    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
                    _quillory
                    printf '%s\\n' "${COMPREPLY[@]}"
                done""", "bash", self.script],
            input=lines, capture_output=True, text=True, check=True, cwd=self.path("desk")).stdout

    def test_a_value_after_an_equals_sign(self):
        self.check({"quillory convert --to = ma": ["marc", "marcxml"],
                    "quillory convert --to = MI": ["microlif"],
                    "quillory convert --normalize =": ["nfc", "nfd"]})

    def test_a_value_in_quotes(self):
        self.check({"quillory new --workform 'Early": ["Early printed book"],
                    'quillory new --workform "blu': ["Blu-ray video"]})


class Zsh(Completion, Cli):
    shell = "zsh"

    def ask(self, lines):
        return subprocess.run(
            ["zsh", "-f", HERE / "zsh_completions.zsh", self.script, self.path("desk")],
            input=lines, capture_output=True, text=True, check=True, timeout=300).stdout


class Fish(Completion, Cli):
    shell = "fish"

    def ask(self, lines):
        return subprocess.run(
            ["fish", "--no-config", "-c", """
                source $argv[1]
                while read --line line
                    printf '# %s\\n' "$line"
                    complete -C "$line"
                end""", self.script],
            input=lines, capture_output=True, text=True, check=True, cwd=self.path("desk"),
            env={**os.environ, "HOME": str(self.folder)}).stdout


if __name__ == "__main__":
    unittest.main(argv=["manual_test.py", *sys.argv[4:]])
