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
</TS>
