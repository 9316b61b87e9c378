# SPDX-License-Identifier: Apache-2.0
"""Documents whose pages are unlike the ordinary ones, through a real print server."""

import unittest

import documents
from documents import A3, A4, A4_LANDSCAPE, A5, LETTER
from expected import BOTH, COVERS, INSERTS, Wish
from office import ANOTHER_RENDERER, QUEUE, Case, OfficeTest, through_both_renderers

NO_NUMBER = r"(?!)"  # matches nothing: pages that do not say their number


class Pages(OfficeTest):
    def test_mixed_page_sizes(self):
        sizes = [A4, A4, A3, A3, A4, LETTER, A4]
        pdf = documents.pdf_in_sizes(self.office.folder, sizes)
        self.check(through_both_renderers(
            Case("covers", pdf, COVERS, "C1|- B2|3 B4|5 B6|- C-|7"),
            Case("inserts", pdf, INSERTS, "B1|2 I3|- B4|5 B6|7")))

    def test_rotated_pages(self):
        pdf = documents.rotated_pdf(self.office.folder, 6, {2: 90, 3: 270, 5: 180, 6: 90})
        self.check(through_both_renderers(
            Case("covers", pdf, COVERS, "C1|- B2|3 B4|5 C-|6"),
            Case("inserts", pdf, INSERTS, "B1|2 I3|- B4|5 B6|-")))

    def test_postscript_whose_pages_set_their_size(self):
        for sizes in ([A4] * 5, [A4, A4, A4_LANDSCAPE, A4, A4], [A4, A3, A3, LETTER, A4]):
            self.check([Case(f"{sizes}", documents.postscript_in_sizes(sizes), COVERS,
                             "C1|- B2|3 B4|- C-|5")])

    def test_page_comments_in_binary_data(self):
        self.check([Case("covers", documents.postscript_with_page_comments_in_data(5, 2), COVERS,
                         "C1|- B2|3 B4|- C-|5"),
                    Case("inserts", documents.postscript_with_page_comments_in_data(5, 3), INSERTS,
                         "B1|2 I3|- B4|5")])

    def test_pictures_and_text(self):
        self.check(through_both_renderers(
            Case("picture", documents.png(200, 150), COVERS, "C?|- C-|-"),
            Case("text", documents.text(200), COVERS, "C?|- B?|- C-|?"),
            Case("text, inserts", documents.text(200), INSERTS, "B?|? I?|-")), pattern=NO_NUMBER)

    def test_page_label(self):
        for document, renderer in ((self.pdf(4), {}), (self.pdf(4), ANOTHER_RENDERER),
                                   (documents.postscript(4), {})):
            job = self.office.send(QUEUE, document,
                                   COVERS.options() | {"page-label": "Secret"} | renderer)
            sheets = self.office.look(job).result()
            sides = [side for sheet in sheets for side in (sheet.front, sheet.back)]
            self.assertEqual([side.blank for side in sides], [False, True, False, False, True, False])
            self.assertTrue(all("Secret" in side.text for side in sides if not side.blank))

    def test_pages_look_as_without_covers(self):
        rotated = documents.rotated_pdf(self.office.folder, 6, {2: 90, 3: 270, 5: 180})
        sizes = documents.pdf_in_sizes(self.office.folder, [A4, A3, LETTER, A4, A5, A4])
        for document, renderer in ((self.pdf(6), {}), (self.pdf(6), ANOTHER_RENDERER), (rotated, {}),
                                   (sizes, ANOTHER_RENDERER), (documents.text(300), {}),
                                   (documents.postscript_with_page_comments_in_data(6, 3), {})):
            plain = self.office.send(QUEUE, document, Wish().options() | renderer)
            sheets = self.office.send(QUEUE, document, BOTH.options() | renderer)
            plain, sheets = self.office.look(plain, 72), self.office.look(sheets, 72)
            with self.subTest(f"{str(document)[:60]} {renderer}"):
                pages = self.pictures(sheets.result())
                self.assertEqual(pages, self.pictures(plain.result()))
                self.assertGreaterEqual(len(pages), 5)

    @staticmethod
    def pictures(sheets):
        return [(side.picture, side.text) for sheet in sheets for side in (sheet.front, sheet.back)
                if side and not side.blank]


if __name__ == "__main__":
    unittest.main()
