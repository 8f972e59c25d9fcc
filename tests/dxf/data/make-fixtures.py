#!/usr/bin/python3
"""Writes the DXF files the dump tests read, and broken copies of them.

Run from anywhere; the files land next to this script. The output is
committed so that the tests need no Python.
"""
import os

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


def write_text(name, text):
    with open(path(name), "w", newline="") as file:
        file.write(text)


def main():
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


if __name__ == "__main__":
    main()
