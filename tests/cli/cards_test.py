#!/usr/bin/env python3
"""Cards and labels: on the terminal, as PDF and pictures, by the settings, and in their queues.

usage: cards_test.py QUILLORY SAMPLES_FOLDER
"""
import fcntl
import re
import shutil
import struct
import subprocess
import unittest

from support import SAMPLES, Cli, run

LEADER = "=LDR  00000nam a2200000 i 4500\n"
MAP = LEADER + "=001  m1\n=100  1\\$aMeyer, A.\n=245  10$aMaps.\n=852  \\\\$hMAP 1 v. 2\n\n"
SCRIPTS = (LEADER + "=001  s1\n=100  1\\$aТолстой, Лев\n=245  10$aВойна и мир\n\n"
           + LEADER + "=001  s2\n=245  00$aשלום עולם\n\n"
           + LEADER + "=001  s3\n=245  00$aالسلام\n\n")


def sample_titles():
    """Control number and title proper of each sample, read independently of the program."""
    for record in SAMPLES.read_text().strip().split("\n\n"):
        fields = dict(line[1:].split("  ", 1) for line in record.split("\n"))
        yield fields["001"], re.search(r"\$a([^$]*)", fields["245"]).group(1).rstrip(" /:;=,.")


def squeezed(text):
    """Letters and digits alone: what is left of a text however its lines are broken."""
    return "".join(re.findall(r"\w", text))


def pages_of(pdf):
    return len(re.findall(rb"/Type /Page\b[^s]", pdf))


class Prints(Cli):
    def quillory(self, *arguments, status=0, stdin=b""):
        result, out, err = run(*arguments, stdin=stdin)
        self.assertEqual(result, status, err)
        return out, err

    def records(self, text, name="in.mrk"):
        return self.path(name, text.encode())

    def shown(self, *arguments, status=0):
        """The cards that are shown, each as its lines without the frame."""
        out, _ = self.quillory("cards", *arguments, status=status)
        cards = out.decode().split("┌")[1:]
        return [[line.strip("│") for line in card.split("\n")[1:-2]] for card in cards]

    def text_of(self, pdf):
        if shutil.which("pdftotext") is None:
            self.skipTest("pdftotext is not here")
        done = subprocess.run(["pdftotext", "-layout", pdf, "-"], capture_output=True, check=True)
        return done.stdout.decode()


