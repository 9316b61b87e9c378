# SPDX-License-Identifier: Apache-2.0
"""What comes out of a PostScript printer, sheet by sheet: medium, text and blank sides.

Ghostscript runs the job twice, both times with printed-sheets.ps in front, which is the printer's page
device: once it draws the pages small, once it reads their text. Nothing here knows how a job was made.
"""

import concurrent.futures
import dataclasses
import hashlib
import json
import pathlib
import re
import subprocess
import tempfile

DEVICE = pathlib.Path(__file__).with_name("printed-sheets.ps")
DOTS_PER_INCH = 36
LONGEST_RUN = 600  # seconds

# The device's keys that say how a sheet goes through the printer, not which paper it is.
NO_MEDIUM = {"Duplex", "Tumble", "NumCopies", "Collate", "OutputType", "OutputAttributes", "Policies",
             "Jog", "OutputFaceUp", "OutputOrder"}


class JobError(Exception):
    """The printer cannot print the job: the PostScript ends with an error."""


@dataclasses.dataclass(frozen=True)
class Side:
    """One side that the printer prints."""
    text: str  # words with single spaces between them
    blank: bool  # every dot of it is white
    picture: str  # a digest of its dots
    size: tuple  # the page's width and height in points
    copies: int
    state: dict  # the device's keys and values, see flat()
    activations: int  # how often the device was set up since the side before it
    begins_document: bool

    @property
    def medium(self):
        """The keys that select paper."""
        return {key: value for key, value in self.state.items()
                if key.split(".")[0] not in NO_MEDIUM}


@dataclasses.dataclass
class Sheet:
    """A sheet of paper. The back is None when the printer puts out the sheet without printing it."""
    front: Side
    back: Side | None = None
    torn: str = ""  # why the sheet ended before its back was printed; empty when nothing is wrong

    @property
    def two_sided(self):
        return bool(self.front.state.get("Duplex"))


def flat(state, prefix=""):
    """The device's state as one level of keys, "InputAttributes.Priority". What is null is left out:
    a printer makes no difference between a key of null and a key that it was never told."""
    keys = {}
    for key, value in state.items():
        if isinstance(value, dict):
            keys.update(flat(value, f"{prefix}{key}."))
        elif value is not None:
            keys[prefix + key] = value
    return keys


# ---- Ghostscript ----

def ghostscript(device, output, events, documents, *options):
    """Runs the documents, one after the other in one interpreter."""
    command = ["gs", "-q", "-dBATCH", "-dNOPAUSE", "-dDELAYBIND", "-dWRITESYSTEMDICT", "-sstdout=%stderr",
               f"-sDEVICE={device}", f"-sOutputFile={output}", *options, f"-sEvents={events}",
               f"--permit-file-write={events}", str(DEVICE)]
    for document in documents:
        command += ["-c", "printed-sheets /document get exec", "-f", str(document)]
    ended = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                           stderr=subprocess.PIPE, check=False, timeout=LONGEST_RUN)
    said = ended.stderr.decode("utf-8", "replace")
    if ended.returncode != 0 or "Unrecoverable error" in said:
        raise JobError(next((line for line in said.splitlines() if line.startswith("Error:")),
                            said.strip()[-400:]))


def split_documents(job):
    """The job's documents: a print server sends those of one job without a break between them."""
    starts = [match.start(1) for match in re.finditer(rb"%%EOF[\r\n\x04\s]*(%!PS-Adobe-)", job)]
    return [job[begin:end] for begin, end in zip([0, *starts], [*starts, len(job)])]


def dots_of_pages(path):
    """The pages of a file with pictures in the format PGM, one after the other."""
    data = path.read_bytes()
    header = re.compile(rb"P5\s+(?:#[^\n]*\n\s*)*(\d+)\s+(\d+)\s+255\s")
    at = 0
    while at < len(data):
        found = header.match(data, at)
        length = int(found[1]) * int(found[2])
        yield data[found.end():found.end() + length]
        at = found.end() + length


