# SPDX-License-Identifier: Apache-2.0
"""Media have the names that a PPD gives them."""

import tempfile
import unittest

import ppd_media
from hand_made import BODY, THICK, TRAY2, ZEPHREL, sides

MEDIA = ppd_media.Media(ZEPHREL)


class Names(unittest.TestCase):
    def test_of_tray_and_type(self):
        for code, name in ((BODY, "Tray1/Plain"), (TRAY2, "Tray2"), (THICK, "Thick"),
                           ("<</MediaType(Leather)>>setpagedevice", "Leather"), ("", "released")):
            with self.subTest(name):
                state = sides(code, "showpage")[0].medium
                self.assertEqual(MEDIA.name(state), name)
                if name != "released":
                    self.assertTrue(MEDIA.is_called(name, state))
                self.assertFalse(MEDIA.is_called("Tray3", state))
                self.assertFalse(MEDIA.is_called("Coated", state))
                self.assertFalse(MEDIA.is_called("Tray1/Coated", state))

    def test_a_tray_with_a_type_left_over_is_not_that_tray(self):
        state = sides("<</MediaPosition 1/MediaType(Thick)>>setpagedevice showpage")[0].medium
        self.assertEqual(MEDIA.name(state), "Tray2/Thick")
        self.assertFalse(MEDIA.is_called("Tray2", state))
        self.assertFalse(MEDIA.is_called("Thick", state))

    def names_by(self, slots, code):
        with tempfile.NamedTemporaryFile("w", suffix=".ppd") as ppd:
            ppd.write('*PPD-Adobe: "4.3"\n')
            for keyword, text in slots.items():
                ppd.write(f'*InputSlot {keyword}/The {keyword}: "{text}"\n*End\n')
            ppd.flush()
            return ppd_media.Media(ppd.name).name(sides(code, "showpage")[0].medium)

    def test_of_trays_by_other_means(self):
        operators = {"Upper": "<</ManualFeed false>>setpagedevice\nstatusdict begin 0 setpapertray end",
                     "Lower": "<</ManualFeed false>>setpagedevice\nstatusdict begin 1 setpapertray end",
                     "Manual": "<</ManualFeed true>>setpagedevice"}
        for keyword, code in operators.items():
            self.assertEqual(self.names_by(operators, code), keyword)
        priority = {number: f"currentpagedevice/InputAttributes get {number} known"
                            f"{{<</InputAttributes<</Priority[{number}]>>>>setpagedevice}}if"
                    for number in range(3)}
        self.assertEqual(self.names_by(priority, priority[2]), "2")

    def test_faulty_code_names_nothing(self):
        slots = {"Bad": "} <</MediaPosition 7>>setpagedevice", "Auto": "",
                 "Tray": "<</MediaPosition 7>>setpagedevice"}
        self.assertEqual(self.names_by(slots, slots["Tray"]), "Tray")


if __name__ == "__main__":
    unittest.main()
