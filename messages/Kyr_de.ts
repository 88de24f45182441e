<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>KyrApplication</name>
    <message>
        <source>Sheet Forming</source>
        <translation>Blechumformung</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Bewegung</translation>
    </message>
    <message>
        <source>Inspection</source>
        <translation>Prüfung</translation>
    </message>
    <message>
        <source>Viewer</source>
        <translation>Betrachter</translation>
    </message>
    <message>
        <source>Deformation</source>
        <translation>Verformung</translation>
    </message>
    <message>
        <source>Material Test</source>
        <translation>Werkstoffprüfung</translation>
    </message>
    <message>
        <source>Test Rig</source>
        <translation>Prüfstand</translation>
    </message>
    <message>
        <source>Launcher</source>
        <translation>Startprogramm</translation>
    </message>
    <message>
        <source>Computing Server</source>
        <translation>Rechenserver</translation>
    </message>
    <message>
        <source>Sensor</source>
        <translation>Sensor</translation>
    </message>
    <message>
        <source>Large Structure</source>
        <translation>Großstruktur</translation>
    </message>
    <message>
        <source>Production Cell</source>
        <translation>Fertigungszelle</translation>
    </message>
</context>
<context>
    <name>KyrChangeLog</name>
    <message>
        <source>new %1.</source>
        <translation>neu: %1.</translation>
    </message>
    <message>
        <source>%1 renamed to %2.</source>
        <translation>%1 heißt jetzt %2.</translation>
    </message>
    <message>
        <source>removed %1.</source>
        <translation>%1 entfernt.</translation>
    </message>
    <message>
        <source>changed semantics of %1.</source>
        <translation>Bedeutung von %1 geändert.</translation>
    </message>
</context>
<context>
    <name>KyrLibraryHistory</name>
    <message>
        <source>Reports a broken invariant and ends the process.</source>
        <translation>Meldet eine verletzte Invariante und beendet den Prozess.</translation>
    </message>
    <message>
        <source>Sorts item9 before item10.</source>
        <translation>Sortiert item9 vor item10.</translation>
    </message>
    <message>
        <source>With its kin for other numbers, the same under every locale.</source>
        <translation>Wie die verwandten Funktionen für andere Zahlen unter jeder Ländereinstellung gleich.</translation>
    </message>
    <message>
        <source>On Linux only.</source>
        <translation>Nur unter Linux.</translation>
    </message>
    <message>
        <source>Finds the next free number of a series of files.</source>
        <translation>Findet die nächste freie Nummer einer Dateiserie.</translation>
    </message>
    <message>
        <source>Gives way when its owner no longer lives.</source>
        <translation>Gibt nach, wenn sein Besitzer nicht mehr lebt.</translation>
    </message>
    <message>
        <source>Hands an exception of its work to the thread that waits for it.</source>
        <translation>Reicht eine Ausnahme aus seiner Arbeit an den Thread weiter, der auf ihn wartet.</translation>
    </message>
    <message>
        <source>Tells at which byte a file is damaged or cut short.</source>
        <translation>Nennt das Byte, ab dem eine Datei beschädigt oder abgeschnitten ist.</translation>
    </message>
    <message>
        <source>Bounded in memory by ZippedTarLimits.</source>
        <translation>Begrenzt seinen Speicherbedarf durch ZippedTarLimits.</translation>
    </message>
    <message>
        <source>libKyr %1: changes of the interface</source>
        <translation>libKyr %1: Änderungen der Schnittstelle</translation>
    </message>
    <message>
        <source>Reads and writes quantities as people do.</source>
        <translation>Liest und schreibt Größen, wie Menschen es tun.</translation>
    </message>
