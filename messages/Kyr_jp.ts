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
        <translation>不変条件の違反を報告し、プロセスを終了します。</translation>
    </message>
    <message>
        <source>Sorts item9 before item10.</source>
        <translation>item9 を item10 より前に並べます。</translation>
    </message>
    <message>
        <source>With its kin for other numbers, the same under every locale.</source>
        <translation>ほかの数値用の関数と同じく、どのロケールでも同じ結果になります。</translation>
    </message>
    <message>
        <source>On Linux only.</source>
        <translation>Linux のみ。</translation>
    </message>
    <message>
        <source>Finds the next free number of a series of files.</source>
        <translation>連番ファイルの次の空き番号を見つけます。</translation>
    </message>
    <message>
        <source>Gives way when its owner no longer lives.</source>
        <translation>所有者がもう存在しなければ、明け渡します。</translation>
    </message>
    <message>
        <source>Hands an exception of its work to the thread that waits for it.</source>
        <translation>処理中の例外を、待っているスレッドに引き渡します。</translation>
    </message>
    <message>
        <source>Tells at which byte a file is damaged or cut short.</source>
        <translation>ファイルが何バイト目で破損しているか、途切れているかを示します。</translation>
    </message>
    <message>
        <source>Bounded in memory by ZippedTarLimits.</source>
        <translation>使用メモリは ZippedTarLimits で制限されます。</translation>
    </message>
    <message>
        <source>libKyr %1: changes of the interface</source>
        <translation>libKyr %1: インターフェースの変更</translation>
    </message>
    <message>
        <source>Reads and writes quantities as people do.</source>
        <translation>人が書くとおりに量を読み書きします。</translation>
    </message>
</context>
<context>
    <name>Kyr_FileParse</name>
    <message>
        <source>column %1</source>
        <translation>%1 列目</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>%1 行目</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>%1 行目、%2 列目</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no pair %3=&quot;...&quot;</source>
        <translation>「%1」は %3=&quot;...&quot; の組ではありません</translation>
    </message>
    <message>
        <source>the line ends too early</source>
        <translation>行が途中で終わっています</translation>
    </message>
    <message>
        <source>the line is too long</source>
        <translation>行が長すぎます</translation>
    </message>
    <message>
        <source>the file ends in the middle of this line</source>
        <translation>ファイルがこの行の途中で終わっています</translation>
    </message>
    <message>
        <source>the file ends</source>
        <translation>ファイルが終わっています</translation>
    </message>
    <message>
        <source>the file ends where &quot;%2&quot; is expected</source>
        <translation>「%2」が必要な所でファイルが終わっています</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands where &quot;%2&quot; is expected</source>
        <translation>「%2」が必要な所に「%1」があります</translation>
    </message>
    <message>
        <source>the file cannot be read to its end</source>
        <translation>ファイルを最後まで読み取れません</translation>
    </message>
    <message>
        <source>a value is missing</source>
        <translation>値がありません</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no integer</source>
        <translation>「%1」は整数ではありません</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number</source>
        <translation>「%1」は数値ではありません</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not within %3</source>
        <translation>「%1」は %3 の範囲外です</translation>
    </message>
