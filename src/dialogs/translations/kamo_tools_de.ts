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
    <message>
        <source>%1: is a link to a missing file, left unchanged</source>
        <translation>%1: ist eine Verknüpfung auf eine fehlende Datei, unverändert gelassen</translation>
    </message>
    <message>
        <source>%1: disappeared during the run</source>
        <translation>%1: ist während des Laufs verschwunden</translation>
    </message>
    <message>
        <source>%1: is a folder, left unchanged</source>
        <translation>%1: ist ein Ordner, unverändert gelassen</translation>
    </message>
    <message>
        <source>%1: could not be opened (%2), left unchanged</source>
        <translation>%1: konnte nicht geöffnet werden (%2), unverändert gelassen</translation>
    </message>
    <message>
        <source>%1: the object from line %2 is not closed: its %3 lines to the end of the file are dropped</source>
        <translation>%1: Objekt ab Zeile %2 nicht abgeschlossen: seine %3 Zeilen bis zum Dateiende entfallen</translation>
    </message>
</context>
<context>
    <name>AttributeTableModel</name>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Integer</source>
        <translation>Ganzzahl</translation>
    </message>
    <message>
        <source>Decimal number</source>
        <translation>Dezimalzahl</translation>
    </message>
    <message>
        <source>Yes/No</source>
        <translation>Ja/Nein</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Unknown type</source>
        <translation>Unbekannter Typ</translation>
    </message>
    <message>
        <source>%1, width %2, %3 decimals</source>
        <translation>%1, Breite %2, %3 Nachkommastellen</translation>
    </message>
    <message>
        <source>%1, width %2</source>
        <translation>%1, Breite %2</translation>
    </message>
