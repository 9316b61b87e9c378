# SPDX-License-Identifier: Apache-2.0
"""Small jobs written by hand, for the tests of the look at what a printer puts out."""

import pathlib

import printed_sheets

ZEPHREL = pathlib.Path(__file__).parents[2] / "data/zephrel-ps-9000.ppd"

TWO_SIDED = "<</Duplex true>>setpagedevice"
BODY = "<</MediaPosition 0>>setpagedevice <</MediaType(Plain)>>setpagedevice"
TRAY2 = "<</MediaPosition 1 /MediaType null>>setpagedevice"
THICK = "<</MediaPosition null /MediaType(Thick)>>setpagedevice"
BLANK = "showpage"


def page(number):
    return f"/Helvetica 40 selectfont 100 400 moveto (Page {number}) show showpage"


def job(*pieces):
    return "\n".join(["%!PS-Adobe-3.0", "<</PageSize[595 842]>>setpagedevice", *pieces,
                      "%%EOF", ""]).encode("ascii")


def sides(*pieces, with_text=False):
    return printed_sheets.printed_sides(job(*pieces), with_text=with_text)


def sheets(*pieces, strict=False):
    return printed_sheets.printed_sheets(job(*pieces), strict)
