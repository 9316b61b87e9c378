#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""A whole run of publishing-dialog from outside, through the accessibility bus, against a print
server of its own: publishing-dialog_run.py PROGRAM PROJECT_FOLDER.

A user opens the dialog, chooses covers and inserted sheets, presses Print on a bad page list, reads
the alert, corrects the list and prints; what reached the printer is checked. A second dialog shows
what was stored, a third one prints some of the pages. Without its extension the program says so. Runs
under tests/support/with-display with NO_AT_BRIDGE empty.
"""

import os
import shutil
import subprocess
import sys
import tempfile

from dialog_user import PrintServer, Program, check
from panel_run import check_calm, check_job, check_stored, print_after_refusal


def check_extension_is_missed(program, document, folder):
    alone = shutil.copy(program, folder)
    run = subprocess.run([alone, document], text=True, capture_output=True, check=False)
    check(run.returncode == 3, f"status {run.returncode} without the extension")
    check("libprintbackend-publishing.so is missing" in run.stderr, f"message: {run.stderr}")


def check_page_range(dialog, server):
    """Only the pages that the user asks for are printed."""
    dialog.act("radio button", "Pages:")
    dialog.find("text", "Pages").set_text_contents("2-5")
    dialog.press("Print")
    check(dialog.wait_for_end() == 0, "the dialog did not end well")
    check("page-ranges=2-5" in server.options(server.job(2)), "the pages are lost")
    check_calm(dialog)


def main():
    program, project = sys.argv[1:]
    document = os.path.join(project, "tests/data/report.pdf")
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        check_extension_is_missed(program, document, folder)
        server = PrintServer(project, os.path.join(folder, "cups"))
        log = os.path.join(folder, "errors")
        try:
            first = Program([program, document], log)
            print_after_refusal(first, first, server)
            check(first.wait_for_end() == 0, "the dialog did not end well")
            check_job(server)
            check_calm(first)
            second = Program([program, document], log)
            check_stored(second)
            second.press("Cancel")
            check(second.wait_for_end() == 0, "the cancelled dialog did not end well")
            check_calm(second)
            check_page_range(Program([program, document], log), server)
        finally:
            server.stop()


main()
