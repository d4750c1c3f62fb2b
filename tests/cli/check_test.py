#!/usr/bin/env python3
"""What `quillory check` finds in files, and what it makes of that.

usage: check_test.py QUILLORY SAMPLES_FOLDER
"""
import html.parser
import json
import os
import pathlib
import subprocess
import sys
import unittest

from support import QUILLORY, RECORD_END, SAMPLES, Cli, run

PAGE = pathlib.Path(__file__).parents[2] / "docs" / "checks.md"
SOUND = """=LDR  00000nam\\a2200000\\i\\4500
=001  sound
=005  20210101101010.0
=008  990101s1999\\\\\\\\nyua\\\\\\\\\\\\\\\\\\\\001\\0\\eng\\d
=040  \\\\$aDLC$cDLC
=100  1\\$aTwain, Mark
=245  10$aRoughing it /$cby Mark Twain.
=260  \\\\$aNew York :$bHarper,$c1999.
=300  \\\\$a304 p. :$bill. ;$c21 cm.
=500  \\\\$aIncludes index.
=650  \\0$aWest (U.S.)
=852  \\\\$aMain
"""
BARE = """=LDR  00000ngm\\a2200000\\i\\4500
=001  <b>&"bare
=245  00$bNothing <script>alert(1)</script>
=590  \\\\$aLocal
"""


class Page(html.parser.HTMLParser):
    """A page taken apart, and whether it is well formed."""
    VOID = {"meta", "input", "link", "br"}

    def __init__(self, text):
        super().__init__()
        self.open, self.tags, self.ids, self.links, self.text = [], [], set(), [], ""
        self.rows, self.rules, self.row = [], [], None  # of findings, of rules; the one at hand
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.tags.append((tag, attributes))
        if "id" in attributes:
            assert attributes["id"] not in self.ids
            self.ids.add(attributes["id"])
        if "href" in attributes:
            self.links.append(attributes["href"])
        if tag == "tr":
            self.row = []
            (self.rows if "data-record" in attributes else self.rules).append(self.row)
        if tag == "td":
            self.row.append("")
        if tag not in self.VOID:
            self.open.append(tag)

    def handle_endtag(self, tag):
        assert self.open and self.open[-1] == tag, (tag, self.open)
        self.open.pop()

    def handle_data(self, data):
        self.text += data
        if "td" in self.open:
            self.row[-1] += data


class Checks(Cli):
    def setUp(self):
        super().setUp()
        self.sound = self.path("sound.mrk", SOUND.encode())
        self.bare = self.path("bare.mrk", BARE.encode())
        self.both = self.path("both.mrk", (SOUND + "\n" + BARE).encode())

    def check(self, *arguments, status=1):
        result, out, err = run("check", *arguments)
        self.assertEqual(result, status, err)
        return out.decode(), err