</context>
<context>
    <name>Kyr_FileParse</name>
    <message>
        <source>column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no pair %3=&quot;...&quot;</source>
        <translation>„%1“ ist kein Paar %3=&quot;...&quot;</translation>
    </message>
    <message>
        <source>the line ends too early</source>
        <translation>die Zeile endet zu früh</translation>
    </message>
    <message>
        <source>the line is too long</source>
        <translation>die Zeile ist zu lang</translation>
    </message>
    <message>
        <source>the file ends in the middle of this line</source>
        <translation>die Datei endet mitten in dieser Zeile</translation>
    </message>
    <message>
        <source>the file ends</source>
        <translation>die Datei endet</translation>
    </message>
    <message>
        <source>the file ends where &quot;%2&quot; is expected</source>
        <translation>die Datei endet, wo „%2“ erwartet wird</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands where &quot;%2&quot; is expected</source>
        <translation>„%1“ steht, wo „%2“ erwartet wird</translation>
    </message>
    <message>
        <source>the file cannot be read to its end</source>
        <translation>die Datei kann nicht bis zum Ende gelesen werden</translation>
    </message>
    <message>
        <source>a value is missing</source>
        <translation>ein Wert fehlt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no integer</source>
        <translation>„%1“ ist keine ganze Zahl</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not within %3</source>
        <translation>„%1“ liegt nicht innerhalb von %3</translation>
    </message>
</context>
<context>
    <name>Kyr_Quantity</name>
    <message>
        <source>A number is missing.</source>
        <translation>Eine Zahl fehlt.</translation>
    </message>
    <message>
        <source>No number begins here.</source>
        <translation>Hier beginnt keine Zahl.</translation>
    </message>
    <message>
        <source>A digit is missing.</source>
        <translation>Eine Ziffer fehlt.</translation>
    </message>
    <message>
        <source>%1 may be %2 or %3: write %4 or %5.</source>
        <translation>%1 kann %2 oder %3 sein: Schreiben Sie %4 oder %5.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; separates no groups of three digits here; the decimal separator is &quot;%2&quot;.</source>
        <translation>„%1“ trennt hier keine Gruppen von drei Ziffern; das Dezimalzeichen ist „%2“.</translation>
    </message>
    <message>
        <source>A number has only one decimal separator.</source>
        <translation>Eine Zahl hat nur ein Dezimalzeichen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no fraction.</source>
        <translation>„%1“ ist kein Bruch.</translation>
    </message>
    <message>
        <source>The number is too large.</source>
        <translation>Die Zahl ist zu groß.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no unit here; known are %2.</source>
        <translation>„%1“ ist hier keine Einheit; bekannt sind %2.</translation>
    </message>
    <message>
        <source>A unit is missing.</source>
        <translation>Eine Einheit fehlt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot follow here.</source>
        <translation>„%1“ kann hier nicht folgen.</translation>
    </message>
    <message>
        <source>The smallest value is %1.</source>
        <translation>Der kleinste Wert ist %1.</translation>
    </message>
    <message>
        <source>The largest value is %1.</source>
        <translation>Der größte Wert ist %1.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no kind, unit and decimals.</source>
        <translation>„%1“ nennt nicht Art, Einheit und Nachkommastellen.</translation>
    </message>
    <message>
        <source>The number is too close to zero.</source>
        <translation>Die Zahl ist zu nah an null.</translation>
    </message>
    <message>
        <source>Either all parts of a sum have a unit or none has.</source>
        <translation>Entweder haben alle Teile einer Summe eine Einheit oder keiner.</translation>
    </message>
    <message>
        <source>Only one factor may have a unit.</source>
        <translation>Nur ein Faktor darf eine Einheit haben.</translation>
    </message>
    <message>
        <source>A divisor may not have a unit.</source>
        <translation>Ein Teiler darf keine Einheit haben.</translation>
    </message>
    <message>
        <source>Nothing can be divided by zero.</source>
        <translation>Durch null kann nichts geteilt werden.</translation>
    </message>
    <message>
        <source>A closing parenthesis is missing.</source>
        <translation>Eine schließende Klammer fehlt.</translation>
    </message>
    <message>
        <source>There are too many parentheses in each other.</source>
        <translation>Zu viele Klammern stecken ineinander.</translation>
    </message>
</context>
<context>
    <name>Kyr_Translator</name>
    <message>
        <source>language: english</source>
        <translation>Englisch</translation>
    </message>
    <message>
        <source>language: german</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>language: french</source>
        <translation>Französisch</translation>
    </message>
    <message>
        <source>language: japanese</source>
        <translation>Japanisch</translation>
    </message>
    <message>
        <source>language: chinese</source>
        <translation>Chinesisch</translation>
    </message>
    <message>
        <source>language: portuguese</source>
        <translation>Portugiesisch</translation>
    </message>
