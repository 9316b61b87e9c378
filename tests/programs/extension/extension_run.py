#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""The extension in programs that know nothing of it, from outside, against a print server of its own:
extension_run.py BUILD_FOLDER PROJECT_FOLDER CASE...

Runs under tests/support/with-display with NO_AT_BRIDGE empty.
"""

import os
import shutil
import sys
import tempfile

from dialog_user import PrintServer, Program, check, wait_for
from panel_run import (TICKS, check_bare_job, check_calm, check_job, check_stored, choose,
                       print_after_refusal)

TAB = "Publishing"
STEPS = ("Tab", "Bad page list keeps the dialog open", "Options in job and PostScript",
         "Stored state in the next dialog")
PLAIN_PPD = """*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "PLAIN.PPD"
*Manufacturer: "Zephrel"
*Product: "(Plain)"
*ModelName: "Zephrel Plain"
*ShortNickName: "Zephrel Plain"
*NickName: "Zephrel Plain"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: False
*DefaultColorSpace: Gray
*OpenUI *PageSize/Page Size: PickOne
*DefaultPageSize: A4
*PageSize A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*DefaultPageRegion: A4
*PageRegion A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4: "0 0 595 842"
*DefaultPaperDimension: A4
*PaperDimension A4: "595 842"
"""
SETTINGS = "[Settings]\ngtk-print-backends={backends}\n{more}"


class Desk:
    """A desktop of the test's own, whose settings name the extension, with a print server. Its
    programs have GTK 3."""

    settings = "etc/gtk-3.0/settings.ini"
    modules = "gtk-3.0/3.0.0/printbackends"
    loader = "libprintbackend-publishing.so"
    panel = "libpublishing-panel.so"  # in the loader's folder
    stranger = "{}"
    program = Program

    def __init__(self, build, project, folder):
        self.build, self.project, self.folder = build, project, folder
        self.document = os.path.join(project, "tests/data/report.pdf")
        self.log_count = 0
        self.passed = 0  # steps of whole_run
        self.write_settings()
        os.environ["XDG_CONFIG_DIRS"] = os.path.join(folder, "etc")
        os.environ["GTK_PATH"] = os.path.dirname(os.path.dirname(self.library_folder()))
        self.server = PrintServer(project, os.path.join(folder, "cups"))

    def write_settings(self, backends="file,cups,publishing", more=""):
        self.write(self.settings, SETTINGS.format(backends=backends, more=more))

    def write(self, name, text):
        path = os.path.join(self.folder, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def library_folder(self):
        for folder, _, files in os.walk(os.path.join(self.build, "lib")):
            if folder.endswith(self.modules) and self.loader in files:
                return folder
        sys.exit(f"there is no extension below {self.build}/lib")

    def copy_libraries(self, *names):
        """A folder of its own with some of the extension's files, where programs look from now on."""
        folder = os.path.join(self.folder, self.modules)
        shutil.copytree(self.library_folder(), folder)
        for name in {self.loader, self.panel} - set(names):
            os.remove(os.path.join(folder, name))
        os.environ["GTK_PATH"] = os.path.dirname(os.path.dirname(folder))
        return folder

    def start(self, name, *arguments, **environment):
        self.log_count += 1
        log = os.path.join(self.folder, f"log-{self.log_count}")
        stranger = os.path.join(self.build, "tests/strangers", self.stranger.format(name))
        program = stranger if os.path.exists(stranger) else name
        return self.program([program, *arguments], log, environment, self.folder)

    def leaky(self):
        """Leaks of the program or of the toolkit are none of our business."""
        return {"ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"}

    def preloaded(self, **environment):
        preload = os.path.join(self.build, "tests/strangers/libanother-gtk.so")
        # A sanitizer's library must come first, and its programs have it already.
        return {"LD_PRELOAD": preload, "ASAN_OPTIONS":
                os.environ.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0", **environment}


def whole_run(desk, open_program, title, close=None):
    """STEPS in that order: `open_program` starts a program and opens its dialog."""
    close = close or wait_until_closed
    first = open_program()
    dialog = first.window(title)
    dialog.find("page tab", TAB)
    desk.passed = 1
    print_after_refusal(first, dialog, desk.server)
    desk.passed = 2
    check_job(desk.server)
    close(first)
    desk.passed = 3
    second = open_program()
    dialog = second.window(title)
    check_stored(dialog)
    dialog.press("Cancel")
    close(second)
    desk.passed = 4


def end_quietly(program):
    """For programs that run on: the panel must have said nothing."""
    program.end()
    ours = [line for line in program.messages().splitlines() if "publishing" in line.lower()]
    check(ours == [], f"lines in the log: {ours}")


def wait_until_closed(program):
    check(program.wait_for_end() == 0, f"the program did not end well: {program.messages()}")
    check_calm(program)


def bare_run(desk, said, **environment):
    """A dialog without the tab prints all the same; the log has the line `said`, or none of ours."""
    program = desk.start("print-dialog", desk.document, **environment)
    dialog = program.window("Stranger 1")
    print_bare(dialog)
    wait_until_closed(program)
    check_bare_job(desk.server)
    lines = [line for line in program.messages().splitlines() if "publishing-" in line.lower()]
    check(len(lines) == (1 if said else 0), f"lines in the log: {lines}")
    check(not said or said in lines[0], f"line in the log: {lines}")


def print_bare(dialog):
    dialog.find("page tab", "Advanced")  # comes with the printer
    check(dialog.seek("page tab", TAB) is None, "the tab is there")
    dialog.press("Print")


def operation(desk):
    whole_run(desk, lambda: desk.start("print-operation"), "Print")


def operation_async(desk):
    whole_run(desk, lambda: desk.start("print-operation", "--async"), "Print")


def own_dialog(desk):
    whole_run(desk, lambda: desk.start("print-dialog", desk.document), "Stranger 1")


def header_bar(desk):
    desk.write_settings(more="gtk-dialogs-use-header=true\n")
    whole_run(desk, lambda: desk.start("print-dialog", desk.document), "Stranger 1")


def gtkmm(desk):
    # With the names of the binding GLib needs a larger table, and loses the first one.
    leaky = desk.leaky()
    whole_run(desk, lambda: desk.start("gtkmm-print", desk.document, **leaky), "Stranger")


def evince(desk):
    def open_dialog():
        program = desk.start("evince", desk.document)
        program.find("document frame", "Document View")
        with open(f"/proc/{program.process.pid}/maps", encoding="utf-8") as libraries:
            check("publishing" not in libraries.read(), "the extension is there before any dialog")
        program.act("push button", "Print…")
        return program
    whole_run(desk, open_dialog, "Print", end_quietly)


def mousepad(desk):
    desk.write("document.txt", "A line of text.\n" * 1000)

    def open_dialog():
        program = desk.start("mousepad", os.path.join(desk.folder, "document.txt"))
        program.act("menu item", "Print...")
        return program
    whole_run(desk, open_dialog, "Print", end_quietly)


def hidden_functions(desk):
    preloaded = desk.preloaded(ANOTHER_GTK_LACKS="gtk_printer_option_set_lookup")
    whole_run(desk, lambda: desk.start("print-dialog", desk.document, **preloaded), "Stranger 1")


def switched_off(desk):
    bare_run(desk, None, PUBLISHING_EXTENSION="0")


def switched_off_by_rule(desk):
    desk.write("etc/publishing/dialog/rules.ini", "[Dialog]\nExtension=false\n")
    bare_run(desk, None)


def another_gtk(desk):
    bare_run(desk, "GTK 3.24 and not of 3.26", **desk.preloaded(ANOTHER_GTK_MINOR="26"))


def no_panel_library(desk):
    desk.copy_libraries(desk.loader)
    bare_run(desk, os.path.basename(desk.panel))


def other_panel_library(desk):
    folder = desk.copy_libraries(desk.loader)
    shutil.copy(os.path.join(folder, desk.loader), os.path.join(folder, desk.panel))
    bare_run(desk, "publishing_panel_attach")


def setting_cleared(desk):
    """No tab in the next dialog of a program that runs on."""
    program = desk.start("print-dialog", "--times", "2", "--forget-backends", desk.document)
    first = program.window("Stranger 1")
    choose(first, "5")
    first.press("Cancel")
    print_bare(program.window("Stranger 2"))
    wait_until_closed(program)
    check_bare_job(desk.server)


def twice(desk, program, title):
    """A program prints twice, the second time with the settings of its first job."""
    first = program.window(title.format(1))
    choose(first, "5,8,12-14")
    first.press("Print")
    check_job(desk.server, 1)
    second = program.window(title.format(2))
    check_stored(second)
    second.press("Print")
    wait_until_closed(program)
    check_job(desk.server, 2)


def twice_in_own_dialog(desk):
    twice(desk, desk.start("print-dialog", "--times", "2", desk.document), "Stranger {}")


def twice_in_operation(desk):
    twice(desk, desk.start("print-operation", "--times", "2"), "Print")


def replaced_meanwhile(desk):
    """An upgrade under a running program, which goes on with what it has."""
    names = (desk.loader, desk.panel)
    folder = desk.copy_libraries(*names)
    program = desk.start("print-dialog", "--times", "2", desk.document)
    program.window("Stranger 1").find("page tab", TAB)
    for name in names:
        desk.write("new", "another version")
        os.replace(os.path.join(desk.folder, "new"), os.path.join(folder, name))
    twice(desk, program, "Stranger {}")


def two_at_once(desk):
    program = desk.start("print-dialog", "--at-once", "2", desk.document)
    first, second = program.window("Stranger 1"), program.window("Stranger 2")
    choose(first, "5,8,12-14")
    second.open_tab(TAB)
    check(not second.is_checked("check box", TICKS[0]), "one dialog's covers are in the other one")
    second.act("push button", "Print")
    check("VtCoverModeState=Off" in desk.server.options(desk.server.job(1)), "covers in job 1")
    first.act("push button", "Print")
    wait_until_closed(program)
    check_job(desk.server, 2)


def destroyed(desk):
    """The program destroys the dialog while the user reads an alert of the panel."""
    program = desk.start("print-dialog", "--destroy", desk.document)
    dialog = program.window("Stranger 1")
    choose(dialog, "1")
    dialog.press("Print")
    wait_until_closed(program)
    check(desk.server.jobs() == [], "something was printed")


def other_printers(desk):
    """Choices for one printer do not go to a file, nor to a printer without covers and inserts."""
    desk.write("plain.ppd", PLAIN_PPD)
    desk.server.add_queue("Plain", os.path.join(desk.folder, "plain.ppd"))
    program = desk.start("print-dialog", "--times", "2", desk.document)
    for title, printer in (("Stranger 1", "Plain"), ("Stranger 2", "Print to File")):
        dialog = program.window(title)
        dialog.choose_printer("Office")
        choose(dialog, "1")  # a list that would be refused
        dialog.open_tab("General")
        dialog.choose_printer(printer)
        wait_for(f"the empty tab of {printer}", lambda: not has_panel(dialog), program.describe)
        dialog.press("Print")
    wait_until_closed(program)
    check_bare_job(desk.server)
    printed = os.path.join(desk.folder, "output.pdf")
    check(os.path.getsize(printed) > 0, "nothing was printed to the file")


def has_panel(dialog):
    return dialog.seek("check box", TICKS[0]) is not None


def broken_ppd(desk):
    """A printer whose PPD cannot be read has no panel; the next one has it again."""
    desk.server.add_queue("Broken", desk.server.ppd)
    desk.write("cups/etc/ppd/Broken.ppd", "no PPD\n")
    # GTK's own backend loses the texts of such a printer.
    program = desk.start("print-dialog", desk.document, **desk.leaky())
    dialog = program.window("Stranger 1")
    choose(dialog, "5,8,12-14")
    dialog.open_tab("General")
    dialog.choose_printer("Broken")
    wait_for("the empty tab", lambda: not has_panel(dialog), program.describe)
    dialog.choose_printer("Office")
    choose(dialog, "5,8,12-14")
    dialog.press("Print")
    wait_until_closed(program)
    check_job(desk.server)


def process_untouched(desk):
    """Locale, text domain, signals and standard streams are those of the program without us."""
    states = []
    for switch in ("1", "0"):
        program = desk.start("print-dialog", desk.document, PUBLISHING_EXTENSION=switch)
        dialog = program.window("Stranger 1")
        dialog.find("page tab", "Advanced")
        if switch == "1":
            choose(dialog, "5,8,12-14")
        dialog.press("Print")
        wait_until_closed(program)
        states += [line for line in program.messages().splitlines() if line.startswith("state:")]
    check(len(states) == 2 and states[0] == states[1], f"another state: {states}")


CASES = {function.__name__.replace("_", "-"): function for function in (
    operation, operation_async, own_dialog, header_bar, gtkmm, evince, mousepad, hidden_functions, switched_off,
    switched_off_by_rule, another_gtk, no_panel_library, other_panel_library, setting_cleared,
    twice_in_own_dialog, twice_in_operation, replaced_meanwhile, two_at_once, destroyed, other_printers,
    broken_ppd, process_untouched)}


def run(build, project, case, steps=None, kind=Desk, cases=None):
    """Runs a case on that kind of desk; `steps`, if any, gets how many of the STEPS passed."""
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        desk = kind(build, project, folder)
        try:
            (cases or CASES)[case](desk)
        finally:
            desk.server.stop()
            if steps is not None:
                steps[case] = desk.passed


def main():
    build, project, *cases = sys.argv[1:]
    for case in cases:
        run(build, project, case)


if __name__ == "__main__":
    main()
