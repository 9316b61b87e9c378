# SPDX-License-Identifier: Apache-2.0
"""The tray of each page is read from PCL 5, PCL XL and PJL."""

import struct
import subprocess
import unittest

import tray_commands

PCL_DEVICES = ("laserjet", "ljetplus", "ljet2p", "ljet3", "ljet4")
THREE_PAGES = b"""%!
<</MediaPosition 1>>setpagedevice 100 100 40 40 rectfill showpage
<</MediaPosition 4>>setpagedevice showpage
<</MediaPosition 5>>setpagedevice 100 100 40 40 rectfill showpage
"""


def drawn_by(device):
    return subprocess.run(["gs", "-q", "-dBATCH", "-dNOPAUSE", "-dNOMEDIAATTRS", f"-sDEVICE={device}",
                           "-r150", "-sOutputFile=-", "-"], input=THREE_PAGES, stdout=subprocess.PIPE,
                          check=True).stdout


def trays(stream):
    return [page.tray for page in tray_commands.pages(stream)]


class Drivers(unittest.TestCase):
    def test_streams_of_ghostscripts_devices(self):
        for device in (*PCL_DEVICES, "pxlmono", "pxlcolor"):
            with self.subTest(device):
                one, blank, again = tray_commands.pages(drawn_by(device))
                self.assertEqual([one.tray, blank.tray, again.tray], [1, 4, 5])
                self.assertEqual([one.blank, blank.blank, again.blank], [False, True, False])
                self.assertEqual(one.picture, again.picture)
                self.assertNotEqual(one.picture, blank.picture)

    def test_duplex(self):
        one, back, other = tray_commands.pages(drawn_by("ljet4d"))
        self.assertTrue(one.duplex and back.duplex and other.duplex)
        self.assertEqual([one.tray, other.tray], [1, 5])


class Pcl(unittest.TestCase):
    def test_tray_holds_until_the_next_or_a_reset(self):
        self.assertEqual(trays(b"\x1bE\x1b&l4Hone\ftwo\f\x1b&l1Hthree\f\x1bEfour\f"), [4, 4, 1, None])

    def test_values_may_share_one_command(self):
        self.assertEqual(trays(b"\x1b&l1o5h0Etext\f\x1b&l26a7Htext\f"), [5, 7])

    def test_data_is_no_command(self):
        command = b"\x1b&l4H"
        length = str(len(command)).encode()
        stream = (b"\x1b&l1H\x1b*b" + length + b"W" + command + b"\x1b(s" + length + b"W" + command +
                  b"\x1b&p" + length + b"X" + command + b"\x1b*b2m" + length + b"v" + command + length +
                  b"W" + command + b"\f")
        self.assertEqual(trays(stream), [1])

    def test_a_change_of_tray_ends_a_page_that_was_begun(self):
        self.assertEqual(trays(b"\x1b&l1Hbegun\x1b&l4Hnext\f"), [1, 4])
        self.assertEqual(trays(b"\x1b&l1H\x1b&l4Hnext\f"), [4])

    def test_eject_is_no_tray(self):
        self.assertEqual(trays(b"\x1b&l4Hone\f\x1b&l0Htwo\f"), [4, 4])

    def test_empty_raster_is_blank(self):
        self.assertEqual([page.blank for page in tray_commands.pages(b"\x1b*b3W\0\0\0\f\x1b*b1W1\f")],
                         [True, False])

    def test_what_is_no_pcl(self):
        with self.assertRaises(tray_commands.StreamError):
            trays(b"\x1b*\xff")


def attribute(name, value):
    return b"\xc0" + bytes([value]) + b"\xf8" + bytes([name])


class PclXl(unittest.TestCase):
    HEADER = b") HP-PCL XL;2;0;Comment\n"

    @staticmethod
    def page(source=None, content=b""):
        begin = attribute(0x28, 0) + (attribute(0x26, source) if source is not None else b"") + b"\x43"
        return begin + content + attribute(0x31, 1) + b"\x44"

    def test_media_source(self):
        self.assertEqual(trays(self.HEADER + self.page(4) + self.page(5) + self.page()), [4, 5, None])

    def test_data_is_no_tag(self):
        decoy = self.page(9)
        embedded = b"\xfb" + bytes([len(decoy)]) + decoy
        large = b"\xfa" + struct.pack("<I", len(decoy)) + decoy
        array = b"\xc8\xc1" + struct.pack("<H", len(decoy)) + decoy + b"\xf8\xa8\xa8"
        self.assertEqual(trays(self.HEADER + self.page(4, embedded + large + array)), [4])

    def test_numbers_of_every_width(self):
        content = (b"\xc1\1\0\xf8\4\xc2\1\0\0\0\xf8\5\xd5" + bytes(8) + b"\xf8\6\xe3" + bytes(8) +
                   b"\xf8\7\xca\xc0\2" + bytes(8) + b"\xf8\x08\x6a")
        self.assertEqual(trays(self.HEADER + self.page(4, content) + self.page(1)), [4, 1])

    def test_big_endian(self):
        stream = (b"( HP-PCL XL;2;0\n" + self.page(4, b"\xfa" + struct.pack(">I", 2) + b"\x43\x44"))
        self.assertEqual(trays(stream), [4])

    def test_blank_is_what_paints_nothing(self):
        def blank(*operators):
            return tray_commands.pages(self.HEADER + self.page(4, bytes(operators)))[0].blank
        self.assertTrue(blank())
        self.assertTrue(blank(0x9B, 0x85, 0x86))  # a path that is thrown away, nothing to paint
        self.assertFalse(blank(0x85, 0x9B, 0x86))
        self.assertFalse(blank(0xA8))
        self.assertFalse(blank(0xB1))

    def test_a_stream_that_is_cut(self):
        whole = self.HEADER + self.page(4, b"\xfb\5hello")
        with self.assertRaises(tray_commands.StreamError):
            trays(whole[:whole.index(b"hello") + 2])


class Pjl(unittest.TestCase):
    UEL = tray_commands.UEL

    def test_settings_go_with_the_pages(self):
        stream = (self.UEL + b'@PJL JOB\r\n@PJL SET MEDIASOURCE=TRAY2\r\n@PJL SET PAPER = "A4"\r\n'
                  b"@PJL ENTER LANGUAGE=PCL\r\n\x1bEone\f\x1bE" + self.UEL +
                  b"@PJL JOB\n@PJL ENTER LANGUAGE = PCL\ntwo\f" + self.UEL)
        one, two = tray_commands.pages(stream)
        self.assertEqual(dict(one.pjl), {"MEDIASOURCE": "TRAY2", "PAPER": "A4"})
        self.assertEqual(dict(two.pjl), {})

    def test_language(self):
        stream = (self.UEL + b"@PJL ENTER LANGUAGE=PCLXL\n" + PclXl.HEADER + PclXl.page(4) + self.UEL +
                  b"@PJL ENTER LANGUAGE=PCL\n\x1b&l1Hx\f" + self.UEL)
        self.assertEqual([page.language for page in tray_commands.pages(stream)], ["PCLXL", "PCL"])


if __name__ == "__main__":
    unittest.main()
