<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Kyr_tool</name>
    <message>
        <source>unknown option &quot;%1&quot;</source>
        <translation>option inconnue «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>an argument is missing</source>
        <translation>il manque un argument</translation>
    </message>
    <message>
        <source>one argument too many: &quot;%1&quot;</source>
        <translation>un argument de trop&#xa0;: «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 ne prend pas de valeur</translation>
    </message>
    <message>
        <source>%1 needs a value</source>
        <translation>%1 demande une valeur</translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3, not &quot;%4&quot;</source>
        <translation>--%1 prend un nombre de %2 à %3, pas «&#xa0;%4&#xa0;»</translation>
    </message>
    <message>
        <source>%1: no Base64 at byte %2</source>
        <translation>%1&#xa0;: pas de Base64 à l’octet %2</translation>
    </message>
    <message>
        <source>%1: ends within a group of four characters</source>
        <translation>%1&#xa0;: se termine au milieu d’un groupe de quatre caractères</translation>
    </message>
    <message>
        <source>--group takes one of %1</source>
        <translation>--group prend l’un de %1</translation>
    </message>
    <message>
        <source>how many threads work, 1 to 64; 1 unless told</source>
        <translation>combien de threads travaillent, de 1 à 64&#xa0;; 1 par défaut</translation>
    </message>
    <message>
        <source>what compresses; zlib unless told</source>
        <translation>ce qui compresse&#xa0;; zlib par défaut</translation>
    </message>
    <message>
        <source>how much may come out of the archive, in MiB; 512 unless told</source>
        <translation>combien peut sortir de l’archive, en Mio&#xa0;; 512 par défaut</translation>
    </message>
    <message>
        <source>writes JSON, for programs</source>
        <translation>écrit du JSON, pour les programmes</translation>
    </message>
    <message>
        <source>converts a value, as in: kyr convert 25.4 mm in, kyr convert 25.4mm inch</source>
        <translation>convertit une valeur, comme&#xa0;: kyr convert 25.4 mm in, kyr convert 25,4mm inch</translation>
    </message>
    <message>
        <source>the kind of both units, as LENGTH</source>
        <translation>la nature des deux unités, comme LENGTH</translation>
    </message>
    <message>
        <source>decimals of the result, 0 to 60</source>
        <translation>décimales du résultat, de 0 à 60</translation>
    </message>
    <message>
        <source>pixels of an inch, for figures</source>
        <translation>pixels par pouce, pour les figures</translation>
    </message>
    <message>
        <source>lists the kinds of quantities, or the units of one</source>
        <translation>énumère les natures de grandeurs, ou les unités de l’une d’elles</translation>
    </message>
    <message>
        <source>says whether a zip stream is complete, and which pieces are damaged</source>
        <translation>dit si un flux zip est complet, et quels morceaux sont endommagés</translation>
    </message>
    <message>
        <source>writes the content of a zip stream</source>
        <translation>écrit le contenu d’un flux zip</translation>
    </message>
    <message>
        <source>writes what a damaged zip stream still holds; zeros where it is known how much is lost</source>
        <translation>écrit ce qu’un flux zip endommagé contient encore&#xa0;; des zéros là où l’on sait combien est perdu</translation>
    </message>
    <message>
        <source>no zeros for what is lost</source>
        <translation>pas de zéros pour ce qui est perdu</translation>
    </message>
    <message>
        <source>makes a zip stream of a file; in pieces, when workers or an engine are named</source>
        <translation>fait d’un fichier un flux zip&#xa0;; en morceaux, si --workers ou --engine est donné</translation>
    </message>
    <message>
        <source>the version of the content, 0 to 4294967295; 0 unless told</source>
        <translation>la version du contenu, de 0 à 4294967295&#xa0;; 0 par défaut</translation>
    </message>
    <message>
        <source>lists the files of a tar.gz</source>
        <translation>énumère les fichiers d’un tar.gz</translation>
    </message>
    <message>
        <source>makes a tar.gz of files and directories; keeps an older one if files are missing</source>
        <translation>fait un tar.gz de fichiers et de répertoires&#xa0;; garde le précédent s’il manque des fichiers</translation>
    </message>
    <message>
        <source>replaces an older archive also by one that misses files</source>
        <translation>remplace l’archive précédente même par une à laquelle il manque des fichiers</translation>
    </message>
    <message>
        <source>unpacks a tar.gz, of at most 512 MiB unless told, and replaces no files</source>
        <translation>décompresse un tar.gz, d’au plus 512 Mio par défaut, sans remplacer de fichiers</translation>
    </message>
    <message>
        <source>replaces files that are there already</source>
        <translation>remplace les fichiers déjà présents</translation>
    </message>
    <message>
        <source>writes a file as Base64, in one line</source>
        <translation>écrit un fichier en Base64, sur une ligne</translation>
    </message>
    <message>
        <source>writes the bytes of Base64 with any line ends</source>
        <translation>écrit les octets de Base64, quelles que soient les fins de ligne</translation>
    </message>
    <message>
        <source>writes the CRC-16/XMODEM of each file</source>
        <translation>écrit la CRC-16/XMODEM de chaque fichier</translation>
    </message>
    <message>
        <source>sorts lines in natural order: item9 before item10</source>
        <translation>trie des lignes dans l’ordre naturel&#xa0;: item9 avant item10</translation>
    </message>
    <message>
        <source>names the next free file of a series, as img0007.tif</source>
        <translation>nomme le prochain fichier libre d’une série, comme img0007.tif</translation>
    </message>
    <message>
        <source>renders the library&apos;s change log as a page of HTML</source>
        <translation>écrit les changements de la bibliothèque sous forme de page HTML</translation>
    </message>
    <message>
        <source>what belongs together; context unless told</source>
        <translation>ce qui va ensemble&#xa0;; context par défaut</translation>
    </message>
    <message>
        <source>of the page; English unless told</source>
        <translation>celle de la page&#xa0;; l’anglais par défaut</translation>
    </message>
    <message>
        <source>writes an archive for support, with the N newest dumps</source>
        <translation>écrit une archive pour l’assistance, avec les N images mémoire les plus récentes</translation>
    </message>
    <message>
        <source>how many dumps go along, 0 to 1000; they hold memory, with secrets</source>
        <translation>combien d’images mémoire l’accompagnent, de 0 à 1000&#xa0;; elles contiennent de la mémoire, avec des secrets</translation>
    </message>
    <message>
        <source>replaces an older file</source>
        <translation>remplace un fichier antérieur</translation>
    </message>
    <message>
        <source>shows versions, directories and the machine</source>
        <translation>montre les versions, les répertoires et la machine</translation>
    </message>
    <message>
        <source>explains the command</source>
        <translation>explique la commande</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un nombre</translation>
    </message>
    <message>
        <source>there is no unit &quot;%1&quot;; kyr units lists them</source>
        <translation>il n’y a pas d’unité «&#xa0;%1&#xa0;»&#xa0;; kyr units les énumère</translation>
    </message>
    <message>
        <source>&quot;%1&quot; (%2) and &quot;%3&quot; (%4) are units of different kinds</source>
        <translation>«&#xa0;%1&#xa0;» (%2) et «&#xa0;%3&#xa0;» (%4) sont des unités de natures différentes</translation>
    </message>
    <message>
        <source>%1 has no unit &quot;%2&quot;</source>
        <translation>%1 n’a pas d’unité «&#xa0;%2&#xa0;»</translation>
    </message>
    <message>
        <source>A unit is missing.</source>
        <translation>Il manque une unité.</translation>
    </message>
    <message>
        <source>%1 %2 is too large a value</source>
        <translation>%1 %2 est une valeur trop grande</translation>
    </message>
    <message>
        <source>&quot;kyr help COMMAND&quot; or &quot;kyr COMMAND --help&quot; explains one of them, &quot;kyr --version&quot; names the version.</source>
        <translation>«&#xa0;kyr help COMMANDE&#xa0;» ou «&#xa0;kyr COMMANDE --help&#xa0;» explique l’une d’elles, «&#xa0;kyr --version&#xa0;» nomme la version.</translation>
    </message>
    <message>
        <source>FILE may be - for standard input, OUTPUT - for standard output. An option&apos;s value may stand behind = as well; behind -- nothing is an option. Units that are hard to type have other spellings: um for µm, degC for °C, mm2 for mm²; see kyr units KIND.</source>
        <translation>FILE peut être - pour l’entrée standard, OUTPUT - pour la sortie standard. La valeur d’une option peut aussi suivre =&#xa0;; après --, rien n’est une option. Les unités difficiles à taper ont d’autres graphies&#xa0;: um pour µm, degC pour °C, mm2 pour mm²&#xa0;; voir kyr units KIND.</translation>
    </message>
    <message>
        <source>Exit codes: 0 all is well, 1 a file is at fault, 2 wrong usage, 130 ended by the user.</source>
        <translation>Codes de retour&#xa0;: 0 tout va bien, 1 un fichier est en cause, 2 mauvais usage, 130 arrêté par l’utilisateur.</translation>
    </message>
    <message>
        <source>kyr looks into files and converts values.</source>
        <translation>kyr regarde dans les fichiers et convertit des valeurs.</translation>
    </message>
    <message>
        <source>; did you mean %1?</source>
        <translation>&#xa0;; vouliez-vous dire %1&#xa0;?</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>est un répertoire</translation>
    </message>
    <message>
        <source>cannot be opened</source>
        <translation>ne peut pas être ouvert</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>ce fichier n’existe pas</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>entrée standard</translation>
    </message>
    <message>
        <source>%1: cannot be read</source>
        <translation>%1&#xa0;: ne peut pas être lu</translation>
    </message>
    <message>
        <source>--language takes one of en, de, fr, jp, cn, pt</source>
        <translation>--language prend l’un de en, de, fr, jp, cn, pt</translation>
    </message>
    <message>
        <source>Kyr_%1.qm: cannot be read</source>
        <translation>Kyr_%1.qm&#xa0;: ne peut pas être lu</translation>
    </message>
    <message>
        <source>usage: %1</source>
        <translation>usage&#xa0;: %1</translation>
    </message>
    <message>
        <source>ended by the user before all was done</source>
        <translation>arrêté par l’utilisateur avant la fin</translation>
    </message>
    <message>
        <source>a command is missing</source>
        <translation>il manque une commande</translation>
    </message>
    <message>
        <source>%1 needs one of %2</source>
        <translation>%1 demande l’un de %2</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;</source>
        <translation>commande inconnue «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>kyr COMMAND ...   (kyr --help explains)</source>
        <translation>kyr COMMANDE ...   (kyr --help l’explique)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not end in a number below 2^32</source>
        <translation>«&#xa0;%1&#xa0;» ne se termine pas par un nombre inférieur à 2^32</translation>
    </message>
    <message>
        <source>%1: no number is left</source>
        <translation>%1&#xa0;: il ne reste aucun nombre</translation>
    </message>
    <message>
        <source>standard output: no space left</source>
        <translation>sortie standard&#xa0;: plus de place</translation>
    </message>
    <message>
        <source>standard output: cannot be written</source>
        <translation>sortie standard&#xa0;: ne peut pas être écrite</translation>
    </message>
    <message>
        <source>--engine is zlib or fastest, not &quot;%1&quot;</source>
        <translation>--engine est zlib ou fastest, pas «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>%1: %2 sections, logs and dumps: %3, %4 bytes</source>
        <translation>%1&#xa0;: %2 sections, journaux et images mémoire&#xa0;: %3, %4 octets</translation>
    </message>
    <message>
        <source>a report goes into a file, not to standard output</source>
        <translation>un rapport va dans un fichier, pas sur la sortie standard</translation>
    </message>
    <message>
        <source>the report is not complete: %1</source>
        <translation>le rapport n’est pas complet&#xa0;: %1</translation>
    </message>
    <message>
        <source>It names this machine, its user and what is set; secrets are blanked as far as their
