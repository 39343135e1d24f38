<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Batch</name>
    <message>
        <source>%1 exists already; --force overwrites it.</source>
        <translation>%1 ist bereits vorhanden; --force überschreibt die Datei.</translation>
    </message>
    <message>
        <source>%1 cannot be read.</source>
        <translation>%1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 has no row %2: it has %3 rows.</source>
        <translation>%1 hat keine Zeile %2: Die Datei hat %3 Zeilen.</translation>
    </message>
    <message>
        <source>%1 does not exist; --new makes it.</source>
        <translation>%1 ist nicht vorhanden; --new legt die Datei an.</translation>
    </message>
    <message>
        <source>There is no form for the suffix of %1.</source>
        <translation>Für die Dateiendung von %1 gibt es kein Formular.</translation>
    </message>
    <message>
        <source>%1 is no document that can be printed.</source>
        <translation>%1 ist kein druckbares Dokument.</translation>
    </message>
    <message>
        <source>%1 cannot be input and output at once.</source>
        <translation>%1 kann nicht zugleich Eingabe und Ausgabe sein.</translation>
    </message>
    <message>
        <source>line %1, &quot;%2&quot;: skipped, %3</source>
        <translation>Zeile %1, „%2“: übersprungen, %3</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: skipped, it is in the catalogue already</source>
        <translation>„%1“: übersprungen, bereits im Katalog</translation>
    </message>
    <message>
        <source>The catalogue cannot be written.</source>
        <translation>Der Katalog kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The catalogue is left as it was.</source>
        <translation>Der Katalog bleibt, wie er war.</translation>
    </message>
    <message>
        <source>%1 modules added, %2 lines skipped</source>
        <translation>%1 Module hinzugefügt, %2 Zeilen übersprungen</translation>
    </message>
    <message>
        <source>%1 cannot be written.</source>
        <translation>%1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>%1 strings imported</source>
        <translation>%1 Stränge importiert</translation>
    </message>
    <message>
        <source>%1 has no column %2.</source>
        <translation>%1 hat keine Spalte %2.</translation>
    </message>
    <message>
        <source>%1 is both read and written.</source>
        <translation>%1 würde zugleich gelesen und geschrieben.</translation>
    </message>
    <message>
        <source>%1 names no format for a graph.</source>
        <translation>%1 nennt kein Format für ein Diagramm.</translation>
    </message>
    <message>
        <source>There is no string %1.</source>
        <translation>Es gibt keinen Strang %1.</translation>
    </message>
    <message>
        <source>There are no strings in the file.</source>
        <translation>In der Datei sind keine Stränge.</translation>
    </message>
    <message>
        <source>%1 is no folder.</source>
        <translation>%1 ist kein Ordner.</translation>
    </message>
</context>
<context>
    <name>Datalogger</name>
    <message>
        <source>Could not find:
%1.
Please try re-installing %2 again</source>
        <comment>Error Message</comment>
        <translation>Nicht gefunden:
%1.
Bitte installieren Sie %2 erneut</translation>
    </message>
    <message>
        <source>%1.exe failed to start. A file may be missing or corrupted. Please install %2 again.</source>
        <comment>Missing file error message</comment>
        <translation>%1.exe konnte nicht gestartet werden. Möglicherweise fehlt eine Datei oder ist beschädigt. Bitte installieren Sie %2 erneut.</translation>
    </message>
    <message>
        <source>Would you like to import the last file you just downloaded?</source>
        <comment>User prompt</comment>
        <translation>Möchten Sie die soeben heruntergeladene Datei importieren?</translation>
    </message>
    <message>
        <source>File: %1 was saved %2.</source>
        <comment>time since saved</comment>
        <translation>Datei: %1 wurde %2 gespeichert.</translation>
    </message>
    <message>
        <source>%1 seconds ago</source>
        <comment>time since saved</comment>
        <translation>vor %1 Sekunden</translation>
    </message>
    <message>
        <source>%1 minutes ago</source>
        <comment>time since saved</comment>
        <translation>vor %1 Minuten</translation>
    </message>
    <message>
        <source>%1 hours ago</source>
        <comment>time since saved</comment>
        <translation>vor %1 Stunden</translation>
    </message>
    <message>
        <source>%1 days ago</source>
        <comment>time since saved</comment>
        <translation>vor %1 Tagen</translation>
    </message>
</context>
<context>
    <name>DiagramComponent</name>
    <message>
        <source>Label</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>Inverter</source>
        <translation>Wechselrichter</translation>
    </message>
    <message>
        <source>Generation Meter</source>
        <translation>Erzeugungszähler</translation>
    </message>
    <message>
        <source>Distribution Board</source>
        <translation>Verteiler</translation>
    </message>
    <message>
        <source>AC Isolator</source>
        <translation>AC-Trennschalter</translation>
    </message>
    <message>
        <source>DC Isolator</source>
        <translation>DC-Trennschalter</translation>
    </message>
    <message>
        <source>PV Panel</source>
        <translation>PV-Modul</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>%1 löschen</translation>
    </message>
</context>
<context>
    <name>DiagramConnection</name>
    <message>
        <source>Connection</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>%1 löschen</translation>
    </message>
</context>
<context>
    <name>DiagramGraphicsScene</name>
    <message>
        <source>Add Label</source>
        <translation>Beschriftung hinzufügen</translation>
    </message>
    <message>
        <source>Insert notes here</source>
        <translation>Hier Notizen eingeben</translation>
    </message>
    <message>
        <source>Add Invertor</source>
        <translation>Wechselrichter hinzufügen</translation>
    </message>
    <message>
        <source>Add Generation Meter</source>
        <translation>Erzeugungszähler hinzufügen</translation>
    </message>
    <message>
        <source>Add Distribution Board</source>
        <translation>Verteiler hinzufügen</translation>
    </message>
    <message>
        <source>Add AC Isolator</source>
        <translation>AC-Trennschalter hinzufügen</translation>
    </message>
    <message>
        <source>Add DC Isolator</source>
        <translation>DC-Trennschalter hinzufügen</translation>
    </message>
    <message>
        <source>Add PV Panel</source>
        <translation>PV-Modul hinzufügen</translation>
    </message>
    <message>
        <source>Error opening %1 for writing</source>
        <translation>%1 konnte nicht zum Schreiben geöffnet werden</translation>
    </message>
    <message>
        <source>Is the file read-only or has it been deleted?</source>
        <translation>Ist die Datei schreibgeschützt oder wurde sie gelöscht?</translation>
    </message>
    <message>
        <source>XML validation error in %1 on line %2, column %3</source>
        <translation>XML-Validierungsfehler in %1, Zeile %2, Spalte %3</translation>
    </message>
