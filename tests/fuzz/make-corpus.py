#!/usr/bin/env python3
"""Rewrites the seed corpora of the fuzz targets, tests/fuzz/corpus/<target>; run from anywhere. The seeds are what
users hand the library: the sample project's files, the test fixtures (the damaged ones included) and the inputs of
faults found so far, so that each stays covered by the short fuzz run of the test command."""
import hashlib
import json
import pathlib
import shutil
import struct

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
SAMPLE = ROOT / "sample" / "Musterstadt-Kanalsanierung"
SHAPES = ROOT / "tests" / "shapeimport" / "data"
CORPUS = HERE / "corpus"
SEPARATOR = b"\n--8<--kamo-fuzz-part--8<--\n"  # FuzzScratch::Separator


def annotation_seeds():
    for k, path in enumerate(sorted((SAMPLE / "Daten").glob("*.ann"))):
        # Every operation meets every file over the seeds, with and without its filters and options.
        for choice in range(10):
            yield f"{path.stem}-{choice}", bytes([choice | (k + choice) % 8 << 4]) + path.read_bytes()
    # The forms the file loop must leave unchanged: Latin-1, LF ends, a BOM.
    text = (SAMPLE / "Daten" / "Schachtprotokoll_S12.ann").read_bytes()
    yield "latin1", b"\x09" + text.decode("utf-8").encode("latin-1", "replace")
    yield "lf-bom", b"\x15\xef\xbb\xbf" + text.replace(b"\r\n", b"\n")


def link_seeds():
    lines = (line for path in sorted((SAMPLE / "Daten").glob("*.ann")) for line in path.read_bytes().split(b"\r\n"))
    for value in list(dict.fromkeys(line[5:] for line in lines if line.startswith(b"HREF=")))[:60]:
        yield hashlib.sha1(value).hexdigest()[:12], value


def path_map_seeds():
    text = (SAMPLE / "Pfadumsetzung.csv").read_bytes()
    yield "sample", text
    yield "crlf", text.replace(b"\n", b"\r\n")
    yield "cp1252", "Dateipfad Alt,Dateipfad Neu\nC:\\Pläne\\Süd.pdf,D:\\Archiv\\Süd.pdf\n".encode("cp1252")
    yield "utf16", "C:\\a.pdf,D:\\b.pdf\n".encode("utf-16")


def manifest_seeds():
    """A backup's manifest, then the annotation file it lists."""
    data = (SAMPLE / "Daten" / "Lageplan_Haltungen.ann").read_bytes()
    digest = hashlib.sha256(data).hexdigest().encode()
    whole = b"KAMO-BACKUP-MANIFEST 1\n" + digest + b" %d Lageplan.ann\n" % len(data) + b"END 1\n"
    yield "intact", whole + SEPARATOR + data
    yield "truncated-file", whole + SEPARATOR + data[:1000]
    yield "unfinished", b"KAMO-BACKUP-MANIFEST 1\n" + SEPARATOR + data
    yield "crlf-escaped", (whole + digest + b" 0 a\\\\b\\nc.ann\n").replace(b"\n", b"\r\n") + SEPARATOR + data


def project_seeds():
    text = (SAMPLE / "Projekt.json").read_bytes()
    yield "sample", text
    project = json.loads(text)
    # Smaller variants reach the deeper checks sooner.
    for key in list(project):
        yield f"without-{key}", json.dumps({k: v for k, v in project.items() if k != key}).encode()


def assignment_seeds():
    for name, value in {"sheets": {"Version": 1, "FieldAssignments": [{"FieldName": "BLATTNR", "TargetFieldId": 10},
                                                                      {"FieldName": "MASSSTAB", "TargetFieldId": 20}]},
                        "old": {"FieldAssignments": [{"FieldName": "ID", "TargetFieldId": 10}]},
                        "newer": {"Version": 7, "FieldAssignments": []},
                        "wrong-types": {"Version": "1", "FieldAssignments": [{"FieldName": 3, "TargetFieldId": "10"}]}
                        }.items():
        yield name, json.dumps(value).encode()
    # A key given twice: Qt's parser keeps the last and must not lose the first.
    yield "repeated-key", (b'{"Version": 1, "Version": 1, "FieldAssignments": '
                           b'[{"FieldName": "A", "FieldName": "B", "TargetFieldId": 10}]}')


