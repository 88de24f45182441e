<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Gauge</name>
    <message>
        <source>Gauge</source>
        <translation>Cadran</translation>
    </message>
    <message>
        <source>&amp;Length</source>
        <translation>&amp;Longueur</translation>
    </message>
    <message>
        <source>&amp;Temperature</source>
        <translation>&amp;Température</translation>
    </message>
    <message>
        <source>&amp;Angle</source>
        <translation>&amp;Angle</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>&amp;Unité</translation>
    </message>
    <message>
        <source>Any unit may follow the number.</source>
        <translation>Toute unité peut suivre le nombre.</translation>
    </message>
    <message>
        <source>Try gauge --help.</source>
        <translation>Essayez gauge --help.</translation>
    </message>
    <message>
        <source>there is no gauge for %1</source>
        <translation>il n’y a pas de cadran pour %1</translation>
    </message>
    <message>
        <source>Shows a quantity that is typed as people write it.</source>
        <translation>Affiche une grandeur saisie comme on l’écrit.</translation>
    </message>
    <message>
        <source>quantity</source>
        <translation>grandeur</translation>
    </message>
    <message>
        <source>what the field holds at first</source>
        <translation>ce que le champ contient au début</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>affiche cette aide</translation>
    </message>
    <message>
        <source>kind</source>
        <translation>nature</translation>
    </message>
    <message>
        <source>in which the quantity is shown</source>
        <translation>dans laquelle la grandeur est affichée</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>unité</translation>
    </message>
    <message>
        <source>writes a picture of the window and ends</source>
        <translation>écrit une image de la fenêtre et se termine</translation>
    </message>
    <message>
        <source>give one quantity, in quotes</source>
        <translation>donnez une seule grandeur, entre guillemets</translation>
    </message>
    <message>
        <source>the gauge has no unit %1</source>
        <translation>le cadran n’a pas d’unité %1</translation>
    </message>
    <message>
        <source>there is no display for a window; --screenshot needs none</source>
        <translation>Il n’y a pas d’écran pour une fenêtre&#xa0;; avec --screenshot il n’en faut pas.</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>impossible d’écrire %1</translation>
    </message>