</context>
<context>
    <name>DiagramLabel</name>
    <message>
        <source>Set Label Text</source>
        <translation>Text der Beschriftung ändern</translation>
    </message>
    <message>
        <source>Delete Label</source>
        <translation>Beschriftung löschen</translation>
    </message>
</context>
<context>
    <name>DialogAbout</name>
    <message>
        <source>About %1</source>
        <translation>Info zu %1</translation>
    </message>
</context>
<context>
    <name>DialogComponentSettings</name>
    <message>
        <source>Component Settings</source>
        <translation>Komponente</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Beschriftung</translation>
    </message>
</context>
<context>
    <name>DialogImportResults</name>
    <message>
        <source>Import Results</source>
        <translation>Ergebnisse importieren</translation>
    </message>
    <message>
        <source>The following data is available for import. Ensure a Array Test Report is open and active and click a row in the table below to import the data.</source>
        <translation>Die folgenden Daten können importiert werden. Öffnen und aktivieren Sie einen Prüfbericht PV-Generator und klicken Sie auf eine Zeile der Tabelle, um deren Daten zu importieren.</translation>
    </message>
    <message>
        <source>Import row(s)</source>
        <translation>Zeile(n) importieren</translation>
    </message>
    <message>
        <source>Error opening %1 for reading.</source>
        <translation>%1 konnte nicht zum Lesen geöffnet werden.</translation>
    </message>
    <message>
        <source>Import Results - %1</source>
        <translation>Ergebnisse importieren - %1</translation>
    </message>
</context>
<context>
    <name>DialogLanguageChooser</name>
    <message>
        <source>Please Select a Language</source>
        <translation>Bitte wählen Sie eine Sprache</translation>
    </message>
</context>
<context>
    <name>DialogSettings</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Projects Directory</source>
        <translation>Projektverzeichnis</translation>
    </message>
    <message>
        <source>The root directory of all projects:</source>
        <translation>Stammverzeichnis aller Projekte:</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Report Favourites</source>
        <translation>Berichtsfavoriten</translation>
    </message>
    <message>
        <source>If a favourite has been saved for a particular report type, then this will be used when creating a new report. Use the buttons below to restore the reports to their defaults.</source>
        <translation>Wurde für eine Berichtsart ein Favorit gespeichert, dient er als Vorlage für neue Berichte dieser Art. Mit den folgenden Schaltflächen stellen Sie den Auslieferungszustand wieder her.</translation>
    </message>
    <message>
        <source>Restore Inspection Report</source>
        <translation>Prüfbericht Besichtigung wiederherstellen</translation>
    </message>
    <message>
        <source>Restore PV Array Test Report</source>
        <translation>Prüfbericht PV-Generator wiederherstellen</translation>
    </message>
    <message>
        <source>Restore Vertification Certificate</source>
        <translation>Prüfbescheinigung wiederherstellen</translation>
    </message>
    <message>
        <source>Restore Checklist</source>
        <translation>Übergabe-Checkliste wiederherstellen</translation>
    </message>
    <message>
        <source>File last modified on %1.</source>
        <comment>date of modification</comment>
        <translation>Datei zuletzt geändert: %1.</translation>
    </message>
    <message>
        <source>The default report has not been modified.</source>
        <comment>Message to user</comment>
        <translation>Der Standardbericht wurde nicht geändert.</translation>
    </message>
    <message>
        <source>Select Projects Root Directory</source>
        <translation>Projektverzeichnis auswählen</translation>
    </message>
</context>
<context>
    <name>DialogWelcome</name>
    <message>
        <source>Welcome</source>
        <translation>Willkommen</translation>
    </message>
    <message>
        <source>Please choose one of the following options:</source>
        <translation>Bitte wählen Sie eine der folgenden Möglichkeiten:</translation>
    </message>
    <message>
        <source>Watch video tutorial now (recommended)</source>
        <translation>Video-Einführung jetzt ansehen (empfohlen)</translation>
    </message>
    <message>
        <source>Do not show this message again</source>
        <translation>Diese Meldung nicht mehr anzeigen</translation>
    </message>
    <message>
        <source>Thank you for choosing %1.</source>
        <translation>Vielen Dank, dass Sie %1 gewählt haben.</translation>
    </message>
    <message>
        <source>Continue using %1</source>
        <translation>Weiter mit %1</translation>
    </message>
    <message>
        <source>Welcome to %1!</source>
        <translation>Willkommen bei %1!</translation>
    </message>
</context>
<context>
    <name>DocumentFactory</name>
    <message>
        <source>There was an problem trying to open %1</source>
        <comment>Error Message</comment>
        <translation>Beim Öffnen von %1 ist ein Problem aufgetreten</translation>
    </message>
    <message>
        <source>Please make sure a program is associated with this file type.</source>
        <comment>Error message informative text</comment>
        <translation>Bitte stellen Sie sicher, dass diesem Dateityp ein Programm zugeordnet ist.</translation>
    </message>
    <message>
        <source>You are creating an Array Test Report from a favourite that was created in an older version of %1. If you use this version then you will not be able to import data into it.</source>
        <comment>Error Message</comment>
        <translation>Sie legen einen Prüfbericht PV-Generator nach einem Favoriten an, der mit einer älteren Version von %1 erstellt wurde. In einen Bericht dieser Version können Sie keine Daten importieren.</translation>
    </message>
    <message>
        <source>Would you like to replace the favourite with the new version of the report?</source>
        <comment>Error message informative text</comment>
        <translation>Möchten Sie den Favoriten durch die neue Version des Berichts ersetzen?</translation>
    </message>
    <message>
        <source>Failed to create document</source>
        <comment>Error Message</comment>
        <translation>Das Dokument konnte nicht angelegt werden</translation>
    </message>
</context>
<context>
    <name>FindInFiles</name>
    <message>
        <source>Find in Files</source>
        <translation>In Dateien suchen</translation>
    </message>
    <message>
        <source>Search by any or all of the criteria below.</source>
        <translation>Suche nach einem oder mehreren der folgenden Kriterien.</translation>
    </message>
    <message>
        <source>File search</source>
        <translation>Dateisuche</translation>
    </message>
    <message>
        <source>All or part of the file name:</source>
        <translation>Dateiname oder Teil davon:</translation>
    </message>
    <message>
        <source>Case sensitive</source>
        <translation>Groß-/Kleinschreibung beachten</translation>
    </message>
    <message>
        <source>Word / Phrase Search</source>
        <translation>Suche nach Wort / Wortfolge</translation>
    </message>
    <message>
        <source>A word or phrase in the reports:</source>
        <translation>Wort oder Wortfolge in den Berichten:</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>from</source>
        <translation>von</translation>
    </message>
    <message>
        <source>to</source>
        <translation>bis</translation>
    </message>
    <message>
        <source>File Size</source>
        <translation>Dateigröße</translation>
    </message>
    <message>
        <source> KB</source>
        <translation> KB</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Created Date</source>
        <translation>Erstellungsdatum</translation>
    </message>
    <message>
        <source>Modified Date</source>
        <translation>Änderungsdatum</translation>
    </message>
    <message>
        <source>Accessed Date</source>
        <translation>Zugriffsdatum</translation>
    </message>
    <message>
        <source>greater than</source>
        <translation>größer als</translation>
    </message>
    <message>
        <source>less than</source>
        <translation>kleiner als</translation>
    </message>