</context>
<context>
    <name>BackupManifest</name>
    <message>
        <source>not a backup manifest</source>
        <translation>kein Manifest einer Sicherung</translation>
    </message>
    <message>
        <source>the end line does not match the %1 files listed</source>
        <translation>die Schlusszeile passt nicht zu den %1 aufgeführten Dateien</translation>
    </message>
    <message>
        <source>line %1 cannot be read</source>
        <translation>Zeile %1 ist nicht lesbar</translation>
    </message>
    <message>
        <source>the backup was not finished</source>
        <translation>die Sicherung wurde nicht abgeschlossen</translation>
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
    <name>DlgDxfTools</name>
    <message>
        <source>DXF Workbench</source>
        <translation>DXF-Werkbank</translation>
    </message>
    <message>
        <source>DXF &amp;file:</source>
        <translation>DXF-&amp;Datei:</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>No drawing loaded</source>
        <translation>Keine Zeichnung geladen</translation>
    </message>
    <message>
        <source>Inserts</source>
        <translation>Blockreferenzen</translation>
    </message>
    <message>
        <source>#</source>
        <translation>#</translation>
    </message>
    <message>
        <source>Block</source>
        <translation>Block</translation>
    </message>
    <message>
        <source>Sheet number</source>
        <translation>Blattnummer</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Layer</translation>
    </message>
    <message>
        <source>Corners</source>
        <translation>Ecken</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Block &amp;filter:</source>
        <translation>Block&amp;filter:</translation>
    </message>
    <message>
        <source>Regular expression on the block name</source>
        <translation>Regulärer Ausdruck auf den Blocknamen</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Anwenden</translation>
    </message>
    <message>
        <source>Use the inserts whose block name matches, leave out the others</source>
        <translation>Die Blockreferenzen mit passendem Blocknamen verwenden, die übrigen auslassen</translation>
    </message>
    <message>
        <source>A&amp;ll</source>
        <translation>A&amp;lle</translation>
    </message>
    <message>
        <source>Use every insert</source>
        <translation>Alle Blockreferenzen verwenden</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Keine</translation>
    </message>
    <message>
        <source>Leave out every insert</source>
        <translation>Alle Blockreferenzen auslassen</translation>
    </message>
    <message>
        <source>Vertices</source>
        <translation>Stützpunkte</translation>
    </message>
    <message>
        <source>Vertex</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Ecke</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>&amp;Dump DXF</source>
        <translation>DXF a&amp;uflisten</translation>
    </message>
    <message>
        <source>List the layers, blocks and entities of the file in the output</source>
        <translation>Layer, Blöcke und Objekte der Datei in der Ausgabe auflisten</translation>
    </message>
    <message>
        <source>&amp;Correct Vertex Positions</source>
        <translation>Eckpositionen &amp;korrigieren</translation>
    </message>
    <message>
        <source>Label the frame corners of the used inserts along their route</source>
        <translation>Die Rahmenecken der verwendeten Blockreferenzen entlang ihrer Trasse benennen</translation>
    </message>
    <message>
        <source>&amp;Export to Kamo as GK2…</source>
        <translation>Als GK2 nach Kamo &amp;exportieren…</translation>
    </message>
    <message>
        <source>Write the labelled corners of the used inserts with a sheet number</source>
        <translation>Die benannten Ecken der verwendeten Blockreferenzen mit Blattnummer schreiben</translation>
    </message>
    <message>
        <source>Clear o&amp;utput</source>
        <translation>Ausgabe &amp;leeren</translation>
    </message>
    <message>
        <source>Opened %1: %2 layers, %3 blocks, %4 inserts</source>
        <translation>%1 geöffnet: %2 Layer, %3 Blöcke, %4 Blockreferenzen</translation>
    </message>
    <message>
        <source>Correction completed - Inserts labelled: %1</source>
        <translation>Korrektur abgeschlossen - Blockreferenzen benannt: %1</translation>
    </message>
    <message>
        <source>Export completed - Inserts written: %1</source>
        <translation>Export abgeschlossen - Blockreferenzen geschrieben: %1</translation>
    </message>
    <message>
        <source>No corner was labelled, so only the sheet numbers were written: run the correction first</source>
        <translation>Keine Ecke war benannt, daher wurden nur die Blattnummern geschrieben: zuerst die Korrektur ausführen</translation>
    </message>
    <message>
        <source>Open DXF Drawing</source>
        <translation>DXF-Zeichnung öffnen</translation>
    </message>
    <message>
        <source>DXF drawings (*.dxf *.DXF);;All files (*)</source>
        <translation>DXF-Zeichnungen (*.dxf *.DXF);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Export to Kamo as GK2</source>
        <translation>Als GK2 nach Kamo exportieren</translation>
    </message>
    <message>
        <source>GK2 files (*.gk2);;All files (*)</source>
        <translation>GK2-Dateien (*.gk2);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>The drawing defines no block of this name</source>
        <translation>Die Zeichnung enthält keinen Block dieses Namens</translation>
    </message>
    <message>
        <source>%1 layers, %2 blocks, %3 inserts, %4 of them used</source>
        <translation>%1 Layer, %2 Blöcke, %3 Blockreferenzen, davon %4 verwendet</translation>
    </message>
    <message>
        <source>Vertices of block %1</source>
        <translation>Stützpunkte des Blocks %1</translation>
    </message>
    <message>
        <source>The block holds no polyline</source>
        <translation>Der Block enthält keine Polylinie</translation>
    </message>
    <message>
        <source>Polyline %1 (vertices: %2)</source>
        <translation>Polylinie %1 (Stützpunkte: %2)</translation>
    </message>
    <message>
        <source>&amp;Stop Dump</source>
        <translation>Auflisten &amp;anhalten</translation>
    </message>
    <message>
        <source>Dump stopped</source>
        <translation>Auflisten angehalten</translation>
    </message>
    <message>
        <source>Map</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>Fi&amp;t All</source>
        <translation>Alles &amp;zeigen</translation>
    </message>
    <message>
        <source>Show every sheet frame of the drawing</source>
        <translation>Alle Blattrahmen der Zeichnung zeigen</translation>
    </message>
