<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>KyrApplication</name>
    <message>
        <source>Sheet Forming</source>
        <translation>Formage de tôle</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Mouvement</translation>
    </message>
    <message>
        <source>Inspection</source>
        <translation>Contrôle</translation>
    </message>
    <message>
        <source>Viewer</source>
        <translation>Visionneuse</translation>
    </message>
    <message>
        <source>Deformation</source>
        <translation>Déformation</translation>
    </message>
    <message>
        <source>Material Test</source>
        <translation>Essai de matériaux</translation>
    </message>
    <message>
        <source>Test Rig</source>
        <translation>Banc d’essai</translation>
    </message>
    <message>
        <source>Launcher</source>
        <translation>Lanceur</translation>
    </message>
    <message>
        <source>Computing Server</source>
        <translation>Serveur de calcul</translation>
    </message>
    <message>
        <source>Sensor</source>
        <translation>Capteur</translation>
    </message>
    <message>
        <source>Large Structure</source>
        <translation>Grande structure</translation>
    </message>
    <message>
        <source>Production Cell</source>
        <translation>Cellule de production</translation>
    </message>
</context>
<context>
    <name>KyrChangeLog</name>
    <message>
        <source>new %1.</source>
        <translation>ajout de %1.</translation>
    </message>
    <message>
        <source>%1 renamed to %2.</source>
        <translation>%1 renommé en %2.</translation>
    </message>
    <message>
        <source>removed %1.</source>
        <translation>suppression de %1.</translation>
    </message>
    <message>
        <source>changed semantics of %1.</source>
        <translation>sémantique de %1 modifiée.</translation>
    </message>
</context>
<context>
    <name>KyrLibraryHistory</name>
    <message>
        <source>Reports a broken invariant and ends the process.</source>
        <translation>Signale un invariant violé et met fin au processus.</translation>
    </message>
    <message>
        <source>Sorts item9 before item10.</source>
        <translation>Classe item9 avant item10.</translation>
    </message>
    <message>
        <source>With its kin for other numbers, the same under every locale.</source>
        <translation>Comme les fonctions sœurs pour d’autres nombres, identique dans toutes les langues du système.</translation>
    </message>
    <message>
        <source>On Linux only.</source>
        <translation>Sous Linux uniquement.</translation>
    </message>
    <message>
        <source>Finds the next free number of a series of files.</source>
        <translation>Trouve le prochain numéro libre d’une série de fichiers.</translation>
    </message>
    <message>
        <source>Gives way when its owner no longer lives.</source>
        <translation>Cède la place quand son propriétaire n’existe plus.</translation>
    </message>
    <message>
        <source>Hands an exception of its work to the thread that waits for it.</source>
        <translation>Transmet une exception de son travail au thread qui l’attend.</translation>
    </message>
    <message>
        <source>Tells at which byte a file is damaged or cut short.</source>
        <translation>Indique à quel octet un fichier est endommagé ou tronqué.</translation>
    </message>
    <message>
        <source>Bounded in memory by ZippedTarLimits.</source>
        <translation>Sa mémoire est limitée par ZippedTarLimits.</translation>
    </message>
    <message>
        <source>libKyr %1: changes of the interface</source>
        <translation>libKyr %1&#xa0;: changements de l’interface</translation>
    </message>
    <message>
        <source>Reads and writes quantities as people do.</source>
        <translation>Lit et écrit les grandeurs comme on le fait à la main.</translation>
    </message>