</context>
<context>
    <name>Folders</name>
    <message>
        <source>Could not find the projects root directory: %1</source>
        <comment>Warning Message</comment>
        <translation>Das Projektverzeichnis wurde nicht gefunden: %1</translation>
    </message>
    <message>
        <source>Please select a new projects root directory.</source>
        <comment>Warning message informative text</comment>
        <translation>Bitte wählen Sie ein neues Projektverzeichnis.</translation>
    </message>
    <message>
        <source>The path &quot;%1&quot; does not exist. Would you like to create it?</source>
        <comment>Warning Message</comment>
        <translation>Der Pfad „%1“ ist nicht vorhanden. Möchten Sie ihn anlegen?</translation>
    </message>
    <message>
        <source>Error creating &quot;%1&quot;</source>
        <comment>Error Message</comment>
        <translation>Fehler beim Anlegen von „%1“</translation>
    </message>
    <message>
        <source>Select Projects Root Directory</source>
        <comment>Caption</comment>
        <translation>Projektverzeichnis auswählen</translation>
    </message>
    <message>
        <source>No projects directory was set. Defaulting to the public documents directory</source>
        <comment>Informative message</comment>
        <translation>Es wurde kein Projektverzeichnis festgelegt. Verwendet wird das Verzeichnis für öffentliche Dokumente</translation>
    </message>
</context>
<context>
    <name>FoundFilesModel</name>
    <message>
        <source>Search is complete. There are no results to display.</source>
        <comment>Search status</comment>
        <translation>Die Suche ist beendet. Es gibt keine Ergebnisse.</translation>
    </message>
    <message>
        <source>%L1 KB</source>
        <translation>%L1 KB</translation>
    </message>
    <message>
        <source>Name</source>
        <comment>Column header</comment>
        <translation>Name</translation>
    </message>
    <message>
        <source>Size</source>
        <comment>Column header</comment>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Last Modified</source>
        <comment>Column header</comment>
        <translation>Zuletzt geändert</translation>
    </message>
</context>
<context>
    <name>GatedXml</name>
    <message>
        <source>elements are nested too deeply</source>
        <translation>Elemente sind zu tief verschachtelt</translation>
    </message>
    <message>
        <source>document type declarations are not allowed</source>
        <translation>Dokumenttyp-Deklarationen sind nicht zulässig</translation>
    </message>
    <message>
        <source>too many elements</source>
        <translation>zu viele Elemente</translation>
    </message>
    <message>
        <source>the document is too large</source>
        <translation>das Dokument ist zu groß</translation>
    </message>
</context>
<context>
    <name>GraphicalReportDocument</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save As Favourite. Next time you create a new report it look like this report.</source>
        <translation>Als Favorit speichern. Der nächste neue Bericht sieht dann aus wie dieser.</translation>
    </message>
    <message>
        <source>Download data from tester</source>
        <translation>Daten aus dem Prüfgerät herunterladen</translation>
    </message>
    <message>
        <source>Import data from file</source>
        <translation>Daten aus einer Datei importieren</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Export to PDF</source>
        <translation>Als PDF exportieren</translation>
    </message>
    <message>
        <source>Save changes to %1?</source>
        <translation>Änderungen an %1 speichern?</translation>
    </message>
    <message>
        <source>Saving this document as a favourite means that every time you create a new document of this type it will look like this document.</source>
        <translation>Wenn Sie dieses Dokument als Favorit speichern, sieht künftig jedes neue Dokument dieser Art so aus.</translation>
    </message>
    <message>
        <source>Are you sure you want to overwrite the favourite?
(NOTE: You may restore the default document at any time from the settings.)</source>
        <translation>Möchten Sie den Favoriten wirklich überschreiben?
(HINWEIS: Das Standarddokument lässt sich jederzeit in den Einstellungen wiederherstellen.)</translation>
    </message>
</context>
<context>
    <name>GraphicsDocument</name>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
</context>
<context>
    <name>GraphicsTextItem</name>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
