# SPDX-License-Identifier: Apache-2.0
"""Jobs with one mistake each: the comparison with the plan finds it."""

import json
import pathlib
import subprocess
import tempfile
import unittest

import ppd_media
from hand_made import BLANK, BODY, THICK, TRAY2, TWO_SIDED, ZEPHREL, job, page, sheets
from sheet_comparison import compare

HERE = pathlib.Path(__file__).parent
MEDIA = ppd_media.Media(ZEPHREL)

PLAN = {"copies": 1, "sheets": [
    {"sheet": 1, "role": "front-cover", "medium": "Tray2", "front": 1, "back": 0},
    {"sheet": 2, "role": "body", "medium": "Tray1/Plain", "front": 2, "back": 3},
    {"sheet": 3, "role": "insert", "medium": "Thick", "front": 0, "back": 0},
    {"sheet": 4, "role": "body", "medium": "Tray1/Plain", "front": 4, "back": 5}]}
RIGHT = [TWO_SIDED, BODY, TRAY2, page(1), BLANK, BODY, page(2), page(3), THICK, BLANK, BLANK,
         BODY, page(4), page(5)]


def changed(*changes):
    """RIGHT with pieces replaced: (position, what comes instead, ...), each counted in RIGHT. Begin with
    the last position when pieces are added or left out."""
    pieces = list(RIGHT)
    for position, *instead in changes:
        pieces[position:position + 1] = instead
    return pieces


class Faults(unittest.TestCase):
    """Jobs with one mistake each."""

    def compare(self, pieces):
        return compare(sheets(*pieces), PLAN, MEDIA)

    def assert_fault(self, words, pieces):
        faults = self.compare(pieces).faults
        self.assertTrue(any(words in fault for fault in faults), f"{words!r} is not in {faults}")

    def test_none_in_a_job_that_is_right(self):
        self.assertEqual(self.compare(RIGHT).faults, [])

    def test_wrong_tray_on_a_back(self):
        self.assert_fault("sheet 2 is torn: front and back differ: MediaPosition 0 and 2",
                          changed((6, page(2), "<</MediaPosition 2>>setpagedevice")))

    def test_wrong_tray(self):
        self.assert_fault("sheet 1: Tray2: 1 | - is planned, Tray3: 1 | - is printed",
                          changed((2, "<</MediaPosition 2/MediaType null>>setpagedevice")))

    def test_medium_not_restored_after_an_insert(self):
        faults = self.compare(changed((11,))).faults
        self.assertIn("sheet 4: Tray1/Plain: 4 | 5 is planned, Thick: 4 | 5 is printed", faults)

    def test_medium_restored_in_part(self):
        self.assert_fault("sheets 2 and 4 have to be of one paper, and differ in: MediaWeight",
                          changed((8, THICK + "<</MediaWeight 200>>setpagedevice")))

    def test_page_missing(self):
        self.assert_fault("sheet 2: Tray1/Plain: 2 | 3 is planned, Tray1/Plain: 2 is printed",
                          changed((7,)))

    def test_page_doubled(self):
        self.assert_fault("sheet 4: Tray1/Plain: 4 | 5 is planned, Tray1/Plain: 4 | 4 is printed",
                          changed((12, page(4), page(4))))

    def test_sheet_doubled(self):
        self.assert_fault("sheet 5: nothing is planned, Tray1/Plain: 4 | 5 is printed",
                          [*RIGHT, page(4), page(5)])

    def test_pages_exchanged(self):
        self.assert_fault("Tray1/Plain: 3 | 2 is printed", changed((6, page(3)), (7, page(2))))

    def test_blank_side_missing(self):
        self.assert_fault("sheet 1: Tray2: 1 | - is planned, Tray2: 1 is printed", changed((4,)))

    def test_blank_side_at_the_end_missing(self):
        plan = {"sheets": [{"medium": "Tray1/Plain", "front": 1, "back": 0}]}
        found = sheets(TWO_SIDED, BODY, page(1))
        self.assertFalse(compare(found, plan, MEDIA).alike)

    def test_side_not_blank(self):
        self.assert_fault("Tray2: 1 | ? is printed", changed((4, "9 9 99 99 rectfill showpage")))

    def test_torn_sheet(self):
        self.assert_fault("sheet 4 is torn", changed((12, page(4), "<</PageSize[842 595]>>setpagedevice")))

    def test_one_sided(self):
        self.assert_fault("Tray1/Plain: 3 is printed", changed((0,)))

    def test_wrong_number_of_copies(self):
        self.assert_fault("1 copies are planned, 2 printed",
                          changed((0, TWO_SIDED, "/#copies 2 def")))

    def test_collated_copies_are_the_whole_again(self):
        twice = {**PLAN, "copies": 2}
        again = sheets(*RIGHT, *RIGHT[2:])
        self.assertEqual(compare(again, twice, MEDIA).faults, [])
        self.assertFalse(compare(sheets(*RIGHT), twice, MEDIA).alike)


class Program(unittest.TestCase):
    def run_on(self, pieces, *options, plan=None):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            (folder / "job.ps").write_bytes(job(*pieces))
            if plan:
                (folder / "plan.json").write_text(json.dumps(plan))
                options = *options, "--plan", str(folder / "plan.json")
            return subprocess.run([str(HERE / "printed-sheets"), *options, str(folder / "job.ps")],
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, check=False)

    def test_writes_json(self):
        ended = self.run_on(RIGHT, "--ppd", str(ZEPHREL))
        found = json.loads(ended.stdout)
        self.assertEqual(ended.returncode, 0)
        self.assertEqual([sheet["medium"] for sheet in found["sheets"]],
                         ["Tray2", "Tray1/Plain", "Thick", "Tray1/Plain"])
        self.assertEqual(found["sheets"][0]["front"]["text"], "Page 1")
        self.assertTrue(found["sheets"][0]["back"]["blank"])

    def test_writes_page_numbers(self):
        ended = self.run_on(RIGHT, "--pages", r"Page (\d+)")
        self.assertEqual([(sheet["front"], sheet["back"]) for sheet in json.loads(ended.stdout)["sheets"]],
                         [(1, 0), (2, 3), (0, 0), (4, 5)])

    def test_shows_the_plan_beside(self):
        ended = self.run_on(RIGHT, "--ppd", str(ZEPHREL), "--table", plan=PLAN)
        self.assertEqual(ended.returncode, 0, ended.stdout + ended.stderr)
        self.assertIn("      1  Tray2        1 | -         Tray2        1 | -\n", ended.stdout)

    def test_marks_what_differs(self):
        ended = self.run_on(changed((4,)), "--ppd", str(ZEPHREL), "--table", plan=PLAN)
        self.assertEqual(ended.returncode, 1)
        self.assertIn(">     1  Tray2        1 | -         Tray2        1\n", ended.stdout)

    def test_says_why_a_job_is_not_printed(self):
        ended = self.run_on(["nonsense"])
        self.assertEqual((ended.returncode, ended.stdout), (3, ""))
        self.assertIn("undefined in nonsense", ended.stderr)


if __name__ == "__main__":
    unittest.main()