class Findings(Checks):
    def test_a_line_a_finding(self):
        out, err = self.check(self.bare, "--policy", "tlc", "--set", "ZP_RC_NoNotes=1", "--set",
                              "NoHoldings=1")
        place = f'{self.bare}: record 1 at byte 0 (001 <b>&"bare): '
        self.assertEqual(out.splitlines(), [
            place + "008: error: the record lacks field 008: give its 40 positions, with dates, "
                    "country and language [no-008]",
            place + "040: note: the record lacks the source of its cataloging: give 040 $a and "
                    "$c, the codes of the libraries that described and typed it [no-040]",
            place + "245 $a: error: the record lacks a title: give 245 $a [no-title]",
            place + "260 $b: error: the record lacks a publisher: give 264 $b or 260 $b "
                    "[no-publisher]",
            place + "260 $c: error: the record lacks a date of publication: give 264 $c or 260 $c "
                    "[no-date]",
            place + "300 $a: error: the record lacks the number of pages, discs or pieces: give "
                    "300 $a [no-extent]",
            place + "852: warning: the record lacks copies: give a field of the holdings system in "
                    "force [no-holdings]",
            "",
            "1 record checked: 0 well or with notes alone, 0 with warnings, 1 with errors",
            "       1  error    no-title                  No title",
            "       1  error    no-publisher              No publisher",
            "       1  error    no-date                   No date of publication",
            "       1  error    no-extent                 No extent",
            "       1  error    no-008                    No fixed-length data elements",
            "       1  warning  no-holdings               No holdings",
            "       1  note     no-040                    No cataloging source",
        ])
        self.assertEqual(err, "")

    def test_the_first_of_each_rule_unless_each_is_wanted(self):
        many = self.path("many.mrk", (SOUND + "=500  91$aX\n" * 5).encode())
        found = [line for line in self.check(many)[0].splitlines() if ": record 1" in line]
        self.assertEqual(len(found), 3)
        for option in ("--each", "-q"):
            found = [line for line in self.check(many, option)[0].splitlines()
                     if ": record 1" in line]
            self.assertEqual(len(found), 10)

    def test_rules_weigh_what_is_said(self):
        notes = self.path("notes.mrk", SOUND.replace("=245  10", "=245  00").encode())
        self.check(notes, status=0)
        self.check(notes, "--fail-on", "note")
        self.check(notes, "--rule", "title-first-indicator=warning")
        self.check(notes, "--rule", "title-first-indicator=off", "--fail-on", "note", status=0)
        self.check(notes, "--only", "no-008", "--fail-on", "note", status=0)
        self.check(notes, "--skip", "title-first-indicator", "--fail-on", "note", status=0)
        self.check(notes, "--skip", "no-040,title-first-indicator", "--fail-on", "note", status=0)
        out, _ = self.check(notes, "--only", "no-008,title-first-indicator", "-q", status=0)
        self.assertEqual(out.count("\n"), 1)
        _, err = self.check(notes, "--only", "no-008", "--skip", "no-008", status=2)
        self.assertIn("no rule is left", err)
        _, err = self.check(notes, "--skip", "title-first-indicater", status=2)
        self.assertIn("perhaps title-first-indicator is meant", err)

    def test_one_number_in_two_files(self):
        other = self.path("other.mrk", SOUND.encode())
        out, _ = self.check(self.sound, other)
        self.assertIn(f"{other}: record 1 at byte 0 (001 sound): 001: warning: record 1 of "
                      f"{self.sound} has the same control number", out)

    def test_the_page_of_rules_is_that_of_the_program(self):
        out, _ = self.check("--rules", "--format", "jsonl", status=0)
        page = PAGE.read_text()
        rules = [json.loads(line) for line in out.splitlines()]
        rows = [f"| `{rule['rule']}` | {rule['severity']} | {rule['title']}. {rule['why']} | "
                f"`{rule['example']}` | {rule['source']} |" for rule in rules]
        self.assertEqual([row for row in rows if row not in page], [])
        self.assertTrue("\n".join(rows) + "\n" in page, "the rows stand in another order")
        text, _ = self.check("--rules", status=0)
        for rule in rules:
            self.assertIn(rule["rule"] + " ", text)

    def test_a_sound_record_is_well(self):
        out, _ = self.check(self.sound, "--policy", "custom", status=0)
        self.assertEqual(out, "1 record checked: 1 well or with notes alone, 0 with warnings, "
                              "0 with errors\n")
        self.assertEqual(self.check("-q", self.sound, status=0), ("", ""))

    def test_json_has_every_record(self):
        damaged = self.path("damaged.mrc", self.convert(self.both, "ok.mrc").read_bytes()[:-9])
        out, err = self.check(damaged, "--format", "jsonl", "--policy", "custom")
        sound, damage = map(json.loads, out.splitlines())
        self.assertEqual((sound["record"], sound["control_number"], sound["title"],
                          sound["material"], sound["verdict"], sound["findings"]),
                         (1, "sound", "Roughing it", "books", "ok", []))
        self.assertEqual((damage["record"], damage["offset"]),
                         (2, damaged.read_bytes().index(b"\x1d") + 1))
        self.assertIn(damage["damaged"], err)
        out, _ = self.check(self.bare, "-o", self.path("out.jsonl"), "--policy", "custom")
        line = json.loads(self.path("out.jsonl").read_text())
        self.assertEqual(line["verdict"], "errors")
        self.assertEqual(line["findings"][2], {
            "rule": "no-title", "code": 110, "severity": "error", "place": "245 $a", "tag": "245",
            "occurrence": None, "subfield": "a", "title": "No title",
            "message": "the record lacks a title: give 245 $a"})
        self.assertEqual([found["code"] for found in line["findings"] if "code" in found],
                         [110, 112, 113, 114, 115, 116, 117, 119, 120, 121, 122, 123])

    def test_annotations_for_other_tools(self):
        marc = self.convert(self.both, "both.mrc")
        damaged = self.path("a b.mrc", marc.read_bytes() + b"00099 no record" + b"\x1d")
        self.check(damaged, "--policy", "custom", "-o", self.path("out.sarif"))
        log = json.loads(self.path("out.sarif").read_text())
        tool, results = log["runs"][0]["tool"]["driver"], log["runs"][0]["results"]
        self.assertEqual((log["version"], len(log["runs"]), tool["name"]), ("2.1.0", 1, "quillory"))
        self.assertEqual(len({rule["id"] for rule in tool["rules"]}), len(tool["rules"]))
        for rule in tool["rules"]:
            for member in ("shortDescription", "fullDescription", "help"):
                self.assertTrue(rule[member]["text"], rule["id"])
            self.assertIn(rule["defaultConfiguration"]["level"], ("error", "warning", "note"))
        lines = self.check(damaged, "--policy", "custom", "-q")[0].splitlines()
        self.assertEqual(len(results), len(lines) + 1)
        for result, line in zip(results, lines):
            self.assertEqual(tool["rules"][result["ruleIndex"]]["id"], result["ruleId"])
            self.assertIn(f" {result['level']}: ", line)
            self.assertTrue(line.endswith(f" [{result['ruleId']}]"), line)
        place = results[2]["locations"][0]
        self.assertEqual(results[2]["message"]["text"], 'record 2 (001 <b>&"bare), 245 $a: the '
                         "record lacks a title: give 245 $a")
        first = marc.read_bytes().index(RECORD_END) + 1
        self.assertEqual(place["physicalLocation"], {
            "artifactLocation": {"uri": damaged.as_uri()},
            "region": {"byteOffset": first, "byteLength": len(marc.read_bytes()) - first}})
        self.assertEqual(place["logicalLocations"], [{
            "name": "245 $a", "fullyQualifiedName": 'record 2 (001 <b>&"bare), 245 $a',
            "properties": {"record": 2, "control_number": '<b>&"bare', "tag": "245",
                           "subfield": "a"}}])
        self.assertEqual(results[-1]["ruleId"], "damaged-record")
        self.assertEqual(tool["rules"][results[-1]["ruleIndex"]]["id"], "damaged-record")
        out = run("check", "-", "--format", "sarif", stdin=marc.read_bytes())[1]
        for result in json.loads(out)["runs"][0]["results"]:
            self.assertNotIn("physicalLocation", result["locations"][0])

    def test_the_same_from_marc_mrk_and_standard_input(self):
        def codes(*arguments, **options):
            out = subprocess.run([QUILLORY, "check", "-q", "--policy", "custom", "--format",
                                  "jsonl", *arguments], capture_output=True, **options).stdout
            return [[(found["rule"], found["tag"], found["occurrence"], found["subfield"])
                     for found in json.loads(line)["findings"]] for line in out.splitlines()]
        ours = codes(SAMPLES)
        self.assertEqual(len(ours), 24)
        for options in ([], ["--to-charset", "marc8"]):
            marc = self.convert(SAMPLES, "sample.mrc", *options)
            self.assertEqual(codes(marc), ours)
            self.assertEqual(codes(input=marc.read_bytes()), ours)

    def test_fields_of_ones_own(self):
        custom = ["-q", "--policy", "custom", self.bare]
        self.assertNotIn("590", self.check(*custom)[0])
        self.assertNotIn("590", self.check(*custom, "--user-defined", "590a")[0])
        self.assertIn("590: error: MARC 21 has no field 590 [undefined]\n",
                      self.check(*custom, "--user-defined", "591a")[0])

    def test_records_of_other_formats_are_held_against_their_own(self):
        heading = self.path("heading.mrk", (
            "=LDR  00000nz\\\\a2200000n\\\\4500\n=001  n1\n"
            "=008  990101nn\\acannaabn\\\\\\\\\\\\\\\\\\\\\\a\\aaa\\\\\\\\\\\\\n"
            "=040  \\\\$aDLC$cDLC\n=100  1\\$aTwain, Mark\n=245  10$aRoughing it\n").encode())
        unimarc = self.path("unimarc.mrk", (
            "=LDR  00000nam\\\\2200000\\\\\\450\\\n"
            "=100  \\\\$a20010115d1998\\\\\\\\m\\\\y0frey50\\\\\\\\\\\\ba\n"
            "=200  1\\$aLe fleuve\n\n").encode() * 2)
        out, _ = self.check("-q", heading, unimarc)
        self.assertEqual([line.split(": ", 1)[1] for line in out.splitlines()], [
            "record 1 at byte 0 (001 n1): 245: warning: MARC 21 for authority data has no field "
            "245 [undefined]",
            "record 1 at byte 0: warning: this file seems to hold UNIMARC records, which are not "
            "checked [unimarc]"])

    def test_holdings_are_the_fields_that_an_export_writes(self):
        for key, value in (("EasyOrCustom", "Custom"), ("CustomBarCodeSubfield", "949b"),
                           ("CustomCallNumberSubfields", "949a"), ("CustomAllFAndS", "")):
            self.assertEqual(run("settings", "holdings." + key, value)[0], 0)
        bare = self.path("bare.mrk", SOUND.replace("=852  \\\\$aMain\n", "").encode())
        self.assertIn("no-holdings", self.check(bare, "--policy", "custom")[0])
        tsv = self.path("h.tsv", b"001\t949b\nsound\t7\n")
        marc = self.path("out.mrc")
        status, _, err = run("export", bare, "-o", marc, "--holdings", tsv, "--policy", "custom")
        self.assertEqual(status, 0, err)
        self.check(marc, "--policy", "custom", "--user-defined", "590a", status=0)

    def test_an_empty_file_is_told_once(self):
        out, err = self.check(self.path("empty.xml", b""))
        self.assertEqual(err, f"quillory: {self.path('empty.xml')}: the file is empty\n")
        self.assertIn("0 records checked", out)


