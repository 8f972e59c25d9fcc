#!/usr/bin/python3
"""Writes the DXF files the DXF tests read, and broken copies of them.

Run from anywhere; the files land next to this script. The output is
committed so that the tests need no Python. Name files as arguments to
write only those (ezdxf stamps dates and ids, so a rewrite changes bytes).
"""
import math
import os
import sys

import ezdxf

HERE = os.path.dirname(os.path.abspath(__file__))


def path(name):
    return os.path.join(HERE, name)


def drawing():
    doc = ezdxf.new("R2000")
    doc.header["$HANDSEED"] = "FFFF"
    doc.layers.add("WALLS", color=3)
    block = doc.blocks.new("PLATE")
    block.add_line((0, 0), (1, 0))
    block.add_attdef("BL_NR", (0, 0.5), dxfattribs={"height": 0.25})
    msp = doc.modelspace()
    msp.add_point((1, 2, 3))
    msp.add_line((0, 0, 0), (10.5, -2.25, 0), dxfattribs={"layer": "WALLS", "color": 1})
    msp.add_circle((5, 5), 2.5, dxfattribs={"lineweight": 35})
    msp.add_arc((1, 1), 3, 0, 90, dxfattribs={"linetype": "CONTINUOUS"})
    msp.add_text("Schacht 7", dxfattribs={"insert": (2, 3), "height": 0.5})
    msp.add_mtext("Haltung A-B", dxfattribs={"insert": (4, 4), "char_height": 0.5})
    msp.add_polyline3d([(0, 0, 0), (1, 0, 1), (1, 1, 2)])
    msp.add_3dface([(0, 0, 0), (1, 0, 0), (1, 1, 1), (0, 1, 1)])
    insert = msp.add_blockref("PLATE", (20, 20))
    insert.add_attrib("BL_NR", "0042", (20, 20.5))
    msp.add_lwpolyline([(0, 0), (3, 0), (3, 3)])
    return doc


def sheet_block(doc, name, *rings):
    block = doc.blocks.new(name)
    for ring in rings:
        block.add_lwpolyline(ring, close=True)


def frame(x0, y0, width=500.0, height=300.0):
    """Counter-clockwise from the bottom-left corner."""
    return [(x0, y0), (x0 + width, y0), (x0 + width, y0 + height), (x0, y0 + height)]


def sheets():
    """Landscape sheets along a west-to-east route, frames in world
    coordinates inserted at the origin, plus the awkward cases."""
    doc = ezdxf.new("R2000")
    doc.header["$HANDSEED"] = "FFFF"
    doc.layers.add("BLATTSCHNITT", color=1)
    x0, y0 = 3512345.67, 5812045.89
    # Starts at the top-right corner, around small and negative values.
    small = [(5.5, 3.75), (-4.5, 3.75), (-4.5, -2.25), (5.5, -2.25)]
    sheet_block(doc, "BLATT_40", small)
    sheet_block(doc, "BLATT_41", frame(x0, y0))
    # A notch in the bottom side: more vertices, still one rectangle.
    notched = frame(x0 + 500, y0)
    notched[1:1] = [(x0 + 700, y0), (x0 + 750, y0 + 20), (x0 + 800, y0)]
    sheet_block(doc, "BLATT_42", notched)
    sheet_block(doc, "BLATT_43", frame(x0 + 1000, y0))
    sheet_block(doc, "BLATT_44", frame(x0 + 1500, y0) + [(x0 + 1500, y0)])
    sheet_block(doc, "BLATT_45", frame(x0 + 2000, y0), frame(x0 + 2100, y0 + 50, 100, 100))
    legend = doc.blocks.new("LEGENDE")
    legend.add_line((0, 0), (10, 0))

    msp = doc.modelspace()
    attribs = {"layer": "BLATTSCHNITT"}
    for name, tags in [("BLATT_40", [("BL_NR", "40")]),
                       ("BLATT_41", [("BL_NR", "41"), ("MASSSTAB", "1:500")]),
                       ("BLATT_42", [("Bl_Nr", "42")]),
                       ("BLATT_43", [("Bl_Nr", "x43"), ("BL_NR", "43")]),
                       ("BLATT_44", [("BL_NR", "44")]),
                       ("BLATT_45", [("BL_NR", "45")])]:
        insert = msp.add_blockref(name, (0, 0), dxfattribs=attribs)
        for tag, text in tags:
            insert.add_attrib(tag, text, (0, 0), dxfattribs=attribs)
    # No attributes of its own: the ones of the insert before stay there.
    msp.add_blockref("LEGENDE", (100.5, 200.25))
    msp.add_line((0, 0), (1, 1))
    insert = msp.add_blockref("FEHLT", (0, 0))
    insert.add_attrib("BL_NR", "99", (0, 0))
    return doc


