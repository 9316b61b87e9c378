# SPDX-License-Identifier: Apache-2.0
"""A user at Qt's print dialog, the programs that show it, and a desk with a print server for them."""

import os
import shutil
import subprocess

from dialog_user import PrintServer, Program, User, check, descendants, wait_for


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

    def regain_keyboard(self, node):
        """As a window manager does; there is none here."""
        place = self.place_of(node)
        said = subprocess.run(["xdotool", "mousemove", str(place.x + 1), str(place.y + 1),
                               "getmouselocation"], check=True, text=True, stdout=subprocess.PIPE)
        window = said.stdout.rsplit("window:", 1)[1].strip()
        subprocess.run(["xdotool", "windowfocus", window], check=True)


class QtProgram(Program):
    """A running program of Qt."""

    def choose_item(self, *path):
        """Chooses a menu item with the mouse: the dialog that it opens runs inside the click."""
        # It can be chosen once the program has its document.
        wait_for(f"“{path[-1]}” to be usable", lambda: self.is_usable("menu item", path[-1]),
                 self.describe)
        for name in path:
            self.click(self.find("menu item", name))

    def window(self, title):
        """The user at a print dialog, with its tabs unfolded and its printers listed."""
        dialog = super().window(title)
        user = QtUser(dialog.root, dialog.describe)
        user.act("push button", "Options >>")
        user.find("page tab", "Copies")
        # Qt asks the server while the dialog opens; without an answer in time it would print to a file.
        wait_for("the printer Office", lambda: user.picked("Name:") == "Office", user.describe)
        return user

    def alert(self):
        """The user at the message that waits for an answer, a child of the dialog's here."""
        def find():
            return next((node for window in self.windows() for node in descendants(window)
                         if node.get_role_name() == "alert"), None)
        return QtUser(find, self.describe)

    def our_messages(self):
        return [line for line in self.messages().splitlines() if "panel" in line.lower()]

    def end_well(self, said=None):
        """The program ends by itself, and well; of the lines in its log only `said` is ours."""
        check(self.wait_for_end() == 0, f"the program did not end well: {self.messages()}")
        ours = self.our_messages()
        check(len(ours) == (1 if said else 0) and (not said or said in ours[0]), f"log: {ours}")

    def end_quietly(self):
        """For programs that run on: the panel must have said nothing."""
        self.end()
        check(self.our_messages() == [], f"lines in the log: {self.our_messages()}")


class QtDesk:
    def __init__(self, build, project, version, folder):
        self.build, self.project, self.folder, self.version = build, project, folder, version
        self.document = os.path.join(project, "tests/data/report.pdf")
        self.passed = 0  # steps of a whole run
        self.libraries = next(root for root, _, files in os.walk(os.path.join(build, "lib"))
                              if f"libpublishing-panel-qt{version}.so" in files)
        self.server = PrintServer(project, os.path.join(folder, "cups"))

    def copy_libraries(self):
        """A folder of its own with the libraries, where programs look from now on."""
        copy = os.path.join(self.folder, "qt")
        shutil.copytree(self.libraries, copy)
        self.libraries = copy
        return copy

    def write(self, name, text):
        path = os.path.join(self.folder, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path

    def start(self, *command, **environment):
        # Leaks of the program or of the toolkit are none of our business.
        leaky = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
        return QtProgram(command, os.path.join(self.folder, "log"),
                         {"QT_PLUGIN_PATH": self.libraries, "QT_QPA_PLATFORM": "xcb",
                          "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
                          # Places on the accessibility bus are those before scaling.
                          "QT_ENABLE_HIGHDPI_SCALING": "0", "ASAN_OPTIONS": leaky,
                          **environment}, self.folder)

    def start_stranger(self, *arguments, **environment):
        """A program of our own that knows nothing of the panel."""
        program = os.path.join(self.build, "tests/strangers", f"qt{self.version}-print")
        return self.start(program, *arguments, **environment)
