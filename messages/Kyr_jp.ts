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
<context>
    <name>KyrChangeLog</name>
    <message>
        <source>new %1.</source>
        <translation>%1 を追加しました。</translation>
    </message>
    <message>
        <source>%1 renamed to %2.</source>
        <translation>%1 の名前を %2 に変更しました。</translation>
    </message>
    <message>
        <source>removed %1.</source>
        <translation>%1 を削除しました。</translation>
    </message>
    <message>
        <source>changed semantics of %1.</source>
        <translation>%1 の意味を変更しました。</translation>
    </message>
</context>
<context>
    <name>KyrLibraryHistory</name>
    <message>
        <source>Reports a broken invariant and ends the process.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sorts item9 before item10.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>With its kin for other numbers, the same under every locale.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On Linux only.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finds the next free number of a series of files.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gives way when its owner no longer lives.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hands an exception of its work to the thread that waits for it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tells at which byte a file is damaged or cut short.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bounded in memory by ZippedTarLimits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>libKyr %1: changes of the interface</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
