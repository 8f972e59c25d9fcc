#!/usr/bin/env python3
"""Fills the open German translations of kamo_tools_de.ts.

The node tools speak German already: their texts are taken over as they
stand. English texts get the German of the table below; a text missing from
it stays open and is reported, so that lrelease leaves it in English.
"""
import sys
import xml.etree.ElementTree as ET

GERMAN = {
    "Data directory:\n\n'%1'\n\ninvalid": "Datenverzeichnis:\n\n'%1'\n\nungültig",
    "Error creating backup": "Fehler beim Anlegen der Sicherung",
    "Select new Link Target": "Neues Verknüpfungsziel wählen",
    "Select map file": "Umsetzungsdatei wählen",
    # Node-tool engine: files left out, the backup and its check
    "%1: is a link to a missing file, left unchanged": "%1: ist eine Verknüpfung auf eine fehlende Datei, unverändert gelassen",
    "%1: disappeared during the run": "%1: ist während des Laufs verschwunden",
    "%1: is a folder, left unchanged": "%1: ist ein Ordner, unverändert gelassen",
    "%1: could not be opened (%2), left unchanged": "%1: konnte nicht geöffnet werden (%2), unverändert gelassen",
    "%1: the object from line %2 is not closed: its %3 lines to the end of the file are dropped":
        "%1: Objekt ab Zeile %2 nicht abgeschlossen: seine %3 Zeilen bis zum Dateiende entfallen",
    "not a backup manifest": "kein Manifest einer Sicherung",
    "the end line does not match the %1 files listed": "die Schlusszeile passt nicht zu den %1 aufgeführten Dateien",
    "line %1 cannot be read": "Zeile %1 ist nicht lesbar",
    "the backup was not finished": "die Sicherung wurde nicht abgeschlossen",
    "no project folder given": "kein Projektordner angegeben",
    "no data folder '%1'": "kein Datenordner „%1“",
    "the backup folder '%1' cannot be created": "der Sicherungsordner „%1“ kann nicht angelegt werden",
    "Incomplete: %1": "Unvollständig: %1",
    "the manifest cannot be written (%1)": "das Manifest kann nicht geschrieben werden (%1)",
    "%1 could not be copied (%2)": "%1 konnte nicht kopiert werden (%2)",
    "%1 cannot be read (%2)": "%1 kann nicht gelesen werden (%2)",
    "the backup could not be written to disk (%1)": "die Sicherung konnte nicht auf die Platte geschrieben werden (%1)",
    "no backup '%1' in '%2'": "keine Sicherung „%1“ in „%2“",
    "the backup is damaged": "die Sicherung ist beschädigt",
    "the current state could not be backed up: %1": "der jetzige Stand konnte nicht gesichert werden: %1",
    "is a file, not a backup folder": "ist eine Datei, kein Sicherungsordner",
    "the backup folder does not exist": "der Sicherungsordner fehlt",
    "too large for a manifest": "zu groß für ein Manifest",
    "missing": "fehlt",
    "not in the manifest": "nicht im Manifest",
    "%1 bytes instead of %2": "%1 Bytes statt %2",
    "its content changed since the backup": "ihr Inhalt hat sich seit der Sicherung geändert",
    # Link check
    "%1: could not be read (%2)": "%1: konnte nicht gelesen werden (%2)",
    "%1: not valid UTF-8, its links not checked": "%1: kein gültiges UTF-8, ihre Verknüpfungen nicht geprüft",
    # Shape import
    "Error opening shape file": "Fehler beim Öffnen der Shape-Datei",
    "Object %1 left out: %2": "Objekt %1 ausgelassen: %2",
    'Object %1 replaces the earlier sheet "%2" at scale %3': "Objekt %1 ersetzt das frühere Blatt „%2“ im Maßstab %3",
    "The file cannot be opened": "Die Datei kann nicht geöffnet werden",
    "The file is empty": "Die Datei ist leer",
    "The file holds no field assignments (not JSON)": "Die Datei enthält keine Feldzuordnungen (kein JSON)",
    "The file was written by a newer version": "Die Datei stammt von einer neueren Version",
    "The file assigns no field": "Die Datei ordnet kein Feld zu",
    "SheetNr": "Blattnummer",
    "SheetNr2": "Blattnummer 2",
    "SheetScale": "Maßstab",
    "Id": "Kennung",
    "Name": "Name",
    "Number": "Nummer",
    "Variant": "Variante",
    "DistrictPieceNumber": "Flurstückskennzeichen",
    "DistrictNumber": "Gemarkungsnummer",
    "Type": "Art",
    "Owner-Street": "Eigentümer-Straße",
    "Owner-Housenumber": "Eigentümer-Hausnummer",
    "Owner-Housenumber-Add": "Eigentümer-Hausnummer mit Zusatz",
    "Owner-ZipCode": "Eigentümer-PLZ",
    "Owner-Town": "Eigentümer-Ort",
    "Building-Street": "Gebäude-Straße",
    "Building-HouseNumber": "Gebäude-Hausnummer",
    "Building-ZipCode": "Gebäude-PLZ",
    "Building-Town": "Gebäude-Ort",
    "Building-District": "Gebäude-Ortsteil",
    # Shape-import dialog
    "Shape File Import": "Shape-Import",
    "...": "...",
    "Source": "Quelle",
    "Import": "Importieren",
    "Sheets": "Blätter",
    "Routes": "Trassen",
    "Districts": "Flurstücke",
    "Buildings": "Gebäude",
    "Shape file": "Shape-Datei",
    "Attribute table": "Attributtabelle",
    "beside the shape file": "neben der Shape-Datei",
    "Geo systems": "Geosysteme",
    "File": "Datei",
    "Project": "Projekt",
    "Only objects within the project areas": "Nur Objekte in den Projektgebieten",
    "no point": "kein Punkt",
    "no scale": "kein Maßstab",
    "Field assignment": "Feldzuordnung",
    "Column": "Spalte",
    "Type": "Art",
    "Target field": "Zielfeld",
    "Reset": "Zurücksetzen",
    "Import...": "Importieren...",
    "Export...": "Exportieren...",
    "Attributes": "Attribute",
    "Map": "Karte",
    "Sheet options": "Blattoptionen",
    "Correct the corner order along the sheet numbers": "Eckenreihenfolge entlang der Blattnummern korrigieren",
    "Points": "Punkte",
    "Four corners, clockwise from the north": "Vier Ecken, im Uhrzeigersinn ab Norden",
    "Points of the frame": "Punkte des Rahmens",
    "Scale": "Maßstab",
    "Fixed": "Fest",
    "From the column assigned to SheetScale": "Aus der Spalte für „Maßstab“",
    "Page text": "Seitentext",
    'appended to every sheet number after "_"': "wird jeder Blattnummer nach „_“ angehängt",
    "Route options": "Trassenoptionen",
    "Variant when empty": "Variante, wenn leer",
    "The shape file cannot be read.": "Die Shape-Datei kann nicht gelesen werden.",
    "No attribute table: every attribute stays empty.": "Keine Attributtabelle: alle Attribute bleiben leer.",
    "<Not Assigned>": "<Nicht zugeordnet>",
    "%1 (column %2)": "%1 (Spalte %2)",
    "Columns of the file not in this attribute table: %1.": "Spalten der Datei, die diese Attributtabelle nicht hat: %1.",
    "Target fields not offered for %1: %2.": "Für %1 nicht angebotene Zielfelder: %2.",
    "Import field assignments": "Feldzuordnungen importieren",
    "Export field assignments": "Feldzuordnungen exportieren",
    "%1 cannot be written: %2": "%1 kann nicht geschrieben werden: %2",
    "Select shape file": "Shape-Datei wählen",
    "Shape files (*.shp);;All files (*)": "Shape-Dateien (*.shp);;Alle Dateien (*)",
    "Select attribute table": "Attributtabelle wählen",
    "Attribute tables (*.dbf);;All files (*)": "Attributtabellen (*.dbf);;Alle Dateien (*)",
    "not set: no conversion": "nicht gesetzt: keine Umrechnung",
    "%1 is assigned to %2; the last of them counts.": "%1 ist %2 zugeordnet; die letzte Spalte gilt.",
    "%1: %2": "%1: %2",
    # Shape preview and attribute table
    "No preview": "Keine Vorschau",
    "%1 cannot be read as a shape file.": "%1 kann nicht als Shape-Datei gelesen werden.",
    "No objects": "Keine Objekte",
    "No readable objects": "Keine lesbaren Objekte",
    "Preview shows the first %1 of %2 objects": "Die Vorschau zeigt die ersten %1 von %2 Objekten",
    "Objects: %1": "Objekte: %1",
    "%1 records cannot be read": "%1 Datensätze können nicht gelesen werden",
    "%1 km": "%1 km",
    "%1 m": "%1 m",
    "Text": "Text",
    "Integer": "Ganzzahl",
    "Decimal number": "Dezimalzahl",
    "Yes/No": "Ja/Nein",
    "Date": "Datum",
    "Unknown type": "Unbekannter Typ",
    "%1, width %2": "%1, Breite %2",
    "%1, width %2, %3 decimals": "%1, Breite %2, %3 Nachkommastellen",
    # DXF dump
    "%1: dxflib cannot read the file": "%1: dxflib kann die Datei nicht lesen",
    "%1: not enough memory to read the file": "%1: nicht genug Speicher, um die Datei zu lesen",
    "%1: reading failed: %2": "%1: Lesen fehlgeschlagen: %2",
    "%1: no such file or not readable": "%1: Datei fehlt oder ist nicht lesbar",
    "%1: line %2 is longer than %3 characters": "%1: Zeile %2 ist länger als %3 Zeichen",
    "%1: line %2 is not a group code: '%3'": "%1: Zeile %2 ist kein Gruppencode: '%3'",
    "%1: line %2: %3 announces %4 items, more than the file can hold":
        "%1: Zeile %2: %3 kündigt %4 Einträge an, mehr als die Datei fassen kann",
    "%1: the file ends without an EOF marker (truncated?)": "%1: die Datei endet ohne EOF-Marke (abgeschnitten?)",
    "%1: cannot write the file: %2": "%1: die Datei kann nicht geschrieben werden: %2",
    "Vertex revision stopped with %1 at insert %2: its frame has no parallel sides; inserts left without "
    "corner labels: %3": "Eckenkorrektur mit %1 bei Blockreferenz %2 abgebrochen: ihr Rahmen hat keine parallelen "
    "Seiten; Blockreferenzen ohne benannte Ecken: %3",
    "Vertex revision reported %1 for insert %2: its frame has only one pair of parallel sides; its corners are "
    "labelled all the same": "Eckenkorrektur meldet %1 für Blockreferenz %2: ihr Rahmen hat nur ein Paar "
    "paralleler Seiten; ihre Ecken sind trotzdem benannt",
    "Vertex revision ended with %1": "Eckenkorrektur endete mit %1",
    # DXF workbench
    "DXF Workbench": "DXF-Werkbank",
    "DXF &file:": "DXF-&Datei:",
    "&Open…": "Ö&ffnen…",
    "No drawing loaded": "Keine Zeichnung geladen",
    "Inserts": "Blockreferenzen",
    "#": "#",
    "Block": "Block",
    "Sheet number": "Blattnummer",
    "Layer": "Layer",
    "Corners": "Ecken",
    "Position": "Position",
    "Block &filter:": "Block&filter:",
    "Regular expression on the block name": "Regulärer Ausdruck auf den Blocknamen",
    "&Apply": "&Anwenden",
    "Use the inserts whose block name matches, leave out the others":
        "Die Blockreferenzen mit passendem Blocknamen verwenden, die übrigen auslassen",
    "A&ll": "A&lle",
    "&None": "&Keine",
    "Use every insert": "Alle Blockreferenzen verwenden",
    "Leave out every insert": "Alle Blockreferenzen auslassen",
    "Vertices": "Stützpunkte",
    "Vertex": "Punkt",
    "X": "X",
    "Y": "Y",
    "Label": "Ecke",
    "Output": "Ausgabe",
    "&Dump DXF": "DXF a&uflisten",
    "List the layers, blocks and entities of the file in the output":
        "Layer, Blöcke und Objekte der Datei in der Ausgabe auflisten",
    "&Correct Vertex Positions": "Eckpositionen &korrigieren",
    "Label the frame corners of the used inserts along their route":
        "Die Rahmenecken der verwendeten Blockreferenzen entlang ihrer Trasse benennen",
    "&Export to Kamo as GK2…": "Als GK2 nach Kamo &exportieren…",
    "Write the labelled corners of the used inserts with a sheet number":
        "Die benannten Ecken der verwendeten Blockreferenzen mit Blattnummer schreiben",
    "Clear o&utput": "Ausgabe &leeren",
    "Opened %1: %2 layers, %3 blocks, %4 inserts": "%1 geöffnet: %2 Layer, %3 Blöcke, %4 Blockreferenzen",
    "Correction completed - Inserts labelled: %1": "Korrektur abgeschlossen - Blockreferenzen benannt: %1",
    "Export completed - Inserts written: %1": "Export abgeschlossen - Blockreferenzen geschrieben: %1",
    "No corner was labelled, so only the sheet numbers were written: run the correction first":
        "Keine Ecke war benannt, daher wurden nur die Blattnummern geschrieben: zuerst die Korrektur ausführen",
    "Open DXF Drawing": "DXF-Zeichnung öffnen",
    "DXF drawings (*.dxf *.DXF);;All files (*)": "DXF-Zeichnungen (*.dxf *.DXF);;Alle Dateien (*)",
    "Export to Kamo as GK2": "Als GK2 nach Kamo exportieren",
    "GK2 files (*.gk2);;All files (*)": "GK2-Dateien (*.gk2);;Alle Dateien (*)",
    "The drawing defines no block of this name": "Die Zeichnung enthält keinen Block dieses Namens",
    "%1 layers, %2 blocks, %3 inserts, %4 of them used": "%1 Layer, %2 Blöcke, %3 Blockreferenzen, davon %4 verwendet",
    "Vertices of block %1": "Stützpunkte des Blocks %1",
    "The block holds no polyline": "Der Block enthält keine Polylinie",
    "Polyline %1 (vertices: %2)": "Polylinie %1 (Stützpunkte: %2)",
    "&Stop Dump": "Auflisten &anhalten",
    "Dump stopped": "Auflisten angehalten",
    "Fi&t All": "Alles &zeigen",
    "Show every sheet frame of the drawing": "Alle Blattrahmen der Zeichnung zeigen",
    # Map of the DXF workbench
    "Used": "Verwendet",
    "Left out": "Ausgelassen",
    "Selected": "Ausgewählt",
    "Reported": "Gemeldet",
    "Route": "Trasse",
    "No sheet frames": "Keine Blattrahmen",
    "Wheel: zoom; drag: move the map; click: select the insert":
        "Mausrad: zoomen; ziehen: Karte verschieben; Klick: Blockreferenz auswählen",
    "Insert %1, block %2, sheet number %3": "Blockreferenz %1, Block %2, Blattnummer %3",
    "The rectangle detector found not exactly one rectangle in its frame: no corner labels":
        "Die Rechteckerkennung fand in ihrem Rahmen nicht genau ein Rechteck: keine benannten Ecken",
    "Left without corner labels: the revision stopped at this frame or before it":
        "Ohne benannte Ecken: die Eckenkorrektur brach bei diesem Rahmen oder davor ab",
    "Its frame has only one pair of parallel sides; labelled all the same":
        "Ihr Rahmen hat nur ein Paar paralleler Seiten; trotzdem benannt",
    # Geo-system chooser
    "Select Geo System": "Geosystem auswählen",
    "EPSG code or name": "EPSG-Code oder Name",
    "Code": "Code",
    "Area of use: %1": "Anwendungsbereich: %1",
    "No geo system selected.": "Kein Geosystem ausgewählt.",
}

