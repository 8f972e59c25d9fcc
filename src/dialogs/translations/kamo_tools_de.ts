<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AnnotationFileProcessor</name>
    <message>
        <source>%1: could not be read (%2)</source>
        <translation>%1: konnte nicht gelesen werden (%2)</translation>
    </message>
    <message>
        <source>%1: not valid UTF-8, left unchanged</source>
        <translation>%1: kein gültiges UTF-8, unverändert gelassen</translation>
    </message>
    <message>
        <source>%1: could not be written (%2), left unchanged</source>
        <translation>%1: konnte nicht geschrieben werden (%2), unverändert gelassen</translation>
    </message>
</context>
<context>
    <name>DlgAnalyzeProject</name>
    <message>
        <source>Projektanalyse</source>
        <translation>Projektanalyse</translation>
    </message>
    <message>
        <source>Per Knoten referenzierte Dateien</source>
        <translation>Per Knoten referenzierte Dateien</translation>
    </message>
    <message>
        <source>Dokumentendatei</source>
        <translation>Dokumentendatei</translation>
    </message>
    <message>
        <source>Verknüpfungsdatei</source>
        <translation>Verknüpfungsdatei</translation>
    </message>
    <message>
        <source>Genutzte Verknüpfungs-Dateien</source>
        <translation>Genutzte Verknüpfungs-Dateien</translation>
    </message>
    <message>
        <source>Datei</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Ungenutzte Verknüpfungs-Dateien</source>
        <translation>Ungenutzte Verknüpfungs-Dateien</translation>
    </message>
    <message>
        <source>Operationen</source>
        <translation>Operationen</translation>
    </message>
    <message>
        <source>Dateien verschieben</source>
        <translation>Dateien verschieben</translation>
    </message>
    <message>
        <source>Zielverzeichnis</source>
        <translation>Zielverzeichnis</translation>
    </message>
</context>
<context>
    <name>DlgNodeTools</name>
    <message>
        <source>Werkzeuge</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Projekt</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Bezeichnung</source>
        <translation>Bezeichnung</translation>
    </message>
    <message>
        <source>Daten-Ordner</source>
        <translation>Daten-Ordner</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Optionen</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Sicherung anlegen</source>
        <translation>Sicherung anlegen</translation>
    </message>
    <message>
        <source>Funktionsauswahl</source>
        <translation>Funktionsauswahl</translation>
    </message>
    <message>
        <source>Funktion</source>
        <translation>Funktion</translation>
    </message>
    <message>
        <source>Bezeichnungen abgleichen</source>
        <translation>Bezeichnungen abgleichen</translation>
    </message>
    <message>
        <source>HREF: In Objekten entfernen</source>
        <translation>HREF: In Objekten entfernen</translation>
    </message>
    <message>
        <source>HREF: In Objekten duplizieren/umlenken</source>
        <translation>HREF: In Objekten duplizieren/umlenken</translation>
    </message>
    <message>
        <source>HREF: Typänderung Standard -&gt; Split</source>
        <translation>HREF: Typänderung Standard -&gt; Split</translation>
    </message>
    <message>
        <source>Betroffenheiten: Morwick-Verfahren</source>
        <translation>Betroffenheiten: Morwick-Verfahren</translation>
    </message>
    <message>
        <source>HREF: Pfad ändern</source>
        <translation>HREF: Pfad ändern</translation>
    </message>
    <message>
        <source>Verknüpfung: Eigenschaften setzen</source>
        <translation>Verknüpfung: Eigenschaften setzen</translation>
    </message>
    <message>
        <source>Analyse</source>
        <translation>Analyse</translation>
    </message>
    <message>
        <source>HREF: Typänderung Split -&gt; Standard</source>
        <translation>HREF: Typänderung Split -&gt; Standard</translation>
    </message>
    <message>
        <source>Verknüpfungen: Ziel anpassen</source>
        <translation>Verknüpfungen: Ziel anpassen</translation>
    </message>
    <message>
        <source>Verknüpfungen: Seitenzahl anpassen</source>
        <translation>Verknüpfungen: Seitenzahl anpassen</translation>
    </message>
    <message>
        <source>Knotenauswahl</source>
        <translation>Knotenauswahl</translation>
    </message>
    <message>
        <source>Alle auswählen</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>Auswahl aufheben</source>
        <translation>Auswahl aufheben</translation>
    </message>
    <message>
        <source>Filter: Verknüpfungen</source>
        <translation>Filter: Verknüpfungen</translation>
    </message>
    <message>
        <source>Filter nach Kategorie</source>
        <translation>Filter nach Kategorie</translation>
    </message>
    <message>
        <source>Kategorie</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>_unbenannt</source>
        <translation>_unbenannt</translation>
    </message>
    <message>
        <source>Filter nach Name</source>
        <translation>Filter nach Name</translation>
    </message>
    <message>
        <source>Regulärer Ausdruck</source>
        <translation>Regulärer Ausdruck</translation>
    </message>
    <message>
        <source>Optionen: Bezeichnungen abgleichen</source>
        <translation>Optionen: Bezeichnungen abgleichen</translation>
    </message>
    <message>
        <source>Vergleichsoptionen</source>
        <translation>Vergleichsoptionen</translation>
    </message>
    <message>
        <source>Nur Dateinamen vergleichen (Pfad ignorieren)</source>
        <translation>Nur Dateinamen vergleichen (Pfad ignorieren)</translation>
    </message>
    <message>
        <source>Optionen: HREF Duplizieren</source>
        <translation>Optionen: HREF Duplizieren</translation>
    </message>
    <message>
        <source>Duplizierte HREF-Zeile</source>
        <translation>Duplizierte HREF-Zeile</translation>
    </message>
    <message>
        <source>Neues Ziel</source>
        <translation>Neues Ziel</translation>
    </message>
    <message>
        <source>Bitte geben Sier hier den kompletten Pfad zur Datei an</source>
        <translation>Bitte geben Sier hier den kompletten Pfad zur Datei an</translation>
    </message>
    <message>
        <source>Optionen: HREF Pfad umsetzen</source>
        <translation>Optionen: HREF Pfad umsetzen</translation>
    </message>
    <message>
        <source>Umsetzungsdatei</source>
        <translation>Umsetzungsdatei</translation>
    </message>
    <message>
        <source>Datei</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Wählen Sie eine Datei mit einer Umsetzungstabelle aus. 

