#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""The extension in the desktop portal's print dialog, which serves a GTK 4 program that has none:
portal_run.py BUILD_FOLDER PROJECT_FOLDER. Runs under tests/support/with-display with NO_AT_BRIDGE empty.
"""

import os
import sys
import tempfile

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from dialog_user import wait_for
from extension_run import Desk, end_quietly, wait_until_closed, whole_run

LIBEXEC = "/usr/libexec"
# The portal asks the desktop's part of it to show the dialog. Each with its name on the session bus.
DIALOGS = ("xdg-desktop-portal-gtk", "org.freedesktop.impl.portal.desktop.gtk")
PORTAL = ("xdg-desktop-portal", "org.freedesktop.portal.Desktop")


def start_service(desk, program, bus_name):
    """Here and not by the bus, so that it gets the desk's settings and print server."""
    service = desk.start(os.path.join(LIBEXEC, program))
    wait_for(f"{program} on the session bus", lambda: is_on_bus(bus_name), service.messages)
    return service


def is_on_bus(name):
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    answer = bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                           "NameHasOwner", GLib.Variant("(s)", (name,)), None,
                           Gio.DBusCallFlags.NONE, -1)
    return answer.unpack()[0]


def portal(desk):
    dialogs = start_service(desk, *DIALOGS)
    front = start_service(desk, *PORTAL)
    printing = []

    def open_dialog():
        printing[:] = [desk.start("gtk4-print", GDK_DEBUG="portals")]
        return dialogs

    def wait_for_program(_):
        wait_until_closed(printing[0])
    whole_run(desk, open_dialog, "Print", wait_for_program)
    end_quietly(front)
    end_quietly(dialogs)


def main():
    build, project = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        desk = Desk(build, project, folder)
        try:
            portal(desk)
        finally:
            desk.server.stop()


main()
