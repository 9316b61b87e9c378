#!/usr/bin/python3
"""A whole run of publishing-dialog from outside, through the accessibility bus, against a print
server of its own: publishing-dialog_run.py PROGRAM PROJECT_FOLDER.

A user opens the dialog, chooses covers and inserted sheets, presses Print on a bad page list, reads
the alert, corrects the list and prints; what reached the printer is checked. A second dialog shows
what was stored. Runs under tests/tools/with-display with NO_AT_BRIDGE empty.
"""

import os
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LONGEST_WAIT = 30  # seconds

NOT_OURS = (
    # GTK's print backends, where the machine runs no such services
    "D-Bus system bus", "failed to contact colord",
    # GTK's notebooks with a screen reader, when their dialog is closed
    "gtk_notebook_get_tab_label: assertion 'list != NULL'",
    # GTK's menus, when an item is chosen through the accessibility bus without opening them
    "gdk_window_get_window_type: assertion 'GDK_IS_WINDOW (window)'",
)


def wait_for(what, probe, describe=lambda: ""):
    """The probe's first true answer; ends the test when there is none."""
    end = time.monotonic() + LONGEST_WAIT
    while time.monotonic() < end:
        while GLib.MainContext.default().iteration(False):
            pass  # news of what the program shows now
        try:
            answer = probe()
        except GLib.Error:  # an object went away while it was looked at
            answer = None
        if answer:
            return answer
        time.sleep(0.05)
    sys.exit(f"waited in vain for {what}\n{describe()}")


def check(condition, what):
    if not condition:
        sys.exit(f"wrong: {what}")


def descendants(node):
    yield node
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield from descendants(child)


