#!/usr/bin/env python3
"""The sources of the standard workforms: their form, their order, and what they say of MARC 21."""

import copy
import csv
import re
import tomllib
import unicodedata
import unittest
from pathlib import Path

DATA = Path(__file__).resolve().parents[2] / "data"
WORKFORMS = DATA / "workforms"
FALLBACK = "Book (not atlas or songbook)"

# Form and byte zero of field 006 by material.
MATERIALS = {
    **dict.fromkeys(["Book", "BookComputerFile"], ("Books", "at")),
    **dict.fromkeys(["ComputerFile", "ComputerFileDisk", "ComputerFileOther"],
                    ("ComputerFile", "m")),
    **dict.fromkeys(["Globe", "Atlas", "Map", "RemoteSensing"], ("Map", "ef")),
    "Mixed": ("Mixed", "p"), "Serial": ("Continuing", "as"), "Music": ("MusicSound", "cd"),
    **dict.fromkeys(["SoundDisc", "SoundTape", "SoundRecord", "SoundOther"], ("MusicSound", "ij")),
    "SoundNonmusical": ("MusicSound", "i"),
    **dict.fromkeys(["MotionPicture", "VideoTape", "VideoDisc", "VideoOther", "VideoPlain",
                     "ProjectedGraphic"], ("Visual", "g")),
    "Kit": ("Visual", "o"), "NonprojectedGraphic": ("Visual", "k"), "ThreeDObject": ("Visual", "r"),
}
BLANK_006 = 18 * "#"  # of a 007 that stands beside those of the main material
LENGTHS_007 = {"None": 0, "Map": 8, "Electronic": 14, "Globe": 6, "Projected": 9, "Microform": 13,
               "Nonprojected": 6, "MotionPicture": 23, "Sound": 14, "Video": 9, "RemoteSensing": 11,
               "Tactile": 10}
CATEGORIES_007 = {"Map": "a", "Electronic": "c", "Globe": "d", "Projected": "g", "Microform": "h#",
                  "Nonprojected": "k", "MotionPicture": "m", "Sound": "s", "Video": "v",
                  "RemoteSensing": "r", "Tactile": "f"}
TEXTS = ("rules", "reminders", "examples")
KEYS = {
    "": ("name id base material form-006 form-007 leader field-008 field-007 additional-006 field",
         "help indicator additional"),
    "field": ("tag indicators subfields", "prompt priority subfield-priority"),
    "help": ("tag code", " ".join(TEXTS)),
    "indicator": ("tag which", "default name explanation"),
    "additional": ("material form-006 form-007 field-006 field-007", ""),
}


def rows(file, section):
    lines = (DATA / "marc21" / file).read_text(encoding="utf-8").split(f"[{section}]\n")[1]
    return csv.DictReader(lines.split("\n\n")[0].split("\n"), delimiter="\t",
                          quoting=csv.QUOTE_NONE)


SUBFIELDS = {(row["tag"], row["code"]) for row in rows("subfields.tsv", "subfields")
             if "(obsolete)" not in row["name"]}
VALUES = {(row["tag"], row["which"], row["value"].replace("#", "_"))
          for row in rows("indicators.tsv", "indicator values")}
RANGED = {(tag, which) for tag, which, _ in VALUES}


def load():
    return {file.name: tomllib.loads(file.read_text(encoding="utf-8"))
            for file in sorted(WORKFORMS.glob("*.toml"))}


def good_indicators(tag, pair):
    return all((tag, which, value) in VALUES or (tag, which) not in RANGED and value == "_"
               for which, value in zip("12", pair))


def latin(text):
    """Whether the characters are those that the one-byte code of the data files has."""
    return all(c == "\n" or " " <= c <= "~" or c in "°©℗"
               or "LATIN" in unicodedata.name(c, "") for c in text)


def codes(field):
    return [item if isinstance(item, str) else item[0] for item in field["subfields"]]


def key_faults(table, kind):
    needed, optional = (set(words.split()) for words in KEYS[kind])
    return [f"{kind} {table.get('tag', '')}: key {key}"
            for key in (needed - set(table)) | (set(table) - needed - optional)]