Format:
Dateipfad Alt,Dateipfad Neu[CRLF]

Beispiel:
C:\A1\PDF\P1.PDF,C:\B1\PDF\P1.PDF
C:\A1\PDF\P2.PDF,C:\B1\PDF\P2.PDF</source>
        <translation>Wählen Sie eine Datei mit einer Umsetzungstabelle aus. 

Format:
Dateipfad Alt,Dateipfad Neu[CRLF]

Beispiel:
C:\A1\PDF\P1.PDF,C:\B1\PDF\P1.PDF
C:\A1\PDF\P2.PDF,C:\B1\PDF\P2.PDF</translation>
    </message>
    <message>
        <source>Vorschau</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Dateipfad Alt</source>
        <translation>Dateipfad Alt</translation>
    </message>
    <message>
        <source>Dateipfad Neu</source>
        <translation>Dateipfad Neu</translation>
    </message>
    <message>
        <source>Verknüpfungen: Eigenschaften setzen</source>
        <translation>Verknüpfungen: Eigenschaften setzen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Abmessungen</source>
        <translation>Abmessungen</translation>
    </message>
    <message>
        <source>Abstand Links</source>
        <translation>Abstand Links</translation>
    </message>
    <message>
        <source>Breite</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Höhe</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Aus anderer Verknüpfung (Nur Rechtecke!) übernehmen</source>
        <translation>Aus anderer Verknüpfung (Nur Rechtecke!) übernehmen</translation>
    </message>
    <message>
        <source>Nach oben anpassen</source>
        <translation>Nach oben anpassen</translation>
    </message>
    <message>
        <source>Verknüpfungen: Typ ändern</source>
        <translation>Verknüpfungen: Typ ändern</translation>
    </message>
    <message>
        <source>Eigenschaften</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Zielzone</source>
        <translation>Zielzone</translation>
    </message>
    <message>
        <source>Zone 1</source>
        <translation>Zone 1</translation>
    </message>
    <message>
        <source>Zone 2</source>
        <translation>Zone 2</translation>
    </message>
    <message>
        <source>Zone 3</source>
        <translation>Zone 3</translation>
    </message>
    <message>
        <source>Zone 4</source>
        <translation>Zone 4</translation>
    </message>
    <message>
        <source>Zielfilter</source>
        <translation>Zielfilter</translation>
    </message>
    <message>
        <source>Zielindex</source>
        <translation>Zielindex</translation>
    </message>
    <message>
        <source>0</source>
        <translation>0</translation>
    </message>
    <message>
        <source>ZIeleigenschaften</source>
        <translation>ZIeleigenschaften</translation>
    </message>
    <message>
        <source>Umgebungsfaktor</source>
        <translation>Umgebungsfaktor</translation>
    </message>
    <message>
        <source>1.0</source>
        <translation>1.0</translation>
    </message>
    <message>
        <source>Verknüpfungen: Seitennummer anpassen</source>
        <translation>Verknüpfungen: Seitennummer anpassen</translation>
    </message>
    <message>
        <source>Seitennummer</source>
        <translation>Seitennummer</translation>
    </message>
    <message>
        <source>Relative Änderung</source>
        <translation>Relative Änderung</translation>
    </message>
    <message>
        <source>Basisdaten-Verzeichnis</source>
        <translation>Basisdaten-Verzeichnis</translation>
    </message>
    <message>
        <source>Select new Link Target</source>
        <translation>Neues Verknüpfungsziel wählen</translation>
    </message>
    <message>
        <source>Select map file</source>
        <translation>Umsetzungsdatei wählen</translation>
    </message>
