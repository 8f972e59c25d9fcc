#!/usr/bin/env python3
"""Derives the damaged shape files in corrupt/ from the good fixtures.

Every damage is a fixed byte edit (no randomness), so the output is the same
on every run. Each corrupt NAME.shp gets a NAME.shx and NAME.dbf beside it,
so a reader cannot bail out early because a companion file is missing; the
README lists each edit with its byte offsets.

Layout reminders: .shp/.shx main header 100 bytes, file length (16-bit
words) big-endian at 24; .shx entries are 8 bytes (offset, content length,
both big-endian 16-bit words) from byte 100; a polygon record is an 8-byte
big-endian header (number, content length) followed by little-endian type
(4), box (32), part count (4), point count (4), part starts (4 each), points.
.dbf: record count little-endian uint32 at 4, header length uint16 at 8,
record length uint16 at 10.
"""

import hashlib
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(HERE, "corrupt")


def read(name):
    with open(os.path.join(HERE, name), "rb") as f:
        return bytearray(f.read())


def write(name, data):
    with open(os.path.join(OUT, name), "wb") as f:
        f.write(bytes(data))


def write_set(name, shp, shx, dbf):
    write(name + ".shp", shp)
    write(name + ".shx", shx)
    write(name + ".dbf", dbf)


def record_offset(shx, index):
    """Byte offset in the .shp of record `index` (0-based), from the .shx."""
    words, = struct.unpack_from(">i", shx, 100 + 8 * index)
    return words * 2


def main():
    os.makedirs(OUT, exist_ok=True)
    sheets = read("sheets.shp"), read("sheets.shx"), read("sheets.dbf")
    districts = read("districts.shp"), read("districts.shx"), read("districts.dbf")

    # truncated: the .shp ends halfway through the third record (an
    # interrupted copy); headers and index still describe the whole file.
    shp, shx, dbf = (bytearray(b) for b in sheets)
    start = record_offset(shx, 2)
    length = 8 + 2 * struct.unpack_from(">i", shp, start + 4)[0]
    write_set("truncated", shp[: start + length // 2], shx, dbf)

    # badshx: index entries that cannot be followed.
    shp, shx, dbf = (bytearray(b) for b in sheets)
    # record 2 starts 2 MiB into a 916-byte file
    struct.pack_into(">i", shx, 100 + 8 * 1, 0x00100000)
    # record 4: eight bytes of noise for offset and length
    shx[100 + 8 * 3 : 100 + 8 * 4] = hashlib.sha256(b"badshx").digest()[:8]
    # record 6: valid offset, content length of almost 4 GiB
    struct.pack_into(">i", shx, 100 + 8 * 5 + 4, 0x7FFF0000)
    write_set("badshx", shp, shx, dbf)

    # tiny: 60 bytes of a .shp, shorter than its own 100-byte header.
    shp, shx, dbf = (bytearray(b) for b in sheets)
    write_set("tiny", shp[:60], shx, dbf)

    # baddbf: header length one field descriptor short (97 instead of 129),
    # record length 7 instead of 35 (less than the fields' widths).
    shp, shx, dbf = (bytearray(b) for b in sheets)
    struct.pack_into("<HH", dbf, 8, 97, 7)
    write_set("baddbf", shp, shx, dbf)

    # dbfcount: ten million records claimed in a 340-byte .dbf.
    shp, shx, dbf = (bytearray(b) for b in sheets)
    struct.pack_into("<I", dbf, 4, 10_000_000)
    write_set("dbfcount", shp, shx, dbf)

    # parts: absurd part counts in small records (record 2: 1,000,000,
    # record 4: 0x7fffffff); the records keep their 128-byte content.
    shp, shx, dbf = (bytearray(b) for b in sheets)
    struct.pack_into("<i", shp, record_offset(shx, 1) + 8 + 36, 1_000_000)
    struct.pack_into("<i", shp, record_offset(shx, 3) + 8 + 36, 0x7FFFFFFF)
    write_set("parts", shp, shx, dbf)

    # partstarts: the two-part records of the districts with impossible part
    # starts: record 2 (outer ring + hole) [0, 5] -> [5, 0]; record 3 (two
    # polygons) [0, 5] -> [0, 999] with 10 points.
    shp, shx, dbf = (bytearray(b) for b in districts)
    struct.pack_into("<ii", shp, record_offset(shx, 1) + 8 + 44, 5, 0)
    struct.pack_into("<ii", shp, record_offset(shx, 2) + 8 + 44, 0, 999)
    write_set("partstarts", shp, shx, dbf)

    # nan: record 2 (sheet 0043) with NaN as the y of its second point, as
    # a writer leaves an unknown coordinate; shapelib reads it as it is.
    shp, shx, dbf = (bytearray(b) for b in sheets)
    struct.pack_into("<d", shp, record_offset(shx, 1) + 8 + 48 + 16 * 1 + 8, float("nan"))
    write_set("nan", shp, shx, dbf)


if __name__ == "__main__":
    main()