</context>
<context>
    <name>Kyr_FileParse</name>
    <message>
        <source>column %1</source>
        <translation>colonne %1</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>ligne %1</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>ligne %1, colonne %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no pair %3=&quot;...&quot;</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un couple %3=&quot;...&quot;</translation>
    </message>
    <message>
        <source>the line ends too early</source>
        <translation>la ligne se termine trop tôt</translation>
    </message>
    <message>
        <source>the line is too long</source>
        <translation>la ligne est trop longue</translation>
    </message>
    <message>
        <source>the file ends in the middle of this line</source>
        <translation>le fichier se termine au milieu de cette ligne</translation>
    </message>
    <message>
        <source>the file ends</source>
        <translation>le fichier se termine</translation>
    </message>
    <message>
        <source>the file ends where &quot;%2&quot; is expected</source>
        <translation>le fichier se termine où «&#xa0;%2&#xa0;» est attendu</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands where &quot;%2&quot; is expected</source>
        <translation>«&#xa0;%1&#xa0;» se trouve où «&#xa0;%2&#xa0;» est attendu</translation>
    </message>
    <message>
        <source>the file cannot be read to its end</source>
        <translation>le fichier ne peut pas être lu jusqu’à la fin</translation>
    </message>
    <message>
        <source>a value is missing</source>
        <translation>il manque une valeur</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no integer</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un entier</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un nombre</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not within %3</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas compris dans %3</translation>
    </message>
</context>
<context>
    <name>Kyr_Quantity</name>
    <message>
        <source>A number is missing.</source>
        <translation>Il manque un nombre.</translation>
    </message>
    <message>
        <source>No number begins here.</source>
        <translation>Aucun nombre ne commence ici.</translation>
    </message>
    <message>
        <source>A digit is missing.</source>
        <translation>Il manque un chiffre.</translation>
    </message>
    <message>
        <source>%1 may be %2 or %3: write %4 or %5.</source>
        <translation>%1 peut être %2 ou %3&#xa0;: écrivez %4 ou %5.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; separates no groups of three digits here; the decimal separator is &quot;%2&quot;.</source>
        <translation>«&#xa0;%1&#xa0;» ne sépare pas ici des groupes de trois chiffres&#xa0;; le séparateur décimal est «&#xa0;%2&#xa0;».</translation>
    </message>
    <message>
        <source>A number has only one decimal separator.</source>
        <translation>Un nombre n’a qu’un séparateur décimal.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no fraction.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une fraction.</translation>
    </message>
    <message>
        <source>The number is too large.</source>
        <translation>Le nombre est trop grand.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no unit here; known are %2.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une unité ici&#xa0;; sont connues %2.</translation>
    </message>
    <message>
        <source>A unit is missing.</source>
        <translation>Il manque une unité.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot follow here.</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas suivre ici.</translation>
    </message>
    <message>
        <source>The smallest value is %1.</source>
        <translation>La plus petite valeur est %1.</translation>
    </message>
    <message>
        <source>The largest value is %1.</source>
        <translation>La plus grande valeur est %1.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no kind, unit and decimals.</source>
        <translation>«&#xa0;%1&#xa0;» n’indique pas la nature, l’unité et les décimales.</translation>
    </message>
    <message>
        <source>The number is too close to zero.</source>
        <translation>Le nombre est trop proche de zéro.</translation>
    </message>
    <message>
        <source>Either all parts of a sum have a unit or none has.</source>
        <translation>Soit tous les termes d’une somme ont une unité, soit aucun.</translation>
    </message>
    <message>
        <source>Only one factor may have a unit.</source>
        <translation>Un seul facteur peut avoir une unité.</translation>
    </message>
    <message>
        <source>A divisor may not have a unit.</source>
        <translation>Un diviseur ne peut pas avoir d’unité.</translation>
    </message>
    <message>
        <source>Nothing can be divided by zero.</source>
        <translation>Rien ne peut être divisé par zéro.</translation>
    </message>
    <message>
        <source>A closing parenthesis is missing.</source>
        <translation>Une parenthèse fermante manque.</translation>
    </message>
    <message>
        <source>There are too many parentheses in each other.</source>
        <translation>Trop de parenthèses sont imbriquées.</translation>
    </message>
</context>
<context>
    <name>Kyr_Translator</name>
    <message>
        <source>language: english</source>
        <translation>Anglais</translation>
    </message>
    <message>
        <source>language: german</source>
        <translation>Allemand</translation>
    </message>
    <message>
        <source>language: french</source>
        <translation>Français</translation>
    </message>
    <message>
        <source>language: japanese</source>
        <translation>Japonais</translation>
    </message>
    <message>
        <source>language: chinese</source>
        <translation>Chinois</translation>
    </message>
    <message>
        <source>language: portuguese</source>
        <translation>Portugais</translation>
    </message>
