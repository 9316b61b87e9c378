# SPDX-License-Identifier: Apache-2.0
"""Every kind of printer that can have covers and inserts takes each page from the right tray."""

import collections
import concurrent.futures
import os
import unittest

import other_printers
from office import BUILD, HERE, OfficeTest
from other_printers import ONE_SIDED, PAGES, Trays

PPDS = sorted((HERE.parent / "data/ppds").glob("*.ppd"))
MOST_TRAYS = 5


class OtherPrinters(unittest.TestCase):
    def test_pages_come_from_their_trays(self):
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
            results = list(workers.map(lambda ppd: other_printers.examine(BUILD, ppd, MOST_TRAYS), PPDS))
        for ppd, result in zip(PPDS, results):
            with self.subTest(ppd.name):
                self.assertEqual(result.faults, [])
        kinds = collections.Counter((result.kind, result.language) for result in results)
        self.assertEqual(kinds, {("postscript", "PostScript"): 2, ("foomatic-postscript", "PostScript"): 2,
                                 ("foomatic-ghostscript", "PCL"): 2,
                                 ("foomatic-ghostscript", "PCLXL"): 2})

    def test_a_job_without_covers_is_noticed(self):
        ppd = HERE.parent / "data/ppds/Epson-EPL-6100-pxlmono.ppd"
        with other_printers.enabled(BUILD, ppd) as (_, enabled_ppd):
            programs = other_printers.driver(enabled_ppd)
        trays = other_printers.pick_trays(ppd, programs, MOST_TRAYS)[0]
        pictures = other_printers.pictures_of_pages(ppd, programs, trays)
        stream = other_printers.plain(ppd, programs, trays.body, PAGES)
        body_alone = Trays(trays.body, trays.body, trays.body, trays.looks)
        self.assertTrue(other_printers.faults_of(stream, trays, pictures, ONE_SIDED))
        self.assertFalse(other_printers.faults_of(stream, body_alone, pictures, "B1 B2 B3 B4 B5"))


class WhereSidesComeFrom(unittest.TestCase):
    KEYS = ("SelectsByItself", "Feeder")

    def test_a_choice_counts_by_what_it_says(self):
        by_itself = {"SelectsByItself": True}
        self.assertTrue(other_printers.is_from(by_itself, by_itself | {"Feeder": 1}, self.KEYS))
        self.assertFalse(other_printers.is_from(by_itself, {"SelectsByItself": False}, self.KEYS))

    def test_after_a_choice_that_says_nothing_nothing_is_left(self):
        self.assertTrue(other_printers.is_from({}, {}, self.KEYS))
        self.assertFalse(other_printers.is_from({}, {"Feeder": 1}, self.KEYS))


class OnAServer(OfficeTest):
    """The server's rules lead to publishingtops and from there to the printer's own driver."""

    def test_drivers_behind_the_filter(self):
        for name in ("Samsung_ML-2850_Series", "Ricoh-IPSiO_SP_3410_PXL"):
            with self.subTest(name):
                self.check_printer(name, HERE.parent / f"data/ppds/{name}.ppd")

    def check_printer(self, queue, ppd):
        self.office.add_queue(queue, ppd)
        with other_printers.enabled(BUILD, ppd) as (_, enabled_ppd):
            programs = other_printers.driver(enabled_ppd)
        trays = other_printers.pick_trays(ppd, programs, MOST_TRAYS)[0]
        job = self.office.send(queue, other_printers.squares(PAGES),
                               other_printers.job_options(ppd, trays, False))
        self.office.server.wait_for(job)
        pictures = other_printers.pictures_of_pages(ppd, programs, trays)
        self.assertEqual(other_printers.faults_of(self.office.server.received(job), trays, pictures,
                                                  ONE_SIDED), [])


if __name__ == "__main__":
    unittest.main()
