#!/usr/bin/env python3
"""Writes the sample project sample/Musterstadt-Kanalsanierung.

The files under sample/ are this script's output and are committed as such;
change the data here and run the script again instead of editing them.
Everything is fixed content (link ids are name-based UUIDs), so a second run
gives identical bytes.

    python3 scripts/make-sample.py [--out DIR]

DIR defaults to the sample/ folder next to this script's folder.
"""

import argparse
import json
import os
import shutil
import uuid

PROJECT = "Musterstadt-Kanalsanierung"

FIELD = "\u0011"    # between the fields of a link record
SPLIT = "\u00a4"    # first character of a split link
TARGET = "\u0012"   # between the target records of a split link
ZONE = "\u0013"     # between the per-zone paths / pages of a split target

PDF = "C:\\Projekte\\Musterstadt\\PDF\\"
ZONES = "C:\\Projekte\\Musterstadt\\PDF\\Zonen\\"
FOTOS = "\\\\fileserver\\kanal\\Fotos\\"
ARCHIV = "\\\\fileserver\\kanal\\Archiv\\"

# Name-based, so the ids stay the same from run to run but differ per link.
LINK_ID_NAMESPACE = uuid.UUID("6f1c2a4e-0d3b-4c5a-9e8f-7a6b5c4d3e2f")
_link_counter = 0


def _next_link_id():
    global _link_counter
    _link_counter += 1
    return "{%s}" % uuid.uuid5(LINK_ID_NAMESPACE, "link-%03d" % _link_counter)


def record(path, page, desc, kind="0", view=("", "", "", ""), zoom="",
           rotation="0", mode="0", colour="#e03c31", width="0.35", frame="1",
           tooltip="", layer="", created="2024-03-07T14:05:09",
           created_by="m.mueller", modified="", modified_by="", flags="4"):
    """The 23 fields of one link target, in file order."""
    fields = [kind, path, page, desc, "1.0", *view, zoom, rotation, mode,
              colour, width, frame, tooltip, layer, created, created_by,
              modified or created, modified_by or created_by,
              _next_link_id(), flags]
    assert len(fields) == 23
    return fields


def std(path, page="", desc="", **kw):
    return FIELD.join(record(path, page, desc, **kw))


def split(*targets):
    """targets: (zones, desc, kw) with zones a list of (path, page)."""
    records = []
    for zones, desc, kw in targets:
        assert 1 <= len(zones) <= 4
        fields = record(ZONE.join(p for p, _ in zones),
                        ZONE.join(pg for _, pg in zones), desc, **kw)
        records.append(FIELD.join(fields))
    return SPLIT + TARGET.join(records)


def target(zones, desc, **kw):
    return (zones, desc, kw)


def obj(id_, ty, pg, geo, na, ka=None, tx=None, co=None, hrefs=(), extra=()):
    """Property lines of one object block. `extra` lines go in before NA,
    which is where older importers put their leftovers."""
    lines = ["ID=%d" % id_, "TY=" + ty, "PG=%d" % pg, "GEO=" + geo]
    lines += list(extra)
    lines.append("NA=" + na)
    if ka is not None:
        lines.append("KA=" + ka)
    if tx is not None:
        lines.append("TX=" + tx)
    if co is not None:
        lines.append("CO=" + co)
    lines += ["HREF=" + h for h in hrefs]
    return lines


# --- the documents ---------------------------------------------------------
# Each entry: document file name, annotation file name, line-end style,
# object blocks. Styles: "host" = CRLF, no line end after the last line;
# "lf" = LF everywhere incl. a final LF; "loose" = CRLF, empty lines between
# blocks and a trailing CRLF.

DOCUMENTS = []


def document(doc, ann, style, *blocks):
    DOCUMENTS.append((doc, ann, style, blocks))


