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
        <translation>Banc d&apos;essai</translation>
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
    <name>Kyr_zip_err</name>
    <message>
        <source>invalid file version: %1. the file is newer than the actual program version: %2</source>
        <translation>Version de fichier non valide : %1. Le fichier est plus récent que la version actuelle du programme : %2</translation>
    </message>
    <message>
        <source>unknown file version</source>
        <translation>version de fichier inconnue</translation>
    </message>
    <message>
        <source>cannot read zip stream header</source>
        <translation>Impossible de lire l&apos;en-tête du flux zip.</translation>
    </message>
    <message>
        <source>invalid zip stream header</source>
        <translation>En-tête de flux zip non valide.</translation>
    </message>
    <message>
        <source>invalid header: the file was transferred by ascii-ftp.
it must be transferred by binary-ftp.</source>
        <translation>En-tête non valide : le fichier a été transféré par FTP en mode texte (ASCII).
Il doit être transféré en mode binaire.</translation>
    </message>
</context>
</TS>
