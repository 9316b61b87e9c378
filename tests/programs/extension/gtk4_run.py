#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""The extension in GTK 4 programs that know nothing of it, from outside, against a print server of its
own: gtk4_run.py BUILD_FOLDER PROJECT_FOLDER CASE... Most cases are those of extension_run.py.

Runs under tests/support/with-display with NO_AT_BRIDGE empty.
"""

import os
import sys

import extension_run
from dialog_user import Atspi, GLib, check, wait_for
from extension_run import Desk, bare_run, end_quietly, whole_run
from gi.repository import Gio
from gtk4_user import Gtk4Program


class Gtk4Desk(Desk):
    """Its programs have GTK 4."""

    settings = "etc/gtk-4.0/settings.ini"
    modules = "gtk-4.0/4.0.0/printbackends"
    panel = "publishing/libpublishing-panel-gtk4.so"
    stranger = "gtk4-{}"
    program = Gtk4Program

    def copy_libraries(self, *names):
        folder = super().copy_libraries(*names)
        os.utime(os.path.join(folder, "giomodule.cache"))  # the copy is newer than the copied
        return folder


def libraries_of(program):
    with open(f"/proc/{program.process.pid}/maps", encoding="utf-8") as libraries:
        return libraries.read()


def open_document(desk, *command):
    """A program with the window that shows its document."""
    desk.write("document.txt", "A line of text.\n" * 1000)
    program = desk.start(*command, os.path.join(desk.folder, "document.txt"))
    window = wait_for("the document", lambda: next(
        (one for one in program.windows() if "document.txt" in one.get_name()), None),
        program.describe)
    check("publishing" not in libraries_of(program), "the extension is there before any dialog")
    return program, window


def print_in_text_editor(window):
    action = next(number for number in range(window.get_n_actions())
                  if Atspi.Action.get_action_name(window, number) == "page.print")
    try:
        window.do_action(action)
    except GLib.Error:
        pass  # no answer: the dialog runs inside of the action


def text_editor(desk):
    def open_dialog():
        program, window = open_document(desk, "gnome-text-editor", "--standalone")
        print_in_text_editor(window)
        return program
    whole_run(desk, open_dialog, "Print", end_quietly)


def print_editor(desk):
    def open_dialog():
        program, _ = open_document(desk, "gtk4-print-editor")
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        bus.call(
            "org.gtk.PrintEditor4", "/org/gtk/PrintEditor4", "org.gtk.Actions", "Activate",
            GLib.Variant("(sava{sv})", ("print", [], {})), None, Gio.DBusCallFlags.NONE, -1)
        bus.flush_sync()
        return program
    whole_run(desk, open_dialog, "Print", end_quietly)


def another_gtk(desk):
    bare_run(desk, "does not know those of GTK 5.", **desk.preloaded(ANOTHER_GTK_MAJOR="5"))


def stale_cache(desk):
    """GIO loads the module with the program; its dialog has the panel all the same."""
    os.remove(os.path.join(desk.copy_libraries(desk.loader, desk.panel), "giomodule.cache"))
    whole_run(desk, lambda: desk.start("print-operation"), "Print")


def not_listed(desk):
    """Inert until the setting lists it, although GIO loads it with GTK's own backends."""
    desk.write_settings("file,cups")
    bare_run(desk, None)


CASES = {name: extension_run.CASES[name] for name in (
    "operation", "operation-async", "own-dialog", "header-bar",
    "switched-off", "switched-off-by-rule", "no-panel-library", "other-panel-library",
    "setting-cleared", "twice-in-own-dialog", "twice-in-operation", "replaced-meanwhile",
    "two-at-once", "destroyed", "other-printers", "broken-ppd", "process-untouched")}
CASES |= {function.__name__.replace("_", "-"): function for function in (
    text_editor, print_editor, another_gtk, stale_cache, not_listed)}


def run(build, project, case, steps=None):
    extension_run.run(build, project, case, steps, Gtk4Desk, CASES)


def main():
    build, project, *cases = sys.argv[1:]
    for case in cases:
        run(build, project, case)


if __name__ == "__main__":
    main()