</context>
<context>
    <name>HideableMessage</name>
    <message>
        <source>Do not show this message again</source>
        <translation>Diese Meldung nicht mehr anzeigen</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveDatabase</name>
    <message>
        <source>Kelmar</source>
        <translation>Kelmar</translation>
    </message>
    <message>
        <source>The curve has more than %1 points.</source>
        <comment>Error Message</comment>
        <translation>Die Kennlinie hat mehr als %1 Punkte.</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveDetailsDialog</name>
    <message>
        <source>Curve Details</source>
        <translation>Kennliniendetails</translation>
    </message>
    <message>
        <source>Title:</source>
        <translation>Titel:</translation>
    </message>
    <message>
        <source>Test Details</source>
        <translation>Prüfdaten</translation>
    </message>
    <message>
        <source>Tester Serial No:</source>
        <translation>Seriennummer des Prüfgeräts:</translation>
    </message>
    <message>
        <source>Tester Memory Location:</source>
        <translation>Speicherplatz im Prüfgerät:</translation>
    </message>
    <message>
        <source>Test Date:</source>
        <translation>Prüfdatum:</translation>
    </message>
    <message>
        <source>Irradiance: (W/m&lt;sup&gt;2&lt;/sup&gt;)</source>
        <translation>Bestrahlungsstärke: (W/m&lt;sup&gt;2&lt;/sup&gt;)</translation>
    </message>
    <message>
        <source>Irradiance (W/m²)</source>
        <translation>Bestrahlungsstärke (W/m²)</translation>
    </message>
    <message>
        <source>Cell Temperature: (°C)</source>
        <translation>Zelltemperatur: (°C)</translation>
    </message>
    <message>
        <source>Ambient Temperature: (°C)</source>
        <translation>Umgebungstemperatur: (°C)</translation>
    </message>
    <message>
        <source>Open Circuit Voltage (V):</source>
        <translation>Leerlaufspannung (V):</translation>
    </message>
    <message>
        <source>Short Circuit Current (A):</source>
        <translation>Kurzschlussstrom (A):</translation>
    </message>
    <message>
        <source>Voltage at mpp (V):</source>
        <translation>Spannung am MPP (V):</translation>
    </message>
    <message>
        <source>Current at mpp (A):</source>
        <translation>Strom am MPP (A):</translation>
    </message>
    <message>
        <source>Fill Factor:</source>
        <translation>Füllfaktor:</translation>
    </message>
    <message>
        <source>Clamp Current at mpp: (A)</source>
        <translation>Zangenstrom am MPP: (A)</translation>
    </message>
    <message>
        <source>Protective Earth R:  (Ω)</source>
        <translation>Schutzleiterwiderstand: (Ω)</translation>
    </message>
    <message>
        <source>Isolation Voltage (V):</source>
        <translation>Isolationsprüfspannung (V):</translation>
    </message>
    <message>
        <source>Isolation Resistance: (MΩ)</source>
        <translation>Isolationswiderstand: (MΩ)</translation>
    </message>
    <message>
        <source>Module Details</source>
        <translation>Moduldaten</translation>
    </message>
    <message>
        <source>Choose Module</source>
        <translation>Modul auswählen</translation>
    </message>
    <message>
        <source>Favourites only</source>
        <translation>Nur Favoriten</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>Modul</translation>
    </message>
    <message>
        <source>Voc:</source>
        <translation>Uoc:</translation>
    </message>
    <message>
        <source>Isc:</source>
        <translation>Isc:</translation>
    </message>
    <message>
        <source>Vmpp:</source>
        <translation>Umpp:</translation>
    </message>
    <message>
        <source>Impp:</source>
        <translation>Impp:</translation>
    </message>
    <message>
        <source>No. in Series:</source>
        <translation>Anzahl in Reihe:</translation>
    </message>
    <message>
        <source>No. in Parallel:</source>
        <translation>Anzahl parallel:</translation>
    </message>
    <message>
        <source>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;a:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (A/°C)&lt;/font&gt;</source>
        <translation>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;a:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (A/°C)&lt;/font&gt;</translation>
    </message>
    <message>
        <source>Current-Temperature coefficient e.g. 0.003</source>
        <translation>Temperaturkoeffizient des Stroms, z. B. 0,003</translation>
    </message>
    <message>
        <source>alpha (A/°C)</source>
        <translation>alpha (A/°C)</translation>
    </message>
    <message>
        <source>Enter value as a percentage of Isc</source>
        <translation>Wert in Prozent von Isc eingeben</translation>
    </message>
    <message>
        <source>alpha in %/°C</source>
        <translation>alpha in %/°C</translation>
    </message>
    <message>
        <source>%/°C ...</source>
        <translation>%/°C ...</translation>
    </message>
    <message>
        <source>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;b:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (V/°C)&lt;/font&gt;</source>
        <translation>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;b:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (V/°C)&lt;/font&gt;</translation>
    </message>
    <message>
        <source>Voltage-Temperature coefficient e.g. -0.14</source>
        <translation>Temperaturkoeffizient der Spannung, z. B. -0,14</translation>
    </message>
    <message>
        <source>beta (V/°C)</source>
        <translation>beta (V/°C)</translation>
    </message>
    <message>
        <source>Enter value as a percentage of Voc</source>
        <translation>Wert in Prozent von Uoc eingeben</translation>
    </message>
    <message>
        <source>beta in %/°C</source>
        <translation>beta in %/°C</translation>
    </message>
    <message>
        <source>Rs: (Ω)</source>
        <translation>Rs: (Ω)</translation>
    </message>
    <message>
        <source>STC Calculation</source>
        <translation>Umrechnung auf STC</translation>
    </message>
    <message>
        <source>Anderson</source>
        <translation>Anderson</translation>
    </message>
    <message>
        <source>IEC60891 procedure 1</source>
        <translation>IEC60891 Verfahren 1</translation>
    </message>
    <message>
        <source>Blässer</source>
        <translation>Blässer</translation>
    </message>
    <message>
        <source>delta:</source>
        <translation>delta:</translation>
    </message>
    <message>
        <source>Anderson&apos;s delta coefficient:
mono-Crystalline 0.085
multi-Crystalline 0.110
Thin-Film 0.063</source>
        <translation>Deltakoeffizient nach Anderson:
monokristallin 0,085
multikristallin 0,110
Dünnschicht 0,063</translation>
    </message>
    <message>
        <source>K:</source>
        <translation>K:</translation>
    </message>
    <message>
        <source>a:</source>
        <translation>a:</translation>
    </message>
    <message>
        <source>b:</source>
        <translation>b:</translation>
    </message>
    <message>
        <source>Changes to the PV string data are automatically saved when OK is pressed.
</source>
        <translation>Änderungen an den Daten des PV-Strangs werden mit OK automatisch gespeichert.
