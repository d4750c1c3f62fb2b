"""Inputs that are made to take much memory or time: each is refused by name, or read."""
import gzip
import sys
import unittest

from support import Cli, SAMPLES, run

XML = b'<?xml version="1.0"?><collection xmlns="http://www.loc.gov/MARC21/slim">'
RECORD = b'<record><leader>00000nam a2200000 a 4500</leader><controlfield tag="001">x' \
         b'</controlfield></record>'


class Limits(Cli):
    def refused(self, words, *command, status=2):
        result, _, err = run(*command)
        self.assertEqual(result, status, err[:300])
        self.assertIn(words, err)

    def test_deep_nesting(self):
        holdings = self.path("h.jsonl", b'{"001":"x","a":' + b"[" * 100000 + b"}\n")
        self.refused("h.jsonl: line 1, column 79: nested more than 64 deep", "export", SAMPLES,
                     "--holdings", holdings, "--holdings-type", "1")
        dots = b"a" + b".a" * 40000 + b" = 1\n"
        task = self.path("task.toml", dots)
        self.refused(f"{task}:1:130: nested more than 64 deep", "edit", task, SAMPLES)
        for name, text in (("dots", dots), ("arrays", b"245 = " + b"[" * 40000),
                           ("header", b"[" + dots[:-5] + b"]\n"),
                           ("tables", b"245 = " + b"{a = " * 40000)):
            with self.subTest(name=name):
                toml = self.path(f"{name}.toml", b'[[record]]\n' + text)
                self.refused("nested more than 64 deep", "catalog", toml, status=1)
                self.refused("nested more than 64 deep", "new", "-w", "1", "--from",
                             self.path("one.toml", text))
        source = self.path("deep.jsonl", b'{"leader":' * 50000)
        self.assertEqual(run("convert", source)[0], 1)

    def test_xml(self):
        for name, text, words in (
                ("depth", XML + RECORD + b"<a>" * 100000, "nested more than 256 deep"),
                ("records", XML + RECORD + b"<record>" * 100000, "nested more than 256 deep"),
                ("attributes", XML + RECORD + b"<record"
                 + b"".join(b' a%d=""' % n for n in range(80000)) + b"/>", "a tag of over 32 KiB"),
                ("namespaces", XML + RECORD + b"<record"
                 + b"".join(b' xmlns:a%d="u"' % n for n in range(40000)) + b"/>",
                 "a tag of over 32 KiB")):
            with self.subTest(name=name):
                source, rejects = self.path("in.xml", text), self.path("r")
                status, out, err = run("convert", source, "--to", "mrk", "--rejects", rejects)
                self.assertEqual((status, out.count(b"=LDR")), (1, 1))
                self.assertIn(words, err)
                self.assertTrue(text.endswith(rejects.read_bytes()))
        comment = b"<!--" + b"<a " * 50000 + b"-->"
        data = b'<a xmlns="other"><![CDATA[' + b"<a " * 50000 + b"]]></a>"
        source = self.path("sound.xml", XML + comment + data + RECORD + b"</collection>")
        status, out, err = run("convert", source, "--to", "mrk")
        self.assertEqual((status, out.count(b"=LDR"), err), (0, 1, ""))

    def test_a_letter_under_many_diacritics(self):
        text = XML + RECORD.replace(b"</record>", b'<datafield tag="500" ind1=" " ind2=" ">'
                                    b'<subfield code="a">q' + b"\xcc\x81" * 490000
                                    + b"</subfield></datafield></record>") + b"</collection>"
        self.refused("500: the field has ", "convert", self.path("in.xml", text), "--to-charset",
                     "marc8", status=1)

    def test_what_is_held_in_memory(self):
        bomb = gzip.compress(b"#" + b"x" * (65 << 20), 1)
        for name, command in (("b.toml.gz", ["catalog"]), ("b.toml.gz", ["new", "--from"]),
                              ("b.toml.gz", ["edit"]), ("b.tsv.gz", ["pick", SAMPLES, "--ids"]),
                              ("b.ttm", ["workforms", "import"]),
                              ("b.tsv", ["export", SAMPLES, "--holdings"])):
            with self.subTest(name=name, command=command):
                self.refused(f"{name}: more than 67108864 bytes, unpacked", *command,
                             self.path(name, bomb))
        self.refused("--memory allows more", "export", SAMPLES, "--memory", "1K", "--holdings",
                     self.path("h.tsv", b"001\t852$h\n" + b"x\ty\n" * 1000))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
