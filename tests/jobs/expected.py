# SPDX-License-Identifier: Apache-2.0
"""The sheets that a job has to come out on, worked out or written down apart from the programs.

Written down, a sheet is its role and its sides: "C1|-" is a cover with page 1 outside and a blank
inside, "I-|-" a blank insert, "B2|3" a sheet of the body, "B2" a one-sided one, "B?" one with a page
that does not say its number.
"""

import dataclasses
import re

FRONT_OUTSIDE, FRONT_INSIDE, BACK_OUTSIDE, BACK_INSIDE = 1, 2, 4, 8
BODY_MEDIUM = "Tray1/Plain"


@dataclasses.dataclass(frozen=True)
class Wish:
    """What a job asks for. Covers: 0 none, 1 front, 2 front and back."""
    two_sided: bool = True
    covers: int = 0
    cover_value: int = 0
    cover_medium: str = "Tray2"
    inserts: tuple = ()
    insert_value: int = 0
    insert_medium: str = "Thick"

    def options(self):
        """As lp -o takes them."""
        wanted = {"sides": "two-sided-long-edge" if self.two_sided else "one-sided"}
        if self.covers:
            wanted |= {"VtCoverModeState": "On", "VtCovermodeRadioButtonState": self.covers,
                       "VtCoverModeValue": self.cover_value, "CoverMediaType": self.cover_medium}
        if self.inserts:
            wanted |= {"VtPageinsertState": "On", "VtPageinsertValue": self.insert_value,
                       "VtPageinsertNums": "".join(f"{page}," for page in self.inserts),
                       "PageMediaType": self.insert_medium}
        return wanted


# Wishes that many tests have.
COVERS = Wish(covers=2, cover_value=5)  # outside of both
INSERTS = Wish(inserts=(3,), insert_value=1)
BOTH = Wish(covers=1, cover_value=1, inserts=(4,))


# ---- Worked out ----

def cover_pages(wish, count):
    """(front outside, front inside), (back inside, back outside): pages, 0 where none is printed."""
    value = wish.cover_value if wish.cover_value < 16 else 0
    usable = value & (FRONT_OUTSIDE | FRONT_INSIDE | (BACK_OUTSIDE | BACK_INSIDE) * (wish.covers == 2))
    if not wish.two_sided:
        usable &= FRONT_OUTSIDE | BACK_INSIDE
    left = list(range(1, count + 1))
    front = [left.pop(0) if usable & side and left else 0 for side in (FRONT_OUTSIDE, FRONT_INSIDE)]
    back = [left.pop() if usable & side and left else 0 for side in (BACK_OUTSIDE, BACK_INSIDE)]
    return front, back[::-1]


def in_pairs(pages):
    """Fronts and backs of a run of pages that begins a sheet."""
    return [(pages[at], pages[at + 1] if at + 1 < len(pages) else 0) for at in range(0, len(pages), 2)]


def two_sided_body(wish, pages):
    """The body in stretches that begin at the listed pages."""
    listed = set(wish.inserts)
    starts = [at for at, page in enumerate(pages) if page in listed]
    sheets = [("B", *pair) for pair in in_pairs(pages[:starts[0]] if starts else pages)]
    for start, end in zip(starts, [*starts[1:], len(pages)]):
        page, rest = pages[start], pages[start + 1:end]
        if wish.insert_value == 0:
            sheets.append(("I", 0, 0))
            rest = [page, *rest]
        elif wish.insert_value == 3 and rest:
            sheets.append(("I", page, rest.pop(0)))
        else:
            sheets.append(("I", 0, page) if wish.insert_value == 2 else ("I", page, 0))
        sheets += [("B", *pair) for pair in in_pairs(rest)]
    return sheets


def one_sided_body(wish, pages):
    sheets = []
    for page in pages:
        if page not in wish.inserts:
            sheets.append(("B", page))
        elif wish.insert_value & 1:
            sheets.append(("I", page))
        else:
            sheets += [("I", 0), ("B", page)]
    return sheets


def planned(wish, count):
    """The sheets of that many pages, each its role and its sides."""
    if not count:
        return []
    front, back = cover_pages(wish, count) if wish.covers else ([0, 0], [0, 0])
    taken = sum(map(bool, front)), sum(map(bool, back))
    body = list(range(1 + taken[0], count + 1 - taken[1]))
    sides = 2 if wish.two_sided else 1
    sheets = [("C", *front[:sides])] if wish.covers else []
    sheets += (two_sided_body if wish.two_sided else one_sided_body)(wish, body)
    if wish.covers == 2:
        sheets.append(("C", *back[:sides]))
    return sheets


# ---- Written down ----

def parsed(text):
    """The sheets of "C1|- B2|3"."""
    sheets = []
    for word in text.split():
        role, sides = re.fullmatch(r"([CIB])([\d|?-]+)", word).groups()
        sheets.append((role, *(int(side) if side.isdigit() else 0 if side == "-" else side
                               for side in sides.split("|"))))
    return sheets


def written(sheets):
    return " ".join(role + "|".join(str(side) if side else "-" for side in sides)
                    for role, *sides in sheets)


def plan(sheets, wish, copies=1, body_medium=BODY_MEDIUM):
    """As `publishing sheets --json` has it. A medium PrnDef is the body's."""
    media = {"B": body_medium, "C": wish.cover_medium, "I": wish.insert_medium}
    return {"copies": copies, "sheets": [
        {"sheet": number, "medium": body_medium if media[role] == "PrnDef" else media[role],
         "front": sides[0], "back": sides[1] if len(sides) > 1 else None}
        for number, (role, *sides) in enumerate(sheets, 1)]}