document(
    "Lageplan_Haltungen.pdf", "Lageplan_Haltungen.ann", "host",
    obj(1, "RECT", 1, "120.5;88;40;25", "Schacht 12 – Zulauf Straße",
        ka="Schacht", tx="Deckel erneuern, Steigeisen korrodiert", co="#e03c31",
        hrefs=[std(PDF + "Schacht_S12.pdf", "1", "Schachtprotokoll S12",
                   tooltip="Protokoll vom 07.03.2024 öffnen"),
               std(FOTOS + "IMG_0412.jpg", "", "Foto Schachtdeckel S12",
                   mode="2", frame="2")]),
    obj(2, "LINE", 1, "160.5;100.5;241;133.25", "Haltung H0815 Rohrbruch",
        ka="Haltung", tx="Längsriss ab 12,4 m, Scherbenbildung", co="#1f6fd1",
        hrefs=[std("C:\\PROJEKTE\\Musterstadt\\PDF\\Haltung_H0815.pdf", "3",
                   "Haltungsbericht H0815 – Schadensbild",
                   view=("20", "45", "170", "120"), zoom="150"),
               split(target([(ZONES + "BA1_H0815.pdf", "1"),
                             (ZONES + "BA2_H0815.pdf", "2")],
                            "Bauphasen H0815", colour="#1f6fd1"))]),
    obj(3, "PIN", 1, "205;140", "Hausanschluss Lindenweg 7",
        ka="Hausanschluss", tx="Anschluss DN 150, Einbindung bei 3,2 m",
        co="#2e9e44",
        hrefs=[std(PDF + "Hausanschlussplan_Lindenweg.pdf", "2",
                   "Hausanschlussplan Lindenweg", colour="#2e9e44")]),
    obj(4, "TEXT", 1, "20;260;110;275", "Planvermerk", ka="_unbenannt",
        tx="Bestand nach Kanalkataster 2019, Höhen in m ü. NHN", co="#000000"),
    obj(5, "POLY", 2, "30;40;95;38;102;90;28;96", "Bauabschnitt 2 – Grünfläche Süd",
        tx="Wiederherstellung Rasenfläche nach Abschluss", co="#7fbf3f",
        hrefs=[std(PDF + "Übersichtsplan_Süd.pdf", "1", "Übersichtsplan Süd",
                   created="2024-02-19T09:12:44", created_by="s.yilmaz")]),
)

document(
    "Schachtprotokoll_S12.pdf", "Schachtprotokoll_S12.ann", "host",
    obj(1, "RECT", 1, "15;30;180;60", "Schacht 12 – Zulauf Straße",
        ka="Schacht", tx="Schachttiefe 2,85 m, Gerinne ausgewaschen",
        co="#e03c31",
        hrefs=[std(PDF + "Lageplan_Haltungen.pdf", "1", "Lage im Lageplan",
                   view=("100", "70", "80", "60")),
               std(FOTOS + "IMG_0412.jpg", "", "Foto Schachtdeckel S12",
                   mode="2")]),
    # Saved by an old importer that wrote an empty category first.
    obj(2, "RECT", 1, "15;100;85;40", "Gerinne S12", ka="Schacht",
        tx="Bermen gerissen, Fugen ausgespült", co="#e03c31",
        extra=["KA="],
        hrefs=[std(FOTOS + "IMG_0415.jpg", "", "Gerinne von oben", mode="2")]),
    obj(3, "PIN", 2, "64;118", "Steigeisen", ka="Foto",
        tx="Steigeisen 3 und 4 lose", co="#f0a000",
        hrefs=[std("\\\\FILESERVER\\Kanal\\Fotos\\IMG_0416.JPG", "",
                   "Steigeisen Nahaufnahme", mode="2")]),
    obj(4, "TEXT", 2, "15;250;120;262", "Prüfvermerk",
        tx="Geprüft am 07.03.2024 – Dichtheit nicht gegeben", co="#000000"),
)

document(
    "Bestandsplan_Nord.pdf", "Bestandsplan_Nord.ann", "host",
    obj(1, "POLY", 1, "40;60;88;62;131;75;170;71", "Haltung H0812 Wurzeleinwuchs",
        ka="Haltung", tx="Wurzeln an Muffe bei 22 m", co="#1f6fd1",
        hrefs=[std(PDF + "TV-Inspektion_2023.pdf", "14",
                   "TV-Befahrung H0812, Station 22,0 m", zoom="200")]),
    obj(2, "RECT", 1, "168;64;14;14", "Schacht 9 – Kreuzung Mühlenweg",
        ka="Schacht", tx="Anschluss an Hauptsammler", co="#e03c31",
        hrefs=[split(
            target([(ZONES + "BA1_Schacht_S09.pdf", "1"),
                    (ZONES + "BA2_Schacht_S09.pdf", "1"),
                    ("", "")],
                   "Schacht 9 je Bauabschnitt"),
            target([(FOTOS + "IMG_0388.jpg", ""),
                    (FOTOS + "IMG_0391.jpg", "")],
                   "Fotos Schacht 9 vorher/nachher", mode="2"))]),
    obj(3, "PIN", 1, "190;112", "Hausanschluss Mühlenweg 3",
        ka="Hausanschluss", tx="Anschluss verdämmt", co="#2e9e44",
        hrefs=[std(PDF + "P1.PDF", "4", "Bestandsplan Blatt P1")]),
    obj(4, "TEXT", 1, "220;270;290;282", "Blattschnitt", ka="_unbenannt",
        tx="Anschluss an Blatt Süd siehe Übersichtsplan", co="#000000"),
    obj(5, "LINE", 2, "12;44;96;44", "Haltung H0813", ka="Haltung",
        tx="Ohne Befund", co="#1f6fd1",
        hrefs=[std(PDF + "TV-Inspektion_2023.pdf", "17", "TV-Befahrung H0813"),
               std("https://geoportal.musterstadt.example/kanal?haltung=H0813",
                   "", "Geoportal: Haltung H0813", kind="1", mode="2")]),
)

