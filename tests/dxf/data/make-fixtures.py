#!/usr/bin/python3
"""Writes the DXF files the DXF tests read, and broken copies of them, next to this script; README.md tells what
each holds. Name files as arguments to write only those (ezdxf stamps dates and ids, so a rewrite changes bytes)."""
import math
import os
import sys

import ezdxf

HERE = os.path.dirname(os.path.abspath(__file__))


def new(version="R2000", *layers):
    doc = ezdxf.new(version)
    doc.header["$HANDSEED"] = "FFFF"
    for name, color in layers:
        doc.layers.add(name, color=color)
    return doc, doc.modelspace()


def drawing():
    doc, msp = new("R2000", ("WALLS", 3))
    block = doc.blocks.new("PLATE")
    block.add_line((0, 0), (1, 0))
    block.add_attdef("BL_NR", (0, 0.5), dxfattribs={"height": 0.25})
    msp.add_point((1, 2, 3))
    msp.add_line((0, 0, 0), (10.5, -2.25, 0), dxfattribs={"layer": "WALLS", "color": 1})
    msp.add_circle((5, 5), 2.5, dxfattribs={"lineweight": 35})
    msp.add_arc((1, 1), 3, 0, 90, dxfattribs={"linetype": "CONTINUOUS"})
    msp.add_text("Schacht 7", dxfattribs={"insert": (2, 3), "height": 0.5})
    msp.add_mtext("Haltung A-B", dxfattribs={"insert": (4, 4), "char_height": 0.5})
    msp.add_polyline3d([(0, 0, 0), (1, 0, 1), (1, 1, 2)])
    msp.add_3dface([(0, 0, 0), (1, 0, 0), (1, 1, 1), (0, 1, 1)])
    msp.add_blockref("PLATE", (20, 20)).add_attrib("BL_NR", "0042", (20, 20.5))
    msp.add_lwpolyline([(0, 0), (3, 0), (3, 3)])
    return doc


def sheet_block(doc, name, *rings):
    block = doc.blocks.new(name)
    for ring in rings:
        block.add_lwpolyline(ring, close=True)


def frame(x0, y0, width=500.0, height=300.0):
    """Counter-clockwise from the bottom-left corner."""
    return [(x0, y0), (x0 + width, y0), (x0 + width, y0 + height), (x0, y0 + height)]


def sheet_insert(msp, name, tags, attribs=None):
    insert = msp.add_blockref(name, (0, 0), dxfattribs=attribs)
    for tag, text, at in tags:
        insert.add_attrib(tag, text, at, dxfattribs=attribs)
    return insert


def sheets():
    doc, msp = new("R2000", ("BLATTSCHNITT", 1))
    x0, y0 = 3512345.67, 5812045.89
    sheet_block(doc, "BLATT_40", [(5.5, 3.75), (-4.5, 3.75), (-4.5, -2.25), (5.5, -2.25)])
    sheet_block(doc, "BLATT_41", frame(x0, y0))
    notched = frame(x0 + 500, y0)
    notched[1:1] = [(x0 + 700, y0), (x0 + 750, y0 + 20), (x0 + 800, y0)]
    sheet_block(doc, "BLATT_42", notched)
    sheet_block(doc, "BLATT_43", frame(x0 + 1000, y0))
    sheet_block(doc, "BLATT_44", frame(x0 + 1500, y0) + [(x0 + 1500, y0)])
    sheet_block(doc, "BLATT_45", frame(x0 + 2000, y0), frame(x0 + 2100, y0 + 50, 100, 100))
    doc.blocks.new("LEGENDE").add_line((0, 0), (10, 0))
    for number, tags in enumerate(["BL_NR=40", "BL_NR=41 MASSSTAB=1:500", "Bl_Nr=42", "Bl_Nr=x43 BL_NR=43", "BL_NR=44",
                                   "BL_NR=45"], start=40):
        sheet_insert(msp, "BLATT_%d" % number, [(*tag.split("="), (0, 0)) for tag in tags.split()],
                     {"layer": "BLATTSCHNITT"})
    msp.add_blockref("LEGENDE", (100.5, 200.25))
    msp.add_line((0, 0), (1, 1))
    sheet_insert(msp, "FEHLT", [("BL_NR", "99", (0, 0))])
    return doc


