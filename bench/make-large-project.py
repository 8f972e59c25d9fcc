#!/usr/bin/env python3
"""Writes a large project: a town's sewer network as the host keeps it.

    python3 bench/make-large-project.py FOLDER --nodes N [--files-per-node K]

FOLDER/Projekt.json (docs/project-format.md) holds N nodes, several levels
deep: the network, its districts, their streets, and under each street its
manholes and sections. Every node files K documents (default: 1 to 4, by
node), each with its annotation file FOLDER/Daten/<name>.ann of about 12 KB
(docs/annotation-format.md). About a quarter of the sections show zone 2,
where their last document lies. The output depends on N and K alone, so two
runs give the same bytes; an existing FOLDER/Daten is emptied first.
"""

import argparse
import json
import os
import shutil

FIELD = "\u0011"  # between the fields of a link record
PDF = "C:\\Projekte\\Musterstadt\\PDF\\"
ZONES = PDF + "Zonen\\"
FOTOS = "\\\\fileserver\\kanal\\Fotos\\"

DISTRICTS = ["Altstadt", "Nordstadt", "Südstadt", "Weststadt", "Oststadt", "Hafenviertel", "Gärtnerdorf",
             "Mühlenberg", "Talaue", "Schloßpark", "Bahnhofsviertel", "Brückenfeld"]
STREETS = ["Lindenweg", "Hauptstraße", "Kirchgasse", "Mühlenweg", "Schulstraße", "Gartenstraße", "Bahnhofstraße",
           "Am Anger", "Rosenstraße", "Friedhofsweg", "Bergstraße", "Wiesengrund", "Uferstraße", "Dorfplatz",
           "Ahornallee", "Kastanienweg", "Fährstraße", "Brunnengasse", "Zur Aue", "Grüner Weg"]
STREETS_PER_DISTRICT = 25
LEAVES_PER_STREET = 12

SHAPES = ["RECT", "POLY", "PIN", "TEXT", "LINE"]
CATEGORIES = ["Schacht", "Haltung", "Hausanschluss", "Foto", "Schaden", "_unbenannt"]
OBJECTS = ["Schacht", "Haltung", "Hausanschluss", "Rohrbruch", "Wurzeleinwuchs", "Übergabepunkt"]
REMARKS = ["Deckel erneuern, Steigeisen korrodiert", "Längsriss ab 12,4 m, Scherbenbildung",
           "Anschluss DN 150, Einbindung bei 3,2 m", "Gerinne ausgewaschen, Bermen gerissen",
           "Wurzeleinwuchs an der Muffe, Fräsen nötig", "Höhen in m ü. NHN, Bestand nach Kataster 2019"]
COLOURS = ["#e03c31", "#1f6fd1", "#2e9e44", "#f0a000", "#000000"]
USERS = ["m.mueller", "s.yilmaz", "k.schaefer", "j.nowak"]
TARGET_BYTES = 12000


