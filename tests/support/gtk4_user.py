# SPDX-License-Identifier: Apache-2.0
"""A user at the print dialog of a GTK 4 program. GTK 4.8 tells the accessibility bus less than GTK 3:
boxes have no action, tabs no name, and the items of a combo box are only counted."""

import re
import subprocess
import time

from dialog_user import Atspi, GLib, Program, User, check, descendants, wait_for

SOON = 10  # seconds, for what a click does
ROLES = {"radio button": ("radio button", "check box")}
# The places of papers in the menus of the Zephrel PS 9000.
ITEMS = {"Thick Paper (épais)": 3, "Heavy Paper": 3, "Recycled Paper": 2}

SENTENCES = {"Cover paper:": " cover on {},", "Sheet paper:": " on sheets of {}."}


def texts_of(node):
    """What is to be read on a control, or heard of it."""
    label = next((one for one in descendants(node) if one.get_role_name() == "label"), node)
    return [one.get_name().replace("_", "").removesuffix(" ✓").rstrip() for one in (node, label)]


class Gtk4User(User):
    """Without a window manager all windows are in the corner of the screen, where X counts from."""

    def seek(self, role, name):
        root = self.root()
        for node in descendants(root) if root else ():
            if node.get_role_name() in ROLES.get(role, (role,)) and name in texts_of(node):
                return node
        return None

    def place_of(self, node):
        return Atspi.Component.get_extents(node, Atspi.CoordType.WINDOW)

    def is_showing(self, node):
        place = self.place_of(node)
        return place.width > 0 and place.height > 0

    def click(self, node):
        title = self.root().get_name()
        if title:
            subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$",
                            "windowraise", "%@"], check=True)
        super().click(node)

    def click_until(self, role, name, is_done):
        """A click that a window missed, because it was not there yet, has done nothing."""
        def try_it():
            node = self.find(role, name)
            if not is_done(node):
                self.click(node)
            return soon(lambda: is_done(node))
        wait_for(f"what a click on the {role} “{name}” does", try_it, self.describe)

    def act(self, role, name):
        if role == "push button":
            super().act(role, name)
        else:
            self.click_until(role, name, has(Atspi.StateType.CHECKED))

    def tick(self, name):
        self.act("check box", name)

    def press(self, name):
        """Of a dialog: it goes, or a message comes."""
        before = windows_on_screen()
        self.click_until("push button", name, lambda _: windows_on_screen() != before)

    def open_tab(self, name):
        self.click_until("page tab", name, has(Atspi.StateType.SELECTED))

    def pick(self, box_label, item):
        combo = self.labelled("combo box", box_label)
        check(Atspi.Selection.select_child(combo, ITEMS[item]), f"no “{item}” in “{box_label}”")

    def picked(self, box_label):
        """From the sentence about the sheets."""
        def probe():
            for node in descendants(self.root()):
                if node.get_role_name() == "label":
                    for item in ITEMS:
                        if SENTENCES[box_label].format(item) in node.get_name():
                            return item
            return None
        return wait_for(f"the {box_label} in the sentence", probe, self.describe)

    def choose_printer(self, name):
        self.click_until("table row", name, has(Atspi.StateType.SELECTED))


def has(state):
    return lambda node: node.get_state_set().contains(state)


def windows_on_screen():
    """Asks X: the accessibility bus may have lost a program that has just ended."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", ""], check=False,
                           capture_output=True, text=True)
    return set(found.stdout.split())


def soon(is_done):
    end = time.monotonic() + SOON
    while time.monotonic() < end:
        try:
            if is_done():
                return True
        except GLib.Error:  # it went away
            pass
        time.sleep(0.05)
    return False


class Gtk4Program(Gtk4User, Program):
    """A running GTK 4 program."""

    user = Gtk4User

    def alert(self):
        def find():
            return next((one for one in self.windows() if one.get_role_name() == "dialog"
                         and one.get_name() == ""), None)
        return Gtk4User(find, self.describe)
