# SPDX-License-Identifier: Apache-2.0
"""Jobs whose options are unlike the ordinary ones, through a real print server."""

import dataclasses
import subprocess
import unittest

import documents
from expected import BOTH, COVERS, INSERTS, Wish, parsed, plan
from office import ANOTHER_RENDERER, QUEUE, ZEPHREL, Case, OfficeTest, through_both_renderers


class Options(OfficeTest):
    def test_one_page(self):
        self.check([*through_both_renderers(
                        Case("front", self.pdf(1), Wish(covers=1, cover_value=1), "C1|-")),
                    Case("no side", self.pdf(1), Wish(covers=1, cover_value=16), "C-|- B1|-"),
                    Case("one-sided", self.pdf(1), Wish(False, 1, 1), "C1"),
                    Case("PostScript", documents.postscript(1), Wish(covers=2, cover_value=9), "C1|- C-|-"),
                    Case("plain PostScript", documents.plain_postscript(1), Wish(covers=1, cover_value=1),
                         "C1|-")])

    def test_page_ranges(self):
        self.check([*through_both_renderers(Case("3-7", self.pdf(10), BOTH, "C3|- B4|5 I-|- B6|7",
                                                 arguments=("-P", "3-7"))),
                    Case("PostScript", documents.postscript(10), BOTH, "C3|- B4|5 I-|- B6|9",
                         arguments=("-P", "3-6,9")),
                    Case("plain PostScript", documents.plain_postscript(10), BOTH,
                         "C3|- B4|5 I-|- B6|9", arguments=("-P", "3-6,9"))])

    def every_kind(self, case):
        """The case with PDF through both renderers, and with PostScript."""
        return [*through_both_renderers(dataclasses.replace(case, document=self.pdf(5))),
                dataclasses.replace(case, document=documents.postscript(5)),
                dataclasses.replace(case, document=documents.plain_postscript(5))]

    def test_collated_copies(self):
        self.check(self.every_kind(Case("collated", None, BOTH, "C1|- B2|3 I-|- B4|5",
                                        {"collate": "true"}, copies=3)))
        self.check([Case("in words of IPP", documents.postscript(5), INSERTS, "B1|2 I3|- B4|5",
                         {"multiple-document-handling": "separate-documents-collated-copies"},
                         copies=3)])

    def test_uncollated_copies(self):
        self.check(self.every_kind(Case("uncollated", None, BOTH, "C1|- B2|3 I-|- B4|5",
                                        {"collate": "false"}, copies=3)))

    def test_several_documents(self):
        self.check(through_both_renderers(
            Case("documents", [self.pdf(3), documents.postscript(2), self.pdf(4)], COVERS,
                 "C1|- B2|- C-|3 C1|- C-|2 C1|- B2|3 C-|4")))

    def test_short_edge(self):
        job = self.office.send(QUEUE, self.pdf(4), COVERS.options() | {"sides": "two-sided-short-edge"})
        sheets = self.office.look(job).result()
        self.assertEqual([(sheet.front.state["Duplex"], sheet.front.state["Tumble"])
                          for sheet in sheets], [(True, True)] * 3)

    def test_banners(self):
        for wish, rest, renderer in ((COVERS, "C1|- B2|- C-|3", {}),
                                     (INSERTS, "B1|2 I3|-", ANOTHER_RENDERER)):
            banners = {"job-sheets": "standard,standard"}
            job = self.office.send(QUEUE, self.pdf(3), wish.options() | banners | renderer)
            sheets = self.office.look(job).result()
            with self.subTest(f"{rest} {renderer}"):
                for banner in (sheets[0], sheets[-1]):  # both sides have it, as without covers
                    self.assertIn("Job ID: Zephrel-", banner.front.text)
                    self.assertEqual(banner.back.text, banner.front.text)
                    self.assertEqual(self.media.name(banner.front.medium), "Tray1/Plain")
                self.assert_sheets(sheets[1:-1], plan(parsed(rest), wish), job=job)

    def test_features_off(self):
        self.check([Case("number-up", self.pdf(4), COVERS, "B2|4", {"number-up": "2"}),
                    Case("reverse", self.pdf(4), COVERS, "B4|3 B2|1", {"outputorder": "reverse"}),
                    Case("no covers", self.pdf(3), Wish(), "B1|2 B3")])


class PrinterCommands(OfficeTest):
    def command(self, words):
        return self.office.server.send(
            QUEUE, "-o", "document-format=application/vnd.cups-command",
            input=f"#CUPS-COMMAND\n{words}\n".encode("ascii"))

    def test_the_queue_takes_them(self):
        said = subprocess.run(["lpoptions", "-p", QUEUE], stdout=subprocess.PIPE, text=True, check=True)
        self.assertRegex(said.stdout, r"printer-commands=\S*PrintSelfTestPage")

    def test_levels_of_supplies_can_be_asked_for(self):
        job = self.command("ReportLevels")
        self.office.server.wait_for(job)
        self.assertTrue(self.office.server.received(job).startswith(b"%!"))

    def test_a_test_page_is_one_sheet(self):
        job = self.command("PrintSelfTestPage")
        sheets = self.office.look(job).result()
        self.assertEqual([(sheet.front.blank, sheet.back) for sheet in sheets], [(False, None)])

    def test_lpstat_tells_of_finished_jobs(self):
        job = self.office.send(QUEUE, documents.postscript(2), COVERS.options())
        self.office.server.wait_for(job)
        said = subprocess.run(["lpstat", "-W", "all", "-o", QUEUE, "-p", QUEUE], stdout=subprocess.PIPE,
                              text=True, check=True).stdout
        self.assertIn(f"{QUEUE}-{job} ", said)
        self.assertNotIn("disabled", said)


class EvenDuplex(OfficeTest):
    def test_printer_that_wants_an_even_number_of_sides(self):
        ppd = self.office.folder / "even.ppd"
        ppd.write_text(ZEPHREL.read_text().replace("*PCFileName", "*cupsEvenDuplex: True\n*PCFileName", 1))
        self.office.add_queue("Even", ppd)
        self.check([*through_both_renderers(
                        Case("covers", self.pdf(5), COVERS, "C1|- B2|3 B4|- C-|5", queue="Even")),
                    Case("inserts", documents.postscript(5), INSERTS, "B1|2 I3|- B4|5", queue="Even"),
                    Case("one page", documents.postscript(1), Wish(covers=1, cover_value=1), "C1|-",
                         queue="Even")])


if __name__ == "__main__":
    unittest.main()