def shape_seeds():
    """Each shape file with its index, table and code page, for its importer (by its name) or for all four."""
    for stem in sorted({p.with_suffix("") for d in (SHAPES, SHAPES / "corrupt", SAMPLE / "GIS") for p in d.glob("*.shp")}):
        files = [stem.with_suffix(suffix) for suffix in (".shp", ".shx", ".dbf", ".cpg")]
        parts = SEPARATOR.join(path.read_bytes() if path.exists() else b"" for path in files)
        named = [k for k, word in enumerate(["sheets", "routes", "districts", "buildings"]) if word in stem.name.lower()]
        for kind in [3] if "Gebaeude" in stem.name else named[:1] or range(4):
            # Sheets also with the corner correction and scales from the table.
            for variant in [0x00, 0x40, 0xc0 | 0x04, 0x10] if kind == 0 else [0x00, 0x30]:
                yield f"{stem.parent.name}-{stem.name}-{kind}-{variant:02x}", bytes([kind | variant]) + parts


def dxf_seeds():
    for path in sorted((ROOT / "tests" / "dxf" / "data").glob("*.dxf")) + [SAMPLE / "CAD" / "Blattschnitte.dxf"]:
        yield path.stem, path.read_bytes()
    # Faults found by fuzzing: a vertex count past the EOF marker that
    # overflowed dxflib's buffer, and a group code of many digits.
    yield "count-after-eof", b"0\nEOF\n0\nLWPOLYLINE\n90\n1073741825\n"
    yield "long-group-code", b"0\nSECTION\n2\nENTITIES\n99999999999999999999\nX\n0\nEOF\n"
    yield "long-last-line", b"0\nEOF\n" + b"A" * 1100


def rectangle_seeds():
    # A 1:500 sheet in Gauss-Krüger metres, in millimetres, its notch and closing vertex, a frame around the origin.
    sheet = [(3512345.67, 5812345.89), (3512845.67, 5812345.89), (3512845.67, 5812045.89), (3512345.67, 5812045.89)]
    for name, points in {"sheet": sheet, "millimetres": [(x * 1000, y * 1000) for x, y in sheet],
                         "closed": [(0, 0), (4, 0), (4, 3), (0, 3), (0, 0)],
                         "notch": [(0, 0), (2, 0), (2, 1), (3, 1), (3, 0), (5, 0), (5, 4), (0, 4)],
                         "turned": [(0, 0), (3, 4), (-1, 7), (-4, 3)], "kite": [(0, 0), (4, 0), (5, 5), (0, 4)],
                         "tiny": [(-0.5, -0.5), (0.5, -0.5), (0.5, 0.5), (-0.5, 0.5)], "repeated": [(1, 1)] * 6}.items():
        yield name, b"".join(struct.pack("<dd", x, y) for x, y in points)


def main():
    if CORPUS.exists():
        shutil.rmtree(CORPUS)
    for target, seeds in [("AnnotationTextFuzzer", annotation_seeds), ("BackupManifestFuzzer", manifest_seeds),
                          ("DxfFuzzer", dxf_seeds), ("FieldAssignmentFuzzer", assignment_seeds),
                          ("LinkValueFuzzer", link_seeds), ("PathMapFuzzer", path_map_seeds),
                          ("ProjectDescriptionFuzzer", project_seeds), ("RectangleDetectorFuzzer", rectangle_seeds),
                          ("ShapeImportFuzzer", shape_seeds)]:
        (CORPUS / target).mkdir(parents=True)
        for name, data in seeds():
            (CORPUS / target / name).write_bytes(data)
        files = list((CORPUS / target).iterdir())
        print(f"{target}: {len(files)} seeds, {sum(f.stat().st_size for f in files)} bytes")


if __name__ == "__main__":
    main()