def route():
    """Seven 1:500 sheets along a sewer route that runs east, turns north
    and east again, the way a surveyor's drawing holds them: one block per
    sheet with its frame in world coordinates, inserted at the origin,
    neighbours overlapping by 20 m. Where the route runs north the sheets
    are turned, so that the route still runs along their long side; it
    turns near the east end of the third sheet."""
    doc = ezdxf.new("R2000")
    doc.header["$HANDSEED"] = "FFFF"
    doc.layers.add("BLATTSCHNITT", color=1)
    doc.layers.add("TRASSE", color=5)
    frames = [frame(3512000.0, 5812000.0, 400.0, 280.0), frame(3512380.0, 5812000.0, 400.0, 280.0),
              frame(3512760.0, 5812000.0, 400.0, 280.0), frame(3512910.0, 5812260.0, 280.0, 400.0),
              frame(3512910.0, 5812640.0, 280.0, 400.0), frame(3513170.0, 5812810.0, 400.0, 280.0),
              frame(3513550.0, 5812810.0, 400.0, 280.0)]
    # Drawn clockwise from the top-left corner.
    frames[3] = [frames[3][3], frames[3][2], frames[3][1], frames[3][0]]
    msp = doc.modelspace()
    for number, ring in enumerate(frames, start=101):
        name = "BLATT_%d" % number
        sheet_block(doc, name, ring)
        x, y = ring[0]
        insert = msp.add_blockref(name, (0, 0), dxfattribs={"layer": "BLATTSCHNITT"})
        tag = "Bl_Nr" if number == 106 else "BL_NR"
        insert.add_attrib(tag, str(number), (x + 10, y + 10), dxfattribs={"layer": "BLATTSCHNITT"})
        insert.add_attrib("MASSSTAB", "1:500", (x + 10, y + 20), dxfattribs={"layer": "BLATTSCHNITT"})
    msp.add_lwpolyline([(3512020.0, 5812140.0), (3513050.0, 5812140.0), (3513050.0, 5812950.0),
                        (3513930.0, 5812950.0)], dxfattribs={"layer": "TRASSE"})
    north = doc.blocks.new("NORDPFEIL")
    north.add_line((0, 0), (0, 20))
    msp.add_blockref("NORDPFEIL", (3512050.0, 5812900.0))
    return doc


def umlauts(version):
    """Two sheets with German names in a drawing of the given version. Up to
    R2000 ezdxf writes the text in the header's codepage (ANSI_1252), with
    \\U+XXXX for characters outside it (lower-case hex digits); from R2007
    on, UTF-8. The two blocks differ only in an umlaut."""
    doc = ezdxf.new(version)
    doc.header["$HANDSEED"] = "FFFF"
    doc.layers.add("STRAßE", color=1)
    doc.linetypes.add("STRICH_Ü", [0.75, 0.5, -0.25], description="Strich ü")
    msp = doc.modelspace()
    attribs = {"layer": "STRAßE"}
    for name, number, x in [("BLATT_SÜD", "Süd-1", 3512000.0), ("BLATT_SÖD", "Söd-2", 3512380.0)]:
        block = doc.blocks.new(name)
        # R12 knows the legacy POLYLINE only.
        add = block.add_polyline2d if version == "R12" else block.add_lwpolyline
        add(frame(x, 5812000.0, 400.0, 280.0), close=True, dxfattribs={"linetype": "STRICH_Ü"})
        insert = msp.add_blockref(name, (0, 0), dxfattribs=attribs)
        insert.add_attrib("BL_NR", number, (x + 10, 5812010.0), dxfattribs=attribs)
        insert.add_attrib("MAßSTAB", "1:500", (x + 10, 5812020.0), dxfattribs=attribs)
    insert.add_attrib("BEMERKUNG", "Ω-Prüfung 5 €", (x + 10, 5812030.0), dxfattribs=attribs)
    msp.add_text("Straße Ω", dxfattribs={"layer": "STRAßE"})
    if version != "R12":
        msp.add_mtext("Brücke Ω", dxfattribs={"layer": "STRAßE"})
    return doc