def route():
    doc, msp = new("R2000", ("BLATTSCHNITT", 1), ("TRASSE", 5))
    # BLATT_104 and BLATT_105 stand upright where the route runs north.
    corners = [(3512000.0, 5812000.0), (3512380.0, 5812000.0), (3512760.0, 5812000.0), (3512910.0, 5812260.0),
               (3512910.0, 5812640.0), (3513170.0, 5812810.0), (3513550.0, 5812810.0)]
    frames = [frame(x, y, *((280.0, 400.0) if k in (3, 4) else (400.0, 280.0))) for k, (x, y) in enumerate(corners)]
    frames[3].reverse()
    for number, ring in enumerate(frames, start=101):
        sheet_block(doc, "BLATT_%d" % number, ring)
        x, y = ring[0]
        sheet_insert(msp, "BLATT_%d" % number, [("Bl_Nr" if number == 106 else "BL_NR", str(number), (x + 10, y + 10)),
                                                ("MASSSTAB", "1:500", (x + 10, y + 20))], {"layer": "BLATTSCHNITT"})
    msp.add_lwpolyline([(3512020.0, 5812140.0), (3513050.0, 5812140.0), (3513050.0, 5812950.0),
                        (3513930.0, 5812950.0)], dxfattribs={"layer": "TRASSE"})
    doc.blocks.new("NORDPFEIL").add_line((0, 0), (0, 20))
    msp.add_blockref("NORDPFEIL", (3512050.0, 5812900.0))
    return doc


def umlauts(version):
    doc, msp = new(version, ("STRAßE", 1))
    doc.linetypes.add("STRICH_Ü", [0.75, 0.5, -0.25], description="Strich ü")
    attribs = {"layer": "STRAßE"}
    for name, number, x in [("BLATT_SÜD", "Süd-1", 3512000.0), ("BLATT_SÖD", "Söd-2", 3512380.0)]:
        block = doc.blocks.new(name)
        # R12 knows the legacy POLYLINE only.
        add = block.add_polyline2d if version == "R12" else block.add_lwpolyline
        add(frame(x, 5812000.0, 400.0, 280.0), close=True, dxfattribs={"linetype": "STRICH_Ü"})
        insert = sheet_insert(msp, name, [("BL_NR", number, (x + 10, 5812010.0)),
                                          ("MAßSTAB", "1:500", (x + 10, 5812020.0))], attribs)
    insert.add_attrib("BEMERKUNG", "Ω-Prüfung 5 €", (x + 10, 5812030.0), dxfattribs=attribs)
    msp.add_text("Straße Ω", dxfattribs=attribs)
    if version != "R12":
        msp.add_mtext("Brücke Ω", dxfattribs=attribs)
    return doc


def kite():
    doc, msp = new()
    x0, y0 = 3512000.0, 5812000.0
    reach = math.hypot(400.0, 280.0) / math.sqrt(2.0)
    frames = [frame(x0, y0, 400.0, 280.0), frame(x0 + 760, y0, 400.0, 280.0)]
    frames.insert(1, [(x0 + 380, y0), (x0 + 780, y0), (x0 + 380 + reach, y0 + reach), (x0 + 380, y0 + 280)])
    for number, ring in enumerate(frames, start=201):
        sheet_block(doc, "BLATT_%d" % number, ring)
        sheet_insert(msp, "BLATT_%d" % number, [("BL_NR", str(number), (ring[0][0] + 10, ring[0][1] + 10))])
    return doc


def main():
    wanted = set(sys.argv[1:])
    made = {"sheets.dxf": sheets, "route.dxf": route, "kite.dxf": kite}
    made.update({"umlauts-%s.dxf" % v.lower(): lambda v=v: umlauts(v) for v in ("R12", "R2000", "R2010")})
    for name, make in made.items():
        if not wanted or name in wanted:
            make().saveas(os.path.join(HERE, name))
    if wanted and wanted <= set(made):
        return
    drawing().saveas(os.path.join(HERE, "drawing.dxf"))
    with open(os.path.join(HERE, "drawing.dxf"), newline="") as file:
        text = file.read()
    lines = text.splitlines(keepends=True)
    count = text.index("\n 90\n", text.index("\nLWPOLYLINE\n")) + len("\n 90\n")
    for name, broken in [("truncated.dxf", "".join(lines[: len(lines) * 2 // 3])),
                         ("bad-group-code.dxf", text.replace("\nCIRCLE\n", "\nCIRCLE\nxx\n", 1)),
                         ("huge-count.dxf", text[:count] + "2000000000" + text[text.index("\n", count):]),
                         ("long-line.dxf", text.replace("Schacht 7", "X" * 2100, 1)),
                         ("dxflib-comment.dxf", "999\ndxflib\n" + text)]:
        with open(os.path.join(HERE, name), "w", newline="") as file:
            file.write(broken)


if __name__ == "__main__":
    main()
