#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""tab_run.py with|without: whether the print dialogs of programs from Debian have the panel's tab.

Runs under tests/support/with-display with NO_AT_BRIDGE empty.
"""

import os
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "../support"))
from dialog_user import Program, check  # noqa: E402
from gtk4_user import Gtk4Program  # noqa: E402

wanted = sys.argv[1] == "with"
for kind, name in ((Program, "gtk3-demo"), (Gtk4Program, "gtk4-demo")):
    with tempfile.TemporaryDirectory() as folder:
        program = kind([name, "--run=printing"], os.path.join(folder, "log"), folder=folder)
        dialog = program.window("Print")
        dialog.find("page tab", "General")
        check((dialog.seek("page tab", "Publishing") is not None) == wanted,
              f"{name} is not {sys.argv[1]} the tab")
        dialog.press("Cancel")
