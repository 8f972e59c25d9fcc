#!/usr/bin/env python3
"""Writes the seed corpora of the fuzz targets from the project's fixtures.

Run from anywhere; it rewrites tests/fuzz/corpus/. The seeds are what users
hand the library: the sample project's files, the test fixtures (the
damaged ones included) and the inputs of faults found so far, so that each
stays covered by the short fuzz run of the test command.
"""
import hashlib
import json
import pathlib
import re
import shutil
import struct

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
SAMPLE = ROOT / "sample" / "Musterstadt-Kanalsanierung"
SHAPES = ROOT / "tests" / "shapeimport" / "data"
DXF = ROOT / "tests" / "dxf" / "data"
CORPUS = HERE / "corpus"
# Must match FuzzScratch::Separator.
SEPARATOR = b"\n--8<--kamo-fuzz-part--8<--\n"


def write(target, name, data):
    folder = CORPUS / target
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(data)


def annotation_seeds():
    files = sorted((SAMPLE / "Daten").glob("*.ann"))
    for k, path in enumerate(files):
        data = path.read_bytes()
        # Every operation meets every file over the seeds, with and
        # without its filters and options.
        for choice in range(10):
            options = (k + choice) % 8 << 4
            write("AnnotationTextFuzzer", f"{path.stem}-{choice}", bytes([choice | options]) + data)
    # The forms the file loop must leave unchanged: Latin-1, LF ends, a BOM.
    text = (SAMPLE / "Daten" / "Schachtprotokoll_S12.ann").read_bytes()
    write("AnnotationTextFuzzer", "latin1", b"\x09" + text.decode("utf-8").encode("latin-1", "replace"))
    write("AnnotationTextFuzzer", "lf-bom", b"\x15\xef\xbb\xbf" + text.replace(b"\r\n", b"\n"))


def link_seeds():
    values = []
    for path in sorted((SAMPLE / "Daten").glob("*.ann")):
        for line in path.read_bytes().split(b"\r\n"):
            if line.startswith(b"HREF=") and line[5:] not in values:
                values.append(line[5:])
    for value in values[:60]:
        write("LinkValueFuzzer", hashlib.sha1(value).hexdigest()[:12], value)


def path_map_seeds():
    text = (SAMPLE / "Pfadumsetzung.csv").read_bytes()
    write("PathMapFuzzer", "sample", text)
    write("PathMapFuzzer", "crlf", text.replace(b"\n", b"\r\n"))
    write("PathMapFuzzer", "cp1252", "Dateipfad Alt,Dateipfad Neu\nC:\\Pläne\\Süd.pdf,D:\\Archiv\\Süd.pdf\n".encode("cp1252"))
    write("PathMapFuzzer", "utf16", "C:\\a.pdf,D:\\b.pdf\n".encode("utf-16"))


def manifest_seeds():
    """A backup's manifest, then the annotation file it lists."""
    data = (SAMPLE / "Daten" / "Lageplan_Haltungen.ann").read_bytes()
    digest = hashlib.sha256(data).hexdigest().encode()
    line = digest + b" %d Lageplan.ann\n" % len(data)
    whole = b"KAMO-BACKUP-MANIFEST 1\n" + line + b"END 1\n"
    write("BackupManifestFuzzer", "intact", whole + SEPARATOR + data)
    write("BackupManifestFuzzer", "truncated-file", whole + SEPARATOR + data[:1000])
    write("BackupManifestFuzzer", "unfinished", b"KAMO-BACKUP-MANIFEST 1\n" + SEPARATOR + data)
    write("BackupManifestFuzzer", "crlf-escaped",
          (whole + digest + b" 0 a\\\\b\\nc.ann\n").replace(b"\n", b"\r\n") + SEPARATOR + data)


def project_seeds():
    text = (SAMPLE / "Projekt.json").read_bytes()
    write("ProjectDescriptionFuzzer", "sample", text)
    project = json.loads(text)
    # Smaller variants reach the deeper checks sooner.
    for key in list(project):
        reduced = {k: v for k, v in project.items() if k != key}
        write("ProjectDescriptionFuzzer", f"without-{key}", json.dumps(reduced).encode())


