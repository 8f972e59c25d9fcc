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
    # Shape import
    "Error opening shape file": "Fehler beim Öffnen der Shape-Datei",
    "Object %1 left out: %2": "Objekt %1 ausgelassen: %2",
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
}

# Contexts whose source texts are German.
GERMAN_CONTEXTS = {"DlgNodeTools", "DlgAnalyzeProject"}


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
            german = GERMAN.get(source)
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
