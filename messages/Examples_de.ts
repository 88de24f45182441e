<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Surface</name>
    <message>
        <source>stopped by the user</source>
        <translation>vom Benutzer abgebrochen</translation>
    </message>
    <message>
        <source>Computing curvatures</source>
        <translation>Krümmungen berechnen</translation>
    </message>
    <message>
        <source>Sorting the corners of triangles</source>
        <translation>Ecken der Dreiecke sortieren</translation>
    </message>
    <message>
        <source>Finding neighbours and normals</source>
        <translation>Nachbarn und Normalen bestimmen</translation>
    </message>
    <message>
        <source>Smoothing normals</source>
        <translation>Normalen glätten</translation>
    </message>
    <message>
        <source>%1 copies of %2 are too many points</source>
        <translation>%1 Kopien von %2 sind zu viele Punkte</translation>
    </message>
    <message>
        <source>the file is damaged, as byte %1 shows; what was read before (%2 bytes) may be wrong</source>
        <translation>Die Datei ist beschädigt, wie Byte %1 zeigt; was davor gelesen wurde (%2 Byte), kann falsch sein.</translation>
    </message>
    <message>
        <source>the file ends too early, at byte %1; the first %2 bytes of content are good</source>
        <translation>Die Datei endet zu früh, bei Byte %1; die ersten %2 Byte des Inhalts sind gut.</translation>
    </message>
    <message>
        <source>reading stopped early</source>
        <translation>Das Lesen wurde vorzeitig beendet</translation>
    </message>
    <message>
        <source>the content is no surface of this program</source>
        <translation>Der Inhalt ist keine Oberfläche dieses Programms</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>%1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation>%1 enthält keine Oberfläche</translation>
    </message>
    <message>
        <source>cannot open %1</source>
        <translation>%1 kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>damaged line: %1</source>
        <translation>beschädigte Zeile: %1</translation>
    </message>
    <message>
        <source>cannot read %1 to its end</source>
        <translation>%1 kann nicht bis zum Ende gelesen werden</translation>
    </message>
    <message>
        <source>lines with unknown keys, all told: %1</source>
        <translation>Zeilen mit unbekanntem Schlüsselwort insgesamt: %1</translation>
    </message>
    <message>
        <source>unknown key, line skipped: %1</source>
        <translation>unbekanntes Schlüsselwort, Zeile übergangen: %1</translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, Zeile %2: %3</translation>
    </message>
    <message>
        <source>in less than 2 ms</source>
        <translation>in weniger als 2 ms</translation>
    </message>
    <message>
        <source>at %1 MB/s</source>
        <translation>mit %1 MB/s</translation>
    </message>
    <message>
        <source>byte</source>
        <translation>Byte</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>Byte</translation>
    </message>
    <message>
        <source>line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>lines</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>data line</source>
        <translation>Datenzeile</translation>
    </message>
    <message>
        <source>data lines</source>
        <translation>Datenzeilen</translation>
    </message>
    <message>
        <source>open edge</source>
        <translation>offene Kante</translation>
    </message>
    <message>
        <source>open edges</source>
        <translation>offene Kanten</translation>
    </message>
    <message>
        <source>point</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>triangle</source>
        <translation>Dreieck</translation>
    </message>
    <message>
        <source>triangles</source>
        <translation>Dreiecke</translation>
    </message>
    <message>
        <source>worker</source>
        <translation>Thread</translation>
    </message>
    <message>
        <source>workers</source>
        <translation>Threads</translation>
    </message>