document(
    "Haltungsbericht_H0815.pdf", "Haltungsbericht_H0815.ann", "host",
    obj(1, "LINE", 1, "25;50;185;50", "Haltung H0815 Rohrbruch", ka="Haltung",
        tx="Steinzeug DN 300, Baujahr 1962", co="#1f6fd1",
        hrefs=[std(PDF + "Lageplan_Haltungen.pdf", "1", "Lage im Lageplan"),
               std("c:\\projekte\\musterstadt\\pdf\\schnitt.a-a.pdf", "1",
                   "Schnitt A–A durch Baugrube"),
               std(FOTOS + "IMG_0420.jpg", "", "Rohrbruch bei 12,4 m",
                   mode="2")]),
    obj(2, "RECT", 1, "60;80;50;35", "Schadstelle 12,4 m", ka="Foto",
        tx="Scherbe fehlt, Boden sichtbar", co="#f0a000",
        hrefs=[std(FOTOS + "IMG_0421.jpg", "", "Schadstelle Detail",
                   mode="2")]),
    obj(3, "RECT", 2, "20;30;170;45", "Sanierungsempfehlung", ka="_unbenannt",
        tx="Schlauchliner DN 300, Hutprofil an HA Lindenweg 7", co="#7f3fbf",
        hrefs=[std(PDF + "Sanierungskonzept.pdf", "5",
                   "Sanierungskonzept, Variante A",
                   created="2024-03-11T08:30:00", created_by="j.schaefer")]),
    obj(4, "PIN", 2, "150;210", "Schacht 11 – Ablauf", ka="Schacht",
        tx="Ablauf in Richtung Pumpwerk", co="#e03c31",
        hrefs=[std(PDF + "Schacht_S11.pdf", "", "Schachtprotokoll S11")]),
)

document(
    "Fotodokumentation_Bauabschnitt_2.pdf", "Fotodokumentation_Bauabschnitt_2.ann",
    "host",
    obj(1, "RECT", 1, "15;20;85;60", "Baugrube Lindenweg", ka="Foto",
        tx="Blick nach Süden, Verbau eingebracht", co="#f0a000",
        hrefs=[std(FOTOS + "IMG_0501.jpg", "", "Baugrube Lindenweg",
                   mode="2", created="2024-04-02T10:41:17",
                   created_by="tbaum")]),
    obj(2, "RECT", 1, "110;20;85;60", "Rohrgraben H0815", ka="Foto",
        tx="Altrohr freigelegt", co="#f0a000",
        hrefs=[split(target([(FOTOS + "IMG_0502.jpg", ""),
                             (FOTOS + "IMG_0533.jpg", ""),
                             ("", ""),
                             (FOTOS + "IMG_0560.jpg", "")],
                            "Rohrgraben je Bauphase", mode="2"))]),
    obj(3, "RECT", 1, "15;95;85;60", "Schacht 12 – Zulauf Straße", ka="Schacht",
        tx="Neuer Konus gesetzt", co="#e03c31",
        hrefs=[std(FOTOS + "IMG_0507.jpg", "", "Konus S12", mode="2"),
               std(PDF + "Schacht_S12.pdf", "2", "Schachtprotokoll S12")]),
    obj(4, "RECT", 1, "110;95;85;60", "Hausanschluss Lindenweg 7",
        ka="Hausanschluss", tx="Abzweig 45° eingebaut", co="#2e9e44",
        hrefs=[std(FOTOS + "IMG_0511.jpg", "", "Abzweig HA Lindenweg 7",
                   mode="2")]),
    obj(5, "RECT", 2, "15;20;85;60", "Oberflächenwiederherstellung",
        tx="Asphaltdecke provisorisch", co="#f0a000"),
    obj(6, "TEXT", 2, "15;250;150;262", "Aufnahmedaten", ka="_unbenannt",
        tx="Fotos: T. Baum, April 2024", co="#000000"),
)