class Dialog:
    """A running publishing-dialog and its user."""

    def __init__(self, program, document, log):
        self.log = log
        with open(log, "a", encoding="utf-8") as errors:
            self.process = subprocess.Popen([program, document], stderr=errors)
        self.find("check box", "Add covers to the document")

    def application(self):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application and application.get_process_id() == self.process.pid:
                return application
        return None

    def seek(self, role, name):
        application = self.application()
        for node in descendants(application) if application else ():
            if node.get_role_name() == role and node.get_name() == name:
                return node
        return None

    def find(self, role, name):
        return wait_for(f"the {role} “{name}”", lambda: self.seek(role, name), self.describe)

    def describe(self):
        """What an accessibility tool sees now, for the message of a failed run."""
        application = self.application()
        if application is None:
            with open(self.log, encoding="utf-8") as log:
                return f"the program is gone (status {self.process.poll()}): {log.read()}"
        return "\n".join(f"{node.get_role_name()} {node.get_name()!r}"
                         for node in descendants(application) if node.get_name())

    def act(self, role, name):
        """Clicks a button, a box or a menu item."""
        wait_for(f"the {role} “{name}” to be usable",
                 lambda: self.find(role, name).get_state_set().contains(Atspi.StateType.SENSITIVE))
        self.find(role, name).do_action(0)

    def press(self, name):
        """Clicks a button with the mouse: what it opens may run inside the click."""
        button = self.find("push button", name)
        place = Atspi.Component.get_extents(button, Atspi.CoordType.SCREEN)
        subprocess.run(["xdotool", "mousemove", str(place.x + place.width // 2),
                        str(place.y + place.height // 2), "click", "1"], check=True)

    def tick(self, name):
        self.act("check box", name)
        wait_for(f"the tick of “{name}”", lambda: self.is_checked("check box", name))

    def is_checked(self, role, name):
        return self.find(role, name).get_state_set().contains(Atspi.StateType.CHECKED)

    def open_tab(self, name):
        tab = self.find("page tab", name)
        tab.get_parent().select_child(tab.get_index_in_parent())

    def pick(self, box_label, item):
        combo = self.labelled("combo box", box_label)
        for node in descendants(combo):
            if node.get_role_name() == "menu item" and node.get_name() == item:
                node.do_action(0)
        wait_for(f"“{item}” in “{box_label}”", lambda: combo.get_name() == item)

    def picked(self, box_label):
        return self.labelled("combo box", box_label).get_name()

    def labelled(self, role, label):
        def probe():
            for node in descendants(self.application()):
                if node.get_role_name() != role:
                    continue
                for relation in node.get_relation_set():
                    if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY and \
                            relation.get_target(0).get_name() == label:
                        return node
            return None
        return wait_for(f"the {role} labelled “{label}”", probe)

    def type_pages(self, text):
        entry = self.labelled("text", "Before pages:")
        entry.set_text_contents(text)
        wait_for("the page list", lambda: self.pages() == text)

    def pages(self):
        entry = self.labelled("text", "Before pages:")
        return Atspi.Text.get_text(entry, 0, Atspi.Text.get_character_count(entry))

    def wait_for_end(self):
        return wait_for("the end of the program",
                        lambda: None if self.process.poll() is None else [self.process.returncode])[0]

    def complaints(self):
        with open(self.log, encoding="utf-8") as log:
            return [line for line in log if ("WARNING" in line or "CRITICAL" in line)
                    and not any(words in line for words in NOT_OURS)]


class PrintServer:
    def __init__(self, project, folder):
        self.tool = os.path.join(project, "tests/tools/private-cups")
        self.folder = folder
        lines = subprocess.run([self.tool, "start", folder], check=True, text=True,
                               stdout=subprocess.PIPE).stdout.splitlines()
        settings = dict(line.removeprefix("export ").split("=", 1) for line in lines if "=" in line)
        os.environ["CUPS_SERVER"] = settings["CUPS_SERVER"].strip("'\"")
        subprocess.run([self.tool, "add-queue", folder, "Office",
                        os.path.join(project, "tests/data/zephrel-ps-9000.ppd")], check=True)

    def stop(self):
        subprocess.run([self.tool, "stop", self.folder], check=False)

    def jobs(self):
        out = os.path.join(self.folder, "out")
        return sorted(name for name in os.listdir(out) if name.startswith("job-"))

    def received(self, job, file):
        with open(os.path.join(self.folder, "out", job, file), "rb") as data:
            return data.read()


def choose_and_print(dialog, server):
    dialog.open_tab("Publishing")
    dialog.tick("Add covers to the document")
    dialog.act("radio button", "Front and back covers")
    dialog.tick("Outside of the front cover")
    dialog.pick("Cover paper:", "Thick Paper (épais)")
    dialog.open_tab("Page Insert")
    dialog.tick("Add sheets between the pages")
    dialog.pick("Sheet paper:", "Recycled Paper")
    dialog.tick("Front of the inserted sheets")
    dialog.type_pages("5,8,1")
    dialog.press("Print")
    dialog.find("label", "You can only enter page numbers between 2 and 511.")
    dialog.press("OK")
    wait_for("the alert to go",
             lambda: dialog.seek("label", "You can only enter page numbers between 2 and 511.") is None)
    check(dialog.pages() == "5,8,1", "the list is not as typed after the alert")
    check(server.jobs() == [], "something was printed with a bad list")
    dialog.type_pages("5,8,12-14")
    dialog.press("Print")
    check(dialog.wait_for_end() == 0, "the dialog did not end well")


def check_job(server):
    job = wait_for("the job at the printer", server.jobs)[0]
    data = server.received(job, "data")
    for choice in (b"CoverMediaType Thick", b"PageMediaType Recycled"):
        check(b"%%BeginFeature: *" + choice in data, f"the PostScript lacks {choice.decode()}")
    options = server.received(job, "options").decode().split()
    for option in ("VtCoverModeState=On", "VtCoverModeValue=1", "VtCovermodeRadioButtonState=2",
                   "VtCmIndex=3", "VtUnspecified=1", "VtPageinsertState=On", "VtPageinsertValue=1",
                   "VtPiIndex=2", "VtPageinsertNums=5,8,12,13,14,", "CoverMediaType=Thick",
                   "PageMediaType=Recycled"):
        check(option in options, f"the job lacks {option}: {options}")


def check_stored(dialog):
    dialog.open_tab("Publishing")
    for name in ("Add covers to the document", "Outside of the front cover",
                 "Add sheets between the pages", "Front of the inserted sheets"):
        wait_for(f"the stored tick of “{name}”", lambda n=name: dialog.is_checked("check box", n))
    check(dialog.is_checked("radio button", "Front and back covers"), "the kind of cover is lost")
    check(dialog.picked("Cover paper:") == "Thick Paper (épais)", "the cover's paper is lost")
    check(dialog.picked("Sheet paper:") == "Recycled Paper", "the sheets' paper is lost")
    check(dialog.pages() == "5,8,12,13,14,", f"the list is lost: {dialog.pages()}")
    dialog.press("Cancel")
    check(dialog.wait_for_end() == 0, "the cancelled dialog did not end well")


def main():
    program, project = sys.argv[1:]
    document = os.path.join(project, "tests/data/report.pdf")
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        server = PrintServer(project, os.path.join(folder, "cups"))
        log = os.path.join(folder, "errors")
        try:
            first = Dialog(program, document, log)
            choose_and_print(first, server)
            check_job(server)
            check(first.complaints() == [], f"the toolkit complains: {first.complaints()}")
            second = Dialog(program, document, log)
            check_stored(second)
            check(second.complaints() == [], f"the toolkit complains: {second.complaints()}")
        finally:
            server.stop()


main()