</context>
<context>
    <name>DlgLinkCheck</name>
    <message>
        <source>Pfadzuordnung vorschlagen</source>
        <translation>Pfadzuordnung vorschlagen</translation>
    </message>
    <message>
        <source>Linkziel</source>
        <translation>Linkziel</translation>
    </message>
    <message>
        <source>Verweise</source>
        <translation>Verweise</translation>
    </message>
    <message>
        <source>Vorschlag</source>
        <translation>Vorschlag</translation>
    </message>
    <message>
        <source>Umsetzungsdatei</source>
        <translation>Umsetzungsdatei</translation>
    </message>
    <message>
        <source>Speichern unter</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Komma oder Zeilenumbruch im Pfad, in der Umsetzungsdatei nicht darstellbar</source>
        <translation>Komma oder Zeilenumbruch im Pfad, in der Umsetzungsdatei nicht darstellbar</translation>
    </message>
    <message>
        <source>Ordner fehlt, keine Datei des Namens gefunden</source>
        <translation>Ordner fehlt, keine Datei des Namens gefunden</translation>
    </message>
    <message>
        <source>Windows-Pfad, auf diesem System nicht vorhanden; keine Datei des Namens gefunden</source>
        <translation>Windows-Pfad, auf diesem System nicht vorhanden; keine Datei des Namens gefunden</translation>
    </message>
    <message>
        <source>relativer Pfad, nicht prüfbar; keine Datei des Namens gefunden</source>
        <translation>relativer Pfad, nicht prüfbar; keine Datei des Namens gefunden</translation>
    </message>
    <message>
        <source>Datei fehlt, keine Datei des Namens gefunden</source>
        <translation>Datei fehlt, keine Datei des Namens gefunden</translation>
    </message>
    <message>
        <source>Speichern</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1 Linkziele mit %2 Verweisen geprüft.</source>
        <translation>%1 Linkziele mit %2 Verweisen geprüft.</translation>
    </message>
    <message>
        <source>Alle Linkziele sind vorhanden.</source>
        <translation>Alle Linkziele sind vorhanden.</translation>
    </message>
    <message>
        <source>Es fehlen %1: %2 vorgeschlagen, %3 mehrdeutig, %4 nicht gefunden.</source>
        <translation>Es fehlen %1: %2 vorgeschlagen, %3 mehrdeutig, %4 nicht gefunden.</translation>
    </message>
    <message>
        <source>%1 Anmerkungsdateien nicht gelesen.</source>
        <translation>%1 Anmerkungsdateien nicht gelesen.</translation>
    </message>
    <message>
        <source>%1 Dateien dieses Namens:</source>
        <translation>%1 Dateien dieses Namens:</translation>
    </message>
    <message>
        <source>Vorgeschlagen (%1)</source>
        <translation>Vorgeschlagen (%1)</translation>
    </message>
    <message>
        <source>Mehrdeutig (%1): keiner gewählt, bitte von Hand zuordnen</source>
        <translation>Mehrdeutig (%1): keiner gewählt, bitte von Hand zuordnen</translation>
    </message>
    <message>
        <source>Nicht gefunden (%1)</source>
        <translation>Nicht gefunden (%1)</translation>
    </message>
    <message>
        <source>Nicht gelesen (%1)</source>
        <translation>Nicht gelesen (%1)</translation>
    </message>
    <message>
        <source>Umsetzungsdatei speichern</source>
        <translation>Umsetzungsdatei speichern</translation>
    </message>
    <message>
        <source>Umsetzungsdateien (*.csv);;Alle Dateien (*)</source>
        <translation>Umsetzungsdateien (*.csv);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Bitte eine Umsetzungsdatei angeben.</source>
        <translation>Bitte eine Umsetzungsdatei angeben.</translation>
    </message>
    <message>
        <source>Die Datei

&apos;%1&apos;

gibt es schon. Ersetzen?</source>
        <translation>Die Datei

&apos;%1&apos;

gibt es schon. Ersetzen?</translation>
    </message>
    <message>
        <source>Die Umsetzungsdatei

&apos;%1&apos;

wurde nicht geschrieben: %2</source>
        <translation>Die Umsetzungsdatei

&apos;%1&apos;

wurde nicht geschrieben: %2</translation>
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
    <message>
        <source>Vorschau…</source>
        <translation>Vorschau…</translation>
    </message>
    <message>
        <source>Sicherungen…</source>
        <translation>Sicherungen…</translation>
    </message>
    <message>
        <source>Pfadzuordnung vorschlagen…</source>
        <translation>Pfadzuordnung vorschlagen…</translation>
    </message>
    <message>
        <source>Prüft die Verknüpfungen der gewählten Knoten (ohne Auswahl: aller Anmerkungsdateien), sucht die fehlenden Dateien in einem Ordner und speichert die Zuordnung als Umsetzungsdatei.</source>
        <translation>Prüft die Verknüpfungen der gewählten Knoten (ohne Auswahl: aller Anmerkungsdateien), sucht die fehlenden Dateien in einem Ordner und speichert die Zuordnung als Umsetzungsdatei.</translation>
    </message>
    <message>
        <source>Data directory:

&apos;%1&apos;

invalid</source>
        <translation>Datenverzeichnis:

&apos;%1&apos;

ungültig</translation>
    </message>
    <message>
        <source>Wo liegen die Dokumente jetzt?</source>
        <translation>Wo liegen die Dokumente jetzt?</translation>
    </message>
    <message>
        <source>Verknüpfungen prüfen</source>
        <translation>Verknüpfungen prüfen</translation>
    </message>
</context>
<context>
    <name>DlgNodeToolsBackups</name>
    <message>
        <source>Sicherungen</source>
        <translation>Sicherungen</translation>
    </message>
    <message>
        <source>Zeitpunkt</source>
        <translation>Zeitpunkt</translation>
    </message>
    <message>
        <source>Funktion</source>
        <translation>Funktion</translation>
    </message>
    <message>
        <source>Quelle</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Benutzer</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Dateien</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Protokoll</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Wiederherstellen</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Schließen</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>(kein lesbares Protokoll)</source>
        <translation>(kein lesbares Protokoll)</translation>
    </message>
    <message>
        <source>Wiederherstellung der Sicherung vom %1</source>
        <translation>Wiederherstellung der Sicherung vom %1</translation>
    </message>
    <message>
        <source>Sicherungen in %1</source>
        <translation>Sicherungen in %1</translation>
    </message>
    <message>
        <source>%1 (kein Zeitstempel)</source>
        <translation>%1 (kein Zeitstempel)</translation>
    </message>
    <message>
        <source>Keine Sicherungen vorhanden.</source>
        <translation>Keine Sicherungen vorhanden.</translation>
    </message>
    <message>
        <source>Das Protokoll &quot;%1&quot; fehlt oder kann nicht gelesen werden.</source>
        <translation>Das Protokoll &quot;%1&quot; fehlt oder kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Sicherung wiederherstellen</source>
        <translation>Sicherung wiederherstellen</translation>
    </message>
    <message>
        <source>Die Sicherung vom %1 wiederherstellen?

Dateien, die ersetzt werden: %2

Der jetzige Stand wird vorher gesichert.</source>
        <translation>Die Sicherung vom %1 wiederherstellen?

Dateien, die ersetzt werden: %2

Der jetzige Stand wird vorher gesichert.</translation>
    </message>
    <message>
        <source>Sicherung wiederhergestellt</source>
        <translation>Sicherung wiederhergestellt</translation>
    </message>
    <message>
        <source>Dateien wiederhergestellt: %1

Der Stand davor ist gesichert in:
%2</source>
        <translation>Dateien wiederhergestellt: %1

Der Stand davor ist gesichert in:
%2</translation>
    </message>
    <message>
        <source>Die Sicherung konnte nicht wiederhergestellt werden:

%1</source>
        <translation>Die Sicherung konnte nicht wiederhergestellt werden:

%1</translation>
    </message>
    <message>
        <source>Zustand</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>wird geprüft … %1 %</source>
        <translation>wird geprüft … %1 %</translation>
    </message>
    <message>
        <source>geprüft</source>
        <translation>geprüft</translation>
    </message>
    <message>
        <source>beschädigt (%1)</source>
        <translation>beschädigt (%1)</translation>
    </message>
    <message>
        <source>ungeprüft (ohne Manifest)</source>
        <translation>ungeprüft (ohne Manifest)</translation>
    </message>
    <message>
        <source>Beschädigt: %1 Dateien sind nicht so, wie sie gesichert wurden:</source>
        <translation>Beschädigt: %1 Dateien sind nicht so, wie sie gesichert wurden:</translation>
    </message>
    <message>
        <source>Die Sicherung vom %1 ist beschädigt: %2 Dateien sind nicht so, wie sie gesichert wurden.</source>
        <translation>Die Sicherung vom %1 ist beschädigt: %2 Dateien sind nicht so, wie sie gesichert wurden.</translation>
    </message>
    <message>
        <source>
… und %1 weitere</source>
        <translation>