</context>
<context>
    <name>Kyr_crash</name>
    <message>
        <source>%1 has crashed. The report is %2, the dump is %3.</source>
        <translation>%1 ist abgestürzt. Der Bericht steht in %2, das Speicherabbild in %3.</translation>
    </message>
    <message>
        <source>%1 has crashed. The report is %2; there is no dump.</source>
        <translation>%1 ist abgestürzt. Der Bericht steht in %2; ein Speicherabbild gibt es nicht.</translation>
    </message>
</context>
<context>
    <name>Kyr_diagnostics</name>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no colour: %2</source>
        <translation>„%1“ ist keine Farbe: %2</translation>
    </message>
    <message>
        <source>red, green, blue and alpha are numbers from 0 to 255, or together #rrggbbaa</source>
        <translation>Rot, Grün, Blau und Alpha sind Zahlen von 0 bis 255 oder zusammen #rrggbbaa</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no font: %2</source>
        <translation>„%1“ ist keine Schrift: %2</translation>
    </message>
    <message>
        <source>the size is a number of points from 0.1 to 10000</source>
        <translation>Die Größe ist eine Zahl von Punkten zwischen 0.1 und 10000, mit Dezimalpunkt</translation>
    </message>
    <message>
        <source>the weight is a number from 1 to 1000, 400 is normal</source>
        <translation>Die Stärke ist eine Zahl von 1 bis 1000; 400 ist normal</translation>
    </message>
    <message>
        <source>behind the weight come italic, underline, strikeout and fixed, each once</source>
        <translation>Nach der Stärke folgen italic, underline, strikeout und fixed, jedes höchstens einmal</translation>
    </message>
    <message>
        <source>the family is one word, with \_ for each of its blanks</source>
        <translation>Die Schriftfamilie ist ein einziges Wort, mit \_ für jedes Leerzeichen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no sound: %2</source>
        <translation>„%1“ ist kein Klang: %2</translation>
    </message>
    <message>
        <source>the volume is a number from 0 to 100</source>
        <translation>Die Lautstärke ist eine Zahl von 0 bis 100</translation>
    </message>
    <message>
        <source>the repetitions are a number from 1 to 1000000, or 0 without an end</source>
        <translation>Die Anzahl der Wiederholungen ist eine Zahl von 1 bis 1000000 oder 0 für ohne Ende</translation>
    </message>
    <message>
        <source>the file is one word, with \_ for each of its blanks</source>
        <translation>Die Datei ist ein einziges Wort, mit \_ für jedes Leerzeichen</translation>
    </message>
    <message>
        <source>nothing may follow the repetitions</source>
        <translation>Nach der Anzahl der Wiederholungen darf nichts mehr folgen</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1 exists already and is not replaced</source>
        <translation>%1 ist schon vorhanden und wird nicht ersetzt</translation>
    </message>
    <message>
        <source>the file ends in the middle of this line</source>
        <translation>die Datei endet mitten in dieser Zeile</translation>
    </message>
</context>
<context>
    <name>Kyr_zip_err</name>
    <message>
        <source>invalid file version: %1. the file is newer than the actual program version: %2</source>
        <translation>Ungültige Dateiversion: %1. Die Datei ist neuer als die vorliegende Programmversion: %2</translation>
    </message>
    <message>
        <source>unknown file version</source>
        <translation>unbekannte Dateiversion</translation>
    </message>
    <message>
        <source>cannot read zip stream header</source>
        <translation>Der Kopf des Zip-Stroms kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>invalid zip stream header</source>
        <translation>Ungültiger Kopf des Zip-Stroms.</translation>
    </message>
    <message>
        <source>invalid header: the file was transferred by ascii-ftp.
it must be transferred by binary-ftp.</source>
        <translation>Ungültiger Dateikopf: Die Datei wurde per FTP im Textmodus (ASCII) übertragen.
Sie muss im Binärmodus übertragen werden.</translation>
    </message>
</context>
</TS>