document(
    "Ausschreibung_LV.pdf", "Ausschreibung_LV.ann", "loose",
    obj(1, "RECT", 3, "18;40;175;22", "Pos. 01.02.0010 Schlauchliner DN 300",
        ka="Haltung", tx="Menge 64,5 m – Haltung H0815", co="#1f6fd1",
        hrefs=[std(PDF + "Haltung_H0815.pdf", "3", "Haltungsbericht H0815")]),
    obj(2, "RECT", 3, "18;70;175;22", "Pos. 01.03.0020 Schachtsanierung S12",
        ka="Schacht", tx="Beschichtung, Gerinne neu", co="#e03c31",
        hrefs=[std(PDF + "Schacht_S12.pdf", "", "Schachtprotokoll S12"),
               std(FOTOS + "IMG_0412.jpg", "", "Zustand vor Sanierung",
                   mode="2")]),
    obj(3, "TEXT", 1, "18;30;190;60", "Hinweis für Bieter",
        tx="Ortsbesichtigung nach Vereinbarung, Straßensperrung beachten",
        co="#000000"),
    obj(4, "RECT", 4, "18;40;175;22", "Pos. 02.01.0005 Hausanschluss",
        ka="Hausanschluss", tx="Einbindung mit Hutprofil", co="#2e9e44",
        hrefs=[std(PDF + "Hausanschlussplan_Lindenweg.pdf", "1",
                   "Hausanschlussplan Lindenweg")]),
)

document(
    "Schnitt.A-A.pdf", "Schnitt.A-Apdf.ann", "host",
    obj(1, "LINE", 1, "30;120;260;120", "Haltung H0815 Rohrbruch", ka="Haltung",
        tx="Sohle 312,45 m ü. NHN", co="#1f6fd1",
        hrefs=[std(PDF + "Haltung_H0815.pdf", "1", "Haltungsbericht H0815"),
               split(target([(ZONES + "BA1_Schnitt_A-A.pdf", "1"),
                             (ZONES + "BA2_Schnitt_A-A.pdf", "1"),
                             (ZONES + "BA3_Schnitt_A-A.pdf", "2")],
                            "Schnitt je Bauabschnitt"))]),
    obj(2, "RECT", 1, "240;60;20;70", "Schacht 12 – Zulauf Straße", ka="Schacht",
        tx="Schachtunterteil Fertigteil", co="#e03c31",
        hrefs=[std(PDF + "Schacht_S12.PDF", "1", "Schachtprotokoll S12")]),
    obj(3, "TEXT", 1, "30;20;150;32", "Höhenangaben", ka="_unbenannt",
        tx="Höhen in m ü. NHN, Maßstab 1:50", co="#000000"),
    obj(4, "PIN", 1, "180;95", "Grundwasserstand",
        tx="GW bei 313,10 m (Messung 02/2024)", co="#3f7fbf",
        hrefs=[std("\\\\fileserver\\kanal\\Gutachten\\Baugrund_Süd.pdf", "7",
                   "Baugrundgutachten, Grundwasser")]),
)

document(
    "Übersichtsplan_Süd.pdf", "Übersichtsplan_Süd.ann", "host",
    obj(1, "POLY", 1, "50;50;180;45;190;140;55;150",
        "Bauabschnitt 2 – Straße „Am Bügel“", ka="_unbenannt",
        tx="Vollsperrung 15.04.–31.05.2024", co="#7fbf3f",
        hrefs=[std(PDF + "Fotodokumentation_Bauabschnitt_2.pdf", "1",
                   "Fotodokumentation BA 2")]),
    obj(2, "RECT", 1, "120;95;12;12", "Schacht 14 – Übergabe Hauptsammler",
        ka="Schacht", tx="Übergabe an Verbandssammler", co="#e03c31",
        hrefs=[split(
            target([(ZONES + "BA1_Schacht_S14.pdf", "1"),
                    (ZONES + "BA2_Schacht_S14.pdf", "3")],
                   "Schacht 14 je Bauabschnitt"),
            target([(PDF + "Lageplan_Haltungen.pdf", "2"),
                    (PDF + "Übersichtsplan_Süd.pdf", "1")],
                   "Lage Schacht 14"))]),
    obj(3, "LINE", 1, "126;101;210;160", "Haltung H0820", ka="Haltung",
        tx="Abflusshindernis: Ablagerungen", co="#1f6fd1",
        hrefs=[std(PDF + "P1.pdf", "2", "Bestandsplan Blatt P1"),
               std(PDF + "TV-Inspektion_2023.pdf", "31", "TV-Befahrung H0820")]),
    obj(4, "PIN", 1, "150;170", "Hausanschluss Fußweg 2", ka="Hausanschluss",
        tx="Eigentümer informiert", co="#2e9e44",
        hrefs=[std(FOTOS + "IMG_0540.jpg", "", "Anschluss Fußweg 2",
                   mode="2")]),
    obj(5, "TEXT", 1, "220;250;290;280", "Legende",
        tx="rot: Schächte, blau: Haltungen, grün: Hausanschlüsse",
        co="#000000"),
)