def kite():
    """Three sheets along a route, the middle one a kite that the rectangle
    detector takes for a rectangle (its fourth corner lies at the diagonal's
    distance) but that has no parallel sides: the revision stops there,
    leaving it and the sheet after it without labels."""
    doc = ezdxf.new("R2000")
    doc.header["$HANDSEED"] = "FFFF"
    x0, y0 = 3512000.0, 5812000.0
    reach = math.hypot(400.0, 280.0) / math.sqrt(2.0)
    frames = [frame(x0, y0, 400.0, 280.0),
              [(x0 + 380, y0), (x0 + 780, y0), (x0 + 380 + reach, y0 + reach), (x0 + 380, y0 + 280)],
              frame(x0 + 760, y0, 400.0, 280.0)]
    msp = doc.modelspace()
    for number, ring in enumerate(frames, start=201):
        name = "BLATT_%d" % number
        sheet_block(doc, name, ring)
        insert = msp.add_blockref(name, (0, 0))
        insert.add_attrib("BL_NR", str(number), (ring[0][0] + 10, ring[0][1] + 10))
    return doc


UMLAUTS = {"umlauts-r12.dxf": "R12", "umlauts-r2000.dxf": "R2000", "umlauts-r2010.dxf": "R2010"}


def write_text(name, text):
    with open(path(name), "w", newline="") as file:
        file.write(text)


def main():
    wanted = set(sys.argv[1:])
    if not wanted or "sheets.dxf" in wanted:
        sheets().saveas(path("sheets.dxf"))
    if not wanted or "route.dxf" in wanted:
        route().saveas(path("route.dxf"))
    if not wanted or "kite.dxf" in wanted:
        kite().saveas(path("kite.dxf"))
    for name, version in UMLAUTS.items():
        if not wanted or name in wanted:
            umlauts(version).saveas(path(name))
    if wanted and not wanted - {"sheets.dxf", "route.dxf", "kite.dxf"} - set(UMLAUTS):
        return
    drawing().saveas(path("drawing.dxf"))
    with open(path("drawing.dxf"), newline="") as file:
        text = file.read()
    lines = text.splitlines(keepends=True)

    write_text("truncated.dxf", "".join(lines[: len(lines) * 2 // 3]))

    # A group code line that is no number, in the middle of the entities.
    index = text.index("\nCIRCLE\n")
    write_text("bad-group-code.dxf", text[:index] + "\nCIRCLE\nxx\n" + text[index + len("\nCIRCLE\n"):])

    # A vertex count a reader would allocate gigabytes for.
    start = text.index("\nLWPOLYLINE\n")
    count = text.index("\n 90\n", start) + len("\n 90\n")
    end = text.index("\n", count)
    write_text("huge-count.dxf", text[:count] + "2000000000" + text[end:])

    index = text.index("Schacht 7")
    write_text("long-line.dxf", text[:index] + "X" * 2100 + text[index + len("Schacht 7"):])

    # Programs built on dxflib sign their files with a comment "dxflib
    # <version>"; cut short, it makes dxflib throw.
    write_text("dxflib-comment.dxf", "999\ndxflib\n" + text)


if __name__ == "__main__":
    main()
