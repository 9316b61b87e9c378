# SPDX-License-Identifier: Apache-2.0
"""The look at a job sees what a printer would do with it."""

import unittest

import printed_sheets
from hand_made import BLANK, BODY, TRAY2, TWO_SIDED, job, page, sheets, sides
from sheet_comparison import page_number


class Device(unittest.TestCase):
    """Each page is printed in the state that a printer would be in."""

    def assert_states(self, key, expected, *pieces):
        self.assertEqual([side.state.get(key) for side in sides(*pieces)], expected)

    def test_keeps_keys_that_ghostscript_drops(self):
        found = sides("<</MediaPosition 2/MediaType(Thick \\)\\\\\")/Staple 3/BRFeeder 1>>setpagedevice",
                      "showpage")[0].state
        self.assertEqual((found["MediaPosition"], found["MediaType"], found["Staple"],
                          found["BRFeeder"]), (2, 'Thick )\\"', 3, 1))

    def test_follows_save_and_restore(self):
        self.assert_states("MediaPosition", [1, 2, 1], "<</MediaPosition 1>>setpagedevice showpage",
                           "save <</MediaPosition 2>>setpagedevice showpage restore showpage")

    def test_follows_gsave_and_grestore(self):
        self.assert_states("MediaPosition", [1, 2, 1, 3, None],
                           "<</MediaPosition 1>>setpagedevice showpage",
                           "gsave <</MediaPosition 2>>setpagedevice showpage grestore showpage",
                           "gsave <</MediaPosition 3>>setpagedevice showpage grestoreall showpage")

    def test_follows_setgstate(self):
        self.assert_states("MediaType", ["A", "B", "A"], "<</MediaType(A)>>setpagedevice",
                           "gstate showpage <</MediaType(B)>>setpagedevice showpage",
                           "setgstate showpage")

    def test_sees_direct_calls(self):
        self.assert_states("MediaPosition", [4, 5], "<</MediaPosition 4>>",
                           "systemdict /setpagedevice get exec showpage",
                           "/s /setpagedevice load def <</MediaPosition 5>> s showpage")

    def test_sees_bound_calls_and_calls_in_global_memory(self):
        self.assert_states("MediaPosition", [4, 5, 4],
                           "/tray { << /MediaPosition 3 -1 roll >> setpagedevice } bind def",
                           "4 tray showpage save true setglobal 5 tray showpage restore showpage")

    def test_sees_the_tray_operators(self):
        self.assert_states("papertray", [3, 0, 3], "statusdict begin",
                           "3 setpapertray papertray 3 ne { stop } if showpage",
                           "gsave 0 setpapertray showpage grestore showpage end")

    def test_sees_manual_feed_of_level_1(self):
        self.assert_states("statusdict.manualfeed", [None, True, None], "showpage save",
                           "statusdict /manualfeed true put showpage restore showpage")

    def test_sees_makers_procedures(self):
        self.assert_states("DriverOps.tray", [2],
                           "2 /DriverOps /ProcSet findresource /setinputslot get exec showpage")

    def test_merges_input_attributes(self):
        state = sides("<</InputAttributes<</Priority[1]>>>>setpagedevice",
                      "<</InputAttributes<</Other 7>>>>setpagedevice",
                      "<</InputAttributes<</Priority[2 3]>>>>setpagedevice showpage")[0].state
        self.assertEqual(state["InputAttributes.Priority"], [2, 3])
        self.assertEqual(state["InputAttributes.Other"], 7)

    def test_shows_the_job_what_it_set(self):
        self.assert_states("MediaType", ["Thick", "Thick"],
                           "<</MediaType(Thick)>>setpagedevice showpage",
                           "currentpagedevice /MediaType get",
                           "<</MediaType null>>setpagedevice",
                           "<</MediaType 3 -1 roll>>setpagedevice",
                           "currentpagedevice /InputAttributes get 0 known { showpage } if")

    def test_runs_the_jobs_own_procedures(self):
        found = sides("/ended 0 def <</BeginPage{pop /Helvetica 20 selectfont 50 50 moveto (begun)show}",
                      "/EndPage{exch pop 0 eq /ended ended 1 add def ended 3 ne and}>>setpagedevice",
                      page(1), "currentpagedevice /EndPage get length 10 lt { stop } if",
                      "currentpagedevice setpagedevice", "showpage", page(2), with_text=True)
        self.assertEqual([page_number(side) for side in found], [1, 2])
        self.assertTrue(all("begun" in side.text for side in found))

    def test_refuses_values_of_a_wrong_type(self):
        for request in ("/MediaPosition(1)", "/MediaType 1", "/Duplex 1", "/ManualFeed null"):
            with self.subTest(request), self.assertRaisesRegex(printed_sheets.JobError, "typecheck"):
                sides(f"<<{request}>>setpagedevice showpage")

    def test_prints_no_job_that_ends_with_an_error(self):
        with self.assertRaisesRegex(printed_sheets.JobError, "undefined in nonsense"):
            sides("showpage nonsense")

    def test_counts_copies(self):
        found = sides("showpage <</NumCopies 3>>setpagedevice showpage",
                      "<</NumCopies null>>setpagedevice /#copies 2 def showpage")
        self.assertEqual([side.copies for side in found], [1, 3, 2])