document(
    "Sanierungskonzept.pdf", "Sanierungskonzept.ann", "lf",
    obj(1, "RECT", 5, "20;40;170;50", "Variante A – Inliner", ka="Haltung",
        tx="Grabenlos, Bauzeit ca. 3 Wochen", co="#1f6fd1",
        hrefs=[std(PDF + "Haltung_H0815.pdf", "3", "Schadensbild H0815")]),
    obj(2, "RECT", 5, "20;100;170;50", "Variante B – Offene Bauweise",
        ka="Haltung", tx="Vollsperrung Lindenweg erforderlich", co="#1f6fd1",
        hrefs=[split(target([(ZONES + "BA1_Variante_B.pdf", "1"),
                             (ZONES + "BA2_Variante_B.pdf", "1")],
                            "Variante B je Bauabschnitt"))]),
    obj(3, "TEXT", 6, "20;30;190;45", "Kostenschätzung",
        tx="Gesamtkosten rd. 1,2 Mio. € brutto", co="#000000"),
    obj(4, "PIN", 6, "95;140", "Schacht 12 – Zulauf Straße", ka="Schacht",
        tx="Sanierung im Zuge Variante A", co="#e03c31",
        hrefs=[std(PDF + "Schacht_S12.pdf", "", "Schachtprotokoll S12")]),
)

document(
    "Hausanschlussplan_Lindenweg.pdf", "Hausanschlussplan_Lindenweg.ann", "host",
    obj(1, "PIN", 1, "40;80", "Hausanschluss Lindenweg 3", ka="Hausanschluss",
        tx="Anschluss DN 150, dicht", co="#2e9e44",
        hrefs=[std(PDF + "Lageplan_Haltungen.pdf", "1", "Lage im Lageplan")]),
    obj(2, "PIN", 1, "85;82", "Hausanschluss Lindenweg 5", ka="Hausanschluss",
        tx="Wurzeleinwuchs im Abzweig", co="#2e9e44",
        hrefs=[std(FOTOS + "IMG_0430.jpg", "", "Abzweig Lindenweg 5",
                   mode="2"),
               std(PDF + "TV-Inspektion_2023.pdf", "22", "TV-Befahrung HA 5")]),
    obj(3, "PIN", 1, "130;84", "Hausanschluss Lindenweg 7", ka="Hausanschluss",
        tx="Hutprofil vorgesehen", co="#2e9e44",
        hrefs=[std(PDF + "Haltung_H0815.pdf", "4", "Einbindung in H0815")]),
    obj(4, "RECT", 1, "120;95;40;30", "Kontrollschacht Grundstück 7", ka="Foto",
        tx="Deckel überbaut", co="#f0a000",
        hrefs=[std(FOTOS + "IMG_0433.jpg", "", "Kontrollschacht", mode="2")]),
    obj(5, "TEXT", 1, "20;250;160;262", "Eigentümerliste",
        ka="_unbenannt", tx="Stand März 2024, Datenschutz beachten",
        co="#000000"),
)

document(
    "TV-Inspektion_2023.pdf", "TV-Inspektion_2023.ann", "host",
    obj(1, "LINE", 14, "20;60;190;60", "Haltung H0812 Wurzeleinwuchs",
        ka="Haltung", tx="Zustandsklasse 3", co="#1f6fd1",
        hrefs=[std(PDF + "Bestandsplan_Nord.pdf", "1", "Bestandsplan Nord")]),
    obj(2, "LINE", 9, "20;60;190;60", "Haltung H0815 Rohrbruch", ka="Haltung",
        tx="Zustandsklasse 0 – Sofortmaßnahme", co="#1f6fd1",
        hrefs=[std(PDF + "Haltung_H0815.pdf", "1", "Haltungsbericht H0815"),
               std("\\\\fileserver\\kanal\\TV\\H0815_Befahrung.mp4", "",
                   "Video der Befahrung", mode="2")]),
    obj(3, "RECT", 9, "150;20;45;30", "Schacht 11 – Ablauf", ka="Schacht",
        tx="Startschacht der Befahrung", co="#e03c31",
        hrefs=[std(PDF + "Schacht_S11.pdf", "", "Schachtprotokoll S11")]),
    obj(4, "TEXT", 1, "20;30;190;45", "Befahrungsvermerk",
        tx="Befahrung 14.11.2023, Kamera mit Schwenkkopf", co="#000000"),
)

