#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""memcheck over the print dialogs of one program, with the extension and without:
memcheck_run.py BUILD_FOLDER PROJECT_FOLDER [DIALOGS]. Ten dialogs, unless told, which take some minutes.
Fails when an error or a loss has the extension on its stack, and with ten dialogs or more also when the
memory grows more from dialog to dialog than without it: one dialog differs too much from the next for a
few of them to tell. Runs under tests/support/with-display.
"""

import os
import subprocess
import sys
import tempfile
from xml.etree import ElementTree

from dialog_user import check
from extension_run import Desk

ENOUGH_FOR_GROWTH = 10  # dialogs
SETTLED = 2  # dialogs after which GTK's caches are filled
NOISE = 512  # bytes for each dialog; one dialog differs from the next by some thousand
LIBRARIES = ("libprintbackend-publishing.so", "libpublishing-panel.so")
# libcups loses some texts with each PPD whose options it marks.
LOST_BY_LIBCUPS = "_ppdCacheCreateWithPPD"
# fontconfig keeps a font's properties by their distance, which memcheck takes for no pointer.
FONTCONFIG = "libfontconfig.so"
REMEMBERED = ("--cover", "front-back", "--cover-media", "Thick", "--insert", "5,8,12-14",
              "--insert-media", "Recycled", "--insert-sides", "front", "--remember", "--wait")
# What the panel must have put into the settings of each dialog, so that it was at work there.
KEYS = {"cups-VtCoverModeState", "cups-VtPageinsertNums"}


class Run:
    """What memcheck found while the program of the strangers' folder showed its dialogs."""

    def __init__(self, desk, name, backends, dialogs):
        desk.write_settings(backends)
        report = os.path.join(desk.folder, name + ".xml")
        said = subprocess.run(
            ["valgrind", "--leak-check=full", "--show-leak-kinds=definite", "--num-callers=60",
             "--xml=yes", "--xml-file=" + report,
             os.path.join(desk.build, "tests/strangers/many-dialogs"), str(dialogs), "Office"],
            env={**os.environ, "G_SLICE": "always-malloc", "G_DEBUG": "gc-friendly"},
            check=True, text=True, stdout=subprocess.PIPE).stdout.splitlines()
        self.keys = [set(line.split()[1:]) for line in said if line.startswith("settings")]
        live = [int(line.split()[1]) for line in said if line.startswith("live")]
        check(len(live) == len(self.keys) == dialogs, f"the program said {said}")
        self.growths = [after - before for before, after in zip(live[SETTLED - 1:], live[SETTLED:])]
        self.growth = sum(self.growths) / max(len(self.growths), 1)
        self.errors = list(ElementTree.parse(report).getroot().iter("error"))


def is_loss(error):
    return error.findtext("kind").startswith("Leak")


def bytes_of(losses):
    return sum(int(error.findtext("xwhat/leakedbytes")) for error in losses)


def stack(error):
    """Pairs of function and library, innermost first."""
    return [(frame.findtext("fn") or "?", os.path.basename(frame.findtext("obj") or "?"))
            for frame in error.iter("frame")]


def has_extension(error):
    return any(library in LIBRARIES for _, library in stack(error))


def is_lost_by_libraries(error):
    callers = [frame for frame in stack(error) if not frame[1].startswith("vgpreload")]
    return is_loss(error) and (callers[0][1].startswith(FONTCONFIG) or
                               any(function == LOST_BY_LIBCUPS for function, _ in callers))


def describe(error):
    what = error.findtext("what") or error.findtext("xwhat/text")
    return "\n".join([what, *(f"    {function} ({library})" for function, library in stack(error))])


def compare(bare, panel, dialogs):
    check(not any(keys & KEYS for keys in bare.keys), "the panel is in the bare dialog")
    check(all(keys >= KEYS for keys in panel.keys), "the panel was not at work in each dialog")
    blamed = [error for error in panel.errors if has_extension(error)]
    libraries = [error for error in blamed if is_lost_by_libraries(error)]
    ours = [error for error in blamed if error not in libraries]
    for error in ours:
        print(describe(error))
    wrong = {name: sum(not is_loss(error) for error in run.errors)
             for name, run in (("bare", bare), ("panel", panel))}
    print(f"errors that are no losses: {wrong['bare']} without, {wrong['panel']} with the extension")
    print(f"errors and losses of the extension: {len(ours)}; lost by libraries on its behalf: "
          f"{bytes_of(libraries)} bytes in {dialogs} dialogs")
    print(f"growth from dialog to dialog, mean: {bare.growth:.0f} bytes without, "
          f"{panel.growth:.0f} with the extension\n  {bare.growths}\n  {panel.growths}")
    check(not ours, "the extension has errors or losses")
    check(wrong["panel"] <= wrong["bare"], "there are more errors than in bare dialogs")
    if dialogs >= ENOUGH_FOR_GROWTH:
        check(panel.growth <= bare.growth + NOISE, "memory grows more than in bare dialogs")


def main():
    build, project, *rest = sys.argv[1:]
    dialogs = int(rest[0]) if rest else ENOUGH_FOR_GROWTH
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        desk = Desk(build, project, folder)
        try:
            subprocess.run([os.path.join(build, "bin/publishing"), "print", "-d", "Office",
                            *REMEMBERED, desk.document], check=True)
            compare(Run(desk, "bare", "file,cups", dialogs),
                    Run(desk, "panel", "file,cups,publishing", dialogs), dialogs)
        finally:
            desk.server.stop()


main()