def form_faults(table, byte_zero):
    """What the main and the additional materials have in common."""
    found = []
    form, zeros = MATERIALS.get(table["material"], ("", ""))
    if table.get("field-006") == BLANK_006:
        form, zeros = "None", "#"
    if table["form-006"] != form:
        found.append(f"material {table['material']} with 006 form {table['form-006']}")
    if byte_zero not in zeros:
        found.append(f"material {table['material']} with type {byte_zero}")
    field = table["field-007"]
    if len(field) != LENGTHS_007.get(table["form-007"], -1):
        found.append(f"length of 007 {field!r}")
    elif field and field[0] not in CATEGORIES_007[table["form-007"]]:
        found.append(f"category of 007 {field!r}")
    return found


def control_faults(form):
    found = form_faults(form, form["leader"][6:7])
    if not re.fullmatch(r"00000n[a-z]{2}[#a]#2200000#i#4500", form["leader"]):
        found.append(f"leader {form['leader']!r}")
    if not re.fullmatch(r"0{6}[a-z].{33}", form["field-008"]):
        found.append(f"008 {form['field-008']!r}")
    if len(form["additional-006"]) not in (0, 18):
        found.append("length of the additional 006")
    for extra in form.get("additional", []):
        found += key_faults(extra, "additional") or form_faults(extra, extra["field-006"][:1])
        if len(extra["field-006"]) != 18:
            found.append(f"length of 006 {extra['field-006']!r}")
    return found


def field_faults(fields):
    found = []
    prompted = set()
    for before, field in zip([{"tag": ""}] + fields, fields):
        tag = field["tag"]
        if field["tag"] < before["tag"]:
            found.append(f"{tag} after {before['tag']}")
        if not good_indicators(tag, field["indicators"]):
            found.append(f"{tag}: indicators {field['indicators']}")
        asked = field.get("prompt", "") + field.get("subfield-priority", "")
        found += [f"{tag}: subfield {code}" for code in codes(field) + list(asked)
                  if (tag, code) not in SUBFIELDS]
        if ("prompt" in field or "priority" in field) and tag in prompted:
            found.append(f"{tag}: prompt or priority behind its first field")
        prompted.add(tag)
    if "245" not in prompted:
        found.append("no 245")
    return found


def example_faults(tag, example):
    match = re.fullmatch(r"(\d{3}) ([\d#]{2}) (\$.*)", example)
    if not match or match[1] != tag:
        return [f"{tag}: example {example!r}"]
    found = [f"{tag}: example with subfield {code}"
             for code in re.findall(r"(?:^|(?<= ))\$(.)(?= )", match[3])
             if (tag, code) not in SUBFIELDS]
    if not good_indicators(tag, match[2].replace("#", "_")):
        found.append(f"{tag}: example with indicators {match[2]}")
    return found


def help_faults(entries):
    found = []
    seen = set()
    for entry in entries:
        place = entry["tag"], entry["code"]
        if place not in SUBFIELDS:
            found.append(f"help for unknown {place}")
        if place in seen:
            found.append(f"help for {place} twice")
        seen.add(place)
        if not any(entry.get(kind) for kind in TEXTS):
            found.append(f"help for {place} says nothing")
        for example in entry.get("examples", "").splitlines():
            found += example_faults(entry["tag"], example)
    return found


def indicator_faults(entries):
    return [f"indicator {entry['tag']} {entry['which']}" for entry in entries
            if (entry["tag"], str(entry["which"]), entry.get("default", "_")) not in VALUES
            and ("default" in entry or (entry["tag"], str(entry["which"])) not in RANGED)]


def all_texts(value):
    if isinstance(value, str):
        return [value]
    parts = value.values() if isinstance(value, dict) else value if isinstance(value, list) else []
    return [text for part in parts for text in all_texts(part)]


