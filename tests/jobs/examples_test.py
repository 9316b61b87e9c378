# SPDX-License-Identifier: Apache-2.0
"""The examples of covers and inserts, from every kind of document, through a real print server."""

import unittest

import documents
from expected import Wish
from office import ANOTHER_RENDERER, Case, OfficeTest

EXAMPLES = [
    # pages, wish, sheets
    (5, Wish(covers=1, cover_value=1), "C1|- B2|3 B4|5"),
    (5, Wish(covers=1, cover_value=2, cover_medium="Leather"), "C-|1 B2|3 B4|5"),
    (5, Wish(False, 2, 9), "C1 B2 B3 B4 C5"),
    (10, Wish(covers=2, cover_value=5), "C1|- B2|3 B4|5 B6|7 B8|9 C-|10"),
    (2, Wish(covers=2, cover_value=13), "C1|- C-|2"),
    (10, Wish(inserts=(5, 8)), "B1|2 B3|4 I-|- B5|6 B7|- I-|- B8|9 B10|-"),
    (10, Wish(inserts=(4, 5, 6), insert_value=3, insert_medium="Tray3"),
     "B1|2 B3|- I4|- I5|- I6|7 B8|9 B10|-"),
    (3, Wish(covers=2, cover_value=5, cover_medium="PrnDef"), "C1|- B2|- C-|3"),
]


class Examples(OfficeTest):
    def check_all(self, document, options=None):
        self.check([Case(f"{pages} pages, {wish}", document(pages), wish, sheets, options or {})
                    for pages, wish, sheets in EXAMPLES])

    def test_pdf_through_ghostscript(self):
        self.check_all(self.pdf)

    def test_pdf_through_poppler(self):
        self.check_all(self.pdf, ANOTHER_RENDERER)

    def test_postscript_with_page_comments(self):
        self.check_all(documents.postscript)

    def test_postscript_without_page_comments(self):
        self.check_all(documents.plain_postscript)


if __name__ == "__main__":
    unittest.main()
