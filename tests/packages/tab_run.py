#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""tab_run.py with|without: whether the print dialog of a program from Debian has the panel's tab.

Runs under tests/support/with-display with NO_AT_BRIDGE empty.
"""

import os
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "../support"))
from dialog_user import Program, check  # noqa: E402

with tempfile.TemporaryDirectory() as folder:
    program = Program(["gtk3-demo", "--run=printing"], os.path.join(folder, "log"), {}, folder)
    dialog = program.window("Print")
    dialog.find("page tab", "General")
    wanted = sys.argv[1] == "with"
    check((dialog.seek("page tab", "Publishing") is not None) == wanted, f"not {sys.argv[1]} the tab")
    dialog.press("Cancel")
