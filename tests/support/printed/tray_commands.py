# SPDX-License-Identifier: Apache-2.0
"""From which tray each page comes, read from the PCL 5, PCL XL and PJL that reach a printer.

Small readers for tests: they follow the streams' syntax closely enough to tell commands from data, and
know the few commands that matter here.
"""

import dataclasses
import hashlib
import re
import struct

UEL = b"\x1b%-12345X"


class StreamError(Exception):
    """The bytes are not what their language allows."""


@dataclasses.dataclass(frozen=True)
class Page:
    language: str  # "PCL", "PCLXL"
    tray: object  # the printer language's number of the tray, None when the stream names none
    duplex: bool
    blank: bool  # nothing is painted
    picture: str  # a digest of what is painted
    pjl: tuple  # (name, value) of the SET commands before it


def pages(stream):
    """The pages of a job, in the order in which they are printed."""
    found = []
    for language, settings, data in languages(stream):
        reader = pcl_pages if language == "PCL" else pcl_xl_pages
        found += [dataclasses.replace(page, pjl=settings) for page in reader(data)]
    return found


def languages(stream):
    """(language, PJL settings, data) of the parts of a job, which PJL divides."""
    settings, language = {}, None
    for part in stream.split(UEL):
        data = part
        while data.startswith(b"@PJL"):
            line, _, data = data.partition(b"\n")
            words = line.decode("ascii", "replace").strip()
            if variable := re.match(r"@PJL\s+SET\s+(\w+)\s*=\s*(\S+)", words, re.IGNORECASE):
                settings[variable[1].upper()] = variable[2].strip('"').upper()
            elif entered := re.match(r"@PJL\s+ENTER\s+LANGUAGE\s*=\s*(\w+)", words, re.IGNORECASE):
                language = "PCLXL" if entered[1].upper() == "PCLXL" else "PCL"  # or PCL3GUI
            elif re.match(r"@PJL\s+(JOB|EOJ|RESET)\b", words, re.IGNORECASE):
                settings = {}
        if data.strip(b"\0\r\n\t "):
            yield language or language_of(data), tuple(sorted(settings.items())), data
        language = None


def language_of(data):
    return "PCLXL" if b" HP-PCL XL;" in data[:200] else "PCL"


# ---- PCL 5 ----

# ESC, one or two characters that name a group, then values with a letter each; a capital is the last.
# A value may count bytes of data that follow its letter.
PCL_GROUP = re.compile(rb"\x1b[!-/][`-~]?")
PCL_VALUE = re.compile(rb"([+-]?[\d.]*)([@-~])")
WITH_DATA = {"*bW", "*bV", "(sW", ")sW", "*vW", "*lW", "*gW", "*oW", "*iW", "*mW", "*cW", "&nW", "&pX",
             "(fW", "&bW"}
PAINTED = {"*bW", "*bV"}


class PclReader:
    """Follows a PCL 5 stream and notes its pages."""

    def __init__(self, data):
        self.data, self.at, self.pages = data, 0, []
        self.tray, self.duplex, self.painted = None, False, []

    def read(self):
        while self.at < len(self.data):
            byte = self.data[self.at:self.at + 1]
            if byte == b"\x1b":
                self.escape()
                continue
            if byte == b"\x0c":
                self.end_page()
            elif byte not in b"\r\n\t\0 ":
                self.painted.append(byte)
            self.at += 1
        self.eject()
        return self.pages

    def escape(self):
        if self.data[self.at:self.at + 2] in (b"\x1bE", b"\x1b9", b"\x1b="):
            if self.data[self.at + 1:self.at + 2] == b"E":  # reset
                self.eject()
                self.tray, self.duplex = None, False
            self.at += 2
            return
        group = self.match(PCL_GROUP)[0][1:].decode("ascii")
        last = False
        while not last:
            value = self.match(PCL_VALUE)
            letter = ord(value[2])
            last = letter < ord("`")
            self.do(group + chr(letter if last else letter - 32), value[1])

    def match(self, pattern):
        found = pattern.match(self.data, self.at)
        if not found:
            raise StreamError(f"no PCL at byte {self.at}: {self.data[self.at:self.at + 8]!r}")
        self.at = found.end()
        return found

    def do(self, name, value):
        number = int(float(value or b"0"))
        if name in WITH_DATA:
            content = self.data[self.at:self.at + number]
            self.at += number
            if name in PAINTED and content.strip(b"\0"):
                self.painted.append(content)
        elif name == "&lH":
            self.eject()
            if number:  # 0 only ejects
                self.tray = number
        elif name == "&lS":
            self.eject()
            self.duplex = number != 0

    def eject(self):
        """Ends a page that was begun."""
        if self.painted:
            self.end_page()

    def end_page(self):
        self.pages.append(Page("PCL", self.tray, self.duplex, not self.painted,
                               hashlib.sha256(b"".join(self.painted)).hexdigest(), ()))
        self.painted = []