… und %1 weitere</translation>
    </message>
    <message>
        <source>Die übrigen %1 Dateien wiederherstellen? Der jetzige Stand wird vorher gesichert.</source>
        <translation>Die übrigen %1 Dateien wiederherstellen? Der jetzige Stand wird vorher gesichert.</translation>
    </message>
    <message>
        <source>Übrige wiederherstellen</source>
        <translation>Übrige wiederherstellen</translation>
    </message>
    <message>
        <source>Diese Sicherung hat kein Manifest (von einer älteren Version oder vom Hauptprogramm angelegt): ihre Dateien können nicht geprüft werden.</source>
        <translation>Diese Sicherung hat kein Manifest (von einer älteren Version oder vom Hauptprogramm angelegt): ihre Dateien können nicht geprüft werden.</translation>
    </message>
    <message>
        <source>Die Dateien konnten nicht geprüft werden (kein Manifest).</source>
        <translation>Die Dateien konnten nicht geprüft werden (kein Manifest).</translation>
    </message>
    <message>
        <source>Nicht wiederhergestellt: %1</source>
        <translation>Nicht wiederhergestellt: %1</translation>
    </message>
</context>
<context>
    <name>DlgNodeToolsPreview</name>
    <message>
        <source>Vorschau</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Datei</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Objekte</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>Warnungen</source>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>Nächste Änderung</source>
        <translation>Nächste Änderung</translation>
    </message>
    <message>
        <source>In Verknüpfungen: &lt;span style=&quot;color:#c05800&quot;&gt;&lt;b&gt;¦&lt;/b&gt;&lt;/span&gt; trennt die Felder, &lt;span style=&quot;color:#7a6a00&quot;&gt;&lt;b&gt;┆&lt;/b&gt;&lt;/span&gt; die Zonen, &lt;span style=&quot;color:#1f5fbf&quot;&gt;&lt;b&gt;‖&lt;/b&gt;&lt;/span&gt; die Ziele.</source>
        <translation>In Verknüpfungen: &lt;span style=&quot;color:#c05800&quot;&gt;&lt;b&gt;¦&lt;/b&gt;&lt;/span&gt; trennt die Felder, &lt;span style=&quot;color:#7a6a00&quot;&gt;&lt;b&gt;┆&lt;/b&gt;&lt;/span&gt; die Zonen, &lt;span style=&quot;color:#1f5fbf&quot;&gt;&lt;b&gt;‖&lt;/b&gt;&lt;/span&gt; die Ziele.</translation>
    </message>
    <message>
        <source>Ausführen</source>
        <translation>Ausführen</translation>
    </message>
    <message>
        <source>Schließen</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Vorschau: %1</source>
        <translation>Vorschau: %1</translation>
    </message>
    <message>
        <source>Dateien, die sich ändern würden: %1
Dateien, die bleiben, wie sie sind: %2</source>
        <translation>Dateien, die sich ändern würden: %1
Dateien, die bleiben, wie sie sind: %2</translation>
    </message>
    <message>
        <source>nur Zeilenenden</source>
        <translation>nur Zeilenenden</translation>
    </message>
    <message>
        <source>Warnungen (%1)</source>
        <translation>Warnungen (%1)</translation>
    </message>
    <message>
        <source>Jetzt</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Nach dem Lauf</source>
        <translation>Nach dem Lauf</translation>
    </message>
    <message>
        <source>%1 unveränderte Zeilen</source>
        <translation>%1 unveränderte Zeilen</translation>
    </message>
    <message>
        <source>Keine Datei würde verändert.</source>
        <translation>Keine Datei würde verändert.</translation>
    </message>
    <message>
        <source>Nur die Zeilenenden ändern sich (CR LF).</source>
        <translation>Nur die Zeilenenden ändern sich (CR LF).</translation>
    </message>
    <message>
        <source>Änderung %1 von %2</source>
        <translation>Änderung %1 von %2</translation>
    </message>
