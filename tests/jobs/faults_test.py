# SPDX-License-Identifier: Apache-2.0
"""Jobs that go wrong on a real print server: they end with their reason and leave nothing behind."""

import os
import pathlib
import subprocess
import time
import unittest

import documents
from expected import COVERS
from office import QUEUE, OfficeTest

LONGEST_WAIT = 60  # seconds


def wait_until(condition, what):
    end = time.monotonic() + LONGEST_WAIT
    while not condition():
        if time.monotonic() > end:
            raise TimeoutError(what)
        time.sleep(0.02)


class Faults(OfficeTest):
    def setUp(self):
        self.root = pathlib.Path(self.office.server.folder).resolve()

    def processes(self):
        """What the server runs for its jobs: its children have its folder in their environment."""
        mark = f"CUPS_SERVERROOT={self.root}/etc".encode()
        found = []
        for environment in pathlib.Path("/proc").glob("[0-9]*/environ"):
            try:
                if mark in environment.read_bytes().split(b"\0"):
                    found.append((environment.parent / "comm").read_text("utf-8", "replace").strip())
            except OSError:
                pass  # of another user, or gone
        return found

    def assert_nothing_left(self):
        wait_until(lambda: not self.processes(), f"{self.processes()} go on running")
        self.assertEqual(os.listdir(self.root / "spool/tmp"), [])

    def reason(self, job):
        """What the server tells of a job that did not end well."""
        wait_until(lambda: "Job stopped" in self.office.server.log_of(job),
                   f"job {job} goes on:\n{self.office.server.log_of(job)}")
        return self.office.server.log_of(job)

    def test_cancelled_while_the_printer_hangs(self):
        block = self.root / "out/block"
        block.touch()
        try:
            job = self.office.send(QUEUE, documents.postscript(50),
                                   COVERS.options() | {"collate": "true"}, "-n", "2")
            wait_until(lambda: any(self.root.glob("out/.job-*/data")), "the printer does not begin")
            subprocess.run(["cancel", f"{QUEUE}-{job}"], check=True)
            self.assert_nothing_left()
        finally:
            block.unlink()
        self.assertNotIn(f"job-{job}", self.office.server.jobs())

    def test_cancelled_while_it_is_filtered(self):
        endless = documents.postscript(3, after_page=lambda number: "{} loop\n" if number == 2 else "",
                                       before_page=lambda number: "<</PageSize[595 842]>>setpagedevice\n")
        job = self.office.send(QUEUE, endless, COVERS.options())
        wait_until(lambda: "gs" in self.processes(), "Ghostscript does not begin")
        subprocess.run(["cancel", f"{QUEUE}-{job}"], check=True)
        self.assert_nothing_left()

    def test_a_document_that_cannot_be_printed(self):
        broken = documents.postscript(3, lambda number: "<</PageSize[595 842]>>setpagedevice\n",
                                      lambda number: "undefinedoperator\n" if number == 2 else "")
        job = self.office.send(QUEUE, broken, COVERS.options())
        self.assertRegex(self.reason(job), r"The filter \w+ failed with status \d+\.")
        subprocess.run(["cancel", f"{QUEUE}-{job}"], check=True)
        self.assert_nothing_left()

    def test_the_queue_goes_on(self):
        job = self.office.send(QUEUE, documents.postscript(3), COVERS.options())
        self.office.server.wait_for(job)
        self.assert_nothing_left()


if __name__ == "__main__":
    unittest.main()
