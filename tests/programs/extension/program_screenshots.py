#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""Pictures of the tab in the print dialogs of programs that know nothing of it:
program_screenshots.py BUILD_FOLDER PROJECT_FOLDER FOLDER. Runs under tests/support/with-display with
NO_AT_BRIDGE empty.
"""

import os
import subprocess
import sys
import tempfile
import time

from extension_run import Desk
from gtk4_run import Gtk4Desk, open_document, print_in_text_editor
from qt_desk import QtDesk
from qt_programs_run import open_dialog

ANIMATIONS = 0.5  # seconds


def prepare_queue(desk, build, project):
    """The queue gets papers with ordinary names, and makes covers."""
    ppd = subprocess.run([os.path.join(project, "tests/support/ordinary-ppd")], check=True, text=True,
                         stdout=subprocess.PIPE).stdout
    desk.write("printer.ppd", ppd)
    covers = os.path.join(desk.folder, "covers.ppd")
    subprocess.run([os.path.join(build, "bin/publishing"), "printer", "enable", "--ppd",
                    os.path.join(desk.folder, "printer.ppd"), "--output", covers], check=True,
                   stdout=subprocess.DEVNULL)
    desk.server.add_queue("Office", covers)


def draw(dialog, file):
    time.sleep(ANIMATIONS)
    place = dialog.place_of(dialog.root())
    subprocess.run(["import", "-window", "root", "-crop",
                    f"{place.width}x{place.height}+{place.x}+{place.y}", "+repage", file], check=True)


def choose_covers(dialog):
    dialog.open_tab("Publishing")
    dialog.tick("Add covers to the document")
    dialog.act("radio button", "Front and back covers")
    dialog.wait_for_tick("Outside of the front cover")
    dialog.pick("Cover paper:", "Heavy Paper")


def choose_sheets(dialog):
    dialog.open_tab("Publishing")
    dialog.open_tab("Page Insert")
    dialog.tick("Add sheets between the pages")
    dialog.pick("Sheet paper:", "Recycled Paper")
    dialog.tick("Front of the inserted sheets")
    dialog.type_pages("5,8,12-14")


def draw_evince(desk, file):
    program = desk.start("evince", desk.document)
    program.find("document frame", "Document View")
    program.act("push button", "Print…")
    dialog = program.window("Print")
    choose_covers(dialog)
    draw(dialog, file)
    program.end()


def draw_mousepad(desk, file):
    desk.write("document.txt", "A line of text.\n" * 1000)
    program = desk.start("mousepad", os.path.join(desk.folder, "document.txt"))
    program.act("menu item", "Print...")
    dialog = program.window("Print")
    choose_sheets(dialog)
    draw(dialog, file)
    program.end()


def draw_text_editor(desk, file):
    program, window = open_document(desk, "gnome-text-editor", "--standalone")
    print_in_text_editor(window)
    dialog = program.window("Print")
    choose_covers(dialog)
    draw(dialog, file)
    program.end()


def draw_okular(desk, file):
    # Its dialog names a file in the home, and a picture must not tell of the machine.
    folders = {f"XDG_{kind}_HOME": desk.folder for kind in ("CACHE", "DATA", "STATE")}
    program = open_dialog(desk, "okular", HOME="/home/user", **folders)
    dialog = program.window("Print")
    choose_covers(dialog)
    draw(dialog, file)
    program.end()


def qt5_desk(build, project, folder):
    return QtDesk(build, project, 5, folder)


PICTURES = {"evince": (Desk, draw_evince), "mousepad": (Desk, draw_mousepad),
            "text-editor": (Gtk4Desk, draw_text_editor), "okular": (qt5_desk, draw_okular)}


def main():
    build, project, pictures = sys.argv[1:]
    os.makedirs(pictures, exist_ok=True)
    for name, (kind, draw_program) in PICTURES.items():
        with tempfile.TemporaryDirectory() as folder:
            os.chmod(folder, 0o755)
            desk = kind(build, project, folder)
            try:
                prepare_queue(desk, build, project)
                draw_program(desk, os.path.join(pictures, f"{name}.png"))
            finally:
                desk.server.stop()


if __name__ == "__main__":
    main()