class Settings(Checks):
    """A file that sets the rules for a library."""
    NAME = "quillory-check.toml"
    OWN = b"""fail-on = "error"
skip = ["no-001"]

[severity]
title-first-indicator = "off"

[[rule]]
id = "west"
severity = "error"
where = '650a contains "west"'
message = "the heading {found} is too wide: give a state"
why = "Readers of this library know the states."
example = '=650  \\0$aWest (U.S.)'
"""
    SAID = ("650 $a: error: the heading West (U.S.) is too wide: give a state [west]\n"
            "\n1 record checked: 0 well or with notes alone, 0 with warnings, 1 with errors\n"
            "       1  error    west                      the heading ... is too wide: give a "
            "state\n")

    def test_it_is_found_beside_the_input_or_at_home(self):
        place = f"{self.sound}: record 1 at byte 0 (001 sound): "
        well = "1 record checked: 1 well or with notes alone, 0 with warnings, 0 with errors\n"
        self.assertEqual(self.check(self.sound, status=0), (well, ""))
        self.home.mkdir(exist_ok=True)
        home = self.home / self.NAME
        home.write_bytes(self.OWN)
        self.assertEqual(self.check(self.sound), (place + self.SAID, ""))
        self.assertIn(f"{home} sets the rules", self.check(self.sound, "-v")[1])
        beside = self.path(self.NAME, b"skip = ['no-008']\n")
        self.assertEqual(self.check(self.sound, status=0)[0], well)
        self.assertIn(f"{beside} sets the rules", self.check(self.sound, "-v", status=0)[1])
        self.assertEqual(self.check(self.sound, "--config", home)[0], place + self.SAID)
        beside.unlink()
        self.assertEqual(self.check(self.sound, "--no-config", status=0)[0], well)
        self.assertEqual(run("check", stdin=SOUND.encode())[0], 1)
        self.assertEqual(run("check", "--no-config", stdin=SOUND.encode())[0], 0)

    def test_one_that_cannot_be_read_is_not_taken_for_none(self):
        self.home.mkdir(exist_ok=True)
        for folder in (self.folder, self.home):
            path = folder / self.NAME
            for make, reason in ((path.mkdir, "it is not a file"),
                                 (lambda: os.mkfifo(path), "it is not a file"),
                                 (lambda: path.symlink_to(path), "Too many levels"),
                                 (lambda: path.symlink_to("none"), "No such file")):
                make()
                _, err = self.check(self.sound, status=2)
                self.assertIn(f"{path}: the settings for checks can't be read: {reason}", err)
                self.check(self.sound, "--no-config", status=0)
                path.rmdir() if path.is_dir() else path.unlink()

    def test_two_folders_with_different_ones_are_refused(self):
        folder = self.path("other")
        folder.mkdir()
        (folder / "x.mrk").write_text(SOUND)
        self.path(self.NAME, self.OWN)
        self.check(self.sound, folder / "x.mrk")
        (folder / self.NAME).write_bytes(self.OWN)
        _, err = self.check(self.sound, folder / "x.mrk", status=2)
        self.assertIn("both set rules", err)
        self.check(self.sound, folder / "x.mrk", "--config", folder / self.NAME)

    def test_options_go_before_it(self):
        settings = ("--config", self.path("own.toml", self.OWN))
        notes = self.path("notes.mrk", SOUND.replace("=245  10", "=245  00").encode())
        self.check(notes, *settings)
        self.check(notes, *settings, "--skip", "west", "--fail-on", "note", status=0)
        self.check(notes, *settings, "--rule", "west=warning", status=0)
        self.check(notes, *settings, "--rule", "west=warning", "--fail-on", "warning")
        out, _ = self.check(notes, *settings, "--only", "title-first-indicator", "-q", status=0)
        self.assertIn("note: ", out)
        self.assertNotIn("[west]", out)

    def test_own_rules_stand_in_all_reports(self):
        settings = ("--config", self.path("own.toml", self.OWN))
        out, _ = self.check(self.sound, *settings, "--format", "jsonl")
        self.assertEqual(json.loads(out)["findings"], [{
            "rule": "west", "severity": "error", "place": "650 $a", "tag": "650", "occurrence": 1,
            "subfield": "a", "title": "the heading ... is too wide: give a state",
            "message": "the heading West (U.S.) is too wide: give a state",
            "why": "Readers of this library know the states."}])
        log = json.loads(self.check(self.sound, *settings, "--format", "sarif")[0])["runs"][0]
        rule = log["tool"]["driver"]["rules"][log["results"][0]["ruleIndex"]]
        self.assertEqual((rule["id"], rule["fullDescription"]["text"]),
                         ("west", "Readers of this library know the states."))
        page = self.check(self.sound, *settings, "--format", "html")[0]
        self.assertIn('data-rule="west"', page)
        rules = [json.loads(line) for line in
                 self.check(*settings, "--rules", "--format", "jsonl", status=0)[0].splitlines()]
        self.assertEqual((rules[-1]["rule"], rules[-1]["severity"]), ("west", "error"))
        weights = {rule["rule"]: rule["severity"] for rule in rules}
        self.assertEqual((weights["no-001"], weights["title-first-indicator"]), ("off", "off"))
        text, _ = self.check(*settings, "--rules", status=0)
        self.assertIn("Readers of this library know the states.", text)

    def test_the_example_of_the_page_of_rules_is_sound(self):
        example = PAGE.read_text().split("```toml\n")[1].split("```")[0]
        out, _ = self.check(self.sound, "--config", self.path("own.toml", example.encode()), "-q",
                            status=0)
        self.assertTrue(out.endswith("852 $h: warning: the record lacks a call number: give 852 $h "
                                     "[no-call-number]\n"), out)

    def test_a_fault_in_it_is_told_with_its_place(self):
        own = self.path("own.toml", b"[[rule]]\nid = 'x'\nmessage = 'M'\nwhere = 'has'\n")
        _, err = self.check(self.sound, "--config", own, status=2)
        self.assertTrue(err.startswith(f"quillory: {own}:4:9: "), err)
        self.assertIn("        has\n", err.replace("    ", "        "))
        own.write_bytes(b"[[rule]]\nid = 'x'\nwhere = 'has 245'\nmessage = 'not {fund}'\n")
        _, err = self.check(self.sound, "--config", own, status=2)
        self.assertIn(f"{own}:4:11: only {{found}} stands for a text", err)
        own.write_bytes(b"skip = ['no-41']\n")
        for arguments in ((self.sound,), ("--rules",)):
            _, err = self.check(*arguments, "--config", own, status=2)
            self.assertIn(f"{own}:1:9: there is no rule no-41", err)
        before = own.read_bytes()
        self.check(self.sound, "--config", own, "-o", own, status=2)
        self.assertEqual(own.read_bytes(), before)
        self.assertIn("none.toml", self.check(self.sound, "--config", "none.toml", status=2)[1])
        self.check(self.sound, "--config", own, "--no-config", status=2)


