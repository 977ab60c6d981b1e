#!/usr/bin/env python3
"""Makes the fonts of this folder, one for each kind of font file that a machine may have but a test machine may lack.

Every glyph is a rectangle, so that a test can tell from the ink alone which glyph was drawn. Needs fontTools.
"""
from fontTools import cffLib
from fontTools.fontBuilder import FontBuilder
from fontTools.pens.t2CharStringPen import T2CharStringPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTCollection, TTFont
from fontTools.ttLib.tables.TupleVariation import TupleVariation

EM = 1000
# left, bottom, right, top, advance
GLYPHS = {".notdef": (50, 0, 450, 300, 500), "A": (100, 0, 600, 700, 700), "B": (100, -200, 800, 500, 900)}
HALF = {name: tuple(n // 2 for n in box) for name, box in GLYPHS.items()}
CIDS = [0, 205, 100]  # of the glyphs, in another order than they are stored in


def draw(pen, box):
    left, bottom, right, top, _ = box
    corners = [(left, bottom), (left, top), (right, top), (right, bottom)]
    pen.moveTo(corners[0])
    for corner in corners[1:]:
        pen.lineTo(corner)
    pen.closePath()


def begin(name, glyphs, is_ttf, characters={ord("A"): "A", ord("B"): "B"}):
    font = FontBuilder(EM, isTTF=is_ttf)
    font.setupGlyphOrder(list(glyphs))
    font.setupCharacterMap(characters)
    if is_ttf:
        outlines = {}
        for glyph, box in glyphs.items():
            pen = TTGlyphPen(None)
            draw(pen, box)
            outlines[glyph] = pen.glyph()
        font.setupGlyf(outlines)
    else:
        outlines = {}
        for glyph, box in glyphs.items():
            pen = T2CharStringPen(box[4], None)
            draw(pen, box)
            outlines[glyph] = pen.getCharString()
        font.setupCFF(name, {"FullName": name}, outlines, {})
    font.setupHorizontalMetrics({glyph: (box[4], box[0]) for glyph, box in glyphs.items()})
    font.setupHorizontalHeader(ascent=800, descent=-200)
    font.setupNameTable({"familyName": name, "styleName": "Regular", "psName": name})
    font.setupOS2(sTypoAscender=800, sTypoDescender=-200, usWinAscent=800, usWinDescent=200)
    font.setupPost()
    font.font["head"].created = font.font["head"].modified = 0
    font.font.recalcTimestamp = False
    return font.font


def name_glyphs_by_number(font):
    top = font["CFF "].cff.topDictIndex[0]
    private = top.Private
    names = [".notdef"] + ["cid%05d" % cid for cid in CIDS[1:]]
    strings = [top.CharStrings[name] for name in font.getGlyphOrder()]
    part = cffLib.FontDict()
    part.Private = private
    top.ROS = ("Adobe", "Identity", 0)
    top.CIDCount = max(CIDS) + 1
    top.FDArray = cffLib.FDArrayIndex()
    top.FDArray.append(part)
    top.FDSelect = cffLib.FDSelect()
    top.FDSelect.format = 3
    top.FDSelect.gidArray = [0] * len(CIDS)
    del top.rawDict["Private"]
    top.__dict__.pop("Private", None)
    top.charset = names
    chars = top.CharStrings
    chars.charStrings = dict(zip(names, strings))
    chars.fdArray, chars.fdSelect = top.FDArray, top.FDSelect
    for string in strings:
        string.private = private
    chars.charStringsAreIndexed = 0
    font.setGlyphOrder(names)
    for table in font["cmap"].tables:
        table.cmap = {ord("A"): names[1], ord("B"): names[2]}
    font["hmtx"].metrics = dict(zip(names, font["hmtx"].metrics.values()))


def varied():
    """Devanagari letters, which are not drawn in the order of reading; wider by half in bold; not to be embedded."""
    letters = {ord(c): "u%04X" % ord(c) for c in "दुनिया"}
    names = [".notdef", *letters.values()]
    boxes = {name: (50, 0, 400 + 50 * i, 700, 500 + 50 * i) for i, name in enumerate(names)}
    builder = FontBuilder(font=begin("BoxesVaried", boxes, True, letters))
    builder.setupFvar([("wght", 400, 400, 900, "Weight")], [])
    wider = [(0, 0), (0, 0), (500, 0), (500, 0), (0, 0), (500, 0), (0, 0), (0, 0)]
    builder.setupGvar({name: [TupleVariation({"wght": (0, 1, 1)}, wider)] for name in names})
    builder.font["OS/2"].fsType = 2
    return builder.font


varied().save("varied.ttf")
named = begin("BoxesNamed", GLYPHS, False)
named.save("named.otf")
begin("BoxesNumbered", GLYPHS, False).save("numbered.otf")
numbered = TTFont("numbered.otf", recalcTimestamp=False)
name_glyphs_by_number(numbered)
numbered.save("numbered.otf")
collection = TTCollection()
collection.fonts = [begin("BoxesHalf", HALF, True), begin("BoxesWhole", GLYPHS, True)]
collection.save("collection.ttc")