def nodes_of(count, files_per_node):
    """The node records, parents before their children."""
    streets = max(1, (count - 1) // (LEAVES_PER_STREET + 1))
    districts = max(1, streets // STREETS_PER_DISTRICT)
    # What is left after the upper levels is shared out over the streets.
    leaves = max(0, count - 1 - districts - streets)
    nodes = []

    def add(name, parent, stems):
        node_id = len(nodes) + 1
        if node_id > count:
            return 0
        k = files_per_node or 1 + (node_id * 7) % 4
        names = [stem + ".pdf" for stem in stems[:k]]
        while len(names) < k:
            names.append("%s_Anlage_%d.pdf" % (stems[0], len(names)))
        node = {"Id": node_id, "Name": name}
        if parent:
            node["Parent"] = parent
        node["Zone"] = 1
        documents = {"1": [PDF + n for n in names]}
        if stems[0].startswith("Haltung_") and node_id % 3 == 0 and k > 1:
            # The zone's document pairs with the first one of zone 1.
            node["Zone"] = 2
            documents = {"1": documents["1"][:-1], "2": [ZONES + "BA1_" + names[0]]}
        node["Documents"] = documents
        nodes.append(node)
        return node_id

    root = add("Kanalnetz Musterstadt", 0, ["Generalentwässerungsplan", "Kanalkataster", "Bauzeitenplan",
                                             "Ausschreibung_LV"])
    street_no = 0
    for d in range(districts):
        district = DISTRICTS[d % len(DISTRICTS)] + ("" if d < len(DISTRICTS) else " %d" % (d // len(DISTRICTS) + 1))
        tag = "D%02d" % (d + 1)
        district_id = add(district, root, ["Übersichtsplan_" + tag, "Bestandsplan_" + tag,
                                           "Sanierungskonzept_" + tag, "Fotodokumentation_" + tag])
        share = streets // districts + (1 if d < streets % districts else 0)
        for _ in range(share):
            street_no += 1
            street = "%s %d" % (STREETS[street_no % len(STREETS)], street_no)
            tag = "St%04d" % street_no
            street_id = add(street, district_id, ["Lageplan_" + tag, "Längsschnitt_" + tag,
                                                  "Hausanschlussplan_" + tag, "Straßenaufbruch_" + tag])
            for leaf in range(leaves // streets + (1 if street_no <= leaves % streets else 0)):
                number = "%05d" % (len(nodes) + 1)
                if leaf % 2 == 0:
                    add("Schacht S" + number, street_id, ["Schacht_S" + number, "Schachtprotokoll_S" + number,
                                                          "Schnitt_S" + number, "Foto_S" + number])
                else:
                    add("Haltung H" + number, street_id, ["Haltung_H" + number, "Haltungsbericht_H" + number,
                                                          "TV-Inspektion_H" + number, "Sanierung_H" + number])
    return nodes


def href(seed, path, page, desc):
    """One standard link: 23 fields, the path in field 1."""
    user = USERS[seed % len(USERS)]
    stamp = "2024-%02d-%02dT%02d:%02d:%02d" % (1 + seed % 12, 1 + seed % 28, 7 + seed % 10, seed % 60, seed * 7 % 60)
    fields = ["0", path, str(page), desc, "1.0", "", "", "", "", "", "0", str(seed % 3), COLOURS[seed % 5],
              "0.35", "1", "", "", stamp, user, stamp, user,
              "{%08x-%04x-4%03x-8%03x-%012x}" % (seed * 2654435761 % 2**32, seed % 65536, seed % 4096,
                                                 seed * 7 % 4096, seed * 40503 % 2**48), "4"]
    assert len(fields) == 23
    return "HREF=" + FIELD.join(fields)


def annotation(document, seed, paths):
    """The text of one annotation file, with links to other documents."""
    lines = ["ANN=2", "DOC=" + document]
    size = 0
    target = TARGET_BYTES - 2000 + seed % 4000
    j = 0
    while size < target:
        s = seed * 31 + j
        block = ["BO", "ID=%d" % (j + 1), "TY=" + SHAPES[s % 5], "PG=%d" % (1 + j % 4),
                 "GEO=%d.%d;%d;%d;%d" % (20 + s * 37 % 380, s % 10, 15 + s * 53 % 260, 10 + s % 60, 8 + s % 45),
                 "NA=%s %d" % (OBJECTS[s % 6], 1 + s % 97), "KA=" + CATEGORIES[j % 6], "TX=" + REMARKS[s % 6],
                 "CO=" + COLOURS[j % 5]]
        for k in range(1 + s % 3):
            path = paths[(s * 13 + k * 7919) % len(paths)]
            name = path[path.rfind("\\") + 1:]
            block.append(href(s * 3 + k, path, 1 + (j + k) % 9, "Verweis auf " + name[:-4]))
        if s % 4 == 0:
            block.append(href(s * 3 + 2, FOTOS + "IMG_%04d.jpg" % (s % 9000), "", "Foto zur Schadensstelle"))
        block.append("EO")
        size += sum(len(line.encode("utf-8")) + 2 for line in block)
        lines += block
        j += 1
    return "\r\n".join(lines)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", help="where Projekt.json and Daten/ are written")
    parser.add_argument("--nodes", type=int, required=True, metavar="N", help="nodes of the tree")
    parser.add_argument("--files-per-node", type=int, default=0, metavar="K",
                        help="documents (and annotation files) per node; default 1 to 4")
    args = parser.parse_args()
    if args.nodes < 1 or args.files_per_node < 0:
        parser.error("--nodes must be at least 1 and --files-per-node not negative")

    nodes = nodes_of(args.nodes, args.files_per_node)
    paths = [p for node in nodes for zone in sorted(node["Documents"]) for p in node["Documents"][zone]]
    project = {"Version": 1, "Id": "MS-NETZ-%d" % args.nodes, "Name": "Kanalnetz Musterstadt (%d Knoten)" % args.nodes,
               "Zones": ["Bestand", "Bauabschnitt 1"], "GeoSystem": "EPSG:25832", "Nodes": nodes}

    data = os.path.join(args.folder, "Daten")
    if os.path.isdir(data):
        shutil.rmtree(data)
    os.makedirs(data)
    with open(os.path.join(args.folder, "Projekt.json"), "w", encoding="utf-8", newline="\n") as f:
        json.dump(project, f, ensure_ascii=False, indent=1)
        f.write("\n")
    total = 0
    for seed, path in enumerate(paths):
        document = path[path.rfind("\\") + 1:]
        data_bytes = annotation(document, seed, paths).encode("utf-8")
        with open(os.path.join(data, document[:document.find(".")] + ".ann"), "wb") as f:
            f.write(data_bytes)
        total += len(data_bytes)
    print("%d nodes, %d annotation files (%.1f MB) in %s" % (len(nodes), len(paths), total / 1e6, args.folder))


if __name__ == "__main__":
    main()
