<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Surface</name>
    <message>
        <source>stopped by the user</source>
        <translation>interrompu par l&apos;utilisateur</translation>
    </message>
    <message>
        <source>Computing curvatures</source>
        <translation>Calcul des courbures</translation>
    </message>
    <message>
        <source>Sorting the corners of triangles</source>
        <translation>Tri des sommets des triangles</translation>
    </message>
    <message>
        <source>Finding neighbours and normals</source>
        <translation>Recherche des voisins et des normales</translation>
    </message>
    <message>
        <source>Smoothing normals</source>
        <translation>Lissage des normales</translation>
    </message>
    <message>
        <source>%1 copies of %2 are too many points</source>
        <translation>%1 copies de %2 font trop de points</translation>
    </message>
    <message>
        <source>the file is damaged, as byte %1 shows; what was read before (%2 bytes) may be wrong</source>
        <translation>le fichier est endommagé, comme le montre l&apos;octet %1 ; ce qui a été lu avant (%2 octets) peut être faux</translation>
    </message>
    <message>
        <source>the file ends too early, at byte %1; the first %2 bytes of content are good</source>
        <translation>le fichier se termine trop tôt, à l&apos;octet %1 ; les %2 premiers octets du contenu sont bons</translation>
    </message>
    <message>
        <source>reading stopped early</source>
        <translation>la lecture a été arrêtée avant la fin</translation>
    </message>
    <message>
        <source>the content is no surface of this program</source>
        <translation>le contenu n&apos;est pas une surface de ce programme</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>impossible d&apos;écrire %1</translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation>%1 ne contient aucune surface</translation>
    </message>
    <message>
        <source>cannot open %1</source>
        <translation>impossible d&apos;ouvrir %1</translation>
    </message>
    <message>
        <source>damaged line: %1</source>
        <translation>ligne endommagée : %1</translation>
    </message>
    <message>
        <source>cannot read %1 to its end</source>
        <translation>impossible de lire %1 jusqu&apos;à la fin</translation>
    </message>
    <message>
        <source>lines with unknown keys, all told: %1</source>
        <translation>lignes à mot-clé inconnu, au total : %1</translation>
    </message>
    <message>
        <source>unknown key, line skipped: %1</source>
        <translation>mot-clé inconnu, ligne ignorée : %1</translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, ligne %2 : %3</translation>
    </message>
    <message>
        <source>in less than 2 ms</source>
        <translation>en moins de 2 ms</translation>
    </message>
    <message>
        <source>at %1 MB/s</source>
        <translation>à %1 Mo/s</translation>
    </message>
    <message>
        <source>byte</source>
        <translation>octet</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>octets</translation>
    </message>
    <message>
        <source>line</source>
        <translation>ligne</translation>
    </message>
    <message>
        <source>lines</source>
        <translation>lignes</translation>
    </message>
    <message>
        <source>data line</source>
        <translation>ligne de données</translation>
    </message>
    <message>
        <source>data lines</source>
        <translation>lignes de données</translation>
    </message>
    <message>
        <source>open edge</source>
        <translation>arête libre</translation>
    </message>
    <message>
        <source>open edges</source>
        <translation>arêtes libres</translation>
    </message>
    <message>
        <source>point</source>
        <translation>point</translation>
    </message>
    <message>
        <source>points</source>
        <translation>points</translation>
    </message>
    <message>
        <source>triangle</source>
        <translation>triangle</translation>
    </message>
    <message>
        <source>triangles</source>
        <translation>triangles</translation>
    </message>
    <message>
        <source>worker</source>
        <translation>thread</translation>
    </message>
    <message>
        <source>workers</source>
        <translation>threads</translation>
    </message>
