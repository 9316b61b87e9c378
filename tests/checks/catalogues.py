# SPDX-License-Identifier: Apache-2.0
"""The translations in po/, for the checks of this folder."""

import ast
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
PO = ROOT / "po"
LANGUAGES = (PO / "LINGUAS").read_text().split()


def entries(text):
    """The texts of a template or a catalogue and their translations, without the header. A text that
    has a plural stands for both; its translation is all forms, or none while one of them lacks."""
    forms, key, part = {}, None, None
    for line in text.splitlines():
        if line.startswith("msgid "):
            part, key = "msgid", ""
        elif line.startswith("msgstr"):
            part = line.partition(" ")[0]
            forms.setdefault(key, []).append("")
        elif not line.startswith('"'):
            part = None
        if part:
            value = ast.literal_eval(line.removeprefix(part).strip())
            if part == "msgid":
                key += value
            else:
                forms[key][-1] += value
    forms.pop("", None)
    return {key: "\n".join(parts) if all(parts) else "" for key, parts in forms.items()}


def catalogue(language):
    return entries((PO / f"{language}.po").read_text(encoding="utf-8"))


def plain(label):
    """The label as help and messages quote it: without mnemonic and colon."""
    label = re.sub(r"\(_\w\)", "", label).replace("_", "")
    return re.sub(r"\s*[:：]$", "", label)
