#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""The panel in the print dialogs of a Qt program of our own that knows nothing of it, from outside,
against a print server of its own: qt_run.py BUILD_FOLDER PROJECT_FOLDER QT_VERSION CASE

Runs under tests/support/with-display with NO_AT_BRIDGE empty.
"""

import os
import subprocess
import sys
import tempfile

from dialog_user import check, wait_for
from extension_run import TAB, whole_run as the_steps
from panel_run import TICKS, check_bare_job, choose
from qt_desk import QtDesk, QtProgram


def whole_run(desk):
    the_steps(desk, desk.start_stranger, "Stranger 1", QtProgram.end_well)


def print_bare(desk, said=None, **environment):
    """A dialog without the tab has its printers and prints all the same."""
    program = desk.start_stranger(**environment)
    dialog = program.window("Stranger 1")
    check(dialog.seek("page tab", TAB) is None, "the tab is there")
    dialog.press("Print")
    check_bare_job(desk.server)
    program.end_well(said)


def print_to_file(desk):
    """Choices for a printer, even those that it would refuse, do not hinder printing to a file."""
    program = desk.start_stranger()
    dialog = program.window("Stranger 1")
    choose(dialog, "1")
    dialog.pick("Name:", "Print to File (PDF)")
    wait_for("the empty tab", lambda: dialog.seek("check box", TICKS[0]) is None, dialog.describe)
    printed = os.path.join(desk.folder, "printed.pdf")
    dialog.labelled("text", "Output file:").set_text_contents(printed)
    dialog.press("Print")
    program.end_well()
    check(desk.server.jobs() == [], "something went to the printer")
    check(os.path.getsize(printed) > 0, "nothing was printed to the file")


def two_at_once(desk):
    program = desk.start_stranger("--at-once", "2")
    second = program.window("Stranger 2")
    second.open_tab(TAB)
    second.tick(TICKS[0])
    second.act("push button", "Cancel")
    first = program.window("Stranger 1")
    first.open_tab(TAB)
    check(not first.is_checked("check box", TICKS[0]), "one dialog's covers are in the other one")
    first.act("push button", "Print")
    check("VtCoverModeState=Off" in desk.server.options(desk.server.job(1)), "covers in job 1")
    program.end_well()


def destroyed(desk):
    """The program destroys the dialog while the user reads an alert of the panel."""
    program = desk.start_stranger("--destroy")
    dialog = program.window("Stranger 1")
    choose(dialog, "1")
    dialog.press("Print")
    program.end_well()
    check(desk.server.jobs() == [], "something was printed")


def switched_off(desk):
    print_bare(desk, PUBLISHING_EXTENSION="0")


def no_panel_library(desk):
    os.remove(os.path.join(desk.copy_libraries(), f"libpublishing-panel-qt{desk.version}.so"))
    print_bare(desk, "install it again")


def broken_panel_library(desk):
    """A library that Qt cannot load, as when this Qt lacks one of the functions it calls."""
    path = os.path.join(desk.copy_libraries(), f"libpublishing-panel-qt{desk.version}.so")
    with open(path, "wb") as library:
        library.write(b"no library")
    print_bare(desk, "install it again")


def broken_proxy(desk):
    """What would leave Qt's programs without printers is not switched on."""
    copy = desk.copy_libraries()
    desk.write(f"qt/printsupport/libpublishing-print{desk.version}.so", "no library")
    settings = os.path.join(desk.folder, "settings")
    enabled = subprocess.run(
        [os.path.join(desk.build, "bin/publishing"), "extension", "enable", "--toolkit", "qt"],
        env={**os.environ, "PUBLISHING_QT_PLUGINS": copy, "XDG_CONFIG_HOME": settings},
        text=True, capture_output=True, check=False)
    check(enabled.returncode == 1, f"enable ended with {enabled.returncode}")
    check(f"Qt {desk.version} cannot load the panel" in enabled.stderr, enabled.stderr)
    check(not os.path.exists(settings), "something was written")


def no_folder(desk):
    """After the package was removed the session still names its folder."""
    desk.libraries = os.path.join(desk.folder, "nowhere")
    print_bare(desk)


CASES = {function.__name__.replace("_", "-"): function for function in (
    whole_run, print_to_file, two_at_once, destroyed, switched_off, no_panel_library,
    broken_panel_library, broken_proxy, no_folder)}


def main():
    build, project, version, case = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        desk = QtDesk(build, project, version, folder)
        try:
            CASES[case](desk)
        finally:
            desk.server.stop()


main()