def assignment_seeds():
    seeds = {
        "sheets": {"Version": 1, "FieldAssignments": [{"FieldName": "BLATTNR", "TargetFieldId": 10},
                                                        {"FieldName": "MASSSTAB", "TargetFieldId": 20}]},
        "old": {"FieldAssignments": [{"FieldName": "ID", "TargetFieldId": 10}]},
        "newer": {"Version": 7, "FieldAssignments": []},
        "wrong-types": {"Version": "1", "FieldAssignments": [{"FieldName": 3, "TargetFieldId": "10"}]},
    }
    for name, value in seeds.items():
        write("FieldAssignmentFuzzer", name, json.dumps(value).encode())
    # A key given twice: Qt's parser keeps the last and must not lose the first.
    write("FieldAssignmentFuzzer", "repeated-key",
          b'{"Version": 1, "Version": 1, "FieldAssignments": [{"FieldName": "A", "FieldName": "B", "TargetFieldId": 10}]}')


def shape_seeds():
    importers = {"sheets": 0, "routes": 1, "districts": 2, "buildings": 3}
    stems = sorted({p.with_suffix("") for p in SHAPES.glob("*.shp")} | {p.with_suffix("") for p in (SHAPES / "corrupt").glob("*.shp")}
                   | {p.with_suffix("") for p in (SAMPLE / "GIS").glob("*.shp")})
    for stem in stems:
        parts = []
        for suffix in (".shp", ".shx", ".dbf", ".cpg"):
            path = stem.with_suffix(suffix)
            parts.append(path.read_bytes() if path.exists() else b"")
        kind = next((v for k, v in importers.items() if k in stem.name.lower()), None)
        if "Gebaeude" in stem.name:
            kind = 3
        kinds = [kind] if kind is not None else list(importers.values())
        for kind in kinds:
            # Sheets also with the corner correction and scales from the table.
            variants = [0x00, 0x40, 0xc0 | 0x04, 0x10] if kind == 0 else [0x00, 0x30]
            for variant in variants:
                name = f"{stem.parent.name}-{stem.name}-{kind}-{variant:02x}"
                write("ShapeImportFuzzer", name, bytes([kind | variant]) + SEPARATOR.join(parts))


def dxf_seeds():
    for path in sorted(DXF.glob("*.dxf")) + [SAMPLE / "CAD" / "Blattschnitte.dxf"]:
        write("DxfFuzzer", path.stem, path.read_bytes())
    # Faults found by fuzzing: a vertex count past the EOF marker that
    # overflowed dxflib's buffer, and a group code of many digits.
    write("DxfFuzzer", "count-after-eof", b"0\nEOF\n0\nLWPOLYLINE\n90\n1073741825\n")
    write("DxfFuzzer", "long-group-code", b"0\nSECTION\n2\nENTITIES\n99999999999999999999\nX\n0\nEOF\n")
    write("DxfFuzzer", "long-last-line", b"0\nEOF\n" + b"A" * 1100)


def rectangle_seeds():
    def pack(points):
        return b"".join(struct.pack("<dd", x, y) for x, y in points)

    frames = {
        # A 1:500 sheet in Gauss-Krüger metres, its notch and closing vertex.
        "sheet": [(3512345.67, 5812345.89), (3512845.67, 5812345.89), (3512845.67, 5812045.89), (3512345.67, 5812045.89)],
        "closed": [(0, 0), (4, 0), (4, 3), (0, 3), (0, 0)],
        "notch": [(0, 0), (2, 0), (2, 1), (3, 1), (3, 0), (5, 0), (5, 4), (0, 4)],
        "turned": [(0, 0), (3, 4), (-1, 7), (-4, 3)],
        "kite": [(0, 0), (4, 0), (5, 5), (0, 4)],
        # Millimetres and a frame around the origin.
        "millimetres": [(3512345670.0, 5812345890.0), (3512845670.0, 5812345890.0), (3512845670.0, 5812045890.0),
                        (3512345670.0, 5812045890.0)],
        "tiny": [(-0.5, -0.5), (0.5, -0.5), (0.5, 0.5), (-0.5, 0.5)],
        "repeated": [(1, 1)] * 6,
    }
    for name, points in frames.items():
        write("RectangleDetectorFuzzer", name, pack(points))


def main():
    if CORPUS.exists():
        shutil.rmtree(CORPUS)
    annotation_seeds()
    link_seeds()
    path_map_seeds()
    manifest_seeds()
    project_seeds()
    assignment_seeds()
    shape_seeds()
    dxf_seeds()
    rectangle_seeds()
    for folder in sorted(CORPUS.iterdir()):
        files = list(folder.iterdir())
        print(f"{folder.name}: {len(files)} seeds, {sum(f.stat().st_size for f in files)} bytes")


if __name__ == "__main__":
    main()
