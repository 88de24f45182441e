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
