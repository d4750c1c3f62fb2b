"""bench-compare tells what became slower from noise, and names what it can't compare."""

import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

BENCH_COMPARE = Path(__file__).resolve().parents[2] / "tools" / "bench-compare"


def compare(before, after, *options):
    """Runs the tool on times in microseconds, lists by names of benchmarks."""
    with tempfile.TemporaryDirectory() as root:
        folders = []
        for name, results in (("before", before), ("after", after)):
            folders.append(Path(root, name))
            folders[-1].mkdir()
            rows = [{"name": bench, "run_type": kind, "cpu_time": time, "time_unit": "us"}
                    for bench, times in results.items()
                    for kind, time in [("aggregate", 1e9), *(("iteration", t) for t in times)]]
            if results:
                (folders[-1] / "zorby_bench.json").write_text(json.dumps({"benchmarks": rows}))
        done = subprocess.run([sys.executable, BENCH_COMPARE, *options, *folders],
                              capture_output=True, text=True, check=False)
    return done.returncode, done.stdout.splitlines(), done.stderr


class BenchCompare(unittest.TestCase):
    def test_slower_and_faster(self):
        status, lines, _ = compare(
            {"Read": [100, 102, 101], "Write": [4000, 4100, 4050], "Sort": [7, 7, 7]},
            {"Read": [125, 126, 124], "Write": [2000, 2010, 2005], "Sort": [7.5, 7.4, 7.6]})
        self.assertEqual(status, 1)
        self.assertEqual(lines, ["1 of 3 benchmarks are slower",
                                 "  +23.8 %     101 us ->    125 us  zorby_bench Read",
                                 "1 of 3 benchmarks are faster",
                                 "  -50.5 %    4.05 ms ->      2 ms  zorby_bench Write"])

    def test_noise_is_no_change(self):
        for before, after in (([100, 101, 130], [125, 128, 131]),
                              ([100, 100, 100], [109, 110, 109]), ([50], [50])):
            with self.subTest(before=before, after=after):
                status, lines, _ = compare({"Read": before}, {"Read": after})
                self.assertEqual((status, lines), (0, ["0 of 1 benchmarks are slower",
                                                       "0 of 1 benchmarks are faster"]))

    def test_the_threshold_is_chosen(self):
        results = {"Read": [100]}, {"Read": [104]}
        self.assertEqual(compare(*results)[0], 0)
        self.assertEqual(compare(*results, "--threshold", "3")[0], 1)

    def test_what_stands_on_one_side_is_named(self):
        status, lines, _ = compare({"Read": [1], "Old": [1]}, {"Read": [1], "New": [1]})
        self.assertEqual((status, lines[2:]),
                         (0, ["gone: zorby_bench Old", "new: zorby_bench New"]))

    def test_nothing_to_compare(self):
        status, _, err = compare({"Read": [1]}, {})
        self.assertEqual(status, 2)
        self.assertIn("after: no results", err)


if __name__ == "__main__":
    unittest.main()
