# SPDX-License-Identifier: Apache-2.0
"""What the tests expect of jobs agrees with sheets that were worked out by hand."""

import unittest

from expected import Wish, parsed, planned, written

BY_HAND = [
    # pages, wish, sheets
    (5, Wish(covers=1, cover_value=1), "C1|- B2|3 B4|5"),
    (5, Wish(covers=1, cover_value=2), "C-|1 B2|3 B4|5"),
    (5, Wish(False, 2, 9), "C1 B2 B3 B4 C5"),
    (10, Wish(covers=2, cover_value=5), "C1|- B2|3 B4|5 B6|7 B8|9 C-|10"),
    (2, Wish(covers=2, cover_value=13), "C1|- C-|2"),
    (10, Wish(inserts=(5, 8)), "B1|2 B3|4 I-|- B5|6 B7|- I-|- B8|9 B10|-"),
    (10, Wish(inserts=(4, 5, 6), insert_value=3), "B1|2 B3|- I4|- I5|- I6|7 B8|9 B10|-"),
    (3, Wish(covers=2, cover_value=5), "C1|- B2|- C-|3"),
    (3, Wish(covers=2, cover_value=15), "C1|2 C-|3"),
    (1, Wish(covers=2, cover_value=15), "C1|- C-|-"),
    (4, Wish(covers=1, cover_value=15), "C1|2 B3|4"),
    (4, Wish(covers=2, cover_value=32), "C-|- B1|2 B3|4 C-|-"),
    (4, Wish(False, 2, 15), "C1 B2 B3 C4"),
    (4, Wish(False, inserts=(2, 4), insert_value=2), "B1 I- B2 B3 I- B4"),
    (4, Wish(False, inserts=(2, 4), insert_value=3), "B1 I2 B3 I4"),
    (6, Wish(inserts=(3, 5), insert_value=1), "B1|2 I3|- B4|- I5|- B6|-"),
    (6, Wish(inserts=(3, 5), insert_value=2), "B1|2 I-|3 B4|- I-|5 B6|-"),
    (6, Wish(covers=2, cover_value=4, inserts=(1, 4, 6, 9), insert_value=3),
     "C-|- I1|2 B3|- I4|5 C-|6"),
    (0, Wish(covers=2, cover_value=5), ""),
]


class Expected(unittest.TestCase):
    def test_by_hand(self):
        for count, wish, sheets in BY_HAND:
            with self.subTest(f"{count} pages, {wish}"):
                self.assertEqual(written(planned(wish, count)), sheets)
                self.assertEqual(written(parsed(sheets)), sheets)

    def test_every_page_once_and_in_order(self):
        for count in range(9):
            for covers in range(3):
                for value in range(16):
                    for insert in range(4):
                        for two_sided in (False, True):
                            wish = Wish(two_sided, covers, value, inserts=(2, 3, 6), insert_value=insert)
                            pages = [side for _, *sides in planned(wish, count) for side in sides if side]
                            self.assertEqual(pages, list(range(1, count + 1)), wish)


if __name__ == "__main__":
    unittest.main()
