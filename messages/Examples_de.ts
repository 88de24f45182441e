<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Gauge</name>
    <message>
        <source>Gauge</source>
        <translation>Anzeige</translation>
    </message>
    <message>
        <source>&amp;Length</source>
        <translation>&amp;Länge</translation>
    </message>
    <message>
        <source>&amp;Temperature</source>
        <translation>&amp;Temperatur</translation>
    </message>
    <message>
        <source>&amp;Angle</source>
        <translation>&amp;Winkel</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>&amp;Einheit</translation>
    </message>
    <message>
        <source>Any unit may follow the number.</source>
        <translation>Hinter der Zahl darf jede Einheit stehen.</translation>
    </message>
    <message>
        <source>Try gauge --help.</source>
        <translation>Hilfe gibt gauge --help.</translation>
    </message>
    <message>
        <source>there is no gauge for %1</source>
        <translation>für %1 gibt es keine Anzeige</translation>
    </message>
    <message>
        <source>Shows a quantity that is typed as people write it.</source>
        <translation>Zeigt eine Größe, die eingetippt wird, wie man sie schreibt.</translation>
    </message>
    <message>
        <source>quantity</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>what the field holds at first</source>
        <translation>was zu Beginn im Feld steht</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>zeigt diese Hilfe</translation>
    </message>
    <message>
        <source>kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>in which the quantity is shown</source>
        <translation>in der die Größe gezeigt wird</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>writes a picture of the window and ends</source>
        <translation>schreibt ein Bild des Fensters und endet</translation>
    </message>
    <message>
        <source>give one quantity, in quotes</source>
        <translation>geben Sie eine Größe an, in Anführungszeichen</translation>
    </message>
    <message>
        <source>the gauge has no unit %1</source>
        <translation>die Anzeige hat keine Einheit %1</translation>
    </message>
    <message>
        <source>there is no display for a window; --screenshot needs none</source>
        <translation>Es gibt keinen Bildschirm für ein Fenster; mit --screenshot braucht es keinen.</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>%1 kann nicht geschrieben werden</translation>
    </message>