class Cards(Prints):
    def test_every_sample_has_its_title_on_its_main_card(self):
        for number, title in sample_titles():
            cards = self.shown(SAMPLES, "--make", "main", "--where", f'001 = "{number}"')
            with self.subTest(number=number):
                self.assertTrue(cards)
                self.assertTrue(all(len(line) == 59 or "\u0300" < max(line) for line in cards[0]))
                text = squeezed("".join(line[13:] for line in cards[0]))
                self.assertIn(squeezed(title)[:40], text)

    def test_the_card_of_a_book(self):
        cards = self.shown(SAMPLES, "--where", '001 = "zs0001"', "--make", "subjects",
                           "--make", "shelf-list")
        lines = [line.rstrip() for line in cards[0]]
        self.assertEqual(lines[:8], [
            "",
            "  PS2384     Melville, Herman, 1819-1891.",
            "  .M6            Moby Dick, or, The whale / by Herman",
            "  2001eb     Melville. — Urbana, Illinois : Project",
            "             Gutenberg, 2001.",
            "                 1 online resource. — (Project Gutenberg",
            "             eBook ; no. 2701)",
            ""])
        headings = [card[1].strip() for card in cards if "(Card" not in "".join(card)]
        self.assertEqual(headings[1:], ["WHALING--FICTION.", "WHALING SHIPS--FICTION.",
                                        "SHIP CAPTAINS--FICTION.", "SEA FICTION.", "NOVELS."])

    def test_pdf_has_the_same_text(self):
        pdf = self.path("cards.pdf")
        _, err = self.quillory("cards", SAMPLES, "--make", "main", "-o", pdf)
        cards, sheets = map(int, re.search(r"(\d+) cards on (\d+) sheets", err).groups())
        self.assertEqual(sheets, (cards + 2) // 3)
        self.assertEqual(pages_of(pdf.read_bytes()), sheets)
        text = squeezed(self.text_of(pdf))
        for number, title in sample_titles():
            with self.subTest(number=number):
                self.assertIn(squeezed(title)[:12], text)

    def test_all_scripts_are_printed(self):
        source = self.records(SCRIPTS)
        pdf = self.path("cards.pdf")
        self.quillory("cards", source, "--make", "main", "--per-sheet", "1", "-o", pdf)
        self.assertEqual(pages_of(pdf.read_bytes()), 3)
        text = self.text_of(pdf)
        self.assertIn("Война и мир", text)
        self.assertIn("שלום", text)
        line = self.shown(source, "--make", "main")[1][1]
        self.assertTrue(line.rstrip().endswith("שלום עולם."), line)
        self.assertGreater(len(line) - len(line.lstrip()), 40)
        odd = self.records(LEADER + "=245  00$aPrivate \U0010FFFD\n\n", "odd.mrk")
        _, err = self.quillory("cards", odd, "--make", "main", "-o", pdf, status=1)
        self.assertIn("no installed font has 1 character, first U+10FFFD", err)

    def test_no_picture_has_its_name_before_all_pages_are_complete(self):
        source = self.records(MAP * 2)
        picture = self.path("p1.png", b"kept")
        pictures = ["--preview", self.path("p{}.png"), "--make", "main", "--per-sheet", "1"]
        for pdf in ("/dev/full", self.path("p2.png")):
            self.quillory("cards", source, "--format", "pdf", "-o", pdf, *pictures, status=2)
            self.assertEqual(picture.read_bytes(), b"kept")
            self.assertEqual(sorted(path.name for path in self.folder.iterdir()),
                             ["in.mrk", "p1.png"])

    def test_pictures_of_pages(self):
        source = self.records(MAP * 2)
        self.quillory("cards", source, "--preview", self.path("one.png"), "--make", "main",
                      "--per-sheet", "1")
        self.quillory("cards", source, "--preview", self.path("p{}.png"), "--make", "main",
                      "--per-sheet", "1", "--skip", "1", "-o", self.path("both.pdf"))
        self.assertEqual(pages_of(self.path("both.pdf").read_bytes()), 2)
        self.assertEqual((self.path("p1.png").read_bytes(), self.path("p2.png").read_bytes()),
                         (self.path("one.png").read_bytes(),) * 2)
        size = struct.unpack(">II", self.path("one.png").read_bytes()[16:24])
        self.assertEqual(size, (738, 443))  # 12.5 x 7.5 cm at 150 dots to the inch
        _, err = self.quillory("cards", self.records(MAP, "in1.mrk"), "--preview",
                               self.path("in{}.mrk"), status=2)
        self.assertIn("in1.mrk: is an input, and would be overwritten", err)
        self.quillory("cards", source, "--preview", self.path("sheet.png"), "--paper", "a4")
        size = struct.unpack(">II", self.path("sheet.png").read_bytes()[16:24])
        self.assertEqual(size, (1240, 1754))

    def test_roads_out(self):
        source = self.records(MAP)
        out, _ = self.quillory("cards", source, "--format", "pdf", "-q")
        self.assertTrue(out.startswith(b"%PDF-"))
        self.quillory("cards", source, "-o", self.path("cards.txt"))
        self.assertTrue(self.path("cards.txt").read_text().startswith("┌"))
        self.quillory("records", "add", source)
        shown = self.quillory("cards", source)[0]
        self.assertEqual(self.quillory("cards", "--stored")[0], shown)
        self.assertEqual(self.quillory("cards", "--stored", "--id", "1")[0], shown)
        self.assertEqual(self.quillory("cards", stdin=MAP.encode())[0], shown)
        for wrong in (["--per-sheet", "9"], ["-o", source], ["--preview", "x.png", "--format",
                      "text"], ["--call-number", "24"], ["--make", "all"]):
            with self.subTest(wrong=wrong):
                self.quillory("cards", source, *wrong, status=2)
        self.assertEqual(source.read_bytes(), MAP.encode())

    def test_settings_are_followed_or_named(self):
        source = self.records(MAP)
        pdf = self.path("cards.pdf")
        self.quillory("settings", "OptionsCards", "CardsPerSheet=1\\\\CardSetIncludes=m\\\\")
        self.assertIn("1 card on 1 sheet", self.quillory("cards", source, "-o", pdf)[1])
        self.quillory("settings", "OptionsCardsFonts", "Body=Courier,big,400,0\\\\")
        _, err = self.quillory("cards", source, "-o", self.path("no.pdf"), status=2)
        self.assertIn("ZP_OptionsCardsFonts: Body: the value is ", err)
        self.assertFalse(self.path("no.pdf").exists())


class Labels(Prints):
    def test_call_numbers_are_broken_for_the_spine(self):
        out, _ = self.quillory("labels", self.records(MAP))
        self.assertEqual([line.strip("│ ") for line in out.decode().split("\n")[1:5]],
                         ["MAP", "1", "v. 2", ""])
        pdf = self.path("labels.pdf")
        self.quillory("labels", self.records(MAP * 3), "--type", "SP1", "--skip", "13", "-o", pdf)
        self.assertEqual(pages_of(pdf.read_bytes()), 2)
        text = self.text_of(pdf)
        self.assertEqual(text.count("Meyer, A."), 3)
        self.assertIn("MAP 1 v. 2", text)

    def test_what_has_no_label_is_named(self):
        source = self.records(LEADER + "=001  x\n=245  00$aNo number\n\n")
        _, err = self.quillory("labels", source, "-o", self.path("l.pdf"), status=1)
        self.assertIn("(001 x): no call number, and so no label", err)
        long = self.records(LEADER + "=001  y\n=090  \\\\$a" + "long" * 30 + "\n\n", "long.mrk")
        _, err = self.quillory("labels", long, "-o", self.path("l.pdf"), status=1)
        self.assertIn("the label of record y has no room", err)
        _, err = self.quillory("labels", source, "--type", "none", status=2)
        self.assertIn("one of S1 (", err)


class Queues(Prints):
    def queue(self, kind="Card", user=0):
        return self.home / f"{kind}PrntQ{user}.prn"

    def test_from_adding_to_clearing(self):
        source = self.records(MAP)
        self.assertIn("0 cards in the queue", self.quillory("cards", "list")[1])
        self.quillory("cards", "add", source, "--make", "main")
        _, err = self.quillory("cards", "add", source, "--make", "titles")
        self.assertIn("1 card added to the queue, which has 2", err)
        out, err = self.quillory("cards", "list")
        self.assertEqual(out.decode(), "m1             main entry  Meyer, A. Maps.\n"
                                       "m1             title       Maps.\n")
        self.assertEqual(self.queue().read_bytes()[:4], b"\2\0\0\0")
        direct = self.quillory("cards", source, "--make", "main", "--make", "titles")[0]
        self.assertEqual(self.quillory("cards", "print")[0], direct)
        pdf = self.path("cards.pdf")
        self.quillory("cards", "print", "-o", pdf)
        self.assertEqual(pages_of(pdf.read_bytes()), 1)
        _, err = self.quillory("cards", "clear", status=1)
        self.assertIn("--yes", err)
        self.assertTrue(self.queue().exists())
        self.quillory("cards", "clear", "--yes")
        self.assertFalse(self.queue().exists())
        self.quillory("cards", "clear", "--yes")

    def test_list_says_how_many_cards_an_item_takes(self):
        long = self.records(LEADER + "=001  c1\n=245  00$aMaps.\n=505  0\\$a" +
                            "Rivers and their valleys -- " * 60 + "\n\n", "long.mrk")
        _, err = self.quillory("cards", "add", long, "--make", "main")
        count = int(re.search(r"(\d+) cards added", err)[1])
        out, err = self.quillory("cards", "list")
        self.assertIn(f"main entry  Maps. ({count} cards)\n", out.decode())
        self.assertIn(f"{count} cards in the queue", err)

    def test_each_user_and_kind_has_a_queue(self):
        source = self.records(MAP)
        self.quillory("labels", "add", source)
        (self.home / "Quillory Main.ini").write_text("[User Information]\nThisUserID=3\n")
        self.quillory("labels", "add", source)
        self.assertEqual(self.queue("Label").read_bytes(), self.queue("Label", 3).read_bytes())
        self.assertFalse(self.queue("Card", 3).exists())

    def test_a_queue_in_use_waits_for_its_user(self):
        self.quillory("cards", "add", self.records(MAP))
        before = self.queue().read_bytes()
        with open(self.queue(), "r+b") as held:
            fcntl.flock(held, fcntl.LOCK_EX)
            for command in (["add", self.records(MAP)], ["print"], ["list"]):
                with self.subTest(command=command):
                    _, err = self.quillory("cards", *command, status=2)
                    self.assertIn("another program has the queue open", err)
            self.quillory("cards", "clear", "--yes", status=1)
        self.assertEqual(self.queue().read_bytes(), before)

    def test_damage_is_named_and_nothing_lost(self):
        self.quillory("cards", "add", self.records(MAP))
        whole = self.queue().read_bytes()
        self.queue().write_bytes(whole[:-1])
        out, err = self.quillory("cards", "list", status=1)
        self.assertEqual(len(out.splitlines()), 2)
        self.assertIn("item 3 at byte", err)
        self.quillory("cards", "add", self.records(MAP), status=2)
        self.assertEqual(self.queue().read_bytes(), whole[:-1])
        with open(self.queue(), "wb") as huge:
            huge.write(whole[:17] + b"\xff\xff\xff\x7f")
            huge.truncate(1 << 32)
        self.quillory("cards", "print", status=1)
        self.queue().write_bytes(b"not ours")
        _, err = self.quillory("cards", "print", status=2)
        self.assertIn("is no queue that this program made", err)


if __name__ == "__main__":
    unittest.main(argv=["cards_test.py"])
