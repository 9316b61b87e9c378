#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""Writes the table of programs in docs/extension.md anew, from a run with each of them:
extension_table.py BUILD_FOLDER PROJECT_FOLDER

Runs under tests/support/with-display with NO_AT_BRIDGE empty.
"""

import os
import shutil
import subprocess
import sys

import extension_run
import gtk4_run
import qt_programs_run
from extension_run import STEPS


def output_of(*command):
    return subprocess.run(command, text=True, capture_output=True, check=True).stdout


def version_of(package):
    version = output_of("dpkg-query", "-W", "-f", "${source:Upstream-Version}", package)
    return version.split("+")[0]  # without what Debian left out


def gtk_programs():
    return {"evince": f"GNOME Document Viewer {version_of('evince')}",
            "mousepad": f"Mousepad {version_of('mousepad')}",
            "gtkmm": f"a program with gtkmm {version_of('libgtkmm-3.0-dev')}",
            "own-dialog": "a program with a print dialog and a job of its own",
            "header-bar": "the same with buttons in the header bar",
            "operation": "a program with a print operation",
            "operation-async": "the same, run asynchronously"}


def gtk4_programs():
    gtk = version_of("libgtk-4-1")
    return {"text-editor": f"GNOME Text Editor {version_of('gnome-text-editor')} (GTK 4)",
            "print-editor": f"GTK Print Editor {gtk} (GTK 4)",
            "own-dialog": "a program with a print dialog and a job of its own (GTK 4)",
            "header-bar": "the same with buttons in the header bar (GTK 4)",
            "operation": "a program with a print operation (GTK 4)",
            "operation-async": "the same, run asynchronously (GTK 4)"}


def qt_programs():
    return {program: f"{facts.name} {version_of(program)} (Qt {facts.qt})"
            for program, facts in qt_programs_run.PROGRAMS.items()}


def rows(script, programs, build, project):
    """A row for each program: its name, and which steps passed in a run of the script."""
    for case, program in programs.items():
        # What one case leaves in the user's settings is none of the next one's.
        shutil.rmtree(os.environ["XDG_CONFIG_HOME"], ignore_errors=True)
        steps = {}
        try:
            script.run(build, project, case, steps)
        except SystemExit as failure:
            print(f"{case}: {failure}", file=sys.stderr)
        yield [program, *("yes" if step < steps[case] else "no" for step in range(len(STEPS)))]


def table(build, project):
    lines = [["", *STEPS], ["---"] * (len(STEPS) + 1),
             *rows(extension_run, gtk_programs(), build, project),
             *rows(gtk4_run, gtk4_programs(), build, project),
             *rows(qt_programs_run, qt_programs(), build, project)]
    return "".join("| " + " | ".join(line) + " |\n" for line in lines)


def main():
    build, project = sys.argv[1:]
    begin, end = "<!-- table -->\n", "<!-- end of the table -->\n"
    path = os.path.join(project, "docs/extension.md")
    with open(path, encoding="utf-8") as file:
        text = file.read()
    before, after = text.split(begin)[0], text.split(end)[1]
    written = before + begin + table(build, project) + end + after
    with open(path, "w", encoding="utf-8") as file:
        file.write(written)


main()