</context>
<context>
    <name>Kyr_crash</name>
    <message>
        <source>%1 has crashed. The report is %2, the dump is %3.</source>
        <translation>%1 s’est arrêté sur une erreur. Le rapport est dans %2, l’image de la mémoire dans %3.</translation>
    </message>
    <message>
        <source>%1 has crashed. The report is %2; there is no dump.</source>
        <translation>%1 s’est arrêté sur une erreur. Le rapport est dans %2&#xa0;; il n’y a pas d’image de la mémoire.</translation>
    </message>
</context>
<context>
    <name>Kyr_diagnostics</name>
    <message>
        <source>line %1: %2</source>
        <translation>ligne %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no colour: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une couleur&#xa0;: %2</translation>
    </message>
    <message>
        <source>red, green, blue and alpha are numbers from 0 to 255, or together #rrggbbaa</source>
        <translation>le rouge, le vert, le bleu et l’alpha sont des nombres de 0 à 255, ou ensemble #rrggbbaa</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no font: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une police&#xa0;: %2</translation>
    </message>
    <message>
        <source>the size is a number of points from 0.1 to 10000</source>
        <translation>la taille est un nombre de points de 0.1 à 10000, avec un point décimal</translation>
    </message>
    <message>
        <source>the weight is a number from 1 to 1000, 400 is normal</source>
        <translation>la graisse est un nombre de 1 à 1000&#xa0;; 400 est la valeur normale</translation>
    </message>
    <message>
        <source>behind the weight come italic, underline, strikeout and fixed, each once</source>
        <translation>la graisse est suivie de italic, underline, strikeout et fixed, chacun une fois au plus</translation>
    </message>
    <message>
        <source>the family is one word, with \_ for each of its blanks</source>
        <translation>la famille est un seul mot, avec \_ pour chaque espace</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no sound: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un son&#xa0;: %2</translation>
    </message>
    <message>
        <source>the volume is a number from 0 to 100</source>
        <translation>le volume est un nombre de 0 à 100</translation>
    </message>
    <message>
        <source>the repetitions are a number from 1 to 1000000, or 0 without an end</source>
        <translation>le nombre de répétitions va de 1 à 1000000, ou 0 pour sans fin</translation>
    </message>
    <message>
        <source>the file is one word, with \_ for each of its blanks</source>
        <translation>le fichier est un seul mot, avec \_ pour chaque espace</translation>
    </message>
    <message>
        <source>nothing may follow the repetitions</source>
        <translation>rien ne doit suivre le nombre de répétitions</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 ne peut pas être écrit&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 exists already and is not replaced</source>
        <translation>%1 existe déjà et n’est pas remplacé</translation>
    </message>
    <message>
        <source>the file ends in the middle of this line</source>
        <translation>le fichier se termine au milieu de cette ligne</translation>
    </message>
</context>
<context>
    <name>Kyr_zip_err</name>
    <message>
        <source>invalid file version: %1. the file is newer than the actual program version: %2</source>
        <translation>Version de fichier non valide&#xa0;: %1. Le fichier est plus récent que la version actuelle du programme&#xa0;: %2</translation>
    </message>
    <message>
        <source>unknown file version</source>
        <translation>version de fichier inconnue</translation>
    </message>
    <message>
        <source>cannot read zip stream header</source>
        <translation>Impossible de lire l’en-tête du flux zip.</translation>
    </message>
    <message>
        <source>invalid zip stream header</source>
        <translation>En-tête de flux zip non valide.</translation>
    </message>
    <message>
        <source>invalid header: the file was transferred by ascii-ftp.
it must be transferred by binary-ftp.</source>
        <translation>En-tête non valide&#xa0;: le fichier a été transféré par FTP en mode texte (ASCII).
Il doit être transféré en mode binaire.</translation>
    </message>
</context>
</TS>
