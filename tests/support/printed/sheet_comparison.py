# SPDX-License-Identifier: Apache-2.0
"""Printed sheets beside a plan of them: where the two differ, and a table for people.

A plan is what `publishing sheets --json` writes: {"sheets": [{"medium", "front", "back"}, ...],
"copies": 1}. Sides are page numbers, 0 is a blank side, null no side; the medium is a choice's keyword,
or tray and type ("Tray1/Plain").
"""

import dataclasses
import re

PAGE_NUMBER = r"\bPage (\d+)\b"  # what the pages of the sample documents say
UNKNOWN = "?"  # a side that is printed, and does not say its number


@dataclasses.dataclass(frozen=True)
class Row:
    """A sheet, planned or printed."""
    medium: str
    front: object
    back: object

    @property
    def sides(self):
        back = {None: "", 0: " | -"}.get(self.back, f" | {self.back}")
        return f"{self.front or '-'}{back}"

    def __str__(self):
        return f"{self.medium}: {self.sides}"


def page_number(side, pattern=PAGE_NUMBER):
    if side is None:
        return None
    if side.blank:
        return 0
    found = re.search(pattern, side.text)
    return int(found[1]) if found else UNKNOWN


def raw_name(state):
    """The medium where no PPD gives it a name."""
    return ", ".join(f"{key} {value}" for key, value in sorted(state.items())
                     if value is not False) or "default"


def printed_rows(sheets, media=None, pattern=PAGE_NUMBER):
    name = media.name if media else raw_name
    return [Row(name(sheet.front.medium), page_number(sheet.front, pattern),
                page_number(sheet.back, pattern)) for sheet in sheets]


def planned_rows(plan, copies_of_sheets):
    """The sheets one after the other. Copies of each sheet are made by the printer, copies of the
    whole are sheets of their own."""
    rows = [Row(sheet["medium"], sheet["front"], sheet["back"]) for sheet in plan["sheets"]]
    return rows if copies_of_sheets > 1 else rows * plan.get("copies", 1)


def same_name(planned, sheet, printed, media):
    return media.is_called(planned, sheet.front.medium) if media else planned == printed


@dataclasses.dataclass(frozen=True)
class Comparison:
    rows: list  # (planned Row or None, printed Row or None, whether they are alike)
    faults: list  # in words

    @property
    def alike(self):
        return not self.faults


def compare(sheets, plan, media=None, pattern=PAGE_NUMBER):
    copies = sheets[0].front.copies if sheets else 1
    planned, printed = planned_rows(plan, copies), printed_rows(sheets, media, pattern)
    rows, faults = [], []
    for number in range(1, max(len(planned), len(printed)) + 1):
        plan_row = planned[number - 1] if number <= len(planned) else None
        row = printed[number - 1] if number <= len(printed) else None
        if plan_row and row and same_name(plan_row.medium, sheets[number - 1], row.medium, media):
            row = dataclasses.replace(row, medium=plan_row.medium)
        rows.append((plan_row, row, plan_row == row))
        if plan_row != row:
            faults.append(f"sheet {number}: {plan_row or 'nothing'} is planned, "
                          f"{row or 'nothing'} is printed")
    if copies > 1 and copies != plan.get("copies", 1):
        faults.append(f"{plan.get('copies', 1)} copies are planned, {copies} printed")
    return Comparison(rows, faults + own_faults(sheets) + strayed(sheets, planned))


def own_faults(sheets):
    """What is wrong whatever was planned."""
    return [f"sheet {number} is torn: {sheet.torn}"
            for number, sheet in enumerate(sheets, 1) if sheet.torn]


def strayed(sheets, planned):
    """Sheets for which the same paper is planned, and which the printer takes from different states
    of the device: what one of them set was not taken back."""
    first, faults = {}, []
    for number, (sheet, row) in enumerate(zip(sheets, planned), 1):
        earlier, state = first.setdefault(row.medium, (number, sheet.front.medium))
        if sheet.front.medium != state:
            keys = sorted(key for key in state.keys() | sheet.front.medium.keys()
                          if state.get(key) != sheet.front.medium.get(key))
            faults.append(f"sheets {earlier} and {number} have to be of one paper, and differ in: "
                          + ", ".join(keys))
    return faults


def table(comparison):
    """Planned and printed sheets side by side; a mark where they differ."""
    width = max([len(row.medium) for rows in comparison.rows for row in rows[:2] if row] + [5])
    sides = max([len(row.sides) for rows in comparison.rows for row in rows[:2] if row] + [12])

    def cells(row):
        return f"{row.medium if row else '':{width}}  {row.sides if row else '':{sides}}"

    gap = width + sides + 2
    lines = [f"  sheet  {'planned':{gap}}  printed".rstrip(),
             f"         {'paper':{width}}  {'front | back':{sides}}  {'paper':{width}}  front | back"]
    lines += [f"{' ' if alike else '>'} {number:5}  {cells(planned)}  {cells(printed)}".rstrip()
              for number, (planned, printed, alike) in enumerate(comparison.rows, 1)]
    return "\n".join(lines)


def plain_table(sheets, media=None, pattern=PAGE_NUMBER):
    """The printed sheets alone."""
    rows = printed_rows(sheets, media, pattern)
    width = max([len(row.medium) for row in rows] + [5])
    return "\n".join([f"  sheet  {'paper':{width}}  front | back"] +
                     [f"  {number:5}  {row.medium:{width}}  {row.sides}"
                      for number, row in enumerate(rows, 1)])
