# SPDX-License-Identifier: Apache-2.0
"""Documents to print. Each page says "Page N", its number in the document."""

import pathlib
import struct
import subprocess
import zlib

REPORT = pathlib.Path(__file__).parents[1] / "data/report.pdf"  # 24 pages

A3, A4, A5, LETTER, A4_LANDSCAPE = (842, 1191), (595, 842), (420, 595), (612, 792), (842, 595)


def page_code(number):
    return f"/Helvetica 40 selectfont 100 400 moveto (Page {number}) show\n"


def postscript(pages, before_page=lambda number: "", after_page=lambda number: ""):
    """PostScript with page comments."""
    text = [f"%!PS-Adobe-3.0\n%%Pages: {pages}\n%%BoundingBox: 0 0 595 842\n%%EndComments\n"
            "%%BeginProlog\n%%EndProlog\n%%BeginSetup\n%%EndSetup\n"]
    for number in range(1, pages + 1):
        text.append(f"%%Page: {number} {number}\n{before_page(number)}{page_code(number)}"
                    f"{after_page(number)}showpage\n")
    return ("".join(text) + "%%Trailer\n%%EOF\n").encode("ascii")


def plain_postscript(pages):
    """PostScript that does not tell where its pages are."""
    return f"%!\n1 1 {pages} {{\n(Page    ) dup 5 3 getinterval 3 -1 roll exch cvs pop\n" \
           "/Helvetica 40 selectfont 100 400 moveto show showpage\n} for\n".encode("ascii")


def postscript_in_sizes(sizes):
    """PostScript whose pages set their own size."""
    return postscript(len(sizes), lambda number: "<< /PageSize [{} {}] >> setpagedevice\n".format(
        *sizes[number - 1]))


def postscript_with_page_comments_in_data(pages, on_page):
    """One page holds a binary image whose bytes say that another page begins, and that the document
    ends."""
    words = b"\n%%Page: 3 3\n\x80\xff\r%%Page: 4 4\n%%Trailer\n%%EOF\n%!PS-Adobe-3.0\n"
    width = len(words)
    data = (b"gsave 50 50 translate 200 20 scale %d 1 8 [%d 0 0 1 0 0]\n" % (width, width) +
            b"{currentfile %d string readstring pop}\n" % width)
    lines = b"image\n" + words + b"\n"
    image = data + b"%%%%BeginData: %d Binary Bytes\n" % len(lines) + lines + b"%%EndData\ngrestore\n"
    mark = b"(Page %d) show\n" % on_page
    return postscript(pages).replace(mark, mark + image)


def pdf(folder, pages):
    """The first pages of the sample document."""
    path = folder / f"report-{pages}.pdf"
    if not path.exists():
        subprocess.run(["qpdf", REPORT, "--pages", ".", f"1-{pages}", "--", path], check=True)
    return path


def rotated_pdf(folder, pages, rotations):
    """The sample document with some of its pages turned: {page: degrees}."""
    path = folder / "rotated.pdf"
    turns = [f"--rotate=+{degrees}:{page}" for page, degrees in rotations.items()]
    subprocess.run(["qpdf", pdf(folder, pages), *turns, path], check=True)
    return path


def pdf_in_sizes(folder, sizes, name="sizes.pdf"):
    path = folder / name
    subprocess.run(["gs", "-q", "-sDEVICE=pdfwrite", "-o", path, "-"], check=True,
                   input=postscript_in_sizes(sizes))
    return path


def text(lines):
    """A text file; 60 lines fill a page, or nearly so."""
    return "".join(f"Line {number} of the text\n" for number in range(1, lines + 1)).encode("ascii")


def png(width, height):
    """A picture of grey squares."""
    rows = b"".join(b"\0" + bytes(40 + 120 * ((x // 16 + y // 16) % 2) for x in range(width))
                    for y in range(height))

    def chunk(name, data):
        return (struct.pack(">I", len(data)) + name + data +
                struct.pack(">I", zlib.crc32(name + data)))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))