</context>
<context>
    <name>Surface</name>
    <message>
        <source>stopped by the user</source>
        <translation>interrompu par l’utilisateur</translation>
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
        <source>reading stopped early</source>
        <translation>la lecture a été arrêtée avant la fin</translation>
    </message>
    <message>
        <source>the content is no surface of this program</source>
        <translation>le contenu n’est pas une surface de ce programme</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>impossible d’écrire %1</translation>
    </message>
    <message>
        <source>%1 holds no surface</source>
        <translation>%1 ne contient aucune surface</translation>
    </message>
    <message>
        <source>lines with unknown keys, all told: %1</source>
        <translation>lignes à mot-clé inconnu, au total&#xa0;: %1</translation>
    </message>
    <message>
        <source>unknown key, line skipped: %1</source>
        <translation>mot-clé inconnu, ligne ignorée&#xa0;: %1</translation>
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
        <source>the system starts no threads for the analysis</source>
        <translation>le système ne lance aucun thread pour l’analyse</translation>
    </message>
    <message>
        <source>a coordinate must be finite</source>
        <translation>une coordonnée doit être finie</translation>
    </message>
    <message>
        <source>there is no such point</source>
        <translation>ce point n’existe pas</translation>
    </message>
    <message>
        <source>missing are %1 and %2</source>
        <translation>il manque %1 et %2</translation>
    </message>
    <message numerus="yes">
        <source>the file is damaged: %1 of its %2 bytes of content is lost; the others were checked and are good</source>
        <comment>the file is damaged: %1 of its %2 bytes of content are lost; the others were checked and are good</comment>
        <translation>
            <numerusform>le fichier est endommagé&#xa0;: %1 des %2 octets de son contenu est perdu&#xa0;; les autres ont été vérifiés et sont bons</numerusform>
            <numerusform>le fichier est endommagé&#xa0;: %1 des %2 octets de son contenu sont perdus&#xa0;; les autres ont été vérifiés et sont bons</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file is damaged, as byte %1 shows; what was read before (%2 byte) may be wrong</source>
        <comment>the file is damaged, as byte %1 shows; what was read before (%2 bytes) may be wrong</comment>
        <translation>
            <numerusform>le fichier est endommagé, comme le montre l’octet %1&#xa0;; ce qui a été lu avant (%2 octet) peut être faux</numerusform>
            <numerusform>le fichier est endommagé, comme le montre l’octet %1&#xa0;; ce qui a été lu avant (%2 octets) peut être faux</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file ends too early, at byte %1; the first %2 byte of content is good</source>
        <comment>the file ends too early, at byte %1; the first %2 bytes of content are good</comment>
        <translation>
            <numerusform>le fichier se termine trop tôt, à l’octet %1&#xa0;; %2 octet du contenu est bon</numerusform>
            <numerusform>le fichier se termine trop tôt, à l’octet %1&#xa0;; les %2 premiers octets du contenu sont bons</numerusform>
        </translation>
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
        <source>%1 line</source>
        <comment>%1 lines</comment>
        <translation>
            <numerusform>%1 ligne</numerusform>
            <numerusform>%1 lignes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 data line</source>
        <comment>%1 data lines</comment>
        <translation>
            <numerusform>%1 ligne de données</numerusform>
            <numerusform>%1 lignes de données</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 open edge</source>
        <comment>%1 open edges</comment>
        <translation>
            <numerusform>%1 arête libre</numerusform>
            <numerusform>%1 arêtes libres</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 point</source>
        <comment>%1 points</comment>
        <translation>
            <numerusform>%1 point</numerusform>
            <numerusform>%1 points</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 triangle</source>
        <comment>%1 triangles</comment>
        <translation>
            <numerusform>%1 triangle</numerusform>
            <numerusform>%1 triangles</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 worker</source>
        <comment>%1 workers</comment>
        <translation>
            <numerusform>%1 thread</numerusform>
            <numerusform>%1 threads</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Tour</name>
    <message>
        <source>cannot read %1: %2</source>
        <translation>impossible de lire %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>cannot write %1: %2</source>
        <translation>impossible d’écrire %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>harmless here: the content is the same</source>
        <translation>sans effet ici&#xa0;: le contenu est le même</translation>
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
        <translation>%1 fois, côte à côte&#xa0;: %2</translation>
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
        <translation>la surface a %1&#xa0;; son volume est fermé par le centre</translation>
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
        <translation>%1 s de calcul en %2 s&#xa0;: %3 processeurs occupés</translation>
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
        <translation>%1 sans courbure&#xa0;: aucun triangle d’aire non nulle</translation>
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
        <translation>DIFFÉRENT&#xa0;: %1</translation>
    </message>
    <message>
        <source>libKyr %1: a scan from text to a project file and back</source>
        <translation>libKyr %1&#xa0;: un scan, du texte au fichier de projet et retour</translation>
    </message>
    <message>
        <source>What damage looks like (on copies)</source>
        <translation>Effet des dommages (sur des copies)</translation>
    </message>
    <message>
        <source>no damaged copy was taken for good data</source>
        <translation>aucune copie endommagée n’a été prise pour de bonnes données</translation>
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
        <translation>QUELQUE CHOSE N’A PAS TENU.</translation>
    </message>
    <message>
        <source>cannot write to standard output</source>
        <translation>impossible d’écrire sur la sortie standard</translation>
    </message>
    <message>
        <source>%1; nothing is half written</source>
        <translation>%1&#xa0;; rien n’est à moitié écrit</translation>
    </message>
    <message>
        <source>out of memory (%1)</source>
        <translation>mémoire épuisée (%1)</translation>
    </message>
    <message>
        <source>working</source>
        <translation>en cours</translation>
    </message>
    <message>
        <source>the system starts no thread for the analysis</source>
        <translation>le système ne lance pas de thread pour l’analyse</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>impossible d’écrire %1</translation>
    </message>
    <message>
        <source>cannot pack %1</source>
        <translation>impossible d’archiver %1</translation>
    </message>
    <message>
        <source>cannot make a folder in %1 for temporary files</source>
        <translation>impossible de créer dans %1 un dossier pour les fichiers temporaires</translation>
    </message>
    <message>
        <source>Pack it all</source>
        <translation>Tout archiver</translation>
    </message>
    <message>
        <source>Try tour --help.</source>
        <translation>Essayez tour --help.</translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3</source>
        <translation>--%1 attend un nombre de %2 à %3</translation>
    </message>
    <message>
        <source>the project file would replace %1</source>
        <translation>le fichier de projet remplacerait %1</translation>
    </message>
    <message>
        <source>the archive would replace %1</source>
        <translation>l’archive remplacerait %1</translation>
    </message>
    <message>
        <source>Reads a scan, measures it, keeps it in a project file and packs it all.</source>
        <translation>Lit un scan, le mesure, le conserve dans un fichier de projet et archive le tout.</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>affiche cette aide</translation>
    </message>
    <message>
        <source>scan</source>
        <translation>scan</translation>
    </message>
    <message>
        <source>an OBJ file</source>
        <translation>un fichier OBJ</translation>
    </message>
    <message>
        <source>what one unit of the file is; default mm</source>
        <translation>ce que vaut une unité du fichier&#xa0;; mm par défaut</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>unité</translation>
    </message>
    <message>
        <source>where the project file goes; default here</source>
        <translation>où va le fichier de projet&#xa0;; ici par défaut</translation>
    </message>
    <message>
        <source>directory</source>
        <translation>dossier</translation>
    </message>
    <message>
        <source>where it is all packed as a tar.gz; default beside the project file</source>
        <translation>où tout est archivé en tar.gz&#xa0;; à côté du fichier de projet par défaut</translation>
    </message>
    <message>
        <source>how often the scan is repeated, side by side; default 1</source>
        <translation>nombre de répétitions du scan, côte à côte&#xa0;; 1 par défaut</translation>
    </message>
    <message>
        <source>number</source>
        <translation>nombre</translation>
    </message>
    <message>
        <source>threads that analyse it; default one per processor</source>
        <translation>threads pour l’analyse&#xa0;; un par processeur par défaut</translation>
    </message>
    <message>
        <source>how often normals are smoothed; default 2</source>
        <translation>nombre de lissages des normales&#xa0;; 2 par défaut</translation>
    </message>
    <message>
        <source>give one OBJ file</source>
        <translation>indiquez un fichier OBJ</translation>
    </message>
    <message>
        <source>no unit of length is called %1</source>
        <translation>aucune unité de longueur ne s’appelle %1</translation>
    </message>
    <message>
        <source>saved of it</source>
        <translation>sauvé</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 piece, equal to what was written</source>
        <comment>%1 of %2 pieces, equal to what was written</comment>
        <translation>
            <numerusform>%1 morceau sur %2, identique à ce qui a été écrit</numerusform>
            <numerusform>%1 morceaux sur %2, identiques à ce qui a été écrit</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %2 piece, NOT WHAT WAS WRITTEN</source>
        <comment>%1 of %2 pieces, NOT WHAT WAS WRITTEN</comment>
        <translation>
            <numerusform>%1 morceau sur %2, DIFFÉRENT DE CE QUI A ÉTÉ ÉCRIT</numerusform>
            <numerusform>%1 morceaux sur %2, DIFFÉRENTS DE CE QUI A ÉTÉ ÉCRIT</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>Legend of the colours</source>
        <translation>Légende des couleurs</translation>
    </message>
    <message>
        <source>Mean curvature, %1: %2</source>
        <translation>Courbure moyenne, %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Curvature</source>
        <translation>Courbure</translation>
    </message>
    <message>
        <source>Mean curvature</source>
        <translation>Courbure moyenne</translation>
    </message>
    <message>
        <source>in %1</source>
        <translation>en %1</translation>
    </message>
    <message>
        <source>ridges</source>
        <translation>crêtes</translation>
    </message>
    <message>
        <source>hollows</source>
        <translation>creux</translation>
    </message>
    <message>
        <source>Try viewer --help.</source>
        <translation>Essayez viewer --help.</translation>
    </message>
    <message>
        <source>no size: %1; it should look like 1280x800</source>
        <translation>pas une taille&#xa0;: %1&#xa0;; il faudrait par exemple 1280x800</translation>
    </message>
    <message>
        <source>Shows a scan, coloured by its curvature.</source>
        <translation>Montre un scan, coloré selon sa courbure.</translation>
    </message>
    <message>
        <source>shows this</source>
        <translation>affiche cette aide</translation>
    </message>
    <message>
        <source>file</source>
        <translation>fichier</translation>
    </message>
    <message>
        <source>an OBJ file or a project (.kyr)</source>
        <translation>un fichier OBJ ou un projet (.kyr)</translation>
    </message>
    <message>
        <source>what one unit of an OBJ file is; default mm</source>
        <translation>ce que vaut une unité d’un fichier OBJ&#xa0;; mm par défaut</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>unité</translation>
    </message>
    <message>
        <source>how often the scan is shown, side by side; default 1</source>
        <translation>combien de fois le scan est montré, côte à côte&#xa0;; 1 par défaut</translation>
    </message>
    <message>
        <source>number</source>
        <translation>nombre</translation>
    </message>
    <message>
        <source>writes a picture of the window and ends</source>
        <translation>écrit une image de la fenêtre et se termine</translation>
    </message>
    <message>
        <source>of the window; default 1280x800</source>
        <translation>de la fenêtre&#xa0;; 1280x800 par défaut</translation>
    </message>
    <message>
        <source>size</source>
        <translation>taille</translation>
    </message>
    <message>
        <source>give one file</source>
        <translation>indiquez un seul fichier</translation>
    </message>
    <message>
        <source>no number of copies: %1</source>
        <translation>pas un nombre de copies&#xa0;: %1</translation>
    </message>
    <message>
        <source>no unit of length is called %1</source>
        <translation>aucune unité de longueur ne s’appelle %1</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>impossible d’écrire %1</translation>
    </message>
    <message>
        <source>a screenshot needs a file</source>
        <translation>une capture d’écran demande un fichier</translation>
    </message>
    <message>
        <source>Scan viewer</source>
        <translation>Visionneuse de scans</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Ouvrir…</translation>
    </message>
    <message>
        <source>&amp;Save picture…</source>
        <translation>&amp;Enregistrer l’image…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Vue</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>A&amp;juster</translation>
    </message>
    <message>
        <source>&amp;Oblique</source>
        <translation>&amp;Oblique</translation>
    </message>
    <message>
        <source>F&amp;ront</source>
        <translation>A&amp;vant</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Arrière</translation>
    </message>
    <message>
        <source>&amp;Left</source>
        <translation>&amp;Gauche</translation>
    </message>
    <message>
        <source>Ri&amp;ght</source>
        <translation>D&amp;roite</translation>
    </message>
    <message>
        <source>&amp;Top</source>
        <translation>&amp;Dessus</translation>
    </message>
    <message>
        <source>Botto&amp;m</source>
        <translation>De&amp;ssous</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Ajuster</translation>
    </message>
    <message>
        <source>Show all of the scan (F)</source>
        <translation>Montrer tout le scan (F)</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Vue initiale</translation>
    </message>
    <message>
        <source>Back to the first view (Home)</source>
        <translation>Revenir à la première vue (Début)</translation>
    </message>
    <message>
        <source>Drop a scan here</source>
        <translation>Déposez un scan ici</translation>
    </message>
    <message>
        <source>an OBJ file, or a project (.kyr)</source>
        <translation>un fichier OBJ ou un projet (.kyr)</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>Ouvrir…</translation>
    </message>
    <message>
        <source>Open a scan</source>
        <translation>Ouvrir un scan</translation>
    </message>
    <message>
        <source>Scans and projects</source>
        <translation>Scans et projets</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Tous les fichiers</translation>
    </message>
    <message>
        <source>Save the picture</source>
        <translation>Enregistrer l’image</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 n’a pas pu être écrit.</translation>
    </message>
    <message>
        <source>%1 was not opened: %2</source>
        <translation>%1 n’a pas été ouvert&#xa0;: %2</translation>
    </message>
    <message>
        <source>Opening %1 was aborted.</source>
        <translation>L’ouverture de %1 a été interrompue.</translation>
    </message>
    <message>
        <source>%1 – Scan viewer</source>
        <translation>%1 – Visionneuse de scans</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>Put the message away</source>
        <translation>Fermer le message</translation>
    </message>
    <message>
        <source>Project, %1</source>
        <translation>Projet, %1</translation>
    </message>
    <message>
        <source>Scan, %1</source>
        <translation>Scan, %1</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>Lecture de %1</translation>
    </message>
    <message>
        <source>Measuring</source>
        <translation>Mesure</translation>
    </message>
    <message>
        <source>the scan is too large to be measured</source>
        <translation>le scan est trop grand pour être mesuré</translation>
    </message>
    <message>
        <source>Preparing the picture</source>
        <translation>Préparation de l’image</translation>
    </message>
    <message>
        <source>the system starts no thread for it</source>
        <translation>le système ne lance pas de thread pour cela</translation>
    </message>
    <message>
        <source>there is not enough memory for this scan</source>
        <translation>il n’y a pas assez de mémoire pour ce scan</translation>
    </message>
    <message>
        <source>Numbers of the scan</source>
        <translation>Chiffres du scan</translation>
    </message>
    <message>
        <source>Unit of length</source>
        <translation>Unité de longueur</translation>
    </message>
    <message>
        <source>Unit of length; areas, volumes and curvatures follow</source>
        <translation>Unité de longueur&#xa0;; aires, volumes et courbures la suivent</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>&amp;Unité</translation>
    </message>
    <message>
        <source>Surface</source>
        <translation>Surface</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Points</translation>
    </message>
    <message>
        <source>Triangles</source>
        <translation>Triangles</translation>
    </message>
    <message>
        <source>Open edges</source>
        <translation>Arêtes libres</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Dimensions</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Largeur</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Hauteur</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Profondeur</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>Aire</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Open surface: its volume is closed over its middle.</source>
        <translation>Surface ouverte&#xa0;: son volume est fermé par le centre.</translation>
    </message>
    <message>
        <source>Highest</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>5 % lie above</source>
        <translation>95e centile</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>Médiane</translation>
    </message>
    <message>
        <source>5 % lie below</source>
        <translation>5e centile</translation>
    </message>
    <message>
        <source>Lowest</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>No scan</source>
        <translation>Aucun scan</translation>
    </message>
    <message>
        <source>Open one to see its numbers</source>
        <translation>Ouvrez-en un pour voir ses chiffres</translation>
    </message>
    <message>
        <source>Drag to turn  ·  Shift-drag to move  ·  Wheel to zoom</source>
        <translation>Glisser tourne  ·  Glisser avec Maj déplace  ·  Molette zoome</translation>
    </message>
    <message>
        <source>Curvature under the mouse</source>
        <translation>Courbure sous la souris</translation>
    </message>
    <message>
        <source>Progress of the computation</source>
        <translation>Avancement du calcul</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Interrompre</translation>
    </message>
    <message>
        <source>Abort the computation</source>
        <translation>Interrompre le calcul</translation>
    </message>
    <message>
        <source>Stops the computation and keeps what is shown (Esc)</source>
        <translation>Arrête le calcul et garde ce qui est affiché (Échap)</translation>
    </message>
    <message>
        <source>Curvature here  %1</source>
        <translation>Courbure ici  %1</translation>
    </message>
    <message>
        <source>Picture of the scan</source>
        <translation>Image du scan</translation>
    </message>
    <message>
        <source>Arrow keys turn it, plus and minus come nearer and go away</source>
        <translation>les flèches le tournent, plus et moins le rapprochent et l’éloignent</translation>
    </message>
    <message>
        <source>there is no display for a window; --screenshot needs none</source>
        <translation>Il n’y a pas d’écran pour une fenêtre&#xa0;; avec --screenshot il n’en faut pas.</translation>
    </message>
</context>
</TS>