</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveDocument</name>
    <message>
        <source>Export Points</source>
        <translation>Punkte exportieren</translation>
    </message>
    <message>
        <source>Save changes to %1?</source>
        <comment>Warning Message</comment>
        <translation>Änderungen an %1 speichern?</translation>
    </message>
    <message>
        <source>Import CSV File</source>
        <translation>CSV-Datei importieren</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveDocumentActions</name>
    <message>
        <source>Print</source>
        <comment>Tool tip hint</comment>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Save</source>
        <comment>Tool tip hint</comment>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Export to PDF</source>
        <comment>Tool tip hint</comment>
        <translation>Als PDF exportieren</translation>
    </message>
    <message>
        <source>Export to Image</source>
        <comment>Tool tip hint</comment>
        <translation>Als Bild exportieren</translation>
    </message>
    <message>
        <source>Insert Row</source>
        <comment>Tool tip hint</comment>
        <translation>Zeile einfügen</translation>
    </message>
    <message>
        <source>Delete Row</source>
        <comment>Tool tip hint</comment>
        <translation>Zeile löschen</translation>
    </message>
    <message>
        <source>IV</source>
        <translation>IU</translation>
    </message>
    <message>
        <source>Show IV Curves</source>
        <comment>Tool tip hint</comment>
        <translation>I-U-Kennlinien anzeigen</translation>
    </message>
    <message>
        <source>PWR</source>
        <translation>LEIST</translation>
    </message>
    <message>
        <source>Show VP Power Curves</source>
        <comment>Tool tip hint</comment>
        <translation>U-P-Leistungskennlinien anzeigen</translation>
    </message>
    <message>
        <source>MEAS</source>
        <translation>GEM</translation>
    </message>
    <message>
        <source>Show Measured Curve Data</source>
        <comment>Tool tip hint</comment>
        <translation>Gemessene Kennlinien anzeigen</translation>
    </message>
    <message>
        <source>STC</source>
        <translation>STC</translation>
    </message>
    <message>
        <source>Show STC-corrected Curves</source>
        <comment>Tool tip hint</comment>
        <translation>Auf STC umgerechnete Kennlinien anzeigen</translation>
    </message>
    <message>
        <source>NOM</source>
        <translation>NOM</translation>
    </message>
    <message>
        <source>Show Nominal Curve</source>
        <comment>Tool tip hint</comment>
        <translation>Nennkennlinie anzeigen</translation>
    </message>
    <message>
        <source>Download</source>
        <comment>Tool tip hint</comment>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Download data from tester</source>
        <comment>Tool tip hint</comment>
        <translation>Daten aus dem Prüfgerät herunterladen</translation>
    </message>
    <message>
        <source>View Details</source>
        <comment>Tool tip hint</comment>
        <translation>Details anzeigen</translation>
    </message>
    <message>
        <source>View Details from tester</source>
        <comment>Tool tip hint</comment>
        <translation>Details aus dem Prüfgerät anzeigen</translation>
    </message>
    <message>
        <source>Manage Module Database</source>
        <comment>Tool tip hint</comment>
        <translation>Moduldatenbank verwalten</translation>
    </message>
    <message>
        <source>Import CSV</source>
        <comment>Tool tip hint</comment>
        <translation>CSV importieren</translation>
    </message>
    <message>
        <source>Set PV Module Type</source>
        <comment>Tool tip hint</comment>
        <translation>PV-Modultyp festlegen</translation>
    </message>
    <message>
        <source>Export MEAS IV Curve Points</source>
        <comment>Tool tip hint</comment>
        <translation>Punkte der gemessenen I-U-Kennlinie exportieren</translation>
    </message>
    <message>
        <source>Export Measured IV Curve Points in CSV format</source>
        <comment>Tool tip hint</comment>
        <translation>Punkte der gemessenen I-U-Kennlinie im CSV-Format exportieren</translation>
    </message>
    <message>
        <source>Export STC IV Curve Points</source>
        <comment>Tool tip hint</comment>
        <translation>Punkte der STC-I-U-Kennlinie exportieren</translation>
    </message>
    <message>
        <source>Export STC IV Curve Points in CSV format</source>
        <comment>Tool tip hint</comment>
        <translation>Punkte der STC-I-U-Kennlinie im CSV-Format exportieren</translation>
    </message>
    <message>
        <source>Export MEAS PWR Curve Points</source>
        <comment>Tool tip hint</comment>
        <translation>Punkte der gemessenen Leistungskennlinie exportieren</translation>
    </message>
    <message>
        <source>Export Measured Power Curve Points in CSV format</source>
        <comment>Tool tip hint</comment>
        <translation>Punkte der gemessenen Leistungskennlinie im CSV-Format exportieren</translation>
    </message>
    <message>
        <source>Export STC PWR Curve Points</source>
        <comment>Tool tip hint</comment>
        <translation>Punkte der STC-Leistungskennlinie exportieren</translation>
    </message>
    <message>
        <source>Export STC Power Curve Points in CSV format</source>
        <comment>Tool tip hint</comment>
        <translation>Punkte der STC-Leistungskennlinie im CSV-Format exportieren</translation>
    </message>
    <message>
        <source>Set Colour</source>
        <comment>Tool tip hint</comment>
        <translation>Farbe festlegen</translation>
    </message>
    <message>
        <source>Change the colour of lines on the graph associated with this string</source>
        <comment>Tool tip hint</comment>
        <translation>Farbe der Linien dieses Strangs im Diagramm ändern</translation>
    </message>
    <message>
        <source>Curve Report</source>
        <comment>Tool tip hint</comment>
        <translation>Kennlinienbericht</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveGraph</name>
    <message>
        <source>Voltage (V)</source>
        <translation>Spannung (V)</translation>
    </message>
    <message>
        <source>Current (A)</source>
        <translation>Strom (A)</translation>
    </message>
    <message>
        <source>Power (W)</source>
        <translation>Leistung (W)</translation>
    </message>
    <message>
        <source>IV Curve</source>
        <translation>I-U-Kennlinie</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveGraphModel</name>
    <message>
        <source>Internal error: no data associated with string</source>
        <translation>Interner Fehler: Zu diesem Strang gibt es keine Daten</translation>
    </message>
    <message>
        <source>IV curve data not found in collection</source>
        <comment>Error Message</comment>
        <translation>Die Kennliniendaten sind nicht vorhanden</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveModulesChooser</name>
    <message>
        <source>Choose Module</source>
        <translation>Modul auswählen</translation>
    </message>
    <message>
        <source>Favourites only</source>
        <translation>Nur Favoriten</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>Modul</translation>
    </message>
    <message>
        <source>Number of modules in series:</source>
        <translation>Anzahl der Module in Reihe:</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveModulesDlg</name>
    <message>
        <source>PV Modules</source>
        <translation>PV-Module</translation>
    </message>
    <message>
        <source>PV Module Database</source>
        <translation>PV-Moduldatenbank</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source> (Copy)</source>
        <translation> (Kopie)</translation>
    </message>
    <message>
        <source>Kelmar</source>
        <translation>Kelmar</translation>
    </message>
    <message>
        <source>Deleting a preloaded module.
%1
Do you wish to continue?</source>
        <translation>Ein mitgeliefertes Modul wird gelöscht.
%1
Möchten Sie fortfahren?</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveModulesEditDlg</name>
    <message>
        <source>Edit Module</source>
        <translation>Modul bearbeiten</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>Bezeichnung:</translation>
    </message>
    <message>
        <source>Favourite</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>Voc: (V)</source>
        <translation>Uoc: (V)</translation>
    </message>
    <message>
        <source>Voltage at open-circuit</source>
        <translation>Leerlaufspannung</translation>
    </message>
    <message>
        <source>Isc: (A)</source>
        <translation>Isc: (A)</translation>
    </message>
    <message>
        <source>Current at short-circuit</source>
        <translation>Kurzschlussstrom</translation>
    </message>
    <message>
        <source>Vmpp: (V)</source>
        <translation>Umpp: (V)</translation>
    </message>
    <message>
        <source>Voltage at maximum power point</source>
        <translation>Spannung am Punkt maximaler Leistung</translation>
    </message>
    <message>
        <source>Impp: (A)</source>
        <translation>Impp: (A)</translation>
    </message>
    <message>
        <source>Current at maximum power point</source>
        <translation>Strom am Punkt maximaler Leistung</translation>
    </message>
    <message>
        <source>Rs: (Ω)</source>
        <translation>Rs: (Ω)</translation>
    </message>
    <message>
        <source>series resistance e.g. 0.3</source>
        <translation>Serienwiderstand, z. B. 0,3</translation>
    </message>
    <message>
        <source>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;a:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (A/°C)&lt;/font&gt;</source>
        <translation>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;a:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (A/°C)&lt;/font&gt;</translation>
    </message>
    <message>
        <source>Current-Temperature coefficient e.g. 0.003</source>
        <translation>Temperaturkoeffizient des Stroms, z. B. 0,003</translation>
    </message>
    <message>
        <source>alpha (A/°C)</source>
        <translation>alpha (A/°C)</translation>
    </message>
    <message>
        <source>Enter value as a percentage of Isc</source>
        <translation>Wert in Prozent von Isc eingeben</translation>
    </message>
    <message>
        <source>alpha in %/°C</source>
        <translation>alpha in %/°C</translation>
    </message>
    <message>
        <source>%/°C ...</source>
        <translation>%/°C ...</translation>
    </message>
    <message>
        <source>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;b:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (V/°C)&lt;/font&gt;</source>
        <translation>&lt;font size=&quot;3&quot; face=&quot;Symbol&quot;&gt;b:&lt;/font&gt;