def pcl_pages(data):
    return PclReader(data).read()


# ---- PCL XL ----

SIZES = {0: 1, 1: 2, 2: 4, 3: 2, 4: 4, 5: 4}  # low bits of a data type: bytes of one value
FORMATS = {0: "B", 1: "H", 2: "I", 3: "h", 4: "i", 5: "f"}
MEDIA_SOURCE, DUPLEX_MODE = 0x26, 0x35
BEGIN_PAGE, END_PAGE = 0x43, 0x44
NEW_PATH, PAINT_PATH = 0x85, 0x86
PATHS = {0x91, 0x93, 0x95, 0x98, 0x9A, 0x9B, 0x9D, 0x9F, 0xA1, 0xA3, 0xA9}
PAINTING = {0x97, 0x99, 0x9E, 0xA0, 0xA2, 0xA8, 0xB1, 0xB9}  # chord, ..., text, image, scan line


class PclXlReader:
    """Follows the tags of a PCL XL stream and notes its pages."""

    def __init__(self, data):
        header = re.search(rb"([()]) HP-PCL XL;[^\n]*\n", data)
        if not header:
            raise StreamError("no PCL XL header")
        self.order = "<" if header[1] == b")" else ">"
        self.data, self.at = data, header.end()
        self.values, self.attributes = [], {}
        self.pages, self.page = [], None
        self.path, self.paints = False, False

    def read(self):
        while self.at < len(self.data):
            tag = self.data[self.at]
            self.at += 1
            if tag in b"\0\t\n\v\f\r ":
                continue
            if 0x41 <= tag <= 0xBF:
                self.operator(tag)
            elif 0xC0 <= tag <= 0xE5:
                self.values.append(self.value(tag))
            elif tag in (0xF8, 0xF9):
                name = self.number(tag - 0xF8)
                self.attributes[name] = self.values.pop() if self.values else None
            elif tag in (0xFA, 0xFB):
                self.take(self.number(2 if tag == 0xFA else 0))
            else:
                raise StreamError(f"no PCL XL tag at byte {self.at - 1}: {tag:#x}")
        return self.pages

    def take(self, length):
        if self.at + length > len(self.data):
            raise StreamError("the PCL XL stream ends in the middle of a value")
        self.at += length
        return self.data[self.at - length:self.at]

    def number(self, kind):
        return struct.unpack(self.order + FORMATS[kind], self.take(SIZES[kind]))[0]

    def value(self, tag):
        kind, shape = tag & 7, tag & 0xF8
        if kind not in SIZES:
            raise StreamError(f"no PCL XL data type: {tag:#x}")
        if shape == 0xC0:
            return self.number(kind)
        if shape == 0xC8:
            count = self.value(self.take(1)[0])
            return self.take(count * SIZES[kind])
        count = {0xD0: 2, 0xE0: 4}.get(shape)
        if count is None:
            raise StreamError(f"no PCL XL data type: {tag:#x}")
        return tuple(self.number(kind) for _ in range(count))

    def operator(self, tag):
        if tag == BEGIN_PAGE:
            self.page = (self.attributes.get(MEDIA_SOURCE), DUPLEX_MODE in self.attributes, self.at)
            self.path, self.paints = False, False
        elif tag == END_PAGE:
            self.end_page()
        elif tag == NEW_PATH:
            self.path = False
        elif tag in PATHS:
            self.path = True
        elif tag in PAINTING or (tag == PAINT_PATH and self.path):
            self.paints = True
        self.attributes, self.values = {}, []

    def end_page(self):
        if not self.page:
            raise StreamError("a PCL XL page ends that did not begin")
        tray, duplex, begin = self.page
        self.pages.append(Page("PCLXL", tray, duplex, not self.paints,
                               hashlib.sha256(self.data[begin:self.at]).hexdigest(), ()))
        self.page = None


def pcl_xl_pages(data):
    return PclXlReader(data).read()
