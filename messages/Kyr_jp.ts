<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>KyrApplication</name>
    <message>
        <source>Sheet Forming</source>
        <translation>板金成形</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>モーション</translation>
    </message>
    <message>
        <source>Inspection</source>
        <translation>検査</translation>
    </message>
    <message>
        <source>Viewer</source>
        <translation>ビューアー</translation>
    </message>
    <message>
        <source>Deformation</source>
        <translation>変形</translation>
    </message>
    <message>
        <source>Material Test</source>
        <translation>材料試験</translation>
    </message>
    <message>
        <source>Test Rig</source>
        <translation>試験装置</translation>
    </message>
    <message>
        <source>Launcher</source>
        <translation>ランチャー</translation>
    </message>
    <message>
        <source>Computing Server</source>
        <translation>計算サーバー</translation>
    </message>
    <message>
        <source>Sensor</source>
        <translation>センサー</translation>
    </message>
    <message>
        <source>Large Structure</source>
        <translation>大型構造物</translation>
    </message>
    <message>
        <source>Production Cell</source>
        <translation>生産セル</translation>
    </message>
</context>
<context>
    <name>Kyr_Translator</name>
    <message>
        <source>language: english</source>
        <translation>英語</translation>
    </message>
    <message>
        <source>language: german</source>
        <translation>ドイツ語</translation>
    </message>
    <message>
        <source>language: french</source>
        <translation>フランス語</translation>
    </message>
    <message>
        <source>language: japanese</source>
        <translation>日本語</translation>
    </message>
    <message>
        <source>language: chinese</source>
        <translation>中国語</translation>
    </message>
    <message>
        <source>language: portuguese</source>
        <translation>ポルトガル語</translation>
    </message>
</context>
<context>
    <name>Kyr_zip_err</name>
    <message>
        <source>invalid file version: %1. the file is newer than the actual program version: %2</source>
        <translation>ファイルのバージョンが無効です: %1。ファイルは現在のプログラムのバージョンより新しいものです: %2</translation>
    </message>
    <message>
        <source>unknown file version</source>
        <translation>不明なファイルバージョン</translation>
    </message>
    <message>
        <source>cannot read zip stream header</source>
        <translation>zip ストリームのヘッダーを読み取れません。</translation>
    </message>
    <message>
        <source>invalid zip stream header</source>
        <translation>zip ストリームのヘッダーが無効です。</translation>
    </message>
    <message>
        <source>invalid header: the file was transferred by ascii-ftp.
it must be transferred by binary-ftp.</source>
        <translation>ヘッダーが無効です: ファイルが FTP の ASCII モードで転送されました。
バイナリモードで転送する必要があります。</translation>
    </message>
</context>
</TS>