</context>
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
        <source>lines with unknown keys, all told: %1</source>
        <translation>Zeilen mit unbekanntem Schlüsselwort insgesamt: %1</translation>
    </message>
    <message>
        <source>unknown key, line skipped: %1</source>
        <translation>unbekanntes Schlüsselwort, Zeile übergangen: %1</translation>
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
        <source>the system starts no threads for the analysis</source>
        <translation>das System startet keine Threads für die Auswertung</translation>
    </message>
    <message>
        <source>a coordinate must be finite</source>
        <translation>eine Koordinate muss endlich sein</translation>
    </message>
    <message>
        <source>there is no such point</source>
        <translation>diesen Punkt gibt es nicht</translation>
    </message>
    <message>
        <source>missing are %1 and %2</source>
        <translation>es fehlen %1 und %2</translation>
    </message>
    <message numerus="yes">
        <source>the file is damaged: %1 of its %2 bytes of content is lost; the others were checked and are good</source>
        <comment>the file is damaged: %1 of its %2 bytes of content are lost; the others were checked and are good</comment>
        <translation>
            <numerusform>die Datei ist beschädigt: %1 von %2 Bytes ihres Inhalts ist verloren; die anderen wurden geprüft und sind gut</numerusform>
            <numerusform>die Datei ist beschädigt: %1 von %2 Bytes ihres Inhalts sind verloren; die anderen wurden geprüft und sind gut</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file is damaged, as byte %1 shows; what was read before (%2 byte) may be wrong</source>
        <comment>the file is damaged, as byte %1 shows; what was read before (%2 bytes) may be wrong</comment>
        <translation>
            <numerusform>Die Datei ist beschädigt, wie Byte %1 zeigt; was davor gelesen wurde (%2 Byte), kann falsch sein.</numerusform>
            <numerusform>Die Datei ist beschädigt, wie Byte %1 zeigt; was davor gelesen wurde (%2 Byte), kann falsch sein.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file ends too early, at byte %1; the first %2 byte of content is good</source>
        <comment>the file ends too early, at byte %1; the first %2 bytes of content are good</comment>
        <translation>
            <numerusform>Die Datei endet zu früh, bei Byte %1; das erste %2 Byte des Inhalts ist gut.</numerusform>
            <numerusform>Die Datei endet zu früh, bei Byte %1; die ersten %2 Byte des Inhalts sind gut.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 byte</source>
        <comment>%1 bytes</comment>
        <translation>
            <numerusform>%1 Byte</numerusform>
            <numerusform>%1 Byte</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 line</source>
        <comment>%1 lines</comment>
        <translation>
            <numerusform>%1 Zeile</numerusform>
            <numerusform>%1 Zeilen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 data line</source>
        <comment>%1 data lines</comment>
        <translation>
            <numerusform>%1 Datenzeile</numerusform>
            <numerusform>%1 Datenzeilen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 open edge</source>
        <comment>%1 open edges</comment>
        <translation>
            <numerusform>%1 offene Kante</numerusform>
            <numerusform>%1 offene Kanten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 point</source>
        <comment>%1 points</comment>
        <translation>
            <numerusform>%1 Punkt</numerusform>
            <numerusform>%1 Punkte</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 triangle</source>
        <comment>%1 triangles</comment>
        <translation>
            <numerusform>%1 Dreieck</numerusform>
            <numerusform>%1 Dreiecke</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 worker</source>
        <comment>%1 workers</comment>
        <translation>
            <numerusform>%1 Thread</numerusform>
            <numerusform>%1 Threads</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Tour</name>
    <message>
        <source>cannot read %1: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
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
    <message>
        <source>the system starts no thread for the analysis</source>
        <translation>das System startet keinen Thread für die Auswertung</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>%1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>cannot pack %1</source>
        <translation>%1 lässt sich nicht packen</translation>
    </message>
    <message>
        <source>cannot make a folder in %1 for temporary files</source>
        <translation>in %1 lässt sich kein Ordner für temporäre Dateien anlegen</translation>
    </message>
    <message>
        <source>Pack it all</source>
        <translation>Alles packen</translation>
    </message>
    <message>
        <source>Try tour --help.</source>
        <translation>Hilfe gibt tour --help.</translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3</source>
        <translation>--%1 erwartet eine Zahl von %2 bis %3</translation>
    </message>
    <message>
        <source>the project file would replace %1</source>
        <translation>die Projektdatei würde %1 ersetzen</translation>
    </message>
    <message>
        <source>the archive would replace %1</source>
        <translation>das Archiv würde %1 ersetzen</translation>
    </message>
    <message>
        <source>Reads a scan, measures it, keeps it in a project file and packs it all.</source>
        <translation>Liest einen Scan, vermisst ihn, bewahrt ihn in einer Projektdatei auf und packt alles.</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>zeigt diese Hilfe</translation>
    </message>
    <message>
        <source>scan</source>
        <translation>Scan</translation>
    </message>
    <message>
        <source>an OBJ file</source>
        <translation>eine OBJ-Datei</translation>
    </message>
    <message>
        <source>what one unit of the file is; default mm</source>
        <translation>was eine Einheit der Datei bedeutet; sonst mm</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>where the project file goes; default here</source>
        <translation>wohin die Projektdatei kommt; sonst hierher</translation>
    </message>
    <message>
        <source>directory</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>where it is all packed as a tar.gz; default beside the project file</source>
        <translation>wohin alles als tar.gz gepackt wird; sonst neben die Projektdatei</translation>
    </message>
    <message>
        <source>how often the scan is repeated, side by side; default 1</source>
        <translation>wie oft der Scan nebeneinander wiederholt wird; sonst 1-mal</translation>
    </message>
    <message>
        <source>number</source>
        <translation>Zahl</translation>
    </message>
    <message>
        <source>threads that analyse it; default one per processor</source>
        <translation>Threads für die Auswertung; sonst einer je Prozessor</translation>
    </message>
    <message>
        <source>how often normals are smoothed; default 2</source>
        <translation>wie oft Normalen geglättet werden; sonst 2-mal</translation>
    </message>
    <message>
        <source>give one OBJ file</source>
        <translation>bitte eine OBJ-Datei angeben</translation>
    </message>
    <message>
        <source>no unit of length is called %1</source>
        <translation>keine Längeneinheit heißt %1</translation>
    </message>
    <message>
        <source>saved of it</source>
        <translation>davon gerettet</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 piece, equal to what was written</source>
        <comment>%1 of %2 pieces, equal to what was written</comment>
        <translation>
            <numerusform>%1 von %2 Stück, gleich dem, was geschrieben wurde</numerusform>
            <numerusform>%1 von %2 Stücken, gleich dem, was geschrieben wurde</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 piece, NOT WHAT WAS WRITTEN</source>
        <comment>%1 of %2 pieces, NOT WHAT WAS WRITTEN</comment>
        <translation>
            <numerusform>%1 von %2 Stück, NICHT DAS, WAS GESCHRIEBEN WURDE</numerusform>
            <numerusform>%1 von %2 Stücken, NICHT DAS, WAS GESCHRIEBEN WURDE</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>Legend of the colours</source>
        <translation>Legende der Farben</translation>
    </message>
    <message>
        <source>Mean curvature, %1: %2</source>
        <translation>Mittlere Krümmung, %1: %2</translation>
    </message>
    <message>
        <source>Curvature</source>
        <translation>Krümmung</translation>
    </message>
    <message>
        <source>Mean curvature</source>
        <translation>Mittlere Krümmung</translation>
    </message>
    <message>
        <source>in %1</source>
        <translation>in %1</translation>
    </message>
    <message>
        <source>ridges</source>
        <translation>Grate</translation>
    </message>
    <message>
        <source>hollows</source>
        <translation>Mulden</translation>
    </message>
    <message>
        <source>Try viewer --help.</source>
        <translation>Hilfe gibt viewer --help.</translation>
    </message>
    <message>
        <source>no size: %1; it should look like 1280x800</source>
        <translation>keine Größe: %1; sie sollte wie 1280x800 aussehen</translation>
    </message>
    <message>
        <source>Shows a scan, coloured by its curvature.</source>
        <translation>Zeigt einen Scan, nach seiner Krümmung gefärbt.</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>zeigt diese Hilfe</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>an OBJ file or a project (.kyr)</source>
        <translation>eine OBJ-Datei oder ein Projekt (.kyr)</translation>
    </message>
    <message>
        <source>what one unit of an OBJ file is; default mm</source>
        <translation>was eine Einheit einer OBJ-Datei bedeutet; sonst mm</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>how often the scan is shown, side by side; default 1</source>
        <translation>wie oft der Scan nebeneinander gezeigt wird; sonst 1-mal</translation>
    </message>
    <message>
        <source>number</source>
        <translation>Zahl</translation>
    </message>
    <message>
        <source>writes a picture of the window and ends</source>
        <translation>schreibt ein Bild des Fensters und endet</translation>
    </message>
    <message>
        <source>of the window; default 1280x800</source>
        <translation>des Fensters; sonst 1280x800</translation>
    </message>
    <message>
        <source>size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>give one file</source>
        <translation>bitte eine Datei angeben</translation>
    </message>
    <message>
        <source>no number of copies: %1</source>
        <translation>keine Anzahl von Kopien: %1</translation>
    </message>
    <message>
        <source>no unit of length is called %1</source>
        <translation>keine Längeneinheit heißt %1</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>%1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>a screenshot needs a file</source>
        <translation>ein Bildschirmfoto braucht eine Datei</translation>
    </message>
    <message>
        <source>Scan viewer</source>
        <translation>Scan-Betrachter</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Save picture…</source>
        <translation>Bild &amp;speichern…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>&amp;Einpassen</translation>
    </message>
    <message>
        <source>&amp;Oblique</source>
        <translation>&amp;Schräg</translation>
    </message>
    <message>
        <source>F&amp;ront</source>
        <translation>&amp;Vorn</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Hinten</translation>
    </message>
    <message>
        <source>&amp;Left</source>
        <translation>&amp;Links</translation>
    </message>
    <message>
        <source>Ri&amp;ght</source>
        <translation>&amp;Rechts</translation>
    </message>
    <message>
        <source>&amp;Top</source>
        <translation>&amp;Oben</translation>
    </message>
    <message>
        <source>Botto&amp;m</source>
        <translation>&amp;Unten</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>Show all of the scan (F)</source>
        <translation>Den ganzen Scan zeigen (F)</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Back to the first view (Home)</source>
        <translation>Zurück zur ersten Ansicht (Pos1)</translation>
    </message>
    <message>
        <source>Drop a scan here</source>
        <translation>Einen Scan hierher ziehen</translation>
    </message>
    <message>
        <source>an OBJ file, or a project (.kyr)</source>
        <translation>eine OBJ-Datei oder ein Projekt (.kyr)</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>Öffnen…</translation>
    </message>
    <message>
        <source>Open a scan</source>
        <translation>Einen Scan öffnen</translation>
    </message>
    <message>
        <source>Scans and projects</source>
        <translation>Scans und Projekte</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>Save the picture</source>
        <translation>Das Bild speichern</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>%1 was not opened: %2</source>
        <translation>%1 wurde nicht geöffnet: %2</translation>
    </message>
    <message>
        <source>Opening %1 was aborted.</source>
        <translation>Das Öffnen von %1 wurde abgebrochen.</translation>
    </message>
    <message>
        <source>%1 – Scan viewer</source>
        <translation>%1 – Scan-Betrachter</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
    <message>
        <source>Put the message away</source>
        <translation>Meldung wegräumen</translation>
    </message>
    <message>
        <source>Project, %1</source>
        <translation>Projekt, %1</translation>
    </message>
    <message>
        <source>Scan, %1</source>
        <translation>Scan, %1</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>Lese %1</translation>
    </message>
    <message>
        <source>Measuring</source>
        <translation>Vermessen</translation>
    </message>
    <message>
        <source>the scan is too large to be measured</source>
        <translation>der Scan ist zu groß, um vermessen zu werden</translation>
    </message>
    <message>
        <source>Preparing the picture</source>
        <translation>Bild vorbereiten</translation>
    </message>
    <message>
        <source>the system starts no thread for it</source>
        <translation>das System startet keinen Thread dafür</translation>
    </message>
    <message>
        <source>there is not enough memory for this scan</source>
        <translation>für diesen Scan reicht der Speicher nicht</translation>
    </message>
    <message>
        <source>Numbers of the scan</source>
        <translation>Zahlen zum Scan</translation>
    </message>
    <message>
        <source>Unit of length</source>
        <translation>Längeneinheit</translation>
    </message>
    <message>
        <source>Unit of length; areas, volumes and curvatures follow</source>
        <translation>Längeneinheit; Flächen, Volumen und Krümmungen folgen ihr</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>&amp;Einheit</translation>
    </message>
    <message>
        <source>Surface</source>
        <translation>Oberfläche</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Triangles</source>
        <translation>Dreiecke</translation>
    </message>
    <message>
        <source>Open edges</source>
        <translation>Offene Kanten</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Abmessungen</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Tiefe</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>Fläche</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Open surface: its volume is closed over its middle.</source>
        <translation>Offene Oberfläche: Ihr Volumen ist über ihrer Mitte geschlossen.</translation>
    </message>
    <message>
        <source>Highest</source>
        <translation>Größte</translation>
    </message>
    <message>
        <source>5 % lie above</source>
        <translation>5&#xa0;% darüber</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>Median</translation>
    </message>
    <message>
        <source>5 % lie below</source>
        <translation>5&#xa0;% darunter</translation>
    </message>
    <message>
        <source>Lowest</source>
        <translation>Kleinste</translation>
    </message>
    <message>
        <source>No scan</source>
        <translation>Kein Scan</translation>
    </message>
    <message>
        <source>Open one to see its numbers</source>
        <translation>Öffnen Sie einen, um Zahlen zu sehen</translation>
    </message>
    <message>
        <source>Drag to turn  ·  Shift-drag to move  ·  Wheel to zoom</source>
        <translation>Ziehen dreht  ·  Ziehen mit Umschalt verschiebt  ·  Mausrad zoomt</translation>
    </message>
    <message>
        <source>Curvature under the mouse</source>
        <translation>Krümmung unter der Maus</translation>
    </message>
    <message>
        <source>Progress of the computation</source>
        <translation>Fortschritt der Berechnung</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Abort the computation</source>
        <translation>Berechnung abbrechen</translation>
    </message>
    <message>
        <source>Stops the computation and keeps what is shown (Esc)</source>
        <translation>Hält die Berechnung an und behält, was gezeigt wird (Esc)</translation>
    </message>
    <message>
        <source>Curvature here  %1</source>
        <translation>Krümmung hier  %1</translation>
    </message>
    <message>
        <source>Picture of the scan</source>
        <translation>Bild des Scans</translation>
    </message>
    <message>
        <source>Arrow keys turn it, plus and minus come nearer and go away</source>
        <translation>Pfeiltasten drehen es, Plus und Minus holen es heran und rücken es fort</translation>
    </message>
    <message>
        <source>there is no display for a window; --screenshot needs none</source>
        <translation>Es gibt keinen Bildschirm für ein Fenster; mit --screenshot braucht es keinen.</translation>
    </message>
</context>
</TS>