&lt;font size=&quot;3&quot; face=&quot;MS Shell Dlg 2&quot;&gt; (V/°C)&lt;/font&gt;</translation>
    </message>
    <message>
        <source>Voltage-Temperature coefficient e.g. -0.14</source>
        <translation>Temperaturkoeffizient der Spannung, z. B. -0,14</translation>
    </message>
    <message>
        <source>beta (V/°C)</source>
        <translation>beta (V/°C)</translation>
    </message>
    <message>
        <source>Enter value as a percentage of Voc</source>
        <translation>Wert in Prozent von Uoc eingeben</translation>
    </message>
    <message>
        <source>beta in %/°C</source>
        <translation>beta in %/°C</translation>
    </message>
    <message>
        <source>delta:</source>
        <translation>delta:</translation>
    </message>
    <message>
        <source>Anderson&apos;s delta coefficient:
mono-Crystalline 0.085
multi-Crystalline 0.110
Thin-Film 0.063</source>
        <translation>Deltakoeffizient nach Anderson:
monokristallin 0,085
multikristallin 0,110
Dünnschicht 0,063</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveTreeModel</name>
    <message>
        <source>Item Description</source>
        <comment>Tree Control Header</comment>
        <translation>Bezeichnung</translation>
    </message>
    <message>
        <source>Tester Index</source>
        <comment>Tree Control Header</comment>
        <translation>Speicherplatz</translation>
    </message>
    <message>
        <source>Date Tested</source>
        <comment>Tree Control Header</comment>
        <translation>Prüfdatum</translation>
    </message>
    <message>
        <source>Irr</source>
        <comment>Tree Control Header</comment>
        <translation>Einstr</translation>
    </message>
    <message>
        <source>Tcell</source>
        <comment>Tree Control Header</comment>
        <translation>Tzelle</translation>
    </message>
    <message>
        <source>FF</source>
        <comment>Tree Control Header</comment>
        <translation>FF</translation>
    </message>
    <message>
        <source> </source>
        <comment>Tree Control Header</comment>
        <translation> </translation>
    </message>
    <message>
        <source>The tree of curves cannot be read.</source>
        <comment>Error Message</comment>
        <translation>Der Baum der Kennlinien kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>&lt;New Row&gt;</source>
        <translation>&lt;Neue Zeile&gt;</translation>
    </message>
    <message>
        <source>Invalid checksum. Internal error in test instrument or the CSV data has been modified</source>
        <translation>Ungültige Prüfsumme. Interner Fehler des Prüfgeräts, oder die CSV-Daten wurden verändert</translation>
    </message>
    <message>
        <source>Checksum ignored. Spreadsheet data modification was detected</source>
        <translation>Prüfsumme nicht beachtet. Die Daten wurden mit einer Tabellenkalkulation verändert</translation>
    </message>
    <message>
        <source>Irradiance warning. Greater than 10% variance during test</source>
        <translation>Warnung zur Bestrahlungsstärke: Änderung um mehr als 10 % während der Messung</translation>
    </message>
</context>
<context>
    <name>IVCurve::CurveTypeLegend</name>
    <message>
        <source>STC</source>
        <translation>STC</translation>
    </message>
    <message>
        <source>MEAS</source>
        <translation>GEM</translation>
    </message>
    <message>
        <source>NOM</source>
        <translation>NOM</translation>
    </message>
</context>
<context>
    <name>IVCurve::ExceptionBox</name>
    <message>
        <source>Exception thrown: %1</source>
        <translation>Ausnahme ausgelöst: %1</translation>
    </message>
</context>
<context>
    <name>IVCurve::GraphExport</name>
    <message>
        <source>Error opening %1 for writing</source>
        <translation>%1 konnte nicht zum Schreiben geöffnet werden</translation>
    </message>
    <message>
        <source>Export PDF</source>
        <comment>File Save Dialog</comment>
        <translation>PDF exportieren</translation>
    </message>
    <message>
        <source>PDF Files (*.pdf)</source>
        <comment>File Save Dialog</comment>
        <translation>PDF-Dateien (*.pdf)</translation>
    </message>
    <message>
        <source>Save Image</source>
        <comment>File Save Dialog</comment>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Images (*.bmp *.jpeg *.png)</source>
        <comment>File Save Dialog</comment>
        <translation>Bilder (*.bmp *.jpeg *.png)</translation>
    </message>
</context>
<context>
    <name>IVCurve::ModuleCsv</name>
    <message>
        <source>it has no name</source>
        <translation>der Name fehlt</translation>
    </message>
    <message>
        <source>%1 is no number</source>
        <translation>%1 ist keine Zahl</translation>
    </message>
    <message>
        <source>V_mp_ref is not between 0 and V_oc_ref</source>
        <translation>V_mp_ref liegt nicht zwischen 0 und V_oc_ref</translation>
    </message>
    <message>
        <source>I_mp_ref is not between 0 and I_sc_ref</source>
        <translation>I_mp_ref liegt nicht zwischen 0 und I_sc_ref</translation>
    </message>
    <message>
        <source>R_s is below 0</source>
        <translation>R_s ist kleiner als 0</translation>
    </message>
</context>
<context>
    <name>IVCurve::ModuleDatabase</name>
    <message>
        <source>Kelmar</source>
        <translation>Kelmar</translation>
    </message>
    <message>
        <source>File is missing:
 %1</source>
        <translation>Datei fehlt:
 %1</translation>
    </message>
</context>
<context>
    <name>IVCurve::PercentEntry</name>
    <message>
        <source>Kelmar</source>
        <translation>Kelmar</translation>
    </message>
    <message>
        <source>Enter value in percent per centigrade</source>
        <translation>Wert in Prozent pro Grad Celsius eingeben</translation>
    </message>
    <message>
        <source>Isc is missing or zero</source>
        <translation>Isc fehlt oder ist null</translation>
    </message>
    <message>
        <source>Voc is missing or zero</source>
        <translation>Uoc fehlt oder ist null</translation>
    </message>