document(
    "Bauzeitenplan.pdf", "Bauzeitenplan.ann", "host",
    obj(1, "RECT", 1, "60;40;90;10", "Bauabschnitt 1", ka="_unbenannt",
        tx="KW 12–15", co="#7fbf3f",
        hrefs=[split(target([(PDF + "Lageplan_Haltungen.pdf", "1"),
                             (PDF + "Bestandsplan_Nord.pdf", "1")],
                            "Pläne Bauabschnitt 1"))]),
    obj(2, "RECT", 1, "150;55;110;10", "Bauabschnitt 2", ka="_unbenannt",
        tx="KW 16–22", co="#7fbf3f",
        hrefs=[std(PDF + "Übersichtsplan_Süd.pdf", "1", "Übersichtsplan Süd"),
               std("bauleitung@musterstadt.example", "", "Bauleitung",
                   kind="3", mode="2")]),
    obj(3, "TEXT", 1, "20;180;200;195", "Terminhinweis",
        tx="Abnahme Haltung H0815 voraussichtlich KW 20", co="#000000"),
)

# A copy of an earlier plan that no node files any more: its annotations
# stay behind in the data folder until someone moves them aside.
document(
    "Lageplan_Haltungen_alt.pdf", "Lageplan_Haltungen_alt.ann", "host",
    obj(1, "RECT", 1, "118;86;40;25", "Schacht 12", ka="Schacht",
        tx="Stand 2019", co="#e03c31",
        hrefs=[std(PDF + "Schacht_S12.pdf", "1", "Schachtprotokoll S12")]),
    obj(2, "LINE", 1, "160;100;240;133", "Haltung H0815", ka="Haltung",
        co="#1f6fd1"),
    obj(3, "TEXT", 1, "20;260;110;275", "Planvermerk", ka="_unbenannt",
        tx="Bestand nach Kanalkataster 2012", co="#000000"),
)

# The sewer cadastre, annotated on an office machine that had the old file
# server mounted at /mnt/kanal-alt: its links are POSIX paths. The server is
# gone; its documents now lie under ../ablage/kanal (the new share, all
# lower case), some renamed in case, one in two places, one lost.
OLD_SHARE = "/mnt/kanal-alt/"
document(
    "Kanalkataster_Nord.pdf", "Kanalkataster_Nord.ann", "host",
    obj(1, "LINE", 1, "160;100;240;133", "Haltung H0815", ka="Haltung",
        co="#1f6fd1",
        hrefs=[std(OLD_SHARE + "Haltungen/H0815_Befahrung.pdf", "1", "Befahrung H0815"),
               std(OLD_SHARE + "Gutachten/Bodengutachten_2011.pdf", "4", "Bodengutachten")]),
    obj(2, "LINE", 1, "240;133;310;150", "Haltung H0816", ka="Haltung",
        co="#1f6fd1",
        hrefs=[std(OLD_SHARE + "Haltungen/H0816_Befahrung.pdf", "1", "Befahrung H0816")]),
    obj(3, "RECT", 1, "118;86;40;25", "Schacht 12", ka="Schacht",
        co="#e03c31",
        hrefs=[std(OLD_SHARE + "Schaechte/S12_Protokoll.pdf", "1", "Schachtprotokoll S12"),
               std(OLD_SHARE + "Schaechte/Lageskizze.pdf", "1", "Lageskizze")]),
    obj(4, "RECT", 1, "60;40;90;10", "Kataster Nord", ka="_unbenannt",
        hrefs=[split(target([(OLD_SHARE + "Plaene/Kataster_Nord_BA1.pdf", "1"),
                             (OLD_SHARE + "Plaene/Kataster_Nord_BA2.pdf", "1")],
                            "Kataster je Bauabschnitt"))]),
)

# Where the documents of the old server went (relative to sample/).
NEW_SHARE = [
    "ablage/kanal/haltungen/h0815_befahrung.pdf",
    "ablage/kanal/haltungen/h0816_befahrung.pdf",
    "ablage/kanal/schaechte/s11/lageskizze.pdf",
    "ablage/kanal/schaechte/s12/lageskizze.pdf",
    "ablage/kanal/schaechte/s12/s12_protokoll.pdf",
    "ablage/kanal/plaene/kataster_nord_ba1.pdf",
    "ablage/kanal/plaene/kataster_nord_ba2.pdf",
]


def placeholder_pdf(title):
    """A one-page PDF that viewers open, with `title` as its only text."""
    content = "BT /F1 18 Tf 72 720 Td (%s) Tj ET" % title
    objects = [
        "<< /Type /Catalog /Pages 2 0 R >>",
        "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Contents 4 0 R "
        "/Resources << /Font << /F1 5 0 R >> >> >>",
        "<< /Length %d >>\nstream\n%s\nendstream" % (len(content), content),
        "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>",
    ]
    out = "%PDF-1.4\n"
    offsets = []
    for i, body in enumerate(objects, 1):
        offsets.append(len(out))
        out += "%d 0 obj\n%s\nendobj\n" % (i, body)
    xref = len(out)
    out += "xref\n0 %d\n0000000000 65535 f \n" % (len(objects) + 1)
    out += "".join("%010d 00000 n \n" % o for o in offsets)
    out += "trailer\n<< /Size %d /Root 1 0 R >>\nstartxref\n%d\n%%%%EOF\n" % (len(objects) + 1, xref)
    return out