</context>
<context>
    <name>DlgShapeImport</name>
    <message>
        <source>Shape File Import</source>
        <translation>Shape-Import</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Sheets</source>
        <translation>Blätter</translation>
    </message>
    <message>
        <source>Routes</source>
        <translation>Trassen</translation>
    </message>
    <message>
        <source>Districts</source>
        <translation>Flurstücke</translation>
    </message>
    <message>
        <source>Buildings</source>
        <translation>Gebäude</translation>
    </message>
    <message>
        <source>Shape file</source>
        <translation>Shape-Datei</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Attribute table</source>
        <translation>Attributtabelle</translation>
    </message>
    <message>
        <source>beside the shape file</source>
        <translation>neben der Shape-Datei</translation>
    </message>
    <message>
        <source>Geo systems</source>
        <translation>Geosysteme</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Only objects within the project areas</source>
        <translation>Nur Objekte in den Projektgebieten</translation>
    </message>
    <message>
        <source>Field assignment</source>
        <translation>Feldzuordnung</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Spalte</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Target field</source>
        <translation>Zielfeld</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Importieren...</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exportieren...</translation>
    </message>
    <message>
        <source>Attributes</source>
        <translation>Attribute</translation>
    </message>
    <message>
        <source>Map</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>Sheet options</source>
        <translation>Blattoptionen</translation>
    </message>
    <message>
        <source>Correct the corner order along the sheet numbers</source>
        <translation>Eckenreihenfolge entlang der Blattnummern korrigieren</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Four corners, clockwise from the north</source>
        <translation>Vier Ecken, im Uhrzeigersinn ab Norden</translation>
    </message>
    <message>
        <source>Points of the frame</source>
        <translation>Punkte des Rahmens</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Maßstab</translation>
    </message>
    <message>
        <source>Fixed</source>
        <translation>Fest</translation>
    </message>
    <message>
        <source>From the column assigned to SheetScale</source>
        <translation>Aus der Spalte für „Maßstab“</translation>
    </message>
    <message>
        <source>Page text</source>
        <translation>Seitentext</translation>
    </message>
    <message>
        <source>appended to every sheet number after &quot;_&quot;</source>
        <translation>wird jeder Blattnummer nach „_“ angehängt</translation>
    </message>
    <message>
        <source>Route options</source>
        <translation>Trassenoptionen</translation>
    </message>
    <message>
        <source>Variant when empty</source>
        <translation>Variante, wenn leer</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message numerus="yes">
        <source>%1, %n object(s)</source>
        <translation>
            <numerusform>%1, %n Objekt</numerusform>
            <numerusform>%1, %n Objekte</numerusform>
        </translation>
    </message>
    <message>
        <source>The shape file cannot be read.</source>
        <translation>Die Shape-Datei kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>No attribute table: every attribute stays empty.</source>
        <translation>Keine Attributtabelle: alle Attribute bleiben leer.</translation>
    </message>
    <message>
        <source>&lt;Not Assigned&gt;</source>
        <translation>&lt;Nicht zugeordnet&gt;</translation>
    </message>
    <message>
        <source>%1 (column %2)</source>
        <translation>%1 (Spalte %2)</translation>
    </message>
    <message>
        <source>Columns of the file not in this attribute table: %1.</source>
        <translation>Spalten der Datei, die diese Attributtabelle nicht hat: %1.</translation>
    </message>
    <message>
        <source>Target fields not offered for %1: %2.</source>
        <translation>Für %1 nicht angebotene Zielfelder: %2.</translation>
    </message>
    <message>
        <source>Import field assignments</source>
        <translation>Feldzuordnungen importieren</translation>
    </message>
    <message>
        <source>Export field assignments</source>
        <translation>Feldzuordnungen exportieren</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Select shape file</source>
        <translation>Shape-Datei wählen</translation>
    </message>
    <message>
        <source>Shape files (*.shp);;All files (*)</source>
        <translation>Shape-Dateien (*.shp);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Select attribute table</source>
        <translation>Attributtabelle wählen</translation>
    </message>
    <message>
        <source>Attribute tables (*.dbf);;All files (*)</source>
        <translation>Attributtabellen (*.dbf);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>not set: no conversion</source>
        <translation>nicht gesetzt: keine Umrechnung</translation>
    </message>
    <message>
        <source>%1 is assigned to %2; the last of them counts.</source>
        <translation>%1 ist %2 zugeordnet; die letzte Spalte gilt.</translation>
    </message>
    <message>
        <source>no point</source>
        <translation>kein Punkt</translation>
    </message>
    <message>
        <source>no scale</source>
        <translation>kein Maßstab</translation>
    </message>