</context>
<context>
    <name>IVCurve::PlainTables</name>
    <message>
        <source>&quot;%1&quot; is a view and not a table.</source>
        <comment>Error Message</comment>
        <translation>„%1“ ist eine Sicht und keine Tabelle.</translation>
    </message>
    <message>
        <source>A trigger is set on the table &quot;%1&quot;.</source>
        <comment>Error Message</comment>
        <translation>Auf die Tabelle „%1“ ist ein Trigger gesetzt.</translation>
    </message>
    <message>
        <source>The table &quot;%1&quot; is a virtual one.</source>
        <comment>Error Message</comment>
        <translation>Die Tabelle „%1“ ist virtuell.</translation>
    </message>
    <message>
        <source>The table &quot;%1&quot; has computed columns.</source>
        <comment>Error Message</comment>
        <translation>Die Tabelle „%1“ hat berechnete Spalten.</translation>
    </message>
</context>
<context>
    <name>IVCurve::PointExport</name>
    <message>
        <source>MEAS</source>
        <translation>GEM</translation>
    </message>
    <message>
        <source>PWR</source>
        <translation>LEIST</translation>
    </message>
    <message>
        <source>STC</source>
        <translation>STC</translation>
    </message>
    <message>
        <source>Irradiance</source>
        <translation>Bestrahlungsstärke</translation>
    </message>
    <message>
        <source>Ambient Temp</source>
        <translation>Umgebungstemperatur</translation>
    </message>
    <message>
        <source>Cell Temp</source>
        <translation>Zelltemperatur</translation>
    </message>
    <message>
        <source>Fill Factor</source>
        <translation>Füllfaktor</translation>
    </message>
    <message>
        <source> Could not open file:
 %1</source>
        <translation> Die Datei konnte nicht geöffnet werden:
 %1</translation>
    </message>
</context>
<context>
    <name>IVCurve::StringExports</name>
    <message>
        <source>Save PDF file</source>
        <comment>File Save Dialog</comment>
        <translation>PDF-Datei speichern</translation>
    </message>
    <message>
        <source>PDF file (*.pdf)</source>
        <comment>File Save Dialog</comment>
        <translation>PDF-Datei (*.pdf)</translation>
    </message>
    <message>
        <source>Save CSV file</source>
        <comment>File Save Dialog</comment>
        <translation>CSV-Datei speichern</translation>
    </message>
    <message>
        <source>CSV file (*.csv)</source>
        <comment>File Save Dialog</comment>
        <translation>CSV-Datei (*.csv)</translation>
    </message>
</context>
<context>
    <name>IVCurve::TesterCurveImporter</name>
    <message>
        <source>Error opening %1 for reading.</source>
        <comment>Error Message</comment>
        <translation>%1 konnte nicht zum Lesen geöffnet werden.</translation>
    </message>
    <message>
        <source>Checksum failed on line number %1</source>
        <translation>Falsche Prüfsumme in Zeile %1</translation>
    </message>
    <message>
        <source>Continue showing errors during this import</source>
        <translation>Fehler während dieses Imports weiter anzeigen</translation>
    </message>
    <message>
        <source>String %1</source>
        <translation>Strang %1</translation>
    </message>
</context>
<context>
    <name>InstallationDiagramDocument</name>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Export to PDF</source>
        <translation>Als PDF exportieren</translation>
    </message>
    <message>
        <source>Wire</source>
        <translation>Verdrahten</translation>
    </message>
    <message>
        <source>Single wire</source>
        <translation>Einzelleitung</translation>
    </message>
    <message>
        <source>DC cable</source>
        <translation>DC-Leitung</translation>
    </message>
    <message>
        <source>AC cable</source>
        <translation>AC-Leitung</translation>
    </message>
    <message>
        <source>Save changes to %1?</source>
        <comment>Warning Message</comment>
        <translation>Änderungen an %1 speichern?</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>Changing the language deletes any Report Favourites.
</source>
        <translation>Beim Ändern der Sprache werden alle Berichtsfavoriten gelöscht.
</translation>
    </message>
    <message>
        <source>The application must be restarted when the language is changed.</source>
        <translation>Nach dem Ändern der Sprache muss das Programm neu gestartet werden.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Document Browser</source>
        <translation>Dokumentübersicht</translation>
    </message>
    <message>
        <source>Document Search</source>
        <translation>Dokumentsuche</translation>
    </message>
    <message>
        <source>New Inspection Report</source>
        <translation>Neuer Prüfbericht Besichtigung</translation>
    </message>
    <message>
        <source>New PV Array Test Report</source>
        <translation>Neuer Prüfbericht PV-Generator</translation>
    </message>
    <message>
        <source>New Verification Certificate</source>
        <translation>Neue Prüfbescheinigung</translation>
    </message>
    <message>
        <source>New Installation Diagram</source>
        <translation>Neues Anlagenschema</translation>
    </message>
    <message>
        <source>New Checklist</source>
        <translation>Neue Übergabe-Checkliste</translation>
    </message>
    <message>
        <source>New Curve Data</source>
        <translation>Neue Kennliniendaten</translation>
    </message>
    <message>
        <source>New Client Handover Pack</source>
        <translation>Neue Übergabeunterlagen</translation>
    </message>
    <message>
        <source>Create a new folder with a checklist in it</source>
        <translation>Neuen Ordner mit einer Übergabe-Checkliste anlegen</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Neuer Ordner</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>Einstellungen...</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>Info...</translation>
    </message>
    <message>
        <source>Screencast Tutorial...</source>
        <translation>Video-Einführung...</translation>
    </message>
    <message>
        <source>PDF Instruction Manual</source>
        <translation>PDF-Bedienungsanleitung</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Importieren...</translation>
    </message>
    <message>
        <source>Download ...</source>
        <translation>Herunterladen ...</translation>
    </message>
    <message>
        <source>ScreenCast Tutorial</source>
        <translation>Video-Einführung</translation>
    </message>
    <message>
        <source>Reset Window Layout</source>
        <translation>Fensteranordnung zurücksetzen</translation>
    </message>
    <message>
        <source>Import CSV File</source>
        <translation>CSV-Datei importieren</translation>
    </message>
    <message>
        <source>CSV Files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