PATH_MAP = [
    # Read as an entry like any other line; no link has this path.
    ("Dateipfad Alt", "Dateipfad Neu"),
    (PDF + "Schacht_S12.pdf", ARCHIV + "Schacht_S12.pdf"),
    ("c:\\projekte\\musterstadt\\pdf\\p1.pdf", ARCHIV + "Bestand\\P1.pdf"),
    ("C:\\PROJEKTE\\MUSTERSTADT\\PDF\\HALTUNG_H0815.PDF", ARCHIV + "Haltung_H0815.pdf"),
    (PDF + "Schnitt.A-A.pdf", ARCHIV + "Schnitte\\Schnitt.A-A.pdf"),
    (ZONES + "BA1_Schacht_S09.pdf", ARCHIV + "Zonen\\BA1_Schacht_S09.pdf"),
    (PDF + "Lageplan_Haltungen.pdf", ARCHIV + "Lageplan_Haltungen.pdf"),
]


# The project's node tree as the host describes it (docs/project-format.md):
# documents per zone with their full paths, and pins set by hand on pages.
# "Lageplan_Haltungen_alt.pdf" is filed under no node, so its annotation
# file shows up as unused in the analysis.
PROJECT_DESCRIPTION = {
    "Version": 1,
    "Id": "MS-KS-2024",
    "Name": "Musterstadt Kanalsanierung",
    "Zones": ["Bestand", "Bauabschnitt 1", "Bauabschnitt 2", "Variante B"],
    "GeoSystem": "EPSG:25832",
    # In ETRS89 / UTM 32N, where the sheets and buildings of GIS/ land once
    # converted from Gauss-Krueger zone 3.
    "Areas": {
        "Baufeld West": [[499900, 5398250], [500500, 5398250], [500500, 5398600], [499900, 5398600]],
    },
    "Nodes": [
        {"Id": 1, "Name": "Kanalsanierung Musterstadt", "Zone": 1,
         "Documents": {"1": [PDF + "Übersichtsplan_Süd.pdf", PDF + "Bauzeitenplan.pdf",
                             PDF + "Ausschreibung_LV.pdf", PDF + "Sanierungskonzept.pdf"]}},
        {"Id": 2, "Name": "Bauabschnitt 1", "Parent": 1, "Zone": 1,
         "Documents": {"1": [PDF + "Lageplan_Haltungen.pdf", PDF + "Bestandsplan_Nord.pdf"]}},
        {"Id": 3, "Name": "Haltung H0815", "Parent": 2, "Zone": 1,
         "Documents": {"1": [PDF + "Haltung_H0815.pdf", PDF + "Haltungsbericht_H0815.pdf",
                             PDF + "TV-Inspektion_2023.pdf"],
                       "2": [ZONES + "BA1_H0815.pdf"],
                       "3": [ZONES + "BA2_H0815.pdf"]}},
        {"Id": 4, "Name": "Schacht S12", "Parent": 2, "Zone": 1,
         "Documents": {"1": [PDF + "Schacht_S12.pdf", PDF + "Schachtprotokoll_S12.pdf",
                             PDF + "Schnitt.A-A.pdf"],
                       "2": [ZONES + "BA1_Schacht_S12.pdf", ZONES + "BA1_Schachtprotokoll_S12.pdf",
                             ZONES + "BA1_Schnitt_A-A.pdf"],
                       "3": [ZONES + "BA2_Schacht_S12.pdf"]}},
        {"Id": 5, "Name": "Schacht S11", "Parent": 2, "Zone": 1,
         "Documents": {"1": [PDF + "Schacht_S11.pdf"]}},
        {"Id": 6, "Name": "Bauabschnitt 2", "Parent": 1, "Zone": 3,
         "Documents": {"1": [PDF + "Fotodokumentation_Bauabschnitt_2.pdf",
                             PDF + "Hausanschlussplan_Lindenweg.pdf"]}},
        {"Id": 7, "Name": "Hausanschluss Lindenweg 7", "Parent": 6, "Zone": 1,
         "Documents": {"1": [PDF + "Hausanschlussplan_Lindenweg.pdf"]}},
        {"Id": 8, "Name": "Kanalkataster", "Parent": 1, "Zone": 1,
         "Documents": {"1": [PDF + "Kanalkataster_Nord.pdf"]}},
    ],
    "Pins": {
        PDF + "Lageplan_Haltungen.pdf": {
            "1": [{"Id": 501, "X": 142.5, "Y": 88.25, "Label": "Eigentümer Lindenweg 7",
                   "Participant": 12, "Note": "Zufahrt während der Bauzeit klären"},
                  {"Id": 502, "X": 61, "Y": 120.75, "Label": "Stadtwerke Musterstadt – Gas",
                   "Participant": 3}]},
        PDF + "Hausanschlussplan_Lindenweg.pdf": {
            "1": [{"Id": 511, "X": 40.5, "Y": 52, "Label": "Eigentümer Lindenweg 3", "Participant": 10},
                  {"Id": 512, "X": 88, "Y": 52, "Label": "Eigentümer Lindenweg 5", "Participant": 11,
                   "Note": "Keller unter Straßenniveau"}],
            "2": [{"Id": 513, "X": 120.25, "Y": 74.5, "Label": "Telekom – Kabeltrasse", "Participant": 4}]},
    },
    "Tables": [
        {"Id": 1, "Name": "Eigentümerliste Lindenweg", "Columns": ["Flurstück", "Eigentümer", "Anschrift"]},
        {"Id": 2, "Name": "Schachtliste", "Columns": ["Schacht", "Deckelhöhe", "Sohlhöhe"]},
    ],
    "Participants": [
        {"Id": 3, "Name": "Stadtwerke Musterstadt – Gas", "Organisation": "Stadtwerke Musterstadt GmbH"},
        {"Id": 4, "Name": "Telekom – Kabeltrasse", "Organisation": "Telekom Technik GmbH"},
        {"Id": 10, "Name": "Eigentümer Lindenweg 3", "Organisation": ""},
        {"Id": 11, "Name": "Eigentümer Lindenweg 5", "Organisation": ""},
        {"Id": 12, "Name": "Eigentümer Lindenweg 7", "Organisation": ""},
    ],
    "Galleries": [
        {"Id": 1, "Name": "Baustellenfotos Bauabschnitt 2", "Folder": "Fotos/BA2"},
    ],
}