</context>
<context>
    <name>Kyr_Quantity</name>
    <message>
        <source>A number is missing.</source>
        <translation>数値がありません。</translation>
    </message>
    <message>
        <source>No number begins here.</source>
        <translation>ここには数値が必要です。</translation>
    </message>
    <message>
        <source>A digit is missing.</source>
        <translation>数字がありません。</translation>
    </message>
    <message>
        <source>%1 may be %2 or %3: write %4 or %5.</source>
        <translation>%1 は %2 とも %3 とも読めます。%4 または %5 と入力してください。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; separates no groups of three digits here; the decimal separator is &quot;%2&quot;.</source>
        <translation>「%1」はここでは 3 桁区切りではありません。小数点は「%2」です。</translation>
    </message>
    <message>
        <source>A number has only one decimal separator.</source>
        <translation>数値に使える小数点は 1 つだけです。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no fraction.</source>
        <translation>「%1」は分数ではありません。</translation>
    </message>
    <message>
        <source>The number is too large.</source>
        <translation>数値が大きすぎます。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no unit here; known are %2.</source>
        <translation>「%1」はここで使える単位ではありません。使える単位: %2。</translation>
    </message>
    <message>
        <source>A unit is missing.</source>
        <translation>単位がありません。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot follow here.</source>
        <translation>「%1」はここには続けられません。</translation>
    </message>
    <message>
        <source>The smallest value is %1.</source>
        <translation>最小値は %1 です。</translation>
    </message>
    <message>
        <source>The largest value is %1.</source>
        <translation>最大値は %1 です。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no kind, unit and decimals.</source>
        <translation>「%1」は量の種類、単位、小数桁数の指定ではありません。</translation>
    </message>
    <message>
        <source>The number is too close to zero.</source>
        <translation>数値がゼロに近すぎます。</translation>
    </message>
    <message>
        <source>Either all parts of a sum have a unit or none has.</source>
        <translation>和の項は、すべてに単位を付けるか、どれにも付けないかのどちらかです。</translation>
    </message>
    <message>
        <source>Only one factor may have a unit.</source>
        <translation>単位を付けられる因数は 1 つだけです。</translation>
    </message>
    <message>
        <source>A divisor may not have a unit.</source>
        <translation>除数には単位を付けられません。</translation>
    </message>
    <message>
        <source>Nothing can be divided by zero.</source>
        <translation>ゼロで割ることはできません。</translation>
    </message>
    <message>
        <source>A closing parenthesis is missing.</source>
        <translation>閉じ括弧がありません。</translation>
    </message>
    <message>
        <source>There are too many parentheses in each other.</source>
        <translation>括弧の入れ子が深すぎます。</translation>
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
    <name>Kyr_crash</name>
    <message>
        <source>%1 has crashed. The report is %2, the dump is %3.</source>
        <translation>%1 が異常終了しました。レポートは %2、メモリダンプは %3 にあります。</translation>
    </message>
    <message>
        <source>%1 has crashed. The report is %2; there is no dump.</source>
        <translation>%1 が異常終了しました。レポートは %2 にあります。メモリダンプはありません。</translation>
    </message>
</context>
<context>
    <name>Kyr_diagnostics</name>
    <message>
        <source>line %1: %2</source>
        <translation>%1 行目: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no colour: %2</source>
        <translation>「%1」は色ではありません: %2</translation>
    </message>
    <message>
        <source>red, green, blue and alpha are numbers from 0 to 255, or together #rrggbbaa</source>
        <translation>赤、緑、青、アルファは 0 から 255 の数値、またはまとめて #rrggbbaa と書きます</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no font: %2</source>
        <translation>「%1」はフォントではありません: %2</translation>
    </message>
    <message>
        <source>the size is a number of points from 0.1 to 10000</source>
        <translation>サイズは 0.1 から 10000 までのポイント数です</translation>
    </message>
    <message>
        <source>the weight is a number from 1 to 1000, 400 is normal</source>
        <translation>太さは 1 から 1000 までの数値で、400 が標準です</translation>
    </message>
    <message>
        <source>behind the weight come italic, underline, strikeout and fixed, each once</source>
        <translation>太さの後には italic、underline、strikeout、fixed をそれぞれ一度だけ書けます</translation>
    </message>
    <message>
        <source>the family is one word, with \_ for each of its blanks</source>
        <translation>ファミリー名は一語で、空白は \_ と書きます</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no sound: %2</source>
        <translation>「%1」は音ではありません: %2</translation>
    </message>
    <message>
        <source>the volume is a number from 0 to 100</source>
        <translation>音量は 0 から 100 までの数値です</translation>
    </message>
    <message>
        <source>the repetitions are a number from 1 to 1000000, or 0 without an end</source>
        <translation>繰り返し回数は 1 から 1000000 までの数値、または無限を表す 0 です</translation>
    </message>
    <message>
        <source>the file is one word, with \_ for each of its blanks</source>
        <translation>ファイル名は一語で、空白は \_ と書きます</translation>
    </message>
    <message>
        <source>nothing may follow the repetitions</source>
        <translation>繰り返し回数の後には何も書けません</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 に書き込めません: %2</translation>
    </message>
    <message>
        <source>%1 exists already and is not replaced</source>
        <translation>%1 はすでに存在するため、置き換えません</translation>
    </message>
    <message>
        <source>the file ends in the middle of this line</source>
        <translation>ファイルがこの行の途中で終わっています</translation>
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
