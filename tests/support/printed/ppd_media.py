# SPDX-License-Identifier: Apache-2.0
"""Names for the media of a printer: which choice of its PPD a state of the device stands for.

Every choice of InputSlot and MediaType is run through the same device as the job
(printed-sheets.ps), and what it sets is remembered. A state has the name of a choice when running
that choice's code would not change it.
"""

import dataclasses
import json
import pathlib
import re
import tempfile

import printed_sheets

# The device before each choice's code, twice: what differs from the first or is equal to nothing in
# the second was set by the code.
UNASKED = {}
ODD = {"MediaPosition": 9999, "MediaType": "(nobody's)", "MediaColor": "(nobody's)",
       "MediaWeight": 9999, "MediaClass": "(nobody's)", "ManualFeed": "true", "InsertSheet": "true",
       "DeferredMediaSelection": "true", "TraySwitch": "true", "InputAttributes": "<</Priority[9999]>>"}


def choices(ppd, option):
    """(keyword, PostScript) of each choice of the option, in the PPD's order."""
    text = pathlib.Path(ppd).read_bytes().decode("latin-1").replace("\r\n", "\n").replace("\r", "\n")
    found = re.finditer(rf'^\*{option}[ \t]+([^\s:/]+)[^:\n]*:[ \t]*"([^"]*)"', text, re.MULTILINE)
    return [(match[1], match[2]) for match in found]


def default(ppd, option):
    """The keyword of the option's default; empty when the PPD names none."""
    text = pathlib.Path(ppd).read_bytes().decode("latin-1").replace("\r", "\n")
    found = re.search(rf"^\*Default{option}:[ \t]*(\S+)", text, re.MULTILINE)
    return found[1] if found else ""


def as_postscript_string(code):
    return "(" + re.sub(r"([\\()])", r"\\\1", code) + ")"


def states_after(codes):
    """The device's state after each piece of code, as a printer that goes on after errors has it."""
    lines = ["%!"]
    for before, code in codes:
        keys = " ".join(f"/{key} {value}" for key, value in before.items())
        lines.append(f"save << {keys} >> setpagedevice mark {{ {as_postscript_string(code)} cvx exec }} "
                     "stopped cleartomark showpage restore clear")
    with tempfile.TemporaryDirectory(prefix="ppd-media.") as name:
        folder = pathlib.Path(name)
        (folder / "codes.ps").write_text("\n".join(lines), "latin-1")
        printed_sheets.ghostscript("nullpage", "/dev/null", folder / "events", [folder / "codes.ps"])
        events = [json.loads(line) for line in (folder / "events").read_text("ascii").splitlines()]
    return [printed_sheets.flat(event["state"]) for event in events if event["event"] == "side"]


@dataclasses.dataclass(frozen=True)
class Choice:
    keyword: str
    sets: dict  # keys and values that its code leaves in the device; None: the key is released

    @property
    def selects(self):
        """How many keys it sets to something that is not a printer's start."""
        return sum(value is not None and value is not False and value != []
                   for value in self.sets.values())

    def names(self, state):
        return all(state.get(key) == value for key, value in self.sets.items())


def learnt(ppd, options):
    """For each option its choices that do something to the device."""
    found = [(option, *choice) for option in options for choice in choices(ppd, option)]
    codes = [(before, code) for _, _, code in [("", "", ""), *found] for before in (UNASKED, ODD)]
    start, odd, *after = states_after(codes)
    named = {option: [] for option in options}
    for (option, keyword, _), plain, changed in zip(found, after[::2], after[1::2]):
        keys = {key for key in plain.keys() | start.keys() if plain.get(key) != start.get(key)}
        keys |= {key for key in changed.keys() | odd.keys() if changed.get(key) != odd.get(key)}
        sets = {key: changed.get(key) for key in keys
                if key.split(".")[0] not in printed_sheets.NO_MEDIUM}
        if sets:
            named[option].append(Choice(keyword, sets))
    return named


class Media:
    """The media that a PPD's choices select."""

    def __init__(self, ppd):
        named = learnt(ppd, ("InputSlot", "MediaType"))
        self.slots, self.types = named["InputSlot"], named["MediaType"]

    @staticmethod
    def _matching(choices_of_option, state):
        """The choices that the state stands for, those that say most first."""
        return sorted((choice for choice in choices_of_option if choice.names(state)),
                      key=lambda choice: -choice.selects)

    def slot_names(self, state):
        return [choice.keyword for choice in self._matching(self.slots, state)]

    def type_names(self, state):
        names = [choice.keyword for choice in self._matching(self.types, state) if choice.selects]
        unknown = state.get("MediaType")
        return names or ([unknown] if unknown and not self._slot_sets(state, "MediaType") else [])

    def _slot_sets(self, state, key):
        matching = self._matching(self.slots, state)
        return bool(matching) and matching[0].sets.get(key) is not None

    def selected_slot(self, state):
        """The tray that the device is told to take; None when it may choose."""
        return next((choice.keyword for choice in self._matching(self.slots, state)
                     if choice.selects), None)

    def name(self, state):
        """"Tray1/Plain", "Tray1" or "Plain": tray and type as far as they are selected."""
        parts = [self.selected_slot(state), next(iter(self.type_names(state)), None)]
        return "/".join(part for part in parts if part) or "released"

    def is_called(self, name, state):
        """Whether the state is the medium of that name: a choice of tray or of type, alone or both
        ("Tray1/Plain"). A tray alone leaves the type open, a type alone the tray."""
        slots, types = self.slot_names(state), self.type_names(state)
        if "/" in name:
            slot, _, kind = name.partition("/")
            return slot in slots and kind in types
        bare = re.sub(r"^(Slot|Type)\.", "", name)
        if not name.startswith("Type.") and bare in slots:
            return not types
        return bare in types and self.selected_slot(state) is None