names tell. Unpack it and look at index.html before you pass it on.</source>
        <translation>Il nomme cette machine, son utilisateur et les réglages&#xa0;; les secrets sont masqués pour
autant que leurs noms les trahissent. Décompressez-le et regardez index.html avant de le transmettre.</translation>
    </message>
    <message>
        <source>%1: a line is too long</source>
        <translation>%1&#xa0;: une ligne est trop longue</translation>
    </message>
    <message>
        <source>%1: no complete tar.gz, or larger than --limit allows</source>
        <translation>%1&#xa0;: pas un tar.gz complet, ou plus grand que --limit ne le permet</translation>
    </message>
    <message>
        <source>%1: not written, as nothing is left for it</source>
        <translation>%1&#xa0;: non écrit, car il ne reste rien à y mettre</translation>
    </message>
    <message>
        <source>%1: there is not enough memory</source>
        <translation>%1&#xa0;: la mémoire ne suffit pas</translation>
    </message>
    <message>
        <source>%1: stays as it was, as the new archive misses what is named above; --force replaces it</source>
        <translation>%1&#xa0;: reste tel quel, car il manque à la nouvelle archive ce qui est nommé plus haut&#xa0;; --force le remplace</translation>
    </message>
    <message>
        <source>%1: is the input as well and would be lost; give the output another name</source>
        <translation>%1&#xa0;: est aussi l’entrée et serait perdu&#xa0;; donnez un autre nom à la sortie</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>sortie standard</translation>
    </message>
    <message>
        <source>%1: cannot be written to the end (is the disk full?)</source>
        <translation>%1&#xa0;: ne peut pas être écrit jusqu’à la fin (le disque est-il plein&#xa0;?)</translation>
    </message>
    <message>
        <source>there is no kind &quot;%1&quot;; kyr units lists them</source>
        <translation>il n’y a pas de nature «&#xa0;%1&#xa0;»&#xa0;; kyr units les énumère</translation>
    </message>
    <message>
        <source># other names that are understood</source>
        <translation># autres noms compris</translation>
    </message>
    <message>
        <source># %1: internal value = (value - OFFSET) * FACTOR</source>
        <translation># %1&#xa0;: valeur interne = (valeur - OFFSET) * FACTOR</translation>
    </message>
    <message>
        <source>file version</source>
        <translation>version du fichier</translation>
    </message>
    <message>
        <source>library version</source>
        <translation>version de la bibliothèque</translation>
    </message>
    <message>
        <source>written</source>
        <translation>écrit</translation>
    </message>
    <message>
        <source>header size</source>
        <translation>taille de l’en-tête</translation>
    </message>
    <message>
        <source>blocks</source>
        <translation>blocs</translation>
    </message>
    <message>
        <source>compressed</source>
        <translation>compressé</translation>
    </message>
    <message>
        <source>content</source>
        <translation>contenu</translation>
    </message>
    <message>
        <source>ratio</source>
        <translation>rapport</translation>
    </message>
    <message>
        <source>pieces</source>
        <translation>morceaux</translation>
    </message>
    <message>
        <source>stream size</source>
        <translation>taille du flux</translation>
    </message>
    <message>
        <source>file</source>
        <translation>fichier</translation>
    </message>
    <message>
        <source>state</source>
        <translation>état</translation>
    </message>
    <message>
        <source>behind the end</source>
        <translation>après la fin</translation>
    </message>
    <message>
        <source>%1 of content saved</source>
        <translation>%1 de contenu sauvés</translation>
    </message>
    <message>
        <source>: all that was written</source>
        <translation>&#xa0;: tout ce qui a été écrit</translation>
    </message>
    <message>
        <source>, which may be wrong: there is no index</source>
        <translation>, qui peuvent être faux&#xa0;: il n’y a pas d’index</translation>
    </message>
    <message>
        <source>, all of them checked</source>
        <translation>, tous vérifiés</translation>
    </message>
    <message>
        <source>; zeros in place of %1</source>
        <translation>&#xa0;; des zéros à la place de %1</translation>
    </message>
    <message>
        <source>lost: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)</source>
        <translation>perdus&#xa0;: octets %1 à %2 du contenu (octets %3 à %4 du flux)</translation>
    </message>
    <message>
        <source>lost: nobody knows how much behind byte %1 of the content (bytes %2 to %3 of the stream)</source>
        <translation>perdus&#xa0;: nul ne sait combien après l’octet %1 du contenu (octets %2 à %3 du flux)</translation>
    </message>
    <message>
        <source>complete</source>
        <translation>complet</translation>
    </message>
    <message>
        <source>cut short at byte %1</source>
        <translation>tronqué à l’octet %1</translation>
    </message>
    <message>
        <source>damaged at byte %1</source>
        <translation>endommagé à l’octet %1</translation>
    </message>
    <message>
        <source>not read to its end</source>
        <translation>non lu jusqu’à la fin</translation>
    </message>
    <message>
        <source>%1 of content in %2</source>
        <translation>%1 de contenu en %2</translation>
    </message>
    <message>
        <source>; behind its end: %1</source>
        <translation>&#xa0;; après sa fin&#xa0;: %1</translation>
    </message>
    <message>
        <source>; readable before: %1, which may be wrong</source>
        <translation>&#xa0;; lisible avant&#xa0;: %1, qui peut être faux</translation>
    </message>
    <message>
        <source>; checked: %1 in %2 of %3</source>
        <translation>&#xa0;; vérifiés&#xa0;: %1 en %2 de %3</translation>
    </message>
    <message>
        <source>shows the header, the blocks and the pieces of a zip stream; of many pieces not all</source>
        <translation>montre l’en-tête, les blocs et les morceaux d’un flux zip&#xa0;; de beaucoup de morceaux, pas tous</translation>
    </message>
    <message>
        <source>all pieces, also of many</source>
        <translation>tous les morceaux, même s’il y en a beaucoup</translation>
    </message>
    <message>
        <source>this is %1 %2 as %3, %4 %2 as %5; choose one with --kind</source>
        <translation>c’est %1 %2 comme %3, %4 %2 comme %5&#xa0;; choisissez avec --kind</translation>
    </message>
    <message>
        <source>index</source>
        <translation>index</translation>
    </message>
    <message>
        <source>%1 with %2 of content in %3, %4 to %5 each</source>
        <translation>%1&#xa0;: %2 de contenu en %3, de %4 à %5 chacun</translation>
    </message>
    <message>
        <source>piece</source>
        <translation>morceau</translation>
    </message>
    <message>
        <source>at byte</source>
        <translation>à l’octet</translation>
    </message>
    <message>
        <source>packed</source>
        <translation>compressé</translation>
    </message>
    <message>
        <source>content at</source>
        <translation>contenu à</translation>
    </message>
    <message>
        <source>%1 more; --all shows them</source>
        <translation>%1 de plus&#xa0;; --all les montre</translation>
    </message>
    <message>
        <source>cannot be read: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)</source>
        <translation>illisibles&#xa0;: octets %1 à %2 du contenu (octets %3 à %4 du flux)</translation>
    </message>
    <message>
        <source>cannot be read at byte %1</source>
        <translation>illisible à l’octet %1</translation>
    </message>
    <message>
        <source>An older OUTPUT is replaced as soon as the new one is whole. Where a command would keep what is there, --force replaces it.</source>
        <translation>Un OUTPUT antérieur est remplacé dès que le nouveau est entier. Là où une commande garderait ce qui existe, --force le remplace.</translation>
    </message>
    <message>
        <source>shows where the time of a program went that KYR_TRACE traced</source>
        <translation>montre où est passé le temps d’un programme que KYR_TRACE a enregistré</translation>
    </message>
    <message>
        <source>%1: byte %2: %3</source>
        <translation>%1&#xa0;: octet %2&#xa0;: %3</translation>
    </message>
    <message>
        <source>an event is longer than a MiB</source>
        <translation>un événement dépasse un Mio</translation>
    </message>
    <message>
        <source>this is no trace, which begins with &quot;[&quot;</source>
        <translation>ce n’est pas une trace, qui commence par «&#xa0;[&#xa0;»</translation>
    </message>
    <message>
        <source>an event begins with &quot;{&quot;</source>
        <translation>un événement commence par «&#xa0;{&#xa0;»</translation>
    </message>
    <message>
        <source>the event has no &quot;%1&quot;</source>
        <translation>l’événement n’a pas de «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source># times in milliseconds</source>
        <translation># temps en millisecondes</translation>
    </message>
    <message>
        <source># the trace has no end: its process died, or writes it still</source>
        <translation># la trace n’a pas de fin&#xa0;: son processus est mort, ou l’écrit encore</translation>
    </message>
    <message>
        <source>%1: files that are written: %2 of %3</source>
        <translation>%1&#xa0;: fichiers écrits&#xa0;: %2 sur %3</translation>
    </message>
    <message numerus="yes">
        <source>%1 byte</source>
        <comment>%1 bytes</comment>
        <translation>
            <numerusform>%1 octet</numerusform>
            <numerusform>%1 octets</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 block</source>
        <comment>%1 blocks</comment>
        <translation>
            <numerusform>%1 bloc</numerusform>
            <numerusform>%1 blocs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 piece</source>
        <comment>%1 pieces</comment>
        <translation>
            <numerusform>%1 morceau</numerusform>
            <numerusform>%1 morceaux</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 checked piece</source>
        <comment>%1 checked pieces</comment>
        <translation>
            <numerusform>%1 morceau vérifié</numerusform>
            <numerusform>%1 morceaux vérifiés</numerusform>
        </translation>
    </message>
    <message>
        <source>names the functions and lines of a crash report, from the debug information of the build that crashed</source>
        <translation>nomme les fonctions et les lignes d’un rapport de plantage, d’après les informations de débogage du build qui a planté</translation>
    </message>
    <message>
        <source>where debug information lies; may stand several times</source>
        <translation>où se trouvent les informations de débogage&#xa0;; peut figurer plusieurs fois</translation>
    </message>
    <message>
        <source>%1: the dump is cut short or damaged</source>
        <translation>%1&#xa0;: l’image mémoire est tronquée ou endommagée</translation>
    </message>
    <message>
        <source>%1: is the dump of an unknown kind of machine</source>
        <translation>%1&#xa0;: est l’image mémoire d’un type de machine inconnu</translation>
    </message>
    <message>
        <source>%1: is too large for a report or a dump</source>
        <translation>%1&#xa0;: est trop grand pour un rapport ou une image mémoire</translation>
    </message>
    <message>
        <source>%1: is no folder</source>
        <translation>%1&#xa0;: n’est pas un dossier</translation>
    </message>
    <message>
        <source>%1 (no build id: not checked)</source>
        <translation>%1 (pas d’identifiant de build&#xa0;: non vérifié)</translation>
    </message>
    <message>
        <source>no build id; there are the builds %1</source>
        <translation>pas d’identifiant de build&#xa0;; il y a les builds %1</translation>
    </message>
    <message>
        <source>no build id</source>
        <translation>pas d’identifiant de build</translation>
    </message>
    <message>
        <source>%1 crashed, there is %2</source>
        <translation>%1 a planté, seul %2 est présent</translation>
    </message>
    <message>
        <source>symbols:</source>
        <translation>informations de débogage&#xa0;:</translation>
    </message>
    <message>
        <source>%1: holds no backtrace, and is no dump</source>
        <translation>%1&#xa0;: ne contient aucune pile d’appels et n’est pas une image mémoire</translation>
    </message>
    <message>
        <source>neither llvm-symbolizer nor addr2line is installed, one of which reads debug information</source>
        <translation>ni llvm-symbolizer ni addr2line n’est installé&#xa0;; l’un des deux lit les informations de débogage</translation>
    </message>
    <message>
        <source>%1: %2 cannot read it: %3</source>
        <translation>%1&#xa0;: %2 ne peut pas le lire&#xa0;: %3</translation>
    </message>
    <message>
        <source>%1: its debug information cannot be read</source>
        <translation>%1&#xa0;: ses informations de débogage ne peuvent pas être lues</translation>
    </message>
</context>
</TS>