</context>
<context>
    <name>Tour</name>
    <message>
        <source>cannot read %1: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>cannot make a folder for temporary files</source>
        <translation>Ein Ordner für temporäre Dateien kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>cannot write %1: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>harmless here: the content is the same</source>
        <translation>hier harmlos: der Inhalt ist derselbe</translation>
    </message>
    <message>
        <source>TAKEN FOR GOOD DATA</source>
        <translation>FÜR GUTE DATEN GEHALTEN</translation>
    </message>
    <message>
        <source>cut short</source>
        <translation>abgeschnitten</translation>
    </message>
    <message>
        <source>one bit flipped</source>
        <translation>ein Bit gekippt</translation>
    </message>
    <message>
        <source>sent as text</source>
        <translation>als Text gesandt</translation>
    </message>
    <message>
        <source>newer program</source>
        <translation>neueres Programm</translation>
    </message>
    <message>
        <source>Read the scan</source>
        <translation>Den Scan lesen</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>holds</source>
        <translation>enthält</translation>
    </message>
    <message>
        <source>text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>%1, %2, read %3</source>
        <translation>%1, %2, gelesen %3</translation>
    </message>
    <message>
        <source>read %1, %2 of them without geometry</source>
        <translation>%1 gelesen, davon %2 ohne Geometrie</translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation>%1 enthält keine Oberfläche</translation>
    </message>
    <message>
        <source>repeated</source>
        <translation>wiederholt</translation>
    </message>
    <message>
        <source>%1 times, side by side: %2</source>
        <translation>%1-mal nebeneinander: %2</translation>
    </message>
    <message>
        <source>Measure it (one unit of the file is 1 %1)</source>
        <translation>Vermessen (eine Einheit der Datei ist 1 %1)</translation>
    </message>
    <message>
        <source>%1 is too large to be measured</source>
        <translation>%1 ist zu groß, um vermessen zu werden</translation>
    </message>
    <message>
        <source>width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>depth</source>
        <translation>Tiefe</translation>
    </message>
    <message>
        <source>surface</source>
        <translation>Oberfläche</translation>
    </message>
    <message>
        <source>volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>the surface has %1; its volume is closed over the middle</source>
        <translation>Die Oberfläche hat %1; ihr Volumen wird über die Mitte geschlossen</translation>
    </message>
    <message>
        <source>jobs</source>
        <translation>Aufträge</translation>
    </message>
    <message>
        <source>time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>%1 s of computing in %2 s: %3 processors busy</source>
        <translation>%1 s Rechenzeit in %2 s: %3 Prozessoren beschäftigt</translation>
    </message>
    <message>
        <source>mean curvature</source>
        <translation>mittl. Krümmung</translation>
    </message>
    <message>
        <source>lowest</source>
        <translation>kleinste</translation>
    </message>
    <message>
        <source>5% lie below</source>
        <translation>5% darunter</translation>
    </message>
    <message>
        <source>median</source>
        <translation>Median</translation>
    </message>
    <message>
        <source>5% lie above</source>
        <translation>5% darüber</translation>
    </message>
    <message>
        <source>highest</source>
        <translation>größte</translation>
    </message>
    <message>
        <source>Analyse it on %1</source>
        <translation>Auswerten mit %1</translation>
    </message>
    <message>
        <source>curvatures</source>
        <translation>Krümmungen</translation>
    </message>
    <message>
        <source>%1 without a curvature: no triangle of any area</source>
        <translation>%1 ohne Krümmung: kein Dreieck mit Fläche</translation>
    </message>
    <message>
        <source>Keep it in a project file</source>
        <translation>In einer Projektdatei aufbewahren</translation>
    </message>
    <message>
        <source>wrote %1</source>
        <translation>%1 geschrieben</translation>
    </message>
    <message>
        <source>time of writing</source>
        <translation>geschrieben am</translation>
    </message>
    <message>
        <source>content</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>packed</source>
        <translation>gepackt</translation>
    </message>
    <message>
        <source>%1, %2% of the content</source>
        <translation>%1, %2% des Inhalts</translation>
    </message>
    <message>
        <source>speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>written %1, read %2</source>
        <translation>geschrieben %1, gelesen %2</translation>
    </message>
    <message>
        <source>compared</source>
        <translation>verglichen</translation>
    </message>
    <message>
        <source>all %1 equal</source>
        <translation>alle %1 gleich</translation>
    </message>
    <message>
        <source>DIFFERENT: %1</source>
        <translation>VERSCHIEDEN: %1</translation>
    </message>
    <message>
        <source>libKyr %1: a scan from text to a project file and back</source>
        <translation>libKyr %1: ein Scan vom Text zur Projektdatei und zurück</translation>
    </message>
    <message>
        <source>What damage looks like (on copies)</source>
        <translation>Wie Schäden aussehen (an Kopien)</translation>
    </message>
    <message>
        <source>no damaged copy was taken for good data</source>
        <translation>keine beschädigte Kopie wurde für gute Daten gehalten</translation>
    </message>
    <message>
        <source>A DAMAGED COPY WAS TAKEN FOR GOOD</source>
        <translation>EINE BESCHÄDIGTE KOPIE WURDE FÜR GUT BEFUNDEN</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Everything held.</source>
        <translation>Alles hat gehalten.</translation>
    </message>
    <message>
        <source>SOMETHING DID NOT HOLD.</source>
        <translation>ETWAS HAT NICHT GEHALTEN.</translation>
    </message>
    <message>
        <source>cannot write to standard output</source>
        <translation>Die Standardausgabe kann nicht beschrieben werden</translation>
    </message>
    <message>
        <source>%1; nothing is half written</source>
        <translation>%1; nichts ist halb geschrieben</translation>
    </message>
    <message>
        <source>out of memory (%1)</source>
        <translation>kein Speicher mehr (%1)</translation>
    </message>
    <message>
        <source>working</source>
        <translation>in Arbeit</translation>
    </message>
</context>
</TS>