</context>
<context>
    <name>MdiWindow</name>
    <message>
        <source>Cl&amp;ose</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Close the active window</source>
        <translation>Das aktive Fenster schließen</translation>
    </message>
    <message>
        <source>&amp;Tile</source>
        <translation>&amp;Nebeneinander</translation>
    </message>
    <message>
        <source>Tile the windows</source>
        <translation>Die Fenster nebeneinander anordnen</translation>
    </message>
    <message>
        <source>&amp;Cascade</source>
        <translation>Über&amp;lappend</translation>
    </message>
    <message>
        <source>Cascade the windows</source>
        <translation>Die Fenster überlappend anordnen</translation>
    </message>
    <message>
        <source>&amp;Reset Window Layout</source>
        <translation>Fensteranordnung &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Restore the default Window layout</source>
        <translation>Die ursprüngliche Fensteranordnung wiederherstellen</translation>
    </message>
    <message>
        <source>Ne&amp;xt</source>
        <translation>Nä&amp;chstes</translation>
    </message>
    <message>
        <source>Move the focus to the next window</source>
        <translation>Zum nächsten Fenster wechseln</translation>
    </message>
    <message>
        <source>Pre&amp;vious</source>
        <translation>&amp;Vorheriges</translation>
    </message>
    <message>
        <source>Move the focus to the previous window</source>
        <translation>Zum vorherigen Fenster wechseln</translation>
    </message>
    <message>
        <source>&amp;%1 %2</source>
        <translation>&amp;%1 %2</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>PdfTarget</name>
    <message>
        <source>Export PDF</source>
        <translation>PDF exportieren</translation>
    </message>
    <message>
        <source>PDF Files (*.pdf)</source>
        <translation>PDF-Dateien (*.pdf)</translation>
    </message>
</context>
<context>
    <name>PrintedSheet</name>
    <message>
        <source>Created by %1.</source>
        <translation>Erstellt mit %1.</translation>
    </message>
</context>
<context>
    <name>ProjectCommands</name>
    <message>
        <source>%1/New Folder</source>
        <translation>%1/Neuer Ordner</translation>
    </message>
    <message>
        <source>%1/New Client Handover Pack</source>
        <translation>%1/Neue Übergabeunterlagen</translation>
    </message>
</context>
<context>
    <name>ProjectModel</name>
    <message>
        <source>Do you want to move these %1 items to the trash?</source>
        <comment>User prompt</comment>
        <translation>Möchten Sie diese %1 Elemente in den Papierkorb verschieben?</translation>
    </message>
    <message>
        <source>Do you want to move &quot;%1&quot; to the trash?</source>
        <comment>User prompt</comment>
        <translation>Möchten Sie „%1“ in den Papierkorb verschieben?</translation>
    </message>
    <message>
        <source>Could not move to the trash:
%1</source>
        <comment>Warning Message</comment>
        <translation>In den Papierkorb konnte nicht verschoben werden:
%1</translation>
    </message>
</context>
<context>
    <name>ProjectTreeView</name>
    <message>
        <source>This will copy %1 files to your project area.</source>
        <comment>Informative Message</comment>
        <translation>Es werden %1 Dateien in Ihren Projektbereich kopiert.</translation>
    </message>
    <message>
        <source>This will copy &quot;%1&quot; to you project area.</source>
        <comment>Informative Message</comment>
        <translation>„%1“ wird in Ihren Projektbereich kopiert.</translation>
    </message>
    <message>
        <source>Do you want to proceed?</source>
        <comment>User prompt</comment>
        <translation>Möchten Sie fortfahren?</translation>
    </message>
</context>
<context>
    <name>ReportPage</name>
    <message>
        <source>Add Image</source>
        <translation>Bild hinzufügen</translation>
    </message>
</context>
<context>
    <name>ReportResizableImage</name>
    <message>
        <source>Select Image</source>
        <translation>Bild auswählen</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.bmp *.tif *.tiff *.svg)</source>
        <translation>Bilder (*.png *.jpg *.jpeg *.bmp *.tif *.tiff *.svg)</translation>
    </message>
    <message>
        <source>Delete Image</source>
        <translation>Bild löschen</translation>
    </message>
</context>
<context>
    <name>ReportScene</name>
    <message>
        <source>Error opening %1 for reading</source>
        <translation>%1 konnte nicht zum Lesen geöffnet werden</translation>
    </message>
    <message>
        <source>XML validation error in %1 on line %2, column %3</source>
        <translation>XML-Validierungsfehler in %1, Zeile %2, Spalte %3</translation>
    </message>
    <message>
        <source>Error opening %1 for writing</source>
        <translation>%1 konnte nicht zum Schreiben geöffnet werden</translation>
    </message>
    <message>
        <source>Is the file read-only or has it been deleted?</source>
        <translation>Ist die Datei schreibgeschützt oder wurde sie gelöscht?</translation>
    </message>
</context>
<context>
    <name>ReportText</name>
    <message>
        <source>Font Settings...</source>
        <translation>Schrifteinstellungen...</translation>
    </message>
</context>
<context>
    <name>ResultsImporter</name>
    <message>
        <source>Programming error: Invalid row: %1</source>
        <comment>Error Message</comment>
        <translation>Programmfehler: Ungültige Zeile: %1</translation>
    </message>
    <message>
        <source>You are attempting to insert data into an older version of the Array Test Report document. 								   Please create a new Array Test Report if you would like to import data into it. 								   You may need to restore the Array Test Document in the favourites settings if the favourite 								   was created using an earlier version of %1.</source>
        <comment>Troubleshoot advice</comment>
        <translation>Sie versuchen, Daten in eine ältere Version des Prüfberichts PV-Generator einzufügen. Bitte legen Sie einen neuen Prüfbericht PV-Generator an, wenn Sie Daten importieren möchten. Wurde der Favorit mit einer älteren Version von %1 erstellt, müssen Sie den Prüfbericht PV-Generator gegebenenfalls in den Einstellungen unter „Berichtsfavoriten“ wiederherstellen.</translation>
    </message>
    <message>
        <source>Unable to find where to insert data. Please ensure an Array Test Report has focus before inserting the data.</source>
        <comment>Troubleshoot advice</comment>
        <translation>Es wurde keine Stelle zum Einfügen der Daten gefunden. Bitte aktivieren Sie einen Prüfbericht PV-Generator, bevor Sie die Daten einfügen.</translation>
    </message>
    <message>
        <source>No more room left in the report table. Please use another Array Test Report.</source>
        <comment>Troubleshoot advice</comment>
        <translation>In der Tabelle des Berichts ist kein Platz mehr. Bitte verwenden Sie einen weiteren Prüfbericht PV-Generator.</translation>
    </message>
</context>
<context>
    <name>TesterTestType</name>
    <message>
        <source>Continuity</source>
        <translation>Durchgängigkeit</translation>
    </message>
    <message>
        <source>AutoTest</source>
        <translation>AutoTest</translation>
    </message>
    <message>
        <source>Positive-earth insulation</source>
        <translation>Isolation Pos - Erde</translation>
    </message>
    <message>
        <source>Negative-earth insulation</source>
        <translation>Isolation Neg - Erde</translation>
    </message>
    <message>
        <source>AutoTest &amp; Curve</source>
        <translation>AutoTest &amp; Kennlinie</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
</context>
</TS>
