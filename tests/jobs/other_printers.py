# SPDX-License-Identifier: Apache-2.0
"""Covers and inserts on printers of other makers: does every page come from the right tray?

What a tray looks like in the bytes that reach a printer is learnt from plain jobs, each printed from
one tray by the printer's own driver. Then a job with a cover from one tray and an insert from another
goes through publishingtops and the same driver, and its pages have to look like these.
"""

import contextlib
import dataclasses
import itertools
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).parent
sys.path[:0] = [str(HERE.parent / "support/printed")]
import ppd_media  # noqa: E402
import printed_sheets  # noqa: E402
import tray_commands  # noqa: E402

FILTERS = pathlib.Path("/usr/lib/cups/filter")
OWN_TRAY = 1  # what stands for the tray that PCL cannot name: the one that a printer takes by itself
LONGEST_RUN = 300  # seconds


class Unfit(Exception):
    """The printer cannot be used for the test; says why."""


@dataclasses.dataclass(frozen=True)
class Side:
    """A printed side, in whatever language."""
    medium: object  # a dict of the device's keys for PostScript, else the number of the tray
    blank: bool
    picture: str


def squares(pages):
    """PostScript whose page N has N squares: text would not look alike in every driver's output."""
    lines = [f"%!PS-Adobe-3.0\n%%Pages: {pages}\n%%BoundingBox: 0 0 595 842\n%%EndComments\n"]
    for page in range(1, pages + 1):
        lines.append(f"%%Page: {page} {page}\n")
        lines += [f"{60 + 40 * number} {200 + 30 * number} 20 20 rectfill\n" for number in range(page)]
        lines.append("showpage\n")
    return ("".join(lines) + "%%Trailer\n%%EOF\n").encode("ascii")


# ---- What reaches the printer ----

def run_filters(programs, ppd, options, document):
    """The document through filters, each with the PPD and the options, as CUPS runs them."""
    environment = {**os.environ, "PPD": str(ppd), "CONTENT_TYPE": "application/postscript",
                   "PRINTER": "Tested", "CUPS_SERVERBIN": str(FILTERS.parent), "LC_ALL": "C"}
    words = " ".join(f"{name}={value}" for name, value in options.items())
    for program in programs:
        ended = subprocess.run([program, "1", "user", "title", "1", words], input=document,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=environment,
                               check=False, timeout=LONGEST_RUN)
        document = ended.stdout
        if ended.returncode != 0:
            said = ended.stderr.decode("utf-8", "replace")
            raise Unfit(f"{pathlib.Path(program).name} fails: " +
                        " ".join(line for line in said.splitlines() if "ERROR" in line)[-300:])
    return document


def driver(enabled_ppd):
    """The driver that the enabled PPD names behind publishingtops, as a list of programs."""
    text = pathlib.Path(enabled_ppd).read_text("latin-1")
    name = re.search(r'^\*cupsFilter:\s*"application/vnd.publishing-postscript\s+\d+\s+(\S+)"', text,
                     re.MULTILINE)[1]
    return [] if name == "-" else [str(FILTERS / name)]


def sides_in(stream):
    """The sides in a job, whichever language it is in."""
    if is_postscript(stream):
        return [Side(side.medium, side.blank, side.picture)
                for side in printed_sheets.printed_sides(without_pjl(stream), with_text=False)]
    return [Side(page.tray, page.blank, page.picture) for page in tray_commands.pages(stream)]


def without_pjl(stream):
    parts = [part for part in stream.split(tray_commands.UEL) if b"%!" in part]
    return parts[0][parts[0].index(b"%!"):] if parts else stream


def is_postscript(stream):
    return b"%!PS" in stream[:20000] or stream[:2] == b"%!"


def language(stream):
    return "PostScript" if is_postscript(stream) else sorted(
        {page.language for page in tray_commands.pages(stream)})[0]


# ---- Trays ----

def paper(ppd):
    """The PPD's default page size, as an option."""
    size = ppd_media.default(ppd, "PageSize")
    return {"PageSize": size} if size else {}


def plain(ppd, programs, tray, pages=1):
    options = paper(ppd) | {"InputSlot": tray}
    return run_filters([str(FILTERS / "pstops"), *programs], ppd, options, squares(pages))


def telling_keys(media):
    """The keys of the device that tell the media apart; none for a number."""
    if not isinstance(media[0], dict):
        return []
    return [key for key in set().union(*media) if len({str(one.get(key)) for one in media}) > 1]


def cut(medium, keys):
    """A medium as far as the keys have it."""
    return tuple((key, str(medium.get(key))) for key in keys) if isinstance(medium, dict) else medium


def is_from(medium, seen, keys):
    """Whether a side with what was seen comes from that medium. What a choice does not speak of, such as
    the number of the feeder where the printer selects one by itself, counts only when the choice speaks
    of nothing."""
    said = [key for key in keys if isinstance(medium, dict) and medium.get(key) is not None]
    return cut(seen, said or keys) == cut(medium, said or keys)


def look_different(media):
    keys = telling_keys(media)
    return len({cut(medium, keys) for medium in media}) == len(media)