</context>
<context>
    <name>DxfDump</name>
    <message>
        <source>%1: dxflib cannot read the file</source>
        <translation>%1: dxflib kann die Datei nicht lesen</translation>
    </message>
    <message>
        <source>%1: not enough memory to read the file</source>
        <translation>%1: nicht genug Speicher, um die Datei zu lesen</translation>
    </message>
    <message>
        <source>%1: reading failed: %2</source>
        <translation>%1: Lesen fehlgeschlagen: %2</translation>
    </message>
    <message>
        <source>%1: no such file or not readable</source>
        <translation>%1: Datei fehlt oder ist nicht lesbar</translation>
    </message>
    <message>
        <source>%1: line %2 is longer than %3 characters</source>
        <translation>%1: Zeile %2 ist länger als %3 Zeichen</translation>
    </message>
    <message>
        <source>%1: line %2 is not a group code: &apos;%3&apos;</source>
        <translation>%1: Zeile %2 ist kein Gruppencode: &apos;%3&apos;</translation>
    </message>
    <message>
        <source>%1: line %2: %3 announces %4 items, more than the file can hold</source>
        <translation>%1: Zeile %2: %3 kündigt %4 Einträge an, mehr als die Datei fassen kann</translation>
    </message>
    <message>
        <source>%1: the file ends without an EOF marker (truncated?)</source>
        <translation>%1: die Datei endet ohne EOF-Marke (abgeschnitten?)</translation>
    </message>
</context>
<context>
    <name>DxfSheetExport</name>
    <message>
        <source>%1: cannot write the file: %2</source>
        <translation>%1: die Datei kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Vertex revision reported %1 for insert %2: its frame has only one pair of parallel sides; its corners are labelled all the same</source>
        <translation>Eckenkorrektur meldet %1 für Blockreferenz %2: ihr Rahmen hat nur ein Paar paralleler Seiten; ihre Ecken sind trotzdem benannt</translation>
    </message>
    <message>
        <source>Vertex revision stopped with %1 at insert %2: its frame has no parallel sides; inserts left without corner labels: %3</source>
        <translation>Eckenkorrektur mit %1 bei Blockreferenz %2 abgebrochen: ihr Rahmen hat keine parallelen Seiten; Blockreferenzen ohne benannte Ecken: %3</translation>
    </message>
    <message>
        <source>Vertex revision ended with %1</source>
        <translation>Eckenkorrektur endete mit %1</translation>
    </message>
</context>
<context>
    <name>DxfSheetMapWidget</name>
    <message>
        <source>Used</source>
        <translation>Verwendet</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Ausgelassen</translation>
    </message>
    <message>
        <source>Selected</source>
        <translation>Ausgewählt</translation>
    </message>
    <message>
        <source>Reported</source>
        <translation>Gemeldet</translation>
    </message>
    <message>
        <source>Route</source>
        <translation>Trasse</translation>
    </message>
    <message>
        <source>No sheet frames</source>
        <translation>Keine Blattrahmen</translation>
    </message>
    <message>
        <source>No drawing loaded</source>
        <translation>Keine Zeichnung geladen</translation>
    </message>
    <message>
        <source>Wheel: zoom; drag: move the map; click: select the insert</source>
        <translation>Mausrad: zoomen; ziehen: Karte verschieben; Klick: Blockreferenz auswählen</translation>
    </message>
    <message>
        <source>Insert %1, block %2, sheet number %3</source>
        <translation>Blockreferenz %1, Block %2, Blattnummer %3</translation>
    </message>
    <message>
        <source>The rectangle detector found not exactly one rectangle in its frame: no corner labels</source>
        <translation>Die Rechteckerkennung fand in ihrem Rahmen nicht genau ein Rechteck: keine benannten Ecken</translation>
    </message>
    <message>
        <source>Left without corner labels: the revision stopped at this frame or before it</source>
        <translation>Ohne benannte Ecken: die Eckenkorrektur brach bei diesem Rahmen oder davor ab</translation>
    </message>
    <message>
        <source>Its frame has only one pair of parallel sides; labelled all the same</source>
        <translation>Ihr Rahmen hat nur ein Paar paralleler Seiten; trotzdem benannt</translation>
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
    <name>GeoSysDlg</name>
    <message>
        <source>Select Geo System</source>
        <translation>Geosystem auswählen</translation>
    </message>
    <message>
        <source>EPSG code or name</source>
        <translation>EPSG-Code oder Name</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Area of use: %1</source>
        <translation>Anwendungsbereich: %1</translation>
    </message>
    <message>
        <source>No geo system selected.</source>
        <translation>Kein Geosystem ausgewählt.</translation>
    </message>
