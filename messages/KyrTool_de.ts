<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Kyr_tool</name>
    <message>
        <source>unknown option &quot;%1&quot;</source>
        <translation>unbekannte Option „%1“</translation>
    </message>
    <message>
        <source>an argument is missing</source>
        <translation>ein Argument fehlt</translation>
    </message>
    <message>
        <source>one argument too many: &quot;%1&quot;</source>
        <translation>ein Argument zu viel: „%1“</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 nimmt keinen Wert</translation>
    </message>
    <message>
        <source>%1 needs a value</source>
        <translation>%1 braucht einen Wert</translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3, not &quot;%4&quot;</source>
        <translation>--%1 nimmt eine Zahl von %2 bis %3, nicht „%4“</translation>
    </message>
    <message>
        <source>%1: no Base64 at byte %2</source>
        <translation>%1: kein Base64 bei Byte %2</translation>
    </message>
    <message>
        <source>%1: ends within a group of four characters</source>
        <translation>%1: endet inmitten einer Gruppe von vier Zeichen</translation>
    </message>
    <message>
        <source>--group takes one of %1</source>
        <translation>--group nimmt eines von %1</translation>
    </message>
    <message>
        <source>how many threads work, 1 to 64; 1 unless told</source>
        <translation>wie viele Threads arbeiten, 1 bis 64; sonst 1</translation>
    </message>
    <message>
        <source>what compresses; zlib unless told</source>
        <translation>was komprimiert; sonst zlib</translation>
    </message>
    <message>
        <source>how much may come out of the archive, in MiB; 512 unless told</source>
        <translation>wie viel aus dem Archiv herauskommen darf, in MiB; sonst 512</translation>
    </message>
    <message>
        <source>writes JSON, for programs</source>
        <translation>schreibt JSON, für Programme</translation>
    </message>
    <message>
        <source>converts a value, as in: kyr convert 25.4 mm in, kyr convert 25.4mm inch</source>
        <translation>rechnet einen Wert um, wie: kyr convert 25.4 mm in, kyr convert 25,4mm inch</translation>
    </message>
    <message>
        <source>the kind of both units, as LENGTH</source>
        <translation>die Art beider Einheiten, wie LENGTH</translation>
    </message>
    <message>
        <source>decimals of the result, 0 to 60</source>
        <translation>Nachkommastellen des Ergebnisses, 0 bis 60</translation>
    </message>
    <message>
        <source>pixels of an inch, for figures</source>
        <translation>Pixel je Zoll, für Abbildungen</translation>
    </message>
    <message>
        <source>lists the kinds of quantities, or the units of one</source>
        <translation>zählt die Arten von Größen auf, oder die Einheiten von einer</translation>
    </message>
    <message>
        <source>says whether a zip stream is complete, and which pieces are damaged</source>
        <translation>sagt, ob ein Zip-Strom vollständig ist und welche Stücke beschädigt sind</translation>
    </message>
    <message>
        <source>writes the content of a zip stream</source>
        <translation>schreibt den Inhalt eines Zip-Stroms</translation>
    </message>
    <message>
        <source>writes what a damaged zip stream still holds; zeros where it is known how much is lost</source>
        <translation>schreibt, was ein beschädigter Zip-Strom noch enthält; Nullen, wo bekannt ist, wie viel verloren ist</translation>
    </message>
    <message>
        <source>no zeros for what is lost</source>
        <translation>keine Nullen für Verlorenes</translation>
    </message>
    <message>
        <source>makes a zip stream of a file; in pieces, when workers or an engine are named</source>
        <translation>macht aus einer Datei einen Zip-Strom; in Stücken, wenn --workers oder --engine genannt ist</translation>
    </message>
    <message>
        <source>the version of the content, 0 to 4294967295; 0 unless told</source>
        <translation>die Version des Inhalts, 0 bis 4294967295; sonst 0</translation>
    </message>
    <message>
        <source>lists the files of a tar.gz</source>
        <translation>zählt die Dateien eines tar.gz auf</translation>
    </message>
    <message>
        <source>makes a tar.gz of files and directories; keeps an older one if files are missing</source>
        <translation>macht ein tar.gz aus Dateien und Verzeichnissen; behält ein älteres, wenn Dateien fehlen</translation>
    </message>
    <message>
        <source>replaces an older archive also by one that misses files</source>
        <translation>ersetzt ein älteres Archiv auch durch eines, dem Dateien fehlen</translation>
    </message>
    <message>
        <source>unpacks a tar.gz, of at most 512 MiB unless told, and replaces no files</source>
        <translation>entpackt ein tar.gz, ohne Angabe von höchstens 512 MiB, und ersetzt keine Dateien</translation>
    </message>
    <message>
        <source>replaces files that are there already</source>
        <translation>ersetzt Dateien, die schon da sind</translation>
    </message>
    <message>
        <source>writes a file as Base64, in one line</source>
        <translation>schreibt eine Datei als Base64, in einer Zeile</translation>
    </message>
    <message>
        <source>writes the bytes of Base64 with any line ends</source>
        <translation>schreibt die Bytes von Base64 mit beliebigen Zeilenenden</translation>
    </message>
    <message>
        <source>writes the CRC-16/XMODEM of each file</source>
        <translation>schreibt die CRC-16/XMODEM jeder Datei</translation>
    </message>
    <message>
        <source>sorts lines in natural order: item9 before item10</source>
        <translation>sortiert Zeilen in natürlicher Ordnung: item9 vor item10</translation>
    </message>
    <message>
        <source>names the next free file of a series, as img0007.tif</source>
        <translation>nennt die nächste freie Datei einer Reihe, wie img0007.tif</translation>
    </message>
    <message>
        <source>renders the library&apos;s change log as a page of HTML</source>
        <translation>schreibt die Änderungen der Bibliothek als Seite in HTML</translation>
    </message>
    <message>
        <source>what belongs together; context unless told</source>
        <translation>was zusammengehört; sonst context</translation>
    </message>
    <message>
        <source>of the page; English unless told</source>
        <translation>die der Seite; sonst Englisch</translation>
    </message>
    <message>
        <source>writes an archive for support, with the N newest dumps</source>
        <translation>schreibt ein Archiv für den Support, mit den N neuesten Speicherabbildern</translation>
    </message>
    <message>
        <source>how many dumps go along, 0 to 1000; they hold memory, with secrets</source>
        <translation>wie viele Speicherabbilder mitgehen, 0 bis 1000; sie enthalten Speicher, mit Geheimnissen</translation>
    </message>
    <message>
        <source>replaces an older file</source>
        <translation>ersetzt eine ältere Datei</translation>
    </message>
    <message>
        <source>shows versions, directories and the machine</source>
        <translation>zeigt Versionen, Verzeichnisse und den Rechner</translation>
    </message>
    <message>
        <source>explains the command</source>
        <translation>erklärt den Befehl</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>there is no unit &quot;%1&quot;; kyr units lists them</source>
        <translation>es gibt keine Einheit „%1“; kyr units zählt sie auf</translation>
    </message>
    <message>
        <source>&quot;%1&quot; (%2) and &quot;%3&quot; (%4) are units of different kinds</source>
        <translation>„%1“ (%2) und „%3“ (%4) sind Einheiten verschiedener Arten</translation>
    </message>
    <message>
        <source>%1 has no unit &quot;%2&quot;</source>
        <translation>%1 hat keine Einheit „%2“</translation>
    </message>
    <message>
        <source>A unit is missing.</source>
        <translation>Eine Einheit fehlt.</translation>
    </message>
    <message>
        <source>%1 %2 is too large a value</source>
        <translation>%1 %2 ist ein zu großer Wert</translation>
    </message>
    <message>
        <source>&quot;kyr help COMMAND&quot; or &quot;kyr COMMAND --help&quot; explains one of them, &quot;kyr --version&quot; names the version.</source>
        <translation>„kyr help BEFEHL“ oder „kyr BEFEHL --help“ erklärt einen davon, „kyr --version“ nennt die Version.</translation>
    </message>
    <message>
        <source>FILE may be - for standard input, OUTPUT - for standard output. An option&apos;s value may stand behind = as well; behind -- nothing is an option. Units that are hard to type have other spellings: um for µm, degC for °C, mm2 for mm²; see kyr units KIND.</source>
        <translation>FILE darf - für die Standardeingabe sein, OUTPUT - für die Standardausgabe. Der Wert einer Option darf auch hinter = stehen; hinter -- ist nichts eine Option. Einheiten, die schwer zu tippen sind, haben andere Schreibweisen: um für µm, degC für °C, mm2 für mm²; siehe kyr units KIND.</translation>
    </message>
    <message>
        <source>Exit codes: 0 all is well, 1 a file is at fault, 2 wrong usage, 130 ended by the user.</source>
        <translation>Rückgabewerte: 0 alles ist gut, 1 es liegt an einer Datei, 2 falscher Aufruf, 130 vom Benutzer beendet.</translation>
    </message>
    <message>
        <source>kyr looks into files and converts values.</source>
        <translation>kyr sieht in Dateien hinein und rechnet Werte um.</translation>
    </message>
    <message>
        <source>; did you mean %1?</source>
        <translation>; war %1 gemeint?</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>ist ein Verzeichnis</translation>
    </message>
    <message>
        <source>cannot be opened</source>
        <translation>kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>es gibt keine solche Datei</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>Standardeingabe</translation>
    </message>
    <message>
        <source>%1: cannot be read</source>
        <translation>%1: kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>--language takes one of en, de, fr, jp, cn, pt</source>
        <translation>--language nimmt eines von en, de, fr, jp, cn, pt</translation>
    </message>
    <message>
        <source>Kyr_%1.qm: cannot be read</source>
        <translation>Kyr_%1.qm: kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>usage: %1</source>
        <translation>Aufruf: %1</translation>
    </message>
    <message>
        <source>ended by the user before all was done</source>
        <translation>vom Benutzer beendet, bevor alles getan war</translation>
    </message>
    <message>
        <source>a command is missing</source>
        <translation>ein Befehl fehlt</translation>
    </message>
    <message>
        <source>%1 needs one of %2</source>
        <translation>%1 braucht eines von %2</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;</source>
        <translation>unbekannter Befehl „%1“</translation>
    </message>
    <message>
        <source>kyr COMMAND ...   (kyr --help explains)</source>
        <translation>kyr BEFEHL ...   (kyr --help erklärt es)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not end in a number below 2^32</source>
        <translation>„%1“ endet nicht mit einer Zahl unter 2^32</translation>
    </message>
    <message>
        <source>%1: no number is left</source>
        <translation>%1: keine Zahl ist mehr frei</translation>
    </message>
    <message>
        <source>standard output: no space left</source>
        <translation>Standardausgabe: kein Platz mehr</translation>
    </message>
    <message>
        <source>standard output: cannot be written</source>
        <translation>Standardausgabe: kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>--engine is zlib or fastest, not &quot;%1&quot;</source>
        <translation>--engine ist zlib oder fastest, nicht „%1“</translation>
    </message>
    <message>
        <source>%1: %2 sections, logs and dumps: %3, %4 bytes</source>
        <translation>%1: %2 Abschnitte, Protokolle und Speicherabbilder: %3, %4 Bytes</translation>
    </message>
    <message>
        <source>a report goes into a file, not to standard output</source>
        <translation>ein Bericht geht in eine Datei, nicht auf die Standardausgabe</translation>
    </message>
    <message>
        <source>the report is not complete: %1</source>
        <translation>der Bericht ist nicht vollständig: %1</translation>
    </message>
    <message>
        <source>It names this machine, its user and what is set; secrets are blanked as far as their
