# SPDX-License-Identifier: Apache-2.0
"""Jobs of random documents and options: the same ones at every run.

PUBLISHING_RANDOM_JOBS says how many, 20 unless it is set; PUBLISHING_RANDOM_SEED where to begin.
"""

import dataclasses
import os
import random
import unittest

import documents
from expected import Wish, plan, planned, written
from office import ANOTHER_RENDERER, QUEUE, OfficeTest

COUNT = int(os.environ.get("PUBLISHING_RANDOM_JOBS", 20))
SEED = int(os.environ.get("PUBLISHING_RANDOM_SEED", 1))
TRAYS = ("Tray1", "Tray2", "Tray3", "Tray4", "Bypass")
TYPES = ("Plain", "Recycled", "Thick", "Coated", "Transparency")
COVER_MEDIA = ("PrnDef", "Plain", "Thick", "Coated", "Leather", "Tray1", "Tray2", "Tray4", "Bypass")
INSERT_MEDIA = ("PrnDef", "Recycled", "Thick", "Labels", "TabStock", "Tray1", "Tray3", "Bypass")


@dataclasses.dataclass
class Job:
    kind: str
    pages: int
    wish: Wish
    ranges: list  # of pages to print, (first, last); empty: all
    copies: int
    collated: bool
    body: tuple  # tray and type
    another_renderer: bool

    def document(self, folder):
        if self.kind == "pdf":
            return documents.pdf(folder, self.pages)
        makers = {"postscript": documents.postscript, "plain": documents.plain_postscript}
        if self.kind in makers:
            return makers[self.kind](self.pages)
        sizes = [(documents.A4, documents.A3, documents.LETTER)[number % 3] for number in range(self.pages)]
        return documents.pdf_in_sizes(folder, sizes, f"sizes-{self.pages}.pdf")

    def selected(self):
        ranges = self.ranges or [(1, self.pages)]
        return [page for first, last in ranges for page in range(first, last + 1)]

    def sheets(self):
        """The pages are counted as they are selected; they still say their own numbers."""
        pages = self.selected()
        return [(role, *(side and pages[side - 1] for side in sides))
                for role, *sides in planned(self.wish, len(pages))]

    def options(self):
        tray, kind = self.body
        return (self.wish.options() | {"InputSlot": tray, "MediaType": kind,
                                       "collate": "true" if self.collated else "false"} |
                (ANOTHER_RENDERER if self.another_renderer else {}))

    def arguments(self):
        words = ["-n", str(self.copies)]
        if self.ranges:
            words += ["-P", ",".join(f"{first}-{last}" for first, last in self.ranges)]
        return words


def random_ranges(dice, pages):
    if pages < 4 or dice.random() < 0.7:
        return []
    marks = sorted(dice.sample(range(1, pages + 1), 4))
    return [(marks[0], marks[1]), (marks[2], marks[3])]


def random_job(number):
    dice = random.Random(number)
    pages = dice.choice((1, 2, 3, 4, 5, 7, 8, 12))
    covers, inserts = dice.choice(((1, 0), (2, 0), (0, 1), (1, 1), (2, 1)))
    wish = Wish(two_sided=dice.random() < 0.75, covers=covers,
                cover_value=dice.choice((*range(16), 16, 32)), cover_medium=dice.choice(COVER_MEDIA),
                inserts=tuple(sorted(dice.sample(range(1, pages + 3), dice.randint(1, min(4, pages)))))
                if inserts else (),
                insert_value=dice.randrange(4), insert_medium=dice.choice(INSERT_MEDIA))
    return Job(dice.choice(("pdf", "postscript", "plain", "sizes")), pages, wish,
               random_ranges(dice, pages), dice.choice((1, 1, 1, 2, 3)), dice.random() < 0.5,
               (dice.choice(TRAYS), dice.choice(TYPES)), dice.random() < 0.5)


class RandomJobs(OfficeTest):
    def test_random_jobs(self):
        jobs = [random_job(number) for number in range(SEED, SEED + COUNT)]
        numbers = [self.office.send(QUEUE, job.document(self.office.folder), job.options(),
                                    *job.arguments()) for job in jobs]
        looks = [self.office.look(number) for number in numbers]
        for seed, (job, number, look) in enumerate(zip(jobs, numbers, looks), SEED):
            with self.subTest(f"seed {seed}: {job}, {written(job.sheets())}"):
                wanted = plan(job.sheets(), job.wish, job.copies, "/".join(job.body))
                self.assert_sheets(look.result(), wanted, job=number)


if __name__ == "__main__":
    unittest.main()