</context>
<context>
    <name>ImportSheetDataFromShapeFile</name>
    <message>
        <source>Object %1 replaces the earlier sheet &quot;%2&quot; at scale %3</source>
        <translation>Objekt %1 ersetzt das frühere Blatt „%2“ im Maßstab %3</translation>
    </message>
</context>
<context>
    <name>LinkCheck</name>
    <message>
        <source>%1: could not be read (%2)</source>
        <translation>%1: konnte nicht gelesen werden (%2)</translation>
    </message>
    <message>
        <source>%1: not valid UTF-8, its links not checked</source>
        <translation>%1: kein gültiges UTF-8, ihre Verknüpfungen nicht geprüft</translation>
    </message>
</context>
<context>
    <name>NodeToolBackup</name>
    <message>
        <source>no project folder given</source>
        <translation>kein Projektordner angegeben</translation>
    </message>
    <message>
        <source>no data folder &apos;%1&apos;</source>
        <translation>kein Datenordner „%1“</translation>
    </message>
    <message>
        <source>the backup folder &apos;%1&apos; cannot be created</source>
        <translation>der Sicherungsordner „%1“ kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>Incomplete: %1</source>
        <translation>Unvollständig: %1</translation>
    </message>
    <message>
        <source>the manifest cannot be written (%1)</source>
        <translation>das Manifest kann nicht geschrieben werden (%1)</translation>
    </message>
    <message>
        <source>%1 could not be copied (%2)</source>
        <translation>%1 konnte nicht kopiert werden (%2)</translation>
    </message>
    <message>
        <source>%1 cannot be read (%2)</source>
        <translation>%1 kann nicht gelesen werden (%2)</translation>
    </message>
    <message>
        <source>the backup could not be written to disk (%1)</source>
        <translation>die Sicherung konnte nicht auf die Platte geschrieben werden (%1)</translation>
    </message>
    <message>
        <source>no backup &apos;%1&apos; in &apos;%2&apos;</source>
        <translation>keine Sicherung „%1“ in „%2“</translation>
    </message>
    <message>
        <source>the backup is damaged</source>
        <translation>die Sicherung ist beschädigt</translation>
    </message>
    <message>
        <source>the current state could not be backed up: %1</source>
        <translation>der jetzige Stand konnte nicht gesichert werden: %1</translation>
    </message>
</context>
<context>
    <name>NodeToolBackupCheck</name>
    <message>
        <source>is a file, not a backup folder</source>
        <translation>ist eine Datei, kein Sicherungsordner</translation>
    </message>
    <message>
        <source>the backup folder does not exist</source>
        <translation>der Sicherungsordner fehlt</translation>
    </message>
    <message>
        <source>too large for a manifest</source>
        <translation>zu groß für ein Manifest</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>not in the manifest</source>
        <translation>nicht im Manifest</translation>
    </message>
    <message>
        <source>%1 bytes instead of %2</source>
        <translation>%1 Bytes statt %2</translation>
    </message>
    <message>
        <source>its content changed since the backup</source>
        <translation>ihr Inhalt hat sich seit der Sicherung geändert</translation>
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
<context>
    <name>ShapePreviewWidget</name>
    <message>
        <source>No preview</source>
        <translation>Keine Vorschau</translation>
    </message>
    <message>
        <source>%1 cannot be read as a shape file.</source>
        <translation>%1 kann nicht als Shape-Datei gelesen werden.</translation>
    </message>
    <message>
        <source>No readable objects</source>
        <translation>Keine lesbaren Objekte</translation>
    </message>
    <message>
        <source>No objects</source>
        <translation>Keine Objekte</translation>
    </message>
    <message>
        <source>Preview shows the first %1 of %2 objects</source>
        <translation>Die Vorschau zeigt die ersten %1 von %2 Objekten</translation>
    </message>
    <message>
        <source>Objects: %1</source>
        <translation>Objekte: %1</translation>
    </message>
    <message>
        <source>%1 records cannot be read</source>
        <translation>%1 Datensätze können nicht gelesen werden</translation>
    </message>
    <message>
        <source>%1 km</source>
        <translation>%1 km</translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
</context>
</TS>