def workform_faults(form):
    found = key_faults(form, "")
    for kind in ("field", "help", "indicator"):
        for table in form.get(kind, []):
            found += key_faults(table, kind)
    if found:
        return found
    found = [f"text {text!r}" for text in all_texts(form)
             if not latin(text) or text != text.strip()]
    return (found + control_faults(form) + field_faults(form["field"])
            + help_faults(form.get("help", [])) + indicator_faults(form.get("indicator", [])))


def list_faults(forms):
    """What only all the workforms together can show."""
    found = []
    bases = set()
    names = set()
    said = {}
    terms = {}
    for place, (file, form) in enumerate(forms.items(), 1):
        if not re.fullmatch(rf"{place:02d}-[a-z0-9-]+\.toml", file) or form["id"] != place:
            found.append(f"{file}: order number or ID isn't {place}")
        if form["name"] in names:
            found.append(f"{file}: name twice")
        names.add(form["name"])
        if form["base"] and form["base"] not in bases:
            found.append(f"{file}: base {form['base']!r} isn't a base workform before it")
        if not form["base"]:
            bases.add(form["name"])
        for entry in form.get("help", []):
            for kind in TEXTS:
                text = entry.get(kind)
                if text and said.setdefault((entry["tag"], text), file) != file:
                    found.append(f"{file}: text of {said[entry['tag'], text]} again: {text!r}")
        for field in form["field"]:
            given = {item[0]: item[1] for item in field["subfields"] if isinstance(item, list)}
            if field["tag"] in ("336", "337", "338"):
                pair = given.get("a"), given.get("b"), given.get("2")
                if terms.setdefault((field["tag"], pair[0]), pair) != pair:
                    found.append(f"{file}: {field['tag']} {pair}")
    if next(iter(forms.values()))["name"] != FALLBACK:
        found.append("the first workform isn't that of a book")
    found += [f"no workform for {material}"
              for material in MATERIALS.keys() - {form["material"] for form in forms.values()}]
    return found


def spoiled(change):
    forms = load()
    change(forms)
    faults = [fault for form in forms.values() for fault in workform_faults(form)]
    return faults + list_faults(forms)


class Workforms(unittest.TestCase):
    def test_each_workform(self):
        for file, form in load().items():
            with self.subTest(file):
                self.assertEqual(workform_faults(form), [])

    def test_list(self):
        forms = load()
        self.assertTrue(45 <= len(forms) <= 99, len(forms))
        self.assertEqual(list_faults(forms), [])

    def test_variants_of_a_map_follow_the_atlas(self):
        # Both share their forms, and the first of them gives the defaults: e in 008/25 must stay.
        kinds = [form["material"] for form in load().values()]
        self.assertLess(kinds.index("Atlas"), kinds.index("Map"))

    def test_faults_are_seen(self):
        def book(forms):
            return forms["01-book.toml"]

        changes = [
            lambda f: book(f).update(leader="0" * 24),
            lambda f: book(f).update({"field-008": "#" * 40}),
            lambda f: book(f).update({"field-007": "h"}),
            lambda f: book(f).update({"form-006": "Map"}),
            lambda f: book(f).update(note="a key of no use"),
            lambda f: book(f).update(id=2),
            lambda f: book(f).update(name="Book"),
            lambda f: book(f)["field"].reverse(),
            lambda f: book(f)["field"][0].update(indicators="1_"),
            lambda f: book(f)["field"][0]["subfields"].append("y"),
            lambda f: book(f)["help"].append(copy.copy(book(f)["help"][0])),
            lambda f: book(f)["help"][0].update(examples="245 99 $a Title."),
            lambda f: book(f)["help"][0].update(rules="Пример."),
            lambda f: book(f)["indicator"][0].update(default="7"),
            lambda f: f["12-e-book.toml"].update(base="E-book"),
            lambda f: f["12-e-book.toml"]["help"].append(book(f)["help"][0]),
            lambda f: f.pop("17-globe.toml"),
        ]
        for number, change in enumerate(changes):
            with self.subTest(number):
                self.assertNotEqual(spoiled(change), [])


if __name__ == "__main__":
    unittest.main()
