#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""The panel in print dialogs of Qt programs that know nothing of it, from outside, against a print
server of its own: qt_run.py BUILD_FOLDER PROJECT_FOLDER QT_VERSION CASE

Runs under tests/support/with-display with NO_AT_BRIDGE empty.
"""

import os
import shutil
import subprocess
import sys
import tempfile

from dialog_user import Atspi, PrintServer, Program, User, check, descendants, wait_for
from panel_run import (ALERT, TICKS, check_bare_job, check_job)

TAB = "Publishing"


class QtUser(User):
    """A user at Qt's print dialog, whose accessibility tree is Qt's."""

    def open_tab(self, name):
        wait_for(f"the tab “{name}”", lambda: self.find("page tab", name).do_action(0))

    def pick(self, box_label, item):
        """Opens the menu with the mouse and types the beginning of the item."""
        box = self.labelled("combo box", box_label)
        self.click(box)
        subprocess.run(["xdotool", "type", "--delay", "50", item.split()[0]], check=True)
        subprocess.run(["xdotool", "key", "Return"], check=True)
        wait_for(f"“{item}” in “{box_label}”", lambda: self.picked(box_label) == item,
                 self.describe)


class Desk:
    def __init__(self, build, project, version, folder):
        self.build, self.folder, self.version = build, folder, version
        self.libraries = next(root for root, _, files in os.walk(os.path.join(build, "lib"))
                              if f"libpublishing-panel-qt{version}.so" in files)
        self.server = PrintServer(project, os.path.join(folder, "cups"))

    def copy_libraries(self):
        """A folder of its own with the libraries, where the program looks from now on."""
        copy = os.path.join(self.folder, "qt")
        shutil.copytree(self.libraries, copy)
        self.libraries = copy
        return copy

    def start(self, *arguments, **environment):
        program = os.path.join(self.build, "tests/strangers", f"qt{self.version}-print")
        # Leaks of the program or of the toolkit are none of our business.
        leaky = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
        return Program([program, *arguments], os.path.join(self.folder, "log"),
                       {"QT_PLUGIN_PATH": self.libraries, "QT_QPA_PLATFORM": "xcb",
                        "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "ASAN_OPTIONS": leaky,
                        **environment}, self.folder)


def dialog_of(program, title="Stranger 1"):
    dialog = program.window(title)
    user = QtUser(dialog.root, dialog.describe)
    user.act("push button", "Options >>")
    user.find("page tab", "Copies")
    # Qt asks the server while the dialog opens; without an answer in time it would print to a file.
    wait_for("the printer Office", lambda: user.picked("Name:") == "Office", user.describe)
    return user


def choose(dialog, pages):
    """Covers, and sheets before the pages listed."""
    dialog.open_tab(TAB)
    dialog.tick(TICKS[0])
    dialog.act("radio button", "Front and back covers")
    dialog.wait_for_tick(TICKS[1])
    dialog.pick("Cover paper:", "Thick Paper (épais)")
    dialog.open_tab("Page Insert")
    dialog.tick(TICKS[2])
    dialog.pick("Sheet paper:", "Recycled Paper")
    dialog.tick(TICKS[3])
    dialog.type_pages(pages)


def alert_of(program):
    return next((node for window in program.windows() for node in descendants(window)
                 if node.get_role_name() == "alert"), None)


def whole_run(desk):
    """The tab, a veto, a job with all options, and the stored state in the next dialog."""
    program = desk.start("--times", "2")
    dialog = dialog_of(program)
    choose(dialog, "5,8,1")
    dialog.press("Print")
    alert = User(lambda: alert_of(program), program.describe)
    wait_for("the alert", alert.root, program.describe)
    wait_for("its text", lambda: any(ALERT in node.get_name() for node in
                                     descendants(alert.root())), program.describe)
    alert.press("OK")
    wait_for("the alert to go", lambda: alert_of(program) is None)
    check(dialog.pages() == "5,8,1", "the list is not as typed after the alert")
    check(desk.server.jobs() == [], "something was printed with a bad list")
    dialog.type_pages("5,8,12-14")
    dialog.press("Print")
    check_job(desk.server)

    dialog = dialog_of(program, "Stranger 2")
    dialog.open_tab(TAB)
    for name in TICKS:
        wait_for(f"the stored tick of “{name}”", lambda n=name: dialog.is_checked("check box", n))
    check(dialog.picked("Cover paper:") == "Thick Paper (épais)", "the cover's paper is lost")
    dialog.press("Cancel")
    end(program)


def end(program, said=None):
    """The program ends well; of the lines in its log only `said` is ours."""
    check(program.wait_for_end() == 0, f"the program did not end well: {program.messages()}")
    ours = [line for line in program.messages().splitlines() if "panel" in line.lower()]
    check(len(ours) == (1 if said else 0) and (not said or said in ours[0]), f"log: {ours}")


def print_bare(desk, said=None, **environment):
    """A dialog without the tab has its printers and prints all the same."""
    program = desk.start(**environment)
    dialog = dialog_of(program)
    check(dialog.seek("page tab", TAB) is None, "the tab is there")
    dialog.press("Print")
    check_bare_job(desk.server)
    end(program, said)


def two_at_once(desk):
    program = desk.start("--at-once", "2")
    second = dialog_of(program, "Stranger 2")
    second.open_tab(TAB)
    second.tick(TICKS[0])
    second.act("push button", "Cancel")
    first = dialog_of(program)
    first.open_tab(TAB)
    check(not first.is_checked("check box", TICKS[0]), "one dialog's covers are in the other one")
    first.act("push button", "Print")
    check("VtCoverModeState=Off" in desk.server.options(desk.server.job(1)), "covers in job 1")
    end(program)


def destroyed(desk):
    """The program destroys the dialog while the user reads an alert of the panel."""
    program = desk.start("--destroy")
    dialog = dialog_of(program)
    choose(dialog, "1")
    dialog.press("Print")
    end(program)
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


def no_folder(desk):
    """After the package was removed the session still names its folder."""
    desk.libraries = os.path.join(desk.folder, "nowhere")
    print_bare(desk)


CASES = {function.__name__.replace("_", "-"): function for function in (
    whole_run, two_at_once, destroyed, switched_off, no_panel_library, broken_panel_library,
    no_folder)}


def main():
    build, project, version, case = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        desk = Desk(build, project, version, folder)
        try:
            CASES[case](desk)
        finally:
            desk.server.stop()


main()