class Policies(Checks):
    def test_a_policy_leaves_the_settings_alone(self):
        self.assertEqual(run("settings", "ZP_RC_NoNotes", "1")[0], 0)
        before = {path: path.read_bytes() for path in self.home.rglob("*")}
        self.check(self.bare, "--policy", "custom", "--set", "NoTitle=1", status=2)
        self.check(self.bare, "--policy", "custom", "--set", "NoNotes=0")
        self.assertEqual({path: path.read_bytes() for path in self.home.rglob("*")}, before)

    def test_the_settings_are_the_policy(self):
        lacking = self.path("lacking.mrk", SOUND.replace("=650", "=651").replace(
            "=500  \\\\$aIncludes index.\n", "").encode())
        self.check(lacking, status=0)
        run("settings", "ZP_RC_NoNotes", "1")
        self.assertIn("warning: the record lacks notes", self.check(lacking)[0])
        run("settings", "ZP_RC_NoNotes", "0")
        self.assertIn("error: the record lacks notes", self.check(lacking)[0])

    def test_a_policy_that_is_set_is_in_force(self):
        capitals = self.path("capitals.mrk", SOUND.replace("Roughing it", "ROUGHING IT").encode())
        without_notes = self.path("lacking.mrk", SOUND.replace(
            "=500  \\\\$aIncludes index.\n", "").encode())
        for policy, of_capitals, of_no_notes in ((0, 0, 0), (1, 1, 0), (2, 1, 1), (0, 0, 0)):
            self.assertEqual(run("settings", "RadioBasic_TLC_Custom", str(policy))[0], 0)
            self.check(capitals, status=of_capitals)
            self.check(without_notes, status=of_no_notes)
        status, _, err = run("settings", "RadioBasic_TLC_Custom", "3")
        self.assertEqual(status, 2)
        self.assertIn('the value is 0, 1 or 2, not "3"', err)

    def test_wrong_usage(self):
        for arguments, words in (
                (["--set", "NoNotes"], "NoNotes is not KEY=0"),
                (["--set", "NoNotes=3"], "NoNotes=3 is not KEY=0"),
                (["--set", "FontWeight=1"], "no findings go by a setting FontWeight, only by "),
                (["--set", "CF_InvalidChar=1"], "NoNotes, "),
                (["--policy", "basic", "--set", "RecordViewerShowImportRepairLog=0"],
                 "the policy basic leaves nothing to set"),
                (["--user-defined", "zzz"], '"zzz" names no fields of your own'),
                (["--format", "3"], '--format: "3" is not one of text, jsonl, html, sarif'),
                (["--from-charset", "2"], '"2" is not a character set; there are auto, marc8, '),
                (["--policy", "basic", "--set", "NoNotes=1"], "the policy basic fixes it to 2"),
                (["--policy", "tlc", "--set", "No300a=2"], "the policy tlc fixes it to 0"),
                (["--policy", "strict"], '"strict" is not one of basic, tlc, custom'),
                (["-o", self.bare], "is an input"),
                ([self.path("none.mrc")], "none.mrc"),
                (["-o", self.path("no/folder/x")], "no/folder/x")):
            _, err = self.check(self.bare, *arguments, status=2)
            self.assertIn(words, err)
        self.assertEqual(self.bare.read_text(), BARE)