</context>
<context>
    <name>Tour</name>
    <message>
        <source>cannot read %1: %2</source>
        <translation>impossible de lire %1 : %2</translation>
    </message>
    <message>
        <source>cannot make a folder for temporary files</source>
        <translation>impossible de créer un dossier pour les fichiers temporaires</translation>
    </message>
    <message>
        <source>cannot write %1: %2</source>
        <translation>impossible d&apos;écrire %1 : %2</translation>
    </message>
    <message>
        <source>harmless here: the content is the same</source>
        <translation>sans effet ici : le contenu est le même</translation>
    </message>
    <message>
        <source>TAKEN FOR GOOD DATA</source>
        <translation>PRIS POUR DE BONNES DONNÉES</translation>
    </message>
    <message>
        <source>cut short</source>
        <translation>tronqué</translation>
    </message>
    <message>
        <source>one bit flipped</source>
        <translation>un bit inversé</translation>
    </message>
    <message>
        <source>sent as text</source>
        <translation>envoyé en texte</translation>
    </message>
    <message>
        <source>newer program</source>
        <translation>programme récent</translation>
    </message>
    <message>
        <source>Read the scan</source>
        <translation>Lecture du scan</translation>
    </message>
    <message>
        <source>file</source>
        <translation>fichier</translation>
    </message>
    <message>
        <source>holds</source>
        <translation>contient</translation>
    </message>
    <message>
        <source>text</source>
        <translation>texte</translation>
    </message>
    <message>
        <source>%1, %2, read %3</source>
        <translation>%1, %2, lu %3</translation>
    </message>
    <message>
        <source>read %1, %2 of them without geometry</source>
        <translation>%1 lues, dont %2 sans géométrie</translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation>%1 ne contient aucune surface</translation>
    </message>
    <message>
        <source>repeated</source>
        <translation>répété</translation>
    </message>
    <message>
        <source>%1 times, side by side: %2</source>
        <translation>%1 fois, côte à côte : %2</translation>
    </message>
    <message>
        <source>Measure it (one unit of the file is 1 %1)</source>
        <translation>Mesure (une unité du fichier vaut 1 %1)</translation>
    </message>
    <message>
        <source>%1 is too large to be measured</source>
        <translation>%1 est trop grand pour être mesuré</translation>
    </message>
    <message>
        <source>width</source>
        <translation>largeur</translation>
    </message>
    <message>
        <source>height</source>
        <translation>hauteur</translation>
    </message>
    <message>
        <source>depth</source>
        <translation>profondeur</translation>
    </message>
    <message>
        <source>surface</source>
        <translation>surface</translation>
    </message>
    <message>
        <source>volume</source>
        <translation>volume</translation>
    </message>
    <message>
        <source>the surface has %1; its volume is closed over the middle</source>
        <translation>la surface a %1 ; son volume est fermé par le centre</translation>
    </message>
    <message>
        <source>jobs</source>
        <translation>tâches</translation>
    </message>
    <message>
        <source>time</source>
        <translation>temps</translation>
    </message>
    <message>
        <source>%1 s of computing in %2 s: %3 processors busy</source>
        <translation>%1 s de calcul en %2 s : %3 processeurs occupés</translation>
    </message>
    <message>
        <source>mean curvature</source>
        <translation>courbure moy.</translation>
    </message>
    <message>
        <source>lowest</source>
        <translation>minimum</translation>
    </message>
    <message>
        <source>5% lie below</source>
        <translation>5% au-dessous</translation>
    </message>
    <message>
        <source>median</source>
        <translation>médiane</translation>
    </message>
    <message>
        <source>5% lie above</source>
        <translation>5% au-dessus</translation>
    </message>
    <message>
        <source>highest</source>
        <translation>maximum</translation>
    </message>
    <message>
        <source>Analyse it on %1</source>
        <translation>Analyse avec %1</translation>
    </message>
    <message>
        <source>curvatures</source>
        <translation>courbures</translation>
    </message>
    <message>
        <source>%1 without a curvature: no triangle of any area</source>
        <translation>%1 sans courbure : aucun triangle d&apos;aire non nulle</translation>
    </message>
    <message>
        <source>Keep it in a project file</source>
        <translation>Conservation dans un fichier de projet</translation>
    </message>
    <message>
        <source>wrote %1</source>
        <translation>%1 écrit</translation>
    </message>
    <message>
        <source>time of writing</source>
        <translation>écrit le</translation>
    </message>
    <message>
        <source>content</source>
        <translation>contenu</translation>
    </message>
    <message>
        <source>packed</source>
        <translation>compressé</translation>
    </message>
    <message>
        <source>%1, %2% of the content</source>
        <translation>%1, %2% du contenu</translation>
    </message>
    <message>
        <source>speed</source>
        <translation>débit</translation>
    </message>
    <message>
        <source>written %1, read %2</source>
        <translation>écrit %1, lu %2</translation>
    </message>
    <message>
        <source>compared</source>
        <translation>comparé</translation>
    </message>
    <message>
        <source>all %1 equal</source>
        <translation>%1, tous égaux</translation>
    </message>
    <message>
        <source>DIFFERENT: %1</source>
        <translation>DIFFÉRENT : %1</translation>
    </message>
    <message>
        <source>libKyr %1: a scan from text to a project file and back</source>
        <translation>libKyr %1 : un scan, du texte au fichier de projet et retour</translation>
    </message>
    <message>
        <source>What damage looks like (on copies)</source>
        <translation>Effet des dommages (sur des copies)</translation>
    </message>
    <message>
        <source>no damaged copy was taken for good data</source>
        <translation>aucune copie endommagée n&apos;a été prise pour de bonnes données</translation>
    </message>
    <message>
        <source>A DAMAGED COPY WAS TAKEN FOR GOOD</source>
        <translation>UNE COPIE ENDOMMAGÉE A ÉTÉ JUGÉE BONNE</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>Everything held.</source>
        <translation>Tout a tenu.</translation>
    </message>
    <message>
        <source>SOMETHING DID NOT HOLD.</source>
        <translation>QUELQUE CHOSE N&apos;A PAS TENU.</translation>
    </message>
    <message>
        <source>cannot write to standard output</source>
        <translation>impossible d&apos;écrire sur la sortie standard</translation>
    </message>
    <message>
        <source>%1; nothing is half written</source>
        <translation>%1 ; rien n&apos;est à moitié écrit</translation>
    </message>
    <message>
        <source>out of memory (%1)</source>
        <translation>mémoire épuisée (%1)</translation>
    </message>
    <message>
        <source>working</source>
        <translation>en cours</translation>
    </message>
</context>
</TS>