class Pages(unittest.TestCase):
    def test_blank_is_what_shows_no_dot(self):
        found = sides(page(1), BLANK, "1 setgray 0 0 500 500 rectfill showpage",
                      "100 100 3 3 rectfill showpage", "showpage")
        self.assertEqual([side.blank for side in found], [False, True, True, False, True])

    def test_text_and_picture_tell_pages_apart(self):
        one, two, again = sides(page(1), page(2), page(1), with_text=True)
        self.assertEqual((one.text, two.text, again.text), ("Page 1", "Page 2", "Page 1"))
        self.assertEqual(one.picture, again.picture)
        self.assertNotEqual(one.picture, two.picture)

    def test_sizes(self):
        found = sides(page(1), "<</PageSize[420 595]>>setpagedevice", page(2))
        self.assertEqual([side.size for side in found], [(595, 842), (420, 595)])


class Pairing(unittest.TestCase):
    @staticmethod
    def pairs(found):
        return [(page_number(sheet.front), page_number(sheet.back))
                for sheet in found]

    def test_one_sided(self):
        self.assertEqual(self.pairs(sheets(page(1), page(2))), [(1, None), (2, None)])

    def test_two_sided(self):
        found = sheets(TWO_SIDED, page(1), page(2), page(3), BLANK, page(4))
        self.assertEqual(self.pairs(found), [(1, 2), (3, 0), (4, None)])
        self.assertEqual([sheet.torn for sheet in found], ["", "", ""])

    def test_what_changes_between_front_and_back_tears_the_sheet(self):
        for change, words in ((TRAY2, "MediaPosition"), ("<</PageSize[420 595]>>setpagedevice", "size"),
                              ("<</PageSize[842 595]>>setpagedevice", "size"),
                              ("<</Duplex false>>setpagedevice", "Duplex"),
                              ("<</Tumble true>>setpagedevice", "Tumble"),
                              ("statusdict begin 2 setpapertray end", "papertray"),
                              ("/#copies 2 def", "copies")):
            with self.subTest(change):
                found = sheets(TWO_SIDED, page(1), change, page(2))
                self.assertEqual(self.pairs(found), [(1, None), (2, None)])
                self.assertIn(words, found[0].torn)

    def test_setting_up_the_device_without_a_change_tears_it_for_some_printers(self):
        pieces = TWO_SIDED, BODY, page(1), BODY, page(2)
        self.assertEqual(self.pairs(sheets(*pieces)), [(1, 2)])
        strict = sheets(*pieces, strict=True)
        self.assertEqual(self.pairs(strict), [(1, None), (2, None)])
        self.assertIn("set up anew", strict[0].torn)

    def test_a_change_that_is_taken_back_within_the_page_before_is_none(self):
        found = sheets(TWO_SIDED, page(1), "save " + TRAY2 + " restore", page(2))
        self.assertEqual(self.pairs(found), [(1, 2)])

    def test_a_document_of_its_own_begins_a_sheet(self):
        two = job(TWO_SIDED, page(1)) + job(TWO_SIDED, page(2), page(3))
        found = printed_sheets.printed_sheets(two)
        self.assertEqual(self.pairs(found), [(1, None), (2, 3)])
        self.assertEqual(found[0].torn, "")


if __name__ == "__main__":
    unittest.main()
