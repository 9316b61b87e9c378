# SPDX-License-Identifier: Apache-2.0
"""What a user does with the panel in any program's print dialog, and what must come of it."""

from dialog_user import Atspi, check, descendants, wait_for

TICKS = ("Add covers to the document", "Outside of the front cover",
         "Add sheets between the pages", "Front of the inserted sheets")
FAULT = "“1”: page 2 is the lowest."
ALERT = "You can only enter page numbers between 2 and 511.\n\n" + FAULT
CHOICES = (b"CoverMediaType Thick", b"PageMediaType Recycled")
OPTIONS = ("VtCoverModeState=On", "VtCoverModeValue=1", "VtCovermodeRadioButtonState=2",
           "VtCmIndex=3", "VtUnspecified=1", "VtPageinsertState=On", "VtPageinsertValue=1",
           "VtPiIndex=2", "VtPageinsertNums=5,8,12,13,14,", "CoverMediaType=Thick",
           "PageMediaType=Recycled")


def choose(dialog, pages):
    """Covers, and sheets before the pages listed."""
    dialog.open_tab("Publishing")
    dialog.tick(TICKS[0])
    dialog.act("radio button", "Front and back covers")
    dialog.wait_for_tick(TICKS[1])
    dialog.pick("Cover paper:", "Thick Paper (épais)")
    dialog.open_tab("Page Insert")
    dialog.tick(TICKS[2])
    dialog.pick("Sheet paper:", "Recycled Paper")
    dialog.tick(TICKS[3])
    dialog.type_pages(pages)


def check_fault_is_said(dialog):
    """What is wrong with the list is there before Print is pressed, and belongs to the field."""
    entry = dialog.labelled("text", "Before pages:")
    wait_for("the fault as the field's description", lambda: entry.get_description() == FAULT,
             entry.get_description)
    check(any(node.get_role_name() == "label" and node.get_name() == FAULT
              for node in descendants(dialog.root())), "the fault is not shown below the field")


def check_fault_is_selected(dialog):
    """The keyboard is on the field, and typing replaces what is wrong."""
    entry = dialog.labelled("text", "Before pages:")
    dialog.regain_keyboard(entry)
    wait_for("the keyboard on the field",
             lambda: entry.get_state_set().contains(Atspi.StateType.FOCUSED))
    selected = Atspi.Text.get_selection(entry, 0)
    check((selected.start_offset, selected.end_offset) == (4, 5), "the fault is not selected")


def print_after_refusal(program, dialog, server):
    """Prints with a bad page list, which keeps the dialog open, and then with a good one."""
    before = server.jobs()
    choose(dialog, "5,8,1")
    check_fault_is_said(dialog)
    dialog.press("Print")
    program.alert().find("label", ALERT)
    program.alert().press("OK")
    wait_for("the alert to go", lambda: program.alert().root() is None)
    check(dialog.pages() == "5,8,1", "the list is not as typed after the alert")
    check_fault_is_selected(dialog)
    check(server.jobs() == before, "something was printed with a bad list")
    dialog.type_pages("5,8,12-14")
    dialog.press("Print")


def check_job(server, number=1):
    """The number-th job has everything that was chosen."""
    job = server.job(number)
    data = server.received(job, "data")
    for choice in CHOICES:
        check(b"%%BeginFeature: *" + choice in data, f"the PostScript lacks {choice.decode()}")
    options = server.options(job)
    for option in OPTIONS:
        check(option in options, f"the job lacks {option}: {options}")


def check_bare_job(server, number=1):
    """The number-th job has nothing of the panel."""
    options = server.options(server.job(number))
    check(not any(option.startswith("Vt") for option in options), f"the panel's options: {options}")


def check_stored(dialog):
    """The dialog shows what was printed with."""
    dialog.open_tab("Publishing")
    for name in TICKS:
        wait_for(f"the stored tick of “{name}”", lambda n=name: dialog.is_checked("check box", n))
    check(dialog.is_checked("radio button", "Front and back covers"), "the kind of cover is lost")
    check(dialog.picked("Cover paper:") == "Thick Paper (épais)", "the cover's paper is lost")
    check(dialog.picked("Sheet paper:") == "Recycled Paper", "the sheets' paper is lost")
    check(dialog.pages() == "12-14,5,8", f"the list is lost: {dialog.pages()}")


def check_calm(program):
    check(program.complaints() == [], f"the toolkit complains: {program.complaints()}")