class Pages(Checks):
    def page(self, *arguments):
        self.check(*arguments, "-o", self.path("page.html"))
        return Page(self.path("page.html").read_text())

    def test_a_page_stands_alone(self):
        page = self.page(self.both, SAMPLES, "--policy", "custom")
        self.assertEqual(page.open, [])
        self.assertTrue(page.links)
        for link in page.links:
            self.assertIn(link.removeprefix("#"), page.ids)
        tags = {tag for tag, _ in page.tags}
        self.assertFalse(tags & {"link", "img", "iframe", "base"})
        self.assertEqual([attributes for tag, attributes in page.tags if tag == "script"], [{}])
        out, _ = self.check(self.both, SAMPLES, "--policy", "custom", "-q")
        self.assertEqual(len(page.rows), len(out.splitlines()))
        self.assertEqual(page.rows[2], ["Error", "No title the record lacks a title: give 245 $a",
                                        "245 $a", "2", str(len(SOUND) + 1), '<b>&"bare',
                                        "Nothing <script>alert(1)</script>", "both.mrk"])
        self.assertEqual(sum(tag == "svg" for tag, _ in page.tags), 3)
        self.assertIn("visual materials", page.text)

    def test_a_page_has_the_rules_and_what_filters_look_at(self):
        twice = self.path("twice.mrk", (SOUND + "=245  1 $aX\n=500  9\\$a\n=500  9\\$aY\n"
                                        + "\n" + BARE).encode())
        page = self.page(twice, "--policy", "custom", "--skip", "no-040")
        lines = self.check(twice, "--policy", "custom", "--skip", "no-040")[0].splitlines()
        rules = {row[1]: row for row in page.rules if row}
        totals = [line.split(None, 3) for line in lines[lines.index("") + 2:]]
        self.assertEqual([(row[3], row[0], row[1], row[2]) for row in rules.values()],
                         [tuple(total) for total in totals[:len(rules)]])
        self.assertEqual(rules["indicator-undefined"][3:5], ["3", "1"])
        shown = [attributes for tag, attributes in page.tags if "data-record" in attributes]
        undefined = [(row["data-field"], row["data-material"], row["data-severity"],
                      row["data-record"]) for row in shown
                     if row["data-rule"] == "indicator-undefined"]
        self.assertEqual(undefined, [("245", "books", "warning", "r1"),
                                     ("500", "books", "warning", "r1"),
                                     ("500", "books", "warning", "r1")])
        choices = {attributes["name"] for tag, attributes in page.tags if tag == "select"}
        for choice in choices:
            self.assertTrue(all("data-" + choice in row for row in shown), choice)

    def test_a_page_says_what_it_leaves_out(self):
        page = self.page(SAMPLES, "--policy", "custom", "--rows", "10")
        shown = len(page.rows)
        total = len(self.check(SAMPLES, "--policy", "custom", "-q")[0].splitlines())
        self.assertIn(f"The first {shown} of {total} findings", page.text)
        self.assertGreaterEqual(shown, 10)
        self.assertLess(shown, total)

    def test_a_page_marks_fields_and_names_damage(self):
        twice = self.path("twice.mrk", (SOUND + "=245  10$aROUGHING IT\n").encode())
        page = self.page(twice, "--policy", "custom")
        self.assertEqual(sum(tag == "mark" for tag, _ in page.tags), 1)
        damaged = self.path("damaged.mrc", b"00099 no record at all" + b"\x1d")
        page = self.page(damaged, self.sound)
        self.assertIn(f"{damaged}: record 1 at byte 0: ", page.text)
        self.assertIn("Nothing was found.", page.text)

    def test_nothing_is_left_when_the_reader_goes(self):
        source = self.path("many.mrk", (BARE + "\n").encode() * 5000)
        process = subprocess.Popen([QUILLORY, "check", source], stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE)
        process.stdout.readline()
        process.stdout.close()
        self.assertEqual((process.stderr.read(), process.wait()), (b"", 1))
        process.stderr.close()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