names tell. Unpack it and look at index.html before you pass it on.</source>
        <translation>Er nennt diesen Rechner, seinen Benutzer und was eingestellt ist; Geheimnisse sind
geschwärzt, soweit ihre Namen es zeigen. Vor dem Weitergeben entpacken und index.html ansehen.</translation>
    </message>
    <message>
        <source>%1: a line is too long</source>
        <translation>%1: eine Zeile ist zu lang</translation>
    </message>
    <message>
        <source>%1: no complete tar.gz, or larger than --limit allows</source>
        <translation>%1: kein vollständiges tar.gz, oder größer, als --limit erlaubt</translation>
    </message>
    <message>
        <source>%1: not written, as nothing is left for it</source>
        <translation>%1: nicht geschrieben, weil nichts dafür übrig ist</translation>
    </message>
    <message>
        <source>%1: there is not enough memory</source>
        <translation>%1: der Speicher reicht nicht</translation>
    </message>
    <message>
        <source>%1: stays as it was, as the new archive misses what is named above; --force replaces it</source>
        <translation>%1: bleibt, wie es war, weil dem neuen Archiv fehlt, was oben genannt ist; --force ersetzt es</translation>
    </message>
    <message>
        <source>%1: is the input as well and would be lost; give the output another name</source>
        <translation>%1: ist auch die Eingabe und ginge verloren; die Ausgabe braucht einen anderen Namen</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>Standardausgabe</translation>
    </message>
    <message>
        <source>%1: cannot be written to the end (is the disk full?)</source>
        <translation>%1: kann nicht bis zum Ende geschrieben werden (ist die Platte voll?)</translation>
    </message>
    <message>
        <source>there is no kind &quot;%1&quot;; kyr units lists them</source>
        <translation>es gibt keine Art „%1“; kyr units zählt sie auf</translation>
    </message>
    <message>
        <source># other names that are understood</source>
        <translation># andere Namen, die verstanden werden</translation>
    </message>
    <message>
        <source># %1: internal value = (value - OFFSET) * FACTOR</source>
        <translation># %1: innerer Wert = (Wert - OFFSET) * FACTOR</translation>
    </message>
    <message>
        <source>file version</source>
        <translation>Dateiversion</translation>
    </message>
    <message>
        <source>library version</source>
        <translation>Version der Bibliothek</translation>
    </message>
    <message>
        <source>written</source>
        <translation>geschrieben</translation>
    </message>
    <message>
        <source>header size</source>
        <translation>Größe des Kopfes</translation>
    </message>
    <message>
        <source>blocks</source>
        <translation>Blöcke</translation>
    </message>
    <message>
        <source>compressed</source>
        <translation>komprimiert</translation>
    </message>
    <message>
        <source>content</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>ratio</source>
        <translation>Verhältnis</translation>
    </message>
    <message>
        <source>pieces</source>
        <translation>Stücke</translation>
    </message>
    <message>
        <source>stream size</source>
        <translation>Größe des Stroms</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>state</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>behind the end</source>
        <translation>hinter dem Ende</translation>
    </message>
    <message>
        <source>%1 of content saved</source>
        <translation>%1 Inhalt gerettet</translation>
    </message>
    <message>
        <source>: all that was written</source>
        <translation>: alles, was geschrieben wurde</translation>
    </message>
    <message>
        <source>, which may be wrong: there is no index</source>
        <translation>, die falsch sein können: es gibt kein Verzeichnis der Stücke</translation>
    </message>
    <message>
        <source>, all of them checked</source>
        <translation>, alle geprüft</translation>
    </message>
    <message>
        <source>; zeros in place of %1</source>
        <translation>; Nullen anstelle von %1</translation>
    </message>
    <message>
        <source>lost: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)</source>
        <translation>verloren: Bytes %1 bis %2 des Inhalts (Bytes %3 bis %4 des Stroms)</translation>
    </message>
    <message>
        <source>lost: nobody knows how much behind byte %1 of the content (bytes %2 to %3 of the stream)</source>
        <translation>verloren: niemand weiß, wie viel hinter Byte %1 des Inhalts (Bytes %2 bis %3 des Stroms)</translation>
    </message>
    <message>
        <source>complete</source>
        <translation>vollständig</translation>
    </message>
    <message>
        <source>cut short at byte %1</source>
        <translation>abgeschnitten bei Byte %1</translation>
    </message>
    <message>
        <source>damaged at byte %1</source>
        <translation>beschädigt bei Byte %1</translation>
    </message>
    <message>
        <source>not read to its end</source>
        <translation>nicht bis zum Ende gelesen</translation>
    </message>
    <message>
        <source>%1 of content in %2</source>
        <translation>%1 Inhalt in %2</translation>
    </message>
    <message>
        <source>; behind its end: %1</source>
        <translation>; hinter seinem Ende: %1</translation>
    </message>
    <message>
        <source>; readable before: %1, which may be wrong</source>
        <translation>; davor lesbar: %1, die falsch sein können</translation>
    </message>
    <message>
        <source>; checked: %1 in %2 of %3</source>
        <translation>; geprüft: %1 in %2 von %3</translation>
    </message>
    <message>
        <source>shows the header, the blocks and the pieces of a zip stream; of many pieces not all</source>
        <translation>zeigt den Kopf, die Blöcke und die Stücke eines Zip-Stroms; von vielen Stücken nicht alle</translation>
    </message>
    <message>
        <source>all pieces, also of many</source>
        <translation>alle Stücke, auch von vielen</translation>
    </message>
    <message>
        <source>this is %1 %2 as %3, %4 %2 as %5; choose one with --kind</source>
        <translation>das ist %1 %2 als %3, %4 %2 als %5; --kind wählt eines</translation>
    </message>
    <message>
        <source>index</source>
        <translation>Verzeichnis</translation>
    </message>
    <message>
        <source>%1 with %2 of content in %3, %4 to %5 each</source>
        <translation>In %1: %2 Inhalt, gepackt %3, je %4 bis %5</translation>
    </message>
    <message>
        <source>piece</source>
        <translation>Stück</translation>
    </message>
    <message>
        <source>at byte</source>
        <translation>ab Byte</translation>
    </message>
    <message>
        <source>packed</source>
        <translation>gepackt</translation>
    </message>
    <message>
        <source>content at</source>
        <translation>Inhalt ab</translation>
    </message>
    <message>
        <source>%1 more; --all shows them</source>
        <translation>%1 weitere; --all zeigt sie</translation>
    </message>
    <message>
        <source>cannot be read: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)</source>
        <translation>nicht lesbar: Bytes %1 bis %2 des Inhalts (Bytes %3 bis %4 des Stroms)</translation>
    </message>
    <message>
        <source>cannot be read at byte %1</source>
        <translation>nicht lesbar bei Byte %1</translation>
    </message>
    <message>
        <source>An older OUTPUT is replaced as soon as the new one is whole. Where a command would keep what is there, --force replaces it.</source>
        <translation>Ein älteres OUTPUT wird ersetzt, sobald das neue ganz ist. Wo ein Befehl behielte, was da ist, ersetzt es --force.</translation>
    </message>
    <message>
        <source>shows where the time of a program went that KYR_TRACE traced</source>
        <translation>zeigt, wo die Zeit eines Programms blieb, das KYR_TRACE aufgezeichnet hat</translation>
    </message>
    <message>
        <source>%1: byte %2: %3</source>
        <translation>%1: Byte %2: %3</translation>
    </message>
    <message>
        <source>an event is longer than a MiB</source>
        <translation>ein Ereignis ist länger als ein MiB</translation>
    </message>
    <message>
        <source>this is no trace, which begins with &quot;[&quot;</source>
        <translation>das ist keine Aufzeichnung; eine solche beginnt mit „[“</translation>
    </message>
    <message>
        <source>an event begins with &quot;{&quot;</source>
        <translation>ein Ereignis beginnt mit „{“</translation>
    </message>
    <message>
        <source>the event has no &quot;%1&quot;</source>
        <translation>das Ereignis hat kein „%1“</translation>
    </message>
    <message>
        <source># times in milliseconds</source>
        <translation># Zeiten in Millisekunden</translation>
    </message>
    <message>
        <source># the trace has no end: its process died, or writes it still</source>
        <translation># die Aufzeichnung hat kein Ende: ihr Prozess starb, oder er schreibt sie noch</translation>
    </message>
    <message>
        <source>%1: files that are written: %2 of %3</source>
        <translation>%1: geschriebene Dateien: %2 von %3</translation>
    </message>
    <message>
        <source>names the functions and lines of a crash report, from the debug information of the build that crashed</source>
        <translation>benennt die Funktionen und Zeilen eines Absturzberichts, aus den Debug-Informationen des Builds, der abgestürzt ist</translation>
    </message>
    <message>
        <source>where debug information lies; may stand several times</source>
        <translation>wo Debug-Informationen liegen; darf mehrmals stehen</translation>
    </message>
    <message>
        <source>%1: the dump is cut short or damaged</source>
        <translation>%1: das Speicherabbild ist abgeschnitten oder beschädigt</translation>
    </message>
    <message>
        <source>%1: is the dump of an unknown kind of machine</source>
        <translation>%1: ist das Speicherabbild einer unbekannten Art von Rechner</translation>
    </message>
    <message>
        <source>%1: is too large for a report or a dump</source>
        <translation>%1: ist zu groß für einen Bericht oder ein Speicherabbild</translation>
    </message>
    <message>
        <source>%1: is no folder</source>
        <translation>%1: ist kein Ordner</translation>
    </message>
    <message>
        <source>%1 (no build id: not checked)</source>
        <translation>%1 (keine Build-ID: nicht geprüft)</translation>
    </message>
    <message>
        <source>no build id; there are the builds %1</source>
        <translation>keine Build-ID; es gibt die Builds %1</translation>
    </message>
    <message>
        <source>no build id</source>
        <translation>keine Build-ID</translation>
    </message>
    <message>
        <source>%1 crashed, there is %2</source>
        <translation>%1 ist abgestürzt, vorhanden ist %2</translation>
    </message>
    <message>
        <source>symbols:</source>
        <translation>Debug-Informationen:</translation>
    </message>
    <message>
        <source>%1: holds no backtrace, and is no dump</source>
        <translation>%1: enthält keine Aufrufliste und ist kein Speicherabbild</translation>
    </message>
    <message>
        <source>neither llvm-symbolizer nor addr2line is installed, one of which reads debug information</source>
        <translation>weder llvm-symbolizer noch addr2line ist installiert; eines davon liest Debug-Informationen</translation>
    </message>
    <message>
        <source>%1: %2 cannot read it: %3</source>
        <translation>%1: %2 kann es nicht lesen: %3</translation>
    </message>
    <message>
        <source>%1: its debug information cannot be read</source>
        <translation>%1: die Debug-Informationen lassen sich nicht lesen</translation>
    </message>
    <message numerus="yes">
        <source>%1 byte</source>
        <comment>%1 bytes</comment>
        <translation>
            <numerusform>%1 Byte</numerusform>
            <numerusform>%1 Bytes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 block</source>
        <comment>%1 blocks</comment>
        <translation>
            <numerusform>%1 Block</numerusform>
            <numerusform>%1 Blöcken</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 piece</source>
        <comment>%1 pieces</comment>
        <translation>
            <numerusform>%1 Stück</numerusform>
            <numerusform>%1 Stücken</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 checked piece</source>
        <comment>%1 checked pieces</comment>
        <translation>
            <numerusform>%1 geprüftes Stück</numerusform>
            <numerusform>%1 geprüfte Stücke</numerusform>
        </translation>
    </message>
</context>
</TS>
