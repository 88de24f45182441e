<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_PT" sourcelanguage="en">
<context>
    <name>KyrApplication</name>
    <message>
        <source>Sheet Forming</source>
        <translation>Conformação de chapa</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Movimento</translation>
    </message>
    <message>
        <source>Inspection</source>
        <translation>Inspeção</translation>
    </message>
    <message>
        <source>Viewer</source>
        <translation>Visualizador</translation>
    </message>
    <message>
        <source>Deformation</source>
        <translation>Deformação</translation>
    </message>
    <message>
        <source>Material Test</source>
        <translation>Ensaio de materiais</translation>
    </message>
    <message>
        <source>Test Rig</source>
        <translation>Bancada de ensaio</translation>
    </message>
    <message>
        <source>Launcher</source>
        <translation>Iniciador</translation>
    </message>
    <message>
        <source>Computing Server</source>
        <translation>Servidor de cálculo</translation>
    </message>
    <message>
        <source>Sensor</source>
        <translation>Sensor</translation>
    </message>
    <message>
        <source>Large Structure</source>
        <translation>Grande estrutura</translation>
    </message>
    <message>
        <source>Production Cell</source>
        <translation>Célula de produção</translation>
    </message>
</context>
<context>
    <name>Kyr_Translator</name>
    <message>
        <source>language: english</source>
        <translation>Inglês</translation>
    </message>
    <message>
        <source>language: german</source>
        <translation>Alemão</translation>
    </message>
    <message>
        <source>language: french</source>
        <translation>Francês</translation>
    </message>
    <message>
        <source>language: japanese</source>
        <translation>Japonês</translation>
    </message>
    <message>
        <source>language: chinese</source>
        <translation>Chinês</translation>
    </message>
    <message>
        <source>language: portuguese</source>
        <translation>Português</translation>
    </message>
</context>
<context>
    <name>Kyr_zip_err</name>
    <message>
        <source>invalid file version: %1. the file is newer than the actual program version: %2</source>
        <translation>Versão de ficheiro inválida: %1. O ficheiro é mais recente do que a versão atual do programa: %2</translation>
    </message>
    <message>
        <source>unknown file version</source>
        <translation>versão de ficheiro desconhecida</translation>
    </message>
    <message>
        <source>cannot read zip stream header</source>
        <translation>Não é possível ler o cabeçalho do fluxo zip.</translation>
    </message>
    <message>
        <source>invalid zip stream header</source>
        <translation>Cabeçalho do fluxo zip inválido.</translation>
    </message>
    <message>
        <source>invalid header: the file was transferred by ascii-ftp.
it must be transferred by binary-ftp.</source>
        <translation>Cabeçalho inválido: o ficheiro foi transferido por FTP em modo ASCII.
Tem de ser transferido em modo binário.</translation>
    </message>
</context>
</TS>
