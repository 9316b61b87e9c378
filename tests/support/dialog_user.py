# SPDX-License-Identifier: Apache-2.0
"""A user at the print dialog of a running program, from outside, through the accessibility bus; and
the print server that gets the jobs. For the tests in this folder, which run under
tests/support/with-display with NO_AT_BRIDGE empty."""

import os
import subprocess
import sys
import time

import gi

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "../cups"))
import print_server  # noqa: E402

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


class User:
    """What a user sees and does in one window, or in all windows, of a program."""

    def __init__(self, find_root, describe):
        self.root = find_root  # gives the accessible object, None while there is none
        self.describe = describe

    def seek(self, role, name):
        root = self.root()
        for node in descendants(root) if root else ():
            # Menus append room for shortcuts, the panel's tab a mark when something of it is on.
            if node.get_role_name() == role and node.get_name().removesuffix(" ✓").rstrip() == name:
                return node
        return None

    def find(self, role, name):
        return wait_for(f"the {role} “{name}”", lambda: self.seek(role, name), self.describe)

    def act(self, role, name):
        """Clicks a button, a box or a menu item."""
        wait_for(f"the {role} “{name}” to be usable",
                 lambda: self.find(role, name).get_state_set().contains(Atspi.StateType.SENSITIVE))
        self.find(role, name).do_action(0)

    def press(self, name):
        """Clicks a button with the mouse: what it opens may run inside the click."""
        self.click(self.find("push button", name))

    def click(self, node):
        """Clicks in the middle of what is shown, once it has its place: windows grow while they open."""
        places = []

        def place_is_steady():
            place = self.place_of(node)
            places.append((place.x + place.width // 2, place.y + place.height // 2))
            return self.is_showing(node) and len(places) >= 5 and len(set(places[-5:])) == 1
        wait_for(f"“{node.get_name()}” to stay in its place", place_is_steady, self.describe)
        subprocess.run(["xdotool", "mousemove", *map(str, places[-1]), "click", "1"], check=True)

    def regain_keyboard(self, node):
        """Gives the node's window the keyboard again when its alert is gone. GTK does that itself."""

    def place_of(self, node):
        return Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)

    def is_showing(self, node):
        return node.get_state_set().contains(Atspi.StateType.SHOWING)

    def tick(self, name):
        self.act("check box", name)
        self.wait_for_tick(name)

    def wait_for_tick(self, name):
        wait_for(f"the tick of “{name}”", lambda: self.is_checked("check box", name), self.describe)

    def is_checked(self, role, name):
        return self.find(role, name).get_state_set().contains(Atspi.StateType.CHECKED)

    def open_tab(self, name):
        """Brings a tab to the front, although others may come and go with the printer just now."""
        def is_in_front():
            tab = self.seek("page tab", name)
            if not tab or tab.get_state_set().contains(Atspi.StateType.SELECTED):
                return tab is not None
            tab.get_parent().select_child(tab.get_index_in_parent())
            return False
        wait_for(f"the tab “{name}”", is_in_front, self.describe)

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
            for node in descendants(self.root()):
                if node.get_role_name() != role:
                    continue
                for relation in node.get_relation_set():
                    if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY and \
                            relation.get_target(0).get_name() == label:
                        return node
            return None
        return wait_for(f"the {role} labelled “{label}”", probe, self.describe)

    def type_pages(self, text):
        self.labelled("text", "Before pages:").set_text_contents(text)
        wait_for("the page list", lambda: self.pages() == text)

    def pages(self):
        entry = self.labelled("text", "Before pages:")
        return Atspi.Text.get_text(entry, 0, Atspi.Text.get_character_count(entry))

    def choose_printer(self, name):
        """Selects a printer in the dialog's list."""
        cell = self.find("table cell", name)
        printers = cell.get_parent()
        row = Atspi.Table.get_row_at_index(printers, cell.get_index_in_parent())
        Atspi.Table.add_row_selection(printers, row)
        wait_for(f"the printer {name} to be selected",
                 lambda: Atspi.Table.is_row_selected(printers, row), self.describe)

    def is_usable(self, role, name):
        return self.find(role, name).get_state_set().contains(Atspi.StateType.SENSITIVE)


class Program(User):
    """A running program, all its windows, and its messages in the file `log`."""

    user = User  # at one of its windows

    def __init__(self, command, log, environment=None, folder=None):
        self.log = log
        # The accessibility bus is there before the program looks for it.
        Atspi.get_desktop(0).get_child_count()
        with open(log, "a", encoding="utf-8") as errors:
            self.process = subprocess.Popen(command, stdout=errors, stderr=errors, cwd=folder,
                                            env={**os.environ, **(environment or {})})
        super().__init__(self.application, self.describe_windows)

    def application(self):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application and application.get_process_id() == self.process.pid:
                return application
        return None

    def windows(self):
        application = self.application()
        for index in range(application.get_child_count() if application else 0):
            window = application.get_child_at_index(index)
            if window:
                yield window

    def window(self, title):
        """The user at the window with this title alone."""
        def find():
            return next((one for one in self.windows() if one.get_name() == title), None)
        wait_for(f"the window “{title}”", find, self.describe)
        return self.user(find, self.describe)

    def alert(self):
        """The user at the message that waits for an answer."""
        def find():
            return next((one for one in self.windows() if one.get_role_name() == "alert"), None)
        return self.user(find, self.describe)

    def describe_windows(self):
        """What an accessibility tool sees now, for the message of a failed run."""
        application = self.application()
        said = self.messages()
        if application is None:
            return f"the program is gone (status {self.process.poll()}): {said}"
        return said + "\n".join(f"{node.get_role_name()} {node.get_name()!r}"
                                for node in descendants(application) if node.get_name())

    def messages(self):
        with open(self.log, encoding="utf-8") as log:
            return log.read()

    def wait_for_end(self):
        return wait_for("the end of the program",
                        lambda: None if self.process.poll() is None else [self.process.returncode],
                        self.describe)[0]

    def end(self):
        """Ends a program that would run on after printing."""
        self.process.terminate()
        self.process.wait()

    def complaints(self):
        return [line for line in self.messages().splitlines()
                if ("WARNING" in line or "CRITICAL" in line)
                and not any(words in line for words in NOT_OURS)]


class PrintServer(print_server.PrintServer):
    """A print server of the test's own with the queue Office."""

    def __init__(self, project, folder):
        super().__init__(folder)
        self.ppd = os.path.join(project, "tests/data/zephrel-ps-9000.ppd")
        self.add_queue("Office", self.ppd)

    def job(self, number):
        """The folder of the job that arrived as the number-th, from 1."""
        return wait_for(f"job {number} at the printer",
                        lambda: self.jobs()[number - 1:number], lambda: self.log_of(number))[0]