# Where one English word needs two German ones.
GERMAN_IN_CONTEXT = {
    ("DlgShapeImport", "Type"): "Typ",
}

# Texts with a number: the German singular and plural.
GERMAN_NUMERUS = {
    "%1, %n object(s)": ("%1, %n Objekt", "%1, %n Objekte"),
}

# Contexts whose source texts are German.
GERMAN_CONTEXTS = {"DlgNodeTools", "DlgNodeToolsPreview", "DlgNodeToolsBackups", "DlgAnalyzeProject", "DlgLinkCheck"}


def main(path):
    tree = ET.parse(path)
    missing = []
    for context in tree.getroot().iter("context"):
        name = context.findtext("name")
        for message in context.iter("message"):
            translation = message.find("translation")
            if translation.get("type") != "unfinished":
                continue
            source = message.findtext("source")
            if message.get("numerus") == "yes" and source in GERMAN_NUMERUS:
                forms = translation.findall("numerusform")
                for form, text in zip(forms, GERMAN_NUMERUS[source]):
                    form.text = text
                del translation.attrib["type"]
                continue
            german = GERMAN_IN_CONTEXT.get((name, source), GERMAN.get(source))
            if german is None and name in GERMAN_CONTEXTS:
                german = source
            if german is None:
                missing.append(f"{name}: {source!r}")
                continue
            translation.text = german
            del translation.attrib["type"]
    tree.write(path, encoding="utf-8", xml_declaration=True)
    for entry in missing:
        print("no translation:", entry, file=sys.stderr)
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
