# SPDX-License-Identifier: Apache-2.0
"""The private print server of tests/cups/private-cups, for tests in Python."""

import os
import pathlib
import re
import subprocess
import time

TOOL = pathlib.Path(__file__).with_name("private-cups")
LONGEST_WAIT = 60  # seconds


class PrintServer:
    """A server with its printers. CUPS_SERVER names it to this process and its children."""

    def __init__(self, folder, build=None):
        """Starts it in the folder, with the filter of a build folder when there is one."""
        self.folder = str(folder)
        lines = self._tool("start", *([str(build)] if build else [])).splitlines()
        settings = dict(line.split("=", 1) for line in lines if "=" in line)
        os.environ["CUPS_SERVER"] = settings["CUPS_SERVER"]

    def _tool(self, command, *arguments):
        return subprocess.run([TOOL, command, self.folder, *arguments], check=True, text=True,
                              stdout=subprocess.PIPE).stdout

    def add_queue(self, name, ppd):
        self._tool("add-queue", name, str(ppd))

    def stop(self):
        self._tool("stop")

    def send(self, queue, *arguments, **options):
        """Prints with lp; returns the job's number."""
        said = subprocess.run(["lp", "-d", queue, *map(str, arguments)], check=True,
                              stdout=subprocess.PIPE, **options).stdout
        return int(re.search(rb"-(\d+) \(", said)[1])

    def jobs(self):
        """The folders of the jobs that arrived at a printer, in the order of their numbers."""
        out = pathlib.Path(self.folder, "out")
        return sorted((name.name for name in out.glob("job-*")),
                      key=lambda name: int(name.removeprefix("job-")))

    def wait_for(self, job):
        """Waits until the printer has the job with this number."""
        end = time.monotonic() + LONGEST_WAIT
        while f"job-{job}" not in self.jobs():
            if time.monotonic() > end:
                raise TimeoutError(f"job {job} does not arrive:\n" + self.log_of(job))
            time.sleep(0.02)

    def received(self, job, file="data"):
        """What the printer has of a job: number, or name of its folder."""
        folder = job if isinstance(job, str) else f"job-{job}"
        return pathlib.Path(self.folder, "out", folder, file).read_bytes()

    def options(self, job):
        return self.received(job, "options").decode().split()

    def log_of(self, job):
        """What the server and its filters said about the job."""
        log = pathlib.Path(self.folder, "log", "error_log").read_text("utf-8", "replace")
        return "\n".join(line for line in log.splitlines() if f"[Job {job}]" in line)
