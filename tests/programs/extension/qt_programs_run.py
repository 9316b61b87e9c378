#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""The panel in the print dialogs of Debian's Qt programs, from outside, against a print server of its
own: qt_programs_run.py BUILD_FOLDER PROJECT_FOLDER PROGRAM

Runs under tests/support/with-display with NO_AT_BRIDGE empty.
"""

import os
import subprocess
import sys
import tempfile
from dataclasses import dataclass

from extension_run import whole_run
from qt_desk import QtDesk, QtProgram


@dataclass
class Foreign:
    name: str
    qt: int
    prints_text: bool  # a text, otherwise a PDF
    menu: tuple = ("File", "Print...")


PROGRAMS = {"okular": Foreign("Okular", 5, False),
            "kwrite": Foreign("KWrite", 5, True, ("File", "Export/Print", "Print...")),
            "qpdfview": Foreign("qpdfview", 5, False),
            "focuswriter": Foreign("FocusWriter", 6, True)}


def open_dialog(desk, program, **environment):
    """Starts a program with a document and has it show its print dialog."""
    facts = PROGRAMS[program]
    document = desk.document
    if facts.prints_text:
        document = desk.write("document.txt", "A line of text.\n" * 1000)
    running = desk.start(program, document, **environment)
    running.choose_item(*facts.menu)
    return running


def run(build, project, program, steps=None):
    """The whole run; `steps`, if any, gets how many of its steps passed."""
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        desk = QtDesk(build, project, PROGRAMS[program].qt, folder)
        try:
            whole_run(desk, lambda: open_dialog(desk, program), "Print", QtProgram.end_quietly)
        finally:
            desk.server.stop()
            if steps is not None:
                steps[program] = desk.passed


def main():
    run(*sys.argv[1:])


if __name__ == "__main__":
    main()