def ann_text(doc, blocks, style):
    lines = ["ANN=2", "DOC=" + doc]
    for i, block in enumerate(blocks):
        if style == "loose" and i > 0:
            lines.append("")
        lines += ["BO"] + block + ["EO"]
    if style == "lf":
        return "\n".join(lines) + "\n"
    text = "\r\n".join(lines)
    return text + "\r\n" if style == "loose" else text


def write(path, text):
    with open(path, "wb") as f:
        f.write(text.encode("utf-8"))


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--out", default=os.path.normpath(os.path.join(here, os.pardir, "sample")))
    args = parser.parse_args()

    root = os.path.join(args.out, PROJECT)
    data = os.path.join(root, "Daten")
    # Start clean so a renamed document does not leave its old file behind.
    if os.path.isdir(root):
        shutil.rmtree(root)
    os.makedirs(data)

    for doc, ann, style, blocks in DOCUMENTS:
        assert 3 <= len(blocks) <= 8, ann
        write(os.path.join(data, ann), ann_text(doc, blocks, style))
    write(os.path.join(root, "Projekt.json"),
          json.dumps(PROJECT_DESCRIPTION, ensure_ascii=False, indent=2) + "\n")
    write(os.path.join(root, "Pfadumsetzung.csv"),
          "".join("%s,%s\r\n" % pair for pair in PATH_MAP))
    # Sheet frames and buildings in Gauss-Krueger zone 3, as surveyors
    # deliver them, for the shape import; the test fixtures are the source.
    gis = os.path.join(root, "GIS")
    os.makedirs(gis)
    fixtures = os.path.join(here, os.pardir, "tests", "shapeimport", "data")
    for name in ("sheets", "buildings"):
        for suffix in (".shp", ".shx", ".dbf", ".prj", ".cpg"):
            source = os.path.join(fixtures, name + suffix)
            if os.path.exists(source):
                shutil.copyfile(source, os.path.join(gis, {"sheets": "Blattschnitte", "buildings": "Gebaeude"}[name] + suffix))
    # The sheet frames of the sewer route as a CAD drawing, for the DXF workbench.
    cad = os.path.join(root, "CAD")
    os.makedirs(cad)
    shutil.copyfile(os.path.join(here, os.pardir, "tests", "dxf", "data", "route.dxf"),
                    os.path.join(cad, "Blattschnitte.dxf"))
    share = os.path.join(args.out, "ablage")
    if os.path.isdir(share):
        shutil.rmtree(share)
    for relative in NEW_SHARE:
        path = os.path.join(args.out, relative)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        write(path, placeholder_pdf(os.path.basename(relative)))
    print("wrote %d annotation files to %s" % (len(DOCUMENTS), data))


if __name__ == "__main__":
    main()