def drawn(documents, folder, resolution):
    """(events, digest and blankness of each page)"""
    events, pages = folder / "drawn.events", folder / "pages.pgm"
    ghostscript("pgmraw", pages, events, documents, f"-r{resolution}", "-dTextAlphaBits=4")
    pictures = [(hashlib.sha256(dots).hexdigest(), not dots.strip(b"\xff"))
                for dots in (dots_of_pages(pages) if pages.exists() else [])]
    return [json.loads(line) for line in events.read_text("ascii").splitlines()], pictures


def texts(documents, folder):
    """The text of each page."""
    ghostscript("txtwrite", folder / "text-%d", folder / "texts.events", documents)
    found = []
    while (page := folder / f"text-{len(found) + 1}").exists():
        found.append(" ".join(page.read_text("utf-8", "replace").split()))
    return found


def sides_of(events, pictures, words):
    """Joins what was written down with what was drawn and read."""
    sides, activations, begins = [], 0, False
    for event in events:
        if event["event"] == "activated":
            activations += 1
        elif event["event"] == "document":
            begins = True
        else:
            index = len(sides)
            picture, blank = pictures[index]
            sides.append(Side(
                text=words[index], blank=blank, picture=picture, size=tuple(event["size"]),
                copies=event["copies"], state=flat(event["state"]),
                # each side ends with one that nobody asked for
                activations=activations - (1 if sides else 0), begins_document=begins))
            activations, begins = 0, False
    if not len(sides) == len(pictures) == len(words):
        raise JobError(f"{len(sides)} sides are printed, {len(pictures)} drawn, {len(words)} read")
    return sides


def printed_sides(job, resolution=DOTS_PER_INCH, with_text=True):
    """The sides that the printer prints of these bytes. Without text it takes half the time. Raises
    JobError."""
    with tempfile.TemporaryDirectory(prefix="printed-sheets.") as name:
        folder = pathlib.Path(name)
        documents = []
        for number, document in enumerate(split_documents(job), 1):
            documents.append(folder / f"document-{number}.ps")
            documents[-1].write_bytes(document)
        if not with_text:
            events, pictures = drawn(documents, folder, resolution)
            return sides_of(events, pictures, [""] * len(pictures))
        with concurrent.futures.ThreadPoolExecutor() as both:
            drawing = both.submit(drawn, documents, folder, resolution)
            reading = both.submit(texts, documents, folder)
            return sides_of(*drawing.result(), reading.result())


# ---- Sheets ----

def difference(one, other):
    """In words, how the states of two sides differ; empty when they do not."""
    words = [f"{key} {one.state.get(key, 'null')} and {other.state.get(key, 'null')}"
             for key in sorted(one.state.keys() | other.state.keys())
             if one.state.get(key) != other.state.get(key)]
    if one.size != other.size:
        words.append(f"size {'x'.join(map(str, one.size))} and {'x'.join(map(str, other.size))}")
    if one.copies != other.copies:
        words.append(f"copies {one.copies} and {other.copies}")
    return ", ".join(words)


def why_torn(front, back, strict):
    """Why this side cannot be the back of that front; empty when it can."""
    unlike = difference(front, back)
    if unlike:
        return f"front and back differ: {unlike}"
    if strict and back.activations:
        return "the device is set up anew between front and back"
    return ""


def sheets_of(sides, strict=False):
    """Pairs the sides.

    Whatever changes in the device between front and back ends the sheet: the next side is printed on
    another one. Setting up the device without changing anything ends the sheet on some printers only;
    strict looks at the job as they do. A new document that sets up the device begins a sheet.
    """
    sheets = []
    for side in sides:
        last = sheets[-1] if sheets else None
        if last and last.two_sided and last.back is None and not last.torn:
            if not (side.begins_document and side.activations):
                last.torn = why_torn(last.front, side, strict)
                if not last.torn:
                    last.back = side
                    continue
        sheets.append(Sheet(side))
    return sheets


def printed_sheets(job, strict=False, resolution=DOTS_PER_INCH):
    """The sheets that the printer puts out for these bytes. Raises JobError."""
    return sheets_of(printed_sides(job, resolution), strict)
