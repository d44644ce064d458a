#!/usr/bin/python3
"""Writes Wine's Tahoma with the Thai letters of a TLWG font added to it.

Windows' Tahoma has Thai letters. Wine's has none, and linking a Thai font to it (as the prefix
does for Chinese, Japanese and Korean) is not enough: Wine lays out Thai, a script whose marks
stack, as glyph numbers of the selected font, so linked fonts are never asked and every Thai
letter comes out as a box. A Tahoma that holds the Thai glyphs itself draws them as Windows does.

Usage: tahoma-with-thai.py TAHOMA.ttf THAI.ttf OUT.ttf

Tahoma's own glyphs keep their numbers, so its hand-tuned bitmaps for small sizes stay as they are;
the Thai glyphs come after them, without their hinting programs (those call functions of the Thai
font that Tahoma does not have).
"""
import copy
import sys

from fontTools.ttLib import TTFont
from fontTools.ttLib.tables import ttProgram

THAI_BLOCK = range(0x0E00, 0x0E80)
CODE_PAGE_874_THAI = 1 << 16  # OS/2 ulCodePageRange1
UNICODE_RANGE_THAI = 1 << 24  # OS/2 ulUnicodeRange1


def main(tahoma_path, thai_path, out_path):
    tahoma = TTFont(tahoma_path, recalcTimestamp=False)
    thai = TTFont(thai_path)
    if tahoma["head"].unitsPerEm != thai["head"].unitsPerEm:
        sys.exit("tahoma-with-thai: the two fonts use different units per em")

    thai_cmap = {cp: name for cp, name in thai.getBestCmap().items() if cp in THAI_BLOCK}
    renamed = {}  # Thai font's glyph name -> name in the new Tahoma

    def take(name):
        if name in renamed:
            return
        renamed[name] = "thai." + name
        glyph = thai["glyf"][name]
        if glyph.isComposite():
            for component in glyph.components:
                take(component.glyphName)

    for name in thai_cmap.values():
        take(name)

    order = list(tahoma.getGlyphOrder())
    glyf = tahoma["glyf"]
    hmtx = tahoma["hmtx"]
    for name, new_name in sorted(renamed.items(), key=lambda item: item[1]):
        glyph = copy.deepcopy(thai["glyf"][name])
        glyph.expand(thai["glyf"])
        if glyph.isComposite():
            for component in glyph.components:
                component.glyphName = renamed[component.glyphName]
        if hasattr(glyph, "program"):
            glyph.program = ttProgram.Program()
            glyph.program.fromBytecode(b"")
        glyf.glyphs[new_name] = glyph
        hmtx.metrics[new_name] = thai["hmtx"].metrics[name]
        order.append(new_name)
    tahoma.setGlyphOrder(order)
    glyf.glyphOrder = order

    for table in tahoma["cmap"].tables:
        if table.isUnicode():
            for cp, name in thai_cmap.items():
                table.cmap[cp] = renamed[name]

    os2 = tahoma["OS/2"]
    os2.ulCodePageRange1 |= CODE_PAGE_874_THAI
    os2.ulUnicodeRange1 |= UNICODE_RANGE_THAI
    tahoma.save(out_path)


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
