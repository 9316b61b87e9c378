# SPDX-License-Identifier: Apache-2.0
"""A print server with a printer that makes covers and inserts, and what comes out of it."""

import atexit
import concurrent.futures
import dataclasses
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).parent
sys.path[:0] = [str(HERE.parent / "cups"), str(HERE.parent / "support/printed")]
import documents  # noqa: E402
import expected  # noqa: E402
import ppd_media  # noqa: E402
import print_server  # noqa: E402
import printed_sheets  # noqa: E402
import sheet_comparison  # noqa: E402

BUILD = pathlib.Path(os.environ.get("PUBLISHING_BUILD", HERE.parents[1] / "build/release"))
ZEPHREL = HERE.parent / "data/zephrel-ps-9000.ppd"
QUEUE = "Zephrel"
ANOTHER_RENDERER = {"pdftops-renderer": "pdftops"}  # poppler's instead of Ghostscript


@dataclasses.dataclass(frozen=True)
class Case:
    """A job and the sheets that it must come out on, as in expected.py."""
    name: str
    document: object  # bytes or a path, or several of them
    wish: expected.Wish
    sheets: str
    options: dict = dataclasses.field(default_factory=dict)
    arguments: tuple = ()  # of lp
    copies: int = 1
    queue: str = QUEUE


def through_both_renderers(*cases):
    """The cases, each through Ghostscript's and through poppler's pdftops."""
    return [dataclasses.replace(case, name=f"{case.name} {renderer}", options=case.options | renderer)
            for case in cases for renderer in ({}, ANOTHER_RENDERER)]


class Office:
    """The server, its queues and their jobs."""

    def __init__(self):
        self._scratch = tempfile.TemporaryDirectory(prefix="publishing-jobs.")
        self.folder = pathlib.Path(self._scratch.name)
        self.folder.chmod(0o755)
        os.environ["HOME"] = str(self.folder)  # no options of the user's own
        self.server = print_server.PrintServer(self.folder / "cups", BUILD)
        self._looks = concurrent.futures.ThreadPoolExecutor(os.cpu_count())

    def close(self):
        self._looks.shutdown()
        self.server.stop()
        self._scratch.cleanup()

    def add_queue(self, name, ppd):
        """A queue with covers and inserts; returns the names of its media."""
        self.server.add_queue(name, ppd)
        subprocess.run([BUILD / "bin/publishing", "printer", "enable", "-d", name], check=True,
                       stdout=subprocess.DEVNULL)
        return ppd_media.Media(ppd)

    def send(self, queue, document, options, *arguments):
        """Prints a document, or several in one job; returns the job's number."""
        files = []
        for one in document if isinstance(document, (list, tuple)) else [document]:
            if isinstance(one, bytes):
                handle, path = tempfile.mkstemp(dir=self.folder)
                with os.fdopen(handle, "wb") as file:
                    file.write(one)
                one = path
            files.append(one)
        named = [word for name, value in options.items() for word in ("-o", f"{name}={value}")]
        return self.server.send(queue, *named, *arguments, "--", *files)

    def look(self, job, resolution=printed_sheets.DOTS_PER_INCH):
        """A promise of the sheets that the job comes out on, on a printer that ends a sheet whenever
        the device is set up between its sides."""
        def sheets():
            self.server.wait_for(job)
            return printed_sheets.printed_sheets(self.server.received(job), True, resolution)
        return self._looks.submit(sheets)


class OfficeTest(unittest.TestCase):
    """Tests that share one server, which prints one job while another one is looked at."""
    office: Office = None
    media: ppd_media.Media
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        if OfficeTest.office is None:
            OfficeTest.office = Office()
            atexit.register(OfficeTest.office.close)
            OfficeTest.media = OfficeTest.office.add_queue(QUEUE, ZEPHREL)

    def pdf(self, pages):
        return documents.pdf(self.office.folder, pages)

    def check(self, cases, pattern=sheet_comparison.PAGE_NUMBER):
        """Prints all, then compares each with what is expected."""
        jobs = [self.office.send(case.queue, case.document, case.wish.options() | case.options, "-n",
                                 str(case.copies), *case.arguments) for case in cases]
        looks = [self.office.look(job) for job in jobs]
        for case, job, look in zip(cases, jobs, looks):
            with self.subTest(case.name):
                plan = expected.plan(expected.parsed(case.sheets), case.wish, case.copies)
                self.assert_sheets(look.result(), plan, pattern, job)

    def assert_sheets(self, sheets, plan, pattern=sheet_comparison.PAGE_NUMBER, job=None):
        comparison = sheet_comparison.compare(sheets, plan, self.media, pattern)
        if not comparison.alike:
            self.fail("\n".join([f"job {job}", sheet_comparison.table(comparison), *comparison.faults]))