@dataclasses.dataclass(frozen=True)
class Trays:
    """Three trays of a printer, and what each looks like."""
    body: str
    cover: str
    insert: str
    looks: dict

    @property
    def media(self):
        return [self.looks[tray] for tray in (self.body, self.cover, self.insert)]


def pick_trays(ppd, programs, most):
    """The tray that the PPD takes if nobody asks, with two others; and three that a job has to name,
    where the first one has no name in the printer's language. Raises Unfit when there are not three
    that look different among so many."""
    names = [keyword for keyword, _ in ppd_media.choices(ppd, "InputSlot")]
    usual = ppd_media.default(ppd, "InputSlot")
    if usual not in names:
        raise Unfit("no default tray")
    tried = [usual, *(name for name in names if name != usual)][:most]
    looks = {name: sides_in(plain(ppd, programs, name))[0].medium for name in tried}
    unnamed = looks[usual] is None
    first = [usual] if not unnamed else [name for name in tried if looks[name] not in (None, OWN_TRAY)]
    for body in first:
        others = [name for name in tried if name not in (usual, body) and looks[name] != OWN_TRAY]
        for cover, insert in itertools.combinations(others, 2):
            picked = Trays(body, cover, insert, looks)
            if look_different(picked.media):
                return [picked, Trays(usual, cover, insert, looks)] if unnamed else [picked]
    raise Unfit("no three trays that look different")


# ---- The job ----

PAGES = 5
ONE_SIDED = "C1 B2 B3 I- B4 B5"
TWO_SIDED = "C1 C- B2 B3 I- I- B4 B5"


def job_options(ppd, trays, two_sided):
    return paper(ppd) | {
        "InputSlot": trays.body, "sides": "two-sided-long-edge" if two_sided else "one-sided",
        "VtCoverModeState": "On", "VtCovermodeRadioButtonState": 1, "VtCoverModeValue": 1,
        "CoverMediaType": trays.cover, "VtPageinsertState": "On", "VtPageinsertValue": 0,
        "VtPageinsertNums": "4,", "PageMediaType": trays.insert}


def pictures_of_pages(ppd, programs, trays):
    return [side.picture for side in sides_in(plain(ppd, programs, trays.body, PAGES))]


def faults_of(stream, trays, pictures, sheets):
    """What is wrong with the job, in words; none when every side is as it has to be."""
    media = dict(zip("BCI", trays.media))
    if media["B"] is None:
        media["B"] = OWN_TRAY
    keys = telling_keys(list(media.values()))
    sides = sides_in(stream)
    expected = sheets.split()
    if len(sides) != len(expected):
        return [f"{len(sides)} sides instead of {len(expected)}"]
    faults = []
    for number, (side, (role, page)) in enumerate(zip(sides, expected), 1):
        medium = media[role]
        if not is_from(medium, side.medium, keys):
            faults.append(f"side {number}: from {cut(side.medium, keys)} instead of {cut(medium, keys)}")
        if side.blank != (page == "-"):
            faults.append(f"side {number}: {'blank' if side.blank else 'not blank'}")
        elif page != "-" and side.picture != pictures[int(page) - 1]:
            faults.append(f"side {number}: not page {page}")
    return faults


def has_duplex(ppd):
    return any(keyword == "DuplexNoTumble" for keyword, _ in ppd_media.choices(ppd, "Duplex"))


@contextlib.contextmanager
def enabled(build, ppd):
    """(kind, the PPD with covers and inserts). Raises Unfit when it cannot have them."""
    with tempfile.TemporaryDirectory(prefix="other-printers.") as folder:
        output = pathlib.Path(folder) / "enabled.ppd"
        ended = subprocess.run([build / "bin/publishing", "printer", "enable", "--ppd", ppd, "--output",
                                output, "--json"], stdout=subprocess.PIPE, check=False)
        answer = json.loads(ended.stdout)
        if ended.returncode != 0:
            printers = answer.get("printers") or [{}]
            raise Unfit(printers[0].get("reason") or answer["error"]["message"])
        yield answer["printers"][0]["kind"], output


@dataclasses.dataclass(frozen=True)
class Examined:
    kind: str
    language: str
    faults: list


def examine(build, ppd, most_trays=8):
    """Prints the job on the printer of that PPD, one-sided and, when it can, two-sided. Raises Unfit."""
    with enabled(build, ppd) as (kind, enabled_ppd):
        programs = driver(enabled_ppd)
        faults, spoken = [], ""
        for trays in pick_trays(ppd, programs, most_trays):
            pictures = pictures_of_pages(ppd, programs, trays)
            for two_sided, sheets in ((False, ONE_SIDED), (True, TWO_SIDED))[:1 + has_duplex(ppd)]:
                stream = run_filters([str(build / "bin/publishingtops"), *programs], enabled_ppd,
                                     job_options(ppd, trays, two_sided), squares(PAGES))
                spoken = language(stream)
                job = f"{'two' if two_sided else 'one'}-sided, {trays.body}/{trays.cover}/{trays.insert}"
                faults += [f"{job}: {fault}" for fault in faults_of(stream, trays, pictures, sheets)]
        return Examined(kind, spoken, faults)