</context>
<context>
    <name>FieldAssignmentFile</name>
    <message>
        <source>The file cannot be opened</source>
        <translation>Die Datei kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>The file is empty</source>
        <translation>Die Datei ist leer</translation>
    </message>
    <message>
        <source>The file holds no field assignments (not JSON)</source>
        <translation>Die Datei enthält keine Feldzuordnungen (kein JSON)</translation>
    </message>
    <message>
        <source>The file was written by a newer version</source>
        <translation>Die Datei stammt von einer neueren Version</translation>
    </message>
    <message>
        <source>The file assigns no field</source>
        <translation>Die Datei ordnet kein Feld zu</translation>
    </message>
</context>
<context>
    <name>ShapeFieldImport</name>
    <message>
        <source>Id</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>DistrictNumber</source>
        <translation>Gemarkungsnummer</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Owner-Street</source>
        <translation>Eigentümer-Straße</translation>
    </message>
    <message>
        <source>Owner-Housenumber</source>
        <translation>Eigentümer-Hausnummer</translation>
    </message>
    <message>
        <source>Owner-Housenumber-Add</source>
        <translation>Eigentümer-Hausnummer mit Zusatz</translation>
    </message>
    <message>
        <source>Owner-ZipCode</source>
        <translation>Eigentümer-PLZ</translation>
    </message>
    <message>
        <source>Owner-Town</source>
        <translation>Eigentümer-Ort</translation>
    </message>
    <message>
        <source>Building-Street</source>
        <translation>Gebäude-Straße</translation>
    </message>
    <message>
        <source>Building-HouseNumber</source>
        <translation>Gebäude-Hausnummer</translation>
    </message>
    <message>
        <source>Building-ZipCode</source>
        <translation>Gebäude-PLZ</translation>
    </message>
    <message>
        <source>Building-Town</source>
        <translation>Gebäude-Ort</translation>
    </message>
    <message>
        <source>Building-District</source>
        <translation>Gebäude-Ortsteil</translation>
    </message>
    <message>
        <source>DistrictPieceNumber</source>
        <translation>Flurstückskennzeichen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Variant</source>
        <translation>Variante</translation>
    </message>
    <message>
        <source>SheetNr</source>
        <translation>Blattnummer</translation>
    </message>
    <message>
        <source>SheetNr2</source>
        <translation>Blattnummer 2</translation>
    </message>
    <message>
        <source>SheetScale</source>
        <translation>Maßstab</translation>
    </message>
</context>
<context>
    <name>ShapeFileImporter</name>
    <message>
        <source>Error opening shape file</source>
        <translation>Fehler beim Öffnen der Shape-Datei</translation>
    </message>
    <message>
        <source>Object %1 left out: %2</source>
        <translation>Objekt %1 ausgelassen: %2</translation>
    </message>
</context>
</TS>
